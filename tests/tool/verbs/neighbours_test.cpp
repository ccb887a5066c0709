// Neighbours that get the new points of a division, as files hold them.

#include <cmath>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <nlohmann/json.hpp>

#include "program.h"

namespace {

using Geometries = std::vector<std::unique_ptr<OGRGeometry>>;

class Neighbours : public test::ProgramTest {
protected:
    Neighbours()
    {
        GDALAllRegister();
        CPLPushErrorHandler(CPLQuietErrorHandler);
    }
    ~Neighbours() override { CPLPopErrorHandler(); }

    static std::string feature(int id, const std::string& lot, const std::string& geometry)
    {
        return R"({"type": "Feature", "id": )" + std::to_string(id) + R"(, "properties": {"lot": ")" + lot +
               R"("}, "geometry": )" + geometry + "}";
    }

    static std::string polygon(const std::string& rings)
    {
        return R"({"type": "Polygon", "coordinates": [)" + rings + "]}";
    }

    void write_layer(const std::vector<std::string>& features, const std::string& name = "lots.geojson") const
    {
        std::string text;
        for (const std::string& one : features)
            text += (text.empty() ? "" : ",\n") + one;
        write(name, R"({"type": "FeatureCollection",
            "crs": {"type": "name", "properties": {"name": "urn:ogc:def:crs:EPSG::25832"}}, "features": [)" +
                        text + "]}");
    }

    //     +-----------------------+
    //     |          1/3          |    Three lots in UTM; the third has the whole northern side of both others,
    //     +-----------+-----------+    with their common corner.
    //     |    1/1    |    1/2    |
    //     +-----------+-----------+
    void write_lots() const
    {
        write_layer({feature(1, "1/1",
                             polygon("[[500000.12,5200000.34],[500050.77,5200003.11],"
                                     "[500047.3,5200050.9],[499997.1,5200047.4],[500000.12,5200000.34]]")),
                     feature(2, "1/2",
                             polygon("[[500050.77,5200003.11],[500101.3,5200006.2],"
                                     "[500098.2,5200054.1],[500047.3,5200050.9],[500050.77,5200003.11]]")),
                     feature(3, "1/3",
                             polygon("[[499997.1,5200047.4],[500047.3,5200050.9],[500098.2,5200054.1],"
                                     "[500095.0,5200099.0],[499994.0,5200092.0],[499997.1,5200047.4]]"))});
    }

    GDALDatasetUniquePtr open(const std::string& name) const
    {
        return GDALDatasetUniquePtr(
            GDALDataset::Open(path(name).c_str(), GDAL_OF_VECTOR, nullptr, nullptr, nullptr));
    }

    // The polygons of a layer; those of features with other numbers than `without`.
    Geometries polygons(const std::string& name, const std::string& layer, GIntBig without = -1) const
    {
        Geometries found;
        const GDALDatasetUniquePtr dataset = open(name);
        OGRLayer* const from = dataset != nullptr ? dataset->GetLayerByName(layer.c_str()) : nullptr;
        EXPECT_NE(from, nullptr) << name << " " << layer;
        if (from != nullptr)
            for (const OGRFeatureUniquePtr& feature : *from)
                if (feature->GetFID() != without)
                    found.emplace_back(feature->GetGeometryRef()->clone());
        return found;
    }

    std::string content(const std::string& name) const
    {
        std::ifstream file(path(name));
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }
};

void append(Geometries& all, Geometries more)
{
    for (std::unique_ptr<OGRGeometry>& one : more)
        all.push_back(std::move(one));
}

