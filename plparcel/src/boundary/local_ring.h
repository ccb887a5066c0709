#pragma once

// The parcel in coordinates of its own: exact differences from its first vertex, times a power of two that makes
// it 4096 to 8192 across. In there nothing is far from the origin, too small or too large.

#include <cstddef>
#include <vector>

#include "boundary/measured_ring.h"
#include "numbers/wide.h"

namespace plparcel {

/// Whether a ring's larger extent can be worked with: 2^-300 to 2^300, so that products of four lengths in the ring's
/// own frame stay finite and keep all their bits.
bool is_workable(double extent);

class LocalRing {
public:
    /// @param[in] ring  at least one vertex, a workable extent
    explicit LocalRing(const MeasuredRing& ring);

    /// The same frame with a vertex more, between the first end of a side and its other end.
    LocalRing with_vertex_on(std::size_t side, const WidePoint& p) const;

    std::size_t size() const { return points_.size(); }

    /// A vertex; counts round the ring.
    const WidePoint& at(std::size_t i) const { return around(points_, i); }

    /// Lengths are multiplied by 2 to this on the way in. Never below 2^-23, a factor that
    /// PlFunz_scalematrix2d still takes as one.
    int scale_exponent() const { return exponent_; }

    /// The origin, in the parcel's coordinates.
    const PL_PNT2D_record& origin() const { return origin_; }

    WidePoint to_local(const PL_PNT2D_record& p) const;

    /// Back, not rounded to doubles yet.
    WidePoint to_parcel(const WidePoint& p) const;

    Wide length_to_local(double length) const { return scaled(length, exponent_); }

    /// An area of the parcel, unit squared, as one of the local frame.
    Wide area_to_local(const Wide& area) const { return scaled(area, 2 * exponent_); }

    /// And back.
    Wide area_to_parcel(const Wide& area) const { return scaled(area, -2 * exponent_); }

private:
    PL_PNT2D_record origin_;
    int exponent_;
    std::vector<WidePoint> points_;
};

}  // namespace plparcel
