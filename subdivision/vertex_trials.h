#pragma once

// A parcel as a ray turning about one of its vertices meets it: internal, not installed; for subdivision/.

#include <cstdint>
#include <vector>

#include "plcalc/kernel.h"
#include "subdivision/side.h"

namespace plcalc {

/// What stays the same while the ray turns, kept for the time of one search: the direction in which the vertex
/// sees each point.
///
/// Each direction is also kept as an integer, in parts of a turn. Comparing these shows that most sides are
/// clear of a ray, and that most points lie inside or outside a wedge. In close cases the side is met and the
/// direction is compared with the bits of IntersezLineaInSegmOK and LimiteAng0_400.
class VertexTrials {
public:
    /// @param[in] ring   the working polygon
    /// @param[in] order  indices into it, from the vertex round to itself
    /// @param[in] n      number of points, the closing one not counted
    /// @param[in] from   the vertex
    VertexTrials(const std::vector<PL_PNT2D_record>& ring, const std::vector<std::int32_t>& order,
                 std::int32_t n, const PL_PNT2D_record& from);

    /// The vertex, then the points at positions 1 to n - 1, or 1 when there is only the vertex.
    const std::vector<PL_PNT2D_record>& points() const { return points_; }

    /// Direction in which a point is seen, in gons anticlockwise from +x.
    double seen_at_gon(std::int32_t at) const { return seen_[index(at)].dir_gon; }

    /// Lays the line along the ray.
    ///
    /// @param[in] line     through the vertex and a point one unit along the ray
    /// @param[in] ray_rad  direction of that point
    void lay_ray(const PL_IMP_LINE_2D_record& line, double ray_rad) noexcept;

    /// Lays any line. Every side is then computed.
    void lay_ray(const PL_IMP_LINE_2D_record& line) noexcept;

    /// Lays the wedge, from its first direction and its width.
    void lay_wedge(double start_gon, double width_gon) noexcept;

    /// Whether the line along the ray meets the side that ends at a position, 2 to n - 1, and where.
    bool meets_side(std::int32_t at, PL_PNT2D_record& crossing) noexcept
    {
        const Place place = place_of(at);
        if (place != Place::kNear && place == place_of(at - 1))
            return false;
        return meets_near_side(at, crossing);
    }

    /// Whether the point at a position, 1 to n - 1, lies in the wedge, its edges included.
    bool in_wedge(std::int32_t at) const noexcept
    {
        const Seen& seen = seen_[index(at)];
        const Turn from_start = seen.direction - wedge_start_;
        if (seen.clear != kNeverClear) {
            if (from_start - kOffTurn < surely_inside_)
                return true;
            if (from_start - outside_from_ < surely_outside_)
                return false;
        }
        return in_wedge_by_gons(seen.dir_gon);
    }

private:
    // A part of a full turn, in units of 2^-32 of it. Differences wrap round as directions do.
    using Turn = std::uint32_t;
    static constexpr Turn kHalfTurn = Turn(1) << 31;
    static constexpr Turn kQuarterTurn = Turn(1) << 30;
    static constexpr Turn kNeverClear = kQuarterTurn;
    static constexpr Turn kOffTurn = 4;  // more than a direction, and the edge of a wedge, may be off

    struct Seen {
        double dir_gon;
        Turn direction;
        Turn clear;  // a line farther off than this has both sides that end here on one side of it
    };

    enum class Place : std::uint8_t { kNear, kLeft, kRight };

    static std::size_t index(std::int32_t at) { return static_cast<std::size_t>(at); }
    static Turn turn_of_gon(double gon) noexcept;

    Place place_of(std::int32_t at) const noexcept
    {
        const Seen& seen = seen_[index(at)];
        const Turn off = seen.direction - ray_;
        const Turn off_line = off & (kHalfTurn - 1);
        if (!ray_known_ || off_line - seen.clear >= kHalfTurn - 2 * seen.clear)
            return Place::kNear;
        return off < kHalfTurn ? Place::kLeft : Place::kRight;
    }

    bool meets_near_side(std::int32_t at, PL_PNT2D_record& crossing) noexcept;
    bool in_wedge_by_gons(double dir_gon) const noexcept;
    void see_points() noexcept;

    std::vector<PL_PNT2D_record> points_;
    std::vector<Seen> seen_;

    PL_IMP_LINE_2D_record line_ = {};
    Turn ray_ = 0;
    bool ray_known_ = false;  // as a part of a turn

    std::int32_t met_at_ = 0;  // the side asked about last; as a rule the next ray meets it too
    PL_IMP_LINE_2D_record met_line_ = {};

    double start_gon_ = 0.0;
    double width_gon_ = 0.0;
    Turn wedge_start_ = 0;
    Turn surely_inside_ = 0;  // so much of a turn, from kOffTurn past the wedge's start on
    Turn outside_from_ = 0;
    Turn surely_outside_ = 0;  // so much from there on
};

}  // namespace plcalc
