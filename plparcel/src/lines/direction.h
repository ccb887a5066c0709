#pragma once

// The direction of a bearing.

#include "numbers/wide.h"

namespace plparcel {

/// Sine and cosine of a bearing, so East and North of a vector of length 1: to about 100 bits, and the same on every
/// machine. Exact at the four cardinal directions.
///
/// @param[in] bearing_gon  clockwise from North, finite, any number of turns
WidePoint direction_of(double bearing_gon);

}  // namespace plparcel
