#pragma once

// Divides a parcel by whole straight lines of one direction: any number of pieces.

#include <vector>

#include "amounts.h"
#include "plparcel/division.h"

namespace plparcel {

/// A parcel and the side that gives the direction.
struct WholeParcel {
    std::vector<Ring> rings;  ///< no vertex repeated; the outer ring anticlockwise, the holes clockwise
    bool clockwise = false;   ///< the outer ring was given that way round, and pieces are to run so too
    PL_PNT2D_record a = {};   ///< the side, as it was given
    PL_PNT2D_record b = {};
    bool inside_on_left = true;  ///< of the side from a to b
    Wide area;                   ///< unit squared
};

/// Cuts all amounts at once, since the area below a line grows with its level whatever was cut before.
///
/// @param[in]  request   a line that has a direction
/// @param[in]  shares    what the pieces should hold
/// @param[in]  of_parcel  how nearly, as a part of the parcel
/// @param[out] division  status, lines, pieces and what the amounts hold; at_amount unless divided
/// @return what each amount should hold, and what is left; unit squared
std::vector<Wide> cut_whole(const WholeParcel& parcel, const Request& request, const Shares& shares,
                            double of_parcel, Division& division);

}  // namespace plparcel
