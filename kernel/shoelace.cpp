#include "kernel/shoelace.h"

namespace plcalc {

double shoelace_area(const PL_PNT2D_record* points, std::size_t n) noexcept
{
    double sum = 0.0;
    for (std::size_t i = 0; i < n; ++i) {
        const PL_PNT2D_record& before = points[i == 0 ? n - 1 : i - 1];
        const PL_PNT2D_record& after = points[i + 1 == n ? 0 : i + 1];
        sum = shoelace_share(before, points[i], after) + sum;
    }
    return sum;
}

}  // namespace plcalc
