#include "plan/tables.h"

#include <algorithm>

#include "sheet/fitted_text.h"
#include "text/angles.h"
#include "text/numbers.h"

namespace tool {
namespace {

constexpr double kSize = 7.0;
constexpr double kRow = 9.5;
constexpr double kCellGap = 9.0;
constexpr double kColumnGap = 20.0;
constexpr double kTableGap = 8.0;

constexpr std::size_t kShortTable = 12;

// Of a longer name the middle is left out: the figures beside it have to stay on the sheet.
constexpr double kLongestName = 120.0;

constexpr double kSquareMetresPerHectare = 10000.0;
constexpr double kSquareFeetPerAcre = 43560.0;

std::string with_unit(const std::string& head, const std::string& unit)
{
    return unit.empty() ? head : head + " [" + unit + "]";
}

// Square metres in hectares, square feet in acres; other units have no larger one that is usual.
struct LargeUnit {
    const char* name = nullptr;
    double size = 0.0;  // unit squared
};

LargeUnit large_unit(const Plan& plan)
{
    if (plan.unit.name == "m")
        return plan.area >= kSquareMetresPerHectare ? LargeUnit{"ha", kSquareMetresPerHectare} : LargeUnit{};
    const bool feet = !plan.unit.name.empty() && plan.unit.metres > 0.3047 && plan.unit.metres < 0.3049;
    return feet ? LargeUnit{"acres", kSquareFeetPerAcre} : LargeUnit{};
}

PlanTable piece_table(const Plan& plan)
{
    const std::string square = square_of(plan.unit);
    const LargeUnit large = large_unit(plan);
    const auto row = [&](const std::string& name, double area, const std::string& asked) {
        std::vector<std::string> cells = {name, fixed(area, plan.area_decimals)};
        if (large.name != nullptr)
            cells.push_back(fixed(area / large.size, 4));
        cells.push_back(asked);
        return cells;
    };
    PlanTable table = {"Pieces", {"Piece", with_unit("Area", square)}, {}};
    if (large.name != nullptr)
        table.heads.push_back(std::string("[") + large.name + "]");
    table.heads.push_back("asked");
    for (const PlanPiece& piece : plan.pieces)
        table.rows.push_back(row(piece.name, piece.area, piece.asked));
    table.rows.push_back(row("Parcel", plan.area, ""));
    return table;
}

PlanTable line_table(const Plan& plan)
{
    PlanTable table = {
        "Dividing lines",
        {"Line", with_unit("Length", plan.unit.name), with_unit("Bearing", angle_sign(plan.angles))},
        {}};
    for (const PlanLine& line : plan.lines)
        table.rows.push_back({plan.points[line.from].name + " \u2013 " + plan.points[line.to].name,
                              line.length, line.bearing});
    return table;
}

PlanTable cut_side_table(const Plan& plan)
{
    PlanTable table = {"Cut sides", {"Side", with_unit("Length", plan.unit.name)}, {}};
    for (const PlanSide& side : plan.sides)
        if (side.parts.size() > 1)
            table.rows.push_back({plan.points[side.parts.front().from].name + " \u2013 " +
                                      plan.points[side.parts.back().to].name,
                                  side.whole});
    return table;
}

PlanTable point_table(const Plan& plan)
{
    PlanTable table = {
        "Points around the parcel", {"Point", "E", "N", with_unit("to next", plan.unit.name)}, {}};
    for (const PlanSide& side : plan.sides)
        for (const PlanPart& part : side.parts) {
            const PlanPoint& point = plan.points[part.from];
            const int decimals = point.is_new ? plan.end_decimals : plan.decimals;
            table.rows.push_back(
                {point.name, fixed(point.at.x, decimals), fixed(point.at.y, decimals), part.length});
        }
    return table;
}

}  // namespace

std::vector<PlanTable> tables_of(const Plan& plan)
{
    std::vector<PlanTable> tables = {piece_table(plan), line_table(plan)};
    const PlanTable cut = cut_side_table(plan);
    if (!cut.rows.empty())
        tables.push_back(cut);
    tables.push_back(point_table(plan));
    return tables;
}

TableSetter::TableSetter(std::vector<PlanTable> tables, Canvas& ruler) : tables_(std::move(tables))
{
    for (PlanTable& table : tables_) {
        for (std::vector<std::string>& row : table.rows)
            row[0] = fitted_at_both_ends(ruler, row[0], kSize, false, kLongestName);
        std::vector<double> widths(table.heads.size());
        for (std::size_t i = 0; i < widths.size(); ++i) {
            widths[i] = ruler.size_of(table.heads[i], kSize).x;
            for (const std::vector<std::string>& row : table.rows)
                widths[i] = std::max(widths[i], ruler.size_of(row[i], kSize).x);
        }
        // The title takes its room too.
        double sum = 0.0;
        for (const double width : widths)
            sum += width + kCellGap;
        const double title = ruler.size_of(table.title + " (continued)", kSize, true).x;
        widths.back() += std::max(0.0, title - sum);
        widths_.push_back(widths);
    }
}

double TableSetter::width_of(const PlanTable& table) const
{
    double width = -kCellGap;
    for (const double cell : widths_[static_cast<std::size_t>(&table - tables_.data())])
        width += cell + kCellGap;
    return width;
}

void TableSetter::write_row(Canvas& canvas, const std::vector<std::string>& cells, std::size_t table,
                            const SheetPoint& at, const Colour& colour) const
{
    double left = at.x;
    for (std::size_t i = 0; i < cells.size(); ++i) {
        const double width = widths_[table][i];
        const bool is_name = i == 0;
        canvas.text(cells[i], {is_name ? left : left + width, at.y}, kSize, colour,
                    is_name ? Anchor::left : Anchor::right);
        left += width + kCellGap;
    }
}

// One column of tables below each other. Returns its width and height.
SheetPoint TableSetter::fill_column(Canvas& canvas, const SheetBox& column, Position& position) const
{
    double width = 0.0;
    double y = column.top;
    while (!is_end(position)) {
        const PlanTable& table = tables_[position.table];
        const double top = y > column.top ? y + kTableGap : y;
        const bool fits_across = column.left + width_of(table) <= column.right || width == 0.0;
        if (!fits_across || top + 3.0 * kRow > column.bottom)
            break;
        // A short table is not broken for want of a few rows.
        const double needed = kRow * (2.0 + static_cast<double>(table.rows.size()));
        if (position.row == 0 && table.rows.size() <= kShortTable && y > column.top &&
            top + needed > column.bottom)
            break;
        y = top + 0.5 * kRow;
        canvas.text(table.title + (position.row > 0 ? " (continued)" : ""), {column.left, y}, kSize, kInk,
                    Anchor::left, true);
        y += kRow;
        write_row(canvas, table.heads, position.table, {column.left, y}, kGrey);
        y += 0.5 * kRow;
        for (; position.row < table.rows.size() && y + kRow <= column.bottom; ++position.row, y += kRow)
            write_row(canvas, table.rows[position.row], position.table, {column.left, y + 0.5 * kRow}, kInk);
        width = std::max(width, width_of(table));
        if (position.row < table.rows.size())
            break;
        position = {position.table + 1, 0};
    }
    return {width, y - column.top};
}

double TableSetter::fill(Canvas& canvas, const SheetBox& box, Position& position) const
{
    double height = 0.0;
    for (double left = box.left; !is_end(position);) {
        const bool is_first = !(left > box.left);
        if (!is_first && left + width_of(tables_[position.table]) > box.right)
            break;
        const SheetPoint size = fill_column(canvas, {left, box.top, box.right, box.bottom}, position);
        if (!(size.x > 0.0))
            break;
        height = std::max(height, size.y);
        left += size.x + kColumnGap;
    }
    return height;
}

double TableSetter::height_for(double width, double highest) const
{
    Canvas trial;
    constexpr int kLeastRows = 3;
    for (int rows = kLeastRows; rows * kRow < highest; ++rows) {
        const double height = rows * kRow;
        Position position;
        fill(trial, {0.0, 0.0, width, height}, position);
        if (is_end(position))
            return height;
    }
    return highest;
}

}  // namespace tool
