#pragma once

// A ray that turns anticlockwise around a point, and the sides that it meets.

#include <cstddef>
#include <vector>

#include "numbers/wide.h"

namespace plparcel {

/// A side as the ray passes over it, seen from the point: anticlockwise.
struct Span {
    WidePoint begin;
    WidePoint end;
    std::size_t begin_vertex = 0;
    std::size_t end_vertex = 0;
    bool is_radial = false;  ///< seen from its end: other sides hide what it would hide
};

/// The side from one vertex to another.
Span span_between(const std::vector<WidePoint>& points, std::size_t one, std::size_t other);

/// Orders sides that a ray meets, the nearest first. The ray may turn as long as they are met.
class IsNearer {
public:
    IsNearer(const std::vector<Span>& spans, const WidePoint& ray) : spans_(&spans), ray_(&ray) {}

    bool operator()(std::size_t a, std::size_t b) const;

private:
    const std::vector<Span>* spans_;
    const WidePoint* ray_;
};

/// Orders directions anticlockwise from a first one on.
class ComesBefore {
public:
    explicit ComesBefore(const WidePoint& first) : first_(first) {}

    bool operator()(const WidePoint& a, const WidePoint& b) const
    {
        const int half_a = half_of(a);
        const int half_b = half_of(b);
        return half_a != half_b ? half_a < half_b : cross(a, b) > 0.0;
    }

private:
    int half_of(const WidePoint& d) const
    {
        const Wide side = cross(first_, d);
        return side > 0.0 || (!(side < 0.0) && dot(first_, d) > 0.0) ? 0 : 1;
    }

    WidePoint first_;
};

}  // namespace plparcel
