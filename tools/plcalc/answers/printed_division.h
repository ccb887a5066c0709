#pragma once

// A division as it can be written down. What counts is the printed line, not the line that was found, because
// the printed one is staked out.

#include <vector>

#include "answers/question.h"
#include "plcalc/kernel.h"
#include "plparcel/division.h"

namespace tool {

/// A division whose lines have only a few decimals.
struct PrintedDivision {
    plparcel::Division proven;  ///< as it was found, with all digits
    /// Lines were found, but no way of writing down their coordinates holds what was asked.
    bool too_coarse = false;
    std::vector<PL_LINE_2D_record> lines;  ///< the printed ones, read back; empty unless done()
    std::vector<double> areas;             ///< of the pieces between them, in the order of the amounts
    Resolution resolution;                 ///< decimals of what is printed

    bool done() const { return proven.status == plparcel::Status::divided && !too_coarse; }
};

/// Divides a parcel and rounds the lines to as few decimals as hold what was asked.
///
/// Rounded lines are judged as people will read them: once with their ends as corners of the pieces, once
/// extended to the boundary. Every line must part the parcel in two, and every piece must hold its amount to
/// 1e-6 of the parcel's area and to a hundredth of itself. There are at least 4 decimals, and at least as
/// many as keep the rounding below a millionth of the parcel's extent, so that it does not turn the line.
/// Decimals are added until the lines hold, up to all that a double has.
///
/// @param[in] ring   the parcel, as plparcel::divide takes it
/// @param[in] asked  what to cut off
PrintedDivision divide_in_print(const plparcel::Ring& ring, const Asked& asked);

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
