// Divisions written by the program and read back through GDAL.

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iomanip>
#include <iterator>
#include <map>
#include <set>
#include <sstream>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <nlohmann/json.hpp>

#include "files/pending_output.h"
#include "plan/plan.h"
#include "program.h"

namespace {

class Writer : public test::ProgramTest {
protected:
    Writer()
    {
        GDALAllRegister();
        CPLPushErrorHandler(CPLQuietErrorHandler);
    }
    ~Writer() override { CPLPopErrorHandler(); }

    // Two lots in UTM with columns, and a bow-tie.
    void write_lots() const
    {
        write("lots.geojson", R"({"type": "FeatureCollection",
            "crs": {"type": "name", "properties": {"name": "urn:ogc:def:crs:EPSG::32632"}},
            "features": [
            {"type": "Feature", "id": 1, "properties": {"owner": "Rossi", "area": "old", "fid": 5}, "geometry":
             {"type": "Polygon", "coordinates": [[[500000, 5000000], [500100, 5000000], [500100, 5000060],
                                                  [500000, 5000060], [500000, 5000000]]]}},
            {"type": "Feature", "id": 2, "properties": {"owner": "Neri", "area": "x", "fid": 6}, "geometry":
             {"type": "Polygon", "coordinates": [[[500000, 5000000], [500100, 5000060], [500100, 5000000],
                                                  [500000, 5000060], [500000, 5000000]]]}},
            {"type": "Feature", "id": 3, "properties": {"owner": "Bianchi", "area": "y", "fid": 7}, "geometry":
             {"type": "Polygon", "coordinates": [[[500200, 5000000], [500290, 5000000], [500200, 5000090],
                                                  [500200, 5000000]]]}}]})");
    }

    std::set<std::string> files() const
    {
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(path("")))
            if (entry.path().filename() != ".out" && entry.path().filename() != ".err")
                names.insert(entry.path().filename());
        return names;
    }

    std::string content(const std::string& name) const
    {
        std::ifstream file(path(name), std::ios::binary);
        std::ostringstream text;
        text << file.rdbuf();
        return text.str();
    }

    GDALDatasetUniquePtr open(const std::string& name) const
    {
        const char* const options[] = {"GEOM_POSSIBLE_NAMES=WKT", "AUTODETECT_TYPE=YES", nullptr};
        return GDALDatasetUniquePtr(
            GDALDataset::Open(path(name).c_str(), GDAL_OF_VECTOR, nullptr, options, nullptr));
    }
};

std::string decimals(double value, int count)
{
    std::ostringstream text;
    text << std::fixed << std::setprecision(count) << value;
    return text.str();
}

// A lot whose sides slant, so that no number of four decimals lies on them: what is printed, written and drawn is the
// same to the last bit.
TEST_F(Writer, WhatIsPrintedIsWrittenAndDrawn)
{
    const plparcel::Ring ring = {{500010.123, 5000020.456},
                                 {500131.789, 5000053.321},
                                 {500120.147, 5000097.483},
                                 {499996.951, 5000061.907}};
    std::string wkt = "POLYGON ((";
    for (std::size_t i = 0; i <= ring.size(); ++i)
        wkt += (i > 0 ? ", " : "") + decimals(ring[i % 4].x, 3) + " " + decimals(ring[i % 4].y, 3);
    const std::string file = write_wkt(wkt + "))");
    const std::string asked = "--parallel 1 --areas 1/3,1/4 --decimals 3 --tolerance 1/20000 ";
    const test::Result table =
        divide(file, asked + "-o out.gpkg --plan plan.svg --report report.txt --points points.csv");
    ASSERT_EQ(table.status, 0) << table.err;
    ASSERT_EQ(divide(file, asked + "-o out.dxf").status, 0);
    const std::string report = content("report.txt");
    const std::string points = content("points.csv");
    const std::string plan_text = content("plan.svg");
    using Ends = std::pair<std::pair<double, double>, std::pair<double, double>>;
    std::set<Ends> drawing;
    const nlohmann::json printed = nlohmann::json::parse(divide(file, asked + "--json").out);
    const nlohmann::json& division = printed["parcels"][0];
    EXPECT_EQ(division["decimals"], 3);

    tool::Asked request;
    request.request.amounts = {plparcel::share(1, 3), plparcel::share(1, 4)};
    request.request.rounding = {3, 1.0 / 20000.0};
    request.number = 1;
    request.amounts = {"1/3", "1/4"};
    tool::Parcel parcel;
    parcel.ring = ring;
    const tool::Plan plan = tool::plan_of(tool::answer(parcel, request));

    const GDALDatasetUniquePtr written = open("out.gpkg");
    ASSERT_NE(written, nullptr);
    std::size_t i = 0;
    for (const OGRFeatureUniquePtr& line : *written->GetLayerByName("lines")) {
        const OGRLineString& ends = *line->GetGeometryRef()->toLineString();
        const double all[] = {ends.getX(0), ends.getY(0), ends.getX(1), ends.getY(1)};
        const PL_PNT2D_record& from = plan.points.at(plan.lines.at(i).from).at;
        const PL_PNT2D_record& to = plan.points.at(plan.lines.at(i).to).at;
        const double drawn[] = {from.x, from.y, to.x, to.y};
        const nlohmann::json& json = division["lines"][i];
        const double told[] = {json["from"]["e"], json["from"]["n"], json["to"]["e"], json["to"]["n"]};
        for (std::size_t k = 0; k < 4; ++k) {
            EXPECT_EQ(std::strtod(decimals(all[k], 3).c_str(), nullptr), all[k]) << "three decimals, no more";
            EXPECT_EQ(all[k], told[k]);
            EXPECT_EQ(all[k], drawn[k]);
            for (const std::string& text : {table.out, report, points, plan_text})
                EXPECT_NE(text.find(decimals(all[k], 3)), std::string::npos) << text;
        }
        drawing.insert({{all[0], all[1]}, {all[2], all[3]}});
        ++i;
    }
    EXPECT_EQ(i, 2u);
    i = 0;
    for (const OGRFeatureUniquePtr& piece : *written->GetLayerByName("pieces")) {
        const double area = piece->GetFieldAsDouble("area");
        EXPECT_NEAR(piece->GetGeometryRef()->toPolygon()->get_Area(), area, 1e-5) << "at 5e6";
        EXPECT_EQ(division["pieces"][i]["area"].get<double>(),
                  std::strtod(decimals(area, 4).c_str(), nullptr));
        EXPECT_EQ(plan.pieces.at(i).area, area);
        for (const std::string& text : {table.out, report})
            EXPECT_NE(text.find(decimals(area, 4)), std::string::npos) << text;
        const OGRLinearRing& corners = *piece->GetGeometryRef()->toPolygon()->getExteriorRing();
        for (int k = 0; k < corners.getNumPoints(); ++k) {
            EXPECT_EQ(std::strtod(decimals(corners.getX(k), 3).c_str(), nullptr), corners.getX(k));
            EXPECT_EQ(std::strtod(decimals(corners.getY(k), 3).c_str(), nullptr), corners.getY(k));
        }
        ++i;
    }
    EXPECT_EQ(i, 3u);
    // The drawing holds fifteen digits, which at 5e6 is a nanometre: these numbers of three decimals are whole.
    const GDALDatasetUniquePtr dxf = open("out.dxf");
    ASSERT_NE(dxf, nullptr);
    std::set<Ends> in_drawing;
    for (const OGRFeatureUniquePtr& entity : *dxf->GetLayer(0))
        if (std::string(entity->GetFieldAsString("Layer")) == "lines") {
            const OGRLineString& ends = *entity->GetGeometryRef()->toLineString();
            in_drawing.insert({{ends.getX(0), ends.getY(0)}, {ends.getX(1), ends.getY(1)}});
        }
    EXPECT_EQ(in_drawing, drawing);
}

TEST_F(Writer, DecimalsThatDoNotHoldTheAreaAreMore)
{
    const std::string file = write_wkt("POLYGON ((0 0, 100 0, 100 50, 0 50))");
    const test::Result more = divide(file, "--parallel 1 --share 1/3 --decimals 2");
    EXPECT_EQ(more.status, 0);
    EXPECT_NE(more.out.find("Lines   with 4 decimals: 2 do not hold the area\n"), std::string::npos)
        << more.out;
    EXPECT_NE(more.out.find(" 16.6667"), std::string::npos);
    const test::Result enough = divide(file, "--parallel 1 --share 1/3 --decimals 2 --tolerance 0.01%");
    EXPECT_EQ(enough.out.find("Lines "), std::string::npos) << enough.out;
    EXPECT_NE(enough.out.find(" 16.67\n"), std::string::npos) << enough.out;
    EXPECT_EQ(divide(file, "--parallel 1 --share 1/3 --decimals 17").status, 0);
    EXPECT_TRUE(test::fails_with(divide(file, "--parallel 1 --share 1/3 --decimals 18"), 2,
                                 "--decimals: '18' is not a number from 0 to 17; see plcalc divide --help"));
    for (const std::string tolerance : {"2%", "1e-300/1e300"})
        EXPECT_TRUE(
            test::fails_with(divide(file, "--parallel 1 --share 1/3 --tolerance " + tolerance), 2,
                             "--tolerance: '" + tolerance +
                                 "' is not above 0 and at most 1% of the parcel; see plcalc divide --help"));
}

