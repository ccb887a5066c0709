#pragma once

// Divides a parcel with holes by lines of one direction that make exactly two pieces each.

#include <cstddef>
#include <vector>

#include "amounts.h"
#include "lines/area_ranges.h"
#include "plparcel/division.h"
#include "verdict/target.h"
#include "whole_lines/whole_cut.h"
#include "whole_lines/whole_parcel.h"

namespace plparcel {

/// Cuts one amount after another, each off what the cut before it left.
///
/// @param[in]  parcel    with the side that the request names
/// @param[in]  request   a line that has a direction
/// @param[in]  shares    what the pieces should hold
/// @param[in]  of_parcel  how nearly, as a part of the parcel
/// @param[out] division  status, lines, pieces and what the amounts hold; at_amount unless divided
/// @return what each amount should hold, and what is left; unit squared
std::vector<Wide> cut_parts(const WholeParcel& parcel, const Request& request, const Shares& shares,
                            double of_parcel, Division& division);

/// What became of the parts of one line.
struct PartsOfLine {
    std::vector<Division> divisions;  ///< those that hold the target: divided, with one line and two pieces
    std::size_t trials = 0;           ///< how many were judged
    bool any_missing = false;         ///< one of these makes two pieces, but no doubles hold the target
};

/// Cuts one amount by the parts of a known line that make two pieces, and begin or end at its point, or have a segment that
/// runs through it.
///
/// @param[in] rings      the point is a vertex of one of them, or lies inside
/// @param[in] clockwise  pieces are to run so
/// @param[in] run        the direction of the line
/// @param[in] target     what the pieces should hold
PartsOfLine cut_by_parts_of(const std::vector<Ring>& rings, bool clockwise, const KnownLine& line,
                            const WidePoint& run, const Target& target);

/// The areas that such a line can cut off, unit squared: in their order, apart from each other.
///
/// @param[in] request  line, and which piece is measured; amounts are without effect
/// @param[in] granted  by how much a line at a vertex may miss an area, unit squared
std::vector<AreaRange> areas_of_parts(const WholeParcel& parcel, const Request& request, const Wide& granted);

}  // namespace plparcel
