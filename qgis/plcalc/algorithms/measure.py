from qgis.core import QgsField, QgsProcessing, QgsProcessingParameterFeatureSink, QgsWkbTypes
from qgis.PyQt.QtCore import QVariant

from ..words import marked, tr
from .base import Refusal, Tabled, answers_in_order


class Measure(Tabled):
    """Measures each parcel of a layer, holes taken away, and says what is wrong with its boundary.

    A boundary that crosses or touches itself has a status that says so, and no area.
    """

    NAME = "measure"
    TITLE = marked("Measure parcels")
    TAGS = ("area", "perimeter", "check")
    FIELDS = [QgsField("parcel", QVariant.LongLong), QgsField("area", QVariant.Double), QgsField("perimeter", QVariant.Double),
              QgsField("vertices", QVariant.Int), QgsField("status", QVariant.String)]
    KIND = QgsWkbTypes.Polygon

    def results(self):
        yield QgsProcessingParameterFeatureSink("OUTPUT", tr("Measured"), QgsProcessing.TypeVectorPolygon)

    def asker(self, computes, parameters, context, source, plane):
        def ask(given):
            for feature, polygon, found in answers_in_order(given, lambda _, shape: (shape.rings,), computes.measure_all):
                if isinstance(found, Refusal):
                    yield feature, polygon, [[None, None, None, found.reason]]
                else:
                    yield feature, polygon, [[found.area, found.perimeter, polygon.constGet().nCoordinates()
                                              - 1 - polygon.constGet().numInteriorRings(), found.status]]

        return ask
