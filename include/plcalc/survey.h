#pragma once

/// @file
/// Surveying computations on explicit coordinates: intersections, set-out at a distance, right-angle
/// offsets (squadro), polar points in gons, heights, boxes, and area and perimeter of a polygon.
///
/// Nothing keeps global state: calls on distinct data may run in parallel. Coordinates are in the caller's
/// unit, x East, y North. Angles are in gons, 400 to the circle. Only the two area functions may allocate
/// memory.

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
/// Exactness   Each widened limit is rounded once, then compared.
PLCALC_API bool TrovatoValNeiLimiti(double val, double lim1, double lim2) noexcept;

/// Whether a point lies in the box of a segment, widened by 0.001 on every side.
///
/// @param[in] pt    the point; only the box is tested, so it should be known to lie on the segment's line
/// @param[in] a, b  the segment's ends, caller's unit
/// @return true when both coordinates pass TrovatoValNeiLimiti; false with a NaN
///
/// Tolerance   0.001 on either axis.
/// Aliasing    All three may be one record.
/// Exactness   That of TrovatoValNeiLimiti.
PLCALC_API bool TrovatoPuntoInSegmento(const PL_PNT2D_record& pt, const PL_PNT2D_record& a,
                                       const PL_PNT2D_record& b) noexcept;

/// Meeting point of two implicit lines: PlFunz_intersect_ile by reference.
///
/// @param[in]  l1, l2  the lines
/// @param[out] out     the point, caller's unit; untouched when false
/// @return false for parallel lines, and for lines whose coefficients agree within PL_EPS
///
/// Tolerance   That of PlFunz_intersect_ile. Degenerate input and aliasing are treated alike.
/// Exactness   The bits of PlFunz_intersect_ile.
PLCALC_API bool CalcoloIntersezioneRette(const PL_IMP_LINE_2D_record& l1, const PL_IMP_LINE_2D_record& l2,
                                         PL_PNT2D_record& out) noexcept;

/// Meeting point of the line P1-P2 with the line P3-P4, computed from implicit lines with their tolerances.
///
/// @param[in]  x1, y1, x2, y2  two points of the first line, caller's unit
/// @param[in]  x3, y3, x4, y4  two points of the second line, caller's unit
/// @param[out] xOut, yOut      the point; for parallel lines x1 and y1, so they are always written
/// @return false for parallel lines
///
/// Tolerance   That of PlFunz_intersect_ile, on a determinant that grows with the lengths of P1-P2 and P3-P4.
/// Degenerate  Two points that coincide within PL_EPS give a line that meets nothing. A NaN coordinate gives
///             true, and NaN.
/// Aliasing    xOut and yOut may be any of the variables handed in, but must be two variables.
/// Exactness   That of PlFunz_lineeq_ile and PlFunz_intersect_ile. Far from the origin they lose digits: shift to
///             a local origin, or call CalcoloIntersezioneRetteExt, which keeps them.
PLCALC_API bool CalcoloIntersezioneRette(double x1, double y1, double x2, double y2, double x3, double y3,
                                         double x4, double y4, double& xOut, double& yOut) noexcept;

/// Meeting point of the line P1-P2 with the line P3-P4 in closed form, without any tolerance.
///
/// @param[in]  x1, y1, x2, y2  two points of the first line, caller's unit
/// @param[in]  x3, y3, x4, y4  two points of the second line, caller's unit
/// @param[out] xOut, yOut      the point; for lines that coincide P2, computed as P1 + (P2 - P1), which may
///                             differ from P2 in the last bit; untouched when false
/// @return false only for parallel lines that are distinct
///
/// Tolerance   None: lines are parallel when the determinant is exactly 0.0, and coincide when two products are
///             equal.
/// Degenerate  When P1 equals P2, the result is true, with P1. When P3 equals P4, the result is true, with P2,
///             if that point lies exactly on the first line, and false otherwise. A NaN coordinate gives true,
///             and NaN.
/// Aliasing    xOut and yOut may be any of the variables handed in, but must be two variables.
/// Exactness   With d1 = P2 - P1, d2 = P4 - P3 and e = P1 - P3: t = (e.y*d2.x - e.x*d2.y) /
///             (d2.y*d1.x - d2.x*d1.y), then t*d1 + P1; rounded at each operation.
/// Source      Cramer's rule.
PLCALC_API bool CalcoloIntersezioneRetteExt(double x1, double y1, double x2, double y2, double x3, double y3,
                                            double x4, double y4, double& xOut, double& yOut) noexcept;

