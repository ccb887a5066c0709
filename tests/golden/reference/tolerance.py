"""How far a `~` line may be off on a platform whose sine, cosine and arctangent round differently.

Ints and bools are exact always: cases that one unit in the last place tips from one answer to another
are not among the vectors (make.py tries each case with such results and drops it).

An angle passes through one arctangent, one factor and one sum: four units in the last place of the
largest angle of its unit, 2 pi, 360 or 400, bound that, and 2^-50 of max(|angle|, 1) is never more than
that for the angles that are not tiny.

A coordinate or a distance is a coordinate plus a distance times a sine or cosine, rounded at the size of
the coordinates: 2^-48, that is 16 units in the last place, of the largest coordinate or distance that was
handed in. An angle handed in counts too, since it is a plain operand, yet none is larger than the
coordinates that matter.

`CFrazArea` through a vertex builds its ray from the vertex and a point one unit away. At coordinates of
5e6 that point is rounded to 1e-9, so one bit of a cosine turns the ray by 1e-9 and moves its far end,
kilometres away, by some 1e-6; a longer search adds to that. 2^-38 of the largest operand, 2e-5 at 5e6
and a few 1e-9 for a parcel at the origin, bounds what make.py finds, with the cut area still within its
own 1e-6. The other two cuts use the arctangent only to tell one side of a line from the other.
"""

import math

ANGLE_REL = 2.0 ** -50
LENGTH_REL = 2.0 ** -48
SUBDIVISION_REL = 2.0 ** -43


def scale_of(operand_leaves):
    """The largest finite double handed in, at least 1."""
    return max([1.0] + [abs(v) for letter, v in operand_leaves if letter in "dg" and math.isfinite(v)])


def allowed(name, letter, wanted, scale):
    if letter == "g":
        return ANGLE_REL * max(abs(wanted), 1.0)
    return (SUBDIVISION_REL if name.startswith("CFrazArea") else LENGTH_REL) * scale


def agree(name, letter, got, wanted, scale):
    if letter in "ib":
        return int(got) == int(wanted)
    if math.isnan(wanted) or math.isnan(got):
        return math.isnan(wanted) and math.isnan(got)
    if got == wanted:
        return True
    return math.isfinite(got) and abs(got - wanted) <= allowed(name, letter, wanted, scale)
