// Many parcels in one go, several cuts of one parcel, and the same figures as JSON.

#include <fstream>
#include <iterator>
#include <sstream>

#include <nlohmann/json.hpp>

#include "console/spool.h"
#include "console/terminal.h"
#include "program.h"

namespace {

using nlohmann::json;

class Many : public test::ProgramTest {
protected:
    std::string content(const std::string& name) const
    {
        std::ifstream file(path(name));
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }

    // Two squares, a point, a bow-tie, broken text, a square too small for the request.
    void write_lots() const
    {
        write("lots.csv", "id,owner,WKT\n"
                          "1,Rossi,\"POLYGON ((0 0, 100 0, 100 100, 0 100, 0 0))\"\n"
                          "2,Bianchi,\"POLYGON ((200 0, 300 0, 300 50, 200 50, 200 0))\"\n"
                          "3,nobody,POINT (1 2)\n"
                          "4,Rossi,\"POLYGON ((0 0, 10 10, 10 0, 0 10, 0 0))\"\n"
                          "5,Neri,\"POLYGON ((0 0, 9 x))\"\n"
                          "6,Neri,\"POLYGON ((0 0, 10 0, 10 10, 0 10, 0 0))\"\n"
                          "7,nobody,\n");
    }
};

TEST_F(Many, EveryParcelOfALayerAndASummary)
{
    write_lots();
    const test::Result run = divide("lots.csv", "--parallel 1 --area 1000");
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.out, "   Parcel  line    from E   from N      to E     to N    cut off\n"
                       "feature 1     1    0.0000  10.0000  100.0000  10.0000  1000.0000\n"
                       "feature 2     1  200.0000  10.0000  300.0000  10.0000  1000.0000\n"
                       "\n"
                       "Divided  2 of 5 parcels\n"
                       "Refused  3 in lots.csv\n"
                       "  1: the WKT 'POLYGON ((0 0, 9 x))' cannot be read (feature 5)\n"
                       "  1: the amount is not below what there is to cut (feature 6)\n"
                       "  1: the boundary crosses or touches itself (feature 4)\n"
                       "Skipped, without an area  2\n");
    EXPECT_EQ(run.status, 3);
}

// Tables, lists and messages call a parcel by its name; JSON keeps name and place apart.
TEST_F(Many, ParcelsAreCalledByTheirNames)
{
    write_lots();
    const test::Result run = divide("lots.csv", "--parallel 1 --area 1000 --name-column owner");
    EXPECT_EQ(run.out, "             Parcel  line    from E   from N      to E     to N    cut off\n"
                       "  feature 1 'Rossi'     1    0.0000  10.0000  100.0000  10.0000  1000.0000\n"
                       "feature 2 'Bianchi'     1  200.0000  10.0000  300.0000  10.0000  1000.0000\n"
                       "\n"
                       "Divided  2 of 5 parcels\n"
                       "Refused  3 in lots.csv\n"
                       "  1: the WKT 'POLYGON ((0 0, 9 x))' cannot be read (feature 5 'Neri')\n"
                       "  1: the amount is not below what there is to cut (feature 6 'Neri')\n"
                       "  1: the boundary crosses or touches itself (feature 4 'Rossi')\n"
                       "Skipped, without an area  2\n");
    EXPECT_TRUE(
        test::fails_with(divide("lots.csv", "--parallel 1 --area 1000 --name-column owner --feature 6"), 4,
                         "lots.csv: feature 6 'Neri': the requested area 1000 is not less than the "
                         "parcel's area 100.00000; ask for less"));
    const json got =
        json::parse(divide("lots.csv", "--parallel 1 --area 1000 --name-column owner --json").out);
    EXPECT_EQ(got["parcels"][1]["parcel"], "lots.csv: feature 2");
    EXPECT_EQ(got["parcels"][1]["name"], "Bianchi");
    EXPECT_EQ(got["parcels"][2]["status"], "refused");
    EXPECT_EQ(got["parcels"][2]["parcel"], "lots.csv: feature 4");
    EXPECT_EQ(got["parcels"][2]["name"], "Rossi");
    EXPECT_FALSE(
        json::parse(divide("lots.csv", "--parallel 1 --area 1000 --json").out)["parcels"][1].contains(
            "name"));
}

