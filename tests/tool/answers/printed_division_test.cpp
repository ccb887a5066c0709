// The line that is printed, as text: read back from the table and cut with means of the test's own, it holds the
// request to a millionth of the parcel, whatever the parcel's size.

#include "answers/printed_division.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <random>

#include "program.h"
#include "reports/parcel_reports.h"
#include "shapes.h"
#include "support/bits.h"
#include "text/numbers.h"

namespace {

using Ring = std::vector<PL_PNT2D_record>;
using plparcel::Cut;
using plparcel::Status;
using test::Point;
using test::Shape;
using tool::Asked;
using tool::PrintedDivision;

constexpr double kPi = 3.141592653589793;
constexpr int kRequestsPerSize = 300;
constexpr double kSizes[] = {1e-4, 1e-3, 0.01, 0.1, 1.0, 10.0, 100.0, 1e3, 1e4, 1e5};

const PL_PNT2D_record kLocal = {0.0, 0.0};
const PL_PNT2D_record kUtm = {432123.456, 5087654.321};

Ring square(double side)
{
    return {{0, 0}, {side, 0}, {side, side}, {0, side}};
}

Asked asked(Cut cut, long long number, double area)
{
    Asked asked;
    asked.request.line.cut = cut;
    asked.request.amounts = {plparcel::area(area)};
    asked.number = number;
    asked.amounts = {tool::shortest(area)};
    return asked;
}

tool::Parcel parcel_of(const Ring& ring)
{
    tool::Parcel parcel;
    parcel.place.file = "lot";
    parcel.ring = ring;
    return parcel;
}

PrintedDivision divide_in_print(const Ring& ring, const Asked& asked)
{
    return tool::divide_in_print(parcel_of(ring), asked);
}

// The table's line: what a person reads, or a script.
struct Line {
    PL_PNT2D_record from, to;
};

Line printed_line(const Ring& ring, const Asked& asked, const PrintedDivision& printed)
{
    const std::string table = tool::division_table({parcel_of(ring), asked, printed});
    const std::vector<double> from = test::numbers_after(table, "from");
    const std::vector<double> to = test::numbers_after(table, "to");
    return {{from.at(0), from.at(1)}, {to.at(0), to.at(1)}};
}

// How far the piece next to the request's side, or ahead of the line, misses the request; part of the parcel.
long double miss(const Ring& ring, const Asked& asked, const Line& line)
{
    const Shape shape = test::shape_of(ring);
    const long double parcel = test::area(shape);
    const long double part =
        test::area(test::part_after(shape, test::local(ring, line.from), test::local(ring, line.to)));
    const long double wanted = asked.request.amounts[0].first;
    return std::min(std::fabs(part - wanted), std::fabs(parcel - part - wanted)) / parcel;
}

// The same for the piece whose corners are the printed ends, which lie a rounding beside the boundary.
long double miss_at_corners(const Ring& ring, const Asked& asked, const Line& line)
{
    const Shape shape = test::shape_of(ring);
    const long double wanted = asked.request.amounts[0].first;
    const Point from = test::local(ring, line.from);
    const Point to = test::local(ring, line.to);
    long double least = INFINITY;
    for (const bool there : {true, false}) {
        Shape piece = there ? test::part_after(shape, from, to) : test::part_after(shape, to, from);
        piece.front() = there ? from : to;
        piece.back() = there ? to : from;
        least = std::min(least, std::fabs(test::area(piece) - wanted));
    }
    return least / test::area(shape);
}

// The same for the first piece as it is written down.
long double miss_as_written(const Ring& ring, const Asked& asked, const PrintedDivision& printed)
{
    const long double area = test::area(test::shape_of(printed.proven.pieces[0].ring));
    return std::fabs(area - asked.request.amounts[0].first) / test::area(test::shape_of(ring));
}

// Whether an end of the line is a vertex with its coordinates rounded.
bool ends_at_vertex(const Ring& ring, const PrintedDivision& printed)
{
    const double step = std::pow(10.0, -printed.resolution.end_decimals);
    for (const PL_PNT2D_record& end : {printed.lines[0].start, printed.lines[0].end})
        for (const PL_PNT2D_record& p : ring)
            if (std::fabs(p.x - end.x) <= step && std::fabs(p.y - end.y) <= step)
                return true;
    return false;
}

struct Row {
    const char* what;
    double side;
    Asked asked;
    int decimals;
};

// The second piece of a square is what is left: a height of request over side, to so many decimals.
const Row kRows[] = {
    {"a hectare, to the tenth of a millimetre", 100, asked(Cut::parallel, 1, 1234.567), 4},
    {"fifty across: 2e-6 of it is the fourth decimal", 50, asked(Cut::parallel, 1, 1000), 4},
    {"a hair less", 49.999, asked(Cut::parallel, 1, 999.98), 5},
    {"forty across", 40, asked(Cut::parallel, 1, 800), 5},
    {"four decimals miss by a millionth and a half", 10, asked(Cut::parallel, 1, 12.34567), 5},
    {"four decimals hold it, yet may turn another line", 10, asked(Cut::parallel, 1, 12.5), 5},
    {"a tenth across", 0.1, asked(Cut::parallel, 1, 0.0012345), 7},
    {"a tenth of a millimetre across", 1e-4, asked(Cut::parallel, 1, 3.3e-9), 10},
    {"smaller than decimals are for", 1e-30, asked(Cut::parallel, 1, 5e-61), tool::kMaxDecimals + 1},
};

TEST(PrintedDivision, DecimalsFollowTheParcelsSize)
{
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.what);
        const PrintedDivision printed = divide_in_print(square(row.side), row.asked);
        ASSERT_TRUE(printed.done());
        EXPECT_EQ(printed.resolution.decimals, row.decimals);
        EXPECT_LE(miss(square(row.side), row.asked, printed_line(square(row.side), row.asked, printed)),
                  1e-6L);
    }
}

