#!/usr/bin/env python3
"""Writes the seed corpus: edge cases of every family in the input format of reader.h and parcel.h, minimised
by libFuzzer so that no seed is kept that reaches nothing new.

    python3 make_corpus.py build/fuzz/fuzz                 corpus/ anew, from the seeds below
    python3 make_corpus.py build/fuzz/fuzz --found DIR     the same, with what runs have found in DIR/<harness>
    python3 make_corpus.py build/fuzz/fuzz --out DIR       the same to DIR, and corpus/ stays as it is
    python3 make_corpus.py --seeds DIR                     the seeds alone, as they are, to DIR/<harness>.txt
"""

import argparse
import itertools
import math
import pathlib
import random
import struct
import subprocess
import sys
import tempfile

import seeds

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
        self.name = ""

    def called(self, *words):
        """What the seed is for."""
        self.name = " ".join(words)
        return self

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
LINES = {
    "level line": (0, 2, -4),
    "level line negated": (0, -2, 4),
    "oblique line": (3, -4, 0),
    "upright line": (3, 0, 0),
    "upright line negated": (-3, 0, 0),
    "short coefficients": (1e-4, 2e-4, 1),
    "upright line at 3": (1, 0, -3),
    "level line at 3": (0, 1, -3),
    "no line": (0, 0, 0),
    "diagonal": (1, -1, 0),
    "diagonal a hair off": (1, -1, 1e-12),
    "coefficients of eps": (1e-7, 1e-7, 1),
    "line of nan": (NAN, 1, 1),
    "line of inf": (INF, 1, -INF),
    "line of huge": (HUGE, HUGE, 1),
}
SEGMENTS = {
    "level": (0, 0, 2, 0),
    "upright": (1, -1, 1, 1),
    "half level": (0, 0, 1, 0),
    "upright from its end": (1, 0, 1, 1),
    "upright 1.5 eps beyond": (1.00000015, -1, 1.00000015, 1),
    "upright 1.5 eps before": (-1.5e-7, -1, -1.5e-7, 1),
    "upright half eps off": (5e-8, 0, 5e-8, 5),
    "one point": (2, 2, 2, 2),
    "oblique": (0, 1, 1, 2),
    "level longer": (0, 0, 4, 0),
    "national grid": (500000, 5e6, 500100.5, 5e6 + 20),
    "short": (0, 0, 1e-4, 1e-4),
    "to huge": (0, 0, HUGE, HUGE),
    "from nan": (NAN, 0, 1, 1),
    "inf to inf": (-INF, 0, INF, 0),
}
ARCS = {
    "half circle": (0, 0, 1, 0, 0.0, math.pi),
    "quarter circle": (0, 0, 1, 1, 0.0, 90.0),
    "half by pseudo angles": (0, 0, 1, 2, 1.0, 3.0),
    "full circle": (0, 0, 1, 0, 0.0, 0.0),
    "through zero": (0, 0, 1, 0, 3 * math.pi / 2, math.pi / 2),
    "unknown unit": (0, 0, 1, 7, 0.0, 180.0),
    "negative radius": (5, 5, -2, 1, 270.0, 90.0),
    "no radius": (0, 0, 0, 0, 1.0, 2.0),
    "hair on the grid": (500000, 5e6, 25.5, 1, 359.9999, 0.0001),
    "quarter and an eps": (0, 0, 1, 2, 0.9999999, 2.0000001),
    "start a hair before a turn": (0, 0, 1, 2, 3.9999996, 9.5),
    "angles of 65536 turns": (0, 0, 1, 0, 411774.83, -411774.83),
    "inf to nan": (0, 0, 1, 1, INF, NAN),
    "huge": (0, 0, HUGE, 2, 1e16, -1e16),
    "greatest unit": (0, 0, 3, 2 ** 31 - 1, 0.5, 0.25),
}

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


WAYS = ("", "ulps", "eighths of eps", "eighths of a mm")
KNOWN = ((HUGE, "huge"), (TINY, "tiny"), (EPS, "eps"), (math.nextafter(EPS, 1), "above eps"))


