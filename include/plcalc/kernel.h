#pragma once

/// @file
/// Geometric kernel: the records, their setters, scalar and point primitives, direction angles and
/// polar points, and plane transformation matrices.
///
/// Every function here either has no side effects or writes only through the pointers that it is given. None
/// allocates memory, and all may be called from any thread. Coordinates are in the caller's unit, x East, y
/// North.

#include <cstdint>

#include "plcalc/export.h"

/// The one tolerance of the geometry functions, used in three forms:
/// - absolute: a value v counts as zero when |v| <= PL_EPS;
/// - scaled around a reference r: tol(r) = (|r| + 1) * PL_EPS, absolute near zero, relative far away;
/// - snapping: a coordinate of magnitude PL_EPS or less becomes exactly 0.0.
///
/// With metres, 1e-7 is a tenth of a micrometre: far less than anyone measures, and far more than the rounding
/// of site coordinates.
constexpr double PL_EPS = 1e-7;

/// A point or a vector in the plane.
struct PL_PNT2D_record {
    double x;  ///< East, caller's unit
    double y;  ///< North, caller's unit
};

/// A point in space.
struct PL_PNT3D_record {
    double x;  ///< East, caller's unit
    double y;  ///< North, caller's unit
    double z;  ///< height, caller's unit
};

/// A segment. Its direction, from start to end, matters only to the functions that say so.
struct PL_LINE_2D_record {
    PL_PNT2D_record start;  ///< first end
    PL_PNT2D_record end;    ///< second end
};

/// The unlimited line a*x + b*y + c = 0.
///
/// A line built from two points is not normalised: (a, b) is as long as their distance and points to the left
/// of the way from the first point to the second.
struct PL_IMP_LINE_2D_record {
    double a;  ///< coefficient of x; a length when built from two points, no unit when normalised
    double b;  ///< coefficient of y; as a
    double c;  ///< constant term; an area when built from two points, a length when normalised
};

/// An axis-parallel rectangle. The setter stores the corners as given; the caller puts them in order.
struct PL_RECT_2D_record {
    double xmin;  ///< West side, caller's unit
    double ymin;  ///< South side, caller's unit
    double xmax;  ///< East side, caller's unit
    double ymax;  ///< North side, caller's unit
};

/// An axis-parallel box. The setter stores the corners as given; CalcoloBdry puts them in order.
struct PL_RECT_3D_record {
    double xmin;  ///< West face, caller's unit
    double ymin;  ///< South face, caller's unit
    double zmin;  ///< lower face, caller's unit
    double xmax;  ///< East face, caller's unit
    double ymax;  ///< North face, caller's unit
    double zmax;  ///< upper face, caller's unit
};

/// Unit of the two angles of an arc record, anticlockwise from +x.
///
/// The type can hold any 32-bit value, so that an unknown one is not undefined behaviour. An unknown value is
/// read as radians, except in the sweep test of PlFunz_intarcline_ls, which reads it as degrees.
enum PL_AngleMeasType : std::int32_t {
    PL_RADIANS = 0,      ///< radians, full turn 2 pi
    PL_DEGREES = 1,      ///< degrees, full turn 360
    PL_PSEUDO_ANGLE = 2  ///< quadrant 0 to 3 plus tan(half the angle in the quadrant), full turn 4
};

/// A circular arc: it runs anticlockwise from start_angle to end_angle.
///
/// When end_angle is below start_angle, the arc crosses the +x direction. `centre` stays the first field, so
/// that a pointer to an arc can serve as a pointer to its centre.
///
/// Store angles within one turn, because directions are compared with the angles as they are stored: an arc
/// from 350 to 370 degrees does not contain the direction 5, one from 350 to 10 does.
struct ARC_2D_record {
    PL_PNT2D_record centre;       ///< centre of the circle, caller's unit
    double radius;                ///< radius, caller's unit
    PL_AngleMeasType angle_type;  ///< unit of the two angles
    double start_angle;           ///< direction centre to first end
    double end_angle;             ///< direction centre to second end
};

// ---------------------------------------------------------------------------------------------- setters

/// Fills a point. Like every setter, it stores any value, NaN included.
///
/// @param[in]  x, y  coordinates, caller's unit
/// @param[out] out   the point
///
/// Aliasing    None possible: the coordinates are passed by value.
/// Exactness   The very bits of the arguments.
PLCALC_API void PlFunz_set_pnt_2d(double x, double y, PL_PNT2D_record* out) noexcept;

