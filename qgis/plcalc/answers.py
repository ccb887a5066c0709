"""What is asked of a parcel, and what is answered, whoever computes it."""

import collections

PARALLEL, PERPENDICULAR, VERTEX, BEARING, POINT = range(5)
NUMBER, COLUMN, LONGEST, SHORTEST, NEAREST, FACING, ALONG = range(7)

# kind: PARALLEL to POINT; by: how the side or the vertex is named, NUMBER to ALONG, or None; value: the number from 1, those of
# holes numbered on, the point, the bearing or an Alongside, as by says; bearing: gons; point: (x, y).
Line = collections.namedtuple("Line", "kind by value bearing point", defaults=(None, None, 0.0, None))

# amount: ("area", 1000.0), ("width", 5.0), ("parts", 3), or ("amounts", ("1000", "40x25", "1/3"));
# decimals: None for all digits.
Asked = collections.namedtuple("Asked", "line amount opposite any_pieces decimals tolerance",
                               defaults=(False, False, None, 1e-6))

# rings: lists of (x, y), the outer one first, the first vertex not repeated; heights: of the same vertices, None where one is
# not known, or None where the parcel has none.
Shape = collections.namedtuple("Shape", "rings heights", defaults=(None,))

# shape: a Shape; amount: from 0, the last one is what is left.
Piece = collections.namedtuple("Piece", "shape amount area asked residual")

# length and bearing: from start to end; heights: of the two ends of each segment, as in Shape.
DividingLine = collections.namedtuple("DividingLine", "start end segments length bearing heights", defaults=(None,))

# What is written beside neighbours. pieces: a Shape each; neighbours: a Shape each, None for one without new points; beside: how
# many points were not inserted, being so near to a corner; left_out: how many boundaries would meet themselves with their points.
Shared = collections.namedtuple("Shared", "pieces neighbours beside left_out")

# length: caller's unit; bearing: gons.
Side = collections.namedtuple("Side", "length bearing")


class Alongside:
    """Another geometry that a side lies along.

    geometry: a GeoJSON MultiLineString; within: how far away it may lie
    """

    def __init__(self, geometry, within):
        self.geometry, self.within = geometry, within


class Division:
    """An answer. It is true when the parcel has been divided; else status and reason say why not.

    decimals: of the ends of the lines, None for all digits: those asked for, or as many more as hold the amounts
    proof: what the engine that has answered needs to be asked about it again
    """

    def __init__(self, status, reason="", pieces=(), lines=(), decimals=None, proof=None):
        self.status, self.reason, self.pieces, self.lines, self.decimals = status, reason, pieces, lines, decimals
        self.proof = proof

    def __bool__(self):
        return self.status == "divided"


def numbered(rings, number):
    """The side or the vertex of a number, from 1, and its ring: both from 0. A number that is too large is one of the outer
    ring."""
    index = number - 1
    for ring, vertices in enumerate(rings):
        if index < len(vertices):
            return index, ring
        index -= len(vertices)
    return number - 1, 0


def number_of(rings, index, ring):
    """The number of a side or a vertex, from 1."""
    return sum(map(len, rings[:ring])) + index + 1


class Measure:
    """What a parcel measures; where its boundary cannot be used, status says why, and there are no figures.

    sides: of each ring, from the outer one on, in its order
    """

    def __init__(self, status, area=None, perimeter=None, sides=()):
        self.status, self.area, self.perimeter, self.sides = status, area, perimeter, sides
