"""Requests as a surveyor says them."""

from __future__ import annotations

import operator
from fractions import Fraction
from typing import Any, Optional, Sequence, SupportsIndex, Tuple, Union, cast

from . import plparcel as _layer
from ._parcels import HasGeoInterface, ParcelLike
from ._parcels import parcel as _parcel_of
from ._results import Division, Refused, divided, ranges_of
from ._sides import Named, PointLike

# A side or a vertex: an index, (index, ring), or what it is.
PlaceLike = Union[SupportsIndex, Tuple[SupportsIndex, SupportsIndex], Named]
ShareLike = Union[str, Fraction, float, Tuple[float, float]]
SegmentLike = Union[HasGeoInterface, Sequence[PointLike]]
Listed = Any  # a list, an array or a column of them

area = _layer.area
product = _layer.product
width = _layer.width


def share(part: ShareLike, of: Optional[float] = None) -> _layer.Amount:
    """An amount given as a share of the parcel.

    part: "1/3", "25%", a fraction, a number from 0 to 1; or, with `of`, the numerator
    of: the denominator
    Returns: an amount; the quotient is not rounded.
    """
    if of is not None:
        return _layer.share(cast(float, part), of)
    if isinstance(part, str):
        text = part.strip()
        numerator, slash, denominator = text.partition("/")
        if slash:
            return _layer.share(float(numerator), float(denominator))
        if text.endswith("%"):
            return _layer.share(float(text[:-1]), 100.0)
        raise ValueError(f"{part!r} is not a share; write it as '1/3' or '25%'")
    if isinstance(part, Fraction):
        return _layer.share(part.numerator, part.denominator)
    if isinstance(part, tuple):
        return _layer.share(*part)
    return _layer.share(part, 1.0)


def _amount_of(given):
    """One of a list: an amount, an area as a number, or a text: 1000, 40x50, 1/3, 25%."""
    if isinstance(given, _layer.Amount):
        return given
    if isinstance(given, str):
        text = given.strip()
        if "/" in text or text.endswith("%"):
            return share(text)
        length1, times, length2 = text.partition("x")
        return product(float(length1), float(length2)) if times else area(float(text))
    if isinstance(given, Fraction):
        return share(given)
    return area(given)


def _listed(given):
    return given if isinstance(given, list) or getattr(given, "ndim", 0) else (given,)


def _amounts(area_, product_, share_, width_, parts, amounts):
    count = ((area_ is not None) + (product_ is not None) + (share_ is not None) + (width_ is not None)
             + (parts is not None) + (amounts is not None))
    if count != 1:
        raise TypeError("give one of area, product, share, width, parts and amounts")
    if area_ is not None:
        return [area(value) for value in _listed(area_)]
    if share_ is not None:
        return [share(value) for value in _listed(share_)]
    if product_ is not None:
        return [product(*value) for value in _listed(product_)]
    if width_ is not None:
        return [width(value) for value in _listed(width_)]
    if parts is None:
        if isinstance(amounts, str):
            amounts = amounts.split(",")
        return [_amount_of(value) for value in amounts]
    parts = operator.index(parts)
    if parts < 2:
        raise ValueError("parts are 2 or more")
    return _layer.equal_parts(parts)


def _index(given, what):
    index = operator.index(given)
    if index < 0:
        raise ValueError(f"{what} are counted from 0")
    return index


def _of_ring(make, given, what):
    """A side or a vertex of the outer ring, or (side, ring)."""
    if isinstance(given, tuple):
        index, ring = given
        return make(_index(index, what), _index(ring, "rings"))
    return make(_index(given, what))


def _place(side, distance, ring=0):
    return _layer.through_place(_index(side, "sides"), distance, _index(ring, "rings"))


