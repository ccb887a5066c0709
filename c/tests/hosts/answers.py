#!/usr/bin/env python3
"""answers.py LIBRARY REQUESTS: the answers to requests.txt, through Python's ctypes."""

import ctypes
import struct
import sys

DOUBLE, INT32, INT64, UINT32 = ctypes.c_double, ctypes.c_int32, ctypes.c_int64, ctypes.c_uint32
OK, NO_ANSWER = 0, 1


class Record(ctypes.Structure):
    """A record that knows its size."""

    def __init__(self, **fields):
        super().__init__(struct_size=ctypes.sizeof(self), **fields)


class Request(Record):
    _fields_ = [("struct_size", UINT32), ("cut", INT32), ("index", INT64), ("ring", INT64), ("bearing_gon", DOUBLE),
                ("a_x", DOUBLE), ("a_y", DOUBLE), ("b_x", DOUBLE), ("b_y", DOUBLE), ("along", DOUBLE),
                ("measured", INT32), ("pieces", INT32), ("alternative", INT64), ("rounded", INT32),
                ("decimals", INT32), ("rounding_tolerance", DOUBLE), ("ask_library", INT32), ("reserved", INT32)]


class Amount(Record):
    _fields_ = [("struct_size", UINT32), ("given", INT32), ("first", DOUBLE), ("second", DOUBLE)]


class DivisionInfo(Record):
    _fields_ = [("struct_size", UINT32), ("status", INT32), ("at_amount", INT64), ("boundary", INT32),
                ("decimals", INT32), ("area", DOUBLE), ("lines", INT64), ("pieces", INT64), ("held", INT64),
                ("bare", INT64), ("trials", INT64)]


class LineInfo(Record):
    _fields_ = [("struct_size", UINT32), ("library_agrees", INT32), ("from_x", DOUBLE), ("from_y", DOUBLE),
                ("to_x", DOUBLE), ("to_y", DOUBLE), ("segments", INT64), ("meets_again", INT32), ("reserved", INT32)]


class PieceInfo(Record):
    _fields_ = [("struct_size", UINT32), ("reserved", INT32), ("amount", INT64), ("vertices", INT64),
                ("holes", INT64), ("area", DOUBLE), ("asked", DOUBLE), ("residual", DOUBLE)]


class HeldInfo(Record):
    _fields_ = [("struct_size", UINT32), ("reserved", INT32), ("pieces", INT64), ("asked", DOUBLE), ("area", DOUBLE),
                ("residual", DOUBLE)]


class Range(Record):
    _fields_ = [("struct_size", UINT32), ("least_is_had", INT32), ("least", DOUBLE), ("most", DOUBLE),
                ("most_is_had", INT32), ("reserved", INT32)]


class FeasibleInfo(Record):
    _fields_ = [("struct_size", UINT32), ("refused", INT32), ("ranges", INT64), ("parcel", DOUBLE)]


class Nearest(Record):
    _fields_ = [("struct_size", UINT32), ("has_below", INT32), ("below", DOUBLE), ("above", DOUBLE), ("has_above", INT32),
                ("below_is_had", INT32), ("above_is_had", INT32), ("reserved", INT32)]


class Alternative(Record):
    _fields_ = [("struct_size", UINT32), ("cut", INT32), ("index", INT64), ("ring", INT64), ("measured", INT32),
                ("least_is_had", INT32), ("least", DOUBLE), ("most", DOUBLE), ("most_is_had", INT32), ("reserved", INT32)]


class AlternativesInfo(Record):
    _fields_ = [("struct_size", UINT32), ("refused", INT32), ("lines", INT64), ("looked_at", INT64), ("of", INT64)]


class Search(Record):
    _fields_ = [("struct_size", UINT32), ("wanted", INT32), ("x", DOUBLE), ("y", DOUBLE), ("bearing_gon", DOUBLE),
                ("distance", DOUBLE), ("angle_gon", DOUBLE), ("tied_within", DOUBLE)]


