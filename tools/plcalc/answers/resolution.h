#pragma once

// How many decimals a parcel's figures need: as many as its size asks for.

#include <vector>

#include "plcalc/kernel.h"

namespace tool {

/// Decimals for a parcel.
struct Resolution {
    int decimals = 4;       ///< of coordinates and lengths
    int area_decimals = 4;  ///< of areas
};

/// A rounding moves a line by no more than a millionth of the parcel's extent, and an area by no more than the
/// tenth part of a millionth of it; four decimals at least.
Resolution resolution_of(const std::vector<PL_PNT2D_record>& ring, double area);

}  // namespace tool
