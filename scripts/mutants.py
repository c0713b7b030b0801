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
import hashlib
import json
import os
import pathlib
import queue
import random
import re
import shlex
import shutil
import signal
import subprocess
import sys
import threading
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent
EQUIVALENT = ROOT / "scripts" / "mutants-equivalent.txt"
DROPPED = "(dropped)"
TEST_SECONDS = 60
BUILD_SECONDS = 900

Mutant = collections.namedtuple("Mutant", "file line kind old new")


# The places ---------------------------------------------------------------------------------------

TOKENS = re.compile(
    r'//[^\n]*|/\*.*?\*/|R"(?P<mark>[^(]*)\(.*?\)(?P=mark)"|"(?:\\.|[^"\\\n])*"'
    r"|(?<![0-9a-fA-F])'(?:\\.|[^'\\\n])+'|^[ \t]*#(?:\\\n|[^\n])*",
    re.DOTALL | re.MULTILINE,
)
NOT_HERE = re.compile(r"^[ \t]*#[ \t]*if[^\n]*(?:_WIN32|_MSC_VER).*?^[ \t]*#[ \t]*(?:else|endif)",
                      re.DOTALL | re.MULTILINE)


def blank(match):
    """Of a literal the quotes stay, so that an argument is still one."""
    text = match.group(0)
    inside = re.sub(r"[^\n]", " ", text)
    return '"' + inside[1:-1] + '"' if text[-1] in "\"'" and text[0] in "\"'R" else inside


def code_of(text):
    """The text with comments, literals and what only Windows compiles blanked, of the same length."""
    text = NOT_HERE.sub(lambda match: re.sub(r"[^\n]", " ", match.group(0)), text)
    return TOKENS.sub(blank, text)


def closing(code, start):
    """Index of the bracket that closes the one at `start`; -1 where there is none."""
    depth = 0
    for index in range(start, len(code)):
        if code[index] in "([{":
            depth += 1
        elif code[index] in ")]}":
            depth -= 1
            if depth == 0:
                return index
    return -1


def split_at(code, begin, end, mark):
    """The stretches of [begin, end) between the marks that stand in no bracket of their own."""
    parts, depth = [], 0
    for index in range(begin, end):
        depth += (code[index] in "([{") - (code[index] in ")]}")
        if depth == 0 and code[index] == mark:
            parts.append((begin, index))
            begin = index + 1
    return parts + [(begin, end)]


COMPARISONS = {" < ": (" <= ", " >= "), " <= ": (" < ", " > "), " > ": (" >= ", " <= "),
               " >= ": (" > ", " < "), " == ": (" != ",), " != ": (" == ",)}
SIMPLE = re.compile(r"(?:\+\+|--|\*)?(?!return\b|delete\b|throw\b|using\b|goto\b)[\w:.\[\]>()-]+"
                    r"(?:\(.*\)| (?:[-+*/|&^%]|<<|>>)?= .*|\+\+|--|)", re.DOTALL)
PARAMETER = re.compile(r"\s*(?:const )?[\w:]+(?:<.*>)?(?: ?[&*]+ ?| )\w+\s*(?:=.*)?", re.DOTALL)
DECLARATION = re.compile(r"\s*(?:const )?[\w:]+(?:<[^=]*>)?(?: ?[&*] ?|[&*]? )\w+ = ", re.DOTALL)


def operators(text, code):
    for match in re.finditer(r"(?<=[^ ]) (?:[<>]=?|[=!]=) (?=[^ ])", code):
        for new in COMPARISONS[match.group(0)]:
            yield "comparison", match.start(), match.end(), new
    for match in re.finditer(r" (?:&&|\|\|)(?=\s)", code):
        yield "and/or", match.start() + 1, match.end(), "||" if "&" in match.group(0) else "&&"
    for match in re.finditer(r"(?<![\w.'])(?:0|[1-9]\d{0,8})(?=u?(?![\w.']))", code):
        value = int(match.group(0))
        for new in (value + 1, value - 1) if value else (1,):
            yield "constant", match.start(), match.end(), str(new)


