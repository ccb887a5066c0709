// A parcel turned by quarters, mirrored, enlarged by a power of two, moved, its rings begun elsewhere and its holes told in
// another order: the same amounts can be had, by the same lines.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <random>
#include <string>
#include <vector>

#include "lattice.h"
#include "plparcel/division.h"
#include "plparcel/feasible.h"
#include "support/bits.h"
#include "support/rings.h"

namespace {

using plparcel::check_parcel;
using plparcel::Cut;
using plparcel::divide;
using plparcel::Division;
using plparcel::Feasible;
using plparcel::Line;
using plparcel::Measured;
using plparcel::Parcel;
using plparcel::Pieces;
using plparcel::Request;
using plparcel::Ring;
using plparcel::Status;
using Random = std::mt19937_64;

std::size_t below(Random& random, std::size_t n)
{
    return std::uniform_int_distribution<std::size_t>(0, n - 1)(random);
}

double whole(Random& random, int low, int high)
{
    return std::uniform_int_distribution<int>(low, high)(random);
}

bool is_plain(const Parcel& parcel)
{
    const plparcel::RingReport report = check_parcel(parcel);
    return report.status == plparcel::BoundaryStatus::usable && report.repeated == 0 && !report.closed;
}

// Steps, or a square, with up to three holes of three to five corners, all on whole numbers.
Parcel any_parcel(Random& random)
{
    constexpr int kSize = 12;
    Parcel parcel = {{{0, 0}, {kSize, 0}, {kSize, kSize}, {0, kSize}}, {}};
    const Ring steps = parcel_test::lattice_ring(random);
    if (below(random, 2) == 0 && is_plain({steps, {}})) {
        parcel.outer.clear();
        for (const PL_PNT2D_record& p : steps)
            parcel.outer.push_back({3.0 * p.x, 3.0 * p.y});
    }
    for (std::size_t tries = below(random, 12); tries > 0 && parcel.holes.size() < 3; --tries) {
        Ring hole;
        const double x = whole(random, 0, kSize);
        const double y = whole(random, 0, kSize);
        for (std::size_t n = 3 + below(random, 3); n > 0; --n)
            hole.push_back({x + whole(random, 0, 4), y + whole(random, 0, 4)});
        parcel.holes.push_back(hole);
        if (!is_plain(parcel))
            parcel.holes.pop_back();
    }
    return parcel;
}

const Ring& ring_of(const Parcel& parcel, std::size_t ring)
{
    return ring == 0 ? parcel.outer : parcel.holes[ring - 1];
}

struct Asked {
    Line line;
    Measured measured = Measured::from_reference;
    Pieces pieces = Pieces::two;
    double amount = 0.0;
};

Asked any_request(Random& random, const Parcel& parcel)
{
    Asked asked;
    constexpr Cut kCuts[] = {Cut::parallel, Cut::perpendicular, Cut::through_vertex, Cut::through_place,
                             Cut::along_segment};
    asked.line.cut = kCuts[below(random, 5)];
    if (asked.line.cut == Cut::along_segment)
        asked.line = plparcel::along_segment({0, 0}, {whole(random, -5, 5), whole(random, 1, 5)});
    else {
        asked.line.ring = below(random, parcel.holes.size() + 1);
        asked.line.index = below(random, ring_of(parcel, asked.line.ring).size());
        if (asked.line.cut == Cut::through_place)
            asked.line.along = 0.5 * whole(random, 1, 8);
    }
    asked.measured = static_cast<Measured>(below(random, 2));
    asked.pieces = below(random, 3) == 0 ? Pieces::any : Pieces::two;
    asked.amount = 0.5 * whole(random, 1, static_cast<int>(2.0 * check_parcel(parcel).area) - 1);
    return asked;
}

// What keeps all coordinates exact.
struct Change {
    bool mirrored;
    std::size_t quarters;
    double larger;
    PL_PNT2D_record moved;
    std::size_t begun_at;
    std::size_t first_hole;

    PL_PNT2D_record turned(PL_PNT2D_record p) const
    {
        if (mirrored)
            p.x = -p.x;
        for (std::size_t i = 0; i < quarters; ++i)
            p = {-p.y, p.x};
        return {larger * p.x, larger * p.y};
    }

    PL_PNT2D_record of(const PL_PNT2D_record& p) const
    {
        const PL_PNT2D_record at = turned(p);
        return {at.x + moved.x, at.y + moved.y};
    }

    Ring of(const Ring& ring) const
    {
        Ring changed;
        for (const PL_PNT2D_record& p : ring)
            changed.push_back(of(p));
        return test::begun_at(changed, begun_at % ring.size());
    }

