"""Puts all mutants of a file into one text, each behind a switch, so that one build holds them all.

Around each change the smallest expression is looked up that the compiler knows a type for:  a < b  becomes
(SWITCH(17) ? (a <= b) : (a < b)).  What no such expression surrounds, as the constant that gives an array its size, has
no switch, and is built alone.
"""

import json
import re
import shlex
from dataclasses import dataclass, field

from clang.cindex import CursorKind, Diagnostic, Index, TranslationUnit, TypeKind

MOST = 1 << 16

HEADER = """#pragma once
#include <cstdlib>
#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>
namespace switches {
constexpr int kMost = MOST;
inline unsigned char unread[kMost];
inline unsigned char* met = unread;
inline int on = -1;
inline bool read = false;
__attribute__((constructor(101))) static void look()
{
    if (read)
        return;
    read = true;
    if (const char* number = std::getenv("SWITCH_ON"))
        on = std::atoi(number);
    const char* path = std::getenv("SWITCHES_MET");
    const int file = path != nullptr ? open(path, O_RDWR) : -1;
    if (file < 0)
        return;
    void* memory = mmap(nullptr, kMost, PROT_READ | PROT_WRITE, MAP_SHARED, file, 0);
    close(file);
    if (memory != MAP_FAILED)
        met = static_cast<unsigned char*>(memory);
}
}  // namespace switches
#define SWITCH(n) (switches::met[n] = 1, switches::on == (n))
""".replace("MOST", str(MOST))

SCALARS = {TypeKind.BOOL, TypeKind.CHAR_U, TypeKind.UCHAR, TypeKind.CHAR_S, TypeKind.SCHAR, TypeKind.USHORT, TypeKind.SHORT,
           TypeKind.UINT, TypeKind.INT, TypeKind.ULONG, TypeKind.LONG, TypeKind.ULONGLONG, TypeKind.LONGLONG,
           TypeKind.FLOAT, TypeKind.DOUBLE, TypeKind.ENUM, TypeKind.POINTER}  # fmt: skip
NO_WRAP = {CursorKind.INIT_LIST_EXPR, CursorKind.PACK_EXPANSION_EXPR}
FUNCTIONS = {TypeKind.FUNCTIONPROTO, TypeKind.FUNCTIONNOPROTO, TypeKind.OVERLOAD, TypeKind.INVALID}


FUNCTION_TYPES = {"<bound member function type>", "<overloaded function type>"}
SIGN_ALONE = re.compile(r"[^\w\"'()]+|operator\W+|\(\)|\[\]")


HOW = {"value": ("(", ")"), "nothing": ("(void)(", ")"), "place": ("&(", ")")}


@dataclass
class Wrap:
    """An expression, or a statement, with the changes inside it that are behind switches."""

    start: int
    end: int
    kind: str  # value, place, nothing (void), statement, or the name of a scalar type
    changes: list = field(default_factory=list)  # (number, mutant)
    inner: list = field(default_factory=list)


@dataclass
class Rendered:
    """A text with switches, which can be sent between processes."""

    text: str
    owners: dict  # line to the number of the change that stands there
    original_lines: dict
    lines_of: dict  # by number

    def numbers_at(self, line):
        """Whose fault an error is: the change on its line, else all those beside that line of the original."""
        if line in self.owners:
            return {self.owners[line]}
        around = self.original_lines.get(line)
        return {number for number, at in self.lines_of.items() if around is not None and abs(at - around) <= 1}


def compile_arguments(database):
    """By file, without the compiler, the file and the output."""
    found = {}
    for entry in json.loads(database.read_text()):
        words = shlex.split(entry["command"])[1:]
        kept = []
        skip = False
        for word in words:
            if skip:
                skip = False
            elif word in ("-o", "-c"):
                skip = True
            elif word != entry["file"]:
                kept.append(word)
        found.setdefault(entry["file"], kept)
    return found


