// How often CFrazArea holds its request, by kind of parcel, by size, by request; and why it does not.

#include <cmath>
#include <cstddef>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "limits.h"
#include "support/bare_cut.h"
#include "support/measures.h"
#include "support/parcel_kinds.h"
#include "tables.h"

namespace {

using bare_cut::Division;
using bare_cut::Mode;
using bare_cut::Request;
using bare_cut::Ring;

using Random = std::mt19937_64;
using Rows = std::vector<std::vector<std::string>>;

constexpr double kAcross = test::kKindsAcross;
constexpr Mode kModes[] = {Mode::kParallel, Mode::kPerpendicular, Mode::kVertex};
constexpr const char* kModeNames[] = {"parallel", "perpendicular", "vertex"};

double between(Random& random, double low, double high)
{
    return std::uniform_real_distribution<double>(low, high)(random);
}

std::size_t whole(Random& random, std::size_t low, std::size_t high)
{
    return std::uniform_int_distribution<std::size_t>(low, high)(random);
}

Ring convex(Random& random, double across)
{
    return test::convex_ring(random, whole(random, 4, 12), across);
}

double area_of(const Ring& ring)
{
    return static_cast<double>(std::fabs(test::signed_area(ring)));
}

bool succeeds(const Request& r)
{
    return divide(r).succeeded(r.area);
}

// Why a request failed: searches that could not end well come first, then what would have helped, then what is
// the matter with the parcel or the line.
std::string reason(const Request& r, const Division& division, bool far)
{
    if (!division.done)
        return "refused";
    if (division.ran_out)
        return "the sweep ran out";
    if (r.area > area_of(r.ring))
        return "no convergence";
    const Request local = far ? at_local_origin(r) : r;
    if (far && succeeds(local))
        return "coordinates too large";
    if (!division.inside && division.beyond_end)
        return "an end lies beyond a vertex, within a millimetre";
    if (r.mode == Mode::kVertex) {
        if (!sees_whole_parcel(r))
            return "the vertex does not see the whole parcel";
        if (is_reflex(r))
            return "angle above 200 gon: the line is met behind the vertex";
    } else {
        if (succeeds(r.mode == Mode::kParallel ? turned_to_x(local) : turned_to_y(local)))
            return "bearing band meets 0/400";
    }
    if (!division.inside)
        return "the line leaves the parcel";
    if (r.mode != Mode::kVertex && has_part_behind(r))
        return "part of the parcel behind the base line";
    if (!division.found)
        return "no convergence";
    return division.other_piece_holds(r.area) ? "the other piece holds the request"
                                              : "another area is cut off";
}

struct Tally {
    int succeeded = 0;
    std::map<std::string, int> reasons;
};

void judge(const Request& r, bool far, Tally& t)
{
    const Division division = divide(r);
    if (division.succeeded(r.area)) {
        ++t.succeeded;
    } else {
        ++t.reasons[reason(r, division, far)];
    }
}

Tally tally(Random& random, const test::ParcelKind& kind, Mode mode, bool shifted, int cases)
{
    Tally t;
    for (int i = 0; i < cases; ++i) {
        const Request r = request_on(random, kind.make(random), mode, between(random, 0.05, 0.95));
        judge(shifted ? at_local_origin(r) : r, kind.far && !shifted, t);
    }
    return t;
}

void add_reasons(const std::string& name, const char* mode, const Tally& t, Rows& rows)
{
    for (const auto& [why, times] : t.reasons)
        rows.push_back({name, mode, why, accuracy::count(times)});
}

void print_kinds(Random& random, int cases)
{
    Rows rates = {{"parcel", kModeNames[0], kModeNames[1], kModeNames[2]}};
    Rows reasons = {{"parcel", "mode", "reason", "requests of " + accuracy::count(cases)}};
    const auto add = [&](const test::ParcelKind& kind, bool shifted) {
        const std::string name = kind.name + std::string(shifted ? ", at a local origin" : "");
        std::vector<std::string> row = {name};
        for (const Mode mode : kModes) {
            const Tally t = tally(random, kind, mode, shifted, cases);
            row.push_back(accuracy::percent(t.succeeded, cases));
            add_reasons(name, kModeNames[static_cast<int>(mode)], t, reasons);
        }
        rates.push_back(row);
    };
    for (const test::ParcelKind& kind : test::parcel_kinds()) {
        add(kind, false);
        if (kind.far)
            add(kind, true);
    }
    accuracy::print_table("Requests held by `CFrazArea`, in percent", rates);
    accuracy::print_table("Why requests of 5 to 95 % of the parcel are not held", reasons);
}

void print_sizes(Random& random, int cases)
{
    Rows rows = {{"convex parcel, across", kModeNames[0], kModeNames[1], kModeNames[2]}};
    for (const double across : {0.001, 0.01, 0.1, 1.0, 10.0, 100.0, 1000.0, 10000.0}) {
        std::vector<std::string> row = {accuracy::scientific(across)};
        for (const Mode mode : kModes) {
            int held = 0;
            for (int i = 0; i < cases; ++i)
                held +=
                    succeeds(request_on(random, convex(random, across), mode, between(random, 0.05, 0.95)));
            row.push_back(accuracy::percent(held, cases));
        }
        rows.push_back(row);
    }
    accuracy::print_table("Requests held by size of the parcel in the caller's unit, in percent", rows);
}

// The half of the parcel ahead of the middle of the side, which the perpendicular mode starts from.
double half_ahead(const Request& r)
{
    const PL_PNT2D_record& a = first(r);
    const PL_PNT2D_record& b = second(r);
    const PL_PNT2D_record m = {(a.x + b.x) / 2.0, (a.y + b.y) / 2.0};
    // Left of the direction down from the side, for an anticlockwise ring out of it, lies what is ahead.
    const PL_PNT2D_record down = {m.x + (b.y - a.y), m.y - (b.x - a.x)};
    return static_cast<double>(test::area_left_of(r.ring, m, down));
}

// A convex parcel of which the given part is searched: the request, in the perpendicular mode its difference
// from the half ahead, either way.
Request request_for_search(Random& random, Mode mode, double part)
{
    for (;;) {
        Request r = request_on(random, convex(random, kAcross), mode, part);
        if (mode != Mode::kPerpendicular)
            return r;
        const double rest = whole(random, 0, 1) == 0 ? r.area : -r.area;
        r.area = half_ahead(r) + rest;
        if (r.area > 0.0 && r.area < area_of(r.ring))
            return r;
    }
}

void print_requests(Random& random, int cases)
{
    Rows rows = {{"searched part of a convex parcel", kModeNames[0], kModeNames[1], kModeNames[2]}};
    for (const double part : {0.0, 1e-6, 1e-5, 1e-4, 1e-3, 1e-2, 0.1}) {
        std::vector<std::string> row = {accuracy::scientific(part)};
        for (const Mode mode : kModes) {
            int found = 0;
            for (int i = 0; i < cases; ++i)
                found += divide(request_for_search(random, mode, part)).found;
            row.push_back(accuracy::percent(found, cases));
        }
        rows.push_back(row);
    }
    accuracy::print_table("Searches that meet the relative 1e-6, in percent", rows);
}

void print_far_searches(Random& random, int cases)
{
    Rows rows = {{"convex parcel at UTM size, across", kModeNames[0], kModeNames[1], kModeNames[2]}};
    for (const double across : {10.0, 100.0, 1000.0}) {
        std::vector<std::string> row = {accuracy::scientific(across)};
        for (const Mode mode : kModes) {
            int found = 0;
            for (int i = 0; i < cases; ++i) {
                const Ring ring = test::at_utm_size(random, convex(random, across));
                found += divide(request_on(random, ring, mode, between(random, 0.05, 0.95))).found;
            }
            row.push_back(accuracy::percent(found, cases));
        }
        rows.push_back(row);
    }
    accuracy::print_table("Searches at UTM size that meet the relative 1e-6, in percent", rows);
}

void print_large_requests(Random& random, int cases)
{
    Rows rows = {{"request, of a convex parcel", kModeNames[0], kModeNames[1], kModeNames[2]}};
    Rows reasons = {{"request", "mode", "reason", "requests of " + accuracy::count(cases)}};
    for (const char* part : {"0.99", "0.999", "0.9999", "0.99999", "1", "1.01"}) {
        std::vector<std::string> row = {part};
        for (const Mode mode : kModes) {
            Tally t;
            for (int i = 0; i < cases; ++i)
                judge(request_on(random, convex(random, kAcross), mode, std::stod(part)), false, t);
            row.push_back(accuracy::percent(t.succeeded, cases));
            add_reasons(part, kModeNames[static_cast<int>(mode)], t, reasons);
        }
        rows.push_back(row);
    }
    accuracy::print_table("Requests near the whole parcel that are held, in percent", rows);
    accuracy::print_table("Why requests near the whole parcel are not held", reasons);
}

}  // namespace

namespace accuracy {

void print_division_limits(std::uint64_t seed, int cases)
{
    Random random(seed);
    print_kinds(random, cases);
    print_sizes(random, cases);
    print_requests(random, cases);
    print_far_searches(random, cases);
    print_large_requests(random, cases);
}

}  // namespace accuracy
