#pragma once

// The work whose double operations are counted: always the same.

#include <vector>

#include "plcalc/kernel.h"

namespace bench {

/// A convex ring of n vertices on an ellipse, turned, with uneven steps; site-sized.
std::vector<PL_PNT2D_record> convex_ring(int n);

/// A ring of n vertices, convex but for every third vertex, which is drawn in by a tenth.
std::vector<PL_PNT2D_record> dented_ring(int n);

}  // namespace bench