// What a name holds neither parts a row nor speaks to the terminal.
TEST_F(Many, NamesStayInTheirRows)
{
    write("lots.csv", "id,owner,WKT\n1,\"Rossi\nA\",\"POLYGON ((0 0, 100 0, 100 100, 0 100, 0 0))\"\n"
                      "2,\"a\x1b[31mb\",\"POLYGON ((0 0, 100 0, 100 100, 0 100, 0 0))\"\n");
    const std::string rows = divide("lots.csv", "--parallel 1 --area 1000 --name-column owner").out;
    EXPECT_NE(rows.find("\nfeature 1 'Rossi?A'     1  0.0000"), std::string::npos) << rows;
    EXPECT_NE(rows.find("\nfeature 2 'a?[31mb'     1  0.0000"), std::string::npos) << rows;
    const std::string measured = run({"measure", "lots.csv", "--name-column", "owner"}).out;
    EXPECT_NE(measured.find("\nfeature 1  Rossi?A "), std::string::npos) << measured;
    EXPECT_NE(measured.find("\nfeature 2  a?[31mb "), std::string::npos) << measured;
}

// Two squares, one with a hole, a point and a bow-tie.
TEST_F(Many, ALayerIsMeasured)
{
    write("lots.csv",
          "id,owner,WKT\n"
          "1,\"Rossi, A\",\"POLYGON ((0 0, 100 0, 100 100, 0 100, 0 0))\"\n"
          "2,Bianchi,\"POLYGON ((200 0, 300 0, 300 50, 200 50, 200 0), (210 10, 220 10, 220 20, 210 20, 210 "
          "10))\"\n"
          "3,nobody,POINT (1 2)\n"
          "4,Neri,\"POLYGON ((0 0, 10 10, 10 0, 0 10, 0 0))\"\n");
    const test::Result table = run({"measure", "lots.csv"});
    EXPECT_EQ(table.out, "   Parcel  vertices  holes        area  perimeter\n"
                         "feature 1         4      0  10000.0000   400.0000\n"
                         "feature 2         8      1   4900.0000   340.0000\n"
                         "\n"
                         "Measured 2 of 3 parcels\n"
                         "Refused  1 in lots.csv\n"
                         "  1: the boundary crosses or touches itself (feature 4)\n"
                         "Skipped, without an area  1\n");
    EXPECT_EQ(table.status, 3);
    EXPECT_EQ(table.err, "");
    EXPECT_EQ(run({"measure", "lots.csv", "--name-column", "owner"}).out.substr(0, 48),
              "   Parcel      name  vertices  holes        area");
    EXPECT_EQ(run({"measure", "lots.csv", "--csv", "--name-column", "owner"}).out,
              "parcel,name,area,perimeter,vertices,holes,direction,status\n"
              "feature 1,\"Rossi, A\",10000.0000,400.0000,4,0,anticlockwise,measured\n"
              "feature 2,Bianchi,4900.0000,340.0000,8,1,anticlockwise,measured\n"
              "feature 4,Neri,,,,,,refused: the boundary crosses or touches itself\n");
    const json got = json::parse(run({"measure", "lots.csv", "--json"}).out);
    EXPECT_EQ(got["measured"], 2);
    EXPECT_EQ(got["refused"], 1);
    EXPECT_EQ(got["parcels"][1]["holes"], 1);
    EXPECT_EQ(got["parcels"][1]["area"], 4900.0);
    EXPECT_EQ(got["parcels"][1]["sides"].size(), 8u);
    EXPECT_EQ(got["parcels"][2]["status"], "refused");
    EXPECT_NE(got["parcels"][2]["reason"].get<std::string>().find("lots.csv: feature 4: "),
              std::string::npos);
    EXPECT_EQ(run({"measure", "lots.csv", "--csv", "--json"}).status, 2);
    EXPECT_EQ(run({"measure", "lots.csv", "--csv", "--feature", "2"}).out,
              "parcel,name,area,perimeter,vertices,holes,direction,status\n"
              "feature 2,,4900.0000,340.0000,8,1,anticlockwise,measured\n");
    const test::Result one = run({"measure", "lots.csv", "--feature", "4", "--json"});
    EXPECT_EQ(one.status, 3);
    EXPECT_EQ(one.out, "");
    EXPECT_EQ(one.err, run({"measure", "lots.csv", "--feature", "4"}).err);
}

