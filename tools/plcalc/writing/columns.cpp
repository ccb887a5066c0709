#include "writing/columns.h"

#include <algorithm>
#include <iterator>

#include <cpl_string.h>

namespace tool {
namespace {

// Column names that formats keep for themselves.
const char* const kReserved[] = {"fid", "ogc_fid", "geom", "geometry", "wkt"};

}  // namespace

std::string free_name(OGRLayer& layer, const std::string& wanted)
{
    const auto is_taken = [&](const std::string& name) {
        return layer.GetLayerDefn()->GetFieldIndex(name.c_str()) >= 0 ||
               std::any_of(std::begin(kReserved), std::end(kReserved),
                           [&](const char* reserved) { return EQUAL(reserved, name.c_str()); });
    };
    std::string name = wanted;
    for (int i = 1; is_taken(name); ++i)
        name = wanted + "_" + std::to_string(i);
    return name;
}

int make_column(OGRLayer& layer, OGRFieldDefn& field, const OutputFormat& format)
{
    const int place = layer.GetLayerDefn()->GetFieldCount();
    for (const OGRFieldType type : {format.type_for(field.GetType()), OFTString}) {
        field.SetType(type);
        if (layer.CreateField(&field) == OGRERR_NONE && layer.GetLayerDefn()->GetFieldCount() > place)
            return place;
    }
    return -1;
}

std::vector<int> make_columns(OGRLayer& layer, const OutputFormat& format,
                              const std::vector<std::pair<const char*, OGRFieldType>>& columns)
{
    std::vector<int> places;
    for (const auto& [name, type] : columns) {
        OGRFieldDefn field(free_name(layer, name).c_str(), type);
        places.push_back(make_column(layer, field, format));
    }
    return places;
}

}  // namespace tool
