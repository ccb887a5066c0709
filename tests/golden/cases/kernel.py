"""Setters, scalars, directions, polar points, matrices."""

import math

from .common import (AROUND_EPS, HUGE, INF, NAN, PL_EPS, SIZES, SPECIAL, TINY, both_signs, cases, near,
                     tol)

PI = 3.141592653589793
HALF_PI = 1.5707963267948966
THREE_HALF_PI = 4.71238898038469
TWO_PI = 6.283185307179586
RAD_PER_DEG = 0.01745329251994


# Setters ---------------------------------------------------------------------------------------------


def _setter(name, count):
    @cases(name)
    def setter(draw):
        for i in range(count):
            for v in SPECIAL + [-0.0]:
                yield tuple(v if j == i else float(j + 1) for j in range(count))
        for _ in range(200):
            yield tuple(draw.value() for _ in range(count))


_setter("PlFunz_set_pnt_2d", 2)
_setter("PlFunz_set_pnt_3d", 3)
_setter("PlFunz_set_line_2d", 4)
_setter("PlFunz_set_rect_2d", 4)
_setter("PlFunz_set_rect_3d", 6)


@cases("PlFunz_set_arc_2d")
def set_arc(draw):
    for angle_type in (0, 1, 2, 3, 7, -1, 2147483647, -2147483648):
        yield (1.0, 2.0, 3.0, angle_type, 4.0, 5.0)
        yield (-0.0, 2.0, -3.0, angle_type, NAN, -INF)
    for _ in range(200):
        yield (draw.value(), draw.value(), draw.value(), draw.integer(-1, 3), draw.value(), draw.value())


@cases("PlFunz_set_arc_2d/null")
def set_arc_null(draw):
    yield (1.0, 2.0, 3.0, 0, 4.0, 5.0)
    yield (NAN, INF, -0.0, 9, NAN, NAN)


# Scalars and points ----------------------------------------------------------------------------------


@cases("PlFunz_inverse")
def inverse(draw):
    for v in both_signs(near(PL_EPS, 3) + [1.0000001e-7, 0.0, 5e-8, 1.0, 3.0, 49.0, 1e-6]) + SPECIAL:
        yield (v,)
    for e in range(-40, 41):
        yield (math.ldexp(draw.between(0.5, 1.0), e),)
        yield (-math.ldexp(draw.between(0.5, 1.0), e),)
    for size in SIZES:
        for _ in range(15):
            yield (draw.coordinate(size),)


@cases("PlFunz_sumsqrdparms")
def sum_of_squares(draw):
    for a in (0.0, -0.0, 3.0, -4.0, 1e-200, 1e200, INF, NAN):
        for b in (0.0, -0.0, 4.0, 1e-170, -INF, NAN):
            yield (a, b)
    for size in SIZES:
        for _ in range(50):
            yield draw.point(size)
    for _ in range(40):
        yield (draw.bits(), draw.bits())


@cases("PlFunz_distance")
def distance(draw):
    for p in ((0.0, 0.0), (-0.0, 0.0), (139.26, 805.4), (512345.678, 5012345.678), (HUGE, -HUGE)):
        yield (p, p)
    for v in SPECIAL:
        yield ((v, 1.0), (2.0, 3.0))
        yield ((1.0, 2.0), (3.0, v))
    yield ((3.0, 0.0), (0.0, 4.0))
    yield ((1e200, 0.0), (-1e200, 1e200))
    yield ((1e-200, 0.0), (0.0, 1e-200))
    for size in SIZES:
        for _ in range(60):
            yield draw.segment(size)
        for _ in range(20):
            yield (draw.point(size), draw.point(size))


@cases("PlFunz_samepnt")
def same_point(draw):
    yield ((0.0, 0.0), (1e-7, -1e-7))
    yield ((0.0, 0.0), (1.0000001e-7, 0.0))
    for dx in AROUND_EPS:
        for dy in AROUND_EPS:
            yield ((0.0, 0.0), (dx, dy))
    for size in SIZES:
        for _ in range(12):
            x, y = draw.point(size)
            for near_x in near(x + draw.pick([1e-7, -1e-7, 0.0])):
                yield ((x, y), (near_x, y + draw.pick([0.0, 9e-8, -1e-7])))
    for v in SPECIAL:
        yield ((v, 0.0), (v, 0.0))
        yield ((0.0, v), (0.0, 1.0))


# Directions ------------------------------------------------------------------------------------------


