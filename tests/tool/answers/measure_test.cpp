// Sides, bearings and angles: of figures from the drawing board, of random parcels by long double, and as the
// program prints them.

#include "answers/measure.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <random>

#include <nlohmann/json.hpp>

#include "program.h"
#include "shapes.h"
#include "support/bits.h"

namespace {

using Ring = std::vector<PL_PNT2D_record>;
using tool::Measures;

const Ring kLot = {{0, 0}, {80, 0}, {80, 60}, {0, 60}};

Ring reversed(Ring ring)
{
    std::reverse(ring.begin(), ring.end());
    return ring;
}

TEST(Measure, Rectangle)
{
    const Measures lot = tool::measure(kLot);
    EXPECT_BITS(lot.area, 4800.0);
    EXPECT_BITS(lot.perimeter, 280.0);
    EXPECT_TRUE(lot.anticlockwise);
    const double lengths[] = {80, 60, 80, 60};
    const double bearings[] = {100, 0, 300, 200};
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_BITS(lot.sides[i].length, lengths[i]);
        EXPECT_BITS(lot.sides[i].bearing_gon.value(), bearings[i]);
        EXPECT_BITS(lot.vertices[i].angle_gon.value(), 100.0);
    }
    const Measures back = tool::measure(reversed(kLot));
    EXPECT_BITS(back.area, 4800.0);
    EXPECT_FALSE(back.anticlockwise);
    for (std::size_t i = 0; i < 4; ++i)
        EXPECT_BITS(back.vertices[i].angle_gon.value(), 100.0);
}

TEST(Measure, ReflexAngleIsInsideToo)
{
    const Ring l_shape = {{0, 0}, {30, 0}, {30, 10}, {10, 10}, {10, 30}, {0, 30}};
    EXPECT_BITS(tool::measure(l_shape).vertices[3].angle_gon.value(), 300.0);
    EXPECT_BITS(tool::measure(reversed(l_shape)).vertices[2].angle_gon.value(), 300.0);
}

TEST(Measure, FlatAngleIsHalfATurn)
{
    const Ring flat = {{0, 0}, {10, 0}, {30, 0}, {30, 10}};
    EXPECT_BITS(tool::measure(flat).vertices[1].angle_gon.value(), 200.0);
}

TEST(Measure, RepeatedVertexHasNoBearingAndNoAngle)
{
    const Measures lot = tool::measure({{0, 0}, {80, 0}, {80, 0}, {80, 60}, {0, 60}});
    EXPECT_BITS(lot.sides[1].length, 0.0);
    EXPECT_FALSE(lot.sides[1].bearing_gon);
    EXPECT_FALSE(lot.vertices[1].angle_gon);
    EXPECT_FALSE(lot.vertices[2].angle_gon);
    EXPECT_TRUE(lot.vertices[0].angle_gon);
}

// In the plane everything is half as long as on the ground.
TEST(Measure, AParcelWithAHoleIsMeasuredOnTheGround)
{
    tool::Parcel parcel;
    parcel.ring = kLot;
    parcel.holes = {{{10, 10}, {40, 10}, {40, 50}}};
    parcel.ground_factor = 0.5;
    const Measures lot = tool::measure(parcel);
    EXPECT_BITS(lot.area, 4.0 * (4800.0 - 600.0));
    EXPECT_BITS(lot.perimeter, 2.0 * (280.0 + 120.0));
    const double lengths[] = {160, 120, 160, 120, 60, 80, 100};
    ASSERT_EQ(lot.sides.size(), 7u);
    for (std::size_t i = 0; i < 7; ++i)
        EXPECT_BITS(lot.sides[i].length, lengths[i]);
    ASSERT_EQ(lot.vertices.size(), 7u);
    EXPECT_BITS(lot.vertices[3].angle_gon.value(), 100.0);
    EXPECT_BITS(lot.vertices[5].angle_gon.value(), 300.0);
}

