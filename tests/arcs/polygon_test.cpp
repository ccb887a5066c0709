#include <algorithm>

#include "arc_checks.h"
#include "plcalc/arcs.h"
#include "polygon_walk.h"

namespace {

using test::down;
using test::kInf;
using test::kNaN;
using test::kTwoPi;
using test::Ring;
using test::tol;
using test::up;
using test::WalkEnd;

constexpr int kUnknown = 0;

bool inside(const PL_PNT2D_record& p, const Ring& ring)
{
    const int n = static_cast<int>(ring.size());
    int rightmost = kUnknown;
    return PlFunz_inpolygon(&p, ring.data(), &n, &rightmost);
}

std::string shown(const PL_PNT2D_record& p, const Ring& ring)
{
    char text[120];
    std::snprintf(text, sizeof text, "point (%.17g, %.17g), ring", p.x, p.y);
    std::string all = text;
    for (std::size_t i = 0; i < ring.size() && i < 20; ++i) {
        std::snprintf(text, sizeof text, " (%.17g, %.17g)", ring[i].x, ring[i].y);
        all += text;
    }
    return all;
}

struct Row {
    const char* what;
    Ring ring;
    PL_PNT2D_record p;
    bool want;
};

const Ring kSquare = {{0, 0}, {1, 0}, {1, 1}, {0, 1}};
const Ring kDiamond = {{1, 0}, {2, 1}, {1, 2}, {0, 1}};
// Corners at 1000 and 3000, so that margins of 1e-4 and 3e-4 are told apart from those near zero.
const Ring kFar = {{1000, 1000}, {3000, 1100}, {3000, 3000}, {1000, 2900}};

const Row kRows[] = {
    {"unit square", kSquare, {0.5, 0.5}, true},
    {"unit square, right of it", kSquare, {1.5, 0.5}, false},
    {"unit square, left of it", kSquare, {-0.5, 0.5}, false},
    {"unit square, above", kSquare, {0.5, 1.5}, false},
    {"unit square, below", kSquare, {0.5, -0.5}, false},
    {"the ray goes through a vertex where the boundary crosses it", kDiamond, {0.5, 1}, true},
    {"the ray grazes the top", kDiamond, {0.5, 2}, false},
    {"the ray goes through both side vertices", kDiamond, {-0.5, 1}, false},
    {"right of the diamond, level with its corner", kDiamond, {2.5, 1}, false},
    {"the ray grazes the bottom", kDiamond, {-0.5, 0}, false},
    {"three vertices suffice", {{0, 0}, {4, 0}, {0, 4}}, {1, 1}, true},
    {"clockwise", {{0, 4}, {4, 0}, {0, 0}}, {1, 1}, true},
    {"not to be relied on: the boundary crosses along a side on the ray, which is not counted",
     {{0, 0}, {4, 0}, {4, 1}, {2, 1}, {2, 2}, {0, 2}},
     {-1, 1},
     true},
    {"a little above it is right", {{0, 0}, {4, 0}, {4, 1}, {2, 1}, {2, 2}, {0, 2}}, {-1, 1.01}, false},
    {"not to be relied on: the ray through vertex 0, where the boundary crosses",
     {{2, 1}, {1, 2}, {0, 1}, {1, 0}},
     {-0.5, 1},
     true},
    {"begun at another corner", {{1, 2}, {0, 1}, {1, 0}, {2, 1}}, {-0.5, 1}, false},
    {"not to be relied on: vertex 0 in the middle of an upright run",
     {{2, 1}, {2, 2}, {0, 2}, {0, 0}, {2, 0}},
     {1, 1.5},
     false},
    {"begun at the corner", {{2, 2}, {0, 2}, {0, 0}, {2, 0}, {2, 1}}, {1, 1.5}, true},
    {"vertices in the middle of sides",
     {{0, 0}, {1, 0}, {2, 0}, {2, 1}, {2, 2}, {1, 2}, {0, 2}, {0, 1}},
     {1, 1},
     true},
    {"a notch on the ray", {{0, 0}, {6, 0}, {6, 4}, {4, 4}, {3, 2}, {2, 4}, {0, 4}}, {1, 2}, true},
    {"a notch on the ray, in the notch",
     {{0, 0}, {6, 0}, {6, 4}, {4, 4}, {3, 2}, {2, 4}, {0, 4}},
     {3, 3},
     false},
    {"level run through vertex n-2 to 1: goes round, counted half-open",
     {{2, 1}, {3, 1}, {0, 0}, {0, 1}, {1, 1}},
     {1.5, 0.75},
     true},
    {"the same ring, outside", {{2, 1}, {3, 1}, {0, 0}, {0, 1}, {1, 1}}, {-0.5, 0.75}, false},
    {"the same ring, level with the run", {{2, 1}, {3, 1}, {0, 0}, {0, 1}, {1, 1}}, {-0.5, 1}, false},
    {"a vertex n-2 that crosses and merges into vertex 0: goes round",
     {{1, 3}, {0, 0}, {1, 1}, {1, 2}},
     {-0.5, 1},
     false},
    {"the same ring, a point inside", {{1, 3}, {0, 0}, {1, 1}, {1, 2}}, {0.9, 1.5}, true},
    {"repeated vertices: the walk passes vertex 0 and still ends",
     {{0, 2}, {0, 1}, {1, 0}, {0, 0}, {0, 0}},
     {-0.5, 1},
     true},
    {"more repeated vertices: a walk cut short at 0 would say otherwise",
     {{2, 1}, {2, 1}, {1, 2}, {1, 1}, {1, 1}, {0, 0}, {2, 0}, {2, 0}},
     {-0.5, 1},
     true},
    {"the walk meets a vertex again from another one, and that is not going round",
     {{0, 0}, {1, 0}, {1, 0}, {1, 1}, {1, 1}, {0, 1}, {1, 1}, {1, 0}},
     {0, 0.5},
     true},
    {"the walk takes the same two vertices again, and goes on to another one",
     {{1.8e-7, 2.4e-7}, {1.2e-7, 0}, {2.4e-7, 0}, {1.8e-7, 0.6e-7}, {1.2e-7, 1.8e-7}, {0.6e-7, 3.6e-7}},
     {-1, 1.2e-7},
     false},
    {"the same two vertices, both times at the end of a round: that is not going round either",
     {{2.1e-7, 2.1e-7},
      {0.3e-7, 2.7e-7},
      {0.6e-7, 0.3e-7},
      {1.5e-7, 0},
      {0.6e-7, 1.5e-7},
      {1.5e-7, 3e-7},
      {0, 3.3e-7},
      {0.9e-7, 3.3e-7},
      {1.2e-7, 0.9e-7},
      {2.1e-7, 1.2e-7},
      {0.6e-7, 0.9e-7}},
     {-1, 1.8e-7},
     true},
    {"all in line, as the walk finds after four rounds",
     {{1.17e-7, 1.3e-7},
      {1.04e-7, 1.69e-7},
      {0.13e-7, 0.52e-7},
      {0.39e-7, 0.39e-7},
      {0, 0.78e-7},
      {1.56e-7, 0.65e-7},
      {1.69e-7, 0.13e-7},
      {1.3e-7, 1.43e-7},
      {0.65e-7, 0.52e-7},
      {0.13e-7, 1.56e-7}},
     {-1, -1},
     false},
    {"all on one y", {{0, 1}, {3, 1}, {2, 1}, {5, 1}}, {-1, 1}, false},
    {"all on one x", {{1, 0}, {1, 3}, {1, 2}, {1, 5}}, {0, 1}, false},
    {"all on one y within the margin", {{0, 1}, {3, 1 + 1e-7}, {2, 1 - 1e-7}}, {-1, 1}, false},
    {"one and the same vertex", {{2, 3}, {2, 3}, {2, 3}}, {2, 3}, false},
    {"level with a side it lies on: inside the count", kSquare, {0.5, 0}, false},
    {"the ray ends 1000 beyond the rightmost vertex, far beyond a wide ring",
     {{-5000, 0}, {5000, -1}, {5000, 1}},
     {-4000, 0.05},
     true},
    {"national coordinates",
     {{483112.27, 4912877.91}, {483171.88, 4912860.15}, {483150.04, 4912901.3}},
     {483145, 4912880},
     true},
    {"national coordinates, outside",
     {{483112.27, 4912877.91}, {483171.88, 4912860.15}, {483150.04, 4912901.3}},
     {483120, 4912890},
     false},
    {"national coordinates: vertices 0.4 m apart in y are level, and the parcel is all one line",
     {{483112.27, 4912877.91}, {483171.88, 4912877.5}, {483150.04, 4912878.3}},
     {483150, 4912877.9},
     false},
    {"NaN point", kSquare, {kNaN, 0.5}, false},
    {"NaN point, y", kSquare, {0.5, kNaN}, false},
    {"infinite point to the left: the ray has no length that could be told", kSquare, {-kInf, 0.5}, false},
    {"infinite point to the right", kSquare, {kInf, 0.5}, false},
    {"infinite height", kSquare, {0.5, kInf}, false},
};

TEST(InPolygon, Table)
{
    test::Places places;
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(inside(row.p, row.ring), row.want);
        EXPECT_EQ(test::expected_inside(row.p, row.ring, places), row.want) << "the walk of the test itself";
    }
}

