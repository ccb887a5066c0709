#include "arcs/arc_rect.h"

#include <algorithm>

#include "arc_checks.h"
#include "plcalc/arcs.h"

namespace {

using test::down;
using test::kInf;
using test::kNaN;
using test::kTwoPi;
using test::kUntouched;
using test::tol;
using test::unknown;
using test::up;

::testing::AssertionResult same_rect(const PL_RECT_2D_record& got, const PL_RECT_2D_record& want)
{
    for (double PL_RECT_2D_record::*side : {&PL_RECT_2D_record::xmin, &PL_RECT_2D_record::ymin,
                                            &PL_RECT_2D_record::xmax, &PL_RECT_2D_record::ymax}) {
        const ::testing::AssertionResult same = test::same_bits("side", "", got.*side, want.*side);
        if (!same)
            return same;
    }
    return ::testing::AssertionSuccess();
}

struct RectRow {
    const char* what;
    PL_PNT2D_record centre;
    double radius;
    PL_PNT2D_record start;
    PL_PNT2D_record end;
    PL_RECT_2D_record want;
};

const RectRow kRows[] = {
    {"upper half circle: the start in the first quadrant, the end in the second",
     {0, 0},
     1,
     {1, 0},
     {-1, 0},
     {-1, 0, 1, 1}},
    {"fourth to first: the largest x alone", {0, 0}, 1, {0, -1}, {1, 0}, {0, -1, 1, 0}},
    {"three quarters, both axes in the first quadrant: all round", {0, 0}, 1, {0, 1}, {1, 0}, {-1, -1, 1, 1}},
    {"one and the same end: all round", {0, 0}, 1, {0.6, 0.8}, {0.6, 0.8}, {-1, -1, 1, 1}},
    {"first quadrant, a short way",
     {0, 0},
     1,
     {0.8, 0.6},
     {0.6, 0.8},
     {0x1.3333333333333p-1, 0x1.3333333333333p-1, 0x1.999999999999ap-1, 0x1.999999999999ap-1}},
    {"first quadrant, nearly all round", {0, 0}, 1, {0.6, 0.8}, {0.8, 0.6}, {-1, -1, 1, 1}},
    {"fourth quadrant, a short way",
     {0, 0},
     1,
     {0.6, -0.8},
     {0.8, -0.6},
     {0x1.3333333333333p-1, -0x1.999999999999ap-1, 0x1.999999999999ap-1, -0x1.3333333333333p-1}},
    {"quadrant 1 to 2", {10, 20}, 5, {13, 24}, {7, 24}, {7, 24, 13, 25}},
    {"quadrant 1 to 3", {10, 20}, 5, {13, 24}, {6, 17}, {5, 17, 13, 25}},
    {"quadrant 1 to 4", {10, 20}, 5, {13, 24}, {13, 16}, {5, 15, 13, 25}},
    {"quadrant 2 to 1", {10, 20}, 5, {6, 23}, {14, 23}, {5, 15, 15, 23}},
    {"quadrant 2 to 3", {10, 20}, 5, {6, 23}, {6, 17}, {5, 17, 6, 23}},
    {"quadrant 2 to 4", {10, 20}, 5, {6, 23}, {13, 16}, {5, 15, 13, 23}},
    {"quadrant 3 to 1", {10, 20}, 5, {7, 16}, {14, 23}, {7, 15, 15, 23}},
    {"quadrant 3 to 2", {10, 20}, 5, {7, 16}, {7, 24}, {7, 15, 15, 25}},
    {"quadrant 3 to 4", {10, 20}, 5, {7, 16}, {13, 16}, {7, 15, 13, 16}},
    {"quadrant 4 to 1", {10, 20}, 5, {14, 17}, {14, 23}, {14, 17, 15, 23}},
    {"quadrant 4 to 2", {10, 20}, 5, {14, 17}, {7, 24}, {7, 17, 15, 25}},
    {"quadrant 4 to 3", {10, 20}, 5, {14, 17}, {6, 17}, {5, 17, 15, 25}},
    {"quadrant 1, a short way", {10, 20}, 5, {14, 23}, {13, 24}, {13, 23, 14, 24}},
    {"quadrant 1, nearly all round", {10, 20}, 5, {13, 24}, {14, 23}, {5, 15, 15, 25}},
    {"quadrant 2, a short way", {10, 20}, 5, {7, 24}, {6, 23}, {6, 23, 7, 24}},
    {"quadrant 2, nearly all round", {10, 20}, 5, {6, 23}, {7, 24}, {5, 15, 15, 25}},
    {"quadrant 3, a short way", {10, 20}, 5, {6, 17}, {7, 16}, {6, 16, 7, 17}},
    {"quadrant 3, nearly all round", {10, 20}, 5, {7, 16}, {6, 17}, {5, 15, 15, 25}},
    {"quadrant 4, a short way", {10, 20}, 5, {13, 16}, {14, 17}, {13, 16, 14, 17}},
    {"quadrant 4, nearly all round", {10, 20}, 5, {14, 17}, {13, 16}, {5, 15, 15, 25}},
    {"an end a hair left of +y is still in the first quadrant",
     {0, 0},
     5,
     {4, 3},
     {-1e-7, 4.5},
     {-0x1.ad7f29abcaf48p-24, 3, 4, 0x1.2p+2}},
    {"an end just too far left of +y is in the second",
     {0, 0},
     5,
     {4, 3},
     {down(-1e-7), 4.5},
     {-0x1.ad7f29abcaf49p-24, 3, 4, 5}},
    {"an end a hair below -x is still in the second quadrant",
     {0, 0},
     5,
     {4, 3},
     {-4.5, -1e-7},
     {-0x1.2p+2, -0x1.ad7f29abcaf48p-24, 4, 5}},
    {"an end just too far below -x is in the third",
     {0, 0},
     5,
     {4, 3},
     {-4.5, down(-1e-7)},
     {-5, -0x1.ad7f29abcaf49p-24, 4, 5}},
    {"a start a hair below +x is still in the first quadrant",
     {0, 0},
     5,
     {4.5, -1e-7},
     {3, 4},
     {3, -0x1.ad7f29abcaf48p-24, 0x1.2p+2, 4}},
    {"a start just too far below +x is in the fourth",
     {0, 0},
     5,
     {4.5, down(-1e-7)},
     {3, 4},
     {3, -0x1.ad7f29abcaf49p-24, 5, 4}},
    {"a start a hair left of -y is still in the fourth quadrant",
     {0, 0},
     5,
     {-1e-7, -4.5},
     {3, 4},
     {-0x1.ad7f29abcaf48p-24, -0x1.2p+2, 5, 4}},
    {"a start just too far left of -y is in the third",
     {0, 0},
     5,
     {down(-1e-7), -4.5},
     {3, 4},
     {-0x1.ad7f29abcaf49p-24, -5, 5, 4}},
    {"quadrants are those of the difference from the centre",
     {10, 20},
     5,
     {15, 20},
     {5, 20},
     {5, 20, 15, 25}},
    {"in a near-tie of the chord the end wins",
     {1000, 2000},
     5,
     {1005, 1999.9999},
     {995, 1999.99995},
     {995, 0x1.f3ffff2e48e8ap+10, 1005, 2005}},
    {"in a near-tie the end wins, the other way round",
     {1000, 2000},
     5,
     {995, 1999.99995},
     {1005, 1999.9999},
     {995, 1995, 1005, 0x1.f3fffe5c91d15p+10}},
    {"ends in the centre count as first quadrant: the circle", {3, 4}, 5, {3, 4}, {3, 4}, {-2, -1, 8, 9}},
    {"no radius: the centre", {3, 4}, 0, {3, 4}, {3, 4}, {3, 4, 3, 4}},
    {"a negative radius turns the rectangle inside out", {3, 4}, -5, {8, 4}, {8, 4}, {8, 9, -2, -1}},
    {"national coordinates",
     {483112.27, 4912877.91},
     250.5,
     {483362.77, 4912877.91},
     {482861.77, 4912877.91},
     {0x1.d78b7147ae148p+18, 0x1.2bdbb7a3d70a4p+22, 0x1.d808b147ae148p+18, 0x1.2bdfa1a3d70a4p+22}},
    {"a NaN end has no quadrant and counts as the fourth", {0, 0}, 5, {3, 4}, {kNaN, 1}, {-5, -5, kNaN, 5}},
    {"NaN ends: both fourth", {0, 0}, 5, {kNaN, kNaN}, {kNaN, kNaN}, {kNaN, kNaN, kNaN, kNaN}},
    {"a NaN centre", {kNaN, 0}, 5, {3, 4}, {-3, 4}, {kNaN, -5, kNaN, 5}},
    {"an infinite radius", {0, 0}, kInf, {3, 4}, {3, 4}, {-kInf, -kInf, kInf, kInf}},
};

TEST(ArcRect, Table)
{
    for (const RectRow& row : kRows) {
        SCOPED_TRACE(row.what);
        // Unit and angles are not read.
        const ARC_2D_record arc = {row.centre, row.radius, unknown(99), kNaN, kUntouched};
        PL_RECT_2D_record rect = {kUntouched, kUntouched, kUntouched, kUntouched};
        PlFunz_arc_rect_quadrants(&arc, &row.start, &row.end, &rect);
        EXPECT_TRUE(same_rect(rect, row.want)) << "the case analysis";

        rect = {kUntouched, kUntouched, kUntouched, kUntouched};
        PlFunz_arc_rect(&arc, &row.start, &row.end, &rect);
        EXPECT_TRUE(same_rect(rect, row.want));
    }
}

// Smaller and larger of two, b in a near-tie.
double near_low(double a, double b)
{
    return a < b - tol(b) ? a : b;
}

double near_high(double a, double b)
{
    return a > b + tol(b) ? a : b;
}

struct SameQuadrantRow {
    const char* what;
    int quadrant;
    PL_PNT2D_record start;
    PL_PNT2D_record end;
    bool all_round;
};

// The quadrant is told, not found out: only the order of the x coordinates counts.
const SameQuadrantRow kSameQuadrantRows[] = {
    {"first: x falls", 1, {4, 3}, {3, 4}, false},
    {"first: x grows", 1, {3, 4}, {4, 3}, true},
    {"first: equal", 1, {3, 4}, {3, 4}, true},
    {"second: x falls", 2, {4, 3}, {3, 4}, false},
    {"second: x grows", 2, {3, 4}, {4, 3}, true},
    {"third: x grows", 3, {3, 4}, {4, 3}, false},
    {"third: x falls", 3, {4, 3}, {3, 4}, true},
    {"third: equal", 3, {3, 4}, {3, 4}, true},
    {"fourth: x grows", 4, {3, 4}, {4, 3}, false},
    {"fourth: x falls", 4, {4, 3}, {3, 4}, true},
    {"upper half: start on the margin above the end", 1, {1e6 + tol(1e6), 3}, {1e6, 4}, true},
    {"upper half: start just outside it", 1, {up(1e6 + tol(1e6)), 3}, {1e6, 4}, false},
    {"upper half, second quadrant: on the margin", 2, {1e6 + tol(1e6), 3}, {1e6, 4}, true},
    {"upper half, second quadrant: just outside", 2, {up(1e6 + tol(1e6)), 3}, {1e6, 4}, false},
    {"lower half: end on the margin above the start", 3, {1e6, 3}, {1e6 + tol(1e6), 4}, true},
    {"lower half: end just outside it", 3, {1e6, 3}, {up(1e6 + tol(1e6)), 4}, false},
    {"lower half, fourth quadrant: on the margin", 4, {1e6, 3}, {1e6 + tol(1e6), 4}, true},
    {"lower half, fourth quadrant: just outside", 4, {1e6, 3}, {up(1e6 + tol(1e6)), 4}, false},
    {"NaN is never all round", 1, {kNaN, 3}, {3, 4}, false},
    {"NaN in the lower half", 3, {3, 4}, {kNaN, 3}, false},
};

TEST(ArcRect, SameQuadrant)
{
    const ARC_2D_record arc = {{10, 20}, 5, unknown(99), kNaN, kNaN};
    for (const SameQuadrantRow& row : kSameQuadrantRows) {
        SCOPED_TRACE(row.what);
        PL_RECT_2D_record rect = {kUntouched, kUntouched, kUntouched, kUntouched};
        PlFunz_arc_rect_same_quadrant(&rect, &row.start, &row.end, row.quadrant, &arc);
        if (row.all_round) {
            EXPECT_TRUE(same_rect(rect, {5, 15, 15, 25}));
        } else {
            EXPECT_TRUE(
                same_rect(rect, {near_low(row.start.x, row.end.x), 3, near_high(row.start.x, row.end.x), 4}));
        }
    }
}

TEST(ArcRect, HoldsTheArcAndTouchesIt)
{
    std::mt19937_64 random = test::random_source();
    std::uniform_real_distribution<double> any(-100.0, 100.0);
    std::uniform_real_distribution<double> turn(0.0, kTwoPi);
    constexpr int kSamples = 1000;
    for (int i = 0; i < 500; ++i) {
        const double start = turn(random);
        const double end = turn(random);
        const double sweep = end < start ? end + kTwoPi - start : end - start;
        const ARC_2D_record arc = {
            {any(random), any(random)}, 1.0 + std::fabs(any(random)), PL_RADIANS, start, end};
        PL_PNT2D_record s = {};
        PL_PNT2D_record e = {};
        PlFunz_arc_end_pnts(&arc, &s, &e);
        PL_RECT_2D_record rect = {};
        PlFunz_arc_rect(&arc, &s, &e, &rect);

        PL_RECT_2D_record held = {kInf, kInf, -kInf, -kInf};
        for (int k = 0; k <= kSamples; ++k) {
            const double dir = start + sweep * k / kSamples;
            const double x = arc.centre.x + arc.radius * std::cos(dir);
            const double y = arc.centre.y + arc.radius * std::sin(dir);
            held = {std::min(held.xmin, x), std::min(held.ymin, y), std::max(held.xmax, x),
                    std::max(held.ymax, y)};
        }
        // Samples lie within 0.36 degrees of the extreme, which is 2e-5 of the radius at most from it.
        const double gap = 2e-5 * arc.radius;
        for (double PL_RECT_2D_record::*side : {&PL_RECT_2D_record::xmin, &PL_RECT_2D_record::ymin}) {
            ASSERT_LE(rect.*side, held.*side + 1e-6) << start << ' ' << end;
            ASSERT_GE(rect.*side, held.*side - gap) << start << ' ' << end;
        }
        for (double PL_RECT_2D_record::*side : {&PL_RECT_2D_record::xmax, &PL_RECT_2D_record::ymax}) {
            ASSERT_GE(rect.*side, held.*side - 1e-6) << start << ' ' << end;
            ASSERT_LE(rect.*side, held.*side + gap) << start << ' ' << end;
        }
    }
}

}  // namespace
