"""Records, tolerances, directions, polar points and plane matrices.

Records: a point is (x, y), a point in space (x, y, z), a segment (start, end), an implicit line
(a, b, c), a rectangle (xmin, ymin, xmax, ymax), a box (xmin, ymin, zmin, xmax, ymax, zmax), an arc
(centre, radius, angle_type, start_angle, end_angle), a matrix nine doubles row by row.
"""

import math

from .machine import NAN, atan, cos, div, fmod, fraction, sin, sqrt

PL_EPS = 1e-7

PI = 3.141592653589793
TWO_PI = 6.283185307179586
HALF_PI = 1.5707963267948966
THREE_HALF_PI = 4.71238898038469
DEG_PER_RAD = 57.29577951308233
RAD_PER_DEG = 0.01745329251994  # cut short on purpose

MANY_TURNS = 65536.0  # beyond it an angle is brought near by one exact remainder


# Tolerances ------------------------------------------------------------------------------------------


def tol(r):
    """Margin around the reference value r."""
    return PL_EPS * (abs(r) + 1.0)


def is_null(v):
    return abs(v) <= PL_EPS


def snap_zero(v):
    return 0.0 if is_null(v) else v


def max_tol(a, b):
    return a if a > b + tol(b) else b


def min_tol(a, b):
    return a if a < b - tol(b) else b


# Setters ---------------------------------------------------------------------------------------------


def PlFunz_set_pnt_2d(x, y):
    return (x, y)


def PlFunz_set_pnt_3d(x, y, z):
    return (x, y, z)


def PlFunz_set_line_2d(x1, y1, x2, y2):
    return ((x1, y1), (x2, y2))


def PlFunz_set_rect_2d(xmin, ymin, xmax, ymax):
    return (xmin, ymin, xmax, ymax)


def PlFunz_set_rect_3d(xmin, ymin, zmin, xmax, ymax, zmax):
    return (xmin, ymin, zmin, xmax, ymax, zmax)


def PlFunz_set_arc_2d(centre_x, centre_y, radius, angle_type, start_angle, end_angle):
    return ((centre_x, centre_y), radius, angle_type, start_angle, end_angle)


# Scalars and points ----------------------------------------------------------------------------------


def PlFunz_inverse(v):
    if is_null(v):
        return 0.0
    return div(1.0, v)


def PlFunz_sumsqrdparms(a, b):
    return a * a + b * b


def PlFunz_distance(p1, p2):
    dx = p1[0] - p2[0]
    dy = p1[1] - p2[1]
    return sqrt(dy * dy + dx * dx)


def PlFunz_samepnt(p1, p2):
    return is_null(p1[0] - p2[0]) and is_null(p1[1] - p2[1])


# Directions ------------------------------------------------------------------------------------------


def _arctan(x, y, per_rad, quarter, half, three_quarters, full):
    if is_null(x):
        if is_null(y):
            return 0.0
        return quarter if y > PL_EPS else three_quarters
    if is_null(y):
        return 0.0 if x > 0.0 else half

    r = atan(abs(div(y, x)))
    if per_rad is not None:
        r = r * per_rad
    if x > PL_EPS:
        return r if y > PL_EPS else full - r
    return half - r if y > PL_EPS else half + r


def PlFunz_arctan_rad(x, y):
    return _arctan(x, y, None, HALF_PI, PI, THREE_HALF_PI, TWO_PI)


def PlFunz_arctan_deg(x, y):
    return _arctan(x, y, DEG_PER_RAD, 90.0, 180.0, 270.0, 360.0)


def PlFunz_pseudo_angdist(p1, p2):
    """(angle, squared distance)"""
    dx = p2[0] - p1[0]
    dy = p2[1] - p1[1]
    if is_null(dx) and is_null(dy):
        v = 0.0
    else:
        v = div(dy, abs(dy) + abs(dx))
    if dx < -PL_EPS:
        v = 2.0 - v
    elif dy < -PL_EPS:
        v = v + 4.0
    return v * 90.0, PlFunz_sumsqrdparms(dx, dy)


# Polar points ----------------------------------------------------------------------------------------


def within_turn(angle, turn):
    """The angle brought into one turn by whole turns, one at a time, with the rounding of each."""
    if not math.isfinite(angle):
        return NAN
    if abs(angle) > MANY_TURNS * turn:
        angle = fmod(angle, turn)
    while angle < -PL_EPS:
        angle = angle + turn
    bound = turn - tol(turn)
    while angle >= bound:
        angle = angle - turn
    return angle