TEST(InPolygon, RowsEndAsTheirNamesSay)
{
    struct EndRow {
        const char* what;
        Ring ring;
        PL_PNT2D_record p;
        WalkEnd want;
    };
    const EndRow rows[] = {
        {"run n-2 to 1", {{2, 1}, {3, 1}, {0, 0}, {0, 1}, {1, 1}}, {1.5, 0.75}, WalkEnd::kGoesRound},
        {"run n-2 to 1, upright", {{1, 2}, {1, 3}, {0, 0}, {1, 0}, {1, 1}}, {0.5, 0.25}, WalkEnd::kGoesRound},
        {"crossing n-2 into 0", {{1, 3}, {0, 0}, {1, 1}, {1, 2}}, {-0.5, 1}, WalkEnd::kGoesRound},
        {"passes 0 and ends", {{0, 2}, {0, 1}, {1, 0}, {0, 0}, {0, 0}}, {-0.5, 1}, WalkEnd::kInside},
        {"passes 0 and ends, eight",
         {{2, 1}, {2, 1}, {1, 2}, {1, 1}, {1, 1}, {0, 0}, {2, 0}, {2, 0}},
         {-0.5, 1},
         WalkEnd::kInside},
        {"one y", {{0, 1}, {3, 1}, {2, 1}}, {-1, 1}, WalkEnd::kAllInLine},
        {"one x", {{1, 0}, {1, 3}, {1, 2}}, {-1, 1}, WalkEnd::kAllInLine},
    };
    test::Places places;
    for (const EndRow& row : rows) {
        SCOPED_TRACE(row.what);
        test::Walk walk(row.p, row.ring);
        EXPECT_EQ(walk.go(walk.rightmost(), places), row.want);
    }
}

