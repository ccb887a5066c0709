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
/// @param[in] to    the point looked at, caller's unit
/// @return the direction; 0.0 for points equal within PL_EPS on each axis; a pseudo-angle may be negative
///         by a hair for a direction just below +x
///
/// Exactness   One square root; degrees and radians add one arctangent of the platform.
PLCALC_API double PlFunz_arcangle(int unit, const PL_PNT2D_record* from, const PL_PNT2D_record* to) noexcept;

/// Arc through three points.
///
/// @param[in]  p1, p3  the arc's ends, caller's unit
/// @param[in]  p2      a point between them
/// @param[out] arc     centre, radius, angles in radians within one turn. The sweep is always
///                     anticlockwise: when p1-p2-p3 runs clockwise, start_angle belongs to p3.
/// @return 0 done; 5 the points lie on one line or coincide, arc is untouched: test it
///
/// Tolerance   PL_EPS, absolute, on the cross product (p2 - p1) x (p3 - p1), an area, inclusive.
PLCALC_API int PlFunz_arc_3pnts(const PL_PNT2D_record* p1, const PL_PNT2D_record* p2,
                                const PL_PNT2D_record* p3, ARC_2D_record* arc) noexcept;

/// The two ends of an arc.
///
/// @param[in]  arc          the arc; an unknown angle_type is read as radians
/// @param[out] start_point  point at start_angle, caller's unit
/// @param[out] end_point    point at end_angle, caller's unit
///
/// Exactness   That of PlFunz_pntangledist, its surprises near pseudo-angles 1, 2 and 3 included.
PLCALC_API void PlFunz_arc_end_pnts(const ARC_2D_record* arc, PL_PNT2D_record* start_point,
                                    PL_PNT2D_record* end_point) noexcept;

/// Shortest distance of a point from an arc.
///
/// @param[in] arc  the arc; an unknown angle_type is read as radians
/// @param[in] p    the point, caller's unit
/// @return |distance from the centre - radius| when the direction of p lies within the sweep, the margin
///         included; otherwise the distance from the nearer end, and on a tie from the end at end_angle
PLCALC_API double PlFunz_distpntarc(const ARC_2D_record* arc, const PL_PNT2D_record* p) noexcept;

/// Bounding rectangle of an arc, from quadrants alone.
///
/// @param[in]  arc                 the arc; only centre and radius are read
/// @param[in]  start_pnt, end_pnt  its ends, as PlFunz_arc_end_pnts gives them
/// @param[out] rect                the rectangle, caller's unit
///
/// Degenerate  Ends that coincide give the rectangle of the full circle.
PLCALC_API void PlFunz_arc_rect(const ARC_2D_record* arc, const PL_PNT2D_record* start_pnt,
                                const PL_PNT2D_record* end_pnt, PL_RECT_2D_record* rect) noexcept;

/// Where a segment meets an arc.
///
/// @param[in]  arc     the arc; an unknown angle_type is read as degrees, here and only here
/// @param[in]  seg     the segment, caller's unit
/// @param[out] pnt1    first point along the segment; untouched when there is none
/// @param[out] pnt2    second point along the segment; untouched unless there are two
/// @param[out] n_pnts  0, 1 or 2; always written
/// @return true when there is at least one
///
/// Degenerate  A segment without length meets nothing. A full circle, start and end equal within the
///             margin, that the segment crosses twice reports one point only: the farther along the segment.
/// Tolerance   PL_EPS on radius squared minus distance squared decides for a touch.
PLCALC_API bool PlFunz_intarcline_ls(const ARC_2D_record* arc, const PL_LINE_2D_record* seg,
                                     PL_PNT2D_record* pnt1, PL_PNT2D_record* pnt2, int* n_pnts) noexcept;

/// Whether a point lies in a simple polygon: crossings of the ray from the point to the East are counted.
///
/// @param[in]     pt              the point, caller's unit
/// @param[in]     vertices        the ring, the first vertex not repeated
/// @param[in]     count           number of vertices; fewer than 3 gives false
/// @param[in,out] rightmostIndex  index of the vertex of largest x. 0 or a value outside the array means
///                                unknown: it is searched and written. Pass the same variable again and
///                                again for many points in one polygon.
/// @return true inside; a point on the boundary comes out as the counting has it
///
/// Tolerance   (|reference| + 1) * PL_EPS in every comparison; runs of vertices on one horizontal or
///             vertical line count as one side.
/// Degenerate  All vertices on one x or on one y: false. The function ends for every input: once round the
///             ring as a rule; where runs of vertices that creep by less than the margin hide vertex 0, on a
///             later round. A count that would go round for ever, or more than 1024 times, is replaced by the
///             textbook one: a side owns its lower end and not its upper one, without tolerance.
///
/// Not to be relied on in three situations: vertex 0 inside a horizontal or vertical run of vertices; the
/// ray through vertex 0 where the boundary crosses it; a boundary that crosses the ray along a horizontal
/// side lying on it. Begin the ring at a corner that no tested point is level with, and the first two
/// cannot arise; a point level with a horizontal side is better tested a little above or below it.
PLCALC_API bool PlFunz_inpolygon(const PL_PNT2D_record* pt, const PL_PNT2D_record* vertices, const int* count,
                                 int* rightmostIndex) noexcept;
