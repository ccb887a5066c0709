#pragma once

// The signed area of a ring: internal, not installed; for survey/ and subdivision/.

#include <cstddef>

#include "plcalc/kernel.h"

namespace plcalc {

/// Signed area of the closed ring of the first n points, positive anticlockwise; 0 for n = 0.
///
/// Half of each term is taken by itself and the terms are added in index order: the bits depend on it.
double shoelace_area(const PL_PNT2D_record* points, std::size_t n) noexcept;

}  // namespace plcalc
