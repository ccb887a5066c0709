#include "subdivision/parallel_trials.h"

#include <algorithm>
#include <cmath>

#include "kernel/bit_order.h"
#include "kernel/shoelace.h"
#include "plcalc/lines.h"
#include "survey/direction_gon.h"

namespace plcalc {

namespace {

// A vertex lies on the trial line's side of the base line when its bearing is this near to the line's.
constexpr double kSideBandGon = 1.0;

// A point faces along the base line's normal, beyond doubt, when it is this far from its foot and this near
// to the normal (0.25 gon). Two such points have bearings within 0.64 gon of each other: 0.07 gon is what a
// bearing may be off at that distance, since PlFunz_arctan_deg takes components up to 1e-7 for zero. Two that
// face opposite ways are 200 gon apart. So the band of one gon need not be asked.
constexpr double kClearDistance = 1e-4;
constexpr double kClearSlope = 0.004;
constexpr double kClearProduct = 1e300;  // beyond, a product may have overflowed
constexpr double kClearTrace = 1e-250;   // below, one may have lost digits

// A normal this near to +x has bearings on both sides of 0/400, which the band does not fold.
constexpr double kSeamSlope = 0.05;

// Widening of the range of lines that may meet a side, in units of |a| + |b|. Twice the stake-out margin: at
// most once that is used up when the side's range is. Whether it was enough is then tried.
constexpr double kRangeMargin = 0.002;

// Whether a meeting point is past the range on the side towards which it moves: then every further line
// meets farther out, for each operation from c to the point is monotone in c.
bool past(double v, bool moving_up, const SideRange& range)
{
    return moving_up ? v > range.high : v < range.low;
}

// Distances by their bits. Nothing lies beyond a line whose distance is no number, and a vertex whose distance
// is none lies beyond nothing.
std::int64_t order_or(double dist, std::int64_t if_nan)
{
    const std::int64_t order = ordered_bits(dist);
    return ordered_nan(order) ? if_nan : order;
}

}  // namespace

TrialLine::TrialLine(double constant, const PL_PNT2D_record& p, const BaseOffset& from_base) noexcept
    : c(constant), through(p), offset(from_base), c_order(ordered_bits(constant)),
      reach(order_or(from_base.dist, INT64_MAX))
{}

ParallelTrials::ParallelTrials(const std::vector<PL_PNT2D_record>& ring,
                               const std::vector<std::int32_t>& order, std::int32_t n,
                               const PL_IMP_LINE_2D_record& base, double a, double b)
    : a_(a), b_(b), base_(base),
      feet_(base), ways_settle_{false, !near_seam(BaseOffset::Facing::kAlongNormal),
                                !near_seam(BaseOffset::Facing::kAgainstNormal)},
      last_(n), points_(index(std::max(n, 1)) + 1), vertices_(points_.size()), sides_(points_.size())
{
    if (n < 1)
        return;
    for (std::int32_t at = 0; at <= n; ++at)
        points_[index(at)] = ring[index(order[index(at)])];
    for (std::int32_t at = 2; at <= n; ++at) {
        VertexFacts& facts = vertices_[index(at)];
        facts.offset = offset_of(point(at));
        facts.reach = order_or(facts.offset.dist, INT64_MIN);
        sides_[index(at)] = {MeetsParallels(side_line(point(at - 1), point(at)), a_, b_),
                             box_between(point(at - 1), point(at))};
        narrow_range(at);
    }
    for (std::int32_t at = 1; at < n; ++at)
        vertices_[index(at)].share = shoelace_share(point(at - 1), point(at), point(at + 1));
}

double ParallelTrials::c_through(const PL_PNT2D_record& p) const noexcept
{
    const PL_IMP_LINE_2D_record direction = {a_, b_, 0.0};
    PL_IMP_LINE_2D_record line = {};
    PlFunz_linepntparallel(&line, &p, &direction);
    return line.c;
}

BaseOffset::Facing ParallelTrials::facing(const PL_PNT2D_record& foot, const PL_PNT2D_record& p,
                                          double dist) const noexcept
{
    if (!(dist >= kClearDistance))
        return BaseOffset::Facing::kUnclear;
    const double dx = p.x - foot.x;
    const double dy = p.y - foot.y;
    const double along = base_.a * dx + base_.b * dy;
    const double across = base_.a * dy - base_.b * dx;
    const double size = std::fabs(along);  // 0 for a base without direction, whose feet are the origin
    if (!(size > kClearTrace && size < kClearProduct && std::fabs(across) <= kClearSlope * size))
        return BaseOffset::Facing::kUnclear;
    return along > 0.0 ? BaseOffset::Facing::kAlongNormal : BaseOffset::Facing::kAgainstNormal;
}

bool ParallelTrials::near_seam(BaseOffset::Facing way) const noexcept
{
    const double x = way == BaseOffset::Facing::kAlongNormal ? base_.a : -base_.a;
    return x > 0.0 && std::fabs(base_.b) <= kSeamSlope * x;
}

PL_PNT2D_record ParallelTrials::foot(const PL_PNT2D_record& p) const noexcept
{
    PL_PNT2D_record found = {};
    feet_.find(p, found);
    return found;
}

BaseOffset ParallelTrials::offset_of(const PL_PNT2D_record& p) const noexcept
{
    const PL_PNT2D_record at = foot(p);
    BaseOffset offset;
    offset.dist = distance(at, p);
    offset.facing = facing(at, p, offset.dist);
    return offset;
}

void ParallelTrials::know_bearing(BaseOffset& offset, const PL_PNT2D_record& p) const noexcept
{
    if (offset.gon_known)
        return;
    offset.gon = direction_gon(foot(p), p);
    offset.gon_known = true;
}

// The lines through the side's two ends, and a margin; then tried, on the axis along which the side is longer.
void ParallelTrials::narrow_range(std::int32_t at) noexcept
{
    VertexFacts& facts = vertices_[index(at)];
    const Side& side = sides_[index(at)];
    const double c1 = c_through(point(at - 1));
    const double c2 = c_through(point(at));
    const double margin = kRangeMargin * (std::fabs(a_) + std::fabs(b_));
    const double low = std::min(c1, c2) - margin;
    const double high = std::max(c1, c2) + margin;
    const bool flat = side.line.flat();
    const bool grows = flat ? side.line.x_grows() : side.line.y_grows();
    const SideRange& range = flat ? side.box.x : side.box.y;
    facts.c_from = INT64_MIN;
    facts.c_to = INT64_MAX;
    if (past(flat ? side.line.x_at(low) : side.line.y_at(low), !grows, range))
        facts.c_from = ordered_bits(low);
    if (past(flat ? side.line.x_at(high) : side.line.y_at(high), grows, range))
        facts.c_to = ordered_bits(high);
}

TrialLine ParallelTrials::line_through(const PL_PNT2D_record& p) const noexcept
{
    return {c_through(p), p, offset_of(p)};
}

TrialLine ParallelTrials::line_through_vertex(std::int32_t at) const noexcept
{
    const VertexFacts& facts = vertices_[index(at)];
    return {c_through(point(at)), point(at), facts.offset};
}

bool ParallelTrials::bearings_agree(TrialLine& line, std::int32_t at) noexcept
{
    VertexFacts& facts = vertices_[index(at)];
    const BaseOffset::Facing way = line.offset.facing;
    if (way != BaseOffset::Facing::kUnclear && facts.offset.facing != BaseOffset::Facing::kUnclear &&
        facts.offset.facing != way)
        return false;
    know_bearing(facts.offset, point(at));
    const double line_gon = bearing(line);
    return line_gon - kSideBandGon <= facts.offset.gon && facts.offset.gon <= line_gon + kSideBandGon;
}

double ParallelTrials::bearing(TrialLine& line) const noexcept
{
    know_bearing(line.offset, line.through);
    return line.offset.gon;
}

double ParallelTrials::signed_area(const std::vector<PL_PNT2D_record>& points,
                                   const std::vector<Run>& runs) const noexcept
{
    const std::size_t count = points.size();
    const auto share_anew = [&](std::size_t i) {
        return shoelace_share(points[i == 0 ? count - 1 : i - 1], points[i],
                              points[i + 1 == count ? 0 : i + 1]);
    };
    double sum = 0.0;
    std::size_t i = 0;
    for (const Run& run : runs) {
        // Within a run the neighbours are those of the ring.
        sum = share_anew(i++) + sum;
        for (std::int32_t at = run.first + 1; at < run.last; ++at, ++i)
            sum = vertices_[index(at)].share + sum;
        if (run.last > run.first)
            sum = share_anew(i++) + sum;
    }
    return sum;
}

}  // namespace plcalc
