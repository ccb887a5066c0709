#include "lines/trapeziums.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <list>
#include <numeric>
#include <set>

namespace plparcel {
namespace {

constexpr std::size_t kNone = static_cast<std::size_t>(-1);

// Between levels that differ by less than this part of all levels, 106 bits do not tell which of two sides from one vertex
// lies on the left. Such levels come from vertices on one line, and differ by rounding only.
constexpr double kThinSlab = 0x1p-66;

Wide along_between(const WidePoint& a, const WidePoint& b, const Wide& level)
{
    return a.x + (b.x - a.x) * ((level - a.y) / (b.y - a.y));
}

// Where a side is at a level, and how far off that value may be.
struct Rough {
    double along;
    double error;
};

Rough rough_along(const WidePoint& a, const WidePoint& b, double level)
{
    constexpr double kRoundings = 4e-15;  // more than a dozen of 1.1e-16 each
    const double run = b.x.hi - a.x.hi;
    const double rise = b.y.hi - a.y.hi;
    const double levels = std::fabs(level) + std::fabs(a.y.hi) + std::fabs(b.y.hi);
    return {a.x.hi + run * ((level - a.y.hi) / rise),
            kRoundings * (std::fabs(a.x.hi) + std::fabs(b.x.hi) + std::fabs(run / rise) * levels)};
}

// Sides that a line at a level meets, from left to right. The level may grow as long as they are met.
class IsLeftOf {
public:
    IsLeftOf(const std::vector<WidePoint>& frame, const JoinedRings& rings, const Wide& level)
        : frame_(&frame), rings_(&rings), level_(&level)
    {}

    bool operator()(std::size_t a, std::size_t b) const
    {
        const Rough rough_a = rough_along((*frame_)[a], end_of(a), level_->hi);
        const Rough rough_b = rough_along((*frame_)[b], end_of(b), level_->hi);
        if (std::fabs(rough_a.along - rough_b.along) > rough_a.error + rough_b.error)
            return rough_a.along < rough_b.along;
        return along_between((*frame_)[a], end_of(a), *level_) <
               along_between((*frame_)[b], end_of(b), *level_);
    }

private:
    const WidePoint& end_of(std::size_t side) const { return (*frame_)[rings_->next(side)]; }

    const std::vector<WidePoint>* frame_;
    const JoinedRings* rings_;
    const Wide* level_;
};

bool runs_anticlockwise(const std::vector<WidePoint>& ring)
{
    Wide twice;
    for (std::size_t i = 1; i + 1 < ring.size(); ++i)
        twice = twice + cross(ring[i] - ring[0], ring[i + 1] - ring[0]);
    return twice > 0.0;
}

// Goes through the levels upwards. Between two neighbouring ones a line meets the same sides in the same order;
// only at vertices do sides come and go, and only the trapeziums beside them begin and end.
class Sweep {
public:
    Sweep(const std::vector<WidePoint>& frame, const JoinedRings& rings, bool anticlockwise)
        : ring_(frame), rings_(rings), anticlockwise_(anticlockwise), row_(IsLeftOf(frame, rings, level_)),
          place_(frame.size(), row_.end()), in_order_(frame.size()), open_(frame.size(), kNone)
    {}

    /// After run(): all sides that were in the row, those that were there together from left to right.
    const std::list<std::size_t>& order() const { return order_; }

    Sweep(const Sweep&) = delete;
    Sweep& operator=(const Sweep&) = delete;

    std::vector<Trapezium> run()
    {
        const std::vector<std::size_t> order = upwards();
        const Wide thin = (ring_[order.back()].y - ring_[order.front()].y) * kThinSlab;
        std::vector<std::size_t> sides;  // at the vertices up to `low`, not passed yet
        for (std::size_t i = 0; i + 1 < order.size(); ++i) {
            const Wide& low = ring_[order[i]].y;
            const Wide& high = ring_[order[i + 1]].y;
            sides.push_back(rings_.before(order[i]));
            sides.push_back(order[i]);
            if (!(high - low > thin))
                continue;
            const Wide middle = low + (high - low) * 0.5;
            leave(sides, low);
            level_ = middle;
            join(sides);
            pair_up(low);
            sides.clear();
        }
        for (const std::size_t side : row_)
            close(side, ring_[order.back()].y);
        return std::move(found_);
    }

private:
    using Row = std::multiset<std::size_t, IsLeftOf>;

