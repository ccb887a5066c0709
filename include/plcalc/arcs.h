#pragma once

/// @file
/// Arcs and polygons: the direction angle in three units, arcs through three points, end points, distance,
/// bounding rectangle, arc-segment intersection, and point in polygon.
///
/// Every function is pure or writes only through the pointers that it is given, allocates nothing and may
/// be called from any thread. Coordinates are in the caller's unit, x East, y North; angles run
/// anticlockwise from +x. Comparisons of angles carry the margin (|right-hand side| + 1) * PL_EPS.

#include "plcalc/export.h"
#include "plcalc/kernel.h"

/// Direction of one point seen from another.
///
/// @param[in] unit  0 pseudo-angle, [0, 4); 1 degrees, [0, 360); 2 radians, [0, 2 pi); anything else gives
///                  0.0. Not the numbers of PL_AngleMeasType, nor those of PlFunz_pntangledist.
/// @param[in] from  the point looked from, caller's unit
/// @param[in] to    the point looked at, caller's unit; may be the record of from
/// @return the direction; 0.0 for points equal within PL_EPS on each axis; outside the ranges above in the
///         cases below, all of them directions just below +x
///
/// Tolerance   PL_EPS, absolute, on both differences: from -PL_EPS up they do not count as negative. A
///             pseudo-angle within 2e-7 of 1, 3e-7 of 2 or 4e-7 of 3 is exactly that quarter turn in degrees
///             and radians.
/// Degenerate  A direction less than 5e-7 radians below +x comes out negative in degrees and radians, and
///             twice as large as it is: down to -5.73e-5 degrees, -1e-6 radians. Within 1e-7 it is 0.0. In
///             pseudo-angles it may round up to exactly 4.0. With a y difference from -PL_EPS up to 0 the
///             pseudo-angle is negative: a hair for usual lengths, -0.414 where the x difference falls to
///             PL_EPS; degrees and radians are 0.0 then. A NaN, and a quotient of infinities, gives 0.0 in
///             degrees and radians, and in pseudo-angles 0.0 or NaN.
/// Exactness   The quadrant plus (sqrt(m*m + 1) - 1) / m with m the tangent in the quadrant, 0.0 in its place
///             for |m| <= PL_EPS; rounded at each operation. Degrees and radians add one arctangent of the
///             platform: 2 * atan(fraction), times 57.29577951308233 for degrees, plus the quarter turns.
/// Source      Half-angle formula, tan(phi / 2) from m = tan(phi).
PLCALC_API double PlFunz_arcangle(int unit, const PL_PNT2D_record* from, const PL_PNT2D_record* to) noexcept;

/// Arc through three points.
///
/// @param[in]  p1, p3  the arc's ends, caller's unit
/// @param[in]  p2      a point between them
/// @param[out] arc     centre, radius, angles in radians as PlFunz_arcangle gives them: within one turn, but
///                     for -1e-6 just below +x. The sweep is always anticlockwise: when p1-p2-p3 runs
///                     clockwise, start_angle belongs to p3.
/// @return 0 done; 5 the points lie on one line or coincide, arc is untouched: test it
///
/// Tolerance   PL_EPS, absolute, on the cross product (p2 - p1) x (p3 - p1), an area, inclusive.
/// Degenerate  A NaN coordinate is on no line: 0, and NaN in the record.
/// Aliasing    The points may be the centre of arc: it is written last.
/// Exactness   From differences to p1: u = (A*by - B*ay)*k, (B*ax - A*bx)*k with A, B the squared lengths of
///             a = p2 - p1 and b = p3 - p1 and k = 1 / (2 * cross product); the radius is the length of u,
///             the centre p1 + u. Rounded at each operation.
/// Source      Circumcentre as the meeting point of the perpendicular bisectors.
PLCALC_API int PlFunz_arc_3pnts(const PL_PNT2D_record* p1, const PL_PNT2D_record* p2,
                                const PL_PNT2D_record* p3, ARC_2D_record* arc) noexcept;

/// The two ends of an arc.
///
/// @param[in]  arc          the arc; an unknown angle_type is read as radians
/// @param[out] start_point  point at start_angle, caller's unit
/// @param[out] end_point    point at end_angle, caller's unit
///
/// Aliasing    Neither may be the centre of arc, nor both one record.
/// Exactness   That of PlFunz_pntangledist, snapping and surprises near pseudo-angles 1, 2 and 3 included.
PLCALC_API void PlFunz_arc_end_pnts(const ARC_2D_record* arc, PL_PNT2D_record* start_point,
                                    PL_PNT2D_record* end_point) noexcept;

/// Shortest distance of a point from an arc.
///
/// @param[in] arc  the arc; an unknown angle_type is read as radians
/// @param[in] p    the point, caller's unit; may be the centre of arc
/// @return |distance from the centre - radius| when the direction of p lies within the sweep, the margin
///         included; otherwise the distance from the nearer end, and on a tie from the end at end_angle
///
/// Tolerance   (|bound| + 1) * PL_EPS on either bound of the sweep, in the arc's own unit, and from the
///             distance to the end at end_angle for the tie.
/// Degenerate  A point on the centre has direction 0. Equal angles are a sweep of one direction here, not the
///             full circle; store the circle as 0 to a full turn.
/// Exactness   That of PlFunz_distance and one subtraction; the direction is PlFunz_arcangle's, the ends are
///             PlFunz_arc_end_pnts'.
PLCALC_API double PlFunz_distpntarc(const ARC_2D_record* arc, const PL_PNT2D_record* p) noexcept;

