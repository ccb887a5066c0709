// Sides and vertices that are named by what they are, and what could be had after a refusal.

#include <fstream>
#include <sstream>

#include "program.h"

namespace {

std::string content(const std::string& file)
{
    std::ostringstream text;
    text << std::ifstream(file).rdbuf();
    return text.str();
}

class Sides : public test::ProgramTest {
protected:
    //   4 --- 3      A lot of 120 by 80; its longest sides are 1 and 3. The other lot is a trapezium: its
    //   |     |      side 1, in the South, is 120 long, and side 3, in the North, 100.
    //   1 --- 2
    std::string lot() const
    {
        return write("lot.csv", "name,WKT\na,\"POLYGON((0 0,120 0,120 80,0 80,0 0))\"\n");
    }
    std::string trapezium() const
    {
        return write("trapezium.csv", "name,WKT\na,\"POLYGON((0 0,120 0,110 80,10 80,0 0))\"\n");
    }
    std::string roads() const { return write("roads.csv", "name,WKT\na,\"LINESTRING(128 -500,128 500)\"\n"); }
};

TEST_F(Sides, LongestIsSaid)
{
    const test::Result run = divide(trapezium(), "--parallel --side longest --area 1000");
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_NE(run.out.find("Cut     parallel to side 1, from vertex 1 to vertex 2\n"
                           "Chosen  side 1 is the longest, 120.000;\n"
                           "        next comes side 3, 100.000\n"),
              std::string::npos)
        << run.out;
    const test::Result shortest = divide(trapezium(), "--perpendicular --side shortest --area 1000");
    EXPECT_EQ(shortest.status, 4);
    EXPECT_NE(shortest.err.find("sides 2 and 4 fit equally well: each is the shortest, 80.623"),
              std::string::npos)
        << shortest.err;
}

TEST_F(Sides, TiesAreRefused)
{
    const test::Result run = divide(lot(), "--parallel --side longest --area 1000");
    EXPECT_EQ(run.status, 4);
    EXPECT_EQ(run.out, "");
    EXPECT_NE(
        run.err.find(
            "sides 1 and 3 fit equally well: each is the longest, 120.000; choose one of them by its number"),
        std::string::npos)
        << run.err;
}

TEST_F(Sides, NearAPointAndFacing)
{
    test::Result run = divide(lot(), "--parallel --side-near 60,-5 --area 1000");
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_NE(run.out.find("side 1 is the nearest to 60 -5, 5.000 away"), std::string::npos) << run.out;
    run = divide(lot(), "--perpendicular --facing 90 --area 1000");
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_NE(run.out.find("side 2 faces 90 gon, 10.00 gon from it"), std::string::npos) << run.out;
    run = divide(lot(), "--parallel --facing 90d --area 1000");
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_NE(run.out.find("side 2 faces 90d, 0.00 gon from it"), std::string::npos) << run.out;
    run = divide(lot(), "--vertex-near 119,79 --area 1000");
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_NE(run.out.find("Cut     through vertex 3\nChosen  vertex 3 is the nearest to 119 79, 1.414 away"),
              std::string::npos)
        << run.out;
}

TEST_F(Sides, AlongARoad)
{
    test::Result run = divide(lot(), "--parallel --along " + roads() + " --area 1000");
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_NE(run.out.find("Cut     parallel to side 2"), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("80.000 of it, as near as 8.000"), std::string::npos) << run.out;
    run = divide(lot(), "--parallel --along " + roads() + ":roads --within 7.5 --area 1000");
    EXPECT_EQ(run.status, 4);
    EXPECT_NE(run.err.find("no side comes within 7.500 of"), std::string::npos) << run.err;
    EXPECT_NE(run.err.find("the nearest is 8.000 away"), std::string::npos) << run.err;
    run = divide(lot(), "--parallel --along " + roads() + ":lanes --area 1000");
    EXPECT_EQ(run.status, 2) << run.err;
    run = divide(lot(), "--parallel --along " + path("none.gpkg") + " --area 1000");
    EXPECT_EQ(run.status, 3) << run.err;
}

TEST_F(Sides, AlongWhateverHasLines)
{
    const struct {
        const char* what;
        const char* rows;
    } others[] = {
        {"a polygon", "p,\"POLYGON((128 -500,140 -500,140 500,128 500,128 -500))\"\n"},
        {"the hole of one", "p,\"POLYGON((-900 -900,900 -900,900 900,-900 900,-900 -900),(-400 -500,128 "
                            "-500,128 500,-400 500,-400 -500))\"\n"},
        {"several lines", "p,\"MULTILINESTRING((300 -500,300 500),(128 -500,128 500))\"\n"},
        {"a collection", "p,\"GEOMETRYCOLLECTION(POINT(0 0),LINESTRING(128 -500,128 500))\"\n"},
        {"rows without geometry", "p,\"\"\nq,\"LINESTRING(128 -500,128 500)\"\nr,\n"},
    };
    for (const auto& other : others) {
        SCOPED_TRACE(other.what);
        const std::string file = write("other.csv", std::string("name,WKT\n") + other.rows);
        const test::Result run = divide(lot(), "--parallel --along " + file + " --area 1000");
        ASSERT_EQ(run.status, 0) << run.err;
        EXPECT_NE(run.out.find("side 2 lies along other.csv, 80.000 of it, as near as 8.000"),
                  std::string::npos)
            << run.out;
    }
}

TEST_F(Sides, AlongLinesOfAnotherCrsOrOfSeveralLayers)
{
    write("lots.geojson",
          R"({"type":"FeatureCollection","crs":{"type":"name","properties":{"name":"EPSG:25832"}},
"features":[{"type":"Feature","properties":{},"geometry":{"type":"Polygon",
"coordinates":[[[500000,0],[500120,0],[500120,80],[500000,80],[500000,0]]]}}]})");
    const std::string line = R"("features":[{"type":"Feature","properties":{},"geometry":
{"type":"LineString","coordinates":[[500128,-500],[500128,500]]}}]})";
    const std::string head =
        R"({"type":"FeatureCollection","crs":{"type":"name","properties":{"name":"EPSG:)";
    write("same.geojson", head + "25832\"}}," + line);
    write("other.geojson", head + "31468\"}}," + line);
    const test::Result same = divide("lots.geojson", "--parallel --along same.geojson --area 1000");
    EXPECT_EQ(same.status, 0) << same.err;
    EXPECT_TRUE(test::fails_with(
        divide("lots.geojson", "--parallel --along other.geojson --area 1000"), 3,
        "other.geojson: its CRS DHDN / 3-degree Gauss-Kruger zone 4 (EPSG:31468) is not that "
        "of the parcels, ETRS89 / UTM zone 32N (EPSG:25832); "
        "bring it to theirs, for example with ogr2ogr -t_srs"));
    ASSERT_EQ(divide("lots.geojson", "--parallel 1 --area 1000 -o pieces.gpkg").status, 0);
    ASSERT_EQ(divide("lots.geojson", "--parallel 1 --area 1000 -o pieces.gpkg").status, 2);
    EXPECT_TRUE(
        test::fails_with(divide("lots.geojson", "--parallel --along pieces.gpkg --area 1000"), 2,
                         "pieces.gpkg: several layers have lines; name one, as in pieces.gpkg:LAYER"));
    EXPECT_TRUE(
        test::fails_with(divide("lots.geojson", "--parallel --along pieces.gpkg:lines --area 1000"), 4,
                         "lots.geojson: feature 0: no side that is near enough faces the other geometry "
                         "and runs along it (pieces.gpkg:lines); choose the side by its number"))
        << "a line inside";
}