struct IndexRow {
    const char* what;
    Ring ring;
    PL_PNT2D_record p;
    int count;
    int index;
    int want_index;
    bool want;
};

const IndexRow kIndexRows[] = {
    {"unknown: searched and stored", kSquare, {0.5, 0.5}, 4, 0, 2, true},
    {"the last of equal ones", {{0, 0}, {5, 0}, {5, 1}, {5, 2}, {0, 2}}, {1, 1}, 5, 0, 3, true},
    {"near-equal: the last, though it is a hair less",
     {{0, 0}, {5, 0}, {5 - 5e-7, 1}, {0, 2}},
     {1, 1},
     4,
     0,
     2,
     true},
    {"on the margin below the best so far",
     {{0, 0}, {5, 0}, {5 - tol(5.0), 1}, {0, 2}},
     {1, 1},
     4,
     0,
     2,
     true},
    {"just below the margin: the first stays",
     {{0, 0}, {5, 0}, {down(5 - tol(5.0)), 1}, {0, 2}},
     {1, 1},
     4,
     0,
     1,
     true},
    {"the best falls, and the margin goes with it",
     {{0, 0}, {5, 0}, {5 - 5e-7, 1}, {5 - 1e-6, 2}, {0, 2}},
     {1, 1},
     5,
     0,
     3,
     true},
    {"west of zero the margin is that of the size",
     {{-9, 0}, {-5, 0}, {-5 - tol(5.0), 1}, {-9, 2}},
     {-8, 1},
     4,
     0,
     2,
     true},
    {"west of zero, just below the margin",
     {{-9, 0}, {-5, 0}, {down(-5 - tol(5.0)), 1}, {-9, 2}},
     {-8, 1},
     4,
     0,
     1,
     true},
    {"vertex 0 is the rightmost: stays unknown", {{5, 0}, {0, 2}, {0, -2}}, {1, 0.5}, 3, 0, 0, true},
    {"negative: unknown", kSquare, {0.5, 0.5}, 4, -1, 2, true},
    {"very negative: unknown", kSquare, {0.5, 0.5}, 4, std::numeric_limits<int>::min(), 2, true},
    {"the number of vertices: unknown", kSquare, {0.5, 0.5}, 4, 4, 2, true},
    {"huge: unknown", kSquare, {0.5, 0.5}, 4, std::numeric_limits<int>::max(), 2, true},
    {"the last index is one", kSquare, {0.5, 0.5}, 4, 3, 3, true},
    {"trusted, though wrong", kSquare, {0.5, 0.5}, 4, 1, 1, true},
    {"trusted and wrong: the ray ends too soon",
     {{-3000, 0}, {2000, -1}, {2000, 1}},
     {-2900, 0.01},
     3,
     0,
     2,
     true},
    {"the same with the vertex on the left: the crossing at 2000 is not reached",
     {{2000, 1}, {-3000, 0}, {2000, -1}},
     {-2900, 0.01},
     3,
     1,
     1,
     false},
    {"the same, searched", {{2000, 1}, {-3000, 0}, {2000, -1}}, {-2900, 0.01}, 3, 0, 2, true},
    {"the ray reaches 1000 beyond the trusted vertex",
     {{1000, 1}, {-3000, -2}, {0, -10}, {1000, -1}},
     {999, -0.5},
     4,
     2,
     2,
     true},
    {"and no further",
     {{1000.00005, 1}, {-3000, -2}, {0, -10}, {1000.00005, -1}},
     {999, -0.5},
     4,
     2,
     2,
     false},
    {"two vertices: false, the index untouched", kSquare, {0.5, 0.5}, 2, 0, 0, false},
    {"two vertices: false, an index outside untouched", kSquare, {0.5, 0.5}, 2, 77, 77, false},
    {"no vertices", kSquare, {0.5, 0.5}, 0, 0, 0, false},
    {"a negative number", kSquare, {0.5, 0.5}, -5, -7, -7, false},
    {"three of the four: a triangle", kSquare, {0.75, 0.25}, 3, 0, 2, true},
    {"three of the four, the other half", kSquare, {0.25, 0.75}, 3, 0, 2, false},
    {"NaN vertices are not rightmost", {{0, 0}, {5, 0}, {kNaN, 1}, {0, 2}}, {1, -1}, 4, 0, 1, false},
    {"nothing but NaN: index 0", {{kNaN, 0}, {kNaN, 0}, {kNaN, 2}}, {1, 1}, 3, 0, 0, false},
    {"further west than any coordinate: index 0",
     {{-1e300, 0}, {-1.1e300, 5}, {-1.2e300, -5}},
     {0, 1},
     3,
     -3,
     0,
     false},
    {"further west than -1.7e200: index 0",
     {{-1.8e200, 0}, {-1.8e200, 5}, {-1.8e200, -5}},
     {0, 1},
     3,
     0,
     0,
     false},
    {"not quite so far west: found", {{-1.6e200, 0}, {-1.6e200, 5}, {-1.6e200, -5}}, {0, 1}, 3, 0, 2, false},
    {"minus infinity is not found", {{-kInf, 0}, {-kInf, 5}, {-kInf, -5}}, {0, 1}, 3, 0, 0, false},
};

