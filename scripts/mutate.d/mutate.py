"""Changes the sources of the libraries and the program in one place at a time, and tells which changes no test sees."""

import argparse
import collections
import queue
import random
import signal
import sys
import threading
from pathlib import Path

import unseen
from operators import KINDS, enums_of, mutants_of
from switchboard import Switchboard
from workshop import PLPARCEL, PROGRAM, SetupError, Verdict, Workshop

ROOT = Path(__file__).resolve().parents[2]
LIST = Path(__file__).resolve().parent / "unseen.txt"
FOLDERS = ("kernel", "lines", "arcs", "survey", "subdivision", "plutil/src", PLPARCEL, PROGRAM)
RESULTS = "results.tsv"
OK, FOUND, USAGE, NO_SETUP = 0, 1, 2, 3
STOPPED = 128 + signal.SIGINT  # as shells have it


def arguments():
    parser = argparse.ArgumentParser(prog="mutate", description=__doc__)
    how_many = parser.add_mutually_exclusive_group()
    how_many.add_argument("--per-folder", type=int, default=55, metavar="N",
                          help="mutants to test in each folder (55)")  # fmt: skip
    how_many.add_argument("--all", action="store_true", help="every mutant there is: many hours")
    how_many.add_argument("--again", action="store_true", help="those that survived the last run, stopped or not, after a test was added")
    parser.add_argument("--folder", action="append", choices=FOLDERS, help="only this folder; may be repeated")
    parser.add_argument("--file", action="append", metavar="F", help="only this file, as in arcs/arc.cpp")
    parser.add_argument("--recheck", action="store_true", help="test those too that the list says nobody can see")
    parser.add_argument("--seed", type=int, default=1, help="which ones are chosen (1)")
    parser.add_argument("--jobs", type=int, default=2, help="how many at a time (2)")
    parser.add_argument("--list", action="store_true", help="print the mutants, and test none")
    parser.add_argument("--work", type=Path, default=ROOT / "build/mutate", help="scratch folder (build/mutate)")
    chosen = parser.parse_args()
    for name in chosen.file or []:
        if not (ROOT / name).is_file() or folder_of(name) is None:
            parser.error(f"{name} is no file that is changed")
    if chosen.per_folder < 1 or chosen.jobs < 1:
        parser.error("at least one")
    return chosen


def folder_of(path):
    """The one of FOLDERS that a file belongs to; the program's rooms are one."""
    return next((folder for folder in FOLDERS if path.startswith(folder + "/")), None)


def enums():
    headers = [path for folder in ("include", "plparcel", "tools") for path in sorted((ROOT / folder).rglob("*.[hc]*"))]
    return enums_of(path.read_text() for path in headers if path.suffix in (".h", ".cpp"))


def sources(chosen):
    """Path and text of every source that takes part, by folder."""
    found = collections.OrderedDict()
    for folder in FOLDERS:
        if chosen.folder and folder not in chosen.folder:
            continue
        names = [str(path.relative_to(ROOT)) for path in sorted((ROOT / folder).rglob("*.[hc]*"))]
        names = [name for name in names if name.endswith((".h", ".cpp"))]
        names = [name for name in names if not chosen.file or name in chosen.file]
        if names:
            found[folder] = {name: (ROOT / name).read_text() for name in names}
    return found


def shuffled(mutants, seed):
    """In an order that the seed decides, the kinds in turn."""
    by_kind = {kind: [mutant for mutant in mutants if mutant.kind == kind] for kind in KINDS}
    for kind in KINDS:
        random.Random(f"{seed} {kind}").shuffle(by_kind[kind])
    result = []
    while any(by_kind.values()):
        result += [by_kind[kind].pop() for kind in KINDS if by_kind[kind]]
    return result


def file_by_file(mutants):
    """So that little is built; headers, which cost most, last."""
    return sorted(mutants, key=lambda mutant: (mutant.path.endswith(".h"), mutant.path, mutant.start))


