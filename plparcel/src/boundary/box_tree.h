#pragma once

// Things in the plane, found by where they lie.

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>
#include <vector>

#include "plcalc/kernel.h"

namespace plparcel {

/// The upright box around something.
struct Box {
    PL_PNT2D_record low = {};
    PL_PNT2D_record high = {};
};

inline Box box_of(const PL_PNT2D_record& a, const PL_PNT2D_record& b)
{
    return {{std::fmin(a.x, b.x), std::fmin(a.y, b.y)}, {std::fmax(a.x, b.x), std::fmax(a.y, b.y)}};
}

inline Box both(const Box& a, const Box& b)
{
    return {{std::fmin(a.low.x, b.low.x), std::fmin(a.low.y, b.low.y)},
            {std::fmax(a.high.x, b.high.x), std::fmax(a.high.y, b.high.y)}};
}

inline PL_PNT2D_record middle(const Box& box)
{
    return {0.5 * box.low.x + 0.5 * box.high.x, 0.5 * box.low.y + 0.5 * box.high.y};
}

/// What things must come near to: a segment with a length.
class Reach {
public:
    Reach(const PL_PNT2D_record& a, const PL_PNT2D_record& b)
        : box_(box_of(a, b)), a_(a), length_(std::hypot(b.x - a.x, b.y - a.y)),
          across_({(a.y - b.y) / length_, (b.x - a.x) / length_})
    {}

    /// False only where all of a box lies farther away than that.
    bool comes_near(const Box& box, double distance) const
    {
        const double away_x = std::fmax(box.low.x - box_.high.x, box_.low.x - box.high.x);
        const double away_y = std::fmax(box.low.y - box_.high.y, box_.low.y - box.high.y);
        if (away_x > distance || away_y > distance)
            return false;
        const double half_x = 0.5 * (box.high.x - box.low.x);
        const double half_y = 0.5 * (box.high.y - box.low.y);
        const double off = (box.low.x + half_x - a_.x) * across_.x + (box.low.y + half_y - a_.y) * across_.y;
        // A little more, for the roundings of it.
        constexpr double kRoundings = 1e-12;
        const double extent = std::fabs(across_.x) * half_x + std::fabs(across_.y) * half_y;
        const double sizes =
            std::fabs(box.low.x) + std::fabs(box.low.y) + std::fabs(a_.x) + std::fabs(a_.y) + half_x + half_y;
        return !(std::fabs(off) - extent > distance + kRoundings * sizes);
    }

private:
    Box box_;
    PL_PNT2D_record a_;
    double length_;
    PL_PNT2D_record across_;
};

/// Boxes around things, and around pairs of boxes: nodes i of a heap, the leaves last. Made in n log n.
///
/// @tparam Item   what lies in the plane
/// @tparam BoxOf  a function object: the box around an item, the same at every call
template <class Item, class BoxOf> class BoxTree {
public:
    explicit BoxTree(std::vector<Item> items, BoxOf box_of = BoxOf()) : items_(std::move(items)), of_(box_of)
    {
        if (items_.empty())
            return;
        while (leaves_ * kInLeaf < items_.size())
            leaves_ *= 2;
        boxes_.resize(2 * leaves_);
        build(1, 0, items_.size(), leaves_);
    }

    bool is_empty() const { return items_.empty(); }

    /// Calls `note` for each item that may lie within the distance, which may shrink on the way; stops when it returns
    /// false.
    template <class Note> void near(const Reach& reach, const double& distance, const Note& note) const
    {
        if (!items_.empty())
            visit(1, 0, items_.size(), leaves_, reach, distance, note);
    }

private:
    static constexpr std::size_t kInLeaf = 8;

    // Halves of equal size, apart in the direction in which their middles spread most.
    void build(std::size_t node, std::size_t begin, std::size_t end, std::size_t leaves)
    {
        Box& box = boxes_[node];
        box = of_(items_[begin]);
        Box middles = {middle(box), middle(box)};
        for (std::size_t i = begin; i < end; ++i) {
            const Box item = of_(items_[i]);
            box = both(box, item);
            middles = both(middles, {middle(item), middle(item)});
        }
        if (leaves == 1)
            return;
        const bool by_x = middles.high.x - middles.low.x > middles.high.y - middles.low.y;
        const std::size_t half = begin + (end - begin) / 2;
        const auto at = [this](std::size_t i) { return items_.begin() + static_cast<std::ptrdiff_t>(i); };
        std::nth_element(at(begin), at(half), at(end), [this, by_x](const Item& a, const Item& b) {
            return by_x ? middle(of_(a)).x < middle(of_(b)).x : middle(of_(a)).y < middle(of_(b)).y;
        });
        build(2 * node, begin, half, leaves / 2);
        build(2 * node + 1, half, end, leaves / 2);
    }

    template <class Note>
    bool visit(std::size_t node, std::size_t begin, std::size_t end, std::size_t leaves, const Reach& reach,
               const double& distance, const Note& note) const
    {
        if (!reach.comes_near(boxes_[node], distance))
            return true;
        if (leaves == 1) {
            for (std::size_t i = begin; i < end; ++i)
                if (!note(items_[i]))
                    return false;
            return true;
        }
        const std::size_t half = begin + (end - begin) / 2;
        return visit(2 * node, begin, half, leaves / 2, reach, distance, note) &&
               visit(2 * node + 1, half, end, leaves / 2, reach, distance, note);
    }

    std::vector<Item> items_;
    BoxOf of_;
    std::vector<Box> boxes_;
    std::size_t leaves_ = 1;
};

}  // namespace plparcel
