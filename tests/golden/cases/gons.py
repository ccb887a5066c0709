"""Gons: the bearing of a vector, the two reductions, the two components of a displacement."""

from .common import HUGE, INF, NAN, SIZES, SPECIAL, TINY, both_signs, cases, near


@cases("AngoloDaAsseRifer")
def bearing(draw):
    for a in both_signs([0.0, 1.0, 1e-300, TINY, 1e300, HUGE, INF]) + [NAN]:
        for b in both_signs([0.0, 1.0, 1e-300, TINY, 1e300, INF]) + [NAN]:
            yield (a, b)
    for a in (-4e-16, -5e-16, -8.9e-16, -1e-15, -2e-15):     # up to a full turn, or all the way
        yield (a, 1.0)
    for size in SIZES:
        for _ in range(25):
            p, q = draw.segment(size)
            yield (q[0] - p[0], q[1] - p[1])


_REDUCTION_EDGES = [0.0, 1e-10, 2e-10, 5e-11, 1e-7, 50.0, 100.0, 199.99999999995, 200.0, 300.0,
                    400.0 - 2e-10, 400.0, 400.0 + 1e-10, 500.0, 600.0, 800.0, 1000.0, 4e5, 4e5 + 0.25,
                    123456.789, 1e15, 1e300, TINY, 65536.0 * 400.0, 65537.0 * 400.0, HUGE, INF]


@cases("LimiteAng0_400", "LimiteAng200_200")
def reduction(draw):
    for v in both_signs(_REDUCTION_EDGES) + [NAN]:
        yield (v,)
    for v in (400.0 - 1e-10, 800.0 - 1e-10, 1e-10, 200.0, 400.0, 600.0, 100.0, 1e-14, 5e-324):
        for w in both_signs(near(v, 2)):
            yield (w,)
    for _ in range(60):
        yield (draw.between(-800.0, 1200.0),)
        yield (round(draw.between(-1000.0, 1000.0), 4),)


@cases("CalcCoordEst", "CalcCoordNord")
def component(draw):
    for distance in (5.0, -5.0, 0.0, -0.0):
        for quarter in range(-6, 10):
            yield (distance, 100.0 * quarter)
    for v in (100.0, 200.0, 300.0, 400.0, 1e-10):
        for bearing_gon in both_signs(near(v)):
            yield (10.0, bearing_gon)
    for bearing_gon in both_signs([TINY, 1e-20, 1e15, 1e300, INF]) + [NAN]:
        yield (10.0, bearing_gon)
    for distance in SPECIAL:
        yield (distance, 0.0)
        yield (distance, 150.0)
    for size in SIZES:
        for _ in range(35):
            yield (draw.coordinate(size), draw.between(-500.0, 900.0))
