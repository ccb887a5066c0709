"""A user with a mouse and keys."""

from qgis.core import QgsPointXY
from qgis.PyQt.QtCore import QEvent, QPoint, Qt
from qgis.PyQt.QtGui import QMouseEvent
from qgis.PyQt.QtTest import QTest
from qgis.PyQt.QtWidgets import QApplication


class User:
    """What is done on a canvas, at places in its coordinates."""

    def __init__(self, canvas):
        self.canvas = canvas

    def pixel(self, x, y):
        at = self.canvas.getCoordinateTransform().transform(QgsPointXY(x, y))
        return QPoint(round(at.x()), round(at.y()))

    def move(self, x, y, buttons=Qt.NoButton):
        view, at = self.canvas.viewport(), self.pixel(x, y)
        event = QMouseEvent(QEvent.MouseMove, at, view.mapToGlobal(at), Qt.NoButton, buttons, Qt.NoModifier)
        QApplication.sendEvent(view, event)

    def click(self, x, y):
        self.move(x, y)
        QTest.mouseClick(self.canvas.viewport(), Qt.LeftButton, Qt.NoModifier, self.pixel(x, y))

    def drag(self, start, *ends):
        QTest.mousePress(self.canvas.viewport(), Qt.LeftButton, Qt.NoModifier, self.pixel(*start))
        for end in ends:
            self.move(*end, Qt.LeftButton)
        QTest.mouseRelease(self.canvas.viewport(), Qt.LeftButton, Qt.NoModifier, self.pixel(*ends[-1]))

    def key(self, key):
        QTest.keyClick(self.canvas, key)