//   4 ------------ 3    Two holes of 20 by 20: 5 to 8 in the West, 9 to 12 in the East.
//   | 8-7    12-11 |
//   | 5-6     9-10 |
//   1 ------------ 2
TEST_F(Sides, OfHolesAreNumberedOn)
{
    const std::string file = write("holes.csv", "name,WKT\na,\"POLYGON((0 0,120 0,120 60,0 60,0 0),"
                                                "(20 20,40 20,40 40,20 40,20 20),"
                                                "(80 20,100 20,100 40,80 40,80 20))\"\n");
    for (const auto& row : {std::pair<const char*, const char*>{"22,19", "side 5 is"},
                            {"41,22", "side 6 is"},
                            {"79,30", "side 12 is"},
                            {"1,30", "side 4 is"}}) {
        const test::Result run =
            divide(file, std::string("--parallel --side-near ") + row.first + " --area 900 --pieces any");
        ASSERT_EQ(run.status, 0) << run.err;
        EXPECT_NE(run.out.find(row.second), std::string::npos) << row.first << run.out;
    }
    const test::Result vertex = divide(file, "--vertex-near 101,41 --area 3000 --pieces any");
    ASSERT_EQ(vertex.status, 0) << vertex.err;
    EXPECT_NE(vertex.out.find("vertex 11 is the nearest to 101 41, 1.414 away"), std::string::npos)
        << vertex.out;
    const test::Result tie = divide(file, "--parallel --side-near 60,30 --area 900");
    EXPECT_NE(tie.err.find("sides 6 and 12 fit equally well: each is the nearest to 60 30, 20.000 away"),
              std::string::npos)
        << tie.err;
}

