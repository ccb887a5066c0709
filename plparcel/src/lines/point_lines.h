#pragma once

// Lines through a point inside the parcel that cut off an area.

#include <vector>

#include "boundary/local_ring.h"
#include "lines/area_ranges.h"
#include "lines/chord.h"
#include "numbers/wide.h"

namespace plparcel {

struct PointRequest {
    WidePoint point;               ///< inside the ring and on none of its sides, in the ring's own frame
    WidePoint first;               ///< a direction; the lines come in their order clockwise from it
    Wide on_right;                 ///< area on the right of the line, local units
    Wide granted;                  ///< by how much a line may miss it, local units
    Wide reach;                    ///< a vertex so near to a line lies on it, local units
    bool request_on_right = true;  ///< the piece on the right is the one that should hold the request
};

struct PointLines {
    /// First those that hold the area, clockwise from the first direction; then those through a vertex, or at which the
    /// area is greatest or least, that miss it by no more than is granted, in the same order. Each ends where it
    /// first meets the boundary, ahead of the point and behind it; some of the lines may touch it on their way. Where
    /// the area stays as the line turns, the first, the middle and the last line stand for all of them.
    std::vector<Chord> lines;
    std::vector<AreaRange> ranges;  ///< areas on the right of all lines, in no order, overlapping
};

/// A line turns once around the point. Between two of the directions in which it meets a vertex, it ends on the same
/// two sides, and the area on its right changes by what its two halves sweep.
///
///            b   to(t)     One half, ahead of the point o, runs in the direction u + t f, with 0 <= t <= 1 from one
///           .---o---.      vertex to the next, and meets the side s = b - a at
///            \  |  / a         w0 / (1 + beta t) of its length,  beta = (f x s) / (u x s).
///             \ | /        It has swept the triangle between u and u + t f:
///      u + t f \|/ u           alpha t / (1 + beta t),  alpha = w0^2 (u x f) / 2.
///               o          t runs as the cotangents of the direction do: both are the quotient of two linear
///               |          functions of each other.
///              from(t)     The other half sweeps alpha' t / (1 + beta' t), which is won where the first is lost:
///
///      right(t) = right(0) - alpha t / (1 + beta t) + alpha' t / (1 + beta' t)
///
/// Set to the area that is wanted, and multiplied by both denominators, which are above zero as long as the sides are
/// met, this is a quadratic equation of t. Its roots between 0 and 1 are the lines. The area is greatest or least where
/// both halves are of the same length, sqrt(alpha) / (1 + beta t) = sqrt(alpha') / (1 + beta' t).
///
/// Costs n log n.
PointLines lines_through_point(const LocalRing& ring, double turn, const PointRequest& request);

}  // namespace plparcel