def text(*values):
    """Numbers as a name shows them."""
    def word(value):
        known = [word for number, word in KNOWN if abs(value) == number]
        if known:
            return ("-" if value < 0 else "") + known[0]
        exact = f"{value:.17g}"
        return exact if len(exact) < 12 else f"{value:.9g}"

    return ",".join(map(word, values))


def pairs(items, step=1):
    items = list(items.items()) if isinstance(items, dict) else items
    return list(zip(items, items[step:] + items[:step]))


def cycled(items, index):
    return list(items.values())[index % len(items)]


def primitives():
    for a, b in pairs(SPECIAL):
        yield Input().called(text(a), "and", text(b)).number(a, b, -a, 2.5, b, 7).selector(1).point(a, b, b, a)
    for x, y in ((EPS, -EPS), (1.0000001e-7, 0), (3, 4), (NAN, 0), (HUGE, -HUGE)):
        yield Input(True).called("points apart by", text(x, y)) \
            .number(1, 1.00000015, 1.0000003, -5e-8, 0, 1).selector(9).point(0, 0, x, y)
    yield Input(True).called("beside one by ulps and by eps").number(1.0).beside(0, 1, 1).beside(0, 2, 12) \
        .beside(0, 0, 0).number(0, 0).selector(0).point(1, 2).again(0)


def quarters_name(count, way, steps):
    return f"{count} quarter turns" + (f" and {steps} {WAYS[way]}" if way else "")


def directions():
    angles = [0.0, 90.0, -math.pi / 2, 1.0, 2.0, 3.0, 3.5, -1.0, 1 - 1e-7, 2 - 1e-7, 3 + 3e-7, 450.0, 6.2831852,
              -1e-7, 26353589.0, 1e15, INF, NAN, 411774.83, -411774.84, 4 - 4e-7, 359.99997]
    for i, ((x, y), angle) in enumerate(zip(DIRECTIONS, angles)):
        yield Input().called("towards", text(x, y), "angle", text(angle)).selector(i % 4 - 1).angle(angle) \
            .number((-1) ** i * 5.0).point(x, y, 0, 0)
    for unit in range(4):
        for count, way, steps in ((1, 0, 0), (3, 1, 3), (2, 2, -5), (4, 2, -9), (-4, 2, 2)):
            called = ("radians", "degrees", "pseudo angles", "unknown unit")[unit]
            yield Input(True).called(called, quarters_name(count, way, steps)).selector((0, 1, 2, 77)[unit]) \
                .quarters(unit % 3, count, way, steps).number(10.0).point(10, 10).again(0)


def matrices():
    steps = [(0, 90.0, 0.0, 0, 0), (0, 90.0, 0.0, 1, 1), (1, 10.0, 20.0, 0, 0), (2, 0.0, 0.0, 5, 5),
             (2, -1.0, -1.0, 0, 0), (2, 0.0, 2.0, 3, 4), (2, EPS, 2e-7, 1, 1), (2, EPS, EPS, 1, 1), (0, INF, 0.0, 0, 0),
             (1, NAN, HUGE, 0, 0), (2, HUGE, 2.0, HUGE, 0), (0, -400.0, 0.0, 1e6, -1e6), (2, NAN, 0.0, 0, 0)]
    any_matrix = [1, 2, NAN, -3, 4, INF, HUGE, 0.5, 1]

    def name(which, a, b, x, y):
        return (f"turn {text(a)} about {text(x, y)}", f"move {text(a, b)}",
                f"scale {text(a, b)} about {text(x, y)}")[which]

    for step, following in pairs(steps):
        for structured in (False, True):
            seed = Input(structured).called(name(*step), "then", name(*following), *(["tagged"] * structured)) \
                .point(1, 0).byte(2)
            for which, a, b, x, y in (step, following):
                seed.byte(which).angle(a).number(b).point(x, y)
            yield seed.number(*any_matrix)
    yield Input().called("no step, point of huge and inf").point(HUGE, -INF).byte(0).number(*[0.0] * 9)


