"""Implicit lines, intersections of lines and segments, distance from a line, collinearity."""

from . import arcs
from .kernel import (PL_EPS, PlFunz_distance, PlFunz_inverse, PlFunz_sumsqrdparms, is_null, max_tol,
                     min_tol, snap_zero, tol)
from .machine import div, sqrt

HALF_TURN_SHORT = 3.1415926535892  # cut short on purpose

NO_LINE = (0.0, 0.0, 0.0)  # what a line record of our own holds until it is written
NO_POINT = (0.0, 0.0)


# Implicit lines --------------------------------------------------------------------------------------


def PlFunz_lineeq_ile(p1, p2, out):
    """(code, line)"""
    dx = p2[0] - p1[0]
    dy = p2[1] - p1[1]
    if is_null(dx) and is_null(dy):
        return 2, out
    return 0, (-dy, dx, p1[0] * p2[1] - p1[1] * p2[0])


def PlFunz_normal_ile(line):
    """(code, line)"""
    a, b, c = line
    s = PlFunz_sumsqrdparms(a, b)
    if is_null(s):
        return 3, line
    k = div(1.0, sqrt(s))
    if c > PL_EPS:
        k = -k
    elif is_null(c) and b < -PL_EPS:
        k = -k
    return 0, (a * k, b * k, c * k)


def PlFunz_linepntperpend(line, p):
    a, b, _ = line
    return (b, a * -1.0, a * p[1] - b * p[0])


def PlFunz_linepntparallel(p, line):
    a, b, _ = line
    return (a, b, -(p[1] * b + p[0] * a))


def PlFunz_ordinate_ile(line, x):
    a, b, c = line
    if is_null(b):
        return 0.0
    return div(-(a * x + c), b)


def PlFunz_abscissa_ile(line, y):
    a, b, c = line
    if is_null(a):
        return 0.0
    return div(-(b * y + c), a)


# Intersections ---------------------------------------------------------------------------------------


def PlFunz_intersect_ile(l1, l2, out):
    """(met, point)"""
    a1, b1, c1 = l1
    a2, b2, c2 = l2
    if is_null(a1 - a2) and is_null(b1 - b2) and is_null(c1 - c2):
        return False, out
    det = b2 * a1 - b1 * a2
    if is_null(det):
        return False, out
    inv = PlFunz_inverse(det)
    return True, ((b1 * c2 - c1 * b2) * inv, (c1 * a2 - a1 * c2) * inv)


def pnt_in_segbox(seg, p):
    (x1, y1), (x2, y2) = seg
    xmin = min_tol(x1, x2)
    ymin = min_tol(y1, y2)
    xmax = max_tol(x1, x2)
    ymax = max_tol(y1, y2)
    return (p[0] >= xmin - tol(xmin) and p[0] <= xmax + tol(xmax)
            and p[1] >= ymin - tol(ymin) and p[1] <= ymax + tol(ymax))


def PlFunz_intersect_ils(line, seg, out):
    """(met, point); the crossing of the two unbounded lines stays written when the answer is no"""
    start, end = seg
    code, seg_line = PlFunz_lineeq_ile(start, end, NO_LINE)
    if code == 2:
        if line[1] * start[1] + line[0] * start[0] == -line[2]:
            return True, start
        return False, out

    if start[0] > end[0] + tol(end[0]):
        start, end = end, start
    met, out = PlFunz_intersect_ile(line, seg_line, out)
    return met and pnt_in_segbox((start, end), out), out


def PlFunz_intersect_ls(s1, s2, out):
    """(met, point)"""
    (x1, y1), (x2, y2) = s1
    (x3, y3), (x4, y4) = s2
    ex = x4 - x3
    ey = y4 - y3
    dx = x2 - x1
    dy = y2 - y1
    wx = x3 - x1
    wy = y3 - y1
    den = dy * ex - dx * ey
    if is_null(den):
        return False, out
    inv = PlFunz_inverse(den)
    t = (wy * ex - wx * ey) * inv
    u = (wy * dx - wx * dy) * inv
    low = -PL_EPS
    high = 1.0 + tol(1.0)
    if not (low <= t <= high and low <= u <= high):
        return False, out
    return True, (snap_zero(t * dx + x1), snap_zero(t * dy + y1))


# Distance and collinearity ---------------------------------------------------------------------------


def PlFunz_distpntln_ls(p, seg):
    start, end = seg
    if is_null(end[0] - start[0]) and is_null(end[1] - start[1]):
        return PlFunz_distance(p, start)
    code, line = PlFunz_lineeq_ile(start, end, NO_LINE)
    if code != 0:
        return 0.0
    a, b, c = PlFunz_normal_ile(line)[1]
    return p[1] * b + p[0] * a + c


def PlFunz_pnts_in_line(p0, p1, p2):
    a1 = _fold_half_turn(arcs.PlFunz_arcangle(2, p0, p1))
    a2 = _fold_half_turn(arcs.PlFunz_arcangle(2, p0, p2))
    return abs(a1 - a2) <= tol(a2)


def _fold_half_turn(a):
    if a >= HALF_TURN_SHORT - tol(HALF_TURN_SHORT):
        return a - HALF_TURN_SHORT
    return a
