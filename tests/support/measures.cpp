#include "support/measures.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace test {

namespace {

Real distance_to_segment(const PL_PNT2D_record& a, const PL_PNT2D_record& b, const PL_PNT2D_record& p)
{
    const Vector d = from_to(a, b);
    const Vector w = from_to(a, p);
    const Real d2 = dot(d, d);
    Real t = d2 > 0 ? dot(w, d) / d2 : 0;
    t = std::min<Real>(1, std::max<Real>(0, t));
    return length({w.x - t * d.x, w.y - t * d.y});
}

}  // namespace

Vector from_to(const PL_PNT2D_record& a, const PL_PNT2D_record& b)
{
    return {static_cast<Real>(b.x) - a.x, static_cast<Real>(b.y) - a.y};
}

Real cross(const Vector& a, const Vector& b)
{
    return a.x * b.y - a.y * b.x;
}

Real dot(const Vector& a, const Vector& b)
{
    return a.x * b.x + a.y * b.y;
}

Real length(const Vector& v)
{
    return std::sqrt(dot(v, v));
}

Real signed_area(const Ring& ring)
{
    Real twice = 0;
    for (std::size_t i = 1; i + 1 < ring.size(); ++i)
        twice += cross(from_to(ring[0], ring[i]), from_to(ring[0], ring[i + 1]));
    return twice / 2;
}

Real perimeter(const Ring& ring)
{
    Real sum = 0;
    for (std::size_t i = 0; i < ring.size(); ++i)
        sum += length(from_to(ring[i], ring[(i + 1) % ring.size()]));
    return sum;
}

Real side_of(const PL_PNT2D_record& p, const PL_PNT2D_record& q, const PL_PNT2D_record& r)
{
    return cross(from_to(p, q), from_to(p, r));
}

Real area_left_of(const Ring& ring, const PL_PNT2D_record& p, const PL_PNT2D_record& q)
{
    // The ring without what lies to the right of the line. Coordinates count from p, which keeps them small.
    std::vector<Vector> left;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const PL_PNT2D_record& next = ring[(i + 1) % ring.size()];
        const Vector a = from_to(p, ring[i]);
        const Vector b = from_to(p, next);
        const Real sa = side_of(p, q, ring[i]);
        const Real sb = side_of(p, q, next);
        if (sa >= 0)
            left.push_back(a);
        if ((sa > 0 && sb < 0) || (sa < 0 && sb > 0)) {
            const Real t = sa / (sa - sb);
            left.push_back({a.x + t * (b.x - a.x), a.y + t * (b.y - a.y)});
        }
    }
    Real twice = 0;
    for (std::size_t i = 0; i < left.size(); ++i)
        twice += cross(left[i], left[(i + 1) % left.size()]);
    return std::fabs(twice / 2);
}

Real distance_to_boundary(const Ring& ring, const PL_PNT2D_record& p)
{
    Real nearest = HUGE_VALL;
    for (std::size_t i = 0; i < ring.size(); ++i)
        nearest = std::min(nearest, distance_to_segment(ring[i], ring[(i + 1) % ring.size()], p));
    return nearest;
}

Real distance_to_vertices(const Ring& ring, const PL_PNT2D_record& p)
{
    Real nearest = HUGE_VALL;
    for (const PL_PNT2D_record& vertex : ring)
        nearest = std::min(nearest, length(from_to(vertex, p)));
    return nearest;
}

Real distance_to_line(const PL_PNT2D_record& a, const PL_PNT2D_record& b, const PL_PNT2D_record& p)
{
    return std::fabs(side_of(a, b, p)) / length(from_to(a, b));
}

}  // namespace test
