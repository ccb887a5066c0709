#pragma once

// Reads one parcel from any vector file that GDAL opens.

#include <optional>
#include <string>
#include <vector>

#include "plcalc/kernel.h"

namespace tool {

/// Where to look.
struct Source {
    std::string file;                  ///< a path, or another name that GDAL opens
    std::optional<std::string> layer;  ///< only this layer
    std::optional<long long> feature;  ///< only the feature with this FID
};

/// A parcel as it stands in the file.
struct Parcel {
    std::string where;                  ///< the file and the feature, as messages name them
    std::vector<PL_PNT2D_record> ring;  ///< in the file's order, the closing vertex left out
};

/// Finds the one parcel that the source tells and checks that it can be worked on: a polygon without holes, or
/// a closed line, or the points of a CSV file with a column for East and one for North; plane coordinates, a
/// ring that does not meet itself.
///
/// @param[in] source  where to look
/// @return the parcel
/// @throws Failure    wrong_use when there is a choice that the source does not make, or it makes one that is
///                    not there; unusable_input for everything else
Parcel read_parcel(const Source& source);

}  // namespace tool
