"""Surveying computations over explicit coordinates, and area and perimeter of a ring."""

from .gons import AngoloDaAsseRifer, CalcCoordEst, CalcCoordNord, LimiteAng0_400
from .kernel import (PlFunz_arctan_deg, PlFunz_distance, PlFunz_pntangledist, PlFunz_pseudo_angdist,
                     PlFunz_set_line_2d, PlFunz_set_pnt_2d, PlFunz_set_rect_3d)
from .lines import (NO_LINE, NO_POINT, PlFunz_intersect_ile, PlFunz_intersect_ils, PlFunz_lineeq_ile,
                    PlFunz_linepntperpend, PlFunz_ordinate_ile)
from .machine import div, sqrt

EXTENT_MARGIN = 0.001
GON_PER_DEG = 1.1111111111111112


def _line(a, b):
    """The line through two points; zeros when they coincide."""
    return PlFunz_lineeq_ile(a, b, NO_LINE)[1]


# Limits, crossings -----------------------------------------------------------------------------------


def TrovatoValNeiLimiti(val, lim1, lim2):
    if lim1 < lim2:
        lo = lim1 - EXTENT_MARGIN
        hi = lim2 + EXTENT_MARGIN
    else:
        lo = lim2 - EXTENT_MARGIN
        hi = lim1 + EXTENT_MARGIN
    return val >= lo and val <= hi


def TrovatoPuntoInSegmento(pt, a, b):
    return TrovatoValNeiLimiti(pt[0], a[0], b[0]) and TrovatoValNeiLimiti(pt[1], a[1], b[1])


def CalcoloIntersezioneRette_ile(l1, l2, out):
    """(met, point)"""
    return PlFunz_intersect_ile(l1, l2, out)


def CalcoloIntersezioneRette_xy(x1, y1, x2, y2, x3, y3, x4, y4):
    """(met, x, y); the first point when they do not meet"""
    l1 = _line(PlFunz_set_pnt_2d(x1, y1), PlFunz_set_pnt_2d(x2, y2))
    l2 = _line(PlFunz_set_pnt_2d(x3, y3), PlFunz_set_pnt_2d(x4, y4))
    met, x = PlFunz_intersect_ile(l1, l2, NO_POINT)
    if not met:
        return False, x1, y1
    return True, x[0], x[1]


def CalcoloIntersezioneRetteExt(x1, y1, x2, y2, x3, y3, x4, y4, x_out, y_out):
    """(met, x, y)"""
    d1x = x2 - x1
    d1y = y2 - y1
    d2x = x4 - x3
    d2y = y4 - y3
    den = d2y * d1x - d2x * d1y
    ex = x1 - x3
    ey = y1 - y3
    if den != 0.0:
        t = div(ey * d2x - ex * d2y, den)
        return True, t * d1x + x1, t * d1y + y1
    if ex * d1y == ey * d1x:
        return True, d1x + x1, d1y + y1
    return False, x_out, y_out


def CalcCoordYsuSegmento(x1, y1, x2, y2, x):
    return PlFunz_ordinate_ile(_line((x1, y1), (x2, y2)), x)


def IntersezLineaInSegmOK(a, b, line, out):
    """(met, point); the crossing of the unbounded lines stays written when it is off the segment"""
    met, out = CalcoloIntersezioneRette_ile(_line(a, b), line, out)
    if not met:
        return False, out
    return TrovatoPuntoInSegmento(out, a, b), out


def CimaSegm(a1, b1, a2, b2):
    """(met, a1, b1, a2, b2)"""
    met, x = PlFunz_intersect_ile(_line(a1, b1), _line(a2, b2), NO_POINT)
    if not met:
        return False, a1, b1, a2, b2
    a1, b1 = _snap_nearer_end(a1, b1, x)
    a2, b2 = _snap_nearer_end(a2, b2, x)
    return True, a1, b1, a2, b2


def _snap_nearer_end(a, b, x):
    if PlFunz_pseudo_angdist(a, x)[1] < PlFunz_pseudo_angdist(b, x)[1]:
        return x, b
    return a, x


# Points at a distance, offsets -----------------------------------------------------------------------


def CalcPtAtDistSuSegm(a, b, start, dist):
    ang = PlFunz_arctan_deg(b[0] - a[0], b[1] - a[1])
    return PlFunz_pntangledist(0, start, dist, ang)


def CalcPtAtDistSuLineaImp(line, start, dist):
    ang = PlFunz_arctan_deg(-line[1], line[0])
    return PlFunz_pntangledist(0, start, dist, ang)