TEST(InPolygon, RightmostIndex)
{
    for (const IndexRow& row : kIndexRows) {
        SCOPED_TRACE(row.what);
        int index = row.index;
        const int count = row.count;
        const Ring before = row.ring;
        EXPECT_EQ(PlFunz_inpolygon(&row.p, row.ring.data(), &count, &index), row.want);
        EXPECT_EQ(index, row.want_index);
        EXPECT_EQ(count, row.count);
        // A second call trusts what the first one found.
        EXPECT_EQ(PlFunz_inpolygon(&row.p, row.ring.data(), &count, &index), row.want);
        EXPECT_EQ(index, row.want_index);
    }
}

// Every ring of n vertices on a grid of side x side. A ring and its mirror image are both among them, so that
// points on the half-step grid from the middle upward will do; those right of everything are left out.
class GridRings {
public:
    GridRings(int n, int side)
        : side_(side), digits_(static_cast<std::size_t>(n), 0), ring_(static_cast<std::size_t>(n), {0, 0})
    {}

    const Ring& ring() const { return ring_; }

    bool next()
    {
        for (std::size_t i = 0; i < digits_.size(); ++i) {
            digits_[i] = digits_[i] + 1 == side_ * side_ ? 0 : digits_[i] + 1;
            ring_[i] = {static_cast<double>(digits_[i] % side_), static_cast<double>(digits_[i] / side_)};
            if (digits_[i] != 0)
                return true;
        }
        return false;
    }

private:
    int side_;
    std::vector<int> digits_;
    Ring ring_;
};

struct Tally {
    std::int64_t walks = 0;
    std::int64_t rounds = 0;
    std::int64_t inside = 0;
};

