#pragma once

// The division as it is staked out: with the ends of its lines rounded to decimals.

#include <optional>
#include <vector>

#include "boundary/measured_ring.h"
#include "numbers/wide.h"
#include "plparcel/division.h"

namespace plparcel {

/// A division whose lines have rounded ends.
struct StakedOut {
    struct Line {
        PL_PNT2D_record from = {};
        PL_PNT2D_record to = {};
    };
    std::vector<Line> lines;           ///< in the order of the division's
    std::vector<MeasuredRing> pieces;  ///< with the rounded ends as corners
    std::optional<int> decimals;       ///< of the ends; none where they have all their digits
};

/// Rounds the ends of all lines, and measures and judges the pieces between the rounded lines. While they do not hold
/// what they should, another decimal is added, up to all digits.
///
/// People will read the lines in two ways: with their ends as corners of the pieces, and prolonged or shortened to the
/// boundary. In both, every piece must hold its amount; the pieces must be simple rings that lie beside each other.
///
/// @param[in] boundary  of the parcel
/// @param[in] found     lines and pieces, with all digits
/// @param[in] wanted    what each piece should hold, unit squared
/// @param[in] rounding  with decimals
/// @return nothing where no number of decimals holds the amounts
std::optional<StakedOut> stake_out(const Ring& boundary, const Division& found,
                                   const std::vector<Wide>& wanted, const Wide& parcel,
                                   const Rounding& rounding);

}  // namespace plparcel
