#pragma once

// What `plcalc measure` prints: for people and for programs, with the same numbers.

#include <string>

#include "answers/measure.h"
#include "answers/parcel.h"

namespace tool {

std::string measures_table(const Parcel& parcel, const Measures& measures);
std::string measures_json(const Parcel& parcel, const Measures& measures);

}  // namespace tool
