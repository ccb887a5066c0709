"""The dock beside the canvas: what is asked, and what is answered."""

from qgis.core import QgsMapLayerProxyModel
from qgis.gui import QgsMapLayerComboBox
from qgis.PyQt.QtCore import Qt, pyqtSignal
from qgis.PyQt.QtWidgets import (QCheckBox, QComboBox, QDockWidget, QDoubleSpinBox, QFormLayout, QHBoxLayout, QLabel, QLineEdit,
                                 QPushButton, QSpinBox, QVBoxLayout, QWidget)

from ..answers import BEARING, PARALLEL, PERPENDICULAR, POINT, VERTEX
from ..requests import AMOUNTS, LINES, SHARE, translated
from ..words import marked, tr
from .work import Wishes

_ALL_DIGITS = -1

_WHAT_TO_CLICK = {PARALLEL: marked("Click on a side or a corner."), PERPENDICULAR: marked("Click on a side or a corner."),
                  VERTEX: marked("Click on a corner, or on a side."), BEARING: marked("Write the bearing, or click on a side."),
                  POINT: marked("Click on the point.")}

# Of pieces and lines, that the dock lists.
_MOST_ROWS = 12

# By which part of the parcel a piece may miss its amount.
_TOLERANCES = ((1e-6, "1 : 1 000 000"), (1e-5, "1 : 100 000"), (1e-4, "1 : 10 000"), (1e-3, "1 : 1 000"))


