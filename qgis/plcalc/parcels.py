"""Features as parcels: plane coordinates, one ring and its holes, and why a feature is none."""

from qgis.core import (QgsCoordinateTransform, QgsDistanceArea, QgsFeatureRequest, QgsGeometry, QgsPointXY,
                       QgsProcessingFeatureSource, QgsWkbTypes)

from .words import tr

# A plane that stretches lengths by more than this is no plane to divide land in.
MOST_STRETCHED = 1e-3


def features_of(source, request=None):
    """All features, whatever their geometry: plcalc says itself what is wrong with a boundary. QGIS's own check would end
    the run at the first such feature, by an exception that Python does not survive."""
    return source.getFeatures(request or QgsFeatureRequest(), QgsProcessingFeatureSource.FlagSkipGeometryValidityChecks)


class Unusable(Exception):
    """A feature that is no parcel; the text says why."""


class NoPlane(Exception):
    """There is no plane in which to divide; the text says what to do."""


class Plane:
    """The plane system in which a layer is divided, and the way there.

    note: what was assumed, or None
    Raises NoPlane for degrees without a plane, and for a plane that stretches lengths, unless any_scale.
    """

    def __init__(self, crs, extent, of_project, transforms, any_scale=False):
        self.crs, self.note = crs, None
        self._there = None
        if crs.isGeographic():
            if not of_project.isValid() or of_project.isGeographic():
                raise NoPlane(tr("The layer's coordinates are degrees ({crs}), in which there are no areas. Give the project a plane "
                                 "CRS, such as the UTM zone of the place, or reproject the layer.").format(crs=crs.authid()))
            self._there = QgsCoordinateTransform(crs, of_project, transforms)
            self.note = tr("The layer has degrees: it is divided in the project's {crs}.").format(
                crs=of_project.authid())
            self.crs = of_project
        if not extent.isEmpty() and not any_scale:
            self._check_scale(self._moved(QgsGeometry.fromPointXY(extent.center())).asPoint(), transforms)

    def _check_scale(self, at, transforms):
        factor = scale_at(self.crs, at, transforms)
        if factor is None or abs(factor - 1.0) <= MOST_STRETCHED:
            return
        raise NoPlane(tr("{crs} shows lengths {length:.4f} times as long as they are at this place, and areas {area:.4f} times. Use "
                         "the UTM zone of the place or a local grid, or tick that this is meant.").format(
            crs=self.crs.authid(), length=factor, area=factor * factor))

    def _moved(self, geometry):
        if self._there is not None:
            geometry.transform(self._there)
        return geometry

    def back(self, point):
        """A point of the plane in the layer's own coordinates."""
        return point if self._there is None else self._there.transform(point, QgsCoordinateTransform.ReverseTransform)

    def to(self, crs, transforms):
        """What takes points of the plane to another system; as they are where one of the two is not known."""
        if not crs.isValid() or not self.crs.isValid() or crs == self.crs:
            return lambda point: point
        return QgsCoordinateTransform(self.crs, crs, transforms).transform

    def parcels_of(self, feature):
        """Each polygon of a feature, as QgsGeometry in the plane.

        Raises Unusable for a feature without polygons.
        """
        geometry = QgsGeometry(feature.geometry())
        if geometry.isNull() or geometry.isEmpty():
            raise Unusable(tr("there is no geometry"))
        if geometry.type() != QgsWkbTypes.PolygonGeometry:
            raise Unusable(tr("it is no polygon"))
        if QgsWkbTypes.isCurvedType(geometry.wkbType()):
            raise Unusable(tr("its boundary has arcs: give them corners first, with the algorithm Segmentize"))
        self._moved(geometry)
        return [part for part in geometry.asGeometryCollection() if not part.isEmpty()]


def scale_at(crs, at, transforms):
    """How long a length on the ground is in the plane, East and North together; None when that is not known."""
    measure = QgsDistanceArea()
    measure.setSourceCrs(crs, transforms)
    if not crs.isValid() or not measure.setEllipsoid(crs.ellipsoidAcronym()):
        return None
    step = 100.0
    east = measure.measureLine(at, QgsPointXY(at.x() + step, at.y()))
    north = measure.measureLine(at, QgsPointXY(at.x(), at.y() + step))
    unit = measure.convertLengthMeasurement(1.0, crs.mapUnits())
    if not east > 0.0 or not north > 0.0 or not unit > 0.0:
        return None
    return step / ((east * north) ** 0.5 * unit)


def rings_of(geometry):
    """The rings of a polygon: lists of (x, y), without the vertex that closes them."""
    return [[(point.x(), point.y()) for point in ring[:-1]] for ring in geometry.asPolygon()]


def polygon_of(rings):
    return QgsGeometry.fromPolygonXY([[QgsPointXY(x, y) for x, y in [*ring, ring[0]]] for ring in rings])


def line_of(segments):
    return QgsGeometry.fromMultiPolylineXY([[QgsPointXY(*start), QgsPointXY(*end)] for start, end in segments])
