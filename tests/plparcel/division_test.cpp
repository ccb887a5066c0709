#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "plparcel/division.h"
#include "support/bits.h"
#include "support/rings.h"

namespace {

using plparcel::Amount;
using plparcel::area;
using plparcel::BoundaryStatus;
using plparcel::Cut;
using plparcel::divide;
using plparcel::Division;
using plparcel::equal_parts;
using plparcel::Measured;
using plparcel::product;
using plparcel::Request;
using plparcel::Ring;
using plparcel::share;
using plparcel::Status;

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr Measured kHere = Measured::from_reference;
constexpr Measured kThere = Measured::opposite;

const Ring kLot = {{0, 0}, {100, 0}, {100, 50}, {0, 50}};
const Ring kLotClockwise = {{0, 0}, {0, 50}, {100, 50}, {100, 0}};
const Ring kL = {{0, 0}, {100, 0}, {100, 40}, {40, 40}, {40, 100}, {0, 100}};                        // 6400
const Ring kU = {{0, 0}, {100, 0}, {100, 100}, {70, 100}, {70, 40}, {30, 40}, {30, 100}, {0, 100}};  // 7600

const Ring kUnevenU = {{0, 0}, {40, 0}, {40, 40}, {30, 40}, {30, 10}, {20, 10}, {20, 40}, {0, 40}};
const Ring kLowU = {{0, 0}, {8, 0}, {8, 5}, {5, 5}, {5, 2}, {1, 2}, {1, 7}, {0, 7}};
// A U whose right arm ends at 5, as high as a vertex in the gap's left side.
const Ring kVertexAcross = {{0, 0}, {17, 0}, {17, 5}, {7, 5}, {7, 2}, {3, 2}, {3, 5}, {3, 10}, {0, 10}};
// A U whose arms are alike, 1 wide and 3 high on a strip of 7 by 2.
const Ring kTwins = {{0, 0}, {7, 0}, {7, 5}, {6, 5}, {6, 2}, {1, 2}, {1, 5}, {0, 5}};
const Ring kTwinsClockwise = {{0, 0}, {0, 5}, {1, 5}, {1, 2}, {6, 2}, {6, 5}, {7, 5}, {7, 0}};
// The same below a bar, with an arm on it that ends in a hook. The hook's tip hangs down to y = 8, where 9 lie above the arm.
const Ring kHook = {{0, 0}, {3, 0}, {3, 2}, {7, 2}, {7, 0}, {17, 0}, {17, 5},
                    {3, 5}, {3, 9}, {4, 9}, {4, 8}, {5, 8}, {5, 10}, {0, 10}};
// Seen from (0, 0), the side from (4, 2) to (2, 1) comes straight on.
const Ring kStraightOn = {{0, 0}, {8, 0}, {8, 2}, {4, 2}, {2, 1}, {0, 8}};
const Ring kC = {{0, 0},   {100, 0}, {100, 10}, {20, 10}, {20, 50}, {78, 50},
                 {78, 60}, {55, 60}, {55, 62},  {45, 62}, {45, 60}, {0, 60}};

Request request(Cut cut, std::size_t index, std::vector<Amount> amounts, Measured measured = kHere)
{
    Request made;
    made.line.cut = cut;
    made.line.index = index;
    made.amounts = std::move(amounts);
    made.measured = measured;
    return made;
}

// With CFrazArea's own answer beside the division.
Division compared(const Ring& ring, Request wanted)
{
    wanted.ask_library = true;
    return divide(ring, wanted);
}

struct CutRow {
    const char* what;
    const Ring& ring;
    Request request;
    PL_PNT2D_record from;
    PL_PNT2D_record to;
};

const CutRow kCuts[] = {
    {"parallel", kLot, request(Cut::parallel, 0, {area(1000)}), {0, 10}, {100, 10}},
    {"parallel, a product", kLot, request(Cut::parallel, 0, {product(100, 10)}), {0, 10}, {100, 10}},
    {"parallel, a share", kLot, request(Cut::parallel, 0, {share(20, 100)}), {0, 10}, {100, 10}},
    {"parallel to the second side", kLot, request(Cut::parallel, 1, {area(1000)}), {80, 0}, {80, 50}},
    {"parallel, beyond", kLot, request(Cut::parallel, 0, {area(1000)}, kThere), {0, 40}, {100, 40}},
    {"perpendicular", kLot, request(Cut::perpendicular, 0, {area(1000)}), {80, 0}, {80, 50}},
    {"perpendicular, past the middle", kLot, request(Cut::perpendicular, 0, {area(4000)}), {20, 0}, {20, 50}},
    {"perpendicular, at the middle", kLot, request(Cut::perpendicular, 0, {area(2500)}), {50, 0}, {50, 50}},
    {"perpendicular, behind", kLot, request(Cut::perpendicular, 0, {area(1000)}, kThere), {20, 0}, {20, 50}},
    {"vertex", kLot, request(Cut::through_vertex, 0, {area(1000)}), {0, 0}, {100, 20}},
    {"vertex, the other side", kLot, request(Cut::through_vertex, 0, {area(1000)}, kThere), {0, 0}, {40, 50}},
    {"vertex to vertex", kLot, request(Cut::through_vertex, 0, {area(2500)}), {0, 0}, {100, 50}},
    {"clockwise, parallel", kLotClockwise, request(Cut::parallel, 0, {area(500)}), {10, 0}, {10, 50}},
    {"clockwise, perpendicular",
     kLotClockwise,
     request(Cut::perpendicular, 0, {area(1000)}),
     {0, 40},
     {100, 40}},
    {"clockwise, vertex", kLotClockwise, request(Cut::through_vertex, 0, {area(500)}), {0, 0}, {20, 50}},
    {"L, with what is behind the side", kL, request(Cut::parallel, 2, {area(3400)}), {100, 30}, {0, 30}},
    {"L, to the re-entrant corner",
     kL,
     request(Cut::perpendicular, 4, {area(2400)}, kThere),
     {40, 40},
     {40, 0}},
    {"U, across the strip", kU, request(Cut::parallel, 0, {area(2000)}), {0, 20}, {100, 20}},
    {"U, the arm whose line is nearer",
     kUnevenU,
     request(Cut::parallel, 0, {area(100)}, kThere),
     {30, 30},
     {40, 30}},
    {"C, two lines as near: the one that the side comes to first",
     kC,
     request(Cut::perpendicular, 8, {area(400)}, kThere),
     {60, 10},
     {60, 0}},
    {"U, across the strip before the nearer arm",
     kLowU,
     request(Cut::parallel, 2, {share(10, 12)}),
     {8, 0.625},
     {0, 0.625}},
    {"at the level of a vertex on the other side of a gap",
     kVertexAcross,
     request(Cut::parallel, 0, {area(73)}),
     {0, 5},
     {3, 5}},
    {"at the level of a tip that hangs down: just below, the line meets the parcel there only",
     kHook,
     request(Cut::parallel, 0, {area(86)}),
     {0, 8},
     {3, 8}},
    {"vertex, past a side that comes straight on",
     kStraightOn,
     request(Cut::through_vertex, 0, {area(16)}),
     {0, 0},
     {1, 4.5}},
    {"vertex, short of it", kStraightOn, request(Cut::through_vertex, 0, {area(10)}), {0, 0}, {6, 2}},
    {"two tips as high: the one on the left", kTwins, request(Cut::parallel, 0, {area(19)}), {0, 4}, {1, 4}},
    {"the same clockwise", kTwinsClockwise, request(Cut::parallel, 7, {area(19)}), {1, 4}, {0, 4}},
    {"U, one arm's tip off", kU, request(Cut::parallel, 0, {area(7000)}), {0, 80}, {30, 80}},
};

TEST(Division, FindsTheLine)
{
    for (const CutRow& row : kCuts) {
        SCOPED_TRACE(row.what);
        const Division division = divide(row.ring, row.request);
        EXPECT_EQ(division.status, Status::divided) << describe(division.status);
        if (division.lines.size() != 1 || division.pieces.size() != 2)
            continue;
        EXPECT_POINT(division.lines[0].from, (row.from));
        EXPECT_POINT(division.lines[0].to, (row.to));
        EXPECT_BITS(division.pieces[0].residual, 0.0);
        EXPECT_BITS(division.pieces[1].residual, 0.0);
        EXPECT_BITS(division.pieces[0].area, division.pieces[0].asked);
        EXPECT_BITS(division.pieces[0].area + division.pieces[1].area, division.ring.area);
    }
}

// Up to its re-entrant corners an arm of the U holds 1800, and a wedge of the L 1200. A billionth of the U is 7.6e-6,
// of the L 6.4e-6.
TEST(Division, ALineThatBelongsAtAVertexGoesThere)
{
    const Ring to_the_decimetre = {{0, 0}, {60.1, 0}, {60.1, 20.1}, {40.3, 20.1}, {40.3, 50.2}, {0, 50.2}};
    const CutRow rows[] = {
        {"doubles hold 5e-17 less up to the corner",
         to_the_decimetre,
         request(Cut::parallel, 0, {area(1208.01)}),
         {0, 20.1},
         {40.3, 20.1}},
        {"along the floor's far side, which is not the lines' own",
         kL,
         request(Cut::parallel, 0, {area(4000)}),
         {0, 40},
         {40, 40}},
        {"just less than a billionth too much",
         kU,
         request(Cut::parallel, 0, {area(1800.0000075)}, kThere),
         {0, 40},
         {30, 40}},
        {"the same from a vertex",
         kL,
         request(Cut::through_vertex, 1, {area(1200.0000063)}),
         {100, 0},
         {40, 40}},
    };
    for (const CutRow& row : rows) {
        SCOPED_TRACE(row.what);
        const Division division = divide(row.ring, row.request);
        ASSERT_EQ(division.status, Status::divided) << describe(division);
        EXPECT_POINT(division.lines[0].from, (row.from));
        EXPECT_POINT(division.lines[0].to, (row.to));
    }
    EXPECT_EQ(divide(kU, request(Cut::parallel, 0, {area(1800.0000077)}, kThere)).status,
              Status::line_leaves_parcel);
    EXPECT_EQ(divide(kL, request(Cut::through_vertex, 1, {area(1200.0000065)})).status,
              Status::line_leaves_parcel);
}

TEST(Division, TheWholeParcelIsTooMuchHoweverItIsSaid)
{
    const Ring triangle = {{-18.535025382192728, 43.324551290358166},
                           {43.304300846685635, -5.1382467886298002},
                           {-7.7591347769279011, -49.287684788839144}};
    const double whole = plparcel::check_ring(triangle).area;
    for (const Amount& amount : {share(6, 6), share(7, 7), share(10, 9), area(whole)})
        EXPECT_EQ(divide(triangle, request(Cut::parallel, 0, {amount})).status, Status::amount_too_large);
    const Division thirds = divide(triangle, request(Cut::parallel, 0, {share(2, 3), share(1, 3), area(1)}));
    EXPECT_EQ(thirds.status, Status::amount_too_large);
    EXPECT_EQ(thirds.at_amount, 1U);
}

// At 5e5 there are 16 doubles for one at 5e6. A parcel of 0.13 across, in halves.
TEST(Division, TheFinerAxisIsUsedWhereTheCoarserOneCannotHold)
{
    const Ring ring = {{505920.83025423501, 5046082.9372970602}, {505920.80931969569, 5046082.9363120683},
                       {505920.80637674703, 5046082.9355209619}, {505920.78580248245, 5046082.9113715328},
                       {505920.78106889268, 5046082.8910925072}, {505920.80062363954, 5046082.8874178743},
                       {505920.82559251331, 5046082.8971765675}};
    const Division division = divide(ring, request(Cut::parallel, 1, {share(10, 11)}));
    ASSERT_EQ(division.status, Status::divided) << describe(division);
    EXPECT_NEAR(division.pieces[0].residual, 0.0, 1e-9 * division.ring.area);
    EXPECT_NEAR(division.pieces[1].residual, 0.0, 1e-9 * division.ring.area);
}

PL_PNT2D_record turned(const PL_PNT2D_record& p)
{
    return {0.0 - p.y, p.x};
}

Ring turned(const Ring& ring)
{
    Ring out;
    for (const PL_PNT2D_record& p : ring)
        out.push_back(turned(p));
    return out;
}

TEST(Division, FindsTheLineWhicheverWayTheParcelLies)
{
    for (const CutRow& row : kCuts) {
        SCOPED_TRACE(row.what);
        Ring ring = row.ring;
        PL_PNT2D_record from = row.from;
        PL_PNT2D_record to = row.to;
        for (int quarters = 1; quarters < 4; ++quarters) {
            SCOPED_TRACE(quarters);
            ring = turned(ring);
            from = turned(from);
            to = turned(to);
            const Division division = divide(ring, row.request);
            ASSERT_EQ(division.status, Status::divided) << describe(division.status);
            EXPECT_POINT(division.lines[0].from, (from));
            EXPECT_POINT(division.lines[0].to, (to));
        }
    }
}

struct RefusalRow {
    const char* what;
    Ring ring;
    Request request;
    Status status;
};

const RefusalRow kRefusals[] = {
    {"no ring", {}, request(Cut::parallel, 0, {area(1)}), Status::unusable_boundary},
    {"a NaN", {{0, 0}, {1, 0}, {kNan, 1}}, request(Cut::parallel, 0, {area(1)}), Status::unusable_boundary},
    {"a bow tie",
     {{0, 0}, {1, 1}, {1, 0}, {0, 1}},
     request(Cut::parallel, 0, {area(1)}),
     Status::unusable_boundary},
    {"an unknown cut", kLot, request(static_cast<Cut>(99), 0, {area(1)}), Status::unknown_request},
    {"an unknown measure", kLot, request(Cut::parallel, 0, {area(1)}, static_cast<Measured>(2)),
     Status::unknown_request},
    {"an unknown amount", kLot, request(Cut::parallel, 0, {{static_cast<plparcel::Given>(99), 1, 1}}),
     Status::unknown_request},
    {"side 4 of 4", kLot, request(Cut::parallel, 4, {area(1)}), Status::no_such_index},
    {"vertex 4 of 4", kLot, request(Cut::through_vertex, 4, {area(1)}), Status::no_such_index},
    {"a side from a vertex to its repetition",
     {{0, 0}, {9, 0}, {9, 0}, {9, 9}},
     request(Cut::parallel, 1, {area(1)}),
     Status::side_without_length},
    {"the side that closes a closed ring",
     {{0, 0}, {9, 0}, {9, 9}, {0, 0}},
     request(Cut::perpendicular, 3, {area(1)}),
     Status::side_without_length},
    {"no amount", kLot, request(Cut::parallel, 0, {}), Status::no_amount},
    {"an amount of nothing", kLot, request(Cut::parallel, 0, {area(0)}), Status::amount_too_small},
    {"everything", kLot, request(Cut::parallel, 0, {area(5000)}), Status::amount_too_large},
    {"more than that", kLot, request(Cut::through_vertex, 0, {area(5001)}), Status::amount_too_large},
    {"an amount that is not a number", kLot, request(Cut::parallel, 0, {area(kNan)}),
     Status::unusable_amount},
    {"L, less than what is behind", kL, request(Cut::parallel, 2, {area(2399)}), Status::base_reaches_behind},
    {"L, beyond, so that less is left", kL, request(Cut::parallel, 2, {area(4001)}, kThere),
     Status::base_reaches_behind},
    {"U, half and a bit: both arms would be cut", kU, request(Cut::parallel, 0, {area(5000)}),
     Status::line_leaves_parcel},
    {"U, along the floor of the gap", kU, request(Cut::parallel, 0, {area(4000)}),
     Status::line_leaves_parcel},
    {"U, more than the 1998 behind the side, yet both arms would be cut",
     {{0, 0}, {63, 0}, {63, -54}, {100, -54}, {100, 100}, {70, 100}, {70, 40}, {30, 40}, {30, 100}, {0, 100}},
     request(Cut::parallel, 0, {area(7000)}),
     Status::line_leaves_parcel},
    {"U, a hair more than an arm", kU, request(Cut::parallel, 0, {area(1800.001)}, kThere),
     Status::line_leaves_parcel},
    {"L, a hair more than to the re-entrant corner", kL, request(Cut::through_vertex, 1, {area(1200.001)}),
     Status::line_leaves_parcel},
    {"L, the vertex does not see where it should go", kL, request(Cut::through_vertex, 1, {area(2000)}),
     Status::line_leaves_parcel},
    {"a square of 1e-3 at 5e6",
     {{5e6, 5e6}, {5e6 + 0x1p-10, 5e6}, {5e6 + 0x1p-10, 5e6 + 0x1p-10}, {5e6, 5e6 + 0x1p-10}},
     request(Cut::parallel, 0, {share(1, 3)}),
     Status::not_reached},
    {"a piece smaller than doubles can tell",
     {{5e6, 5e6}, {5e6 + 8, 5e6}, {5e6 + 8, 5e6 + 8}, {5e6, 5e6 + 8}},
     request(Cut::parallel, 0, {area(1e-9)}),
     Status::not_reached},
};

TEST(Division, RefusesWithAReason)
{
    for (const RefusalRow& row : kRefusals) {
        SCOPED_TRACE(row.what);
        const Division division = divide(row.ring, row.request);
        EXPECT_EQ(division.status, row.status) << describe(division.status);
        Ring ring = row.ring;
        for (int quarters = 1; quarters < 4; ++quarters) {
            ring = turned(ring);
            EXPECT_EQ(divide(ring, row.request).status, row.status) << quarters << " quarters turned";
        }
        if (division.status == Status::divided)
            continue;
        EXPECT_TRUE(division.lines.empty());
        EXPECT_TRUE(division.pieces.empty());
    }
}

// A third of the lot ends at 16.666..., which no decimals hold: lines are found and cannot be rounded so well.
TEST(Division, OfLinesThatCannotBeRoundedNothingIsLeft)
{
    Request thirds = request(Cut::parallel, 0, equal_parts(3));
    thirds.rounding.decimals = 2;
    thirds.rounding.tolerance = 1e-30;
    const Division division = divide(kLot, thirds);
    EXPECT_EQ(division.status, Status::not_reached) << describe(division);
    EXPECT_EQ(division.at_amount, 0U);
    EXPECT_TRUE(division.lines.empty());
    EXPECT_TRUE(division.pieces.empty());
    EXPECT_TRUE(division.held.empty());
    EXPECT_FALSE(division.decimals);
}

TEST(Division, EveryStatusHasItsWords)
{
    std::set<std::string> all;
    for (int i = 0; i <= static_cast<int>(Status::not_reached) + 1; ++i)
        all.insert(describe(static_cast<Status>(i)));
    EXPECT_EQ(all.size(), static_cast<std::size_t>(Status::not_reached) + 2);
    all.clear();
    for (int i = 0; i <= static_cast<int>(BoundaryStatus::hole_in_hole) + 1; ++i)
        all.insert(describe(static_cast<BoundaryStatus>(i)));
    EXPECT_EQ(all.size(), static_cast<std::size_t>(BoundaryStatus::hole_in_hole) + 2);
}

TEST(Division, IsDescribedByWhatIsWrong)
{
    EXPECT_STREQ(describe(divide({{0, 0}, {1, 1}, {1, 0}, {0, 1}}, request(Cut::parallel, 0, {area(1)}))),
                 "the boundary crosses or touches itself");
    EXPECT_STREQ(describe(divide(kLot, request(Cut::parallel, 0, {area(5001)}))),
                 "the amount is not below what there is to cut");
}

TEST(Division, OneAfterAnother)
{
    const struct {
        const char* what;
        Request request;
        std::vector<PL_LINE_2D_record> lines;
    } rows[] = {
        {"strips along a side",
         request(Cut::parallel, 0, {area(500), product(20, 30), share(1, 10)}),
         {{{0, 5}, {100, 5}}, {{0, 11}, {100, 11}}, {{0, 16}, {100, 16}}}},
        {"strips from beyond",
         request(Cut::parallel, 0, {area(500), area(600)}, kThere),
         {{{0, 45}, {100, 45}}, {{0, 39}, {100, 39}}}},
        {"slices from the end of a side",
         request(Cut::perpendicular, 0, {area(500), area(3000)}),
         {{{90, 0}, {90, 50}}, {{30, 0}, {30, 50}}}},
        {"slices from its start",
         request(Cut::perpendicular, 0, {area(500), area(3000)}, kThere),
         {{{10, 0}, {10, 50}}, {{70, 0}, {70, 50}}}},
        {"wedges",
         request(Cut::through_vertex, 0, equal_parts(4)),
         {{{0, 0}, {100, 25}}, {{0, 0}, {100, 50}}, {{0, 0}, {50, 50}}}},
        {"wedges from the other side",
         request(Cut::through_vertex, 0, {area(1250), area(1250)}, kThere),
         {{{0, 0}, {50, 50}}, {{0, 0}, {100, 50}}}},
        {"all of it and a hair more: what was asked first is held",
         request(Cut::parallel, 0, {area(2000), area(3000.000004)}),
         {{{0, 20}, {100, 20}}}},
        {"the same from beyond",
         request(Cut::parallel, 0, {area(2000), area(3000.000004)}, kThere),
         {{{0, 30}, {100, 30}}}},
        {"all of it: one line less",
         request(Cut::parallel, 0, {area(2000), area(3000)}),
         {{{0, 20}, {100, 20}}}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        const Division division = compared(kLot, row.request);
        ASSERT_EQ(division.status, Status::divided) << describe(division.status);
        ASSERT_EQ(division.lines.size(), row.lines.size());
        ASSERT_EQ(division.pieces.size(), row.lines.size() + 1);
        EXPECT_EQ(division.bare.size(), row.lines.size());
        EXPECT_EQ(division.trials, row.lines.size());
        double sum = 0.0;
        for (std::size_t i = 0; i < row.lines.size(); ++i) {
            EXPECT_POINT(division.lines[i].from, (row.lines[i].start));
            EXPECT_POINT(division.lines[i].to, (row.lines[i].end));
        }
        for (const plparcel::Piece& piece : division.pieces) {
            EXPECT_NEAR(piece.area, piece.asked, piece.asked > 3000.0 ? 5e-6 : 5e-12);
            sum += piece.area;
        }
        EXPECT_NEAR(sum, 5000.0, 1e-11);
    }
}

TEST(Division, ASeriesThatCannotBeFinishedNamesTheAmount)
{
    // The strip of the U holds 4000; half of the rest is in two arms.
    const Division division = compared(kU, request(Cut::parallel, 0, {area(1000), area(1000), area(3000)}));
    EXPECT_EQ(division.status, Status::line_leaves_parcel);
    EXPECT_EQ(division.at_amount, 2U);
    EXPECT_TRUE(division.lines.empty());
    EXPECT_TRUE(division.pieces.empty());
    EXPECT_EQ(division.bare.size(), 3U);

    const Division too_much = compared(kU, request(Cut::parallel, 0, {area(7000), area(700)}));
    EXPECT_EQ(too_much.status, Status::amount_too_large);
    EXPECT_EQ(too_much.at_amount, 1U);
    EXPECT_TRUE(too_much.bare.empty());
}

TEST(Division, PiecesRunAsTheParcelAndShareTheLine)
{
    const Division division = divide(kLotClockwise, request(Cut::parallel, 0, {area(500)}));
    ASSERT_EQ(division.pieces.size(), 2U);
    const Ring& first = division.pieces[0].ring;
    ASSERT_EQ(first.size(), 4U);
    EXPECT_POINT(first[0], ({10, 0}));
    EXPECT_POINT(first[1], ({0, 0}));
    EXPECT_POINT(first[2], ({0, 50}));
    EXPECT_POINT(first[3], ({10, 50}));
    const Ring& second = division.pieces[1].ring;
    ASSERT_EQ(second.size(), 4U);
    EXPECT_POINT(second[0], ({10, 50}));
    EXPECT_POINT(second[1], ({100, 50}));
    EXPECT_POINT(second[2], ({100, 0}));
    EXPECT_POINT(second[3], ({10, 0}));
    EXPECT_FALSE(division.ring.anticlockwise);
}

TEST(Division, RepeatedAndClosingVerticesDoNoHarm)
{
    const Ring messy = {{0, 0}, {0, 0}, {100, 0}, {100, 50}, {100, 50}, {0, 50}, {0, 0}};
    const struct {
        Cut cut;
        std::size_t index;
        PL_PNT2D_record from;
        PL_PNT2D_record to;
    } rows[] = {
        {Cut::parallel, 1, {0, 10}, {100, 10}},       {Cut::parallel, 5, {10, 50}, {10, 0}},
        {Cut::perpendicular, 4, {20, 50}, {20, 0}},   {Cut::through_vertex, 0, {0, 0}, {100, 20}},
        {Cut::through_vertex, 1, {0, 0}, {100, 20}},  {Cut::through_vertex, 6, {0, 0}, {100, 20}},
        {Cut::through_vertex, 4, {100, 50}, {0, 30}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.index);
        const Division division =
            divide(messy, request(row.cut, row.index,
                                  {area(row.cut == Cut::parallel && row.index == 5 ? 500 : 1000)}));
        ASSERT_EQ(division.status, Status::divided) << describe(division.status);
        EXPECT_EQ(division.ring.repeated, 2U);
        EXPECT_TRUE(division.ring.closed);
        EXPECT_POINT(division.lines[0].from, (row.from));
        EXPECT_POINT(division.lines[0].to, (row.to));
    }
}

TEST(Division, AVertexOnTheLineIsItsEnd)
{
    const Ring ring = {{0, 0}, {100, 0}, {100, 10}, {100, 50}, {0, 50}, {0, 10}};
    const Division division = divide(ring, request(Cut::parallel, 0, {area(1000)}));
    ASSERT_EQ(division.status, Status::divided);
    EXPECT_POINT(division.lines[0].from, ({0, 10}));
    EXPECT_POINT(division.lines[0].to, ({100, 10}));
    EXPECT_EQ(division.pieces[0].ring.size(), 4U);
    EXPECT_EQ(division.pieces[1].ring.size(), 4U);
}

TEST(Division, BaseSidesOfAnyLength)
{
    // From a micrometre to most of the parcel; CFrazArea alone needs 3.2e-4.
    for (const double length : {1e-6, 1e-5, 1e-4, 3e-4, 1e-3, 1.0, 90.0}) {
        SCOPED_TRACE(length);
        const Ring ring = {{0, 0}, {length, 0}, {100, 40}, {50, 90}, {-20, 30}};
        for (const Cut cut : {Cut::parallel, Cut::perpendicular}) {
            const Division division = divide(ring, request(cut, 0, {share(1, 3)}));
            EXPECT_EQ(division.status, Status::divided) << describe(division.status);
        }
    }
}

TEST(Division, ParcelsOfAnySize)
{
    for (int exponent = -290; exponent <= 290; exponent += 20) {
        SCOPED_TRACE(exponent);
        Ring ring = {{0, 0}, {103, 11}, {87, 61}, {13, 47}};
        for (PL_PNT2D_record& p : ring)
            p = {std::ldexp(p.x, exponent), std::ldexp(p.y, exponent)};
        for (const Cut cut : {Cut::parallel, Cut::perpendicular, Cut::through_vertex}) {
            const Division division = divide(ring, request(cut, 0, {share(2, 7)}));
            ASSERT_EQ(division.status, Status::divided) << describe(division.status);
            EXPECT_LE(std::fabs(division.pieces[0].residual), 1e-15 * division.ring.area);
        }
    }
}

TEST(Division, ALineThroughAVertexStartsThere)
{
    // A strip at UTM coordinates, where some requests can be written down and some cannot.
    const Ring far = {{500000.3, 5.5e6}, {500003.1, 5500000.1}, {500002.9, 5500000.3}, {500000.1, 5500000.2}};
    int divided = 0;
    for (std::size_t vertex = 0; vertex < far.size(); ++vertex) {
        for (int percent = 1; percent < 100; ++percent) {
            const Division division =
                divide(far, request(Cut::through_vertex, vertex, {share(percent, 100)}));
            if (division.status != Status::divided) {
                EXPECT_EQ(division.status, Status::not_reached);
                continue;
            }
            ++divided;
            EXPECT_POINT(division.lines[0].from, (far[vertex]));
        }
    }
    EXPECT_GT(divided, 100);
    EXPECT_LT(divided, 390);

    // And so does every line of a series: moved, the start leaves a dent that the next line touches.
    const Ring wider = {
        {500000.3, 5.5e6}, {500003.1, 5500000.7}, {500002.9, 5500000.9}, {500000.1, 5500000.4}};
    const Division parts = divide(wider, request(Cut::through_vertex, 0, equal_parts(20)));
    ASSERT_EQ(parts.status, Status::divided);
    for (const plparcel::DividingLine& line : parts.lines)
        EXPECT_POINT(line.from, (wider[0]));
}

TEST(Division, NearlyNothingAndNearlyEverything)
{
    for (const Cut cut : {Cut::parallel, Cut::perpendicular, Cut::through_vertex}) {
        for (const double part : {1e-3, 1e-6, 1e-9, 1e-11}) {
            SCOPED_TRACE(part);
            const Division little = divide(kLot, request(cut, 0, {share(part, 1)}));
            EXPECT_EQ(little.status, Status::divided);
            const Division most = divide(kLot, request(cut, 0, {share(part, 1)}, kThere));
            EXPECT_EQ(most.status, Status::divided);
        }
    }
    // What is left must be held to a hundredth of itself. 9.1e-15 below y = 50 is no double, 1.8e-14 right of
    // x = 0 is one.
    const Amount all_but_nothing = area(5000.0 * (1.0 - 0x1p-53));
    EXPECT_EQ(divide(kLot, request(Cut::parallel, 0, {all_but_nothing})).status, Status::not_reached);
    EXPECT_EQ(divide(kLot, request(Cut::perpendicular, 0, {all_but_nothing})).status, Status::divided);
}

TEST(Division, KeepsTheBareAnswer)
{
    const Division division = compared(kLot, request(Cut::parallel, 0, {area(1000)}));
    ASSERT_EQ(division.bare.size(), 1U);
    EXPECT_TRUE(division.bare[0].done);
    EXPECT_NEAR(division.bare[0].line.start.y, 10.0, 1e-4);  // within a millionth of the request
    EXPECT_NEAR(division.bare[0].line.end.y, 10.0, 1e-4);
    EXPECT_NE(division.bare[0].line.start.y, 10.0);
    EXPECT_TRUE(division.lines[0].library_agrees);
    EXPECT_FALSE(division.lines[0].meets_again);
    EXPECT_EQ(division.trials, 1U);
    const Division not_asked = divide(kLot, request(Cut::parallel, 0, {area(1000)}));
    EXPECT_TRUE(not_asked.bare.empty());
    EXPECT_FALSE(not_asked.lines[0].library_agrees);

    const Division swept = compared(kU, request(Cut::parallel, 0, {area(7000)}));
    ASSERT_EQ(swept.status, Status::divided);
    EXPECT_TRUE(swept.bare[0].done);
    EXPECT_FALSE(swept.lines[0].library_agrees);
    EXPECT_TRUE(swept.lines[0].meets_again);
}

TEST(Division, AProlongationThatOnlyTouchesDoesNotMeetAgain)
{
    // A C. From (-10, -30) the line runs up to (-10, 10), and prolonged along a side at either end.
    const Ring c = {{0, 10}, {-10, 10}, {-10, 30}, {-30, 30}, {-30, -30}, {-10, -30}, {-10, -40}, {0, -40}};
    const Division along = divide(c, request(Cut::through_vertex, 5, {area(1200)}, kThere));
    ASSERT_EQ(along.status, Status::divided);
    EXPECT_POINT(along.lines[0].to, ({-10, 10}));
    EXPECT_FALSE(along.lines[0].meets_again);
    // One arm of the U; the other has its tip at the level of the line, or a unit above.
    for (const double tip : {60.0, 61.0}) {
        SCOPED_TRACE(tip);
        const Ring u = {{0, 0}, {100, 0}, {100, tip}, {70, tip}, {70, 40}, {30, 40}, {30, 100}, {0, 100}};
        const Division cut = divide(u, request(Cut::parallel, 0, {area(1200)}, kThere));
        ASSERT_EQ(cut.status, Status::divided);
        EXPECT_POINT(cut.lines[0].to, ({30, 60}));
        EXPECT_EQ(cut.lines[0].meets_again, tip > 60.0);
    }
    // The other arm is a gable that reaches the line, but for roundings: four spacings are 8.9e-14. It is 1.5 times as wide
    // there as its tip lies above the line.
    for (const double above : {0.0, 0x1p-47, 0x1p-43}) {
        SCOPED_TRACE(above);
        const Ring left = {{0, 0}, {100, 0}, {85, 60 + above}, {70, 40}, {30, 40}, {30, 100}, {0, 100}};
        const Ring right = {{0, 0}, {100, 0}, {100, 100}, {70, 100}, {70, 40}, {30, 40}, {15, 60 + above}};
        for (const Ring& ring : {left, right}) {
            const Division cut = divide(ring, request(Cut::parallel, 0, {area(1200)}, kThere));
            ASSERT_EQ(cut.status, Status::divided);
            EXPECT_EQ(cut.lines[0].from.y, 60.0);
            EXPECT_EQ(cut.lines[0].meets_again, above == 0x1p-43);
        }
    }
}

TEST(Division, FoundByTheSearchFromEitherSideAndWhereItIsFarOff)
{
    for (const Cut cut : {Cut::parallel, Cut::perpendicular, Cut::through_vertex}) {
        const Division beyond = compared(kLot, request(cut, 0, {area(1000)}, kThere));
        ASSERT_EQ(beyond.status, Status::divided);
        EXPECT_TRUE(beyond.lines[0].library_agrees);
    }
    // In the tip of a triangle a millionth of the rest is millimetres, and as many units in the parcel's frame.
    const Ring triangle = {{0, 0}, {100, 0}, {0, 100}};
    const Division tip = compared(triangle, request(Cut::parallel, 0, {share(1.0 - 1e-8, 1)}));
    ASSERT_EQ(tip.status, Status::divided);
    EXPECT_TRUE(tip.bare[0].done);
    EXPECT_GT(std::fabs(tip.bare[0].line.start.y - tip.lines[0].from.y), 1e-3);
    EXPECT_TRUE(tip.lines[0].library_agrees);
}

// The line before is the next one's base side, and is turned onto the axes as the first side was.
TEST(Division, FoundByTheSearchInASeriesThoughNearlyAlongTheAxes)
{
    for (const double tilt : {-1e-9, 1e-9}) {
        Ring ring;
        for (const PL_PNT2D_record& p : {PL_PNT2D_record{0, 0}, {73.3, 0}, {73.3, 52}, {0, 52}})
            ring.push_back({100 + p.x - tilt * p.y, 100 + p.y + tilt * p.x});
        for (std::size_t side = 0; side < ring.size(); ++side) {
            for (int per_mille = 2; per_mille < 330; per_mille += 2) {
                SCOPED_TRACE(std::to_string(side) + ", " + std::to_string(per_mille) + " of 1000");
                const Amount amount = share(per_mille, 1000);
                const Division division =
                    compared(ring, request(Cut::parallel, side, {amount, amount, amount}));
                ASSERT_EQ(division.status, Status::divided);
                for (const plparcel::DividingLine& line : division.lines)
                    EXPECT_TRUE(line.library_agrees);
            }
        }
    }
}

// Of sides 1e-9 rad off the axes CFrazArea loses some lines, shares of nearly a half among them, unless the parcel is
// turned onto them first.
TEST(Division, FoundByTheSearchThoughNearlyAlongTheAxes)
{
    for (const double tilt : {-1e-9, 1e-9}) {
        Ring ring;
        for (const PL_PNT2D_record& p : {PL_PNT2D_record{0, 0}, {73.3, 0}, {73.3, 52}, {0, 52}})
            ring.push_back({100 + p.x - tilt * p.y, 100 + p.y + tilt * p.x});
        for (const Cut cut : {Cut::parallel, Cut::perpendicular}) {
            for (std::size_t side = 0; side < ring.size(); ++side) {
                for (int per_mille = 2; per_mille < 500; ++per_mille) {
                    SCOPED_TRACE(std::to_string(side) + ", " + std::to_string(per_mille) + " of 1000");
                    const Division division = compared(ring, request(cut, side, {share(per_mille, 1000)}));
                    ASSERT_EQ(division.status, Status::divided);
                    EXPECT_TRUE(division.lines[0].library_agrees);
                }
            }
        }
    }
}

// Turned the wrong way, a side a hair off a diagonal would come to lie twice as far off an axis.
TEST(Division, FoundByTheSearchThoughNearlyAlongADiagonal)
{
    for (const double tilt : {-1.6e-11, 1.6e-11}) {
        for (const double eighths : {1.0, 3.0, 5.0, 7.0}) {
            const double direction = eighths * std::atan(1.0) + tilt;
            const double c = std::cos(direction);
            const double s = std::sin(direction);
            Ring ring;
            for (const PL_PNT2D_record& p : {PL_PNT2D_record{0, 0}, {100, 0}, {100, 60}, {70, 90}, {0, 60}})
                ring.push_back({c * p.x - s * p.y, s * p.x + c * p.y});
            for (const Cut cut : {Cut::parallel, Cut::perpendicular}) {
                SCOPED_TRACE(std::to_string(eighths) + " of eight, " + std::to_string(tilt * 1e11));
                const Division division = compared(ring, request(cut, 0, {share(1, 4)}));
                ASSERT_EQ(division.status, Status::divided);
                EXPECT_TRUE(division.lines[0].library_agrees);
            }
        }
    }
}

// As off the axes, so off the diagonals, whichever way the ring runs.
TEST(Division, FoundByTheSearchWhateverTheShareNearlyAlongADiagonal)
{
    for (const double eighths : {1.0, 3.0, 5.0, 7.0}) {
        for (const double tilt : {-1e-9, 1e-9}) {
            const double c = std::cos(eighths * std::atan(1.0) + tilt);
            const double s = std::sin(eighths * std::atan(1.0) + tilt);
            Ring ring;
            for (const PL_PNT2D_record& p : {PL_PNT2D_record{0, 0}, {73.3, 0}, {73.3, 52}, {0, 52}})
                ring.push_back({100 + c * p.x - s * p.y, 100 + s * p.x + c * p.y});
            for (const bool is_clockwise : {false, true}) {
                const Ring run = is_clockwise ? test::reversed(ring) : ring;
                for (const Cut cut : {Cut::parallel, Cut::perpendicular}) {
                    for (int per_mille = 2; per_mille < 500; per_mille += 3) {
                        SCOPED_TRACE(std::to_string(eighths) + ", " + std::to_string(is_clockwise) + ", " +
                                     std::to_string(per_mille) + " of 1000");
                        const Division division = compared(run, request(cut, 0, {share(per_mille, 1000)}));
                        ASSERT_EQ(division.status, Status::divided);
                        EXPECT_TRUE(division.lines[0].library_agrees);
                    }
                }
            }
        }
    }
}

TEST(Division, FoundByTheSweepWhereTheSearchEndedNearby)
{
    // The search ends at y = 1.15, across both arms and 97 units of the parcel's frame off.
    const Ring u = {{0, 0}, {13, 0}, {13, 2}, {8, 2}, {8, 1}, {4, 1}, {4, 2}, {0, 2}};
    const Division division = compared(u, request(Cut::perpendicular, 3, {share(1, 2)}));
    ASSERT_EQ(division.status, Status::divided);
    EXPECT_TRUE(division.bare[0].done);
    EXPECT_NEAR(division.bare[0].line.start.y, 1.0 + 2.0 / 13.0, 1e-3);
    EXPECT_NEAR(division.lines[0].from.y, 11.0 / 13.0, 1e-15);
    EXPECT_FALSE(division.lines[0].library_agrees);
}

// 27 + 8 + 6 lie below 5, where one arm ends. The search's line runs along that end and across the gap; the one that
// divides crosses the other arm only: one end of it is an end of the other.
TEST(Division, FoundByTheSweepWhereOneEndOfTheSearchedLineIsFarOff)
{
    const Ring right_arm = {{0, 0}, {9, 0}, {9, 8}, {6, 8}, {6, 3}, {4, 3}, {4, 5}, {0, 5}};
    const Ring left_arm = {{0, 0}, {9, 0}, {9, 5}, {5, 5}, {5, 3}, {3, 3}, {3, 8}, {0, 8}};
    const struct {
        Ring ring;
        Cut cut;
        std::size_t side;
        double left;
        bool begins_on_the_right;
    } rows[] = {{right_arm, Cut::parallel, 0, 6.0, true},
                {test::reversed(right_arm), Cut::perpendicular, 6, 6.0, false},
                {left_arm, Cut::parallel, 0, 0.0, true}};
    for (const auto& row : rows) {
        SCOPED_TRACE(std::to_string(row.side) + ", from x = " + std::to_string(row.left));
        const Division division = compared(row.ring, request(row.cut, row.side, {area(41)}));
        ASSERT_EQ(division.status, Status::divided);
        ASSERT_TRUE(division.bare[0].done);
        const PL_LINE_2D_record& searched = division.bare[0].line;
        EXPECT_NEAR(searched.start.x, row.begins_on_the_right ? 9.0 : 0.0, 1e-3);
        EXPECT_NEAR(searched.end.x, row.begins_on_the_right ? 0.0 : 9.0, 1e-3);
        EXPECT_NEAR(searched.start.y, 5.0, 1e-3);
        const plparcel::DividingLine& line = division.lines[0];
        EXPECT_NEAR(std::min(line.from.x, line.to.x), row.left, 1e-15);
        EXPECT_NEAR(std::max(line.from.x, line.to.x), row.left + 3.0, 1e-15);
        EXPECT_NEAR(line.from.y, 5.0, 1e-15);
        EXPECT_FALSE(line.library_agrees);
    }
}

TEST(Division, ResidualIsThatOfTheUnroundedNumbers)
{
    // The line lies at the double next to 50 / 3; the strip's area and a third of the lot round to the same one.
    const Division division = divide(kLot, request(Cut::parallel, 0, {share(1, 3)}));
    ASSERT_EQ(division.status, Status::divided);
    const double height = 50.0 / 3.0;
    const double too_high = std::fma(3.0, height, -50.0) / 3.0;
    EXPECT_BITS(division.lines[0].from.y, height);
    EXPECT_BITS(division.pieces[0].area, division.pieces[0].asked);
    EXPECT_NEAR(division.pieces[0].residual, 100.0 * too_high, 1e-15 * std::fabs(too_high) * 100.0);
    EXPECT_NE(division.pieces[0].residual, 0.0);
}

TEST(Division, LinesToAReentrantCornerOfAnyDirection)
{
    // An L on the lattice, its arm widening up to a height, turned by (a, b). A line that cuts off more than the
    // arm leaves it, so that the one to the corner is found from one side only, however the share of the slanted
    // side at which its other end lies is rounded.
    for (int height = 4; height <= 30; ++height) {
        for (int a = 1; a <= 7; ++a) {
            const int b = 8 - a;
            SCOPED_TRACE(std::to_string(height) + ", " + std::to_string(a));
            const auto at = [&](int i, int j) {
                return PL_PNT2D_record{1.0 * (i * a - j * b), 1.0 * (i * b + j * a)};
            };
            const Ring ring = {at(0, 0), at(15, 0), at(15, 3), at(3, 3), at(3, height), at(-height, height)};
            const double arm = 0.5 * (6 + 3 + height) * (height - 3) * (a * a + b * b);
            const Division division = divide(ring, request(Cut::parallel, 0, {area(arm)}, kThere));
            ASSERT_EQ(division.status, Status::divided) << describe(division.status);
            EXPECT_POINT(division.lines[0].from, (at(-3, 3)));
            EXPECT_POINT(division.lines[0].to, (at(3, 3)));
        }
    }
}

TEST(Division, LineThatMeetsTheParcelAgain)
{
    // From the L's re-entrant corner the line goes on along a side, outside of what is ahead; that is not again.
    EXPECT_FALSE(divide(kU, request(Cut::parallel, 0, {area(2000)})).lines.at(0).meets_again);
    EXPECT_FALSE(divide(kL, request(Cut::perpendicular, 4, {area(2400)}, kThere)).lines.at(0).meets_again);
    EXPECT_TRUE(divide(kU, request(Cut::parallel, 2, {area(900)})).lines.at(0).meets_again);
    // The end lies a hair beyond a corner, and so is the corner: the side before it is not met again.
    const Ring tall = {{2, 0}, {0, 0}, {0, 5}, {1, 5}, {1, 1}, {2, 1}};
    const Division to_corner =
        divide(tall, request(Cut::through_vertex, 1, {area(std::nextafter(5.0, 6.0))}));
    ASSERT_EQ(to_corner.status, Status::divided);
    EXPECT_POINT(to_corner.lines[0].to, ({2, 1}));
    EXPECT_FALSE(to_corner.lines[0].meets_again);
}

}  // namespace
