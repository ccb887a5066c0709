#include "answers/question.h"

#include <cmath>
#include <limits>

#include "plparcel/extent.h"
#include "text/numbers.h"

namespace {

// The last decimal of a coordinate, as a part of the parcel's extent. Rounding moves a line by half of it, a
// millionth of the extent.
constexpr double kRelExtentStep = 2e-6;

constexpr double kRelAreaStep = 1e-7;

}  // namespace

namespace tool {

double on_ground(const Parcel& parcel, double length)
{
    return length / parcel.ground_factor;
}

std::optional<double> known_height(double height)
{
    return std::isfinite(height) ? std::optional<double>(height) : std::nullopt;
}

std::string heading(const Place& place, const std::vector<std::string>& assumed)
{
    std::string clauses;
    for (const std::string& clause : assumed)
        clauses += (clauses.empty() ? "" : "; ") + clause;
    return place.text() + (clauses.empty() ? "" : " (" + clauses + ")");
}

Resolution resolution_of(const std::vector<PL_PNT2D_record>& ring, double area)
{
    const int decimals = decimals_for(kRelExtentStep * plparcel::extent_of(ring).largest());
    return {decimals, decimals_for(kRelAreaStep * area), decimals};
}

double area_of(const plparcel::Amount& amount, double parcel_area)
{
    switch (amount.given) {
    case plparcel::Given::as_product:
        return amount.first * amount.second;
    case plparcel::Given::as_share:
        return parcel_area * amount.first / amount.second;
    case plparcel::Given::as_width:
        return std::numeric_limits<double>::quiet_NaN();  // the line decides
    case plparcel::Given::as_area:
        break;
    }
    return amount.first;
}

}  // namespace tool
