"""What is asked of a parcel, and what is answered, whoever computes it."""

import collections

PARALLEL, PERPENDICULAR, VERTEX, BEARING, POINT = range(5)
NUMBER, COLUMN, LONGEST, SHORTEST, NEAREST, FACING, ALONG = range(7)

# kind: PARALLEL to POINT; by: how the side or the vertex is named, NUMBER to ALONG, or None; value: the number from 1, the
# point, the bearing or an Alongside, as by says; bearing: gons; point: (x, y).
Line = collections.namedtuple("Line", "kind by value bearing point", defaults=(None, None, 0.0, None))

# amount: ("area", 1000.0), ("width", 5.0), ("parts", 3), or ("amounts", ("1000", "40x25", "1/3"));
# decimals: None for all digits.
Asked = collections.namedtuple("Asked", "line amount opposite any_pieces decimals tolerance",
                               defaults=(False, False, None, 1e-6))

# rings: lists of (x, y), the outer one first, the first vertex not repeated; amount: from 0, the last one is what is left.
Piece = collections.namedtuple("Piece", "rings amount area asked residual")

# length and bearing: from start to end; None where the engine does not tell them.
DividingLine = collections.namedtuple("DividingLine", "start end segments length bearing")

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
    """

    def __init__(self, status, reason="", pieces=(), lines=(), decimals=None):
        self.status, self.reason, self.pieces, self.lines, self.decimals = status, reason, pieces, lines, decimals

    def __bool__(self):
        return self.status == "divided"


class Measure:
    """What a parcel measures; where its boundary cannot be used, status says why, and there are no figures.

    sides: of each ring, from the outer one on, in its order
    """

    def __init__(self, status, area=None, perimeter=None, sides=()):
        self.status, self.area, self.perimeter, self.sides = status, area, perimeter, sides
