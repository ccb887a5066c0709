#pragma once

// Lists of points: a name and coordinates in each row.

#include <optional>
#include <string>
#include <vector>

#include <ogr_spatialref.h>

#include "answers/stakeout.h"
#include "reading/source.h"

namespace tool {

/// The points of a text table with columns as a table of vertices has them.
///
/// @param[in,out] assumed  gets what was assumed of them
/// @param[in] axes         of columns X and Y; nothing where the CRS decides
/// @param[in] crs          of the parcel, which is that of the points; or null
/// @throws Failure         unusable_input for a file that is no such table, wrong_use for X and Y of unknown meaning
std::vector<NamedPoint> read_point_list(const std::string& file, const std::optional<XAxis>& axes,
                                        const OGRSpatialReference* crs, std::vector<std::string>& assumed);

}  // namespace tool
