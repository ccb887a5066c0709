"""How far a `~` line may be off on a platform whose sine, cosine and arctangent round differently.

Ints and bools are exact always: cases that one unit in the last place tips from one answer to another
are not among the vectors (make.py tries each case with such results and drops it).

An angle passes through one arctangent, at most two factors and one sum. It may be off by 2^-50 of
max(|angle|, 1), which is four to eight units in its last place; moving every platform result of the vectors
by one unit uses up half of that at most.

A coordinate or a distance is a coordinate plus a distance times a sine or cosine, rounded at the size of the
coordinates. It may be off by 2^-48 of the largest operand, 16 to 32 units in that one's last place; the
rotation matrix, whose shift goes through three products, uses up half of that, all others a fifth.

`CFrazArea` through a vertex cuts with a ray from the vertex to a point one unit away. At coordinates of 5e6
that point is rounded to 1e-9, so that mostly nothing changes and seldom the far end moves by some 1e-6; the
second kind of case is not among the vectors. What is left may be off by 2^-43 of the largest operand, 6e-7
at 5e6 and 1e-11 for a parcel at the origin, and uses up a quarter of it. The other two cuts use the
arctangent only to tell one side of a line from the other: moved results left each of their bits alone.
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
        return math.copysign(1.0, got) == math.copysign(1.0, wanted)
    return math.isfinite(got) and abs(got - wanted) <= allowed(name, letter, wanted, scale)
