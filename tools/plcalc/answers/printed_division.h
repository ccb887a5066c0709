#pragma once

// A division as it is printed, written, drawn and staked out: one result for all of them.

#include <cstddef>
#include <vector>

#include "answers/question.h"
#include "plcalc/kernel.h"
#include "plparcel/division.h"

namespace tool {

/// A dividing line, or one of the parts of it that lie in the parcel.
struct PrintedLine {
    PL_PNT2D_record start = {};
    PL_PNT2D_record end = {};
    std::size_t line = 0;   ///< which of the dividing lines
    std::size_t part = 0;   ///< which part of it
    std::size_t parts = 1;  ///< how many it has
};

/// A division whose lines have only a few decimals.
struct PrintedDivision {
    plparcel::Division proven;       ///< with the ends of its lines rounded
    std::vector<PrintedLine> lines;  ///< its lines, part by part; empty unless done()
    std::vector<double> areas;       ///< of its pieces
    Resolution resolution;           ///< decimals of what is printed
    /// Vertices of pieces, and of none of the parcel's rings, that are corners of neighbours; none where nobody asked.
    plparcel::Ring of_neighbours = {};
    double off_boundary = 0.0;     ///< how far points of neighbours in the pieces may lie off the boundary
    std::size_t alternatives = 0;  ///< how many lines hold the first amount; 0 where nobody has counted

    bool done() const { return proven.status == plparcel::Status::divided; }
};

/// Divides a parcel, its lines rounded to as few decimals as hold what was asked; see plparcel::Rounding.
///
/// There are as many decimals as the request states. Where it states none there are at least 4, and at least as many
/// as keep the rounding below a millionth of the parcel's extent, so that it does not turn the line. Decimals are
/// added until the lines hold, up to all that a double has.
///
/// @param[in] parcel  its rings
/// @param[in] asked   what to cut off, in the plane
PrintedDivision divide_in_print(const Parcel& parcel, const Asked& asked);

/// What the program answers to a request: the parcel, what was asked of it, and the division that came out. Areas and
/// the perimeter are on the ground, as what was asked. It refers to the parcel and the request of the caller, which
/// must outlive it.
struct Answer {
    const Parcel& parcel;
    const Asked& asked;
    PrintedDivision printed;  ///< of this parcel, as asked; not done() where it was refused
};

/// Divides the parcel as asked.
Answer answer(const Parcel& parcel, const Asked& asked);

}  // namespace tool
