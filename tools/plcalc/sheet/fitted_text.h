#pragma once

// Text that is too long for its place.

#include <string>

#include "sheet/canvas.h"

namespace tool {

/// As much of a text as fits, in whole characters, with dots behind it; all of it where that fits.
///
/// @param[in] ruler  to measure text
/// @param[in] room   the greatest width, points
std::string fitted(Canvas& ruler, const std::string& text, double size, bool bold, double room);

/// The same with the dots in the middle: names of parcels and pieces differ at their ends.
std::string fitted_at_both_ends(Canvas& ruler, const std::string& text, double size, bool bold, double room);

}  // namespace tool
