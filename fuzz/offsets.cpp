// Points at a distance, signed distances, feet of perpendiculars, right-angle offsets and polar set-out.

#include "fuzz/check.h"
#include "fuzz/reader.h"
#include "plcalc/lines.h"
#include "plcalc/survey.h"

namespace {

using fuzz::Reader;
using fuzz::same;

// Where relations are asked: a site, or a national grid.
constexpr double kMap = 1e7;

double slack_of(std::initializer_list<PL_PNT2D_record> points, double dist)
{
    double size = std::fabs(dist);
    for (const PL_PNT2D_record& p : points)
        size += std::fabs(p.x) + std::fabs(p.y);
    return 4e-7 + 1e-11 * size;
}

void check_set_out(const PL_PNT2D_record& a, const PL_PNT2D_record& b, const PL_PNT2D_record& from,
                   const PL_IMP_LINE_2D_record& line, double dist)
{
    PL_PNT2D_record out = fuzz::kNoPoint;
    CalcPtAtDistSuSegm(&a, &b, &from, dist, &out);
    FUZZ_CHECK(fuzz::snapped(out));
    PL_PNT2D_record along = fuzz::kNoPoint;
    CalcPtAtDistSuLineaImp(&line, &from, dist, &along);
    FUZZ_CHECK(fuzz::snapped(along));
    if (!fuzz::all_within(kMap, {a, b, from}) || !fuzz::all_within(kMap, {dist}))
        return;
    const double slack = slack_of({a, b, from}, dist);
    FUZZ_CHECK(fuzz::near(fuzz::apart(from, out), std::fabs(dist), slack));
    if (fuzz::all_finite({line.a, line.b}))
        FUZZ_CHECK(fuzz::near(fuzz::apart(from, along), std::fabs(dist), slack));

    // Ahead for a positive distance.
    const double length = fuzz::apart(a, b);
    if (length >= 1.0) {
        const double ahead = ((out.x - from.x) * (b.x - a.x) + (out.y - from.y) * (b.y - a.y)) / length;
        FUZZ_CHECK(fuzz::near(ahead, dist, slack + 1e-6 * std::fabs(dist)));
    }
}

void check_signed(const PL_PNT2D_record& a, const PL_PNT2D_record& b, const PL_PNT2D_record& from,
                  const PL_PNT2D_record& target)
{
    const double dist = DistPtSuSegmDaPt(&a, &b, &from, &target);
    FUZZ_CHECK(same(std::fabs(dist), PlFunz_distance(&from, &target)));
    if (!fuzz::all_within(kMap, {a, b, from, target}) || fuzz::apart(a, b) < 1.0 || std::fabs(dist) < 1.0)
        return;
    const double ahead = ((target.x - from.x) * (b.x - a.x) + (target.y - from.y) * (b.y - a.y)) /
                         (fuzz::apart(a, b) * std::fabs(dist));
    if (std::fabs(ahead) > 1e-3)
        FUZZ_CHECK((ahead > 0.0) == (dist > 0.0));
}

void check_foot(const PL_PNT2D_record& a, const PL_PNT2D_record& b, const PL_PNT2D_record& p)
{
    PL_PNT2D_record foot = fuzz::kNoPoint;
    const double dist = DistSegmDaPt(&a, &b, &p, &foot);
    FUZZ_CHECK(same(std::fabs(dist), PlFunz_distance(&foot, &p)));
    const double length = fuzz::apart(a, b);
    if (PlFunz_samepnt(&a, &b))
        FUZZ_CHECK(same(foot, fuzz::kNoPoint));

    PL_PNT2D_record on = fuzz::kNoPoint;
    const bool falls_on = IntersPerpDaPtInSegm(&a, &b, &p, &on);
    if (!fuzz::all_within(1e4, {a, b, p}) || length < 1.0)
        return;

    // The right of a to b is positive, and the foot is where the perpendicular meets the line.
    const double right = ((p.x - a.x) * (b.y - a.y) - (p.y - a.y) * (b.x - a.x)) / length;
    FUZZ_CHECK(fuzz::near(std::fabs(dist), std::fabs(right), 1e-3));
    if (std::fabs(right) > 1e-2)
        FUZZ_CHECK((right > 0.0) == (dist > 0.0));
    const double run = ((p.x - a.x) * (b.x - a.x) + (p.y - a.y) * (b.y - a.y)) / length;
    const double foot_run = ((foot.x - a.x) * (b.x - a.x) + (foot.y - a.y) * (b.y - a.y)) / length;
    FUZZ_CHECK(fuzz::near(run, foot_run, 1e-3));
    FUZZ_CHECK(fuzz::near(fuzz::apart(on, foot), 0.0, 1e-3));
    if (run > 0.1 && run < length - 0.1)
        FUZZ_CHECK(falls_on);
    if (run < -0.1 || run > length + 0.1)
        FUZZ_CHECK(!falls_on);
}

void check_distance_from_line(const PL_IMP_LINE_2D_record& line, const PL_PNT2D_record& p)
{
    double dist = fuzz::kUntouched;
    double angle = fuzz::kUntouched;
    CalcDistPuntoDaRetta(&line, &p, dist, angle);
    FUZZ_CHECK(dist >= 0.0 || std::isnan(dist));
    FUZZ_CHECK(fuzz::within(angle, 0.0, 400.0) || std::isnan(angle));
    if (!fuzz::all_finite({line.a, line.b, line.c}) || line.a * line.a + line.b * line.b > PL_EPS)
        return;
    // A line without direction has its foot at the origin.
    const PL_PNT2D_record origin = {0.0, 0.0};
    FUZZ_CHECK(same(dist, PlFunz_distance(&origin, &p)));
}

void check_squadro(const PL_PNT2D_record& a, const PL_PNT2D_record& b, double absc, double ord)
{
    PL_PNT2D_record out = fuzz::kNoPoint;
    CalcPtSquadro(&a, &b, absc, ord, &out);
    FUZZ_CHECK(fuzz::snapped(out));
    // The result may be the record of either point of the base line.
    PL_PNT2D_record over = a;
    CalcPtSquadro(&over, &b, absc, ord, &over);
    FUZZ_CHECK(same(over, out));
    over = b;
    CalcPtSquadro(&a, &over, absc, ord, &over);
    FUZZ_CHECK(same(over, out));

    const double length = fuzz::apart(a, b);
    if (!fuzz::all_within(1e6, {a, b}) || !fuzz::all_within(1e6, {absc, ord}) || length < 1.0)
        return;
    const double slack =
        slack_of({a, b}, std::fabs(absc) + std::fabs(ord)) + 1e-6 * (std::fabs(absc) + std::fabs(ord));
    const double run = ((out.x - a.x) * (b.x - a.x) + (out.y - a.y) * (b.y - a.y)) / length;
    const double right = ((out.x - a.x) * (b.y - a.y) - (out.y - a.y) * (b.x - a.x)) / length;
    FUZZ_CHECK(fuzz::near(run, absc, slack));
    // Behind the base line's first point the sides are swapped.
    FUZZ_CHECK(fuzz::near(right, absc >= 0.0 ? ord : -ord, slack));
}

void check_polar(const PL_PNT2D_record& station, const PL_PNT2D_record& ref, double angle, double dist)
{
    PL_PNT2D_record out = fuzz::kNoPoint;
    CalcPtAngDist(&station, &ref, angle, dist, &out);
    PL_PNT2D_record over = station;
    CalcPtAngDist(&over, &ref, angle, dist, &over);
    FUZZ_CHECK(same(over, out));
    over = ref;
    CalcPtAngDist(&station, &over, angle, dist, &over);
    FUZZ_CHECK(same(over, out));

    if (!std::isfinite(angle))
        FUZZ_CHECK(std::isnan(out.x) && std::isnan(out.y));
    if (!fuzz::all_within(kMap, {station, ref}) || !fuzz::all_within(kMap, {dist, angle}))
        return;
    FUZZ_CHECK(fuzz::near(fuzz::apart(station, out), std::fabs(dist), slack_of({station, ref}, dist)));
    if (fuzz::apart(station, ref) < 1.0)
        return;
    // Clockwise from the direction station to ref.
    const double dir = std::atan2(ref.y - station.y, ref.x - station.x) - angle / 63.66197723675813;
    const double slack = slack_of({station, ref}, dist) + 1e-7 * std::fabs(dist);
    FUZZ_CHECK(fuzz::near(out.x, station.x + dist * std::cos(dir), slack));
    FUZZ_CHECK(fuzz::near(out.y, station.y + dist * std::sin(dir), slack));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Reader in(data, size);
    const PL_PNT2D_record a = in.point();
    const PL_PNT2D_record b = in.point();
    const PL_PNT2D_record p = in.point();
    const PL_PNT2D_record q = in.point();
    const PL_IMP_LINE_2D_record line = in.line();
    const double dist = in.number();
    const double ord = in.number();
    const double angle = in.angle();

    check_set_out(a, b, p, line, dist);
    check_signed(a, b, p, q);
    check_foot(a, b, p);
    check_distance_from_line(line, p);
    PL_IMP_LINE_2D_record through = {};
    PlFunz_lineeq_ile(&a, &b, &through);
    check_distance_from_line(through, p);
    check_squadro(a, b, dist, ord);
    check_polar(a, b, angle, dist);
    return 0;
}
