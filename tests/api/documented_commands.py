#!/usr/bin/env python3
"""documented_commands.py SOURCE BUILD CMAKE: every command of a document is run, here or by a script.

Commands are the lines of ```sh blocks, and every other line or `code` of the Markdown files that begins with a
program; the examples of the manual page and of the program's help come along. Each runs in a copy of the sources, as
in a clone, with what the documents take for granted beside it. What is heavy, or changes the machine, stands below
with the place that runs it.
"""

import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

# Too heavy for a test, or not for every machine: (command, what runs it, and words by which it does).
ELSEWHERE = {
    "cmake --preset gcc && cmake --build build/gcc && ctest --test-dir build/gcc -j2":
        ("scripts/test", "build_preset gcc"),
    "cmake --build build/gcc --target docs": ("scripts/test", "cmake --build build/gcc --target docs"),
    "cmake --build build --target docs": ("scripts/test", "cmake --build build/gcc --target docs"),
    "cmake --preset armel && cmake --build build/armel": ("scripts/test-targets", "build_preset armel"),
    "cmake -S . -B build/arm --toolchain cmake/toolchains/armel.cmake -DPLCALC_BUILD_TOOL=OFF -DPLCALC_BUILD_TESTS=OFF":
        ("scripts/test-targets", 'check "$target" --toolchain "cmake/toolchains/$target.cmake"'),
    "cmake --build build/arm": ("scripts/test-targets", 'build_target "$@"'),
    "cmake --build build/armel --target footprint":
        ("scripts/test-targets", "cmake --build build/armel --target footprint"),
    "build/targets/armel/bench/softfloat/softfloat_count":
        ("scripts/test-targets", "build/targets/armel/bench/softfloat/softfloat_count"),
    "ctest --test-dir build/gcc -R lines/": ("scripts/test", "run_tests gcc"),
    "ctest --test-dir build/gcc -R fuzz/": ("scripts/test", "run_tests gcc"),
    "python3 tests/golden/check.py": ("tests/golden/CMakeLists.txt", "check.py"),
    "scripts/fuzz && python3 fuzz/make_corpus.py build/fuzz/fuzz": ("scripts/fuzz", "fuzz/make_corpus.py"),
    "apt-get install ./libpl{util,calc,parcel}0.1_*.deb ./python3-plcalc_*.deb ./postgresql-15-plcalc_*.deb":
        ("scripts/test-packages", "autopkgtest ./*.deb"),
    "man plcalc": ("tests/tool/CMakeLists.txt", "PLCALC_MANUAL"),
}

# Scripts that are themselves what the document tells of; that they exist is asked here.
SCRIPTS = ("scripts/", ".ci/")
PROGRAMS = ("cmake ", "ctest ", "python3 ", "pkg-config ", "man ", "valgrind ", "ogr2ogr ")
FOLDERS = ("build/", "tests/", "fuzz/", "bench/", "examples/")
PLACEHOLDER = re.compile(r"<[^<>]+>|\[[^\[\]]*\]?|…|\.\.\.|(?<![-\w])(N|DIR|FILE|VERB|NAME)\b")

# As many cases as show that it runs; and the libraries of one folder instead of the whole machine's.
SMALL = (("accuracy 20261121 10000", "accuracy 20261121 20"), ("PLCALC_WITNESS_CASES=100000", "PLCALC_WITNESS_CASES=20"),
         ("ldconfig", "/sbin/ldconfig -n /usr/local/lib"))
ENVIRONMENT = {"PLCALC_DIVISIONS": "20", "PLCALC_WITNESS_CASES": "20", "PLCALC_PARCELS": "20", "CMAKE_GENERATOR": "Ninja",
               "CMAKE_BUILD_PARALLEL_LEVEL": "2", "LC_ALL": "C.UTF-8"}

LOTS = """id,owner,front,wanted,WKT
1,Rossi,1,1200,"POLYGON ((0 0, 60 0, 60 80, 0 80))"
2,Bianchi,3,"400; 800","POLYGON ((60 0, 130 0, 130 80, 60 80))"
3,Rossi,longest,900.5,"POLYGON ((130 0, 190 10, 180 80, 130 80))"
"""


def is_command(text):
    words = [word for word in text.split() if not re.fullmatch(r"[A-Z_]+=\S+", word)]
    if not words:
        return False
    if words[0] == "plcalc":
        return len(words) > 2 and words[1] != "-"
    if words[0].startswith(SCRIPTS):
        return pathlib.Path(words[0]).suffix == ""
    if words[0].endswith((".py", "_tests")) and len(words) > 1:
        return True
    return words[0].startswith(("ldconfig", "build/targets/")) \
        or len(words) > 1 and text.startswith((*PROGRAMS, *FOLDERS))


def without_comment(line):
    return re.sub(r"(^|\s)#.*", "", line).strip()


def shown_with_output(text):
    """(commands, output) of each ```sh block that has a block right behind it: guide_commands.py runs these."""
    lines = r"((?:(?!```).*\n)*)"
    return re.findall(rf"^```sh\n{lines}```\n```\n{lines}```$", text, re.MULTILINE)


def commands_of_markdown(text):
    """Lines of code blocks, and code between backticks, that begin with a program."""
    prose, fence = [], None
    for line in text.replace("\\\n", " ").splitlines():
        if line.startswith("```"):
            fence = line[3:].strip() if fence is None else None
        elif fence is not None or line.startswith("    "):
            command = without_comment(re.sub(r"   +.*", "", line.strip()) if fence != "sh" else line)
            if fence == "sh" and command or is_command(command):
                yield command
        else:
            prose.append(line)
    for code in re.findall(r"`([^`]+)`", "\n".join(prose)):
        command = " ".join(code.split())
        if is_command(command):
            yield command


