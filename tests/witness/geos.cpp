#include "witness/geos.h"

#include <cstddef>
#include <stdexcept>
#include <string>

namespace {

// GEOS hands its message over before the failing call returns.
thread_local std::string last_message;

void remember(const char* message, void* /*unused*/)
{
    last_message = message;
}

[[noreturn]] void fail()
{
    throw std::runtime_error("GEOS: " + last_message);
}

// GEOS answers 1 yes, 0 no, 2 failure.
bool yes(char answer)
{
    if (answer == 2)
        fail();
    return answer == 1;
}

// GEOS answers 1 done, 0 failure.
void done(int answer)
{
    if (answer == 0)
        fail();
}

}  // namespace

namespace witness {

Geos::Geos() : handle_(GEOS_init_r())
{
    GEOSContext_setErrorMessageHandler_r(handle_, remember, nullptr);
}

Geos::~Geos()
{
    GEOS_finish_r(handle_);
}

Geometry Geos::own(GEOSGeometry* made) const
{
    if (made == nullptr)
        fail();
    return Geometry(made, GeometryDeleter{handle_});
}

GEOSCoordSequence* Geos::sequence(const std::vector<PL_PNT2D_record>& points, bool close) const
{
    const std::size_t n = points.size();
    GEOSCoordSequence* made = GEOSCoordSeq_create_r(handle_, static_cast<unsigned>(n + (close ? 1 : 0)), 2);
    if (made == nullptr)
        fail();
    for (std::size_t i = 0; i < n; ++i)
        GEOSCoordSeq_setXY_r(handle_, made, static_cast<unsigned>(i), points[i].x, points[i].y);
    if (close)
        GEOSCoordSeq_setXY_r(handle_, made, static_cast<unsigned>(n), points[0].x, points[0].y);
    return made;
}

Geometry Geos::point(const PL_PNT2D_record& p) const
{
    return own(GEOSGeom_createPointFromXY_r(handle_, p.x, p.y));
}

Geometry Geos::line(const std::vector<PL_PNT2D_record>& points) const
{
    return own(GEOSGeom_createLineString_r(handle_, sequence(points, false)));
}

Geometry Geos::closed_line(const Ring& ring) const
{
    return own(GEOSGeom_createLinearRing_r(handle_, sequence(ring, true)));
}

Geometry Geos::polygon(const Ring& ring, const std::vector<Ring>& holes) const
{
    std::vector<GEOSGeometry*> inner;
    for (const Ring& hole : holes)
        inner.push_back(closed_line(hole).release());
    return own(GEOSGeom_createPolygon_r(handle_, closed_line(ring).release(), inner.data(),
                                        static_cast<unsigned>(inner.size())));
}

double Geos::area(const Geometry& shape) const
{
    double value = 0.0;
    done(GEOSArea_r(handle_, shape.get(), &value));
    return value;
}

double Geos::length(const Geometry& shape) const
{
    double value = 0.0;
    done(GEOSLength_r(handle_, shape.get(), &value));
    return value;
}

double Geos::distance(const Geometry& a, const Geometry& b) const
{
    double value = 0.0;
    done(GEOSDistance_r(handle_, a.get(), b.get(), &value));
    return value;
}

bool Geos::contains(const Geometry& outer, const Geometry& inner) const
{
    return yes(GEOSContains_r(handle_, outer.get(), inner.get()));
}

bool Geos::is_valid(const Geometry& shape) const
{
    return yes(GEOSisValid_r(handle_, shape.get()));
}

bool Geos::is_anticlockwise(const Ring& ring) const
{
    GEOSCoordSequence* closed = sequence(ring, true);
    char anticlockwise = 0;
    const int answer = GEOSCoordSeq_isCCW_r(handle_, closed, &anticlockwise);
    GEOSCoordSeq_destroy_r(handle_, closed);
    done(answer);
    return anticlockwise == 1;
}

bool Geos::segments_meet(const PL_LINE_2D_record& s1, const PL_LINE_2D_record& s2, PL_PNT2D_record& at) const
{
    const int answer = GEOSSegmentIntersection_r(handle_, s1.start.x, s1.start.y, s1.end.x, s1.end.y,
                                                 s2.start.x, s2.start.y, s2.end.x, s2.end.y, &at.x, &at.y);
    done(answer);
    return answer == 1;  // -1: they do not meet
}

std::vector<Geometry> Geos::split(const Ring& ring, const PL_LINE_2D_record& cut) const
{
    const Geometry boundary = closed_line(ring);
    const Geometry line_of_cut = line({cut.start, cut.end});
    const Geometry noded = own(GEOSUnion_r(handle_, boundary.get(), line_of_cut.get()));
    const GEOSGeometry* const lines[] = {noded.get()};
    const Geometry faces = own(GEOSPolygonize_r(handle_, lines, 1));

    std::vector<Geometry> pieces;
    const int n = GEOSGetNumGeometries_r(handle_, faces.get());
    for (int i = 0; i < n; ++i)
        pieces.push_back(own(GEOSGeom_clone_r(handle_, GEOSGetGeometryN_r(handle_, faces.get(), i))));
    return pieces;
}

Geometry Geos::united(const std::vector<Geometry>& shapes) const
{
    std::vector<GEOSGeometry*> copies;
    for (const Geometry& shape : shapes)
        copies.push_back(GEOSGeom_clone_r(handle_, shape.get()));
    const Geometry all = own(GEOSGeom_createCollection_r(handle_, GEOS_GEOMETRYCOLLECTION, copies.data(),
                                                         static_cast<unsigned>(copies.size())));
    return own(GEOSUnaryUnion_r(handle_, all.get()));
}

Geometry Geos::difference(const Geometry& a, const Geometry& b) const
{
    return own(GEOSSymDifference_r(handle_, a.get(), b.get()));
}

bool Geos::insides_meet(const Geometry& a, const Geometry& b) const
{
    return yes(GEOSRelatePattern_r(handle_, a.get(), b.get(), "T********"));
}

std::size_t Geos::rings(const Geometry& shape) const
{
    const Geometry boundary = own(GEOSBoundary_r(handle_, shape.get()));
    return static_cast<std::size_t>(GEOSGetNumGeometries_r(handle_, boundary.get()));
}

PL_PNT2D_record Geos::centroid(const Geometry& shape) const
{
    const Geometry centre = own(GEOSGetCentroid_r(handle_, shape.get()));
    PL_PNT2D_record p = {};
    done(GEOSGeomGetX_r(handle_, centre.get(), &p.x));
    done(GEOSGeomGetY_r(handle_, centre.get(), &p.y));
    return p;
}

}  // namespace witness
