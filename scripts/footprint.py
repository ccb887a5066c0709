#!/usr/bin/env python3
"""Prints, in Markdown, the stripped size of libraries and the largest stack frames of their functions.

    footprint.py --strip STRIP --build FOLDER [--document FILE [--write]] LIBRARY...

FOLDER holds the compiler's .su files. Ends with status 1 when the tables of the document are others.
"""

import argparse
import pathlib
import re
import subprocess
import sys
import tempfile

SHOWN = 12


def stripped_size(strip, library):
    with tempfile.TemporaryDirectory() as scratch:
        copy = pathlib.Path(scratch) / "stripped"
        subprocess.run([strip, "--strip-unneeded", "-o", copy, library], check=True)
        return copy.stat().st_size


def frames(build, names):
    """(bytes, file, function) of every function of the libraries' own sources."""
    found = {}
    usages = [usage for name in names for usage in pathlib.Path(build).rglob(f"{name}_objects.dir/**/*.su")]
    for usage in usages:
        for line in usage.read_text(encoding="utf-8").splitlines():
            place, size, _ = line.split("\t")
            path, _, _, function = place.split(":", 3)
            if "/usr/" in path:
                continue  # the standard library's templates
            name = re.sub(r"\(.*", "", function).split(" ")[-1]
            key = (pathlib.Path(path).parent.name + "/" + pathlib.Path(path).name, name)
            found[key] = max(int(size), found.get(key, 0))
    return sorted(((size, *key) for key, size in found.items()), reverse=True)


def tables(options):
    """The lines of both tables."""
    names = [pathlib.Path(library).name.split(".so")[0] for library in options.libraries]
    yield "| library | stripped, bytes |"
    yield "| --- | ---: |"
    for name, library in zip(names, options.libraries):
        yield f"| {name} | {stripped_size(options.strip, library)} |"
    yield ""
    yield "| function | file | frame, bytes |"
    yield "| --- | --- | ---: |"
    for size, path, function in frames(options.build, [name.removeprefix("lib") for name in names])[:SHOWN]:
        yield f"| `{function}` | `{path}` | {size} |"


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--strip", required=True)
    parser.add_argument("--build", required=True)
    parser.add_argument("--document", type=pathlib.Path)
    parser.add_argument("--write", action="store_true", help="put the tables into the document")
    parser.add_argument("libraries", nargs="+")
    options = parser.parse_args()

    lines = list(tables(options))
    print("\n".join(lines))
    if not options.document:
        return
    text = options.document.read_text(encoding="utf-8")
    measured = re.sub(r"(^\|.*\n)(^(\||$).*\n)*(?<=\|\n)", "\n".join(lines) + "\n", text, count=1, flags=re.MULTILINE)
    if options.write:
        options.document.write_text(measured, encoding="utf-8")
    elif measured != text:
        sys.exit(f"{options.document} shows other figures: build footprint_document, and look at what changed")


if __name__ == "__main__":
    main()
