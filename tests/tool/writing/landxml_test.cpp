// LandXML that the program writes, and LandXML of others that it reads.

#include <cmath>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "files/landxml.h"
#include "program.h"

namespace {

class LandXml : public test::ProgramTest {
protected:
    std::string content(const std::string& name) const
    {
        std::ifstream file(path(name));
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }

    // A LandXML file with these elements, in US survey feet where it says so.
    void write_xml(const std::string& elements, const std::string& unit = "Metric linearUnit=\"meter\"")
    {
        write("in.xml",
              "<?xml version=\"1.0\"?>\n<LandXML xmlns=\"http://www.landxml.org/schema/LandXML-1.2\" "
              "version=\"1.2\"><Units><" +
                  unit + "/></Units>" + elements + "</LandXML>\n");
    }

    void expect_refused(const std::string& elements, const std::string& why)
    {
        write_xml(elements);
        EXPECT_TRUE(test::fails_with(run({"measure", "in.xml"}), 3, "in.xml: " + why));
    }

    double area() { return test::numbers_after(run({"measure", "in.xml"}).out, "Area").at(0); }
};

std::string line(const std::string& from, const std::string& to)
{
    return "<Line><Start>" + from + "</Start><End>" + to + "</End></Line>";
}

std::string parcel(const std::string& boundary)
{
    return "<Parcels><Parcel name=\"7/1\"><CoordGeom>" + boundary + "</CoordGeom></Parcel></Parcels>";
}

// 40 to the East and 30 to the North from (1000, 2000): northing stands first.
const std::string kA = "2000 1000";
const std::string kB = "2000 1040";
const std::string kC = "2030 1040";
const std::string kD = "2030 1000";

TEST_F(LandXml, PiecesAndPointsAreWritten)
{
    const test::Result run =
        divide(PLCALC_EXAMPLES "/utm-convex.geojson", "--feature 17 --parallel 2 --parts 3 -o out.xml");
    ASSERT_EQ(run.status, 0) << run.err;
    const std::string text = content("out.xml");
    for (const char* part : {"xmlns=\"http://www.landxml.org/schema/LandXML-1.2\" version=\"1.2\" date=\"",
                             "linearUnit=\"meter\"", "areaUnit=\"squareMeter\"", "epsgCode=\"32632\"",
                             "<CgPoint name=\"1\" code=\"CORNER\">4985117.436 610234.182</CgPoint>",
                             "<CgPoint name=\"P1\" code=\"NEW\">", "<Parcel name=\"A\"",
                             "<Start pntRef=\"P1\"/>", "state=\"proposed\"", "\n <Units>\n  <Metric "})
        EXPECT_NE(text.find(part), std::string::npos) << part;
    // Read back, the pieces have the areas that were printed, and their points the names.
    double sum = 0.0;
    for (const char* piece : {"1", "2", "3"})
        sum += test::numbers_after(this->run({"measure", "out.xml", "--feature", piece}).out, "Area").at(0);
    EXPECT_NEAR(sum, test::numbers_after(run.out, "parcel").at(0), 0.01)
        << "new points lie a rounding off their sides";
    ASSERT_EQ(divide("out.xml", "--feature 3 --parallel 1 --share 1/2 --points p.csv").status, 0);
    EXPECT_NE(content("p.csv").find("\nP3,610240.7812,4985116.1439,CORNER\n"), std::string::npos)
        << content("p.csv");
    EXPECT_NE(content("p.csv").find("\nP5,"), std::string::npos);
}

// A square with a square hole, another beside it without, and a third that is refused; heights at the corners of the first.
TEST_F(LandXml, HolesGoOutAndComeBack)
{
    write("lots.csv",
          "WKT,id\n"
          "\"POLYGON Z ((0 0 1, 100 0 1, 100 100 3, 0 100 3, 0 0 1), (40 40 5, 40 60 6, 60 60 7, 60 40 8, 40 "
          "40 5))\",a\n"
          "\"POLYGON ((200 0, 300 0, 300 100, 200 100, 200 0))\",b\n"
          "\"POLYGON ((400 0, 410 0, 410 10, 400 10, 400 0), (404 4, 404 6, 406 6, 406 4, 404 4))\",c\n");
    const test::Result run = divide("lots.csv", "--parallel 1 --area 2000 --name-column id --crs "
                                                "LOCAL_CS[\"site\",UNIT[\"metre\",1]] -o out.xml");
    EXPECT_EQ(run.status, 4) << run.err;
    EXPECT_EQ(this->run({"measure", "out.xml", "--csv"}).out,
              "parcel,name,area,perimeter,vertices,holes,direction,status\n"
              "feature 1,a-A,2000.0000,240.0000,4,0,anticlockwise,measured\n"
              "feature 2,a-B,7600.0000,440.0000,8,1,anticlockwise,measured\n"
              "feature 3,b-A,2000.0000,240.0000,4,0,anticlockwise,measured\n"
              "feature 4,b-B,8000.0000,360.0000,4,0,anticlockwise,measured\n"
              "feature 5,c,96.000000,48.00000,8,1,anticlockwise,measured\n");
    // Points of holes keep their names and heights.
    ASSERT_EQ(divide("out.xml", "--feature 2 --perpendicular 1 --share 1/4 --points p.csv").status, 0);
    for (const char* point :
         {"\n1.5,40.0000,40.0000,5.0000,CORNER\n", "\n1.8,60.0000,40.0000,8.0000,CORNER\n"})
        EXPECT_NE(content("p.csv").find(point), std::string::npos) << content("p.csv");
    // What else several boundaries may be is refused.
    const std::string square =
        line("0 0", "0 9") + line("0 9", "9 9") + line("9 9", "9 0") + line("9 0", "0 0");
    const struct {
        const char* what;
        std::string second;
        bool is_hole;
    } rows[] = {
        {"inside", line("2 2", "2 4") + line("2 4", "4 4") + line("4 4", "2 2"), true},
        {"inside, at a corner", line("0 0", "2 4") + line("2 4", "4 2") + line("4 2", "0 0"), true},
        {"beside", line("2 12", "2 14") + line("2 14", "4 14") + line("4 14", "2 12"), false},
        {"across", line("2 2", "2 14") + line("2 14", "4 14") + line("4 14", "2 2"), false},
        {"open", line("2 2", "2 4") + line("2 4", "4 4"), false},
    };
    for (const auto& row : rows) {
        write_xml(parcel(square + "</CoordGeom><CoordGeom>" + row.second));
        const test::Result measured = this->run({"measure", "in.xml"});
        EXPECT_EQ(measured.err.find("the others are no holes in the first") == std::string::npos, row.is_hole)
            << row.what << measured.err;
    }
}

TEST_F(LandXml, InUtf16)
{
    write_xml(parcel(line(kA, kB) + line(kB, kC) + line(kC, kD) + line(kD, kA)));
    const std::string text = content("in.xml");
    for (const bool big : {false, true}) {
        std::string wide = big ? "\xFE\xFF" : "\xFF\xFE";
        for (const char c : text) {
            wide += big ? std::string(1, '\0') + c : std::string(1, c);
            wide += big ? "" : std::string(1, '\0');
        }
        write("in.xml", wide);
        EXPECT_EQ(area(), 1200.0);
    }
}

TEST_F(LandXml, SeveralParcelsKeepTheirPointsApart)
{
    write("lots.geojson",
          R"({"type":"FeatureCollection","crs":{"type":"name","properties":{"name":"EPSG:32632"}},"features":[
{"type":"Feature","properties":{"lot":"17/4"},"geometry":{"type":"Polygon","coordinates":[[[500000,5000000],[500100,5000000],[500100,5000050],[500000,5000000]]]}},
{"type":"Feature","properties":{"lot":"<18>"},"geometry":{"type":"Polygon","coordinates":[[[600000,5000000],[600100,5000000],[600001,5000000],[600000,5000050],[600000,5000000]]]}}]})");
    const test::Result run =
        divide("lots.geojson", "--name-column lot --parallel 1 --share 1/2 -o out.landxml");
    EXPECT_EQ(run.status, 3) << run.err;  // the second is refused
    const std::string text = content("out.landxml");
    for (const char* part : {"<CgPoint name=\"1.1\"", "<Parcel name=\"17/4a\"",
                             "<Parcel name=\"&lt;18&gt;\" desc=\"refused: ", "<Start>5000000 600000</Start>"})
        EXPECT_NE(text.find(part), std::string::npos) << part << "\n" << text;
    EXPECT_NEAR(
        test::numbers_after(this->run({"measure", "out.landxml", "--feature", "1"}).out, "Area").at(0),
        1250.0, 0.01);
}

