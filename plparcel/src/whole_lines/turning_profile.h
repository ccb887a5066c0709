#pragma once

// How much of a parcel lies on the left of a straight line that turns about a point, as a function of its direction.
//
//           \ ahead          The line turns anticlockwise from a first direction, through half a turn. Ahead of the point it
//     .------\-----.         takes area away from its left, behind the point it adds some:
//     |       o    |             left = left at first - swept ahead + swept behind
//     '--------\---'         Both are never negative, and together they sweep the parcel once. So between two directions
//        behind \            the area on the left differs from what it is at either by no more than is swept there.
//
// The sides behind are turned half round the point, and sides that the first line crosses are cut there. Then one ray
// that turns through half a turn meets them all. Where it meets a side, the triangle that it has swept along that side
// has a closed form. A tree over the directions of all vertices takes each side in O(log n) of its nodes.

#include <cstddef>
#include <vector>

#include "boundary/joined_rings.h"
#include "numbers/wide.h"

namespace plparcel {

class TurningProfile {
public:
    /// At a direction.
    struct State {
        Wide left;   ///< area on the left of the line
        Wide swept;  ///< since the first direction, on both sides of the point together
    };

    /// What a side adds to the area on the left, between two directions next to each other: growth t / (1 + bend t), on
    /// the way t from 0 to 1 along the straight line from the one direction to the other.
    struct Term {
        Wide growth;
        Wide bend;
    };

    /// A side, or the part of it on one side of the first line, as the ray sees it.
    struct Part {
        std::size_t side;
        WidePoint begin;  ///< where the ray comes to it; behind, turned half round the point
        WidePoint end;
        std::size_t from;  ///< the directions of these
        std::size_t to;
        bool ahead;
        bool leaves;  ///< the parcel lies between the point and the part
    };

    /// @param[in] rings   the outer ring anticlockwise, the holes clockwise
    /// @param[in] points  their vertices from the point, or these mirrored
    /// @param[in] turn    1, or -1 where they are mirrored
    /// @param[in] first   the direction from which the line turns
    TurningProfile(const JoinedRings& rings, const std::vector<WidePoint>& points, double turn,
                   const WidePoint& first);

    /// The first direction, those in which the line meets vertices ahead or behind, and the one against the first.
    const std::vector<WidePoint>& directions() const { return directions_; }

    /// At one of them.
    State at(std::size_t direction) const;

    /// Between one of them and the next.
    std::vector<Term> terms(std::size_t direction) const;

    const std::vector<Part>& parts() const { return parts_; }

    /// Where the ray meets a part, in a direction of its own; its ends exactly.
    WidePoint hit(const Part& part, std::size_t direction) const;

    /// What the ray sweeps along a part, between a direction and the next.
    Term swept_along(const Part& part, std::size_t direction) const;

    /// Areas of all triangles between the point and a side together: what rounding errors are measured by.
    const Wide& scale() const { return scale_; }

private:
    struct Cover {
        std::size_t node;
        std::size_t part;
    };

    void put_in_order(const std::vector<WidePoint>& points);
    void add_side(std::size_t a, std::size_t b, const std::vector<WidePoint>& points, double turn);
    void add_part(std::size_t side, const WidePoint& a, const WidePoint& b, std::size_t from, std::size_t to,
                  bool ahead, double turn);
    void sum_whole_parts();
    void build_tree();
    std::size_t rim_of(const WidePoint& seen) const;
    std::vector<std::size_t> parts_in(std::size_t sector) const;

    WidePoint first_;
    std::vector<WidePoint> directions_;
    std::vector<Wide> off_;               // of each vertex: on which side of the first line
    std::vector<std::size_t> direction_;  // of each vertex off that line
    std::vector<Part> parts_;
    std::vector<State>
        whole_;  // of each direction: what the parts that end before it, or there, have changed
    Wide scale_;
    std::size_t leaves_ = 1;  // sectors, and more up to a power of two
    std::vector<std::size_t> in_node_;
    std::vector<std::size_t> node_first_;
};

}  // namespace plparcel
