#pragma once

/// @file
/// Arcs and polygons: the direction angle in three units, arcs through three points, end points, distance,
/// bounding rectangle, arc-segment intersection, and point in polygon.
///
/// Every function either has no side effects or writes only through the pointers that it is given. None
/// allocates memory, and all may be called from any thread. Coordinates are in the caller's unit, x East,
/// y North; angles run anticlockwise from +x. Angles are compared with a margin of
/// (|right-hand side| + 1) * PL_EPS.

#include "plcalc/export.h"
#include "plcalc/kernel.h"

/// Direction of one point seen from another.
///
/// @param[in] unit  0 pseudo-angle, [0, 4); 1 degrees, [0, 360); 2 radians, [0, 2 pi); anything else gives
///                  0.0. These are not the numbers of PL_AngleMeasType, nor those of PlFunz_pntangledist.
/// @param[in] from  the point looked from, caller's unit
/// @param[in] to    the point looked at, caller's unit; may be the record of from
/// @return the direction; 0.0 for points equal within PL_EPS on each axis. Some directions just below +x come
///         out outside the ranges above (see Degenerate).
///
/// Tolerance   PL_EPS, absolute, on both differences: they count as negative only below -PL_EPS. A direction
///             whose pseudo-angle is within 2e-7 of 1, 3e-7 of 2 or 4e-7 of 3 is exactly that quarter turn in
///             degrees and radians.
/// Degenerate  A direction less than 5e-7 radians below +x comes out negative in degrees and radians, and
///             twice as large as it is: down to -5.73e-5 degrees or -1e-6 radians. Within 1e-7 of +x it is
///             0.0. In pseudo-angles it may round up to exactly 4.0. With a y difference from -PL_EPS up to 0
///             degrees and radians are 0.0, and the pseudo-angle is 0.0 or negative: 0.0 from an x difference
///             of 1 on, -1e-7 at 0.5, -0.414 as the x difference falls to PL_EPS. A NaN, and a quotient of
///             infinities, gives 0.0 in degrees and radians, and in pseudo-angles 0.0 or NaN.
/// Exactness   The quadrant plus (sqrt(m*m + 1) - 1) / m, where m is the tangent within the quadrant and the
///             fraction is 0.0 for |m| <= PL_EPS; rounded at each operation. Degrees and radians add one
///             arctangent of the platform: 2 * atan(fraction), times 57.29577951308233 for degrees, plus the
///             quarter turns.
/// Source      Half-angle formula, tan(phi / 2) from m = tan(phi).
PLCALC_API double PlFunz_arcangle(int unit, const PL_PNT2D_record* from, const PL_PNT2D_record* to) noexcept;

/// Arc through three points.
///
/// @param[in]  p1, p3  the arc's ends, caller's unit
/// @param[in]  p2      a point between them
/// @param[out] arc     centre, radius, and angles in radians as PlFunz_arcangle gives them: within one turn,
///                     except that a direction just below +x may be negative, down to -1e-6. The sweep is
///                     always anticlockwise: when p1-p2-p3 runs clockwise, start_angle belongs to p3.
/// @return 0 done; 5 the points lie on one line or coincide, and arc is untouched. Always test this code.
///
/// Tolerance   PL_EPS, absolute, on the cross product (p2 - p1) x (p3 - p1), an area, inclusive.
/// Degenerate  Points with a NaN coordinate are on no line: the code is 0, and the record holds NaN.
/// Aliasing    The points may be the centre of arc, which is written last.
/// Exactness   With a = p2 - p1, b = p3 - p1, their squared lengths A and B, and k = 1 / (2 * cross product):
///             u = ((A*by - B*ay)*k, (B*ax - A*bx)*k), the radius is the length of u, the centre p1 + u.
///             Rounded at each operation.
/// Source      Circumcentre as the meeting point of the perpendicular bisectors.
PLCALC_API int PlFunz_arc_3pnts(const PL_PNT2D_record* p1, const PL_PNT2D_record* p2,
                                const PL_PNT2D_record* p3, ARC_2D_record* arc) noexcept;

/// The two ends of an arc.
///
/// @param[in]  arc          the arc; an unknown angle_type is read as radians
/// @param[out] start_point  point at start_angle, caller's unit
/// @param[out] end_point    point at end_angle, caller's unit
///
/// Aliasing    Neither may be the centre of arc, and they must be two records.
/// Exactness   That of PlFunz_pntangledist, with its snapping to zero and its results a quarter turn off near
///             the pseudo-angles 1, 2 and 3.
PLCALC_API void PlFunz_arc_end_pnts(const ARC_2D_record* arc, PL_PNT2D_record* start_point,
                                    PL_PNT2D_record* end_point) noexcept;

/// Shortest distance of a point from an arc.
///
/// @param[in] arc  the arc; an unknown angle_type is read as radians
/// @param[in] p    the point, caller's unit; may be the centre of arc
/// @return |distance from the centre - radius| when the direction of p lies within the sweep and its margin;
///         otherwise the distance from the nearer end, and on a tie from the end at end_angle
///
/// Tolerance   (|bound| + 1) * PL_EPS at either bound of the sweep, in the arc's own unit. The two ends tie
///             when their distances agree within (|distance to the end at end_angle| + 1) * PL_EPS.
/// Degenerate  A point on the centre has direction 0. An arc whose two angles are equal covers one direction
///             here, not the full circle: store the circle as 0 to a full turn.
/// Exactness   That of PlFunz_distance and one subtraction. The direction comes from PlFunz_arcangle, the ends
///             from PlFunz_arc_end_pnts.
PLCALC_API double PlFunz_distpntarc(const ARC_2D_record* arc, const PL_PNT2D_record* p) noexcept;

