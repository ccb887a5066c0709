#pragma once

/// @file
/// Surveying computations on explicit coordinates: intersections, set-out at a distance, right-angle
/// offsets (squadro), polar points in gons, heights, boxes, and area and perimeter of a polygon.
///
/// No global state; calls on distinct data may run in parallel. Coordinates are in the caller's unit, x East,
/// y North. Angles exchanged with the caller are in gons, 400 to the circle. Only the two area functions may
/// allocate.

#include "plcalc/export.h"
#include "plcalc/kernel.h"
#include "plutil/plutil.h"

// --------------------------------------------------------------------------- intersections and ranges

/// Whether a value lies between two limits, widened by 0.001.
///
/// @param[in] val         the value, caller's unit
/// @param[in] lim1, lim2  the limits in either order
/// @return true within [smaller - 0.001, larger + 0.001], both inclusive; false for NaN
///
/// Tolerance   0.001 in the caller's unit, a millimetre with metres, whatever the size of the numbers.
/// Exactness   Each limit is rounded once, then compared.
PLCALC_API bool TrovatoValNeiLimiti(double val, double lim1, double lim2) noexcept;

/// Whether a point lies in the box of a segment, widened by 0.001 on every side.
///
/// @param[in] pt    the point, known to lie on the segment's line: only the box is tested
/// @param[in] a, b  the segment's ends, caller's unit
/// @return true when both coordinates pass TrovatoValNeiLimiti; false with a NaN
///
/// Tolerance   0.001 on either axis.
/// Aliasing    Any of the three may be one record.
/// Exactness   That of TrovatoValNeiLimiti.
PLCALC_API bool TrovatoPuntoInSegmento(const PL_PNT2D_record& pt, const PL_PNT2D_record& a,
                                       const PL_PNT2D_record& b) noexcept;

/// Meeting point of two implicit lines: PlFunz_intersect_ile by reference.
///
/// @param[in]  l1, l2  the lines
/// @param[out] out     the point, caller's unit; untouched when false
/// @return false for parallel lines, and for lines whose coefficients agree within PL_EPS
///
/// Tolerance   That of PlFunz_intersect_ile, as are degenerate input and aliasing.
/// Exactness   That of PlFunz_intersect_ile: the same bits.
PLCALC_API bool CalcoloIntersezioneRette(const PL_IMP_LINE_2D_record& l1, const PL_IMP_LINE_2D_record& l2,
                                         PL_PNT2D_record& out) noexcept;

/// Meeting point of the line P1-P2 with the line P3-P4, through implicit lines and their tolerances.
///
/// @param[in]  x1, y1, x2, y2  two points of the first line, caller's unit
/// @param[in]  x3, y3, x4, y4  two points of the second line, caller's unit
/// @param[out] xOut, yOut      the point; on failure x1 and y1, not left alone
/// @return false for parallel lines
///
/// Tolerance   That of PlFunz_intersect_ile: on a determinant that grows with both lengths.
/// Degenerate  Two points that coincide within PL_EPS give a line that meets nothing. A NaN is not parallel to
///             anything: true, and NaN.
/// Aliasing    xOut and yOut may be any of the variables handed in, but not one variable.
/// Exactness   That of PlFunz_lineeq_ile and PlFunz_intersect_ile, which far from the origin lose digits that
///             CalcoloIntersezioneRetteExt keeps.
PLCALC_API bool CalcoloIntersezioneRette(double x1, double y1, double x2, double y2, double x3, double y3,
                                         double x4, double y4, double& xOut, double& yOut) noexcept;

