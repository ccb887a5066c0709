// An area, a share, a side for each parcel: from columns of the parcels, and from a table of areas.

#include <nlohmann/json.hpp>

#include "program.h"

namespace {

using nlohmann::json;

class ParcelRequests : public test::ProgramTest {
protected:
    // 1 and 2 are 100 wide, 3 and 4 are 10 wide; what is wanted of 3 is missing, and that of 4 cannot be read.
    std::string lots() const
    {
        return write("lots.csv",
                     "nr,wanted,part,side,WKT\n"
                     "12/1,2500,1/4,2,\"POLYGON ((0 0, 100 0, 100 100, 0 100, 0 0))\"\n"
                     "12/2,1000; w10,0.5,longest,\"POLYGON ((200 0, 300 0, 290 50, 200 50, 200 0))\"\n"
                     "12/3,,0.5,1,\"POLYGON ((0 0, 10 0, 10 10, 0 10, 0 0))\"\n"
                     "12/4,\"1,250\",7,front,\"POLYGON ((0 0, 10 0, 10 10, 0 10, 0 0))\"\n");
    }

    json divided(const std::string& file, const std::string& arguments) const
    {
        const test::Result run = divide(file, arguments + " --json");
        EXPECT_EQ(run.err, "");
        return json::parse(run.out, nullptr, false);
    }

    static std::string reason(const json& answer, std::size_t parcel)
    {
        return answer["parcels"][parcel].value("reason", "");
    }

