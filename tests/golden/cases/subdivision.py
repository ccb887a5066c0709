"""Parcels to divide.

A request is (parcel, first side point, second side point, mode, kind of area, value, value).
"""

import math

from .common import INF, NAN, SIZES, cases, near

PARALLEL, PERPENDICULAR, THROUGH_VERTEX = 0, 1, 2
MODES = (PARALLEL, PERPENDICULAR, THROUGH_VERTEX)

O = (0.0, 0.0)
RECTANGLE = [O, (100.0, 0.0), (100.0, 50.0), (0.0, 50.0)]
TRIANGLE = [O, (60.0, 0.0), (10.0, 40.0)]
L_SHAPE = [O, (80.0, 0.0), (80.0, 20.0), (30.0, 20.0), (30.0, 70.0), (0.0, 70.0)]
U_SHAPE = [O, (90.0, 0.0), (90.0, 60.0), (60.0, 60.0), (60.0, 20.0), (30.0, 20.0), (30.0, 60.0), (0.0, 60.0)]
COMB = [O, (70.0, 0.0), (70.0, 30.0), (60.0, 10.0), (50.0, 30.0), (40.0, 10.0), (30.0, 30.0), (20.0, 10.0),
        (10.0, 30.0), (0.0, 10.0)]
ON_A_SIDE = [O, (50.0, 0.0), (100.0, 0.0), (100.0, 50.0), (40.0, 50.0), (0.0, 50.0)]   # collinear vertices
TWICE = [O, (100.0, 0.0), (100.0, 0.0), (100.0, 50.0), (0.0, 50.0), (0.0, 50.0)]       # repeated vertices
CLOSED = RECTANGLE + [O]                                                               # first one repeated
SLOPING = [(3.0, 4.0), (83.0, 24.0), (71.0, 72.0), (-9.0, 52.0)]

BOW_TIE = [O, (60.0, 60.0), (60.0, 0.0), (0.0, 60.0)]                                  # its signed area is 0
NOTCH = [O, (100.0, -50.0), (100.0, 50.0), (-100.0, 50.0), (-100.0, -50.0)]            # alike either way from 0

# Rectangles of height 2: the first line that is tried halves them, and (width - area) / area is 1e-6 to the
# last bit, on the bound that has to be undercut. Found by trial.
EXACTLY_1E6_OFF = [(float.fromhex("0x1.036651p+6"), float.fromhex("0x1.03664p+6")),
                   (float.fromhex("0x1.0736e14p+6"), float.fromhex("0x1.0736dp+6")),
                   (float.fromhex("0x1.0b07718p+6"), float.fromhex("0x1.0b076p+6"))]

SHAPES = (RECTANGLE, TRIANGLE, L_SHAPE, U_SHAPE, COMB, ON_A_SIDE, TWICE, CLOSED, SLOPING)


def _area(ring):
    n = len(ring)
    return abs(sum((ring[i - 1][0] - ring[(i + 1) % n][0]) * ring[i][1] for i in range(n))) / 2.0


def _at_side(parcel, k, mode, area, kind=1, other=0.0):
    return (parcel, parcel[k], parcel[(k + 1) % len(parcel)], mode, kind, area, other)


def _convex(draw, corners, middle, reach):
    """Corners on an ellipse, to the millimetre, so that the ring is convex but for the rounding."""
    flat = draw.between(0.3, 1.0)
    turns = sorted(draw.between(0.0, 1.0) for _ in range(corners))
    return [(round(middle[0] + reach * math.cos(6.283185307179586 * t), 3),
             round(middle[1] + flat * reach * math.sin(6.283185307179586 * t), 3)) for t in turns]


def _parcel(draw, size):
    kind = draw.integer(0, 5)
    middle = draw.point(size)
    reach = 150.0 if size == "site" else (300.0 if size == "utm" else 2.0)
    if kind < 2:
        ring = _convex(draw, draw.pick([3, 4, 5, 6, 8, 12, 20, 40]), middle, reach)
    elif kind == 2:
        shape = draw.pick(SHAPES)
        scale = reach / 100.0
        ring = [(round(middle[0] + scale * x, 3), round(middle[1] + scale * y, 3)) for x, y in shape]
    else:
        ring = draw.ring(size, draw.integer(3, 12))
    return ring[::-1] if draw.chance(0.5) else ring


