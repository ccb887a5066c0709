#include "one_cut.h"

#include <gtest/gtest.h>

namespace {

using plparcel::Attempt;
using plparcel::Cut;
using plparcel::make_cut;
using plparcel::Stage;
using plparcel::Status;
using plparcel::Target;

// The diagonal leaves 500000 on each side, and may miss each by 0.001. It misses the request by 0.0009, so it is tried,
// and first; but what should remain, after earlier cuts, it misses by 0.0011. Beyond the corner, 1.8e-6 along the upper
// side, the request is held exactly and the rest to 0.0002.
TEST(OneCut, ALineToACornerThatMissesTheRestGivesWayToTheExactOne)
{
    Stage stage;
    stage.ring = plparcel::MeasuredRing({{0, 0}, {1000, 0}, {1000, 1000}, {0, 1000}});
    stage.cut = Cut::through_vertex;
    const Attempt attempt =
        make_cut(stage, {Cut::through_vertex, {0, 0}, {1000, 0}}, Target{500000.0009, 499999.9989, 1e6});
    ASSERT_EQ(attempt.status, Status::divided);
    EXPECT_EQ(attempt.trials, 2U);
    EXPECT_NEAR(1000.0 - attempt.line.to.x, 1.8e-6, 1e-10);
    EXPECT_EQ(attempt.line.to.y, 1000.0);
}

// The same where the rest is missed by 0.002 beyond the corner too.
TEST(OneCut, LinesThatMissTheRestAreNotReached)
{
    Stage stage;
    stage.ring = plparcel::MeasuredRing({{0, 0}, {1000, 0}, {1000, 1000}, {0, 1000}});
    stage.cut = Cut::through_vertex;
    const Attempt attempt =
        make_cut(stage, {Cut::through_vertex, {0, 0}, {1000, 0}}, Target{500000.0009, 499999.997, 1e6});
    EXPECT_EQ(attempt.status, Status::not_reached);
    EXPECT_EQ(attempt.trials, 2U);
}

}  // namespace
