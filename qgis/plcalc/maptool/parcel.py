"""The parcel that is being divided: where it comes from, what is under the cursor, and the way back into its layer."""

import collections
import math

from qgis.core import QgsFeatureRequest, QgsGeometry, QgsPointXY, QgsRectangle, QgsWkbTypes

from ..answers import number_of, numbered
from ..parcels import Unusable, known, polygons_of, shape_of

# number: from 1, the outer ring first; those of holes are numbered on.
Side = collections.namedtuple("Side", "number")
Corner = collections.namedtuple("Corner", "number")

# A corner is chosen from nearer than a side, so that short sides can be hit.
_CORNER_REACH = 0.6


class Parcel:
    """A polygon of a feature. Raises Unusable where that is no parcel.

    layer, feature: where it comes from
    plane: the Plane of the layer
    part: which of the feature's polygons it is, from 0
    shape, rings: its boundary in the plane
    measures: those of the vertices, None where one has none, or None where the layer has no measures
    """

    def __init__(self, layer, feature, plane, part):
        self.layer, self.feature, self.plane, self.part = layer, feature, plane, part
        self.polygon, problem = plane.parcels_of(feature)[part]
        if problem is not None:
            raise Unusable(problem)
        self.shape = shape_of(self.polygon)
        self.rings = self.shape.rings
        self._points = self._own_points()
        self.measures = None
        if QgsWkbTypes.hasM(self.polygon.wkbType()):
            self.measures = [[known(self._points[vertex].m()) for vertex in ring] for ring in self.rings]

    def parts(self):
        """The polygons of the feature in its layer's coordinates."""
        return polygons_of(self.feature.geometry())

    def is_same(self, other):
        """Whether it is the same polygon, and has not been changed."""
        return (self.layer == other.layer and self.feature.id() == other.feature.id() and self.part == other.part
                and self.shape == other.shape)

    def name(self):
        name = self.layer.displayExpression()
        field = self.layer.fields().lookupField(self.layer.displayField()) if name else -1
        return str(self.feature[field]) if field >= 0 else str(self.feature.id())

    def corner(self, number):
        index, ring = numbered(self.rings, number)
        return self.rings[ring][index]

    def side(self, number):
        """Its two ends."""
        index, ring = numbered(self.rings, number)
        vertices = self.rings[ring]
        return vertices[index], vertices[(index + 1) % len(vertices)]

    def under(self, at, reach):
        """The corner or the side that is no farther than reach from (x, y); None when there is none."""
        point = QgsPointXY(*at)
        lines = [QgsGeometry.fromPolylineXY([QgsPointXY(*vertex) for vertex in [*ring, ring[0]]]) for ring in self.rings]
        corners = [(line.closestVertex(point), ring) for ring, line in enumerate(lines)]
        (_, corner, _, _, distance2), ring = min(corners, key=lambda each: each[0][4])
        if distance2 <= (_CORNER_REACH * reach) ** 2:
            return Corner(number_of(self.rings, corner % len(self.rings[ring]), ring))
        sides = [(line.closestSegmentWithContext(point), ring) for ring, line in enumerate(lines)]
        (distance2, _, after, _), ring = min(sides, key=lambda each: each[0][0])
        return Side(number_of(self.rings, after - 1, ring)) if 0 <= distance2 <= reach ** 2 else None

    def contains(self, at, reach):
        """Whether (x, y) lies in it, or no farther from it than reach."""
        return self.polygon.distance(QgsGeometry.fromPointXY(QgsPointXY(*at))) <= reach

    def _own_points(self):
        """The vertices as the layer has them, by their place in the plane; the first of those at one place."""
        part = self.parts()[self.part]  # owns what constGet() gives
        polygon = part.constGet()
        rings = [polygon.exteriorRing(), *(polygon.interiorRing(number) for number in range(polygon.numInteriorRings()))]
        found = {}
        for ring, there in zip(self.rings, rings):
            for here, point in zip(ring, there.points()):
                found.setdefault(here, point)
        return found

    def has(self, vertex):
        """Whether it is a vertex of the parcel already."""
        return vertex in self._points

    def own(self, vertex):
        """A vertex of the parcel as the layer has it, or None for a new one."""
        return self._points.get(vertex)


def parcel_at(layer, plane, at):
    """The parcel round a point in the layer's coordinates, the smallest where several lie over each other; None when there is
    none. Raises Unusable where the feature there is no parcel."""
    here = QgsGeometry.fromPointXY(at)
    found, unusable = [], None
    for feature in layer.getFeatures(QgsFeatureRequest(QgsRectangle(at, at))):
        if not feature.hasGeometry():
            continue
        for number, part in enumerate(polygons_of(feature.geometry())):
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


def dragged_area(parcel, bearing, at, divide):
    """The area on the right of a line of a direction through the point to which it is dragged.

    It only says what to ask next: what the line then holds, plcalc answers. None where no such line cuts the parcel.
    bearing: of the line, gons; divide: asks for a strip so wide along a line at that bearing, and returns the Division
    """
    turn = bearing * math.pi / 200.0
    right = [x * math.cos(turn) - y * math.sin(turn) for x, y in (at, *parcel.rings[0])]
    width = max(right) - right[0]
    division = divide(width) if width > 0.0 else None
    return sum(piece.area for piece in division.pieces if piece.amount == 0) if division else None


def bearing_of_line(parcel, number, at_right_angles):
    """The bearing, in gons, of a line along a side, or at right angles to it, that has on its right what is cut off."""
    (x0, y0), (x1, y1) = parcel.side(number)
    bearing = math.atan2(x1 - x0, y1 - y0) * 200.0 / math.pi
    if at_right_angles:
        return bearing - 100.0
    _, ring = numbered(parcel.rings, number)
    vertices = parcel.rings[ring]
    turned = sum((x2 - x1) * (y3 - y1) - (x3 - x1) * (y2 - y1)
                 for (x1, y1), (x2, y2), (x3, y3) in zip(vertices[:1] * len(vertices), vertices, vertices[1:]))
    return bearing if (turned > 0.0) == (ring == 0) else bearing + 200.0


def area_from_corner(parcel, number, at):
    """The area between a line from a corner of the outer ring through a point and the side that begins at the corner."""
    if number > len(parcel.rings[0]):
        return None
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
    return round_to(area, line_length * pixel)


def round_to(value, step):
    """The value with the decimals of a step."""
    return round(value, -math.floor(math.log10(step))) if step > 0.0 else value
