#include "parcel_reader.h"

#include <filesystem>
#include <fstream>
#include <memory>
#include <system_error>

#include <cpl_conv.h>
#include <cpl_string.h>
#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include "csv_points.h"
#include "exit_status.h"
#include "gdal_messages.h"
#include "ring_check.h"

namespace tool {
namespace {

// A choice longer than this is not read, it is looked up.
constexpr std::size_t kMaxListed = 5;

// Where a CSV file has its geometry.
constexpr const char* kWktColumns = "WKT,geom,geometry,wkt_geom,the_geom";

// A text longer than this is quoted by its beginning.
constexpr std::size_t kMaxQuoted = 40;

constexpr const char* kNoGeometry =
    "it has no geometry; draw the parcel or choose another feature with --feature";

// What the first look through the file found.
struct Found {
    OGRFeatureUniquePtr feature;     // the first that fits
    OGRLayer* layer = nullptr;       // where it was
    std::vector<std::string> names;  // of the first few that fit
    std::size_t count = 0;           // how many fit
    std::size_t looked_at = 0;       // features, fitting or not
    std::string other_kind;          // geometry of the first that does not fit
    std::string without_geometry;    // name of the first without any, though it could have one
};

[[noreturn]] void refuse(const std::string& where, const std::string& what)
{
    throw Failure(ExitStatus::unusable_input, where + ": " + what);
}

// ------------------------------------------------------------------------------------------------- opening

std::string why_not_opened(const std::string& file, const GdalMessages& messages)
{
    std::error_code ignored;
    const std::filesystem::file_status status = std::filesystem::status(file, ignored);
    if (!std::filesystem::exists(status))
        return "there is no such file" + messages.remark() + "; check the name";
    if (std::filesystem::is_directory(status))
        return "this is a directory in which GDAL finds no vector file; name the file itself";
    if (!std::ifstream(file).good())
        return "the file may not be read; check its permissions";
    if (std::filesystem::is_regular_file(status) && std::filesystem::file_size(file, ignored) == 0)
        return "the file is empty; write the parcel to it again";
    if (EQUAL(CPLGetExtension(file.c_str()), "csv"))
        return "not a table that GDAL can read; a CSV file needs a header and at least two columns";
    return "not a vector file that GDAL can read" + messages.remark() +
           "; convert it, for example to GeoPackage";
}

// By the driver that will open it; the others would warn of options that they do not know.
CPLStringList open_options(const std::string& file)
{
    CPLStringList options;
    const GDALDriverH driver = GDALIdentifyDriverEx(file.c_str(), GDAL_OF_VECTOR, nullptr, nullptr);
    const std::string format = driver != nullptr ? GDALGetDriverShortName(driver) : "";
    if (format == "CSV")
        options.SetNameValue("GEOM_POSSIBLE_NAMES", kWktColumns);
    if (format == "GML")
        options.SetNameValue("WRITE_GFS", "NO");  // a reader leaves nothing behind
    return options;
}

GDALDatasetUniquePtr open_dataset(const std::string& file, GdalMessages& messages)
{
    const unsigned flags = GDAL_OF_VECTOR | GDAL_OF_READONLY | GDAL_OF_VERBOSE_ERROR;
    const CPLStringList options = open_options(file);
    messages.clear();
    GDALDatasetUniquePtr dataset(GDALDataset::Open(file.c_str(), flags, nullptr, options.List(), nullptr));
    if (dataset == nullptr)
        refuse(file, why_not_opened(file, messages));
    return dataset;
}

bool is_format(GDALDataset& dataset, const char* name)
{
    return dataset.GetDriver() != nullptr && EQUAL(dataset.GetDriverName(), name);
}

// ----------------------------------------------------------------------------------------------- searching

std::vector<OGRLayer*> chosen_layers(GDALDataset& dataset, const Source& source)
{
    std::vector<OGRLayer*> layers;
    std::string names;
    for (OGRLayer* layer : dataset.GetLayers()) {
        if (!source.layer || *source.layer == layer->GetName())
            layers.push_back(layer);
        names += (names.empty() ? "" : ", ") + std::string(layer->GetName());
    }
    if (layers.empty() && source.layer)
        throw Failure(ExitStatus::wrong_use, source.file + ": there is no layer '" + *source.layer +
                                                 "'; it has " + (names.empty() ? "none" : names));
    return layers;
}

// The layer is named only where there are several.
std::string name_of(const OGRFeature& feature, OGRLayer& layer, GDALDataset& dataset)
{
    const std::string number = "feature " + std::to_string(feature.GetFID());
    return dataset.GetLayerCount() > 1 ? "layer " + std::string(layer.GetName()) + ": " + number : number;
}

bool fits(const OGRFeature& feature, const Source& source)
{
    if (source.feature)
        return feature.GetFID() == *source.feature;
    return feature.GetGeometryRef() != nullptr && bounds_area(*feature.GetGeometryRef());
}

// The geometry of a CSV row as it stands there; empty in other formats.
std::string wkt_of(const OGRFeature& feature)
{
    const CPLStringList columns(CSLTokenizeString2(kWktColumns, ",", 0));
    for (int i = 0; i < columns.Count(); ++i) {
        const int field = feature.GetFieldIndex(columns[i]);
        if (field >= 0)
            return feature.GetFieldAsString(field);
    }
    return "";
}

std::string quoted(const std::string& text)
{
    return "'" + (text.size() > kMaxQuoted ? text.substr(0, kMaxQuoted) + "..." : text) + "'";
}

// A row whose WKT is broken comes without a geometry. It may be the parcel that is meant.
void require_readable_wkt(const OGRFeature& feature, const std::string& where)
{
    const std::string wkt = wkt_of(feature);
    if (feature.GetGeometryRef() != nullptr || wkt.empty())
        return;
    const bool nan = CPLString(wkt).ifind("nan") != std::string::npos;
    refuse(where, "its WKT " + quoted(wkt) + " cannot be read" +
                      (nan ? ", a coordinate in it is not a number" : "") + "; correct it");
}

void note_other(Found& found, const OGRFeature& feature, OGRLayer& layer, const std::string& name)
{
    const OGRGeometry* geometry = feature.GetGeometryRef();
    if (geometry != nullptr && found.other_kind.empty())
        found.other_kind = geometry->getGeometryName();
    if (geometry == nullptr && layer.GetGeomType() != wkbNone && found.without_geometry.empty())
        found.without_geometry = name;
}

Found search(GDALDataset& dataset, const std::vector<OGRLayer*>& layers, const Source& source)
{
    Found found;
    for (OGRLayer* layer : layers) {
        for (OGRFeatureUniquePtr& feature : *layer) {
            ++found.looked_at;
            const std::string name = name_of(*feature, *layer, dataset);
            if (!source.feature || fits(*feature, source))
                require_readable_wkt(*feature, source.file + ": " + name);
            if (!fits(*feature, source)) {
                note_other(found, *feature, *layer, name);
                continue;
            }
            ++found.count;
            if (found.names.size() < kMaxListed)
                found.names.push_back(name);
            if (found.feature == nullptr) {
                found.layer = layer;
                found.feature = std::move(feature);
            }
        }
    }
    return found;
}

[[noreturn]] void refuse_nothing_found(const Found& found, GDALDataset& dataset, const Source& source)
{
    if (source.feature)
        throw Failure(ExitStatus::wrong_use, source.file + ": there is no feature " +
                                                 std::to_string(*source.feature) +
                                                 "; list them with ogrinfo -al");
    if (found.looked_at == 0)
        refuse(source.file, "there is no feature in it; draw the parcel as a polygon");
    if (found.other_kind.empty() && !found.without_geometry.empty())
        refuse(source.file + ": " + found.without_geometry, kNoGeometry);
    std::string what =
        "there is no polygon and no closed line in it (features: " + std::to_string(found.looked_at);
    what += found.other_kind.empty() ? ")" : ", the first a " + found.other_kind + ")";
    if (is_format(dataset, "CSV"))
        what += "; a CSV file needs a header and a column WKT, or a vertex per row in columns E and N";
    else
        what += "; draw the parcel as a polygon";
    refuse(source.file, what);
}

[[noreturn]] void refuse_choice(const Found& found, GDALDataset& dataset, const Source& source)
{
    std::string list;
    for (const std::string& name : found.names)
        list += (list.empty() ? "" : ", ") + name;
    if (found.count > found.names.size())
        list += ", ...";
    const bool layers = dataset.GetLayerCount() > 1 && !source.layer;
    throw Failure(ExitStatus::wrong_use, source.file + ": there are " + std::to_string(found.count) +
                                             " parcels (" + list + "); choose one with " +
                                             (layers ? "--layer NAME and " : "") + "--feature FID");
}

// -------------------------------------------------------------------------------------------------- curves

// Chords for every tenth of a degree: an arc shorter than that stands out from its chord by less than half a
// millimetre at a radius of a kilometre.
constexpr const char* kFineArcStep = "0.1";

// The DXF reader replaces arcs by chords without telling, as many as OGR_ARC_STEPSIZE asks for. A boundary
// that grows when it is read again with finer steps had an arc.
void require_straight_dxf(const Source& source, const Found& found, const std::string& where)
{
    CPLSetThreadLocalConfigOption("OGR_ARC_STEPSIZE", kFineArcStep);
    const GDALDatasetUniquePtr dataset(GDALDataset::Open(source.file.c_str(), GDAL_OF_VECTOR));
    OGRLayer* layer = dataset != nullptr ? dataset->GetLayerByName(found.layer->GetName()) : nullptr;
    OGRFeatureUniquePtr finer(layer != nullptr ? layer->GetFeature(found.feature->GetFID()) : nullptr);
    CPLSetThreadLocalConfigOption("OGR_ARC_STEPSIZE", nullptr);

    if (finer == nullptr || finer->GetGeometryRef() == nullptr)
        refuse(where, "it could not be read a second time, to look for arcs; leave the file as it is");
    if (finer->GetGeometryRef()->WkbSize() != found.feature->GetGeometryRef()->WkbSize())
        refuse(where, "the boundary has arcs; replace them by chords in the drawing first");
}

// ------------------------------------------------------------------------------------------ the two roads

Parcel parcel_of_points(OGRLayer& table, const PointColumns& columns, const Source& source,
                        const GdalMessages& messages)
{
    if (source.feature)
        throw Failure(ExitStatus::wrong_use,
                      source.file + ": its rows are the vertices of one parcel; leave --feature out");
    std::vector<PL_PNT2D_record> points = read_points(table, columns, source.file);
    if (!messages.text().empty())
        refuse(source.file, "the table cannot be read" + messages.remark() + "; correct it");
    return {source.file, usable_ring(std::move(points), source.file)};
}

Parcel parcel_of_feature(const Found& found, GDALDataset& dataset, const Source& source)
{
    const std::string where = source.file + ": " + name_of(*found.feature, *found.layer, dataset);
    const OGRGeometry* geometry = found.feature->GetGeometryRef();
    if (geometry == nullptr)
        refuse(where, kNoGeometry);
    std::vector<PL_PNT2D_record> ring = usable_ring(*geometry, where);
    const bool crs_stated = !is_format(dataset, "GeoJSON") && !is_format(dataset, "GeoJSONSeq");
    require_plane(geometry->getSpatialReference(), crs_stated, ring, where);
    if (is_format(dataset, "DXF"))
        require_straight_dxf(source, found, where);
    return {where, std::move(ring)};
}

}  // namespace

Parcel read_parcel(const Source& source)
{
    GDALAllRegister();
    GdalMessages messages;
    const GDALDatasetUniquePtr dataset = open_dataset(source.file, messages);
    const std::vector<OGRLayer*> layers = chosen_layers(*dataset, source);

    messages.clear();
    if (is_format(*dataset, "CSV") && layers.size() == 1 && layers[0]->GetGeomType() == wkbNone) {
        if (const auto columns = find_point_columns(*layers[0]->GetLayerDefn()))
            return parcel_of_points(*layers[0], *columns, source, messages);
    }

    const Found found = search(*dataset, layers, source);
    if (messages.failed())
        refuse(source.file, "it cannot be read to its end" + messages.remark() + "; repair it");
    if (found.count == 0)
        refuse_nothing_found(found, *dataset, source);
    if (found.count > 1)
        refuse_choice(found, *dataset, source);
    return parcel_of_feature(found, *dataset, source);
}

}  // namespace tool
