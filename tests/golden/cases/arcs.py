"""Arc angle, arcs, distance from an arc, its rectangle, arc and segment, point in polygon."""

import math

from reference.arcs import walk_repeats

from .common import (AROUND_EPS, INF, NAN, PL_EPS, SIZES, SPECIAL, both_signs, cases, near, tol)

PI = 3.141592653589793
HALF_PI = 1.5707963267948966
TWO_PI = 6.283185307179586
RADIANS, DEGREES, PSEUDO_ANGLE = 0, 1, 2
QUARTER = {RADIANS: HALF_PI, DEGREES: 90.0, PSEUDO_ANGLE: 1.0}
O = (0.0, 0.0)


def _starts_at(theta, steps=2):
    """Start angles whose lower margin ends on, or beside, theta."""
    return near((theta + PL_EPS) / (1.0 - PL_EPS), steps)


def _ends_at(theta, steps=2):
    """End angles whose upper margin ends on, or beside, theta."""
    return near((theta - PL_EPS) / (1.0 + PL_EPS), steps)


def _arc(draw, size, angle_type=None):
    centre = draw.point(size)
    if angle_type is None:
        angle_type = draw.pick([RADIANS, DEGREES, PSEUDO_ANGLE, RADIANS, DEGREES, 5])
    turn = 4.0 * QUARTER.get(angle_type, 1.0)
    start, end = draw.between(0.0, turn), draw.between(0.0, turn)
    if draw.chance(0.2):
        start = turn * 0.25 * draw.integer(0, 3)
    if draw.chance(0.2):
        end = turn * 0.25 * draw.integer(0, 3)
    return (centre, abs(draw.length(size)), angle_type, start, end)


# Arc angle -------------------------------------------------------------------------------------------


@cases("PlFunz_arcangle")
def arc_angle(draw):
    rows = ((1.0, 1.0), (0.0, 2.0), (-2.0, 0.0), (0.0, -2.0), (-1.0, -1.0), (1.0, -1.0), (-1.0, 1.0),
            (2.0, 0.0), (1e-7, 1e-7), (5.0, 5e-8), (-1e-6, 5.0), (1.0, -1e-7), (1e-6, -1e-7))
    for unit in (0, 1, 2):
        for p in rows:
            yield (unit, O, p)
        for dx in AROUND_EPS:
            for dy in AROUND_EPS:
                yield (unit, O, (dx, dy))
        for dx in both_signs([3.0]):       # the half tangent of a slope at the tolerance
            for slope in both_signs(near(PL_EPS)):
                yield (unit, O, (dx, slope * dx))
                yield (unit, O, (slope * dx, dx))
    for unit in (7, -1, 3):
        for p in ((1.0, 1.0), (0.0, 2.0), (-2.0, 0.0), (1e-8, 0.0)):
            yield (unit, O, p)
    for unit in (0, 1, 2):
        for p in ((INF, 1.0), (1.0, INF), (-INF, -1.0), (NAN, 1.0), (NAN, -1.0), (1.0, NAN),
                  (-1.0, NAN), (1e-6, 1e300), (1e300, 1e300), (1.0, 1e200)):
            yield (unit, O, p)
    for size in SIZES:
        for _ in range(40):
            p = draw.point(size)
            yield (draw.integer(0, 2), p, draw.beside(p, size))


# Arc record ------------------------------------------------------------------------------------------


def _ends_alike():
    """Directions of two of the three points closer than the margin, to both sides, and a little apart."""
    def on_circle(angle):
        return (round(1000.0 * math.cos(angle), 9), round(1000.0 * math.sin(angle), 9))

    for a1 in (0.5, 2.0, 4.0):
        p1, far = on_circle(a1), on_circle(a1 + 2.5 if a1 < 3.0 else a1 - 2.5)
        for share in both_signs([0.3, 0.8, 1.2, 2.0]):
            beside = on_circle(a1 + share * tol(a1))
            yield (p1, far, beside)
            yield (p1, beside, far)
            yield (far, beside, p1)
    for apart in (50.0, 120.0, 250.0, 300.0):      # all three, on a circle of 1e9
        p2, p3 = (apart / 2.0, apart * apart / 8e9), (apart, 0.0)
        yield (O, p2, p3)
        yield (p3, p2, O)
        yield (p2, O, p3)
        yield (O, (p2[0], -p2[1]), p3)


