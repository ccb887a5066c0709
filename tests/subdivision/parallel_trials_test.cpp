#include "subdivision/parallel_trials.h"

#include <cmath>
#include <numeric>

#include "plcalc/lines.h"
#include "plcalc/survey.h"
#include "support/bits.h"
#include "survey/offsets.h"

namespace {

using plcalc::ParallelTrials;
using plcalc::TrialLine;
using plcalc::TurnedSteps;
using Ring = std::vector<PL_PNT2D_record>;

// Trials over a ring whose first side is the base side.
ParallelTrials trials_on(const Ring& ring)
{
    const std::int32_t n = static_cast<std::int32_t>(ring.size());
    Ring closed = ring;
    closed.push_back(ring.front());
    std::vector<std::int32_t> order(ring.size() + 1);
    std::iota(order.begin(), order.end(), 0);
    order.back() = 0;
    PL_IMP_LINE_2D_record base = {};
    PlFunz_lineeq_ile(&ring[0], &ring[1], &base);
    return ParallelTrials(closed, order, n, base, base.a, base.b);
}

const Ring kRectangle = {{0, 0}, {100, 0}, {100, 50}, {0, 50}};

TEST(ParallelTrials, LineThroughAPoint)
{
    ParallelTrials trials = trials_on(kRectangle);
    TrialLine line = trials.line_through({30, 20});
    EXPECT_BITS(line.c, -2000.0);
    EXPECT_BITS(trials.distance(line), 20.0);
    EXPECT_BITS(trials.bearing(line), 90.0 * 1.1111111111111112);
    EXPECT_POINT(trials.foot({30, 20}), (PL_PNT2D_record{30, -0.0}));  // 0 times a negative inverse
}

TEST(ParallelTrials, ALineThroughAVertexIsTheOneThroughItsPoint)
{
    ParallelTrials trials = trials_on({{3, 1}, {90, 11}, {80, 60}, {11, 33}});
    for (std::int32_t at = 2; at <= 4; ++at) {
        TrialLine by_vertex = trials.line_through_vertex(at);
        TrialLine by_point = trials.line_through(trials.point(at));
        EXPECT_BITS(by_vertex.c, by_point.c);
        EXPECT_BITS(trials.distance(by_vertex), trials.distance(by_point));
        EXPECT_BITS(trials.bearing(by_vertex), trials.bearing(by_point));
    }
}

// A base line whose coefficients are almost nothing: a product of them loses digits, and must not decide which way
// a point lies.
TEST(ParallelTrials, ABaseLineOfSubnormalCoefficients)
{
    const struct {
        PL_IMP_LINE_2D_record base;
        PL_PNT2D_record vertex;
        PL_PNT2D_record through;
    } kBases[] = {
        {{0x22p-1074, 0x2p-1074, 0.0},
         {-0x1.6a804ddd50d53p-4, -0x1.0b6b8da59e802p-7},
         {-0x1.4a3fa509a58p-5, -0.0}},
        {{-0x33p-1074, -0x5p-1074, 0.0},
         {0x1.86b81c460a827p-4, 0x1.23d9512a509e3p-9},
         {0x1.e039a42dac8p-5, 0.0}},
        {{0x38p-1074, -0x2p-1074, 0.0},
         {-0x1.04d697e5f5306p+6, 0x1.16f2510e12588p+1},
         {-0x1.3d0b0bb128cp-4, -0.0}},
    };
    for (const auto& row : kBases) {
        const Ring closed = {{0, 0}, {0, 0}, row.vertex, {0, 0}};
        ParallelTrials trials(closed, {0, 1, 2, 0}, 3, row.base, row.base.a, row.base.b);
        TrialLine line = trials.line_through(row.through);
        double line_dist = 0.0;
        double line_gon = 0.0;
        CalcDistPuntoDaRetta(&row.base, &row.through, line_dist, line_gon);
        double dist = 0.0;
        double gon = 0.0;
        CalcDistPuntoDaRetta(&row.base, &row.vertex, dist, gon);
        EXPECT_GT(dist, line_dist);
        EXPECT_GT(std::fabs(gon - line_gon), 1.0);
        EXPECT_FALSE(trials.beyond(line, 2));
    }
}

TEST(ParallelTrials, NoPointsAreKeptOfNone)
{
    for (const std::int32_t n : {0, -1}) {
        const ParallelTrials trials({}, {}, n, {0, 1, 0}, 0, 1);
        EXPECT_POINT(trials.point(0), (PL_PNT2D_record{0, 0}));
        EXPECT_POINT(trials.point(1), (PL_PNT2D_record{0, 0}));
    }
}

struct MeetRow {
    const char* what;
    PL_PNT2D_record through;
    std::int32_t side;
    bool want;
};

const MeetRow kMeetRows[] = {
    {"in the middle of the right side", {0, 25}, 2, true},
    {"parallel to the far side", {0, 25}, 3, false},
    {"in the middle of the left side", {0, 25}, 4, true},
    {"half a millimetre past the end", {0, 50.0005}, 2, true},
    {"a millimetre past the end", {0, 50.00099999}, 2, true},
    {"more than a millimetre past the end", {0, 50.00100001}, 2, false},
    {"half a millimetre before the start", {0, -0.0005}, 2, true},
    {"a millimetre before the start", {0, -0.00099999}, 4, true},
    {"more than a millimetre before the start", {0, -0.00100001}, 2, false},
    {"far beyond", {0, 5000}, 2, false},
    {"far behind", {0, -5000}, 4, false},
};

TEST(ParallelTrials, MeetsASideWithinAMillimetre)
{
    ParallelTrials trials = trials_on(kRectangle);
    for (const MeetRow& row : kMeetRows) {
        SCOPED_TRACE(row.what);
        PL_PNT2D_record crossing = {test::kUntouched, test::kUntouched};
        EXPECT_EQ(trials.meets_side(trials.line_through(row.through), row.side, crossing), row.want);
        if (row.want) {
            EXPECT_DOUBLE_EQ(crossing.x, row.side == 2 ? 100.0 : 0.0);
            EXPECT_DOUBLE_EQ(crossing.y, row.through.y);
        } else {
            EXPECT_POINT(crossing, (PL_PNT2D_record{test::kUntouched, test::kUntouched}));
        }
    }
}

// A side whose coefficients a and b are the base side's but for less than 1e-7 is met by lines on both sides of its own, and not
// by that one. So it is never said that all lines of a strip meet it.
TEST(ParallelTrials, ASideAllButParallelIsNotMetByAllOfAStrip)
{
    struct Row {
        const char* what;
        double more;
        bool want;
    };
    for (const Row& row :
         {Row{"agrees", 5e-8, false}, Row{"just agrees", 9e-8, false}, Row{"differs", 2e-7, true}}) {
        SCOPED_TRACE(row.what);
        const Ring ring = {{0, 0}, {3000, 4000}, {1000, -2000}, {4000 + row.more, 2000}, {-5000, 3000}};
        ParallelTrials trials = trials_on(ring);
        const double from = trials.constant(2);
        const double to = trials.constant(3);
        ASSERT_GT(std::fabs(to - from), 1e-4);
        const double low = std::min(from, to) + 0.25 * std::fabs(to - from);
        const double high = std::max(from, to) - 0.25 * std::fabs(to - from);
        PL_PNT2D_record crossing = {};
        EXPECT_EQ(trials.all_meet_side(low, high, 3, crossing), row.want);

        // The line in the middle of the strip is the side's own, where they agree.
        PL_IMP_LINE_2D_record moving = {};
        PlFunz_lineeq_ile(&ring[0], &ring[1], &moving);
        PL_IMP_LINE_2D_record own = {};
        PlFunz_lineeq_ile(&ring[2], &ring[3], &own);
        moving.c = own.c;
        EXPECT_EQ(IntersezLineaInSegmOK(ring[2], ring[3], moving, crossing), row.want);
    }
}

// Whatever is kept, each answer is that of measuring anew: sides met, vertices beyond, bearing. Counts the sides.
int expect_answers_of_measuring_anew(const Ring& ring, const std::vector<PL_PNT2D_record>& through)
{
    ParallelTrials trials = trials_on(ring);
    const std::int32_t n = static_cast<std::int32_t>(ring.size());
    PL_IMP_LINE_2D_record base = {};
    PlFunz_lineeq_ile(&ring[0], &ring[1], &base);
    int met = 0;
    for (const PL_PNT2D_record& p : through) {
        TrialLine line = trials.line_through(p);
        PL_IMP_LINE_2D_record moving = {};
        PlFunz_linepntparallel(&moving, &p, &base);
        double line_dist = 0.0;
        double line_gon = 0.0;
        CalcDistPuntoDaRetta(&base, &p, line_dist, line_gon);

        for (std::int32_t at = 2; at <= n; ++at) {
            const PL_PNT2D_record& from = trials.point(at - 1);
            const PL_PNT2D_record& to = trials.point(at);
            PL_PNT2D_record got = {};
            PL_PNT2D_record want = {};
            const bool meets = IntersezLineaInSegmOK(from, to, moving, want);
            EXPECT_EQ(trials.meets_side(line, at, got), meets);
            if (meets) {
                ++met;
                EXPECT_POINT(got, (want));
            }
            double dist = 0.0;
            double gon = 0.0;
            CalcDistPuntoDaRetta(&base, &to, dist, gon);
            const bool beyond = dist > line_dist && line_gon - 1.0 <= gon && gon <= line_gon + 1.0;
            EXPECT_EQ(trials.beyond(line, at), beyond);

            const std::int32_t kept = trials.kept_until(line, at);
            EXPECT_TRUE(kept == at || (!meets && !beyond));
            EXPECT_LE(kept, n + 1);
            const std::int32_t left = trials.beyond_until(line, at);
            EXPECT_TRUE(left == at || (!meets && beyond));
            EXPECT_LE(left, n + 1);
        }
        EXPECT_BITS(trials.bearing(line), line_gon);
    }
    return met;
}

// Lines cluster about the ends of the sides.
TEST(ParallelTrials, EveryAnswerIsThatOfMeasuringAnew)
{
    std::mt19937_64 random = test::random_source();
    std::uniform_real_distribution<double> any(-100.0, 100.0);
    std::uniform_real_distribution<double> near(-0.003, 0.003);
    int met = 0;
    for (int i = 0; i < 3000 && !HasFailure(); ++i) {
        Ring ring(6);
        for (PL_PNT2D_record& p : ring)
            p = {any(random), any(random)};
        if (i % 5 == 0)
            ring[1].x = ring[0].x + (i % 2 == 0 ? 0.0 : near(random));  // a normal on +x
        if (i % 7 == 0)
            ring[3] = {ring[2].x + near(random), ring[2].y + near(random)};
        if (i % 11 == 0)
            ring[4] = {ring[0].x + near(random) / 100, ring[0].y + near(random) / 100};
        if (i % 13 == 0)
            ring[4] = {ring[3].x + ring[1].x - ring[0].x, ring[3].y + ring[1].y - ring[0].y + near(random)};
        Ring through;
        for (std::size_t k = 0; k < 12; ++k) {
            const PL_PNT2D_record& p = ring[k % ring.size()];
            through.push_back({p.x + (k < 6 ? near(random) : any(random)), p.y + near(random)});
        }
        met += expect_answers_of_measuring_anew(ring, through);
    }
    EXPECT_GT(met, 20000);
}

// A normal that nearly points to +x, just below it often, and points so near the base line that they are seen
// exactly at 0, while others, facing the same way, are seen just below 400. Base sides from a centimetre up.
TEST(ParallelTrials, BearingsOnBothSidesOfTheSeam)
{
    std::mt19937_64 random = test::random_source();
    std::uniform_real_distribution<double> slope(-0.0015, 0.0005);
    std::uniform_real_distribution<double> wider_slope(-0.012, 0.012);
    std::uniform_real_distribution<double> exponent(-4.1, 0.0);
    std::uniform_real_distribution<double> along(1.0, 99.0);
    std::uniform_real_distribution<double> size(-2.0, 2.0);
    std::uniform_int_distribution<int> digits(0, 6);
    for (int i = 0; i < 10000 && !HasFailure(); ++i) {
        const double far = std::pow(10.0, digits(random));
        const double lean = i % 3 == 0 ? wider_slope(random) : slope(random);
        const auto near_base = [&] {
            const double t = along(random);
            const double out = std::pow(10.0, exponent(random));
            return PL_PNT2D_record{far + lean * t + out, far - t + lean * out};
        };
        const double side = std::pow(10.0, size(random));
        const Ring ring = {
            {far, far}, {far + lean * side, far - side}, near_base(), near_base(), near_base()};
        expect_answers_of_measuring_anew(ring, {ring[2], ring[3], near_base(), near_base()});
    }
}

// As above, from one last bit of lean to a gon, at local and at national coordinates, with vertices at all distances
// on either side of the distance at which bearings jump; and normals on or near the other axes, and a gon beside them.
TEST(ParallelTrials, BearingsNearTheAxes)
{
    std::mt19937_64 random = test::random_source();
    std::uniform_real_distribution<double> exponent(-4.1, 4.0);
    std::uniform_real_distribution<double> lean_exponent(-16.0, -1.7);
    std::uniform_real_distribution<double> along(-50.0, 50.0);
    std::uniform_real_distribution<double> near(-0.01, 0.01);
    constexpr double kGon = 0.015709255323664916;  // its tangent
    for (int i = 0; i < 20000 && !HasFailure(); ++i) {
        const double east = i % 4 == 0 ? 500000.0 : 0.0;
        const double north = i % 4 == 0 ? 5000000.0 : 0.0;
        const double sign = random() % 2 == 0 ? 1.0 : -1.0;
        const double leans[] = {0.0, kGon * (1.0 + 1e-4 * near(random)),
                                std::pow(10.0, lean_exponent(random))};
        const double lean = sign * leans[random() % 3];
        const double jump = 1e-7 / std::max(std::fabs(lean), 1e-12);
        const std::uint64_t quarters = random() % 2 == 0 ? 0 : random() % 4;
        const auto at = [&](double t, double out) {
            PL_PNT2D_record p = {out + lean * t, lean * out - t};
            for (std::uint64_t turned = 0; turned < quarters; ++turned)
                p = {-p.y, p.x};
            return PL_PNT2D_record{p.x + east, p.y + north};
        };
        const auto somewhere = [&] {
            const double out = random() % 3 == 0 && jump < 1e5 ? jump * (1.0 + near(random))
                                                               : std::pow(10.0, exponent(random));
            return at(along(random), random() % 5 == 0 ? -out : out);
        };
        Ring ring = {at(0.0, 0.0), at(std::pow(10.0, exponent(random) / 2.0), 0.0)};
        for (int k = 0; k < 7; ++k)
            ring.push_back(somewhere());
        expect_answers_of_measuring_anew(
            ring, {ring[2], ring[3], ring[4], somewhere(), at(1.0, 1e-5), at(1.0, -1e-6), at(1.0, 2e-7)});
    }
}

// Whatever the direction of the base side, a line leaves only a few of many sides to be met one by one.
TEST(ParallelTrials, ALineComesNearFewSidesInEveryDirection)
{
    constexpr int kSides = 1000;
    const double leans[] = {0.0,  0x1p-53, 1e-12,  1e-10,  1e-8, 1e-6, 1e-4,
                            1e-3, 0.0099,  0.0101, 0.0157, 0.1,  1.0,  50.0};
    for (const double lean : leans)
        for (const double sign : {1.0, -1.0})
            for (int quarters = 0; quarters < 4; ++quarters) {
                SCOPED_TRACE(testing::Message() << sign * lean << " from axis " << quarters);
                PL_PNT2D_record along = {1.0, sign * lean};
                for (int turned = 0; turned < quarters; ++turned)
                    along = {-along.y, along.x};
                Ring ring = {{-along.x, -along.y}, {along.x, along.y}};
                for (int k = 1; k < kSides; ++k)
                    ring.push_back({100.0 * std::sin(6.2831853 * k / kSides) * (k % 2 == 0 ? 0.9 : 1.0),
                                    100.0 * std::cos(6.2831853 * k / kSides)});
                ParallelTrials trials = trials_on(ring);
                for (int k = 100; k < kSides; k += 100) {
                    const double out = k % 200 == 0 ? 0.3 : 1e-7;
                    const PL_PNT2D_record& far = ring[static_cast<std::size_t>(k)];
                    const TrialLine line = trials.line_through({out * far.x, out * far.y});
                    int near = 0;
                    const std::int32_t last = static_cast<std::int32_t>(ring.size());
                    for (std::int32_t at = 2; at <= last; ++at, ++near) {
                        at = trials.beyond_until(line, trials.kept_until(line, at));
                        if (at > last)
                            break;
                    }
                    EXPECT_LT(near, kSides / 10);
                }
            }
}

// Lines as near as that to the base line agree with all vertices beyond it on one side, or with none, at national
// coordinates too: also where rounding has turned a line's bearing by just a gon.
TEST(ParallelTrials, FewBearingsNearTheBaseLine)
{
    std::mt19937_64 random = test::random_source();
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    const auto agree = [](double line_gon, double gon) {
        return line_gon - 1.0 <= gon && gon <= line_gon + 1.0;
    };
    constexpr double kGon = 0.015707963267948967;
    int turned_a_gon = 0;
    int told = 0;
    for (int i = 0; i < 3000 && !HasFailure(); ++i) {
        SCOPED_TRACE(i);
        const double dir = 6.283185307179586 * unit(random);
        const PL_PNT2D_record n = {std::cos(dir), std::sin(dir)};
        const auto at = [&](double along, double out) {
            return PL_PNT2D_record{7e6 + n.y * along + n.x * out, 9e6 - n.x * along + n.y * out};
        };
        Ring ring = {at(0.0, 0.0), at(5.0, 0.0)};
        for (int k = 0; k < 30; ++k)
            ring.push_back(
                at(100.0 * unit(random), (k % 2 == 0 ? 1.0 : -1.0) * 2.6e-4 * std::pow(1.4, k / 2)));
        ParallelTrials trials = trials_on(ring);
        TurnedSteps steps = trials.turned_steps();
        steps.list();
        const double from = trials.few_bearings_from(100.0, steps);
        if (!(from < 1.0))
            continue;
        ++told;
        const double normal = plcalc::direction_gon({0, 0}, n);
        for (int k = 0; k < 3000; ++k) {
            const double step = 1e-7 + 3e-7 * unit(random);
            const double turn = 1.5 * kGon * unit(random);
            const PL_PNT2D_record foot = trials.foot(at(100.0 * unit(random), 0.0));
            const double turned = dir + (k % 4 < 2 ? turn : -turn) + (k % 8 < 4 ? 0.0 : 3.141592653589793);
            TrialLine line =
                trials.line_through({foot.x + step * std::cos(turned), foot.y + step * std::sin(turned)});
            if (std::fabs(line.c - trials.base_constant()) > trials.near_base())
                continue;
            const double gon = trials.bearing(line);
            const double off_a_gon = std::fabs(std::fabs(std::remainder(gon - normal, 200.0)) - 1.0);
            if (k >= 100 && off_a_gon > 1e-3)
                continue;
            int agreed[2] = {0, 0};
            int all[2] = {0, 0};
            for (std::int32_t v = 2; v < trials.last(); ++v) {
                const double off = trials.constant(v) - trials.base_constant();
                TrialLine there = trials.line_through_vertex(v);
                if (!(std::fabs(off) > from))
                    continue;
                ++all[off < 0.0];
                agreed[off < 0.0] += agree(gon, trials.bearing(there)) ? 1 : 0;
            }
            turned_a_gon += off_a_gon < 1e-3 ? 1 : 0;
            for (const int way : {0, 1})
                EXPECT_TRUE(agreed[way] == 0 || agreed[way] == all[way]);
        }
    }
    EXPECT_GT(told, 1000);
    EXPECT_GT(turned_a_gon, 50);
}

// What is off their line, of crossings with long sides and short ones, in a longer arithmetic.
TEST(ParallelTrials, CrossingsAreOffTheirLineByNoMore)
{
    std::mt19937_64 random = test::random_source();
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    double worst = 0.0;
    for (int i = 0; i < 100000 && !HasFailure(); ++i) {
        const double size = std::pow(10.0, 3.0 * unit(random));
        const PL_PNT2D_record place = {std::pow(10.0, 7.0 * unit(random)),
                                       std::pow(10.0, 7.0 * unit(random))};
        Ring ring;
        for (int k = 0; k < 4; ++k)
            ring.push_back({place.x + size * unit(random), place.y + size * unit(random)});
        if (i % 2 == 0)  // a side nearly parallel to the lines
            ring[3] = {ring[2].x + (ring[1].x - ring[0].x) * (1.0 + 1e-3 * unit(random)),
                       ring[2].y + (ring[1].y - ring[0].y) * (1.0 + 1e-3 * unit(random))};
        ParallelTrials trials = trials_on(ring);
        const double part = unit(random);
        const TrialLine line = trials.line_through(
            {ring[2].x + part * (ring[3].x - ring[2].x), ring[2].y + part * (ring[3].y - ring[2].y)});
        PL_PNT2D_record crossing = {};
        if (!trials.meets_side(line, 3, crossing))
            continue;
        const long double a = -(ring[1].y - ring[0].y);
        const long double b = ring[1].x - ring[0].x;
        const double off = static_cast<double>(std::fabs(a * crossing.x + b * crossing.y + line.c));
        EXPECT_LE(off, trials.crossing_off(3));
        worst = std::max(worst, off / trials.crossing_off(3));
    }
    EXPECT_GT(worst, 0.01);
}

// The margins round away: a side is met at its very end or not at all, and by a neighbouring line as well.
TEST(ParallelTrials, WhereAMillimetreIsLessThanTheLastBit)
{
    constexpr double kLastBit = 0.25;
    std::mt19937_64 random = test::random_source();
    std::uniform_int_distribution<std::int64_t> any(-(std::int64_t(1) << 52), std::int64_t(1) << 52);
    std::uniform_int_distribution<int> step(-2, 2);
    int met = 0;
    for (int i = 0; i < 3000 && !HasFailure(); ++i) {
        Ring ring(5);
        for (PL_PNT2D_record& p : ring)
            p = {static_cast<double>(any(random)) * kLastBit, static_cast<double>(any(random)) * kLastBit};
        if (i % 2 == 0)
            ring[1].y = ring[0].y;
        if (i % 4 == 1)
            ring[1].x = ring[0].x;
        Ring through;
        for (const PL_PNT2D_record& p : ring)
            for (int k = 0; k < 4; ++k)
                through.push_back({p.x + step(random) * kLastBit, p.y + step(random) * kLastBit});
        met += expect_answers_of_measuring_anew(ring, through);
    }
    EXPECT_GT(met, 20000);
}

}  // namespace
