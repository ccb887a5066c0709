#pragma once

// A ring with what every step asks of it, measured once.

#include <cstddef>
#include <utility>

#include "numbers/wide.h"
#include "plparcel/division.h"
#include "plparcel/extent.h"

namespace plparcel {

/// Any ring without repeated vertices, finite or not, simple or not: the check measures before it decides.
class MeasuredRing {
public:
    MeasuredRing() = default;
    explicit MeasuredRing(Ring ring);

    const Ring& ring() const { return ring_; }
    std::size_t size() const { return ring_.size(); }

    const PL_PNT2D_record& operator[](std::size_t i) const { return ring_[i]; }

    /// A vertex, or a side by its first end: counts round the ring.
    const PL_PNT2D_record& at(std::size_t i) const { return around(ring_, i); }

    const Extent& extent() const { return extent_; }

    /// See coordinate_spacing().
    double spacing() const { return spacing_; }

    /// 1 when the ring runs anticlockwise, -1 clockwise.
    double turn() const { return signed_area_ > 0.0 ? 1.0 : -1.0; }

    /// Positive anticlockwise, unit squared.
    const Wide& signed_area() const { return signed_area_; }

    /// Never negative, unit squared.
    Wide area() const { return abs(signed_area_); }

    /// Gives the vertices away; what was measured of them stays.
    Ring take_ring() { return std::move(ring_); }

private:
    Ring ring_;
    Extent extent_;
    double spacing_ = 0.0;
    Wide signed_area_;
};

}  // namespace plparcel
