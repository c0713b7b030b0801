#!/usr/bin/env python3
"""Makes small faults in src, one at a time, and tells which of them no test catches.

Each fault is one a hand makes: a comparison turned or softened, a whole number one more or less, a
condition negated or dropped, a statement or an early return left out, two arguments or two
neighbouring statements swapped, && for ||. The places are drawn by a seed, at most one a line. In a
copy of the tree the tests of the place's folder run first, then all others; a fault that does not
compile does not count, a test that takes longer than 60 s has caught it.

What was found stays in FOLDER/SEED.jsonl: the same call goes on where an interrupted one stopped,
and --again tries once more what had survived. Survivors that change nothing anyone could see stand
in scripts/mutants-equivalent.txt: the file, the lines as they are, the lines as changed, the reason.
"""

import argparse
import collections
import contextlib
import hashlib
import itertools
import json
import os
import pathlib
import re
import shlex
import shutil
import signal
import subprocess
import sys
import threading
import time

from mutant_places import DROPPED, ROOT, Mutant, drawn, folder_of, words_of

EQUIVALENT = ROOT / "scripts" / "mutants-equivalent.txt"
NOT_COUNTED = ("does not compile", "gone")
TEST_SECONDS = 60
BUILD_SECONDS = 900
LINKER = "mold" if shutil.which("mold") else "gold"



def equivalents():
    """What is listed as changing nothing, with the reason."""
    found = {}
    for block in EQUIVALENT.read_text(encoding="utf-8").split("\n\n")[1:]:
        file, old, new, reason = block.strip().split("\n")
        found[file, words_of(old), words_of(new)] = reason
    return found


def stages_for(mutant, likely):
    """The targets to build and the tests to run behind each of them, as arguments of CTest."""
    folder = folder_of(mutant.file)
    if "widgets" in folder.split("/"):
        # No other test has the windows in it, or starts them.
        stages = (["all"], ("-R", r"^widgets\.")), (["all"], ("-R", r"^GuidePages\."))
        if not likely:
            return stages
        programs = {re.sub(r"^widgets\.|_at_[\d.]+$", "", test) for test in likely}
        first = "|".join(map(re.escape, likely))
        others = ("-R", r"^widgets\.", "-E", f"^({first})$")
        return (sorted(programs), ("-R", f"^({first})$")), (["all"], others), *stages[1:]
    tests = ROOT / "tests" / folder
    suites = {suite for file in tests.glob("*.cpp")
              for suite in re.findall(r"\bTEST(?:_[FP])?\((\w+)", file.read_text("utf-8"))}
    program = {"mathparser": "mathparser_tests", "cli": "cli_test"}.get(folder, "zentab_tests")
    own = rf"(^|/)({'|'.join(sorted(suites))})[./]"
    return ([program], ("-R", own)), (["all"], ("-E", own))


