#include "plan.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "canvas.h"
#include "label_places.h"
#include "numbers.h"
#include "plcalc/kernel.h"

namespace tool {
namespace {

using plparcel::Ring;

constexpr double kPi = 3.141592653589793;

constexpr Colour kInk = {0.15, 0.15, 0.15};
constexpr Colour kGrey = {0.45, 0.45, 0.45};
constexpr Colour kRed = {0.72, 0.11, 0.11};
constexpr Colour kBlue = {0.10, 0.30, 0.60};
constexpr Colour kPaper = {1.0, 1.0, 1.0};

// Told apart by neighbours, also in grey print.
constexpr Colour kTints[] = {{0.97, 0.86, 0.66}, {0.80, 0.90, 0.81}, {0.82, 0.86, 0.96},
                             {0.97, 0.82, 0.80}, {0.90, 0.84, 0.94}, {0.96, 0.95, 0.75}};

// A side this near to upright, radians, is upright.
constexpr double kUpright = 1e-6;

// Sizes of text, points.
constexpr double kTitleSize = 14.0;
constexpr double kTextSize = 9.0;
constexpr double kLabelSize = 8.0;
constexpr double kSmallSize = 6.5;

constexpr double kRowHeight = 12.0;
constexpr double kFooterPadding = 12.0;
constexpr double kMinFooter = 74.0;  // for the scale bar
constexpr std::size_t kMaxFooterRows = 8;
constexpr double kFooterColumn = 170.0;
constexpr double kScaleRoom = 190.0;

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

// Places inside an outline: those with room enough first, of these the nearest to the middle.
std::vector<SheetPoint> roomy_places(const std::vector<SheetPoint>& outline)
{
    constexpr int kGrid = 30;
    constexpr double kEnoughRoom = 32.0;  // half a label
    SheetBox box = {INFINITY, INFINITY, -INFINITY, -INFINITY};
    for (const SheetPoint& p : outline)
        box = {std::min(box.left, p.x), std::min(box.top, p.y), std::max(box.right, p.x),
               std::max(box.bottom, p.y)};
    const SheetPoint middle = {(box.left + box.right) * 0.5, (box.top + box.bottom) * 0.5};
    const auto rank = [&](double room, const SheetPoint& p) {
        const double off_middle = length_of({p.x - middle.x, p.y - middle.y});
        return std::make_pair(-std::min(room, kEnoughRoom), off_middle);
    };
    std::vector<std::pair<std::pair<double, double>, SheetPoint>> found;
    for (int i = 1; i < kGrid; ++i) {
        for (int k = 1; k < kGrid; ++k) {
            const SheetPoint p = {box.left + box.width() * i / kGrid, box.top + box.height() * k / kGrid};
            if (is_inside(outline, p))
                found.emplace_back(rank(distance_to_outline(outline, p), p), p);
        }
    }
    std::stable_sort(found.begin(), found.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<SheetPoint> places;
    for (const auto& place : found)
        places.push_back(place.second);
    return places;
}

// The ends of the lines, each place once: several lines may start at one vertex.
std::vector<PL_PNT2D_record> line_ends(const Plan& plan)
{
    std::vector<PL_PNT2D_record> ends;
    for (const PL_LINE_2D_record& line : plan.lines)
        for (const PL_PNT2D_record& p : {line.start, line.end})
            if (std::none_of(ends.begin(), ends.end(),
                             [&](const PL_PNT2D_record& q) { return p.x == q.x && p.y == q.y; }))
                ends.push_back(p);
    return ends;
}

std::string end_name(std::size_t i)
{
    return "P" + std::to_string(i + 1);
}

double footer_height(const Plan& plan)
{
    const std::size_t rows = std::min(line_ends(plan).size(), kMaxFooterRows);
    return std::max(kMinFooter, static_cast<double>(rows) * kRowHeight + 2.0 * kFooterPadding);
}

// Everything about one sheet while it is drawn.
class Drawing {
public:
    Drawing(const Plan& plan, Paper paper, const std::string& path)
        : plan_(plan), paper_(paper), layout_(plan.ring, plan.metres, paper, footer_height(plan)),
          canvas_(path, layout_.sheet()), places_(layout_.drawing()), outline_(on_sheet(plan.ring))
    {}

    void draw()
    {
        draw_pieces();
        draw_boundary();
        draw_lines();
        draw_frame();
        draw_north_arrow();
        register_lines();
        label_vertices();
        label_line_ends();
        label_sides();
        label_pieces();
        draw_title();
        draw_footer();
        canvas_.finish();
    }

private:
    std::vector<SheetPoint> on_sheet(const Ring& ring) const
    {
        std::vector<SheetPoint> outline;
        for (const PL_PNT2D_record& p : ring)
            outline.push_back(layout_.at(p));
        return outline;
    }

    const SheetPoint& vertex(std::size_t i) const { return outline_[i % outline_.size()]; }

    // Out of the parcel, at right angles to a side.
    SheetPoint outwards(std::size_t side) const
    {
        const SheetPoint along = direction(vertex(side), vertex(side + 1));
        const SheetPoint middle = {(vertex(side).x + vertex(side + 1).x) * 0.5,
                                   (vertex(side).y + vertex(side + 1).y) * 0.5};
        const SheetPoint left = {along.y, -along.x};
        return is_inside(outline_, moved(middle, left, 0.5)) ? SheetPoint{-left.x, -left.y} : left;
    }

    void draw_pieces()
    {
        for (std::size_t i = 0; i < plan_.pieces.size(); ++i)
            canvas_.fill(on_sheet(plan_.pieces[i]), kTints[i % std::size(kTints)]);
    }

    void draw_boundary()
    {
        canvas_.stroke(outline_, true, kInk, 1.0);
        if (plan_.base_side)
            canvas_.stroke({vertex(*plan_.base_side), vertex(*plan_.base_side + 1)}, false, kBlue, 3.0);
        for (std::size_t i = 0; i < outline_.size(); ++i)
            canvas_.dot(outline_[i], 1.8, kPaper, kInk);
        if (plan_.base_vertex)
            canvas_.dot(vertex(*plan_.base_vertex), 3.5, kPaper, kBlue);
    }

    void draw_lines()
    {
        for (const PL_LINE_2D_record& line : plan_.lines) {
            const SheetPoint a = layout_.at(line.start);
            const SheetPoint b = layout_.at(line.end);
            canvas_.stroke({a, b}, false, kRed, 1.6);
            canvas_.dot(a, 2.2, kRed, kRed);
            canvas_.dot(b, 2.2, kRed, kRed);
        }
    }

    void draw_frame()
    {
        const SheetBox f = layout_.frame();
        canvas_.stroke({{f.left, f.top}, {f.right, f.top}, {f.right, f.bottom}, {f.left, f.bottom}}, true,
                       kGrey, 0.7);
        const SheetBox d = layout_.drawing();
        canvas_.stroke({{d.left, d.top}, {d.right, d.top}}, false, kGrey, 0.5);
        canvas_.stroke({{d.left, d.bottom}, {d.right, d.bottom}}, false, kGrey, 0.5);
    }

    // In the upper right corner of the title, where no parcel comes.
    void draw_north_arrow()
    {
        const SheetBox f = layout_.frame();
        const SheetPoint tip = {f.right - 24.0, f.top + 10.0};
        canvas_.fill({tip, {tip.x - 6.0, tip.y + 30.0}, {tip.x, tip.y + 24.0}}, kInk);
        canvas_.stroke({tip, {tip.x + 6.0, tip.y + 30.0}, {tip.x, tip.y + 24.0}}, true, kInk, 0.7);
        canvas_.text("N", {tip.x, tip.y + 40.0}, kTextSize, kInk, Anchor::centre, true);
    }

    void register_lines()
    {
        for (std::size_t i = 0; i < outline_.size(); ++i)
            places_.add_line(vertex(i), vertex(i + 1));
        for (const PL_LINE_2D_record& line : plan_.lines)
            places_.add_line(layout_.at(line.start), layout_.at(line.end));
    }

    // Around a point, first in a direction, then to both sides of it up to a third of a turn, near before far.
    static std::vector<SheetPoint> around(const SheetPoint& p, const SheetPoint& first, double near)
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

    void label_around(const std::string& text, const SheetPoint& p, const SheetPoint& first, double size,
                      const Colour& colour, bool may_cross_lines)
    {
        const SheetPoint extent = canvas_.size_of(text, size, true);
        const double near = 0.5 * std::max(extent.x, extent.y) + 4.0;
        const auto place =
            places_.first_free(around(p, first, near), {extent.x + 2.0, extent.y}, 0.0, may_cross_lines);
        if (place)
            canvas_.text(text, *place, size, colour, Anchor::centre, true);
    }

    // On from the line, out of the parcel. Where lines are too many for it, the table at the foot has them in order.
    void label_line_ends()
    {
        const std::vector<PL_PNT2D_record> ends = line_ends(plan_);
        for (std::size_t i = 0; i < ends.size(); ++i) {
            const SheetPoint p = layout_.at(ends[i]);
            label_around(end_name(i), p, direction(other_end(ends[i]), p), kLabelSize, kRed, false);
        }
    }

    SheetPoint other_end(const PL_PNT2D_record& p) const
    {
        for (const PL_LINE_2D_record& line : plan_.lines) {
            if (line.start.x == p.x && line.start.y == p.y)
                return layout_.at(line.end);
            if (line.end.x == p.x && line.end.y == p.y)
                return layout_.at(line.start);
        }
        return layout_.at(p);
    }

    void label_vertices()
    {
        for (std::size_t i = 0; i < outline_.size(); ++i) {
            const SheetPoint before = outwards((i + outline_.size() - 1) % outline_.size());
            const SheetPoint after = outwards(i);
            const SheetPoint out = direction({0.0, 0.0}, {before.x + after.x, before.y + after.y});
            label_around(std::to_string(i + 1), outline_[i], out, kLabelSize, kInk, true);
        }
    }

    // Along the side where it is long enough, level beside it where not.
    void label_sides()
    {
        for (std::size_t i = 0; i < outline_.size(); ++i) {
            const PL_PNT2D_record& p = plan_.ring[i];
            const PL_PNT2D_record& q = plan_.ring[(i + 1) % plan_.ring.size()];
            const std::string text = fixed(PlFunz_distance(&p, &q), side_decimals());
            const SheetPoint a = vertex(i);
            const SheetPoint b = vertex(i + 1);
            const SheetPoint out = outwards(i);
            const SheetPoint extent = canvas_.size_of(text, kSmallSize);
            const SheetPoint middle = {(a.x + b.x) * 0.5, (a.y + b.y) * 0.5};
            double angle = std::atan2(b.y - a.y, b.x - a.x);
            // Read from below or from the right.
            if (angle >= kPi / 2.0 - kUpright)
                angle -= kPi;
            else if (angle < -kPi / 2.0 - kUpright)
                angle += kPi;
            std::vector<SheetPoint> beside;
            for (const double part : {0.5, 0.35, 0.65, 0.25, 0.75})
                beside.push_back(moved({a.x + (b.x - a.x) * part, a.y + (b.y - a.y) * part}, out, 7.0));
            const bool fits = length_of({b.x - a.x, b.y - a.y}) > extent.x;
            const auto place = fits ? first_along(beside, extent, angle)
                                    : places_.first_free(outside_of(middle, out, extent), extent);
            if (place)
                canvas_.text(text, *place, kSmallSize, kGrey, Anchor::centre, false, fits ? angle : 0.0);
        }
    }

    // Level text beside a short side. Inside the parcel or far off it would be taken for another's.
    std::vector<SheetPoint> outside_of(const SheetPoint& middle, const SheetPoint& out,
                                       const SheetPoint& extent) const
    {
        const double near = 4.0 + 0.5 * (std::fabs(out.x) * extent.x + std::fabs(out.y) * extent.y);
        std::vector<SheetPoint> places;
        for (const SheetPoint& p : {moved(middle, out, near), moved(middle, out, 1.4 * near)})
            if (!is_inside(outline_, p))
                places.push_back(p);
        return places;
    }

    // Turned text is kept apart from other labels by small boxes along it, since the box around it is far too
    // large.
    std::optional<SheetPoint> first_along(const std::vector<SheetPoint>& middles, const SheetPoint& extent,
                                          double angle)
    {
        for (const SheetPoint& middle : middles) {
            const std::vector<SheetPoint> beads = beads_of(middle, extent, angle);
            const SheetPoint bead = {extent.y, extent.y};
            const bool free = std::all_of(beads.begin(), beads.end(), [&](const SheetPoint& p) {
                return places_.is_free(p, bead, 0.0, true);
            });
            if (!free)
                continue;
            for (const SheetPoint& p : beads)
                places_.take(label_box(p, bead, 0.0));
            return middle;
        }
        return std::nullopt;
    }

    static std::vector<SheetPoint> beads_of(const SheetPoint& middle, const SheetPoint& extent, double angle)
    {
        const int count = std::max(1, static_cast<int>(std::ceil(extent.x / extent.y)));
        std::vector<SheetPoint> beads;
        for (int i = 0; i < count; ++i) {
            const double along = ((i + 0.5) / count - 0.5) * extent.x;
            beads.push_back({middle.x + along * std::cos(angle), middle.y + along * std::sin(angle)});
        }
        return beads;
    }

    // Centimetres are what a plan is read to; a smaller parcel shows more.
    int side_decimals() const
    {
        constexpr int kFewer = 2;
        return std::max(kFewer, plan_.resolution.decimals - kFewer);
    }

    void label_pieces()
    {
        for (std::size_t i = 0; i < plan_.pieces.size() && i < plan_.piece_labels.size(); ++i) {
            const std::vector<SheetPoint> inside = roomy_places(on_sheet(plan_.pieces[i]));
            if (!label_inside(plan_.piece_labels[i], inside))
                label_beside(plan_.piece_labels[i],
                             inside.empty() ? layout_.at(plan_.pieces[i].front()) : inside.front());
        }
    }

    // In a piece that is wide enough.
    bool label_inside(const std::string& text, const std::vector<SheetPoint>& inside)
    {
        for (const double size : {kTextSize + 1.0, kLabelSize, kSmallSize}) {
            const SheetPoint extent = canvas_.size_of(text, size, true);
            const auto place = places_.first_free(inside, {extent.x + 4.0, extent.y + 2.0}, 0.0, false);
            if (!place)
                continue;
            canvas_.text(text, *place, size, kInk, Anchor::centre, true);
            return true;
        }
        return false;
    }

    // Outside, with a hair line to the piece.
    void label_beside(const std::string& text, const SheetPoint& piece)
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
                // Across its own boundary only: not through its neighbours.
                if (!is_inside(outline_, p) && places_.crossings(piece, p) <= 1)
                    places.push_back(p);
            }
        }
        const auto place = places_.first_free(places, {extent.x + 4.0, extent.y + 2.0}, 0.0, false);
        if (!place)
            return;
        canvas_.stroke({piece, *place}, false, kGrey, 0.5);
        canvas_.dot(piece, 1.0, kGrey, kGrey);
        canvas_.text(text, *place, kLabelSize, kInk, Anchor::centre, true);
    }