class Run:
    """The mutants that are tested, and what became of them."""

    def __init__(self, chosen, known):
        self.chosen = chosen
        self.known = {} if chosen.recheck else known
        self.texts = {}
        self.waiting = {}  # by folder, in the order of choice
        survivors = survived_before(chosen.work / RESULTS) if chosen.again else set()
        values = enums()
        for folder, files in sources(chosen).items():
            self.texts.update(files)
            found = [mutant for name, text in files.items() for mutant in mutants_of(name, text, values)]
            if chosen.again:
                found = [mutant for mutant in found if mutant.key in survivors]
            self.waiting[folder] = collections.deque(shuffled(found, chosen.seed))
        self.possible = {folder: list(waiting) for folder, waiting in self.waiting.items()}
        self.verdicts = collections.OrderedDict()
        self.board = None
        self.lock = threading.Lock()

    def counted(self, folder):
        """How many of a folder have been caught or have survived."""
        return sum(1 for mutant, verdict in self.verdicts.items()
                   if folder_of(mutant.path) == folder and verdict.state in ("caught", "survived"))  # fmt: skip

    def next_round(self):
        """As many more as each folder lacks, in the order of choice."""
        chosen = []
        for folder, waiting in self.waiting.items():
            lacking = len(waiting) if self.chosen.all or self.chosen.again else self.chosen.per_folder - self.counted(folder)
            chosen += [waiting.popleft() for _ in range(min(lacking, len(waiting)))]
        return chosen

    def in_order(self, mutants):
        """Those behind switches as they were chosen, so that a run that is stopped has seen a sample; then those that are
        built alone."""
        switched = [mutant for mutant in mutants if self.board.holds(mutant)]
        return switched + file_by_file(mutant for mutant in mutants if not self.board.holds(mutant))

    def test(self, workshops, board):
        self.board = board
        while True:
            todo = queue.Queue()
            mutants = self.next_round()
            if not mutants:
                break
            for mutant in self.in_order(mutants):
                todo.put(mutant)
            threads = [threading.Thread(target=self._work, args=(workshop, todo), daemon=True) for workshop in workshops]
            for thread in threads:
                thread.start()
            for thread in threads:
                thread.join()
            for workshop in workshops:
                workshop.restore()

    def _work(self, workshop, todo):
        while True:
            try:
                mutant = todo.get_nowait()
            except queue.Empty:
                return
            listed = mutant.key in self.known
            verdict = Verdict("survived", "listed") if listed else self._judge(workshop, mutant)
            with self.lock:
                self.verdicts[mutant] = verdict
                self._keep_results()
                print(f"{len(self.verdicts):5} {mutant.path}:{mutant.line} {mutant.kind}: {verdict.state}"
                      f"{' (' + verdict.by + ')' if verdict.by else ''}", flush=True)  # fmt: skip
                if verdict.state == "survived" and not listed:
                    print(f"      - {mutant.original_line}\n      + {mutant.mutated_line}", flush=True)

    def _judge(self, workshop, mutant):
        text = self.texts[mutant.path]
        if not self.board.holds(mutant):
            return workshop.judge(mutant, text)
        verdict = self.board.judge_switched(mutant)
        return verdict if verdict.state == "caught" else workshop.built_alone(mutant, text) or verdict

    def _keep_results(self):
        """After each mutant, so that a run that is stopped is not lost."""
        if not self.chosen.again:
            write_results(self, self.chosen.work / RESULTS)

    def of_state(self, state, folder=None):
        return [mutant for mutant, verdict in self.verdicts.items()
                if verdict.state == state and folder in (None, folder_of(mutant.path))]  # fmt: skip


def set_up(chosen, run):
    """A copy of the tree for each job, and one that holds all changes behind switches."""
    texts = run.texts
    workshops = [Workshop(ROOT, chosen.work / str(number), sources(chosen)) for number in range(1, chosen.jobs + 1)]
    board = Switchboard(ROOT, chosen.work / "switched", sources(chosen), chosen.jobs)
    board.copy_tree()  # now: whoever goes on writing in the tree does not disturb
    print(f"Building {len(workshops)} copies in {chosen.work}", flush=True)
    failures = []

    def prepare(workshop):
        try:
            workshop.prepare()
        except SetupError as error:
            failures.append(str(error))

    threads = [threading.Thread(target=prepare, args=(workshop,)) for workshop in workshops]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    for name, text in texts.items():
        if not failures and any((workshop.source / name).read_text() != text for workshop in [*workshops, board]):
            failures.append(f"{name} was changed while the copies were made; start again")
    if failures:
        raise SetupError(failures[0])
    print("Running the tests of the unchanged tree", flush=True)
    workshops[0].measure()
    for workshop in workshops[1:]:
        workshop.take_measures_of(workshops[0])
    print("Putting all changes behind switches, and noting which test comes past which", flush=True)
    wanted = [mutant for mutants in run.possible.values() for mutant in mutants if mutant.key not in run.known]
    board.prepare_with(texts, wanted)
    print(f"{sum(map(board.holds, wanted))} of {len(wanted)} have a switch; the others are built alone", flush=True)
    return workshops, board


