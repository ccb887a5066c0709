// The plan: its scale to the dot, what is where on the sheet, labels that do not cover each other, and files that
// are whole or not there.

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <thread>

#include <gdal_priv.h>
#include <sys/stat.h>

#include "answers/division_points.h"
#include "plan/details.h"
#include "plan/drawing.h"
#include "plan/drawn_sheet.h"
#include "plan/labels.h"
#include "plan/layout.h"
#include "plan/plan.h"
#include "plan/tables.h"
#include "program.h"
#include "shapes.h"
#include "sheet/geometry.h"
#include "sheet/label_places.h"
#include "text/numbers.h"

namespace {

using tool::LabelPlaces;
using tool::Paper;
using tool::PlanLayout;
using tool::SheetBox;
using tool::SheetPoint;

constexpr double kMillimetre = 72.0 / 25.4;

const auto kFoot = [](const SheetBox&) { return 74.0; };

// ------------------------------------------------------------------------------------------------------ layout

TEST(PlanLayout, RoundNumbers)
{
    struct Row {
        double value, length, denominator;
    };
    for (const Row& row : {Row{1.0, 1.0, 1.0},
                           {1.01, 1.0, 1.5},
                           {1.6, 1.0, 2.0},
                           {2.1, 2.0, 2.5},
                           {2.6, 2.0, 5.0},
                           {5.0, 5.0, 5.0},
                           {5.1, 5.0, 10.0},
                           {9.99, 5.0, 10.0},
                           {740.0, 500.0, 1000.0},
                           {0.03, 0.02, 0.05}}) {
        EXPECT_NEAR(tool::round_length(row.value), row.length, 1e-12 * row.length) << row.value;
        EXPECT_NEAR(tool::round_denominator(row.value), row.denominator, 1e-12 * row.denominator)
            << row.value;
    }
}

TEST(PlanLayout, LiesTheWayTheParcelDoesAndIsTrueToScale)
{
    const plparcel::Ring wide = {{500000, 5000000}, {500200, 5000000}, {500200, 5000080}, {500000, 5000080}};
    const PlanLayout layout(wide, 1.0, Paper::a4, kFoot);
    EXPECT_NEAR(layout.sheet().x, 297.0 * kMillimetre, 1e-9);
    EXPECT_NEAR(layout.sheet().y, 210.0 * kMillimetre, 1e-9);
    EXPECT_EQ(layout.denominator(), 1000.0);
    // 200 metres at 1:1000 are 200 millimetres.
    EXPECT_NEAR(layout.at(wide[1]).x - layout.at(wide[0]).x, 200.0 * kMillimetre, 1e-6);
    EXPECT_NEAR(layout.at(wide[0]).y - layout.at(wide[3]).y, 80.0 * kMillimetre, 1e-6);

    const plparcel::Ring tall = {{0, 0}, {80, 0}, {80, 200}, {0, 200}};
    const PlanLayout upright(tall, 1.0, Paper::a3, kFoot);
    EXPECT_NEAR(upright.sheet().x, 297.0 * kMillimetre, 1e-9);
    EXPECT_NEAR(upright.sheet().y, 420.0 * kMillimetre, 1e-9);
    // A foot is 0.3048 metres.
    const PlanLayout feet(tall, 0.3048, Paper::a4, kFoot);
    EXPECT_NEAR(feet.at(tall[0]).y - feet.at(tall[3]).y, 200.0 * 304.8 / feet.denominator() * kMillimetre,
                1e-6);
    // 200 by 80 feet are 60.96 by 24.38 metres. Lying, 245 by 110 millimetres are free for them: 1:249 at most.
    const PlanLayout wide_feet(wide, 0.3048, Paper::a4, kFoot);
    EXPECT_EQ(wide_feet.denominator(), 250.0);
    EXPECT_NEAR(wide_feet.at(wide[1]).x - wide_feet.at(wide[0]).x, 60960.0 / 250.0 * kMillimetre, 1e-6);
}

TEST(PlanLayout, EveryParcelFitsWithRoomForItsLabels)
{
    for (const double size : {1e-4, 0.3, 7.0, 99.0, 1234.0, 1e5}) {
        for (const double ratio : {0.01, 0.5, 1.0, 3.0, 100.0}) {
            for (const Paper paper : {Paper::a4, Paper::a3}) {
                const plparcel::Ring ring = {{0, 0}, {size, 0}, {size, size * ratio}, {0, size * ratio}};
                const PlanLayout layout(ring, 1.0, paper, [](const SheetBox&) { return 120.0; });
                const SheetPoint low = layout.at(ring[0]);
                const SheetPoint high = layout.at(ring[2]);
                const double room = 15.0 * kMillimetre;
                EXPECT_GE(low.x, layout.drawing().left + room);
                EXPECT_LE(high.x, layout.drawing().right - room);
                EXPECT_LE(low.y, layout.drawing().bottom - room);
                EXPECT_GE(high.y, layout.drawing().top + room);
            }
        }
    }
}

TEST(PlanLayout, WhereAnOblongParcelBeginsMakesNoDifference)
{
    for (const double height : {80.0, 500.0}) {
        plparcel::Ring ring = {{0, 0}, {200, 0}, {200, height}, {0, height}};
        const PlanLayout first(ring, 1.0, Paper::a4, kFoot);
        EXPECT_EQ(first.sheet().x > first.sheet().y, height < 200.0);
        for (std::size_t i = 1; i < ring.size(); ++i) {
            std::rotate(ring.begin(), ring.begin() + 1, ring.end());
            const PlanLayout other(ring, 1.0, Paper::a4, kFoot);
            EXPECT_EQ(other.sheet().x, first.sheet().x);
            EXPECT_EQ(other.sheet().y, first.sheet().y);
            EXPECT_EQ(other.denominator(), first.denominator());
            EXPECT_EQ(other.at({0, 0}).x, first.at({0, 0}).x);
            EXPECT_EQ(other.at({0, 0}).y, first.at({0, 0}).y);
        }
    }
}

TEST(PlanLayout, PaperHasItsName)
{
    EXPECT_EQ(tool::paper_of("A4"), Paper::a4);
    EXPECT_EQ(tool::paper_of("a3"), Paper::a3);
    EXPECT_FALSE(tool::paper_of("A5"));
    EXPECT_STREQ(tool::paper_name(Paper::a3), "A3");
}

// ------------------------------------------------------------------------------------------------------ labels

TEST(LabelPlaces, TakesTheFirstThatIsFree)
{
    LabelPlaces places({0, 0, 100, 100});
    const SheetPoint size = {20, 10};
    EXPECT_EQ(places.first_free({{50, 50}}, size)->x, 50);
    EXPECT_FALSE(places.first_free({{50, 50}, {60, 55}}, size)) << "covered by the first";
    EXPECT_EQ(places.first_free({{50, 50}, {70.5, 50}}, size)->x, 70.5);
    EXPECT_FALSE(places.first_free({{95, 20}}, size)) << "over the edge";
    EXPECT_EQ(places.first_free({{50, 60.5}}, size)->y, 60.5);
}

TEST(LabelPlaces, LeavesLinesFreeWhereItCan)
{
    LabelPlaces places({0, 0, 100, 100});
    places.add_line({0, 50}, {100, 50});
    EXPECT_EQ(places.first_free({{50, 50}, {50, 70}}, {20, 10})->y, 70);
    EXPECT_EQ(places.first_free({{20, 50}}, {20, 10})->y, 50) << "where it cannot, it crosses";
    EXPECT_FALSE(places.first_free({{80, 50}}, {20, 10}, 0.0, false));
}

TEST(LabelPlaces, CountsTheLinesInTheWay)
{
    LabelPlaces places({0, 0, 100, 100});
    places.add_line({0, 50}, {100, 50});
    places.add_line({0, 60}, {40, 60});
    EXPECT_EQ(places.crossings({20, 40}, {20, 70}), 2u);
    EXPECT_EQ(places.crossings({20, 40}, {80, 70}), 1u) << "past the end of the second";
    EXPECT_EQ(places.crossings({20, 40}, {20, 45}), 0u);
    EXPECT_EQ(places.crossings({20, 55}, {80, 55}), 0u) << "between the two";
}

TEST(LabelPlaces, SegmentsAndBoxes)
{
    const SheetBox box = {10, 10, 20, 20};
    EXPECT_TRUE(tool::runs_through({0, 15}, {30, 15}, box));
    EXPECT_TRUE(tool::runs_through({12, 12}, {13, 13}, box)) << "inside";
    EXPECT_TRUE(tool::runs_through({0, 0}, {30, 30}, box));
    EXPECT_FALSE(tool::runs_through({0, 5}, {30, 5}, box)) << "above";
    EXPECT_FALSE(tool::runs_through({0, 15}, {9, 15}, box)) << "ends before";
    EXPECT_FALSE(tool::runs_through({0, 19}, {12, 31}, box)) << "past the corner";
    const SheetBox turned = tool::label_box({0, 0}, {20, 10}, 1.5707963267948966);
    EXPECT_NEAR(turned.width(), 10, 1e-9);
    EXPECT_NEAR(turned.height(), 20, 1e-9);
}

TEST(LabelPlaces, ReadFromBelowOrFromTheRight)
{
    const struct {
        SheetPoint to;  // from the origin; down the sheet is positive
        double angle;
    } rows[] = {{{10, 0}, 0.0},
                {{10, 10}, 0.25 * M_PI},
                {{-10, 10}, -0.25 * M_PI},
                {{-10, 0}, 0.0},
                {{-10, -10}, 0.25 * M_PI},
                {{10, -10}, -0.25 * M_PI},
                {{0, 10}, -0.5 * M_PI},
                {{0, -10}, -0.5 * M_PI},
                {{1e-8, 10}, -0.5 * M_PI},
                {{-1e-8, -10}, -0.5 * M_PI}};
    for (const auto& row : rows)
        EXPECT_NEAR(tool::reading_angle({0, 0}, row.to), row.angle, 1e-8) << row.to.x << " " << row.to.y;
}

TEST(LabelPlaces, AroundAPointStraightOnFirst)
{
    const std::vector<SheetPoint> places = tool::places_around({50, 50}, {0, -1}, 10);
    ASSERT_EQ(places.size(), 30u) << "ten directions, at three distances";
    EXPECT_NEAR(places[0].x, 50, 1e-9);
    EXPECT_NEAR(places[0].y, 40, 1e-9);
    // A twelfth of a turn to either side.
    EXPECT_NEAR(places[2].x, 55, 1e-9);
    EXPECT_NEAR(places[3].x, 45, 1e-9);
    EXPECT_NEAR(places[2].y, 50 - 5 * std::sqrt(3.0), 1e-9);
    const double distances[] = {10, 15, 22};
    for (std::size_t i = 0; i < places.size(); ++i)
        EXPECT_NEAR(tool::length_of({places[i].x - 50, places[i].y - 50}), distances[i / 10], 1e-9);
}

TEST(LabelPlaces, TurnedTextTakesItsOwnWidth)
{
    // 40 by 10 upright, in the middle of a sheet of 30 by 60: it has room, and a level label beside it has.
    LabelPlaces places({0, 0, 30, 60});
    EXPECT_TRUE(places.first_free_along({{15, 30}}, {40, 10}, 0.5 * M_PI, true));
    EXPECT_FALSE(places.first_free({{15, 30}}, {6, 6})) << "in the middle";
    EXPECT_FALSE(places.first_free({{15, 13}}, {6, 6})) << "at its end";
    EXPECT_FALSE(places.first_free({{15, 47}}, {6, 6})) << "at its other end";
    EXPECT_TRUE(places.first_free({{15, 54}}, {6, 6})) << "beyond it";
    EXPECT_TRUE(places.first_free({{5, 30}}, {6, 6})) << "beside it";
    EXPECT_FALSE(places.first_free_along({{15, 30}}, {64, 5}, 0.5 * M_PI, true)) << "longer than the sheet";
}

TEST(LabelPlaces, TextAlongALineTakesItsOwnRoom)
{
    // 40 by 10: four fifths of its height are taken, and its width in five squares of that height. Lines stay as far from
    // it as is asked for.
    struct Row {
        SheetPoint from;
        SheetPoint to;
        double gap;
        bool is_free;
    };
    for (const Row& row : {Row{{30, 53.9}, {70, 53.9}, 0.0, false},
                           {{30, 54.1}, {70, 54.1}, 0.0, true},
                           {{30, 45.9}, {70, 45.9}, 0.0, true},
                           {{69.9, 40}, {69.9, 60}, 0.0, false},
                           {{70.1, 40}, {70.1, 60}, 0.0, true},
                           {{29.9, 40}, {29.9, 60}, 0.0, true},
                           {{30, 55.4}, {70, 55.4}, 1.5, false},
                           {{30, 55.6}, {70, 55.6}, 1.5, true},
                           {{71.4, 40}, {71.4, 60}, 1.5, false},
                           {{71.6, 40}, {71.6, 60}, 1.5, true}}) {
        LabelPlaces places({0, 0, 100, 100});
        places.add_line(row.from, row.to);
        EXPECT_EQ(places.first_free_along({{50, 50}}, {40, 10}, 0.0, false, row.gap).has_value(), row.is_free)
            << row.from.x << " " << row.from.y;
    }
    // What is taken has no gap.
    LabelPlaces places({0, 0, 100, 100});
    ASSERT_TRUE(places.first_free_along({{50, 50}}, {40, 10}, 0.0, true, 1.5));
    EXPECT_FALSE(places.first_free({{50, 55.9}}, {4, 4}));
    EXPECT_TRUE(places.first_free({{50, 56.1}}, {4, 4}));
    EXPECT_TRUE(places.first_free({{72.1, 50}}, {4, 4}));
}

// The lines in the way are looked up in cells: of a line from corner to corner every place is found.
TEST(LabelPlaces, SeesALineWhereverItRuns)
{
    for (double along = 4.0; along < 200.0; along += 7.0) {
        LabelPlaces places({0, 0, 200, 100});
        places.add_line({200, 0}, {0, 100});
        const double y = 100 - 0.5 * along;
        EXPECT_FALSE(places.first_free({{along, y}}, {6, 3}, 0.0, false)) << along;
        EXPECT_TRUE(places.first_free({{along, y < 50 ? y + 20 : y - 20}}, {2, 2}, 0.0, false)) << along;
    }
    LabelPlaces outside({0, 0, 100, 100});
    outside.add_line({-50, 20}, {-1, 20});
    outside.add_line({20, 101}, {90, 140});
    EXPECT_TRUE(outside.first_free({{10, 20}}, {20, 10}, 0.0, false)) << "it ends left of the sheet";
    EXPECT_TRUE(outside.first_free({{50, 95}}, {20, 10}, 0.0, false)) << "it runs below";
    // A line that begins on the sheet is seen as far as its edge.
    for (const SheetPoint& end : {SheetPoint{50, -60}, {50, 160}, {-60, 50}, {160, 50}}) {
        LabelPlaces over_the_edge({0, 0, 100, 100});
        over_the_edge.add_line({50, 50}, end);
        const SheetPoint on_it = {0.75 * 50 + 0.25 * end.x, 0.75 * 50 + 0.25 * end.y};
        EXPECT_FALSE(over_the_edge.first_free({on_it}, {6, 6}, 0.0, false)) << end.x << " " << end.y;
    }
}

TEST(LabelPlaces, SeesLabelsInTheWay)
{
    LabelPlaces places({0, 0, 100, 100});
    places.take({40, 40, 60, 50});
    EXPECT_FALSE(places.is_clear({50, 0}, {50, 100}));
    EXPECT_TRUE(places.is_clear({50, 0}, {50, 39}));
    EXPECT_TRUE(places.is_clear({0, 55}, {100, 55}));
}

TEST(SheetGeometry, PlacesInsideRoomiestFirst)
{
    // An L: the middle of its box is outside, and neither arm has room for more than 10.
    const std::vector<SheetPoint> outline = {{0, 0}, {20, 0}, {20, 80}, {100, 80}, {100, 100}, {0, 100}};
    const std::vector<tool::RoomyPlace> places = tool::roomy_places(outline);
    ASSERT_FALSE(places.empty());
    for (std::size_t i = 0; i < places.size(); ++i) {
        EXPECT_TRUE(tool::is_inside(outline, places[i].at));
        if (i > 0) {
            EXPECT_LE(places[i].room, places[i - 1].room);
        }
    }
    EXPECT_GT(places[0].room, 9.0);
    EXPECT_LE(places[0].room, 14.2) << "in the corner";
    // Where there is room enough, in the middle.
    const std::vector<tool::RoomyPlace> roomy = tool::roomy_places({{0, 0}, {200, 0}, {200, 100}, {0, 100}});
    EXPECT_NEAR(roomy[0].at.x, 100, 4.0);
    EXPECT_NEAR(roomy[0].at.y, 50, 2.0);
    EXPECT_NEAR(roomy[0].room, 50, 2.0);
}

TEST(LabelPlaces, TextAlongALineCoversNothing)
{
    LabelPlaces places({0, 0, 100, 100});
    places.add_line({0, 0}, {100, 100});
    EXPECT_FALSE(places.first_free_along({{50, 50}}, {30, 6}, 0.0, false)) << "across the line";
    EXPECT_TRUE(places.first_free_along({{50, 50}, {60, 44}}, {30, 6}, 0.785398, false)) << "beside it";
    places.take_along({0, 80}, {40, 80}, 2.0);
    EXPECT_FALSE(places.first_free({{20, 80}}, {10, 6}));
    EXPECT_TRUE(places.first_free({{20, 90}}, {10, 6}));
}

TEST(SheetGeometry, ClippedToABox)
{
    const SheetBox box = {0, 0, 10, 10};
    EXPECT_TRUE(box.holds(SheetPoint{0, 0}) && box.holds(SheetPoint{10, 10})) << "its edges are of it";
    const std::vector<SheetPoint> corner = tool::clipped({{5, 5}, {1e9, 5}, {1e9, 1e9}, {5, 1e9}}, box);
    ASSERT_EQ(corner.size(), 4u);
    for (const SheetPoint& p : corner) {
        EXPECT_TRUE(p.x >= 5 && p.x <= 10 && p.y >= 5 && p.y <= 10) << p.x << " " << p.y;
    }
    EXPECT_TRUE(tool::clipped({{20, 20}, {30, 20}, {30, 30}}, box).empty());
    const auto line = tool::clipped_line({-10, 5}, {30, 5}, box);
    ASSERT_TRUE(line);
    EXPECT_EQ(line->first.x, 0);
    EXPECT_EQ(line->second.x, 10);
    EXPECT_FALSE(tool::clipped_line({-10, 5}, {5, -11}, box)) << "past the corner";
    EXPECT_TRUE(tool::clipped_line({2, 2}, {3, 3}, box)) << "inside";
}

TEST(SheetGeometry, HatchLinesStayInTheOutline)
{
    const std::vector<SheetPoint> square = {{10, 10}, {30, 10}, {30, 30}, {10, 30}};
    const auto level = tool::hatch_lines(square, 0.0, 5.0, {0, 0, 100, 100});
    ASSERT_GE(level.size(), 3u);
    ASSERT_LE(level.size(), 5u);
    for (const auto& [from, to] : level) {
        EXPECT_NEAR(from.x, 10, 1e-9);
        EXPECT_NEAR(to.x, 30, 1e-9);
        EXPECT_NEAR(from.y, to.y, 1e-9);
    }
    // At 15, 20, 25 and 30.
    EXPECT_EQ(tool::hatch_lines({{11, 11}, {31, 11}, {31, 31}, {11, 31}}, 0.0, 5.0, {0, 0, 100, 100}).size(),
              4u);
    for (const auto& [from, to] : tool::hatch_lines(square, 0.7, 2.0, {0, 0, 20, 100}))
        for (const SheetPoint& p : {from, to})
            EXPECT_TRUE(p.x > 9.999 && p.y > 9.999 && p.y < 30.001) << p.x << " " << p.y;
    EXPECT_LT(
        tool::hatch_lines({{-1e9, -1e9}, {1e9, -1e9}, {1e9, 1e9}, {-1e9, 1e9}}, 0.7, 5.0, {0, 0, 100, 100})
            .size(),
        40u)
        << "only what shows";
}

// ------------------------------------------------------------------------------------------ the division's plan

// The plan of a parcel that is divided.
tool::Plan plan_of_ring(const plparcel::Ring& ring, plparcel::Cut cut, long long number, std::size_t parts)
{
    tool::Asked asked;
    asked.request.line.cut = cut;
    asked.request.amounts = plparcel::equal_parts(parts);
    asked.number = number;
    asked.amounts.assign(parts - 1, "1/" + std::to_string(parts));
    tool::Parcel parcel;
    parcel.place = {"lot.csv", ""};
    parcel.ring = ring;
    return tool::plan_of(tool::answer(parcel, asked));
}

plparcel::Ring regular(int corners, double radius)
{
    plparcel::Ring ring;
    for (int i = 0; i < corners; ++i)
        ring.push_back({radius * std::cos(2.0 * 3.14159265 * i / corners),
                        radius * std::sin(2.0 * 3.14159265 * i / corners)});
    return ring;
}

const plparcel::Ring kField = {{0, 0}, {90, 0}, {90, 50}, {0, 50}};

tool::WithoutLabel without_label(const tool::Plan& plan)
{
    tool::Canvas canvas;
    const PlanLayout layout(plan.corners.at, 1.0, Paper::a4, [](const SheetBox&) { return 120.0; });
    return tool::PlanLabels(plan, layout.view(), canvas).draw();
}

TEST(PlanLabels, EverythingIsLabelledWhereThereIsRoom)
{
    for (const std::size_t parts : {2U, 3U, 5U}) {
        for (const plparcel::Cut cut : {plparcel::Cut::parallel, plparcel::Cut::perpendicular}) {
            const tool::WithoutLabel without = without_label(plan_of_ring(kField, cut, 1, parts));
            EXPECT_TRUE(without.new_points.empty());
            EXPECT_TRUE(without.pieces.empty());
            EXPECT_EQ(without.corners, 0u);
            EXPECT_EQ(without.lengths, 0u) << parts;
        }
    }
}

TEST(PlanLabels, TwentyStripsHaveTheirNames)
{
    for (const plparcel::Cut cut : {plparcel::Cut::parallel, plparcel::Cut::perpendicular}) {
        const tool::WithoutLabel without = without_label(plan_of_ring(kField, cut, 1, 20));
        EXPECT_TRUE(without.new_points.empty());
        EXPECT_TRUE(without.pieces.empty());
    }
}

TEST(PlanLabels, PiecesThatAreTooThinHaveHairLines)
{
    const plparcel::Ring path = {{0, 0}, {500, 300}, {500, 308}, {0, 8}};
    EXPECT_TRUE(without_label(plan_of_ring(path, plparcel::Cut::parallel, 2, 9)).pieces.empty());
}

// Names and lengths of so many corners have no room; the table has them.
TEST(PlanLabels, FiveHundredCornersDoNotCoverEachOther)
{
    const tool::WithoutLabel without =
        without_label(plan_of_ring(regular(500, 100), plparcel::Cut::parallel, 1, 4));
    EXPECT_TRUE(without.pieces.empty());
    EXPECT_GT(without.corners, 300u);
    EXPECT_LT(without.corners, 480u) << "tens and fives have theirs";
}

// 20 along the first side.
tool::Plan with_a_thin_strip(const plparcel::Ring& ring)
{
    tool::Asked asked;
    asked.request.amounts = {plparcel::area(20)};
    asked.number = 1;
    asked.amounts = {"20"};
    tool::Parcel parcel;
    parcel.ring = ring;
    return tool::plan_of(tool::answer(parcel, asked));
}

TEST(PlanDetails, EnlargeWhatIsTooThin)
{
    const tool::Plan plan = with_a_thin_strip({{0, 0}, {120, 0}, {120, 80}, {0, 80}});
    const PlanLayout layout(plan.corners.at, 1.0, Paper::a4, [](const SheetBox&) { return 120.0; });
    const tool::PlanDetails details(plan, layout, {});
    ASSERT_EQ(details.all().size(), 2u) << "at both ends of the line";
    EXPECT_EQ(details.sheets(), 1u);
    for (std::size_t i = 0; i < 2; ++i) {
        const tool::View view = details.view(layout, i);
        const SheetPoint corner = view.at({details.all()[i].middle.x, 0.0});
        const SheetPoint end = view.at({details.all()[i].middle.x, 20.0 / 120.0});
        EXPECT_TRUE(view.box.holds(corner) && view.box.holds(end));
        EXPECT_GT(corner.y - end.y, 20.0) << "points that the eye tells apart";
        EXPECT_LT(details.all()[i].denominator, layout.denominator());
    }
    EXPECT_TRUE(
        tool::PlanDetails(plan_of_ring(kField, plparcel::Cut::parallel, 1, 3), layout, {}).all().empty());

    // Two beside each other on a sheet that stands, three on one that lies, with gaps of 14 points around them.
    const auto beside_each_other = [](const PlanLayout& on, const tool::SheetBox& box) {
        return (on.frame().width() - 14.0) / (box.width() + 14.0);
    };
    ASSERT_GT(layout.sheet().y, layout.sheet().x);
    EXPECT_NEAR(beside_each_other(layout, details.view(layout, 0).box), 2.0, 1e-9);
    const tool::Plan wide = with_a_thin_strip({{0, 0}, {240, 0}, {240, 40}, {0, 40}});
    const PlanLayout lying(wide.corners.at, 1.0, Paper::a4, [](const SheetBox&) { return 120.0; });
    ASSERT_GT(lying.sheet().x, lying.sheet().y);
    const tool::PlanDetails on_lying(wide, lying, {});
    ASSERT_EQ(on_lying.all().size(), 2u);
    EXPECT_NEAR(beside_each_other(lying, on_lying.view(lying, 0).box), 3.0, 1e-9);
    EXPECT_LT(on_lying.view(lying, 0).box.right, on_lying.view(lying, 1).box.left);
}

// A strip of a sixth along a side in the direction (4, 3): at each end the corner and the end of the line, whose middle is
// half of the sixth away from the side.
TEST(PlanDetails, HaveTheirPointsInTheMiddle)
{
    const tool::Plan plan = with_a_thin_strip({{0, 0}, {96, 72}, {48, 136}, {-48, 64}});
    const PlanLayout layout(plan.corners.at, 1.0, Paper::a4, [](const SheetBox&) { return 120.0; });
    const tool::PlanDetails details(plan, layout, {});
    ASSERT_EQ(details.all().size(), 2u);
    for (const tool::Detail& detail : details.all()) {
        const bool first = detail.middle.x < 48.0;
        EXPECT_NEAR(detail.middle.x, (first ? 0.0 : 96.0) - 0.05, 1e-3);
        EXPECT_NEAR(detail.middle.y, (first ? 0.0 : 72.0) + 0.2 / 3.0, 1e-3);
        EXPECT_EQ(detail.radius, 7.0) << "a mark is never smaller";
    }
}

// At the top two pairs of corners, farther apart than what shares a detail; the ends of two lines between them are near to
// both. At the bottom are the lines alone. 20 points are 7 metres here.
TEST(PlanDetails, ShareWhatLiesBetweenThem)
{
    tool::Asked asked;
    asked.request.line.cut = plparcel::Cut::perpendicular;
    asked.request.amounts = {plparcel::area(5000), plparcel::area(80)};
    asked.number = 1;
    asked.amounts = {"5000", "80"};
    tool::Parcel parcel;
    for (const bool clockwise : {false, true}) {
        parcel.ring = {{0, 0},      {120, 0},    {120, 80},   {62.25, 80},
                       {61.25, 80}, {52.25, 80}, {51.25, 80}, {0, 80}};
        if (clockwise)
            std::reverse(parcel.ring.begin(), parcel.ring.end());
        const tool::Answer answer = tool::answer(parcel, asked);
        ASSERT_TRUE(answer.printed.done());
        const tool::Plan plan = tool::plan_of(answer);
        const PlanLayout layout(plan.corners.at, 1.0, Paper::a4, [](const SheetBox&) { return 120.0; });
        ASSERT_EQ(layout.denominator(), 1000.0);
        const tool::PlanDetails details(plan, layout, {});
        ASSERT_EQ(details.all().size(), 2u);
        // Its points take at most 0.55 of the window, by its smaller side; the scale is the largest round one.
        const tool::SheetBox window = details.view(layout, 0).box;
        const double room = 0.55 * std::min(window.width(), window.height());
        for (const tool::Detail& detail : details.all()) {
            const bool top = detail.middle.y > 40.0;
            EXPECT_TRUE(!top ||
                        detail.denominator == tool::round_denominator(1000.0 * 11.0 * kMillimetre / room))
                << detail.denominator;
            EXPECT_NEAR(detail.middle.x, top ? 56.75 : 57.0, 1e-3);
            EXPECT_NEAR(detail.middle.y, top ? 80.0 : 0.0, 1e-3);
            // Half of 11 metres, and 4 points around them.
            EXPECT_NEAR(detail.radius, top ? 5.5 * kMillimetre + 4.0 : 7.0, 1e-3);
        }
    }
}

// ------------------------------------------------------------------------------------------------- the tables

using Cells = std::vector<std::string>;

TEST(PlanTables, HoldEveryFigureOfTheDrawing)
{
    const std::vector<tool::PlanTable> tables =
        tool::tables_of(plan_of_ring(kField, plparcel::Cut::perpendicular, 1, 3));
    ASSERT_EQ(tables.size(), 4u);
    EXPECT_EQ(tables[0].title, "Pieces");
    EXPECT_EQ(
        tables[0].rows,
        (std::vector<Cells>{
            {"A", "1500", "1/3"}, {"B", "1500", "1/3"}, {"C", "1500", "rest"}, {"Parcel", "4500", ""}}));
    EXPECT_EQ(tables[1].title, "Dividing lines");
    EXPECT_EQ(tables[1].rows,
              (std::vector<Cells>{{"P1 \u2013 P2", "50.00", "0.0000"}, {"P3 \u2013 P4", "50.00", "0.0000"}}));
    EXPECT_EQ(tables[2].title, "Cut sides");
    EXPECT_EQ(tables[2].rows, (std::vector<Cells>{{"1 \u2013 2", "90.00"}, {"3 \u2013 4", "90.00"}}));
    EXPECT_EQ(tables[3].title, "Points around the parcel");
    EXPECT_EQ(tables[3].rows, (std::vector<Cells>{{"1", "0.0000", "0.0000", "30.00"},
                                                  {"P3", "30.0000", "0.0000", "30.00"},
                                                  {"P1", "60.0000", "0.0000", "30.00"},
                                                  {"2", "90.0000", "0.0000", "50.00"},
                                                  {"3", "90.0000", "50.0000", "30.00"},
                                                  {"P2", "60.0000", "50.0000", "30.00"},
                                                  {"P4", "30.0000", "50.0000", "30.00"},
                                                  {"4", "0.0000", "50.0000", "50.00"}}));
}

TEST(PlanTables, LargeAreasAreInHectaresOrAcresToo)
{
    tool::Plan plan = plan_of_ring({{0, 0}, {900, 0}, {900, 500}, {0, 500}}, plparcel::Cut::parallel, 1, 2);
    EXPECT_EQ(tool::tables_of(plan)[0].heads, (Cells{"Piece", "Area", "asked"})) << "nobody knows the unit";
    plan.unit = {"m", 1.0};
    EXPECT_EQ(tool::tables_of(plan)[0].heads, (Cells{"Piece", "Area [m\u00b2]", "[ha]", "asked"}));
    EXPECT_EQ(tool::tables_of(plan)[0].rows[0], (Cells{"A", "225000", "22.5000", "1/2"}));
    EXPECT_EQ(tool::tables_of(plan).back().heads, (Cells{"Point", "E", "N", "to next [m]"}));
    plan.unit = {"US ft", 1200.0 / 3937.0};
    EXPECT_EQ(tool::tables_of(plan)[0].rows[0], (Cells{"A", "225000", "5.1653", "1/2"}));
}

tool::PlanTable table_of(const std::string& title, std::size_t rows)
{
    return {title, {"Point", "E"}, std::vector<Cells>(rows, {"P1", "123456.0000"})};
}

TEST(TableSetter, SetsEveryRowOnce)
{
    tool::Canvas canvas;
    for (const std::size_t rows : {1U, 2U, 5U, 13U, 70U, 1000U, 5000U}) {
        const tool::TableSetter setter({table_of("A", 3), table_of("B", rows)}, canvas);
        tool::TableSetter::Position position;
        std::size_t sheets = 0;
        for (; !setter.is_end(position) && sheets < 100; ++sheets)
            EXPECT_LE(setter.fill(canvas, {0, 0, 500, 600}, position), 600.0);
        EXPECT_TRUE(setter.is_end(position)) << rows;
        EXPECT_LE(sheets, 1 + rows / 150);
    }
    // Narrower than a column: a column all the same.
    const tool::TableSetter setter({table_of("A", 9)}, canvas);
    tool::TableSetter::Position position;
    setter.fill(canvas, {0, 0, 10, 600}, position);
    EXPECT_TRUE(setter.is_end(position));
}

TEST(TableSetter, TakesTheLeastHeight)
{
    tool::Canvas canvas;
    const tool::TableSetter setter({table_of("A", 20)}, canvas);
    const double wide = setter.height_for(500.0, 400.0);
    const double narrow = setter.height_for(120.0, 400.0);
    EXPECT_LT(wide, 0.6 * narrow);
    EXPECT_LT(narrow, 400.0);
    EXPECT_EQ(setter.height_for(120.0, 50.0), 50.0) << "no box takes it";
}

TEST(PlanSheets, TablesAndDetailsGoToFurtherSheets)
{
    EXPECT_EQ(tool::PlanSheets(plan_of_ring(kField, plparcel::Cut::parallel, 1, 3), Paper::a4).count(), 1u);
    const tool::PlanSheets many(plan_of_ring(regular(500, 100), plparcel::Cut::parallel, 1, 4), Paper::a4);
    EXPECT_GE(many.count(), 4u);
    EXPECT_LE(many.count(), 7u);
    EXPECT_EQ(many.files("a/plan.pdf"), (std::vector<std::string>{"a/plan.pdf"}));
    EXPECT_EQ(many.files("a/plan.svg").size(), many.count());
    EXPECT_EQ(many.files("a/plan.svg")[1], "a/plan-2.svg");
}

// ----------------------------------------------------------------------------------------------- the contents

// The plan of a lot of 80 by 50 from which 1000 are cut off.
tool::Plan plan_of_lot(const tool::Place& place, const tool::LengthUnit& unit, plparcel::Cut cut,
                       long long number)
{
    tool::Asked asked;
    asked.request.line.cut = cut;
    asked.request.amounts = {plparcel::area(1000)};
    asked.number = number;
    asked.amounts = {"1000"};
    const tool::Parcel parcel = {place, {{0, 0}, {80, 0}, {80, 50}, {0, 50}}, unit, {}, {}, {}};
    return tool::plan_of(tool::answer(parcel, asked));
}

TEST(PlanContents, TitleIsTheFilesNameAsText)
{
    struct Row {
        tool::Place place;
        const char* title;
    };
    // In Latin-1, as old file names are.
    const std::string latin1 = std::string("Stra\xDF") + "e.csv";
    for (const Row& row : {Row{{"lots/North/lot.csv", ""}, "lot.csv"},
                           {{"lots/lot.gpkg", "feature 3"}, "lot.gpkg: feature 3"},
                           {{"Grünfläche.csv", ""}, "Grünfläche.csv"},
                           {{latin1, ""}, "Stra?e.csv"}})
        EXPECT_EQ(plan_of_lot(row.place, {}, plparcel::Cut::parallel, 1).title, row.title);
}

TEST(PlanContents, TitleAndTablesNameCornersAlike)
{
    tool::Asked asked;
    asked.request.line.cut = plparcel::Cut::through_vertex;
    asked.request.amounts = {plparcel::area(1000)};
    asked.number = 4;
    asked.amounts = {"1000"};
    tool::Parcel parcel;
    parcel.ring = kField;
    parcel.point_names = {"A", "B", "", "Gr\xfcn"};
    EXPECT_EQ(tool::plan_of(tool::answer(parcel, asked)).subtitles[0], "Cut through vertex Gr?n: 1000");
    asked.request.line.cut = plparcel::Cut::parallel;
    asked.number = 2;
    EXPECT_EQ(tool::plan_of(tool::answer(parcel, asked)).subtitles[0],
              "Cut parallel to side 2, from vertex B to vertex 3: 1000");
}

TEST(PlanContents, FiguresHaveTheUnitOfTheCoordinates)
{
    struct Row {
        tool::LengthUnit unit;
        const char* parcel;
        const char* piece;
    };
    for (const Row& row : {Row{{"", 1.0}, "Parcel 4000, perimeter 260.00", "1000"},
                           {{"m", 1.0}, "Parcel 4000 m\u00b2, perimeter 260.00 m", "1000 m\u00b2"},
                           {{"ft", 0.3048}, "Parcel 4000 ft\u00b2, perimeter 260.00 ft", "1000 ft\u00b2"}}) {
        const tool::Plan plan = plan_of_lot({"lot.csv", ""}, row.unit, plparcel::Cut::parallel, 3);
        EXPECT_EQ(plan.subtitles,
                  (std::vector<std::string>{"Cut parallel to side 3, from vertex 3 to vertex 4: 1000",
                                            row.parcel}));
        ASSERT_EQ(plan.pieces.size(), 2u);
        EXPECT_EQ(plan.area_text(plan.pieces[0].area), row.piece);
        EXPECT_EQ(plan.unit.metres, row.unit.metres);
    }
}

// The title block takes 40 characters a line.
TEST(PlanContents, WhatWasAssumedStandsInTheTitleBlockFirst)
{
    tool::Parcel parcel;
    parcel.ring = {{0, 0}, {80, 0}, {80, 50}, {0, 50}};
    parcel.assumed = {"in ab.csv commas stand before the decimals", "X is East"};
    tool::Asked asked;
    asked.request.amounts = {plparcel::area(1000)};
    asked.number = 1;
    asked.amounts = {"1000"};
    tool::PlanWishes wishes;
    wishes.title_block = {{"Client", "Rossi"}};
    using Entries = std::vector<std::pair<std::string, std::string>>;
    EXPECT_EQ(tool::plan_of(tool::answer(parcel, asked), wishes).title_block,
              (Entries{{"Assumed", "in ab.csv commas stand before the"},
                       {"", "decimals"},
                       {"Assumed", "X is East"},
                       {"Client", "Rossi"}}));
}

TEST(PlanContents, AreasAreWholeUnlessAPieceIsSmall)
{
    struct Row {
        double size;
        int decimals;
    };
    // A third of a square.
    for (const Row& row : {Row{100.0, 0}, {5.5, 0}, {5.4, 1}, {1.0, 2}, {0.1, 4}}) {
        const double s = row.size;
        const tool::Plan plan = plan_of_ring({{0, 0}, {s, 0}, {s, s}, {0, s}}, plparcel::Cut::parallel, 1, 3);
        EXPECT_EQ(plan.area_decimals, row.decimals) << s;
    }
}

TEST(PlanContents, AreasHaveNoMoreDecimalsThanThereAre)
{
    const double s = 1e-10;
    const tool::Plan plan = plan_of_ring({{0, 0}, {s, 0}, {s, s}, {0, s}}, plparcel::Cut::parallel, 1, 3);
    EXPECT_EQ(plan.area_decimals, tool::kMaxDecimals);
}

// There and back the same way nothing is enclosed: the outline has the area of the piece.
TEST(PlanContents, OutlinesGoToTheHolesAndBack)
{
    tool::Asked asked;
    asked.request.amounts = {plparcel::share(1, 2)};
    asked.number = 1;
    asked.amounts = {"1/2"};
    tool::Parcel parcel;
    parcel.ring = {{0, 0}, {100, 0}, {100, 100}, {0, 100}};
    parcel.holes = {{{10, 10}, {30, 10}, {30, 20}}, {{60, 20}, {80, 20}, {80, 30}, {60, 30}}};
    const tool::Plan plan = tool::plan_of(tool::answer(parcel, asked));
    ASSERT_EQ(plan.pieces.size(), 2u);
    std::size_t vertices = 0;
    for (const tool::PlanPiece& piece : plan.pieces) {
        EXPECT_NEAR(static_cast<double>(test::area(test::shape_of(piece.ring))), 4850.0, 1e-2);
        vertices += piece.ring.size();
    }
    // Two times four corners, the holes with their first corners once more, and the start after each and at the end.
    EXPECT_EQ(vertices, 4u + 4u + 4u + 5u + 3u);
}

TEST(PlanContents, PartsOfASideAddUp)
{
    const tool::Plan plan = plan_of_ring(kField, plparcel::Cut::perpendicular, 1, 3);
    ASSERT_EQ(plan.sides.size(), 4u);
    ASSERT_EQ(plan.sides[0].parts.size(), 3u);
    EXPECT_EQ(plan.sides[0].whole, "90.00");
    for (const tool::PlanPart& part : plan.sides[0].parts)
        EXPECT_EQ(part.length, "30.00");
    EXPECT_EQ(plan.sides[1].parts.size(), 1u);
}

TEST(PlanContents, TheBaseIsThatOfTheRequest)
{
    using plparcel::Cut;
    for (const Cut cut : {Cut::parallel, Cut::perpendicular}) {
        const tool::Plan side = plan_of_lot({"lot.csv", ""}, {}, cut, 3);
        EXPECT_EQ(side.base_side, 2u);
        EXPECT_FALSE(side.base_vertex);
    }
    const tool::Plan vertex = plan_of_lot({"lot.csv", ""}, {}, Cut::through_vertex, 3);
    EXPECT_EQ(vertex.base_vertex, 2u);
    EXPECT_FALSE(vertex.base_side);
}

// ----------------------------------------------------------------------------------------------- the program

class Plans : public test::ProgramTest {
protected:
    std::string content(const std::string& name) const
    {
        std::ifstream file(path(name), std::ios::binary);
        std::ostringstream text;
        text << file.rdbuf();
        return text.str();
    }

