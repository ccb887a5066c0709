"""What a parcel may come as."""

from __future__ import annotations

import re
from typing import Any, Mapping, Protocol, Sequence, Union

import numpy
import numpy.typing

from . import _wkb
from . import plparcel as _layer

_NUMBER = r"[-+]?(?:\d+(?:\.\d*)?|\.\d+)(?:[eE][-+]?\d+)?"
_WKT = re.compile(r"\s*(?:SRID\s*=\s*\d+\s*;)?\s*(MULTIPOLYGON|POLYGON)\s*(ZM|Z|M)?\s*(\(.*\))\s*", re.I | re.S)
_VERTEX = rf"\s*{_NUMBER}(?:\s+{_NUMBER}){{1,3}}\s*"
_RING = re.compile(rf"\s*\(({_VERTEX}(?:,{_VERTEX})*)\)\s*")


def _rings_of_wkt(text):
    found = _WKT.fullmatch(text)
    if not found:
        raise ValueError(f"not the WKT of a polygon: {text[:60]!r}")
    body = found[3].strip()
    if found[1].upper() == "MULTIPOLYGON":
        body = body[1:-1].strip()
        if re.search(r"\)\s*\)\s*,", body):
            raise ValueError("the multipolygon has several polygons; a parcel is one")
    rings, at = [], 1
    while True:
        ring = _RING.match(body, at)
        if not ring:
            raise ValueError(f"not the WKT of a polygon: {text[:60]!r}")
        rings.append(numpy.array([vertex.split()[:2] for vertex in ring[1].split(",")], dtype=float))
        at = ring.end()
        if at == len(body) - 1 and body[at] == ")":
            return rings
        if body[at:at + 1] != ",":
            raise ValueError(f"not the WKT of a polygon: {text[:60]!r}")
        at += 1


def _rings_of_geo(geometry):
    kind = geometry.get("type")
    if kind == "Feature":
        return _rings_of_geo(geometry.get("geometry") or {})
    if kind == "FeatureCollection":
        features = geometry.get("features") or []
        if len(features) != 1:
            raise ValueError(f"the collection has {len(features)} features; a parcel is one")
        return _rings_of_geo(features[0])
    coordinates = geometry.get("coordinates")
    if kind == "MultiPolygon":
        if len(coordinates) != 1:
            raise ValueError(f"the multipolygon has {len(coordinates)} polygons; a parcel is one")
        coordinates = coordinates[0]
    elif kind != "Polygon":
        raise ValueError(f"a parcel is a polygon, not {kind!r}")
    return [_ring_of(ring) for ring in coordinates]


def _ring_of(vertices):
    ring = numpy.asarray(vertices, dtype=float)
    if ring.size and (ring.ndim != 2 or ring.shape[1] < 2):
        raise ValueError("a ring is an array of rows, each x and y")
    return ring[:, :2] if ring.size else ring


class HasGeoInterface(Protocol):
    """A geometry of Shapely, a feature, and many others."""

    @property
    def __geo_interface__(self) -> Mapping[str, Any]: ...


ParcelLike = Union[_layer.Parcel, HasGeoInterface, Mapping[str, Any], str, bytes, bytearray, memoryview,
                   "numpy.typing.NDArray[Any]", Sequence[Sequence[float]]]


def parcel(given: ParcelLike) -> _layer.Parcel:
    """A parcel from whatever it comes as, ready to be divided again and again.

    given: anything with `__geo_interface__` (Shapely, GeoPandas' geometries), a GeoJSON-like dictionary, the WKT of a
        polygon or its binary form, an (n, 2) array or a list of points. Holes come with all but the last two. Heights are left out.
    Returns: a `plcalc.plparcel.Parcel`. Nothing is checked here: `divide` and `measure` say what is wrong with it.
    """
    if isinstance(given, _layer.Parcel):
        return given
    if isinstance(given, numpy.ma.MaskedArray):
        given = numpy.ma.filled(given.astype(float), numpy.nan)  # a vertex that is masked is unknown
    if isinstance(given, numpy.ndarray):
        return _layer.Parcel(given)
    if isinstance(given, str):
        rings = _rings_of_wkt(given)
    elif isinstance(given, (bytes, bytearray, memoryview)):
        rings = _wkb.rings_of(given)
    elif isinstance(given, Mapping):
        rings = _rings_of_geo(given)
    elif hasattr(given, "__geo_interface__"):
        rings = _rings_of_geo(given.__geo_interface__)
    else:
        if not hasattr(given, "__iter__"):
            raise TypeError(f"a parcel cannot be made of {type(given).__name__}")
        points: Any = given
        rings = [_ring_of(list(points))]
    return _layer.Parcel(rings[0] if rings else numpy.empty((0, 2)), rings[1:])
