#include "verdict/area_by_ends.h"

#include <cstddef>
#include <utility>

namespace plparcel {

AreaByEnds::AreaByEnds(const MeasuredRing& ring, const Chord& chord, bool of_after_from)
    : after_from_(of_after_from), turn_(ring.turn())
{
    Ring between;
    const std::size_t last_side = after_from_ ? chord.to_side : chord.from_side;
    std::size_t side = after_from_ ? chord.from_side : chord.to_side;
    while (side != last_side) {
        side = (side + 1) % ring.size();
        between.push_back(ring[side]);
    }
    first_ = between.front();
    last_ = between.back();
    area_between_ = MeasuredRing(std::move(between)).signed_area();
}

Wide AreaByEnds::operator()(const PL_PNT2D_record& from, const PL_PNT2D_record& to) const
{
    const WidePoint start = from_to(first_, after_from_ ? from : to);
    const WidePoint stop = from_to(first_, after_from_ ? to : from);
    const Wide twice = cross(from_to(first_, last_), stop) + cross(stop, start);
    return (area_between_ + twice * 0.5) * turn_;
}

// The derivatives of the sum above by the one end or the other.
PL_PNT2D_record AreaByEnds::growth_with_to(const PL_PNT2D_record& from) const
{
    const WidePoint base = after_from_ ? from_to(from, last_) : from_to(first_, from);
    const double half = 0.5 * turn_;
    return {-half * base.y.value(), half * base.x.value()};
}

}  // namespace plparcel
