#include "subdivision/turned_steps.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "plcalc/lines.h"
#include "support/bits.h"
#include "support/rings.h"
#include "survey/offsets.h"

namespace {

using plcalc::TurnedSteps;
using test::Ring;

constexpr double kGonPerRad = 63.66197723675814;

// A hundred metres at a place on the map.
Ring parcel_at(const PL_PNT2D_record& place)
{
    return {place, {place.x + 100, place.y}, {place.x + 100, place.y + 100}, {place.x, place.y + 100}};
}

TEST(TurnedSteps, AreListedWhereTheyAreFew)
{
    const struct {
        const char* what;
        PL_PNT2D_record place;
        bool few;
        bool any;
    } kRows[] = {
        {"local coordinates: rounding turns no step that counts", {1000, 1000}, true, false},
        {"a large town", {700000, 700000}, true, false},
        {"a country", {500000, 5000000}, true, true},
        {"a country, south of the equator", {500000, -5000000}, true, true},
        {"a country, x and y exchanged", {5000000, 500000}, true, true},
        {"a country, across an axis: coordinates as fine as any", {-50, 5000000}, false, false},
        {"a world in millimetres: steps beside an axis are turned", {20000000, 20000000}, false, false},
    };
    for (const auto& row : kRows) {
        SCOPED_TRACE(row.what);
        TurnedSteps steps(parcel_at(row.place), 3.0, 4.0);
        EXPECT_EQ(steps.few(), row.few);
        EXPECT_EQ(steps.to_list() > 0, row.any);
        EXPECT_FALSE(steps.between(0.0, 400.0)) << "not listed yet";
        steps.list();
        EXPECT_EQ(std::isfinite(steps.least_gon()), row.any);
        EXPECT_EQ(steps.between(0.0, 400.0), row.any);
    }
    const Ring wide = {{1000000, 1000000}, {1494900, 1494900}};
    EXPECT_FALSE(TurnedSteps(wide, 3.0, 4.0).few())
        << "feet beyond the parcel have finer coordinates: too many";
    TurnedSteps beside_axis(parcel_at({500000, 5000000}), 1e-6, 4.0);
    beside_axis.list();
    EXPECT_TRUE(beside_axis.few());
    EXPECT_FALSE(beside_axis.between(0.0, 400.0)) << "as short as that, they count as level or upright";
}

// Of vertices and of points between them and the base line, against the foot in a longer arithmetic.
TEST(TurnedSteps, FeetAreOffByNoMore)
{
    std::mt19937_64 random = test::random_source();
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    double worst = 0.0;
    for (int i = 0; i < 100000 && !HasFailure(); ++i) {
        const double size = std::pow(10.0, 5.0 * unit(random));
        const PL_PNT2D_record place = {std::pow(10.0, 7.0 * unit(random)),
                                       std::pow(10.0, 7.0 * unit(random))};
        const auto somewhere = [&] {
            return PL_PNT2D_record{place.x + size * unit(random), place.y + size * unit(random)};
        };
        const Ring points = {somewhere(), somewhere(), somewhere()};
        PL_IMP_LINE_2D_record base = {};
        if (PlFunz_lineeq_ile(&points[0], &points[1], &base) != 0)
            continue;
        const long double a = base.a;
        const long double b = base.b;
        const long double length2 = a * a + b * b;
        const long double along = a * points[2].y - b * points[2].x;
        PL_PNT2D_record foot = {};
        ASSERT_TRUE(plcalc::FeetOnLine(base).find(points[2], foot));
        const double off_x = static_cast<double>(std::fabs(foot.x + (b * along + a * base.c) / length2));
        const double off_y = static_cast<double>(std::fabs(foot.y + (b * base.c - a * along) / length2));
        const double most = TurnedSteps(points, base.a, base.b).foot_off();
        EXPECT_LE(off_x, most);
        EXPECT_LE(off_y, most);
        worst = std::max(worst, std::max(off_x, off_y) / most);
    }
    EXPECT_GT(worst, 0.2);
}

// All steps there are, at places where they are some hundred thousand.
TEST(TurnedSteps, NoneIsLeftOut)
{
    const struct {
        PL_PNT2D_record place;
        double grid_x;
        double grid_y;
    } kPlaces[] = {{{1100000, 1500000}, 0x1p-32, 0x1p-32},
                   {{600000, 1700000}, 0x1p-33, 0x1p-32},
                   {{1700000, 600000}, 0x1p-32, 0x1p-33}};
    std::mt19937_64 random = test::random_source();
    std::uniform_real_distribution<double> unit(-1.0, 1.0);
    int listed = 0;
    for (int i = 0; i < 9 && !HasFailure(); ++i) {
        const auto& row = kPlaces[i % 3];
        const double nx = unit(random);
        const double ny = unit(random);
        TurnedSteps steps(parcel_at(row.place), nx, ny);
        steps.list();
        const double longest = 100.0 * steps.foot_off();
        const double normal = std::atan2(ny, nx) * kGonPerRad;
        for (double sx = std::ceil(1e-7 / row.grid_x) * row.grid_x; sx < longest; sx += row.grid_x)
            for (double y = std::ceil(1e-7 / row.grid_y) * row.grid_y; y * y + sx * sx < longest * longest;
                 y += row.grid_y)
                for (const double sy : {y, -y}) {
                    const double turn = std::remainder(std::atan2(sy, sx) * kGonPerRad - normal, 200.0);
                    const double apart = std::fabs(std::fabs(turn) - 1.0);
                    if (apart > 0.05)
                        continue;
                    EXPECT_GE(apart * (1.0 + 1e-9), steps.least_gon());
                    if (apart >= steps.least_gon_of_others())
                        continue;
                    const double gon = plcalc::direction_gon({0, 0}, {sx, sy});
                    const double opposite = plcalc::direction_gon({sx, sy}, {0, 0});
                    EXPECT_TRUE(steps.between(gon, gon) && steps.between(opposite, opposite));
                    ++listed;
                }
    }
    EXPECT_GT(listed, 300);
}

}  // namespace