@cases("PlFunz_arctan_rad", "PlFunz_arctan_deg")
def arctan(draw):
    for v in ((0.0, 0.0), (0.0, 5.0), (0.0, -5.0), (-5.0, 0.0), (5.0, 0.0), (1.0, -1.0), (-1.0, 1.0),
              (-1.0, -1.0), (1e-8, 2.0), (-1e-8, -2.0), (2.0, 1e-8), (-2.0, -1e-8)):
        yield v
    for x in AROUND_EPS:
        for y in AROUND_EPS:
            yield (x, y)
    for x in both_signs([1.0, 1e300, INF]):
        for y in both_signs([1e-6, 1e-300, 1e300, INF]):
            yield (x, y)
    for v in (1.0, 0.0, NAN):
        yield (NAN, v)
        yield (v, NAN)
    for size in SIZES:
        for _ in range(30):
            p, q = draw.segment(size)
            yield (q[0] - p[0], q[1] - p[1])


@cases("PlFunz_pseudo_angdist")
def pseudo_angdist(draw):
    origin = (0.0, 0.0)
    for p in ((1.0, 1.0), (-1.0, 0.0), (0.0, -1.0), (1.0, -1e-7), (0.0, 1.0), (1.0, 0.0), (3.0, -4.0)):
        yield (origin, p)
    for dx in AROUND_EPS:
        for dy in AROUND_EPS:
            yield (origin, (dx, dy))
    for size in SIZES:
        for _ in range(40):
            yield draw.segment(size)
    for v in SPECIAL:
        yield (origin, (v, 1.0))
        yield (origin, (-1.0, v))
        yield (origin, (v, v))


# Polar points ----------------------------------------------------------------------------------------

_RADIAN_BOUNDS = [-PL_EPS, HALF_PI + tol(HALF_PI), PI + tol(PI), THREE_HALF_PI + tol(THREE_HALF_PI),
                  TWO_PI - tol(TWO_PI)]
_PSEUDO_BOUNDS = [-PL_EPS, 1.0 - tol(1.0), 1.0 + tol(1.0), 2.0 - tol(2.0), 2.0 + tol(2.0),
                  3.0 - tol(3.0), 3.0 + tol(3.0), 4.0 - tol(4.0)]
_DEGREE_BOUNDS = [bound / RAD_PER_DEG for bound in _RADIAN_BOUNDS]


def _polar_bounds():
    """(unit, angle) on and beside every bound of the three units."""
    for unit, bounds, steps in ((1, _RADIAN_BOUNDS, 1), (0, _DEGREE_BOUNDS, 2), (2, _PSEUDO_BOUNDS, 1)):
        for bound in bounds:
            for angle in near(bound, steps):
                yield unit, angle
    for quarter in range(-5, 10):
        yield 0, 90.0 * quarter
        yield 1, HALF_PI * quarter
        yield 2, 1.0 * quarter


def _polar_many_turns():
    """(unit, angle) of many turns, to both sides of the number that is still taken one by one."""
    for unit, turn in ((1, TWO_PI), (2, 4.0)):
        for angle in near(65536.0 * turn):
            yield unit, angle
            yield unit, -angle
    yield 0, 65536.0 * 360.0
    yield 0, 65537.0 * 360.0
    yield 0, -65537.25 * 360.0
    for unit in (0, 1, 2):
        for angle in (1e3, -1e3, 12345.678, 1e9, -1e9, 1e15, 1e300, -1e300, INF, -INF, NAN):
            yield unit, angle


def _polar_rows():
    yield (0, (10.0, 10.0), 5.0, 90.0)
    yield (1, (10.0, 10.0), 5.0, -HALF_PI)
    yield (1, (10.0, 10.0), -5.0, 0.0)
    yield (0, (0.0, 0.0), 1.0, 90.0)
    yield (2, (10.0, 10.0), -5.0, 0.5)
    for angle in (0.5, 1.0, 2.0, 3.0, 3.5, -1.0, 1.0 - 1e-7, 2.0 - 1e-7, 3.0 - 1e-7, 0.0, 1.5, 2.5):
        yield (2, (10.0, 10.0), 5.0, angle)


@cases("PlFunz_pntangledist")
def polar_point(draw):
    yield from _polar_rows()
    for unit, angle in _polar_bounds():
        yield (unit, (10.0, 20.0), 5.0, angle)
        yield (unit, (0.0, 0.0), 5.0, angle)  # the two formulas beside a bound differ in the small offset
    for unit, angle in _polar_many_turns():
        yield (unit, (10.0, 20.0), 5.0, angle)
    for x in both_signs(near(PL_EPS) + [5e-8, 0.0]):  # a coordinate that is snapped to zero, or not
        yield (1, (x, -x), 0.0, 0.0)
        yield (2, (-x, x), 0.0, 0.5)
    for unit in (-1, 3, 7):
        yield (unit, (1.0, 2.0), 3.0, 0.75)
    for v in SPECIAL:
        yield (1, (v, 1.0), 2.0, 0.5)
        yield (2, (1.0, v), 2.0, 0.5)
        yield (0, (1.0, 2.0), v, 0.0)
    for size in SIZES:
        for _ in range(15):
            yield (0, draw.point(size), draw.length(size), draw.between(-400.0, 800.0))
            yield (1, draw.point(size), draw.length(size), draw.between(-7.0, 14.0))
            yield (2, draw.point(size), draw.length(size), draw.between(-5.0, 9.0))


