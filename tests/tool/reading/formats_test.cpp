// Every format the program is meant to read, written here by GDAL or by hand. Only the ring matters: all of
// them hold the same parcel, 100 by 50 with a corner at (500000, 5000000).

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iomanip>
#include <sstream>

#include <gdal_priv.h>
#include <ogrsf_frmts.h>
#include <sys/wait.h>

#include "program.h"
#include "reading/parcel_file.h"

namespace {

const char* const kLot =
    "POLYGON ((500000 5000000, 500100 5000000, 500100 5000050, 500000 5000050, 500000 5000000))";
const char* const kLotPoints = "500000,5000000\n500100,5000000\n500100,5000050\n500000,5000050\n";
const char* const kStrip = "--parallel 1 --area 1000";

class Formats : public test::ProgramTest {
protected:
    // Strip of 1000 along side 1, wherever the format makes the ring start.
    void expect_divided(const test::Result& run)
    {
        ASSERT_EQ(run.status, 0) << run.err;
        EXPECT_EQ(run.err, "");
        EXPECT_EQ(test::numbers_after(run.out, "parcel").at(0), 5000.0);
        EXPECT_EQ(test::numbers_after(run.out, "Perimeter").at(0), 300.0);
        EXPECT_NEAR(test::numbers_after(run.out, "cut off").at(0), 1000.0, 5e-3);
        const std::vector<double> from = test::numbers_after(run.out, "from");
        const std::vector<double> to = test::numbers_after(run.out, "to");
        const bool level = from.at(1) == to.at(1);
        const double length = level ? 100.0 : 50.0;
        const double depth = level ? from.at(1) - 5000000.0 : from.at(0) - 500000.0;
        const double width = level ? 50.0 : 100.0;
        EXPECT_NEAR(std::fmin(depth, width - depth), 1000.0 / length, 2e-4) << run.out;
    }

    // With the file as standard input, which the program knows by the name.
    test::Result divide_from(const std::string& file, const std::string& name)
    {
        const std::string command = std::string(PLCALC_PROGRAM) + " divide " + name + " " + kStrip + " <" +
                                    path(file) + " >" + path("out") + " 2>" + path("err");
        test::Result run;
        const int ended = std::system(command.c_str());
        run.status = WIFEXITED(ended) ? WEXITSTATUS(ended) : -1;
        std::ostringstream out, err;
        out << std::ifstream(path("out")).rdbuf();
        err << std::ifstream(path("err")).rdbuf();
        run.out = out.str();
        run.err = err.str();
        return run;
    }

    double run_measure(const std::string& options)
    {
        std::vector<std::string> words = {"measure", "lot.csv"};
        std::istringstream text(options);
        for (std::string word; text >> word;)
            words.push_back(word);
        return test::numbers_after(run(words).out, "Area").at(0);
    }

