"""The parcel that is being divided: where it comes from, what is under the cursor, and the way back into its layer."""

import collections
import math

from qgis.core import QgsFeatureRequest, QgsGeometry, QgsPoint, QgsPointXY, QgsRectangle, QgsWkbTypes

from ..parcels import Unusable, rings_of

# number: from 1, of the outer ring.
Side = collections.namedtuple("Side", "number")
Corner = collections.namedtuple("Corner", "number")

# A corner is chosen from nearer than a side, so that short sides can be hit.
_CORNER_REACH = 0.6


class Parcel:
    """A polygon of a feature.

    layer, feature: where it comes from
    plane: the Plane of the layer
    part: which of the feature's polygons it is, from 0
    """

    def __init__(self, layer, feature, plane, part):
        self.layer, self.feature, self.plane, self.part = layer, feature, plane, part
        self.polygon = plane.parcels_of(feature)[part]
        self.rings = rings_of(self.polygon)
        self._outer = QgsGeometry.fromPolylineXY([QgsPointXY(*vertex) for vertex in [*self.rings[0], self.rings[0][0]]])
        self._points = self._known_points()

    def parts(self):
        """The polygons of the feature in its layer's coordinates."""
        return [part for part in self.feature.geometry().asGeometryCollection() if not part.isEmpty()]

    def is_same(self, other):
        """Whether it is the same polygon, and has not been changed."""
        return (self.layer == other.layer and self.feature.id() == other.feature.id() and self.part == other.part
                and self.rings == other.rings)

    def name(self):
        name = self.layer.displayExpression()
        field = self.layer.fields().lookupField(self.layer.displayField()) if name else -1
        return str(self.feature[field]) if field >= 0 else str(self.feature.id())

    def corner(self, number):
        return self.rings[0][number - 1]

    def side(self, number):
        """Its two ends."""
        ring = self.rings[0]
        return ring[number - 1], ring[number % len(ring)]

    def under(self, at, reach):
        """The corner or the side of the outer ring that is no farther than reach from (x, y); None when there is none."""
        point = QgsPointXY(*at)
        _, corner, _, _, distance2 = self._outer.closestVertex(point)
        if distance2 <= (_CORNER_REACH * reach) ** 2:
            return Corner(corner % len(self.rings[0]) + 1)
        distance2, _, after, _ = self._outer.closestSegmentWithContext(point)
        return Side(after) if 0 <= distance2 <= reach ** 2 else None

    def _known_points(self):
        """The vertices as the layer has them, by their place in the plane."""
        part = self.parts()[self.part]  # owns what constGet() gives
        polygon = part.constGet()
        rings = [polygon.exteriorRing(), *(polygon.interiorRing(number) for number in range(polygon.numInteriorRings()))]
        return {here: point for ring, there in zip(self.rings, rings) for here, point in zip(ring, there.points())}

    def has(self, vertex):
        """Whether it is a vertex of the parcel already."""
        return vertex in self._points

    def in_layer(self, vertex):
        """A vertex of the plane as the layer has it: its own vertices to the last bit, heights along a side changing evenly."""
        known = self._points.get(vertex)
        if known is not None:
            return known
        at = self.plane.back(QgsPointXY(*vertex))
        point = QgsPoint(at.x(), at.y())
        part = self.parts()[self.part]
        if not part.constGet().is3D() and not part.constGet().isMeasure():
            return point
        _, foot, after, _ = part.closestSegmentWithContext(at)
        start, end = part.vertexAt(after - 1), part.vertexAt(after)
        whole = start.distance(end.x(), end.y())
        ratio = start.distance(foot.x(), foot.y()) / whole if whole > 0.0 else 0.0
        if part.constGet().is3D():
            point.addZValue(start.z() + (end.z() - start.z()) * ratio)
        if part.constGet().isMeasure():
            point.addMValue(start.m() + (end.m() - start.m()) * ratio)
        return point


def parcel_at(layer, plane, at):
    """The parcel round a point in the layer's coordinates, the smallest where several lie over each other; None when there is
    none. Raises Unusable where the feature there is no parcel."""
    here = QgsGeometry.fromPointXY(at)
    found, unusable = [], None
    for feature in layer.getFeatures(QgsFeatureRequest(QgsRectangle(at, at))):
        if not feature.hasGeometry():
            continue
        parts = [part for part in feature.geometry().asGeometryCollection() if not part.isEmpty()]
        for number, part in enumerate(parts):
            if part.contains(here):
                try:
                    found.append((part.area(), feature.id(), Parcel(layer, feature, plane, number)))
                except Unusable as why:
                    unusable = why
    if not found and unusable:
        raise unusable
    return min(found, key=lambda each: each[:2])[2] if found else None


def is_parcel_layer(layer):
    return layer is not None and getattr(layer, "geometryType", lambda: None)() == QgsWkbTypes.PolygonGeometry


def dragged_area(parcel, place, at_right_angles, at, divide):
    """The area that a line through the point to which it is dragged cuts off, along the side or from the corner on.

    It only says what to ask next: what the line then holds, plcalc answers. None where no such line cuts the parcel.
    divide: asks for the width of a strip, and returns the Division
    """
    if isinstance(place, Corner):
        return _area_from_corner(parcel, place.number, at)
    (x0, y0), (x1, y1) = parcel.side(place.number)
    length = math.hypot(x1 - x0, y1 - y0)
    if length == 0.0:
        return None
    along = ((at[0] - x0) * (x1 - x0) + (at[1] - y0) * (y1 - y0)) / length
    beside = abs((at[0] - x0) * (y1 - y0) - (at[1] - y0) * (x1 - x0)) / length
    width = length - along if at_right_angles else beside
    division = divide(width) if width > 0.0 else None
    return sum(piece.area for piece in division.pieces if piece.amount == 0) if division else None


def _area_from_corner(parcel, number, at):
    ring = parcel.rings[0]
    x, y = parcel.corner(number)
    box = parcel.polygon.boundingBox()
    far = box.width() + box.height()
    length = math.hypot(at[0] - x, at[1] - y)
    if length == 0.0:
        return None
    beyond = QgsPointXY(x + far * (at[0] - x) / length, y + far * (at[1] - y) / length)
    ray = QgsGeometry.fromPolylineXY([QgsPointXY(x, y), beyond])
    outer = QgsGeometry.fromPolygonXY([parcel.polygon.asPolygon()[0]])
    start = QgsGeometry.fromPointXY(QgsPointXY(x, y))
    inside = [part for part in ray.intersection(outer).asGeometryCollection()
              if part.type() == QgsWkbTypes.LineGeometry and part.distance(start) <= 1e-9 * far]
    if not inside:
        return None
    end = inside[0].asPolyline()[-1]
    _, _, after, _ = outer.closestSegmentWithContext(end)
    turned = ring[number - 1:] + ring[:number - 1]
    upto = (after - 1 - (number - 1)) % len(ring)
    piece = QgsGeometry.fromPolygonXY([[QgsPointXY(*vertex) for vertex in turned[:upto + 1]] + [end, QgsPointXY(x, y)]])
    return piece.area() if len(parcel.rings) == 1 else piece.intersection(parcel.polygon).area()


def rounded(area, line_length, pixel):
    """The area with no more digits than the cursor can tell apart.

    line_length: of the dividing line; pixel: how long one of the screen is in the plane
    """
    step = line_length * pixel
    if not step > 0.0:
        return area
    return round(area, -math.floor(math.log10(step)))
