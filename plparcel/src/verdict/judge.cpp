#include "verdict/judge.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "boundary/locate.h"
#include "boundary/meeting_sides.h"
#include "verdict/area_by_ends.h"
#include "verdict/nearby_ends.h"

namespace plparcel {
namespace {

double length_of(const WidePoint& v)
{
    return std::hypot(v.x.value(), v.y.value());
}

// Vertices next to an end do not count: the pieces show how the sides go on from there.
bool touches_a_vertex(const MeasuredRing& ring, const Cutting& cutting, double reach)
{
    const WidePoint run = from_to(cutting.from, cutting.to);
    const double length = length_of(run);
    return std::any_of(ring.ring().begin(), ring.ring().end(), [&](const PL_PNT2D_record& v) {
        if (!boxes_meet(v, v, cutting.from, cutting.to, 2.0 * reach))
            return false;
        const WidePoint w = from_to(cutting.from, v);
        const double along = (dot(run, w) / length).value();
        const double off = (cross(run, w) / length).value();
        return std::fabs(off) <= reach && along > reach && along < length - reach;
    });
}

void append(Ring& piece, const PL_PNT2D_record& p)
{
    if (!same_place(piece.back(), p))
        piece.push_back(p);
}

// The piece from `start` on one side round to `stop` on another.
Ring walk(const MeasuredRing& ring, const PL_PNT2D_record& start, std::size_t side,
          const PL_PNT2D_record& stop, std::size_t last_side)
{
    Ring piece = {start};
    while (side != last_side) {
        side = (side + 1) % ring.size();
        append(piece, ring[side]);
    }
    append(piece, stop);
    return piece;
}

bool holds(const Wide& got, const Wide& wanted, const Target& target)
{
    return std::fabs((got - wanted).value()) <= target.granted(wanted);
}

// Cuts along the line as it stands in `cutting` and measures. Where the line crosses or touches the boundary
// between its ends, a piece meets itself; where it runs outside, a piece runs the other way round.
Verdict measure(const MeasuredRing& ring, bool request_after_from, const Target& target, Cutting& cutting)
{
    Ring after_from = walk(ring, cutting.from, cutting.from_side, cutting.to, cutting.to_side);
    Ring after_to = walk(ring, cutting.to, cutting.to_side, cutting.from, cutting.from_side);
    cutting.request = MeasuredRing(std::move(request_after_from ? after_from : after_to));
    cutting.rest = MeasuredRing(std::move(request_after_from ? after_to : after_from));

    const Wide turn = ring.turn();
    const Wide got = cutting.request.signed_area() * turn;
    const Wide left_over = cutting.rest.signed_area() * turn;
    constexpr std::size_t kMinVertices = 3;
    if (cutting.request.size() < kMinVertices || cutting.rest.size() < kMinVertices)
        return Verdict::misses;  // rounded onto a side
    if (!(got > 0.0) || !(left_over > 0.0) || meeting_sides(cutting.request) || meeting_sides(cutting.rest))
        return Verdict::leaves_the_parcel;
    return holds(got, target.asked, target) && holds(left_over, target.rest, target) ? Verdict::divides
                                                                                     : Verdict::misses;
}

Verdict judge_rounded(const MeasuredRing& ring, const Chord& chord, const Target& target, Cutting& cutting)
{
    const double spacing = ring.spacing();
    const bool on_boundary = !same_place(cutting.from, cutting.to) &&
                             is_on_side(ring, cutting.from_side, cutting.from) &&
                             is_on_side(ring, cutting.to_side, cutting.to);
    if (!on_boundary)
        return Verdict::misses;
    if (touches_a_vertex(ring, cutting, kTouchRoundings * spacing))
        return Verdict::leaves_the_parcel;
    return measure(ring, chord.request_after_from, target, cutting);
}

// The three doubles nearest to a coordinate, the nearest first.
double rounded(const Wide& v, unsigned rank)
{
    const double beyond = std::copysign(std::numeric_limits<double>::infinity(), v.lo);
    if (rank == 0)
        return v.hi;
    return std::nextafter(v.hi, rank == 1 ? beyond : -beyond);
}

// Three doubles for each of two coordinates.
constexpr unsigned kRoundings = 9;

// One of the nine points next to p, the nearest first.
PL_PNT2D_record rounded(const WidePoint& p, unsigned choice)
{
    return {rounded(p.x, choice % 3), rounded(p.y, choice / 3)};
}

// The end of its side that a point is next to, or the point.
PL_PNT2D_record on_vertex(const MeasuredRing& ring, std::size_t side, const PL_PNT2D_record& p)
{
    for (const PL_PNT2D_record& v : {ring[side], ring.at(side + 1)})
        if (is_at_vertex(ring, v, p))
            return v;
    return p;
}

}  // namespace

Verdict judge(const MeasuredRing& ring, const LocalRing& local, const Chord& chord, const Target& target,
              Cutting& cutting)
{
    const WidePoint from = local.to_parcel(chord.from);
    const WidePoint to = local.to_parcel(chord.to);
    cutting.from_side = chord.from_side;
    cutting.to_side = chord.to_side;
    cutting.from = on_vertex(ring, chord.from_side, {from.x.hi, from.y.hi});
    cutting.to = on_vertex(ring, chord.to_side, {to.x.hi, to.y.hi});
    const Verdict verdict = judge_rounded(ring, chord, target, cutting);
    if (verdict != Verdict::misses)
        return verdict;  // a line that leaves the parcel is not pushed back into it by a rounding
    const AreaByEnds area(ring, chord, chord.request_after_from);
    const unsigned of_from = chord.from_stays ? 1 : kRoundings;
    for (unsigned choice = 0; choice < of_from * kRoundings; ++choice) {
        cutting.from = rounded(from, choice % of_from);
        cutting.to = rounded(to, choice / of_from);
        // Summed up in another order, and so not to the last bit the area that is judged.
        const bool may_hold = std::fabs((area(cutting.from, cutting.to) - target.asked).value()) <=
                              2.0 * target.granted(target.asked);
        if (may_hold && judge_rounded(ring, chord, target, cutting) == Verdict::divides)
            return Verdict::divides;
    }
    const auto divides = [&](const PL_PNT2D_record& start, const PL_PNT2D_record& end) {
        cutting.from = start;
        cutting.to = end;
        return judge_rounded(ring, chord, target, cutting) == Verdict::divides;
    };
    const PL_PNT2D_record nearest_from = {from.x.hi, from.y.hi};
    const PL_PNT2D_record nearest_to = {to.x.hi, to.y.hi};
    return offer_nearby_ends(ring, chord, target, nearest_from, nearest_to, divides) ? Verdict::divides
                                                                                     : Verdict::misses;
}

}  // namespace plparcel
