"""The map tool: select a parcel, choose a side or a corner, see the division, drag its line, divide."""

from qgis.core import QgsCoordinateTransform, QgsPointXY, QgsProject
from qgis.gui import QgsMapTool
from qgis.PyQt.QtCore import Qt, pyqtSignal

from .. import engine
from ..parcels import NoPlane, Plane, Unusable
from ..words import tr
from .commit import CannotSplit, commit
from .drawing import Drawing
from .parcel import Corner, is_parcel_layer, parcel_at
from .work import Work

# So many pixels around the cursor are under it.
_REACH = 12


class DivideTool(QgsMapTool):
    """Divides a parcel of the current layer.

    said: a text for the user, and whether it is a problem
    """

    said = pyqtSignal(str, bool)

    def __init__(self, canvas, dock, project=None):
        super().__init__(canvas)
        self._dock = dock
        self._project = project or QgsProject.instance()
        self._work = self._hovered = None
        self._dragging = False
        self._drawing = Drawing(canvas, self._project.transformContext())
        self.setCursor(Qt.CursorShape.CrossCursor)
        dock.changed.connect(self._ask)
        dock.commit.connect(self.divide)
        # What is drawn belongs to a layer that may go or change under it.
        canvas.currentLayerChanged.connect(self._start_again)
        self._project.layersWillBeRemoved.connect(self._start_again)

    @property
    def work(self):
        return self._work

    def deactivate(self):
        self._start_again()
        super().deactivate()

    def remove(self):
        """Takes back what it has put on the canvas, and hears nothing any more: the dock may be gone soon."""
        self._start_again()
        self.canvas().currentLayerChanged.disconnect(self._start_again)
        self._project.layersWillBeRemoved.disconnect(self._start_again)
        self._drawing.remove()

    def _start_again(self, *_):
        self._work = self._hovered = None
        self._dragging = False
        self._drawing.clear()
        self._dock.show_nothing()

    # What the user does

    def canvasMoveEvent(self, event):
        if self._work is None or not self._work.usable():
            return
        at, reach = self._in_plane(event)
        if self._dragging:
            self._drag(at, reach / _REACH)
            return
        on_line = self._work.is_on_line(at, reach / 2)
        self.setCursor(Qt.CursorShape.SizeAllCursor if on_line else Qt.CursorShape.CrossCursor)
        self._hover(None if on_line else self._work.parcel.under(at, reach))

    def canvasPressEvent(self, event):
        if event.button() != Qt.MouseButton.LeftButton or self._work is None:
            return
        at, reach = self._in_plane(event)
        self._dragging = self._work.is_on_line(at, reach / 2)

    def canvasReleaseEvent(self, event):
        if event.button() != Qt.MouseButton.LeftButton:
            return
        if self._dragging:
            self._dragging = False
            return
        if self._work is not None and self._work.usable():
            at, reach = self._in_plane(event)
            place = self._work.parcel.under(at, reach)
            if place is not None:
                self._choose(place)
                return
        self._select(event.mapPoint())

    def keyPressEvent(self, event):
        if event.key() in (Qt.Key.Key_Return, Qt.Key.Key_Enter):
            self.divide()
        elif event.key() == Qt.Key.Key_Escape:
            self._step_back()
        elif event.key() == Qt.Key.Key_O:
            self._dock.opposite.toggle()
        else:
            event.ignore()
            return
        event.accept()

    # What becomes of it

    def _select(self, at):
        """The parcel under the cursor; another one takes the place of the one selected."""
        layer = self.canvas().currentLayer()
        if not is_parcel_layer(layer):
            self.said.emit(tr("Make a layer of polygons the current one."), True)
            return
        computes = engine.engine()
        if computes is None:
            self.said.emit(engine.missing(), True)
            return
        try:
            plane = Plane(layer.crs(), layer.extent(), self._project.crs(), self._project.transformContext(),
                          self._dock.any_scale.isChecked())
            parcel = parcel_at(layer, plane, self.toLayerCoordinates(layer, at))
        except (NoPlane, Unusable) as why:
            self.said.emit(str(why), True)
            return
        if self._work is not None and parcel is not None and parcel.is_same(self._work.parcel):
            return
        self._start_again()
        if parcel is None:
            return
        self._work = Work(computes, parcel)
        self._dock.show_note("\n".join(note for note in (plane.note, computes.note) if note))
        self._drawing.parcel(parcel)
        self._show()

    def _hover(self, place):
        if place == self._hovered:
            return
        self._hovered = place
        self._drawing.hovered(self._work.parcel, place)
        self._show()

    def _choose(self, place):
        self._drawing.chosen(self._work.parcel, place)
        self._work.place = place
        self._ask()

    def _ask(self):
        if self._work is None or self._work.place is None:
            return
        self._work.ask(self._work.place, self._dock.wishes())
        self._drawing.division(self._work.parcel, self._work.division)
        self._show()

    def _drag(self, at, pixel):
        wishes = self._work.dragged_to(at, pixel, self._dock.wishes())
        if wishes is not None:
            self._dock.set_amount(wishes)

    def _step_back(self):
        """From the place to the parcel, and from the parcel to nothing."""
        if self._work is None or self._work.place is None:
            self._start_again()
            return
        self._dragging = False
        self._work.forget()
        self._drawing.chosen(self._work.parcel, None)
        self._drawing.division(self._work.parcel, None)
        self._show()

    def divide(self):
        """Writes the division into the layer."""
        if self._work is None or self._work.division is None:
            return
        try:
            written = commit(self._work.parcel, self._work.division, self._dock.points.currentLayer(),
                             self._project.transformContext())
        except CannotSplit as why:
            self.said.emit(str(why), True)
            return
        self._start_again()
        text = tr("Divided. New features: {pieces}; neighbours with new points: {neighbours}; points: {points}. Columns that hold "
                  "areas are not computed anew.").format(pieces=written.pieces, neighbours=written.neighbours,
                                                         points=written.points)
        self.said.emit(text, False)

    def _show(self):
        self._dock.show_work(self._work, self._hovered, isinstance(self._work.place, Corner))

    def _in_plane(self, event):
        """The cursor in the parcel's plane, and how far what is under it may lie."""
        here = event.mapPoint()
        beside = QgsPointXY(here.x() + _REACH * self.canvas().mapUnitsPerPixel(), here.y())
        from_canvas, plane = self.canvas().mapSettings().destinationCrs(), self._work.parcel.plane.crs
        if from_canvas.isValid() and plane.isValid() and from_canvas != plane:
            way = QgsCoordinateTransform(from_canvas, plane, self._project.transformContext())
            here, beside = way.transform(here), way.transform(beside)
        return (here.x(), here.y()), here.distance(beside)