/// Bounding rectangle of an arc, from quadrants alone.
///
/// @param[in]  arc                 the arc; only centre and radius are read
/// @param[in]  start_pnt, end_pnt  its ends, as PlFunz_arc_end_pnts gives them
/// @param[out] rect                the rectangle, caller's unit; ordered when the radius is not negative
///
/// Tolerance   A component from -PL_EPS up counts as positive for the quadrant; (|v| + 1) * PL_EPS in the
///             comparison of the ends, of which the one at end_angle wins a near-tie.
/// Degenerate  Ends that coincide give the rectangle of the full circle. An end on the centre lies in the
///             first quadrant.
/// Aliasing    The ends may be one record, and the centre of arc.
/// Exactness   Coordinates of the ends as they are; centre - radius and centre + radius, rounded once.
PLCALC_API void PlFunz_arc_rect(const ARC_2D_record* arc, const PL_PNT2D_record* start_pnt,
                                const PL_PNT2D_record* end_pnt, PL_RECT_2D_record* rect) noexcept;

/// Where a segment meets an arc.
///
/// @param[in]  arc     the arc; an unknown angle_type is read as degrees, here and only here. The box of the
///                     arc, in which a single point must lie, still comes from its ends in radians then.
/// @param[in]  seg     the segment, caller's unit
/// @param[out] pnt1    first point along the segment; untouched when there is none
/// @param[out] pnt2    second point along the segment; untouched unless there are two
/// @param[out] n_pnts  0, 1 or 2; always written
/// @return true when there is at least one
///
/// Tolerance   PL_EPS on radius squared minus distance squared, an area, decides for a touch; the boxes and
///             the sweep are widened by (|limit| + 1) * PL_EPS.
/// Degenerate  A segment without length meets nothing. One that has length but is not longer than 3.16e-4 is
///             measured with its own length as the unit: it may miss, and the point that it reports need not
///             lie on the circle. A full circle, start and end equal within the margin, that the segment
///             crosses twice reports one point only: the farther along the segment.
/// Aliasing    pnt1 and pnt2 may be the ends of seg or the centre of arc, but not one record.
/// Exactness   Origin + (t -+ s) * d, with d the segment's unit direction, t the foot of the centre along it
///             and s the root of radius squared minus distance squared; rounded at each operation. Radians
///             become degrees by 57.2957795131 for the sweep.
PLCALC_API bool PlFunz_intarcline_ls(const ARC_2D_record* arc, const PL_LINE_2D_record* seg,
                                     PL_PNT2D_record* pnt1, PL_PNT2D_record* pnt2, int* n_pnts) noexcept;

/// Whether a point lies in a simple polygon: crossings of the ray from the point to the East are counted.
///
/// @param[in]     pt              the point, caller's unit
/// @param[in]     vertices        the ring, the first vertex not repeated
/// @param[in]     count           number of vertices; fewer than 3 gives false
/// @param[in,out] rightmostIndex  index of the vertex of largest x. 0 or a value outside the array means
///                                unknown: it is searched and written. Any other is taken as it is, right
///                                or not. Pass the same variable again and again for many points in one
///                                polygon, and 0 with another polygon.
/// @return true inside; a point on the boundary comes out as the counting has it
///
/// Tolerance   (|reference| + 1) * PL_EPS in every comparison; runs of vertices on one horizontal or
///             vertical line count as one side. Where a side is crossed is for PlFunz_intersect_ls to say,
///             with its margins: 1e-7 of the ray, which ends 1000 East of the rightmost vertex.
/// Degenerate  All vertices on one x or on one y: false. The function ends for every input: after one round of
///             the ring as a rule. Where runs of vertices that creep by less than the margin hide vertex 0, it
///             goes on for as many rounds as it takes, and its own count stands. Only a count that comes back
///             to where it has been, and would go round for ever, is replaced by the textbook one: a side owns
///             its lower end and not its upper one, without tolerance.
/// Aliasing    pt may be one of the vertices; rightmostIndex must not be the variable of count.
/// Exactness   Comparisons of coordinates as they are, and PlFunz_intersect_ls.
/// Source      Crossing number (even-odd rule).
///
/// Move the ring and the point to a local origin first: subtract one vertex from all of them. The margins grow
/// with the coordinates. At 500,000 East and 5,000,000 North a point within 0.5 of level with a corner may come
/// out wrong however far it is from the boundary: 13,101 of 2,000,000 points in rings of 12 vertices, 100 across.
/// At a local origin 5 did, none farther than 0.0001 from the boundary.
///
/// A ring of n vertices has at most about 3 n places for a count to be in. The longest counts known go 4,000 rounds, on
/// rings of 61,000 vertices no more than a few margins high, in a tenth of a second on a desktop.
///
/// Not to be relied on in three situations: vertex 0 inside a horizontal or vertical run of vertices; the
/// ray through vertex 0 where the boundary crosses it; a boundary that crosses the ray along a horizontal
/// side lying on it. Begin the ring at a corner that no tested point is level with, and the first two
/// cannot arise; a point level with a horizontal side is better tested a little above or below it.
PLCALC_API bool PlFunz_inpolygon(const PL_PNT2D_record* pt, const PL_PNT2D_record* vertices, const int* count,
                                 int* rightmostIndex) noexcept;