// What GEOS says of polygons that should lie side by side.
std::string objection(const Geometries& shapes)
{
    OGRMultiPolygon all;
    double area = 0.0;
    for (const auto& shape : shapes) {
        all.addGeometry(shape.get());
        area += shape->toSurface()->get_Area();
    }
    const std::unique_ptr<OGRGeometry> covered(all.UnionCascaded());
    if (covered == nullptr || wkbFlatten(covered->getGeometryType()) != wkbPolygon)
        return "apart";
    if (covered->toPolygon()->getNumInteriorRings() > 0)
        return "a gap";
    if (!(std::fabs(covered->toPolygon()->get_Area() - area) < 1e-7))
        return "areas";
    for (std::size_t i = 0; i < shapes.size(); ++i)
        for (std::size_t k = 0; k < i; ++k) {
            const std::unique_ptr<OGRGeometry> shared(shapes[i]->Intersection(shapes[k].get()));
            if (shared == nullptr || (!shared->IsEmpty() && shared->getDimension() > 1))
                return "an overlap";
        }
    return "";
}

TEST_F(Neighbours, OfOneParcelGetItsPoints)
{
    write_lots();
    const std::string asked = "--feature 1 --perpendicular 1 --share 1/2 ";
    const test::Result run = divide("lots.geojson", asked + "--neighbours -o out.gpkg");
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_NE(run.out.find("\nShared   1 neighbour has got 1 point\n"), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("No area has changed by more than 0.00"), std::string::npos) << run.out;
    Geometries all = polygons("out.gpkg", "pieces");
    append(all, polygons("out.gpkg", "neighbours"));
    ASSERT_EQ(all.size(), 3u);
    append(all, polygons("lots.geojson", "lots", 1));
    all.erase(all.begin() + 4);  // 1/3 as it was
    ASSERT_EQ(all.size(), 4u);
    EXPECT_EQ(objection(all), "");
    const GDALDatasetUniquePtr dataset = open("out.gpkg");
    const OGRFeatureUniquePtr neighbour(dataset->GetLayerByName("neighbours")->GetNextFeature());
    EXPECT_STREQ(neighbour->GetFieldAsString("lot"), "1/3");
    EXPECT_EQ(neighbour->GetFieldAsInteger("parcel"), 3);
    EXPECT_EQ(neighbour->GetFieldAsInteger("points"), 1);
    EXPECT_NEAR(neighbour->GetFieldAsDouble("area"), neighbour->GetGeometryRef()->toPolygon()->get_Area(),
                1e-5);
    // To whole decimetres the point lies well beside the side, and the neighbour is larger or smaller by as much.
    ASSERT_EQ(
        divide("lots.geojson", asked + "--neighbours -o coarse.gpkg --decimals 1 --tolerance 1%").status, 0);
    const GDALDatasetUniquePtr coarse = open("coarse.gpkg");
    const OGRFeatureUniquePtr changed(coarse->GetLayerByName("neighbours")->GetNextFeature());
    const double before = polygons("lots.geojson", "lots", 1).at(1)->toPolygon()->get_Area();
    const double change = changed->GetGeometryRef()->toPolygon()->get_Area() - before;
    EXPECT_GT(std::fabs(change), 0.01);
    EXPECT_NEAR(changed->GetFieldAsDouble("change"), change, 1e-5);
    // Without the points it is not so.
    ASSERT_EQ(divide("lots.geojson", asked + "-o bare.gpkg").status, 0);
    Geometries bare = polygons("bare.gpkg", "pieces");
    append(bare, polygons("lots.geojson", "lots", 1));
    EXPECT_NE(objection(bare), "");
    EXPECT_EQ(open("bare.gpkg")->GetLayerByName("neighbours"), nullptr);
}

TEST_F(Neighbours, ThatAreDividedTooGetEachOthersPoints)
{
    write_lots();
    for (const char* cut : {"--perpendicular 1 --share 1/3",
                            "--bearing 35d --pieces any --parts 7 --decimals 1", "--vertex 1 --share 1/3"}) {
        const test::Result run =
            divide("lots.geojson", cut + std::string(" --neighbours --overwrite -o out.gpkg --tolerance 1%"));
        ASSERT_EQ(run.status, 0) << run.err;
        EXPECT_EQ(objection(polygons("out.gpkg", "pieces")), "") << cut;
        EXPECT_NE(run.out.find("\nShared   0 neighbours have got 0 points, and the pieces "),
                  std::string::npos)
            << run.out;
        // There are none but these: the layer is there, and empty.
        EXPECT_TRUE(polygons("out.gpkg", "neighbours").empty());
    }
}