    // A dataset with the layers named, each with the geometries given.
    void make(const std::string& name, const char* driver, const std::vector<std::string>& layers,
              const std::vector<std::string>& wkts, int epsg)
    {
        GDALAllRegister();
        CPLSetErrorHandler(CPLQuietErrorHandler);
        GDALDriver* format = GetGDALDriverManager()->GetDriverByName(driver);
        ASSERT_NE(format, nullptr) << driver;
        GDALDatasetUniquePtr dataset(format->Create(path(name).c_str(), 0, 0, 0, GDT_Unknown, nullptr));
        ASSERT_NE(dataset, nullptr) << name;
        OGRSpatialReference crs;
        if (epsg != 0)
            crs.importFromEPSG(epsg);
        for (const std::string& layer_name : layers) {
            OGRLayer* layer = dataset->CreateLayer(layer_name.c_str(), epsg != 0 ? &crs : nullptr);
            ASSERT_NE(layer, nullptr);
            for (const std::string& wkt : wkts) {
                OGRGeometry* geometry = nullptr;
                ASSERT_EQ(OGRGeometryFactory::createFromWkt(wkt.c_str(), nullptr, &geometry), OGRERR_NONE);
                OGRFeature feature(layer->GetLayerDefn());
                feature.SetGeometryDirectly(geometry);
                ASSERT_EQ(layer->CreateFeature(&feature), OGRERR_NONE);
            }
        }
    }
};

TEST_F(Formats, WrittenByGdal)
{
    struct Row {
        const char* driver;
        const char* name;
    };
    for (const Row& row : {Row{"GPKG", "lot.gpkg"},
                           {"ESRI Shapefile", "lot.shp"},
                           {"GeoJSON", "lot.geojson"},
                           {"DXF", "lot.dxf"},
                           {"GML", "lot.gml"},
                           {"FlatGeobuf", "lot.fgb"},
                           {"MapInfo File", "lot.tab"},
                           {"JML", "lot.jml"},
                           {"SQLite", "lot.sqlite"}}) {
        SCOPED_TRACE(row.driver);
        make(row.name, row.driver, {std::string(row.driver) == "DXF" ? "entities" : "lot"}, {kLot}, 32632);
        expect_divided(divide(row.name, kStrip));
    }
}

TEST_F(Formats, NothingIsLeftBesideTheFile)
{
    make("lot.gml", "GML", {"lot"}, {kLot}, 32632);
    std::filesystem::remove(path("lot.xsd"));  // a reader that finds none would like to leave its notes
    expect_divided(divide("lot.gml", kStrip));
    for (const auto& entry : std::filesystem::directory_iterator(path("")))
        EXPECT_TRUE(entry.path().filename() == "lot.gml" || entry.path().filename().string()[0] == '.')
            << entry.path();
}

TEST_F(Formats, CsvWithGeometry)
{
    for (const char* column : {"WKT", "wkt", "geom", "geometry"}) {
        write("lot.csv", std::string("id,") + column + "\n1,\"" + kLot + "\"\n");
        expect_divided(divide("lot.csv", kStrip));
    }
}

TEST_F(Formats, CsvWithPoints)
{
    const std::string points = kLotPoints;
    for (const char* header : {"E,N", "e,n", "East,North", "EASTING,NORTHING", "Est,Nord", " E , N "}) {
        SCOPED_TRACE(header);
        write("lot.csv", std::string(header) + "\n" + points);
        expect_divided(divide("lot.csv", kStrip));
    }
    SCOPED_TRACE("closed, other separators, other columns, marks of other systems");
    write("lot.csv", "E,N\n" + points + "500000,5000000\n");
    expect_divided(divide("lot.csv", kStrip));
    write("lot.csv", "\xEF\xBB\xBFid;N;E\r\n1;5000000;500000\r\n2;5000000;500100\r\n3;5000050;500100\r\n"
                     "4;5000050;500000\r\n");
    expect_divided(divide("lot.csv", kStrip));
    write("lot.csv",
          "E\tN\tX\n500000\t5000000\t1\n500100\t5000000\t2\n500100\t5000050\t3\n500000\t5000050\t4\n");
    expect_divided(divide("lot.csv", kStrip));
}

// As spreadsheets and controllers of many countries write tables.
TEST_F(Formats, TablesOfManyCountries)
{
    const std::string german = "500000,00;5000000,00\n500100,00;5000000,00\n500100,00;5000050,00\n"
                               "500000,00;5000050,00\n";
    const std::string tabs = "500000\t5000000\n500100\t5000000\n500100\t5000050\n500000\t5000050\n";
    struct Row {
        const char* name;
        std::string table;
    };
    for (const Row& row : {Row{"lot.csv", "Rechtswert;Hochwert\n" + german},
                           {"lot.csv", "RW [m];HW [m]\n" + german},
                           {"lot.csv", "Ost;Nord\r\n" + german},
                           {"lot.csv", "sep=;\r\nEst (m);Nord (m)\r\n" + german},
                           {"lot.csv", "Este;Norte\n" + german},
                           {"lot.csv", "E;N\n500000,000;5000000,000\n500100,000;5000000,000\n"
                                       "500100,000;5000050,000\n500000,000;5000050,000\n"},
                           {"lot.csv", "E,N\n\"500000,0\",5000000\n500100,5000000\n500100,5000050\n"
                                       "500000,5000050\n"},
                           {"lot.txt", std::string("E,N\n") + kLotPoints},
                           {"lot.txt", "E\tN\n" + tabs},
                           {"lot.txt", "  E        N\n  500000 5000000\n500100   5000000\n500100 5000050\n"
                                       "500000 5000050\n"},
                           {"lot.tsv", "E\tN\n" + tabs}}) {
        SCOPED_TRACE(row.table);
        write(row.name, row.table);
        expect_divided(divide(row.name, kStrip));
    }
    write("lot.csv", "Rechtswert;Hochwert\n" + german);
    EXPECT_EQ(divide("lot.csv", kStrip).out.rfind("Parcel  lot.csv (commas stand before the decimals)\n", 0),
              0u);
}

// Half of them is one number here and another there; a point in one row, and commas are not for decimals.
TEST_F(Formats, CommasThatCouldPartThousands)
{
    for (const char* table :
         {"E,N\n\"1,250\",0\n0,0\n0,9\n", "E\tN\n1,250\t0\n0\t0\n0\t900\n", "E;N\n1,250;0\n0.5;0\n0;9\n"}) {
        write("lot.csv", table);
        EXPECT_TRUE(
            test::fails_with(divide("lot.csv", "--vertex 1 --share 1/2"), 3,
                             "lot.csv: row 1: E is '1,250', not a number; use a point before the decimals"))
            << table;
    }
}

// GDAL reads a height that is missing beside others as zero.
TEST_F(Formats, HeightsThatAreMissingAreNotZero)
{
    const struct {
        const char* what;
        const char* wkt;
        const char* json;     // coordinates
        const char* heights;  // of the vertices, as the table tells them
    } rows[] = {
        {"one lacks", "POLYGON Z ((0 0 1, 60 0, 60 80 3, 0 80 4, 0 0 1))",
         "[[[0,0,1],[60,0],[60,80,3],[0,80,4],[0,0,1]]]", "1.0000 - 3.0000 4.0000"},
        {"the first lacks", "POLYGON ((0 0, 60 0 2, 60 80 3, 0 80 4, 0 0))",
         "[[[0,0], [60,0, 2],[60,80,3],[0,80,4],[0,0]]]", "- 2.0000 3.0000 4.0000"},
        {"zero is a height", "POLYGON Z ((0 0 0, 60 0 0, 60 80 3, 0 80 4, 0 0 0))",
         "[[[0,0,0],[60,0,0.0],[60,80,3],[0,80,4],[0,0,0]]]", "0.0000 0.0000 3.0000 4.0000"},
        {"a hole lacks", "POLYGON ((0 0 1, 60 0 2, 60 80 3, 0 80 4, 0 0 1), (20 20, 20 30, 30 30, 20 20))",
         "[[[0,0,1],[60,0,2],[60,80,3],[0,80,4],[0,0,1]],[[20,20],[20,30],[30,30],[20,20]]]",
         "1.0000 2.0000 3.0000 4.0000 - - -"},
        {"in another notation", "POLYGON((0 0 -1e0,60 0 ,60 80 3,0 80 4,0 0 -1E0))",
         "[ [ [0, 0, -1e0], [6E1, 0],\n[60, 80, 3], [0, 80, 4], [0, 0, -1e+0] ] ]",
         "-1.0000 - 3.0000 4.0000"},
    };
    for (const auto& row : rows) {
        write("in.csv", "id,WKT\n1,\"" + std::string(row.wkt) + "\"\n");
        write(
            "in.geojson",
            R"({"type": "FeatureCollection", "crs": {"type": "name", "properties": {"name": "EPSG:25832"}}, "features": [
                 {"type": "Feature", "properties": {"note": "\"coordinates\": [[1,2],[1,2,3]]"},
                  "geometry": {"type": "Polygon", "coordinates": )" +
                std::string(row.json) + "}}]}");
        for (const char* file : {"in.csv", "in.geojson"}) {
            const test::Result run = this->run({"measure", file, "--any-scale"});
            ASSERT_EQ(run.status, 0) << run.err;
            std::istringstream lines(run.out.substr(run.out.find("\nVertex")));
            std::string heights;
            std::string line;
            std::getline(lines, line);
            std::getline(lines, line);
            while (std::getline(lines, line)) {
                std::istringstream cells(line);
                std::string cell;
                for (int i = 0; i < 4; ++i)
                    cells >> cell;
                heights += (heights.empty() ? "" : " ") + cell;
            }
            EXPECT_EQ(heights, row.heights) << row.what << " " << file << run.out;
        }
    }
    // A geometry alone: GDAL does not hand its text on.
    write("in.geojson", R"({"type": "Polygon", "coordinates": [[[0,0,1],[600,0],[600,800,3],[0,0,1]]]})");
    EXPECT_TRUE(test::fails_with(this->run({"measure", "in.geojson"}), 3,
                                 "in.geojson: feature 0: some positions have heights and others have none, "
                                 "and which they are cannot be "
                                 "told; give each of them a height, or none"));
    // Of two polygons of one feature only the first has heights.
    write("in.csv", "id,WKT\n1,\"MULTIPOLYGON Z (((0 0 1, 60 0 1, 60 80 1, 0 0 1)), ((100 0, 160 0, 160 80, "
                    "100 0)))\"\n");
    EXPECT_NE(this->run({"measure", "in.csv", "--part", "1"}).out.find(" Z "), std::string::npos);
    EXPECT_EQ(this->run({"measure", "in.csv", "--part", "2"}).out.find(" Z "), std::string::npos);
}

// Coordinates in whole metres say nothing of the sign before decimals; the heights beside them do.
TEST_F(Formats, HeightsThatAreMissingInGml)
{
    const auto with_ring = [](const std::string& ring) {
        return std::string("<c xmlns='http://www.opengis.net/gml'><featureMember><lot fid='lot.1'><shape>\n"
                           "<Polygon srsName='EPSG:32632'><outerBoundaryIs><LinearRing>") +
               ring + "</LinearRing></outerBoundaryIs></Polygon>\n</shape></lot></featureMember></c>\n";
    };
    const auto pos = [](const std::string& third) {
        std::string ring;
        for (const std::string& p :
             {std::string("500000 5000000 1"), std::string("500100 5000000 2"), "500100 5000050" + third,
              std::string("500000 5000050 4"), std::string("500000 5000000 1")})
            ring += "<pos>" + p + "</pos>";
        return ring;
    };
    const std::string coordinates = "<coordinates>500000,5000000,1 500100,5000000,2 500100,5000050,3 "
                                    "500000,5000050,4 500000,5000000,1</coordinates>";
    const std::string list = "500000 5000000 1 500100 5000000 2 500100 5000050 3 500000 5000050 4 "
                             "500000 5000000 1</posList>";
    std::string one_missing = coordinates;
    one_missing.replace(one_missing.find(",3 "), 2, "");
    std::string no_number = list;
    no_number.replace(no_number.find(" 3 "), 2, " nan");
    const struct {
        const char* what;
        std::string ring;
        bool refused;
    } rows[] = {
        {"all have heights", pos(" 3"), false},
        {"a position without", pos(""), true},
        {"all have heights, old style", coordinates, false},
        {"a position without, old style", one_missing, true},
        {"a list with heights", "<posList srsDimension='3'>" + list, false},
        {"one is no number", "<posList srsDimension='3'>" + no_number, true},
        {"a list in the plane",
         "<posList>500000 5000000 500100 5000000 500100 5000050 500000 5000050 500000 5000000</posList>",
         false},
    };
    for (const auto& row : rows) {
        write("lot.gml", with_ring(row.ring));
        const test::Result run = divide("lot.gml", kStrip);
        if (row.refused)
            EXPECT_TRUE(
                test::fails_with(run, 3,
                                 "lot.gml: some positions have heights and others have none in the geometry "
                                 "that begins on line 2; give each of them a height, or none"))
                << row.what;
        else
            EXPECT_EQ(run.status, 0) << row.what << run.err;
    }
}

TEST_F(Formats, CommasInHeightsAlone)
{
    const struct {
        const char* table;
        const char* heights;
    } rows[] = {
        {"E;N;Z\n0;0;5,5\n30;0;6\n30;40;7,25\n", "5.50000 6.00000 7.25000"},
        {"E;N;Z\n0;0;5,5\n30;0;n.a.\n30;40;7,25\n", "5.50000 - 7.25000"},
        {"E;N;Z\n0;0;5.5\n30;0;6\n30;40;7.25\n", "5.50000 6.00000 7.25000"},
        {"E;N;Z\n0;0;5.5\n30;0;6\n30;40;7,25\n", "5.50000 6.00000 -"},
    };
    for (const auto& row : rows) {
        write("lot.csv", row.table);
        const std::string out = this->run({"measure", "lot.csv"}).out;
        std::istringstream lines(out.substr(out.find("Vertex")));
        std::string heights;
        std::string line;
        for (std::getline(lines, line); std::getline(lines, line);) {
            std::istringstream cells(line);
            std::vector<std::string> words;
            for (std::string word; cells >> word;)
                words.push_back(word);
            ASSERT_GE(words.size(), 4U) << out;
            heights += (heights.empty() ? "" : " ") + words[3];
        }
        EXPECT_EQ(heights, row.heights) << row.table << out;
    }
}

TEST_F(Formats, TablesWithoutAHeader)
{
    const std::string pnezd = "1,5000000.0,500000.0,10.5,peg\n2,5000000.0,500100.0,10.5,peg\n"
                              "3,5000050.0,500100.0,11.5,nail\n4,5000050.0,500000.0,11.5,nail\n";
    write("lot.txt", pnezd);
    write("head.csv", "a,b,c,d,e\n" + pnezd);
    for (const char* name : {"lot.txt", "head.csv"}) {
        const test::Result run = divide(name, std::string("--columns P,N,E,Z,D ") + kStrip);
        EXPECT_EQ(test::numbers_after(run.out, "parcel").at(0), 5000.0) << run.err;
        EXPECT_NE(run.out.find(" 500000.0000  5000010.0000       10.7000\n"), std::string::npos) << run.out;
    }
    EXPECT_TRUE(test::fails_with(
        divide("lot.txt", kStrip), 3,
        "lot.txt: the file holds no polygon and no closed line (features: 4); a table needs a "
        "header with a column WKT, or with E and N for a vertex in each row; without a "
        "header, name the columns, as in --columns P,N,E,Z,D"));
    make("lot.gpkg", "GPKG", {"lot"}, {kLot}, 0);
    EXPECT_TRUE(test::fails_with(divide("lot.gpkg", std::string("--columns E,N ") + kStrip), 2,
                                 "lot.gpkg: --columns is for tables; leave --columns out"));
}

TEST_F(Formats, TextInUtf16)
{
    const std::string table = std::string("Flurst\u00fcck,E,N\n") +
                              "\u0141,500000,5000000\n\u0141,500100,5000000\n"
                              "\u0141,500100,5000050\n\u0141,500000,5000050\n";
    const std::string little = "\\377\\376";
    const std::string big = "\\376\\377";
    // With a mark in front, and without one.
    for (const auto& [encoding, mark] : {std::pair{"UTF-16LE", little},
                                         {"UTF-16BE", big},
                                         {"UTF-16LE", std::string()},
                                         {"UTF-16BE", std::string()}})
        for (const char* name : {"lot.csv", "lot.txt"}) {
            write("utf8", table);
            const std::string command = "(printf '" + mark + "'; iconv -f UTF-8 -t " + encoding + " " +
                                        path("utf8") + ") >" + path(name);
            ASSERT_EQ(std::system(command.c_str()), 0);
            const test::Result run = divide(name, kStrip);
            expect_divided(run);
            const std::string first = std::string("Parcel  ") + name + ": Flurst\u00fcck \u0141\n";
            EXPECT_EQ(run.out.rfind(first, 0), 0u) << encoding << mark << run.out << run.err;
            expect_divided(divide_from(name, "-"));
        }
    write("lot.csv", std::string("\xFF\xFE") + std::string("E\0,", 3));
    EXPECT_TRUE(test::fails_with(divide("lot.csv", kStrip), 3,
                                 "lot.csv: the text begins as UTF-16, but is not; save it as CSV in UTF-8"));
}

TEST_F(Formats, StandardInput)
{
    write("lot.csv", std::string("E,N\n") + kLotPoints);
    write("wkt.csv", std::string("id,WKT\n1,\"") + kLot + "\"\n");
    write("lot.geojson", R"({"type": "Polygon", "coordinates": [[[500000, 5000000], [500100, 5000000],
                             [500100, 5000050], [500000, 5000050], [500000, 5000000]]]})");
    write("lot.dxf",
          "0\nSECTION\n2\nENTITIES\n0\nLWPOLYLINE\n8\n0\n90\n4\n70\n1\n10\n500000\n20\n5000000\n10\n500100\n"
          "20\n5000000\n10\n500100\n20\n5000050\n10\n500000\n20\n5000050\n0\nENDSEC\n0\nEOF\n");
    make("lot.gpkg", "GPKG", {"lot"}, {kLot}, 32632);
    make("lot.gml", "GML", {"lot"}, {kLot}, 32632);
    make("lot.fgb", "FlatGeobuf", {"lot"}, {kLot}, 32632);
    std::string semicolons = kLotPoints;
    std::replace(semicolons.begin(), semicolons.end(), ',', ';');
    write("sep.csv", "sep=;\r\nE;N\r\n" + semicolons);
    std::string blanks = kLotPoints;
    std::replace(blanks.begin(), blanks.end(), ',', ' ');
    write("blanks.txt", "E  N\n" + blanks);
    std::string wide = "\xFF\xFE";
    for (const char letter : std::string("E,N\n") + kLotPoints)
        wide += std::string(1, letter) + '\0';
    write("wide.txt", wide);
    for (const char* file : {"lot.csv", "wkt.csv", "lot.geojson", "lot.dxf", "lot.gpkg", "lot.gml", "lot.fgb",
                             "sep.csv", "blanks.txt", "wide.txt"}) {
        for (const char* name : {"-", "/vsistdin/", "/dev/stdin"}) {
            SCOPED_TRACE(std::string(file) + " as " + name);
            expect_divided(divide_from(file, name));
        }
    }
}

