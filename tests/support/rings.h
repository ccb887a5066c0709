#pragma once

// The one generator of rings: random parcels of every kind, and the flaws that parcels have.

#include <cstddef>
#include <random>
#include <vector>

#include "plcalc/kernel.h"
#include "plutil/plutil.h"

namespace test {

/// A ring of vertices, open: the first one is not repeated.
using Ring = std::vector<PL_PNT2D_record>;

// --- generators: the rings run anticlockwise, near the origin, and are as large as asked ---

/// Convex: vertices at random intervals on a turned ellipse.
Ring ellipse_ring(std::mt19937_64& random, std::size_t n, double size);

/// Convex: n random side vectors that add up to zero, in the order of their directions. Sides are long and
/// short, corners sharp and flat.
Ring edge_vector_ring(std::mt19937_64& random, std::size_t n, double size);

/// Convex: one of the two above.
Ring convex_ring(std::mt19937_64& random, std::size_t n, double size);

/// A rectangle turned by a random angle.
Ring turned_rectangle(std::mt19937_64& random, double size);

/// Mildly concave: a convex ring in which one vertex in four is pulled in by up to a fifth.
Ring dented_ring(std::mt19937_64& random, std::size_t n, double size);

/// Concave: vertices at random distances from the origin, which sees all of the ring.
Ring star_ring(std::mt19937_64& random, std::size_t n, double size);

/// A base strip with the given number of teeth, turned by a random angle.
Ring comb_ring(std::mt19937_64& random, std::size_t teeth, double size);

/// A building with its walls along the axes: a straight base side, with a vertex on it now and then, and
/// columns of different heights above it.
Ring stepped_ring(std::mt19937_64& random, std::size_t columns, double size);

/// Random points in a square of that size around the origin, put into an order in which no two sides cross.
/// This ring alone may run either way round.
Ring crooked_ring(std::mt19937_64& random, std::size_t n, double size);

/// An L, and a T, turned by a random angle.
Ring l_ring(std::mt19937_64& random, double size);
Ring t_ring(std::mt19937_64& random, double size);

/// A parcel as surveyors meet them, of any kind above but the crooked one; at most 28 vertices.
Ring parcel_ring(std::mt19937_64& random, double size);

// --- changes to a ring ---

/// The same ring the other way round, from the same first vertex.
Ring reversed(const Ring& ring);

/// The same ring begun at another vertex.
Ring begun_at(const Ring& ring, std::size_t vertex);

/// The ring with vertices on some of its sides, as near to them as doubles allow.
Ring with_vertices_on_sides(std::mt19937_64& random, const Ring& ring);

/// The ring with some vertices repeated.
Ring with_repeated_vertices(std::mt19937_64& random, const Ring& ring);

/// The ring moved to coordinates of UTM size, about 5e5 East and 5e6 North.
Ring at_utm_size(std::mt19937_64& random, const Ring& ring);

/// The ring as a caller hands it over, with heights, which must not matter.
CPoint3dVector parcel_of(const Ring& ring);

}  // namespace test
