"""How results are drawn when QGIS loads them: outlines and labels that a surveyor can read at once."""

import collections

from qgis.core import (QgsFillSymbol, QgsLineSymbol, QgsMarkerSymbol, QgsPalLayerSettings,
                       QgsProcessingLayerPostProcessorInterface, QgsSingleSymbolRenderer, QgsTextBufferSettings,
                       QgsTextFormat, QgsVectorLayerSimpleLabeling)


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


class Styled(QgsProcessingLayerPostProcessorInterface):
    """Gives a layer its symbol and its labels.

    own: the name of each of our columns as the layer has it
    """

    def __init__(self, result, own):
        super().__init__()
        self._result, self._own = result, own
        _kept.append(self)

    def postProcessLayer(self, layer, context, feedback):
        symbol, label = STYLES[self._result](self._own)
        layer.setRenderer(QgsSingleSymbolRenderer(symbol))
        settings = QgsPalLayerSettings()
        settings.fieldName, settings.isExpression = label, True
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
