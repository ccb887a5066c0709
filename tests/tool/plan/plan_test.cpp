// The plan: its scale to the dot, what is where on the sheet, labels that do not cover each other, and files that
// are whole or not there.

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <sstream>

#include <gdal_priv.h>
#include <sys/stat.h>

#include "plan/foot_table.h"
#include "plan/labels.h"
#include "plan/layout.h"
#include "plan/plan.h"
#include "program.h"
#include "sheet/geometry.h"
#include "sheet/label_places.h"

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
}

// -------------------------------------------------------------------------------------------------- the foot

// Strips of a rectangle, parallel to its long side, and sides of a regular polygon.
tool::Plan strips(std::size_t count)
{
    tool::Plan plan;
    plan.ring = {{0, 0}, {80, 0}, {80, 50}, {0, 50}};
    for (std::size_t i = 0; i < count; ++i) {
        const double low = 50.0 * static_cast<double>(i) / static_cast<double>(count);
        const double high = 50.0 * static_cast<double>(i + 1) / static_cast<double>(count);
        plan.pieces.push_back({{0, low}, {80, low}, {80, high}, {0, high}});
        plan.piece_labels.push_back("1234.5678");
        if (i + 1 < count)
            plan.lines.push_back({{80, high}, {0, high}});
    }
    return plan;
}

tool::AtFoot found_no_place(const tool::Plan& plan)
{
    tool::Canvas canvas;
    const PlanLayout layout(plan.ring, 1.0, Paper::a4, kFoot);
    return tool::PlanLabels(plan, layout, canvas, {}).draw();
}

TEST(Foot, TellsWhatHasNoPlaceOnTheDrawing)
{
    EXPECT_TRUE(found_no_place(strips(3)) == tool::AtFoot());
    const tool::AtFoot forty = found_no_place(strips(60));
    EXPECT_TRUE(forty.pieces);

    tool::Plan stepped = strips(1);
    stepped.ring = {{0, 0}, {80, 0}, {80, 50}, {79.8, 50.1}, {79.6, 50.0}, {79.4, 50.1}, {0, 50}};
    const tool::AtFoot few = found_no_place(stepped);
    EXPECT_FALSE(few.pieces);
    EXPECT_EQ(few.sides.count(0) + few.sides.count(1) + few.sides.count(6), 0u)
        << "the long ones have theirs";
    EXPECT_GE(few.sides.size(), 1u);

    tool::Plan round = strips(1);
    round.ring.clear();
    for (int i = 0; i < 200; ++i)
        round.ring.push_back({50.0 * std::cos(i * 0.01 * 3.14159), 50.0 * std::sin(i * 0.01 * 3.14159)});
    EXPECT_EQ(found_no_place(round).sides.size(), 200u)
        << "all of them, lest they be looked for in two places";
}

// A strip of land 240 by 2 in lots side by side, each too low for its area: a hair line leads to it.
tool::Plan row_of_lots(std::size_t count)
{
    tool::Plan plan;
    plan.ring = {{0, 0}, {240, 0}, {240, 2}, {0, 2}};
    for (std::size_t i = 0; i < count; ++i) {
        const double left = 240.0 * static_cast<double>(i) / static_cast<double>(count);
        const double right = 240.0 * static_cast<double>(i + 1) / static_cast<double>(count);
        plan.pieces.push_back({{left, 0}, {right, 0}, {right, 2}, {left, 2}});
        plan.piece_labels.push_back("36.92");
    }
    return plan;
}

TEST(Foot, HasTheAreasWhereHairLinesWouldMakeAThicket)
{
    EXPECT_FALSE(found_no_place(row_of_lots(12)).pieces);
    EXPECT_TRUE(found_no_place(row_of_lots(13)).pieces) << "one more than twelve";
}

TEST(Foot, HasTheAreasIfOneFindsNoPlace)
{
    tool::Plan plan = strips(1);
    plan.piece_labels = {"1984.0000", "32.0000", "1984.0000"};
    plan.pieces = {
        {{0, 0}, {80, 0}, {80, 24.8}, {0, 24.8}},
        {{0, 24.8}, {80, 24.8}, {80, 25.2}, {0, 25.2}},  // too low, and its middle far from any end
        {{0, 25.2}, {80, 25.2}, {80, 50}, {0, 50}}};
    plan.lines = {{{0, 24.8}, {80, 24.8}}, {{0, 25.2}, {80, 25.2}}};
    EXPECT_TRUE(found_no_place(plan).pieces);
}