@cases("PlFunz_arc_3pnts")
def arc_through_three(draw):
    yield (O, (1.0, 1.0), (2.0, 0.0))
    yield ((2.0, 0.0), (1.0, 1.0), O)
    yield ((1.0, 0.0), (0.0, -1.0), (0.0, 1.0))
    yield (O, (1.0, 1.0), (2.0, 2.0))
    yield (O, O, (2.0, 0.0))
    yield (O, (1.0, 0.0), O)
    for d in both_signs(near(PL_EPS, 3)) + [0.0, 1e-6]:     # the determinant of the three points
        yield (O, (1.0, 0.0), (0.5, d))
        yield (O, (0.5, d), (1.0, 0.0))
    for v in both_signs(near(math.sqrt(PL_EPS) + 1e-12)):
        yield (O, (v, 0.0), (0.0, v))
    circle = [(5.0, 0.0), (3.0, 4.0), (0.0, 5.0), (-3.0, 4.0), (-5.0, 0.0), (-4.0, -3.0), (0.0, -5.0),
              (4.0, -3.0)]
    for i, p in enumerate(circle):
        for j, q in enumerate(circle):
            for k in range(0, 8, 3 if i % 2 else 2):
                if len({i, j, k}) == 3:
                    yield (p, q, circle[k])
    yield from _ends_alike()
    for v in SPECIAL:
        yield ((v, 0.0), (1.0, 1.0), (2.0, 0.0))
        yield (O, (1.0, 1.0), (2.0, v))
    for size in SIZES:
        for _ in range(40):
            p = draw.point(size)
            yield (p, draw.beside(p, size), draw.beside(p, size))


@cases("PlFunz_arc_end_pnts")
def arc_ends(draw):
    for angle_type in (0, 1, 2, 3, 7, -1):
        for start, end in ((0.0, PI), (90.0, 180.0), (1.0, 3.0), (-0.5, 3.5), (2.0, 0.0), (270.0, 360.0)):
            yield ((O, 1.0, angle_type, start, end),)
            yield (((10.0, 20.0), -5.0, angle_type, start, end),)
    for v in SPECIAL:
        yield (((1.0, v), 2.0, PSEUDO_ANGLE, 0.5, v),)
        yield (((1.0, 2.0), v, RADIANS, 0.0, 0.0),)
    for size in SIZES:
        for _ in range(50):
            yield (_arc(draw, size),)


# Distance from an arc --------------------------------------------------------------------------------


