#pragma once

// Parcels made to break a search that keeps values between trials.

#include <random>
#include <vector>

#include "plcalc/kernel.h"

namespace reference {

/// A parcel with a request.
struct Request {
    std::vector<PL_PNT2D_record> ring;
    PL_PNT2D_record p1;  ///< base side, or vertex
    PL_PNT2D_record p2;
    int modo;
    int tipo_area;  ///< 0: the product of the two values; 1: the first one; any other: as the object has it
    double valore1;
    double valore2;
};

/// Convex, jagged, star and comb rings, rectangles, lattices, needles, coasts, parts behind the base line; 4 to
/// 120 vertices; local and national coordinates; nearly parallel, very short and repeated sides; vertices within
/// a millimetre and within ulps of each other's level; base sides upright, level, and leaning from that by a few last
/// bits up to a gon; requests that tie a comparison.
Request adversary(std::mt19937_64& random, int modo);

/// What is no parcel: no points, one, two and a few; coordinates and areas that are NaN, infinite, near the
/// ends of the doubles' range or zero of either sign, many of them or one among good ones; sides reversed or
/// not in the ring; areas by product; unknown kinds of cut and of area.
Request no_parcel(std::mt19937_64& random, int modo);

}  // namespace reference
