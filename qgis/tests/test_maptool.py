"""The map tool, driven by mouse and keys as a user would."""

import contextlib
import csv
import math
import os
import random
import sys
import tempfile
import traceback
import unittest
from unittest import mock

import session
from qgis.core import (QgsCoordinateReferenceSystem, QgsCoordinateTransform, QgsCsException, QgsDefaultValue, QgsFieldConstraints,
                       QgsGeometry, QgsPointXY, QgsProject, QgsRectangle, QgsVectorFileWriter, QgsVectorLayer)
from qgis.gui import QgsMapCanvas
from qgis.PyQt.QtCore import QEvent, Qt
from qgis.PyQt.QtGui import QKeyEvent
from qgis.PyQt.QtTest import QTest
from qgis.PyQt.QtWidgets import QApplication, QHBoxLayout, QMainWindow, QWidget
from session import HOLED, LOT, UTM, YARD, layer_of
from test_program import without_package, without_program
from user import User

# To the East of LOT, with a side that lies along the whole of its East side and on both ways; and one that touches a corner only.
NEIGHBOUR = "POLYGON ((500100 4999990, 500150 4999990, 500150 5000060, 500100 5000060, 500100 4999990))"
CORNER_ONLY = "POLYGON ((499990 5000050, 500000 5000050, 500000 5000060, 499990 5000060, 499990 5000050))"


class Window(User):
    """A canvas with the tool and its dock."""

    def __init__(self, layers, current=None, extent=(499980, 4999980, 500170, 5000080)):
        from plcalc_qgis.maptool.dock import Dock
        from plcalc_qgis.maptool.tool import DivideTool

        self.project = QgsProject.instance()
        self.project.addMapLayers(layers, False)
        self.widget = QWidget()
        super().__init__(QgsMapCanvas())
        self.canvas.setLayers(layers)
        self.canvas.setCurrentLayer(current or layers[0])
        self.canvas.setDestinationCrs(QgsCoordinateReferenceSystem(UTM))
        self.canvas.setExtent(QgsRectangle(*extent))
        self.dock = Dock()
        layout = QHBoxLayout(self.widget)
        layout.addWidget(self.canvas, 3)
        layout.addWidget(self.dock, 2)
        self.widget.resize(1100, 600)
        self.widget.show()
        QTest.qWaitForWindowExposed(self.widget)
        self.canvas.refresh()
        self.canvas.waitWhileRendering()
        self.tool = DivideTool(self.canvas, self.dock)
        self.said = []
        self.tool.said.connect(lambda text, problem: self.said.append((text, problem)))
        self.canvas.setMapTool(self.tool)
        # Qt ends the process at an exception in an event; a test should fail instead.
        self.raised = []
        sys.excepthook = lambda *what: self.raised.append("".join(traceback.format_exception(*what)))

    def close(self):
        sys.excepthook = sys.__excepthook__
        self.canvas.unsetMapTool(self.tool)
        self.tool.remove()
        self.project.removeAllMapLayers()
        self.widget.close()
        self.widget.deleteLater()
        QApplication.sendPostedEvents(None, QEvent.DeferredDelete)

    def ask(self, kind, text):
        self.dock.amount.setCurrentIndex(kind)
        self.dock.value.setText(text)

    def picture(self, name):
        """Kept where PLCALC_PICTURES says, for people to look at."""
        if os.environ.get("PLCALC_PICTURES"):
            self.canvas.waitWhileRendering()
            QApplication.processEvents()
            self.widget.grab().save(os.path.join(os.environ["PLCALC_PICTURES"], name + ".png"))


AREA, SHARE, PARTS, WIDTH, LIST = range(5)


def shapes(layer):
    return sorted((feature.geometry().asWkt(4), *feature.attributes()) for feature in layer.getFeatures())


def setUpModule():
    session.start()


class Case(unittest.TestCase):
    def window(self, rows, crs=UTM, kind="Polygon", columns="&field=owner:string", more=(), **how):
        self.lots = layer_of(crs, rows, kind=kind, columns=columns)
        self.opened = Window([self.lots, *more], **how)
        self.addCleanup(lambda: self.assertEqual(self.opened.raised, []))
        self.addCleanup(self.opened.close)
        return self.opened


