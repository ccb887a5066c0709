#include "subdivision/parallel_trials.h"

#include <algorithm>
#include <cmath>

#include "kernel/bit_order.h"
#include "plcalc/lines.h"
#include "subdivision/clearance.h"
#include "subdivision/turned_steps.h"
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

// A normal this near to +x may have bearings on both sides of 0/400, which the band does not fold: just above 0 up to
// 0.98, and from 399.02 on. So a line's own bearing agrees with all of either kind, or with none.
constexpr double kSeamSlope = 0.01;
constexpr double kAgreesPast0 = 1.0;
constexpr double kDisagreesPast0 = 2.0;
constexpr double kAgreesBelow400 = 399.0;
constexpr double kDisagreesBelow400 = 398.0;

// How far the bearing of a vertex that is not near the base line may be off the normal's. Beside an axis its smaller step
// may count as zero; where the normal leans by more, rounding alone turns it.
constexpr double kLeanOffAxis = 0.002;
constexpr double kOffBesideAxisGon = 0.07;
constexpr double kOffPerTurnGon = 100.0;  // for each radian by which rounding may turn a step on either axis
constexpr double kOffGon = 1e-9;          // of the functions themselves

// Rounding, as parts of the size of what is computed with: coordinates, and the base line's distance from the
// origin.
constexpr double kSizeBound = 8.0;  // of what a trial line is laid through: the parcel's size so many times
constexpr double kOfVertex = 0x1p-45;    // constants against distances
constexpr double kNearBase = 1.1e-4;     // more than the distance at which a facing is clear,
constexpr double kOfNearBase = 0x1p-40;  // and than what a foot may be off for it
constexpr double kGreatestSize = 1e90;   // beyond, products may overflow
constexpr double kOfCrossing = 0x1p-49;  // a crossing off its line, at right angles
constexpr double kOfStep = 0x1p-50;      // the step from a foot to its point, on either axis

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
    : a_(a), b_(b), base_(base), feet_(base), last_(n), points_(index(std::max(n, 1)) + 1),
      positions_(points_.size()), sides_near_(points_.size())
{
    if (n < 1)
        return;
    for (std::int32_t at = 0; at <= n; ++at) {
        points_[index(at)] = ring[index(order[index(at)])];
        positions_[index(at)].c = c_through(point(at));
    }
    note_ranges();
    find_seam();
}

