#!/usr/bin/env python3
"""Writes the seed corpus: edge cases of every family in the input format of reader.h and parcel.h, minimised
by libFuzzer so that no file is kept that reaches nothing new.

    python3 make_corpus.py build/fuzz/fuzz                 corpus/ anew, from the seeds below
    python3 make_corpus.py build/fuzz/fuzz --found DIR     the same, with what runs have found in DIR/<harness>
    python3 make_corpus.py --seeds DIR                     the seeds alone, as they are, to DIR/<harness>
"""

import argparse
import hashlib
import itertools
import math
import pathlib
import random
import shutil
import struct
import subprocess
import sys
import tempfile

HERE = pathlib.Path(__file__).resolve().parent
NAN, INF = math.nan, math.inf
EPS = 1e-7
TINY = 5e-324
HUGE = 1.7976931348623157e308
MAX_LEN = 512


class Input:
    """The bytes of one input. Raw: doubles as they are; structured: with the tags that reader.h knows."""

    def __init__(self, structured=False):
        self.structured = structured
        self.points_before = 0
        self.bytes = bytearray([1 if structured else 0])

    def byte(self, *values):
        self.bytes += bytes(v & 255 for v in values)
        return self

    def int32(self, value):
        self.bytes += struct.pack("<i", value)
        return self

    def number(self, *values):
        for value in values:
            if self.structured:
                self.byte(0)
            self.bytes += struct.pack("<d", value)
        return self

    def beside(self, earlier, way, steps):
        """Structured: a number beside an earlier one. Ways: 0 equal, 1 ulps, 2 eighths of PL_EPS, 3 of 1 mm."""
        return self.byte(8 + way, earlier) if way == 0 else self.byte(8 + way, earlier, steps)

    def angle(self, *values):
        for value in values:
            if self.structured:
                self.byte(4)
            self.number(value)
        return self

    def quarters(self, unit, count, way=0, steps=0):
        """Structured: quarter turns, in radians, degrees, pseudo-angles or gons, or beside them."""
        self.byte(unit + 8 * way, count)
        return self if way == 0 else self.byte(steps)

    def point(self, *coordinates):
        for x, y in zip(coordinates[::2], coordinates[1::2]):
            if self.structured and self.points_before:
                self.byte(7)
            self.number(x, y)
            self.points_before += 1
        return self

    def again(self, which):
        """Structured: an earlier point."""
        self.points_before += 1
        return self.byte(0, which)

    def between(self, a, b, eighths):
        """Structured: a point on the line of two earlier ones."""
        self.points_before += 1
        return self.byte(1, a, b, eighths)

    def selector(self, value):
        return self.byte(value + 1) if -1 <= value <= 3 else self.byte(240).int32(value)

    def arc(self, x, y, radius, unit, start, end):
        return self.point(x, y).number(radius).selector(unit).angle(start, end)

    def ring(self, points):
        """Raw: the vertices as they are."""
        self.byte(len(points))
        for x, y in points:
            self.number(x, y)
        return self

    def shape(self, shape, n, body, size=0, kind=0, turn=(), east=0, north=0, reverse=0, start=0, flaws=()):
        """Structured: a shape, its place, and its flaws as tuples of bytes."""
        self.byte(n, shape, *body).byte(size, kind, *turn, east, north, reverse)
        if n:
            self.byte(start)
        self.byte(len(flaws))
        for flaw in flaws:
            self.byte(*flaw)
        return self


SPECIAL = [0.0, -0.0, 1.0, -1.0, EPS, -EPS, math.nextafter(EPS, 1), 2e-7, 1e-3, NAN, INF, -INF, TINY, -TINY,
           2.2250738585072014e-308, HUGE, -HUGE, 1e154, 1e200, 411774.83, 5e6]
