#pragma once

// A parcel as a ray turning about one of its vertices meets it: internal, not installed; for subdivision/.

#include <cstdint>
#include <vector>

#include "plcalc/kernel.h"
#include "subdivision/side.h"

namespace plcalc {

/// What stays the same while the ray turns, kept for the time of one search: in which direction the vertex sees
/// each point, and the line and extent of each side. The ray meets the sides as IntersezLineaInSegmOK has it,
/// to the last bit.
class VertexTrials {
public:
    /// @param[in] ring   the working polygon
    /// @param[in] order  indices into it, from the vertex round to itself
    /// @param[in] n      number of points, the closing one not counted
    /// @param[in] from   the vertex
    VertexTrials(const std::vector<PL_PNT2D_record>& ring, const std::vector<std::int32_t>& order,
                 std::int32_t n, const PL_PNT2D_record& from);

    /// The point at a position, 1 to n - 1, or 1 when there is only the vertex.
    const PL_PNT2D_record& point(std::int32_t at) const { return seen_[index(at)].point; }

    /// Direction in which it is seen, in gons anticlockwise from +x.
    double seen_at_gon(std::int32_t at) const { return seen_[index(at)].dir_gon; }

    /// Measures every direction from here, until told otherwise. Most searches keep it all the way, since the
    /// wedge of an anticlockwise parcel starts at the anchor.
    void measure_from_gon(double start_gon) noexcept;

    /// Direction in which the point at a position is seen, 1 to n - 1, from there in gons.
    double from_start_gon(std::int32_t at) const { return seen_[index(at)].from_start_gon; }

    /// Whether the line along the ray meets the side that ends at a position, 2 to n - 1, and where.
    bool meets_side(const PL_IMP_LINE_2D_record& ray, std::int32_t at,
                    PL_PNT2D_record& crossing) const noexcept
    {
        const Seen& seen = seen_[index(at)];
        return meets_within(MeetsParallels(seen.side, ray.a, ray.b), ray.c, seen.box, crossing);
    }

private:
    struct Seen {
        PL_PNT2D_record point;
        double dir_gon;
        double from_start_gon;
        PL_IMP_LINE_2D_record side;  // that ends here
        SideBox box;
    };

    static std::size_t index(std::int32_t at) { return static_cast<std::size_t>(at); }

    std::vector<Seen> seen_;
    double start_gon_;  // of which from_start_gon is; NaN at first, which no start equals
};

}  // namespace plcalc
