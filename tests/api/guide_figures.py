#!/usr/bin/env python3
"""guide_figures.py SOURCE ACCURACY: figures in the guide's sentences are those of the files in which they are measured,
and those of docs/accuracy.md are what its program ACCURACY prints.

Sines and cosines of another C library may choose other cases, so what is typical may differ by a twentieth, what is the
largest by a half, and counts as such counts do.
"""

import decimal
import math
import pathlib
import re
import subprocess
import sys

NUMBER = re.compile(r"(?<![\w.])\d+(?:\.\d+)?(?:e[-+]\d+)?(?![\w.])")
FEW = 30  # rows of fewer cases come and go


def tables(text):
    """{(title, first columns): numbers} of each row below a heading of the third level."""
    found = {}
    for section in re.split(r"^### ", text, flags=re.MULTILINE)[1:]:
        title, _, rest = section.partition("\n")
        for row in re.findall(r"^\| (.*) \|$", rest, re.MULTILINE)[2:]:
            cells = row.split(" | ")
            figures = [cell for cell in cells[1:] if re.fullmatch(r"[-+.e\d]+( / [-+.e\d]+)?|none", cell)]
            key = (title, *(cell for cell in cells if cell is cells[0] or cell not in figures))
            found[key] = [float(number) for cell in figures for number in NUMBER.findall(cell)]
    return found


def alike(title, said, measured):
    if "percent" in title:
        return abs(said - measured) <= 1.0
    if "error" in title.lower():
        return math.isclose(said, measured, rel_tol=0.5)
    return abs(said - measured) <= max(0.05 * max(said, measured), 4 * math.sqrt(max(said, measured))) \
        or math.isclose(said, measured, rel_tol=0.5)


def wrong_tables(said, measured):
    for key in sorted(said.keys() | measured.keys()):
        if "Why" in key[0] and max(said.get(key, []) + measured.get(key, [])) < FEW:
            continue
        if key not in said or key not in measured:
            yield f"accuracy.md: {key} is {'not measured' if key in said else 'missing'}"
        elif len(said[key]) != len(measured[key]) or not all(alike(key[0], *pair) for pair in zip(said[key], measured[key])):
            yield f"accuracy.md: {key}: {said[key]} on the page, {measured[key]} measured"


def one_digit(value):
    """Rounded up to one digit, as in 'up to'."""
    exact = decimal.Decimal(repr(value))
    return exact.quantize(decimal.Decimal((0, (1,), exact.adjusted())), rounding=decimal.ROUND_UP).normalize()


def short(value):
    digit, _, power = f"{one_digit(value):e}".partition("e")
    return f"{digit.split('.')[0]}e{int(power)}"


