"""The plug-in as it is installed from its zip, in a QGIS without a window."""

import math
import os
import subprocess
import tempfile
import unittest

import plcalc
import session
from qgis.core import (QgsApplication, QgsCoordinateReferenceSystem, QgsFields, QgsProcessingContext, QgsProcessingException,
                       QgsProcessingFeatureSourceDefinition, QgsProcessingFeedback, QgsProcessingModelAlgorithm,
                       QgsProcessingModelChildAlgorithm, QgsProcessingModelChildParameterSource, QgsProcessingModelOutput,
                       QgsProcessingModelParameter, QgsProcessingOutputLayerDefinition, QgsProcessingParameterFeatureSource,
                       QgsProject, QgsProperty, QgsVectorFileWriter, QgsVectorLayer, QgsVectorLayerJoinInfo, QgsWkbTypes)
from qgis.PyQt.QtCore import QUrl, QVariant
from session import CROSSED, HOLED, LOT, UTM, YARD, layer_of, values


def setUpModule():
    session.start()


CROSSED_HIGH = "PolygonZ ((500000 5000000 1, 500010 5000010 2, 500010 5000000 3, 500000 5000010 4, 500000 5000000 1))"


class Messages(QgsProcessingFeedback):
    def __init__(self):
        super().__init__()
        self.text = ""

    def pushInfo(self, info):
        self.text += info + "\n"

    def pushWarning(self, warning):
        self.text += warning + "\n"


def run(name, **parameters):
    outputs = {"divide": ("PIECES", "LINES", "POINTS", "REFUSED"), "measure": ("OUTPUT",), "feasible": ("OUTPUT",),
               "stakeout": ("OUTPUT",)}[name]
    feedback = Messages()
    found = session.application.processing.run(f"plcalc:{name}", {**parameters, **dict.fromkeys(outputs, "memory:")},
                                       feedback=feedback)
    found["said"] = feedback.text
    return found


COLUMNS = "&field=owner:string&field=wanted:string&field=front:integer"


