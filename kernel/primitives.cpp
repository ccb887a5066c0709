#include "kernel/square_root.h"
#include "kernel/tolerance.h"

double PlFunz_inverse(double v) noexcept
{
    return plcalc::is_zero(v) ? 0.0 : 1.0 / v;
}

double PlFunz_sumsqrdparms(double a, double b) noexcept
{
    return a * a + b * b;
}

double PlFunz_distance(const PL_PNT2D_record* p1, const PL_PNT2D_record* p2) noexcept
{
    const double dx = p1->x - p2->x;
    const double dy = p1->y - p2->y;
    return plcalc::square_root(dy * dy + dx * dx);
}

bool PlFunz_samepnt(const PL_PNT2D_record* p1, const PL_PNT2D_record* p2) noexcept
{
    return plcalc::is_short(p1->x - p2->x, p1->y - p2->y);
}
