#include "plan/labels.h"

#include <algorithm>
#include <cmath>

#include "text/angles.h"

namespace tool {
namespace {

// Sizes of text, points.
constexpr double kAreaSize = 10.0;
constexpr double kLabelSize = 8.0;

// Between lines of one label, parts of its size.
constexpr double kLineStep = 1.25;

// From a side to the length of a part of it, and to the length of all of it.
constexpr double kPartGap = 7.0;
constexpr double kWholeGap = 18.0;

// Between text along a line and other labels and lines.
constexpr double kGap = 1.5;

// New points on a side that are nearer to each other than this have names across the side.
constexpr double kLevelNames = 30.0;

// A shorter part is not labelled.
constexpr double kLeastPart = 4.0;

// With more labels beside their pieces than this, the hair lines make a thicket.
constexpr std::size_t kMaxBeside = 12;

// So many corners have room for names all around them.
constexpr std::size_t kFewCorners = 40;

// So many corners and sides are tried; the tables have all of them.
constexpr std::size_t kMaxTried = 1500;

SheetPoint turned_around(const SheetPoint& p)
{
    return {-p.x, -p.y};
}

SheetPoint middle_of(const SheetPoint& a, const SheetPoint& b)
{
    return {(a.x + b.x) * 0.5, (a.y + b.y) * 0.5};
}

double distance(const SheetPoint& a, const SheetPoint& b)
{
    return length_of({b.x - a.x, b.y - a.y});
}

// Tens first, then fives, then the others: where names are left out, those that stay are easy to count from.
std::vector<std::size_t> corners_in_order(std::size_t count)
{
    std::vector<std::size_t> order;
    const auto add = [&](auto chosen) {
        for (std::size_t i = 0; i < count && order.size() < kMaxTried; ++i)
            if (chosen(i + 1))
                order.push_back(i);
    };
    if (count <= kFewCorners) {
        add([](std::size_t) { return true; });
        return order;
    }
    add([](std::size_t number) { return number == 1 || number % 10 == 0; });
    add([](std::size_t number) { return number % 10 == 5; });
    add([](std::size_t number) { return number != 1 && number % 5 != 0; });
    return order;
}

}  // namespace

PlanLabels::PlanLabels(const Plan& plan, const View& view, Canvas& canvas)
    : plan_(plan), view_(view), canvas_(canvas), places_(view.box)
{
    for (const PlanPoint& p : plan.points)
        points_.push_back(view.at(p.at));
    for (const PL_PNT2D_record& p : plan.corners.at)
        outline_.push_back(view.at(p));
    for (std::size_t i = 0; i < outline_.size(); ++i)
        places_.add_line(outline_[i], outline_[next(i)]);
    for (const PlanLine& line : plan_.lines)
        places_.add_line(point(line.from), point(line.to));
}

// What tells most comes first. Pieces come before lengths, because a hair line to a thin piece needs a gap between them.
WithoutLabel PlanLabels::draw()
{
    label_new_points();
    label_pieces();
    label_lines();
    label_parts(true);
    label_wholes();
    // Where corners are many, their names tell more: the table has the lengths by these names.
    const bool many = outline_.size() > kFewCorners;
    if (many)
        label_corners();
    label_parts(false);
    if (!many)
        label_corners();
    return without_;
}

// The direction out of the parcel, at right angles to a side.
SheetPoint PlanLabels::outwards(std::size_t side) const
{
    const SheetPoint along = direction(outline_[side], outline_[next(side)]);
    const SheetPoint left = {along.y, -along.x};
    return plan_.corners.inside_left[plan_.corners.ring[side]] ? turned_around(left) : left;
}

void PlanLabels::label_mark(const std::string& text, const SheetPoint& p, double away)
{
    const SheetPoint extent = canvas_.size_of(text, kLabelSize, true);
    std::vector<SheetPoint> places;
    constexpr int kDirections = 16;
    for (const double farther : {0.0, 8.0, 16.0, 32.0, 48.0}) {
        for (int i = 0; i < kDirections; ++i) {
            const double turn = 2.0 * kPi * i / kDirections;
            const double reach =
                away + farther + 4.0 +
                0.5 * (std::fabs(std::cos(turn)) * extent.x + std::fabs(std::sin(turn)) * extent.y);
            places.push_back(moved(p, {std::cos(turn), std::sin(turn)}, reach));
        }
    }
    if (const auto place = places_.first_free(places, {extent.x + 2.0, extent.y})) {
        const SheetPoint towards = direction(p, *place);
        canvas_.line(moved(p, towards, away), *place, kInk, 0.4);
        canvas_.text(text, *place, kLabelSize, kInk, Anchor::centre, true);
    }
}

bool PlanLabels::label_around(const std::string& text, const SheetPoint& p, const SheetPoint& first,
                              const Colour& colour, bool may_cross_lines)
{
    const SheetPoint extent = canvas_.size_of(text, kLabelSize, true);
    const double near = 0.5 * std::max(extent.x, extent.y) + 4.0;
    const auto place =
        places_.first_free(places_around(p, first, near), {extent.x + 2.0, extent.y}, 0.0, may_cross_lines);
    if (place)
        canvas_.text(text, *place, kLabelSize, colour, Anchor::centre, true);
    return place.has_value();
}

// Across the side, like the rungs of a ladder.
bool PlanLabels::label_beyond(const std::string& text, const SheetPoint& p, const SheetPoint& out,
                              bool may_cross_lines)
{
    const SheetPoint extent = canvas_.size_of(text, kSmallSize, true);
    const double angle = reading_angle({0.0, 0.0}, out);
    const auto place =
        places_.first_free_along({moved(p, out, 0.5 * extent.x + 5.0)}, extent, angle, may_cross_lines);
    if (place)
        canvas_.text(text, *place, kSmallSize, kRed, Anchor::centre, true, angle);
    return place.has_value();
}

// Beyond the end of the line, outside the parcel; around it where there is room for level text, and where it would
// cross a line otherwise. A hole is too small for a name that crosses its boundary.
void PlanLabels::label_new_points()
{
    for (std::size_t side = 0; side < plan_.sides.size(); ++side) {
        const std::vector<PlanPart>& parts = plan_.sides[side].parts;
        const SheetPoint out = outwards(side);
        double nearest = INFINITY;
        for (std::size_t i = 0; i < parts.size(); ++i)
            nearest = std::min(nearest, distance(point(parts[i].from), point(parts[i].to)));
        for (std::size_t i = 0; i + 1 < parts.size(); ++i) {
            const std::size_t end = parts[i].to;
            if (!shows(point(end)))
                continue;
            const std::string& name = plan_.points[end].name;
            const bool level = nearest > kLevelNames && label_around(name, point(end), out, kRed, false);
            const bool done = level || label_beyond(name, point(end), out, false) ||
                              label_around(name, point(end), out, kRed, false) ||
                              (!in_hole(side) && label_beyond(name, point(end), out, true));
            if (!done)
                without_.new_points.push_back(end);
        }
    }
}

void PlanLabels::label_corners()
{
    const std::size_t count = outline_.size();
    const auto shown =
        std::count_if(outline_.begin(), outline_.end(), [&](const SheetPoint& p) { return shows(p); });
    const bool few = shown <= static_cast<std::ptrdiff_t>(kFewCorners);
    for (const std::size_t i : corners_in_order(count)) {
        if (!shows(point(i)))
            continue;
        const SheetPoint before = outwards(plan_.corners.before[i]);
        const SheetPoint after = outwards(i);
        const SheetPoint away = direction({0.0, 0.0}, {before.x + after.x, before.y + after.y});
        // A hole has no room; its corners have their names around it.
        const SheetPoint out = in_hole(i) ? turned_around(away) : away;
        const bool done = few ? label_around(plan_.points[i].name, point(i), out, kInk, true)
                              : label_outside(plan_.points[i].name, point(i), out);
        without_.corners += done ? 0 : 1;
    }
    without_.corners += count > kMaxTried ? count - kMaxTried : 0;
}

// Right before the corner: farther off, a name would seem to belong to one of its many neighbours.
bool PlanLabels::label_outside(const std::string& text, const SheetPoint& p, const SheetPoint& out)
{
    const SheetPoint extent = canvas_.size_of(text, kSmallSize, true);
    const double near = 4.0 + 0.5 * (std::fabs(out.x) * extent.x + std::fabs(out.y) * extent.y);
    const auto place = places_.first_free({moved(p, out, near)}, {extent.x + 3.0, extent.y}, 0.0, false);
    if (place)
        canvas_.text(text, *place, kSmallSize, kInk, Anchor::centre, true);
    return place.has_value();
}

// Sides that are cut, or the others.
void PlanLabels::label_parts(bool of_cut_sides)
{
    std::size_t tried = 0;
    for (std::size_t side = 0; side < plan_.sides.size(); ++side) {
        const std::vector<PlanPart>& parts = plan_.sides[side].parts;
        if ((parts.size() > 1) != of_cut_sides)
            continue;
        const SheetPoint out = outwards(side);
        for (const PlanPart& part : parts) {
            if (!shows(point(part.from)) || !shows(point(part.to)))
                continue;
            const bool done = distance(point(part.from), point(part.to)) >= kLeastPart &&
                              tried++ < kMaxTried && label_part(part, out);
            without_.lengths += done ? 0 : 1;
        }
    }
}

// Along the part; across it where it is short. Beyond it, or inside the parcel where lines are in the way there.
bool PlanLabels::label_part(const PlanPart& part, const SheetPoint& out)
{
    const SheetPoint a = point(part.from);
    const SheetPoint b = point(part.to);
    const SheetPoint extent = canvas_.size_of(part.length, kSmallSize);
    const bool fits = distance(a, b) > extent.x + 4.0;
    const double angle = fits ? reading_angle(a, b) : reading_angle({0.0, 0.0}, out);
    std::vector<SheetPoint> beside;
    for (const SheetPoint& to : {out, turned_around(out)}) {
        if (!fits) {
            beside.push_back(moved(middle_of(a, b), to, 0.5 * extent.x + 4.0));
            continue;
        }
        for (const double part_of : {0.5, 0.4, 0.6, 0.3, 0.7})
            beside.push_back(moved({a.x + (b.x - a.x) * part_of, a.y + (b.y - a.y) * part_of}, to, kPartGap));
    }
    const auto place = places_.first_free_along(beside, extent, angle, false);
    if (place)
        canvas_.text(part.length, *place, kSmallSize, kGrey, Anchor::centre, false, angle);
    return place.has_value();
}

// Beyond the lengths of its parts, between two ends like those of a dimension line.
void PlanLabels::label_wholes()
{
    for (std::size_t side = 0; side < plan_.sides.size(); ++side) {
        const PlanSide& cut = plan_.sides[side];
        if (cut.parts.size() < 2)
            continue;
        const SheetPoint a = outline_[side];
        const SheetPoint b = outline_[next(side)];
        const std::string text = plan_.points[cut.parts.front().from].name + "\u2013" +
                                 plan_.points[cut.parts.back().to].name + ": " + cut.whole;
        const SheetPoint extent = canvas_.size_of(text, kSmallSize);
        if (!shows(a) || !shows(b) || distance(a, b) < extent.x) {
            ++without_.lengths;
            continue;
        }
        std::vector<SheetPoint> beside;
        for (const double gap : {kWholeGap, kWholeGap + 8.0, kWholeGap + 16.0, kWholeGap + 32.0})
            for (const double part : {0.5, 0.35, 0.65, 0.2, 0.8})
                beside.push_back(
                    moved({a.x + (b.x - a.x) * part, a.y + (b.y - a.y) * part}, outwards(side), gap));
        const double angle = reading_angle(a, b);
        const auto place = places_.first_free_along(beside, extent, angle, false, kGap);
        if (place)
            canvas_.text(text, *place, kSmallSize, kInk, Anchor::centre, false, angle);
        else
            ++without_.lengths;
    }
}

// Length and bearing along the line, or the length alone: along it, or across a short one.
void PlanLabels::label_lines()
{
    const std::string unit = plan_.unit.name.empty() ? "" : " " + plan_.unit.name;
    for (const PlanLine& line : plan_.lines) {
        const SheetPoint a = point(line.from);
        const SheetPoint b = point(line.to);
        const std::string length = line.length + unit;
        const std::string both = length + "   " + with_angle_sign(line.bearing, plan_.angles);
        const bool done = shows(a) && shows(b) && distance(a, b) >= kLeastPart &&
                          (label_along(both, a, b) || label_along(length, a, b) || label_rung(length, a, b));
        without_.lengths += done ? 0 : 1;
    }
}

// Beside the line, on either side of it, wherever it is free.
bool PlanLabels::label_along(const std::string& text, const SheetPoint& a, const SheetPoint& b)
{
    constexpr double kFromEnds = 5.0;
    constexpr double kFromLine = 6.5;
    constexpr int kSteps = 12;
    const SheetPoint extent = canvas_.size_of(text, kSmallSize);
    const SheetPoint along = direction(a, b);
    // How far the middle of the text may lie from the middle of the line.
    const double most = 0.5 * (distance(a, b) - extent.x) - kFromEnds;
    if (most < 0.0)
        return false;
    std::vector<SheetPoint> beside;
    for (int step = 0; step <= kSteps; ++step)
        for (const double off : {most * step / kSteps, -most * step / kSteps})
            for (const double side : {kFromLine, -kFromLine})
                beside.push_back(moved(moved(middle_of(a, b), along, off), {along.y, -along.x}, side));
    return write_red(text, beside, extent, reading_angle(a, b));
}

// At right angles to the line, beside its middle.
bool PlanLabels::label_rung(const std::string& text, const SheetPoint& a, const SheetPoint& b)
{
    const SheetPoint extent = canvas_.size_of(text, kSmallSize);
    const SheetPoint along = direction(a, b);
    const SheetPoint across = {along.y, -along.x};
    const double away = 0.5 * extent.x + 5.0;
    return write_red(text, {moved(middle_of(a, b), across, away), moved(middle_of(a, b), across, -away)},
                     extent, reading_angle({0.0, 0.0}, across));
}

bool PlanLabels::write_red(const std::string& text, const std::vector<SheetPoint>& places,
                           const SheetPoint& extent, double angle)
{
    const auto place = places_.first_free_along(places, extent, angle, false, kGap);
    if (place)
        canvas_.text(text, *place, kSmallSize, kRed, Anchor::centre, false, angle);
    return place.has_value();
}

// Name and area in the piece, or the name alone, or both beside it with a hair line.
void PlanLabels::label_pieces()
{
    for (std::size_t i = 0; i < plan_.pieces.size(); ++i) {
        const PlanPiece& piece = plan_.pieces[i];
        std::vector<SheetPoint> outline;
        for (const PL_PNT2D_record& p : piece.ring)
            outline.push_back(view_.at(p));
        outline = clipped(outline, view_.box);
        if (outline.empty())
            continue;
        const std::string area = plan_.area_text(piece.area);
        const std::vector<RoomyPlace> inside = roomy_places(outline);
        if (label_inside({piece.name, area}, inside) || label_inside({piece.name + "  " + area}, inside) ||
            label_inside({piece.name}, inside))
            continue;
        if (!label_beside(piece.name + "  " + area, inside) && !label_across(piece.name, inside))
            without_.pieces.push_back(i);
    }
}

void PlanLabels::write_lines(const std::vector<std::string>& lines, const SheetPoint& middle, double size)
{
    double y = middle.y - 0.5 * kLineStep * size * static_cast<double>(lines.size() - 1);
    for (const std::string& line : lines) {
        canvas_.text(line, {middle.x, y}, size, kInk, Anchor::centre, true);
        y += kLineStep * size;
    }
}

// Writes the label in the piece if that is wide enough.
bool PlanLabels::label_inside(const std::vector<std::string>& lines, const std::vector<RoomyPlace>& inside)
{
    for (const double size : {kAreaSize, kLabelSize, kSmallSize}) {
        SheetPoint needed = {0.0, size * (1.0 + kLineStep * static_cast<double>(lines.size() - 1))};
        for (const std::string& line : lines)
            needed.x = std::max(needed.x, canvas_.size_of(line, size, true).x + 4.0);
        std::vector<SheetPoint> places;
        for (const RoomyPlace& place : inside)
            if (place.room >= 0.5 * std::min(needed.x, needed.y))
                places.push_back(place.at);
        const auto place = places_.first_free(places, needed, 0.0, false);
        if (!place)
            continue;
        write_lines(lines, *place, size);
        return true;
    }
    return false;
}

// In a narrow piece the name may cross its boundary, with its middle inside.
bool PlanLabels::label_across(const std::string& name, const std::vector<RoomyPlace>& inside)
{
    constexpr double kLeastRoom = 1.5;
    std::vector<SheetPoint> places;
    for (const RoomyPlace& place : inside)
        if (place.room >= kLeastRoom)
            places.push_back(place.at);
    const auto place = places_.first_free(places, canvas_.size_of(name, kSmallSize, true));
    if (place)
        canvas_.text(name, *place, kSmallSize, kInk, Anchor::centre, true);
    return place.has_value();
}

// Writes the label outside the parcel, with a hair line to the piece that crosses no other label and no other
// piece. The line starts in the middle of the piece, or elsewhere in it.
bool PlanLabels::label_beside(const std::string& text, const std::vector<RoomyPlace>& inside)
{
    constexpr double kFirst = 24.0;
    constexpr double kStep = 8.0;
    constexpr int kRings = 7;
    constexpr int kDirections = 24;
    if (beside_ == kMaxBeside || inside.empty())
        return false;
    std::vector<SheetPoint> starts;
    for (const double part : {0.0, 0.3, 0.6, 0.9})
        starts.push_back(inside[static_cast<std::size_t>(part * static_cast<double>(inside.size()))].at);
    const SheetPoint extent = canvas_.size_of(text, kLabelSize, true);
    const SheetPoint room = {extent.x + 4.0, extent.y + 2.0};
    for (const SheetPoint& start : starts) {
        std::vector<SheetPoint> places;
        for (int ring = 0; ring < kRings; ++ring) {
            for (int i = 0; i < kDirections; ++i) {
                const double turn = 2.0 * kPi * i / kDirections;
                const SheetPoint p = moved(start, {std::cos(turn), std::sin(turn)}, kFirst + kStep * ring);
                // The hair line crosses only the boundary of its own piece.
                if (!is_inside(outline_, p) && places_.crossings(start, p) <= 1 && places_.is_clear(start, p))
                    places.push_back(p);
            }
        }
        const auto place = places_.first_free(places, room, 0.0, false);
        if (!place)
            continue;
        ++beside_;
        const auto hidden = clipped_line(start, *place, label_box(*place, room, 0.0));
        const SheetPoint end = hidden ? hidden->first : *place;
        canvas_.line(start, end, kGrey, 0.5);
        canvas_.dot(start, 1.0, kGrey, kGrey);
        canvas_.text(text, *place, kLabelSize, kInk, Anchor::centre, true);
        places_.take_along(start, end, 2.0);
        return true;
    }
    return false;
}

}  // namespace tool