class Candidate(Record):
    _fields_ = [("struct_size", UINT32), ("reserved", INT32), ("index", INT64), ("ring", INT64), ("length", DOUBLE),
                ("bearing_gon", DOUBLE), ("turned_gon", DOUBLE), ("distance", DOUBLE), ("alongside", DOUBLE)]


class Choice(Record):
    _fields_ = [("struct_size", UINT32), ("status", INT32), ("boundary", INT32), ("has_next", INT32),
                ("candidates", INT64), ("nearest", DOUBLE)]


def load(path):
    library = ctypes.CDLL(path)
    handle, doubles = ctypes.c_void_p, ctypes.POINTER(DOUBLE)
    arguments = {
        "plc_parcel_make": [doubles, INT64, ctypes.POINTER(handle)],
        "plc_parcel_add_hole": [handle, doubles, INT64],
        "plc_divide": [handle, ctypes.POINTER(Request), ctypes.POINTER(Amount), INT64, ctypes.POINTER(handle)],
        "plc_all_divisions": [handle, ctypes.POINTER(Request), ctypes.POINTER(Amount), INT64, ctypes.POINTER(handle)],
        "plc_divisions_count": [handle],
        "plc_divisions_at": [handle, INT64],
        "plc_feasible": [handle, ctypes.POINTER(Request), ctypes.POINTER(Range), INT64, ctypes.POINTER(FeasibleInfo)],
        "plc_nearest_amounts": [ctypes.POINTER(Range), INT64, DOUBLE, ctypes.POINTER(Nearest)],
        "plc_alternatives_for": [handle, ctypes.POINTER(Amount), INT32, INT64, ctypes.POINTER(Alternative), INT64,
                                 ctypes.POINTER(AlternativesInfo)],
        "plc_other_make": [doubles, INT64, ctypes.POINTER(handle)],
        "plc_find": [handle, ctypes.POINTER(Search), handle, ctypes.POINTER(Candidate), INT64, ctypes.POINTER(Choice)],
        "plc_division_get": [handle, ctypes.POINTER(DivisionInfo)],
        "plc_division_line": [handle, INT64, ctypes.POINTER(LineInfo)],
        "plc_division_segment": [handle, INT64, INT64, doubles],
        "plc_division_piece": [handle, INT64, ctypes.POINTER(PieceInfo)],
        "plc_division_ring": [handle, INT64, INT64, doubles, INT64, ctypes.POINTER(INT64)],
        "plc_division_held": [handle, INT64, ctypes.POINTER(HeldInfo)],
        "plc_division_bare": [handle, INT64, doubles],
        "plc_signed_area": [doubles, INT64, doubles],
        "plc_fraz_area": [doubles, INT64, DOUBLE, DOUBLE, DOUBLE, DOUBLE, INT32, INT32, DOUBLE, DOUBLE, doubles],
        "plc_meet_segments": [doubles, doubles, doubles],
        "plc_polar_point": [DOUBLE] * 6 + [doubles],
        "plc_offsets_of": [DOUBLE] * 6 + [doubles] * 3,
    }
    for name, types in arguments.items():
        getattr(library, name).argtypes = types
    for name in ("plc_parcel_free", "plc_division_free", "plc_divisions_free", "plc_other_free"):
        getattr(library, name).argtypes = [handle]
        getattr(library, name).restype = None
    library.plc_divisions_count.restype = INT64
    library.plc_divisions_at.restype = handle
    library.plc_division_text.argtypes = [handle]
    for name in ("plc_division_text", "plc_status_text", "plc_boundary_text", "plc_choice_text"):
        getattr(library, name).restype = ctypes.c_char_p
    return library


def must(code, *others):
    if code != OK and code not in others:
        sys.exit(f"code {code}")


def array(numbers):
    return (DOUBLE * len(numbers))(*numbers)


class Words:
    def __init__(self, words):
        self.words = iter(words)

    def i(self):
        return int(next(self.words))

    def d(self, count):
        return [float(next(self.words)) for _ in range(count)]

    def ring(self):
        return self.d(2 * self.i())