DIRECTIONS = [(0, 0), (0, 5), (0, -5), (-5, 0), (5, 0), (1, -1), (-1, 1), (-1, -1), (1e-8, 2), (1e9, -2e-7),
              (EPS, -EPS), (-2e-7, 0), (0, -2e-7), (4e6, -1), (1e8, -1), (1e-7, 1), (-1e200, 1), (HUGE, HUGE),
              (INF, INF), (NAN, 1), (1, NAN), (3, 1e-9)]
LINES = [(0, 2, -4), (0, -2, 4), (3, -4, 0), (3, 0, 0), (-3, 0, 0), (1e-4, 2e-4, 1), (1, 0, -3), (0, 1, -3),
         (0, 0, 0), (1, -1, 0), (1, -1, 1e-12), (1e-7, 1e-7, 1), (NAN, 1, 1), (INF, 1, -INF), (HUGE, HUGE, 1)]
SEGMENTS = [(0, 0, 2, 0), (1, -1, 1, 1), (0, 0, 1, 0), (1, 0, 1, 1), (1.00000015, -1, 1.00000015, 1),
            (-1.5e-7, -1, -1.5e-7, 1), (5e-8, 0, 5e-8, 5), (2, 2, 2, 2), (0, 1, 1, 2), (0, 0, 4, 0),
            (500000, 5e6, 500100.5, 5e6 + 20), (0, 0, 1e-4, 1e-4), (0, 0, HUGE, HUGE), (NAN, 0, 1, 1),
            (-INF, 0, INF, 0)]
ARCS = [(0, 0, 1, 0, 0.0, math.pi), (0, 0, 1, 1, 0.0, 90.0), (0, 0, 1, 2, 1.0, 3.0), (0, 0, 1, 0, 0.0, 0.0),
        (0, 0, 1, 0, 3 * math.pi / 2, math.pi / 2), (0, 0, 1, 7, 0.0, 180.0), (5, 5, -2, 1, 270.0, 90.0),
        (0, 0, 0, 0, 1.0, 2.0), (500000, 5e6, 25.5, 1, 359.9999, 0.0001), (0, 0, 1, 2, 0.9999999, 2.0000001),
        (0, 0, 1, 2, 3.9999996, 9.5), (0, 0, 1, 0, 411774.83, -411774.83), (0, 0, 1, 1, INF, NAN),
        (0, 0, HUGE, 2, 1e16, -1e16), (0, 0, 3, 2 ** 31 - 1, 0.5, 0.25)]

RECTANGLE = [(0, 0), (100, 0), (100, 50), (0, 50)]
RINGS = {
    "empty": [],
    "one": [(3, 4)],
    "two": [(0, 0), (10, 0)],
    "triangle": [(0, 0), (60, 10), (20, 40)],
    "rectangle": RECTANGLE,
    "clockwise": RECTANGLE[::-1],
    "turned": [(10, 0), (90, 30), (70, 90), (-10, 60)],
    "diamond": [(1, 0), (2, 1), (1, 2), (0, 1)],
    "pentagon": [(0, 0), (40, -8), (70, 25), (35, 60), (-9, 33)],
    "l": [(0, 0), (60, 0), (60, 20), (20, 20), (20, 70), (0, 70)],
    "t": [(0, 0), (20, 0), (20, 40), (40, 40), (40, 60), (-20, 60), (-20, 40), (0, 40)],
    "star": [(0, 30), (-7, 9), (-28, 9), (-11, -4), (-18, -24), (0, -12), (18, -24), (11, -4), (28, 9), (7, 9)],
    "spike": [(0, 0), (50, 0), (25, 1e-7), (50, 40)],
    "repeated": [(0, 0), (0, 0), (50, 0), (50, 0), (50, 50), (0, 50), (0, 50)],
    "closed": RECTANGLE + [(0, 0)],
    "collinear": [(0, 0), (30, 0), (60, 0), (60, 30), (60, 60), (30, 60), (0, 60), (0, 30)],
    "flat": [(0, 1), (5, 1), (9, 1), (4, 1)],
    "upright": [(2, 0), (2, 5), (2, 9)],
    "eight": [(0, 0), (40, 40), (40, 0), (0, 40)],
    "comb": [(0, 0), (70, 0), (70, 40), (60, 40), (60, 9), (50, 9), (50, 40), (40, 40), (40, 9), (30, 9),
             (30, 40), (0, 40)],
    "grid": [(500000.12, 5000000.5), (500090.77, 4999985.2), (500120.4, 5000060.9), (500020.3, 5000075.1)],
    "no number": [(0, 0), (NAN, 0), (50, INF), (0, 50)],
    "huge": [(-HUGE, 0), (HUGE, -HUGE), (HUGE, HUGE), (0, 1e300)],
    "tiny": [(0, 0), (TINY, 0), (TINY, TINY)],
}
ROUND = (9, 40, 80, 60, 30, 90, 20)