/// Fills a point in space.
///
/// @param[in]  x, y, z  coordinates, caller's unit
/// @param[out] out      the point
///
/// Aliasing    None possible: the coordinates are passed by value.
/// Exactness   The very bits of the arguments.
PLCALC_API void PlFunz_set_pnt_3d(double x, double y, double z, PL_PNT3D_record* out) noexcept;

/// Fills a segment. Its ends may be equal.
///
/// @param[in]  x1, y1  start point, caller's unit
/// @param[in]  x2, y2  end point, caller's unit
/// @param[out] out     the segment
///
/// Aliasing    None possible: the coordinates are passed by value.
/// Exactness   The very bits of the arguments.
PLCALC_API void PlFunz_set_line_2d(double x1, double y1, double x2, double y2,
                                   PL_LINE_2D_record* out) noexcept;

/// Fills a rectangle. The corners are stored as given, not put in order.
///
/// @param[in]  xmin, ymin  lower left corner, caller's unit
/// @param[in]  xmax, ymax  upper right corner, caller's unit
/// @param[out] out         the rectangle
///
/// Aliasing    None possible: the coordinates are passed by value.
/// Exactness   The very bits of the arguments.
PLCALC_API void PlFunz_set_rect_2d(double xmin, double ymin, double xmax, double ymax,
                                   PL_RECT_2D_record* out) noexcept;

/// Fills a box. The corners are stored as given, not put in order.
///
/// @param[in]  xmin, ymin, zmin  minimum corner, caller's unit
/// @param[in]  xmax, ymax, zmax  maximum corner, caller's unit
/// @param[out] out               the box
///
/// Aliasing    None possible: the coordinates are passed by value.
/// Exactness   The very bits of the arguments.
/// See also    CalcoloBdry, which puts two corners in order first.
PLCALC_API void PlFunz_set_rect_3d(double xmin, double ymin, double zmin, double xmax, double ymax,
                                   double zmax, PL_RECT_3D_record* out) noexcept;

/// Fills an arc record. Nothing is checked, not even the sign of the radius.
///
/// @param[in]  centre_x, centre_y      centre, caller's unit
/// @param[in]  radius                  radius, caller's unit
/// @param[in]  angle_type              unit of the two angles
/// @param[in]  start_angle, end_angle  directions of the two ends, anticlockwise from +x
/// @param[out] arc                     the record; it may be null, in this function only: then nothing happens
///
/// Aliasing    None possible: everything is passed by value.
/// Exactness   The very bits of the arguments: angles are not reduced to one turn.
PLCALC_API void PlFunz_set_arc_2d(double centre_x, double centre_y, double radius,
                                  PL_AngleMeasType angle_type, double start_angle, double end_angle,
                                  ARC_2D_record* arc) noexcept;

// ------------------------------------------------------------------------------------------- primitives

/// Reciprocal of a number, or 0.0 for a number that counts as zero.
///
/// @param[in] v  any number
/// @return 1 / v; 0.0 when |v| <= PL_EPS; NaN for NaN
///
/// Tolerance   PL_EPS, absolute, inclusive.
/// Exactness   One division, rounded once.
PLCALC_API double PlFunz_inverse(double v) noexcept;

/// Squared length of a vector.
///
/// @param[in] a, b  components, caller's unit
/// @return a*a + b*b, unit squared
///
/// Exactness   Each product is rounded, then the sum. The result is infinite from components of 1.3408e154 on
///             when the other one is zero, and from 9.4808e153 on when both are equal.
PLCALC_API double PlFunz_sumsqrdparms(double a, double b) noexcept;

/// Distance of two points.
///
/// @param[in] p1, p2  points, caller's unit; may be one record
/// @return never negative; exactly 0.0 from a finite point to itself; the same bits for swapped arguments
///
/// Degenerate  A NaN gives NaN. So do two points that have the same infinite coordinate.
/// Exactness   sqrt(dy*dy + dx*dx), rounded at each operation. The result is infinite from differences of
///             1.3408e154 on one axis or 9.4808e153 on both, and 0.0 when both are below 1.57e-162.
PLCALC_API double PlFunz_distance(const PL_PNT2D_record* p1, const PL_PNT2D_record* p2) noexcept;

/// Whether two points are the same within PL_EPS on each axis separately.
///
/// @param[in] p1, p2  points, caller's unit; may be one record
/// @return true when |dx| <= PL_EPS and |dy| <= PL_EPS, both inclusive; false with a NaN. The tolerance is a
///         square, not a circle: points that differ by 1e-7 on both axes, 1.41e-7 apart, are the same.
///
/// Tolerance   PL_EPS, absolute, inclusive, whatever the size of the coordinates.
/// Exactness   Each difference is rounded once, then compared.
/// See also    StessoPunto, which takes the tolerance as an argument.
PLCALC_API bool PlFunz_samepnt(const PL_PNT2D_record* p1, const PL_PNT2D_record* p2) noexcept;

