#include "reading/boundary.h"

#include <cmath>
#include <memory>

#include "console/failure.h"

namespace tool {
namespace {

using plparcel::Ring;

[[noreturn]] void refuse(const std::string& where, const std::string& what)
{
    throw Failure(ExitStatus::unusable_input, where + ": " + what);
}

// The member of a collection of one, of whatever depth; the geometry itself when it is none.
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
    // In plan: a boundary that ends higher than it began is closed all the same.
    return line->getNumPoints() > 2 && first.getX() == last.getX() && first.getY() == last.getY();
}

Ring vertices_of(const OGRSimpleCurve& line)
{
    Ring ring;
    for (int i = 0; i < line.getNumPoints(); ++i)
        ring.push_back({line.getX(i), line.getY(i)});
    return ring;
}

void drop_closing_vertex(Ring& ring)
{
    if (ring.size() > 1 && ring.front().x == ring.back().x && ring.front().y == ring.back().y)
        ring.pop_back();
}

std::string side_name(std::size_t side, const Ring& ring)
{
    return "side " + std::to_string(side + 1) + ", from vertex " + std::to_string(side + 1) + " to " +
           std::to_string((side + 1) % ring.size() + 1);
}

bool may_be_degrees(const Ring& ring)
{
    constexpr double kMaxLongitude = 360.0;
    constexpr double kMaxLatitude = 90.0;
    for (const PL_PNT2D_record& p : ring)
        if (std::fabs(p.x) > kMaxLongitude || std::fabs(p.y) > kMaxLatitude)
            return false;
    return true;
}

// South African and old Bohemian grids, among others: bearings and sides would come out mirrored or turned.
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

bool bounds_area(const OGRGeometry& geometry)
{
    const OGRGeometry& inner = single_member(geometry);
    const OGRwkbGeometryType type = inner.getGeometryType();
    return OGR_GT_IsSurface(type) || OGR_GT_IsSubClassOf(type, wkbMultiSurface) || is_closed_line(inner);
}

Ring usable_ring(const OGRGeometry& geometry, const std::string& where)
{
    const OGRGeometry& inner = single_member(geometry);
    if (inner.IsEmpty())
        refuse(where, "the geometry is empty; draw the parcel or choose another feature with --feature");
    if (inner.hasCurveGeometry(TRUE))
        refuse(where, "the boundary has curves; replace them by chords first, for example with "
                      "ogr2ogr -nlt CONVERT_TO_LINEAR");
    const std::unique_ptr<OGRGeometry> straight(inner.getLinearGeometry());
    const OGRwkbGeometryType type = wkbFlatten(straight->getGeometryType());
    if (type == wkbMultiPolygon)
        refuse(where, "the parcel has " + std::to_string(straight->toMultiPolygon()->getNumGeometries()) +
                          " parts; divide them one by one: ogr2ogr -explodecollections makes each a feature");
    if (type == wkbLineString)
        return usable_ring(vertices_of(*straight->toLineString()), where);
    if (type != wkbPolygon && type != wkbTriangle)
        refuse(where, std::string("the geometry is a ") + straight->getGeometryName() +
                          "; a polygon or a closed line is needed");

    const OGRPolygon& polygon = *straight->toPolygon();
    if (polygon.getNumInteriorRings() > 0)
        refuse(where, "the parcel has holes (" + std::to_string(polygon.getNumInteriorRings()) +
                          "); only a parcel with one boundary can be divided");
    return usable_ring(vertices_of(*polygon.getExteriorRing()), where);
}

Ring usable_ring(Ring vertices, const std::string& where)
{
    drop_closing_vertex(vertices);
    for (std::size_t i = 0; i < vertices.size(); ++i)
        if (!std::isfinite(vertices[i].x) || !std::isfinite(vertices[i].y))
            refuse(where,
                   "vertex " + std::to_string(i + 1) + " has a coordinate that is not finite; correct it");
    const plparcel::RingReport report = plparcel::check_ring(vertices);
    switch (report.status) {
    case plparcel::BoundaryStatus::usable:
        return vertices;
    case plparcel::BoundaryStatus::too_few_vertices:
    case plparcel::BoundaryStatus::flat:
        refuse(where, "the parcel has fewer than three different vertices, or all of them on one line; "
                      "correct its coordinates");
    case plparcel::BoundaryStatus::meets_itself:
        refuse(where,
               "the boundary crosses or touches itself: " + side_name(report.meeting_sides[0], vertices) +
                   ", meets " + side_name(report.meeting_sides[1], vertices) +
                   "; correct it so that every vertex and side is passed once");
    default:
        refuse(where, "the parcel is too large or too small to compute with; check its coordinates");
    }
}

void require_plane(const OGRSpatialReference* crs, bool stated, const Ring& ring, const std::string& where)
{
    if (crs == nullptr)
        return;
    const std::string name = name_of(*crs);
    if (crs->IsProjected() && counts_westwards(*crs))
        refuse(where, "the coordinates count to the West (" + name +
                          "), not to the East and North; project them first, for example with ogr2ogr -t_srs "
                          "EPSG:32632");
    if (!crs->IsGeographic() && !crs->IsGeocentric())
        return;
    // What a GeoPackage says of a layer that was written without a CRS.
    if (name == "Undefined geographic SRS")
        return;
    if (!stated && !may_be_degrees(ring))
        return;
    refuse(where, "the coordinates are not plane (" + name + ")" +
                      "; project them first, for example with ogr2ogr -t_srs EPSG:32632, or correct the "
                      "file's CRS if they are");
}

}  // namespace tool
