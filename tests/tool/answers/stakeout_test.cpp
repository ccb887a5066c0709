// Set-out values: from the drawing board, by long double, and there and back through the library's own set-out.

#include "answers/stakeout.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <iterator>
#include <random>
#include <sstream>

#include <nlohmann/json.hpp>

#include "plcalc/survey.h"
#include "program.h"
#include "reports/parcel_reports.h"
#include "support/bits.h"

namespace {

using tool::BaseLine;
using tool::NamedPoint;
using tool::SetOut;
using tool::Setup;

SetOut one(const PL_PNT2D_record& station, const PL_PNT2D_record& orientation, const PL_PNT2D_record& from,
           const PL_PNT2D_record& to, const PL_PNT2D_record& point)
{
    return tool::set_out({{"", station}, {"", orientation}}, {{"", from}, {"", to}}, {{"p", point}}).at(0);
}

struct Row {
    const char* what;
    PL_PNT2D_record station, orientation, from, to, point;
    double angle, distance, along, right;
};

const Row kRows[] = {
    {"ahead and to the right", {0, 0}, {0, 10}, {0, 0}, {0, 10}, {5, 5}, 50, std::sqrt(50.0), 5, 5},
    {"to the left", {0, 0}, {0, 10}, {0, 0}, {0, 10}, {-5, 5}, 350, std::sqrt(50.0), 5, -5},
    {"behind, right stays right", {0, 0}, {0, 10}, {0, 0}, {0, 10}, {5, -5}, 150, std::sqrt(50.0), -5, 5},
    {"behind, to the left", {0, 0}, {0, 10}, {0, 0}, {0, 10}, {-5, -5}, 250, std::sqrt(50.0), -5, -5},
    {"on the base line", {10, 0}, {0, 0}, {0, 0}, {0, 10}, {0, 7}, 38.8800224428430, std::sqrt(149.0), 7, 0},
    {"on the orientation", {0, 0}, {3, 4}, {0, 0}, {10, 0}, {6, 8}, 0, 10, 6, -8},
    {"a base of a ten-thousandth",
     {0, 0},
     {0, 1},
     {0, 0},
     {1e-4, 0},
     {2e-4, -1e-4},
     129.5167236,
     std::sqrt(5e-8),
     2e-4,
     1e-4},
};

TEST(Stakeout, FromTheDrawingBoard)
{
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.what);
        const SetOut got = one(row.station, row.orientation, row.from, row.to, row.point);
        EXPECT_NEAR(got.angle_gon.value(), row.angle, 1e-7);
        EXPECT_NEAR(got.distance, row.distance, 1e-12);
        EXPECT_NEAR(got.abscissa, row.along, 1e-12);
        EXPECT_NEAR(got.ordinate, row.right, 1e-12);
    }
}

// In the plane everything is half as long as on the ground; the angle is the same.
TEST(Stakeout, LengthsAreOnTheGround)
{
    const SetOut got =
        tool::set_out({{"", {0, 0}}, {"", {0, 10}}}, {{"", {0, 0}}, {"", {0, 10}}}, {{"p", {3, 4}}}, 0.5)
            .at(0);
    EXPECT_NEAR(got.angle_gon.value(), 40.9665529, 1e-7);
    EXPECT_NEAR(got.distance, 10.0, 1e-12);
    EXPECT_NEAR(got.abscissa, 8.0, 1e-12);
    EXPECT_NEAR(got.ordinate, 6.0, 1e-12);
}

TEST(Stakeout, TheStationHasNoAngle)
{
    const SetOut got = one({3, 4}, {0, 0}, {0, 0}, {3, 4}, {3, 4});
    EXPECT_FALSE(got.angle_gon);
    EXPECT_BITS(got.distance, 0.0);
    EXPECT_NEAR(got.abscissa, 5.0, 1e-12);
    EXPECT_NEAR(got.ordinate, 0.0, 1e-12);
}

