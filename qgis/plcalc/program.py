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
                      Division, DividingLine, Measure, Piece, Side)
from .parcels import rings_of
from .words import tr

# Parcels in one call: many, for starting the program takes as long as dividing some hundred; few, for a run can be cancelled
# between two calls.
_BATCH = 256

_AMOUNT = re.compile(r"[0-9.eE+]+(x[0-9.eE+]+|/[0-9.eE+]+|%)?")


class Unasked(ValueError):
    """What the program cannot be asked; the text says why."""


class Program:
    lacks = {
        "feasible": tr("The program plcalc does not list what a line can cut off. Install the Python package plcalc."),
        "stakeout": tr("The program plcalc gives no bearings of points, and rounds angles. Install the Python package plcalc."),
    }
    note = tr("The Python package plcalc is missing: the program of that name is asked. It tells no bearings, and only lengths of "
              "lines in one part.")

    def __init__(self, path):
        self._path = path

    def divide(self, rings, asked):
        (_, division), = self.divide_all([(None, rings, asked)])
        return division

    def divide_all(self, requests):
        """(key, Division) of each (key, rings, asked), in their order."""
        for batch in _batches(requests):
            by_request = {}
            for place, (_, rings, asked) in enumerate(batch):
                by_request.setdefault(asked, []).append((place, rings))
            answers = {}
            for asked, parcels in by_request.items():
                answers.update(zip((place for place, _ in parcels), self._divided(asked, [rings for _, rings in parcels])))
            for place, (key, _, _) in enumerate(batch):
                yield key, answers[place]

    def measure(self, rings):
        (_, measure), = self.measure_all([(None, rings)])
        return measure

    def measure_all(self, parcels):
        """(key, Measure) of each (key, rings), in their order. Figures have the decimals that the program prints."""
        for batch in _batches(parcels):
            with tempfile.TemporaryDirectory() as folder:
                reports = self._run("measure", folder, [rings for _, rings in batch], [])
            for (key, rings), report in zip(batch, reports):
                yield key, _measure(rings, report)

    def _divided(self, asked, parcels):
        with tempfile.TemporaryDirectory() as folder:
            try:
                options = _options(asked, folder)
                _check_sides(asked, parcels)
            except Unasked as why:
                return [Division("no_request", str(why))] * len(parcels)
            out = os.path.join(folder, "divided.gpkg")
            reports = self._run("divide", folder, parcels, [*options, "-o", out])
            pieces, lines = _features(out, "pieces"), _features(out, "lines")
        return [_division(report, pieces.get(number, []), lines.get(number, []))
                for number, report in enumerate(reports, 1)]

    def _run(self, verb, folder, parcels, options):
        """What the program reports of each parcel."""
        table = os.path.join(folder, "parcels.csv")
        with open(table, "w", encoding="utf-8") as file:
            file.write("id,WKT\n")
            file.writelines(f'{number},"{_wkt(rings)}"\n' for number, rings in enumerate(parcels))
        # What is written lives for a moment, and need not survive a loss of power.
        environment = {**os.environ, "OGR_SQLITE_SYNCHRONOUS": "OFF"}
        done = subprocess.run([self._path, verb, table, *options, "--json"], capture_output=True, text=True, env=environment,
                              encoding="utf-8", check=False, creationflags=getattr(subprocess, "CREATE_NO_WINDOW", 0))
        try:
            reports = json.loads(done.stdout)["parcels"] if done.stdout else []
        except (ValueError, LookupError, TypeError):
            reports = []
        if len(reports) == len(parcels):
            return reports
        # Of a request that is none, and of a single parcel that is none, there is a message only.
        ended = tr("{program} gave no answer that can be read, and ended with status {status}").format(program=self._path,
                                                                                                     status=done.returncode)
        return [{"status": "refused", "reason": done.stderr.strip() or ended}] * len(parcels)


def _batches(rows):
    rows = iter(rows)
    return iter(lambda: list(itertools.islice(rows, _BATCH)), [])


def _wkt(rings):
    return "POLYGON (" + ", ".join("(" + ", ".join(f"{x!r} {y!r}" for x, y in [*ring, *ring[:1]]) + ")" for ring in rings) + ")"


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
    for text in value:
        # A name would be looked for as a file.
        if not _AMOUNT.fullmatch(text):
            raise Unasked(tr("'{text}' is no amount; write it as 1000, 40x25, 1/3 or 25%").format(text=text))
    return ["--areas", ",".join(value)]


def _check_sides(asked, parcels):
    """The program numbers the vertices of holes on; here a number is one of the outer ring."""
    line = asked.line
    if line.by == NUMBER and any(line.value > len(rings[0]) and len(rings) > 1 for rings in parcels):
        raise Unasked(tr("there is no side or vertex of the number {number} on the outer ring").format(number=line.value))


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


def _division(report, pieces, lines):
    if report["status"] != "divided":
        return Division("refused", _reason(report))
    segments = {}
    for feature in lines:
        ends = tuple((point.x(), point.y()) for point in feature.geometry().asPolyline())
        segments.setdefault(feature["line"], []).append((ends, feature["length"]))
    return Division("divided", pieces=[Piece(rings_of(feature.geometry()), feature["amount"] - 1, feature["area"], feature["asked"],
                                             feature["residual"]) for feature in pieces],
                    lines=[_line(parts) for _, parts in sorted(segments.items())], decimals=report["decimals"])


def _line(parts):
    """A line of (segment, length)."""
    segments = tuple(segment for segment, _ in parts)
    return DividingLine(segments[0][0], segments[-1][1], segments, parts[0][1] if len(parts) == 1 else None, None)


def _measure(rings, report):
    if report["status"] != "measured":
        return Measure(_reason(report))
    sides = iter(Side(side["length"], side["bearing_gon"]) for side in report["sides"])
    return Measure("usable", report["area"], report["perimeter"], [list(itertools.islice(sides, len(ring))) for ring in rings])