/// The y, at a given x, of the unlimited line through two points.
///
/// @param[in] x1, y1, x2, y2  two points of the line, caller's unit
/// @param[in] x               abscissa, caller's unit; may lie outside the segment
/// @return the ordinate; 0.0 for a vertical line and for two equal points
///
/// Tolerance   PL_EPS, absolute, inclusive: on x2 - x1 for a vertical line, on both differences for equal
///             points.
/// Exactness   That of PlFunz_lineeq_ile and PlFunz_ordinate_ile.
PLCALC_API double CalcCoordYsuSegmento(double x1, double y1, double x2, double y2, double x) noexcept;

/// Whether a line meets a segment, within 0.001.
///
/// @param[in]  a, b  the segment's ends, caller's unit
/// @param[in]  line  the line
/// @param[out] out   the meeting point with the segment's unlimited line. Written even when it lies outside
///                   the segment and the result is false; untouched for parallel lines and for a segment
///                   without length.
/// @return true when the meeting point lies in the segment's box widened by 0.001; false with a NaN
///
/// Tolerance   0.001 on either axis for the box. PlFunz_intersect_ile decides what is parallel.
/// Aliasing    out must not be the record of a or b, which are read after it is written.
/// Exactness   That of PlFunz_intersect_ile, called with the segment's line first. It needs a local origin.
PLCALC_API bool IntersezLineaInSegmOK(const PL_PNT2D_record& a, const PL_PNT2D_record& b,
                                      const PL_IMP_LINE_2D_record& line, PL_PNT2D_record& out) noexcept;

/// Trims or extends two segments to their meeting point: the nearer end of each moves onto it.
///
/// @param[in,out] a1, b1  first segment, caller's unit; b1 moves on a tie
/// @param[in,out] a2, b2  second segment, caller's unit; b2 moves on a tie
/// @return false for parallel segments and for a segment without length; no point is changed then
///
/// Tolerance   That of PlFunz_intersect_ile. The squared distances of the ends are compared without tolerance.
/// Aliasing    The segments may share a record. The first segment is moved first, so that the second one sees a
///             shared end at its new place.
/// Exactness   That of PlFunz_lineeq_ile and PlFunz_intersect_ile, which need a local origin; both ends get the
///             same bits.
PLCALC_API bool CimaSegm(PL_PNT2D_record* a1, PL_PNT2D_record* b1, PL_PNT2D_record* a2,
                         PL_PNT2D_record* b2) noexcept;

// ------------------------------------------------------------------------ points at distance and offsets

/// Point at a signed distance from a point, parallel to a segment.
///
/// @param[in]  a, b  the segment's ends: only the direction from a to b counts; it is +x when they coincide
/// @param[in]  from  where to start, caller's unit; need not lie on the segment
/// @param[in]  dist  distance, caller's unit; a negative one leads back, in the direction from b to a
/// @param[out] out   the point; a coordinate of magnitude PL_EPS or less is exactly 0.0
///
/// Tolerance   A coordinate difference of a and b counts as zero up to PL_EPS.
/// Aliasing    out must not be the record of from, but may be that of a or b.
/// Exactness   That of PlFunz_arctan_deg and PlFunz_pntangledist in degrees: 5 along +y, set out from x = 100,
///             moves x by 1.5e-12.
PLCALC_API void CalcPtAtDistSuSegm(const PL_PNT2D_record* a, const PL_PNT2D_record* b,
                                   const PL_PNT2D_record* from, double dist, PL_PNT2D_record* out) noexcept;

