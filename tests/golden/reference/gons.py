"""Angles and displacements in gons, 400 to the circle, bearings from North towards East."""

import math

from .machine import NAN, atan2, cos, fmod, sin

GON_PER_RAD = 63.66197723675813
RAD_PER_GON = 0.015707963267948967
JUST_BELOW_400 = 400.0 - 1e-10


def AngoloDaAsseRifer(a, b):
    if math.isnan(a) or math.isnan(b):
        return NAN
    if a == 0.0:
        return 0.0 if b >= 0.0 else 200.0
    if b == 0.0:
        return 100.0 if a > 0.0 else 300.0
    g = atan2(a, b) * GON_PER_RAD
    if g < 0.0:
        g = g + 400.0
    if g >= 400.0:
        g = 0.0
    return g + 0.0  # an angle that vanishes west of north is no -0.0


def LimiteAng0_400(angle):
    r = fmod(angle, 400.0)
    if r < 0.0:
        r = r + 400.0
    if r >= JUST_BELOW_400:
        r = 0.0
    return r + 0.0  # -0.0 + 0.0 is +0.0


def LimiteAng200_200(angle):
    r = fmod(angle, 400.0)
    if r > 200.0:
        r = r - 400.0
    elif r <= -200.0:
        r = r + 400.0
    return r + 0.0


def _quadrant_and_rest(bearing):
    """(quadrant 0..3, angle within it in radians)"""
    r = fmod(bearing, 400.0)
    if r < 0.0:
        r = r + 400.0
        if r >= 400.0:
            r = 0.0
    if r < 100.0:
        q = 0
    elif r < 200.0:
        q = 1
    elif r < 300.0:
        q = 2
    else:
        q = 3
    return q, (r - 100.0 * q) * RAD_PER_GON


def CalcCoordEst(distance, bearing):
    q, phi = _quadrant_and_rest(bearing)
    if q == 0:
        east = distance * sin(phi)
    elif q == 1:
        east = distance * cos(phi)
    elif q == 2:
        east = -(distance * sin(phi))
    else:
        east = -(distance * cos(phi))
    return east + 0.0


def CalcCoordNord(distance, bearing):
    q, phi = _quadrant_and_rest(bearing)
    if q == 0:
        north = distance * cos(phi)
    elif q == 1:
        north = -(distance * sin(phi))
    elif q == 2:
        north = -(distance * cos(phi))
    else:
        north = distance * sin(phi)
    return north + 0.0
