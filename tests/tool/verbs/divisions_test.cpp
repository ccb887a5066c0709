// The program on parcels whose dividing lines are known beforehand: tests/data/divisions.csv, computed with
// exact rational arithmetic by divisions.py beside it.

#include <cmath>
#include <fstream>
#include <iterator>

#include <gdal_priv.h>
#include <nlohmann/json.hpp>
#include <ogrsf_frmts.h>

#include "program.h"

namespace {

class Divisions : public test::ProgramTest {};

double distance(const std::vector<double>& p, const std::vector<double>& q)
{
    return std::hypot(p[0] - q[0], p[1] - q[1]);
}

std::vector<double> point(const OGRFeature& row, const char* name)
{
    const std::string e = std::string(name) + "_e";
    const std::string n = std::string(name) + "_n";
    return {row.GetFieldAsDouble(e.c_str()), row.GetFieldAsDouble(n.c_str())};
}

TEST_F(Divisions, EndsWhereExactArithmeticPutsThem)
{
    GDALAllRegister();
    const std::string file = PLCALC_DATA "/divisions.csv";
    const GDALDatasetUniquePtr table(GDALDataset::Open(file.c_str(), GDAL_OF_VECTOR));
    ASSERT_NE(table, nullptr);
    int rows = 0;
    for (const OGRFeatureUniquePtr& row : *table->GetLayer(0)) {
        ++rows;
        SCOPED_TRACE(row->GetFieldAsString("name"));
        const test::Result run =
            divide(file, std::string("--feature ") + std::to_string(row->GetFID()) + " --" +
                             row->GetFieldAsString("cut") + " " + row->GetFieldAsString("number") +
                             " --area " + row->GetFieldAsString("area"));
        ASSERT_EQ(run.status, 0) << run.err;
        EXPECT_EQ(run.err, "");

        const std::vector<double> from = test::numbers_after(run.out, "from");
        const std::vector<double> to = test::numbers_after(run.out, "to");
        ASSERT_EQ(from.size(), 2u);
        ASSERT_EQ(to.size(), 2u);
        const std::vector<double> wanted_from = point(*row, "from");
        const std::vector<double> wanted_to = point(*row, "to");
        // The search stops at 1e-6 of the area that it looks for, and the table rounds to 1e-4.
        const double parcel = test::numbers_after(run.out, "parcel").at(0);
        const double tolerance = 4e-6 * parcel / distance(wanted_from, wanted_to) + 1e-4;
        EXPECT_LE(distance(from, wanted_from), tolerance) << run.out;
        EXPECT_LE(distance(to, wanted_to), tolerance) << run.out;
        EXPECT_NEAR(test::numbers_after(run.out, "cut off").at(0), row->GetFieldAsDouble("area"),
                    1e-6 * parcel);
    }
    EXPECT_EQ(rows, 15);
}

// Area and midpoint as published: 18 414.82, and (325.13; 360.57), which are cut, not rounded, to the
// centimetre. The line at right angles to DA through that midpoint parts the parcel in 6115.4955 and 12299.3216
// (exact arithmetic).
TEST_F(Divisions, PublishedParcelHasThePublishedFigures)
{
    for (const char* file : {"published.csv", "published.geojson"}) {
        const test::Result run =
            divide(std::string(PLCALC_EXAMPLES "/") + file, "--perpendicular 4 --area 6115.495453730264");
        ASSERT_EQ(run.status, 0) << run.err;
        EXPECT_NEAR(test::numbers_after(run.out, "parcel").at(0), 18414.82, 0.005);
        EXPECT_NEAR(test::numbers_after(run.out, "from").at(0), 325.13, 0.01);
        EXPECT_NEAR(test::numbers_after(run.out, "from").at(1), 360.57, 0.01);
        EXPECT_NEAR(test::numbers_after(run.out, "rest").at(0), 12299.3216, 0.02);
        EXPECT_NEAR(test::numbers_after(run.out, "Perimeter").at(0), 575.7244, 0.0001);
    }
}

// What a person sees, to the blank. Half of a rectangle is the first line that the search tries.
TEST_F(Divisions, TableReadsLikeThis)
{
    write("lot.csv", "E,N\n0,0\n80,0\n80,50\n0,50\n");
    const test::Result run = divide("lot.csv", "--parallel 1 --product 40 50");
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.out, "Parcel  lot.csv\n"
                       "        4 vertices, anticlockwise\n"
                       "Cut     parallel to side 1, from vertex 1 to vertex 2\n"
                       "Asked   40 x 50\n"
                       "\n"
                       "Dividing line                    E          N\n"
                       "  from                      0.0000    25.0000\n"
                       "  to                       80.0000    25.0000\n"
                       "\n"
                       "Area\n"
                       "  requested              2000.0000\n"
                       "  cut off, along side 1  2000.0000\n"
                       "  rest                   2000.0000\n"
                       "  parcel                 4000.0000\n"
                       "Perimeter                 260.0000\n");
    EXPECT_EQ(run.status, 0);
}

