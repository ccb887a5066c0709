#include "subdivision/hopeless_lines.h"

#include <cmath>
#include <limits>
#include <numeric>

#include "plcalc/lines.h"
#include "plcalc/survey.h"
#include "support/bits.h"
#include "support/rings.h"

namespace {

using plcalc::HopelessLines;
using plcalc::ParallelTrials;
using plcalc::PartialPolygon;
using plcalc::TrialLine;
using test::Ring;

// Lines parallel to the first side of a ring, and what they cut off.
class Lines {
public:
    explicit Lines(const Ring& ring)
        : n_(static_cast<std::int32_t>(ring.size())), trials_(trials_on(ring)), piece_(trials_.points())
    {}

    bool hopeless(double requested, std::int32_t at, std::int32_t futile_lines = 100000)
    {
        HopelessLines lines(trials_, piece_, requested);
        lines.note_futile(futile_lines, 1000);
        return lines.up_to(at);
    }

    // Area cut off by the line that lies this share of the way from the base line to a vertex.
    double area_at(std::int32_t at, double share)
    {
        const PL_PNT2D_record& q = trials_.point(at);
        const PL_PNT2D_record f = trials_.foot(q);
        TrialLine line = trials_.line_through({f.x + share * (q.x - f.x), f.y + share * (q.y - f.y)});
        piece_.clear();
        piece_.append_vertices(0, 1);
        for (std::int32_t k = 2; k <= n_; ++k) {
            PL_PNT2D_record crossing = {};
            if (trials_.meets_side(line, k, crossing))
                piece_.append_point(crossing);
            if (!trials_.beyond(line, k))
                piece_.append_vertices(k, k);
        }
        return piece_.area();
    }

private:
    static ParallelTrials trials_on(const Ring& ring)
    {
        Ring closed = ring;
        closed.push_back(ring.front());
        std::vector<std::int32_t> order(closed.size());
        std::iota(order.begin(), order.end(), 0);
        order.back() = 0;
        PL_IMP_LINE_2D_record base = {};
        PlFunz_lineeq_ile(&ring[0], &ring[1], &base);
        return {closed, order, static_cast<std::int32_t>(ring.size()), base, base.a, base.b};
    }

    std::int32_t n_;
    ParallelTrials trials_;
    PartialPolygon piece_;
};

//   5 +-----------------+ 4     60    In front of the base line 0-1 lie 6000, behind it 1800. So a line in front
//     |                 |             cuts off 1800 and more, one behind 6000 and more.
//   0 +=====+ 1         |      0
//           |           |
//         2 +-----------+ 3   -30
//     0     40         100
const Ring kBehind = {{0, 0}, {40, 0}, {40, -30}, {100, -30}, {100, 60}, {0, 60}};

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

struct Row {
    const char* what;
    double requested;
    std::int32_t vertex;
    bool hopeless;
};

const Row kRows[] = {
    {"behind: less than all that lies in front", 5990.0, 2, true},
    {"behind: the base line itself holds it", 6000.0, 2, false},
    {"behind: a line holds it", 6010.0, 2, false},
    {"behind: the farthest line almost holds it", 7799.0, 3, false},
    {"behind: more than the parcel", 7850.0, 3, true},
    {"behind: it could be had in front", 3000.0, 2, true},
    {"in front: less than what lies behind", 1790.0, 4, true},
    {"in front: the base line itself holds it", 1800.0, 4, false},
    {"in front: a line holds it", 1810.0, 4, false},
    {"in front: a line in the middle holds it", 4800.0, 5, false},
    {"less than what lies on either side", 1000.0, 2, true},
    {"nothing: no area is within a part of it", 0.0, 4, true},
    {"no number", kNan, 4, true},
    {"less than nothing: every area meets it", -5.0, 4, false},
    {"-0.0: every area but 0 meets it", -0.0, 4, false},
};

TEST(HopelessLines, KnowsThatABisectionMustFail)
{
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(Lines(kBehind).hopeless(row.requested, row.vertex), row.hopeless);
    }
}

