#pragma once

// The plan of a division: to look at and to print.

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "plan_layout.h"
#include "plparcel/division.h"
#include "resolution.h"

namespace tool {

/// What is drawn.
struct Plan {
    std::string title;                   ///< the parcel
    std::vector<std::string> subtitles;  ///< what was asked
    plparcel::Ring ring;
    std::vector<plparcel::Ring> pieces;      ///< tinted, each with its label
    std::vector<std::string> piece_labels;   ///< areas
    std::vector<PL_LINE_2D_record> lines;    ///< dividing lines as printed
    std::optional<std::size_t> base_side;    ///< drawn thick
    std::optional<std::size_t> base_vertex;  ///< ringed
    Resolution resolution;
    double metres = 1.0;  ///< length of the unit
    std::string unit;     ///< its name, "m"; empty when nobody told
};

/// Draws the plan to a file: parcel, pieces, lines with the coordinates of their ends, sides with their lengths,
/// numbered vertices, north arrow, scale bar. True to a round scale.
///
/// @param[in] path   .svg, .pdf or .png
/// @param[in] name   of the file in messages
/// @throws Failure   failed when the file cannot be written
void draw_plan(const Plan& plan, Paper paper, const std::string& path, const std::string& name);

}  // namespace tool
