#pragma once

// The constants and the unit numbers of angles: internal, not installed; for every folder.

#include "plcalc/kernel.h"

namespace plcalc {

constexpr double kPi = 3.141592653589793;

/// A turn and its quarters in one unit, and how many of the unit a radian has.
struct AngleUnit {
    double quarter;
    double half;
    double three_quarters;
    double full;
    double per_rad;
};

constexpr AngleUnit kRadians = {1.5707963267948966, kPi, 4.71238898038469, 6.283185307179586, 1.0};
constexpr AngleUnit kDegrees = {90.0, 180.0, 270.0, 360.0, 57.29577951308233};

static_assert(kRadians.half == 2.0 * kRadians.quarter && kRadians.three_quarters == 3.0 * kRadians.quarter &&
                  kRadians.full == 4.0 * kRadians.quarter,
              "quarters of a turn are the same double whether written or multiplied");

/// The pseudo-angle: quadrant 0 to 3 plus tan(half the angle within the quadrant).
constexpr double kPseudoTurn = 4.0;

// Degrees to radians at thirteen significant digits, deliberately. The cut costs 1.2e-12 rad on a full
// turn, a nanometre at one kilometre, far inside PL_EPS. Do not "complete" it: results stay
// comparable between versions.
constexpr double kRadPerDeg = 0.01745329251994;

// Each family of functions has its own numbers for the units. They are part of the interface, so they stay.

/// Selector of PlFunz_pntangledist; any number but these is radians.
enum PolarUnit : int { kPolarDegrees = 0, kPolarRadians = 1, kPolarPseudo = 2 };

/// Selector of PlFunz_arcangle; any other number gives 0.0.
enum ArcAngleUnit : int { kArcAnglePseudo = 0, kArcAngleDegrees = 1, kArcAngleRadians = 2 };

/// Selector of PlFunz_pseudo_to_angle; any number but radians is degrees.
enum PseudoToUnit : int { kPseudoToDegrees = 0, kPseudoToRadians = 1 };

/// Selector of PlFunz_quadrant; any other number is an angle in radians.
enum QuadrantMode : int { kQuadrantOfVector = 0, kQuadrantOfPseudo = 1, kQuadrantOfDegrees = 2 };

/// Brings an angle near one turn when stepping there turn by turn would take forever.
///
/// @return angle itself up to 65536 turns; beyond, its remainder by std::fmod; NaN for an infinite one
double bring_near(double angle, double turn) noexcept;

/// Takes off whole turns, one at a time, while the angle is not below the turn's margin.
///
/// Each step rounds, so that the result may differ in its last bits from a remainder. The steps define the
/// result. A NaN stays.
double drop_turns(double angle, double turn) noexcept;

/// An angle within one turn: [-PL_EPS, turn - tol(turn)). An angle in the margin below a turn counts as a whole
/// turn, which is taken off: it ends between -tol(turn) and 0.
double within_one_turn(double angle, double turn) noexcept;

}  // namespace plcalc
