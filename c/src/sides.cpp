#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "guard.h"
#include "handles.h"
#include "plcalc_c.h"
#include "plparcel/which_side.h"
#include "records.h"

namespace plcalc_c {
namespace {

std::vector<plparcel::Segment> segments_of(const double* xyxy, std::size_t count)
{
    std::vector<plparcel::Segment> segments(count);
    for (std::size_t i = 0; i < count; ++i) {
        const double* each = xyxy + 4 * i;
        segments[i] = {{each[0], each[1]}, {each[2], each[3]}};
    }
    return segments;
}

plparcel::Alongside alongside_of(const plc_search& search)
{
    plparcel::Alongside alongside = {search.distance};
    // NaN is neither, and is handed on to be refused.
    if (search.angle_gon < 0.0 || search.angle_gon > 0.0 || search.angle_gon != search.angle_gon)
        alongside.angle_gon = search.angle_gon;
    return alongside;
}

plparcel::Choice unusable_request()
{
    plparcel::Choice choice;
    choice.status = plparcel::ChoiceStatus::unusable_request;
    return choice;
}

plparcel::Choice choose(const plparcel::Parcel& parcel, const plc_search& search, const plc_other* other)
{
    const PL_PNT2D_record point = {search.x, search.y};
    switch (search.wanted) {
    case PLC_LONGEST_SIDE:
        return plparcel::longest_side(parcel, search.tied_within);
    case PLC_SHORTEST_SIDE:
        return plparcel::shortest_side(parcel, search.tied_within);
    case PLC_SIDE_NEAR:
        return plparcel::side_near(parcel, point, search.tied_within);
    case PLC_SIDE_FACING:
        return plparcel::side_facing(parcel, search.bearing_gon, search.tied_within);
    case PLC_SIDE_ALONG:
        return plparcel::side_along(parcel, other->geometry, alongside_of(search), search.tied_within);
    case PLC_VERTEX_NEAR:
        return plparcel::vertex_near(parcel, point, search.tied_within);
    case PLC_VERTEX_FARTHEST:
        return plparcel::vertex_farthest(parcel, search.bearing_gon, search.tied_within);
    default:
        return unusable_request();
    }
}

plc_candidate candidate_of(const plparcel::Candidate& found)
{
    plc_candidate candidate = {};
    candidate.index = size_of(found.place.index);
    candidate.ring = size_of(found.place.ring);
    candidate.length = found.length;
    candidate.bearing_gon = found.bearing;
    candidate.turned_gon = found.turned;
    candidate.distance = found.distance;
    candidate.alongside = found.alongside;
    return candidate;
}

/// Writes the candidates, the next one after them, and what became of the search.
void tell(const plparcel::Choice& found, plc_candidate* candidates, std::int64_t room, plc_choice* choice)
{
    std::vector<plparcel::Candidate> told = found.candidates;
    if (found.next)
        told.push_back(*found.next);
    write_records(told, candidates, room, candidate_of);
    plc_choice info = {};
    info.status = number_of(found.status);
    info.boundary = number_of(found.boundary);
    info.has_next = found.next ? 1 : 0;
    info.candidates = size_of(found.candidates.size());
    info.nearest = found.nearest;
    write_record(info, choice);
}

}  // namespace
}  // namespace plcalc_c

std::int32_t plc_other_make(const double* xyxy, std::int64_t count, plc_other** other)
{
    if (other == nullptr)
        return PLC_NULL_POINTER;
    const std::int32_t wrong = plcalc_c::check_array(xyxy, count, 4);
    if (wrong != PLC_OK)
        return wrong;
    return plcalc_c::guarded([&] {
        const auto segments = plcalc_c::segments_of(xyxy, plcalc_c::index_of(count));
        *other = new plc_other{plparcel::OtherGeometry(segments)};
        return PLC_OK;
    });
}

void plc_other_free(plc_other* other)
{
    delete other;
}

std::int32_t plc_find(const plc_parcel* parcel, const plc_search* search, const plc_other* other,
                      plc_candidate* candidates, std::int64_t room, plc_choice* choice)
{
    if (parcel == nullptr || search == nullptr || choice == nullptr)
        return PLC_NULL_POINTER;
    const std::int32_t wrong = plcalc_c::check_records(candidates, room);
    if (wrong != PLC_OK)
        return wrong;
    plc_search given;
    if (!plcalc_c::has_known_size(choice) || !plcalc_c::read_record(search, given))
        return PLC_WRONG_SIZE;
    if (given.wanted == PLC_SIDE_ALONG && other == nullptr)
        return PLC_NULL_POINTER;
    return plcalc_c::guarded([&] {
        const plparcel::Choice found = plcalc_c::choose(parcel->parcel, given, other);
        plcalc_c::tell(found, candidates, room, choice);
        return found.status == plparcel::ChoiceStatus::found ? PLC_OK : PLC_NO_ANSWER;
    });
}
