#!/usr/bin/env python3
"""guide_names.py SOURCE: docs/guide/names.md and docs/words.txt know every name and code of the headers, and no other.

Every exported function has a row in English and a word that finds it, every Italian word in a name is explained, and every
constant of an enumeration, every code that a function returns and every parameter that takes a mode or a unit is in a table. A
request is refused with no status that docs/guide/refused.md does not show.
"""

import pathlib
import re
import subprocess
import sys

LISTS = ("plcalc_symbols.txt", "plutil_symbols.txt")
HEADERS = ("include/plcalc", "plutil/include/plutil", "plparcel/include/plparcel", "c/include")
MODES = ("unit", "modo", "tipoArea")  # parameters that take a number with a meaning


def exported(source):
    """The functions as C++ writes them, a line each."""
    symbols = "\n".join((source / "tests/api" / name).read_text(encoding="ascii") for name in LISTS)
    return subprocess.run(["c++filt"], input=symbols, capture_output=True, text=True, check=True).stdout


def section(page, title):
    return page.partition(f"\n## {title}\n")[2].partition("\n## ")[0]


def words_without_meaning(page, functions):
    """Words in Italian names that the first table does not explain."""
    rows = re.findall(r"^\| (`.*?) \| ", section(page, "Italian words in names"), re.M)
    terms = sorted((term for row in rows for term in re.findall(r"`([^`]+)`", row)), key=len, reverse=True)
    known = re.compile("|".join(map(re.escape, terms)))
    for name in sorted(set(re.findall(r"^(?:CFrazArea::)?(\w+)\(", functions, re.M))):
        unknown = re.findall("[A-Za-z]+", known.sub(" ", name))
        if not name.startswith(("PlFunz_", "CFrazArea")) and unknown:
            yield f"no row tells what {', '.join(unknown)} means in {name}"


def functions_without_row(source, page, functions):
    called = set(re.findall(r"^(\w+)\(", functions, re.M)) | {"CFrazArea", "Esegui"}  # its other members are its own
    rows = re.findall(r"^\| (`.*?) \| ", section(page, "Every function in English"), re.M)
    named = {name for row in rows for name in re.findall(r"`([^`]+)`", row)}
    yield from (f"no row tells what {name} is in English" for name in sorted(called - named))
    yield from (f"there is no function {name}" for name in sorted(named - called))
    calls = re.findall(r"^  calls (.*)$", (source / "docs/words.txt").read_text(encoding="utf-8"), re.M)
    found = {name.rpartition("::")[2] for row in calls for name in row.split()}
    yield from (f"no word finds {name}: docs/words.txt" for name in sorted(called - found))


def constants(headers):
    """{name: number, or None where C++ counts} of every enumeration."""
    code = re.sub(r"/\*.*?\*/", "", re.sub(r"//.*", "", headers), flags=re.S)
    for body in re.findall(r"^enum\b[^{;]*\{(.*?)\}", code, re.M | re.S):
        for name, number in re.findall(r"(\w+)\s*(?:=\s*(\d+)\s*)?(?:,|$)", body.strip()):
            yield name, number or None


def constants_without_row(page, headers):
    rows = [line for line in page.splitlines() if line.startswith("| ")]
    known = set()
    for name, number in constants(headers):
        known.add(name)
        told = [row for row in rows if f"`{name}`" in row]
        if not told:
            yield f"no row has {name}"
        elif number and name.isupper() and not any(re.search(rf"`{name}`, {number} |\| {number}, `{name}` ", row) for row in told):
            yield f"no row says that {name} is {number}"
    for name in sorted(set(re.findall(r"`(PLC?_[A-Z_]+[A-Z])`", page)) - known):
        yield f"there is no {name}"


def codes_without_row(page, headers):
    codes = section(page, "Codes")
    groups = {name: rest for name, rest in re.findall(r"^\| (?:what )?`(\w+)` (?:returns )?.*?\|((?:.*\n)(?:\| \|.*\n)*)", codes, re.M)}
    for contract, name in re.findall(r"((?:^ *///.*\n)+)^ *PLCALC_API int (\w+)\(", headers, re.M):
        returned = re.search(r"@return (.*)", contract).group(1)
        for number in re.findall(r"(?:^|; )(\d+) ", returned):
            if not re.search(rf"^(?:\| \|)? {number} \|", groups.get(name, ""), re.M):
                yield f"no row has what {name} returns: {number}"
    for name, arguments in re.findall(r"(\w+)\(([^;{)]*)\)", re.sub(r"^ *//.*", "", headers, flags=re.M)):
        for mode in MODES:
            if re.search(rf"\bint {mode}\b", arguments) and f"`{mode}` of `{name}`" not in codes:
                yield f"no row has the numbers of {mode} of {name}"


def main():
    source = pathlib.Path(sys.argv[1])
    page = (source / "docs/guide/names.md").read_text(encoding="utf-8")
    refused = (source / "docs/guide/refused.md").read_text(encoding="utf-8")
    headers = "".join(path.read_text(encoding="utf-8") for folder in HEADERS for path in sorted((source / folder).glob("*.h")))
    functions = exported(source)
    wrong = [*words_without_meaning(page, functions), *functions_without_row(source, page, functions),
             *constants_without_row(page, headers), *codes_without_row(page, headers)]
    statuses = re.search(r"^enum class Status \{.*?\}", headers, re.M | re.S).group()
    wrong += [f"refused.md does not show {name}" for name, _ in constants(statuses)
              if name != "divided" and not re.search(rf"\b{name}\b", refused)]
    counted = len(dict(constants(headers)))
    print(f"{functions.count(chr(10))} symbols, {counted} constants")
    if counted < 100:
        wrong.append("the headers' enumerations were not found")
    if wrong:
        sys.exit("\n".join(wrong))


main()
