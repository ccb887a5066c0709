"""One build that holds all mutants, each behind a switch: a mutant is tested without being built.

Which tests come past a switch is noted once, test by test. A mutant then meets only those, the quickest and those that
have caught its neighbours first.
"""

import collections
import concurrent.futures
import os
import re
import subprocess
import threading
import time
from pathlib import Path

from switches import HEADER, MOST, File, compile_arguments
from workshop import FLAGS, PROGRAMS_OF, TIMES_AS_LONG, SetupError, Verdict, Workshop, run_limited

FIRST_BATCH_SECONDS = 0.4  # batches grow, so that little is begun anew, and little is run too much
GROWS = 4
LEAST_CPU_SECONDS = 5  # a test that comes past a switch takes no longer unless the change makes it
BUILD_ROUNDS = 6
ERROR = re.compile(r"^([^:\n]+):(\d+):\d+: error:", re.MULTILINE)


def _with_switches(path, text, arguments, mutants, others):
    """A file's text, to whom its lines belong, and what has no switch; in a process of its own."""
    file = File(path, text, arguments, mutants, others)
    return file.settle(), file.without


class Switchboard(Workshop):
    """Builds all mutants of some files in a folder of its own, and judges those that have a switch."""

    def __init__(self, root, folder, folders, jobs):
        super().__init__(root, folder, folders)
        self.jobs = jobs
        self.header = Path(folder) / "switches.h"
        self.files = {}  # by path in the tree: its mutants by number
        self.texts = {}
        self.rendered = {}
        self.without = {}
        self.number_of = {}
        self.reached_by = collections.defaultdict(list)  # number to (program, test)
        self.seconds_of = {}
        self.caught_by = collections.defaultdict(collections.Counter)  # path to tests
        self.lock = threading.Lock()

    # --- set-up ---

    def prepare_with(self, texts, mutants):
        """texts: by path; mutants: all that may be asked for. The tree has been copied."""
        self.texts = texts
        for number, mutant in enumerate(mutants[: MOST - 1]):
            self.files.setdefault(mutant.path, {})[number] = mutant
            self.number_of[mutant] = number
        self.header.write_text(HEADER)
        self._must(self._configuring(f"{FLAGS} -w -include {self.header}"), "configuring")
        arguments = compile_arguments(self.build / "compile_commands.json")
        self._render(self.files, arguments)
        for _ in range(BUILD_ROUNDS):
            broken = self._build_all()
            if not broken:
                break
            self._render(broken, arguments)
        else:
            raise SetupError("the build with switches does not settle")
        self._find_programs()
        self._note_who_comes_past()

    def _render(self, paths, arguments):
        with concurrent.futures.ProcessPoolExecutor(self.jobs) as pool:
            work = {}
            others = {str(self.source / path): self.texts[path] for path in self.files}
            for path in paths:
                kept = {n: m for n, m in self.files[path].items() if n not in self.without}
                given = _arguments_for(self.source / path, arguments)
                work[path] = pool.submit(_with_switches, self.source / path, self.texts[path], given, kept, others)
            for path, done in work.items():
                self.rendered[path], without = done.result()
                self.without.update(without)
        for path in paths:
            target = self.source / path
            if target.read_text() != self.rendered[path].text:
                target.write_text(self.rendered[path].text)

    def _build_all(self):
        """Paths of the files in which a switch was dropped because its change does not compile where it is used."""
        command = ["cmake", "--build", self.build, "-j", str(self.jobs), "--target", *self._targets(), "--", "-k", "0"]
        done = subprocess.run(command, capture_output=True, text=True, check=False)
        if done.returncode == 0:
            return set()
        dropped = collections.defaultdict(set)
        for name, line in ERROR.findall(done.stdout):
            path = os.path.relpath(self.build / name, self.source)  # a compiler behind a cache tells it from the build
            if path in self.rendered:
                dropped[path] |= self.rendered[path].numbers_at(int(line))
        for path, numbers in dropped.items():
            if not numbers:
                numbers |= set(self.files[path])
            self.without.update(dict.fromkeys(numbers, "does not compile where it is used"))
        if not dropped:
            raise SetupError(f"building with switches failed:\n{done.stdout[-3000:]}")
        return set(dropped)

    def _note_who_comes_past(self):
        todo = [(program, test) for program in self.programs for test in self._tests_of(program)]
        failed = []

        def note(job):
            program, test = job
            met = self.build / f"met-{threading.get_ident()}"
            met.write_bytes(bytes(MOST))
            started = time.monotonic()
            trouble, _ = self._run(program, [test], {"SWITCHES_MET": str(met)}, None)
            self.seconds_of[job_key(program, test)] = time.monotonic() - started
            if trouble:
                failed.append(f"{program.target} {test}{trouble}")
                return
            numbers = [number for number, is_met in enumerate(met.read_bytes()) if is_met]
            with self.lock:
                for number in numbers:
                    self.reached_by[number].append((program, test))

        with concurrent.futures.ThreadPoolExecutor(self.jobs) as pool:
            list(pool.map(note, todo))
        if failed:
            raise SetupError("with all switches off these tests fail:\n" + "\n".join(failed))

    def _tests_of(self, program):
        if not program.is_gtest:
            return [""]
        listed = subprocess.run([program.path, "--gtest_list_tests"], capture_output=True, text=True, check=True).stdout
        suite, found = "", []
        for line in listed.splitlines():
            if line.startswith("  "):
                found.append(suite + line.split()[0])
            elif re.match(r"\S+\.(\s|$)", line):
                suite = line.split()[0]
        return found

    # --- one mutant ---

    def holds(self, mutant):
        return mutant in self.number_of and self.number_of[mutant] not in self.without

    def judge_switched(self, mutant):
        number = self.number_of[mutant]
        with self.lock:
            often = self.caught_by[mutant.path].copy()
        wanted = PROGRAMS_OF.get(self._folder_of(mutant))
        reached = [job for job in self.reached_by[number]
                   if (job[0].target in wanted if wanted else job[0].target != "tool_tests")]  # fmt: skip
        tests = sorted(reached, key=lambda job: (-often[job_key(*job)], self.seconds_of[job_key(*job)]))
        most = FIRST_BATCH_SECONDS
        while tests:
            program, batch, seconds = tests[0][0], [], 0.0
            rest = []
            for job in tests:
                took = self.seconds_of[job_key(*job)]
                if job[0] is program and (not batch or seconds + took <= most):
                    batch.append(job[1])
                    seconds += took
                else:
                    rest.append(job)
            tests = rest
            most *= GROWS
            trouble, by = self._run(program, batch, {"SWITCH_ON": str(number)}, seconds)
            if trouble:
                with self.lock:
                    self.caught_by[mutant.path][job_key(program, by or batch[0])] += 1
                return Verdict("caught", f"{program.target} {by or ''}{trouble}")
        return Verdict("survived")

    def _run(self, program, tests, settings, unchanged):
        """How it fails, or nothing, and which test was the first."""
        command = [str(program.path), *program.arguments]
        if program.is_gtest:
            command += [f"--gtest_filter={':'.join(tests)}", "--gtest_brief=1", "--gtest_fail_fast"]
        seconds = 600 if unchanged is None else LEAST_CPU_SECONDS + TIMES_AS_LONG * unchanged
        trouble, printed = run_limited(command, int(seconds), 2 * seconds, settings)
        failed = re.search(r"^\[  FAILED  \] (\S+?),? .*\(\d+ ms\)", printed, re.MULTILINE)
        return trouble, failed.group(1) if failed else None


def job_key(program, test):
    return program.target, test


def _arguments_for(path, arguments):
    """A header has those of a file beside it, or in its part of the tree."""
    if str(path) in arguments:
        return arguments[str(path)]
    for folder in path.parents:
        for name, found in arguments.items():
            if name.startswith(f"{folder}/"):
                return found
    raise SetupError(f"nothing that is built lies beside {path}")