// A program that writes many files one after another keeps none of their folders, and no file open.
TEST_F(Writer, AnOutputThatEndsLeavesNothingOpen)
{
    const auto opened = [] {
        const std::filesystem::directory_iterator files("/proc/self/fd");
        return std::distance(begin(files), end(files));
    };
    const auto before = opened();
    for (const bool written : {true, false}) {
        tool::PendingOutput output(path("pieces.txt"), true, {});
        std::ofstream(output.path()) << "pieces";
        if (written)
            output.commit();
    }
    EXPECT_EQ(opened(), before);
    EXPECT_EQ(files(), (std::set<std::string>{"pieces.txt"}));
}

TEST_F(Writer, AFolderThatCameInTheWayIsNamed)
{
    tool::PendingOutput output(path("pieces.txt"), true, {});
    std::ofstream(output.path()) << "pieces";
    std::filesystem::create_directory(path("pieces.txt"));
    try {
        output.commit();
        ADD_FAILURE() << "a folder was replaced";
    } catch (const tool::Failure& failure) {
        EXPECT_EQ(failure.place.file, path("pieces.txt"));
        EXPECT_EQ(failure.problem, "the file cannot be written (Is a directory)");
    }
}

TEST_F(Writer, ATableOfOneParcelHasNoFeatureNumber)
{
    write("table.csv", "E,N\n0,0\n100,0\n100,50\n0,50\n");
    ASSERT_EQ(divide("table.csv", "--parallel 1 --share 1/2 -o out.csv").status, 0);
    for (const char* name : {"out.csv", "out-lines.csv"}) {
        std::ostringstream text;
        text << std::ifstream(path(name)).rdbuf();
        EXPECT_NE(text.str().find(")\",\"0\",\"1\","), std::string::npos) << text.str();
    }
}

struct FormatRow {
    const char* ending;
    bool one_file;
    bool columns;
    bool crs;
};

TEST_F(Writer, EveryFormatReadBack)
{
    write_lots();
    for (const FormatRow& row : {FormatRow{"gpkg", true, true, true},
                                 {"shp", false, true, true},
                                 {"geojson", false, true, true},
                                 {"fgb", false, true, true},
                                 {"gml", true, true, true},
                                 {"sqlite", true, true, true},
                                 {"mif", false, true, true},
                                 {"csv", false, true, false},
                                 {"jml", false, true, true}}) {
        SCOPED_TRACE(row.ending);
        const std::string out = std::string("out.") + row.ending;
        const test::Result run =
            divide("lots.geojson", "--feature 1 --parallel 1 --areas 1000,1/3 -o " + out);
        ASSERT_EQ(run.status, 0) << run.err;
        const std::string lines_file = row.one_file ? out : std::string("out-lines.") + row.ending;
        const std::string told = "Written  " + out + "\n";
        EXPECT_NE(run.out.find(row.one_file ? told : told + "Written  " + lines_file + "\n"),
                  std::string::npos)
            << run.out;

        const GDALDatasetUniquePtr pieces_in = open(out);
        const GDALDatasetUniquePtr lines_in = open(lines_file);
        ASSERT_TRUE(pieces_in != nullptr && lines_in != nullptr);
        OGRLayer* const pieces = row.one_file ? pieces_in->GetLayerByName("pieces") : pieces_in->GetLayer(0);
        OGRLayer* const lines = row.one_file ? lines_in->GetLayerByName("lines") : lines_in->GetLayer(0);
        ASSERT_TRUE(pieces != nullptr && lines != nullptr);
        EXPECT_EQ(pieces->GetFeatureCount(), 3);
        EXPECT_EQ(lines->GetFeatureCount(), 2);
        const double areas[] = {1000, 2000, 3000};
        for (const OGRFeatureUniquePtr& piece : *pieces) {
            const OGRGeometry* const geometry = piece->GetGeometryRef();
            ASSERT_NE(geometry, nullptr);
            ASSERT_EQ(wkbFlatten(geometry->getGeometryType()), wkbPolygon);
            // In whatever order: FlatGeobuf sorts by place.
            const int i = static_cast<int>(std::lround(geometry->toPolygon()->get_Area() / 1000.0)) - 1;
            ASSERT_TRUE(i >= 0 && i < 3);
            EXPECT_NEAR(geometry->toPolygon()->get_Area(), areas[i], 1e-4);
            if (row.columns) {
                EXPECT_STREQ(piece->GetFieldAsString("owner"), "Rossi");
                EXPECT_STREQ(piece->GetFieldAsString("status"), "divided");
                EXPECT_STREQ(piece->GetFieldAsString("area"), "old") << "the parcel's own column";
                EXPECT_EQ(piece->GetFieldAsInteger("parcel"), 1);
                EXPECT_EQ(piece->GetFieldAsInteger("piece"), i + 1);
                EXPECT_NEAR(piece->GetFieldAsDouble("area_1"), areas[i], 1e-5);
                EXPECT_NEAR(piece->GetFieldAsDouble("asked"), areas[i], 1e-9 * areas[i]);
                EXPECT_NEAR(piece->GetFieldAsDouble("residual"),
                            piece->GetFieldAsDouble("area_1") - piece->GetFieldAsDouble("asked"), 1e-9);
                EXPECT_NEAR(piece->GetFieldAsDouble("share"), areas[i] / 6000.0, 1e-8);
            }
        }
        for (const OGRFeatureUniquePtr& line : *lines) {
            EXPECT_NEAR(line->GetGeometryRef()->toLineString()->get_Length(), 100.0, 1e-6);
            if (row.columns) {
                // The first line has 1000 below it, the second 3000: 10 and 30 up.
                OGREnvelope envelope;
                line->GetGeometryRef()->getEnvelope(&envelope);
                const bool is_first = envelope.MaxY < 5000020.0;
                EXPECT_EQ(line->GetFieldAsInteger("line"), is_first ? 1 : 2);
                EXPECT_EQ(line->GetFieldAsInteger("parcel"), 1);
                EXPECT_NEAR(line->GetFieldAsDouble("length"), 100.0, 1e-6);
                EXPECT_STREQ(line->GetFieldAsString("owner"), "Rossi");
            }
        }
        if (row.crs) {
            ASSERT_NE(pieces->GetSpatialRef(), nullptr);
            EXPECT_TRUE(pieces->GetSpatialRef()->IsProjected());
            EXPECT_NE(lines->GetSpatialRef(), nullptr);
        }
    }
}

// A parcel with two holes, cut through one of them, in a feature with two polygons. What was written is read again.
TEST_F(Writer, HolesGoThroughEveryFormat)
{
    write("lots.geojson", R"({"type": "FeatureCollection",
        "crs": {"type": "name", "properties": {"name": "urn:ogc:def:crs:EPSG::32632"}},
        "features": [{"type": "Feature", "id": 7, "properties": {"lot": 3}, "geometry": {"type": "MultiPolygon",
          "coordinates": [
            [[[500000, 5000000], [500100, 5000000], [500100, 5000060], [500000, 5000060], [500000, 5000000]],
             [[500060, 5000020], [500080, 5000020], [500080, 5000040], [500060, 5000040], [500060, 5000020]],
             [[500010, 5000040], [500010, 5000050], [500020, 5000050], [500020, 5000040], [500010, 5000040]]],
            [[[500200, 5000000], [500240, 5000000], [500240, 5000060], [500200, 5000060], [500200, 5000000]]]
          ]}}]})");
    for (const std::string ending :
         {"gpkg", "shp", "geojson", "fgb", "gml", "sqlite", "mif", "csv", "jml", "kml"}) {
        SCOPED_TRACE(ending);
        const std::string out = "out." + ending;
        const test::Result run = divide("lots.geojson", "--parallel 1 --area 1800 -o " + out);
        ASSERT_EQ(run.status, 0) << run.err;
        if (ending == "kml")
            continue;  // degrees cannot be divided again
        // Below the line 5000018 high lie 1800, above it 4200 less 400 and 100.
        const GDALDatasetUniquePtr written = open(out);
        ASSERT_NE(written, nullptr);
        OGRLayer* pieces = written->GetLayerByName("pieces");
        if (pieces == nullptr)
            pieces = written->GetLayer(0);
        std::multiset<std::pair<int, long>> found;  // holes, area
        for (const OGRFeatureUniquePtr& piece : *pieces) {
            const OGRPolygon& polygon = *piece->GetGeometryRef()->toPolygon();
            found.insert({polygon.getNumInteriorRings(), std::lround(polygon.get_Area())});
            if (ending != "csv" && ending != "jml") {
                EXPECT_EQ(piece->GetFieldAsInteger("lot"), 3)
                    << "both polygons have the columns of the feature";
            }
        }
        EXPECT_EQ(found, (std::multiset<std::pair<int, long>>{{2, 3700}, {0, 1800}, {0, 1800}, {0, 600}}));
        const std::string layer = written->GetLayerByName("pieces") != nullptr ? " --layer pieces" : "";
        const test::Result cut = divide(out, "--pieces any --bearing 100 --share 1/2 --json" + layer);
        ASSERT_EQ(cut.status, 0) << cut.err;
        std::size_t with_holes = 0;
        const nlohmann::json told = nlohmann::json::parse(cut.out);
        for (const nlohmann::json& parcel : told["parcels"])
            with_holes += std::fabs(parcel["area"].get<double>() - 3700.0) < 0.01 ? 1 : 0;
        EXPECT_EQ(with_holes, 1u) << "the holes are read again";
    }
}