class Choosing(Case):
    def test_select_hover_and_click(self):
        window = self.window([(LOT, "Rossi"), (NEIGHBOUR, "Verdi")])
        self.assertIn("Click on a parcel", window.dock.about.text())
        window.click(500050, 5000025)
        self.assertIn("area 5000.0000, perimeter 300.0000", window.dock.about.text())
        self.assertIn("Click on a side", window.dock.place.text())
        window.move(500050, 5000000.5)
        self.assertEqual(window.dock.place.text(), "Side 1: length 100.000, bearing 100.0000 gon")
        window.move(500099.5, 5000025)
        self.assertEqual(window.dock.place.text(), "Side 2: length 50.000, bearing 0.0000 gon")
        window.move(500000.2, 5000049.8)
        self.assertEqual(window.dock.place.text(), "Corner 4: E 500000.000, N 5000050.000")
        window.move(500050, 5000025)
        self.assertIn("Click on a side", window.dock.place.text())
        self.assertFalse(window.dock.divide.isEnabled())
        window.click(500050, 5000000)
        self.assertIn("Piece 1: 2500.0000 (asked 2500.0000)", window.dock.result.text())
        self.assertIn("length 100.000, bearing 100.0000 gon", window.dock.result.text())
        self.assertTrue(window.dock.divide.isEnabled())
        window.picture("side")

    def test_the_answer_follows_the_dock(self):
        window = self.window([(LOT, "Rossi")])
        window.click(500050, 5000025)
        window.click(500050, 5000000)
        window.ask(AREA, "1234")
        self.assertIn("Piece 1: 1234.0000", window.dock.result.text())
        window.dock.kind.setCurrentIndex(1)
        self.assertIn("bearing 0.0000 gon", window.dock.result.text())
        window.ask(PARTS, "3")
        self.assertEqual(len(window.tool.work.division.lines), 2)
        window.ask(PARTS, "1000")
        self.assertEqual(len(window.tool.work.division.lines), 999)
        self.assertIn("and 988 more pieces", window.dock.result.text())
        window.ask(PARTS, "1000000000")
        self.assertIn("parts are 2 to 1000", window.dock.result.text())
        window.ask(AREA, "1000")
        window.dock.opposite.setChecked(True)
        ends = [end for line in window.tool.work.division.lines for end in (line.start, line.end)]
        self.assertEqual({x for x, _ in ends}, {500020.0})
        window.key(Qt.Key_O)
        self.assertFalse(window.dock.opposite.isChecked())
        window.ask(AREA, "6000")
        self.assertIn("what can be had: 0.0000 to 5000.0000", window.dock.result.text())
        self.assertFalse(window.dock.divide.isEnabled())
        window.ask(AREA, "much")
        self.assertIn("How much is asked cannot be read", window.dock.result.text())

    def test_decimals(self):
        window = self.window([(LOT, "Rossi")])
        window.click(500050, 5000025)
        window.click(500050, 5000000)
        window.ask(AREA, "1234.5678")  # 12.345678 from the side: off by 0.0322 m2 with three decimals, 0.0022 with four
        self.assertIn("The ends have 4 decimals: with 3", window.dock.result.text())
        window.dock.tolerance.setCurrentIndex(1)
        self.assertNotIn("decimals", window.dock.result.text())
        self.assertEqual(window.tool.work.division.lines[0].start, (500000.0, 5000012.346))
        window.dock.decimals.setValue(-1)
        self.assertEqual(window.tool.work.division.lines[0].start, (500000.0, 5000012.345678))

    def test_a_point_in_the_place_of_a_corner(self):
        window = self.window([(LOT.replace("500000 5000000", "500000.125 5000000"), "Rossi")])
        window.click(500050, 5000025)
        window.click(500000, 5000000)  # from which the line starts
        window.dock.decimals.setValue(2)
        window.dock.tolerance.setCurrentIndex(3)
        self.assertIn("the place of corner 1, and corners are not moved. That corner has 3 decimals", window.dock.result.text())
        self.assertFalse(window.dock.divide.isEnabled())
        for decimals in (3, -1):
            window.dock.decimals.setValue(decimals)
            line, = window.tool.work.division.lines
            self.assertIn((500000.125, 5000000.0), (line.start, line.end))

    def test_a_corner(self):
        window = self.window([(LOT, "Rossi")])
        window.click(500050, 5000025)
        window.click(500000, 5000000)
        self.assertEqual(window.dock.kind.currentText(), "from a vertex")
        window.ask(AREA, "1250")
        line, = window.tool.work.division.lines
        self.assertEqual(sorted([line.start, line.end]), [(500000.0, 5000000.0), (500100.0, 5000025.0)])
        window.picture("corner")
        window.click(500050, 5000000)  # the side takes its place
        self.assertEqual(window.dock.kind.currentText(), "parallel to a side")
        window.dock.kind.setCurrentIndex(2)
        self.assertIsNone(window.tool.work.division)
        self.assertEqual(window.dock.place.text(), "Side 1: length 100.000, bearing 100.0000 gon")
        window.move(500050, 5000025)
        self.assertFalse(window.dock.divide.isEnabled())

    def test_stepping_back(self):
        window = self.window([(LOT, "Rossi")])
        window.click(500050, 5000025)
        window.click(500050, 5000000)
        window.key(Qt.Key_Escape)
        self.assertIsNone(window.tool.work.division)
        self.assertEqual(window.dock.result.text(), "")
        window.key(Qt.Key_Escape)
        self.assertIsNone(window.tool.work)
        self.assertIn("Click on a parcel", window.dock.about.text())

    def test_enter_in_the_dock_divides_nothing(self):
        window = self.window([(LOT, "Rossi")])
        window.click(500050, 5000025)
        window.click(500050, 5000000)
        for field in (window.dock.value, window.dock.point, window.dock.decimals, window.dock.amount, window.dock.opposite, window.dock.points):
            field.setFocus()
            if field is window.dock.value:
                field.selectAll()
                QTest.keyClicks(field, "1/5")
            QTest.keyClick(field, Qt.Key_Return)
            self.assertFalse(self.lots.isEditable())
            self.assertIs(window.widget.focusWidget(), window.canvas, field)  # Enter there is meant
        self.assertAlmostEqual(window.tool.work.division.pieces[0].area, 1000.0, delta=1e-2)
        window.dock.value.setFocus()
        QTest.keyClick(window.dock.value, Qt.Key_Escape)
        self.assertIs(window.widget.focusWidget(), window.canvas)
        self.assertIsNotNone(window.tool.work.division)
        held = QKeyEvent(QEvent.KeyPress, Qt.Key_Return, Qt.NoModifier, "", True)
        QApplication.sendEvent(window.canvas, held)
        self.assertFalse(self.lots.isEditable())
        window.key(Qt.Key_Return)
        self.assertEqual(self.lots.featureCount(), 2)

    def test_enter_on_the_button(self):
        window = self.window([(LOT, "Rossi")])
        window.click(500050, 5000025)
        window.click(500050, 5000000)
        window.widget.activateWindow()
        QTest.qWaitForWindowActive(window.widget)
        window.dock.divide.setFocus()
        QTest.keyClick(window.dock.divide, Qt.Key_Return)
        self.assertEqual(self.lots.featureCount(), 2)

    def test_a_bearing_that_is_being_written_counts(self):
        window = self.window([(LOT, "Rossi")])
        window.dock.kind.setCurrentIndex(3)
        window.click(500050, 5000025)
        window.ask(AREA, "1000")
        window.dock.bearing.selectAll()
        QTest.keyClicks(window.dock.bearing, "100")
        self.assertEqual(window.dock.bearing.value(), 0.0)
        window.key(Qt.Key_Return)
        self.assertIn((500000.0, 5000010.0), {(v.x(), v.y()) for v in self.lots.getFeature(1).geometry().vertices()})

    def test_what_is_no_parcel(self):
        window = self.window([("POLYGON ((500000 5000000, 500100 5000050, 500100 5000000, 500000 5000050, 500000 5000000))", "")])
        window.click(500005, 5000025)
        self.assertIn("cross", window.dock.result.text())
        window.click(500050, 5000000)
        self.assertFalse(window.dock.divide.isEnabled())

    def test_a_layer_without_a_system(self):
        window = self.window([(LOT, "Rossi")], crs="")
        window.click(500050, 5000025)
        window.click(500050, 5000000)
        window.key(Qt.Key_Return)
        self.assertEqual(self.lots.featureCount(), 2)

    def test_arcs_are_refused(self):
        window = self.window([("CURVEPOLYGON (CIRCULARSTRING (500000 5000025, 500050 5000075, 500100 5000025, 500050 4999975, "
                               "500000 5000025))", "")], kind="CurvePolygon")
        window.click(500050, 5000025)
        (text, problem), = window.said
        self.assertTrue(problem)
        self.assertIn("its boundary has arcs", text)

    def test_curves_without_arcs_beside_one_with_arcs(self):
        arcs = "CURVEPOLYGON (CIRCULARSTRING (500110 5000025, 500120 5000035, 500130 5000025, 500120 5000015, 500110 5000025))"
        lot = f"CURVEPOLYGON (COMPOUNDCURVE ({LOT[9:-1]}))"
        window = self.window([(f"MULTISURFACE ({lot}, {arcs})", "Rossi")], kind="MultiSurface")
        window.click(500120, 5000025)
        self.assertIn("its boundary has arcs", window.said.pop()[0])
        window.click(500050, 5000025)
        window.click(500050, 5000000)
        window.key(Qt.Key_Return)
        self.assertEqual([problem for _, problem in window.said], [True])  # beside it lies what is no parcel
        self.assertEqual(self.lots.featureCount(), 2)
        kept = self.lots.getFeature(1).geometry()
        self.assertEqual((kept.constGet().geometryType(), kept.constGet().numGeometries()), ("MultiSurface", 2))
        self.assertAlmostEqual(kept.constGet().geometryN(1).area(), math.pi * 100, delta=0.1)
        self.assertTrue(kept.constGet().geometryN(1).hasCurvedSegments())
        cut_off, = (feature.geometry() for feature in self.lots.getFeatures() if feature.id() != 1)
        self.assertAlmostEqual(cut_off.area(), 2500.0, delta=1e-6)
        self.assertTrue(self.lots.commitChanges(), self.lots.commitErrors())

    def test_a_curve_polygon(self):
        ring = LOT[9:-1]
        lots = [(f"CURVEPOLYGON (COMPOUNDCURVE ({ring}))", "Rossi"), (NEIGHBOUR.replace("POLYGON", "CURVEPOLYGON"), "Verdi")]
        window = self.window(lots, kind="CurvePolygon")
        window.click(500050, 5000025)
        window.click(500050, 5000000)
        window.key(Qt.Key_Return)
        self.assertIn("neighbours with new points: 1", window.said[0][0])
        self.assertEqual({feature.geometry().constGet().geometryType() for feature in self.lots.getFeatures()}, {"CurvePolygon"})
        self.assertEqual(sorted(round(feature.geometry().area(), 6) for feature in self.lots.getFeatures()), [2500.0, 2500.0, 3500.0])

    def test_each_parcel_is_judged_where_it_lies(self):
        stray = "POLYGON ((1500000 5000000, 1500100 5000000, 1500100 5000050, 1500000 5000050, 1500000 5000000))"
        window = self.window([(LOT, "Rossi"), (stray, "Verdi"), (stray, "Blu")])  # the middle of the layer is off
        window.click(500050, 5000025)
        self.assertIsNotNone(window.tool.work)
        window.canvas.setExtent(QgsRectangle(1499980, 4999980, 1500170, 5000080))
        window.canvas.waitWhileRendering()
        window.click(1500050, 5000025)
        self.assertIn("times as long", window.said[0][0])
        window.dock.any_scale.setChecked(True)
        window.click(1500050, 5000025)
        self.assertIn("area 5000.0000", window.dock.about.text())
        self.assertIn("CRS stretches lengths", window.dock.note.text())

    def test_a_layer_of_points_is_refused(self):
        window = self.window([("POINT (500050 5000025)", "")], kind="Point")
        window.click(500050, 5000025)
        self.assertEqual(window.said, [("Make a layer of polygons the current one.", True)])

    def test_dragging_the_line(self):
        window = self.window([(LOT, "Rossi")])
        window.click(500050, 5000025)
        window.click(500050, 5000000)
        window.drag((500050, 5000025), (500050, 5000020), (500050, 5000015))
        self.assertEqual(window.dock.amount.currentIndex(), AREA)
        wanted = float(window.dock.value.text())
        self.assertAlmostEqual(wanted, 1500.0, delta=30.0)  # a pixel is a quarter of a metre
        self.assertEqual(wanted % 10, 0.0)  # no digits that the cursor cannot tell apart
        self.assertAlmostEqual(window.tool.work.division.pieces[0].area, wanted, delta=1e-2)
        window.dock.opposite.setChecked(True)
        window.drag((500050, 5000035), (500050, 5000010))
        self.assertAlmostEqual(float(window.dock.value.text()), 4000.0, delta=30.0)
        window.picture("dragged")

    def test_dragging_a_line_from_a_corner(self):
        window = self.window([(YARD, "Rossi")], extent=(500190, 4999990, 500270, 5000060))
        window.click(500220, 5000025)
        window.click(500200, 5000000)
        line, = window.tool.work.division.lines
        (x0, y0), (x1, y1) = line.start, line.end
        # To (500240, 5000035): the corners 1 to 4, and there; 60 x 20 less the triangle above the line, and the one beyond.
        window.drag(((x0 + x1) / 2, (y0 + y1) / 2), (500220, 5000017.5))
        piece = QgsGeometry.fromWkt("POLYGON ((500200 5000000, 500260 5000000, 500260 5000020, 500240 5000020, 500240 5000035, "
                                    "500200 5000000))")
        self.assertAlmostEqual(float(window.dock.value.text()), piece.area(), delta=20.0)


    def test_sides_and_corners_of_holes(self):
        window = self.window([(HOLED, "Rossi")], extent=(500290, 4999990, 500410, 5000060))
        window.click(500320, 5000025)
        window.move(500345, 5000025)
        self.assertEqual(window.dock.place.text(), "Side 5: length 10.000, bearing 0.0000 gon")
        window.move(500345, 5000030)
        self.assertEqual(window.dock.place.text(), "Corner 6: E 500345.000, N 5000030.000")
        window.click(500345, 5000025)
        window.ask(WIDTH, "5")
        self.assertEqual({end[0] for end in (window.tool.work.division.lines[0].start, window.tool.work.division.lines[0].end)}, {500340.0})
        window.drag((500340, 5000010), (500320, 5000010))
        self.assertAlmostEqual(float(window.dock.value.text()), 80 * 50 - 100, delta=30.0)
        window.picture("hole")
        window.key(Qt.Key_Return)
        self.assertEqual(self.lots.featureCount(), 2)

    def test_a_line_at_a_bearing(self):
        window = self.window([(LOT, "Rossi")])
        window.dock.kind.setCurrentIndex(3)
        window.click(500050, 5000025)
        self.assertIn("bearing 0.0000 gon", window.dock.result.text())  # nothing more need be chosen
        window.ask(AREA, "1000")
        window.dock.bearing.setValue(100.0)
        self.assertEqual({y for _, y in (window.tool.work.division.lines[0].start, window.tool.work.division.lines[0].end)}, {5000010.0})
        window.drag((500050, 5000010), (500050, 5000020))
        self.assertAlmostEqual(float(window.dock.value.text()), 2000.0, delta=30.0)
        window.move(500100, 5000025)
        self.assertIn("Side 2", window.dock.place.text())
        window.click(500100, 5000025)  # takes its bearing, 0
        self.assertEqual(window.dock.bearing.value(), 0.0)
        window.ask(AREA, "1000")
        window.picture("bearing")
        window.key(Qt.Key_Return)
        self.assertEqual(self.lots.featureCount(), 2)

    def test_a_line_through_a_point(self):
        window = self.window([(YARD, "Rossi"), (LOT, "Verdi")], extent=(500190, 4999990, 500270, 5000060))
        window.dock.kind.setCurrentIndex(4)
        window.click(500220, 5000025)
        self.assertFalse(window.dock.divide.isEnabled())
        self.assertEqual(window.dock.place.text(), "Click on the point.")
        window.click(500220, 5000015)
        x, y = (float(part) for part in window.dock.point.text().split(","))
        self.assertAlmostEqual(x, 500220, delta=0.2)
        self.assertAlmostEqual(y, 5000015, delta=0.2)
        window.dock.point.setText("500220; 5000015")
        line, = window.tool.work.division.lines
        (x0, y0), (x1, y1) = line.start, line.end
        self.assertAlmostEqual((x1 - x0) * (5000015 - y0), (y1 - y0) * (500220 - x0), delta=0.05)
        window.picture("point")
        window.drag((500220, 5000015), (500222, 5000012))
        self.assertAlmostEqual(float(window.dock.point.text().split(",")[1]), 5000012, delta=0.2)
        window.dock.point.setText("there")
        self.assertIn("cannot be read", window.dock.result.text())
        window.key(Qt.Key_Escape)
        self.assertIsNotNone(window.tool.work)

    def test_with_the_program(self):
        window = self.window([(LOT, "Rossi")])
        with without_package():
            window.click(500050, 5000025)
            self.assertIn("the program of that name is asked", window.dock.note.text())
            window.move(500050, 5000000.5)
            self.assertEqual(window.dock.place.text(), "Side 1: length 100.000, bearing 100.0000 gon")
            window.click(500050, 5000000)
            window.ask(AREA, "1234")
            self.assertIn("Piece 1: 1234.0000", window.dock.result.text())
            window.dock.decimals.setValue(-1)
            self.assertIn("say to how many decimals", window.dock.result.text())

    def test_with_neither(self):
        window = self.window([(LOT, "Rossi")])
        with without_package(), without_program():
            window.click(500050, 5000025)
        (text, problem), = window.said
        self.assertTrue(problem)
        self.assertIn("Or install the program plcalc", text)


