#pragma once

// How much of a side lies along another geometry.

#include <cstddef>
#include <vector>

#include "numbers/wide.h"
#include "plparcel/which_side.h"

namespace plparcel {

/// A side with its direction out of the parcel, at right angles and as long as the side.
struct FacingSide {
    PL_PNT2D_record a = {};
    PL_PNT2D_record b = {};
    WidePoint out;
};

/// What counts of a side.
struct AlongsideLength {
    double length = 0.0;  ///< how much of it, caller's unit
    double nearest =
        0.0;  ///< how near the segments that count come to it; without effect where nothing counts
};

/// The segments of another geometry near a parcel. Counts the pairs that it looks at, over all sides.
///
/// The places on a side that are within a distance of a segment form an interval, since what is within a distance of a
/// segment is convex: two discs, and the rectangle between them. The length that counts is that of the union of the
/// intervals.
class AlongsideSearch {
public:
    AlongsideSearch(const OtherGeometry& other, const Alongside& alongside);

    bool is_empty() const;

    AlongsideLength measure(const FacingSide& side);

    /// The least distance between one of the sides and the other geometry.
    double nearest_to(const std::vector<FacingSide>& sides);

    /// Whether there were more pairs than can be looked at. What was measured then does not count.
    bool gave_up() const { return pairs_ > kMostPairs; }

    using Tree = OtherGeometry::Tree;

private:
    static constexpr std::size_t kMostPairs = 4000000;

    struct Interval {
        double begin;
        double end;
    };

    void note(const FacingSide& side, double length, const Segment& segment);
    void unite();

    const Tree& tree_;
    double distance_;
    double most_sine_;
    std::size_t pairs_ = 0;
    std::vector<Interval> counted_;  // of the side that is measured
    double nearest_ = 0.0;
};

}  // namespace plparcel
