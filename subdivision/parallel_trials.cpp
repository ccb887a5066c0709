#include "subdivision/parallel_trials.h"

#include <algorithm>
#include <cmath>

#include "kernel/bit_order.h"
#include "plcalc/lines.h"
#include "subdivision/clearance.h"
#include "survey/offsets.h"

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
constexpr double kSeamSlope = 0.01;

// The bearing of a point that clearly faces along the normal is within a third of a gon of the normal's. So a
// bearing that is this near to the normal's agrees with all of them, and one that is that far from it agrees
// with none.
constexpr double kAgreesGon = 0.6;
constexpr double kDisagreesGon = 1.4;

// Rounding, as parts of the size of what is computed with: coordinates, and the base line's distance from the
// origin.
constexpr double kSizeBound = 8.0;  // of what a trial line is laid through: the parcel's size so many times
constexpr double kOfVertex = 0x1p-45;     // constants against distances
constexpr double kNearBase = 1.1e-4;      // more than the distance at which a facing is clear,
constexpr double kOfNearBase = 0x1p-40;   // and than what a foot may be off for it
constexpr double kGreatestSize = 1e90;    // beyond, products may overflow
constexpr double kOfCrossing = 0x1p-46;   // a crossing off its line, for a determinant of 1
constexpr double kMostForBearings = 1e6;  // beyond, rounding may turn a step of 1e-7 by more than 0.6 gon

SideIndex::Range numbers_between(double low, double high)
{
    const SideIndex::Range range = {ordered_bits(low), ordered_bits(high)};
    return ordered_nan(range.low) || ordered_nan(range.high) ? TrialLine::kAll : range;
}

SideIndex::Range between(double c1, double c2)
{
    return ordered_bits(c1) < ordered_bits(c2) ? numbers_between(c1, c2) : numbers_between(c2, c1);
}

SideIndex::Range around(double c1, double c2, double margin)
{
    const bool rising = ordered_bits(c1) < ordered_bits(c2);
    return numbers_between((rising ? c1 : c2) - margin, (rising ? c2 : c1) + margin);
}

}  // namespace

ParallelTrials::ParallelTrials(const std::vector<PL_PNT2D_record>& ring,
                               const std::vector<std::int32_t>& order, std::int32_t n,
                               const PL_IMP_LINE_2D_record& base, double a, double b)
    : a_(a), b_(b), base_(base),
      feet_(base), ways_settle_{false, !near_seam(BaseOffset::Facing::kAlongNormal),
                                !near_seam(BaseOffset::Facing::kAgainstNormal)},
      last_(n), points_(index(std::max(n, 1)) + 1), positions_(points_.size()), sides_near_(points_.size())
{
    if (n < 1)
        return;
    for (std::int32_t at = 0; at <= n; ++at) {
        points_[index(at)] = ring[index(order[index(at)])];
        positions_[index(at)].c = c_through(point(at));
    }
    note_ranges();
}

// The constants of the lines that may meet a side: those between the constants of its two ends, and a margin.
// The part of the margin that is the same for all sides is added to the line.
void ParallelTrials::note_ranges() noexcept
{
    const double coefficients = std::fabs(a_) + std::fabs(b_);
    clearance_ = Clearance(points_, coefficients);
    const double base_off = std::fabs(base_.c) * inverse_bound(std::max(std::fabs(a_), std::fabs(b_)));
    farthest_ = kSizeBound * (clearance_.greatest() + base_off);
    greatest_c_ = 4.0 * coefficients * clearance_.greatest();
    vertex_margin_ = kOfVertex * coefficients * farthest_;
    margin_ = greater_magnitude(clearance_.of_most_sides(), vertex_margin_);
    near_base_ = coefficients * (kNearBase + kOfNearBase * farthest_);
    tells_ = a_ == base_.a && b_ == base_.b && feet_.have_direction() && farthest_ < kGreatestSize;

    for (std::size_t at = 2; at < points_.size(); ++at) {
        const double of_side = clearance_.of_side(points_[at - 1], points_[at]);
        const double from = positions_[at - 1].c;
        const double to = positions_[at].c;
        const bool usual = magnitude_bits(of_side) <= magnitude_bits(margin_);
        sides_near_.note(at, usual ? between(from, to) : around(from, to, of_side));
    }
    sides_near_.build();
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
    offset.dist = plcalc::distance(at, p);
    offset.facing = facing(at, p, offset.dist);
    offset.known = true;
    return offset;
}

