// The tool's road in process: random convex parcels, every kind of cut, measured by means of their own. All
// requests must be cut right, not most of them.

#include <algorithm>
#include <cmath>
#include <iterator>
#include <random>

#include "divider.h"
#include "shapes.h"
#include "support/bits.h"

namespace {

using Ring = std::vector<PL_PNT2D_record>;
using tool::Cut;
using tool::Division;
using tool::Outcome;
using tool::Request;

using test::area;
using test::cross;
using test::distance_to_boundary;
using test::left_of;
using test::local;
using test::perimeter;
using test::Point;
using test::Shape;
using test::shape_of;

constexpr int kRequests = 10000;
constexpr double kPi = 3.141592653589793;

// ------------------------------------------------------------------------------------------ parcels at random

class Parcels {
public:
    Parcels() : source_(test::random_source()) {}

    double between(double low, double high)
    {
        return std::uniform_real_distribution<double>(low, high)(source_);
    }

    int whole(int low, int high) { return std::uniform_int_distribution<int>(low, high)(source_); }

    // Vertices at random places of an ellipse, turned; local or as large as UTM, in either direction.
    Ring convex()
    {
        const int n = whole(3, 40);
        const double a = between(5.0, 500.0);
        const double b = between(5.0, 500.0);
        const double turn = between(0.0, 2.0 * kPi);
        std::vector<double> places;
        for (int i = 0; i < n; ++i)
            places.push_back(between(0.0, 2.0 * kPi));
        std::sort(places.begin(), places.end());
        Ring ring;
        for (const double place : places)
            ring.push_back(moved(a * std::cos(place), b * std::sin(place), turn));
        return finished(ring);
    }

    // Sides that run East and North exactly, or nearly, or at any angle.
    Ring rectangle()
    {
        const double a = between(5.0, 500.0);
        const double b = between(5.0, 500.0);
        const double quarter = kPi / 2.0 * whole(0, 3);
        const double turn = whole(0, 1) == 0 ? quarter + between(-1e-9, 1e-9) : between(0.0, 2.0 * kPi);
        return finished({moved(0, 0, turn), moved(a, 0, turn), moved(a, b, turn), moved(0, b, turn)});
    }

private:
    static PL_PNT2D_record moved(double x, double y, double turn)
    {
        return {x * std::cos(turn) - y * std::sin(turn), x * std::sin(turn) + y * std::cos(turn)};
    }

    Ring finished(Ring ring)
    {
        if (whole(0, 1) == 1) {
            const PL_PNT2D_record away = {between(2e5, 8e5), between(1e6, 9e6)};
            for (PL_PNT2D_record& p : ring)
                p = {p.x + away.x, p.y + away.y};
        }
        if (whole(0, 1) == 1)
            std::reverse(ring.begin(), ring.end());
        return ring;
    }

