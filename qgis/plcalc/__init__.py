"""plcalc in QGIS: processing algorithms on the Python package of the same name."""


def classFactory(iface):  # the name that QGIS asks for
    from .plugin import Plugin

    return Plugin(iface)
