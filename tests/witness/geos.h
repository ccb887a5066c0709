#pragma once

// The functions of GEOS that the witnesses call. Doubles go in and out unchanged, and GEOS uses no tolerance in
// these operations.

#include <geos_c.h>

#include <cstddef>
#include <memory>
#include <vector>

#include "plcalc/kernel.h"
#include "support/rings.h"

namespace witness {

using test::Ring;

/// Destroys a geometry with the handle that made it.
struct GeometryDeleter {
    GEOSContextHandle_t handle;
    void operator()(GEOSGeometry* geometry) const { GEOSGeom_destroy_r(handle, geometry); }
};
using Geometry = std::unique_ptr<GEOSGeometry, GeometryDeleter>;

/// One GEOS context. Every member throws std::runtime_error when GEOS reports a failure, with its message.
class Geos {
public:
    Geos();
    ~Geos();
    Geos(const Geos&) = delete;
    Geos& operator=(const Geos&) = delete;

    Geometry point(const PL_PNT2D_record& p) const;
    Geometry line(const std::vector<PL_PNT2D_record>& points) const;
    Geometry closed_line(const Ring& ring) const;
    Geometry polygon(const Ring& ring, const std::vector<Ring>& holes = {}) const;

    double area(const Geometry& shape) const;
    double length(const Geometry& shape) const;
    double distance(const Geometry& a, const Geometry& b) const;
    bool contains(const Geometry& outer, const Geometry& inner) const;
    bool is_valid(const Geometry& shape) const;
    bool is_anticlockwise(const Ring& ring) const;

    /// Whether two segments share a point, decided exactly; the point goes to `at`.
    bool segments_meet(const PL_LINE_2D_record& s1, const PL_LINE_2D_record& s2, PL_PNT2D_record& at) const;

    /// The faces that a line cuts a ring into: the noded union of both, polygonised.
    std::vector<Geometry> split(const Ring& ring, const PL_LINE_2D_record& cut) const;

    /// What several shapes cover together.
    Geometry united(const std::vector<Geometry>& shapes) const;

    /// What one shape covers and the other does not, both ways.
    Geometry difference(const Geometry& a, const Geometry& b) const;

    /// Whether the insides of two shapes have a point in common, decided exactly.
    bool insides_meet(const Geometry& a, const Geometry& b) const;

    /// Of how many rings the shape consists, over all its polygons.
    std::size_t rings(const Geometry& shape) const;

    PL_PNT2D_record centroid(const Geometry& shape) const;

private:
    Geometry own(GEOSGeometry* made) const;
    GEOSCoordSequence* sequence(const std::vector<PL_PNT2D_record>& points, bool close) const;

    GEOSContextHandle_t handle_;
};

}  // namespace witness
