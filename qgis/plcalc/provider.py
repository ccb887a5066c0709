"""The algorithms under one name in the toolbox."""

import os

from qgis.core import QgsProcessingProvider
from qgis.PyQt.QtGui import QIcon

from .algorithms.divide import Divide
from .algorithms.feasible import Feasible
from .algorithms.measure import Measure
from .algorithms.stakeout import StakeOut


class Provider(QgsProcessingProvider):
    def id(self):
        return "plcalc"

    def name(self):
        return "plcalc"

    def icon(self):
        return QIcon(os.path.join(os.path.dirname(__file__), "icon.svg"))

    def loadAlgorithms(self):
        for algorithm in (Divide, Measure, Feasible, StakeOut):
            self.addAlgorithm(algorithm())
