#pragma once

// What a parcel's coordinate reference system says: whether the coordinates are plane and true to scale, their unit,
// and which of X and Y is East.

#include <memory>
#include <optional>
#include <string>

#include <ogr_spatialref.h>

#include "answers/question.h"
#include "console/outcome.h"
#include "reading/source.h"

namespace tool {

/// A CRS by its name or code, as "EPSG:25832", or as WKT. Coordinates of it are read as East and North, or longitude
/// and latitude.
///
/// @throws Failure  wrong_use for a text that names none
OGRSpatialReference crs_named(const std::string& text);

/// The CRS in a file .prj beside a table; nothing where there is none, or one that cannot be read.
std::optional<OGRSpatialReference> crs_beside(const std::string& file);

/// Whether a file says that it has no CRS by giving one this name.
bool is_placeholder(const OGRSpatialReference& crs);

/// Where X points in the CRS: the axis that it calls X, or its first axis if it calls none so. Nothing for a
/// direction that is neither East nor North.
std::optional<XAxis> x_axis_of(const OGRSpatialReference& crs);

/// How many times as long as on the ellipsoid a length near a point of a projected CRS is, in the direction in which
/// it differs most. Nothing where PROJ does not know the place.
///
/// Computed from four points that are 100 m around it, and the ellipsoid's radii of curvature there.
class ScaleOf {
public:
    explicit ScaleOf(const OGRSpatialReference& crs);

    std::optional<double> at(const PL_PNT2D_record& p) const;

private:
    struct Release {
        void operator()(OGRCoordinateTransformation* t) const { OGRCoordinateTransformation::DestroyCT(t); }
    };

    double step_;           // of the four points, in the unit of the CRS
    double metres_;         // its unit
    double radians_ = 1.0;  // unit of its longitudes and latitudes
    double semi_major_;     // of its ellipsoid, metres
    double eccentricity2_;
    std::unique_ptr<OGRCoordinateTransformation, Release> to_ellipsoid_;
};

/// Checks the coordinates of parcels that may share a CRS.
class PlaneCheck {
public:
    explicit PlaneCheck(const Source& source) : source_(source) {}

    /// Refuses coordinates that are not plane, or not true to scale.
    ///
    /// @param[in] crs      the coordinate reference system, or null if the file has none
    /// @param[in] stated   whether the file states the CRS. GeoJSON stands for degrees by default; that default is
    ///                     ignored if the coordinates cannot be degrees.
    /// @param[in] parcel   its ring and place; it is told what was accepted, and a unit that is not the metre
    /// @throws Failure     unusable_input for degrees, for geocentric coordinates, for coordinates that increase to
    ///                     the West, and for lengths that differ by more than a thousandth from those on the
    ///                     ellipsoid, or from what the ground factor says, unless the source accepts any scale; so
    ///                     for coordinates without a CRS that look like degrees
    void require(const OGRSpatialReference* crs, bool stated, Parcel& parcel);

private:
    void require_scale(const OGRSpatialReference& crs, Parcel& parcel);
    void require_no_degrees(Parcel& parcel) const;
    static void note_unit(const OGRSpatialReference& crs, Parcel& parcel);

    struct Release {
        void operator()(OGRSpatialReference* crs) const { crs->Release(); }
    };

    const Source& source_;
    std::unique_ptr<OGRSpatialReference, Release> scale_crs_;  // kept, so that no other can have its address
    std::optional<ScaleOf> scale_;
};

/// The unit of a projected or a local CRS. For any other, and for null, it has no name and is a metre long.
LengthUnit unit_of(const OGRSpatialReference* crs);

/// "WGS 84 / UTM zone 32N (EPSG:32632)"; empty for null and for a CRS that only says that it is unknown.
std::string crs_name(const OGRSpatialReference* crs);

}  // namespace tool
