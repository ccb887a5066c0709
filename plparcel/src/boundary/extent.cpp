#include "plparcel/extent.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace plparcel {

double Extent::width() const noexcept
{
    return high.x - low.x;
}

double Extent::height() const noexcept
{
    return high.y - low.y;
}

double Extent::largest() const noexcept
{
    return std::max(width(), height());
}

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
