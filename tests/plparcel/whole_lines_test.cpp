// Parcels with holes, and whole lines that cut them into any number of pieces.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <random>
#include <utility>
#include <vector>

#include "plparcel/division.h"
#include "support/bits.h"
#include "support/parcel_kinds.h"
#include "support/rings.h"
#include "verdict/whole_verdict.h"

namespace {

using plparcel::Amount;
using plparcel::area;
using plparcel::at_bearing;
using plparcel::BoundaryStatus;
using plparcel::check_parcel;
using plparcel::Cut;
using plparcel::Division;
using plparcel::Line;
using plparcel::Measured;
using plparcel::parallel_to;
using plparcel::Parcel;
using plparcel::perpendicular_to;
using plparcel::Piece;
using plparcel::Pieces;
using plparcel::Request;
using plparcel::Ring;
using plparcel::share;
using plparcel::Status;
using plparcel::width;

constexpr Measured kHere = Measured::from_reference;
constexpr Measured kThere = Measured::opposite;

// Two arms on a strip: 30 and 40 wide, up to 60; the floor between them at 20.
const Parcel kU = {{{0, 0}, {100, 0}, {100, 60}, {60, 60}, {60, 20}, {30, 20}, {30, 60}, {0, 60}}, {}};
// A square with a square hole in the middle, and one on its tip beside it.
const Parcel kHoles = {{{0, 0}, {100, 0}, {100, 100}, {0, 100}},
                       {{{40, 40}, {60, 40}, {60, 60}, {40, 60}}, {{20, 70}, {30, 80}, {20, 90}, {10, 80}}}};
const Parcel kTwoTips = {{{0, 0}, {20, 0}, {30, 10}, {20, 30}, {0, 30}, {-10, 20}},
                         {{{5, 1}, {6, 1}, {6, 2}, {5, 2}}}};
// A T, a few degrees off the axes, with a square hole that is turned by as much again. Vertices of its bar lie on one straight
// line with each other, but for rounding.
const Parcel kTee = {{{21.509318670344541, 2.723966366175262},
                      {65.974814828451329, 8.3551310648959607},
                      {56.625904097609194, 82.177151273110582},
                      {89.858707855863187, 86.385794098045622},
                      {86.643844696874325, 111.77139247653632},
                      {-12.563773889830996, 99.207618586705323},
                      {-9.3489107308421335, 73.822020208214624},
                      {12.160407939502408, 76.545986574389886}},
                     {{{50.782511425367602, 67.99401865744322},
                       {53.776399350241959, 88.787546868333976},
                       {32.982871139351211, 91.781434793208334},
                       {29.988983214476846, 70.987906582317578}}}};

Division cut(const Parcel& parcel, const Line& line, std::vector<Amount> amounts, Measured measured = kHere,
             Pieces pieces = Pieces::any)
{
    Request request;
    request.line = line;
    request.amounts = std::move(amounts);
    request.measured = measured;
    request.pieces = pieces;
    return divide(parcel, request);
}

struct Row {
    const char* what;
    const Parcel& parcel;
    Line line;
    std::vector<Amount> amounts;
    Measured measured;
    std::vector<std::vector<PL_LINE_2D_record>> lines;  // the segments of each
    std::vector<std::vector<double>> pieces;            // the areas of each amount's
};

const Row kRows[] = {
    {"across both arms",
     kU,
     parallel_to(0),
     {area(2700)},
     kHere,
     {{{{0, 30}, {30, 30}}, {{60, 30}, {100, 30}}}},
     {{2700}, {900, 1200}}},
    {"at the floor the line ends where the boundary leaves it",
     kU,
     parallel_to(0),
     {area(2000)},
     kHere,
     {{{{0, 20}, {30, 20}}, {{60, 20}, {100, 20}}}},
     {{2000}, {1200, 1600}}},
    {"from above: two pieces first, then one",
     kU,
     parallel_to(0),
     {width(10), width(40)},
     kThere,
     {{{{0, 50}, {30, 50}}, {{60, 50}, {100, 50}}}, {{{0, 10}, {100, 10}}}},
     {{400, 300}, {3100}, {1000}}},
    {"the side in an arm's top: its whole level",
     kU,
     parallel_to(2),
     {area(700)},
     kHere,
     {{{{100, 50}, {60, 50}}, {{30, 50}, {0, 50}}}},
     {{400, 300}, {4100}}},
    {"the floor is the side: what lies beyond it comes first",
     kU,
     parallel_to(4),
     {area(350)},
     kHere,
     {{{{100, 55}, {60, 55}}, {{30, 55}, {0, 55}}}},
     {{200, 150}, {4450}}},
    {"upright, in line with an arm's wall",
     kU,
     perpendicular_to(0),
     {share(1, 2)},
     kHere,
     {{{{60, 0}, {60, 20}}}},
     {{2400}, {2400}}},
    {"through a hole",
     kHoles,
     parallel_to(0),
     {share(1, 2)},
     kHere,
     {{{{0, 48.75}, {40, 48.75}}, {{60, 48.75}, {100, 48.75}}}},
     {{4700}, {4700}}},
    {"along a hole's side",
     kHoles,
     parallel_to(0),
     {width(40)},
     kHere,
     {{{{0, 40}, {40, 40}}, {{60, 40}, {100, 40}}}},
     {{4000}, {5400}}},
    {"along its other side, and above all of it",
     kHoles,
     parallel_to(0),
     {width(60), width(35)},
     kHere,
     {{{{0, 60}, {40, 60}}, {{60, 60}, {100, 60}}}, {{{0, 95}, {100, 95}}}},
     {{5600}, {3300}, {500}}},
    {"across both holes, upright",
     kHoles,
     at_bearing(0),
     {width(79), width(16)},
     kThere,
     {{{{79, 0}, {79, 100}}}, {{{95, 0}, {95, 100}}}},
     {{7300}, {1600}, {500}}},
    {"along a hole's own side",
     kHoles,
     parallel_to(0, 1),
     {width(10)},
     kHere,
     {{{{0, 30}, {100, 30}}}},
     {{6400}, {3000}}},
    {"through a tip on the right, one on the left, and across the side above that",
     kTwoTips,
     parallel_to(0),
     {width(10), width(10), width(5)},
     kHere,
     {{{{-5, 10}, {30, 10}}}, {{{-10, 20}, {25, 20}}}, {{{-5, 25}, {22.5, 25}}}},
     {{274}, {350}, {156.25}, {118.75}}},
};

TEST(WholeLines, Rows)
{
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.what);
        const Division division = cut(row.parcel, row.line, row.amounts, row.measured);
        ASSERT_EQ(division.status, Status::divided) << describe(division);
        ASSERT_EQ(division.lines.size(), row.lines.size());
        for (std::size_t i = 0; i < row.lines.size(); ++i) {
            const std::vector<plparcel::Segment>& segments = division.lines[i].segments;
            ASSERT_EQ(segments.size(), row.lines[i].size());
            for (std::size_t k = 0; k < segments.size(); ++k) {
                EXPECT_NEAR(segments[k].from.x, row.lines[i][k].start.x, 1e-12);
                EXPECT_NEAR(segments[k].from.y, row.lines[i][k].start.y, 1e-12);
                EXPECT_NEAR(segments[k].to.x, row.lines[i][k].end.x, 1e-12);
                EXPECT_NEAR(segments[k].to.y, row.lines[i][k].end.y, 1e-12);
            }
            EXPECT_EQ(division.lines[i].from.x, segments.front().from.x);
            EXPECT_EQ(division.lines[i].to.x, segments.back().to.x);
        }
        std::vector<std::vector<double>> pieces(row.pieces.size());
        for (const Piece& piece : division.pieces)
            pieces.at(piece.amount).push_back(piece.area);
        ASSERT_EQ(division.held.size(), row.pieces.size());
        for (const Piece& piece : division.pieces) {
            EXPECT_EQ(piece.asked, division.held[piece.amount].asked);
            EXPECT_EQ(piece.residual, division.held[piece.amount].residual);
        }
        for (std::size_t i = 0; i < pieces.size(); ++i) {
            ASSERT_EQ(pieces[i].size(), row.pieces[i].size()) << "amount " << i;
            EXPECT_EQ(division.held[i].pieces, pieces[i].size());
            double sum = 0.0;
            for (std::size_t k = 0; k < pieces[i].size(); ++k) {
                EXPECT_NEAR(pieces[i][k], row.pieces[i][k], 1e-10) << "amount " << i;
                sum += pieces[i][k];
            }
            EXPECT_NEAR(division.held[i].area, sum, 1e-10);
            EXPECT_NEAR(division.held[i].residual, sum - division.held[i].asked, 1e-10);
        }
    }
}

// The eight ways in which a parcel with its sides along the axes can lie: perhaps mirrored, and turned to the right by
// quarters.
struct Lying {
    bool mirrored;
    int quarters;

    PL_PNT2D_record operator()(PL_PNT2D_record p) const
    {
        if (mirrored)
            p.x = -p.x;
        for (int i = 0; i < quarters; ++i)
            p = {p.y, -p.x};
        return p;
    }

    Ring operator()(const Ring& ring) const
    {
        Ring lying;
        for (const PL_PNT2D_record& p : ring)
            lying.push_back((*this)(p));
        return lying;
    }
};

// Where a whole line to the East with so much below it begins and ends, and what its pieces hold, however the parcel lies
// and wherever its rings begin.
void expect_level_line(const Parcel& parcel, double below, const std::vector<PL_LINE_2D_record>& segments,
                       const std::vector<double>& pieces)
{
    for (const bool mirrored : {false, true}) {
        for (int quarters = 0; quarters < 4; ++quarters) {
            const Lying lying = {mirrored, quarters};
            const double east = (mirrored ? 300.0 : 100.0) + 100.0 * quarters;
            for (std::size_t first = 0; first < parcel.outer.size(); ++first) {
                SCOPED_TRACE(testing::Message()
                             << (mirrored ? "mirrored, " : "") << quarters << " " << first);
                Parcel told = {lying(test::begun_at(parcel.outer, first)), {}};
                for (const Ring& hole : parcel.holes)
                    told.holes.push_back(lying(test::begun_at(hole, first % hole.size())));
                // Below is on the right of a line to the East, and on the left in the mirror.
                const Division division =
                    cut(told, at_bearing(east), {area(below)}, mirrored ? kThere : kHere);
                ASSERT_EQ(division.status, Status::divided) << describe(division);
                ASSERT_EQ(division.lines[0].segments.size(), segments.size());
                for (std::size_t i = 0; i < segments.size(); ++i) {
                    const PL_PNT2D_record from = lying(segments[i].start);
                    const PL_PNT2D_record to = lying(segments[i].end);
                    EXPECT_NEAR(division.lines[0].segments[i].from.x, from.x, 1e-12);
                    EXPECT_NEAR(division.lines[0].segments[i].from.y, from.y, 1e-12);
                    EXPECT_NEAR(division.lines[0].segments[i].to.x, to.x, 1e-12);
                    EXPECT_NEAR(division.lines[0].segments[i].to.y, to.y, 1e-12);
                }
                std::vector<double> areas;
                for (const Piece& piece : division.pieces)
                    areas.push_back(std::round(piece.area * 1e6) / 1e6);
                std::sort(areas.begin(), areas.end());
                EXPECT_EQ(areas, pieces);
            }
        }
    }
}

// Level sides on the line, above which or below which the parcel goes on, and tips.
TEST(WholeLines, AlongSidesAndTipsHoweverTheParcelLies)
{
    // The floor of a U, which its arms rise from.
    expect_level_line(kU, 2000, {{{0, 20}, {30, 20}}, {{60, 20}, {100, 20}}}, {1200, 1600, 2000});
    // The side of a hole that lies above the line, and the one of a hole that lies below it.
    expect_level_line(kHoles, 4000, {{{0, 40}, {40, 40}}, {{60, 40}, {100, 40}}}, {4000, 5400});
    expect_level_line(kHoles, 5600, {{{0, 60}, {40, 60}}, {{60, 60}, {100, 60}}}, {3800, 5600});
    // The tip of a notch: one segment ends there, and the next begins.
    const Parcel notch = {{{0, 0}, {100, 0}, {100, 60}, {60, 60}, {50, 20}, {40, 60}, {0, 60}}, {}};
    expect_level_line(notch, 2000, {{{0, 20}, {50, 20}}, {{50, 20}, {100, 20}}}, {1800, 1800, 2000});
    // A leg, and beside it a tip that hangs down to the line.
    const Parcel tip = {
        {{0, 0}, {20, 0}, {20, 40}, {60, 40}, {70, 20}, {80, 40}, {100, 40}, {100, 60}, {0, 60}}, {}};
    expect_level_line(tip, 400, {{{0, 20}, {20, 20}}}, {400, 2600});
    // Steps: the boundary runs along the line and goes on to its other side.
    const Parcel steps = {{{0, 0}, {50, 0}, {50, 20}, {100, 20}, {100, 60}, {30, 60}, {30, 20}, {0, 20}}, {}};
    expect_level_line(steps, 1000, {{{30, 20}, {50, 20}}}, {1000, 2800});
}

