#pragma once

// Draws the plan of a division, to look at and to print.

#include <string>

#include "plan/layout.h"
#include "plan/plan.h"

namespace tool {

/// Draws the plan to a file at a round scale: parcel, pieces, lines with the coordinates of their ends, sides
/// with their lengths, numbered vertices, north arrow and scale bar.
///
/// @param[in] path   .svg, .pdf or .png
/// @param[in] name   of the file in messages
/// @throws Failure   failed when the file cannot be written
void draw_plan(const Plan& plan, Paper paper, const std::string& path, const std::string& name);

}  // namespace tool