// The lengths by definition; LandXML has no square kilometre.
TEST(LandXmlUnits, HaveTheirLengthsAndAreas)
{
    const struct {
        double metres;
        const char* name;
        const char* area;
        bool metric;
    } rows[] = {{1.0, "meter", "squareMeter", true},
                {0.001, "millimeter", "squareMillimeter", true},
                {0.01, "centimeter", "squareCentimeter", true},
                {1000.0, "kilometer", "", true},
                {12 * 0.0254, "foot", "squareFoot", false},
                {1200.0 / 3937.0, "USSurveyFoot", "squareFoot", false},
                {0.0254, "inch", "squareInch", false},
                {5280 * 12 * 0.0254, "mile", "squareMiles", false}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const tool::LandXmlUnit* const unit = tool::landxml_unit(row.metres);
        ASSERT_NE(unit, nullptr);
        EXPECT_STREQ(unit->name, row.name);
        EXPECT_STREQ(unit->area, row.area);
        EXPECT_EQ(unit->metric, row.metric);
    }
    EXPECT_EQ(tool::landxml_unit(0.9144), nullptr) << "LandXML has no yard";
    for (const double metres : {0.001, 0.0254, 0.3048, 1.0, 1000.0, 1609.344}) {
        EXPECT_NE(tool::landxml_unit(metres * (1.0 + 0.99e-9)), nullptr) << metres;
        EXPECT_EQ(tool::landxml_unit(metres * (1.0 + 1.01e-9)), nullptr) << metres;
        EXPECT_NE(tool::landxml_unit(metres * (1.0 - 0.99e-9)), nullptr) << metres;
        EXPECT_EQ(tool::landxml_unit(metres * (1.0 - 1.01e-9)), nullptr) << metres;
    }
}

