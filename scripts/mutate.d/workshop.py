"""A copy of the tree in which one mutant at a time is built and tested."""

import hashlib
import os
import re
import resource
import shutil
import signal
import subprocess
import tempfile
import time
from dataclasses import dataclass, field
from pathlib import Path

# Random tests run fewer cases than in the suite.
FEWER = {
    "PLCALC_WITNESS_CASES": "2000",
    "PLCALC_PARCELS": "3000",
    "PLCALC_DIVISIONS": "500",
    "PLCALC_ROOTS": "200000",
}

# Assertions stay on, and the standard library's too: an index too far is seen as in the suite's sanitized build.
FLAGS = "-O1 -D_GLIBCXX_ASSERTIONS"

PLPARCEL = "plparcel/src"
PROGRAM = "tools/plcalc"

SLOW_TEST_MS = 150
LEAST_CPU_SECONDS = 20
TIMES_AS_LONG = 10
LOOK_SECONDS = 10  # how often a run is looked at
ASLEEP_SECONDS = 60  # no test lies still for so long
MEMORY = 4 << 30

# Folder of the sources to folder of the tests.
TESTS_OF = {"plutil/src": "plutil", PLPARCEL: "plparcel"}

# What an object of these goes into; of plcalc and plutil, everything.
PROGRAMS_OF = {PLPARCEL: ("plparcel_tests", "fuzz_replay_division"), PROGRAM: ("tool_tests",)}

# What is built to see whether a change compiles, and to another code.
OBJECTS_OF = {PLPARCEL: ("plparcel_objects",), PROGRAM: ("plcalc_tool",)}


class SetupError(Exception):
    """The unchanged tree does not build, or its tests fail."""


@dataclass
class Program:
    """A program of tests."""

    target: str
    path: Path
    folder: str
    arguments: list = field(default_factory=list)
    is_gtest: bool = True
    runs_others: bool = False  # most of its time is spent in programs that it starts, a limit for each of them
    milliseconds: dict = field(default_factory=dict)  # by test
    cpu_seconds: float = 0.0
    seconds: float = 0.0

    def tests(self, wanted):
        return [name for name, took in self.milliseconds.items() if wanted(name, took)]


@dataclass
class Verdict:
    """What became of a mutant."""

    state: str  # caught, survived, stillborn (does not compile), same code
    by: str = ""


