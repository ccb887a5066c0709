#pragma once

// How a vector file is opened, to read parcels and to read back what was written.

#include <string>
#include <vector>

#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include "files/gdal_messages.h"

namespace tool {

/// Opens a file for reading and leaves nothing beside it. Null if it cannot be opened; GDAL's messages say
/// why.
GDALDatasetUniquePtr open_vector_file(const std::string& file);

/// The same for a file that must be readable, LandXML too.
///
/// @param[in] shown     its name in messages, where it is opened by another
/// @param[in] messages  what GDAL has said since the call began
/// @throws Failure      unusable_input, with the reason why the file cannot be opened; as open_landxml()
GDALDatasetUniquePtr open_or_refuse(const std::string& file, const GdalMessages& messages,
                                    const std::string& shown);

/// Whether the features of an open file have their text as native data: in GeoJSON where heights are missing beside others.
bool keeps_texts(GDALDataset& dataset);

/// The files that an open dataset consists of, by name; GDAL's other names, "PG:..." or "/vsizip/...", too.
std::vector<std::string> files_of(GDALDataset& dataset);

/// Leaves the columns of a layer unread, which makes counting cheaper, until `read_columns`.
///
/// @param[in] geometry_too  whether the geometry is left unread, too
void leave_columns(OGRLayer& layer, bool geometry_too);

void read_columns(OGRLayer& layer);

/// The names of columns in which a CSV file may have its geometry, separated by commas.
constexpr const char* kWktColumns = "WKT,geom,geometry,wkt_geom,the_geom";

/// Whether a column of a CSV file holds its geometry.
bool is_wkt_column(const std::string& name);

}  // namespace tool