def pairs(items, step=1):
    return list(zip(items, items[step:] + items[:step]))


def primitives():
    for a, b in pairs(SPECIAL):
        yield Input().number(a, b, -a, 2.5, b, 7).selector(1).point(a, b, b, a)
    for x, y in ((EPS, -EPS), (1.0000001e-7, 0), (3, 4), (NAN, 0), (HUGE, -HUGE)):
        yield Input(True).number(1, 1.00000015, 1.0000003, -5e-8, 0, 1).selector(9).point(0, 0, x, y)
    yield Input(True).number(1.0).beside(0, 1, 1).beside(0, 2, 12).beside(0, 0, 0).number(0, 0).selector(0) \
        .point(1, 2).again(0)


def directions():
    angles = [0.0, 90.0, -math.pi / 2, 1.0, 2.0, 3.0, 3.5, -1.0, 1 - 1e-7, 2 - 1e-7, 3 + 3e-7, 450.0, 6.2831852,
              -1e-7, 26353589.0, 1e15, INF, NAN, 411774.83, -411774.84, 4 - 4e-7, 359.99997]
    for i, ((x, y), angle) in enumerate(zip(DIRECTIONS, angles)):
        yield Input().selector(i % 4 - 1).angle(angle).number((-1) ** i * 5.0).point(x, y, 0, 0)
    for unit in range(4):
        for count, way, steps in ((1, 0, 0), (3, 1, 3), (2, 2, -5), (4, 2, -9), (-4, 2, 2)):
            yield Input(True).selector((0, 1, 2, 77)[unit]).quarters(unit % 3, count, way, steps).number(10.0) \
                .point(10, 10).again(0)


def matrices():
    steps = [(0, 90.0, 0.0, 0, 0), (0, 90.0, 0.0, 1, 1), (1, 10.0, 20.0, 0, 0), (2, 0.0, 0.0, 5, 5),
             (2, -1.0, -1.0, 0, 0), (2, 0.0, 2.0, 3, 4), (2, EPS, 2e-7, 1, 1), (2, EPS, EPS, 1, 1), (0, INF, 0.0, 0, 0),
             (1, NAN, HUGE, 0, 0), (2, HUGE, 2.0, HUGE, 0), (0, -400.0, 0.0, 1e6, -1e6), (2, NAN, 0.0, 0, 0)]
    any_matrix = [1, 2, NAN, -3, 4, INF, HUGE, 0.5, 1]
    for step, following in pairs(steps):
        for structured in (False, True):
            seed = Input(structured).point(1, 0).byte(2)
            for which, a, b, x, y in (step, following):
                seed.byte(which).angle(a).number(b).point(x, y)
            yield seed.number(*any_matrix)
    yield Input().point(HUGE, -INF).byte(0).number(*[0.0] * 9)


def implicit_lines():
    for i, ((a, b, c), (x1, y1, x2, y2)) in enumerate(zip(LINES, SEGMENTS)):
        yield Input(i % 2 == 1).point(x1, y1, x2, y2).number(a, b, c, SPECIAL[i])
    for x, y in DIRECTIONS:
        yield Input().point(1, 1, 1 + x, 1 + y).number(x, y, EPS, 3)


