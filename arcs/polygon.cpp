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

// Notices a walk that goes round for ever, by Brent's method (BIT 20, 1980): the place where a round begins is
// compared with a mark that is set anew after 1, 2, 4, ... rounds. No memory, and no walk that ends is taken
// for one that does not: a place that comes back is the same place.
class RoundWatch {
public:
    explicit RoundWatch(const Place& start) : mark_(start) {}

    bool been_here(const Place& now)
    {
        if (now == mark_)
            return true;
        if (++rounds_ == reach_) {
            mark_ = now;
            rounds_ = 0;
            reach_ *= 2;
        }
        return false;
    }

private:
    Place mark_;
    std::int64_t rounds_ = 0;
    std::int64_t reach_ = 1;
};

// The two axes, on each of which runs of vertices count as one side.
using Axis = double PL_PNT2D_record::*;
constexpr Axis kNorthing = &PL_PNT2D_record::y;
constexpr Axis kEasting = &PL_PNT2D_record::x;

// Whether two coordinates are one within the margin of the second. Most are told apart by their bits.
bool one_line(double v, double w)
{
    return !plcalc::surely_apart(plcalc::ordered_high(v), plcalc::ordered_high(w)) && is_near(v, w);
}

// Numbers from `low` to `high`, by their ordered bits.
struct Span {
    std::int64_t low = INT64_MAX;  // an empty one at first
    std::int64_t high = INT64_MIN;

    bool holds(std::int64_t bits) const { return low <= bits && bits <= high; }
    bool holds(const Span& other) const { return low <= other.low && other.high <= high; }
    void widen(std::int64_t bits)
    {
        low = bits < low ? bits : low;
        high = bits > high ? bits : high;
    }
};

// The numbers w for which one_line(v, w) is true beyond doubt.
//
// The margin is taken from w, which is at most 1e-7 of v closer to zero than v: nearly the margin of v. A part
// in 2^20 less holds that, and every rounding here and there, a hundred times over.
Span surely_one_line(double v)
{
    constexpr double kWithin = 1.0 - 0x1p-20;
    const double margin = scaled_tol(v) * kWithin;
    const Span span = {plcalc::ordered_bits(v - margin), plcalc::ordered_bits(v + margin)};
    return plcalc::ordered_nan(span.low) || plcalc::ordered_nan(span.high) ? Span() : span;
}

// The extents of the ring's vertices, so many in a row at a time, by which a long run is passed over. On the
// stack: a walk allocates nothing.
class Rows {
public:
    explicit Rows(const Ring& ring)
    {
        while ((ring.last() >> shift_) >= kMost)
            ++shift_;
        for (int i = 0; i < ring.size(); ++i) {
            const PL_PNT2D_record& p = ring.at(i);
            northings_[i >> shift_].widen(plcalc::ordered_bits(p.y));
            eastings_[i >> shift_].widen(plcalc::ordered_bits(p.x));
        }
    }

    // The first vertex from k on, k itself as a rule, that begins no row wholly within the span; `stop` at the
    // latest, the start of its row when k is one.
    int pass(const Ring& ring, Axis axis, const Span& span, int k, int stop) const
    {
        const Span* rows = axis == kNorthing ? northings_ : eastings_;
        while ((k & ((1 << shift_) - 1)) == 0 && k >> shift_ != stop >> shift_ &&
               span.holds(rows[k >> shift_])) {
            const int next = ((k >> shift_) + 1) << shift_;
            k = next < ring.size() ? next : 0;
        }
        return k;
    }

private:
    static constexpr int kMost = 256;
    int shift_ = 0;
    Span northings_[kMost];
    Span eastings_[kMost];
};

// Moves k to the last vertex of the run that is in line with vertex j; k itself is the first candidate. False
// when the run goes all the way round.
bool skip_run(const Ring& ring, const Rows* rows, Axis axis, int j, int& k)
{
    const double v = ring.at(j).*axis;
    if (!one_line(v, ring.at(k).*axis))
        return true;
    const Span span = rows != nullptr ? surely_one_line(v) : Span();
    const int first = k;
    do {
        k = ring.after(k);
        if (rows != nullptr)
            k = rows->pass(ring, axis, span, k, first);
        if (k == first)
            return false;
    } while (span.holds(plcalc::ordered_bits(ring.at(k).*axis)) || one_line(v, ring.at(k).*axis));
    k = ring.before(k);
    return true;
}

// Runs of vertices on a horizontal, then on a vertical line count as one side.
bool skip_runs(const Ring& ring, const Rows* rows, int j, int& k)
{
    return skip_run(ring, rows, kNorthing, j, k) && skip_run(ring, rows, kEasting, j, k);
}

// The point, and its level as the walk asks for it.
class TestedPoint {
public:
    explicit TestedPoint(const PL_PNT2D_record& pt)
        : pt_(pt), low_(plcalc::ordered_bits(pt.y - scaled_tol(pt.y))),
          high_(plcalc::ordered_bits(pt.y + scaled_tol(pt.y))),
          comparable_(!plcalc::ordered_nan(low_) && !plcalc::ordered_nan(high_))
    {
        if (comparable_) {
            surely_below_ = plcalc::ordered_high(pt.y - scaled_tol(pt.y));
            surely_above_ = plcalc::ordered_high(pt.y + scaled_tol(pt.y));
        }
    }

    const PL_PNT2D_record& at() const { return pt_; }