def report(run, known):
    """Prints what became of them; whether all is well."""
    print(f"\n{'folder':14}{'possible':>10}{'tested':>8}{'caught':>8}{'survived':>10}{'unexplained':>13}")
    for folder, possible in run.possible.items():
        caught, survived = run.of_state("caught", folder), run.of_state("survived", folder)
        unexplained = [mutant for mutant in survived if mutant.key not in known]
        print(f"{folder:14}{len(possible):10}{len(caught) + len(survived):8}{len(caught):8}{len(survived):10}"
              f"{len(unexplained):13}")  # fmt: skip
    caught, survived = run.of_state("caught"), run.of_state("survived")
    tested = len(caught) + len(survived)
    unexplained = [mutant for mutant in survived if mutant.key not in known]
    visible = len(caught) + len(unexplained)
    share = len(caught) / visible if visible else 1.0
    print(f"Seed {run.chosen.seed}: {tested} tested, {len(caught)} caught, {100 * share:.1f} % of what can be seen. Besides, "
          f"{len(run.of_state('stillborn'))} did not compile, and {len(run.of_state('same code'))} compiled to the same "
          "code.")  # fmt: skip
    if unexplained:
        print("\nSurvived, and nothing says why. Add a test that fails, or a reason to", LIST.relative_to(ROOT))
        for mutant in unexplained:
            print(f"\n# {mutant.path}:{mutant.line}, {mutant.kind}\n{unseen.written(mutant)}")
    wrong = [known[mutant.key] for mutant in caught if mutant.key in known]
    for entry in wrong:
        print(f"{LIST.name}:{entry.line}: said to be invisible, and caught: {' '.join(entry.key)}; remove it")
    return not unexplained and not wrong


def stale(run, known):
    """Entries about a line that is no more."""
    keys = {mutant.key for mutants in run.possible.values() for mutant in mutants}
    return [entry for entry in known.values() if entry.key[0] in run.texts and entry.key not in keys]


def survived_before(path):
    """Keys of the mutants that survived, by the results of a run."""
    keys = set()
    with open(path, encoding="utf-8") as file:
        for line in file:
            place, function, _, state, _, original, mutated = line.rstrip("\n").split("\t")
            if state == "survived":
                keys.add((place.rsplit(":", 1)[0], function, original, mutated))
    return keys


def write_results(run, path):
    with open(path, "w", encoding="utf-8") as file:
        for mutant, verdict in run.verdicts.items():
            file.write("\t".join((f"{mutant.path}:{mutant.line}", mutant.function, mutant.kind, verdict.state, verdict.by,
                                  mutant.original_line, mutant.mutated_line)) + "\n")  # fmt: skip


def main():
    # Where Ctrl-C was ignored when this was started, it would be by all tests, and some of them press it.
    signal.signal(signal.SIGINT, signal.default_int_handler)
    chosen = arguments()
    try:
        known = unseen.read(LIST)
    except unseen.ListError as error:
        print(f"mutate: {error}", file=sys.stderr)
        return NO_SETUP
    run = Run(chosen, known)
    if chosen.list:
        for mutant in file_by_file(run.next_round()):
            print(f"# {mutant.path}:{mutant.line}, {mutant.kind}\n{unseen.written(mutant)}\n")
        return OK
    old = [] if chosen.again else stale(run, known)
    for entry in old:
        print(f"mutate: {LIST.name}:{entry.line}: no such mutant any more: {' '.join(entry.key)}; remove or renew it",
              file=sys.stderr)  # fmt: skip
    try:
        run.test(*set_up(chosen, run))
    except SetupError as error:
        print(f"mutate: {error}", file=sys.stderr)
        return NO_SETUP
    except KeyboardInterrupt:
        kept = f" Their verdicts: {chosen.work / RESULTS}" if run.verdicts and not chosen.again else ""
        print(f"\nmutate: stopped after {len(run.verdicts)} mutants.{kept}", file=sys.stderr)
        return STOPPED
    well = report(run, known)
    if not chosen.again:
        print(f"\nAll verdicts: {chosen.work / RESULTS}")
    return OK if well and not old else FOUND


if __name__ == "__main__":
    sys.exit(main())
