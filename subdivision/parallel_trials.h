#pragma once

// A parcel as a line moving parallel to its base side meets it: internal, not installed; for subdivision/.

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "lines/parallels.h"
#include "plcalc/kernel.h"
#include "subdivision/clearance.h"
#include "subdivision/side.h"
#include "subdivision/side_index.h"
#include "subdivision/turned_steps.h"
#include "survey/offsets.h"

namespace plcalc {

/// Where a point lies from the base line: its distance, and the direction to it from its foot.
struct BaseOffset {
    /// On which side of the base line the point lies, where that is beyond doubt; otherwise its bearing
    /// decides.
    enum class Facing : std::uint8_t { kUnclear, kAlongNormal, kAgainstNormal };

    double dist = 0.0;  ///< from the base line, never negative; once known
    double gon = 0.0;   ///< direction from the foot, counted anticlockwise from +x; once gon_known
    bool known = false;
    bool gon_known = false;
    Facing facing = Facing::kUnclear;  ///< once known
};

/// A trial line, parallel to the base side.
struct TrialLine {
    double c = 0.0;                    ///< constant term; a and b are those of the base line
    PL_PNT2D_record through = {};      ///< the point that it was laid through
    std::int32_t vertex = -1;          ///< the position of that point, when it is a vertex
    BaseOffset offset;                 ///< of that point
    SideIndex::Range meets = kAll;     ///< constants, the line's and a margin: sides out of reach are not met
    SideIndex::Range drops = kNone;    ///< constants of vertices that certainly lie beyond the line
    SideIndex::Range may_drop = kAll;  ///< those and more: vertices outside certainly do not

    static constexpr SideIndex::Range kAll = {INT64_MIN, INT64_MAX};
    static constexpr SideIndex::Range kNone = {INT64_MAX, INT64_MIN};
};

/// What stays the same while the line moves, kept for the time of one search.
///
/// The parallel to the base side through a vertex has a constant term. Comparing these, a trial line knows on
/// which side of it most of the parcel lies, and finds the sides and vertices that it comes near. Only these
/// are met and measured, with the bits of IntersezLineaInSegmOK and CalcDistPuntoDaRetta; what such a side or
/// vertex needs is computed when it is first asked for. docs/exact-and-fast.md has the proofs.
class ParallelTrials {
public:
    /// @param[in] ring   the working polygon
    /// @param[in] order  indices into it, from the base side's first point round to itself
    /// @param[in] n      number of points, the closing one not counted
    /// @param[in] base   line of the base side
    /// @param[in] a, b   coefficients of the moving line: those of the base line
    ParallelTrials(const std::vector<PL_PNT2D_record>& ring, const std::vector<std::int32_t>& order,
                   std::int32_t n, const PL_IMP_LINE_2D_record& base, double a, double b);

    /// The points by position: 0 and 1 the base side, 2 to n - 1 the other vertices, n again 0.
    const std::vector<PL_PNT2D_record>& points() const { return points_; }
    const PL_PNT2D_record& point(std::int32_t at) const { return points_[index(at)]; }

    /// Foot of the perpendicular from a point on the base line; the origin when that has no direction.
    PL_PNT2D_record foot(const PL_PNT2D_record& p) const noexcept;

    /// The line through a point.
    TrialLine line_through(const PL_PNT2D_record& p) noexcept;

    /// The line through the vertex at a position, 2 to n.
    TrialLine line_through_vertex(std::int32_t at) noexcept;

    /// The first position from `at` on whose vertex may lie beyond the line, or whose side the line may meet; n
    /// + 1 for none. For the positions before it neither is possible.
    std::int32_t kept_until(const TrialLine& line, std::int32_t at) const noexcept;

    /// The first position from `at` on whose vertex may not lie beyond the line, or whose side the line may
    /// meet; n + 1 for none. The vertices before it certainly lie beyond.
    std::int32_t beyond_until(const TrialLine& line, std::int32_t at) const noexcept;

    /// Whether the line meets the side that ends at a position, 2 to n, and where.
    bool meets_side(const TrialLine& line, std::int32_t at, PL_PNT2D_record& crossing) noexcept;

    /// Whether the vertex at a position, 2 to n, lies beyond the line as seen from the base side: farther,
    /// and in a direction within a gon of the line's, compared without folding at 0/400.
    bool beyond(TrialLine& line, std::int32_t at) noexcept;

    /// Distance of the trial line from the base line.
    double distance(TrialLine& line) noexcept;

    /// Direction from the base line to the trial line in gons.
    double bearing(TrialLine& line) noexcept;

    /// A line that may be any with a constant from low to high. Vertices on one side of all are dropped as told, which
    /// is what few_bearings_from allows; near the others it tells nothing.
    TrialLine any_line_between(double low, double high, bool drops_below, bool drops_above) const noexcept;

    /// Whether every line with a constant from low to high meets the side that ends at a position, and where the
    /// one in the middle does.
    bool all_meet_side(double low, double high, std::int32_t at, PL_PNT2D_record& crossing) noexcept;

    /// How far from the base line, by its constant, a vertex must be so that any line nearer to the base line drops
    /// all like it on one side of the base line, or none. Lines as far or farther drop all vertices farther out than
    /// they are, on their side. Infinite when that cannot be told.
    ///
    /// @param[in] farthest  of the vertices and lines that are asked about
    /// @param[in] steps     turned_steps(), listed
    double few_bearings_from(double farthest, const TurnedSteps& steps) noexcept;