TEST(Stakeout, ThereAndBackAndByLongDouble)
{
    std::mt19937_64 source = test::random_source();
    std::uniform_real_distribution<double> away(-300.0, 300.0);
    const long double pi = std::acos(-1.0L);
    for (int i = 0; i < 5000; ++i) {
        const PL_PNT2D_record place =
            i % 2 == 0 ? PL_PNT2D_record{0, 0} : PL_PNT2D_record{512345.678, 4987654.321};
        const auto point = [&] { return PL_PNT2D_record{place.x + away(source), place.y + away(source)}; };
        const PL_PNT2D_record station = point();
        const PL_PNT2D_record orientation = point();
        const PL_PNT2D_record from = point();
        const PL_PNT2D_record to = point();
        const PL_PNT2D_record p = point();
        const SetOut got = one(station, orientation, from, to, p);

        PL_PNT2D_record back = {};
        CalcPtAngDist(&station, &orientation, got.angle_gon.value(), got.distance, &back);
        EXPECT_NEAR(back.x, p.x, 1e-7);
        EXPECT_NEAR(back.y, p.y, 1e-7);

        const long double bx = static_cast<long double>(to.x) - from.x;
        const long double by = static_cast<long double>(to.y) - from.y;
        const long double px = static_cast<long double>(p.x) - from.x;
        const long double py = static_cast<long double>(p.y) - from.y;
        const long double length = std::hypot(bx, by);
        EXPECT_NEAR(got.abscissa, static_cast<double>((bx * px + by * py) / length), 1e-8);
        EXPECT_NEAR(got.ordinate, static_cast<double>((px * by - py * bx) / length), 1e-8);
        // The library's squadro swaps sides behind the first point.
        const PL_PNT2D_record zero = {};
        const PL_PNT2D_record ahead = {to.x - from.x, to.y - from.y};
        CalcPtSquadro(&zero, &ahead, got.abscissa, got.abscissa >= 0.0 ? got.ordinate : -got.ordinate, &back);
        EXPECT_NEAR(back.x + from.x, p.x, 1e-7);
        EXPECT_NEAR(back.y + from.y, p.y, 1e-7);

        long double angle = (std::atan2(static_cast<long double>(p.x) - station.x,
                                        static_cast<long double>(p.y) - station.y) -
                             std::atan2(static_cast<long double>(orientation.x) - station.x,
                                        static_cast<long double>(orientation.y) - station.y)) *
                            200.0L / pi;
        angle += angle < 0.0L ? 400.0L : 0.0L;
        EXPECT_NEAR(got.angle_gon.value(), static_cast<double>(angle), 1e-9);
    }
}

// One unit of the angle's last decimal moves the farthest point by no more than the last decimal of its coordinates: a
// ten-thousandth of a gon is a ten-thousandth of the length at 200 / pi = 63.66.
TEST(Stakeout, AnglesHaveAsManyDecimalsAsTheFarthestPointNeeds)
{
    const struct {
        double farthest;
        int decimals;
        int of_angles;
    } rows[] = {{0.0, 4, 4},   {1.0, 4, 4},  {63.6, 4, 4}, {63.7, 4, 5}, {636.0, 4, 5},
                {637.0, 4, 6}, {63.6, 6, 6}, {63.7, 6, 7}, {1e20, 4, 17}};
    for (const auto& row : rows) {
        SetOut near;
        near.distance = 0.5 * row.farthest;
        SetOut far;
        far.distance = row.farthest;
        tool::Resolution resolution;
        resolution.decimals = row.decimals;
        EXPECT_EQ(tool::angle_decimals_for({near, far, near}, resolution), row.of_angles) << row.farthest;
    }
}

// ------------------------------------------------------------------------------------------------ the program