class File:
    """One source with its mutants."""

    def __init__(self, path, text, arguments, mutants, others):
        """mutants: by number; others: text by path of the files that have switches too, as it is without them."""
        self.path = str(path)
        self.text = text
        self.others = [(name, other) for name, other in others.items() if name != self.path]
        self.mutants = mutants
        self.without = {}  # number to why it has no switch
        language = ["-x", "c++"] if self.path.endswith(".h") else []
        self.rendered = None
        self.arguments = [*language, *arguments, "-w", "-ferror-limit=0"]
        self.unit = Index.create().parse(
            self.path, self.arguments, options=TranslationUnit.PARSE_PRECOMPILED_PREAMBLE,
            unsaved_files=[(self.path, text), *self.others],
        )  # fmt: skip
        faults = [d for d in self.unit.diagnostics if d.severity >= Diagnostic.Error]
        if faults:
            raise ValueError(f"{self.path}: {faults[0]}")
        self.bytes_before = _positions(text)
        self.expressions = self._expressions()

    def _expressions(self):
        """(start, end, is scalar, is void, may be wrapped), ordered by size."""
        found = {}

        def visit(cursor, fixed):
            for child in cursor.get_children():
                place = child.location.file or (child.extent.start.file)
                if place is not None and place.name != self.path:
                    continue
                now_fixed = fixed
                if child.kind == CursorKind.VAR_DECL:
                    words = [t.spelling for t, _ in zip(child.get_tokens(), range(4))]
                    now_fixed = fixed or "constexpr" in words
                if child.kind in (CursorKind.STATIC_ASSERT, CursorKind.CASE_STMT, CursorKind.ENUM_CONSTANT_DECL):
                    if child.kind == CursorKind.CASE_STMT:
                        label, *rest = list(child.get_children())
                        del label
                        for each in rest:
                            look(each, child, fixed)
                        continue
                    continue
                look(child, cursor, now_fixed)

        def look(child, parent, fixed):
            if child.kind.is_expression() and not fixed:
                start, end = child.extent.start.offset, child.extent.end.offset
                kind = child.type.get_canonical().kind
                named_here = parent.kind.is_declaration() and parent.location.offset == start
                pointed = child.type.get_canonical().get_pointee().kind if kind == TypeKind.POINTER else None
                is_function = pointed in FUNCTIONS - {TypeKind.INVALID} or kind in FUNCTIONS or child.type.spelling in FUNCTION_TYPES
                allowed = child.kind not in NO_WRAP and not is_function and not named_here and end > start
                place = _is_a_place(child)
                if allowed and (kind in SCALARS or kind == TypeKind.VOID or place or parent.kind.is_statement() or _makes_a_value(child)):
                    how = "place" if place else "nothing" if kind == TypeKind.VOID else child.type.get_canonical().spelling if kind in SCALARS else "value"
                    old = found.get((start, end), (kind in SCALARS, how))
                    found[(start, end)] = (old[0] or kind in SCALARS, how if place or old[1] == "value" else old[1])
            visit(child, fixed)

        visit(self.unit.cursor, False)
        place = self.bytes_before
        listed = [(place[s], place[e], scalar, how) for (s, e), (scalar, how) in found.items() if s in place and e in place]
        return sorted(listed, key=lambda entry: entry[1] - entry[0])

    def _around(self, mutant):
        """The smallest scalar around a change, else the smallest value, else a call without one."""
        smallest = None
        for start, end, scalar, how in self.expressions:
            if not (start <= mutant.start and mutant.end <= end) or self.text[start] == "{":
                continue
            if SIGN_ALONE.fullmatch(self.text, start, end):
                continue  # the name of an operator
            if scalar or how in ("place", "nothing"):
                if smallest is None or end - start < 4 * (smallest.end - smallest.start) + 40:
                    return Wrap(start, end, how)
                return smallest
            smallest = smallest or Wrap(start, end, how)
        return smallest

    def wrapped(self):
        """The text with its switches, as it stands now."""
        roots = []
        by_range = {}
        for number, mutant in self.mutants.items():
            if number in self.without:
                continue
            if mutant.kind == "statement":
                wrap = Wrap(mutant.start, mutant.end, "statement")
            else:
                wrap = self._around(mutant)
            if wrap is None:
                self.without[number] = "no expression"
                continue
            if wrap.kind == "place" and mutant.kind != "operand":
                wrap.kind = "bool"  # a question turned round
            wrap = by_range.setdefault((wrap.start, wrap.end, wrap.kind == "place"), wrap)
            wrap.changes.append((number, mutant))
        wrapped = {number: mutant.line for wrap in by_range.values() for number, mutant in wrap.changes}
        opened = []
        for wrap in sorted(by_range.values(), key=lambda w: (w.start, -w.end, w.kind != "statement", w.kind == "place")):
            wrap.inner = []
            while opened and opened[-1].end <= wrap.start:
                opened.pop()
            if opened and wrap.end > opened[-1].end:
                for number, _ in wrap.changes:  # half in another: cannot be nested
                    self.without[number] = "crosses another"
                continue
            (opened[-1].inner if opened else roots).append(wrap)
            opened.append(wrap)
        out = Output(self.text)
        out.between(0, len(self.text), roots)
        return Rendered("".join(out.parts), out.owners, out.original_lines, wrapped)

    def settle(self, most_rounds=25):
        """Drops what does not compile behind a switch until the rest does; gives the text."""
        arguments = self.arguments
        unit = None
        for _ in range(most_rounds):
            rendered = self.wrapped()
            if unit is None:
                unit = Index.create().parse(self.path, arguments, unsaved_files=[(self.path, rendered.text), *self.others],
                                            options=TranslationUnit.PARSE_PRECOMPILED_PREAMBLE)  # fmt: skip
            else:
                unit.reparse(unsaved_files=[(self.path, rendered.text), *self.others])
            faults = [d for d in unit.diagnostics if d.severity >= Diagnostic.Error]
            if not faults:
                return rendered
            dropped = set()
            for fault in faults:
                places = [fault.location, *(note.location for note in fault.children)]
                lines = [place.line for place in places if place.file and place.file.name == self.path]
                dropped |= next(filter(None, map(rendered.numbers_at, lines)), set())
            if not dropped - set(self.without):
                dropped = {n for n in self.mutants if n not in self.without}  # give the file up
            for number in dropped:
                self.without[number] = "does not compile"
        for number in self.mutants:
            self.without.setdefault(number, "does not settle")
        return self.wrapped()