TEST_F(Formats, StandardInputThatCannotBeUsed)
{
    const std::string cannot =
        "-: GDAL cannot read the standard input; a table needs a header; any other format "
        "must be text, or GeoPackage or FlatGeobuf";
    const struct {
        const char* what;
        std::string content;
        std::string text;
    } rows[] = {
        {"nothing", "", "-: the standard input is empty; let the command before it write the parcels"},
        {"lines without text", "\n\n", cannot},
        {"one word", "garbage\n", cannot},
        {"the beginning of a database", "SQLite format 3", cannot},
    };
    for (const auto& row : rows) {
        write("in", row.content);
        EXPECT_TRUE(test::fails_with(divide_from("in", "-"), 3, row.text)) << row.what;
    }
}

TEST_F(Formats, WktWithItsCrs)
{
    const auto table = [](const std::string& srid, const std::string& other) {
        return "id,WKT\n1,\"SRID=" + srid + ";" + kLot + "\"\n2,\"SRID=" + other + ";" + kLot + "\"\n";
    };
    write("lot.csv", table("32632", "32632"));
    expect_divided(divide("lot.csv", std::string("--feature 1 ") + kStrip));
    EXPECT_EQ(divide("lot.csv", std::string("-o out.kml ") + kStrip).status, 0) << "the CRS is known";
    write("lot.csv", table("32632", "32633"));
    EXPECT_TRUE(
        test::fails_with(divide("lot.csv", kStrip), 3,
                         "lot.csv: feature 2: it has SRID 32633, and one before it 32632; project all to the "
                         "same CRS"));
    write("lot.csv", table("4326", "4326"));
    EXPECT_EQ(divide("lot.csv", std::string("--feature 1 ") + kStrip).status, 3) << "degrees";
}

