#include "arcs/arc_distance.h"

#include <algorithm>

#include "arc_checks.h"
#include "plcalc/arcs.h"

namespace {

using test::down;
using test::kHalfPi;
using test::kInf;
using test::kNaN;
using test::kPi;
using test::kThreeHalfPi;
using test::tol;
using test::unknown;
using test::up;

struct DistanceRow {
    const char* what;
    ARC_2D_record arc;
    PL_PNT2D_record p;
    double distance;
    double from_ends;
    int ulps;  // ends in radians and degrees come from the platform's sine and cosine
};

const DistanceRow kRows[] = {
    {"on the boundary of the sweep", {{0, 0}, 1, PL_RADIANS, 0, kHalfPi}, {2, 0}, 1.0, 1.0, 1},
    {"behind: nearer the start",
     {{0, 0}, 1, PL_RADIANS, 0, kHalfPi},
     {0, -2},
     0x1.1e3779b97f4a8p+1,
     0x1.1e3779b97f4a8p+1,
     1},
    {"as far from both ends",
     {{0, 0}, 1, PL_RADIANS, 0, kHalfPi},
     {-1, -1},
     0x1.1e3779b97f4a8p+1,
     0x1.1e3779b97f4a8p+1,
     1},
    {"inside the sweep, inside the circle",
     {{0, 0}, 5, PL_RADIANS, 0, kHalfPi},
     {1, 1},
     0x1.cafb0ccc0621ap+1,
     0x1.07e0f66afed07p+2,
     1},
    {"in the centre: direction 0 is in the sweep", {{3, 4}, 5, PL_RADIANS, 0, kHalfPi}, {3, 4}, 5.0, 5.0, 1},
    {"in the centre: direction 0 is not in the sweep", {{3, 4}, 5, PL_RADIANS, 1, 2}, {3, 4}, 5.0, 5.0, 2},
    {"across +x, direction 0",
     {{0, 0}, 1, PL_RADIANS, kThreeHalfPi, kHalfPi},
     {2, 0},
     1.0,
     0x1.1e3779b97f4a8p+1,
     1},
    {"across +x, in the gap",
     {{0, 0}, 1, PL_RADIANS, kThreeHalfPi, kHalfPi},
     {-2, 0.5},
     0x1.07e0f66afed07p+1,
     0x1.07e0f66afed07p+1,
     1},
    {"across +x, before the end",
     {{0, 0}, 1, PL_RADIANS, kThreeHalfPi, kHalfPi},
     {1, 3},
     0x1.14c583ada5b53p+1,
     0x1.1e3779b97f4a8p+1,
     1},
    {"across +x, after the start",
     {{0, 0}, 1, PL_RADIANS, kThreeHalfPi, kHalfPi},
     {1, -3},
     0x1.14c583ada5b53p+1,
     0x1.1e3779b97f4a8p+1,
     1},
    {"degrees: on the boundary of the sweep", {{0, 0}, 1, PL_DEGREES, 0, 90}, {2, 0}, 1.0, 1.0, 1},
    {"degrees: behind",
     {{0, 0}, 1, PL_DEGREES, 0, 90},
     {0, -2},
     0x1.1e3779b97f4a8p+1,
     0x1.1e3779b97f4a8p+1,
     1},
    {"degrees: as far from both ends",
     {{0, 0}, 1, PL_DEGREES, 0, 90},
     {-1, -1},
     0x1.1e3779b97f4a8p+1,
     0x1.1e3779b97f4a8p+1,
     1},
    {"degrees: 45 is in the sweep, in radians it would not be",
     {{0, 0}, 1, PL_DEGREES, 30, 60},
     {2, 2},
     0x1.d413cccfe779ap+0,
     0x1.e161cb33fb95ep+0,
     1},
    {"pseudo-angle: in the sweep",
     {{0, 0}, 1, PL_PSEUDO_ANGLE, 0.25, 1},
     {3, 4},
     4.0,
     0x1.076bfcd6fbecdp+2,
     0},
    {"pseudo-angle: outside",
     {{0, 0}, 1, PL_PSEUDO_ANGLE, 0, 0.25},
     {3, 4},
     0x1.076bfcd6fbecdp+2,
     0x1.076bfcd6fbecdp+2,
     0},
    {"angle_type 7: radians, direction 1.1 in the sweep",
     {{0, 0}, 1, unknown(7), 0, kHalfPi},
     {1, 2},
     0x1.3c6ef372fe95p+0,
     0x1.6a09e667f3bcdp+0,
     1},
    {"angle_type 7: radians, outside",
     {{0, 0}, 1, unknown(7), 0, kHalfPi},
     {0, -2},
     0x1.1e3779b97f4a8p+1,
     0x1.1e3779b97f4a8p+1,
     1},
    {"angle_type -1: radians",
     {{0, 0}, 1, unknown(-1), 0, kHalfPi},
     {1, 2},
     0x1.3c6ef372fe95p+0,
     0x1.6a09e667f3bcdp+0,
     1},
    {"angle_type 3: 0 to 180 are radians here, twenty-eight turns and more",
     {{0, 0}, 1, unknown(3), 0, 180},
     {0, -2},
     1.0,
     0x1.5705175eb234fp+0,
     1},
    {"tie within the margin: the end at end_angle, though the start is nearer",
     {{0, 0}, 1, PL_PSEUDO_ANGLE, 0, 1},
     {-1, -0x1.00000c23de6bdp+0},
     0x1.1e377f2760e3cp+1,
     0x1.1e377f2760e3cp+1,
     0},
    {"nearer the start, just beyond the margin",
     {{0, 0}, 1, PL_PSEUDO_ANGLE, 0, 1},
     {-1, -0x1.00000c23de6bep+0},
     0x1.1e377c707022bp+1,
     0x1.1e377c707022bp+1,
     0},
    {"tie: the end at end_angle, a hair nearer",
     {{0, 0}, 1, PL_PSEUDO_ANGLE, 0, 1},
     {-1, -0.9999999},
     0x1.1e3778f96ba2fp+1,
     0x1.1e3778f96ba2fp+1,
     0},
    {"clearly nearer the end",
     {{0, 0}, 1, PL_PSEUDO_ANGLE, 0, 1},
     {-2, 0.5},
     0x1.07e0f66afed07p+1,
     0x1.07e0f66afed07p+1,
     0},
    {"clearly nearer the start",
     {{0, 0}, 1, PL_PSEUDO_ANGLE, 0, 1},
     {0.5, -2},
     0x1.07e0f66afed07p+1,
     0x1.07e0f66afed07p+1,
     0},
    {"the margin is taken of the ends: a pseudo-angle of 3 ends at -x",
     {{0, 0}, 1, PL_PSEUDO_ANGLE, 0, 3},
     {1, -1},
     1.0,
     1.0,
     0},
    {"national coordinates",
     {{483112.27, 4912877.91}, 250.5, PL_RADIANS, 0.3, 2.9},
     {483000, 4912900},
     0x1.10a04024140f8p+7,
     0x1.10a04024140f8p+7,
     1},
    {"national coordinates, behind",
     {{483112.27, 4912877.91}, 250.5, PL_RADIANS, 0.3, 2.9},
     {483300, 4912700},
     0x1.0129fe5a439fp+8,
     0x1.0129fe5a439fp+8,
     2},
    {"no radius", {{3, 4}, 0, PL_RADIANS, 0, 1}, {6, 8}, 5.0, 5.0, 0},
    {"a negative radius: the distance from the centre grows",
     {{3, 4}, -5, PL_RADIANS, 0, 1},
     {6, 8},
     10.0,
     0x1.1e3779b97f4a8p+3,
     0},
    {"as stored: an arc a turn up is never met",
     {{0, 0}, 1, PL_DEGREES, 370, 400},
     {2, 1},
     0x1.48dcd12fa7e65p+0,
     0x1.48dcd12fa7e65p+0,
     2},
    {"NaN point", {{0, 0}, 1, PL_RADIANS, 0, 1}, {kNaN, 1}, kNaN, kNaN, 0},
    {"infinite point", {{0, 0}, 1, PL_RADIANS, 0, 1}, {kInf, 1}, kInf, kInf, 0},
    {"NaN angles: the end, which is NaN",
     {{0, 0}, 1, PL_RADIANS, kNaN, 1},
     {1, 1},
     0x1.f1ef63c5eae78p-2,
     0x1.f1ef63c5eae78p-2,
     1},
    {"infinite angles", {{0, 0}, 1, PL_DEGREES, -kInf, kInf}, {1, 1}, 0x1.a827999fcef34p-2, kNaN, 0},
    {"NaN centre", {{kNaN, 0}, 1, PL_RADIANS, 0, 1}, {1, 1}, kNaN, kNaN, 0},
};

TEST(ArcDistance, Table)
{
    for (const DistanceRow& row : kRows) {
        SCOPED_TRACE(row.what);
        EXPECT_ULPS(PlFunz_distpntarc(&row.arc, &row.p), row.distance, row.ulps);
        EXPECT_ULPS(PlFunz_distpntarc_ends(&row.arc, &row.p), row.from_ends, row.ulps);
    }
}

// Directions all along the sweep, found without the library.
double sampled_distance(const ARC_2D_record& arc, const PL_PNT2D_record& p, double start_rad,
                        double sweep_rad)
{
    constexpr int kSteps = 20000;
    double nearest = kInf;
    for (int i = 0; i <= kSteps; ++i) {
        const double dir = start_rad + sweep_rad * i / kSteps;
        nearest = std::min(nearest, std::hypot(arc.centre.x + arc.radius * std::cos(dir) - p.x,
                                               arc.centre.y + arc.radius * std::sin(dir) - p.y));
    }
    return nearest;
}

TEST(ArcDistance, AgreesWithDenseSampling)
{
    std::mt19937_64 random = test::random_source();
    std::uniform_real_distribution<double> any(-100.0, 100.0);
    std::uniform_real_distribution<double> turn(0.01, 2 * kPi - 0.01);
    for (int i = 0; i < 200; ++i) {
        const double start = turn(random);
        const double end = turn(random);
        const double sweep = end < start ? end + 2 * kPi - start : end - start;
        const PL_PNT2D_record p = {any(random), any(random)};
        ARC_2D_record arc = {
            {any(random), any(random)}, 1.0 + std::fabs(any(random)), PL_RADIANS, start, end};
        const double sampled = sampled_distance(arc, p, start, sweep);
        ASSERT_NEAR(PlFunz_distpntarc(&arc, &p), sampled, 0.04) << i;
        arc.angle_type = PL_DEGREES;
        arc.start_angle *= 180.0 / kPi;
        arc.end_angle *= 180.0 / kPi;
        ASSERT_NEAR(PlFunz_distpntarc(&arc, &p), sampled, 0.04) << i;
    }
}

}  // namespace
