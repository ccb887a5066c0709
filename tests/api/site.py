#!/usr/bin/env python3
"""site.py SOURCE HTML: what the target `docs` has made leads where it says, and finds what people type.

SOURCE is the folder of the sources, HTML that of the pages. The search of the pages compares what is typed with the first
letters of each title, so that is what is asked here. Other versions of Doxygen name pages and keep the search in other ways:
of theirs the links are checked.
"""

import html
import pathlib
import re
import subprocess
import sys
import urllib.parse

import site_text

# What people type, and what they must find among the pages that are offered or on one of them: a function, or a page.
WORDS = {
    "angle": "PlFunz_arcangle", "arc": "PlFunz_arc_3pnts", "area": "AreaCalcolata", "azimuth": "AngoloDaAsseRifer",
    "bearing": "AngoloDaAsseRifer", "box": "CalcoloBdry", "circle": "PlFunz_arc_3pnts", "cut": "CFrazArea",
    "decimals": "rounded_to", "direction": "AngoloDaAsseRifer", "distance": "PlFunz_distance", "divide": "divide",
    "elevation": "CalcoloQuotaSuSegmento", "foot": "DistSegmDaPt", "gon": "LimiteAng0_400", "height": "CalcoloQuotaSuSegmento",
    "inside": "PlFunz_inpolygon", "intersect": "PlFunz_intersect_ls", "length": "PlFunz_distance",
    "line": "PlFunz_lineeq_ile", "matrix": "PlFunz_getidmatrix2d", "neighbour": "new_points", "offset": "CalcPtSquadro",
    "parallel": "PlFunz_linepntparallel", "perimeter": "PeriCalcolato", "perpendicular": "PlFunz_linepntperpend",
    "point": "PlFunz_set_pnt_2d", "polar": "CalcPtAngDist", "polygon": "PlFunz_inpolygon", "project": "DistSegmDaPt",
    "radius": "PlFunz_arc_3pnts", "rotat": "PlFunz_rotationmatrix2d", "round": "rounded_to",
    "scale": "PlFunz_scalematrix2d", "segment": "CalcPtAtDistSuSegm", "set out": "CalcPtAngDist", "split": "divide",
    "stake": "CalcPtSquadro", "subdivision": "CFrazArea", "tolerance": "TrovatoValNeiLimiti", "transform": "TrasfPt",
    "translate": "PlFunz_translatematrix2d", "traverse": "CalcCoordEst", "trim": "CimaSegm", "zero": "NumeroEstZero",

    "anticlockwise": "AreaCalcolataSgn", "c#": "c.md", "center": "PlFunz_arc_3pnts", "clockwise": "AreaCalcolataSgn",
    "cmake": "packages.md#as-a-part-of-another-project", "conan": "packages.md", "corner": "through_vertex", "cross": "packages.md#cross-builds",
    "crs": "guide/coordinates.md#which-crs", "csv": "guide/layers.md#what-it-reads-and-writes", "cut off": "divide",
    "debian": "packages.md", "dxf": "guide/layers.md#what-it-reads-and-writes", "easting": "CalcCoordEst",
    "equal parts": "divide", "error": "guide/refused.md", "exit status": "guide/layers.md#exit-status",
    "fetchcontent": "packages.md#as-a-part-of-another-project", "first cut": "guide/your-first-cut.md",
    "frontage": "guide/which-line.md#by-width-or-frontage", "gap": "new_points", "geojson": "guide/layers.md#what-it-reads-and-writes",
    "geopackage": "guide/layers.md#what-it-reads-and-writes", "getting started": "guide/your-first-cut.md",
    "glossary": "guide/names.md", "grad": "LimiteAng0_400", "grid": "index.html#the-rule-of-the-local-origin",
    "hectare": "guide/coordinates.md#hectares-and-acres", "acre": "guide/coordinates.md#hectares-and-acres", "halve": "divide",
    "hole": "check_parcel", "install": "packages.md", "interpolate": "CalcoloQuotaSuSegmento", "java": "c.md",
    "landxml": "guide/layers.md#what-it-reads-and-writes", "licence": "packages.md", "license": "packages.md",
    "local origin": "index.html#the-rule-of-the-local-origin", "midpoint": "CalcPtAtDistSuSegm", "misclosure": "CalcCoordEst",
    "nan": "TrovatoValNeiLimiti", "neighbor": "new_points", "northing": "CalcCoordNord", "pdf": "plans.md",
    "point in polygon": "PlFunz_inpolygon", "postgis": "postgis.md", "python": "python.md", "qgis": "guide/qgis.md",
    "refused": "guide/refused.md", "right angle": "CalcPtSquadro", "shapefile": "guide/layers.md#what-it-reads-and-writes",
    "sliver": "new_points", "speed": "large-layers.md", "stake out": "CalcPtSquadro", "stakeout": "CalcPtSquadro",
    "station": "CalcPtAngDist", "subdivide": "divide", "thread": "guide/headers.md#how-to-read-a-description",
    "total station": "CalcPtAngDist", "utm": "guide/coordinates.md#which-crs", "vertex": "through_vertex",
    "width": "width", "windows": "packages.md", "wkt": "guide/layers.md#what-it-reads-and-writes",
}
DOXYGEN = "1.9.4"  # Debian 12's
FOLDERS = ("kernel", "lines", "arcs", "survey", "subdivision", "plutil", "plparcel")
LISTS = ("plcalc_symbols.txt", "plutil_symbols.txt")


