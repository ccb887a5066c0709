#pragma once

// Helpers of the direction angle: internal, not installed; for arcs/.

#include "plcalc/kernel.h"

/// Quadrant 1 to 4, anticlockwise from +x, each with its closing axis.
///
/// @param[in] mode   a plcalc::QuadrantMode: of the vector, of a pseudo-angle, of degrees; otherwise radians
/// @param[in] angle  the angle, any number of turns; not read in vector mode
/// @param[in] vec    the vector; read in vector mode only. A component down to -PL_EPS counts as zero.
/// @return the quadrant; 4 for NaN and infinite angles. A pseudo-angle gives 1, 2, 3 only at 0, 1 and 2, and 4
///         everywhere else: it tells axes, not quadrants.
int PlFunz_quadrant(int mode, double angle, const PL_PNT2D_record* vec) noexcept;

/// tan(phi / 2) for m = tan(phi): (sqrt(m*m + 1) - 1) / m, and 0.0 for |m| <= PL_EPS.
double PlFunz_halftan(double m) noexcept;

/// A pseudo-angle in radians or degrees.
///
/// @param[in] unit    a plcalc::PseudoToUnit: 1 radians, anything else degrees
/// @param[in] pseudo  pseudo-angle, any number of turns; NaN, infinite ones, and those up to PL_EPS, all
///                    negative ones among them, give 0.0
/// @return from 0 up, within one turn. A pseudo-angle from 5e-7 to 1e-7 below a whole turn comes out negative,
///         down to -1e-6 radians or -5.73e-5 degrees: it is taken for the small negative angle to the turn,
///         which the half-angle formula doubles. Above one turn the two units end the first quarter
///         differently: 5 - 1e-7 is 89.99999 degrees, but 3.1415926 radians.
double PlFunz_pseudo_to_angle(int unit, double pseudo) noexcept;