def line_of(parallel_to=None, perpendicular_to=None, through_vertex=None, at_bearing=None, along=None, through_place=None,
            through_point=None, bearing=None):
    """The line that the arguments of `divide` ask for."""
    count = ((parallel_to is not None) + (perpendicular_to is not None) + (through_vertex is not None)
             + (at_bearing is not None) + (along is not None) + (through_place is not None)
             + (through_point is not None))
    if count != 1:
        raise TypeError("give one of parallel_to, perpendicular_to, through_vertex, at_bearing, along, through_place and "
                        "through_point")
    if bearing is not None and through_point is None:
        raise TypeError("bearing says where to look first, and goes with through_point; the bearing of a line is at_bearing")
    if parallel_to is not None:
        return _of_ring(_layer.parallel_to, parallel_to, "sides")
    if perpendicular_to is not None:
        return _of_ring(_layer.perpendicular_to, perpendicular_to, "sides")
    if through_vertex is not None:
        return _of_ring(_layer.through_vertex, through_vertex, "vertices")
    if at_bearing is not None:
        return _layer.at_bearing(at_bearing)
    if along is not None:
        start, end = _points(along)
        return _layer.along_segment(start, end)
    if through_place is not None:
        return _place(*through_place)
    point, = _points([through_point])
    return _layer.through_point(point, 0.0 if bearing is None else bearing)


def _points(given):
    """Points of pairs, or of what has a geo-interface."""
    interface = getattr(given, "__geo_interface__", None)
    if interface is not None:
        given = interface["coordinates"]
    for point in given:
        interface = getattr(point, "__geo_interface__", None)
        yield tuple(map(float, interface["coordinates"] if interface is not None else point))[:2]


def _line_for(parcel, parallel_to, perpendicular_to, through_vertex, *others):
    """The line, where a side or a vertex may be named by what it is."""
    if isinstance(parallel_to, Named):
        parallel_to = parallel_to.side_of(parcel)
    if isinstance(perpendicular_to, Named):
        perpendicular_to = perpendicular_to.side_of(parcel)
    if isinstance(through_vertex, Named):
        through_vertex = through_vertex.vertex_of(parcel)
    return line_of(parallel_to, perpendicular_to, through_vertex, *others)


def divide(parcel: ParcelLike, *, parallel_to: Optional[PlaceLike] = None,
           perpendicular_to: Optional[PlaceLike] = None, through_vertex: Optional[PlaceLike] = None,
           at_bearing: Optional[float] = None, along: Optional[SegmentLike] = None,
           through_place: Optional[Sequence[float]] = None, through_point: Optional[PointLike] = None,
           bearing: Optional[float] = None, area: Union[float, Listed, None] = None,
           product: Union[Tuple[float, float], Listed, None] = None, share: Union[ShareLike, Listed, None] = None,
           width: Union[float, Listed, None] = None, parts: Optional[SupportsIndex] = None, amounts: Optional[Listed] = None,
           opposite: bool = False, alternative: SupportsIndex = 0, any_pieces: bool = False,
           decimals: Optional[int] = None, tolerance: float = 1e-6,
           raise_on_refusal: bool = True) -> Division:
    """Divides a parcel with proof.

    parcel: see `plcalc.parcel`. Sides and vertices are counted from 0, in its order; side i runs from vertex i on.

    The line, one of:
    parallel_to, perpendicular_to: a side, or (side, ring), where ring k is the k-th hole; or what the side is:
        `plcalc.longest`, `plcalc.shortest`, `plcalc.nearest_to(point)`, `plcalc.facing(bearing)`, `plcalc.beside(road, 10)`
    through_vertex: a vertex, or (vertex, ring), `plcalc.nearest_to(point)`, `plcalc.farthest(bearing)`
    at_bearing: gons, clockwise from North
    along: a segment that gives the direction, two points
    through_place: (side, distance along it), or (side, distance, ring)
    through_point: a point; `bearing` says where to look first when several lines hold the amount

    The amounts, one of; lists are cut one after another:
    area: unit squared
    product: a pair of lengths
    share: "1/3", "25%", a fraction, a number from 0 to 1
    width: of a strip, or a frontage; the area follows
    parts: how many equal ones
    amounts: a list of any of these: "1000", "40x50", "1/3", `plcalc.width(10)`

    opposite: the amounts lie on the other side of the line
    alternative: which of the lines that hold the first amount, from 0
    any_pieces: the whole straight line cuts, into however many pieces
    decimals: of the ends of the lines, as they are staked out; None for all digits
    tolerance: with decimals, by how much a piece may miss its amount, as a part of the parcel
    raise_on_refusal: with False a refused request is returned, and is false

    Returns: a `Division`.
    Raises: `Refused` when no line holds the amounts; `Undecided` when no side, or several, are what was named; TypeError and
        ValueError for a request that is none.
    """
    given = _parcel_of(parcel)
    line = _line_for(given, parallel_to, perpendicular_to, through_vertex, at_bearing, along, through_place, through_point,
                     bearing)
    listed = _amounts(area, product, share, width, parts, amounts)
    division = divided(given, (line, listed, opposite, _index(alternative, "alternatives"), any_pieces, decimals, tolerance))
    if raise_on_refusal and not division:
        raise Refused(division)
    return division