class StakeoutVerb : public test::ProgramTest {
protected:
    test::Result stakeout(const std::string& arguments) const
    {
        std::vector<std::string> words = {"stakeout", "lot.csv"};
        std::istringstream text(arguments);
        for (std::string word; text >> word;)
            words.push_back(word);
        return run(words);
    }
};

const char* const kLot = "E,N\n0,0\n80,0\n80,60\n0,60\n";

TEST_F(StakeoutVerb, TableReadsLikeThis)
{
    write("lot.csv", kLot);
    const test::Result run = stakeout("--station 1 --orientation 4 --parallel 1 --area 1600 --point 40,30");
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.out, "Parcel       lot.csv\n"
                       "Station      vertex 1  E 0.0000  N 0.0000\n"
                       "Orientation  vertex 4  E 0.0000  N 60.0000\n"
                       "Base line    vertex 1  E 0.0000  N 0.0000\n"
                       "             vertex 2  E 80.0000  N 0.0000\n"
                       "\n"
                       "  Point        E        N  Angle, gon  Distance    Along     Right\n"
                       "   from   0.0000  20.0000     0.00000   20.0000   0.0000  -20.0000\n"
                       "     to  80.0000  20.0000    84.40417   82.4621  80.0000  -20.0000\n"
                       "point 1  40.0000  30.0000    59.03345   50.0000  40.0000  -30.0000\n");
    EXPECT_EQ(run.status, 0);
}

// What belongs to a cut is not passed over where the cut is missing.
TEST_F(StakeoutVerb, PartsOfACutAloneAreRefused)
{
    write("lot.csv", kLot);
    for (const char* part :
         {"--area 5", "--product 2 3", "--share 1/2", "--width 2", "--areas 1,2", "--parts 2",
          "--area-from a", "--share-from a", "--side longest", "--side-near 1,2", "--facing 0",
          "--along lot.csv", "--side-from a", "--within 1", "--alternative 1", "--pieces any", "--decimals 2",
          "--tolerance 1%", "--opposite"}) {
        const test::Result run = stakeout(std::string("--station 1 --orientation 4 ") + part);
        EXPECT_EQ(run.status, 2) << part;
        EXPECT_EQ(run.err.rfind("plcalc: give one of --parallel SIDE, ", 0), 0u) << part << run.err;
    }
}

// With a cut the division says so, without one the set-out does.
TEST_F(StakeoutVerb, OfABoundaryThatCrossesItself)
{
    write("bow.csv", "E,N\n0,0\n100,0\n0,50\n100,50\n");
    for (const std::vector<std::string>& cut :
         {std::vector<std::string>{}, {"--parallel", "1", "--area", "10"}}) {
        std::vector<std::string> arguments = {"stakeout", "bow.csv", "--station", "1", "--orientation", "2"};
        arguments.insert(arguments.end(), cut.begin(), cut.end());
        const test::Result run = this->run(arguments);
        EXPECT_TRUE(test::fails_with(
            run, 3,
            "bow.csv: the boundary crosses or touches itself: side 2, from vertex 2 to vertex 3, meets side "
            "4, "
            "from vertex 4 to vertex 1; correct it so that it passes every vertex and side once"));
    }
}

TEST_F(StakeoutVerb, VerticesWhenNothingElseIsNamed)
{
    write("lot.csv", kLot);
    const test::Result run = stakeout("--station 40,-10 --orientation 40,100 --base 3 --csv");
    EXPECT_EQ(run.out, "point,E,N,angle_gon,distance,along,right\n"
                       "vertex 1,0.0000,0.0000,315.59583,41.2311,80.0000,-60.0000\n"
                       "vertex 2,80.0000,0.0000,84.40417,41.2311,0.0000,-60.0000\n"
                       "vertex 3,80.0000,60.0000,33.04987,80.6226,0.0000,0.0000\n"
                       "vertex 4,0.0000,60.0000,366.95013,80.6226,80.0000,0.0000\n");
}

