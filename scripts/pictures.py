#!/usr/bin/env python3
"""Draws the pictures of docs/division.md and docs/guide/which-line.md: plcalc divides the parcels, and what it writes
is drawn. It draws the folders of docs/guide/maintainers.md from their includes, too.

    pictures.py PLCALC [--check]

PLCALC is the program. With --check nothing is written: the pictures must be those that are there, and the guide must
show with each of them the command that it is drawn from.
"""

import csv
import math
import pathlib
import re
import subprocess
import sys
import tempfile

WIDTH, SIZE = 220, 160    # of a panel; what it draws is SIZE across, at most
ABOVE, BELOW = 30, 50     # what a panel needs above and below the parcel
COLOURS = ["#bcd9c4", "#f3dfa8", "#c9d6ea", "#e3cfe0"]  # of the amounts
REST, LINE, EDGE, ROAD = "#f4f1ea", "#b03a2e", "#333", "#8a8a8a"


class Panel:
    """A parcel, what is asked of it, and what is said beside it. `labels` go from amount to text, `texts` and `dots`
    are places in the parcel's coordinates, and `sides` are numbers of sides to be named."""

    def __init__(self, title, rings, asked, labels=(), texts=(), dots=(), sides=(), road=None, dashed=None):
        self.title, self.rings, self.asked, self.labels = title, rings, asked, list(labels)
        self.texts, self.dots, self.sides, self.road, self.dashed = texts, dots, sides, road, dashed


def rings_in(wkt):
    return [[tuple(map(float, p.split())) for p in ring.split(",")] for ring in re.findall(r"\(([^()]+)\)", wkt)]


def rows_of(path):
    with open(path, encoding="utf-8", newline="") as file:
        return list(csv.DictReader(file))


def divide(program, rings, asked):
    """The pieces, as (amount, rings), and the lines, as (number, ends)."""
    closed = ["(" + ", ".join(f"{x} {y}" for x, y in ring + ring[:1]) + ")" for ring in rings]
    with tempfile.TemporaryDirectory() as scratch:
        lot = pathlib.Path(scratch) / "lot.csv"
        lot.write_text(f'lot,WKT\n1,"POLYGON ({", ".join(closed)})"\n', encoding="utf-8")
        out = pathlib.Path(scratch) / "out.csv"
        subprocess.run([program, "divide", lot, *asked.split(), "-o", out], check=True, stdout=subprocess.DEVNULL)
        pieces = [(int(row["amount"]), rings_in(row["WKT"])) for row in rows_of(out)]
        lines = [(int(row["line"]), rings_in(row["WKT"])[0]) for row in rows_of(out.with_name("out-lines.csv"))]
    return pieces, lines


def is_in(p, rings):
    inside = False
    for ring in rings:
        for a, b in zip(ring, ring[1:] + ring[:1]):
            if (a[1] > p[1]) != (b[1] > p[1]) and p[0] < a[0] + (b[0] - a[0]) * (p[1] - a[1]) / (b[1] - a[1]):
                inside = not inside
    return inside


def distance2(p, a, b):
    dx, dy = b[0] - a[0], b[1] - a[1]
    along = ((p[0] - a[0]) * dx + (p[1] - a[1]) * dy) / ((dx * dx + dy * dy) or 1.0)
    along = min(1.0, max(0.0, along))
    return (p[0] - a[0] - along * dx) ** 2 + (p[1] - a[1] - along * dy) ** 2


def middle(rings):
    """The place in a piece that lies farthest from its boundary, on a grid."""
    xs, ys = zip(*rings[0])
    steps = [(i + 0.5) / 41 for i in range(41)]
    grid = [(min(xs) + u * (max(xs) - min(xs)), min(ys) + v * (max(ys) - min(ys))) for u in steps for v in steps]
    sides = [(a, b) for ring in rings for a, b in zip(ring, ring[1:] + ring[:1])]
    return max((p for p in grid if is_in(p, rings)), key=lambda p: min(distance2(p, a, b) for a, b in sides))


def is_anticlockwise(ring):
    return sum(a[0] * b[1] - b[0] * a[1] for a, b in zip(ring, ring[1:] + ring[:1])) > 0


def extent(ring):
    xs, ys = zip(*ring)
    return max(xs) - min(xs), max(ys) - min(ys)


def scale(ring):
    return SIZE / max(extent(ring))


def height(panel):
    points = panel.rings[0] + list(panel.road or ())
    return ABOVE + BELOW + scale(panel.rings[0]) * extent(points)[1]


