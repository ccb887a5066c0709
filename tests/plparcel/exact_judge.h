#pragma once

// A judge of divisions that shares nothing with the search: rational numbers of any length, its own enumeration of
// the lines that there are.

#include <gmpxx.h>

#include <string>

#include "plparcel/division.h"

namespace plparcel_test {

/// Says what is wrong with an answer to a request of one amount.
///
/// A division: its ends lie on the boundary, its line runs as asked, its pieces are the ring walked from end to end,
/// are simple, and hold what they should; with decimals, its ends have so many, and the line prolonged or shortened to
/// the boundary holds the amount as well. A refusal: no line of the kind holds the amount and lies clear of the
/// boundary between its ends; where the reason is that doubles are too coarse, no doubles next to such a line's
/// ends hold it either.
///
/// @param[in] ring      simple, without repeated vertices
/// @param[in] request   one amount, as an area or a share
/// @param[in] division  the answer
/// @return nothing where the answer is right, or what is wrong with it
std::string exact_objection(const plparcel::Ring& ring, const plparcel::Request& request,
                            const plparcel::Division& division);

/// Whether a double is the nearest one to a number of so many decimals.
bool has_decimals(double value, int decimals);

/// How far rounding to so many decimals takes a point at the most: half the diagonal of their grid, and a hair.
mpq_class most_rounding(int decimals);

}  // namespace plparcel_test