TEST_F(Neighbours, OfAnEarlierRunAreReplacedOrTold)
{
    write_lots();
    const std::string one = "--feature 1 --perpendicular 1 --share 1/2 --overwrite -o out.";
    const std::string all = "--perpendicular 1 --share 1/2 --overwrite -o out.";
    for (const char* ending : {"gpkg", "geojson"}) {
        const std::string layer = std::string(ending) == "gpkg" ? "neighbours" : "out-neighbours";
        const std::string file = std::string(ending) == "gpkg" ? "out.gpkg" : "out-neighbours.geojson";
        ASSERT_EQ(divide("lots.geojson", one + ending + " --neighbours").status, 0);
        EXPECT_EQ(polygons(file, layer).size(), 1u);
        const test::Result without = divide("lots.geojson", one + ending);
        const std::string left = "\nLeft     " +
                                 std::string(layer == "neighbours" ? "layer neighbours of " : "") + file +
                                 ": not of this run, which is without --neighbours\n";
        EXPECT_NE(without.out.find(left), std::string::npos) << without.out;
        EXPECT_EQ(polygons(file, layer).size(), 1u);
        const test::Result many = divide("lots.geojson", all + ending + " --neighbours");
        EXPECT_EQ(many.out.find("Left"), std::string::npos) << many.out;
        EXPECT_EQ(polygons(file, layer).size(), 0u);
    }
}

// To whole metres a point lies decimetres beside its side.
TEST_F(Neighbours, KeepHeightsBesideRoundedPoints)
{
    // A lot whose height is below zero has none.
    const auto lots = [&](double first, double second, double third) {
        const auto z = [](double height) { return height < 0.0 ? "" : "," + std::to_string(height); };
        write_layer(
            {feature(1, "a",
                     polygon("[[501000,5202000" + z(first) + "],[501101.37,5202007.77" + z(first) +
                             "],[501100,5202100" + z(first) + "],[501000,5202100" + z(first) +
                             "],[501000,5202000" + z(first) + "]]")),
             feature(2, "b",
                     polygon("[[501000,5202000" + z(second) + "],[501010,5201900" + z(second) +
                             "],[501100,5201900" + z(second) + "],[501101.37,5202007.77" + z(second) +
                             "],[501000,5202000" + z(second) + "]]")),
             feature(3, "c",
                     polygon("[[501300,5202000" + z(third) + "],[501310,5202000" + z(third) +
                             "],[501310,5202010" + z(third) + "],[501300,5202000" + z(third) + "]]"))});
    };
    const struct {
        const char* what;
        double first;
        double second;
        double third;
        bool pieces;      // have heights
        bool neighbours;  // likewise
        const char* asked;
    } rows[] = {
        {"all have heights", 7.0, 7.0, 7.0, true, true, "0"},
        {"to decimetres", 7.0, 7.0, 7.0, true, true, "1"},
        {"to millimetres", 7.0, 7.0, 7.0, true, true, "3"},
        {"a wide reach", 7.0, 7.0, 7.0, true, true, "3 --shared-within 0.5"},
        {"the divided parcel has none", -1.0, 7.0, 7.0, false, true, "0"},
        {"the neighbour has none", 7.0, -1.0, -1.0, true, false, "0"},
        {"a parcel far away has none", 7.0, 7.0, -1.0, true, true, "0"},
        {"only a parcel far away has some", -1.0, -1.0, 7.0, false, false, "0"},
    };
    for (const auto& row : rows) {
        lots(row.first, row.second, row.third);
        const std::string asked = "--feature 1 --perpendicular 1 --share 1/2 --tolerance 1% --overwrite "
                                  "--neighbours --decimals " +
                                  std::string(row.asked);
        const test::Result run = divide("lots.geojson", asked + " -o out.gpkg");
        ASSERT_EQ(run.status, 0) << run.err;
        EXPECT_EQ(run.out.find("Heights"), std::string::npos) << row.what << run.out;
        for (const bool is_piece : {true, false}) {
            const Geometries shapes = polygons("out.gpkg", is_piece ? "pieces" : "neighbours");
            EXPECT_EQ(shapes.size(), is_piece ? 2u : 1u) << row.what;
            const bool heights = is_piece ? row.pieces : row.neighbours;
            for (const auto& shape : shapes) {
                EXPECT_EQ(shape->Is3D() != 0, heights) << row.what << " " << is_piece;
                for (const OGRPoint& p : *shape->toPolygon()->getExteriorRing())
                    EXPECT_EQ(p.getZ(), heights ? 7.0 : 0.0) << row.what << " " << is_piece;
            }
        }
        for (const char* file : {"out.dxf", "out.xml"}) {
            ASSERT_EQ(divide("lots.geojson", asked + " -o " + file).status, 0);
            const std::string height = std::string(file) == "out.xml" ? " 7<" : "\n 38\n7\n";
            EXPECT_EQ(content(file).find(height) != std::string::npos, row.pieces || row.neighbours)
                << row.what << " " << file;
        }
    }
}

