"""The QGIS without a window in which all tests run, and layers for them."""

import atexit
import math
import os

from qgis.core import QgsApplication, QgsFeature, QgsGeometry, QgsVectorLayer

application = None


def start():
    """Starts it once for all tests."""
    global application
    if application is not None:
        return application
    application = QgsApplication([], True, os.environ["PLCALC_PROFILE"])
    application.initQgis()
    import processing
    from plcalc_qgis import classFactory
    from processing.core.Processing import Processing

    Processing.initialize()
    application.plcalc_plugin = classFactory(None)
    application.plcalc_plugin.initProcessing()
    application.processing = processing
    atexit.register(end)
    return application


def end():
    application.plcalc_plugin.unload()
    application.exitQgis()


def layer_of(crs, rows, kind="Polygon", columns=""):
    """A layer in memory: WKT and the values of the columns."""
    layer = QgsVectorLayer(f"{kind}?crs={crs}{columns}", "lots", "memory")
    features = []
    for wkt, *values in rows:
        feature = QgsFeature(layer.fields())
        if wkt is not None:
            feature.setGeometry(geometry_of(wkt))
        feature.setAttributes(values)
        features.append(feature)
    assert layer.dataProvider().addFeatures(features)[0]
    return layer


def geometry_of(wkt):
    """A geometry in which a height of -9999 is none."""
    geometry = QgsGeometry.fromWkt(wkt)
    for number, vertex in enumerate(list(geometry.vertices())):
        if vertex.z() == -9999.0:
            vertex.setZ(math.nan)
            geometry.moveVertex(vertex, number)
    return geometry


def values(layer, *names):
    return [tuple(feature[name] for name in names) for feature in layer.getFeatures()]


UTM = "EPSG:32632"
# 100 by 50, at UTM 32 North; and an L of 2400.
LOT = "POLYGON ((500000 5000000, 500100 5000000, 500100 5000050, 500000 5000050, 500000 5000000))"
YARD = ("POLYGON ((500200 5000000, 500260 5000000, 500260 5000020, 500240 5000020, 500240 5000050, 500200 5000050, "
        "500200 5000000))")
HOLED = ("POLYGON ((500300 5000000, 500400 5000000, 500400 5000050, 500300 5000050, 500300 5000000), "
         "(500345 5000020, 500345 5000030, 500355 5000030, 500355 5000020, 500345 5000020))")
CROSSED = "POLYGON ((500000 5000000, 500010 5000010, 500010 5000000, 500000 5000010, 500000 5000000))"
