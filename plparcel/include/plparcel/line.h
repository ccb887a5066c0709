#pragma once

/// @file
/// How a dividing line runs.

#include <cstddef>

#include "plparcel/boundary.h"

namespace plparcel {

/// How the dividing line runs. The numbers are those of CFrazArea's modes.
enum class Cut {
    parallel = 0,       ///< parallel to a side
    perpendicular = 1,  ///< perpendicular to a side
    through_vertex = 2  ///< from a vertex
};

/// The direction of a line, or the point that it starts from. The amount decides where it lies.
struct Line {
    Cut cut = Cut::parallel;  ///< which way the line runs
    /// Side or vertex, counted from 0 in the ring as handed over; repeated vertices count too.
    std::size_t index = 0;
};

/// @param[in] side  counted from 0
/// @return a line parallel to that side
PLPARCEL_API Line parallel_to(std::size_t side) noexcept;

/// @param[in] side  counted from 0
/// @return a line at right angles to that side
PLPARCEL_API Line perpendicular_to(std::size_t side) noexcept;

/// @param[in] vertex  counted from 0
/// @return a line from that vertex
PLPARCEL_API Line through_vertex(std::size_t vertex) noexcept;

}  // namespace plparcel