def sentences(source, measured):
    """(page, what stands there) with the figures of today."""
    def read(name):
        return (source / name).read_text(encoding="utf-8")

    sizes = {key[1]: row for key, row in measured.items() if key[0].startswith("Errors by coordinate size")}
    sides = {key[1]: row for key, row in measured.items() if key[0].startswith("Errors by length")}

    def largest(name, site):
        """The largest error of the rows that name the function, at a local origin or at the grid."""
        rows = [row for key, row in sizes.items() if f"`{name}`" in key and not key.startswith("foot")]
        return max(row[3 if site else 5] for row in rows)

    by_equations = ("PlFunz_intersect_ile", "CalcoloIntersezioneRette", "PlFunz_intersect_ils")
    beside = next(row for key, row in sides.items() if "CalcDistPuntoDaRetta" in key)[3]
    areas = next(row for key, row in measured.items() if key[0].startswith("Errors of `Area") and "UTM, 1000" in key[1])
    level = next(row for key, row in measured.items() if key[0] == "Points in polygons" and "off the point" in key[1]
                 and key[1].startswith("UTM"))[-1]
    first = "docs/guide/README.md"
    yield first, f"where two lines of about 100 meet, by their equations | {max(one_digit(largest(n, False)) for n in by_equations):f} |"
    yield first, f"as `PlFunz_intersect_ls` does | {one_digit(largest('PlFunz_intersect_ls', False)):f} |"
    yield first, f"off the sides of 10 on which they should lie | {one_digit(beside):f} |"
    yield first, f"area of a ring 1,000 across, square units | {decimal.Decimal(repr(areas[1])):f} |"
    yield first, f"the height in which a point counts as level with a corner | {level:.1f} |"
    yield first, f"about 2.5e12, where doubles are {one_digit(math.ulp(2.5e12)):f} apart"
    yield "docs/accuracy.md", f"c is about 2.5e12, where neighbouring doubles are {short(math.ulp(2.5e12))} apart"

    tasks = "docs/guide/tasks.md"
    for name in ("PlFunz_intersect_ls", "CalcoloIntersezioneRetteExt", *by_equations):
        row = next(line for line in read(tasks).splitlines() if line.startswith(f"| `{name}` | "))
        yield tasks, row.rsplit(" | ", 2)[0] + f" | {short(largest(name, True))} | {short(largest(name, False))} |"
    lines = ("DistSegmDaPt", "PlFunz_distpntln_ls", "CalcDistPuntoDaRetta")
    yield tasks, (f"off by up to {short(max(largest(name, False) for name in lines))} in the same cases, "
                  f"and by {short(max(largest(name, True) for name in lines))} at the origin")

    yield "include/plcalc/lines.h", (
        f"the point was up to {max(map(short, (largest(n, False) for n in by_equations)))} off at 5e5 East, 5e6 North, and up "
        f"to {max(map(short, (largest(n, True) for n in by_equations)))} at a local origin")
    yield "include/plcalc/lines.h", (f"up to {short(largest('PlFunz_distpntln_ls', False))} off at 5e5 East, 5e6 North, and up "
                                     f"to {short(largest('PlFunz_distpntln_ls', True))} at a local origin")
    yield "include/plcalc/subdivision.h", f"lie up to {short(beside)} off the boundary with sides of 10"

    grid = "docs/guide/coordinates.md"
    yield grid, f"neighbouring doubles are {math.ulp(1e12):.4f} and more apart"
    edge = math.radians(3)  # of a zone, at the equator: the series of the scale factor to the fourth power
    e2 = 0.00669438 / (1 - 0.00669438)
    scale = 0.9996 * (1 + edge**2 / 2 * (1 + e2) + edge**4 / 24 * 5)
    yield grid, f"a length of 100 metres on the ground is between {100 * 0.9996:.2f} and {100 * scale:.2f}"
    yield "docs/guide/refused.md", f"At 5,000,000 neighbouring doubles are about {one_digit(math.ulp(5e6)):f} apart"

    small = "docs/guide/small-devices.md"
    size = sum(int(n) for n in re.findall(r"^\| libpl(?:calc|util) \| (\d+) \|$", read("docs/footprint.md"), re.MULTILINE))
    yield small, f"together they are about {round(size / 1e4) * 10} kB on ARMv5"
    cost = {name: int(n) for name, n in re.findall(r'\{"([a-z/. ]+)", (\d+)\}', read("bench/softfloat/counters.cpp"))}
    yield small, (f"{cost['add']} for an addition, {cost['mul']} for a multiplication, {cost['div']} for a division, "
                  f"{cost['atan']} for an arctangent")
    calls = {line[:27].strip(): int(line.split()[-1]) for line in read("bench/softfloat/table.txt").splitlines()[1:]}
    cut, meet = calls["convex, mode 0, n = 16"], calls["segment intersection"]
    yield small, (f"makes about {round(1e8 / cut, -2):,.0f} parallel cuts of a parcel with 16 vertices in that time, "
                  f"or {round(1e8 / meet, -3):,.0f} intersections")
    numerals = {5: "five", 9: "nine"}
    yield small, (f"a polar set-out costs nearly {numerals[math.ceil(calls['polar set-out, gons'] / meet)]} times as much as "
                  f"an intersection, a right-angle offset nearly {numerals[math.ceil(calls['right-angle offset'] / meet)]} times")
    ring = re.search(r"constexpr int kSmallRing = (\d+);", read("survey/polygon_measures.cpp")).group(1)
    yield small, f"The area keeps rings of up to {ring} vertices on the stack"

    vectors = [path for path in (source / "tests/golden").glob("*.txt") if path.name != "CMakeLists.txt"]
    golden = sum(len(re.findall(r"^[^#\n].* =", path.read_text(encoding="utf-8"), re.MULTILINE)) for path in vectors)
    yield "docs/guide/maintainers.md", f"{golden:,} golden vectors are replayed on every target"
    yield "README.md", f"replays {golden:,} results on each"


def main():
    source, accuracy = map(pathlib.Path, sys.argv[1:])
    printed = subprocess.run([accuracy, "20261121", "10000"], capture_output=True, text=True, check=True).stdout
    said = tables((source / "docs/accuracy.md").read_text(encoding="utf-8"))
    wrong = [*wrong_tables(said, tables(printed))]
    checked = 0
    for page, sentence in sentences(source, said):
        checked += 1
        text = re.sub(r"^ *///", "", (source / page).read_text(encoding="utf-8"), flags=re.MULTILINE)
        if sentence not in " ".join(text.split()):
            wrong.append(f"{page} does not say: {sentence}")
    print(f"{len(said)} rows of accuracy.md, {checked} sentences")
    if len(said) < 100:
        wrong.append("accuracy.md has lost its tables")
    if wrong:
        sys.exit("\n".join(wrong))


main()
