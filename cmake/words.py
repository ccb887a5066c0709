"""words.py FILE: the groups that the target `docs` makes of docs/words.txt. Runs in the folder of the sources."""

import pathlib
import re
import sys

GUIDE = pathlib.Path("docs/guide")
ENTRY = re.compile(r"^(?P<title>\w.*)\n(?:  also (?P<also>.*)\n)?  guide (?P<guide>.*)\n(?:  calls (?P<calls>.*)\n)?$")


def name(title):
    return "word_" + re.sub(r"\W+", "_", title.replace("#", "sharp")).strip("_").lower()


def anchor(heading):
    return re.sub(r"[^a-z0-9 -]", "", heading.lower()).replace(" ", "-")


def link(place):
    file, _, wanted = place.partition("#")
    text = (GUIDE / file).read_text(encoding="utf-8")
    if not wanted:
        return f"[{text.splitlines()[0].removeprefix('# ')}]({(GUIDE / file).resolve()})"
    found = [heading for heading in re.findall(r"^## (.*)$", text, re.M) if anchor(heading) == wanted]
    if not found:
        sys.exit(f"{file} has no heading #{wanted}")
    return f'@ref {wanted} "{found[0]}"'


def groups(entry):
    """The group of an entry, and one for each of its other titles, which says the same."""
    says = ["@brief In the guide: " + ", ".join(map(link, entry["guide"].split())) + "."]
    if entry["calls"]:
        says += ["", "| to call | what it does |", "| --- | --- |"]
        says += [f"| @ref {call} | @copybrief {call} |" for call in entry["calls"].split()]
    yield "\n".join([f"/** @defgroup {name(entry['title'])} {entry['title']}", *says, "*/"])
    for title in sorted(filter(None, (entry["also"] or "").split("; "))):
        yield "\n".join([f"/** @defgroup {name(title)} {title}", f"@ingroup {name(entry['title'])}", *says, "*/"])


def main():
    text = re.sub(r"^#.*\n", "", pathlib.Path(sys.argv[1]).read_text(encoding="utf-8"), flags=re.M).strip()
    entries = []
    for block in re.split(r"\n\n+", text):
        entry = ENTRY.match(block + "\n")
        if not entry:
            sys.exit(f"not an entry of docs/words.txt:\n{block}")
        entries.append(entry)
    for entry in sorted(entries, key=lambda entry: entry["title"]):
        print(*groups(entry), sep="\n")


main()
