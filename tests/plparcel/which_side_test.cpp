// Sides and vertices named by what they are.

#include "plparcel/which_side.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "support/bits.h"
#include "support/parcel_kinds.h"
#include "support/rings.h"

namespace {

using plparcel::Alongside;
using plparcel::Candidate;
using plparcel::Choice;
using plparcel::ChoiceStatus;
using plparcel::OtherGeometry;
using plparcel::Parcel;
using plparcel::Ring;
using plparcel::Segment;

//   3 ----- 2      5 --- 4            A square with a square hole; the hole's sides are 2 long, and side 1 of it,
//   |       |      |     |            as it is given, faces the hole's inside to the East.
//   |       |      |     3 --- 2
//   0 ----- 1      |           |
//   120 by 80      0 --------- 1
const Parcel kLot = {{{0, 0}, {120, 0}, {120, 80}, {0, 80}}, {}};
const Parcel kEl = {{{0, 0}, {100, 0}, {100, 50}, {50, 50}, {50, 100}, {0, 100}}, {}};
const Parcel kHoled = {{{0, 0}, {10, 0}, {10, 10}, {0, 10}}, {{{4, 4}, {4, 6}, {6, 6}, {6, 4}}}};
const Parcel kTriangle = {{{0, 0}, {100, 0}, {0, 50}}, {}};
const double kInf = std::numeric_limits<double>::infinity();

// "2" or "1:0" with the ring; "0 2" when tied; the reason when there is none.
std::string said(const Choice& choice)
{
    if (choice.status != ChoiceStatus::found && choice.status != ChoiceStatus::tied)
        return describe(choice.status);
    EXPECT_EQ(choice.status == ChoiceStatus::found, choice.candidates.size() == 1);
    std::string text;
    for (const Candidate& candidate : choice.candidates) {
        text += text.empty() ? "" : " ";
        text += candidate.place.ring > 0 ? std::to_string(candidate.place.ring) + ":" : "";
        text += std::to_string(candidate.place.index);
    }
    return text;
}

const char* const kUnusable = describe(ChoiceStatus::unusable_request);

TEST(WhichSide, Longest)
{
    EXPECT_EQ(said(plparcel::longest_side(kTriangle)), "1");
    EXPECT_EQ(said(plparcel::shortest_side(kTriangle)), "2");
    EXPECT_EQ(said(plparcel::longest_side(kLot)), "0 2");
    EXPECT_EQ(said(plparcel::shortest_side(kHoled)), "1:0 1:1 1:2 1:3");
    const Choice choice = plparcel::longest_side(kTriangle);
    EXPECT_DOUBLE_EQ(choice.candidates[0].length, std::sqrt(12500.0));
    EXPECT_NEAR(choice.candidates[0].bearing, 29.5167235, 1e-7);  // arctan(50 / 100)
    ASSERT_TRUE(choice.next);
    EXPECT_EQ(choice.next->place.index, 0U);
    EXPECT_EQ(choice.next->length, 100.0);
}

TEST(WhichSide, OfABoundaryThatCrossesItselfThereIsNone)
{
    const Parcel crossed = {{{0, 0}, {1, 1}, {0, 1}, {1, 0}}, {}};
    const OtherGeometry road(std::vector<Segment>{{{0, -1}, {1, -1}}});
    for (const Choice& choice : {plparcel::longest_side(crossed), plparcel::shortest_side(crossed),
                                 plparcel::side_near(crossed, {0, 0}), plparcel::vertex_near(crossed, {0, 0}),
                                 plparcel::side_facing(crossed, 200), plparcel::vertex_farthest(crossed, 0),
                                 side_along(crossed, road, {10})}) {
        EXPECT_EQ(choice.status, ChoiceStatus::unusable_boundary);
        EXPECT_TRUE(choice.candidates.empty());
    }
}

TEST(WhichSide, StatusesAreTold)
{
    std::set<std::string> told;
    for (int status = 0; status <= static_cast<int>(ChoiceStatus::too_much_near); ++status)
        told.insert(describe(static_cast<ChoiceStatus>(status)));
    EXPECT_EQ(told.size(), 8U) << "each in its own words";
    EXPECT_EQ(told.count("unknown status"), 0U);
    EXPECT_STREQ(describe(static_cast<ChoiceStatus>(99)), "unknown status");
}

TEST(WhichSide, TiesAreWithinATolerance)
{
    const double spacing = 0x1p-52 * 128.0;
    const auto longer_by = [](double more) {
        return Parcel{{{0, 0}, {128, 0}, {128 + more, 80}, {0, 80}}, {}};
    };
    EXPECT_EQ(said(plparcel::longest_side(longer_by(4 * spacing))), "0 2") << "on the spacings of doubles";
    EXPECT_EQ(said(plparcel::longest_side(longer_by(6 * spacing))), "2") << "outside";
    const auto shorter_by = [](double less) {
        return Parcel{{{0, 0}, {1, 0}, {1 + less, 128}, {0, 128}}, {}};
    };
    EXPECT_EQ(said(plparcel::shortest_side(shorter_by(4 * spacing))), "0 2") << "on the spacings of doubles";
    EXPECT_EQ(said(plparcel::shortest_side(shorter_by(4 * spacing + 0x1p-52))), "0") << "just outside";
    EXPECT_EQ(said(plparcel::longest_side(longer_by(0.25), 0.25)), "0 2") << "on what was asked";
    EXPECT_EQ(said(plparcel::longest_side(longer_by(0.25), test::down(0.25))), "2");
    EXPECT_EQ(said(plparcel::longest_side(longer_by(0.25), -1.0)), "2") << "no tolerance below zero";
    EXPECT_EQ(said(plparcel::longest_side(longer_by(0.25), std::nan(""))), "2");
    EXPECT_EQ(said(plparcel::shortest_side(kTriangle, 50)), "0 2") << "100 and 50 long";
    EXPECT_EQ(said(plparcel::shortest_side(kTriangle, test::down(50.0))), "2");
    // 10 from side 1 and 9.75 from side 0; 60.25 from vertex 0 and 59.75 from vertex 1.
    EXPECT_EQ(said(plparcel::side_near(kLot, {110, 9.75}, 0.25)), "0 1");
    EXPECT_EQ(said(plparcel::side_near(kLot, {110, 9.75}, test::down(0.25))), "0");
    EXPECT_EQ(said(plparcel::vertex_near(kLot, {60.25, 0}, 0.5)), "0 1");
    EXPECT_EQ(said(plparcel::vertex_near(kLot, {60.25, 0}, test::down(0.5))), "1");
    EXPECT_EQ(said(plparcel::vertex_farthest(kEl, 0, 50)), "2 3 4 5") << "at 50 and at 100";
    EXPECT_EQ(said(plparcel::vertex_farthest(kEl, 0, test::down(50.0))), "4 5");
}

// Sides that go straight on are one side; their vertices stay two. Vertex 2 lies 0.005 gons off the line of side 0.
TEST(WhichSide, VerticesOfAStraightLineTie)
{
    const Parcel bent = {{{0, 0}, {50, 0}, {100, 0.004}, {100, 50}, {0, 50}}, {}};
    EXPECT_EQ(said(plparcel::vertex_farthest(bent, 200)), "0 1");
    EXPECT_EQ(said(plparcel::vertex_near(bent, {25, -5})), "0 1");
    EXPECT_EQ(said(plparcel::vertex_near(bent, {25, -5}, 0.25)), "0 1");
}

TEST(WhichSide, IndexesAreThoseThatWereHandedOver)
{
    // Vertex 1 twice, and a closing one: the side from (100, 0) is side 2.
    const Parcel repeated = {{{0, 0}, {100, 0}, {100, 0}, {0, 50}, {0, 0}}, {}};
    EXPECT_EQ(said(plparcel::longest_side(repeated)), "2");
    EXPECT_EQ(said(plparcel::shortest_side(repeated)), "3");
    EXPECT_EQ(said(plparcel::vertex_near(repeated, {99, 1})), "1");
    EXPECT_EQ(said(plparcel::vertex_near(repeated, {-1, -1})), "0") << "not the closing one";
}

TEST(WhichSide, PartsOfAStraightLineDoNotTie)
{
    // Side 0 and 1 run along the bottom.
    const Parcel parted = {{{0, 0}, {40, 0}, {100, 0}, {100, 50}, {0, 50}}, {}};
    EXPECT_EQ(said(plparcel::side_facing(parted, 200)), "1") << "the longer part";
    const Parcel halved = {{{0, 0}, {50, 0}, {100, 0}, {100, 50}, {0, 50}}, {}};
    EXPECT_EQ(said(plparcel::side_facing(halved, 200)), "0") << "the first of two as long";
    EXPECT_EQ(said(plparcel::side_near(halved, {50, -1})), "0");
    // The line of the bottom begins in its middle: sides 4 and 0.
    const Parcel begun = {{{40, 0}, {100, 0}, {100, 50}, {0, 50}, {0, 0}}, {}};
    EXPECT_EQ(said(plparcel::side_facing(begun, 200)), "0");
    // Side 0 turns from side 1 by a hundredth of a gon and less: 0.0078 in 50 is 0.00993 gons, 0.0080 is 0.01019.
    const auto bent_by = [](double off) {
        return Parcel{{{0, 0}, {50, -0.5 * off}, {100, 0}, {100, 50}, {0, 50}}, {}};
    };
    EXPECT_EQ(said(plparcel::side_facing(bent_by(0.0078), 200, 0.01)), "0");
    EXPECT_EQ(said(plparcel::side_facing(bent_by(0.0080), 200, 0.01)), "0 1");
}

// Each of 65,536 sides goes straight on from the one before, within a hundredth of a gon, all the way round.
TEST(WhichSide, SidesOfACircleTie)
{
    constexpr std::size_t kSides = 65536;
    Ring circle;
    for (std::size_t i = 0; i < kSides; ++i) {
        const double dir_rad = 2.0 * std::acos(-1.0) * static_cast<double>(i) / kSides;
        circle.push_back({1000.0 * std::cos(dir_rad), 1000.0 * std::sin(dir_rad)});
    }
    const Choice choice = plparcel::longest_side({circle, {}}, 1e-3);
    EXPECT_EQ(choice.status, ChoiceStatus::tied);
    EXPECT_EQ(choice.candidates.size(), kSides);
}

// A drop: from its tip one line that bends by less than a hundredth of a gon at each corner leads round to the tip again.
TEST(WhichSide, AllSidesAreOneStraightLineButForTheTip)
{
    constexpr std::size_t kSides = 100000;
    Ring drop;
    for (std::size_t i = 0; i < kSides; ++i) {
        const double t = 2.0 * std::acos(-1.0) * static_cast<double>(i) / kSides;
        drop.push_back({1000.0 * std::cos(t), 1000.0 * std::sin(t) * std::sin(0.5 * t)});
    }
    const Choice choice = plparcel::longest_side({drop, {}}, 1e3);
    EXPECT_EQ(choice.status, ChoiceStatus::found);
    EXPECT_FALSE(choice.next);
}

TEST(WhichSide, FacesABearing)
{
    EXPECT_EQ(said(plparcel::side_facing(kLot, 200)), "0");
    EXPECT_EQ(said(plparcel::side_facing(kLot, 110)), "1");
    EXPECT_EQ(said(plparcel::side_facing(kLot, -400)), "2");
    EXPECT_EQ(said(plparcel::side_facing(kLot, 150)), "0 1") << "a corner faces it";
    EXPECT_EQ(said(plparcel::side_facing(kLot, 150.004, 0.01)), "0 1") << "0.008 gons apart";
    EXPECT_EQ(said(plparcel::side_facing(kLot, 150.006, 0.01)), "0") << "0.012 gons apart";
    EXPECT_EQ(said(plparcel::side_facing(kEl, 0)), "2 4") << "two sides face North";
    EXPECT_EQ(said(plparcel::side_facing({test::reversed(kLot.outer), {}}, 200)), "3") << "clockwise";
    EXPECT_EQ(said(plparcel::side_facing(kHoled, 0)), "2 1:3") << "and in a hole, out of the parcel";
    EXPECT_EQ(said(plparcel::side_facing(kLot, kInf)), kUnusable);
    EXPECT_EQ(said(plparcel::side_facing(kLot, 0, 101)), kUnusable);
    const Choice choice = plparcel::side_facing(kLot, 190);
    EXPECT_NEAR(choice.candidates[0].turned, 10.0, 1e-12);
    EXPECT_EQ(choice.candidates[0].bearing, 200.0);
    ASSERT_TRUE(choice.next);
    EXPECT_NEAR(choice.next->turned, 90.0, 1e-12);
}

TEST(WhichSide, NearestToAPoint)
{
    EXPECT_EQ(said(plparcel::side_near(kLot, {60, -500})), "0");
    EXPECT_EQ(said(plparcel::side_near(kLot, {100, 40})), "1") << "from inside";
    EXPECT_EQ(said(plparcel::side_near(kLot, {130, 90})), "1 2") << "beyond a corner";
    EXPECT_EQ(said(plparcel::side_near(kHoled, {5, 5.5})), "1:1");
    EXPECT_EQ(said(plparcel::side_near(kLot, {kInf, 0})), kUnusable);
    EXPECT_EQ(said(plparcel::side_near(kLot, {0, 1e91})), kUnusable);
    EXPECT_EQ(said(plparcel::side_near(kLot, {0, 1e90})), "0 1 2 3")
        << "on the limit, rounded to one distance";
    EXPECT_EQ(said(plparcel::side_near(kLot, {-1e90, 0})), "0 1 2 3");
    EXPECT_EQ(said(plparcel::side_near(kLot, {0, test::up(1e90)})), kUnusable);
    EXPECT_EQ(said(plparcel::side_near(kLot, {test::up(1e90), 0})), kUnusable);
    EXPECT_EQ(plparcel::side_near(kLot, {60, -500}).candidates[0].distance, 500.0);
    EXPECT_EQ(said(plparcel::vertex_near(kEl, {51, 51})), "3");
    EXPECT_EQ(said(plparcel::vertex_near(kLot, {60, 0})), "0 1");
    EXPECT_EQ(said(plparcel::vertex_near(kHoled, {5.5, 5.4})), "1:2");
    EXPECT_EQ(plparcel::vertex_near(kEl, {53, 54}).candidates[0].distance, 5.0);
    EXPECT_EQ(said(plparcel::vertex_near(kLot, {0, kInf})), kUnusable);
}

TEST(WhichSide, FarthestVertex)
{
    EXPECT_EQ(said(plparcel::vertex_farthest(kTriangle, 0)), "2");
    EXPECT_EQ(said(plparcel::vertex_farthest(kTriangle, 100)), "1");
    EXPECT_EQ(said(plparcel::vertex_farthest(kTriangle, 200)), "0 1") << "the southern side is level";
    EXPECT_EQ(said(plparcel::vertex_farthest(kLot, 50)), "2");
    EXPECT_EQ(said(plparcel::vertex_farthest(kTriangle, std::nan(""))), kUnusable);
    const Choice choice = plparcel::vertex_farthest(kTriangle, 0);
    ASSERT_TRUE(choice.next);
    EXPECT_EQ(choice.next->distance, 50.0);
    EXPECT_EQ(choice.next->place.index, 0U) << "of two as far behind, the westmost";
}

// --- along another geometry ---

std::string along(const Parcel& parcel, const std::vector<Segment>& segments, double distance,
                  double angle_gon = 25.0, double tied_within = 0.0)
{
    return said(side_along(parcel, OtherGeometry(segments), {distance, angle_gon}, tied_within));
}

TEST(WhichSide, AlongARoad)
{
    const Segment south = {{-500, -8}, {500, -8}};
    EXPECT_EQ(along(kLot, {south}, 10), "0");
    EXPECT_EQ(along(kLot, {{{500, -8}, {-500, -8}}}, 10), "0") << "whichever way it runs";
    EXPECT_EQ(along(kLot, {south}, 100), "0") << "the far side is near enough, but the road lies behind it";
    EXPECT_EQ(along(kLot, {south}, 8), "0") << "on the distance";
    EXPECT_EQ(along(kLot, {south}, test::down(8.0)), describe(ChoiceStatus::too_far));
    EXPECT_EQ(along(kLot, {{{60, -500}, {60, -1}}}, 10), describe(ChoiceStatus::not_alongside))
        << "it runs up to the side";
    EXPECT_EQ(along(kLot, {}, 10), describe(ChoiceStatus::nothing_given));
    EXPECT_EQ(along(kLot, {{{5, 5}, {5, 5}}}, 10), describe(ChoiceStatus::nothing_given)) << "without length";
    EXPECT_EQ(along(kLot, {{{0, kInf}, {5, 5}}}, 10), describe(ChoiceStatus::nothing_given));
    EXPECT_EQ(along(kLot, {south}, 0), kUnusable);
    EXPECT_EQ(along(kLot, {south}, -1), kUnusable);
    EXPECT_EQ(along(kLot, {south}, kInf), kUnusable);
    EXPECT_EQ(along(kLot, {south}, 10, 101), kUnusable);
    EXPECT_EQ(along(kLot, {south}, 10, -1), kUnusable);
    EXPECT_EQ(along(kLot, {south}, 10, std::nan("")), kUnusable);
    EXPECT_EQ(side_along(kLot, OtherGeometry({south}), {5}).nearest, 8.0) << "told on a miss";
    const Choice choice = side_along(kLot, OtherGeometry({south}), {10});
    EXPECT_EQ(choice.candidates[0].alongside, 120.0);
    EXPECT_EQ(choice.candidates[0].distance, 8.0);
    EXPECT_FALSE(choice.next) << "no other has any of its length along the road";
}

// What misses by how much, from wherever it passes. A direction of 3-4-5 leads from a corner to the segments beside it.
TEST(WhichSide, TheDistanceOfWhatDoesNotCount)
{
    const auto nearest = [](const std::vector<Segment>& segments, double distance) {
        const Choice choice = side_along(kLot, OtherGeometry(segments), {distance, 25});
        EXPECT_TRUE(choice.candidates.empty());
        EXPECT_EQ(choice.status,
                  choice.nearest > distance ? ChoiceStatus::too_far : ChoiceStatus::not_alongside);
        return choice.nearest;
    };
    const struct {
        const char* what;
        Segment segment;
        double wanted;
    } rows[] = {
        {"past the corner in the South-West, (-3, -4) the nearest", {{-11, 2}, {5, -10}}, 5.0},
        {"past the one in the South-East", {{131, 2}, {115, -10}}, 5.0},
        {"past the one in the North-East", {{131, 78}, {115, 90}}, 5.0},
        {"past the one in the North-West", {{-11, 78}, {5, 90}}, 5.0},
        {"on to the middle of a side", {{60, -20}, {64, -4}}, 4.0},
        {"along the line of a side, beyond its end", {{-30, 0}, {-6, 0}}, 6.0},
        {"across a side", {{112, -2}, {100, 6}}, 0.0},
        {"across a side, near its other end", {{8, -2}, {20, 6}}, 0.0},
        {"across two sides", {{60, -5}, {62, 100}}, 0.0},
        {"up to a side", {{60, -20}, {63, 0}}, 0.0},
        {"inside", {{60, 20}, {61, 30}}, 20.0},
    };
    for (const auto& row : rows)
        for (const bool turned : {false, true}) {
            const Segment one = turned ? Segment{row.segment.to, row.segment.from} : row.segment;
            EXPECT_NEAR(nearest({one}, 0.03125), row.wanted, 1e-13) << row.what << turned;
        }
}

// Nearest to the side's end; it runs along that side only, and counts by what is within 10 of its higher end.
TEST(WhichSide, TheDistanceFromTheEndOfASide)
{
    for (const Segment& past : {Segment{{-11, 2}, {5, -10}}, Segment{{131, 2}, {115, -10}}}) {
        const Choice choice = side_along(kLot, OtherGeometry({past}), {10, 41});
        EXPECT_EQ(said(choice), "0");
        EXPECT_NEAR(choice.candidates[0].distance, 5.0, 1e-13);
    }
}

TEST(WhichSide, TheDistanceOfTheNearestOfMany)
{
    // Round the lot, each leading to it from afar; one of them begins nearer than the others.
    for (std::size_t nearer = 0; nearer < 8; ++nearer) {
        std::vector<Segment> segments(8);
        for (std::size_t i = 0; i < segments.size(); ++i) {
            const double off = i == nearer ? 15.0 : 20.0;
            const double x = 15.0 + 30.0 * static_cast<double>(i % 4);
            segments[i] = i < 4 ? Segment{{x, -off}, {x, -500}} : Segment{{x, 80 + off}, {x, 500}};
        }
        const Choice choice = side_along(kLot, OtherGeometry(segments), {10});
        EXPECT_EQ(choice.status, ChoiceStatus::too_far);
        EXPECT_EQ(choice.nearest, 15.0) << nearer;
    }
}

TEST(WhichSide, AlongRoadsAtACorner)
{
    const Segment south = {{-500, -8}, {500, -8}};
    const Segment east = {{128, -500}, {128, 500}};
    const Choice choice = side_along(kLot, OtherGeometry({south, east}), {10});
    EXPECT_EQ(said(choice), "0") << "the greater length";
    ASSERT_TRUE(choice.next);
    EXPECT_EQ(choice.next->place.index, 1U);
    EXPECT_EQ(choice.next->alongside, 80.0);
    const Parcel square = {{{0, 0}, {120, 0}, {120, 120}, {0, 120}}, {}};
    EXPECT_EQ(along(square, {south, east}, 10), "0 1") << "as much along either";
    EXPECT_EQ(along(kLot, {south, east}, 10, 25, 40), "0 1") << "40 apart, and so much is a tie";
    EXPECT_EQ(along(kLot, {south, east}, 10, 25, 39.9), "0");
}

TEST(WhichSide, WhatCountsAsAlongside)
{
    // In a unit 4,096 times as large or as small it is as much, to the last bit; mirrored or run the other way it is as much.
    const auto counted = [](const Segment& segment, double distance, double angle_gon = 25.0) {
        const auto scaled = [&](double by, const Segment& s) {
            Parcel lot = kLot;
            for (PL_PNT2D_record& p : lot.outer)
                p = {p.x * by, p.y * by};
            const Segment small = {{s.from.x * by, s.from.y * by}, {s.to.x * by, s.to.y * by}};
            const Choice choice = side_along(lot, OtherGeometry({small}), {distance * by, angle_gon});
            return choice.candidates.empty() ? 0.0 : choice.candidates[0].alongside / by;
        };
        const double amount = scaled(1.0, segment);
        EXPECT_EQ(scaled(0x1p-12, segment), amount);
        EXPECT_EQ(scaled(0x1p12, segment), amount);
        EXPECT_NEAR(scaled(1.0, {segment.to, segment.from}), amount, 1e-12);
        EXPECT_NEAR(scaled(1.0, {{120 - segment.from.x, segment.from.y}, {120 - segment.to.x, segment.to.y}}),
                    amount, 1e-12);
        return amount;
    };
    // 3-4-5: at 8 off the line, 6 more on either side of the segment's ends are within 10.
    EXPECT_DOUBLE_EQ(counted({{40, -8}, {60, -8}}, 10), 32.0) << "round its ends";
    EXPECT_DOUBLE_EQ(counted({{-20, -8}, {3, -8}}, 10), 9.0) << "up to the side's end";
    EXPECT_DOUBLE_EQ(counted({{40, 0}, {60, 0}}, 10), 40.0) << "on the side";
    EXPECT_DOUBLE_EQ(counted({{40, 1}, {60, 1}}, 10), 20.0 + 2.0 * std::sqrt(99.0)) << "a tenth behind it";
    EXPECT_EQ(counted({{40, test::up(1.0)}, {60, test::up(1.0)}}, 10), 0.0);
    // A slope of 3 in 4 is 40.966 gons. It comes within 10 of the line at its lower end.
    EXPECT_EQ(counted({{40, -30}, {80, 0}}, 10, 40.96), 0.0) << "turned away too far";
    // The disc round (80, 0) to the right; to the left the rectangle, 10 across the slope, meets the line at
    // 80 - 10 / sin, sin = 3 / 5.
    EXPECT_NEAR(counted({{40, -30}, {80, 0}}, 10, 40.97), 10.0 + 10.0 / 0.6, 1e-12);
    // Only what lies before the side: from (80, 1) on it is behind. The disc stands there.
    const double behind = 80.0 + 4.0 / 3.0;
    EXPECT_NEAR(counted({{40, -30}, {120, 30}}, 10, 50), behind + std::sqrt(99.0) - (80.0 - 10.0 / 0.6),
                1e-12);
    // Straight away from the side: of 5 before it to 20 only the disc round the near end, 75 being 10 * 10 - 5 * 5.
    EXPECT_DOUBLE_EQ(counted({{60, -20}, {60, -5}}, 10, 100), 2.0 * std::sqrt(75.0));
    EXPECT_DOUBLE_EQ(counted({{60, 0.75}, {60, 0.5}}, 10, 100), 2.0 * std::sqrt(99.75)) << "just behind it";
    EXPECT_DOUBLE_EQ(counted({{60, -5}, {60, 0.5}}, 10, 100), 20.0) << "across it";
    EXPECT_NEAR(counted({{60, -20}, {60, -0.0625}}, 0.3125, 100), 2.0 * std::sqrt(0.09375), 1e-12)
        << "so near that";
    // 40-399-401: a lean of one in ten. 10 from its line is 10.0501 above it, where it has climbed from 4 by 6.0501.
    EXPECT_NEAR(counted({{100, -4}, {-299, -44}}, 10), (4010.0 / 399.0 - 4.0) * 9.975 + std::sqrt(84.0),
                1e-12);
    // The other way up, from 1 behind the side: across its line 10.0501 to either side of where it meets the side.
    EXPECT_NEAR(counted({{60, 1}, {56, -38.9}}, 10, 100), 8020.0 / 399.0, 1e-12);
    EXPECT_EQ(counted({{121, -20}, {140, -1}}, 10, 60), 0.0) << "a box that is near, round one that is not";
    const Segment one = {{10, -8}, {20, -8}};
    const Segment two = {{15, -8}, {30, -8}};
    const Choice both = side_along(kLot, OtherGeometry({one, two}), {10});
    EXPECT_DOUBLE_EQ(both.candidates[0].alongside, 32.0) << "counted once where they overlap";
}

// So far away that along and across the side (0, 0) to (30, 40) both ends have the same coordinates.
TEST(WhichSide, FromAShortSegmentFarAway)
{
    const Parcel parcel = {{{0, 0}, {30, 40}, {-10, 40}}, {}};
    const Choice choice =
        side_along(parcel, OtherGeometry(std::vector<Segment>{{{1e9, 8e9}, {test::up(1e9), 8e9}}}), {10});
    EXPECT_EQ(choice.status, ChoiceStatus::too_far);
    EXPECT_NEAR(choice.nearest, std::hypot(1e9 - 30.0, 8e9 - 40.0), 2e-6) << "from (30, 40)";
}

// So short, on a side so long, that along it both ends have the same coordinate: the disc round them counts.
TEST(WhichSide, AlongASegmentLessThanARounding)
{
    const Parcel parcel = {{{0, 0}, {4e9, 4e9}, {0, 8e9}}, {}};
    for (int k = 0; k < 50; ++k) {
        const double at = 1.6e9 + k;
        const Segment segment = {{at, at}, {test::up(at), test::up(at)}};
        const Choice choice = side_along(parcel, OtherGeometry(std::vector<Segment>{segment}), {10});
        ASSERT_EQ(choice.candidates.size(), 1U);
        EXPECT_NEAR(choice.candidates[0].alongside, 20.0, 2e-6) << k;
    }
}

TEST(WhichSide, AlongANeighbour)
{
    const Ring neighbour = {{120, 0}, {200, 0}, {200, 80}, {120.004, 80}};
    std::vector<Segment> segments;
    for (std::size_t i = 0; i < neighbour.size(); ++i)
        segments.push_back({neighbour[i], neighbour[(i + 1) % neighbour.size()]});
    EXPECT_EQ(along(kLot, segments, 0.05), "1");
    EXPECT_EQ(along(kHoled, {{{4.01, 4.5}, {4.01, 5.5}}}, 0.1), "1:0")
        << "a hole's side, from inside the hole";
}

// --- against sums in long double ---

using Real = long double;

struct Side {
    PL_PNT2D_record a;
    PL_PNT2D_record b;
};

Side side_of(const Parcel& parcel, const plparcel::BoundaryPlace& place)
{
    const Ring& ring = place.ring == 0 ? parcel.outer : parcel.holes[place.ring - 1];
    return {ring[place.index], ring[(place.index + 1) % ring.size()]};
}

bool same(const Choice& one, const Parcel& parcel, const Choice& other, const Parcel& other_parcel)
{
    bool same = one.status == other.status && one.candidates.size() == other.candidates.size() &&
                one.next.has_value() == other.next.has_value();
    for (const Candidate& candidate : one.candidates) {
        bool is_there = false;
        for (const Candidate& another : other.candidates) {
            const Side a = side_of(parcel, candidate.place);
            const Side b = side_of(other_parcel, another.place);
            is_there = is_there || (a.a.x == b.a.x && a.a.y == b.a.y && a.b.x == b.b.x && a.b.y == b.b.y);
        }
        same = same && is_there;
    }
    return same;
}

Real length_of(const Side& s)
{
    return std::hypot(static_cast<Real>(s.b.x) - s.a.x, static_cast<Real>(s.b.y) - s.a.y);
}

Real distance_to(const Side& s, Real x, Real y)
{
    const Real run_x = static_cast<Real>(s.b.x) - s.a.x;
    const Real run_y = static_cast<Real>(s.b.y) - s.a.y;
    Real part = ((x - s.a.x) * run_x + (y - s.a.y) * run_y) / (run_x * run_x + run_y * run_y);
    part = std::fmin(std::fmax(part, 0.0L), 1.0L);
    return std::hypot(x - s.a.x - part * run_x, y - s.a.y - part * run_y);
}

// Gons from the direction out of the parcel, which runs anticlockwise, to a bearing.
Real turned(const Side& s, Real bearing_gon)
{
    const Real gon = 200.0L / std::acos(-1.0L);
    const Real out = std::atan2(static_cast<Real>(s.b.y) - s.a.y, -(static_cast<Real>(s.b.x) - s.a.x)) * gon;
    const Real off = std::fabs(std::remainder(out - bearing_gon, 400.0L));
    return off;
}

// The value of each side that is found or ties is the least there is, and that of the next side comes next.
template <class Value>
void expect_least(const Choice& choice, const Parcel& parcel, const Value& value, Real within)
{
    ASSERT_FALSE(choice.candidates.empty());
    Real least = 1e300L;
    for (std::size_t i = 0; i < parcel.outer.size(); ++i)
        least = std::fmin(least, value(side_of(parcel, {0, i})));
    for (const Candidate& candidate : choice.candidates)
        EXPECT_LE(value(side_of(parcel, candidate.place)), least + within);
    std::size_t between = 0;
    for (std::size_t i = 0; choice.next && i < parcel.outer.size(); ++i) {
        const Real here = value(side_of(parcel, {0, i}));
        between +=
            here > least + within && here < value(side_of(parcel, choice.next->place)) - within ? 1 : 0;
    }
    EXPECT_EQ(between, 0U);
}

Parcel begun_elsewhere(std::mt19937_64& random, const Parcel& parcel)
{
    return {test::begun_at(parcel.outer, random() % parcel.outer.size()), {}};
}

TEST(WhichSide, IsTheOneThatLongDoublesFind)
{
    std::mt19937_64 random = test::random_source();
    std::uniform_real_distribution<double> around(-150.0, 150.0);
    std::uniform_real_distribution<double> gons(-400.0, 800.0);
    for (int round = 0; round < 300; ++round)
        for (const test::ParcelKind& kind : test::parcel_kinds()) {
            SCOPED_TRACE(kind.name);
            const Parcel parcel = {kind.make(random), {}};
            const Parcel other = begun_elsewhere(random, parcel);
            const PL_PNT2D_record p = {parcel.outer[0].x + around(random),
                                       parcel.outer[0].y + around(random)};
            const double bearing = gons(random);
            const Real within = kind.far ? 1e-8L : 1e-12L;
            expect_least(
                plparcel::longest_side(parcel), parcel, [](const Side& s) { return -length_of(s); }, within);
            expect_least(
                plparcel::shortest_side(parcel), parcel, [](const Side& s) { return length_of(s); }, within);
            expect_least(
                plparcel::side_near(parcel, p), parcel,
                [&](const Side& s) { return distance_to(s, p.x, p.y); }, within);
            const Choice facing = plparcel::side_facing(parcel, bearing);
            const Real gon_within = within * 100.0L / plparcel::shortest_side(parcel).candidates[0].length;
            expect_least(
                facing, parcel, [&](const Side& s) { return turned(s, bearing); }, gon_within);
            EXPECT_NEAR(facing.candidates[0].turned,
                        static_cast<double>(turned(side_of(parcel, facing.candidates[0].place), bearing)),
                        1e-10);
            expect_least(
                plparcel::vertex_near(parcel, p), parcel,
                [&](const Side& s) { return std::hypot(Real(p.x) - s.a.x, Real(p.y) - s.a.y); }, within);
            EXPECT_TRUE(same(plparcel::longest_side(parcel), parcel, plparcel::longest_side(other), other));
            EXPECT_TRUE(same(plparcel::side_near(parcel, p), parcel, plparcel::side_near(other, p), other));
            EXPECT_TRUE(same(facing, parcel, plparcel::side_facing(other, bearing), other));
            EXPECT_TRUE(same(plparcel::vertex_farthest(parcel, bearing), parcel,
                             plparcel::vertex_farthest(other, bearing), other));
        }
}

// How much of a side has a segment before it, from many places on it.
Real counted_by_places(const Side& s, const std::vector<Segment>& segments, const Alongside& alongside,
                       int places)
{
    const Real length = length_of(s);
    const Real dx = (static_cast<Real>(s.b.x) - s.a.x) / length;
    const Real dy = (static_cast<Real>(s.b.y) - s.a.y) / length;
    const auto out = [&](const PL_PNT2D_record& p) {
        return (static_cast<Real>(p.x) - s.a.x) * dy - (static_cast<Real>(p.y) - s.a.y) * dx;
    };
    int counted = 0;
    for (int i = 0; i < places; ++i) {
        const Real along = length * (i + 0.5L) / places;
        const Real x = s.a.x + along * dx;
        const Real y = s.a.y + along * dy;
        bool is_near = false;
        for (const Segment& segment : segments) {
            Side part = {segment.from, segment.to};
            const Real sine = std::fabs(out(part.b) - out(part.a)) / length_of(part);
            const Real behind = -0.1L * alongside.distance;
            if (sine > std::sin(alongside.angle_gon * std::acos(-1.0L) / 200.0L) ||
                (out(part.a) < behind && out(part.b) < behind))
                continue;
            const Real at = (behind - out(part.a)) / (out(part.b) - out(part.a));
            const PL_PNT2D_record cut = {static_cast<double>(part.a.x + at * (Real(part.b.x) - part.a.x)),
                                         static_cast<double>(part.a.y + at * (Real(part.b.y) - part.a.y))};
            if (out(part.a) < behind)
                part.a = cut;
            else if (out(part.b) < behind)
                part.b = cut;
            is_near = is_near || distance_to(part, x, y) <= alongside.distance;
        }
        counted += is_near ? 1 : 0;
    }
    return length * counted / places;
}

TEST(WhichSide, LengthsAlongsideAreThoseOfManyPlaces)
{
    constexpr int kPlaces = 200;
    std::mt19937_64 random = test::random_source();
    std::uniform_real_distribution<double> around(-120.0, 120.0);
    std::uniform_real_distribution<double> distance(1.0, 40.0);
    std::uniform_real_distribution<double> angle(0.0, 100.0);
    int found = 0;
    for (int round = 0; round < 400; ++round) {
        const Parcel parcel = {test::parcel_ring(random, 100.0), {}};
        std::vector<Segment> segments;
        PL_PNT2D_record at = {around(random), around(random)};
        for (int i = 0; i < 12; ++i) {
            const PL_PNT2D_record next = {at.x + 0.4 * around(random), at.y + 0.4 * around(random)};
            segments.push_back({at, next});
            at = next;
        }
        const Alongside alongside = {distance(random), angle(random)};
        const Choice choice = side_along(parcel, OtherGeometry(segments), alongside);
        Real most = 0.0L;
        for (std::size_t i = 0; i < parcel.outer.size(); ++i)
            most = std::fmax(most, counted_by_places(side_of(parcel, {0, i}), segments, alongside, kPlaces));
        if (choice.candidates.empty()) {
            EXPECT_LE(most, 0.0L);
            continue;
        }
        ++found;
        const Candidate& best = choice.candidates[0];
        const Side side = side_of(parcel, best.place);
        // Each interval may win or lose a place at either end.
        const Real step = length_of(side) / kPlaces;
        EXPECT_NEAR(best.alongside,
                    static_cast<double>(counted_by_places(side, segments, alongside, kPlaces)),
                    static_cast<double>(13.0L * step));
        EXPECT_GE(best.alongside + 13.0 * 300.0 / kPlaces, static_cast<double>(most));
        const Parcel other = begun_elsewhere(random, parcel);
        EXPECT_TRUE(same(choice, parcel, side_along(other, OtherGeometry(segments), alongside), other));
    }
    EXPECT_GT(found, 150);
}

TEST(WhichSide, ManySegmentsAndVertices)
{
    std::mt19937_64 random = test::random_source();
    const Parcel star = {test::star_ring(random, 4000, 1000.0), {}};
    std::vector<Segment> segments;
    segments.reserve(5000);
    for (int i = 0; i < 4000; ++i)
        segments.push_back({{i * 0.5 - 1000.0, -1010.0}, {i * 0.5 - 999.5, -1010.0}});
    EXPECT_NE(side_along(star, OtherGeometry(segments), {20, 100}).status, ChoiceStatus::too_much_near);
    // All are near all: refused after the stated number of pairs.
    EXPECT_EQ(side_along(star, OtherGeometry(segments), {1e6, 100}).status, ChoiceStatus::too_much_near);
    segments.pop_back();
    EXPECT_EQ(side_along(star, OtherGeometry(segments), {1e6, 0}).status, ChoiceStatus::too_much_near)
        << "none runs along a side";
    // Pieces of a road, each on its own within 10 of 32 of the side.
    segments.clear();
    for (int i = 0; i < 5000; ++i)
        segments.push_back({{i * 0.02 - 20.0, -8.0}, {i * 0.02 - 19.98, -8.0}});
    EXPECT_NEAR(side_along(kLot, OtherGeometry(segments), {10}).candidates[0].alongside, 86.0, 1e-9)
        << "up to 80, and 6 more round the end";
}

}  // namespace
