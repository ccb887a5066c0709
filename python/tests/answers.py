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
    if isinstance(value, str):
        return f"'{value}'"
    return str(int(value)) if isinstance(value, (int, bool)) else struct.pack(">d", value).hex()


def line_of(cut, index, ring, bearing, a, b, along):
    kind = plparcel.Cut
    makers = {kind.parallel: lambda: plparcel.parallel_to(index, ring),
              kind.perpendicular: lambda: plparcel.perpendicular_to(index, ring),
              kind.through_vertex: lambda: plparcel.through_vertex(index, ring),
              kind.at_bearing: lambda: plparcel.at_bearing(bearing),
              kind.along_segment: lambda: plparcel.along_segment(a, b),
              kind.through_place: lambda: plparcel.through_place(index, along, ring),
              kind.through_point: lambda: plparcel.through_point(a, bearing)}
    return makers[kind(cut)]()


def ring_words(ring):
    return [len(ring), *ring.ravel().tolist()]


def division_words(division):
    yield from [plparcel.describe(division), division.at_amount, -1 if division.decimals is None else division.decimals, division.ring.area,
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


def line_words(words):
    cut, index, ring = words.i(), words.i(), words.i()
    (bearing,), a, b, (along,) = words.d(1), words.d(2), words.d(2), words.d(1)
    return cut, index, ring, bearing, a, b, along


def amount_of(words):
    makers = (plparcel.area, plparcel.product, plparcel.share, plparcel.width)
    make, numbers = makers[words.i()], words.d(2)
    return make(*numbers) if make in makers[1:3] else make(numbers[0])


def parcel_of(words):
    rings = [words.ring() for _ in range(words.i())]
    return plparcel.Parcel(rings[0], rings[1:])


def request_of(words):
    line = line_words(words)
    measured, pieces, alternative, rounded, decimals = (words.i() for _ in range(5))
    tolerance, = words.d(1)
    ask_library = words.i() != 0
    amounts = [amount_of(words) for _ in range(words.i())]
    rounding = plparcel.Rounding(decimals if rounded else None, *([tolerance] if tolerance else []))
    return plparcel.Request(line_of(*line), amounts, plparcel.Measured(measured), alternative, plparcel.Pieces(pieces),
                            rounding, ask_library)


def divide(words):
    request = request_of(words)
    return division_words(plparcel.divide(parcel_of(words), request))


def all_divisions(words):
    request = request_of(words)
    divisions = plparcel.all_divisions(parcel_of(words), request)
    yield len(divisions)
    for division in divisions:
        yield from division_words(division)


def refusal_of(found):
    return plparcel.describe(found.refusal) if found.refusal is not None else ""


def range_words(found):
    return [found.least, found.most, found.least_is_had, found.most_is_had]


def feasible(words):
    line, measured, pieces = line_words(words), words.i(), words.i()
    area, = words.d(1)
    found = plparcel.feasible(parcel_of(words), line_of(*line), plparcel.Measured(measured), plparcel.Pieces(pieces))
    yield from [refusal_of(found), found.parcel, len(found.ranges)]
    for each in found.ranges:
        yield from range_words(each)
    nearest = plparcel.nearest_amounts(found.ranges, area)
    for end in (nearest.below, nearest.above):
        yield from [end is not None, end or 0.0]
    yield from [nearest.below_is_had, nearest.above_is_had]


def alternatives(words):
    amount, measured, most = amount_of(words), words.i(), words.i()
    found = plparcel.alternatives_for(parcel_of(words), amount, plparcel.Measured(measured), most)
    yield from [refusal_of(found), found.looked_at, found.of, len(found.lines)]
    for each in found.lines:
        yield from [int(each.line.cut), each.line.index, each.line.ring, int(each.measured), *range_words(each.range)]


def find(words):
    wanted, point, (bearing, distance, angle, tied) = words.i(), words.d(2), words.d(4)
    other = plparcel.OtherGeometry([(words.d(2), words.d(2)) for _ in range(words.i())])
    alongside = plparcel.Alongside(distance, *([angle] if angle else []))
    parcel = parcel_of(words)
    found = (lambda: plparcel.longest_side(parcel, tied),
             lambda: plparcel.shortest_side(parcel, tied),
             lambda: plparcel.side_near(parcel, point, tied),
             lambda: plparcel.side_facing(parcel, bearing, tied),
             lambda: plparcel.side_along(parcel, other, alongside, tied),
             lambda: plparcel.vertex_near(parcel, point, tied),
             lambda: plparcel.vertex_farthest(parcel, bearing, tied))[wanted]()
    yield from [plparcel.describe(found.status), plparcel.describe(found.boundary), found.nearest, len(found.candidates)]
    for each in [*found.candidates, *([found.next] if found.next is not None else [])]:
        yield from [each.place.index, each.place.ring, each.length, each.bearing, each.turned, each.distance, each.alongside]


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


LAYER = {"divide": divide, "all_divisions": all_divisions, "feasible": feasible, "alternatives": alternatives, "find": find}


def answers(path):
    for text in path.read_text().splitlines():
        name, *rest = text.split() or ["#"]
        if name.startswith("#"):
            continue
        try:
            given = LAYER[name](Words(rest)) if name in LAYER else geometry(name, Words(rest))
            yield " ".join([name, *map(word, given)])
        except KeyError:
            yield None  # a kind of line that does not exist cannot be written down here