// A line across a hole is two features with one number; three arms of a comb are one amount in three pieces.
TEST_F(Writer, PartsOfALineAndOfAnAmountHaveItsNumber)
{
    const std::string file =
        write_wkt("POLYGON ((0 0, 50 0, 50 40, 40 40, 40 10, 30 10, 30 40, 20 40, 20 10, 10 10, 10 40, "
                  "0 40, 0 0))");
    const test::Result run = divide(file, "--parallel 1 --pieces any --areas 500,300 -o out.gpkg");
    ASSERT_EQ(run.status, 0) << run.err;
    const GDALDatasetUniquePtr written = open("out.gpkg");
    ASSERT_NE(written, nullptr);
    std::multiset<int> lines;
    for (const OGRFeatureUniquePtr& line : *written->GetLayerByName("lines")) {
        lines.insert(line->GetFieldAsInteger("line"));
        if (line->GetFieldAsInteger("line") == 2) {
            EXPECT_NEAR(line->GetFieldAsDouble("length"), 10.0, 1e-9);
        }
    }
    EXPECT_EQ(lines.count(2), 3u) << "a part in each arm";
    std::map<int, double> area;
    std::map<int, int> pieces;
    for (const OGRFeatureUniquePtr& piece : *written->GetLayerByName("pieces")) {
        const int amount = piece->GetFieldAsInteger("amount");
        area[amount] += piece->GetGeometryRef()->toPolygon()->get_Area();
        ++pieces[amount];
        if (amount == 2) {
            EXPECT_NEAR(piece->GetFieldAsDouble("asked"), 300.0, 1e-9);
        }
    }
    EXPECT_NEAR(area[1], 500.0, 1e-6);
    EXPECT_NEAR(area[2], 300.0, 1e-6);
    EXPECT_NEAR(area[3], 600.0, 1e-6);
    EXPECT_EQ(pieces[2], 3);
    EXPECT_EQ(pieces[3], 3);
    EXPECT_NE(run.out.find("    3 of 3 "), std::string::npos) << run.out;
}

// Text of every alphabet, a date, a moment, an integer that no double holds, a list, a column name beyond ten letters.
TEST_F(Writer, AttributesOfEveryKind)
{
    write("lots.geojson", R"({"type": "FeatureCollection",
        "crs": {"type": "name", "properties": {"name": "urn:ogc:def:crs:EPSG::32632"}},
        "features": [{"type": "Feature", "id": 1, "properties":
         {"owner": "Müller, Łódź, Αθήνα", "born": "2020-02-29", "seen": "2020-02-29T12:34:56",
          "number": 9007199254740993, "tags": ["a", "b"], "residual": 1.25, "a_long_name_of_a_column": "x",
          "a_long_name_of_another": "other"},
         "geometry": {"type": "Polygon", "coordinates": [[[500000, 5000000], [500100, 5000000],
                                                          [500100, 5000060], [500000, 5000000]]]}}]})");
    for (const std::string ending : {"gpkg", "shp", "geojson", "fgb", "gml", "sqlite", "csv", "kml"}) {
        SCOPED_TRACE(ending);
        const test::Result run = divide("lots.geojson", "--vertex 1 --share 1/2 -o out." + ending);
        ASSERT_EQ(run.status, 0) << run.err;
        const GDALDatasetUniquePtr out = open("out." + ending);
        ASSERT_NE(out, nullptr);
        const OGRFeatureUniquePtr piece(out->GetLayer(0)->GetNextFeature());
        ASSERT_NE(piece, nullptr);
        EXPECT_STREQ(piece->GetFieldAsString("owner"), "Müller, Łódź, Αθήνα");
        EXPECT_EQ(std::string(piece->GetFieldAsString("born")).substr(0, 10), "2020/02/29");
        EXPECT_EQ(std::string(piece->GetFieldAsString("seen")).substr(0, 19), "2020/02/29 12:34:56");
        EXPECT_STREQ(piece->GetFieldAsString("number"), "9007199254740993");
        EXPECT_NE(std::string(piece->GetFieldAsString("tags")).find("a"), std::string::npos);
        EXPECT_EQ(piece->GetFieldAsDouble("residual"), 1.25) << "the parcel's own column";
        EXPECT_NEAR(piece->GetFieldAsDouble("residual_1"), 0.0, 1e-6);
        const bool cut = ending == "shp";
        EXPECT_STREQ(piece->GetFieldAsString(cut ? "a_long_nam" : "a_long_name_of_a_column"), "x");
        EXPECT_STREQ(piece->GetFieldAsString(cut ? "a_long_n_1" : "a_long_name_of_another"), "other");
    }
}

// Formats that hold nothing but degrees get them from the CRS, to a hundredth of a micrometre.
TEST_F(Writer, DegreesComeFromTheCrs)
{
    write_lots();
    write("plain.csv", "id,WKT\n1,\"POLYGON ((0 0, 80 0, 80 50, 0 50, 0 0))\"\n");
    for (const std::string ending : {"kml", "geojsonl"}) {
        SCOPED_TRACE(ending);
        ASSERT_EQ(divide("lots.geojson", "--feature 1 --parallel 1 --area 1000 -o out." + ending).status, 0);
        const GDALDatasetUniquePtr out = open("out." + ending);
        ASSERT_NE(out, nullptr);
        OGRFeatureUniquePtr piece(out->GetLayer(0)->GetNextFeature());
        ASSERT_NE(piece, nullptr);
        OGRGeometry* const geometry = piece->GetGeometryRef();
        ASSERT_TRUE(geometry->getSpatialReference()->IsGeographic());
        OGRSpatialReference utm;
        utm.importFromEPSG(32632);
        ASSERT_EQ(geometry->transformTo(&utm), OGRERR_NONE);
        OGREnvelope box;
        geometry->getEnvelope(&box);
        EXPECT_NEAR(box.MinX, 500000.0, 1e-6);
        EXPECT_NEAR(box.MaxX, 500100.0, 1e-6);
        EXPECT_NEAR(box.MinY, 5000000.0, 1e-6);
        EXPECT_NEAR(box.MaxY, 5000010.0, 1e-6);
        const test::Result run = divide("plain.csv", "--parallel 1 --area 1000 -o plain." + ending);
        EXPECT_TRUE(test::fails_with(run, 2,
                                     "plain." + ending + ": this format (" +
                                         (ending == "kml" ? "KML" : "GeoJSONSeq") +
                                         ") stores degrees, and the input has no CRS to convert from; "
                                         "write a GeoPackage (.gpkg)"));
    }
    EXPECT_EQ(files(), (std::set<std::string>{"lots.geojson", "out-lines.geojsonl", "out-lines.kml",
                                              "out.geojsonl", "out.kml", "plain.csv"}));
}

TEST_F(Writer, FormatsThatRoundOrCannotBeReadBackAreRefused)
{
    write_lots();
    for (const std::string out : {"out.tab", "out.dgn", "out.gxt", "out.itf", "out.mvt", "out.gdb", "out.pdf",
                                  "out.kmz", "out.txt", "out.sql"})
        EXPECT_TRUE(test::fails_with(divide("lots.geojson", "--parallel 1 --parts 2 -o " + out), 2,
                                     "--output: no format with the ending of '" + out +
                                         "' can be written and read back to the last digit; write a "
                                         "GeoPackage (.gpkg); see plcalc divide --help"));
}

// Lines and pieces in space, at the heights of the vertices; those of which a vertex has no height are flat.
TEST_F(Writer, HeightsInDrawings)
{
    for (const char* last : {"9", ""}) {
        write("lot.csv", std::string("E,N,Z\n0,0,1\n100,0,3\n100,50,7\n0,50,") + last + "\n");
        ASSERT_EQ(divide("lot.csv", "--parallel 2 --share 1/2 -o out.dxf --overwrite").status, 0);
        const GDALDatasetUniquePtr drawing = open("out.dxf");
        ASSERT_NE(drawing, nullptr);
        OGRWktOptions iso;
        iso.variant = wkbVariantIso;
        std::multiset<std::string> shapes;
        for (const OGRFeatureUniquePtr& entity : *drawing->GetLayer(0))
            if (*entity->GetFieldAsString("Text") == '\0')
                shapes.insert(std::string(entity->GetFieldAsString("Layer")) + " " +
                              entity->GetGeometryRef()->exportToWkt(iso));
        // The line runs from (50, 0) to (50, 50): 2 and, between 7 and 9, 8.
        const bool flat = *last == '\0';
        EXPECT_EQ(shapes.count("points POINT Z (50 0 2)"), 1u);
        EXPECT_EQ(
            shapes.count(flat ? "lines LINESTRING (50 0,50 50)" : "lines LINESTRING Z (50 0 2,50 50 8)") +
                shapes.count(flat ? "lines LINESTRING (50 50,50 0)" : "lines LINESTRING Z (50 50 8,50 0 2)"),
            1u);
        EXPECT_EQ(shapes.lower_bound("pieces LINESTRING Z") == shapes.lower_bound("pieces LINESTRING ["),
                  flat);
        if (flat)
            continue;
        // And in again.
        const test::Result again = divide("out.dxf", "--feature 0 --parallel 1 --share 1/2 --json");
        EXPECT_EQ(again.status, 0) << again.err;
        EXPECT_NE(again.out.find("\"z\""), std::string::npos) << again.out;
    }
}

