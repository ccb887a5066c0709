#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>

#include "guard.h"
#include "plcalc/plcalc.h"
#include "plcalc_c.h"
#include "plparcel/rounding.h"

namespace plcalc_c {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

/// Hands a ring to `work` as the library takes it.
template <typename Work> std::int32_t with_ring(const double* xy, std::int64_t count, const Work& work)
{
    const std::int32_t wrong = check_array(xy, count, 2);
    if (wrong != PLC_OK)
        return wrong;
    if (count > std::numeric_limits<int>::max())
        return PLC_TOO_MANY;
    return guarded([&]() -> std::int32_t {
        CPoint3dVector ring;
        ring.Reserve(static_cast<int>(count));
        for (std::int64_t i = 0; i < count; ++i)
            ring.Append(xy[2 * i], xy[2 * i + 1], 0.0);
        return work(ring);
    });
}

PL_LINE_2D_record segment_of(const double* xyxy)
{
    return {{xyxy[0], xyxy[1]}, {xyxy[2], xyxy[3]}};
}

void write_point(const PL_PNT2D_record& point, double* xy)
{
    xy[0] = point.x;
    xy[1] = point.y;
}

std::int32_t code_of(bool has_answer)
{
    return has_answer ? PLC_OK : PLC_NO_ANSWER;
}

}  // namespace
}  // namespace plcalc_c

double plc_rounded_to(double value, std::int32_t decimals)
{
    return plparcel::rounded_to(value, std::clamp(decimals, 0, plparcel::kMostDecimals));
}

std::int32_t plc_fraz_area(const double* xy, std::int64_t count, double x1, double y1, double x2, double y2,
                           std::int32_t cut, std::int32_t area_kind, double value1, double value2,
                           double* xyxy)
{
    if (xyxy == nullptr)
        return PLC_NULL_POINTER;
    return plcalc_c::with_ring(xy, count, [&](const CPoint3dVector& ring) {
        CFrazArea search(ring, {x1, y1}, {x2, y2}, cut, area_kind, value1, value2);
        double z1 = 0.0;
        double z2 = 0.0;
        return plcalc_c::code_of(search.Esegui(xyxy[0], xyxy[1], z1, xyxy[2], xyxy[3], z2));
    });
}

std::int32_t plc_signed_area(const double* xy, std::int64_t count, double* area)
{
    if (area == nullptr)
        return PLC_NULL_POINTER;
    return plcalc_c::with_ring(xy, count, [&](const CPoint3dVector& ring) {
        *area = AreaCalcolataSgn(ring);
        return PLC_OK;
    });
}

std::int32_t plc_perimeter(const double* xy, std::int64_t count, double* perimeter)
{
    if (perimeter == nullptr)
        return PLC_NULL_POINTER;
    return plcalc_c::with_ring(xy, count, [&](const CPoint3dVector& ring) {
        *perimeter = PeriCalcolato(ring);
        return PLC_OK;
    });
}

std::int32_t plc_in_ring(double x, double y, const double* xy, std::int64_t count, std::int32_t* inside)
{
    if (inside == nullptr)
        return PLC_NULL_POINTER;
    const std::int32_t wrong = plcalc_c::check_array(xy, count, 2);
    if (wrong != PLC_OK)
        return wrong;
    if (count > std::numeric_limits<int>::max())
        return PLC_TOO_MANY;
    static_assert(sizeof(PL_PNT2D_record) == 2 * sizeof(double));
    const PL_PNT2D_record point = {x, y};
    const int vertices = static_cast<int>(count);
    int rightmost = 0;
    *inside =
        PlFunz_inpolygon(&point, reinterpret_cast<const PL_PNT2D_record*>(xy), &vertices, &rightmost) ? 1 : 0;
    return PLC_OK;
}

std::int32_t plc_meet_lines(const double* line1, const double* line2, double* xy)
{
    if (line1 == nullptr || line2 == nullptr || xy == nullptr)
        return PLC_NULL_POINTER;
    return plcalc_c::code_of(CalcoloIntersezioneRetteExt(line1[0], line1[1], line1[2], line1[3], line2[0],
                                                         line2[1], line2[2], line2[3], xy[0], xy[1]));
}

std::int32_t plc_meet_segments(const double* segment1, const double* segment2, double* xy)
{
    if (segment1 == nullptr || segment2 == nullptr || xy == nullptr)
        return PLC_NULL_POINTER;
    const PL_LINE_2D_record first = plcalc_c::segment_of(segment1);
    const PL_LINE_2D_record second = plcalc_c::segment_of(segment2);
    PL_PNT2D_record point = {xy[0], xy[1]};
    const bool meet = PlFunz_intersect_ls(&first, &second, &point);
    plcalc_c::write_point(point, xy);
    return plcalc_c::code_of(meet);
}