// Said once for all of them: in the table before the rows, beside CSV on standard error.
TEST_F(Many, WhatIsAssumedOfALayerIsSaidOnce)
{
    write("lots.csv", "lot,X,Y\nA,0,0\nA,9,0\nA,9,9\nB,20,0\nB,29,0\nB,29,9\n");
    const test::Result table = run({"measure", "lots.csv", "--axes", "en"});
    EXPECT_EQ(table.out.rfind("Assumed  X is East and Y North, as --axes says\n\nParcel", 0), 0u)
        << table.out;
    const test::Result csv = run({"measure", "lots.csv", "--axes", "en", "--csv"});
    EXPECT_EQ(csv.err, "plcalc: assumed: X is East and Y North, as --axes says\n");
    EXPECT_EQ(csv.out.rfind("parcel,name,", 0), 0u);
}

// ------------------------------------------------------------------------------------------------ several at a time

// 500 lots, one in seven a bow-tie, of 4 to 400 vertices.
std::string many_lots()
{
    std::string table = "name,WKT\n";
    for (int lot = 0; lot < 500; ++lot) {
        const int left = 2000 * lot;
        std::ostringstream ring;
        ring << left << " 0, " << left + 1000 << " 0, ";
        if (lot % 7 == 3)
            ring << left << " 100, " << left + 1000 << " 100, ";
        for (int i = 0; lot % 7 != 3 && i < 2 + lot % 100 * 4; ++i)
            ring << left + 1000 - i << " " << 300 + i % 2 << ", ";
        table +=
            "lot " + std::to_string(lot) + ",\"POLYGON ((" + ring.str() + std::to_string(left) + " 0))\"\n";
    }
    return table;
}

TEST_F(Many, TheOrderAndTheResultsDoNotDependOnTheJobs)
{
    write("lots.csv", many_lots());
    for (const std::string mode : {"", "--json", "-o out.geojson --overwrite"}) {
        SCOPED_TRACE(mode);
        const bool writes = mode.rfind("-o", 0) == 0;
        const test::Result one = divide("lots.csv", "--parallel 1 --area 1000 --jobs 1 " + mode);
        ASSERT_EQ(one.status, 3) << one.err;
        EXPECT_NE(one.out.find(mode == "--json" ? "\"divided\": 429" : "Divided  429 of 500 parcels"),
                  std::string::npos);
        const std::string written = writes ? content("out.geojson") : "";
        for (const char* jobs : {"--jobs 2 ", "--jobs 9 ", ""}) {
            const test::Result several =
                divide("lots.csv", std::string("--parallel 1 --area 1000 ") + jobs + mode);
            EXPECT_EQ(several.status, one.status);
            EXPECT_EQ(several.out, one.out);
            EXPECT_EQ(writes ? content("out.geojson") : "", written);
        }
    }
    for (const char* parcels : {"", "--feature 1 "})
        for (const char* jobs : {"0", "-1", "1025", "two"})
            EXPECT_TRUE(test::fails_with(
                divide("lots.csv", parcels + std::string("--parallel 1 --area 1000 --jobs ") + jobs), 2,
                std::string("--jobs: '") + jobs +
                    (jobs == std::string("two") ? "' is not a whole number"
                                                : "' is not a number from 1 to 1024") +
                    "; see plcalc divide --help"));
}

