#pragma once

// The piece that a trial line cuts off: internal, not installed; for subdivision/.

#include <cstddef>
#include <cstdint>
#include <vector>

#include "plcalc/kernel.h"

namespace plcalc {

/// A partial polygon: vertices of the parcel that follow one another, and single points in between.
///
/// Most trials only need to know whether its area is above or below a request. Sums over the parcel's vertices,
/// made once, decide that, with a bound for the rounding of both ways to add. Where the bound leaves a doubt,
/// the area is added up point by point. Every answer is the one that the area itself would give.
class PartialPolygon {
public:
    /// @param[in] ring  points of the parcel, each the neighbour of the next; they stay as they are
    explicit PartialPolygon(const std::vector<PL_PNT2D_record>& ring);

    void clear() noexcept;

    /// The points of the parcel from one position to another; none when last is before first.
    void append_vertices(std::int32_t first, std::int32_t last);
    void append_point(const PL_PNT2D_record& p);

    /// The single points.
    const std::vector<PL_PNT2D_record>& single_points() const noexcept { return singles_; }

    /// Room for as many single points as most lines need.
    static constexpr std::size_t kUsualSinglePoints = 8;

    /// Empties the polygon and returns its single points.
    void clear(std::vector<PL_PNT2D_record>& single_points) noexcept
    {
        single_points.swap(singles_);
        clear();
    }

    /// Number of points.
    std::int32_t size() const noexcept { return size_; }

    /// Area, with the bits of CFrazArea::AreaCalcolataDaVett.
    double area() const noexcept;

    /// Whether the area is above the request.
    bool exceeds(double requested) const noexcept;

    /// How a search goes on: whether the area meets the request (see meets_request), is below it, or neither.
    enum class Verdict : std::uint8_t { kMeets, kBelow, kNotBelow };
    Verdict against(double requested) const noexcept;

    /// Whether an area that differs from this one by no more than `doubt` certainly does not meet the request.
    bool surely_apart_from(double requested, double doubt) const noexcept;

    /// Writes the points in order.
    void write_to(std::vector<PL_PNT2D_record>& points) const;

private:
    // Points in a row: positions in the parcel, or for a single point ~index into singles_, twice.
    struct Run {
        std::int32_t first;
        std::int32_t last;
    };
    // Of each point of the parcel between its two neighbours, not of the ends; and twice the sum up to there.
    struct Share {
        double own = 0.0;
        double twice_sum = 0.0;
    };
    // Twice the area up to rounding, and a bound for its error; NaN when there is none. Twice, to save a
    // multiplication for each point.
    struct Estimate {
        double twice_area;
        double off;
    };

    const PL_PNT2D_record& point(std::int32_t at) const noexcept
    {
        if (at >= 0)
            return ring_[static_cast<std::size_t>(at)];
        const std::int32_t single = ~at;
        return singles_[static_cast<std::size_t>(single)];
    }
    double share(std::int32_t at) const noexcept { return shares_[static_cast<std::size_t>(at)].own; }
    double twice_sum_up_to(std::int32_t at) const noexcept
    {
        return shares_[static_cast<std::size_t>(at)].twice_sum;
    }
    template <class AddPoint, class AddBetween>
    void add_up(AddPoint add_point, AddBetween add_between) const noexcept;
    Estimate estimate() const noexcept;

    const std::vector<PL_PNT2D_record>& ring_;
    std::vector<Share> shares_;
    double greatest_sum_ = 0.0;  // of the twice_sum in magnitude; NaN when one is no number
    double two_sums_ = 0.0;      // twice that
    std::vector<Run> runs_;
    std::vector<PL_PNT2D_record> singles_;
    std::int32_t size_ = 0;
};

}  // namespace plcalc