@cases("PlFunz_distpntarc")
def distance_from_arc(draw):
    for angle_type, quarter in QUARTER.items():
        first = (O, 1.0, angle_type, 0.0, quarter)
        wrapping = (O, 1.0, angle_type, 3.0 * quarter, quarter)
        for p in ((2.0, 0.0), (0.0, -2.0), (-1.0, -1.0), O, (0.5, 0.5), (0.0, 2.0), (-2.0, 0.0),
                  (2.0, -1e-9), (0.3, 0.0)):
            yield (first, p)
            yield (wrapping, p)
    yield ((O, 1.0, 7, 0.0, HALF_PI), (-1.0, -1.0))
    yield ((O, 1.0, 7, 0.0, HALF_PI), (2.0, 2.0))
    for p, theta in (((2.0, 2.0), math.sqrt(2.0) - 1.0), ((0.0, 2.0), 1.0), ((-3.0, 0.0), 2.0),
                     ((0.0, -2.0), 3.0)):
        for s in _starts_at(theta):
            yield ((O, 1.0, PSEUDO_ANGLE, s, 3.9), p)
            yield ((O, 1.0, PSEUDO_ANGLE, s, 0.1), p)
        for e in _ends_at(theta):
            yield ((O, 1.0, PSEUDO_ANGLE, 0.0, e), p)
            yield ((O, 1.0, PSEUDO_ANGLE, 3.9, e), p)
    for s in (0.5, 2.0):                     # sweep across zero, or not: the end below the start or beside
        for e in near(s - tol(s)) + [s]:
            yield ((O, 1.0, PSEUDO_ANGLE, s, e), (-1.0, -2.0))
            yield ((O, 1.0, PSEUDO_ANGLE, s, e), (3.0, 1.0))
    for dx in both_signs([5e-8, 7e-7, 7.2e-7, 7.25e-7, 7.4e-7]):   # nearer end, tie within the margin
        yield ((O, 1.0, PSEUDO_ANGLE, 0.0, 1.0), (-1.0 + dx, -1.0))
        yield ((O, 1.0, PSEUDO_ANGLE, 1.0, 0.0), (0.5, 0.5 + dx))
    for step in range(-12, 13):
        yield ((O, 1.0, PSEUDO_ANGLE, 0.0, 1.0), (0.0, -(2.0000004e-7 + step * 2.0 ** -53)))
    for v in (INF, -INF, NAN, 1e300):
        yield ((O, 1.0, PSEUDO_ANGLE, 0.0, 1.0), (v, 1.0))
        yield ((O, v, PSEUDO_ANGLE, 0.0, 1.0), (1.0, 1.0))
        yield ((O, 1.0, PSEUDO_ANGLE, v, 1.0), (-1.0, 1.0))
    for size in SIZES:
        for _ in range(50):
            arc = _arc(draw, size)
            yield (arc, draw.beside(arc[0], size))


# Rectangle of an arc ---------------------------------------------------------------------------------


@cases("PlFunz_arc_rect")
def arc_rectangle(draw):
    unit = (O, 1.0, RADIANS, 9.0, 9.0)       # the angles are not read
    points = ((1.0, 0.0), (0.8, 0.6), (0.6, 0.8), (0.0, 1.0), (-0.6, 0.8), (-0.8, 0.6), (-1.0, 0.0),
              (-0.8, -0.6), (-0.6, -0.8), (0.0, -1.0), (0.6, -0.8), (0.8, -0.6))
    for s in points:
        for e in points:
            yield (unit, s, e)
    for s in ((0.8, 0.6), (-0.6, 0.8)):       # upper half: start x against end x with its margin
        edge = (s[0] - PL_EPS) / (1.0 + PL_EPS) if s[0] > 0 else (s[0] - PL_EPS) / (1.0 - PL_EPS)
        for x in near(edge, 2):
            yield (unit, s, (x, s[1] + 1e-3))
    for y in near(0.6 - tol(0.6)) + near(0.6 + tol(0.6)) + near(0.6):
        yield (unit, (0.8, y), (0.3, 0.6))    # chord: the tolerant minimum and maximum of y
    for s in ((0.6, -0.8), (-0.8, -0.6)):     # lower half: end x against start x with its margin
        for x in near(s[0] + tol(s[0]), 2):
            yield (unit, s, (x, s[1] - 1e-3))
    for d in both_signs(near(PL_EPS)):        # the axes belong to a quadrant with their margin
        for e in ((-0.6, 0.8), (0.6, -0.8)):
            yield (unit, (1.0, d), e)
            yield (unit, (d, 1.0), e)
            yield (unit, e, (-1.0, d))
            yield (unit, e, (d, -1.0))
    yield (((3.0, 4.0), 0.0, RADIANS, 0.0, 1.0), (3.0, 4.0), (3.0, 4.0))
    for v in (INF, -INF, NAN, 1e300):
        yield (unit, (v, 0.5), (0.5, -0.5))
        yield ((O, v, RADIANS, 0.0, 0.0), (1.0, 0.0), (-1.0, 0.0))
    for size in SIZES:
        for _ in range(30):
            c = draw.point(size)
            arc = (c, abs(draw.length(size)), draw.integer(0, 2), 0.0, 1.0)
            yield (arc, draw.beside(c, size), draw.beside(c, size))


