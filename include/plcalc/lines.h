#pragma once

/// @file
/// Lines and segments: implicit lines, their normal form, parallels and perpendiculars, intersections,
/// point-line distance and collinearity.
///
/// Every function either has no side effects or writes only through the pointers that it is given. None
/// allocates memory, and all may be called from any thread. Coordinates are in the caller's unit, x East, y
/// North.

#include "plcalc/export.h"
#include "plcalc/kernel.h"

// --------------------------------------------------------------------------------------- implicit lines

/// Line through two points, directed from p1 to p2.
///
/// @param[in]  p1, p2  points, caller's unit
/// @param[out] out     a = -dy, b = dx, c = p1.x*p2.y - p1.y*p2.x: (a, b) is as long as the segment, and
///                     a*x + b*y + c is positive to the left of the way from p1 to p2
/// @return 0 done; 2 the points coincide, and out is untouched. Always test this code.
///
/// Tolerance   PL_EPS, absolute, inclusive, on each axis separately.
/// Degenerate  Points with a NaN coordinate never coincide: the code is 0, and the coefficients hold the NaN.
/// Aliasing    None possible: points and line are records of different types.
/// Exactness   a and b are rounded once, c at both products and at their difference. Far from the origin the
///             products are large, and so is the error of c: shift to a local origin where that matters.
PLCALC_API int PlFunz_lineeq_ile(const PL_PNT2D_record* p1, const PL_PNT2D_record* p2,
                                 PL_IMP_LINE_2D_record* out) noexcept;

/// Brings a line to its normal form, in which a*x + b*y + c is a signed distance.
///
/// @param[in,out] line  a*a + b*b becomes 1 and c negative, so that the normal (a, b) points from the origin to
///                      the line. A line with |c| <= PL_EPS counts as one through the origin: its signs change
///                      only when b < -PL_EPS, which makes b positive, and c may have either sign.
/// @return 0 done; 3 the normal is too short, and line is untouched
///
/// Tolerance   PL_EPS on a*a + b*b, not on its root: a normal up to 3.16e-4 long is refused. PL_EPS on c and b
///             as handed in, before the division.
/// Degenerate  A normal with a NaN is never too short: the code is 0, and the coefficients are NaN.
/// Exactness   k = 1 / sqrt(a*a + b*b), then a*k, b*k, c*k; rounded at each operation.
/// Source      Hesse's normal form.
PLCALC_API int PlFunz_normal_ile(PL_IMP_LINE_2D_record* line) noexcept;

/// Perpendicular to a line through a point. Result last, unlike PlFunz_linepntparallel.
///
/// @param[in]  line  the given line
/// @param[in]  p     the point, caller's unit
/// @param[out] out   the perpendicular; its (a, b) is (line.b, -line.a), as long as that of line
///
/// Aliasing    out may be the record of line.
/// Exactness   a and b are exact; c = line.a*p.y - line.b*p.x, rounded at each operation.
PLCALC_API void PlFunz_linepntperpend(const PL_IMP_LINE_2D_record* line, const PL_PNT2D_record* p,
                                      PL_IMP_LINE_2D_record* out) noexcept;

/// Parallel to a line through a point. Result first, unlike PlFunz_linepntperpend.
///
/// @param[out] out   the parallel: a and b of line, and the c that leads it through p
/// @param[in]  p     the point, caller's unit
/// @param[in]  line  the given line
///
/// Aliasing    out may be the record of line.
/// Exactness   a and b are exact; c = -(p.y*line.b + p.x*line.a), rounded at each operation.
PLCALC_API void PlFunz_linepntparallel(PL_IMP_LINE_2D_record* out, const PL_PNT2D_record* p,
                                       const PL_IMP_LINE_2D_record* line) noexcept;

/// y of a line at a given x.
///
/// @param[in] line  the line
/// @param[in] x     abscissa, caller's unit
/// @return -(a*x + c) / b; 0.0 for a vertical line, which the caller cannot tell from a true 0.0
///
/// Tolerance   A line is vertical when |b| <= PL_EPS, inclusive, on the coefficient as handed in.
/// Exactness   Rounded at each of the three operations.
PLCALC_API double PlFunz_ordinate_ile(const PL_IMP_LINE_2D_record* line, double x) noexcept;

/// x of a line at a given y.
///
/// @param[in] line  the line
/// @param[in] y     ordinate, caller's unit
/// @return -(b*y + c) / a; 0.0 for a horizontal line, which the caller cannot tell from a true 0.0
///
/// Tolerance   A line is horizontal when |a| <= PL_EPS, inclusive, on the coefficient as handed in.
/// Exactness   Rounded at each of the three operations.
PLCALC_API double PlFunz_abscissa_ile(const PL_IMP_LINE_2D_record* line, double y) noexcept;

// ---------------------------------------------------------------------------------------- intersections

/// Meeting point of two unlimited lines.
///
/// @param[in]  l1, l2  the lines
/// @param[out] out     the point, caller's unit; untouched when false
/// @return false for parallel lines, and for lines whose three coefficients agree within PL_EPS
///
/// Tolerance   PL_EPS on the determinant of the coefficients as handed in. For lines built from two points the
///             determinant grows with both lengths: short segments count as parallel at wider angles.
/// Degenerate  A line of zeros meets nothing, as long as the other line has no NaN in a or b. A NaN in a or b
///             gives true, and NaN in out. A NaN in c alone leaves parallel lines parallel; other lines then
///             give true, and NaN.
/// Aliasing    l1 and l2 may be one record: a line does not meet itself.
/// Exactness   det = l2.b*l1.a - l1.b*l2.a, inv = 1 / det, x = (l1.b*l2.c - l1.c*l2.b)*inv,
///             y = (l1.c*l2.a - l1.a*l2.c)*inv; rounded at each operation, not snapped to zero. For segments of
///             100 that cross at 20 gons or more the point was up to 3e-5 off at 5e5 East, 5e6 North, and up to
///             5e-12 at a local origin: shift to one.
/// Source      Cramer's rule.
PLCALC_API bool PlFunz_intersect_ile(const PL_IMP_LINE_2D_record* l1, const PL_IMP_LINE_2D_record* l2,
                                     PL_PNT2D_record* out) noexcept;

