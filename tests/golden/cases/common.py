"""What the case modules share: the registry, the seeded source of numbers, neighbours of a constant."""

import math
import random

CASES = {}

PL_EPS = 1e-7
INF = math.inf
NAN = math.nan
HUGE = 1.7976931348623157e308
TINY = 5e-324
SPECIAL = [INF, -INF, NAN, 1e300, -1e300, HUGE, TINY, -TINY]

SIZES = ("unit", "site", "utm")


def cases(*names):
    """Registers a function of one Draw; each name gets the same recipe with its own seed."""
    def register(function):
        for name in names:
            CASES[name] = lambda name=name: function(Draw(name))
        return function
    return register


def tol(r):
    return PL_EPS * (abs(r) + 1.0)


def near(v, steps=1):
    """v between its neighbours, `steps` to each side."""
    below, above = [], []
    lo = hi = v
    for _ in range(steps):
        lo = math.nextafter(lo, -INF)
        hi = math.nextafter(hi, INF)
        below.insert(0, lo)
        above.append(hi)
    return below + [v] + above


def both_signs(values):
    return list(values) + [-v for v in values]


# Differences that the absolute tolerance judges: zeros, just inside, on, just outside, clearly apart.
AROUND_EPS = [0.0, -0.0] + both_signs(near(PL_EPS) + [5e-8, 1.0])


class Draw:
    """Numbers from a seed that is the name of the call, so that no family disturbs another.

    Only `random.random` is used: its sequence for a seed is the same in every Python since 3.2.
    """

    salt = ""  # make.py --extra sets another one

    def __init__(self, name):
        self._random = random.Random("plcalc golden vectors: " + name + self.salt)

    def between(self, low, high):
        return low + (high - low) * self._random.random()

    def integer(self, low, high):
        """low..high, both included"""
        return low + int(self._random.random() * (high - low + 1))

    def pick(self, values):
        return values[self.integer(0, len(values) - 1)]

    def chance(self, share):
        return self._random.random() < share

    def bits(self):
        """Any magnitude, either sign."""
        return math.ldexp(self.between(-1.0, 1.0), self.integer(-60, 60))

    # Coordinates as they come in: whole, to the millimetre, or with all their bits.

    def _graded(self, v):
        grade = self.integer(0, 3)
        if grade == 0:
            return float(round(v))
        return v if grade == 1 else round(v, grade)

    def coordinate(self, size, axis=0):
        if size == "unit":
            return self._graded(self.between(-2.0, 2.0))
        if size == "site":
            return self._graded(self.between(100.0, 2000.0))
        centre = 5e5 if axis == 0 else 5e6
        return self._graded(centre + self.between(-20000.0, 20000.0))

    def point(self, size):
        return (self.coordinate(size, 0), self.coordinate(size, 1))

    def reach(self, size):
        """A usual distance beside coordinates of this size."""
        return {"unit": 1.0, "site": 300.0, "utm": 500.0}[size]

    def beside(self, p, size):
        """A point within reach of p."""
        r = self.reach(size)
        return (self._graded(p[0] + self.between(-r, r)), self._graded(p[1] + self.between(-r, r)))

    def length(self, size):
        return self._graded(self.between(-1.0, 1.0) * self.reach(size))

    def line(self, size):
        """The line through two points of this size, not normalised."""
        p = self.point(size)
        q = self.beside(p, size)
        return (p[1] - q[1], q[0] - p[0], p[0] * q[1] - p[1] * q[0])

    def segment(self, size):
        p = self.point(size)
        return (p, self.beside(p, size))

    def value(self):
        """Anything a double can hold that a caller might hand over."""
        kind = self.integer(0, 9)
        if kind < 6:
            return self.coordinate(SIZES[kind % 3], kind // 3)
        if kind == 6:
            return self.pick(AROUND_EPS)
        if kind == 7:
            return self.pick(SPECIAL)
        return self.bits()

    def ring(self, size, corners, clockwise=False):
        """A star-shaped ring around a point, corners to the millimetre or finer."""
        cx, cy = self.point(size)
        reach = self.reach(size)
        turns = sorted(self.between(0.0, 1.0) for _ in range(corners))
        points = []
        for t in turns:
            r = reach * self.between(0.3, 1.0)
            x = round(cx + r * math.cos(6.283185307179586 * t), 3)
            y = round(cy + r * math.sin(6.283185307179586 * t), 3)
            points.append((x, y))
        return points[::-1] if clockwise else points
