#include "reports/division_file.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>
#include <sstream>
#include <utility>
#include <vector>

#include "answers/division_points.h"
#include "answers/heights.h"
#include "answers/measure.h"
#include "plcalc/kernel.h"
#include "reports/words.h"
#include "text/angles.h"
#include "text/numbers.h"
#include "text/table.h"

namespace tool {
namespace {

using Cells = std::vector<std::string>;

// A report is headings, sentences and tables.
class ReportText {
public:
    explicit ReportText(ReportStyle style) : style_(style) {}

    void heading(const std::string& text, bool is_title = false)
    {
        const bool after_blank = text_.size() < 2 || text_.compare(text_.size() - 2, 2, "\n\n") == 0;
        text_ += after_blank ? "" : "\n";
        if (style_ == ReportStyle::markdown)
            text_ += (is_title ? "# " : "## ") + text + "\n\n";
        else
            text_ += text + "\n" + std::string(text.size(), is_title ? '=' : '-') + "\n";
    }

    void item(const std::string& text)
    {
        text_ += (style_ == ReportStyle::markdown ? "- " : "  ") + text + "\n";
    }

    // In lines of eighty columns.
    void paragraph(const std::string& text)
    {
        constexpr std::size_t kWidth = 80;
        const std::string indent = style_ == ReportStyle::markdown ? "" : "  ";
        std::istringstream words(text);
        std::string line = indent;
        for (std::string word; words >> word;) {
            const bool first = line.size() == indent.size();
            if (!first && line.size() + 1 + word.size() > kWidth) {
                text_ += line + "\n";
                line = indent + word;
            } else {
                line += (first ? "" : " ") + word;
            }
        }
        text_ += line + "\n";
    }

    // The first row is the head.
    void table(const std::vector<Cells>& rows)
    {
        if (style_ == ReportStyle::plain) {
            text_ += columns(rows);
            return;
        }
        for (std::size_t i = 0; i < rows.size(); ++i) {
            text_ += row_of(rows[i]);
            if (i == 0)
                text_ += row_of(Cells(rows[i].size(), "---:"));
        }
    }

    const std::string& text() const { return text_; }

private:
    static std::string row_of(const Cells& cells)
    {
        std::string row = "|";
        for (const std::string& cell : cells) {
            row += " ";
            for (const char c : cell)
                row += c == '|' ? std::string("\\|") : std::string(1, c);
            row += " |";
        }
        return row + "\n";
    }

    ReportStyle style_;
    std::string text_;
};

// The division with what every section needs.
struct Reported {
    const Answer& answer;
    DivisionPoints points;
    std::string unit;  ///< " m", or nothing
    Heights heights = Heights(answer);

    bool has_heights() const { return !answer.parcel.heights.empty(); }

    /// E, N and, where the parcel has heights, Z of a point that is no corner of the parcel.
    Cells coordinates(std::size_t point) const
    {
        const PL_PNT2D_record& p = points.points[point].at;
        const int ends = answer.printed.resolution.end_decimals;
        Cells cells = {fixed(p.x, ends), fixed(p.y, ends)};
        if (has_heights())
            cells.push_back(height_text(heights.at(p), decimals()));
        return cells;
    }