/// Meeting point of the line P1-P2 with the line P3-P4 in closed form, without any tolerance.
///
/// @param[in]  x1, y1, x2, y2  two points of the first line, caller's unit
/// @param[in]  x3, y3, x4, y4  two points of the second line, caller's unit
/// @param[out] xOut, yOut      the point; for lines that coincide P2, as P1 + (P2 - P1), which may round to
///                             its neighbour; untouched when false
/// @return false only for parallel lines that are distinct
///
/// Tolerance   None: parallel means a determinant of exactly 0.0, and coincident that two products are equal.
/// Degenerate  P1 equal to P2 coincides with every line: true, and P1. P3 equal to P4 is parallel to every
///             line: true, and P2, when it lies on the first one exactly. A NaN is not parallel to anything:
///             true, and NaN.
/// Aliasing    xOut and yOut may be any of the variables handed in, but not one variable.
/// Exactness   With d1 = P2 - P1, d2 = P4 - P3 and e = P1 - P3: t = (e.y*d2.x - e.x*d2.y) /
///             (d2.y*d1.x - d2.x*d1.y), then t*d1 + P1; rounded at each operation.
/// Source      Cramer's rule.
PLCALC_API bool CalcoloIntersezioneRetteExt(double x1, double y1, double x2, double y2, double x3, double y3,
                                            double x4, double y4, double& xOut, double& yOut) noexcept;

/// y at a given x of the unlimited line through two points.
///
/// @param[in] x1, y1, x2, y2  two points of the line, caller's unit
/// @param[in] x               abscissa, caller's unit; may lie outside the segment
/// @return the ordinate; 0.0 for a vertical line and for two equal points
///
/// Tolerance   PL_EPS, absolute, inclusive, on x2 - x1 for vertical, and with y2 - y1 for equal.
/// Exactness   That of PlFunz_lineeq_ile and PlFunz_ordinate_ile.
PLCALC_API double CalcCoordYsuSegmento(double x1, double y1, double x2, double y2, double x) noexcept;

/// Whether a line cuts a segment, to 0.001.
///
/// @param[in]  a, b  the segment's ends, caller's unit
/// @param[in]  line  the line
/// @param[out] out   the meeting point with the segment's unlimited line. Written even when it lies outside
///                   the segment and the result is false; untouched for parallel lines and for a segment
///                   without length.
/// @return true when the meeting point lies in the segment's box widened by 0.001; false with a NaN
///
/// Tolerance   0.001 on either axis for the box; for parallel that of PlFunz_intersect_ile.
/// Aliasing    out must not be the record of a or b: the box is read after it is written.
/// Exactness   That of PlFunz_intersect_ile, the segment's line first.
PLCALC_API bool IntersezLineaInSegmOK(const PL_PNT2D_record& a, const PL_PNT2D_record& b,
                                      const PL_IMP_LINE_2D_record& line, PL_PNT2D_record& out) noexcept;

/// Trims or extends two segments to their meeting point: the nearer end of each moves onto it.
///
/// @param[in,out] a1, b1  first segment, caller's unit; b1 moves on a tie
/// @param[in,out] a2, b2  second segment, caller's unit; b2 moves on a tie
/// @return false for parallel segments, and for one without length; no point is changed then
///
/// Tolerance   That of PlFunz_intersect_ile. Which end is nearer is decided by squared distances, exactly.
/// Aliasing    The segments may share a record. The first segment is done first, and the second one then sees
///             its end where it has moved to.
/// Exactness   That of PlFunz_lineeq_ile and PlFunz_intersect_ile; both ends get the same bits.
PLCALC_API bool CimaSegm(PL_PNT2D_record* a1, PL_PNT2D_record* b1, PL_PNT2D_record* a2,
                         PL_PNT2D_record* b2) noexcept;

// ------------------------------------------------------------------------ points at distance and offsets

/// Point at a signed distance from a point, parallel to a segment.
///
/// @param[in]  a, b  the segment's ends: only the direction a to b counts; +x when they coincide
/// @param[in]  from  where to start, caller's unit; need not lie on the segment
/// @param[in]  dist  distance, caller's unit; negative goes back, towards a
/// @param[out] out   the point; a coordinate of magnitude PL_EPS or less is exactly 0.0
///
/// Tolerance   PL_EPS on each difference of a and b, up to which it counts as zero.
/// Aliasing    out must not be the record of from, but may be that of a or b.
/// Exactness   That of PlFunz_arctan_deg and PlFunz_pntangledist in degrees: a distance of 5 along +y comes
///             with an x offset of 1.5e-12.
PLCALC_API void CalcPtAtDistSuSegm(const PL_PNT2D_record* a, const PL_PNT2D_record* b,
                                   const PL_PNT2D_record* from, double dist, PL_PNT2D_record* out) noexcept;

