#pragma once

// A single call of CFrazArea, and what it is worth: the parcel is split along the resulting line in long
// double, without the library.

#include <cstddef>
#include <random>

#include "plcalc/kernel.h"
#include "support/measures.h"
#include "support/rings.h"

namespace bare_cut {

using test::Ring;

enum class Mode { kParallel = 0, kPerpendicular = 1, kVertex = 2 };

struct Request {
    Ring ring;
    std::size_t side;  ///< from this vertex to the next one; in the vertex mode this vertex
    Mode mode;
    double area;
};

/// A random request on a ring, which may be reversed, for a random side or vertex.
///
/// @param[in] part  the share of the parcel's area to cut off
Request request_on(std::mt19937_64& random, const Ring& ring, Mode mode, double part);

/// The result, and what it is worth.
struct Division {
    bool done;          ///< the answer of Esegui
    bool found;         ///< the search met its request, by its own measure
    bool ran_out;       ///< no line of the sweep cut off more than the request: the second end is not set
    bool beyond_end;    ///< an end lies measurably off the boundary, by less than a side may be overshot
    bool inside;        ///< the line runs from boundary to boundary within the parcel
    test::Real piece;   ///< area of the piece that should hold the request; 0 unless inside
    test::Real parcel;  ///< area of the parcel

    bool succeeded(double requested) const;  ///< within 1e-6 of the parcel's area
    bool other_piece_holds(double requested) const;
};

/// Calls the library and measures.
Division divide(const Request& request);

const PL_PNT2D_record& first(const Request& request);
const PL_PNT2D_record& second(const Request& request);

/// The same request with the parcel moved so that its first vertex is the origin.
Request at_local_origin(const Request& request);

/// The same request with the parcel turned so that the base side runs along +x, or along +y.
Request turned_to_x(const Request& request);
Request turned_to_y(const Request& request);

/// In the parallel mode whether the parcel has a part behind the base side; in the perpendicular mode whether
/// the perpendicular through the side's middle leaves the parcel and enters it again.
bool has_part_behind(const Request& request);

/// Whether the vertex sees every point of the parcel.
bool sees_whole_parcel(const Request& request);

/// Whether the parcel's angle at the vertex is above 200 gons.
bool is_reflex(const Request& request);

}  // namespace bare_cut