TEST(HopelessLines, ProvesNothingBeforeATrialWasMade)
{
    ParallelTrials unused = ParallelTrials({}, {}, 0, {0, 1, 0}, 0, 1);
    PartialPolygon piece(unused.points());
    HopelessLines lines(unused, piece, 10.0);
    EXPECT_FALSE(lines.up_to(1));
}

// Where bearings of lines near the base line agree with some vertices and not with others, nothing is proved: a
// gon from an axis. Nor is it where bearings jump from 400 to 0 inside the parcel: when the normal lies a little to
// the right of +x, or of -x, and the parcel is 1e-7 over that deep, or deeper.
TEST(HopelessLines, ProvesNothingWhereBearingsAreInDoubt)
{
    const struct {
        double turn_gon;
        double lean;  // added to the turn, in radians
        bool proves;
    } kDirections[] = {
        {0.0, 0, true},          {0.3, 0, true},         {0.999, 0, true},      {1.0, 0, false},
        {1.001, 0, true},        {50.0, 0, true},        {99.5, 0, true},       {100.0, 0, true},
        {100.0, 1e-12, true},    {100.0, -1e-12, true},  {100.0, 1e-8, true},   {100.0, -1e-8, false},
        {100.0, -2e-9, false},   {100.0, -1.5e-9, true}, {300.0, -2e-9, false}, {300.0, -1.5e-9, true},
        {100.0, -6.2e-4, false}, {100.0, -1.2e-3, true}, {100.0, 1e-4, true},   {100.0, -1e-4, false},
        {100.0, 2e-3, true},     {100.0, -2e-3, true},   {101.0, 0, false},     {200.0, 1e-8, true},
        {299.0, 0, false},       {300.0, 0, true},       {300.0, 1e-12, true},  {300.0, -1e-12, true},
        {300.0, 1e-8, true},     {300.0, -1e-8, false},  {300.0, 2e-3, true},   {300.0, -2e-3, true},
        {399.0, 0, false},       {399.999, 0, true},
    };
    for (const auto& row : kDirections) {
        SCOPED_TRACE(testing::Message() << row.turn_gon << " gon and " << row.lean);
        // The quarter turns by their own sine and cosine, to the last bit.
        const double rest =
            (row.turn_gon - 100.0 * std::floor(row.turn_gon / 100.0)) * 0.015707963267948967 + row.lean;
        Ring ring;
        for (const PL_PNT2D_record& p : kBehind) {
            PL_PNT2D_record q = {p.x * std::cos(rest) - p.y * std::sin(rest),
                                 p.x * std::sin(rest) + p.y * std::cos(rest)};
            for (double quarters = std::floor(row.turn_gon / 100.0); quarters > 0.0; --quarters)
                q = {-q.y, q.x};
            ring.push_back(q);
        }
        EXPECT_EQ(Lines(ring).hopeless(1000.0, 2), row.proves);
    }
}

// Far from the origin rounding may turn the step to a line near the base line by any angle. Where there are few steps so
// short, each of them is known.
TEST(HopelessLines, ProvesAtNationalCoordinatesWhereStepsAreFew)
{
    const struct {
        PL_PNT2D_record at;
        bool proves;
    } kPlaces[] = {
        {{130000, 0}, true},        {{500000, 5000000}, true}, {{2600000, 1200000}, true},
        {{500000, -5000000}, true}, {{-50, 5000000}, false},   {{20000000, 20000000}, false},
    };
    for (const auto& row : kPlaces) {
        SCOPED_TRACE(testing::Message() << row.at.x << " " << row.at.y);
        Ring ring = kBehind;
        for (PL_PNT2D_record& p : ring)
            p = {0.8 * p.x - 0.6 * p.y + row.at.x, 0.6 * p.x + 0.8 * p.y + row.at.y};
        EXPECT_EQ(Lines(ring).hopeless(1000.0, 2), row.proves);
    }
}