class InTheWindowOfQgis(Case):
    def test_button_dock_and_unload(self):
        window = self.window([(LOT, "Rossi")])
        main = QMainWindow()
        iface = mock.MagicMock()
        iface.mainWindow.return_value, iface.mapCanvas.return_value = main, window.canvas
        iface.addDockWidget.side_effect = main.addDockWidget
        iface.removeDockWidget.side_effect = main.removeDockWidget
        main.show()
        before = len(window.canvas.scene().items())
        plugin = session.application.plcalc_plugin
        plugin.unload()
        from plcalc_qgis import classFactory

        plugin = classFactory(iface)
        plugin.initGui()
        self.assertFalse(plugin.dock.isVisible())
        plugin.action.trigger()
        self.assertIs(window.canvas.mapTool(), plugin.tool)
        self.assertTrue(plugin.dock.isVisible())
        window.click(500050, 5000025)
        self.assertIsNotNone(plugin.tool.work)
        window.canvas.setCurrentLayer(None)
        window.click(500050, 5000025)
        (title, text), _ = iface.messageBar().pushWarning.call_args
        self.assertEqual((title, text), ("plcalc", "Make a layer of polygons the current one."))
        plugin.dock.close()
        self.assertIsNot(window.canvas.mapTool(), plugin.tool)
        plugin.action.trigger()
        plugin.unload()
        self.assertEqual(len(window.canvas.scene().items()), before)
        session.application.plcalc_plugin.initProcessing()


