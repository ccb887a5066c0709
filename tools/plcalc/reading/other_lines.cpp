#include "reading/other_lines.h"

#include <filesystem>
#include <system_error>

#include <ogrsf_frmts.h>

#include "console/outcome.h"
#include "files/gdal_messages.h"
#include "files/vector_file.h"
#include "reading/crs.h"

namespace tool {
namespace {

struct Named {
    std::string file;
    std::string layer;  // empty for the only one
};

// The part behind the last colon is a layer where there is no file of the whole name.
Named named(const std::string& text)
{
    std::error_code ignored;
    const std::size_t colon = text.rfind(':');
    if (colon == std::string::npos || std::filesystem::exists(text, ignored))
        return {text, ""};
    return {text.substr(0, colon), text.substr(colon + 1)};
}

void add_line(const OGRSimpleCurve& line, std::vector<plparcel::Segment>& segments)
{
    for (int i = 0; i + 1 < line.getNumPoints(); ++i)
        segments.push_back({{line.getX(i), line.getY(i)}, {line.getX(i + 1), line.getY(i + 1)}});
}

void add(const OGRGeometry& geometry, std::vector<plparcel::Segment>& segments)
{
    const OGRwkbGeometryType type = wkbFlatten(geometry.getGeometryType());
    if (type == wkbLineString || type == wkbLinearRing) {
        add_line(*geometry.toLineString(), segments);
    } else if (OGR_GT_IsSubClassOf(type, wkbPolygon)) {
        for (const OGRLinearRing* ring : *geometry.toPolygon())
            add_line(*ring, segments);
    } else if (OGR_GT_IsSubClassOf(type, wkbGeometryCollection)) {
        for (const OGRGeometry* part : *geometry.toGeometryCollection())
            add(*part, segments);
    }
}

std::vector<plparcel::Segment> lines_of(OGRLayer& layer)
{
    std::vector<plparcel::Segment> segments;
    for (const OGRFeatureUniquePtr& feature : layer) {
        const OGRGeometry* geometry = feature->GetGeometryRef();
        if (geometry == nullptr)
            continue;
        const std::unique_ptr<OGRGeometry> straight(geometry->getLinearGeometry());
        if (straight != nullptr)
            add(*straight, segments);
    }
    return segments;
}

void require_same(const OGRSpatialReference* crs, OGRLayer& layer, const Place& place)
{
    const OGRSpatialReference* others = layer.GetSpatialRef();
    if (crs == nullptr || others == nullptr)
        return;
    const char* const options[] = {"IGNORE_DATA_AXIS_TO_SRS_AXIS_MAPPING=YES", nullptr};
    if (crs->IsSame(others, options) == 0)
        throw Failure(ExitStatus::unusable_input, place,
                      "its CRS " + crs_name(others) + " is not that of the parcels, " + crs_name(crs),
                      "bring it to theirs, for example with ogr2ogr -t_srs");
}

}  // namespace

std::shared_ptr<const plparcel::OtherGeometry> other_lines(const std::string& file_and_layer,
                                                           const OGRSpatialReference* crs)
{
    const Named name = named(file_and_layer);
    const Place place = {name.file, name.layer.empty() ? "" : "layer " + name.layer};
    GdalMessages messages;
    const GDALDatasetUniquePtr dataset = open_or_refuse(name.file, messages, name.file);
    std::vector<plparcel::Segment> segments;
    for (OGRLayer* layer : dataset->GetLayers()) {
        if (!name.layer.empty() && name.layer != layer->GetName())
            continue;
        std::vector<plparcel::Segment> lines = lines_of(*layer);
        if (lines.empty())
            continue;
        require_same(crs, *layer, place);
        if (!segments.empty())
            throw Failure(ExitStatus::wrong_use, place, "several layers have lines",
                          "name one, as in " + name.file + ":LAYER");
        segments = std::move(lines);
    }
    if (segments.empty())
        throw Failure(name.layer.empty() ? ExitStatus::unusable_input : ExitStatus::wrong_use, place,
                      "there are no lines or boundaries", "name a file and layer with some");
    return std::make_shared<const plparcel::OtherGeometry>(segments);
}

std::vector<std::string> files_of_lines(const std::string& file_and_layer)
{
    const Named name = named(file_and_layer);
    GdalMessages messages;
    return files_of(*open_or_refuse(name.file, messages, name.file));
}

}  // namespace tool