/// Point at a signed distance from a point, parallel to an implicit line.
///
/// @param[in]  line  the line; its direction is (-b, a), which for a line from PlFunz_lineeq_ile leads from p2
///                   to p1; +x when a and b are zero within PL_EPS
/// @param[in]  from  where to start, caller's unit; need not lie on the line
/// @param[in]  dist  distance along that direction, caller's unit
/// @param[out] out   the point; a coordinate of magnitude PL_EPS or less is exactly 0.0
///
/// Tolerance   a and b count as zero up to PL_EPS each, so that a line with a short normal may lose its
///             direction.
/// Aliasing    out must not be the record of from.
/// Exactness   That of PlFunz_arctan_deg and PlFunz_pntangledist in degrees.
PLCALC_API void CalcPtAtDistSuLineaImp(const PL_IMP_LINE_2D_record* line, const PL_PNT2D_record* from,
                                       double dist, PL_PNT2D_record* out) noexcept;

/// Distance of two points, with a sign from the direction of a segment.
///
/// @param[in] a, b    the segment's ends: only the direction from a to b counts
/// @param[in] from    where the distance starts, caller's unit
/// @param[in] target  where it ends, caller's unit; its straight distance counts, also off the segment
/// @return positive when target lies ahead; negative when it lies behind, and on a tie: -0.0 for equal points
///
/// Tolerance   A coordinate difference of a and b counts as zero up to PL_EPS; when both do, the direction is
///             +x. The sign has none: the distance is set out both ways, and the squared distances from there
///             to target are compared.
/// Aliasing    All four may be one record.
/// Exactness   The magnitude is that of PlFunz_distance.
PLCALC_API double DistPtSuSegmDaPt(const PL_PNT2D_record* a, const PL_PNT2D_record* b,
                                   const PL_PNT2D_record* from, const PL_PNT2D_record* target) noexcept;

/// Signed distance of a point from the unlimited line a-b, with its foot.
///
/// @param[in]  a, b  the line's points, caller's unit
/// @param[in]  pt    the point, caller's unit
/// @param[out] foot  foot of the perpendicular. When a and b are not farther apart than 3.16e-4
///                   (dx*dx + dy*dy <= PL_EPS) it is untouched, and the distance is taken from what it held.
/// @return positive to the right of the way from a to b, negative to the left, -0.0 when pt is its own foot
///
/// A point behind a that CalcPtSquadro sets out again, with the abscissa of its foot, comes back on the other
/// side of the base: there CalcPtSquadro exchanges the sides and this function does not. With a = (10, 10) and b =
/// (20, 10) the point (0, 15) measures -10 and -5, which CalcPtSquadro sets out at (0, 5). Change the sign of
/// the ordinate where the abscissa is negative.
///
/// Tolerance   PL_EPS on dx*dx + dy*dy, an area.
/// Aliasing    foot must not be the record of pt, a or b, which are read after it is written.
/// Exactness   The foot is that of PlFunz_linepntperpend and PlFunz_intersect_ile, the magnitude that of
///             PlFunz_distance; the sign is found by setting out both ways, as in DistPtSuSegmDaPt. Foot and
///             distance need a local origin as those of PlFunz_distpntln_ls do.
PLCALC_API double DistSegmDaPt(const PL_PNT2D_record* a, const PL_PNT2D_record* b, const PL_PNT2D_record* pt,
                               PL_PNT2D_record* foot) noexcept;

