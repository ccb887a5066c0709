#include <cmath>

#include "numbers/wide.h"
#include "plparcel/rounding.h"

namespace plparcel {

double rounded_to(double value, int decimals) noexcept
{
    constexpr double kHalf = 0.5;
    // From here on all doubles are whole numbers: the decimal number nearest to the value is next to the same double.
    constexpr double kAllWhole = 0x1p53;
    double power = 1.0;  // of ten, exact up to 1e22
    for (int i = 0; i < decimals; ++i)
        power *= 10.0;
    const Wide steps = exact_product(value, power);
    if (!(std::fabs(steps.hi) < kAllWhole))
        return value;
    const double floor = std::floor(steps.hi);
    const Wide above = exact_sum(steps.hi - floor, steps.lo);
    const bool is_tie = !(above < kHalf) && !(above > kHalf);
    const bool floor_is_even = std::fmod(floor, 2.0) == 0.0;
    const double whole = above > kHalf || (is_tie && !floor_is_even) ? floor + 1.0 : floor;
    return whole / power + 0.0;  // of two exact numbers, rounded once; -0 becomes 0
}

}  // namespace plparcel
