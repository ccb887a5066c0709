"""How results are drawn when QGIS loads them: outlines and labels that a surveyor can read at once."""

import collections

from qgis.core import (QgsFillSymbol, QgsLineSymbol, QgsMarkerSymbol, QgsPalLayerSettings,
                       QgsProcessingLayerPostProcessorInterface, QgsProject, QgsSingleSymbolRenderer, QgsTextBufferSettings,
                       QgsTextFormat, QgsVectorLayerSimpleLabeling)
from qgis.PyQt.QtCore import QTimer


def _area(field):
    return f"format_number(\"{field}\", 1)"


def _fill(colour, outline, width="0.3"):
    return QgsFillSymbol.createSimple({"color": colour, "outline_color": outline, "outline_width": width})


STYLES = {
    "PIECES": lambda own: (_fill("188,217,194,110", "47,47,51,255"),
                           f"\"{own['piece']}\" || ': ' || {_area(own['area'])}"),
    "LINES": lambda own: (QgsLineSymbol.createSimple({"color": "176,58,46,255", "width": "0.6"}),
                          f"format_number(\"{own['length']}\", 2)"),
    "POINTS": lambda own: (QgsMarkerSymbol.createSimple({"name": "circle", "color": "255,255,255,255",
                                                         "outline_color": "176,58,46,255", "size": "2"}),
                           f"\"{own['name']}\""),
    "REFUSED": lambda own: (_fill("0,0,0,0", "176,58,46,255", "0.6"), f"\"{own['reason']}\""),
}


# QGIS keeps no reference to what draws a result later, when the run and its algorithm are gone.
_kept = collections.deque(maxlen=256)


# From above. What is refused must be seen, and no fill may cover a line.
_FROM_ABOVE = ("REFUSED", "POINTS", "LINES", "PIECES")


def _arrange(run):
    """Brings the results of a run into their order where they stand together in the tree of layers: QGIS has one of its own."""
    tree = QgsProject.instance().layerTreeRoot()
    nodes = [node for node in (tree.findLayer(run[name]) for name in _FROM_ABOVE if name in run) if node is not None]
    if not nodes or any(node.parent() != nodes[0].parent() for node in nodes):
        return
    group = nodes[0].parent()
    places = [group.children().index(node) for node in nodes]
    if places == sorted(places):
        return
    for number, node in enumerate(nodes):
        group.insertChildNode(min(places) + number, node.clone())
    for node in nodes:
        group.removeChildNode(node)


class Styled(QgsProcessingLayerPostProcessorInterface):
    """Gives a layer its symbol and its labels, and its place among the results of its run.

    own: the name of each of our columns as the layer has it; run: the layers of the run by the names of their results
    """

    def __init__(self, result, own, run):
        super().__init__()
        self._result, self._own, self._run = result, own, run
        _kept.append(self)

    def postProcessLayer(self, layer, context, feedback):
        symbol, label = STYLES[self._result](self._own)
        layer.setRenderer(QgsSingleSymbolRenderer(symbol))
        settings = QgsPalLayerSettings()
        settings.fieldName, settings.isExpression = label, True
        if self._result == "REFUSED":
            settings.autoWrapLength = 28  # reasons are sentences
        if self._result == "LINES":
            settings.placement = QgsPalLayerSettings.Line
        text = QgsTextFormat()
        text.setSize(8)
        halo = QgsTextBufferSettings()
        halo.setEnabled(True)
        text.setBuffer(halo)
        settings.setFormat(text)
        layer.setLabeling(QgsVectorLayerSimpleLabeling(settings))
        layer.setLabelsEnabled(True)
        layer.triggerRepaint()
        self._run[self._result] = layer.id()
        QTimer.singleShot(0, lambda: _arrange(self._run))  # newer versions of QGIS put layers into the tree after this