def implicit_lines():
    for i, ((line, (a, b, c)), (segment, (x1, y1, x2, y2))) in enumerate(zip(LINES.items(), SEGMENTS.items())):
        yield Input(i % 2 == 1).called(line, "and", segment).point(x1, y1, x2, y2).number(a, b, c, SPECIAL[i])
    for x, y in DIRECTIONS:
        yield Input().called("line towards", text(x, y)).point(1, 1, 1 + x, 1 + y).number(x, y, EPS, 3)


def intersections():
    for i, ((one, s1), (two, s2)) in enumerate(pairs(SEGMENTS) + pairs(SEGMENTS, 2)):
        line, other = cycled(LINES, i), cycled(LINES, i + 4)
        yield Input(i % 2 == 1).called(one, "and", two).number(*line, *other).point(*s1, *s2, s1[0], s2[1])
    for way, steps in ((1, 2), (2, 6), (2, -6), (2, 9), (3, 4)):
        yield Input(True).called(f"begins {steps} {WAYS[way]} beside the other's end") \
            .number(0, 1, -1, 1, 0, -1).point(0, 0, 2, 0, 1, -1).byte(7).beside(6, way, steps) \
            .number(1).between(0, 1, 8)


def point_line():
    points = [(0, 5), (0, -5), (20, 5), (0, 0), (0, 3), (4, 5), (NAN, 1), (1, INF), (500050, 5e6), (-2, -2)]
    more = {"level at 2": (0, 2, 10, 2), "level of 10": (0, 0, 10, 0), "diagonal of 1": (1, 1, 2, 2.0000001)}
    for i, (segment, (x1, y1, x2, y2)) in enumerate({**SEGMENTS, **more}.items()):
        x, y = points[i % len(points)]
        yield Input(i % 2 == 1).called(text(x, y), "and", segment).point(x, y, x1, y1, x2, y2)
    for x, y in DIRECTIONS:
        yield Input().called("in line both ways towards", text(x, y)).point(0, 0, x, y, -2 * x, -2 * y)
    yield Input(True).called("on the line beyond its end").point(3, 1, 7, 5).between(0, 1, 20)


def arcs():
    corners = {"upper arc": (0, 0, 1, 1, 2, 0), "upper arc backwards": (2, 0, 1, 1, 0, 0),
               "large left arc": (1, 0, 0, -1, 0, 1), "three in line": (0, 0, 1, 1, 3, 3),
               "first two equal": (0, 0, 0, 0, 1, 1), "short sides": (0, 0, 1e-4, 0, 0, 1e-3),
               "grid": (500000, 5e6, 500010, 5e6, 500003, 5000007), "nan": (NAN, 0, 1, 1, 2, 0),
               "huge corners": (0, 0, HUGE, 1, 1, HUGE), "obtuse": (0, 0, 3, -1, 6, 0.5),
               "right angle": (-1, -1, 1, -1, 1, 1)}
    for i, (name, arc) in enumerate(ARCS.items()):
        yield Input(i % 2 == 1).called(name, "and", list(corners)[i % len(corners)]).selector(i % 4).arc(*arc) \
            .point(*cycled(corners, i))
        from_to = (i % 5, i % 4, 5 - i), (1 + i % 4, i % 3, i - 5)
        yield Input(True).called(name, "at", quarters_name(*from_to[0]), "to", quarters_name(*from_to[1])) \
            .selector(i % 3).point(arc[0], arc[1]).number(arc[2]).selector(i % 3) \
            .quarters((0, 1, 2)[i % 3], *from_to[0]).quarters((0, 1, 2)[i % 3], *from_to[1]) \
            .point(*cycled(corners, i + 3))
    for i, (x, y) in enumerate(DIRECTIONS):
        yield Input().called("unit circle, pseudo angles", text(x, y)).selector(i % 4).arc(0, 0, 1, 2, x, y) \
            .point(0, 0, x, y, y, x)