@cases("PlFunz_pntangledist/inplace")
def polar_point_inplace(draw):
    yield from _polar_rows()
    for size in SIZES:
        for _ in range(6):
            yield (0, draw.point(size), draw.length(size), draw.between(-400.0, 800.0))
            yield (1, draw.point(size), draw.length(size), draw.between(-7.0, 14.0))
            yield (2, draw.point(size), draw.length(size), draw.between(-5.0, 9.0))


# Matrices --------------------------------------------------------------------------------------------

_IDENTITY = (1.0, 0.0, 0.0, 0.0, 1.0, 0.0, 0.0, 0.0, 1.0)
_QUARTER_TURN = (0.0, 1.0, 0.0, -1.0, 0.0, 0.0, 0.0, 0.0, 1.0)
_SHIFT = (1.0, 0.0, 0.0, 0.0, 1.0, 0.0, 10.0, 20.0, 1.0)


def _matrix(draw, kinds=4):
    kind = draw.integer(0, kinds - 1)
    if kind == 0:
        return _IDENTITY
    if kind == 1:
        c, s = draw.between(-1.0, 1.0), draw.between(-1.0, 1.0)
        shift = draw.point(draw.pick(SIZES))
        return (c, s, 0.0, -s, c, 0.0, shift[0], shift[1], 1.0)
    if kind == 2:
        return tuple(draw.between(-3.0, 3.0) for _ in range(9))
    return tuple(draw.coordinate(draw.pick(SIZES)) for _ in range(9))


@cases("PlFunz_getidmatrix2d")
def identity(draw):
    yield (_IDENTITY,)
    yield ((NAN,) * 9,)
    yield ((-0.0,) * 9,)
    for _ in range(205):
        yield (tuple(draw.pick([0.0, 1.0, -7.0, INF, NAN]) for _ in range(9)),)


@cases("PlFunz_rotationmatrix2d")
def rotation(draw):
    for m in (_IDENTITY, _SHIFT, _QUARTER_TURN):
        for angle in (0.0, -0.0, 90.0, 180.0, 270.0, 360.0, -90.0, 45.0, 30.0, 1e-9):
            yield (angle, (0.0, 0.0), m)
            yield (angle, (1.0, 1.0), m)
    for angle in (1e6, INF, -INF, NAN):
        yield (angle, (1.0, 2.0), _IDENTITY)
    for size in SIZES:
        for _ in range(55):
            yield (draw.between(-400.0, 400.0), draw.point(size), _matrix(draw, 3))


@cases("PlFunz_translatematrix2d")
def translation(draw):
    for m in (_IDENTITY, _QUARTER_TURN, _SHIFT):
        for d in ((10.0, 20.0), (0.0, 0.0), (-0.0, -0.0), (INF, 1.0), (NAN, 0.0), (1e308, 1e308)):
            yield d + (m,)
    for size in SIZES:
        for _ in range(65):
            yield draw.point(size) + (_matrix(draw),)


@cases("PlFunz_scalematrix2d")
def scaling(draw):
    factors = [0.0, -0.0, -1.0, 2.0, 5e-8] + near(PL_EPS)
    for sx in factors:
        for sy in factors:
            yield (sx, sy, (3.0, 4.0), _SHIFT)
    for v in SPECIAL:
        yield (v, 0.0, (3.0, 4.0), _IDENTITY)
        yield (0.0, v, (3.0, 4.0), _IDENTITY)
    for size in SIZES:
        for _ in range(50):
            yield (draw.between(-2.0, 3.0), draw.between(-2.0, 3.0), draw.point(size), _matrix(draw))


@cases("PlFunz_transformpnt2d", "PlFunz_transformpnt2d/inplace")
def transform(draw):
    yield (_QUARTER_TURN, (1.0, 0.0))
    yield ((RAD_PER_DEG, 1.0, 0.0, -1.0, RAD_PER_DEG, 0.0, 0.0, 0.0, 1.0), (1.0, 0.0))
    yield (_IDENTITY, (-0.0, 0.0))
    yield (_SHIFT, (-10.0, -20.0))
    yield ((1.0, 0.0, 7.0, 0.0, 1.0, 8.0, 0.0, 0.0, 9.0), (1.0, 2.0))  # third column is not read
    for v in SPECIAL:
        yield (_SHIFT, (v, 1.0))
        yield (_QUARTER_TURN, (1.0, v))
    for size in SIZES:
        for _ in range(66):
            yield (_matrix(draw), draw.point(size))


@cases("TrasfPt")
def transform_pair(draw):
    for m, p in transform(draw):
        yield (m,) + p
