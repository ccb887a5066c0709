"""Surveying computations, areas and perimeters."""

import math

from .common import (AROUND_EPS, INF, NAN, PL_EPS, SIZES, SPECIAL, both_signs, cases, near)

O = (0.0, 0.0)


def _touching(draw, size):
    """Two segments that meet more often than two drawn at random."""
    p, q = draw.segment(size)
    return (p, q, draw.beside(p, size), draw.beside(q, size))


def _flat(points):
    return tuple(v for p in points for v in p)


# Limits, crossings -----------------------------------------------------------------------------------


@cases("TrovatoValNeiLimiti")
def within_limits(draw):
    for lim1, lim2 in ((5.0, 5.0), (1.0, 2.0), (2.0, 1.0), (0.0, -0.0), (-3.0, 7.0), (100.25, 1999.75),
                       (5000000.125, 5000100.5)):
        low, high = min(lim1, lim2), max(lim1, lim2)
        for v in near(low - 0.001) + near(high + 0.001) + [low - 0.0005, high + 0.0005, low - 0.002,
                                                           high + 0.002, low, high]:
            yield (v, lim1, lim2)
            yield (v, lim2, lim1)
    for v in (INF, -INF, NAN):
        yield (v, 1.0, 2.0)
        yield (1.5, v, 2.0)
        yield (1.5, 1.0, v)
    for size in SIZES:
        for _ in range(30):
            yield (draw.coordinate(size), draw.coordinate(size), draw.coordinate(size))


@cases("TrovatoPuntoInSegmento")
def within_extent(draw):
    a, b = (3.0, 1.0), (3.0, 9.0)
    for x in near(3.0 - 0.001) + near(3.0 + 0.001) + [3.0]:
        for y in near(1.0 - 0.001) + near(9.0 + 0.001) + [5.0]:
            yield ((x, y), a, b)
            yield ((y, x), b[::-1], a[::-1])
    for v in (INF, -INF, NAN):
        yield ((v, 5.0), a, b)
        yield ((3.0, 5.0), (v, 1.0), b)
    for size in SIZES:
        for _ in range(45):
            p, q = draw.segment(size)
            t = draw.between(-0.5, 1.5)
            yield ((p[0] + t * (q[0] - p[0]), p[1] + t * (q[1] - p[1])), p, q)


@cases("CalcoloIntersezioneRette/xy", "CalcoloIntersezioneRetteExt")
def crossing_of_two_pairs(draw):
    yield _flat((O, (1.0, 1.0), (2.0, 2.0), (3.0, 3.0)))        # coincident
    yield _flat((O, (1.0, 1.0), (0.0, 1.0), (1.0, 2.0)))        # parallel
    yield _flat((O, (1.0, 0.0), (5.0, 5.0), (5.0, 6.0)))        # beyond the given points
    yield _flat((O, O, (0.0, 1.0), (1.0, 2.0)))                 # one point twice
    yield _flat(((2.0, 3.0), (2.0, 3.0), (5.0, 5.0), (5.0, 5.0)))
    yield _flat(((0.1, 0.2), (0.4, 0.8), (0.2, 0.4), (0.3, 0.6)))
    for k in (2.0, 3.0, -0.5, 7.0):
        yield _flat((O, (k, k), (0.0, 1.0), (1.0, 2.0)))
        yield _flat(((1.0, 2.0), (1.0, 2.0 + k), (5.0, 6.0), (5.0, 7.0)))
        yield _flat(((1.0, 2.0), (1.0 + k, 2.0), (9.0, 2.0), (5.0, 2.0)))
    for d in both_signs(near(PL_EPS)) + [0.0, 1e-9, 1e-300]:
        yield _flat((O, (1.0, 0.0), (0.0, 1.0), (1.0, 1.0 + d)))
        yield _flat((O, (1.0, 0.0), (0.0, 1.0), (1.0, 1.0 + 2.0 * d)))
        yield _flat((O, (d, 0.0), (0.5, -1.0), (0.5, 1.0)))     # the first too short for a line, or not
        yield _flat((O, (1.0, d), O, (1.0, 0.0)))               # determinant d
        yield _flat(((3.0, 4.0), (3.0, 4.0 + d), (0.0, 1.0), (1.0, 1.0)))
    for v in SPECIAL:
        yield _flat(((v, 0.0), (1.0, 1.0), (0.0, 1.0), (1.0, 0.0)))
        yield _flat((O, (1.0, 1.0), (0.0, v), (1.0, 0.0)))
    for size in SIZES:
        for _ in range(50):
            yield _flat(_touching(draw, size))


