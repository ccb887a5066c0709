#include "reports/parcel_reports.h"

#include <cstddef>
#include <optional>
#include <vector>

#include "answers/heights.h"
#include "answers/nearness.h"
#include "reports/words.h"
#include "text/numbers.h"
#include "text/table.h"

namespace tool {
namespace {

using plparcel::Cut;
using plparcel::Measured;

std::string line_label(std::size_t line, std::size_t count)
{
    return count > 1 ? "Dividing line " + std::to_string(line + 1) : "Dividing line";
}

// With one request, the requested and the measured area stand below each other; with several, beside each
// other.
std::vector<Row> area_rows(const Answer& answer)
{
    const PrintedDivision& printed = answer.printed;
    const auto area = [&](double value) { return fixed(value, printed.resolution.area_decimals); };
    const auto label = [&](std::size_t i) {
        return "  " + piece_name(answer.asked, answer.parcel.ring.size(), i);
    };
    const std::vector<plparcel::Piece>& pieces = printed.proven.pieces;
    std::vector<Row> rows;
    if (pieces.size() == 2) {
        rows = {{"Area", {}}, {"  requested", {area(pieces[0].asked)}}};
        for (std::size_t i = 0; i < pieces.size(); ++i)
            rows.push_back({label(i), {area(printed.areas[i])}});
    } else {
        rows = {{"Area", {"requested", "measured"}}};
        for (std::size_t i = 0; i < pieces.size(); ++i)
            rows.push_back({label(i), {area(pieces[i].asked), area(printed.areas[i])}});
    }
    return rows;
}

// What the table says where the lines have other decimals than were asked for.
std::string described_decimals(const Answer& answer)
{
    const std::optional<int>& asked = answer.asked.request.rounding.decimals;
    const std::optional<int>& needed = answer.printed.proven.decimals;
    if (!asked || asked == needed)
        return "";
    return "Lines   with " + (needed ? std::to_string(*needed) + " decimals" : "all their digits") + ": " +
           std::to_string(*asked) + " do not hold the area\n";
}

// What nobody can stake out must be said.
std::string warnings(const Answer& answer)
{
    std::string text;
    for (const NearSide& near : lines_at_sides(answer))
        text += line_label(near.line, answer.printed.lines.size()) + " is within " +
                shortest(kStakeoutMetres) + " m of " +
                numbered("side", static_cast<long long>(near.side) + 1) +
                ": staked out, the two cannot be told apart\n";
    return text.empty() ? text : "\n" + text;
}

Json point(const PL_PNT2D_record& p, const Answer& answer, const Heights& heights)
{
    const Resolution& resolution = answer.printed.resolution;
    Json json = {{"e", number(p.x, resolution.end_decimals)}, {"n", number(p.y, resolution.end_decimals)}};
    if (!answer.parcel.heights.empty())
        json["z"] = number(height_text(heights.at(p), resolution.decimals));
    return json;
}

// E, N and, where the parcel has heights, Z.
std::vector<std::string> coordinates(const PL_PNT2D_record& p, const Answer& answer, const Heights& heights)
{
    const Resolution& resolution = answer.printed.resolution;
    std::vector<std::string> cells = {fixed(p.x, resolution.end_decimals),
                                      fixed(p.y, resolution.end_decimals)};
    if (!answer.parcel.heights.empty())
        cells.push_back(height_text(heights.at(p), resolution.decimals));
    return cells;
}

const char* cut_name(Cut cut)
{
    switch (cut) {
    case Cut::parallel:
        return "parallel";
    case Cut::perpendicular:
        return "perpendicular";
    case Cut::at_bearing:
        return "bearing";
    case Cut::along_segment:
        return "segment";
    case Cut::through_place:
        return "place";
    case Cut::through_point:
        return "point";
    case Cut::through_vertex:
        break;
    }
    return "vertex";
}

}  // namespace

std::string division_table(const Answer& answer)
{
    const PrintedDivision& printed = answer.printed;
    const std::size_t vertices = answer.parcel.ring.size();
    const auto length = [&](double value) { return fixed(value, printed.resolution.decimals); };
    const plparcel::RingReport& ring = printed.proven.ring;
    const Heights heights(answer.parcel, printed.proven.decimals);
    std::vector<std::string> axes = {"E", "N"};
    if (!answer.parcel.heights.empty())
        axes.push_back("Z");
    std::vector<Row> rows;
    for (std::size_t i = 0; i < printed.lines.size(); ++i) {
        const PL_LINE_2D_record& line = printed.lines[i];
        rows.push_back({line_label(i, printed.lines.size()), axes});
        rows.push_back({"  from", coordinates(line.start, answer, heights)});
        rows.push_back({"  to", coordinates(line.end, answer, heights)});
    }
    rows.push_back({"", {}});
    for (const Row& row : area_rows(answer))
        rows.push_back(row);
    const std::vector<std::string> indent(printed.lines.size() > 1 ? 1 : 0);
    rows.push_back({"  parcel", indent});
    rows.back().cells.push_back(fixed(ring.area, printed.resolution.area_decimals));
    rows.push_back({"Perimeter", indent});
    rows.back().cells.push_back(length(ring.perimeter));
    return "Parcel  " + heading(answer.parcel.place, answer.parcel.assumed) + "\n        " +
           std::to_string(vertices) + " vertices, " + direction_name(ring.anticlockwise) + "\nCut     " +
           described_cut(answer.asked, vertices) + "\nAsked   " + described_amounts(answer.asked) + "\n" +
           described_decimals(answer) + "\n" + labelled(rows) + warnings(answer);
}

Json division_json(const Answer& answer)
{
    const Asked& asked = answer.asked;
    const PrintedDivision& printed = answer.printed;
    const int decimals = printed.resolution.decimals;
    const int area_decimals = printed.resolution.area_decimals;
    const plparcel::RingReport& ring = printed.proven.ring;
    Json json;
    json["parcel"] = answer.parcel.place.text();
    if (!answer.parcel.assumed.empty())
        json["assumed"] = answer.parcel.assumed;
    json["status"] = "divided";
    json["cut"] = cut_name(asked.request.line.cut);
    json["number"] = asked.number;
    json["measured"] = asked.request.measured == Measured::from_reference ? "from_reference" : "opposite";
    json["area"] = number(ring.area, area_decimals);
    json["perimeter"] = number(ring.perimeter, decimals);
    json["orientation"] = direction_name(ring.anticlockwise);
    json["decimals"] = printed.proven.decimals ? Json(*printed.proven.decimals) : Json();
    const Heights heights(answer.parcel, printed.proven.decimals);
    json["lines"] = Json::array();
    for (const PL_LINE_2D_record& line : printed.lines)
        json["lines"].push_back(
            {{"from", point(line.start, answer, heights)}, {"to", point(line.end, answer, heights)}});
    for (const NearSide& near : lines_at_sides(answer))
        json["lines"][near.line]["at_side"] = near.side + 1;
    json["pieces"] = Json::array();
    for (std::size_t i = 0; i < printed.areas.size(); ++i)
        json["pieces"].push_back({{"piece", piece_name(asked, answer.parcel.ring.size(), i)},
                                  {"given", i < asked.amounts.size() ? Json(asked.amounts[i]) : Json()},
                                  {"requested", number(printed.proven.pieces[i].asked, area_decimals)},
                                  {"area", number(printed.areas[i], area_decimals)}});
    return json;
}

}  // namespace tool
