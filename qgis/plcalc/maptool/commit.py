"""Writes a division into the layer of its parcel, in one edit command.

What is left keeps the feature: its number, and its columns. Each piece that is cut off becomes a feature of its own, with the same
values in its columns, but for those that must be unique, which the layer fills itself. Where what is left lies in several pieces, the
largest keeps the feature. A feature with several polygons keeps the others.
"""

import math

from qgis.core import (QgsCsException, QgsFeatureRequest, QgsFieldConstraints, QgsGeometry, QgsMultiSurface, QgsPointXY,
                       QgsPolygon, QgsVectorLayerUtils, QgsWkbTypes)
from qgis.PyQt.QtCore import QVariant

from ..parcels import Unusable, add_ring, point_of, polygons_of
from ..words import tr
from .parcel import Parcel

# Boundaries no farther apart are one: units of the plane.
_WITHIN = 1e-3

# A point no farther beside the grid of its layer lies on it: steps of the grid. Doubles have no 0.001.
_OFF_GRID = 1e-3


class CannotSplit(Exception):
    """Nothing has been written; the text says why."""


class Written:
    """What a commit has done.

    pieces, neighbours, points: numbers of new features, of neighbours with new points, and of points
    is_filtered: whether the layer hides features, which then have got no points
    unknown: how many new corners have no height or no measure in a layer that has some
    beside, left_out: see answers.Shared; unread: how many features beside the parcel cannot be read
    to_fill: columns of the point layer that must be filled before it is saved
    flat: whether the new points have lost their heights, because the point layer has none
    """

    def __init__(self):
        self.pieces = self.neighbours = self.points = self.unknown = self.beside = self.left_out = self.unread = 0
        self.flat, self.is_filtered, self.to_fill = False, False, set()

    def is_doubtful(self):
        """Whether there is something to look after."""
        return bool(self.unknown or self.beside or self.left_out or self.unread or self.flat or self.is_filtered or self.to_fill)


def commit(computes, parcel, division, points_layer, transforms):
    """Splits the parcel's feature in the edit session of its layer, which is begun where there is none.

    points_layer: gets the new points, or None
    Raises CannotSplit.
    """
    layer = parcel.layer
    now = layer.getFeature(parcel.feature.id())
    if layer.crs() != parcel.plane.of_layer or not now.isValid() or now.geometry().asWkb() != parcel.feature.geometry().asWkb():
        raise CannotSplit(tr("The parcel has been changed since it was selected. Select it again."))
    written = Written()
    beside = _beside(parcel, written)
    try:
        shared = computes.shared(division, [neighbour.shape for neighbour in beside], _WITHIN)
    except ValueError as why:
        raise CannotSplit(str(why)) from None
    written.beside, written.left_out, written.is_filtered = shared.beside, shared.left_out, bool(layer.subsetString())
    new = list(_new_points(parcel, division))
    _require_grid(layer, [parcel.plane.back(QgsPointXY(*vertex)) for vertex, _ in new])
    placed = []
    if points_layer is not None:
        placed = _placed(points_layer, parcel, new, transforms)
        _require_grid(points_layer, [at for at, _ in placed])
    begun = []
    try:
        for wanted in (layer, points_layer):
            _begin(wanted, begun)
        _in_one_command(layer, lambda: _split(computes, parcel, now, division, beside, shared, written))
        if points_layer is not None:
            try:
                _in_one_command(points_layer, lambda: _add_points(points_layer, placed, written))
            except Exception:
                layer.undoStack().undo()
                raise
    except Exception:
        for each in begun:  # nothing has been written in them
            each.rollBack()
        raise
    return written


def _begin(layer, begun):
    """Begins the edit session of a layer, or of none, where there is none yet."""
    if layer is None or layer.isEditable():
        return
    if not layer.startEditing():
        raise CannotSplit(tr("The layer {name} cannot be edited.").format(name=layer.name()))
    begun.append(layer)


def _in_one_command(layer, edit):
    # A layer that rounds would round the corners that are there already too, apart from those of other neighbours.
    options = layer.geometryOptions()
    grid = options.geometryPrecision()
    options.setGeometryPrecision(0.0)
    layer.beginEditCommand(tr("Divide parcel"))
    try:
        edit()
    except Exception:
        layer.destroyEditCommand()
        raise
    finally:
        options.setGeometryPrecision(grid)
    layer.endEditCommand()
    layer.triggerRepaint()


def _require_grid(layer, places):
    """New points lie where the layer wants all of its points to lie, or nothing is written."""
    grid = layer.geometryOptions().geometryPrecision()
    for at in places:
        if grid > 0.0 and any(abs(value - round(value / grid) * grid) > _OFF_GRID * grid for value in (at.x(), at.y())):
            raise CannotSplit(tr("The layer {name} rounds its points to {grid} (its properties, Digitizing), and the new points are not so "
                                 "round. Ask for other decimals, or change that.").format(name=layer.name(), grid=grid))


def _require(done, layer):
    if not done:
        raise CannotSplit(tr("The layer {name} does not take the change.").format(name=layer.name()))


def _beside(parcel, written):
    """The polygons that may share a side with the parcel, those of its own feature too."""
    layer, found = parcel.layer, []
    box = parcel.parts()[parcel.part].boundingBox()
    reach = parcel.plane.in_layer(_WITHIN, box.center())
    for feature in layer.getFeatures(QgsFeatureRequest(box.buffered(reach)).setNoAttributes()):
        for part in range(max(1, len(polygons_of(feature.geometry())))):
            if feature.id() == parcel.feature.id() and part == parcel.part:
                continue
            try:
                found.append(Parcel(layer, feature, parcel.plane, part))
            except Unusable:
                written.unread += 1
    return found


