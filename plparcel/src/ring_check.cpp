#include "ring_check.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

#include "local_ring.h"
#include "plcalc/survey.h"
#include "plutil/plutil.h"
#include "wide.h"

namespace plparcel {
namespace {

constexpr std::size_t kMinVertices = 3;

// A parcel of no more than this part of the square of its extent is thinner than 106 bits can tell: what its cross
// products come to may be their rounding.
constexpr double kThinnest = 0x1p-90;

bool all_finite(const Ring& ring)
{
    return std::all_of(ring.begin(), ring.end(),
                       [](const PL_PNT2D_record& p) { return std::isfinite(p.x) && std::isfinite(p.y); });
}

// Left of a-b above zero, right below.
Wide side_of(const PL_PNT2D_record& a, const PL_PNT2D_record& b, const PL_PNT2D_record& p)
{
    return cross(from_to(a, b), from_to(a, p));
}

int sign(const Wide& v)
{
    return v > 0.0 ? 1 : (v < 0.0 ? -1 : 0);
}

bool is_collinear(const Ring& ring)
{
    return std::all_of(ring.begin(), ring.end(),
                       [&ring](const PL_PNT2D_record& p) { return sign(side_of(ring[0], ring[1], p)) == 0; });
}

bool is_thin(const MeasuredRing& ring)
{
    const double extent = ring.extent().largest();
    return !(ring.area() / extent / extent > kThinnest);
}

bool in_box(const PL_PNT2D_record& a, const PL_PNT2D_record& b, const PL_PNT2D_record& p)
{
    return std::min(a.x, b.x) <= p.x && p.x <= std::max(a.x, b.x) && std::min(a.y, b.y) <= p.y &&
           p.y <= std::max(a.y, b.y);
}

// Whether two numbers and what lies between them come within reach of two others.
bool spans_meet(double a, double b, double c, double d, double reach)
{
    return std::max(std::min(a, b), std::min(c, d)) <= std::min(std::max(a, b), std::max(c, d)) + reach;
}

// Two sides without a common vertex.
bool segments_meet(const PL_PNT2D_record& a, const PL_PNT2D_record& b, const PL_PNT2D_record& c,
                   const PL_PNT2D_record& d)
{
    if (!boxes_meet(a, b, c, d, 0.0))
        return false;
    const int c_side = sign(side_of(a, b, c));
    const int d_side = sign(side_of(a, b, d));
    const int a_side = sign(side_of(c, d, a));
    const int b_side = sign(side_of(c, d, b));
    if (c_side * d_side < 0 && a_side * b_side < 0)
        return true;
    return (c_side == 0 && in_box(a, b, c)) || (d_side == 0 && in_box(a, b, d)) ||
           (a_side == 0 && in_box(c, d, a)) || (b_side == 0 && in_box(c, d, b));
}

// Neighbours share a vertex. Where the second runs back along the first, its end lies on the first or the first's
// start on it, and a side that begins or ends there meets one of the two.
bool pair_meets(const MeasuredRing& ring, std::size_t i, std::size_t j)
{
    const std::size_t n = ring.size();
    if (j == (i + 1) % n || i == (j + 1) % n)
        return false;
    return segments_meet(ring[i], ring.at(i + 1), ring[j], ring.at(j + 1));
}

using Axis = double PL_PNT2D_record::*;

// Along which the sides are shorter beside the ring's extent, so that fewer of them lie beside each other: a comb
// whose teeth lie along x has all of them beside each other there.
Axis axis_of_short_sides(const MeasuredRing& ring)
{
    double along_x = 0.0;
    double along_y = 0.0;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        along_x += std::fabs(ring.at(i + 1).x - ring[i].x);
        along_y += std::fabs(ring.at(i + 1).y - ring[i].y);
    }
    const Extent& extent = ring.extent();
    return along_x * extent.height() <= along_y * extent.width() ? &PL_PNT2D_record::x : &PL_PNT2D_record::y;
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
    if (is_collinear(ring.ring()))
        return BoundaryStatus::flat;
    if (sides_meet(ring, report.meeting_sides[0], report.meeting_sides[1])) {
        for (std::size_t& side : report.meeting_sides)
            side = side_as_given(clean, side);
        std::sort(report.meeting_sides, report.meeting_sides + 2);
        return BoundaryStatus::meets_itself;
    }
    return is_thin(ring) ? BoundaryStatus::flat : BoundaryStatus::usable;
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

bool boxes_meet(const PL_PNT2D_record& a, const PL_PNT2D_record& b, const PL_PNT2D_record& c,
                const PL_PNT2D_record& d, double reach)
{
    return spans_meet(a.x, b.x, c.x, d.x, reach) && spans_meet(a.y, b.y, c.y, d.y, reach);
}

// Sides in the order of their western ends, or of their southern ones: each is held against those that begin before
// it ends.
bool sides_meet(const MeasuredRing& ring, std::size_t& side1, std::size_t& side2)
{
    const Axis axis = axis_of_short_sides(ring);
    const auto low = [&](std::size_t i) { return std::min(ring[i].*axis, ring.at(i + 1).*axis); };
    const auto high = [&](std::size_t i) { return std::max(ring[i].*axis, ring.at(i + 1).*axis); };
    std::vector<std::size_t> order(ring.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(),
                     [&low](std::size_t i, std::size_t j) { return low(i) < low(j); });
    for (std::size_t k = 0; k < order.size(); ++k) {
        const double end = high(order[k]);
        for (std::size_t m = k + 1; m < order.size() && low(order[m]) <= end; ++m) {
            if (!pair_meets(ring, order[k], order[m]))
                continue;
            side1 = order[k];
            side2 = order[m];
            return true;
        }
    }
    return false;
}

bool meets_itself(const MeasuredRing& ring)
{
    std::size_t side1 = 0;
    std::size_t side2 = 0;
    return sides_meet(ring, side1, side2);
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
        place %= std::max<std::size_t>(kept.size(), 1);
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
