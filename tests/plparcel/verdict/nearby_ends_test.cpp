#include "verdict/nearby_ends.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

namespace {

using plparcel::Chord;
using plparcel::MeasuredRing;
using plparcel::Target;
using plparcel::Wide;

//    3 (0,8)------(8,8) 2     The line from the corner 2 to the middle of the lower side leaves a triangle of 16 on the
//       |         /  |        right. Its area does not grow when the line's end moves up or down, on the finer axis;
//       |     /      |        it grows by 4 for each unit that the end moves to the left.
//    0 (0,0)-(4,0)-(8,0) 1
std::size_t offered(const Wide& rest)
{
    const MeasuredRing square({{0, 0}, {8, 0}, {8, 8}, {0, 8}});
    Chord chord;
    chord.from_side = 2;
    chord.to_side = 0;
    chord.request_after_from = true;
    chord.from_stays = true;
    std::size_t offers = 0;
    const auto refuse = [&offers](const PL_PNT2D_record&, const PL_PNT2D_record&) {
        ++offers;
        return false;
    };
    const bool taken = offer_nearby_ends(square, chord, Target{48.0, rest, 64.0}, {8, 8}, {4, 0}, refuse);
    EXPECT_FALSE(taken);
    return offers;
}

// Doubles of 5 and of -5 are 2^-50 apart.
TEST(NearbyEnds, AreWithinReachOnEitherSide)
{
    constexpr double kSpacing = 0x1p-50;
    const auto near = [](double v, double reach, double step, int steps) {
        std::vector<double> found = plparcel::doubles_near(v, reach);
        std::sort(found.begin(), found.end());
        std::vector<double> wanted;
        for (int i = -steps; i <= steps; ++i)
            wanted.push_back(v + i * step);
        EXPECT_EQ(found, wanted) << v;
    };
    for (const double v : {5.0, -5.0}) {
        near(v, 0.5 * kSpacing, kSpacing, 0);
        near(v, 3.0 * kSpacing, kSpacing, 3);
        near(v, 24.0 * kSpacing, kSpacing, 24);
        near(v, 48.0 * 64.0 * kSpacing, 128.0 * kSpacing, 24);
    }
}

// Seven doubles of x lie within 1.75 spacings of 8: 4 itself, and three of its own spacings on either side.
TEST(NearbyEnds, WhereAMoveOnTheFinerAxisChangesNothing)
{
    const double granted = 1e-9 * 64.0;
    const struct {
        const char* what;
        Wide rest;
        std::size_t offers;
    } rows[] = {
        {"held by them all", 16.0, 7},
        {"too little by what is granted: at 4, and to the left", Wide(16.0) + granted, 4},
        {"by a hair more: to the left only", Wide(16.0) + std::nextafter(granted, 1.0), 3},
        {"too much by what is granted: at 4, and to the right", Wide(16.0) - granted, 4},
        {"by a hair more: to the right only", Wide(16.0) - std::nextafter(granted, 1.0), 3},
        {"too little by twice that: by none", Wide(16.0) + 2.0 * granted, 0},
        {"too much by twice that: by none", Wide(16.0) - 2.0 * granted, 0},
    };
    for (const auto& row : rows)
        EXPECT_EQ(offered(row.rest), row.offers) << row.what;
}

// A line from the corner (0, 0) to the middle of the upper side: 48 lie on its right, and 4 more for each unit that its
// end moves to the left. Where 5.6 to 6.4 doubles to the left hold both pieces, it goes to the sixth.
TEST(NearbyEnds, AnEndIsMovedToTheMiddleOfWhatHolds)
{
    const MeasuredRing square({{0, 0}, {8, 0}, {8, 8}, {0, 8}});
    Chord chord;
    chord.from_side = 0;
    chord.to_side = 2;
    chord.request_after_from = true;
    chord.from_stays = true;
    const double granted = 1e-9 * 64.0;
    constexpr double kDouble = 0x1p-51;  // below 4
    const Target target = {Wide(48.0) + granted + 4.0 * 5.6 * kDouble,
                           Wide(16.0) + granted - 4.0 * 6.4 * kDouble, 64.0};
    std::vector<double> level;
    offer_nearby_ends(square, chord, target, {0, 0}, {4, 8},
                      [&level](const PL_PNT2D_record&, const PL_PNT2D_record& end) {
                          if (end.y == 8.0)
                              level.push_back(end.x);
                          return false;
                      });
    ASSERT_EQ(level.size(), 1U);
    EXPECT_EQ(level[0], 4.0 - 6.0 * kDouble);
}

// A line from the corner (0, 8) to the lower side, 2^-22 from the corner (0, 0): the triangle there, of 2^-20, may miss
// what it should hold by a hundredth of that. The rest of 64 may miss by seven hundredths of the triangle.
TEST(NearbyEnds, ATinyPieceIsHeldToAHundredthOfItself)
{
    const MeasuredRing square({{0, 0}, {8, 0}, {8, 8}, {0, 8}});
    constexpr double kTriangle = 0x1p-20;
    const struct {
        const char* what;
        double wanted;
        bool held;
    } rows[] = {
        {"as much as it holds", kTriangle, true},
        {"nearly a hundredth less", kTriangle / 1.0099, true},
        {"more than a hundredth less", kTriangle / 1.0101, false},
        {"nearly a hundredth more", kTriangle / 0.9901, true},
        {"more than a hundredth more", kTriangle / 0.9899, false},
    };
    for (const auto& row : rows) {
        for (const bool is_request : {true, false}) {
            Chord chord;
            chord.from_side = 3;
            chord.to_side = 0;
            chord.request_after_from = is_request;
            chord.from_stays = true;
            const Wide rest = Wide(64.0) - row.wanted;
            const Target target =
                is_request ? Target{row.wanted, rest, 64.0} : Target{rest, row.wanted, 64.0};
            const auto take = [](const PL_PNT2D_record&, const PL_PNT2D_record&) { return true; };
            EXPECT_EQ(offer_nearby_ends(square, chord, target, {0, 8}, {0x1p-22, 0}, take), row.held)
                << row.what << (is_request ? ", the request" : ", the rest");
        }
    }
}

// From a line that ends on two sides, both ends may move: the start goes farther away offer by offer.
TEST(NearbyEnds, TriesTheNearestStartsFirst)
{
    const MeasuredRing square({{0, 0}, {8, 0}, {8, 8}, {0, 8}});
    Chord chord;
    chord.from_side = 2;
    chord.to_side = 0;
    chord.request_after_from = true;
    const PL_PNT2D_record from = {4, 8};
    std::vector<PL_PNT2D_record> starts;
    offer_nearby_ends(square, chord, Target{32.0, 32.0, 64.0}, from, {4, 0},
                      [&starts](const PL_PNT2D_record& start, const PL_PNT2D_record&) {
                          starts.push_back(start);
                          return false;
                      });
    ASSERT_EQ(starts.size(), 64U) << "then it gives up";
    const auto distance = [&from](const PL_PNT2D_record& p) {
        return std::fabs(p.x - from.x) + std::fabs(p.y - from.y);
    };
    EXPECT_EQ(distance(starts.front()), 0.0);
    EXPECT_GT(distance(starts.back()), 0.0);
    EXPECT_TRUE(std::is_sorted(starts.begin(), starts.end(),
                               [&](const auto& a, const auto& b) { return distance(a) < distance(b); }));
}

}  // namespace