def quoted(text):
    return f"'{text.decode()}'"


def word(value):
    if isinstance(value, str):
        return value
    return str(value) if isinstance(value, int) else struct.pack(">d", value).hex()


def ring_words(library, division, piece, ring):
    count = INT64()
    must(library.plc_division_ring(division, piece, ring, None, 0, count))
    xy = (DOUBLE * (2 * count.value))()
    must(library.plc_division_ring(division, piece, ring, xy, count.value, count))
    return [count.value, *xy]


def division_words(library, division):
    info = DivisionInfo()
    must(library.plc_division_get(division, info))
    yield quoted(library.plc_division_text(division))
    yield from [info.at_amount, info.decimals, info.area, info.trials]
    xyxy = (DOUBLE * 4)()
    for i in range(info.lines):
        line = LineInfo()
        must(library.plc_division_line(division, i, line))
        yield from [line.from_x, line.from_y, line.to_x, line.to_y, line.meets_again, line.library_agrees,
                    line.segments]
        for k in range(line.segments):
            must(library.plc_division_segment(division, i, k, xyxy))
            yield from xyxy
    for i in range(info.pieces):
        piece = PieceInfo()
        must(library.plc_division_piece(division, i, piece))
        yield from [piece.amount, piece.area, piece.asked, piece.residual]
        yield from ring_words(library, division, i, 0)
        yield piece.holes
        for k in range(piece.holes):
            yield from ring_words(library, division, i, k + 1)
    for i in range(info.held):
        held = HeldInfo()
        must(library.plc_division_held(division, i, held))
        yield from [held.pieces, held.asked, held.area, held.residual]
    for i in range(info.bare):
        yield int(library.plc_division_bare(division, i, xyxy) == OK)
        yield from xyxy


def request_of(words):
    cut, index, ring = words.i(), words.i(), words.i()
    bearing, a_x, a_y, b_x, b_y, along = words.d(6)
    return Request(cut=cut, index=index, ring=ring, bearing_gon=bearing, a_x=a_x, a_y=a_y, b_x=b_x, b_y=b_y, along=along,
                   measured=words.i(), pieces=words.i())


def amount_of(words):
    given = words.i()
    first, second = words.d(2)
    return Amount(given=given, first=first, second=second)


