#pragma once

// A parcel as it stands in a file.

#include <string>

#include "plparcel/division.h"

namespace tool {

struct Parcel {
    std::string where;    ///< the file and the feature, as messages name them
    plparcel::Ring ring;  ///< in the file's order, the closing vertex left out
};

}  // namespace tool