// Text that is kept outside memory is the JSON that a library makes of the whole.
TEST_F(Many, TheJsonIsOneValue)
{
    write("lots.csv", many_lots());
    const test::Result run = divide("lots.csv", "--parallel 1 --area 1000 --json");
    EXPECT_EQ(nlohmann::ordered_json::parse(run.out).dump(2) + "\n", run.out);
    write("lots.csv",
          "WKT,a\n\"POLYGON ((0 0, 1 1, 1 0, 0 1, 0 0))\",1\n\"POLYGON ((0 0, 1 1, 1 0, 0 1, 0 0))\",2\n");
    const test::Result none = divide("lots.csv", "--parallel 1 --area 1000 --json");
    EXPECT_EQ(nlohmann::ordered_json::parse(none.out).dump(2) + "\n", none.out);
    EXPECT_EQ(json::parse(none.out)["parcels"].size(), 2u);
}

TEST(Spool, TextsComeBackOneByOne)
{
    tool::Spool spool;
    EXPECT_TRUE(spool.empty());
    const std::vector<std::string> texts = {"", "a\nb", std::string(100000, 'x'), std::string("\0\x1f", 2)};
    for (const std::string& text : texts)
        spool.add(text);
    EXPECT_FALSE(spool.empty());
    for (int again = 0; again < 2; ++again) {
        std::vector<std::string> read;
        spool.read([&](const std::string& text) { read.push_back(text); });
        EXPECT_EQ(read, texts);
    }
}

// ------------------------------------------------------------------------------- tables with a vertex in each row

TEST_F(Many, ATableOfSeveralParcels)
{
    const char* const kRows[] = {
        "lot,E,N\nA,0,0\nA,9,0\nA,9,9\nB,20,0\nB,29,0\nB,29,9\n",
        "E,N,Lot No.\n0,0,A\n9,0,A\n9,9,A\n0,0,A\n20,0,B\n29,0,B\n29,9,B\n",  // the first is closed
        "particella;N;E\nA;0;0\nA;0;9\nA;9;9\nB;0;20\nB;0;29\nB;9;29\n",
        "point,Flurstück,E,N\n1,A,0,0\n2,A,9,0\n3,A,9,9\n1,B,20,0\n2,B,29,0\n3,B,29,9\n",
        "id,E,N\nA,0,0\nA,9,0\nA,9,9\nB,20,0\nB,29,0\nB,29,9\n",
        "lot,owner,Z,E,N\nA,x,1,0,0\nA,x,1,9,0\nA,x,2,9,9\nB,x,2,20,0\nB,x,2,29,0\nB,x,1,29,9\n",
    };
    const char* const kNames[] = {"lot", "Lot No.", "particella", "Flurstück", "id", "lot"};
    for (std::size_t i = 0; i < std::size(kRows); ++i) {
        SCOPED_TRACE(kRows[i]);
        write("lots.csv", kRows[i]);
        const test::Result run = divide("lots.csv", "--vertex 1 --share 1/2 --json");
        ASSERT_EQ(run.status, 0) << run.err;
        const json got = json::parse(run.out);
        ASSERT_EQ(got["parcels"].size(), 2u);
        const std::string name = std::string("lots.csv: ") + kNames[i];
        EXPECT_EQ(got["parcels"][0]["parcel"], name + " A");
        EXPECT_EQ(got["parcels"][1]["parcel"], name + " B");
        EXPECT_EQ(got["parcels"][0]["area"], 40.5);
        EXPECT_EQ(got["parcels"][1]["area"], 40.5);
        EXPECT_EQ(got["parcels"][1]["lines"][0]["from"]["e"], 20.0);
    }
}

