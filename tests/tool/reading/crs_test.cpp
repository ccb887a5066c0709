// What is advised where coordinates are not plane.

#include "reading/crs.h"

#include <string>

#include <gtest/gtest.h>

#include "console/outcome.h"

namespace {

// Zones are six degrees wide, and wider in Norway and Svalbard: a twentieth of a degree to both sides of their edges.
TEST(Crs, DegreesAreProjectedToTheirUtmZone)
{
    const struct {
        double east;
        double north;
        int epsg;
    } rows[] = {{-179.95, 10, 32601}, {-174.05, 10, 32601}, {-173.95, 10, 32602}, {179.95, 10, 32660},
                {5.95, -10, 32731},   {6.05, -10, 32732},   {5.95, 55.95, 32631}, {5.95, 56.05, 32632},
                {2.95, 60, 32631},    {3.05, 60, 32632},    {11.95, 60, 32632},   {12.05, 60, 32633},
                {5.95, 63.95, 32632}, {5.95, 64.05, 32631}, {6.5, 71.95, 32632},  {6.5, 72.05, 32631},
                {-0.05, 75, 32630},   {0.05, 75, 32631},    {8.95, 75, 32631},    {9.05, 75, 32633},
                {20.95, 75, 32633},   {21.05, 75, 32635},   {32.95, 75, 32635},   {33.05, 75, 32637},
                {41.95, 75, 32637},   {42.05, 75, 32638}};
    const OGRSpatialReference degrees = tool::crs_named("EPSG:4326");
    const tool::Source source;
    for (const auto& row : rows) {
        tool::Parcel parcel;
        parcel.ring = {{row.east - 0.02, row.north - 0.01},
                       {row.east + 0.02, row.north - 0.01},
                       {row.east, row.north + 0.01}};
        try {
            tool::PlaneCheck(source).require(&degrees, true, parcel);
            ADD_FAILURE() << "not refused";
        } catch (const tool::Failure& failure) {
            EXPECT_NE(tool::sentence(failure).find(" -t_srs EPSG:" + std::to_string(row.epsg) + ","),
                      std::string::npos)
                << row.east << " " << row.north << ": " << tool::sentence(failure);
        }
    }
}

// At 52.5 degrees North. On a sphere a cone that is true to scale at 43 and 62 degrees has lengths from East to West that
// are n (G - latitude) / cos(latitude) of those on the ground, where n = (cos 43 - cos 62) / (62 - 43) = 0.7897 and
// G = cos 43 / n + 43 = 1.6766 in radians: 0.986. From South to North they are true, as on the plate of squares, which
// stretches by 1 / cos 60 = 2 at 60 degrees what runs from East to West.
TEST(Crs, TheScaleIsThatWhichDiffersMost)
{
    const tool::ScaleOf cone(tool::crs_named("ESRI:102031"));
    EXPECT_NEAR(cone.at({0.0, 2.503e6}).value(), 0.986, 0.002);
    const tool::ScaleOf squares(tool::crs_named("EPSG:4087"));
    EXPECT_NEAR(squares.at({0.0, 60 * 111320.0}).value(), 2.0, 0.01);
}

}  // namespace
