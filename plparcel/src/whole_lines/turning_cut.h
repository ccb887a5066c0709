#pragma once

// Divides a parcel by a whole straight line through a vertex, a place on the boundary or a point anywhere.

#include <optional>

#include "amounts.h"
#include "boundary/ring_check.h"
#include "plparcel/division.h"
#include "whole_lines/turning_lines.h"
#include "whole_lines/whole_cut.h"

namespace plparcel {

/// The point about which a line turns, and from where on.
struct Pivot {
    std::optional<Status> refusal;  ///< why there is none
    PL_PNT2D_record point = {};
    WidePoint first;           ///< the direction from which the line turns
    bool on_boundary = false;  ///< it turns half round then, at first along the side that begins there
    bool clockwise = false;    ///< the way it turns
};

/// @param[in] parcel  usable
/// @param[in] line    through a vertex, a place or a point
Pivot pivot_of(const CheckedParcel& parcel, const Line& line);

/// Cuts off one amount.
///
/// @param[in]  parcel    as for cut_whole(); its side is without effect
/// @param[in]  pivot     not refused
/// @param[in]  shares    what the two sides of the line should hold
/// @param[in]  of_parcel  how nearly, as a part of the parcel
/// @param[out] division  status, lines, pieces and what the amounts hold; at_amount unless divided
/// @return what the two sides should hold
std::vector<Wide> cut_through(const WholeParcel& parcel, const Pivot& pivot, const Request& request,
                              const Shares& shares, double of_parcel, Division& division);

/// Likewise by parts of lines that make exactly two pieces: the point is an end of one of their segments, or lies within one.
///
/// @param[in] parcel  with holes
std::vector<Wide> cut_parts_through(const WholeParcel& parcel, const Pivot& pivot, const Request& request,
                                    const Shares& shares, double of_parcel, Division& division);

/// The least and the greatest area that lines can cut off, unit squared.
LeastAndMost areas_through(const WholeParcel& parcel, const Pivot& pivot, Measured measured);

}  // namespace plparcel
