// Drawings in which nobody drew a closed boundary: lines and arcs that are joined, blocks, and texts that name a lot.
// Unless a row says otherwise the lot is 100 by 50 with a corner at (500000, 5000000).

#include <cmath>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "program.h"
#include "reading/joined_lines.h"

namespace {

using tool::Join;
using tool::JoinedLines;
using tool::OpenLine;

struct Place {
    double east;
    double north;
};

std::string text_of(double value)
{
    char text[40];
    std::snprintf(text, sizeof text, "%.17g", value);
    return text;
}

std::string pair_of(int code, const std::string& value)
{
    return std::to_string(code) + "\n" + value + "\n";
}

std::string at(Place p, int code = 10)
{
    return pair_of(code, text_of(p.east)) + pair_of(code + 10, text_of(p.north));
}

std::string line(Place from, Place to, const std::string& layer = "LOTS")
{
    return "0\nLINE\n8\n" + layer + "\n100\nAcDbLine\n" + at(from) + at(to, 11);
}

std::string arc(Place centre, double radius, double from_deg, double to_deg)
{
    return "0\nARC\n8\nLOTS\n" + at(centre) + pair_of(40, text_of(radius)) + "100\nAcDbArc\n" +
           pair_of(50, text_of(from_deg)) + pair_of(51, text_of(to_deg));
}

std::string text(Place p, const std::string& words, const std::string& layer = "TEXT")
{
    return "0\nTEXT\n8\n" + layer + "\n" + at(p) + "40\n2\n1\n" + words + "\n";
}

std::string drawing(const std::string& entities, const std::string& blocks = "")
{
    return "0\nSECTION\n2\nHEADER\n0\nENDSEC\n0\nSECTION\n2\nBLOCKS\n" + blocks +
           "0\nENDSEC\n0\nSECTION\n2\nENTITIES\n" + entities + "0\nENDSEC\n0\nEOF\n";
}

const Place kA = {500000, 5000000};
const Place kB = {500100, 5000000};
const Place kC = {500100, 5000050};
const Place kD = {500000, 5000050};
const char* const kStrip = "--parallel 1 --area 1000";

class Drawings : public test::ProgramTest {
protected:
    double area_of(const std::string& entities, const std::string& options = "")
    {
        write("lot.dxf", drawing(entities));
        const test::Result run = divide("lot.dxf", options + " --parallel 1 --share 1/2");
        EXPECT_EQ(run.status, 0) << run.err;
        out_ = run.out;
        return run.status == 0 ? test::numbers_after(run.out, "parcel").at(0) : 0.0;
    }

