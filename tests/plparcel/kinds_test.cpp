// The promise of the layer, over the kinds of parcel of docs/accuracy.md: what it calls divided is divided, by
// GEOS's own cut; parcels that are not badly concave are always divided; and on the others it holds a request
// wherever a bare call of CFrazArea does. Prints the tables of docs/division.md.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "brute_force.h"
#include "geos_verdict.h"
#include "plparcel/division.h"
#include "plparcel/extent.h"
#include "support/bare_cut.h"
#include "support/bits.h"
#include "support/measures.h"
#include "support/parcel_kinds.h"

namespace {

using plparcel::Division;
using plparcel::Status;

constexpr bare_cut::Mode kModes[] = {bare_cut::Mode::kParallel, bare_cut::Mode::kPerpendicular,
                                     bare_cut::Mode::kVertex};
constexpr int kDefaultRequests = 20000;

int requests()
{
    const char* chosen = std::getenv("PLCALC_DIVISIONS");
    return chosen != nullptr ? std::max(1, std::atoi(chosen)) : kDefaultRequests;
}

// A parcel of any kind.
test::Ring any_ring(std::mt19937_64& random)
{
    const std::vector<test::ParcelKind>& kinds = test::parcel_kinds();
    return kinds[random() % kinds.size()].make(random);
}

// Which part of it is asked for.
double any_part(std::mt19937_64& random)
{
    return std::uniform_real_distribution<double>(0.05, 0.95)(random);
}

using Outcomes = std::map<std::string, int>;

void print(const Outcomes& outcomes)
{
    for (const auto& [what, times] : outcomes)
        std::printf("  %7d %s\n", times, what.c_str());
}

struct Tally {
    int requests = 0;
    int bare = 0;    // held by a bare call of CFrazArea on the parcel as it is
    int agreed = 0;  // divided by the line of CFrazArea, up to its millionth
    int others = 0;  // divided by another line
    int again = 0;   // of them, the line prolonged meets the parcel again
    std::map<Status, int> refused;

    int divided() const { return agreed + others; }
};
using Tallies = std::array<Tally, 3>;  // by mode

plparcel::Request as_request(const bare_cut::Request& r)
{
    plparcel::Request request;
    request.line.cut = static_cast<plparcel::Cut>(r.mode);
    request.line.index = r.side;
    request.amounts = {plparcel::area(r.area)};
    request.ask_library = true;
    return request;
}

void note(const Division& division, Tally& tally)
{
    if (division.status != Status::divided) {
        ++tally.refused[division.status];
        return;
    }
    const plparcel::DividingLine& line = division.lines[0];
    ++(line.library_agrees ? tally.agreed : tally.others);
    tally.again += line.meets_again ? 1 : 0;
}

// The dents of a mildly concave parcel now and then hide what a line would have to reach.
bool none_exists(const bare_cut::Request& r, const plparcel::Request& request, Status status)
{
    constexpr int kTrials = 2000;
    return (status == Status::base_reaches_behind || status == Status::line_leaves_parcel) &&
           !plparcel_test::line_exists(r.ring, request, r.area, kTrials);
}

std::string shown(const bare_cut::Request& r)
{
    std::string text = "side " + std::to_string(r.side) + " area " + std::to_string(r.area) + " ring";
    char point[80];
    for (const PL_PNT2D_record& p : r.ring) {
        std::snprintf(point, sizeof point, " {%a, %a}", p.x, p.y);
        text += point;
    }
    return text;
}

class Kinds : public ::testing::Test {
protected:
    Tally run(const test::ParcelKind& kind, bare_cut::Mode mode, int count)
    {
        Tally tally;
        for (int i = 0; i < count; ++i)
            judge(kind, mode, tally);
        return tally;
    }

private:
    void judge(const test::ParcelKind& kind, bare_cut::Mode mode, Tally& tally)
    {
        const test::Ring ring = kind.make(random_);
        const double part = any_part(random_);
        const bare_cut::Request r = bare_cut::request_on(random_, ring, mode, part);
        const plparcel::Request request = as_request(r);
        const Division division = plparcel::divide(r.ring, request);
        const bool bare = bare_cut::divide(r).succeeded(r.area);
        ++tally.requests;
        tally.bare += bare ? 1 : 0;
        note(division, tally);
        if (division.status == Status::divided) {
            EXPECT_EQ(plparcel_test::geos_objection(geos_, r.ring, request, r.area, division), "")
                << kind.name << ", mode " << static_cast<int>(mode) << ", " << shown(r);
        } else {
            EXPECT_TRUE(kind.concave || none_exists(r, request, division.status))
                << kind.name << ", mode " << static_cast<int>(mode) << ": "
                << plparcel::describe(division.status) << ", " << shown(r);
            EXPECT_FALSE(bare) << kind.name << ", mode " << static_cast<int>(mode) << ": "
                               << plparcel::describe(division.status) << ", " << shown(r);
        }
    }