// The constants of the lines that may meet a side: those between the constants of its two ends, and a margin.
// The part of the margin that is the same for all sides is added to the line.
void ParallelTrials::note_ranges() noexcept
{
    coefficients_ = std::fabs(a_) + std::fabs(b_);
    clearance_ = Clearance(points_, coefficients_);
    const double base_off = std::fabs(base_.c) * inverse_bound(std::max(std::fabs(a_), std::fabs(b_)));
    farthest_ = kSizeBound * (clearance_.greatest() + base_off);
    greatest_c_ = 4.0 * coefficients_ * clearance_.greatest();
    vertex_margin_ = kOfVertex * coefficients_ * farthest_;
    margin_ = greater_magnitude(clearance_.of_most_sides(), vertex_margin_);
    near_base_ = coefficients_ * (kNearBase + kOfNearBase * farthest_);
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

// Along a normal on +x, or a little to the left of it, all are seen at 0 or a little more. A little to the right of it,
// the step from the foot goes down: by less than PL_EPS it counts as zero, and the bearing is 0; by more, it is a little
// below 400.
void ParallelTrials::find_seam() noexcept
{
    if (!(std::fabs(base_.b) <= kSeamSlope * std::fabs(base_.a)))
        return;
    seam_way_ = base_.a > 0.0 ? BaseOffset::Facing::kAlongNormal : BaseOffset::Facing::kAgainstNormal;
    const double off = kOfStep * farthest_;
    const bool falling = base_.b != 0.0 && std::signbit(base_.a) != std::signbit(base_.b);
    const double per_step = falling ? (base_.a * base_.a + base_.b * base_.b) / std::fabs(base_.b) : HUGE_VAL;
    if (off < PL_EPS)
        seen_past_0_ = (PL_EPS - off) * per_step;
    seen_below_400_ = (PL_EPS + off) * per_step;
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

// Finds out what the line's constant decides.
void ParallelTrials::aim(TrialLine& line) noexcept
{
    const std::uint64_t farthest = magnitude_bits(farthest_);
    const bool small = magnitude_bits(line.through.x) <= farthest &&
                       magnitude_bits(line.through.y) <= farthest &&
                       magnitude_bits(line.c) <= magnitude_bits(greatest_c_);
    if (!tells_ || !small)
        return;
    const double low = line.c - margin_;
    const double high = line.c + margin_;
    line.meets = numbers_between(low, high);
    const double off_base = line.c - base_.c;
    if (magnitude_bits(off_base) > magnitude_bits(near_base_)) {
        settle_by_facing(line,
                         std::signbit(off_base) ? BaseOffset::Facing::kAlongNormal
                                                : BaseOffset::Facing::kAgainstNormal,
                         line.meets);
        return;
    }
    // Points that lie near the base line as well may face no clear way; they are tested one by one.
    const BaseOffset::Facing way = line_offset(line).facing;
    if (way != BaseOffset::Facing::kUnclear)
        settle_by_facing(line, way, with_base(low, high, near_base_));
    else
        settle_by_bearing(line, low, high);
}

// A line's own doubts, and those about the base line.
SideIndex::Range ParallelTrials::with_base(double low, double high, double off) const noexcept
{
    return numbers_between(std::min(low, base_.c - off - margin_), std::max(high, base_.c + off + margin_));
}

// A line that faces one way drops what lies farther out that way, and nothing else.
void ParallelTrials::settle_by_facing(TrialLine& line, BaseOffset::Facing way,
                                      const SideIndex::Range& doubts) noexcept
{
    if (way != seam_way_)
        settle(line, way, doubts, Agreement::kWithAll);
    else
        settle(line, way, doubts, agreement(bearing(line), way));
}

// So near the base line that the bearing must tell which way the line faces, if any.
void ParallelTrials::settle_by_bearing(TrialLine& line, double low, double high) noexcept
{
    using Facing = BaseOffset::Facing;
    const double gon = bearing(line);
    const SideIndex::Range doubts = with_base(low, high, bearing_tells_from(gon));
    const Agreement along = agreement(gon, Facing::kAlongNormal);
    const Agreement against = agreement(gon, Facing::kAgainstNormal);
    // The normals are a half turn apart: a bearing never agrees with vertices on both sides.
    if (along == Agreement::kWithNone)
        settle(line, Facing::kAgainstNormal, doubts, against);
    else
        settle(line, Facing::kAlongNormal, doubts, along);
}

// With which of the vertices that clearly face one way a line's bearing agrees.
ParallelTrials::Agreement ParallelTrials::agreement(double line_gon, BaseOffset::Facing way) noexcept
{
    if (way != seam_way_) {
        const double apart = std::fabs(line_gon - normal_gon(way));
        return apart <= kSideBandGon ? Agreement::kWithAll : Agreement::kWithNone;
    }
    if (line_gon <= kAgreesPast0)
        return Agreement::kWithNear;
    if (line_gon >= kAgreesBelow400)
        return Agreement::kWithFar;
    return line_gon >= kDisagreesPast0 && line_gon <= kDisagreesBelow400 ? Agreement::kWithNone
                                                                         : Agreement::kUnclear;
}

// Constants at distances from the base line, one way.
SideIndex::Range ParallelTrials::offsets_between(BaseOffset::Facing way, double near,
                                                 double far) const noexcept
{
    return way == BaseOffset::Facing::kAlongNormal ? numbers_between(base_.c - far, base_.c - near)
                                                   : numbers_between(base_.c + near, base_.c + far);
}

// What lies farther out than the line's doubts is dropped where the bearings agree.
void ParallelTrials::settle(TrialLine& line, BaseOffset::Facing way, const SideIndex::Range& doubts,
                            Agreement with) const noexcept
{
    if (with == Agreement::kUnclear || doubts.low == INT64_MIN)
        return;
    line.may_drop = doubts;
    if (with == Agreement::kWithNone)
        return;
    SideIndex::Range certain = TrialLine::kAll;
    SideIndex::Range perhaps = TrialLine::kAll;
    if (with == Agreement::kWithNear) {
        certain = offsets_between(way, 0.0, seen_past_0_);
        perhaps = offsets_between(way, 0.0, seen_below_400_);
    } else if (with == Agreement::kWithFar) {
        certain = offsets_between(way, seen_below_400_, HUGE_VAL);
    }
    if (way == BaseOffset::Facing::kAlongNormal) {
        line.drops = {certain.low, std::min(certain.high, doubts.low - 1)};
        line.may_drop.low = std::min(perhaps.low, doubts.low);
    } else {
        line.drops = {std::max(certain.low, doubts.high + 1), certain.high};
        line.may_drop.high = std::max(perhaps.high, doubts.high);
    }
}

// How far from the base line a vertex must be for a line's bearing to agree with all like it on one side, or with none.
double ParallelTrials::bearing_tells_from(double gon) noexcept
{
    const bool beside_axis =
        std::min(std::fabs(a_), std::fabs(b_)) <= kLeanOffAxis * std::max(std::fabs(a_), std::fabs(b_));
    double clear = kOffBesideAxisGon;
    for (const BaseOffset::Facing way :
         {BaseOffset::Facing::kAlongNormal, BaseOffset::Facing::kAgainstNormal})
        if (way != seam_way_)
            clear = std::min(clear, std::fabs(std::fabs(gon - normal_gon(way)) - kSideBandGon));
    if (clear >= kOffBesideAxisGon)
        return near_base_;
    if (beside_axis)
        return HUGE_VAL;
    return std::max(near_base_, turned_less_from(kOfStep * farthest_, clear));
}

// How far from the base line, by its constant, a vertex must be so that rounding turns its bearing by less than this;
// infinite when the functions themselves may be off by as much.
double ParallelTrials::turned_less_from(double foot_off, double gon) const noexcept
{
    if (!(gon > kOffGon))
        return HUGE_VAL;
    return coefficients_ * (kOffPerTurnGon * foot_off / (gon - kOffGon));
}

double ParallelTrials::normal_gon(BaseOffset::Facing way) noexcept
{
    if (!normals_known_) {
        const double size = std::max(std::fabs(a_), std::fabs(b_));
        const PL_PNT2D_record unit = {a_ / size, b_ / size};
        along_gon_ = direction_gon({0.0, 0.0}, unit);
        against_gon_ = direction_gon(unit, {0.0, 0.0});
        normals_known_ = true;
    }
    return way == BaseOffset::Facing::kAlongNormal ? along_gon_ : against_gon_;
}

std::int32_t ParallelTrials::kept_until(const TrialLine& line, std::int32_t at) const noexcept
{
    while (at <= last_) {
        const SideIndex::Place place = sides_near_.place(index(at), line.may_drop);
        if (place == SideIndex::Place::kNear)
            return at;
        at = static_cast<std::int32_t>(sides_near_.end_of(index(at), place, line.may_drop));
    }
    return last_ + 1;
}

std::int32_t ParallelTrials::beyond_until(const TrialLine& line, std::int32_t at) const noexcept
{
    if (at > last_)
        return at;
    return std::min(static_cast<std::int32_t>(sides_near_.end_within(index(at), line.drops)), last_ + 1);
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
    const PL_PNT2D_record& from = point(at - 1);
    const PL_PNT2D_record& to = point(at);
    const double size = clearance_.greatest() + kStakeOutMargin;
    const double side_size = std::fabs(to.x - from.x) + std::fabs(to.y - from.y) + kOfStep * size;
    return kOfCrossing * coefficients_ * size *
           (coefficients_ * side_size * side(at).inverse_determinant() + 1.0);
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
    line.meets = numbers_between(low - margin_, high + margin_);
    line.may_drop = line.meets;
    if (drops_below) {
        line.drops = {INT64_MIN, line.meets.low - 1};
        line.may_drop.low = INT64_MIN;
    }
    if (drops_above) {
        line.drops = {line.meets.high + 1, INT64_MAX};
        line.may_drop.high = INT64_MAX;
    }
    return line;
}

// A bearing near the base line is that of its normal, or its smaller step counts as zero, or both: then it lies on
// an axis. On the way of the seam all bearings must lie on one side of the jump.
double ParallelTrials::few_bearings_from(double farthest, const TurnedSteps& steps) noexcept
{
    const bool jumps = seam_way_ != BaseOffset::Facing::kUnclear &&
                       !(seen_past_0_ > farthest || seen_below_400_ < near_base_);
    if (!tells_ || jumps || !steps.few())
        return HUGE_VAL;
    double from = near_base_;
    for (const double axis_gon : {0.0, 100.0, 200.0, 300.0})
        from = std::max(from, bearing_tells_from(axis_gon));
    from = std::max(from, turned_less_from(steps.foot_off(), steps.least_gon_of_others()));
    const double to = turned_less_from(steps.foot_off(), steps.least_gon());
    for (std::int32_t at = 2; at < last_ && from < to; ++at) {
        const double off = std::fabs(constant(at) - base_.c);
        if (off > from && off < to && parted_from_normal(steps, at))
            from = off;
    }
    return from;
}

// Whether a line with the bearing of one of these steps may agree with the normal and not with a vertex, or the other
// way round.
bool ParallelTrials::parted_from_normal(const TurnedSteps& steps, std::int32_t at) noexcept
{
    vertex_offset(at);
    BaseOffset& offset = positions_[index(at)].offset;
    know_bearing(offset, point(at));
    const double gon = normal_gon(constant(at) < base_.c ? BaseOffset::Facing::kAlongNormal
                                                         : BaseOffset::Facing::kAgainstNormal);
    const double low = std::min(gon, offset.gon) - kOffGon;
    const double high = std::max(gon, offset.gon) + kOffGon;
    return steps.between(low - kSideBandGon, high - kSideBandGon) ||
           steps.between(low + kSideBandGon, high + kSideBandGon);
}

bool ParallelTrials::beyond(TrialLine& line, std::int32_t at) noexcept
{
    const std::int64_t c = ordered_bits(positions_[index(at)].c);
    if (line.drops.holds(c))
        return true;
    if (!line.may_drop.holds(c))
        return false;
    // Beyond means farther, and in a direction that agrees. The vertex that the line goes through is equally
    // far.
    if (at == line.vertex || !(vertex_offset(at).dist > line_offset(line).dist))
        return false;
    const BaseOffset::Facing way = line.offset.facing;
    if (way != BaseOffset::Facing::kUnclear && positions_[index(at)].offset.facing == way && way != seam_way_)
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
