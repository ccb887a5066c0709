#pragma once

// What reports call things: a ring's direction, a cut, the amounts, the pieces.

#include <cstddef>
#include <string>

#include "answers/printed_division.h"
#include "answers/question.h"

namespace tool {

/// "anticlockwise" or "clockwise".
const char* direction_name(bool anticlockwise);

/// "side 3".
std::string numbered(const char* what, long long number);

/// "parallel to side 1, from vertex 1 to vertex 2".
std::string described_cut(const Asked& asked, const Parcel& parcel);

/// "40 x 50, 1/3", as they were given. Many equal amounts are counted: "9 times 1/10".
std::string described_amounts(const Asked& asked);

/// "Cut parallel to side 1, from vertex 1 to vertex 2: 40 x 50".
std::string cut_sentence(const Asked& asked, const Parcel& parcel);

/// What holds an amount, from 0 to the last one, which is the rest: "along side 2", "rest".
std::string amount_name(const Asked& asked, const Parcel& parcel, std::size_t amount);

/// What a piece of a division is: the name of its amount, and "(1 of 3)" where that is in several pieces.
std::string piece_name(const Answer& answer, std::size_t piece);

/// "4 vertices, anticlockwise", or "10 vertices, anticlockwise, 2 holes".
std::string described_rings(const Parcel& parcel, bool anticlockwise);

/// "side 3, from vertex 3 to vertex 4", with the names that the file gives the vertices.
///
/// @param[in] number  from 1
std::string described_side(const Parcel& parcel, long long number);

}  // namespace tool