class Page:
    def __init__(self, path):
        self.text = path.read_text(encoding="utf-8")
        self.names = set(re.findall(r'(?:id|name)="([^"]+)"', self.text))

    def title(self):
        found = re.search(r'<div class="title">(.*?)</div>', self.text, re.DOTALL)
        return html.unescape(re.sub(r"<[^>]+>", "", found.group(1))).strip() if found else ""

    def links(self):
        return {html.unescape(link) for link in re.findall(r'(?:href|src)="([^"]+)"', self.text)}


def dead_links(folder, pages):
    for name, page in pages.items():
        for link in sorted(page.links()):
            where, _, anchor = urllib.parse.unquote(link).partition("#")
            if re.match(r"[a-z]+:", where):
                continue
            target = where or name
            if not (folder / target).exists():
                yield f"{name}: '{link}' leads nowhere"
            elif anchor and target in pages and anchor not in pages[target].names:
                yield f"{name}: there is no '{anchor}' in {target}"


def index(folder):
    """(title, pages) of everything that the search knows."""
    for path in sorted((folder / "search").glob("all_*.js")):
        for title, places in re.findall(r"^  \['[^']*',\['((?:[^'\\]|\\.)*)',(.*)\]\],?$", path.read_text(encoding="utf-8"), re.M):
            yield html.unescape(title), re.findall(r"'\.\./([^'#]+)", places)


def leads_to(wanted, name, pages):
    """Whether the page has the function, or is the wanted page, or leads there."""
    file, _, anchor = wanted.partition("#")
    if not file.endswith((".md", ".html")):
        return any(f">{scope}{wanted}</a>" in pages[name].text for scope in ("", "plparcel::"))
    page = "md_docs_" + re.sub(r"\W", "_", file.removesuffix(".md")) + ".html" if file.endswith(".md") else file
    return name == page or (f"{page}#{anchor}" if anchor else page) in pages[name].links()


def lost_words(folder, pages):
    known = list(index(folder))
    for word, wanted in WORDS.items():
        offered = {name for title, places in known if title.lower().startswith(word) for name in places}
        if not any(leads_to(wanted, name, pages) for name in offered):
            yield f"'{word}' does not find {wanted}, but {', '.join(sorted(offered)) or 'nothing'}"