// Where only one of two neighbours has heights, none is made up for the other.
TEST_F(Neighbours, OfWhichSomeHaveHeightsKeepThem)
{
    write_layer(
        {feature(
             1, "a",
             polygon(
                 "[[501000,5202000],[501100,5202000],[501100,5202100],[501000,5202100],[501000,5202000]]")),
         feature(2, "b",
                 polygon("[[501000,5202000,5],[501000,5201900,5],[501100,5201900,5],[501100,5202000,5],"
                         "[501000,5202000,5]]")),
         feature(3, "c", polygon("[[501000,5202100],[501100,5202100],[501100,5202200],[501000,5202100]]"))});
    const std::string asked = "--feature 1 --perpendicular 1 --share 1/2 --neighbours ";
    const test::Result run = divide("lots.geojson", asked + "-o out.gpkg");
    EXPECT_EQ(run.out.find("eights"), std::string::npos) << run.out;
    const Geometries shapes = polygons("out.gpkg", "neighbours");
    ASSERT_EQ(shapes.size(), 2u);
    EXPECT_NE(shapes[0]->Is3D(), shapes[1]->Is3D());
    for (const auto& shape : shapes)
        for (const OGRPoint& p : *shape->toPolygon()->getExteriorRing())
            EXPECT_EQ(p.getZ(), shape->Is3D() ? 5.0 : 0.0);
    // A Shapefile would have them at zero.
    const std::string told =
        "Heights of neighbours are not written: some vertices have none, and this format (ESRI "
        "Shapefile) holds all or none; write a GeoPackage (.gpkg) to keep them\n";
    const test::Result flat = divide("lots.geojson", asked + "-o out.shp");
    EXPECT_NE(flat.out.find("\n" + told), std::string::npos) << flat.out;
    for (const auto& shape : polygons("out-neighbours.shp", "out-neighbours"))
        EXPECT_FALSE(shape->Is3D());
    const test::Result json = divide("lots.geojson", asked + "--overwrite -o out.shp --json");
    EXPECT_EQ(json.err, told);
    EXPECT_EQ(nlohmann::json::parse(json.out)["neighbours"]["points"], 2);
}

TEST_F(Neighbours, AreTheSameWithAnyNumberOfJobs)
{
    write_lots();
    for (const char* jobs : {"1", "3"})
        ASSERT_EQ(divide("lots.geojson", "--perpendicular 1 --share 1/3 --neighbours -o jobs" +
                                             std::string(jobs) + ".geojson --jobs " + jobs)
                      .status,
                  0);
    std::string one = content("jobs1.geojson");
    std::string three = content("jobs3.geojson");
    EXPECT_EQ(one.substr(one.find("features")), three.substr(three.find("features")));
}

