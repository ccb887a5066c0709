#include "lines/segment_box.h"

#include <cmath>
#include <limits>
#include <random>

#include "support/bits.h"

namespace {

using test::down;
using test::up;

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();

struct BoxRow {
    const char* what;
    PL_LINE_2D_record seg;
    PL_PNT2D_record p;
    bool want;
};

// The margin around a side r is (|r| + 1) * 1e-7.
const BoxRow kBoxRows[] = {
    {"inside the box, off the segment", {{1, 2}, {4, 6}}, {2, 5}, true},
    {"a corner that is no end", {{1, 2}, {4, 6}}, {1, 6}, true},
    {"West side 1: on 1 - 2e-7", {{1, 2}, {4, 6}}, {1 - 2e-7, 3}, true},
    {"West side 1: just outside", {{1, 2}, {4, 6}}, {down(1 - 2e-7), 3}, false},
    {"East side 4: on 4 + 5e-7", {{1, 2}, {4, 6}}, {4 + 5e-7, 3}, true},
    {"East side 4: just outside", {{1, 2}, {4, 6}}, {up(4 + 5e-7), 3}, false},
    {"South side 2: on 2 - 3e-7", {{1, 2}, {4, 6}}, {2, 2 - 3 * 1e-7}, true},
    {"South side 2: just outside", {{1, 2}, {4, 6}}, {2, down(2 - 3 * 1e-7)}, false},
    {"North side 6: on 6 + 7e-7", {{1, 2}, {4, 6}}, {2, 6 + 7 * 1e-7}, true},
    {"North side 6: just outside", {{1, 2}, {4, 6}}, {2, up(6 + 7 * 1e-7)}, false},
    {"side 0: on -1e-7", {{0, 0}, {4, 6}}, {-1e-7, 3}, true},
    {"side 0: just outside", {{0, 0}, {4, 6}}, {down(-1e-7), 3}, false},
    {"the ends the other way: West", {{4, 6}, {1, 2}}, {1 - 2e-7, 3}, true},
    {"the ends the other way: beyond West", {{4, 6}, {1, 2}}, {down(1 - 2e-7), 3}, false},
    {"the ends the other way: East", {{4, 6}, {1, 2}}, {4 + 5e-7, 3}, true},
    {"the ends the other way: beyond East", {{4, 6}, {1, 2}}, {up(4 + 5e-7), 3}, false},
    {"a negative side has the margin of its magnitude", {{-8, -9}, {-3, -5}}, {-8 - 9 * 1e-7, -7}, true},
    {"a negative side, just outside", {{-8, -9}, {-3, -5}}, {down(-8 - 9 * 1e-7), -7}, false},
    {"East of a negative side", {{-8, -9}, {-3, -5}}, {-3 + 4 * 1e-7, -7}, true},
    {"East of a negative side, just outside", {{-8, -9}, {-3, -5}}, {up(-3 + 4 * 1e-7), -7}, false},
    {"East but North of the box", {{1, 2}, {4, 6}}, {5, 7}, false},

    // Ends within each other's margin: the box has no width and lies at the end, not at the start.
    {"near-tie of x: the end's side", {{1, 0}, {1.00000015, 4}}, {1.0000003, 2}, true},
    {"near-tie of x, ends swapped: out of reach", {{1.00000015, 4}, {1, 0}}, {1.0000003, 2}, false},
    {"near-tie of x: the start's side is out of reach", {{1, 0}, {1.00000015, 4}}, {0.9999999, 2}, false},
    {"near-tie of x, ends swapped: the start's side", {{1.00000015, 4}, {1, 0}}, {0.9999999, 2}, true},
    {"near-tie of y: the end's side", {{0, 1}, {4, 1.00000015}}, {2, 1.0000003}, true},
    {"near-tie of y, ends swapped: out of reach", {{4, 1.00000015}, {0, 1}}, {2, 1.0000003}, false},
    {"near-tie of y: the start's side is out of reach", {{0, 1}, {4, 1.00000015}}, {2, 0.9999999}, false},
    {"near-tie of y, ends swapped: the start's side", {{4, 1.00000015}, {0, 1}}, {2, 0.9999999}, true},

    {"a NaN x", {{1, 2}, {4, 6}}, {kNan, 3}, false},
    {"a NaN y", {{1, 2}, {4, 6}}, {2, kNan}, false},
    {"a NaN start leaves the end's box", {{kNan, kNan}, {4, 6}}, {4, 6}, true},
    {"a NaN start, a point elsewhere", {{kNan, kNan}, {4, 6}}, {3, 6}, false},
    {"a NaN end holds nothing", {{1, 2}, {kNan, 6}}, {1, 2}, false},
    {"an infinite segment holds nothing: the margin of an infinite side is infinite",
     {{-kInf, 0}, {kInf, 0}},
     {0, 0},
     false},
};

TEST(PntInSegbox, Table)
{
    for (const BoxRow& row : kBoxRows) {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(PlFunz_pnt_in_segbox(&row.seg, &row.p), row.want);
    }
}

TEST(PntInSegbox, HoldsThePointsOfTheSegmentEitherWayAndNoPointOutside)
{
    std::mt19937_64 random = test::random_source();
    std::uniform_real_distribution<double> coordinate(-1000.0, 1000.0);
    std::uniform_real_distribution<double> fraction(0.0, 1.0);
    for (int i = 0; i < 2000; ++i) {
        const PL_LINE_2D_record seg = {{coordinate(random), coordinate(random)},
                                       {coordinate(random), coordinate(random)}};
        const PL_LINE_2D_record back = {seg.end, seg.start};
        const double t = fraction(random);
        const PL_PNT2D_record on = {seg.start.x + t * (seg.end.x - seg.start.x),
                                    seg.start.y + t * (seg.end.y - seg.start.y)};
        ASSERT_TRUE(PlFunz_pnt_in_segbox(&seg, &on));
        ASSERT_TRUE(PlFunz_pnt_in_segbox(&back, &on));
        // No margin here is wider than 1001e-7.
        const PL_PNT2D_record beyond_x = {std::fmax(seg.start.x, seg.end.x) + 2e-4, on.y};
        const PL_PNT2D_record beyond_y = {on.x, std::fmin(seg.start.y, seg.end.y) - 2e-4};
        ASSERT_FALSE(PlFunz_pnt_in_segbox(&seg, &beyond_x));
        ASSERT_FALSE(PlFunz_pnt_in_segbox(&seg, &beyond_y));
    }
}

}  // namespace