struct RefusalRow {
    const char* what;
    const Parcel& parcel;
    Line line;
    std::vector<Amount> amounts;
    Status status;
    std::size_t at_amount;
};

TEST(WholeLines, Refusals)
{
    const Parcel repeated = {{{0, 0}, {100, 0}, {100, 0}, {100, 50}, {0, 50}}, {}};
    const Parcel bow_tie = {{{0, 0}, {100, 50}, {100, 0}, {0, 50}}, {}};
    const RefusalRow rows[] = {
        {"a width beyond all of it", kU, parallel_to(0), {width(70)}, Status::amount_too_large, 0},
        {"as high as it is", kU, parallel_to(0), {width(60)}, Status::amount_too_large, 0},
        {"two that are together", kU, parallel_to(0), {width(30), width(30)}, Status::amount_too_large, 1},
        {"300 is left after a width of 56.7",
         kU,
         parallel_to(0),
         {width(56.7), area(300)},
         Status::amount_too_large,
         1},
        {"a width that the numbers cannot tell from none",
         kU,
         parallel_to(0),
         {area(1000.0 / 3), width(1e-60)},
         Status::amount_too_small,
         1},
        {"no bearing", kU, at_bearing(std::nan("")), {share(1, 2)}, Status::no_direction, 0},
        {"a side without length", repeated, parallel_to(1), {share(1, 2)}, Status::side_without_length, 0},
        {"no parcel", bow_tie, parallel_to(0), {share(1, 2)}, Status::unusable_boundary, 0},
    };
    for (const RefusalRow& row : rows) {
        const Division division = cut(row.parcel, row.line, row.amounts);
        EXPECT_EQ(division.status, row.status) << row.what << ": " << describe(division);
        EXPECT_EQ(division.at_amount, row.at_amount) << row.what;
        EXPECT_TRUE(division.lines.empty()) << row.what;
    }
    Request request;
    request.amounts = {share(1, 2)};
    request.pieces = static_cast<Pieces>(2);
    EXPECT_EQ(divide(kU, request).status, Status::unknown_request);
    EXPECT_EQ(divide(kU.outer, request).status, Status::unknown_request);
    request.pieces = Pieces::any;
    request.alternative = 1;
    EXPECT_EQ(divide(kU, request).status, Status::no_further_line);
}

// Beyond 2^52 doubles are whole numbers, and areas of rings are multiples of a half: other amounts cannot be held.
constexpr double kWholeNumbers = 0x1p52;

Ring moved(Ring ring, double east, double north, double step)
{
    for (PL_PNT2D_record& p : ring)
        p = {east + step * p.x, north + step * p.y};
    return ring;
}

TEST(WholeLines, WhereDoublesAreWholeNumbers)
{
    const Parcel needle = {moved({{1, 1}, {4, 1}, {10, 2}}, kWholeNumbers, kWholeNumbers, 1.0), {}};
    const Parcel small = {moved({{0, 0}, {3, 1}, {0, 3}}, kWholeNumbers, kWholeNumbers, 1.0), {}};
    const Parcel flat = {moved({{1, 1}, {10, 1}, {3, 0}}, kWholeNumbers, kWholeNumbers, 1.0), {}};
    const Parcel wedge = {moved({{13, 1}, {13, 3}, {1, 2}}, kWholeNumbers, kWholeNumbers, 1.0), {}};
    const Parcel low = {moved({{9, 1}, {13, 1}, {5, 0}, {1, 0}, {0, 0}}, kWholeNumbers, kWholeNumbers, 1.0),
                        {}};
    const Parcel wide = {moved({{0, 0}, {9, 4}, {5, 5}}, kWholeNumbers, kWholeNumbers, 1.0), {}};
    const RefusalRow rows[] = {
        {"3.75 of 4.5", small, at_bearing(250), {share(5, 6)}, Status::not_reached, 0},
        {"1.125 of 4.5", flat, at_bearing(250), {share(1, 4)}, Status::not_reached, 0},
        {"10.28 of 12, in a wedge", wedge, perpendicular_to(2), {share(6, 7)}, Status::not_reached, 0},
        {"2.7 and 0.9 of 4.5", low, perpendicular_to(0), {share(3, 5), share(1, 5)}, Status::not_reached, 0},
        {"4.6875 of 12.5", wide, perpendicular_to(2), {share(3, 8)}, Status::not_reached, 0},
        {"0.9 of 1.5", needle, at_bearing(200), {share(3, 5)}, Status::not_reached, 0},
    };
    for (const RefusalRow& row : rows) {
        const Division division = cut(row.parcel, row.line, row.amounts);
        EXPECT_EQ(division.status, row.status) << row.what << ": " << describe(division);
        EXPECT_TRUE(division.lines.empty()) << row.what;
    }
    // Half of 4. No whole line lies well there, a single segment does.
    const Parcel four = {moved({{0, 1}, {3, 0}, {2, 3}}, kWholeNumbers, kWholeNumbers, 1.0), {}};
    const Division half = cut(four, parallel_to(1), {share(1, 2)});
    ASSERT_EQ(half.status, Status::divided) << describe(half);
    ASSERT_EQ(half.pieces.size(), 2U);
    EXPECT_EQ(half.pieces[0].area, 2.0);
    EXPECT_EQ(half.pieces[1].area, 2.0);
    EXPECT_GT(half.trials, 1U);
}

// Within four spacings of two corners a line is moved to them if the amount allows it; here it would leave nothing.
TEST(WholeLines, WhereMovingToTheCornersWouldMissTheAmount)
{
    const Parcel parcel = {
        moved({{0, 0}, {100, 0}, {100, 100}, {0, 100}}, kWholeNumbers, kWholeNumbers, 1.0),
        {moved({{40, 40}, {60, 40}, {60, 60}, {40, 60}}, kWholeNumbers, kWholeNumbers, 1.0)}};
    const Division division = cut(parcel, parallel_to(0), {area(300)}, kHere, Pieces::two);
    ASSERT_EQ(division.status, Status::divided) << describe(division);
    EXPECT_EQ(division.lines[0].from.y, kWholeNumbers + 3);
    EXPECT_EQ(division.lines[0].to.y, kWholeNumbers + 3);
    EXPECT_EQ(division.pieces[0].area, 300);
}

// 64 by 65 less a hole of 64, which leaves 4096. Areas are multiples of a half there, so that an amount of a quarter more
// than a whole number is missed by a quarter at the least: half of 2^-13 of the parcel, which the line may use up before
// it is rounded.
TEST(WholeLines, AMissAsLargeAsTheToleranceIsGranted)
{
    const Parcel parcel = {
        moved({{0, 0}, {64, 0}, {64, 65}, {0, 65}}, kWholeNumbers, kWholeNumbers, 1.0),
        {moved({{28, 40}, {36, 40}, {36, 48}, {28, 48}}, kWholeNumbers, kWholeNumbers, 1.0)}};
    Request request;
    request.line = parallel_to(0);
    request.rounding.decimals = 0;
    const struct {
        double tolerance;
        Status status;
    } rows[] = {{0x1p-13, Status::divided}, {std::nextafter(0x1p-13, 0.0), Status::not_reached}};
    for (const auto& row : rows) {
        request.rounding.tolerance = row.tolerance;
        for (const double asked : {640.25, 4096 - 640.25}) {
            request.amounts = {area(asked)};
            EXPECT_EQ(divide(parcel, request).status, row.status) << row.tolerance << " " << asked;
        }
    }
}

// The tip at the top is so flat and so small that both ends of its line come out as the same place.
TEST(WholeLines, ATipInWhichEndsAreOne)
{
    const Parcel roof = {{{1000, 1000}, {1100, 1000}, {1100, 1050}, {1050, 1060}, {1000, 1050}},
                         {{{1040, 1020}, {1060, 1020}, {1060, 1040}, {1040, 1040}}}};
    for (const double asked : {1e-25, 1e-28})
        EXPECT_EQ(cut(roof, parallel_to(0), {area(asked)}, kThere, Pieces::two).status, Status::not_reached)
            << asked;
}

// 4755 in two arms. Above its floor the left one holds 1173 1/3 less the hole's 15, from where its wall is a third of a
// spacing inside: a millionth off, the line at the floor is tried. Areas are multiples of a half there.
TEST(WholeLines, ALineBesideTheAmountThatDoublesDoNotHold)
{
    const Parcel u = {moved({{0, 0}, {100, 0}, {100, 60}, {60, 60}, {60, 20}, {30, 20}, {30, 60}, {1, 60}},
                            kWholeNumbers, kWholeNumbers, 1.0),
                      {moved({{5, 50}, {8, 50}, {8, 55}, {5, 55}}, kWholeNumbers, kWholeNumbers, 1.0)}};
    EXPECT_EQ(cut(u, parallel_to(0), {area(3596.666666)}, kHere, Pieces::two).status, Status::not_reached);
}

// Across a bay 20 wide; its end lies at 50. Where half a step is wanted, one end is rounded up and the other one down.
TEST(WholeLines, EndsInABayAreRoundedAgainstEachOther)
{
    const Parcel bay = {
        moved({{0, 0}, {100, 0}, {100, 100}, {0, 100}}, kWholeNumbers, kWholeNumbers, 1.0),
        {moved({{40, 30}, {70, 30}, {70, 40}, {50, 40}, {50, 60}, {70, 60}, {70, 70}, {40, 70}},
               kWholeNumbers, kWholeNumbers, 1.0)}};
    Request request;
    request.line = at_bearing(0);
    request.measured = kThere;
    request.amounts = {area(110)};
    int in_the_bay = 0;
    for (const Division& division : plparcel::all_divisions(bay, request)) {
        ASSERT_EQ(division.status, Status::divided) << describe(division);
        EXPECT_EQ(division.pieces[0].area, 110);
        if (division.lines[0].from.x < kWholeNumbers + 50)
            continue;
        ++in_the_bay;
        EXPECT_EQ(division.lines[0].from.x - kWholeNumbers + division.lines[0].to.x - kWholeNumbers, 111);
    }
    EXPECT_EQ(in_the_bay, 1);
    request.amounts = {area(110.3)};
    EXPECT_EQ(divide(bay, request).status, Status::not_reached) << "areas are multiples of a half";
}

// Half of it lies beyond a line across one arm, which prolonged meets the other arm: that is no whole line, and the whole
// line that holds as much does not run through whole numbers.
TEST(WholeLines, AnArmIsNotTakenForTheWholeLine)
{
    const Parcel u = {moved({{-2, 6}, {5, 9}, {4, 2}, {7, 1}, {6, 9}, {10, 6}, {14, -2}, {-2, -2}},
                            kWholeNumbers, kWholeNumbers, 1.0),
                      {}};
    const Division arm = cut(u, perpendicular_to(5), {share(1, 2)}, kThere, Pieces::two);
    ASSERT_EQ(arm.status, Status::divided);
    EXPECT_TRUE(arm.lines[0].meets_again);
    EXPECT_EQ(cut(u, perpendicular_to(5), {share(1, 2)}, kThere).status, Status::not_reached);
}

// 20 spacings across. To the East doubles are 2^-34 apart, to the North 2^-30: areas are multiples of 2^-65, 32 to a
// square of spacings, and 354.5 of these parted by 5, by 4 and by 3 leaves thirds and fifths.
TEST(WholeLines, WhereSpacingsAreMostOfTheParcel)
{
    const Parcel parcel = {
        moved({{3, 14}, {2, 7}, {21, 12}, {30, 17}, {26, 26}, {26, 27}, {34, 40}}, 5e5, 5e6, 0x1p-30), {}};
    const Division division = cut(parcel, parallel_to(5), {share(1, 5), share(1, 4), share(1, 3)}, kThere);
    EXPECT_EQ(division.status, Status::not_reached) << describe(division);
}

