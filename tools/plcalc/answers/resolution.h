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

/// At least four decimals, and as many as keep the rounding of a coordinate below a millionth of the parcel's
/// extent and the rounding of an area below a ten-millionth of the area.
Resolution resolution_of(const std::vector<PL_PNT2D_record>& ring, double area);

}  // namespace tool
