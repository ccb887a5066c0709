from qgis.core import QgsField, QgsGeometry, QgsProcessing, QgsProcessingException, QgsProcessingParameterFeatureSink, \
    QgsProcessingParameterFeatureSource, QgsProcessingParameterPoint, QgsWkbTypes
from qgis.PyQt.QtCore import QVariant

from .. import engine
from ..parcels import features_of
from ..words import marked, tr
from .base import Algorithm, as_high, joined

FIELDS = [QgsField("angle", QVariant.Double), QgsField("distance", QVariant.Double), QgsField("bearing", QVariant.Double)]


class StakeOut(Algorithm):
    """Lists what the instrument shows for each point: the angle from the orientation point, clockwise in gons, and the
    distance; with the bearing from North.

    The points are as a rule those of Divide parcels. Station and orientation point are given in the CRS of the layer, which
    must be plane.
    """

    NAME = "stakeout"
    TITLE = marked("Stake-out list")
    TAGS = ("set out", "station", "polar", "angle")

    def initAlgorithm(self, config=None):
        self.addParameter(QgsProcessingParameterFeatureSource("INPUT", tr("Points"), [QgsProcessing.TypeVectorPoint]))
        self.addParameter(QgsProcessingParameterPoint("STATION", tr("Station")))
        self.addParameter(QgsProcessingParameterPoint("ORIENTATION", tr("Orientation point")))
        self.addParameter(QgsProcessingParameterFeatureSink("OUTPUT", tr("Stake-out"), QgsProcessing.TypeVectorPoint))

    def processAlgorithm(self, parameters, context, feedback):
        computes = engine.engine()
        source = self.parameterAsSource(parameters, "INPUT", context)
        if source.sourceCrs().isGeographic():
            raise QgsProcessingException(tr("The points are in degrees: reproject them to a plane CRS first."))
        station, reference = (self.parameterAsPoint(parameters, name, context, source.sourceCrs())
                              for name in ("STATION", "ORIENTATION"))
        if station == reference:
            raise QgsProcessingException(tr("Station and orientation point are one and the same."))
        fields = joined(source.fields(), FIELDS)
        kind = as_high(QgsWkbTypes.Point, source)
        sink, where = self.sink(parameters, "OUTPUT", context, fields, kind, source.sourceCrs())
        for feature in features_of(source):
            if feedback.isCanceled():
                break
            given = feature.geometry()  # owns what its vertices lie in
            points = list(given.vertices())
            places = [(point.x(), point.y()) for point in points]
            for point, own in zip(points, computes.set_out((station.x(), station.y()), (reference.x(), reference.y()), places)):
                sink.add([*feature.attributes(), *own], QgsGeometry(point.clone()))
        return {"OUTPUT": where}
