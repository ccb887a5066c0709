#include "writing/output_format.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <utility>

#include <cpl_conv.h>
#include <cpl_vsi.h>

#include "files/vector_file.h"

namespace tool {
namespace {

// Formats whose several layers are not what we need: files in a folder.
const char* const kOneLayer[] = {"ESRI Shapefile", "MapInfo File", "CSV", "FlatGeobuf", "KML", "TSV"};

// Formats that round coordinates to a step, a tenth of a millimetre at best.
const char* const kRounding[] = {"DGN",        "FileGDB", "Geoconcept",  "Interlis 1",
                                 "Interlis 2", "MVT",     "OpenFileGDB", "S57"};

const char* const kDegrees[] = {"GeoJSONSeq", "KML"};

const char* const kDatabases[] = {"GPKG", "SQLite"};

const char* const kNothingWithoutGeometry[] = {"FlatGeobuf", "OGR_GMT"};

// Formats of pictures that can also hold vectors place them on a page or turn them into dots.
bool holds_pictures(GDALDriver& driver)
{
    return driver.GetMetadataItem(GDAL_DCAP_RASTER) != nullptr && !EQUAL(driver.GetDescription(), "GPKG");
}

// This driver writes .kml as the driver KML does, but takes an hour for ten thousand parcels.
bool is_slow(GDALDriver& driver)
{
    return EQUAL(driver.GetDescription(), "LIBKML");
}

// The format must also be readable: what was written is read back, because not every format reports a full
// disk.
bool writes_vectors(GDALDriver& driver)
{
    return driver.GetMetadataItem(GDAL_DCAP_VECTOR) != nullptr &&
           driver.GetMetadataItem(GDAL_DCAP_CREATE) != nullptr &&
           driver.GetMetadataItem(GDAL_DCAP_OPEN) != nullptr && !holds_pictures(driver) && !is_slow(driver);
}

bool is_listed(GDALDriver& driver, const char* item, const char* word)
{
    const char* const list = driver.GetMetadataItem(item);
    const CPLStringList words(CSLTokenizeString2(list != nullptr ? list : "", " ", 0));
    return words.FindString(word) >= 0;
}

GDALDriver* driver_for(const std::string& ending)
{
    GDALAllRegister();
    GDALDriverManager& drivers = *GetGDALDriverManager();
    for (int i = 0; i < drivers.GetDriverCount() && !ending.empty(); ++i) {
        GDALDriver& driver = *drivers.GetDriver(i);
        if (writes_vectors(driver) && is_listed(driver, GDAL_DMD_EXTENSIONS, ending.c_str()))
            return &driver;
    }
    return nullptr;
}

OGRPolygon triangle(std::optional<double> height)
{
    OGRLinearRing ring;
    for (const auto& [x, y] : {std::pair<double, double>{0.0, 0.0}, {1.0, 0.0}, {0.0, 1.0}})
        if (height)
            ring.addPoint(x, y, *height);
        else
            ring.addPoint(x, y);
    ring.closeRings();
    OGRPolygon polygon;
    polygon.addRing(&ring);
    return polygon;
}

bool add_shape(OGRLayer& layer, const OGRGeometry& geometry)
{
    const OGRFeatureUniquePtr feature(OGRFeature::CreateFeature(layer.GetLayerDefn()));
    feature->SetField(0, 1);
    feature->SetGeometry(&geometry);
    return layer.CreateFeature(feature.get()) == OGRERR_NONE;
}

// A folder in memory for a file that is tried.
class TrialFolder {
public:
    TrialFolder() : path_(CPLSPrintf("/vsimem/plcalc-trial-%p", static_cast<void*>(this)))
    {
        CPLPushErrorHandler(CPLQuietErrorHandler);
        VSIMkdir(path_.c_str(), 0700);
    }
    ~TrialFolder()
    {
        VSIRmdirRecursive(path_.c_str());
        CPLPopErrorHandler();
    }
    TrialFolder(const TrialFolder&) = delete;
    TrialFolder& operator=(const TrialFolder&) = delete;