/// Distance of a point from a line, and the direction from its foot to it.
///
/// @param[in]  line   the line
/// @param[in]  pt     the point, caller's unit
/// @param[out] dist   distance, caller's unit, never negative
/// @param[out] angle  direction from foot to point in gons, counted anticlockwise from +x (not a bearing from
///                    North): it tells on which side of the line the point lies. 0 for a point on the line.
///                    May round up to exactly 400.
///
/// Tolerance   A coordinate difference of foot and point counts as zero up to PL_EPS: at 1e-7 from the line the
///             angle is 0, at 1e-6 it may be 6 gon off.
/// Degenerate  When the line has no direction (a*a + b*b <= PL_EPS), the origin stands for the foot.
/// Aliasing    dist must not be a coordinate of pt, which is read again for the angle.
/// Exactness   The foot is that of PlFunz_linepntperpend and PlFunz_intersect_ile, dist that of
///             PlFunz_distance; angle is PlFunz_arctan_deg times 1.1111111111111112. It needs a local origin
///             as PlFunz_distpntln_ls does.
PLCALC_API void CalcDistPuntoDaRetta(const PL_IMP_LINE_2D_record* line, const PL_PNT2D_record* pt,
                                     double& dist, double& angle) noexcept;

/// Whether the perpendicular from a point falls on a segment.
///
/// @param[in]  a, b  the segment's ends, caller's unit
/// @param[in]  pt    the point, caller's unit
/// @param[out] out   the foot; also written when it falls outside the segment and the result is false
/// @return true when the foot lies on the segment, with the margin of PlFunz_intersect_ils
///
/// Tolerance   The foot may lie outside the segment's box by (|limit| + 1) * PL_EPS.
/// Degenerate  When the ends coincide within PL_EPS, the result is true and out is a, wherever the point is, as
///             long as all coordinates are finite. With a NaN or an infinity among them, and when the ends are
///             farther apart than that but not farther than 3.16e-4, it is false and out is untouched.
/// Aliasing    out may be the record of a, b or pt.
/// Exactness   That of PlFunz_lineeq_ile, PlFunz_linepntperpend and PlFunz_intersect_ils. It needs a local
///             origin.
PLCALC_API bool IntersPerpDaPtInSegm(const PL_PNT2D_record* a, const PL_PNT2D_record* b,
                                     const PL_PNT2D_record* pt, PL_PNT2D_record* out) noexcept;

/// Right-angle set-out (squadro) from a base line.
///
/// @param[in]  a, b  base line, caller's unit
/// @param[in]  absc  abscissa: distance from a towards b, caller's unit; negative goes behind a
/// @param[in]  ord   ordinate at right angles, caller's unit: for absc >= 0 positive to the right of the way
///                   from a to b, for absc < 0 positive to the left. The sides are exchanged behind a.
/// @param[out] out   the point. A coordinate of magnitude PL_EPS or less is exactly 0.0; so is one of the foot
///                   on the base line, from which the ordinate is set out.
///
/// DistSegmDaPt, which measures the ordinate, does not exchange the sides: a point behind a that is measured
/// there and set out here comes back on the other side of the base. With a = (10, 10) and b = (20, 10) the
/// point (0, 15) measures -10 and -5, which give (0, 5). Change the sign of the ordinate where the abscissa is
/// negative.
///
/// Tolerance   A coordinate difference of a and b counts as zero up to PL_EPS.
/// Degenerate  When a equals b, both are set out on one line: the abscissa along +x, the ordinate along -x for
///             absc >= 0 and along +x for absc < 0. From (0, 0), 4 and 3 give (1, 0), -4 and 3 give (-1, 0).
/// Aliasing    out may be the record of a or b.
/// Exactness   That of PlFunz_arctan_deg and PlFunz_pntangledist in degrees, used twice: from a to the foot,
///             and from the foot to the point.
PLCALC_API void CalcPtSquadro(const PL_PNT2D_record* a, const PL_PNT2D_record* b, double absc, double ord,
                              PL_PNT2D_record* out) noexcept;