const BaseOffset& ParallelTrials::vertex_offset(std::int32_t at) noexcept
{
    BaseOffset& offset = positions_[index(at)].offset;
    if (!offset.known)
        offset = offset_of(point(at));
    return offset;
}

const BaseOffset& ParallelTrials::line_offset(TrialLine& line) noexcept
{
    if (!line.offset.known)
        line.offset = line.vertex >= 0 ? vertex_offset(line.vertex) : offset_of(line.through);
    return line.offset;
}

void ParallelTrials::know_bearing(BaseOffset& offset, const PL_PNT2D_record& p) const noexcept
{
    if (offset.gon_known)
        return;
    offset.gon = direction_gon(foot(p), p);
    offset.gon_known = true;
}

TrialLine ParallelTrials::line_through(const PL_PNT2D_record& p) noexcept
{
    TrialLine line;
    line.c = c_through(p);
    line.through = p;
    aim(line);
    return line;
}

TrialLine ParallelTrials::line_through_vertex(std::int32_t at) noexcept
{
    TrialLine line;
    line.c = positions_[index(at)].c;
    line.through = point(at);
    line.vertex = at;
    aim(line);
    return line;
}

// Finds out what the line's constant decides: nothing where bearings jump at 0/400.
void ParallelTrials::aim(TrialLine& line) noexcept
{
    const std::uint64_t farthest = magnitude_bits(farthest_);
    const bool small = magnitude_bits(line.through.x) <= farthest &&
                       magnitude_bits(line.through.y) <= farthest &&
                       magnitude_bits(line.c) <= magnitude_bits(greatest_c_);
    if (!tells_ || !small)
        return;
    double low = line.c - margin_;
    double high = line.c + margin_;
    line.meets = numbers_between(low, high);
    const double off_base = line.c - base_.c;
    bool settled = false;
    if (magnitude_bits(off_base) > magnitude_bits(near_base_)) {
        settled = settle_facing(line, std::signbit(off_base) ? BaseOffset::Facing::kAlongNormal
                                                             : BaseOffset::Facing::kAgainstNormal);
    } else {
        // Points that lie near the base line as well may face no clear way; they are tested one by one.
        low = std::min(low, base_.c - near_base_ - margin_);
        high = std::max(high, base_.c + near_base_ + margin_);
        settled = settle_near_base(line);
    }
    if (!settled)
        return;
    line.doubts = numbers_between(low, high);
}

// A line that faces one way drops what lies farther out that way, and nothing else.
bool ParallelTrials::settle_facing(TrialLine& line, BaseOffset::Facing way) const noexcept
{
    line.drops_below = way == BaseOffset::Facing::kAlongNormal;
    line.drops_above = way == BaseOffset::Facing::kAgainstNormal;
    return ways_settle_[static_cast<std::size_t>(way)];
}

// So near the base line that the bearing must tell which way the line faces, if any.
bool ParallelTrials::settle_near_base(TrialLine& line) noexcept
{
    const BaseOffset::Facing way = line_offset(line).facing;
    if (way != BaseOffset::Facing::kUnclear)
        return settle_facing(line, way);
    const double gon = bearing(line);
    for (const BaseOffset::Facing each :
         {BaseOffset::Facing::kAlongNormal, BaseOffset::Facing::kAgainstNormal}) {
        const double apart = std::fabs(gon - normal_gon(each));
        const bool agrees = apart <= kAgreesGon;
        if (!ways_settle_[static_cast<std::size_t>(each)] || !(agrees || apart >= kDisagreesGon))
            return false;
        (each == BaseOffset::Facing::kAlongNormal ? line.drops_below : line.drops_above) = agrees;
    }
    return true;
}

double ParallelTrials::normal_gon(BaseOffset::Facing way) const noexcept
{
    const double size =
        std::max(std::fabs(a_), std::fabs(b_)) * (way == BaseOffset::Facing::kAlongNormal ? 1 : -1);
    return direction_gon({0.0, 0.0}, {a_ / size, b_ / size});
}

std::int32_t ParallelTrials::clear_until(const TrialLine& line, std::int32_t at, bool beyond) const noexcept
{
    while (at <= last_) {
        const SideIndex::Place place = sides_near_.place(index(at), line.doubts);
        if (place == SideIndex::Place::kNear)
            return at;
        if ((place == SideIndex::Place::kBelow ? line.drops_below : line.drops_above) != beyond)
            return at;
        at = static_cast<std::int32_t>(sides_near_.end_of(index(at), place, line.doubts));
    }
    return last_ + 1;
}