TEST(WholeLines, AHoleNoLargerThanRoundingIsPassed)
{
    constexpr double kAcross = 0x1p-46;
    const Parcel parcel = {kU.outer, {{{10, 30}, {10 + kAcross, 30}, {10, 30 + kAcross}}}};
    const Division division = cut(parcel, parallel_to(0), {width(30)});
    ASSERT_EQ(division.status, Status::divided) << describe(division);
    ASSERT_EQ(division.lines[0].segments.size(), 2U);
    EXPECT_NEAR(division.lines[0].from.y, 30.0, 1e-10);
    std::size_t holes = 0;
    for (const Piece& piece : division.pieces)
        holes += piece.holes.size();
    EXPECT_EQ(holes, 1U);
}

TEST(WholeVerdict, APointNearASide)
{
    const PL_PNT2D_record a = {10, 20};
    const PL_PNT2D_record b = {40, 60};
    EXPECT_TRUE(plparcel::is_near_side(a, b, {25, 40}, 1.0)) << "on it";
    EXPECT_TRUE(plparcel::is_near_side(a, b, {25 - 0.79, 40 + 0.59}, 1.0)) << "0.986 beside it";
    EXPECT_FALSE(plparcel::is_near_side(a, b, {25 - 0.81, 40 + 0.61}, 1.0)) << "1.014 beside it";
    EXPECT_FALSE(plparcel::is_near_side(a, b, {25 + 0.81, 40 - 0.61}, 1.0)) << "on the other hand";
    EXPECT_TRUE(plparcel::is_near_side(a, b, {10 - 0.59, 20 - 0.79}, 1.0)) << "0.986 before its beginning";
    EXPECT_FALSE(plparcel::is_near_side(a, b, {10 - 0.61, 20 - 0.81}, 1.0)) << "1.014 before it";
    EXPECT_TRUE(plparcel::is_near_side(a, b, {40 + 0.59, 60 + 0.79}, 1.0)) << "0.986 after its end";
    EXPECT_FALSE(plparcel::is_near_side(a, b, {40 + 0.61, 60 + 0.81}, 1.0)) << "1.014 after it";
}

// Rings run as they were given, holes the other way.
TEST(WholeLines, PiecesRunAsTheParcelDoes)
{
    for (const bool anticlockwise : {true, false}) {
        Parcel parcel = kHoles;
        if (!anticlockwise)
            std::reverse(parcel.outer.begin(), parcel.outer.end());
        const Division division = cut(parcel, at_bearing(100), {width(39)}, kThere);
        ASSERT_EQ(division.status, Status::divided);
        ASSERT_EQ(division.pieces.size(), 2U);
        EXPECT_EQ(division.pieces[0].holes.size() + division.pieces[1].holes.size(), 2U);
        for (const Piece& piece : division.pieces) {
            EXPECT_EQ(plparcel::check_ring(piece.ring).anticlockwise, anticlockwise);
            for (const Ring& hole : piece.holes)
                EXPECT_EQ(plparcel::check_ring(hole).anticlockwise, !anticlockwise);
        }
    }
}

// Two holes with feet on one level, the second under the arch of a third: each lies in the piece that it is in.
//      +----------------------+
//      |  _     ___________   |
//      | / |   |  _______  |  |
//      | |_|   | |  /_|  | |  |
//      |       |_|       |_|  |
//      +----------------------+
TEST(WholeLines, HolesBesideHolesLieInTheirPiece)
{
    const Ring beside = {{10, 40}, {20, 40}, {20, 60}};
    const Ring arch = {{40, 40}, {45, 40}, {45, 60}, {75, 60}, {75, 40}, {80, 40}, {80, 70}, {40, 70}};
    const Ring under = {{50, 40}, {60, 40}, {60, 50}};
    const Parcel parcel = {kHoles.outer, {under, arch, beside}};
    for (const Line& line : {parallel_to(0), parallel_to(1), at_bearing(0), at_bearing(100)}) {
        const Division division = cut(parcel, line, {width(5)});
        ASSERT_EQ(division.status, Status::divided) << describe(division);
        ASSERT_EQ(division.pieces.size(), 2U);
        EXPECT_TRUE(division.pieces[0].holes.empty());
        EXPECT_EQ(division.pieces[1].holes.size(), 3U);
    }
}

TEST(WholeLines, AHoleThatTheLineWouldTouchIsPassed)
{
    for (const double level : {70.0, 90.0}) {
        const Division division = cut(kHoles, parallel_to(0), {width(level)});
        ASSERT_EQ(division.status, Status::divided) << level;
        EXPECT_EQ(division.lines[0].segments.size(), 1U) << level;
        EXPECT_NEAR(division.lines[0].from.y, level, 1e-12) << level;
        EXPECT_NE(division.lines[0].from.y, level);
        std::size_t holes = 0;
        for (const Piece& piece : division.pieces)
            holes += piece.holes.size();
        EXPECT_EQ(holes, 2U) << level;
    }
}

TEST(WholeLines, TwoPiecesOfAParcelWithHoles)
{
    const Division through = cut(kHoles, parallel_to(0), {share(1, 2)}, kHere, Pieces::two);
    EXPECT_EQ(through.status, Status::divided) << "through one hole and out of it again";
    ASSERT_EQ(through.lines[0].segments.size(), 2U);
    EXPECT_FALSE(through.lines[0].meets_again);
    EXPECT_EQ(cut(kHoles, parallel_to(0, 3), {share(1, 2)}).status, Status::no_such_index);
    EXPECT_EQ(cut(kHoles, parallel_to(4, 2), {share(1, 2)}).status, Status::no_such_index);
    EXPECT_EQ(cut(kU, parallel_to(0, 1), {share(1, 2)}, kHere, Pieces::two).status, Status::no_such_index);
}

struct ThroughRow {
    const char* what;
    const Parcel& parcel;
    Line line;
    double area;
    Measured measured;
    std::vector<PL_LINE_2D_record> segments;
};

const Parcel kOneHole = {{{0, 0}, {100, 0}, {100, 100}, {0, 100}},
                         {{{40, 40}, {60, 40}, {60, 60}, {40, 60}}}};
// A hole like a U, its bay 40 wide and 30 deep.
const Parcel kBay = {{{0, 0}, {100, 0}, {100, 100}, {0, 100}},
                     {{{20, 20}, {20, 60}, {30, 60}, {30, 30}, {70, 30}, {70, 60}, {80, 60}, {80, 20}}}};

Line at_vertex_of(std::size_t ring, std::size_t vertex)
{
    Line line = plparcel::through_vertex(vertex);
    line.ring = ring;
    return line;
}

const ThroughRow kThrough[] = {
    {"from a corner, over the hole from corner to corner",
     kOneHole,
     plparcel::through_vertex(0),
     4800,
     kHere,
     {{{0, 0}, {40, 40}}, {{60, 60}, {100, 100}}}},
    {"past the hole: a triangle of 100 by 60",
     kOneHole,
     plparcel::through_vertex(0),
     9600 - 1500,
     kHere,
     {{{0, 0}, {30, 100}}}},
    {"from a corner of the hole out, and in from beyond it",
     kOneHole,
     at_vertex_of(1, 0),
     4800,
     kHere,
     {{{100, 100}, {60, 60}}, {{40, 40}, {0, 0}}}},
    {"from a place, over the hole",
     kOneHole,
     plparcel::through_place(0, 50),
     4800,
     kHere,
     {{{50, 0}, {50, 40}}, {{50, 60}, {50, 100}}}},
    {"the same point by its coordinates",
     kOneHole,
     plparcel::through_point({50, 0}),
     4800,
     kHere,
     {{{50, 0}, {50, 40}}, {{50, 60}, {50, 100}}}},
    {"through a point inside, over the hole; half of it lies on the right",
     kOneHole,
     plparcel::through_point({50, 20}),
     4800,
     kHere,
     {{{50, 0}, {50, 40}}, {{50, 60}, {50, 100}}}},
    {"through a point inside, below the hole",
     kOneHole,
     plparcel::through_point({50, 20}, 100),
     2000,
     kHere,
     {{{0, 20}, {100, 20}}}},
    {"over a hole's bay, from a corner of it", kBay, at_vertex_of(1, 2), 800, kHere, {{{30, 60}, {70, 40}}}},
    {"the rest of that", kBay, at_vertex_of(1, 2), 10000 - 1200 - 800, kThere, {{{30, 60}, {70, 40}}}},
};

TEST(WholeLines, TwoPiecesThroughAPoint)
{
    for (const ThroughRow& row : kThrough) {
        const Division division = cut(row.parcel, row.line, {area(row.area)}, row.measured, Pieces::two);
        ASSERT_EQ(division.status, Status::divided) << row.what << ": " << describe(division);
        ASSERT_EQ(division.pieces.size(), 2U) << row.what;
        EXPECT_NEAR(division.pieces[0].area, row.area, 1e-6) << row.what;
        const std::vector<plparcel::Segment>& segments = division.lines[0].segments;
        ASSERT_EQ(segments.size(), row.segments.size()) << row.what;
        for (std::size_t i = 0; i < segments.size(); ++i) {
            EXPECT_NEAR(segments[i].from.x, row.segments[i].start.x, 1e-9) << row.what;
            EXPECT_NEAR(segments[i].from.y, row.segments[i].start.y, 1e-9) << row.what;
            EXPECT_NEAR(segments[i].to.x, row.segments[i].end.x, 1e-9) << row.what;
            EXPECT_NEAR(segments[i].to.y, row.segments[i].end.y, 1e-9) << row.what;
        }
    }
}

TEST(WholeLines, TwoPiecesThroughAPointAreRefusedWithAReason)
{
    const auto status = [](const Line& line, std::vector<Amount> amounts) {
        return cut(kOneHole, line, std::move(amounts), kHere, Pieces::two).status;
    };
    EXPECT_EQ(status(plparcel::through_point({50, 50}), {share(1, 2)}), Status::point_outside)
        << "in the hole";
    EXPECT_EQ(status(plparcel::through_point({150, 50}), {share(1, 2)}), Status::point_outside);
    EXPECT_EQ(status(at_vertex_of(1, 4), {share(1, 2)}), Status::no_such_index);
    EXPECT_EQ(status(plparcel::through_vertex(0), {share(1, 3), share(1, 3)}), Status::only_one_amount);
    EXPECT_EQ(status(plparcel::through_vertex(0), {width(5)}), Status::no_width);
    // Of lines through (50, 20) none has less than 2000 on one side.
    EXPECT_EQ(status(plparcel::through_point({50, 20}), {area(1900)}), Status::no_line_through_point);
}

//   3 ------------ 2     The side from 4 to 5 crosses the prolongation of the first one, beyond the vertex, by next to nothing.
//   |           [] |     What lies above both is a rectangle of 2 by 1 with a hole of 0.005: from the vertex the line for 0.3
//   4 ~~ 5 - 0 --- 1     climbs to 0.6, and the one for all but 0.295 to 0.59.
TEST(WholeLines, ASideThatCrossesTheFirstLineByNextToNothing)
{
    const Ring hole = {{0.8, 0.85}, {0.8, 0.9}, {0.9, 0.9}, {0.9, 0.85}};
    for (const double off : {1e-140, 1e-150, 1e-160, 1e-170, 1e-200, 1e-300}) {
        const Parcel parcel = {{{0, 0}, {1, 0}, {1, 1}, {-1, 1}, {-1, off}, {-0.5, -off}}, {hole}};
        const Division right = cut(parcel, plparcel::through_vertex(0), {area(0.3)}, kHere, Pieces::two);
        ASSERT_EQ(right.status, Status::divided) << off << ": " << describe(right);
        EXPECT_NEAR(std::hypot(right.lines[0].to.x - 1, right.lines[0].to.y - 0.6), 0, 1e-9) << off;
        const Division left = cut(parcel, plparcel::through_vertex(0), {area(1.7)}, kHere, Pieces::two);
        ASSERT_EQ(left.status, Status::divided) << off << ": " << describe(left);
        EXPECT_NEAR(std::hypot(left.lines[0].to.x + 1, left.lines[0].to.y - 0.59), 0, 1e-9) << off;
    }
}

// From the hole's corner (20, 20) 2000 lie left of the line along its western side. A hair more is held by a line turned a
// hair, and nearly by the one along the side: that is no further line.
TEST(WholeLines, ALineThroughAVertexBesideTheAmountIsNoFurtherLine)
{
    const Parcel holed = {kOneHole.outer, {{{20, 20}, {20, 80}, {80, 80}, {80, 20}}}};
    Request request;
    request.line = at_vertex_of(1, 0);
    request.amounts = {area(2000 + 1e-6)};
    const Division division = divide(holed, request);
    ASSERT_EQ(division.status, Status::divided) << describe(division);
    EXPECT_NEAR(division.pieces[0].area, 2000 + 1e-6, 1e-7);
    request.alternative = 1;
    EXPECT_EQ(divide(holed, request).status, Status::no_further_line);
}

