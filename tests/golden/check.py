#!/usr/bin/env python3
"""Recomputes every line of the golden files and compares bit for bit.

A second computation written step by step, independent of the library's sources (reference/). A line that
ends in `~` has passed through the platform's sine, cosine or arctangent and is compared with the small
tolerance of reference/tolerance.py; how many of those were identical to the bit is printed as well.

    python3 check.py [file...]     default: the six files beside this one

Exit status 1 when a line differs, is malformed or has an unknown name, when a `~` is missing or stands
without reason, or when there are too few lines for a call.
"""

import collections
import pathlib
import sys

sys.dont_write_bytecode = True  # leave no files in the source tree

from reference import calls, tolerance, wire  # noqa: E402

HERE = pathlib.Path(__file__).resolve().parent
MAX_SHOWN = 40


class Tally:
    def __init__(self):
        self.lines = self.platform = self.identical = 0


def check_line(line, tally):
    """None, or what is wrong with the line."""
    call = calls.CALLS.get(line.name)
    if call is None:
        return "unknown name"
    operands = wire.read_operands(call.operands, line.operands)
    results, platform = calls.run(line.name, operands)
    words = wire.words_of(results)
    tally.lines += 1
    if platform != line.platform:
        return "the '~' is missing" if platform else "a '~' without reason"
    if not platform:
        return None if words == line.results else "computed " + " ".join(words)

    tally.platform += 1
    if words == line.results:
        tally.identical += 1
        return None
    if len(words) != len(line.results):
        return "computed " + " ".join(words)
    scale = tolerance.scale_of(wire.flatten(call.operands, operands))
    for (letter, got), word in zip(results, line.results):
        wanted = wire.read_double(word) if letter in "dg" else int(word)
        if not tolerance.agree(line.name, letter, got, wanted, scale):
            return "beyond the tolerance, computed " + " ".join(words)
    return None


def check_file(path, tallies):
    """Complaints about the file."""
    complaints = []
    for number, text in enumerate(path.read_text().splitlines(), 1):
        try:
            line = wire.parse(text)
            wrong = check_line(line, tallies[line.name]) if line else None
        except ValueError as error:
            wrong = str(error)
        if wrong:
            complaints.append("%s:%d: %s\n    %s" % (path.name, number, wrong, text))
    return complaints


def main(arguments):
    paths = [pathlib.Path(a) for a in arguments]
    whole_set = not paths
    if whole_set:
        paths = [HERE / (family + ".txt") for family in calls.FAMILIES]
    tallies = collections.defaultdict(Tally)
    complaints = []
    for path in paths:
        try:
            complaints += check_file(path, tallies)
        except OSError as error:
            complaints.append("%s: %s" % (path, error.strerror))

    print("%-34s %6s %6s %9s" % ("call", "lines", "~", "identical"))
    for name, call in calls.CALLS.items():
        t = tallies[name]
        if t.lines or whole_set:
            print("%-34s %6d %6d %9d" % (name, t.lines, t.platform, t.identical))
        if whole_set and t.lines < call.at_least:
            complaints.append("%s: %d lines, at least %d are needed" % (name, t.lines, call.at_least))

    for complaint in complaints[:MAX_SHOWN]:
        print(complaint, file=sys.stderr)
    if len(complaints) > MAX_SHOWN:
        print("... and %d more" % (len(complaints) - MAX_SHOWN), file=sys.stderr)
    checked = sum(t.lines for t in tallies.values())
    print("%d lines recomputed, %d complaints" % (checked, len(complaints)))
    return 1 if complaints or checked == 0 else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
