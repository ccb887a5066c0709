#pragma once

/// @file
/// The boundary of a parcel, and whether it can be worked on.

#include <cstddef>
#include <vector>

#include "plcalc/kernel.h"
#include "plparcel/export.h"

namespace plparcel {

/// The vertices of a parcel in order, clockwise or anticlockwise. Side i runs from vertex i to the next one.
using Ring = std::vector<PL_PNT2D_record>;

/// A parcel: what lies in its outer ring and in none of its holes. Each ring may run either way.
struct PLPARCEL_TAGGED_API Parcel {
    Ring outer;               ///< around the parcel
    std::vector<Ring> holes;  ///< inside it, apart from each other; in any order
};

/// A side or a vertex of a parcel, counted from 0 as handed over; repeated vertices count too.
struct BoundaryPlace {
    std::size_t ring = 0;   ///< 0 the outer ring, k the k-th hole
    std::size_t index = 0;  ///< of the side, or of the vertex
};

/// Whether a boundary can be used.
enum class BoundaryStatus {
    usable,            ///< a simple ring with an area
    not_finite,        ///< a coordinate is infinite or NaN
    out_of_range,      ///< beyond 2e90 or below 5e-91 across
    too_few_vertices,  ///< fewer than three different ones
    flat,              ///< all vertices on one line, or next to no area
    meets_itself,      ///< two sides meet elsewhere than at a common vertex; see RingReport::meeting_sides
    rings_meet,        ///< sides of two rings meet; see RingReport::meeting_sides and meeting_rings
    hole_outside,      ///< a hole does not lie in the outer ring; see RingReport::at_ring
    hole_in_hole       ///< a hole lies in another; see RingReport::at_ring
};

/// @param[in] status  any status
/// @return a sentence's worth in English, without a full stop; never null
PLPARCEL_API const char* describe(BoundaryStatus status) noexcept;

/// What check_ring() finds out about a ring.
struct RingReport {
    BoundaryStatus status = BoundaryStatus::too_few_vertices;  ///< usable, or why it is not
    std::size_t repeated = 0;  ///< vertices that equal the one before, without tolerance
    bool closed = false;       ///< the outer ring's last vertex repeats the first; not counted in `repeated`
    std::size_t meeting_sides[2] = {};  ///< for meets_itself: two sides that meet, lower index first
    std::size_t meeting_rings[2] = {};  ///< the rings of these sides: 0 the outer one, k the k-th hole
    std::size_t at_ring = 0;            ///< unless usable: the ring at fault, counted in the same way
    bool anticlockwise = false;         ///< how the ring runs; false unless it is usable
    double area = 0.0;                  ///< unit squared; 0 unless the ring is usable
    double perimeter = 0.0;             ///< caller's unit; 0 unless the ring is usable
};

/// Checks and measures a ring.
///
/// @param[in] ring  the vertices; repeated vertices and a closing one do no harm
/// @return the report. A ring that touches itself, even at a vertex only, meets itself.
///
/// Exactness   The status is decided, and the area measured, with 106 bits on the differences of the coordinates,
///             without tolerance and without loss at large coordinates. The area is rounded once; the perimeter is
///             that of PeriCalcolato. A ring counts as flat when its area is at most 2^-90 of the square of its extent,
///             where those bits end. Rounding may decide before that, where coordinates differ by less than 1e-15
///             of their size or an area is below 1e-12 of the square of the extent.
PLPARCEL_API RingReport check_ring(const Ring& ring);

/// Checks and measures a parcel. Each ring must be usable by itself, and each hole lie in the outer ring, in no other
/// hole, and apart from all other rings: a hole that touches another ring, even at a vertex only, meets it.
///
/// @param[in] parcel  the rings, each either way round
/// @return the report. Area and perimeter are those of the parcel: less the holes, and with their boundaries. `repeated`
///         counts in all rings. For rings_meet the outer ring's side, or that of the earlier hole, comes first.
PLPARCEL_API RingReport check_parcel(const Parcel& parcel);

}  // namespace plparcel
