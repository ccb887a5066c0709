#pragma once

// A division as it can be written down: what counts is not the line that was found but the one that is printed,
// because that one is staked out.

#include <vector>

#include "answers/request.h"
#include "answers/resolution.h"
#include "plcalc/kernel.h"
#include "plparcel/division.h"

namespace tool {

/// A division whose lines have a few decimals only.
struct PrintedDivision {
    plparcel::Division proven;  ///< as it was found, with all digits
    /// Lines could be found, but none with coordinates that can be written down and hold what was asked.
    bool too_coarse = false;
    std::vector<PL_LINE_2D_record> lines;  ///< the printed ones, read back; empty unless done()
    std::vector<double> areas;             ///< of the pieces that those make, in the order of the amounts
    Resolution resolution;                 ///< decimals of what is printed

    bool done() const { return proven.status == plparcel::Status::divided && !too_coarse; }
};

/// Divides a parcel and rounds the lines to as few decimals as hold what was asked.
///
/// Rounded lines are judged as they will be read, both with their ends as corners of the pieces and run on to
/// the boundary: every line must part the parcel in two, every piece hold its amount to 1e-6 of the parcel's
/// area and to a hundredth of itself. The decimals are 4 at least, and at least so many that a rounding stays
/// below a millionth of the parcel's extent, lest it turn the line; from there on the first that hold are
/// taken, in the end all that a double has.
///
/// @param[in] ring   the parcel, as plparcel::divide takes it
/// @param[in] asked  what to cut off
PrintedDivision divide_in_print(const plparcel::Ring& ring, const Asked& asked);

}  // namespace tool