def _new_points(parcel, division):
    """The ends of the lines that are no vertices of the parcel, each once, with their heights or None."""
    found = {}
    for line in division.lines:
        for segment, heights in zip(line.segments, line.heights or [(None, None)] * len(line.segments)):
            found.update((end, height) for end, height in zip(segment, heights) if not parcel.has(end))
    return found.items()


def _split(computes, parcel, feature, division, beside, shared, written):
    layer = parcel.layer
    rest = max(piece.amount for piece in division.pieces)
    keeps = max((number for number, piece in enumerate(division.pieces) if piece.amount == rest),
                key=lambda number: division.pieces[number].area)
    polygons = [_polygon(parcel, shape, computes, division.decimals, written) for shape in shared.pieces]
    changed = {feature.id(): parcel.parts()}
    changed[feature.id()][parcel.part] = polygons.pop(keeps)
    for neighbour, shape in zip(beside, shared.neighbours):
        if shape is not None:
            parts = changed.setdefault(neighbour.feature.id(), neighbour.parts())
            parts[neighbour.part] = _polygon(neighbour, shape, computes, division.decimals, written)
    for number, parts in changed.items():
        _require(layer.changeGeometry(number, _as_in(layer, parts)), layer)
    attributes = dict(enumerate(feature.attributes()))
    context = layer.createExpressionContext()
    for polygon in polygons:
        new = QgsVectorLayerUtils.createFeature(layer, _as_in(layer, [polygon]), attributes, context)
        _require(layer.addFeature(new), layer)
    written.pieces, written.neighbours = len(polygons), len(changed) - 1


def _polygon(parcel, shape, computes, decimals, written):
    """A shape as the layer has it: the parcel's own vertices to the last bit, heights and measures along a side changing evenly."""
    measure = computes.along(parcel.rings, parcel.measures, decimals, _WITHIN) if parcel.measures else None
    polygon = QgsPolygon()
    for ring, heights in zip(shape.rings, shape.heights or [[None] * len(ring) for ring in shape.rings]):
        points = [_point(parcel, vertex, height, measure, written) for vertex, height in zip(ring, heights)]
        add_ring(polygon, [*points, points[0]])
    return QgsGeometry(polygon)


def _point(parcel, vertex, height, measure, written):
    own = parcel.own(vertex)
    if own is not None:
        return own
    at = parcel.plane.back(QgsPointXY(*vertex))
    point = point_of((at.x(), at.y()), height)
    if parcel.shape.heights is None:
        point.dropZValue()
    if parcel.measures is not None:
        there = measure(vertex) if measure is not None else None
        point.addMValue(math.nan if there is None else there)
    written.unknown += (point.is3D() and math.isnan(point.z())) or (point.isMeasure() and math.isnan(point.m()))
    return point


def _as_in(layer, polygons):
    """Polygons, or points, as one geometry of the layer's type; a polygon beside it may have arcs, which stay."""
    if QgsWkbTypes.isCurvedType(layer.wkbType()):
        surface = QgsMultiSurface()
        for polygon in polygons:
            surface.addGeometry(polygon.constGet().toCurveType())
        geometry = QgsGeometry(surface)
    else:
        geometry = QgsGeometry.collectGeometry(polygons)
    if QgsWkbTypes.hasZ(layer.wkbType()) and not geometry.constGet().is3D():
        geometry.get().addZValue(math.nan)  # QGIS would write 0
    if not QgsWkbTypes.isMultiType(layer.wkbType()) and len(polygons) == 1:
        geometry.convertToSingleType()
    return geometry


def _placed(layer, parcel, new_points, transforms):
    """New points in the CRS of a layer, with their heights."""
    there = parcel.plane.to(layer.crs(), transforms)
    try:
        return [(there(QgsPointXY(*vertex)), height) for vertex, height in new_points]
    except QgsCsException:
        raise CannotSplit(tr("The new points lie beyond the CRS of the layer {name}.").format(name=layer.name())) from None


def _add_points(layer, placed, written):
    """P1, P2 and so on; the name goes to a column called name, if there is one."""
    name = layer.fields().lookupField("name")
    if name >= 0 and layer.fields().at(name).type() != QVariant.String:
        name = -1
    context = layer.createExpressionContext()
    is_high = QgsWkbTypes.hasZ(layer.wkbType())
    for number, (at, height) in enumerate(placed, 1):
        point = point_of((at.x(), at.y()), height)
        written.flat |= height is not None and not is_high
        written.unknown += is_high and height is None
        if not is_high:
            point.dropZValue()
        if QgsWkbTypes.hasM(layer.wkbType()):
            point.addMValue(math.nan)
        attributes = {name: f"P{number}"} if name >= 0 else {}
        new = QgsVectorLayerUtils.createFeature(layer, _as_in(layer, [QgsGeometry(point)]), attributes, context)
        _require(layer.addFeature(new), layer)
        written.to_fill.update(_to_fill(layer, new))
    written.points = len(placed)


def _to_fill(layer, feature):
    """The columns that the layer wants to be filled, and that are not."""
    fields, not_null = layer.fields(), QgsFieldConstraints.ConstraintNotNull
    wanted = [number for number in range(fields.count())
              if layer.fieldConstraints(number) & not_null and not layer.dataProvider().defaultValueClause(number)]
    return [fields.at(number).name() for number in wanted if feature.attribute(number) in (None, QVariant())]