bool ParallelTrials::meets_side(const TrialLine& line, std::int32_t at, PL_PNT2D_record& crossing) noexcept
{
    if (sides_near_.place(index(at), line.meets) != SideIndex::Place::kNear)
        return false;
    return meets_within(side(at), point(at - 1), point(at), line.c, crossing);
}

const MeetsParallels& ParallelTrials::side(std::int32_t at) noexcept
{
    Position& here = positions_[index(at)];
    if (!here.side_known) {
        here.side = MeetsParallels(side_line(point(at - 1), point(at)), a_, b_);
        here.side_known = true;
    }
    return here.side;
}

double ParallelTrials::crossing_off(std::int32_t at) noexcept
{
    const double size = (std::fabs(a_) + std::fabs(b_)) * clearance_.greatest();
    return kOfCrossing * size * (size * side(at).inverse_determinant() + 1.0);
}

// A crossing moves one way as the constant grows. So what holds for both ends holds in between.
bool ParallelTrials::all_meet_side(double low, double high, std::int32_t at,
                                   PL_PNT2D_record& crossing) noexcept
{
    const MeetsParallels& met = side(at);
    const PL_PNT2D_record& from = point(at - 1);
    const PL_PNT2D_record& to = point(at);
    if (met.may_be_one() || !meets_within(met, from, to, low, crossing) ||
        !meets_within(met, from, to, high, crossing))
        return false;
    const double c = (low + high) * 0.5;
    crossing = {met.x_at(c), met.y_at(c)};
    return true;
}

TrialLine ParallelTrials::any_line_between(double low, double high, bool drops_below,
                                           bool drops_above) const noexcept
{
    TrialLine line;
    line.doubts = numbers_between(low - margin_, high + margin_);
    line.drops_below = drops_below;
    line.drops_above = drops_above;
    return line;
}

// A bearing near the base line is that of its normal, or its smaller step counts as zero, or both: then it lies on
// an axis.
bool ParallelTrials::few_bearings() const noexcept
{
    if (!tells_ || !ways_settle_[1] || !ways_settle_[2] || !(farthest_ <= kMostForBearings))
        return false;
    for (const BaseOffset::Facing way :
         {BaseOffset::Facing::kAlongNormal, BaseOffset::Facing::kAgainstNormal})
        for (const double axis_gon : {0.0, 100.0, 200.0, 300.0}) {
            const double apart = std::fabs(axis_gon - normal_gon(way));
            if (!(apart <= kAgreesGon || apart >= kDisagreesGon))
                return false;
        }
    return true;
}

bool ParallelTrials::beyond(TrialLine& line, std::int32_t at) noexcept
{
    const std::int64_t c = ordered_bits(positions_[index(at)].c);
    if (c < line.doubts.low)
        return line.drops_below;
    if (c > line.doubts.high)
        return line.drops_above;
    // Beyond means farther, and in a direction that agrees. The vertex that the line goes through is equally
    // far.
    if (at == line.vertex || !(vertex_offset(at).dist > line_offset(line).dist))
        return false;
    const BaseOffset::Facing way = line.offset.facing;
    if (way != BaseOffset::Facing::kUnclear && positions_[index(at)].offset.facing == way &&
        ways_settle_[static_cast<std::size_t>(way)])
        return true;
    return bearings_agree(line, at);
}

bool ParallelTrials::bearings_agree(TrialLine& line, std::int32_t at) noexcept
{
    BaseOffset& offset = positions_[index(at)].offset;
    const BaseOffset::Facing way = line.offset.facing;
    if (way != BaseOffset::Facing::kUnclear && offset.facing != BaseOffset::Facing::kUnclear &&
        offset.facing != way)
        return false;
    know_bearing(offset, point(at));
    const double line_gon = bearing(line);
    return line_gon - kSideBandGon <= offset.gon && offset.gon <= line_gon + kSideBandGon;
}

double ParallelTrials::distance(TrialLine& line) noexcept
{
    return line_offset(line).dist;
}

double ParallelTrials::bearing(TrialLine& line) noexcept
{
    line_offset(line);
    know_bearing(line.offset, line.through);
    return line.offset.gon;
}

}  // namespace plcalc
