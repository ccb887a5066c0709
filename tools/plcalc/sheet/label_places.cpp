#include "sheet/label_places.h"

#include <algorithm>
#include <cmath>

namespace tool {
namespace {

// A side this near to upright, radians, is upright.
constexpr double kUpright = 1e-6;

// The middles of small boxes along turned text: the box around all of it is far too large.
std::vector<SheetPoint> beads_of(const SheetPoint& middle, const SheetPoint& extent, double angle)
{
    const int count = std::max(1, static_cast<int>(std::ceil(extent.x / extent.y)));
    std::vector<SheetPoint> beads;
    for (int i = 0; i < count; ++i) {
        const double along = ((i + 0.5) / count - 0.5) * extent.x;
        beads.push_back({middle.x + along * std::cos(angle), middle.y + along * std::sin(angle)});
    }
    return beads;
}

}  // namespace

SheetBox label_box(const SheetPoint& middle, const SheetPoint& size, double angle)
{
    const double c = std::fabs(std::cos(angle));
    const double s = std::fabs(std::sin(angle));
    const double half_width = 0.5 * (size.x * c + size.y * s);
    const double half_height = 0.5 * (size.x * s + size.y * c);
    return {middle.x - half_width, middle.y - half_height, middle.x + half_width, middle.y + half_height};
}

bool runs_through(const SheetPoint& a, const SheetPoint& b, const SheetBox& box)
{
    // The part of the segment inside the box, as parameters from 0 to 1.
    double from = 0.0;
    double to = 1.0;
    const auto clip = [&](double start, double run, double low, double high) {
        if (run == 0.0)
            return low < start && start < high;
        const double t1 = (low - start) / run;
        const double t2 = (high - start) / run;
        from = std::max(from, std::min(t1, t2));
        to = std::min(to, std::max(t1, t2));
        return from < to;
    };
    return clip(a.x, b.x - a.x, box.left, box.right) && clip(a.y, b.y - a.y, box.top, box.bottom);
}

std::size_t LabelPlaces::crossings(const SheetPoint& a, const SheetPoint& b) const
{
    const auto side = [](const SheetPoint& p, const SheetPoint& q, const SheetPoint& v) {
        return (q.x - p.x) * (v.y - p.y) - (q.y - p.y) * (v.x - p.x) > 0.0;
    };
    return static_cast<std::size_t>(std::count_if(lines_.begin(), lines_.end(), [&](const auto& line) {
        const auto& [p, q] = line;
        return side(a, b, p) != side(a, b, q) && side(p, q, a) != side(p, q, b);
    }));
}

bool LabelPlaces::is_clear(const SheetPoint& a, const SheetPoint& b) const
{
    return std::none_of(taken_.begin(), taken_.end(),
                        [&](const SheetBox& box) { return runs_through(a, b, box); });
}

bool LabelPlaces::is_free(const SheetPoint& middle, const SheetPoint& size, double angle,
                          bool may_cross_lines) const
{
    const SheetBox box = label_box(middle, size, angle);
    if (!sheet_.holds(box))
        return false;
    for (const SheetBox& other : taken_)
        if (box.meets(other))
            return false;
    // The box around turned text is wider than the text, so the line that the text follows would always cross
    // it.
    if (may_cross_lines || angle != 0.0)
        return true;
    return std::none_of(lines_.begin(), lines_.end(),
                        [&](const auto& line) { return runs_through(line.first, line.second, box); });
}

std::optional<SheetPoint> LabelPlaces::first_free(const std::vector<SheetPoint>& middles,
                                                  const SheetPoint& size, double angle, bool may_cross_lines)
{
    for (const bool crossing : {false, true}) {
        if (crossing && !may_cross_lines)
            break;
        for (const SheetPoint& middle : middles) {
            if (!is_free(middle, size, angle, crossing))
                continue;
            take(label_box(middle, size, angle));
            return middle;
        }
    }
    return std::nullopt;
}

std::optional<SheetPoint> LabelPlaces::first_free_along(const std::vector<SheetPoint>& middles,
                                                        const SheetPoint& extent, double angle)
{
    for (const SheetPoint& middle : middles) {
        const std::vector<SheetPoint> beads = beads_of(middle, extent, angle);
        const SheetPoint bead = {extent.y, extent.y};
        const bool free = std::all_of(beads.begin(), beads.end(),
                                      [&](const SheetPoint& p) { return is_free(p, bead, 0.0, true); });
        if (!free)
            continue;
        for (const SheetPoint& p : beads)
            take(label_box(p, bead, 0.0));
        return middle;
    }
    return std::nullopt;
}

std::vector<SheetPoint> places_around(const SheetPoint& p, const SheetPoint& first, double near)
{
    std::vector<SheetPoint> places;
    for (const double distance : {near, 1.5 * near, 2.2 * near}) {
        for (int step = 0; step <= 4; ++step) {
            for (const double turn : {step * kPi / 6.0, -step * kPi / 6.0}) {
                const SheetPoint turned = {first.x * std::cos(turn) - first.y * std::sin(turn),
                                           first.x * std::sin(turn) + first.y * std::cos(turn)};
                places.push_back(moved(p, turned, distance));
            }
        }
    }
    return places;
}

double reading_angle(const SheetPoint& a, const SheetPoint& b)
{
    const double angle = std::atan2(b.y - a.y, b.x - a.x);
    if (angle >= kPi / 2.0 - kUpright)
        return angle - kPi;
    return angle < -kPi / 2.0 - kUpright ? angle + kPi : angle;
}

}  // namespace tool
