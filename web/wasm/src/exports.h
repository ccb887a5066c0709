#pragma once

// The functions that the WebAssembly module exports. Natively they serve as the judge of its tests.

#include <cstdint>

extern "C" {

/// @return room for so many numbers of a request, until the next call of this function
double* plc_input(std::uint32_t count);

/// @return the numbers of the last answer, and how many there are
const double* plc_result();
std::uint32_t plc_result_length();

/// Parcel, line, measure, alternative, pieces, decimals, tolerance, amounts; what became of them.
void plc_divide();

/// A parcel; its report.
void plc_check();

/// A parcel; its report, then for each ring length, bearing and inner angle of each side and vertex.
void plc_measure();

/// A parcel, a request and a point; the amount for which the line runs through the point: whether there is one, its kind
/// and its number.
void plc_amount_at();

/// A parcel, the number of a ring and of a side, and a point; how far along the side its foot lies.
void plc_along_side();

/// A parcel and a request; the status with which every amount is refused, or NaN, and the ranges of areas that its line can
/// cut off.
void plc_feasible();

/// A parcel, a request and how many lines to look at; sides, perpendiculars and vertices that can hold the first amount.
void plc_alternatives();

/// How far apart two ends may be, and lines as rows of points; the groups of lines that hang together, as tool::join_lines()
/// has them: kind, widest gap, how many lines are repeated, the lines by number, the ring of a loop, where open
/// lines end, and where lines fork.
void plc_join();

/// From one point to another: the length, and the bearing in gons, NaN between two that are equal.
double plc_length(double x1, double y1, double x2, double y2);
double plc_bearing(double x1, double y1, double x2, double y2);

/// plparcel::rounded_to().
double plc_rounded(double value, int decimals);

/// The name and the words of a status.
const char* plc_status_name(std::int32_t status);
const char* plc_status_reason(std::int32_t status);
const char* plc_boundary_name(std::int32_t status);
const char* plc_boundary_reason(std::int32_t status);
}
