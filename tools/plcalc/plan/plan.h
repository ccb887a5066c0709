#pragma once

// What the plan of a division shows.

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "answers/printed_division.h"
#include "answers/question.h"
#include "plparcel/division.h"

namespace tool {

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
    LengthUnit unit;  ///< of the coordinates
};

/// From a division to its plan: the printed lines, the pieces between them, and the unit of the parcel's CRS.
///
/// @param[in] answer  one that is done()
Plan plan_of(const Answer& answer);

}  // namespace tool
