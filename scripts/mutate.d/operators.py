"""The changes: one comparison, sign, operand, constant, statement or order of operations at a time.

What cannot change a result by construction is not made: a + b for b + a, another order of operations where one of
them halves or doubles, or of integers, which is exact, the starting value of a variable whose address is handed out
to be filled in, the zero of a member that holds nothing yet, a NaN made by other operations, the memory asked for
ahead, the dimension of an array. Nor is the order of operations changed where no bits are promised, nor a colour or
a distance on a drawing: one tenth of a millimetre more is as good.
"""

import re
from dataclasses import dataclass

from cpp import CLOSES, CONTROL, OPENS, Source, as_one_line

KINDS = ("comparison", "sign", "operand", "constant", "statement", "order")

# Where results are defined to the last bit. plparcel computes with 106 bits and is judged by what it holds; what the
# program prints is rounded.
BITS_ARE_THE_CONTRACT = ("kernel/", "lines/", "arcs/", "survey/", "subdivision/", "plutil/")
DRAWINGS = ("tools/plcalc/plan/", "tools/plcalc/sheet/")


@dataclass(frozen=True)
class Mutant:
    """One change in one file."""

    path: str
    line: int
    function: str
    kind: str
    start: int
    end: int
    replacement: str
    original_line: str
    mutated_line: str

    @property
    def key(self):
        """What it is known by when the lines move: where it stands is not part of it."""
        return self.path, self.function, self.original_line, self.mutated_line

    def apply(self, text):
        return text[: self.start] + self.replacement + text[self.end :]


# Another bound, and the opposite.
COMPARISONS = {
    "<": ("<=", ">="),
    "<=": ("<", ">"),
    ">": (">=", "<="),
    ">=": (">", "<"),
    "==": ("!=",),
    "!=": ("==",),
    "&&": ("||",),
    "||": ("&&",),
}
NAMED_COMPARISONS = {
    "below": ("at_most", "above"),
    "above": ("at_least", "below"),
    "at_most": ("below", "at_least"),
    "at_least": ("above", "at_most"),
    "is_near": ("at_most", "at_least"),
    "PlFunz_min_tol": ("PlFunz_max_tol",),
    "PlFunz_max_tol": ("PlFunz_min_tol",),
    "min": ("max",),
    "max": ("min",),
    "fmax": ("fmin",),
    "fmin": ("fmax",),
    "all_of": ("any_of",),
    "any_of": ("all_of",),
    "none_of": ("any_of",),
    "lower_bound": ("upper_bound",),
    "floor": ("ceil",),
    "ceil": ("floor",),
}

SIGNS = {"+": "-", "-": "+", "*": "/", "/": "*", "%": "/", "<<": ">>", ">>": "<<", "&": "|", "|": "&"}
STEPS = {"+=": "-=", "-=": "+=", "*=": "/=", "/=": "*=", "++": "--", "--": "++", "<<=": ">>=", ">>=": "<<=", "|=": "&="}

# Operands that are easily taken for each other.
PAIRS = [
    ("start", "end"), ("first", "second"), ("from", "to"), ("before", "after"), ("low", "high"), ("sin", "cos"),
    ("along", "across"), ("open", "anchor"), ("wide", "narrow"), ("ahead", "behind"), ("level", "plumb"),
    ("quarter", "three_quarters"), ("half", "full"), ("c_from", "c_to"), ("q", "f"), ("c", "s"), ("sx", "sy"),
    ("vi", "vj"), ("INT64_MAX", "INT64_MIN"), ("kAlongNormal", "kAgainstNormal"), ("after", "before"),
    ("absc", "ord"), ("NumPunti", "NumPuntiParz"), ("push_back", "pop_back"), ("turned", "rest"),
    ("from_a2", "from_b2"), ("a2", "b2"), ("from_start", "from_end"), ("dist", "gon"), ("line", "station"),
    ("AreaParziale", "AreaRichiesta"), ("size", "across"), ("root", "lack"), ("fraction", "exponent"),
    ("left", "right"), ("top", "bottom"), ("width", "height"), ("hi", "lo"), ("front", "back"), ("row", "column"),
    ("asked", "rest"), ("request", "rest"), ("from_side", "to_side"), ("above", "below"), ("width_low", "width_high"),
    ("one", "other"), ("here", "there"), ("name", "text"), ("lines", "pieces"), ("area", "perimeter"),
    ("area", "asked"), ("left_", "right_"), ("top_", "bottom_"), ("width_", "height_"), ("from_", "to_"),
]  # fmt: skip
SIBLINGS = {}
for _one, _other in PAIRS:
    SIBLINGS.setdefault(_one, []).append(_other)
    SIBLINGS.setdefault(_other, []).append(_one)
