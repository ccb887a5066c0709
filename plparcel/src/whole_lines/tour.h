#pragma once

// The boundary of a parcel with holes as one walk.
//
//      .-----------------.       A slit along a line runs from the lowest vertex of each hole to the side on its left.
//      |       ___       |       Walked along the rings, and along the slits there and back, the boundary is one ring.
//      |      |   |      |       A segment of a line runs along no slit and crosses none. It parts the slit parcel in
//      |------|___|      |       two; the area above it is what the walk from its right end to its left one sums up,
//      '-----------------'       the integral of x dy, to which the slits add nothing.

#include <cstddef>
#include <vector>

#include "boundary/joined_rings.h"
#include "lines/trapeziums.h"
#include "numbers/wide.h"

namespace plparcel {

/// A side from one level to another, between two slits. The place along the walk stays the same.
struct TourPart {
    std::size_t side = 0;
    Wide low;
    Wide high;
    std::size_t place = 0;  ///< parts are counted as the walk comes to them
    Wide
        swept;  ///< integral of x dy from where the walk began to the side's first end, less what hangs at other parts
};

/// @param[in] rings  the outer ring anticlockwise, the holes clockwise
/// @param[in] frame  of each vertex its place along the lines and its level
/// @param[in] found  the trapeziums of the parcel
/// @return the parts of all sides in the order of the walk, which begins at the outer ring's lowest vertex
std::vector<TourPart> tour(const JoinedRings& rings, const std::vector<WidePoint>& frame,
                           const std::vector<Trapezium>& found);

}  // namespace plparcel
