#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "guard.h"
#include "handles.h"
#include "plcalc_c.h"
#include "plparcel/feasible.h"
#include "records.h"

namespace plcalc_c {
namespace {

plc_range range_of(const plparcel::AmountRange& found)
{
    plc_range range = {};
    range.least = found.least;
    range.most = found.most;
    range.least_is_had = found.least_is_had ? 1 : 0;
    range.most_is_had = found.most_is_had ? 1 : 0;
    return range;
}

plc_nearest nearest_of(const plparcel::NearestAmounts& found)
{
    plc_nearest nearest = {};
    nearest.has_below = found.below ? 1 : 0;
    nearest.has_above = found.above ? 1 : 0;
    nearest.below = found.below.value_or(0.0);
    nearest.above = found.above.value_or(0.0);
    nearest.below_is_had = found.below_is_had ? 1 : 0;
    nearest.above_is_had = found.above_is_had ? 1 : 0;
    return nearest;
}

plc_alternative alternative_of(const plparcel::Alternative& found)
{
    plc_alternative alternative = {};
    alternative.cut = static_cast<std::int32_t>(found.line.cut);
    alternative.index = size_of(found.line.index);
    alternative.ring = size_of(found.line.ring);
    alternative.measured = static_cast<std::int32_t>(found.measured);
    alternative.least = found.range.least;
    alternative.most = found.range.most;
    alternative.least_is_had = found.range.least_is_had ? 1 : 0;
    alternative.most_is_had = found.range.most_is_had ? 1 : 0;
    return alternative;
}

/// Writes what was found, with what `info` tells of it.
template <typename Found, typename Element, typename Record, typename RecordOf, typename Info>
std::int32_t tell(const Found& found, const std::vector<Element>& elements, Record* records,
                  std::int64_t room, const RecordOf& record_of, Info info, Info* to)
{
    info.refused = found.refusal ? number_of(*found.refusal) : 0;
    write_records(elements, records, room, record_of);
    write_record(info, to);
    return found.refusal ? PLC_NO_ANSWER : PLC_OK;
}

}  // namespace
}  // namespace plcalc_c

std::int32_t plc_feasible(const plc_parcel* parcel, const plc_request* request, plc_range* ranges,
                          std::int64_t room, plc_feasible_info* info)
{
    if (parcel == nullptr || request == nullptr || info == nullptr)
        return PLC_NULL_POINTER;
    const std::int32_t wrong = plcalc_c::check_records(ranges, room);
    if (wrong != PLC_OK)
        return wrong;
    plc_request given;
    if (!plcalc_c::has_known_size(info) || !plcalc_c::read_record(request, given) || given.reserved != 0)
        return PLC_WRONG_SIZE;
    return plcalc_c::guarded([&] {
        const plparcel::Request asked = plcalc_c::request_of(given);
        const plparcel::Feasible found =
            plparcel::feasible(parcel->parcel, asked.line, asked.measured, asked.pieces);
        plc_feasible_info told = {};
        told.ranges = plcalc_c::size_of(found.ranges.size());
        told.parcel = found.parcel;
        return plcalc_c::tell(found, found.ranges, ranges, room, plcalc_c::range_of, told, info);
    });
}

std::int32_t plc_nearest_amounts(const plc_range* ranges, std::int64_t count, double area,
                                 plc_nearest* nearest)
{
    if (nearest == nullptr)
        return PLC_NULL_POINTER;
    const std::int32_t wrong = plcalc_c::check_records(ranges, count);
    if (wrong != PLC_OK)
        return wrong;
    if (!plcalc_c::has_known_size(nearest))
        return PLC_WRONG_SIZE;
    return plcalc_c::guarded([&] {
        std::vector<plparcel::AmountRange> given;
        const std::int32_t code = plcalc_c::read_records(ranges, count, [&](const plc_range& range) {
            given.push_back({range.least, range.most, range.least_is_had != 0, range.most_is_had != 0});
        });
        if (code == PLC_OK)
            plcalc_c::write_record(plcalc_c::nearest_of(plparcel::nearest_amounts(given, area)), nearest);
        return code;
    });
}

std::int32_t plc_alternatives_for(const plc_parcel* parcel, const plc_amount* amount, std::int32_t measured,
                                  std::int64_t most, plc_alternative* lines, std::int64_t room,
                                  plc_alternatives_info* info)
{
    if (parcel == nullptr || amount == nullptr || info == nullptr)
        return PLC_NULL_POINTER;
    const std::int32_t wrong = plcalc_c::check_records(lines, room);
    if (wrong != PLC_OK)
        return wrong;
    plc_amount given;
    if (!plcalc_c::has_known_size(info) || !plcalc_c::read_record(amount, given))
        return PLC_WRONG_SIZE;
    return plcalc_c::guarded([&] {
        const plparcel::Alternatives found =
            plparcel::alternatives_for(parcel->parcel, plcalc_c::amount_of(given),
                                       static_cast<plparcel::Measured>(measured), plcalc_c::index_of(most));
        plc_alternatives_info told = {};
        told.lines = plcalc_c::size_of(found.lines.size());
        told.looked_at = plcalc_c::size_of(found.looked_at);
        told.of = plcalc_c::size_of(found.of);
        return plcalc_c::tell(found, found.lines, lines, room, plcalc_c::alternative_of, told, info);
    });
}
