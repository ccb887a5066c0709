"""Asks the program plcalc: parcels go to it as a table, answers come back as JSON, pieces and lines in a GeoPackage, which holds each
number to the last bit."""

import itertools
import json
import os
import re
import subprocess
import tempfile

from qgis.core import QgsVectorLayer

from .answers import (ALONG, BEARING, FACING, LONGEST, NEAREST, NUMBER, PARALLEL, PERPENDICULAR, POINT, SHORTEST, VERTEX,
                      Division, DividingLine, Measure, Piece, Shape, Shared, Side)
from .parcels import known, shape_of
from .words import tr

# Parcels in one call: many, for starting the program takes as long as dividing some hundred; few, for a run can be cancelled
# between two calls.
_BATCH = 256


class Unasked(ValueError):
    """What the program cannot be asked; the text says why."""


class Program:
    lacks = {
        "feasible": tr("The program plcalc does not list what a line can cut off. Install the Python package plcalc."),
        "stakeout": tr("The program plcalc gives no bearings of points, and rounds angles. Install the Python package plcalc."),
    }
    note = tr("The Python package plcalc is missing: the program of that name is asked. Bearings, and lengths of lines in several "
              "parts, have the decimals that it prints.")

    def __init__(self, path):
        self._path = path

    def divide(self, shape, asked):
        (_, division), = self.divide_all([(None, shape, asked)])
        return division

    def divide_all(self, requests):
        """(key, Division) of each (key, shape, asked), in their order."""
        for batch in _batches(requests):
            by_request = {}
            for place, (_, shape, asked) in enumerate(batch):
                # Of a table in which one vertex has no height, the program leaves out all of them.
                by_request.setdefault((asked, _is_high(shape)), []).append((place, shape))
            answers = {}
            for (asked, _), parcels in by_request.items():
                answers.update(zip((place for place, _ in parcels), self._divided(asked, [shape for _, shape in parcels])))
            for place, (key, _, _) in enumerate(batch):
                yield key, answers[place]

    def measure(self, rings):
        (_, measure), = self.measure_all([(None, rings)])
        return measure

    def measure_all(self, parcels):
        """(key, Measure) of each (key, rings), in their order. Figures have the decimals that the program prints."""
        for batch in _batches(parcels):
            with tempfile.TemporaryDirectory() as folder:
                reports = self._run("measure", folder, [Shape(rings) for _, rings in batch], [])["parcels"]
            for (key, rings), report in zip(batch, reports):
                yield key, _measure(rings, report)

    def _divided(self, asked, parcels):
        with tempfile.TemporaryDirectory() as folder:
            try:
                options = _options(asked, folder)
            except Unasked as why:
                return [Division("no_request", str(why))] * len(parcels)
            out = os.path.join(folder, "divided.gpkg")
            reports = self._run("divide", folder, parcels, [*options, "-o", out])["parcels"]
            pieces, lines = _features(out, "pieces"), _features(out, "lines")
        segments = [_segments(lines.get(number, [])) for number in range(1, len(parcels) + 1)]
        told = iter(self._lines([line for lines in segments for line in lines]))
        return [_division(report, shape, asked, pieces.get(number, []), list(itertools.islice(told, len(segments[number - 1]))))
                for number, (report, shape) in enumerate(zip(reports, parcels), 1)]

    def shared(self, division, neighbours, within):
        """A Shared: what is written of a division, and of each Shape beside it.

        within: boundaries no farther apart are one
        """
        shape, asked = division.proof
        with tempfile.TemporaryDirectory() as folder:
            out = os.path.join(folder, "divided.gpkg")
            options = [*_options(asked, folder), "--feature", "1", "--neighbours", "--shared-within", repr(within), "-o", out]
            told = self._run("divide", folder, [shape, *neighbours], options, 1).get("neighbours")
            if told is None:
                raise Unasked(tr("the program plcalc does not tell which points the neighbours get: install a newer one, or the Python "
                                 "package plcalc"))
            pieces, others = _features(out, "pieces"), _features(out, "neighbours")
        return Shared([_with_heights(feature, shape) for feature in pieces[1]],
                      [_with_heights(others[number][0], neighbour) if number in others else None
                       for number, neighbour in enumerate(neighbours, 2)], told["points_beside"], told["left_out"])

    def along(self, parcel, values, decimals, off=0.0):
        """The program knows of no numbers that vertices have but heights, which are in its answers."""
        return None

    def _lines(self, lines):
        """The DividingLine of each of `lines`, (segments, length or None, heights). What the program measures are triangles whose
        first side runs from end to end."""
        triangles = []
        for segments, _, _ in lines:
            (x0, y0), (x1, y1) = segments[0][0], segments[-1][1]
            triangles.append([[(x0, y0), (x1, y1), (x1 - (y1 - y0), y1 + (x1 - x0))]])
        for (segments, length, heights), (_, measure) in zip(lines, self.measure_all(zip(lines, triangles))):
            side = measure.sides[0][0] if measure.sides else Side(None, None)
            yield DividingLine(segments[0][0], segments[-1][1], segments, side.length if length is None else length, side.bearing,
                               heights)

    def _run(self, verb, folder, parcels, options, wanted=None):
        """What the program reports.

        wanted: of how many parcels; of all without it
        """
        wanted = len(parcels) if wanted is None else wanted
        table = os.path.join(folder, "parcels.csv")
        with open(table, "w", encoding="utf-8") as file:
            file.write("id,WKT\n")
            file.writelines(f'{number},"{_wkt(shape)}"\n' for number, shape in enumerate(parcels))
        # What is written lives for a moment, and need not survive a loss of power.
        environment = {**os.environ, "OGR_SQLITE_SYNCHRONOUS": "OFF"}
        done = subprocess.run([self._path, verb, table, *options, "--json"], capture_output=True, text=True, env=environment,
                              encoding="utf-8", check=False, creationflags=getattr(subprocess, "CREATE_NO_WINDOW", 0))
        try:
            report = json.loads(done.stdout) if done.stdout else {}
            if len(report["parcels"]) == wanted:
                return report
        except (ValueError, LookupError, TypeError):
            pass
        # Of a request that is none, and of a single parcel that is none, there is a message only.
        ended = tr("{program} gave no answer that can be read, and ended with status {status}").format(program=self._path,
                                                                                                     status=done.returncode)
        return {"parcels": [{"status": "refused", "reason": done.stderr.strip() or ended}] * wanted}


