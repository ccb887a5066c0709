#include "boundary/locate.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace plparcel {
namespace {

// Of a point from a side: how far off its line, and how far along it, caller's unit.
struct Offset {
    double off;
    double along;
    double length;
};

Offset offset_from(const MeasuredRing& ring, std::size_t side, const PL_PNT2D_record& p)
{
    const WidePoint d = from_to(ring[side], ring.at(side + 1));
    const WidePoint w = from_to(ring[side], p);
    const double length = std::hypot(d.x.value(), d.y.value());
    return {(cross(d, w) / length).value(), (dot(d, w) / length).value(), length};
}

bool is_inside(const MeasuredRing& ring, const PL_PNT2D_record& p)
{
    bool inside = false;
    for (std::size_t side = 0; side < ring.size(); ++side) {
        const PL_PNT2D_record& a = ring[side];
        const PL_PNT2D_record& b = ring.at(side + 1);
        if ((a.y > p.y) == (b.y > p.y))
            continue;
        const Wide off = cross(from_to(a, b), from_to(a, p));
        if ((off > 0.0) == (b.y > a.y))
            inside = !inside;
    }
    return inside;
}

}  // namespace

bool is_at_vertex(const MeasuredRing& ring, const PL_PNT2D_record& vertex, const PL_PNT2D_record& p)
{
    const double reach = kVertexRoundings * ring.spacing();
    return std::fabs(p.x - vertex.x) <= reach && std::fabs(p.y - vertex.y) <= reach;
}

bool is_on_side(const MeasuredRing& ring, std::size_t side, const PL_PNT2D_record& p)
{
    const double reach = kSideRoundings * ring.spacing();
    const Offset offset = offset_from(ring, side, p);
    return std::fabs(offset.off) <= reach && -reach <= offset.along && offset.along <= offset.length + reach;
}

Location locate(const MeasuredRing& ring, const PL_PNT2D_record& p)
{
    const Extent& box = ring.extent();
    const double reach = kVertexRoundings * ring.spacing();
    const bool near = box.low.x - reach <= p.x && p.x <= box.high.x + reach && box.low.y - reach <= p.y &&
                      p.y <= box.high.y + reach;
    if (!near)
        return {};
    Location nearest;
    double least = std::numeric_limits<double>::infinity();
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const double away = std::hypot(p.x - ring[i].x, p.y - ring[i].y);
        if (away < least && is_at_vertex(ring, ring[i], p)) {
            least = away;
            nearest = {Location::Where::at_vertex, i};
        }
    }
    if (nearest.where == Location::Where::at_vertex)
        return nearest;
    for (std::size_t side = 0; side < ring.size(); ++side) {
        if (!is_on_side(ring, side, p))
            continue;
        const double away = std::fabs(offset_from(ring, side, p).off);
        if (away < least) {
            least = away;
            nearest = {Location::Where::on_side, side};
        }
    }
    if (nearest.where == Location::Where::on_side)
        return nearest;
    return {is_inside(ring, p) ? Location::Where::inside : Location::Where::outside, 0};
}

PL_PNT2D_record place_on_side(const MeasuredRing& ring, std::size_t side, double along)
{
    const WidePoint d = from_to(ring[side], ring.at(side + 1));
    const Wide part = Wide(along) / sqrt(dot(d, d));
    return {(d.x * part + ring[side].x).value(), (d.y * part + ring[side].y).value()};
}

PL_PNT2D_record foot_on_side(const MeasuredRing& ring, std::size_t side, const PL_PNT2D_record& p)
{
    const WidePoint d = from_to(ring[side], ring.at(side + 1));
    const Wide part = dot(d, from_to(ring[side], p)) / dot(d, d);
    return {(d.x * part + ring[side].x).value(), (d.y * part + ring[side].y).value()};
}

double side_length(const MeasuredRing& ring, std::size_t side)
{
    const WidePoint d = from_to(ring[side], ring.at(side + 1));
    return sqrt(dot(d, d)).value();
}

}  // namespace plparcel