struct AmountRow {
    const char* what;
    plparcel::Amount amount;
    double area;        // of a square of 100 by 100
    int area_decimals;  // the fourth digit of the amount, and four at least
};

const AmountRow kAmounts[] = {
    {"an area", plparcel::area(2000), 2000, 4},
    {"a product", plparcel::product(40, 50), 2000, 4},
    {"a share", plparcel::share(1, 5), 2000, 4},
    {"a small area", plparcel::area(0.004), 0.004, 6},
    {"a small product, its large factor first", plparcel::product(400, 0.00001), 0.004, 6},
    {"a small product, its small factor first", plparcel::product(0.00001, 400), 0.004, 6},
    {"a small share", plparcel::share(1, 2500000), 0.004, 6},
};

TEST(PrintedDivision, AreasShowTheDigitsOfEveryKindOfAmount)
{
    for (const AmountRow& row : kAmounts) {
        SCOPED_TRACE(row.what);
        EXPECT_NEAR(tool::area_of(row.amount, 10000.0), row.area, 1e-12 * row.area);
        Asked request = asked(Cut::parallel, 1, 1.0);
        request.request.amounts = {row.amount};
        EXPECT_EQ(divide_in_print(square(100), request).resolution.area_decimals, row.area_decimals);
    }
}

// A parcel of about that size across, of three vertices to `most`, at a place, in either direction.
Ring random_parcel(std::mt19937_64& source, int most, double size, const PL_PNT2D_record& place, bool convex)
{
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    const int n = std::uniform_int_distribution<int>(3, most)(source);
    Ring ring;
    for (int i = 0; i < n; ++i) {
        const double turn = 2.0 * kPi * (i + 0.6 * unit(source)) / n;
        const double radius = size * (convex ? 0.5 : 0.15 + 0.35 * unit(source));
        ring.push_back({place.x + radius * std::cos(turn), place.y + 0.7 * radius * std::sin(turn)});
    }
    if (unit(source) < 0.5)
        std::reverse(ring.begin(), ring.end());
    return ring;
}

struct Tally {
    int printed = 0;
    int refused_for_doubles = 0;
};

