from qgis.core import QgsField, QgsProcessing, QgsProcessingParameterBoolean, QgsProcessingParameterFeatureSink, \
    QgsProcessingParameterFeatureSource, QgsWkbTypes
from qgis.PyQt.QtCore import QVariant

from .. import engine
from ..parcels import Plane, Unusable
from ..requests import LineRequest, line_parameters
from .base import Algorithm, joined, made, parcels

FIELDS = [QgsField("parcel", QVariant.LongLong), QgsField("least", QVariant.Double), QgsField("most", QVariant.Double),
          QgsField("least_is_had", QVariant.Bool), QgsField("most_is_had", QVariant.Bool),
          QgsField("reason", QVariant.String)]


class Feasible(Algorithm):
    """Lists what a line can cut off each parcel: ranges of areas, a row for each.

    Every area between least and most can be had. Whether the two themselves can be had stands in columns of their own: where not, a
    line that holds just that would touch the boundary on its way.
    """

    NAME = "feasible"
    TITLE = "What a line can cut off"
    TAGS = ("area", "range")

    def initAlgorithm(self, config=None):
        self.addParameter(QgsProcessingParameterFeatureSource("INPUT", "Parcels", [QgsProcessing.TypeVectorPolygon]))
        for parameter in line_parameters():
            self.addParameter(parameter)
        self.addParameter(QgsProcessingParameterBoolean("ANY_SCALE", "Measure although the CRS stretches lengths here",
                                                        defaultValue=False))
        self.addParameter(QgsProcessingParameterFeatureSink("OUTPUT", "Ranges", QgsProcessing.TypeVector))

    def processAlgorithm(self, parameters, context, feedback):
        plcalc = engine.package()
        layer = plcalc.plparcel
        source = self.parameterAsSource(parameters, "INPUT", context)
        plane = Plane(source, context, feedback, self.parameterAsBoolean(parameters, "ANY_SCALE", context))
        line = LineRequest(plcalc, self, parameters, context, plane)
        fields = joined(source.fields(), FIELDS)
        sink, where = self.parameterAsSink(parameters, "OUTPUT", context, fields, QgsWkbTypes.NoGeometry, plane.crs)
        measured = layer.Measured.opposite if line.opposite else layer.Measured.from_reference
        pieces = layer.Pieces.any if line.any_pieces else layer.Pieces.two
        for feature, polygon, rings in parcels(source, plane, feedback):
            rows = []
            if polygon is None:
                reason = rings
            else:
                parcel = layer.Parcel(*rings[:1], rings[1:])
                try:
                    found = layer.feasible(parcel, line.line(parcel, feature), measured, pieces)
                    rows = [[each.least, each.most, each.least_is_had, each.most_is_had, None] for each in found.ranges]
                    reason = layer.describe(found.refusal) if found.refusal is not None else "nothing"
                except (Unusable, ValueError) as why:
                    reason = str(why)
            for row in rows or [[None, None, None, None, reason]]:
                sink.addFeature(made(fields, [*feature.attributes(), feature.id(), *row]))
        return {"OUTPUT": where}

