"""Implicit lines, intersections, distance from a line, collinearity."""

import math

from .common import (AROUND_EPS, INF, NAN, PL_EPS, SIZES, SPECIAL, both_signs, cases, near, tol)

ONE_UP = 1.0 + tol(1.0)


# Implicit lines --------------------------------------------------------------------------------------


@cases("PlFunz_lineeq_ile")
def line_equation(draw):
    yield ((1.0, 1.0), (1.0 + 1e-7, 1.0 - 1e-7))
    yield ((0.0, 0.0), (2.0, 0.0))
    yield ((0.0, 0.0), (1.0, 0.0))
    for dx in AROUND_EPS:
        for dy in AROUND_EPS:
            yield ((0.0, 0.0), (dx, dy))
    for size in SIZES:
        for _ in range(40):
            yield draw.segment(size)
        x, y = draw.point(size)
        for other in near(x + 1e-7) + near(x - 1e-7):
            yield ((x, y), (other, y))
    for v in SPECIAL:
        yield ((v, 1.0), (2.0, 3.0))
        yield ((1.0, 2.0), (v, 3.0))
        yield ((1.0, v), (1.0, v))


@cases("PlFunz_normal_ile")
def normal_form(draw):
    for line in ((0.0, 2.0, -4.0), (0.0, -2.0, 4.0), (3.0, -4.0, 0.0), (3.0, 0.0, 0.0), (-3.0, 0.0, 0.0),
                 (1e-4, 2e-4, 7.0), (0.0, 0.0, 5.0), (-3.0, -0.0, 0.0), (3.0, 4.0, -25.0)):
        yield (line,)
    for a in both_signs(near(math.sqrt(PL_EPS), 3)):
        yield ((a, 0.0, 1.0),)
        yield ((0.0, a, -1.0),)
    for c in AROUND_EPS:
        for b in AROUND_EPS:
            yield ((3.0, b, c),)
    for v in SPECIAL:
        yield ((v, 1.0, 1.0),)
        yield ((1.0, v, 1.0),)
        yield ((1.0, 1.0, v),)
    for size in SIZES:
        for _ in range(40):
            yield (draw.line(size),)


@cases("PlFunz_linepntperpend")
def perpendicular(draw):
    yield ((0.0, 1.0, -2.0), (5.0, 7.0))
    yield ((0.0, 0.0, 0.0), (5.0, 7.0))
    for v in SPECIAL + [-0.0]:
        yield ((v, 1.0, 2.0), (3.0, 4.0))
        yield ((1.0, v, 2.0), (3.0, 4.0))
        yield ((1.0, 2.0, v), (3.0, 4.0))
        yield ((1.0, 2.0, 3.0), (v, 4.0))
    for size in SIZES:
        for _ in range(60):
            yield (draw.line(size), draw.point(size))


@cases("PlFunz_linepntparallel", "PlFunz_linepntparallel/inplace")
def parallel(draw):
    for line, p in perpendicular(draw):
        yield (p, line)


@cases("PlFunz_ordinate_ile")
def ordinate(draw):
    for x in (0.0, 5.0, -0.0, 1e300):
        yield ((1.0, 0.0, -3.0), x)
    for b in AROUND_EPS + both_signs(near(PL_EPS, 3)):
        yield ((1.0, b, -3.0), 2.0)
        yield ((0.0, b, 0.0), 2.0)
    for v in SPECIAL:
        yield ((v, 1.0, 2.0), 3.0)
        yield ((1.0, v, 2.0), 3.0)
        yield ((1.0, 2.0, v), 3.0)
        yield ((1.0, 2.0, 3.0), v)
    for size in SIZES:
        for _ in range(50):
            yield (draw.line(size), draw.coordinate(size))


@cases("PlFunz_abscissa_ile")
def abscissa(draw):
    for (a, b, c), at in ordinate(draw):
        yield ((b, a, c), at)


# Intersections ---------------------------------------------------------------------------------------


@cases("PlFunz_intersect_ile", "CalcoloIntersezioneRette/ile")
def two_lines(draw):
    yield ((1.0, 0.0, -1.0), (0.0, 1.0, -2.0))
    yield ((1.0, 0.0, -1.0), (1.0, 0.0, -1.0))
    yield ((1.0, 2.0, 3.0), (2.0, 4.0, 6.0))
    yield ((0.0, 0.0, 0.0), (1.0, 2.0, 3.0))
    for d in AROUND_EPS + both_signs(near(PL_EPS, 3)):
        yield ((1.0, 0.0, -1.0), (0.0, d, -2.0))            # determinant d
        yield ((0.0, 1000.0, 1.0), (d, 1000.0, 1.0))        # a alone apart
        yield ((1000.0, 0.0, 1.0), (1000.0, d, 1.0))        # b alone apart
        yield ((0.0, 1000.0, 0.0), (9e-8, 1000.0, d))       # c decides, a and b alike
        yield ((0.0, 1000.0, 0.0), (9e-8, 1000.0 + 9e-8, d))
    for v in SPECIAL:
        yield ((v, 1.0, 2.0), (3.0, -4.0, 5.0))
        yield ((1.0, 2.0, 3.0), (4.0, v, 5.0))
        yield ((1.0, 2.0, v), (4.0, -5.0, 6.0))
        yield ((v, v, v), (v, v, v))
    for size in SIZES:
        for _ in range(45):
            yield (draw.line(size), draw.line(size))


