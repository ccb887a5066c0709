#pragma once

// How many numbers each position of a geometry has in its text. GDAL makes zero of a height that is missing beside others.

#include <string>
#include <vector>

#include <ogrsf_frmts.h>

namespace tool {

/// Of WKT, in its order.
std::vector<int> position_sizes_of_wkt(const std::string& wkt);

/// Of the member "coordinates" of a GeoJSON feature, in its order.
std::vector<int> position_sizes_of_json(const std::string& json);

/// Whether a GeoJSON file has a geometry in which some positions have heights and others have none.
bool mixes_heights(const std::string& file);

/// Makes NaN of the heights that are missing.
///
/// @param[in] sizes  of the geometry's positions
/// @return false where the sizes do not say which they are
bool mark_missing_heights(OGRGeometry& geometry, const std::vector<int>& sizes);

}  // namespace tool