@cases("CalcCoordYsuSegmento")
def ordinate_on_segment(draw):
    yield (0.0, 0.0, 10.0, 5.0, 4.0)
    yield (3.0, 0.0, 3.0, 5.0, 3.0)          # upright
    yield (3.0, 2.0, 3.0, 2.0, 3.0)          # one point twice
    yield (0.0, 0.0, 10.0, 5.0, -20.0)
    for dx in AROUND_EPS + both_signs(near(PL_EPS, 3)):
        yield (0.0, 0.0, dx, 1.0, 2.0)
        yield (0.0, 7.0, dx, 7.0, 2.0)
    for v in SPECIAL:
        yield (v, 0.0, 1.0, 1.0, 2.0)
        yield (0.0, 0.0, 1.0, v, 2.0)
        yield (0.0, 0.0, 1.0, 1.0, v)
    for size in SIZES:
        for _ in range(55):
            yield _flat(draw.segment(size)) + (draw.coordinate(size),)


@cases("IntersezLineaInSegmOK")
def line_cuts_segment(draw):
    a, b = O, (1.0, 0.0)
    for x in near(-0.001) + near(1.001) + [-0.0005, 1.0005, -0.002, 1.002, 0.5, 7.0]:
        yield (a, b, (1.0, 0.0, -x))
        yield (b, a, (1.0, 0.0, -x))
        yield (a, (0.0, 1.0), (0.0, 1.0, -x))
        yield (a, (1.0, 1.0), (1.0, 0.0, -x))
    yield (a, b, (0.0, 1.0, 0.0))
    yield (a, a, (1.0, 0.0, -0.5))
    yield (a, b, (0.0, 0.0, 0.0))
    for v in both_signs(near(PL_EPS)):
        yield (a, b, (v, 1.0, 0.0))
        yield (a, (v, 0.0), (1.0, 0.0, 0.0))
    for v in SPECIAL:
        yield ((v, 0.0), b, (1.0, 1.0, -0.5))
        yield (a, b, (1.0, 1.0, v))
    for size in SIZES:
        for _ in range(30):
            p, q = draw.segment(size)
            yield (p, q, draw.line(size))
        for _ in range(25):
            p, q = draw.segment(size)
            t = draw.between(-0.1, 1.1)
            n = (draw.between(-1.0, 1.0), draw.between(-1.0, 1.0))
            at = (p[0] + t * (q[0] - p[0]), p[1] + t * (q[1] - p[1]))
            yield (p, q, n + (-(n[0] * at[0] + n[1] * at[1]),))


@cases("CimaSegm")
def trim(draw):
    up = ((1.0, -1.0), (1.0, 4.0))
    yield (O, (2.0, 0.0)) + up                      # midway: the second end moves
    yield ((2.0, 0.0), O) + up
    yield (O, (3.0, 0.0)) + up
    yield (O, (1.5, 0.0)) + up
    yield (O, (2.0, 0.0), (0.0, 1.0), (2.0, 1.0))   # parallel
    yield (O, O) + up
    for v in both_signs(near(PL_EPS)):
        yield (O, (1.0, 0.0), (0.0, 1.0), (1.0, 1.0 + v))
        yield (O, (2.0 + v, 0.0)) + up
    for x in near(2.0):
        yield (O, (x, 0.0)) + up
    for v in SPECIAL:
        yield ((v, 0.0), (2.0, 0.0)) + up
        yield (O, (2.0, 0.0), (1.0, v), (1.0, 4.0))
    for size in SIZES:
        for _ in range(65):
            yield _touching(draw, size)


# Points at a distance, offsets -----------------------------------------------------------------------

_COMPASS = [(1.0, 0.0), (1.0, 1.0), (0.0, 1.0), (-1.0, 1.0), (-1.0, 0.0), (-1.0, -1.0), (0.0, -1.0),
            (1.0, -1.0), (3.0, 4.0), (0.0, 0.0), (5e-8, 0.0), (0.0, -5e-8)]


