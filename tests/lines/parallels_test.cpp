#include "lines/parallels.h"

#include "support/bits.h"

namespace {

using plcalc::MeetsParallels;

TEST(MeetsParallels, MadeOfNothingMeetsNothing)
{
    EXPECT_FALSE(MeetsParallels().meets(0.0));
    EXPECT_FALSE(MeetsParallels().meets(1.0));
}

struct MeetRow {
    const char* what;
    PL_IMP_LINE_2D_record fixed;
    double a, b, c;
    bool want;
    double x, y;
};

const MeetRow kRows[] = {
    {"x = 1 and y = 2", {1, 0, -1}, 0, 1, -2, true, 1, 2},
    {"x = 1 and y = -7", {1, 0, -1}, 0, 1, 7, true, 1, -7},
    {"parallel", {1, 2, 3}, 2, 4, 1, false, 0, 0},
    {"determinant on 1e-7", {1, 0, 0}, 0, 1e-7, 1, false, 0, 0},
    {"determinant just above", {1, 0, -1}, 0, 0x1.ad7f29abcaf49p-24, 0, true, 1, 0},
    {"the same three coefficients", {4000, 3000, 5}, 4000.00000005, 3000, 5.00000005, false, 0, 0},
};

TEST(MeetsParallels, Table)
{
    for (const MeetRow& row : kRows) {
        SCOPED_TRACE(row.what);
        const MeetsParallels meets(row.fixed, row.a, row.b);
        ASSERT_EQ(meets.meets(row.c), row.want);
        if (row.want) {
            EXPECT_EQ(meets.x_at(row.c), row.x);
            EXPECT_EQ(meets.y_at(row.c), row.y);
        }
    }
}

// a and b agree within the margin, yet the determinant does not vanish: c alone tells whether it is one line.
TEST(MeetsParallels, AlmostTheSameDirectionIsToldByC)
{
    const PL_IMP_LINE_2D_record fixed = {4000, 3000, 5};
    const MeetsParallels meets(fixed, 4000.00000005, 3000);
    EXPECT_FALSE(meets.meets(5.0));
    EXPECT_TRUE(meets.meets(6.0));
}

TEST(MeetsParallels, FlatAlongXWhicheverWayItRuns)
{
    for (const double a : {0.5, -0.5})
        for (const double b : {2.0, -2.0}) {
            EXPECT_TRUE(MeetsParallels({a, b, 7}, 1, 0).flat()) << a << ", " << b;
            EXPECT_FALSE(MeetsParallels({b, a, 7}, 1, 0).flat()) << b << ", " << a;
        }
    EXPECT_TRUE(MeetsParallels({3, -3, 7}, 1, 0).flat()) << "a diagonal counts as flat";
}

TEST(MeetsParallels, GrowsAsItSays)
{
    std::mt19937_64 random = test::random_source();
    std::uniform_real_distribution<double> any(-100.0, 100.0);
    int met = 0;
    for (int i = 0; i < 20000; ++i) {
        const MeetsParallels meets({any(random), any(random), any(random)}, any(random), any(random));
        const double c = any(random);
        const double more = test::up(c + 1e-6 * (i % 100));
        if (!meets.meets(c))
            continue;
        ++met;
        EXPECT_TRUE(meets.x_grows() ? meets.x_at(more) >= meets.x_at(c) : meets.x_at(more) <= meets.x_at(c));
        EXPECT_TRUE(meets.y_grows() ? meets.y_at(more) >= meets.y_at(c) : meets.y_at(more) <= meets.y_at(c));
    }
    EXPECT_GT(met, 19000);
}

}  // namespace