class Drawing:
    """SVG in the coordinates of one panel."""

    def __init__(self, left, bottom, ring):
        xs, ys = zip(*ring)
        self.scale = scale(ring)
        self.left = left + (WIDTH - self.scale * (max(xs) - min(xs))) / 2 - self.scale * min(xs)
        self.bottom = bottom - BELOW + self.scale * min(ys)
        self.parts = []

    def at(self, p):
        return f"{self.left + self.scale * p[0]:.1f}", f"{self.bottom - self.scale * p[1]:.1f}"

    def area(self, rings, fill, stroke="none"):
        path = " ".join("M" + " L".join(",".join(self.at(p)) for p in ring) + " Z" for ring in rings)
        self.parts.append(f'<path d="{path}" fill="{fill}" fill-rule="evenodd" stroke="{stroke}" stroke-width="1.5"/>')

    def line(self, a, b, colour=LINE, width=2, more=""):
        (x1, y1), (x2, y2) = self.at(a), self.at(b)
        self.parts.append(f'<line x1="{x1}" y1="{y1}" x2="{x2}" y2="{y2}" stroke="{colour}" stroke-width="{width}"{more}/>')

    def text(self, p, words, more=' text-anchor="middle"', down=4.0):
        x, y = self.at(p)
        self.parts.append(f'<text x="{x}" y="{float(y) + down:.1f}"{more}>{words}</text>')

    def beside(self, a, b, words, turn):
        """The words at the side, on its right for turn 1 and on its left for -1."""
        length = math.hypot(b[0] - a[0], b[1] - a[1])
        right, up = turn * (b[1] - a[1]) / length, turn * (a[0] - b[0]) / length
        middle_of_words = ((a[0] + b[0]) / 2 + 23 * right / self.scale, (a[1] + b[1]) / 2)
        self.text(middle_of_words, words, down=4 - 11 * up)

    def dot(self, p):
        x, y = self.at(p)
        self.parts.append(f'<circle cx="{x}" cy="{y}" r="4" fill="{LINE}"/>')


def drawn(program, panel, left, bottom):
    pieces, lines = divide(program, panel.rings, panel.asked)
    drawing = Drawing(left, bottom, panel.rings[0])
    amounts = max(amount for amount, _ in pieces)
    for amount, rings in pieces:
        is_rest = amount == amounts and len(panel.labels) < amounts
        drawing.area(rings, REST if is_rest else COLOURS[(amount - 1) % len(COLOURS)])
    drawing.area(panel.rings, "none", EDGE)
    if panel.road:
        drawing.line(*panel.road, colour=ROAD, more=' stroke-dasharray="10 4" marker-end="url(#road)"')
    if panel.dashed:
        for _, ends in divide(program, panel.rings, panel.dashed)[1]:
            drawing.line(ends[0], ends[-1], more=' stroke-dasharray="5 4" marker-end="url(#arrow)"')
    for i, (number, ends) in enumerate(lines):
        is_last = i + 1 == len(lines) or lines[i + 1][0] != number
        drawing.line(ends[0], ends[-1], more=' marker-end="url(#arrow)"' if is_last else "")
    for amount, rings in pieces:
        if amount <= len(panel.labels):
            drawing.text(middle(rings), panel.labels[amount - 1])
    for p in panel.dots:
        drawing.dot(p)
    for p, words, anchor in panel.texts:
        drawing.text(p, words, f' text-anchor="{anchor}"')
    ring = panel.rings[0]
    for side in panel.sides:
        a, b = ring[side - 1], ring[side % len(ring)]
        drawing.line(a, b, EDGE, 4)
        drawing.beside(a, b, f"side {side}", 1 if is_anticlockwise(ring) else -1)
    drawing.parts.append(f'<text x="{left + WIDTH / 2:.0f}" y="{bottom - 14:.0f}" text-anchor="middle" '
                         f'font-weight="bold">{panel.title}</text>')
    return drawing.parts


def picture(program, panels, columns=3):
    rows = [panels[i:i + columns] for i in range(0, len(panels), columns)]
    heights = [round(max(map(height, row))) for row in rows]
    wide, high = columns * WIDTH, sum(heights)
    arrow = '<marker id="{}" markerWidth="6" markerHeight="6" refX="6" refY="2.5" orient="auto"><path d="M0,0 L6,2.5 L0,5 z" fill="{}"/></marker>'
    parts = [f'<svg xmlns="http://www.w3.org/2000/svg" width="{wide}" height="{high}" viewBox="0 0 {wide} {high}" '
             'font-family="sans-serif" font-size="12" fill="#222">',
             f'<defs>{arrow.format("arrow", LINE)}{arrow.format("road", ROAD)}</defs>',
             f'<rect width="{wide}" height="{high}" fill="#fff"/>']
    bottom = 0
    for row, row_height in zip(rows, heights):
        bottom += row_height
        for i, panel in enumerate(row):
            parts += drawn(program, panel, i * WIDTH, bottom)
    return "\n".join(parts + ["</svg>"]) + "\n"


