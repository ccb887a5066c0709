#pragma once

// Whether a line that divides as requested exists at all, found by trying many in long double.

#include "plparcel/division.h"

namespace plparcel_test {

/// Tries parallels at many levels, or rays in many directions, cuts each at its parts in the parcel, and measures
/// the piece that should hold the request.
///
/// @param[in] ring     a simple ring without repeated vertices
/// @param[in] request  its amount without effect
/// @param[in] asked    the amount as an area
/// @param[in] trials   how many lines
/// @return true when two neighbouring lines between the same two sides hold less and more than asked: one in
///         between holds it. False proves nothing.
bool line_exists(const plparcel::Ring& ring, const plparcel::Request& request, double asked, int trials);

}  // namespace plparcel_test