    /// The steps from the base line that rounding may have turned, not listed yet.
    TurnedSteps turned_steps() const noexcept { return TurnedSteps(points_, a_, b_); }

    /// Position of the closing point.
    std::int32_t last() const noexcept { return last_; }

    /// Constant of the parallel through a point.
    double constant(std::int32_t at) const noexcept { return positions_[index(at)].c; }
    double base_constant() const noexcept { return base_.c; }

    /// Length of the normal: a step across the lines changes the constant by so much for each unit.
    double normal_length() const noexcept { return std::sqrt(a_ * a_ + b_ * b_); }

    /// How far along the lines a point lies, times that length.
    double along(const PL_PNT2D_record& p) const noexcept { return b_ * p.x - a_ * p.y; }

    /// Greatest coordinate in magnitude.
    double greatest() const noexcept { return clearance_.greatest(); }

    /// A line whose constant is nearer to the base line's faces no clear way.
    double near_base() const noexcept { return near_base_; }

    /// A vertex lies on the side of a line that its constant says, when that differs from the line's by more.
    double vertex_margin() const noexcept { return vertex_margin_; }

    /// How much the constant of a line that meets the side that ends at a position may lie outside those of its two
    /// ends.
    double reach(std::int32_t at) const noexcept
    {
        return greater_magnitude(margin_, clearance_.of_side(point(at - 1), point(at)));
    }

    /// How much the constant through a crossing with that side may differ from that of the line.
    double crossing_off(std::int32_t at) noexcept;

private:
    // What is kept of a vertex, and of the side that ends there.
    struct Position {
        double c = 0.0;     // constant of the parallel through the vertex
        BaseOffset offset;  // once it has been asked for
        MeetsParallels side;
        bool side_known = false;  // once it has been asked for
    };

    // With the bearings of all vertices that clearly face one way, of those nearer than a jump at 0/400, or of those
    // farther.
    enum class Agreement : std::uint8_t { kUnclear, kWithNone, kWithAll, kWithNear, kWithFar };

    static std::size_t index(std::int32_t at) { return static_cast<std::size_t>(at); }

    const MeetsParallels& side(std::int32_t at) noexcept;
    const BaseOffset& vertex_offset(std::int32_t at) noexcept;
    const BaseOffset& line_offset(TrialLine& line) noexcept;
    BaseOffset offset_of(const PL_PNT2D_record& p) const noexcept;
    void know_bearing(BaseOffset& offset, const PL_PNT2D_record& p) const noexcept;
    BaseOffset::Facing facing(const PL_PNT2D_record& foot, const PL_PNT2D_record& p,
                              double dist) const noexcept;
    bool bearings_agree(TrialLine& line, std::int32_t at) noexcept;
    double c_through(const PL_PNT2D_record& p) const noexcept;

    void note_ranges() noexcept;
    void find_seam() noexcept;
    void aim(TrialLine& line) noexcept;
    void settle_by_facing(TrialLine& line, BaseOffset::Facing way, const SideIndex::Range& doubts) noexcept;
    void settle_by_bearing(TrialLine& line, double low, double high) noexcept;
    SideIndex::Range with_base(double low, double high, double off) const noexcept;
    double bearing_tells_from(double gon) noexcept;
    bool parted_from_normal(const TurnedSteps& steps, std::int32_t at) noexcept;
    double turned_less_from(double foot_off, double gon) const noexcept;
    Agreement agreement(double line_gon, BaseOffset::Facing way) noexcept;
    void settle(TrialLine& line, BaseOffset::Facing way, const SideIndex::Range& doubts,
                Agreement with) const noexcept;
    SideIndex::Range offsets_between(BaseOffset::Facing way, double near, double far) const noexcept;
    double normal_gon(BaseOffset::Facing way) noexcept;

    double a_;
    double b_;
    double coefficients_ = 0.0;  // |a| + |b|
    PL_IMP_LINE_2D_record base_;
    FeetOnLine feet_;
    std::int32_t last_;  // position of the closing point
    std::vector<PL_PNT2D_record> points_;
    std::vector<Position> positions_;
    Clearance clearance_;
    SideIndex sides_near_;

    bool tells_ = false;       // whether the constants show on which side of a line a vertex lies
    double farthest_ = 0.0;    // no trial line passes through a point with a greater coordinate
    double greatest_c_ = 0.0;  // nor has a greater constant
    double vertex_margin_ = 0.0;
    double margin_ = 0.0;     // a constant that is nearer to the line's decides nothing
    double near_base_ = 0.0;  // a line whose constant is nearer to the base line's faces no clear way

    bool normals_known_ = false;
    double along_gon_ = 0.0;    // bearing of the normal, once known,
    double against_gon_ = 0.0;  // and of its opposite

    // The way on which bearings may jump at 0/400, if any. Vertices nearer to the base line than the first are seen
    // at 0 or a little more, those farther than the second a little below 400; by their constants.
    BaseOffset::Facing seam_way_ = BaseOffset::Facing::kUnclear;
    double seen_past_0_ = 0.0;
    double seen_below_400_ = HUGE_VAL;
};

}  // namespace plcalc
