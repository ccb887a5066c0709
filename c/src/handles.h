#pragma once

// What stands behind the handles.

#include <cstddef>
#include <cstdint>
#include <vector>

#include "plcalc_c.h"
#include "plparcel/boundary.h"
#include "plparcel/division.h"
#include "plparcel/which_side.h"

struct plc_parcel {
    plparcel::Parcel parcel;
};

struct plc_division {
    plparcel::Division division;
};

struct plc_divisions {
    std::vector<plc_division> each;
};

struct plc_other {
    plparcel::OtherGeometry geometry;
};

namespace plcalc_c {

inline std::int64_t size_of(std::size_t size) noexcept
{
    return static_cast<std::int64_t>(size);
}

/// A caller's request, without its amounts.
plparcel::Request request_of(const plc_request& given);

/// A caller's amount.
plparcel::Amount amount_of(const plc_amount& given) noexcept;

/// The PLC_BOUNDARY_ number of a status.
std::int32_t number_of(plparcel::BoundaryStatus status) noexcept;

/// The number of a status, from PLC_DIVIDED on.
std::int32_t number_of(plparcel::Status status) noexcept;

/// The PLC_CHOICE_ number of a status.
std::int32_t number_of(plparcel::ChoiceStatus status) noexcept;

}  // namespace plcalc_c