// The i-th of them is cut in the way ways[i % their number].
Tally print_and_cut(double size, const PL_PNT2D_record& place, bool convex, int requests = kRequestsPerSize,
                    int most_vertices = 12,
                    const std::vector<Cut>& ways = {Cut::parallel, Cut::perpendicular, Cut::through_vertex})
{
    std::mt19937_64 source = test::random_source();
    Tally tally;
    for (int i = 0; i < requests; ++i) {
        SCOPED_TRACE("request " + std::to_string(i));
        const Ring ring = random_parcel(source, most_vertices, size, place, convex);
        const double part = std::uniform_real_distribution<double>(0.03, 0.97)(source);
        const Asked request =
            asked(ways[static_cast<std::size_t>(i) % ways.size()],
                  std::uniform_int_distribution<int>(1, static_cast<int>(ring.size()))(source),
                  part * static_cast<double>(test::area(test::shape_of(ring))));
        const PrintedDivision printed = divide_in_print(ring, request);
        if (printed.proven.status == Status::not_reached)
            ++tally.refused_for_doubles;
        if (!printed.done())
            continue;
        ++tally.printed;
        const Line line = printed_line(ring, request, printed);
        EXPECT_POINT(line.from, (printed.lines[0].start));
        EXPECT_POINT(line.to, (printed.lines[0].end));
        EXPECT_LE(miss_as_written(ring, request, printed), 1e-6L * (1.0L + 1e-6L));
        // Rounded, a line may pass beside a vertex that points into the parcel. Prolonged, it would go on behind it.
        if (convex || !ends_at_vertex(ring, printed)) {
            EXPECT_LE(miss(ring, request, line), 1e-6L * (1.0L + 1e-6L));
        }
        EXPECT_NEAR(printed.areas[0], plparcel::check_ring(printed.proven.pieces[0].ring).area, 0.0);
        // Beside a vertex, the piece may have that vertex for a corner or the printed end: two shapes.
        if (request.request.line.cut != Cut::through_vertex) {
            EXPECT_LE(miss_at_corners(ring, request, line), 1e-6L * (1.0L + 1e-6L));
        }
        if (convex) {
            const Shape shape = test::shape_of(ring);
            const Point from = test::local(ring, line.from);
            const Point to = test::local(ring, line.to);
            const long double left = test::area(test::left_of(shape, from, to));
            const long double parcel = test::area(shape);
            const long double off = std::min(std::fabs(left - request.request.amounts[0].first),
                                             std::fabs(parcel - left - request.request.amounts[0].first));
            EXPECT_LE(off, 1e-6L * (1.0L + 1e-6L) * parcel);
        }
    }
    return tally;
}

TEST(PrintedDivision, HoldsTheRequestWhateverTheSize)
{
    for (const double size : kSizes) {
        SCOPED_TRACE(size);
        const Tally tally = print_and_cut(size, kLocal, true);
        EXPECT_EQ(tally.printed, kRequestsPerSize);
    }
}

class TenThousand : public ::testing::TestWithParam<Cut> {};

TEST_P(TenThousand, RequestsOfConvexParcelsAreCutRight)
{
    const char* chosen = std::getenv("PLCALC_DIVISIONS");
    const int requests = chosen != nullptr ? std::max(1, std::atoi(chosen)) : 10000;
    EXPECT_EQ(print_and_cut(100.0, kLocal, true, requests, 40, {GetParam()}).printed, requests);
}

INSTANTIATE_TEST_SUITE_P(Ways, TenThousand,
                         ::testing::Values(Cut::parallel, Cut::perpendicular, Cut::through_vertex));

TEST(PrintedDivision, HoldsTheRequestInLargeCoordinates)
{
    for (const double size : kSizes) {
        SCOPED_TRACE(size);
        const Tally tally = print_and_cut(size, kUtm, true);
        // At 5e6 the doubles are a nanometre apart: no line in a parcel of a millimetre holds a millionth of it.
        if (size >= 0.01) {
            EXPECT_EQ(tally.printed, kRequestsPerSize);
        }
    }
}

TEST(PrintedDivision, HoldsTheRequestInConcaveParcels)
{
    for (const double size : kSizes) {
        SCOPED_TRACE(size);
        for (const PL_PNT2D_record& place : {kLocal, kUtm}) {
            const Tally tally = print_and_cut(size, place, false);
            if (size >= 1.0) {
                EXPECT_GT(tally.printed, kRequestsPerSize / 2);
                EXPECT_EQ(tally.refused_for_doubles, 0);
            }
        }
    }
}