TEST(Measure, RandomParcelsByLongDouble)
{
    std::mt19937_64 source = test::random_source();
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    const long double pi = std::acos(-1.0L);
    for (int k = 0; k < 2000; ++k) {
        const int n = 3 + k % 10;
        const PL_PNT2D_record place = {unit(source) * 8e5, unit(source) * 9e6};
        Ring ring;
        for (int i = 0; i < n; ++i) {
            const double turn = 6.283185307179586 * (i + 0.6 * unit(source)) / n;
            const double radius = 20.0 + 80.0 * unit(source);
            ring.push_back({place.x + radius * std::cos(turn), place.y + radius * std::sin(turn)});
        }
        if (k % 2 == 1)
            std::reverse(ring.begin(), ring.end());
        const Measures measures = tool::measure(ring);
        const test::Shape shape = test::shape_of(ring);
        EXPECT_NEAR(measures.area, static_cast<double>(test::area(shape)), 1e-9);
        EXPECT_NEAR(measures.perimeter, static_cast<double>(test::perimeter(shape)), 1e-10);
        EXPECT_EQ(measures.anticlockwise, k % 2 == 0);
        long double angles = 0.0L;
        for (std::size_t i = 0; i < ring.size(); ++i) {
            const test::Point& p = shape[i];
            const test::Point& q = shape[(i + 1) % shape.size()];
            EXPECT_NEAR(measures.sides[i].length, static_cast<double>(std::hypot(q.x - p.x, q.y - p.y)),
                        1e-11);
            long double bearing = std::atan2(q.x - p.x, q.y - p.y) * 200.0L / pi;
            bearing += bearing < 0.0L ? 400.0L : 0.0L;
            EXPECT_NEAR(measures.sides[i].bearing_gon.value(), static_cast<double>(bearing), 1e-11);
            angles += measures.vertices[i].angle_gon.value();
        }
        EXPECT_NEAR(static_cast<double>(angles), 200.0 * (n - 2), 1e-9);
    }
}

// ------------------------------------------------------------------------------------------------ the program

class MeasureVerb : public test::ProgramTest {};

TEST_F(MeasureVerb, TableReadsLikeThis)
{
    write("lot.csv", "E,N\n0,0\n80,0\n80,60\n");
    const test::Result run = this->run({"measure", "lot.csv"});
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.out, "Parcel  lot.csv\n"
                       "        3 vertices, anticlockwise\n"
                       "\n"
                       "Area       2400.0000\n"
                       "Perimeter   240.0000\n"
                       "\n"
                       "Side  from  to    Length  Bearing, gon   degrees\n"
                       "   1     1   2   80.0000      100.0000   90.0000\n"
                       "   2     2   3   60.0000        0.0000    0.0000\n"
                       "   3     3   1  100.0000      259.0334  233.1301\n"
                       "\n"
                       "Vertex        E        N  Angle, gon  degrees\n"
                       "     1   0.0000   0.0000     40.9666  36.8699\n"
                       "     2  80.0000   0.0000    100.0000  90.0000\n"
                       "     3  80.0000  60.0000     59.0334  53.1301\n");
    EXPECT_EQ(run.status, 0);
}

TEST_F(MeasureVerb, JsonHasTheSameNumbers)
{
    write("lot.csv", "E,N\n0,0\n80,0\n80,0\n80,60\n");
    const test::Result run = this->run({"measure", "lot.csv", "--json"});
    ASSERT_EQ(run.status, 0) << run.err;
    const nlohmann::json json = nlohmann::json::parse(run.out)["parcels"][0];
    EXPECT_EQ(json["parcel"], "lot.csv");
    EXPECT_EQ(json["status"], "measured");
    EXPECT_EQ(json["orientation"], "anticlockwise");
    EXPECT_EQ(json["area"], 2400.0);
    EXPECT_EQ(json["perimeter"], 240.0);
    EXPECT_EQ(json["sides"].size(), 4u);
    EXPECT_EQ(json["sides"][3]["side"], 4);
    EXPECT_EQ(json["sides"][3]["from"], 4);
    EXPECT_EQ(json["sides"][3]["bearing_gon"], 259.0334);
    EXPECT_EQ(json["sides"][3]["to"], 1);
    EXPECT_TRUE(json["sides"][1]["bearing_deg"].is_null());
    EXPECT_EQ(json["vertices"][0]["angle_deg"], 36.8699);
    EXPECT_EQ(json["vertices"][3]["vertex"], 4);
    EXPECT_EQ(json["vertices"][3]["n"], 60.0);
    EXPECT_TRUE(json["vertices"][2]["angle_gon"].is_null());
    EXPECT_LT(run.out.find("\"perimeter\""), run.out.find("\"sides\""));
    EXPECT_LT(run.out.find("\"sides\""), run.out.find("\"vertices\""));
    // Holes are counted after both.
    write("pond.geojson",
          R"({"type": "Polygon", "coordinates": [[[0, 0], [90, 0], [90, 900], [0, 900], [0, 0]],
              [[10, 10], [10, 20], [20, 20], [20, 10], [10, 10]]]})");
    const std::string pond = this->run({"measure", "pond.geojson", "--json", "--any-scale"}).out;
    EXPECT_LT(pond.find("\"sides\""), pond.find("\"vertices\""));
    EXPECT_LT(pond.find("\"vertices\""), pond.find("\"holes\": 1")) << pond;
    EXPECT_NE(pond.find("\"holes\": 1"), std::string::npos) << pond;
}

