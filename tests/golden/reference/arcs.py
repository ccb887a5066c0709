"""Arc angle, arcs, distance from an arc, its rectangle, arc and segment, point in polygon."""

from . import lines
from .kernel import (DEG_PER_RAD, HALF_PI, PI, PL_EPS, THREE_HALF_PI, PlFunz_distance, PlFunz_inverse,
                     PlFunz_pntangledist, PlFunz_samepnt, PlFunz_sumsqrdparms, is_null, max_tol, min_tol,
                     tol, within_turn)
from .machine import atan, div, fraction, sqrt

RADIANS, DEGREES, PSEUDO_ANGLE = 0, 1, 2  # angle_type of an arc

DEG_PER_RAD_SHORT = 57.2957795131  # cut short on purpose, for arc and segment only


# Arc angle -------------------------------------------------------------------------------------------


def halftan(m):
    if is_null(m):
        return 0.0
    return div(sqrt(m * m + 1.0) - 1.0, m)


def quadrant_of_vector(x, y):
    if x >= -PL_EPS and y >= -PL_EPS:
        return 1
    if x >= -PL_EPS:
        return 4
    if x < -PL_EPS and y >= -PL_EPS:
        return 2
    if x < -PL_EPS and y < -PL_EPS:
        return 3
    return 4  # not a number


def pseudo_to_angle(unit, a):
    """unit: 1 radians, anything else degrees"""
    if unit == 1:
        quarter, half, three_quarters = HALF_PI, PI, THREE_HALF_PI
    else:
        quarter, half, three_quarters = 90.0, 180.0, 270.0

    def at_axis(v):
        if abs(v - 1.0) <= tol(1.0):
            return quarter
        if abs(v - 2.0) <= tol(2.0):
            return half
        if abs(v - 3.0) <= tol(3.0):
            return three_quarters
        return None

    if a <= PL_EPS:
        return 0.0
    axis = at_axis(a)
    if axis is not None:
        return axis

    bound = 4.0 - tol(4.0)
    if a >= bound:
        a = within_turn(a, 4.0)
    t = fraction(a)
    if is_null(t):
        axis = at_axis(a)
        return 0.0 if axis is None else axis
    g = 2.0 * atan(t)

    end1, end2, end3 = 2.0 - tol(2.0), 3.0 - tol(3.0), bound
    if unit == 1:
        if a < 1.0 - tol(1.0):
            return g
        if a < end1:
            return g + quarter
        if a < end2:
            return g + half
        if a < end3:
            return g + three_quarters
        return 0.0

    d = g * DEG_PER_RAD
    if a <= 1.0 + tol(1.0):
        return d
    if a < end1:
        return d + quarter
    if end1 <= a < end2:
        return d + half
    if end2 <= a < end3:
        return d + three_quarters
    return 0.0


def PlFunz_arcangle(unit, origin, to):
    """unit: 0 pseudo-angle, 1 degrees, 2 radians; anything else gives 0"""
    dx = to[0] - origin[0]
    dy = to[1] - origin[1]
    if is_null(dx) and is_null(dy):
        return 0.0

    q = quadrant_of_vector(dx, dy)
    if q == 1:
        p = halftan(div(dy, dx)) if dx > PL_EPS else 1.0
    elif q == 2:
        p = 1.0 + halftan(div(-dx, dy)) if dy > PL_EPS else 2.0
    elif q == 3:
        p = 2.0 + halftan(div(dy, dx)) if dx < -PL_EPS else 3.0
    else:
        p = 3.0 + halftan(div(-dx, dy)) if dy < -PL_EPS else 0.0

    if unit == 0:
        return p
    if unit == 1:
        return pseudo_to_angle(0, p)
    if unit == 2:
        return pseudo_to_angle(1, p)
    return 0.0


# Arc record ------------------------------------------------------------------------------------------


def _arcangle_unit(angle_type):
    return {DEGREES: 1, PSEUDO_ANGLE: 0}.get(angle_type, 2)


def _polar_unit(angle_type):
    return {DEGREES: 0, PSEUDO_ANGLE: 2}.get(angle_type, 1)