class Workshop:
    """Builds and tests in a folder of its own."""

    def __init__(self, root, folder, folders):
        """folders: those whose sources will be changed, which decides what is built."""
        self.folders = folders
        self.root = Path(root)
        self.source = Path(folder) / "source"
        self.build = Path(folder) / "build"
        self.programs = []
        self.objects = {}
        self.changed = None

    # --- set-up ---

    def prepare(self):
        self.copy_tree()
        self._must(self._configuring(FLAGS), "configuring")
        self._must(["cmake", "--build", self.build, "-j", "1", "--target", *self._targets()], "building")
        self._find_programs()
        self.objects = self._hash_objects()

    def copy_tree(self):
        """The tracked files as they are now; those that are the same stay, so that a second run builds little."""
        listed = subprocess.run(["git", "-C", self.root, "ls-files", "-z"], check=True, capture_output=True)
        names = {name for name in listed.stdout.decode().split("\0") if name and (self.root / name).is_file()}
        if self.source.exists():
            for path in [p for p in self.source.rglob("*") if p.is_file()]:
                if str(path.relative_to(self.source)) not in names:
                    path.unlink()
        for name in names:
            here, there = self.root / name, self.source / name
            if there.is_file() and there.read_bytes() == here.read_bytes():
                continue
            there.parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(here, there)  # with a new time, so that it is built anew

    def _configuring(self, flags):
        linker = "-fuse-ld=lld" if shutil.which("ld.lld") else ""
        return ["cmake", "-S", self.source, "-B", self.build, "-G", "Ninja", "-DCMAKE_BUILD_TYPE=None",
                f"-DCMAKE_CXX_FLAGS={flags}", f"-DCMAKE_EXE_LINKER_FLAGS={linker}", "-DCMAKE_CXX_COMPILER=g++",
                "-DBUILD_SHARED_LIBS=OFF", f"-DPLCALC_BUILD_TOOL={'ON' if PROGRAM in self.folders else 'OFF'}",
                "-DPLCALC_WERROR=OFF", "-DCMAKE_EXPORT_COMPILE_COMMANDS=ON"]  # fmt: skip

    def _targets(self):
        return [target for folder in self.folders for target in PROGRAMS_OF.get(folder, ("all",))]

    def _must(self, command, doing):
        done = subprocess.run(command, capture_output=True, text=True, check=False)
        if done.returncode != 0:
            raise SetupError(f"{doing} the unchanged tree failed:\n{done.stdout[-3000:]}{done.stderr[-3000:]}")

    def _find_programs(self):
        paths = [p for p in self.build.glob("tests/*/*") if p.is_file() and os.access(p, os.X_OK)]
        for path in sorted(paths):
            if path.name.endswith("_tests"):
                self.programs.append(Program(path.name, path, path.parent.name))
                self.programs[-1].runs_others = path.name == "tool_tests"
        replay = self.build / "tests/golden/golden_replay"
        vectors = [v for v in (self.source / "tests/golden").glob("*.txt") if v.name != "CMakeLists.txt"]
        if replay.is_file():
            self.programs.append(Program("golden_replay", replay, "golden", [str(v) for v in vectors], False))
        for path in sorted(self.build.glob("fuzz/fuzz_replay_*")):
            if path.is_file() and os.access(path, os.X_OK):
                corpus = self.source / "fuzz/corpus" / (path.name[len("fuzz_replay_") :] + ".txt")
                self.programs.append(Program(path.name, path, "fuzz", [str(corpus)], False))
        found = {program.target for program in self.programs}
        for folder in self.folders:
            if not found.issuperset(PROGRAMS_OF.get(folder, ("golden_replay", f"{TESTS_OF.get(folder, folder)}_tests"))):
                raise SetupError(f"tests are missing in {self.build}: {' '.join(sorted(found))}")

    def measure(self):
        """Runs all tests of the unchanged tree once: they must pass, and how long each takes is noted."""
        for program in self.programs:
            started = time.monotonic()
            before = resource.getrusage(resource.RUSAGE_CHILDREN)
            done = subprocess.run(
                [program.path, *program.arguments], capture_output=True, text=True, check=False, env=environment()
            )
            after = resource.getrusage(resource.RUSAGE_CHILDREN)
            if done.returncode != 0:
                raise SetupError(f"{program.target} fails in the unchanged tree:\n{done.stdout[-3000:]}")
            program.cpu_seconds = after.ru_utime + after.ru_stime - before.ru_utime - before.ru_stime
            program.seconds = time.monotonic() - started
            if program.is_gtest:
                times = re.findall(r"^\[ +OK \] (\S+?),? .*\((\d+) ms\)$", done.stdout, re.MULTILINE)
                program.milliseconds = {name: int(ms) for name, ms in times}

    def take_measures_of(self, other):
        for mine, theirs in zip(self.programs, other.programs):
            mine.cpu_seconds, mine.seconds, mine.milliseconds = theirs.cpu_seconds, theirs.seconds, theirs.milliseconds

    # --- one mutant ---

    def judge(self, mutant, text):
        """Applies a mutant to a file whose text is given, builds, tests, and tells what became of it."""
        verdict = self.built_alone(mutant, text)
        if verdict:
            return verdict
        for program, tests in self._order_for(mutant):
            if not self._builds([program.target]):
                return Verdict("caught", f"{program.target} does not compile")
            trouble = self._fails(program, tests)
            if trouble:
                return Verdict("caught", f"{program.target}{trouble}")
        return Verdict("survived")

    def built_alone(self, mutant, text):
        """That it does not compile, or to the same code; nothing where it has to be tested."""
        path = self.source / mutant.path
        if self.changed and self.changed[0] != path:
            self.restore()
        self.changed = (path, text)
        path.write_text(mutant.apply(text))
        if not self._builds(OBJECTS_OF.get(self._folder_of(mutant), ("plcalc_objects", "plutil_objects"))):
            return Verdict("stillborn")
        return Verdict("same code") if self._hash_objects() == self.objects else None

    def restore(self):
        if self.changed:
            self.changed[0].write_text(self.changed[1])
            self.changed = None

    def _builds(self, targets):
        command = ["cmake", "--build", self.build, "-j", "1", "--target", *targets]
        return subprocess.run(command, capture_output=True, check=False).returncode == 0

    def _hash_objects(self):
        objects = [*self.build.glob("CMakeFiles/plcalc_objects.dir/**/*.o"),
                   *self.build.glob("plutil/CMakeFiles/plutil_objects.dir/**/*.o"),
                   *self.build.glob("plparcel/CMakeFiles/plparcel_objects.dir/**/*.o"),
                   *self.build.glob("tools/plcalc/CMakeFiles/**/*.o")]  # fmt: skip
        return {path: hashlib.sha256(path.read_bytes()).digest() for path in objects}

    def _folder_of(self, mutant):
        return next(folder for folder in self.folders if mutant.path.startswith(folder + "/"))

    def _order_for(self, mutant):
        """Programs with the tests to run: the quick ones of its folder, the golden vectors, its slow ones, the rest.

        Of the program's tests first those of the changed room, then all others.
        """
        folder = self._folder_of(mutant)
        if folder == PROGRAM:
            yield from self._order_for_room(mutant.path)
            return
        named = TESTS_OF.get(folder, folder)
        wanted = PROGRAMS_OF.get(folder) or [p.target for p in self.programs if p.target != "tool_tests"]
        programs = [program for program in self.programs if program.target in wanted]
        own = [program for program in programs if program.folder == named]
        golden = [program for program in programs if program.folder == "golden"]
        rest = sorted((p for p in programs if p not in own + golden), key=lambda program: program.cpu_seconds)
        yield from ((program, program.tests(_is_quick)) for program in own)
        yield from ((program, []) for program in golden)
        yield from ((program, program.tests(_is_slow)) for program in own)
        yield from ((program, program.tests(_is_quick)) for program in rest)
        yield from ((program, program.tests(_is_slow)) for program in rest if program.is_gtest)

    def _order_for_room(self, path):
        program = next(program for program in self.programs if program.target == "tool_tests")
        room = Path(path).parent.name
        text = "".join(file.read_text() for file in (self.source / "tests/tool" / room).glob("*.cpp"))
        suites = set(re.findall(r"^TEST(?:_[FP])?\((\w+),", text, re.MULTILINE))
        own = program.tests(lambda name, _: bool(suites & set(re.split(r"[./]", name))))
        quick = [name for name in program.tests(_is_quick) if name not in own]
        slow = [name for name in program.tests(_is_slow) if name not in own]
        yield from ((program, tests) for tests in (own, quick, slow))

    def _fails(self, program, tests):
        """How it fails, or nothing."""
        command = [str(program.path), *program.arguments]
        if program.is_gtest:
            if not tests:
                return ""
            command += [f"--gtest_filter={':'.join(tests)}", "--gtest_brief=1", "--gtest_fail_fast"]
        unchanged = program.cpu_seconds
        if program.is_gtest:
            unchanged = sum(program.milliseconds.get(name, 0) for name in tests) / 1000
        longest = max(program.milliseconds.values(), default=0) / 1000 if program.runs_others else unchanged
        cpu = int(LEAST_CPU_SECONDS + TIMES_AS_LONG * longest)

        # Programs that start others have a limit for each of them, and one for all together.
        return run_limited(command, cpu, cpu + TIMES_AS_LONG * unchanged if program.runs_others else 2 * cpu)[0]


