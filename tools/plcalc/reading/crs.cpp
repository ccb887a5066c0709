#include "reading/crs.h"

#include <cmath>
#include <string>

#include <cpl_string.h>

namespace tool {
namespace {

using plparcel::Ring;

bool may_be_degrees(const Ring& ring)
{
    constexpr double kMaxLongitude = 360.0;
    constexpr double kMaxLatitude = 90.0;
    for (const PL_PNT2D_record& p : ring)
        if (std::fabs(p.x) > kMaxLongitude || std::fabs(p.y) > kMaxLatitude)
            return false;
    return true;
}

// South African and old Bohemian grids do so, among others: bearings and sides would come out mirrored or
// turned.
bool counts_westwards(const OGRSpatialReference& crs)
{
    for (const int axis : {0, 1}) {
        OGRAxisOrientation orientation = OAO_Other;
        if (crs.GetAxis(nullptr, axis, &orientation) != nullptr && orientation == OAO_West)
            return true;
    }
    return false;
}

std::string name_of(const OGRSpatialReference& crs)
{
    return crs.GetName() != nullptr ? crs.GetName() : "no name";
}

}  // namespace

void require_plane(const OGRSpatialReference* crs, bool stated, const Ring& ring, const Place& place)
{
    if (crs == nullptr)
        return;
    const std::string name = name_of(*crs);
    if (crs->IsProjected() && counts_westwards(*crs))
        throw Failure(ExitStatus::unusable_input, place,
                      "the coordinates increase to the West (" + name + "), not to the East",
                      "project them first, for example with ogr2ogr -t_srs EPSG:32632");
    if (!crs->IsGeographic() && !crs->IsGeocentric())
        return;
    // GeoPackage gives this name to a layer that was written without a CRS.
    if (name == "Undefined geographic SRS")
        return;
    if (!stated && !may_be_degrees(ring))
        return;
    throw Failure(
        ExitStatus::unusable_input, place, "the coordinates are not plane (" + name + ")",
        "project them first, for example with ogr2ogr -t_srs EPSG:32632, or correct the file's CRS if they "
        "are");
}

LengthUnit unit_of(const OGRSpatialReference* crs)
{
    if (crs == nullptr || !crs->IsProjected())
        return {};
    const char* name = nullptr;
    const double metres = crs->GetLinearUnits(&name);
    if (name == nullptr)
        return {"", metres};
    const bool metre = EQUAL(name, "metre") || EQUAL(name, "meter");
    return {metre ? "m" : name, metres};
}

std::string crs_name(const OGRSpatialReference* crs)
{
    if (crs == nullptr || !crs->IsProjected())
        return "";
    const char* const authority = crs->GetAuthorityName(nullptr);
    const char* const code = crs->GetAuthorityCode(nullptr);
    const bool listed = authority != nullptr && code != nullptr;
    return name_of(*crs) + (listed ? std::string(" (") + authority + ":" + code + ")" : "");
}

}  // namespace tool
