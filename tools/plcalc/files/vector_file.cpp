#include "files/vector_file.h"

#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <system_error>

#include <cpl_conv.h>
#include <cpl_string.h>

#include "console/outcome.h"
#include "files/gml_heights.h"
#include "files/landxml.h"
#include "files/positions.h"
#include "files/text_source.h"

namespace tool {
namespace {

constexpr const char* kTexts = "NATIVE_DATA";
constexpr const char* kMergeBlocks = "DXF_MERGE_BLOCK_GEOMETRIES";

// Only the options of the driver that will open the file; the others would warn of options that they do not
// know.
CPLStringList open_options(const std::string& file)
{
    CPLStringList options;
    const GDALDriverH driver = GDALIdentifyDriverEx(file.c_str(), GDAL_OF_VECTOR, nullptr, nullptr);
    const std::string format = driver != nullptr ? GDALGetDriverShortName(driver) : "";
    if (format == "CSV")
        options.SetNameValue("GEOM_POSSIBLE_NAMES", kWktColumns);
    if (format == "GeoJSON" && mixes_heights(file))
        options.SetNameValue(kTexts, "YES");  // they tell which heights are missing
    if (format == "GML")
        options.SetNameValue("WRITE_GFS", "NO");  // reading leaves nothing behind
    return options;
}

// What the system says of a missing file is what we say.
std::string remark_on_missing(const GdalMessages& messages)
{
    return messages.text().find("No such file or directory") != std::string::npos ? "" : messages.remark();
}

Failure why_not_opened(const std::string& file, const GdalMessages& messages)
{
    const auto failure = [&](const std::string& problem, const std::string& advice) {
        return Failure(ExitStatus::unusable_input, {file, ""}, problem, advice);
    };
    std::error_code ignored;
    const std::filesystem::file_status status = std::filesystem::status(file, ignored);
    if (is_standard_input(file))
        return failure("GDAL cannot read the standard input",
                       "a table needs a header; any other format must be text, or GeoPackage or FlatGeobuf");
    if (!std::filesystem::exists(status))
        return failure("there is no such file" + remark_on_missing(messages), "check the name");
    if (std::filesystem::is_directory(status))
        return failure("this is a folder in which GDAL finds no vector file", "name the file itself");
    if (!std::ifstream(file).good())
        return failure("plcalc may not read the file", "check its permissions");
    if (std::filesystem::is_regular_file(status) && std::filesystem::file_size(file, ignored) == 0)
        return failure("the file is empty", "save the parcel to it again");
    if (EQUAL(CPLGetExtension(file.c_str()), "csv"))
        return failure("GDAL cannot read this file as a table",
                       "a CSV file needs a header and at least two columns");
    return failure("GDAL cannot read this file as vector data" + messages.remark(),
                   "convert it, for example to GeoPackage");
}

// Of GML nobody can tell later which of the zeros are heights.
void require_heights_or_none(const std::string& file, const std::string& shown)
{
    if (const std::optional<long> line = line_of_mixed_heights(file))
        throw Failure(
            ExitStatus::unusable_input, {shown, ""},
            "some positions have heights and others have none in the geometry that begins on line " +
                std::to_string(*line),
            "give each of them a height, or none");
}

}  // namespace

GDALDatasetUniquePtr open_vector_file(const std::string& file)
{
    const unsigned flags = GDAL_OF_VECTOR | GDAL_OF_READONLY | GDAL_OF_VERBOSE_ERROR;
    const CPLStringList options = open_options(file);
    CPLErrorReset();
    // The entities of a drawing's block come one by one, as if it had been taken apart.
    CPLSetThreadLocalConfigOption(kMergeBlocks, "FALSE");
    GDALDatasetUniquePtr dataset(GDALDataset::Open(file.c_str(), flags, nullptr, options.List(), nullptr));
    CPLSetThreadLocalConfigOption(kMergeBlocks, nullptr);
    return dataset;
}

GDALDatasetUniquePtr open_or_refuse(const std::string& file, const GdalMessages& messages,
                                    const std::string& shown)
{
    GDALDatasetUniquePtr dataset = is_landxml(file) ? open_landxml(file, shown) : open_vector_file(file);
    if (dataset == nullptr)
        throw why_not_opened(shown, messages);
    if (EQUAL(dataset->GetDriverName(), "GML"))
        require_heights_or_none(file, shown);
    return dataset;
}

bool keeps_texts(GDALDataset& dataset)
{
    return CPLFetchBool(dataset.GetOpenOptions(), kTexts, false);
}

std::vector<std::string> files_of(GDALDataset& dataset)
{
    const CPLStringList list(dataset.GetFileList());
    return {list.List(), list.List() + list.Count()};
}

void leave_columns(OGRLayer& layer, bool geometry_too)
{
    CPLStringList names;
    const OGRFeatureDefn& columns = *layer.GetLayerDefn();
    for (int i = 0; i < columns.GetFieldCount(); ++i)
        names.AddString(columns.GetFieldDefn(i)->GetNameRef());
    if (geometry_too)
        names.AddString("OGR_GEOMETRY");
    if (layer.TestCapability(OLCIgnoreFields))
        layer.SetIgnoredFields(const_cast<const char**>(names.List()));
}

void read_columns(OGRLayer& layer)
{
    if (layer.TestCapability(OLCIgnoreFields))
        layer.SetIgnoredFields(nullptr);
}

bool is_wkt_column(const std::string& name)
{
    const CPLStringList columns(CSLTokenizeString2(kWktColumns, ",", 0));
    return columns.FindString(name.c_str()) >= 0;
}

}  // namespace tool
