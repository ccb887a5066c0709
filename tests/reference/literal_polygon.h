#pragma once

// Point in polygon with every comparison made anew at every edge, for comparing bit and cost.

#include "plcalc/kernel.h"

namespace reference {

/// As PlFunz_inpolygon.
bool literal_inpolygon(const PL_PNT2D_record* pt, const PL_PNT2D_record* vertices, const int* count,
                       int* rightmostIndex);

}  // namespace reference
