"""The answers to c/tests/hosts/requests.txt, through the package: as the hosts of the C interface print them."""

import struct

import numpy

from plcalc import core, plparcel


class Words:
    def __init__(self, words):
        self.words = iter(words)

    def i(self):
        return int(next(self.words))

    def d(self, count):
        return [float(next(self.words)) for _ in range(count)]

    def ring(self):
        return numpy.array(self.d(2 * self.i())).reshape(-1, 2)


def word(value):
    return str(int(value)) if isinstance(value, (int, bool)) else struct.pack(">d", value).hex()


def line_of(cut, index, ring, bearing, a, b, along):
    kind = plparcel.Cut
    makers = {kind.parallel: lambda: plparcel.parallel_to(index, ring),
              kind.perpendicular: lambda: plparcel.perpendicular_to(index, ring),
              kind.through_vertex: lambda: plparcel.through_vertex(index),
              kind.at_bearing: lambda: plparcel.at_bearing(bearing),
              kind.along_segment: lambda: plparcel.along_segment(a, b),
              kind.through_place: lambda: plparcel.through_place(index, along),
              kind.through_point: lambda: plparcel.through_point(a, bearing)}
    return makers[kind(cut)]()


def ring_words(ring):
    return [len(ring), *ring.ravel().tolist()]


def division_words(division):
    yield from [division.at_amount, -1 if division.decimals is None else division.decimals, division.ring.area,
                division.trials]
    for line in division.lines:
        yield from [*line.from_, *line.to, line.meets_again, line.library_agrees, len(line.segments)]
        for part in line.segments:
            yield from [*part.from_, *part.to]
    for piece in division.pieces:
        yield from [piece.amount, piece.area, piece.asked, piece.residual, *ring_words(piece.ring), len(piece.holes)]
        for hole in piece.holes:
            yield from ring_words(hole)
    for held in division.held:
        yield from [held.pieces, held.asked, held.area, held.residual]
    for answer in division.bare:
        yield from [answer.done, *answer.line.start, *answer.line.end]


def divide(words):
    cut, index, ring = words.i(), words.i(), words.i()
    (bearing,), a, b, (along,) = words.d(1), words.d(2), words.d(2), words.d(1)
    measured, pieces, alternative, rounded, decimals = (words.i() for _ in range(5))
    tolerance, = words.d(1)
    ask_library = words.i() != 0
    makers = (plparcel.area, plparcel.product, plparcel.share, plparcel.width)
    amounts = []
    for _ in range(words.i()):
        make, numbers = makers[words.i()], words.d(2)
        amounts.append(make(*numbers) if make in makers[1:3] else make(numbers[0]))
    rings = [words.ring() for _ in range(words.i())]
    try:
        line = line_of(cut, index, ring, bearing, a, b, along)
    except KeyError:
        return None  # a kind that does not exist cannot be written down here
    rounding = plparcel.Rounding(decimals if rounded else None, *([tolerance] if tolerance else []))
    request = plparcel.Request(line, amounts, plparcel.Measured(measured), alternative, plparcel.Pieces(pieces), rounding,
                               ask_library)
    division = plparcel.divide(plparcel.Parcel(rings[0], rings[1:]), request)
    return [f"'{plparcel.describe(division)}'", *map(word, division_words(division))]


def geometry(name, words):
    if name == "signed_area":
        return [core.AreaCalcolataSgn(words.ring())]
    if name == "fraz_area":
        cut, kind = words.i(), words.i()
        values, p1, p2 = words.d(2), words.d(2), words.d(2)
        done, x1, y1, _, x2, y2, _ = core.CFrazArea(words.ring(), p1, p2, cut, kind, *values).Esegui()
        return [done, x1, y1, x2, y2]
    if name == "meet_segments":
        first, second = ((words.d(2), words.d(2)) for _ in range(2))
        meet, point = core.PlFunz_intersect_ls(first, second, out=core.PL_PNT2D_record(0, 0))
        return [meet, *point]
    if name == "polar_point":
        station, reference, (angle, distance) = words.d(2), words.d(2), words.d(2)
        return [*core.CalcPtAngDist(station, reference, angle, distance)]
    a, b, point = words.d(2), words.d(2), words.d(2)
    ordinate, foot = core.DistSegmDaPt(a, b, point)
    return [*foot, core.DistPtSuSegmDaPt(a, b, a, foot), ordinate]


def answers(path):
    for text in path.read_text().splitlines():
        name, *rest = text.split() or ["#"]
        if name.startswith("#"):
            continue
        words = divide(Words(rest)) if name == "divide" else list(map(word, geometry(name, Words(rest))))
        yield " ".join([name, *words]) if words is not None else None