def run_limited(command, cpu, most_seconds, settings=None):
    """How a command fails, or nothing, and what it prints. Processor time is what counts, on a busy machine too."""
    limits = ["prlimit", f"--cpu={cpu}:{cpu + 5}", f"--as={MEMORY}", "--core=0"]
    with tempfile.TemporaryFile() as out:
        process = subprocess.Popen(
            limits + command, stdin=subprocess.DEVNULL, stdout=out, stderr=subprocess.DEVNULL,
            env={**environment(), **(settings or {})}, start_new_session=True,
        )  # fmt: skip
        hangs = _wait_for(process, most_seconds)
        out.seek(0)
        printed = out.read().decode(errors="replace")
    status = process.returncode
    if hangs:
        return hangs, printed
    if status == 0:
        return "", printed
    if status in (-24, -9):  # SIGXCPU, and SIGKILL five seconds after it
        return f" hangs: more than {cpu} s", printed
    return f" dies by signal {-status}" if status < 0 else " fails", printed


def _wait_for(process, most_seconds):
    """Waits for the end of all that a process has started; ends it where it lies still or takes too long."""
    used, still = 0.0, 0
    while True:
        try:
            process.wait(timeout=LOOK_SECONDS)
            return ""
        except subprocess.TimeoutExpired:
            before, used = used, _processor_seconds(process.pid)
            still = still + LOOK_SECONDS if used == before else 0
            if still >= ASLEEP_SECONDS or used > most_seconds:
                os.killpg(process.pid, signal.SIGKILL)
                process.wait()
                return f" hangs: asleep for {still} s" if still else f" hangs: more than {most_seconds:.0f} s"


def _processor_seconds(session):
    """Of all processes of a session, those that have ended too."""
    ticks = 0
    for path in Path("/proc").glob("[0-9]*/stat"):
        try:
            fields = path.read_text().rpartition(")")[2].split()
        except OSError:
            continue  # it has just ended
        if int(fields[3]) == session:
            ticks += sum(int(field) for field in fields[11:15])
    return ticks / os.sysconf("SC_CLK_TCK")


def environment():
    return {**os.environ, **FEWER}


def _is_slow(_, milliseconds):
    return milliseconds > SLOW_TEST_MS


def _is_quick(_, milliseconds):
    return milliseconds <= SLOW_TEST_MS
