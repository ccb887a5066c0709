"""Asks the Python package plcalc."""

import math

from .answers import (ALONG, BEARING, FACING, LONGEST, NEAREST, NUMBER, PARALLEL, PERPENDICULAR, POINT, VERTEX, Division,
                      DividingLine, Measure, Piece, Shape, Shared, Side, number_of, numbered)
from .words import tr

_ARGUMENTS = {PARALLEL: "parallel_to", PERPENDICULAR: "perpendicular_to", VERTEX: "through_vertex", BEARING: "at_bearing",
              POINT: "through_point"}


class Package:
    # What it leaves out: nothing.
    lacks = {}
    note = None

    def __init__(self, plcalc):
        self._plcalc = plcalc
        self._layer = plcalc.plparcel
        self._beside = {}

    def _parcel(self, rings):
        return self._layer.Parcel(rings[0], rings[1:])

    def divide_all(self, requests):
        """(key, Division) of each (key, shape, asked), in their order."""
        for key, shape, asked in requests:
            yield key, self.divide(shape, asked)

    def divide(self, shape, asked):
        rings = shape.rings
        parcel = self._parcel(rings)
        try:
            division = self._plcalc.divide(
                parcel, **self._line(asked.line, parcel, rings), **self._amount(asked.amount), opposite=asked.opposite,
                any_pieces=asked.any_pieces, decimals=asked.decimals, tolerance=asked.tolerance, raise_on_refusal=False)
        except ValueError as why:
            # Of a boundary that cannot be used no side is the longest, and it is the boundary that is to be mended.
            usable = self._plcalc.measure(parcel).status == self._layer.BoundaryStatus.usable
            return Division("no_request" if usable else "unusable_boundary", self._said(why, rings))
        if not division:
            return Division(division.status, str(self._plcalc.Refused(division)))
        at = self._heights(parcel, shape, division.decimals)
        return Division("divided", pieces=[_piece(piece, at) for piece in division.pieces],
                        lines=[_dividing_line(line, at) for line in division.lines], decimals=division.decimals,
                        proof=(parcel, shape, division))

    def shared(self, division, neighbours, within):
        """A Shared: what is written of a division, and of each Shape beside it.

        within: boundaries no farther apart are one
        """
        layer = self._layer
        parcel, shape, answer = division.proof
        others = [self._parcel(neighbour.rings) for neighbour in neighbours]
        sides = layer.SharedSides(layer.new_points(parcel, answer.answer), within, [parcel, *others])
        pieces = [sides.with_points(piece) for piece in layer.pieces_with_corners(parcel, answer.answer)]
        told = [sides.with_points(other) for other in others]
        # What was rounded lies beside its side, and a neighbour's boundary beside that.
        off = within + (0.0 if answer.decimals is None else 10.0 ** -answer.decimals)
        at = self._heights(parcel, shape, answer.decimals, off)
        return Shared([_shape(_rings(piece.parcel.outer, piece.parcel.holes), at) for piece in pieces],
                      [self._neighbour(*each, off) for each in zip(neighbours, others, told)],
                      sum(each.beside for each in (*pieces, *told)), sum(each.left_out for each in (*pieces, *told)))

    def _neighbour(self, shape, parcel, told, off):
        if told.inserted == 0:
            return None
        return _shape(_rings(told.parcel.outer, told.parcel.holes), self._heights(parcel, shape, None, off))

    def _heights(self, parcel, shape, decimals, off=0.0):
        """What tells the height of a point on the boundary; None where the parcel has none."""
        return None if shape.heights is None else self.along(parcel, shape.heights, decimals, off)

    def along(self, parcel, values, decimals, off=0.0):
        """What tells at a point of the boundary the number that its vertices have, None where one has none.

        parcel: its rings; values: of the vertices, ring by ring; off: how far points may lie off the boundary
        """
        given = self._parcel(parcel) if isinstance(parcel, list) else parcel
        flat = [math.nan if value is None else value for ring in values for value in ring]
        return self._layer.Heights(given, flat, decimals, off).at

    def measure_all(self, parcels):
        """(key, Measure) of each (key, rings), in their order."""
        for key, rings in parcels:
            yield key, self.measure(rings)

    def measure(self, rings):
        report = self._plcalc.measure(self._parcel(rings))
        if report.status != self._layer.BoundaryStatus.usable:
            return Measure(self._layer.describe(report.status))
        return Measure("usable", report.area, report.perimeter, [self._sides(ring) for ring in rings])

    def _sides(self, ring):
        core = self._plcalc.core
        return [Side(core.PlFunz_distance(start, end), core.AngoloDaAsseRifer(end[0] - start[0], end[1] - start[1]))
                for start, end in zip(ring, ring[1:] + ring[:1])]

    def feasible(self, rings, line, opposite, any_pieces):
        """Ranges (least, most, least_is_had, most_is_had), or the reason why there are none."""
        layer, parcel = self._layer, self._parcel(rings)
        try:
            wanted = self._line(line, parcel, rings)
        except ValueError as why:
            return [], self._said(why, rings)
        if line.kind == POINT:
            asked = layer.through_point(wanted["through_point"], wanted["bearing"])
        else:
            (name, where), = wanted.items()
            asked = getattr(layer, name)(*(where if isinstance(where, tuple) else (where,)))
        found = layer.feasible(parcel, asked, layer.Measured.opposite if opposite else layer.Measured.from_reference,
                               layer.Pieces.any if any_pieces else layer.Pieces.two)
        return ([(each.least, each.most, each.least_is_had, each.most_is_had) for each in found.ranges],
                layer.describe(found.refusal) if found.refusal is not None else "nothing")

    def set_out(self, station, reference, points):
        """(angle, distance, bearing) of each point; angles in gons, clockwise from the reference point. At the station there are
        none."""
        core = self._plcalc.core
        zero = core.AngoloDaAsseRifer(reference[0] - station[0], reference[1] - station[1])
        for x, y in points:
            if (x, y) == station:
                yield None, 0.0, None
                continue
            bearing = core.AngoloDaAsseRifer(x - station[0], y - station[1])
            yield core.LimiteAng0_400(bearing - zero), core.PlFunz_distance(station, (x, y)), bearing

    def _amount(self, amount):
        """The arguments of plcalc.divide."""
        name, value = amount
        if name != "amounts":
            return {name: value}
        return {name: [self._plcalc.width(float(text[1:])) if text.startswith("w") else text for text in value]}

    def _line(self, line, parcel, rings):
        """The arguments of plcalc.divide."""
        name = _ARGUMENTS[line.kind]
        if line.kind == BEARING:
            return {name: line.bearing}
        if line.kind == POINT:
            return {name: line.point, "bearing": line.bearing}
        if line.by == NUMBER:
            return {name: numbered(rings, line.value)}
        named = self._named(line)
        return {name: named.vertex_of(parcel) if line.kind == VERTEX else named.side_of(parcel)}

    def _named(self, line):
        if line.by == FACING:
            return self._plcalc.facing(line.value)
        if line.by == NEAREST:
            return self._plcalc.nearest_to(line.value)
        if line.by == ALONG:
            if line.value not in self._beside:
                self._beside[line.value] = self._plcalc.beside(line.value.geometry, line.value.within)
            return self._beside[line.value]
        return self._plcalc.longest if line.by == LONGEST else self._plcalc.shortest

    def _said(self, why, rings):
        """QGIS counts from 1, and numbers holes on."""
        if isinstance(why, self._plcalc.Undecided) and why.status == "tied":
            return tr("several fit equally well: {sides}").format(sides=", ".join(str(number_of(rings, *place)) for place in why.places))
        return str(why)


def _rings(outer, holes):
    return [[tuple(vertex) for vertex in ring.tolist()] for ring in (outer, *holes)]


def _shape(rings, at):
    return Shape(rings, None if at is None else [[at(vertex) for vertex in ring] for ring in rings])


def _piece(piece, at):
    return Piece(_shape(_rings(piece.ring, piece.holes), at), piece.amount, piece.area, piece.asked, piece.residual)


def _dividing_line(line, at):
    heights = None if at is None else [tuple(map(at, segment)) for segment in line.segments]
    return DividingLine(line.start, line.end, line.segments, line.length, line.bearing, heights)
