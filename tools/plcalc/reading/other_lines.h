#pragma once

// The lines of another file: the axes of roads, the boundaries of neighbours.

#include <memory>
#include <string>
#include <vector>

#include <ogr_spatialref.h>

#include "plparcel/which_side.h"

namespace tool {

/// The lines and boundaries of a layer, arcs as chords.
///
/// @param[in] file_and_layer  "roads.gpkg" for a file with one layer of them, or "roads.gpkg:axes"
/// @param[in] crs             the CRS of the parcels, or null
/// @throws Failure  wrong_use for a layer that does not exist, or where several have lines; unusable_input for a file that
///                  cannot be read, has no lines, or has another CRS
std::shared_ptr<const plparcel::OtherGeometry> other_lines(const std::string& file_and_layer,
                                                           const OGRSpatialReference* crs);

/// The files in which they stand.
///
/// @throws Failure  unusable_input for a file that cannot be read
std::vector<std::string> files_of_lines(const std::string& file_and_layer);

}  // namespace tool
