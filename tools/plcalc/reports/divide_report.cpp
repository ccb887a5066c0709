#include "reports/divide_report.h"

#include <algorithm>
#include <cstddef>

#include "answers/resolution.h"
#include "text/numbers.h"
#include "text/table.h"

namespace tool {
namespace {

using plparcel::Cut;
using plparcel::Measured;
using plparcel::Status;

constexpr const char* kTooCoarse =
    "coordinates are too large for so small a parcel: no line holds the amount once its ends are rounded to "
    "numbers";

std::string numbered(const char* what, long long number)
{
    return std::string(what) + " " + std::to_string(number);
}

// Vertices count on from the last to the first.
long long after(long long number, std::size_t vertices)
{
    return number % static_cast<long long>(vertices) + 1;
}

long long before(long long number, std::size_t vertices)
{
    return number > 1 ? number - 1 : static_cast<long long>(vertices);
}

std::string described_side(const Parcel& parcel, long long number)
{
    return numbered("side", number) + ", from vertex " + std::to_string(number) + " to vertex " +
           std::to_string(after(number, parcel.ring.size()));
}

std::string described_cut(const Parcel& parcel, const Asked& asked)
{
    switch (asked.request.cut) {
    case Cut::parallel:
        return "parallel to " + described_side(parcel, asked.number);
    case Cut::perpendicular:
        return "perpendicular to " + described_side(parcel, asked.number);
    case Cut::through_vertex:
        break;
    }
    return "through " + numbered("vertex", asked.number);
}

// Many equal ones are counted.
std::string described_amounts(const Asked& asked)
{
    constexpr std::size_t kMany = 4;
    const std::vector<std::string>& amounts = asked.amounts;
    if (amounts.size() > kMany && std::equal(amounts.begin() + 1, amounts.end(), amounts.begin()))
        return std::to_string(amounts.size()) + " times " + amounts.front();
    std::string list;
    for (const std::string& amount : amounts)
        list += (list.empty() ? "" : ", ") + amount;
    return list;
}

// Where the piece lies that is cut off first.
std::string place_of_first(const Asked& asked, std::size_t vertices)
{
    const bool near = asked.request.measured == Measured::from_reference;
    switch (asked.request.cut) {
    case Cut::parallel:
        return near ? "along " + numbered("side", asked.number)
                    : "beyond the line from " + numbered("side", asked.number);
    case Cut::perpendicular:
        return near ? "ahead towards " + numbered("vertex", after(asked.number, vertices))
                    : "behind towards " + numbered("vertex", asked.number);
    case Cut::through_vertex:
        break;
    }
    return "along " + numbered("side", near ? asked.number : before(asked.number, vertices));
}

std::string line_label(std::size_t line, std::size_t count)
{
    return count > 1 ? "Dividing line " + std::to_string(line + 1) : "Dividing line";
}

// One request: asked and got under each other. Several: next to each other.
std::vector<Row> area_rows(const Parcel& parcel, const Asked& asked, const PrintedDivision& printed)
{
    const auto area = [&](double value) { return fixed(value, printed.resolution.area_decimals); };
    const std::vector<plparcel::Piece>& pieces = printed.proven.pieces;
    std::vector<Row> rows;
    if (pieces.size() == 2) {
        rows = {{"Area", {}}, {"  requested", {area(pieces[0].asked)}}};
        for (std::size_t i = 0; i < pieces.size(); ++i)
            rows.push_back({"  " + piece_name(asked, parcel.ring.size(), i), {area(printed.areas[i])}});
    } else {
        rows = {{"Area", {"requested", "measured"}}};
        for (std::size_t i = 0; i < pieces.size(); ++i)
            rows.push_back({"  " + piece_name(asked, parcel.ring.size(), i),
                            {area(pieces[i].asked), area(printed.areas[i])}});
    }
    return rows;
}

std::string range(const Parcel& parcel)
{
    return "1 to " + std::to_string(parcel.ring.size());
}

std::string no_such_number(const Parcel& parcel, const Asked& asked)
{
    const bool vertex = asked.request.cut == Cut::through_vertex;
    return "there is no " + numbered(vertex ? "vertex" : "side", asked.number) + "; the parcel has " +
           (vertex ? "vertices " : "sides ") + range(parcel);
}

// The amount that could not be cut, as it was given.
std::string described_amount(const Asked& asked, std::size_t at)
{
    const std::string text = at < asked.amounts.size() ? asked.amounts[at] : std::string();
    return asked.amounts.size() > 1 ? text + " (number " + std::to_string(at + 1) + " of the list)" : text;
}

std::string out_of_range(const Parcel& parcel, const Asked& asked, const PrintedDivision& printed)
{
    const std::size_t at = printed.proven.at_amount;
    const double area = printed.proven.ring.area;
    const std::string amount = "the requested area " + described_amount(asked, at);
    const std::string whole = "the parcel's " + fixed(area, resolution_of(parcel.ring, area).area_decimals);
    if (printed.proven.status == Status::amount_too_small)
        return amount + " is next to nothing beside " + whole + "; ask for more";
    return amount + (at > 0 ? ", with those before it," : "") + " is not below " + whole + "; ask for less";
}

Json point(const PL_PNT2D_record& p, int decimals)
{
    return {{"e", number(p.x, decimals)}, {"n", number(p.y, decimals)}};
}

const char* cut_name(Cut cut)
{
    switch (cut) {
    case Cut::parallel:
        return "parallel";
    case Cut::perpendicular:
        return "perpendicular";
    case Cut::through_vertex:
        break;
    }
    return "vertex";
}

}  // namespace

std::string piece_name(const Asked& asked, std::size_t vertices, std::size_t piece)
{
    if (asked.request.amounts.size() == 1)
        return piece == 0 ? "cut off, " + place_of_first(asked, vertices) : "rest";
    const std::string name = "piece " + std::to_string(piece + 1);
    return piece == 0 ? name + ", " + place_of_first(asked, vertices) : name;
}

std::string cut_sentence(const Parcel& parcel, const Asked& asked)
{
    return "Cut " + described_cut(parcel, asked) + ": " + described_amounts(asked);
}

std::string division_table(const Parcel& parcel, const Asked& asked, const PrintedDivision& printed)
{
    const auto length = [&](double value) { return fixed(value, printed.resolution.decimals); };
    const plparcel::RingReport& ring = printed.proven.ring;
    std::vector<Row> rows;
    for (std::size_t i = 0; i < printed.lines.size(); ++i) {
        const PL_LINE_2D_record& line = printed.lines[i];
        rows.push_back({line_label(i, printed.lines.size()), {"E", "N"}});
        rows.push_back({"  from", {length(line.start.x), length(line.start.y)}});
        rows.push_back({"  to", {length(line.end.x), length(line.end.y)}});
    }
    rows.push_back({"", {}});
    for (const Row& row : area_rows(parcel, asked, printed))
        rows.push_back(row);
    const std::vector<std::string> indent(printed.lines.size() > 1 ? 1 : 0);
    rows.push_back({"  parcel", indent});
    rows.back().cells.push_back(fixed(ring.area, printed.resolution.area_decimals));
    rows.push_back({"Perimeter", indent});
    rows.back().cells.push_back(length(ring.perimeter));
    return "Parcel  " + parcel.where + "\n        " + std::to_string(parcel.ring.size()) + " vertices, " +
           direction_name(ring.anticlockwise) + "\nCut     " + described_cut(parcel, asked) + "\nAsked   " +
           described_amounts(asked) + "\n\n" + labelled(rows);
}

Json division_json(const Parcel& parcel, const Asked& asked, const PrintedDivision& printed)
{
    const int decimals = printed.resolution.decimals;
    const int area_decimals = printed.resolution.area_decimals;
    const plparcel::RingReport& ring = printed.proven.ring;
    Json json;
    json["parcel"] = parcel.where;
    json["status"] = "divided";
    json["cut"] = cut_name(asked.request.cut);
    json["number"] = asked.number;
    json["measured"] = asked.request.measured == Measured::from_reference ? "from_reference" : "opposite";
    json["area"] = number(ring.area, area_decimals);
    json["perimeter"] = number(ring.perimeter, decimals);
    json["orientation"] = direction_name(ring.anticlockwise);
    json["lines"] = Json::array();
    for (const PL_LINE_2D_record& line : printed.lines)
        json["lines"].push_back({{"from", point(line.start, decimals)}, {"to", point(line.end, decimals)}});
    json["pieces"] = Json::array();
    for (std::size_t i = 0; i < printed.areas.size(); ++i)
        json["pieces"].push_back({{"piece", piece_name(asked, parcel.ring.size(), i)},
                                  {"given", i < asked.amounts.size() ? Json(asked.amounts[i]) : Json()},
                                  {"requested", number(printed.proven.pieces[i].asked, area_decimals)},
                                  {"area", number(printed.areas[i], area_decimals)}});
    return json;
}

std::string refusal_reason(const PrintedDivision& printed)
{
    return printed.too_coarse ? kTooCoarse : plparcel::describe(printed.proven);
}

Failure division_failure(const Parcel& parcel, const Asked& asked, const PrintedDivision& printed)
{
    const auto failure = [&](ExitStatus status, const std::string& what) {
        return Failure(status, parcel.where + ": " + what);
    };
    const Status status = printed.proven.status;
    const std::string amount = described_amount(asked, printed.proven.at_amount);
    switch (status) {
    case Status::no_such_index:
        return failure(ExitStatus::wrong_use, no_such_number(parcel, asked));
    case Status::side_without_length:
        return failure(ExitStatus::wrong_use, numbered("side", asked.number) +
                                                  " has no length, its two vertices are one point; "
                                                  "choose the side before or after it");
    case Status::no_amount:
    case Status::unusable_amount:
    case Status::amount_too_small:
    case Status::amount_too_large:
        return failure(ExitStatus::cannot_cut, out_of_range(parcel, asked, printed));
    case Status::base_reaches_behind:
        return failure(ExitStatus::cannot_cut, "what lies behind " + numbered("side", asked.number) +
                                                   " alone is more than the requested area " + amount +
                                                   "; ask for more, or for another side or kind of cut");
    case Status::line_leaves_parcel:
        return failure(ExitStatus::cannot_cut,
                       "every line that holds the requested area " + amount +
                           " leaves the parcel or touches its boundary on the way; ask for another side, "
                           "vertex or kind of cut");
    case Status::not_reached:
    case Status::divided:
        return failure(ExitStatus::cannot_cut,
                       std::string(kTooCoarse) + "; move the parcel to an origin nearby");
    default:
        break;
    }
    return failure(ExitStatus::unusable_input,
                   std::string(plparcel::describe(printed.proven)) + "; correct the parcel");
}

}  // namespace tool