class Divide(unittest.TestCase):
    def test_a_share_of_every_parcel(self):
        lots = layer_of(UTM, [(LOT, "Rossi", "", 1), (YARD, "Bianchi", "", 1)], columns=COLUMNS)
        found = run("divide", INPUT=lots, LINE=0, CHOICE=0, NUMBER=1, AMOUNT=1, VALUE="1/4")
        self.assertEqual(values(found["PIECES"], "owner", "piece", "amount", "status"),
                         [("Rossi", 1, 1, "divided"), ("Rossi", 2, 2, "divided"), ("Bianchi", 1, 1, "divided"),
                          ("Bianchi", 2, 2, "divided")])
        for area, want in zip((area for area, in values(found["PIECES"], "area")), (1250, 3750, 600, 1800)):
            self.assertAlmostEqual(area, want, delta=5e-6)
        self.assertEqual([round(length, 6) for length, in values(found["LINES"], "length")], [100.0, 60.0])
        self.assertEqual([name for name, in values(found["POINTS"], "name")], ["P1", "P2", "P1", "P2"])
        self.assertEqual(found["REFUSED"].featureCount(), 0)
        self.assertEqual((found["DIVIDED"], found["NOT_DIVIDED"]), (2, 0))

    def test_the_same_doubles_as_the_package(self):
        lots = layer_of(UTM, [(YARD,)])
        found = run("divide", INPUT=lots, LINE=1, CHOICE=0, NUMBER=1, AMOUNT=2, VALUE="3", DECIMALS=2, TOLERANCE=1e-4)
        division = plcalc.divide(YARD, perpendicular_to=0, parts=3, decimals=2, tolerance=1e-4)
        ends = [(end.x(), end.y()) for end in (feature.geometry().asPoint() for feature in found["POINTS"].getFeatures())]
        self.assertEqual(ends, [end for line in division.lines for end in (line.start, line.end)])
        self.assertEqual([area for area, in values(found["PIECES"], "area")], [piece.area for piece in division.pieces])

    def test_sides_by_what_they_are(self):
        road = layer_of(UTM, [("LINESTRING (500100.5 4999000, 500100.5 5001000)",)], kind="LineString")
        lots = layer_of(UTM, [(LOT, "", "", 3)], columns=COLUMNS)
        for choice, more, bearing in ((2, {}, None), (3, {}, None), (4, {"POINT": "500050,4999990 [EPSG:32632]"}, 100.0),
                                      (5, {"BEARING": 200.0}, 100.0), (6, {"ALONG": road, "DISTANCE": 2.0}, 0.0),
                                      (1, {"COLUMN": "front"}, 300.0)):
            found = run("divide", INPUT=lots, LINE=0, CHOICE=choice, AMOUNT=0, VALUE="1000", **more)
            if bearing is None:  # two longest, two shortest
                (reason,), = values(found["REFUSED"], "reason")
                self.assertIn("several fit equally well", reason)
            else:
                (got,), = values(found["LINES"], "bearing")
                self.assertAlmostEqual(got, bearing, places=6, msg=str(choice))

    def test_amounts_from_a_column(self):
        lots = layer_of(UTM, [(LOT, "Rossi", "1000", 1), (LOT, "Verdi", "9000", 1), (LOT, "Neri", "much", 1),
                              (LOT, "Blu", None, 1)], columns=COLUMNS)
        found = run("divide", INPUT=lots, LINE=0, CHOICE=0, NUMBER=1, AMOUNT=0, VALUE_COLUMN="wanted")
        self.assertEqual(found["PIECES"].featureCount(), 2)
        refused = values(found["REFUSED"], "owner", "status", "reason")
        self.assertEqual([row[:2] for row in refused],
                         [("Verdi", "amount_too_large"), ("Neri", "no_request"), ("Blu", "no_request")])
        self.assertIn("0.0000 to 5000.0000", refused[0][2])
        self.assertIn("its column wanted cannot be read", refused[1][2])
        self.assertIn("its column wanted is empty", refused[2][2])

    def test_lists_mean_what_they_mean_to_the_program(self):
        lot = LOT
        for given, areas in (("500; 300", [500, 300, 4200]), ("500, 300", [500, 300, 4200]), ("20x30;w5 ; 1/10", [600, 500, 500, 3400]),
                             ("10%", [500, 4500])):
            found = run("divide", INPUT=layer_of(UTM, [(lot,)]), LINE=0, CHOICE=0, AMOUNT=4, VALUE=given)
            self.assertEqual([round(area, 3) for area, in values(found["PIECES"], "area")], areas, given)
        for kind, given, areas in ((0, "500; 300", [500, 300, 4200]), (0, "500.5", [500.5, 4499.5]), (1, "0.25", [1250, 3750]),
                                   (1, "1/10; 0.2", [500, 1000, 3500]), (3, "5; 6", [500, 600, 3900]), (4, "500;300", [500, 300, 4200]),
                                   (2, "2.0", [2500, 2500])):
            found = run("divide", INPUT=layer_of(UTM, [(lot, "", given, 1)], columns=COLUMNS), LINE=0, CHOICE=0, AMOUNT=kind,
                        VALUE_COLUMN="WANTED")
            self.assertEqual([round(area, 3) for area, in values(found["PIECES"], "area")], areas, given)
        for kind, given in ((0, "500,5"), (4, "500,5"), (4, "500, 300"), (4, "500,5; 300"), (1, "1"), (1, "0,5"), (4, "500;")):
            found = run("divide", INPUT=layer_of(UTM, [(lot, "", given, 1)], columns=COLUMNS), LINE=0, CHOICE=0, AMOUNT=kind,
                        VALUE_COLUMN="wanted")
            (status, reason), = values(found["REFUSED"], "status", "reason")
            self.assertEqual(status, "no_request")
            self.assertRegex(reason, "its column wanted cannot be read: '.*' is not (a number above 0, with a point|less than the whole|a share)")

    def test_sides_from_a_column(self):
        for given, bearing in (("2", 0.0), ("2.0", 0.0), ("longest", 100.0), ("shortest", 0.0)):
            lot = "POLYGON ((500000 5000000, 500100 5000000, 500100 5000050, 500010 5000060, 500000 5000000))"
            lots = layer_of(UTM, [(lot, given)], columns="&field=side:string")
            found = run("divide", INPUT=lots, LINE=0, CHOICE=1, COLUMN="side", AMOUNT=1, VALUE="1/4")
            self.assertAlmostEqual(values(found["LINES"], "bearing")[0][0], bearing, places=6, msg=given)
        for given in ("2.5", "front", "", None):
            lots = layer_of(UTM, [(LOT, given)], columns="&field=side:string")
            found = run("divide", INPUT=lots, LINE=0, CHOICE=1, COLUMN="side", AMOUNT=1, VALUE="1/4")
            self.assertEqual(values(found["REFUSED"], "status"), [("no_request",)], given)
        for given in ("1e30", "99999999999999999999"):
            lots = layer_of(UTM, [(LOT, given), (LOT, "1")], columns="&field=side:string")
            found = run("divide", INPUT=lots, LINE=0, CHOICE=1, COLUMN="side", AMOUNT=1, VALUE="1/4")
            self.assertIn("there is no side or vertex 1", values(found["REFUSED"], "reason")[0][0])
            self.assertEqual(found["DIVIDED"], 1)  # one slip in a table does not end the run
        for given in ("0", 0):
            lots = layer_of(UTM, [(LOT, given)], columns="&field=side:string")
            found = run("divide", INPUT=lots, LINE=0, CHOICE=1, COLUMN="side", AMOUNT=1, VALUE="1/4")
            self.assertIn("are counted from 1", values(found["REFUSED"], "reason")[0][0])

    def test_counts_are_outputs(self):
        algorithm = QgsApplication.processingRegistry().createAlgorithmById("plcalc:divide")
        self.assertEqual({output.name(): output.type() for output in algorithm.outputDefinitions()},
                         {"PIECES": "outputVector", "LINES": "outputVector", "POINTS": "outputVector", "REFUSED": "outputVector",
                          "DIVIDED": "outputNumber", "NOT_DIVIDED": "outputNumber"})

    def test_heights_that_the_layer_does_not_declare(self):
        flat, high = LOT, "POLYGON Z ((500000 5000000 10, 500100 5000000 20, 500100 5000050 40, 500000 5000050 30, 500000 5000000 10))"
        for kind, said in (("Polygon", "Features with heights, in a layer that says it has none: 1."),
                           ("PolygonZ", "Features without heights, in a layer with heights: 1.")):
            found = run("divide", INPUT=layer_of(UTM, [(flat,), (high,), (CROSSED,) if kind == "Polygon" else (CROSSED_HIGH,)], kind=kind),
                        LINE=0, CHOICE=0, AMOUNT=0, VALUE="1000")
            self.assertIn(said, found["said"])
            heights = [vertex.z() for name in ("PIECES", "LINES", "POINTS") for feature in found[name].getFeatures() if feature["parcel"] == 1
                       for vertex in feature.geometry().vertices()]
            self.assertTrue(heights and all(map(math.isnan, heights)))  # and not 0
        measured = layer_of(UTM, [("POLYGON M ((500000 5000000 7, 500100 5000000 7, 500100 5000050 7, 500000 5000000 7))",)])
        self.assertIn("Features with measures (M), in a layer that says it has none: 1.", run(
            "divide", INPUT=measured, LINE=0, CHOICE=0, AMOUNT=0, VALUE="1000")["said"])
        lots = layer_of(UTM, [(high,)], kind="PolygonZ")
        self.assertNotIn("Features with", run("divide", INPUT=lots, LINE=0, CHOICE=0, AMOUNT=0, VALUE="1000")["said"])

    def test_holes_and_any_number_of_pieces(self):
        found = run("divide", INPUT=layer_of(UTM, [(HOLED,)]), LINE=3, BEARING=100.0, AMOUNT=1, VALUE="1/2", ANY_PIECES=True)
        self.assertEqual(len(values(found["POINTS"], "name")), 4)
        for area, in values(found["PIECES"], "area"):
            self.assertAlmostEqual(area, 2450.0, delta=1e-5)

    def test_heights(self):
        # Between 10 and 20 in the South, 30 and 40 in the North.
        lot = ("POLYGON Z ((500000 5000000 10, 500100 5000000 20, 500100 5000050 40, 500000 5000050 30, 500000 5000000 10), "
               "(500045 5000030 1, 500045 5000040 2, 500055 5000040 3, 500055 5000030 4, 500045 5000030 1))")
        found = run("divide", INPUT=layer_of(UTM, [(lot,), (CROSSED_HIGH,)], kind="PolygonZ"), LINE=0, CHOICE=0, AMOUNT=0, VALUE="1000")
        one, two = (feature.geometry().asWkt(3) for feature in found["PIECES"].getFeatures())
        self.assertIn("500000 5000010 14", one)
        self.assertIn("500100 5000010 24", one)
        self.assertIn("500000 5000000 10", one)
        self.assertIn("(500045 5000030 1, 500045 5000040 2, 500055 5000040 3, 500055 5000030 4", two)
        self.assertEqual([feature.geometry().asWkt(3) for feature in found["LINES"].getFeatures()],
                         ["MultiLineStringZ ((500000 5000010 14, 500100 5000010 24))"])
        self.assertEqual([feature.geometry().asWkt(3) for feature in found["POINTS"].getFeatures()],
                         ["PointZ (500000 5000010 14)", "PointZ (500100 5000010 24)"])
        self.assertEqual([feature.geometry().asWkt(0) for feature in found["REFUSED"].getFeatures()], [CROSSED_HIGH])
        self.assertNotIn("no height", found["said"])
        measured = run("measure", INPUT=layer_of(UTM, [(lot,)], kind="PolygonZ"))["OUTPUT"]
        self.assertIn("500000 5000050 30", next(measured.getFeatures()).geometry().asWkt(0))
        listed = run("stakeout", INPUT=found["POINTS"], STATION="500000,4999900", ORIENTATION="500000,5000000")["OUTPUT"]
        self.assertEqual([feature.geometry().asWkt(3) for feature in listed.getFeatures()],
                         ["PointZ (500000 5000010 14)", "PointZ (500100 5000010 24)"])

    def test_heights_that_are_not_known_are_told(self):
        lot = "POLYGON Z ((500000 5000000 -9999, 500100 5000000 20, 500100 5000050 20, 500000 5000050 20, 500000 5000000 -9999))"
        found = run("divide", INPUT=layer_of(UTM, [(lot,)], kind="PolygonZ"), LINE=0, CHOICE=0, AMOUNT=0, VALUE="1000")
        self.assertIn("3 corners of pieces have no height", found["said"])  # the vertex, and one end of the line in two pieces
        self.assertEqual([math.isnan(feature.geometry().constGet().z()) for feature in found["POINTS"].getFeatures()], [True, False])

    def test_measures_are_left_out_and_that_is_said(self):
        lot = "POLYGON M ((500000 5000000 7, 500100 5000000 7, 500100 5000050 7, 500000 5000000 7))"
        found = run("divide", INPUT=layer_of(UTM, [(lot,)], kind="PolygonM"), LINE=0, CHOICE=0, AMOUNT=1, VALUE="1/2")
        self.assertIn("measures (M) of the vertices are left out", found["said"])
        self.assertFalse(QgsWkbTypes.hasM(found["PIECES"].wkbType()))

    def test_sides_and_vertices_of_holes(self):
        # Side 5 is the first of the hole, along its West.
        found = run("divide", INPUT=layer_of(UTM, [(HOLED,)]), LINE=0, CHOICE=0, NUMBER=5, AMOUNT=3, VALUE="5")
        self.assertEqual({round(end) for end, in values(found["POINTS"], "E")}, {500340})
        found = run("divide", INPUT=layer_of(UTM, [(HOLED,)]), LINE=2, CHOICE=0, NUMBER=5, AMOUNT=0, VALUE="2400", ANY_PIECES=True)
        self.assertIn((500345.0, 5000020.0), values(found["POINTS"], "E", "N"))
        found = run("divide", INPUT=layer_of(UTM, [(HOLED,)]), LINE=0, CHOICE=0, NUMBER=9, AMOUNT=1, VALUE="1/2")
        self.assertEqual(values(found["REFUSED"], "status"), [("no_such_index",)])
        found = run("divide", INPUT=layer_of(UTM, [(HOLED,)]), LINE=0, CHOICE=4, POINT="500350,5000025 [EPSG:32632]", AMOUNT=1,
                    VALUE="1/2")
        self.assertIn("several fit equally well: 5, 6, 7, 8", values(found["REFUSED"], "reason")[0][0])

    def test_of_a_boundary_that_crosses_itself_no_side_is_the_longest(self):
        found = run("divide", INPUT=layer_of(UTM, [(CROSSED,)]), LINE=0, CHOICE=2, AMOUNT=1, VALUE="1/2")
        self.assertEqual(values(found["REFUSED"], "status"), [("unusable_boundary",)])

    def test_a_multipolygon_is_as_many_parcels(self):
        both = f"MULTIPOLYGON ({LOT[8:]}, {YARD[8:]})"
        found = run("divide", INPUT=layer_of(UTM, [(both,)], kind="MultiPolygon"), LINE=0, CHOICE=0, AMOUNT=1, VALUE="1/2")
        self.assertEqual(found["DIVIDED"], 2)

    def test_what_is_no_parcel_is_refused(self):
        found = run("divide", INPUT=layer_of(UTM, [(None,), (CROSSED,)]), LINE=0, CHOICE=0, AMOUNT=1, VALUE="1/2")
        self.assertEqual(found["PIECES"].featureCount(), 0)
        self.assertEqual([status for status, in values(found["REFUSED"], "status")], ["no_parcel", "unusable_boundary"])

    def test_columns_of_the_same_name_stay(self):
        lots = layer_of(UTM, [(LOT, 77.0)], columns="&field=area:double")
        found = run("divide", INPUT=lots, LINE=0, CHOICE=0, AMOUNT=1, VALUE="1/2")
        self.assertEqual({area for area, in values(found["PIECES"], "area")}, {77.0})
        self.assertEqual([round(area, 4) for area, in values(found["PIECES"], "area_2")], [2500.0, 2500.0])

    def test_what_is_loaded_has_labels(self):
        from qgis.core import QgsExpression, QgsProcessingOutputLayerDefinition

        lots = layer_of(UTM, [(LOT, 77.0)], columns="&field=area:double")
        context, feedback = QgsProcessingContext(), QgsProcessingFeedback()
        project = QgsProject.instance()
        context.setProject(project)
        outputs = {name: QgsProcessingOutputLayerDefinition("memory:", project)
                   for name in ("PIECES", "LINES", "POINTS", "REFUSED")}
        algorithm = QgsApplication.processingRegistry().createAlgorithmById("plcalc:divide")
        found, _ = algorithm.run({"INPUT": lots, "LINE": 0, "CHOICE": 0, "AMOUNT": 1, "VALUE": "1/2", **outputs}, context,
                                 feedback)
        for name in outputs:
            details = context.layerToLoadOnCompletionDetails(found[name])
            layer = context.getMapLayer(found[name])
            details.postProcessor().postProcessLayer(layer, context, feedback)
            self.assertTrue(layer.labelsEnabled(), name)
            label = QgsExpression(layer.labeling().settings().fieldName)
            self.assertFalse(label.hasParserError(), name)
            if name == "PIECES":
                self.assertEqual(sorted(label.referencedColumns()), ["area_2", "piece"])

    def test_what_cannot_be_asked(self):
        lots = layer_of(UTM, [(LOT,)])
        road, nothing = (layer_of(UTM, rows, kind="LineString") for rows in ([("LINESTRING (0 0, 1 1)",)], [(None,), ("LINESTRING EMPTY",)]))
        for wrong, said in (({"AMOUNT": 1, "VALUE": "0.5"}, "is not a share"), ({"AMOUNT": 2, "VALUE": "1"}, "2 to 1000"),
                            ({"AMOUNT": 2, "VALUE": "1000000000"}, "2 to 1000"),
                            ({"AMOUNT": 2, "VALUE": "many"}, "2 to 1000"),
                            ({"AMOUNT": 0, "VALUE": ""}, "nothing is there"),
                            ({"AMOUNT": 0, "VALUE": "much"}, "'much' is not a number above 0, with a point before the decimals"),
                            ({"AMOUNT": 0, "VALUE": "500,5"}, "'500,5' is not a number above 0"),
                            ({"AMOUNT": 0, "VALUE": "-5"}, "'-5' is not a number above 0"),
                            ({"AMOUNT": 0, "VALUE": "inf"}, "'inf' is not a number above 0"),
                            ({"AMOUNT": 0, "VALUE": "1_000"}, "'1_000' is not a number above 0"),
                            ({"AMOUNT": 3, "VALUE": "0"}, "'0' is not a number above 0"),
                            ({"AMOUNT": 4, "VALUE": "500,5; 300"}, "'500,5' is not a number above 0"),
                            ({"AMOUNT": 4, "VALUE": "/etc/passwd.csv, 3"}, "'' is not a number above 0"),
                            ({"AMOUNT": 4, "VALUE": "4x"}, "'' is not a number above 0"),
                            ({"AMOUNT": 1, "VALUE": "3/3"}, "not less than the whole parcel"),
                            ({"AMOUNT": 1, "VALUE": "100%"}, "not less than the whole parcel"),
                            ({"AMOUNT": 1, "VALUE_COLUMN": "wanted"}, "has no column wanted"),
                            ({"AMOUNT": 1, "VALUE": "1/2", "CHOICE": 1, "COLUMN": "front"}, "has no column front"),
                            ({"AMOUNT": 1, "VALUE": "1/2", "CHOICE": 4}, "where the point is"),
                            ({"AMOUNT": 1, "VALUE": "1/2", "LINE": 2, "CHOICE": 2}, "names sides"),
                            ({"AMOUNT": 1, "VALUE": "1/2", "CHOICE": 6}, "which other layer"),
                            ({"AMOUNT": 1, "VALUE": "1/2", "CHOICE": 6, "ALONG": road, "DISTANCE": 0}, "how far away"),
                            ({"AMOUNT": 1, "VALUE": "1/2", "CHOICE": 6, "ALONG": nothing}, "no lines and no boundaries")):
            with self.assertRaisesRegex(QgsProcessingException, said):
                run("divide", **{"INPUT": lots, "LINE": 0, "CHOICE": 0, **wrong})