struct LineRow {
    const char* what;
    const char* asked;
    std::vector<double> from;
    std::vector<double> to;
    const char* cut;   // what the table says of it
    const char* area;  // and of the area
};

// A rectangle of 80 by 50. Every figure by hand.
const LineRow kLines[] = {
    {"East lies on the right of a line to the North",
     "--bearing 0 --area 1000",
     {60, 0},
     {60, 50},
     "at the bearing 0 gon",
     "cut off, on the right of the line  1000.0000"},
    {"and West on its left",
     "--bearing 0 --area 1000 --opposite",
     {20, 0},
     {20, 50},
     "at the bearing 0 gon",
     "cut off, on the left of the line  1000.0000"},
    {"degrees",
     "--bearing 90d --area 1000",
     {0, 12.5},
     {80, 12.5},
     "at the bearing 90d",
     "of the line  1000.0000"},
    {"a quadrant bearing",
     "--bearing S45-00-00W --area 200",
     {20, 50},
     {0, 30},
     "at the bearing S45-00-00W",
     "of the line   200.0000"},
    {"a diagonal by a segment elsewhere",
     "--along-segment 1000,0,1010,10 --area 200",
     {60, 0},
     {80, 20},
     "in the direction from 1000 0 to 1010 10",
     "of the line   200.0000"},
    {"from a place on a side",
     "--place 1,30 --area 2500",
     {30, 0},
     {30, 50},
     "from 30 along side 1, from vertex 1 to vertex 2",
     "towards vertex 2  2500.0000"},
    {"from a place, the other way",
     "--place 1,30 --area 1500 --opposite",
     {30, 0},
     {30, 50},
     "from 30 along side 1",
     "towards vertex 1  1500.0000"},
    {"from a point on the boundary",
     "--through 80,20 --area 300",
     {80, 20},
     {60, 50},
     "through the point 80 20",
     "on the right of the line   300.0000"},
    {"a strip",
     "--parallel 1 --width 12.5",
     {0, 12.5},
     {80, 12.5},
     "parallel to side 1",
     "along side 1  1000.0000"},
    {"widths and areas mixed",
     "--perpendicular 1 --areas w10,1000,w20",
     {70, 0},
     {70, 50},
     "perpendicular to side 1",
     "piece 3                          1000.0000  1000.0000"},
};

TEST_F(Divisions, EveryKindOfLine)
{
    write("lot.csv", "E,N\n0,0\n80,0\n80,50\n0,50\n");
    for (const LineRow& row : kLines) {
        SCOPED_TRACE(row.what);
        const test::Result run = divide("lot.csv", row.asked);
        ASSERT_EQ(run.status, 0) << run.err;
        const std::vector<double> from = test::numbers_after(run.out, "from");
        const std::vector<double> to = test::numbers_after(run.out, "to");
        ASSERT_TRUE(from.size() == 2 && to.size() == 2) << run.out;
        EXPECT_NEAR(distance(from, row.from), 0.0, 1e-4) << run.out;
        EXPECT_NEAR(distance(to, row.to), 0.0, 1e-4) << run.out;
        EXPECT_NE(run.out.find(row.cut), std::string::npos) << run.out;
        EXPECT_NE(run.out.find(row.area), std::string::npos) << run.out;
    }
}