TEST_F(StakeoutVerb, JsonHasTheSameNumbers)
{
    write("lot.csv", kLot);
    const test::Result run = stakeout("--station 1 --orientation 4 --vertex 2 --parts 3 --point 0,0 --json");
    ASSERT_EQ(run.status, 0) << run.err;
    const nlohmann::json got = nlohmann::json::parse(run.out);
    EXPECT_EQ(got["parcel"], "lot.csv");
    EXPECT_EQ(got["points"].size(), 5u);
    EXPECT_EQ(got["points"][0]["name"], "line 1 from");
    EXPECT_EQ(got["points"][0]["distance"], 80.0);
    EXPECT_EQ(got["points"][3]["name"], "line 2 to");
    EXPECT_EQ(got["points"][3]["n"], 40.0);
    EXPECT_EQ(got["points"][1]["e"], 26.6667);
    EXPECT_TRUE(got["points"][4]["angle_gon"].is_null()) << "the station itself";
    EXPECT_EQ(got["base_line"][0]["name"], "vertex 2");
    EXPECT_EQ(got["base_line"][0]["e"], 80.0);
    EXPECT_EQ(got["base_line"][0]["n"], 0.0);
    EXPECT_EQ(got["station"]["n"], 0.0);
    EXPECT_EQ(got["orientation"]["e"], 0.0);
    EXPECT_EQ(got["orientation"]["n"], 60.0);
}

// Here five decimals would turn the line: divide prints it with more, and it is that one that is set out.
TEST_F(StakeoutVerb, JsonSaysWhatWasAssumedAndTheAngleInItsUnit)
{
    write("xy.csv", "P;X;Y\n1;0;0\n2;30;0\n3;30;40\n");
    const test::Result run = this->run({"stakeout", "xy.csv", "--axes", "en", "--station", "1",
                                        "--orientation", "2", "--point", "3", "--json", "--angles", "deg"});
    ASSERT_EQ(run.status, 0) << run.err;
    const nlohmann::json json = nlohmann::json::parse(run.out);
    EXPECT_EQ(json["assumed"], nlohmann::json{"X is East and Y North, as --axes says"});
    EXPECT_EQ(json["points"][0]["distance"], 50.0);
    EXPECT_EQ(json["points"][0]["along"], 30.0);
    EXPECT_EQ(json["points"][0]["right"], -40.0);
    EXPECT_EQ(json["points"][0]["angle"].get<std::string>().substr(0, 7), "306.869");
    const test::Result gons =
        this->run({"stakeout", "xy.csv", "--axes", "en", "--station", "1", "--orientation", "2", "--json"});
    EXPECT_FALSE(nlohmann::json::parse(gons.out)["points"][0].contains("angle"));
}

TEST_F(StakeoutVerb, TheEndsHaveTheDecimalsOfTheLine)
{
    write("lot.csv", "E,N\n0,0\n40,0\n40,0.03\n0,0.05\n");
    const std::string cut = "--parallel 1 --share 1/3";
    const test::Result divided = divide("lot.csv", cut + " --json");
    ASSERT_EQ(divided.status, 0) << divided.err;
    const nlohmann::json line = nlohmann::json::parse(divided.out)["parcels"][0]["lines"][0];
    const double north = line["from"]["n"];
    ASSERT_NE(north, std::round(north * 1e5) / 1e5) << "five are what its size asks for";
    const nlohmann::json points =
        nlohmann::json::parse(stakeout("--station 1 --orientation 2 " + cut + " --json").out)["points"];
    EXPECT_EQ(points[0]["e"], line["from"]["e"]);
    EXPECT_EQ(points[0]["n"], line["from"]["n"]);
    EXPECT_EQ(points[1]["e"], line["to"]["e"]);
    EXPECT_EQ(points[1]["n"], line["to"]["n"]);
    EXPECT_EQ(points[0]["right"], -north) << "offsets to the same digit";
}

