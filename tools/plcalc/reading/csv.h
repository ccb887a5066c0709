#pragma once

// CSV tables with a geometry in each row: WKT that cannot be read.

#include <optional>
#include <string>

#include <ogrsf_frmts.h>

#include "console/outcome.h"

namespace tool {

/// The text where the row should have its geometry; empty where there is none.
std::string wkt_of(const OGRFeature& row);

/// Reads WKT with "SRID=...;" before it, which GDAL passes on unread.
///
/// @return the SRID; nothing for any other row, and for a 0, which stands for none
std::optional<int> read_ewkt(OGRFeature& row);

/// Whether the row has text where its geometry should be, and no geometry. GDAL passes on rows whose WKT it cannot
/// read; one of them may be the parcel that the user means.
bool has_broken_wkt(const OGRFeature& row);

/// @param[in] row   one that has_broken_wkt()
/// @param[in] place file and feature
Failure broken_wkt(const OGRFeature& row, const Place& place);

}  // namespace tool