def _chosen():
    rect, back = RECTANGLE, RECTANGLE[::-1]
    for mode in MODES:
        for area in (1000.0, 4000.0, 2500.0, 5000.0, 6000.0, 0.0, -5.0, 1e-3, 4999.999):
            yield _at_side(rect, 0, mode, area)
            yield _at_side(back, 0, mode, area)
        yield _at_side(rect, 0, mode, 20.0, 0, 30.0)             # 600 as a product
        yield _at_side(rect, 0, mode, 600.0, 1, 7.0)             # and alone
        for kind in (2, -1, 7):                                  # no request: it stays at zero
            yield _at_side(rect, 0, mode, 1000.0, kind, 2.0)
        yield (rect, (100.0, 0.0), O, mode, 1, 1000.0, 0.0)      # the side against the ring
        yield (rect, O, (100.0, 50.0), mode, 1, 1000.0, 0.0)     # two vertices, no side
        yield (rect, O, (100.0, 1e-12), mode, 1, 1000.0, 0.0)    # off in the last bit
        yield (rect, (-0.0, -0.0), (100.0, -0.0), mode, 1, 1000.0, 0.0)
        yield (rect, (7.0, 7.0), (100.0, 0.0), mode, 1, 1000.0, 0.0)
        yield (rect, O, (9.0, 9.0), mode, 1, 1000.0, 0.0)        # second point: no effect through a vertex
        for k in range(4):
            yield _at_side(rect, k, mode, 1250.0)
            yield _at_side(back, k, mode, 1250.0)
        for parcel in ([], [O], [(3.0, 4.0)], [O, (10.0, 0.0)], [(1.0, 2.0), (1.0, 2.0)],
                       [(1.0, 2.0), (4.0, 6.0)]):
            for area in (1.0, 0.0):
                first = parcel[0] if parcel else O
                second = parcel[1 % len(parcel)] if parcel else O
                yield (parcel, first, second, mode, 1, area, 0.0)
        for shape in SHAPES:
            whole = _area(shape)
            for k in (0, 1, len(shape) - 2, len(shape) - 1):
                for share in (0.2, 0.5, 0.85):
                    ring = shape if share != 0.5 else shape[::-1]
                    yield _at_side(ring, k, mode, whole * share)
        for share in (0.05, 0.15, 0.3, 0.45, 0.6, 0.8):
            yield _at_side(NOTCH, 0, mode, _area(NOTCH) * share)
            yield _at_side(NOTCH[::-1], 4, mode, _area(NOTCH) * share)
            yield _at_side(BOW_TIE, 0, mode, 900.0 * share)
            yield _at_side(BOW_TIE[::-1], 1, mode, 900.0 * share)
        for line in ([O, (10.0, 0.0), (-10.0, 0.0)], [O, (-20.0, -10.0), (10.0, 5.0)]):   # nothing to cut
            yield _at_side(line, 0, mode, 0.0)
            yield _at_side(line, 1, mode, 1.0)
        for slant in (1e-3, -1e-3, 1e-6, -1e-6, 1e-8, 0.5, -0.5):   # the side's normal beside +x: 0 or 400 gons
            for x, y in (O, (1000.0, 2000.0), (5e5, 5e6)):
                leaning = [(x, y), (x + 100.0, y), (x + 100.0, y + 50.0), (x + slant, y + 50.0)]
                yield _at_side(leaning, 3, mode, 1000.0)
        for v in (INF, -INF, NAN):
            yield _at_side([O, (100.0, 0.0), (100.0, v), (0.0, 50.0)], 0, mode, 1000.0)
            yield _at_side([O, (100.0, 0.0), (v, 50.0), (0.0, 50.0)], 0, mode, 1000.0)
            yield _at_side(rect, 0, mode, v)
        yield _at_side([O, (1e200, 0.0), (1e200, 1e200), (0.0, 1e200)], 0, mode, 1e100)
    for width, area in EXACTLY_1E6_OFF:
        for target in near(area):
            yield _at_side([O, (width, 0.0), (width, 2.0), (0.0, 2.0)], 0, PARALLEL, target)
    for mode in (3, -1, 77, 2147483647, -2147483648):
        yield _at_side(rect, 0, mode, 1000.0)


def _drawn(draw, each):
    for size in SIZES:
        for mode in MODES:
            for _ in range(each):
                parcel = _parcel(draw, size)
                whole = _area(parcel)
                share = draw.pick([draw.between(0.02, 0.98), 0.5, 0.25, 1.0, 1.3])
                k = draw.integer(0, len(parcel) - 1)
                if draw.chance(0.3):
                    yield _at_side(parcel, k, mode, whole * share / 10.0, 0, 10.0)
                else:
                    yield _at_side(parcel, k, mode, round(whole * share, 2))


@cases("CFrazArea")
def division(draw):
    yield from _chosen()
    yield from _drawn(draw, 60)


@cases("CFrazArea/again")
def second_answer(draw):
    for mode in MODES:
        for shape in SHAPES:
            yield _at_side(shape, 0, mode, _area(shape) * 0.3)
            yield _at_side(shape[::-1], 1, mode, _area(shape) * 0.7)
        for kind in (0, 2):
            yield _at_side(RECTANGLE, 0, mode, 40.0, kind, 50.0)
        yield (RECTANGLE, (7.0, 7.0), O, mode, 1, 1000.0, 0.0)
        yield _at_side(RECTANGLE, 0, mode, 6000.0)
        yield _at_side(RECTANGLE, 0, mode, 0.0)
    yield from _drawn(draw, 5)


@cases("CFrazArea/copy")
def answer_of_a_copy(draw):
    for mode in MODES + (5,):
        for shape in (RECTANGLE, TRIANGLE, U_SHAPE):
            yield _at_side(shape, 0, mode, _area(shape) * 0.4)
    yield from _drawn(draw, 5)
