#include "boundary/local_ring.h"

#include <algorithm>
#include <cmath>

namespace plparcel {
namespace {

// The library's tolerances are absolute: 0.001 for a crossing, 1e-7 for parallel lines, 1e-6 for an area. In a
// parcel 100 across or less they swallow a base side of a millimetre; from 1e5 on, rounding in the determinant
// of two parallel lines outgrows them. 4096 to 8192 lies between.
constexpr int kExtentExponent = 12;

// 2^-23 is the last power of two above the 1e-7 up to which PlFunz_scalematrix2d scales nothing.
constexpr int kLeastScaleExponent = -23;

constexpr int kWorkableExponent = 300;

int scale_exponent_for(double extent)
{
    return std::max(kLeastScaleExponent, kExtentExponent - std::ilogb(extent));
}

}  // namespace

bool is_workable(double extent)
{
    return std::ldexp(1.0, -kWorkableExponent) <= extent && extent <= std::ldexp(1.0, kWorkableExponent);
}

LocalRing::LocalRing(const MeasuredRing& ring)
    : origin_(ring[0]), exponent_(scale_exponent_for(ring.extent().largest()))
{
    points_.reserve(ring.size());
    for (const PL_PNT2D_record& p : ring.ring())
        points_.push_back(to_local(p));
}

LocalRing LocalRing::with_vertex_on(std::size_t side, const WidePoint& p) const
{
    LocalRing more = *this;
    more.points_.insert(more.points_.begin() + static_cast<std::ptrdiff_t>(side) + 1, p);
    return more;
}

WidePoint LocalRing::to_local(const PL_PNT2D_record& p) const
{
    const WidePoint shifted = from_to(origin_, p);
    return {scaled(shifted.x, exponent_), scaled(shifted.y, exponent_)};
}

WidePoint LocalRing::to_parcel(const WidePoint& p) const
{
    return {scaled(p.x, -exponent_) + origin_.x, scaled(p.y, -exponent_) + origin_.y};
}

}  // namespace plparcel
