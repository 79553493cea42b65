# SPDX-License-Identifier: MIT
"""The library at another revision beside that of the work tree, in one interleaved run, with instruction counts."""
from __future__ import annotations

import pathlib
import re
import shutil
import subprocess
import sys

import results

COUNTED_CALLS = 1024  # kCountedCalls of the program


def _build(revision: str, scratch: pathlib.Path) -> pathlib.Path:
    """The shared library at a revision, built as the benchmarks build ours. A revision is built once."""
    name = subprocess.run(["git", "rev-parse", "--short", f"{revision}^{{commit}}"], stdout=subprocess.PIPE, check=False,
                          text=True)
    if name.returncode != 0:
        sys.exit(f"./dev bench: git knows no revision {revision}")
    source = scratch / name.stdout.strip()
    library = source / "build" / "libqv8numeric.so.1"
    if library.exists():
        return library
    shutil.rmtree(source, ignore_errors=True)
    source.mkdir(parents=True)
    archive = subprocess.run(["git", "archive", revision], stdout=subprocess.PIPE, check=True)
    subprocess.run(["tar", "-x", "-C", source], input=archive.stdout, check=True)
    flags = [f"-DCMAKE_{language}_FLAGS_RELEASE=-O2 -DNDEBUG" for language in ("C", "CXX")]
    log = source / "build.log"
    with open(log, "w", encoding="utf-8") as output:
        for command in (["cmake", "-S", source, "-B", source / "build", "-DCMAKE_BUILD_TYPE=Release", *flags],
                        ["cmake", "--build", source / "build", "--parallel", "--target", "qv8numeric"]):
            if subprocess.run(command, stdout=output, stderr=subprocess.STDOUT, check=False).returncode != 0:
                sys.exit(log.read_text(encoding="utf-8"))
    return library


def _instructions(program: pathlib.Path, library: pathlib.Path, folder: pathlib.Path,
                  filters: list[str]) -> dict[str, float]:
    """Instructions for each call, by the title of the row. They include the few of the loop that calls."""
    if not shutil.which("valgrind"):
        print("No instruction counts without valgrind.")
        return {}
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir(parents=True)
    command = ["valgrind", "--quiet", "--tool=callgrind", "--instr-atstart=no",
               f"--callgrind-out-file={folder / 'counts'}", program, f"--library=counted={library}", "--no-peers",
               "--count", *filters]
    if subprocess.run(command, stderr=subprocess.DEVNULL, check=False).returncode != 0:
        sys.exit("./dev bench: callgrind failed")
    counts = {}
    for path in folder.glob("counts*"):
        text = path.read_text(encoding="utf-8")
        title = re.search(r"^desc: Trigger: Client Request: (.*)$", text, re.MULTILINE)
        total = re.search(r"^totals: (\d+)", text, re.MULTILINE)
        if title and total:
            counts[title.group(1)] = int(total.group(1)) / COUNTED_CALLS
    return counts


def _change(old: float | None, new: float | None) -> str:
    return f"{old:9.1f}{new:9.1f}{old / new:7.2f}" if old and new else " " * 25


def compare(revision: str, program: pathlib.Path, library: pathlib.Path, folder: pathlib.Path,
            filters: list[str]) -> None:
    """Prints the medians of both and what the work tree's is faster by."""
    old_library = _build(revision, folder.parent / "revisions")
    path = folder / "compare.json"
    command = [program, f"--library=old={old_library}", f"--library=new={library}", "--no-peers", f"--json={path}",
               *filters]
    if subprocess.run(command, check=False).returncode != 0:
        sys.exit(1)
    old_counts = _instructions(program, old_library, folder / "old", filters)
    new_counts = _instructions(program, library, folder / "new", filters)
    run = results.load(path)
    width = max(len(row.title) for row in run.rows)
    print(f"Nanoseconds and instructions for each call at {revision} and now, and the first over the second.\n")
    print(f"{'':{width}}{'throughput':>25}{'latency':>25}{'instructions':>25}")
    for row in run.rows:
        old, new = row.contenders
        print(f"{row.title:{width}}{_change(old.throughput, new.throughput)}{_change(old.latency, new.latency)}"
              f"{_change(old_counts.get(row.title), new_counts.get(row.title))}")
