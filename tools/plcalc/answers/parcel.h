#pragma once

// A parcel as it stands in a file.

#include <string>

#include "console/failure.h"
#include "plparcel/division.h"

namespace tool {

/// The unit of a parcel's coordinates.
struct LengthUnit {
    std::string name;     ///< "m"; empty when the file does not say
    double metres = 1.0;  ///< its length
};

struct Parcel {
    Place place;          ///< the file and the feature
    plparcel::Ring ring;  ///< in the file's order, without the closing vertex
    LengthUnit unit;      ///< of the ring's coordinates
};

}  // namespace tool
