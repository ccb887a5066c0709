#pragma once

// A boundary as the lines that cut it see it: x along them, y up across them. Levels are numbers there.

#include <cstddef>
#include <vector>

#include "boundary/joined_rings.h"
#include "boundary/local_ring.h"
#include "boundary/measured_ring.h"
#include "numbers/wide.h"

namespace plparcel {

class LevelFrame {
public:
    /// @param[in] rings  the boundary, the outer ring first
    /// @param[in] zero   where level 0 is
    /// @param[in] up     direction in which levels grow; of about unit length, by which levels are multiplied
    LevelFrame(const std::vector<Ring>& rings, const PL_PNT2D_record& zero, const WidePoint& up);

    const JoinedRings& rings() const { return rings_; }
    const MeasuredRing& outer() const { return outer_; }
    const LocalRing& local() const { return local_; }

    /// The greatest spacing of doubles on any ring, caller's unit.
    double spacing() const { return spacing_; }

    /// All vertices, in local coordinates.
    const std::vector<WidePoint>& points() const { return points_; }

    /// All vertices, as the lines see them.
    const std::vector<WidePoint>& seen() const { return seen_; }

    WidePoint seen(const PL_PNT2D_record& p) const { return turned(local_.to_local(p)); }

    Wide area_to_frame(const Wide& area) const { return local_.area_to_local(area) * up2_; }
    Wide area_to_parcel(const Wide& area) const { return local_.area_to_parcel(area / up2_); }
    Wide length_to_frame(double length) const { return local_.length_to_local(length) * up_length(); }

    const WidePoint& up() const { return up_; }

    /// By how much levels are longer than lengths.
    Wide up_length() const { return sqrt(up2_); }

private:
    WidePoint turned(const WidePoint& p) const;

    JoinedRings rings_;
    MeasuredRing outer_;
    LocalRing local_;
    double spacing_ = 0.0;
    WidePoint up_;
    Wide up2_;
    WidePoint zero_;
    std::vector<WidePoint> points_;
    std::vector<WidePoint> seen_;
};

}  // namespace plparcel