    std::mt19937_64 source_;
};

// ----------------------------------------------------------------------------------------------- the check

// A point that the requested piece holds, or in a perpendicular cut would hold if the parcel went on that far.
Point point_of_request(const Shape& shape, std::size_t side, Cut cut)
{
    const Point& a = shape[side];
    const Point& b = shape[(side + 1) % shape.size()];
    if (cut == Cut::perpendicular)
        return {a.x + 1e6L * (b.x - a.x), a.y + 1e6L * (b.y - a.y)};
    return {(a.x + b.x) / 2.0L, (a.y + b.y) / 2.0L};
}

// Sine of the angle between the line and the direction that it should have.
long double slant(const Shape& shape, std::size_t side, Cut cut, const Point& from, const Point& to)
{
    const Point& a = shape[side];
    const Point& b = shape[(side + 1) % shape.size()];
    const Point along = {b.x - a.x, b.y - a.y};
    const Point line = {to.x - from.x, to.y - from.y};
    const long double lengths = std::hypot(along.x, along.y) * std::hypot(line.x, line.y);
    const long double off =
        cut == Cut::parallel ? along.x * line.y - along.y * line.x : along.x * line.x + along.y * line.y;
    return std::fabs(off) / lengths;
}

// Parallel to a side as the side runs, perpendicular to it from its end nearer the side.
bool runs_as_told(const Shape& shape, std::size_t side, Cut cut, const Point& from, const Point& to)
{
    const Point& a = shape[side];
    const Point& b = shape[(side + 1) % shape.size()];
    if (cut == Cut::parallel)
        return (b.x - a.x) * (to.x - from.x) + (b.y - a.y) * (to.y - from.y) > 0.0L;
    return cut == Cut::through_vertex || std::fabs(cross(a, b, from)) < std::fabs(cross(a, b, to));
}

void check(const Ring& ring, const Request& request, const Division& division)
{
    const Shape shape = shape_of(ring);
    const Point from = local(ring, division.from);
    const Point to = local(ring, division.to);
    const std::size_t side = static_cast<std::size_t>(request.number - 1);
    const long double parcel = area(shape);

    const bool left = cross(from, to, point_of_request(shape, side, request.cut)) > 0.0L;
    const long double got = area(left ? left_of(shape, from, to) : left_of(shape, to, from));
    EXPECT_LE(std::fabs(got - request.area()), 1e-6L * parcel);
    // At 9e6 a coordinate is good to 1e-9. An end that much off its side takes a sliver along that side away.
    const long double slack = 2e-9L * perimeter(shape) + 1e-12L * parcel;
    EXPECT_LE(std::fabs(division.request_area - got), slack);
    EXPECT_LE(std::fabs(division.rest_area - (parcel - got)), slack);
    // Of a sliver, the sum of doubles loses what the sliver's length takes, squared.
    EXPECT_LE(std::fabs(division.parcel_area - parcel), 1e-14L * perimeter(shape) * perimeter(shape));
    EXPECT_LE(std::fabs(division.perimeter - perimeter(shape)), 1e-12L * perimeter(shape));

    EXPECT_TRUE(runs_as_told(shape, side, request.cut, from, to));
    EXPECT_LE(distance_to_boundary(shape, from), 4e-9L);
    EXPECT_LE(distance_to_boundary(shape, to), 4e-9L);
    if (request.cut == Cut::through_vertex)
        EXPECT_TRUE(division.from.x == ring[side].x && division.from.y == ring[side].y);
    else
        EXPECT_LE(slant(shape, side, request.cut, from, to),
                  1e-9L + 4e-9L / std::hypot(to.x - from.x, to.y - from.y));
}

// ------------------------------------------------------------------------------------------------- the road

void expect_all_divided(Cut cut, Ring (Parcels::*parcel)())
{
    Parcels parcels;
    for (int i = 0; i < kRequests; ++i) {
        const Ring ring = (parcels.*parcel)();
        const double whole = static_cast<double>(area(shape_of(ring)));
        Request request;
        request.cut = cut;
        request.number = parcels.whole(1, static_cast<int>(ring.size()));
        request.value1 = whole * parcels.between(0.05, 0.95);
        if (parcels.whole(0, 1) == 1) {
            request.given = tool::AreaGiven::as_product;
            request.value2 = parcels.between(1.0, 100.0);
            request.value1 /= request.value2;
        }
        Division division;
        const Outcome outcome = tool::divide(ring, request, division);
        SCOPED_TRACE("request " + std::to_string(i));
        ASSERT_EQ(outcome, Outcome::divided);
        check(ring, request, division);
        if (::testing::Test::HasFailure())
            return;
    }
}

TEST(Road, ConvexParcelsAlongASide)
{
    expect_all_divided(Cut::parallel, &Parcels::convex);
}

TEST(Road, ConvexParcelsPerpendicularToASide)
{
    expect_all_divided(Cut::perpendicular, &Parcels::convex);
}

TEST(Road, ConvexParcelsThroughAVertex)
{
    expect_all_divided(Cut::through_vertex, &Parcels::convex);
}

TEST(Road, RectanglesAlongASide)
{
    expect_all_divided(Cut::parallel, &Parcels::rectangle);
}

TEST(Road, RectanglesPerpendicularToASide)
{
    expect_all_divided(Cut::perpendicular, &Parcels::rectangle);
}

TEST(Road, RectanglesThroughAVertex)
{
    expect_all_divided(Cut::through_vertex, &Parcels::rectangle);
}

// Star-shaped parcels, mostly concave: the library's answer is often wrong there. Whatever is called divided
// is checked by the ring's own sides; the rest is refused.
TEST(Road, ConcaveParcelsAreDividedRightOrRefused)
{
    Parcels parcels;
    int divided = 0;
    for (int i = 0; i < kRequests; ++i) {
        const int n = parcels.whole(4, 16);
        Ring ring;
        for (int k = 0; k < n; ++k) {
            const double place = 2.0 * kPi * (k + parcels.between(-0.3, 0.3)) / n;
            const double radius = parcels.between(30.0, 100.0);
            ring.push_back({5e5 + radius * std::cos(place), 5e6 + radius * std::sin(place)});
        }
        const Shape shape = shape_of(ring);
        const double whole = static_cast<double>(area(shape));
        Request request;
        request.cut = static_cast<Cut>(parcels.whole(0, 2));
        request.number = parcels.whole(1, n);
        request.value1 = whole * parcels.between(0.05, 0.95);
        Division division;
        const Outcome outcome = tool::divide(ring, request, division);
        SCOPED_TRACE("request " + std::to_string(i));
        if (outcome != Outcome::divided) {
            ASSERT_TRUE(outcome == Outcome::line_leaves_parcel || outcome == Outcome::request_missed);
            continue;
        }
        ++divided;
        ASSERT_NEAR(division.request_area, request.value1, 1e-6 * whole);
        ASSERT_NEAR(division.request_area + division.rest_area, whole, 1e-9 * whole);
        if (request.cut != Cut::through_vertex) {
            ASSERT_LE(slant(shape, static_cast<std::size_t>(request.number - 1), request.cut,
                            {division.from.x, division.from.y}, {division.to.x, division.to.y}),
                      1e-6L);
        }
        // A hair inside its ends, the line meets no side.
        const auto at = [&](long double t) {
            return Point{division.from.x - static_cast<long double>(ring[0].x) +
                             t * (static_cast<long double>(division.to.x) - division.from.x),
                         division.from.y - static_cast<long double>(ring[0].y) +
                             t * (static_cast<long double>(division.to.y) - division.from.y)};
        };
        const Point a = at(1e-6L);
        const Point b = at(1.0L - 1e-6L);
        for (std::size_t k = 0; k < shape.size(); ++k) {
            const Point& p = shape[k];
            const Point& q = shape[(k + 1) % shape.size()];
            const bool meets =
                cross(a, b, p) * cross(a, b, q) <= 0.0L && cross(p, q, a) * cross(p, q, b) <= 0.0L;
            ASSERT_FALSE(meets) << "side " << k + 1;
        }
    }
    EXPECT_GT(divided, kRequests / 2);
}

// ------------------------------------------------------------------------------------------- and what it refuses

struct OutcomeRow {
    const char* what;
    Ring ring;
    Request request;
    Outcome outcome;
};

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();
const Ring kSquare = {{0, 0}, {10, 0}, {10, 10}, {0, 10}};

Request along(long long number, double value)
{
    Request request;
    request.number = number;
    request.value1 = value;
    return request;
}

const Ring kHair = {
    {500000, 5000000}, {500001, 5000000}, {500001, 5000000 + 0x1p-12}, {500000, 5000000 + 0x1p-12}};

const OutcomeRow kOutcomes[] = {
    {"half", kSquare, along(1, 50), Outcome::divided},
    {"no area", kSquare, along(1, 0), Outcome::area_not_positive},
    {"negative", kSquare, along(1, -1), Outcome::area_not_positive},
    {"not a number", kSquare, along(1, kNan), Outcome::area_not_positive},
    {"infinite", kSquare, along(1, kInf), Outcome::area_not_positive},
    {"the whole", kSquare, along(1, 100), Outcome::area_not_below_parcel},
    {"more", kSquare, along(1, 1e308), Outcome::area_not_below_parcel},
    {"a hair less than the whole", kSquare, along(1, std::nextafter(100.0, 0.0)), Outcome::request_missed},
    {"next to nothing", kSquare, along(1, 1e-12), Outcome::request_missed},
    {"side 0", kSquare, along(0, 50), Outcome::no_such_number},
    {"side 5", kSquare, along(5, 50), Outcome::no_such_number},
    {"side 4", kSquare, along(4, 50), Outcome::divided},
    {"smallest integer", kSquare, along(std::numeric_limits<long long>::min(), 50), Outcome::no_such_number},
    // Between 5e6 and 5000000 + 2^-12 there are 2^18 doubles, a 2^-30 apart: a line half-way between two of them
    // misses by 1.9e-6 of the parcel.
    {"line on a double", kHair, along(1, 0x1p-13), Outcome::divided},
    {"line between two doubles", kHair, along(1, 0x1p-13 + 0.49 * 0x1p-30), Outcome::request_missed},
    {"empty ring", {}, along(1, 50), Outcome::ring_not_usable},
    {"two vertices", {{0, 0}, {1, 0}}, along(1, 50), Outcome::ring_not_usable},
    {"three on one point", {{1, 1}, {1, 1}, {1, 1}}, along(1, 50), Outcome::side_without_length},
    {"on one line", {{0, 0}, {1, 0}, {2, 0}}, along(1, 50), Outcome::ring_not_usable},
    {"a vertex not a number", {{0, 0}, {kNan, 0}, {1, 1}}, along(1, 0.1), Outcome::ring_not_usable},
    {"a vertex infinite", {{0, 0}, {kInf, 0}, {1, 1}}, along(1, 0.1), Outcome::ring_not_usable},
    {"area beyond doubles", {{0, 0}, {1e300, 0}, {1e300, 1e300}}, along(1, 50), Outcome::ring_not_usable},
    {"closed by hand", {{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0}}, along(4, 50), Outcome::divided},
    {"closed by hand, the side that closes",
     {{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0}},
     along(5, 50),
     Outcome::side_without_length},
    {"closed twice by hand",
     {{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0}, {0, 0}},
     along(6, 50),
     Outcome::side_without_length},
};

TEST(Road, Outcomes)
{
    for (const OutcomeRow& row : kOutcomes) {
        SCOPED_TRACE(row.what);
        Division division;
        EXPECT_EQ(tool::divide(row.ring, row.request, division), row.outcome);
    }
}

// A vertex that stands twice, or thrice, in the ring is one vertex of the parcel, whichever of them is chosen.
TEST(Road, RepeatedVerticesChangeNothing)
{
    const Ring repeated = {{0, 0}, {0, 0}, {10, 0}, {10, 10}, {10, 10}, {10, 10}, {0, 10}, {0, 0}};
    const long long number_in_square[] = {1, 1, 2, 3, 3, 3, 4, 1};
    for (std::size_t i = 0; i < std::size(number_in_square); ++i) {
        Request request = along(static_cast<long long>(i) + 1, 30);
        request.cut = Cut::through_vertex;
        Division division;
        ASSERT_EQ(tool::divide(repeated, request, division), Outcome::divided);
        Division plain;
        request.number = number_in_square[i];
        ASSERT_EQ(tool::divide(kSquare, request, plain), Outcome::divided);
        EXPECT_POINT(division.from, (plain.from));
        EXPECT_POINT(division.to, (plain.to));
    }
}

}  // namespace
