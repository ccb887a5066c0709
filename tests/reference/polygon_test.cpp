// Point in polygon as it is, against the walk that compares anew at every edge.

#include <gtest/gtest.h>

#include <limits>
#include <vector>

#include "plcalc/arcs.h"
#include "reference/literal.h"
#include "support/bits.h"

namespace {

void compare(const std::vector<PL_PNT2D_record>& ring, const PL_PNT2D_record& point, int rightmost = 0)
{
    const int n = static_cast<int>(ring.size());
    int got_rightmost = rightmost;
    int want_rightmost = rightmost;
    const bool got = PlFunz_inpolygon(&point, ring.data(), &n, &got_rightmost);
    const bool want = reference::literal_inpolygon(&point, ring.data(), &n, &want_rightmost);
    EXPECT_EQ(got, want) << "n = " << n << ", point " << point.x << ", " << point.y;
    EXPECT_EQ(got_rightmost, want_rightmost);
}

// Rings on a grid, with every kind of run, repetition and level; at three sizes, and disturbed by margins.
TEST(PolygonAgainstLiteral, SameAnswers)
{
    std::mt19937_64 random = test::random_source();
    std::uniform_int_distribution<int> sides(3, 12);
    std::uniform_int_distribution<int> grid(0, 3);
    std::uniform_int_distribution<int> kind(0, 5);
    std::uniform_real_distribution<double> hair(-3e-7, 3e-7);
    for (int i = 0; i < 300000 && !::testing::Test::HasFailure(); ++i) {
        const double size = i % 3 == 0 ? 1.0 : i % 3 == 1 ? 250.0 : 0.01;
        const double east = i % 4 == 0 ? 500000.0 : i % 4 == 1 ? -3.0 : 0.0;
        const double north = i % 4 == 0 ? 5000000.0 : i % 4 == 1 ? -2.0 : 0.0;
        const double disturbed = kind(random) == 0 ? 1.0 + north * 1e-7 : 0.0;
        std::vector<PL_PNT2D_record> ring(static_cast<std::size_t>(sides(random)));
        for (PL_PNT2D_record& p : ring)
            p = {east + size * grid(random) + disturbed * hair(random),
                 north + size * grid(random) + disturbed * hair(random)};
        const PL_PNT2D_record point = {east + size * 0.5 * (grid(random) * 2 - 1),
                                       north + size * 0.5 * grid(random) * 2 + disturbed * hair(random)};
        compare(ring, point);
    }
}

// From no vertices on; what the caller takes for the rightmost one may be any, or none.
TEST(PolygonAgainstLiteral, NoNumbersAndInfinities)
{
    const double kNan = std::numeric_limits<double>::quiet_NaN();
    const double kInf = std::numeric_limits<double>::infinity();
    const std::vector<double> values = {0.0, -0.0, 1.0, 2.0, -1.0, kNan, kInf, -kInf, 1e300, 0x1p-1074};
    std::mt19937_64 random = test::random_source();
    std::uniform_int_distribution<std::size_t> any(0, values.size() - 1);
    std::uniform_int_distribution<int> sides(0, 8);
    std::uniform_int_distribution<int> rightmost(-2, 9);
    for (int i = 0; i < 100000 && !::testing::Test::HasFailure(); ++i) {
        std::vector<PL_PNT2D_record> ring(static_cast<std::size_t>(sides(random)));
        for (PL_PNT2D_record& p : ring)
            p = {values[any(random)], values[any(random)]};
        compare(ring, {values[any(random)], values[any(random)]}, rightmost(random));
    }
}

}  // namespace