// False at the first difference.
::testing::AssertionResult agrees(const PL_PNT2D_record& p, const Ring& ring, test::Places& places,
                                  Tally& tally)
{
    test::Walk walk(p, ring);
    const WalkEnd end = walk.go(walk.rightmost(), places);
    const bool want = end == WalkEnd::kGoesRound ? walk.half_open() : end == WalkEnd::kInside;
    ++tally.walks;
    tally.rounds += end == WalkEnd::kGoesRound ? 1 : 0;
    tally.inside += want ? 1 : 0;
    if (inside(p, ring) == want)
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure()
           << "wanted " << want << (end == WalkEnd::kGoesRound ? " by the count: " : " by the walk: ")
           << shown(p, ring);
}

TEST(InPolygon, EveryRingOnASmallGrid)
{
    test::Places places;
    Tally tally;
    for (int n = 3; n <= 5; ++n) {
        GridRings rings(n, 3);
        do {
            for (int y = 2; y <= 5; ++y)
                for (int x = -1; x <= 4; ++x)
                    ASSERT_TRUE(agrees({x * 0.5, y * 0.5}, rings.ring(), places, tally));
        } while (rings.next());
    }
    // The interesting ones are there.
    EXPECT_GT(tally.rounds, 10000);
    EXPECT_GT(tally.inside, 10000);
    EXPECT_EQ(tally.walks, 24 * (729 + 6561 + 59049));
}

TEST(InPolygon, EveryRingOfSixOnASmallGrid)
{
    test::Places places;
    Tally tally;
    GridRings rings(6, 3);
    do {
        for (const double y : {1.0, 1.5})
            for (const double x : {-0.5, 0.5})
                ASSERT_TRUE(agrees({x, y}, rings.ring(), places, tally));
    } while (rings.next());
    EXPECT_GT(tally.rounds, 10000);
    EXPECT_GT(tally.inside, 10000);
}

TEST(InPolygon, RandomRingsWithRepeatedVertices)
{
    std::mt19937_64 random = test::random_source();
    test::Places places;
    Tally tally;
    for (int i = 0; i < 10000; ++i) {
        Ring ring(7 + static_cast<std::size_t>(random() % 4), {0, 0});
        for (std::size_t k = 0; k < ring.size(); ++k) {
            if (k > 0 && random() % 4 == 0)
                ring[k] = ring[k - 1];
            else
                ring[k] = {static_cast<double>(random() % 4), static_cast<double>(random() % 4)};
        }
        for (int y = -1; y <= 7; ++y)
            for (int x = -1; x <= 7; x += 2)
                ASSERT_TRUE(agrees({x * 0.5, y * 0.5}, ring, places, tally));
    }
    EXPECT_GT(tally.rounds, 1000);
    EXPECT_GT(tally.inside, 1000);
}

// A ring without self-intersections: corners in every direction around a point.
Ring star(std::mt19937_64& random, int n, const PL_PNT2D_record& around, double size, double step)
{
    std::uniform_real_distribution<double> radius(0.2 * size, size);
    Ring ring;
    for (int i = 0; i < n; ++i) {
        const double dir = kTwoPi * i / n;
        const double r = radius(random);
        ring.push_back({around.x + step * std::round(r * std::cos(dir) / step),
                        around.y + step * std::round(r * std::sin(dir) / step)});
    }
    return ring;
}

struct Place {
    const char* what;
    PL_PNT2D_record around;
    double size;
    double step;  // corners are rounded to it: a coarse one makes many level
};

const Place kPlaces[] = {
    {"unit size", {0, 0}, 1, 1e-3},
    {"unit size, many level", {0, 0}, 1, 0.125},
    {"site size", {500, 300}, 100, 0.01},
    {"site size, many level", {500, 300}, 100, 5},
    {"national size", {483112.27, 4912877.91}, 200, 0.01},
    {"national size, many level", {483112.25, 4912877.5}, 200, 8},
};

TEST(InPolygon, SimpleRingsAgreeWithTheWalk)
{
    std::mt19937_64 random = test::random_source();
    test::Places places;
    for (const Place& place : kPlaces) {
        SCOPED_TRACE(place.what);
        Tally tally;
        std::uniform_real_distribution<double> off(-1.2 * place.size, 1.2 * place.size);
        for (int i = 0; i < 400; ++i) {
            Ring ring =
                star(random, 3 + static_cast<int>(random() % 14), place.around, place.size, place.step);
            if (i % 2 == 0)
                std::reverse(ring.begin(), ring.end());
            for (int k = 0; k < 25; ++k) {
                PL_PNT2D_record p = {place.around.x + off(random), place.around.y + off(random)};
                if (k % 2 == 0)
                    p.y = ring[random() % ring.size()].y;
                if (k % 8 == 0)
                    p.x = ring[random() % ring.size()].x;
                ASSERT_TRUE(agrees(p, ring, places, tally));
            }
        }
        EXPECT_GT(tally.inside, 1000);
    }
}

