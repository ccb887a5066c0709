#!/usr/bin/env python3
"""Brings the texts of the plug-in into a translation: qgis/i18n/texts.py qgis/i18n/plcalc_de.ts.

Texts are what stands in tr() and marked(), and the help of the algorithms. What is translated already stays; a text that is
gone goes. A file that is not there yet begins empty, for a new language.
"""

import ast
import inspect
import pathlib
import sys
import xml.etree.ElementTree as xml

SOURCES = pathlib.Path(__file__).resolve().parent.parent / "plcalc"


def assigned(node):
    """The names that a class gives values, with them."""
    return {line.targets[0].id: line.value for line in node.body if isinstance(line, ast.Assign)}


def texts_of(tree):
    for node in ast.walk(tree):
        if isinstance(node, ast.Call) and getattr(node.func, "id", None) in ("tr", "marked"):
            if node.args and isinstance(node.args[0], ast.Constant):
                yield node.args[0].value
        elif isinstance(node, ast.ClassDef):
            # An algorithm has a title; what they have in common has an empty one.
            if isinstance(assigned(node).get("TITLE"), ast.Call):
                yield inspect.cleandoc(ast.get_docstring(node, clean=False))


def all_texts():
    """Each text once, in the order of the files."""
    files = sorted(SOURCES.rglob("*.py"))
    return list(dict.fromkeys(text for file in files for text in texts_of(ast.parse(file.read_text(encoding="utf-8")))))


def translations(path):
    """What each text is in the language of a file; texts that are not translated are left out."""
    if not path.exists():
        return {}
    messages = xml.parse(path).iter("message")
    found = {message.findtext("source"): message.find("translation") for message in messages}
    return {text: told.text for text, told in found.items() if told.text and told.get("type") != "unfinished"}


def write(path):
    known = translations(path)
    root = xml.Element("TS", version="2.1", language=path.stem.partition("_")[2], sourcelanguage="en")
    context = xml.SubElement(root, "context")
    xml.SubElement(context, "name").text = "plcalc"
    for text in all_texts():
        message = xml.SubElement(context, "message")
        xml.SubElement(message, "source").text = text
        told = xml.SubElement(message, "translation")
        if text in known:
            told.text = known[text]
        else:
            told.set("type", "unfinished")
    xml.indent(root, " ")
    path.write_text('<?xml version="1.0" encoding="utf-8"?>\n<!DOCTYPE TS>\n' + xml.tostring(root, encoding="unicode") + "\n",
                    encoding="utf-8")


if __name__ == "__main__":
    for name in sys.argv[1:]:
        write(pathlib.Path(name))
