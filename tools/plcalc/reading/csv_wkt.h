#pragma once

// Rows of a CSV file whose WKT cannot be read. GDAL passes them on without a geometry; one of them may be the
// parcel that the user means.

#include <ogrsf_frmts.h>

#include "console/failure.h"

namespace tool {

/// Whether the row has text where its geometry should be, and no geometry.
bool has_broken_wkt(const OGRFeature& row);

/// @param[in] row   one that has_broken_wkt()
/// @param[in] place file and feature
Failure broken_wkt(const OGRFeature& row, const Place& place);

}  // namespace tool
