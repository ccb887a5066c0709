from qgis.core import (QgsField, QgsGeometry, QgsProcessing, QgsProcessingException, QgsProcessingParameterFeatureSink,
                       QgsProcessingParameterFeatureSource, QgsProcessingParameterPoint, QgsProject, QgsRectangle, QgsWkbTypes)
from qgis.PyQt.QtCore import QVariant

from .. import engine
from ..parcels import NoPlane, Plane, features_of
from ..words import marked, tr
from .base import Algorithm, Heights, any_scale_parameter, as_high, joined, tell_unit

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
        self.addParameter(any_scale_parameter())
        self.addParameter(QgsProcessingParameterFeatureSink("OUTPUT", tr("Stake-out"), QgsProcessing.TypeVectorPoint))

    def processAlgorithm(self, parameters, context, feedback):
        self.require_places()
        computes = engine.engine()
        source = self.parameterAsSource(parameters, "INPUT", context)
        crs = source.sourceCrs()
        if crs.isGeographic():
            raise QgsProcessingException(tr("The points are in degrees: reproject them to a plane CRS first."))
        station, reference = (self.parameterAsPoint(parameters, name, context, crs) for name in ("STATION", "ORIENTATION"))
        if station == reference:
            raise QgsProcessingException(tr("Station and orientation point are one and the same."))
        tell_unit(crs, feedback)
        try:
            plane = Plane(crs, QgsProject.instance().crs(), context.transformContext(),
                          self.parameterAsBoolean(parameters, "ANY_SCALE", context))
        except NoPlane as why:
            raise QgsProcessingException(str(why)) from None
        problem = plane.problem_at(QgsRectangle(station, reference))
        if problem is not None:
            raise QgsProcessingException(problem)
        fields = joined(source.fields(), FIELDS)
        kind = as_high(QgsWkbTypes.Point, source)
        sink, where = self.sink(parameters, "OUTPUT", context, fields, kind, crs)
        heights, without = Heights(source), 0
        for feature in features_of(source):
            if feedback.isCanceled():
                break
            heights.see(feature)
            given = feature.geometry()  # owns what its vertices lie in
            points = list(given.vertices())
            without += not points
            places = [(point.x(), point.y()) for point in points]
            for point, own in zip(points, computes.set_out((station.x(), station.y()), (reference.x(), reference.y()), places)):
                sink.add([*feature.attributes(), *own], QgsGeometry(point.clone()))
        heights.tell(feedback)
        if without:
            feedback.pushWarning(tr("Features without a point, which are not in the list: {count}.").format(count=without))
        return {"OUTPUT": where}
