#include "plan/drawing.h"

#include <cstddef>
#include <iterator>

#include "plan/foot_table.h"
#include "plan/labels.h"
#include "sheet/canvas.h"
#include "text/numbers.h"

namespace tool {
namespace {

using plparcel::Ring;

// Neighbouring tints differ in grey print too.
constexpr Colour kTints[] = {{0.97, 0.86, 0.66}, {0.80, 0.90, 0.81}, {0.82, 0.86, 0.96},
                             {0.97, 0.82, 0.80}, {0.90, 0.84, 0.94}, {0.96, 0.95, 0.75}};

// Sizes of text, points.
constexpr double kTitleSize = 14.0;
constexpr double kTextSize = 9.0;

constexpr double kFootIndent = 10.0;

// The foot takes at most this part of the frame.
constexpr double kMaxFoot = 0.45;

// A larger table makes the drawing smaller, which may push more labels into the table. After this many rounds
// the layout stays.
constexpr int kMaxTrials = 4;

FootTable foot_of(const Plan& plan, const AtFoot& at_foot, Canvas& canvas, const SheetBox& frame)
{
    return {foot_sections(plan, at_foot), canvas, frame.width() - 2.0 * kFootIndent,
            kMaxFoot * frame.height()};
}

PlanLayout layout_for(const Plan& plan, Paper paper, const AtFoot& at_foot)
{
    Canvas trial;
    return {plan.ring, plan.unit.metres, paper,
            [&](const SheetBox& frame) { return foot_of(plan, at_foot, trial, frame).height(); }};
}

// Everything about one sheet while it is drawn.
class Drawing {
public:
    Drawing(const Plan& plan, Paper paper, const PlanLayout& layout, Canvas& canvas)
        : plan_(plan), paper_(paper), layout_(layout), canvas_(canvas), outline_(on_sheet(plan.ring))
    {}

    void draw(const AtFoot& at_foot)
    {
        draw_pieces();
        draw_boundary();
        draw_lines();
        draw_frame();
        draw_north_arrow();
        PlanLabels(plan_, layout_, canvas_, at_foot).draw();
        draw_title();
        draw_foot(at_foot);
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

    void draw_pieces()
    {
        for (std::size_t i = 0; i < plan_.pieces.size(); ++i)
            canvas_.fill(on_sheet(plan_.pieces[i]), kTints[i % std::size(kTints)]);
    }

    void draw_boundary()
    {
        canvas_.stroke(outline_, kInk, 1.0);
        if (plan_.base_side)
            canvas_.line(vertex(*plan_.base_side), vertex(*plan_.base_side + 1), kBlue, 3.0);
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
            canvas_.line(a, b, kRed, 1.6);
            canvas_.dot(a, 2.2, kRed, kRed);
            canvas_.dot(b, 2.2, kRed, kRed);
        }
    }

    void draw_frame()
    {
        const SheetBox f = layout_.frame();
        canvas_.stroke({{f.left, f.top}, {f.right, f.top}, {f.right, f.bottom}, {f.left, f.bottom}}, kGrey,
                       0.7);
        const SheetBox d = layout_.drawing();
        canvas_.line({d.left, d.top}, {d.right, d.top}, kGrey, 0.5);
        canvas_.line({d.left, d.bottom}, {d.right, d.bottom}, kGrey, 0.5);
    }

    // In the upper right corner of the title, where no parcel is drawn.
    void draw_north_arrow()
    {
        const SheetBox f = layout_.frame();
        const SheetPoint tip = {f.right - 24.0, f.top + 10.0};
        canvas_.fill({tip, {tip.x - 6.0, tip.y + 30.0}, {tip.x, tip.y + 24.0}}, kInk);
        canvas_.stroke({tip, {tip.x + 6.0, tip.y + 30.0}, {tip.x, tip.y + 24.0}}, kInk, 0.7);
        canvas_.text("N", {tip.x, tip.y + 40.0}, kTextSize, kInk, Anchor::centre, true);
    }

    // As much of the text as fits, in whole characters: the bytes of one after its first are 10xxxxxx.
    std::string fitted(std::string text, double size, bool bold, double room)
    {
        bool cut = false;
        while (!text.empty() && canvas_.size_of(cut ? text + "..." : text, size, bold).x > room) {
            std::size_t last = text.size() - 1;
            while (last > 0 && (text[last] & 0xC0) == 0x80)
                --last;
            text.resize(last);
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

    void draw_foot(const AtFoot& at_foot)
    {
        const SheetBox f = layout_.frame();
        const SheetBox d = layout_.drawing();
        foot_of(plan_, at_foot, canvas_, f).draw(canvas_, {f.left + kFootIndent, d.bottom});
        draw_scale_bar({f.right - 12.0, d.bottom + 20.0});
    }

    // Four fields; the right end is given.
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
            canvas_.stroke(field, kInk, 0.6);
        }
        const std::string unit = plan_.unit.name.empty() ? "" : " " + plan_.unit.name;
        canvas_.text("0", {left, right_end.y + 13.0}, kSmallSize, kInk);
        canvas_.text(shortest(length) + unit, {right_end.x, right_end.y + 13.0}, kSmallSize, kInk,
                     Anchor::right);
        canvas_.text("Scale 1:" + shortest(layout_.denominator()) + " on " + paper_name(paper_),
                     {right_end.x, right_end.y + 28.0}, kTextSize, kInk, Anchor::right, true);
        if (plan_.unit.name.empty())
            canvas_.text("coordinates taken as metres", {right_end.x, right_end.y + 40.0}, kSmallSize, kGrey,
                         Anchor::right);
    }

    const Plan& plan_;
    Paper paper_;
    const PlanLayout& layout_;
    Canvas& canvas_;
    std::vector<SheetPoint> outline_;
};

// What the foot must hold: the labels that find no place on the drawing that it leaves.
AtFoot what_goes_to_the_foot(const Plan& plan, Paper paper)
{
    AtFoot at_foot;
    for (int trial = 0; trial < kMaxTrials; ++trial) {
        Canvas canvas;
        const PlanLayout layout = layout_for(plan, paper, at_foot);
        const AtFoot more = PlanLabels(plan, layout, canvas, at_foot).draw();
        if (more == at_foot)
            break;
        at_foot = more;
    }
    return at_foot;
}

}  // namespace

void draw_plan(const Plan& plan, Paper paper, const std::string& path, const std::string& name)
{
    const AtFoot at_foot = what_goes_to_the_foot(plan, paper);
    const PlanLayout layout = layout_for(plan, paper, at_foot);
    Canvas canvas(path, layout.sheet(), name);
    Drawing(plan, paper, layout, canvas).draw(at_foot);
}

}  // namespace tool