//   5-----4         From (3, 5) over (5, 3) to (7, 1) the line has 2 + 2 above it, which is the least: where it falls by m for
//  /      |         each unit, m above 1, it has 2 / m and 2 m, and for m below 1 more at the slanted wall than it loses.
// 6       3---2
// 7-----------1
TEST(WholeLines, TheLeastThroughAVertexStandsInForALittleLess)
{
    const Parcel bent = {{{0, 0}, {7, 0}, {7, 3}, {5, 3}, {5, 5}, {3, 5}, {2, 3}, {0, 3}}, {}};
    const Line at_corner = plparcel::through_vertex(3);
    const Division division = cut(bent, at_corner, {area(4 - 1e-8)});
    ASSERT_EQ(division.status, Status::divided) << describe(division);
    EXPECT_EQ(division.pieces.size(), 3u);
    EXPECT_NEAR(division.held[0].area, 4, 1e-14);
    EXPECT_NEAR(std::max(division.lines[0].from.x, division.lines[0].to.x), 7, 1e-15);
    EXPECT_NEAR(std::min(division.lines[0].from.x, division.lines[0].to.x), 3, 1e-15);
    EXPECT_EQ(cut(bent, at_corner, {area(4 - 3e-8)}).status, Status::no_line_through_point)
        << "26e-9 are granted";
}

// The line upright at x touches the hole's western tip, but for the rounding of x: the hole lies east of it.
TEST(WholeLines, AHoleThatTheLineTouchesLiesOnItsSide)
{
    for (const double x : {30.1, 30.2, 30.3, 30.4, 30.6, 30.7, 30.8, 30.9})
        for (const double bearing : {0.0, 200.0}) {
            const Parcel touched = {{{0, 0}, {100, 0}, {100, 50}, {0, 50}},
                                    {{{x, 25}, {40, 30}, {50, 25}, {40, 20}}}};
            const double hole = 5.0 * (50.0 - x);
            const double west = std::round(50.0 * x);
            const Measured from_west = bearing > 100.0 ? kHere : kThere;
            const Division division = cut(touched, at_bearing(bearing), {area(west)}, from_west);
            ASSERT_EQ(division.status, Status::divided) << x << ' ' << bearing << ' ' << describe(division);
            ASSERT_EQ(division.pieces.size(), 2U);
            EXPECT_NEAR(division.pieces[0].area, west, 1e-9);
            EXPECT_TRUE(division.pieces[0].holes.empty());
            EXPECT_NEAR(division.pieces[1].area, 5000.0 - west - hole, 1e-9);
            EXPECT_EQ(division.pieces[1].holes.size(), 1U);
        }
}

// The hole's lower side, at 40, belongs to what lies above a line below it, and to what lies below a line above it.
TEST(WholeLines, AHolesSideBelongsToWhatLiesOnItsSide)
{
    const Parcel tall = {{{0, 0}, {100, 0}, {100, 100}, {0, 100}},
                         {{{40, 40}, {60, 40}, {60, 80}, {40, 80}}}};
    const struct {
        const char* what;
        double wanted;
        double level;
    } rows[] = {
        {"below it: 3500 of 9200 on the other side", 5700, 35},
        {"just above it", 45 * 100 - 5 * 20, 45},
        {"across the hole", 70 * 100 - 30 * 20, 70},
        {"above the hole", 90 * 100 - 800, 90},
    };
    for (const auto& row : rows)
        for (const bool is_here : {true, false}) {
            const double wanted = is_here ? row.wanted : 9200 - row.wanted;
            Request request;
            request.line = parallel_to(0, 1);
            request.amounts = {area(wanted)};
            request.measured = is_here ? kHere : kThere;
            std::vector<double> levels;
            for (const Division& division : plparcel::all_divisions(tall, request)) {
                ASSERT_EQ(division.status, Status::divided) << row.what;
                EXPECT_NEAR(division.pieces[0].area, wanted, 1e-9) << row.what;
                levels.push_back(division.lines[0].from.y);
            }
            EXPECT_EQ(std::count(levels.begin(), levels.end(), row.level), 1) << row.what;
        }
}

// A ring around its middle: each line through that holds a half of 48, and many of them stand in for a little more.
TEST(WholeLines, OfManyLinesBesideTheAmountOnlyTheFirstCounts)
{
    const Parcel ring = {{{0, 0}, {7, 0}, {7, 7}, {0, 7}}, {{{3, 3}, {4, 3}, {4, 4}, {3, 4}}}};
    Request request;
    request.line = plparcel::through_point({3.5, 3.5});
    request.amounts = {area(24 + 2.4e-8)};
    request.pieces = Pieces::any;
    const Division division = divide(ring, request);
    ASSERT_EQ(division.status, Status::divided) << describe(division);
    EXPECT_NEAR(division.held[0].area, 24, 1e-13);
    for (request.alternative = 1; request.alternative < 4; ++request.alternative)
        EXPECT_EQ(divide(ring, request).status, Status::no_further_line);
}

// A gable with a tip so flat that what lies above its shoulders is 2.5e-9 of the parcel, and a hole.
TEST(WholeLines, WithinATipThatIsNextToNothing)
{
    const Parcel gable = {
        {{0, 0}, {1024, 0}, {1024, 512}, {512.0625, 1023.9375}, {512, 1024}, {511.9375, 1023.9375}, {0, 512}},
        {{{256, 128}, {768, 128}, {512, 256}}}};
    // A triangle of that shape is as high as it is half as wide: one of 0.001 is 0.0316 high.
    for (const double wanted : {0.001, 0.002, 0.003}) {
        const Division division = cut(gable, parallel_to(0), {area(wanted)}, kThere, Pieces::two);
        ASSERT_EQ(division.status, Status::divided) << describe(division);
        EXPECT_NEAR(division.lines[0].from.y, 1024 - std::sqrt(wanted), 1e-4);
    }
}

// On the right of a line that climbs s through the middle of the hole's western side lie 5400 - 800 / s - 200 s, at most 4600.
// 6.4e-6 more are granted.
TEST(WholeLines, ALittleMoreThanTheMostThroughAPlaceOnAHole)
{
    const Parcel holed = {kOneHole.outer, {{{20, 20}, {20, 80}, {80, 80}, {80, 20}}}};
    Line place = plparcel::through_place(0, 30);
    place.ring = 1;
    for (const Measured measured : {kHere, kThere}) {
        for (const double more : {0.0, 6.3e-6})
            EXPECT_EQ(cut(holed, place, {area(4600 + more)}, measured, Pieces::two).status, Status::divided)
                << more;
        for (const double more : {6.5e-6, 1e-5})
            EXPECT_EQ(cut(holed, place, {area(4600 + more)}, measured, Pieces::two).status,
                      Status::no_line_through_point)
                << more;
    }
}

//   +--- | ---+      The tip comes down to spacings of doubles above the place in the side below it. A line from there passes
//   |   \ /   |      the tip, or touches it.
//   +----o----+
TEST(WholeLines, FromAPlaceJustBelowATip)
{
    constexpr double kSpacing = 0x1p-46;
    const auto from_below = [](double spacings) {
        const Parcel parcel = {{{64, 64},
                                {100, 64},
                                {100, 100},
                                {81, 100},
                                {80, 64 + spacings * kSpacing},
                                {79, 100},
                                {64, 100}},
                               {{{90, 80}, {90, 85}, {95, 85}, {95, 80}}}};
        return cut(parcel, plparcel::through_place(0, 16), {area(150)}, kHere, Pieces::two);
    };
    EXPECT_EQ(from_below(3).status, Status::no_line_through_point);
    EXPECT_EQ(from_below(4).status, Status::no_line_through_point);
    const Division passed = from_below(12);
    ASSERT_EQ(passed.status, Status::divided) << describe(passed);
    EXPECT_NEAR(passed.lines[0].to.x, 100, 1e-9);
    EXPECT_NEAR(passed.lines[0].to.y, 64 + 15, 1e-9) << "a triangle of 20 by 15";
}

// A star of 41 teeth, through the middle of which some eighty lines halve it, so far away that coordinates are halves. Every
// piece of it has some eighths of a square, and what is asked is a sixteenth more: no line holds it, and not all are tried.
TEST(WholeLines, WhereCoordinatesAreTooCoarseForManyLinesTheRestAreNotTried)
{
    constexpr double kAway = 0x1.8p51;
    constexpr double kTurn = 6.283185307179586;
    constexpr int kTips = 41;
    constexpr double kEighths = 8.0;
    Parcel star;
    for (int i = 0; i < 2 * kTips; ++i) {
        const double far = i % 2 == 0 ? 100 : 60;
        const double angle = kTurn * i / (2 * kTips);
        star.outer.push_back({kAway + far * std::cos(angle), kAway + far * std::sin(angle)});
    }
    star.holes = {{{kAway + 10, kAway + 10}, {kAway + 10, kAway + 12}, {kAway + 12, kAway + 12}}};
    const double half = std::floor(check_parcel(star).area / 2 * kEighths) / kEighths;
    const Division division =
        cut(star, plparcel::through_point({kAway, kAway}), {area(half + 0.5 / kEighths)}, kHere, Pieces::two);
    EXPECT_EQ(division.status, Status::not_reached);
    EXPECT_LT(division.trials, 82U);
}

//   +                    The line that cuts two thirds off runs along the hole's slope, from below it to above it. It does
//   | +  +               not start at the place on the slope, but touches the hole all along.
//   | |     +
//   | +---+    +
//   +             +
TEST(WholeLines, ALineAlongTheSideThatItsPlaceIsOnTouchesIt)
{
    const Parcel parcel = {{{-2, -2}, {2, 0}, {0, 2}}, {{{0, 1}, {0, 0}, {1, 0}}}};
    Line slope = plparcel::through_place(2, 1.3043267543796448);
    slope.ring = 1;
    EXPECT_EQ(cut(parcel, slope, {share(8, 12)}, kHere, Pieces::two).status, Status::line_leaves_parcel);
    EXPECT_EQ(cut(parcel, slope, {share(4, 12)}, kThere, Pieces::two).status, Status::line_leaves_parcel);
}

// Of a whole line a part may do: in one arm, past the other one and the hole in it.
TEST(WholeLines, APartOfALineMakesTwoPieces)
{
    // Left arm: 30 wide and up to 60, with a hole of 15 in it. Right arm: 40 wide.
    const Parcel u = {kU.outer, {{{5, 50}, {8, 50}, {8, 55}, {5, 55}}}};
    plparcel::Request request;
    request.amounts = {area(4785 - 800)};
    const double high = 60 - 815.0 / 30;
    const PL_PNT2D_record want[][2] = {{{0, high}, {30, high}}, {{60, 40}, {100, 40}}};
    for (; request.alternative < 2; ++request.alternative) {
        const Division division = divide(u, request);
        ASSERT_EQ(division.status, Status::divided) << describe(division);
        const plparcel::DividingLine& line = division.lines[0];
        EXPECT_NEAR(line.from.x, want[request.alternative][0].x, 1e-12);
        EXPECT_NEAR(line.from.y, want[request.alternative][0].y, 1e-12);
        EXPECT_NEAR(line.to.x, want[request.alternative][1].x, 1e-12);
        EXPECT_TRUE(line.meets_again);
        ASSERT_EQ(division.pieces.size(), 2U);
        EXPECT_EQ(division.pieces[request.alternative == 0 ? 1 : 0].holes.size(), 1U)
            << "the hole goes with the piece in which it lies";
    }
    EXPECT_EQ(divide(u, request).status, Status::no_further_line);
    request.alternative = 0;
    request.amounts = {area(2700)};
    EXPECT_EQ(divide(u, request).status, Status::line_leaves_parcel) << "neither arm is so large";
}