    std::size_t files() const
    {
        std::size_t count = 0;
        for (const auto& entry : std::filesystem::directory_iterator(path("")))
            count += entry.path().filename() != ".out" && entry.path().filename() != ".err";
        return count;
    }
};

const char* const kLot = "POLYGON ((0 0, 80 0, 80 50, 0 50, 0 0))";

// A picture, dot by dot.
class Picture {
public:
    explicit Picture(const std::string& file)
    {
        GDALAllRegister();
        const GDALDatasetUniquePtr picture(GDALDataset::Open(file.c_str(), GDAL_OF_RASTER));
        if (picture == nullptr)
            return;
        width_ = picture->GetRasterXSize();
        height_ = picture->GetRasterYSize();
        dots_.resize(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_) * 3);
        if (picture->RasterIO(GF_Read, 0, 0, width_, height_, dots_.data(), width_, height_, GDT_Byte, 3,
                              nullptr, 3, 3 * width_, 1, nullptr) != CE_None)
            width_ = 0;
    }

    int width() const { return width_; }
    int height() const { return height_; }

    bool is(int x, int y, int red, int green, int blue) const
    {
        const unsigned char* const dot =
            &dots_[(static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) +
                    static_cast<std::size_t>(x)) *
                   3];
        return std::abs(dot[0] - red) <= 2 && std::abs(dot[1] - green) <= 2 && std::abs(dot[2] - blue) <= 2;
    }