// Two lots share each dividing line; it is drawn once all the same, and each lot can be cut again.
TEST_F(Writer, LotsSideBySideShareTheirLineInDrawings)
{
    write_wkt("POLYGON ((0 0, 0 60, 30 60, 30 25, 75 25, 75 0, 0 0))");
    ASSERT_EQ(divide("lot.csv", "--perpendicular 2 --parts 12 -o out.dxf").status, 0);
    using Point = std::pair<double, double>;
    std::multiset<std::pair<Point, Point>> lines;  // in either direction
    std::vector<long long> pieces;
    const GDALDatasetUniquePtr drawing = open("out.dxf");
    ASSERT_NE(drawing, nullptr);
    for (const OGRFeatureUniquePtr& entity : *drawing->GetLayer(0)) {
        const std::string layer = entity->GetFieldAsString("Layer");
        if (layer == "pieces")
            pieces.push_back(entity->GetFID());
        if (layer != "lines")
            continue;
        const OGRLineString& line = *entity->GetGeometryRef()->toLineString();
        const Point from(line.getX(0), line.getY(0));
        const Point to(line.getX(1), line.getY(1));
        lines.insert(std::minmax(from, to));
    }
    EXPECT_EQ(lines.size(), 11u);
    for (const auto& line : lines)
        EXPECT_EQ(lines.count(line), 1u);
    ASSERT_EQ(pieces.size(), 12u);
    for (const long long piece : {pieces.front(), pieces.back()})
        EXPECT_EQ(divide("out.dxf", "--feature " + std::to_string(piece) + " --parallel 1 --share 1/2").err,
                  "");
}

// A .prj or an index beside the old Shapefile would be taken for the new one's.
TEST_F(Writer, WhatBelongedToTheReplacedGoes)
{
    write_lots();
    write("plain.csv", "id,WKT\n1,\"POLYGON ((0 0, 80 0, 80 50, 0 50, 0 0))\"\n");
    ASSERT_EQ(divide("lots.geojson", "--feature 1 --parallel 1 --parts 2 -o out.shp").status, 0);
    for (const char* name : {"out.qpj", "out.sbn", "out.txt", "out.pdf", "out-other.prj"})
        write(name, "mine");
    ASSERT_EQ(files().count("out.prj") + files().count("out-lines.prj"), 2u);
    ASSERT_EQ(divide("plain.csv", "--parallel 1 --parts 2 -o out.shp --overwrite").status, 0);
    EXPECT_EQ(open("out.shp")->GetLayer(0)->GetSpatialRef(), nullptr);
    const std::set<std::string> left = files();
    for (const char* name : {"out.prj", "out-lines.prj", "out.qpj", "out.sbn"})
        EXPECT_EQ(left.count(name), 0u) << name;
    for (const char* name : {"out.txt", "out.pdf", "out-other.prj", "plain.csv"})
        EXPECT_EQ(left.count(name), 1u) << name;
}

TEST_F(Writer, WhatIsWrittenIsDividedAgain)
{
    write_lots();
    for (const std::string ending :
         {"gpkg", "shp", "geojson", "fgb", "gml", "sqlite", "mif", "csv", "dxf", "jml"}) {
        SCOPED_TRACE(ending);
        ASSERT_EQ(divide("lots.geojson", "--feature 1 --parallel 1 --parts 2 -o out." + ending).status, 0);
        const test::Result run = divide("out." + ending, "--parallel 1 --parts 3");
        EXPECT_EQ(run.status, 0) << run.err;
        EXPECT_NE(run.out.find("Divided  2 of 2 parcels\n"), std::string::npos) << run.out;
        EXPECT_NE(run.out.find(" 1000.00"), std::string::npos) << run.out;
    }
}

// Every format with parcels of which none could be divided: what is read back is nothing but refusals.
TEST_F(Writer, NothingButRefusals)
{
    write("lots.geojson", R"({"type": "FeatureCollection",
        "crs": {"type": "name", "properties": {"name": "urn:ogc:def:crs:EPSG::32632"}},
        "features": [
        {"type": "Feature", "id": 1, "properties": {"owner": "Rossi"}, "geometry": {"type": "Polygon",
         "coordinates": [[[500000, 5000000], [500100, 5000000], [500100, 5000060], [500000, 5000000]]]}},
        {"type": "Feature", "id": 2, "properties": {"owner": "Neri"}, "geometry": {"type": "MultiPolygon",
         "coordinates": [[[[500000, 5000000], [500100, 5000000], [500100, 5000060], [500000, 5000000]]],
                         [[[500200, 5000000], [500300, 5000000], [500300, 5000060], [500200, 5000000]]]]}}]})");
    for (const std::string ending :
         {"gpkg", "shp", "geojson", "geojsonl", "fgb", "gml", "sqlite", "mif", "csv", "dxf", "kml", "jml"}) {
        SCOPED_TRACE(ending);
        const test::Result run = divide("lots.geojson", "--parallel 1 --area 1e7 -o out." + ending);
        EXPECT_EQ(run.status, 4) << run.err;
        EXPECT_NE(run.out.find("Divided  0 of 3 parcels\n"), std::string::npos) << run.out;
        EXPECT_TRUE(std::filesystem::exists(path("out." + ending)));
    }
    EXPECT_EQ(open("out.fgb")->GetLayer(0)->GetFeatureCount(), 3) << "each part by itself";
}

TEST_F(Writer, PlanAndLayersComeTogetherOrNotAtAll)
{
    write_lots();
    write("out.gpkg", "mine");
    EXPECT_EQ(divide("lots.geojson", "--feature 1 --parallel 1 --parts 2 --plan plan.pdf -o out.gpkg").status,
              2);
    write("plan.svg", "mine");
    EXPECT_EQ(divide("lots.geojson", "--feature 1 --parallel 1 --parts 2 --plan plan.svg -o new.gpkg").status,
              2);
    EXPECT_EQ(files(), (std::set<std::string>{"lots.geojson", "out.gpkg", "plan.svg"}));
}

// On a plane of height 100 + E / 10 + N / 5 every point has its height, by whatever line it came.
TEST_F(Writer, HeightsGoWithThePoints)
{
    write("lot.csv", "E,N,Z\n0,0,100\n80,0,108\n80,40,116\n0,40,108\n");
    write("lot.geojson",
          R"({"type": "Polygon", "coordinates": [[[0, 400, 180], [800, 400, 260], [800, 440, 268],
                             [0, 440, 188], [0, 400, 180]]]})");
    for (const std::string in : {"lot.csv", "lot.geojson"}) {
        for (const std::string ending : {"gpkg", "shp", "geojson", "csv"}) {
            SCOPED_TRACE(in + " " + ending);
            const std::string out = "out." + ending;
            const test::Result run = divide(in, "--overwrite --perpendicular 1 --share 1/3 -o " + out);
            ASSERT_EQ(run.status, 0) << run.err;
            const GDALDatasetUniquePtr written = open(out);
            ASSERT_NE(written, nullptr);
            int points = 0;
            for (const OGRFeatureUniquePtr& feature : *written->GetLayer(0)) {
                const OGRGeometry* geometry = feature->GetGeometryRef();
                if (geometry == nullptr || wkbFlatten(geometry->getGeometryType()) != wkbPolygon)
                    continue;
                for (const OGRPoint& p : *geometry->toPolygon()->getExteriorRing()) {
                    EXPECT_TRUE(p.Is3D());
                    EXPECT_NEAR(p.getZ(), 100.0 + p.getX() / 10.0 + p.getY() / 5.0, 1e-9);
                    ++points;
                }
            }
            EXPECT_EQ(points, 10);
        }
        const nlohmann::json got =
            nlohmann::json::parse(divide(in, "--perpendicular 1 --share 1/3 --json").out);
        const nlohmann::json from = got["parcels"][0]["lines"][0]["from"];
        EXPECT_NEAR(from["z"], 100.0 + double(from["e"]) / 10.0 + double(from["n"]) / 5.0, 1e-4);
    }
    const test::Result set_out =
        run({"stakeout", "lot.csv", "--station", "1", "--orientation", "2", "--point", "3", "--csv"});
    EXPECT_NE(set_out.out.find("point,E,N,Z,angle_gon"), std::string::npos) << set_out.out;
    EXPECT_NE(set_out.out.find("vertex 3,80.0000,40.0000,116.0000,"), std::string::npos) << set_out.out;
}

TEST_F(Writer, WhereSomeVerticesHaveHeights)
{
    write("lot.csv", "E,N,Z\n0,0,100\n80,0,\n80,40,116\n0,40,108\n");
    const test::Result run = divide("lot.csv", "--parallel 1 --share 1/2 -o out.gpkg");
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out.rfind("Parcel  lot.csv (not every vertex has a height)\n", 0), 0u) << run.out;
    EXPECT_NE(run.out.find("Some shapes are written without heights, because a vertex has none: lot.csv\n"),
              std::string::npos)
        << run.out;
    EXPECT_NE(run.out.find("  20.0000   104.0000\n"), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("  20.0000          -\n"), std::string::npos) << run.out;
    EXPECT_FALSE(
        OGRFeatureUniquePtr(open("out.gpkg")->GetLayer(0)->GetNextFeature())->GetGeometryRef()->Is3D());
}

// The shapes of a layer that have heights, by the number of their parcel, with all their heights. Each shape once.
std::multiset<std::string> heights_in(OGRLayer& layer)
{
    std::multiset<std::string> shapes;
    for (const OGRFeatureUniquePtr& feature : layer) {
        const OGRGeometry* const shape = feature->GetGeometryRef();
        std::string text = feature->GetFieldAsString("parcel");
        if (shape == nullptr) {
            text += " nothing";
        } else if (shape->Is3D()) {
            text += ":";
            const OGRLineString* const line = wkbFlatten(shape->getGeometryType()) == wkbPolygon
                                                  ? shape->toPolygon()->getExteriorRing()
                                                  : shape->toLineString();
            for (int i = 0; i + 1 < line->getNumPoints(); ++i)
                text += " " + std::string(CPLSPrintf("%g", line->getZ(i)));
        }
        shapes.insert(text);
    }
    return shapes;
}

