#include "files/vector_file.h"

#include <cpl_string.h>

namespace tool {
namespace {

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

}  // namespace

GDALDatasetUniquePtr open_vector_file(const std::string& file)
{
    const unsigned flags = GDAL_OF_VECTOR | GDAL_OF_READONLY | GDAL_OF_VERBOSE_ERROR;
    const CPLStringList options = open_options(file);
    CPLErrorReset();
    return GDALDatasetUniquePtr(GDALDataset::Open(file.c_str(), flags, nullptr, options.List(), nullptr));
}

bool is_wkt_column(const std::string& name)
{
    const CPLStringList columns(CSLTokenizeString2(kWktColumns, ",", 0));
    return columns.FindString(name.c_str()) >= 0;
}

}  // namespace tool
