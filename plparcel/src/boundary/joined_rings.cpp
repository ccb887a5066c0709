#include "boundary/joined_rings.h"

namespace plparcel {

JoinedRings::JoinedRings(const Ring& ring)
{
    append(ring);
}

JoinedRings::JoinedRings(const std::vector<Ring>& rings)
{
    for (const Ring& ring : rings)
        append(ring);
}

void JoinedRings::append(const Ring& ring)
{
    const std::size_t first = points_.size();
    points_.insert(points_.end(), ring.begin(), ring.end());
    ring_of_.resize(points_.size(), first_.size());
    first_.push_back(first);
    for (std::size_t i = first; i < points_.size(); ++i) {
        next_.push_back(i + 1 < points_.size() ? i + 1 : first);
        before_.push_back(i > first ? i - 1 : points_.size() - 1);
    }
}

}  // namespace plparcel
