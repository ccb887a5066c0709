#include "subdivision/vertex_trials.h"

#include "plcalc/lines.h"
#include "plcalc/survey.h"
#include "support/bits.h"

namespace {

using plcalc::VertexTrials;

const std::vector<PL_PNT2D_record> kRing = {{0, 0}, {100, 0}, {100, 50}, {0, 50}, {0, 0}};

TEST(VertexTrials, DirectionsAndPoints)
{
    const VertexTrials trials(kRing, {1, 2, 3, 0, 1}, 4, {100, 0});
    EXPECT_POINT(trials.points().at(1), (PL_PNT2D_record{100, 50}));
    EXPECT_POINT(trials.points().at(3), (PL_PNT2D_record{0, 0}));
    EXPECT_BITS(trials.seen_at_gon(1), 100.0);
    EXPECT_BITS(trials.seen_at_gon(3), 200.0);
}

TEST(VertexTrials, ASinglePointIsItsOwnNext)
{
    const VertexTrials trials({{3, 4}, {3, 4}}, {0, 0}, 1, {3, 4});
    EXPECT_POINT(trials.points().at(1), (PL_PNT2D_record{3, 4}));
    EXPECT_BITS(trials.seen_at_gon(1), 0.0);
}

TEST(VertexTrials, NoPointsAreKeptOfNone)
{
    for (const std::int32_t n : {0, -1}) {
        const VertexTrials trials({}, {}, n, {3, 4});
        EXPECT_POINT(trials.points().at(1), (PL_PNT2D_record{0, 0}));
    }
}

TEST(VertexTrials, MeetsSidesAsALineCutsASegment)
{
    std::mt19937_64 random = test::random_source();
    std::uniform_real_distribution<double> any(-100.0, 100.0);
    int met = 0;
    for (int i = 0; i < 5000; ++i) {
        std::vector<PL_PNT2D_record> ring(5);
        for (PL_PNT2D_record& p : ring)
            p = {any(random), any(random)};
        if (i % 5 == 0)
            ring[3] = ring[2];
        ring.push_back(ring.front());
        VertexTrials trials(ring, {0, 1, 2, 3, 4, 0}, 5, ring[0]);
        const PL_PNT2D_record towards = {any(random), any(random)};
        PL_IMP_LINE_2D_record ray = {};
        PlFunz_lineeq_ile(&ring[0], &towards, &ray);
        for (std::int32_t at = 2; at < 5; ++at) {
            PL_PNT2D_record got = {};
            PL_PNT2D_record want = {};
            const std::size_t end = static_cast<std::size_t>(at);
            const bool meets = IntersezLineaInSegmOK(ring[end - 1], ring[end], ray, want);
            trials.lay_ray(ray);
            ASSERT_EQ(trials.meets_side(at, got), meets);
            if (meets) {
                EXPECT_POINT(got, (want));
                ++met;
            }
        }
    }
    EXPECT_GT(met, 3000);
}

}  // namespace
