#include "survey/extent.h"

namespace {

// A point this far outside a segment's extent is still on it, in the caller's unit: with metres the
// millimetre to which corners are staked out. Not the geometric tolerance, which is rounding noise.
constexpr double kStakeOutMargin = 0.001;

}  // namespace

namespace plcalc {

Extent extent_between(double lim1, double lim2) noexcept
{
    if (lim1 < lim2)
        return {lim1 - kStakeOutMargin, lim2 + kStakeOutMargin};
    return {lim2 - kStakeOutMargin, lim1 + kStakeOutMargin};
}

}  // namespace plcalc
