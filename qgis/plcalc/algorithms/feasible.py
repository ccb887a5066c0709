from qgis.core import QgsField, QgsProcessing, QgsProcessingParameterFeatureSink, QgsWkbTypes
from qgis.PyQt.QtCore import QVariant

from ..parcels import Unusable
from ..requests import LineRequest, line_parameters
from ..words import marked, tr
from .base import Refusal, Tabled


class Feasible(Tabled):
    """Lists what a line can cut off each parcel: ranges of areas, a row for each.

    Every area between least and most can be had. Whether the two themselves can be had stands in columns of their own: where not, a
    line that holds just that would touch the boundary on its way.
    """

    NAME = "feasible"
    TITLE = marked("What a line can cut off")
    TAGS = ("area", "range")
    PICTURES = ("two-pieces", "any-pieces")
    FIELDS = [QgsField("parcel", QVariant.LongLong), QgsField("least", QVariant.Double), QgsField("most", QVariant.Double),
              QgsField("least_is_had", QVariant.Bool), QgsField("most_is_had", QVariant.Bool),
              QgsField("reason", QVariant.String)]
    KIND = QgsWkbTypes.NoGeometry

    def what_is_asked(self):
        return line_parameters()

    def results(self):
        yield QgsProcessingParameterFeatureSink("OUTPUT", tr("Ranges"), QgsProcessing.TypeVector)

    def asker(self, computes, parameters, context, source, plane):
        line = LineRequest(self, parameters, context, source, plane)

        def ranges(feature, polygon, shape):
            if isinstance(shape, Refusal):
                return [], shape.reason
            try:
                return computes.feasible(shape.rings, line.line(feature), line.opposite, line.any_pieces)
            except Unusable as why:
                return [], str(why)

        def ask(given):
            for each in given:
                found, reason = ranges(*each)
                yield each[0], None, [[*row, None] for row in found] or [[None, None, None, None, reason]]

        return ask
