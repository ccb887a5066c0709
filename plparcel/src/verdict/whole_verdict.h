#pragma once

// Says whether the pieces of whole lines are right, from the coordinates that would be returned. Shares nothing with
// the walk that made them but the arithmetic.

#include <optional>
#include <vector>

#include "numbers/wide.h"
#include "plparcel/boundary.h"

namespace plparcel {

/// Area of a piece with its holes, or nothing unless it can stand as a parcel of its own: its ring anticlockwise, its
/// holes clockwise, all simple, the holes in the ring and apart from each other and from the ring.
///
/// @param[in] rings  the outer ring, then the holes
std::optional<Wide> area_of_piece(const std::vector<Ring>& rings);

/// Whether a point lies within reach of a side.
bool is_near_side(const PL_PNT2D_record& a, const PL_PNT2D_record& b, const PL_PNT2D_record& p, double reach);

}  // namespace plparcel
