// The program on parcels whose dividing lines are known beforehand: tests/data/divisions.csv, computed with
// exact rational arithmetic by divisions.py beside it.

#include <cmath>

#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include "program.h"

namespace {

class Divisions : public test::ProgramTest {};

double distance(const std::vector<double>& p, const std::vector<double>& q)
{
    return std::hypot(p[0] - q[0], p[1] - q[1]);
}

std::vector<double> point(const OGRFeature& row, const char* name)
{
    const std::string e = std::string(name) + "_e";
    const std::string n = std::string(name) + "_n";
    return {row.GetFieldAsDouble(e.c_str()), row.GetFieldAsDouble(n.c_str())};
}

TEST_F(Divisions, EndsWhereExactArithmeticPutsThem)
{
    GDALAllRegister();
    const std::string file = PLCALC_DATA "/divisions.csv";
    const GDALDatasetUniquePtr table(GDALDataset::Open(file.c_str(), GDAL_OF_VECTOR));
    ASSERT_NE(table, nullptr);
    int rows = 0;
    for (const OGRFeatureUniquePtr& row : *table->GetLayer(0)) {
        ++rows;
        SCOPED_TRACE(row->GetFieldAsString("name"));
        const test::Result run =
            divide(file, std::string("--feature ") + std::to_string(row->GetFID()) + " --" +
                             row->GetFieldAsString("cut") + " " + row->GetFieldAsString("number") +
                             " --area " + row->GetFieldAsString("area"));
        ASSERT_EQ(run.status, 0) << run.err;
        EXPECT_EQ(run.err, "");

        const std::vector<double> from = test::numbers_after(run.out, "from");
        const std::vector<double> to = test::numbers_after(run.out, "to");
        ASSERT_EQ(from.size(), 2u);
        ASSERT_EQ(to.size(), 2u);
        const std::vector<double> wanted_from = point(*row, "from");
        const std::vector<double> wanted_to = point(*row, "to");
        // The search stops at 1e-6 of the area that it looks for, and the table rounds to 1e-4.
        const double parcel = test::numbers_after(run.out, "parcel").at(0);
        const double tolerance = 4e-6 * parcel / distance(wanted_from, wanted_to) + 1e-4;
        EXPECT_LE(distance(from, wanted_from), tolerance) << run.out;
        EXPECT_LE(distance(to, wanted_to), tolerance) << run.out;
        EXPECT_NEAR(test::numbers_after(run.out, "cut off").at(0), row->GetFieldAsDouble("area"),
                    1e-6 * parcel);
    }
    EXPECT_EQ(rows, 15);
}

// Area and midpoint as published: 18 414.82, and (325.13; 360.57), which are cut, not rounded, to the
// centimetre. The line at right angles to DA through that midpoint parts the parcel in 6115.4955 and 12299.3216
// (exact arithmetic).
TEST_F(Divisions, PublishedParcelHasThePublishedFigures)
{
    for (const char* file : {"published.csv", "published.geojson"}) {
        const test::Result run =
            divide(std::string(PLCALC_EXAMPLES "/") + file, "--perpendicular 4 --area 6115.495453730264");
        ASSERT_EQ(run.status, 0) << run.err;
        EXPECT_NEAR(test::numbers_after(run.out, "parcel").at(0), 18414.82, 0.005);
        EXPECT_NEAR(test::numbers_after(run.out, "from").at(0), 325.13, 0.01);
        EXPECT_NEAR(test::numbers_after(run.out, "from").at(1), 360.57, 0.01);
        EXPECT_NEAR(test::numbers_after(run.out, "rest").at(0), 12299.3216, 0.02);
        EXPECT_NEAR(test::numbers_after(run.out, "Perimeter").at(0), 575.7244, 0.0001);
    }
}

// What a person sees, to the blank. Half of a rectangle is the first line that the search tries.
TEST_F(Divisions, TableReadsLikeThis)
{
    write("lot.csv", "E,N\n0,0\n80,0\n80,50\n0,50\n");
    const test::Result run = divide("lot.csv", "--parallel 1 --product 40 50");
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.out, "Parcel  lot.csv\n"
                       "        4 vertices, anticlockwise\n"
                       "Cut     parallel to side 1, from vertex 1 to vertex 2\n"
                       "Asked   40 x 50\n"
                       "\n"
                       "Dividing line                    E          N\n"
                       "  from                      0.0000    25.0000\n"
                       "  to                       80.0000    25.0000\n"
                       "\n"
                       "Area\n"
                       "  requested              2000.0000\n"
                       "  cut off, along side 1  2000.0000\n"
                       "  rest                   2000.0000\n"
                       "  parcel                 4000.0000\n"
                       "Perimeter                 260.0000\n");
    EXPECT_EQ(run.status, 0);
}

TEST_F(Divisions, PieceWithTheRequestIsNamed)
{
    write("lot.csv", "E,N\n0,0\n80,0\n80,50\n0,50\n");
    EXPECT_NE(divide("lot.csv", "--parallel 4 --area 1000").out.find("  cut off, along side 4 "),
              std::string::npos);
    EXPECT_NE(
        divide("lot.csv", "--perpendicular 4 --area 1000").out.find("  cut off, ahead towards vertex 1 "),
        std::string::npos);
    EXPECT_NE(divide("lot.csv", "--perpendicular 4 --area 1000")
                  .out.find("Cut     perpendicular to side 4, from vertex 4 to vertex 1\n"),
              std::string::npos);
    EXPECT_NE(divide("lot.csv", "--vertex 4 --area 1000").out.find("  cut off, along side 4 "),
              std::string::npos);
}

}  // namespace