def PlFunz_arc_3pnts(p1, p2, p3, out):
    """(code, arc)"""
    ax = p2[0] - p1[0]
    ay = p2[1] - p1[1]
    bx = p3[0] - p1[0]
    by = p3[1] - p1[1]
    d = ax * by - bx * ay
    if is_null(d):
        return 5, out
    k = PlFunz_inverse(2.0 * d)
    a2 = PlFunz_sumsqrdparms(ax, ay)
    b2 = PlFunz_sumsqrdparms(bx, by)
    ux = (a2 * by - b2 * ay) * k
    uy = (b2 * ax - a2 * bx) * k
    radius = sqrt(uy * uy + ux * ux)
    centre = (p1[0] + ux, p1[1] + uy)

    angle1 = PlFunz_arcangle(2, centre, p1)
    angle3 = PlFunz_arcangle(2, centre, p3)
    angle2 = PlFunz_arcangle(2, centre, p2)
    start, end = angle1, angle3
    if angle1 < angle3 - tol(angle3):
        if not (angle2 <= angle3 + tol(angle3) and angle2 >= angle1 - tol(angle1)):
            start, end = angle3, angle1
    elif angle1 > angle3 + tol(angle3):
        if angle2 <= angle1 + tol(angle1) and angle2 >= angle3 - tol(angle3):
            start, end = angle3, angle1
    return 0, (centre, radius, RADIANS, start, end)


def PlFunz_arc_end_pnts(arc):
    """(start point, end point)"""
    centre, radius, angle_type, start, end = arc
    unit = _polar_unit(angle_type)
    return (PlFunz_pntangledist(unit, centre, radius, start),
            PlFunz_pntangledist(unit, centre, radius, end))


# Distance from an arc --------------------------------------------------------------------------------


def _distance_to_ends(arc, p):
    start_point, end_point = PlFunz_arc_end_pnts(arc)
    d1 = PlFunz_distance(p, start_point)
    d2 = PlFunz_distance(p, end_point)
    return d1 if d1 < d2 - tol(d2) else d2


def PlFunz_distpntarc(arc, p):
    centre, radius, angle_type, s, e = arc
    theta = PlFunz_arcangle(_arcangle_unit(angle_type), centre, p)
    if e < s - tol(s):
        beside = theta < s - tol(s) and theta > e + tol(e)
    else:
        beside = not (theta >= s - tol(s) and theta <= e + tol(e))
    if beside:
        return abs(_distance_to_ends(arc, p))
    return abs(PlFunz_distance(centre, p) - radius)


# Rectangle of an arc ---------------------------------------------------------------------------------


def _chord_rect(s, e):
    return (min_tol(s[0], e[0]), min_tol(s[1], e[1]), max_tol(s[0], e[0]), max_tol(s[1], e[1]))


def PlFunz_arc_rect(arc, s, e):
    (cx, cy), r = arc[0], arc[1]
    circle = (cx - r, cy - r, cx + r, cy + r)
    qs = quadrant_of_vector(s[0] - cx, s[1] - cy)
    qe = quadrant_of_vector(e[0] - cx, e[1] - cy)
    if qs == qe:
        if qs >= 3:
            all_round = e[0] <= s[0] + tol(s[0])
        else:
            all_round = s[0] <= e[0] + tol(e[0])
        return circle if all_round else _chord_rect(s, e)

    rect = list(_chord_rect(s, e))
    side_on_entering = {2: 3, 3: 0, 4: 1, 1: 2}  # +y: ymax, -x: xmin, -y: ymin, +x: xmax
    q = qs
    while q != qe:
        q = q % 4 + 1
        side = side_on_entering[q]
        rect[side] = circle[side]
    return tuple(rect)


# Arc and segment -------------------------------------------------------------------------------------


def _pnt_in_rect(rect, p):
    low = (rect[0], rect[1])
    high = (rect[2], rect[3])
    if PlFunz_samepnt(low, high):
        return PlFunz_samepnt(p, low)
    return (p[0] <= high[0] + tol(high[0]) and p[1] <= high[1] + tol(high[1])
            and p[0] >= low[0] - tol(low[0]) and p[1] >= low[1] - tol(low[1]))