    std::string out_;
};

TEST_F(Drawings, LinesInAnyOrderAndDirectionAreJoined)
{
    EXPECT_EQ(area_of(line(kA, kB) + line(kC, kB) + line(kD, kA) + line(kC, kD)), 5000.0);
    EXPECT_NE(out_.find("joined from 4 lines"), std::string::npos) << out_;
    EXPECT_EQ(area_of(line(kC, kB) + line(kA, kB) + line(kA, kB) + line(kD, kA) + line(kC, kD)), 5000.0);
    EXPECT_NE(out_.find("joined from 4 lines; lines drawn twice: 1"), std::string::npos) << out_;
}

// A hole is a closed line of its own there: read back without it, the piece would be too large.
TEST_F(Drawings, AHoleOnItsOwnLayerIsNotLost)
{
    write("pond.csv",
          "lot;WKT\n1;\"POLYGON ((0 0, 100 0, 100 50, 0 50, 0 0), (45 20, 45 26, 55 26, 55 20, 45 20))\"\n");
    const test::Result written = divide("pond.csv", "--parallel 1 --area 1000 -o pieces.dxf");
    ASSERT_EQ(written.status, 0) << written.err;
    const test::Result all = run({"measure", "pieces.dxf", "--layer", "pieces", "--csv"});
    EXPECT_EQ(all.status, 0) << all.err;
    EXPECT_NE(all.out.find(",1000.0000,"), std::string::npos) << all.out;
    EXPECT_NE(all.out.find(",3940.0000,"), std::string::npos)
        << "5000, less the pond and the piece: " << all.out;
    const test::Result again =
        divide("pieces.dxf", "--layer pieces --feature 2 --pieces any --parallel 1 --share 1/2");
    ASSERT_EQ(again.status, 0) << again.err;
    EXPECT_NE(again.out.find(" (closed lines in it are its holes: 1)\n"), std::string::npos) << again.out;
    // Nor is it where the boundary is made of lines.
    const std::string hole_line = "0\nLWPOLYLINE\n8\nholes\n90\n3\n70\n1\n" +
                                  at({kA.east + 10, kA.north + 10}) + at({kA.east + 20, kA.north + 10}) +
                                  at({kA.east + 10, kA.north + 20});
    write("lines.dxf", drawing(line(kA, kB) + line(kB, kC) + line(kC, kD) + line(kD, kA) + hole_line));
    const test::Result lines = run({"measure", "lines.dxf", "--layer", "LOTS"});
    EXPECT_EQ(test::numbers_after(lines.out, "Area"), std::vector<double>{4950.0}) << lines.out << lines.err;
    // A hole with an arc is no polygon.
    const std::size_t bulge = hole_line.find("20\n");
    write("arc.dxf", drawing(line(kA, kB) + line(kB, kC) + line(kC, kD) + line(kD, kA) +
                             hole_line.substr(0, hole_line.find('\n', bulge + 3) + 1) + "42\n0.5\n" +
                             hole_line.substr(hole_line.find('\n', bulge + 3) + 1)));
    const test::Result arc = run({"measure", "arc.dxf", "--layer", "LOTS"});
    EXPECT_EQ(arc.status, 3) << arc.out;
    EXPECT_NE(arc.err.find("arc"), std::string::npos) << arc.err;
    const test::Result chords = run({"measure", "arc.dxf", "--layer", "LOTS", "--arcs", "0.01"});
    EXPECT_EQ(chords.status, 0) << chords.err;
    const test::Result hole = divide("pieces.dxf", "--layer holes --parallel 1 --share 1/2");
    ASSERT_EQ(hole.status, 0) << hole.err;
    EXPECT_EQ(test::numbers_after(hole.out, "parcel").at(0), 60.0);
}

// Whether a closed line in another is a hole, a drawing does not say.
TEST_F(Drawings, AClosedLineInAnotherIsAskedFor)
{
    const auto closed = [](double east, double north, double size) {
        return "0\nLWPOLYLINE\n8\nLOTS\n90\n4\n70\n1\n" + at({east, north}) + at({east + size, north}) +
               at({east + size, north + size}) + at({east, north + size});
    };
    const auto row = [](const std::string& name, const char* area) { return name + ",," + area + ","; };
    const double east = kA.east;
    const double north = kA.north;
    // A pond with an island, and a lot beside the first that shares its side.
    write("nested.dxf", drawing(closed(east, north, 100) + closed(east + 40, north + 40, 20) +
                                closed(east + 45, north + 45, 5) + closed(east + 100, north, 100)));
    const test::Result asked = run({"measure", "nested.dxf", "--csv"});
    EXPECT_EQ(asked.status, 3);
    EXPECT_NE((asked.out + asked.err).find("another closed line lies in it"), std::string::npos)
        << asked.out << asked.err;
    EXPECT_NE(asked.out.find(row("feature 3", "10000.0000")), std::string::npos) << asked.out;
    EXPECT_TRUE(test::fails_with(run({"measure", "nested.dxf", "--feature", "0"}), 3,
                                 "nested.dxf: feature 0: another closed line lies in it (feature 1); say "
                                 "what such lines are: --inner hole, "
                                 "or --inner overlap for parcels that lie over it"));
    const test::Result holes = run({"measure", "nested.dxf", "--csv", "--inner", "hole"});
    EXPECT_EQ(holes.status, 0) << holes.err;
    const test::Result over = run({"measure", "nested.dxf", "--csv", "--inner", "overlap"});
    EXPECT_EQ(over.status, 0) << over.err;
    const struct {
        const test::Result& result;
        const char* areas[4];
    } rows[] = {{holes, {"9600.0000", "375.00000", "25.000000", "10000.0000"}},
                {over, {"10000.0000", "400.00000", "25.000000", "10000.0000"}}};
    for (const auto& wanted : rows)
        for (int i = 0; i < 4; ++i)
            EXPECT_NE(wanted.result.out.find(row("feature " + std::to_string(i), wanted.areas[i])),
                      std::string::npos)
                << i << wanted.result.out;
    EXPECT_TRUE(test::fails_with(run({"measure", "nested.dxf", "--inner", "pond"}), 2,
                                 "--inner: 'pond' is neither hole nor overlap; see plcalc measure --help"));
    // The same of lines that are joined.
    const auto square = [](const Place& low, double size) {
        const Place right = {low.east + size, low.north};
        const Place high = {low.east + size, low.north + size};
        const Place left = {low.east, low.north + size};
        return line(low, right) + line(right, high) + line(high, left) + line(left, low);
    };
    write("joined.dxf", drawing(square({east, north}, 100) + square({east + 40, north + 40}, 20)));
    EXPECT_NE(run({"measure", "joined.dxf", "--feature", "0"})
                  .err.find("another closed line lies in it (feature 4)"),
              std::string::npos);
    const test::Result joined = run({"measure", "joined.dxf", "--feature", "0", "--inner", "hole"});
    EXPECT_EQ(test::numbers_after(joined.out, "Area"), std::vector<double>{9600.0})
        << joined.out << joined.err;
}

// West of the origin, turned by quarters about (-500, 500). A pond begins on the lot's own side and lies in the lot; a
// square in the notch of an L begins at the L's inner corner and lies beside it.
TEST_F(Drawings, ClosedLinesThatTouchLieInsideOrBeside)
{
    for (int quarters = 0; quarters < 4; ++quarters) {
        const auto closed = [quarters](const std::vector<Place>& places) {
            std::string text = "0\nLWPOLYLINE\n8\nLOTS\n90\n" + std::to_string(places.size()) + "\n70\n1\n";
            for (Place p : places) {
                for (int i = 0; i < quarters; ++i)
                    p = {-p.north, p.east};
                text += at({p.east - 500, p.north + 500});
            }
            return text;
        };
        write("pond.dxf", drawing(closed({{0, 0}, {100, 0}, {100, 100}, {0, 100}}) +
                                  closed({{100, 50}, {40, 40}, {50, 60}})));
        EXPECT_TRUE(test::fails_with(run({"measure", "pond.dxf", "--feature", "0"}), 3,
                                     "pond.dxf: feature 0: another closed line lies in it (feature 1); say "
                                     "what such lines are: --inner hole, "
                                     "or --inner overlap for parcels that lie over it"))
            << quarters;
        write("notch.dxf", drawing(closed({{0, 0}, {100, 0}, {100, 50}, {50, 50}, {50, 100}, {0, 100}}) +
                                   closed({{50, 50}, {100, 50}, {100, 100}, {50, 100}})));
        const test::Result both = run({"measure", "notch.dxf", "--csv"});
        EXPECT_EQ(both.status, 0) << quarters << both.err;
        EXPECT_NE(both.out.find("feature 0,,7500.0000,"), std::string::npos) << both.out;
        EXPECT_NE(both.out.find("feature 1,,2500.0000,"), std::string::npos) << both.out;
    }
}

// The lot has no heights, and the pond in it does.
TEST_F(Drawings, HeightsOfAHoleAlone)
{
    const auto vertex = [](const Place& p, double height) {
        return "0\nVERTEX\n8\nLOTS\n" + at(p) + "30\n" + std::to_string(height) + "\n70\n32\n";
    };
    const std::string lot = "0\nLWPOLYLINE\n8\nLOTS\n90\n4\n70\n1\n" + at({500000, 5000000}) +
                            at({500100, 5000000}) + at({500100, 5000100}) + at({500000, 5000100});
    const std::string pond = "0\nPOLYLINE\n8\nLOTS\n66\n1\n70\n9\n" + vertex({500040, 5000040}, 12.5) +
                             vertex({500060, 5000040}, 13.5) + vertex({500050, 5000060}, 14.5) +
                             "0\nSEQEND\n";
    write("pond.dxf", drawing(lot + pond));
    const test::Result run =
        this->run({"measure", "pond.dxf", "--feature", "0", "--inner", "hole", "--json"});
    ASSERT_EQ(run.status, 0) << run.err;
    const nlohmann::json vertices = nlohmann::json::parse(run.out)["parcels"][0]["vertices"];
    ASSERT_EQ(vertices.size(), 7u) << run.out;
    for (std::size_t i = 0; i < 4; ++i)
        EXPECT_TRUE(vertices[i]["z"].is_null()) << i;
    std::multiset<double> heights;
    for (std::size_t i = 4; i < 7; ++i)
        heights.insert(vertices[i]["z"].get<double>());
    EXPECT_EQ(heights, (std::multiset<double>{12.5, 13.5, 14.5}));
}

// The gap at kB, north of it. The vertex is the end of the line that comes first.
TEST_F(Drawings, EndsAreJoinedWithinATolerance)
{
    struct Row {
        double gap;
        const char* options;
        bool joined;
        const char* told;
    };
    for (const Row& row : {Row{0.0009, "", true, "0.00090"},
                           {0.00105, "", false, "0.0011"},
                           {0.0011, "--join 0.002", true, "0.0011"},
                           {0.25, "--join 0.26", true, "0.2500"},
                           {0.25, "--join 0.24", false, "0.2500"}}) {
        SCOPED_TRACE(row.gap);
        write("lot.dxf",
              drawing(line(kA, kB) + line({kB.east, kB.north + row.gap}, kC) + line(kC, kD) + line(kD, kA)));
        const test::Result run = divide("lot.dxf", std::string(row.options) + " " + kStrip);
        EXPECT_EQ(run.status, row.joined ? 0 : 3) << run.err;
        if (row.joined) {
            EXPECT_EQ(test::numbers_after(run.out, "parcel").at(0), 5000.0);
            EXPECT_NE(run.out.find("joined from 4 lines, ends up to " + std::string(row.told) + " apart"),
                      std::string::npos)
                << run.out;
        } else {
            EXPECT_NE(run.err.find("plcalc: lot.dxf: its lines close no boundary: at 500100.0000, "
                                   "5000000.0000 the next end is " +
                                   std::string(row.told) + " away; "),
                      std::string::npos)
                << run.err;
        }
    }
    // Two lines are enough for a gap that is told.
    write("lot.dxf", drawing(line(kA, kB) + line({kB.east, kB.north}, {kA.east, kA.north + 0.5})));
    EXPECT_TRUE(
        test::fails_with(divide("lot.dxf", kStrip), 3,
                         "lot.dxf: its lines close no boundary: at 500000.0000, 5000000.0000 the next "
                         "end is 0.5000 away; close the boundary, or allow such a gap with --join"));
}

TEST_F(Drawings, ForksAreRefusedWithTheirPlace)
{
    write("lot.dxf", drawing(line(kA, kB) + line(kB, kC) + line(kC, kD) + line(kD, kA) + line(kB, kD)));
    EXPECT_TRUE(test::fails_with(
        divide("lot.dxf", kStrip), 3,
        "lot.dxf: feature 0: its lines fork, so that they do not say which is the boundary: 3 "
        "ends meet at 500100.0000, 5000000.0000; draw each parcel as a closed polyline, or as lines "
        "on a layer of its own"));
}

TEST_F(Drawings, ArcsBecomeChordsWithinADistance)
{
    // Half a disc of radius 50 on the lot's side kC-kD.
    const std::string half_disc =
        line(kA, kB) + line(kB, kC) + arc({500050, 5000050}, 50, 0, 180) + line(kD, kA);
    write("lot.dxf", drawing(half_disc));
    EXPECT_TRUE(test::fails_with(
        divide("lot.dxf", kStrip), 3,
        "lot.dxf: feature 0: the boundary has arcs; replace them with chords, as --arcs 0.005 "
        "does, which keeps the chords within 0.005 of the arcs"));
    const double whole = 5000.0 + 1250.0 * std::acos(-1.0);
    for (const double distance : {0.005, 0.5}) {
        const double area = area_of(half_disc, "--arcs " + text_of(distance));
        // A chord c cuts off 2/3 of c times its distance from the arc; the chords are shorter than the arc.
        EXPECT_LT(area, whole);
        EXPECT_GT(area, whole - 2.0 / 3.0 * distance * 50.0 * std::acos(-1.0));
        EXPECT_LT(area,
                  whole - 0.2 * distance * 50.0 * std::acos(-1.0));  // not more vertices than are needed
        EXPECT_NE(
            out_.find("arcs are chords that stay within " + std::string(distance < 0.1 ? "0.005" : "0.5")),
            std::string::npos)
            << out_;
    }
    // A circle, and a polyline with a bulge of a half circle after kB.
    EXPECT_NEAR(area_of("0\nCIRCLE\n8\nLOTS\n" + at(kA) + "40\n10\n", "--arcs 0.001"),
                100.0 * std::acos(-1.0), 0.05);
    EXPECT_NEAR(
        area_of("0\nLWPOLYLINE\n8\nLOTS\n90\n4\n70\n1\n" + at(kA) + at(kB) + "42\n1\n" + at(kC) + at(kD),
                "--arcs 0.001"),
        5000.0 + 312.5 * std::acos(-1.0), 0.06);
    // So flat that it is read as two steps: a chord does for both, and the parcel has three vertices.
    const double end_rad = 0.15 / 180.0 * std::acos(-1.0);
    const Place end = {kA.east + 1000 * std::cos(end_rad), kA.north + 1000 * std::sin(end_rad)};
    write("lot.dxf", drawing(line(kA, {kA.east + 1000, kA.north}) + arc(kA, 1000, 0, 0.15) + line(end, kA)));
    const std::string flat = run({"measure", "lot.dxf", "--arcs", "0.005", "--csv"}).out;
    EXPECT_NE(flat.find(",3,0,anticlockwise,measured"), std::string::npos) << flat;
    write("lot.dxf", drawing(half_disc));
    // The arc is drawn third. It is read in steps of a tenth of a degree: in the middle 50 * (1 - cos 0.05 deg) = 0.000019 off a chord.
    EXPECT_TRUE(test::fails_with(
        divide("lot.dxf", std::string("--arcs 1e-9 ") + kStrip), 2,
        "lot.dxf: feature 2: --arcs 0.000000001 is too small for an arc with a radius of 50.000; "
        "allow 0.001"));
    // 20000 * (1 - cos 0.05 deg) = 0.0076, and half a millimetre so that three decimals suffice.
    write("lot.dxf", drawing("0\nCIRCLE\n8\nLOTS\n" + at(kA) + "40\n20000\n"));
    EXPECT_TRUE(test::fails_with(
        divide("lot.dxf", std::string("--arcs 0.007 ") + kStrip), 2,
        "lot.dxf: feature 0: --arcs 0.007 is too small for an arc with a radius of 20000.000; allow 0.008"));
}

TEST_F(Drawings, BlocksAreTakenApart)
{
    const std::string block = "0\nBLOCK\n8\n0\n2\nLOT\n70\n0\n10\n0\n20\n0\n" + line({0, 0}, {100, 0}) +
                              line({100, 0}, {100, 50}) + line({100, 50}, {0, 50}) + line({0, 50}, {0, 0}) +
                              text({50, 25}, "17/4") + "0\nENDBLK\n8\n0\n";
    write("lot.dxf", drawing("0\nINSERT\n8\nLOTS\n2\nLOT\n" + at(kA), block));
    const test::Result run = divide("lot.dxf", "--parallel 1 --share 1/2 --report lot.txt");
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(test::numbers_after(run.out, "parcel").at(0), 5000.0);
}

// A drawing has no CRS of its own, but may be told one.
TEST_F(Drawings, LinesInDegreesAreRefused)
{
    write("lot.dxf",
          drawing(line({9, 45}, {9.01, 45}) + line({9.01, 45}, {9, 45.01}) + line({9, 45.01}, {9, 45})));
    const test::Result run = this->run({"measure", "lot.dxf", "--crs", "EPSG:4326"});
    EXPECT_EQ(run.status, 3) << run.out;
    EXPECT_NE(run.err.find("lot.dxf: feature 0: the coordinates are not plane (WGS 84); "), std::string::npos)
        << run.err;
}

TEST_F(Drawings, TextInsideNamesTheLot)
{
    const std::string lot = line(kA, kB) + line(kB, kC) + line(kC, kD) + line(kD, kA);
    struct Row {
        const char* what;
        std::string texts;
        const char* options;
        bool named;
    };
    for (const Row& row :
         {Row{"one", text({500050, 5000025}, "17/4"), "", true},
          {"outside", text({500050, 4999999}, "17/4"), "", false},
          {"two", text({500050, 5000025}, "17/4") + text({500050, 5000020}, "5000 m2", "AREA"), "", false},
          {"two, one on the layer",
           text({500050, 5000025}, "17/4") + text({500050, 5000020}, "5000 m2", "AREA"), "--name-layer TEXT",
           true}}) {
        SCOPED_TRACE(row.what);
        write("lot.dxf", drawing(lot + row.texts));
        const test::Result run =
            divide("lot.dxf", std::string(row.options) + " --parallel 1 --share 1/2 --overwrite -o out.dxf");
        ASSERT_EQ(run.status, 0) << run.err;
        std::ifstream out(path("out.dxf"));
        const std::string drawn((std::istreambuf_iterator<char>(out)), std::istreambuf_iterator<char>());
        EXPECT_EQ(drawn.find("17/4a") != std::string::npos, row.named);
    }
}

TEST_F(Drawings, ClosedBoundariesComeFirstAndLayersAreToldApart)
{
    const std::string closed =
        "0\nLWPOLYLINE\n8\nLOTS\n90\n3\n70\n1\n" + at({0, 0}) + at({10, 0}) + at({0, 10});
    const std::string loop = line(kA, kB) + line(kB, kC) + line(kC, kA);
    // A closed boundary: the lines are no parcel unless somebody asks for it.
    EXPECT_EQ(area_of(closed + loop), 50.0);
    write("lot.dxf", drawing(closed + loop));
    EXPECT_NE(divide("lot.dxf", "--join 0.001 --parallel 1 --share 1/2").out.find("Divided  2 of 2 parcels"),
              std::string::npos);
    // By the number of any of its lines.
    EXPECT_EQ(
        test::numbers_after(divide("lot.dxf", "--feature 2 --parallel 1 --share 1/2").out, "parcel").at(0),
        2500.0);
    const std::string other = line(kA, kB, "X") + line(kB, kD, "X") + line(kD, kA, "X");
    write("lot.dxf", drawing(loop + other));
    EXPECT_TRUE(test::fails_with(
        divide("lot.dxf", kStrip), 2,
        "lot.dxf: several layers hold parcels (LOTS: 1, X: 1); choose one with --layer NAME"));
    EXPECT_EQ(divide("lot.dxf", std::string("--layer X ") + kStrip).status, 0);
    EXPECT_TRUE(test::fails_with(
        run({"divide", PLCALC_EXAMPLES "/convex.csv", "--join", "1", "--parallel", "1", "--share", "1/2"}), 2,
        PLCALC_EXAMPLES "/convex.csv: --join is for drawings; leave --join out"));
}

// Numbers that no double holds are nobody's boundary.
TEST_F(Drawings, LinesThatEndNowhereAreLeftOut)
{
    const std::string lot = line(kA, kB) + line(kB, kC) + line(kC, kD) + line(kD, kA);
    for (const char* nowhere : {"1e999", "-1e999", "nan"})
        for (const char* code : {"\n11\n", "\n21\n"}) {
            std::string lost = line(kA, {499100, 4999000});  // it would make a fork
            const std::size_t begin = lost.find(code) + 4;
            lost.replace(begin, lost.find('\n', begin) - begin, nowhere);
            EXPECT_EQ(area_of(lot + lost), 5000.0) << lost;
        }
}

// A parcel is where the first of its lines is.
TEST_F(Drawings, JoinedParcelsAreInTheOrderOfTheFile)
{
    const Place a[] = {{0, 0}, {10, 0}, {0, 10}};
    const Place b[] = {{100, 0}, {120, 0}, {100, 20}};
    const std::string rest_of_a = line(a[1], a[2]) + line(a[2], a[0]);
    const std::string rest_of_b = line(b[1], b[2]) + line(b[2], b[0]);
    for (const bool b_first : {false, true}) {
        const std::string first = b_first ? line(b[0], b[1]) + line(a[0], a[1]) + rest_of_a + rest_of_b
                                          : line(a[0], a[1]) + line(b[0], b[1]) + rest_of_b + rest_of_a;
        write("lots.dxf", drawing(first));
        const std::string rows = run({"measure", "lots.dxf", "--csv"}).out;
        const std::size_t small = rows.find(",50.000000,");
        const std::size_t large = rows.find(",200.00000,");
        ASSERT_NE(small, std::string::npos) << rows;
        ASSERT_NE(large, std::string::npos) << rows;
        EXPECT_EQ(large < small, b_first) << rows;
    }
}

// In process: what no drawing shows easily.
TEST(JoinLines, GroupsOfEveryKind)
{
    const auto of = [](const std::vector<std::vector<Place>>& drawn) {
        std::vector<OpenLine> lines;
        for (const std::vector<Place>& places : drawn) {
            lines.emplace_back();
            for (const Place& p : places) {
                lines.back().points.push_back({p.east, p.north});
                lines.back().heights.push_back(p.east);
            }
        }
        return join_lines(lines, 0.01);
    };
    EXPECT_TRUE(of({}).empty());
    EXPECT_TRUE(of({{{0, 0}, {0.005, 0}}}).empty());  // shorter than the tolerance
    const std::vector<JoinedLines> self = of({{{0, 0}, {5, 0}, {5, 5}, {0.005, 0}}});
    ASSERT_EQ(self.size(), 1u);
    EXPECT_EQ(self[0].kind, Join::loop);
    EXPECT_EQ(self[0].ring.size(), 3u);
    EXPECT_EQ(self[0].widest_gap, 0.005);
    const std::vector<JoinedLines> open = of({{{0, 0}, {5, 0}}, {{5, 0}, {5, 5}}});
    ASSERT_EQ(open.size(), 1u);
    EXPECT_EQ(open[0].kind, Join::open);
    ASSERT_EQ(open[0].loose.size(), 2u);
    // Two loops, one entered backwards; heights go with their vertices.
    const std::vector<JoinedLines> two =
        of({{{0, 0}, {5, 0}}, {{9, 9}, {8, 9}, {8, 8}, {9, 9}}, {{0, 0}, {5, 5}}, {{5, 0}, {5, 5}}});
    ASSERT_EQ(two.size(), 2u);
    EXPECT_EQ(two[0].lines, (std::vector<std::size_t>{0, 3, 2}));
    EXPECT_EQ(two[0].heights, (std::vector<double>{0, 5, 5}));
    EXPECT_EQ(two[1].ring.size(), 3u);
    // Where two ends are apart, the vertex and its height are those of the line that comes first in the file, in whichever
    // order the boundary runs along them.
    const std::vector<JoinedLines> gap =
        of({{{0, 0}, {5, 0}}, {{5, 5}, {0, 5}}, {{5, 0}, {5.005, 5}}, {{0, 5}, {0, 0}}});
    ASSERT_EQ(gap.size(), 1u);
    EXPECT_EQ(gap[0].lines, (std::vector<std::size_t>{0, 2, 1, 3}));
    ASSERT_EQ(gap[0].ring.size(), 4u);
    EXPECT_EQ(gap[0].ring[2].x, 5.0);
    EXPECT_EQ(gap[0].heights, (std::vector<double>{0, 5, 5, 0}));
    const std::vector<JoinedLines> later =
        of({{{0, 0}, {5, 0}}, {{5, 0}, {5.005, 5}}, {{5, 5}, {0, 5}}, {{0, 5}, {0, 0}}});
    ASSERT_EQ(later.size(), 1u);
    EXPECT_EQ(later[0].ring[2].x, 5.005);
    EXPECT_EQ(later[0].heights, (std::vector<double>{0, 5, 5.005, 0}));
    // The line that comes first may run against the boundary: then the vertex is its start.
    const std::vector<JoinedLines> against =
        of({{{0, 0}, {5, 0}}, {{0, 5}, {5, 5}}, {{5, 0}, {5, 5}}, {{0.004, 5}, {0, 0}}});
    ASSERT_EQ(against.size(), 1u);
    EXPECT_EQ(against[0].lines, (std::vector<std::size_t>{0, 2, 1, 3}));
    EXPECT_EQ(against[0].ring.at(3).x, 0.0);
    EXPECT_EQ(against[0].heights, (std::vector<double>{0, 5, 5, 0}));
    // 100,000 ends in one place are a fork, and cost no more than others.
    std::vector<std::vector<Place>> star;
    for (int i = 0; i < 100000; ++i)
        star.push_back({{0, 0}, {1.0 + i, 1.0}});
    const std::vector<JoinedLines> fork = of(star);
    ASSERT_EQ(fork.size(), 1u);
    EXPECT_EQ(fork[0].kind, Join::fork);
    EXPECT_EQ(fork[0].ends_at_fork, 100000u);
}

}  // namespace
