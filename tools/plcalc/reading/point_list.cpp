#include "reading/point_list.h"

#include <utility>

#include <gdal_priv.h>

#include "files/gdal_messages.h"
#include "files/text_source.h"
#include "files/vector_file.h"
#include "reading/crs.h"
#include "reading/point_table.h"

namespace tool {

std::vector<NamedPoint> read_point_list(const std::string& file, const std::optional<XAxis>& axes,
                                        const OGRSpatialReference* crs, std::vector<std::string>& assumed)
{
    const Place place = {file, ""};
    GdalMessages messages;
    const TextSource opened(file, std::nullopt);
    const GDALDatasetUniquePtr dataset = open_or_refuse(opened.name(), messages, file);
    OGRLayer* const layer = dataset->GetLayerCount() == 1 ? dataset->GetLayer(0) : nullptr;
    std::optional<PointColumns> columns;
    if (layer != nullptr && layer->GetGeomType() == wkbNone)
        columns = find_point_columns(*layer->GetLayerDefn());
    if (!columns)
        throw Failure(ExitStatus::unusable_input, place, "it is no list of points",
                      "give it the columns name, E and N");
    const std::optional<XAxis> x = axes ? axes : crs != nullptr ? x_axis_of(*crs) : std::nullopt;
    if (columns->x_and_y && !x)
        throw Failure(ExitStatus::wrong_use, place, "columns X and Y do not say which of them is East",
                      "call them E and N");
    if (columns->x_and_y && *x == XAxis::north)
        std::swap(columns->east, columns->north);
    if (columns->x_and_y)
        assumed.push_back("in " + file + " " +
                          (*x == XAxis::east ? "X is East and Y North" : "X is North and Y East"));
    ListedPoints listed = listed_points(*layer, *columns, opened.separator(), place);
    if (listed.decimal_commas)
        assumed.push_back("in " + file + " commas stand before the decimals");
    return std::move(listed.points);
}

}  // namespace tool
