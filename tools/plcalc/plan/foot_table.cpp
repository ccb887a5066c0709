#include "plan/foot_table.h"

#include <algorithm>
#include <cmath>

#include "plcalc/kernel.h"
#include "text/numbers.h"

namespace tool {
namespace {

constexpr double kPadding = 12.0;
constexpr double kColumnGap = 14.0;
constexpr double kMinHeight = 74.0;  // for the scale bar

// Rows of the lowest foot, and the most rows in text of full size.
constexpr std::size_t kFewRows = 4;
constexpr std::size_t kManyRows = 8;

}  // namespace

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

std::string end_name(std::size_t end)
{
    return "P" + std::to_string(end + 1);
}

std::string side_text(const Plan& plan, std::size_t side)
{
    constexpr int kFewer = 2;
    const int decimals = std::max(kFewer, plan.resolution.decimals - kFewer);
    return fixed(PlFunz_distance(&plan.ring[side], &plan.ring[(side + 1) % plan.ring.size()]), decimals);
}

std::vector<FootSection> foot_sections(const Plan& plan, const AtFoot& at_foot)
{
    const int decimals = plan.resolution.decimals;
    std::vector<FootSection> sections = {{"Ends of lines", {}}};
    const std::vector<PL_PNT2D_record> ends = line_ends(plan);
    for (std::size_t i = 0; i < ends.size(); ++i)
        sections.back().rows.push_back(end_name(i) + "  E " + fixed(ends[i].x, decimals) + "  N " +
                                       fixed(ends[i].y, decimals));
    if (at_foot.pieces) {
        sections.push_back({"Pieces", {}});
        for (std::size_t i = 0; i < plan.piece_labels.size(); ++i)
            sections.back().rows.push_back(std::to_string(i + 1) + "  " + plan.piece_labels[i]);
    }
    if (!at_foot.sides.empty()) {
        sections.push_back({"Sides", {}});
        for (const std::size_t side : at_foot.sides)
            sections.back().rows.push_back(std::to_string(side + 1) + "-" +
                                           std::to_string((side + 1) % plan.ring.size() + 1) + "  " +
                                           side_text(plan, side));
    }
    return sections;
}

FootTable::FootTable(const std::vector<FootSection>& sections, Canvas& canvas, double width,
                     double max_height)
{
    constexpr Style kFull = {8.0, 12.0};
    constexpr Style kSmall = {6.5, 9.0};
    for (const FootSection& section : sections) {
        if (!cells_.empty())
            cells_.push_back({});
        if (sections.size() > 1)
            cells_.push_back({section.title, true, 0.0, {}});
        for (const std::string& row : section.rows)
            cells_.push_back({row, false, 0.0, {}});
    }
    set_style(canvas, kFull);
    for (std::size_t rows = kFewRows; rows <= kManyRows; ++rows)
        if (break_into(width, rows))
            return;
    set_style(canvas, kSmall);
    const std::size_t most = static_cast<std::size_t>((max_height - 2.0 * kPadding) / kSmall.row_height);
    for (std::size_t rows = kManyRows; rows <= most; ++rows)
        if (break_into(width, rows))
            return;
    cells_[shown_ - 1].text = "...";
}

void FootTable::set_style(Canvas& canvas, const Style& style)
{
    style_ = style;
    for (Cell& cell : cells_)
        cell.width = canvas.size_of(cell.text, style.size, cell.title).x;
}

// Whether all cells fit.
bool FootTable::break_into(double width, std::size_t rows)
{
    const std::size_t below_scale =
        static_cast<std::size_t>(std::ceil((kScaleCorner.y - kPadding) / style_.row_height));
    double left = 0.0;
    shown_ = 0;
    while (shown_ < cells_.size()) {
        const auto widest_of = [&](std::size_t count) {
            double widest = 0.0;
            for (std::size_t i = shown_; i < std::min(shown_ + count, cells_.size()); ++i)
                widest = std::max(widest, cells_[i].width);
            return widest;
        };
        const bool beside_scale = left + widest_of(rows) <= width - kScaleCorner.x;
        const std::size_t first = beside_scale ? 0 : below_scale;
        const std::size_t count = rows - std::min(rows, first);
        const double widest = widest_of(count);
        if (count == 0 || left + widest > width)
            break;
        fill_column(left, first, rows);
        left += widest + kColumnGap;
    }
    rows_ = std::min(rows, cells_.size());
    return shown_ == cells_.size();
}

// Fills a column with the next cells: no gap above the first, no title below the last.
void FootTable::fill_column(double left, std::size_t first, std::size_t rows)
{
    if (cells_[shown_].text.empty())
        ++shown_;
    for (std::size_t row = first; row < rows && shown_ < cells_.size(); ++row, ++shown_) {
        if (cells_[shown_].title && row + 1 == rows)
            return;
        cells_[shown_].at = {left, kPadding + style_.row_height * (0.5 + static_cast<double>(row))};
    }
}

double FootTable::height() const
{
    return std::max(kMinHeight, static_cast<double>(rows_) * style_.row_height + 2.0 * kPadding);
}

void FootTable::draw(Canvas& canvas, const SheetPoint& upper_left) const
{
    for (std::size_t i = 0; i < shown_; ++i)
        canvas.text(cells_[i].text, {upper_left.x + cells_[i].at.x, upper_left.y + cells_[i].at.y},
                    style_.size, kInk, Anchor::left, cells_[i].title);
}

}  // namespace tool
