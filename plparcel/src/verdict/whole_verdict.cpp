#include "verdict/whole_verdict.h"

#include <algorithm>
#include <cmath>

#include "boundary/joined_rings.h"
#include "boundary/measured_ring.h"
#include "boundary/nesting.h"

namespace plparcel {

std::optional<Wide> area_of_piece(const std::vector<Ring>& rings)
{
    constexpr std::size_t kMinVertices = 3;
    Wide area;
    for (std::size_t i = 0; i < rings.size(); ++i) {
        const Wide of_ring = MeasuredRing(rings[i]).signed_area();
        if (rings[i].size() < kMinVertices || (i == 0) != (of_ring > 0.0))
            return std::nullopt;
        area = area + of_ring;
    }
    if (fault_of(JoinedRings(rings)).kind != RingFault::Kind::none)
        return std::nullopt;
    return area;
}

bool is_near_side(const PL_PNT2D_record& a, const PL_PNT2D_record& b, const PL_PNT2D_record& p, double reach)
{
    const WidePoint d = from_to(a, b);
    const WidePoint w = from_to(a, p);
    const double length = std::hypot(d.x.value(), d.y.value());
    const double along = (dot(d, w) / length).value();
    const double off = (cross(d, w) / length).value();
    return std::fabs(off) <= reach && -reach <= along && along <= length + reach;
}

}  // namespace plparcel