    Parcel of(const Parcel& parcel) const
    {
        Parcel changed = {of(parcel.outer), {}};
        for (std::size_t i = 0; i < parcel.holes.size(); ++i)
            changed.holes.push_back(of(parcel.holes[(i + first_hole) % parcel.holes.size()]));
        return changed;
    }

    Asked of(Asked asked, const Parcel& parcel) const
    {
        asked.amount *= larger * larger;
        if (asked.line.cut == Cut::along_segment) {  // the left of it becomes the right
            asked.line.b = turned(asked.line.b);
            if (mirrored)
                asked.measured =
                    asked.measured == Measured::opposite ? Measured::from_reference : Measured::opposite;
            return asked;
        }
        const std::size_t n = ring_of(parcel, asked.line.ring).size();
        asked.line.index = (asked.line.index + n - begun_at % n) % n;
        asked.line.along *= larger;
        const std::size_t holes = parcel.holes.size();
        if (asked.line.ring > 0)
            asked.line.ring = 1 + (asked.line.ring - 1 + holes - first_hole % holes) % holes;
        return asked;
    }
};

Change any_change(Random& random)
{
    Change change = {};
    change.mirrored = below(random, 2) == 0;
    change.quarters = below(random, 4);
    change.larger = below(random, 3) == 0 ? 0x1p20 : 1.0;
    if (below(random, 3) == 0)
        change.moved = {0x1p13 * change.larger, -0x1p12 * change.larger};
    change.begun_at = below(random, 60);
    change.first_hole = below(random, 3);
    return change;
}

std::string shown(const Parcel& parcel, const Asked& asked, const Change& change)
{
    char text[200];
    std::snprintf(
        text, sizeof text, "cut %d ring %zu index %zu along %g b %g %g measured %d pieces %d amount %g; ",
        static_cast<int>(asked.line.cut), asked.line.ring, asked.line.index, asked.line.along, asked.line.b.x,
        asked.line.b.y, static_cast<int>(asked.measured), static_cast<int>(asked.pieces), asked.amount);
    std::string all = text;
    std::snprintf(text, sizeof text, "mirrored %d quarters %zu larger %g moved %g begun %zu hole %zu",
                  change.mirrored, change.quarters, change.larger, change.moved.x, change.begun_at,
                  change.first_hole);
    all += text;
    for (std::size_t ring = 0; ring <= parcel.holes.size(); ++ring) {
        all += "\n";
        for (const PL_PNT2D_record& p : ring_of(parcel, ring)) {
            std::snprintf(text, sizeof text, "{%g, %g}, ", p.x, p.y);
            all += text;
        }
    }
    return all;
}

// Next to nothing, and to all, a place's rounding tells whether the end is had.
void expect_same_ranges(const Feasible& one, const Feasible& other, double larger)
{
    ASSERT_EQ(one.refusal, other.refusal);
    ASSERT_EQ(one.ranges.size(), other.ranges.size());
    const double reach = 1e-9 * one.parcel;
    for (std::size_t i = 0; i < one.ranges.size(); ++i) {
        const plparcel::AmountRange& range = one.ranges[i];
        EXPECT_NEAR(range.least, other.ranges[i].least / larger / larger, reach);
        EXPECT_NEAR(range.most, other.ranges[i].most / larger / larger, reach);
        EXPECT_TRUE(range.least_is_had == other.ranges[i].least_is_had || range.least < reach) << range.least;
        EXPECT_TRUE(range.most_is_had == other.ranges[i].most_is_had || range.most > one.parcel - reach)
            << range.most;
    }
}

Feasible feasible_of(const Parcel& parcel, const Asked& asked)
{
    return plparcel::feasible(parcel, asked.line, asked.measured, asked.pieces);
}

Division divided(const Parcel& parcel, const Asked& asked, std::size_t alternative = 0)
{
    Request request;
    request.line = asked.line;
    request.measured = asked.measured;
    request.pieces = asked.pieces;
    request.amounts = {plparcel::area(asked.amount)};
    request.alternative = alternative;
    return divide(parcel, request);
}

std::vector<plparcel::Segment> reversed(std::vector<plparcel::Segment> segments)
{
    std::reverse(segments.begin(), segments.end());
    for (plparcel::Segment& segment : segments)
        std::swap(segment.from, segment.to);
    return segments;
}

bool is_same_line(const std::vector<plparcel::Segment>& one, const Change& change,
                  const std::vector<plparcel::Segment>& other)
{
    const double reach = 1e-7 * change.larger;
    const auto is_same = [&](const PL_PNT2D_record& p, const PL_PNT2D_record& q) {
        const PL_PNT2D_record at = change.of(p);
        return std::fabs(at.x - q.x) <= reach && std::fabs(at.y - q.y) <= reach;
    };
    return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                      [&](const plparcel::Segment& a, const plparcel::Segment& b) {
                          return is_same(a.from, b.from) && is_same(a.to, b.to);
                      });
}