TEST_F(Formats, PolygonsOfSeveralParts)
{
    write_wkt("MULTIPOLYGON (((0 0, 9 0, 9 9, 0 0)), ((20 0, 30 0, 30 9, 20 0)), EMPTY)");
    const test::Result run = divide("lot.csv", "--vertex 1 --share 1/2 -o out.gpkg");
    EXPECT_EQ(run.status, 3) << run.err;
    EXPECT_NE(run.out.find("Divided  2 of 3 parcels\n"), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("(feature 1 part 3)"), std::string::npos) << run.out;
    GDALAllRegister();
    const GDALDatasetUniquePtr out(GDALDataset::Open(path("out.gpkg").c_str(), GDAL_OF_VECTOR));
    ASSERT_NE(out, nullptr);
    std::vector<int> parcels;
    for (const OGRFeatureUniquePtr& piece : *out->GetLayerByName("pieces"))
        parcels.push_back(piece->GetFieldAsInteger("parcel"));
    EXPECT_EQ(parcels, (std::vector<int>{1, 1, 1, 1, 1})) << "one id for all parts";
    EXPECT_EQ(run_measure("--part 2"), 45.0);
    EXPECT_EQ(run_measure("--feature 1 --part 1"), 40.5);
    write("two.csv", "id,WKT\n1,\"MULTIPOLYGON (((0 0, 9 0, 9 9, 0 0)), ((20 0, 30 0, 30 9, 20 0)))\"\n"
                     "2,\"POLYGON ((0 0, 8 0, 8 8, 0 8, 0 0))\"\n"
                     "3,\"MULTIPOLYGON (((0 0, 9 0, 9 9, 0 0)), ((20 0, 30 0, 30 6, 20 0)))\"\n");
    const test::Result second = this->run({"measure", "two.csv", "--part", "2", "--csv"});
    EXPECT_EQ(second.out, "parcel,name,area,perimeter,vertices,holes,direction,status\n"
                          "feature 1 part 2,,45.000000,32.45362,3,0,anticlockwise,measured\n"
                          "feature 3 part 2,,30.000000,27.66190,3,0,anticlockwise,measured\n")
        << second.err;
    EXPECT_TRUE(test::fails_with(this->run({"measure", "lot.csv", "--part", "4"}), 2,
                                 "lot.csv: there is no part 4; list them with ogrinfo -al"));
}

// Where X is North, a parcel that is read with X as East is mirrored.
TEST_F(Formats, WhichOfXAndYIsEast)
{
    struct Row {
        const char* what;
        const char* options;
        bool x_is_east;
        const char* why;
    };
    const std::string east = std::string("X,Y\n") + kLotPoints;
    const std::string north = "X,Y\n5000000,500000\n5000000,500100\n5000050,500100\n5000050,500000\n";
    for (const Row& row : {Row{"told", "--axes en", true, "X is East and Y North, as --axes says"},
                           {"told", "--axes ne", false, "X is North and Y East, as --axes says"},
                           {"a CRS with E and N: X is its first", "--crs EPSG:32632", true,
                            "X is East and Y North, as in WGS 84 / UTM zone 32N"},
                           {"the same with N first", "--crs EPSG:3044", false,
                            "X is North and Y East, as in ETRS89 / UTM zone 32N (N-E)"},
                           {"both: the command line wins", "--axes en --crs EPSG:3044", true,
                            "X is East and Y North, as --axes says"}}) {
        SCOPED_TRACE(row.options);
        write("lot.csv", row.x_is_east ? east : north);
        const test::Result run = divide("lot.csv", std::string(row.options) + " " + kStrip);
        expect_divided(run);
        EXPECT_EQ(run.out.substr(0, run.out.find('\n')), std::string("Parcel  lot.csv (") + row.why + ")");
    }
    EXPECT_TRUE(
        test::fails_with(divide("lot.csv", kStrip), 2,
                         "lot.csv: columns X and Y do not say which of them is East; add --axes en if X is "
                         "East, --axes ne if X is North, or name the CRS with --crs"));
    EXPECT_TRUE(
        test::fails_with(divide("lot.csv", std::string("--axes xy ") + kStrip), 2,
                         "--axes: 'xy' is neither en (X is East) nor ne (X is North); see plcalc divide "
                         "--help"));
    write("lot.csv", std::string("E,N\n") + kLotPoints);
    EXPECT_TRUE(test::fails_with(divide("lot.csv", std::string("--axes en ") + kStrip), 2,
                                 "lot.csv: --axes is for tables with columns X and Y; leave --axes out"));
}

// German, Polish and old Swiss grids call North X; French and new Swiss ones do not.
TEST_F(Formats, XAndYAsTheCrsNamesThem)
{
    struct Row {
        const char* crs;
        bool x_is_east;
        double east;
        double north;
    };
    for (const Row& row : {Row{"EPSG:31467", false, 3500000, 5400000},
                           {"EPSG:2180", false, 500000, 500000},
                           {"EPSG:21781", false, 600000, 200000},
                           {"EPSG:2056", true, 2600000, 1200000},
                           {"EPSG:2154", true, 700000, 6900000},
                           {"EPSG:25832", true, 500000, 5400000},
                           {"EPSG:31467+5783", false, 3500000, 5400000},  // and heights
                           {"EPSG:25832+7837", true, 500000, 5400000}}) {
        SCOPED_TRACE(row.crs);
        std::string table = "X,Y\n";
        for (const auto& [e, n] : {std::pair{0, 0}, {100, 0}, {100, 50}, {0, 50}}) {
            const std::string east = std::to_string(row.east + e);
            const std::string north = std::to_string(row.north + n);
            table += row.x_is_east ? east + "," + north + "\n" : north + "," + east + "\n";
        }
        write("lot.csv", table);
        const test::Result run = this->run({"measure", "lot.csv", "--crs", row.crs});
        ASSERT_EQ(run.status, 0) << run.err;
        EXPECT_NE(run.out.find("4 vertices, anticlockwise\n"), std::string::npos) << run.out;
        EXPECT_NE(
            run.out.find(row.x_is_east ? "(X is East and Y North, as in" : "(X is North and Y East, as in"),
            std::string::npos)
            << run.out;
    }
    // South African grids count to the West and to the South.
    EXPECT_EQ(run({"measure", "lot.csv", "--crs", "EPSG:2053"}).status, 2)
        << "which of them is East is not told";
    EXPECT_TRUE(test::fails_with(run({"measure", "lot.csv", "--crs", "EPSG:9"}), 2,
                                 "'EPSG:9' is not a CRS that PROJ knows; name it as EPSG:25832"));
}

