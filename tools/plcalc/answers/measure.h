#pragma once

// Measures a parcel's boundary with the library's own functions.

#include <optional>
#include <vector>

#include "answers/question.h"
#include "plcalc/kernel.h"

namespace tool {

/// A side, from its vertex to the next one.
struct MeasuredSide {
    double length = 0.0;                ///< parcel's unit
    std::optional<double> bearing_gon;  ///< from North towards East, [0, 400); none for a side without length
};

/// A vertex.
struct MeasuredVertex {
    /// Angle inside the parcel, gons, [0, 400); none where a neighbour is the same point.
    std::optional<double> angle_gon;
};

/// A parcel's measures, in the numbering of Corners. Side i runs from vertex i on.
struct Measures {
    double area = 0.0;           ///< unit squared
    double perimeter = 0.0;      ///< unit
    bool anticlockwise = false;  ///< the outer ring
    std::vector<MeasuredSide> sides;
    std::vector<MeasuredVertex> vertices;
};

/// Bearing from one point to another in gons, [0, 400); none for the same point.
std::optional<double> bearing_gon(const PL_PNT2D_record& from, const PL_PNT2D_record& to);

/// @param[in] ring  a simple ring of at least three different vertices, the first not repeated
Measures measure(const std::vector<PL_PNT2D_record>& ring);

/// The measures of a parcel on the ground: the area less that of its holes, and the perimeter with theirs. Angles lie
/// inside the parcel at holes too.
Measures measure(const Parcel& parcel);

}  // namespace tool