// Of four parcels the second has no heights, the third is refused, and the fourth lacks one at its North-East.
TEST_F(Writer, WhereSomeParcelsHaveHeights)
{
    write("lots.csv", "lot,E,N,Z\n"
                      "1,0,0,1\n1,50,0,1\n1,50,50,3\n1,0,50,3\n"
                      "2,50,0,\n2,100,0,\n2,100,50,\n2,50,50,\n"
                      "3,100,0,5\n3,150,50,6\n3,150,0,7\n3,100,60,8\n"
                      "4,150,0,1\n4,200,0,1\n4,200,50,\n4,150,50,3\n");
    const std::string asked = "lots.csv";
    const auto split = [&](const std::string& out) {
        return divide("lots.csv",
                      "--parallel 1 --share 1/2 --crs LOCAL_CS[\"site\",UNIT[\"metre\",1]] -o " + out);
    };
    const std::string told =
        "Some shapes are written without heights, because a vertex has none: lots.csv (lot 4)\n";
    for (const std::string ending : {"gpkg", "sqlite", "geojson", "csv"}) {
        SCOPED_TRACE(ending);
        const test::Result run = split("out." + ending);
        EXPECT_EQ(run.status, 3) << run.err;
        EXPECT_NE(run.out.find("\n" + told), std::string::npos) << run.out;
        const GDALDatasetUniquePtr out = open("out." + ending);
        ASSERT_NE(out, nullptr);
        EXPECT_EQ(heights_in(*out->GetLayer(0)),
                  (std::multiset<std::string>{"1: 2 1 1 2", "1: 2 3 3 2", "2", "2", "3: 5 6 7 8", "4", "4"}));
        const bool is_text = ending == "geojson" || ending == "csv";
        const GDALDatasetUniquePtr beside = is_text ? open("out-lines." + ending) : nullptr;
        OGRLayer* const lines = is_text ? beside->GetLayer(0) : out->GetLayer(1);
        EXPECT_EQ(heights_in(*lines), (std::multiset<std::string>{"1: 2", "2", "4"}));
    }
    for (const char* layer : {"pieces", "lines"}) {
        const GDALDatasetUniquePtr out = open("out.gpkg");
        OGRLayer* const optional = out->ExecuteSQL(
            ("SELECT z FROM gpkg_geometry_columns WHERE table_name = '" + std::string(layer) + "'").c_str(),
            nullptr, nullptr);
        EXPECT_EQ(OGRFeatureUniquePtr(optional->GetNextFeature())->GetFieldAsInteger(0), 2) << layer;
        out->ReleaseResultSet(optional);
    }
    const struct {
        const char* file;
        const char* why;
    } rows[] = {
        {"out.shp", "some vertices have none, and this format (ESRI Shapefile) holds all or none"},
        {"out.fgb", "some vertices have none, and this format (FlatGeobuf) holds all or none"},
        {"out.mif", "this format (MapInfo File) holds none"},
    };
    for (const auto& row : rows) {
        const test::Result run = split(row.file);
        EXPECT_NE(run.out.find("Heights are not written: " + std::string(row.why) +
                               "; write a GeoPackage (.gpkg) to keep them\n"),
                  std::string::npos)
            << run.out << run.err;
        EXPECT_EQ(run.out.find("Some shapes"), std::string::npos);
        for (const std::string& shape : heights_in(*open(row.file)->GetLayer(0)))
            EXPECT_EQ(shape.size(), 1u) << row.file << " " << shape;
    }
    // LandXML and the points of a drawing tell each height for itself.
    EXPECT_EQ(split("out.xml").out.find("heights"), std::string::npos);
    const std::string xml = content("out.xml");
    for (const char* point : {">0 150 1<", ">50 200<", ">25 150 2<", ">25 200<", ">25 75<", ">0 100 5<"})
        EXPECT_EQ(xml.find(point) != std::string::npos, std::string(point) != ">25 75<") << point;
    EXPECT_NE(split("out.dxf").out.find(told), std::string::npos);
    std::multiset<std::string> shapes;
    const GDALDatasetUniquePtr drawing = open("out.dxf");
    OGRWktOptions iso;
    iso.variant = wkbVariantIso;
    for (const OGRFeatureUniquePtr& entity : *drawing->GetLayer(0))
        shapes.insert(std::string(entity->GetFieldAsString("Layer")) + " " +
                      entity->GetGeometryRef()->exportToWkt(iso).substr(0, 15));
    EXPECT_EQ(shapes.count("pieces LINESTRING Z (5") + shapes.count("pieces LINESTRING Z (0"), 2u);
    EXPECT_EQ(shapes.count("undivided LINESTRING Z (1"), 1u);
    EXPECT_EQ(shapes.count("points POINT Z (0 25 2"), 1u);
    EXPECT_EQ(shapes.count("points POINT Z (150 25"), 1u);
    EXPECT_EQ(shapes.count("points POINT (200 25)"), 1u);
}

// Heights in layers that do not say so, and parcels without a geometry beside others.
TEST_F(Writer, HeightsOfLayersThatAreCalledFlat)
{
    GDALAllRegister();
    GDALDatasetUniquePtr made(GetGDALDriverManager()->GetDriverByName("GPKG")->Create(
        path("flat.gpkg").c_str(), 0, 0, 0, GDT_Unknown, nullptr));
    OGRLayer* const layer = made->CreateLayer("lots", nullptr, wkbPolygon);
    for (const char* wkt : {"POLYGON Z ((0 0 1, 50 0 1, 50 50 3, 0 50 3, 0 0 1))", "",
                            "POLYGON Z ((50 0 1, 100 0 1, 100 50 3, 50 50 3, 50 0 1))"}) {
        const OGRFeatureUniquePtr feature(OGRFeature::CreateFeature(layer->GetLayerDefn()));
        OGRGeometry* shape = nullptr;
        OGRGeometryFactory::createFromWkt(wkt, nullptr, &shape);
        feature->SetGeometryDirectly(shape);
        ASSERT_EQ(layer->CreateFeature(feature.get()), OGRERR_NONE);
    }
    made.reset();
    const test::Result run = divide("flat.gpkg", "--parallel 1 --share 1/2 -o out.shp");
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out.find("eights"), std::string::npos) << run.out;
    EXPECT_EQ(heights_in(*open("out.shp")->GetLayer(0)),
              (std::multiset<std::string>{"1: 2 2 1 1", "1: 2 2 3 3", "3: 2 2 1 1", "3: 2 2 3 3"}));
}

TEST_F(Writer, ManyWithTheRefusedUndivided)
{
    write_lots();
    const test::Result run = divide("lots.geojson", "--vertex 1 --share 25% -o halves");
    EXPECT_EQ(run.status, 3);
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.out, "Divided  2 of 3 parcels\n"
                       "Refused  1 in lots.geojson\n"
                       "  1: the boundary crosses or touches itself (feature 2)\n"
                       "Written  halves.gpkg\n");
    EXPECT_EQ(files(), (std::set<std::string>{"halves.gpkg", "lots.geojson"}));
    const GDALDatasetUniquePtr out = open("halves.gpkg");
    ASSERT_NE(out, nullptr);
    OGRLayer* const pieces = out->GetLayerByName("pieces");
    EXPECT_EQ(pieces->GetFeatureCount(), 5);
    EXPECT_EQ(out->GetLayerByName("lines")->GetFeatureCount(), 2);
    pieces->SetAttributeFilter("parcel = 2");
    const OGRFeatureUniquePtr refused(pieces->GetNextFeature());
    ASSERT_NE(refused, nullptr);
    EXPECT_STREQ(refused->GetFieldAsString("status"), "refused: the boundary crosses or touches itself");
    EXPECT_STREQ(refused->GetFieldAsString("owner"), "Neri");
    EXPECT_FALSE(refused->IsFieldSetAndNotNull(refused->GetFieldIndex("share")));
    EXPECT_EQ(refused->GetGeometryRef()->toPolygon()->getExteriorRing()->getNumPoints(), 5);
}

// ---------------------------------------------------------------------------------------------------- drawings

// What a drawing holds, from the group codes of the file itself: layer and kind of each entity, and its values.
struct Entity {
    std::string kind;
    std::multimap<int, std::string> values;

    std::string value(int code) const
    {
        const auto found = values.find(code);
        return found != values.end() ? found->second : "";
    }
};

struct Drawing {
    std::map<std::string, std::string> variables;  // of the header, by name
    std::map<std::string, std::string> colours;    // of the layers, by name
    std::set<std::string> handles;
    bool handles_differ = true;
    std::vector<Entity> entities;

    explicit Drawing(const std::string& text)
    {
        std::istringstream lines(text);
        std::string section, table, variable, layer;
        for (std::string code, value; std::getline(lines, code) && std::getline(lines, value);) {
            const int group = std::stoi(code);
            if (group == 2 && (section.empty() || section == "next"))
                section = value;
            else if (group == 0 && value == "SECTION")
                section = "next";
            else if (section == "HEADER" && group == 9)
                variable = value;
            else if (section == "HEADER")
                variables.emplace(variable, value);
            else if (section == "TABLES" && group == 0)
                table = value;
            else if (section == "TABLES" && table == "LAYER" && group == 2)
                layer = value;
            else if (section == "TABLES" && table == "LAYER" && group == 62)
                colours[layer] = value;
            else if (section == "ENTITIES" && group == 0 && value != "ENDSEC")
                entities.push_back({value, {}});
            else if (section == "ENTITIES" && !entities.empty())
                entities.back().values.emplace(group, value);
            if (group == 5 && section != "HEADER")
                handles_differ = handles.insert(value).second && handles_differ;
        }
    }

