#pragma once

// Where lines take their direction from; the direction of a bearing.

#include "numbers/wide.h"
#include "plparcel/line.h"

namespace plparcel {

/// Whether lines take their direction from no side.
inline bool is_free(Cut cut)
{
    return cut == Cut::at_bearing || cut == Cut::along_segment;
}

/// Whether lines have no direction but a start, or a point on their way.
inline bool has_start(Cut cut)
{
    return cut == Cut::through_vertex || cut == Cut::through_place || cut == Cut::through_point;
}

/// Whether a bearing or a segment is a direction.
bool has_direction(const Line& line);

/// Sine and cosine of a bearing, so East and North of a vector of length 1: to about 100 bits, and the same on every
/// machine. Exact at the four cardinal directions.
///
/// @param[in] bearing_gon  clockwise from North, finite, any number of turns
WidePoint direction_of(double bearing_gon);

}  // namespace plparcel
