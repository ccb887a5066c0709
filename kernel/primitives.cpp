#include "kernel/primitives.h"

double PlFunz_inverse(double v) noexcept
{
    return plcalc::inverse(v);
}

double PlFunz_sumsqrdparms(double a, double b) noexcept
{
    return plcalc::sum_of_squares(a, b);
}

double PlFunz_distance(const PL_PNT2D_record* p1, const PL_PNT2D_record* p2) noexcept
{
    return plcalc::distance(*p1, *p2);
}

bool PlFunz_samepnt(const PL_PNT2D_record* p1, const PL_PNT2D_record* p2) noexcept
{
    return plcalc::is_short(p1->x - p2->x, p1->y - p2->y);
}