SIBLINGS["vk"] = ["vj"]
SIBLINGS["prev"] = ["i"]
SIBLINGS["kUnclear"] = ["kAlongNormal"]
FUNCTIONS = {"sin", "cos", "push_back", "pop_back", "after", "before", "x_at", "y_at", "level", "plumb"}
_XY = re.compile(r"(d|e|w|u|a|b|d1|d2|centre_|near_)?([xy])([1-4]|_at|_grows|Out|min|max)?")
_NUMBERED = re.compile(r"([A-Za-z_]+?)([1-4])([a-z]?|_\w+)")
_FIELDS = {"a": "b", "b": "a", "c": "a"}

# The order of these arguments makes no difference to the bits: a difference is squared or made positive, a sum
# has two terms, two tests are joined by "and". Their own bodies are changed as all others.
SYMMETRIC = {
    "is_short", "PlFunz_sumsqrdparms", "PlFunz_distance", "PlFunz_samepnt", "CalcDist", "equal", "midpoint",
    "extent_between", "distance2", "same_place", "same", "hypot", "min", "max", "fmin", "fmax", "dot", "exact_sum",
    "exact_product",
}  # fmt: skip

# Statements without which everything is as it was, only slower.
WITHOUT_EFFECT = {"reserve", "Reserve", "make_room", "static_assert", "assert", "static_cast"}

# The value comes first, then two limits in any order.
LIMITS = {"TrovatoValNeiLimiti"}


def siblings_of(source, i):
    """Other names that could stand for the name at i."""
    name = source.tokens[i].text
    found = list(SIBLINGS.get(name, ()))
    match = _XY.fullmatch(name)
    if match:
        prefix, axis, suffix = (part or "" for part in match.groups())
        found.append(prefix + ("y" if axis == "x" else "x") + suffix)
    match = _NUMBERED.fullmatch(name)
    if match:
        stem, digit, suffix = match.groups()
        found.append(stem + {"1": "2", "2": "1", "3": "4", "4": "3"}[digit] + suffix)
    is_field = source.tokens[i - 1].text in (".", "->")
    if is_field and name in _FIELDS:
        found.append(_FIELDS[name])
    for here, there in (("start_", "end_"), ("end_", "start_")):
        if name.startswith(here):
            found.append(there + name[len(here) :])
    for here, there in (("min", "max"), ("max", "min")):
        if re.fullmatch("[xyz]" + here, name):
            found.append(name[0] + there)
    for here, there in (("Radians", "Degrees"), ("Degrees", "Radians"), ("Pseudo", "Degrees")):
        if re.fullmatch(r"k\w*" + here, name):
            found.append(name[: -len(here)] + there)
    # A local name must be one that the function has; the compiler tells of all others.
    known = source.names_in[source.tokens[i].function]
    return [other for other in found if is_field or other in known or not other.islower() or other in FUNCTIONS]


def next_number(text):
    """The number with its last digit one up: what a slip of the pen gives."""
    if text.startswith("0x"):
        return hex(int(text.replace("'", ""), 16) + 1)
    match = re.fullmatch(r"([\d']+)(\.\d*)?([eE][-+]?\d+)?([uUlLfF]*)", text)
    whole, decimals, exponent, suffix = (part or "" for part in match.groups())
    digits = whole.replace("'", "") + decimals[1:]
    up = str(int(digits) + 1).rjust(len(digits), "0")
    if decimals:
        places = len(decimals) - 1
        up = up[: len(up) - places] + "." + up[len(up) - places :]
    return up + exponent + suffix


