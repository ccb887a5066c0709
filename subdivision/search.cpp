#include "subdivision/search.h"

#include <cmath>
#include <cstddef>

namespace {

// The relative difference from the request that ends a search: a square decimetre on a hectare.
constexpr double kRelAreaTol = 1e-6;

// There is deliberately no tolerance: the caller hands back the ring's own coordinates.
bool equal(const PL_PNT2D_record& p, const PL_PNT2D_record& q)
{
    return p.x == q.x && p.y == q.y;
}

}  // namespace

namespace plcalc {

std::int32_t find_side(const std::vector<PL_PNT2D_record>& ring, std::int32_t n, const PL_PNT2D_record& p1,
                       const PL_PNT2D_record& p2) noexcept
{
    for (std::int32_t k = 0; k < n; ++k) {
        const std::size_t at = static_cast<std::size_t>(k);
        if (equal(ring[at], p1) && equal(ring[at + 1], p2))
            return k;
    }
    return -1;
}

std::int32_t find_vertex(const std::vector<PL_PNT2D_record>& ring, std::int32_t n,
                         const PL_PNT2D_record& p) noexcept
{
    for (std::int32_t k = 0; k < n; ++k)
        if (equal(ring[static_cast<std::size_t>(k)], p))
            return k;
    return -1;
}

std::int32_t round_from(std::int32_t start, std::int32_t j, std::int32_t n) noexcept
{
    return j < n - start ? start + j : j - (n - start);
}

bool meets_request(double area, double requested) noexcept
{
    return std::fabs(area - requested) / requested < kRelAreaTol;
}

}  // namespace plcalc