/// Bounding rectangle of an arc, found from the quadrants of its ends.
///
/// @param[in]  arc                 the arc; only centre and radius are read
/// @param[in]  start_pnt, end_pnt  its ends, as PlFunz_arc_end_pnts gives them
/// @param[out] rect                the rectangle, caller's unit. With a radius that is not negative its sides
///                                 are in order within the margin: a minimum may exceed its maximum by
///                                 (|v| + 1) * PL_EPS at most.
///
/// Tolerance   For the quadrant a component counts as negative only below -PL_EPS. The ends are compared with
///             a margin of (|v| + 1) * PL_EPS, and within it the one at end_angle is taken.
/// Degenerate  Ends that coincide give the rectangle of the full circle. An end on the centre lies in the
///             first quadrant. A flat arc at an axis direction may come out with two sides exchanged: centre
///             (0, -1), radius 0.99999995, 89.999 to 90.001 degrees gives ymin 0 and ymax -5e-8.
/// Aliasing    The ends may be one record, and the centre of arc.
/// Exactness   Coordinates of the ends as handed in; centre - radius and centre + radius, rounded once.
PLCALC_API void PlFunz_arc_rect(const ARC_2D_record* arc, const PL_PNT2D_record* start_pnt,
                                const PL_PNT2D_record* end_pnt, PL_RECT_2D_record* rect) noexcept;

/// Where a segment meets an arc.
///
/// @param[in]  arc     the arc; an unknown angle_type is read as degrees, in this function only. The box of the
///                     arc, in which a single point must lie, comes from its ends in radians even then.
/// @param[in]  seg     the segment, caller's unit
/// @param[out] pnt1    first point along the segment; untouched when there is none
/// @param[out] pnt2    second point along the segment; untouched unless there are two
/// @param[out] n_pnts  0, 1 or 2; always written
/// @return true when there is at least one
///
/// Tolerance   The segment touches the circle when radius squared minus distance squared, an area, is within
///             PL_EPS. The boxes and the sweep are widened by (|limit| + 1) * PL_EPS.
/// Degenerate  A segment without length meets nothing. One that has length but is not longer than 3.16e-4 is
///             measured with its own length as the unit: it may miss, and the point reported need not lie on
///             the circle. An arc whose two angles are equal within the margin is the full circle; when the
///             segment crosses that twice, only the point farther along the segment is reported.
/// Aliasing    pnt1 and pnt2 may be the ends of seg or the centre of arc, but must be two records.
/// Exactness   Start of the segment + (t -+ s) * d, with d the segment's unit direction, t the foot of the
///             centre along it and s the root of radius squared minus distance squared; rounded at each
///             operation. For the sweep radians become degrees by 57.2957795131.
PLCALC_API bool PlFunz_intarcline_ls(const ARC_2D_record* arc, const PL_LINE_2D_record* seg,
                                     PL_PNT2D_record* pnt1, PL_PNT2D_record* pnt2, int* n_pnts) noexcept;

/// Whether a point lies in a simple polygon, by counting how often the ray from the point to the East crosses
/// the boundary.
///
/// @param[in]     pt              the point, caller's unit
/// @param[in]     vertices        the ring, the first vertex not repeated
/// @param[in]     count           number of vertices; fewer than 3 gives false
/// @param[in,out] rightmostIndex  index of the vertex of largest x. 0 or a value outside the array means
///                                unknown: it is searched and written. Any other value is trusted. To test
///                                many points in one polygon pass the same variable each time; start with 0
///                                for another polygon.
/// @return true inside; for a point on the boundary whatever the count gives
///
/// Tolerance   (|reference| + 1) * PL_EPS in every comparison. Vertices that follow each other on one
///             horizontal or vertical line count as one side. PlFunz_intersect_ls decides where a side is
///             crossed, with its margins: 1e-7 of the ray, which ends 1000 East of the rightmost vertex.
/// Degenerate  All vertices on one x or on one y: false. The function ends for every input, as a rule after one
///             round of the ring. Where vertices that differ by less than the margin hide vertex 0, it goes on
///             for as many rounds as it takes, and its own count stands. A count that comes back to where it
///             has been would go round for ever: the textbook count without tolerance replaces it, in which a
///             side owns its lower end and not its upper one.
/// Aliasing    pt may be one of the vertices; rightmostIndex must not be the variable of count.
/// Exactness   Comparisons of coordinates as handed in, and PlFunz_intersect_ls.
/// Source      Crossing number (even-odd rule).
///
/// Move the ring and the point to a local origin first: subtract one vertex from all of them. The margins grow
/// with the coordinates. At 500,000 East and 5,000,000 North a point within 0.5 of level with a corner may come
/// out wrong however far it is from the boundary: 13,101 of 2,000,000 points in rings of 12 vertices, 100
/// across. At a local origin 5 did, none farther than 0.0001 from the boundary.
///
/// The work is bounded: in a ring of n vertices a count can be in about 3 n states at most. The longest counts
/// known go 4,000 rounds, on rings of 61,000 vertices that are no more than a few margins high; they take a
/// tenth of a second on a desktop.
///
/// Do not rely on the result in three situations: vertex 0 lies inside a horizontal or vertical run of
/// vertices; the ray passes through vertex 0 where the boundary crosses it; the boundary crosses the ray along
/// a horizontal side that lies on it. The first two cannot arise when the ring begins at a corner that is level
/// with no tested point. In the third, test a point a little above or below instead.
PLCALC_API bool PlFunz_inpolygon(const PL_PNT2D_record* pt, const PL_PNT2D_record* vertices, const int* count,
                                 int* rightmostIndex) noexcept;
