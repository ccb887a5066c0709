"""Every line of the pages and of the doc strings does what it says."""

import doctest
import pathlib
import re

import plcalc
import pytest

DOCS = pathlib.Path(__file__).resolve().parents[2] / "docs"


@pytest.mark.parametrize("page, calls", [("python.md", 16), ("guide/your-first-cut.md", 4), ("guide/worked-examples.md", 57)])
def test_page(page, calls):
    text = (DOCS / page).read_text(encoding="utf-8")
    snippets = "\n".join(re.findall(r"^```python\n(.*?)^```$", text, re.DOTALL | re.MULTILINE))
    test = doctest.DocTestParser().get_doctest(snippets, {}, page, page, 0)
    result = doctest.DocTestRunner().run(test)
    assert result.failed == 0 and result.attempted >= calls


def test_doc_strings():
    result = doctest.testmod(plcalc)
    assert result.failed == 0 and result.attempted > 2
