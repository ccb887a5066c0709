"""Answers. They are frozen: what has been proven does not change."""

from __future__ import annotations

from typing import TYPE_CHECKING, Any, Dict, List, Optional, Tuple

from . import _drawing
from . import core as _core
from . import plparcel as _layer


_MOST_AREAS = 6  # that a long answer shows


def _pair(point):
    return (point.x, point.y)


def _number(value):
    """As it is shown, not as it is."""
    return f"{value:.4f}"


def ranges_of(parcel: _layer.Parcel, line: _layer.Line, opposite: bool, any_pieces: bool) -> Tuple[Pair, ...]:
    """What a line can cut off: ranges of areas (least, most)."""
    kind = _layer.Measured
    found = _layer.feasible(parcel, line, kind.opposite if opposite else kind.from_reference,
                            _layer.Pieces.any if any_pieces else _layer.Pieces.two)
    return tuple((found.least, found.most) for found in found.ranges)


if TYPE_CHECKING:
    import numpy
    import numpy.typing

    Ring = numpy.typing.NDArray[numpy.float64]

Pair = Tuple[float, float]

# A request: line, amounts, opposite, alternative, any_pieces, decimals, tolerance.
Asked = Tuple[_layer.Line, List[_layer.Amount], bool, int, bool, Optional[int], float]

_WORDS = {_layer.Cut.parallel: "parallel_to", _layer.Cut.perpendicular: "perpendicular_to",
          _layer.Cut.through_vertex: "through_vertex"}


def lines_for(parcel: _layer.Parcel, amount: _layer.Amount, opposite: bool) -> Tuple[Dict[str, Any], ...]:
    """Lines that can hold an amount, each as arguments of `divide`."""
    kind = _layer.Measured
    found = _layer.alternatives_for(parcel, amount, kind.opposite if opposite else kind.from_reference)
    return tuple({_WORDS[each.line.cut]: (each.line.index, each.line.ring) if each.line.ring else each.line.index,
                  "opposite": each.measured == kind.opposite} for each in found.lines)


class _Frozen:
    __slots__ = ()

    def __setattr__(self, name, value):
        raise AttributeError(f"{type(self).__name__} cannot be changed")

    def __delattr__(self, name):
        raise AttributeError(f"{type(self).__name__} cannot be changed")

    def __copy__(self):
        return self

    def __deepcopy__(self, memo):
        return self

    def __reduce__(self) -> Any:
        raise TypeError(f"a {type(self).__name__} lies in its division: that is what can be pickled")

    def _set(self, **fields):
        for name, value in fields.items():
            object.__setattr__(self, name, value)


class Line(_Frozen):
    """A dividing line, its ends on the boundary."""

    __slots__ = ("_answer",)
    _answer: _layer.DividingLine

    def __init__(self, answer: _layer.DividingLine) -> None:
        self._set(_answer=answer)

    @property
    def start(self) -> Pair:
        """The end that comes first along the line: (x, y)."""
        return _pair(self._answer.from_)

    @property
    def end(self) -> Pair:
        """The other end: (x, y)."""
        return _pair(self._answer.to)

    @property
    def segments(self) -> Tuple[Tuple[Pair, Pair], ...]:
        """What of the line lies in the parcel: pairs of points."""
        return tuple((_pair(part.from_), _pair(part.to)) for part in self._answer.segments)

    @property
    def length(self) -> float:
        """From end to end, caller's unit."""
        return _core.PlFunz_distance(self._answer.from_, self._answer.to)

    @property
    def bearing(self) -> float:
        """Gons, clockwise from North, from start to end."""
        start, end = self._answer.from_, self._answer.to
        return _core.AngoloDaAsseRifer(end.x - start.x, end.y - start.y)

    @property
    def meets_again(self) -> bool:
        """Whether the line, prolonged beyond its ends, meets what was left of the parcel again."""
        return self._answer.meets_again

    @property
    def __geo_interface__(self) -> Dict[str, Any]:
        segments = self.segments
        if len(segments) == 1:
            return {"type": "LineString", "coordinates": segments[0]}
        return {"type": "MultiLineString", "coordinates": segments}

    def __repr__(self) -> str:
        return f"Line({self.start} to {self.end})"


