#include <cstdint>

#include "kernel/bit_order.h"
#include "kernel/tolerance.h"
#include "plcalc/arcs.h"
#include "plcalc/lines.h"

namespace {

using plcalc::below;
using plcalc::is_near;
using plcalc::scaled_tol;

// The ray ends this far east of the rightmost vertex, in the caller's unit.
constexpr double kRayBeyond = 1000.0;

// Lower than any coordinate in use; the search for the rightmost vertex starts from it.
constexpr double kFarWest = -1.7e+200;

// What an edge of the walk adds to the count.
enum class Edge {
    kNothing,      // clear of the ray, touching it, or along it
    kOrdinary,     // no end on the ray's line: the exact intersection decides
    kStartCounts,  // the boundary passes through the ray at the edge's start
    kEndCounts     // it passes at the edge's end: the next edge, which starts there, is skipped
};

// Where a vertex lies from the level of the point, the point's margin on either side.
enum class Level { kBelow, kOn, kAbove, kNoNumber };

// A closed ring by index.
class Ring {
public:
    Ring(const PL_PNT2D_record* vertices, int n) : vertices_(vertices), n_(n) {}

    const PL_PNT2D_record& at(int i) const { return vertices_[i]; }
    int size() const { return n_; }
    int last() const { return n_ - 1; }
    int after(int i) const { return i == n_ - 1 ? 0 : i + 1; }
    int before(int i) const { return i == 0 ? n_ - 1 : i - 1; }

private:
    const PL_PNT2D_record* vertices_;
    int n_;
};

// A vertex of the walk, with its level from the point: judged once, asked at four edges.
struct Stop {
    int at;
    Level level;
};

// Where the walk is: the edge from i to j, and the vertex that it came from.
struct Place {
    Stop prev;
    Stop i;
    Stop j;

    bool operator==(const Place& other) const
    {
        return prev.at == other.prev.at && i.at == other.i.at && j.at == other.j.at;
    }
};

// A walk that merges past vertex 0 starts another round at another vertex, and may end on a later one: on rings
// whose runs creep by less than the margin, only after as many rounds as a run has vertices. So many rounds are
// walked and no more; a run longer than that has its vertices closer together than any survey measures.
constexpr std::int64_t kMostRounds = 1024;

// Notices a walk that goes round for ever, by Brent's method (BIT 20, 1980): the place is compared with a
// mark that is set anew after 1, 2, 4, ... steps. No memory. And ends one that would take too long.
class RoundWatch {
public:
    RoundWatch(const Place& start, int n) : mark_(start), most_(kMostRounds * n) {}

    bool gives_up(const Place& now, std::int64_t passed)
    {
        if (now == mark_ || passed > most_)
            return true;
        if (++steps_ == reach_) {
            mark_ = now;
            steps_ = 0;
            reach_ *= 2;
        }
        return false;
    }

private:
    Place mark_;
    std::int64_t most_;
    std::int64_t steps_ = 0;
    std::int64_t reach_ = 1;
};

// Whether two coordinates are one within the margin of the second. Most are told apart by their bits.
bool one_line(double v, double w)
{
    return !plcalc::surely_apart(plcalc::ordered_bits(v), plcalc::ordered_bits(w)) && is_near(v, w);
}

bool on_one_level(const PL_PNT2D_record& p, const PL_PNT2D_record& q)
{
    return one_line(p.y, q.y);
}

bool on_one_plumb_line(const PL_PNT2D_record& p, const PL_PNT2D_record& q)
{
    return one_line(p.x, q.x);
}

// Moves k to the last vertex of the run that is in line with vertex j; k itself is the first candidate. Counts
// the vertices that it passes. False when the run goes all the way round.
bool skip_run(const Ring& ring, int j, int& k, std::int64_t& passed,
              bool (*in_line)(const PL_PNT2D_record&, const PL_PNT2D_record&))
{
    ++passed;
    if (!in_line(ring.at(j), ring.at(k)))
        return true;
    const int first = k;
    do {
        k = ring.after(k);
        ++passed;
        if (k == first)
            return false;
    } while (in_line(ring.at(j), ring.at(k)));
    k = ring.before(k);
    return true;
}

// Runs of vertices on a horizontal, then on a vertical line count as one side.
bool skip_runs(const Ring& ring, int j, int& k, std::int64_t& passed)
{
    return skip_run(ring, j, k, passed, on_one_level) && skip_run(ring, j, k, passed, on_one_plumb_line);
}

// The point, and its level as the walk asks for it.
class TestedPoint {
public:
    explicit TestedPoint(const PL_PNT2D_record& pt)
        : pt_(pt), low_(plcalc::ordered_bits(pt.y - scaled_tol(pt.y))),
          high_(plcalc::ordered_bits(pt.y + scaled_tol(pt.y)))
    {
        comparable_ = !plcalc::ordered_nan(low_) && !plcalc::ordered_nan(high_);
    }

    const PL_PNT2D_record& at() const { return pt_; }