TEST(Foot, SectionsByKind)
{
    const tool::Plan plan = strips(3);
    const auto only_ends = tool::foot_sections(plan, {});
    ASSERT_EQ(only_ends.size(), 1u);
    EXPECT_EQ(only_ends[0].title, "Ends of lines");
    EXPECT_EQ(only_ends[0].rows.size(), 4u);
    EXPECT_EQ(only_ends[0].rows[1], "P2  E 0.0000  N 16.6667");
    const auto all = tool::foot_sections(plan, {{0, 3}, true});
    ASSERT_EQ(all.size(), 3u);
    EXPECT_EQ(all[1].title, "Pieces");
    EXPECT_EQ(all[2].title, "Sides");
    EXPECT_EQ(all[1].rows, (std::vector<std::string>{"1  1234.5678", "2  1234.5678", "3  1234.5678"}));
    EXPECT_EQ(all[2].rows, (std::vector<std::string>{"1-2  80.00", "4-1  50.00"}));
}

TEST(Foot, GrowsWithItsRowsUpToItsHeight)
{
    tool::Canvas canvas;
    const auto height = [&](std::size_t rows, double width) {
        const tool::FootTable table({{"Ends of lines", std::vector<std::string>(rows, "P1  E 100.0000")}},
                                    canvas, width, 300.0);
        return table.height();
    };
    EXPECT_EQ(height(2, 500.0), 74.0) << "the scale bar's";
    EXPECT_EQ(height(4, 500.0), 74.0);
    EXPECT_EQ(height(8, 500.0), 74.0) << "two columns";
    EXPECT_GT(height(8, 260.0), 74.0) << "one, the scale bar beside it";
    EXPECT_LE(height(8, 260.0), 120.0);
    EXPECT_GT(height(100, 500.0), 120.0);
    EXPECT_LT(height(100, 500.0), height(140, 500.0));
    EXPECT_LE(height(5000, 500.0), 300.0) << "not whole";
}