class Piece(_Frozen):
    """A piece of the divided parcel."""

    __slots__ = ("_answer", "is_rest")
    _answer: _layer.Piece
    is_rest: bool

    def __init__(self, answer: _layer.Piece, is_rest: bool) -> None:
        self._set(_answer=answer, is_rest=is_rest)

    @property
    def ring(self) -> Ring:
        """The vertices, an (n, 2) array that lies in the answer; the first one is not repeated."""
        return self._answer.ring

    @property
    def holes(self) -> Tuple[Ring, ...]:
        """Likewise, of the holes."""
        return self._answer.holes

    @property
    def amount(self) -> int:
        """Index of its amount; one more than the last of them for what is left."""
        return self._answer.amount

    @property
    def area(self) -> float:
        """Unit squared."""
        return self._answer.area

    @property
    def asked(self) -> float:
        """What it should hold; with any number of pieces, the whole amount."""
        return self._answer.asked

    @property
    def residual(self) -> float:
        """What it holds less what it should, before either is rounded."""
        return self._answer.residual

    @property
    def __geo_interface__(self) -> Dict[str, Any]:
        rings = [self.ring, *self.holes]
        closed = tuple(tuple(map(tuple, [*ring.tolist(), ring[0].tolist()])) for ring in rings)
        return {"type": "Polygon", "coordinates": closed}

    def __repr__(self) -> str:
        what = "rest" if self.is_rest else f"amount {self.amount}"
        return f"Piece({what}, area {_number(self.area)}, {len(self.ring)} vertices)"

    def _repr_svg_(self) -> str:
        return _drawing.drawn(self.ring, self.holes, [self], [])


