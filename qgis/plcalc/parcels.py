"""Features as parcels: plane coordinates, one ring and its holes, and why a feature is none."""

from qgis.core import (QgsCoordinateTransform, QgsDistanceArea, QgsFeatureRequest, QgsGeometry, QgsPointXY,
                       QgsProcessingException, QgsProcessingFeatureSource, QgsProject, QgsWkbTypes)

# A plane that stretches lengths by more than this is no plane to divide land in.
MOST_STRETCHED = 1e-3


def features_of(source, request=None):
    """All features, whatever their geometry: plcalc says itself what is wrong with a boundary. QGIS's own check would end
    the run at the first such feature, by an exception that Python does not survive."""
    return source.getFeatures(request or QgsFeatureRequest(), QgsProcessingFeatureSource.FlagSkipGeometryValidityChecks)


class Unusable(Exception):
    """A feature that is no parcel; the text says why."""


class Plane:
    """The plane system in which a layer is divided, and the way there."""

    def __init__(self, source, context, feedback, any_scale):
        project = context.project() or QgsProject.instance()
        self.crs = source.sourceCrs()
        self._there = None
        if self.crs.isGeographic():
            plane = project.crs()
            if not plane.isValid() or plane.isGeographic():
                raise QgsProcessingException(
                    f"The layer's coordinates are degrees ({self.crs.authid()}), in which there are no areas. Give the "
                    "project a plane CRS, such as the UTM zone of the place, or reproject the layer.")
            self._there = QgsCoordinateTransform(self.crs, plane, context.transformContext())
            feedback.pushInfo(f"The layer has degrees: it is divided in the project's {plane.authid()}, and so are the results.")
            self.crs = plane
        extent = source.sourceExtent()
        if not extent.isEmpty():
            self._check_scale(self._moved(QgsGeometry.fromPointXY(extent.center())).asPoint(), context, any_scale)

    def _check_scale(self, at, context, any_scale):
        factor = scale_at(self.crs, at, context.transformContext())
        if factor is None or any_scale or abs(factor - 1.0) <= MOST_STRETCHED:
            return
        raise QgsProcessingException(
            f"{self.crs.authid()} shows lengths {factor:.4f} times as long as they are at this place, and areas "
            f"{factor * factor:.4f} times. Use the UTM zone of the place or a local grid, or tick that this is meant.")

    def _moved(self, geometry):
        if self._there is not None:
            geometry.transform(self._there)
        return geometry

    def parcels_of(self, feature):
        """Each polygon of a feature, as QgsGeometry in the plane.

        Raises Unusable for a feature without polygons.
        """
        geometry = QgsGeometry(feature.geometry())
        if geometry.isNull() or geometry.isEmpty():
            raise Unusable("there is no geometry")
        if geometry.type() != QgsWkbTypes.PolygonGeometry:
            raise Unusable("it is no polygon")
        if QgsWkbTypes.isCurvedType(geometry.wkbType()):
            raise Unusable("its boundary has arcs: give them corners first, with the algorithm Segmentize")
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
    """The rings of a polygon as plcalc takes them: lists of (x, y), closed as QGIS closes them."""
    return [[(point.x(), point.y()) for point in ring] for ring in geometry.asPolygon()]


def polygon_of(ring, holes):
    rings = [ring.tolist(), *[hole.tolist() for hole in holes]]
    return QgsGeometry.fromPolygonXY([[QgsPointXY(x, y) for x, y in [*ring, ring[0]]] for ring in rings])


def line_of(segments):
    return QgsGeometry.fromMultiPolylineXY([[QgsPointXY(*start), QgsPointXY(*end)] for start, end in segments])