def _offset_true_angle(dist, theta):
    theta = within_turn(theta, TWO_PI)
    if theta > THREE_HALF_PI + tol(THREE_HALF_PI):
        phi = theta - THREE_HALF_PI
        return dist * sin(phi), -dist * cos(phi)
    if theta > PI + tol(PI):
        phi = theta - PI
        return -dist * cos(phi), -dist * sin(phi)
    if theta > HALF_PI + tol(HALF_PI):
        phi = theta - HALF_PI
        return -dist * sin(phi), dist * cos(phi)
    return dist * cos(theta), dist * sin(theta)


def _point_pseudo_angle(origin, dist, angle):
    a = within_turn(angle, 4.0)
    t = fraction(a)
    r = div(abs(dist), t * t + 1.0)
    c = (1.0 - t * t) * r
    s = 2.0 * t * r
    x, y = origin
    if a <= 1.0 + tol(1.0):
        if abs(a - 1.0) <= tol(1.0):
            return x + s, y + c
        return x + c, y + s
    if a <= 2.0 + tol(2.0):
        if abs(a - 2.0) <= tol(2.0):
            return x - c, y - s
        return x - s, y + c
    if a <= 3.0 + tol(3.0):
        return x - c, y - s
    return x + s, y - c


def PlFunz_pntangledist(unit, origin, dist, angle):
    """unit: 0 degrees, 2 pseudo-angle, anything else radians"""
    if unit == 2:
        x, y = _point_pseudo_angle(origin, dist, angle)
    else:
        theta = angle * RAD_PER_DEG if unit == 0 else angle
        dx, dy = _offset_true_angle(dist, theta)
        x = origin[0] + dx
        y = origin[1] + dy
    return (snap_zero(x), snap_zero(y))


def PlFunz_pntangledist_inplace(unit, origin, dist, angle):
    """Result written over the origin: for true angles the offset is stored first and meets itself."""
    if unit == 2:
        return PlFunz_pntangledist(unit, origin, dist, angle)
    theta = angle * RAD_PER_DEG if unit == 0 else angle
    dx, dy = _offset_true_angle(dist, theta)
    return (snap_zero(dx + dx), snap_zero(dy + dy))


# Matrices --------------------------------------------------------------------------------------------


IDENTITY = (1.0, 0.0, 0.0, 0.0, 1.0, 0.0, 0.0, 0.0, 1.0)


def _times(m, t):
    """m x t, three products added from left to right."""
    return tuple(
        m[3 * r] * t[c] + m[3 * r + 1] * t[3 + c] + m[3 * r + 2] * t[6 + c]
        for r in range(3)
        for c in range(3)
    )


def PlFunz_getidmatrix2d():
    return IDENTITY


def PlFunz_rotationmatrix2d(angle_deg, centre, m):
    r = angle_deg * RAD_PER_DEG
    s = sin(r)
    c = cos(r)
    x, y = centre
    shift_x = (1.0 - c) * x + y * s
    shift_y = y - (y * c + x * s)
    return _times(m, (c, s, 0.0, -s, c, 0.0, shift_x, shift_y, 1.0))


def PlFunz_translatematrix2d(dx, dy, m):
    return _times(m, (1.0, 0.0, 0.0, 0.0, 1.0, 0.0, dx, dy, 1.0))


def PlFunz_scalematrix2d(sx, sy, centre, m):
    if sx <= PL_EPS and sy <= PL_EPS:
        sx = 1.0
        sy = 1.0
    shift_x = (1.0 - sx) * centre[0]
    shift_y = (1.0 - sy) * centre[1]
    return _times(m, (sx, 0.0, 0.0, 0.0, sy, 0.0, shift_x, shift_y, 1.0))


def PlFunz_transformpnt2d(m, p):
    x = (m[3] * p[1] + m[0] * p[0]) + m[6]
    y = (m[4] * p[1] + m[1] * p[0]) + m[7]
    return (x, y)


def PlFunz_transformpnt2d_inplace(m, p):
    """The same record in and out: y is made from the x already turned."""
    x = (m[3] * p[1] + m[0] * p[0]) + m[6]
    y = (m[4] * p[1] + m[1] * x) + m[7]
    return (x, y)


def TrasfPt(m, x, y):
    return PlFunz_transformpnt2d(m, PlFunz_set_pnt_2d(x, y))