def all_divisions(parcel: ParcelLike, *, parallel_to: Optional[PlaceLike] = None,
                  perpendicular_to: Optional[PlaceLike] = None, through_vertex: Optional[PlaceLike] = None,
                  at_bearing: Optional[float] = None, along: Optional[SegmentLike] = None,
                  through_place: Optional[Sequence[float]] = None, through_point: Optional[PointLike] = None,
                  bearing: Optional[float] = None, area: Union[float, Listed, None] = None,
                  product: Union[Tuple[float, float], Listed, None] = None, share: Union[ShareLike, Listed, None] = None,
                  width: Union[float, Listed, None] = None, parts: Optional[SupportsIndex] = None, amounts: Optional[Listed] = None,
                  opposite: bool = False, alternative: SupportsIndex = 0, any_pieces: bool = False,
                  decimals: Optional[int] = None, tolerance: float = 1e-6) -> Tuple[Division, ...]:
    """Divides a parcel by each of the lines that hold the first amount. The arguments are those of `divide`.

    Returns: the divisions, in the order of `alternative`. Where no line holds the amount, the only one says why, and is false.
    """
    given = _parcel_of(parcel)
    line = _line_for(given, parallel_to, perpendicular_to, through_vertex, at_bearing, along, through_place, through_point,
                     bearing)
    listed = _amounts(area, product, share, width, parts, amounts)
    first = _index(alternative, "alternatives")
    side, pieces = _layer.Measured, _layer.Pieces
    request = _layer.Request(line, listed, side.opposite if opposite else side.from_reference, first,
                             pieces.any if any_pieces else pieces.two, _layer.Rounding(decimals, tolerance))
    return tuple(Division(given, (line, listed, opposite, first + further, any_pieces, decimals, tolerance), answer)
                 for further, answer in enumerate(_layer.all_divisions(given, request)))


def measure(parcel: ParcelLike) -> _layer.RingReport:
    """Checks and measures a parcel.

    Returns: a `plcalc.plparcel.RingReport`: status, area, perimeter, and where the boundary is at fault.
    """
    return _layer.check_parcel(_parcel_of(parcel))


def feasible(parcel: ParcelLike, *, parallel_to: Optional[PlaceLike] = None,
             perpendicular_to: Optional[PlaceLike] = None, through_vertex: Optional[PlaceLike] = None,
             at_bearing: Optional[float] = None, along: Optional[SegmentLike] = None,
             through_place: Optional[Sequence[float]] = None, through_point: Optional[PointLike] = None,
             opposite: bool = False, any_pieces: bool = False) -> Tuple[Tuple[float, float], ...]:
    """What a line can cut off. The arguments are those of `divide`.

    Returns: the ranges of areas, each (least, most), from the smallest on; none when the parcel or the line cannot be used.
        Whether the ends are had themselves tells `plcalc.plparcel.feasible`, which this asks.
    """
    given = _parcel_of(parcel)
    line = _line_for(given, parallel_to, perpendicular_to, through_vertex, at_bearing, along, through_place, through_point,
                     None)
    return ranges_of(given, line, opposite, any_pieces)