TEST_F(Formats, ACrsOfTheCommandLine)
{
    make("plain.gpkg", "GPKG", {"lot"}, {kLot}, 0);
    make("utm.gpkg", "GPKG", {"lot"}, {kLot}, 32632);
    expect_divided(divide("plain.gpkg", std::string("--crs EPSG:32632 ") + kStrip));
    expect_divided(divide("utm.gpkg", std::string("--crs EPSG:32632 ") + kStrip));
    EXPECT_TRUE(
        test::fails_with(divide("utm.gpkg", std::string("--crs EPSG:32633 ") + kStrip), 2,
                         "utm.gpkg: the file has a CRS of its own (WGS 84 / UTM zone 32N), and --crs names "
                         "another; leave --crs out, or project the file with ogr2ogr -t_srs EPSG:32633"));
    // It goes with the pieces, and lets degrees be computed.
    ASSERT_EQ(divide("plain.gpkg", std::string("--crs EPSG:32632 -o out.kml ") + kStrip).status, 0);
    OGRSpatialReference utm;
    utm.importFromEPSG(32632);
    const char* const esri[] = {"FORMAT=WKT1_ESRI", nullptr};
    char* wkt = nullptr;
    ASSERT_EQ(utm.exportToWkt(&wkt, esri), OGRERR_NONE);
    write("lot.prj", wkt);
    CPLFree(wkt);
    write("lot.csv", std::string("X,Y\n") + kLotPoints);
    expect_divided(divide("lot.csv", kStrip));
}

// A map's projection stretches what it shows.
TEST_F(Formats, LengthsAreTrueToScale)
{
    struct Row {
        const char* what;
        int epsg;
        double east;
        double north;
        const char* factor;  // null where it is within a thousandth
        const char* zone;
    };
    // Factors by hand: 1 / cos(latitude) on a sphere, 0.9996 (1 + d^2 / 2 R^2) in UTM.
    for (const Row& row :
         {Row{"Web Mercator at 45 degrees North", 3857, 1000000, 5621521, "1.41", "32632"},
          {"and in Buenos Aires", 3857, -6500000, -4100000, "1.2", "32721"},
          {"in Bergen, whose zone is wider", 3857, 590000, 8490000, "2.0", "32632"},
          {"on Svalbard, whose zones are wider: at 8 degrees", 3857, 890000, 14100000, "4.", "32631"},
          {"at 10 degrees", 3857, 1113195, 14100000, "4.", "32633"},
          {"at 20 degrees", 3857, 2226390, 14100000, "4.", "32633"},
          {"at 22 degrees", 3857, 2449029, 14100000, "4.", "32635"},
          {"at 32 degrees", 3857, 3562224, 14100000, "4.", "32635"},
          {"at 34 degrees", 3857, 3784863, 14100000, "4.", "32637"},
          {"at 43 degrees, East of them", 3857, 4786738, 14100000, "4.", "32638"},
          {"UTM on its central meridian", 32632, 500000, 5000000, nullptr, ""},
          {"a bit less than three degrees from it", 32632, 820000, 100000, nullptr, ""},
          {"and much farther", 32632, 1100000, 5000000, "1.004", "32633"}}) {
        SCOPED_TRACE(row.what);
        const auto corner = [&](int e, int n) {
            return std::to_string(row.east + e) + " " + std::to_string(row.north + n);
        };
        make("lot.gpkg", "GPKG", {"lot"},
             {"POLYGON ((" + corner(0, 0) + ", " + corner(100, 0) + ", " + corner(100, 50) + ", " +
              corner(0, 50) + ", " + corner(0, 0) + "))"},
             row.epsg);
        const test::Result run = divide("lot.gpkg", kStrip);
        const test::Result accepted = divide("lot.gpkg", std::string("--any-scale ") + kStrip);
        std::filesystem::remove(path("lot.gpkg"));
        ASSERT_EQ(accepted.status, 0) << accepted.err;
        if (row.factor == nullptr) {
            EXPECT_EQ(run.status, 0) << run.err;
            continue;
        }
        EXPECT_EQ(run.status, 3);
        EXPECT_NE(run.err.find(std::string(" are ") + row.factor), std::string::npos) << run.err;
        EXPECT_NE(
            run.err.find(std::string(" times those on the ground here; project them first, for example with "
                                     "ogr2ogr -t_srs EPSG:") +
                         row.zone + ", or accept it with --any-scale\n"),
            std::string::npos)
            << run.err;
        EXPECT_NE(accepted.out.substr(0, accepted.out.find('\n')).find(row.factor), std::string::npos);
    }
}

// A zone has its western limit, not its eastern one. Around Norway the zones are cut otherwise.
TEST_F(Formats, NameTheZoneOfUtmInWhichThePlaceLies)
{
    constexpr double kHair = 0x1p-9;
    const struct {
        double longitude;
        double latitude;
        const char* at;
        const char* before;  // a hair to the West, or to the South if the latitude is the limit
        bool by_latitude = false;
    } rows[] = {
        {-180, 10, "32601", nullptr},      {-174, 10, "32602", "32601"},
        {174, 10, "32660", "32659"},       {6, 10, "32632", "32631"},
        {6, -10, "32732", "32731"},        {10, 0, "32632", "32732", true},
        {3, 60, "32632", "32631"},         {6, 60, "32632", "32632"},
        {12, 60, "32633", "32632"},        {5.5, 56, "32632", "32631", true},
        {5.5, 64, "32631", "32632", true}, {0, 75, "32631", "32630"},
        {6, 75, "32631", "32631"},         {9, 75, "32633", "32631"},
        {21, 75, "32635", "32633"},        {33, 75, "32637", "32635"},
        {42, 75, "32638", "32637"},        {10, 72, "32633", "32632", true},
    };
    const auto zone_at = [&](double longitude, double latitude) {
        const auto corner = [&](double e, double n) {
            std::ostringstream text;
            text << std::setprecision(17) << longitude + e * kHair / 2 << " " << latitude + n * kHair / 2;
            return text.str();
        };
        write("lot.csv", "name,WKT\nlot,\"POLYGON ((" + corner(-1, -1) + ", " + corner(1, -1) + ", " +
                             corner(1, 1) + ", " + corner(-1, 1) + "))\"\n");
        const std::string said = run({"measure", "lot.csv", "--crs", "EPSG:4326"}).err;
        const std::size_t begin = said.find("EPSG:");
        return begin == std::string::npos ? said : said.substr(begin + 5, 5);
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::to_string(row.longitude) + ", " + std::to_string(row.latitude));
        EXPECT_EQ(zone_at(row.longitude, row.latitude), row.at);
        if (row.before == nullptr)
            continue;
        const double west = row.by_latitude ? 0.0 : kHair;
        const double south = row.by_latitude ? kHair : 0.0;
        EXPECT_EQ(zone_at(row.longitude - west, row.latitude - south), row.before);
    }
}

