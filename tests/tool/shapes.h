#pragma once

// Shapes measured and cut in long double, by means that the program does not use.

#include <vector>

#include "support/measures.h"

namespace test {

using Point = Vector;
using Shape = std::vector<Point>;

/// Twice the area of the triangle o p q, positive anticlockwise.
long double cross(const Point& o, const Point& p, const Point& q);

/// A point, relative to the ring's first vertex.
Point local(const std::vector<PL_PNT2D_record>& ring, const PL_PNT2D_record& p);

/// The ring, relative to its first vertex.
Shape shape_of(const std::vector<PL_PNT2D_record>& ring);

long double area(const Shape& shape);
long double perimeter(const Shape& shape);

/// The part of a convex shape to the left of the line from a to b.
Shape left_of(const Shape& shape, const Point& a, const Point& b);

/// The part of any shape along its boundary from where the line a-b meets it near a to where it meets it near b.
Shape part_after(const Shape& shape, const Point& a, const Point& b);

}  // namespace test