// ------------------------------------------------------------------------- directions and polar points

/// Direction of a vector in radians, anticlockwise from +x.
///
/// @param[in] x, y  components, caller's unit
/// @return in [0, 2 pi); an exact multiple of a quarter turn when a component is zero within PL_EPS
///
/// Tolerance   PL_EPS on each component. The null vector has direction 0.
/// Degenerate  A direction just below a full turn may round up to 2 pi itself: (1e9, -2e-7) gives 2 pi. A NaN
///             gives NaN when the other component is not zero. When the other one is zero, the NaN counts as
///             negative: (NaN, 0) gives pi and (0, NaN) three quarters of a turn. Two infinite components
///             give NaN.
/// Exactness   atan(|y / x|) of the platform, then one addition or subtraction.
/// See also    PlFunz_arcangle, which takes two points and costs a square root more.
PLCALC_API double PlFunz_arctan_rad(double x, double y) noexcept;

/// Direction of a vector in degrees, anticlockwise from +x.
///
/// @param[in] x, y  components, caller's unit
/// @return in [0, 360); an exact multiple of 90 when a component is zero within PL_EPS
///
/// Tolerance   PL_EPS on each component. The null vector has direction 0.
/// Degenerate  A direction just below a full turn may round up to exactly 360: (1e9, -2e-7) gives 360. NaN and
///             infinite components are treated as in PlFunz_arctan_rad.
/// Exactness   atan(|y / x|) * 57.29577951308233, then one addition or subtraction. Multiples of 90 are exact
///             on the axes only: the steep (1, 1e20) gives 90.000000000000014.
PLCALC_API double PlFunz_arctan_deg(double x, double y) noexcept;

/// Pseudo-angle of a direction, and the squared distance: for sorting, without root or trigonometry.
///
/// @param[in]  p1, p2  points, caller's unit
/// @param[out] angle   pseudo-degrees of the direction from p1 to p2: 90 times the diamond angle
///                     dy / (|dx| + |dy|), which equals the true angle only at multiples of 45; 0 for points
///                     that are equal within PL_EPS; just below a full turn it may round up to exactly 360
/// @param[out] dist    the squared distance
///
/// Tolerance   PL_EPS, absolute, on both differences: they count as negative only below -PL_EPS.
/// Degenerate  For -PL_EPS <= dy < 0 and dx > 0 the angle is negative: -9e-6 when dy is -1e-7 and dx is 1, and
///             down to -45 as dx falls to PL_EPS. A NaN, or an infinite dy, gives a NaN angle.
/// Aliasing    angle and dist may be coordinates of p1 and p2, but must be two variables.
/// Exactness   dy / (|dy| + |dx|), then 2 - v or v + 4 by the quadrant, then times 90; dist as
///             PlFunz_sumsqrdparms. Rounded at each operation.
PLCALC_API void PlFunz_pseudo_angdist(const PL_PNT2D_record* p1, const PL_PNT2D_record* p2, double* angle,
                                      double* dist) noexcept;

/// Polar point: the point at a distance and a direction from an origin.
///
/// @param[in]  unit    0 degrees, 2 pseudo-angle, anything else radians. These are not the numbers of
///                     PL_AngleMeasType, nor those of PlFunz_arcangle.
/// @param[in]  origin  where to start, caller's unit
/// @param[in]  dist    distance, caller's unit; in degrees and radians a negative one leads the opposite way,
///                     in pseudo-angles its sign is lost
/// @param[in]  angle   direction anticlockwise from +x, any number of turns
/// @param[out] out     the point; a coordinate of magnitude PL_EPS or less is exactly 0.0
///
/// Tolerance   (|r| + 1) * PL_EPS at each quarter turn r, where the formula of one quadrant takes over from
///             that of the other.
/// Degenerate  An infinite or NaN angle gives NaN coordinates. An angle is reduced to one turn by subtracting
///             turn after turn; one of more than 65536 turns is first reduced all at once.
/// Aliasing    out must not be the record of origin: in degrees and radians the offsets are written to it
///             first, and the result would be twice the offset.
/// Exactness   Degrees become radians by 0.01745329251994. Sine and cosine are those of the platform, taken of
///             the angle within its quarter turn. A pseudo-angle needs no trigonometry: with t its fraction
///             and r = |dist| / (t*t + 1) the offsets are (1 - t*t)*r and 2*t*r. Three pseudo-angles come out
///             a quarter turn off: 3, up to 4e-7 above it, gives -x instead of -y; up to 2e-7 below 1 gives +x
///             instead of +y; up to 3e-7 below 2 gives -y instead of -x. That stays so, to keep results
///             comparable between versions.
/// Source      Half-angle formulas of sine and cosine, t = tan(phi / 2).
PLCALC_API void PlFunz_pntangledist(int unit, const PL_PNT2D_record* origin, double dist, double angle,
                                    PL_PNT2D_record* out) noexcept;

