"""What all algorithms have in common."""

import collections
import inspect
import math
import os

from qgis.core import (QgsFeature, QgsFeatureSink, QgsFields, QgsGeometry, QgsProcessing, QgsProcessingAlgorithm,
                       QgsProcessingException, QgsProcessingParameterBoolean, QgsProcessingParameterFeatureSource,
                       QgsProcessingUtils, QgsProject, QgsUnitTypes, QgsWkbTypes)
from qgis.PyQt.QtCore import QUrl
from qgis.PyQt.QtGui import QIcon

from .. import engine
from ..parcels import NoPlane, Plane, Unusable, features_of, shape_of
from ..places import what_is_mixed_up
from ..words import tr

_HERE = os.path.dirname(os.path.dirname(__file__))


# Why there is no answer for a parcel.
Refusal = collections.namedtuple("Refusal", "status reason")


class Sink:
    """Where a result goes.

    fields, kind: of its rows; error: what to say where it does not take a row
    """

    def __init__(self, sink, fields, kind, error):
        self.fields = fields
        self._sink, self._kind, self._error = sink, kind, error

    def add(self, attributes, geometry=None):
        feature = QgsFeature(self.fields)
        feature.setAttributes(attributes)
        if geometry is not None:
            feature.setGeometry(fitted(geometry, self._kind))
        if not self._sink.addFeature(feature, QgsFeatureSink.FastInsert):
            raise QgsProcessingException(f"{self._error} {self._sink.lastError()}")


def fitted(geometry, kind):
    """A geometry as a type has it: a height or a measure that is not there is NaN, for QGIS would write 0."""
    fits = QgsGeometry(geometry)
    shape = fits.get()
    if QgsWkbTypes.hasZ(kind) and not shape.is3D():
        shape.addZValue(math.nan)
    elif shape.is3D() and not QgsWkbTypes.hasZ(kind):
        shape.dropZValue()
    if QgsWkbTypes.hasM(kind) and not shape.isMeasure():
        shape.addMValue(math.nan)
    elif shape.isMeasure() and not QgsWkbTypes.hasM(kind):
        shape.dropMValue()
    return fits


class Heights:
    """Counts the features whose heights and measures do not fit what their layer says of itself."""

    def __init__(self, source):
        self._is_high = QgsWkbTypes.hasZ(source.wkbType())
        self._has_measures = QgsWkbTypes.hasM(source.wkbType())
        self._others = self._measured = 0

    def see(self, feature):
        if feature.hasGeometry() and QgsWkbTypes.hasZ(feature.geometry().wkbType()) != self._is_high:
            self._others += 1
        if feature.hasGeometry() and QgsWkbTypes.hasM(feature.geometry().wkbType()) and not self._has_measures:
            self._measured += 1

    def tell(self, feedback):
        if self._others:
            text = tr("Features without heights, in a layer with heights: {count}. Their pieces have none (NaN, not 0).") if self._is_high \
                else tr("Features with heights, in a layer that says it has none: {count}. Their heights are left out.")
            feedback.pushWarning(text.format(count=self._others))
        if self._measured:
            feedback.pushWarning(tr("Features with measures (M), in a layer that says it has none: {count}. Their measures are left "
                                    "out.").format(count=self._measured))


class Algorithm(QgsProcessingAlgorithm):
    NAME = ""
    TITLE = ""
    TAGS = ()
    PICTURES = ()  # of the folder help

    def name(self):
        return self.NAME

    def displayName(self):
        return tr(self.TITLE)

    def tags(self):
        return [*self.TAGS, "parcel", "plcalc"]

    def icon(self):
        return QIcon(os.path.join(_HERE, "icon.svg"))

    def shortHelpString(self):
        # QGIS makes a paragraph of each line.
        said = tr(inspect.cleandoc(type(self).__doc__)).replace("\n\n", "\0").replace("\n", " ").replace("\0", "\n")
        pictures = (os.path.join(_HERE, "help", name + ".svg") for name in self.PICTURES)
        return said + "".join(f'\n<img src="{QUrl.fromLocalFile(path).toString()}">' for path in pictures)

    def createInstance(self):
        return type(self)()

    def canExecute(self):
        computes = engine.engine()
        if computes is None:
            return False, engine.missing()
        lacks = computes.lacks.get(self.NAME)
        return lacks is None, lacks or ""

    def sink(self, parameters, name, context, fields, kind, crs):
        """(Sink, where it is) of a result, or (None, None) for one that is not wanted."""
        # Several rows have the key of their parcel.
        sink, where = self.parameterAsSink(parameters, name, context, fields, kind, crs, QgsFeatureSink.RegeneratePrimaryKey)
        layer = context.getMapLayer(where) if sink is not None else None
        if layer is not None and not crs.isValid():
            layer.setCrs(crs)  # QGIS takes layers in memory that have no CRS for longitudes and latitudes
        return (None, None) if sink is None else (Sink(sink, fields, kind, self.writeFeatureError(sink, parameters, name)), where)

    def checkParameterValues(self, parameters, context):
        # QGIS asks whether it can be executed in the toolbox, but not where Python runs it.
        can, why = self.canExecute()
        if not can:
            return False, why
        fits, why = super().checkParameterValues(parameters, context)
        mixed_up = what_is_mixed_up(self, parameters, context) if fits else None
        return (fits, why) if mixed_up is None else (False, mixed_up)

    def prepareAlgorithm(self, parameters, context, feedback):
        # Models do not check the values. This runs in the thread of the layers, and cannot raise an error that people see.
        self._mixed_up = what_is_mixed_up(self, parameters, context)
        return super().prepareAlgorithm(parameters, context, feedback)

    def require_places(self):
        """Nothing is written over what is read."""
        if self._mixed_up is not None:
            raise QgsProcessingException(self._mixed_up)


