#include "boundary/nesting.h"

#include "boundary/meeting_sides.h"

namespace plparcel {

// North of a side that runs to the East lies the inside, whether the side is one of the outer ring or of a hole.
RingFault fault_of(const JoinedRings& rings)
{
    RingFault fault;
    const Meeting meeting = meeting_sides(rings);
    if (meeting.met) {
        fault.kind = RingFault::Kind::meet;
        fault.one = meeting.met->one;
        fault.other = meeting.met->other;
        return fault;
    }
    for (std::size_t ring = 1; ring < rings.rings(); ++ring) {
        const std::size_t south = meeting.south_of[ring];
        const bool is_inside = south < rings.size() && rings[south].x < rings.end_of(south).x;
        if (is_inside)
            continue;
        const bool of_hole = south < rings.size() && rings.ring_of(south) != 0;
        fault.kind = of_hole ? RingFault::Kind::in_another : RingFault::Kind::outside;
        fault.ring = ring;
        return fault;
    }
    return fault;
}

}  // namespace plparcel
