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
constexpr double kCoefficients = 1.4143;  // |a| + |b|
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
    for (std::size_t at = 1; at < points_.size(); ++at) {
        // A single point is its own neighbour.
        points_[at] = ring[index(order[at])];
        seen_[at].dir_gon = AngoloDaAsseRifer(points_[at].y - from.y, points_[at].x - from.x);
        seen_[at].direction = turn_of_gon(seen_[at].dir_gon);
    }
    know_clearances();
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
void VertexTrials::know_clearances() noexcept
{
    const Clearance clearance(points_, kCoefficients);
    const double size = clearance.greatest() + 1.0;
    const double of_line = kOfLine * size * size;
    const double of_turn = 2.0 * kOffTurn / kTurnPerGon;
    double before = 0.0;
    for (std::size_t at = 1; at < points_.size(); ++at) {
        const PL_PNT2D_record& p = points_[at];
        const double after = at + 1 < points_.size() ? clearance.of_side(p, points_[at + 1]) : 0.0;
        const double off = greater_magnitude(before, after) + of_line;
        const double away = greater_magnitude(p.x - points_[0].x, p.y - points_[0].y);
        const double gon = off * (kGonPerClearance * inverse_bound(away)) + of_turn;
        seen_[at].clear =
            gon < 100.0 && size < kGreatestSize ? static_cast<Turn>(gon * kTurnPerGon) + 1 : kNeverClear;
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
    start_gon_ = start_gon;
    width_gon_ = width_gon;
    wedge_start_ = turn_of_gon(start_gon);
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

bool VertexTrials::meets_near_side(std::int32_t at, PL_PNT2D_record& crossing) const noexcept
{
    const PL_PNT2D_record& from = points_[index(at - 1)];
    const PL_PNT2D_record& to = points_[index(at)];
    const MeetsParallels side(side_line(from, to), line_.a, line_.b);
    return meets_within(side, from, to, line_.c, crossing);
}

}  // namespace plcalc
