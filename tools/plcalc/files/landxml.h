#pragma once

// LandXML 1.2 and its older releases: parcels as GDAL would read them, if it did.

#include <cstddef>
#include <optional>
#include <string>

#include <gdal_priv.h>

namespace tool {

/// The namespace of what is written.
constexpr const char* kLandXml = "http://www.landxml.org/schema/LandXML-1.2";

/// Name and value of the unit of length in LandXML.
struct LandXmlUnit {
    const char* name;  ///< as in linearUnit
    double metres;
    bool metric;       ///< whether it stands in the element Metric, not in Imperial
    const char* area;  ///< the areaUnit that is its square; empty where LandXML has none
};

/// The unit with this length; null where LandXML has none.
const LandXmlUnit* landxml_unit(double metres);

/// Whether the first element of the file is LandXML.
bool is_landxml(const std::string& file);

/// The parcels of a LandXML file in memory: a layer "Parcels" with the columns name, desc and state, and the boundary as a
/// polygon; as a line, where it does not close. Coordinates are northing and easting in the file, and East and North here.
/// Points may stand in the file before or after the parcels that refer to them. Curves stay curves. The names of the points
/// are the native data of a feature, one a line. The CRS is that of the attribute epsgCode; without it, one that states
/// the unit only.
///
/// @param[in] file   what is opened
/// @param[in] shown  its name in messages
/// @throws Failure   unusable_input for XML that is broken, for points that are missing, for boundaries with gaps, spirals,
///                   or several in one parcel
GDALDatasetUniquePtr open_landxml(const std::string& file, const std::string& shown);

/// How many parcels a LandXML file holds; nothing if it is not whole. Costs no memory.
std::optional<std::size_t> count_landxml_parcels(const std::string& file);

/// The names of a feature's points; empty where it has none.
std::string landxml_point_names(const OGRFeature& feature);

}  // namespace tool