// Through (20, 20) of a square of 100 run two lines with 1000 on their right, mirrored at the diagonal.
TEST_F(Divisions, SeveralLinesThroughAPointAreCounted)
{
    write("lot.csv", "E,N\n0,0\n100,0\n100,100\n0,100\n");
    const test::Result first = divide("lot.csv", "--through 20,20 --area 1000");
    ASSERT_EQ(first.status, 0) << first.err;
    EXPECT_NE(first.out.find("Chosen  line 1 of 2 to choose from (--alternative)\n"), std::string::npos)
        << first.out;
    const test::Result second = divide("lot.csv", "--through 20,20 --area 1000 --alternative 2");
    ASSERT_EQ(second.status, 0) << second.err;
    const std::vector<double> from = test::numbers_after(first.out, "from");
    const std::vector<double> to = test::numbers_after(second.out, "to");
    ASSERT_TRUE(from.size() == 2 && to.size() == 2);
    EXPECT_NEAR(distance(from, {to[1], to[0]}), 0.0, 2e-4) << first.out << second.out;
    for (const char* number : {"1", "2"}) {
        const std::string json =
            divide("lot.csv", std::string("--through 20,20 --area 1000 --json --alternative ") + number).out;
        EXPECT_NE(json.find(std::string("\"alternative\": ") + number), std::string::npos) << json;
        EXPECT_NE(json.find("\"alternatives\": 2"), std::string::npos) << json;
    }
    EXPECT_TRUE(test::fails_with(divide("lot.csv", "--through 20,20 --area 1000 --alternative 3"), 4,
                                 "lot.csv: there is no line number 3: to cut off the requested area "
                                 "1000 there are 2 to choose from; choose one with "
                                 "--alternative N, from 1"));
}

struct NoLineRow {
    const char* asked;
    int status;
    const char* message;
};

const NoLineRow kNoLines[] = {
    {"--bearing 12-60 --area 9", 2,
     "--bearing: '12-60' is not an angle; write gons as in 112.5, degrees as in 101.25d or 101d15'30\", or a "
     "quadrant "
     "bearing as in S78-44-30E; see plcalc divide --help"},
    {"--along-segment 0,0,1 --area 9", 2,
     "--along-segment: '0,0,1' is not 4 numbers with commas between them and points before the decimals; see "
     "plcalc "
     "divide --help"},
    {"--along-segment 3,4,3,4 --area 9", 2,
     "lot.csv: the two ends of the segment are one point; name two different points"},
    {"--place 2,50.5 --area 9", 2,
     "lot.csv: 50.5 lies beyond the end of side 2; name a distance from 0 to the length of the side"},
    {"--place 5,1 --area 9", 2, "lot.csv: there is no side 5; the parcel has sides 1 to 4"},
    {"--through 99,1 --area 9", 4,
     "lot.csv: the point 99 1 lies outside the parcel; name one inside or on the boundary"},
    {"--vertex 1 --width 9", 2,
     "lot.csv: a line from a vertex or a place, or through a point, has no width to keep; ask for an area"},
    {"--parallel 1 --width 50", 4,
     "lot.csv: the requested width 50 reaches beyond what is left of the parcel; ask for less"},
    {"--vertex 1 --areas 9,9 --pieces any", 2,
     "lot.csv: a whole line through a vertex, a place or a point cuts off one amount only; ask for one "
     "amount, or "
     "for two pieces without --pieces any"},
    {"--through 20,20 --area 9 --pieces any", 4,
     "lot.csv: no line through the point cuts off the requested area 9; ask for at least 800.0000"},
    {"--bearing 50 --area 9 --pieces any --alternative 2", 2,
     "--alternative: with --pieces any there is only one line; see plcalc divide --help"},
    {"--parallel 1 --area 9 --pieces 2", 2, "--pieces: '2' is neither two nor any; see plcalc divide --help"},
    {"--parallel 1 --area 9 --alternative 0", 2,
     "--alternative: '0' is not a number from 1 on; see plcalc divide --help"},
};