@cases("CalcPtAtDistSuSegm")
def along_segment(draw):
    for d in _COMPASS:
        for dist in (0.0, 5.0, -5.0, 1e-7):
            yield (O, d, (10.0, 10.0), dist)
            yield (O, d, O, dist)
    for d in both_signs(near(PL_EPS)):
        yield (O, (d, 2.0), (1.0, 1.0), 3.0)
        yield (O, (2.0, d), (1.0, 1.0), 3.0)
    for v in SPECIAL:
        yield ((v, 0.0), (1.0, 0.0), O, 2.0)
        yield (O, (1.0, 0.0), O, v)
    for size in SIZES:
        for _ in range(40):
            p, q = draw.segment(size)
            yield (p, q, p if draw.chance(0.5) else draw.beside(p, size), draw.length(size))


@cases("CalcPtAtDistSuLineaImp")
def along_line(draw):
    for a, b in _COMPASS:
        for dist in (0.0, 5.0, -5.0):
            yield ((a, b, 7.0), (10.0, 10.0), dist)
            yield ((a, b, -7.0), O, dist)
    for d in both_signs(near(PL_EPS)):
        yield ((d, 2.0, 1.0), (1.0, 1.0), 3.0)
        yield ((2.0, d, 1.0), (1.0, 1.0), 3.0)
    for v in SPECIAL:
        yield ((v, 1.0, 0.0), O, 2.0)
        yield ((1.0, 0.0, v), O, 2.0)
    for size in SIZES:
        for _ in range(45):
            yield (draw.line(size), draw.point(size), draw.length(size))


@cases("DistPtSuSegmDaPt")
def signed_distance_along(draw):
    for d in _COMPASS:
        for target in ((3.0, 0.0), (-3.0, 0.0), (0.0, 2.0), (2.0, -2.0), (10.0, 10.0), O):
            yield (O, d, O, target)
        yield (O, d, (10.0, 10.0), (10.0, 10.0))
    for v in SPECIAL:
        yield (O, (1.0, 0.0), (v, 0.0), (1.0, 0.0))
        yield (O, (1.0, 0.0), O, (1.0, v))
    for size in SIZES:
        for _ in range(50):
            p, q = draw.segment(size)
            start = draw.beside(p, size)
            yield (p, q, start, start if draw.chance(0.05) else draw.beside(start, size))


@cases("DistSegmDaPt")
def signed_distance_across(draw):
    a, b = O, (10.0, 0.0)
    for p in ((3.0, -2.0), (3.0, 2.0), (3.0, 0.0), (-5.0, 1.0), (20.0, -1.0), O):
        yield (a, b, p)
        yield (b, a, p)
        yield (a, b[::-1], p)
    yield ((2.0, 2.0), (2.0, 2.0), (5.0, 6.0))
    for d in both_signs(near(PL_EPS)) + [1e-9]:
        yield (a, b, (3.0, d))
        yield (a, (d, 0.0), (3.0, 4.0))             # base too short for a line, or not
        yield (a, (0.0, math.sqrt(abs(d))), (3.0, 4.0))
    for d in _COMPASS:
        yield (O, d, (4.0, 7.0))
        yield ((4.0, 7.0), (4.0 + d[0], 7.0 + d[1]), O)
    for v in SPECIAL:
        yield ((v, 0.0), b, (3.0, 4.0))
        yield (a, b, (3.0, v))
    for size in SIZES:
        for _ in range(60):
            p, q = draw.segment(size)
            yield (p, q, draw.beside(p, size))


@cases("CalcDistPuntoDaRetta")
def distance_and_side(draw):
    for a, b in _COMPASS:
        for p in ((4.0, 7.0), (-4.0, 7.0), O, (10.0, -3.0)):
            yield ((a, b, 0.0), p)
            yield ((a, b, -2.0), p)
    yield ((0.0, 2.0, 0.0), (3.0, 0.0))              # on the line
    for d in both_signs(near(PL_EPS)) + [1e-9]:
        yield ((0.0, 10.0, 0.0), (3.0, d))
        yield ((10.0, 0.0, 0.0), (d, 3.0))
    for k in near(math.sqrt(PL_EPS), 2):             # the determinant is the square of (a, b)
        yield ((k, 0.0, 1.0), (3.0, 4.0))
        yield ((0.0, k, 1.0), (3.0, 4.0))
    for v in SPECIAL:
        yield ((v, 1.0, 2.0), (3.0, 4.0))
        yield ((1.0, 2.0, v), (3.0, 4.0))
        yield ((1.0, 2.0, 3.0), (v, 4.0))
    for size in SIZES:
        for _ in range(45):
            yield (draw.line(size), draw.point(size))


