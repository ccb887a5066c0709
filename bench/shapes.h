#pragma once

// The parcels of the measurements: always the same.

#include <vector>

#include "plcalc/kernel.h"

namespace bench {

/// A convex ring of n vertices on an ellipse, turned, with uneven steps; site-sized.
std::vector<PL_PNT2D_record> convex_ring(int n);

/// A ring of n vertices, convex but for every third vertex, which is drawn in by a tenth.
std::vector<PL_PNT2D_record> dented_ring(int n);

/// A convex ring with a slit to its middle, where the base side lies: half the parcel is behind the base line.
std::vector<PL_PNT2D_record> slit_ring(int n);

/// A coast-like simple ring, 10,000 across: a square of which every side gets a bulge to one side or the other, or
/// none, and each of its four parts again, until there are n vertices or more. n is 4 times a power of 4; each seed
/// is another coast.
std::vector<PL_PNT2D_record> coast_ring(int n, unsigned seed);

}  // namespace bench