TEST_F(Neighbours, ThatAreRefusedGetPoints)
{
    write_lots();
    const test::Result run = divide("lots.geojson", "--perpendicular 1 --area 2300 --neighbours -o out.gpkg");
    EXPECT_EQ(run.status, 0) << run.err;
    const test::Result refused =
        divide("lots.geojson", "--perpendicular 1 --area 3000 --neighbours --overwrite -o out.gpkg");
    EXPECT_EQ(refused.status, 4) << refused.err;
    EXPECT_NE(refused.out.find("Divided  1 of 3 parcels"), std::string::npos) << refused.out;
    EXPECT_NE(refused.out.find("1 neighbour has got 1 point"), std::string::npos) << refused.out;
    EXPECT_EQ(objection(polygons("out.gpkg", "pieces")), "");
}

// What is wrong is the request; the boundary is there, and gets its points.
TEST_F(Neighbours, WhoseOwnRequestFailsGetPoints)
{
    write_lots();
    write("areas.csv", "lot,area\n1/1,1/2\n");
    const test::Result run =
        divide("lots.geojson", "--perpendicular 1 --areas areas.csv --neighbours -o out.gpkg");
    EXPECT_EQ(run.status, 3) << run.err;
    EXPECT_NE(run.out.find("\nShared   1 neighbour has got 1 point\n"), std::string::npos) << run.out;
    EXPECT_EQ(run.out.find("Unread"), std::string::npos) << run.out;
    EXPECT_EQ(objection(polygons("out.gpkg", "pieces")), "");
    // All sides of the second are as long.
    write_layer({feature(1, "a",
                         polygon("[[501000,5202000],[501100,5202000],[501100,5202060],[501000,5202061],"
                                 "[501000,5202000]]")),
                 feature(2, "b",
                         polygon("[[501000,5202061],[501100,5202060],[501101,5202160],[501001,5202161],"
                                 "[501000,5202061]]"))});
    const test::Result tie = divide(
        "lots.geojson", "--perpendicular --side longest --share 1/2 --neighbours --overwrite -o out.gpkg");
    EXPECT_NE(tie.out.find("fit equally well"), std::string::npos) << tie.out;
    EXPECT_NE(tie.out.find("\nShared   1 neighbour has got 1 point\n"), std::string::npos) << tie.out;
    EXPECT_EQ(objection(polygons("out.gpkg", "pieces")), "");
}

TEST_F(Neighbours, GoThroughEveryFormat)
{
    write_lots();
    const std::string asked = "--feature 1 --perpendicular 1 --share 1/2 --neighbours ";
    const test::Result run = divide("lots.geojson", asked + "-o out.geojson");
    ASSERT_EQ(run.status, 0) << run.err;
    for (const char* file : {"out.geojson", "out-lines.geojson", "out-neighbours.geojson"})
        EXPECT_NE(run.out.find("Written  " + std::string(file) + "\n"), std::string::npos) << run.out;
    EXPECT_EQ(polygons("out-neighbours.geojson", "out-neighbours").size(), 1u);
    ASSERT_EQ(divide("lots.geojson", asked + "-o out.shp").status, 0);
    EXPECT_EQ(polygons("out-neighbours.shp", "out-neighbours").size(), 1u);
    ASSERT_EQ(divide("lots.geojson", asked + "-o out.dxf").status, 0);
    EXPECT_NE(content("out.dxf").find("\nneighbours\n"), std::string::npos);
    EXPECT_EQ(this->run({"measure", "out.dxf", "--layer", "neighbours"}).status, 0);
    ASSERT_EQ(divide("lots.geojson", asked + "-o out.xml").status, 0);
    EXPECT_NE(content("out.xml").find("desc=\"neighbour with new points: 1\" state=\"existing\""),
              std::string::npos);
    const test::Result stdout_only = divide("lots.geojson", asked + "-o - --format dxf");
    EXPECT_EQ(stdout_only.status, 0) << stdout_only.err;
    EXPECT_NE(stdout_only.out.find("\nneighbours\n"), std::string::npos);
    EXPECT_EQ(stdout_only.err, "");
    // No neighbour gets any: the layer is there, and empty.
    ASSERT_EQ(divide("lots.geojson",
                     "--feature 1 --vertex 1 --share 1/2 --decimals 1 --tolerance 1% --neighbours "
                     "-o none.gpkg")
                  .status,
              0);
    EXPECT_NE(open("none.gpkg")->GetLayerByName("neighbours"), nullptr);
}

