"""Layers: GeoPandas frames in and out."""

from __future__ import annotations

from typing import Any

import pandas
from geopandas import GeoDataFrame
from shapely.geometry import LineString, MultiLineString, Polygon

from ._divide import divide
from ._parcels import parcel
from ._results import Division
from ._sides import Undecided


def _piece_rows(division):
    for number, piece in enumerate(division.pieces):
        yield {"piece": number, "amount": piece.amount, "area": piece.area, "asked": piece.asked,
               "residual": piece.residual, "status": division.status, "reason": division.reason}, \
            Polygon(piece.ring, piece.holes)


def _line_rows(division):
    for number, line in enumerate(division.lines):
        segments = line.segments
        geometry = LineString(segments[0]) if len(segments) == 1 else MultiLineString(segments)
        yield {"line": number, "length": line.length, "bearing": line.bearing, "status": division.status,
               "reason": division.reason}, geometry


def _answer(geometry, request):
    """The division, or the status and the sentence that say why there is none."""
    if geometry is None or geometry.is_empty:
        return "no_polygon", "the row has no geometry"
    try:
        lot = parcel(geometry)
    except ValueError as error:
        return "no_polygon", str(error)
    try:
        return divide(lot, raise_on_refusal=False, **request)
    except Undecided as error:
        return error.status, str(error)


def _answer_with_own(geometry, same, own):
    """The same where columns say what is asked: what they say wrongly is said of the row."""
    for name, value in own.items():
        if value is None or value is pandas.NA:
            return "no_amount", f"{name} is empty"
    try:
        return _answer(geometry, {**same, **own})
    except (TypeError, ValueError) as error:
        if not own:
            raise
        return "unusable_request", str(error)


def divide_frame(frame: GeoDataFrame, *, lines: bool = False, **request: Any) -> GeoDataFrame:
    """Divides every parcel of a GeoDataFrame.

    frame: polygons in a plane CRS, or without one
    lines: the dividing lines instead of the pieces
    request: as for `plcalc.divide`. A value that is a pandas Series gives each row its own.
    Returns: a GeoDataFrame in the order of the rows: the columns of the parcel, then piece, amount, area, asked, residual,
        status and reason (for lines: line, length, bearing, status, reason). The index is repeated for each piece. A
        parcel that was refused is one row without a geometry, with status and reason.
    Raises: ValueError for degrees, in which there are no areas.
    """
    if frame.crs is not None and frame.crs.is_geographic:
        raise ValueError(f"{frame.crs.name} has degrees; project the frame to a plane CRS first: frame.to_crs(...)")
    rows_of = _line_rows if lines else _piece_rows
    by_row = {name: value for name, value in request.items() if isinstance(value, pandas.Series)}
    for name, values in by_row.items():
        if not values.index.equals(frame.index):
            raise ValueError(f"{name} has another index than the frame")
    same = {name: value for name, value in request.items() if name not in by_row}

    at, fields, geometries = [], [], []
    for row, geometry in enumerate(frame.geometry):
        own = {name: values.iloc[row] for name, values in by_row.items()}
        answer = _answer_with_own(geometry, same, own)
        if isinstance(answer, Division) and answer:
            found = list(rows_of(answer))
        else:
            status, reason = (answer.status, answer.reason) if isinstance(answer, Division) else answer
            found = [({"status": status, "reason": reason}, None)]
        for values, shape in found:
            at.append(row)
            fields.append(values)
            geometries.append(shape)

    names = ["line", "length", "bearing"] if lines else ["piece", "amount", "area", "asked", "residual"]
    columns = pandas.DataFrame(fields, columns=[*names, "status", "reason"], index=frame.index[at])
    whole = {name: "Int64" for name in ("piece", "amount", "line") if name in columns}
    columns = columns.astype(whole)
    given = frame.drop(columns=frame.geometry.name).iloc[at]
    taken = given.columns.intersection([*columns.columns, "geometry"])
    given = given.rename(columns={name: f"parcel_{name}" for name in taken})
    return GeoDataFrame(pandas.concat([given, columns], axis=1), geometry=geometries, crs=frame.crs)