// Two arms on a strip, and a line across both: each of its parts has two ends.
TEST_F(StakeoutVerb, EndsOfTheLinesParts)
{
    write("lot.csv", "E,N\n0,0\n100,0\n100,60\n60,60\n60,20\n30,20\n30,60\n0,60\n");
    const nlohmann::json points = nlohmann::json::parse(
        stakeout("--station 1 --orientation 2 --parallel 1 --area 2700 --pieces any --json").out)["points"];
    const struct {
        const char* name;
        double east;
    } rows[] = {{"part 1 from", 0}, {"part 1 to", 30}, {"part 2 from", 60}, {"part 2 to", 100}};
    ASSERT_EQ(points.size(), 4u);
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(points[i]["name"], rows[i].name);
        EXPECT_EQ(points[i]["e"], rows[i].east);
        EXPECT_EQ(points[i]["n"], 30.0);
    }
    // Without a line it is the corners.
    ASSERT_EQ(stakeout("--station 1 --orientation 2 --points corners.csv").status, 0);
    std::ifstream corners(path("corners.csv"));
    std::string row;
    for (const char* wanted : {"name,E,N,code", "1,0.0000,0.0000,CORNER", "2,100.0000,0.0000,CORNER"}) {
        std::getline(corners, row);
        EXPECT_EQ(row, wanted);
    }
}

TEST_F(StakeoutVerb, TheFileMayStandBehindAPoint)
{
    write("lot.csv", kLot);
    const test::Result run =
        this->run({"stakeout", "--station", "1", "--orientation", "2", "--point", "0,30", "lot.csv"});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(test::numbers_after(run.out, "point 1").at(0), 0.0) << run.out;
    EXPECT_TRUE(test::fails_with(stakeout("--station 1 --orientation 2 --point 1,2 3,4"), 2,
                                 "'3,4' is not an argument of this command; see plcalc stakeout --help"));
}

TEST_F(StakeoutVerb, Refusals)
{
    write("lot.csv", kLot);
    struct Refusal {
        const char* arguments;
        int status;
        const char* text;
    };
    for (const Refusal& row :
         {Refusal{"--station 1", 2,
                  "give --station PLACE and --orientation PLACE; see plcalc stakeout --help"},
          {"--station 1 --orientation 9", 2, "lot.csv: there is no vertex 9; the parcel has vertices 1 to 4"},
          {"--station 0,0 --orientation 1", 2,
           "--orientation: this is the station itself; name another place; see plcalc stakeout --help"},
          {"--station 1 --orientation 5", 2, "lot.csv: there is no vertex 5; the parcel has vertices 1 to 4"},
          {"--station 0 --orientation 1", 2, "lot.csv: there is no vertex 0; the parcel has vertices 1 to 4"},
          {"--station x --orientation 1", 2,
           "--station: 'x' is not a place; write E,N with points before the decimals, the number of a "
           "vertex or the name of a point; see plcalc stakeout --help"},
          {"--station 1,5,5 --orientation 1", 2,
           "--station: '1,5,5' is not a place; write E,N with points before the decimals, the number of a "
           "vertex or the name of a point; see plcalc stakeout --help"},
          {"--station nan,1 --orientation 1", 2,
           "--station: 'nan,1' is not a place; write E,N with points before the decimals, the number of a "
           "vertex or the name of a point; see plcalc stakeout --help"},
          {"--station 1 --orientation 2 --base 0", 2,
           "lot.csv: there is no side 0; the parcel has sides 1 to 4"},
          {"--station 1 --orientation 2 --base 5", 2,
           "lot.csv: there is no side 5; the parcel has sides 1 to 4"},
          {"--station 1 --orientation 2 --csv --json", 2,
           "give one of --csv and --json; see plcalc stakeout --help"},
          {"--station 1 --orientation 2 --parallel 1", 2,
           "give one of --area A, --product A B, --share S, --width W, --areas LIST, --parts COUNT, "
           "--area-from COLUMN and --share-from COLUMN; see "
           "plcalc "
           "stakeout "
           "--help"},
          {"--station 1 --orientation 2 --parallel 1 --area 5000", 4,
           "lot.csv: the requested area 5000 is not less than the parcel's area 4800.0000; ask for less"}}) {
        SCOPED_TRACE(row.arguments);
        EXPECT_TRUE(test::fails_with(stakeout(row.arguments), row.status, row.text));
    }
    EXPECT_EQ(stakeout("--station 1 --orientation 4 --base 4").status, 0);
    write("lot.csv", "E,N\n0,0\n0,0\n80,0\n80,60\n");
    EXPECT_TRUE(
        test::fails_with(stakeout("--station 3 --orientation 4"), 2,
                         "lot.csv: side 1 has no length: its two vertices are one point; choose another "
                         "with --base"));
    write("degrees.geojson",
          R"({"type": "Polygon", "coordinates": [[[9, 45], [9.1, 45], [9.1, 45.1], [9, 45]]]})");
    EXPECT_EQ(run({"stakeout", "degrees.geojson", "--station", "1", "--orientation", "2"}).status, 3);
}