# Arc and segment -------------------------------------------------------------------------------------


DEG_PER_RAD_SHORT = 57.2957795131


def _level(y, x1=-2.0, x2=2.0):
    return ((x1, y), (x2, y))


def _pseudo_ends():
    """Pseudo-angles beside the axes, in the first turn and one turn on, as end and as start of an arc."""
    bounds = [PL_EPS]
    for axis in (1.0, 2.0, 3.0, 4.0):
        bounds += [axis - tol(axis), axis + tol(axis)]
        bounds += [4.0 + axis - tol(axis), 4.0 + axis + tol(axis), 4.0 + axis - 1.5e-7, 4.0 + axis + 1.5e-7]
    for bound in bounds:
        for angle in near(bound):
            for seg in (_level(0.5), _level(-0.5), _level(0.0, 0.5, 1.5)):
                yield ((O, 1.0, PSEUDO_ANGLE, 0.0, angle), seg)
                yield ((O, 1.0, PSEUDO_ANGLE, 3.0, angle), seg)
                yield ((O, 1.0, PSEUDO_ANGLE, angle, 3.5), seg)


def _box_diagonal():
    """No box holds a corner of the other: the two sides of the diagonal's ends decide, by a raw product.

    Powers of two keep the two side values exact; their product passes -1e-7 as y grows.
    """
    r, reach = 2.0 ** -6, 2.0 ** -5
    y = (r - math.sqrt(r * r - 4.0 * PL_EPS * 2.0 ** 8)) / 2.0
    for level in near(y, 5):
        yield ((O, r, PSEUDO_ANGLE, 0.0, 2.0), _level(level, -reach, reach))