@cases("PlFunz_intersect_ils")
def line_and_segment(draw):
    yield ((1.0, -1.0, 0.0), ((2.0, 2.0), (2.0, 2.0)))
    yield ((1.0, -1.0, 1e-12), ((2.0, 2.0), (2.0, 2.0)))
    yield ((0.0, 1.0, 0.0), ((0.0, 1.0), (1.0, 2.0)))
    yield ((0.0, 1.0, 0.0), ((0.0, 0.0), (1.0, 0.0)))
    yield ((1.0, -1.0, 0.0), ((2.0, 2.0), (2.0 + 9e-8, 2.0)))
    yield ((0.0, -0.0, 0.0), ((2.0, 2.0), (2.0, 2.0)))
    for c in near(-7.0) + [7.0, 0.0]:                       # the degenerate segment is exact, or nothing
        yield ((1.0, 1.0, c), ((2.0, 5.0), (2.0, 5.0)))
        yield ((-1.0, -1.0, -c), ((2.0, 5.0), (2.0 - 5e-8, 5.0 + 5e-8)))
    upright = both_signs([0.0, 1e-7, 0.25]) + [1.0]
    for c in upright + near(-1e-7, 3) + near(ONE_UP, 3) + near(1.0) + [2.0, -1.0]:
        for seg in (((0.0, 0.0), (1.0, 0.0)), ((1.0, 0.0), (0.0, 0.0)), ((0.0, 0.0), (1.0, 1.0))):
            yield ((1.0, 0.0, -c), seg)                     # the line x = c
            yield ((0.0, 1.0, -c), tuple(p[::-1] for p in seg))
    for d in both_signs(near(PL_EPS)):
        yield ((1.0, 0.0, -5.0), ((5.0, 5.0), (5.0 + d, 5.0)))
        yield ((1.0, 0.0, 0.0), ((0.0, 5.0), (d, 5.0)))
    for v in SPECIAL:
        yield ((v, 1.0, 2.0), ((0.0, -3.0), (1.0, 4.0)))
        yield ((1.0, 1.0, v), ((0.0, -3.0), (1.0, 4.0)))
        yield ((1.0, 1.0, -2.0), ((v, -3.0), (1.0, 4.0)))
    for size in SIZES:
        for _ in range(35):
            yield (draw.line(size), draw.segment(size))
        for _ in range(20):  # a line that is sure to pass through the segment
            p, q = draw.segment(size)
            t = draw.between(-0.2, 1.2)
            m = (p[0] + t * (q[0] - p[0]), p[1] + t * (q[1] - p[1]))
            a, b = draw.between(-1.0, 1.0), draw.between(-1.0, 1.0)
            yield ((a, b, -(a * m[0] + b * m[1])), (p, q))


@cases("PlFunz_intersect_ls")
def two_segments(draw):
    def upright(x, low=-1.0, high=1.0):
        return ((x, low), (x, high))

    flat = ((0.0, 0.0), (1.0, 0.0))
    yield (((0.0, 0.0), (2.0, 0.0)), upright(1.0))
    yield (flat, ((1.0, 0.0), (1.0, 1.0)))
    yield (flat, upright(1.00000015))
    yield (flat, upright(-1.5e-7))
    yield (flat, ((0.5, 0.0), (2.0, 0.0)))
    yield (flat, flat)
    yield (((0.0, 2.0), (1.0, 4.0)), ((-1.0, 3.0), (1.0000001, 3.0)))
    yield (((5e-8, 2.0), (5e-8, 4.0)), ((-1.0, 3.0), (1.0, 3.0)))
    for x in near(-PL_EPS, 2) + near(ONE_UP, 2) + near(1.0) + near(0.0) + near(PL_EPS, 2):
        yield (flat, upright(x))                                  # parameter on the first
        yield (upright(x), flat)                                  # parameter on the second
        yield (flat, ((0.5, -x), (0.5, 1.0 - x)))
        yield (flat[::-1], upright(x))
        yield (upright(x, 2.0, 4.0), ((-1.0, 3.0), (2.0, 3.0)))   # snapped, or not
    for k in both_signs(near(PL_EPS, 3)):
        yield (flat, ((0.5, -k * 0.5), (0.5, k * 0.5)))           # determinant
        yield (flat, ((0.0, 0.0), (0.5, k)))
    for v in SPECIAL:
        yield (flat, upright(v))
        yield (((0.0, v), (1.0, 0.0)), upright(0.5))
    for size in SIZES:
        for _ in range(50):
            p, q = draw.segment(size)
            yield ((p, q), (draw.beside(p, size), draw.beside(q, size)))


