#include "lines/level_cut.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "support/bits.h"

namespace {

using plparcel::Chord;
using plparcel::LevelCut;
using plparcel::LevelRequest;
using plparcel::LocalRing;
using plparcel::MeasuredRing;
using plparcel::Ring;
using plparcel::WidePoint;

// Scaled so that local coordinates are those below: 4096 across.
const Ring kSquare = {{0, 0}, {4096, 0}, {4096, 4096}, {0, 4096}};
const Ring kTriangle = {{0, 0}, {4096, 0}, {0, 4096}};
// The base side 0 along the bottom, a notch of 1024 to 3072 from above, down to 1024.
const Ring kU = {{0, 0},       {4096, 0},    {4096, 4096}, {3072, 4096},
                 {3072, 1024}, {1024, 1024}, {1024, 2048}, {0, 2048}};

LevelRequest upwards(const plparcel::Wide& request, double parcel)
{
    LevelRequest wanted = {};
    wanted.up = {0.0, 1.0};
    wanted.zero = {0.0, 0.0};
    wanted.base = 0;
    wanted.from_base = true;
    wanted.request = request;
    wanted.rest = plparcel::Wide(parcel) - request;
    wanted.turn = 1.0;
    return wanted;
}

double level_of(const Chord& line)
{
    EXPECT_LE(std::fabs((line.from.y - line.to.y).value()), 1e-25);
    return line.from.y.value();
}

TEST(LevelCut, RootOfATrapezium)
{
    const double parcel = 0x1p23;  // of the triangle; the area above height h is (4096 - h)^2 / 2
    const struct {
        const char* what;
        double below;
        double level;
    } rows[] = {
        {"half of the triangle", 0x1p22, 4096.0 * (1.0 - std::sqrt(0.5))},
        {"three quarters: half the height", 0x1.8p22, 2048.0},
        {"next to nothing", 0x1p-40, 0x1p-52},
        {"all but next to nothing: the tip", parcel - 0x1p-29, 4096.0 - 0x1p-14},
    };
    for (const auto& row : rows) {
        const std::vector<Chord> lines =
            LevelCut(LocalRing(MeasuredRing(kTriangle)), upwards(row.below, parcel)).all_lines();
        ASSERT_EQ(lines.size(), 1U) << row.what;
        EXPECT_NEAR(level_of(lines[0]), row.level, 4e-16 * row.level) << row.what;
        EXPECT_EQ(lines[0].from_side, 1U) << row.what;
        EXPECT_EQ(lines[0].to_side, 2U) << row.what;
        EXPECT_FALSE(lines[0].request_after_from) << row.what;
    }
}

TEST(LevelCut, NothingAndEverythingEndInTheTip)
{
    // Amounts so small that 106 bits of the parcel do not tell them from nothing.
    const double parcel = 0x1p23;
    const std::vector<Chord> upper =
        LevelCut(LocalRing(MeasuredRing(kTriangle)), upwards(parcel, parcel)).all_lines();
    ASSERT_EQ(upper.size(), 1U);
    EXPECT_BITS(level_of(upper[0]), 4096.0);

    const Ring standing = {{0, 0}, {2048, 4096}, {-2048, 4096}};
    LevelRequest wanted = upwards(parcel, parcel);
    wanted.from_base = false;
    const std::vector<Chord> lower = LevelCut(LocalRing(MeasuredRing(standing)), wanted).all_lines();
    ASSERT_EQ(lower.size(), 1U);
    EXPECT_BITS(level_of(lower[0]), 0.0);
}

TEST(LevelCut, EitherPieceEitherWayRound)
{
    const double parcel = 0x1p24;
    LevelRequest wanted = upwards(0x1p22, parcel);
    EXPECT_BITS(level_of(LevelCut(LocalRing(MeasuredRing(kSquare)), wanted).all_lines().at(0)), 1024.0);
    wanted.opposite = true;
    const Chord beyond = LevelCut(LocalRing(MeasuredRing(kSquare)), wanted).all_lines().at(0);
    EXPECT_BITS(level_of(beyond), 3072.0);
    EXPECT_TRUE(beyond.request_after_from);

    // Clockwise: the bottom is side 3, and the walk above a line starts on its left.
    const Ring clockwise = {{0, 0}, {0, 4096}, {4096, 4096}, {4096, 0}};
    wanted = upwards(0x1p22, parcel);
    wanted.base = 3;
    wanted.turn = -1.0;
    const Chord line = LevelCut(LocalRing(MeasuredRing(clockwise)), wanted).all_lines().at(0);
    EXPECT_BITS(level_of(line), 1024.0);
    EXPECT_EQ(line.from_side, 0U);
    EXPECT_EQ(line.to_side, 2U);

    // Not with the base side: the piece above.
    wanted = upwards(0x1p22, parcel);
    wanted.from_base = false;
    EXPECT_BITS(level_of(LevelCut(LocalRing(MeasuredRing(kSquare)), wanted).all_lines().at(0)), 3072.0);
}

TEST(LevelCut, AllLinesBestFirst)
{
    // The strip holds 4 squares of 1024, the left arm 1, the right arm 3.
    const double square = 0x1p20;
    const double parcel = 8.0 * square;
    const LocalRing local{MeasuredRing(kU)};
    const auto levels = [&](const plparcel::Wide& request) {
        std::vector<double> found;
        for (const Chord& line : LevelCut(local, upwards(request, parcel)).all_lines())
            found.push_back(level_of(line));
        return found;
    };
    EXPECT_EQ(levels(2.0 * square), (std::vector<double>{512.0}));
    // The whole less half of the left arm, or less the top of the right one, where the line meets it alone:
    // that one, though it is farther.
    EXPECT_EQ(levels(7.5 * square), (std::vector<double>{3584.0, 1536.0}));
    // Half of the right arm, beside the left arm, and the left arm is not that large.
    EXPECT_EQ(levels(5.5 * square), (std::vector<double>{1536.0}));
    // The whole less all of the left arm: between its lines the floor's does not count.
    EXPECT_EQ(levels(7.0 * square), (std::vector<double>{3072.0, 1024.0}));
    // A rounding more or less of it changes nothing.
    EXPECT_EQ(levels(plparcel::Wide(7.0 * square, 1e-22)), (std::vector<double>{3072.0, 1024.0}));
    EXPECT_EQ(levels(plparcel::Wide(7.0 * square, -1e-22)), (std::vector<double>{3072.0, 1024.0}));
    // Below the gap's floor the line cuts across: no more than 4. Above it, an arm off is 5 at least.
    EXPECT_EQ(levels(4.5 * square), (std::vector<double>{}));
}

TEST(LevelCut, AtAFloorOnlyTheLinesInTheArmCount)
{
    // The same seen downwards, where the floor is the upper end of the arms.
    const double square = 0x1p20;
    LevelRequest wanted = upwards(7.0 * square, 8.0 * square);
    wanted.up = {0.0, -1.0};
    wanted.from_base = false;
    const LocalRing local{MeasuredRing(kU)};
    const std::vector<Chord> lines = LevelCut(local, wanted).all_lines();
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_BITS(level_of(lines[0]), 3072.0);
    EXPECT_BITS(level_of(lines[1]), 1024.0);
}

TEST(LevelCut, ThatGoWithTheBaseSideBeforeThoseBehindIt)
{
    // Seen from the gap's floor, side 4, downwards: the arms are behind it.
    const double square = 0x1p20;
    LevelRequest wanted = upwards(6.5 * square, 8.0 * square);
    wanted.up = {0.0, -1.0};
    wanted.zero = {3072.0, 1024.0};
    wanted.base = 4;
    const LocalRing local{MeasuredRing(kU)};
    const LevelCut cut(local, wanted);
    EXPECT_BITS(cut.area_below().value(), 4.0 * square);
    const std::vector<Chord> lines = cut.all_lines();
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_BITS(level_of(lines[0]), 384.0);   // off the strip
    EXPECT_BITS(level_of(lines[1]), 2560.0);  // half of the right arm off
}

TEST(LevelCut, PerpendicularsThatEndOnTheBaseSideComeFirst)
{
    // Levels to the right, the piece on the right; the base is the right arm's top, side 2, run leftwards.
    const double square = 0x1p20;
    LevelRequest wanted = upwards(3.0 * square, 8.0 * square);
    wanted.up = {1.0, 0.0};
    wanted.from_base = false;
    wanted.base = 2;
    const LocalRing local{MeasuredRing(kU)};
    const std::vector<Chord> lines = LevelCut(local, wanted).all_lines();
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_BITS(lines[0].from.x.value(), 4096.0 - 768.0);
    EXPECT_EQ(lines[0].from_side, 0U);
    EXPECT_EQ(lines[0].to_side, 2U);
}

TEST(LevelCut, AreaBelow)
{
    const LocalRing local{MeasuredRing(kU)};
    const double square = 0x1p20;
    const struct {
        double zero;
        double area;
    } rows[] = {{-1.0, 0.0},
                {0.0, 0.0},
                {512.0, 2.0},
                {1023.9375, 4.0 - 0x1p-12},
                {1024.0, 4.0},
                {1024.0625, 4.0 + 0x1p-13},
                {1536.0, 5.0},
                {2047.9375, 6.0 - 0x1p-13},
                {2048.0625, 6.0 + 0x1p-14},
                {3072.0, 7.0},
                {5000.0, 8.0}};
    for (const auto& row : rows) {
        LevelRequest wanted = upwards(square, 8.0 * square);
        wanted.zero = {-512.0, row.zero};
        EXPECT_BITS(LevelCut(local, wanted).area_below().value(), row.area * square);
    }
}

}  // namespace