// --------------------------------------------------------------------------------------------- matrices

/// Identity matrix.
///
/// A matrix M[row][column] multiplies row vectors, [x y 1] M: the translation is in row 2. Each builder below
/// multiplies its transformation onto what M already holds, so that a point undergoes them in the order of the
/// calls. Start with this function.
///
/// @param[out] M  three rows of three
///
/// Exactness   Exact.
PLCALC_API void PlFunz_getidmatrix2d(double (*M)[3]) noexcept;

/// Adds an anticlockwise rotation about a centre.
///
/// @param[in]     angleDeg  degrees, anticlockwise, any number of turns
/// @param[in]     centre    the point that stays, caller's unit
/// @param[in,out] M         M times the rotation
///
/// Degenerate  An infinite or NaN angle makes the entries of the first two columns NaN.
/// Aliasing    The types allow none: M is one array, and is written once the product is complete.
/// Exactness   Degrees become radians by 0.01745329251994, so that 90 degrees have a cosine of 2.967e-13. Sine
///             and cosine are those of the platform. In all three builders each entry of the product is
///             M[r][0]*T[0][c] + M[r][1]*T[1][c] + M[r][2]*T[2][c], rounded at each operation from left to
///             right.
PLCALC_API void PlFunz_rotationmatrix2d(double angleDeg, const PL_PNT2D_record* centre,
                                        double (*M)[3]) noexcept;

/// Adds a shift.
///
/// @param[in]     dx, dy  shift, caller's unit
/// @param[in,out] M       M times the shift
///
/// Aliasing    None possible: the shift is passed by value.
/// Exactness   The product described at PlFunz_rotationmatrix2d, its multiplications by 0 included: through
///             them a NaN or infinity turns other entries of its row or column to NaN.
PLCALC_API void PlFunz_translatematrix2d(double dx, double dy, double (*M)[3]) noexcept;

/// Adds a scaling about a centre.
///
/// @param[in]     sx, sy  factors, no unit. When both are 1e-7 or less, as negative factors are, nothing is
///                        scaled: this function does not mirror in both axes at once. When only one is, both
///                        are used as given.
/// @param[in]     centre  the point that stays, caller's unit
/// @param[in,out] M       M times the scaling
///
/// Tolerance   1e-7 on the factors, inclusive; not PL_EPS, which is a length.
/// Aliasing    The types allow none: M is one array, and is written once the product is complete.
/// Exactness   The shift is (1 - s) * centre on each axis; the product as in PlFunz_rotationmatrix2d.
PLCALC_API void PlFunz_scalematrix2d(double sx, double sy, const PL_PNT2D_record* centre,
                                     double (*M)[3]) noexcept;

/// Transforms a point by a matrix. The third column is not read.
///
/// @param[in]  M    three rows of three
/// @param[in]  in   the point, caller's unit
/// @param[out] out  its image
///
/// Aliasing    out may be the record of in, but then y is computed from the x that is already transformed. Use
///             TrasfPt to transform a point in place.
/// Exactness   x = (M[1][0]*y + M[0][0]*x) + M[2][0], y = (M[1][1]*y + M[0][1]*x) + M[2][1], rounded at each
///             operation.
PLCALC_API void PlFunz_transformpnt2d(const double (*M)[3], const PL_PNT2D_record* in,
                                      PL_PNT2D_record* out) noexcept;

/// Transforms a coordinate pair by a matrix.
///
/// @param[in]  M           three rows of three
/// @param[in]  x, y        the point, caller's unit
/// @param[out] xOut, yOut  its image
///
/// Aliasing    xOut and yOut may be the variables that held x and y.
/// Exactness   The bits of PlFunz_transformpnt2d with separate records.
PLCALC_API void TrasfPt(const double (&M)[3][3], double x, double y, double& xOut, double& yOut) noexcept;
