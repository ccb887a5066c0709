#!/usr/bin/env python3
"""lots.py COUNT SEED: parcels as CSV with id and WKT, on the grid of UTM, in metres with millimetres: convex and concave
ones, one in a hundred with a boundary that crosses itself, one in five hundred too small for what is asked."""

import math
import random
import sys


def lot(draw):
    kind = draw.random()
    if kind < 0.01:
        return [(0.0, 0.0), (40.0, 40.0), (40.0, 0.0), (0.0, 40.0)]
    if kind < 0.012:
        return [(0.0, 0.0), (1.0, 0.0), (1.0, 1.0), (0.0, 1.0)]
    corners = draw.choice((3, 4, 4, 4, 5, 6, 8, 12))
    uneven = draw.choice((0.1, 0.3, 0.7))
    turns = sorted(draw.uniform(0.0, 2.0 * math.pi) for _ in range(corners))
    return [(radius * math.cos(turn), radius * math.sin(turn))
            for turn in turns for radius in [draw.uniform(1.0 - uneven, 1.0) * draw.uniform(20.0, 30.0)]]


def main():
    count, seed = int(sys.argv[1]), int(sys.argv[2])
    draw = random.Random(seed)
    print("id,WKT")
    for number in range(1, count + 1):
        east, north = draw.uniform(300000.0, 700000.0), draw.uniform(5000000.0, 5400000.0)
        ring = [f"{round(east + x, 3)} {round(north + y, 3)}" for x, y in lot(draw)]
        print(f'{number},"POLYGON (({", ".join([*ring, ring[0]])}))"')


if __name__ == "__main__":
    main()