@cases("IntersPerpDaPtInSegm")
def foot_on_segment(draw):
    a, b = O, (10.0, 0.0)
    for x in near(0.0) + near(-1e-7, 2) + near(10.0 + 1.1e-6, 2) + near(10.0) + [5.0, -3.0, 12.0]:
        yield (a, b, (x, 4.0))
        yield (b, a, (x, -4.0))
        yield (a, (0.0, 10.0), (4.0, x))
    yield (a, a, (3.0, 4.0))
    yield ((2.0, 3.0), (2.0, 3.0), (3.0, 4.0))
    for d in both_signs(near(PL_EPS)):
        yield ((2.0, 3.0), (2.0 + d, 3.0), (3.0, 4.0))
        yield (a, (0.0, d), (3.0, 4.0))
    for v in SPECIAL:
        yield ((v, 0.0), b, (3.0, 4.0))
        yield (a, b, (v, 4.0))
    for size in SIZES:
        for _ in range(50):
            p, q = draw.segment(size)
            yield (p, q, draw.beside(p, size))


@cases("CalcPtSquadro")
def right_angle_offset(draw):
    for b in ((10.0, 0.0), (0.0, 10.0), (-10.0, 0.0), (0.0, -10.0), (3.0, 4.0), (-7.0, 7.0), O):
        for absc in (0.0, -0.0, 4.0, -4.0):
            for ordinate in (0.0, 3.0, -3.0):
                yield (O, b, absc, ordinate)
        yield ((100.0, 200.0), (100.0 + b[0], 200.0 + b[1]), 4.0, 3.0)
    for absc in both_signs([5e-324, 1e-9]):          # the side changes with the sign of the abscissa
        yield (O, (10.0, 0.0), absc, 3.0)
        yield ((5.0, 5.0), (5.0, 15.0), absc, 3.0)
    for v in (INF, NAN, 1e300):
        yield (O, (10.0, 0.0), v, 3.0)
        yield (O, (10.0, 0.0), 4.0, v)
    for size in SIZES:
        for _ in range(45):
            p, q = draw.segment(size)
            yield (p, q, draw.length(size), draw.length(size))


@cases("CalcPtAngDist")
def angle_and_distance(draw):
    for ref in ((0.0, 10.0), (10.0, 0.0), (0.0, -10.0), (-10.0, 0.0), (3.0, 4.0), O):
        for angle in (0.0, 100.0, 200.0, 300.0, 400.0, -100.0, 50.0, 399.99999999995):
            yield (O, ref, angle, 5.0)
    for angle in (390.0, 1e15, 1e300, -1e300, INF, NAN):
        yield ((10.0, 10.0), (20.0, 15.0), angle, 5.0)
    for v in SPECIAL:
        yield ((v, 0.0), (1.0, 1.0), 50.0, 5.0)
        yield (O, (1.0, 0.0), 100.0, v)
    for size in SIZES:
        for _ in range(50):
            p, q = draw.segment(size)
            yield (p, q, draw.between(-400.0, 800.0), draw.length(size))


# Heights, boxes, tolerances --------------------------------------------------------------------------


@cases("CalcoloQuotaSuSegmento")
def height_on_segment(draw):
    ends = (1.0, 2.0, 30.0, 4.0, 6.0, 40.0)
    for at in ((1.0, 2.0), (4.0, 6.0), (2.5, 4.0), (7.0, 10.0), (-2.0, -2.0), (2.0, 2.0)):
        yield ends + at
    yield (1.0, 2.0, 30.0, 1.0, 2.0, 40.0, 3.0, 4.0)       # one point twice: infinite
    yield (1.0, 2.0, 40.0, 1.0, 2.0, 30.0, 3.0, 4.0)
    yield (1.0, 2.0, 30.0, 1.0, 2.0, 30.0, 3.0, 4.0)       # and 0 / 0
    yield (1.0, 2.0, 30.0, 1.0, 2.0, 40.0, 1.0, 2.0)
    for v in SPECIAL:
        for i in range(8):
            row = list(ends + (2.0, 3.0))
            row[i] = v
            yield tuple(row)
    for size in SIZES:
        for _ in range(50):
            p, q = draw.segment(size)
            at = draw.beside(p, size)
            yield p + (draw.coordinate("site"),) + q + (draw.coordinate("site"),) + at


