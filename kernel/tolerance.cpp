#include "kernel/tolerance.h"

void PlFunz_snap_zero(double& v) noexcept
{
    if (plcalc::is_zero(v))
        v = 0.0;
}

double PlFunz_min_tol(double a, double b) noexcept
{
    return plcalc::below(a, b) ? a : b;
}

double PlFunz_max_tol(double a, double b) noexcept
{
    return plcalc::above(a, b) ? a : b;
}
