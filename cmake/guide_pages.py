"""guide_pages.py --list | FILE: the pages of the target `docs`, or one of them as Doxygen understands it.

The pages are those to which the table of docs/guide/README.md leads, in its order. Doxygen reads less Markdown than other
programs do, so this says some of it in another way: a link whose words go on in the next line, code with an apostrophe in it,
bold words with code in them, a heading that ends with a `#`. It also gives every heading of the second level the name under
which the pages link to it and the search finds it, links functions to their descriptions, and leaves the words alone of a link
to what is not among the pages. tests/api/site.py compares each page with its source. Runs in the folder of the sources.
"""

import os.path
import pathlib
import re
import sys

FIRST = pathlib.Path("docs/guide/README.md")
ELSEWHERE = ("web/", "qgis/")  # read where they lie
HEADERS = ("include/plcalc", "plutil/include/plutil")
FENCE = re.compile(r"^```.*\n(?:(?!```).*\n)*```$|(?<=\n\n)(?:(?:    .*|(?=\n    ))\n)+", re.M)
CODE = re.compile(r"(?<!`)`([^`]+)`(?!`)")
LINK = re.compile(r"(!?)\[((?:`[^`]*`|[^\]`])*)\]\(([^)\s]*)\)")


def resolved(file, target):
    return os.path.normpath(file.parent / target).replace(os.sep, "/")


def pages():
    table = "\n".join(re.findall(r"^\| .*$", FIRST.read_text(encoding="utf-8"), re.M))
    named = [resolved(FIRST, target) for target in re.findall(r"\(([^()]+\.md)\)", table)]
    return [str(FIRST), *(name for name in named if not name.startswith(ELSEWHERE))]


def functions():
    text = "".join(path.read_text(encoding="utf-8") for folder in HEADERS for path in sorted(pathlib.Path(folder).glob("*.h")))
    return set(re.findall(r"^(?:PLCALC|PLUTIL)_API\b[^;(]*?(\w+)\(", text, re.M))


def heading(match):
    level, words = match.group(1), match.group(2).replace("`", "").strip()
    if level != "##":
        return f"{level} {words}"
    name = re.sub(r"[^a-z0-9 -]", "", words.lower()).replace(" ", "-")
    return f"@section {name} " + words.replace("#", r"\#")


class Prose:
    """Text between blocks of code."""

    def __init__(self, file):
        self.file, self.known, self.functions = file, set(pages()), functions()

    def link(self, match):
        picture, words, target = match.groups()
        words = " ".join(words.split())
        place, _, name = target.partition("#")
        if picture:
            return f"![{words}]({place.rpartition('/')[2]})"
        if re.match(r"[a-z]+:", target):
            return f"[{words}]({target})"
        page = resolved(self.file, place) if place else str(self.file)
        if page not in self.known:
            return words
        said = words.replace("`", "")
        return f'@ref {name} "{said}"' if name else f"[{said}]({place})"

    def code(self, match):
        words = match.group(1)
        if words in self.functions:
            return f'@ref {words} "{words}"'
        return f"``{words}``".replace("%", "%%") if "'" in words else f"`{words}`"

    def words(self, text):
        return CODE.sub(self.code, text.replace('"', "&quot;"))

    def changed(self, text):
        text = re.sub(r"^(##+) +(.*)$", heading, text, flags=re.M)
        parts, end = [], 0
        for match in LINK.finditer(text):  # the words of a link are left alone
            parts += [self.words(text[end:match.start()]), self.link(match)]
            end = match.end()
        text = "".join([*parts, self.words(text[end:])])
        text = re.sub(r"\*\*(.+?)\*\*", r"<b>\1</b>", text, flags=re.S)
        return re.sub(r"^(!\[.*\))$", r"\n\1\n", text, flags=re.M)


def main():
    if sys.argv[1:] == ["--list"]:
        print(";".join(pages()))
        return
    file = pathlib.Path(os.path.relpath(sys.argv[1]))
    text = file.read_text(encoding="utf-8")
    prose, end = Prose(file), 0
    for block in FENCE.finditer(text):
        sys.stdout.write(prose.changed(text[end:block.start()]) + block.group())
        end = block.end()
    sys.stdout.write(prose.changed(text[end:]))


main()
