#include <cmath>

#include "kernel/angle_units.h"
#include "kernel/tolerance.h"

namespace {

// Full-circle arctangent: first the axes, then the acute angle within its quadrant.
double direction(double x, double y, const plcalc::AngleUnit& unit)
{
    if (plcalc::is_zero(x)) {
        if (plcalc::is_zero(y))
            return 0.0;
        return y > PL_EPS ? unit.quarter : unit.three_quarters;
    }
    if (plcalc::is_zero(y))
        return x > 0.0 ? 0.0 : unit.half;

    const double acute = std::atan(std::fabs(y / x)) * unit.per_rad;
    if (x > PL_EPS)
        return y > PL_EPS ? acute : unit.full - acute;
    return y > PL_EPS ? unit.half - acute : unit.half + acute;
}

}  // namespace

double PlFunz_arctan_rad(double x, double y) noexcept
{
    return direction(x, y, plcalc::kRadians);
}

double PlFunz_arctan_deg(double x, double y) noexcept
{
    return direction(x, y, plcalc::kDegrees);
}

void PlFunz_pseudo_angdist(const PL_PNT2D_record* p1, const PL_PNT2D_record* p2, double* angle,
                           double* dist) noexcept
{
    const double dx = p2->x - p1->x;
    const double dy = p2->y - p1->y;

    // The diamond angle: 0 on +x, 1 on +y, 2 on -x, 3 on -y.
    double v = plcalc::is_short(dx, dy) ? 0.0 : dy / (std::fabs(dy) + std::fabs(dx));
    if (dx < -PL_EPS)
        v = 2.0 - v;
    else if (dy < -PL_EPS)
        v = v + plcalc::kPseudoTurn;

    // The distance stays squared: it is only compared, never shown.
    *angle = v * 90.0;
    *dist = PlFunz_sumsqrdparms(dx, dy);
}
