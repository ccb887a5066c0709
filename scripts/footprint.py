#!/usr/bin/env python3
"""Prints, in Markdown, the stripped size of libraries and the largest stack frames of their functions.

    footprint.py --strip STRIP --build FOLDER LIBRARY...    FOLDER holds the compiler's .su files
"""

import argparse
import pathlib
import re
import subprocess
import tempfile

SHOWN = 12


def stripped_size(strip, library):
    with tempfile.TemporaryDirectory() as scratch:
        copy = pathlib.Path(scratch) / "stripped"
        subprocess.run([strip, "--strip-unneeded", "-o", copy, library], check=True)
        return copy.stat().st_size


def frames(build):
    """(bytes, file, function) of every function of the library's own sources."""
    found = {}
    for usage in pathlib.Path(build).rglob("*_objects.dir/**/*.su"):
        for line in usage.read_text(encoding="utf-8").splitlines():
            place, size, _ = line.split("\t")
            path, _, _, function = place.split(":", 3)
            if "/usr/" in path:
                continue  # the standard library's templates
            name = re.sub(r"\(.*", "", function).split(" ")[-1]
            key = (pathlib.Path(path).parent.name + "/" + pathlib.Path(path).name, name)
            found[key] = max(int(size), found.get(key, 0))
    return sorted(((size, *key) for key, size in found.items()), reverse=True)


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--strip", required=True)
    parser.add_argument("--build", required=True)
    parser.add_argument("libraries", nargs="+")
    options = parser.parse_args()

    print("| library | stripped, bytes |\n| --- | ---: |")
    for library in options.libraries:
        print(f"| {pathlib.Path(library).name.split('.so')[0]} | {stripped_size(options.strip, library)} |")
    print("\n| function | file | frame, bytes |\n| --- | --- | ---: |")
    for size, path, name in frames(options.build)[:SHOWN]:
        print(f"| `{name}` | `{path}` | {size} |")


if __name__ == "__main__":
    main()