/// Point at a signed distance from a point, parallel to an implicit line.
///
/// @param[in]  line  the line; its direction is (-b, a): against the order of the two points when it comes
///                   from PlFunz_lineeq_ile; +x when a and b are zero within PL_EPS
/// @param[in]  from  where to start, caller's unit; need not lie on the line
/// @param[in]  dist  distance along that direction, caller's unit
/// @param[out] out   the point; a coordinate of magnitude PL_EPS or less is exactly 0.0
///
/// Tolerance   PL_EPS on a and b each, up to which they count as zero: a line with a short normal may lose its
///             direction.
/// Aliasing    out must not be the record of from.
/// Exactness   That of PlFunz_arctan_deg and PlFunz_pntangledist in degrees.
PLCALC_API void CalcPtAtDistSuLineaImp(const PL_IMP_LINE_2D_record* line, const PL_PNT2D_record* from,
                                       double dist, PL_PNT2D_record* out) noexcept;

/// Distance of two points, signed by the direction of a segment.
///
/// @param[in] a, b    the segment's ends: only the direction a to b counts
/// @param[in] from    where the distance starts, caller's unit
/// @param[in] target  where it ends, caller's unit; its straight distance counts even off the segment
/// @return positive when target lies ahead; negative behind and on a tie, so -0.0 for equal points
///
/// Tolerance   PL_EPS on each difference of a and b, up to which it counts as zero; +x when both are. None for
///             the sign: the distance is set out both ways, and the squared distances to target are compared.
/// Aliasing    Any of the four may be one record.
/// Exactness   The magnitude is that of PlFunz_distance.
PLCALC_API double DistPtSuSegmDaPt(const PL_PNT2D_record* a, const PL_PNT2D_record* b,
                                   const PL_PNT2D_record* from, const PL_PNT2D_record* target) noexcept;

/// Signed distance of a point from the unlimited line a-b, with its foot.
///
/// @param[in]  a, b  the line's points, caller's unit
/// @param[in]  pt    the point, caller's unit
/// @param[out] foot  foot of the perpendicular. When a and b are not farther than 3.16e-4 apart
///                   (dx*dx + dy*dy <= PL_EPS) it is untouched, and the distance is taken from what it held.
/// @return positive to the right of the direction a to b, negative to the left, -0.0 when pt is its own foot
///
/// Tolerance   PL_EPS on dx*dx + dy*dy, an area.
/// Aliasing    foot must not be the record of pt, a or b: all three are read after it is written.
/// Exactness   The foot is that of PlFunz_linepntperpend and PlFunz_intersect_ile, the magnitude that of
///             PlFunz_distance; the sign is found by setting out both ways, as in DistPtSuSegmDaPt.
PLCALC_API double DistSegmDaPt(const PL_PNT2D_record* a, const PL_PNT2D_record* b, const PL_PNT2D_record* pt,
                               PL_PNT2D_record* foot) noexcept;

/// Distance of a point from a line, and the direction from its foot to it.
///
/// @param[in]  line   the line
/// @param[in]  pt     the point, caller's unit
/// @param[out] dist   distance, caller's unit, never negative
/// @param[out] angle  direction foot to point in gons, counted anticlockwise from +x (not a bearing from
///                    North): it tells the side. 0 for a point on the line. May round up to exactly 400.
///
/// Tolerance   PL_EPS on each difference of foot and point, up to which it counts as zero: at 1e-7 from the
///             line the angle is 0, at 1e-6 it may be 6 gon off.
/// Degenerate  A line without direction, a*a + b*b <= PL_EPS, has its foot at the origin.
/// Aliasing    dist must not be a coordinate of pt, which is read again for the angle.
/// Exactness   The foot is that of PlFunz_linepntperpend and PlFunz_intersect_ile, dist that of
///             PlFunz_distance; angle is PlFunz_arctan_deg times 1.1111111111111112.
PLCALC_API void CalcDistPuntoDaRetta(const PL_IMP_LINE_2D_record* line, const PL_PNT2D_record* pt,
                                     double& dist, double& angle) noexcept;