TEST(PrintedDivision, LineThatNoDoublesHoldIsRefused)
{
    // Heights in steps of 2^-30 between 5e6 and 5e6 + 2^-16: 1.5e-5 of the parcel is the nearest miss at a quarter of a
    // step, between a line along a step and one that rises by a step on its way.
    const Ring hair = {
        {500000, 5000000}, {500001, 5000000}, {500001, 5000000 + 0x1p-16}, {500000, 5000000 + 0x1p-16}};
    EXPECT_TRUE(divide_in_print(hair, asked(Cut::parallel, 1, 0x1p-17)).done());
    const PrintedDivision refused = divide_in_print(hair, asked(Cut::parallel, 1, 0x1p-17 + 0.25 * 0x1p-30));
    EXPECT_FALSE(refused.done());
    EXPECT_TRUE(refused.lines.empty());
    EXPECT_TRUE(refused.areas.empty());
}

// Two slivers, along whose long sides their lines all but run: no number of decimals holds a third of them. The ends are
// the doubles themselves, and what is printed is read as these.
TEST(PrintedDivision, EndsWithAllTheirDigitsAreShownWhole)
{
    const Ring slivers[] = {
        {{683168.618, 5170806.846}, {683186.815, 5170810.789}, {683188.362, 5170811.127}},
        {{530097.731, 5395260.438}, {530089.987, 5395262.127}, {530068.983, 5395266.709}},
    };
    for (const Ring& ring : slivers) {
        Asked third = asked(Cut::parallel, 1, 1.0);
        third.request.amounts = {plparcel::share(1, 3)};
        third.request.rounding.decimals = 3;
        const PrintedDivision printed = divide_in_print(ring, third);
        ASSERT_TRUE(printed.done()) << plparcel::describe(printed.proven);
        EXPECT_FALSE(printed.proven.decimals);
        for (const tool::PrintedLine& line : printed.lines) {
            for (const double value : {line.start.x, line.start.y, line.end.x, line.end.y})
                EXPECT_EQ(tool::parse_number(tool::fixed(value, printed.resolution.end_decimals)), value);
        }
        EXPECT_LT(printed.resolution.decimals, printed.resolution.end_decimals) << "lengths need fewer";
    }
}

// Several lines: each piece lies between two of them, and is measured with both as they are printed.
// A rectangle of 80 by 60 in the plane, where everything is half as long as on the ground.
TEST(PrintedDivision, AreasAreOnTheGround)
{
    tool::Parcel parcel = parcel_of({{0, 0}, {80, 0}, {80, 60}, {0, 60}});
    parcel.ground_factor = 0.5;
    const Asked request = asked(Cut::parallel, 1, 4800.0);
    const PrintedDivision printed = tool::answer(parcel, request).printed;
    ASSERT_TRUE(printed.done());
    EXPECT_EQ(printed.lines[0].start.y, 15.0);
    EXPECT_EQ(printed.proven.ring.area, 19200.0);
    EXPECT_EQ(printed.proven.ring.perimeter, 560.0);
    ASSERT_EQ(printed.proven.pieces.size(), 2u);
    for (const std::size_t i : {std::size_t{0}, std::size_t{1}}) {
        const double area = i == 0 ? 4800.0 : 14400.0;
        EXPECT_EQ(printed.proven.pieces[i].area, area);
        EXPECT_EQ(printed.proven.pieces[i].asked, area);
        EXPECT_EQ(printed.proven.held.at(i).area, area);
        EXPECT_EQ(printed.proven.held.at(i).asked, area);
        EXPECT_EQ(printed.areas.at(i), area);
    }
}

// 60 on the ground are 30 in the plane.
TEST(PrintedDivision, PlacesAreOnTheGround)
{
    tool::Parcel parcel = parcel_of({{0, 0}, {80, 0}, {80, 60}, {0, 60}});
    parcel.ground_factor = 0.5;
    Asked request = asked(Cut::through_place, 1, 4800.0);
    request.request.line.along = 60.0;
    const PrintedDivision printed = tool::answer(parcel, request).printed;
    ASSERT_TRUE(printed.done());
    const PL_PNT2D_record& start = printed.lines[0].start;
    EXPECT_EQ((start.y == 0.0 ? start : printed.lines[0].end).x, 30.0);
}

