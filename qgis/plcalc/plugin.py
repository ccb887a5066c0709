"""What QGIS loads: registers the algorithms and the map tool, and takes them back."""

import os

from qgis.core import QgsApplication
from qgis.PyQt.QtCore import Qt
from qgis.PyQt.QtGui import QIcon
from qgis.PyQt.QtWidgets import QAction

from .provider import Provider
from .words import tr


class Plugin:
    def __init__(self, iface=None):
        self.iface = iface
        self.provider = self.action = self.dock = self.tool = None

    def initProcessing(self):
        self.provider = Provider()
        QgsApplication.processingRegistry().addProvider(self.provider)

    def initGui(self):
        # qgis_process has no window, and may not even have what this imports.
        from .maptool.dock import Dock
        from .maptool.tool import DivideTool

        self.initProcessing()
        self.dock = Dock(self.iface.mainWindow())
        self.dock.hide()
        self.tool = DivideTool(self.iface.mapCanvas(), self.dock)
        icon = QIcon(os.path.join(os.path.dirname(__file__), "icon.svg"))
        self.action = QAction(icon, tr("Divide a parcel"), self.iface.mainWindow())
        self.action.setCheckable(True)
        self.action.triggered.connect(self._begin)
        self.tool.setAction(self.action)
        self.tool.activated.connect(self.dock.show)
        self.tool.deactivated.connect(self.dock.hide)
        self.tool.said.connect(self._say)
        self.dock.closed.connect(self._end)
        self.iface.addDockWidget(Qt.DockWidgetArea.RightDockWidgetArea, self.dock)
        self.iface.addVectorToolBarIcon(self.action)
        self.iface.addPluginToVectorMenu("plcalc", self.action)

    def _begin(self):
        self.iface.mapCanvas().setMapTool(self.tool)

    def _end(self):
        self.iface.mapCanvas().unsetMapTool(self.tool)

    def _say(self, text, is_problem):
        bar = self.iface.messageBar()
        (bar.pushWarning if is_problem else bar.pushSuccess)("plcalc", text)

    def unload(self):
        QgsApplication.processingRegistry().removeProvider(self.provider)
        if self.tool is None:
            return
        self._end()
        self.tool.remove()
        self.iface.removePluginVectorMenu("plcalc", self.action)
        self.iface.removeVectorToolBarIcon(self.action)
        self.iface.removeDockWidget(self.dock)
        self.dock.deleteLater()
        self.tool = self.dock = self.action = None
