"""Features as parcels: plane coordinates, one ring and its holes, and why a feature is none."""

import math
import re

from qgis.core import (QgsCoordinateTransform, QgsCsException, QgsDistanceArea, QgsFeatureRequest, QgsGeometry,
                       QgsLineString, QgsMultiLineString, QgsPoint, QgsPointXY, QgsPolygon, QgsProcessingFeatureSource, QgsWkbTypes)

from .answers import Shape
from .words import tr

# A plane that stretches lengths by more than this is no plane to divide land in.
MOST_STRETCHED = 1e-3


def features_of(source, request=None):
    """All features, whatever their geometry: plcalc says itself what is wrong with a boundary. QGIS's own check would end
    the run at the first such feature, by an exception that Python does not survive."""
    return source.getFeatures(request or QgsFeatureRequest(), QgsProcessingFeatureSource.FlagSkipGeometryValidityChecks)


class Unusable(Exception):
    """A feature that is no parcel, or a request that is none; the text says why."""


class NoPlane(Exception):
    """There is no plane in which to divide; the text says what to do."""


class Plane:
    """The plane system in which a layer is divided, and the way there.

    crs, of_layer: of the plane, and of the layer
    note: what was assumed, or None; stretched: at how many parcels it stretches lengths, which is meant
    Raises NoPlane for degrees without a plane, for geocentric coordinates, and for those that increase to the West.
    """

    def __init__(self, crs, of_project, transforms, any_scale=False):
        self.crs, self.of_layer, self.note, self.stretched = crs, crs, None, 0
        self._there, self._any_scale = None, any_scale
        if crs.isGeographic():
            if not of_project.isValid() or of_project.isGeographic():
                raise NoPlane(tr("The layer's coordinates are degrees ({crs}), in which there are no areas. Give the project a plane "
                                 "CRS, such as the UTM zone of the place, or reproject the layer.").format(crs=crs.authid()))
            self._there = QgsCoordinateTransform(crs, of_project, transforms)
            self.note = tr("The layer has degrees: it is divided in the project's {crs}.").format(
                crs=of_project.authid())
            self.crs = of_project
        proj = self.crs.toProj()
        if "+proj=geocent" in proj:
            raise NoPlane(tr("The coordinates of {crs} are geocentric, not plane: reproject the layer to the UTM zone of the "
                             "place.").format(crs=self.crs.authid()))
        if re.search(r"\+axis=\w*w", proj):
            raise NoPlane(tr("The coordinates of {crs} increase to the West, not to the East, and bearings would be wrong: reproject the "
                             "layer.").format(crs=self.crs.authid()))
        self._scale = Scale(self.crs, transforms)

    def back(self, point):
        """A point of the plane in the layer's own coordinates."""
        return point if self._there is None else self._there.transform(point, QgsCoordinateTransform.ReverseTransform)

    def in_layer(self, length, at):
        """How long a length of the plane is at least, in the units of the layer, round a point of the layer."""
        if self._there is None:
            return length
        here = self._there.transform(at)
        ends = [self.back(QgsPointXY(here.x() + dx * length, here.y() + dy * length)) for dx, dy in ((1, 0), (0, 1))]
        return max(max(abs(end.x() - at.x()), abs(end.y() - at.y())) for end in ends)

    def to(self, crs, transforms):
        """What takes points of the plane to another system; as they are where one of the two is not known."""
        if not crs.isValid() or not self.crs.isValid() or crs == self.crs:
            return lambda point: point
        return QgsCoordinateTransform(self.crs, crs, transforms).transform

    def parcels_of(self, feature):
        """Each polygon of a feature: (QgsGeometry in the plane, why it is no parcel or None). Arcs are shown with chords.

        Raises Unusable for a feature without polygons.
        """
        geometry = QgsGeometry(feature.geometry())
        if geometry.isNull() or geometry.isEmpty():
            raise Unusable(tr("there is no geometry"))
        if geometry.type() != QgsWkbTypes.PolygonGeometry:
            raise Unusable(tr("it is no polygon"))
        return [(with_chords(part), self._problem_of(part)) for part in map(self._moved, polygons_of(geometry))]

    def _moved(self, geometry):
        if self._there is not None:
            try:
                geometry.transform(self._there)
            except QgsCsException:
                raise Unusable(tr("its coordinates lie beyond {crs}").format(crs=self.crs.authid())) from None
        return geometry

    def _problem_of(self, polygon):
        if polygon.constGet().hasCurvedSegments():
            return tr("its boundary has arcs: give them corners first, with the algorithm Segmentize")
        return self.problem_at(polygon.boundingBox())

    def problem_at(self, box):
        """Why what has this box cannot be measured in the plane, or None."""
        if not self.crs.isValid():
            problem = None
            if look_like_degrees(box):
                problem = tr("its coordinates look like degrees, and the layer has no CRS that says that they are plane: give it its CRS, "
                             "or tick that this is meant")
        else:
            problem = self._scale.problem_at(box.center())
        if problem is not None and self._any_scale:
            self.stretched += 1
            return None
        return problem