private:
    int width_ = 0;
    int height_ = 0;
    std::vector<unsigned char> dots_;
};

// 80 metres at 1:500 are 160 millimetres, 907 dots at 144 to the inch; the strip is 12.5 metres high, 142 dots. The rest
// is hatched on a lighter tint.
TEST_F(Plans, PngIsTrueToScaleAndTinted)
{
    write_wkt(kLot);
    const test::Result run = divide("lot.csv", "--parallel 1 --area 1000 --plan plan.png");
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(test::numbers_after(run.out, "cut off").at(0), 1000.0);
    const Picture plan(path("plan.png"));
    const bool lies = plan.width() == 1684 && plan.height() == 1191;
    ASSERT_TRUE(lies || (plan.width() == 1191 && plan.height() == 1684));
    int strip = 0;
    int rest = 0;
    int line = 0;
    for (int y = 0; y < plan.height(); ++y)
        for (int x = 0; x < plan.width(); ++x) {
            strip += plan.is(x, y, 247, 219, 168);
            rest += plan.is(x, y, 230, 245, 230);
            line += plan.is(x, y, 184, 28, 28);
        }
    const double dots = 144.0 / 0.0254 / 500.0;
    EXPECT_NEAR(strip, 80 * 12.5 * dots * dots, 0.1 * 80 * 12.5 * dots * dots) << "less its label and rims";
    EXPECT_LT(rest, 0.95 * 80 * 37.5 * dots * dots) << "hatched";
    EXPECT_GT(rest, 0.7 * 80 * 37.5 * dots * dots);
    EXPECT_GT(line, 907 * 2) << "the dividing line";
    for (int x = 0; x < plan.width(); ++x)
        ASSERT_TRUE(plan.is(x, 2, 255, 255, 255) && plan.is(x, plan.height() - 3, 255, 255, 255)) << x;
    for (int y = 0; y < plan.height(); ++y)
        ASSERT_TRUE(plan.is(2, y, 255, 255, 255) && plan.is(plan.width() - 3, y, 255, 255, 255)) << y;
}