    static double area(const json& answer, std::size_t parcel, std::size_t piece)
    {
        return answer["parcels"][parcel]["pieces"][piece]["area"];
    }
};

TEST_F(ParcelRequests, AreasFromAColumn)
{
    const test::Result run = divide(lots(), "--parallel 1 --area-from wanted --json");
    EXPECT_EQ(run.status, 3);
    const json got = json::parse(run.out);
    EXPECT_EQ(got["divided"], 2);
    EXPECT_NEAR(area(got, 0, 0), 2500.0, 0.01);
    EXPECT_NEAR(area(got, 1, 0), 1000.0, 0.01);
    EXPECT_EQ(got["parcels"][1]["pieces"][1]["given"], "width 10");
    EXPECT_NEAR(area(got, 1, 1), 969.7959, 0.01);
    EXPECT_EQ(reason(got, 2),
              "lots.csv: feature 3: the column 'wanted' is empty; fill it in, or leave the parcel "
              "out with --where");
    EXPECT_EQ(reason(got, 3),
              "lots.csv: feature 4: the column 'wanted' holds no area: '1,250' is not a number "
              "above 0, with a point before the decimals; correct it");
}

TEST_F(ParcelRequests, SharesAndSidesFromColumns)
{
    const json got = divided(lots(), "--perpendicular --side-from side --share-from part");
    EXPECT_EQ(got["parcels"][0]["number"], 2);
    EXPECT_EQ(got["parcels"][0]["lines"][0]["from"]["n"], 75.0);
    EXPECT_EQ(got["parcels"][1]["number"], 1) << "the longest";
    EXPECT_NEAR(area(got, 1, 0), 2375.0, 0.01);
    EXPECT_NEAR(area(got, 2, 0), 50.0, 0.01);
    EXPECT_EQ(reason(got, 3),
              "lots.csv: feature 4: the column 'side' holds no side: 'front' is neither its number nor "
              "longest nor shortest; correct it");
    EXPECT_EQ(
        reason(divided("lots.csv", "--perpendicular 1 --share-from part"), 3),
        "lots.csv: feature 4: the column 'part' holds no share: '7' is not a share; write it as 0.25, 1/4 or "
        "25%; correct it");
    const json vertex = divided("lots.csv", "--vertex-from side --area 40");
    EXPECT_EQ(vertex["parcels"][0]["number"], 2);
    EXPECT_EQ(reason(vertex, 1),
              "lots.csv: feature 2: the column 'side' holds no vertex: 'longest' is not its number; "
              "correct it");
    EXPECT_EQ(reason(vertex, 3),
              "lots.csv: feature 4: the column 'side' holds no vertex: 'front' is not its number; "
              "correct it");
}

// A column of numbers, one with nothing in it, and one with a list.
TEST_F(ParcelRequests, ColumnsOfNumbersAndLists)
{
    const char* const kLots = R"({"type": "FeatureCollection",
 "crs": {"type": "name", "properties": {"name": "urn:ogc:def:crs:EPSG::25832"}}, "features": [
 {"type": "Feature", "properties": {"area": 1000.5, "list": [1000, 250.25], "whole": [1000, 250],
  "large": [1000, 30000000000], "texts": ["1000", "1/4"], "side": 2.0}, "geometry":
  {"type": "Polygon", "coordinates": [[[500000, 5000000], [500100, 5000000], [500100, 5000100], [500000, 5000100], [500000, 5000000]]]}},
 {"type": "Feature", "properties": {"area": null, "list": null, "side": 1.5}, "geometry":
  {"type": "Polygon", "coordinates": [[[500000, 5000000], [500100, 5000000], [500100, 5000100], [500000, 5000100], [500000, 5000000]]]}}
]})";
    write("lots.geojson", kLots);
    const json areas = divided("lots.geojson", "--parallel --side-from side --area-from area");
    EXPECT_NEAR(area(areas, 0, 0), 1000.5, 0.01);
    EXPECT_EQ(areas["parcels"][0]["number"], 2);
    EXPECT_NE(reason(areas, 1).find("'1.5' is neither its number nor longest nor shortest"),
              std::string::npos);
    const json lists = divided("lots.geojson", "--parallel 1 --area-from list");
    EXPECT_NEAR(area(lists, 0, 0), 1000.0, 0.01);
    EXPECT_NEAR(area(lists, 0, 1), 250.25, 0.01);
    EXPECT_NE(reason(lists, 1).find("the column 'list' is empty"), std::string::npos);
    const json whole = divided("lots.geojson", "--parallel 1 --area-from whole");
    EXPECT_NEAR(area(whole, 0, 0), 1000.0, 0.01);
    EXPECT_NEAR(area(whole, 0, 1), 250.0, 0.01);
    const json texts = divided("lots.geojson", "--parallel 1 --area-from texts");
    EXPECT_NEAR(area(texts, 0, 0), 1000.0, 0.01);
    EXPECT_NEAR(area(texts, 0, 1), 2500.0, 0.01);
    EXPECT_NE(reason(divided("lots.geojson", "--parallel 1 --area-from large"), 0)
                  .find("the requested area 30000000000 (number 2 of the list)"),
              std::string::npos);
}

TEST_F(ParcelRequests, OneParcelAndASetOut)
{
    EXPECT_TRUE(
        test::fails_with(divide(lots(), "--feature 3 --parallel 1 --area-from wanted"), 3,
                         "lots.csv: feature 3: the column 'wanted' is empty; fill it in, or leave the parcel "
                         "out with --where"));
    EXPECT_EQ(
        test::numbers_after(divide("lots.csv", "--feature 1 --parallel 1 --area-from wanted").out, "from"),
        (std::vector<double>{0.0, 25.0}));
    const test::Result set_out =
        run({"stakeout", "lots.csv", "--feature", "1", "--station", "1", "--orientation", "4",
             "--perpendicular", "--side-from", "side", "--share-from", "part", "--csv"});
    EXPECT_NE(set_out.out.find("from,100.0000,75.0000,"), std::string::npos) << set_out.out << set_out.err;
}

