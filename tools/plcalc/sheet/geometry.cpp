#include "sheet/geometry.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>

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

std::vector<SheetPoint> clipped(const std::vector<SheetPoint>& outline, const SheetBox& box)
{
    std::vector<SheetPoint> rest = outline;
    // How far a point lies inside each edge of the box.
    const std::array<std::function<double(const SheetPoint&)>, 4> edges = {
        [&](const SheetPoint& p) { return p.x - box.left; },
        [&](const SheetPoint& p) { return box.right - p.x; },
        [&](const SheetPoint& p) { return p.y - box.top; },
        [&](const SheetPoint& p) { return box.bottom - p.y; }};
    for (const auto& inside : edges) {
        std::vector<SheetPoint> kept;
        for (std::size_t i = 0; i < rest.size(); ++i) {
            const SheetPoint& a = rest[i];
            const SheetPoint& b = rest[(i + 1) % rest.size()];
            const double from = inside(a);
            const double to = inside(b);
            if (from >= 0.0)
                kept.push_back(a);
            if ((from >= 0.0) != (to >= 0.0)) {
                const double t = from / (from - to);
                kept.push_back({a.x + t * (b.x - a.x), a.y + t * (b.y - a.y)});
            }
        }
        rest = std::move(kept);
    }
    return rest;
}

std::optional<std::pair<SheetPoint, SheetPoint>> clipped_line(const SheetPoint& a, const SheetPoint& b,
                                                              const SheetBox& box)
{
    double from = 0.0;
    double to = 1.0;
    const auto clip = [&](double start, double run, double low, double high) {
        if (run == 0.0)
            return low <= start && start <= high;
        const double t1 = (low - start) / run;
        const double t2 = (high - start) / run;
        from = std::max(from, std::min(t1, t2));
        to = std::min(to, std::max(t1, t2));
        return from <= to;
    };
    if (!clip(a.x, b.x - a.x, box.left, box.right) || !clip(a.y, b.y - a.y, box.top, box.bottom))
        return std::nullopt;
    const auto at = [&](double t) { return SheetPoint{a.x + t * (b.x - a.x), a.y + t * (b.y - a.y)}; };
    return std::make_pair(at(from), at(to));
}

std::vector<std::pair<SheetPoint, SheetPoint>>
hatch_lines(const std::vector<SheetPoint>& outline, double angle, double spacing, const SheetBox& within)
{
    // Turned so that the lines are level.
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    const auto turned = [&](const SheetPoint& p) { return SheetPoint{c * p.x + s * p.y, c * p.y - s * p.x}; };
    std::vector<SheetPoint> level;
    level.reserve(outline.size());
    for (const SheetPoint& p : outline)
        level.push_back(turned(p));
    const SheetBox box = box_around(level);
    const SheetBox frame =
        box_around({turned({within.left, within.top}), turned({within.right, within.top}),
                    turned({within.left, within.bottom}), turned({within.right, within.bottom})});
    std::vector<std::pair<SheetPoint, SheetPoint>> lines;
    const double first = std::ceil(std::max(box.top, frame.top) / spacing);
    const double last = std::floor(std::min(box.bottom, frame.bottom) / spacing);
    constexpr double kMostLines = 1e5;  // a sheet has some thousands
    const int count = last >= first && last - first < kMostLines ? static_cast<int>(last - first) + 1 : 0;
    for (int step = 0; step < count; ++step) {
        const double y = (first + step) * spacing;
        std::vector<double> crossings;
        for (std::size_t i = 0; i < level.size(); ++i) {
            const SheetPoint& a = level[i];
            const SheetPoint& b = level[(i + 1) % level.size()];
            if ((a.y > y) != (b.y > y))
                crossings.push_back(a.x + (y - a.y) / (b.y - a.y) * (b.x - a.x));
        }
        std::sort(crossings.begin(), crossings.end());
        for (std::size_t i = 0; i + 1 < crossings.size(); i += 2) {
            const double from = std::max(crossings[i], frame.left);
            const double to = std::min(crossings[i + 1], frame.right);
            if (from < to)
                lines.push_back({{c * from - s * y, s * from + c * y}, {c * to - s * y, s * to + c * y}});
        }
    }
    return lines;
}

std::vector<RoomyPlace> roomy_places(const std::vector<SheetPoint>& outline)
{
    constexpr int kGrid = 30;
    constexpr double kEnoughRoom = 32.0;  // half a label
    constexpr double kThinnest = 1e-6;
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
    // A bent lane may lie between the places of the grid, and not between level lines.
    if (places.empty())
        for (const auto& [from, to] : hatch_lines(outline, 0.0, box.height() / kGrid, box))
            if (to.x - from.x > kThinnest) {
                const SheetPoint p = {(from.x + to.x) * 0.5, from.y};
                places.push_back({p, distance_to_outline(outline, p)});
            }
    std::stable_sort(places.begin(), places.end(),
                     [&](const RoomyPlace& a, const RoomyPlace& b) { return rank(a) < rank(b); });
    return places;
}

}  // namespace tool