class Division(_Frozen):
    """The answer to a request. It is true when the parcel has been divided."""

    __slots__ = ("parcel", "_asked", "_answer", "_lines", "_pieces")
    parcel: _layer.Parcel
    _asked: Asked
    _answer: _layer.Division
    _lines: Optional[Tuple[Line, ...]]
    _pieces: Optional[Tuple[Piece, ...]]

    def __init__(self, parcel: _layer.Parcel, asked: Asked, answer: _layer.Division) -> None:
        put = object.__setattr__
        put(self, "parcel", parcel)
        put(self, "_asked", asked)
        put(self, "_answer", answer)
        put(self, "_lines", None)
        put(self, "_pieces", None)

    def __reduce__(self) -> Tuple[Any, ...]:
        # What goes to another process is the request; asked again there, it has the same answer to the last bit.
        return divided, (self.parcel, self._asked)

    def __bool__(self) -> bool:
        return self._answer.divided

    @property
    def status(self) -> str:
        """"divided", or what became of the request in one word: a name of `plcalc.plparcel.Status`."""
        return self._answer.status.name

    @property
    def reason(self) -> str:
        """The same as a sentence's worth; of the boundary, when that is at fault."""
        return _layer.describe(self._answer)

    @property
    def at_amount(self) -> int:
        """Unless divided, index of the amount that could not be cut."""
        return self._answer.at_amount

    @property
    def answer(self) -> _layer.Division:
        """The same as the functions of `plcalc.plparcel` take it, such as `new_points`."""
        return self._answer

    @property
    def line(self) -> _layer.Line:
        """The line that was asked for."""
        return self._asked[0]

    @property
    def area(self) -> float:
        """Of the parcel, unit squared."""
        return self._answer.ring.area

    @property
    def report(self) -> _layer.RingReport:
        """What `measure` says of the parcel."""
        return self._answer.ring

    @property
    def lines(self) -> Tuple[Line, ...]:
        """The dividing lines, in the order of the amounts."""
        lines = self._lines
        if lines is None:
            lines = tuple(map(Line, self._answer.lines))
            self._set(_lines=lines)
        return lines

    @property
    def pieces(self) -> Tuple[Piece, ...]:
        """The pieces, in the order of the amounts, then what is left."""
        pieces = self._pieces
        if pieces is None:
            rest = len(self._answer.held) - 1
            pieces = tuple(Piece(piece, piece.amount == rest) for piece in self._answer.pieces)
            self._set(_pieces=pieces)
        return pieces

    @property
    def held(self) -> Tuple[Tuple[float, float, float, int], ...]:
        """What each amount has become, and what is left: (asked, area, residual, pieces)."""
        return tuple((held.asked, held.area, held.residual, held.pieces) for held in self._answer.held)

    @property
    def decimals(self) -> Optional[int]:
        """Of the ends of all lines; None for all digits."""
        return self._answer.decimals

    @property
    def feasible(self) -> Tuple[Pair, ...]:
        """What such a line can cut off, ranges of areas (least, most): what could be had where the request was refused. Of
        several amounts, it is about the first."""
        line, _, opposite, _, any_pieces, *_ = self._asked
        return ranges_of(self.parcel, line, opposite, any_pieces)

    @property
    def alternatives(self) -> Tuple[Dict[str, Any], ...]:
        """The parallels, perpendiculars and vertices that can hold the first amount in two pieces, each as arguments of
        `divide`: {"parallel_to": 2, "opposite": False}. It looks at every side and vertex, at 1,000 of them and
        more only at some."""
        _, amounts, opposite, *_ = self._asked
        return lines_for(self.parcel, amounts[0], opposite) if amounts else ()

    @property
    def __geo_interface__(self) -> Dict[str, Any]:
        """The pieces as features."""
        features = [{"type": "Feature", "geometry": piece.__geo_interface__,
                     "properties": {"piece": number, "amount": piece.amount, "area": piece.area, "asked": piece.asked,
                                    "residual": piece.residual}} for number, piece in enumerate(self.pieces)]
        return {"type": "FeatureCollection", "features": features}

    def __repr__(self) -> str:
        if not self:
            return f"Division(refused, {self.status}: {self.reason})"
        areas = [_number(piece.area) for piece in self.pieces]
        if len(areas) > 2 * _MOST_AREAS:
            areas[_MOST_AREAS:] = [f"and {len(areas) - _MOST_AREAS} more"]
        lines = "1 line" if len(self.lines) == 1 else f"{len(self.lines)} lines"
        return f"Division({lines}, areas {', '.join(areas)})"

    def _repr_svg_(self) -> str:
        return _drawing.drawn(self.parcel.outer, self.parcel.holes, self.pieces, self.lines, "" if self else self.reason)


def divided(parcel: _layer.Parcel, asked: Asked) -> Division:
    """The answer to a request."""
    return Division(parcel, asked, _layer.divide(parcel, *asked))


class Refused(Exception):
    """A request that no line meets.

    status: one word, a name of `plcalc.plparcel.Status`
    reason: the same as a sentence's worth
    division: the refused answer
    """

    def __init__(self, division: Division) -> None:
        super().__init__(division)
        self.division = division
        self.status = division.status
        self.reason = division.reason

    @property
    def feasible(self) -> Tuple[Pair, ...]:
        """What such a line can cut off: ranges of areas (least, most)."""
        return self.division.feasible

    @property
    def alternatives(self) -> Tuple[Dict[str, Any], ...]:
        """Other lines that can hold the first amount, each as arguments of `divide`."""
        return self.division.alternatives

    def __str__(self) -> str:
        # Only where the line is at fault, and the amount was the first.
        if self.division.at_amount > 0 or self.status in ("no_amount", "unusable_amount", "unusable_rounding"):
            return self.reason
        ranges = ", ".join(f"{_number(least)} to {_number(most)}" for least, most in self.feasible)
        return f"{self.reason}; what can be had: {ranges}" if ranges else self.reason