# Distance and collinearity ---------------------------------------------------------------------------


@cases("PlFunz_distpntln_ls")
def distance_from_line(draw):
    base = ((0.0, 0.0), (10.0, 0.0))
    for p in ((0.0, 5.0), (0.0, -5.0), (20.0, 5.0), (3.0, 0.0)):
        yield (p, base)
        yield (p, base[::-1])
    yield ((0.0, 0.0), ((0.0, 2.0), (10.0, 2.0)))
    yield ((0.0, 3.0), ((0.0, 2.0), (10.0, 2.0)))
    yield ((4.0, 5.0), ((1.0, 1.0), (1.0, 1.0)))
    for dx in (0.0, 5e-8) + tuple(both_signs(near(PL_EPS))):
        for dy in (0.0, 5e-8) + tuple(both_signs(near(PL_EPS))):
            yield ((3.0, 4.0), ((0.0, 0.0), (dx, dy)))
    for length in near(math.sqrt(PL_EPS), 2):       # too short for the normal form, not for a direction
        yield ((3.0, 4.0), ((0.0, 0.0), (length, 0.0)))
        yield ((3.0, 4.0), ((0.0, 1.0), (0.0, 1.0 + length)))
    for v in SPECIAL:
        yield ((v, 1.0), base)
        yield ((1.0, 2.0), ((0.0, v), (3.0, 4.0)))
    for size in SIZES:
        for _ in range(45):
            seg = draw.segment(size)
            yield (draw.beside(seg[0], size), seg)


HALF_TURN_SHORT = 3.1415926535892
LEFT_OUT = math.pi - HALF_TURN_SHORT  # 6e-13: what the short half turn leaves in a folded direction


def _beside_the_short_half_turn(o):
    """Rows that a full pi would answer otherwise: a third of that difference from the edge."""
    for deg in (30.0, 45.0, 60.0):
        a = math.radians(deg)
        for edge in (tol(a) - LEFT_OUT, -tol(a) - LEFT_OUT):
            for turn in (edge - LEFT_OUT / 3.0, edge + LEFT_OUT / 3.0):
                p = (round(math.cos(a), 15), round(math.sin(a), 15))
                q = (round(-math.cos(a + turn), 15), round(-math.sin(a + turn), 15))
                yield (o, q, p)
    edge = tol(HALF_TURN_SHORT) + LEFT_OUT
    for dy in (edge - LEFT_OUT / 3.0, edge + LEFT_OUT / 3.0, edge - 2.0 * LEFT_OUT):
        yield (o, (-1.0, dy), (-1.0, 5e-7))
        yield (o, (-1.0, 5e-7), (-1.0, dy))


@cases("PlFunz_pnts_in_line")
def collinear(draw):
    o = (0.0, 0.0)
    yield (o, (1.0, 1.0), (-2.0, -2.0))
    yield (o, (1.0, 1.0), (2.0, 2.0000001))
    yield (o, (1.0, -1e-6), (1.0, 0.0))
    yield (o, (1.0, 0.0), (1.0, -1e-6))
    yield (o, o, (-3.0, 0.0))
    yield (o, o, (0.0, 3.0))
    yield (o, (0.0, 3.0), o)
    axes = ((1.0, 0.0), (0.0, 1.0), (-1.0, 0.0), (0.0, -1.0), (1.0, 1.0), (-1.0, 1.0), (-1.0, -1.0),
            (1.0, -1.0))
    for p in axes:
        for q in axes:
            yield (o, p, q)
    for dy in both_signs([4.1e-7, 4.2e-7, 5e-8, 9.9e-8, 1.01e-7, 1e-6]):  # where half a turn is folded
        yield (o, (-1.0, dy), (1.0, 0.0))
        yield (o, (1.0, 0.0), (-1.0, dy))
    for turn in (0.3, 0.9, 0.99, 1.01, 1.5):  # the margin grows with the second direction
        for deg in (20.0, 70.0, 110.0, 160.0, 200.0, 290.0):
            a = math.radians(deg)
            b = a + turn * tol(a if a < math.pi else a - math.pi)
            p = (round(math.cos(a), 12), round(math.sin(a), 12))
            q = (round(100.0 * math.cos(b), 12), round(100.0 * math.sin(b), 12))
            yield (o, p, q)
            yield (o, q, p)
    yield from _beside_the_short_half_turn(o)
    for v in (INF, -INF, NAN):
        yield (o, (v, 1.0), (1.0, 1.0))
        yield (o, (1.0, 1.0), (1.0, v))
    for size in SIZES:
        for _ in range(20):
            p, q = draw.segment(size)
            t = draw.between(-3.0, 3.0)
            yield (p, q, (p[0] + t * (q[0] - p[0]), p[1] + t * (q[1] - p[1])))
            yield (p, q, draw.beside(p, size))
