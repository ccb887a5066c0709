// Every message and every exit status of the program. Whatever goes wrong: one line on stderr, nothing on
// stdout.

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>

#include <linux/capability.h>
#include <sys/prctl.h>
#include <unistd.h>

#include "files/gdal_messages.h"
#include "program.h"

namespace {

class Messages : public test::ProgramTest {};

bool ends_with(const std::string& text, const std::string& end)
{
    return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

const char* const kSquare = "POLYGON ((0 0, 10 0, 10 10, 0 10, 0 0))";

// --------------------------------------------------------------------------------------------- wrong use: 2

struct UseRow {
    const char* what;
    const char* arguments;
    const char* text;  // null where GDAL's own words are folded in
};

const UseRow kWrongUse[] = {
    {"no cut", "--area 5",
     "give one of --parallel SIDE, --perpendicular SIDE, --vertex N, --vertex-near E,N, "
     "--vertex-from COLUMN, --bearing ANGLE, "
     "--along-segment E,N,E,N, --place SIDE,DISTANCE and --through E,N; see plcalc divide --help"},
    {"two cuts", "--parallel 1 --vertex 1 --area 5",
     "give one of --parallel SIDE, --perpendicular SIDE, --vertex N, --vertex-near E,N, "
     "--vertex-from COLUMN, --bearing ANGLE, "
     "--along-segment E,N,E,N, --place SIDE,DISTANCE and --through E,N; see plcalc divide --help"},
    {"no area", "--parallel 1",
     "give one of --area A, --product A B, --share S, --width W, --areas LIST, --parts COUNT, "
     "--area-from COLUMN and --share-from COLUMN; see plcalc "
     "divide "
     "--help"},
    {"two areas", "--parallel 1 --area 5 --product 1 2",
     "give one of --area A, --product A B, --share S, --width W, --areas LIST, --parts COUNT, "
     "--area-from COLUMN and --share-from COLUMN; see plcalc "
     "divide "
     "--help"},
    {"area of nothing", "--vertex 1 --area 0",
     "--area: '0' is not a number above 0, with a point before the decimals; see plcalc divide --help"},
    {"negative area", "--vertex 1 --area -5",
     "--area: '-5' is not a number above 0, with a point before the decimals; see plcalc divide --help"},
    {"area not a number", "--vertex 1 --area nan",
     "--area: 'nan' is not a number above 0, with a point before the decimals; see plcalc divide --help"},
    {"infinite area", "--vertex 1 --area inf",
     "--area: 'inf' is not a number above 0, with a point before the decimals; see plcalc divide --help"},
    {"area that no double holds", "--vertex 1 --area 1e400",
     "--area: '1e400' is not a number above 0, with a point before the decimals; see plcalc divide --help"},
    {"decimal comma", "--vertex 1 --area 5,5",
     "--area: '5,5' is not a number above 0, with a point before the decimals; see plcalc divide --help"},
    {"unit after the area", "--vertex 1 --area 5m2",
     "--area: '5m2' is not a number above 0, with a point before the decimals; see plcalc divide --help"},
    {"hexadecimal", "--vertex 1 --area 0x10",
     "--area: '0x10' is not a number above 0, with a point before the decimals; see plcalc divide --help"},
    {"one length negative", "--vertex 1 --product -5 -5",
     "--product: '-5' is not a number above 0, with a point before the decimals; see plcalc divide --help"},
    {"product that overflows", "--vertex 1 --product 1e200 1e200",
     "--product: the product of the two is not a number above 0; see plcalc divide --help"},
    {"product that vanishes", "--vertex 1 --product 1e-200 1e-200",
     "--product: the product of the two is not a number above 0; see plcalc divide --help"},
    {"side not a number", "--parallel x --area 5",
     "--parallel: 'x' is not a whole number; see plcalc divide --help"},
    {"side not whole", "--perpendicular 1.5 --area 5",
     "--perpendicular: '1.5' is not a whole number; see plcalc divide --help"},
    {"vertex beyond all integers", "--vertex 99999999999999999999 --area 5",
     "--vertex: '99999999999999999999' is not a whole number; see plcalc divide --help"},
    {"side 0", "--parallel 0 --area 5",
     "lot.csv: feature 1: there is no side 0; the parcel has sides 1 to 4"},
    {"side after the last", "--perpendicular 5 --area 5",
     "lot.csv: feature 1: there is no side 5; the parcel has sides 1 to 4"},
    {"vertex before the first", "--vertex -1 --area 5",
     "lot.csv: feature 1: there is no vertex -1; the parcel has vertices 1 to 4"},
    {"largest integer", "--vertex 9223372036854775807 --area 5",
     "lot.csv: feature 1: there is no vertex 9223372036854775807; the parcel has vertices 1 to 4"},
    {"no such layer", "--layer lots --vertex 1 --area 5",
     "lot.csv: there is no layer 'lots'; choose one of: lot"},
    {"no such feature", "--feature 2 --vertex 1 --area 5",
     "lot.csv: there is no feature 2; list them with ogrinfo -al"},
    {"feature not a number", "--feature A2 --vertex 1 --area 5",
     "--feature: 'A2' is not a whole number; see plcalc divide --help"},
    {"two shares", "--vertex 1 --share 1/3 --area 5",
     "give one of --area A, --product A B, --share S, --width W, --areas LIST, --parts COUNT, "
     "--area-from COLUMN and --share-from COLUMN; see plcalc "
     "divide "
     "--help"},
    {"share without a form", "--vertex 1 --share 0.3",
     "--share: '0.3' is not a share; write it as 1/3 or 25%; see plcalc divide --help"},
    {"share of nothing", "--vertex 1 --share 1/0",
     "--share: '0' is not a number above 0, with a point before the decimals; see plcalc divide --help"},
    {"share of a third part", "--vertex 1 --share 1/3/2",
     "--share: '3/2' is not a number above 0, with a point before the decimals; see plcalc divide --help"},
    {"the whole as a share", "--vertex 1 --share 100%",
     "--share: '100%' is not less than the whole parcel; see plcalc divide --help"},
    {"percent of nothing", "--vertex 1 --share %",
     "--share: '' is not a number above 0, with a point before the decimals; see plcalc divide --help"},
    {"list with a gap", "--vertex 1 --areas 5,,6",
     "--areas: '' is not a number above 0, with a point before the decimals; see plcalc divide --help"},
    {"list that ends with a comma", "--vertex 1 --areas 5,",
     "--areas: '' is not a number above 0, with a point before the decimals; see plcalc divide --help"},
    {"list with a word", "--vertex 1 --areas 5,six",
     "--areas: 'six' is not a number above 0, with a point before the decimals; see plcalc divide --help"},
    {"product in a list", "--vertex 1 --areas 5x0",
     "--areas: '0' is not a number above 0, with a point before the decimals; see plcalc divide --help"},
    {"one part", "--vertex 1 --parts 1",
     "--parts: '1' is not a number from 2 to 1000; see plcalc divide --help"},
    {"too many parts", "--vertex 1 --parts 1001",
     "--parts: '1001' is not a number from 2 to 1000; see plcalc divide --help"},
    {"filter that cannot be", "--vertex 1 --area 5 --where id=", nullptr},
    {"filter that lets nothing through", "--vertex 1 --area 5 --where id='7'",
     "lot.csv: --where 'id='7'' matches no feature; list them with ogrinfo -al"},
    {"feature that the filter keeps back", "--vertex 1 --area 5 --feature 1 --where id='7'",
     "lot.csv: there is no feature 1 that passes --where; list them with ogrinfo -al"},
    {"area left out", "--vertex 1 --area", "--area: give one value, A, once; see plcalc divide --help"},
    {"area twice", "--vertex 1 --area 5 --area 6",
     "--area: give one value, A, once; see plcalc divide --help"},
    {"product of one", "--vertex 1 --product 5",
     "--product: give the values A B, once; see plcalc divide --help"},
    {"product of none", "--vertex 1 --product",
     "--product: give the values A B, once; see plcalc divide --help"},
    {"layer left out", "--vertex 1 --area 5 --layer",
     "--layer: give one value, NAME, once; see plcalc divide --help"},
    {"option that is not there", "--vertex 1 --surface 5",
     "'--surface' is not an argument of this command; see plcalc divide --help"},
    {"second file", "b.csv --vertex 1 --area 5",
     "'b.csv' is not an argument of this command; see plcalc divide --help"},
};

TEST_F(Messages, WrongUse)
{
    write_wkt(kSquare);
    for (const UseRow& row : kWrongUse) {
        SCOPED_TRACE(row.what);
        const test::Result run = divide("lot.csv", row.arguments);
        if (row.text != nullptr) {
            EXPECT_TRUE(test::fails_with(run, 2, row.text));
            continue;
        }
        EXPECT_EQ(run.status, 2);
        EXPECT_EQ(run.out, "");
        EXPECT_EQ(run.err.rfind("plcalc: lot.csv: --where 'id=' is not a filter that GDAL understands (", 0),
                  0u)
            << run.err;
        EXPECT_TRUE(ends_with(run.err, "); compare columns as in \"owner = 'Rossi'\"\n")) << run.err;
    }
    EXPECT_TRUE(test::fails_with(run({}), 2, "no verb is given; see plcalc --help"));
    EXPECT_TRUE(test::fails_with(run({"share", "lot.csv"}), 2,
                                 "'share' is not an argument of this command; see plcalc --help"));
    EXPECT_TRUE(
        test::fails_with(run({"divide", "--vertex", "1", "--area", "5"}), 2,
                         "FILE is missing; give the file that holds the parcel; see plcalc divide --help"));
    EXPECT_TRUE(
        test::fails_with(run({"divide", "", "--vertex", "1", "--area", "5"}), 2,
                         "FILE is missing; give the file that holds the parcel; see plcalc divide --help"));
    EXPECT_TRUE(test::fails_with(
        run({"divide", "lot.csv", "--vertex", "1", "--area", ""}), 2,
        "--area: '' is not a number above 0, with a point before the decimals; see plcalc divide --help"));
    EXPECT_TRUE(
        test::fails_with(run({"divide", "lot.csv", "--vertex", "1", "--areas", ""}), 2,
                         "--areas: '' is not a list such as 1000,1/3,20x30; see plcalc divide --help"));
    for (const char* flag : {"--help", "-h"})
        EXPECT_EQ(run({"measure", std::string(flag) + "=foo"}).status, 2) << flag;
    EXPECT_TRUE(test::fails_with(run({"--help=foo"}), 2, "--help: it takes no value; see plcalc --help"));
    EXPECT_TRUE(test::fails_with(run({"measure", "lot.csv", "--json=yes"}), 2,
                                 "--json: it takes no value; see plcalc measure --help"));
    EXPECT_TRUE(test::fails_with(run({"measure", "lot.csv", "divide"}), 2,
                                 "'divide' is not an argument of this command; see plcalc measure --help"))
        << "one verb at a time";
}

TEST_F(Messages, RepeatedVerticesLeaveASideWithoutLength)
{
    write_wkt("POLYGON ((0 0, 0 0, 10 0, 10 0, 10 10, 0 10, 0 0))");
    for (const char* cut : {"--parallel 1", "--perpendicular 1", "--parallel 3"})
        EXPECT_TRUE(test::fails_with(divide("lot.csv", std::string(cut) + " --area 5"), 2,
                                     std::string("lot.csv: feature 1: side ") +
                                         cut[std::string(cut).size() - 1] +
                                         " has no length: its two vertices are one point; choose the side "
                                         "before or after it"));
    EXPECT_EQ(divide("lot.csv", "--parallel 2 --area 5").status, 0);
    EXPECT_EQ(divide("lot.csv", "--vertex 1 --area 5").status, 0);
}

TEST_F(Messages, PointsAreOneParcel)
{
    write("points.csv", "E,N\n0,0\n10,0\n10,10\n");
    EXPECT_TRUE(test::fails_with(divide("points.csv", "--feature 1 --vertex 1 --area 5"), 2,
                                 "points.csv: its rows are the vertices of one parcel; leave --feature out"));
    EXPECT_TRUE(
        test::fails_with(run({"divide", "points.csv", "--where", "E > 0", "--vertex", "1", "--area", "5"}), 2,
                         "points.csv: its rows are the vertices of one parcel; leave --where out"));
}

// Two lots one after the other would be one parcel of six vertices.
TEST_F(Messages, ATableOfSeveralParcelsInDisorder)
{
    struct Row {
        const char* what;
        const char* table;
        const char* text;
    };
    const Row kSeveral[] = {
        {"a name in the first row of each", "name,E,N\nA,0,0\n,9,0\n,9,9\nB,20,0\n,29,0\n,29,9\n",
         "row 2: name changes from 'A' to '', as if another parcel began; call the column 'lot' if it names "
         "the parcels, or remove it if it says nothing about them"},
        {"a column of which nobody knows", "owner,E,N\nA,0,0\nA,9,0\nA,9,9\nB,20,0\nB,29,0\nB,29,9\n",
         "row 4: owner changes from 'A' to 'B', as if another parcel began; call the column 'lot' if it "
         "names "
         "the parcels, or remove it if it says nothing about them"},
        {"lots of two rings", "lot,ring,E,N\nA,1,0,0\nA,1,9,0\nA,1,9,9\nA,2,20,0\nA,2,29,0\nA,2,29,9\n",
         "row 4: ring changes from '1' to '2', as if another parcel began; call the column 'lot' if it names "
         "the parcels, or remove it if it says nothing about them"},
        {"lots in turns", "plot,E,N\nA,0,0\nB,9,0\nA,9,9\nB,0,9\n",
         "row 3: plot A comes back after plot B; put the rows of each parcel one after the other"},
        {"lots with an empty line between them", "E,N\n0,0\n9,0\n9,9\n\n20,0\n29,0\n29,9\n",
         "row 3: an empty line follows, as if another parcel began; add a column lot that names the parcel "
         "of each "
         "row, or remove the empty line"},
        {"a lot in the first row only", "lot,E,N\nA,0,0\n,9,0\n,9,9\n", "row 2: lot is empty; fill it in"},
        {"an id of two rows", "id,E,N\n1,0,0\n1,9,0\n2,9,9\n2,20,0\n",
         "row 3: id changes from '1' to '2', as if another parcel began; call the column 'lot' if it names "
         "the "
         "parcels, or remove it if it says nothing about them"},
    };
    for (const Row& row : kSeveral) {
        SCOPED_TRACE(row.what);
        write("lots.csv", row.table);
        EXPECT_TRUE(test::fails_with(divide("lots.csv", "--vertex 1 --area 5"), 3,
                                     std::string("lots.csv: ") + row.text));
    }
}

TEST_F(Messages, ATableOfOneParcelWithMoreColumns)
{
    const char* const kOne[] = {
        "lot,E,N\nA,0,0\nA,9,0\nA,9,9\n",                              // one lot
        "id,E,N\n1,0,0\n2,9,0\n3,9,9\n",                               // numbers of points
        "point,E,N\n1,0,0\n2,9,0\n3,9,9\n1,0,0\n",                     // closed with the first
        "P,N,E,Z,code\n1,0,0,5,stone\n2,0,9,5,stone\n3,9,9,6,nail\n",  // heights and marks
        "E,N,Height,Description\n0,0,5.1,a\n9,0,5.1,a\n9,9,5.2,b\n",   // the same, in words
    };
    for (const char* table : kOne) {
        SCOPED_TRACE(table);
        write("lot.csv", table);
        const test::Result run = divide("lot.csv", "--vertex 1 --area 5");
        EXPECT_EQ(run.status, 0) << run.err;
    }
    // What is said of points may be the same for two of three.
    for (const char* column : {"Z",     "H",    "Height",      "Elev",   "Elevation", "Altitude", "Quota",
                               "Code",  "Desc", "Description", "Remark", "Remarks",   "Comment",  "Note",
                               "Notes", "D",    "Type",        "Kind",   "Mark",      "Date",     "time"}) {
        write("lot.csv", std::string(column) + ",E,N\nA,0,0\nA,9,0\nB,9,9\n");
        EXPECT_EQ(divide("lot.csv", "--vertex 1 --area 5").status, 0) << column;
    }
}

// A list of points may hold a tree beside the corners.
TEST_F(Messages, CodesThatDifferAreTold)
{
    const struct {
        const char* what;
        const char* table;
        const char* told;  // behind the name of the file
    } rows[] = {
        {"one code", "E,N,code\n0,0,BDY\n9,0,BDY\n9,9,BDY\n0,9,BDY\n", ""},
        {"a tree among them", "E,N,code\n0,0,BDY\n9,0,BDY\n9,9,BDY\n0,9,TREE\n",
         " (points of every code are its vertices: BDY, TREE)"},
        {"two others", "E,N,Kind\n0,0,BDY\n9,0,BDY\n9,9,WALL\n0,9,TREE\n",
         " (points of every Kind are its vertices: BDY, WALL, ...)"},
        {"rows without a code", "E,N,D\n0,0,\n9,0,\n9,9,BDY\n0,9,BDY\n", ""},
        {"a code for each", "E,N,type\n0,0,a\n9,0,b\n9,9,c\n0,9,d\n", ""},
        {"remarks", "E,N,remark\n0,0,a\n9,0,a\n9,9,b\n0,9,b\n", ""},
        {"one code beside heights that differ", "E,N,H,D\n0,0,1,a\n9,0,1,a\n9,9,2,a\n0,9,2,a\n", ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        write("lot.csv", row.table);
        const test::Result run = this->run({"measure", "lot.csv"});
        EXPECT_EQ(run.out.substr(0, run.out.find('\n')), std::string("Parcel  lot.csv") + row.told)
            << run.err;
    }
    // Of the parcels of a layer each has its own.
    write("lots.csv", "lot,E,N,code\nA,0,0,BDY\nA,9,0,BDY\nA,9,9,BDY\nB,20,0,BDY\nB,29,0,BDY\nB,29,9,TREE\n"
                      "C,40,0,TREE\nC,49,0,TREE\nC,49,9,TREE\n");
    for (const char* lot : {"A", "B", "C"})
        EXPECT_EQ(
            run({"measure", "lots.csv", "--where", "lot = '" + std::string(lot) + "'"}).out.find("TREE") !=
                std::string::npos,
            *lot == 'B')
            << lot;
}

// ----------------------------------------------------------------------------------------- unusable input: 3

struct GeometryRow {
    const char* wkt;
    const char* text;
};

const GeometryRow kUnusable[] = {
    {"POLYGON EMPTY",
     "feature 1: the geometry is empty; draw the parcel, or choose another feature with --feature"},
    {"MULTIPOLYGON EMPTY",
     "feature 1: the geometry is empty; draw the parcel, or choose another feature with --feature"},
    {"POLYGON ((0 0, 1 1, 0 0))", "feature 1: the parcel has fewer than three different vertices, or all of "
                                  "them on one line; correct its coordinates"},
    {"POLYGON ((0 0, 1 1, 1 1, 1 1, 0 0))", "feature 1: the parcel has fewer than three different vertices, "
                                            "or all of them on one line; correct its coordinates"},
    {"LINESTRING (0 0, 1 1, 0 0)", "feature 1: the parcel has fewer than three different vertices, or all of "
                                   "them on one line; correct its coordinates"},
    {"POLYGON ((0 0, 9 0, 9 9, 0 9, 0 0), (0 2, 3 2, 3 3, 0 2))",
     "feature 1: the boundaries of the parcel and its holes meet: side 4, from vertex 4 to vertex 1, meets "
     "side 5, "
     "from vertex 5 to vertex 6; correct them so that each keeps apart from the others"},
    {"POLYGON ((0 0, 9 0, 9 9, 0 9, 0 0), (2 2, 3 2, 3 3, 2 2), (12 2, 13 2, 13 3, 12 2))",
     "feature 1: hole 2 does not lie in the parcel; correct it, or draw it as a parcel of its own"},
    {"POLYGON ((0 0, 9 0, 9 9, 0 9, 0 0), (2 2, 7 2, 7 7, 2 2), (4 3, 6 3, 6 5, 4 3))",
     "feature 1: hole 2 lies in another hole; correct it, or draw it as a parcel of its own"},
    {"POLYGON ((0 0, 9 0, 9 9, 0 9, 0 0), (2 2, 3 3, 4 4, 2 2))",
     "feature 1: the parcel has fewer than three different vertices, or all of them on one line; correct its "
     "coordinates"},
    {"POLYGON ((0 0, 10 10, 10 0, 0 10, 0 0))",
     "feature 1: the boundary crosses or touches itself: side 1, from vertex 1 to vertex 2, meets side 3, "
     "from "
     "vertex 3 to vertex 4; correct it so that it passes every vertex and side once"},
    {"CURVEPOLYGON (CIRCULARSTRING (0 0, 5 5, 10 0, 5 -5, 0 0))",
     "feature 1: the boundary has arcs; replace them with chords, as --arcs 0.005 does, which keeps the "
     "chords "
     "within 0.005 of the arcs"},
    {"TIN (((0 0, 9 0, 9 9, 0 0)))",
     "feature 1: the geometry is a TIN; a polygon or a closed line is needed"},
    {"POLYGON ((1e400 0, 10 0, 10 10, 0 10, 1e400 0))",
     "feature 1: vertex 1 has a coordinate that is not finite; correct it"},
    {"POLYGON ((0 0, 1e300 0, 1e300 1e300, 0 1e300, 0 0))",
     "feature 1: the parcel is too large or too small to compute with; check its coordinates"},
    {"POINT (1 2)", "the file holds no polygon and no closed line (features: 1, the first a POINT); a table "
                    "needs a header with a column WKT, or with E and N for a vertex in each row; without a "
                    "header, name the columns, as in --columns P,N,E,Z,D"},
    {"LINESTRING (0 0, 9 0, 9 9)",
     "the file holds no polygon and no closed line (features: 1, the first a LINESTRING); a table needs a "
     "header with a column WKT, or with E and N for a vertex in each row; without a header, name the "
     "columns, as in --columns P,N,E,Z,D"},
    {"GARBAGE", "feature 1: the WKT 'GARBAGE' cannot be read; correct it"},
    {"SRID=32632;POLYGON ((0 0, 9 x))",
     "feature 1: the WKT 'SRID=32632;POLYGON ((0 0, 9 x))' cannot be read; correct it"},
    {"POLYGON ((0 0, 10 0, 10 10, 0 10",
     "feature 1: the WKT 'POLYGON ((0 0, 10 0, 10 10, 0 10' cannot be read; correct it"},
    {"POLYGON ((0 0, 100 0, 100 100, 50 150, 0 100, 0 50, 0 x, 0 0))",
     "feature 1: the WKT 'POLYGON ((0 0, 100 0, 100 100, 50 150, 0...' cannot be read; correct it"},
    {"POINT (1000000000000000000000000000000 x",
     "feature 1: the WKT 'POINT (1000000000000000000000000000000 x' "
     "cannot be read; correct it"},
    {"POINT (1000000000000000000000000000000 xy",
     "feature 1: the WKT 'POINT (1000000000000000000000000000000 x...' "
     "cannot be read; correct it"},
    {"POLYGON ((0 0, nan 0, 10 10, 0 10, 0 0))", "feature 1: the WKT 'POLYGON ((0 0, nan 0, 10 10, 0 10, 0 "
                                                 "0))' cannot be read, a coordinate in it is not "
                                                 "a number; correct it"},
    {"", "feature 1: the feature has no geometry; draw the parcel, or choose another feature with --feature"},
};

TEST_F(Messages, GeometryThatCannotBeUsed)
{
    for (const GeometryRow& row : kUnusable) {
        SCOPED_TRACE(row.wkt);
        write_wkt(row.wkt);
        EXPECT_TRUE(test::fails_with(divide("lot.csv", "--vertex 1 --area 5"), 3,
                                     std::string("lot.csv: ") + row.text));
    }
    write_wkt("POINT (1 2)");
    EXPECT_TRUE(test::fails_with(
        divide("lot.csv", "--feature 1 --vertex 1 --area 5"), 3,
        "lot.csv: feature 1: the geometry is a POINT; a polygon or a closed line is needed"));
    write_wkt("LINESTRING (0 0, 9 0, 9 9)");
    EXPECT_TRUE(test::fails_with(
        divide("lot.csv", "--feature 1 --vertex 1 --area 5"), 3,
        "lot.csv: feature 1: the geometry is a LINESTRING; a polygon or a closed line is needed"));
}

TEST_F(Messages, TinyAreasAreShown)
{
    write_wkt("POLYGON ((0 0, 1e-4 0, 1e-4 1e-4, 0 1e-4, 0 0))");
    EXPECT_TRUE(test::fails_with(divide("lot.csv", "--vertex 1 --area 1.5e-8"), 4,
                                 "lot.csv: feature 1: the requested area 0.000000015 is not less than the "
                                 "parcel's area 0.000000010000000; ask for less"));
    const test::Result run = divide("lot.csv", "--parallel 1 --area 2.5e-9");
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out.find(" 0.0000\n"), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("Asked   0.0000000025\n"), std::string::npos) << run.out;
}

TEST_F(Messages, ParcelTooSmallForItsCoordinates)
{
    write_wkt("POLYGON ((500000 5000000, 500001 5000000, 500001 5000000.0000152587890625, 500000 "
              "5000000.0000152587890625, 500000 5000000))");
    EXPECT_EQ(divide("lot.csv", "--parallel 1 --area 0.00000762939453125").status, 0);
    const test::Result run = divide("lot.csv", "--parallel 1 --area 0.00000762962");
    EXPECT_TRUE(test::fails_with(
        run, 4,
        "lot.csv: feature 1: the coordinates are too large for so small a parcel: no line holds the "
        "requested area once its ends are rounded to numbers; use coordinates from an origin nearby"));
}

struct FileRow {
    const char* what;
    const char* name;
    const char* content;
    const char* text;
};

const FileRow kUnusableFiles[] = {
    {"nothing in it", "a.csv", "", "the file is empty; save the parcel to it again"},
    {"cell without a number", "a.csv", "E,N\n0,0\n100,\n100,50\n", "row 2: N is empty; fill it in"},
    {"coordinate not a number", "a.csv", "E,N\n0,0\nnan,3\n100,50\n",
     "vertex 2 has a coordinate that is not finite; correct it"},
    {"two rows", "a.csv", "E,N\n0,0\n9,9\n",
     "the parcel has fewer than three different vertices, or all of them on one line; correct its "
     "coordinates"},
    {"a header and no row", "a.csv", "E,N\n",
     "the parcel has fewer than three different vertices, or all of them on one line; correct its "
     "coordinates"},
    {"rows in the wrong order", "a.csv", "E,N\n0,0\n100,50\n100,0\n0,50\n",
     "the boundary crosses or touches itself: side 1, from vertex 1 to vertex 2, meets side 3, from vertex 3 "
     "to vertex 4; "
     "correct it so that it passes every vertex and side once"},
    {"no header", "a.csv", "0,0\n100,0\n100,50\n",
     "the file holds no polygon and no closed line (features: 3); a table needs a header with a column WKT, "
     "or with E and N for a vertex in each row; without a header, name the columns, as in --columns "
     "P,N,E,Z,D"},
    {"East without its North", "a.csv", "E,Y\n0,0\n100,0\n100,50\n",
     "the file holds no polygon and no closed line (features: 3); a table needs a header with a column WKT, "
     "or with E and N for a vertex in each row; without a header, name the columns, as in --columns "
     "P,N,E,Z,D"},
    {"one column", "a.csv", "WKT\n\"POLYGON ((0 0, 9 0, 9 9, 0 0))\"\n",
     "GDAL cannot read this file as a table; a CSV file needs a header and at least two columns"},
    {"no features", "a.geojson", R"({"type": "FeatureCollection", "features": []})",
     "the file holds no feature; draw the parcel as a polygon"},
    {"no geometry", "a.geojson",
     R"({"type": "FeatureCollection", "features": [{"type": "Feature", "properties": {}, "geometry": null}]})",
     "feature 0: the feature has no geometry; draw the parcel, or choose another feature with --feature"},
    {"a coordinate NaN", "a.geojson",
     R"({"type": "Polygon", "coordinates": [[[NaN, 0], [1000, 0], [1000, 900], [0, 900], [0, 0]]]})",
     "feature 0: vertex 1 has a coordinate that is not finite; correct it"},
    {"degrees", "a.geojson",
     R"({"type": "Polygon", "coordinates": [[[9, 45], [9.1, 45], [9.1, 45.1], [9, 45]]]})",
     "feature 0: the coordinates are not plane (WGS 84); project them first, for example with ogr2ogr "
     "-t_srs "
     "EPSG:32632, or correct the file's CRS if they are"},
};

TEST_F(Messages, FileThatCannotBeUsed)
{
    for (const FileRow& row : kUnusableFiles) {
        SCOPED_TRACE(row.what);
        write(row.name, row.content);
        EXPECT_TRUE(test::fails_with(divide(row.name, "--vertex 1 --area 5"), 3,
                                     std::string(row.name) + ": " + row.text));
    }
    EXPECT_TRUE(test::fails_with(divide("a.geojson", "--feature 0 --vertex 1 --area 5"), 3,
                                 std::string("a.geojson: ") + kUnusableFiles[12].text));
    write("b.geojson", kUnusableFiles[10].content);
    EXPECT_TRUE(test::fails_with(divide("b.geojson", "--feature 0 --vertex 1 --area 5"), 3,
                                 "b.geojson: feature 0: the feature has no geometry; draw the parcel, or "
                                 "choose another feature with --feature"));
}

// Here GDAL's own words are folded in; they are not ours to fix.
TEST_F(Messages, FileThatCannotBeOpened)
{
    write("lot.odd", "E,N\n0,0\n9,0\n9,9\n");
    write("broken.geojson", "{");
    write("broken.gpkg", "SQLite format 3");
    std::filesystem::create_directory(path("folder"));
    for (const char* file : {"lot.odd", "broken.geojson", "broken.gpkg", "missing.csv", "folder", "a\nb.csv",
                             "/dev/null", "PG:nothing"}) {
        const test::Result run = this->run({"divide", file, "--vertex", "1", "--area", "5"});
        EXPECT_EQ(run.status, 3) << file;
        EXPECT_EQ(run.out, "") << file;
        EXPECT_EQ(run.err.find('\n'), run.err.size() - 1) << run.err;
        EXPECT_EQ(run.err.rfind("plcalc: ", 0), 0u) << run.err;
        EXPECT_EQ(run.err.find("ERROR"), std::string::npos) << run.err;
    }
    const std::string missing = divide("missing.csv", "--vertex 1 --area 5").err;
    EXPECT_EQ(missing, "plcalc: missing.csv: there is no such file; check the name\n");
    const std::string unknown = divide("lot.odd", "--vertex 1 --area 5").err;
    EXPECT_EQ(unknown.rfind("plcalc: lot.odd: GDAL cannot read this file as vector data (", 0), 0u)
        << unknown;
    EXPECT_TRUE(ends_with(unknown, "); convert it, for example to GeoPackage\n")) << unknown;
    EXPECT_TRUE(test::fails_with(
        divide("folder", "--vertex 1 --area 5"), 3,
        "folder: this is a folder in which GDAL finds no vector file; name the file itself"));
}

// A file that ends in the middle, of formats that are read as far as they go.
// A driver that cannot be loaded has nothing to do with the file: what is said of it does not reach the message.
TEST_F(Messages, ADriverThatCannotBeLoadedIsNotBlamed)
{
    write("gdal_broken.so", "");
    const std::string without = divide("missing.csv", "--vertex 1 --area 5").err;
    setenv("GDAL_DRIVER_PATH", path("").c_str(), 1);
    const std::string with = divide("missing.csv", "--vertex 1 --area 5").err;
    unsetenv("GDAL_DRIVER_PATH");
    EXPECT_EQ(with, without);
}

TEST_F(Messages, FileThatEndsInTheMiddle)
{
    const std::string feature = R"({"type": "Feature", "properties": {}, "geometry": {"type": "Polygon",)"
                                R"( "coordinates": [[[500000, 0], [500009, 0], [500009, 9], [500000, 0]]]}})";
    write("lots.geojsonl", feature + "\n" + feature.substr(0, 60) + "\n" + feature + "\n");
    const test::Result middle = divide("lots.geojsonl", "--vertex 1 --area 5");
    EXPECT_EQ(middle.status, 3);
    EXPECT_EQ(middle.err.rfind("plcalc: lots.geojsonl: the file cannot be read to its end (", 0), 0u)
        << middle.err;
    EXPECT_TRUE(ends_with(middle.err, "); repair it\n")) << middle.err;
    write("lots.gml", R"(<?xml version="1.0"?><ogr:FeatureCollection xmlns:ogr="http://ogr.maptools.org/")"
                      R"( xmlns:gml="http://www.opengis.net/gml"><gml:featureMember><ogr:lot fid="lot.0">)");
    const test::Result run = divide("lots.gml", "--vertex 1 --area 5");
    EXPECT_EQ(run.status, 3);
    EXPECT_NE(run.err.find("XML parsing"), std::string::npos) << run.err;
}

// Root may read every file; without that right, the programs that it starts may not.
bool give_up_reading_every_file()
{
    return geteuid() != 0 || (prctl(PR_CAPBSET_DROP, CAP_DAC_OVERRIDE) == 0 &&
                              prctl(PR_CAPBSET_DROP, CAP_DAC_READ_SEARCH) == 0);
}

TEST_F(Messages, FileThatMayNotBeRead)
{
    if (!give_up_reading_every_file())
        GTEST_SKIP() << "this root cannot give up its rights";
    write_wkt(kSquare);
    std::filesystem::permissions(path("lot.csv"), std::filesystem::perms::none);
    EXPECT_TRUE(test::fails_with(divide("lot.csv", "--vertex 1 --area 5"), 3,
                                 "lot.csv: plcalc may not read the file; check its permissions"));
}

TEST_F(Messages, ATableThatGdalGivesUp)
{
    const std::string endless(11 * 1024 * 1024, '0');  // GDAL takes rows of 10 MB
    write("lot.csv", "E,N\n0,0\n10,0\n10,10\n0,10" + endless + "\n5,5\n");
    EXPECT_TRUE(test::fails_with(
        divide("lot.csv", "--vertex 1 --area 5"), 3,
        "lot.csv: the table cannot be read (Maximum number of characters allowed reached); correct it"));
}

// ------------------------------------------------------------------------------------- cuts that cannot be: 4

struct CutRow {
    const char* what;
    const char* wkt;
    const char* arguments;
    const char* text;
};

const CutRow kCannotCut[] = {
    {"the whole parcel", kSquare, "--vertex 1 --area 100",
     "the requested area 100 is not less than the parcel's area 100.00000; ask for less"},
    {"more than the parcel", kSquare, "--parallel 1 --product 30 40",
     "the requested area 30 x 40 is not less than the parcel's area 100.00000; ask for less"},
    {"more than a double has decimals for", kSquare, "--perpendicular 1 --area 1e300",
     "the requested area 1e+300 is not less than the parcel's area 100.00000; ask for less"},
    {"next to nothing", kSquare, "--perpendicular 1 --area 1e-300",
     "the requested area 1e-300 is too small beside the parcel's area 100.00000; ask for more"},
};

TEST_F(Messages, CutThatCannotBeMade)
{
    for (const CutRow& row : kCannotCut) {
        SCOPED_TRACE(row.what);
        write_wkt(row.wkt);
        EXPECT_TRUE(test::fails_with(divide("lot.csv", row.arguments), 4,
                                     std::string("lot.csv: feature 1: ") + row.text));
    }
}

// Where no line holds the area, the message ends with what can be had: amounts, and other lines.
TEST_F(Messages, WhatCanBeHadInstead)
{
    const CutRow rows[] = {
        // The parcel's South-West, 650, lies behind its side 2, which begins at an inner corner. A line below the
        // level of that side leaves the rest of the South-West to it: 600 and more.
        {"more behind the base than asked", "POLYGON ((0 0, 10 10, 20 10, 20 20, -40 20, -40 -10, 0 0))",
         "--parallel 2 --area 5",
         "the part of the parcel behind side 2 alone is larger than the requested area 5; ask for at least "
         "600.0000, or cut "},
        // A U open to the North: more than its right arm, 150, along the top of it, would need a piece of the left
        // arm. With 300 a line across the left arm leaves all the rest to the top of the right one.
        {"line through a gap", "POLYGON ((0 0, 30 0, 30 20, 20 20, 20 5, 10 5, 10 20, 0 20, 0 0))",
         "--parallel 3 --area 200",
         "every line that cuts off the requested area 200 leaves the parcel or touches its boundary on the "
         "way; ask for at most 150.00000 or at least 300.00000, or cut across side 1, along side 2, along "
         "side 8, "},
    };
    for (const CutRow& row : rows) {
        SCOPED_TRACE(row.what);
        write_wkt(row.wkt);
        const test::Result run = divide("lot.csv", row.arguments);
        EXPECT_EQ(run.status, 4);
        EXPECT_EQ(run.out, "");
        EXPECT_EQ(run.err.rfind(std::string("plcalc: lot.csv: feature 1: ") + row.text, 0), 0U) << run.err;
    }
}

// What the library's own search misses is found all the same, to the last digit asked for.
TEST_F(Messages, AMillionthOfAMillionthIsCutOff)
{
    write_wkt(kSquare);
    const test::Result run = divide("lot.csv", "--parallel 1 --area 1e-9");
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(test::numbers_after(run.out, "cut off").at(0), 1e-9);
    EXPECT_EQ(test::numbers_after(run.out, "from").at(1), 1e-10);
    EXPECT_TRUE(ends_with(run.out,
                          "\nDividing line is within 0.01 m of side 1: staked out, the two cannot be told "
                          "apart\n"))
        << run.out;
}

// Here the strip's depth is the area by 10.
TEST_F(Messages, ALineWithinTheStakeOutPrecision)
{
    write_wkt(kSquare);
    for (const auto& [area, told] : {std::pair{"0.099", true}, {"0.1", true}, {"0.101", false}})
        EXPECT_EQ(divide("lot.csv", std::string("--parallel 1 --area ") + area).out.find("told apart") !=
                      std::string::npos,
                  told)
            << area;
    const test::Result json = divide("lot.csv", "--parallel 2 --area 0.05 --json");
    EXPECT_NE(json.out.find("\"at_side\": 2"), std::string::npos) << json.out;
}

// ------------------------------------------------------------------------------------------------ and the rest

// The configuration of a font library that has no cache yet, and keeps its caches in this folder.
std::string empty_font_cache(const std::string& folder)
{
    return "<?xml version=\"1.0\"?><!DOCTYPE fontconfig SYSTEM \"urn:fontconfig:fonts.dtd\"><fontconfig>"
           "<include ignore_missing=\"yes\">/etc/fonts/conf.d</include><dir>/usr/share/fonts</dir>"
           "<cachedir>" +
           folder + "</cachedir></fontconfig>";
}

// A home that cannot be written, a first run there: the plan is drawn, and nothing is said about caches.
TEST_F(Messages, FontCacheThatCannotBeWritten)
{
    write_wkt(kSquare);
    write("fonts.conf", empty_font_cache(path("lot.csv/cache")));
    setenv("FONTCONFIG_FILE", path("fonts.conf").c_str(), 1);
    const test::Result run = divide("lot.csv", "--parallel 1 --area 50 --plan plan.svg");
    unsetenv("FONTCONFIG_FILE");
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "");
    EXPECT_TRUE(std::filesystem::exists(path("plan.svg")));
}

// Every option that the help shows, given twice: two values would contradict each other. Some may be repeated.
TEST_F(Messages, AnOptionIsGivenOnce)
{
    write_wkt(kSquare);
    const std::set<std::string> may_be_repeated = {"--product", "--title", "--point"};
    for (const char* verb : {"divide", "measure", "stakeout"}) {
        const std::string help = run({verb, "--help"}).out;
        std::set<std::string> options;
        for (std::size_t at = help.find("--"); at != std::string::npos; at = help.find("--", at + 2))
            options.insert(help.substr(at, help.find_first_not_of("-abcdefghijklmnopqrstuvwxyz", at) - at));
        EXPECT_GT(options.size(), 10u);
        for (const std::string& option : options) {
            if (may_be_repeated.count(option) > 0)
                continue;
            const test::Result twice = run({verb, "lot.csv", option + "=1", option + "=1"});
            EXPECT_EQ(twice.status, 2) << option;
            EXPECT_TRUE(twice.err.rfind("plcalc: " + option + ": give one value, ", 0) == 0 ||
                        twice.err.rfind("plcalc: " + option + ": it takes no value; ", 0) == 0)
                << twice.err;
        }
    }
}

// A disk that takes no more: a limit on the size of files, which the font library's caches meet too.
TEST_F(Messages, OutputThatCannotBeWritten)
{
    write_wkt("POLYGON ((0 0, 100 0, 100 100, 0 100, 0 0))");
    const auto err_of = [&](const std::string& setup, const std::string& arguments) {
        const std::string command = "cd " + path("") + " && ( " + setup + " " PLCALC_PROGRAM " 2>&1 " +
                                    arguments + "; echo $? >status ) | cat >" + path("err") +
                                    "; test -z \"$(ls -A | grep plcalc-)\"";
        EXPECT_EQ(std::system(command.c_str()), 0) << "left behind";
        int status = -1;
        std::ifstream(path("status")) >> status;
        EXPECT_EQ(status, 1);
        std::ostringstream text;
        text << std::ifstream(path("err")).rdbuf();
        return text.str();
    };
    EXPECT_EQ(err_of("", "divide lot.csv --vertex 1 --area 5 >/dev/full"),
              "plcalc: the result could not be written to standard output: the disk is full\n");
    EXPECT_EQ(err_of("", "--help >/dev/full"),
              "plcalc: the result could not be written to standard output: the disk is full\n");

    write("fonts.conf", empty_font_cache(path("cache")));
    const std::string full = "export FONTCONFIG_FILE=" + path("fonts.conf") + "; ulimit -f 8;";
    const std::string cut = "divide lot.csv --parallel 1 --parts 40 ";
    const std::string plan = err_of(full, cut + "--plan plan.svg");
    EXPECT_EQ(plan.rfind("plcalc: plan.svg: the plan could not be written (", 0), 0u) << plan;
    EXPECT_TRUE(ends_with(plan, "); check the folder and the room on the disk\n")) << plan;
    EXPECT_EQ(err_of(full, cut + "--plan plan.svg <&-"), plan) << "where files take the numbers of streams";
    for (const char* out :
         {"out.gpkg", "out.geojson", "out.shp", "out.csv", "out.gml", "out.mif", "out.fgb"}) {
        SCOPED_TRACE(out);
        const std::string layers =
            err_of(full, "divide lot.csv --parallel 1 --parts 200 -o " + std::string(out));
        EXPECT_EQ(layers.rfind("plcalc: " + std::string(out) + ": the file could not be written", 0), 0u)
            << layers;
        EXPECT_TRUE(ends_with(layers, "; try another format, such as GeoPackage (.gpkg)\n")) << layers;
    }
    const std::string fuller = "export FONTCONFIG_FILE=" + path("fonts.conf") + "; ulimit -f 64;";
    for (const char* out : {"out.dxf", "out.xml"}) {
        const std::string drawn =
            err_of(fuller, "divide lot.csv --crs EPSG:25832 --any-scale --parallel 1 --parts 900 -o " +
                               std::string(out));
        EXPECT_EQ(drawn.rfind("plcalc: " + std::string(out) + ": the file could not be written", 0), 0u)
            << drawn;
        // What reading it back would say of the rest is beside the point.
        EXPECT_EQ(drawn.find("ring"), std::string::npos) << drawn;
    }
    for (const auto& entry : std::filesystem::directory_iterator(path("")))
        EXPECT_NE(entry.path().stem(), "out") << entry.path();
    EXPECT_FALSE(std::filesystem::exists(path("plan.svg")));
}

// A disk of a few pages, where root can mount one.
TEST_F(Messages, AFullDiskIsCalledSo)
{
    write_wkt("POLYGON ((0 0, 100 0, 100 100, 0 100, 0 0))");
    std::filesystem::create_directory(path("disk"));
    if (std::system(("mount -t tmpfs -o size=64k none " + path("disk") + " 2>/dev/null").c_str()) != 0)
        GTEST_SKIP() << "nothing can be mounted here";
    for (const char* out : {"-o disk/out.gpkg", "-o disk/out.geojson", "-o disk/out.shp", "-o disk/out.gml",
                            "-o disk/out.fgb", "--plan disk/out.svg"}) {
        SCOPED_TRACE(out);
        const std::string name = std::string(out).substr(std::string(out).find(' ') + 1);
        EXPECT_TRUE(test::fails_with(divide("lot.csv", std::string("--parallel 1 --parts 900 ") + out), 1,
                                     name + ": the disk is full; make room on it, or write to another"));
        EXPECT_TRUE(std::filesystem::is_empty(path("disk")));
    }
    EXPECT_EQ(std::system(("umount " + path("disk")).c_str()), 0);
}

TEST_F(Messages, HelpAndVersionFitTheTerminal)
{
    for (const std::vector<std::string>& arguments : {std::vector<std::string>{"--help"},
                                                      {"-h"},
                                                      {"divide", "--help"},
                                                      {"divide", "-h"},
                                                      {"measure", "--help"},
                                                      {"stakeout", "--help"},
                                                      {"--version"}}) {
        const test::Result run = this->run(arguments);
        EXPECT_EQ(run.status, 0);
        EXPECT_EQ(run.err, "");
        EXPECT_EQ(run.out.rfind("plcalc", 0), 0u) << run.out;
        std::istringstream lines(run.out);
        for (std::string line; std::getline(lines, line);)
            EXPECT_LE(line.size(), 80u) << line;
    }
    EXPECT_NE(run({"divide", "--help"}).out.find("plcalc divide examples/published.csv"), std::string::npos);
}

// One line of 160 characters at most, so that the advice behind it is not hidden; the first error before any warning.
TEST(GdalMessages, AreKeptShortAndOnOneLine)
{
    tool::GdalMessages messages;
    const auto kept = [&](const std::string& said) {
        messages.clear();
        CPLError(CE_Failure, CPLE_AppDefined, "%s", said.c_str());
        return messages.remark();
    };
    EXPECT_EQ(kept(std::string(160, 'x')), " (" + std::string(160, 'x') + ")");
    EXPECT_EQ(kept(std::string(161, 'x')), " (" + std::string(160, 'x') + "...)");
    EXPECT_EQ(kept(" no\n\tsuch  file. "), " (no such file)");
    EXPECT_TRUE(messages.failed());
    messages.clear();
    EXPECT_FALSE(messages.failed());
    EXPECT_EQ(messages.remark(), "");
    for (const char* warning : {"a warning", "another"})
        CPLError(CE_Warning, CPLE_AppDefined, "%s", warning);
    EXPECT_EQ(messages.text(), "a warning");
    for (const char* error : {"an error", "what comes of it"})
        CPLError(CE_Failure, CPLE_AppDefined, "%s", error);
    EXPECT_EQ(messages.text(), "an error");
}

// What a program reads, a line at a time.
TEST_F(Messages, AreOneLineWhateverTheFileIsCalled)
{
    write("two\nlines.csv", "E,N\n0,0\n10,0\n10,10\n");
    for (const char* json : {"", " --json"}) {
        const test::Result run = divide("two\nlines.csv", std::string("--parallel 1 --area 99") + json);
        EXPECT_EQ(run.status, 4);
        EXPECT_EQ(run.err.rfind("plcalc: two?lines.csv: ", 0), 0u) << run.err;
        EXPECT_EQ(std::count(run.err.begin(), run.err.end(), '\n'), 1) << run.err;
    }
}

}  // namespace
