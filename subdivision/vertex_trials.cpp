#include "subdivision/vertex_trials.h"

#include <algorithm>
#include <cmath>

#include "plutil/plutil.h"
#include "subdivision/clearance.h"

namespace plcalc {

namespace {

constexpr double kTurnPerGon = 4294967296.0 / 400.0;
constexpr double kTurnPerRad = 683565275.5764316;  // 2^32 / (2 pi)

// The direction of a ray contains whole turns when the boundary winds round the vertex. Beyond this many
// radians, which no boundary reaches, it is not reduced.
constexpr double kMostRad = 1e6;

// Points on the edges of the wedge count, in spite of rounding.
constexpr double kWedgeStartGon = -1e-10;
constexpr double kWedgeWidening = 1.0000000001;

// Gons by which a ray must miss a point at distance 1 for the point's sides to be clear of it: at 100 gon a
// sine is 2 / pi of its angle, no smaller share below; the line's coefficients are those of a step of 1.
constexpr double kGonPerClearance = 102.0;
constexpr double kTurnPerClearance = kGonPerClearance * kTurnPerGon;
constexpr double kMostClearTurns = 1073741800.0;  // a little less than a quarter of a turn
constexpr double kCoefficients = 1.4143;          // |a| + |b|
constexpr double kOfLine = 0x1p-49;  // times the square of the size: what rounding may do to the ray's line
constexpr double kGreatestSize = 0x1p+40;  // beyond, that point tells no direction

// From 0 to 400, by the bits.
bool within_turn(double gon)
{
    const std::int64_t bits = ordered_bits(gon);
    return bits >= 0 && bits <= ordered_bits(400.0);
}

}  // namespace

VertexTrials::VertexTrials(const std::vector<PL_PNT2D_record>& ring, const std::vector<std::int32_t>& order,
                           std::int32_t n, const PL_PNT2D_record& from)
    : points_(index(std::max(n, 1)) + (n > 1 ? 0 : 1)), seen_(points_.size())
{
    points_[0] = n < 1 ? PL_PNT2D_record() : from;
    if (n < 1)
        return;
    for (std::size_t at = 1; at < points_.size(); ++at)
        points_[at] = ring[index(order[at])];  // a single point is its own neighbour
    see_points();
}

VertexTrials::Turn VertexTrials::turn_of_gon(double gon) noexcept
{
    // A direction that is NaN is never clear, and its turn is never used.
    if (!within_turn(gon))
        return 0;
    return static_cast<Turn>(static_cast<std::int64_t>(gon * kTurnPerGon));
}

// From the vertex, at distance r, a side's clearance d is seen under d / r; rounding of the ray's line adds to
// it.
void VertexTrials::see_points() noexcept
{
    const Clearance clearance(points_, kCoefficients);
    const double size = clearance.greatest() + 1.0;
    const double of_line = kOfLine * size * size;
    const bool tells = magnitude_bits(size) < magnitude_bits(kGreatestSize);
    double before = 0.0;
    for (std::size_t at = 1; at < points_.size(); ++at) {
        const PL_PNT2D_record& p = points_[at];
        const double dx = p.x - points_[0].x;
        const double dy = p.y - points_[0].y;
        seen_[at].dir_gon = AngoloDaAsseRifer(dy, dx);
        seen_[at].direction = turn_of_gon(seen_[at].dir_gon);

        const double after = at + 1 < points_.size() ? clearance.of_side(p, points_[at + 1]) : 0.0;
        const double off = greater_magnitude(before, after) + of_line;
        const double turns = off * (kTurnPerClearance * inverse_bound(greater_magnitude(dx, dy)));
        seen_[at].clear = tells && magnitude_bits(turns) < magnitude_bits(kMostClearTurns)
                              ? static_cast<Turn>(turns) + 2 * kOffTurn + 1
                              : kNeverClear;
        before = after;
    }
}

void VertexTrials::lay_ray(const PL_IMP_LINE_2D_record& line, double ray_rad) noexcept
{
    line_ = line;
    ray_known_ = magnitude_bits(ray_rad) < magnitude_bits(kMostRad);
    ray_ = ray_known_ ? static_cast<Turn>(static_cast<std::int64_t>(ray_rad * kTurnPerRad)) : 0;
}

void VertexTrials::lay_ray(const PL_IMP_LINE_2D_record& line) noexcept
{
    line_ = line;
    ray_known_ = false;
}

void VertexTrials::lay_wedge(double start_gon, double width_gon) noexcept
{
    // Of an anticlockwise parcel all wedges start at the anchor.
    if (ordered_bits(start_gon) != ordered_bits(start_gon_))
        wedge_start_ = turn_of_gon(start_gon);
    start_gon_ = start_gon;
    width_gon_ = width_gon;
    const Turn width = turn_of_gon(width_gon);
    const bool tells =
        within_turn(start_gon) && within_turn(width_gon) && ordered_bits(width_gon) < ordered_bits(399.0);
    surely_inside_ = tells && width > 2 * kOffTurn ? width - 2 * kOffTurn : 0;
    outside_from_ = width + kOffTurn;
    surely_outside_ = tells ? Turn(0) - width - 2 * kOffTurn : 0;
}

bool VertexTrials::in_wedge_by_gons(double dir_gon) const noexcept
{
    // As a rule one point is seen just where the wedge starts, in every trial.
    if (surely_inside_ > 0 && ordered_bits(dir_gon) == ordered_bits(start_gon_))
        return true;
    const double from_start_gon = LimiteAng0_400(dir_gon - start_gon_);
    return from_start_gon >= kWedgeStartGon && from_start_gon <= width_gon_ * kWedgeWidening;
}

bool VertexTrials::meets_near_side(std::int32_t at, PL_PNT2D_record& crossing) noexcept
{
    const PL_PNT2D_record& from = points_[index(at - 1)];
    const PL_PNT2D_record& to = points_[index(at)];
    if (at != met_at_) {
        met_at_ = at;
        met_line_ = side_line(from, to);
    }
    const MeetsParallels side(met_line_, line_.a, line_.b);
    return meets_within(side, from, to, line_.c, crossing);
}

}  // namespace plcalc