class Files(unittest.TestCase):
    """From a GeoPackage into GeoPackages, as most people work: several rows have the key of their parcel."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name
        lots = layer_of(UTM, [(LOT, "Rossi", "", 1), (YARD, "Bianchi", "", 1), (CROSSED, "Neri", "", 1)], columns=COLUMNS)
        self.lots = self.file("lots")
        options = QgsVectorFileWriter.SaveVectorOptions()
        QgsVectorFileWriter.writeAsVectorFormatV3(lots, self.lots, QgsProject.instance().transformContext(), options)

    def file(self, name):
        return os.path.join(self.folder, name + ".gpkg")

    def written(self, name, *columns):
        return values(QgsVectorLayer(self.file(name), name, "ogr"), *columns)

    def run_to_files(self, name, *results, **parameters):
        session.application.processing.run(f"plcalc:{name}", {**parameters, **{result: self.file(result) for result in results}})

    def test_every_row_arrives(self):
        self.run_to_files("divide", "PIECES", "LINES", "POINTS", "REFUSED", INPUT=self.lots, LINE=0, CHOICE=0, AMOUNT=2, VALUE="4")
        self.assertEqual(self.written("PIECES", "owner", "parcel", "piece"),
                         [("Rossi", 1, 1), ("Rossi", 1, 2), ("Rossi", 1, 3), ("Rossi", 1, 4), ("Bianchi", 2, 1), ("Bianchi", 2, 2),
                          ("Bianchi", 2, 3), ("Bianchi", 2, 4)])
        self.assertEqual([len(self.written(name, "parcel")) for name in ("LINES", "POINTS", "REFUSED")], [6, 12, 1])
        self.run_to_files("measure", "OUTPUT", INPUT=self.lots)
        self.assertEqual(self.written("OUTPUT", "owner", "area"), [("Rossi", 5000.0), ("Bianchi", 2400.0), ("Neri", QVariant())])
        self.run_to_files("stakeout", "OUTPUT", INPUT=self.file("POINTS"), STATION="500000,4999900 [EPSG:32632]",
                          ORIENTATION="500000,5000000 [EPSG:32632]")
        self.assertEqual(len(self.written("OUTPUT", "angle")), 12)

    def test_a_row_that_is_not_taken_ends_the_run(self):
        from plcalc_qgis.algorithms.base import Sink

        class Full:
            def addFeature(self, feature, flags):
                return False

            def lastError(self):
                return "the disk is full"

        with self.assertRaisesRegex(QgsProcessingException, "Could not write: the disk is full"):
            Sink(Full(), QgsFields(), QgsWkbTypes.NoGeometry, "Could not write:").add([])


class NothingIsLost(unittest.TestCase):
    """A result that would be written over what it is made of, or over another result, is refused before anything is written."""

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.addCleanup(QgsProject.instance().removeAllMapLayers)
        self.folder = folder.name

    def path(self, name):
        return os.path.join(self.folder, name)

    def lots(self, name="lots.gpkg", driver="GPKG"):
        options = QgsVectorFileWriter.SaveVectorOptions()
        options.driverName, options.layerName = driver, "lots"
        QgsVectorFileWriter.writeAsVectorFormatV3(layer_of(UTM, [(LOT, "Rossi", "", 1), (YARD, "Bianchi", "", 1)], columns=COLUMNS),
                                                  self.path(name), QgsProject.instance().transformContext(), options)
        return self.path(name)

    def refused(self, name, why="over a layer from which it is made", direct=True, **parameters):
        before = self.contents()
        asked = {"LINE": 0, "CHOICE": 0, "AMOUNT": 1, "VALUE": "1/2", "STATION": "0,0", "ORIENTATION": "1,1", **parameters}
        with self.assertRaisesRegex(QgsProcessingException, why):
            session.application.processing.run(f"plcalc:{name}", asked)
        # As models run it. QGIS crashes at its end where that has raised an error about a layer that was open before.
        if direct and not isinstance(parameters["INPUT"], QgsVectorLayer):
            algorithm = QgsApplication.processingRegistry().createAlgorithmById(f"plcalc:{name}")
            context = QgsProcessingContext()
            context.setProject(QgsProject.instance())
            with self.assertRaisesRegex(QgsProcessingException, why):
                algorithm.run(asked, context, QgsProcessingFeedback(), {}, False)
        self.assertEqual(self.contents(), before)

    def contents(self):
        found = {}
        for name in sorted(os.listdir(self.folder)):
            if not name.endswith(("-wal", "-shm")) and os.path.isfile(self.path(name)):
                with open(self.path(name), "rb") as file:
                    found[name] = file.read()
        return found

    def test_every_way_to_say_the_same_file(self):
        path = self.lots()
        os.symlink(path, self.path("link.gpkg"))
        os.symlink(self.folder, self.path("folder"))
        os.link(path, self.path("hard.gpkg"))
        for given in (path, path + "|layername=lots", QgsProcessingFeatureSourceDefinition(path, True),
                      QgsVectorLayer(path, "lots", "ogr"), self.path("link.gpkg"), os.path.relpath(path)):
            for result in (path, self.path("link.gpkg"), self.path("hard.gpkg"), self.path("folder/lots.gpkg"), os.path.relpath(path),
                           path + "|layername=lots", self.path("lots"), f"ogr:dbname='{path}' table=\"lots\" (geom)",
                           f"ogr:dbname='{path}' table=\"LOTS\" (geom)", QgsProperty.fromValue(path),
                           QgsProcessingOutputLayerDefinition(path, QgsProject.instance())):
                with self.subTest(given=given, result=result):
                    self.refused("divide", INPUT=given, PIECES=result)
        for name, results in (("divide", {"PIECES": "memory:", "REFUSED": path}), ("measure", {"OUTPUT": path}), ("feasible", {"OUTPUT": path})):
            self.refused(name, INPUT=path, **results)

    def test_the_other_layer(self):
        lots, path = layer_of(UTM, [(LOT,)]), self.lots()
        self.refused("divide", INPUT=lots, CHOICE=6, ALONG=path, PIECES=path)

    def test_layers_made_of_others(self):
        path = self.lots()
        lots = QgsVectorLayer(path, "lots", "ogr")
        other = layer_of(UTM, [(LOT, 1)], columns="&field=front:integer")
        other.setName("other")
        QgsProject.instance().addMapLayers([lots, other])
        for source in ("?query=SELECT * FROM lots", f"?query=SELECT * FROM \"{lots.id()}\"", f"?layer_ref={lots.id()}",
                       f"?layer=ogr:{QUrl.toPercentEncoding(path).data().decode()}:mine&query=SELECT * FROM mine"):
            query = QgsVectorLayer(source, "query", "virtual")
            self.assertEqual(len(list(query.getFeatures())), 2, source)
            self.refused("divide", INPUT=query, PIECES=path)
        join = QgsVectorLayerJoinInfo()
        join.setJoinLayer(lots)
        join.setJoinFieldName("front")
        join.setTargetFieldName("front")
        other.addJoin(join)
        self.refused("divide", INPUT=other, PIECES=path)
        self.refused("divide", INPUT=lots.id(), PIECES=path, direct=False)

    def test_files_that_belong_together(self):
        path = self.lots("lots.shp", "ESRI Shapefile")
        for result in (path, self.path("lots.SHP"), self.path("lots.dbf")):
            self.refused("feasible", INPUT=path, OUTPUT=result)
        self.refused("measure", INPUT=self.folder + "|layername=lots", OUTPUT=path)
        self.refused("feasible", INPUT=self.path("lots.dbf"), OUTPUT=path, direct=False)

    def test_folders_that_are_data(self):
        os.mkdir(self.path("lots.gdb"))
        from plcalc_qgis.places import _meet, _place_of_source, _written_place

        read = _place_of_source("ogr", self.path("lots.gdb") + "|layername=lots")
        self.assertTrue(_meet(read, _written_place(self.path("lots.gdb"), QgsProcessingContext())))
        self.assertFalse(_meet(read, _written_place(self.path("other.gdb"), QgsProcessingContext())))

    def test_a_virtual_file(self):
        path, virtual = self.lots(), self.path("lots.vrt")
        with open(virtual, "w", encoding="utf-8") as file:
            file.write('<OGRVRTDataSource><OGRVRTLayer name="lots"><SrcDataSource relativeToVRT="1">lots.gpkg</SrcDataSource>'
                       '</OGRVRTLayer></OGRVRTDataSource>')
        self.refused("measure", INPUT=virtual, OUTPUT=path)

    def test_tables_of_a_server(self):
        from plcalc_qgis.places import _meet, _place_of_source, _written_place

        read = _place_of_source("postgres", "dbname='land' host=localhost port=5432 key='id' table=\"public\".\"lots\" (geom)")
        for place, meets in (("postgis:dbname='land' host=127.0.0.1 table=\"public\".\"lots\" (geom)", True),
                             ("postgres:dbname='land' table=\"lots\" (geom)", True),
                             ("postgis:dbname='land' table=\"public\".\"pieces\" (geom)", False),
                             ("postgis:dbname='land' table=\"new\".\"lots\" (geom)", False),
                             ("mssql:dbname='land' table=\"public\".\"lots\" (geom)", False)):
            self.assertEqual(_meet(read, _written_place(place, QgsProcessingContext())), meets, place)

    def test_points(self):
        path = self.path("points.gpkg")
        QgsVectorFileWriter.writeAsVectorFormatV3(layer_of(UTM, [("POINT (1 2)",)], kind="Point"), path,
                                                  QgsProject.instance().transformContext(), QgsVectorFileWriter.SaveVectorOptions())
        self.refused("stakeout", INPUT=path, OUTPUT=path)

    def test_two_results_in_one_place(self):
        lots, path = layer_of(UTM, [(LOT,)]), self.path("new.gpkg")
        for lines in (path, self.path("new"), self.path("../") + os.path.basename(self.folder) + "/new.gpkg",
                      f"ogr:dbname='{path}' table=\"lines\" (geom)"):
            self.refused("divide", why="and another result", INPUT=lots, PIECES=path, LINES=lines)

    def test_what_does_no_harm_is_written(self):
        path = self.lots()
        results = {"PIECES": f"ogr:dbname='{path}' table=\"pieces\" (geom)", "LINES": f"ogr:dbname='{path}' table=\"lines\" (geom)",
                   "POINTS": self.path("lots.shp"), "REFUSED": self.path("more.gpkg")}
        session.application.processing.run("plcalc:divide", {"INPUT": path + "|layername=lots", "LINE": 0, "CHOICE": 0, "AMOUNT": 1, "VALUE": "1/2",
                                                             **results})
        for name, count in (("lots", 2), ("pieces", 4), ("lines", 2)):
            self.assertEqual(QgsVectorLayer(f"{path}|layername={name}", name, "ogr").featureCount(), count, name)
        self.assertEqual(QgsVectorLayer(self.path("lots.shp"), "points", "ogr").featureCount(), 4)


class Planes(unittest.TestCase):
    DEGREES = "POLYGON ((9 45.15, 9.00127 45.15, 9.00127 45.15045, 9 45.15045, 9 45.15))"

    def tearDown(self):
        QgsProject.instance().setCrs(QgsCoordinateReferenceSystem())

    def test_degrees_are_divided_in_the_plane_of_the_project(self):
        QgsProject.instance().setCrs(QgsCoordinateReferenceSystem(UTM))
        found = run("divide", INPUT=layer_of("EPSG:4326", [(self.DEGREES,)]), LINE=0, CHOICE=0, AMOUNT=1, VALUE="1/2")
        self.assertEqual(found["PIECES"].crs().authid(), UTM)
        self.assertIn("is divided in the project's EPSG:32632", found["said"])
        one, two = (area for area, in values(found["PIECES"], "area"))
        self.assertAlmostEqual(one, two, delta=1e-5)

    def test_without_a_crs(self):
        found = run("divide", INPUT=layer_of("", [(LOT,), (self.DEGREES,)]), LINE=0, CHOICE=0, AMOUNT=1, VALUE="1/2")
        self.assertFalse(found["PIECES"].crs().isValid())
        self.assertEqual(found["DIVIDED"], 1)
        (status, reason), = values(found["REFUSED"], "status", "reason")
        self.assertEqual(status, "no_parcel")
        self.assertIn("look like degrees", reason)
        self.assertEqual(run("divide", INPUT=layer_of("", [(self.DEGREES,)]), LINE=0, CHOICE=0, AMOUNT=1, VALUE="1/2",
                             ANY_SCALE=True)["DIVIDED"], 1)

    def test_feet_are_told(self):
        lot = "POLYGON ((1000000 200000, 1000100 200000, 1000100 200050, 1000000 200050, 1000000 200000))"
        found = run("divide", INPUT=layer_of("EPSG:2263", [(lot,)]), LINE=0, CHOICE=0, AMOUNT=0, VALUE="2000")
        self.assertIn("Lengths are in feet", found["said"])
        self.assertEqual([round(area, 6) for area, in values(found["PIECES"], "area")], [2000.0, 3000.0])

    def test_arcs_are_refused_and_shown(self):
        lot = "CURVEPOLYGON (CIRCULARSTRING (500000 5000025, 500050 5000075, 500100 5000025, 500050 4999975, 500000 5000025))"
        found = run("divide", INPUT=layer_of(UTM, [(lot,)], kind="CurvePolygon"), LINE=0, CHOICE=0, AMOUNT=1, VALUE="1/2")
        self.assertIn("its boundary has arcs", values(found["REFUSED"], "reason")[0][0])
        shown = next(found["REFUSED"].getFeatures()).geometry()
        self.assertAlmostEqual(shown.area(), math.pi * 2500, delta=1.0)

    def test_degrees_without_a_plane_are_refused(self):
        with self.assertRaisesRegex(QgsProcessingException, "no areas"):
            run("measure", INPUT=layer_of("EPSG:4326", [(self.DEGREES,)]))

    def test_curves_without_arcs_are_divided(self):
        ring = "COMPOUNDCURVE ((500000 5000000 1, 500100 5000000 2, 500100 5000050 3), (500100 5000050 3, 500000 5000050 4, 500000 5000000 1))"
        hole = "(500045 5000030 1, 500045 5000040 2, 500055 5000040 3, 500055 5000030 4, 500045 5000030 1)"
        for kind, lot, count in (("CurvePolygonZ", f"CURVEPOLYGON Z ({ring}, {hole})", 1),
                                 ("MultiSurfaceZ", f"MULTISURFACE Z (CURVEPOLYGON Z ({ring}, {hole}), {CROSSED_HIGH})", 2)):
            found = run("divide", INPUT=layer_of(UTM, [(lot,)], kind=kind), LINE=0, CHOICE=0, AMOUNT=0, VALUE="1000")
            self.assertEqual([round(area, 5) for area, in values(found["PIECES"], "area")], [1000.0, 3900.0])
            self.assertIn("500000 5000000 1", next(found["PIECES"].getFeatures()).geometry().asWkt(0))
            self.assertEqual(values(found["REFUSED"], "status"), [("unusable_boundary",)][:count - 1])

    def test_arcs_of_one_part_refuse_that_part(self):
        arcs = "CURVEPOLYGON (CIRCULARSTRING (500200 5000025, 500250 5000075, 500300 5000025, 500250 4999975, 500200 5000025))"
        lots = layer_of(UTM, [(f"MULTISURFACE ({LOT}, {arcs})",)], kind="MultiSurface")
        found = run("divide", INPUT=lots, LINE=0, CHOICE=0, AMOUNT=1, VALUE="1/2")
        self.assertEqual((found["DIVIDED"], found["NOT_DIVIDED"]), (1, 1))
        self.assertIn("its boundary has arcs", found["said"])
        self.assertIn("its boundary has arcs", values(run("measure", INPUT=lots)["OUTPUT"], "status")[1][0])

    def test_what_is_no_plane(self):
        lot = "POLYGON ((10000 3700000, 10100 3700000, 10100 3700100, 10000 3700000))"
        for crs, said in (("EPSG:2053", "increase to the West"), ("EPSG:5513", "increase to the West"), ("EPSG:4978", "are geocentric")):
            with self.assertRaisesRegex(QgsProcessingException, said):
                run("measure", INPUT=layer_of(crs, [(lot,)]), ANY_SCALE=True)
        with self.assertRaisesRegex(QgsProcessingException, "increase to the West"):
            run("stakeout", INPUT=layer_of("EPSG:2053", [("POINT (1 2)",)], kind="Point"), STATION="10000,3700000", ORIENTATION="10000,3700100")

    def test_a_road_with_arcs(self):
        # The chord of its first half runs along the South of the lot; the road itself lies up to 20 to the North of it.
        road = layer_of(UTM, [("CIRCULARSTRING (500000 5000000, 500100 5000000, 500100 4999900)",)], kind="CompoundCurve")
        found = run("divide", INPUT=layer_of(UTM, [(LOT,)]), LINE=0, CHOICE=6, ALONG=road, DISTANCE=5, AMOUNT=1, VALUE="1/2")
        self.assertEqual(found["DIVIDED"], 0)

    # 50 North and 9 East.
    MERCATOR = "POLYGON ((1000000 6446000, 1000100 6446000, 1000100 6446100, 1000000 6446000))"

    def test_a_plane_that_stretches_is_refused(self):
        lots = layer_of("EPSG:3857", [(self.MERCATOR,)])
        (area, status), = values(run("measure", INPUT=lots)["OUTPUT"], "area", "status")
        self.assertEqual(area, QVariant())
        self.assertRegex(status, r"EPSG:3857 shows lengths 1\.5[0-9]* times as long")
        found = run("divide", INPUT=lots, LINE=0, CHOICE=0, AMOUNT=1, VALUE="1/2")
        self.assertEqual((found["DIVIDED"], values(found["REFUSED"], "status")), (0, [("no_parcel",)]))
        self.assertIn("The first one that is refused, 1: EPSG:3857 shows lengths", found["said"])
        self.assertIn("times as long", values(run("feasible", INPUT=lots, LINE=0, CHOICE=0)["OUTPUT"], "reason")[0][0])
        found = run("measure", INPUT=lots, ANY_SCALE=True)
        self.assertEqual(values(found["OUTPUT"], "area"), [(5000.0,)])
        self.assertIn("Parcels where the CRS stretches lengths, or that may be in degrees: 1.", found["said"])
        self.assertEqual(values(run("measure", INPUT=layer_of(UTM, [(LOT,)]))["OUTPUT"], "area"), [(5000.0,)])

    def test_each_parcel_is_judged_where_it_lies(self):
        # Web Mercator is true on the equator; UTM is not far from its middle meridian. One stray feature refuses no others.
        there = "POLYGON ((1000000 0, 1000100 0, 1000100 100, 1000000 0))"
        lots = layer_of("EPSG:3857", [(there,), (self.MERCATOR,), ("POLYGON ((0 9e6, 100 9e6, 100 9000100, 0 9e6))",)])
        found = run("divide", INPUT=lots, LINE=0, CHOICE=0, AMOUNT=1, VALUE="1/2", ANY_SCALE=False)
        self.assertEqual((found["DIVIDED"], found["NOT_DIVIDED"]), (0, 3))  # the parallels of the ellipsoid: 0.7 % off even there
        lots = layer_of(UTM, [(LOT,), ("POLYGON ((1500000 5000000, 1500100 5000000, 1500100 5000050, 1500000 5000000))",), (YARD,)])
        found = run("divide", INPUT=lots, LINE=0, CHOICE=0, AMOUNT=1, VALUE="1/2")
        self.assertEqual((found["DIVIDED"], found["NOT_DIVIDED"]), (2, 1))
        self.assertIn("EPSG:32632 shows lengths 1.0", values(found["REFUSED"], "reason")[0][0])

    def test_lengths_that_areas_make_up_for(self):
        # Equal areas; lengths at 45 North are 1.2 times too long East, and as much too short North.
        lots = layer_of("EPSG:6933", [("POLYGON ((868000 5160000, 868100 5160000, 868100 5160100, 868000 5160000))",)])
        self.assertIn("times as long", values(run("measure", INPUT=lots)["OUTPUT"], "status")[0][0])

    def test_the_scale_of_the_program(self):
        with tempfile.TemporaryDirectory() as folder:
            for x in range(150000, 900000, 25000):
                lot = f"POLYGON (({x} 5000000, {x + 100} 5000000, {x + 100} 5000050, {x} 5000000))"
                options = QgsVectorFileWriter.SaveVectorOptions()
                path = os.path.join(folder, f"lot{x}.gpkg")
                lots = layer_of(UTM, [(lot,)])
                QgsVectorFileWriter.writeAsVectorFormatV3(lots, path, QgsProject.instance().transformContext(), options)
                told = subprocess.run(["plcalc", "measure", path], capture_output=True, text=True, check=False)
                (area, status), = values(run("measure", INPUT=lots)["OUTPUT"], "area", "status")
                self.assertEqual(status == "usable", told.returncode == 0, (x, status, told.stderr))

    def test_the_stake_out_list(self):
        x, y = 1000000, 6446000
        points = layer_of("EPSG:3857", [(f"POINT ({x + 3} {y + 4})",)], kind="Point")
        asked = {"INPUT": points, "STATION": f"{x},{y} [EPSG:3857]", "ORIENTATION": f"{x},{y + 100} [EPSG:3857]"}
        with self.assertRaisesRegex(QgsProcessingException, "times as long"):
            run("stakeout", **asked)
        self.assertEqual(values(run("stakeout", **asked, ANY_SCALE=True)["OUTPUT"], "distance"), [(5.0,)])
        degrees = layer_of("", [("POINT (9.001 45.001)",)], kind="Point")
        with self.assertRaisesRegex(QgsProcessingException, "look like degrees"):
            run("stakeout", INPUT=degrees, STATION="9,45", ORIENTATION="9.001,45")
        feet = layer_of("EPSG:2263", [("POINT (1000000 200000)",)], kind="Point")
        self.assertIn("Lengths are in feet", run("stakeout", INPUT=feet, STATION="1000100,200000 [EPSG:2263]",
                                                 ORIENTATION="1000200,200000 [EPSG:2263]")["said"])
        none = layer_of(UTM, [(None,), ("POINT (500000 5000000)",)], kind="Point")
        found = run("stakeout", INPUT=none, STATION="500003,5000004 [EPSG:32632]", ORIENTATION="500000,5000100 [EPSG:32632]")
        self.assertIn("which are not in the list: 1.", found["said"])
        self.assertEqual(values(found["OUTPUT"], "distance"), [(5.0,)])

    def test_what_the_plane_does_not_show(self):
        QgsProject.instance().setCrs(QgsCoordinateReferenceSystem(UTM))
        beyond = "POLYGON ((9 145.15, 9.00127 145.15, 9.00127 145.15045, 9 145.15045, 9 145.15))"
        found = run("divide", INPUT=layer_of("EPSG:4326", [(beyond,), (self.DEGREES,)]), LINE=0, CHOICE=0, AMOUNT=1, VALUE="1/2")
        self.assertEqual((found["DIVIDED"], found["NOT_DIVIDED"]), (1, 1))


class Models(unittest.TestCase):
    def test_pieces_are_measured(self):
        model = QgsProcessingModelAlgorithm()
        model.addModelParameter(QgsProcessingParameterFeatureSource("LOTS", "lots"), QgsProcessingModelParameter("LOTS"))
        source = QgsProcessingModelChildParameterSource
        for name, given, result in (
                ("divide", {"INPUT": source.fromModelParameter("LOTS"), "LINE": source.fromStaticValue(0),
                            "CHOICE": source.fromStaticValue(0), "AMOUNT": source.fromStaticValue(1),
                            "VALUE": source.fromStaticValue("1/4")}, "PIECES"),
                ("measure", {"INPUT": source.fromChildOutput("divide", "PIECES")}, "OUTPUT")):
            child = QgsProcessingModelChildAlgorithm(f"plcalc:{name}")
            child.setChildId(name)
            for parameter, value in given.items():
                child.addParameterSources(parameter, [value])
            output = QgsProcessingModelOutput(result, result)
            output.setChildId(name)
            output.setChildOutputName(result)
            child.setModelOutputs({result: output})
            model.addChildAlgorithm(child)
        model.updateDestinationParameters()
        numbers = model.availableSourcesForChild("measure", [], ["outputNumber"])
        self.assertEqual({source.outputName() for source in numbers}, {"DIVIDED", "NOT_DIVIDED"})
        lots = layer_of(UTM, [(LOT,)])
        project, context = QgsProject.instance(), QgsProcessingContext()
        project.addMapLayer(lots)
        self.addCleanup(project.removeAllMapLayers)
        context.setProject(project)
        found, done = model.run({"LOTS": lots.id(), "divide:PIECES": "memory:", "measure:OUTPUT": "memory:"}, context,
                                QgsProcessingFeedback())
        self.assertTrue(done)
        self.assertEqual(values(context.getMapLayer(found["measure:OUTPUT"]), "area", "area_2"), [(1250.0, 1250.0), (3750.0, 3750.0)])


class TheOthers(unittest.TestCase):
    def test_measure(self):
        found = run("measure", INPUT=layer_of(UTM, [(HOLED,), (CROSSED,), (None,)]))
        rows = values(found["OUTPUT"], "area", "perimeter", "vertices", "status")
        self.assertEqual(rows[0], (4900.0, 340.0, 8, "usable"))
        self.assertIn("cross", rows[1][3])
        self.assertEqual(rows[2][3], "there is no geometry")

    def test_feasible(self):
        found = run("feasible", INPUT=layer_of(UTM, [(YARD,)]), LINE=0, CHOICE=0, NUMBER=1)
        (least, most, least_is_had, most_is_had), = values(found["OUTPUT"], "least", "most", "least_is_had", "most_is_had")
        self.assertEqual((least, round(most, 6), least_is_had, most_is_had), (0.0, 2400.0, False, False))
        found = run("feasible", INPUT=layer_of(UTM, [(YARD,)]), LINE=0, CHOICE=0, NUMBER=99)
        (reason,), = values(found["OUTPUT"], "reason")
        self.assertIn("no side or vertex of that index", reason)

    def test_stakeout(self):
        points = layer_of(UTM, [("POINT (500100 5000100)", "P1"), ("POINT (500000 5000025)", "P2")], kind="Point",
                          columns="&field=name:string")
        found = run("stakeout", INPUT=points, STATION="500000,5000000 [EPSG:32632]",
                    ORIENTATION="500100,5000000 [EPSG:32632]")
        rows = values(found["OUTPUT"], "name", "angle", "distance", "bearing")
        self.assertEqual(rows, [("P1", 350.0, 141.4213562373095, 50.0), ("P2", 300.0, 25.0, 0.0)])

    def test_a_point_at_the_station_has_no_direction(self):
        points = layer_of(UTM, [("POINT (500000 5000000)",), ("POINT (500010 5000000)",)], kind="Point")
        found = run("stakeout", INPUT=points, STATION="500000,5000000", ORIENTATION="500000,5000100")
        self.assertEqual(values(found["OUTPUT"], "angle", "distance", "bearing"), [(QVariant(), 0.0, QVariant()), (100.0, 10.0, 100.0)])


class Cancelled(unittest.TestCase):
    def test_a_run_that_is_cancelled_stops(self):
        from qgis.core import QgsProcessingUtils

        lots = layer_of(UTM, [(LOT,)] * 50)
        algorithm = QgsApplication.processingRegistry().createAlgorithmById("plcalc:measure")
        context = QgsProcessingContext()
        feedback = QgsProcessingFeedback()
        feedback.cancel()
        found, succeeded = algorithm.run({"INPUT": lots, "OUTPUT": "memory:"}, context, feedback)
        self.assertTrue(succeeded)
        self.assertEqual(QgsProcessingUtils.mapLayerFromString(found["OUTPUT"], context).featureCount(), 0)

    def test_a_run_that_is_cancelled_on_its_way_says_so(self):
        feedback = Messages()
        feedback.progressChanged.connect(lambda percent: feedback.cancel() if percent > 30 else None)
        found = session.application.processing.run("plcalc:divide", {
            "INPUT": layer_of(UTM, [(YARD,)] * 50), "LINE": 0, "CHOICE": 2, "AMOUNT": 1, "VALUE": "1/2", "PIECES": "memory:"}, feedback=feedback)
        self.assertEqual(found["PIECES"].featureCount(), 2 * found["DIVIDED"])
        self.assertTrue(0 < found["DIVIDED"] < 50)
        self.assertIn("Cancelled: what is left of the layer has not been looked at", feedback.text)


if __name__ == "__main__":
    unittest.main()
