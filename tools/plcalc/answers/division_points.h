#pragma once

// The points of a division and their names: the corners of the parcel, and the new points at the ends of the lines.
// Plan, drawing, lists and report all call a point by the name that it has here.

#include <cstddef>
#include <string>
#include <vector>

#include "answers/printed_division.h"
#include "plcalc/kernel.h"

namespace tool {

struct DivisionPoint {
    std::string name;
    PL_PNT2D_record at;   ///< as it is printed, written and staked out; a corner as it stands in the file
    bool is_new = false;  ///< neither a corner of the parcel nor one of a neighbour

    /// What lists call it: NEW, or CORNER for what is there already.
    const char* code() const { return is_new ? "NEW" : "CORNER"; }
};

/// The points by their index: corners of the parcel come first, in the order of the rings.
struct DivisionPoints {
    /// Two points, by index.
    struct Line {
        std::size_t from;
        std::size_t to;
    };

    /// A piece: its corners in the parcel's direction, and those of the holes in it.
    struct Piece {
        std::vector<std::size_t> ring;
        std::vector<std::vector<std::size_t>> holes;
    };

    std::vector<DivisionPoint> points;
    std::size_t corners = 0;                        ///< how many of the points are the parcel's
    Corners rings;                                  ///< how corners follow each other
    std::vector<Line> lines;                        ///< the dividing lines, part by part
    std::vector<std::vector<std::size_t>> on_side;  ///< other points of each side, in its direction
    std::vector<Piece> pieces;

    /// The points along a side from its first corner to its last.
    std::vector<std::size_t> along(std::size_t side) const;
};

/// Corners have the names of the file, or their numbers from 1. New points are P1, P2, ... in the order of the lines;
/// where corners have such names already, counting goes on after them. Corners of neighbours on the parcel's sides are
/// N1, N2, ... in the same way. The end of a line at a corner is that corner, although the corner may have more decimals
/// than the end.
///
/// @param[in] answer  one that is done()
/// @param[in] taken   names of other points; counting goes on after these as well
DivisionPoints points_of(const Answer& answer, const std::vector<std::string>& taken = {});

/// What a piece is called: A, B, ..., Z, AA; or 1234/5a of the parcel 1234/5, and North-A of the parcel North.
///
/// @param[in] parcel  name of the parcel; may be empty
/// @param[in] piece   from 0
std::string piece_title(const std::string& parcel, std::size_t piece);

}  // namespace tool
