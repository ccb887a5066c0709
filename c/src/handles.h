#pragma once

// What stands behind the handles.

#include <cstdint>

#include "plcalc_c.h"
#include "plparcel/boundary.h"
#include "plparcel/division.h"

struct plc_parcel {
    plparcel::Parcel parcel;
};

struct plc_division {
    plparcel::Division division;
};

namespace plcalc_c {

/// The PLC_BOUNDARY_ number of a status.
std::int32_t number_of(plparcel::BoundaryStatus status) noexcept;

/// The number of a status, from PLC_DIVIDED on.
std::int32_t number_of(plparcel::Status status) noexcept;

}  // namespace plcalc_c
