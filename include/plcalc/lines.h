#pragma once

/// @file
/// Lines and segments: implicit lines, their normal form, parallels and perpendiculars, intersections,
/// point-line distance and collinearity.
///
/// Every function is pure or writes only through the pointers that it is given, allocates nothing and may
/// be called from any thread. Coordinates are in the caller's unit, x East, y North.

#include "plcalc/export.h"
#include "plcalc/kernel.h"

// --------------------------------------------------------------------------------------- implicit lines

/// Line through two points, with the direction p1 to p2.
///
/// @param[in]  p1, p2  points, caller's unit
/// @param[out] out     a = -dy, b = dx, c = p1.x*p2.y - p1.y*p2.x: (a, b) is as long as the segment, and
///                     a*x + b*y + c is positive left of the direction p1 to p2
/// @return 0 done; 2 the points coincide, out is untouched: test it
///
/// Tolerance   PL_EPS, absolute, inclusive, on each axis separately.
/// Degenerate  A NaN coordinate is never "coincide": 0, and it comes out in the coefficients.
/// Aliasing    None: points and line are records of different types.
/// Exactness   a and b are rounded once; c at both products and at their difference, so far from the origin it
///             carries the rounding of large products: shift to a local origin where it matters.
PLCALC_API int PlFunz_lineeq_ile(const PL_PNT2D_record* p1, const PL_PNT2D_record* p2,
                                 PL_IMP_LINE_2D_record* out) noexcept;

/// Brings a line to its normal form, in which a*x + b*y + c is a signed distance.
///
/// @param[in,out] line  a*a + b*b becomes 1 and c negative: the normal (a, b) points from the origin to the
///                      line. When |c| <= PL_EPS as it comes, the line counts as one through the origin: the
///                      signs turn only where b < -PL_EPS, so that b becomes positive; with b within PL_EPS
///                      of zero all stay as they came. c may be of either sign then.
/// @return 0 done; 3 the normal is too short, line is untouched
///
/// Tolerance   PL_EPS on a*a + b*b, not on its root: a normal up to 3.16e-4 long is refused. PL_EPS on c and b
///             as they come, before the division.
/// Degenerate  A NaN is never "too short": 0, and NaN coefficients.
/// Exactness   k = 1 / sqrt(a*a + b*b), then a*k, b*k, c*k; rounded at each operation.
/// Source      Hesse's normal form.
PLCALC_API int PlFunz_normal_ile(PL_IMP_LINE_2D_record* line) noexcept;

/// Perpendicular to a line through a point. Result last, unlike PlFunz_linepntparallel.
///
/// @param[in]  line  the given line
/// @param[in]  p     the point, caller's unit
/// @param[out] out   (a, b) = (line.b, -line.a), as long as the given one's
///
/// Aliasing    out may be the record of line.
/// Exactness   a and b exact; c = line.a*p.y - line.b*p.x, rounded at each operation.
PLCALC_API void PlFunz_linepntperpend(const PL_IMP_LINE_2D_record* line, const PL_PNT2D_record* p,
                                      PL_IMP_LINE_2D_record* out) noexcept;

/// Parallel to a line through a point. Result first, unlike PlFunz_linepntperpend.
///
/// @param[out] out   the given a and b, and the c that p needs
/// @param[in]  p     the point, caller's unit
/// @param[in]  line  the given line
///
/// Aliasing    out may be the record of line.
/// Exactness   a and b exact; c = -(p.y*line.b + p.x*line.a), rounded at each operation.
PLCALC_API void PlFunz_linepntparallel(PL_IMP_LINE_2D_record* out, const PL_PNT2D_record* p,
                                       const PL_IMP_LINE_2D_record* line) noexcept;

/// y of a line at a given x.
///
/// @param[in] line  the line
/// @param[in] x     abscissa, caller's unit
/// @return -(a*x + c) / b; 0.0 for a vertical line, which cannot be told from a true 0.0
///
/// Tolerance   Vertical is |b| <= PL_EPS, inclusive, on the coefficient as it is.
/// Exactness   Rounded at each of the three operations.
PLCALC_API double PlFunz_ordinate_ile(const PL_IMP_LINE_2D_record* line, double x) noexcept;

/// x of a line at a given y.
///
/// @param[in] line  the line
/// @param[in] y     ordinate, caller's unit
/// @return -(b*y + c) / a; 0.0 for a horizontal line, which cannot be told from a true 0.0
///
/// Tolerance   Horizontal is |a| <= PL_EPS, inclusive, on the coefficient as it is.
/// Exactness   Rounded at each of the three operations.
PLCALC_API double PlFunz_abscissa_ile(const PL_IMP_LINE_2D_record* line, double y) noexcept;

// ---------------------------------------------------------------------------------------- intersections

