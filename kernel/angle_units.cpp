#include "kernel/angle_units.h"

#include <cmath>

#include "kernel/tolerance.h"

namespace {

// No survey holds more turns. Up to here each step changes the angle by a turn to within 6e-11, so the loops
// below end; for much larger angles a turn would be lost in rounding.
constexpr double kMostTurns = 65536.0;

}  // namespace

namespace plcalc {

double bring_near(double angle, double turn) noexcept
{
    return std::fabs(angle) > kMostTurns * turn ? std::fmod(angle, turn) : angle;
}

double drop_turns(double angle, double turn) noexcept
{
    angle = bring_near(angle, turn);
    while (at_least(angle, turn))
        angle -= turn;
    return angle;
}

double within_one_turn(double angle, double turn) noexcept
{
    angle = bring_near(angle, turn);
    while (angle < -PL_EPS)
        angle += turn;
    return drop_turns(angle, turn);
}

}  // namespace plcalc
