#pragma once

/// @file
/// How a dividing line runs.

#include <cstddef>

#include "plparcel/boundary.h"

namespace plparcel {

/// A straight piece: of a dividing line, of a road's axis, of a neighbour's boundary.
struct Segment {
    PL_PNT2D_record from = {};  ///< the end that comes first
    PL_PNT2D_record to = {};    ///< the other end
};

/// How the dividing line runs. The numbers are those of CFrazArea's modes.
enum class Cut {
    parallel = 0,        ///< parallel to a side
    perpendicular = 1,   ///< perpendicular to a side
    through_vertex = 2,  ///< from a vertex
    at_bearing,          ///< in the direction of a bearing
    along_segment,       ///< in the direction of a segment, which may lie anywhere: the axis of a road
    through_place,       ///< from a place on the boundary, given by a side and the distance along it
    through_point        ///< through a point inside; from a point on the boundary
};

/// The direction of a line, or the point that it starts from. The amount decides where it lies.
struct Line {
    Cut cut = Cut::parallel;  ///< which way the line runs
    /// Side or vertex, counted from 0 in the ring as handed over; repeated vertices count too. Without effect for
    /// at_bearing, along_segment and through_point.
    std::size_t index = 0;
    std::size_t ring = 0;    ///< whose side or vertex: 0 the outer ring, k the k-th hole
    double bearing = 0.0;    ///< at_bearing: gons, clockwise from North, any finite number of turns
                             ///< through_point: likewise, where to look first
    PL_PNT2D_record a = {};  ///< along_segment: where the segment begins; through_point: the point
    PL_PNT2D_record b = {};  ///< along_segment: where it ends; only the direction from a to b counts
    double along = 0.0;      ///< through_place: distance from the side's first end, caller's unit
};

/// @param[in] side  counted from 0
/// @param[in] ring  0 the outer ring, k the k-th hole
/// @return a line parallel to that side
PLPARCEL_API Line parallel_to(std::size_t side, std::size_t ring = 0) noexcept;

/// @param[in] side  counted from 0
/// @param[in] ring  0 the outer ring, k the k-th hole
/// @return a line at right angles to that side
PLPARCEL_API Line perpendicular_to(std::size_t side, std::size_t ring = 0) noexcept;

/// @param[in] vertex  counted from 0
/// @return a line from that vertex of the outer ring; set Line::ring for a hole's
PLPARCEL_API Line through_vertex(std::size_t vertex) noexcept;

/// @param[in] bearing_gon  clockwise from North: 0 runs North, 100 East
/// @return a line in that direction
PLPARCEL_API Line at_bearing(double bearing_gon) noexcept;

/// @param[in] a, b  the ends of a segment, on the parcel or away from it
/// @return a line in the direction from a to b
PLPARCEL_API Line along_segment(const PL_PNT2D_record& a, const PL_PNT2D_record& b) noexcept;

/// @param[in] side   counted from 0
/// @param[in] along  distance from the side's first end, caller's unit; 0 is that vertex, the side's length the next
/// @return a line from that place on the outer ring; set Line::ring for a hole's
PLPARCEL_API Line through_place(std::size_t side, double along) noexcept;

/// @param[in] point    in the parcel or on its boundary; of a whole line anywhere, see Pieces
/// @param[in] bearing  gons, clockwise from North; where several lines through a point inside hold the amount, the first
///                     is the one whose direction comes first, clockwise from this bearing
/// @return a line through that point
PLPARCEL_API Line through_point(const PL_PNT2D_record& point, double bearing = 0.0) noexcept;

}  // namespace plparcel
