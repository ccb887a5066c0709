#include "arcs/arc_angle.h"

#include <cmath>

#include "kernel/angle_units.h"
#include "kernel/square_root.h"
#include "kernel/tolerance.h"
#include "plcalc/arcs.h"

namespace {

using plcalc::above;
using plcalc::AngleUnit;
using plcalc::at_least;
using plcalc::at_most;
using plcalc::below;
using plcalc::is_near;

// A component down to -PL_EPS counts as zero, so the origin and the axes +x and +y are quadrant 1.
int quadrant_of_vector(const PL_PNT2D_record& vec)
{
    const bool y_not_negative = vec.y >= -PL_EPS;
    if (vec.x >= -PL_EPS)
        return y_not_negative ? 1 : 4;
    if (vec.x < -PL_EPS) {
        if (y_not_negative)
            return 2;
        if (vec.y < -PL_EPS)
            return 3;
    }
    return 4;  // a NaN has no quadrant
}

int quadrant_of_angle(double angle, const AngleUnit& unit)
{
    const double a = plcalc::within_one_turn(angle, unit.full);
    if (a >= -PL_EPS && at_most(a, unit.quarter))
        return 1;
    if (above(a, unit.quarter) && at_most(a, unit.half))
        return 2;
    if (above(a, unit.half) && at_most(a, unit.three_quarters))
        return 3;
    return 4;  // also an angle in the margin below a full turn, which is slightly below zero here
}

// Tells which axis a pseudo-angle is on; anything between the axes is 4. Its quadrant needs no function: it is
// the whole part of the pseudo-angle.
int axis_of_pseudo(double a_pseudo)
{
    const double a = plcalc::within_one_turn(a_pseudo, plcalc::kPseudoTurn);
    if (is_near(a, 0.0))
        return 1;
    if (is_near(a, 1.0))
        return 2;
    if (is_near(a, 2.0))
        return 3;
    return 4;
}

// The quarter turn that a pseudo-angle is near; 0.0 when it is near none.
double near_quarter(double a_pseudo, const AngleUnit& unit)
{
    if (is_near(a_pseudo, 1.0))
        return unit.quarter;
    if (is_near(a_pseudo, 2.0))
        return unit.half;
    if (is_near(a_pseudo, 3.0))
        return unit.three_quarters;
    return 0.0;
}

// Pseudo-angle of a vector that is neither null nor along +y.
double pseudo_in_quadrant(int quadrant, double dx, double dy)
{
    switch (quadrant) {
    case 1:
        return PlFunz_halftan(dy / dx);
    case 2:
        return dy > PL_EPS ? 1.0 + PlFunz_halftan(-dx / dy) : 2.0;
    case 3:  // where dx is clearly negative
        return 2.0 + PlFunz_halftan(dy / dx);
    default:
        return dy < -PL_EPS ? 3.0 + PlFunz_halftan(-dx / dy) : 0.0;
    }
}

double in_unit(int unit, double a_pseudo)
{
    switch (unit) {
    case plcalc::kArcAnglePseudo:
        return a_pseudo;
    case plcalc::kArcAngleDegrees:
        return PlFunz_pseudo_to_angle(plcalc::kPseudoToDegrees, a_pseudo);
    case plcalc::kArcAngleRadians:
        return PlFunz_pseudo_to_angle(plcalc::kPseudoToRadians, a_pseudo);
    default:
        return 0.0;
    }
}

}  // namespace

int PlFunz_quadrant(int mode, double angle, const PL_PNT2D_record* vec) noexcept
{
    switch (mode) {
    case plcalc::kQuadrantOfVector:
        return quadrant_of_vector(*vec);
    case plcalc::kQuadrantOfPseudo:
        return axis_of_pseudo(angle);
    case plcalc::kQuadrantOfDegrees:
        return quadrant_of_angle(angle, plcalc::kDegrees);
    default:
        return quadrant_of_angle(angle, plcalc::kRadians);
    }
}

double PlFunz_halftan(double m) noexcept
{
    if (plcalc::is_zero(m))
        return 0.0;
    return (plcalc::square_root(m * m + 1.0) - 1.0) / m;
}

double PlFunz_pseudo_to_angle(int unit, double pseudo) noexcept
{
    const bool radians = unit == plcalc::kPseudoToRadians;
    const AngleUnit& to = radians ? plcalc::kRadians : plcalc::kDegrees;
    if (pseudo <= PL_EPS)
        return 0.0;
    const double quarter = near_quarter(pseudo, to);
    if (quarter != 0.0)  // exactly 0.0 is "none"
        return quarter;

    const double a = plcalc::drop_turns(pseudo, plcalc::kPseudoTurn);
    double quadrant = 0.0;
    const double t = std::modf(a, &quadrant);
    const double rest = 2.0 * std::atan(t) * to.per_rad;
    if (plcalc::is_zero(t))
        return near_quarter(a, to);

    // Just below a quarter turn degrees still take the first quadrant, radians already the second. That shows
    // only above a full turn; below it near_quarter has answered.
    if (radians ? below(a, 1.0) : at_most(a, 1.0))
        return rest;
    if (below(a, 2.0))
        return rest + to.quarter;
    if (at_least(a, 2.0) && below(a, 3.0))
        return rest + to.half;
    if (at_least(a, 3.0))  // and below a turn, to which it has been brought
        return rest + to.three_quarters;
    return 0.0;  // no number
}

double PlFunz_arcangle(int unit, const PL_PNT2D_record* from, const PL_PNT2D_record* to) noexcept
{
    const double dx = to->x - from->x;
    const double dy = to->y - from->y;
    if (plcalc::is_short(dx, dy))
        return 0.0;

    const PL_PNT2D_record vec = {dx, dy};
    const int quadrant = PlFunz_quadrant(plcalc::kQuadrantOfVector, 0.0, &vec);
    const bool up = quadrant == 1 && !(dx > PL_EPS);  // along +y, where dy / dx has nothing to say
    return in_unit(unit, up ? 1.0 : pseudo_in_quadrant(quadrant, dx, dy));
}
