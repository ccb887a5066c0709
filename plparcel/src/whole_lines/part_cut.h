#pragma once

// Divides a parcel with holes by lines of one direction that make exactly two pieces each.

#include "amounts.h"
#include "plparcel/division.h"
#include "whole_lines/whole_cut.h"

namespace plparcel {

/// Cuts one amount after another, each off what the cut before it left.
///
/// @param[in]  parcel    with the side that the request names
/// @param[in]  base      index of that side among all sides; without effect for a line without a side
/// @param[in]  request   a line that has a direction
/// @param[in]  shares    what the pieces should hold
/// @param[in]  of_parcel  how nearly, as a part of the parcel
/// @param[out] division  status, lines, pieces and what the amounts hold; at_amount unless divided
/// @return what each amount should hold, and what is left; unit squared
std::vector<Wide> cut_parts(const WholeParcel& parcel, std::size_t base, const Request& request,
                            const Shares& shares, double of_parcel, Division& division);

}  // namespace plparcel