    // As much of the text as there is room for.
    std::string fitted(std::string text, double size, bool bold, double room)
    {
        bool cut = false;
        while (text.size() > 1 && canvas_.size_of(cut ? text + "..." : text, size, bold).x > room) {
            text.pop_back();
            while (!text.empty() && (text.back() & 0xC0) == 0x80)
                text.pop_back();
            cut = true;
        }
        return cut ? text + "..." : text;
    }

    void draw_title()
    {
        const SheetBox f = layout_.frame();
        const double room = f.width() - 70.0;
        double y = f.top + 15.0;
        canvas_.text(fitted(plan_.title, kTitleSize, true, room), {f.left + 10.0, y}, kTitleSize, kInk,
                     Anchor::left, true);
        for (const std::string& line : plan_.subtitles) {
            y += 16.0;
            canvas_.text(fitted(line, kTextSize, false, room), {f.left + 10.0, y}, kTextSize, kInk,
                         Anchor::left);
        }
    }

    void draw_footer()
    {
        const SheetBox f = layout_.frame();
        const SheetBox d = layout_.drawing();
        const std::vector<PL_PNT2D_record> ends = line_ends(plan_);
        const std::size_t shown = std::min(
            ends.size(), kMaxFooterRows * static_cast<std::size_t>((f.width() - kScaleRoom) / kFooterColumn));
        for (std::size_t i = 0; i < shown; ++i) {
            const double x = f.left + 10.0 + static_cast<double>(i / kMaxFooterRows) * kFooterColumn;
            const double row = 0.5 + static_cast<double>(i % kMaxFooterRows);
            const double y = d.bottom + kFooterPadding + kRowHeight * row;
            const bool last_of_many = i + 1 == shown && shown < ends.size();
            canvas_.text(last_of_many ? "..." : end_text(i, ends[i]), {x, y}, kLabelSize, kInk, Anchor::left);
        }
        draw_scale_bar({f.right - 12.0, d.bottom + 20.0});
    }

