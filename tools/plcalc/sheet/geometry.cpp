#include "sheet/geometry.h"

#include <algorithm>
#include <cmath>

namespace tool {
namespace {

double distance_to_outline(const std::vector<SheetPoint>& outline, const SheetPoint& p)
{
    double nearest = INFINITY;
    for (std::size_t i = 0; i < outline.size(); ++i) {
        const SheetPoint& a = outline[i];
        const SheetPoint& b = outline[(i + 1) % outline.size()];
        const SheetPoint run = {b.x - a.x, b.y - a.y};
        const double length2 = run.x * run.x + run.y * run.y;
        const double t =
            length2 > 0.0 ? std::clamp(((p.x - a.x) * run.x + (p.y - a.y) * run.y) / length2, 0.0, 1.0) : 0.0;
        nearest = std::min(nearest, length_of({p.x - a.x - t * run.x, p.y - a.y - t * run.y}));
    }
    return nearest;
}

SheetBox box_around(const std::vector<SheetPoint>& outline)
{
    SheetBox box = {INFINITY, INFINITY, -INFINITY, -INFINITY};
    for (const SheetPoint& p : outline)
        box = {std::min(box.left, p.x), std::min(box.top, p.y), std::max(box.right, p.x),
               std::max(box.bottom, p.y)};
    return box;
}

}  // namespace

double length_of(const SheetPoint& v)
{
    return std::sqrt(v.x * v.x + v.y * v.y);
}

SheetPoint moved(const SheetPoint& p, const SheetPoint& direction, double distance)
{
    return {p.x + direction.x * distance, p.y + direction.y * distance};
}

SheetPoint direction(const SheetPoint& from, const SheetPoint& to)
{
    const SheetPoint v = {to.x - from.x, to.y - from.y};
    const double length = length_of(v);
    return length > 0.0 ? SheetPoint{v.x / length, v.y / length} : SheetPoint{1.0, 0.0};
}

bool is_inside(const std::vector<SheetPoint>& outline, const SheetPoint& p)
{
    bool inside = false;
    for (std::size_t i = 0; i < outline.size(); ++i) {
        const SheetPoint& a = outline[i];
        const SheetPoint& b = outline[(i + 1) % outline.size()];
        if ((a.y > p.y) != (b.y > p.y) && p.x < a.x + (p.y - a.y) / (b.y - a.y) * (b.x - a.x))
            inside = !inside;
    }
    return inside;
}

std::vector<RoomyPlace> roomy_places(const std::vector<SheetPoint>& outline)
{
    constexpr int kGrid = 30;
    constexpr double kEnoughRoom = 32.0;  // half a label
    const SheetBox box = box_around(outline);
    const SheetPoint middle = {(box.left + box.right) * 0.5, (box.top + box.bottom) * 0.5};
    const auto rank = [&](const RoomyPlace& place) {
        const double off_middle = length_of({place.at.x - middle.x, place.at.y - middle.y});
        return std::make_pair(-std::min(place.room, kEnoughRoom), off_middle);
    };
    std::vector<RoomyPlace> places;
    for (int i = 1; i < kGrid; ++i) {
        for (int k = 1; k < kGrid; ++k) {
            const SheetPoint p = {box.left + box.width() * i / kGrid, box.top + box.height() * k / kGrid};
            if (is_inside(outline, p))
                places.push_back({p, distance_to_outline(outline, p)});
        }
    }
    std::stable_sort(places.begin(), places.end(),
                     [&](const RoomyPlace& a, const RoomyPlace& b) { return rank(a) < rank(b); });
    return places;
}

}  // namespace tool
