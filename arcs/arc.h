#pragma once

// How the angles of an arc record are read: internal, not installed; for arcs/.

#include "kernel/angle_units.h"

namespace plcalc {

// The unit of an arc record, translated for the functions that have their own numbers for units. These tables exist
// only here.

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

/// Whether a direction lies within the anticlockwise sweep from start to end. All three are in one unit and are
/// compared as they are stored; the margin at either bound belongs to the sweep. A sweep whose end is below its
/// start crosses +x.
bool in_sweep(double dir, double start, double end) noexcept;

}  // namespace plcalc
