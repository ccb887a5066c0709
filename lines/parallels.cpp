#include "lines/parallels.h"

#include "kernel/tolerance.h"

namespace plcalc {

MeetsParallels::MeetsParallels(const PL_IMP_LINE_2D_record& fixed, double a, double b) noexcept
    : a_(fixed.a), b_(fixed.b), c_(fixed.c), same_direction_(is_zero(fixed.a - a) && is_zero(fixed.b - b))
{
    const double det = b * fixed.a - fixed.b * a;
    parallel_ = is_zero(det);
    if (parallel_)
        return;
    inv_ = PlFunz_inverse(det);
    ca_ = fixed.c * a;
    cb_ = fixed.c * b;
}

bool MeetsParallels::meets(double c) const noexcept
{
    return !parallel_ && !(same_direction_ && is_zero(c_ - c));
}

}  // namespace plcalc
