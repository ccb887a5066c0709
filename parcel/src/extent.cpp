#include "plparcel/extent.h"

#include <cmath>
#include <limits>

namespace plparcel {

Extent extent_of(const Ring& ring) noexcept
{
    if (ring.empty())
        return {};
    Extent extent = {ring.front(), ring.front()};
    for (const PL_PNT2D_record& p : ring) {
        extent.low = {std::min(extent.low.x, p.x), std::min(extent.low.y, p.y)};
        extent.high = {std::max(extent.high.x, p.x), std::max(extent.high.y, p.y)};
    }
    return extent;
}

double coordinate_spacing(const Ring& ring) noexcept
{
    double largest = 0.0;
    for (const PL_PNT2D_record& p : ring)
        largest = std::max({largest, std::fabs(p.x), std::fabs(p.y)});
    return largest * std::numeric_limits<double>::epsilon();
}

}  // namespace plparcel