def intersections():
    for i, (s1, s2) in enumerate(pairs(SEGMENTS) + pairs(SEGMENTS, 2)):
        line, other = LINES[i % len(LINES)], LINES[(i + 4) % len(LINES)]
        yield Input(i % 2 == 1).number(*line, *other).point(*s1, *s2, s1[0], s2[1])
    for way, steps in ((1, 2), (2, 6), (2, -6), (2, 9), (3, 4)):
        yield Input(True).number(0, 1, -1, 1, 0, -1).point(0, 0, 2, 0, 1, -1).byte(7).beside(6, way, steps) \
            .number(1).between(0, 1, 8)


def point_line():
    points = [(0, 5), (0, -5), (20, 5), (0, 0), (0, 3), (4, 5), (NAN, 1), (1, INF), (500050, 5e6), (-2, -2)]
    for i, (x1, y1, x2, y2) in enumerate(SEGMENTS + [(0, 2, 10, 2), (0, 0, 10, 0), (1, 1, 2, 2.0000001)]):
        x, y = points[i % len(points)]
        yield Input(i % 2 == 1).point(x, y, x1, y1, x2, y2)
    for x, y in DIRECTIONS:
        yield Input().point(0, 0, x, y, -2 * x, -2 * y)
    yield Input(True).point(3, 1, 7, 5).between(0, 1, 20)


def arcs():
    corners = [(0, 0, 1, 1, 2, 0), (2, 0, 1, 1, 0, 0), (1, 0, 0, -1, 0, 1), (0, 0, 1, 1, 3, 3), (0, 0, 0, 0, 1, 1),
               (0, 0, 1e-4, 0, 0, 1e-3), (500000, 5e6, 500010, 5e6, 500003, 5000007), (NAN, 0, 1, 1, 2, 0),
               (0, 0, HUGE, 1, 1, HUGE), (0, 0, 3, -1, 6, 0.5), (-1, -1, 1, -1, 1, 1)]
    for i, arc in enumerate(ARCS):
        yield Input(i % 2 == 1).selector(i % 4).arc(*arc).point(*corners[i % len(corners)])
        yield Input(True).selector(i % 3).point(arc[0], arc[1]).number(arc[2]).selector(i % 3) \
            .quarters((0, 1, 2)[i % 3], i % 5, i % 4, 5 - i).quarters((0, 1, 2)[i % 3], 1 + i % 4, i % 3, i - 5) \
            .point(*corners[(i + 3) % len(corners)])
    for i, (x, y) in enumerate(DIRECTIONS):
        yield Input().selector(i % 4).arc(0, 0, 1, 2, x, y).point(0, 0, x, y, y, x)


def arc_segment():
    segments = [(-2, 0.5, 2, 0.5), (-2, -0.5, 2, -0.5), (-2, 0, 2, 0), (0, 0, 2, 0), (-1, 1, 1, 1), (1, 1, 1, 1),
                (0.5, -0.1, 0.5, 0.1), (-2, 2, 2, -2), (-3, 0, 0, 3), (5, 5, 6, 6), (0, 1.00000005, 2, 1.00000005),
                (1, 0, 1, 1e-4), (-HUGE, 0, HUGE, 0), (NAN, 0, 1, 0), (-1.5, 1.2, 1.5, -1.3)]
    for i, arc in enumerate(ARCS):
        for k in (0, 4, 9):
            yield Input((i + k) % 2 == 1).arc(*arc).point(*segments[(i + k) % 15], *segments[(i + k + 3) % 15])
    for segment, other in pairs(segments):
        yield Input().arc(*ARCS[0]).point(*segment, *other)


