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

// From 2^40 on the directions tell nothing, so that each side is met.
TEST(VertexTrials, AParcelOfTwoMillionMillions)
{
    constexpr double kSide = 0x1p+41;
    VertexTrials trials({{0, 0}, {kSide, 0}, {kSide, kSide}, {0, kSide}, {0, 0}}, {0, 1, 2, 3, 0}, 4, {0, 0});
    const PL_PNT2D_record vertex = {0, 0};
    const PL_PNT2D_record on_ray = {2, 1};
    PL_IMP_LINE_2D_record line = {};
    PlFunz_lineeq_ile(&vertex, &on_ray, &line);
    trials.lay_ray(line, std::atan2(1.0, 2.0));
    PL_PNT2D_record crossing = {};
    EXPECT_TRUE(trials.meets_side(2, crossing));
    EXPECT_DOUBLE_EQ(crossing.x, kSide);
    EXPECT_DOUBLE_EQ(crossing.y, kSide / 2.0);
    EXPECT_FALSE(trials.meets_side(3, crossing));  // at twice its length
}

// Points about the ray, off it by no more than a few times what a side may be and still be met, in pairs across its
// direction; and about the edges of a wedge. Whatever the directions tell, the answers are those of meeting and
// comparing anew.
int expect_answers_of_meeting_anew(std::mt19937_64& random, const PL_PNT2D_record& vertex, double farthest)
{
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    const double ray_rad = random() % 3 == 0 ? 0.7853981633974483 : 6.3 * unit(random);
    const double turn = random() % 2 == 0 ? 1.5707963267948966 : 3.1 * unit(random);
    const double margin = 0.001 + 1e-15 * farthest * farthest;
    const auto about_ray = [&](double along, double off) {
        return PL_PNT2D_record{vertex.x + along * std::cos(ray_rad) - off * std::sin(ray_rad),
                               vertex.y + along * std::sin(ray_rad) + off * std::cos(ray_rad)};
    };
    std::vector<PL_PNT2D_record> ring = {vertex, about_ray(10.0, -50.0)};
    for (int i = 0; i < 3; ++i) {
        const double along = (unit(random) - 0.3) * std::pow(10.0, 3.0 * unit(random));
        const double off = 2.5 * margin * unit(random) * (random() % 2 == 0 ? 1.0 : -1.0);
        const double length = std::copysign(30.0 * unit(random), off);
        ring.push_back(about_ray(along, off));
        ring.push_back(about_ray(along + length * std::cos(turn), off + length * std::sin(turn)));
    }
    const std::int32_t n = static_cast<std::int32_t>(ring.size());
    std::vector<std::int32_t> order;
    for (std::int32_t at = 0; at <= n; ++at)
        order.push_back(at % n);
    VertexTrials trials(ring, order, n, vertex);

    const PL_PNT2D_record on_ray = {vertex.x + std::cos(ray_rad), vertex.y + std::sin(ray_rad)};
    PL_IMP_LINE_2D_record line = {};
    PlFunz_lineeq_ile(&vertex, &on_ray, &line);
    trials.lay_ray(line, ray_rad);
    const double hairs[] = {0.0, 1e-10, -1e-10, 5e-11, 1e-9, -1e-9, 1e-6, -1e-6, 1e-5};
    const double start =
        LimiteAng0_400(trials.seen_at_gon(1 + static_cast<int>(random() % 6)) + hairs[random() % 9]);
    const double end = trials.seen_at_gon(1 + static_cast<int>(random() % 6)) + hairs[random() % 9];
    const double width = LimiteAng0_400(end - start);
    trials.lay_wedge(start, width);
    int met = 0;
    for (std::int32_t at = 1; at < n; ++at) {
        const double from_start = LimiteAng0_400(trials.seen_at_gon(at) - start);
        EXPECT_EQ(trials.in_wedge(at), from_start >= -1e-10 && from_start <= width * 1.0000000001);
        if (at == 1)
            continue;
        const std::size_t to = static_cast<std::size_t>(at);
        PL_PNT2D_record got = {};
        PL_PNT2D_record want = {};
        const bool meets = IntersezLineaInSegmOK(ring[to - 1], ring[to], line, want);
        EXPECT_EQ(trials.meets_side(at, got), meets);
        if (meets) {
            EXPECT_POINT(got, (want));
            ++met;
        }
    }
    return met;
}

TEST(VertexTrials, DirectionsTellWhatMeetingAnewWould)
{
    std::mt19937_64 random = test::random_source();
    const struct {
        PL_PNT2D_record vertex;
        double farthest;
    } kPlaces[] = {{{0, 0}, 1000},
                   {{300, -200}, 1000},
                   {{500000, 5000000}, 5e6},
                   {{-3e7, 2e7}, 3e7},
                   {{1e10, 1e10}, 1e10}};
    for (const auto& place : kPlaces) {
        int met = 0;
        for (int i = 0; i < 40000 && !HasFailure(); ++i)
            met += expect_answers_of_meeting_anew(random, place.vertex, place.farthest);
        EXPECT_GT(met, 1000);
    }
}

}  // namespace