    std::vector<std::size_t> upwards() const
    {
        std::vector<std::size_t> order(ring_.size());
        std::iota(order.begin(), order.end(), std::size_t{0});
        std::stable_sort(order.begin(), order.end(),
                         [this](std::size_t a, std::size_t b) { return ring_[a].y < ring_[b].y; });
        return order;
    }

    // Whether the inside lies on a side's right. An anticlockwise boundary runs downwards there.
    bool is_left(std::size_t side) const
    {
        return (ring_[rings_.next(side)].y < ring_[side].y) == anticlockwise_;
    }

    // Sides in the row that end at a level.
    void leave(const std::vector<std::size_t>& sides, const Wide& level)
    {
        for (const std::size_t side : sides) {
            if (place_[side] == row_.end())
                continue;
            if (is_left(side))
                close(side, level);
            const Row::iterator next = row_.erase(place_[side]);
            place_[side] = row_.end();
            if (next != row_.begin())
                touched_.push_back(*std::prev(next));
        }
    }

    // The sides that begin at the level; called after leave(), so that no side in the row has ended.
    void join(const std::vector<std::size_t>& sides)
    {
        for (const std::size_t side : sides) {
            if ((ring_[side].y < level_) == (ring_[rings_.next(side)].y < level_))
                continue;
            place_[side] = row_.insert(side);
            put_in_order(side);
            touched_.push_back(side);
        }
        const std::size_t joined = touched_.size();
        for (std::size_t i = 0; i < joined; ++i) {
            const Row::iterator place = place_[touched_[i]];
            if (place != row_.end() && place != row_.begin())
                touched_.push_back(*std::prev(place));
        }
    }

    // Sides that have left the row keep their places. Nothing that came later is told apart from them.
    void put_in_order(std::size_t side)
    {
        const Row::iterator place = place_[side];
        in_order_[side] = order_.insert(
            place == row_.begin() ? order_.begin() : std::next(in_order_[*std::prev(place)]), side);
    }

    // Looks at the left sides beside which a side came or went. Where the right neighbour has changed, the trapezium
    // ends at this level, and one with the new neighbour begins.
    void pair_up(const Wide& level)
    {
        touched_.erase(
            std::remove_if(touched_.begin(), touched_.end(),
                           [this](std::size_t side) { return place_[side] == row_.end() || !is_left(side); }),
            touched_.end());
        std::sort(touched_.begin(), touched_.end(), IsLeftOf(ring_, rings_, level_));
        for (const std::size_t side : touched_) {
            const Row::iterator next = std::next(place_[side]);
            if (next != row_.end() && open_[side] != kNone && found_[open_[side]].right == *next)
                continue;
            close(side, level);
            open_[side] = next == row_.end() ? kNone : found_.size();
            if (next == row_.end())
                continue;  // round a hole the inside goes on for ever
            found_.push_back({side, *next, level, level});
        }
        touched_.clear();
    }

    void close(std::size_t left, const Wide& level)
    {
        if (open_[left] != kNone)
            found_[open_[left]].high = level;
    }

    const std::vector<WidePoint>& ring_;
    const JoinedRings& rings_;
    bool anticlockwise_;                // the inside lies on the left of the boundary
    Wide level_;                        // at which the row is in order
    Row row_;                           // the sides that a line meets, from left to right
    std::vector<Row::iterator> place_;  // of each side in the row, or its end
    std::list<std::size_t> order_;
    std::vector<std::list<std::size_t>::iterator> in_order_;
    std::vector<std::size_t> open_;     // by left side: index in found_ of the trapezium that is still open
    std::vector<std::size_t> touched_;  // sides beside which something came or went since the last pairing
    std::vector<Trapezium> found_;
};

}  // namespace

Wide along_at(const std::vector<WidePoint>& ring, std::size_t side, const Wide& level)
{
    return along_between(ring[side], around(ring, side + 1), level);
}

std::vector<Trapezium> trapeziums(const std::vector<WidePoint>& ring)
{
    const Ring corners(ring.size());
    const JoinedRings one(corners);
    return Sweep(ring, one, runs_anticlockwise(ring)).run();
}

std::vector<Trapezium> trapeziums(const std::vector<WidePoint>& frame, const JoinedRings& rings,
                                  std::vector<std::size_t>* order)
{
    Sweep sweep(frame, rings, true);
    std::vector<Trapezium> found = sweep.run();
    if (order != nullptr)
        order->assign(sweep.order().begin(), sweep.order().end());
    return found;
}

}  // namespace plparcel
