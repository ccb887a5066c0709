"""What QGIS loads: registers the provider, and takes it back."""

from qgis.core import QgsApplication

from .provider import Provider


class Plugin:
    def __init__(self, iface=None):
        self.iface = iface
        self.provider = None

    def initProcessing(self):
        self.provider = Provider()
        QgsApplication.processingRegistry().addProvider(self.provider)

    def initGui(self):
        self.initProcessing()

    def unload(self):
        QgsApplication.processingRegistry().removeProvider(self.provider)
