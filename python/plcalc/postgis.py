"""Rows for the database: what the functions of the PostgreSQL extension return.

Geometries come as well-known binary and go as hexadecimal text, which PostGIS reads. Sides and vertices are counted from 1,
as in the program. What is wrong with a parcel is a row with a status, never an error; a call that asks for nothing, or for
two things at once, is one.
"""

import struct

from . import _wkb
from . import plparcel as _layer
from ._divide import divide, line_of
from ._parcels import parcel as _parcel_of


def _point(data):
    return struct.unpack_from("<2d", data, 5) if data is not None else None


def line_arguments(parallel_to, perpendicular_to, through_vertex, at_bearing, along, place_side, place_distance,
                   through_point, bearing):
    """The arguments of `plcalc.divide` for what SQL has: points and segments are little-endian WKB. Sides and vertices are
    still numbers from 1 on: see `_in_rings`."""
    given = {"parallel_to": parallel_to, "perpendicular_to": perpendicular_to, "through_vertex": through_vertex}
    arguments = {name: number for name, number in given.items() if number is not None}
    if min([*arguments.values(), 1 if place_side is None else place_side]) < 1:
        raise ValueError("sides and vertices are counted from 1")
    if at_bearing is not None:
        arguments["at_bearing"] = at_bearing
    if along is not None:
        count, = struct.unpack_from("<I", along, 5)
        numbers = struct.unpack_from(f"<{2 * count}d", along, 9)
        arguments["along"] = [numbers[:2], numbers[-2:]]
    if (place_side is None) != (place_distance is None):
        raise ValueError("place_side and place_distance belong together")
    if place_side is not None:
        arguments["through_place"] = (place_side, place_distance)
    if through_point is not None:
        arguments["through_point"] = _point(through_point)
    if bearing is not None:
        arguments["bearing"] = bearing
    return arguments


def amount_arguments(area, share, width, parts, amounts):
    """The same for amounts; a list is a text with commas."""
    given = {"area": area, "share": share, "width": width, "parts": parts,
             "amounts": amounts.split(",") if amounts is not None else None}
    return {name: value for name, value in given.items() if value is not None}


def _parcel(data, degrees):
    """(parcel, None), or (None, (status, reason))"""
    if data is None:
        return None, ("no_parcel", "there is no geometry")
    if degrees:
        return None, ("degrees", "the coordinates are degrees; transform them to a plane reference system first")
    try:
        return _parcel_of(data), None
    except ValueError as error:
        return None, ("no_polygon", str(error))


def _vertices(ring):
    """How many, without the closing one."""
    return len(ring) - int(len(ring) > 1 and (ring[0] == ring[-1]).all())


def _place_of(parcel, number):
    """(index, ring) of a side or a vertex by its number; those of holes are numbered on."""
    index = number - 1
    if number < len(parcel.outer):
        return index, 0
    for ring, vertices in enumerate((parcel.outer, *parcel.holes)):
        count = _vertices(vertices)
        if index < count:
            return index, ring
        index -= count
    return len(parcel.outer), 0  # which it does not have


def _in_rings(parcel, line):
    """The arguments for a parcel: sides and vertices are an index and a ring."""
    placed = dict(line)
    for name in line.keys() & {"parallel_to", "perpendicular_to", "through_vertex"}:
        placed[name] = _place_of(parcel, line[name])
    if "through_place" in line:
        side, distance = line["through_place"]
        index, ring = _place_of(parcel, side)
        placed["through_place"] = (index, distance, ring)
    return placed


def _refused(width, status, reason):
    return (None,) * (width - 2) + (status, reason)


def divide_rows(data, srid, degrees, line, amounts, opposite, any_pieces, decimals, tolerance, alternative):
    """(number, piece, line, amount, area, asked, residual, decimals, status, reason) of each piece."""
    parcel, wrong = _parcel(data, degrees)
    if wrong:
        return [_refused(10, *wrong)]
    if not amounts:  # as where the column that has them is empty
        return [_refused(10, "no_amount", _layer.describe(_layer.Status.no_amount))]
    if alternative < 1:
        raise ValueError("alternatives are counted from 1")
    answer = divide(parcel, **_in_rings(parcel, line), **amounts, opposite=opposite, alternative=alternative - 1,
                    any_pieces=any_pieces, decimals=decimals, tolerance=tolerance, raise_on_refusal=False)
    status, reason = answer.status, answer.reason
    if not answer:
        return [_refused(10, status, reason)]
    cuts = answer.lines
    return [(number + 1, _wkb.polygon([piece.ring, *piece.holes], srid),
             _wkb.lines(cuts[piece.amount].segments, srid) if piece.amount < len(cuts) else None, piece.amount + 1,
             piece.area, piece.asked, piece.residual, answer.decimals, status, reason)
            for number, piece in enumerate(answer.pieces)]


def measure_row(data, degrees):
    """(area, perimeter, vertices, anticlockwise, status, reason)"""
    parcel, wrong = _parcel(data, degrees)
    if wrong:
        return _refused(6, *wrong)
    report = _layer.check_parcel(parcel)
    status, reason = report.status.name, _layer.describe(report.status)
    if report.status != _layer.BoundaryStatus.usable:
        return _refused(6, status, reason)
    # A polygon of the database repeats the first vertex of each ring.
    vertices = sum(map(_vertices, (parcel.outer, *parcel.holes))) - report.repeated
    return report.area, report.perimeter, vertices, report.anticlockwise, status, reason


def feasible_rows(data, degrees, line, opposite, any_pieces):
    """(least, most, least_is_had, most_is_had, status, reason) of each range."""
    parcel, wrong = _parcel(data, degrees)
    if wrong:
        return [_refused(6, *wrong)]
    kind = _layer.Measured
    found = _layer.feasible(parcel, line_of(**_in_rings(parcel, line)), kind.opposite if opposite else kind.from_reference,
                            _layer.Pieces.any if any_pieces else _layer.Pieces.two)
    if found.refusal is not None:
        return [_refused(6, found.refusal.name, _layer.describe(found.refusal))]
    return [(each.least, each.most, each.least_is_had, each.most_is_had, "feasible", None) for each in found.ranges]
