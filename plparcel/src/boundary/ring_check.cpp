#include "boundary/ring_check.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include "boundary/local_ring.h"
#include "boundary/meeting_sides.h"
#include "boundary/nesting.h"
#include "numbers/wide.h"
#include "plcalc/survey.h"
#include "plutil/plutil.h"

namespace plparcel {
namespace {

constexpr std::size_t kMinVertices = 3;

// A parcel whose area is no more than this part of the square of its extent is too thin for 106 bits: its cross
// products may be nothing but rounding.
constexpr double kThinnest = 0x1p-90;

bool all_finite(const Ring& ring)
{
    return std::all_of(ring.begin(), ring.end(),
                       [](const PL_PNT2D_record& p) { return std::isfinite(p.x) && std::isfinite(p.y); });
}

bool is_collinear(const Ring& ring)
{
    return std::all_of(ring.begin(), ring.end(),
                       [&ring](const PL_PNT2D_record& p) { return side_sign(ring[0], ring[1], p) == 0; });
}

// Decided by the box: in one so thin, products of coordinates may be nothing but rounding.
bool is_thin(const Extent& extent)
{
    return !(std::min(extent.width(), extent.height()) / extent.largest() > kThinnest);
}

bool is_thin(const MeasuredRing& ring)
{
    const double extent = ring.extent().largest();
    return !(ring.area() / extent / extent > kThinnest);
}

// The side's index in the ring as it was handed over.
std::size_t side_as_given(const CleanRing& clean, std::size_t side)
{
    const std::size_t n = clean.place.size();
    std::size_t i = 0;
    while (clean.place[i] != side || clean.place[(i + 1) % n] == side)
        ++i;
    return i;
}

BoundaryStatus status_of(const CleanRing& clean, RingReport& report)
{
    const MeasuredRing& ring = clean.ring;
    if (!all_finite(ring.ring()))
        return BoundaryStatus::not_finite;
    if (ring.size() < kMinVertices)
        return BoundaryStatus::too_few_vertices;
    if (!is_workable(ring.extent().largest()))
        return BoundaryStatus::out_of_range;
    if (is_thin(ring.extent()) || is_collinear(ring.ring()))
        return BoundaryStatus::flat;
    if (const std::optional<SidePair> met = meeting_sides(ring)) {
        report.meeting_sides[0] = side_as_given(clean, met->one);
        report.meeting_sides[1] = side_as_given(clean, met->other);
        std::sort(report.meeting_sides, report.meeting_sides + 2);
        return BoundaryStatus::meets_itself;
    }
    return is_thin(ring) ? BoundaryStatus::flat : BoundaryStatus::usable;
}

// Where the sides of a reversed ring stand in the ring.
std::size_t side_before_reversal(const MeasuredRing& ring, std::size_t side)
{
    return (2 * ring.size() - 2 - side) % ring.size();
}

// The rings as they are, but the outer one anticlockwise and the holes clockwise.
std::vector<Ring> run_right(const std::vector<CleanRing>& clean)
{
    std::vector<Ring> rings;
    for (const CleanRing& one : clean) {
        rings.push_back(one.ring.ring());
        if ((one.ring.turn() > 0.0) != (rings.size() == 1))
            std::reverse(rings.back().begin(), rings.back().end());
    }
    return rings;
}

// Two sides of different rings, as they were given.
void name_meeting_sides(const std::vector<CleanRing>& clean, const JoinedRings& joined,
                        const RingFault& fault, RingReport& report)
{
    const auto name = [&](std::size_t side, std::size_t place) {
        const std::size_t ring = joined.ring_of(side);
        std::size_t of_ring = side - joined.first_of(ring);
        if ((clean[ring].ring.turn() > 0.0) != (ring == 0))
            of_ring = side_before_reversal(clean[ring].ring, of_ring);
        report.meeting_sides[place] = side_as_given(clean[ring], of_ring);
        report.meeting_rings[place] = ring;
    };
    const bool in_order = joined.ring_of(fault.one) < joined.ring_of(fault.other);
    name(fault.one, in_order ? 0 : 1);
    name(fault.other, in_order ? 1 : 0);
    report.at_ring = report.meeting_rings[1];
}

void begin_westmost(Ring& ring)
{
    std::rotate(ring.begin(), std::min_element(ring.begin(), ring.end(), comes_before), ring.end());
}

double perimeter_of(const Ring& ring)
{
    CPoint3dVector points;
    points.Reserve(static_cast<int>(ring.size()));
    for (const PL_PNT2D_record& p : ring)
        points.Append(p.x, p.y, 0.0);
    return PeriCalcolato(points);
}

}  // namespace

CheckedParcel checked(const Parcel& parcel)
{
    CheckedParcel made;
    made.clean.push_back(without_repeats(parcel.outer));
    for (const Ring& hole : parcel.holes)
        made.clean.push_back(without_repeats(hole));
    RingReport& report = made.report;
    report = report_on(made.clean.front());
    for (std::size_t ring = 1; ring < made.clean.size(); ++ring) {
        if (report.status != BoundaryStatus::usable)
            return made;
        const RingReport of_hole = report_on(made.clean[ring]);
        report.repeated += of_hole.repeated;
        report.perimeter += of_hole.perimeter;
        if (of_hole.status == BoundaryStatus::usable)
            continue;
        const std::size_t repeated = report.repeated;
        report = of_hole;
        report.repeated = repeated;
        report.at_ring = report.meeting_rings[0] = report.meeting_rings[1] = ring;
        report.closed = made.clean.front().closed;
    }
    if (report.status != BoundaryStatus::usable)
        return made;
    made.rings = run_right(made.clean);
    const JoinedRings joined(made.rings);
    const RingFault fault = made.rings.size() > 1 ? fault_of(joined) : RingFault();
    if (fault.kind != RingFault::Kind::none) {
        report.at_ring = fault.ring;
        report.status = fault.kind == RingFault::Kind::outside ? BoundaryStatus::hole_outside
                                                               : BoundaryStatus::hole_in_hole;
        if (fault.kind == RingFault::Kind::meet) {
            report.status = BoundaryStatus::rings_meet;
            name_meeting_sides(made.clean, joined, fault, report);
        }
        report.anticlockwise = false;
        report.area = report.perimeter = 0.0;
        return made;
    }
    for (Ring& ring : made.rings)
        begin_westmost(ring);
    std::sort(made.rings.begin() + 1, made.rings.end(),
              [](const Ring& a, const Ring& b) { return comes_before(a.front(), b.front()); });
    for (const Ring& ring : made.rings)
        made.area = made.area + MeasuredRing(ring).signed_area();
    if (made.rings.size() > 1)
        report.area = made.area.value();
    return made;
}

RingReport check_parcel(const Parcel& parcel)
{
    return checked(parcel).report;
}

CleanRing without_repeats(const Ring& ring)
{
    CleanRing clean;
    Ring kept;
    for (const PL_PNT2D_record& p : ring) {
        if (kept.empty() || !same_place(kept.back(), p))
            kept.push_back(p);
        else
            ++clean.repeated;
        clean.place.push_back(kept.size() - 1);
    }
    clean.closed = kept.size() > 1 && same_place(kept.back(), kept.front());
    if (clean.closed)
        kept.pop_back();
    for (std::size_t& place : clean.place)
        place %= kept.size();  // a ring that repeats its first vertex ends at 0 again
    clean.ring = MeasuredRing(std::move(kept));
    return clean;
}

RingReport report_on(const CleanRing& clean)
{
    RingReport report;
    report.repeated = clean.repeated;
    report.closed = clean.closed;
    report.status = status_of(clean, report);
    if (report.status != BoundaryStatus::usable)
        return report;
    report.anticlockwise = clean.ring.turn() > 0.0;
    report.area = clean.ring.area().value();
    report.perimeter = perimeter_of(clean.ring.ring());
    return report;
}

RingReport check_ring(const Ring& ring)
{
    return report_on(without_repeats(ring));
}

}  // namespace plparcel
