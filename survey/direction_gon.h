#pragma once

// The direction between two points in gons: internal, not installed; for survey/ and subdivision/.

#include "plcalc/kernel.h"

namespace plcalc {

/// Direction from one point to another in gons, counted anticlockwise from +x; 0 for equal points.
double direction_gon(const PL_PNT2D_record& from, const PL_PNT2D_record& to) noexcept;

}  // namespace plcalc