    Level level_of(double y) const
    {
        const std::int32_t high = plcalc::ordered_high(y);
        if (high < surely_below_ && plcalc::ordered_high_finite(high))
            return Level::kBelow;
        if (high > surely_above_ && plcalc::ordered_high_finite(high))
            return Level::kAbove;
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
    std::int32_t surely_below_ = INT32_MIN;  // the upper halves; nothing is beyond these at first
    std::int32_t surely_above_ = INT32_MAX;
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
    std::int32_t best_high = plcalc::ordered_high(best);
    for (int i = 0; i < ring.size(); ++i) {
        // Farther East or clearly West by the bits, as a rule.
        const double x = ring.at(i).x;
        const std::int32_t high = plcalc::ordered_high(x);
        const bool farther = high > best_high && plcalc::ordered_high_finite(high);
        if (farther || (!plcalc::surely_apart(high, best_high) && plcalc::at_least(x, best))) {
            found = i;
            best = x;
            best_high = high;
        }
    }
    return found;
}

// The walk round the ring, counting where the boundary passes through the ray.
class Walk {
public:
    enum class State { kGoesOn, kEnded, kAllInLine, kGoesRound };

    Walk(const PL_PNT2D_record& pt, const Ring& ring, const PL_LINE_2D_record& ray)
        : tested_(pt), ring_(ring), ray_(ray), at_{stop(ring.last()), stop(0), stop(1)}, watch_(at_)
    {
        int second = 1;
        if (!skip_runs(ring_, nullptr, 0, second))
            state_ = State::kAllInLine;
        at_.j = stop(second);
        watch_ = RoundWatch(at_);
    }

    /// Walks on, for so many rounds at most, or for as many as it takes when there are rows to pass over.
    State go_on(int rounds, const Rows* rows)
    {
        while (state_ == State::kGoesOn && (rows != nullptr || rounds > 0)) {
            pass_clear_sides();
            if (step(rows))
                --rounds;
        }
        return state_;
    }

    bool inside() const { return inside_; }

private:
    Stop stop(int at) const { return {at, tested_.level_of(ring_.at(at).y)}; }

    // Most of the ring: sides above the ray or below it, with both coordinates of each vertex plainly other than
    // those of the one before. Nothing counts, no run is skipped, and no round begins or ends.
    void pass_clear_sides()
    {
        const Level level = at_.i.level;
        if ((level != Level::kBelow && level != Level::kAbove) || at_.i.at == ring_.last() || at_.j.at == 0)
            return;
        std::int32_t x = plcalc::ordered_high(ring_.at(at_.j.at).x);
        std::int32_t y = plcalc::ordered_high(ring_.at(at_.j.at).y);
        while (at_.j.level == level && at_.j.at != ring_.last()) {
            const PL_PNT2D_record& next = ring_.at(at_.j.at + 1);
            const std::int32_t next_x = plcalc::ordered_high(next.x);
            const std::int32_t next_y = plcalc::ordered_high(next.y);
            if (!plcalc::surely_apart(y, next_y) || !plcalc::surely_apart(x, next_x))
                return;
            at_ = {at_.i, at_.j, {at_.j.at + 1, tested_.level_of(next.y)}};
            x = next_x;
            y = next_y;
        }
    }

    // Takes the edge from i to j. Whether another round begins.
    bool step(const Rows* rows)
    {
        int next = ring_.after(at_.j.at);
        if (!skip_runs(ring_, rows, at_.j.at, next)) {
            state_ = State::kAllInLine;
            return false;
        }
        const Stop k = stop(next);
        const Edge edge = classify(tested_, ring_, at_, k.level);
        count(edge);

        // Once round: the edge began at the last vertex or led to the first one. A walk that merged past both
        // goes on, and may end on a later round.
        const bool skips_next = edge == Edge::kEndCounts;
        const int last = ring_.last();
        if (at_.i.at == last || at_.j.at == 0 || (skips_next && at_.j.at == last)) {
            state_ = State::kEnded;
            return false;
        }
        const int before = at_.j.at;
        at_ = skips_next ? Place{at_.j, k, stop(ring_.after(k.at))} : Place{at_.i, at_.j, k};

        // Places that follow one another for ever cannot all lead to a greater index.
        if (at_.j.at > before)
            return false;
        if (watch_.been_here(at_))
            state_ = State::kGoesRound;
        return true;
    }

    void count(Edge edge)
    {
        if (edge == Edge::kNothing)
            return;
        if (edge == Edge::kOrdinary) {
            const PL_LINE_2D_record side = {ring_.at(at_.i.at), ring_.at(at_.j.at)};
            PL_PNT2D_record meeting = {};
            if (!PlFunz_intersect_ls(&ray_, &side, &meeting))
                return;
        }
        inside_ = !inside_;
    }

    TestedPoint tested_;
    Ring ring_;
    PL_LINE_2D_record ray_;
    Place at_;
    RoundWatch watch_;
    bool inside_ = false;
    State state_ = State::kGoesOn;
};

// A walk ends in its first round as a rule. One that does not, because vertices creep by less than the margin
// and each is in line with others than its neighbours are, may need thousands: then it pays to know rows of
// vertices by their extents.
Walk::State walk_many_rounds(Walk& walk, const Ring& ring)
{
    const Rows rows(ring);
    return walk.go_on(0, &rows);
}

bool inside_by_walk(const PL_PNT2D_record& pt, const Ring& ring, const PL_LINE_2D_record& ray)
{
    constexpr int kUsualRounds = 4;
    Walk walk(pt, ring, ray);
    Walk::State state = walk.go_on(kUsualRounds, nullptr);
    if (state == Walk::State::kGoesOn)
        state = walk_many_rounds(walk, ring);
    switch (state) {
    case Walk::State::kGoesRound:
        return inside_by_half_open_count(pt, ring);
    case Walk::State::kAllInLine:
        return false;
    default:
        return walk.inside();
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
