"""CFrazArea: the line that cuts a requested area off a parcel."""

from .gons import AngoloDaAsseRifer, LimiteAng0_400, LimiteAng200_200
from .lines import (NO_LINE, NO_POINT, PlFunz_intersect_ile, PlFunz_lineeq_ile, PlFunz_linepntparallel,
                    PlFunz_linepntperpend)
from .machine import cos, div, sin, sqrt
from .survey import CalcDistPuntoDaRetta, IntersezLineaInSegmOK

AREA_REL_TOL = 1e-6
MAX_OFFSET_STEPS = 30
MAX_ANGLE_STEPS = 50  # the counter starts at one, so 49 wedges at most
BAND_GON = 1.0
RAD_PER_GON_SHORT = 0.01570796327  # cut short on purpose
WEDGE_START_MARGIN = -1e-10
WEDGE_WIDENING = 1.0000000001


def _same(p, q):
    return p[0] == q[0] and p[1] == q[1]


def _midpoint(p, q):
    return ((p[0] + q[0]) * 0.5, (p[1] + q[1]) * 0.5)


def _dist(a, b):
    dy = a[1] - b[1]
    dx = a[0] - b[0]
    return sqrt(dy * dy + dx * dx)


def _signed_area(count, points):
    total = 0.0
    for i in range(count):
        before = points[i - 1 if i > 0 else count - 1]
        after = points[i + 1 if i + 1 < count else 0]
        total = total + (before[0] - after[0]) * points[i][1] * 0.5
    return total


def _area(count, points):
    return abs(_signed_area(count, points))