TEST_F(Sides, ManyThatTieAreCounted)
{
    // Steps: ten sides of 1, and two of 5.
    const std::string file =
        write("steps.csv", "name,WKT\na,\"POLYGON((0 0,1 0,1 1,2 1,2 2,3 2,3 3,4 3,4 4,5 4,"
                           "5 5,0 5,0 0))\"\n");
    EXPECT_TRUE(
        test::fails_with(divide(file, "--parallel --side shortest --area 3"), 4,
                         "steps.csv: feature 1: sides 1, 2, 3, 4, 5 and 5 more fit equally well: each is "
                         "the shortest, 1.000; choose one of them by its number"));
    EXPECT_TRUE(
        test::fails_with(divide(file, "--parallel --facing 100 --area 3"), 4,
                         "steps.csv: feature 1: sides 2, 4, 6, 8 and 10 fit equally well: each faces 100 "
                         "gon, 0.00 gon from it; choose one of them by its number"));
}

TEST_F(Sides, NearAPointOutOfRange)
{
    EXPECT_TRUE(
        test::fails_with(divide(lot(), "--parallel --side-near 1e95,0 --area 3"), 4,
                         "lot.csv: feature 1: a number that is asked with is not finite, or out of range "
                         "(1e+95 0); choose the side by its number"));
}

TEST_F(Sides, OfABoundaryThatCrossesItselfItIsTheBoundaryThatIsRefused)
{
    const std::string bow = write("bow.csv", "name,WKT\na,\"POLYGON((0 0,120 0,0 80,110 80,0 0))\"\n");
    const test::Result by_number = divide(bow, "--parallel 1 --area 1000");
    ASSERT_NE(by_number.err.find("side 2, from vertex 2 to vertex 3, meets side 4"), std::string::npos)
        << by_number.err;
    for (const char* side : {"--parallel --side longest", "--parallel --facing 90", "--vertex-near 1,1"}) {
        const test::Result run = divide(bow, std::string(side) + " --area 1000");
        EXPECT_EQ(run.status, by_number.status) << side;
        EXPECT_EQ(run.out, "") << side;
        EXPECT_EQ(run.err, by_number.err) << side;
    }
}

TEST_F(Sides, WrongUse)
{
    for (const char* options :
         {"--parallel --area 10", "--parallel 1 --side longest --area 10", "--side longest --area 10",
          "--parallel --side longest --facing 10 --area 10", "--parallel --side widest --area 10",
          "--parallel --side-near 5 --area 10", "--parallel --facing south --area 10",
          "--parallel --side longest --within 5 --area 10", "--vertex 1 --facing 10 --area 10",
          "--vertex-near 1 --area 10", "--vertex-near 1,2 --vertex 1 --area 10"}) {
        const test::Result run = divide(lot(), options);
        EXPECT_EQ(run.status, 2) << options << run.out;
        EXPECT_EQ(run.out, "") << options;
    }
}

TEST_F(Sides, OfEachParcelOfALayer)
{
    const std::string file = write("lots.csv", "name,WKT\na,\"POLYGON((0 0,120 0,110 80,10 80,0 0))\"\n"
                                               "b,\"POLYGON((200 0,290 0,300 80,200 80,200 0))\"\n"
                                               "c,\"POLYGON((400 0,520 0,520 80,400 80,400 0))\"\n");
    const test::Result run = divide(file, "--parallel --side longest --area 1000 --json");
    EXPECT_EQ(run.status, 4) << run.err;
    EXPECT_NE(run.out.find("\"chosen\": \"side 1 is the longest, 120.000; next comes side 3, 100.000\""),
              std::string::npos)
        << run.out;
    EXPECT_NE(run.out.find("\"chosen\": \"side 3 is the longest, 100.000; next comes side 1, 90.000\""),
              std::string::npos);
    EXPECT_NE(run.out.find("sides 1 and 3 fit equally well"), std::string::npos);
    EXPECT_NE(run.out.find("\"divided\": 2"), std::string::npos);
}

