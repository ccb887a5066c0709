#pragma once

/// @file
/// The whole interface of plcalc in one include.
///
/// Conventions that hold everywhere:
/// - plane coordinates are doubles in the caller's unit, x East, y North; areas are in that unit squared;
/// - the `PlFunz_` functions measure angles anticlockwise from +x in radians, degrees or pseudo-angles;
///   the functions with Italian names exchange angles with the caller in gons, 400 to the circle;
/// - pointers are not tested for null, except where PlFunz_set_arc_2d says so;
/// - nothing keeps global state: calls on distinct data may run in parallel.

#include "plcalc/arcs.h"
#include "plcalc/export.h"
#include "plcalc/kernel.h"
#include "plcalc/lines.h"
#include "plcalc/subdivision.h"
#include "plcalc/survey.h"
#include "plcalc/version.h"
