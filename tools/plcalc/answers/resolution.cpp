#include "answers/resolution.h"

#include "plparcel/extent.h"
#include "text/numbers.h"

namespace {

// The last decimal of a coordinate, as a part of the parcel's extent. Rounding moves a line by half of it, a
// millionth of the extent.
constexpr double kRelExtentStep = 2e-6;

constexpr double kRelAreaStep = 1e-7;

}  // namespace

namespace tool {

Resolution resolution_of(const std::vector<PL_PNT2D_record>& ring, double area)
{
    return {decimals_for(kRelExtentStep * plparcel::extent_of(ring).largest()),
            decimals_for(kRelAreaStep * area)};
}

}  // namespace tool
