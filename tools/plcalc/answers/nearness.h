#pragma once

// Dividing lines that cannot be told from a side once they are staked out.

#include <cstddef>
#include <vector>

#include "answers/printed_division.h"

namespace tool {

/// What is staked out is known to a centimetre.
constexpr double kStakeoutMetres = 0.01;

/// A printed line, both ends of which lie within a centimetre of a side.
struct NearSide {
    std::size_t line;  ///< of PrintedDivision::lines, from 0
    std::size_t side;  ///< from 0
};

/// @param[in] answer  one that is done()
/// @return in the order of the lines, with the first such side of each
std::vector<NearSide> lines_at_sides(const Answer& answer);

}  // namespace tool