TEST_F(LandXml, AUnitIsNeeded)
{
    EXPECT_TRUE(test::fails_with(divide(PLCALC_EXAMPLES "/convex.csv", "--parallel 1 --share 1/2 -o out.xml"),
                                 2,
                                 "out.xml: LandXML states a unit of length, and the input has none; name the "
                                 "CRS, as in --crs EPSG:25832 or, for a "
                                 "site in metres, --crs 'LOCAL_CS[\"site\",UNIT[\"metre\",1]]'"));
    const test::Result local =
        run({"divide", PLCALC_EXAMPLES "/convex.csv", "--crs", "LOCAL_CS[\"site\",UNIT[\"metre\",1]]",
             "--parallel", "1", "--share", "1/2", "-o", "out.xml"});
    EXPECT_EQ(local.status, 0) << local.err;
    const test::Result rods =
        run({"divide", PLCALC_EXAMPLES "/convex.csv", "--crs", "LOCAL_CS[\"site\",UNIT[\"rod\",5.0292]]",
             "--parallel", "1", "--share", "1/2", "-o", "rods.xml"});
    EXPECT_TRUE(
        test::fails_with(rods, 2, "rods.xml: LandXML has no unit of length rod; write a GeoPackage (.gpkg)"));
}

TEST_F(LandXml, FilesOfOthersAreRead)
{
    const std::string sides = line(kA, kB) + line(kB, kC) + line(kC, kD) + line(kD, kA);
    write_xml(parcel(sides));
    EXPECT_EQ(area(), 1200.0);
    // A side that runs backwards, also the first; an irregular line; heights.
    write_xml(parcel(line(kB, kA) + line(kB, kC) + line(kD, kC) + line(kD, kA)));
    EXPECT_EQ(area(), 1200.0);
    write_xml(parcel("<IrregularLine><Start>" + kA + "</Start><End>" + kC + "</End><PntList2D>" + kA + " " +
                     kB + " " + kC + "</PntList2D></IrregularLine>" + line(kC, kD) + line(kD, kA)));
    EXPECT_EQ(area(), 1200.0);
    // Names of points, which stand behind the parcel; one that refers to another; a prefix.
    write(
        "in.xml",
        "<l:LandXML xmlns:l=\"urn:x\"><l:Parcels><l:Parcel name=\"7\"><l:CoordGeom><l:Line><l:Start "
        "pntRef=\"a\"/>"
        "<l:End pntRef=\"b\"/></l:Line><l:Line><l:Start pntRef=\"b\"/><l:End pntRef=\"c\"/></l:Line><l:Line>"
        "<l:Start pntRef=\"c\"/><l:End "
        "pntRef=\"a\"/></l:Line></l:CoordGeom></l:Parcel></l:Parcels><l:CgPoints>"
        "<l:CgPoint name=\"a\">0 0 5</l:CgPoint><l:CgPoint name=\"b\">0 10 6</l:CgPoint><l:CgPoint "
        "name=\"d\">"
        "10 0 7</l:CgPoint><l:CgPoint name=\"c\" pntRef=\"d\"/></l:CgPoints></l:LandXML>");
    EXPECT_EQ(area(), 50.0);
    const std::string set_out =
        run({"stakeout", "in.xml", "--station", "1", "--orientation", "2", "--json"}).out;
    EXPECT_NE(set_out.find("\"z\""), std::string::npos);
    EXPECT_NE(set_out.find("\"parcel\": \"in.xml: feature 1\",\n  \"name\": \"7\""), std::string::npos)
        << set_out;
    write_xml(parcel(sides), "Imperial linearUnit=\"USSurveyFoot\"");
    ASSERT_EQ(divide("in.xml", "--parallel 1 --share 1/2 -o out.xml").status, 0);
    EXPECT_NE(content("out.xml").find("<Imperial areaUnit=\"squareFoot\" linearUnit=\"USSurveyFoot\""),
              std::string::npos);
    EXPECT_NE(content("out.xml").find("<Parcel name=\"7/1a\""), std::string::npos);
    // What is said of a parcel goes on to its pieces.
    write_xml("<Parcels><Parcel name=\"7/1\" desc=\"Meadow\" state=\"existing\"><CoordGeom>" + sides +
              "</CoordGeom></Parcel></Parcels>");
    ASSERT_EQ(divide("in.xml", "--parallel 1 --share 1/2 -o out.geojson").status, 0);
    for (const char* part : {"\"name\": \"7/1\"", "\"desc\": \"Meadow\"", "\"state\": \"existing\""})
        EXPECT_NE(content("out.geojson").find(part), std::string::npos) << content("out.geojson");
}