TEST(InPolygon, RightWhereNoVertexIsLevel)
{
    // Without runs and away from level vertices, the answer is the truth, whatever vertex comes first.
    std::mt19937_64 random = test::random_source();
    int tested = 0;
    for (const Place& place : kPlaces) {
        SCOPED_TRACE(place.what);
        std::uniform_real_distribution<double> off(-1.2 * place.size, 1.2 * place.size);
        const double clear = 3 * tol(std::fabs(place.around.y) + place.size);
        for (int i = 0; i < 400; ++i) {
            const Ring ring = star(random, 5 + static_cast<int>(random() % 12), place.around, place.size,
                                   1e-3 * place.size);
            bool runs = false;
            for (std::size_t k = 0; k < ring.size(); ++k) {
                const PL_PNT2D_record& a = ring[k];
                const PL_PNT2D_record& b = ring[(k + 1) % ring.size()];
                runs = runs || std::fabs(a.x - b.x) < clear || std::fabs(a.y - b.y) < clear;
            }
            if (runs)
                continue;
            for (int k = 0; k < 20; ++k) {
                const PL_PNT2D_record p = {place.around.x + off(random), place.around.y + off(random)};
                bool level = false;
                for (const PL_PNT2D_record& v : ring)
                    level = level || std::fabs(v.y - p.y) < clear;
                if (level)
                    continue;
                ++tested;
                ASSERT_EQ(inside(p, ring), test::Walk(p, ring).half_open()) << shown(p, ring);
            }
        }
    }
    EXPECT_GT(tested, 10000);
}

// Large rings. A cost that grew with the square of n would need hours here.
constexpr int kLarge = 100000;

Ring comb()
{
    Ring ring;
    for (int i = 0; i < kLarge / 2; ++i) {
        ring.push_back({2.0 * i, 0});
        ring.push_back({2.0 * i + 1, 10});
    }
    ring.push_back({2.0 * kLarge, -5});
    ring.push_back({-1, -5});
    return ring;
}

Ring staircase()
{
    // Long level and upright runs.
    Ring ring = {{0, 0}};
    for (int i = 0; static_cast<int>(ring.size()) < kLarge; ++i) {
        for (int k = 1; k <= 100; ++k)
            ring.push_back({100.0 * i + k, 100.0 * i});
        for (int k = 1; k <= 100; ++k)
            ring.push_back({100.0 * (i + 1), 100.0 * i + k});
    }
    ring.push_back({0, ring.back().y});
    return ring;
}

Ring spiral()
{
    Ring ring;
    for (int i = 0; i < kLarge / 2; ++i) {
        const double dir = i * 0.01;
        ring.push_back({(10 + dir) * std::cos(dir), (10 + dir) * std::sin(dir)});
    }
    for (int i = kLarge / 2 - 1; i >= 0; --i) {
        const double dir = i * 0.01;
        ring.push_back({(12 + dir) * std::cos(dir), (12 + dir) * std::sin(dir)});
    }
    return ring;
}

Ring repeated()
{
    // A square with each corner many times.
    Ring ring;
    for (const PL_PNT2D_record& corner : kSquare)
        for (int i = 0; i < kLarge / 4; ++i)
            ring.push_back(corner);
    return ring;
}

Ring level_run_over_the_start()
{
    // The walk goes round for ever in this one.
    Ring ring;
    for (int i = 0; i < kLarge / 2; ++i)
        ring.push_back({static_cast<double>(i), 1});
    ring.push_back({0.5, 0});
    for (int i = kLarge / 2; i > 0; --i)
        ring.push_back({-static_cast<double>(i), 1});
    return ring;
}

Ring to_and_fro(std::mt19937_64& random)
{
    // Corners of a square in no order: the walk goes round for ever, and its rounds are long.
    Ring ring;
    for (int i = 0; i < kLarge; ++i)
        ring.push_back(kSquare[random() % 4]);
    return ring;
}

Ring creeping()
{
    // Each vertex is level with hundreds of its neighbours, but with others than they are: the walk takes many
    // rounds, each through other vertices, before it comes back to a place.
    constexpr int n = 4000;
    constexpr int up = n / 2 + 1;
    Ring ring;
    for (int i = 0; i < n; ++i) {
        const double steps = i < up ? i : up - (i - up) * (static_cast<double>(up) / (n - up));
        ring.push_back({static_cast<double>(i), steps * 1e-7 / 500.5});
    }
    std::rotate(ring.begin(), ring.begin() + 1, ring.end());
    return ring;
}

