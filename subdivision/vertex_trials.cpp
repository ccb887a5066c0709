#include "subdivision/vertex_trials.h"

#include <algorithm>
#include <limits>

#include "plutil/plutil.h"

namespace plcalc {

VertexTrials::VertexTrials(const std::vector<PL_PNT2D_record>& ring, const std::vector<std::int32_t>& order,
                           std::int32_t n, const PL_PNT2D_record& from)
    : seen_(index(std::max(n, 1)) + 1), start_gon_(std::numeric_limits<double>::quiet_NaN())
{
    // A single point is its own next one.
    const std::int32_t last = n > 1 ? n - 1 : n;
    for (std::int32_t at = 1; at <= last; ++at) {
        Seen& seen = seen_[index(at)];
        seen.point = ring[index(order[index(at)])];
        seen.dir_gon = AngoloDaAsseRifer(seen.point.y - from.y, seen.point.x - from.x);
    }
    for (std::int32_t at = 2; at <= last; ++at) {
        Seen& seen = seen_[index(at)];
        seen.side = side_line(point(at - 1), seen.point);
        seen.box = box_between(point(at - 1), seen.point);
    }
}

void VertexTrials::measure_from_gon(double start_gon) noexcept
{
    if (start_gon == start_gon_)
        return;
    start_gon_ = start_gon;
    for (std::size_t at = 1; at + 1 < seen_.size(); ++at)
        seen_[at].from_start_gon = LimiteAng0_400(seen_[at].dir_gon - start_gon);
}

}  // namespace plcalc
