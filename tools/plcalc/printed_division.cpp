#include "printed_division.h"

#include <algorithm>
#include <cmath>

#include "numbers.h"

namespace tool {
namespace {

using Ring = std::vector<PL_PNT2D_record>;

// A line may be off by this part of the parcel's extent, which is what its area may be off by too. Half a step
// in the last place is the rounding.
constexpr double kRelExtentStep = 2e-6;

// Areas show the tenth part of what they may miss, and the first three digits of whatever was asked for.
constexpr double kRelParcelStep = 1e-7;
constexpr double kRelRequestStep = 1e-3;

double extent_of(const Ring& ring)
{
    PL_PNT2D_record low = ring.front();
    PL_PNT2D_record high = ring.front();
    for (const PL_PNT2D_record& p : ring) {
        low = {std::min(low.x, p.x), std::min(low.y, p.y)};
        high = {std::max(high.x, p.x), std::max(high.y, p.y)};
    }
    return std::max(high.x - low.x, high.y - low.y);
}

double read_back(double coordinate, int decimals)
{
    return parse_number(fixed(coordinate, decimals)).value();
}

PL_PNT2D_record read_back(const PL_PNT2D_record& p, int decimals)
{
    return {read_back(p.x, decimals), read_back(p.y, decimals)};
}

// Half a step in the last place, on both axes.
double rounding_of(int decimals)
{
    return decimals > kMaxDecimals ? 0.0 : std::sqrt(0.5) * std::pow(10.0, -decimals);
}

}  // namespace

Outcome divide_in_print(const std::vector<PL_PNT2D_record>& ring, const Request& request,
                        PrintedDivision& printed)
{
    printed = {};
    const Outcome outcome = divide(ring, request, printed.division);
    printed.area_decimals = decimals_for(
        std::min(kRelParcelStep * printed.division.parcel_area, kRelRequestStep * request.area()));
    if (outcome != Outcome::divided)
        return outcome;

    const Division found = printed.division;
    int decimals = decimals_for(kRelExtentStep * extent_of(ring));
    for (; decimals <= kMaxDecimals + 1; ++decimals) {
        const PL_PNT2D_record from = read_back(found.from, decimals);
        const PL_PNT2D_record to = read_back(found.to, decimals);
        printed.decimals = decimals;
        if (judge(ring, request, from, to, rounding_of(decimals), printed.division) == Outcome::divided)
            return Outcome::divided;
    }
    printed.division = found;
    return Outcome::doubles_too_coarse;
}

}  // namespace tool
