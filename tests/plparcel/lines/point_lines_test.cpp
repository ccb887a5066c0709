#include "lines/point_lines.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

#include "boundary/measured_ring.h"
#include "support/bits.h"
#include "support/parcel_kinds.h"
#include "support/rings.h"

namespace {

using plparcel::Chord;
using plparcel::LocalRing;
using plparcel::MeasuredRing;
using plparcel::PointLines;
using plparcel::PointRequest;
using plparcel::Ring;
using plparcel::WidePoint;

// Local coordinates are those below: 4096 across.
const Ring kSquare = {{0, 0}, {4096, 0}, {4096, 4096}, {0, 4096}};
constexpr double kWhole = 0x1p24;

PointLines through(const Ring& ring, const PL_PNT2D_record& p, double on_right,
                   const PL_PNT2D_record& first = {0, 1}, double granted = 0.0)
{
    const MeasuredRing measured(ring);
    const LocalRing local(measured);
    PointRequest request = {};
    request.point = local.to_local(p);
    request.first = {first.x, first.y};
    request.on_right = on_right;
    request.granted = granted;
    PointLines found = lines_through_point(local, measured.turn(), request);
    found.ranges = united(found.ranges, local.area_to_local(measured.area()), 0.0);
    return found;
}

struct Segment {
    PL_PNT2D_record from;
    PL_PNT2D_record to;
};

void expect_lines(const std::vector<Chord>& lines, const std::vector<Segment>& wanted)
{
    ASSERT_EQ(lines.size(), wanted.size());
    for (std::size_t i = 0; i < lines.size(); ++i) {
        SCOPED_TRACE(i);
        EXPECT_BITS(lines[i].from.x.value(), wanted[i].from.x);
        EXPECT_BITS(lines[i].from.y.value(), wanted[i].from.y);
        EXPECT_BITS(lines[i].to.x.value(), wanted[i].to.x);
        EXPECT_BITS(lines[i].to.y.value(), wanted[i].to.y);
    }
}

TEST(PointLines, HoldTheAreaOnTheirRightClockwiseFromTheFirstDirection)
{
    //            .                  An L of three squares, seen from the middle of its corner square: the reflex vertex
    //   5 --- 4                     3 hides what is beyond.
    //   |     |
    //   |     3 --- 2
    //   |  o        |
    //   0 --------- 1
    const Ring el = {{0, 0}, {4096, 0}, {4096, 2048}, {2048, 2048}, {2048, 4096}, {0, 4096}};
    // A square with two walls that stand on its bottom and end at the level of its middle.
    const Ring walls = {{0, 0},       {1000, 0}, {1024, 2048}, {1048, 0},    {3048, 0},
                        {3072, 2048}, {3096, 0}, {4096, 0},    {4096, 4096}, {0, 4096}};
    const struct {
        const char* what;
        Ring ring;
        PL_PNT2D_record point;
        double on_right;
        PL_PNT2D_record first;
        std::vector<Segment> lines;
    } rows[] = {
        {"the least corner off a square, from 1024 inside of both its sides",
         kSquare,
         {1024, 1024},
         2048.0 * 2048.0 / 2,
         {0, 1},
         {{{0, 2048}, {2048, 0}}}},
        {"less than the least triangle: none", kSquare, {1024, 1024}, 2048.0 * 2048.0 / 2 - 1.0, {0, 1}, {}},
        {"an eighth more: legs x and y with 1024 / x + 1024 / y = 1 and x y = 2 * 0x1.2p21",
         kSquare,
         {1024, 1024},
         0x1.2p21,
         {0, 1},
         {{{0, 1536}, {3072, 0}}, {{0, 3072}, {1536, 0}}}},
        {"the same, from South-East on: between the two",
         kSquare,
         {1024, 1024},
         0x1.2p21,
         {1, -1},
         {{{0, 3072}, {1536, 0}}, {{0, 1536}, {3072, 0}}}},
        {"clockwise, the same",
         {{0, 0}, {0, 4096}, {4096, 4096}, {4096, 0}},
         {1024, 1024},
         0x1.2p21,
         {0, 1},
         {{{0, 1536}, {3072, 0}}, {{0, 3072}, {1536, 0}}}},
        {"a diagonal, to both corners",
         kSquare,
         {1024, 1024},
         kWhole / 2,
         {0, 1},
         {{{0, 0}, {4096, 4096}}, {{4096, 4096}, {0, 0}}}},
        {"to the reflex vertex of an L, and past it: the bisector is a line for the one that touches, too",
         el,
         {1024, 1024},
         0x1.8p22,
         {0, 1},
         {{{0, 0}, {2048, 2048}}, {{2048, 2048}, {0, 0}}}},
        {"from the tip of a wall to that of another: a little turned, one of its ends is far behind a tip",
         walls,
         {2048, 2048},
         0.5 * (2000 + 2048) * 2048,
         {0, 1},
         {{{1024, 2048}, {3072, 2048}}}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        expect_lines(through(row.ring, row.point, row.on_right, row.first).lines, row.lines);
    }
}

TEST(PointLines, WhereEveryLineHoldsItOnesAtVerticesAndBetweenThemStandForAll)
{
    const PointLines middle = through(kSquare, {2048, 2048}, kWhole / 2);
    expect_lines(middle.lines, {{{2048, 0}, {2048, 4096}},
                                {{1024, 0}, {3072, 4096}},
                                {{0, 0}, {4096, 4096}},
                                {{0, 2048}, {4096, 2048}},
                                {{0, 4096}, {4096, 0}},
                                {{1024, 4096}, {3072, 0}},
                                {{2048, 4096}, {2048, 0}},
                                {{3072, 4096}, {1024, 0}},
                                {{4096, 4096}, {0, 0}},
                                {{4096, 2048}, {0, 2048}},
                                {{4096, 0}, {0, 4096}},
                                {{3072, 0}, {1024, 4096}}});
    ASSERT_EQ(middle.ranges.size(), 1U);
    EXPECT_BITS(middle.ranges[0].least.value(), kWhole / 2);
    EXPECT_BITS(middle.ranges[0].most.value(), kWhole / 2);
}

TEST(PointLines, ThatMissByWhatIsGrantedComeLast)
{
    const double least = 2048.0 * 2048.0 / 2;
    const struct {
        const char* what;
        double on_right;
        double granted;
        std::size_t lines;
    } rows[] = {
        {"less than the least by what is granted: the least", least - 0.5, 0.5, 1},
        {"by more", least - 0.5, 0.49, 0},
        {"more than it: the two exact ones alone", least + 0.5, 0.5, 2},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        const std::vector<Chord> lines =
            through(kSquare, {1024, 1024}, row.on_right, {0, 1}, row.granted).lines;
        ASSERT_EQ(lines.size(), row.lines);
        for (const Chord& line : lines)
            EXPECT_EQ(line.beside_the_amount, row.on_right < least);
    }
}

TEST(PointLines, TellWhichAreasThereAre)
{
    const PointLines corner = through(kSquare, {1024, 1024}, 1.0);
    ASSERT_EQ(corner.ranges.size(), 1U);
    EXPECT_BITS(corner.ranges[0].least.value(), 2048.0 * 2048.0 / 2);
    EXPECT_BITS(corner.ranges[0].most.value(), kWhole - 2048.0 * 2048.0 / 2);
}

// A line in one direction, found by trying all sides, in long double.
struct Tried {
    std::size_t ahead = 0;
    std::size_t behind = 0;
    long double right = 0;
};

class Trials {
public:
    Trials(const Ring& ring, const PL_PNT2D_record& p) : ring_(ring), p_(p) {}

    Tried in(long double dir_rad) const
    {
        const long double ux = std::sin(dir_rad);
        const long double uy = std::cos(dir_rad);
        long double ahead = 1e30L;
        long double behind = 1e30L;
        Tried tried;
        for (std::size_t k = 0; k < ring_.size(); ++k) {
            const PL_PNT2D_record& a = ring_[k];
            const PL_PNT2D_record& b = ring_[(k + 1) % ring_.size()];
            const long double off_a = ux * (a.y - p_.y) - uy * (a.x - p_.x);
            const long double off_b = ux * (b.y - p_.y) - uy * (b.x - p_.x);
            if ((off_a > 0) == (off_b > 0))
                continue;
            const long double part = off_a / (off_a - off_b);
            const long double x = a.x - p_.x + part * (b.x - a.x);
            const long double y = a.y - p_.y + part * (b.y - a.y);
            const long double way = ux * x + uy * y;
            if (way > 0 && way < ahead) {
                ahead = way;
                tried.ahead = k;
            }
            if (way < 0 && -way < behind) {
                behind = -way;
                tried.behind = k;
            }
        }
        tried.right = area_on_right(tried, ux, uy, ahead, behind);
        return tried;
    }

private:
    long double area_on_right(const Tried& tried, long double ux, long double uy, long double ahead,
                              long double behind) const
    {
        std::vector<std::pair<long double, long double>> piece = {{-ux * behind, -uy * behind}};
        for (std::size_t k = tried.behind; k != tried.ahead;) {
            k = (k + 1) % ring_.size();
            piece.emplace_back(ring_[k].x - p_.x, ring_[k].y - p_.y);
        }
        piece.emplace_back(ux * ahead, uy * ahead);
        long double twice = 0;
        for (std::size_t k = 0; k < piece.size(); ++k) {
            const auto& a = piece[k];
            const auto& b = piece[(k + 1) % piece.size()];
            twice += a.first * b.second - a.second * b.first;
        }
        const long double whole = MeasuredRing(ring_).signed_area().value();
        return whole > 0 ? twice / 2 : -whole + twice / 2;
    }

    const Ring& ring_;
    PL_PNT2D_record p_;
};

bool is_inside(const Ring& ring, const PL_PNT2D_record& p)
{
    bool inside = false;
    for (std::size_t k = 0; k < ring.size(); ++k) {
        const PL_PNT2D_record& a = ring[k];
        const PL_PNT2D_record& b = ring[(k + 1) % ring.size()];
        if ((a.y > p.y) != (b.y > p.y) && p.x < a.x + (p.y - a.y) / (b.y - a.y) * (b.x - a.x))
            inside = !inside;
    }
    return inside;
}

// Where the line ends on the same two sides in two neighbouring directions, and holds less in the one and more in the
// other, a line between them holds it. Each line that is found holds it, too.
TEST(PointLines, AreAllThatManyDirectionsShow)
{
    constexpr int kCases = 300;
    constexpr int kDirections = 720;
    constexpr long double kTurn = 6.283185307179586477L;
    std::mt19937_64 random = test::random_source();
    std::uniform_real_distribution<double> within(-50.0, 50.0);
    int found = 0;
    for (int i = 0; i < kCases;) {
        const std::vector<test::ParcelKind>& kinds = test::parcel_kinds();
        const test::ParcelKind& kind = kinds[random() % kinds.size()];
        Ring ring = kind.make(random);
        const PL_PNT2D_record p = {within(random), within(random)};
        if (kind.far || !is_inside(ring, p))
            continue;
        if (++i % 2 == 0)
            ring = test::reversed(ring);
        const MeasuredRing measured(ring);
        const LocalRing local(measured);
        const double wanted =
            measured.area().value() * std::uniform_real_distribution<double>(0.1, 0.9)(random);
        PointRequest request = {};
        request.point = local.to_local(p);
        request.first = {0.0, 1.0};
        request.on_right = local.area_to_local(wanted);
        const std::vector<Chord> lines = lines_through_point(local, measured.turn(), request).lines;
        const Trials trials(ring, p);
        std::vector<long double> bearings;
        for (const Chord& line : lines) {
            const WidePoint run = line.to - line.from;
            long double bearing =
                std::atan2(static_cast<long double>(run.x.value()), static_cast<long double>(run.y.value()));
            bearing += bearing < 0 ? kTurn : 0;
            EXPECT_TRUE(bearings.empty() || bearings.back() <= bearing + 1e-12L) << kind.name;
            bearings.push_back(bearing);
            EXPECT_NEAR(static_cast<double>(trials.in(bearing).right), wanted, 1e-6 * wanted) << kind.name;
        }
        Tried before = trials.in(0);
        for (int k = 1; k <= kDirections; ++k) {
            const Tried now = trials.in(kTurn * k / kDirections);
            const bool same_sides = before.ahead == now.ahead && before.behind == now.behind;
            if (same_sides && (before.right < wanted) != (now.right < wanted)) {
                ++found;
                EXPECT_TRUE(std::any_of(bearings.begin(), bearings.end(),
                                        [k](long double bearing) {
                                            return bearing >= kTurn * (k - 1) / kDirections - 1e-9L &&
                                                   bearing <= kTurn * k / kDirections + 1e-9L;
                                        }))
                    << kind.name << " direction " << k;
            }
            before = now;
        }
    }
    EXPECT_GT(found, kCases / 2);
}

}  // namespace
