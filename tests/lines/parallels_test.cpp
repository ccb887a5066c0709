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

}  // namespace