def _makes_a_value(cursor):
    """Not the name of an object: between two of them the compiler would choose a copy, which lives too short."""
    while cursor.kind in (CursorKind.UNEXPOSED_EXPR, CursorKind.PAREN_EXPR):
        inner = list(cursor.get_children())
        if len(inner) != 1:
            return False
        cursor = inner[0]
    if cursor.kind != CursorKind.CALL_EXPR:
        return cursor.kind in (CursorKind.BINARY_OPERATOR, CursorKind.UNARY_OPERATOR, CursorKind.STRING_LITERAL)
    function = cursor.referenced
    if function is None:
        return False
    if function.kind == CursorKind.CONSTRUCTOR:
        return True
    return function.result_type.kind not in (TypeKind.LVALUEREFERENCE, TypeKind.RVALUEREFERENCE)


def _is_a_place(cursor):
    """The name of an object, a member or an element: what stays an object when it is wrapped."""
    if cursor.kind == CursorKind.DECL_REF_EXPR:
        return cursor.referenced is not None and cursor.referenced.kind in (CursorKind.VAR_DECL, CursorKind.PARM_DECL)
    if cursor.kind == CursorKind.MEMBER_REF_EXPR:
        return cursor.referenced is not None and cursor.referenced.kind in (CursorKind.FIELD_DECL, CursorKind.VAR_DECL)
    return cursor.kind == CursorKind.ARRAY_SUBSCRIPT_EXPR


class Output:
    """Text that is put together, and to whom its lines belong."""

    def __init__(self, text):
        self.text = text
        self.parts = []
        self.line = 1
        self.owners = {}
        self.original_lines = {1: 1}

    def put(self, text):
        self.parts.append(text)
        self.line += text.count("\n")

    def put_original(self, start, end):
        at = start
        while True:
            newline = self.text.find("\n", at, end)
            self.original_lines.setdefault(self.line, self.text.count("\n", 0, at) + 1)
            if newline < 0:
                self.put(self.text[at:end])
                return
            self.put(self.text[at : newline + 1])
            at = newline + 1

    def between(self, start, end, wraps):
        at = start
        for wrap in wraps:
            self.put_original(at, wrap.start)
            self.wrap(wrap)
            at = wrap.end
        self.put_original(at, end)

    def wrap(self, wrap):
        if wrap.kind == "statement":
            number, _ = wrap.changes[0]
            self.put("\n{ ")
            self.owners[self.line] = number
            self.put(f"if (SWITCH({number})) {{}} else {{\n")
            self.between(wrap.start, wrap.end, wrap.inner)
            self.put("\n}}")
            return
        before, after = HOW.get(wrap.kind, (f"static_cast<{wrap.kind}>(", ")"))
        self.put("\n(*(" if wrap.kind == "place" else "\n((")
        for number, mutant in wrap.changes:
            changed = self.text[wrap.start : mutant.start] + mutant.replacement + self.text[mutant.end : wrap.end]
            self.owners[self.line] = number
            self.put(f"SWITCH({number}) ? {before}")
            for line in changed.split("\n"):
                self.owners[self.line] = number
                self.put(line + "\n")
            self.owners[self.line] = number
            self.put(f"{after} :\n")
        self.put(before)
        self.between(wrap.start, wrap.end, wrap.inner)
        self.put(f"\n{after}))")


def _positions(text):
    """Offset in bytes to offset in characters."""
    if text.isascii():
        return _Same()
    found, at = {}, 0
    for i, character in enumerate(text):
        found[at] = i
        at += len(character.encode())
    found[at] = len(text)
    return found


class _Same(dict):
    def __contains__(self, key):
        return True

    def __missing__(self, key):
        return key
