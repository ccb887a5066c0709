"""What the tool draws on the canvas: the parcel, the side under the cursor, the pieces and lines, and their figures."""

from qgis.core import QgsGeometry, QgsPointXY, QgsWkbTypes
from qgis.gui import QgsMapCanvasItem, QgsRubberBand
from qgis.PyQt.QtCore import QPointF, QRectF
from qgis.PyQt.QtGui import QColor, QFontMetricsF, QPainterPath, QPen

from ..parcels import line_of, polygon_of
from .parcel import Corner

_OUTLINE = QColor(47, 47, 51)
_LINE = QColor(176, 58, 46)
_CHOSEN = QColor(32, 96, 160)
_HOVERED = QColor(32, 96, 160, 140)
# More of them could not be read.
_MOST_LABELS = 100
_FILLS = (QColor(188, 217, 194, 120), QColor(240, 222, 170, 120))


class Labels(QgsMapCanvasItem):
    """Texts at places of the map, with a light rim."""

    def __init__(self, canvas):
        super().__init__(canvas)
        self._canvas, self._texts = canvas, []
        self.setZValue(1000)  # above all that is filled

    def show(self, texts):
        """texts: (place in the coordinates of the canvas, text)"""
        self._texts = texts
        self.updatePosition()
        self.update()

    def updatePosition(self):
        self.prepareGeometryChange()
        self.setPos(0, 0)

    def boundingRect(self):
        return QRectF(0, 0, self._canvas.width(), self._canvas.height())

    def paint(self, painter, option=None, widget=None):
        font = painter.font()
        font.setPointSizeF(10.0)
        measures = QFontMetricsF(font)
        for place, text in self._texts:
            at = self.toCanvasCoordinates(place)
            path = QPainterPath()
            path.addText(QPointF(at.x() - measures.horizontalAdvance(text) / 2, at.y() + measures.ascent() / 2), font, text)
            painter.strokePath(path, QPen(QColor(255, 255, 255, 220), 4.0))
            painter.fillPath(path, _OUTLINE)


class Drawing:
    """All of it. Coordinates are those of the parcel's plane."""

    def __init__(self, canvas, transforms):
        self._canvas, self._transforms = canvas, transforms
        self._bands = {}
        self._labels = Labels(canvas)

    def clear(self):
        for bands in self._bands.values():
            for band in bands:
                self._canvas.scene().removeItem(band)
        self._bands = {}
        self._labels.show([])

    def remove(self):
        self.clear()
        self._canvas.scene().removeItem(self._labels)

    def parcel(self, parcel):
        self._show("parcel", [(parcel.polygon, _OUTLINE, QColor(0, 0, 0, 0), 2)], parcel)

    def hovered(self, parcel, place):
        self._show("hovered", self._place(parcel, place, _HOVERED, 6), parcel)

    def chosen(self, parcel, place, point=None):
        """The side or the corner, or the point (x, y) through which the line runs."""
        shapes = self._place(parcel, place, _CHOSEN, 4) if point is None else [self._dot(point, _CHOSEN, 4)]
        self._show("chosen", shapes, parcel)

    def division(self, parcel, division):
        """The pieces, the lines and their figures; none for no division."""
        if division is None:
            self._show("pieces", [], parcel)
            self._show("lines", [], parcel)
            self._labels.show([])
            return
        polygons = [polygon_of(piece.shape) for piece in division.pieces]
        # One band for each colour: a thousand of them would be slow.
        by_fill = [[polygon for polygon, piece in zip(polygons, division.pieces) if piece.amount % len(_FILLS) == number]
                   for number in range(len(_FILLS))]
        self._show("pieces", [(QgsGeometry.collectGeometry(some), _OUTLINE, fill, 1) for some, fill in zip(by_fill, _FILLS) if some],
                   parcel)
        lines = QgsGeometry.collectGeometry([line for each in division.lines for line in line_of(each).asGeometryCollection()])
        self._show("lines", [(lines, _LINE, _LINE, 3)], parcel)
        to_canvas = parcel.plane.to(self._canvas.mapSettings().destinationCrs(), self._transforms)
        texts = [(to_canvas(polygon.pointOnSurface().asPoint()), f"{piece.area:.2f}")
                 for polygon, piece in zip(polygons[:_MOST_LABELS], division.pieces)]
        for line in division.lines[:_MOST_LABELS]:
            (x0, y0), (x1, y1) = line.segments[0]
            if line.length is not None:
                # Off the middle, where the areas of narrow pieces stand.
                texts.append((to_canvas(QgsPointXY(x0 + (x1 - x0) / 4, y0 + (y1 - y0) / 4)), f"{line.length:.3f}"))
        self._labels.show(texts)

    @staticmethod
    def _place(parcel, place, colour, width):
        if place is None:
            return []
        if isinstance(place, Corner):
            return [Drawing._dot(parcel.corner(place.number), colour, width)]
        start, end = parcel.side(place.number)
        return [(QgsGeometry.fromPolylineXY([QgsPointXY(*start), QgsPointXY(*end)]), colour, colour, width)]

    @staticmethod
    def _dot(point, colour, width):
        return QgsGeometry.fromPointXY(QgsPointXY(*point)), colour, colour, width

    def _show(self, name, shapes, parcel):
        """Shapes of (geometry, outline, fill, width) in place of what had this name."""
        for band in self._bands.pop(name, []):
            self._canvas.scene().removeItem(band)
        bands = []
        for geometry, outline, fill, width in shapes:
            band = QgsRubberBand(self._canvas, geometry.type())
            band.setStrokeColor(outline)
            band.setFillColor(fill)
            band.setWidth(width)
            if geometry.type() == QgsWkbTypes.PointGeometry:
                band.setIcon(QgsRubberBand.IconType.ICON_CIRCLE)
                band.setIconSize(12)
            band.setToGeometry(geometry, parcel.plane.crs)
            bands.append(band)
        self._bands[name] = bands