class CFrazArea:
    def __init__(self, parcel, side1, side2, mode, area_kind, value1, value2):
        self.parcel = parcel
        self.side1 = side1
        self.side2 = side2
        self.mode = mode
        self.area_kind = area_kind
        self.value1 = value1
        self.value2 = value2
        self.result1 = NO_POINT
        self.result2 = NO_POINT
        self.chord_middle = NO_POINT
        self.vertex = NO_POINT
        self.crossings = 0
        self.found = False
        self.count = 0
        self.first = 0
        self.offset = 0.0
        self.offset_dir = 0.0
        self.partial_area = 0.0
        self.target = 0.0
        self.wedge_start = 0.0
        self.wedge_width = 0.0
        self.base_line = NO_LINE
        self.moving_line = NO_LINE
        self.ray_line = NO_LINE
        self.polygon = []
        self.partial = []
        self.order = []

    def copy(self):
        other = CFrazArea.__new__(CFrazArea)
        other.__dict__.update(self.__dict__)
        other.polygon = list(self.polygon)
        other.partial = list(self.partial)
        other.order = list(self.order)
        return other

    def Esegui(self):
        """(done, x1, y1, z1, x2, y2, z2)"""
        self.count = len(self.parcel)
        self.polygon = list(self.parcel) + [self.parcel[0] if self.parcel else NO_POINT]
        self.order = [0] * (self.count + 1)
        if self.area_kind == 0:
            self.target = self.value2 * self.value1
        elif self.area_kind == 1:
            self.target = self.value1

        if self.mode == 0:
            done = self._parallel()
        elif self.mode == 1:
            done = self._perpendicular()
        elif self.mode == 2:
            done = self._through_vertex()
        else:
            done = False
        return (done, self.result1[0], self.result1[1], 0.0, self.result2[0], self.result2[1], 0.0)

    # Shared by the three cuts ------------------------------------------------------------------------

    def _find_side(self):
        for k in range(self.count):
            if _same(self.polygon[k], self.side1) and _same(self.polygon[k + 1], self.side2):
                return k
        return -1

    def _at(self, j):
        return self.polygon[self.order[j]]

    def _rotate_from(self, k):
        self.order = [(k + j) % self.count for j in range(self.count + 1)]

    def _extend_chord(self, r1, r2, p):
        """The two outermost crossings so far."""
        self.crossings += 1
        if self.crossings == 1:
            r1 = p
        elif self.crossings == 2:
            r2 = p
        elif _dist(self.chord_middle, p) > _dist(self.chord_middle, r1):
            if _dist(r1, p) < _dist(r2, p):
                r1 = p
            else:
                r2 = p
        if self.crossings >= 2:
            self.chord_middle = _midpoint(r1, r2)
        return r1, r2

    def _area_on_base_side(self, r1, r2):
        """Area between the reference side and the moving line; returns the ends of the chord."""
        self.crossings = 0
        self.partial = [self.polygon[self.first], self.polygon[(self.first + 1) % self.count]]
        for j in range(1, self.count):
            a = self._at(j)
            b = self._at(j + 1)
            met, p = IntersezLineaInSegmOK(a, b, self.moving_line, NO_POINT)
            if met:
                self.partial.append(p)
                r1, r2 = self._extend_chord(r1, r2, p)
            b_offset, b_dir = CalcDistPuntoDaRetta(self.base_line, b)
            beyond = (b_offset > self.offset and b_dir >= self.offset_dir - BAND_GON
                      and b_dir <= self.offset_dir + BAND_GON)
            if not beyond:
                self.partial.append(b)
        self.partial_area = _area(len(self.partial), self.partial)
        return r1, r2

    def _move_line_to(self, p):
        self.moving_line = PlFunz_linepntparallel(p, self.base_line)
        self.offset, self.offset_dir = CalcDistPuntoDaRetta(self.base_line, p)

    def _target_met(self):
        return div(abs(self.partial_area - self.target), self.target) < AREA_REL_TOL

    # Parallel to a side ------------------------------------------------------------------------------

    def _parallel(self):
        self.found = False
        _, self.base_line = PlFunz_lineeq_ile(self.side1, self.side2, self.base_line)
        self.first = -1
        if self.count < 1:
            return False
        k = self._find_side()
        if k < 0:
            return False
        self.first = k
        self._rotate_from(k)
        if self.count < 2:
            return False  # a single point has no vertex to sweep to

        v = 2
        while True:
            q = self._at(v)
            self._move_line_to(q)
            self.result1, _ = self._area_on_base_side(self.result1, NO_POINT)
            if self.partial_area > self.target:
                self._bisect_offset(q)
                if not self.found:
                    v += 1
            else:
                v += 1
            if v >= self.count or self.found:
                return True

    def _bisect_offset(self, far):
        self.found = False
        perp = PlFunz_linepntperpend(self.base_line, far)
        _, near = PlFunz_intersect_ile(self.base_line, perp, NO_POINT)
        steps = 0
        while True:
            self._move_line_to(_midpoint(far, near))
            self.result1, self.result2 = self._area_on_base_side(self.result1, self.result2)
            if self._target_met():
                self.found = True
            else:
                steps += 1
                if self.partial_area < self.target:
                    near = self.result2
                else:
                    far = self.result2
            if self.found or steps >= MAX_OFFSET_STEPS:
                return

    # Perpendicular to a side -------------------------------------------------------------------------

    def _perpendicular(self):
        self.found = False
        a = self.side1
        b = self.side2
        m = _midpoint(b, a)
        _, side_line = PlFunz_lineeq_ile(a, b, NO_LINE)
        perp = PlFunz_linepntperpend(side_line, m)
        self.first = -1
        if self.count < 1:
            return False
        k = self._find_side()
        if k < 0:
            return False
        self.first = k
        ring = [self.polygon[(k + j) % self.count] for j in range(self.count + 1)]

        crossed = None
        for s in range(1, self.count):
            met, c = IntersezLineaInSegmOK(ring[s], ring[s + 1], perp, NO_POINT)
            if met:
                crossed = s
                break
        if crossed is None:
            return False

        piece = [m] + ring[1:crossed + 1] + [c]
        piece_area = _area(len(piece), piece)
        self.side1, self.side2 = c, m
        self.target = piece_area - self.target
        if self.target < 0.0:
            piece = [c] + ring[crossed + 1:self.count + 1] + [m]
            self.target = -self.target
            self.side1, self.side2 = m, c

        self.count = len(piece)
        self.polygon = piece + [piece[0]]
        return self._parallel()

    # Through a vertex --------------------------------------------------------------------------------

    def _direction(self, j):
        x, y = self._at(j)
        return AngoloDaAsseRifer(y - self.vertex[1], x - self.vertex[0])

    def _fan(self, clockwise, first_dir):
        """(e1, e2): the extreme directions of the other vertices, relative to the next vertex."""
        e1 = 0.0
        e2 = 0.0
        turned = 0.0
        previous = first_dir
        for j in range(2, self.count):
            direction = self._direction(j)
            turned = turned + LimiteAng200_200(direction - previous)
            previous = direction
            if clockwise:
                if turned <= 0.0 and turned < e1:
                    e1 = turned
                if turned > 0.0 and turned > e2:
                    e2 = turned
            else:
                if turned >= 0.0 and turned > e1:
                    e1 = turned
                if turned < 0.0 and turned < e2:
                    e2 = turned
        return e1, e2

    def _through_vertex(self):
        self.found = False
        self.vertex = self.side1
        self.first = -1
        for k in range(self.count):
            if _same(self.polygon[k], self.vertex):
                self.first = k
                break
        if self.first < 0:
            return False
        clockwise = _signed_area(self.count, self.polygon) < 0.0
        self._rotate_from(self.first)
        first_dir = self._direction(1)
        e1, e2 = self._fan(clockwise, first_dir)
        anchor = e2

        steps = 1
        while True:
            mid = (e1 + e2) * 0.5
            self.wedge_width = abs(mid - anchor)
            self.wedge_start = LimiteAng0_400(first_dir + (mid if clockwise else anchor))
            theta = (first_dir + mid) * RAD_PER_GON_SHORT
            on_ray = (self.vertex[0] + cos(theta), self.vertex[1] + sin(theta))
            _, self.ray_line = PlFunz_lineeq_ile(self.vertex, on_ray, self.ray_line)
            self.partial_area = self._wedge_area()
            if self._target_met():
                self.found = True
            elif self.partial_area < self.target:
                e2 = mid
            else:
                e1 = mid
            steps += 1
            if self.found or steps >= MAX_ANGLE_STEPS:
                return True

    def _wedge_area(self):
        self.crossings = 0
        self.result1 = self.vertex
        self.partial = []
        for j in range(1, self.count):
            if j > 1:
                met, c = IntersezLineaInSegmOK(self._at(j - 1), self._at(j), self.ray_line, NO_POINT)
                if met:
                    self.partial.append(c)
                    self._keep_farthest(c)
            r = LimiteAng0_400(self._direction(j) - self.wedge_start)
            if r >= WEDGE_START_MARGIN and r <= self.wedge_width * WEDGE_WIDENING:
                if j == 1:
                    self.partial.append(self.vertex)
                self.partial.append(self._at(j))
        return _area(len(self.partial), self.partial)

    def _keep_farthest(self, p):
        self.crossings += 1
        if self.crossings == 1 or _dist(self.result1, p) > _dist(self.result1, self.result2):
            self.result2 = p
