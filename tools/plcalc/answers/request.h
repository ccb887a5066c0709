#pragma once

// A request as the command line states it.

#include <string>
#include <vector>

#include "plparcel/division.h"

namespace tool {

/// One request.
struct Asked {
    plparcel::Request request;  ///< complete but for `index`, which needs a parcel
    /// Side or vertex, from 1, in the order of the ring as it stands in the file. Side k runs from vertex k to
    /// k + 1.
    long long number = 0;
    std::vector<std::string> amounts;  ///< as they were given, "40 x 50" or "1/3"; one per amount
};

/// An amount in the parcel's unit squared.
///
/// @param[in] amount       as a value, a product or a share
/// @param[in] parcel_area  of the whole
double area_of(const plparcel::Amount& amount, double parcel_area);

}  // namespace tool
