#pragma once

// How much of a parcel lies below a line of one direction, as a function of the line's level.
//
//      level                The lines through all vertices part the parcel in slabs. In a slab the same sides are
//   .    ^  /\              met, and the width of the parcel is a linear function of the level: the sum over the
//   .----|-/--\-----.       sides that bound it on the right less those on the left. The area below is a quadratic,
//   .    |/    \    |       continuous from slab to slab and never sinking, whatever the shape, holes or not.
//   .----/------\---|
//
// A side reaches over many slabs. A tree over the slabs takes each side in O(log n) of its nodes, and sums the places
// at which sides cross the lower and the upper rim of a node. Nothing is ever subtracted from a sum: taking a side
// that is nearly level out of one again would leave the rounding of its steep slope behind.

#include <cstddef>
#include <vector>

#include "boundary/joined_rings.h"
#include "numbers/wide.h"

namespace plparcel {

class Profile {
public:
    /// @param[in] rings  the outer ring anticlockwise, the holes clockwise
    /// @param[in] frame  of each vertex its place along the lines and its level
    Profile(const JoinedRings& rings, const std::vector<WidePoint>& frame);

    const Wide& lowest() const { return levels_.front(); }
    const Wide& highest() const { return levels_.back(); }

    /// All of the parcel's area, in units of the frame.
    const Wide& area() const { return below_.back(); }

    Wide area_below(const Wide& level) const;

    /// The level at which so much lies below; the lowest for nothing, the highest for more than all.
    Wide level_of(const Wide& area) const;

    /// How wide the parcel is at a level, all parts together.
    Wide width_at(const Wide& level) const;

    /// The sides that a line meets inside the slab of a level, in no order.
    std::vector<std::size_t> sides_at(const Wide& level) const;

    /// The vertices whose levels lie from `low` to `high`, in the order of their levels.
    std::vector<std::size_t> vertices_between(const Wide& low, const Wide& high) const;

private:
    struct Cover {
        std::size_t node;
        std::size_t side;
    };

    void cover(std::size_t side, const JoinedRings& rings, std::vector<Cover>& covers);
    void sum_up(const std::vector<Cover>& covers, const JoinedRings& rings);
    void sum_down();
    std::size_t slab_of(const Wide& level) const;
    std::size_t index_of(const Wide& level) const;
    const Wide& rim(std::size_t slab) const
    {
        return levels_[slab < levels_.size() ? slab : levels_.size() - 1];
    }

    const std::vector<WidePoint>& frame_;
    std::vector<std::size_t> order_;  // vertices by level
    std::vector<Wide> levels_;        // all different ones, upwards
    std::vector<Wide> below_;         // of each its area below
    std::size_t leaves_ = 1;          // slabs, and more up to a power of two
    std::vector<Wide> low_;  // of each node: sum of places at its lower rim; of a slab its width there
    std::vector<Wide> high_;
    std::vector<std::size_t> sides_;  // of all nodes, one after another
    std::vector<std::size_t> first_;  // of each node where its sides begin; one more at the end
};

}  // namespace plparcel
