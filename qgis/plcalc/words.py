"""The words that people see, in their language."""

from qgis.PyQt.QtCore import QCoreApplication


def tr(text):
    return QCoreApplication.translate("plcalc", text)
