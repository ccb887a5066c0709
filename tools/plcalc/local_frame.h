#pragma once

// A frame of the parcel's own, in which the library cuts it. All three steps into it are exact: no bit of a
// coordinate is lost on the way in.
//
//   shift         CFrazArea's sums take coordinates as they are. At 5e6, as in UTM, products of 1e13 leave
//                 the areas good to a hundredth only, and up to a tenth of the cuts through a vertex never
//                 meet their 1e-6. Near the origin all of them do.
//   scale         by a power of two, so that the parcel is 4096 to 8192 across. The library's tolerances are
//                 absolute, 0.001 for a crossing and 1e-7 for parallel lines. In a parcel of a hundred units
//                 or less they swallow a base side of a millimetre; from 1e5 on, rounding in the
//                 determinant of two parallel lines outgrows them, and the lines meet. Between lies room.
//   quarter turn  the parallel search tells the two sides of the base line apart by a direction in gons that
//                 it compares without folding 399.99 and 0.01 together. A base line whose normal points
//                 East or West is therefore turned to point North or South. Of rectangles turned by next
//                 to nothing, one cut in a hundred goes wrong without.

#include <vector>

#include "plcalc/kernel.h"
#include "request.h"

namespace tool {

/// Where the local frame lies in the parcel's coordinates.
class LocalFrame {
public:
    /// @param[in] ring        the parcel, at least one vertex; what is not finite stays so
    /// @param[in] side_start  first end of the reference side
    /// @param[in] side_end    its second end; a request through a vertex needs no turn, whatever they are
    /// @param[in] cut         kind of cut
    LocalFrame(const std::vector<PL_PNT2D_record>& ring, const PL_PNT2D_record& side_start,
               const PL_PNT2D_record& side_end, Cut cut);

    /// Into the frame, exact: each shift is by zero or by a whole number that is between half and twice
    /// every coordinate, and such a difference of doubles has no rounding; a power of two and a quarter turn
    /// move no bit of the significand.
    PL_PNT2D_record to_local(const PL_PNT2D_record& p) const;

    /// Back: one rounding per coordinate.
    PL_PNT2D_record from_local(const PL_PNT2D_record& p) const;

    /// Local units to the parcel's unit: lengths are multiplied by it on the way in, areas by its square.
    double scale() const { return scale_; }

private:
    PL_PNT2D_record origin_;  // parcel's unit
    double scale_;            // a power of two
    bool turned_;             // a quarter turn, anticlockwise
};

}  // namespace tool