TEST_F(Many, OneParcelOfATable)
{
    write("lots.csv", "lot,point,E,N\nA,1,0,0\nA,2,9,0\nA,3,9,9\nB,1,20,0\nB,2,29,0\nB,3,29,9\n");
    EXPECT_EQ(run({"measure", "lots.csv", "--feature", "2"}).out.rfind("Parcel  lots.csv: lot B\n", 0), 0u);
    EXPECT_EQ(run({"measure", "lots.csv", "--where", "lot = 'B'"}).out.rfind("Parcel  lots.csv: lot B\n", 0),
              0u);
    EXPECT_NE(run({"measure", "lots.csv"}).out.find("Measured 2 of 2 parcels\n"), std::string::npos);
    EXPECT_TRUE(
        test::fails_with(run({"stakeout", "lots.csv", "--station", "1", "--orientation", "2"}), 2,
                         "lots.csv: there are 2 parcels (lot A, lot B); choose one with --feature and "
                         "its number in the file, from 1"));
    EXPECT_TRUE(test::fails_with(run({"measure", "lots.csv", "--feature", "3"}), 2,
                                 "lots.csv: there is no feature 3; count the parcels of the table from 1"));
    EXPECT_TRUE(test::fails_with(run({"measure", "lots.csv", "--where", "lot = 'C'"}), 2,
                                 "lots.csv: --where 'lot = 'C'' matches no feature; count the parcels of the "
                                 "table from 1"));
    EXPECT_TRUE(test::fails_with(run({"measure", "lots.csv", "--where", "point < '3'"}), 2,
                                 "lots.csv: lot A: --where 'point < '3'' matches only some of its vertices; "
                                 "compare a column that is the same in all rows of a parcel"));
}

// Coordinates of UTM, and a long name.
TEST_F(Many, ListsFitATerminal)
{
    write("lots.csv", "lot,E,N\n"
                      "A,500000,5000000\nA,500100,5000000\nA,500100,5000100\n"
                      "1234/56-78,500200,5000000\n1234/56-78,500300,5000000\n1234/56-78,500300,5000100\n");
    const auto expect_narrow = [](const test::Result& run) {
        EXPECT_EQ(run.status, 0) << run.err;
        std::istringstream lines(run.out);
        for (std::string line; std::getline(lines, line);)
            EXPECT_LE(line.size(), 80u) << line;
    };
    const test::Result many = divide("lots.csv", "--vertex 1 --share 1/2");
    expect_narrow(many);
    EXPECT_NE(many.out.find("         lot A     1  from  500000.0000  5000000.0000  2500.0000\n"
                            "                        to  500100.0000  5000050.0000\n"),
              std::string::npos)
        << many.out;
    const test::Result points = run({"stakeout", "lots.csv", "--feature", "1", "--station", "499000,5000020",
                                     "--orientation", "1", "--vertex", "1", "--areas", "1000,1000"});
    expect_narrow(points);
    EXPECT_NE(points.out.find("      Point            E             N\n"), std::string::npos) << points.out;
    expect_narrow(run({"measure", "lots.csv", "--feature", "2"}));
}

// What is quoted from the file may hold whatever punctuation it likes.
TEST_F(Many, AReasonIsTheWholeReason)
{
    write("lots.csv", "id,WKT\n"
                      "1,\"POLYGON ((0 0, 100 0, 100 100, 0 100, 0 0))\"\n"
                      "2,\"SRID=32632;POLYGON ((0 0, 9 x))\"\n"
                      "3,circle: 5; 5\n"
                      "4,\"POLYGON ((0 0, 10 10, 10 0, 0 10, 0 0))\"\n");
    const test::Result run = divide("lots.csv", "--parallel 1 --area 1000");
    EXPECT_NE(run.out.find("  1: the WKT 'SRID=32632;POLYGON ((0 0, 9 x))' cannot be read (feature 2)\n"
                           "  1: the WKT 'circle: 5; 5' cannot be read (feature 3)\n"
                           "  1: the boundary crosses or touches itself (feature 4)\n"),
              std::string::npos)
        << run.out;
    EXPECT_EQ(run.status, 3);
}