TEST_F(Sides, InTheReportAndInTheStakeout)
{
    const test::Result run =
        divide(trapezium(), "--parallel --side longest --area 1000 --report " + path("report.txt"));
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_NE(content(path("report.txt")).find("Chosen: side 1 is the longest"), std::string::npos);
    const test::Result set_out = this->run({"stakeout", trapezium(), "--station", "1", "--orientation", "2",
                                            "--parallel", "--facing", "0", "--area", "1000"});
    ASSERT_EQ(set_out.status, 0) << set_out.err;
    EXPECT_NE(set_out.out.find("vertex 3"), std::string::npos) << "the base is side 3\n" << set_out.out;
}

//   8-7    6-5      A U of 3600: below its gap 1800, and 900 in each leg. Parallel to side 1 are had less than 1800, and
//   | 1----4 |      2700 and more.
//   1 ------ 2
TEST_F(Sides, ARefusalSaysWhatCanBeHad)
{
    const std::string file =
        write("u.csv", "name,WKT\na,\"POLYGON((0 0,90 0,90 50,60 50,60 20,30 20,30 50,0 50,0 0))\"\n");
    const test::Result run = divide(file, "--parallel 1 --area 2200");
    EXPECT_EQ(run.status, 4);
    EXPECT_NE(
        run.err.find("ask for less than 1800.0000 or at least 2700.0000, or cut along side 1 (--opposite), "
                     "across side 1"),
        std::string::npos)
        << run.err;
    EXPECT_EQ(divide(file, "--parallel 1 --area 2700").status, 0);
    EXPECT_EQ(divide(file, "--parallel 1 --area 1799.9999").status, 0);
    EXPECT_EQ(divide(file, "--parallel 1 --opposite --area 2200").status, 0);
    EXPECT_EQ(divide(file, "--perpendicular 1 --area 2200").status, 0);
    const test::Result json = divide(file, "--parallel 1 --area 2200 --json");
    EXPECT_EQ(json.status, 4);
    const std::string square =
        write("square.csv", "name,WKT\na,\"POLYGON((0 0,100 0,100 100,0 100,0 0))\"\n");
    const test::Result point = divide(square, "--through 25,25 --area 1000");
    EXPECT_EQ(point.status, 4);
    EXPECT_NE(point.err.find("ask for at least 1250.0000"), std::string::npos) << point.err;
    // Every line through the middle halves the square: no other area can be had.
    const test::Result middle = divide(square, "--through 50,50 --share 1/3");
    EXPECT_EQ(middle.status, 4);
    EXPECT_NE(middle.err.find("ask for exactly 5000.0000, or cut along side 1"), std::string::npos)
        << middle.err;
    const test::Result for_programs = divide(square, "--through 50,50 --share 1/3 --json");
    EXPECT_NE(for_programs.out.find(R"("only": true)"), std::string::npos) << for_programs.out;
    EXPECT_NE(for_programs.out.find("ask for exactly 5000.0000, or cut along side 1"), std::string::npos)
        << "the reason gives the advice, too\n"
        << for_programs.out;
}

// Around a hole like a U: up to its bay's floor lie 2400, and 4800 from its top on. Its sides are counted on from the outer ring's.
TEST_F(Sides, ARefusalSaysWhatCanBeHadBesideAHole)
{
    const std::string file = write("bay.csv", "name,WKT\na,\"POLYGON((0 0,100 0,100 100,0 100,0 0),"
                                              "(20 20,20 60,30 60,30 30,70 30,70 60,80 60,80 20,20 20))\"\n");
    const test::Result run = divide(file, "--parallel 1 --area 3000");
    EXPECT_EQ(run.status, 4);
    EXPECT_NE(
        run.err.find("ask for at most 2400.0000 or more than 4800.0000, or cut along side 1 (--opposite), "
                     "across side 1"),
        std::string::npos)
        << run.err;
    EXPECT_EQ(divide(file, "--parallel 1 --area 2400").status, 0);
    EXPECT_EQ(divide(file, "--parallel 1 --area 4800.0001").status, 0);
    const test::Result json = divide(file, "--parallel 1 --area 3000 --json");
    EXPECT_EQ(json.status, 4);
}

}  // namespace
