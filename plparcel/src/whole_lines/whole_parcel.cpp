#include "whole_lines/whole_parcel.h"

#include "boundary/measured_ring.h"
#include "lines/direction.h"

namespace plparcel {

std::optional<Status> refusal_of_direction(const CheckedParcel& parcel, const Line& line)
{
    if (is_free(line.cut))
        return has_direction(line) ? std::nullopt : std::optional<Status>(Status::no_direction);
    if (line.ring >= parcel.clean.size() || line.index >= parcel.clean[line.ring].place.size())
        return Status::no_such_index;
    const std::vector<std::size_t>& place = parcel.clean[line.ring].place;
    return place[line.index] == around(place, line.index + 1)
               ? std::optional<Status>(Status::side_without_length)
               : std::nullopt;
}

WholeParcel whole_parcel(const CheckedParcel& parcel, const Line& line)
{
    WholeParcel whole;
    whole.rings = parcel.rings;
    whole.clockwise = !parcel.report.anticlockwise;
    whole.area = parcel.area;
    if (is_free(line.cut) || has_start(line.cut))
        return whole;
    const CleanRing& of_side = parcel.clean[line.ring];
    whole.a = of_side.ring[of_side.place[line.index]];
    whole.b = of_side.ring[around(of_side.place, line.index + 1)];
    whole.inside_on_left = (of_side.ring.turn() > 0.0) == (line.ring == 0);
    return whole;
}

}  // namespace plparcel