def _ends_on_opposite_sides(seg, base):
    (b1, b2) = base
    bdx = b2[0] - b1[0]
    bdy = b2[1] - b1[1]
    s1 = (seg[0][1] - b1[1]) * bdx - (seg[0][0] - b1[0]) * bdy
    s2 = (seg[1][1] - b2[1]) * bdx - (seg[1][0] - b2[0]) * bdy
    return s1 * s2 < -PL_EPS


def _circle_and_segment(centre, radius, seg):
    """The points, none to two, in the direction of the segment."""
    (ox, oy), (ex, ey) = seg
    dx = ex - ox
    dy = ey - oy
    if is_null(dx) and is_null(dy):
        return []
    q = dx * dx + dy * dy
    if not is_null(q):
        k = div(1.0, sqrt(q))
        dx = dx * k
        dy = dy * k

    wx = centre[0] - ox
    wy = centre[1] - oy
    h = dx * wy - dy * wx
    d = radius * radius - h * h
    if d < -PL_EPS:
        return []
    t0 = dy * wy + dx * wx
    if is_null(d):
        candidates = [(ox + t0 * dx, oy + t0 * dy)]
    else:
        s = sqrt(d)
        candidates = [(ox + (t0 - s) * dx, oy + (t0 - s) * dy),
                      (ox + (t0 + s) * dx, oy + (t0 + s) * dy)]
    return [p for p in candidates if lines.pnt_in_segbox(seg, p)]


def _boxes_touch(ra, rs, seg):
    (x1, y1), (x2, y2) = seg
    return (_pnt_in_rect(ra, (x1, y1)) or _pnt_in_rect(ra, (x2, y2))
            or _pnt_in_rect(rs, (ra[0], ra[1])) or _pnt_in_rect(rs, (ra[2], ra[3]))
            or _pnt_in_rect(ra, (x1, y2)) or _pnt_in_rect(ra, (x2, y1))
            or _pnt_in_rect(rs, (ra[0], ra[3])) or _pnt_in_rect(rs, (ra[2], ra[1])))


def _arc_in_degrees(angle_type, angle):
    if angle_type == RADIANS:
        return angle * DEG_PER_RAD_SHORT
    if angle_type == PSEUDO_ANGLE:
        return pseudo_to_angle(0, angle)
    return angle


def _in_sweep(theta, s, e):
    if e < s - tol(s):
        return not (theta > e + tol(e) and theta < s - tol(s))
    return theta >= s - tol(s) and theta <= e + tol(e)


def PlFunz_intarcline_ls(arc, seg, out1, out2):
    """(met, first point, second point, how many)"""
    nothing = (False, out1, out2, 0)
    centre, radius, angle_type, start, end = arc
    start_point, end_point = PlFunz_arc_end_pnts(arc)
    ra = PlFunz_arc_rect(arc, start_point, end_point)
    rs = _chord_rect(seg[0], seg[1])

    diagonal = ((ra[0], ra[1]), (ra[2], ra[3]))
    if _boxes_touch(ra, rs, seg) or _ends_on_opposite_sides(diagonal, seg):
        q = _circle_and_segment(centre, radius, seg)
    else:
        q = []
    if not q or not any(_pnt_in_rect(rs, p) for p in q):
        return nothing

    s = _arc_in_degrees(angle_type, start)
    e = _arc_in_degrees(angle_type, end)
    whole_circle = abs(e - s) <= tol(s)

    if len(q) == 1:
        if not _pnt_in_rect(ra, q[0]):
            return nothing
        if whole_circle or _in_sweep(PlFunz_arcangle(1, centre, q[0]), s, e):
            return True, q[0], out2, 1
        return nothing

    if whole_circle:
        return True, q[1], out2, 1
    reported = [p for p in q if _in_sweep(PlFunz_arcangle(1, centre, p), s, e)]
    if not reported:
        return nothing
    if len(reported) == 2:
        return True, reported[0], reported[1], 2
    return True, reported[0], out2, 1


# Point in polygon ------------------------------------------------------------------------------------