class Changes:
    """All mutants of one source."""

    def __init__(self, source: Source, enums):
        self.source = source
        self.enums = enums
        self.found = {}

    def all(self):
        for i, token in enumerate(self.source.tokens):
            if token.without_result:
                continue
            if token.kind == "number":
                self.constant(i)
            elif token.kind == "sign" and token.function:
                self.sign(i)
            elif token.kind == "name" and token.function:
                self.name(i)
            if token.function and self._begins_a_statement(i):
                self.statement(i)
        return sorted(self.found.values(), key=lambda mutant: (mutant.start, mutant.end, mutant.replacement))

    def add(self, kind, first, last, replacement):
        source = self.source
        start, end = source.tokens[first].start, source.tokens[last].end
        if source.text[start:end] == replacement:
            return
        line_start, line_end = source.lines_over(start, end)
        original = as_one_line(source.text[line_start:line_end])
        mutated = as_one_line(source.text[line_start:start] + replacement + source.text[end:line_end])
        mutant = Mutant(source.path, source.line_of(start), source.tokens[first].function, kind, start, end,
                        replacement, original, mutated)  # fmt: skip
        self.found.setdefault((mutant.key, mutant.line), mutant)

    # --- constants ---

    def constant(self, i):
        if self._is_dimension(i) or self._is_filled_in(i) or self._is_placeholder(i) or self._is_drawn(i):
            return
        self.add("constant", i, i, next_number(self.source.tokens[i].text))

    def _is_dimension(self, i):
        """The number between the brackets of a declared array."""
        tokens = self.source.tokens
        if tokens[i - 1].text != "[":
            return False
        at = i - 1
        while tokens[at].text == "[":
            at -= 1
            if tokens[at].text == "]":
                at = self.source.partner[at]
        if tokens[at].text == ")":  # (*M)[3], (&M)[3][3]
            return tokens[self.source.partner[at] + 1].text in ("*", "&")
        return tokens[at - 1].kind == "name" and tokens[at - 1].text not in CONTROL

    def _is_filled_in(self, i):
        """The starting value in "double v = 0.0;" where the function hands out &v."""
        tokens = self.source.tokens
        if not tokens[i].function or tokens[i - 1].text != "=" or tokens[i + 1].text != ";":
            return False
        name = tokens[i - 2]
        return any(
            here.text == "&" and there.text == name.text and here.end == there.start and there.function == name.function
            for here, there in zip(tokens, tokens[1:])
        )

    def _is_placeholder(self, i):
        """The zero of a class's or record's member that holds nothing yet."""
        tokens = self.source.tokens
        at_rest = tokens[i - 1].text == "=" and tokens[i + 1].text == ";" and tokens[i - 4].text != "constexpr"
        return not tokens[i].function and tokens[i].text in ("0", "0.0") and at_rest

    def _is_drawn(self, i):
        return self.source.path.startswith(DRAWINGS) and "." in self.source.tokens[i].text

    # --- comparisons and signs ---

    def sign(self, i):
        text = self.source.tokens[i].text
        if self.source.is_binary(i):
            for other in COMPARISONS.get(text, ()):
                self.add("comparison", i, i, other)
            if text in SIGNS:
                self.add("sign", i, i, SIGNS[text])
            elif text in STEPS:
                self.add("sign", i, i, STEPS[text])
            if text in ("+", "-", "*", "/") and self.source.path.startswith(BITS_ARE_THE_CONTRACT):
                self.order(i)
        elif text in ("++", "--"):
            self.add("sign", i, i, STEPS[text])
        elif text == "!" and self.source.is_unary(i):
            self.add("comparison", i, i, "")
        elif text == "-" and self.source.is_unary(i):
            self.add("sign", i, i, "")

    def name(self, i):
        source = self.source
        token = source.tokens[i]
        called = i + 1 < len(source.tokens) and source.tokens[i + 1].text == "("
        if token.text in ("true", "false"):
            self.add("constant", i, i, "false" if token.text == "true" else "true")
            return
        if token.text == "PL_EPS":
            self.add("constant", i, i, "(2.0 * PL_EPS)")
            return
        if called:
            for other in NAMED_COMPARISONS.get(token.text, ()):
                self.add("comparison", i, i, other)
            if token.text in ("fabs", "abs"):
                with_std = source.tokens[i - 1].text == "::"
                self.add("sign", i - 2 if with_std else i, i, "")
            if token.text in ("if", "while"):
                self.condition(i)
            self.arguments(i)
        self.enumerator(i)
        if not self._is_declared(i):
            for other in siblings_of(source, i):
                self.add("operand", i, i, other)

    def condition(self, i):
        """A question that is asked the other way round, where it is no comparison."""
        source = self.source
        opened, closed = i + 1, source.partner[i + 1]
        inside = range(opened + 1, closed)
        if any(source.tokens[at].text in (*COMPARISONS, "!", ";", "=") for at in inside):
            return
        self.add("comparison", opened + 1, closed - 1, f"!({source.slice(opened + 1, closed - 1)})")

    def enumerator(self, i):
        """Another value of the same enumeration."""
        tokens = self.source.tokens
        values = self.enums.get(tokens[i - 2].text, ())
        if tokens[i - 1].text != "::" or tokens[i].text not in values or "case" in (tokens[i - 3].text, tokens[i - 5].text):
            return
        self.add("constant", i, i, values[(values.index(tokens[i].text) + 1) % len(values)])

    def _is_declared(self, i):
        """A name behind its type."""
        source = self.source
        before = source.tokens[i - 1]
        if before.kind == "name":
            return before.text not in CONTROL
        glued = source.tokens[i - 1].start == source.tokens[i - 2].end
        spaced = source.text[source.tokens[i].start - 1].isspace()
        return before.text in ("*", "&", ">") and glued and spaced

    def arguments(self, i):
        """Two neighbouring arguments change places."""
        source = self.source
        if source.tokens[i].text in CONTROL or source.tokens[i].text in SYMMETRIC:
            return
        opened = i + 1
        commas = []
        at = opened + 1
        while at < source.partner[opened]:
            if source.tokens[at].text in ("(", "[", "{"):
                at = source.partner[at]
            elif source.tokens[at].text == ",":
                commas.append(at)
            at += 1
        bounds = [opened, *commas, source.partner[opened]]
        for left, comma, right in zip(bounds, bounds[1:], bounds[2:]):
            one = source.slice(left + 1, comma - 1)
            other = source.slice(comma + 1, right - 1)
            limits = source.tokens[i].text in LIMITS and left != opened
            if one != other and not limits:
                self.add("operand", left + 1, right - 1, f"{other}, {one}")

    # --- statements ---

    def _begins_a_statement(self, i):
        tokens = self.source.tokens
        before = tokens[i - 1]
        around = self.source.within[i]
        if before.function != tokens[i].function or around is None or tokens[around].text != "{":
            return False
        if before.text == ")":
            return tokens[self.source.partner[i - 1] - 1].text in ("if", "for", "while")
        return before.text in (";", "{", "}", "else")

    def statement(self, i):
        """A call or an assignment is left out."""
        tokens = self.source.tokens
        at = i
        ends = None
        while at < len(tokens):
            text = tokens[at].text
            if text == ";":
                ends = at
                break
            if text == "{" or text in OPENS:
                return  # a body, or the last part of a for
            if text in CLOSES:
                at = self.source.partner[at]
            at += 1
        words = [token.text for token in tokens[i:ends]]
        if ends is None or not words or words[0] in CONTROL | {"throw", "break", "continue", "using", "auto", "const"}:
            return
        if WITHOUT_EFFECT & set(words) or not self._changes_something(i, ends):
            return
        self.add("statement", i, ends, ";")

    def _changes_something(self, first, end):
        """An expression whose result is not declared: no two names in a row, a call or an assignment at its end."""
        tokens = self.source.tokens
        at = first
        assigned = tokens[first].text in ("++", "--") or tokens[end - 1].text in ("++", "--")
        while at < end:
            token, after = tokens[at], tokens[at + 1]
            if token.kind == "name" and after.kind == "name":
                return assigned
            if token.text in (">", "&", "*") and after.kind == "name" and not self.source.is_binary(at) and not assigned and at > first:
                return False
            if token.text == "=" or token.text in STEPS:
                assigned = True
            if token.text in CLOSES:
                at = self.source.partner[at]
            at += 1
        return assigned or tokens[end - 1].text == ")"

    # --- order of operations ---

    PRODUCT = ("*", "/")
    SUM = ("+", "-")

    def order(self, i):
        """The same on paper: regrouped, multiplied out, or with a reciprocal. Only the rounding moves."""
        source = self.source
        text = source.tokens[i].text
        level = self.PRODUCT if text in self.PRODUCT else self.SUM
        left = self._left_operand(i, level)
        right = self._right_operand(i, level)
        if left is None or right is None:
            return
        x_y, z = source.slice(left, i - 1), source.slice(i + 1, right)

        inner = self._operator_of(left, i - 1, level)
        if inner is not None:
            first, last = self._without_brackets(left, i - 1)
            x, y = source.slice(first, inner - 1), source.slice(inner + 1, last)
            one = source.tokens[inner].text
            other = self._joined(one, text, level)
            self._add_order(level, left, right, (x, y, z), f"{x} {one} ({y} {other} {z})")
        inner = self._operator_of(i + 1, right, level)
        if inner is not None:
            first, last = self._without_brackets(i + 1, right)
            y, w = source.slice(first, inner - 1), source.slice(inner + 1, last)
            other = self._joined(text, source.tokens[inner].text, level)
            self._add_order(level, left, right, (x_y, y, w), f"{x_y} {text} {y} {other} {w}")

        if level != self.PRODUCT:
            return
        inner = self._operator_of(left, i - 1, self.SUM)
        if inner is not None:
            first, last = self._without_brackets(left, i - 1)
            a, b = source.slice(first, inner - 1), source.slice(inner + 1, last)
            self._add_order(level, left, right, (z,), f"({a} {text} {z} {source.tokens[inner].text} {b} {text} {z})")
        inner = self._operator_of(i + 1, right, self.SUM)
        if inner is not None and text == "*":
            first, last = self._without_brackets(i + 1, right)
            a, b = source.slice(first, inner - 1), source.slice(inner + 1, last)
            self._add_order(level, left, right, (x_y,), f"({x_y} * {a} {source.tokens[inner].text} {x_y} * {b})")
        if text == "/":
            self._add_order(level, left, right, (z,), f"{x_y} * (1.0 / {z})")

    def _add_order(self, level, left, right, operands, replacement):
        makes_nan = re.search(r"\b(\w+) - \1\b", self.source.slice(left, right))
        halves = level == self.PRODUCT and {"0.5", "2.0"} & set(operands)
        if not halves and not makes_nan and not self._has_integers(left, right):
            self.add("order", left, right, replacement)

    def _has_integers(self, left, right):
        """Numbers of the library's doubles have a decimal point, its integers are cast by name; or there is no double."""
        names = self.source.names_in[self.source.tokens[left].function]
        if "int32_t" in names and "double" not in names and not any(name.endswith("_record") for name in names):
            return True
        return any(
            re.fullmatch(r"\d+", token.text) or token.text.startswith(("int", "uint"))
            for token in self.source.tokens[left : right + 1]
        )

    def _joined(self, one, other, level):
        """The operator between y and z when x one (y _ z) is to be x one y other z."""
        if one == level[0]:
            return other
        return level[1] if other == level[0] else level[0]

    def _left_operand(self, i, level):
        """First token of what the operator at i has on its left: a chain of its own level, or tighter."""
        tokens = self.source.tokens
        at = i - 1
        while at >= 0:
            text = tokens[at].text
            if text in (")", "]", "}"):
                if text == "}":
                    return None
                at = self.source.partner[at]
            elif text in (">", ">>") and not self.source.is_binary(at):
                at = self.source.template_starts(at)
            elif tokens[at].kind == "sign" and text not in (".", "->", "::"):
                if self.source.is_binary(at):
                    tighter = text in level or (level == self.SUM and text in (*self.PRODUCT, "%"))
                    if not tighter:
                        return at + 1
                elif not (text == "-" and self.source.is_unary(at)):
                    return at + 1
            elif text in CONTROL:
                return at + 1
            at -= 1
        return None

    def _right_operand(self, i, level):
        """Last token of what it has on its right, up to the next operator of its level."""
        tokens = self.source.tokens
        at = i + 1
        while at < len(tokens):
            text = tokens[at].text
            if text in ("(", "[", "{"):
                at = self.source.partner[at]
            elif text == "<" and not self.source.is_binary(at):
                at = self.source.template_ends(at)
            elif tokens[at].kind == "sign" and text not in (".", "->", "::"):
                if self.source.is_binary(at):
                    if not (level == self.SUM and text in (*self.PRODUCT, "%")):
                        return at - 1
                elif not (text == "-" and self.source.is_unary(at)):
                    return at - 1
            at += 1
        return None

    def _without_brackets(self, first, last):
        if self.source.tokens[first].text == "(" and self.source.partner[first] == last:
            return first + 1, last - 1
        return first, last

    def _operator_of(self, first, last, level):
        """The last operator of that level in an operand, when it is what the operand is made of."""
        first, last = self._without_brackets(first, last)
        tokens = self.source.tokens
        found = None
        at = first
        while at <= last:
            text = tokens[at].text
            if text in ("(", "[", "{"):
                at = self.source.partner[at]
            elif tokens[at].kind == "sign" and self.source.is_binary(at):
                if text in level:
                    found = at
                elif not (level == self.SUM and text in (*self.PRODUCT, "%")):
                    return None  # looser, as a comparison, or tighter than wanted: a product in a sum
            elif tokens[at].kind == "sign" and text == ",":
                return None
            at += 1
        return found


def enums_of(texts):
    """Enumerators by the name of their enumeration, from sources."""
    found = {}
    for text in texts:
        for name, body in re.findall(r"\benum class (\w+)[^{;]*\{([^}]*)\}", text):
            values = re.findall(r"^\s*(\w+)", re.sub(r"//[^\n]*", "", body).replace(",", "\n"), re.MULTILINE)
            if len(values) > 1:
                found[name] = values
    return found


def mutants_of(path, text, enums):
    return Changes(Source(path, text), enums).all()