// Of a file in feet the first line says so; metres need no word. Zone 2263 lies around New York, in feet of the US survey.
TEST_F(Formats, SayTheUnitThatIsNoMetre)
{
    const std::string lot =
        "POLYGON ((1000000 200000, 1000100 200000, 1000100 200050, 1000000 200050, 1000000 200000))";
    const std::string feet = " (lengths in US ft, areas in US ft\u00b2: the unit of its CRS)\n";
    make("feet.gpkg", "GPKG", {"lots"}, {lot}, 2263);
    EXPECT_EQ(divide("feet.gpkg", kStrip).out.rfind("Parcel  feet.gpkg: feature 1" + feet, 0), 0u);
    const test::Result measured = run({"measure", "feet.gpkg"});
    EXPECT_EQ(measured.out.rfind("Parcel  feet.gpkg: feature 1" + feet, 0), 0u);
    EXPECT_EQ(test::numbers_after(measured.out, "Area").at(0), 5000.0);
    make("two.gpkg", "GPKG", {"lots"}, {lot, lot}, 2263);
    EXPECT_EQ(run({"measure", "two.gpkg"})
                  .out.rfind("Assumed  lengths in US ft, areas in US ft\u00b2: the unit of its CRS\n", 0),
              0u);
    make("metres.gpkg", "GPKG", {"lots"}, {kLot}, 32632);
    EXPECT_EQ(divide("metres.gpkg", kStrip).out.rfind("Parcel  metres.gpkg: feature 1\n", 0), 0u);
}

TEST_F(Formats, AreasOnTheGround)
{
    make("lot.gpkg", "GPKG", {"lot"}, {kLot}, 32632);
    const auto ground = [&](const std::string& amount) {
        return divide("lot.gpkg", "--ground-factor 0.9996 --parallel 1 " + amount);
    };
    // 5000 in the plane is 5000 / 0.9996^2 on the ground; 1000 on the ground is a strip of 1000 * 0.9996^2 / 100.
    const test::Result run = ground("--area 1000");
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out.rfind(
                  "Parcel  lot.gpkg: feature 1 (areas and lengths on the ground: ground factor 0.9996)\n", 0),
              0u);
    EXPECT_NEAR(test::numbers_after(run.out, "parcel").at(0), 5000.0 / (0.9996 * 0.9996), 1e-4);
    EXPECT_NEAR(test::numbers_after(run.out, "Perimeter").at(0), 300.0 / 0.9996, 1e-4);
    EXPECT_EQ(test::numbers_after(run.out, "requested").at(0), 1000.0);
    EXPECT_NEAR(test::numbers_after(run.out, "cut off").at(0), 1000.0, 5e-3);
    EXPECT_NEAR(test::numbers_after(run.out, "from").at(1), 5000000.0 + 10.0 * 0.9996 * 0.9996, 1e-4);
    const test::Result product = ground("--product 20 50");
    EXPECT_EQ(test::numbers_after(product.out, "from"), test::numbers_after(run.out, "from"));
    const test::Result width = ground("--width 20");
    EXPECT_NEAR(test::numbers_after(width.out, "from").at(1), 5000000.0 + 20.0 * 0.9996, 1e-4);
    EXPECT_NEAR(test::numbers_after(width.out, "requested").at(0), 20.0 * 100.0 / 0.9996, 1e-4);
    const test::Result share = ground("--share 1/2");
    EXPECT_EQ(test::numbers_after(share.out, "from").at(1), 5000025.0) << "a share is the same in the plane";
    EXPECT_TRUE(
        test::fails_with(ground("--area 5004.01"), 4,
                         "lot.gpkg: feature 1: the requested area 5004.01 is not less than the parcel's area "
                         "5004.0024; ask for less"));
    EXPECT_TRUE(test::fails_with(divide("lot.gpkg", std::string("--ground-factor 2 ") + kStrip), 2,
                                 "--ground-factor: '2' is not the factor by which lengths on the ground "
                                 "become lengths in the plane, such as "
                                 "0.99962; see plcalc divide --help"));
    const test::Result measured = this->run({"measure", "lot.gpkg", "--ground-factor", "0.9996"});
    EXPECT_NEAR(test::numbers_after(measured.out, "Area").at(0), 5000.0 / (0.9996 * 0.9996), 1e-4);
    const test::Result set_out = this->run({"stakeout", "lot.gpkg", "--ground-factor", "0.9996", "--station",
                                            "1", "--orientation", "2", "--point", "3", "--csv"});
    EXPECT_NE(set_out.out.find("vertex 3,500100.0000,5000050.0000,"), std::string::npos) << "in the plane";
    EXPECT_NE(set_out.out.find(",111.8481,100.0400,-50.0200\n"), std::string::npos) << set_out.out;
    // Plan and report have the same lengths, and say so.
    ASSERT_EQ(ground("--area 1000 --plan plan.svg --report report.txt").status, 0);
    for (const char* name : {"plan.svg", "report.txt"}) {
        std::ifstream file(path(name));
        const std::string text((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
        EXPECT_NE(text.find("100.04"), std::string::npos) << name;
        EXPECT_NE(text.find("0.9996"), std::string::npos) << name;
    }
}

TEST_F(Formats, OtherGeometriesThatBoundOneArea)
{
    const std::string ring =
        "(500000 5000000, 500100 5000000, 500100 5000050, 500000 5000050, 500000 5000000)";
    const std::string raised = "(500000 5000000 1, 500100 5000000 2, 500100 5000050 3, 500000 5000050 4, "
                               "500000 5000000 5)";
    const std::string open = "(500000 5000000, 500100 5000000, 500100 5000050, 500000 5000050)";
    for (const std::string& wkt :
         {"MULTIPOLYGON ((" + ring + "))", "LINESTRING " + ring, "LINESTRING Z " + raised,
          "POLYGON Z (" + raised + ")", "MULTILINESTRING (" + ring + ")", "POLYGON (" + open + ")",
          "GEOMETRYCOLLECTION (POLYGON (" + ring + "))", "CURVEPOLYGON (" + ring + ")",
          "MULTISURFACE ((" + ring + "))", "CURVEPOLYGON (COMPOUNDCURVE (" + ring + "))"}) {
        SCOPED_TRACE(wkt);
        write_wkt(wkt);
        expect_divided(divide("lot.csv", kStrip));
    }
}

TEST_F(Formats, LayersAndFeatures)
{
    make("lots.gpkg", "GPKG", {"fields", "yards"}, {kLot, "POINT (1 2)"}, 32632);
    EXPECT_TRUE(test::fails_with(
        divide("lots.gpkg", kStrip), 2,
        "lots.gpkg: several layers hold parcels (fields: 1, yards: 1); choose one with --layer NAME"));
    EXPECT_TRUE(test::fails_with(divide("lots.gpkg", std::string("--layer barns ") + kStrip), 2,
                                 "lots.gpkg: there is no layer 'barns'; choose one of: fields, yards"));
    EXPECT_TRUE(test::fails_with(
        divide("lots.gpkg", std::string("--layer yards --feature 2 ") + kStrip), 3,
        "lots.gpkg: layer yards: feature 2: the geometry is a POINT; a polygon or a closed line is needed"));
    expect_divided(divide("lots.gpkg", std::string("--layer yards ") + kStrip));
    expect_divided(divide("lots.gpkg", std::string("--layer yards --feature 1 ") + kStrip));
}

TEST_F(Formats, AFilterThatADatabaseDoesNotUnderstand)
{
    make("lots.gpkg", "GPKG", {"lots"}, {kLot, kLot}, 32632);
    const test::Result run = divide("lots.gpkg", std::string("--where ownr='Rossi' ") + kStrip);
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(
        run.err.rfind("plcalc: lots.gpkg: --where 'ownr='Rossi'' is not a filter that GDAL understands (", 0),
        0u)
        << run.err;
    expect_divided(divide("lots.gpkg", std::string("--where fid=2 ") + kStrip));
}

TEST_F(Formats, DegreesAreRefusedAndNoCrsIsNot)
{
    const char* const degrees = "POLYGON ((9 45, 9.1 45, 9.1 45.1, 9 45))";
    make("degrees.gpkg", "GPKG", {"lot"}, {degrees}, 4326);
    EXPECT_TRUE(
        test::fails_with(divide("degrees.gpkg", "--vertex 1 --area 0.001"), 3,
                         "degrees.gpkg: feature 1: the coordinates are not plane (WGS 84); project them "
                         "first, for example with ogr2ogr -t_srs EPSG:32632, or correct the file's CRS if "
                         "they are"));
    make("degrees.kml", "KML", {"lot"}, {degrees}, 4326);
    const test::Result kml = divide("degrees.kml", "--vertex 1 --area 0.001");
    EXPECT_EQ(kml.status, 3);
    EXPECT_NE(kml.err.find("the coordinates are not plane (WGS 84)"), std::string::npos) << kml.err;
    // A file that says degrees of coordinates that cannot be is in disorder.
    make("lot.gpkg", "GPKG", {"lot"}, {kLot}, 4326);
    EXPECT_EQ(divide("lot.gpkg", kStrip).status, 3);
    // Without a CRS, what looks like degrees is not taken as plane unasked.
    make("unsaid.gpkg", "GPKG", {"lot"}, {"POLYGON ((9 45, 9.001 45, 9.001 45.001, 9 45))"}, 0);
    EXPECT_TRUE(test::fails_with(divide("unsaid.gpkg", "--vertex 1 --share 1/2"), 3,
                                 "unsaid.gpkg: feature 1: the coordinates look like degrees, and nothing "
                                 "says that they are plane; project them "
                                 "first, for example with ogr2ogr -s_srs EPSG:4326 -t_srs EPSG:32632, or "
                                 "accept them as plane with --any-scale"));
    const test::Result accepted = divide("unsaid.gpkg", "--vertex 1 --share 1/2 --any-scale");
    EXPECT_EQ(accepted.status, 0) << accepted.err;
    EXPECT_NE(accepted.out.find("taken as plane, although they look like degrees"), std::string::npos)
        << accepted.out;
    for (const char* const plane :
         {"POLYGON ((9 45, 9.11 45, 9.11 45.1, 9 45))", "POLYGON ((0 0, 0.09 0, 0.09 0.09, 0 0))",
          "POLYGON ((0.8 0.1, 0.89 0.1, 0.89 0.19, 0.8 0.1))"}) {
        make("small.gpkg", "GPKG", {"lot"}, {plane}, 0);
        EXPECT_EQ(divide("small.gpkg", "--vertex 1 --share 1/2").status, 0) << plane;
    }
    make("plain.gpkg", "GPKG", {"lot"}, {kLot}, 0);
    expect_divided(divide("plain.gpkg", kStrip));
    make("plain.shp", "ESRI Shapefile", {"plain"}, {kLot}, 0);
    expect_divided(divide("plain.shp", kStrip));
    // GeoJSON stands for degrees by itself; here it says nothing, and they cannot be degrees.
    write("plain.geojson", R"({"type": "Polygon", "coordinates": [[[500000, 5000000], [500100, 5000000],
                               [500100, 5000050], [500000, 5000050], [500000, 5000000]]]})");
    expect_divided(divide("plain.geojson", kStrip));
}

