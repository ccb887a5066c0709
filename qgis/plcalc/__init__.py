"""plcalc in QGIS: what computes is the Python package of that name, or the program."""


def classFactory(iface):  # the name that QGIS asks for
    from . import words
    from .plugin import Plugin

    words.load()

    return Plugin(iface)
