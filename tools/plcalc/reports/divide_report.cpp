#include "reports/parcel_reports.h"

#include <cstddef>
#include <optional>
#include <vector>

#include "answers/heights.h"
#include "answers/nearness.h"
#include "reports/tally.h"
#include "reports/words.h"
#include "text/numbers.h"
#include "text/table.h"

namespace tool {
namespace {

using plparcel::Cut;
using plparcel::Measured;

std::string line_label(const PrintedDivision& printed, std::size_t i)
{
    const PrintedLine& line = printed.lines[i];
    const std::size_t count = printed.proven.lines.size();
    return std::string("Dividing line") + (count > 1 ? " " + std::to_string(line.line + 1) : "") +
           (line.parts > 1 ? ", part " + std::to_string(line.part + 1) : "");
}

// With one request, the requested and the measured area stand below each other; with several, beside each
// other. An amount in several pieces is followed by them.
std::vector<Row> area_rows(const Answer& answer)
{
    const PrintedDivision& printed = answer.printed;
    const auto area = [&](double value) { return fixed(value, printed.resolution.area_decimals); };
    const std::vector<plparcel::Held>& held = printed.proven.held;
    const bool one_amount = held.size() == 2;
    std::vector<Row> rows = {{"Area", {}}};
    if (one_amount)
        rows.push_back({"  requested", {area(held[0].asked)}});
    else
        rows = {{"Area", {"requested", "measured"}}};
    std::size_t piece = 0;
    for (std::size_t i = 0; i < held.size(); ++i) {
        const std::string label = "  " + amount_name(answer.asked, answer.parcel, i);
        const std::string total = area(held[i].pieces == 1 ? printed.areas[piece] : held[i].area);
        rows.push_back({label, {total}});
        if (!one_amount)
            rows.back().cells.insert(rows.back().cells.begin(), area(held[i].asked));
        for (std::size_t k = 0; k < held[i].pieces; ++k, ++piece)
            if (held[i].pieces > 1)
                rows.push_back({"    " + std::to_string(k + 1) + " of " + std::to_string(held[i].pieces),
                                one_amount ? std::vector<std::string>{area(printed.areas[piece])}
                                           : std::vector<std::string>{"", area(printed.areas[piece])}});
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

// Where there are several lines to choose from, which one this is. Not always are these all that hold the area: through the
// middle of a rectangle every line does.
std::string described_alternative(const Answer& answer)
{
    const std::size_t count = answer.printed.alternatives;
    if (count == 0)
        return "";
    const std::size_t chosen = answer.asked.request.alternative;
    return "Chosen  line " + std::to_string(chosen + 1) + " of " + std::to_string(count) +
           (count > 1 ? " to choose from (--alternative)\n" : "\n");
}

// Which side it is that was asked for by what it is.
std::string described_choice(const Answer& answer)
{
    std::string text = answer.asked.chosen;
    const std::size_t next = text.find("; ");
    if (next != std::string::npos)
        text.replace(next, 2, ";\n        ");
    return text.empty() ? "" : "\nChosen  " + text;
}

// What nobody can stake out must be said.
std::string warnings(const Answer& answer)
{
    std::string text;
    for (const NearSide& near : lines_at_sides(answer))
        text += line_label(answer.printed, near.line) + " is within " + shortest(kStakeoutMetres) + " m of " +
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

// A dividing line, of which this is the first part.
Json line_json(const Answer& answer, std::size_t first, const Heights& heights)
{
    const std::vector<PrintedLine>& lines = answer.printed.lines;
    const std::size_t parts = lines[first].parts;
    Json json = {{"from", point(lines[first].start, answer, heights)},
                 {"to", point(lines[first + parts - 1].end, answer, heights)}};
    for (std::size_t i = first; parts > 1 && i < first + parts; ++i)
        json["segments"].push_back(
            {{"from", point(lines[i].start, answer, heights)}, {"to", point(lines[i].end, answer, heights)}});
    return json;
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
    const auto length = [&](double value) { return fixed(value, printed.resolution.decimals); };
    const plparcel::RingReport& ring = printed.proven.ring;
    const Heights heights(answer);
    std::vector<std::string> axes = {"E", "N"};
    if (!answer.parcel.heights.empty())
        axes.push_back("Z");
    std::vector<Row> rows;
    for (std::size_t i = 0; i < printed.lines.size(); ++i) {
        const PrintedLine& line = printed.lines[i];
        rows.push_back({line_label(printed, i), axes});
        rows.push_back({"  from", coordinates(line.start, answer, heights)});
        rows.push_back({"  to", coordinates(line.end, answer, heights)});
    }
    rows.push_back({"", {}});
    for (const Row& row : area_rows(answer))
        rows.push_back(row);
    const std::vector<std::string> indent(printed.proven.lines.size() > 1 ? 1 : 0);
    rows.push_back({"  parcel", indent});
    rows.back().cells.push_back(fixed(ring.area, printed.resolution.area_decimals));
    rows.push_back({"Perimeter", indent});
    rows.back().cells.push_back(length(ring.perimeter));
    return "Parcel  " + heading(answer.parcel.place, answer.parcel.assumed) + "\n        " +
           described_rings(answer.parcel, ring.anticlockwise) + "\nCut     " +
           described_cut(answer.asked, answer.parcel) + described_choice(answer) + "\nAsked   " +
           described_amounts(answer.asked) + "\n" + described_decimals(answer) +
           described_alternative(answer) + "\n" + labelled(rows) + warnings(answer);
}

std::string division_notes(const Answer& answer)
{
    const Parcel& parcel = answer.parcel;
    const std::string warned = warnings(answer);
    return (parcel.assumed.empty() ? "" : "Parcel  " + heading(parcel.place, parcel.assumed) + "\n") +
           described_decimals(answer) + (warned.empty() ? "" : warned.substr(1));
}

Json division_json(const Answer& answer)
{
    const Asked& asked = answer.asked;
    const PrintedDivision& printed = answer.printed;
    const int decimals = printed.resolution.decimals;
    const int area_decimals = printed.resolution.area_decimals;
    const plparcel::RingReport& ring = printed.proven.ring;
    Json json = place_json(answer.parcel.place);
    if (!answer.parcel.assumed.empty())
        json["assumed"] = answer.parcel.assumed;
    json["status"] = "divided";
    json["cut"] = cut_name(asked.request.line.cut);
    if (asked.number != 0)
        json["number"] = asked.number;
    if (!asked.chosen.empty())
        json["chosen"] = asked.chosen;
    if (!asked.line.empty())
        json["line"] = asked.line;
    if (printed.alternatives > 0) {
        json["alternative"] = asked.request.alternative + 1;
        json["alternatives"] = printed.alternatives;
    }
    json["measured"] = asked.request.measured == Measured::from_reference ? "from_reference" : "opposite";
    json["area"] = number(ring.area, area_decimals);
    json["perimeter"] = number(ring.perimeter, decimals);
    json["orientation"] = direction_name(ring.anticlockwise);
    json["decimals"] = printed.proven.decimals ? Json(*printed.proven.decimals) : Json();
    const Heights heights(answer);
    json["lines"] = Json::array();
    for (std::size_t i = 0, part = 0; i < printed.proven.lines.size(); part += printed.lines[part].parts, ++i)
        json["lines"].push_back(line_json(answer, part, heights));
    for (const NearSide& near : lines_at_sides(answer))
        json["lines"][printed.lines[near.line].line]["at_side"] = near.side + 1;
    json["pieces"] = Json::array();
    for (std::size_t i = 0; i < printed.areas.size(); ++i) {
        const plparcel::Piece& piece = printed.proven.pieces[i];
        json["pieces"].push_back(
            {{"piece", piece_name(answer, i)},
             {"amount", piece.amount + 1},
             {"given", piece.amount < asked.amounts.size() ? Json(asked.amounts[piece.amount]) : Json()},
             {"requested", number(piece.asked, area_decimals)},
             {"area", number(printed.areas[i], area_decimals)}});
        if (printed.proven.held[piece.amount].pieces > 1)
            json["pieces"].back()["area_of_amount"] =
                number(printed.proven.held[piece.amount].area, area_decimals);
    }
    return json;
}

}  // namespace tool