def polygon():
    for i, ring in enumerate(RINGS.values()):
        x = sum(p[0] for p in ring) / len(ring) if ring else 0.0
        y = ring[i % len(ring)][1] if ring else 0.0
        yield Input().byte(0, 4 + i % 7, 0, i % 6).ring(ring).point(x, y)
        yield Input().byte(200).int32(-7).byte(200).int32(-2 ** 31).ring(ring).point(x + 0.5, y + 0.25)
    for seed in shapes(lambda: Input(True).byte(0, 6, 0, 2)):
        yield seed.point(3, 4)


def survey_intersections():
    for i, (s1, s2) in enumerate(pairs(SEGMENTS) + pairs(SEGMENTS, 3)):
        line, other = LINES[i % len(LINES)], LINES[(i + 5) % len(LINES)]
        yield Input(i % 2 == 1).point(*s1, *s2).number((5.0, 0.0005, 1.0015, NAN)[i % 4], *line, *other)
    yield Input(True).point(0, 0, 4, 2).between(0, 1, 12).between(0, 1, 24).number(1).number(1, -2, 0, 1, -2, 1)
    yield Input(True).point(0, 0, 4, 2).again(0).again(1).number(1).number(1, -2, 0, 2, -4, 0)


def offsets():
    dists = [(4, 3), (-4, 3), (0, 3), (0, 0), (-0.0, -5), (NAN, 1), (1e7, INF), (HUGE, 1), (1e-8, 1e-8), (5, -5)]
    angles = [0.0, 100.0, 399.99999999995, 400.0, -1e-10, 12345.6, 1e15, INF, NAN, 250.0]
    for i, (s1, s2) in enumerate(pairs(SEGMENTS) + pairs(SEGMENTS, 2)):
        dist, order = dists[i % 10]
        yield Input(i % 2 == 1).point(*s1, *s2).number(*LINES[i % len(LINES)], dist, order).angle(angles[i % 10])
    for point in ((3, -2), (3, 2), (3, 0), (-4, 9)):
        yield Input(True).point(0, 0, 10, 0, *point).again(2).number(0, 10, 0, 4, 3).quarters(3, 5, 1, -3)


def measures():
    boxes = [(5, 1, 9, 2, 7, 3), (0, 0, 10, 10, 0, 20), (1, 1, 1, 1, 1, 1), (NAN, 0, INF, 1, NAN, -INF),
             (1e-7, 1e-7, 2, -1e-7, 3, 4), (HUGE, 0, 0, -HUGE, 1, 1), (-0.0, 0, 5, 0, -0.0, 5)]
    for i, ring in enumerate(RINGS.values()):
        yield Input().number(*boxes[i % len(boxes)]).point(i, 2, 5, 5).ring(ring)
    for i, seed in enumerate(shapes(lambda: Input(True).number(*boxes[1]).point(5, 0).again(0))):
        yield seed


def gons():
    for i, (x, y) in enumerate(DIRECTIONS + [(-TINY, 2), (-0.0, -1), (-1e-300, 1e10)]):
        angle = [0.0, 400.0, 200.0, -200.0, 399.9999999999999, -1e-14, 1e18, -399.5, INF, NAN, 300.0][i % 11]
        yield Input().number(x, y).angle(angle).number(1, 2, NAN, 4).byte(9).byte(*[
            (7 * i + 5 * k) % 256 for k in range(27)])
    for count, way, steps in ((1, 0, 0), (4, 1, -1), (2, 1, 2), (3, 2, -1), (-2, 1, 1)):
        yield Input(True).number(25.5, -3).quarters(3, count, way, steps).number(1, 2, 3, 4) \
            .byte(10).byte(*[v for op in (9, 9, 2, 3, 4, 5, 6, 9, 0, 1) for v in (1, 2, op)])