@cases("PlFunz_intarcline_ls")
def arc_and_segment(draw):
    upper = (O, 1.0, RADIANS, 0.0, PI)
    upper_deg = (O, 1.0, DEGREES, 0.0, 180.0)
    upper_pseudo = (O, 1.0, PSEUDO_ANGLE, 0.0, 2.0)
    whole = (O, 1.0, RADIANS, 0.0, 0.0)
    right = (O, 1.0, DEGREES, 270.0, 90.0)

    for arc in (upper, upper_deg, upper_pseudo, (O, 1.0, 5, 0.0, 180.0), whole, right,
                (O, 1.0, DEGREES, 90.0, 0.0), (O, 1.0, PSEUDO_ANGLE, 3.0, 1.0)):
        for seg in (_level(0.5), _level(-0.5), _level(0.0), _level(0.0, 0.0), _level(1.0, -1.0, 1.0),
                    ((0.5, -0.1), (0.5, 0.1)), ((0.0, -2.0), (0.0, 2.0)), ((2.0, 2.0), (-2.0, -2.0)),
                    ((0.3, 0.3), (0.3 + 5e-8, 0.3)), ((0.1, 0.1), (0.9, 0.9)), _level(1.5),
                    ((-1.0, 0.0), (0.0, 1.0)), ((0.0, 0.0), (0.0, 1.0))):
            yield (arc, seg)

    for y in near(math.sqrt(1.0 - PL_EPS), 2) + near(math.sqrt(1.0 + PL_EPS), 2) + near(1.0):
        yield (upper_pseudo, _level(y))               # two points, a touch, none
        yield (upper_pseudo, _level(y, 2.0, -2.0))
    for x in near(1.0 - tol(1.0), 2) + near(1.0 + tol(1.0)) + near(1.0):
        yield (upper_pseudo, _level(0.0, 0.5, x))     # the segment ends at the circle
        yield (upper_pseudo, ((0.0, 0.5), (0.0, x)))
    for d in both_signs(near(PL_EPS)):
        yield (upper_pseudo, ((0.0, 1.0), (d, 1.0)))  # degenerate, or not
    for length in near(math.sqrt(PL_EPS), 2) + [1e-4, 4e-4]:
        yield (upper_pseudo, ((0.0, 1.0 - length / 2.0), (0.0, 1.0 + length / 2.0)))
        yield (upper_pseudo, ((0.0, 1.0), (length, 1.0)))

    touch = ((0.0, 0.5), (0.0, 1.5))                  # meets at 90 degrees exactly
    small = ((0.0, 0.1), (0.0, 0.5))                  # the same at a radius whose box lets the margin through
    across = ((0.0, -2.0), (0.0, 2.0))                # and with the point at 270 degrees as well
    for radius, seg in ((1.0, touch), (0.25, small), (1.0, across)):
        for s in _starts_at(90.0):
            yield ((O, radius, DEGREES, s, 200.0), seg)
            yield ((O, radius, DEGREES, s, 45.0), seg)
        for e in _ends_at(90.0):
            yield ((O, radius, DEGREES, 10.0, e), seg)
            yield ((O, radius, DEGREES, 300.0, e), seg)
    for s in (0.0, 30.0, 300.0):                      # a whole circle, or nearly
        for e in near(s + tol(s), 2) + near(s - tol(s), 2):
            yield ((O, 1.0, DEGREES, s, e), _level(0.3))
            yield ((O, 1.0, DEGREES, s, e), _level(0.3, 0.0))
    for deg in _starts_at(90.0, 0) + _ends_at(90.0, 0):   # the same in radians, whose factor is cut short
        for angle in near(deg / DEG_PER_RAD_SHORT, 3):
            yield ((O, 0.25, RADIANS, angle, 3.0), small)
            yield ((O, 0.25, RADIANS, 0.2, angle), small)
    yield from _pseudo_ends()
    yield from _box_diagonal()
    for k in both_signs(near(PL_EPS)):
        yield (upper_pseudo, ((-2.0, k), (2.0, k)))
        yield (upper_pseudo, ((-2.0, 1.0 + k), (2.0, 1.0 + k)))
    yield ((O, 0.0, PSEUDO_ANGLE, 0.0, 2.0), ((0.0, -1.0), (0.0, 1.0)))
    yield ((O, -1.0, PSEUDO_ANGLE, 0.0, 2.0), _level(0.5))
    yield ((O, -1.0, PSEUDO_ANGLE, 0.0, 2.0), _level(-0.5))
    for v in (INF, -INF, NAN, 1e300):
        yield (upper_pseudo, ((v, 0.5), (0.0, 0.5)))
        yield (upper_pseudo, ((0.0, 0.5), (0.0, v)))
        yield ((O, v, PSEUDO_ANGLE, 0.0, 2.0), _level(0.5))
        yield ((O, 1.0, PSEUDO_ANGLE, 0.0, v), _level(0.5))
        yield ((O, 1.0, DEGREES, 0.0, v), _level(0.5))

    for size in SIZES:
        for _ in range(70):
            arc = _arc(draw, size)
            p = draw.beside(arc[0], size)
            yield (arc, (p, draw.beside(arc[0], size)))
        for _ in range(40):  # long segments past a small arc: no corner of either box in the other
            arc = _arc(draw, size)
            (cx, cy), reach = arc[0], draw.reach(size)
            arc = (arc[0], 0.1 * arc[1] + 0.01 * reach) + arc[2:]
            dx, dy = draw.between(-reach, reach), draw.between(-reach, reach)
            off_x, off_y = draw.between(-1.2, 1.2) * arc[1], draw.between(-1.2, 1.2) * arc[1]
            yield (arc, ((cx + off_x - dx, cy + off_y - dy), (cx + off_x + dx, cy + off_y + dy)))


