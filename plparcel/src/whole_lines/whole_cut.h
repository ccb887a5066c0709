#pragma once

// Divides a parcel by whole straight lines of one direction: any number of pieces.

#include <vector>

#include "amounts.h"
#include "numbers/wide.h"
#include "plparcel/division.h"
#include "whole_lines/whole_parcel.h"

namespace plparcel {

/// Cuts all amounts at once, since the area below a line grows with its level whatever was cut before.
///
/// @param[in]  request   a line that has a direction
/// @param[in]  shares    what the pieces should hold
/// @param[in]  of_parcel  how nearly, as a part of the parcel
/// @param[out] division  status, lines, pieces and what the amounts hold; at_amount unless divided
/// @return what each amount should hold, and what is left; unit squared
std::vector<Wide> cut_whole(const WholeParcel& parcel, const Request& request, const Shares& shares,
                            double of_parcel, Division& division);

/// A whole line that is known before it is cut along.
struct KnownLine {
    PL_PNT2D_record point = {};  ///< on the line, or beside it
    WidePoint up;                ///< across it, from where the amount lies
    Wide level;                  ///< how far above the point it lies, in the parcel's own frame times `up`
    bool ends_there = false;     ///< the point lies on the boundary and on the line
};

/// Cuts one amount along a known line.
///
/// @param[in]  shares     what the two sides of the line should hold
/// @param[in]  of_parcel  how nearly, as a part of the parcel
/// @param[out] division   as for cut_whole()
void cut_along(const WholeParcel& parcel, const Request& request, const Shares& shares, double of_parcel,
               const KnownLine& line, Division& division);

}  // namespace plparcel