// A line that met 1,000 sides for nothing pays for strips of a small parcel, but not for the 2,000 directions that are
// listed at national coordinates; ten lines do.
TEST(HopelessLines, ListsDirectionsOnlyWhereThatPays)
{
    const auto proves = [](const PL_PNT2D_record& at, std::int32_t futile_lines) {
        Ring ring = kBehind;
        for (PL_PNT2D_record& p : ring)
            p = {0.8 * p.x - 0.6 * p.y + at.x, 0.6 * p.x + 0.8 * p.y + at.y};
        return Lines(ring).hopeless(1000.0, 2, futile_lines);
    };
    EXPECT_TRUE(proves({0, 0}, 1));
    EXPECT_FALSE(proves({500000, 5000000}, 1));
    EXPECT_TRUE(proves({500000, 5000000}, 10));
}

// Round the same way again and again: a line cuts off so many times as much.
Ring wound(const Ring& ring, std::size_t times)
{
    Ring all;
    for (std::size_t i = 0; i < times; ++i)
        all.insert(all.end(), ring.begin(), ring.end());
    return all;
}

// From a centimetre, to which the stake-out margin is much, to a map sheet.
Ring some_ring(std::mt19937_64& random)
{
    const double size = std::pow(10.0, std::uniform_real_distribution<double>(-2.0, 4.0)(random));
    const std::size_t n = 5 + random() % 60;
    switch (random() % 6) {
    case 5:
        return wound(test::ellipse_ring(random, 100 + n, size), 4 + random() % 9);
    case 4:
        return wound(test::star_ring(random, n, size), 4 + random() % 9);
    case 0:
        return test::star_ring(random, n, size);
    case 1:
        return test::comb_ring(random, 2 + random() % 5, size);
    case 2:
        return test::crooked_ring(random, n, size);
    default:
        return test::with_repeated_vertices(
            random, test::with_vertices_on_sides(random, test::stepped_ring(random, 3 + random() % 6, size)));
    }
}

// Of rings at a place, a request that a line on the way meets is never hopeless, wherever that line lies. Others are:
// how many.
int never_of_a_request_that_a_line_meets(const PL_PNT2D_record& place)
{
    std::mt19937_64 random = test::random_source();
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    int proved = 0;
    for (int i = 0; i < 3000 && !testing::Test::HasFailure(); ++i) {
        SCOPED_TRACE(i);
        Ring ring = some_ring(random);
        ring = test::begun_at(ring, random() % ring.size());
        for (PL_PNT2D_record& p : ring)
            p = {p.x + place.x, p.y + place.y};
        Lines lines(ring);
        const std::int32_t at = static_cast<std::int32_t>(2 + random() % (ring.size() - 2));
        const double share =
            i % 3 == 0 ? std::pow(0.5, static_cast<double>(1 + random() % 30)) : unit(random);
        const double met = lines.area_at(at, share);
        if (met == 0.0)
            continue;
        EXPECT_FALSE(lines.hopeless(met, at));
        EXPECT_FALSE(lines.hopeless(met / (1.0 + 0.999e-6), at));
        EXPECT_FALSE(lines.hopeless(met / (1.0 - 0.999e-6), at));
        const double other = lines.area_at(at, 0.5) * unit(random);
        proved += lines.hopeless(other, at) ? 1 : 0;
    }
    return proved;
}

TEST(HopelessLines, NeverOfARequestThatALineMeets)
{
    EXPECT_GT(never_of_a_request_that_a_line_meets({0, 0}), 300);
}

TEST(HopelessLines, NeverAtNationalCoordinates)
{
    EXPECT_GT(never_of_a_request_that_a_line_meets({500000, 5000000}), 100);
}

}  // namespace