// ------------------------------------------------------------------------------------------- points by their names

class StakeoutNames : public test::ProgramTest {
protected:
    std::string stakeout(const std::string& arguments) const
    {
        std::istringstream list(arguments);
        std::vector<std::string> words = {"stakeout", "lot.csv", "--csv"};
        for (std::string word; list >> word;)
            words.push_back(word);
        const test::Result run = this->run(words);
        return run.status == 0 ? run.out.substr(run.out.find('\n') + 1) : run.err;
    }

    // A square whose second corner is called 4, and has another number.
    void write_lot() const { write("lot.csv", "P,E,N\nP1,0,0\n4,100,0\nP3,100,100\nP4,0,100\n"); }
};

TEST_F(StakeoutNames, CornersOfTheFile)
{
    write_lot();
    const std::string row = "P3,100.0000,100.0000,50.00000,141.4214,100.0000,-100.0000\n";
    EXPECT_EQ(stakeout("--station P1 --orientation P4 --point P3"), row);
    EXPECT_EQ(stakeout("--station 1 --orientation P4 --point 3"), row);
    // The corner that is called 4 lies to the East, the fourth to the North.
    const std::string from_east = "P3,100.0000,100.0000,350.00000,141.4214,100.0000,-100.0000\n";
    EXPECT_EQ(stakeout("--station P1 --orientation 4 --point P3"), from_east);
    const test::Result told = run({"stakeout", "lot.csv", "--station", "P1", "--orientation", "4"});
    EXPECT_EQ(told.out.rfind(
                  "Parcel       lot.csv (4 is the point of this name; the vertex is called 'vertex 4')\n", 0),
              0u)
        << told.out;
    const test::Result numbered = run(
        {"stakeout", "lot.csv", "--csv", "--station", "P1", "--orientation", "vertex 4", "--point", "P3"});
    EXPECT_NE(numbered.out.find(row), std::string::npos) << numbered.out << numbered.err;
    EXPECT_EQ(stakeout("--station P1 --orientation P9"),
              "plcalc: --orientation: 'P9' is not a place; write E,N with points before the decimals, the "
              "number of a "
              "vertex or the name of a point; see plcalc stakeout --help\n");
    const std::string all = stakeout("--station P1 --orientation P4");
    EXPECT_EQ(all.substr(0, 3), "P1,");
    EXPECT_NE(all.find("\n4,100.0000,0.0000,100."), std::string::npos) << all;
}