def parcel_of(library, words):
    rings = [words.ring() for _ in range(words.i())]
    parcel = ctypes.c_void_p()
    must(library.plc_parcel_make(array(rings[0]), len(rings[0]) // 2, parcel))
    for hole in rings[1:]:
        must(library.plc_parcel_add_hole(parcel, array(hole), len(hole) // 2))
    return parcel


def whole_request_of(words):
    request = request_of(words)
    request.alternative, request.rounded, request.decimals = words.i(), words.i(), words.i()
    request.rounding_tolerance, = words.d(1)
    request.ask_library = words.i()
    amounts = [amount_of(words) for _ in range(words.i())]
    return request, (Amount * len(amounts))(*amounts), len(amounts)


def divide(library, words):
    request = whole_request_of(words)
    parcel, division = parcel_of(library, words), ctypes.c_void_p()
    must(library.plc_divide(parcel, *request, division), NO_ANSWER)
    library.plc_parcel_free(parcel)
    yield from division_words(library, division)
    library.plc_division_free(division)


def all_divisions(library, words):
    request = whole_request_of(words)
    parcel, divisions = parcel_of(library, words), ctypes.c_void_p()
    must(library.plc_all_divisions(parcel, *request, divisions), NO_ANSWER)
    library.plc_parcel_free(parcel)
    count = library.plc_divisions_count(divisions)
    yield count
    for i in range(count):
        yield from division_words(library, library.plc_divisions_at(divisions, i))
    library.plc_divisions_free(divisions)


def refusal(library, number):
    return quoted(library.plc_status_text(number) if number else b"")


def feasible(library, words):
    request = request_of(words)
    area, = words.d(1)
    parcel, info, nearest = parcel_of(library, words), FeasibleInfo(), Nearest()
    must(library.plc_feasible(parcel, request, None, 0, info), NO_ANSWER)
    ranges = (Range * max(info.ranges, 1))(Range())
    must(library.plc_feasible(parcel, request, ranges, info.ranges, info), NO_ANSWER)
    library.plc_parcel_free(parcel)
    yield from [refusal(library, info.refused), info.parcel, info.ranges]
    for each in ranges[:info.ranges]:
        yield from [each.least, each.most, each.least_is_had, each.most_is_had]
    must(library.plc_nearest_amounts(ranges, info.ranges, area, nearest))
    yield from [nearest.has_below, nearest.below, nearest.has_above, nearest.above, nearest.below_is_had,
                nearest.above_is_had]


def alternatives(library, words):
    amount, measured, most = amount_of(words), words.i(), words.i()
    parcel, info = parcel_of(library, words), AlternativesInfo()
    lines = (Alternative * most)(Alternative())
    must(library.plc_alternatives_for(parcel, amount, measured, most, lines, most, info), NO_ANSWER)
    library.plc_parcel_free(parcel)
    yield from [refusal(library, info.refused), info.looked_at, info.of, info.lines]
    for each in lines[:info.lines]:
        yield from [each.cut, each.index, each.ring, each.measured, each.least, each.most, each.least_is_had,
                    each.most_is_had]


def find(library, words):
    search = Search(wanted=words.i())
    search.x, search.y, search.bearing_gon, search.distance, search.angle_gon, search.tied_within = words.d(6)
    count = words.i()
    other, choice, candidates = ctypes.c_void_p(), Choice(), (Candidate * 16)(Candidate())
    must(library.plc_other_make(array(words.d(4 * count)), count, other))
    parcel = parcel_of(library, words)
    must(library.plc_find(parcel, search, other, candidates, len(candidates), choice), NO_ANSWER)
    library.plc_parcel_free(parcel)
    library.plc_other_free(other)
    yield from [quoted(library.plc_choice_text(choice.status)), quoted(library.plc_boundary_text(choice.boundary)),
                choice.nearest, choice.candidates]
    for each in candidates[:choice.candidates + choice.has_next]:
        yield from [each.index, each.ring, each.length, each.bearing_gon, each.turned_gon, each.distance, each.alongside]


def geometry(library, name, words):
    xy = (DOUBLE * 4)()
    if name == "signed_area":
        ring = words.ring()
        must(library.plc_signed_area(array(ring), len(ring) // 2, xy))
        return list(xy[:1])
    if name == "fraz_area":
        cut, kind = words.i(), words.i()
        values, sides = words.d(2), words.d(4)
        ring = words.ring()
        code = library.plc_fraz_area(array(ring), len(ring) // 2, *sides, cut, kind, *values, xy)
        return [int(code == OK), *xy]
    if name == "meet_segments":
        code = library.plc_meet_segments(array(words.d(4)), array(words.d(4)), xy)
        return [int(code == OK), *xy[:2]]
    if name == "polar_point":
        must(library.plc_polar_point(*words.d(6), xy))
        return list(xy[:2])
    abscissa, ordinate = DOUBLE(), DOUBLE()
    must(library.plc_offsets_of(*words.d(6), xy, abscissa, ordinate))
    return [*xy[:2], abscissa.value, ordinate.value]


LAYER = {"divide": divide, "all_divisions": all_divisions, "feasible": feasible, "alternatives": alternatives, "find": find}


def main():
    library = load(sys.argv[1])
    with open(sys.argv[2], encoding="ascii") as requests:
        for line in requests:
            name, *rest = line.split() or ["#"]
            if name in LAYER:
                print(name, *map(word, LAYER[name](library, Words(rest))))
            elif not name.startswith("#"):
                print(name, *map(word, geometry(library, name, Words(rest))))


if __name__ == "__main__":
    main()
