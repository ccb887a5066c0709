#pragma once

// What a vector format that GDAL writes does with layers, columns and coordinates.

#include <optional>
#include <string>

#include <cpl_string.h>
#include <gdal_priv.h>
#include <ogrsf_frmts.h>

namespace tool {

/// What a format does with heights.
enum class HeightsHeld {
    none,
    all_or_none,  ///< a shape without heights becomes one at height zero
    each          ///< each shape has heights, or none
};

class OutputFormat {
public:
    /// The format for the ending of a file name; nothing if no format with that ending can be written, be
    /// read back and keep every digit.
    static std::optional<OutputFormat> for_file(const std::string& file);

    GDALDriver& driver() const { return *driver_; }

    /// Whether one file holds several layers with columns of their own.
    bool holds_two_layers() const;

    /// Whether layers of an existing file can be replaced while its others stay.
    bool keeps_other_layers() const;

    /// Whether it holds degrees. GDAL converts the coordinates to degrees from their CRS; without a CRS it
    /// takes metres for degrees.
    bool holds_degrees() const;

    /// Whether it loses a feature without a geometry.
    bool needs_geometry() const;

    /// Found by writing a small file in memory and reading it back.
    HeightsHeld heights_held() const;

    /// Options for creating a layer.
    CPLStringList layer_options() const;

    /// The type, or text if the format does not have the type.
    OGRFieldType type_for(OGRFieldType type) const;

private:
    OutputFormat(GDALDriver& driver, const std::string& ending) : driver_(&driver), ending_(ending) {}

    bool is_one_of(const char* const* names, std::size_t count) const;

    bool keeps_heights(bool beside_flat) const;

    GDALDriver* driver_;
    std::string ending_;
};

}  // namespace tool
