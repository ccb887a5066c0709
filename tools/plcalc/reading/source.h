#pragma once

// Where parcels are to be read from, as the command line says it.

#include <optional>
#include <string>

namespace tool {

/// What a column X holds; Y holds the other.
enum class XAxis { east, north };

/// What a closed line is that lies in another one on the same layer of a drawing.
enum class InnerLine {
    hole,    ///< of the other, and a parcel of its own
    overlap  ///< a parcel of its own, which lies over the other
};

struct Source {
    std::string file;                         ///< a path, or another name that GDAL opens
    std::optional<std::string> layer;         ///< only this layer
    std::optional<long long> feature;         ///< only the feature with this FID
    std::optional<std::string> where;         ///< only features that pass OGR's attribute filter
    std::optional<long long> part = {};       ///< only this polygon of a feature that has several, from 1
    std::optional<std::string> columns = {};  ///< names of a table's columns, separated by commas
    std::optional<XAxis> axes = {};           ///< of a table with columns X and Y
    std::optional<std::string> crs = {};      ///< of a file that states none
    bool any_scale = false;      ///< whether lengths in the plane may differ from those on the ground
    double ground_factor = 1.0;  ///< length in the plane of a length 1 on the ground
    std::optional<std::string> name_column = {};  ///< with the names of the parcels
    std::optional<std::string> name_layer = {};   ///< of a drawing, with texts that are their names
    std::optional<double> join =
        {};  ///< of a drawing: how far apart the ends of two lines may be to be joined
    std::optional<InnerLine> inner = {};  ///< of a drawing
    std::optional<double> arcs = {};      ///< how far a chord that takes the place of an arc may be from it
};

}  // namespace tool
