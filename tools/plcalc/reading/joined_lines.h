#pragma once

// Joins the lines of a drawing to closed boundaries.

#include <cstddef>
#include <string>
#include <vector>

#include "plcalc/kernel.h"
#include "plparcel/division.h"

namespace tool {

/// A line that has two ends: a LINE, an ARC as its chords, or an open polyline.
struct OpenLine {
    std::vector<PL_PNT2D_record> points;  ///< at least two, all finite
    std::vector<double> heights;          ///< of the points, NaN for one without
};

/// What a group of lines that hang together is.
enum class Join {
    loop,  ///< a closed boundary
    open,  ///< it ends somewhere
    fork   ///< at one place more than two ends meet
};

/// Lines that hang together.
struct JoinedLines {
    Join kind = Join::open;
    std::vector<std::size_t> lines;  ///< by index, in the order given; those of a loop in the order along it
    plparcel::Ring ring;             ///< of a loop: starts as its first line does, without a closing vertex
    std::vector<double> heights;     ///< of the ring
    double widest_gap = 0.0;         ///< of a loop, between two ends that were joined
    PL_PNT2D_record fork = {};  ///< where more than two ends meet, the first such place in the order given
    std::size_t ends_at_fork = 0;
    std::vector<PL_PNT2D_record> loose;  ///< where open lines end
    std::size_t repeated = 0;            ///< how many lines were left out because another is the same
};

/// Groups lines by their ends, in the order of the lines that come first in them. Two ends are one place where they
/// are no farther apart than the tolerance, or where other ends between them are. At the joint of a loop the vertex is the
/// end of the line that comes first. Lines no longer than the tolerance are left out, and of lines that are the same, in
/// either direction, all but the first.
///
/// @param[in] tolerance  in the unit of the coordinates, above 0
///
/// Cost  n log n in the points and lines.
std::vector<JoinedLines> join_lines(const std::vector<OpenLine>& lines, double tolerance);

}  // namespace tool
