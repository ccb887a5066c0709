#pragma once

// CSV tables: a parcel whose vertices are the rows, and parcels as WKT that cannot be read.

#include <optional>
#include <vector>

#include <ogrsf_frmts.h>

#include "console/outcome.h"
#include "plcalc/kernel.h"

namespace tool {

/// The columns of East and North in a table.
struct PointColumns {
    int east = -1;   ///< field index
    int north = -1;  ///< field index
};

/// Finds the columns with coordinates: the first of the pairs E and N, East and North, Easting and Northing,
/// Est and Nord, X and Y that the table has, in capitals or not.
std::optional<PointColumns> find_point_columns(const OGRFeatureDefn& table);

/// The rows as points, in the file's order.
///
/// @param[in] file  the file, for messages
/// @throws Failure  unusable_input for a row without a number in both columns, and for a table that seems to hold
///                  several parcels: one in which another column changes, and has a value more than once. Columns
///                  of heights, codes and descriptions may do so. A comma before the decimals is
///                  refused rather than guessed at: 1,250 is one thing here and another there.
std::vector<PL_PNT2D_record> read_points(OGRLayer& table, const PointColumns& columns, const Place& file);

/// Whether the row has text where its geometry should be, and no geometry. GDAL passes on rows whose WKT it cannot
/// read; one of them may be the parcel that the user means.
bool has_broken_wkt(const OGRFeature& row);

/// @param[in] row   one that has_broken_wkt()
/// @param[in] place file and feature
Failure broken_wkt(const OGRFeature& row, const Place& place);

}  // namespace tool
