#pragma once

// What a parcel's coordinate reference system says: whether the coordinates are plane, and their unit.

#include <ogr_spatialref.h>

#include "answers/parcel.h"
#include "console/failure.h"

namespace tool {

/// Refuses coordinates that are not plane ones.
///
/// @param[in] crs     the coordinate reference system, or null when the file tells none
/// @param[in] stated  whether the file states it: a format may stand for degrees by default (GeoJSON), and is
///                    not believed then where the coordinates cannot be degrees
/// @param[in] ring    the coordinates
/// @param[in] place   file and feature, for messages
/// @throws Failure    unusable_input for degrees, for geocentric coordinates and for such as count to the West
void require_plane(const OGRSpatialReference* crs, bool stated, const plparcel::Ring& ring,
                   const Place& place);

/// The unit of a projected CRS; without a name, and a metre long, for any other and for null.
LengthUnit unit_of(const OGRSpatialReference* crs);

}  // namespace tool
