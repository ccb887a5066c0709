#pragma once

// A division as it can be written down: what counts is not the line that was found but the one that is printed,
// because that one is staked out.

#include <vector>

#include "divider.h"
#include "plcalc/kernel.h"
#include "request.h"

namespace tool {

/// A checked division whose line has a few decimals only.
struct PrintedDivision {
    Division division;      ///< its line is the printed one, read back; its areas are those of that line
    int decimals = 4;       ///< of coordinates and lengths
    int area_decimals = 4;  ///< of areas
};

/// Divides a parcel and rounds the line to as few decimals as hold the request.
///
/// A line with decimals is judged as one that was found: read back, it must part the parcel in two and hold the
/// request to 1e-6 of the parcel's area. The decimals are 4 at least, and at least so many that a rounding
/// stays below a millionth of the parcel's extent, lest it turn the line; from there on the first that hold are
/// taken, in the end all that a double has.
///
/// @param[in]  ring, request  as for `divide`
/// @param[out] printed        complete for `divided`; otherwise its division is what `divide` left, and the
///                            decimals are those that areas in a message need
/// @return as `divide`, and doubles_too_coarse when the line found holds the request and no printed one does
Outcome divide_in_print(const std::vector<PL_PNT2D_record>& ring, const Request& request,
                        PrintedDivision& printed);

}  // namespace tool