FIELD = [(0, 0), (100, 0), (110, 55), (45, 80), (0, 60)]
SQUARE = [(0, 0), (80, 0), (80, 80), (0, 80)]
ELL = [(0, 0), (80, 0), (80, 40), (40, 40), (40, 80), (0, 80)]
GAP = [(0, 0), (100, 0), (100, 70), (65, 70), (65, 25), (35, 25), (35, 70), (0, 70)]
YARD = [(62, 28), (62, 48), (82, 48), (82, 28)]
POND = [(18, 44), (26, 56), (36, 50), (32, 40)]
COMB = [(0, 0), (100, 0), (100, 80), (84, 80), (84, 30), (70, 30), (70, 64), (56, 64), (56, 30), (42, 30), (42, 76), (26, 76),
        (26, 30), (14, 30), (14, 58), (0, 58)]

PICTURES = {
    "lines-of-a-direction.svg": [
        Panel("parallel to a side", [FIELD], "--parallel 1 --area 2500", ["2500"], sides=[1]),
        Panel("at right angles to a side", [FIELD], "--perpendicular 1 --area 2500", ["2500"], sides=[1]),
        Panel("from a vertex", [FIELD], "--vertex 1 --area 2500", ["2500"], dots=[(0, 0)], sides=[1]),
        Panel("at a bearing of 30 gons", [FIELD], "--bearing 30 --area 2500", ["2500"]),
        Panel("along a segment: a road", [FIELD], "--along-segment 20,104,125,62 --area 2500", ["2500"],
              road=((20, 104), (125, 62))),
        Panel("two frontages, then an area", [FIELD], "--perpendicular 1 --areas w25,w20,2400", ["25", "20", "2400"], sides=[1]),
    ],
    "lines-through-points.svg": [
        Panel("from a place", [ELL], "--place 1,16 --area 2320", ["2320"], [((16, -7), "16 along side 1", "middle")], [(16, 0)]),
        Panel("through a point", [SQUARE], "--through 20,20 --area 900", ["900"],
              [((24, 24), "20, 20", "start"), ((76, 66), "the first line,", "end"), ((76, 59), "clockwise from", "end"),
               ((76, 52), "North, and the other", "end")], [(20, 20)], dashed="--through 20,20 --area 900 --alternative 2"),
        Panel("round a point", [SQUARE], "--through 40,40 --areas 1/2,1/8,1/4", ["1/2", "1/8", "1/4", "1/8"], dots=[(40, 40)]),
    ],
    "lines-and-pieces.svg": [
        Panel("two pieces: across a hole", [FIELD, YARD, POND], "--parallel 1 --area 3200", ["3200"], sides=[1]),
        Panel("two pieces: across one arm", [GAP], "--parallel 3 --area 1000", ["1000"], sides=[3]),
        Panel("any number: three equal parts", [COMB, [(44, 8), (44, 20), (60, 20), (60, 8)]],
              "--pieces any --parallel 1 --parts 3", ["1", "2", "3"], sides=[1]),
    ],
}


# The guide's: each of an example's parcel, with the command that stands below it.
CONVEX, CONCAVE = "examples/convex.csv", "examples/concave.csv"
GUIDE = {
    "parallel": (CONVEX, "--parallel 1 --area 4000", {"labels": ["4000"], "sides": [1]}),
    "opposite": (CONVEX, "--parallel 1 --area 4000 --opposite", {"labels": ["4000"], "sides": [1]}),
    "perpendicular": (CONVEX, "--perpendicular 1 --area 4000", {"labels": ["4000"], "sides": [1]}),
    "vertex": (CONVEX, "--vertex 4 --share 1/3", {"labels": ["1/3"], "dots": [(137.30, 82.95)], "sides": [4]}),
    "bearing": (CONVEX, "--bearing 20 --share 1/3", {"labels": ["1/3"]}),
    "along-segment": (CONVEX, "--along-segment 0,140,150,112 --area 4000",
                      {"labels": ["4000"], "road": ((0, 140), (150, 112))}),
    "place": (CONVEX, "--place 1,30 --share 1/3", {"labels": ["1/3"], "dots": [(42.35788, 6.55916)], "sides": [1]}),
    "through": (CONVEX, "--through 50,40 --share 2/5", {"labels": ["2/5"], "dots": [(50, 40)]}),
    "width": (CONVEX, "--perpendicular 1 --areas w20,w20", {"labels": ["20", "20"], "sides": [1]}),
    "parts": (CONVEX, "--parallel 4 --parts 4", {"labels": ["1", "2", "3", "4"], "sides": [4]}),
    "one-arm": (CONCAVE, "--parallel 2 --area 600", {"labels": ["600"], "sides": [2]}),
    "any-pieces": (CONCAVE, "--pieces any --bearing 340 --area 900", {"labels": ["of 900"]}),
}