def any_scale_parameter():
    return QgsProcessingParameterBoolean("ANY_SCALE", tr("Go on although the CRS stretches lengths here"), defaultValue=False)


def tell_unit(crs, feedback):
    if crs.isValid() and crs.mapUnits() != QgsUnitTypes.DistanceMeters:
        feedback.pushInfo(tr("Lengths are in {unit}, and areas in squares of it.").format(unit=QgsUnitTypes.toString(crs.mapUnits())))


class OfParcels(Algorithm):
    """An algorithm that takes parcels."""

    def initAlgorithm(self, config=None):
        self.addParameter(QgsProcessingParameterFeatureSource("INPUT", tr("Parcels"), [QgsProcessing.TypeVectorPolygon]))
        for parameter in self.what_is_asked():
            self.addParameter(parameter)
        self.addParameter(any_scale_parameter())
        for parameter in self.results():
            self.addParameter(parameter)

    def what_is_asked(self):
        """Its parameters beside the parcels."""
        return ()

    def results(self):
        """The parameters of its results."""
        raise NotImplementedError

    def begin(self, parameters, context, feedback):
        """(engine, source, plane) of a run."""
        self.require_places()
        computes = engine.engine()
        if computes.note:
            feedback.pushInfo(computes.note)
        source = self.parameterAsSource(parameters, "INPUT", context)
        project = context.project() or QgsProject.instance()
        try:
            plane = Plane(source.sourceCrs(), project.crs(), context.transformContext(),
                          self.parameterAsBoolean(parameters, "ANY_SCALE", context))
        except NoPlane as why:
            raise QgsProcessingException(str(why)) from None
        tell_unit(plane.crs, feedback)
        if plane.note:
            feedback.pushInfo(plane.note)
            feedback.pushInfo(tr("The results are in that CRS too."))
        return computes, source, plane


class Tabled(OfParcels):
    """One with a single result, a row or more for each parcel."""

    FIELDS = ()
    KIND = None

    def processAlgorithm(self, parameters, context, feedback):
        computes, source, plane = self.begin(parameters, context, feedback)
        ask = self.asker(computes, parameters, context, source, plane)
        fields = joined(source.fields(), self.FIELDS)
        kind = self.KIND if self.KIND == QgsWkbTypes.NoGeometry else as_high(self.KIND, source)
        sink, where = self.sink(parameters, "OUTPUT", context, fields, kind, plane.crs)
        for feature, polygon, rows in ask(parcels(source, plane, feedback)):
            for row in rows:
                sink.add([*feature.attributes(), feature.id(), *row], polygon)
        return {"OUTPUT": where}

    def asker(self, computes, parameters, context, source, plane):
        """What makes of `parcels` (feature, geometry or None, rows), a row without the number of the feature."""
        raise NotImplementedError


def joined(source_fields, own):
    """The columns of the layer, then our own, which get another name where the layer has theirs."""
    fields = QgsFields()
    for field in own:
        fields.append(field)
    return QgsProcessingUtils.combineFields(source_fields, fields)


def as_high(kind, source, measures=True):
    """A type of geometry with heights, and measures, where the source has them."""
    return QgsWkbTypes.zmType(kind, QgsWkbTypes.hasZ(source.wkbType()), measures and QgsWkbTypes.hasM(source.wkbType()))


def parcels(source, plane, feedback):
    """(feature, polygon, shape) of each polygon of each feature. Where there is none, a Refusal in place of the shape, and the
    outline that can be shown, or None."""
    step = 100.0 / max(source.featureCount(), 1)
    heights = Heights(source)
    for number, feature in enumerate(features_of(source)):
        if feedback.isCanceled():
            feedback.pushWarning(tr("Cancelled: what is left of the layer has not been looked at, and the results are not complete."))
            return
        feedback.setProgress(number * step)
        heights.see(feature)
        try:
            polygons = plane.parcels_of(feature)
        except Unusable as why:
            yield feature, None, Refusal("no_parcel", str(why))
            continue
        for polygon, problem in polygons:
            yield feature, polygon, shape_of(polygon) if problem is None else Refusal("no_parcel", problem)
    heights.tell(feedback)
    if plane.stretched:
        feedback.pushWarning(tr("Parcels where the CRS stretches lengths, or that may be in degrees: {count}. Their figures are those of "
                                "the plane, not of the ground.").format(count=plane.stretched))


def answers_in_order(given, request, ask):
    """(feature, polygon, answer or Refusal) of each of `parcels`, in their order.

    request: what is asked of (feature, shape), as `ask` takes it behind a key; Unusable where that cannot be told
    ask: makes of (key, ...) (key, answer), in their order
    """
    waiting = collections.deque()

    def asked():
        for feature, polygon, shape in given:
            refused = shape if isinstance(shape, Refusal) else None
            if refused is None:
                try:
                    wanted = request(feature, shape)
                except Unusable as why:
                    refused = Refusal("no_request", str(why))
            waiting.append((feature, polygon, refused))
            if refused is None:
                yield (None, *wanted)

    for _, answer in ask(asked()):
        while waiting[0][2] is not None:
            yield waiting.popleft()
        feature, polygon, _ = waiting.popleft()
        yield feature, polygon, answer
    yield from waiting
