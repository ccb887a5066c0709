#include "reading/boundary.h"

#include <algorithm>
#include <memory>
#include <string>

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

Boundary vertices_of(const OGRSimpleCurve& line)
{
    Boundary boundary;
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

Boundary boundary_of(const OGRGeometry& geometry, const Place& place)
{
    const OGRGeometry& inner = single_member(geometry);
    if (inner.IsEmpty())
        refuse(place, "the geometry is empty", "draw the parcel, or choose another feature with --feature");
    if (inner.hasCurveGeometry(TRUE))
        refuse(place, "the boundary has curves",
               "replace them with chords first, for example with ogr2ogr -nlt CONVERT_TO_LINEAR");
    const std::unique_ptr<OGRGeometry> straight(inner.getLinearGeometry());
    const OGRwkbGeometryType type = wkbFlatten(straight->getGeometryType());
    if (type == wkbLineString && is_closed_line(*straight))
        return vertices_of(*straight->toLineString());
    if (type != wkbPolygon && type != wkbTriangle)
        refuse(place, std::string("the geometry is a ") + straight->getGeometryName(),
               "a polygon or a closed line is needed");

    const OGRPolygon& polygon = *straight->toPolygon();
    if (polygon.getNumInteriorRings() > 0)
        refuse(place, "the parcel has holes (" + std::to_string(polygon.getNumInteriorRings()) + ")",
               "only a parcel with one boundary can be divided");
    return vertices_of(*polygon.getExteriorRing());
}

}  // namespace tool
