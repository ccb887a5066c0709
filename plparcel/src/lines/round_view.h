#pragma once

// What is seen from a point, all round.

#include <cstddef>
#include <vector>

#include "numbers/wide.h"

namespace plparcel {

/// From `begin` anticlockwise on, up to where the next sector begins, one side is seen.
struct Sector {
    WidePoint begin;
    std::size_t side = 0;
};

/// Turns a ray once around the point and keeps the sides that it meets in their order, the nearest first. Costs n log
/// n.
///
/// @param[in] points  the boundary's vertices from the point, which lies inside and on none of the sides
/// @param[in] next    side k runs from vertex k to vertex next[k]
/// @param[in] first   a direction
/// @return the sectors in their order from `first` on; up to the first of them reaches the last
std::vector<Sector> seen_all_round(const std::vector<WidePoint>& points, const std::vector<std::size_t>& next,
                                   const WidePoint& first);

}  // namespace plparcel
