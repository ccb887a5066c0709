// plparcel: which side is meant, what could be asked instead, and what neighbours get. Sides are compared again, in long double; what is said
// to be had is divided.

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <vector>

#include "fuzz/check.h"
#include "fuzz/parcel.h"
#include "fuzz/reader.h"
#include "plparcel/division.h"
#include "plparcel/extent.h"
#include "plparcel/feasible.h"
#include "plparcel/heights.h"
#include "plparcel/neighbours.h"
#include "plparcel/which_side.h"

namespace {

using fuzz::Reader;
using fuzz::Ring;
using plparcel::Candidate;
using plparcel::Choice;
using plparcel::ChoiceStatus;
using plparcel::Parcel;
using Real = long double;

const Ring& ring_of(const Parcel& parcel, const plparcel::BoundaryPlace& place)
{
    FUZZ_CHECK(place.ring <= parcel.holes.size());
    const Ring& ring = place.ring == 0 ? parcel.outer : parcel.holes[place.ring - 1];
    FUZZ_CHECK(place.index < ring.size());
    return ring;
}

Real length_of(const Parcel& parcel, const plparcel::BoundaryPlace& place)
{
    const Ring& ring = ring_of(parcel, place);
    return fuzz::apart(ring[place.index], ring[fuzz::index_after(ring, place.index)]);
}

void check_candidate(const Parcel& parcel, const Candidate& candidate, bool side)
{
    const Real length = side ? length_of(parcel, candidate.place) : 0.0L;
    ring_of(parcel, candidate.place);
    // Squares of lengths below that are lost.
    constexpr Real kShortest = 1e-140L;
    FUZZ_CHECK(fuzz::near(candidate.length, static_cast<double>(length), 1e-14 * candidate.length) ||
               length < kShortest);
    FUZZ_CHECK(!side || candidate.length > 0.0 || length < kShortest);
    FUZZ_CHECK(candidate.bearing >= 0.0 && candidate.bearing < 400.0);
    FUZZ_CHECK(candidate.turned >= 0.0 && candidate.turned <= 200.0);
    FUZZ_CHECK(candidate.distance >= 0.0 && candidate.alongside >= 0.0);
    FUZZ_CHECK(candidate.alongside <= candidate.length * (1.0 + 1e-12));
}

// One is found, several tie, or there is none; and the parcel's check says the same.
void check_choice(const Parcel& parcel, const Choice& choice, bool side)
{
    FUZZ_CHECK(plparcel::describe(choice.status)[0] != '\0');
    FUZZ_CHECK(choice.boundary == plparcel::check_parcel(parcel).status);
    FUZZ_CHECK((choice.status == ChoiceStatus::unusable_boundary) ==
               (choice.boundary != plparcel::BoundaryStatus::usable));
    FUZZ_CHECK((choice.status == ChoiceStatus::found) == (choice.candidates.size() == 1));
    FUZZ_CHECK((choice.status == ChoiceStatus::tied) == (choice.candidates.size() > 1));
    FUZZ_CHECK(!choice.next || choice.status == ChoiceStatus::found);
    for (const Candidate& candidate : choice.candidates)
        check_candidate(parcel, candidate, side);
    if (choice.next)
        check_candidate(parcel, *choice.next, side);
}

// No side is longer than the longest, or shorter than the shortest.
void check_lengths(const Parcel& parcel)
{
    const Choice longest = plparcel::longest_side(parcel);
    const Choice shortest = plparcel::shortest_side(parcel);
    check_choice(parcel, longest, true);
    check_choice(parcel, shortest, true);
    if (longest.candidates.empty())
        return;
    // Parts of a straight line tie within four spacings, and the longest of them stands for it.
    const double spacing = 8.0 * plparcel::coordinate_spacing(parcel.outer);
    const double most = longest.candidates[0].length + spacing;
    const double least = shortest.candidates[0].length - spacing;
    for (std::size_t i = 0; i < parcel.outer.size(); ++i) {
        const auto length = static_cast<double>(length_of(parcel, {0, i}));
        FUZZ_CHECK(!(length > 0.0) || (length <= most * (1.0 + 1e-14) && length >= least * (1.0 - 1e-14)));
    }
}

plparcel::Line read_line(Reader& in, const Ring& ring, const PL_PNT2D_record& point, double bearing)
{
    plparcel::Line line;
    line.cut = static_cast<plparcel::Cut>(in.byte() % 8);  // one of them unknown
    line.index = ring.empty() ? 0 : in.byte() % ring.size();
    line.bearing = bearing;
    line.a = point;
    line.b = in.point();
    line.along = in.number();
    return line;
}

// Ranges lie between nothing and the parcel, apart from each other. An amount well inside one is divided unless doubles are
// too coarse, and one well outside is not.
void check_feasible(const Ring& ring, const plparcel::Line& line, plparcel::Measured measured, double part)
{
    const plparcel::Feasible feasible = plparcel::feasible({ring, {}}, line, measured);
    FUZZ_CHECK(!feasible.refusal || feasible.ranges.empty());
    double so_far = 0.0;
    for (const plparcel::AmountRange& range : feasible.ranges) {
        FUZZ_CHECK(range.least >= so_far && range.most >= range.least && range.most <= feasible.parcel);
        so_far = range.most;
    }
    plparcel::Request request;
    request.line = line;
    request.measured = measured;
    const double amount = part * feasible.parcel;
    request.amounts = {plparcel::area(amount)};
    const plparcel::Status status = plparcel::divide(ring, request).status;
    FUZZ_CHECK(!feasible.refusal || status == *feasible.refusal ||
               status == plparcel::Status::amount_too_small);
    const double margin = 1e-6 * feasible.parcel;
    if (feasible.refusal || !(margin < amount && amount < feasible.parcel - margin))
        return;
    const plparcel::NearestAmounts nearest = plparcel::nearest_amounts(feasible.ranges, amount);
    FUZZ_CHECK(!nearest.below || *nearest.below <= amount);
    FUZZ_CHECK(!nearest.above || *nearest.above >= amount);
    const bool below = nearest.below && !(*nearest.below < amount - margin);
    const bool above = nearest.above && !(*nearest.above > amount + margin);
    if (status == plparcel::Status::divided)
        FUZZ_CHECK(below || above);
}

void check_alternatives(const Ring& ring, double part)
{
    constexpr std::size_t kMostLines = 6;
    const plparcel::Amount amount = plparcel::share(part, 1.0);
    const plparcel::Alternatives found =
        plparcel::alternatives_for({ring, {}}, amount, plparcel::Measured::from_reference, kMostLines);
    FUZZ_CHECK(found.looked_at <= found.of && found.lines.size() <= found.looked_at);
    for (const plparcel::Alternative& line : found.lines) {
        plparcel::Request request;
        request.line = line.line;
        request.measured = line.measured;
        request.amounts = {amount};
        const plparcel::Status status = plparcel::divide(ring, request).status;
        // Of others with bends of a few spacings of doubles, any line may touch a vertex.
        FUZZ_CHECK(status == plparcel::Status::divided || status == plparcel::Status::not_reached ||
                   !fuzz::plainly_convex(ring));
    }
}

// Vertices that were there stay, in their order, and the others are counted.
void check_inserted(const Ring& before, const Ring& after, std::size_t& inserted)
{
    std::size_t kept = 0;
    for (const PL_PNT2D_record& p : after)
        if (kept < before.size() && fuzz::same(p, before[kept]))
            ++kept;
        else
            ++inserted;
    FUZZ_CHECK(kept == before.size());
}

bool same_ring(const Ring& a, const Ring& b)
{
    return a.size() == b.size() &&
           std::equal(a.begin(), a.end(), b.begin(),
                      [](const PL_PNT2D_record& p, const PL_PNT2D_record& q) { return fuzz::same(p, q); });
}

void check_with_points(const plparcel::SharedSides& shared, const plparcel::SharedSides& in_file,
                       const Parcel& parcel)
{
    const plparcel::WithPoints with = shared.with_points(parcel);
    FUZZ_CHECK(same_ring(with.parcel.outer, in_file.with_points(parcel).parcel.outer));
    std::size_t inserted = 0;
    check_inserted(parcel.outer, with.parcel.outer, inserted);
    FUZZ_CHECK(with.parcel.holes.size() == parcel.holes.size());
    for (std::size_t i = 0; i < parcel.holes.size(); ++i)
        check_inserted(parcel.holes[i], with.parcel.holes[i], inserted);
    FUZZ_CHECK(inserted == with.inserted && !(with.left_out && inserted > 0));
    FUZZ_CHECK(with.farthest_beside >= 0.0 && (with.beside > 0 || !(with.farthest_beside > 0.0)));
    if (plparcel::check_parcel(parcel).status == plparcel::BoundaryStatus::usable)
        FUZZ_CHECK(plparcel::check_parcel(with.parcel).status == plparcel::BoundaryStatus::usable);
}

// The points of a division, and a few anywhere, on the sides of the parcel, of its pieces, and of another parcel.
void check_neighbours(Reader& in, const Parcel& parcel, const plparcel::Line& line,
                      const std::vector<plparcel::Segment>& segments, double within)
{
    plparcel::Request request;
    request.line = line;
    request.amounts = plparcel::equal_parts(2 + in.byte() % 3);
    if (in.byte() % 2 == 0)
        request.rounding.decimals = in.byte() % 6;
    const plparcel::Division division = plparcel::divide(parcel, request);
    std::vector<plparcel::NewPoint> points = plparcel::new_points(parcel, division);
    FUZZ_CHECK(division.status == plparcel::Status::divided || points.empty());
    for (const plparcel::Segment& segment : segments)
        points.push_back({in.point(), segment});
    const Parcel other = {fuzz::read_ring(in), {}};
    const auto layer = [&](const plparcel::SharedSides::Take& take) {
        take(parcel);
        take(other);
    };
    const plparcel::SharedSides shared(points, within, layer);
    std::vector<unsigned char> file;
    const plparcel::Scratch scratch = {[&](std::uint64_t place, const void* bytes, std::size_t size) {
                                           FUZZ_CHECK(place <= file.size());
                                           file.resize(std::max<std::size_t>(file.size(), place + size));
                                           std::memcpy(file.data() + place, bytes, size);
                                       },
                                       [&](std::uint64_t place, void* bytes, std::size_t size) {
                                           FUZZ_CHECK(place + size <= file.size());
                                           std::memcpy(bytes, file.data() + place, size);
                                       }};
    const plparcel::SharedSides in_file = plparcel::SharedSides::in_file(
        scratch,
        [&](const plparcel::SharedSides::TakePoint& take) {
            std::for_each(points.begin(), points.end(), take);
        },
        within, layer);
    const std::vector<Parcel> pieces = plparcel::pieces_with_corners(parcel, division);
    FUZZ_CHECK(pieces.size() == division.pieces.size());
    for (const Parcel& piece : pieces)
        check_with_points(shared, in_file, piece);
    check_with_points(shared, in_file, parcel);
    check_with_points(shared, in_file, other);
}

// A vertex has the height of the first at its place; of a point on the way it lies between the least and the greatest.
void check_heights(const Parcel& parcel, const PL_PNT2D_record& point, int decimals)
{
    std::vector<double> heights(parcel.outer.size());
    for (std::size_t i = 0; i < heights.size(); ++i)
        heights[i] = static_cast<double>(i);
    const plparcel::Heights known(parcel, heights, decimals);
    for (std::size_t i = 0; i < heights.size(); ++i) {
        const std::optional<double> height = known.at(parcel.outer[i]);
        const bool finite = std::isfinite(parcel.outer[i].x) && std::isfinite(parcel.outer[i].y);
        FUZZ_CHECK(height.has_value() == finite && (!finite || *height <= heights[i]));
    }
    const std::optional<double> height = known.at(point);
    FUZZ_CHECK(!height || (*height >= 0.0 && *height <= static_cast<double>(heights.size())));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Reader in(data, size);
    Parcel parcel;
    parcel.outer = fuzz::read_ring(in);
    const double bearing = in.number();
    const double tied_within = in.number();
    const PL_PNT2D_record point = in.point();
    std::vector<plparcel::Segment> segments;
    constexpr int kMostSegments = 8;
    const int count = in.below(kMostSegments);
    for (int i = 0; i < count; ++i) {
        const PL_LINE_2D_record segment = in.segment();
        segments.push_back({segment.start, segment.end});
    }
    const double distance = in.number();
    const plparcel::Alongside alongside = {distance, in.number()};
    const int holes = in.below(3);
    for (int i = 0; i < holes; ++i)
        parcel.holes.push_back(fuzz::read_ring(in));

    check_lengths(parcel);
    check_choice(parcel, plparcel::side_near(parcel, point, tied_within), true);
    check_choice(parcel, plparcel::side_facing(parcel, bearing, tied_within), true);
    check_choice(parcel, plparcel::vertex_near(parcel, point, tied_within), false);
    check_choice(parcel, plparcel::vertex_farthest(parcel, bearing, tied_within), false);
    const plparcel::OtherGeometry other(segments);
    check_choice(parcel, plparcel::side_along(parcel, other, alongside, tied_within), true);

    const plparcel::Line line = read_line(in, parcel.outer, point, bearing);
    const auto measured = static_cast<plparcel::Measured>(in.byte() % 2);
    const double part = in.byte() / 255.0;
    check_feasible(parcel.outer, line, measured, part);
    check_alternatives(parcel.outer, part);
    const plparcel::Feasible any = plparcel::feasible(parcel, line, measured, plparcel::Pieces::any);
    FUZZ_CHECK(any.refusal ? any.ranges.empty() : any.ranges.size() == 1);
    check_neighbours(in, parcel, line, segments, distance);
    check_heights(parcel, point, in.byte() % 10);
    return 0;
}