TEST_F(ParcelRequests, ColumnsThatAreNotThereAndOptionsThatExcludeEachOther)
{
    const struct {
        const char* arguments;
        const char* text;
    } kRows[] = {
        {"--parallel 1 --area-from front",
         "lots.csv: there is no column 'front'; choose one of: nr, wanted, part, side, WKT"},
        {"--vertex-from front --area 5",
         "lots.csv: there is no column 'front'; choose one of: nr, wanted, part, side, WKT"},
        {"--parallel 1 --side-from side --area 5",
         "--parallel: name the side by its number, or by one of --side longest|shortest, --side-near E,N, "
         "--facing "
         "ANGLE, --along FILE and --side-from COLUMN; see plcalc divide --help"},
        {"--vertex 1 --side-from side --area 5",
         "--side-from is for --parallel and --perpendicular, without a number; see plcalc divide --help"},
        {"--parallel 1 --area-from wanted --area 5",
         "give one of --area A, --product A B, --share S, --width W, --areas LIST, --parts COUNT, "
         "--area-from COLUMN "
         "and --share-from COLUMN; see plcalc divide --help"},
        {"--parallel 1 --areas nowhere.csv", nullptr},
    };
    lots();
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.arguments);
        const test::Result run = divide("lots.csv", row.arguments);
        if (row.text != nullptr)
            EXPECT_TRUE(test::fails_with(run, 2, row.text));
        else
            EXPECT_EQ(run.err.rfind("plcalc: nowhere.csv: ", 0), 0u) << run.err;
    }
    write("plain.csv", "E,N\n0,0\n10,0\n10,10\n");
    EXPECT_TRUE(test::fails_with(divide("plain.csv", "--parallel 1 --area-from wanted"), 2,
                                 "plain.csv: there is no column 'wanted'; the parcels have none"));
}

// ---------------------------------------------------------------------------------------------- a table of areas

TEST_F(ParcelRequests, ATableOfAreas)
{
    lots();
    write("areas.csv", "nr,area,second\n12/2,1000,\n12/1,1/4,w10\n12/3,,\n12/9,50,\n12/8,\"20; 30\",\n");
    const test::Result table = divide("lots.csv", "--parallel 1 --areas areas.csv");
    EXPECT_EQ(table.status, 3);
    EXPECT_NE(table.out.find("Divided  2 of 4 parcels\n"), std::string::npos) << table.out;
    EXPECT_NE(table.out.find("Unused   2 rows of the areas, for no parcel (12/8, 12/9)\n"),
              std::string::npos);
    const json got = divided("lots.csv", "--parallel 1 --areas areas.csv");
    EXPECT_EQ(got["unused_rows"], (json{"12/8", "12/9"}));
    EXPECT_NEAR(area(got, 0, 0), 2500.0, 0.01);
    EXPECT_NEAR(area(got, 0, 1), 1000.0, 0.01);
    EXPECT_NEAR(area(got, 1, 0), 1000.0, 0.01);
    EXPECT_EQ(reason(got, 2),
              "lots.csv: feature 3: its row of areas.csv is empty: row 3; fill it in, or leave the "
              "parcel out with --where");
    EXPECT_EQ(reason(got, 3),
              "lots.csv: feature 4: it has no row in areas.csv: its name is '12/4'; add a row, or leave "
              "the parcel out with --where");
    const test::Result one = divide("lots.csv", "--feature 2 --parallel 1 --areas areas.csv");
    EXPECT_EQ(one.status, 0) << one.err;
    EXPECT_EQ(one.out.find("Unused"), std::string::npos) << "the others were left out on purpose";
    const test::Result chosen =
        run({"divide", "lots.csv", "--where", "nr = '12/2'", "--parallel", "1", "--areas", "areas.csv"});
    EXPECT_EQ(chosen.status, 0) << chosen.err;
    EXPECT_EQ(chosen.out.find("Unused"), std::string::npos) << chosen.out;
}