class Dock(QDockWidget):
    changed = pyqtSignal()  # what is asked
    commit = pyqtSignal()
    closed = pyqtSignal()
    left = pyqtSignal()  # by a key: what follows is meant for the map

    def __init__(self, parent=None):
        super().__init__(tr("Divide a parcel"), parent)
        self.setObjectName("plcalc_divide")
        self.setAllowedAreas(Qt.DockWidgetArea.LeftDockWidgetArea | Qt.DockWidgetArea.RightDockWidgetArea)
        self.note, self.about, self.place, self.result = (QLabel() for _ in range(4))
        for label in (self.note, self.about, self.place, self.result):
            label.setWordWrap(True)
            label.setTextInteractionFlags(Qt.TextInteractionFlag.TextSelectableByMouse)
        self.kind = QComboBox()
        self.kind.addItems(translated(LINES))
        self.bearing = QDoubleSpinBox()
        self.bearing.setRange(0.0, 400.0)
        self.bearing.setDecimals(6)
        self.bearing.setWrapping(True)
        self.bearing.setSuffix(" gon")
        self.bearing.setKeyboardTracking(False)
        self.bearing.setToolTip(tr("Clockwise from North; a click on a side takes its bearing. Of lines through a point, the first one from "
                                   "here on counts."))
        self.point = QLineEdit()
        self.point.setPlaceholderText(tr("E, N: write it, or click on it"))
        self.amount = QComboBox()
        self.amount.addItems(translated(AMOUNTS))
        self.amount.setCurrentIndex(SHARE)
        self.value = QLineEdit("1/2")
        self.decimals = QSpinBox()
        self.decimals.setRange(_ALL_DIGITS, 17)
        self.decimals.setSpecialValueText(tr("all digits"))
        self.decimals.setValue(3)
        self.tolerance = QComboBox()
        for tolerance, text in _TOLERANCES:
            self.tolerance.addItem(text, tolerance)
        self.tolerance.setToolTip(tr("The part of the parcel by which a piece may miss its amount, because new points are rounded"))
        self.opposite = QCheckBox(tr("What is asked lies on the far side of the line"))
        self.any_pieces = QCheckBox(tr("The whole straight line cuts, into however many pieces"))
        self.any_scale = QCheckBox(tr("Go on although the CRS stretches lengths here"))
        self.points = QgsMapLayerComboBox()
        self.points.setFilters(QgsMapLayerProxyModel.PointLayer)
        self.points.setAllowEmptyLayer(True)
        self.points.setLayer(None)
        self.divide = QPushButton(tr("Divide"))
        self.divide.setToolTip(tr("Splits the feature in the edit session of its layer (Enter on the map)"))
        self._lay_out()
        self.kind.currentIndexChanged.connect(self.changed)
        self.amount.currentIndexChanged.connect(self.changed)
        self.tolerance.currentIndexChanged.connect(self.changed)
        self.decimals.valueChanged.connect(self.changed)
        self.value.textChanged.connect(self.changed)
        self.point.textChanged.connect(self.changed)
        self.bearing.valueChanged.connect(self.changed)
        self.kind.currentIndexChanged.connect(self._enable)
        self._enable()
        for box in (self.opposite, self.any_pieces):
            box.toggled.connect(self.changed)
        self.divide.clicked.connect(self.commit)
        self.show_nothing()

    def _lay_out(self):
        form = QFormLayout()
        form.addRow(tr("The line runs"), self.kind)
        form.addRow(tr("Bearing"), self.bearing)
        form.addRow(tr("The point"), self.point)
        form.addRow(tr("What is asked"), self.amount)
        form.addRow(tr("how much"), self.value)
        form.addRow(tr("Decimals of new points"), self.decimals)
        form.addRow(tr("Areas may be off by"), self.tolerance)
        form.addRow(self.opposite)
        form.addRow(self.any_pieces)
        form.addRow(self.any_scale)
        form.addRow(tr("New points go to"), self.points)
        buttons = QHBoxLayout()
        buttons.addStretch()
        buttons.addWidget(self.divide)
        column = QVBoxLayout()
        for item in (self.note, self.about, self.place):
            column.addWidget(item)
        column.addLayout(form)
        column.addWidget(self.result)
        column.addLayout(buttons)
        column.addStretch()
        inside = QWidget()
        inside.setLayout(column)
        self.setWidget(inside)

    def wishes(self):
        decimals = self.decimals.value()
        return Wishes(self.kind.currentIndex(), self.bearing.value(), self.point.text().strip(), self.amount.currentIndex(), self.value.text(), self.opposite.isChecked(),
                      self.any_pieces.isChecked(), None if decimals == _ALL_DIGITS else decimals,
                      self.tolerance.currentData())

    def _enable(self):
        self.bearing.setEnabled(self.kind.currentIndex() in (BEARING, POINT))
        self.point.setEnabled(self.kind.currentIndex() == POINT)

    def set_wishes(self, wishes):
        """Shows another line, or another amount, and says so once."""
        widgets = (self.kind, self.bearing, self.point, self.amount, self.value)
        for widget in widgets:
            widget.blockSignals(True)
        self.kind.setCurrentIndex(wishes.line)
        self.bearing.setValue(wishes.bearing)
        self.point.setText(wishes.point)
        self.amount.setCurrentIndex(wishes.kind)
        self.value.setText(wishes.text)
        for widget in widgets:
            widget.blockSignals(False)
        self._enable()
        self.changed.emit()

    def show_note(self, text):
        self.note.setText(text or "")
        self.note.setVisible(bool(text))

    def show_nothing(self):
        self.show_note(None)
        self.about.setText(tr("Click on a parcel."))
        self.place.setText("")
        self.result.setText("")
        self.divide.setEnabled(False)

    def show_work(self, work, hovered):
        about = tr("Parcel {name}").format(name=work.parcel.name())
        if work.usable():
            about += tr(": area {area:.4f}, perimeter {perimeter:.4f}").format(area=work.measure.area,
                                                                               perimeter=work.measure.perimeter)
        self.about.setText(about)
        shown = hovered or (work.place if self.kind.currentIndex() not in (BEARING, POINT) else None)
        self.place.setText(work.described(shown) if shown and work.usable() else tr(_WHAT_TO_CLICK[self.kind.currentIndex()]))
        self.result.setText(work.problem or _figures(work.division, self.decimals.value()))
        self.divide.setEnabled(work.division is not None)

    def take_in(self):
        """What is being typed counts, though it has not been left yet."""
        self.bearing.interpretText()

    def keyPressEvent(self, event):
        """Enter takes in what has been written, Enter and Esc go back to the map; nothing is divided by Enter in a field."""
        if event.key() not in (Qt.Key.Key_Return, Qt.Key.Key_Enter, Qt.Key.Key_Escape):
            super().keyPressEvent(event)
            return
        event.accept()
        if event.key() != Qt.Key.Key_Escape and self.divide.hasFocus():
            self.divide.click()
        else:
            self.take_in()
            self.left.emit()

    def closeEvent(self, event):
        super().closeEvent(event)
        self.closed.emit()


def _figures(division, decimals):
    if division is None:
        return ""
    rest = max(piece.amount for piece in division.pieces)
    lines = []
    for number, piece in enumerate(division.pieces[:_MOST_ROWS], 1):
        what = tr("Left") if piece.amount == rest else tr("Piece {number}").format(number=number)
        lines.append(tr("{what}: {area:.4f} (asked {asked:.4f})").format(what=what, area=piece.area, asked=piece.asked))
    if len(division.pieces) > _MOST_ROWS:
        lines.append(tr("and {count} more pieces").format(count=len(division.pieces) - _MOST_ROWS))
    for line in division.lines[:_MOST_ROWS]:
        text = tr("Line from {start} to {end}").format(start=_place(line.start), end=_place(line.end))
        if line.length is not None:
            text += tr(", length {length:.3f}").format(length=line.length)
        if line.bearing is not None:
            text += tr(", bearing {bearing:.4f} gon").format(bearing=line.bearing)
        lines.append(text)
    if division.decimals is not None and division.decimals > decimals:
        lines.append(tr("The ends have {used} decimals: with {asked} no line holds the areas that closely.").format(
            used=division.decimals, asked=decimals))
    return "\n".join(lines)


def _place(point):
    return f"{point[0]!r}, {point[1]!r}"
