// Every format the program is meant to read, written here by GDAL or by hand. Only the ring matters: all of
// them hold the same parcel, 100 by 50 with a corner at (500000, 5000000).

#include <filesystem>

#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include "program.h"
#include "reading/parcel_file.h"

namespace {

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

const char* const kLot =
    "POLYGON ((500000 5000000, 500100 5000000, 500100 5000050, 500000 5000050, 500000 5000000))";
const char* const kLotPoints = "500000,5000000\n500100,5000000\n500100,5000050\n500000,5000050\n";
const char* const kStrip = "--parallel 1 --area 1000";

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
    for (const char* header :
         {"E,N", "e,n", "East,North", "EASTING,NORTHING", "Est,Nord", "X,Y", " E , N "}) {
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
    make("plain.gpkg", "GPKG", {"lot"}, {kLot}, 0);
    expect_divided(divide("plain.gpkg", kStrip));
    make("plain.shp", "ESRI Shapefile", {"plain"}, {kLot}, 0);
    expect_divided(divide("plain.shp", kStrip));
    // GeoJSON stands for degrees by itself; here it says nothing, and they cannot be degrees.
    write("plain.geojson", R"({"type": "Polygon", "coordinates": [[[500000, 5000000], [500100, 5000000],
                               [500100, 5000050], [500000, 5000050], [500000, 5000000]]]})");
    expect_divided(divide("plain.geojson", kStrip));
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
                           {"beyond all longitudes", "360.5, 90", 0},
                           {"beyond them in the West", "-360.5, 90", 0},
                           {"beyond the pole", "360, 90.5", 0},
                           {"beyond the other pole", "360, -90.5", 0}}) {
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
        "/ Lo29), not to the East; project them first, for example with ogr2ogr -t_srs EPSG:32632"));
    // Northing first on paper, Easting first in files; a grid around a pole.
    for (const int epsg : {31467, 2393, 5514, 3031, 32661}) {
        SCOPED_TRACE(epsg);
        const std::string name = "lot" + std::to_string(epsg) + ".gpkg";
        make(name, "GPKG", {"lot"}, {kLot}, epsg);
        expect_divided(divide(name, kStrip));
    }
    make("lot.gml", "GML", {"lot"}, {kLot}, 31467);
    expect_divided(divide("lot.gml", kStrip));
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
        EXPECT_TRUE(test::fails_with(
            divide("lot.dxf", kStrip), 3,
            "lot.dxf: feature 0: the boundary has arcs; replace them with chords in the drawing first"))
            << bulge;
    }
    write("lot.dxf", dxf("0", "0"));
    EXPECT_TRUE(
        test::fails_with(divide("lot.dxf", kStrip), 3,
                         "lot.dxf: the file holds no polygon and no closed line (features: 2, the first a "
                         "LINESTRING); draw the parcel as a polygon"));
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
