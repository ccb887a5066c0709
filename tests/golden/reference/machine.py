"""The arithmetic below the computation.

Division, square root and remainder as IEEE 754 has them, where Python would raise an error, and the
four functions that belong to the platform: sine, cosine, arctangent and its two-argument form. Their
last bit is not the same everywhere, so every call is counted, and `nudged` moves each of their results
by at most one unit in the last place to see whether an answer hangs on it.
"""

import contextlib
import math
import struct
import zlib

INF = math.inf
NAN = math.nan


def div(a, b):
    """a / b; a zero divisor gives an infinity, or NaN for 0 / 0."""
    if b == 0.0:
        if a == 0.0 or a != a:
            return NAN
        return math.copysign(INF, a) * math.copysign(1.0, b)
    return a / b


def sqrt(v):
    """Correctly rounded root; NaN below zero."""
    return NAN if v < 0.0 else math.sqrt(v)


def fmod(a, b):
    """Exact remainder with the sign of a; NaN for an infinite a."""
    return NAN if math.isinf(a) else math.fmod(a, b)


def fraction(v):
    """The part of v after the point, with the sign of v."""
    return math.modf(v)[0]


class _Platform:
    calls = 0
    nudge_seed = None


def platform_calls():
    """How many results of the platform's own functions have been used so far."""
    return _Platform.calls


@contextlib.contextmanager
def nudged(seed):
    """Inside, each platform result moves by -1, 0 or +1 unit in the last place.

    The step depends on the seed, the function and the size of the argument only, so that equal
    arguments still give equal results and odd functions stay odd, as in any real library.
    """
    _Platform.nudge_seed = seed
    try:
        yield
    finally:
        _Platform.nudge_seed = None


def _platform_result(which, value, *args):
    _Platform.calls += 1
    if _Platform.nudge_seed is None:
        return value
    key = struct.pack("<I%dd" % len(args), which, *[abs(a) for a in args])
    step = zlib.crc32(key, _Platform.nudge_seed) % 3 - 1
    if step == 0 or value != value:
        return value
    return math.nextafter(value, math.copysign(INF, value) if step > 0 else 0.0)


# At zero every platform is exact: sin 0 = 0, cos 0 = 1, atan 0 = 0. Those calls are not counted.


def sin(v):
    if v == 0.0:
        return v
    return _platform_result(1, NAN if math.isinf(v) else math.sin(v), v)


def cos(v):
    if v == 0.0:
        return 1.0
    return _platform_result(2, NAN if math.isinf(v) else math.cos(v), v)


def atan(v):
    if v == 0.0:
        return v
    return _platform_result(3, math.atan(v), v)


def atan2(a, b):
    return _platform_result(4, math.atan2(a, b), a, b)