class Scale:
    """How long lengths of the ground are in a plane."""

    def __init__(self, crs, transforms):
        self._crs, self._measure = crs, QgsDistanceArea()
        self._measure.setSourceCrs(crs, transforms)
        self._known = crs.isValid() and self._measure.setEllipsoid(crs.ellipsoidAcronym())
        self._unit = self._measure.convertLengthMeasurement(1.0, crs.mapUnits()) if self._known else math.nan

    def problem_at(self, at):
        """What is wrong there, or None."""
        factor = self.at(at)
        if factor is None or abs(factor - 1.0) <= MOST_STRETCHED:
            return None
        return tr("{crs} shows lengths {length:.5f} times as long as they are at this place: use the UTM zone of the place or a local "
                  "grid, or tick that this is meant").format(crs=self._crs.authid() or self._crs.description(), length=factor)

    def at(self, at):
        """How long a length of the ground is in the plane, in the direction in which that is farthest from 1; None where that is not
        known."""
        if not self._known:
            return None
        try:
            east, north, aslant = (self._of_step(at, dx, dy) for dx, dy in ((1.0, 0.0), (0.0, 1.0), (1.0, 1.0)))
        except QgsCsException:
            return None
        # Squares of lengths on the ground, of steps in all directions: between the two eigenvalues of [east, mixed; mixed, north].
        mixed = (aslant - east - north) / 2.0
        middle, off = (east + north) / 2.0, math.hypot((east - north) / 2.0, mixed)
        if not middle - off > 0.0 or not math.isfinite(middle + off):
            return None
        return max(((middle + sign * off) ** -0.5 for sign in (-1.0, 1.0)), key=lambda factor: abs(factor - 1.0))

    def _of_step(self, at, dx, dy):
        step = 100.0
        length = self._measure.measureLine(at, QgsPointXY(at.x() + step * dx, at.y() + step * dy)) * self._unit / step
        return length * length


def polygons_of(geometry):
    """The polygons of a geometry, but for empty ones. Curves without arcs become straight sides, which they are."""
    parts = (part for part in geometry.asGeometryCollection() if not part.isEmpty())
    return [part if part.constGet().hasCurvedSegments() else with_chords(part) for part in parts]


def with_chords(geometry):
    """Without curves: arcs become chords, a degree each."""
    if not QgsWkbTypes.isCurvedType(geometry.wkbType()):
        return QgsGeometry(geometry)
    return QgsGeometry(geometry.constGet().segmentize())


def look_like_degrees(box):
    """Whether a parcel that comes without a CRS has longitudes and latitudes all the same, by its box: less than a tenth of a unit
    large, and ten times as far from the origin as it is large. The program has the same rule."""
    across = max(box.width(), box.height())
    far = max(abs(box.xMinimum()), abs(box.xMaximum())), max(abs(box.yMinimum()), abs(box.yMaximum()))
    return far[0] <= 360.0 and far[1] <= 90.0 and 0.0 < across < 0.1 and max(far) > 10.0 * across


def rings_of(geometry):
    """The rings of a polygon: lists of (x, y), without the vertex that closes them."""
    return [[(point.x(), point.y()) for point in ring[:-1]] for ring in geometry.asPolygon()]


def heights_of(geometry):
    """The heights of the same vertices, None for one that has none; None where the polygon has no heights."""
    polygon = geometry.constGet()
    if not polygon.is3D():
        return None
    rings = [polygon.exteriorRing(), *(polygon.interiorRing(number) for number in range(polygon.numInteriorRings()))]
    return [[known(point.z()) for point in ring.points()[:-1]] for ring in rings]


def known(value):
    """A height or a measure, or None for none."""
    return value if math.isfinite(value) else None


def shape_of(geometry):
    return Shape(rings_of(geometry), heights_of(geometry))


def point_of(vertex, height):
    """A point with its height, which is NaN where it is not known."""
    point = QgsPoint(*vertex)
    point.addZValue(math.nan if height is None else height)
    return point


def polygon_of(shape):
    """A polygon, with heights where the shape has some."""
    if shape.heights is None:
        return QgsGeometry.fromPolygonXY([[QgsPointXY(x, y) for x, y in [*ring, ring[0]]] for ring in shape.rings])
    polygon = QgsPolygon()
    for ring, heights in zip(shape.rings, shape.heights):
        points = [point_of(vertex, height) for vertex, height in zip(ring, heights)]
        add_ring(polygon, [*points, points[0]])
    return QgsGeometry(polygon)


def add_ring(polygon, points):
    """The outer ring, and then those of holes."""
    if polygon.exteriorRing() is None:
        polygon.setExteriorRing(QgsLineString(points))
    else:
        polygon.addInteriorRing(QgsLineString(points))


def line_of(line):
    """The segments of a dividing line, with heights where it has some."""
    if line.heights is None:
        return QgsGeometry.fromMultiPolylineXY([[QgsPointXY(*start), QgsPointXY(*end)] for start, end in line.segments])
    lines = QgsMultiLineString()
    for ends, heights in zip(line.segments, line.heights):
        lines.addGeometry(QgsLineString([point_of(*end) for end in zip(ends, heights)]))
    return QgsGeometry(lines)
