#include "answers/pieces.h"

#include <cmath>
#include <cstddef>

namespace {

using Ring = std::vector<PL_PNT2D_record>;

// Crossings nearer to an end than this part of the line's length are that end: at a vertex, the two sides
// that share it report it both.
constexpr long double kSamePointRel = 1e-9L;

// A place where the unlimited line meets a side.
struct Crossing {
    long double along;  // distance from p towards q
};

// The line p-q as an axis: `along` it, `left` of it.
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

// Every side that the line meets, ends included: at a vertex on the line both of its sides are listed. A side
// that lies in the line is listed by its middle; its neighbours are, at its ends.
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

// Half-open count of the sides that a ray to the East crosses. The point is not on the boundary.
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
    // Around the first vertex, so that a piece far from the origin loses nothing.
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
