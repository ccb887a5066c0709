#include "boundary/meeting_sides.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <numeric>
#include <set>
#include <utility>
#include <vector>

#include "numbers/wide.h"

namespace plparcel {
namespace {

bool in_box(const PL_PNT2D_record& a, const PL_PNT2D_record& b, const PL_PNT2D_record& p)
{
    return std::min(a.x, b.x) <= p.x && p.x <= std::max(a.x, b.x) && std::min(a.y, b.y) <= p.y &&
           p.y <= std::max(a.y, b.y);
}

// Whether two numbers and what lies between them come within reach of two others.
bool spans_meet(double a, double b, double c, double d, double reach)
{
    return std::max(std::min(a, b), std::min(c, d)) <= std::min(std::max(a, b), std::max(c, d)) + reach;
}

// Two sides without a common vertex.
bool segments_meet(const PL_PNT2D_record& a, const PL_PNT2D_record& b, const PL_PNT2D_record& c,
                   const PL_PNT2D_record& d)
{
    if (!boxes_meet(a, b, c, d, 0.0))
        return false;
    const int c_side = side_sign(a, b, c);
    const int d_side = side_sign(a, b, d);
    const int a_side = side_sign(c, d, a);
    const int b_side = side_sign(c, d, b);
    if (c_side * d_side < 0 && a_side * b_side < 0)
        return true;
    return (c_side == 0 && in_box(a, b, c)) || (d_side == 0 && in_box(a, b, d)) ||
           (a_side == 0 && in_box(c, d, a)) || (b_side == 0 && in_box(c, d, b));
}

// Sides from the South to the North, where a line from South to North meets both. They must not cross there.
class IsSouthOf {
public:
    explicit IsSouthOf(const JoinedRings& rings) : rings_(&rings) {}

    bool operator()(std::size_t a, std::size_t b) const
    {
        return comes_before(first(b), first(a)) ? relation(b, a) < 0 : relation(a, b) > 0;
    }

private:
    const PL_PNT2D_record& first(std::size_t side) const
    {
        const PL_PNT2D_record& a = (*rings_)[side];
        const PL_PNT2D_record& b = rings_->end_of(side);
        return comes_before(a, b) ? a : b;
    }

    const PL_PNT2D_record& last(std::size_t side) const
    {
        const PL_PNT2D_record& a = (*rings_)[side];
        const PL_PNT2D_record& b = rings_->end_of(side);
        return comes_before(a, b) ? b : a;
    }

    // 1 when a side that begins later runs north of another, -1 south of it, 0 along it.
    int relation(std::size_t earlier, std::size_t later) const
    {
        const int begin = side_sign(first(earlier), last(earlier), first(later));
        return begin != 0 ? begin : side_sign(first(earlier), last(earlier), last(later));
    }

    const JoinedRings* rings_;
};

// Goes through the vertices from West to East and keeps the sides that a line from South to North meets there, in
// order. If any two sides meet, then two that meet are neighbours in that order before they do. M. I. Shamos and
// D. Hoey, "Geometric intersection problems", 1976.
class Sweep {
public:
    explicit Sweep(const JoinedRings& rings)
        : ring_(rings), row_(IsSouthOf(rings)), place_(rings.size(), row_.end()),
          south_of_(rings.rings(), rings.size()), is_met_(rings.rings())
    {}

    Meeting run()
    {
        Meeting meeting;
        meeting.met = meeting_pair();
        meeting.south_of = std::move(south_of_);
        return meeting;
    }

private:
    std::optional<SidePair> meeting_pair()
    {
        const std::vector<std::size_t> order = eastwards();
        for (std::size_t k = 0; k + 1 < order.size(); ++k)
            if (same_place(ring_[order[k]], ring_[order[k + 1]]))
                return SidePair{order[k], order[k + 1]};
        for (const std::size_t vertex : order)
            if (const std::optional<SidePair> met = pass(vertex))
                return met;
        return std::nullopt;
    }

    using Row = std::set<std::size_t, IsSouthOf>;

    std::vector<std::size_t> eastwards() const
    {
        std::vector<std::size_t> order(ring_.size());
        std::iota(order.begin(), order.end(), std::size_t{0});
        std::stable_sort(order.begin(), order.end(),
                         [this](std::size_t a, std::size_t b) { return comes_before(ring_[a], ring_[b]); });
        return order;
    }