/// Meeting point of two unlimited lines.
///
/// @param[in]  l1, l2  the lines
/// @param[out] out     the point, caller's unit; untouched when false
/// @return false for parallel lines, and for lines whose three coefficients agree within PL_EPS
///
/// Tolerance   PL_EPS on the determinant of the coefficients as they are: its meaning grows with the length
///             of the segments that the lines were built from.
/// Degenerate  A line of zeros meets nothing. A NaN coefficient is not parallel to anything: true, and NaN.
/// Aliasing    l1 and l2 may be one record, which does not meet itself.
/// Exactness   det = l2.b*l1.a - l1.b*l2.a, inv = 1 / det, x = (l1.b*l2.c - l1.c*l2.b)*inv,
///             y = (l1.c*l2.a - l1.a*l2.c)*inv; rounded at each operation, not snapped to zero.
/// Source      Cramer's rule.
PLCALC_API bool PlFunz_intersect_ile(const PL_IMP_LINE_2D_record* l1, const PL_IMP_LINE_2D_record* l2,
                                     PL_PNT2D_record* out) noexcept;

/// Meeting point of an unlimited line and a segment.
///
/// @param[in]  line  the line
/// @param[in]  seg   the segment
/// @param[out] out   the point, caller's unit. When the line passes outside the segment the result is
///                   false, yet out holds the meeting point with the segment's line. Otherwise untouched
///                   when false.
/// @return true when the line meets the segment; a line parallel to it or along it never does
///
/// Tolerance   The point may lie outside the segment's box by (|limit| + 1) * PL_EPS. Parallel as
///             PlFunz_intersect_ile has it.
/// Degenerate  A segment without length is met only when its start satisfies the equation exactly; out is
///             then that start. A NaN gives false, with NaN in out.
/// Aliasing    out may be an end of seg.
/// Exactness   That of PlFunz_intersect_ile, the segment's line from PlFunz_lineeq_ile.
PLCALC_API bool PlFunz_intersect_ils(const PL_IMP_LINE_2D_record* line, const PL_LINE_2D_record* seg,
                                     PL_PNT2D_record* out) noexcept;

/// Meeting point of two segments.
///
/// @param[in]  s1, s2  the segments
/// @param[out] out     the point, computed along s1, caller's unit; a coordinate of magnitude PL_EPS or
///                     less is exactly 0.0; untouched when false
/// @return true when they meet; parallel, overlapping and degenerate segments never do; false with a NaN
///
/// Tolerance   Parallel is a cross product of the two segments within PL_EPS, an area, inclusive: segments
///             whose lengths multiply to 1e-7 or less never meet. On both the parameter, 0 at the start and 1
///             at the end, may run from -1e-7 to 1 + 2e-7, both inclusive. The range is lopsided, and filed
///             results depend on it.
/// Aliasing    out may be an end of s1 or of s2.
/// Exactness   All from differences of coordinates, so that the size of the coordinates does not matter:
///             den = dy*ex - dx*ey with d along s1 and e along s2, t = (wy*ex - wx*ey) * (1 / den) with w from
///             s1's start to s2's, then t*d + s1's start; rounded at each operation.
PLCALC_API bool PlFunz_intersect_ls(const PL_LINE_2D_record* s1, const PL_LINE_2D_record* s2,
                                    PL_PNT2D_record* out) noexcept;

// ----------------------------------------------------------------------------- distance and collinearity

/// Signed distance of a point from the unlimited line through a segment; there is no clamping to its ends.
///
/// @param[in] p    the point, caller's unit; may be an end of seg
/// @param[in] seg  the segment, caller's unit; its direction matters in the two cases named below only
/// @return positive on the far side of the line from the origin, negative on the origin's side; for a line
///         through the origin positive above it, and for a vertical one positive to the left of start to end.
///         For a segment without length: the distance from its start, never negative.
///
/// Tolerance   PL_EPS on each axis for "without length"; through the origin is |c| <= PL_EPS and vertical
///             |dx| <= PL_EPS, on the line as PlFunz_lineeq_ile gives it. A segment that has length but is not
///             longer than 3.16e-4 has no normal form: the result is then the raw value a*p.x + b*p.y + c, an
///             area whose sign is positive to the left of start to end.
/// Exactness   p.y*b + p.x*a + c of the normal form of PlFunz_normal_ile, rounded at each operation.
PLCALC_API double PlFunz_distpntln_ls(const PL_PNT2D_record* p, const PL_LINE_2D_record* seg) noexcept;

/// Whether three points lie on one line, judged by the directions from the first to the other two.
///
/// @param[in] p0      the point looked from
/// @param[in] p1, p2  the points looked at, on the same or on opposite sides
/// @return true when the directions, folded to half a turn, agree within (|direction of p2| + 1) * PL_EPS
///         radians
///
/// Tolerance   The margin is an angle: in distance it grows with the distance from p0. It is taken from p2,
///             so that p1 and p2 may not be exchanged in a close case.
/// Degenerate  A point equal to p0, or with a NaN coordinate, has direction 0. The fold ends at half a turn:
///             two directions on either side of +x, one just below a full turn, are not taken for equal,
///             unless that one is within 1e-7 radians of +x.
/// Exactness   PlFunz_arcangle in radians; directions from 3.1415926535892 less its margin up are lowered by
///             3.1415926535892.
PLCALC_API bool PlFunz_pnts_in_line(const PL_PNT2D_record* p0, const PL_PNT2D_record* p1,
                                    const PL_PNT2D_record* p2) noexcept;
