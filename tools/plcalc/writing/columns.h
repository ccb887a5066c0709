#pragma once

// Columns of layers that are written.

#include <string>
#include <utility>
#include <vector>

#include <ogrsf_frmts.h>

#include "writing/output_format.h"

namespace tool {

/// The wanted name, followed by a number if a column of the layer has that name already or a format keeps it
/// for itself.
std::string free_name(OGRLayer& layer, const std::string& wanted);

/// Makes a column; a text column if the format does not have its type.
///
/// @return its place; -1 where the format has no columns
int make_column(OGRLayer& layer, OGRFieldDefn& field, const OutputFormat& format);

/// The program's own columns.
///
/// @return their places. They are found by place because a format may change their names.
std::vector<int> make_columns(OGRLayer& layer, const OutputFormat& format,
                              const std::vector<std::pair<const char*, OGRFieldType>>& columns);

}  // namespace tool
