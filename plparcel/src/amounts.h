#pragma once

// From amounts as they are given to areas, and whether there is that much to cut.

#include <cstddef>
#include <vector>

#include "plparcel/division.h"
#include "wide.h"

namespace plparcel {

/// What the pieces should hold.
struct Shares {
    Status status = Status::amount_out_of_range;  ///< divided when there is that much to cut
    std::size_t at_amount = 0;                    ///< the amount to which a refusal belongs
    std::vector<Wide> pieces;  ///< of each piece its area, what is left at the end included
};

/// @param[in] amounts  as requested
/// @param[in] parcel   area of the parcel, unit squared, above zero
Shares share_out(const std::vector<Amount>& amounts, const Wide& parcel);

}  // namespace plparcel
