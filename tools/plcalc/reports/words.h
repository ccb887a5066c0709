#pragma once

// What reports call things: a ring's direction, a cut, the amounts, the pieces.

#include <cstddef>
#include <string>

#include "answers/question.h"

namespace tool {

/// "anticlockwise" or "clockwise".
const char* direction_name(bool anticlockwise);

/// "side 3".
std::string numbered(const char* what, long long number);

/// "parallel to side 1, from vertex 1 to vertex 2".
///
/// @param[in] vertices  how many the parcel has
std::string described_cut(const Asked& asked, std::size_t vertices);

/// "40 x 50, 1/3", as they were given. Many equal amounts are counted: "9 times 1/10".
std::string described_amounts(const Asked& asked);

/// "Cut parallel to side 1, from vertex 1 to vertex 2: 40 x 50".
std::string cut_sentence(const Asked& asked, std::size_t vertices);

/// What a piece is, from 0 to the last one, which is the rest: "along side 2", "rest".
std::string piece_name(const Asked& asked, std::size_t vertices, std::size_t piece);

}  // namespace tool
