#include "sheet/label_places.h"

#include <algorithm>
#include <cmath>

namespace tool {
namespace {

// A side this near to upright, radians, is upright.
constexpr double kUpright = 1e-6;

// Lines are looked up in cells of this size, points.
constexpr double kCell = 16.0;

std::size_t cells_across(double length)
{
    return static_cast<std::size_t>(std::max(0.0, std::ceil(length / kCell))) + 1;
}

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

LabelPlaces::LabelPlaces(const SheetBox& sheet)
    : sheet_(sheet), columns_(cells_across(sheet.width())), lines_in_(columns_ * cells_across(sheet.height()))
{}

LabelPlaces::Cells LabelPlaces::cells_of(const SheetBox& box) const
{
    const std::size_t rows = lines_in_.size() / columns_;
    const auto cell = [](double from_edge, std::size_t count) {
        return static_cast<std::size_t>(std::clamp(from_edge / kCell, 0.0, static_cast<double>(count - 1)));
    };
    return {cell(box.left - sheet_.left, columns_), cell(box.right - sheet_.left, columns_),
            cell(box.top - sheet_.top, rows), cell(box.bottom - sheet_.top, rows)};
}

void LabelPlaces::add_line(const SheetPoint& a, const SheetPoint& b)
{
    const SheetBox box = {std::min(a.x, b.x), std::min(a.y, b.y), std::max(a.x, b.x), std::max(a.y, b.y)};
    const bool outside = box.right < sheet_.left || box.left > sheet_.right || box.bottom < sheet_.top ||
                         box.top > sheet_.bottom;
    if (outside)
        return;
    const Cells cells = cells_of(box);
    for (std::size_t row = cells.top; row <= cells.bottom; ++row)
        for (std::size_t column = cells.left; column <= cells.right; ++column)
            lines_in_[row * columns_ + column].push_back(lines_.size());
    lines_.emplace_back(a, b);
}

template <class Meets> bool LabelPlaces::any_line_near(const SheetBox& box, Meets meets) const
{
    const Cells cells = cells_of(box);
    for (std::size_t row = cells.top; row <= cells.bottom; ++row)
        for (std::size_t column = cells.left; column <= cells.right; ++column)
            for (const std::size_t line : lines_in_[row * columns_ + column])
                if (meets(lines_[line]))
                    return true;
    return false;
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
    return !any_line_near(box, [&](const auto& line) { return runs_through(line.first, line.second, box); });
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
                                                        const SheetPoint& size, double angle,
                                                        bool may_cross_lines, double gap)
{
    constexpr double kCapitals = 0.8;  // of the size: as high as figures and capitals are, with a little air
    const SheetPoint extent = {size.x, kCapitals * size.y};
    for (const SheetPoint& middle : middles) {
        const std::vector<SheetPoint> beads = beads_of(middle, extent, angle);
        const SheetPoint bead = {extent.y, extent.y};
        const SheetPoint with_gap = {extent.y + 2.0 * gap, extent.y + 2.0 * gap};
        const bool free = std::all_of(beads.begin(), beads.end(), [&](const SheetPoint& p) {
            return is_free(p, with_gap, 0.0, may_cross_lines);
        });
        if (!free)
            continue;
        for (const SheetPoint& p : beads)
            take(label_box(p, bead, 0.0));
        return middle;
    }
    return std::nullopt;
}

void LabelPlaces::take_along(const SheetPoint& a, const SheetPoint& b, double width)
{
    const SheetPoint middle = {(a.x + b.x) * 0.5, (a.y + b.y) * 0.5};
    const double angle = std::atan2(b.y - a.y, b.x - a.x);
    for (const SheetPoint& p : beads_of(middle, {length_of({b.x - a.x, b.y - a.y}), width}, angle))
        take(label_box(p, {width, width}, 0.0));
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