// Half a turn around (1040, 2015), from 10 up to 20.
TEST_F(LandXml, AnArcRisesEvenly)
{
    const std::string from = "2000 1040 10";
    const std::string to = "2030 1040 20";
    write_xml(parcel(line("2000 1000 5", from) + "<Curve rot=\"ccw\"><Start>" + from +
                     "</Start><Center>2015 1040</Center><End>" + to + "</End></Curve>" +
                     line(to, "2030 1000 5") + line("2030 1000 5", "2000 1000 5")));
    const test::Result run =
        divide("in.xml", "--arcs 0.01 --perpendicular 1 --area 10 --opposite --points p.csv");
    ASSERT_EQ(run.status, 0) << run.err;
    std::istringstream rows(content("p.csv"));
    std::size_t on_arc = 0;
    for (std::string row; std::getline(rows, row);) {
        std::istringstream cells(row);
        std::string name;
        double east = 0.0;
        double north = 0.0;
        double height = 0.0;
        char comma = 0;
        std::getline(cells, name, ',');
        if (!(cells >> east >> comma >> north >> comma >> height) || east < 1040.0)
            continue;
        ++on_arc;
        const double turn = std::atan2(east - 1040.0, 2015.0 - north) / std::acos(-1.0);
        EXPECT_NEAR(height, 10.0 + 10.0 * turn, 0.001) << row;
    }
    EXPECT_GT(on_arc, 10u);
}