TEST_F(ParcelRequests, HowATableNamesParcels)
{
    lots();
    write("by-number.csv", "feature,area\n1,40\n2,50\n3,60\n4,70\n");
    EXPECT_NEAR(area(divided("lots.csv", "--parallel 1 --areas by-number.csv"), 2, 0), 60.0, 0.01);
    write("other.csv", "parcel,area\n12/1,40\n12/2,50\n12/3,60\n12/4,70\n");
    EXPECT_NEAR(area(divided("lots.csv", "--parallel 1 --areas other.csv --name-column nr"), 3, 0), 70.0,
                0.01);
    EXPECT_TRUE(test::fails_with(
        divide("lots.csv", "--parallel 1 --areas other.csv"), 2,
        "lots.csv: there is no column 'parcel' as in other.csv; say with --name-column which "
        "column holds the names of other.csv"));
    write("same.csv",
          "nr,WKT\nA,\"POLYGON ((0 0, 9 0, 9 9, 0 9, 0 0))\"\nA,\"POLYGON ((0 0, 9 0, 9 9, 0 9, 0 0))\"\n"
          "B,\"MULTIPOLYGON (((0 0, 9 0, 9 9, 0 9, 0 0)), ((20 0, 29 0, 29 9, 20 9, 20 0)))\"\n");
    write("ab.csv", "nr;area\nA;\"20,5\"\nB;30\n");
    const json got = divided("same.csv", "--parallel 1 --areas ab.csv");
    EXPECT_NEAR(area(got, 0, 0), 20.5, 0.01);
    EXPECT_EQ(got["parcels"][0]["assumed"], json{"in ab.csv commas stand before the decimals"});
    EXPECT_EQ(reason(got, 1),
              "same.csv: feature 2: another parcel before it has the same name in ab.csv: both are 'A'; "
              "tell them apart");
    EXPECT_NEAR(area(got, 2, 0), 30.0, 0.01);
    EXPECT_NEAR(area(got, 3, 0), 30.0, 0.01) << "the other part of the same feature";
}

TEST_F(ParcelRequests, AParcelWithoutANameHasNoRow)
{
    write("lots.csv",
          "nr,WKT\n12/1,\"POLYGON ((0 0, 9 0, 9 9, 0 9, 0 0))\"\n,\"POLYGON ((0 0, 9 0, 9 9, 0 9, 0 0))\"\n");
    write("areas.csv", "nr,area\n12/1,20\n");
    const json got = divided("lots.csv", "--parallel 1 --areas areas.csv");
    EXPECT_NEAR(area(got, 0, 0), 20.0, 0.01);
    EXPECT_EQ(
        reason(got, 1),
        "lots.csv: feature 2: the column 'nr' is empty; fill it in, or leave the parcel out with --where");
}

TEST_F(ParcelRequests, TablesThatCannotBeUsed)
{
    const struct {
        const char* table;
        const char* text;
    } kRows[] = {
        {"nr\n12/1\n",
         "areas.csv: GDAL cannot read this file as a table; a CSV file needs a header and at least two "
         "columns"},
        {"nr,area\n12/1,5\n12/1,6\n",
         "areas.csv: row 2: '12/1' stands in row 1 too; write all areas of a parcel into one row"},
        {"nr,area\n,5\n", "areas.csv: row 1: it names no parcel; write the name into the column 'nr'"},
        {"nr,area\n,\n12/1,5\n,7\n",
         "areas.csv: row 3: it names no parcel; write the name into the column 'nr'"},
        {"nr,area\n12/1,five\n",
         "lots.csv: feature 1: its row of areas.csv holds no area: row 1, 'five' is not a number "
         "above 0, with a point before the decimals; correct the row"},
        {"nr,area,remark\n12/1,5,asked in May\n", "lots.csv: feature 1: its row of areas.csv holds no area: "
                                                  "row 1, 'asked in May' is not a number above 0, with a "
                                                  "point before the decimals; correct the row"},
    };
    lots();
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.table);
        write("areas.csv", row.table);
        EXPECT_TRUE(
            test::fails_with(divide("lots.csv", "--feature 1 --parallel 1 --areas areas.csv"), 3, row.text));
    }
}

}  // namespace