TEST_F(Neighbours, KeepHeightsHolesAndParts)
{
    // The hole of the first is the second part of the second feature, whose first part lies to the East.
    write_layer(
        {feature(1, "a",
                 polygon("[[501000,5202000,10],[501100,5202000,20],[501100,5202100,20],[501000,5202100,10],"
                         "[501000,5202000,10]],[[501040,5202040,10],[501040,5202060,10],[501063,5202061,20],["
                         "501060,5202040,20],"
                         "[501040,5202040,10]]")),
         feature(
             2, "b",
             R"({"type": "MultiPolygon", "coordinates": [[[[501100,5202000,20],[501150,5202000,30],[501150,5202100,30],
                             [501100,5202100,20],[501100,5202000,20]]],[[[501040,5202040,10],[501060,5202040,20],[501063,5202061,20],
                             [501040,5202060,10],[501040,5202040,10]]]]})")});
    const test::Result run =
        divide("lots.geojson", "--feature 1 --perpendicular 1 --share 1/2 --neighbours -o "
                               "out.gpkg --pieces any");
    ASSERT_EQ(run.status, 0) << run.err;
    Geometries all = polygons("out.gpkg", "pieces");
    const Geometries neighbours = polygons("out.gpkg", "neighbours");
    ASSERT_EQ(neighbours.size(), 1u);
    EXPECT_TRUE(neighbours[0]->Is3D());
    EXPECT_EQ(neighbours[0]->toPolygon()->getExteriorRing()->getNumPoints(), 7);
    for (const OGRPoint& p : *neighbours[0]->toPolygon()->getExteriorRing())
        EXPECT_TRUE(p.getZ() >= 10.0 && p.getZ() <= 20.0) << p.getZ();
    append(all, polygons("out.gpkg", "neighbours"));
    EXPECT_EQ(objection(all), "");
    // Rounded points that lie well beside their sides have heights all the same.
    const test::Result coarse =
        divide("lots.geojson", "--feature 1 --perpendicular 1 --share 1/2 --neighbours -o coarse.gpkg "
                               "--pieces any --decimals 0 --tolerance 1%");
    ASSERT_EQ(coarse.status, 0) << coarse.err;
    EXPECT_TRUE(polygons("coarse.gpkg", "neighbours")[0]->Is3D());
    // One part is divided; the other is its neighbour no less than the rest.
    const test::Result part =
        divide("lots.geojson", "--feature 2 --part 2 --perpendicular 1 --share 1/2 --neighbours "
                               "-o part.gpkg --json");
    ASSERT_EQ(part.status, 0) << part.err;
    const nlohmann::json counts = nlohmann::json::parse(part.out)["neighbours"];
    EXPECT_EQ(counts["parcels"], 1);
    EXPECT_EQ(counts["points"], 2);
    EXPECT_EQ(counts["left_out"], 0);
}

// The neighbour's corner lies half a millimetre inside the lot, on a side of 50 of the right piece: 50 * 0.0005 / 2 less.
TEST_F(Neighbours, WhatAPieceLosesIsTold)
{
    write_layer(
        {feature(
             1, "a",
             polygon(
                 "[[501000,5202000],[501100,5202000],[501100,5202100],[501000,5202100],[501000,5202000]]")),
         feature(2, "b",
                 polygon("[[501070,5202000.0005],[501070,5201900],[501100,5201900],[501100,5202000],["
                         "501070,5202000.0005]]"))});
    const test::Result run =
        divide("lots.geojson", "--feature 1 --perpendicular 1 --share 1/2 --neighbours -o out.gpkg");
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_NE(run.out.find("\n         No area has changed by more than 0.0130\n"), std::string::npos)
        << run.out;
}

