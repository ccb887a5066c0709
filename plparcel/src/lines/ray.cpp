#include "lines/ray.h"

#include <cmath>
#include <limits>

namespace plparcel {
namespace {

// How far along a direction a side is met, in lengths of that direction, and how far off that value may be.
struct Rough {
    double way;
    double error;
};

double rough_cross(const WidePoint& a, const WidePoint& b, double& error)
{
    constexpr double kRoundings = 2e-15;  // more than half a dozen of 1.1e-16 each
    const double one = a.x.hi * b.y.hi;
    const double other = a.y.hi * b.x.hi;
    error = kRoundings * (std::fabs(one) + std::fabs(other));
    return one - other;
}

Rough rough_way(const Span& span, const WidePoint& direction)
{
    const WidePoint along = span.end - span.begin;
    double off_error = 0.0;
    double lean_error = 0.0;
    const double off = rough_cross(span.begin, along, off_error);
    const double lean = rough_cross(direction, along, lean_error);
    if (!(std::fabs(lean) > 4.0 * lean_error))
        return {0.0, std::numeric_limits<double>::infinity()};
    const double way = off / lean;
    return {way, 2.0 * (off_error + std::fabs(way) * lean_error) / std::fabs(lean)};
}

Wide way_to(const Span& span, const WidePoint& direction)
{
    const WidePoint along = span.end - span.begin;
    return cross(span.begin, along) / cross(direction, along);
}

}  // namespace

Span span_between(const std::vector<WidePoint>& points, std::size_t one, std::size_t other)
{
    const Wide swept = cross(points[one], points[other]);
    if (swept < 0.0)
        return {points[other], points[one], other, one, false};
    return {points[one], points[other], one, other, !(swept > 0.0)};
}

bool IsNearer::operator()(std::size_t a, std::size_t b) const
{
    const Rough rough_a = rough_way((*spans_)[a], *ray_);
    const Rough rough_b = rough_way((*spans_)[b], *ray_);
    if (std::fabs(rough_a.way - rough_b.way) > rough_a.error + rough_b.error)
        return rough_a.way < rough_b.way;
    return way_to((*spans_)[a], *ray_) < way_to((*spans_)[b], *ray_);
}

}  // namespace plparcel