TEST_F(Many, AllDividedIsDone)
{
    write_lots();
    const test::Result run = this->run({"divide", "lots.csv", "--where",
                                        "owner = 'Rossi' and id = '1' or owner in ('Bianchi', 'nobody')",
                                        "--parallel", "1", "--area", "1000"});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_NE(run.out.find("Divided  2 of 2 parcels\n"), std::string::npos) << run.out;
    EXPECT_EQ(run.out.find("Refused"), std::string::npos);
}

TEST_F(Many, CutsThatCannotBeMadeGiveTheirStatus)
{
    write_lots();
    const test::Result run =
        this->run({"divide", "lots.csv", "--where", "id in ('1', '6')", "--parallel", "1", "--area", "1000"});
    EXPECT_EQ(run.status, 4) << run.err;
}

TEST_F(Many, OneOfThemByFeatureOrFilter)
{
    write_lots();
    const test::Result by_fid = divide("lots.csv", "--feature 2 --parallel 1 --area 1000");
    EXPECT_EQ(by_fid.status, 0) << by_fid.err;
    EXPECT_EQ(by_fid.out.rfind("Parcel  lots.csv: feature 2\n", 0), 0u);
    const test::Result by_owner = this->run(
        {"divide", "lots.csv", "--where", "owner = 'Bianchi'", "--parallel", "1", "--area", "1000"});
    EXPECT_EQ(by_owner.out, by_fid.out);
    EXPECT_TRUE(
        test::fails_with(divide("lots.csv", "--feature 5 --parallel 1 --area 1000"), 3,
                         "lots.csv: feature 5: the WKT 'POLYGON ((0 0, 9 x))' cannot be read; correct it"));
}

TEST_F(Many, VerbsForOneParcelAskForAChoice)
{
    write_lots();
    EXPECT_TRUE(test::fails_with(run({"stakeout", "lots.csv", "--station", "1", "--orientation", "2"}), 2,
                                 "lots.csv: there are 5 parcels (feature 1, feature 2, feature 4, feature 5, "
                                 "feature 6); choose one with --feature FID"));
}

// Five of them are named, and dots stand for the others.
TEST_F(Many, LongListsAreCutShort)
{
    struct Row {
        int lots;
        const char* list;
    };
    const char* const five = "feature 1, feature 2, feature 3, feature 4, feature 5";
    const std::string six = std::string(five) + ", ...";
    for (const Row& row : {Row{5, five}, {6, six.c_str()}}) {
        std::string lots = "id,WKT\n";
        for (int i = 0; i < row.lots; ++i)
            lots += std::to_string(i) + ",\"POLYGON ((0 0, 10 0, 10 10, 0 10, 0 0))\"\n";
        write("lots.csv", lots);
        const std::string count = std::to_string(row.lots);
        EXPECT_TRUE(test::fails_with(run({"stakeout", "lots.csv", "--station", "1", "--orientation", "2"}), 2,
                                     "lots.csv: there are " + count + " parcels (" + row.list +
                                         "); choose one with --feature FID"));
        EXPECT_EQ(divide("lots.csv", "--parallel 1 --area 100").out,
                  "Divided  0 of " + count + " parcels\nRefused  " + count + " in lots.csv\n  " + count +
                      ": the amount is not below what there is to cut (" + row.list + ")\n");
    }
}

// Of two exit statuses the smaller is returned, whichever comes first.
TEST_F(Many, AFileInDisorderCountsMoreThanACut)
{
    const std::string broken = "1,\"POLYGON ((0 0, 10 10, 10 0, 0 10, 0 0))\"\n";
    const std::string small = "2,\"POLYGON ((0 0, 10 0, 10 10, 0 10, 0 0))\"\n";
    for (const std::string& lots : {broken + small, small + broken, small + broken + small}) {
        write("lots.csv", "id,WKT\n" + lots);
        EXPECT_EQ(divide("lots.csv", "--parallel 1 --area 1000").status, 3) << lots;
    }
}

// --------------------------------------------------------------------------------------- several cuts of one

const char* const kLot = "POLYGON ((0 0, 100 0, 100 60, 0 60, 0 0))";

