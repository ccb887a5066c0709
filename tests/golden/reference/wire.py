"""The lines of the golden files: `Name operand... = result...`, with ` ~` at the end where a result
has passed through the platform's sine, cosine or arctangent.

A signature is a string of letters, one per operand or result:

    d  a double                        p  a point            P  a ring: count, then x y of each point
    g  a double that is an angle       q  a point in space   a  an arc: centre, radius, angle_type,
    i  an int                          l  an implicit line      start_angle, end_angle
    b  a bool, 0 or 1                  s  a segment          m  a matrix, row by row
                                       r  a rectangle        R  a box
"""

import math
from typing import NamedTuple

PLATFORM_MARK = "~"

SIZES = {"p": 2, "q": 3, "l": 3, "r": 4, "R": 6, "m": 9}


class Line(NamedTuple):
    name: str
    operands: list
    results: list
    platform: bool


def parse(text):
    """A Line of words, or None for a comment or an empty line."""
    words = text.split("#", 1)[0].split()
    if not words:
        return None
    platform = words[-1] == PLATFORM_MARK
    if platform:
        words.pop()
    if words.count("=") != 1:
        raise ValueError("a line needs exactly one '='")
    cut = words.index("=")
    return Line(words[0], words[1:cut], words[cut + 1:], platform)


def write(name, operands, results, platform):
    words = [name, *operands, "=", *results]
    if platform:
        words.append(PLATFORM_MARK)
    return " ".join(words)


# Numbers ---------------------------------------------------------------------------------------------


def double_word(v):
    """Hexadecimal, without the zeros that `float.hex` pads with."""
    if not math.isfinite(v):
        return "nan" if v != v else ("inf" if v > 0 else "-inf")
    mantissa, exponent = v.hex().split("p")
    if "." in mantissa:
        mantissa = mantissa.rstrip("0").rstrip(".")
    return mantissa + "p" + exponent


def read_double(word):
    if word in ("nan", "inf", "-inf"):
        return float(word)
    if "0x" not in word or "p" not in word:
        raise ValueError("not a hexadecimal double: " + word)
    return float.fromhex(word)


# Operands --------------------------------------------------------------------------------------------


def read_operands(signature, words):
    """The values that the words stand for, grouped into records."""
    rest = iter(words)

    def doubles(count):
        return tuple(read_double(next(rest)) for _ in range(count))

    def one(letter):
        if letter in "dg":
            return doubles(1)[0]
        if letter in "ib":
            return int(next(rest))
        if letter == "s":
            return (doubles(2), doubles(2))
        if letter == "P":
            count = int(next(rest))
            if count < 0:
                raise ValueError("a negative number of points")
            return [doubles(2) for _ in range(count)]
        if letter == "a":
            return (doubles(2), doubles(1)[0], int(next(rest)), *doubles(2))
        return doubles(SIZES[letter])

    try:
        values = [one(letter) for letter in signature]
    except (StopIteration, RuntimeError):
        raise ValueError("too few operands") from None
    if next(rest, None) is not None:
        raise ValueError("too many operands")
    return values


def _leaves(letter, value):
    """(letter, number) for every number of a record."""
    if letter in "dgib":
        yield letter, value
    elif letter == "s":
        for point in value:
            for v in point:
                yield "d", v
    elif letter == "P":
        yield "i", len(value)
        for point in value:
            for v in point:
                yield "d", v
    elif letter == "a":
        centre, radius, angle_type, start, end = value
        yield from (("d", centre[0]), ("d", centre[1]), ("d", radius), ("i", angle_type),
                    ("g", start), ("g", end))
    else:
        for v in value:
            yield "d", v


def flatten(signature, values):
    """[(letter, number)], letters d, g, i and b only."""
    if len(signature) != len(values):
        raise ValueError("%d values for the signature '%s'" % (len(values), signature))
    return [leaf for letter, value in zip(signature, values) for leaf in _leaves(letter, value)]


def words_of(leaves):
    return [double_word(v) if letter in "dg" else str(int(v)) for letter, v in leaves]
