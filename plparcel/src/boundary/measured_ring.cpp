#include "boundary/measured_ring.h"

namespace plparcel {
namespace {

Wide signed_area_of(const Ring& ring)
{
    Wide twice;
    for (std::size_t i = 1; i + 1 < ring.size(); ++i)
        twice = twice + cross(from_to(ring[0], ring[i]), from_to(ring[0], ring[i + 1]));
    return twice * 0.5;
}

}  // namespace

MeasuredRing::MeasuredRing(Ring ring)
    : ring_(std::move(ring)), extent_(extent_of(ring_)), spacing_(coordinate_spacing(ring_)),
      signed_area_(signed_area_of(ring_))
{}

}  // namespace plparcel
