// Direction angles, the pseudo-angle with the squared distance, polar points, and the reduction of angles.

#include "fuzz/check.h"
#include "fuzz/reader.h"
#include "kernel/angle_units.h"
#include "kernel/tolerance.h"
#include "plcalc/kernel.h"

namespace {

using fuzz::Reader;
using fuzz::same;
using fuzz::within;

constexpr double kTurnRad = 6.283185307179586;

// The steps of the reduction are bounded by so many turns.
constexpr double kMostTurns = 65536.0;

void check_arctan(double x, double y)
{
    const double rad = PlFunz_arctan_rad(x, y);
    const double deg = PlFunz_arctan_deg(x, y);
    // Two infinities have a direction as little as a NaN has one.
    const bool no_direction = std::isnan(x) || std::isnan(y) || (std::isinf(x) && std::isinf(y));
    FUZZ_CHECK(within(rad, 0.0, kTurnRad) || (no_direction && std::isnan(rad)));
    FUZZ_CHECK(within(deg, 0.0, 360.0) || (no_direction && std::isnan(deg)));
    FUZZ_CHECK(std::isnan(rad) == std::isnan(deg));
    if (std::isnan(rad))
        return;
    FUZZ_CHECK(fuzz::near(rad * 57.29577951308232, deg, 1e-12));

    if (std::fabs(x) > PL_EPS && std::fabs(y) > PL_EPS) {
        const double off = std::fabs(std::remainder(rad - std::atan2(y, x), kTurnRad));
        FUZZ_CHECK(off <= 4e-15);
    } else {
        const double quarters = rad / 1.5707963267948966;
        FUZZ_CHECK(no_direction || quarters == std::floor(quarters));
    }
}

void check_pseudo_angdist(const PL_PNT2D_record& p, const PL_PNT2D_record& q)
{
    double angle = fuzz::kUntouched;
    double dist2 = fuzz::kUntouched;
    PlFunz_pseudo_angdist(&p, &q, &angle, &dist2);
    FUZZ_CHECK(within(angle, -45.0, 360.0) || std::isnan(angle));
    FUZZ_CHECK(dist2 >= 0.0 || std::isnan(dist2));
    if (fuzz::all_within(1e300, {p, q}))
        FUZZ_CHECK(!std::isnan(angle) && !std::isnan(dist2));

    double back = fuzz::kUntouched;
    double back2 = fuzz::kUntouched;
    PlFunz_pseudo_angdist(&q, &p, &back, &back2);
    FUZZ_CHECK(same(dist2, back2));
    if (fuzz::all_within(1e9, {p, q}) && dist2 > 1.0)
        FUZZ_CHECK(fuzz::near(std::fabs(angle - back), 180.0, 2e-5));
}

// The result is as far from the origin as was asked, in the direction that was asked.
void check_polar_point_lies(int unit, const PL_PNT2D_record& origin, double dist, double angle,
                            const PL_PNT2D_record& out)
{
    constexpr int kDegrees = 0;
    constexpr int kPseudo = 2;
    if (!fuzz::all_within(1e9, {origin.x, origin.y, dist}) || !(std::fabs(angle) <= 1000.0))
        return;
    const double rounding = 2e-7 + 1e-12 * (std::fabs(dist) + std::fabs(origin.x) + std::fabs(origin.y));
    FUZZ_CHECK(fuzz::near(fuzz::apart(origin, out), std::fabs(dist), 2.0 * rounding));
    if (unit == kPseudo)
        return;
    const double dir = unit == kDegrees ? angle / 57.29577951308232 : angle;
    const double slack = rounding + 1e-9 * std::fabs(dist);
    FUZZ_CHECK(fuzz::near(out.x, origin.x + dist * std::cos(dir), slack));
    FUZZ_CHECK(fuzz::near(out.y, origin.y + dist * std::sin(dir), slack));
}

void check_polar_point(int unit, const PL_PNT2D_record& origin, double dist, double angle)
{
    const PL_PNT2D_record before = origin;
    PL_PNT2D_record out = fuzz::kNoPoint;
    PlFunz_pntangledist(unit, &origin, dist, angle, &out);
    FUZZ_CHECK(same(origin, before));
    FUZZ_CHECK(fuzz::snapped(out));
    if (!std::isfinite(angle))
        FUZZ_CHECK(std::isnan(out.x) && std::isnan(out.y));
    else if (fuzz::all_finite({origin.x, origin.y, dist}))
        FUZZ_CHECK(!std::isnan(out.x) && !std::isnan(out.y));
    check_polar_point_lies(unit, origin, dist, angle, out);
}

// Reduced by whole turns, into one turn but for the margins; only what is no angle gives NaN.
void check_reduction(double angle, double turn)
{
    const double low = -plcalc::scaled_tol(turn) - 1e-12;
    const double high = turn - plcalc::scaled_tol(turn);
    const double near = plcalc::bring_near(angle, turn);
    FUZZ_CHECK(std::isnan(near) == !std::isfinite(angle));
    FUZZ_CHECK(std::isnan(near) || std::fabs(near) <= kMostTurns * turn);

    const double reduced = plcalc::within_one_turn(angle, turn);
    FUZZ_CHECK(std::isfinite(angle) ? within(reduced, low, high) : std::isnan(reduced));
    if (std::fabs(angle) <= 1000.0 * turn) {
        const double turns = (angle - reduced) / turn;
        FUZZ_CHECK(fuzz::near(turns, std::round(turns), 1e-9));
    }

    const double dropped = plcalc::drop_turns(angle, turn);
    FUZZ_CHECK(std::isfinite(angle) ? dropped < high : std::isnan(dropped));
    if (angle >= -PL_EPS)
        FUZZ_CHECK(same(dropped, reduced));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Reader in(data, size);
    const int unit = in.selector();
    const double angle = in.angle();
    const double dist = in.number();
    const PL_PNT2D_record p = in.point();
    const PL_PNT2D_record q = in.point();

    check_arctan(p.x, p.y);
    check_arctan(q.x - p.x, q.y - p.y);
    check_pseudo_angdist(p, q);
    check_polar_point(unit, p, dist, angle);
    for (const double turn : {kTurnRad, 360.0, 4.0})
        check_reduction(angle, turn);
    return 0;
}
