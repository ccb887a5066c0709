#pragma once

// Heights that are missing in GML. GDAL makes zero of one that is missing beside others.

#include <optional>
#include <string>

namespace tool {

/// The line of a GML file on which a geometry begins in which some positions have heights and others have none; nothing where
/// there is no such geometry.
std::optional<long> line_of_mixed_heights(const std::string& file);

}  // namespace tool