// Two dots to the point. An outline has all its sides, and a dot its rim.
TEST_F(Plans, APictureHasOutlinesAndDots)
{
    tool::Canvas canvas(path("dots.png"), {100, 100}, "", "dots.png");
    canvas.stroke({{10, 10}, {90, 10}, {90, 90}, {10, 90}}, tool::kInk, 4.0);
    canvas.dot({50, 50}, 20.0, tool::kPaper, tool::kBlue);
    canvas.dot({50, 50}, 10.0, tool::kRed, tool::kRed);
    canvas.finish();
    const Picture picture(path("dots.png"));
    ASSERT_EQ(picture.width(), 200);
    ASSERT_EQ(picture.height(), 200);
    for (const int edge : {20, 179}) {
        EXPECT_TRUE(picture.is(100, edge, 38, 38, 38)) << edge;
        EXPECT_TRUE(picture.is(edge, 100, 38, 38, 38)) << edge;
    }
    EXPECT_TRUE(picture.is(100, 100, 184, 28, 28));
    EXPECT_TRUE(picture.is(130, 100, 255, 255, 255)) << "between the two";
    int rim = 0;
    for (int x = 132; x < 148; ++x)
        rim += !picture.is(x, 100, 255, 255, 255);
    EXPECT_GT(rim, 0);
    EXPECT_TRUE(picture.is(150, 100, 255, 255, 255)) << "beyond it";
}