def exported(source):
    """The functions as C++ writes them, a line each."""
    symbols = "\n".join((source / "tests/api" / name).read_text(encoding="ascii") for name in LISTS)
    return subprocess.run(["c++filt"], input=symbols, capture_output=True, text=True, check=True).stdout


def functions_without_words(source, pages):
    groups = "".join(page.text for name, page in pages.items() if name.startswith("group__"))
    for name in sorted(set(re.findall(r"^(\w+)\(", exported(source), re.M))):  # members are on the page of their class
        if f">{name}</a>" not in groups:
            yield f"no group has {name}"


def lost_noexcept(source, pages):
    shown = "".join(page.text for page in pages.values())
    for header in sorted((source / "include/plcalc").glob("*.h")):
        for name in re.findall(r"^PLCALC_API\b[^(]*?(\w+)\([^;]*\) noexcept;", header.read_text(encoding="utf-8"), re.M):
            if not re.search(rf">{name}</a> \((?:(?!</tr>).)*noexcept", shown):
                yield f"{header.name}: the page of {name} does not say noexcept"


def page_name(source, path):
    place = "_".join(path.relative_to(source).with_suffix("").parts).replace("-", "_")
    return "index.html" if place == "docs_guide_README" else f"md_{place}.html"


def spoilt_pages(source, pages):
    """Pages that are not what their Markdown says."""
    listed = subprocess.run([sys.executable, "cmake/guide_pages.py", "--list"], cwd=source, capture_output=True, text=True, check=True)
    known = {path.resolve(): page_name(source, path) for path in (source / name for name in listed.stdout.strip().split(";"))}
    for path, name in known.items():
        def page_of(target, path=path):
            file, _, anchor = target.partition("#")
            page = known.get((path.parent / file).resolve() if file else path)
            return page and (f"{page}#{anchor}" if anchor else page)

        if name not in pages:
            yield f"{path.name}: there is no page {name}"
            continue
        for loss in site_text.losses(path.read_text(encoding="utf-8"), pages[name].text, page_of):
            yield f"{path.name}: {loss}"


def wrong_pages(source, pages):
    for path in [*(source / "docs/guide").glob("*.md"), *(source / folder / "README.md" for folder in FOLDERS),
                 source / "docs/accuracy.md"]:
        name = page_name(source, path)
        heading = path.read_text(encoding="utf-8").splitlines()[0].removeprefix("# ")
        if name not in pages:
            yield f"{name} is missing: the table of docs/guide/README.md does not lead to {path.name}"
        elif pages[name].title() != heading:
            yield f"{name} has the title '{pages[name].title()}', not '{heading}'"
        elif name != "index.html" and name not in pages["index.html"].links():
            yield f"the first page does not lead to {name}"
    for folder in FOLDERS:
        page = pages.get(f"md_{folder}_README.html")
        if page and not ('class="fragment"' in page.text and "What surprises people here" in page.text):
            yield f"the page of {folder} has lost its sketch, or what surprises people there"
    if "the-rule-of-the-local-origin" not in pages["index.html"].names:
        yield "the first page does not have the rule of the local origin"
    if "divides a parcel with proof" not in pages["namespaceplparcel.html"].text:
        yield "the namespace of plparcel has no page"


def main():
    source, folder = (pathlib.Path(argument).resolve() for argument in sys.argv[1:])
    pages = {path.name: Page(path) for path in folder.glob("*.html")}
    wrong = [*dead_links(folder, pages), *functions_without_words(source, pages)]
    made_by = re.search(r'content="Doxygen ([\d.]+)"', pages["index.html"].text).group(1)
    if made_by == DOXYGEN:
        wrong += [*lost_words(folder, pages), *lost_noexcept(source, pages), *wrong_pages(source, pages), *spoilt_pages(source, pages)]
        print(f"{len(pages)} pages, {len(WORDS)} words")
    else:
        print(f"{len(pages)} pages, made by Doxygen {made_by}: titles and search are checked with {DOXYGEN}")
    if wrong:
        sys.exit("\n".join(wrong))


main()