def _batches(rows):
    rows = iter(rows)
    return iter(lambda: list(itertools.islice(rows, _BATCH)), [])


def _is_high(shape):
    """Whether every vertex has a height."""
    return shape.heights is not None and not any(height is None for ring in shape.heights for height in ring)


def _wkt(shape):
    rings = [[" ".join(map(repr, vertex)) for vertex in ring] for ring in shape.rings]
    if _is_high(shape):
        rings = [[f"{vertex} {height!r}" for vertex, height in zip(*each)] for each in zip(rings, shape.heights)]
    kind = "POLYGON Z" if _is_high(shape) else "POLYGON"
    return f"{kind} (" + ", ".join("(" + ", ".join([*ring, *ring[:1]]) + ")" for ring in rings) + ")"


def _options(asked, folder):
    if asked.decimals is None:
        raise Unasked(tr("the program plcalc rounds the ends of lines: say to how many decimals, or install the Python package "
                         "plcalc for all digits"))
    options = [*_line_options(asked.line, folder), *_amount_options(asked.amount), "--decimals", str(asked.decimals),
               "--tolerance", f"{asked.tolerance!r}/1"]
    if asked.opposite:
        options.append("--opposite")
    if asked.any_pieces:
        options += ["--pieces", "any"]
    return options


def _line_options(line, folder):
    if line.kind == BEARING:
        return ["--bearing", f"{line.bearing!r}gon"]
    if line.kind == POINT:
        if line.bearing != 0.0:
            raise Unasked(tr("the program plcalc looks for lines through a point from North on: leave the bearing at 0, or install "
                             "the Python package plcalc"))
        return ["--through", _place(line.point)]
    if line.kind == VERTEX:
        return ["--vertex", str(line.value)] if line.by == NUMBER else ["--vertex-near", _place(line.value)]
    option = {PARALLEL: "--parallel", PERPENDICULAR: "--perpendicular"}[line.kind]
    if line.by == NUMBER:
        return [option, str(line.value)]
    return [option, *_side_options(line, folder)]