// Out on one slope that rises by the margin in `run` steps, and back on another: the walk ends by itself, but only
// after hundreds of rounds.
Ring sliver(int n, int up, double run)
{
    Ring ring;
    for (int i = 0; i < n; ++i) {
        const double s = i < up ? i : up - (i - up) * (static_cast<double>(up) / (n - up));
        ring.push_back({s + (i < up ? 0 : 0.3), s * 1e-7 / run});
    }
    return ring;
}

Ring upright(const Ring& level)
{
    Ring ring;
    for (const PL_PNT2D_record& v : level)
        ring.push_back({v.y, v.x});
    return ring;
}

TEST(InPolygon, WalksOfManyRoundsPastVerticesAtInfinity)
{
    // Two vertices at opposite infinities are in line with one another, and with no number when the run begins there.
    const struct {
        const char* what;
        Ring ring;
        std::size_t at;
        double northing;
        PL_PNT2D_record p;
        bool want;
    } rows[] = {
        {"north, then south", upright(sliver(60, 28, 6)), 44, kInf, {1.6041666666666666e-07, 16}, true},
        {"south, then north", upright(sliver(52, 32, 9)), 24, -kInf, {1.1111111111111111e-07, 17}, true},
    };
    test::Places places;
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        Ring ring = row.ring;
        ring[row.at].y = row.northing;
        ring[row.at + 1].y = -row.northing;
        EXPECT_EQ(inside(row.p, ring), row.want);
        EXPECT_EQ(test::expected_inside(row.p, ring, places), row.want) << "the walk of the test itself";
    }
}

TEST(InPolygon, WalksOfManyRounds)
{
    const struct {
        const char* what;
        Ring ring;
        PL_PNT2D_record p;
        double rounds;  // what the walk passes, in rings
    } kLong[] = {
        {"511 rounds", sliver(9201, 4613, 680.5), {1627, 0x1.00b84201c5354p-22}, 511},
        {"994 rounds", sliver(15548, 7792, 1393.5), {3443, 0x1.094a8cc3e1736p-22}, 994},
        {"1058 rounds", sliver(15325, 7660, 1126.5), {3270, 0x1.37af74d2e986dp-22}, 1058},
        {"1520 rounds", sliver(13055, 6528, 1520.5), {2767, 0x1.86c998b857ce4p-23}, 1520},
    };
    test::Places places;
    for (const auto& row : kLong) {
        SCOPED_TRACE(row.what);
        test::Walk walk(row.p, row.ring);
        EXPECT_EQ(walk.go(walk.rightmost(), places), test::WalkEnd::kOutside);
        EXPECT_TRUE(walk.half_open());
        const int n = static_cast<int>(row.ring.size());
        EXPECT_NEAR(static_cast<double>(walk.steps()) / n, row.rounds, 0.5);
        int rightmost = 0;
        EXPECT_FALSE(PlFunz_inpolygon(&row.p, row.ring.data(), &n, &rightmost));
    }
}

// Out and back in steps of about a `run`th of the margin, level or plumb, so that runs end on the margin's very
// rim: hundreds of vertices, most of them passed over many at a time. Some rings are so low that a vertex halfway
// up is in line with all the others.
Ring creeping_ring(std::mt19937_64& random)
{
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    const double starts[] = {0.0, -2e-7, 1.0, -1.0, 3000.0};
    const double start = starts[random() % 5];
    const int n = 250 + static_cast<int>(random() % 2500);
    const int up = n / 2 + static_cast<int>(random() % 40) - 20;
    const double run = random() % 3 == 0 ? up / (1.5 + unit(random))
                                         : 3 + static_cast<double>(random() % static_cast<unsigned>(n / 6));
    const double rim = (unit(random) - 0.5) * std::pow(10.0, -5.0 - 3.0 * unit(random));
    const double step = tol(start) * (1.0 + rim) / (run + (random() % 2 == 0 ? 0.0 : 0.5));
    const bool level = random() % 2 == 0;
    Ring ring;
    for (int i = 0; i < n; ++i) {
        const double s = i < up ? i : up - (i - up) * (static_cast<double>(up) / (n - up));
        const double along = i < up ? s : s + 0.3;
        ring.push_back(level ? PL_PNT2D_record{along, start + s * step}
                             : PL_PNT2D_record{start + s * step, along});
    }
    if (random() % 4 == 0)
        ring[random() % ring.size()].y = kNaN;
    std::rotate(ring.begin(), ring.begin() + static_cast<std::ptrdiff_t>(random() % 3), ring.end());
    return ring;
}