def guide_pictures(program, source):
    for name, (file, asked, shown) in GUIDE.items():
        ring = rings_in(rows_of(source / file)[0]["WKT"])[0][:-1]
        yield name, f"plcalc divide {file} {asked}", picture(program, [Panel("", [ring], asked, **shown)], columns=1)


# The house: where each folder stands in its row. Its row, and the arrows, come from the includes.
COLUMNS = {"kernel": 1, "plutil": 3, "lines": 1, "arcs": 0, "survey": 2, "subdivision": 2, "plparcel": 2, "python": 0,
           "c": 1, "tools": 2, "web": 3}
UPWARD = ("lines", "arcs")  # the one include that points up: lines/point_line.cpp says why
LIBRARY = ["kernel", "lines", "arcs", "survey", "subdivision"]
INCLUDE = re.compile(r'#include ["<](?:plcalc/([a-z]+)\.h|([a-z]+)/[a-z_]+\.h)[">]')


def included(source, folder):
    """The folders whose headers the folder's sources include."""
    public = source / "include/plcalc" / f"{folder}.h"
    sources = [path for path in (source / folder).rglob("*") if path.suffix in (".cpp", ".h") and "tests" not in path.parts]
    found = set()
    for path in sources + [public] * public.exists():
        for header, room in INCLUDE.findall(path.read_text(encoding="utf-8")):
            named = LIBRARY if header == "plcalc" and folder not in LIBRARY else [header or room]
            # A room of the program or of plparcel may be called like a folder of the library.
            found.update(name for name in named if name in COLUMNS and (header or folder in LIBRARY or name not in LIBRARY))
    return found - {folder}


def house(source):
    below = {folder: included(source, folder) for folder in COLUMNS}
    below[UPWARD[0]].discard(UPWARD[1])

    def reached(folder, seen=()):
        if folder in seen:
            sys.exit(f"the includes go round: {' > '.join([*seen, folder])}")
        return set().union(*({name} | reached(name, (*seen, folder)) for name in below[folder]))

    def row(folder):
        return 1 + max((row(name) for name in below[folder]), default=-1)

    wide, high, top = 150, 76, 5
    at = {folder: (30 + wide * column, 20 + high * (top - row(folder))) for folder, column in COLUMNS.items()}
    parts = [f'<svg xmlns="http://www.w3.org/2000/svg" width="620" height="{high * 6 + 20}" font-family="sans-serif" '
             'font-size="14" text-anchor="middle" fill="#222">',
             '<defs><marker id="arrow" markerWidth="8" markerHeight="6" refX="8" refY="3" orient="auto"><path d="M0,0 L8,3 '
             'L0,6 z" fill="#333"/></marker></defs><rect width="100%" height="100%" fill="#fff"/>']

    def arrow(one, other, more=""):
        down = at[one][1] < at[other][1]
        (x1, y1), (x2, y2) = at[one], at[other]
        parts.append(f'<line x1="{x1 + 50}" y1="{y1 + 36 * down}" x2="{x2 + 50 - 30 * (not down)}" y2="{y2 + 36 * (not down)}" '
                     f'stroke="#333" marker-end="url(#arrow)"{more}/>')

    for folder in COLUMNS:
        for name in sorted(below[folder]):
            if not any(name in reached(other) for other in below[folder]):
                arrow(folder, name)
    arrow(*UPWARD, ' stroke-dasharray="5 4"')
    for folder, (x, y) in at.items():
        parts.append(f'<rect x="{x}" y="{y}" width="100" height="36" rx="4" fill="{COLOURS[0] if folder in LIBRARY else REST}" '
                     f'stroke="#333"/><text x="{x + 50}" y="{y + 23}">{folder}</text>')
    return "\n".join(parts + ["</svg>"]) + "\n"


def main():
    if sys.argv[2:] not in ([], ["--check"]) or len(sys.argv) < 2:
        sys.exit(__doc__)
    source = pathlib.Path(__file__).resolve().parent.parent
    drawn = {source / "docs" / name: picture(sys.argv[1], panels) for name, panels in PICTURES.items()}
    page, wrong = (source / "docs/guide/which-line.md").read_text(encoding="utf-8"), []
    for name, command, text in guide_pictures(sys.argv[1], source):
        drawn[source / "docs/guide/lines" / f"{name}.svg"] = text
        if not re.search(rf"\(lines/{name}\.svg\)\n\n```sh\n{re.escape(command)}\n", page):
            wrong.append(f"which-line.md does not show {name}.svg with '{command}' below it")
    drawn[source / "docs/guide/house.svg"] = house(source)
    for path, text in drawn.items():
        if not sys.argv[2:]:
            path.write_text(text, encoding="utf-8")
        elif not path.exists() or path.read_text(encoding="utf-8") != text:
            wrong.append(f"{path}: the program's answer looks different; run scripts/pictures.py")
    if wrong:
        sys.exit("\n".join(wrong))


main()
