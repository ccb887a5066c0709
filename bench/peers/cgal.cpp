#include <CGAL/Boolean_set_operations_2.h>
#include <CGAL/Exact_predicates_exact_constructions_kernel.h>
#include <CGAL/Exact_predicates_inexact_constructions_kernel.h>
#include <CGAL/Polygon_2.h>
#include <CGAL/Polygon_with_holes_2.h>

#include <boost/variant.hpp>
#include <cmath>

#include "peers/peers.h"

namespace bench {

namespace {

// Measures with doubles; polygon intersection needs exact constructions.
using Inexact = CGAL::Exact_predicates_inexact_constructions_kernel;
using Exact = CGAL::Exact_predicates_exact_constructions_kernel;

template <class Kernel> CGAL::Polygon_2<Kernel> polygon(const Ring& ring)
{
    CGAL::Polygon_2<Kernel> made;
    for (const PL_PNT2D_record& p : ring)
        made.push_back({p.x, p.y});
    return made;
}

Inexact::Point_2 point(const PL_PNT2D_record& p)
{
    return {p.x, p.y};
}

class CgalParcel : public Peer {
public:
    explicit CgalParcel(const Ring& ring) : parcel_(polygon<Inexact>(ring)), exact_(polygon<Exact>(ring)) {}

    const char* name() const override { return "CGAL"; }
    double area() const override { return parcel_.area(); }
    double perimeter() const override
    {
        double sum = 0.0;
        for (auto edge = parcel_.edges_begin(); edge != parcel_.edges_end(); ++edge)
            sum += std::sqrt(edge->squared_length());
        return sum;
    }
    bool holds(const PL_PNT2D_record& p) const override
    {
        return parcel_.bounded_side(point(p)) == CGAL::ON_BOUNDED_SIDE;
    }
    double area_within(const Ring& convex) const override
    {
        std::vector<CGAL::Polygon_with_holes_2<Exact>> common;
        CGAL::intersection(exact_, polygon<Exact>(convex), std::back_inserter(common));
        double area = 0.0;
        for (const auto& part : common)
            area += CGAL::to_double(part.outer_boundary().area());
        return area;
    }

private:
    CGAL::Polygon_2<Inexact> parcel_;
    CGAL::Polygon_2<Exact> exact_;
};

}  // namespace

std::unique_ptr<Peer> cgal_parcel(const Ring& ring)
{
    return std::make_unique<CgalParcel>(ring);
}

bool cgal_segments(const PL_LINE_2D_record& s, const PL_LINE_2D_record& t, PL_PNT2D_record& out)
{
    const auto common = CGAL::intersection(Inexact::Segment_2(point(s.start), point(s.end)),
                                           Inexact::Segment_2(point(t.start), point(t.end)));
    if (!common)
        return false;
    const auto* at = boost::get<Inexact::Point_2>(&*common);
    if (at == nullptr)
        return false;
    out = {at->x(), at->y()};
    return true;
}

double cgal_distances(const PL_LINE_2D_record& line, const Ring& points)
{
    const Inexact::Line_2 base(point(line.start), point(line.end));
    double sum = 0.0;
    for (const PL_PNT2D_record& p : points)
        sum += std::sqrt(CGAL::squared_distance(base, point(p)));
    return sum;
}

}  // namespace bench
