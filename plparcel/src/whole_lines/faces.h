#pragma once

// The pieces into which whole lines cut a parcel.

#include <cstddef>
#include <vector>

#include "boundary/joined_rings.h"
#include "whole_lines/crossings.h"

namespace plparcel {

/// One piece, its outer ring anticlockwise.
struct Face {
    std::size_t band = 0;  ///< how many lines are below it
    Ring ring;
    std::vector<std::size_t> holes;    ///< rings of the parcel that lie in it whole, by their index
    std::vector<std::size_t> corners;  ///< its crossings
};

/// @param[in] levels     the parcel
/// @param[in] crossings  of all lines, upwards; each line's from left to right, two for each segment
/// @param[in] lines      the levels of the lines
/// @param[out] faces     all pieces, in no order
/// @return false where a walk round a piece comes to a line that does not bound it
bool find_faces(const Levels& levels, const std::vector<Crossing>& crossings, const std::vector<Wide>& lines,
                std::vector<Face>& faces);

}  // namespace plparcel
