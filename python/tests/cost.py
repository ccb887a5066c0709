#!/usr/bin/env python3
"""cost.py PROGRAM [CALLS]: what `plcalc.divide` costs over the C++ call that PROGRAM repeats.

The two take turns, so that a busy machine slows both; the least ratio of the turns is printed, and the median. Ends with
status 1 when the least exceeds 2.
"""

import statistics
import subprocess
import sys
import time

import numpy

import plcalc

LOT = numpy.array([(300.23, 420.57), (410.75, 440.49), (520.18, 320.81), (350.04, 300.58)])


def in_python(calls):
    start = time.process_time()
    for _ in range(calls):
        plcalc.divide(LOT, parallel_to=0, share="1/3")
    return time.process_time() - start


def main():
    calls = int(sys.argv[2]) if len(sys.argv) > 2 else 100000
    turns = 10
    pairs = []
    for _ in range(turns):
        there = float(subprocess.run([sys.argv[1], str(calls // turns)], capture_output=True, text=True,
                                     check=True).stdout)
        pairs.append((in_python(calls // turns), there))
    ratios = [here / there for here, there in pairs]
    each = 1e6 * turns / calls
    print(f"{calls} divisions: {min(here for here, _ in pairs) * each:.1f} microseconds each in Python, "
          f"{min(there for _, there in pairs) * each:.1f} in C++; {min(ratios):.2f} times as much at least, "
          f"{statistics.median(ratios):.2f} as a rule")
    return 0 if min(ratios) <= 2.0 else 1


if __name__ == "__main__":
    sys.exit(main())
