#pragma once

// What a vector format that GDAL writes does with layers, columns and coordinates.

#include <optional>
#include <string>

#include <cpl_string.h>
#include <gdal_priv.h>
#include <ogrsf_frmts.h>

namespace tool {

class OutputFormat {
public:
    /// The format with the ending of a file name; nothing when there is none that can be written and read
    /// back, and keeps coordinates to the digit.
    static std::optional<OutputFormat> for_file(const std::string& file);

    GDALDriver& driver() const { return *driver_; }

    /// Whether one file holds several layers with columns of their own.
    bool holds_two_layers() const;

    /// Whether it holds degrees, to which GDAL turns the coordinates of whatever CRS they are in. Without a CRS
    /// it takes metres for degrees.
    bool holds_degrees() const;

    /// Whether a feature without a geometry is lost.
    bool needs_geometry() const;

    /// For the creation of a layer.
    CPLStringList layer_options() const;

    /// The type, or text where the format has none like it.
    OGRFieldType type_for(OGRFieldType type) const;

private:
    explicit OutputFormat(GDALDriver& driver) : driver_(&driver) {}

    bool is_one_of(const char* const* names, std::size_t count) const;

    GDALDriver* driver_;
};

}  // namespace tool
