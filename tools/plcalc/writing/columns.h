#pragma once

// Columns of layers that are written.

#include <string>
#include <utility>
#include <vector>

#include <ogrsf_frmts.h>

#include "writing/output_format.h"

namespace tool {

/// A name that no column of the layer has yet and that no format keeps for itself: the wanted one, or with a number
/// behind it.
std::string free_name(OGRLayer& layer, const std::string& wanted);

/// Makes a column, as text where the format has none of its type.
///
/// @return its place; -1 where the format has no columns
int make_column(OGRLayer& layer, OGRFieldDefn& field, const OutputFormat& format);

/// The program's own columns.
///
/// @return their places, by which they are found again: a format may change their names
std::vector<int> make_columns(OGRLayer& layer, const OutputFormat& format,
                              const std::vector<std::pair<const char*, OGRFieldType>>& columns);

}  // namespace tool
