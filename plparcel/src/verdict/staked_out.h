#pragma once

// The division as it is staked out: with the ends of its lines rounded to decimals.

#include <optional>
#include <vector>

#include "boundary/measured_ring.h"
#include "numbers/wide.h"
#include "plparcel/division.h"

namespace plparcel {

/// A piece between rounded lines.
struct StakedPiece {
    std::vector<Ring> rings;  ///< its holes after the outer one; all run as they did
    Wide area;                ///< unit squared
};

/// A division whose lines have rounded ends.
struct StakedOut {
    std::vector<std::vector<Segment>> lines;  ///< of each line its segments, in the division's order
    std::vector<StakedPiece> pieces;          ///< with the rounded ends as corners, in the division's order
    std::optional<int> decimals;              ///< of the ends; none where they have all their digits
};

/// Rounds the ends of all lines, and measures and judges the pieces between the rounded lines. While they do not hold
/// what they should, another decimal is added, up to all digits.
///
/// People will read the lines in two ways: with the ends of their segments as corners of the pieces, and each segment
/// prolonged or shortened to the boundary. In both, the pieces of every amount together must hold it; the pieces must
/// be parcels of their own that lie beside each other.
///
/// @param[in] boundary  the rings of the parcel
/// @param[in] found     lines and pieces, with all digits
/// @param[in] wanted    what each amount should hold, and what is left; unit squared
/// @param[in] rounding  with decimals
/// @return nothing where no number of decimals holds the amounts
std::optional<StakedOut> stake_out(const std::vector<Ring>& boundary, const Division& found,
                                   const std::vector<Wide>& wanted, const Wide& parcel,
                                   const Rounding& rounding);

}  // namespace plparcel
