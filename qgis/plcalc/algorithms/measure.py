from qgis.core import QgsField, QgsProcessing, QgsProcessingParameterBoolean, QgsProcessingParameterFeatureSink, \
    QgsProcessingParameterFeatureSource, QgsWkbTypes
from qgis.PyQt.QtCore import QVariant

from .. import engine
from ..parcels import Plane
from .base import Algorithm, joined, made, parcels

FIELDS = [QgsField("parcel", QVariant.LongLong), QgsField("area", QVariant.Double), QgsField("perimeter", QVariant.Double),
          QgsField("vertices", QVariant.Int), QgsField("status", QVariant.String)]


class Measure(Algorithm):
    """Measures each parcel of a layer, holes taken away, and says what is wrong with its boundary.

    A boundary that crosses or touches itself has a status that says so, and no area.
    """

    NAME = "measure"
    TITLE = "Measure parcels"
    TAGS = ("area", "perimeter", "check")

    def initAlgorithm(self, config=None):
        self.addParameter(QgsProcessingParameterFeatureSource("INPUT", "Parcels", [QgsProcessing.TypeVectorPolygon]))
        self.addParameter(QgsProcessingParameterBoolean("ANY_SCALE", "Measure although the CRS stretches lengths here",
                                                        defaultValue=False))
        self.addParameter(QgsProcessingParameterFeatureSink("OUTPUT", "Measured", QgsProcessing.TypeVectorPolygon))

    def processAlgorithm(self, parameters, context, feedback):
        plcalc = engine.package()
        layer = plcalc.plparcel
        source = self.parameterAsSource(parameters, "INPUT", context)
        plane = Plane(source, context, feedback, self.parameterAsBoolean(parameters, "ANY_SCALE", context))
        fields = joined(source.fields(), FIELDS)
        sink, where = self.parameterAsSink(parameters, "OUTPUT", context, fields, QgsWkbTypes.Polygon, plane.crs)
        for feature, polygon, rings in parcels(source, plane, feedback):
            if polygon is None:
                own = [feature.id(), None, None, None, rings]
            else:
                report = plcalc.measure(layer.Parcel(*rings[:1], rings[1:]))
                usable = report.status == layer.BoundaryStatus.usable
                own = [feature.id(), report.area if usable else None, report.perimeter if usable else None,
                       sum(len(ring) - 1 for ring in rings), "usable" if usable else layer.describe(report.status)]
            sink.addFeature(made(fields, [*feature.attributes(), *own], polygon))
        return {"OUTPUT": where}
