"""The program in place of the Python package: the same answers, or a reason."""

import math
import os
import random
import sys
import tempfile
import unittest
from unittest import mock

import session
from qgis.core import QgsProcessingException
from session import CROSSED, HOLED, LOT, UTM, YARD, layer_of, values
from test_algorithms import run


def setUpModule():
    session.start()


def without_package():
    """As if the Python package were not installed."""
    return mock.patch.dict(sys.modules, {"plcalc": None})


def without_program():
    return mock.patch.dict(os.environ, {"PATH": "/nowhere"})


def both(name, **parameters):
    """The results by the package, and by the program."""
    by_package = run(name, **parameters)
    with without_package():
        return by_package, run(name, **parameters)


def rows(layer, *names):
    return [(feature.geometry().asWkt(17), *(feature[name] for name in names)) for feature in layer.getFeatures()]


# (WKT, an amount, a side) of rings of random corners round a middle, at UTM coordinates.
def stars(count, seed):
    chance = random.Random(seed)
    for number in range(count):
        corners = chance.randint(3, 9)
        angles = sorted(chance.uniform(0, 2 * math.pi) for _ in range(corners))
        ring = [(500000 + 300 * number + chance.uniform(20, 90) * math.sin(angle),
                 5000000 + chance.uniform(20, 90) * math.cos(angle)) for angle in angles]
        yield "POLYGON ((" + ", ".join(f"{x!r} {y!r}" for x, y in [*ring, ring[0]]) + "))", str(chance.uniform(1, 5000)), \
            chance.randint(1, corners)


class TheSame(unittest.TestCase):
    def setUp(self):
        self.lots = layer_of(UTM, [(wkt, wanted, side, 0) for wkt, wanted, side in stars(60, 19)]
                             + [(HOLED, "1000", 2, 1), (CROSSED, "1", 1, 2), (None, "1", 1, 3), (LOT, "many", 1, 4),
                                (YARD, "100", 77, 5)], columns="&field=wanted:string&field=side:integer&field=row:integer")
        self.road = layer_of(UTM, [("LINESTRING (400000 4999970.5, 600000 4999990.25)",)], kind="LineString")

    def the_same(self, **parameters):
        by_package, by_program = both("divide", INPUT=self.lots, DECIMALS=3, **parameters)
        self.assertEqual(rows(by_package["PIECES"], "parcel", "piece", "amount", "area", "asked", "residual", "status"),
                         rows(by_program["PIECES"], "parcel", "piece", "amount", "area", "asked", "residual", "status"))
        self.assertEqual(rows(by_package["LINES"], "parcel", "line"), rows(by_program["LINES"], "parcel", "line"))
        for exact, printed in zip(values(by_package["LINES"], "length", "bearing"), values(by_program["LINES"], "length", "bearing")):
            for one, other in zip(exact, printed):  # to four decimals or more; a bearing of 400 is 0
                self.assertAlmostEqual(math.remainder(one - other, 400.0), 0.0, delta=0.5001e-4)
        self.assertEqual(rows(by_package["POINTS"], "name", "E", "N"), rows(by_program["POINTS"], "name", "E", "N"))
        self.assertEqual(rows(by_package["REFUSED"], "parcel"), rows(by_program["REFUSED"], "parcel"))
        for reason, in values(by_program["REFUSED"], "reason"):
            self.assertTrue(reason)
            self.assertNotIn("parcels.csv", reason)
        self.assertIn("the program of that name is asked", by_program["said"])
        return by_program

    def test_every_line_and_amount(self):
        for asked in ({"LINE": 0, "CHOICE": 0, "NUMBER": 1, "AMOUNT": 1, "VALUE": "1/3"},
                      {"LINE": 0, "CHOICE": 2, "AMOUNT": 2, "VALUE": "7"},
                      {"LINE": 1, "CHOICE": 3, "AMOUNT": 1, "VALUE": "25%", "OPPOSITE": True},
                      {"LINE": 1, "CHOICE": 5, "BEARING": 200.0, "AMOUNT": 3, "VALUE": "5.5"},
                      {"LINE": 0, "CHOICE": 6, "ALONG": self.road, "DISTANCE": 80.0, "AMOUNT": 0, "VALUE": "312.5"},
                      {"LINE": 2, "CHOICE": 4, "POINT": "500050,4999990 [EPSG:32632]", "AMOUNT": 1, "VALUE": "2/7"},
                      {"LINE": 3, "BEARING": 33.3, "AMOUNT": 4, "VALUE": "100; 12 x 5; w2.5; 1/4", "ANY_PIECES": True},
                      {"LINE": 4, "POINT": "500010,5000005 [EPSG:32632]", "AMOUNT": 1, "VALUE": "1/2"}):
            with self.subTest(asked):
                self.the_same(**asked)

    def test_numbers_that_are_nearly_round(self):
        # Areas such as 714.28600000000006, and small coordinates: formats of text shorten them.
        self.lots = layer_of(UTM, [("POLYGON ((0 0, 100 0, 100 50, 0 50, 0 0))", "", 1, 0),
                                   ("POLYGON ((0.1 0.2, 0.3 0.2, 0.3 0.7, 0.123456789012345678 0.7, 0.1 0.2))", "", 1, 1)],
                             columns="&field=wanted:string&field=side:integer&field=row:integer")
        for parts in ("7", "11", "12"):
            self.the_same(LINE=0, CHOICE=0, NUMBER=1, AMOUNT=2, VALUE=parts, ANY_SCALE=True)

    def test_columns(self):
        found = self.the_same(LINE=1, CHOICE=1, COLUMN="side", AMOUNT=0, VALUE_COLUMN="wanted")
        self.assertGreater(found["PIECES"].featureCount(), 50)
        reasons = dict(values(found["REFUSED"], "row", "reason"))
        self.assertIn("crosses or touches itself", reasons[2])
        self.assertIn("there is no geometry", reasons[3])
        self.assertIn("cannot be read", reasons[4])
        self.assertIn("no side 77", reasons[5])

    def test_heights(self):
        lots = layer_of(UTM, [("POLYGON Z ((500000 5000000 10, 500100 5000000 20, 500100 5000050 40, 500000 5000050 30, 500000 5000000 10))",),
                              ("POLYGON Z ((500000 5000000 -9999, 500100 5000000 20, 500100 5000050 40, 500000 5000050 30, 500000 5000000 "
                               "-9999))",)], kind="PolygonZ")
        by_package, by_program = both("divide", INPUT=lots, DECIMALS=3, LINE=0, CHOICE=0, NUMBER=1, AMOUNT=1, VALUE="1/3", TOLERANCE=1e-4)
        for name in ("PIECES", "LINES"):
            for one, other in zip(by_package[name].getFeatures(), by_program[name].getFeatures()):
                mine, theirs = (list(geometry.vertices()) for geometry in (one.geometry(), other.geometry()))
                self.assertEqual([(point.x(), point.y()) for point in mine], [(point.x(), point.y()) for point in theirs])
                for here, there in zip(mine, theirs):
                    # Of a line with an end without a height, the program leaves out both.
                    self.assertTrue(math.isnan(there.z()) or abs(here.z() - there.z()) < 1e-9, (here.z(), there.z()))
        self.assertIn("no height", by_program["said"])
        self.assertFalse(math.isnan(next(by_program["PIECES"].getFeatures()).geometry().vertexAt(0).z()))

    def test_sides_of_holes(self):
        self.lots = layer_of(UTM, [(HOLED,)])
        for number in range(1, 10):
            self.the_same(LINE=1, CHOICE=0, NUMBER=number, AMOUNT=1, VALUE="1/3")

    def test_measure(self):
        by_package, by_program = both("measure", INPUT=self.lots)
        for one, other in zip(rows(by_package["OUTPUT"], "parcel", "vertices", "area", "perimeter", "status"),
                              rows(by_program["OUTPUT"], "parcel", "vertices", "area", "perimeter", "status")):
            self.assertEqual(one[:3], other[:3])
            if one[3]:
                for exact, printed in zip(one[3:5], other[3:5]):  # to four decimals or more
                    self.assertAlmostEqual(exact, printed, delta=0.5001e-4)
                self.assertEqual(other[5], "usable")
            else:
                self.assertNotIn(other[5], ("", "usable"))


