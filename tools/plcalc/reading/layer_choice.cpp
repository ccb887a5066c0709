#include "reading/layer_choice.h"

#include <cpl_string.h>

#include "console/outcome.h"
#include "reading/boundary.h"
#include "reading/csv.h"

namespace tool {
namespace {

// What a layer holds.
struct Count {
    LayerChoice choice;
    std::string other_kind;        // geometry of the first feature that bounds no area
    std::string without_geometry;  // name of the first feature without any, though it could have one
};

Count count_in(OGRLayer& layer, GDALDataset& dataset, const Source& source, const GdalMessages& messages)
{
    Count count;
    count.choice.layer = &layer;
    for (const OGRFeatureUniquePtr& feature : layer) {
        if (is_parcel(*feature, dataset, source)) {
            count.choice.parcels.add([&] { return feature_name(*feature, layer, dataset); });
            continue;
        }
        ++count.choice.others;
        const OGRGeometry* geometry = feature->GetGeometryRef();
        if (geometry != nullptr && count.other_kind.empty())
            count.other_kind = geometry->getGeometryName();
        if (geometry == nullptr && layer.GetGeomType() != wkbNone && count.without_geometry.empty())
            count.without_geometry = feature_name(*feature, layer, dataset);
    }
    if (messages.failed())
        throw Failure(ExitStatus::unusable_input, {source.file, ""},
                      "the file cannot be read to its end" + messages.remark(), "repair it");
    return count;
}

// Layers without parcels, taken together.
void add_to(Count& none, const Count& count)
{
    none.choice.others += count.choice.others;
    if (none.other_kind.empty())
        none.other_kind = count.other_kind;
    if (none.without_geometry.empty())
        none.without_geometry = count.without_geometry;
}

[[noreturn]] void refuse_nothing_found(const Count& none, GDALDataset& dataset, const Source& source,
                                       const std::string& opening_remark)
{
    const Place file = {source.file, ""};
    const char* const draw = "draw the parcel as a polygon";
    if (source.feature || (source.where && none.choice.others == 0))
        refuse_choice_of_feature(source, "list them with ogrinfo -al");
    if (none.choice.others == 0)
        throw Failure(ExitStatus::unusable_input, file, "the file holds no feature" + opening_remark, draw);
    if (none.other_kind.empty() && !none.without_geometry.empty())
        throw without_geometry({source.file, none.without_geometry});
    const std::string first = none.other_kind.empty() ? "" : ", the first a " + none.other_kind;
    throw Failure(ExitStatus::unusable_input, file,
                  "the file holds no polygon and no closed line (features: " +
                      std::to_string(none.choice.others) + first + ")",
                  is_format(dataset, "CSV")
                      ? "a CSV file needs a header and a column WKT, or a vertex per row in columns E and N"
                      : draw);
}

}  // namespace

void refuse_choice_of_feature(const Source& source, const std::string& advice)
{
    const Place file = {source.file, ""};
    if (source.feature)
        throw Failure(ExitStatus::wrong_use, file,
                      "there is no feature " + std::to_string(*source.feature) +
                          (source.where ? " that passes --where" : ""),
                      advice);
    throw Failure(ExitStatus::wrong_use, file, "--where '" + *source.where + "' matches no feature", advice);
}

bool is_format(GDALDataset& dataset, const char* name)
{
    return dataset.GetDriver() != nullptr && EQUAL(dataset.GetDriverName(), name);
}

std::string feature_name(const OGRFeature& feature, OGRLayer& layer, GDALDataset& dataset)
{
    const std::string number = "feature " + std::to_string(feature.GetFID());
    return dataset.GetLayerCount() > 1 ? "layer " + std::string(layer.GetName()) + ": " + number : number;
}

bool is_parcel(const OGRFeature& feature, GDALDataset& dataset, const Source& source)
{
    if (source.feature)
        return feature.GetFID() == *source.feature;
    const OGRGeometry* geometry = feature.GetGeometryRef();
    return geometry != nullptr ? bounds_area(*geometry)
                               : is_format(dataset, "CSV") && has_broken_wkt(feature);
}

std::vector<OGRLayer*> named_layers(GDALDataset& dataset, const Source& source)
{
    std::vector<OGRLayer*> layers;
    std::string names;
    for (OGRLayer* layer : dataset.GetLayers()) {
        if (!source.layer || *source.layer == layer->GetName())
            layers.push_back(layer);
        names += (names.empty() ? "" : ", ") + std::string(layer->GetName());
    }
    if (layers.empty() && source.layer)
        throw Failure(ExitStatus::wrong_use, {source.file, ""}, "there is no layer '" + *source.layer + "'",
                      names.empty() ? "the file has none" : "choose one of: " + names);
    return layers;
}

// A database understands a filter, or does not, when the first feature is asked for.
void set_filter(OGRLayer& layer, const Source& source, GdalMessages& messages)
{
    if (!source.where)
        return;
    messages.clear();
    const bool set = layer.SetAttributeFilter(source.where->c_str()) == OGRERR_NONE;
    if (set)
        OGRFeatureUniquePtr(layer.GetNextFeature());
    layer.ResetReading();
    if (!set || messages.failed())
        throw Failure(ExitStatus::wrong_use, {source.file, ""},
                      "--where '" + *source.where + "' is not a filter that GDAL understands" +
                          messages.remark(),
                      "compare columns as in \"owner = 'Rossi'\"");
}

LayerChoice choose_layer(GDALDataset& dataset, const Source& source, GdalMessages& messages)
{
    const std::string opening_remark = messages.remark();
    messages.clear();
    const std::vector<OGRLayer*> layers = named_layers(dataset, source);
    for (OGRLayer* layer : layers)
        set_filter(*layer, source, messages);
    LayerChoice choice;
    Count none;
    std::string list;
    std::size_t with_parcels = 0;
    for (OGRLayer* layer : layers) {
        const Count count = count_in(*layer, dataset, source, messages);
        if (count.choice.parcels.count() == 0) {
            add_to(none, count);
            continue;
        }
        ++with_parcels;
        list += (list.empty() ? "" : ", ") + std::string(layer->GetName()) + ": " +
                std::to_string(count.choice.parcels.count());
        choice = count.choice;
    }
    if (with_parcels == 0)
        refuse_nothing_found(none, dataset, source, opening_remark);
    if (with_parcels > 1)
        throw Failure(ExitStatus::wrong_use, {source.file, ""}, "several layers hold parcels (" + list + ")",
                      "choose one with --layer NAME");
    choice.layer->ResetReading();
    return choice;
}

}  // namespace tool
