#include <cstddef>
#include <cstdint>
#include <memory>

#include "guard.h"
#include "handles.h"
#include "plcalc_c.h"
#include "records.h"

namespace plcalc_c {
namespace {

plparcel::Ring ring_of(const double* xy, std::size_t count)
{
    plparcel::Ring ring(count);
    for (std::size_t i = 0; i < count; ++i)
        ring[i] = {xy[2 * i], xy[2 * i + 1]};
    return ring;
}

plc_parcel_report report_of(const plparcel::RingReport& found) noexcept
{
    plc_parcel_report report = {};
    report.boundary = number_of(found.status);
    report.repeated = static_cast<std::int64_t>(found.repeated);
    report.closed = found.closed ? 1 : 0;
    report.anticlockwise = found.anticlockwise ? 1 : 0;
    for (int i = 0; i < 2; ++i) {
        report.meeting_sides[i] = static_cast<std::int64_t>(found.meeting_sides[i]);
        report.meeting_rings[i] = static_cast<std::int64_t>(found.meeting_rings[i]);
    }
    report.at_ring = static_cast<std::int64_t>(found.at_ring);
    report.area = found.area;
    report.perimeter = found.perimeter;
    return report;
}

}  // namespace
}  // namespace plcalc_c

std::int32_t plc_parcel_make(const double* xy, std::int64_t count, plc_parcel** parcel)
{
    if (parcel == nullptr)
        return PLC_NULL_POINTER;
    const std::int32_t wrong = plcalc_c::check_array(xy, count, 2);
    if (wrong != PLC_OK)
        return wrong;
    return plcalc_c::guarded([&] {
        auto made = std::make_unique<plc_parcel>();
        made->parcel.outer = plcalc_c::ring_of(xy, static_cast<std::size_t>(count));
        *parcel = made.release();
        return PLC_OK;
    });
}

std::int32_t plc_parcel_add_hole(plc_parcel* parcel, const double* xy, std::int64_t count)
{
    if (parcel == nullptr)
        return PLC_NULL_POINTER;
    const std::int32_t wrong = plcalc_c::check_array(xy, count, 2);
    if (wrong != PLC_OK)
        return wrong;
    return plcalc_c::guarded([&] {
        parcel->parcel.holes.push_back(plcalc_c::ring_of(xy, static_cast<std::size_t>(count)));
        return PLC_OK;
    });
}

void plc_parcel_free(plc_parcel* parcel)
{
    delete parcel;
}

std::int32_t plc_parcel_check(const plc_parcel* parcel, plc_parcel_report* report)
{
    if (parcel == nullptr || report == nullptr)
        return PLC_NULL_POINTER;
    if (!plcalc_c::has_known_size(report))
        return PLC_WRONG_SIZE;
    return plcalc_c::guarded([&] {
        plcalc_c::write_record(plcalc_c::report_of(plparcel::check_parcel(parcel->parcel)), report);
        return PLC_OK;
    });
}