// A line from a hole to the same hole cuts its bay off: the piece beyond keeps the outer ring, and a larger hole.
TEST(WholeLines, ABayOfAHoleIsCutOff)
{
    // Open to the East, 20 deep and 20 wide.
    const Parcel parcel = {
        {{0, 0}, {100, 0}, {100, 100}, {0, 100}},
        {{{40, 30}, {70, 30}, {70, 40}, {50, 40}, {50, 60}, {70, 60}, {70, 70}, {40, 70}}}};
    plparcel::Request request;
    request.line = plparcel::at_bearing(0);
    request.measured = Measured::opposite;
    request.amounts = {area(100)};
    const Division division = divide(parcel, request);
    ASSERT_EQ(division.status, Status::divided) << describe(division);
    EXPECT_NEAR(division.lines[0].from.x, 1, 1e-12)
        << "from the far left come the lines through the outer ring first";
    request.alternative = 1;
    const Division bay = divide(parcel, request);
    ASSERT_EQ(bay.status, Status::divided) << describe(bay);
    EXPECT_NEAR(bay.lines[0].from.x, 55, 1e-12);
    EXPECT_NEAR(bay.lines[0].from.y, 40, 1e-12);
    EXPECT_NEAR(bay.lines[0].to.y, 60, 1e-12);
    EXPECT_EQ(bay.pieces[0].ring.size(), 4U);
    EXPECT_TRUE(bay.pieces[0].holes.empty());
    EXPECT_EQ(bay.pieces[1].ring.size(), 4U);
    ASSERT_EQ(bay.pieces[1].holes.size(), 1U);
    EXPECT_EQ(bay.pieces[1].holes[0].size(), 8U);
    EXPECT_NEAR(bay.pieces[1].area, 10000 - 800 - 100, 1e-9);
}

// Two vertices on one line of the direction, levels apart by a rounding in 106 bits: the arm beyond them is found.
TEST(WholeLines, ALineThroughTwoVerticesDoesNotConfuseTheSides)
{
    Request request;
    request.line = plparcel::along_segment(kTee.outer[0], kTee.outer[2]);
    request.measured = Measured::opposite;
    request.amounts = {share(10, 11)};
    const Division division = divide(kTee, request);
    EXPECT_EQ(division.status, Status::divided) << describe(division);
    request.alternative = 1;
    EXPECT_EQ(divide(kTee, request).status, Status::divided) << "in the stem and in the arm";
}

// Strips and shares one after another, through holes and past them.
TEST(WholeLines, ASeriesOfTwoPiecesEachAcrossHoles)
{
    const Division strips =
        cut(kHoles, parallel_to(0), {width(10), width(40), area(1000)}, kHere, Pieces::two);
    ASSERT_EQ(strips.status, Status::divided) << describe(strips);
    EXPECT_DOUBLE_EQ(strips.lines[0].from.y, 10);
    EXPECT_DOUBLE_EQ(strips.lines[1].from.y, 50);
    EXPECT_EQ(strips.lines[1].segments.size(), 2U);
    EXPECT_EQ(strips.pieces.size(), 4U);
    EXPECT_DOUBLE_EQ(strips.pieces[1].area, 4000 - 200);
    const Division parts =
        cut(kHoles, plparcel::perpendicular_to(0), plparcel::equal_parts(5), Measured::opposite, Pieces::two);
    ASSERT_EQ(parts.status, Status::divided) << describe(parts);
    for (const plparcel::Piece& piece : parts.pieces)
        EXPECT_NEAR(piece.area, (10000 - 400 - 200) / 5.0, 1e-6);
    const Division more = cut(kHoles, parallel_to(0), {width(10), area(9000)}, kHere, Pieces::two);
    EXPECT_EQ(more.status, Status::amount_too_large) << "the strip leaves 8400";
    EXPECT_EQ(more.at_amount, 1U);
    // So little that from there on the doubles hold the side's own line only.
    Parcel away = kHoles;
    for (PL_PNT2D_record& p : away.outer)
        p = {p.x + 1000.0, p.y + 1000.0};
    for (Ring& hole : away.holes)
        for (PL_PNT2D_record& p : hole)
            p = {p.x + 1000.0, p.y + 1000.0};
    for (const Pieces pieces : {Pieces::two, Pieces::any})
        for (const Parcel& parcel : {away, Parcel{away.outer, {}}})
            for (const Line& line : {parallel_to(0), at_bearing(0), at_bearing(100)})
                for (const Measured measured : {kHere, kThere})
                    for (const Amount& amount : {width(1e-40), area(1e-40)})
                        EXPECT_EQ(cut(parcel, line, {amount}, measured, pieces).status, Status::not_reached)
                            << parcel.holes.size() << line.bearing << static_cast<int>(measured)
                            << static_cast<int>(pieces) << static_cast<int>(amount.given);
}

// What an arm holds above its floor, give or take less than an amount may be missed by: the line at the floor, to the corner.
TEST(WholeLines, APartOfALineBesideTheAmount)
{
    const Parcel u = {kU.outer, {{{5, 50}, {8, 50}, {8, 55}, {5, 55}}}};
    constexpr double kTop = 30.0 * 40 - 15;
    for (const double off : {0.0, 1e-7, -1e-7}) {
        for (const Line& line : {parallel_to(0), at_bearing(100)}) {
            Request request;
            request.line = line;
            request.amounts = {area(4785 - kTop + off)};
            const Division division = divide(u, request);
            ASSERT_EQ(division.status, Status::divided) << off;
            const PL_PNT2D_record& end = division.lines[0].to;
            EXPECT_NEAR(end.x, 30, 1e-9) << off;
            EXPECT_NEAR(end.y, 20, off > 0.0 ? 1e-8 : 0.0) << off;
            request.alternative = 1;
            EXPECT_EQ(divide(u, request).status, Status::divided) << "in the right arm";
        }
    }
}

//   .-------------.      The line at the floor of the bay in the hole, 2400 below it. A hair above it the line meets the hole
//   |  .-.   .-.  |      twice; an amount that misses 2400 by less than the tolerance belongs to the line at the floor.
//   |  | '---' |  |
//   |  '-------'  |
//   '-------------'
TEST(WholeLines, ALineAtTheFloorOfABayBesideTheAmount)
{
    const Ring square = {{0, 0}, {100, 0}, {100, 100}, {0, 100}};
    const Ring u = {{20, 20}, {80, 20}, {80, 60}, {70, 60}, {70, 30}, {30, 30}, {30, 60}, {20, 60}};
    for (const double off : {-8e-6, 0.0, 8e-6}) {
        const Division division = cut({square, {u}}, parallel_to(0), {area(2400 + off)}, kHere, Pieces::two);
        ASSERT_EQ(division.status, Status::divided) << off;
        ASSERT_EQ(division.lines[0].segments.size(), 2U);
        EXPECT_NEAR(division.lines[0].from.y, 30, 1e-6) << off;
        EXPECT_NEAR(division.pieces[0].area, 2400 + off, 8.8e-6) << off;
    }
    EXPECT_EQ(cut({square, {u}}, parallel_to(0), {area(2400 + 1e-5)}, kHere, Pieces::two).status,
              Status::line_leaves_parcel);
}

// Above its floor the left arm holds a little less than is asked, the right one as much. The line at the floor stands for the
// amount only where no line holds it.
TEST(WholeLines, ALineBesideTheAmountIsNoFurtherLine)
{
    const Parcel u = {kU.outer, {{{5, 50}, {8, 50}, {8, 55}, {5, 55}}}};
    Request request;
    request.line = at_bearing(300);
    request.amounts = {area(1185 + 1e-7)};
    const Division division = divide(u, request);
    ASSERT_EQ(division.status, Status::divided) << describe(division);
    EXPECT_NEAR(division.lines[0].from.y, 60 - 1185.0 / 40, 1e-8);
    EXPECT_EQ(division.lines[0].from.x, 100);
    request.alternative = 1;
    EXPECT_EQ(divide(u, request).status, Status::no_further_line);
}

//   +-------\/--+     Level 70. The right side has a vertex four spacings of doubles above the line. From there the line would
//   |            o    pass the hole's lowest corner, seven spacings above it, within four; it ends where it was found.
//   +------------+
TEST(WholeLines, AnEndIsNotMovedToAVertexWhereTheLineThenTouchesAnother)
{
    constexpr double kSpacing = 0x1p-46;
    const Ring outer = {{64, 64}, {100, 64}, {100, 70 + 4 * kSpacing}, {100, 80}, {64, 80}};
    const Ring hole = {{94, 70 + 7 * kSpacing}, {96, 75}, {92, 75}};
    const Division division = cut({outer, {hole}}, at_bearing(100), {area(216)}, kHere, Pieces::two);
    ASSERT_EQ(division.status, Status::divided) << describe(division);
    EXPECT_EQ(division.lines[0].from.y, 70);
    EXPECT_EQ(division.lines[0].to.y, 70);
    EXPECT_EQ(division.pieces[0].area, 216);
}

//      C ---------.   The ceiling from A to B rises by 64 spacings of doubles, or by eight, and the level line would pass B three
//      | []       |   below it. That is a touch, and at the level of B the line would miss the amount: it ends at B, and slants.
//   A_.B          |
//   |             |   The strip from A's level to the line is 10 long but for what the ceiling takes away.
//   '-------------'
TEST(WholeLines, ALineThatPassesAVertexAtASharpAngleEndsThere)
{
    constexpr double kSpacing = 0x1p-28;
    constexpr double kAway = 0x1.8p24;
    for (const double rise : {64.0, 8.0}) {
        const double level = rise - 3.0;
        const double below = 50 + (10 * level - level * level / (2 * rise)) * kSpacing;
        const PL_PNT2D_record corner = {1, rise * kSpacing};
        for (int way = 0; way < 4; ++way) {
            const auto seen = [way](const PL_PNT2D_record& p) {
                return PL_PNT2D_record{kAway + (way % 2 == 0 ? p.x : -p.x), kAway + (way < 2 ? p.y : -p.y)};
            };
            const auto all_seen = [&seen](Ring ring) {
                std::transform(ring.begin(), ring.end(), ring.begin(), seen);
                return ring;
            };
            const Ring outer = all_seen({{0, 0}, {0, -5}, {10, -5}, {10, 5}, {1, 5}, corner});
            const Ring hole = all_seen({{5, 2}, {6, 2}, {6, 3}, {5, 3}});
            for (std::size_t first = 0; first < outer.size(); ++first) {
                const Division division =
                    cut({test::begun_at(outer, first), {hole}}, plparcel::along_segment({0, 0}, {1, 0}),
                        {area(below)}, way < 2 ? kHere : kThere, Pieces::two);
                ASSERT_EQ(division.status, Status::divided)
                    << rise << " " << way << " " << describe(division);
                const PL_PNT2D_record& end = way % 2 == 0 ? division.lines[0].from : division.lines[0].to;
                EXPECT_POINT(end, (seen(corner)));
                EXPECT_NEAR(division.pieces[0].area, below, 94e-9);
            }
        }
    }
}

// Up from the floor's side, which lies between the arms: what lies with it goes up to its own level in one of them.
TEST(WholeLines, ALineInLineWithItsSide)
{
    const Parcel u = {kU.outer, {{{5, 50}, {8, 50}, {8, 55}, {5, 55}}}};
    const struct {
        double beyond;  // area of the arm
        double from;
        double to;
    } rows[] = {{30.0 * 40 - 15, 30, 0}, {40.0 * 40, 100, 60}};
    for (const auto& row : rows) {
        Request request;
        request.line = parallel_to(4);
        request.amounts = {area(4785 - row.beyond)};
        request.alternative = 1;  // a strip at the bottom comes first
        const Division division = divide(u, request);
        ASSERT_EQ(division.status, Status::divided) << describe(division);
        EXPECT_EQ(division.lines[0].from.x, row.from);
        EXPECT_EQ(division.lines[0].to.x, row.to);
        EXPECT_EQ(division.lines[0].from.y, 20);
        EXPECT_EQ(division.lines[0].to.y, 20);
        EXPECT_NEAR(division.pieces[0].area, 4785 - row.beyond, 1e-9);
    }
}