TEST_F(Divisions, ALineThatThereIsNot)
{
    write("lot.csv", "E,N\n0,0\n80,0\n80,50\n0,50\n");
    for (const NoLineRow& row : kNoLines)
        EXPECT_TRUE(test::fails_with(divide("lot.csv", row.asked), row.status, row.message)) << row.asked;
}

// Sides and vertices of holes are numbered on: side 5 is the first of the hole.
TEST_F(Divisions, AParcelWithAHole)
{
    const std::string file =
        write_wkt("POLYGON ((0 0, 100 0, 100 60, 0 60, 0 0), (60 20, 80 20, 80 40, 60 40, 60 20))");
    const test::Result across = divide(file, "--parallel 1 --area 2800");
    ASSERT_EQ(across.status, 0) << across.err;
    EXPECT_NE(across.out.find("8 vertices, anticlockwise, 1 hole\n"), std::string::npos) << across.out;
    EXPECT_NE(across.out.find("Dividing line, part 2 "), std::string::npos) << across.out;
    EXPECT_NE(across.out.find("  parcel                 5600.0000\n"), std::string::npos) << across.out;
    EXPECT_NE(across.out.find("Perimeter                 400.0000\n"), std::string::npos) << across.out;
    const std::string third = divide(file, "--parallel 1 --share 1/3").out;
    EXPECT_NE(third.find(" 18.6667\n"), std::string::npos) << "four decimals, as without a hole: " << third;
    const test::Result beside = divide(file, "--perpendicular 6 --area 1500");
    EXPECT_NE(beside.out.find("Cut     perpendicular to side 6, from vertex 6 to vertex 7\n"),
              std::string::npos)
        << beside.out;
    EXPECT_NE(divide(file, "--parallel 9 --area 100").err.find("the parcel has sides 1 to 8"),
              std::string::npos);
    EXPECT_NE(divide(file, "--perpendicular 8 --area 1500").out.find("side 8, from vertex 8 to vertex 5"),
              std::string::npos);
    const test::Result measured = run({"measure", file});
    EXPECT_EQ(measured.status, 0) << measured.err;
    EXPECT_NE(measured.out.find("Area       5600.0000\n"), std::string::npos) << measured.out;
    EXPECT_NE(measured.out.find("\n   8     8   5   20.0000"), std::string::npos) << measured.out;
    EXPECT_NE(measured.out.find("300.0000"), std::string::npos)
        << "a corner of the hole, seen from the parcel";
}

// Two arms, 30 and 40 wide and 40 high, on a foot of 100 by 20. 1500 lie above 60 - 1500 / 70, and 1000 more 1000 / 70
// below that, in two pieces each.
class Arms : public Divisions {
protected:
    Arms() { write_wkt("POLYGON ((0 0, 100 0, 100 60, 60 60, 60 20, 30 20, 30 60, 0 60, 0 0))"); }
};

TEST_F(Arms, SeveralPiecesOfAnAmountAreAddedUp)
{
    const std::string one = divide("lot.csv", "--bearing 300 --area 1500 --pieces any").out;
    EXPECT_NE(one.find("\nDividing line, part 1                        E          N\n"
                       "  from                                100.0000    38.5714\n"
                       "  to                                   60.0000    38.5714\n"
                       "Dividing line, part 2                        E          N\n"
                       "  from                                 30.0000    38.5714\n"
                       "  to                                    0.0000    38.5714\n"
                       "\n"
                       "Area\n"
                       "  requested                          1500.0000\n"
                       "  cut off, on the right of the line  1500.0020\n"
                       "    1 of 2                            857.1440\n"
                       "    2 of 2                            642.8580\n"
                       "  rest                               3299.9980\n"),
              std::string::npos)
        << one;
    const std::string two = divide("lot.csv", "--bearing 300 --areas 1500,1000 --pieces any").out;
    EXPECT_NE(two.find("Dividing line 2, part 2                      E          N\n"
                       "  from                                 30.0000    24.2857\n"
                       "  to                                    0.0000    24.2857\n"
                       "\n"
                       "Area                                 requested   measured\n"
                       "  piece 1, on the right of the line  1500.0000  1500.0020\n"
                       "    1 of 2                                       857.1440\n"
                       "    2 of 2                                       642.8580\n"
                       "  piece 2                            1000.0000   999.9990\n"
                       "    1 of 2                                       571.4280\n"
                       "    2 of 2                                       428.5710\n"
                       "  piece 3                            2300.0000  2299.9990\n"),
              std::string::npos)
        << two;
}

