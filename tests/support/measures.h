#pragma once

// The one measurement in long double, which shares no code with the library. Differences of doubles come out
// exact or nearly so, whatever the coordinates' size.

#include "plcalc/kernel.h"
#include "support/rings.h"

namespace test {

using Real = long double;

struct Vector {
    Real x;
    Real y;
};

Vector from_to(const PL_PNT2D_record& a, const PL_PNT2D_record& b);
Real cross(const Vector& a, const Vector& b);
Real dot(const Vector& a, const Vector& b);
Real length(const Vector& v);

/// Area, positive anticlockwise: triangles from the first vertex, in long double.
Real signed_area(const Ring& ring);

Real perimeter(const Ring& ring);

/// Area of the part of the ring on the left of the unlimited line from p to q, never negative. For a ring
/// that the line cuts into more than two pieces, all the pieces on the left together.
Real area_left_of(const Ring& ring, const PL_PNT2D_record& p, const PL_PNT2D_record& q);

/// Whether r is on the left of the line from p to q: above zero left, below zero right.
Real side_of(const PL_PNT2D_record& p, const PL_PNT2D_record& q, const PL_PNT2D_record& r);

/// Distance of a point from the nearest point of the ring's sides.
Real distance_to_boundary(const Ring& ring, const PL_PNT2D_record& p);

/// Distance of a point from the nearest vertex of the ring.
Real distance_to_vertices(const Ring& ring, const PL_PNT2D_record& p);

/// Distance of p from the unlimited line through a and b.
Real distance_to_line(const PL_PNT2D_record& a, const PL_PNT2D_record& b, const PL_PNT2D_record& p);

}  // namespace test
