#include "reading/layer_choice.h"

#include <map>

#include <cpl_string.h>

#include "console/outcome.h"
#include "files/positions.h"
#include "files/vector_file.h"
#include "reading/boundary.h"
#include "reading/csv.h"

namespace tool {
namespace {

// What a layer holds.
struct Count {
    LayerChoice choice;
    std::string other_kind;        // geometry of the first feature that bounds no area
    std::string without_geometry;  // name of the first feature without any, though it could have one
    std::map<std::string, std::size_t>
        on_other_layers;  // of a drawing: what would be parcels, but for --layer
};

// The layer of a drawing on which a feature lies; the layer of any other file.
std::string layer_of(const OGRFeature& feature, OGRLayer& layer, GDALDataset& dataset)
{
    return is_format(dataset, "DXF") ? feature.GetFieldAsString("Layer") : layer.GetName();
}

// GDAL makes what a drawing does not show fully transparent, in "PEN(c:#00000000)".
bool is_shown(const OGRFeature& feature)
{
    const std::string style = feature.GetStyleString() != nullptr ? feature.GetStyleString() : "";
    const std::size_t color = style.find("c:#");
    constexpr std::size_t kAlpha = 9;  // behind "c:#rrggbb"
    return color == std::string::npos || style.compare(color + kAlpha, 2, "00") != 0;
}

void add_parts(NameList& parcels, const std::string& feature, const OGRGeometry* geometry,
               const Source& source)
{
    const int parts = geometry != nullptr ? parts_of(*geometry) : 1;
    for (int part = 1; part <= parts; ++part)
        if (!source.part || *source.part == part)
            parcels.add([&] { return part_name(feature, part, parts); });
}

void note_srid(const std::optional<int>& srid, LayerChoice& choice, const Place& place)
{
    if (srid && choice.srid && *srid != *choice.srid)
        throw Failure(ExitStatus::unusable_input, place,
                      "it has SRID " + std::to_string(*srid) + ", and one before it " +
                          std::to_string(*choice.srid),
                      "project all to the same CRS");
    if (srid)
        choice.srid = srid;
}

Count count_in(OGRLayer& layer, GDALDataset& dataset, const Source& source, const GdalMessages& messages)
{
    Count count;
    count.choice.layer = &layer;
    // A drawing tells in columns where a feature lies, a table where its geometry is, and a filter may ask for any.
    const bool only_geometry = !source.where && !is_format(dataset, "DXF") && !is_format(dataset, "CSV");
    if (only_geometry)
        leave_columns(layer, false);
    for (const OGRFeatureUniquePtr& feature : layer) {
        if (is_format(dataset, "CSV"))
            note_srid(read_ewkt(*feature), count.choice,
                      {source.file, feature_name(*feature, layer, dataset)});
        read_missing_heights(*feature, layer, dataset, source);
        const OGRGeometry* geometry = feature->GetGeometryRef();
        if (is_parcel(*feature, dataset, source)) {
            add_parts(count.choice.parcels, feature_name(*feature, layer, dataset), geometry, source);
            if (geometry != nullptr && !geometry->IsEmpty())
                count.choice.heights.add(heights_of(*geometry));
            ++count.choice.by_layer[layer_of(*feature, layer, dataset)];
            continue;
        }
        if (geometry != nullptr && bounds_area(*geometry) && is_hidden(*feature, dataset)) {
            ++count.choice.hidden;
            continue;
        }
        ++count.choice.others;
        if (geometry != nullptr && bounds_area(*geometry))
            ++count.on_other_layers[layer_of(*feature, layer, dataset)];
        if (geometry != nullptr && count.other_kind.empty())
            count.other_kind = geometry->getGeometryName();
        if (geometry == nullptr && layer.GetGeomType() != wkbNone && count.without_geometry.empty())
            count.without_geometry = feature_name(*feature, layer, dataset);
    }
    if (only_geometry)
        read_columns(layer);
    if (messages.failed())
        throw Failure(ExitStatus::unusable_input, {source.file, ""},
                      "the file cannot be read to its end" + messages.remark(), "repair it");
    return count;
}

// Layers without parcels, taken together.
void add_to(Count& none, const Count& count)
{
    none.choice.others += count.choice.others;
    none.choice.hidden += count.choice.hidden;
    none.on_other_layers.insert(count.on_other_layers.begin(), count.on_other_layers.end());
    if (none.other_kind.empty())
        none.other_kind = count.other_kind;
    if (none.without_geometry.empty())
        none.without_geometry = count.without_geometry;
}

// "lots: 3, roads: 1".
std::string counted(const std::map<std::string, std::size_t>& layers)
{
    std::string list;
    for (const auto& [name, parcels] : layers)
        list += (list.empty() ? "" : ", ") + name + ": " + std::to_string(parcels);
    return list;
}

[[noreturn]] void refuse_nothing_found(const Count& none, GDALDataset& dataset, const Source& source,
                                       const std::string& opening_remark)
{
    const Place file = {source.file, ""};
    const char* const draw = "draw the parcel as a polygon";
    if (!source.feature && !none.on_other_layers.empty())
        throw Failure(ExitStatus::wrong_use, file,
                      "there is no parcel on the layer '" + source.layer.value_or("") + "'",
                      "choose one of: " + counted(none.on_other_layers));
    if (source.feature || source.part || (source.where && none.choice.others + none.choice.hidden == 0))
        refuse_choice_of_feature(source, "list them with ogrinfo -al");
    if (none.choice.hidden > 0)
        throw Failure(
            ExitStatus::unusable_input, file,
            "all that could be parcels is in paper space, or on layers that are switched off or frozen "
            "(features: " +
                std::to_string(none.choice.hidden) + ")",
            "draw the parcel in model space, on a layer that is shown");
    if (none.choice.others == 0)
        throw Failure(ExitStatus::unusable_input, file, "the file holds no feature" + opening_remark, draw);
    if (none.other_kind.empty() && !none.without_geometry.empty())
        throw without_geometry({source.file, none.without_geometry});
    const std::string first = none.other_kind.empty() ? "" : ", the first a " + none.other_kind;
    throw Failure(ExitStatus::unusable_input, file,
                  "the file holds no polygon and no closed line (features: " +
                      std::to_string(none.choice.others) + first + ")",
                  is_format(dataset, "CSV")
                      ? "a table needs a header with a column WKT, or with E and N for a vertex in each row; "
                        "without a header, name the columns, as in --columns P,N,E,Z,D"
                      : draw);
}

}  // namespace

void refuse_choice_of_feature(const Source& source, const std::string& advice)
{
    const Place file = {source.file, ""};
    if (source.part)
        throw Failure(ExitStatus::wrong_use, file, "there is no part " + std::to_string(*source.part),
                      advice);
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

std::string part_name(const std::string& feature, int part, int parts)
{
    return parts > 1 ? feature + " part " + std::to_string(part) : feature;
}

std::string feature_name(const OGRFeature& feature, OGRLayer& layer, GDALDataset& dataset)
{
    const std::string number = "feature " + std::to_string(feature.GetFID());
    return dataset.GetLayerCount() > 1 ? "layer " + std::string(layer.GetName()) + ": " + number : number;
}

bool is_hidden(const OGRFeature& feature, GDALDataset& dataset)
{
    return is_format(dataset, "DXF") && (feature.GetFieldAsInteger("PaperSpace") != 0 || !is_shown(feature));
}

bool is_parcel(const OGRFeature& feature, GDALDataset& dataset, const Source& source)
{
    if (source.feature)
        return feature.GetFID() == *source.feature;
    if (is_hidden(feature, dataset))
        return false;
    if (is_format(dataset, "DXF") && source.layer && *source.layer != feature.GetFieldAsString("Layer"))
        return false;
    const OGRGeometry* geometry = feature.GetGeometryRef();
    return geometry != nullptr ? bounds_area(*geometry)
                               : is_format(dataset, "CSV") && has_broken_wkt(feature);
}

void read_missing_heights(OGRFeature& feature, OGRLayer& layer, GDALDataset& dataset, const Source& source)
{
    OGRGeometry* const geometry = feature.GetGeometryRef();
    if (geometry == nullptr || !geometry->Is3D())
        return;
    std::vector<int> sizes;
    if (is_format(dataset, "CSV"))
        sizes = position_sizes_of_wkt(wkt_of(feature));
    const bool are_some_missing = keeps_texts(dataset);
    const char* const text = are_some_missing ? feature.GetNativeData() : nullptr;
    if (text != nullptr)
        sizes = position_sizes_of_json(text);
    // A file that is a geometry alone has no text for its feature.
    if ((are_some_missing && text == nullptr) || !mark_missing_heights(*geometry, sizes))
        throw Failure(ExitStatus::unusable_input, {source.file, feature_name(feature, layer, dataset)},
                      "some positions have heights and others have none, and which they are cannot be told",
                      "give each of them a height, or none");
}

std::vector<OGRLayer*> named_layers(GDALDataset& dataset, const Source& source)
{
    std::vector<OGRLayer*> layers;
    std::string names;
    for (OGRLayer* layer : dataset.GetLayers()) {
        if (!source.layer || *source.layer == layer->GetName() || is_format(dataset, "DXF"))
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

void refuse_several_layers(const Source& source, const std::map<std::string, std::size_t>& parcels)
{
    throw Failure(ExitStatus::wrong_use, {source.file, ""},
                  "several layers hold parcels (" + counted(parcels) + ")", "choose one with --layer NAME");
}

LayerChoice choose_layer(GDALDataset& dataset, const Source& source, GdalMessages& messages, bool may_be_none)
{
    const std::string opening_remark = messages.remark();
    messages.clear();
    const std::vector<OGRLayer*> layers = named_layers(dataset, source);
    for (OGRLayer* layer : layers)
        set_filter(*layer, source, messages);
    LayerChoice choice;
    Count none;
    std::map<std::string, std::size_t> with_parcels;
    for (OGRLayer* layer : layers) {
        const Count count = count_in(*layer, dataset, source, messages);
        if (count.choice.parcels.count() == 0) {
            add_to(none, count);
            continue;
        }
        with_parcels.insert(count.choice.by_layer.begin(), count.choice.by_layer.end());
        choice = count.choice;
    }
    if (with_parcels.size() > 1)
        refuse_several_layers(source, with_parcels);
    if (with_parcels.empty() && may_be_none && !layers.empty()) {
        choice = none.choice;
        choice.layer = layers.back();
    } else if (with_parcels.empty()) {
        refuse_nothing_found(none, dataset, source, opening_remark);
    }
    choice.layer->ResetReading();
    return choice;
}

}  // namespace tool
