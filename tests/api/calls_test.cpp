// What an application's compiler sees: calls with and without const, what may not be called, and what is
// promised not to throw.
#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <type_traits>

#include "plcalc/plcalc.h"

namespace {

static_assert(sizeof(PL_AngleMeasType) == 4 && std::is_signed<std::underlying_type<PL_AngleMeasType>::type>(),
              "any 32-bit value is a value");
static_assert(std::is_standard_layout<ARC_2D_record>::value && offsetof(ARC_2D_record, centre) == 0,
              "an arc begins with its centre");
static_assert(!std::is_polymorphic<CFrazArea>::value, "no virtual operations");
static_assert(std::is_copy_constructible<CFrazArea>::value && !std::is_copy_assignable<CFrazArea>::value,
              "a request refers to its parcel for life");

using Point = PL_PNT2D_record;
static_assert(
    std::is_constructible<CFrazArea, CPoint3dVector&, Point, Point, int, int, double, double>::value,
    "a parcel that the caller keeps");
static_assert(
    !std::is_constructible<CFrazArea, CPoint3dVector&&, Point, Point, int, int, double, double>::value,
    "a parcel that is gone before Esegui reads it");

static_assert(noexcept(PlFunz_distance(nullptr, nullptr)), "does not allocate");
static_assert(noexcept(PlFunz_inpolygon(nullptr, nullptr, nullptr, nullptr)), "does not allocate");

TEST(Calls, VersionOfHeadersAndLibrary)
{
    const std::string numbers = std::to_string(PLCALC_VERSION_MAJOR) + "." +
                                std::to_string(PLCALC_VERSION_MINOR) + "." +
                                std::to_string(PLCALC_VERSION_PATCH);
    EXPECT_EQ(numbers, PLCALC_VERSION);
    EXPECT_EQ(numbers, PlFunz_version());
}

TEST(Calls, MatricesWithAndWithoutConst)
{
    double m[3][3];
    PlFunz_getidmatrix2d(m);
    PlFunz_translatematrix2d(10.0, 20.0, m);
    const double(&fixed)[3][3] = m;

    Point in = {1.0, 2.0};
    Point out = {};
    PlFunz_transformpnt2d(m, &in, &out);
    EXPECT_EQ(out.x, 11.0);
    PlFunz_transformpnt2d(fixed, &in, &out);
    EXPECT_EQ(out.y, 22.0);

    double x = 0.0;
    double y = 0.0;
    TrasfPt(m, 1.0, 2.0, x, y);
    EXPECT_EQ(x, 11.0);
    TrasfPt(fixed, 1.0, 2.0, x, y);
    EXPECT_EQ(y, 22.0);
}

TEST(Calls, PointersAndReferencesToVariables)
{
    Point ring[] = {{0, 0}, {1, 0}, {1, 1}, {0, 1}};
    Point inside = {0.5, 0.5};
    int count = 4;
    int rightmost = 0;
    EXPECT_TRUE(PlFunz_inpolygon(&inside, ring, &count, &rightmost));
    EXPECT_EQ(rightmost, 2);

    double tol = 0.5;
    EXPECT_TRUE(NumeroEstZero(0.5, tol));
    EXPECT_TRUE(StessoPunto(ring[0], inside, tol));
}

TEST(Calls, ArcStandsForItsCentre)
{
    ARC_2D_record arc = {};
    PlFunz_set_arc_2d(3.0, 4.0, 1.0, PL_RADIANS, 0.0, 1.0, &arc);
    const Point origin = {0.0, 0.0};
    EXPECT_EQ(PlFunz_distance(&origin, reinterpret_cast<const Point*>(&arc)), 5.0);
}

TEST(Calls, UnknownAngleUnitIsAValue)
{
    ARC_2D_record arc = {};
    PlFunz_set_arc_2d(0.0, 0.0, 1.0, static_cast<PL_AngleMeasType>(-7), 0.0, 1.0, &arc);
    EXPECT_EQ(static_cast<int>(arc.angle_type), -7);
}

}  // namespace
