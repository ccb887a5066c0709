#pragma once

// A circle and a segment: internal, not installed; for the arc-segment intersection.

#include "plcalc/kernel.h"

/// A circle.
struct PL_CIRCLE_2D_record {
    double x;       ///< centre, caller's unit
    double y;       ///< centre, caller's unit
    double radius;  ///< radius, caller's unit
};

/// The line origin + t * direction.
struct PL_PARAM_LINE_2D_record {
    double x;   ///< origin, caller's unit
    double y;   ///< origin, caller's unit
    double dx;  ///< direction; a unit vector once normalised
    double dy;  ///< direction
};

/// Fills a circle.
void PlFunz_set_circle(double x, double y, double r, PL_CIRCLE_2D_record* out) noexcept;

/// Fills a parametric line. The arguments come axis by axis (x, dx, y, dy), the fields of the record in another
/// order.
void PlFunz_set_param_line(double x, double dx, double y, double dy, PL_PARAM_LINE_2D_record* out) noexcept;

/// Parametric line from a to b.
///
/// @return 0 done; 2 the points coincide within PL_EPS on each axis, out is untouched
int PlFunz_param_line_2p(const PL_PNT2D_record* a, const PL_PNT2D_record* b,
                         PL_PARAM_LINE_2D_record* out) noexcept;

/// Makes the direction a unit vector.
///
/// @return 0 done; 4 the squared length is within PL_EPS of zero, line is untouched
int PlFunz_param_line_normalise(PL_PARAM_LINE_2D_record* line) noexcept;

/// Where a circle meets a segment.
///
/// @param[in]  circle  the circle
/// @param[in]  seg     the segment
/// @param[out] q1      the first point to report. Written whenever the line meets the circle, whether the point
///                     is on the segment or not.
/// @param[out] q2      the other meeting point; written when the line crosses the circle
/// @param[out] n       how many of them lie in the segment's box: 0, 1 or 2
/// @return whether there is one
bool PlFunz_intcircleseg(const PL_CIRCLE_2D_record* circle, const PL_LINE_2D_record* seg, PL_PNT2D_record* q1,
                         PL_PNT2D_record* q2, int* n) noexcept;