def _side_options(line, folder):
    if line.by in (LONGEST, SHORTEST):
        return ["--side", "longest" if line.by == LONGEST else "shortest"]
    if line.by == FACING:
        return ["--facing", f"{line.value!r}gon"]
    if line.by == NEAREST:
        return ["--side-near", _place(line.value)]
    assert line.by == ALONG
    path = os.path.join(folder, "along.csv")
    with open(path, "w", encoding="utf-8") as file:
        file.write("id,WKT\n")
        for number, points in enumerate(line.value.geometry["coordinates"]):
            file.write(f'{number},"LINESTRING ({", ".join(f"{x!r} {y!r}" for x, y in points)})"\n')
    return ["--along", path, "--within", repr(line.value.within)]


def _place(point):
    return f"{point[0]!r},{point[1]!r}"


def _amount_options(amount):
    name, value = amount
    if name != "amounts":
        return [f"--{name}", repr(value)]
    return ["--areas", ",".join(value)]


def _features(path, name):
    """The features of each parcel, by its number."""
    found = {}
    if os.path.exists(path):
        options = QgsVectorLayer.LayerOptions()
        options.skipCrsValidation = True  # the table has none, and QGIS would ask for it
        for feature in QgsVectorLayer(f"{path}|layername={name}", name, "ogr", options).getFeatures():
            found.setdefault(feature["parcel"], []).append(feature)
    return found


def _reason(report):
    return re.sub(r"^(plcalc: )?.*?: feature \d+: ", "", report["reason"], count=1)


def _segments(features):
    """The lines of a parcel: (segments, length or None, heights or None)."""
    found = {}
    for feature in features:
        line = feature.geometry()
        points = list(line.vertices())
        heights = tuple(known(point.z()) for point in points) if line.constGet().is3D() else None
        found.setdefault(feature["line"], []).append((tuple((point.x(), point.y()) for point in points), feature["length"], heights))
    return [(tuple(ends for ends, _, _ in parts), parts[0][1] if len(parts) == 1 else None,
             [heights or (None, None) for _, _, heights in parts] if any(heights for _, _, heights in parts) else None)
            for _, parts in sorted(found.items())]


def _with_heights(feature, shape):
    """The polygon of an answer about a shape. Where a height is not known the program leaves out those of the whole ring;
    vertices of the shape keep theirs."""
    found = shape_of(feature.geometry())
    if shape.heights is None or found.heights is not None:
        return found
    at = {vertex: height for ring in zip(shape.rings, shape.heights) for vertex, height in zip(*ring)}
    return Shape(found.rings, [[at.get(vertex) for vertex in ring] for ring in found.rings])


def _division(report, shape, asked, pieces, lines):
    if report["status"] != "divided":
        return Division("refused", _reason(report))
    return Division("divided", pieces=[Piece(_with_heights(feature, shape), feature["amount"] - 1, feature["area"], feature["asked"],
                                             feature["residual"]) for feature in pieces],
                    lines=lines, decimals=report["decimals"], proof=(shape, asked))


def _measure(rings, report):
    if report["status"] != "measured":
        return Measure(_reason(report))
    sides = iter(Side(side["length"], side["bearing_gon"]) for side in report["sides"])
    return Measure("usable", report["area"], report["perimeter"], [list(itertools.islice(sides, len(ring))) for ring in rings])