std::int32_t plc_meet_arc_and_segment(const double* arc, const double* segment, double* xy,
                                      std::int32_t* count)
{
    if (arc == nullptr || segment == nullptr || xy == nullptr || count == nullptr)
        return PLC_NULL_POINTER;
    const ARC_2D_record whole = {{arc[0], arc[1]}, arc[2], PL_RADIANS, arc[3], arc[4]};
    const PL_LINE_2D_record chord = plcalc_c::segment_of(segment);
    PL_PNT2D_record first = {xy[0], xy[1]};
    PL_PNT2D_record second = {xy[2], xy[3]};
    int points = 0;
    const bool meet = PlFunz_intarcline_ls(&whole, &chord, &first, &second, &points);
    plcalc_c::write_point(first, xy);
    plcalc_c::write_point(second, xy + 2);
    *count = points;
    return plcalc_c::code_of(meet);
}

std::int32_t plc_arc_through(const double* xy, double* arc)
{
    if (xy == nullptr || arc == nullptr)
        return PLC_NULL_POINTER;
    const PL_PNT2D_record points[3] = {{xy[0], xy[1]}, {xy[2], xy[3]}, {xy[4], xy[5]}};
    ARC_2D_record made = {};
    if (PlFunz_arc_3pnts(&points[0], &points[1], &points[2], &made) != 0)
        return PLC_NO_ANSWER;
    plcalc_c::write_point(made.centre, arc);
    arc[2] = made.radius;
    arc[3] = made.start_angle;
    arc[4] = made.end_angle;
    return PLC_OK;
}

double plc_distance(double x1, double y1, double x2, double y2)
{
    const PL_PNT2D_record from = {x1, y1};
    const PL_PNT2D_record to = {x2, y2};
    return PlFunz_distance(&from, &to);
}

double plc_bearing(double x1, double y1, double x2, double y2)
{
    return AngoloDaAsseRifer(x2 - x1, y2 - y1);
}

double plc_within_turn(double bearing_gon)
{
    return LimiteAng0_400(bearing_gon);
}

std::int32_t plc_polar_point(double station_x, double station_y, double ref_x, double ref_y, double angle_gon,
                             double distance, double* xy)
{
    if (xy == nullptr)
        return PLC_NULL_POINTER;
    const PL_PNT2D_record station = {station_x, station_y};
    const PL_PNT2D_record reference = {ref_x, ref_y};
    PL_PNT2D_record point = {};
    CalcPtAngDist(&station, &reference, angle_gon, distance, &point);
    plcalc_c::write_point(point, xy);
    return PLC_OK;
}

std::int32_t plc_offset_point(double a_x, double a_y, double b_x, double b_y, double abscissa,
                              double ordinate, double* xy)
{
    if (xy == nullptr)
        return PLC_NULL_POINTER;
    const PL_PNT2D_record a = {a_x, a_y};
    const PL_PNT2D_record b = {b_x, b_y};
    PL_PNT2D_record point = {};
    CalcPtSquadro(&a, &b, abscissa, ordinate, &point);
    plcalc_c::write_point(point, xy);
    return PLC_OK;
}

std::int32_t plc_offsets_of(double a_x, double a_y, double b_x, double b_y, double x, double y,
                            double* foot_xy, double* abscissa, double* ordinate)
{
    if (foot_xy == nullptr || abscissa == nullptr || ordinate == nullptr)
        return PLC_NULL_POINTER;
    const PL_PNT2D_record a = {a_x, a_y};
    const PL_PNT2D_record b = {b_x, b_y};
    const PL_PNT2D_record point = {x, y};
    // A base line without a direction leaves the foot as it is.
    PL_PNT2D_record foot = {plcalc_c::kNaN, plcalc_c::kNaN};
    const double offset = DistSegmDaPt(&a, &b, &point, &foot);
    if (std::isnan(foot.x) || std::isnan(foot.y))
        return PLC_NO_ANSWER;
    *ordinate = offset;
    *abscissa = DistPtSuSegmDaPt(&a, &b, &a, &foot);
    plcalc_c::write_point(foot, foot_xy);
    return PLC_OK;
}

std::int32_t plc_point_along(double a_x, double a_y, double b_x, double b_y, double from_x, double from_y,
                             double distance, double* xy)
{
    if (xy == nullptr)
        return PLC_NULL_POINTER;
    const PL_PNT2D_record a = {a_x, a_y};
    const PL_PNT2D_record b = {b_x, b_y};
    const PL_PNT2D_record from = {from_x, from_y};
    PL_PNT2D_record point = {};
    CalcPtAtDistSuSegm(&a, &b, &from, distance, &point);
    plcalc_c::write_point(point, xy);
    return PLC_OK;
}

std::int32_t plc_height_on_segment(const double* xyz1, const double* xyz2, double x, double y, double* z)
{
    if (xyz1 == nullptr || xyz2 == nullptr || z == nullptr)
        return PLC_NULL_POINTER;
    double height = 0.0;
    CalcoloQuotaSuSegmento(xyz1[0], xyz1[1], xyz1[2], xyz2[0], xyz2[1], xyz2[2], x, y, height);
    if (!std::isfinite(height))
        return PLC_NO_ANSWER;
    *z = height;
    return PLC_OK;
}