// Where a text of an SVG begins, and its baseline.
SheetPoint beginning_of(const std::string& text, const std::string& svg)
{
    const std::size_t begin = svg.rfind("<text", svg.find(">" + text + "</text>"));
    const auto number = [&](const char* name) { return std::stod(svg.substr(svg.find(name, begin) + 4)); };
    return {number(" x=\""), number(" y=\"")};
}

// 20 metres at 1:500 are 40 millimetres, 226.8 dots, in four fields: dark, white, dark, white. The bar's right end is
// 10 points from the frame, which leaves 10 millimetres of the sheet free.
TEST_F(Plans, TheScaleBarIsAsLongAsItSays)
{
    write_wkt(kLot);
    ASSERT_EQ(divide("lot.csv", "--parallel 1 --area 1000 --plan plan.png").status, 0);
    const Picture plan(path("plan.png"));
    ASSERT_EQ(plan.width(), 1684);
    const double right = 2.0 * (297.0 / 25.4 * 72.0 - 10.0 / 25.4 * 72.0 - 10.0);
    const double field = 0.25 * 20.0 * 144.0 / 0.0254 / 500.0;
    const auto is_all = [&](int y, int fields_from_right, int grey) {
        const int from = static_cast<int>(right - field * fields_from_right) + 3;
        for (int x = from; x < from + static_cast<int>(field) - 5; ++x)
            if (!plan.is(x, y, grey, grey, grey))
                return false;
        return true;
    };
    int rows = 0;
    for (int y = plan.height() / 2; y < plan.height(); ++y)
        rows += is_all(y, 5, 255) && is_all(y, 4, 38) && is_all(y, 3, 255) && is_all(y, 2, 38) &&
                is_all(y, 1, 255);
    EXPECT_NEAR(rows, 10, 3) << "5 points high";

    ASSERT_EQ(divide("lot.csv", "--parallel 1 --area 1000 --plan plan.svg").status, 0);
    const std::string svg = content("plan.svg");
    const SheetPoint zero = beginning_of("0", svg);
    EXPECT_EQ(zero.y, beginning_of("20", svg).y);
    EXPECT_NEAR(zero.x, 0.5 * (right - 4.0 * field), 3.0) << "its middle is below the left end";
    EXPECT_GT(beginning_of("Pieces", svg).y, 2.0 / 3.0 * 595.0) << "tables stand below the drawing";
}

// Below the drawing, on the right: the bar, then the scale flush with its end, then line by line what the title block
// says. The title stands above the drawing on the left, where the tables begin too.
TEST_F(Plans, EveryLineOfTheSheetHasItsPlace)
{
    write_wkt(kLot);
    ASSERT_EQ(
        divide(
            "lot.csv",
            "--parallel 1 --area 1000 --plan plan.svg --title Client=Rossi --title Project=Hill --paper A4")
            .status,
        0);
    const std::string svg = content("plan.svg");
    const auto width = [&](const std::string& text) {
        const std::size_t begin = svg.rfind("<text", svg.find(">" + text + "</text>"));
        return std::stod(svg.substr(svg.find("textLength=\"", begin) + 12));
    };
    constexpr double kMargin = 10.0 / 25.4 * 72.0;
    const auto paper = [&](const std::string& name) {
        return std::stod(svg.substr(svg.find(" " + name + "=\"") + name.size() + 3));
    };
    const std::size_t scale_at = svg.find(">Scale 1:") + 1;
    const std::string scale = svg.substr(scale_at, svg.find('<', scale_at) - scale_at);
    const double end = beginning_of(scale, svg).x + width(scale);
    EXPECT_NEAR(end, paper("width") - kMargin - 10.0, 0.01);
    const double bar_figures = beginning_of("0", svg).y;
    const std::vector<std::string> lines = {scale, "no CRS; coordinates taken as metres", "Client: Rossi",
                                            "Project: Hill", "Sheet 1 of 1"};
    double above = bar_figures;
    for (const std::string& line : lines) {
        ASSERT_NE(svg.find(">" + line + "</text>"), std::string::npos) << line;
        const SheetPoint at = beginning_of(line, svg);
        EXPECT_GT(at.y, above + 7.0) << line;
        EXPECT_LT(at.y, above + 20.0) << line;
        EXPECT_LT(at.x + width(line), end + 0.01) << line;
        if (line != scale) {
            EXPECT_EQ(at.x, beginning_of(lines[1], svg).x) << line;
        }
        above = at.y;
    }
    EXPECT_LT(above, paper("height") - kMargin) << "in the frame";
    const double left = kMargin + 10.0;
    EXPECT_NEAR(beginning_of("lot.csv: feature 1", svg).x, left, 0.01);
    EXPECT_LT(beginning_of("lot.csv: feature 1", svg).y, 60.0);
    EXPECT_NEAR(beginning_of("Pieces", svg).x, left, 0.01);
}