    std::vector<Entity> on(const std::string& layer) const
    {
        std::vector<Entity> found;
        for (const Entity& entity : entities)
            if (entity.value(8) == layer)
                found.push_back(entity);
        return found;
    }
};

TEST_F(Writer, ADrawingIsReadyToBeWorkedOn)
{
    write_lots();
    const test::Result run = divide("lots.geojson", "--feature 1 --parallel 1 --areas 1000,1/3 -o out.dxf");
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_NE(run.out.find("Written  out.dxf\n"), std::string::npos) << run.out;
    EXPECT_EQ(files(), (std::set<std::string>{"lots.geojson", "out.dxf"})) << "one file";
    const Drawing drawing(content("out.dxf"));
    EXPECT_EQ(std::stoi(drawing.variables.at("$INSUNITS")), 6) << "metres";
    EXPECT_EQ(std::stoi(drawing.variables.at("$MEASUREMENT")), 1) << "metric";
    EXPECT_TRUE(drawing.handles_differ);
    for (const auto& [layer, colour] : {std::pair("pieces", 3),
                                        {"lines", 1},
                                        {"points", 5},
                                        {"point_labels", 5},
                                        {"labels", 7},
                                        {"undivided", 6}})
        EXPECT_EQ(std::stoi(drawing.colours.at(layer)), colour) << layer;

    const std::vector<Entity> pieces = drawing.on("pieces");
    ASSERT_EQ(pieces.size(), 3u);
    for (const Entity& piece : pieces) {
        EXPECT_EQ(piece.kind, "LWPOLYLINE");
        EXPECT_EQ(std::stoi(piece.value(70)), 1) << "closed";
        EXPECT_EQ(std::stoi(piece.value(90)), 4) << "no vertex twice";
        EXPECT_EQ(piece.values.count(10), 4u);
        EXPECT_EQ(piece.value(62), "") << "colour of the layer";
    }
    ASSERT_EQ(drawing.on("lines").size(), 2u);
    for (const Entity& line : drawing.on("lines")) {
        EXPECT_EQ(line.kind, "LWPOLYLINE");
        EXPECT_EQ(std::stoi(line.value(70)), 0) << "open";
    }
    ASSERT_EQ(drawing.on("points").size(), 4u);
    for (const Entity& point : drawing.on("points"))
        EXPECT_EQ(point.kind, "POINT");
    std::set<std::string> labels;
    for (const Entity& label : drawing.on("labels")) {
        EXPECT_EQ(label.kind, "MTEXT");
        labels.insert(label.value(1));
        EXPECT_NEAR(std::stod(label.value(40)), std::sqrt(1000.0) / 12.0, 1e-4)
            << "it fits the smallest piece";
    }
    EXPECT_EQ(drawing.on("point_labels").size(), 4u);
    for (const Entity& label : drawing.on("point_labels"))
        labels.insert(label.value(1));
    EXPECT_EQ(labels, (std::set<std::string>{"P1", "P2", "P3", "P4", "A\\P1000.0000\\Pasked\\~1000.0000",
                                             "B\\P2000.0000\\Pasked\\~2000.0000", "C\\P3000.0000\\Prest"}));
    EXPECT_EQ(drawing.entities.size(), 3u + 2u + 4u + 7u);
}

TEST_F(Writer, ADrawingHasTheUnitOfTheCrs)
{
    struct Row {
        const char* crs;
        int unit;
        int metric;
    };
    for (const Row& row : {Row{"EPSG::32632", 6, 1}, {"EPSG::2263", 21, 0}, {"EPSG::2222", 2, 0}}) {
        SCOPED_TRACE(row.crs);
        write("lot.geojson",
              std::string(R"({"type": "FeatureCollection", "crs": {"type": "name", "properties":
            {"name": "urn:ogc:def:crs:)") +
                  row.crs + R"("}}, "features": [{"type": "Feature", "id": 1,
            "properties": {}, "geometry": {"type": "Polygon", "coordinates":
            [[[500000, 500000], [500100, 500000], [500100, 500060], [500000, 500000]]]}}]})");
        ASSERT_EQ(divide("lot.geojson", "--parallel 1 --parts 2 -o out.dxf --overwrite").status, 0);
        const Drawing drawing(content("out.dxf"));
        EXPECT_EQ(std::stoi(drawing.variables.at("$INSUNITS")), row.unit);
        EXPECT_EQ(std::stoi(drawing.variables.at("$MEASUREMENT")), row.metric);
    }
    write_wkt("POLYGON ((0 0, 80 0, 80 50, 0 50, 0 0))");
    ASSERT_EQ(divide("lot.csv", "--parallel 1 --parts 2 -o out.dxf --overwrite").status, 0);
    EXPECT_EQ(std::stoi(Drawing(content("out.dxf")).variables.at("$INSUNITS")), 0) << "nobody knows";
    // Numbers as in the table of the format's reference; PROJ's names.
    for (const Row& row : {Row{"in", 1, 0},
                           {"ft", 2, 0},
                           {"mm", 4, 1},
                           {"cm", 5, 1},
                           {"m", 6, 1},
                           {"km", 7, 1},
                           {"yd", 10, 0},
                           {"us-ft", 21, 0},
                           {"fath", 0, 1}}) {
        SCOPED_TRACE(row.crs);
        const test::Result run =
            this->run({"divide", "lot.csv", "--crs", std::string("+proj=utm +zone=32 +units=") + row.crs,
                       "--any-scale", "--parallel", "1", "--parts", "2", "-o", "out.dxf", "--overwrite"});
        ASSERT_EQ(run.status, 0) << run.err;
        const Drawing drawing(content("out.dxf"));
        EXPECT_EQ(std::stoi(drawing.variables.at("$INSUNITS")), row.unit);
        EXPECT_EQ(std::stoi(drawing.variables.at("$MEASUREMENT")), row.metric);
    }
}

// Half a disc of radius 50, refused for its arc, is drawn with chords.
TEST_F(Writer, ADrawingShowsRefusedArcsToo)
{
    write("lots.csv",
          "id,WKT\n1,\"POLYGON ((0 0, 100 0, 100 60, 0 60, 0 0))\"\n"
          "2,\"CURVEPOLYGON (COMPOUNDCURVE ((200 0, 300 0), CIRCULARSTRING (300 0, 250 50, 200 0)))\"\n");
    EXPECT_EQ(divide("lots.csv", "--parallel 1 --area 1000 -o out.dxf").status, 3);
    const test::Result undivided = run({"measure", "out.dxf", "--layer", "undivided"});
    ASSERT_EQ(undivided.status, 0) << undivided.err;
    const double half_disc = 1250.0 * std::acos(-1.0);
    EXPECT_NEAR(test::numbers_after(undivided.out, "Area").at(0), half_disc, 0.002 * half_disc);
    // GDAL takes a chord for four degrees: 45 of them, and the side between their ends.
    const std::vector<Entity> drawn = Drawing(content("out.dxf")).on("undivided");
    EXPECT_EQ(std::count_if(drawn.begin(), drawn.end(),
                            [](const Entity& entity) {
                                return entity.kind == "LWPOLYLINE" && entity.value(90) == "46";
                            }),
              1);
}

TEST_F(Writer, ADrawingShowsTheRefusedUndivided)
{
    write("lots.csv",
          "id,WKT\n1,\"POLYGON ((0 0, 100 0, 100 60, 0 60, 0 0))\"\n2,\"POLYGON ((0 0, 9 x))\"\n"
          "3,\"POLYGON ((0 0, 1 0, 1 1, 0 1, 0 0))\"\n"
          "4,\"MULTIPOLYGON (((200 0, 210 0, 210 10, 200 0)), ((220 0, 230 0, 230 10, 220 0)))\"\n");
    const test::Result divided = divide("lots.csv", "--parallel 1 --area 1000 -o out.dxf");
    EXPECT_EQ(divided.status, 3) << divided.err;
    EXPECT_NE(divided.out.find("Written  out.dxf\n"), std::string::npos) << divided.out;
    const Drawing drawing(content("out.dxf"));
    EXPECT_EQ(drawing.on("pieces").size(), 2u);
    EXPECT_EQ(drawing.on("undivided").size(), 3u + 3u)
        << "with their reasons, a square and two triangles; what is no geometry cannot be drawn";
    std::multiset<std::string> vertices;
    for (const Entity& entity : drawing.on("undivided"))
        if (entity.kind == "LWPOLYLINE")
            vertices.insert(entity.value(90));
    EXPECT_EQ(vertices, (std::multiset<std::string>{"3", "3", "4"}))
        << "they are closed without the first once more";
    std::set<std::string> labels;
    for (const char* layer : {"labels", "point_labels", "undivided"})
        for (const Entity& label : drawing.on(layer))
            if (label.kind == "MTEXT")
                labels.insert(std::string(layer) + " " +
                              label.value(1).substr(0, label.value(1).find("\\~")));
    EXPECT_EQ(labels, (std::set<std::string>{"labels 1a\\P1000.0000\\Pasked", "labels 1b\\P5000.0000\\Prest",
                                             "point_labels P1", "point_labels P2", "undivided refused:"}));
    // Read again, a parcel has the name of its piece; neither a point nor a refusal names one.
    const test::Result again = run({"measure", "out.dxf", "--layer", "pieces", "--csv"});
    EXPECT_NE(again.out.find(",1a,"), std::string::npos) << again.out << again.err;
    EXPECT_NE(again.out.find(",1b,"), std::string::npos) << again.out << again.err;
    const test::Result undivided = run({"measure", "out.dxf", "--layer", "undivided", "--csv"});
    EXPECT_EQ(undivided.out.find("refused"), std::string::npos) << undivided.out;
    const test::Result points =
        run({"measure", "out.dxf", "--layer", "pieces", "--name-layer", "point_labels"});
    EXPECT_NE(points.out.find("P"), std::string::npos) << points.out;
    // Two are several.
    write("two.csv", "id,WKT\n1,\"POLYGON ((0 0, 100 0, 100 60, 0 60, 0 0))\"\n"
                     "2,\"POLYGON ((200 0, 300 0, 300 60, 200 60, 200 0))\"\n");
    ASSERT_EQ(divide("two.csv", "--parallel 1 --area 1000 -o two.dxf").status, 0);
    EXPECT_NE(content("two.dxf").find("1a\\P1000.0000"), std::string::npos);
    ASSERT_EQ(divide("lots.csv", "--parallel 1 --area 1000 -o out.csv").status, 3);
    EXPECT_EQ(open("out.csv")->GetLayer(0)->GetFeatureCount(), 6);
}

