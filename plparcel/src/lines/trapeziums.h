#pragma once

// The inside of a ring as a set of trapeziums, for lines of one direction. A point's first coordinate goes along
// the lines, its second is its level.
//
//             /|                   A line runs through every vertex, as far as the inside goes on both sides. Each
//            / |   ____ high       trapezium lies between two sides: a line at any level in it runs from its
//           /__|  /   |            left side to its right one and meets nothing on the way. There are about as
//          /   |_/    |            many of them as vertices.
//         /___________| low
//        /____________|

#include <cstddef>
#include <vector>

#include "boundary/joined_rings.h"
#include "numbers/wide.h"

namespace plparcel {

/// Which two sides, and from which level to which.
struct Trapezium {
    std::size_t left = 0;
    std::size_t right = 0;
    Wide low;
    Wide high;
};

/// Where a side is at a level: its first coordinate. The side must not be level itself.
Wide along_at(const std::vector<WidePoint>& ring, std::size_t side, const Wide& level);

/// @param[in] ring  simple, either way round, three vertices or more
/// @return all trapeziums but those that are lower than 1e-20 of the ring; in the order in which they begin
std::vector<Trapezium> trapeziums(const std::vector<WidePoint>& ring);

/// The same for several rings.
///
/// @param[in] frame  of each vertex its place along the lines and its level
/// @param[in] rings  which vertices are neighbours; the outer ring anticlockwise, the holes clockwise
/// @param[out] order  if wanted: the sides that a line meets, each once. Those that one line meets stand in it from left
///                    to right
std::vector<Trapezium> trapeziums(const std::vector<WidePoint>& frame, const JoinedRings& rings,
                                  std::vector<std::size_t>* order = nullptr);

}  // namespace plparcel
