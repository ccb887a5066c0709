#include "verdict/judge.h"

#include <gtest/gtest.h>

#include <cmath>

#include "support/bits.h"
#include "support/rings.h"

namespace {

using plparcel::Chord;
using plparcel::Cutting;
using plparcel::judge;
using plparcel::LocalRing;
using plparcel::MeasuredRing;
using plparcel::Ring;
using plparcel::Target;
using plparcel::Verdict;

// The U, of 7600:        6--5  2 .. 7: vertices; sides as their first vertex
//   7 (0,100)--6 (30,100)   3 (70,100)--2 (100,100)
//        |  5 (30,40)---4 (70,40)   |
//   0 (0,0)----------------------1 (100,0)
const Ring kU = {{0, 0}, {100, 0}, {100, 100}, {70, 100}, {70, 40}, {30, 40}, {30, 100}, {0, 100}};
constexpr double kArea = 7600.0;

struct Ends {
    PL_PNT2D_record from;
    std::size_t from_side;
    PL_PNT2D_record to;
    std::size_t to_side;
    bool request_after_from;
};

Verdict verdict(const Ring& ring, const Ends& ends, double asked, double parcel, Cutting& cutting)
{
    const MeasuredRing measured(ring);
    const LocalRing local(measured);
    Chord chord;
    chord.from = local.to_local(ends.from);
    chord.to = local.to_local(ends.to);
    chord.from_side = ends.from_side;
    chord.to_side = ends.to_side;
    chord.request_after_from = ends.request_after_from;
    return judge(measured, local, chord, Target{asked, parcel - asked, parcel}, cutting);
}

Verdict verdict(const Ring& ring, const Ends& ends, double asked, double parcel)
{
    Cutting cutting;
    return verdict(ring, ends, asked, parcel, cutting);
}

TEST(Judge, TellsLinesThatDivideFromThoseThatDoNot)
{
    const struct {
        const char* what;
        Ends ends;
        double asked;
        Verdict verdict;
    } rows[] = {
        {"across the strip", {{100, 20}, 1, {0, 20}, 7, true}, 5600, Verdict::divides},
        {"the other piece", {{100, 20}, 1, {0, 20}, 7, false}, 2000, Verdict::divides},
        {"the other way round", {{0, 20}, 7, {100, 20}, 1, true}, 2000, Verdict::divides},
        {"the pieces mixed up", {{100, 20}, 1, {0, 20}, 7, true}, 2000, Verdict::misses},
        {"across one arm", {{30, 70}, 5, {0, 70}, 7, true}, 900, Verdict::divides},
        {"across both arms and the gap", {{100, 70}, 1, {0, 70}, 7, true}, 3600, Verdict::leaves_the_parcel},
        {"across the gap alone", {{70, 70}, 3, {30, 70}, 5, true}, 1200, Verdict::leaves_the_parcel},
        {"across the gap, the other piece",
         {{70, 70}, 3, {30, 70}, 5, false},
         1200,
         Verdict::leaves_the_parcel},
        {"along the gap's floor", {{100, 40}, 1, {0, 40}, 7, true}, 3600, Verdict::leaves_the_parcel},
        {"to the gap's corner, as its one side", {{100, 40}, 1, {70, 40}, 3, true}, 1800, Verdict::divides},
        {"to the same, as its other side", {{100, 40}, 1, {70, 40}, 4, true}, 1800, Verdict::divides},
        {"past the corner on the left", {{100, 20}, 1, {40, 60}, 4, true}, 3000, Verdict::misses},
        {"grazing a corner",
         {{100, 20}, 1, {0, 86.666666666666671}, 7, true},
         4666,
         Verdict::leaves_the_parcel},
        {"a piece too small by 2e-9 of the parcel",
         {{100, 20}, 1, {0, 20}, 7, true},
         5600 + 2e-9 * kArea,
         Verdict::misses},
        {"an end beside its side", {{100, 20}, 1, {1e-9, 20}, 7, true}, 5600, Verdict::misses},
        {"an end within 2.4 spacings of its side",
         {{100, 20}, 1, {5.3e-14, 20}, 7, true},
         5600,
         Verdict::divides},
        {"an end within 2.6", {{100, 20}, 1, {5.8e-14, 20}, 7, true}, 5600, Verdict::misses},
        {"an end beyond its side", {{100, 120}, 1, {0, 20}, 7, true}, 600, Verdict::misses},
        {"an end before its side", {{100, -20}, 1, {0, 20}, 7, true}, 7600, Verdict::misses},
        {"no length", {{100, 0}, 0, {100, 0}, 1, true}, 1, Verdict::misses},
    };
    for (const auto& row : rows)
        EXPECT_EQ(verdict(kU, row.ends, row.asked, kArea), row.verdict) << row.what;
}

TEST(Judge, ToleranceIsABillionthOfTheParcelAndAHundredthOfThePiece)
{
    // A square of 2^10 by 2^10: areas of strips are exact, so are the rims.
    const Ring square = {{0, 0}, {1024, 0}, {1024, 1024}, {0, 1024}};
    const double parcel = 0x1p20;
    const auto strip = [&](double height, double asked) {
        return verdict(square, {{0, height}, 3, {1024, height}, 1, true}, asked, parcel);
    };
    const double tolerance = 1e-9 * parcel;
    EXPECT_EQ(strip(512, 0x1p19 + 0.999 * tolerance), Verdict::divides);
    EXPECT_EQ(strip(512, 0x1p19 - 0.999 * tolerance), Verdict::divides);
    EXPECT_EQ(strip(512, 0x1p19 + 1.001 * tolerance), Verdict::misses);
    EXPECT_EQ(strip(512, 0x1p19 - 1.001 * tolerance), Verdict::misses);

    // A strip of 2^-17 holds 2^-7, which is 7.45e-9 of the parcel; of 2^-24, a hundredth is the smaller.
    EXPECT_EQ(strip(0x1p-24, 0x1p-14 * 1.0098), Verdict::divides);
    EXPECT_EQ(strip(0x1p-24, 0x1p-14 * 1.0102), Verdict::misses);
    EXPECT_EQ(strip(0x1p-24, 0x1p-14 * 0.9902), Verdict::divides);
    EXPECT_EQ(strip(0x1p-24, 0x1p-14 * 0.9898), Verdict::misses);
    // A hundredth of what was asked, not of what the piece holds: 0.01005 and 0.00995 of that are missed.
    EXPECT_EQ(strip(0x1p-24, 0x1p-14 * 1.01005), Verdict::divides);
    EXPECT_EQ(strip(0x1p-24, 0x1p-14 * 0.99005), Verdict::misses);
    // And where nearly everything is asked, of what is left.
    EXPECT_EQ(
        verdict(square, {{0, 0x1p-24}, 3, {1024, 0x1p-24}, 1, false}, parcel - 0x1p-14 * 1.0102, parcel),
        Verdict::misses);
    EXPECT_EQ(
        verdict(square, {{0, 0x1p-24}, 3, {1024, 0x1p-24}, 1, false}, parcel - 0x1p-14 * 1.0098, parcel),
        Verdict::divides);
}

TEST(Judge, ALineThatPassesAVertexWithinFourRoundingsTouchesIt)
{
    // A notch from below whose tip is at (50, 20); the line above it at 20 + gap. Spacing at 100: 2.2e-14.
    const Ring notched = {{0, 0}, {45, 0}, {50, 20}, {55, 0}, {100, 0}, {100, 50}, {0, 50}};
    const auto above = [&notched](double gap) {
        const double height = 20.0 + gap;
        return verdict(notched, {{100, height}, 4, {0, height}, 6, true}, 100.0 * (50.0 - height), 4900.0);
    };
    EXPECT_EQ(above(0.0), Verdict::leaves_the_parcel);
    EXPECT_EQ(above(-1e-3), Verdict::leaves_the_parcel);
    EXPECT_EQ(above(0x1p-48), Verdict::leaves_the_parcel);       // 3.6e-15
    EXPECT_EQ(above(8.5e-14), Verdict::leaves_the_parcel);       // 3.8 spacings
    EXPECT_EQ(above(25 * 0x1p-48), Verdict::leaves_the_parcel);  // 4 of them, to the bit
    EXPECT_EQ(above(26 * 0x1p-48), Verdict::divides);            // the next double
    EXPECT_EQ(above(9.5e-14), Verdict::divides);                 // 4.3
}

TEST(Judge, AVertexNearAnEndIsTouchedTheSame)
{
    // The notch reaches to five spacings from the left side, on which the line ends: 1.2e-13, where 9e-14 count
    // as the end itself.
    const Ring notched = {{0, 0}, {45, 0}, {1.2e-13, 20}, {55, 0}, {100, 0}, {100, 50}, {0, 50}};
    const double height = 20.0 + 2e-14;
    EXPECT_EQ(verdict(notched, {{100, height}, 4, {0, height}, 6, true}, 100.0 * (50.0 - height), 4900.0),
              Verdict::leaves_the_parcel);
}

// Half a square of 2^10 by 2^10, and what is granted more or less, to the last bit. Where that is missed, an end moves.
TEST(Judge, AMissAsLargeAsTheToleranceIsGranted)
{
    const MeasuredRing square({{0, 0}, {1024, 0}, {1024, 1024}, {0, 1024}});
    const LocalRing local(square);
    Chord chord;
    chord.from = local.to_local({0, 512});
    chord.to = local.to_local({1024, 512});
    chord.from_side = 3;
    chord.to_side = 1;
    chord.request_after_from = true;
    const double granted = 1e-9 * 0x1p20;
    const auto stays = [&](double by) {
        Cutting cutting;
        const Target target = {plparcel::Wide(0x1p19) + by, plparcel::Wide(0x1p19) - by, 0x1p20};
        EXPECT_EQ(judge(square, local, chord, target, cutting), Verdict::divides) << by;
        return cutting.from.y == 512.0 && cutting.to.y == 512.0;
    };
    for (const double sign : {-1.0, 1.0}) {
        EXPECT_TRUE(stays(sign * test::down(granted)));
        EXPECT_TRUE(stays(sign * granted));
        EXPECT_FALSE(stays(sign * test::up(granted)));
    }
}

// At 2^52 spacings are 1. A notch comes down to 2 above the line, so near an end of it that the pieces show how the
// boundary goes on, or farther from it.
TEST(Judge, ATipWithinFourSpacingsOfAnEndDoesNotCount)
{
    const double west = 0x1p52 - 4096;
    const double east = 0x1p52;
    for (const double away : {3.0, 4.0, 5.0}) {
        SCOPED_TRACE(away);
        const Verdict wanted = away > 4 ? Verdict::leaves_the_parcel : Verdict::divides;
        const auto notched = [&](double at, double left, double right) {
            const Ring ring = {{west, 0},        {east, 0},    {east, 4096}, {right, 4096},
                               {at, 2048 + 2.0}, {left, 4096}, {west, 4096}};
            const double notch = 0.5 * 63 * (4096 - 2050);
            return verdict(ring, {{west, 2048}, 6, {east, 2048}, 1, true}, 0x1p23, 0x1p24 - notch);
        };
        EXPECT_EQ(notched(west + away, west + 1, west + 64), wanted);
        EXPECT_EQ(notched(east - away, east - 64, east - 1), wanted);
    }
}

TEST(Judge, ASideThatTheEndsRoundingBendsOverAVertexIsNotSimple)
{
    // A notch ends 1e-20 above the side from (0, -1) to (100, 1). The line's end on that side, (55, 0.1), lies
    // 5.6e-18 too high, as doubles go, and the side to it passes above the notch's tip.
    const Ring ring = {{0, -1}, {100, 1}, {100, 50}, {51, 50}, {50, 1e-20}, {49, 50}, {0, 50}};
    const double parcel = 4950.0;
    const double left = 55.0 * 50.0 + 0.5 * (1.0 - 0.1) * 55.0 - 50.0;
    EXPECT_EQ(verdict(ring, {{55, 0.1}, 0, {55, 50}, 2, true}, parcel - left, parcel),
              Verdict::leaves_the_parcel);
    EXPECT_EQ(verdict(ring, {{55, 0.1}, 0, {55, 50}, 2, false}, left, parcel), Verdict::leaves_the_parcel);
}

TEST(Judge, CutsTheRingInTwo)
{
    Cutting cutting;
    ASSERT_EQ(verdict(kU, {{100, 20}, 1, {0, 20}, 7, true}, 5600, kArea, cutting), Verdict::divides);
    EXPECT_POINT(cutting.from, ({100, 20}));
    EXPECT_POINT(cutting.to, ({0, 20}));
    EXPECT_BITS(cutting.request.area().hi, 5600.0);
    ASSERT_EQ(cutting.request.size(), 8U);
    EXPECT_POINT(cutting.request.ring().front(), ({100, 20}));
    EXPECT_POINT(cutting.request[1], ({100, 100}));
    EXPECT_POINT(cutting.request.ring().back(), ({0, 20}));
    ASSERT_EQ(cutting.rest.size(), 4U);
    EXPECT_POINT(cutting.rest[0], ({0, 20}));
    EXPECT_POINT(cutting.rest[1], ({0, 0}));
    EXPECT_POINT(cutting.rest[2], ({100, 0}));
    EXPECT_POINT(cutting.rest[3], ({100, 20}));
}

TEST(Judge, EndsNextToAVertexAreTheVertex)
{
    // Spacing at 100 is 2.2e-14: four of them are a vertex still, and no piece has a side of that length.
    Cutting cutting;
    const double near = 40.0 + 5e-14;
    ASSERT_EQ(verdict(kU, {{100, 40}, 1, {70, near}, 3, true}, 1800, kArea, cutting), Verdict::divides);
    EXPECT_POINT(cutting.to, ({70, 40}));
    EXPECT_EQ(cutting.request.size(), 4U);
    EXPECT_EQ(cutting.rest.size(), 7U);

    ASSERT_EQ(verdict(kU, {{100, 40}, 1, {70, 40.0 + 1.5e-13}, 3, true}, 1800, kArea, cutting),
              Verdict::divides);
    EXPECT_GT(cutting.to.y, 40.0);
    EXPECT_EQ(cutting.rest.size(), 8U);
}

TEST(Judge, TriesTheNeighboursWhereTheNearestRoundingMisses)
{
    // At 2^24 doubles are 2^-28 apart. 8 wide and 1 high: both ends 3/8 of that too low are 1.1e-8 of area, and
    // 8e-9 is what is allowed.
    const double e = 0x1p24;
    const MeasuredRing far(Ring{{e, e}, {e + 8, e}, {e + 8, e + 1}, {e, e + 1}});
    const LocalRing local(far);
    Chord chord;
    // Height 0.5 + 3/8 of a spacing at both ends: to the nearest, both round to 0.5.
    const plparcel::Wide height = plparcel::Wide(0.5) + plparcel::Wide(0x1.8p-30);
    const int exponent = local.scale_exponent();
    chord.from = {0.0, plparcel::scaled(height, exponent)};
    chord.to = {plparcel::scaled(8.0, exponent), plparcel::scaled(height, exponent)};
    chord.from_side = 3;
    chord.to_side = 1;
    chord.request_after_from = true;
    Cutting cutting;
    const plparcel::Wide asked = height * 8.0;
    ASSERT_EQ(judge(far, local, chord, Target{asked, plparcel::Wide(8.0) - asked, 8.0}, cutting),
              Verdict::divides);
    // One end up, one down: within an eighth of a spacing of the middle.
    EXPECT_NE(cutting.from.y, cutting.to.y);
    EXPECT_BITS(std::fabs((cutting.request.area() - asked).value()), 0x1p-28);

    // At 2^30 they are 2.4e-7 apart, which no choice makes up for.
    const double f = 0x1p30;
    const Ring too_far = {{f, f}, {f + 1, f}, {f + 1, f + 1}, {f, f + 1}};
    EXPECT_EQ(verdict(too_far, {{f, f + 0.5}, 3, {f + 1, f + 0.5}, 1, true}, 0.5 + 2e-8, 1.0),
              Verdict::misses);
}

// The same strip between two gables, with either piece as the request, run through either way, and 2^20 times as
// large.
//        .-+-.
//       |     |   8 wide, 1 high at the walls, 1.5 between the gables' tips
//        '-+-'
TEST(Judge, TriesTheNeighboursForEitherPieceAndEitherWayRound)
{
    const plparcel::Wide height = plparcel::Wide(0.5) + plparcel::Wide(0x1.8p-30);
    const plparcel::Wide south = height * 8.0 + plparcel::Wide(1.0);
    const plparcel::Wide north = plparcel::Wide(10.0) - south;
    const PL_PNT2D_record shape[] = {{0, 0}, {4, -0.25}, {8, 0}, {8, 1}, {4, 1.25}, {0, 1}};
    for (const int exponent : {0, 20}) {
        Ring anticlockwise;
        for (const PL_PNT2D_record& p : shape)
            anticlockwise.push_back({std::ldexp(0x1p24 + p.x, exponent), std::ldexp(0x1p24 + p.y, exponent)});
        for (const bool is_clockwise : {false, true}) {
            const MeasuredRing far(is_clockwise ? test::reversed(anticlockwise) : anticlockwise);
            const LocalRing local(far);
            const int to_local = local.scale_exponent() + exponent;
            const plparcel::Wide level = plparcel::scaled(height, to_local);
            const plparcel::WidePoint west = {0.0, level};
            const plparcel::WidePoint east = {plparcel::scaled(8.0, to_local), level};
            Chord chord;  // the piece after `from` is the southern one
            chord.from = is_clockwise ? east : west;
            chord.to = is_clockwise ? west : east;
            chord.from_side = is_clockwise ? 3 : 5;
            chord.to_side = is_clockwise ? 0 : 2;
            for (const bool southern : {true, false}) {
                SCOPED_TRACE(exponent);
                SCOPED_TRACE(is_clockwise ? "clockwise" : "anticlockwise");
                SCOPED_TRACE(southern ? "southern" : "northern");
                chord.request_after_from = southern;
                // Of 8, not of 10: 8e-9 is granted, and the nearest doubles miss by 1.1e-8.
                const plparcel::Wide asked = plparcel::scaled(southern ? south : north, 2 * exponent);
                const plparcel::Wide rest = plparcel::scaled(southern ? north : south, 2 * exponent);
                const Target target = {asked, rest, std::ldexp(8.0, 2 * exponent)};
                Cutting cutting;
                ASSERT_EQ(judge(far, local, chord, target, cutting), Verdict::divides);
                EXPECT_NE(cutting.from.y, cutting.to.y);
                EXPECT_BITS(std::fabs((cutting.request.area() - asked).value()),
                            std::ldexp(0x1p-28, 2 * exponent));
            }
        }
    }
}

TEST(Judge, AVertexThatALineStartsFromIsNotMoved)
{
    // A triangle from the first vertex, 8 long; doubles are u = 2^-28 apart. Its height is 3/8 of that below one
    // half and rounds up, which is 1.5 u too much. 1.4 u is allowed: with the start one double nearer it holds.
    const double e = 0x1p24;
    const double u = 0x1p-28;
    const MeasuredRing far(Ring{{e, e}, {e + 8, e}, {e + 8, e + 1}, {e, e + 1}});
    const LocalRing local(far);
    const plparcel::Wide height = plparcel::Wide(0.5) - plparcel::Wide(0.375 * u);
    Chord chord;
    chord.from = local.at(0);
    chord.to = {local.at(1).x, plparcel::scaled(height, local.scale_exponent())};
    chord.from_side = 0;
    chord.to_side = 1;
    chord.request_after_from = true;
    const plparcel::Wide asked = height * 4.0;
    const Target target{asked, plparcel::Wide(8.0) - asked, 1.4 * u * 1e9};
    Cutting cutting;
    EXPECT_EQ(judge(far, local, chord, target, cutting), Verdict::divides);
    EXPECT_POINT(cutting.from, ({e + u, e}));
    chord.from_stays = true;
    EXPECT_EQ(judge(far, local, chord, target, cutting), Verdict::misses);

    // The other end may still be moved: 2.75 u more than a quarter need a height one double above one half.
    chord.to.y = plparcel::scaled(plparcel::Wide(0.5) + plparcel::Wide(0.375 * u), local.scale_exponent());
    const plparcel::Wide more = plparcel::Wide(2.0) + plparcel::Wide(2.75 * u);
    ASSERT_EQ(judge(far, local, chord, Target{more, plparcel::Wide(8.0) - more, 1.4 * u * 1e9}, cutting),
              Verdict::divides);
    EXPECT_POINT(cutting.from, ({e, e}));
    EXPECT_POINT(cutting.to, ({e + 8, e + 0.5 + u}));
}

}  // namespace
