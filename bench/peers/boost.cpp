#include <boost/geometry.hpp>
#include <boost/geometry/geometries/point_xy.hpp>
#include <boost/geometry/geometries/polygon.hpp>
#include <boost/geometry/geometries/segment.hpp>

#include "peers/peers.h"

namespace bench {

namespace {

namespace bg = boost::geometry;
using Point = bg::model::d2::point_xy<double>;
using Polygon = bg::model::polygon<Point>;
using Segment = bg::model::segment<Point>;

Polygon polygon(const Ring& ring)
{
    Polygon made;
    for (const PL_PNT2D_record& p : ring)
        bg::append(made, Point(p.x, p.y));
    bg::correct(made);
    return made;
}

Segment segment(const PL_LINE_2D_record& s)
{
    return {Point(s.start.x, s.start.y), Point(s.end.x, s.end.y)};
}

class BoostParcel : public Peer {
public:
    explicit BoostParcel(const Ring& ring) : parcel_(polygon(ring)) {}

    const char* name() const override { return "Boost"; }
    double area() const override { return bg::area(parcel_); }
    double perimeter() const override { return bg::perimeter(parcel_); }
    bool holds(const PL_PNT2D_record& p) const override { return bg::within(Point(p.x, p.y), parcel_); }
    double area_within(const Ring& convex) const override
    {
        std::vector<Polygon> common;
        bg::intersection(parcel_, polygon(convex), common);
        double area = 0.0;
        for (const Polygon& part : common)
            area += bg::area(part);
        return area;
    }

private:
    Polygon parcel_;
};

}  // namespace

std::unique_ptr<Peer> boost_parcel(const Ring& ring)
{
    return std::make_unique<BoostParcel>(ring);
}

bool boost_segments(const PL_LINE_2D_record& s, const PL_LINE_2D_record& t, PL_PNT2D_record& out)
{
    std::vector<Point> common;
    bg::intersection(segment(s), segment(t), common);
    if (common.empty())
        return false;
    out = {common.front().x(), common.front().y()};
    return true;
}

double boost_distances(const PL_LINE_2D_record& line, const Ring& points)
{
    const Segment base = segment(line);
    double sum = 0.0;
    for (const PL_PNT2D_record& p : points)
        sum += bg::distance(Point(p.x, p.y), base);
    return sum;
}

}  // namespace bench