TEST(InPolygon, WalksOfManyRoundsAgreeWithTheWalk)
{
    std::mt19937_64 random = test::random_source();
    test::Places places;
    Tally tally;
    int long_ones = 0;
    for (int i = 0; i < 1500; ++i) {
        const Ring ring = creeping_ring(random);
        const PL_PNT2D_record& a = ring[random() % ring.size()];
        const PL_PNT2D_record& b = ring[random() % ring.size()];
        const PL_PNT2D_record p = {(a.x + b.x) / 2, random() % 2 == 0 ? a.y : (a.y + b.y) / 2};
        ASSERT_TRUE(agrees(p, ring, places, tally));
        test::Walk walk(p, ring);
        walk.go(walk.rightmost(), places);
        long_ones += walk.steps() > 5 * static_cast<std::int64_t>(ring.size()) ? 1 : 0;
    }
    EXPECT_GT(long_ones, 300);
    EXPECT_GT(tally.rounds, 100);
    EXPECT_GT(tally.walks - tally.rounds, 100);
}

TEST(InPolygon, LargeRings)
{
    test::Places places;
    Tally tally;
    std::mt19937_64 random = test::random_source();
    for (const Ring& ring : {comb(), staircase(), spiral(), repeated(), level_run_over_the_start(),
                             to_and_fro(random), creeping(), Ring(kLarge, {3, 4})}) {
        for (int i = 0; i < 2; ++i) {
            const PL_PNT2D_record& a = ring[random() % ring.size()];
            const PL_PNT2D_record& b = ring[random() % ring.size()];
            ASSERT_TRUE(agrees({(a.x + b.x) / 2, i % 2 == 0 ? a.y : (a.y + b.y) / 2}, ring, places, tally));
        }
        ASSERT_TRUE(agrees({0.25, 0.75}, ring, places, tally));
    }
    EXPECT_GT(tally.rounds, 0);
}

// Numbers on, just inside and just outside the margins around c: that taken from c and that taken from the
// other number.
std::vector<double> rims(double c)
{
    std::vector<double> all = {c};
    for (const int side : {-1, 1}) {
        double other = c;
        for (int i = 0; i < 20; ++i)
            other = c + side * tol(other);
        for (const double rim : {c + side * tol(c), other})
            for (const double v : {down(down(rim)), down(rim), rim, up(rim), up(up(rim))})
                all.push_back(v);
        all.push_back(c + side * (std::fabs(c) + 1));
    }
    return all;
}

TEST(InPolygon, RimsOfTheMargins)
{
    std::mt19937_64 random = test::random_source();
    test::Places places;
    Tally tally;
    // At 1e-7 / (1 - 1e-7) the margin reaches down to zero exactly, or next to it.
    for (const double c : {0.0, 1e-7 / (1 - 1e-7), -1e-7 / (1 - 1e-7), 0.75, 1.0, -1.0, 3.0, 1000.0, -1000.0,
                           483112.27, -4912877.91}) {
        std::vector<double> near = rims(c);
        near.push_back(0.0);
        near.push_back(-0.0);
        const auto any = [&] { return random() % 3 == 0 ? c : near[random() % near.size()]; };
        for (int i = 0; i < 20000; ++i) {
            Ring ring(3 + static_cast<std::size_t>(random() % 5), {0, 0});
            for (PL_PNT2D_record& v : ring) {
                v = {any(), any()};
                // Far to the right, so that the ray meets what the levels say it meets.
                if (random() % 2 == 0)
                    v.x = c + static_cast<double>(random() % 50);
            }
            const PL_PNT2D_record p = {random() % 2 == 0 ? any() : c - 1, any()};
            ASSERT_TRUE(agrees(p, ring, places, tally)) << "around " << c;
        }
    }
    EXPECT_GT(tally.inside, 1000);
}

TEST(InPolygon, EndsWhateverTheNumbers)
{
    std::mt19937_64 random = test::random_source();
    const double odd[] = {0.0,  -0.0,  1.0,    2.0,    kInf, -kInf,
                          kNaN, 1e300, -1e300, 5e-324, 1e-7, 1.7976931348623157e308};
    test::Places places;
    Tally tally;
    for (int i = 0; i < 100000; ++i) {
        Ring ring(3 + static_cast<std::size_t>(random() % 6), {0, 0});
        for (PL_PNT2D_record& v : ring)
            v = {odd[random() % 12], odd[random() % 12]};
        const PL_PNT2D_record p = {odd[random() % 12], odd[random() % 12]};
        ASSERT_TRUE(agrees(p, ring, places, tally));
    }
}

}  // namespace