    Level level_of(double y) const
    {
        const std::int64_t bits = plcalc::ordered_bits(y);
        if (!comparable_ || plcalc::ordered_nan(bits))
            return Level::kNoNumber;
        if (bits < low_)
            return Level::kBelow;
        return bits > high_ ? Level::kAbove : Level::kOn;
    }

private:
    PL_PNT2D_record pt_;
    std::int64_t low_;
    std::int64_t high_;
    bool comparable_;
};

// The boundary meets the ray's line at the end of an edge, coming from i and leaving for k.
bool passes_at_end(Level i, Level k)
{
    switch (i) {
    case Level::kBelow:
        return k == Level::kAbove;
    case Level::kOn:
        return false;  // along the ray
    default:
        return k == Level::kBelow;
    }
}

// The boundary left the ray's line at the start of an edge, coming from prev and going to j.
bool passes_at_start(Level prev, Level j)
{
    return (prev == Level::kBelow && j == Level::kAbove) || (prev == Level::kAbove && j == Level::kBelow);
}

Edge classify(const TestedPoint& tested, const Ring& ring, const Place& at, Level k)
{
    if (at.i.level == at.j.level && (at.i.level == Level::kBelow || at.i.level == Level::kAbove))
        return Edge::kNothing;
    const PL_PNT2D_record& pt = tested.at();
    const PL_PNT2D_record& vi = ring.at(at.i.at);
    const PL_PNT2D_record& vj = ring.at(at.j.at);
    if (below(vi.x, pt.x) && below(vj.x, pt.x))
        return Edge::kNothing;

    if (is_near(pt.y, vj.y))  // the end goes before the start
        return passes_at_end(at.i.level, k) && !below(vj.x, pt.x) ? Edge::kEndCounts : Edge::kNothing;
    if (is_near(pt.y, vi.y))
        return passes_at_start(at.prev.level, at.j.level) && plcalc::at_least(vi.x, pt.x) ? Edge::kStartCounts
                                                                                          : Edge::kNothing;
    return Edge::kOrdinary;
}

// The textbook count: an edge owns its lower end and not its upper one. No tolerance, and it always ends.
bool inside_by_half_open_count(const PL_PNT2D_record& pt, const Ring& ring)
{
    bool inside = false;
    for (int i = 0; i < ring.size(); ++i) {
        const PL_PNT2D_record& a = ring.at(i);
        const PL_PNT2D_record& b = ring.at(ring.after(i));
        if ((a.y > pt.y) != (b.y > pt.y) && pt.x < (b.x - a.x) * (pt.y - a.y) / (b.y - a.y) + a.x)
            inside = !inside;
    }
    return inside;
}

// Index of the vertex of largest x; the last of near-equal ones. 0 for coordinates that are no numbers.
int find_rightmost(const Ring& ring)
{
    int found = 0;
    double best = kFarWest;
    for (int i = 0; i < ring.size(); ++i) {
        if (plcalc::at_least(ring.at(i).x, best)) {
            found = i;
            best = ring.at(i).x;
        }
    }
    return found;
}

// Walks round the ring once, counting where the boundary passes through the ray.
bool inside_by_walk(const PL_PNT2D_record& pt, const Ring& ring, const PL_LINE_2D_record& ray)
{
    const TestedPoint tested(pt);
    const auto stop = [&](int at) { return Stop{at, tested.level_of(ring.at(at).y)}; };

    std::int64_t passed = 0;
    int second = 1;
    if (!skip_runs(ring, 0, second, passed))
        return false;
    Place at = {stop(ring.last()), stop(0), stop(second)};

    bool inside = false;
    RoundWatch watch(at, ring.size());
    for (;;) {
        int next = ring.after(at.j.at);
        if (!skip_runs(ring, at.j.at, next, passed))
            return false;
        const Stop k = stop(next);

        const Edge edge = classify(tested, ring, at, k.level);
        if (edge == Edge::kOrdinary) {
            const PL_LINE_2D_record side = {ring.at(at.i.at), ring.at(at.j.at)};
            PL_PNT2D_record meeting = {};
            if (PlFunz_intersect_ls(&ray, &side, &meeting))
                inside = !inside;
        } else if (edge != Edge::kNothing) {
            inside = !inside;
        }

        // Once round: the edge began at the last vertex or led to the first one. A walk that merged past
        // both goes on, and may end on a later round.
        const bool skips_next = edge == Edge::kEndCounts;
        if (at.i.at == ring.last() || at.j.at == 0 || (skips_next && at.j.at == ring.last()))
            return inside;
        at = skips_next ? Place{at.j, k, stop(ring.after(k.at))} : Place{at.i, at.j, k};
        if (watch.gives_up(at, passed))
            return inside_by_half_open_count(pt, ring);
    }
}

}  // namespace

bool PlFunz_inpolygon(const PL_PNT2D_record* pt, const PL_PNT2D_record* vertices, const int* count,
                      int* rightmostIndex) noexcept
{
    const Ring ring(vertices, *count);
    if (ring.size() < 3)
        return false;

    // 0 is "unknown", so that a ring whose rightmost vertex is its first is searched every time. An index
    // from another ring is no better known.
    if (*rightmostIndex <= 0 || *rightmostIndex >= ring.size())
        *rightmostIndex = find_rightmost(ring);

    const PL_LINE_2D_record ray = {*pt, {ring.at(*rightmostIndex).x + kRayBeyond, pt->y}};
    return inside_by_walk(*pt, ring, ray);
}