    // The two sides at a vertex: those that end there leave the row, and then those that begin there join it.
    std::optional<SidePair> pass(std::size_t vertex)
    {
        const std::size_t before = ring_.before(vertex);
        const bool before_ends = comes_before(ring_[before], ring_[vertex]);
        const bool after_ends = comes_before(ring_.end_of(vertex), ring_[vertex]);
        std::optional<SidePair> met;
        if (before_ends)
            met = leave(before);
        if (!met && after_ends)
            met = leave(vertex);
        if (!met && !before_ends)
            met = join(before);
        if (!met && !after_ends)
            met = join(vertex);
        const std::size_t ring = ring_.ring_of(vertex);
        if (!met && !is_met_[ring]) {
            is_met_[ring] = true;
            south_of_[ring] = south_of(before, vertex);
        }
        return met;
    }

    // The side south of two that begin at the same vertex.
    std::size_t south_of(std::size_t one, std::size_t other) const
    {
        Row::const_iterator place = place_[one];
        do {
            if (place == row_.begin())
                return ring_.size();
            --place;
        } while (*place == other);
        return *place;
    }

    std::optional<SidePair> join(std::size_t side)
    {
        const auto [place, is_new] = row_.insert(side);
        if (!is_new)
            return SidePair{side, *place};  // along each other
        place_[side] = place;
        std::optional<SidePair> met;
        if (place != row_.begin())
            met = if_they_meet(*std::prev(place), side);
        if (!met && std::next(place) != row_.end())
            met = if_they_meet(side, *std::next(place));
        return met;
    }

    std::optional<SidePair> leave(std::size_t side)
    {
        const Row::iterator place = place_[side];
        const Row::iterator next = row_.erase(place);
        if (next == row_.begin() || next == row_.end())
            return std::nullopt;
        return if_they_meet(*std::prev(next), *next);
    }

    std::optional<SidePair> if_they_meet(std::size_t i, std::size_t j) const
    {
        if (j == ring_.next(i) || i == ring_.next(j))
            return std::
                nullopt;  // they share a vertex, and more only where the row could not tell them apart
        if (!segments_meet(ring_[i], ring_.end_of(i), ring_[j], ring_.end_of(j)))
            return std::nullopt;
        return SidePair{i, j};
    }

    const JoinedRings& ring_;
    Row row_;
    std::vector<Row::iterator> place_;   // of each side while it is in the row
    std::vector<std::size_t> south_of_;  // of each ring
    std::vector<bool> is_met_;           // whether its westmost vertex is passed
};

}  // namespace

bool comes_before(const PL_PNT2D_record& a, const PL_PNT2D_record& b)
{
    return a.x < b.x || (a.x == b.x && a.y < b.y);
}

bool boxes_meet(const PL_PNT2D_record& a, const PL_PNT2D_record& b, const PL_PNT2D_record& c,
                const PL_PNT2D_record& d, double reach)
{
    return spans_meet(a.x, b.x, c.x, d.x, reach) && spans_meet(a.y, b.y, c.y, d.y, reach);
}

int side_sign(const PL_PNT2D_record& a, const PL_PNT2D_record& b, const PL_PNT2D_record& p)
{
    // Doubles decide where the difference exceeds the rounding of its seven operations, and no product has sunk
    // below the smallest double. J. R. Shewchuk, "Adaptive precision floating-point arithmetic", 1997.
    constexpr double kRoundings = 4e-16;
    constexpr double kLeast = 1e-280;
    const double one = (b.x - a.x) * (p.y - a.y);
    const double other = (b.y - a.y) * (p.x - a.x);
    const double rough = one - other;
    if (std::fabs(rough) > kRoundings * (std::fabs(one) + std::fabs(other)) + kLeast)
        return rough > 0.0 ? 1 : -1;
    const Wide off = cross(from_to(a, b), from_to(a, p));
    return off > 0.0 ? 1 : (off < 0.0 ? -1 : 0);
}

std::optional<SidePair> meeting_sides(const MeasuredRing& ring)
{
    return meeting_sides(JoinedRings(ring.ring())).met;
}

Meeting meeting_sides(const JoinedRings& rings)
{
    return Sweep(rings).run();
}

}  // namespace plparcel