TEST_F(Formats, NorthMayStandFirst)
{
    write("lot.csv", "N,E\n5000000,500000\n5000000,500100\n5000050,500100\n5000050,500000\n");
    expect_divided(divide("lot.csv", kStrip));
}

// Longitudes reach 360 and latitudes 90. What is beyond can be no degrees, whatever GeoJSON stands for.
TEST_F(Formats, GeoJsonMayHoldDegreesUpToTheirEnd)
{
    struct Row {
        const char* what;
        const char* corner;
        int status;
    };
    for (const Row& row : {Row{"all around, to the pole", "360, 90", 3},
                           {"West and South", "-360, -90", 3},
                           {"beyond all longitudes", "360.05, 90", 0},
                           {"beyond them in the West", "-360.05, 90", 0},
                           {"beyond the pole", "360, 90.05", 0},
                           {"beyond the other pole", "360, -90.05", 0}}) {
        SCOPED_TRACE(row.what);
        write("lot.geojson", std::string(R"({"type": "Polygon", "coordinates": [[[0, 0], [50, 0], [)") +
                                 row.corner + R"(], [0, 0]]]})");
        const test::Result run = divide("lot.geojson", "--vertex 1 --share 1/2");
        EXPECT_EQ(run.status, row.status) << run.err;
    }
}

TEST_F(Formats, AxesRunEastAndNorth)
{
    make("west.gpkg", "GPKG", {"lot"}, {kLot}, 2053);
    EXPECT_TRUE(test::fails_with(
        divide("west.gpkg", kStrip), 3,
        "west.gpkg: feature 1: the coordinates increase to the West (Hartebeesthoek94 "
        "/ Lo29), not to the East; project them first, for example with ogr2ogr -t_srs EPSG:32734"));
    make("south.gpkg", "GPKG", {"lot"}, {kLot}, 5513);
    const test::Result second = divide("south.gpkg", kStrip);
    EXPECT_EQ(second.status, 3);
    EXPECT_NE(second.err.find("increase to the West (S-JTSK / Krovak)"), std::string::npos)
        << "South is the first axis there, West the second: " << second.err;
    // Northing first on paper, Easting first in files; a grid around a pole.
    for (const int epsg : {31467, 2393, 5514, 3031, 32661}) {
        SCOPED_TRACE(epsg);
        const std::string name = "lot" + std::to_string(epsg) + ".gpkg";
        make(name, "GPKG", {"lot"}, {kLot}, epsg);
        expect_divided(divide(name, std::string("--any-scale ") + kStrip));
    }
    make("lot.gml", "GML", {"lot"}, {kLot}, 31467);
    expect_divided(divide("lot.gml", std::string("--any-scale ") + kStrip));
}

// A closed polyline, on layer 0, with a bulge after vertex 2: tan of a quarter of the arc's angle.
std::string dxf(const std::string& flag, const std::string& bulge)
{
    return "0\nSECTION\n2\nENTITIES\n0\nLWPOLYLINE\n8\n0\n90\n4\n70\n" + flag +
           "\n10\n500000\n20\n5000000\n10\n500100\n20\n5000000\n42\n" + bulge +
           "\n10\n500100\n20\n5000050\n10\n500000\n20\n5000050\n"
           "0\nTEXT\n8\n0\n10\n500050\n20\n5000025\n40\n2\n1\nlot\n0\nENDSEC\n0\nEOF\n";
}

TEST_F(Formats, DrawingsWithArcsAreRefused)
{
    write("lot.dxf", dxf("1", "0"));
    expect_divided(divide("lot.dxf", kStrip));
    for (const char* bulge : {"0.5", "-0.1", "0.0005"}) {
        write("lot.dxf", dxf("1", bulge));
        EXPECT_TRUE(test::fails_with(divide("lot.dxf", kStrip), 3,
                                     "lot.dxf: feature 0: the boundary has arcs; replace them with chords, "
                                     "as --arcs 0.005 does, which "
                                     "keeps the chords within 0.005 of the arcs"))
            << bulge;
    }
    write("lot.dxf", dxf("0", "0"));
    EXPECT_TRUE(
        test::fails_with(divide("lot.dxf", kStrip), 3,
                         "lot.dxf: the file holds no polygon and no closed line (features: 2, the first a "
                         "LINESTRING); draw the parcel as a polygon"));
}

