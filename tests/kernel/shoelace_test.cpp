#include "kernel/shoelace.h"

#include <vector>

#include "kernel/near.h"
#include "support/measures.h"

namespace {

using test::kInf;
using test::kNan;

struct AreaRow {
    const char* what;
    std::vector<PL_PNT2D_record> ring;
    double want;
};

const AreaRow kAreaRows[] = {
    {"no points", {}, 0.0},
    {"one point", {{3, -4}}, 0.0},
    {"two points", {{3, -4}, {7, 11}}, 0.0},
    {"unit square, anticlockwise", {{0, 0}, {1, 0}, {1, 1}, {0, 1}}, 1},
    {"unit square, clockwise", {{0, 1}, {1, 1}, {1, 0}, {0, 0}}, -1},
    {"unit square, started elsewhere", {{1, 1}, {0, 1}, {0, 0}, {1, 0}}, 1},
    {"the first point repeated at the end adds nothing", {{0, 0}, {1, 0}, {1, 1}, {0, 1}, {0, 0}}, 1},
    {"triangle", {{1, 1}, {5, 1}, {1, 4}}, 6},
    {"figure eight: a clockwise lobe of 4 and an anticlockwise one of 1",
     {{-1, -1}, {2, 2}, {2, -2}, {-1, 1}},
     -3},
    {"figure eight of equal lobes", {{0, 0}, {2, 2}, {2, 0}, {0, 2}}, 0.0},
    {"last bit: each term halved by itself, added in index order",
     {{888.58, 927.56}, {442.88, 86.53}, {406.26, 465.76}, {401.16, 630.12}, {912.81, 413.91}},
     -0x1.75217b7e91008p+13},
    {"the halves are taken before the sum: 1e308 does not overflow",
     {{0, 0}, {1e154, 0}, {1e154, 1e154}, {0, 1e154}},
     1e308},
    {"the product comes first: it overflows before it is halved", {{2e154, 0}, {0, 1e154}, {0, 0}}, kInf},
    {"no shift of origin: far away the square loses its last digits",
     {{1e8, 1e8}, {100000000.1, 1e8}, {100000000.1, 100000000.1}, {1e8, 100000000.1}},
     0x1.47ae1p-7},
    {"NaN", {{0, 0}, {1, 0}, {1, kNan}}, kNan},
    {"infinity", {{0, 0}, {1, 0}, {1, kInf}}, kInf},
};

TEST(ShoelaceArea, Table)
{
    for (const AreaRow& row : kAreaRows) {
        SCOPED_TRACE(row.what);
        EXPECT_BITS(plcalc::shoelace_area(row.ring.data(), row.ring.size()), row.want);
    }
}

TEST(ShoelaceArea, ReadsOnlyTheFirstPoints)
{
    const PL_PNT2D_record points[] = {{0, 0}, {1, 0}, {1, 1}, {0, 1}, {kNan, kNan}};
    EXPECT_BITS(plcalc::shoelace_area(points, 4), 1.0);
    EXPECT_BITS(plcalc::shoelace_area(points, 3), 0.5);
    EXPECT_BITS(plcalc::shoelace_area(points, 0), 0.0);
}

TEST(ShoelaceArea, AgreesWithTrianglesAndChangesSignWithTheOrder)
{
    std::mt19937_64 random = test::random_source();
    std::uniform_int_distribution<int> count(3, 40);
    std::uniform_int_distribution<int> centimetres(-100000, 100000);
    for (int i = 0; i < 2000; ++i) {
        std::vector<PL_PNT2D_record> ring(static_cast<std::size_t>(count(random)));
        for (PL_PNT2D_record& p : ring)
            p = {centimetres(random) / 100.0, centimetres(random) / 100.0};
        const std::vector<PL_PNT2D_record> reversed(ring.rbegin(), ring.rend());

        // 40 terms of at most 1e6, each rounded three times and added once: far below 1e-7.
        const double area = plcalc::shoelace_area(ring.data(), ring.size());
        EXPECT_NEAR(area, static_cast<double>(test::signed_area(ring)), 1e-7);
        EXPECT_NEAR(plcalc::shoelace_area(reversed.data(), reversed.size()), -area, 1e-7);
    }
}

}  // namespace