// The text of a parcel once took time with the square of its length: two minutes here.
TEST_F(MeasureVerb, JsonOfManyVerticesTakesNoMinute)
{
    constexpr int kVertices = 60000;
    std::string table = "E,N\n";
    for (int i = 0; i < kVertices; ++i) {
        const double turn_rad = 6.283185307179586 * i / kVertices;
        table += std::to_string(5000.0 + 4000.0 * std::cos(turn_rad)) + "," +
                 std::to_string(5000.0 + 4000.0 * std::sin(turn_rad)) + "\n";
    }
    write("round.csv", table);
    const auto start = std::chrono::steady_clock::now();
    const test::Result run = this->run({"measure", "round.csv", "--json"});
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(30));
    EXPECT_EQ(nlohmann::json::parse(run.out)["parcels"][0]["vertices"].size(),
              static_cast<std::size_t>(kVertices));
}

// (0, 0) to (30, 0) to (30, 40): sides of 30, 40 and 50; the angle at the first vertex has the tangent 4/3.
TEST_F(MeasureVerb, JsonHasNamesHeightsAnglesAndWhatWasAssumed)
{
    write("lot.csv", "P;X;Y;Z\n1;0;0;5,5\n2;30;0;6\n3;30;40;\n");
    const test::Result run = this->run({"measure", "lot.csv", "--json", "--axes", "en", "--angles", "dms"});
    ASSERT_EQ(run.status, 0) << run.err;
    const nlohmann::json json = nlohmann::json::parse(run.out)["parcels"][0];
    EXPECT_EQ(json["assumed"],
              (nlohmann::json{"X is East and Y North, as --axes says", "commas stand before the decimals",
                              "not every vertex has a height"}));
    EXPECT_EQ(json["vertices"][0]["z"], 5.5);
    EXPECT_EQ(json["vertices"][1]["z"], 6.0);
    EXPECT_TRUE(json["vertices"][2]["z"].is_null());
    EXPECT_EQ(json["vertices"][0]["angle"], "53°07'48\"");
    EXPECT_EQ(json["vertices"][1]["e"], 30.0);
    EXPECT_EQ(json["vertices"][2]["n"], 40.0);
    EXPECT_EQ(json["sides"][1]["from"], 2);
    EXPECT_EQ(json["sides"][1]["to"], 3);
    EXPECT_EQ(json["sides"][1]["length"], 40.0);
    EXPECT_EQ(json["sides"][2]["bearing"], "216°52'12\"");
    EXPECT_FALSE(json.contains("holes"));
    write("named.csv", "nr,WKT\n12/1,\"POLYGON((0 0,9 0,9 9,0 9,0 0),(1 1,2 1,2 2,1 2,1 1))\"\n");
    const nlohmann::json named = nlohmann::json::parse(
        this->run({"measure", "named.csv", "--json", "--name-column", "nr"}).out)["parcels"][0];
    EXPECT_EQ(named["name"], "12/1");
    EXPECT_EQ(named["holes"], 1);
    EXPECT_EQ(named["sides"][7]["to"], 5);
}

