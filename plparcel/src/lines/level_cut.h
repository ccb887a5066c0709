#pragma once

// Lines of one direction that cut off an area: parallels to a side, and perpendiculars.
//
// Every vertex has a level, its distance from a base line. The parcel is a set of trapeziums, each between two
// sides (trapeziums.h), and the area above a line in one of them is a quadratic of the line's level. Its root is
// the line; no search.

#include <cstddef>
#include <vector>

#include "boundary/local_ring.h"
#include "lines/chord.h"
#include "lines/trapeziums.h"
#include "numbers/wide.h"
#include "plparcel/division.h"

namespace plparcel {

/// What the lines should cut off.
struct LevelRequest {
    WidePoint up;      ///< direction in which levels grow, of about unit length: across the lines
    WidePoint zero;    ///< a point at level 0
    std::size_t base;  ///< the side that levels are counted from, or along
    bool from_base;    ///< parallel: the request is the piece of the base side; otherwise the one above
    bool opposite;     ///< the request is the other piece
    Wide request;      ///< its area, local units
    Wide rest;         ///< that of the other piece
    Wide granted;      ///< by how much a line may miss the request, local units
    double turn;       ///< 1 when the ring runs anticlockwise, -1 clockwise
};

class LevelCut {
public:
    LevelCut(const LocalRing& ring, const LevelRequest& request);

    /// All lines that hold the request, and those at the level of a vertex that miss it by no more than is granted.
    /// First come the lines above level 0; for perpendiculars, those that end on the base side. Among equals come
    /// first those that meet the boundary only twice, and among these the nearest to level 0; for perpendiculars, to
    /// the base side's middle. Some of the lines may touch the boundary on their way.
    std::vector<Chord> all_lines() const;

    /// Area of what lies below level 0, local units.
    Wide area_below() const;

private:
    struct Candidate {
        Chord chord;
        bool preferred;
        bool alone;
        double distance;
        double level;
        double along;  // of its left end
    };

    static bool is_better(const Candidate& a, const Candidate& b);
    bool meets_twice_only(const Trapezium& trapezium, const Wide& level) const;
    Wide area_above(const Chord& chord, const Wide& level) const;
    bool solve(const Trapezium& trapezium, Candidate& found) const;
    WidePoint on_side(std::size_t side, const Wide& level) const;

    const WidePoint& frame_at(std::size_t i) const { return around(frame_, i); }

    const LocalRing& ring_;
    LevelRequest request_;
    std::vector<WidePoint> frame_;  // x along the lines, y the level; both times the length of `up`
    std::vector<Wide> twice_area_;  // entry i: sum of cross(i, i + 1) over the vertices before i
    std::vector<Wide> low_ends_;    // levels at which sides begin, in order
    std::vector<Wide> high_ends_;   // and at which they end
    Wide up2_;                      // areas are multiplied by it on the way into the frame
};

}  // namespace plparcel