def commands_of_manual(text):
    for line in re.sub(r"\\e\n\s*", "", text.replace("\\-", "-")).splitlines():
        if line.startswith("plcalc ") and is_command(line):
            yield line


def commands_of_help(program):
    for verb in ("divide", "measure", "stakeout"):
        text = subprocess.run([program, verb, "--help"], capture_output=True, text=True, check=True).stdout
        for line in re.sub(r"\\\n\s*", "", text).splitlines():
            if line.startswith("  plcalc ") and not PLACEHOLDER.search(line):
                yield line.strip()


class Clone:
    """The sources as in a clone, with what the documents take for granted."""

    def __init__(self, work, source, build, cmake):
        self.work, self.source, self.build = work, source, build
        self.folder = work / "clone"
        listed = subprocess.run(["git", "-C", source, "ls-files", "-z"], capture_output=True, text=True, check=True)
        for name in filter(None, listed.stdout.split("\0")):
            (self.folder / name).parent.mkdir(parents=True, exist_ok=True)
            if (source / name).exists():
                shutil.copy2(source / name, self.folder / name)
        for example in (self.folder / "examples").iterdir():
            shutil.copy2(example, self.folder)
        (work / "lots.csv").write_text(LOTS, encoding="ascii")
        self.call(f"ogr2ogr -q lots.gpkg '{work}/lots.csv'")
        # Moved to where zone 32 is true to scale.
        moved = "SELECT name, ST_Translate(geometry, 500000, 5000000, 0) FROM published"
        self.call(f"ogr2ogr -q -a_srs EPSG:32632 -nln parcel -dialect SQLite -sql '{moved}' parcel.gpkg "
                  "examples/published.geojson")
        programs = work / "bin"
        programs.mkdir()
        (programs / "plcalc").symlink_to(build / "tools/plcalc/plcalc")
        (programs / "cmake").symlink_to(cmake)

    def call(self, command):
        paths = [self.work / "bin", os.environ["PATH"]]
        config = [*(self.work / "prefix").rglob("pkgconfig")]
        environment = {**os.environ, **ENVIRONMENT, "PATH": ":".join(map(str, paths)),
                       "PKG_CONFIG_PATH": ":".join(map(str, config))}
        return subprocess.run(["bash", "-ec", command], cwd=self.folder, env=environment, text=True,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT, stdin=subprocess.DEVNULL, check=False)

    def run(self, command):
        """What it said when it failed; None when it ran."""
        for long, short in SMALL:
            command = command.replace(long, short)
        command = command.replace("build/gcc", str(self.build)).replace("/usr/local", str(self.work / "prefix"))
        before = set(self.folder.iterdir())
        result = self.call(command)
        for made in set(self.folder.iterdir()) - before:
            if made.is_file():
                made.unlink()  # the next command may make a file of the same name
        return None if result.returncode == 0 else f"ended with {result.returncode}:\n{result.stdout[-2000:]}"


def elsewhere(source, command):
    """What is wrong with the place that runs it; None when all is well."""
    place, words = ELSEWHERE[command]
    if not words or words not in (source / place).read_text(encoding="utf-8"):
        return f"{place} does not run it any more"
    return None


def verdict(clone, command):
    """(how it was run, what is wrong)"""
    first = next(word for word in command.split() if "=" not in word)
    if command in ELSEWHERE:
        return "elsewhere", elsewhere(clone.source, command)
    if first.startswith(SCRIPTS):
        there = os.access(clone.source / first, os.X_OK)
        return "is a script", None if there else f"there is no script {first}"
    if PLACEHOLDER.search(command):
        program = first if first != "python3" else command.split()[1]
        name = pathlib.Path(program).name
        known = name == "plcalc" or any(clone.source.rglob(name)) or any(clone.build.rglob(re.sub("<.*", "*", name)))
        return "shows its arguments", None if known else f"there is no {program}"
    return "run", clone.run(command)


def main():
    source, build, cmake = (pathlib.Path(argument).resolve() for argument in sys.argv[1:])
    listed = subprocess.run(["git", "-C", source, "ls-files", "*.md"], capture_output=True, text=True, check=True)
    found = {}
    for name in listed.stdout.splitlines():
        text = (source / name).read_text(encoding="utf-8")
        if name.startswith("docs/guide/"):
            for commands, output in shown_with_output(text):
                text = text.replace(f"```sh\n{commands}```\n", "").replace(f"```\n{output}```\n", "")
        for command in commands_of_markdown(text):
            found.setdefault(command, name)
    for command in commands_of_manual((source / "docs/plcalc.1").read_text(encoding="utf-8")):
        found.setdefault(command, "docs/plcalc.1")
    for command in commands_of_help(build / "tools/plcalc/plcalc"):
        found.setdefault(command, "the program's help")

    wrong, ran = [f"no document has '{command}' any more" for command in ELSEWHERE if command not in found], 0
    with tempfile.TemporaryDirectory() as scratch:
        clone = Clone(pathlib.Path(scratch), source, build, cmake)
        for command, document in found.items():
            how, complaint = verdict(clone, command)
            print(f"{how:20} {command}")
            ran += how == "run"
            if complaint:
                wrong.append(f"{document}: {command}: {complaint}")
    print(f"{len(found)} commands, {ran} of them run here")
    if ran < 20:
        wrong.append("too few commands were found")
    if wrong:
        sys.exit("\n".join(wrong))


if __name__ == "__main__":
    main()
