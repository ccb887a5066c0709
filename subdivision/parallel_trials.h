#pragma once

// A parcel as a line moving parallel to its base side meets it: internal, not installed; for subdivision/.

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "lines/parallels.h"
#include "plcalc/kernel.h"
#include "subdivision/side.h"
#include "survey/feet.h"

namespace plcalc {

/// Where a point lies from the base line: its distance, and the direction to it from its foot.
struct BaseOffset {
    /// Which way from the base line, where that is beyond doubt; else the bearing itself must tell.
    enum class Facing : std::uint8_t { kUnclear, kAlongNormal, kAgainstNormal };

    double dist = 0.0;  ///< from the base line, never negative
    double gon = 0.0;   ///< direction from the foot, counted anticlockwise from +x; once gon_known
    bool gon_known = false;
    Facing facing = Facing::kUnclear;
};

/// A trial line, parallel to the base side.
struct TrialLine {
    /// Through a point that lies so from the base line.
    TrialLine(double constant, const PL_PNT2D_record& p, const BaseOffset& from_base) noexcept;

    double c;                 ///< constant term; a and b are those of the base line
    PL_PNT2D_record through;  ///< the point that it was laid through
    BaseOffset offset;        ///< of that point
    std::int64_t c_order;     ///< c by its bits, which every side asks for
    std::int64_t reach;       ///< distance from the base line by its bits; the greatest for NaN
};

/// What stays the same while the line moves, kept for the time of one search.
///
/// Distance and bearing of every vertex from the base line, the line of every side, what a meeting point
/// needs of it, the side's extent, the range of lines that can meet it, and the vertex's share in the area:
/// none of them depends on the moving line, so each is computed once, by the operations that measuring anew
/// for every line would take. Every answer has the bits of that.
class ParallelTrials {
public:
    /// @param[in] ring   the working polygon
    /// @param[in] order  indices into it, from the base side's first point round to itself
    /// @param[in] n      number of points, the closing one not counted
    /// @param[in] base   line of the base side
    /// @param[in] a, b   coefficients of the moving line: those of the base line
    ParallelTrials(const std::vector<PL_PNT2D_record>& ring, const std::vector<std::int32_t>& order,
                   std::int32_t n, const PL_IMP_LINE_2D_record& base, double a, double b);

    /// The point at a position: 0 and 1 the base side, 2 to n - 1 the other vertices, n again 0. One after the
    /// other in memory.
    const PL_PNT2D_record& point(std::int32_t at) const { return points_[index(at)]; }

    /// Foot of the perpendicular from a point on the base line; the origin when that has no direction.
    PL_PNT2D_record foot(const PL_PNT2D_record& p) const noexcept;

    /// The line through a point.
    TrialLine line_through(const PL_PNT2D_record& p) const noexcept;

    /// The line through the vertex at a position, 2 to n.
    TrialLine line_through_vertex(std::int32_t at) const noexcept;

    /// The first position from `at` on whose vertex may lie beyond the line or whose side may be met by it;
    /// n + 1 for none. Those before it are neither, beyond doubt.
    std::int32_t kept_until(const TrialLine& line, std::int32_t at) const noexcept
    {
        while (at <= last_ && passes_by(line, at) && !farther(line, at))
            ++at;
        return at;
    }

    /// The first position from `at` on whose vertex may not lie beyond the line or whose side may be met by it;
    /// n + 1 for none. Those before it lie beyond, beyond doubt.
    std::int32_t beyond_until(const TrialLine& line, std::int32_t at) const noexcept
    {
        while (at <= last_ && passes_by(line, at) && farther(line, at) && surely_in_line(line, at))
            ++at;
        return at;
    }

    /// Whether the line meets the side that ends at a position, 2 to n, and where.
    bool meets_side(const TrialLine& line, std::int32_t at, PL_PNT2D_record& crossing) const noexcept
    {
        const Side& side = sides_[index(at)];
        return !passes_by(line, at) && meets_within(side.line, line.c, side.box, crossing);
    }

    /// Whether the vertex at a position, 2 to n, lies beyond the line as seen from the base side: farther,
    /// and in a direction within a gon of the line's, compared without folding at 0/400.
    bool beyond(TrialLine& line, std::int32_t at) noexcept
    {
        return farther(line, at) && (surely_in_line(line, at) || bearings_agree(line, at));
    }

    /// Direction from the base line to the trial line in gons.
    double bearing(TrialLine& line) const noexcept;

    /// Vertices of a partial polygon that follow each other in the ring, by their positions.
    struct Run {
        std::int32_t first;
        std::int32_t last;
    };

    /// The position of a point that is no vertex: not next to any.
    static constexpr std::int32_t kCrossing = -2;

    /// Signed area of a partial polygon, as the shoelace sum over its points.
    ///
    /// @param[in] points  the partial polygon
    /// @param[in] runs    the same by positions; a crossing is a run from kCrossing to kCrossing
    double signed_area(const std::vector<PL_PNT2D_record>& points,
                       const std::vector<Run>& runs) const noexcept;

private:
    // What every trial line asks of every position.
    struct VertexFacts {
        std::int64_t reach;   // its distance from the base line by its bits; the least for NaN
        std::int64_t c_from;  // lines whose c, by its bits, lies outside are proven not to meet the side
        std::int64_t c_to;
        double share;  // in the area, between its two neighbours
        BaseOffset offset;
    };

    // The side that ends at a position: asked when the line may meet it.
    struct Side {
        MeetsParallels line;
        SideBox box;
    };

    static std::size_t index(std::int32_t at) { return static_cast<std::size_t>(at); }

    bool passes_by(const TrialLine& line, std::int32_t at) const noexcept
    {
        const VertexFacts& facts = vertices_[index(at)];
        return line.c_order < facts.c_from || line.c_order > facts.c_to;
    }
    bool farther(const TrialLine& line, std::int32_t at) const noexcept
    {
        return vertices_[index(at)].reach > line.reach;
    }
    bool surely_in_line(const TrialLine& line, std::int32_t at) const noexcept
    {
        const BaseOffset::Facing way = line.offset.facing;
        return vertices_[index(at)].offset.facing == way && ways_settle_[static_cast<std::size_t>(way)];
    }

    BaseOffset offset_of(const PL_PNT2D_record& p) const noexcept;
    void know_bearing(BaseOffset& offset, const PL_PNT2D_record& p) const noexcept;
    BaseOffset::Facing facing(const PL_PNT2D_record& foot, const PL_PNT2D_record& p,
                              double dist) const noexcept;
    bool near_seam(BaseOffset::Facing way) const noexcept;
    bool bearings_agree(TrialLine& line, std::int32_t at) noexcept;
    double c_through(const PL_PNT2D_record& p) const noexcept;
    void narrow_range(std::int32_t at) noexcept;

    double a_;
    double b_;
    PL_IMP_LINE_2D_record base_;
    FeetOnLine feet_;
    std::array<bool, 3> ways_settle_;  // whether points that face one way have bearings that agree
    std::int32_t last_;                // position of the closing point
    std::vector<PL_PNT2D_record> points_;
    std::vector<VertexFacts> vertices_;
    std::vector<Side> sides_;
};

}  // namespace plcalc
