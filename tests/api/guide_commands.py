#!/usr/bin/env python3
"""guide_commands.py SOURCE BUILD CMAKE [PAGE...]: the guide's commands print what its pages say.

An ```sh block with a block right behind it is run as a whole, and that block is what it prints, on either stream. The
blocks of a page run one after another in one copy of the sources, so a file that one of them makes is there for the
next. A block ends with status 0, or with the one that a comment `# exit status N` in it names.
"""

import difflib
import pathlib
import re
import sys
import tempfile

from documented_commands import Clone, shown_with_output

STATUS = re.compile(r"# exit status (\d)")


def difference(asked, printed):
    return "\n".join(difflib.unified_diff(asked.splitlines(), printed.splitlines(), "the page", "the program", lineterm=""))


def check(clone, page, blocks):
    """What is wrong with the page, block by block."""
    wrong = []
    for commands, said in blocks:
        result = clone.call(commands)
        status = STATUS.search(commands)
        if result.returncode != int(status.group(1) if status else 0):
            wrong.append(f"{page.name}: ends with {result.returncode}:\n{commands}{result.stdout}")
        elif result.stdout.rstrip() != said.rstrip():
            wrong.append(f"{page.name}: {commands}{difference(said, result.stdout)}")
    return wrong


def main():
    source, build, cmake = (pathlib.Path(argument).resolve() for argument in sys.argv[1:4])
    wrong, total = [], 0
    for page in sorted((source / "docs/guide").glob("*.md")):
        if sys.argv[4:] and page.name not in sys.argv[4:]:
            continue
        blocks = shown_with_output(page.read_text(encoding="utf-8"))
        if not blocks:
            continue
        with tempfile.TemporaryDirectory() as scratch:
            wrong += check(Clone(pathlib.Path(scratch), source, build, cmake), page, blocks)
        print(f"{page.name}: {len(blocks)} blocks")
        total += len(blocks)
    if total == 0:
        wrong.append("the guide has no command with its output")
    if wrong:
        sys.exit("\n".join(wrong))


if __name__ == "__main__":
    main()