TEST_F(Neighbours, BesideACornerAreTold)
{
    write_layer(
        {feature(
             1, "a",
             polygon(
                 "[[501000,5202000],[501100,5202000],[501100,5202100],[501000,5202100],[501000,5202000]]")),
         feature(2, "b",
                 polygon("[[501000,5202000],[501000,5201900],[501050.0004,5201900],[501050.0004,5202000],["
                         "501000,5202000]]")),
         feature(3, "c",
                 polygon("[[501050.0004,5202000],[501050.0004,5201900],[501100,5201900],[501100,5202000],"
                         "[501050.0004,5202000]]"))});
    const std::string asked = "--feature 1 --perpendicular 1 --share 1/2 --neighbours -o out.gpkg ";
    const test::Result run = divide("lots.geojson", asked);
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_NE(
        run.out.find("\nGaps     2 corners of neighbours have a new point within 0.001 (at most 0.0004"),
        std::string::npos)
        << run.out;
    const nlohmann::json told =
        nlohmann::json::parse(divide("lots.geojson", asked + "--overwrite --json").out)["neighbours"];
    EXPECT_EQ(told["points_beside"], 2);
    EXPECT_NEAR(told["farthest_beside"], 0.0004, 1e-9);
    const test::Result standard =
        divide("lots.geojson", "--feature 1 --perpendicular 1 --share 1/2 --neighbours -o - --format dxf");
    EXPECT_EQ(standard.err.rfind("Gaps     2 corners of neighbours have a new point within 0.001", 0), 0u)
        << standard.err;
    EXPECT_EQ(standard.out.find("Gaps"), std::string::npos);
    const test::Result nearer = divide("lots.geojson", asked + "--overwrite --shared-within 0.0001");
    EXPECT_EQ(nearer.out.find("Gaps"), std::string::npos) << nearer.out;
    EXPECT_NE(nearer.out.find("1 neighbour has got 1 point, and the pieces 1 point of their neighbours"),
              std::string::npos)
        << nearer.out;
    // A corner of a neighbour stands there already.
    ASSERT_EQ(divide("lots.geojson", asked + "--overwrite --shared-within 0.0001 --points list.csv --report "
                                             "report.txt --plan plan.svg")
                  .status,
              0);
    EXPECT_EQ(content("list.csv")
                  .rfind("name,E,N,code\nP1,501050.0000,5202000.0000,NEW\n"
                         "P2,501050.0000,5202100.0000,NEW\n"
                         "N1,501050.0004,5202000.0000,CORNER\n1,501000.0000,",
                         0),
              0u)
        << content("list.csv");
    const std::string report = content("report.txt");
    EXPECT_NE(report.find("\nCorners of neighbours\n"), std::string::npos) << report;
    EXPECT_LT(report.find("P2"), report.find("Corners of neighbours")) << report;
    EXPECT_LT(report.find("Corners of neighbours"), report.find("N1")) << report;
    const std::string plan = content("plan.svg");
    EXPECT_NE(plan.find(">N1<"), std::string::npos);
    EXPECT_EQ(plan.find(">P3<"), std::string::npos);
    // A line that ends at such a corner makes no new point of it.
    ASSERT_EQ(divide("lots.geojson", "--feature 1 --perpendicular 1 --area 4999.96 --neighbours --decimals 4 "
                                     "--overwrite -o out.gpkg --points list.csv")
                  .status,
              0);
    EXPECT_EQ(content("list.csv")
                  .rfind("name,E,N,code\nN1,501050.0004,5202000.0000,CORNER\n"
                         "P1,501050.0004,5202100.0000,NEW\n1,501000.0000,",
                         0),
              0u)
        << content("list.csv");
}

