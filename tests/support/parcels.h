#pragma once

// Random parcels, and measures of them in long double that share no code with the library.

#include <cstddef>
#include <random>
#include <vector>

#include "plcalc/kernel.h"

namespace test {

/// A ring of vertices, open: the first one is not repeated.
using Ring = std::vector<PL_PNT2D_record>;

// --- generators: rings run anticlockwise, of the given overall size, near the origin ---

/// Convex, its vertices on a turned ellipse, in any rhythm.
Ring ellipse_ring(std::mt19937_64& random, std::size_t n, double size);

/// Convex, from n random edge vectors that add up to zero, put in the order of their directions: long and
/// short sides, sharp and flat corners.
Ring edge_vector_ring(std::mt19937_64& random, std::size_t n, double size);

/// Convex: one of the two above.
Ring convex_ring(std::mt19937_64& random, std::size_t n, double size);

/// A rectangle turned by a random angle.
Ring turned_rectangle(std::mt19937_64& random, double size);

/// A convex ring with one vertex in four pulled in by up to a fifth: mildly concave.
Ring dented_ring(std::mt19937_64& random, std::size_t n, double size);

/// Radii between a fifth and the whole, in the order of their directions: concave, seen whole from the origin.
Ring star_ring(std::mt19937_64& random, std::size_t n, double size);

/// A base strip with the given number of teeth, turned by a random angle.
Ring comb_ring(std::mt19937_64& random, std::size_t teeth, double size);

/// An L, and a T, turned by a random angle.
Ring l_ring(std::mt19937_64& random, double size);
Ring t_ring(std::mt19937_64& random, double size);

// --- changes to a ring ---

/// The same ring the other way round, from the same first vertex.
Ring reversed(const Ring& ring);

/// With a vertex on some of its sides, as near to them as doubles allow.
Ring with_vertices_on_sides(std::mt19937_64& random, const Ring& ring);

/// With some vertices twice in a row.
Ring with_repeated_vertices(std::mt19937_64& random, const Ring& ring);

/// Moved to coordinates of the size of UTM, 5e5 East and 5e6 North.
Ring at_utm_size(std::mt19937_64& random, const Ring& ring);

// --- measures ---

/// Area, positive anticlockwise: triangles from the first vertex, in long double.
long double signed_area(const Ring& ring);

/// Area of the part of the ring on the left of the unlimited line from p to q, never negative. For a ring
/// that the line cuts into more than two pieces, all the pieces on the left together.
long double area_left_of(const Ring& ring, const PL_PNT2D_record& p, const PL_PNT2D_record& q);

/// Whether r is on the left of the line from p to q: above zero left, below zero right.
long double side_of(const PL_PNT2D_record& p, const PL_PNT2D_record& q, const PL_PNT2D_record& r);

/// Distance of a point from the nearest point of the ring's sides.
long double distance_to_boundary(const Ring& ring, const PL_PNT2D_record& p);

/// Distance of a point from the nearest vertex of the ring.
long double distance_to_vertices(const Ring& ring, const PL_PNT2D_record& p);

/// Distance of p from the unlimited line through a and b.
long double distance_to_line(const PL_PNT2D_record& a, const PL_PNT2D_record& b, const PL_PNT2D_record& p);

}  // namespace test
