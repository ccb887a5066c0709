#include "reports/instead.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

#include "reports/words.h"
#include "text/numbers.h"

namespace tool {
namespace {

using plparcel::Cut;
using plparcel::Measured;
using plparcel::Status;

// Lines that are looked at, and those that are named.
constexpr std::size_t kMostLines = 60;
constexpr std::size_t kMostNamed = 5;

bool is_about_line(Status status)
{
    return status == Status::base_reaches_behind || status == Status::line_leaves_parcel ||
           status == Status::no_line_through_point;
}

// Towards the middle of the range, by a decimal that is printed.
double rounded(double area, int decimals, bool up)
{
    const double steps = std::pow(10.0, decimals);
    return (up ? std::ceil(area * steps) : std::floor(area * steps)) / steps;
}

// Whether a range that ends at the area has no other one that is printed.
bool is_single(const std::vector<plparcel::AmountRange>& ranges, double area, double to_plane, int decimals)
{
    return std::any_of(ranges.begin(), ranges.end(), [&](const plparcel::AmountRange& range) {
        return (range.least == area || range.most == area) &&
               rounded(range.most / to_plane, decimals, false) <=
                   rounded(range.least / to_plane, decimals, true);
    });
}

std::string words_of(const Instead::Amount& amount, const char* had, const char* not_had, int decimals)
{
    return (amount.is_single ? "exactly " : amount.is_had ? had : not_had) + fixed(amount.area, decimals);
}

Json json_of(const Instead::Amount& amount, int decimals)
{
    return {{"area", number(amount.area, decimals)}, {"had", amount.is_had}, {"only", amount.is_single}};
}

// "along side 2", "across side 1" or "from vertex 3", with --opposite where the other piece holds the amount.
std::string name_of(const Parcel& parcel, const plparcel::Alternative& line)
{
    const std::string number = std::to_string(number_of(parcel, line.line.ring, line.line.index) + 1);
    const std::string how = line.measured == Measured::opposite ? " (--opposite)" : "";
    switch (line.line.cut) {
    case Cut::parallel:
        return "along side " + number + how;
    case Cut::perpendicular:
        return "across side " + number + how;
    default:
        return "from vertex " + number + how;
    }
}

std::string named(const Parcel& parcel, const plparcel::Alternatives& lines)
{
    std::string names;
    const std::size_t count = lines.lines.size();
    for (std::size_t i = 0; i < count && i < kMostNamed; ++i)
        names += (i == 0 ? "" : i + 1 == count ? " or " : ", ") + name_of(parcel, lines.lines[i]);
    return count > kMostNamed ? names + " or " + std::to_string(count - kMostNamed) + " other lines" : names;
}

const char* cut_option(Cut cut)
{
    return cut == Cut::parallel ? "parallel" : cut == Cut::perpendicular ? "perpendicular" : "vertex";
}

}  // namespace

std::optional<Instead> instead_of(const Answer& answer)
{
    const plparcel::Division& division = answer.printed.proven;
    const Asked& asked = answer.asked;
    const bool any_pieces = asked.request.pieces == plparcel::Pieces::any;
    const bool is_said = is_about_line(division.status) && division.at_amount == 0 &&
                         asked.request.amounts[0].given != plparcel::Given::as_width;
    if (!is_said)
        return std::nullopt;
    const plparcel::Parcel parcel = boundary_of(answer.parcel);
    plparcel::Line line = asked.request.line;
    const std::optional<RingIndex> at =
        in_ring(answer.parcel, asked.number > 0 ? static_cast<std::size_t>(asked.number - 1) : 0);
    line.index = at ? at->index : 0;
    line.ring = at ? at->ring : 0;
    line.along *= answer.parcel.ground_factor;
    const double to_plane = answer.parcel.ground_factor * answer.parcel.ground_factor;
    const plparcel::Feasible feasible =
        plparcel::feasible(parcel, line, asked.request.measured, asked.request.pieces);
    const double wanted = area_of(asked.request.amounts[0], feasible.parcel / to_plane) * to_plane;
    const plparcel::NearestAmounts nearest = plparcel::nearest_amounts(feasible.ranges, wanted);
    Instead instead;
    instead.decimals = resolution_of(answer.parcel.ring, feasible.parcel).area_decimals;
    if (nearest.below)
        instead.below = {rounded(*nearest.below / to_plane, instead.decimals, false), nearest.below_is_had,
                         is_single(feasible.ranges, *nearest.below, to_plane, instead.decimals)};
    if (nearest.above)
        instead.above = {rounded(*nearest.above / to_plane, instead.decimals, true), nearest.above_is_had,
                         is_single(feasible.ranges, *nearest.above, to_plane, instead.decimals)};
    if (instead.below && !(instead.below->area > 0.0))
        instead.below.reset();
    instead.with_lines = !any_pieces;
    if (instead.with_lines)
        instead.lines =
            plparcel::alternatives_for(parcel, plparcel::area(wanted), asked.request.measured, kMostLines);
    return instead;
}

std::string advice_instead(const Parcel& parcel, const Instead& instead)
{
    std::string text;
    if (instead.below)
        text += words_of(*instead.below, "at most ", "less than ", instead.decimals);
    if (instead.above)
        text += (text.empty() ? "" : " or ") +
                words_of(*instead.above, "at least ", "more than ", instead.decimals);
    text = text.empty() ? "" : "ask for " + text;
    const std::string lines = named(parcel, instead.lines);
    if (!lines.empty())
        text += (text.empty() ? "" : ", or ") + std::string("cut ") + lines;
    return text;
}

Json json_instead(const Parcel& parcel, const Instead& instead)
{
    Json json;
    if (instead.below)
        json["below"] = json_of(*instead.below, instead.decimals);
    if (instead.above)
        json["above"] = json_of(*instead.above, instead.decimals);
    if (!instead.with_lines)
        return json;
    json["lines"] = Json::array();
    for (const plparcel::Alternative& line : instead.lines.lines)
        json["lines"].push_back({{"cut", cut_option(line.line.cut)},
                                 {"number", number_of(parcel, line.line.ring, line.line.index) + 1},
                                 {"opposite", line.measured == Measured::opposite}});
    json["whole_list"] = instead.lines.looked_at == instead.lines.of;
    return json;
}

}  // namespace tool
