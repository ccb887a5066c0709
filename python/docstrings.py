#!/usr/bin/env python3
"""docstrings.py OUTPUT KINDS HEADER...: the doc strings of the Python package, from the comments of the public headers.

Writes a C++ source with one entry for each documented name: its scope and name ("PlFunz_distance",
"plparcel::Request::line"), and the text. A function has one more entry with its arguments, for those of one name.
KINDS gets a macro for each enumeration, with its values in their order: STATUS_VALUES for Status.
"""

import pathlib
import re
import sys

SCOPE = re.compile(r"^(?:enum\s+class|enum|struct|class)\s+(?:PL\w+_API\s+)?(\w+)[^;{]*\{")
NAMESPACE = re.compile(r"^namespace\s+(\w+)\s*\{")
FUNCTION = re.compile(r"([~\w]+(?:\s*=)?)\s*\(")
VARIABLE = re.compile(r"(\w+)(?:\[\w*\])?\s*(?:=\s*[^=]+|\{\})?[,;]?$")


def described(lines):
    """The text of a comment, as Python's help() shows it."""
    out, in_tag = [], False
    for line in lines:
        in_tag = line.lstrip().startswith("@") or in_tag and line.startswith("  ")
        if in_tag and not line.lstrip().startswith("@"):
            line = "    " + line.strip()
        line = re.sub(r"^(\s*)@param\[([^]]*)\]\s+((?:\w+, )*\w+)\s+(?=\S)", parameter, line)
        line = re.sub(r"^(\s*)@param\s+(\w+)\s+", r"\1\2: ", line)
        line = re.sub(r"^(\s*)@return\s+", r"\1Returns: ", line)
        line = re.sub(r"\s@(param\[[^]]*\]|return)\s+", " ", line)
        out.append(line)
    return "\n".join(out).strip()


def parameter(match):
    direction = "" if match[2] == "in" else f" ({match[2]})"
    return f"{match[1]}{match[3]}{direction}: "


def name_of(statement):
    """The name that a declaration declares."""
    statement = re.sub(r"\bnoexcept\b|\bPL\w+_API\b", "", statement)
    function = FUNCTION.search(statement)
    if function:
        return function[1]
    variable = VARIABLE.search(statement.strip())
    return variable[1] if variable else None


class Header:
    """Reads the text of one header into the doc strings that are known already."""

    def __init__(self, text, docs, kinds):
        self.docs, self.kinds = docs, kinds
        self.scopes = []
        self.pending = []
        self.statement = ""
        self.last = None
        for line in text.splitlines():
            self.read(line.strip())

    def note(self, name, lines):
        scope = [scope for scope, _ in self.scopes if scope]
        arguments = re.search(rf"\b{re.escape(name)}\s*(\([^)]*\))", self.statement)
        if arguments:
            self.docs["::".join([*scope, name]) + " ".join(arguments[1].split())] = described(lines)
        key = "::".join([*scope, name])
        self.docs.setdefault(key, described(lines))
        if self.scopes and self.scopes[-1][1] == "enum":
            self.kinds.setdefault(self.scopes[-1][0], []).append(name)
        self.last = key

    def read(self, line):
        if line.startswith("///<"):  # the note beside the line before goes on
            if self.last:
                self.docs[self.last] += "\n" + line[4:].strip()
            return
        if line.startswith("///"):
            self.pending.append(line[4:])
            return
        if line.startswith(("//", "#")) or not line:
            if not line or line.startswith("#"):
                self.pending = []
            return
        code, _, beside = line.partition("///<")
        self.read_code(code.partition("//")[0].strip(), beside.strip())

    def read_code(self, code, beside):
        self.statement = f"{self.statement} {code}".strip()
        namespace, scope = NAMESPACE.match(self.statement), SCOPE.match(self.statement)
        if namespace or scope:
            name = (namespace or scope)[1]
            if scope and self.pending:
                self.note(name, self.pending)
            if not self.statement.endswith(("};", "}")):
                self.scopes.append((name, self.statement.split()[0]))
        elif self.statement.endswith("{"):  # the body of a function
            name = name_of(self.statement)
            if name and self.pending:
                self.note(name, self.pending)
            self.scopes.append(("", ""))
        elif self.statement.startswith("}"):
            if self.scopes:
                self.scopes.pop()
        else:
            in_enum = bool(beside) and self.statement.rstrip(",").replace(" ", "").replace("=", "").isalnum()
            whole = self.statement.endswith((";", "}", ",")) and self.statement.count("(") == self.statement.count(")")
            if not (whole or beside or in_enum):
                return
            name = name_of(self.statement.split("{ return")[0])
            if name and (beside or self.pending):
                self.note(name, [*self.pending, beside] if beside else self.pending)
        self.statement, self.pending = "", []


def main():
    output, values, *headers = map(pathlib.Path, sys.argv[1:])
    docs, kinds = {}, {}
    for header in headers:
        Header(header.read_text(encoding="utf-8"), docs, kinds)
    entries = "".join(f'    {{"{name}", R"doc({text})doc"}},\n' for name, text in sorted(docs.items()))
    output.write_text(f"""// Made by docstrings.py from the public headers.
#include "docs.h"

const Doc kDocs[] = {{
{entries}}};
const std::size_t kDocCount = sizeof kDocs / sizeof *kDocs;
""", encoding="utf-8")
    values.write_text("#pragma once\n\n// Made by docstrings.py from the public headers.\n" + "".join(
        f"#define {re.sub('(?<!^)(?=[A-Z])', '_', kind).upper()}_VALUES "
        + " ".join(f".VALUE({kind}, {name})" for name in names) + "\n" for kind, names in sorted(kinds.items())),
                      encoding="utf-8")


if __name__ == "__main__":
    main()
