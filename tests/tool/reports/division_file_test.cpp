// The report of a division and the list of its points, as files.

#include <cmath>
#include <filesystem>
#include <fstream>
#include <sstream>

#include <nlohmann/json.hpp>

#include "program.h"

namespace {

class DivisionFiles : public test::ProgramTest {
protected:
    std::string content(const std::string& name) const
    {
        std::ifstream file(path(name), std::ios::binary);
        std::ostringstream text;
        text << file.rdbuf();
        return text.str();
    }

    void write_lot() const
    {
        write("lot.csv", "lot,WKT\n1234/5,\"POLYGON ((0 0, 80 0, 80 50, 0 50, 0 0))\"\n");
    }
};

TEST_F(DivisionFiles, AReportTellsEverythingAboutADivision)
{
    write_lot();
    const test::Result run =
        divide("lot.csv", "--parallel 1 --area 1000 --name-column lot --report report.txt");
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_NE(run.out.find("Written  report.txt\n"), std::string::npos) << run.out;
    EXPECT_EQ(content("report.txt"), R"(Division of a parcel
====================

Parcel
------
  Name: 1234/5
  Source: lot.csv: feature 1
  Coordinates: no CRS stated; the unit is not stated
  Boundary: 4 vertices, anticlockwise
  Area: 4000.0000
  Perimeter: 260.0000

Request
-------
  Cut: parallel to side 1, from vertex 1 to vertex 2
  Areas asked for: 1000

Method
------
  Each line is computed with all digits, and proven: it lies in the parcel, ends
  on the boundary and makes exactly two pieces. Its ends are then rounded to 4
  decimals, and the rounded line is proven again. The areas below are those of
  the rounded lines.

New points
----------
Point        E        N
   P1   0.0000  12.5000
   P2  80.0000  12.5000

Dividing lines
--------------
From  to   length  bearing, gon
  P1  P2  80.0000      100.0000

Sides that are cut: parts, then the whole
-----------------------------------------
From  to   length
   2  P2  12.5000
  P2   3  37.5000
   2   3  50.0000
   4  P1  37.5000
  P1   1  12.5000
   4   1  50.0000

Pieces
------
  Piece      asked       area  difference
1234/5a  1000.0000  1000.0000      0.0000
1234/5b  3000.0000  3000.0000      0.0000

Checks
------
  Sum of the pieces: 4000.0000
  Area of the parcel: 4000.0000
  Largest difference between asked and area: 0.0000
)");
}

// To whole units the line misses the area.
TEST_F(DivisionFiles, AReportTellsTheLargestDifference)
{
    write("lot.csv", "E,N\n0,0\n80,0\n80,60\n0,60\n");
    const test::Result run =
        divide("lot.csv", "--parallel 1 --area 1010 --decimals 0 --tolerance 1% --report report.txt");
    ASSERT_EQ(run.status, 0) << run.err;
    const double area = test::numbers_after(run.out, "cut off").at(0);
    ASSERT_NE(area, 1010.0) << "80 times whole units is none of it";
    const std::string report = content("report.txt");
    EXPECT_NE(report.find("Largest difference between asked and area: " +
                          std::to_string(static_cast<int>(std::fabs(area - 1010.0))) + ".0000\n"),
              std::string::npos)
        << report;
}

// Segments are told of a line that has several.
TEST_F(DivisionFiles, ALineInOnePartHasNoSegments)
{
    write_lot();
    const test::Result run = divide("lot.csv", "--parallel 1 --area 1000 --json");
    const nlohmann::json lines = nlohmann::json::parse(run.out)["parcels"][0]["lines"];
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_FALSE(lines[0].contains("segments")) << run.out;
}

TEST_F(DivisionFiles, AReportInMarkdownHasTables)
{
    write_lot();
    ASSERT_EQ(divide("lot.csv", "--parallel 1 --area 1000 --report report.md").status, 0);
    const std::string report = content("report.md");
    for (const char* part : {"# Division of a parcel\n\n## Parcel\n\n- Source: lot.csv: feature 1\n",
                             "| Point | E | N |\n| ---: | ---: | ---: |\n| P1 | 0.0000 | 12.5000 |\n",
                             "| A | 1000.0000 | 1000.0000 | 0.0000 |\n"})
        EXPECT_NE(report.find(part), std::string::npos) << part << report;
}

TEST_F(DivisionFiles, PointsForAController)
{
    write_lot();
    ASSERT_EQ(divide("lot.csv", "--parallel 1 --area 1000 --points points.csv").status, 0);
    EXPECT_EQ(content("points.csv"), "name,E,N,code\n"
                                     "P1,0.0000,12.5000,NEW\n"
                                     "P2,80.0000,12.5000,NEW\n"
                                     "1,0.0000,0.0000,CORNER\n"
                                     "2,80.0000,0.0000,CORNER\n"
                                     "3,80.0000,50.0000,CORNER\n"
                                     "4,0.0000,50.0000,CORNER\n");
    write("high.csv", "E,N,Z\n0,0,100\n80,0,\n80,50,116\n0,50,104\n");
    ASSERT_EQ(
        divide("high.csv", "--parallel 1 --area 1000 --points high-points.csv --report high.txt").status, 0);
    EXPECT_EQ(content("high-points.csv"), "name,E,N,Z,code\n"
                                          "P1,0.0000,12.5000,101.0000,NEW\n"
                                          "P2,80.0000,12.5000,,NEW\n"
                                          "1,0.0000,0.0000,100.0000,CORNER\n"
                                          "2,80.0000,0.0000,,CORNER\n"
                                          "3,80.0000,50.0000,116.0000,CORNER\n"
                                          "4,0.0000,50.0000,104.0000,CORNER\n");
    EXPECT_NE(content("high.txt").find("12.5000  101.0000\n"), std::string::npos) << content("high.txt");
    // And in again, to be set out.
    const test::Result run = this->run({"stakeout", "lot.csv", "--station", "0,0", "--orientation", "80,0",
                                        "--points-from", "points.csv", "--csv"});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_NE(run.out.find("\nP2,80.0000,12.5000,"), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("\n4,0.0000,50.0000,"), std::string::npos) << run.out;
}

TEST_F(DivisionFiles, RefusedWishes)
{
    write_lot();
    EXPECT_TRUE(
        test::fails_with(divide("lot.csv", "--parallel 1 --area 5 --report report.doc"), 2,
                         "--report: 'report.doc' does not end in .txt or .md; see plcalc divide --help"));
    EXPECT_TRUE(test::fails_with(divide("lot.csv", "--parallel 1 --area 5 --points points.gpkg"), 2,
                                 "--points: 'points.gpkg' does not end in .csv; see plcalc divide --help"));
    write("report.txt", "mine");
    EXPECT_TRUE(
        test::fails_with(divide("lot.csv", "--parallel 1 --area 5 --report report.txt --points points.csv"),
                         2, "report.txt: the file exists already; choose another name or add --overwrite"));
    EXPECT_EQ(content("report.txt"), "mine");
    EXPECT_FALSE(std::filesystem::exists(path("points.csv"))) << "all of them or none";
    EXPECT_TRUE(test::fails_with(divide("lot.csv", "--parallel 1 --area 5 --points lot.csv --overwrite"), 2,
                                 "lot.csv: the parcels come from this file; choose another name"));
    EXPECT_EQ(divide("lot.csv", "--parallel 1 --area 5000 --report other.txt").status, 4);
    EXPECT_NE(content("other.txt").find("Why there is no line\n"), std::string::npos);
    write("lots.csv", "id,WKT\n1,\"POLYGON ((0 0, 80 0, 80 50, 0 50, 0 0))\"\n"
                      "2,\"POLYGON ((0 0, 80 0, 80 50, 0 50, 0 0))\"\n");
    EXPECT_TRUE(
        test::fails_with(divide("lots.csv", "--parallel 1 --area 1000 --report other.txt"), 2,
                         "lots.csv: there are 2 parcels (feature 1, feature 2), and --report is about one; "
                         "choose one with --feature FID"));
}

// A refusal is a result that goes to the file, too.
TEST_F(DivisionFiles, ARefusalIsReported)
{
    write("lot.csv", "lot,WKT\n12/3,\"POLYGON ((0 0, 100 0, 100 50, 0 50, 0 0))\"\n");
    const test::Result run = divide(
        "lot.csv", "--parallel 1 --area 6000 --name-column lot --report report.txt --points points.csv");
    EXPECT_TRUE(test::fails_with(
        run, 4,
        "lot.csv: feature 1 '12/3': the requested area 6000 is not less than the parcel's area "
        "5000.0000; ask for less"));
    EXPECT_EQ(content("report.txt"),
              "A parcel that was not divided\n"
              "=============================\n"
              "\n"
              "Parcel\n"
              "------\n"
              "  Name: 12/3\n"
              "  Source: lot.csv: feature 1\n"
              "  Coordinates: no CRS stated; the unit is not stated\n"
              "  Boundary: 4 vertices, anticlockwise\n"
              "  Area: 5000.0000\n"
              "  Perimeter: 300.0000\n"
              "\n"
              "Request\n"
              "-------\n"
              "  Cut: parallel to side 1, from vertex 1 to vertex 2\n"
              "  Areas asked for: 6000\n"
              "\n"
              "Why there is no line\n"
              "--------------------\n"
              "  the requested area 6000 is not less than the parcel's area 5000.0000\n"
              "\n"
              "What to do\n"
              "----------\n"
              "  ask for less\n");
    EXPECT_EQ(divide("lot.csv", "--parallel 1 --area 6000 --report report.txt").status, 2)
        << "it is there already";
    EXPECT_EQ(divide("lot.csv", "--parallel 9 --area 60 --report other.txt").status, 2);
    EXPECT_EQ(divide("lot.csv", "--parallel 1 --area 60 --report other.txt").status, 0)
        << "nothing was written before";
}

TEST_F(DivisionFiles, ARefusalAsJson)
{
    write("lot.csv", "lot,WKT\n12/3,\"POLYGON ((0 0, 100 0, 100 50, 0 50, 0 0))\"\n");
    const test::Result run = divide("lot.csv", "--parallel 1 --area 6000 --json");
    EXPECT_EQ(run.status, 4);
    EXPECT_EQ(run.err, divide("lot.csv", "--parallel 1 --area 6000").err);
    const nlohmann::json got = nlohmann::json::parse(run.out);
    EXPECT_EQ(got["refused"], 1);
    EXPECT_EQ(got["divided"], 0);
    EXPECT_EQ(got["parcels"][0]["status"], "refused");
    EXPECT_EQ("plcalc: " + got["parcels"][0]["reason"].get<std::string>() + "\n", run.err);

    // 60 * 30.123 lie behind side 1. The reason tells what could be had, as it does for one parcel.
    const std::string lot = "\"POLYGON ((0 0, 40 0, 40 -30.123, 100 -30.123, 100 60, 0 60, 0 0))\"\n";
    write("lots.csv", "lot,WKT\nA," + lot + "B," + lot);
    const nlohmann::json many =
        nlohmann::json::parse(divide("lots.csv", "--parallel 1 --area 1000 --json").out);
    const std::string reason =
        "lots.csv: feature 2: the part of the parcel behind side 1 alone is larger than the requested area "
        "1000; ask for more than 1807.3800, or cut along side 5, across side 5, along side 4, across side 4, "
        "along side 3 or 13 other lines";
    EXPECT_EQ(many["parcels"][1]["reason"], reason);
    EXPECT_EQ(many["parcels"][1]["instead"]["above"]["area"], 1807.38);
    EXPECT_EQ(many["parcels"][1]["instead"]["lines"].size(), 18u) << "five and thirteen others";
    EXPECT_EQ(many["parcels"][1]["instead"]["whole_list"], true) << "all were looked at";
    EXPECT_TRUE(test::fails_with(divide("lots.csv", "--parallel 1 --area 1000 --feature 2"), 4, reason));
    const nlohmann::json one =
        nlohmann::json::parse(divide("lots.csv", "--parallel 1 --area 1000 --feature 2 --json").out);
    EXPECT_EQ(one["parcels"][0]["reason"], reason);
}

}  // namespace
