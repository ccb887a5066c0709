#pragma once

// Where a whole straight line crosses the boundary, in coordinates that can be returned.

#include <cstddef>
#include <vector>

#include "boundary/joined_rings.h"
#include "boundary/local_ring.h"
#include "numbers/wide.h"
#include "whole_lines/profile.h"

namespace plparcel {

/// One end of a segment of a line.
struct Crossing {
    std::size_t line = 0;  ///< which line
    std::size_t side = 0;  ///< the side that it lies on, or at whose end
    bool rises =
        false;   ///< the boundary rises through the line there, and the segment ends; otherwise it begins
    Wide along;  ///< its place along the line
    PL_PNT2D_record place = {};
};

/// The parcel as a whole line sees it.
struct Levels {
    const JoinedRings& rings;              ///< the outer ring anticlockwise, the holes clockwise
    const LocalRing& local;                ///< the frame of the parcel
    const std::vector<WidePoint>& points;  ///< the vertices in that frame
    const std::vector<WidePoint>& frame;   ///< of each vertex its place along the lines and its level
    Wide reach;                            ///< levels that differ by no more count as one
};

/// Finds the crossings of a line. Vertices within reach of it are taken for lying on it, and are then, all at the line
/// that run together, counted as above it or below it: so that the segments end on them where the boundary leaves the
/// line to its other side, and where it comes back to the side on which the parcel does not lie.
///
///      above          below            ends twice, at the vertex         ends at both ends of the flat
///      __|______    ____    ____       \      /                           \        /
///        |  line        \  /            \ out/                             \ out  /
///        v in            \/ in    -------\  /-------                -------+-----+--------
///                                         \/
class Crossings {
public:
    Crossings(const Levels& levels, const Profile& profile);

    /// @param[out] found  two for each segment, one after the other, from left to right; added to what there is
    /// @return false where rounding leaves no order in which segments begin and end in turn
    bool add(std::size_t line, const Wide& level, std::vector<Crossing>& found);

private:
    int side_of(std::size_t vertex, const Wide& level) const;
    bool is_on(std::size_t vertex, const Wide& level) const;
    void classify(std::size_t vertex, const Wide& level);
    int class_of(std::size_t first, std::size_t last, const Wide& level) const;
    Crossing crossing(std::size_t line, std::size_t side, const Wide& level) const;

    const Levels& levels_;
    const Profile& profile_;
    std::vector<int> classes_;  // of the vertices on the line: 1 above, -1 below; otherwise 0
};

}  // namespace plparcel
