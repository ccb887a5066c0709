#pragma once

// How a vector file is opened, to read parcels and to read back what was written.

#include <string>

#include <gdal_priv.h>

#include "files/gdal_messages.h"

namespace tool {

/// Opens a file for reading; null, and GDAL has told why, when it cannot be. Leaves nothing beside it.
GDALDatasetUniquePtr open_vector_file(const std::string& file);

/// The same for a file that has to be readable.
///
/// @param[in] messages  what GDAL has said since the call began
/// @throws Failure      unusable_input, with the reason why the file cannot be opened
GDALDatasetUniquePtr open_or_refuse(const std::string& file, const GdalMessages& messages);

/// Names of columns where a CSV file has its geometry, separated by commas.
constexpr const char* kWktColumns = "WKT,geom,geometry,wkt_geom,the_geom";

/// Whether a field of a CSV file is its geometry, which comes as such.
bool is_wkt_column(const std::string& name);

}  // namespace tool
