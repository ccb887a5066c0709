#include "trapeziums.h"

#include <algorithm>
#include <numeric>

namespace plparcel {
namespace {

constexpr std::size_t kNone = static_cast<std::size_t>(-1);

// Goes through the levels upwards. Between two neighbouring ones a line meets the same sides in the same order;
// only at vertices do sides come and go.
class Sweep {
public:
    explicit Sweep(const std::vector<WidePoint>& ring)
        : ring_(ring), has_joined_(ring.size()), right_of_(ring.size(), kNone)
    {}

    std::vector<Trapezium> run()
    {
        const std::vector<std::size_t> order = upwards();
        std::vector<std::size_t> sides;  // at the vertices up to `low`, not passed yet
        for (std::size_t i = 0; i + 1 < order.size(); ++i) {
            const Wide& low = ring_[order[i]].y;
            const Wide& high = ring_[order[i + 1]].y;
            sides.push_back((order[i] + ring_.size() - 1) % ring_.size());
            sides.push_back(order[i]);
            const Wide middle = low + (high - low) * 0.5;
            if (!(low < middle) || !(middle < high))
                continue;
            pass(sides, middle);
            sides.clear();
            pair_up(low);
        }
        row_.clear();
        pair_up(ring_[order.back()].y);
        return std::move(found_);
    }

private:
    std::vector<std::size_t> upwards() const
    {
        std::vector<std::size_t> order(ring_.size());
        std::iota(order.begin(), order.end(), std::size_t{0});
        std::stable_sort(order.begin(), order.end(),
                         [this](std::size_t a, std::size_t b) { return ring_[a].y < ring_[b].y; });
        return order;
    }

    // The sides at some vertices: those that have joined the row end there and leave it. Only then, with none in it
    // that ends below, those that begin there join it.
    void pass(const std::vector<std::size_t>& sides, const Wide& above)
    {
        const auto is_met = [&](std::size_t side) {
            return (ring_[side].y < above) != (around(ring_, side + 1).y < above);
        };
        for (const std::size_t side : sides) {
            if (!has_joined_[side])
                continue;
            row_.erase(std::find(row_.begin(), row_.end(), side));
        }
        for (const std::size_t side : sides) {
            if (!is_met(side))
                continue;
            row_.insert(place_of(side, above), side);
            has_joined_[side] = true;
        }
    }

    std::vector<std::size_t>::iterator place_of(std::size_t side, const Wide& level)
    {
        return std::lower_bound(
            row_.begin(), row_.end(), along_at(ring_, side, level),
            [&](std::size_t other, const Wide& along) { return along_at(ring_, other, level) < along; });
    }

    // Trapeziums whose sides are neighbours no more end at a level, those of new neighbours begin.
    void pair_up(const Wide& level)
    {
        for (std::size_t i = 0; i + 1 < row_.size(); i += 2)
            right_of_[row_[i]] = row_[i + 1];
        std::vector<std::size_t> open;
        for (const std::size_t index : open_) {
            Trapezium& trapezium = found_[index];
            trapezium.high = level;
            if (right_of_[trapezium.left] != trapezium.right)
                continue;
            right_of_[trapezium.left] = kNone;
            open.push_back(index);
        }
        for (std::size_t i = 0; i + 1 < row_.size(); i += 2) {
            if (right_of_[row_[i]] == kNone)
                continue;
            right_of_[row_[i]] = kNone;
            open.push_back(found_.size());
            found_.push_back({row_[i], row_[i + 1], level, level});
        }
        open_ = std::move(open);
    }

    const std::vector<WidePoint>& ring_;
    std::vector<std::size_t> row_;       // the sides that a line meets, from left to right
    std::vector<bool> has_joined_;       // by side
    std::vector<std::size_t> right_of_;  // by left side, while pairing up
    std::vector<std::size_t> open_;      // those of found_ that reach up to the row
    std::vector<Trapezium> found_;
};

}  // namespace

Wide along_at(const std::vector<WidePoint>& ring, std::size_t side, const Wide& level)
{
    const WidePoint& a = ring[side];
    const WidePoint& b = around(ring, side + 1);
    return a.x + (b.x - a.x) * ((level - a.y) / (b.y - a.y));
}

std::vector<Trapezium> trapeziums(const std::vector<WidePoint>& ring)
{
    return Sweep(ring).run();
}

}  // namespace plparcel