TEST_F(Many, SeveralCutsReadLikeThis)
{
    write_wkt(kLot);
    const test::Result run = divide("lot.csv", "--parallel 1 --areas 1000,20x75,25%");
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.out, "Parcel  lot.csv: feature 1\n"
                       "        4 vertices, anticlockwise\n"
                       "Cut     parallel to side 1, from vertex 1 to vertex 2\n"
                       "Asked   1000, 20 x 75, 25%\n"
                       "\n"
                       "Dividing line 1                  E          N\n"
                       "  from                      0.0000    10.0000\n"
                       "  to                      100.0000    10.0000\n"
                       "Dividing line 2                  E          N\n"
                       "  from                      0.0000    25.0000\n"
                       "  to                      100.0000    25.0000\n"
                       "Dividing line 3                  E          N\n"
                       "  from                      0.0000    40.0000\n"
                       "  to                      100.0000    40.0000\n"
                       "\n"
                       "Area                     requested   measured\n"
                       "  piece 1, along side 1  1000.0000  1000.0000\n"
                       "  piece 2                1500.0000  1500.0000\n"
                       "  piece 3                1500.0000  1500.0000\n"
                       "  piece 4                2000.0000  2000.0000\n"
                       "  parcel                            6000.0000\n"
                       "Perimeter                            320.0000\n");
    EXPECT_EQ(run.status, 0);
}

TEST_F(Many, ManyEqualPartsAreCounted)
{
    write_wkt(kLot);
    EXPECT_NE(divide("lot.csv", "--parallel 1 --parts 5").out.find("Asked   1/5, 1/5, 1/5, 1/5\n"),
              std::string::npos);
    EXPECT_NE(divide("lot.csv", "--parallel 1 --parts 6").out.find("Asked   5 times 1/6\n"),
              std::string::npos);
    EXPECT_NE(divide("lot.csv", "--parallel 1 --areas 9,9,9,9,8").out.find("Asked   9, 9, 9, 9, 8\n"),
              std::string::npos);
}

TEST_F(Many, AmountsInEveryForm)
{
    write_wkt(kLot);
    struct Row {
        const char* arguments;
        double cut_off;
    };
    for (const Row& row : {Row{"--parallel 1 --share 1/3", 2000},
                           {"--parallel 1 --share 25%", 1500},
                           {"--parallel 1 --share 2.5/10", 1500},
                           {"--parallel 1 --product 20 30", 600},
                           {"--parallel 1 --parts 2", 3000},
                           {"--parallel 1 --areas 600", 600}}) {
        SCOPED_TRACE(row.arguments);
        const test::Result run = divide("lot.csv", row.arguments);
        ASSERT_EQ(run.status, 0) << run.err;
        EXPECT_NEAR(test::numbers_after(run.out, "cut off").at(0), row.cut_off, 6e-3);
        EXPECT_NEAR(test::numbers_after(run.out, "requested").at(0), row.cut_off, 1e-4);
        EXPECT_NEAR(test::numbers_after(run.out, "from").at(1), row.cut_off / 100.0, 1e-4);
    }
}

TEST_F(Many, TheOppositeSide)
{
    write_wkt(kLot);
    struct Row {
        const char* cut;
        const char* label;
        double e, n;  // of the line's far end
    };
    for (const Row& row : {Row{"--parallel 1", "cut off, beyond the line from side 1", 100, 50},
                           {"--perpendicular 1", "cut off, behind towards vertex 1", 1000.0 / 60, 60},
                           {"--vertex 1", "cut off, along side 4", 1000.0 / 30, 60},
                           {"--vertex 3", "cut off, along side 2", 100.0 - 1000.0 / 30, 0},
                           {"--vertex 4", "cut off, along side 3", 100, 40}}) {
        SCOPED_TRACE(row.cut);
        const test::Result run = divide("lot.csv", std::string(row.cut) + " --area 1000 --opposite");
        ASSERT_EQ(run.status, 0) << run.err;
        EXPECT_NEAR(test::numbers_after(run.out, row.label).at(0), 1000.0, 6e-3) << run.out;
        EXPECT_NEAR(test::numbers_after(run.out, "to").at(0), row.e, 1e-4);
        EXPECT_NEAR(test::numbers_after(run.out, "to").at(1), row.n, 1e-4);
    }
}

