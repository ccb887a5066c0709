// Divisions and refusals before the exact judge: none wrong, none false.

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "exact_judge.h"
#include "plparcel/division.h"
#include "plparcel/extent.h"
#include "support/bits.h"
#include "support/parcel_kinds.h"
#include "support/rings.h"

namespace {

using plparcel::Cut;
using plparcel::Division;
using plparcel::Line;
using plparcel::Measured;
using plparcel::Request;
using plparcel::Ring;
using plparcel::share;
using plparcel::Status;

constexpr int kDefaultRequests = 6000;
constexpr double kUtmEast = 500000.0;
constexpr double kUtmNorth = 5000000.0;

int requests()
{
    const char* chosen = std::getenv("PLCALC_DIVISIONS");
    return chosen != nullptr ? std::max(1, std::atoi(chosen)) : kDefaultRequests;
}

double between(std::mt19937_64& random, double low, double high)
{
    return std::uniform_real_distribution<double>(low, high)(random);
}

std::size_t below(std::mt19937_64& random, std::size_t n)
{
    return std::uniform_int_distribution<std::size_t>(0, n - 1)(random);
}

Ring moved(Ring ring, double factor, double east, double north)
{
    for (PL_PNT2D_record& p : ring)
        p = {p.x * factor + east, p.y * factor + north};
    return ring;
}

Ring to_the_step(Ring ring, double step)
{
    for (PL_PNT2D_record& p : ring)
        p = {std::round(p.x / step) * step, std::round(p.y / step) * step};
    return ring;
}

// An L of three squares, turned.
Ring turned_l(std::mt19937_64& random)
{
    const double dir_rad = between(random, 0.0, 6.28);
    const double side = between(random, 10.0, 60.0);
    Ring ring = {{0, 0}, {2, 0}, {2, 1}, {1, 1}, {1, 2}, {0, 2}};
    for (PL_PNT2D_record& p : ring)
        p = {side * (p.x * std::cos(dir_rad) - p.y * std::sin(dir_rad)),
             side * (p.x * std::sin(dir_rad) + p.y * std::cos(dir_rad))};
    return ring;
}

// A parcel of any kind, as it is or as surveys bring it: turned round, to the decimetre, at UTM size, small there,
// on a lattice, where sides are level with vertices and amounts belong at corners.
Ring any_parcel(std::mt19937_64& random)
{
    const std::vector<test::ParcelKind>& kinds = test::parcel_kinds();
    Ring ring = below(random, 8) == 0 ? turned_l(random) : kinds[below(random, kinds.size())].make(random);
    switch (below(random, 8)) {
    case 0:
        return test::reversed(ring);
    case 1:
        return to_the_step(ring, 0.1);
    case 2:
        return to_the_step(moved(ring, 0.05, 0.0, 0.0), 1.0);
    case 3:
        return moved(ring, 1.0, kUtmEast, kUtmNorth);
    case 4:
        return moved(ring, between(random, 0.001, 0.2), kUtmEast, kUtmNorth);
    case 5:
        return to_the_step(moved(ring, 1.0, kUtmEast, kUtmNorth), 0.001);
    default:
        return ring;
    }
}

// At any angle, or where the parcel's sides may run: along the axes, or half way between them.
double any_bearing(std::mt19937_64& random)
{
    return below(random, 3) == 0 ? 50.0 * static_cast<double>(below(random, 16)) - 400.0
                                 : between(random, -400.0, 800.0);
}

// Lines that have a direction, and those from a vertex.
Line any_line(std::mt19937_64& random, const Ring& ring)
{
    Line line;
    line.cut = static_cast<Cut>(below(random, 5));
    line.index = below(random, ring.size());
    line.bearing = any_bearing(random);
    line.a = ring[below(random, ring.size())];
    line.b = {line.a.x + between(random, -9.0, 9.0), line.a.y + between(random, -9.0, 9.0)};
    return line;
}

Line any_place(std::mt19937_64& random, const Ring& ring)
{
    const std::size_t side = below(random, ring.size());
    const PL_PNT2D_record& a = ring[side];
    const PL_PNT2D_record& b = ring[(side + 1) % ring.size()];
    const double part =
        below(random, 4) == 0 ? static_cast<double>(below(random, 5)) / 4.0 : between(random, 0.0, 1.0);
    if (below(random, 2) == 0)
        return plparcel::through_place(side, std::hypot(b.x - a.x, b.y - a.y) * part);
    return plparcel::through_point({a.x + part * (b.x - a.x), a.y + part * (b.y - a.y)},
                                   between(random, 0.0, 400.0));
}

// Inside, now and then outside, in line with sides, in the middle of two vertices.
Line any_point(std::mt19937_64& random, const Ring& ring)
{
    const PL_PNT2D_record& a = ring[below(random, ring.size())];
    const PL_PNT2D_record& b = ring[below(random, ring.size())];
    const PL_PNT2D_record& d = ring[below(random, ring.size())];
    const double bearing = below(random, 2) == 0 ? 0.0 : between(random, 0.0, 400.0);
    switch (below(random, 4)) {
    case 0:
        return plparcel::through_point({0.5 * a.x + 0.5 * b.x, 0.5 * a.y + 0.5 * b.y}, bearing);
    case 1:
        return plparcel::through_point({a.x, d.y}, bearing);
    default: {
        const double u = between(random, 0.0, 1.0);
        const double v = between(random, 0.0, 1.0 - u);
        return plparcel::through_point(
            {a.x + u * (b.x - a.x) + v * (d.x - a.x), a.y + u * (b.y - a.y) + v * (d.y - a.y)}, bearing);
    }
    }
}

Request any_request(std::mt19937_64& random, const Line& line, double parcel)
{
    Request request;
    request.line = line;
    request.measured = static_cast<Measured>(below(random, 2));
    if (below(random, 2) == 0) {
        request.amounts = {plparcel::area(parcel * between(random, 0.01, 0.99))};
    } else {
        const std::size_t of = 2 + below(random, 11);
        request.amounts = {share(static_cast<double>(1 + below(random, of)), static_cast<double>(of))};
    }
    return request;
}

// To as few decimals as the extent asks for, to fewer, and to more.
plparcel::Rounding any_rounding(std::mt19937_64& random, const Ring& ring)
{
    const double extent = plparcel::extent_of(ring).largest();
    const int fair = static_cast<int>(std::ceil(-std::log10(2e-6 * extent)));
    plparcel::Rounding rounding;
    rounding.decimals = std::min(17, std::max(0, fair + static_cast<int>(below(random, 5)) - 2));
    rounding.tolerance = std::pow(10.0, between(random, -9.0, -3.0));
    return rounding;
}

std::string shown(const Ring& ring, const Request& request)
{
    char text[300];
    std::snprintf(
        text, sizeof text, "along %.17g bearing %.17g segment %.17g %.17g %.17g %.17g: ", request.line.along,
        request.line.bearing, request.line.a.x, request.line.a.y, request.line.b.x, request.line.b.y);
    std::string all = text;
    std::snprintf(text, sizeof text, "%d %zu %d 1 %d %.17g %.17g %zu", static_cast<int>(request.line.cut),
                  request.line.index, static_cast<int>(request.measured),
                  static_cast<int>(request.amounts[0].given), request.amounts[0].first,
                  request.amounts[0].second, ring.size());
    all += text;
    for (const PL_PNT2D_record& p : ring) {
        std::snprintf(text, sizeof text, " %.17g %.17g", p.x, p.y);
        all += text;
    }
    if (request.rounding.decimals) {
        std::snprintf(text, sizeof text, "; decimals %d within %.17g", *request.rounding.decimals,
                      request.rounding.tolerance);
        all += text;
    }
    return all;
}

void expect_right(const Ring& ring, const Request& request, const Division& division)
{
    EXPECT_EQ(plparcel_test::exact_objection(ring, request, division), "")
        << describe(division) << ": " << shown(ring, request);
}

void expect_none_wrong(Line (*make_line)(std::mt19937_64&, const Ring&))
{
    std::mt19937_64 random = test::random_source();
    std::map<std::string, int> tally;
    const int count = requests();
    for (int i = 0; i < count;) {
        const Ring ring = any_parcel(random);
        const plparcel::RingReport report = plparcel::check_ring(ring);
        if (report.status != plparcel::BoundaryStatus::usable || report.repeated > 0 || report.closed)
            continue;
        Request request = any_request(random, make_line(random, ring), report.area);
        if (i % 2 == 1)
            request.rounding = any_rounding(random, ring);
        const Division division = divide(ring, request);
        expect_right(ring, request, division);
        ++tally[describe(division)];
        ++i;
    }
    for (const auto& [what, times] : tally)
        std::printf("  %7d %s\n", times, what.c_str());
}

TEST(Exact, NoWrongDivisionAndNoFalseRefusal)
{
    expect_none_wrong(any_line);
}

TEST(Exact, NoneWrongFromAPlace)
{
    expect_none_wrong(any_place);
}

TEST(Exact, NoneWrongThroughAPoint)
{
    expect_none_wrong(any_point);
}

TEST(Exact, AnLOfThreeSquaresIsDividedHoweverItIsTurned)
{
    std::mt19937_64 random = test::random_source();
    for (int i = 0; i < 1000; ++i) {
        const Ring ring = turned_l(random);
        Request request;
        request.amounts = {share(2, 3)};
        const Division division = divide(ring, request);
        EXPECT_EQ(division.status, Status::divided) << describe(division) << ": " << shown(ring, request);
        expect_right(ring, request, division);
    }
}

}  // namespace
