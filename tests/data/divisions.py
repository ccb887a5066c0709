#!/usr/bin/env python3
"""Expected dividing lines for divisions.csv, from exact rational arithmetic.

A convex ring is clipped by a half plane; the line's offset, or for a cut through a vertex its far end's place
along the boundary, is halved until it is known to 1e-15 of its range. Nothing is shared with the library.

    tests/data/divisions.py > tests/data/divisions.csv
"""
import csv
import sys
from fractions import Fraction

STEPS = 60

# name, cut, side or vertex, area, ring
REQUESTS = [
    ("rectangle along its long side", "parallel", 1, "1000", "0 0, 100 0, 100 50, 0 50"),
    ("rectangle, clockwise", "parallel", 4, "1000", "0 0, 0 50, 100 50, 100 0"),
    ("rectangle, ahead of the midpoint", "perpendicular", 1, "1000", "0 0, 100 0, 100 50, 0 50"),
    ("rectangle, behind the midpoint", "perpendicular", 1, "4000", "0 0, 100 0, 100 50, 0 50"),
    ("rectangle, vertical side", "perpendicular", 2, "1500", "0 0, 100 0, 100 50, 0 50"),
    ("rectangle through a corner", "vertex", 1, "1000", "0 0, 100 0, 100 50, 0 50"),
    ("rectangle past the far corner", "vertex", 1, "4000", "0 0, 100 0, 100 50, 0 50"),
    ("triangle, half of it from a corner", "vertex", 3, "150", "0 0, 30 0, 10 20"),
    ("triangle, perpendicular past the next side", "perpendicular", 1, "250", "0 0, 30 0, 10 20"),
    ("published parcel, strip along AB", "parallel", 1, "9000",
     "300.23 420.57, 410.75 440.49, 520.18 320.81, 350.04 300.58"),
    ("published parcel, perpendicular to DA", "perpendicular", 4, "6115.4955",
     "300.23 420.57, 410.75 440.49, 520.18 320.81, 350.04 300.58"),
    ("published parcel, from C", "vertex", 3, "7500",
     "300.23 420.57, 410.75 440.49, 520.18 320.81, 350.04 300.58"),
    ("UTM-sized lot, strip", "parallel", 2, "3000",
     "610234.182 4985117.436, 610311.907 4985102.218, 610352.660 4985160.945, "
     "610321.338 4985224.071, 610248.515 4985211.803"),
    ("UTM-sized lot, perpendicular", "perpendicular", 5, "2500",
     "610234.182 4985117.436, 610311.907 4985102.218, 610352.660 4985160.945, "
     "610321.338 4985224.071, 610248.515 4985211.803"),
    ("UTM-sized lot, from a corner", "vertex", 4, "5000",
     "610234.182 4985117.436, 610311.907 4985102.218, 610352.660 4985160.945, "
     "610321.338 4985224.071, 610248.515 4985211.803"),
]


def area(ring):
    return abs(sum(p[0] * q[1] - q[0] * p[1] for p, q in zip(ring, ring[1:] + ring[:1]))) / 2


def clip(ring, value):
    """The part of a convex ring where value(p) <= 0, and the points where it is 0."""
    kept, ends = [], []
    for p, q in zip(ring, ring[1:] + ring[:1]):
        a, b = value(p), value(q)
        if a <= 0:
            kept.append(p)
        if a * b < 0:
            t = a / (a - b)
            ends.append((p[0] + t * (q[0] - p[0]), p[1] + t * (q[1] - p[1])))
            kept.append(ends[-1])
        elif a == 0:
            ends.append(p)
    return kept, ends


def strip(ring, asked, distance):
    """The line distance(p) = d, for which the part below it has the area asked."""
    low, high = min(map(distance, ring)), max(map(distance, ring))
    for _ in range(STEPS):
        d = (low + high) / 2
        if area(clip(ring, lambda p: distance(p) - d)[0]) < asked:
            low = d
        else:
            high = d
    return clip(ring, lambda p: distance(p) - d)[1]


def parallel(ring, k, asked):
    a, b = ring[k], ring[(k + 1) % len(ring)]

    def distance(p):
        return abs((b[0] - a[0]) * (p[1] - a[1]) - (b[1] - a[1]) * (p[0] - a[0]))
    return sorted(strip(ring, asked, distance),
                  key=lambda p: (b[0] - a[0]) * p[0] + (b[1] - a[1]) * p[1])


def perpendicular(ring, k, asked):
    a, b = ring[k], ring[(k + 1) % len(ring)]

    def behind(p):
        return -((b[0] - a[0]) * (p[0] - a[0]) + (b[1] - a[1]) * (p[1] - a[1]))
    return sorted(strip(ring, asked, behind),
                  key=lambda p: abs((b[0] - a[0]) * (p[1] - a[1]) - (b[1] - a[1]) * (p[0] - a[0])))


def vertex(ring, k, asked):
    turned = ring[k:] + ring[:k]
    for i in range(1, len(turned) - 1):
        fan, triangle = area(turned[:i + 1]), area([turned[0], turned[i], turned[i + 1]])
        if fan + triangle >= asked:
            t = (asked - fan) / triangle
            p, q = turned[i], turned[i + 1]
            return [turned[0], (p[0] + t * (q[0] - p[0]), p[1] + t * (q[1] - p[1]))]
    raise ValueError("more than the parcel is asked for")


def main():
    cuts = {"parallel": parallel, "perpendicular": perpendicular, "vertex": vertex}
    out = csv.writer(sys.stdout, lineterminator="\n")
    out.writerow(["name", "WKT", "cut", "number", "area", "from_e", "from_n", "to_e", "to_n"])
    for name, cut, number, asked, text in REQUESTS:
        ring = [tuple(map(Fraction, point.split())) for point in text.split(", ")]
        ends = cuts[cut](ring, number - 1, Fraction(asked))
        first = text.split(", ")[0]
        out.writerow([name, f"POLYGON (({text}, {first}))", cut, number, asked] +
                     [f"{float(c):.6f}" for end in ends for c in end])


if __name__ == "__main__":
    main()