TEST_F(MeasureVerb, AnglesInOneUnit)
{
    write("lot.csv", "E,N\n0,0\n80,0\n80,60\n");
    const auto side = [&](const char* unit) {
        const std::string out = run({"measure", "lot.csv", "--angles", unit}).out;
        const std::size_t head = out.find("   Side");
        return head == std::string::npos ? out.substr(out.find("Side")) : out.substr(head);
    };
    EXPECT_EQ(side("deg"), "Side  from  to    Length  Bearing, deg\n"
                           "   1     1   2   80.0000       90.0000\n"
                           "   2     2   3   60.0000        0.0000\n"
                           "   3     3   1  100.0000      233.1301\n"
                           "\n"
                           "Vertex        E        N  Angle, deg\n"
                           "     1   0.0000   0.0000     36.8699\n"
                           "     2  80.0000   0.0000     90.0000\n"
                           "     3  80.0000  60.0000     53.1301\n");
    EXPECT_EQ(side("quadrant"), "Side  from  to    Length      Bearing\n"
                                "   1     1   2   80.0000  N90\u00b000'00\"E\n"
                                "   2     2   3   60.0000   N0\u00b000'00\"E\n"
                                "   3     3   1  100.0000  S53\u00b007'48\"W\n"
                                "\n"
                                "Vertex        E        N      Angle\n"
                                "     1   0.0000   0.0000  36\u00b052'12\"\n"
                                "     2  80.0000   0.0000  90\u00b000'00\"\n"
                                "     3  80.0000  60.0000  53\u00b007'48\"\n");
    const nlohmann::json json =
        nlohmann::json::parse(run({"measure", "lot.csv", "--json", "--angles", "dms"}).out)["parcels"][0];
    EXPECT_EQ(json["sides"][2]["bearing"], "233\u00b007'48\"");
    EXPECT_EQ(json["sides"][2]["bearing_gon"], 259.0334);
    EXPECT_EQ(json["vertices"][0]["angle"], "36\u00b052'12\"");
    EXPECT_TRUE(
        test::fails_with(run({"measure", "lot.csv", "--angles", "rad"}), 2,
                         "--angles: 'rad' is none of gon, deg, dms and quadrant; see plcalc measure --help"));
}

TEST_F(MeasureVerb, SmallParcelsGetMoreDecimals)
{
    write_wkt("POLYGON ((0 0, 0.001 0, 0.001 0.001, 0 0.001, 0 0))");
    const test::Result run = this->run({"measure", "lot.csv"});
    EXPECT_EQ(test::numbers_after(run.out, "Area"), std::vector<double>{1e-6});
    EXPECT_NE(run.out.find(" 0.001000000 "), std::string::npos) << run.out;
}

TEST_F(MeasureVerb, Refusals)
{
    write("lot.csv", "E,N\n0,0\n80,0\n");
    EXPECT_TRUE(
        test::fails_with(run({"measure"}), 2,
                         "FILE is missing; give the file that holds the parcel; see plcalc measure --help"));
    EXPECT_TRUE(test::fails_with(run({"measure", "lot.csv", "--area", "5"}), 2,
                                 "'--area' is not an argument of this command; see plcalc measure --help"));
    EXPECT_TRUE(test::fails_with(run({"measure", "lot.csv", "--feature"}), 2,
                                 "--feature: give one value, FID, once; see plcalc measure --help"));
    EXPECT_TRUE(test::fails_with(run({"measure", "lot.csv"}), 3,
                                 "lot.csv: the parcel has fewer than three different vertices, or all of "
                                 "them on one line; correct its coordinates"));
    write("degrees.geojson",
          R"({"type": "Polygon", "coordinates": [[[9, 45], [9.1, 45], [9.1, 45.1], [9, 45]]]})");
    EXPECT_TRUE(
        test::fails_with(run({"measure", "degrees.geojson"}), 3,
                         "degrees.geojson: feature 0: the coordinates are not plane (WGS 84); project "
                         "them first, for example with ogr2ogr -t_srs EPSG:32632, or correct the "
                         "file's CRS if they are"));
}

}  // namespace