class Copy:
    """A copy of the tree with a build of its own."""

    def __init__(self, number, options):
        self.folder = options.folder / f"copy{number}"
        self.build = self.folder / "build" / "mutants"
        self.options = options
        self.jobs = max(1, os.cpu_count() // options.copies)
        memory = pathlib.Path("/dev/shm" if os.access("/dev/shm", os.W_OK) else self.folder)
        self.process = None
        self.temporary = memory / f"mutants-{os.getpid()}-{number}"

    def run(self, seconds, *command):
        """The status and the output; None where the time was over. Nothing it started goes on."""
        environment = os.environ | {"TMPDIR": str(self.temporary), "QT_QPA_PLATFORM": "offscreen"}
        self.temporary.mkdir(parents=True)
        self.process = subprocess.Popen(
            shlex.split(self.options.prefix) + list(map(str, command)), cwd=self.folder,
            env=environment, start_new_session=True, stdout=subprocess.PIPE,
            stderr=subprocess.STDOUT, text=True, errors="replace")
        try:
            output, _ = self.process.communicate(timeout=seconds)
            return self.process.returncode, output
        except subprocess.TimeoutExpired:
            return None, ""
        finally:
            self.kill()

    def kill(self):
        if self.process:
            with contextlib.suppress(ProcessLookupError):
                os.killpg(self.process.pid, signal.SIGKILL)
            self.process.wait()
        shutil.rmtree(self.temporary, ignore_errors=True)

    def test(self, *selection):
        """What caught the fault; nothing where all passed."""
        status, output = self.run(None, "ctest", "--test-dir", self.build, "-j", 2 * self.jobs,
                                  "--stop-on-failure", "--timeout", TEST_SECONDS, *selection)
        failed = re.search(r"Test *#\d+: (\S+).*\*\*\*(?!Skipped)", output)
        return failed.group(1) if failed else "" if status == 0 else "ctest"

    def prepare(self):
        """Brings the copy up to date; the tests must pass before anything is changed."""
        listed = subprocess.run(["git", "ls-files", "-co", "--exclude-standard", "-z"], cwd=ROOT,
                                check=True, stdout=subprocess.PIPE, text=True).stdout.split("\0")
        files = {name for name in listed if name and (ROOT / name).is_file()}
        for top in self.folder.glob("*"):
            for path in top.rglob("*") if top.is_dir() and top.name != "build" else [top]:
                if path.is_file() and str(path.relative_to(self.folder)) not in files:
                    path.unlink()
        state = hashlib.sha256()
        for name in sorted(files):
            source, target = ROOT / name, self.folder / name
            state.update(name.encode() + source.read_bytes())
            if not target.is_file() or target.read_bytes() != source.read_bytes():
                target.parent.mkdir(parents=True, exist_ok=True)
                shutil.copy(source, target)
        passed = self.build / "passed"
        if passed.is_file() and passed.read_text() == state.hexdigest():
            return
        for command in (["-G", "Ninja", "-S", self.folder, "-B", self.build,
                         "-DCMAKE_BUILD_TYPE=Debug", "-DCMAKE_CXX_FLAGS_DEBUG=-Og -g",
                         f"-DCMAKE_EXE_LINKER_FLAGS=-fuse-ld={LINKER} -Wl,--strip-debug"],
                        ["--build", self.build, "-j", self.jobs]):
            status, output = self.run(None, "cmake", *command)
            if status:
                sys.exit(output[-4000:])
        if failed := self.test():
            sys.exit(f"{self.folder}: {failed} fails before anything was changed")
        passed.write_text(state.hexdigest())

    def verdict(self, mutant, likely):
        """"caught by ...", "survived", "does not compile", or "gone" with its line."""
        path = self.folder / mutant.file
        text = path.read_text(encoding="utf-8")
        found = [match.start() for match in re.finditer(re.escape(mutant.old + "\n"), text)]
        if not found:
            return "gone"
        at = min(found, key=lambda start: abs(text.count("\n", 0, start) + 1 - mutant.line))
        path.write_text(text[:at] + mutant.new + text[at + len(mutant.old):], encoding="utf-8")
        try:
            for goals, selection in stages_for(mutant, likely):
                status, output = self.run(BUILD_SECONDS, "cmake", "--build", self.build, "-j",
                                          self.jobs, "--target", *goals)
                if status is None:
                    return "caught by the build's limit"
                if status:
                    # A test program that cannot even list its tests, or a tool that fails.
                    return "does not compile" if "error:" in output else "caught by the build"
                if caught := self.test(*selection):
                    return f"caught by {caught}"
            return "survived"
        finally:
            path.write_text(text, encoding="utf-8")


class Run:
    """A run of the copies, side by side; the verdicts so far are a line of JSON each."""

    def __init__(self, options):
        self.options = options
        self.known = equivalents()
        self.journal = options.folder / f"{options.seed}.jsonl"
        found = {file: [json.loads(row) for row in file.read_text("utf-8").splitlines()]
                 for file in options.folder.glob("*.jsonl")}
        self.verdicts = {Mutant(*row[:-1]): row[-1] for row in found.get(self.journal, [])}
        # What has caught a fault of a file, or of its folder, may well catch the next one.
        self.catchers = collections.defaultdict(collections.Counter)
        for row in itertools.chain(*found.values()):
            self.learn(Mutant(*row[:-1]), row[-1])
        self.lock = threading.Lock()
        self.counted = {}
        self.failed = []
        self.places = iter(self.plan())

    def learn(self, mutant, verdict):
        if verdict.startswith("caught by widgets."):
            for place, weight in ((mutant.file, 4), (os.path.dirname(mutant.file), 1)):
                self.catchers[place][verdict.split()[-1]] += weight

    def likely(self, file):
        return [test for test, _ in
                (self.catchers[file] + self.catchers[os.path.dirname(file)]).most_common(4)]

    def plan(self):
        if self.options.again:
            return [mutant for mutant, verdict in self.verdicts.items() if verdict == "survived"]
        return drawn(self.options.seed, self.options.folders)

    def next(self):
        """The next place without a verdict, while fewer than asked for count."""
        with self.lock:
            while self.options.again or len(self.counted) < self.options.places:
                mutant = next(self.places, None)
                if mutant is None:
                    return None
                verdict = None if self.options.again else self.verdicts.get(mutant)
                if (mutant.file, words_of(mutant.old), words_of(mutant.new)) in self.known:
                    verdict = "equivalent"
                if verdict in NOT_COUNTED:
                    continue
                self.counted[mutant] = verdict
                if verdict is None:
                    return mutant
        return None

    def work(self, copy):
        try:
            copy.prepare()
            while mutant := self.next():
                start = time.monotonic()
                with self.lock:
                    likely = self.likely(mutant.file)
                verdict = copy.verdict(mutant, likely)
                with self.lock, self.journal.open("a", encoding="utf-8") as file:
                    file.write(json.dumps([*mutant, verdict]) + "\n")
                    self.counted[mutant] = verdict
                    self.learn(mutant, verdict)
                    if verdict in NOT_COUNTED:
                        del self.counted[mutant]
                    print(f"{len(self.counted):4} {time.monotonic() - start:4.0f} s  {verdict}: "
                          f"{mutant.file}:{mutant.line} {mutant.kind}", flush=True)
        except SystemExit as end:
            self.failed.append(str(end))

    def go(self):
        copies = [Copy(number, self.options) for number in range(1, self.options.copies + 1)]
        threads = [threading.Thread(target=self.work, args=(copy,)) for copy in copies]

        def stop(*_):
            for copy in copies:
                copy.kill()
            os._exit(1)
        for ending in (signal.SIGINT, signal.SIGTERM):
            signal.signal(ending, stop)
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join()
        if self.failed:
            sys.exit("\n".join(self.failed))
        self.report()

    def report(self):
        print("\nSurvived:")
        for mutant in sorted(m for m, verdict in self.counted.items() if verdict == "survived"):
            print(f"{mutant.file}:{mutant.line} {mutant.kind}\n{shown(mutant)}")
        table = collections.defaultdict(collections.Counter)
        for mutant, verdict in self.counted.items():
            for folder in (folder_of(mutant.file), "together"):
                table[folder][(verdict or "open").split()[0]] += 1
        print(f"\nSeed {self.options.seed}\n\n"
              "| Folder | Places | Caught | Equivalent | Survived | Caught of what counts |\n"
              "| --- | ---: | ---: | ---: | ---: | ---: |")
        for folder in sorted(table, key=lambda name: (name == "together", name)):
            row = table[folder]
            caught, survived = row["caught"], row["survived"]
            share = f"{100 * caught / (caught + survived):.0f} %" if caught + survived else ""
            print(f"| {folder} | {row.total()} | {caught} | {row['equivalent']} | {survived} "
                  f"| {share} |")


def shown(mutant):
    old = "\n".join(f"    - {line.strip()}" for line in mutant.old.split("\n"))
    new = "\n".join(f"    + {line.strip()}" for line in mutant.new.split("\n") if line.strip())
    return old + "\n" + (new or "    + " + DROPPED)


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n\n")[0])
    parser.add_argument("places", type=int, nargs="?", default=60, help="how many places (60)")
    parser.add_argument("seed", type=int, nargs="?", default=1, help="which ones (1)")
    parser.add_argument("--again", action="store_true", help="only what survived before")
    parser.add_argument("--copies", type=int, default=1, help="copies that work side by side (1)")
    parser.add_argument("--folder", type=pathlib.Path, default=ROOT / "build" / "mutants",
                        help="where the copies and what was found go (build/mutants)")
    parser.add_argument("--folders", type=lambda text: text.split(","), default=[],
                        help="folders of src, such as tables,app/widgets (all)")
    parser.add_argument("--prefix", default="nice", help="put before what builds and tests (nice)")
    options = parser.parse_args()
    options.folder = options.folder.resolve()
    options.folder.mkdir(parents=True, exist_ok=True)
    Run(options).go()


if __name__ == "__main__":
    main()