TEST_F(StakeoutNames, AreWrittenForAController)
{
    write_lot();
    const std::vector<std::string> words = {"stakeout", "lot.csv",  "--station", "P1",      "--orientation",
                                            "P4",       "--points", "out.csv",   "--point", "5,7.5"};
    const auto content = [&] {
        std::ifstream file(path("out.csv"));
        return std::string(std::istreambuf_iterator<char>(file), {});
    };
    std::vector<std::string> with_cut = words;
    for (const char* word : {"--perpendicular", "1", "--share", "1/2"})
        with_cut.push_back(word);
    const test::Result first = run(with_cut);
    ASSERT_EQ(first.status, 0) << first.err;
    EXPECT_NE(first.out.find("\nWritten  out.csv\n"), std::string::npos) << first.out;
    EXPECT_EQ(content(), "name,E,N,code\nP5,50.0000,0.0000,NEW\nP6,50.0000,100.0000,NEW\n"
                         "point 1,5.0000,7.5000,POINT\n");
    EXPECT_EQ(run(words).status, 2);
    std::vector<std::string> again = words;
    again.push_back("--overwrite");
    EXPECT_EQ(run(again).status, 0);
    EXPECT_EQ(content(), "name,E,N,code\npoint 1,5.0000,7.5000,POINT\n");
    // A name of the list is not given again, unless it is the same point.
    const std::string kept = "P5,50.0000,0.0000,NEW\nP6,50.0000,100.0000,NEW\n";
    std::vector<std::string> listed = with_cut;
    listed.insert(listed.end(), {"--overwrite", "--points-from", "list.csv"});
    write("list.csv", "name,E,N,code\nP5,1,1,PEG\n");
    const test::Result renamed = run(listed);
    EXPECT_EQ(content(), "name,E,N,code\nP6,50.0000,0.0000,NEW\nP7,50.0000,100.0000,NEW\n"
                         "point 1,5.0000,7.5000,POINT\nP5,1.0000,1.0000,POINT\n");
    EXPECT_NE(renamed.out.find("new points are numbered on behind those of the lists"), std::string::npos)
        << renamed.out;
    write("list.csv", "name,E,N,code\n" + kept);
    const test::Result same = run(listed);
    EXPECT_EQ(content(), "name,E,N,code\n" + kept + "point 1,5.0000,7.5000,POINT\n");
    EXPECT_EQ(same.out.find("numbered on"), std::string::npos) << same.out;
    write("list.csv", "name,E,N,code\nA,1,1,PEG\nA,2,1,PEG\n");
    EXPECT_TRUE(
        test::fails_with(run(listed), 2,
                         "lot.csv: --points: two points would be called 'A'; name them differently in "
                         "the files they come from"));
    again[7] = "out.txt";
    EXPECT_EQ(run(again).err,
              "plcalc: --points: 'out.txt' does not end in .csv; see plcalc stakeout --help\n");
}

TEST_F(StakeoutNames, ListsOfPoints)
{
    write_lot();
    write("control.csv", "name;E;N\nS1;-50,0;0,0\nS2;0;-50\nP1;1;1\n");
    write("list.csv", "name,E,N,Z,code\nA,0,50,7.5,NEW\nB,50,50,,NEW\n,10,10,,NEW\n");
    // From S1 towards P4: a square with the sides 50 and 100.
    EXPECT_EQ(stakeout("--control control.csv --station S1 --orientation S2 --point P3").rfind("P3,", 0), 0u);
    const std::string list =
        stakeout("--control control.csv --station S1 --orientation 0,0 --points-from list.csv");
    EXPECT_EQ(list.rfind("A,0.0000,50.0000,7.5000,350.", 0), 0u) << list;
    EXPECT_NE(list.find("\nB,50.0000,50.0000,,"), std::string::npos) << list;
    EXPECT_NE(list.find("\nrow 3,10.0000,10.0000,,"), std::string::npos) << list;
    EXPECT_EQ(std::count(list.begin(), list.end(), '\n'), 3);
    EXPECT_EQ(stakeout("--points-from list.csv --station A --orientation B --point P3").rfind("P3,", 0), 0u);
    EXPECT_EQ(stakeout("--control control.csv --station P1 --orientation S2")
                  .rfind("plcalc: lot.csv: --station: several points are called 'P1'", 0),
              0u);
    const test::Result table =
        run({"stakeout", "lot.csv", "--control", "control.csv", "--station", "S1", "--orientation", "S2"});
    EXPECT_EQ(table.out.rfind("Parcel       lot.csv (in control.csv commas stand before the decimals)\n", 0),
              0u)
        << table.out;
}