/// Polar set-out from a station oriented on a reference point.
///
/// @param[in]  station  instrument station, caller's unit
/// @param[in]  ref      orientation point, caller's unit
/// @param[in]  angle    gons, clockwise from the direction of ref, as on the instrument's circle
/// @param[in]  dist     distance, caller's unit
/// @param[out] out      the point; not snapped to zero
///
/// Tolerance   A bearing within 1e-10 gon below a full turn counts as 0: LimiteAng0_400 decides that.
/// Degenerate  When ref equals station, angles count from North. An angle that is NaN or infinite gives NaN.
/// Aliasing    out may be the record of station or of ref.
/// Exactness   AngoloDaAsseRifer(dx, dy) + angle, rounded once, then LimiteAng0_400, CalcCoordEst and
///             CalcCoordNord, each as exact as it says, and one addition to the station's coordinates.
PLCALC_API void CalcPtAngDist(const PL_PNT2D_record* station, const PL_PNT2D_record* ref, double angle,
                              double dist, PL_PNT2D_record* out) noexcept;

// ---------------------------------------------------------------------- heights, bounds, tolerance tests

/// Height on a segment by linear interpolation.
///
/// @param[in]  x1, y1, z1  first end, caller's unit
/// @param[in]  x2, y2, z2  second end, caller's unit
/// @param[in]  x, y        where the height is wanted. The run is the straight distance from the first end to
///                         here: for a point off the segment's line, or behind the first end, that is not
///                         the distance along the line
/// @param[out] z           the height
///
/// Tolerance   None.
/// Degenerate  When the ends coincide in plan, z is infinite, or NaN where the heights agree or the run is
///             zero. Nothing reports that.
/// Aliasing    z may be any of the variables handed in.
/// Exactness   ((z2 - z1) / length) * run + z1, rounded at each operation: at the second end the last bits may
///             differ from z2. Length and run are those of PlFunz_distance.
PLCALC_API void CalcoloQuotaSuSegmento(double x1, double y1, double z1, double x2, double y2, double z2,
                                       double x, double y, double& z) noexcept;

/// Box of two corners given in any order.
///
/// @param[in]  x1, y1, z1, x2, y2, z2  the corners, caller's unit
/// @param[out] box                     the box, each axis in order; an axis with a NaN is stored as given
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
/// Tolerance   The caller's, inclusive. With 0 the coordinates must be equal; -0.0 equals 0.0.
/// Aliasing    p1 and p2 may be one record, and tol may be a coordinate of theirs.
/// Exactness   Each difference is rounded once, then compared.
PLCALC_API bool StessoPunto(const PL_PNT2D_record& p1, const PL_PNT2D_record& p2, const double& tol) noexcept;

// ---------------------------------------------------------------------------------- area and perimeter

/// Signed area of a closed polygon.
///
/// @param[in] pts  the ring; the side from the last point to the first is part of it. Repeating the first
///                 vertex at the end changes nothing but the last bits. Heights are ignored.
/// @return positive anticlockwise, negative clockwise, unit squared; for a figure eight the sum of its signed
///         lobes; 0 for fewer than three finite points
///
/// Degenerate  Rings of more than 64 points take 16 bytes per point from the heap: std::bad_alloc may be
///             thrown.
/// Exactness   Sum in index order of ((x before - x after) * y) * 0.5, rounded at each operation, without a
///             shift of the origin: at UTM coordinates (5e5 East, 5e6 North) a ring 1000 across comes out up to
///             1.5e-6 square units off. A local origin mends that.
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
/// @return caller's unit; for two points twice their distance, there and back; 0 for one finite point or none
///
/// Degenerate  Heights are ignored. Never throws.
/// Exactness   sqrt(dy*dy + dx*dx) of each side, added up in index order, the closing side last; rounded at
///             each operation.
PLCALC_API double PeriCalcolato(const CPoint3dVector& pts);
