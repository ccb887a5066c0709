#include <geos_c.h>

#include "peers/peers.h"

namespace bench {

namespace {

GEOSContextHandle_t context()
{
    static GEOSContextHandle_t handle = GEOS_init_r();
    return handle;
}

GEOSGeometry* polygon(const Ring& ring)
{
    const unsigned n = static_cast<unsigned>(ring.size());
    GEOSCoordSequence* points = GEOSCoordSeq_create_r(context(), n + 1, 2);
    for (unsigned i = 0; i <= n; ++i)
        GEOSCoordSeq_setXY_r(context(), points, i, ring[i % n].x, ring[i % n].y);
    return GEOSGeom_createPolygon_r(context(), GEOSGeom_createLinearRing_r(context(), points), nullptr, 0);
}

double area_of(const GEOSGeometry* geometry)
{
    double area = 0.0;
    GEOSArea_r(context(), geometry, &area);
    return area;
}

class GeosParcel : public Peer {
public:
    explicit GeosParcel(const Ring& ring)
        : parcel_(polygon(ring)), prepared_(GEOSPrepare_r(context(), parcel_))
    {}
    GeosParcel(const GeosParcel&) = delete;
    GeosParcel& operator=(const GeosParcel&) = delete;
    ~GeosParcel() override
    {
        GEOSPreparedGeom_destroy_r(context(), prepared_);
        GEOSGeom_destroy_r(context(), parcel_);
    }

    const char* name() const override { return "GEOS"; }
    double area() const override { return area_of(parcel_); }
    double perimeter() const override
    {
        double length = 0.0;
        GEOSLength_r(context(), parcel_, &length);
        return length;
    }
    bool holds(const PL_PNT2D_record& p) const override
    {
        GEOSGeometry* point = GEOSGeom_createPointFromXY_r(context(), p.x, p.y);
        const bool inside = GEOSPreparedContains_r(context(), prepared_, point) == 1;
        GEOSGeom_destroy_r(context(), point);
        return inside;
    }
    double area_within(const Ring& convex) const override
    {
        GEOSGeometry* window = polygon(convex);
        GEOSGeometry* common = GEOSIntersection_r(context(), parcel_, window);
        const double area = area_of(common);
        GEOSGeom_destroy_r(context(), common);
        GEOSGeom_destroy_r(context(), window);
        return area;
    }

private:
    GEOSGeometry* parcel_;
    const GEOSPreparedGeometry* prepared_;
};

}  // namespace

std::unique_ptr<Peer> geos_parcel(const Ring& ring)
{
    return std::make_unique<GeosParcel>(ring);
}

bool geos_segments(const PL_LINE_2D_record& s, const PL_LINE_2D_record& t, PL_PNT2D_record& out)
{
    return GEOSSegmentIntersection_r(context(), s.start.x, s.start.y, s.end.x, s.end.y, t.start.x, t.start.y,
                                     t.end.x, t.end.y, &out.x, &out.y) == 1;
}

double geos_distances(const PL_LINE_2D_record& line, const Ring& points)
{
    GEOSCoordSequence* ends = GEOSCoordSeq_create_r(context(), 2, 2);
    GEOSCoordSeq_setXY_r(context(), ends, 0, line.start.x, line.start.y);
    GEOSCoordSeq_setXY_r(context(), ends, 1, line.end.x, line.end.y);
    GEOSGeometry* segment = GEOSGeom_createLineString_r(context(), ends);
    double sum = 0.0;
    for (const PL_PNT2D_record& p : points) {
        GEOSGeometry* point = GEOSGeom_createPointFromXY_r(context(), p.x, p.y);
        double distance = 0.0;
        GEOSDistance_r(context(), segment, point, &distance);
        sum += distance;
        GEOSGeom_destroy_r(context(), point);
    }
    GEOSGeom_destroy_r(context(), segment);
    return sum;
}

GeosClipped::GeosClipped(const Ring& ring) : parcel_(polygon(ring))
{}

GeosClipped::~GeosClipped()
{
    GEOSGeom_destroy_r(context(), static_cast<GEOSGeometry*>(parcel_));
}

double GeosClipped::area_below(double top) const
{
    GEOSGeometry* part =
        GEOSClipByRect_r(context(), static_cast<const GEOSGeometry*>(parcel_), -1e6, -1e6, 1e6, top);
    const double area = area_of(part);
    GEOSGeom_destroy_r(context(), part);
    return area;
}

}  // namespace bench