TEST_F(StakeoutNames, WhichOfXAndYIsEastInAList)
{
    write("lot.csv", "P,X,Y\nP1,0,0\nP2,0,100\nP3,100,100\nP4,100,0\n");
    write("list.csv", "name,X,Y\nA,10,20\n");
    const auto set_out = [&](const std::vector<std::string>& more) {
        std::vector<std::string> words = {"stakeout",      "lot.csv", "--station",     "P1",
                                          "--orientation", "P4",      "--points-from", "list.csv"};
        words.insert(words.end(), more.begin(), more.end());
        return run(words).out;
    };
    const struct {
        std::vector<std::string> options;
        const char* row;
        const char* assumed;
    } rows[] = {
        {{"--axes", "en"}, "A,10.0000,20.0000,", "in list.csv X is East and Y North"},
        {{"--axes", "ne"}, "A,20.0000,10.0000,", "in list.csv X is North and Y East"},
        {{"--crs", "EPSG:31468", "--any-scale"}, "A,20.0000,10.0000,", "in list.csv X is North and Y East"},
        {{"--crs", "EPSG:25832", "--any-scale"}, "A,10.0000,20.0000,", "in list.csv X is East and Y North"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.options[1]);
        std::vector<std::string> options = row.options;
        const std::string table = set_out(options);
        EXPECT_NE(table.substr(0, table.find("\nStation")).find(row.assumed), std::string::npos) << table;
        options.push_back("--csv");
        EXPECT_NE(set_out(options).find(row.row), std::string::npos) << set_out(options);
    }
}

TEST_F(StakeoutNames, ListsThatCannotBeUsed)
{
    write_lot();
    const struct {
        const char* list;
        int status;
        const char* text;
    } kWrongLists[] = {
        {"name,x\nA,1\n", 3, "list.csv: it is no list of points; give it the columns name, E and N"},
        {"name,X,Y\nA,1,2\n", 2,
         "list.csv: columns X and Y do not say which of them is East; call them E and N"},
        {"name,E,N\nA,1,\n", 3, "list.csv: row 1: N is empty; fill it in"},
        {"name,E,N\nA,1,two\n", 3,
         "list.csv: row 1: N is 'two', not a number; use a point before the decimals"},
        {"name,E,N\nA,1,inf\n", 3, "list.csv: row 1: its coordinates are not finite; correct them"},
    };
    for (const auto& row : kWrongLists) {
        write("list.csv", row.list);
        EXPECT_TRUE(test::fails_with(run({"stakeout", "lot.csv", "--station", "P1", "--orientation", "P4",
                                          "--points-from", "list.csv"}),
                                     row.status, row.text));
    }
}

TEST_F(StakeoutNames, AnglesInSeconds)
{
    write_lot();
    EXPECT_EQ(stakeout("--station P1 --orientation P4 --point P3 --angles dms"),
              "P3,100.0000,100.0000,\"45\u00b000'00.00\"\"\",141.4214,100.0000,-100.0000\n");
    EXPECT_EQ(stakeout("--station P1 --orientation P4 --point P3 --angles deg"),
              "P3,100.0000,100.0000,45.000000,141.4214,100.0000,-100.0000\n");
    EXPECT_NE(run({"stakeout", "lot.csv", "--station", "P1", "--orientation", "P4", "--angles", "quadrant"})
                  .out.find("      Angle  Distance"),
              std::string::npos)
        << "a circle reads no quadrants";
}

}  // namespace
