#include "shapes.h"

#include <cmath>
#include <cstddef>

namespace test {
namespace {

// Where the unlimited line a-b meets a side.
struct Meeting {
    std::size_t side = 0;
    Point at = {};
    long double off = INFINITY;  // from the point that it was looked for at
};

Meeting meeting_near(const Shape& shape, const Point& a, const Point& b, const Point& near)
{
    Meeting best;
    for (std::size_t i = 0; i < shape.size(); ++i) {
        const Point& p = shape[i];
        const Point& q = shape[(i + 1) % shape.size()];
        const long double sp = cross(a, b, p);
        const long double sq = cross(a, b, q);
        if (sp * sq > 0.0L || sp == sq)  // a vertex on the line counts, a side in it does not
            continue;
        const long double t = sp / (sp - sq);
        const Point at = {p.x + t * (q.x - p.x), p.y + t * (q.y - p.y)};
        const long double off = std::hypot(at.x - near.x, at.y - near.y);
        if (off < best.off)
            best = {i, at, off};
    }
    return best;
}

}  // namespace

long double cross(const Point& o, const Point& p, const Point& q)
{
    return cross({p.x - o.x, p.y - o.y}, {q.x - o.x, q.y - o.y});
}

Point local(const std::vector<PL_PNT2D_record>& ring, const PL_PNT2D_record& p)
{
    return from_to(ring[0], p);
}

Shape shape_of(const std::vector<PL_PNT2D_record>& ring)
{
    Shape shape;
    for (const PL_PNT2D_record& p : ring)
        shape.push_back(local(ring, p));
    return shape;
}

long double area(const Shape& shape)
{
    long double twice = 0.0L;
    for (std::size_t i = 0; i < shape.size(); ++i) {
        const Point& p = shape[i];
        const Point& q = shape[(i + 1) % shape.size()];
        twice += cross(p, q);
    }
    return std::fabs(twice) / 2.0L;
}

long double perimeter(const Shape& shape)
{
    long double sum = 0.0L;
    for (std::size_t i = 0; i < shape.size(); ++i) {
        const Point& p = shape[i];
        const Point& q = shape[(i + 1) % shape.size()];
        sum += length({q.x - p.x, q.y - p.y});
    }
    return sum;
}

Shape left_of(const Shape& shape, const Point& a, const Point& b)
{
    Shape left;
    for (std::size_t i = 0; i < shape.size(); ++i) {
        const Point& p = shape[i];
        const Point& q = shape[(i + 1) % shape.size()];
        const long double sp = cross(a, b, p);
        const long double sq = cross(a, b, q);
        if (sp >= 0.0L)
            left.push_back(p);
        if ((sp > 0.0L && sq < 0.0L) || (sp < 0.0L && sq > 0.0L)) {
            const long double t = sp / (sp - sq);
            left.push_back({p.x + t * (q.x - p.x), p.y + t * (q.y - p.y)});
        }
    }
    return left;
}

Shape part_after(const Shape& shape, const Point& a, const Point& b)
{
    const Meeting first = meeting_near(shape, a, b, a);
    const Meeting last = meeting_near(shape, a, b, b);
    Shape part = {first.at};
    for (std::size_t i = first.side; i != last.side; i = (i + 1) % shape.size())
        part.push_back(shape[(i + 1) % shape.size()]);
    part.push_back(last.at);
    return part;
}

}  // namespace test