    int decimals() const { return answer.printed.resolution.decimals; }
    std::string area(double value) const { return fixed(value, answer.printed.resolution.area_decimals); }
    std::string length(std::size_t from, std::size_t to) const
    {
        return fixed(
            on_ground(answer.parcel, PlFunz_distance(&points.points[from].at, &points.points[to].at)),
            decimals());
    }
    const std::string& name(std::size_t point) const { return points.points[point].name; }
};

void add_parcel(const Reported& reported, ReportText& text)
{
    const Parcel& parcel = reported.answer.parcel;
    const plparcel::RingReport& ring = reported.answer.printed.proven.ring;
    text.heading("Parcel");
    if (!parcel.place.name.empty())
        text.item("Name: " + parcel.place.name);
    text.item("Source: " + heading({parcel.place.file, parcel.place.feature}, parcel.assumed));
    text.item("Coordinates: " + (parcel.crs.empty() ? "no CRS stated" : parcel.crs) +
              (parcel.unit.name.empty() ? "; the unit is not stated" : ", in " + parcel.unit.name));
    text.item("Boundary: " + described_rings(parcel, ring.anticlockwise));
    text.item("Area: " + reported.area(ring.area));
    text.item("Perimeter: " + fixed(ring.perimeter, reported.decimals()) + reported.unit);
}

void add_request(const Reported& reported, ReportText& text)
{
    const Answer& answer = reported.answer;
    text.heading("Request");
    text.item("Cut: " + described_cut(answer.asked, answer.parcel));
    if (!answer.asked.chosen.empty())
        text.item("Chosen: " + answer.asked.chosen);
    text.item("Areas asked for: " + described_amounts(answer.asked));
}

void add_method(const Reported& reported, ReportText& text)
{
    const Answer& answer = reported.answer;
    const std::optional<int>& decimals = answer.printed.proven.decimals;
    text.heading("Method");
    const bool whole = answer.asked.request.pieces == plparcel::Pieces::any || !answer.parcel.holes.empty();
    const std::string found =
        whole
            ? "Each line is computed with all digits, and proven: it ends on the boundary, and the pieces on "
              "either side of it hold what they should. "
            : "Each line is computed with all digits, and proven: it lies in the parcel, ends on the "
              "boundary "
              "and makes exactly two pieces. ";
    text.paragraph(found + (decimals
                                ? "Its ends are then rounded to " + std::to_string(*decimals) +
                                      " decimals, and the rounded line is proven again. The areas below are "
                                      "those of the rounded lines."
                                : std::string("Its ends keep all their digits.")));
}

void add_points(const Reported& reported, ReportText& text)
{
    for (const bool is_new : {true, false}) {
        std::vector<Cells> rows = {{"Point", "E", "N"}};
        if (reported.has_heights())
            rows[0].push_back("Z");
        for (std::size_t i = reported.points.corners; i < reported.points.points.size(); ++i) {
            if (reported.points.points[i].is_new != is_new)
                continue;
            rows.push_back(reported.coordinates(i));
            rows.back().insert(rows.back().begin(), reported.name(i));
        }
        if (!is_new && rows.size() == 1)
            continue;
        text.heading(is_new ? "New points" : "Corners of neighbours");
        text.table(rows);
    }
}

void add_lines(const Reported& reported, ReportText& text)
{
    const AngleUnit angles = reported.answer.asked.angles;
    std::vector<Cells> rows = {{"From", "to", "length", angle_head("bearing", angles)}};
    for (const DivisionPoints::Line& line : reported.points.lines)
        rows.push_back({reported.name(line.from), reported.name(line.to), reported.length(line.from, line.to),
                        bearing_text(bearing_gon(reported.points.points[line.from].at,
                                                 reported.points.points[line.to].at),
                                     angles)});
    text.heading("Dividing lines");
    text.table(rows);
}

void add_cut_sides(const Reported& reported, ReportText& text)
{
    std::vector<Cells> rows = {{"From", "to", "length"}};
    for (std::size_t side = 0; side < reported.points.corners; ++side) {
        const std::vector<std::size_t> along = reported.points.along(side);
        for (std::size_t i = 0; along.size() > 2 && i + 1 < along.size(); ++i)
            rows.push_back({reported.name(along[i]), reported.name(along[i + 1]),
                            reported.length(along[i], along[i + 1])});
        if (along.size() > 2)
            rows.push_back({reported.name(along.front()), reported.name(along.back()),
                            reported.length(along.front(), along.back())});
    }
    if (rows.size() == 1)
        return;
    text.heading("Sides that are cut: parts, then the whole");
    text.table(rows);
}

void add_pieces(const Reported& reported, ReportText& text)
{
    const PrintedDivision& printed = reported.answer.printed;
    const auto cells = [&](const std::string& name, double asked, double area) {
        return Cells{name, reported.area(asked), reported.area(area), reported.area(area - asked)};
    };
    std::vector<Cells> rows = {{"Piece", "asked", "area", "difference"}};
    std::string together;  // the pieces of an amount that has several
    for (std::size_t i = 0; i < printed.areas.size(); ++i) {
        const plparcel::Piece& piece = printed.proven.pieces[i];
        const plparcel::Held& held = printed.proven.held[piece.amount];
        const std::string name = piece_title(reported.answer.parcel.place.name, i);
        if (held.pieces == 1) {
            rows.push_back(cells(name, piece.asked, printed.areas[i]));
            continue;
        }
        rows.push_back({name, "", reported.area(printed.areas[i]), ""});
        together += (together.empty() ? "" : " + ") + name;
        const bool is_last =
            i + 1 == printed.areas.size() || printed.proven.pieces[i + 1].amount != piece.amount;
        if (is_last)
            rows.push_back(cells(std::exchange(together, {}), held.asked, held.area));
    }
    text.heading("Pieces");
    text.table(rows);
}

void add_checks(const Reported& reported, ReportText& text)
{
    const PrintedDivision& printed = reported.answer.printed;
    double sum = 0.0;
    double worst = 0.0;
    for (const double area : printed.areas)
        sum += area;
    for (const plparcel::Held& held : printed.proven.held)
        worst = std::max(worst, std::fabs(held.area - held.asked));
    text.heading("Checks");
    text.item("Sum of the pieces: " + reported.area(sum));
    text.item("Area of the parcel: " + reported.area(printed.proven.ring.area));
    text.item("Largest difference between asked and area: " + reported.area(worst));
}

}  // namespace

std::string division_report(const Answer& answer, ReportStyle style)
{
    const std::string& unit = answer.parcel.unit.name;
    const Reported reported = {answer, points_of(answer), unit.empty() ? "" : " " + unit};
    ReportText text(style);
    text.heading("Division of a parcel", true);
    add_parcel(reported, text);
    add_request(reported, text);
    add_method(reported, text);
    add_points(reported, text);
    add_lines(reported, text);
    add_cut_sides(reported, text);
    add_pieces(reported, text);
    add_checks(reported, text);
    return text.text();
}

std::string refusal_report(const Answer& answer, const Failure& refusal, ReportStyle style)
{
    const std::string& unit = answer.parcel.unit.name;
    const Reported reported = {answer, {}, unit.empty() ? "" : " " + unit};
    ReportText text(style);
    text.heading("A parcel that was not divided", true);
    add_parcel(reported, text);
    add_request(reported, text);
    text.heading("Why there is no line");
    text.paragraph(refusal.problem + (refusal.detail.empty() ? "" : ": " + refusal.detail));
    if (!refusal.advice.empty()) {
        text.heading("What to do");
        text.paragraph(refusal.advice);
    }
    return text.text();
}

std::string point_list(const Answer& answer)
{
    const DivisionPoints points = points_of(answer);
    const Resolution& resolution = answer.printed.resolution;
    const Heights heights(answer);
    const bool has_heights = !answer.parcel.heights.empty();
    std::string list = has_heights ? "name,E,N,Z,code\n" : "name,E,N,code\n";
    const auto add = [&](std::size_t i, int decimals) {
        const DivisionPoint& point = points.points[i];
        list += csv_cell(point.name) + "," + fixed(point.at.x, decimals) + "," + fixed(point.at.y, decimals) +
                ",";
        const std::optional<double> height = has_heights ? heights.at(point.at) : std::nullopt;
        list += height ? height_text(height, resolution.decimals) : "";
        list += (has_heights ? "," : "") + std::string(point.code()) + "\n";
    };
    for (std::size_t i = points.corners; i < points.points.size(); ++i)
        add(i, resolution.end_decimals);
    for (std::size_t i = 0; i < points.corners; ++i)
        add(i, resolution.decimals);
    return list;
}

}  // namespace tool