// Vertices lie on the line at level 5, where sides that it met end and others begin. Of directions so little apart that
// numbers of 106 bits hold no lines between the vertices, some lie a hair above the line and some below it.
TEST(WholeLines, ALineAtTheLevelOfVertices)
{
    const Line lines[] = {parallel_to(0), plparcel::along_segment({0, 0}, {1, 0x1p-70}),
                          plparcel::along_segment({0, 0}, {1, -0x1p-70})};
    const Ring square_hole = {{4, 4}, {6, 4}, {6, 6}, {4, 6}};
    const struct {
        const char* what;
        Parcel parcel;
        std::vector<Amount> amounts;
        std::vector<double> ends;  // along the line
    } rows[] = {
        {"both ends",
         {{{0, 0}, {10, 0}, {12, 5}, {10, 10}, {0, 10}, {-2, 5}}, {square_hole}},
         {area(58), width(5)},
         {-2, 4, 6, 12}},
        {"the left end",
         {{{0, 0}, {10, 0}, {10, 10}, {0, 10}, {-2, 5}}, {square_hole}},
         {area(53), width(5)},
         {-2, 4, 6, 10}},
        {"the right end",
         {{{0, 0}, {10, 0}, {12, 5}, {10, 10}, {0, 10}}, {square_hole}},
         {area(53), width(5)},
         {0, 4, 6, 12}},
        {"the left end and a hole's left one",
         {{{0, 0}, {10, 0}, {10, 10}, {0, 10}, {-2, 5}}, {{{4, 5}, {6, 3}, {6, 7}}}},
         {area(53), width(5)},
         {-2, 4, 6, 10}},
        {"the right end and a hole's right one",
         {{{0, 0}, {10, 0}, {12, 5}, {10, 10}, {0, 10}}, {{{4, 3}, {6, 5}, {4, 7}}}},
         {area(53), width(5)},
         {0, 4, 6, 12}},
        {"inner corners, past holes",
         {{{0, 0}, {10, 0}, {8, 5}, {10, 10}, {0, 10}, {2, 5}},
          {{{4, 1}, {6, 1}, {6, 3}, {4, 3}}, {{4, 7}, {6, 7}, {6, 9}, {4, 9}}}},
         {area(36), width(5)},
         {2, 8}},
        {"below it a hole's two legs, which a line meets one after the other",
         {{{0, 0}, {10, 0}, {10, 10}, {0, 10}},
          {{{3, 3}, {4, 3}, {4, 5}, {6, 5}, {6, 3}, {7, 3}, {7, 7}, {3, 7}}}},
         {area(46)},
         {0, 3, 7, 10}},
        {"above it two horns",
         {{{0, 0}, {10, 0}, {10, 10}, {0, 10}},
          {{{3, 3}, {7, 3}, {7, 7}, {6, 7}, {6, 5}, {4, 5}, {4, 7}, {3, 7}}}},
         {area(42)},
         {0, 3, 7, 10}},
    };
    for (const auto& row : rows) {
        for (const Line& line : lines) {
            for (const Amount& amount : row.amounts) {
                const Division division = cut(row.parcel, line, {amount}, kHere, Pieces::two);
                EXPECT_EQ(division.status, Status::divided)
                    << row.what << " " << line.b.y << " " << static_cast<int>(amount.given);
                if (division.status != Status::divided)
                    continue;
                std::vector<double> ends;
                for (const plparcel::Segment& segment : division.lines[0].segments) {
                    ends.push_back(segment.from.x);
                    ends.push_back(segment.to.x);
                    EXPECT_EQ(segment.from.y, 5) << row.what;
                    EXPECT_EQ(segment.to.y, 5) << row.what;
                }
                EXPECT_EQ(ends, row.ends) << row.what;
                Request other;
                other.line = line;
                other.amounts = {amount};
                other.alternative = 1;
                EXPECT_EQ(divide(row.parcel, other).status, Status::no_further_line) << row.what;
            }
        }
    }
}

// A notch in the top comes down to the line, beside a hole in its middle: what lies above is two pieces, which meet at the
// notch's tip or have a strip between them that is no wider than rounding.
TEST(WholeLines, ALineThatTouchesATipInOneOfItsParts)
{
    const Ring hole = {{4, 4}, {6, 4}, {6, 6}, {4, 6}};
    const auto notched = [](double tip, bool left) {
        return left ? Ring{{0, 0}, {10, 0}, {10, 10}, {3, 10}, {2, tip}, {1, 10}, {0, 10}}
                    : Ring{{0, 0}, {10, 0}, {10, 10}, {9, 10}, {8, tip}, {7, 10}, {0, 10}};
    };
    for (const bool left : {true, false}) {
        SCOPED_TRACE(left ? "left of the hole" : "right of the hole");
        const auto below = [&](double tip, double wanted) {
            return cut({notched(tip, left), {hole}}, parallel_to(0), {area(wanted)}, kHere, Pieces::two);
        };
        EXPECT_EQ(below(5, 48).status, Status::line_leaves_parcel);
        EXPECT_EQ(below(5 + 0x4p-50, 48).status, Status::line_leaves_parcel);
        EXPECT_EQ(below(5 + 0x20p-50, 48).status, Status::divided);
        EXPECT_EQ(below(5, 48 + 1e-6).status, Status::line_leaves_parcel);
        const Division passed = below(5, 48 - 1e-10);
        ASSERT_EQ(passed.status, Status::divided) << describe(passed);
        EXPECT_EQ(passed.lines[0].segments.size(), 2U);
        EXPECT_NEAR(passed.lines[0].from.y, 5 - 1e-10 / 8, 1e-15);
    }
}

// A side of a hole runs a hair off the line's direction. The line that holds the amount touches one end of the side; the one
// at the level of the other end misses the amount by less than is granted, and passes.
TEST(WholeLines, WhereTheLineTouchesAVertexTheOneAtTheNextVertexStandsIn)
{
    const Parcel lots[] = {
        {{{100, 100},
          {180.77221364362921, 100.00000008077221},
          {180.7722135530141, 190.61510482564643},
          {99.999999909384897, 190.6151047448742}},
         {{{108.82842640458888, 117.25988073531724},
           {105.55100635963774, 121.77086243097783},
           {100.24802933149657, 120.04782074586412},
           {100.24802933149657, 114.47194072477036},
           {105.55100635963774, 112.74889903965665}},
          {{136.39023102874125, 129.36744631484268},
           {127.90656173029437, 144.06159257436488},
           {110.93922313340062, 144.06159257436488},
           {102.45555383495373, 129.36744631484268},
           {110.9392231334006, 114.67330005532048},
           {127.90656173029437, 114.67330005532048}}}},
        {{{100, 100},
          {148.89358501503483, 99.999999951106417},
          {148.8935850502277, 135.19286161758617},
          {100.00000003519285, 135.19286166647976}},
         {{{145.45480592907836, 118.25428524826489},
           {140.80833969312678, 124.6495973695084},
           {133.29019939577833, 122.20680550785757},
           {133.29019939577833, 114.30176498867222},
           {140.80833969312678, 111.85897312702139}}}},
    };
    // What a perpendicular through that corner cuts off, to all digits.
    const Amount amounts[] = {share(3760.2302317812564, 6517.730538890054),
                              share(1171.5773814036338, 1613.1931163600871)};
    const std::size_t sides[] = {1, 2};
    for (std::size_t i = 0; i < 2; ++i) {
        const double whole = check_parcel(lots[i]).area;
        const Division division = cut(lots[i], perpendicular_to(sides[i]), {amounts[i]}, kHere, Pieces::two);
        ASSERT_EQ(division.status, Status::divided) << i << ": " << describe(division);
        EXPECT_NEAR(division.pieces[0].area, amounts[i].first / amounts[i].second * whole, 1e-9 * whole) << i;
    }
}

//   5 ---------- 4         The strip is as wide as from side 0 to the ledge 2-3, in a direction 2^-64 off the ledge's. Between
//   |  | |_| |   |         the level of 3 and that of the corners in the hole's bay numbers of 106 bits hold no lines; along
//   |  |_____|   3 --- 2   the ledge, which is longer, they do. The line ends at 3.
//   0 ---------- 1
TEST(WholeLines, AStripThatEndsAtALedge)
{
    const Parcel parcel = {{{0, 0}, {7, 0}, {12, 5}, {8, 5}, {8, 10}, {0, 10}},
                           {{{3, 3}, {7, 3}, {7, 7}, {6, 7}, {6, 5}, {4, 5}, {4, 7}, {3, 7}}}};
    const Division division =
        cut(parcel, plparcel::along_segment({0, 0}, {1, 0x1p-64}), {width(5)}, kHere, Pieces::two);
    ASSERT_EQ(division.status, Status::divided) << describe(division);
    ASSERT_EQ(division.lines[0].segments.size(), 2U);
    EXPECT_EQ(division.lines[0].segments[1].from.x, 7);
    EXPECT_EQ(division.lines[0].segments[1].to.x, 8);
    EXPECT_NEAR(division.pieces[0].area, 0.5 * (7 + 12) * 5 - 8, 1e-9);
}

//   4 ------------------ 3     Side 0 is the base, vertex 2 lies 2^-62 above its line. Between these levels numbers of 106 bits
//   |        [  ]        |     hold no lines. The strip there is not all that lies above the line through the base.
//   |        0 --- 1 --- 2
//   5 ------ 6
TEST(WholeLines, AStripTooThinForALineToEndIt)
{
    const Parcel parcel = {{{0, 0}, {50, 0}, {100, 0x1p-62}, {100, 60}, {-50, 60}, {-50, -10}, {0, -10}},
                           {{{40, 30}, {60, 30}, {60, 40}, {40, 40}}}};
    EXPECT_EQ(cut(parcel, parallel_to(0), {width(0x1p-63)}, kHere, Pieces::two).status,
              Status::line_leaves_parcel);
}

//   7 ---------------- 6     The right leg ends 2^-62 above the left one: no lines are looked for between these levels, nor at
//   |      2 --- 3 [] |      that of the right leg's end in their place.
//   |      |     |    |
//   0 ---- 1     4 -- 5
TEST(WholeLines, AStripTooThinForALineAtTheBottom)
{
    const Parcel parcel = {
        {{0, 0}, {30, 0}, {30, 40}, {60, 40}, {60, 0x1p-62}, {100, 0x1p-62}, {100, 60}, {0, 60}},
        {{{45, 45}, {45, 50}, {50, 50}, {50, 45}}}};
    EXPECT_EQ(cut(parcel, at_bearing(300), {width(0x1p-63)}, kThere, Pieces::two).status,
              Status::not_reached);
}

//   7 ----- 6               In the left arm, 30 wide, below the hole in it. The right arm's end is at level 40: in a direction
//   |  []   |               2^-70 off that end's its corners are all but level, which changes nothing in the left one.
//   |       |     3 --- 2
//   |       5 --- 4     |
//   0 ----------------- 1
TEST(WholeLines, CornersElsewhereThatAreAllButLevel)
{
    const Parcel parcel = {{{0, 0}, {100, 0}, {100, 40}, {60, 40}, {60, 20}, {30, 20}, {30, 60}, {0, 60}},
                           {{{5, 50}, {8, 50}, {8, 55}, {5, 55}}}};
    constexpr double kWhole = 100.0 * 20 + 30.0 * 40 + 40.0 * 20 - 15;
    for (const double off : {0x1p-70, -0x1p-70}) {
        for (const double level : {45.0, 30.0}) {
            const double above = 30 * (60 - level) - 15;
            const Division division = cut(parcel, plparcel::along_segment({0, 0}, {1, off}),
                                          {area(kWhole - above)}, kHere, Pieces::two);
            ASSERT_EQ(division.status, Status::divided) << level << ": " << describe(division);
            EXPECT_NEAR(division.lines[0].from.x, 0, 1e-12) << level;
            EXPECT_NEAR(division.lines[0].to.x, 30, 1e-12) << level;
            EXPECT_NEAR(division.lines[0].from.y, level, 1e-9) << level;
            EXPECT_NEAR(division.lines[0].to.y, level, 1e-9) << level;
        }
    }
}

// A strip from the far end, up to the level of the base side and beyond it, where the line ends what lies behind: with a hole
// far away from it as without.
TEST(WholeLines, AStripPastTheBaseSide)
{
    Parcel parcel = {{{0, 0}, {50, 0}, {100, 1}, {100, 60}, {-50, 60}, {-50, -10}, {0, -10}}, {}};
    const Ring hole = {{80, 30}, {90, 30}, {90, 40}, {80, 40}};
    for (const double wide : {59.5, 60.0, 65.0}) {
        parcel.holes.clear();
        const Division without = cut(parcel, parallel_to(0), {width(wide)}, kThere, Pieces::two);
        ASSERT_EQ(without.status, Status::divided) << wide;
        parcel.holes = {hole};
        const Division with = cut(parcel, parallel_to(0), {width(wide)}, kThere, Pieces::two);
        ASSERT_EQ(with.status, Status::divided) << wide;
        EXPECT_POINT(with.lines[0].from, (without.lines[0].from));
        EXPECT_POINT(with.lines[0].to, (without.lines[0].to));
    }
}

