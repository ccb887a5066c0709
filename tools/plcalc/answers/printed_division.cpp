#include "answers/printed_division.h"

#include <algorithm>
#include <cstddef>

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
plparcel::Request request_for(const plparcel::Ring& ring, const Asked& asked)
{
    plparcel::Request request = asked.request;
    // A number below 1 becomes an index that no side or vertex has.
    request.line.index = asked.number > 0 ? static_cast<std::size_t>(asked.number - 1) : ring.size();
    const int decimals = resolution_of(ring, 1.0).decimals;
    if (!request.rounding.decimals && decimals <= plparcel::kMostDecimals)
        request.rounding.decimals = decimals;
    return request;
}

}  // namespace

PrintedDivision divide_in_print(const plparcel::Ring& ring, const Asked& asked)
{
    PrintedDivision printed;
    printed.proven = plparcel::divide(ring, request_for(ring, asked));
    const plparcel::Division& division = printed.proven;
    if (division.status == plparcel::Status::unusable_boundary)
        return printed;
    printed.resolution = resolution_of(ring, division.ring.area);
    printed.resolution.area_decimals =
        area_decimals(asked, division.ring.area, printed.resolution.area_decimals);
    if (!printed.done())
        return printed;
    printed.resolution.end_decimals = division.decimals.value_or(kMaxDecimals + 1);
    printed.resolution.decimals = std::max(printed.resolution.decimals, printed.resolution.end_decimals);
    for (const plparcel::DividingLine& line : division.lines)
        printed.lines.push_back({line.from, line.to});
    for (const plparcel::Piece& piece : division.pieces)
        printed.areas.push_back(piece.area);
    return printed;
}

namespace {

// What is asked for on the ground is cut off in the plane.
Asked in_plane(Asked asked, double ground_factor)
{
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
        return {parcel, asked, divide_in_print(parcel.ring, asked)};
    Answer answer = {parcel, asked, divide_in_print(parcel.ring, in_plane(asked, parcel.ground_factor))};
    bring_to_ground(answer.printed, parcel.ground_factor);
    return answer;
}

}  // namespace tool