class _AllOnOneLine(Exception):
    """A run of vertices goes all the way round."""


class WalkRepeats(Exception):
    """The walk stands where it has stood before."""


def _near(a, v):
    return abs(a - v) <= tol(v)


def _rightmost(vertices):
    index = 0
    best = -1.7e+200
    for i, (x, _) in enumerate(vertices):
        if x >= best - tol(best):
            index = i
            best = x
    return index


def _merge_runs(vertices, j, k):
    """The last vertex, from k on, that shares y with j; then the same for x."""
    n = len(vertices)
    for axis in (1, 0):
        steps = 0
        while _near(vertices[j][axis], vertices[k][axis]):
            k = (k + 1) % n
            steps += 1
            if steps > n:
                raise _AllOnOneLine
        if steps > 0:
            k = (k - 1) % n
    return k


def _classify(p, vertices, prev, i, j, k):
    px, py = p
    tol_x = tol(px)
    tol_y = tol(py)
    xi, yi = vertices[i]
    xj, yj = vertices[j]
    if yi < py - tol_y and yj < py - tol_y:
        return 0
    if yi > py + tol_y and yj > py + tol_y:
        return 0
    if xi < px - tol_x and xj < px - tol_x:
        return 0
    on_i = _near(py, yi)
    on_j = _near(py, yj)
    if not on_i and not on_j:
        return 1

    if on_j:
        yk = vertices[k][1]
        if yi < py - tol_y:
            passes = yk > py + tol_y
        elif yi <= py + tol_y:
            return 5
        else:
            passes = yk < py - tol_y
        if not passes:
            return 5
        return 3 if xj < px - tol_x else 4

    y_prev = vertices[prev][1]
    if y_prev < py - tol_y:
        return 2 if yj > py + tol_y and xi >= px - tol_x else 3
    if y_prev > py + tol_y and yj < py - tol_y and xi >= px - tol_x:
        return 2
    return 3


def _walk_crossings(p, vertices, rightmost):
    n = len(vertices)
    ray = (p, (vertices[rightmost][0] + 1000.0, p[1]))
    last = n - 1
    crossings = 0
    prev, i = last, 0
    j = _merge_runs(vertices, i, 1)
    seen = set()
    while i < n:
        if (prev, i, j) in seen:
            raise WalkRepeats
        seen.add((prev, i, j))

        k = _merge_runs(vertices, j, (j + 1) % n)
        code = _classify(p, vertices, prev, i, j, k)
        if code == 1:
            met, _ = lines.PlFunz_intersect_ls(ray, (vertices[i], vertices[j]), None)
            crossings += 1 if met else 0
        elif code == 2:
            crossings += 1

        if code == 4:
            crossings += 1
            prev = j
            if j == last or i == last:
                i = n
            else:
                i = k if j != 0 else n
            j = (k + 1) % n
        else:
            prev = i
            if i == last:
                i = n
            else:
                i = j if j != 0 else n
            j = k
    return crossings


def walk_repeats(p, vertices):
    """Whether the walk around this ring would go on for ever."""
    try:
        _walk_crossings(p, vertices, 0)
    except WalkRepeats:
        return True
    except _AllOnOneLine:
        pass
    return False


def _half_open_crossings(p, vertices):
    px, py = p
    crossings = 0
    for i, a in enumerate(vertices):
        b = vertices[(i + 1) % len(vertices)]
        if (a[1] > py) != (b[1] > py):
            if px < div((b[0] - a[0]) * (py - a[1]), b[1] - a[1]) + a[0]:
                crossings += 1
    return crossings


def PlFunz_inpolygon(p, vertices, rightmost):
    """(inside, index of the rightmost vertex)"""
    n = len(vertices)
    if n < 3:
        return False, rightmost
    if rightmost < 0 or rightmost >= n:
        rightmost = 0
    if rightmost == 0:
        rightmost = _rightmost(vertices)
    try:
        crossings = _walk_crossings(p, vertices, rightmost)
    except _AllOnOneLine:
        return False, rightmost
    except WalkRepeats:
        crossings = _half_open_crossings(p, vertices)
    return crossings % 2 == 1, rightmost