// Where it lies is all that is known of it.
TEST_F(Writer, ADrawingShowsARefusedPointToo)
{
    write("lots.csv",
          "id,WKT\n1,\"POLYGON ((0 0, 100 0, 100 60, 0 60, 0 0))\"\n2,\"MULTIPOLYGON (((300 300)))\"\n");
    EXPECT_EQ(divide("lots.csv", "--parallel 1 --area 1000 -o out.dxf").status, 3);
    const std::vector<Entity> point = Drawing(content("out.dxf")).on("undivided");
    ASSERT_EQ(point.size(), 2u) << "with its reason";
    for (const Entity& entity : point)
        EXPECT_EQ(std::stod(entity.value(10)), 300.0) << entity.kind;
}

TEST_F(Writer, PointsAndCsvSources)
{
    write("points.csv", "E,N\n0,0\n100,0\n100,60\n0,60\n");
    ASSERT_EQ(divide("points.csv", "--parallel 1 --parts 2 -o points.gpkg").status, 0);
    const GDALDatasetUniquePtr points = open("points.gpkg");
    EXPECT_EQ(points->GetLayerByName("pieces")->GetFeatureCount(), 2);
    EXPECT_LT(points->GetLayerByName("pieces")->GetLayerDefn()->GetFieldIndex("E"), 0)
        << "columns of vertices";
    write("table.csv", "lot,owner,point,E,N\nA,Rossi,1,0,0\nA,Rossi,2,9,0\nA,Rossi,3,9,9\n"
                       "B,Neri,1,20,0\nB,Neri,2,29,0\nB,Neri,3,29,9\n");
    ASSERT_EQ(divide("table.csv", "--vertex 1 --parts 2 -o table.gpkg").status, 0);
    const GDALDatasetUniquePtr table = open("table.gpkg");
    OGRLayer* const lots = table->GetLayerByName("pieces");
    ASSERT_EQ(lots->GetFeatureCount(), 4);
    const OGRFeatureUniquePtr last(lots->GetFeature(4));
    EXPECT_STREQ(last->GetFieldAsString("lot"), "B");
    EXPECT_STREQ(last->GetFieldAsString("owner"), "Neri");
    EXPECT_EQ(last->GetFieldAsInteger("parcel"), 2);
    EXPECT_LT(lots->GetLayerDefn()->GetFieldIndex("point"), 0) << "columns of vertices";
    write("lots.csv", "id,WKT,note\n007,\"POLYGON ((0 0, 100 0, 100 60, 0 60, 0 0))\",good\n");
    ASSERT_EQ(divide("lots.csv", "--parallel 1 --parts 2 -o lots.gpkg").status, 0);
    const GDALDatasetUniquePtr out = open("lots.gpkg");
    OGRLayer* const pieces = out->GetLayerByName("pieces");
    EXPECT_LT(pieces->GetLayerDefn()->GetFieldIndex("WKT"), 0) << "geometry is not a column as well";
    const OGRFeatureUniquePtr piece(pieces->GetNextFeature());
    EXPECT_STREQ(piece->GetFieldAsString("id"), "007");
    EXPECT_STREQ(piece->GetFieldAsString("note"), "good");
    EXPECT_EQ(pieces->GetSpatialRef() != nullptr && pieces->GetSpatialRef()->IsProjected(), false);
}

TEST_F(Writer, NothingIsOverwrittenUnasked)
{
    write_lots();
    write("out.gpkg", "mine");
    write("out-lines.shp", "mine");
    const std::string cut = "--feature 1 --parallel 1 --parts 2 -o ";
    EXPECT_TRUE(
        test::fails_with(divide("lots.geojson", cut + "out.gpkg"), 2,
                         "out.gpkg: the file exists already; choose another name or add --overwrite"));
    EXPECT_TRUE(
        test::fails_with(divide("lots.geojson", cut + "out.shp"), 2,
                         "out-lines.shp: the file exists already; choose another name or add --overwrite"));
    EXPECT_EQ(content("out.gpkg"), "mine");
    EXPECT_EQ(content("out-lines.shp"), "mine");
    EXPECT_EQ(files(), (std::set<std::string>{"lots.geojson", "out-lines.shp", "out.gpkg"}));
    EXPECT_EQ(divide("lots.geojson", cut + "out.gpkg --overwrite").status, 0);
    EXPECT_NE(open("out.gpkg"), nullptr);
}

TEST_F(Writer, RefusalsLeaveNothingBehind)
{
    write_lots();
    EXPECT_EQ(divide("lots.geojson", "--feature 1 --parallel 1 --area 7000 -o out.gpkg").status, 4);
    EXPECT_EQ(divide("lots.geojson", "--feature 2 --parallel 1 --area 1000 -o out.gpkg").status, 3);
    EXPECT_TRUE(
        test::fails_with(divide("lots.geojson", "--parallel 1 --parts 2 -o out.foo"), 2,
                         "--output: no format with the ending of 'out.foo' can be written and read "
                         "back to the last digit; write a GeoPackage (.gpkg); see plcalc divide --help"));
    EXPECT_TRUE(
        test::fails_with(divide("lots.geojson", "--parallel 1 --parts 2 -o nowhere/out.gpkg"), 1,
                         "nowhere/out.gpkg: the file cannot be written (No such file or directory); check "
                         "the folder and its permissions"));
    EXPECT_EQ(divide("lots.geojson", "--parallel 1 --parts 2 -o out.tab").status, 2) << "coarse coordinates";
    EXPECT_TRUE(test::fails_with(divide("lots.geojson", "--parallel 1 --parts 2 -o out.xlsx"), 2,
                                 "out.xlsx: this format (XLSX) cannot store geometry; write a "
                                 "GeoPackage (.gpkg)"));
    EXPECT_EQ(files(), (std::set<std::string>{"lots.geojson"}));
}

// A project's file holds more than the divisions.
TEST_F(Writer, OtherLayersOfADatabaseStay)
{
    write_lots();
    for (const std::string ending : {"gpkg", "sqlite"}) {
        SCOPED_TRACE(ending);
        const std::string name = "project." + ending;
        GDALDriver& driver = *GetGDALDriverManager()->GetDriverByName(ending == "gpkg" ? "GPKG" : "SQLite");
        {
            const GDALDatasetUniquePtr project(
                driver.Create(path(name).c_str(), 0, 0, 0, GDT_Unknown, nullptr));
            for (const char* layer : {"parcels", "Lines", "buildings"}) {
                OGRLayer& made = *project->CreateLayer(layer, nullptr, wkbPoint);
                OGRFeature feature(made.GetLayerDefn());
                ASSERT_EQ(made.CreateFeature(&feature), OGRERR_NONE);
            }
        }
        const std::string cut = "--feature 1 --parallel 1 --parts 3 -o " + name;
        EXPECT_EQ(divide("lots.geojson", cut).status, 2);
        for (int round = 0; round < 2; ++round) {
            ASSERT_EQ(divide("lots.geojson", cut + " --overwrite").status, 0);
            const GDALDatasetUniquePtr project = open(name);
            std::set<std::string> layers;
            for (OGRLayer* layer : project->GetLayers())
                layers.insert(layer->GetName() + std::string(" ") + std::to_string(layer->GetFeatureCount()));
            EXPECT_EQ(layers, (std::set<std::string>{"parcels 1", "buildings 1", "pieces 3", "lines 2"}));
        }
    }
    // A refusal leaves everything as it was.
    const std::string before = content("project.gpkg");
    EXPECT_EQ(
        divide("lots.geojson", "--feature 1 --parallel 1 --area 1e7 --overwrite -o project.gpkg").status, 4);
    EXPECT_EQ(content("project.gpkg"), before);
    // Changes that a program has not yet put into the file would be lost.
    write("project.gpkg-wal", "something");
    EXPECT_TRUE(test::fails_with(
        divide("lots.geojson", "--feature 1 --parallel 1 --parts 2 --overwrite -o project.gpkg"), 2,
        "project.gpkg: another program is at work on the file, or was stopped ('project.gpkg-wal' is beside "
        "it); close the file there, or choose another name"));
    EXPECT_EQ(content("project.gpkg"), before);
}

