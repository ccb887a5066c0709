#include "writing/output_format.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

#include <cpl_conv.h>

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

}  // namespace

std::optional<OutputFormat> OutputFormat::for_file(const std::string& file)
{
    const std::string ending = CPLGetExtension(file.c_str());
    GDALDriver* const driver = driver_for(ending);
    if (driver == nullptr)
        return std::nullopt;
    const OutputFormat format(*driver);
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
