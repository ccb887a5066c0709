#pragma once

// A parcel with any number of rings, as lines cut it.

#include <optional>
#include <vector>

#include "boundary/ring_check.h"
#include "numbers/wide.h"
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

/// What is wrong with a line that has a direction.
std::optional<Status> refusal_of_direction(const CheckedParcel& parcel, const Line& line);

/// @param[in] parcel  usable
/// @param[in] line    not refused
WholeParcel whole_parcel(const CheckedParcel& parcel, const Line& line);

}  // namespace plparcel
