#pragma once

// What a person points at: how much a line through that point would cut off, and how far along a side the point lies.

#include <optional>

#include "plparcel/division.h"

namespace web {

/// The amount for which a line of the requested kind runs through a point.
///
/// @param[in] parcel   a usable one
/// @param[in] request  line and measure; its amounts are without effect
/// @param[in] target   the point, caller's unit
/// @return a width for lines that have a direction, an area for lines that start somewhere or turn round a point.
///         Nothing where the line would not cut the parcel: behind the side, beyond the parcel, or towards the outside.
///
/// Exactness   For the eye that follows a pointer: good to a millionth of the parcel's extent. divide() proves the
///             line.
std::optional<plparcel::Amount> amount_at(const plparcel::Parcel& parcel, const plparcel::Request& request,
                                          const PL_PNT2D_record& target);

/// @param[in] side    counted from 0, of that ring
/// @param[in] target  any point
/// @return the distance from the side's first end to the foot of the point, from 0 to the side's length; 0 for a side that
///         does not exist
double along_side(const plparcel::Ring& ring, std::size_t side, const PL_PNT2D_record& target);

}  // namespace web
