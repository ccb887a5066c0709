"""The list of mutants that no test can see, each with the reason.

A block per mutant, blank lines between them:

    folder/file.cpp function
    - the line
    + the line as changed
      why no result shows it
"""

from dataclasses import dataclass


class ListError(Exception):
    """The list does not read."""


@dataclass
class Entry:
    """A mutant, and why it cannot be seen."""

    key: tuple
    reason: str
    line: int


def read(path):
    entries = {}
    block = []
    with open(path, encoding="utf-8") as file:
        lines = [*file.read().split("\n"), ""]
    for number, line in enumerate(lines, 1):
        if line.startswith("#"):
            continue
        if line.strip():
            block.append((number, line))
        elif block:
            entry = _entry(path, block)
            if entry.key in entries:
                raise ListError(f"{path}:{entry.line}: {entry.key[0]} {entry.key[1]}: listed twice; remove one")
            entries[entry.key] = entry
            block = []
    return entries


def _entry(path, block):
    number = block[0][0]
    lines = [line for _, line in block]
    if len(lines) < 4 or not lines[1].startswith("- ") or not lines[2].startswith("+ "):
        raise ListError(f'{path}:{number}: not "file function", "- line", "+ line", "  reason"; mend the block')
    head = lines[0].split()
    function = head[1] if len(head) > 1 else ""
    reason = " ".join(line.strip() for line in lines[3:])
    return Entry((head[0], function, lines[1][2:].strip(), lines[2][2:].strip()), reason, number)


def written(mutant):
    """The block of a mutant, without its reason."""
    return f"{mutant.path} {mutant.function}".rstrip() + f"\n- {mutant.original_line}\n+ {mutant.mutated_line}"
