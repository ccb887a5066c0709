#pragma once

// From amounts as they are given to areas, and whether there is that much to cut.

#include <cstddef>
#include <optional>
#include <vector>

#include "numbers/wide.h"
#include "plparcel/division.h"

namespace plparcel {

/// What the pieces should hold.
struct Shares {
    std::optional<Status> refusal;  ///< why there are none
    std::size_t at_amount = 0;      ///< the amount to which it belongs
    std::vector<Wide> pieces;       ///< of each piece its area, what is left at the end included
    /// With a width among the amounts: the width of each, or 0. Its area in `pieces` is then 0, and not known yet.
    std::vector<double> widths;
};

/// @param[in] amounts  as requested
/// @param[in] parcel   area of the parcel, unit squared, above zero
Shares share_out(const std::vector<Amount>& amounts, const Wide& parcel);

}  // namespace plparcel
