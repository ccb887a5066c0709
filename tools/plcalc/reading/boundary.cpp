#include "reading/boundary.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <string>
#include <utility>

namespace tool {
namespace {

using plparcel::Ring;

[[noreturn]] void refuse(const Place& place, const std::string& problem, const std::string& advice)
{
    throw Failure(ExitStatus::unusable_input, place, problem, advice);
}

// The only member of a collection, however deep; the geometry itself if it is not a collection.
const OGRGeometry& single_member(const OGRGeometry& geometry)
{
    const OGRGeometry* inner = &geometry;
    while (OGR_GT_IsSubClassOf(inner->getGeometryType(), wkbGeometryCollection)) {
        const OGRGeometryCollection* parts = inner->toGeometryCollection();
        if (parts->getNumGeometries() != 1)
            break;
        inner = parts->getGeometryRef(0);
    }
    return *inner;
}

bool is_closed_line(const OGRGeometry& geometry)
{
    if (!OGR_GT_IsCurve(geometry.getGeometryType()) || geometry.IsEmpty())
        return false;
    OGRPoint first;
    OGRPoint last;
    const OGRCurve* line = geometry.toCurve();
    line->StartPoint(&first);
    line->EndPoint(&last);
    // Heights do not count: a boundary that ends higher than it began is closed all the same.
    return line->getNumPoints() > 2 && first.getX() == last.getX() && first.getY() == last.getY();
}

Boundary vertices_of(const OGRSimpleCurve& line, bool had_arcs)
{
    Boundary boundary;
    boundary.had_arcs = had_arcs;
    for (int i = 0; i < line.getNumPoints(); ++i) {
        boundary.ring.push_back({line.getX(i), line.getY(i)});
        if (line.Is3D())
            boundary.heights.push_back(line.getZ(i));
    }
    drop_closing_vertex(boundary.ring);
    if (line.Is3D())
        boundary.heights.resize(boundary.ring.size());
    return boundary;
}

// The heights of all vertices.
class AllHeights : public OGRDefaultConstGeometryVisitor {
public:
    using OGRDefaultConstGeometryVisitor::visit;

    void visit(const OGRPoint* p) override { heights.push_back(p->getZ()); }

    std::vector<double> heights;
};

// The largest radius of the arcs of a geometry.
class LargestRadius : public OGRDefaultConstGeometryVisitor {
public:
    using OGRDefaultConstGeometryVisitor::visit;

    void visit(const OGRCircularString* arcs) override
    {
        for (int i = 0; i + 2 < arcs->getNumPoints(); i += 2) {
            double radius = 0.0;
            double ignored = 0.0;
            if (OGRGeometryFactory::GetCurveParameters(
                    arcs->getX(i), arcs->getY(i), arcs->getX(i + 1), arcs->getY(i + 1), arcs->getX(i + 2),
                    arcs->getY(i + 2), radius, ignored, ignored, ignored, ignored, ignored))
                largest_ = std::max(largest_, radius);
        }
    }

    double largest() const { return largest_; }

private:
    double largest_ = 0.0;
};

// The angle of chords that stay within the tolerance of all arcs; at most an eighth of a circle.
double degrees_of_chords(const OGRGeometry& geometry, double tolerance)
{
    constexpr double kMostDegrees = 45.0;
    constexpr double kDegrees = 57.29577951308232;
    LargestRadius radius;
    geometry.accept(&radius);
    const double turn_rad = 2.0 * std::acos(std::max(0.0, 1.0 - tolerance / radius.largest()));
    return std::min(kMostDegrees, turn_rad * kDegrees);
}

}  // namespace

void drop_closing_vertex(Ring& ring)
{
    if (ring.size() > 1 && ring.front().x == ring.back().x && ring.front().y == ring.back().y)
        ring.pop_back();
}

bool bounds_area(const OGRGeometry& geometry)
{
    const OGRGeometry& inner = single_member(geometry);
    const OGRwkbGeometryType type = inner.getGeometryType();
    return OGR_GT_IsSurface(type) || OGR_GT_IsSubClassOf(type, wkbMultiSurface) || is_closed_line(inner);
}

KnownHeights heights_of(const OGRGeometry& geometry)
{
    AllHeights all;
    if (geometry.Is3D())
        geometry.accept(&all);
    KnownHeights known;
    known.add(all.heights);
    return known;
}

int parts_of(const OGRGeometry& geometry)
{
    const OGRGeometry& inner = single_member(geometry);
    if (!OGR_GT_IsSubClassOf(inner.getGeometryType(), wkbMultiSurface))
        return 1;
    return std::max(1, inner.toGeometryCollection()->getNumGeometries());
}

const OGRGeometry& part_of(const OGRGeometry& geometry, int part)
{
    return parts_of(geometry) == 1 ? geometry
                                   : *single_member(geometry).toGeometryCollection()->getGeometryRef(part);
}

Failure without_geometry(const Place& place)
{
    return {ExitStatus::unusable_input, place, "the feature has no geometry",
            "draw the parcel, or choose another feature with --feature"};
}

Failure with_arcs(const Place& place)
{
    return {
        ExitStatus::unusable_input, place, "the boundary has arcs",
        "replace them with chords, as --arcs 0.005 does, which keeps the chords within 0.005 of the arcs"};
}

Failure without_splines(const Place& place)
{
    return {ExitStatus::unusable_input, place, "the boundary is an ellipse or a spline",
            "replace it with chords in the drawing first"};
}

Boundary boundary_of(const OGRGeometry& geometry, const Place& place, const std::optional<double>& arcs)
{
    const OGRGeometry& inner = single_member(geometry);
    if (inner.IsEmpty())
        refuse(place, "the geometry is empty", "draw the parcel, or choose another feature with --feature");
    const bool curved = inner.hasCurveGeometry(TRUE) != FALSE;
    if (curved && !arcs)
        throw with_arcs(place);
    const std::unique_ptr<OGRGeometry> straight(
        inner.getLinearGeometry(curved ? degrees_of_chords(inner, *arcs) : 0.0));
    const OGRwkbGeometryType type = wkbFlatten(straight->getGeometryType());
    if (type == wkbLineString && is_closed_line(*straight))
        return vertices_of(*straight->toLineString(), curved);
    if (type != wkbPolygon && type != wkbTriangle)
        refuse(place, std::string("the geometry is a ") + straight->getGeometryName(),
               "a polygon or a closed line is needed");

    const OGRPolygon& polygon = *straight->toPolygon();
    Boundary boundary = vertices_of(*polygon.getExteriorRing(), curved);
    std::size_t vertices = boundary.ring.size();
    for (int i = 0; i < polygon.getNumInteriorRings(); ++i) {
        Boundary hole = vertices_of(*polygon.getInteriorRing(i), curved);
        boundary.holes.push_back(std::move(hole.ring));
        boundary.heights.insert(boundary.heights.end(), hole.heights.begin(), hole.heights.end());
        vertices += boundary.holes.back().size();
    }
    // Of a polygon all rings are in space, or none is.
    if (boundary.heights.size() != vertices)
        boundary.heights.clear();
    return boundary;
}

}  // namespace tool