    std::string file(const std::string& ending) const { return path_ + "/trial." + ending; }

private:
    std::string path_;
};

}  // namespace

std::optional<OutputFormat> OutputFormat::for_file(const std::string& file)
{
    const std::string ending = CPLGetExtension(file.c_str());
    GDALDriver* const driver = driver_for(ending);
    if (driver == nullptr)
        return std::nullopt;
    const OutputFormat format(*driver, ending);
    // MapInfo's MIF is text and keeps every digit; its TAB rounds to a centimetre over the full range of a
    // projection.
    if (EQUAL(ending.c_str(), "tab") || format.is_one_of(kRounding, std::size(kRounding)))
        return std::nullopt;
    return format;
}

bool OutputFormat::is_one_of(const char* const* names, std::size_t count) const
{
    return std::any_of(names, names + count,
                       [&](const char* name) { return EQUAL(driver_->GetDescription(), name); });
}

bool OutputFormat::holds_two_layers() const
{
    return driver_->GetMetadataItem(GDAL_DCAP_MULTIPLE_VECTOR_LAYERS) != nullptr &&
           !is_one_of(kOneLayer, std::size(kOneLayer));
}

bool OutputFormat::keeps_other_layers() const
{
    return is_one_of(kDatabases, std::size(kDatabases));
}

bool OutputFormat::holds_degrees() const
{
    return is_one_of(kDegrees, std::size(kDegrees));
}

bool OutputFormat::needs_geometry() const
{
    return is_one_of(kNothingWithoutGeometry, std::size(kNothingWithoutGeometry));
}

HeightsHeld OutputFormat::heights_held() const
{
    if (keeps_heights(true))
        return HeightsHeld::each;
    return keeps_heights(false) ? HeightsHeld::all_or_none : HeightsHeld::none;
}

// beside_flat: whether a shape without heights stays without, too
bool OutputFormat::keeps_heights(bool beside_flat) const
{
    constexpr double kHeight = 7.0;
    const TrialFolder folder;
    const std::string file = folder.file(ending_);
    GDALDatasetUniquePtr trial(driver_->Create(file.c_str(), 0, 0, 0, GDT_Unknown, nullptr));
    OGRLayer* const layer = trial != nullptr
                                ? trial->CreateLayer("trial", nullptr, wkbPolygon25D, layer_options().List())
                                : nullptr;
    OGRFieldDefn number("number", OFTInteger);
    if (layer == nullptr || layer->CreateField(&number) != OGRERR_NONE ||
        !add_shape(*layer, triangle(kHeight)) || (beside_flat && !add_shape(*layer, triangle({}))))
        return false;
    trial.reset();
    trial = open_vector_file(file);
    if (trial == nullptr || trial->GetLayerCount() == 0)
        return false;
    bool kept = false;
    bool flat = false;
    for (const OGRFeatureUniquePtr& feature : *trial->GetLayer(0)) {
        const OGRGeometry* const shape = feature->GetGeometryRef();
        if (shape == nullptr || wkbFlatten(shape->getGeometryType()) != wkbPolygon)
            return false;
        // Generic Mapping Tools files have heights that GDAL reads without saying that they do.
        kept = kept || shape->toPolygon()->getExteriorRing()->getZ(0) == kHeight;
        flat = flat || !shape->Is3D();
    }
    return kept && flat == beside_flat;
}

CPLStringList OutputFormat::layer_options() const
{
    CPLStringList options;
    const std::string name = driver_->GetDescription();
    if (name == "CSV")
        options.SetNameValue("GEOMETRY", "AS_WKT");
    if (name == "ESRI Shapefile")
        options.SetNameValue("ENCODING", "UTF-8");  // the default, ISO-8859-1, knows only Western Europe
    if (name == "GeoJSONSeq")
        options.SetNameValue("COORDINATE_PRECISION",
                             "15");  // the default, 7 decimals of a degree, is a centimetre
    return options;
}

OGRFieldType OutputFormat::type_for(OGRFieldType type) const
{
    const bool tells = driver_->GetMetadataItem(GDAL_DMD_CREATIONFIELDDATATYPES) != nullptr;
    const char* const name = OGRFieldDefn::GetFieldTypeName(type);
    return !tells || is_listed(*driver_, GDAL_DMD_CREATIONFIELDDATATYPES, name) ? type : OFTString;
}

}  // namespace tool
