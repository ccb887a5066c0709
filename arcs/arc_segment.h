#pragma once

// Helpers of the arc-segment intersection: internal, not installed; for arcs/.

#include "plcalc/kernel.h"

/// Bounding box of a segment by PlFunz_min_tol and PlFunz_max_tol.
void PlFunz_seg_rect(const PL_LINE_2D_record* seg, PL_RECT_2D_record* rect) noexcept;

/// Whether a point lies in a rectangle, each side widened by (|side| + 1) * PL_EPS.
///
/// @return 1 or 0. For a rectangle that is a single point PlFunz_samepnt decides.
int PlFunz_pnt_in_rect(const PL_RECT_2D_record* rect, const PL_PNT2D_record* p) noexcept;

/// On which sides of the line of another segment the ends of a segment lie.
///
/// @return 1 when the ends of a lie on opposite sides of the line of b, 2 when they lie on one side, 0 when an
///         end is on it, that is when the product of the two side values is within PL_EPS. The side values are
///         areas, not divided by any length.
int PlFunz_seg_relation(const PL_LINE_2D_record* a, const PL_LINE_2D_record* b) noexcept;

/// Radians to degrees by 57.2957795131.
double PlFunz_rad_to_deg(double a) noexcept;
