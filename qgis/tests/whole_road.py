"""From a layer to split features and a stake-out list, in the window of QGIS. QGIS runs this with --code; what came of it goes
to the file that PLCALC_RESULT names, and a picture of the window to the folder PLCALC_PICTURES, where that is set."""

import os
import traceback

import processing
from qgis.core import QgsFillSymbol, QgsProject, QgsVectorLayer
from qgis.PyQt.QtCore import Qt, QTimer
from qgis.PyQt.QtTest import QTest
from qgis.utils import iface, plugins
from user import User


def picture(name):
    """Of the window, for people to look at."""
    if os.environ.get("PLCALC_PICTURES"):
        iface.mainWindow().grab().save(os.path.join(os.environ["PLCALC_PICTURES"], name + ".png"))


def road(lots_file):
    tool = plugins["plcalc_qgis"]
    lots = QgsVectorLayer(lots_file, "lots", "ogr")
    points = QgsVectorLayer("Point?crs=EPSG:32632&field=name:string", "new points", "memory")
    QgsProject.instance().addMapLayers([lots, points])
    lots.renderer().setSymbol(QgsFillSymbol.createSimple({"color": "250,250,245", "outline_color": "90,90,90"}))
    iface.setActiveLayer(lots)
    canvas = iface.mapCanvas()
    iface.mainWindow().showMaximized()
    tool.action.trigger()
    QTest.qWait(1000)
    canvas.setExtent(lots.extent().buffered(5))  # now that the dock has taken its room
    QTest.qWait(1000)
    user = User(canvas)
    before = {feature["owner"]: feature.geometry() for feature in lots.getFeatures()}

    # The parcel of Rossi, along its Southern side; dragged, then 1000 exactly.
    user.click(500060, 5000030)
    user.click(500058, 5000001.3)
    assert tool.dock.divide.isEnabled(), tool.dock.result.text()
    tool.dock.points.setLayer(points)
    (x0, y0), (x1, y1) = tool.tool.work.division.lines[0].segments[0]
    user.drag(((x0 + x1) / 2, (y0 + y1) / 2), ((x0 + x1) / 2, (y0 + y1) / 2 - 8))
    assert tool.dock.amount.currentIndex() == 0, "dragging asks for an area"
    tool.dock.value.setText("1000")
    QTest.qWait(1000)
    canvas.waitWhileRendering()
    picture("tool")
    user.key(Qt.Key_Return)
    assert lots.isEditable() and lots.featureCount() == len(before) + 1, "the feature is split"
    assert iface.messageBar().currentItem() is not None, "what has been done is said"

    # Undo, and again.
    lots.undoStack().undo()
    assert {feature["owner"]: feature.geometry().asWkt() for feature in lots.getFeatures()} == {
        owner: geometry.asWkt() for owner, geometry in before.items()}, "undo takes all of it back"
    lots.undoStack().redo()
    assert lots.commitChanges() and points.commitChanges(), "the layers take it"

    pieces = sorted(feature.geometry().area() for feature in lots.getFeatures() if feature["owner"] == "Rossi")
    assert abs(pieces[0] - 1000.0) < 1e-2 and abs(sum(pieces) - before["Rossi"].area()) < 1e-2, pieces
    corners = {(vertex.x(), vertex.y()) for feature in lots.getFeatures() if feature["owner"] != "Rossi"
               for vertex in feature.geometry().vertices()}
    places = {point["name"]: point.geometry().asPoint() for point in points.getFeatures()}
    shared = [name for name, place in places.items() if (place.x(), place.y()) in corners]
    assert shared == ["P1", "P2"], f"neighbours have the new points: {shared}"

    found = processing.run("plcalc:stakeout", {"INPUT": points, "STATION": "500000,4999990 [EPSG:32632]",
                                               "ORIENTATION": "500100,4999990 [EPSG:32632]", "OUTPUT": "memory:"})
    rows = [(feature["name"], feature["angle"], feature["distance"]) for feature in found["OUTPUT"].getFeatures()]
    assert [name for name, *_ in rows] == ["P1", "P2"] and all(distance > 0 for *_, distance in rows), rows


def layers(lots_file):
    """A layer divided as a whole: the results are layers with symbols and labels."""
    QgsProject.instance().clear()
    lots = QgsVectorLayer(lots_file, "lots", "ogr")
    QgsProject.instance().addMapLayer(lots)
    results = {name: "TEMPORARY_OUTPUT" for name in ("PIECES", "LINES", "POINTS", "REFUSED")}
    found = processing.runAndLoadResults("plcalc:divide", {
        "INPUT": lots, "LINE": 0, "CHOICE": 5, "BEARING": 200.0, "AMOUNT": 4, "VALUE": "900, 1/3", "DECIMALS": 3, **results})
    QTest.qWait(200)
    loaded = {layer.name(): layer for layer in QgsProject.instance().mapLayers().values()}
    assert set(loaded) == {"lots", "Pieces", "Lines", "Points", "Refused"}, loaded.keys()
    assert found["DIVIDED"] + found["NOT_DIVIDED"] == lots.featureCount() and found["DIVIDED"] > 3, found
    assert found["NOT_DIVIDED"] > 0, "one of them is too small"
    tree = [node.name() for node in QgsProject.instance().layerTreeRoot().findLayers()]
    assert tree == ["Refused", "Points", "Lines", "Pieces", "lots"], f"what is refused is seen above, and lines above fills: {tree}"
    assert all(layer.labelsEnabled() for name, layer in loaded.items() if name != "lots"), "labels"
    lots.renderer().setSymbol(QgsFillSymbol.createSimple({"color": "250,250,245", "outline_color": "90,90,90"}))
    lots.triggerRepaint()
    iface.mapCanvas().setExtent(lots.extent().buffered(5))
    iface.messageBar().clearWidgets()
    QTest.qWait(2000)
    picture("layers")


def begin():
    said = "passed"
    try:
        road(os.environ["PLCALC_LOTS"])
        layers(os.environ["PLCALC_LOTS"])
    except BaseException:
        said = traceback.format_exc()
    with open(os.environ["PLCALC_RESULT"], "w", encoding="utf-8") as file:
        file.write(said)
    QgsProject.instance().clear()  # or QGIS asks whether to keep it
    iface.actionExit().trigger()


QTimer.singleShot(1000, begin)