def shapes(start):
    """Structured rings behind what start() has written."""
    yield start().shape(0, 6, [0, 0, 40, 0, 40, 30, 20, 30, 20, 10, 0, 10])
    yield start().shape(1, 6, [50, 20, -20, 30, -30, 9], size=2, kind=1, turn=[90])
    yield start().shape(1, 8, [60, 20, -20, 20, 20, 20, -60, 7], kind=2, turn=[31], east=3, north=3)
    yield start().shape(2, 7, [*ROUND, 120, 90, 64, 30, 80, 25, 70, 40, 90], east=6)
    yield start().shape(3, 7, [*ROUND, 120, 90], kind=2, turn=[40])
    yield start().shape(3, 3, [90, 60, 100, 200, 80], kind=3, turn=[17], reverse=1, start=1)
    yield start().shape(4, 24, [10 + 7 * k % 50 for k in range(24)] + [250, 200], kind=2, turn=[9])
    yield start().shape(3, 7, [*ROUND, 99, 90], east=4, north=5, kind=2, turn=[70], start=3)
    yield start().shape(3, 7, [*ROUND, 99, 90], size=6, kind=0)
    yield start().shape(3, 5, [*ROUND[:5], 99, 90], kind=1, turn=[-50], flaws=[(0, 1, 0), (1, 2, 0)])
    yield start().shape(3, 5, [*ROUND[:5], 99, 90], kind=2, turn=[11], flaws=[(2, 1, 3), (3, 0, 2)])
    yield start().shape(2, 6, [*ROUND[:6], 120, 90, 64, 60, 50, 40, 60, 64], kind=2, turn=[25],
                        flaws=[(4, 2, 0, 1, 1, 10)])
    yield start().shape(0, 0, [])


def cut(start):
    for i, ring in enumerate(RINGS.values()):
        n = max(len(ring), 1)
        # A share of the area by its value, and by two factors.
        yield start(False).byte(4 + 8 * (i % 4), 40 + 30 * i % 200).selector(i % 2).ring(ring).byte(i % n)
        if not ring:
            continue
        for area, tipo in ((1000.0, 1), (0.0, 1), (1e9, 1), (NAN, 0), (-5.0, 1), (3.0, 7)):
            if i % 6 == int(tipo + (area == area and area > 0)) % 6 or ring == RECTANGLE:
                yield start(False).byte(196, 0).selector(tipo).ring(ring).byte((i + 1) % n).number(20.0, area)
        # A side that is none: given backwards, and a point off the ring.
        yield start(False).byte(0, 100).selector(1).ring(ring).byte(1 % n).point(*ring[0])
        yield start(False).byte(1, 100).selector(1).ring(ring).byte(0).point(0.5, 0.25)
    # Structured shapes, each with three shares of its area.
    parts = itertools.cycle((20, 125, 235, 60, 140, 249, 110, 200, 255))
    for i in range(3):
        for seed in shapes(lambda: start(True).byte(6 + 8 * (i % 3), next(parts)).selector(1)):
            yield seed.byte(i)


def parallel_cut():
    modes = itertools.cycle((3, -1, 2 ** 31 - 1, 1, -2 ** 31))
    return cut(lambda structured: Input(structured).selector(next(modes)))


def perpendicular_cut():
    return cut(Input)


def vertex_cut():
    return cut(Input)


def wanted(seed, cut, measured, index, *amounts):
    """What division.cpp reads behind the ring: amounts are tuples, none of them asks for equal parts."""
    seed.selector(cut).selector(measured).byte(index)
    if not amounts:
        return seed.byte(0, 3)
    seed.byte(len(amounts))
    for kind, *values in amounts:
        seed.byte(kind)
        if kind == 3:
            seed.selector(values.pop(0))
        if kind in (2, 4):
            seed.byte(*values)
        else:
            seed.number(*values)
    return seed