TEST_F(Neighbours, CornersKeepTheirDigits)
{
    write_layer(
        {feature(
             1, "a",
             polygon("[[501000.12345678,5202000.12345678],[501100,5202000],[501100,5202100],[501000,5202100],"
                     "[501000.12345678,5202000.12345678]]")),
         feature(2, "b",
                 polygon("[[501000.12345678,5202000.12345678],[501100,5202000],[501100,5201900],"
                         "[501000.12345678,5202000.12345678]]"))});
    ASSERT_EQ(divide("lots.geojson", "--feature 1 --vertex 1 --share 1/3 --neighbours -o out.gpkg").status,
              0);
    Geometries all = polygons("out.gpkg", "pieces");
    append(all, polygons("lots.geojson", "lots", 1));
    EXPECT_EQ(objection(all), "");
}

TEST_F(Neighbours, ThatCannotBeReadAreTold)
{
    // The second lies so far East that its scale is off.
    write_layer(
        {feature(1, "a", polygon("[[501000,5202000],[501100,5202000],[501100,5202100],[501000,5202000]]")),
         feature(2, "b",
                 polygon("[[1901000,5202000],[1901100,5202000],[1901100,5202100],[1901000,5202000]]"))});
    const test::Result run =
        divide("lots.geojson", "--feature 1 --perpendicular 1 --share 1/2 --neighbours -o out.gpkg");
    ASSERT_EQ(run.status, 0) << run.err;
    const std::string told = "\nUnread   1 parcel of the layer cannot be read: without new points\n";
    EXPECT_NE(run.out.find(told), std::string::npos) << run.out;
    const test::Result all =
        divide("lots.geojson", "--perpendicular 1 --share 1/2 --neighbours --overwrite -o out.gpkg");
    EXPECT_EQ(all.status, 3) << all.err;
    EXPECT_NE(all.out.find(told), std::string::npos) << all.out;
}

TEST_F(Neighbours, WhatIsAskedWronglyIsRefused)
{
    write_lots();
    const std::string cut = "--perpendicular 1 --share 1/2 ";
    const struct {
        std::string asked;
        std::string message;
    } rows[] = {
        {"--neighbours", "--neighbours writes parcels; name a file with -o; see plcalc divide --help"},
        {"-o out.gpkg --shared-within 1",
         "--shared-within is about neighbours; add --neighbours; see plcalc divide --help"},
        {"-o out.gpkg --neighbours --shared-within 0", "--shared-within: '0' is not a number above 0, with a "
                                                       "point before the decimals; see plcalc divide --help"},
        {"-o - --format geojson --neighbours",
         "--neighbours: this format holds the pieces only; name a file with -o; see plcalc divide --help"},
    };
    for (const auto& row : rows)
        EXPECT_TRUE(test::fails_with(divide("lots.geojson", cut + row.asked), 2, row.message)) << row.asked;
    EXPECT_EQ(open("out.gpkg"), nullptr);
}

// The line's end (40, 0.4) becomes (40, 0). There a spike of the neighbour below stands, up to (40, 0.2): with the point its
// boundary would run into the spike.
TEST_F(Neighbours, ABoundaryThatWouldMeetItselfIsToldOf)
{
    const std::string lot = "lot;WKT\n1;\"POLYGON ((0 0, 100 1, 100 51, 0 50, 0 0))\"\n";
    const std::string spiked = "\"POLYGON ((100 1, 0 0, 0 -50, 39 -50, 40 0.2, 41 -50, 100 -50, 100 1))\"\n";
    for (const bool twice : {false, true}) {
        write("lots.csv", lot + "2;" + spiked + (twice ? "3;" + spiked : ""));
        const test::Result run = divide("lots.csv", "--feature 1 --bearing 0 --area 3000 --decimals 0 "
                                                    "--neighbours -o out.gpkg --overwrite");
        ASSERT_EQ(run.status, 0) << run.err;
        EXPECT_NE(run.out.find(twice ? "\nGaps     2 boundaries would meet themselves with their points: not "
                                       "inserted\n"
                                     : "\nGaps     1 boundary would meet itself with its points: not "
                                       "inserted\n"),
                  std::string::npos)
            << run.out;
        EXPECT_NE(run.out.find("\nShared   0 neighbours have got 0 points\n"), std::string::npos) << run.out;
    }
}

}  // namespace