def arc_segment():
    segments = {
        "chord": (-2, 0.5, 2, 0.5), "chord below": (-2, -0.5, 2, -0.5), "diameter": (-2, 0, 2, 0),
        "from the centre": (0, 0, 2, 0), "tangent": (-1, 1, 1, 1), "point outside": (1, 1, 1, 1),
        "inside": (0.5, -0.1, 0.5, 0.1), "diagonal": (-2, 2, 2, -2), "passing by": (-3, 0, 0, 3),
        "far away": (5, 5, 6, 6), "tangent within eps": (0, 1.00000005, 2, 1.00000005),
        "short at the start": (1, 0, 1, 1e-4), "huge segment": (-HUGE, 0, HUGE, 0), "nan": (NAN, 0, 1, 0),
        "across one end": (-1.5, 1.2, 1.5, -1.3)}
    names = list(segments)
    for i, (name, arc) in enumerate(ARCS.items()):
        for k in (0, 4, 9):
            yield Input((i + k) % 2 == 1).called(name, "and", names[(i + k) % 15], "then", names[(i + k + 3) % 15]) \
                .arc(*arc).point(*cycled(segments, i + k), *cycled(segments, i + k + 3))
    for (name, segment), (then, other) in pairs(segments):
        yield Input().called("half circle and", name, "then", then).arc(*ARCS["half circle"]).point(*segment, *other)


def polygon():
    for i, (name, ring) in enumerate(RINGS.items()):
        x = sum(p[0] for p in ring) / len(ring) if ring else 0.0
        y = ring[i % len(ring)][1] if ring else 0.0
        yield Input().called(name, "level with a vertex").byte(0, 4 + i % 7, 0, i % 6).ring(ring).point(x, y)
        yield Input().called(name, "any counts").byte(200).int32(-7).byte(200).int32(-2 ** 31).ring(ring) \
            .point(x + 0.5, y + 0.25)
    for seed in shapes(lambda: Input(True).byte(0, 6, 0, 2)):
        yield seed.point(3, 4)


def survey_intersections():
    for i, ((one, s1), (two, s2)) in enumerate(pairs(SEGMENTS) + pairs(SEGMENTS, 3)):
        line, other = cycled(LINES, i), cycled(LINES, i + 5)
        yield Input(i % 2 == 1).called(one, "and", two).point(*s1, *s2) \
            .number((5.0, 0.0005, 1.0015, NAN)[i % 4], *line, *other)
    yield Input(True).called("in line, parallel lines").point(0, 0, 4, 2).between(0, 1, 12).between(0, 1, 24) \
        .number(1).number(1, -2, 0, 1, -2, 1)
    yield Input(True).called("twice the same, one line").point(0, 0, 4, 2).again(0).again(1).number(1) \
        .number(1, -2, 0, 2, -4, 0)


def offsets():
    dists = [(4, 3), (-4, 3), (0, 3), (0, 0), (-0.0, -5), (NAN, 1), (1e7, INF), (HUGE, 1), (1e-8, 1e-8), (5, -5)]
    angles = [0.0, 100.0, 399.99999999995, 400.0, -1e-10, 12345.6, 1e15, INF, NAN, 250.0]
    for i, ((one, s1), (two, s2)) in enumerate(pairs(SEGMENTS) + pairs(SEGMENTS, 2)):
        dist, order = dists[i % 10]
        yield Input(i % 2 == 1).called(one, "and", two, "set out", text(dist, order)).point(*s1, *s2) \
            .number(*cycled(LINES, i), dist, order).angle(angles[i % 10])
    for point in ((3, -2), (3, 2), (3, 0), (-4, 9)):
        yield Input(True).called("foot of", text(*point)).point(0, 0, 10, 0, *point).again(2) \
            .number(0, 10, 0, 4, 3).quarters(3, 5, 1, -3)


def measures():
    boxes = [(5, 1, 9, 2, 7, 3), (0, 0, 10, 10, 0, 20), (1, 1, 1, 1, 1, 1), (NAN, 0, INF, 1, NAN, -INF),
             (1e-7, 1e-7, 2, -1e-7, 3, 4), (HUGE, 0, 0, -HUGE, 1, 1), (-0.0, 0, 5, 0, -0.0, 5)]
    for i, (name, ring) in enumerate(RINGS.items()):
        yield Input().called(name).number(*boxes[i % len(boxes)]).point(i, 2, 5, 5).ring(ring)
    yield from shapes(lambda: Input(True).number(*boxes[1]).point(5, 0).again(0))


