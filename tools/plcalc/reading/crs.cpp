#include "reading/crs.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include <cpl_conv.h>
#include <cpl_string.h>
#include <cpl_vsi.h>

#include "plparcel/extent.h"
#include "text/json.h"
#include "text/numbers.h"

namespace tool {
namespace {

using plparcel::Ring;

// Inside a zone of UTM, lengths differ by up to this much.
constexpr double kMaxScaleError = 1e-3;

constexpr double kStepMetres = 100.0;
constexpr double kHalfTurnDegrees = 180.0;
constexpr double kTurnRad = 6.283185307179586;

bool may_be_degrees(const Ring& ring)
{
    constexpr double kMaxLongitude = 360.0;
    constexpr double kMaxLatitude = 90.0;
    for (const PL_PNT2D_record& p : ring)
        if (std::fabs(p.x) > kMaxLongitude || std::fabs(p.y) > kMaxLatitude)
            return false;
    return true;
}

// Whether coordinates that come without a CRS are longitudes and latitudes all the same. A parcel of less than a tenth of a
// unit, ten times as far from the origin as it is large, is in degrees, or in a unit in which nobody measures parcels.
bool look_like_degrees(const Ring& ring)
{
    constexpr double kMostExtent = 0.1;
    constexpr double kLeastDistance = 10.0;  // from the origin, in extents
    const plparcel::Extent extent = plparcel::extent_of(ring);
    const double across = extent.largest();
    return may_be_degrees(ring) && across > 0.0 && across < kMostExtent &&
           std::max(std::fabs(ring[0].x), std::fabs(ring[0].y)) > kLeastDistance * across;
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

PL_PNT2D_record middle_of(const Ring& ring)
{
    PL_PNT2D_record low = ring.front();
    PL_PNT2D_record high = ring.front();
    for (const PL_PNT2D_record& p : ring) {
        low = {std::min(low.x, p.x), std::min(low.y, p.y)};
        high = {std::max(high.x, p.x), std::max(high.y, p.y)};
    }
    return {low.x + (high.x - low.x) * 0.5, low.y + (high.y - low.y) * 0.5};
}

// Zones are six degrees wide; Norway and Svalbard have wider ones.
int utm_zone(double longitude, double latitude)
{
    const int zone = static_cast<int>(std::floor((longitude + kHalfTurnDegrees) / 6.0)) % 60 + 1;
    if (latitude >= 56.0 && latitude < 64.0 && longitude >= 3.0 && longitude < 12.0)
        return 32;
    if (latitude >= 72.0 && longitude >= 0.0 && longitude < 42.0)
        return longitude < 9.0 ? 31 : longitude < 21.0 ? 33 : longitude < 33.0 ? 35 : 37;
    return zone;
}

// " -t_srs EPSG:32632": the zone of UTM for the place; nothing where the place is unknown.
std::string target_for(const OGRSpatialReference& crs, const PL_PNT2D_record& p)
{
    OGRSpatialReference world;
    world.importFromEPSG(4326);
    world.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    const std::unique_ptr<OGRCoordinateTransformation> to_world(
        OGRCreateCoordinateTransformation(&crs, &world));
    double longitude = p.x;
    double latitude = p.y;
    if (to_world == nullptr || !to_world->Transform(1, &longitude, &latitude) ||
        !(std::fabs(longitude) <= kHalfTurnDegrees) || !(std::fabs(latitude) <= kHalfTurnDegrees / 2.0))
        return "";
    const int zone = utm_zone(longitude, latitude);
    return " -t_srs EPSG:" + std::to_string((latitude < 0.0 ? 32700 : 32600) + zone);
}

std::string project_first(const OGRSpatialReference& crs, const Ring& ring)
{
    const std::string target = ring.empty() ? "" : target_for(crs, middle_of(ring));
    return "project them first, for example with ogr2ogr" +
           (target.empty() ? " and the UTM zone of the place" : target);
}

}  // namespace

OGRSpatialReference crs_named(const std::string& text)
{
    OGRSpatialReference crs;
    if (crs.SetFromUserInput(text.c_str()) != OGRERR_NONE)
        throw Failure(ExitStatus::wrong_use, {}, "'" + text + "' is not a CRS that PROJ knows",
                      "name it as EPSG:25832");
    crs.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    return crs;
}

std::optional<OGRSpatialReference> crs_beside(const std::string& file)
{
    const std::string beside = CPLResetExtension(file.c_str(), "prj");
    VSIStatBufL status;
    OGRSpatialReference crs;
    if (VSIStatL(beside.c_str(), &status) != 0)
        return std::nullopt;
    const CPLStringList lines(CSLLoad(beside.c_str()));
    std::string text;
    for (int i = 0; i < lines.Count(); ++i)
        text += lines[i];
    if (crs.importFromWkt(text.c_str()) != OGRERR_NONE || crs.morphFromESRI() != OGRERR_NONE)
        return std::nullopt;
    crs.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    return crs;
}

bool is_placeholder(const OGRSpatialReference& crs)
{
    // GeoPackage gives these names to layers that were written without a CRS.
    const std::string name = name_of(crs);
    return name == "Undefined geographic SRS" || name == "Undefined Cartesian SRS";
}

std::optional<XAxis> x_axis_of(const OGRSpatialReference& crs)
{
    char* text = nullptr;
    const bool told = crs.exportToPROJJSON(&text, nullptr) == OGRERR_NONE && text != nullptr;
    const Json json = told ? Json::parse(text, nullptr, false) : Json();
    CPLFree(text);
    const Json* definition = &json;
    while (definition->is_object() && !definition->contains("coordinate_system")) {
        if (definition->contains("source_crs"))
            definition = &(*definition)["source_crs"];
        else if (definition->contains("components"))
            definition = &(*definition)["components"][0];
        else
            return std::nullopt;
    }
    if (!definition->is_object())
        return std::nullopt;
    const Json axes = (*definition)["coordinate_system"].value("axis", Json::array());
    if (axes.empty())
        return std::nullopt;
    Json x = axes[0];
    for (const Json& axis : axes)
        if (EQUAL(axis.value("abbreviation", "").c_str(), "X"))
            x = axis;
    const std::string direction = x.value("direction", "");
    if (direction == "east")
        return XAxis::east;
    return direction == "north" ? std::optional<XAxis>(XAxis::north) : std::nullopt;
}

ScaleOf::ScaleOf(const OGRSpatialReference& crs)
    : step_(kStepMetres / crs.GetLinearUnits()), metres_(crs.GetLinearUnits()),
      semi_major_(crs.GetSemiMajor()), eccentricity2_(0.0)
{
    const double inverse_flattening = crs.GetInvFlattening();
    const double flattening = inverse_flattening > 0.0 ? 1.0 / inverse_flattening : 0.0;
    eccentricity2_ = flattening * (2.0 - flattening);
    const std::unique_ptr<OGRSpatialReference> degrees(crs.CloneGeogCS());
    if (degrees == nullptr)
        return;
    degrees->SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    radians_ = degrees->GetAngularUnits();
    to_ellipsoid_.reset(OGRCreateCoordinateTransformation(&crs, degrees.get()));
}

std::optional<double> ScaleOf::at(const PL_PNT2D_record& p) const
{
    double x[] = {p.x - step_, p.x + step_, p.x, p.x, p.x};
    double y[] = {p.y, p.y, p.y - step_, p.y + step_, p.y};
    if (to_ellipsoid_ == nullptr || !to_ellipsoid_->Transform(static_cast<int>(std::size(x)), x, y))
        return std::nullopt;
    const double latitude = y[4] * radians_;
    const double w2 = 1.0 - eccentricity2_ * std::sin(latitude) * std::sin(latitude);
    const double meridian = semi_major_ * (1.0 - eccentricity2_) / (w2 * std::sqrt(w2));
    const double parallel = semi_major_ / std::sqrt(w2) * std::cos(latitude);
    // Metres on the ellipsoid for each metre of the plane, towards plane East and plane North.
    const double plane = 2.0 * step_ * metres_;
    const auto east = [&](int from, int to) {
        return std::remainder((x[to] - x[from]) * radians_, kTurnRad) * parallel / plane;
    };
    const auto north = [&](int from, int to) { return (y[to] - y[from]) * radians_ * meridian / plane; };
    const double a = east(0, 1);
    const double b = east(2, 3);
    const double c = north(0, 1);
    const double d = north(2, 3);
    // The longest and the shortest image of a metre: the singular values of [a b; c d].
    const double sum = std::hypot(a + d, c - b);
    const double difference = std::hypot(a - d, b + c);
    const double longest = (sum + difference) * 0.5;
    const double shortest = std::fabs(sum - difference) * 0.5;
    if (!std::isfinite(longest) || !(shortest > 0.0))
        return std::nullopt;
    const double low = 1.0 / longest;
    const double high = 1.0 / shortest;
    return std::fabs(high - 1.0) >= std::fabs(low - 1.0) ? high : low;
}

void PlaneCheck::require(const OGRSpatialReference* crs, bool stated, Parcel& parcel)
{
    if (crs == nullptr || is_placeholder(*crs))
        return require_no_degrees(parcel);
    const std::string name = name_of(*crs);
    if (crs->IsProjected() && counts_westwards(*crs))
        throw Failure(ExitStatus::unusable_input, parcel.place,
                      "the coordinates increase to the West (" + name + "), not to the East",
                      project_first(*crs, parcel.ring));
    if (crs->IsProjected())
        require_scale(*crs, parcel);
    note_unit(*crs, parcel);
    if (!crs->IsGeographic() && !crs->IsGeocentric())
        return;
    if (!stated && !may_be_degrees(parcel.ring))
        return;
    throw Failure(ExitStatus::unusable_input, parcel.place, "the coordinates are not plane (" + name + ")",
                  project_first(*crs, parcel.ring) + ", or correct the file's CRS if they are");
}

void PlaneCheck::require_no_degrees(Parcel& parcel) const
{
    if (!look_like_degrees(parcel.ring))
        return;
    if (!source_.any_scale)
        throw Failure(ExitStatus::unusable_input, parcel.place,
                      "the coordinates look like degrees, and nothing says that they are plane",
                      "project them first, for example with ogr2ogr -s_srs EPSG:4326" +
                          target_for(crs_named("EPSG:4326"), middle_of(parcel.ring)) +
                          ", or accept them as plane with --any-scale");
    parcel.assumed.push_back("the coordinates are taken as plane, although they look like degrees");
}

void PlaneCheck::require_scale(const OGRSpatialReference& crs, Parcel& parcel)
{
    if (parcel.ring.empty())
        return;
    if (scale_crs_.get() != &crs) {
        scale_.emplace(crs);
        OGRSpatialReference* const kept = const_cast<OGRSpatialReference*>(&crs);
        kept->Reference();
        scale_crs_.reset(kept);
    }
    const std::optional<double> scale = scale_->at(middle_of(parcel.ring));
    if (!scale || std::fabs(*scale / source_.ground_factor - 1.0) <= kMaxScaleError)
        return;
    const std::string lengths =
        "lengths in " + name_of(crs) + " are " + fixed(*scale, 5) + " times those on the ground here";
    if (!source_.any_scale)
        throw Failure(ExitStatus::unusable_input, parcel.place, lengths,
                      project_first(crs, parcel.ring) + ", or accept it with --any-scale");
    parcel.assumed.push_back(lengths);
}

namespace {

// As people write it.
std::string abbreviated(const char* name)
{
    constexpr std::pair<const char*, const char*> kNames[] = {{"metre", "m"},
                                                              {"meter", "m"},
                                                              {"kilometre", "km"},
                                                              {"kilometer", "km"},
                                                              {"foot", "ft"},
                                                              {"feet", "ft"},
                                                              {"yard", "yd"},
                                                              {"international foot", "ft"},
                                                              {"US survey foot", "US ft"},
                                                              {"Foot_US", "US ft"},
                                                              {"US survey yard", "US yd"}};
    for (const auto& [long_name, short_name] : kNames)
        if (EQUAL(name, long_name))
            return short_name;
    return name;
}

}  // namespace

LengthUnit unit_of(const OGRSpatialReference* crs)
{
    if (crs == nullptr || (!crs->IsProjected() && !crs->IsLocal()))
        return {};
    const char* name = nullptr;
    const double metres = crs->GetLinearUnits(&name);
    if (name == nullptr)
        return {"", metres};
    if (crs->IsLocal() && EQUAL(name, "unknown"))
        return {};
    return {abbreviated(name), metres};
}

// Who asks for 500 of a parcel in feet has to know that they are square feet. Metres need no word.
void PlaneCheck::note_unit(const OGRSpatialReference& crs, Parcel& parcel)
{
    const LengthUnit unit = unit_of(&crs);
    if (!unit.name.empty() && unit.metres != 1.0)
        parcel.assumed.push_back("lengths in " + unit.name + ", areas in " + square_of(unit) +
                                 ": the unit of its CRS");
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
