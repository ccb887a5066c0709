#!/usr/bin/env python3
"""Writes the golden files beside it: the operands come from cases/, the results from reference/.

Deterministic: the same files each time, on a platform with the same sine, cosine and arctangent. A case
whose answer hangs on the last bit of those three is dropped, since it would say nothing about the library
on another platform: such a case is computed again several times with these results moved by at most one
unit in the last place, and has to stay within the tolerance of a `~` line each time.

    python3 make.py            write the files
    python3 make.py --extra N  write other cases, from seed N, fragile ones included, to the directory DIR
                    --out DIR  (default: here)
"""

import argparse
import pathlib
import sys

sys.dont_write_bytecode = True

from cases import arcs, common, gons, kernel, lines, subdivision, survey  # noqa: E402,F401
from reference import calls, machine, tolerance, wire  # noqa: E402

HERE = pathlib.Path(__file__).resolve().parent
NUDGES = 12


def is_fragile(name, operands, operand_leaves, results):
    """Whether one unit in the last place of a platform result changes more than the tolerance allows."""
    scale = tolerance.scale_of(operand_leaves)
    for seed in range(1, NUDGES + 1):
        with machine.nudged(seed):
            moved, _ = calls.run(name, operands)
        for (letter, wanted), (_, got) in zip(results, moved):
            if not tolerance.agree(name, letter, got, wanted, scale):
                return True
    return False


def lines_of(name, recipe, keep_fragile):
    """(lines, number of cases dropped)"""
    call = calls.CALLS[name]
    written, dropped = [], 0
    seen = set()
    for operands in recipe:
        leaves = wire.flatten(call.operands, operands)
        words = wire.words_of(leaves)
        if tuple(words) in seen:
            continue
        seen.add(tuple(words))
        results, platform = calls.run(name, operands)
        if platform and not keep_fragile and is_fragile(name, operands, leaves, results):
            dropped += 1
            continue
        written.append(wire.write(name, words, wire.words_of(results), platform))
    return written, dropped


def main():
    parser = argparse.ArgumentParser(description="Writes the golden files.")
    parser.add_argument("--extra", type=int, help="other cases, from this seed, fragile ones included")
    parser.add_argument("--out", type=pathlib.Path, default=HERE)
    arguments = parser.parse_args()
    if arguments.extra is not None:
        if arguments.out.resolve() == HERE:
            parser.error("--extra needs --out: the committed files are those without it")
        common.Draw.salt = " %d" % arguments.extra

    for family in calls.FAMILIES:
        text = ["# Written by make.py. See README.md for the format."]
        for name, call in calls.CALLS.items():
            if call.family != family:
                continue
            written, dropped = lines_of(name, common.CASES[name](), arguments.extra is not None)
            text += ["", "# " + name] + written
            print("%-32s %5d lines, %d dropped" % (name, len(written), dropped))
        (arguments.out / (family + ".txt")).write_text("\n".join(text) + "\n")
    return 0


if __name__ == "__main__":
    sys.exit(main())
