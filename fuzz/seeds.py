#!/usr/bin/env python3
"""The seeds of a harness in one text file, a line each: its name, which tells what it is for, a blank, and its bytes
in hexadecimal. Lines that begin with # are comments.

    python3 seeds.py unpack FILE DIR     to DIR, a file per seed, as libFuzzer reads them
    python3 seeds.py line INPUT NAME     prints the line of an input, for a finding that becomes a seed
"""

import pathlib
import re
import sys


def as_name(words):
    """Words as a name: small letters, digits and signs, with _ in place of blanks."""
    return re.sub(r"[^a-z0-9.,+-]+", "_", words.lower()).strip("_")


def read(path):
    """Name: bytes."""
    seeds = {}
    for number, line in enumerate(path.read_text(encoding="ascii").splitlines(), 1):
        if line.startswith("#"):
            continue
        name, blank, digits = line.partition(" ")
        if not blank or name in seeds or name != as_name(name):
            sys.exit(f"{path}:{number}: not a name of its own and bytes in hexadecimal")
        seeds[name] = bytes.fromhex(digits)
    return seeds


def line_of(name, data):
    return f"{name} {data.hex()}\n"


def write(path, seeds):
    path.parent.mkdir(parents=True, exist_ok=True)
    lines = [f"# Seeds of the harness {path.stem}: name and bytes. Written by make_corpus.py.\n"]
    lines += [line_of(name, data) for name, data in seeds.items()]
    path.write_text("".join(lines), encoding="ascii")


def unpack(seeds, folder):
    folder.mkdir(parents=True, exist_ok=True)
    for name, data in seeds.items():
        (folder / name).write_bytes(data)


def main():
    if len(sys.argv) != 4 or sys.argv[1] not in ("unpack", "line"):
        sys.exit(__doc__)
    job, path, argument = sys.argv[1], pathlib.Path(sys.argv[2]), sys.argv[3]
    if job == "unpack":
        unpack(read(path), pathlib.Path(argument))
    else:
        sys.stdout.write(line_of(as_name(argument), path.read_bytes()))


if __name__ == "__main__":
    main()
