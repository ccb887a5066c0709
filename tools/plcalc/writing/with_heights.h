#pragma once

// Points of geometries that are written, with heights where they are known.

#include <vector>

#include <ogr_geometry.h>

#include "answers/heights.h"
#include "plcalc/kernel.h"

namespace tool {

/// Adds the points, with a height for every one, or without any.
///
/// @param[in] known  may be null
void add_points(OGRLineString& line, const std::vector<PL_PNT2D_record>& points, const Heights* known);

}  // namespace tool
