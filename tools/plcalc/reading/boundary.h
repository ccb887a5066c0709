#pragma once

// From a geometry to a ring that can be worked on.

#include <string>

#include <ogr_geometry.h>
#include <ogr_spatialref.h>

#include "plparcel/division.h"

namespace tool {

/// Whether the geometry bounds an area: a polygon, a collection of polygons, a closed line, or the one member
/// of a collection that does. Empty ones count by their type.
bool bounds_area(const OGRGeometry& geometry);

/// The ring of a geometry that bounds an area.
///
/// @param[in] geometry  the geometry; heights and measures are left aside
/// @param[in] where     file and feature, for messages
/// @return the vertices in order, the closing one left out
/// @throws Failure      unusable_input: no geometry, several parts, curves, holes, fewer than three vertices,
///                      a coordinate that is not finite, a ring that meets itself; see plparcel::check_ring
plparcel::Ring usable_ring(const OGRGeometry& geometry, const std::string& where);

/// The same for vertices that came as points.
plparcel::Ring usable_ring(plparcel::Ring vertices, const std::string& where);

/// Refuses coordinates that are not plane ones.
///
/// @param[in] crs     the coordinate reference system, or null when the file tells none
/// @param[in] stated  whether the file states it: a format may stand for degrees by default (GeoJSON), and is
///                    not believed then where the coordinates cannot be degrees
/// @param[in] ring    the coordinates
/// @param[in] where   file and feature, for messages
/// @throws Failure    unusable_input for degrees, for geocentric coordinates and for such as count to the West
void require_plane(const OGRSpatialReference* crs, bool stated, const plparcel::Ring& ring,
                   const std::string& where);

}  // namespace tool
