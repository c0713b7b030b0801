#!/usr/bin/env python3
"""Runs every benchmark of a build folder and prints one table: what, measured, aim, verdict.

    scripts/speed.py BUILD [DOCUMENT]

The programs say what they measured in lines of their own (bench/speed_line.h). DOCUMENT is
docs/speed.md, whose table and machine are written anew. Ends with 1 when a program could not be run,
whatever the verdicts are.
"""

import math
import os
import re
import subprocess
import sys

EVALUATOR_OPTIONS = [
    "--benchmark_min_time=0.01",
    "--benchmark_repetitions=9",
    "--benchmark_enable_random_interleaving=true",
]
# Program, what it is about, its arguments.
PROGRAMS = [
    ("library_bench", "A library of 100,000 entries", []),
    ("exchange_bench", "Half of its entries copied", []),
    ("interchange_bench", "Two such libraries, and 100,000 rows", []),
    ("catalogue_bench", "The text catalogues of a start", []),
    ("timetest_bench", "Import of 1,000,000 points", []),
    ("curves_bench", "Operations on curves", []),
    ("bench_mathparser", "Expression evaluator", EVALUATOR_OPTIONS),
    ("special_comparison", "Special functions", ["tests/data/mathparser/special_reference.txt"]),
    ("hostile_bench", "Expressions that nobody writes by hand", []),
    ("cli_bench", "zentab-cli as a program", []),
    ("startup_bench", "The editor's start", []),
    ("editing_bench", "The editor's window", []),
    ("load_bench", "The window on 1,000,000 entries", []),
    ("report_bench", "A report", []),
]
SECONDS = 600  # for one program; only what hangs takes as long


class Row:
    """What was measured under one name: of several values the worst."""

    def __init__(self, name, measure, value, aim, limit):
        self.name, self.measure, self.aim, self.limit = name, measure, aim, limit
        self.values = [value]

    def worst(self):
        return min(self.values) if self.aim == "least" else max(self.values)

    def is_missing(self):
        return any(math.isnan(value) for value in self.values)

    def what(self):
        words = self.name
        if " " not in words:
            words = words.replace("/", ", ").replace("_", " ")
            words = re.sub(r"(?<=[A-Za-z])[A-Z]", lambda letter: " " + letter[0].lower(), words)
        return words + (f" (worst of {len(self.values)})" if len(self.values) > 1 else "")

    def cells(self):
        if self.is_missing():
            return [self.what(), "not installed", self.aim_text(), "-"]
        value = self.worst()
        verdict = "-"
        if self.aim != "none":
            met = value <= self.limit if self.aim == "most" else value >= self.limit
            verdict = "met" if met else "missed"
        return [self.what(), measured(number(value), self.measure), self.aim_text(), verdict]

    def aim_text(self):
        return "-" if self.aim == "none" else f"at {self.aim} {self.limit:g}"


def number(value):
    return f"{value:.0f}" if value >= 100 else f"{value:.3g}"


def measured(value, measure):
    if measure.startswith("x "):
        return f"{value} × {measure[2:]}".strip()
    return f"{value} {measure}".strip()


def rows_of(output):
    rows = {}
    for line in output.splitlines():
        fields = line.split("\t")
        if fields[0] != "speed" or len(fields) != 6:
            continue
        name, measure, value, aim, limit = fields[1:]
        key = (name, measure)
        if key in rows:
            rows[key].values.append(float(value))
        else:
            rows[key] = Row(name, measure, float(value), aim, float(limit))
    # Repeated runs of one benchmark and its variants stand in the order of their first lines.
    return list(rows.values())


def run(folder, program, arguments):
    """The rows of a program, and whether it ran."""
    # The offscreen platform warns of what it lacks, which is nothing that counts here.
    surroundings = dict(os.environ, QT_QPA_PLATFORM="offscreen", QT_LOGGING_RULES="*.warning=false")
    path = os.path.join(folder, "bin", program)
    try:
        done = subprocess.run([path, *arguments], env=surroundings, timeout=SECONDS, text=True,
                              stdout=subprocess.PIPE, stderr=subprocess.PIPE, check=False)
    except (OSError, subprocess.TimeoutExpired) as error:
        print(error, file=sys.stderr)
        return [], False
    rows = rows_of(done.stdout)
    if done.returncode != 0 or not rows:
        print(done.stdout[-2000:], done.stderr[-2000:], sep="\n", file=sys.stderr)
    return rows, done.returncode == 0 and bool(rows)


def processor():
    with open("/proc/cpuinfo", encoding="utf-8") as file:
        models = re.findall(r"^model name\s*: (.*)$", file.read(), re.MULTILINE)
    count = os.cpu_count()
    return f"{models[0] if models else 'unknown'}, {count} processor{'s' if count != 1 else ''}"


def main():
    if len(sys.argv) not in (2, 3):
        sys.exit(__doc__)
    table = ["| what | measured | aim | verdict |", "|---|---:|---:|---|"]
    print("\n".join(table))
    failed = False
    for program, subject, arguments in PROGRAMS:
        rows, ran = run(sys.argv[1], program, arguments)
        lines = [f"| **{subject}** (`{program}`) | | | |"]
        lines += ["| " + " | ".join(row.cells()) + " |" for row in rows]
        if not ran:
            failed = True
            lines.append("| | did not run | | failed |")
        print("\n".join(lines), flush=True)
        table += lines
    if len(sys.argv) == 3:
        with open(sys.argv[2], encoding="utf-8") as file:
            head = file.read().split("<!-- measured -->")[0]
        with open(sys.argv[2], "w", encoding="utf-8") as file:
            file.write(f"{head}<!-- measured -->\nMachine: {processor()}.\n\n" + "\n".join(table) + "\n")
    sys.exit(1 if failed else 0)


if __name__ == "__main__":
    main()