// What a rounded line misses is larger on the ground too: to whole units it lies at 30 instead of 30.1.
TEST(PrintedDivision, ResidualsAreOnTheGround)
{
    tool::Parcel parcel = parcel_of({{0, 0}, {80, 0}, {80, 60}, {0, 60}});
    parcel.ground_factor = 0.5;
    Asked request = asked(Cut::parallel, 1, 9632.0);
    request.request.rounding.decimals = 0;
    request.request.rounding.tolerance = 0.01;
    const PrintedDivision printed = tool::answer(parcel, request).printed;
    ASSERT_TRUE(printed.done());
    EXPECT_EQ(printed.lines[0].start.y, 30.0);
    for (const std::size_t i : {std::size_t{0}, std::size_t{1}}) {
        const double residual = i == 0 ? -32.0 : 32.0;
        EXPECT_NEAR(printed.proven.pieces[i].residual, residual, 1e-9);
        EXPECT_NEAR(printed.proven.held.at(i).residual, residual, 1e-9);
    }
}

// With a hole only whole lines that turn about a point are counted; the two here are mirrored at the diagonal.
TEST(PrintedDivision, LinesAreCountedBesideAHole)
{
    tool::Parcel parcel = parcel_of(square(100));
    parcel.holes = {{{70, 70}, {80, 70}, {80, 80}, {70, 80}}};
    for (const plparcel::Pieces pieces : {plparcel::Pieces::two, plparcel::Pieces::any}) {
        Asked request = asked(Cut::through_point, 0, 1000.0);
        request.request.line.a = {20, 20};
        request.request.pieces = pieces;
        request.count_alternatives = true;
        const PrintedDivision printed = tool::divide_in_print(parcel, request);
        ASSERT_TRUE(printed.done());
        EXPECT_EQ(printed.alternatives, pieces == plparcel::Pieces::any ? 2u : 0u);
    }
    // Through the first corner the line turns a quarter round, and more lies on its right the farther it has turned.
    Asked request = asked(Cut::through_vertex, 1, 1000.0);
    request.request.pieces = plparcel::Pieces::any;
    request.count_alternatives = true;
    EXPECT_EQ(tool::divide_in_print(parcel, request).alternatives, 1u);
}

TEST(PrintedDivision, EveryPieceOfASeriesHolds)
{
    std::mt19937_64 source = test::random_source();
    for (int i = 0; i < 600; ++i) {
        SCOPED_TRACE("series " + std::to_string(i));
        const double size = kSizes[static_cast<std::size_t>(i) % 10];
        const Ring ring = random_parcel(source, 12, size, size < 1.0 || i % 2 == 0 ? kLocal : kUtm, true);
        Asked series = asked(static_cast<Cut>(i % 3), 1 + i % static_cast<int>(ring.size()), 1.0);
        series.request.amounts = plparcel::equal_parts(4);
        series.amounts.assign(3, "1/4");
        if (i % 5 == 0)
            series.request.measured = plparcel::Measured::opposite;
        const PrintedDivision printed = divide_in_print(ring, series);
        ASSERT_TRUE(printed.done()) << plparcel::describe(printed.proven);
        ASSERT_EQ(printed.lines.size(), 3u);
        const Shape shape = test::shape_of(ring);
        const long double parcel = test::area(shape);
        for (std::size_t k = 0; k < 3; ++k) {
            const tool::PrintedLine& line = printed.lines[k];
            const long double left =
                test::area(test::left_of(shape, test::local(ring, line.start), test::local(ring, line.end)));
            const long double before = parcel * static_cast<long double>(k + 1) / 4.0L;
            EXPECT_LE(std::min(std::fabs(left - before), std::fabs(parcel - left - before)), 4e-6L * parcel);
            EXPECT_NEAR(printed.areas[k], static_cast<double>(parcel / 4.0L),
                        static_cast<double>(1e-6L * parcel));
        }
    }
}

}  // namespace
