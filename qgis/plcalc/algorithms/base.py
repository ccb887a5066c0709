"""What all algorithms have in common."""

import inspect
import os

from qgis.core import QgsFeature, QgsFields, QgsProcessingAlgorithm, QgsProcessingUtils
from qgis.PyQt.QtGui import QIcon

from .. import engine
from ..parcels import Unusable, features_of, rings_of


class Algorithm(QgsProcessingAlgorithm):
    NAME = ""
    TITLE = ""
    TAGS = ()

    def name(self):
        return self.NAME

    def displayName(self):
        return self.TITLE

    def tags(self):
        return [*self.TAGS, "parcel", "plcalc"]

    def icon(self):
        return QIcon(os.path.join(os.path.dirname(os.path.dirname(__file__)), "icon.svg"))

    def shortHelpString(self):
        return inspect.cleandoc(type(self).__doc__)

    def createInstance(self):
        return type(self)()

    def canExecute(self):
        return (True, "") if engine.package() else (False, engine.MISSING)


def joined(source_fields, own):
    """The columns of the layer, then our own, which get another name where the layer has theirs."""
    fields = QgsFields()
    for field in own:
        fields.append(field)
    return QgsProcessingUtils.combineFields(source_fields, fields)


def made(fields, attributes, geometry=None):
    feature = QgsFeature(fields)
    feature.setAttributes(attributes)
    if geometry is not None:
        feature.setGeometry(geometry)
    return feature


def parcels(source, plane, feedback):
    """(feature, polygon, rings) of each polygon of each feature; (feature, None, why) where there is none."""
    step = 100.0 / max(source.featureCount(), 1)
    for number, feature in enumerate(features_of(source)):
        if feedback.isCanceled():
            return
        feedback.setProgress(number * step)
        polygons, why = _polygons_of(plane, feature)
        if why:
            yield feature, None, why
        for polygon in polygons:
            yield feature, polygon, rings_of(polygon)


def _polygons_of(plane, feature):
    try:
        return plane.parcels_of(feature), None
    except Unusable as why:
        return [], str(why)
