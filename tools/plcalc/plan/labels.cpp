#include "plan/labels.h"

#include <algorithm>
#include <cmath>

namespace tool {
namespace {

// Sizes of text, points.
constexpr double kAreaSize = 10.0;
constexpr double kLabelSize = 8.0;

// A side this many times as long as its label leaves room for the numbers of its vertices.
constexpr double kLongSide = 1.3;

// With more areas beside their pieces than this, the hair lines make a thicket.
constexpr std::size_t kMaxBeside = 12;

// From a number to the boundary of its piece, points.
constexpr double kLeastRoom = 1.5;

}  // namespace

PlanLabels::PlanLabels(const Plan& plan, const PlanLayout& layout, Canvas& canvas, const AtFoot& at_foot)
    : plan_(plan), layout_(layout), canvas_(canvas), at_foot_(at_foot), places_(layout.drawing()),
      outline_(on_sheet(plan.ring))
{
    for (std::size_t i = 0; i < outline_.size(); ++i)
        places_.add_line(vertex(i), vertex(i + 1));
    for (const PL_LINE_2D_record& line : plan_.lines)
        places_.add_line(layout_.at(line.start), layout_.at(line.end));
}

// Long sides come before the ends of lines on them: a length away from the middle of its side would be read
// as the length of a part. Ends come before the vertices, which may be so many that they leave no room.
AtFoot PlanLabels::draw()
{
    label_sides(true);
    label_line_ends();
    label_vertices();
    label_sides(false);
    if (at_foot_.pieces)
        number_pieces();
    else
        label_pieces();
    return at_foot_;
}

std::vector<SheetPoint> PlanLabels::on_sheet(const plparcel::Ring& ring) const
{
    std::vector<SheetPoint> outline;
    for (const PL_PNT2D_record& p : ring)
        outline.push_back(layout_.at(p));
    return outline;
}

// The direction out of the parcel, at right angles to a side.
SheetPoint PlanLabels::outwards(std::size_t side) const
{
    const SheetPoint along = direction(vertex(side), vertex(side + 1));
    const SheetPoint middle = {(vertex(side).x + vertex(side + 1).x) * 0.5,
                               (vertex(side).y + vertex(side + 1).y) * 0.5};
    const SheetPoint left = {along.y, -along.x};
    return is_inside(outline_, moved(middle, left, 0.5)) ? SheetPoint{-left.x, -left.y} : left;
}

SheetPoint PlanLabels::other_end(const PL_PNT2D_record& p) const
{
    for (const PL_LINE_2D_record& line : plan_.lines) {
        if (line.start.x == p.x && line.start.y == p.y)
            return layout_.at(line.end);
        if (line.end.x == p.x && line.end.y == p.y)
            return layout_.at(line.start);
    }
    return layout_.at(p);
}

void PlanLabels::label_around(const std::string& text, const SheetPoint& p, const SheetPoint& first,
                              const Colour& colour, bool may_cross_lines)
{
    const SheetPoint extent = canvas_.size_of(text, kLabelSize, true);
    const double near = 0.5 * std::max(extent.x, extent.y) + 4.0;
    const auto place =
        places_.first_free(places_around(p, first, near), {extent.x + 2.0, extent.y}, 0.0, may_cross_lines);
    if (place)
        canvas_.text(text, *place, kLabelSize, colour, Anchor::centre, true);
}

void PlanLabels::label_vertices()
{
    for (std::size_t i = 0; i < outline_.size(); ++i) {
        const SheetPoint before = outwards((i + outline_.size() - 1) % outline_.size());
        const SheetPoint after = outwards(i);
        const SheetPoint out = direction({0.0, 0.0}, {before.x + after.x, before.y + after.y});
        label_around(std::to_string(i + 1), outline_[i], out, kInk, true);
    }
}

// In the direction of the line, outside the parcel. Where there are too many lines, the table at the foot has
// their ends in order.
void PlanLabels::label_line_ends()
{
    const std::vector<PL_PNT2D_record> ends = line_ends(plan_);
    for (std::size_t i = 0; i < ends.size(); ++i) {
        const SheetPoint p = layout_.at(ends[i]);
        label_around(end_name(i), p, direction(other_end(ends[i]), p), kRed, false);
    }
}

// How many times the label of a side fits along it.
double PlanLabels::room_along(std::size_t side)
{
    const double length =
        length_of({vertex(side + 1).x - vertex(side).x, vertex(side + 1).y - vertex(side).y});
    return length / canvas_.size_of(side_text(plan_, side), kSmallSize).x;
}

void PlanLabels::label_sides(bool long_ones)
{
    for (std::size_t i = 0; i < outline_.size(); ++i)
        if (at_foot_.sides.count(i) == 0 && (room_along(i) > kLongSide) == long_ones && !label_side(i))
            at_foot_.sides.insert(i);
    // If most lengths stand at the foot, all of them do: nobody should have to look in two places.
    for (std::size_t i = 0; 2 * at_foot_.sides.size() > outline_.size() && i < outline_.size(); ++i)
        at_foot_.sides.insert(i);
}

// Along the side if it is long enough, level beside it if not.
bool PlanLabels::label_side(std::size_t side)
{
    const std::string text = side_text(plan_, side);
    const SheetPoint a = vertex(side);
    const SheetPoint b = vertex(side + 1);
    const SheetPoint out = outwards(side);
    const SheetPoint extent = canvas_.size_of(text, kSmallSize);
    std::vector<SheetPoint> beside;
    for (const double part : {0.5, 0.35, 0.65, 0.25, 0.75})
        beside.push_back(moved({a.x + (b.x - a.x) * part, a.y + (b.y - a.y) * part}, out, 7.0));
    const SheetPoint middle = {(a.x + b.x) * 0.5, (a.y + b.y) * 0.5};
    const bool fits = room_along(side) > 1.0;
    const double angle = fits ? reading_angle(a, b) : 0.0;
    const auto place = fits ? places_.first_free_along(beside, extent, angle)
                            : places_.first_free(outside_of(middle, out, extent), extent);
    if (place)
        canvas_.text(text, *place, kSmallSize, kGrey, Anchor::centre, false, angle);
    return place.has_value();
}

// Places for level text beside a short side. Inside the parcel or far off, the text would seem to belong to
// another side.
std::vector<SheetPoint> PlanLabels::outside_of(const SheetPoint& middle, const SheetPoint& out,
                                               const SheetPoint& extent) const
{
    const double near = 4.0 + 0.5 * (std::fabs(out.x) * extent.x + std::fabs(out.y) * extent.y);
    std::vector<SheetPoint> places;
    for (const SheetPoint& p : {moved(middle, out, near), moved(middle, out, 1.4 * near)})
        if (!is_inside(outline_, p))
            places.push_back(p);
    return places;
}

// Areas stand in their pieces or beside them. If one finds no place, all of them stand at the foot.
void PlanLabels::label_pieces()
{
    std::size_t beside = 0;
    for (std::size_t i = 0; i < plan_.pieces.size() && i < plan_.piece_labels.size(); ++i) {
        const std::vector<RoomyPlace> inside = roomy_places(on_sheet(plan_.pieces[i]));
        if (label_inside(plan_.piece_labels[i], inside))
            continue;
        const SheetPoint piece = inside.empty() ? layout_.at(plan_.pieces[i].front()) : inside.front().at;
        if (++beside > kMaxBeside || !label_beside(plan_.piece_labels[i], piece)) {
            at_foot_.pieces = true;
            return;
        }
    }
}

// In a narrow piece the number may cross its boundary, with its middle inside. A piece that is hardly visible
// gets none: pieces lie in order.
void PlanLabels::number_pieces()
{
    for (std::size_t i = 0; i < plan_.pieces.size(); ++i) {
        const std::string text = std::to_string(i + 1);
        const std::vector<RoomyPlace> inside = roomy_places(on_sheet(plan_.pieces[i]));
        if (label_inside(text, inside))
            continue;
        std::vector<SheetPoint> places;
        for (const RoomyPlace& place : inside)
            if (place.room >= kLeastRoom)
                places.push_back(place.at);
        const auto place = places_.first_free(places, canvas_.size_of(text, kSmallSize, true));
        if (place)
            canvas_.text(text, *place, kSmallSize, kInk, Anchor::centre, true);
    }
}

// Writes the label in the piece if that is wide enough.
bool PlanLabels::label_inside(const std::string& text, const std::vector<RoomyPlace>& inside)
{
    for (const double size : {kAreaSize, kLabelSize, kSmallSize}) {
        const SheetPoint extent = canvas_.size_of(text, size, true);
        const SheetPoint needed = {extent.x + 4.0, extent.y + 2.0};
        std::vector<SheetPoint> places;
        for (const RoomyPlace& place : inside)
            if (place.room >= 0.5 * std::min(needed.x, needed.y))
                places.push_back(place.at);
        const auto place = places_.first_free(places, needed, 0.0, false);
        if (!place)
            continue;
        canvas_.text(text, *place, size, kInk, Anchor::centre, true);
        return true;
    }
    return false;
}

// Writes the label outside the parcel, with a hair line to the piece that crosses no other label and no other
// piece.
bool PlanLabels::label_beside(const std::string& text, const SheetPoint& piece)
{
    constexpr double kFirst = 30.0;
    constexpr double kStep = 8.0;
    constexpr int kRings = 7;
    constexpr int kDirections = 24;
    const SheetPoint extent = canvas_.size_of(text, kLabelSize, true);
    std::vector<SheetPoint> places;
    for (int ring = 0; ring < kRings; ++ring) {
        for (int i = 0; i < kDirections; ++i) {
            const double turn = 2.0 * kPi * i / kDirections;
            const SheetPoint p = moved(piece, {std::cos(turn), std::sin(turn)}, kFirst + kStep * ring);
            // The hair line crosses only the boundary of its own piece.
            if (!is_inside(outline_, p) && places_.crossings(piece, p) <= 1 && places_.is_clear(piece, p))
                places.push_back(p);
        }
    }
    const auto place = places_.first_free(places, {extent.x + 4.0, extent.y + 2.0}, 0.0, false);
    if (!place)
        return false;
    canvas_.line(piece, *place, kGrey, 0.5);
    canvas_.dot(piece, 1.0, kGrey, kGrey);
    canvas_.text(text, *place, kLabelSize, kInk, Anchor::centre, true);
    places_.add_line(piece, *place);
    return true;
}

}  // namespace tool