    std::mt19937_64 random_ = test::random_source();
    witness::Geos geos_;
};

void print_row(const char* name, const Tallies& tallies)
{
    std::printf("| %s |", name);
    for (const Tally& t : tallies)
        std::printf(" %.2f | %.2f |", 100.0 * t.bare / t.requests, 100.0 * t.divided() / t.requests);
    std::printf("\n");
}

void print_details(const char* name, const Tallies& tallies)
{
    for (const bare_cut::Mode mode : kModes) {
        const Tally& t = tallies[static_cast<std::size_t>(mode)];
        std::printf("| %s | %d | %d | %d | %d | %d |", name, static_cast<int>(mode), t.requests, t.agreed,
                    t.others, t.again);
        for (const auto& [status, times] : t.refused)
            std::printf(" %d %s;", times, plparcel::describe(status));
        std::printf(" |\n");
    }
}

TEST_F(Kinds, DividedIsRightAndMoreIsDividedThanByABareCall)
{
    const std::vector<test::ParcelKind>& kinds = test::parcel_kinds();
    const int count = requests() / static_cast<int>(kinds.size() * 3) + 1;
    std::vector<Tallies> all;
    std::printf(
        "| parcel | parallel, bare | divided | perpendicular, bare | divided | vertex, bare | divided "
        "|\n| --- | --- | --- | --- | --- | --- | --- |\n");
    for (const test::ParcelKind& kind : kinds) {
        Tallies tallies;
        for (const bare_cut::Mode mode : kModes) {
            Tally& tally = tallies[static_cast<std::size_t>(mode)];
            tally = run(kind, mode, count);
            EXPECT_GE(tally.divided(), tally.bare) << kind.name;
        }
        print_row(kind.name, tallies);
        all.push_back(tallies);
    }
    std::printf("\n| parcel | mode | requests | the library's line | another line | meets again | refused |\n"
                "| --- | --- | --- | --- | --- | --- | --- |\n");
    for (std::size_t i = 0; i < kinds.size(); ++i)
        print_details(kinds[i].name, all[i]);
}

// From places on sides and through points between three vertices.
plparcel::Line any_start(std::mt19937_64& random, const test::Ring& ring)
{
    std::uniform_real_distribution<double> between(0.0, 1.0);
    const std::size_t side = random() % ring.size();
    const PL_PNT2D_record& a = ring[side];
    const PL_PNT2D_record& b = ring[(side + 1) % ring.size()];
    const PL_PNT2D_record& c = ring[random() % ring.size()];
    const double part = between(random);
    if (random() % 2 == 0)
        return plparcel::through_place(side, part * std::hypot(b.x - a.x, b.y - a.y));
    const double in = between(random);
    const PL_PNT2D_record d = {a.x + part * (b.x - a.x), a.y + part * (b.y - a.y)};
    return plparcel::through_point({d.x + in * (c.x - d.x), d.y + in * (c.y - d.y)}, 400.0 * between(random));
}

TEST(KindsOfStarts, WhatIsDividedFromAPlaceOrThroughAPointIsRightByGeos)
{
    std::mt19937_64 random = test::random_source();
    witness::Geos geos;
    Outcomes outcomes;
    const int count = requests();
    for (int i = 0; i < count; ++i) {
        const test::Ring ring = any_ring(random);
        plparcel::Request request;
        request.line = any_start(random, ring);
        const double part = any_part(random);
        const double asked = part * plparcel::check_ring(ring).area;
        request.amounts = {plparcel::area(asked)};
        if (random() % 2 == 0)
            request.measured = plparcel::Measured::opposite;
        const Division division = plparcel::divide(ring, request);
        ++outcomes[plparcel::describe(division)];
        if (division.status != Status::divided)
            continue;
        EXPECT_EQ(plparcel_test::geos_objection(geos, ring, request, asked, division), "")
            << i << ": cut " << static_cast<int>(request.line.cut) << " side " << request.line.index;
    }
    print(outcomes);
    EXPECT_GT(outcomes["divided as asked"], count / 2);
}

// At a bearing, along a segment, along a side or across it.
plparcel::Line any_direction(std::mt19937_64& random, const test::Ring& ring)
{
    std::uniform_real_distribution<double> between(0.0, 1.0);
    const std::size_t side = random() % ring.size();
    const PL_PNT2D_record& a = ring[random() % ring.size()];
    switch (random() % 4) {
    case 0:
        return plparcel::at_bearing(800.0 * between(random) - 200.0);
    case 1:
        return plparcel::along_segment(
            a, {a.x + 90.0 * between(random) - 45.0, a.y + 90.0 * between(random) - 45.0});
    case 2:
        return plparcel::parallel_to(side);
    default:
        return plparcel::perpendicular_to(side);
    }
}

// The direction that a line was asked to run in, or that of a side which it crosses.
test::Vector direction_of(const test::Ring& ring, const plparcel::Line& asked)
{
    if (asked.cut == plparcel::Cut::at_bearing) {
        const long double bearing_rad = asked.bearing * (std::acos(-1.0L) / 200.0L);
        return {std::sin(bearing_rad), std::cos(bearing_rad)};
    }
    if (asked.cut == plparcel::Cut::along_segment)
        return test::from_to(asked.a, asked.b);
    return test::from_to(ring[asked.index], ring[(asked.index + 1) % ring.size()]);
}

// How far a line lies from where widths are counted for the piece of the reference, caller's unit.
double width_before(const test::Ring& ring, const plparcel::Line& asked, const plparcel::DividingLine& line)
{
    const test::Vector run = direction_of(ring, asked);
    const auto right_of_line = [&](const PL_PNT2D_record& p) {
        return static_cast<double>(test::cross(test::from_to(line.from, p), run) / test::length(run));
    };
    const PL_PNT2D_record& a = ring[asked.index];
    const PL_PNT2D_record& b = ring[(asked.index + 1) % ring.size()];
    if (asked.cut == plparcel::Cut::parallel)
        return std::fabs(right_of_line(a));
    if (asked.cut == plparcel::Cut::perpendicular)
        return static_cast<double>(std::fabs(test::dot(test::from_to(line.from, b), run)) /
                                   test::length(run));
    double farthest = 0.0;
    for (const PL_PNT2D_record& p : ring)
        farthest = std::max(farthest, right_of_line(p));
    return farthest;
}

TEST(KindsOfDirections, WhatIsDividedInADirectionOrByAWidthIsRightByGeos)
{
    std::mt19937_64 random = test::random_source();
    witness::Geos geos;
    Outcomes outcomes;
    const int count = requests();
    for (int i = 0; i < count; ++i) {
        const test::Ring ring = any_ring(random);
        plparcel::Request request;
        request.line = any_direction(random, ring);
        const double part = any_part(random);
        const bool by_width = random() % 3 == 0;
        const plparcel::Extent extent = plparcel::extent_of(ring);
        const double width = part * extent.largest();
        request.amounts = {by_width ? plparcel::width(width)
                                    : plparcel::area(part * plparcel::check_ring(ring).area)};
        if (!by_width && random() % 2 == 0)
            request.measured = plparcel::Measured::opposite;
        const Division division = plparcel::divide(ring, request);
        ++outcomes[std::string(by_width ? "width: " : "") + plparcel::describe(division)];
        if (division.status != Status::divided)
            continue;
        EXPECT_EQ(plparcel_test::geos_objection(geos, ring, request, division.pieces[0].asked, division), "")
            << i << ": cut " << static_cast<int>(request.line.cut) << " side " << request.line.index;
        if (by_width) {
            EXPECT_NEAR(width_before(ring, request.line, division.lines[0]), width,
                        20.0 * plparcel::coordinate_spacing(ring))
                << i << ": cut " << static_cast<int>(request.line.cut) << " side " << request.line.index;
        }
    }
    print(outcomes);
    EXPECT_GT(outcomes["divided as asked"], count / 2);
    EXPECT_GT(outcomes["width: divided as asked"], count / 10);
}

}  // namespace
