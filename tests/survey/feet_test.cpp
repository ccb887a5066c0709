#include "survey/feet.h"

#include "support/bits.h"

namespace {

using plcalc::FeetOnLine;

TEST(FeetOnLine, OneLineManyPoints)
{
    const FeetOnLine feet({0.0, 10.0, -20.0});  // y = 2
    PL_PNT2D_record foot = {};
    ASSERT_TRUE(feet.find({3.0, 7.0}, foot));
    EXPECT_POINT(foot, (PL_PNT2D_record{3.0, 2.0}));
    ASSERT_TRUE(feet.find({-4.5, -1.0}, foot));
    EXPECT_POINT(foot, (PL_PNT2D_record{-4.5, 2.0}));
    ASSERT_TRUE(feet.find({8.0, 2.0}, foot));
    EXPECT_POINT(foot, (PL_PNT2D_record{8.0, 2.0}));
}

TEST(FeetOnLine, WithoutDirectionThereIsNone)
{
    const FeetOnLine feet({0.0, 0.0, 5.0});
    PL_PNT2D_record foot = {test::kUntouched, test::kUntouched};
    EXPECT_FALSE(feet.find({3.0, 7.0}, foot));
    EXPECT_POINT(foot, (PL_PNT2D_record{test::kUntouched, test::kUntouched}));
}

}  // namespace
