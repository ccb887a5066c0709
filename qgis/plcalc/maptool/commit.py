"""Writes a division into the layer of its parcel, in one edit command.

What is left keeps the feature: its number, and its columns. Each piece that is cut off becomes a feature of its own, with the same
values in its columns, but for those that must be unique, which the layer fills itself. Where what is left lies in several pieces, the
largest keeps the feature. A feature with several polygons keeps the others.
"""

from qgis.core import (QgsFeatureRequest, QgsGeometry, QgsLineString, QgsPoint, QgsPointXY, QgsPolygon, QgsRectangle,
                       QgsVectorLayerUtils, QgsWkbTypes)

from ..words import tr

# Within these, the boundary of a neighbour is the same as that of the parcel.
_SAME_IN_PLANE = 1e-3
_SAME_IN_DEGREES = 1e-8


class CannotSplit(Exception):
    """Nothing has been written; the text says why."""


class Written:
    """What a commit has done: numbers of new features, of neighbours with new points, and of points."""

    def __init__(self, pieces, neighbours, points):
        self.pieces, self.neighbours, self.points = pieces, neighbours, points


def commit(parcel, division, points_layer, transforms):
    """Splits the parcel's feature in the edit session of its layer, which is begun where there is none.

    points_layer: gets the new points, or None
    Raises CannotSplit.
    """
    layer = parcel.layer
    now = layer.getFeature(parcel.feature.id())
    if not now.isValid() or now.geometry().asWkb() != parcel.feature.geometry().asWkb():
        raise CannotSplit(tr("The parcel has been changed since it was selected. Select it again."))
    for wanted in (layer, points_layer):
        if wanted is not None and not wanted.isEditable() and not wanted.startEditing():
            raise CannotSplit(tr("The layer {name} cannot be edited.").format(name=wanted.name()))
    new_points = _new_points(parcel, division)
    written = Written(0, 0, 0)
    _in_one_command(layer, lambda: _split(parcel, now, division, written))
    if points_layer is not None:
        try:
            _in_one_command(points_layer, lambda: _add_points(points_layer, parcel, new_points, transforms, written))
        except Exception:
            layer.undoStack().undo()
            raise
    return written


def _in_one_command(layer, edit):
    layer.beginEditCommand(tr("Divide parcel"))
    try:
        edit()
    except Exception:
        layer.destroyEditCommand()
        raise
    layer.endEditCommand()
    layer.triggerRepaint()


def _require(done, layer):
    if not done:
        raise CannotSplit(tr("The layer {name} does not take the change.").format(name=layer.name()))


def _new_points(parcel, division):
    """The ends of the lines that are no vertices of the parcel, each once."""
    ends = (end for line in division.lines for segment in line.segments for end in segment)
    return list(dict.fromkeys(end for end in ends if not parcel.has(end)))


def _split(parcel, feature, division, written):
    layer = parcel.layer
    rest = max(piece.amount for piece in division.pieces)
    keeps = max((piece for piece in division.pieces if piece.amount == rest), key=lambda piece: piece.area)
    others = [_polygon(parcel, piece) for piece in division.pieces if piece is not keeps]
    kept = parcel.parts()
    kept[parcel.part] = _polygon(parcel, keeps)
    neighbours = _neighbours(parcel, division)
    _require(layer.changeGeometry(feature.id(), _as_in(layer, kept)), layer)
    attributes = dict(enumerate(feature.attributes()))
    context = layer.createExpressionContext()
    for polygon in others:
        new = QgsVectorLayerUtils.createFeature(layer, _as_in(layer, [polygon]), attributes, context)
        _require(layer.addFeature(new), layer)
    for number, geometry in neighbours.items():
        _require(layer.changeGeometry(number, geometry), layer)
    written.pieces, written.neighbours = len(others), len(neighbours)


def _polygon(parcel, piece):
    polygon = QgsPolygon()
    for number, ring in enumerate(piece.rings):
        line = QgsLineString([parcel.in_layer(vertex) for vertex in [*ring, ring[0]]])
        if number == 0:
            polygon.setExteriorRing(line)
        else:
            polygon.addInteriorRing(line)
    return QgsGeometry(polygon)


def _as_in(layer, polygons):
    """Polygons as one geometry of the layer's type."""
    geometry = QgsGeometry.collectGeometry(polygons)
    if not QgsWkbTypes.isMultiType(layer.wkbType()) and len(polygons) == 1:
        geometry.convertToSingleType()
    return geometry


