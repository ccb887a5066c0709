#include "answers/printed_division.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <utility>

#include "plparcel/extent.h"
#include "text/numbers.h"

namespace tool {
namespace {

// Areas show the first three digits of whatever was asked for.
constexpr double kRelRequestStep = 1e-3;

int area_decimals(const Asked& asked, double parcel_area, int decimals)
{
    for (const plparcel::Amount& amount : asked.request.amounts) {
        const double wanted = area_of(amount, parcel_area);
        if (wanted > 0.0)
            decimals = std::max(decimals, decimals_for(kRelRequestStep * wanted));
    }
    return decimals;
}

// In a parcel too small for decimals the lines keep all their digits.
plparcel::Request request_for(const Parcel& parcel, const Asked& asked)
{
    plparcel::Request request = asked.request;
    // A number that no side or vertex has stays an index that none has.
    const std::size_t number = static_cast<std::size_t>(asked.number - 1);
    const std::optional<RingIndex> at = in_ring(parcel, number);
    request.line.index = at ? at->index : parcel.ring.size();
    request.line.ring = at ? at->ring : 0;
    const int decimals = resolution_of(parcel.ring, 1.0).decimals;
    if (!request.rounding.decimals && decimals <= plparcel::kMostDecimals)
        request.rounding.decimals = decimals;
    return request;
}

plparcel::Division divide(const Parcel& parcel, const plparcel::Request& request)
{
    return parcel.holes.empty() ? plparcel::divide(parcel.ring, request)
                                : plparcel::divide(boundary_of(parcel), request);
}

bool reads_back(double value, int decimals)
{
    return parse_number(fixed(value, decimals)) == value;
}

// As many decimals as show all digits of all ends.
int decimals_of(const std::vector<PrintedLine>& lines, int decimals)
{
    for (const PrintedLine& line : lines)
        for (const double value : {line.start.x, line.start.y, line.end.x, line.end.y})
            while (decimals <= kMaxDecimals && !reads_back(value, decimals))
                ++decimals;
    return decimals;
}

std::vector<PrintedLine> lines_of(const plparcel::Division& division)
{
    std::vector<PrintedLine> lines;
    for (std::size_t i = 0; i < division.lines.size(); ++i) {
        const std::vector<plparcel::Segment>& parts = division.lines[i].segments;
        for (std::size_t k = 0; k < parts.size(); ++k)
            lines.push_back({parts[k].from, parts[k].to, i, k, parts.size()});
    }
    return lines;
}

// What is printed of a division beside what plparcel says.
void complete(const Parcel& parcel, const Asked& asked, PrintedDivision& printed)
{
    const plparcel::Division& division = printed.proven;
    if (division.status == plparcel::Status::unusable_boundary)
        return;
    printed.resolution = resolution_of(parcel.ring, division.ring.area);
    printed.resolution.area_decimals =
        area_decimals(asked, division.ring.area, printed.resolution.area_decimals);
    if (!printed.done())
        return;
    printed.lines = lines_of(division);
    Resolution& resolution = printed.resolution;
    resolution.end_decimals =
        division.decimals ? *division.decimals : decimals_of(printed.lines, resolution.decimals);
    // Lengths beside ends with all their digits need no more decimals than others.
    if (division.decimals || resolution.end_decimals > kMaxDecimals)
        resolution.decimals = std::max(resolution.decimals, resolution.end_decimals);
    for (const plparcel::Piece& piece : division.pieces)
        printed.areas.push_back(piece.area);
}

// All lines of these kinds are known, with holes and without.
bool is_whole_through(const Asked& asked)
{
    const plparcel::Cut cut = asked.request.line.cut;
    return asked.request.pieces == plparcel::Pieces::any &&
           (cut == plparcel::Cut::through_vertex || cut == plparcel::Cut::through_place ||
            cut == plparcel::Cut::through_point);
}

// The line that is asked for, and how many there are.
PrintedDivision with_alternatives(const Parcel& parcel, plparcel::Request request, const Asked& asked)
{
    const std::size_t chosen = std::exchange(request.alternative, 0);
    std::vector<plparcel::Division> all = plparcel::all_divisions(boundary_of(parcel), request);
    PrintedDivision printed;
    const bool divided = all.front().status == plparcel::Status::divided;
    printed.alternatives = divided ? all.size() : 0;
    printed.proven = std::move(all[divided && chosen < all.size() ? chosen : 0]);
    if (divided && chosen >= all.size()) {
        printed.proven = {};
        printed.proven.status = plparcel::Status::no_further_line;
        printed.proven.ring = plparcel::check_parcel(boundary_of(parcel));
    }
    complete(parcel, asked, printed);
    return printed;
}

}  // namespace

PrintedDivision divide_in_print(const Parcel& parcel, const Asked& asked)
{
    PrintedDivision printed;
    const plparcel::Request request = request_for(parcel, asked);
    if (asked.count_alternatives && (parcel.holes.empty() || is_whole_through(asked)))
        return with_alternatives(parcel, request, asked);
    printed.proven = divide(parcel, request);
    complete(parcel, asked, printed);
    return printed;
}

namespace {

// What is asked for on the ground is cut off in the plane.
Asked in_plane(Asked asked, double ground_factor)
{
    asked.request.line.along *= ground_factor;
    for (plparcel::Amount& amount : asked.request.amounts) {
        switch (amount.given) {
        case plparcel::Given::as_area:
            amount.first *= ground_factor * ground_factor;
            break;
        case plparcel::Given::as_product:
            amount.first *= ground_factor;
            amount.second *= ground_factor;
            break;
        case plparcel::Given::as_width:
            amount.first *= ground_factor;
            break;
        case plparcel::Given::as_share:
            break;  // the same in both
        }
    }
    return asked;
}

void bring_to_ground(PrintedDivision& printed, double ground_factor)
{
    const double square = ground_factor * ground_factor;
    printed.proven.ring.area /= square;
    printed.proven.ring.perimeter /= ground_factor;
    for (plparcel::Piece& piece : printed.proven.pieces) {
        piece.area /= square;
        piece.asked /= square;
        piece.residual /= square;
    }
    for (plparcel::Held& held : printed.proven.held) {
        held.area /= square;
        held.asked /= square;
        held.residual /= square;
    }
    for (double& area : printed.areas)
        area /= square;
}

}  // namespace

Answer answer(const Parcel& parcel, const Asked& asked)
{
    if (parcel.ground_factor == 1.0)
        return {parcel, asked, divide_in_print(parcel, asked)};
    Answer answer = {parcel, asked, divide_in_print(parcel, in_plane(asked, parcel.ground_factor))};
    bring_to_ground(answer.printed, parcel.ground_factor);
    return answer;
}

}  // namespace tool
