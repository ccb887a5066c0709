"""The whole library under its own names: complete, documented, and the same bits."""

import copy
import math
import pickle
import pathlib
import re
import sys

import numpy
import pytest

from plcalc import core, plparcel

SOURCE = pathlib.Path(__file__).resolve().parents[2]
GOLDEN = SOURCE / "tests/golden"
sys.path.insert(0, str(GOLDEN))
sys.dont_write_bytecode = True

from reference import calls, tolerance, wire  # noqa: E402

RECORDS = {"p": core.PL_PNT2D_record, "q": core.PL_PNT3D_record, "l": core.PL_IMP_LINE_2D_record,
           "s": core.PL_LINE_2D_record, "r": core.PL_RECT_2D_record, "R": core.PL_RECT_3D_record,
           "a": core.ARC_2D_record}
IN_PLACE = {"PlFunz_pntangledist/inplace": 1, "PlFunz_transformpnt2d/inplace": 1, "PlFunz_linepntparallel/inplace": 1}
CHANGED = {"PlFunz_getidmatrix2d": [0], "PlFunz_rotationmatrix2d": [2], "PlFunz_translatematrix2d": [2],
           "PlFunz_scalematrix2d": [3], "PlFunz_normal_ile": [0], "CimaSegm": [0, 1, 2, 3]}


def exported(library):
    """The names of a list of symbols, without private members."""
    lines = (SOURCE / f"tests/api/{library}_symbols.txt").read_text().splitlines()
    return {re.sub(r"^plparcel::", "", line.split("(")[0]) for line in lines}


# Keeps points in a file by functions of the caller's. In Python they are in memory, and the constructor answers the same.
KEPT_IN_MEMORY = {"SharedSides::in_file"}


def test_every_function_is_there():
    private = set(re.findall(r"^    (?:void|bool|double) (\w+)\(", (SOURCE / "include/plcalc/subdivision.h").read_text()
                             .split("private:")[1], re.M))
    for module, library in ((core, "plcalc"), (core, "plutil"), (plparcel, "plparcel")):
        for name in exported(library):
            if "~" in name or "operator" in name or name.split("::")[-1] in private or name in KEPT_IN_MEMORY:
                continue
            at = module
            for part in name.split("::"):
                if at is not module and part == at.__name__:
                    break  # a constructor
                assert hasattr(at, part), name
                at = getattr(at, part)


def test_every_function_has_its_contract():
    for name in exported("plcalc") | exported("plutil"):
        if "::" not in name:
            text = getattr(core, name).__doc__
            assert len(text.splitlines()) > 2 and "@" not in text, name
    assert "Tolerance   PL_EPS" in core.PlFunz_samepnt.__doc__
    assert "gons, clockwise from North" in plparcel.Line.bearing.__doc__


@pytest.mark.parametrize("kind, header", [("Status", "division"), ("BoundaryStatus", "boundary"), ("Cut", "line"),
                                          ("Given", "division"), ("Measured", "division"), ("Pieces", "division")])
def test_kinds_are_those_of_the_headers(kind, header):
    text = (SOURCE / f"plparcel/include/plparcel/{header}.h").read_text()
    body = re.search(rf"enum class {kind} {{(.*?)}};", text, re.S)[1]
    names = [word for line in body.splitlines() for word in re.findall(r"(\w+)(?: = \d+)?,?", line.split("//")[0])
             if not word.isdigit()]
    assert [*getattr(plparcel, kind).__members__] == names
    assert [int(value) for value in getattr(plparcel, kind).__members__.values()] == [*range(len(names))]


def made(letter, value):
    if letter == "P":
        return numpy.array(value, dtype=float).reshape(-1, 2)
    if letter == "m":
        return numpy.array(value, dtype=float).reshape(3, 3)
    return RECORDS[letter](*value) if letter in RECORDS else value


def flat(value):
    if isinstance(value, numpy.ndarray):
        return value.ravel().tolist()
    if isinstance(value, tuple(RECORDS.values())):
        return [number for field in value for number in flat(field)]
    if isinstance(value, (tuple, list)):
        return [number for each in value for number in flat(each)]
    return [] if value is None else [value]


def unwritten(name):
    """The outputs that a function of the headers takes by name, each holding what was never written."""
    function = getattr(core, name)
    outputs = {}
    for output, kind in re.findall(r"(\w+): plcalc\._plcalc\.core\.(\w+) = None", function.__doc__):
        letter = next(each for each, record in RECORDS.items() if record.__name__ == kind)
        fields = ((calls.SENTINEL,) * 2, calls.SENTINEL, calls.INT_SENTINEL, calls.SENTINEL, calls.SENTINEL)
        points = ((calls.SENTINEL,) * 2,) * 2
        outputs[output] = made(letter, {"a": fields, "s": points}.get(letter, (calls.SENTINEL,) *
                                                                         wire.SIZES.get(letter, 0)))
    return outputs