def _signed_by_direction(d, ang, start, target):
    ahead = PlFunz_pntangledist(0, start, d, ang)
    e_ahead = PlFunz_pseudo_angdist(target, ahead)[1]
    behind = PlFunz_pntangledist(0, start, -d, ang)
    e_behind = PlFunz_pseudo_angdist(target, behind)[1]
    return d if e_ahead < e_behind else -d


def DistPtSuSegmDaPt(a, b, start, target):
    d = PlFunz_distance(start, target)
    ang = PlFunz_arctan_deg(b[0] - a[0], b[1] - a[1])
    return _signed_by_direction(d, ang, start, target)


def DistSegmDaPt(a, b, pt, foot):
    """(signed distance, foot)"""
    line = _line(a, b)
    perp = PlFunz_linepntperpend(line, pt)
    _, foot = PlFunz_intersect_ile(line, perp, foot)
    d = PlFunz_distance(foot, pt)
    ang = PlFunz_arctan_deg(b[0] - a[0], b[1] - a[1]) - 90.0
    return _signed_by_direction(d, ang, foot, pt), foot


def CalcDistPuntoDaRetta(line, pt):
    """(distance, direction from the foot to the point in gons, from +x)"""
    perp = PlFunz_linepntperpend(line, pt)
    _, foot = PlFunz_intersect_ile(line, perp, NO_POINT)
    dist = PlFunz_distance(foot, pt)
    angle = PlFunz_arctan_deg(pt[0] - foot[0], pt[1] - foot[1]) * GON_PER_DEG
    return dist, angle


def IntersPerpDaPtInSegm(a, b, pt, out):
    """(met, foot)"""
    seg = PlFunz_set_line_2d(a[0], a[1], b[0], b[1])
    perp = PlFunz_linepntperpend(_line(a, b), pt)
    return PlFunz_intersect_ils(perp, seg, out)


def CalcPtSquadro(a, b, absc, ordinate):
    q = CalcPtAtDistSuSegm(a, b, a, absc)
    perp = PlFunz_linepntperpend(_line(a, b), q)
    if absc >= 0.0:
        return CalcPtAtDistSuLineaImp(perp, q, -ordinate)
    return CalcPtAtDistSuLineaImp(perp, q, ordinate)


def CalcPtAngDist(station, ref, angle, dist):
    dy = ref[1] - station[1]
    dx = ref[0] - station[0]
    t = AngoloDaAsseRifer(dx, dy) + angle
    t = LimiteAng0_400(t)
    return (station[0] + CalcCoordEst(dist, t), station[1] + CalcCoordNord(dist, t))


# Heights, boxes, tolerances --------------------------------------------------------------------------


def CalcoloQuotaSuSegmento(x1, y1, z1, x2, y2, z2, x, y):
    l12 = sqrt((y1 - y2) * (y1 - y2) + (x1 - x2) * (x1 - x2))
    l1p = sqrt((y1 - y) * (y1 - y) + (x1 - x) * (x1 - x))
    return div(z2 - z1, l12) * l1p + z1


def CalcoloBdry(x1, y1, z1, x2, y2, z2):
    if x1 > x2:
        x1, x2 = x2, x1
    if y1 > y2:
        y1, y2 = y2, y1
    if z1 > z2:
        z1, z2 = z2, z1
    return PlFunz_set_rect_3d(x1, y1, z1, x2, y2, z2)


def NumeroEstZero(value, tolerance):
    return abs(value) <= tolerance


def StessoPunto(p1, p2, tolerance):
    return NumeroEstZero(p1[0] - p2[0], tolerance) and NumeroEstZero(p1[1] - p2[1], tolerance)


# Area and perimeter ----------------------------------------------------------------------------------


def AreaCalcolataSgn(ring):
    n = len(ring)
    total = 0.0
    for i in range(n):
        before = ring[i - 1]  # of the first vertex: the last one
        after = ring[(i + 1) % n]
        term = ((before[0] - after[0]) * ring[i][1]) * 0.5
        total = term + total
    return total


def AreaCalcolata(ring):
    return abs(AreaCalcolataSgn(ring))


def PeriCalcolato(ring):
    n = len(ring)
    total = 0.0
    for i in range(n):
        x, y = ring[i]
        next_x, next_y = ring[(i + 1) % n]
        dx = next_x - x
        dy = next_y - y
        total = sqrt(dy * dy + dx * dx) + total
    return total
