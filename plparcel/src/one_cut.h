#pragma once

// One cut: tries the lines of the kind that hold the amount, and keeps the first that the judge lets pass.

#include <cstddef>
#include <vector>

#include "boundary/measured_ring.h"
#include "lines/area_ranges.h"
#include "lines/direction.h"
#include "plparcel/division.h"
#include "verdict/judge.h"

namespace plparcel {

/// One cut of a series: what is left of the parcel, and from where the next amount is measured.
struct Stage {
    MeasuredRing ring;
    Cut cut = Cut::parallel;
    std::size_t index = 0;  ///< side or vertex of `ring`; without effect through a point
    Measured measured = Measured::from_reference;
    bool ask_library = false;
    std::size_t alternative = 0;  ///< how many lines that divide to pass over
    PL_PNT2D_record point = {};   ///< through_place: on side `index`; through_point: inside
    bool point_stays = false;     ///< through_place: the line starts there to the last bit
    WidePoint first = {};         ///< through_point: the direction from which lines are counted, clockwise
};

/// Where all lines of a series take their direction from: a side of the whole parcel, a bearing or a segment. Without
/// effect through a vertex, a place or a point.
struct Reference {
    Cut cut;
    PL_PNT2D_record a;  ///< the first end of the side; without effect for a bearing or a segment
    WidePoint run;      ///< its direction, of any length
};

/// Whether CFrazArea knows lines of that kind.
inline bool is_of_the_library(Cut cut)
{
    return cut == Cut::parallel || cut == Cut::perpendicular || cut == Cut::through_vertex;
}

/// One cut, made or not.
struct Attempt {
    Status status = Status::line_leaves_parcel;
    Cutting cutting;
    Wide asked;  ///< what the piece of the request should hold
    DividingLine line;
    BareAnswer bare;
    std::size_t trials = 0;
};

/// @param[in] stage      a simple ring, a side of it that has length, or a vertex
/// @param[in] reference  where the line's direction comes from
/// @param[in] target     what it should cut off
Attempt make_cut(const Stage& stage, const Reference& reference, const Target& target);

/// Cuts off a strip; the line has a direction.
///
/// @param[in] width   how far the line lies from the base side, or from where the request begins
/// @param[in] left    what the ring should hold, unit squared
/// @param[in] parcel  the whole parcel, of which the tolerance is a part
Attempt make_strip(const Stage& stage, const Reference& reference, double width, const Wide& left,
                   const Wide& parcel);

/// The areas that such a cut can make of the request, unit squared: in their order, apart from each other.
///
/// @param[in] granted  by how much a line to a vertex may miss an area, unit squared
std::vector<AreaRange> areas_of_cuts(const Stage& stage, const Reference& reference, const Wide& granted);

}  // namespace plparcel
