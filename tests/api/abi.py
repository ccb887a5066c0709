"""abi.py <shared library> <baseline> <folder of public headers>... [--write]: what programs were built against is still
there: each exported function with its arguments, and the layout of each type that they reach. A function that is new
passes, a function that is gone, or a type that lies differently in memory, fails. The library needs debug information.
With --write the baseline is written anew; docs/compatibility.md says when that is right.

abidw (Debian: abigail-tools) describes the library, and abidiff compares. In between, whatever no exported function
reaches is left out, so that a baseline is small and says nothing of what may change.
"""

import argparse
import pathlib
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as xml

# What abidiff's exit status is made of.
FAILED, MISUSED, CHANGED, BROKEN = 1, 2, 4, 8
TYPES = {"array-type-def", "class-decl", "enum-decl", "function-type", "pointer-type-def", "qualified-type-def",
         "reference-type-def", "type-decl", "typedef-decl", "union-decl"}


def described(library, headers):
    command = ["abidw", "--exported-interfaces-only", "--drop-private-types", "--no-corpus-path", "--no-comp-dir-path",
               "--no-show-locs", "--no-parameter-names", "--no-elf-needed",
               "--no-write-default-sizes"]
    for folder in headers:
        command += ["--headers-dir", folder]
    done = subprocess.run([*command, library], stdout=subprocess.PIPE, check=True)
    return xml.fromstring(done.stdout)


def drop(tree, wanted):
    """Removes the elements that are not wanted, and those around them that are then empty."""
    for child in list(tree):
        drop(child, wanted)
        if not wanted(child):
            tree.remove(child)


def pruned(corpus):
    """Leaves the exported functions and the types that they reach. Members that are not exported are compiled into
    the caller, and are no part of a layout."""
    functions = {"function-decl", "member-function"}

    def is_exported(element):
        if element.tag == "member-function":
            return any("elf-symbol-id" in function.attrib for function in element)
        return element.tag != "function-decl" or "elf-symbol-id" in element.attrib

    drop(corpus, is_exported)

    # A type is reached by its id, or because a type inside it is.
    holders = {}
    waiting = []

    def note(element, holder):
        if element.tag in TYPES and "id" in element.attrib:
            holders[element.get("id")] = (element, holder)
            holder = element.get("id")
        elif element.tag in functions and holder is None:
            waiting.append(element)
        for child in element:
            note(child, holder)
        if element.tag == "member-function":
            waiting.append(element)
            reached.add(holder)

    reached = set()
    note(corpus, None)
    waiting += [holders[name][0] for name in reached]

    def refer(name):
        if name is not None and name in holders and name not in reached:
            reached.add(name)
            waiting.append(holders[name][0])
            refer(holders[name][1])

    def follow(element):
        for attribute in ("type-id", "naming-typedef-id", "def-of-decl-id"):
            refer(element.get(attribute))
        for child in element:
            if child.tag not in TYPES and child.tag != "member-type":
                follow(child)

    while waiting:
        follow(waiting.pop())
    drop(corpus, lambda element: element.tag not in TYPES or element.get("id", None) in reached | {None})
    drop(corpus, lambda element: element.tag not in {"namespace-decl", "abi-instr", "member-type"} or len(element) > 0)
    for number, unit in enumerate(corpus.iter("abi-instr")):
        unit.set("path", str(number))  # the files' own names depend on where the build folder lies
    return corpus


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("library")
    parser.add_argument("baseline", type=pathlib.Path)
    parser.add_argument("headers", nargs="+")
    parser.add_argument("--write", action="store_true")
    arguments = parser.parse_args()

    corpus = pruned(described(arguments.library, arguments.headers))
    count = sum(1 for element in corpus.iter("function-decl") if "elf-symbol-id" in element.attrib)
    symbols = sum(1 for symbol in corpus.iter("elf-symbol") if "alias" not in symbol.attrib)
    # Without debug information there would be nothing to compare.
    if count < symbols:
        sys.exit(f"only {count} of the {symbols} functions of {arguments.library} are described: was it built with -g?")
    xml.indent(corpus, " ")
    text = xml.tostring(corpus, encoding="unicode") + "\n"
    if arguments.write:
        arguments.baseline.write_text(text, encoding="utf-8")
        return
    with tempfile.TemporaryDirectory() as work:
        now = pathlib.Path(work) / arguments.baseline.name
        now.write_text(text, encoding="utf-8")
        done = subprocess.run(["abidiff", "--no-added-syms", arguments.baseline, now], stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT, text=True, check=False)
    if done.returncode != 0:
        sys.exit(f"{done.stdout}\n{arguments.library} is no longer what programs were built against (abidiff ends with "
                 f"{done.returncode}); docs/compatibility.md says what may change, and when")
    print(f"{count} functions and what they reach, as in {arguments.baseline.name}")


main()
