# SPDX-License-Identifier: MIT
"""./dev bench: measures, and writes tables, JSON and plots; compares two revisions; checks without measuring.

The program and the libraries are built before this is called, in build/bench and build/bench-portable.
"""
from __future__ import annotations

import argparse
import pathlib
import subprocess
import sys

import compare
import docs
import plot
import report
import results
import worst

ROOT = pathlib.Path(__file__).resolve().parent.parent
BUILD = ROOT / "build" / "bench"
PROGRAM = BUILD / "qv8numeric_bench"
WORST_PROGRAM = BUILD / "qv8numeric_bench_worst"
LIBRARY = BUILD / "libqv8numeric.so.1"
PORTABLE_LIBRARY = ROOT / "build" / "bench-portable" / "libqv8numeric.so.1"
RESULTS = BUILD / "results"
ALL_GROUPS = "table,cliffs,distances"


def run_program(*arguments: str) -> None:
    """The program says for itself what is wrong."""
    status = subprocess.run([PROGRAM, *arguments], check=False).returncode
    if status != 0:
        sys.exit(status)


def libraries() -> list[str]:
    """As the program's options: ours first, since ratios are taken to the first."""
    return [f"--library={results.OURS}={LIBRARY}", f"--library={results.PORTABLE}={PORTABLE_LIBRARY}"]


def measure(name: str, groups: str, repetitions: int, seconds: float, filters: list[str]) -> pathlib.Path:
    """Runs some groups of rows and returns the file with their times."""
    path = RESULTS / f"{name}.json"
    run_program(*libraries(), f"--groups={groups}", f"--repetitions={repetitions}", f"--min-time={seconds}",
                f"--json={path}", *filters)
    return path


def print_tables(run: results.Run) -> None:
    """Both tables of both groups of rows."""
    print(report.LEGEND)
    for group in ("table", "cliffs"):
        rows = run.group(group)
        for measured in ("throughput", "latency") if rows else ():
            print("\n" + report.terminal(run, rows, measured))
    if run.group("table"):
        print("\n" + report.summary(run.group("table")))


def parse_arguments() -> argparse.Namespace:
    parser = argparse.ArgumentParser(prog="./dev bench", description="Measure the library beside its peers.")
    parser.add_argument("filters", nargs="*", metavar="FILTER", help="only rows whose title contains one of these")
    parser.add_argument("--quick", action="store_true", help="the rows of the table, fewer repetitions")
    parser.add_argument("--check", action="store_true", help="check every answer and run each loop once; time nothing")
    parser.add_argument("--compare", metavar="REV", help="the library at REV and that of the work tree, nobody else")
    parser.add_argument("--worst", action="store_true", help="the dearest calls of every function, beside the usual ones")
    parser.add_argument("--write-docs", action="store_true",
                        help="measure, and renew docs/performance.md and the README, or with --worst docs/bounds.md")
    return parser.parse_args()


def main() -> None:
    arguments = parse_arguments()
    RESULTS.mkdir(parents=True, exist_ok=True)
    if arguments.check:
        run_program(*libraries(), f"--groups={ALL_GROUPS}", "--check", *arguments.filters)
        worst.measure(WORST_PROGRAM, 1, 0)
    elif arguments.worst:
        worst.run(WORST_PROGRAM, 7, 0.01, ROOT / "docs" / "bounds.md" if arguments.write_docs else None)
    elif arguments.compare:
        compare.compare(arguments.compare, PROGRAM, LIBRARY, RESULTS, arguments.filters)
    elif arguments.quick or arguments.filters:
        repetitions, seconds = (3, 0.004) if arguments.quick else (7, 0.01)
        groups = "table" if arguments.quick else "table,cliffs"
        print_tables(results.load(measure("part", groups, repetitions, seconds, arguments.filters)))
    else:
        rows = measure("rows", "table,cliffs", 7, 0.01, [])
        distances = measure("distances", "distances", 3, 0.004, [])
        run = results.load(rows, distances)
        print_tables(run)
        plot.write_all(run, RESULTS)
        print(f"\nTimes and plots are in {RESULTS.relative_to(ROOT)}.")
        if arguments.write_docs:
            docs.write(run, ROOT)


main()
