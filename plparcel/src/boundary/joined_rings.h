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

    /// @param[in] ring  one vertex or more, none repeated
    explicit JoinedRings(const Ring& ring);

    /// @param[in] rings  each with one vertex or more, none repeated
    explicit JoinedRings(const std::vector<Ring>& rings);

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
    void append(const Ring& ring);

    std::vector<PL_PNT2D_record> points_;
    std::vector<std::size_t> next_;
    std::vector<std::size_t> before_;
    std::vector<std::size_t> ring_of_;
    std::vector<std::size_t> first_;
};

}  // namespace plparcel