TEST_F(Arms, SeveralPiecesOfAnAmountInJson)
{
    const struct {
        const char* line;
        const char* cut;
        const char* described;
    } rows[] = {{"--bearing 300", "bearing", "300 gon"},
                {"--along-segment 0,0,-5,0", "segment", "0 0 to -5 0"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.line);
        const test::Result run =
            divide("lot.csv", std::string(row.line) + " --areas 1500,1000 --pieces any --json");
        ASSERT_EQ(run.status, 0) << run.err;
        const nlohmann::json got = nlohmann::json::parse(run.out)["parcels"][0];
        EXPECT_EQ(got["cut"], row.cut);
        EXPECT_EQ(got["line"], row.described);
        EXPECT_EQ(got["lines"][1]["segments"][1]["from"], (nlohmann::json{{"e", 30.0}, {"n", 24.2857}}));
        const nlohmann::json pieces = got["pieces"];
        ASSERT_EQ(pieces.size(), 5U);
        EXPECT_EQ(pieces[0]["piece"], "piece 1, on the right of the line (1 of 2)");
        EXPECT_EQ(pieces[1]["piece"], "piece 1, on the right of the line (2 of 2)");
        EXPECT_EQ(pieces[2]["piece"], "piece 2 (1 of 2)");
        EXPECT_EQ(pieces[3]["piece"], "piece 2 (2 of 2)");
        EXPECT_EQ(pieces[4]["piece"], "piece 3");
        EXPECT_EQ(pieces[3]["amount"], 2);
        EXPECT_EQ(pieces[3]["given"], "1000");
        EXPECT_EQ(pieces[3]["requested"], 1000.0);
        EXPECT_EQ(pieces[3]["area"], 428.571);
        EXPECT_EQ(pieces[1]["area_of_amount"], 1500.002);
        EXPECT_EQ(pieces[3]["area_of_amount"], 999.999);
        EXPECT_FALSE(pieces[4].contains("area_of_amount"));
        EXPECT_TRUE(pieces[4]["given"].is_null());
    }
}

TEST_F(Arms, SeveralPiecesOfAnAmountInTheReport)
{
    ASSERT_EQ(divide("lot.csv", "--bearing 300 --areas 1500,1000 --pieces any --report report.txt").status,
              0);
    std::ifstream file(path("report.txt"));
    const std::string text((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    EXPECT_NE(text.find("Piece      asked       area  difference\n"
                        "    A              857.1440\n"
                        "    B              642.8580\n"
                        "A + B  1500.0000  1500.0020      0.0020\n"
                        "    C              571.4280\n"
                        "    D              428.5710\n"
                        "C + D  1000.0000   999.9990     -0.0010\n"
                        "    E  2300.0000  2299.9990     -0.0010\n"),
              std::string::npos)
        << text;
}

TEST_F(Divisions, PieceWithTheRequestIsNamed)
{
    write("lot.csv", "E,N\n0,0\n80,0\n80,50\n0,50\n");
    EXPECT_NE(divide("lot.csv", "--parallel 4 --area 1000").out.find("  cut off, along side 4 "),
              std::string::npos);
    EXPECT_NE(
        divide("lot.csv", "--perpendicular 4 --area 1000").out.find("  cut off, ahead towards vertex 1 "),
        std::string::npos);
    EXPECT_NE(divide("lot.csv", "--perpendicular 4 --area 1000")
                  .out.find("Cut     perpendicular to side 4, from vertex 4 to vertex 1\n"),
              std::string::npos);
    EXPECT_NE(divide("lot.csv", "--vertex 4 --area 1000").out.find("  cut off, along side 4 "),
              std::string::npos);
}

}  // namespace
