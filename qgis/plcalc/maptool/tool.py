"""The map tool: select a parcel, choose a side or a corner, see the division, drag its line, divide."""

from qgis.core import QgsCoordinateTransform, QgsPointXY, QgsProject
from qgis.gui import QgsMapTool
from qgis.PyQt.QtCore import Qt, pyqtSignal

from .. import engine
from ..answers import BEARING, PARALLEL, POINT, VERTEX
from ..parcels import NoPlane, Plane, Unusable
from ..words import tr
from .commit import CannotSplit, commit
from .drawing import Drawing
from .parcel import Corner, is_parcel_layer, parcel_at
from .work import Work, written

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
        dock.left.connect(canvas.setFocus)
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
        self._hover(None if on_line else self._under(at, reach))

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
            if self._dock.wishes().line == POINT:
                if self._work.parcel.contains(at, reach):
                    self._choose_point(event, reach / _REACH)
                    return
            else:
                place = self._under(at, reach)
                if place is not None:
                    self._choose(place)
                    return
        self._select(event.mapPoint())

    def keyPressEvent(self, event):
        if event.key() in (Qt.Key.Key_Return, Qt.Key.Key_Enter):
            if not event.isAutoRepeat():  # a key still held down since it has left a field of the dock
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
            plane = Plane(layer.crs(), self._project.crs(), self._project.transformContext(),
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
        stretched = tr("The CRS stretches lengths here: figures are those of the plane, not of the ground.") if plane.stretched else None
        self._dock.show_note("\n".join(note for note in (plane.note, stretched, computes.note) if note))
        self._drawing.parcel(parcel)
        self._ask()

    def _hover(self, place):
        if (type(place), place) == (type(self._hovered), self._hovered):
            return
        self._hovered = place
        self._drawing.hovered(self._work.parcel, place)
        self._show()

    def _under(self, at, reach):
        """The side or the corner under the cursor that the line can have; None when there is none."""
        line = self._dock.wishes().line
        place = self._work.parcel.under(at, reach) if line != POINT else None
        return None if line == BEARING and isinstance(place, Corner) else place

    def _choose(self, place):
        """A line from a corner, along a side or at right angles to it, or at its bearing."""
        wishes = self._dock.wishes()
        if wishes.line == BEARING:
            self._dock.set_wishes(wishes._replace(bearing=self._work.bearing_of(place)))
            return
        self._work.place = place
        if isinstance(place, Corner):
            line = VERTEX
        else:
            line = PARALLEL if wishes.line == VERTEX else wishes.line
        self._dock.set_wishes(wishes._replace(line=line))

    def _choose_point(self, event, pixel):
        """The point under the cursor, or the one to which the project's snapping takes it, to its last digit."""
        at, _ = self._in_plane(event)
        was = event.mapPoint()
        there = event.snapPoint()
        if event.isSnapped() and there != was:
            (at, _), pixel = self._in_plane(event), 0.0
        self._dock.set_wishes(self._dock.wishes()._replace(point=written(at, pixel)))

    def _ask(self):
        if self._work is None:
            return
        self._work.ask(self._work.place, self._dock.wishes())
        is_side = self._dock.wishes().line not in (BEARING, POINT)
        self._drawing.chosen(self._work.parcel, self._work.place if is_side else None, self._work.point)
        self._drawing.division(self._work.parcel, self._work.division)
        self._show()

    def _drag(self, at, pixel):
        wishes = self._work.dragged_to(at, pixel, self._dock.wishes())
        if wishes is not None:
            self._dock.set_wishes(wishes)

    def _step_back(self):
        """From the place to the parcel, and from the parcel to nothing."""
        self._dragging = False
        wishes = self._dock.wishes()
        if self._work is not None and self._work.place is not None and wishes.line not in (BEARING, POINT):
            self._work.place = None
            self._ask()
        elif self._work is not None and wishes.line == POINT and wishes.point:
            self._dock.set_wishes(wishes._replace(point=""))
        else:
            self._start_again()

    def divide(self):
        """Writes the division into the layer."""
        self._dock.take_in()
        if self._work is None or self._work.division is None:
            return
        try:
            done = commit(self._work.engine, self._work.parcel, self._work.division, self._dock.points.currentLayer(),
                          self._project.transformContext())
        except CannotSplit as why:
            self.said.emit(str(why), True)
            return
        self._start_again()
        self.said.emit(_said(done), done.is_doubtful())

    def _show(self):
        self._dock.show_work(self._work, self._hovered)

    def _in_plane(self, event):
        """The cursor in the parcel's plane, and how far what is under it may lie."""
        here = event.mapPoint()
        beside = QgsPointXY(here.x() + _REACH * self.canvas().mapUnitsPerPixel(), here.y())
        from_canvas, plane = self.canvas().mapSettings().destinationCrs(), self._work.parcel.plane.crs
        if from_canvas.isValid() and plane.isValid() and from_canvas != plane:
            way = QgsCoordinateTransform(from_canvas, plane, self._project.transformContext())
            here, beside = way.transform(here), way.transform(beside)
        return (here.x(), here.y()), here.distance(beside)


def _said(done):
    """What a commit has done, and what it could not."""
    said = [tr("Divided. New features: {pieces}; neighbours with new points: {neighbours}; points: {points}. Columns that hold areas are "
               "not computed anew.").format(pieces=done.pieces, neighbours=done.neighbours, points=done.points)]
    if done.unknown:
        said.append(tr("New points without a height or a measure: {count}.").format(count=done.unknown))
    if done.flat:
        said.append(tr("The layer of new points has no heights: they are left out there."))
    if done.is_filtered:
        said.append(tr("The layer has a filter: neighbours that it hides have not got the new points."))
    if done.to_fill:
        said.append(tr("Columns that the layer of new points wants to be filled before it is saved: {columns}.").format(
            columns=", ".join(sorted(done.to_fill))))
    if done.beside:
        said.append(tr("New points so near to a neighbour's corner that they were not inserted: {count}.").format(count=done.beside))
    if done.left_out:
        said.append(tr("Boundaries that would meet themselves with the new points, and have not got them: {count}.").format(
            count=done.left_out))
    if done.unread:
        said.append(tr("Features beside it that are no parcels, and have got no points: {count}.").format(count=done.unread))
    return " ".join(said)