// By name, bold, in the colour of the line, beside the drawing: the table has them too.
TEST_F(Plans, NewPointsAreNamedOnTheDrawing)
{
    write_wkt(kLot);
    ASSERT_EQ(divide("lot.csv", "--parallel 1 --parts 3 --plan plan.svg").status, 0);
    std::istringstream svg(content("plan.svg"));
    std::multiset<std::string> names;
    for (std::string line; std::getline(svg, line);)
        if (line.find("font-weight=\"bold\"") != std::string::npos &&
            line.find("fill=\"#b81c1c\"") != std::string::npos)
            names.insert(line.substr(line.find('>') + 1, line.find("</text>") - line.find('>') - 1));
    EXPECT_EQ(names, (std::multiset<std::string>{"P1", "P2", "P3", "P4"}));
}

// A lane a metre wide ends in a room: along the lane the boundary is too near for a text.
TEST_F(Plans, ALengthStandsWhereItsLineHasRoom)
{
    write_wkt("POLYGON ((0 0, 75 0, 75 -12, 100 -12, 100 13, 75 13, 75 1, 0 1, 0 0))");
    for (const char* bearing : {"100", "300"}) {
        ASSERT_EQ(
            divide("lot.csv", std::string("--share 1/2 --plan plan.svg --overwrite --bearing ") + bearing)
                .status,
            0);
        const std::string svg = content("plan.svg");
        const std::string text = std::string("100.00   ") + bearing + ".0000 gon";
        ASSERT_NE(svg.find(">" + text + "</text>"), std::string::npos) << text;
        EXPECT_GT(beginning_of(text, svg).x, 842.0 / 2.0) << "in the room";
    }
}

TEST_F(Plans, AMarkStandsAtTheEndOfItsHairLine)
{
    write_wkt("POLYGON ((0 0, 120 0, 120 80, 0 80, 0 0))");
    ASSERT_EQ(divide("lot.csv", "--parallel 1 --area 20 --plan plan.svg").status, 0);
    const std::string svg = content("plan.svg");
    const auto font_size = [&](const char* mark) {
        const std::size_t text = svg.rfind("<text", svg.find(std::string(">") + mark + "</text>"));
        return std::stod(svg.substr(svg.find("font-size=\"", text) + 11));
    };
    for (const char* mark : {"Detail 1", "Detail 2"}) {
        const std::size_t text = svg.rfind("<text", svg.find(std::string(">") + mark + "</text>"));
        ASSERT_NE(text, std::string::npos);
        const double width = std::stod(svg.substr(svg.find("textLength=\"", text) + 12));
        const std::size_t line = svg.rfind("<path", text);
        const auto point_after = [&](char letter) {
            std::istringstream numbers(svg.substr(svg.find(letter, line) + 1, 40));
            SheetPoint p = {};
            numbers >> p.x >> p.y;
            return p;
        };
        const SheetPoint start = point_after('M');
        const SheetPoint end = point_after('L');
        EXPECT_NEAR(beginning_of(mark, svg).x + 0.5 * width, end.x, 2e-3) << mark;
        // From the ring to the text's box, seen in the direction of the line, are 4 points.
        const double length = std::hypot(end.x - start.x, end.y - start.y);
        const double cos = std::fabs(end.x - start.x) / length;
        const double sin = std::fabs(end.y - start.y) / length;
        ASSERT_GT(sin, 0.1) << mark;
        const double height = 2.0 * (length - 4.0 - 0.5 * cos * width) / sin;
        EXPECT_NEAR(height, font_size(mark), 0.01) << mark;
    }
}

// Drawn 1:1000, thirty strips that stand upright are 7.6 points wide, and ten that lie are 14.2 high: two lines of the
// smallest text take 14.6. A name stands in its strip, alone or with the area behind it, or beside it with the area and a
// hair line, which is done twelve times. None is written twice. The tables are not bold.
TEST_F(Plans, EveryPieceHasItsName)
{
    struct Row {
        const char* side;
        std::size_t parts;
        const char* area;
        std::size_t with_area;
    };
    write_wkt(kLot);
    for (const Row& row : {Row{"2", 30, "133", 12}, Row{"1", 10, "400", 10}}) {
        SCOPED_TRACE(row.parts);
        ASSERT_EQ(this->run({"divide", "lot.csv", "--parallel", row.side, "--parts",
                             std::to_string(row.parts), "--plan", "plan.svg", "--overwrite"})
                      .status,
                  0);
        std::istringstream svg(content("plan.svg"));
        std::multiset<std::string> bold;
        for (std::string line; std::getline(svg, line);)
            if (line.find("font-weight=\"bold\"") != std::string::npos)
                bold.insert(line.substr(line.find('>') + 1, line.find("</text>") - line.find('>') - 1));
        std::size_t with_area = 0;
        for (std::size_t piece = 0; piece < row.parts; ++piece) {
            const std::string name = tool::piece_title("", piece);
            const std::size_t behind = bold.count(name + "  " + row.area);
            EXPECT_EQ(bold.count(name) + behind, name == "N" ? 2u : 1u)
                << name << "; the north arrow has an N too";
            with_area += behind;
        }
        EXPECT_EQ(with_area, row.with_area);
        EXPECT_EQ(bold.count("Scale 1:1000 on A4"), 1u);
    }
}

TEST_F(Plans, SvgAndPdfHaveTheirPaper)
{
    write("lot.csv", "id,WKT\n1,\"POLYGON ((0 0, 200 0, 200 50, 0 50, 0 0))\"\n");
    ASSERT_EQ(divide("lot.csv", "--parallel 1 --area 1000 --plan plan.svg").status, 0);
    EXPECT_NE(content("plan.svg").find("width=\"841.890pt\" height=\"595.276pt\""), std::string::npos)
        << content("plan.svg").substr(0, 300);
    ASSERT_EQ(divide("lot.csv", "--vertex 2 --parts 3 --plan plan.PDF --paper A3").status, 0);
    const std::string pdf = content("plan.PDF");
    EXPECT_EQ(pdf.rfind("%PDF-", 0), 0u);
    EXPECT_NE(pdf.find("/MediaBox [ 0 0 1190.551181 841.889764 ]"), std::string::npos);
    EXPECT_EQ(files(), 3u) << "nothing is left beside them";
}

double thousandths(double value)
{
    return std::round(value * 1000.0) / 1000.0;
}

const plparcel::Ring kFive = {{0, 0}, {79.2, 3}, {84, 55}, {40, 77}, {-3, 50}};
const plparcel::Ring kTall = {{0, 0}, {0, 60}, {30, 60}, {30, 25}, {75, 25}, {75, 0}};
const plparcel::Ring kArms = {{0, 0}, {120, 0}, {120, 25}, {30, 25}, {30, 90}, {0, 90}};
const plparcel::Ring kSkew = {{1000, 2000}, {1080, 2003}, {1085, 2055}, {998, 2050}};

// Seen as on paper: no label touches another one, the boundary or a dividing line.
TEST_F(Plans, NoLabelTouchesAnotherOrALine)
{
    struct Row {
        const char* what;
        plparcel::Ring ring;
        std::vector<plparcel::Ring> holes;
        plparcel::Cut cut;
        long long side;
        std::size_t parts;
        tool::AngleUnit angles = tool::AngleUnit::gon;
    };
    using plparcel::Cut;
    const std::vector<plparcel::Ring> one = {{{46, 36}, {46, 44}, {54, 44}, {54, 36}}};
    const std::vector<plparcel::Ring> three = {{{20, 20}, {20, 26}, {26, 26}, {26, 20}},
                                               {{60, 60}, {60, 64}, {64, 64}, {64, 60}},
                                               {{48, 38}, {48, 41}, {51, 41}, {51, 38}}};
    const plparcel::Ring block = {{0, 0}, {100, 0}, {100, 80}, {0, 80}};
    const Row rows[] = {
        {"five corners", kFive, {}, Cut::parallel, 1, 2},
        {"bearings in quadrants", kFive, {}, Cut::perpendicular, 2, 4, tool::AngleUnit::quadrant},
        {"a narrow arm of a piece", kTall, {}, Cut::perpendicular, 2, 12},
        {"short lines and long ones", kArms, {}, Cut::parallel, 6, 8},
        {"seconds", kSkew, {}, Cut::perpendicular, 1, 6, tool::AngleUnit::dms},
        {"a triangle", {{0, 0}, {50, 0}, {12, 40}}, {}, Cut::parallel, 2, 4},
        {"a small hole", block, one, Cut::parallel, 1, 3},
        {"a line through a hole", block, one, Cut::perpendicular, 1, 2},
        {"three small holes", block, three, Cut::parallel, 1, 3},
        {"thin", {{0, 0}, {500, 300}, {500, 308}, {0, 8}}, {}, Cut::parallel, 2, 3},
        {"tiny", {{0, 0}, {0.4, 0}, {0.42, 0.3}, {0.01, 0.28}}, {}, Cut::parallel, 1, 3},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        tool::Asked asked;
        asked.request.line.cut = row.cut;
        asked.request.amounts = plparcel::equal_parts(row.parts);
        asked.number = row.side;
        asked.amounts.assign(row.parts - 1, "1/2");
        asked.angles = row.angles;
        tool::Parcel parcel;
        parcel.ring = row.ring;
        parcel.holes = row.holes;
        const tool::Answer answer = tool::answer(parcel, asked);
        ASSERT_TRUE(answer.printed.done());
        const tool::Plan plan = tool::plan_of(answer);
        const PlanLayout layout(plan.corners.at, 1.0, Paper::a4, [](const SheetBox&) { return 120.0; });
        const tool::View view = layout.view();
        tool::Canvas canvas(path("labels.svg"), layout.sheet(), "", "labels.svg");
        tool::PlanLabels(plan, view, canvas).draw();
        canvas.finish();
        const std::vector<test::DrawnText> texts = test::read_sheet(content("labels.svg")).texts;
        std::vector<std::vector<SheetPoint>> lines;
        for (std::size_t i = 0; i < plan.corners.size(); ++i)
            lines.push_back({view.at(plan.corners.at[i]), view.at(plan.corners.at[plan.corners.next[i]])});
        std::set<std::string> written;
        for (const tool::PlanLine& line : plan.lines)
            lines.push_back({view.at(plan.points[line.from].at), view.at(plan.points[line.to].at)});
        for (std::size_t i = 0; i < texts.size(); ++i) {
            const std::vector<SheetPoint>& box = texts[i].corners;
            for (std::size_t k = 0; k < i; ++k)
                EXPECT_GT(test::gap_between(box, texts[k].corners), 0.5)
                    << texts[i].text << " and " << texts[k].text;
            for (const std::vector<SheetPoint>& line : lines)
                EXPECT_GT(test::gap_between(box, line), 0.5) << texts[i].text;
            written.insert(texts[i].text.substr(0, texts[i].text.find("   ")));
        }
        for (const tool::PlanLine& line : plan.lines) {
            const bool shown =
                tool::length_of({view.at(plan.points[line.to].at).x - view.at(plan.points[line.from].at).x,
                                 view.at(plan.points[line.to].at).y - view.at(plan.points[line.from].at).y}) >
                20.0;
            EXPECT_TRUE(!shown || written.count(line.length) > 0) << "a line of " << line.length;
        }
    }
}

