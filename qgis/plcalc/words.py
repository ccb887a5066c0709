"""The words that people see, in their language."""

import os

from qgis.core import QgsApplication
from qgis.PyQt.QtCore import QCoreApplication, QTranslator

_translator = None


def tr(text):
    return QCoreApplication.translate("plcalc", text)


def marked(text):
    """A text that is translated where it is shown."""
    return text


def load():
    """Loads the language of QGIS, if it is there."""
    global _translator
    if _translator is None:
        _translator = QTranslator()
        if _translator.load(f"plcalc_{QgsApplication.locale()[:2]}", os.path.join(os.path.dirname(__file__), "i18n")):
            QCoreApplication.installTranslator(_translator)