# Point in polygon ------------------------------------------------------------------------------------

_SQUARE = [(0.0, 0.0), (1.0, 0.0), (1.0, 1.0), (0.0, 1.0)]
_DIAMOND = [(1.0, 0.0), (2.0, 1.0), (1.0, 2.0), (0.0, 1.0)]
_STEPS = [(0.0, 0.0), (4.0, 0.0), (4.0, 1.0), (3.0, 1.0), (3.0, 2.0), (2.0, 2.0), (2.0, 3.0), (0.0, 3.0)]
_COMB = [(0.0, 0.0), (6.0, 0.0), (6.0, 3.0), (5.0, 1.0), (4.0, 3.0), (3.0, 1.0), (2.0, 3.0), (1.0, 1.0),
         (0.0, 3.0)]
_RUNS = [(0.0, 0.0), (1.0, 0.0), (2.0, 0.0), (3.0, 0.0), (3.0, 1.0), (3.0, 2.0), (2.0, 2.0), (1.0, 2.0),
         (0.0, 2.0), (0.0, 1.0)]


def _rotations(ring):
    return [ring[i:] + ring[:i] for i in range(len(ring))]


def _crossing_abscissas(py, ring):
    for (ax, ay), (bx, by) in zip(ring, ring[1:] + ring[:1]):
        if (ay > py) != (by > py):
            yield (bx - ax) * (py - ay) / (by - ay) + ax


def _endless_walks(draw, count):
    """Rings around which the walk comes back to where it was, found by trial."""
    while count > 0:
        p = (round(draw.between(0.0, 3.0), 2), float(draw.integer(0, 3)))
        ring = [(round(draw.between(0.0, 3.0), 2) if draw.chance(0.7) else float(draw.integer(0, 3)),
                 float(draw.integer(0, 3))) for _ in range(draw.integer(3, 8))]
        if walk_repeats(p, ring):
            count -= 1
            yield p, ring
            for on_edge in _crossing_abscissas(p[1], ring):     # where the plain count turns, to the bit
                for x in near(on_edge):
                    if walk_repeats((x, p[1]), ring):
                        yield (x, p[1]), ring


