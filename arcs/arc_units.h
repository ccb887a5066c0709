#pragma once

// The unit of an arc record, translated for the functions that have their own numbers for units: internal, not
// installed; for arcs/. These tables exist only here.

#include "kernel/angle_units.h"

namespace plcalc {

/// Selector for PlFunz_arcangle; an unknown unit is read as radians.
constexpr int arcangle_unit(PL_AngleMeasType angle_type)
{
    return angle_type == PL_DEGREES        ? kArcAngleDegrees
           : angle_type == PL_PSEUDO_ANGLE ? kArcAnglePseudo
                                           : kArcAngleRadians;
}

/// Selector for PlFunz_pntangledist; an unknown unit is read as radians.
constexpr int polar_unit(PL_AngleMeasType angle_type)
{
    return angle_type == PL_DEGREES        ? kPolarDegrees
           : angle_type == PL_PSEUDO_ANGLE ? kPolarPseudo
                                           : kPolarRadians;
}

}  // namespace plcalc