// A width that leads into the bay of a hole, and through two legs of which the line across the longer one has the
// parcel's lowest corner below it, the line across the shorter one does not.
TEST(WholeLines, AStripAcrossABayOrALeg)
{
    const Parcel bay = {{{0, 0}, {100, 0}, {100, 100}, {0, 100}},
                        {{{40, 30}, {70, 30}, {70, 40}, {50, 40}, {50, 60}, {70, 60}, {70, 70}, {40, 70}}}};
    const Division in_bay = cut(bay, at_bearing(0), {width(60)}, kThere, Pieces::two);
    ASSERT_EQ(in_bay.status, Status::divided) << describe(in_bay);
    EXPECT_EQ(in_bay.lines[0].segments.size(), 1U);
    EXPECT_NEAR(std::hypot(in_bay.lines[0].from.x - 60, in_bay.lines[0].from.y - 40), 0.0, 1e-12);
    EXPECT_NEAR(std::hypot(in_bay.lines[0].to.x - 60, in_bay.lines[0].to.y - 60), 0.0, 1e-12);
    EXPECT_NEAR(in_bay.pieces[0].area, 200, 1e-9);

    const Parcel legs = {{{0, 0}, {30, 0}, {30, 40}, {60, 40}, {60, 10}, {100, 10}, {100, 60}, {0, 60}},
                         {{{45, 45}, {50, 45}, {50, 50}, {45, 50}}}};
    Request request;
    request.line = at_bearing(300);
    request.amounts = {width(45)};
    const double areas[] = {4375 - 30 * 15, 4375 - 40 * 5};
    const double ends[] = {0, 60};
    for (; request.alternative < 2; ++request.alternative) {
        const Division division = divide(legs, request);
        ASSERT_EQ(division.status, Status::divided) << describe(division);
        EXPECT_NEAR(division.pieces[0].area, areas[request.alternative], 1e-9);
        EXPECT_NEAR(division.lines[0].to.x, ends[request.alternative], 1e-12);
        EXPECT_NEAR(division.lines[0].to.y, 15, 1e-12);
    }
    EXPECT_EQ(divide(legs, request).status, Status::no_further_line);
}

// The line in the left arm at the level at which the right one ends, and the left one is wider from there on.
TEST(WholeLines, AlongAnArmsEndItDoesNotMeetTheParcelAgain)
{
    const Parcel u = {
        {{5, 0}, {100, 0}, {100, 40}, {60, 40}, {60, 20}, {30, 20}, {30, 60}, {0, 60}, {0, 40}, {5, 40}},
        {{{10, 50}, {13, 50}, {13, 55}, {10, 55}}}};
    const Division division = cut(u, parallel_to(0), {width(40)}, kHere, Pieces::two);
    ASSERT_EQ(division.status, Status::divided) << describe(division);
    EXPECT_EQ(division.lines[0].segments.size(), 1U);
    EXPECT_FALSE(division.lines[0].meets_again);
    EXPECT_NEAR(division.pieces[1].area, 30 * 20 - 15, 1e-9);
    const Parcel mirrored = {
        {{0, 0}, {95, 0}, {95, 40}, {100, 40}, {100, 60}, {70, 60}, {70, 20}, {40, 20}, {40, 40}, {0, 40}},
        {{{87, 50}, {90, 50}, {90, 55}, {87, 55}}}};
    const Division right = cut(mirrored, parallel_to(0), {width(40)}, kHere, Pieces::two);
    ASSERT_EQ(right.status, Status::divided) << describe(right);
    EXPECT_FALSE(right.lines[0].meets_again);
    EXPECT_NEAR(right.pieces[1].area, 30 * 20 - 15, 1e-9);
}

// Of each two vertices in one straight line levels differ by a rounding in 106 bits, or not at all. Lines that run elsewhere
// lie where those do whose direction differs by a billionth.
TEST(WholeLines, VerticesOnOneLineOfTheDirectionChangeNothing)
{
    Ring all = kTee.outer;
    all.insert(all.end(), kTee.holes[0].begin(), kTee.holes[0].end());
    int compared = 0;
    for (const PL_PNT2D_record& a : all) {
        for (const PL_PNT2D_record& b : all) {
            if (a.x == b.x && a.y == b.y)
                continue;
            const PL_PNT2D_record beside = {b.x - 1e-9 * (b.y - a.y), b.y + 1e-9 * (b.x - a.x)};
            for (const double part : {0.31, 0.83}) {
                const Division one =
                    cut(kTee, plparcel::along_segment(a, b), {share(part, 1)}, kHere, Pieces::two);
                const Division other =
                    cut(kTee, plparcel::along_segment(a, beside), {share(part, 1)}, kHere, Pieces::two);
                EXPECT_EQ(one.status, other.status) << a.x << " " << b.x << " " << part;
                if (one.status != Status::divided || other.status != Status::divided)
                    continue;
                ++compared;
                EXPECT_NEAR(one.lines[0].from.x, other.lines[0].from.x, 1e-5);
                EXPECT_NEAR(one.lines[0].from.y, other.lines[0].from.y, 1e-5);
                EXPECT_NEAR(one.lines[0].to.x, other.lines[0].to.x, 1e-5);
                EXPECT_NEAR(one.lines[0].to.y, other.lines[0].to.y, 1e-5);
            }
        }
    }
    EXPECT_GT(compared, 100);
}

// Strips of a width in two pieces, from whatever the width counts from.
TEST(WholeLines, AStripOfAParcelWithHoles)
{
    // The U's left arm has a hole of 15 above level 50.
    const Parcel u = {kU.outer, {{{5, 50}, {8, 50}, {8, 55}, {5, 55}}}};
    struct StripRow {
        const char* what;
        const Parcel& parcel;
        Line line;
        double width;
        Measured measured;
        double area;          // of the strip
        PL_PNT2D_record end;  // of the line
        Status status;
    };
    const StripRow rows[] = {
        {"from the side, through a hole", kHoles, parallel_to(0), 50, kHere, 4800, {0, 50}, Status::divided},
        {"from the far end", kHoles, parallel_to(0), 50, kThere, 4600, {0, 50}, Status::divided},
        {"from the East", kHoles, at_bearing(0), 10, kHere, 1000, {90, 0}, Status::divided},
        {"from the West", kHoles, at_bearing(0), 5, kThere, 500, {5, 0}, Status::divided},
        {"from the side's end", kHoles, perpendicular_to(0), 10, kHere, 1000, {90, 0}, Status::divided},
        {"from its beginning", kHoles, perpendicular_to(0), 5, kThere, 500, {5, 0}, Status::divided},
        {"up to the hole's tip", kHoles, at_bearing(0), 10, kThere, 0, {}, Status::line_leaves_parcel},
        {"up to the far end", kHoles, parallel_to(0), 100, kHere, 0, {}, Status::amount_too_large},
        {"beyond it", kHoles, parallel_to(0), 150, kHere, 0, {}, Status::amount_too_large},
        {"all but an arm's top: that of the left one comes first",
         u,
         parallel_to(0),
         45,
         kHere,
         4785 - (450 - 15),
         {0, 45},
         Status::divided},
    };
    for (const StripRow& row : rows) {
        for (const bool clockwise : {false, true}) {
            Parcel parcel = row.parcel;
            Line line = row.line;
            Measured measured = row.measured;
            if (clockwise) {
                // Side 0 is the last but one of a ring told backwards, and runs the other way.
                std::reverse(parcel.outer.begin(), parcel.outer.end());
                line.index = parcel.outer.size() - 2;
                if (line.cut == Cut::perpendicular)
                    measured = measured == kHere ? kThere : kHere;
            }
            const Division division = cut(parcel, line, {width(row.width)}, measured, Pieces::two);
            ASSERT_EQ(division.status, row.status) << row.what;
            if (row.status != Status::divided)
                continue;
            EXPECT_NEAR(division.pieces[0].area, row.area, 1e-6) << row.what;
            const plparcel::DividingLine& made = division.lines[0];
            const bool begins = std::hypot(made.from.x - row.end.x, made.from.y - row.end.y) < 1e-9;
            const bool ends = std::hypot(made.to.x - row.end.x, made.to.y - row.end.y) < 1e-9;
            EXPECT_TRUE(begins || ends) << row.what;
            for (const Piece& piece : division.pieces) {
                EXPECT_EQ(plparcel::check_ring(piece.ring).anticlockwise, !clockwise) << row.what;
                for (const Ring& hole : piece.holes)
                    EXPECT_EQ(plparcel::check_ring(hole).anticlockwise, clockwise) << row.what;
            }
        }
    }
    // Both arms are crossed at 45, and nothing else.
    Request request;
    request.amounts = {width(45)};
    request.alternative = 1;
    const Division other = divide(u, request);
    ASSERT_EQ(other.status, Status::divided) << describe(other);
    EXPECT_NEAR(other.pieces[0].area, 4785 - 40 * 15, 1e-6) << "all but the right arm's top";
    request.alternative = 2;
    EXPECT_EQ(divide(u, request).status, Status::no_further_line);
}

// What holes take away is not there to be cut.
TEST(WholeLines, AmountsThatCannotBeCutOffAParcelWithHoles)
{
    constexpr double kArea = 100.0 * 100.0 - 20.0 * 20.0 - 0.5 * 20.0 * 20.0;
    struct AmountRow {
        const char* what;
        std::vector<Amount> amounts;
        Status status;
        std::size_t at_amount;
        std::size_t lines;
    };
    for (const AmountRow& row : std::vector<AmountRow>{
             {"nothing", {area(0)}, Status::amount_too_small, 0, 0},
             {"next to all", {area(kArea - 1.0)}, Status::divided, 0, 1},
             {"all", {area(kArea)}, Status::amount_too_large, 0, 0},
             {"no amount", {}, Status::no_amount, 0, 0},
             {"not a number", {share(1, 2), area(std::nan(""))}, Status::unusable_amount, 1, 0},
             {"the second is what is left", {share(1, 2), area(0.5 * kArea)}, Status::divided, 0, 1},
             {"the second is less", {share(1, 2), area(0.5 * kArea - 1.0)}, Status::divided, 0, 2},
             {"the second is more",
              {share(1, 2), area(0.5 * kArea + 1.0)},
              Status::amount_too_large,
              1,
              0}}) {
        const Division division = cut(kHoles, parallel_to(0), row.amounts);
        EXPECT_EQ(division.status, row.status) << row.what;
        EXPECT_EQ(division.at_amount, row.at_amount) << row.what;
        EXPECT_EQ(division.lines.size(), row.lines) << row.what;
        EXPECT_EQ(division.held.size(), row.lines == 0 ? 0 : row.lines + 1) << row.what;
    }
}

TEST(WholeLines, AWidthAsHighAsAParcelWithHolesLeavesNothing)
{
    const auto status = [](double high, double tilt) {
        const Line line = plparcel::along_segment({0, 0}, {1, tilt});
        return cut(kHoles, line, {width(high)}, kHere, Pieces::two).status;
    };
    EXPECT_EQ(cut(kHoles, parallel_to(0), {width(100)}, kHere, Pieces::two).status, Status::amount_too_large);
    for (const double tilt : {0.0, 0x1p-70, -0x1p-70}) {
        EXPECT_EQ(status(99, tilt), Status::divided) << tilt;
        EXPECT_EQ(status(100, tilt), tilt == 0.0 ? Status::amount_too_large : Status::not_reached)
            << tilt << ": turned, it is higher by less than rounding";
        EXPECT_EQ(status(101, tilt), Status::amount_too_large) << tilt;
    }
}

//   4 ------------------ 3     Side 0 is the base; 500 lie behind it. Vertex 2 is a twentieth above its line.
//   |        [  ]        |
//   |        0 --- 1 --- 2
//   5 ------ 6
TEST(WholeLines, WhatLiesBehindTheBaseGoesWithIt)
{
    const Parcel parcel = {{{0, 0}, {50, 0}, {150, 0.05}, {150, 60}, {-50, 60}, {-50, -10}, {0, -10}},
                           {{{40, 30}, {60, 30}, {60, 40}, {40, 40}}}};
    const auto status = [&](double asked) {
        return cut(parcel, parallel_to(0), {area(asked)}, kHere, Pieces::two).status;
    };
    EXPECT_EQ(status(497), Status::base_reaches_behind);
    EXPECT_EQ(status(503), Status::divided);
}

//   9 --------- 8   5 ---- 4    Side 0 is the base; 1750 lie behind it, and 2999 above it in the left arm. With less than
//   |           |   |      |    that no line leaves it: what lies behind the base decides what is told. The hole is a
//   | []        |   |      |    thousandth above the base.
//   0 ------ 1  7 --6      |
//            2 ----------- 3
TEST(WholeLines, WhetherTheBaseReachesBehindIsToldWhereNoLineLies)
{
    const Parcel parcel = {
        {{0, 0}, {40, 0}, {40, -30}, {100, -30}, {100, 60}, {60, 60}, {60, -5}, {50, -5}, {50, 60}, {0, 60}},
        {{{10, 0.001}, {11, 0.001}, {11, 1.001}, {10, 1.001}}}};
    const auto status = [&](double asked) {
        return cut(parcel, parallel_to(0), {area(asked)}, kHere, Pieces::two).status;
    };
    EXPECT_EQ(status(1749.999), Status::base_reaches_behind);
    EXPECT_EQ(status(1750.001), Status::line_leaves_parcel);
    EXPECT_EQ(status(2998.9), Status::line_leaves_parcel);
    EXPECT_EQ(status(2999.1), Status::divided) << "from the lower part of the right side to the left arm";
}

