#!/usr/bin/env python3
"""compare.py PROGRAM.json DATABASE.csv: every figure of the database is that of the program, to the last digit that it
prints: whether it is refused, what is wrong with a boundary, decimals, both ends of every line, and the area of every piece."""

import collections
import csv
import json
import sys


def printed_alike(area, printed):
    """Whether the area, written with as many decimals as the program writes, is what the program has written."""
    return any(float(f"{area:.{decimals}f}") == printed for decimals in range(4, 18))


def complaint(theirs, rows):
    status = rows[0]["status"]
    if theirs["status"] != "divided":
        if status == "divided" or len(rows) != 1 or rows[0]["area_held"]:
            return f"the program refuses: {theirs}"
        # The program says more of a line than the library; of a boundary it says the same first.
        if status == "unusable_boundary" and rows[0]["reason"] not in theirs["reason"]:
            return f"reason {theirs['reason']!r}, in the database {rows[0]['reason']!r}"
        return None
    if status != "divided":
        return f"the database refuses: {rows[0]['reason']}"
    # Ends with all their digits have no number of decimals: null in one, empty in the other.
    decimals = "" if theirs["decimals"] is None else str(theirs["decimals"])
    if [row["ends_decimals"] for row in rows] != [decimals] * len(rows):
        return "other decimals"
    ends = [tuple(float(row[name]) for name in ("x1", "y1", "x2", "y2")) for row in rows if row["x1"]]
    wanted = [(line["from"]["e"], line["from"]["n"], line["to"]["e"], line["to"]["n"]) for line in theirs["lines"]]
    if ends != wanted:
        return f"lines {ends}, of the program {wanted}"
    areas = [float(row["area_held"]) for row in rows]
    wanted = [piece["area"] for piece in theirs["pieces"]]
    if len(areas) != len(wanted) or not all(map(printed_alike, areas, wanted)):
        return f"areas {areas}, of the program {wanted}"
    return None


def main():
    with open(sys.argv[1], encoding="utf-8") as file:
        parcels = json.load(file)["parcels"]
    rows = collections.defaultdict(list)
    with open(sys.argv[2], encoding="utf-8", newline="") as file:
        for row in csv.DictReader(file):
            rows[int(row["id"])].append(row)
    wrong = []
    for number, theirs in enumerate(parcels, 1):
        said = complaint(theirs, rows[number])
        if said:
            wrong.append(f"parcel {number}: {said}")
    refused = sum(theirs["status"] != "divided" for theirs in parcels)
    print(f"{len(parcels)} parcels, {refused} of them refused; {len(wrong)} differ")
    if wrong or len(rows) != len(parcels) or refused == 0 or refused == len(parcels):
        sys.exit("\n".join(wrong[:10]) or "not all parcels were answered, or none refused")


if __name__ == "__main__":
    main()