def division():
    for i, ring in enumerate(RINGS.values()):
        n = max(len(ring), 1)
        yield wanted(Input().ring(ring), i % 3, i % 2, i % n, (4, 20 + 31 * i % 220))
        yield wanted(Input().ring(ring), (i + 1) % 3, i // 2 % 2, (i + 2) % n)
    for amounts in (((0, 1000.0),), ((1, 20.0, 35.0), (0, 250.0)), ((2, 1, 3), (2, 1, 3), (2, 1, 3)), ((2, 3, 3),),
                    ((2, 1, 0),), ((0, NAN),), ((0, -5.0),), ((0, 5000.0),), ((0, 5000.000001),), ((1, INF, 0.0),),
                    ((3, 7, 1.0, 2.0),), ((4, 1),), ((4, 254),), ((4, 50), (4, 50), (4, 50), (4, 50))):
        yield wanted(Input().ring(RECTANGLE), 0, 0, 0, *amounts)
    for cut, measured, index in ((3, 0, 0), (-1, 0, 0), (0, 2, 0), (0, 0, 255), (2 ** 31 - 1, -2 ** 31, 1)):
        yield wanted(Input().ring(RECTANGLE), cut, measured, index, (4, 100))
    parts = itertools.cycle((20, 125, 235, 60, 140, 249, 110, 200))
    for i in range(6):
        for seed in shapes(lambda: Input(True)):
            yield wanted(seed, i % 3, i // 3, i, (4, next(parts)), *([(4, 5)] if i % 2 else []))


HARNESSES = [primitives, directions, matrices, implicit_lines, intersections, point_line, arcs, arc_segment, polygon,
             survey_intersections, offsets, measures, gons, parallel_cut, perpendicular_cut, vertex_cut,
             division]


def any_bytes(name):
    """Structured inputs of drawn bytes, the same ones each time: they visit every tag of the readers."""
    draw = random.Random(name)
    for length in range(20, 220, 8):
        yield Input(True).byte(*(draw.randrange(256) for _ in range(length)))


def write_seeds(folder, seeds):
    folder.mkdir(parents=True, exist_ok=True)
    for seed in seeds:
        data = bytes(seed.bytes)
        if len(data) > MAX_LEN:
            sys.exit(f"{folder.name}: a seed of {len(data)} bytes is longer than the inputs that are tried")
        (folder / hashlib.sha1(data).hexdigest()).write_bytes(data)


def minimise(program, seeds, found, target):
    """The smallest set of files that reaches what all of them reach."""
    with tempfile.TemporaryDirectory() as scratch:
        kept = pathlib.Path(scratch) / "kept"
        kept.mkdir()
        sources = [seeds] + ([found] if found and found.is_dir() else [])
        command = [program, "-set_cover_merge=1", f"-max_len={MAX_LEN}", "-timeout=30", kept, *sources]
        run = subprocess.run([str(word) for word in command], stdout=subprocess.DEVNULL, stderr=subprocess.PIPE,
                             text=True, check=False)
        if run.returncode:
            sys.exit(f"{program} ended with {run.returncode}:\n{run.stderr[-4000:]}")
        if target.exists():
            shutil.rmtree(target)
        shutil.copytree(kept, target)
    return len(list(target.iterdir()))


def main():
    parser = argparse.ArgumentParser(description="Writes the seed corpus of the fuzz harnesses.")
    parser.add_argument("programs", nargs="?", type=pathlib.Path, help="folder of the fuzz_<harness> programs")
    parser.add_argument("--found", type=pathlib.Path, help="folder of what runs have found, one per harness")
    parser.add_argument("--seeds", type=pathlib.Path, help="write the seeds here, as they are, and stop")
    args = parser.parse_args()
    if (args.programs is None) == (args.seeds is None):
        parser.error("give either the folder of the programs or --seeds")

    for harness in HARNESSES:
        name = harness.__name__
        if args.seeds:
            write_seeds(args.seeds / name, itertools.chain(harness(), any_bytes(name)))
            continue
        with tempfile.TemporaryDirectory() as scratch:
            seeds = pathlib.Path(scratch) / name
            write_seeds(seeds, itertools.chain(harness(), any_bytes(name)))
            kept = minimise(args.programs / f"fuzz_{name}", seeds, args.found and args.found / name,
                            HERE / "corpus" / name)
            print(f"{name}: {kept} files, from {len(list(seeds.iterdir()))} seeds")


if __name__ == "__main__":
    main()