TEST_F(Plans, APdfThatCannotBeBegunIsToldAtOnce)
{
    const auto begin = [&] { tool::Canvas(path("none/line.pdf"), {200, 100}, "title", "line.pdf"); };
    EXPECT_THROW(begin(), tool::Failure);
}

TEST_F(Plans, ALineIsNoOutline)
{
    tool::Canvas canvas(path("line.svg"), {200, 100}, "title", "line.svg");
    canvas.line({10, 20}, {30, 40}, tool::kInk, 1);
    canvas.finish();
    EXPECT_NE(content("line.svg").find(" d=\"M10.000 20.000L30.000 40.000\" fill=\"none\""),
              std::string::npos);
}

// A circle around a place is so fine a polygon that its corners are not seen: 72 of them, every 5 degrees.
TEST_F(Plans, ARingIsRound)
{
    tool::Canvas canvas(path("ring.svg"), {200, 100}, "title", "ring.svg");
    canvas.ring({120, 50}, 40, tool::kInk, 1);
    canvas.finish();
    const std::string svg = content("ring.svg");
    const std::size_t begin = svg.find(" d=\"M") + 5;
    std::string numbers = svg.substr(begin, svg.find("Z\"", begin) - begin);
    std::replace(numbers.begin(), numbers.end(), 'L', ' ');
    std::istringstream corners(numbers);
    std::size_t count = 0;
    SheetPoint corner;
    for (; corners >> corner.x >> corner.y; ++count) {
        const double turn = static_cast<double>(count) * M_PI / 36.0;
        EXPECT_NEAR(corner.x, 120 + 40 * std::cos(turn), 0.00051) << count;
        EXPECT_NEAR(corner.y, 50 + 40 * std::sin(turn), 0.00051) << count;
    }
    EXPECT_EQ(count, 72u);
}

TEST_F(Plans, ATitleThatIsTooLongLosesItsMiddle)
{
    const std::string letters = std::string(180, 'x') + "1234-56";
    write(letters + ".csv", "E,N\n0,0\n80,0\n80,50\n0,50\n");
    ASSERT_EQ(divide(letters + ".csv", "--parallel 1 --share 1/2 --plan plan.svg").status, 0);
    const std::string svg = content("plan.svg");
    const std::size_t title = svg.find(">xxxxx", svg.find("</title>"));
    ASSERT_NE(title, std::string::npos);
    const std::string text = svg.substr(title + 1, svg.find('<', title) - title - 1);
    EXPECT_LT(text.size(), letters.size());
    const std::size_t dots = text.find("...");
    ASSERT_NE(dots, std::string::npos);
    EXPECT_EQ(text.substr(0, dots), std::string(dots, 'x'));
    const std::string file = letters + ".csv";
    const std::string end = text.substr(dots + 3);
    EXPECT_GT(end.size(), 12u);
    EXPECT_EQ(end, file.substr(file.size() - end.size()));
}

// An octagon whose corners are cut off: eight pairs of points that only a detail tells apart, six on a sheet.
TEST_F(Plans, EveryDetailIsDrawnOnce)
{
    std::string table = "E,N\n";
    for (int i = 0; i < 8; ++i)
        for (const double beside : {-0.0005, 0.0005}) {
            const double turn = (i + beside) * 0.25 * 3.14159265358979;
            table +=
                std::to_string(100.0 * std::cos(turn)) + "," + std::to_string(100.0 * std::sin(turn)) + "\n";
        }
    write("lot.csv", table);
    ASSERT_EQ(divide("lot.csv", "--parallel 2 --share 1/2 --plan plan.svg").status, 0);
    std::string all;
    for (const char* sheet : {"plan.svg", "plan-2.svg", "plan-3.svg", "plan-4.svg"})
        all += content(sheet);
    for (int i = 1; i <= 8; ++i) {
        const std::string title = ">Detail " + std::to_string(i) + ", 1:";
        const std::size_t first = all.find(title);
        EXPECT_NE(first, std::string::npos) << title;
        EXPECT_EQ(all.find(title, first + 1), std::string::npos) << title;
    }
    EXPECT_EQ(content("plan-2.svg").find(">Detail 7, 1:"), std::string::npos);
    EXPECT_NE(content("plan-3.svg").find(">Detail 7, 1:"), std::string::npos);
}

// A strip with cut corners: two sheets, and both are named.
TEST_F(Plans, TwoSheetsAreNamed)
{
    write("lot.csv", "E,N\n0.03,0\n99.97,0\n100,0.03\n100,59.97\n99.97,60\n0.03,60\n0,59.97\n0,0.03\n");
    const test::Result run = this->run({"divide", "--title", "Client=Rossi", "lot.csv", "--parallel", "1",
                                        "--share", "1/2", "--plan", "plan.svg"});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_NE(content("plan.svg").find(">Client: Rossi<"), std::string::npos);
    EXPECT_NE(run.out.find("Written  plan.svg\nWritten  plan-2.svg\n"), std::string::npos) << run.out;
    EXPECT_FALSE(std::filesystem::exists(path("plan-3.svg")));
}

TEST_F(Plans, TextOfAnSvgIsText)
{
    write("lots.csv", "lot no,WKT\n1234/5 <&>,\"POLYGON ((0 0, 80 0, 80 50, 0 50, 0 0))\"\n");
    const test::Result run = this->run(
        {"divide", "lots.csv", "--parallel", "1", "--area", "1000", "--plan", "plan.svg", "--name-column",
         "lot no", "--title", "Client=Rossi & Söhne", "--title", "Date=2026-11-22", "--area-decimals", "2"});
    ASSERT_EQ(run.status, 0) << run.err;
    const std::string svg = content("plan.svg");
    for (const char* text :
         {">Parcel 1234/5 &lt;&amp;&gt;</text>", ">1234/5 &lt;&amp;&gt;-A</text>", ">1000.00</text>",
          ">P1</text>", ">12.50</text>", ">37.50</text>", ">4\u20131: 50.00</text>",
          ">80.00   100.0000 gon</text>", ">Client: Rossi &amp; Söhne</text>", ">Date: 2026-11-22</text>",
          "<title>Parcel 1234/5 &lt;&amp;&gt;</title>"})
        EXPECT_NE(svg.find(text), std::string::npos) << text;
    // Both begin 10 points inside the frame, which is 10 millimetres inside the sheet: the title, 15 points below the
    // frame's top by its middle, and the block of 190 points at the other side of the upright sheet. Capitals are 0.73 of
    // their size high.
    const double frame = 10.0 * kMillimetre;
    EXPECT_EQ(beginning_of("Parcel 1234/5 &lt;&amp;&gt;", svg).x, thousandths(frame + 10.0));
    EXPECT_EQ(beginning_of("Parcel 1234/5 &lt;&amp;&gt;", svg).y,
              thousandths(frame + 15.0 + 0.5 * 0.73 * 14.0));
    EXPECT_EQ(beginning_of("Sheet 1 of 1", svg).x, thousandths(210.0 * kMillimetre - frame - 10.0 - 190.0));
    EXPECT_EQ(svg.find("glyph"), std::string::npos);
}

TEST_F(Plans, PdfHasItsTitleItsFontsAndItsSheets)
{
    std::string table = "E,N\n";
    for (const PL_PNT2D_record& p : regular(300, 100))
        table += std::to_string(p.x) + "," + std::to_string(p.y) + "\n";
    write("round.csv", table);
    ASSERT_EQ(divide("round.csv", "--parallel 1 --parts 3 --plan plan.pdf").status, 0);
    const std::string pdf = content("plan.pdf");
    EXPECT_NE(pdf.find("/Title (round.csv)"), std::string::npos);
    EXPECT_NE(pdf.find("/FontFile"), std::string::npos) << "embedded";
    std::size_t pages = 0;
    for (std::size_t at = pdf.find("/Type /Page "); at != std::string::npos;
         at = pdf.find("/Type /Page ", at + 1))
        ++pages;
    EXPECT_GE(pages, 3u);

    const test::Result run = divide("round.csv", "--parallel 1 --parts 3 --plan plan.png");
    ASSERT_EQ(run.status, 0) << run.err;
    for (std::size_t i = 2; i <= pages; ++i)
        EXPECT_GT(Picture(path("plan-" + std::to_string(i) + ".png")).width(), 0) << i;
    EXPECT_NE(run.out.find("Written  plan.png\nWritten  plan-2.png\n"), std::string::npos) << run.out;
    // All of them or none: one of the names is taken.
    write("next-2.svg", "mine");
    EXPECT_EQ(divide("round.csv", "--parallel 1 --parts 3 --plan next.svg").status, 2);
    EXPECT_FALSE(std::filesystem::exists(path("next.svg")));
    EXPECT_EQ(content("next-2.svg"), "mine");
}

// They are named, and kept: nobody asked to delete them.
TEST_F(Plans, SheetsOfAnEarlierRunAreNamed)
{
    write_wkt(kLot);
    for (const char* old : {"plan-2.png", "plan-3.png", "plan-5.png"})
        write(old, "old");
    const test::Result run = divide("lot.csv", "--parallel 1 --area 1000 --plan plan.png");
    ASSERT_EQ(run.status, 0) << run.err;
    for (const char* old : {"plan-2.png", "plan-3.png"}) {
        EXPECT_NE(run.out.find(std::string("Left     ") + old +
                               ": from an earlier run with more sheets, not part of this plan\n"),
                  std::string::npos)
            << run.out;
        EXPECT_EQ(content(old), "old");
    }
    EXPECT_EQ(run.out.find("plan-5.png"), std::string::npos) << "no sheets lie between";
}

