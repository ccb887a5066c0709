"""Every line of the page and of the doc strings does what it says."""

import doctest
import pathlib

import plcalc

PAGE = pathlib.Path(__file__).resolve().parents[2] / "docs/python.md"


def test_page():
    text = PAGE.read_text(encoding="utf-8").replace("```", "")
    test = doctest.DocTestParser().get_doctest(text, {}, "docs/python.md", str(PAGE), 0)
    result = doctest.DocTestRunner().run(test)
    assert result.failed == 0 and result.attempted > 15


def test_doc_strings():
    result = doctest.testmod(plcalc)
    assert result.failed == 0 and result.attempted > 2
