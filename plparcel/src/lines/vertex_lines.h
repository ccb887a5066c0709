#pragma once

// Lines from a vertex, or from a place on a side, that cut off an area.

#include <cstddef>
#include <vector>

#include "boundary/local_ring.h"
#include "lines/area_ranges.h"
#include "lines/chord.h"

namespace plparcel {

/// The triangle that a line from the vertex sweeps along a side grows in proportion to the way along that side. So each
/// side has at most one point to which the line cuts off the area.
///
/// @param[in] ring        the parcel in its own frame
/// @param[in] turn        1 anticlockwise, -1 clockwise
/// @param[in] vertex      where the line starts
/// @param[in] after_from  area next to the side after the vertex, local units
/// @param[in] granted     by how much a line may miss it, local units
/// @return the lines to all such points, and to the vertices that miss the area by no more than is granted, in the
///         order of the sides. Lines that a side hides are left out; lines that touch the boundary on their way may be among
///         them.
std::vector<Chord> lines_from_vertex(const LocalRing& ring, double turn, std::size_t vertex,
                                     const Wide& after_from, const Wide& granted);

/// The same from a place on a side.
///
/// @param[in] place       next to the side, in the ring's own frame
/// @param[in] after_from  area next to the rest of that side, with the place as a vertex between its ends
/// @return the lines; their sides are those of the ring without that vertex
std::vector<Chord> lines_from_place(const LocalRing& ring, double turn, std::size_t side,
                                    const WidePoint& place, const Wide& after_from, const Wide& granted);

/// All areas that lines from the vertex leave next to the side after it, local units, in no order.
///
/// @param[in] reach  a vertex so near to a line lies on it, local units
std::vector<AreaRange> areas_from_vertex(const LocalRing& ring, double turn, std::size_t vertex,
                                         const Wide& reach);

}  // namespace plparcel