// The points in the middle of an irregular line have no names; those behind it keep theirs.
TEST_F(LandXml, NamesAreThoseOfTheirCorners)
{
    const auto end = [](const char* what, const char* name) {
        return "<" + std::string(what) + " pntRef=\"" + name + "\"/>";
    };
    const auto side = [&](const char* from, const char* to) {
        return "<Line>" + end("Start", from) + end("End", to) + "</Line>";
    };
    write_xml(
        "<CgPoints><CgPoint name=\"a\">2000 1000</CgPoint><CgPoint name=\"c\">2030 1040</CgPoint><CgPoint "
        "name=\"d\">2030 1000</CgPoint></CgPoints>" +
        parcel("<IrregularLine>" + end("Start", "a") + end("End", "c") +
               "<PntList2D>2000 1000 2000 1040 2010 1045 2030 1040</PntList2D></IrregularLine>" +
               side("c", "d") + side("d", "a")));
    const test::Result run =
        this->run({"stakeout", "in.xml", "--station", "a", "--orientation", "c", "--csv"});
    ASSERT_EQ(run.status, 0) << run.err;
    for (const char* row :
         {"\na,1000.0", "\nvertex 2,1040.0", "\nvertex 3,1045.0", "\nc,1040.0", "\nd,1000.0"})
        EXPECT_NE(run.out.find(row), std::string::npos) << row << " in\n" << run.out;
    // With chords in the place of an arc nobody knows which vertex is whose: that is said.
    write_xml("<CgPoints><CgPoint name=\"a\">2000 1000</CgPoint><CgPoint name=\"b\">2000 1040</CgPoint>"
              "<CgPoint name=\"c\">2030 1040</CgPoint></CgPoints>" +
              parcel(side("a", "b") + "<Curve rot=\"ccw\">" + end("Start", "b") +
                     "<Center>2015 1040</Center>" + end("End", "c") + "</Curve>" + side("c", "a")));
    const test::Result chords = this->run({"measure", "in.xml", "--arcs", "0.01"});
    EXPECT_EQ(chords.out.rfind(
                  "Parcel  in.xml: feature 1 '7/1' (the names of its points are left out, since it has "
                  "more vertices; arcs are chords that stay within 0.01 of them)\n",
                  0),
              0u)
        << chords.out << chords.err;
}

TEST_F(LandXml, CurvesAreRefusedOrBecomeChords)
{
    const auto curve = [](const std::string& rot) {
        return "<Curve rot=\"" + rot + "\"><Start>" + kB + "</Start><Center>2015 1040</Center><End>" + kC +
               "</End></Curve>";
    };
    for (const char* rot : {"ccw", "cw"}) {
        write_xml(parcel(line(kA, kB) + curve(rot) + line(kC, kD) + line(kD, kA)));
        EXPECT_TRUE(test::fails_with(
            run({"measure", "in.xml"}), 3,
            "in.xml: feature 1 '7/1': the boundary has arcs; replace them with chords, as --arcs 0.005 "
            "does, which keeps the chords within 0.005 of the arcs"));
        const test::Result measured = run({"measure", "in.xml", "--arcs", "0.001"});
        ASSERT_EQ(measured.status, 0) << measured.err;
        const double half_disc = 112.5 * std::acos(-1.0);
        const double whole = 1200.0 + (std::string(rot) == "ccw" ? half_disc : -half_disc);
        EXPECT_NEAR(test::numbers_after(measured.out, "Area").at(0), whole,
                    2.0 / 3.0 * 0.001 * 15.0 * std::acos(-1.0));
        // In the West, where directions jump by a whole turn.
        write_xml(parcel(line(kA, kB) + line(kB, kC) + line(kC, kD) + "<Curve rot=\"" + rot + "\"><Start>" +
                         kD + "</Start><Center>2015 1000</Center><End>" + kA + "</End></Curve>"));
        EXPECT_NEAR(test::numbers_after(run({"measure", "in.xml", "--arcs", "0.001"}).out, "Area").at(0),
                    whole, 2.0 / 3.0 * 0.001 * 15.0 * std::acos(-1.0));
    }
}