// The side from which a line is measured, or the segment that gives its direction.
plparcel::Segment reference(const Parcel& parcel, const Asked& asked)
{
    if (asked.line.cut == Cut::along_segment)
        return {asked.line.a, asked.line.b};
    const Ring& ring = ring_of(parcel, asked.line.ring);
    return {ring[asked.line.index], ring[(asked.line.index + 1) % ring.size()]};
}

double away(const plparcel::Segment& from, const PL_PNT2D_record& p)
{
    return std::fabs((from.to.x - from.from.x) * (p.y - from.from.y) -
                     (from.to.y - from.from.y) * (p.x - from.from.x));
}

// Parallels run as their side does, lines along a segment as that; perpendiculars begin at the end nearer to the side's line.
void expect_direction(const Division& division, const Asked& asked, const plparcel::Segment& reference)
{
    const plparcel::DividingLine& line = division.lines[0];
    if (asked.line.cut == Cut::perpendicular) {
        EXPECT_LT(away(reference, line.from), away(reference, line.to) + 1e-9);
    } else if (asked.line.cut == Cut::parallel || asked.line.cut == Cut::along_segment) {
        EXPECT_GT((reference.to.x - reference.from.x) * (line.to.x - line.from.x) +
                      (reference.to.y - reference.from.y) * (line.to.y - line.from.y),
                  0.0);
    }
}

// Whether a perpendicular begins and ends as far from its side's line.
bool is_even(const Division& division, const Asked& asked, const plparcel::Segment& reference)
{
    return asked.line.cut == Cut::perpendicular &&
           std::fabs(away(reference, division.lines[0].from) - away(reference, division.lines[0].to)) < 1e-9;
}

// Of several lines another may come first. Whole lines through a vertex or a place have the amount on their right, mirrored
// too.
void expect_line(const Parcel& changed, const Asked& of_changed, const Division& line, const Change& change,
                 bool is_even)
{
    const bool turns =
        change.mirrored && of_changed.pieces == Pieces::any &&
        (of_changed.line.cut == Cut::through_vertex || of_changed.line.cut == Cut::through_place);
    for (std::size_t alternative = 0; alternative < 5; ++alternative) {
        const Division division = divided(changed, of_changed, alternative);
        ASSERT_EQ(division.status, Status::divided) << describe(division);
        const std::vector<plparcel::Segment>& segments = division.lines[0].segments;
        const std::vector<plparcel::Segment> back = reversed(segments);
        if (is_same_line(line.lines[0].segments, change, turns ? back : segments) ||
            (is_even && is_same_line(line.lines[0].segments, change, back)))
            return;
    }
    ADD_FAILURE() << "not among the first lines";
}

void expect_residuals(const Division& division)
{
    const double reach = 1e-15 * division.ring.area;
    for (const plparcel::Piece& piece : division.pieces) {
        const plparcel::Held& of = division.held[piece.amount];
        EXPECT_NEAR(of.residual, of.area - of.asked, reach);
        EXPECT_BITS(piece.residual, of.residual);
    }
}

TEST(Symmetries, ChangeNoAmountAndNoLine)
{
    Random random = test::random_source();
    int lines = 0;
    constexpr int kCases = 10000;
    for (int i = 0; i < kCases; ++i) {
        const Parcel parcel = any_parcel(random);
        const Asked asked = any_request(random, parcel);
        const Change change = any_change(random);
        SCOPED_TRACE(shown(parcel, asked, change));
        const Parcel changed = change.of(parcel);
        const Asked of_changed = change.of(asked, parcel);
        expect_same_ranges(feasible_of(parcel, asked), feasible_of(changed, of_changed), change.larger);
        const Division one = divided(parcel, asked);
        const Division other = divided(changed, of_changed);
        ASSERT_EQ(one.status, other.status);
        if (one.status != Status::divided)
            continue;
        ++lines;
        expect_residuals(other);
        expect_line(changed, of_changed, one, change, is_even(one, asked, reference(parcel, asked)));
        expect_direction(one, asked, reference(parcel, asked));
    }
    EXPECT_GT(lines, kCases / 4);
}

}  // namespace
