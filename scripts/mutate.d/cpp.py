"""As much of C++ as the project's formatting lets one read without a compiler: tokens, brackets, functions.

It leans on .clang-format: a binary operator has white space on both sides, a pointer's star, a template's angle
bracket and an operator of one operand have not.
"""

import re

CLOSES = {"(": ")", "[": "]", "{": "}"}
OPENS = {close: opened for opened, close in CLOSES.items()}
CONTROL = {"if", "for", "while", "switch", "do", "else", "return", "case", "catch", "default", "sizeof", "alignof"}
TYPES_OF_SCOPE = {"namespace", "class", "struct", "enum", "union"}

_TOKEN = re.compile(
    r"""
    (?P<comment>//[^\n]*|/\*.*?\*/)
  | (?P<directive>^[ \t]*\#(?:[^\n]*\\\n)*[^\n]*)
  | (?P<raw>R"(?P<mark>[^(\s]*)\(.*?\)(?P=mark)")
  | (?P<string>"(?:[^"\\\n]|\\.)*"|'(?:[^'\\\n]|\\.)*')
  | (?P<number>(?:0x[0-9a-fA-F']+|\d[\d']*(?:\.\d*)?(?:[eE][-+]?\d+)?)[uUlLfF]*)
  | (?P<name>[A-Za-z_]\w*)
  | (?P<sign><<=|>>=|\.\.\.|->|\+\+|--|<<|>>|<=|>=|==|!=|&&|\|\||\+=|-=|\*=|/=|%=|&=|\|=|\^=|::|[^\s\w])
    """,
    re.VERBOSE | re.MULTILINE | re.DOTALL,
)


def as_one_line(text):
    """Without comments, and white space for white space."""
    return " ".join(re.sub(r"//.*", "", text).split())


class Token:
    """A word of the source, and where it stands."""

    def __init__(self, kind, text, start):
        self.kind = kind
        self.text = text
        self.start = start
        self.end = start + len(text)
        self.function = ""  # the outermost function whose body, or list of initialisers, it is in
        self.without_result = False  # in a static_assert, or in how much memory is asked for ahead


class Source:
    """The tokens of one file, without comments and directives."""

    def __init__(self, path, text):
        self.path = path
        self.text = text
        self.tokens = [
            Token("string" if match.group("raw") else match.lastgroup, match.group(), match.start())
            for match in _TOKEN.finditer(text)
            if match.lastgroup not in ("comment", "directive")
        ]
        self.within = [None] * len(self.tokens)  # by token: the bracket that is open around it
        self.partner = self._match_brackets()
        self.names_in = {}  # by function: what is named in its head and body
        self._name_functions()
        self._mark_without_result()

    def _match_brackets(self):
        partner = {}
        opened = []
        for i, token in enumerate(self.tokens):
            self.within[i] = opened[-1] if opened else None
            if token.kind != "sign":
                continue
            if token.text in CLOSES:
                opened.append(i)
            elif token.text in OPENS:
                j = opened.pop()
                if CLOSES[self.tokens[j].text] != token.text:
                    raise ValueError(f"{self.path}: {token.text} at {self.line_of(token.start)} closes nothing")
                partner[i] = j
                partner[j] = i
        return partner

    def _name_functions(self):
        i = 0
        while i < len(self.tokens):
            if self.tokens[i].text == "{":
                head = self._head_of(i)
                name = self._function_name(head, i)
                if name:
                    whole = self.tokens[head : self.partner[i] + 1]
                    self.names_in.setdefault(name, set()).update(t.text for t in whole if t.kind == "name")
                    for token in self.tokens[self._body_starts(head, i) : self.partner[i] + 1]:
                        token.function = name
                    i = self.partner[i]
            i += 1

    def _head_of(self, brace):
        """Index of the first token of what introduces a block."""
        i = brace - 1
        while i >= 0 and self.tokens[i].text not in (";", "{", "}"):
            i = self.partner[i] if self.tokens[i].text in (")", "]") else i
            i -= 1
            if i >= 1 and self.tokens[i].text == "}" and self.tokens[self.partner[i] - 1].kind == "name":
                break  # the end of a body before
        return i + 1

    def _function_name(self, head, brace):
        tokens = self.tokens[head:brace]
        texts = [token.text for token in tokens]
        if not tokens or texts[0] in CONTROL or TYPES_OF_SCOPE & set(texts) or "(" not in texts:
            return ""
        call = texts.index("(")
        if "=" in texts[:call] or call == 0:
            return ""
        if "operator" in texts[:call]:
            return "operator" + "".join(texts[texts.index("operator") + 1 : call])
        return tokens[call - 1].text if tokens[call - 1].kind == "name" else ""

    def _body_starts(self, head, brace):
        """A constructor's initialisers count as its body."""
        i = head
        while i < brace:
            if self.tokens[i].text == "(":
                i = self.partner[i]
            elif self.tokens[i].text == ":":
                return i
            i += 1
        return brace

    def _mark_without_result(self):
        for i, token in enumerate(self.tokens):
            if token.text in ("static_assert", "reserve", "make_room") and self.tokens[i + 1].text == "(":
                for inside in self.tokens[i : self.partner[i + 1] + 1]:
                    inside.without_result = True
            elif token.function == "Reserve":
                token.without_result = True

    def line_of(self, position):
        return self.text.count("\n", 0, position) + 1

    def lines_over(self, start, end):
        """Where the lines begin and end that `start` and `end` are in."""
        first = self.text.rfind("\n", 0, start) + 1
        last = self.text.find("\n", end)
        return first, len(self.text) if last < 0 else last

    def is_binary(self, i):
        token = self.tokens[i]
        return (
            0 < i < len(self.tokens) - 1
            and self.text[token.start - 1].isspace()
            and self.text[token.end].isspace()
            and (self.tokens[i - 1].kind != "sign" or self.tokens[i - 1].text in (")", "]", "}"))
        )

    def is_unary(self, i):
        token = self.tokens[i]
        before = self.tokens[i - 1]
        return not self.text[token.end].isspace() and (
            before.text in ("return", "case") or (before.kind == "sign" and before.text not in (")", "]", "}"))
        )

    def template_ends(self, i):
        """Index of the bracket that closes the template arguments that open at i."""
        depth = 0
        while True:
            text = self.tokens[i].text
            depth += {"<": 1, ">": -1, ">>": -2}.get(text, 0)
            if depth <= 0:
                return i
            i += 1

    def template_starts(self, i):
        """Index of the bracket that opens the template arguments that close at i."""
        depth = 0
        while True:
            text = self.tokens[i].text
            depth += {">": 1, ">>": 2, "<": -1}.get(text, 0)
            if depth <= 0:
                return i
            i -= 1

    def slice(self, first, last):
        """The text of the tokens from first to last, both included."""
        return self.text[self.tokens[first].start : self.tokens[last].end]
