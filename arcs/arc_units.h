#pragma once

// How the unit of an arc record is told to the functions that number their units in their own way:
// internal, not installed; for arcs/. The one home of these tables.

#include "kernel/angle_units.h"

namespace plcalc {

/// Selector for PlFunz_arcangle; an unknown unit is radians.
constexpr int arcangle_unit(PL_AngleMeasType angle_type)
{
    return angle_type == PL_DEGREES        ? kArcAngleDegrees
           : angle_type == PL_PSEUDO_ANGLE ? kArcAnglePseudo
                                           : kArcAngleRadians;
}

/// Selector for PlFunz_pntangledist; an unknown unit is radians.
constexpr int polar_unit(PL_AngleMeasType angle_type)
{
    return angle_type == PL_DEGREES        ? kPolarDegrees
           : angle_type == PL_PSEUDO_ANGLE ? kPolarPseudo
                                           : kPolarRadians;
}

}  // namespace plcalc