def replayed(name, operands):
    if name.startswith("CFrazArea"):
        cut = core.CFrazArea(*operands)
        first = cut.Esegui()
        if name == "CFrazArea":
            return first
        again = copy.copy(cut) if name.endswith("/copy") else cut
        del cut
        return [first, again.Esegui()]
    plain, _, variant = name.partition("/")
    outputs = {} if variant in ("xy",) else unwritten(plain)
    if name in IN_PLACE:
        outputs = {"out": operands[IN_PLACE[name]]}
    if plain == "PlFunz_inpolygon":
        return core.PlFunz_inpolygon(*operands)
    result = getattr(core, plain)(*operands, **outputs)
    return [result, [operands[i] for i in CHANGED.get(plain, [])]]


def same(letter, got, wanted):
    if letter in "ib":
        return int(got) == wanted
    if math.isnan(wanted) or math.isnan(got):
        # A double that was never written comes back as NaN.
        return math.isnan(got) and (math.isnan(wanted) or wanted == calls.SENTINEL)
    return got == wanted and math.copysign(1.0, got) == math.copysign(1.0, wanted)


@pytest.mark.parametrize("family", calls.FAMILIES)
def test_golden_vectors(family):
    lines = identical = 0
    for text in (GOLDEN / f"{family}.txt").read_text().splitlines():
        line = wire.parse(text)
        if not line or line.name == "PlFunz_set_arc_2d/null":  # there are no null records in Python
            continue
        call = calls.CALLS[line.name]
        values = wire.read_operands(call.operands, line.operands)
        operands = [made(letter, value) for letter, value in zip(call.operands, values)]
        got = flat(replayed(line.name, operands))
        leaves = wire.flatten(call.operands, values)
        wanted = wire.flatten(call.results, wire.read_operands(call.results, line.results))
        letters, numbers = [letter for letter, _ in wanted], [number for _, number in wanted]
        assert len(got) == len(numbers), text
        exact = all(map(same, letters, got, numbers))
        if not exact:
            assert line.platform, f"{text}\ngot {got}"
            scale = tolerance.scale_of(leaves)
            assert all(tolerance.agree(line.name, *each, scale) for each in zip(letters, got, numbers)), text
        lines += 1
        identical += exact
    print(f"{family}: {lines} lines, {identical} identical")
    assert lines > 900
    assert identical >= 0.99 * lines


@pytest.mark.parametrize("points", [
    [(0, 0), (100, 0), (100, 50), (0, 50)],
    ((0.0, 0.0, 7.0), (100.0, 0.0, 7.0), (100.0, 50.0, 7.0), (0.0, 50.0, 7.0)),
    numpy.array([(0, 0), (100, 0), (100, 50), (0, 50)], dtype=numpy.float32),
    numpy.array([(0, 0), (100, 0), (100, 50), (0, 50)], dtype=int),
    numpy.array([(0.0, 100, 100, 0), (0, 0, 50, 50)]).T,
    numpy.array([(0.0, 0), (1, 1), (100, 0), (2, 2), (100, 50), (3, 3), (0, 50), (4, 4)])[::2],
])
def test_points_come_as_any_array_or_list(points):
    cut = core.CFrazArea(points, (0, 0), (100, 0), 0, 1, 1000.0)
    done, x1, y1, _, x2, y2, _ = cut.Esegui()
    assert done and (x1, y1, x2, y2) == pytest.approx((100, 10, 0, 10), abs=1e-4)


@pytest.mark.parametrize("points", ["abc", [(0, 0), (1,)], [1, 2, 3], 5, None, {"a": 1}])
def test_what_is_no_points_is_refused(points):
    with pytest.raises((TypeError, ValueError)):
        core.CFrazArea(points, (0, 0), (100, 0), 0, 1, 1000.0)


@pytest.mark.parametrize("record", [
    core.PL_PNT2D_record(1, 2), core.PL_PNT3D_record(1, 2, 3), core.PL_LINE_2D_record((1, 2), (3, 4)),
    core.PL_IMP_LINE_2D_record(1, 2, 3), core.PL_RECT_2D_record(1, 2, 3, 4), core.PL_RECT_3D_record(1, 2, 3, 4, 5, 6),
    core.ARC_2D_record((1, 2), 3, core.PL_DEGREES, 4, 5),
])
def test_records_go_to_other_processes(record):
    again = pickle.loads(pickle.dumps(record))
    assert again == record and type(again) is type(record)