/// Meeting point of an unlimited line and a segment.
///
/// @param[in]  line  the line
/// @param[in]  seg   the segment
/// @param[out] out   the point, caller's unit. When the line passes outside the segment, the result is false
///                   but out holds the meeting point with the segment's line. In the other cases of false it
///                   is untouched.
/// @return true when the line meets the segment; a line parallel to it or along it never does
///
/// Tolerance   The point may lie outside the segment's box by (|limit| + 1) * PL_EPS. PlFunz_intersect_ile
///             decides what is parallel.
/// Degenerate  A segment without length is met only when its start satisfies the equation exactly; out is
///             then that start. A NaN gives false, and out either holds NaN or is untouched.
/// Aliasing    out may be an end of seg.
/// Exactness   That of PlFunz_intersect_ile, the segment's line from PlFunz_lineeq_ile. A local origin is needed
///             here, too.
PLCALC_API bool PlFunz_intersect_ils(const PL_IMP_LINE_2D_record* line, const PL_LINE_2D_record* seg,
                                     PL_PNT2D_record* out) noexcept;

/// Meeting point of two segments.
///
/// @param[in]  s1, s2  the segments
/// @param[out] out     the point, computed along s1, caller's unit; a coordinate of magnitude PL_EPS or
///                     less is exactly 0.0; untouched when false
/// @return true when they meet; parallel, overlapping and degenerate segments never do; false with a NaN
///
/// Tolerance   Segments are parallel when their cross product, an area, is within PL_EPS, inclusive: segments
///             whose lengths multiply to 1e-7 or less never meet. Along each segment the parameter is 0 at the
///             start and 1 at the end, and may run from -1e-7 to 1 + 2e-7, both inclusive. The range is not
///             symmetric; it stays so, to keep results comparable between versions.
/// Aliasing    out may be an end of s1 or of s2.
/// Exactness   Computed from differences of coordinates, so that large coordinates do no harm:
///             den = dy*ex - dx*ey with d along s1 and e along s2, t = (wy*ex - wx*ey) * (1 / den) with w from
///             the start of s1 to that of s2, then t*d plus the start of s1; rounded at each operation.
PLCALC_API bool PlFunz_intersect_ls(const PL_LINE_2D_record* s1, const PL_LINE_2D_record* s2,
                                    PL_PNT2D_record* out) noexcept;

// ----------------------------------------------------------------------------- distance and collinearity

/// Signed distance of a point from the unlimited line through a segment, also beyond its ends.
///
/// @param[in] p    the point, caller's unit; may be an end of seg
/// @param[in] seg  the segment, caller's unit; its direction matters only for a vertical line through the
///                 origin and for a very short segment (see Tolerance)
/// @return negative on the origin's side of the line, positive on the other one. For a line through the origin
///         positive above it, and to the left of the way from start to end when the line is vertical. For a
///         segment without length the distance from its start, never negative.
///
/// Tolerance   A segment has no length when both differences are within PL_EPS. The line, as PlFunz_lineeq_ile
///             gives it, runs through the origin when |c| <= PL_EPS, and is vertical when |dx| <= PL_EPS. A
///             segment that has length but is not longer than 3.16e-4 has no normal form: the result is then
///             the raw value a*p.x + b*p.y + c, an area, positive to the left of the way from start to end.
/// Exactness   p.y*b + p.x*a + c with the normal form of PlFunz_normal_ile, rounded at each operation. From a
///             segment of 100 it was up to 5e-6 off at 5e5 East, 5e6 North, and up to 2e-12 at a local origin:
///             shift to one.
PLCALC_API double PlFunz_distpntln_ls(const PL_PNT2D_record* p, const PL_LINE_2D_record* seg) noexcept;

/// Whether three points lie on one line, judged by the directions from the first to the other two.
///
/// @param[in] p0      the point looked from
/// @param[in] p1, p2  the points looked at, on the same or on opposite sides
/// @return true when the directions agree within (|direction of p2| + 1) * PL_EPS radians; opposite directions
///         count as equal
///
/// Tolerance   The margin is an angle: the farther the points are from p0, the farther they may be off the
///             line. It is taken from the direction of p2, so that exchanging p1 and p2 may change a close
///             result.
/// Degenerate  A point equal to p0, or with a NaN coordinate, has direction 0. Opposite directions are made
///             equal by folding at half a turn: a direction just below +x becomes nearly half a turn, one just
///             above it nearly 0, and the two do not count as equal, unless the first is within 1e-7 radians
///             of +x.
/// Exactness   PlFunz_arcangle in radians. From a direction of 3.1415926535892 or more, or less by at most its
///             margin, 3.1415926535892 is subtracted.
PLCALC_API bool PlFunz_pnts_in_line(const PL_PNT2D_record* p0, const PL_PNT2D_record* p1,
                                    const PL_PNT2D_record* p2) noexcept;