def gons():
    for i, (x, y) in enumerate(DIRECTIONS + [(-TINY, 2), (-0.0, -1), (-1e-300, 1e10)]):
        angle = [0.0, 400.0, 200.0, -200.0, 399.9999999999999, -1e-14, 1e18, -399.5, INF, NAN, 300.0][i % 11]
        yield Input().called("towards", text(x, y), "angle", text(angle)).number(x, y).angle(angle) \
            .number(1, 2, NAN, 4).byte(9).byte(*[(7 * i + 5 * k) % 256 for k in range(27)])
    for count, way, steps in ((1, 0, 0), (4, 1, -1), (2, 1, 2), (3, 2, -1), (-2, 1, 1)):
        yield Input(True).called(quarters_name(count, way, steps)).number(25.5, -3).quarters(3, count, way, steps) \
            .number(1, 2, 3, 4).byte(10).byte(*[v for op in (9, 9, 2, 3, 4, 5, 6, 9, 0, 1) for v in (1, 2, op)])


def shapes(start, *words):
    """Structured rings behind what start() has written, named after the words and the shape."""
    def named(*shape):
        return start().called(*words, *shape)

    yield named("points of an L").shape(0, 6, [0, 0, 40, 0, 40, 30, 20, 30, 20, 10, 0, 10])
    yield named("steps turned a hair").shape(1, 6, [50, 20, -20, 30, -30, 9], size=2, kind=1, turn=[90])
    yield named("t turned at 500").shape(1, 8, [60, 20, -20, 20, 20, 20, -60, 7], kind=2, turn=[31], east=3, north=3)
    yield named("star 1000 to the West").shape(2, 7, [*ROUND, 120, 90, 64, 30, 80, 25, 70, 40, 90], east=6)
    yield named("ellipse").shape(3, 7, [*ROUND, 120, 90], kind=2, turn=[40])
    yield named("triangle clockwise").shape(3, 3, [90, 60, 100, 200, 80], kind=3, turn=[17], reverse=1, start=1)
    yield named("24 vertices").shape(4, 24, [10 + 7 * k % 50 for k in range(24)] + [250, 200], kind=2, turn=[9])
    yield named("ellipse on the grid").shape(3, 7, [*ROUND, 99, 90], east=4, north=5, kind=2, turn=[70], start=3)
    yield named("ellipse of micrometres").shape(3, 7, [*ROUND, 99, 90], size=6, kind=0)
    yield named("repeated vertex and one on a side").shape(3, 5, [*ROUND[:5], 99, 90], kind=1, turn=[-50],
                                                           flaws=[(0, 1, 0), (1, 2, 0)])
    yield named("swapped and doubled vertices").shape(3, 5, [*ROUND[:5], 99, 90], kind=2, turn=[11],
                                                      flaws=[(2, 1, 3), (3, 0, 2)])
    yield named("star with a nan").shape(2, 6, [*ROUND[:6], 120, 90, 64, 60, 50, 40, 60, 64], kind=2, turn=[25],
                                         flaws=[(4, 2, 0, 1, 1, 10)])
    yield named("no vertices").shape(0, 0, [])


