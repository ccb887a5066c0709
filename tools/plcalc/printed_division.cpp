#include "printed_division.h"

#include <algorithm>
#include <cmath>

#include "numbers.h"
#include "resolution.h"

namespace tool {
namespace {

using Ring = std::vector<PL_PNT2D_record>;

// Areas show the first three digits of whatever was asked for.
constexpr double kRelRequestStep = 1e-3;

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
    if (ring.empty())
        return outcome;
    const Resolution resolution = resolution_of(ring, printed.division.parcel_area);
    printed.area_decimals =
        std::max(resolution.area_decimals, decimals_for(kRelRequestStep * request.area()));
    if (outcome != Outcome::divided)
        return outcome;

    const Division found = printed.division;
    int decimals = resolution.decimals;
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