def conditions(text, code):
    for match in re.finditer(r"\b(if|while) (\()", code):
        end = closing(code, match.start(2))
        begin = split_at(code, match.end(), end, ";")[-1][0]
        condition = text[begin:end].strip()
        if DECLARATION.match(code[begin:end]):
            name = code[begin:end].split(" = ")[0].split()[-1].strip("&*")
            yield "negation", begin, end, f"{condition}; !{name}"
            continue
        lead = "" if begin == match.end() else " "
        yield "negation", begin, end, f"{lead}!({condition})"
        if match.group(1) == "if":
            yield "condition dropped", begin, end, lead + "true"
            yield "condition dropped", begin, end, lead + "false"


def statements(text, code):
    """Simple statements to leave out, and pairs of them to swap."""
    former, begin = None, 0
    for index, char in enumerate(code):
        if char not in ";{}" and not (char == ":" and re.search(r"\b(?:case [^\n]*|default)$",
                                                                code[begin:index])):
            continue
        words = code[begin:index].strip()
        start = begin + len(code[begin:index]) - len(code[begin:index].lstrip())
        inside = code.count("(", begin, index) == code.count(")", begin, index)
        begin = index + 1
        if char != ";" or not inside:
            former = None
            continue
        if early := re.match(r"(?:else )?if \(", words):
            body = closing(code, start + early.end() - 1) + 1
            if re.match(r"return\b|continue\b|break\b", code[body:index].strip()):
                yield "statement dropped", start, index + 1, ""
            former = None
        elif SIMPLE.fullmatch(words) and re.search(r"[(=+-]|^break$|^continue$", words):
            if not re.match(r"break|continue", words):
                if former and text[former[0]:former[1]] != text[start:index + 1]:
                    between = text[former[1]:start]
                    yield ("statements swapped", former[0], index + 1,
                           text[start:index + 1] + between + text[former[0]:former[1]])
                former = start, index + 1
            yield "statement dropped", start, index + 1, ""
        else:
            former = None


def arguments(text, code):
    for match in re.finditer(r"(?<=[\w>])\(", code):
        end = closing(code, match.start())
        parts = split_at(code, match.end(), end, ",")
        if len(parts) < 2 or any(PARAMETER.fullmatch(code[a:b]) for a, b in parts):
            continue
        for (a, b), (c, d) in zip(parts, parts[1:]):
            one, other = text[a:b].strip(), text[c:d].strip()
            if one != other:
                lead = text[a:b][: len(text[a:b]) - len(text[a:b].lstrip())]
                yield "arguments swapped", a, d, f"{lead}{other}, {one}"


def mutants_of(file):
    """All changes of a file, by the line they begin in."""
    text = (ROOT / file).read_text(encoding="utf-8")
    code = code_of(text)
    lines = collections.defaultdict(list)
    for maker in (operators, conditions, statements, arguments):
        for kind, begin, end, new in maker(text, code):
            if text[begin:end].strip() == "" or "\n\n" in text[begin:end].strip():
                continue
            first = text.rfind("\n", 0, begin) + 1
            last = text.find("\n", end)
            line = text.count("\n", 0, begin) + 1
            lines[line].append(Mutant(file, line, kind, text[first:last],
                                      text[first:begin] + new + text[end:last]))
    return lines


def drawn(seed, folders):
    """All places in the order of the seed: of each line one kind of change, then one of that kind."""
    chance = random.Random(seed)
    places = []
    for path in sorted((ROOT / "src").rglob("*")):
        file = str(path.relative_to(ROOT))
        if path.suffix not in (".cpp", ".h") or "/windows/" in file:
            continue
        if not folders or folder_of(file) in folders:
            places += [found for _, found in sorted(mutants_of(file).items())]
    chance.shuffle(places)
    for place in places:
        kind = chance.choice(sorted({mutant.kind for mutant in place}))
        yield chance.choice([mutant for mutant in place if mutant.kind == kind])


def folder_of(file):
    parts = file.split("/")[1:-1]
    return "/".join(parts[:2]) if parts[1:2] == ["widgets"] else parts[0]


def words_of(text):
    return " ".join(text.split()) or DROPPED