@cases("PlFunz_inpolygon")
def in_polygon(draw):
    for p in ((0.5, 0.5), (1.5, 0.5), (-0.5, 0.5), (0.5, 1.5), (0.5, 0.0), (0.0, 0.5), (1.0, 1.0), O,
              (1.0, 0.5), (0.5, 1.0), (-0.5, 0.0), (-0.5, 1.0)):
        for ring in (_SQUARE, _SQUARE[::-1]):
            yield (p, ring, 0)
    for ring in _rotations(_DIAMOND) + _rotations(_DIAMOND[::-1]):
        for p in ((0.5, 1.0), (0.5, 2.0), (0.5, 0.0), (2.5, 1.0), (-0.5, 1.0), (1.0, 1.0)):
            yield (p, ring, 0)
    for index in (1, 3, 2, -1, -5, 4, 99, 0):           # given index: trusted, or not in the array
        yield ((0.5, 1.0), _DIAMOND, index)
        yield ((1.0, 1.0), _SQUARE, index)
    for ring in ([], [O], [O, (1.0, 0.0)]):
        for index in (0, 1, 7):
            yield ((0.5, 0.0), ring, index)
    for ring in ([O, (1.0, 0.0), (2.0, 0.0)], [O, (0.0, 1.0), (0.0, 5e-8 + 3.0)], [O, O, O],
                 [O, (1.0, 5e-8), (2.0, -5e-8), (7.0, 0.0)]):
        yield ((0.5, 0.0), ring, 0)
        yield ((0.0, 0.5), ring, 0)
    for ring in (_STEPS, _COMB, _RUNS):
        for turned in _rotations(ring)[::3] + [ring[::-1]]:
            for px in (0.5, 2.5, 3.5):
                for py in (0.0, 0.5, 1.0, 2.0, 3.0):
                    yield ((px, py), turned, 0)
    ring = [(0.0, 0.0), (2.0, 1.0), (0.0, 2.0)]
    for y in near(1.0 - tol(1.0), 2) + near(1.0 + tol(1.0), 2) + near((1.0 - PL_EPS) / (1.0 + PL_EPS)):
        yield ((0.5, y), ring, 0)                       # the ray beside the vertex
        yield ((0.5, y), ring[1:] + ring[:1], 0)
    for x in near(2.0 - tol(2.0)) + near(2.0 + tol(2.0)) + near((2.0 + PL_EPS) / (1.0 - PL_EPS)):
        yield ((x, 1.0), ring, 0)                       # the point beside the vertex
        yield ((x, 1.0), ring[1:] + ring[:1], 0)
    for x in near(1.0 - tol(1.0)) + [1.0]:              # the last of nearly equal rightmost vertices
        yield ((0.5, 0.25), [O, (1.0, 0.0), (x, 1.0), (0.0, 1.0)], 0)
    for d in near(PL_EPS) + near(-PL_EPS):              # runs that merge, or not
        yield ((0.5, 0.0), [(0.0, -1.0), (1.0, 0.0), (2.0, d), (1.0, 1.0)], 0)
        yield ((-0.5, 0.0), [(0.0, -1.0), (1.0, 0.0), (2.0, d), (3.0, 0.0), (1.0, 1.0)], 0)
        yield ((-0.5, 0.5), [(-1.0, 0.0), (0.0, 0.0), (d, 1.0), (-1.0, 1.0)], 0)
    heights = [0.0, 0.0, 1.0, 2.0, 2.0] + near(1.0 - tol(1.0)) + near(1.0 + tol(1.0))
    heights += near((1.0 - PL_EPS) / (1.0 + PL_EPS)) + near((1.0 + PL_EPS) / (1.0 - PL_EPS))
    abscissas = [-1.0, 2.0, 3.0, 5.0] + near(0.5 - tol(0.5)) + near(0.5 + tol(0.5))
    for _ in range(400):  # every comparison of the walk on its edge
        ring = [(draw.pick(abscissas), draw.pick(heights)) for _ in range(draw.integer(3, 6))]
        yield ((0.5, 1.0), ring, 0)
    for p, ring in _endless_walks(draw, 60):
        yield (p, ring, 0)
    for x in near(-1.7e200 - tol(1.7e200)) + [-1.8e200]:
        yield ((x, 0.5), [(x, 0.0), (x, 1.0), (-1.8e200, 1.0), (x, 2.0)], 0)
    for v in (INF, -INF, NAN, 1e300):
        yield ((v, 0.5), _SQUARE, 0)
        yield ((0.5, v), _SQUARE, 0)
        yield ((0.5, 0.5), [O, (1.0, 0.0), (v, 1.0), (0.0, 1.0)], 0)
        yield ((0.5, 0.5), [O, (1.0, v), (1.0, 1.0), (0.0, 1.0)], 0)
        yield ((0.5, 0.5), [(v, v)] * 4, 0)
    for _ in range(400):  # rings on a coarse grid: many rays through vertices, runs, walks that return
        ring = [(float(draw.integer(0, 3)), float(draw.integer(0, 3))) for _ in range(draw.integer(3, 9))]
        yield ((draw.integer(-1, 7) * 0.5, draw.integer(0, 6) * 0.5), ring, draw.integer(0, 2))
    for size in SIZES:
        for _ in range(40):
            ring = draw.ring(size, draw.integer(3, 20), draw.chance(0.5))
            corner = draw.pick(ring)
            p = draw.beside(corner, size)
            yield (p if draw.chance(0.6) else (p[0], corner[1]), ring, 0)