TEST_F(LandXml, WhatCannotBeUsedIsRefused)
{
    expect_refused(parcel(line(kA, kB) + "<Spiral/>"),
                   "parcel 7/1: its boundary has an element Spiral; replace it with lines and curves before "
                   "you export it");
    expect_refused(
        parcel(line(kA, kB) + line(kC, kD) + line(kD, kA)),
        "parcel 7/1: its boundary has a gap between elements 1 and 2; close it before you export it");
    expect_refused(parcel("<Line><Start pntRef=\"9\"/><End pntRef=\"8\"/></Line>"),
                   "parcel 7/1: the point '9' is missing; export the points with the parcels");
    expect_refused(
        parcel(line(kA, "1 x")),
        "parcel 7/1: a point is neither northing and easting nor a reference; export the file again");
    expect_refused(
        parcel(line(kA, "2000 1040 5 6") + line("2000 1040 5 6", kC) + line(kC, kA)),
        "parcel 7/1: a point is neither northing and easting nor a reference; export the file again");
    expect_refused("<Parcels><Parcel name=\"7/1\"><CoordGeom>" + line(kA, kB) +
                       "</CoordGeom><CoordGeom/></Parcel></Parcels>",
                   "parcel 7/1: it has several boundaries (2), and the others are no holes in the first; "
                   "export each as a parcel of its own");
    // One inside of it that does not close is no hole either.
    expect_refused("<Parcels><Parcel name=\"7/1\"><CoordGeom>" + line(kA, kB) + line(kB, kC) + line(kC, kA) +
                       "</CoordGeom><CoordGeom>" + line("2010 1030", "2010 1035") +
                       line("2010 1035", "2015 1035") + "</CoordGeom></Parcel></Parcels>",
                   "parcel 7/1: it has several boundaries (2), and the others are no holes in the first; "
                   "export each as a parcel of its own");
    for (const char* list : {"<PntList2D>2000 1000 2000</PntList2D>", "<PntList2D></PntList2D>",
                             "<PntList3D>2000 1000 3 2000</PntList3D>"})
        expect_refused(parcel("<IrregularLine><Start>" + kA + "</Start>" + list + "<End>" + kB +
                              "</End></IrregularLine>" + line(kB, kC) + line(kC, kA)),
                       "parcel 7/1: a list of points is broken; export the file again");
    for (const char* lacking : {"<Line><Start>2000 1000</Start></Line>", "<Line><End>2000 1040</End></Line>",
                                "<Curve><Start>2000 1000</Start><End>2000 1040</End></Curve>"})
        expect_refused(parcel(std::string(lacking) + line(kB, kC) + line(kC, kA)),
                       std::string("parcel 7/1: a ") + (lacking[1] == 'C' ? "Curve" : "Line") +
                           " lacks its start, end or centre; export the file again");
    expect_refused("<Parcels><Parcel></Parcels>", "the file is no XML from line 2 on; export it again");
    write_xml("<CoordinateSystem epsgCode=\"32632\"/>" + parcel(line(kA, kB)),
              "Imperial linearUnit=\"foot\"");
    EXPECT_TRUE(
        test::fails_with(run({"measure", "in.xml"}), 3,
                         "in.xml: its unit (foot) is not that of its CRS, EPSG:32632; correct one of them"));
    write_xml(parcel(line(kA, kB) + line(kB, kC)));
    const test::Result open = run({"measure", "in.xml"});
    EXPECT_EQ(open.status, 3);
    EXPECT_EQ(open.err.rfind("plcalc: in.xml: the file holds no polygon and no closed line ", 0), 0u)
        << open.err;
}

}  // namespace
