#pragma once

// What a parcel's coordinate reference system says: whether the coordinates are plane, and their unit.

#include <string>

#include <ogr_spatialref.h>

#include "answers/question.h"
#include "console/outcome.h"

namespace tool {

/// Refuses coordinates that are not plane.
///
/// @param[in] crs     the coordinate reference system, or null if the file has none
/// @param[in] stated  whether the file states the CRS. GeoJSON stands for degrees by default; that default is
///                    ignored if the coordinates cannot be degrees.
/// @param[in] ring    the coordinates
/// @param[in] place   file and feature, for messages
/// @throws Failure    unusable_input for degrees, for geocentric coordinates and for coordinates that
///                    increase to the West
void require_plane(const OGRSpatialReference* crs, bool stated, const plparcel::Ring& ring,
                   const Place& place);

/// The unit of a projected CRS. For any other, and for null, it has no name and is a metre long.
LengthUnit unit_of(const OGRSpatialReference* crs);

/// "WGS 84 / UTM zone 32N (EPSG:32632)"; empty for null and for a CRS that only says that it is unknown.
std::string crs_name(const OGRSpatialReference* crs);

}  // namespace tool