class WhatCannotBeAsked(unittest.TestCase):
    def refused(self, **parameters):
        with without_package():
            found = run("divide", **{"INPUT": layer_of(UTM, [(HOLED,)]), "LINE": 0, "CHOICE": 0, "NUMBER": 1, "AMOUNT": 1,
                                     "VALUE": "1/2", "DECIMALS": 3, **parameters})
        self.assertEqual(found["PIECES"].featureCount(), 0)
        (reason,), = values(found["REFUSED"], "reason")
        return reason

    def test_it_is_refused_with_the_reason(self):
        self.assertIn("say to how many decimals", self.refused(DECIMALS=None))
        self.assertIn("from North on", self.refused(LINE=4, POINT="500310,5000005 [EPSG:32632]", BEARING=10.0))
        self.assertIn("no side 9", self.refused(NUMBER=9))

    def test_algorithms_that_need_the_package(self):
        with without_package():
            with self.assertRaisesRegex(QgsProcessingException, "does not list what a line can cut off"):
                run("feasible", INPUT=layer_of(UTM, [(LOT,)]), LINE=0, CHOICE=0)
            with self.assertRaisesRegex(QgsProcessingException, "no bearings of points"):
                run("stakeout", INPUT=layer_of(UTM, [("POINT (1 2)",)], kind="Point"), STATION="0,0", ORIENTATION="1,1")

    def test_another_program_of_that_name(self):
        with tempfile.TemporaryDirectory() as folder:
            path = os.path.join(folder, "plcalc")
            for answer in ("echo hello", "echo '[]'", "echo '{\"parcels\": []}'", "exit 7"):
                with open(path, "w", encoding="utf-8") as file:
                    file.write(f"#!/bin/sh\n{answer}\n")
                os.chmod(path, 0o755)
                with mock.patch.dict(os.environ, {"PATH": folder + ":/bin"}):
                    self.assertIn("gave no answer that can be read", self.refused())

    def test_neither_package_nor_program(self):
        with without_package(), without_program(), self.assertRaisesRegex(
                QgsProcessingException, r"pip install plcalc-\*\.whl\. Or install the program plcalc"):
            run("measure", INPUT=layer_of(UTM, [(LOT,)]))


if __name__ == "__main__":
    unittest.main()