/// Whether the perpendicular from a point falls on a segment.
///
/// @param[in]  a, b  the segment's ends, caller's unit
/// @param[in]  pt    the point, caller's unit
/// @param[out] out   the foot; written also when it falls outside the segment and the result is false
/// @return true when the foot lies on the segment, with the margin of PlFunz_intersect_ils
///
/// Tolerance   The foot may lie outside the segment's box by (|limit| + 1) * PL_EPS.
/// Degenerate  Ends that coincide within PL_EPS: true with a, wherever the point is, as long as all coordinates
///             are finite; with a NaN or an infinity false, and out is untouched. Ends farther apart than that
///             but not farther than 3.16e-4: false, and out is untouched.
/// Aliasing    out may be the record of a, b or pt.
/// Exactness   That of PlFunz_lineeq_ile, PlFunz_linepntperpend and PlFunz_intersect_ils.
PLCALC_API bool IntersPerpDaPtInSegm(const PL_PNT2D_record* a, const PL_PNT2D_record* b,
                                     const PL_PNT2D_record* pt, PL_PNT2D_record* out) noexcept;

/// Right-angle set-out (squadro) from a base line.
///
/// @param[in]  a, b  base line, caller's unit
/// @param[in]  absc  abscissa: distance from a towards b, caller's unit; negative goes behind a
/// @param[in]  ord   ordinate at right angles, caller's unit: for absc >= 0 positive to the right of a to b,
///                   for absc < 0 positive to the left. The side swaps with the abscissa's sign.
/// @param[out] out   the point; a coordinate of magnitude PL_EPS or less is exactly 0.0, of the foot on the
///                   base line too
///
/// Tolerance   PL_EPS on each difference of a and b, up to which it counts as zero.
/// Degenerate  For a equal to b the abscissa is set out along +x and the ordinate on the same line: along -x
///             for absc >= 0, along +x for absc < 0. From (0, 0), 4 and 3 give (1, 0), -4 and 3 give (-1, 0).
/// Aliasing    out may be the record of a or b.
/// Exactness   That of PlFunz_arctan_deg and PlFunz_pntangledist in degrees, twice: to the foot, then aside.
PLCALC_API void CalcPtSquadro(const PL_PNT2D_record* a, const PL_PNT2D_record* b, double absc, double ord,
                              PL_PNT2D_record* out) noexcept;

/// Polar set-out from a station oriented on a reference point.
///
/// @param[in]  station  instrument station, caller's unit
/// @param[in]  ref      orientation point, caller's unit
/// @param[in]  angle    gons, clockwise from the direction station to ref, as on the instrument's circle
/// @param[in]  dist     distance, caller's unit
/// @param[out] out      the point; not snapped to zero
///
/// Tolerance   A bearing within 1e-10 gon below a full turn is 0, as LimiteAng0_400 has it.
/// Degenerate  ref equal to station orients to the North. An angle that is NaN or infinite gives NaN.
/// Aliasing    out may be the record of station or of ref.
/// Exactness   AngoloDaAsseRifer(dx, dy) + angle, rounded once, then LimiteAng0_400, CalcCoordEst and
///             CalcCoordNord, each with an exactness of its own, and one addition to the station.
PLCALC_API void CalcPtAngDist(const PL_PNT2D_record* station, const PL_PNT2D_record* ref, double angle,
                              double dist, PL_PNT2D_record* out) noexcept;

// ---------------------------------------------------------------------- heights, bounds, tolerance tests