class Writing(Case):
    def test_divide_and_undo(self):
        window = self.window([(LOT, "Rossi"), (NEIGHBOUR, "Verdi"), (CORNER_ONLY, "Blu")])
        before = shapes(self.lots)
        window.click(500050, 5000025)
        window.click(500050, 5000000)
        window.ask(AREA, "1000.01")
        window.key(Qt.Key_Return)
        self.assertTrue(self.lots.isEditable())
        self.assertEqual([problem for _, problem in window.said], [False])
        self.assertIn("New features: 1; neighbours with new points: 1; points: 0.", window.said[0][0])
        by_owner = {}
        for feature in self.lots.getFeatures():
            by_owner.setdefault(feature["owner"], []).append(feature.geometry())
        self.assertEqual([round(shape.area(), 1) for shape in sorted(by_owner["Rossi"], key=QgsGeometry.area)], [1000.0, 4000.0])
        neighbour, = by_owner["Verdi"]
        self.assertIn("500100 5000010", neighbour.asWkt(6))
        self.assertAlmostEqual(neighbour.area(), 50 * 70, delta=1e-6)
        kept = self.lots.getFeature(1).geometry()  # what is left keeps the number
        self.assertAlmostEqual(kept.area(), 3999.99, delta=0.02)
        # The three share their new corner to the last bit.
        corner = {(v.x(), v.y()) for v in kept.vertices()} & {(v.x(), v.y()) for v in neighbour.vertices()}
        self.assertEqual(len(corner - {(500100.0, 5000050.0)}), 1)
        self.assertEqual(self.lots.undoStack().count(), 1)
        self.lots.undoStack().undo()
        self.assertEqual(shapes(self.lots), before)
        self.lots.undoStack().redo()
        self.assertTrue(self.lots.commitChanges())
        self.assertEqual(self.lots.featureCount(), 4)

    def test_new_points(self):
        points = layer_of("EPSG:25832", [], kind="Point", columns="&field=name:string")
        window = self.window([(LOT, "Rossi")], more=[points])
        window.dock.points.setLayer(points)
        window.click(500050, 5000025)
        window.click(500050, 5000000)
        window.ask(PARTS, "4")
        QTest.mouseClick(window.dock.divide, Qt.LeftButton)
        self.assertEqual([feature["name"] for feature in points.getFeatures()], ["P1", "P2", "P3", "P4", "P5", "P6"])
        self.assertIn("New features: 3; neighbours with new points: 0; points: 6.", window.said[0][0])
        self.assertEqual(self.lots.featureCount(), 4)
        self.lots.undoStack().undo()
        self.assertEqual(self.lots.featureCount(), 1)

    def test_several_polygons_heights_and_holes(self):
        lot = ("MULTIPOLYGON Z (((500000 5000000 10, 500100 5000000 20, 500100 5000050 20, 500000 5000050 10, 500000 5000000 10), "
               "(500045 5000030 1, 500045 5000040 1, 500055 5000040 1, 500055 5000030 1, 500045 5000030 1)), "
               "((500110 5000000 7, 500120 5000000 7, 500120 5000010 7, 500110 5000000 7)))")
        window = self.window([(lot, "Rossi")], kind="MultiPolygonZ")
        window.click(500020, 5000025)
        window.click(500000, 5000025)  # the West side
        window.ask(AREA, "1500")
        window.dock.decimals.setValue(1)
        window.key(Qt.Key_Return)
        cut_off, = (feature.geometry() for feature in self.lots.getFeatures() if feature.id() != 1)
        self.assertEqual(cut_off.asWkt(3), "MultiPolygonZ (((500030 5000000 13, 500030 5000050 13, 500000 5000050 10, 500000 5000000 10, "
                                           "500030 5000000 13)))")
        kept = self.lots.getFeature(1).geometry()
        self.assertEqual(kept.constGet().numGeometries(), 2)
        self.assertAlmostEqual(kept.area(), 3400.0 + 50.0, delta=1e-6)
        self.assertEqual({point.z() for point in kept.vertices()}, {13.0, 20.0, 1.0, 7.0})

    def test_measures_and_heights_of_neighbours(self):
        lot = ("POLYGON ZM ((500000 5000000 10 1, 500100 5000000 20 2, 500100 5000050 30 3, 500000 5000050 -9999 4, 500000 5000000 10 1))")
        beside = ("POLYGON ZM ((500100 5000000 100 5, 500150 5000000 100 6, 500150 5000050 200 7, 500100 5000050 200 8, "
                  "500100 5000000 100 5))")
        points = layer_of(UTM, [], kind="PointZ")
        window = self.window([(lot, "Rossi"), (beside, "Verdi")], kind="PolygonZM", more=[points])
        window.dock.points.setLayer(points)
        window.click(500050, 5000025)
        window.click(500050, 5000000)
        window.ask(AREA, "1000")
        window.key(Qt.Key_Return)
        neighbour = next(feature for feature in self.lots.getFeatures() if feature["owner"] == "Verdi").geometry()
        new, = (vertex for vertex in neighbour.vertices() if vertex.y() == 5000010)
        self.assertEqual((new.x(), round(new.z(), 9), round(new.m(), 9)), (500100.0, 120.0, 5.6))
        corners = {(vertex.x(), vertex.y()): (vertex.z(), vertex.m()) for vertex in self.lots.getFeature(1).geometry().vertices()}
        self.assertEqual([round(value, 9) for value in corners[500100.0, 5000010.0]], [22.0, 2.2])
        self.assertTrue(math.isnan(corners[500000.0, 5000010.0][0]))  # one end of its side has no height
        self.assertAlmostEqual(corners[500000.0, 5000010.0][1], 1.6, places=9)
        self.assertEqual([round(feature.geometry().constGet().z(), 9) for feature in points.getFeatures()
                          if not math.isnan(feature.geometry().constGet().z())], [22.0])
        (text, problem), = window.said
        self.assertTrue(problem)
        self.assertIn("New points without a height or a measure: 3.", text)  # in two pieces, and in the point layer

    def test_a_point_layer_without_heights(self):
        points = layer_of(UTM, [], kind="Point")
        window = self.window([("POLYGON Z ((500000 5000000 1, 500100 5000000 1, 500100 5000050 1, 500000 5000050 1, 500000 5000000 1))", "")],
                             kind="PolygonZ", more=[points])
        window.dock.points.setLayer(points)
        window.click(500050, 5000025)
        window.click(500050, 5000000)
        window.key(Qt.Key_Return)
        self.assertIn("The layer of new points has no heights: they are left out there.", window.said[0][0])

    def test_parts_of_one_feature_and_neighbours_by_the_program(self):
        both = f"MULTIPOLYGON ({LOT[8:]}, {NEIGHBOUR[8:]})"
        for engine in (contextlib.nullcontext, without_package):
            with engine():
                window = self.window([(both, "Rossi"), (CORNER_ONLY, "Blu")], kind="MultiPolygon")
                window.click(500050, 5000025)
                window.click(500050, 5000000)
                window.ask(AREA, "1000.01")
                window.key(Qt.Key_Return)
            parts = self.lots.getFeature(1).geometry().asGeometryCollection()
            self.assertIn("500100 5000010.0001", parts[1].asWkt(4))
            self.assertEqual(self.lots.featureCount(), 3)
            self.assertEqual([problem for _, problem in window.said], [False])

    def test_a_geopackage_with_a_column_of_unique_values(self):
        memory = layer_of(UTM, [(LOT, "Rossi", 7.5), (NEIGHBOUR, "Verdi", 2.5)], columns="&field=owner:string&field=tax:double")
        with tempfile.TemporaryDirectory() as folder:
            path = os.path.join(folder, "lots.gpkg")
            options = QgsVectorFileWriter.SaveVectorOptions()
            self.assertEqual(QgsVectorFileWriter.writeAsVectorFormatV3(memory, path, QgsProject.instance().transformContext(),
                                                                       options)[0], QgsVectorFileWriter.NoError)
            self.lots = QgsVectorLayer(path, "lots", "ogr")
            window = Window([self.lots])
            window.click(500050, 5000025)
            window.click(500050, 5000000)
            window.ask(PARTS, "5")
            window.key(Qt.Key_Return)
            self.assertTrue(self.lots.commitChanges(), self.lots.commitErrors())
            read_back = QgsVectorLayer(path, "again", "ogr")
            rows = sorted((feature["fid"], feature["owner"], feature["tax"], round(feature.geometry().area(), 3))
                          for feature in read_back.getFeatures())
            self.assertEqual(rows[:2], [(1, "Rossi", 7.5, 1000.0), (2, "Verdi", 2.5, 3500.0)])
            self.assertEqual([row[1:] for row in rows[2:]], [("Rossi", 7.5, 1000.0)] * 4)
            self.assertEqual(len({row[0] for row in rows}), 6)
            window.close()
            self.assertEqual(window.raised, [])

    def test_points_that_cannot_be_written(self):
        points = layer_of(UTM, [], kind="Point")
        window = self.window([(LOT, "Rossi")], more=[points])
        window.dock.points.setLayer(points)
        points.setReadOnly(True)
        before = shapes(self.lots)
        window.click(500050, 5000025)
        window.click(500050, 5000000)
        window.key(Qt.Key_Return)
        self.assertEqual([problem for _, problem in window.said], [True])
        self.assertEqual(shapes(self.lots), before)
        self.assertFalse(self.lots.isEditable() or points.isEditable())  # no session stays that nobody has begun

    def test_a_column_for_names_that_takes_numbers_only(self):
        points = layer_of(UTM, [], kind="Point", columns="&field=name:integer")
        window = self.window([(LOT, "Rossi")], more=[points])
        window.dock.points.setLayer(points)
        window.click(500050, 5000025)
        window.click(500050, 5000000)
        window.key(Qt.Key_Return)
        self.assertTrue(points.commitChanges(), points.commitErrors())
        self.assertEqual(points.featureCount(), 2)

    def test_neighbours_that_a_filter_hides_are_told(self):
        memory = layer_of(UTM, [(LOT, "Rossi"), (NEIGHBOUR, "Verdi")], columns="&field=owner:string")
        with tempfile.TemporaryDirectory() as folder:
            path = os.path.join(folder, "lots.gpkg")
            QgsVectorFileWriter.writeAsVectorFormatV3(memory, path, QgsProject.instance().transformContext(),
                                                      QgsVectorFileWriter.SaveVectorOptions())
            lots = QgsVectorLayer(path, "lots", "ogr")
            lots.setSubsetString("owner = 'Rossi'")
            window = Window([lots])
            window.click(500050, 5000025)
            window.click(500050, 5000000)
            window.key(Qt.Key_Return)
            (text, problem), = window.said
            window.close()
        self.assertTrue(problem)
        self.assertIn("The layer has a filter: neighbours that it hides have not got the new points.", text)

    def test_a_layer_that_rounds(self):
        lot = LOT.replace("500000 5000000", "500000.0004 5000000")  # a corner that is not round already
        window = self.window([(lot, "Rossi"), (NEIGHBOUR, "Verdi")])
        before = shapes(self.lots)
        for grid, decimals, written in ((1.0, 3, False), (0.001, -1, False), (0.001, 3, True)):
            with self.subTest(grid=grid, decimals=decimals):
                self.lots.geometryOptions().setGeometryPrecision(grid)
                window.click(500050, 5000025)
                window.click(500050, 5000000)
                window.ask(AREA, "1234.4")
                window.dock.decimals.setValue(decimals)
                window.dock.tolerance.setCurrentIndex(1)
                window.key(Qt.Key_Return)
                text, problem = window.said.pop()
                self.assertEqual(problem, not written)
                self.assertEqual(self.lots.geometryOptions().geometryPrecision(), grid)
                if not written:
                    self.assertIn(f"rounds its points to {grid}", text)
                    self.assertEqual((shapes(self.lots), self.lots.isEditable()), (before, False))
        places = {(v.x(), v.y()) for feature in self.lots.getFeatures() for v in feature.geometry().vertices()}
        self.assertLessEqual({(500000.0004, 5000000.0), (500000.0, 5000012.344), (500100.0, 5000012.344)}, places)

    def test_a_flat_parcel_in_a_layer_with_heights(self):
        window = self.window([(LOT, "Rossi")], kind="PolygonZ")
        window.click(500050, 5000025)
        window.click(500050, 5000000)
        window.key(Qt.Key_Return)
        self.assertTrue(all(math.isnan(vertex.z()) for feature in self.lots.getFeatures() for vertex in feature.geometry().vertices()))
        self.assertTrue(all(feature.geometry().constGet().is3D() for feature in self.lots.getFeatures()))

    def test_points_beyond_the_system_of_their_layer(self):
        points = layer_of("EPSG:32632", [], kind="Point")
        window = self.window([(LOT, "Rossi")], more=[points])
        window.dock.points.setLayer(points)
        before = shapes(self.lots)
        window.click(500050, 5000025)
        window.click(500050, 5000000)

        def beyond(point):
            raise QgsCsException("beyond")

        self.lots.startEditing()
        with mock.patch("plcalc_qgis.parcels.Plane.to", lambda *_: beyond):
            window.key(Qt.Key_Return)
        self.assertIn("lie beyond the CRS of the layer", window.said[0][0])
        self.assertEqual((shapes(self.lots), points.featureCount()), (before, 0))
        self.assertTrue(self.lots.isEditable())  # that session is the user's

    def test_points_with_columns_that_must_be_filled(self):
        points = layer_of(UTM, [], kind="Point", columns="&field=name:string&field=code:string&field=mark:string&field=free:string")
        for number in (0, 1, 2):
            points.setFieldConstraint(number, QgsFieldConstraints.ConstraintNotNull)
        points.setDefaultValueDefinition(2, QgsDefaultValue("'stone'"))
        window = self.window([(LOT, "Rossi")], more=[points])
        window.dock.points.setLayer(points)
        window.click(500050, 5000025)
        window.click(500050, 5000000)
        window.key(Qt.Key_Return)
        (text, problem), = window.said
        self.assertTrue(problem)
        self.assertIn("wants to be filled before it is saved: code.", text)
        self.assertEqual({feature["mark"] for feature in points.getFeatures()}, {"stone"})

    def test_what_is_left_in_several_pieces(self):
        # A comb with teeth of 10, 20 and 30 wide: the line above its back leaves three pieces.
        comb = ("POLYGON ((500000 5000000, 500100 5000000, 500100 5000040, 500070 5000040, 500070 5000010, 500050 5000010, 500050 5000040, "
                "500030 5000040, 500030 5000010, 500010 5000010, 500010 5000040, 500000 5000040, 500000 5000000))")
        window = self.window([(comb, "Rossi")])
        window.click(500050, 5000005)
        window.click(500050, 5000000)
        window.dock.any_pieces.setChecked(True)
        window.ask(AREA, "1600")  # the back of 1000, and 10 of each tooth
        window.key(Qt.Key_Return)
        self.assertEqual(sorted(round(feature.geometry().area(), 2) for feature in self.lots.getFeatures()),
                         [200.0, 400.0, 600.0, 1600.0])
        self.assertAlmostEqual(self.lots.getFeature(1).geometry().area(), 600.0, delta=1e-2)  # the largest that is left
        self.assertEqual({feature["owner"] for feature in self.lots.getFeatures()}, {"Rossi"})

    def test_what_was_changed_meanwhile(self):
        window = self.window([(LOT, "Rossi")])
        window.click(500050, 5000025)
        window.click(500050, 5000000)
        self.lots.startEditing()
        self.lots.changeGeometry(1, QgsGeometry.fromWkt(YARD))
        window.key(Qt.Key_Return)
        self.assertEqual([problem for _, problem in window.said], [True])
        self.assertIn("has been changed", window.said[0][0])
        self.assertEqual(self.lots.featureCount(), 1)

    def test_a_layer_that_cannot_be_edited(self):
        window = self.window([(LOT, "Rossi")])
        self.lots.setReadOnly(True)
        window.click(500050, 5000025)
        window.click(500050, 5000000)
        window.key(Qt.Key_Return)
        self.assertEqual(window.said, [("The layer lots cannot be edited.", True)])

    def test_without_an_answer_nothing_is_written(self):
        window = self.window([(LOT, "Rossi")])
        window.click(500050, 5000025)
        window.key(Qt.Key_Return)
        window.click(500050, 5000000)
        window.ask(AREA, "6000")
        window.key(Qt.Key_Return)
        self.assertFalse(self.lots.isEditable())
        self.assertEqual(window.said, [])


