#!/usr/bin/env python3
"""Compares counted double operations with the committed table.

    softfloat_count | compare.py TABLE     exit status 1 when the weighted figure of a call has grown, or when
                                           the table lists other calls
"""

import sys


def weighted(lines):
    """The calls in order, each with its weighted figure. A literal form belongs to the call above it."""
    rows, call = [], ""
    for line in lines[1:]:
        name, figure = line[:34].rstrip(), int(line.split()[-1])
        call = call + name if name.startswith(" ") else name
        rows.append((call, figure))
    return rows


def main():
    with open(sys.argv[1], encoding="utf-8") as table:
        want = weighted(table.read().splitlines())
    got = weighted(sys.stdin.read().splitlines())
    if [call for call, _ in got] != [call for call, _ in want]:
        print("the table lists other calls: make it anew")
        return 1
    grown = [(call, was, now) for (call, was), (_, now) in zip(want, got) if now > was]
    for call, was, now in grown:
        print(f"{call}: {now}, was {was}")
    less = sum(now < was for (_, was), (_, now) in zip(want, got))
    print(f"{len(got)} calls counted, {len(grown)} dearer than the table, {less} cheaper")
    return 1 if grown else 0


if __name__ == "__main__":
    sys.exit(main())
