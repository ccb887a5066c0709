#pragma once

/// @file
/// How a dividing line runs.

#include <cstddef>

#include "plparcel/boundary.h"

namespace plparcel {

/// How the dividing line runs. The numbers are those of CFrazArea's modes.
enum class Cut {
    parallel = 0,        ///< parallel to a side
    perpendicular = 1,   ///< perpendicular to a side
    through_vertex = 2,  ///< from a vertex
    at_bearing,          ///< in the direction of a bearing
    along_segment        ///< in the direction of a segment, which may lie anywhere: the axis of a road
};

/// The direction of a line, or the point that it starts from. The amount decides where it lies.
struct Line {
    Cut cut = Cut::parallel;  ///< which way the line runs
    /// Side or vertex, counted from 0 in the ring as handed over; repeated vertices count too. Without effect for
    /// at_bearing and along_segment.
    std::size_t index = 0;
    double bearing = 0.0;    ///< at_bearing: gons, clockwise from North, any finite number of turns
    PL_PNT2D_record a = {};  ///< along_segment: where the segment begins
    PL_PNT2D_record b = {};  ///< along_segment: where it ends; only the direction from a to b counts
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

/// @param[in] bearing_gon  clockwise from North: 0 runs North, 100 East
/// @return a line in that direction
PLPARCEL_API Line at_bearing(double bearing_gon) noexcept;

/// @param[in] a, b  the ends of a segment, on the parcel or away from it
/// @return a line in the direction from a to b
PLPARCEL_API Line along_segment(const PL_PNT2D_record& a, const PL_PNT2D_record& b) noexcept;

}  // namespace plparcel