/// Height on a segment by linear interpolation.
///
/// @param[in]  x1, y1, z1  first end, caller's unit
/// @param[in]  x2, y2, z2  second end, caller's unit
/// @param[in]  x, y        where; its straight distance from the first end is the run: off the segment's
///                         line, or behind the first end, that is not the projection
/// @param[out] z           the height
///
/// Tolerance   None.
/// Degenerate  Ends that coincide in plan divide by zero: infinite, or NaN where the heights agree or the run
///             is zero; not reported.
/// Aliasing    z may be any of the variables handed in.
/// Exactness   ((z2 - z1) / length) * run + z1, rounded at each operation: at the second end not always the
///             bits of z2. Length and run as PlFunz_distance.
PLCALC_API void CalcoloQuotaSuSegmento(double x1, double y1, double z1, double x2, double y2, double z2,
                                       double x, double y, double& z) noexcept;

/// Box of two corners given in any order.
///
/// @param[in]  x1, y1, z1, x2, y2, z2  the corners, caller's unit
/// @param[out] box                     each axis ordered; where one of the two is NaN, as they come
///
/// Aliasing    None: the coordinates are passed by value.
/// Exactness   The very bits of the arguments.
PLCALC_API void CalcoloBdry(double x1, double y1, double z1, double x2, double y2, double z2,
                            PL_RECT_3D_record* box) noexcept;

/// Whether a number is zero within a tolerance.
///
/// @param[in] value  the number
/// @param[in] tol    the tolerance, same unit, inclusive
/// @return |value| <= tol; false for NaN and for a negative tolerance
///
/// Tolerance   The caller's, inclusive.
/// Exactness   Exact.
PLCALC_API bool NumeroEstZero(double value, const double& tol) noexcept;

/// Whether two points are the same within a tolerance, on each axis separately.
///
/// @param[in] p1, p2  points, caller's unit
/// @param[in] tol     the tolerance, caller's unit, inclusive: a square, not a circle
/// @return true when both coordinate differences pass NumeroEstZero; false with a NaN
///
/// Tolerance   The caller's, inclusive; 0 asks for equal coordinates, and takes -0.0 for 0.0.
/// Aliasing    p1 and p2 may be one record, and tol a coordinate of theirs.
/// Exactness   Each difference rounded once, then compared.
PLCALC_API bool StessoPunto(const PL_PNT2D_record& p1, const PL_PNT2D_record& p2, const double& tol) noexcept;

// ---------------------------------------------------------------------------------- area and perimeter

/// Signed area of a closed polygon.
///
/// @param[in] pts  the ring, closed by itself; a repeated first vertex adds nothing but a rounding. Heights
///                 are ignored.
/// @return positive anticlockwise, negative clockwise, unit squared; a figure eight gives the sum of its
///         signed lobes; 0 for fewer than three points, if finite
///
/// Degenerate  Rings of more than 64 points take 8 bytes per point from the heap: std::bad_alloc may be
///             thrown.
/// Exactness   Sum in index order of ((x before - x after) * y) * 0.5, rounded at each operation; no shift
///             of the origin: at coordinates of 5e6 expect an error of 1e-6 square units for a ring 1000
///             across.
/// Source      Shoelace formula (Gauss).
PLCALC_API double AreaCalcolataSgn(const CPoint3dVector& pts);

/// Area of a closed polygon: the absolute value of AreaCalcolataSgn.
///
/// @param[in] pts  the ring, in either direction
/// @return never negative, unit squared
///
/// Degenerate  Throws what AreaCalcolataSgn throws.
/// Exactness   The bits of AreaCalcolataSgn but for the sign.
PLCALC_API double AreaCalcolata(const CPoint3dVector& pts);

/// Perimeter of a closed polygon.
///
/// @param[in] pts  the ring; the side from the last point to the first is part of it
/// @return caller's unit; for two points twice their distance, there and back; 0 for fewer
///
/// Degenerate  Heights are ignored. Never throws.
/// Exactness   sqrt(dy*dy + dx*dx) of each side, added in index order to the sum so far, the closing side
///             last; rounded at each operation.
PLCALC_API double PeriCalcolato(const CPoint3dVector& pts);
