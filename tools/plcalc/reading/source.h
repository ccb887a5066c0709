#pragma once

// Where parcels are to be read from, as the command line says it.

#include <optional>
#include <string>

namespace tool {

struct Source {
    std::string file;                  ///< a path, or another name that GDAL opens
    std::optional<std::string> layer;  ///< only this layer
    std::optional<long long> feature;  ///< only the feature with this FID
    std::optional<std::string> where;  ///< only features that pass OGR's attribute filter
};

}  // namespace tool
