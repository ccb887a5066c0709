#!/usr/bin/env python3
"""Reads the JSON of a benchmark run and prints, per work and size, plcalc's time over the fastest peer's.

    ratios.py RUN.json      the table in Markdown; exit status 1 when a ratio is above its limit

A limit is (work, peers it is against, sizes it holds for, greatest ratio).
"""

import collections
import json
import sys

PEERS = ("GEOS", "Boost", "CGAL")
LIMITS = [
    ("perimeter", PEERS, lambda n: n >= 16, 1.2),
    ("line_distance", PEERS, lambda n: n >= 16, 1.2),
    ("area", PEERS, lambda n: True, 2.0),
    ("segment_intersection", PEERS, lambda n: True, 0.6),
    ("parallel_cut_convex", PEERS, lambda n: n <= 256, 0.05),
    ("vertex_cut_convex", PEERS, lambda n: n <= 256, 0.05),
    ("parallel_cut_convex", ("GEOS-clip",), lambda n: n <= 64, 0.25),
]


def read_times(path):
    """{(work, size): {library: nanoseconds}}, the least of the repetitions. Processor time, since a machine that
    does other things too counts them in the time on the wall."""
    times = collections.defaultdict(dict)
    with open(path, encoding="utf-8") as run:
        for entry in json.load(run)["benchmarks"]:
            if entry.get("run_type") == "aggregate":
                continue
            work, library, *size = entry["run_name"].split("/")
            key = (work, "/".join(size))
            now = entry["cpu_time"]
            times[key][library] = min(now, times[key].get(library, now))
    return times


def limit_for(work, size, peers):
    for name, against, holds, greatest in LIMITS:
        if name == work and against == peers and size.isdigit() and holds(int(size)):
            return greatest
    return None


def by_work_and_size(row):
    (work, size), _ = row
    return work, int(size) if size.isdigit() else 0, size


def main():
    times = read_times(sys.argv[1])
    failed = 0
    print("| work | n | plcalc, ns | fastest peer, ns | ratio | at most |")
    print("| --- | ---: | ---: | ---: | ---: | ---: |")
    for (work, size), by_library in sorted(times.items(), key=by_work_and_size):
        ours = by_library.get("plcalc")
        if ours is None:
            continue
        for peers in (PEERS, ("GEOS-clip",)):
            found = {peer: by_library[peer] for peer in peers if peer in by_library}
            if not found:
                if peers is PEERS:
                    print(f"| {work} | {size} | {ours:.1f} | | | |")
                continue
            best = min(found, key=found.get)
            ratio = ours / found[best]
            limit = limit_for(work, size, peers)
            over = limit is not None and ratio > limit
            failed += over
            shown = "" if limit is None else f"{limit}{' **over**' if over else ''}"
            print(f"| {work} | {size} | {ours:.1f} | {found[best]:.1f} ({best}) | {ratio:.4g} | {shown} |")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