def _divided_sides(parcel, division):
    """The sides of the parcel that have got points: (start, end, points from start to end)."""
    edges = {edge for piece in division.pieces for ring in piece.rings for edge in _edges(ring)}
    after = {start: end for start, end in edges if (end, start) not in edges}
    for ring in parcel.rings:
        for start, end in _edges(ring):
            points, at = [], after.get(start)
            while at is not None and at != end and not parcel.has(at):
                points.append(at)
                at = after.get(at)
            if points and at == end:
                yield start, end, points


def _edges(ring):
    return zip(ring, ring[1:] + ring[:1])


def _neighbours(parcel, division):
    """The other features that share a divided side, with its points: geometries by the number of the feature."""
    layer = parcel.layer
    same = _SAME_IN_DEGREES if layer.crs().isGeographic() else _SAME_IN_PLANE
    changed = {}
    for start, end, points in _divided_sides(parcel, division):
        side = [parcel.in_layer(vertex) for vertex in (start, *points, end)]
        box = QgsRectangle(side[0].x(), side[0].y(), side[-1].x(), side[-1].y()).buffered(same)
        for feature in layer.getFeatures(QgsFeatureRequest(box).setNoAttributes()):
            if feature.id() == parcel.feature.id():
                continue
            geometry = changed.get(feature.id(), feature.geometry())
            if _insert_in_side(geometry, side) or _insert_by_place(geometry, side, same):
                changed[feature.id()] = geometry
    return changed


def _insert_in_side(geometry, side):
    """Whether the geometry has the very same side, and has got its points."""
    ends = [(side[0].x(), side[0].y()), (side[-1].x(), side[-1].y())]
    vertices = [(vertex.x(), vertex.y()) for vertex in geometry.vertices()]
    for number, pair in enumerate(zip(vertices, vertices[1:])):
        backwards = list(pair) == ends[::-1]
        if (backwards or list(pair) == ends) and _in_one_ring(geometry, number):
            points = side[1:-1]
            for point in points if backwards else points[::-1]:
                geometry.insertVertex(_like(geometry, point, number + 1), number + 1)
            return True
    return False


def _in_one_ring(geometry, number):
    """Whether a vertex and the next one are in the same ring."""
    _, one = geometry.vertexIdFromVertexNr(number)
    _, next_one = geometry.vertexIdFromVertexNr(number + 1)
    return one.part == next_one.part and one.ring == next_one.ring


def _insert_by_place(geometry, side, same):
    """Whether the boundary passes by points of the side, and has got them: a neighbour with a longer side, or a shorter one."""
    found = False
    straight = QgsGeometry(QgsLineString([side[0], side[-1]]))
    for point in side[1:-1]:
        # A rounded point may lie beside the side; the neighbour shares the place on the side itself.
        _, foot, _, _ = straight.closestSegmentWithContext(QgsPointXY(point))
        distance2, _, after, _ = geometry.closestSegmentWithContext(foot)
        if not 0.0 <= distance2 <= same * same:
            continue
        # A neighbour that has a corner there shares it already.
        if any(geometry.vertexAt(number).distance(foot.x(), foot.y()) <= same for number in (after - 1, after)):
            continue
        found |= geometry.insertVertex(_like(geometry, point, after), after)
    return found


def _like(geometry, point, after):
    """The point with heights and measures where the geometry has them; where the point has none, those of the vertex behind."""
    like = QgsPoint(point.x(), point.y())
    there = geometry.vertexAt(after)
    if geometry.constGet().is3D():
        like.addZValue(point.z() if point.is3D() else there.z())
    if geometry.constGet().isMeasure():
        like.addMValue(point.m() if point.isMeasure() else there.m())
    return like


def _add_points(layer, parcel, new_points, transforms, written):
    """P1, P2 and so on; the name goes to a column called name, if there is one."""
    name = layer.fields().lookupField("name")
    there = parcel.plane.to(layer.crs(), transforms)
    context = layer.createExpressionContext()
    for number, vertex in enumerate(new_points, 1):
        geometry = _as_in(layer, [QgsGeometry.fromPointXY(there(QgsPointXY(*vertex)))])
        attributes = {name: f"P{number}"} if name >= 0 else {}
        _require(layer.addFeature(QgsVectorLayerUtils.createFeature(layer, geometry, attributes, context)), layer)
    written.points = len(new_points)
