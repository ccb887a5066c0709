#pragma once

// A division as text for the file: a report to read, and a list of points for a controller.

#include <string>

#include "answers/printed_division.h"
#include "console/outcome.h"

namespace tool {

enum class ReportStyle { plain, markdown };

/// Parcel, request, method, new points, dividing lines, pieces, parts of the sides that are cut, and checks.
///
/// @param[in] answer  one that is done()
std::string division_report(const Answer& answer, ReportStyle style);

/// Parcel, request, why there is no line, and what could be had instead.
///
/// @param[in] answer   one that is not done(), of a parcel that can be worked on and a side that exists
/// @param[in] refusal  its failure
std::string refusal_report(const Answer& answer, const Failure& refusal, ReportStyle style);

/// A CSV table with name, E, N, Z where the parcel has heights, and code of every point: the new ones (NEW) and corners of
/// neighbours first, then the corners (CORNER).
///
/// @param[in] answer  one that is done()
std::string point_list(const Answer& answer);

}  // namespace tool