def cut(start):
    for i, (name, ring) in enumerate(RINGS.items()):
        n = max(len(ring), 1)
        # A share of the area by its value, and by two factors.
        yield start(False).called(name, ("by two factors", "by its area")[i % 2]) \
            .byte(4 + 8 * (i % 4), 40 + 30 * i % 200).selector(i % 2).ring(ring).byte(i % n)
        if not ring:
            continue
        for area, tipo in ((1000.0, 1), (0.0, 1), (1e9, 1), (NAN, 0), (-5.0, 1), (3.0, 7)):
            if i % 6 == int(tipo + (area == area and area > 0)) % 6 or ring == RECTANGLE:
                yield start(False).called(name, "asked for", text(area), "kind", str(tipo)).byte(196, 0) \
                    .selector(tipo).ring(ring).byte((i + 1) % n).number(20.0, area)
        # A side that is none: given backwards, and a point off the ring.
        yield start(False).called(name, "side to its own start").byte(0, 100).selector(1).ring(ring).byte(1 % n) \
            .point(*ring[0])
        yield start(False).called(name, "side from a point off the ring").byte(1, 100).selector(1).ring(ring).byte(0) \
            .point(0.5, 0.25)
    # Structured shapes, each with three shares of its area.
    parts = itertools.cycle((20, 125, 235, 60, 140, 249, 110, 200, 255))
    for i in range(3):
        for seed in shapes(lambda: start(True).byte(6 + 8 * (i % 3), next(parts)).selector(1), f"side {i} of"):
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
    kinds = ("parallel", "perpendicular", "vertex")
    for i, (name, ring) in enumerate(RINGS.items()):
        n = max(len(ring), 1)
        yield wanted(Input().called(name, kinds[i % 3], "share").ring(ring), i % 3, i % 2, i % n,
                     (4, 20 + 31 * i % 220))
        yield wanted(Input().called(name, kinds[(i + 1) % 3], "equal parts").ring(ring), (i + 1) % 3, i // 2 % 2,
                     (i + 2) % n)
    for name, *amounts in (
            ("fifth", (0, 1000.0)), ("product and area", (1, 20.0, 35.0), (0, 250.0)),
            ("three thirds", (2, 1, 3), (2, 1, 3), (2, 1, 3)), ("whole", (2, 3, 3)), ("share of none", (2, 1, 0)),
            ("area nan", (0, NAN)), ("negative area", (0, -5.0)), ("its own area", (0, 5000.0)),
            ("more than its area", (0, 5000.000001)), ("product of inf and 0", (1, INF, 0.0)),
            ("unknown kind of amount", (3, 7, 1.0, 2.0)), ("smallest part", (4, 1)), ("greatest part", (4, 254)),
            ("four parts", (4, 50), (4, 50), (4, 50), (4, 50))):
        yield wanted(Input().called("rectangle", name).ring(RECTANGLE), 0, 0, 0, *amounts)
    for name, cut, measured, index in (
            ("cut 3", 3, 0, 0), ("cut -1", -1, 0, 0), ("measured 2", 0, 2, 0), ("index 255", 0, 0, 255),
            ("greatest cut", 2 ** 31 - 1, -2 ** 31, 1)):
        yield wanted(Input().called("rectangle unknown", name).ring(RECTANGLE), cut, measured, index, (4, 100))
    parts = itertools.cycle((20, 125, 235, 60, 140, 249, 110, 200))
    for i in range(6):
        for seed in shapes(lambda: Input(True), kinds[i % 3], f"to {i} of"):
            yield wanted(seed, i % 3, i // 3, i, (4, next(parts)), *([(4, 5)] if i % 2 else []))


def asking():
    """What asking.cpp reads behind the ring: bearing, tolerance, point, segments, distance, angle; holes, and the line last."""
    def asked(seed, bearing, tied_within, point, segments, distance, angle, cut=0):
        seed.number(bearing, tied_within).point(*point).byte(len(segments))
        for start, end in segments:
            seed.point(*start, *end)
        return seed.number(distance, angle).byte(0, cut, 1).point(70.0, 90.0).number(20.0).byte(cut % 2, 90)

    road = [((-500.0, -8.0), (500.0, -8.0))]
    for i, (name, ring) in enumerate(RINGS.items()):
        yield asked(Input().called(name).ring(ring), 100.0 * (i % 4), 0.0, (50.0, -5.0 + 25.0 * (i % 2)), road, 20.0,
                    25.0, i % 8)
    for name, *rest in (
            ("no segments", 0.0, 0.0, (0.0, 0.0), [], 10.0, 25.0),
            ("segment without length", 0.0, 0.0, (0.0, 0.0), [((5.0, 5.0), (5.0, 5.0))], 10.0, 25.0),
            ("nan everywhere", NAN, NAN, (NAN, NAN), [((NAN, 0.0), (5.0, 5.0))], NAN, NAN),
            ("inf everywhere", INF, INF, (INF, 0.0), [((INF, 0.0), (5.0, 5.0))], INF, INF),
            ("far away", 1e300, 1e300, (1e300, 1e300), [((1e89, 0.0), (1e89, 5.0))], 1e90, 100.0),
            ("all ties", 50.0, 100.0, (50.0, 25.0), road, 1e3, 100.0)):
        yield asked(Input().called("rectangle", name).ring(RECTANGLE), *rest)


HARNESSES = [primitives, directions, matrices, implicit_lines, intersections, point_line, arcs, arc_segment, polygon,
             survey_intersections, offsets, measures, gons, parallel_cut, perpendicular_cut, vertex_cut,
             division, asking]


def any_bytes(name):
    """Structured inputs of drawn bytes, the same ones each time: they visit every tag of the readers."""
    draw = random.Random(name)
    for length in range(20, 220, 8):
        yield Input(True).called(f"{length} drawn bytes").byte(*(draw.randrange(256) for _ in range(length)))


def named_seeds(harness):
    """Name: bytes, of all the seeds of a harness; of seeds that are equal, the first."""
    named = {}
    for seed in itertools.chain(harness(), any_bytes(harness.__name__)):
        name, data = seeds.as_name(seed.name), bytes(seed.bytes)
        if len(data) > MAX_LEN:
            sys.exit(f"{harness.__name__}: {name} has {len(data)} bytes, more than the inputs that are tried")
        if name in named:
            sys.exit(f"{harness.__name__}: two seeds are called {name}")
        if data not in named.values():
            named[name] = data
    return named


def minimised(program, named, found):
    """Those that reach what all of them reach, as libFuzzer chooses; what runs have found is numbered."""
    with tempfile.TemporaryDirectory() as scratch:
        kept = pathlib.Path(scratch) / "kept"
        kept.mkdir()
        seeds.unpack(named, pathlib.Path(scratch) / "seeds")
        sources = [pathlib.Path(scratch) / "seeds"] + ([found] if found and found.is_dir() else [])
        command = [program, "-set_cover_merge=1", f"-max_len={MAX_LEN}", "-timeout=30", kept, *sources]
        run = subprocess.run([str(word) for word in command], stdout=subprocess.DEVNULL, stderr=subprocess.PIPE,
                             text=True, check=False)
        if run.returncode:
            sys.exit(f"{program} ended with {run.returncode}:\n{run.stderr[-4000:]}")
        chosen = {path.read_bytes() for path in kept.iterdir()}
    result = {name: data for name, data in named.items() if data in chosen}
    others = sorted(chosen - set(result.values()), key=lambda data: (len(data), data))
    return {**result, **{f"found-{i:03}": data for i, data in enumerate(others, 1)}}


def main():
    parser = argparse.ArgumentParser(description="Writes the seed corpus of the fuzz harnesses.")
    parser.add_argument("programs", nargs="?", type=pathlib.Path, help="folder of the fuzz_<harness> programs")
    parser.add_argument("--found", type=pathlib.Path, help="folder of what runs have found, one per harness")
    parser.add_argument("--out", type=pathlib.Path, default=HERE / "corpus", help="write the corpus here instead")
    parser.add_argument("--seeds", type=pathlib.Path, help="write the seeds here, as they are, and stop")
    args = parser.parse_args()
    if (args.programs is None) == (args.seeds is None):
        parser.error("give either the folder of the programs or --seeds")

    for harness in HARNESSES:
        name = harness.__name__
        named = named_seeds(harness)
        if args.seeds:
            seeds.write(args.seeds / f"{name}.txt", named)
            continue
        # A seed that has its name in the corpus keeps it, whoever gave it.
        present = HERE / "corpus" / f"{name}.txt"
        if present.exists():
            named.update((old, data) for old, data in seeds.read(present).items() if data not in named.values())
        kept = minimised(args.programs / f"fuzz_{name}", named, args.found and args.found / name)
        seeds.write(args.out / f"{name}.txt", kept)
        print(f"{name}: {len(kept)} of {len(named)} seeds")


if __name__ == "__main__":
    main()
