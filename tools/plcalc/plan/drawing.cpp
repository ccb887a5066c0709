#include "plan/drawing.h"

#include <algorithm>
#include <cmath>
#include <filesystem>

#include "plan/labels.h"
#include "plan/map.h"
#include "sheet/canvas.h"
#include "sheet/fitted_text.h"
#include "text/numbers.h"

namespace tool {
namespace {

// Sizes of text, points.
constexpr double kTitleSize = 14.0;
constexpr double kTextSize = 9.0;

constexpr double kIndent = 10.0;        // from the frame
constexpr double kPadding = 12.0;       // above and below the tables
constexpr double kInformation = 190.0;  // width of the block with scale, CRS and title block
constexpr double kInformationRow = 11.0;
constexpr double kScaleHeight = 52.0;

// The foot takes at most this part of the frame.
constexpr double kMaxFoot = 0.4;

// "1:1000000", and "1:0.5" for what is drawn larger than it is.
std::string scale_text(double denominator)
{
    constexpr double kWhole = 100.0;
    return "1:" + (denominator >= kWhole ? fixed(denominator, 0) : shortest(denominator));
}

double table_width(const SheetBox& frame)
{
    return frame.width() - kInformation - 3.0 * kIndent;
}

// Scale, CRS or a word on the unit, title block, number of the sheet.
double information_height(const Plan& plan)
{
    return kScaleHeight + kInformationRow * (2.0 + static_cast<double>(plan.title_block.size())) + kPadding;
}

double foot_height(const Plan& plan, const TableSetter& tables, const SheetBox& frame)
{
    const double needed = tables.height_for(table_width(frame), kMaxFoot * frame.height()) + 2.0 * kPadding;
    return std::max(information_height(plan), needed);
}

// As many of the tables, the first ones, as the foot of the first sheet takes whole.
std::size_t tables_at_foot(const Plan& plan, const std::vector<PlanTable>& tables, Paper paper)
{
    Canvas ruler;
    const PlanLayout layout(plan.corners.at, plan.unit.metres, paper, [](const SheetBox&) { return 100.0; });
    const double highest = kMaxFoot * layout.frame().height();
    for (std::size_t count = tables.size(); count > 0; --count) {
        const TableSetter setter({tables.begin(), tables.begin() + static_cast<std::ptrdiff_t>(count)},
                                 ruler);
        if (setter.height_for(table_width(layout.frame()), highest) < highest)
            return count;
    }
    return 0;
}

TableSetter setter_of(const Plan& plan, Paper paper, bool at_foot)
{
    Canvas ruler;
    const std::vector<PlanTable> tables = tables_of(plan);
    const auto split = tables.begin() + static_cast<std::ptrdiff_t>(tables_at_foot(plan, tables, paper));
    return at_foot ? TableSetter({tables.begin(), split}, ruler) : TableSetter({split, tables.end()}, ruler);
}

WithoutLabel without_label(const Plan& plan, const PlanLayout& layout)
{
    Canvas trial;
    const View view = layout.view();
    return PlanLabels(plan, view, trial).draw();
}

// In the upper right corner of the title, where no parcel is drawn.
void draw_north_arrow(Canvas& canvas, const SheetPoint& tip)
{
    canvas.fill({tip, {tip.x - 6.0, tip.y + 30.0}, {tip.x, tip.y + 24.0}}, kInk);
    canvas.stroke({tip, {tip.x + 6.0, tip.y + 30.0}, {tip.x, tip.y + 24.0}}, kInk, 0.7);
    canvas.text("N", {tip.x, tip.y + 40.0}, kTextSize, kInk, Anchor::centre, true);
}

// Four fields; the right end is given.
void draw_scale_bar(Canvas& canvas, const Plan& plan, double points_per_unit, const SheetPoint& right_end)
{
    constexpr double kLongest = 150.0;
    constexpr int kFields = 4;
    constexpr double kHeight = 5.0;
    const double length = round_length(kLongest / points_per_unit);
    const double width = length * points_per_unit;
    const double left = right_end.x - width;
    for (int i = 0; i < kFields; ++i) {
        const double x = left + width * i / kFields;
        const double next = left + width * (i + 1) / kFields;
        const std::vector<SheetPoint> field = {
            {x, right_end.y}, {next, right_end.y}, {next, right_end.y + kHeight}, {x, right_end.y + kHeight}};
        canvas.fill(field, i % 2 == 0 ? kInk : kPaper);
        canvas.stroke(field, kInk, 0.6);
    }
    canvas.text("0", {left, right_end.y + 13.0}, kSmallSize, kInk);
    canvas.text(shortest(length) + (plan.unit.name.empty() ? "" : " " + plan.unit.name),
                {right_end.x, right_end.y + 13.0}, kSmallSize, kInk, Anchor::right);
}

// PLAN-2.svg and so on.
std::string sheet_file(const std::string& path, std::size_t sheet)
{
    const std::filesystem::path first(path);
    return (first.parent_path() /
            (first.stem().string() + "-" + std::to_string(sheet) + first.extension().string()))
        .string();
}

}  // namespace

PlanSheets::PlanSheets(const Plan& plan, Paper paper)
    : plan_(plan), paper_(paper), foot_tables_(setter_of(plan, paper, true)),
      other_tables_(setter_of(plan, paper, false)),
      layout_(plan.corners.at, plan.unit.metres, paper,
              [&](const SheetBox& frame) { return foot_height(plan, foot_tables_, frame); }),
      details_(plan, layout_, without_label(plan, layout_)), table_sheets_(count_table_sheets())
{}

SheetBox PlanSheets::table_box() const
{
    const SheetBox frame = layout_.frame();
    return {frame.left + kIndent, layout_.drawing().top + kPadding, frame.right - kIndent,
            frame.bottom - kPadding};
}

std::size_t PlanSheets::count_table_sheets() const
{
    Canvas trial;
    std::size_t sheets = 0;
    for (TableSetter::Position position; !other_tables_.is_end(position); ++sheets)
        other_tables_.fill(trial, table_box(), position);
    return sheets;
}

std::vector<std::string> PlanSheets::files(const std::string& path) const
{
    std::vector<std::string> files = {path};
    for (std::size_t i = 2; i <= count() && !Canvas::has_pages(path); ++i)
        files.push_back(sheet_file(path, i));
    return files;
}

std::vector<std::string> PlanSheets::left_over(const std::string& path) const
{
    std::vector<std::string> files;
    std::error_code ignored;
    for (std::size_t i = count() + 1; !Canvas::has_pages(path); ++i) {
        const std::string file = sheet_file(path, i);
        if (!std::filesystem::exists(file, ignored))
            break;
        files.push_back(file);
    }
    return files;
}

void PlanSheets::draw(const std::vector<std::string>& paths, const std::vector<std::string>& names) const
{
    TableSetter::Position position;
    const SheetPoint sheet = layout_.sheet();
    for (std::size_t file = 0; file < paths.size(); ++file) {
        Canvas canvas(paths[file], sheet, plan_.title, names[file]);
        draw_sheet(canvas, file, position);
        for (std::size_t i = 1; i < count() && paths.size() == 1; ++i) {
            canvas.next_page(sheet);
            draw_sheet(canvas, i, position);
        }
        canvas.finish();
    }
}

void PlanSheets::draw_sheet(Canvas& canvas, std::size_t sheet, TableSetter::Position& position) const
{
    draw_frame(canvas);
    draw_title(canvas);
    if (sheet == 0)
        draw_first(canvas);
    else
        draw_further(canvas, sheet, position);
}

void PlanSheets::draw_first(Canvas& canvas) const
{
    const SheetBox f = layout_.frame();
    const SheetBox d = layout_.drawing();
    canvas.line({d.left, d.bottom}, {d.right, d.bottom}, kGrey, 0.5);
    draw_north_arrow(canvas, {f.right - 24.0, f.top + 10.0});
    draw_map(plan_, layout_.view(), canvas);
    for (const Detail& detail : details_.all())
        canvas.ring(layout_.at(detail.middle), detail.radius, kInk, 0.8);
    const View view = layout_.view();
    PlanLabels labels(plan_, view, canvas);
    labels.draw();
    for (const Detail& detail : details_.all())
        labels.label_mark(detail.name, layout_.at(detail.middle), detail.radius);
    TableSetter::Position position;
    foot_tables_.fill(
        canvas,
        {f.left + kIndent, d.bottom + kPadding, f.left + kIndent + table_width(f), f.bottom - kPadding},
        position);
    draw_information(canvas, {f.right - kIndent - kInformation, d.bottom, f.right - kIndent, f.bottom});
}

void PlanSheets::draw_further(Canvas& canvas, std::size_t sheet, TableSetter::Position& position) const
{
    const SheetBox f = layout_.frame();
    canvas.text("Sheet " + std::to_string(sheet + 1) + " of " + std::to_string(count()),
                {f.right - kIndent, f.top + 15.0}, kTextSize, kInk, Anchor::right, true);
    if (sheet > details_.sheets()) {
        other_tables_.fill(canvas, table_box(), position);
        return;
    }
    const std::size_t first = (sheet - 1) * PlanDetails::kPerSheet;
    for (std::size_t i = first; i < std::min(first + PlanDetails::kPerSheet, details_.all().size()); ++i) {
        const View view = details_.view(layout_, i);
        draw_map(plan_, view, canvas);
        PlanLabels(plan_, view, canvas).draw();
        const SheetBox& b = view.box;
        canvas.stroke({{b.left, b.top}, {b.right, b.top}, {b.right, b.bottom}, {b.left, b.bottom}}, kGrey,
                      0.7);
        canvas.text(details_.all()[i].name + ", " + scale_text(details_.all()[i].denominator),
                    {b.left, b.top - 7.0}, kTextSize, kInk, Anchor::left, true);
    }
}

void PlanSheets::draw_frame(Canvas& canvas) const
{
    const SheetBox f = layout_.frame();
    canvas.stroke({{f.left, f.top}, {f.right, f.top}, {f.right, f.bottom}, {f.left, f.bottom}}, kGrey, 0.7);
    const double top = layout_.drawing().top;
    canvas.line({f.left, top}, {f.right, top}, kGrey, 0.5);
}

void PlanSheets::draw_title(Canvas& canvas) const
{
    const SheetBox f = layout_.frame();
    const double room = f.width() - 90.0;
    double y = f.top + 15.0;
    // Names of parcels differ at their ends.
    canvas.text(fitted_at_both_ends(canvas, plan_.title, kTitleSize, true, room), {f.left + kIndent, y},
                kTitleSize, kInk, Anchor::left, true);
    for (const std::string& line : plan_.subtitles) {
        y += 16.0;
        canvas.text(fitted(canvas, line, kTextSize, false, room), {f.left + kIndent, y}, kTextSize, kInk,
                    Anchor::left);
    }
}

void PlanSheets::draw_information(Canvas& canvas, const SheetBox& box) const
{
    draw_scale_bar(canvas, plan_, layout_.points_per_unit(), {box.right, box.top + 14.0});
    canvas.text("Scale " + scale_text(layout_.denominator()) + " on " + paper_name(paper_),
                {box.right, box.top + 42.0}, kTextSize, kInk, Anchor::right, true);
    double y = box.top + kScaleHeight + 0.5 * kInformationRow;
    const auto write = [&](const std::string& text, const Colour& colour) {
        canvas.text(fitted(canvas, text, kSmallSize, false, box.width()), {box.left, y}, kSmallSize, colour,
                    Anchor::left);
        y += kInformationRow;
    };
    if (!plan_.crs.empty())
        write(plan_.crs, kInk);
    else
        write(plan_.unit.name.empty() ? "no CRS; coordinates taken as metres" : "no CRS", kGrey);
    for (const auto& [key, value] : plan_.title_block)
        write(key.empty() ? value : std::string(key).append(": ").append(value), kInk);
    write("Sheet 1 of " + std::to_string(count()), kInk);
}

}  // namespace tool