@cases("CalcoloBdry")
def box_of_two_corners(draw):
    yield (5.0, 1.0, 9.0, 2.0, 7.0, 3.0)
    yield (0.0, -0.0, 0.0, -0.0, 0.0, -0.0)
    yield (-0.0, 0.0, -0.0, 0.0, -0.0, 0.0)
    for v in SPECIAL:
        for i in range(6):
            row = [5.0, 1.0, 9.0, 2.0, 7.0, 3.0]
            row[i] = v
            yield tuple(row)
    for x in near(2.0):
        yield (x, 1.0, 1.0, 2.0, 1.0, 1.0)
        yield (1.0, x, 1.0, 1.0, 2.0, 1.0)
        yield (1.0, 1.0, x, 1.0, 1.0, 2.0)
    for size in SIZES:
        for _ in range(50):
            yield draw.point(size) + (draw.coordinate("site"),) + draw.point(size) + (
                draw.coordinate("site"),)


@cases("NumeroEstZero")
def is_zero(draw):
    for tolerance in (1e-7, 0.001, 1.0, 0.0, -0.0, 5e-324, -1.0, INF, NAN):
        for v in both_signs(near(abs(tolerance)) if tolerance == tolerance else [1.0]) + [0.0, -0.0]:
            yield (v, tolerance)
    for v in SPECIAL:
        yield (v, 1.0)
        yield (v, INF)
    for _ in range(150):
        tolerance = draw.pick([1e-7, 1e-3, 0.05, 1.0])
        yield (tolerance * draw.between(-2.0, 2.0), tolerance)


@cases("StessoPunto")
def same_within(draw):
    for tolerance in (1e-7, 0.001, 0.0, -1.0, INF, NAN):
        for dx in (0.0, 0.9 * tolerance, tolerance, -tolerance, 1.1 * tolerance):
            for dy in (0.0, 0.9 * tolerance, tolerance, -1.1 * tolerance):
                yield (O, (dx, dy), tolerance)
    for d in both_signs(near(0.001)):
        yield (O, (d, 0.0), 0.001)
        yield ((0.0, d), O, 0.001)
    for v in SPECIAL:
        yield ((v, 0.0), (v, 0.0), 0.001)
        yield ((0.0, v), (0.0, 1.0), 0.001)
    for size in SIZES:
        for _ in range(40):
            x, y = draw.point(size)
            yield ((x, y), (x + 0.001 * draw.between(-1.2, 1.2), y + 0.001 * draw.between(-1.2, 1.2)),
                   0.001)


# Area and perimeter ----------------------------------------------------------------------------------


@cases("AreaCalcolataSgn", "AreaCalcolata", "PeriCalcolato")
def ring_measures(draw):
    square = [O, (1.0, 0.0), (1.0, 1.0), (0.0, 1.0)]
    for ring in ([], [(3.0, 4.0)], [(-3.0, -4.0)], [O, (3.0, 4.0)], square, square[::-1], square + [O],
                 [O, (2.0, 2.0), (2.0, 0.0), (0.0, 2.0)],               # figure eight
                 [(1e8 + x, 1e8 + y) for x, y in square],               # no shift of origin
                 [(-0.0, -0.0)] * 3, [(7.0, 7.0)] * 5,
                 [O, (1e154, 1.5e154), (-1.5e154, 0.0)]):               # overflows before it is halved
        yield (ring,)
    for v in SPECIAL:
        yield ([(v, 0.0), (1.0, 0.0), (1.0, 1.0)],)
        yield ([O, (1.0, v), (1.0, 1.0), (0.0, 1.0)],)
    for size in SIZES:
        for _ in range(50):
            yield (draw.ring(size, draw.integer(3, 12), draw.chance(0.5)),)
        for _ in range(10):
            ring = draw.ring(size, draw.integer(3, 8))
            yield (ring + ring[:1],)
        for _ in range(4):
            yield (draw.ring(size, draw.integer(20, 40), draw.chance(0.5)),)