    std::string end_text(std::size_t i, const PL_PNT2D_record& p) const
    {
        const int decimals = plan_.resolution.decimals;
        return end_name(i) + "   E " + fixed(p.x, decimals) + "   N " + fixed(p.y, decimals);
    }

    // Four fields, its right end given.
    void draw_scale_bar(const SheetPoint& right_end)
    {
        constexpr double kLongest = 150.0;
        constexpr int kFields = 4;
        constexpr double kHeight = 5.0;
        const double length = round_length(kLongest / layout_.points_per_unit());
        const double width = length * layout_.points_per_unit();
        const double left = right_end.x - width;
        for (int i = 0; i < kFields; ++i) {
            const double x = left + width * i / kFields;
            const double next = left + width * (i + 1) / kFields;
            const std::vector<SheetPoint> field = {{x, right_end.y},
                                                   {next, right_end.y},
                                                   {next, right_end.y + kHeight},
                                                   {x, right_end.y + kHeight}};
            canvas_.fill(field, i % 2 == 0 ? kInk : kPaper);
            canvas_.stroke(field, true, kInk, 0.6);
        }
        const std::string unit = plan_.unit.empty() ? "" : " " + plan_.unit;
        canvas_.text("0", {left, right_end.y + 13.0}, kSmallSize, kInk);
        canvas_.text(shortest(length) + unit, {right_end.x, right_end.y + 13.0}, kSmallSize, kInk,
                     Anchor::right);
        canvas_.text("Scale 1:" + shortest(layout_.denominator()) + " on " + paper_name(paper_),
                     {right_end.x, right_end.y + 28.0}, kTextSize, kInk, Anchor::right, true);
        if (plan_.unit.empty())
            canvas_.text("coordinates taken as metres", {right_end.x, right_end.y + 40.0}, kSmallSize, kGrey,
                         Anchor::right);
    }

    const Plan& plan_;
    Paper paper_;
    PlanLayout layout_;
    Canvas canvas_;
    LabelPlaces places_;
    std::vector<SheetPoint> outline_;
};

}  // namespace

void draw_plan(const Plan& plan, Paper paper, const std::string& path)
{
    Drawing(plan, paper, path).draw();
}

}  // namespace tool