TEST_F(Writer, ToTheStandardOutput)
{
    write_lots();
    for (const std::string ending : {"geojson", "gpkg", "dxf", "csv"}) {
        const test::Result run =
            divide("lots.geojson", "--feature 1 --parallel 1 --parts 3 -o - --format " + ending);
        EXPECT_EQ(run.status, 0) << run.err;
        EXPECT_EQ(run.err, "");
        write("copy." + ending, run.out);
        EXPECT_EQ(open("copy." + ending)->GetLayer(0)->GetFeatureCount(), ending == "dxf" ? 16 : 3) << ending;
    }
    const test::Result some = divide("lots.geojson", "--vertex 1 --share 1/2 -o - --format geojson");
    EXPECT_EQ(some.status, 3);
    EXPECT_EQ(some.err,
              "Divided  2 of 3 parcels\nRefused  1 in lots.geojson\n  1: the boundary crosses or touches "
              "itself (feature 2)\n");
    EXPECT_EQ(nlohmann::json::parse(some.out)["features"].size(), 5u);
    struct Row {
        const char* options;
        const char* text;
    };
    for (const Row& row :
         {Row{"-o -",
              "-o -: name the format by its ending, as in --format geojson; see plcalc divide --help"},
          {"-o - --format geojson --json",
           "-o -: the standard output holds the pieces; leave --json out; see plcalc divide --help"},
          {"-o - --format tab",
           "--format: no format with the ending 'tab' can be written and read back to the last "
           "digit; see plcalc divide --help"},
          {"-o - --format xlsx",
           "the standard output: this format (XLSX) cannot store geometry; write a GeoPackage (.gpkg)"},
          {"-o - --format shp",
           "-o -: a Shapefile is several files; choose another --format, such as gpkg; see plcalc divide "
           "--help"},
          {"-o out.gpkg --format geojson",
           "--format is for -o -; the ending of a file chooses its format; see plcalc divide --help"}})
        EXPECT_TRUE(test::fails_with(
            divide("lots.geojson", std::string("--feature 1 --parallel 1 --parts 2 ") + row.options), 2,
            row.text));
    EXPECT_TRUE(
        test::fails_with(divide("lots.geojson", "--feature 1 --parallel 1 --parts 2 -o - --format gpx"), 1,
                         "the standard output: the file could not be written (Geometry type of "
                         "`Polygon' not supported in GPX); try another format, such as GeoPackage "
                         "(.gpkg)"));
    EXPECT_EQ(files(),
              (std::set<std::string>{"copy.csv", "copy.dxf", "copy.geojson", "copy.gpkg", "lots.geojson"}));
}

TEST_F(Writer, ALinkLeadsToTheFile)
{
    write_lots();
    std::filesystem::create_directory(path("store"));
    std::filesystem::create_symlink("store/out.gpkg", path("link.gpkg"));
    const std::string cut = "--feature 1 --parallel 1 --parts 2 --plan plan.svg -o link.gpkg";
    std::filesystem::create_symlink("store/plan.svg", path("plan.svg"));
    for (const char* overwrite : {"", " --overwrite"}) {
        const test::Result run = divide("lots.geojson", cut + overwrite);
        ASSERT_EQ(run.status, 0) << run.err;
        EXPECT_TRUE(std::filesystem::is_symlink(path("link.gpkg")));
        EXPECT_TRUE(std::filesystem::is_symlink(path("plan.svg")));
        EXPECT_NE(open("store/out.gpkg"), nullptr);
        EXPECT_NE(content("store/plan.svg"), "");
    }
    EXPECT_TRUE(
        test::fails_with(divide("lots.geojson", cut), 2,
                         "link.gpkg: the file exists already; choose another name or add --overwrite"));
    std::filesystem::create_symlink("round.gpkg", path("round.gpkg"));
    EXPECT_TRUE(test::fails_with(divide("lots.geojson", "--feature 1 --parallel 1 --parts 2 -o round.gpkg"),
                                 2, "round.gpkg: the link leads back to itself; choose another name"));
}

// A run that is killed cannot tidy up. A folder of the same name that a living run has is left alone.
TEST_F(Writer, WhatAKilledRunLeftIsRemoved)
{
    write_lots();
    for (const char* folder : {".plcalc-killed", ".plcalc-living", ".plcalc-other-name"})
        std::filesystem::create_directory(path(folder));
    for (const char* file : {".plcalc-killed/out.gpkg", ".plcalc-living/out.gpkg", ".plcalc-a-file"})
        write(file, "half");
    const int living = ::open(path(".plcalc-living").c_str(), O_RDONLY);
    ASSERT_EQ(flock(living, LOCK_EX), 0);
    ASSERT_EQ(divide("lots.geojson", "--feature 1 --parallel 1 --parts 2 -o out.shp").status, 0);
    std::set<std::string> left = files();
    EXPECT_EQ(left.count(".plcalc-killed"), 0u);
    EXPECT_EQ(left.count(".plcalc-living") + left.count(".plcalc-other-name") + left.count(".plcalc-a-file"),
              3u);
    close(living);
    ASSERT_EQ(divide("lots.geojson", "--feature 1 --parallel 1 --parts 2 -o out.gpkg").status, 0);
    EXPECT_EQ(files().count(".plcalc-living"), 0u);
}

// The pieces would take the place of everything else that the file holds.
TEST_F(Writer, TheSourceIsNeverReplaced)
{
    write_lots();
    const std::string before = content("lots.geojson");
    std::filesystem::create_symlink("lots.geojson", path("symlink.geojson"));
    std::filesystem::create_hard_link(path("lots.geojson"), path("hardlink.geojson"));
    for (const char* name : {"lots.geojson", "./lots.geojson", "symlink.geojson", "hardlink.geojson"}) {
        SCOPED_TRACE(name);
        for (const char* overwrite : {"", " --overwrite"})
            EXPECT_TRUE(test::fails_with(
                divide("lots.geojson", std::string("--parallel 1 --parts 2 -o ") + name + overwrite), 2,
                std::string(name) + ": the parcels come from this file; choose another name"));
    }
    EXPECT_EQ(content("lots.geojson"), before);
    EXPECT_EQ(files(), (std::set<std::string>{"hardlink.geojson", "lots.geojson", "symlink.geojson"}));
}

// Nor is a file that belongs to it: a Shapefile is several.
// Lists, tables, lines and title blocks are the user's as the parcels are.
TEST_F(Writer, NothingElseThatIsReadIsReplaced)
{
    const std::string kept = "name,E,N\nS1,-5,-5\nS2,0,-50\n";
    write("lot.csv", "name,E,N\n1,0,0\n2,100,0\n3,100,50\n4,0,50\n");
    write("lots.csv", "name,WKT\nx,\"POLYGON((0 0,100 0,100 50,0 50,0 0))\"\n");
    const struct {
        std::string file;
        std::string content;
        std::string arguments;
    } rows[] = {
        {"control.csv", kept,
         "stakeout lot.csv --control control.csv --station S1 --orientation S2 --points control.csv"},
        {"list.csv", kept,
         "stakeout lot.csv --points-from list.csv --station 1 --orientation 2 --points list.csv"},
        {"areas.csv", "name,a\nx,500\n", "divide lots.csv --parallel 1 --areas areas.csv --points areas.csv"},
        {"areas.csv", "name,a\nx,500\n", "divide lots.csv --parallel 1 --areas areas.csv -o ./areas.csv"},
        {"road.csv", "name,WKT\nr,\"LINESTRING(-100 -5,200 -5)\"\n",
         "divide lots.csv --parallel --along road.csv --area 500 -o road.csv"},
        {"block.txt", "Client=Rossi\n",
         "divide lots.csv --parallel 1 --area 500 --plan plan.pdf --title-block block.txt --report "
         "block.txt"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.arguments);
        write(row.file, row.content);
        std::istringstream words(row.arguments + " --overwrite");
        const test::Result run = this->run({std::istream_iterator<std::string>(words), {}});
        EXPECT_EQ(run.status, 2);
        EXPECT_NE(run.err.find(row.file + ": this file is read; choose another name"), std::string::npos)
            << run.err;
        std::ifstream file(path(row.file));
        EXPECT_EQ(std::string(std::istreambuf_iterator<char>(file), {}), row.content);
    }
    EXPECT_TRUE(test::fails_with(
        divide("lots.csv", "--parallel 1 --area 500 -o out.csv --points out-lines.csv --overwrite"), 2,
        "'out-lines.csv' is the name of two outputs; name each of them differently; see plcalc divide "
        "--help"));
}

TEST_F(Writer, NoPartOfTheSourceIsReplaced)
{
    write_lots();
    ASSERT_EQ(divide("lots.geojson", "--feature 1 --parallel 1 --parts 2 -o lots.shp").status, 0);
    const std::string columns = content("lots.dbf");
    for (const char* name : {"lots.shp", "lots.dbf"})
        EXPECT_TRUE(test::fails_with(
            divide("lots.shp", std::string("--feature 0 --parallel 1 --parts 2 --overwrite -o ") + name), 2,
            std::string(name) + ": the parcels come from this file; choose another name"));
    EXPECT_TRUE(
        test::fails_with(divide("lots.dbf", "--feature 0 --parallel 1 --parts 2 --overwrite -o lots.shp"), 2,
                         "lots.shp: the parcels come from this file; choose another name"));
    EXPECT_EQ(content("lots.dbf"), columns);
}

TEST_F(Writer, JsonNamesTheFiles)
{
    write_lots();
    const test::Result run =
        divide("lots.geojson", "--feature 1 --parallel 1 --parts 2 --json -o out.geojson");
    ASSERT_EQ(run.status, 0) << run.err;
    const nlohmann::json got = nlohmann::json::parse(run.out);
    EXPECT_EQ(got["written"], (nlohmann::json{"out.geojson", "out-lines.geojson"}));
}

}  // namespace