class ATown(unittest.TestCase):
    """Lots that share their sides are divided again and again. GEOS judges that no gap and no overlap has come of it."""

    def judge(self, lots, area, off):
        shapes = [feature.geometry() for feature in lots.getFeatures()]
        whole = QgsGeometry.unaryUnion(shapes)
        self.assertTrue(all(shape.isGeosValid() for shape in shapes))
        self.assertEqual((len(whole.asGeometryCollection()), len(whole.asPolygon())), (1, 1))  # one polygon without holes
        self.assertAlmostEqual(sum(shape.area() for shape in shapes), whole.area(), delta=1e-6)
        self.assertAlmostEqual(whole.area(), area, delta=off)

    def divided(self, decimals, tolerance, chance):
        from plcalc_qgis import engine
        from plcalc_qgis.answers import BEARING, PARALLEL, PERPENDICULAR, VERTEX
        from plcalc_qgis.maptool.commit import commit
        from plcalc_qgis.maptool.parcel import Corner, Parcel, Side
        from plcalc_qgis.maptool.work import Wishes, Work
        from plcalc_qgis.parcels import Plane

        with open(os.path.join(os.path.dirname(__file__), "lots.csv"), encoding="utf-8", newline="") as file:
            lots = layer_of(UTM, [(row["WKT"], row["owner"]) for row in csv.DictReader(file)], columns="&field=owner:string")
        area = sum(feature.geometry().area() for feature in lots.getFeatures())
        transforms = QgsProject.instance().transformContext()
        plane = Plane(lots.crs(), QgsCoordinateReferenceSystem(), transforms)
        # A rounded end lies up to 0.71 of a step beside the rim of the town, which is 430 long.
        off = 0.71 * 430 * 10.0 ** -decimals if decimals is not None else 1e-6
        done = 0
        for _ in range(60):
            parcel = Parcel(lots, chance.choice(list(lots.getFeatures())), plane, 0)
            number = chance.randint(1, len(parcel.rings[0]))
            work = Work(engine.engine(), parcel)
            place = chance.choice((Side, Side, Corner))(number)
            line = VERTEX if isinstance(place, Corner) else chance.choice((PARALLEL, PERPENDICULAR, BEARING))
            work.ask(place,
                     Wishes(line, chance.uniform(0.0, 400.0), "", SHARE, chance.choice(("1/2", "1/3", "30%")), chance.random() < 0.5, False, decimals,
                            tolerance))
            if work.division is None or min(piece.area for piece in work.division.pieces) < 5.0:
                continue
            commit(work.engine, parcel, work.division, None, transforms)
            done += 1
            self.judge(lots, area, off)
        self.assertGreater(done, 20)
        while lots.undoStack().canUndo():
            lots.undoStack().undo()
        self.assertEqual(lots.featureCount(), 5)

    def test_no_gaps_and_no_overlaps(self):
        for seed, decimals, tolerance in ((1, 3, 1e-4), (2, 2, 1e-3), (3, None, 1e-6), (4, 1, 1e-2)):
            with self.subTest(seed=seed, decimals=decimals):
                self.divided(decimals, tolerance, random.Random(seed))


