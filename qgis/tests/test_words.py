"""Translations and help texts."""

import pathlib
import re
import sys
import unittest
from unittest import mock

import session
from qgis.core import QgsApplication
from qgis.PyQt.QtCore import QCoreApplication, QUrl
from qgis.PyQt.QtGui import QImage

QGIS = pathlib.Path(__file__).resolve().parent.parent
sys.path.insert(0, str(QGIS / "i18n"))

import texts  # noqa: E402


def setUpModule():
    session.start()


def places(text):
    """What is put into a text, with its format."""
    return sorted(re.findall(r"{[^}]*}", text))


class Translations(unittest.TestCase):
    def test_every_text_is_translated_and_none_is_stale(self):
        wanted = texts.all_texts()
        self.assertGreater(len(wanted), 100)
        files = sorted((QGIS / "i18n").glob("*.ts"))
        self.assertTrue(files)
        for file in files:
            told = texts.translations(file)
            self.assertEqual(sorted(told), sorted(wanted), f"run qgis/i18n/texts.py {file}, and translate what is new")
            for text, translation in told.items():
                self.assertEqual(places(text), places(translation), text)

    def test_the_language_of_qgis(self):
        from plcalc_qgis import words

        self.assertEqual(words.tr("Divide parcels"), "Divide parcels")
        self.addCleanup(setattr, words, "_translator", words._translator)
        words._translator = None
        with mock.patch.object(words, "QgsApplication") as application:
            application.locale.return_value = "de_AT"
            words.load()
        self.addCleanup(QCoreApplication.removeTranslator, words._translator)
        algorithm = QgsApplication.processingRegistry().createAlgorithmById("plcalc:divide")
        self.assertEqual(algorithm.displayName(), "Grundstücke teilen")
        self.assertIn("Teilt jedes Grundstück", algorithm.shortHelpString())
        self.assertEqual(algorithm.parameterDefinition("LINE").options()[0], "parallel zu einer Seite")


class Help(unittest.TestCase):
    def test_pictures_and_paragraphs(self):
        help_text = QgsApplication.processingRegistry().createAlgorithmById("plcalc:divide").shortHelpString()
        self.assertIn("from a vertex, at a bearing or through a point. The side or the vertex has", help_text)
        pictures = re.findall(r'<img src="([^"]*)"', help_text)
        self.assertEqual(len(pictures), 7)
        for picture in pictures:
            self.assertEqual(QImage(QUrl(picture).toLocalFile()).width(), 220, picture)


if __name__ == "__main__":
    unittest.main()
