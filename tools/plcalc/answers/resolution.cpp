#include "answers/resolution.h"

#include "plparcel/extent.h"
#include "text/numbers.h"

namespace {

// A line may be off by this part of the parcel's extent, which is what its area may be off by too. Half a step
// in the last place is the rounding.
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
