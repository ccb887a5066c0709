#pragma once

// Divides a parcel by a whole straight line through a vertex, a place on the boundary or a point anywhere.

#include <optional>

#include "amounts.h"
#include "boundary/ring_check.h"
#include "lines/area_ranges.h"
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

/// Why no such line can be looked for, whatever the amount. For two pieces a point in a hole lies outside the parcel.
std::optional<Status> refusal_of_start(const CheckedParcel& parcel, const Line& line, Pieces pieces);

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

/// The areas that parts of lines which make exactly two pieces can cut off, unit squared: in their order, apart from each
/// other.
///
/// @param[in] parcel   with holes
/// @param[in] granted  by how much a line at a vertex may miss an area, unit squared
std::vector<AreaRange> areas_of_parts_through(const WholeParcel& parcel, const Pivot& pivot,
                                              Measured measured, const Wide& granted);

}  // namespace plparcel