TEST_F(Many, AnAmountOfTheListThatIsTooMuch)
{
    write_wkt(kLot);
    EXPECT_TRUE(
        test::fails_with(divide("lot.csv", "--parallel 1 --areas 1000,5500"), 4,
                         "lot.csv: feature 1: the requested area 5500 (number 2 of the list), together with "
                         "those before it, is not less than the parcel's area 6000.0000; ask for less"));
}

// ------------------------------------------------------------------------------------------------------- JSON

TEST_F(Many, JsonHasTheNumbersOfTheTable)
{
    write_wkt("POLYGON ((0 0, 10 0, 10 10, 0 10, 0 0))");
    const test::Result run = divide("lot.csv", "--parallel 1 --area 12.34567 --json");
    ASSERT_EQ(run.status, 0) << run.err;
    const json got = json::parse(run.out);
    EXPECT_EQ(got["divided"], 1);
    EXPECT_EQ(got["refused"], 0);
    const json& lot = got["parcels"][0];
    EXPECT_EQ(lot["parcel"], "lot.csv: feature 1");
    EXPECT_EQ(lot["status"], "divided");
    EXPECT_EQ(lot["cut"], "parallel");
    EXPECT_EQ(lot["number"], 1);
    EXPECT_EQ(lot["measured"], "from_reference");
    EXPECT_EQ(lot["area"], 100.0);
    EXPECT_EQ(lot["perimeter"], 40.0);
    EXPECT_EQ(lot["pieces"][0]["given"], "12.34567");
    const test::Result table = divide("lot.csv", "--parallel 1 --area 12.34567");
    EXPECT_EQ(lot["lines"][0]["from"]["n"], test::numbers_after(table.out, "from").at(1));
    EXPECT_EQ(lot["lines"][0]["to"]["e"], test::numbers_after(table.out, "to").at(0));
    EXPECT_EQ(lot["pieces"][0]["area"], test::numbers_after(table.out, "cut off").at(0));
    EXPECT_EQ(lot["pieces"][0]["requested"], test::numbers_after(table.out, "requested").at(0));
    EXPECT_EQ(lot["pieces"][1]["area"], test::numbers_after(table.out, "rest").at(0));
    EXPECT_TRUE(lot["pieces"][1]["given"].is_null());
}

TEST_F(Many, JsonOfManyTellsTheRefusedToo)
{
    write_lots();
    const test::Result run = divide("lots.csv", "--parallel 1 --area 1000 --json");
    EXPECT_EQ(run.status, 3);
    EXPECT_EQ(run.err, "");
    const json got = json::parse(run.out);
    EXPECT_EQ(got["divided"], 2);
    EXPECT_EQ(got["refused"], 3);
    EXPECT_EQ(got["parcels"].size(), 5u);
    EXPECT_EQ(got["parcels"][2]["status"], "refused");
    EXPECT_EQ(got["parcels"][3]["reason"],
              "lots.csv: feature 5: the WKT 'POLYGON ((0 0, 9 x))' cannot be read; correct it");
}

TEST(ProgressBar, FillsFromTheLeft)
{
    EXPECT_EQ(tool::progress_bar("dividing", 0, 60), "dividing [                              ] 0 of 60");
    EXPECT_EQ(tool::progress_bar("dividing", 30, 60), "dividing [###############               ] 30 of 60");
    EXPECT_EQ(tool::progress_bar("dividing", 60, 60), "dividing [##############################] 60 of 60");
    EXPECT_EQ(tool::progress_bar("dividing", 61, 60), "dividing [##############################] 61 of 60");
    EXPECT_EQ(tool::progress_bar("dividing", 0, 0), "dividing [##############################] 0 of 0");
}

}  // namespace
