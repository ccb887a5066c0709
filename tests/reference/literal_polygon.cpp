#include "reference/literal.h"

#include <cstdint>

#include "kernel/tolerance.h"
#include "plcalc/lines.h"

namespace reference {

namespace {

using plcalc::above;
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

// Where the walk is: the edge from i to j, and the vertex that it came from.
struct Place {
    int prev;
    int i;
    int j;

    bool operator==(const Place& other) const { return prev == other.prev && i == other.i && j == other.j; }
};

// Notices a walk that goes round for ever, by Brent's method (BIT 20, 1980): the place is compared with a
// mark that is set anew after 1, 2, 4, ... steps. No memory, and at most a few rounds too many.
class RoundWatch {
public:
    explicit RoundWatch(const Place& start) : mark_(start) {}

    bool been_here(const Place& now)
    {
        if (now == mark_)
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
    std::int64_t steps_ = 0;
    std::int64_t reach_ = 1;
};

bool level(const PL_PNT2D_record& p, const PL_PNT2D_record& q)
{
    return is_near(p.y, q.y);
}

bool plumb(const PL_PNT2D_record& p, const PL_PNT2D_record& q)
{
    return is_near(p.x, q.x);
}

// Moves k to the last vertex of the run that is in line with vertex j; k itself is the first candidate.
// False when the run goes all the way round.
bool skip_run(const Ring& ring, int j, int& k,
              bool (*in_line)(const PL_PNT2D_record&, const PL_PNT2D_record&))
{
    if (!in_line(ring.at(j), ring.at(k)))
        return true;
    const int first = k;
    do {
        k = ring.after(k);
        if (k == first)
            return false;
    } while (in_line(ring.at(j), ring.at(k)));
    k = ring.before(k);
    return true;
}

// Runs of vertices on a horizontal, then on a vertical line count as one side.
bool skip_runs(const Ring& ring, int j, int& k)
{
    return skip_run(ring, j, k, level) && skip_run(ring, j, k, plumb);
}

// The boundary meets the ray's line at vj, coming from vi and leaving for vk, a vertex right of the point.
bool passes_at_end(const PL_PNT2D_record& pt, const PL_PNT2D_record& vi, const PL_PNT2D_record& vj,
                   const PL_PNT2D_record& vk)
{
    const double tol = scaled_tol(pt.y);
    if (below(vj.x, pt.x))
        return false;
    if (vi.y < pt.y - tol)
        return vk.y > pt.y + tol;
    if (vi.y <= pt.y + tol)
        return false;  // along the ray
    return vk.y < pt.y - tol;
}

// The boundary left the ray's line at vi, coming from prev and going to vj.
bool passes_at_start(const PL_PNT2D_record& pt, const PL_PNT2D_record& prev, const PL_PNT2D_record& vi,
                     const PL_PNT2D_record& vj)
{
    if (!plcalc::at_least(vi.x, pt.x))
        return false;
    return (below(prev.y, pt.y) && above(vj.y, pt.y)) || (above(prev.y, pt.y) && below(vj.y, pt.y));
}

Edge classify(const PL_PNT2D_record& pt, const PL_PNT2D_record& prev, const PL_PNT2D_record& vi,
              const PL_PNT2D_record& vj, const PL_PNT2D_record& vk)
{
    const bool clear = (below(vi.y, pt.y) && below(vj.y, pt.y)) || (above(vi.y, pt.y) && above(vj.y, pt.y)) ||
                       (below(vi.x, pt.x) && below(vj.x, pt.x));
    if (clear)
        return Edge::kNothing;
    if (is_near(pt.y, vj.y))  // the end goes before the start
        return passes_at_end(pt, vi, vj, vk) ? Edge::kEndCounts : Edge::kNothing;
    if (is_near(pt.y, vi.y))
        return passes_at_start(pt, prev, vi, vj) ? Edge::kStartCounts : Edge::kNothing;
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
    Place at = {ring.last(), 0, 1};
    if (!skip_runs(ring, at.i, at.j))
        return false;

    bool inside = false;
    RoundWatch watch(at);
    for (;;) {
        int k = ring.after(at.j);
        if (!skip_runs(ring, at.j, k))
            return false;

        const Edge edge = classify(pt, ring.at(at.prev), ring.at(at.i), ring.at(at.j), ring.at(k));
        if (edge == Edge::kOrdinary) {
            const PL_LINE_2D_record side = {ring.at(at.i), ring.at(at.j)};
            PL_PNT2D_record meeting = {};
            if (PlFunz_intersect_ls(&ray, &side, &meeting))
                inside = !inside;
        } else if (edge != Edge::kNothing) {
            inside = !inside;
        }

        // Once round: the edge began at the last vertex or led to the first one. A walk that merged past
        // both goes on, and may end on a later round.
        const bool skips_next = edge == Edge::kEndCounts;
        if (at.i == ring.last() || at.j == 0 || (skips_next && at.j == ring.last()))
            return inside;
        at = skips_next ? Place{at.j, k, ring.after(k)} : Place{at.i, at.j, k};
        if (watch.been_here(at))
            return inside_by_half_open_count(pt, ring);
    }
}

}  // namespace

bool literal_inpolygon(const PL_PNT2D_record* pt, const PL_PNT2D_record* vertices, const int* count,
                       int* rightmostIndex)
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

}  // namespace reference
