// What is read from the container, noted by a container of another make (other_make/). That this builds also shows
// that three readers suffice.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "plcalc/survey.h"

namespace {

using Measure = double (*)(const CPoint3dVector&);
using Notes = std::vector<std::string>;

Notes read_by(Measure measure, int n)
{
    CPoint3dVector pts;
    for (int i = 0; i < n; ++i)
        pts.add(i, i * i);
    measure(pts);
    return pts.taken_notes();
}

TEST(Reading, EachVertexOnceInOrderAbscissaFirst)
{
    for (const Measure measure : {AreaCalcolataSgn, AreaCalcolata, PeriCalcolato}) {
        EXPECT_EQ(read_by(measure, 0), Notes{});
        EXPECT_EQ(read_by(measure, 1), (Notes{"x0", "y0"}));
        EXPECT_EQ(read_by(measure, 2), (Notes{"x0", "y0", "x1", "y1"}));
        EXPECT_EQ(read_by(measure, 4), (Notes{"x0", "y0", "x1", "y1", "x2", "y2", "x3", "y3"}));

        // Small rings and large ones keep their notes in different places.
        const Notes many = read_by(measure, 500);
        ASSERT_EQ(many.size(), 1000U);
        for (std::size_t i = 0; i < 500; ++i) {
            EXPECT_EQ(many[2 * i], "x" + std::to_string(i));
            EXPECT_EQ(many[2 * i + 1], "y" + std::to_string(i));
        }
    }
}

TEST(Reading, AContainerOfAnotherMakeGivesTheSameMeasures)
{
    CPoint3dVector pts;
    pts.add(0, 0);
    pts.add(4, 0);
    pts.add(4, 3);
    EXPECT_EQ(AreaCalcolataSgn(pts), 6.0);
    EXPECT_EQ(PeriCalcolato(pts), 12.0);
}

}  // namespace
