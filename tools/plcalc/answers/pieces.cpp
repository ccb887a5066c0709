#include "answers/pieces.h"

#include <cmath>
#include <cstddef>

namespace {

using Ring = std::vector<PL_PNT2D_record>;

// A crossing nearer to an end of the line than this part of its length is that end: at a vertex, both sides
// that share it report a crossing.
constexpr long double kSamePointRel = 1e-9L;

// A place where the unlimited line meets a side.
struct Crossing {
    long double along;  // distance from p towards q
};

// The line p-q as an axis, with distances `along` it and `left` of it.
class Axis {
public:
    Axis(const PL_PNT2D_record& p, const PL_PNT2D_record& q) : p_(p)
    {
        const long double dx = static_cast<long double>(q.x) - p.x;
        const long double dy = static_cast<long double>(q.y) - p.y;
        length_ = std::sqrt(dx * dx + dy * dy);
        ex_ = dx / length_;
        ey_ = dy / length_;
    }
    long double length() const { return length_; }
    long double along(const PL_PNT2D_record& v) const
    {
        return (static_cast<long double>(v.x) - p_.x) * ex_ + (static_cast<long double>(v.y) - p_.y) * ey_;
    }
    long double left(const PL_PNT2D_record& v) const
    {
        return (static_cast<long double>(v.y) - p_.y) * ex_ - (static_cast<long double>(v.x) - p_.x) * ey_;
    }
    PL_PNT2D_record at(long double along) const
    {
        return {static_cast<double>(p_.x + along * ex_), static_cast<double>(p_.y + along * ey_)};
    }

private:
    PL_PNT2D_record p_;
    long double length_;
    long double ex_;
    long double ey_;
};

const PL_PNT2D_record& end_of(const Ring& ring, std::size_t side)
{
    return ring[(side + 1) % ring.size()];
}

// Lists every side that the line meets, ends included: at a vertex on the line, both of its sides. A side
// that lies in the line is listed with its middle; its neighbours are listed with its ends.
std::vector<Crossing> crossings(const Ring& ring, const Axis& axis)
{
    std::vector<Crossing> found;
    for (std::size_t side = 0; side < ring.size(); ++side) {
        const long double a = axis.left(ring[side]);
        const long double b = axis.left(end_of(ring, side));
        if (!(a <= 0.0L && b >= 0.0L) && !(a >= 0.0L && b <= 0.0L))
            continue;
        const long double from = axis.along(ring[side]);
        const long double to = axis.along(end_of(ring, side));
        if (a == b)
            found.push_back({(from + to) * 0.5L});
        else
            found.push_back({b == 0.0L ? to : from + (to - from) * (a / (a - b))});
    }
    return found;
}

const Crossing* nearest(const std::vector<Crossing>& found, long double along, long double slack)
{
    const Crossing* best = nullptr;
    long double best_distance = slack;
    for (const Crossing& c : found) {
        const long double distance = std::fabs(c.along - along);
        if (distance <= best_distance) {
            best = &c;
            best_distance = distance;
        }
    }
    return best;
}

bool any_between(const std::vector<Crossing>& found, long double from, long double to)
{
    const long double margin = (to - from) * kSamePointRel;
    for (const Crossing& c : found)
        if (c.along > from + margin && c.along < to - margin)
            return true;
    return false;
}

// Counts the sides, each without its upper end, that a ray to the East crosses. The point is not on the
// boundary.
bool contains(const Ring& ring, const PL_PNT2D_record& p)
{
    bool inside = false;
    for (std::size_t side = 0; side < ring.size(); ++side) {
        const PL_PNT2D_record& a = ring[side];
        const PL_PNT2D_record& b = end_of(ring, side);
        if ((a.y > p.y) == (b.y > p.y))
            continue;
        const long double t = (static_cast<long double>(p.y) - a.y) / (static_cast<long double>(b.y) - a.y);
        if (p.x < a.x + t * (static_cast<long double>(b.x) - a.x))
            inside = !inside;
    }
    return inside;
}

}  // namespace

namespace tool {

long double signed_area(const Ring& ring)
{
    // Relative to the first vertex, so that a piece far from the origin loses no digits.
    long double twice = 0.0L;
    for (std::size_t i = 1; i + 1 < ring.size(); ++i) {
        const long double ux = static_cast<long double>(ring[i].x) - ring[0].x;
        const long double uy = static_cast<long double>(ring[i].y) - ring[0].y;
        const long double vx = static_cast<long double>(ring[i + 1].x) - ring[0].x;
        const long double vy = static_cast<long double>(ring[i + 1].y) - ring[0].y;
        twice += ux * vy - uy * vx;
    }
    return twice * 0.5L;
}

bool part_ring(const Ring& ring, const PL_PNT2D_record& p, const PL_PNT2D_record& q, long double slack,
               PL_LINE_2D_record& ends)
{
    const Axis axis(p, q);
    if (!(axis.length() > 0.0L) || !std::isfinite(axis.length()))
        return false;

    const std::vector<Crossing> found = crossings(ring, axis);
    const Crossing* from = nearest(found, 0.0L, slack);
    const Crossing* to = nearest(found, axis.length(), slack);
    if (from == nullptr || to == nullptr || !(from->along < to->along))
        return false;
    if (any_between(found, from->along, to->along))
        return false;
    if (!contains(ring, axis.at((from->along + to->along) * 0.5L)))
        return false;

    ends = {axis.at(from->along), axis.at(to->along)};
    return true;
}

}  // namespace tool
