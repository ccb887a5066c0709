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
    double area;
};

/// Convex, jagged, star and comb rings, rectangles, parts behind the base line; 4 to 120 vertices; local and
/// national coordinates; nearly parallel, very short and repeated sides; vertices within a millimetre and
/// within ulps of each other's level; base sides whose normal lies on +x; requests that tie a comparison.
Request adversary(std::mt19937_64& random, int modo);

}  // namespace reference