TEST(CheckParcel, Rows)
{
    const Ring square = {{0, 0}, {100, 0}, {100, 100}, {0, 100}};
    const struct {
        const char* what;
        std::vector<Ring> holes;
        BoundaryStatus status;
        std::size_t at_ring;
        std::size_t sides[2];
        std::size_t rings[2];
    } rows[] = {
        {"no hole", {}, BoundaryStatus::usable, 0, {0, 0}, {0, 0}},
        {"a hole", {{{10, 10}, {20, 10}, {20, 20}}}, BoundaryStatus::usable, 0, {0, 0}, {0, 0}},
        {"either way round", {{{10, 10}, {20, 20}, {20, 10}}}, BoundaryStatus::usable, 0, {0, 0}, {0, 0}},
        {"beside each other",
         {{{10, 10}, {20, 10}, {20, 20}}, {{30, 10}, {40, 10}, {40, 20}}},
         BoundaryStatus::usable,
         0,
         {0, 0},
         {0, 0}},
        {"above each other",
         {{{10, 30}, {20, 30}, {20, 40}}, {{10, 10}, {20, 10}, {20, 20}}},
         BoundaryStatus::usable,
         0,
         {0, 0},
         {0, 0}},
        {"outside", {{{110, 10}, {120, 10}, {120, 20}}}, BoundaryStatus::hole_outside, 1, {0, 0}, {0, 0}},
        {"above it", {{{10, 110}, {20, 110}, {20, 120}}}, BoundaryStatus::hole_outside, 1, {0, 0}, {0, 0}},
        {"around it",
         {{{-10, -10}, {110, -10}, {110, 110}, {-10, 110}}},
         BoundaryStatus::hole_outside,
         1,
         {0, 0},
         {0, 0}},
        {"the second in the first",
         {{{10, 10}, {50, 10}, {50, 50}, {10, 50}}, {{20, 20}, {30, 20}, {30, 30}}},
         BoundaryStatus::hole_in_hole,
         2,
         {0, 0},
         {0, 0}},
        {"a hole without area and with a vertex twice",
         {{{10, 10}, {20, 20}, {20, 20}, {30, 30}}},
         BoundaryStatus::flat,
         1,
         {0, 0},
         {1, 1}},
        {"touches the boundary at a vertex",
         {{{10, 10}, {20, 0}, {20, 20}}},
         BoundaryStatus::rings_meet,
         1,
         {0, 0},
         {0, 1}},
        {"crosses it", {{{90, 40}, {110, 50}, {90, 60}}}, BoundaryStatus::rings_meet, 1, {1, 0}, {0, 1}},
        {"touches a hole",
         {{{10, 10}, {20, 10}, {20, 20}}, {{20, 12}, {30, 10}, {30, 20}}},
         BoundaryStatus::rings_meet,
         2,
         {1, 0},
         {1, 2}},
        {"crosses itself",
         {{{10, 10}, {20, 10}, {20, 20}}, {{40, 40}, {60, 60}, {60, 40}, {40, 60}}},
         BoundaryStatus::meets_itself,
         2,
         {0, 2},
         {2, 2}},
        {"a hole without area", {{{10, 10}, {20, 20}, {30, 30}}}, BoundaryStatus::flat, 1, {0, 0}, {1, 1}},
        {"a hole of two vertices",
         {{{10, 10}, {20, 20}}},
         BoundaryStatus::too_few_vertices,
         1,
         {0, 0},
         {1, 1}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        const plparcel::RingReport report = check_parcel({square, row.holes});
        EXPECT_EQ(report.status, row.status) << describe(report.status);
        EXPECT_EQ(report.at_ring, row.at_ring);
        const bool met =
            row.status == BoundaryStatus::rings_meet || row.status == BoundaryStatus::meets_itself;
        // Where a vertex touches, either of its sides may be named.
        for (std::size_t i = 0; i < 2 && met; ++i) {
            EXPECT_EQ(report.meeting_rings[i], row.rings[i]);
            const bool is_named = row.status == BoundaryStatus::meets_itself || row.rings[i] == 0;
            EXPECT_TRUE(!is_named || report.meeting_sides[i] == row.sides[i]) << report.meeting_sides[i];
        }
        EXPECT_EQ(report.area > 0.0, row.status == BoundaryStatus::usable);
        EXPECT_EQ(report.anticlockwise, row.status == BoundaryStatus::usable);
    }
    const plparcel::RingReport report = check_parcel(kHoles);
    EXPECT_EQ(report.area, 9400.0);
    EXPECT_NEAR(report.perimeter, 400.0 + 80.0 + 4.0 * std::sqrt(200.0), 1e-12);
    EXPECT_TRUE(report.anticlockwise);
    EXPECT_EQ(check_parcel({square, {{{10, 10}, {20, 10}, {20, 20}}}}).area, 9950.0) << "one hole";
    const Ring twice = {{0, 0}, {0, 0}, {100, 0}, {100, 100}, {0, 100}};
    EXPECT_EQ(check_parcel({twice, {{{10, 10}, {20, 20}, {20, 20}, {30, 30}}}}).repeated, 2U)
        << "in all rings, also where a hole is at fault";
}

Ring begun_at(const Ring& ring, std::size_t start)
{
    Ring out(ring.begin() + static_cast<std::ptrdiff_t>(start), ring.end());
    out.insert(out.end(), ring.begin(), ring.begin() + static_cast<std::ptrdiff_t>(start));
    return out;
}

void expect_same(const Division& one, const Division& other)
{
    ASSERT_EQ(one.status, other.status);
    ASSERT_EQ(one.lines.size(), other.lines.size());
    ASSERT_EQ(one.pieces.size(), other.pieces.size());
    for (std::size_t i = 0; i < one.lines.size(); ++i) {
        ASSERT_EQ(one.lines[i].segments.size(), other.lines[i].segments.size());
        for (std::size_t k = 0; k < one.lines[i].segments.size(); ++k) {
            EXPECT_BITS(one.lines[i].segments[k].from.x, other.lines[i].segments[k].from.x);
            EXPECT_BITS(one.lines[i].segments[k].from.y, other.lines[i].segments[k].from.y);
            EXPECT_BITS(one.lines[i].segments[k].to.x, other.lines[i].segments[k].to.x);
            EXPECT_BITS(one.lines[i].segments[k].to.y, other.lines[i].segments[k].to.y);
        }
    }
    for (std::size_t i = 0; i < one.pieces.size(); ++i) {
        EXPECT_EQ(one.pieces[i].amount, other.pieces[i].amount);
        EXPECT_BITS(one.pieces[i].area, other.pieces[i].area);
        EXPECT_BITS(one.pieces[i].residual, other.pieces[i].residual);
    }
}

// Where rings begin and in which order the holes come changes no bit.
TEST(WholeLines, TheOrderInWhichAParcelIsToldChangesNothing)
{
    std::mt19937_64 random = test::random_source();
    for (int i = 0; i < 60; ++i) {
        const std::vector<test::ParcelKind>& kinds = test::parcel_kinds();
        const Ring outer = kinds[random() % kinds.size()].make(random);
        Parcel parcel = {outer, {}};
        for (const double at : {0.3, 0.5, 0.7}) {
            const double x = outer[0].x + at * (outer[outer.size() / 2].x - outer[0].x);
            const double y = outer[0].y + at * (outer[outer.size() / 2].y - outer[0].y);
            parcel.holes.push_back({{x - 1.3, y}, {x + 0.7, y - 0.4}, {x + 0.1, y + 1.1}});
        }
        if (check_parcel(parcel).status != BoundaryStatus::usable)
            continue;
        const Division first = cut(parcel, at_bearing(31.7), {share(1, 3), share(1, 3)});
        ASSERT_EQ(first.status, Status::divided) << describe(first);
        for (std::size_t k = 1; k < outer.size(); ++k) {
            Parcel told = {begun_at(outer, k), parcel.holes};
            std::rotate(told.holes.begin(), told.holes.begin() + static_cast<std::ptrdiff_t>(k % 3),
                        told.holes.end());
            told.holes[0] = begun_at(told.holes[0], k % 3);
            std::reverse(told.holes[1].begin(), told.holes[1].end());
            expect_same(first, cut(told, at_bearing(31.7), {share(1, 3), share(1, 3)}));
        }
    }
}

// On a parcel of half a metre at UTM size a spacing along a line is several billionths of the area.
TEST(WholeLines, ThirdsOfParcelsOfHalfAMetreAreHeld)
{
    std::mt19937_64 random = test::random_source();
    std::uniform_real_distribution<double> bearing(0.0, 400.0);
    for (int i = 0; i < 200; ++i) {
        const Parcel parcel = {moved(test::convex_ring(random, 7, 0.5), 5e5, 5e6, 1.0), {}};
        const Division division = cut(parcel, at_bearing(bearing(random)), {share(1, 3), share(1, 3)});
        ASSERT_EQ(division.status, Status::divided) << describe(division);
        for (const Piece& piece : division.pieces)
            EXPECT_NEAR(plparcel::check_ring(piece.ring).area, division.ring.area / 3,
                        1.0000001e-9 * division.ring.area);
    }
}

//  1/4  ||  |----|    Two arms, 3/16 and 13/16 wide, on a strip of 3/2 by 1/16; the area is 9/32. Doubles are 2^-30 apart
//       ||--|    |    there, and a line across both arms should lie half of that above or below 1/8: on either double beside
//  0    |--------|    it the areas miss by 2^-31, more than is granted. So one end is rounded up, and another one down.
TEST(WholeLines, EndsAreRoundedAgainstEachOther)
{
    const Ring arms = {{0, 0},           {1.5, 0},         {1.5, 0.25},    {0.6875, 0.25},
                       {0.6875, 0.0625}, {0.1875, 0.0625}, {0.1875, 0.25}, {0, 0.25}};
    const Parcel u = {moved(arms, 5e5, 5e6, 1.0), {}};
    const double below = 0.09375 + 0.0625;
    for (const double part : {0x1p-31, -0x1p-31}) {
        const Division division = cut(u, parallel_to(0), {area(below + part)});
        ASSERT_EQ(division.status, Status::divided) << describe(division);
        ASSERT_EQ(division.lines[0].segments.size(), 2U);
        for (const plparcel::Segment& segment : division.lines[0].segments)
            for (const double y : {segment.from.y, segment.to.y})
                EXPECT_NEAR(y, 5e6 + 0.125, 0x1p-29) << "the line stays where it belongs";
        EXPECT_NEAR(plparcel::check_ring(division.pieces[0].ring).area, below + part, 1e-9 * 0.28125);
    }
}

// The same across a hole of 1/2 by 1/8 in the middle of 3/2 by 1/4, which leaves 1 of the line and 5/16 of the area.
TEST(WholeLines, EndsOnAHoleAreRoundedAgainstTheOthers)
{
    const Parcel holed = {moved({{0, 0}, {1.5, 0}, {1.5, 0.25}, {0, 0.25}}, 5e5, 5e6, 1.0),
                          {moved({{0.5, 0.0625}, {1, 0.0625}, {1, 0.1875}, {0.5, 0.1875}}, 5e5, 5e6, 1.0)}};
    const double below = 1.5 * 0.125 - 0.5 * 0.0625;
    for (const double part : {0x1p-31, -0x1p-31}) {
        const Division division = cut(holed, parallel_to(0), {area(below + part)}, kHere, Pieces::two);
        ASSERT_EQ(division.status, Status::divided) << describe(division);
        EXPECT_NEAR(plparcel::check_ring(division.pieces[0].ring).area, below + part, 1e-9 * 0.3125);
        EXPECT_GE(division.trials, 1U);
    }
}

TEST(WholeLines, AsManyPartsAsThereAreCentimetres)
{
    const Parcel lot = {{{0, 0}, {100, 0}, {100, 50}, {0, 50}}, {}};
    const Division division = cut(lot, parallel_to(1), plparcel::equal_parts(10000));
    ASSERT_EQ(division.status, Status::divided);
    ASSERT_EQ(division.lines.size(), 9999U);
    EXPECT_EQ(division.trials, 1U);
    EXPECT_NEAR(division.lines[4999].from.x, 50.0, 1e-12);
}

}  // namespace
