"""Sides and vertices named by what they are. In a layer, side 0 is an accident of how it was drawn."""

from __future__ import annotations

from typing import Any, Callable, Mapping, Optional, Sequence, Tuple, Union

from . import core as _core
from . import plparcel as _layer
from ._parcels import HasGeoInterface

PointLike = Union[Sequence[float], HasGeoInterface, _core.PL_PNT2D_record]


class Undecided(ValueError):
    """No side, or several, are what was named; or the boundary cannot be used. Differences up to 0.001 in lengths and up
    to 0.01 gon in bearings count as none.

    status: one word, a name of `plcalc.plparcel.ChoiceStatus`
    places: those that fit equally well, each (index, ring); empty when there is none
    """

    status: str
    places: Tuple[Tuple[int, int], ...]

    def __init__(self, status: str, places: Tuple[Tuple[int, int], ...], reason: str) -> None:
        super().__init__(reason)
        self.status, self.places = status, places

    def __reduce__(self) -> Tuple[Any, ...]:
        return type(self), (self.status, self.places, str(self))


class Named:
    """What `divide` takes instead of a number: it finds the side or the vertex of each parcel."""

    def __init__(self, text: str, side: Optional[Callable[[_layer.Parcel], _layer.Choice]] = None,
                 vertex: Optional[Callable[[_layer.Parcel], _layer.Choice]] = None) -> None:
        self._text, self._side, self._vertex = text, side, vertex
        self._made: Any = text

    def made_by(self, *made: Any) -> "Named":
        """Says which function of this module makes the same name, for a worker elsewhere."""
        self._made = made
        return self

    def __reduce__(self) -> Any:
        return self._made

    def __repr__(self) -> str:
        return f"plcalc.{self._text}"

    def side_of(self, parcel: _layer.Parcel) -> Tuple[int, int]:
        """(side, ring) of a parcel. Raises Undecided, and TypeError for a name that is one of vertices only."""
        if self._side is None:
            raise TypeError(f"{self!r} names vertices, not sides")
        return self._place(self._side(parcel), "sides")

    def vertex_of(self, parcel: _layer.Parcel) -> Tuple[int, int]:
        """(vertex, ring) of a parcel. Raises Undecided, and TypeError for a name that is one of sides only."""
        if self._vertex is None:
            raise TypeError(f"{self!r} names sides, not vertices")
        return self._place(self._vertex(parcel), "vertices")

    @staticmethod
    def _place(choice: _layer.Choice, what: str) -> Tuple[int, int]:
        places: Tuple[Tuple[int, int], ...] = tuple((candidate.place.index, candidate.place.ring) for candidate in choice.candidates)
        if choice.status == _layer.ChoiceStatus.found:
            return places[0]
        reason = _layer.describe(choice.status)
        if choice.status == _layer.ChoiceStatus.unusable_boundary:
            reason += f": {_layer.describe(choice.boundary)}"
        if places:
            reason += f": {what} " + ", ".join(str(index) if ring == 0 else str((index, ring)) for index, ring in places)
        raise Undecided(choice.status.name, places, reason)


longest = Named("longest", lambda parcel: _layer.longest_side(parcel, _layer.kTiedWithin))
shortest = Named("shortest", lambda parcel: _layer.shortest_side(parcel, _layer.kTiedWithin))


def _coordinates(point):
    if hasattr(point, "__geo_interface__"):
        point = point.__geo_interface__["coordinates"]
    elif isinstance(point, _core.PL_PNT2D_record):
        point = (point.x, point.y)
    return float(point[0]), float(point[1])


def nearest_to(point: PointLike) -> Named:
    """The side, or the vertex, nearest to a point."""
    at = _coordinates(point)
    return Named(f"nearest_to({at})", lambda parcel: _layer.side_near(parcel, at, _layer.kTiedWithin),
                 lambda parcel: _layer.vertex_near(parcel, at, _layer.kTiedWithin)).made_by(nearest_to, (at,))


def facing(bearing: float) -> Named:
    """The side that faces a bearing, in gons clockwise from North: 200 for the one to the South."""
    gons = float(bearing)
    return Named(f"facing({gons:g})", lambda parcel: _layer.side_facing(parcel, gons, _layer.kTiedWithinGon)).made_by(facing, (gons,))


def farthest(bearing: float) -> Named:
    """The vertex that lies farthest towards a bearing, in gons clockwise from North: 0 for the northernmost."""
    gons = float(bearing)
    return Named(f"farthest({gons:g})",
                 vertex=lambda parcel: _layer.vertex_farthest(parcel, gons, _layer.kTiedWithin)).made_by(farthest, (gons,))


def beside(geometry: Union[HasGeoInterface, Mapping[str, Any]], within: float) -> Named:
    """The side with the greatest length along another geometry, such as a road or a neighbour.

    geometry: lines or polygons: anything with `__geo_interface__`, or a GeoJSON-like dictionary
    within: how far away the geometry may lie, caller's unit
    """
    interface = geometry if isinstance(geometry, Mapping) else geometry.__geo_interface__
    other = _layer.OtherGeometry(list(_segments(interface)))
    alongside = _layer.Alongside(float(within))
    return Named(f"beside({interface['type']}, {within:g})",
                 lambda parcel: _layer.side_along(parcel, other, alongside, _layer.kTiedWithin)
                 ).made_by(beside, (dict(interface), float(within)))


def _segments(interface):
    if interface["type"] == "GeometryCollection":
        for geometry in interface["geometries"]:
            yield from _segments(geometry)
        return
    depth = {"LineString": 1, "MultiLineString": 2, "Polygon": 2, "MultiPolygon": 3}.get(interface["type"])
    if depth is None:
        raise TypeError(f"a side runs along lines or polygons, not along a {interface['type']}")
    for points in _lines(interface["coordinates"], depth):
        for start, end in zip(points, points[1:]):
            yield tuple(map(float, start[:2])), tuple(map(float, end[:2]))


def _lines(coordinates, depth):
    if depth == 1:
        yield coordinates
        return
    for part in coordinates:
        yield from _lines(part, depth - 1)