// Rows are 12 points high, 9 in small text; 12 points are free above and below. The scale bar's corner is 180 by 66
// points, so five rows of the column under it stay free, or six small ones.
TEST(Foot, LeavesTheScaleBarsCornerFree)
{
    struct Row {
        const char* what;
        std::size_t rows;
        double height;
    };
    tool::Canvas canvas;
    const std::string wide = "P1  E 123456789012.0000  N 123456789012.0000";
    const double column = canvas.size_of(wide, 8.0).x;
    ASSERT_GT(column, 170.0) << "the second of two columns lies under the scale bar";
    for (const Row& row : {Row{"one column", 4, 74.0},
                           {"5 + 0", 5, 84.0},
                           {"6 + 1", 7, 96.0},
                           {"7 + 2", 8, 108.0},
                           {"7 + 2, full", 9, 108.0},
                           {"8 + 3", 10, 120.0},
                           {"8 + 3, full", 11, 120.0},
                           {"small: 9 + 3", 12, 105.0}}) {
        SCOPED_TRACE(row.what);
        const tool::FootTable table({{"Ends of lines", std::vector<std::string>(row.rows, wide)}}, canvas,
                                    2.0 * column + 20.0, 300.0);
        EXPECT_EQ(table.height(), row.height);
    }
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

TEST(PlanContents, FiguresHaveTheUnitOfTheCoordinates)
{
    struct Row {
        tool::LengthUnit unit;
        const char* parcel;
        const char* piece;
    };
    for (const Row& row :
         {Row{{"", 1.0}, "Parcel 4000.0000, perimeter 260.0000", "1000.0000"},
          {{"m", 1.0}, "Parcel 4000.0000 m\u00b2, perimeter 260.0000 m", "1000.0000 m\u00b2"},
          {{"foot", 0.3048},
           "Parcel 4000.0000 square foot, perimeter 260.0000 foot",
           "1000.0000 square foot"}}) {
        const tool::Plan plan = plan_of_lot({"lot.csv", ""}, row.unit, plparcel::Cut::parallel, 3);
        EXPECT_EQ(plan.subtitles,
                  (std::vector<std::string>{"Cut parallel to side 3, from vertex 3 to vertex 4: 1000",
                                            row.parcel}));
        ASSERT_EQ(plan.piece_labels.size(), 2u);
        EXPECT_EQ(plan.piece_labels[0], row.piece);
        EXPECT_EQ(plan.unit.metres, row.unit.metres);
    }
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

// 80 metres at 1:500 are 160 millimetres, 907 dots at 144 to the inch; the strip is 12.5 metres high, 142 dots.
TEST_F(Plans, PngIsTrueToScaleAndTinted)
{
    write_wkt(kLot);
    const test::Result run = divide("lot.csv", "--parallel 1 --area 1000 --plan plan.png");
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(test::numbers_after(run.out, "cut off").at(0), 1000.0);
    const Picture plan(path("plan.png"));
    ASSERT_EQ(plan.width(), 1684);
    ASSERT_EQ(plan.height(), 1191);
    int strip = 0;
    int rest = 0;
    int line = 0;
    for (int y = 0; y < plan.height(); ++y)
        for (int x = 0; x < plan.width(); ++x) {
            strip += plan.is(x, y, 247, 219, 168);
            rest += plan.is(x, y, 204, 230, 207);
            line += plan.is(x, y, 184, 28, 28);
        }
    const double dots = 144.0 / 0.0254 / 500.0;
    EXPECT_NEAR(strip, 80 * 12.5 * dots * dots, 0.1 * 80 * 12.5 * dots * dots) << "less its label and rims";
    EXPECT_NEAR(rest, 80 * 37.5 * dots * dots, 0.04 * 80 * 37.5 * dots * dots);
    EXPECT_GT(line, 907 * 2) << "the dividing line";
    for (int x = 0; x < plan.width(); ++x)
        ASSERT_TRUE(plan.is(x, 2, 255, 255, 255) && plan.is(x, plan.height() - 3, 255, 255, 255)) << x;
    for (int y = 0; y < plan.height(); ++y)
        ASSERT_TRUE(plan.is(2, y, 255, 255, 255) && plan.is(plan.width() - 3, y, 255, 255, 255)) << y;
}

// 20 metres at 1:500 are 40 millimetres, 226.8 dots, in four fields: dark, white, dark, white. The bar's right end is
// 12 points from the frame, which leaves 10 millimetres of the sheet free.
TEST_F(Plans, TheScaleBarIsAsLongAsItSays)
{
    write_wkt(kLot);
    ASSERT_EQ(divide("lot.csv", "--parallel 1 --area 1000 --plan plan.png").status, 0);
    const Picture plan(path("plan.png"));
    ASSERT_EQ(plan.width(), 1684);
    const double right = 2.0 * (297.0 / 25.4 * 72.0 - 10.0 / 25.4 * 72.0 - 12.0);
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
}

// Thirty strips across, 15 points wide: too narrow for their areas, wide enough for their numbers.
TEST_F(Plans, EveryPieceHasItsNumber)
{
    write_wkt(kLot);
    ASSERT_EQ(divide("lot.csv", "--parallel 2 --parts 30 --plan plan.png").status, 0);
    const Picture plan(path("plan.png"));
    ASSERT_GT(plan.height(), 0);
    const int half = plan.height() / 2;
    const auto is_line = [&](int x, int y) { return plan.is(x, y, 184, 28, 28); };
    std::vector<int> lines;
    for (int x = 1; x < plan.width(); ++x)
        if (is_line(x, half) && !is_line(x - 1, half))
            lines.push_back(x);
    ASSERT_EQ(lines.size(), 29u);
    const int strip = lines[1] - lines[0];
    for (int piece = 0; piece < 30; ++piece) {
        const int left = piece == 0 ? lines[0] - strip : lines[static_cast<std::size_t>(piece) - 1];
        int ink = 0;
        for (int y = half - 130; y < half + 130; ++y)
            for (int x = left + 5; x < left + strip - 4; ++x)
                ink += plan.is(x, y, 38, 38, 38);
        EXPECT_GT(ink, 5) << "strip " << piece + 1 << " from the left";
    }
}

TEST_F(Plans, SvgAndPdfHaveTheirPaper)
{
    write_wkt(kLot);
    ASSERT_EQ(divide("lot.csv", "--parallel 1 --area 1000 --plan plan.svg").status, 0);
    EXPECT_NE(content("plan.svg").find("width=\"841.889764pt\" height=\"595.275591pt\""), std::string::npos)
        << content("plan.svg").substr(0, 300);
    ASSERT_EQ(divide("lot.csv", "--vertex 2 --parts 3 --plan plan.PDF --paper A3").status, 0);
    const std::string pdf = content("plan.PDF");
    EXPECT_EQ(pdf.rfind("%PDF-", 0), 0u);
    EXPECT_NE(pdf.find("/MediaBox [ 0 0 1190.551181 841.889764 ]"), std::string::npos);
    EXPECT_EQ(files(), 3u) << "nothing is left beside them";
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