class Degrees(Case):
    DEGREES = "POLYGON ((9 45.15, 9.00127 45.15, 9.00127 45.15045, 9 45.15045, 9 45.15))"

    def tearDown(self):
        QgsProject.instance().setCrs(QgsCoordinateReferenceSystem())

    def middle(self):
        way = QgsCoordinateTransform(QgsCoordinateReferenceSystem("EPSG:4326"), QgsCoordinateReferenceSystem(UTM), QgsProject.instance())
        return way.transform(QgsPointXY(9.0006, 45.1502)), way.transform(QgsPointXY(9.0006, 45.15))

    def test_the_plane_of_the_project(self):
        QgsProject.instance().setCrs(QgsCoordinateReferenceSystem(UTM))
        inside, side = self.middle()
        window = self.window([(self.DEGREES, "Rossi")], crs="EPSG:4326",
                             extent=(inside.x() - 80, inside.y() - 60, inside.x() + 80, inside.y() + 60))
        window.click(inside.x(), inside.y())
        self.assertIn("divided in the project's EPSG:32632", window.dock.note.text())
        window.click(side.x(), side.y())
        window.ask(SHARE, "1/4")
        window.key(Qt.Key_Return)
        self.assertEqual(self.lots.featureCount(), 2)
        kept, cut_off = sorted((feature.geometry() for feature in self.lots.getFeatures()), key=QgsGeometry.area, reverse=True)
        self.assertAlmostEqual(cut_off.area() / (kept.area() + cut_off.area()), 0.25, delta=1e-5)
        for corner in ((9.0, 45.15), (9.00127, 45.15)):  # to the last bit
            self.assertIn(corner, [(v.x(), v.y()) for v in cut_off.vertices()])

    def test_neighbours_in_degrees(self):
        QgsProject.instance().setCrs(QgsCoordinateReferenceSystem(UTM))
        inside, side = self.middle()
        beside = "POLYGON ((9.00127 45.15, 9.003 45.15, 9.003 45.15045, 9.00127 45.15045, 9.00127 45.15))"
        window = self.window([(self.DEGREES, "Rossi"), (beside, "Verdi")], crs="EPSG:4326",
                             extent=(inside.x() - 80, inside.y() - 60, inside.x() + 80, inside.y() + 60))
        window.click(inside.x(), inside.y())
        window.click(side.x(), side.y())
        window.key(Qt.Key_Return)
        self.assertIn("neighbours with new points: 1", window.said[0][0])
        shapes = {feature["owner"]: feature.geometry() for feature in self.lots.getFeatures()}
        corners = [{(vertex.x(), vertex.y()) for vertex in shape.vertices()} for shape in shapes.values()]
        self.assertEqual(len(corners[0] & corners[1]), 2)  # to the last bit: a corner of the lots, and the new point
        for corner in ((9.00127, 45.15), (9.003, 45.15045)):
            self.assertIn(corner, {(vertex.x(), vertex.y()) for vertex in shapes["Verdi"].vertices()})

    def test_a_layer_that_gets_another_system_meanwhile(self):
        window = self.window([(LOT, "Rossi")])
        window.click(500050, 5000025)
        window.click(500050, 5000000)
        self.lots.setCrs(QgsCoordinateReferenceSystem("EPSG:32633"))
        window.key(Qt.Key_Return)
        self.assertIn("has been changed", window.said[0][0])
        self.assertEqual(self.lots.featureCount(), 1)

    def test_two_tools_on_one_parcel(self):
        one = self.window([(LOT, "Rossi")])
        from plcalc_qgis.maptool.dock import Dock
        from plcalc_qgis.maptool.tool import DivideTool

        other = DivideTool(one.canvas, Dock())
        said = []
        other.said.connect(lambda text, problem: said.append((text, problem)))
        for tool in (other, one.tool):
            one.canvas.setMapTool(tool)
            one.click(500050, 5000025)
            one.click(500050, 5000000)
            tool_work = tool.work
            self.assertIsNotNone(tool_work.division)
            other_work = tool_work if tool is other else other_work
        one.key(Qt.Key_Return)
        other._work = other_work
        other.divide()
        other.remove()
        self.assertTrue(said[0][1])
        self.assertIn("has been changed", said[0][0])
        self.assertEqual(self.lots.featureCount(), 2)

    def test_a_map_in_another_system(self):
        mercator = QgsCoordinateReferenceSystem("EPSG:3857")
        there = QgsCoordinateTransform(QgsCoordinateReferenceSystem(UTM), mercator, QgsProject.instance())
        box = there.transformBoundingBox(QgsRectangle(499980, 4999980, 500130, 5000080))
        window = self.window([(LOT, "Rossi")])
        window.canvas.setDestinationCrs(mercator)
        window.canvas.setExtent(box)
        window.canvas.waitWhileRendering()
        for x, y in ((500050, 5000025), (500050, 5000000)):
            at = there.transform(x, y)
            window.click(at.x(), at.y())
        window.ask(AREA, "1000")
        line, = window.tool.work.division.lines
        self.assertEqual([line.start, line.end], [(500000.0, 5000010.0), (500100.0, 5000010.0)])
        start, end = there.transform(500050, 5000010), there.transform(500050, 5000020)
        window.drag((start.x(), start.y()), (end.x(), end.y()))
        self.assertAlmostEqual(float(window.dock.value.text()), 2000.0, delta=30.0)

    def test_no_plane(self):
        inside, _ = self.middle()
        window = self.window([(self.DEGREES, "Rossi")], crs="EPSG:4326",
                             extent=(inside.x() - 80, inside.y() - 60, inside.x() + 80, inside.y() + 60))
        window.click(inside.x(), inside.y())
        (text, problem), = window.said
        self.assertTrue(problem)
        self.assertIn("in which there are no areas", text)


if __name__ == "__main__":
    unittest.main()