def equivalents():
    """What is listed as changing nothing, with the reason."""
    found = {}
    for block in EQUIVALENT.read_text(encoding="utf-8").split("\n\n"):
        rows = [row for row in block.split("\n") if row and not row.startswith("#")]
        if rows:
            file, old, new, reason = rows
            found[file, words_of(old), words_of(new)] = reason
    return found


# Building and testing -----------------------------------------------------------------------------

# The programs that test a folder, and whether CTest names its tests after them.
def own_tests(folder):
    if folder.endswith("/widgets"):
        return ["all"], r"^widgets\."
    tests = ROOT / "tests" / folder
    suites = {suite for file in tests.glob("*.cpp")
              for suite in re.findall(r"\bTEST(?:_[FP])?\((\w+)", file.read_text("utf-8"))}
    program = {"mathparser": "mathparser_tests", "cli": "cli_test"}.get(folder, "zentab_tests")
    return [program], rf"(^|/)({'|'.join(sorted(suites))})[./]"


class Copy:
    """A copy of the tree with a build of its own."""

    def __init__(self, number, options):
        self.folder = options.folder / f"copy{number}"
        self.build = self.folder / "build" / "mutants"
        self.options = options
        self.jobs = max(1, os.cpu_count() // options.copies)
        memory = pathlib.Path("/dev/shm" if os.access("/dev/shm", os.W_OK) else self.folder)
        self.temporary = memory / f"mutants-{os.getpid()}-{number}"

    def run(self, seconds, *command):
        """The status and the output; None where the time was over. Nothing it started goes on."""
        environment = os.environ | {"TMPDIR": str(self.temporary), "QT_QPA_PLATFORM": "offscreen"}
        shutil.rmtree(self.temporary, ignore_errors=True)
        self.temporary.mkdir(parents=True)
        process = subprocess.Popen(shlex.split(self.options.prefix) + list(map(str, command)),
                                   cwd=self.folder, env=environment, start_new_session=True,
                                   stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                                   errors="replace")
        try:
            output, _ = process.communicate(timeout=seconds)
            status = process.returncode
        except subprocess.TimeoutExpired:
            output, status = "", None
        finally:
            try:
                os.killpg(process.pid, signal.SIGKILL)
            except ProcessLookupError:
                pass
            shutil.rmtree(self.temporary, ignore_errors=True)
        process.wait()
        return status, output

    def compile(self, *targets):
        return self.run(BUILD_SECONDS, "cmake", "--build", self.build, "-j", self.jobs, "--target",
                        *targets)

    def test(self, *selection):
        """What caught the fault; nothing where all passed."""
        status, output = self.run(None, "ctest", "--test-dir", self.build, "-j", self.jobs,
                                  "--stop-on-failure", "--timeout", TEST_SECONDS, *selection)
        failed = re.search(r"Test *#\d+: (\S+).*\*\*\*(?!Skipped)", output)
        return failed.group(1) if failed else "" if status == 0 else "ctest"

    def prepare(self):
        """Brings the copy up to date; the tests must pass before anything is changed."""
        listed = subprocess.run(["git", "ls-files", "-co", "--exclude-standard", "-z"], cwd=ROOT,
                                check=True, stdout=subprocess.PIPE, text=True).stdout.split("\0")
        files = {name for name in listed if name and (ROOT / name).is_file()}
        for path in [path for path in self.folder.rglob("*") if path.is_file()]:
            name = str(path.relative_to(self.folder))
            if name not in files and not name.startswith("build/"):
                path.unlink()
        state = hashlib.sha256()
        for name in sorted(files):
            source, target = ROOT / name, self.folder / name
            state.update(name.encode() + source.read_bytes())
            if not target.is_file() or target.read_bytes() != source.read_bytes():
                target.parent.mkdir(parents=True, exist_ok=True)
                shutil.copyfile(source, target)
                shutil.copymode(source, target)
        passed = self.build / "passed"
        if passed.is_file() and passed.read_text() == state.hexdigest():
            return
        steps = (lambda: self.run(None, "cmake", "-G", "Ninja", "-S", self.folder, "-B", self.build,
                                  "-DCMAKE_BUILD_TYPE=Debug", "-DCMAKE_CXX_FLAGS_DEBUG=-O0",
                                  "-DCMAKE_EXE_LINKER_FLAGS=-fuse-ld=gold"),
                 lambda: self.run(None, "cmake", "--build", self.build, "-j", self.jobs))
        for step in steps:
            status, output = step()
            if status:
                sys.exit(output[-4000:])
        if failed := self.test():
            sys.exit(f"{self.folder}: {failed} fails before anything was changed")
        passed.write_text(state.hexdigest())

    def verdict(self, mutant):
        """"caught by ...", "survived", "does not compile", or "gone" with its line."""
        path = self.folder / mutant.file
        text = path.read_text(encoding="utf-8")
        found = [match.start() for match in re.finditer(re.escape(mutant.old + "\n"), text)]
        if not found:
            return "gone"
        at = min(found, key=lambda start: abs(text.count("\n", 0, start) + 1 - mutant.line))
        path.write_text(text[:at] + mutant.new + text[at + len(mutant.old):], encoding="utf-8")
        try:
            targets, names = own_tests(folder_of(mutant.file))
            for goal, selection in ((targets, ("-R", names)), (["all"], ("-E", names))):
                status, output = self.compile(*goal)
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


# The run ------------------------------------------------------------------------------------------


class Journal:
    """The verdicts so far, a line of JSON each."""

    def __init__(self, path):
        self.path = path
        self.verdicts = {}
        if path.is_file():
            for row in path.read_text(encoding="utf-8").splitlines():
                *fields, verdict = json.loads(row)
                self.verdicts[Mutant(*fields)] = verdict

    def add(self, mutant, verdict):
        self.verdicts[mutant] = verdict
        with self.path.open("a", encoding="utf-8") as file:
            file.write(json.dumps([*mutant, verdict]) + "\n")


class Run:
    def __init__(self, options):
        self.options = options
        self.known = equivalents()
        self.journal = Journal(options.folder / f"{options.seed}.jsonl")
        self.lock = threading.Lock()
        self.counted = {}
        self.failed = []
        self.places = iter(self.plan())

    def plan(self):
        if self.options.again:
            return [mutant for mutant, verdict in self.journal.verdicts.items()
                    if verdict == "survived"]
        return drawn(self.options.seed, self.options.folders)

    def verdict_of(self, mutant):
        if (mutant.file, words_of(mutant.old), words_of(mutant.new)) in self.known:
            return "equivalent"
        verdict = None if self.options.again else self.journal.verdicts.get(mutant)
        return None if verdict == "equivalent" else verdict

    def next(self):
        """The next place without a verdict, while fewer than asked for count."""
        with self.lock:
            while self.options.again or len(self.counted) < self.options.places:
                mutant = next(self.places, None)
                if mutant is None:
                    return None
                verdict = self.verdict_of(mutant)
                if verdict in ("does not compile", "gone"):
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
                verdict = copy.verdict(mutant)
                with self.lock:
                    self.journal.add(mutant, verdict)
                    self.counted[mutant] = verdict
                    if verdict in ("does not compile", "gone"):
                        del self.counted[mutant]
                    print(f"{len(self.counted):4} {time.monotonic() - start:4.0f} s  {verdict}: "
                          f"{mutant.file}:{mutant.line} {mutant.kind}", flush=True)
                    if verdict == "survived":
                        print(shown(mutant), flush=True)
        except SystemExit as end:
            self.failed.append(str(end))

    def go(self):
        copies = [Copy(number, self.options) for number in range(1, self.options.copies + 1)]
        threads = [threading.Thread(target=self.work, args=(copy,)) for copy in copies]
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
    parser.add_argument("--list", action="store_true", help="only shows the changes")
    parser.add_argument("--prefix", default="nice", help="put before what builds and tests (nice)")
    options = parser.parse_args()
    options.folder = options.folder.resolve()
    options.folder.mkdir(parents=True, exist_ok=True)
    run = Run(options)
    if options.list:
        for mutant, _ in zip(run.places, range(options.places)):
            print(f"{mutant.file}:{mutant.line} {mutant.kind}\n{shown(mutant)}")
    else:
        run.go()


if __name__ == "__main__":
    main()
