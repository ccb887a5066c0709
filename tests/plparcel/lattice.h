#pragma once

// Rings on a small lattice, where everything that is rare elsewhere is common: vertices level with each other,
// sides in one line, lines that run through vertices and along sides, rings that touch themselves.

#include <random>

#include "plparcel/division.h"

namespace parcel_test {

using plparcel::Ring;

/// Any ring on the points of a square, mostly not simple; or a walk round columns of whole heights, always
/// simple but for columns of no height.
Ring lattice_ring(std::mt19937_64& random);

/// Whether a vertex lies at the place of the one before it.
bool has_repeats(const Ring& ring);

/// Turned by a quarter, enlarged by something odd, moved, the other way round: what is exact stays so, more or
/// less.
Ring changed(std::mt19937_64& random, const Ring& ring);

}  // namespace parcel_test
