#pragma once

// One division: from a ring and a request to a line that has been checked.

#include <vector>

#include "plcalc/kernel.h"
#include "request.h"

namespace tool {

/// Whether the parcel was divided, and if not, why not.
enum class Outcome {
    divided,
    // wrong use
    no_such_number,       ///< the parcel has no side or vertex of that number
    side_without_length,  ///< the side's ends are the same point within 1e-7
    area_not_positive,    ///< zero, negative, infinite or not a number
    // a parcel that cannot be worked on
    ring_not_usable,  ///< fewer than three distinct vertices, a coordinate or the area not finite, no area
    // a cut that cannot be made
    area_not_below_parcel,  ///< the request is as large as the parcel or larger
    no_line,                ///< the library found none
    line_leaves_parcel,     ///< it found one that does not part the parcel in two
    request_missed,         ///< it found one that parts the parcel otherwise than asked
    doubles_too_coarse      ///< it found the right one, but not with coordinates that can be written down
};

/// A checked division, in the parcel's own coordinates.
struct Division {
    /// The dividing line. Parallel to a side it runs as the side runs, perpendicular to it from its end nearer
    /// the side, through a vertex from there.
    PL_PNT2D_record from = {};
    PL_PNT2D_record to = {};
    double request_area = 0.0;   ///< the piece that holds the request, measured; unit squared
    double rest_area = 0.0;      ///< the other piece, measured
    double parcel_area = 0.0;    ///< AreaCalcolata of the parcel, unit squared
    double perimeter = 0.0;      ///< PeriCalcolato of the parcel, unit
    bool anticlockwise = false;  ///< how the ring runs
};

/// Divides a parcel and measures both pieces.
///
/// @param[in]  ring      a simple ring in the order that the request counts in, the first vertex not repeated
///                       at its end; neighbours may repeat. Simplicity is the caller's to check.
/// @param[in]  request   what to cut off
/// @param[out] division  complete for `divided`. Otherwise the fields known by then, zeros in the others:
///                       parcel_area from area_not_below_parcel on, both pieces for request_missed.
/// @return `divided` only for a line that lies in the parcel, parts it in exactly two and holds the request
///         to 1e-6 of the parcel's area and a hundredth of the smaller piece
Outcome divide(const std::vector<PL_PNT2D_record>& ring, const Request& request, Division& division);

/// Judges a line that is there already, as `divide` judges the one that the library finds.
///
/// @param[in]  ring, request  as for `divide`
/// @param[in]  from, to       the line's ends, in the order that `divide` gives them
/// @param[in]  rounding       how far the ends may be from where they were meant to be, parcel's unit: they are
///                            moved along the line onto the boundary before the pieces are measured
/// @param[out] division       as for `divide`; `from` and `to` come back as given
/// @return `divided` when the line parts the parcel in two and holds the request
Outcome judge(const std::vector<PL_PNT2D_record>& ring, const Request& request, const PL_PNT2D_record& from,
              const PL_PNT2D_record& to, double rounding, Division& division);

}  // namespace tool
