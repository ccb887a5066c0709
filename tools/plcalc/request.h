#pragma once

// What is asked of a parcel: the kind of cut, the side or vertex it starts from, and the area.

#include "plcalc/kernel.h"

namespace tool {

/// Kind of cut; the values are those of the modo that CFrazArea takes.
enum class Cut {
    parallel = 0,       ///< the line runs parallel to a side, the request lies along that side
    perpendicular = 1,  ///< the line stands on a side at a right angle, the request lies ahead of it
    through_vertex = 2  ///< the line starts at a vertex, the request lies next to the side after it
};

/// How the area is given; the values are those of the tipoArea that CFrazArea takes.
enum class AreaGiven {
    as_product = 0,  ///< of two lengths
    as_value = 1     ///< as it is
};

/// One request.
struct Request {
    Cut cut = Cut::parallel;
    /// Side or vertex, from 1, in the order of the ring as it was given. Side k runs from vertex k to k + 1.
    long long number = 0;
    AreaGiven given = AreaGiven::as_value;
    double value1 = 0.0;  ///< the area, or a length; parcel's unit
    double value2 = 0.0;  ///< the other length, or without effect

    /// Requested area, unit squared. The product in the order in which CFrazArea forms it.
    double area() const { return given == AreaGiven::as_product ? value2 * value1 : value1; }
};

}  // namespace tool