// A layer in the table of a drawing's layers: its flags and its colour, negative where it is switched off.
std::string dxf_layer(const std::string& name, const std::string& flags, const std::string& color)
{
    return "0\nLAYER\n2\n" + name + "\n70\n" + flags + "\n62\n" + color + "\n6\nCONTINUOUS\n";
}

// A closed polyline that is kLot, with further codes behind its layer.
std::string dxf_lot(const std::string& layer, const std::string& codes = "")
{
    return "0\nLWPOLYLINE\n8\n" + layer + "\n" + codes +
           "90\n4\n70\n1\n10\n500000\n20\n5000000\n10\n500100\n20\n5000000\n10\n500100\n20\n5000050\n"
           "10\n500000\n20\n5000050\n";
}

std::string dxf_of(const std::string& entities)
{
    return "0\nSECTION\n2\nTABLES\n0\nTABLE\n2\nLAYER\n70\n4\n" + dxf_layer("LOTS", "0", "7") +
           dxf_layer("HOUSES", "0", "1") + dxf_layer("OFF", "0", "-7") + dxf_layer("FROZEN", "1", "7") +
           "0\nENDTAB\n0\nENDSEC\n0\nSECTION\n2\nENTITIES\n" + entities + "0\nENDSEC\n0\nEOF\n";
}

TEST_F(Formats, OnlyWhatADrawingShowsInModelSpace)
{
    const std::string hidden =
        dxf_lot("LOTS", "67\n1\n") + dxf_lot("OFF") + dxf_lot("FROZEN") + dxf_lot("LOTS", "60\n1\n");
    write("lot.dxf", dxf_of(hidden + dxf_lot("LOTS")));
    expect_divided(divide("lot.dxf", kStrip));
    write("lot.dxf", dxf_of(hidden + dxf_lot("LOTS") + dxf_lot("LOTS")));
    const test::Result two = divide("lot.dxf", kStrip);
    EXPECT_NE(two.out.find("Divided  2 of 2 parcels\nSkipped, in paper space or not shown  4\n"),
              std::string::npos)
        << two.out << two.err;
    write("lot.dxf", dxf_of(hidden));
    EXPECT_TRUE(test::fails_with(
        divide("lot.dxf", kStrip), 3,
        "lot.dxf: all that could be parcels is in paper space, or on layers that are switched "
        "off or frozen (features: 4); draw the parcel in model space, on a layer that is "
        "shown"));
}

TEST_F(Formats, TheLayersOfADrawing)
{
    write("lot.dxf", dxf_of(dxf_lot("LOTS") + dxf_lot("HOUSES") + dxf_lot("HOUSES")));
    EXPECT_TRUE(test::fails_with(
        divide("lot.dxf", kStrip), 2,
        "lot.dxf: several layers hold parcels (HOUSES: 2, LOTS: 1); choose one with --layer NAME"));
    expect_divided(divide("lot.dxf", std::string("--layer LOTS ") + kStrip));
    EXPECT_NE(
        divide("lot.dxf", std::string("--layer HOUSES ") + kStrip).out.find("Divided  2 of 2 parcels\n"),
        std::string::npos);
    EXPECT_TRUE(test::fails_with(
        divide("lot.dxf", std::string("--layer ROADS ") + kStrip), 2,
        "lot.dxf: there is no parcel on the layer 'ROADS'; choose one of: HOUSES: 2, LOTS: 1"));
}

// A drawing of so much text, so many times the same lot, and text again.
std::string drawing(int texts_before, int lots, int texts_after)
{
    const std::string text = "0\nTEXT\n8\nnotes\n10\n500050\n20\n5000025\n40\n2\n1\nlot\n";
    const std::string lot =
        "0\nLWPOLYLINE\n8\nlots\n90\n3\n70\n1\n10\n0\n20\n0\n10\n90\n20\n0\n10\n0\n20\n90\n";
    std::string drawing = "0\nSECTION\n2\nENTITIES\n";
    for (int i = 0; i < texts_before; ++i)
        drawing += text;
    for (int i = 0; i < lots; ++i)
        drawing += lot;
    for (int i = 0; i < texts_after; ++i)
        drawing += text;
    return drawing + "0\nENDSEC\n0\nEOF\n";
}

// To look for arcs, a drawing is read twice. The second reader has the first 4096 bytes of a long file already, and
// does not see that somebody saves another drawing in the meantime.
TEST_F(Formats, ADrawingThatIsSavedWhileItIsRead)
{
    struct Row {
        const char* what;
        std::string saved;
        std::vector<bool> straight;  // of each lot, whether it could be read twice
    };
    const std::string original = drawing(0, 1, 1000);
    for (const Row& row : {Row{"as it was", original, {true}},
                           {"the lot is another feature now", drawing(1, 1, 1000), {false}},
                           {"another lot, and little text", drawing(0, 2, 1), {true, false}}}) {
        SCOPED_TRACE(row.what);
        write("lots.dxf", original);
        tool::ParcelFile file({path("lots.dxf"), {}, {}, "Layer = 'lots'"});
        write("lots.dxf", row.saved);
        std::vector<bool> straight;
        while (const std::optional<tool::ReadParcel> read = file.next()) {
            straight.push_back(!read->problem);
            if (!read->problem)
                continue;
            EXPECT_EQ(read->problem->problem,
                      "the boundary could not be read a second time, to look for arcs");
            EXPECT_EQ(read->problem->advice, "leave the file alone until plcalc is done");
            EXPECT_EQ(read->problem->status, tool::ExitStatus::unusable_input);
        }
        EXPECT_EQ(straight, row.straight);
    }
}

TEST_F(Formats, ADrawingThatIsEmptiedWhileItIsRead)
{
    write("lots.dxf", drawing(0, 1, 1000));
    const tool::Source source = {path("lots.dxf"), {}, {}, {}};
    tool::ParcelFile file(source);
    ASSERT_EQ(file.count(), 1u);
    write("lots.dxf", "");
    EXPECT_FALSE(file.next());
    const tool::Failure failure = tool::vanished(source);
    EXPECT_EQ(failure.status, tool::ExitStatus::unusable_input);
    EXPECT_EQ(tool::sentence(failure), path("lots.dxf") + ": the file changed while it was being read; leave "
                                                          "the file alone until plcalc is done");
}

TEST_F(Formats, EveryExampleIsDivided)
{
    struct Row {
        const char* name;
        const char* arguments;
    };
    for (const Row& row : {Row{"published.csv", "--parallel 1 --area 9000"},
                           {"published.geojson", "--vertex 3 --area 7500"},
                           {"triangle.csv", "--perpendicular 1 --area 800"},
                           {"convex.csv", "--vertex 2 --product 40 50"},
                           {"concave.csv", "--parallel 6 --area 600"},
                           {"utm-convex.geojson", "--feature 18 --perpendicular 2 --area 1500"},
                           {"utm-concave.csv", "--perpendicular 1 --area 2000"},
                           {"lot.dxf", "--vertex 4 --area 1500"}}) {
        const test::Result run = divide(std::string(PLCALC_EXAMPLES "/") + row.name, row.arguments);
        EXPECT_EQ(run.status, 0) << run.err;
    }
}

}  // namespace