// A title may be wider than its columns; so is what says that the table goes on.
TEST_F(Plans, TitlesOfNarrowTablesDoNotTouch)
{
    tool::Canvas canvas(path("tables.svg"), {700, 300}, "", "tables.svg");
    std::vector<tool::PlanTable> tables;
    for (const char* title : {"Points around the parcel", "Points around the parcel, once more"})
        tables.push_back({title, {"P", "Q"}, std::vector<Cells>(20, {"1", "2"})});
    const tool::TableSetter setter(tables, canvas);
    tool::TableSetter::Position position;
    setter.fill(canvas, {0, 0, 700, 120}, position);
    canvas.finish();
    const std::vector<test::DrawnText> texts = test::read_sheet(content("tables.svg")).texts;
    EXPECT_GT(texts.size(), 60u);
    for (std::size_t i = 0; i < texts.size(); ++i)
        for (std::size_t k = 0; k < i; ++k)
            EXPECT_GT(test::gap_between(texts[i].corners, texts[k].corners), 0.0)
                << texts[i].text << " and " << texts[k].text;
}

// The plan and the report name the CRS as the file does.
TEST_F(Plans, TheCrsIsNamed)
{
    ASSERT_EQ(run({"divide", PLCALC_EXAMPLES "/utm-convex.geojson", "--feature", "17", "--parallel", "2",
                   "--parts", "2", "--plan", "plan.svg", "--report", "report.txt"})
                  .status,
              0);
    EXPECT_NE(content("plan.svg").find(">WGS 84 / UTM zone 32N (EPSG:32632)</text>"), std::string::npos);
    EXPECT_NE(content("report.txt").find("Coordinates: WGS 84 / UTM zone 32N (EPSG:32632)"),
              std::string::npos);
}

TEST_F(Plans, TitleBlockFromAFile)
{
    write_wkt(kLot);
    write("block.txt", "# what is on every sheet\r\nProject = Sunny Hill\r\n\r\nClient=Rossi = Neri\r\n");
    ASSERT_EQ(
        divide("lot.csv",
               "--parallel 1 --area 1000 --plan plan.svg --title-block block.txt --title Client=Bianchi")
            .status,
        0);
    const std::string svg = content("plan.svg");
    EXPECT_NE(svg.find(">Project: Sunny Hill</text>"), std::string::npos);
    EXPECT_NE(svg.find(">Client: Bianchi</text>"), std::string::npos) << "the option comes last";
    // A pipe can be read only once.
    ASSERT_EQ(mkfifo(path("pipe").c_str(), 0600), 0);
    std::thread writer([&] { std::ofstream(path("pipe")) << "Client=Verdi\n"; });
    EXPECT_EQ(divide("lot.csv", "--parallel 1 --area 1000 --plan piped.svg --title-block pipe").status, 0);
    writer.join();
    EXPECT_NE(content("piped.svg").find(">Client: Verdi</text>"), std::string::npos);
    write("bad.txt", "Project Sunny Hill\n");
    EXPECT_TRUE(
        test::fails_with(divide("lot.csv", "--parallel 1 --area 5 --plan other.svg --title-block bad.txt"), 2,
                         "bad.txt: 'Project Sunny Hill' is not an entry of a title block; write it as "
                         "Client=Rossi"));
    EXPECT_TRUE(test::fails_with(
        divide("lot.csv", "--parallel 1 --area 5 --plan other.svg --title-block none.txt"), 3,
        "none.txt: the title block cannot be read; name a text file with lines such as "
        "Client=Rossi"));
    EXPECT_EQ(divide("lot.csv", "--parallel 1 --area 5 --plan other.svg --title-block /dev/zero").status, 3);
    std::string entries;
    for (int i = 1; i <= 12; ++i)
        entries += "Entry " + std::to_string(i) + "=given\n";
    write("twelve.txt", entries);
    write("thirteen.txt", entries + "Sheet=1\n");
    EXPECT_EQ(divide("lot.csv", "--parallel 1 --area 5 --plan twelve.svg --title-block twelve.txt").status,
              0);
    EXPECT_TRUE(test::fails_with(
        divide("lot.csv", "--parallel 1 --area 5 --plan other.svg --title-block thirteen.txt"), 2,
        "thirteen.txt: the title block has more than 12 entries; leave some out"));
    write("full.txt", "Client=Verdi\n#" + std::string(16384 - 14, 'x'));
    EXPECT_EQ(divide("lot.csv", "--parallel 1 --area 5 --plan full.svg --title-block full.txt").status, 0);
    write("long.txt", "Client=Verdi\n#" + std::string(16385 - 14, 'x'));
    EXPECT_TRUE(test::fails_with(
        divide("lot.csv", "--parallel 1 --area 5 --plan other.svg --title-block long.txt"), 3,
        "long.txt: the file is too long for a title block; name a text file with lines such "
        "as Client=Rossi"));
    EXPECT_EQ(divide("lot.csv", "--parallel 1 --area 5 --plan other.svg --title-block /").status, 3);
}

TEST_F(Plans, DifficultParcelsAreDrawn)
{
    const char* const difficult[] = {
        "POLYGON ((0 0, 500 300, 500 308, 0 8, 0 0))",
        "POLYGON ((0 0, 1e-4 0, 1e-4 1e-4, 0 1e-4, 0 0))",
        "POLYGON ((600000 5000000, 700000 5000000, 700000 5100000, 600000 5100000, 600000 5000000))",
        "POLYGON ((0 0, 0 0, 10 0, 10 0, 10 10, 0 10, 0 0))",
    };
    for (const char* wkt : difficult) {
        SCOPED_TRACE(wkt);
        write_wkt(wkt);
        for (const char* cut : {"--parallel 2 --parts 9", "--vertex 2 --share 1/3"}) {
            const test::Result run = divide("lot.csv", std::string(cut) + " --plan plan.png --overwrite");
            EXPECT_EQ(run.status, 0) << run.err;
            EXPECT_GT(Picture(path("plan.png")).width(), 0);
        }
    }
}

TEST_F(Plans, TitlesOfEveryKindAreDrawn)
{
    const std::string long_name(180, 'x');
    std::string of_two_and_three_bytes;  // a cut inside a character leaves no text
    for (int i = 0; i < 34; ++i)
        of_two_and_three_bytes += "üé€";
    for (const std::string& name : {std::string("\xff\xfe.csv"), std::string("Grünfläche.csv"),
                                    long_name + ".csv", of_two_and_three_bytes + ".csv"}) {
        SCOPED_TRACE(name);
        write(name, "E,N\n0,0\n80,0\n80,50\n0,50\n");
        const test::Result run = divide(name, "--parallel 1 --parts 40 --plan plan.png --overwrite");
        EXPECT_EQ(run.status, 0) << run.err;
        const Picture plan(path("plan.png"));
        ASSERT_GT(plan.width(), 0);
        for (int y = 0; y < plan.height(); ++y)
            ASSERT_TRUE(plan.is(plan.width() - 20, y, 255, 255, 255)) << "beside the frame, at " << y;
    }
}

TEST_F(Plans, NothingIsOverwrittenUnasked)
{
    write_wkt(kLot);
    write("plan.svg", "mine");
    EXPECT_TRUE(
        test::fails_with(divide("lot.csv", "--parallel 1 --area 1000 --plan plan.svg"), 2,
                         "plan.svg: the file exists already; choose another name or add --overwrite"));
    EXPECT_EQ(content("plan.svg"), "mine");
    EXPECT_EQ(divide("lot.csv", "--parallel 1 --area 1000 --plan plan.svg --overwrite").status, 0);
    EXPECT_NE(content("plan.svg").find("<svg"), std::string::npos);
    EXPECT_EQ(divide("lot.csv", "--parallel 1 --area 9000 --plan plan.svg --overwrite").status, 4);
    EXPECT_NE(content("plan.svg").find("<svg"), std::string::npos) << "a refused division leaves it alone";
    // What is no file is never replaced: a pipe stands for the devices.
    ASSERT_EQ(mkfifo(path("pipe.svg").c_str(), 0600), 0);
    EXPECT_TRUE(test::fails_with(divide("lot.csv", "--parallel 1 --area 50 --plan pipe.svg --overwrite"), 2,
                                 "pipe.svg: this is a device or a pipe, not a file; choose another name"));
    EXPECT_TRUE(std::filesystem::is_fifo(path("pipe.svg")));
}

TEST_F(Plans, RefusedWishes)
{
    write_wkt(kLot);
    EXPECT_TRUE(test::fails_with(divide("lot.csv", "--parallel 1 --area 5 --plan plan.jpg"), 2,
                                 "--plan: 'plan.jpg' does not end in .svg, .pdf or .png; see plcalc divide "
                                 "--help"));
    EXPECT_TRUE(test::fails_with(divide("lot.csv", "--parallel 1 --area 5 --plan plan.pdf --paper A5"), 2,
                                 "--paper: 'A5' is neither A4 nor A3; see plcalc divide --help"));
    EXPECT_TRUE(
        test::fails_with(divide("lot.csv", "--parallel 1 --area 1000 --plan nowhere/plan.pdf"), 1,
                         "nowhere/plan.pdf: the file cannot be written (No such file or directory); check "
                         "the folder and its permissions"));
    EXPECT_TRUE(test::fails_with(
        divide("lot.csv", "--parallel 1 --area 5 --area-decimals 2"), 2,
        "--area-decimals is about a plan; name it with --plan PLAN; see plcalc divide --help"));
    EXPECT_TRUE(
        test::fails_with(divide("lot.csv", "--parallel 1 --area 5 --plan plan.pdf --area-decimals -1"), 2,
                         "--area-decimals: '-1' is not a number from 0 to 12; see plcalc divide --help"));
    EXPECT_TRUE(
        test::fails_with(divide("lot.csv", "--parallel 1 --area 5 --plan plan.pdf --title Rossi"), 2,
                         "--title: 'Rossi' is not an entry of a title block; write it as Client=Rossi"));
    EXPECT_TRUE(test::fails_with(divide("lot.csv", "--parallel 1 --area 5 --plan plan.pdf --name-column lot"),
                                 2, "lot.csv: there is no column 'lot'; choose one of: id, WKT"));
    std::filesystem::create_directory(path("folder.pdf"));
    EXPECT_TRUE(test::fails_with(divide("lot.csv", "--parallel 1 --area 1000 --plan folder.pdf"), 2,
                                 "folder.pdf: this is a folder; name a file in it"));
    write("lots.csv", std::string("id,WKT\n1,\"") + kLot + "\"\n2,\"" + kLot + "\"\n");
    EXPECT_TRUE(test::fails_with(divide("lots.csv", "--parallel 1 --area 1000 --plan plan.pdf"), 2,
                                 "lots.csv: there are 2 parcels (feature 1, feature 2), and --plan draws "
                                 "only one; choose one with --feature FID"));
    EXPECT_FALSE(std::filesystem::exists(path("plan.pdf")));
}

}  // namespace
