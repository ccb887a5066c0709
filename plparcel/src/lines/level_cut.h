#pragma once

// Lines of one direction that cut off an area: parallels to a side, and perpendiculars.
//
// Every vertex has a level, its distance from a base line. The parcel is a set of trapeziums, each between two
// sides (trapeziums.h), and the area above a line in one of them is a quadratic of the line's level. Its root is
// the line; no search.

#include <cstddef>
#include <vector>

#include "boundary/local_ring.h"
#include "lines/area_ranges.h"
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
    bool free;         ///< a direction without a side: `base` is without effect, the request is the one above
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
    /// Without a base side the nearest to where the request begins: the highest level, for `opposite` the lowest.
    std::vector<Chord> all_lines() const;

    /// All lines at a level, in the same order.
    std::vector<Chord> lines_at(const Wide& level) const;

    /// What the lines of all trapeziums make of the request, local units, in no order. A line at the rim of a trapezium
    /// touches a vertex that lies within `reach` of it, local units, and no nearer to its ends.
    std::vector<AreaRange> areas(const Wide& reach) const;

    /// Where the request begins, unless it lies above or below the base side: the highest level, or the lowest.
    Wide begin() const { return request_.opposite == request_.from_base ? highest_ : lowest_; }

    /// The level of one end of the base side.
    const Wide& level_of(std::size_t vertex) const { return frame_at(vertex).y; }

    /// Levels are distances times this.
    Wide scale() const { return sqrt(up2_); }

    /// What a line at a level makes of the request, local units.
    Wide request_area(const Chord& chord, const Wide& level) const;

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

    void complete(const Trapezium& trapezium, const Wide& level, Candidate& found) const;
    static std::vector<Chord> in_order(std::vector<Candidate> all);
    Candidate between_sides(const Trapezium& trapezium) const;
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
    Wide lowest_;
    Wide highest_;
    Wide up2_;  // areas are multiplied by it on the way into the frame
};

}  // namespace plparcel
