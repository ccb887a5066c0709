#include "resolution.h"

#include <algorithm>

#include "numbers.h"

namespace {

// A line may be off by this part of the parcel's extent, which is what its area may be off by too. Half a step
// in the last place is the rounding.
constexpr double kRelExtentStep = 2e-6;

constexpr double kRelAreaStep = 1e-7;

}  // namespace

namespace tool {

double extent_of(const std::vector<PL_PNT2D_record>& ring)
{
    PL_PNT2D_record low = ring.front();
    PL_PNT2D_record high = ring.front();
    for (const PL_PNT2D_record& p : ring) {
        low = {std::min(low.x, p.x), std::min(low.y, p.y)};
        high = {std::max(high.x, p.x), std::max(high.y, p.y)};
    }
    return std::max(high.x - low.x, high.y - low.y);
}

Resolution resolution_of(const std::vector<PL_PNT2D_record>& ring, double area)
{
    return {decimals_for(kRelExtentStep * extent_of(ring)), decimals_for(kRelAreaStep * area)};
}

const char* direction_name(bool anticlockwise)
{
    return anticlockwise ? "anticlockwise" : "clockwise";
}

}  // namespace tool
