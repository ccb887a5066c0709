// The direction angle with its helpers, the arc through three points, end points, distance and box of an arc.

#include "plcalc/arcs.h"
#include "arcs/arc_angle.h"
#include "arcs/arc_distance.h"
#include "arcs/arc_rect.h"
#include "fuzz/check.h"
#include "fuzz/reader.h"

namespace {

using fuzz::Reader;
using fuzz::same;
using fuzz::within;

constexpr int kPseudo = 0;
constexpr int kDegrees = 1;
constexpr int kRadians = 2;
constexpr int kRcCollinear = 5;
constexpr double kTurnRad = 6.283185307179586;

// A direction whose pseudo-angle lies in the margin 5e-7 below a full turn comes out a hair below zero.
constexpr double kHairRad = -1.001e-6;
constexpr double kHairDeg = -5.74e-5;

bool in_turn_rad(double angle)
{
    return angle >= kHairRad && angle < kTurnRad;
}

void check_helpers(int mode, double angle, const PL_PNT2D_record& vec)
{
    FUZZ_CHECK(within(PlFunz_quadrant(mode, angle, &vec), 1, 4));
    const int quadrant = PlFunz_quadrant(0, angle, &vec);
    FUZZ_CHECK(quadrant == PlFunz_quadrant(0, 0.0, &vec));
    if (fuzz::all_finite({vec})) {
        const bool right = vec.x >= -PL_EPS;
        const bool up = vec.y >= -PL_EPS;
        FUZZ_CHECK(quadrant == (right ? (up ? 1 : 4) : (up ? 2 : 3)));
    }
    if (!std::isfinite(angle))
        FUZZ_CHECK(PlFunz_quadrant(mode == 0 ? kDegrees : mode, angle, &vec) == 4);

    const double half = PlFunz_halftan(angle);
    if (std::fabs(angle) <= 1e150)
        FUZZ_CHECK(within(half, -1.0, 1.0) && half * angle >= 0.0);
    FUZZ_CHECK(same(PlFunz_halftan(-angle), half == 0.0 ? half : -half));

    const double deg = PlFunz_pseudo_to_angle(mode == 1 ? 0 : mode, angle);
    FUZZ_CHECK(deg >= kHairDeg && deg < 360.0);
    FUZZ_CHECK(in_turn_rad(PlFunz_pseudo_to_angle(1, angle)));
    if (!(angle > PL_EPS) || std::isinf(angle))
        FUZZ_CHECK(fuzz::positive_zero(deg));
}

void check_arcangle(int unit, const PL_PNT2D_record& from, const PL_PNT2D_record& to)
{
    const double angle = PlFunz_arcangle(unit, &from, &to);
    const double pseudo = PlFunz_arcangle(kPseudo, &from, &to);
    const double deg = PlFunz_arcangle(kDegrees, &from, &to);
    const double rad = PlFunz_arcangle(kRadians, &from, &to);
    FUZZ_CHECK(same(angle, unit == kPseudo ? pseudo : unit == kDegrees ? deg : unit == kRadians ? rad : 0.0));
    FUZZ_CHECK(deg >= kHairDeg && deg < 360.0);
    FUZZ_CHECK(in_turn_rad(rad));
    FUZZ_CHECK(fuzz::positive_zero(PlFunz_arcangle(unit, &from, &from)) || !fuzz::all_finite({from}));

    const double dx = to.x - from.x;
    const double dy = to.y - from.y;
    if (!fuzz::all_within(1e40, {from, to}))
        return;
    // In the first quadrant by the tolerance only, the pseudo-angle may be negative; it rounds up to 4.
    FUZZ_CHECK(within(pseudo, -0.4143, 4.0));
    if (std::fabs(dx) > 1e-3 && std::fabs(dy) > 1e-3) {
        const double off = std::fabs(std::remainder(rad - std::atan2(dy, dx), kTurnRad));
        FUZZ_CHECK(off <= 1.1e-6);
        FUZZ_CHECK(fuzz::near(deg, rad * 57.29577951308232, 1e-10));
    }
}

void check_arc_3pnts(const PL_PNT2D_record& p1, const PL_PNT2D_record& p2, const PL_PNT2D_record& p3)
{
    ARC_2D_record arc = fuzz::kNoArc;
    const int rc = PlFunz_arc_3pnts(&p1, &p2, &p3, &arc);
    FUZZ_CHECK(rc == 0 || rc == kRcCollinear);
    const double ax = p2.x - p1.x;
    const double ay = p2.y - p1.y;
    const double bx = p3.x - p1.x;
    const double by = p3.y - p1.y;
    if (rc == kRcCollinear) {
        FUZZ_CHECK(same(arc, fuzz::kNoArc));
        return;
    }
    FUZZ_CHECK(arc.angle_type == PL_RADIANS);
    FUZZ_CHECK(arc.radius >= 0.0 || std::isnan(arc.radius));
    FUZZ_CHECK(in_turn_rad(arc.start_angle) && in_turn_rad(arc.end_angle));
    if (!fuzz::all_within(1e6, {p1, p2, p3}))
        return;

    // All three lie on the circle, as far as their cross product has digits.
    const double cross = std::fabs(ax * by - bx * ay);
    const double a = std::hypot(ax, ay);
    const double b = std::hypot(bx, by);
    const double rounding = 1e-14 * (a * b * (a + b) / cross + arc.radius * a * b / cross) +
                            1e-12 * (arc.radius + a + b + std::fabs(p1.x) + std::fabs(p1.y));
    for (const PL_PNT2D_record& p : {p1, p2, p3})
        FUZZ_CHECK(fuzz::near(fuzz::apart(arc.centre, p), arc.radius, rounding));
}

void check_arc(const ARC_2D_record& arc, const PL_PNT2D_record& p)
{
    PL_PNT2D_record start = fuzz::kNoPoint;
    PL_PNT2D_record end = fuzz::kNoPoint;
    PlFunz_arc_end_pnts(&arc, &start, &end);
    FUZZ_CHECK(fuzz::snapped(start) && fuzz::snapped(end));

    const double dist = PlFunz_distpntarc(&arc, &p);
    const double to_ends = PlFunz_distpntarc_ends(&arc, &p);
    FUZZ_CHECK(dist >= 0.0 || std::isnan(dist));
    FUZZ_CHECK(to_ends >= 0.0 || std::isnan(to_ends));
    if (fuzz::all_within(1e150, {arc.centre, p}) &&
        fuzz::all_within(1e150, {arc.radius, arc.start_angle, arc.end_angle}))
        FUZZ_CHECK(!std::isnan(dist) && !std::isnan(to_ends));

    if (!fuzz::all_within(1e6, {arc.centre, p}) || !within(arc.radius, 0.0, 1e6) ||
        !fuzz::all_within(1e4, {arc.start_angle, arc.end_angle}))
        return;
    // No nearer than the whole circle, and no farther than the ends.
    FUZZ_CHECK(fuzz::near(fuzz::apart(arc.centre, start), arc.radius, 1e-6));
    FUZZ_CHECK(fuzz::near(fuzz::apart(arc.centre, end), arc.radius, 1e-6));
    const double slack = 1e-6 + 4e-7 * (1.0 + to_ends);
    FUZZ_CHECK(dist >= std::fabs(fuzz::apart(arc.centre, p) - arc.radius) - slack);
    FUZZ_CHECK(dist <= std::fmin(fuzz::apart(p, start), fuzz::apart(p, end)) + slack);
}

void check_rect(const ARC_2D_record& arc, const PL_PNT2D_record& start, const PL_PNT2D_record& end)
{
    PL_RECT_2D_record rect = fuzz::kNoRect;
    PlFunz_arc_rect(&arc, &start, &end, &rect);

    // Every side is the circle's or comes from one of the ends.
    FUZZ_CHECK(same(rect.xmin, start.x) || same(rect.xmin, end.x) ||
               same(rect.xmin, arc.centre.x - arc.radius));
    FUZZ_CHECK(same(rect.ymin, start.y) || same(rect.ymin, end.y) ||
               same(rect.ymin, arc.centre.y - arc.radius));
    FUZZ_CHECK(same(rect.xmax, start.x) || same(rect.xmax, end.x) ||
               same(rect.xmax, arc.centre.x + arc.radius));
    FUZZ_CHECK(same(rect.ymax, start.y) || same(rect.ymax, end.y) ||
               same(rect.ymax, arc.centre.y + arc.radius));

    PL_RECT_2D_record same_quadrant = fuzz::kNoRect;
    for (int quadrant = 1; quadrant <= 4; ++quadrant)
        PlFunz_arc_rect_same_quadrant(&same_quadrant, &start, &end, quadrant, &arc);
}

// The box holds the ends of the arc whose box it is.
void check_own_rect(const ARC_2D_record& arc)
{
    PL_PNT2D_record start = fuzz::kNoPoint;
    PL_PNT2D_record end = fuzz::kNoPoint;
    PlFunz_arc_end_pnts(&arc, &start, &end);
    PL_RECT_2D_record rect = fuzz::kNoRect;
    PlFunz_arc_rect(&arc, &start, &end, &rect);
    if (!fuzz::all_within(1e6, {arc.centre}) || !within(arc.radius, 0.0, 1e6) ||
        !fuzz::all_within(1e4, {arc.start_angle, arc.end_angle}))
        return;
    const double slack = 1e-6 + 2e-7 * (1.0 + std::fabs(arc.centre.x) + std::fabs(arc.centre.y) + arc.radius);
    for (const PL_PNT2D_record& p : {start, end}) {
        FUZZ_CHECK(within(p.x, rect.xmin - slack, rect.xmax + slack));
        FUZZ_CHECK(within(p.y, rect.ymin - slack, rect.ymax + slack));
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Reader in(data, size);
    const int unit = in.selector();
    const ARC_2D_record arc = in.arc();
    const PL_PNT2D_record p1 = in.point();
    const PL_PNT2D_record p2 = in.point();
    const PL_PNT2D_record p3 = in.point();

    check_helpers(unit, arc.start_angle, p1);
    check_helpers(unit, arc.end_angle, p2);
    check_arcangle(unit, p1, p2);
    check_arcangle(unit, arc.centre, p3);
    check_arc_3pnts(p1, p2, p3);
    check_arc(arc, p1);
    check_rect(arc, p2, p3);
    check_own_rect(arc);

    ARC_2D_record through = fuzz::kNoArc;
    if (PlFunz_arc_3pnts(&p1, &p2, &p3, &through) == 0) {
        check_arc(through, arc.centre);
        check_own_rect(through);
    }
    return 0;
}
