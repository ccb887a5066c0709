#pragma once

// Several rings as one boundary.

#include <cstddef>
#include <vector>

#include "plparcel/boundary.h"

namespace plparcel {

/// The vertices of all rings one after another. Side i runs from vertex i to the next one of its ring.
class JoinedRings {
public:
    JoinedRings() = default;

    /// @param[in] rings  each with one vertex or more, none repeated
    explicit JoinedRings(const std::vector<Ring>& rings)
    {
        for (const Ring& ring : rings)
            append(ring);
    }

    void append(const Ring& ring)
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

    std::size_t size() const { return points_.size(); }
    std::size_t rings() const { return first_.size(); }

    const PL_PNT2D_record& operator[](std::size_t i) const { return points_[i]; }
    const PL_PNT2D_record& end_of(std::size_t side) const { return points_[next_[side]]; }

    std::size_t next(std::size_t i) const { return next_[i]; }
    std::size_t before(std::size_t i) const { return before_[i]; }

    /// Which ring a vertex belongs to, and where a ring begins.
    std::size_t ring_of(std::size_t i) const { return ring_of_[i]; }
    std::size_t first_of(std::size_t ring) const { return first_[ring]; }

    const std::vector<PL_PNT2D_record>& points() const { return points_; }

private:
    std::vector<PL_PNT2D_record> points_;
    std::vector<std::size_t> next_;
    std::vector<std::size_t> before_;
    std::vector<std::size_t> ring_of_;
    std::vector<std::size_t> first_;
};

}  // namespace plparcel
