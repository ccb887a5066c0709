#!/usr/bin/env python3
"""stubs.py FOLDER: writes core.pyi and plparcel.pyi beside the built package in FOLDER, from its own signatures."""

import pathlib
import re
import sys

FOLDER = pathlib.Path(sys.argv[1])
sys.path.insert(0, str(FOLDER.parent))

from plcalc import _plcalc  # noqa: E402

ARRAY = re.compile(r"numpy\.ndarray\[numpy\.float64(?:, [\w. ]+)?\]")
DEFAULT = re.compile(r" = <[^>]*>| = plcalc\._plcalc\.[\w.]+")


def typed(text):
    text = ARRAY.sub("numpy.typing.NDArray[numpy.float64]", DEFAULT.sub(" = ...", text))
    text = re.sub(r"plcalc\._plcalc\.(?:core|plparcel)\.(\w+)", r"\1", text)
    text = re.sub(r"plcalc\._plcalc\.(\w+)", r"\1", text)
    text = re.sub(r"(\w+): (PL_\w+|ARC_\w+|CPoint3dVector)(?= = None)", r"\1: Optional[\2]", text)
    for record in ("PL_PNT2D_record", "PL_LINE_2D_record", "PL_IMP_LINE_2D_record", "ARC_2D_record"):
        text = re.sub(rf"(\w+): {record}(?=[,)])", rf"\1: Union[{record}, Sequence[Any]]", text)
    text = re.sub(r": CPoint3dVector(?=[,)])", ": Union[CPoint3dVector, numpy.typing.ArrayLike]", text)
    text = re.sub(r"\bself: (?:Union\[.*?\]\]|Union\[\w+, numpy\.typing\.ArrayLike\]|\w+)(?=[,)])", "self", text)
    text = re.sub(r"\bIterator\b(?!\[)", "Iterator[Any]", text)
    text = re.sub(r"\bsequence\b", "Sequence[Any]", re.sub(r"\b(?:handle|object)\b", "Any", text))
    return re.sub(r"^\(arg0\b(?:: \w+)?", "(self", text) if text.startswith("(arg0") else text


def signatures(function):
    """Each overload: (arguments) -> result."""
    name, doc = function.__name__, function.__doc__ or ""
    found = re.findall(rf"^(?:\d+\. )?{re.escape(name)}(\(.*\) -> .+)$", doc, re.M)
    return [typed(signature) for signature in found] or [
        "(self, *args: Any, **kwargs: Any) -> None" if name == "__init__" else "(*args: Any, **kwargs: Any) -> Any"]


def functions(name, function, indent=""):
    overloads = signatures(function)
    for signature in overloads:
        if len(overloads) > 1:
            yield f"{indent}@overload"
        yield f"{indent}def {name}{signature}: ..."


def classes(name, kind):
    yield f"class {name}:"
    empty = True
    members = getattr(kind, "__members__", {})
    for member in members:
        empty = False
        yield f"    {member}: ClassVar[{name}]"
    if members:
        yield "    name: str"
        yield "    value: int"
    for attribute, value in sorted(vars(kind).items()):
        if attribute in members or attribute in ("name", "value", "__members__", "__doc__"):
            continue
        if isinstance(value, property):
            result = re.search(r"-> (.+)", getattr(value.fget, "__doc__", None) or "")
            yield "    @property"
            yield f"    def {attribute}(self) -> {typed(result[1]) if result else 'Any'}: ..."
            if value.fset:
                yield f"    @{attribute}.setter"
                yield f"    def {attribute}(self, value: Any) -> None: ..."
            empty = False
        elif callable(value) and (not attribute.startswith("_") or attribute in ("__init__", "__iter__", "__len__")) \
                and not members:
            if attribute == "__init__" and "Initialize self" in (value.__doc__ or ""):
                continue  # an answer, which is not made in Python
            yield from functions(attribute, value, "    ")
            empty = False
    if empty:
        yield "    ..."


def stub(module, imports):
    lines = ["# Made by stubs.py from the built package.",
             "from typing import Any, ClassVar, Iterator, List, Optional, Sequence, Tuple, Union, overload",
             "import numpy", "import numpy.typing", *imports, ""]
    for name, value in sorted(vars(module).items(), key=lambda item: (not isinstance(item[1], type), item[0])):
        if name.startswith("_"):
            continue
        if isinstance(value, type):
            lines += [*classes(name, value), ""]
        elif callable(value):
            lines += functions(name, value)
        else:
            lines.append(f"{name}: {type(value).__name__}")
    text = "\n".join(lines) + "\n"
    return text


(FOLDER / "core.pyi").write_text(stub(_plcalc.core, []), encoding="utf-8")
records = ["from .core import PL_PNT2D_record, PL_LINE_2D_record, PL_IMP_LINE_2D_record, PL_RECT_2D_record"]
(FOLDER / "plparcel.pyi").write_text(stub(_plcalc.plparcel, records), encoding="utf-8")
