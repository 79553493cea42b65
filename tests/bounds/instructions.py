# SPDX-License-Identifier: MIT
"""How many instructions each function takes at most, counted by callgrind: the same in every run, on any machine's load.

A function that reads or writes text may take so many and so many for each byte; any other one takes no more than its
figure whatever the arguments are. Both figures are typed into the page by hand; a measured call above them is an error.

usage: instructions.py check TABLE PROGRAM PAGE [CALLS]    hold a build against the page
       instructions.py write TABLE PROGRAM PAGE [CALLS]    renew what is measured there, and leave the limits alone
"""
from __future__ import annotations

import dataclasses
import pathlib
import subprocess
import sys
import tempfile

import page as pages

CALLS = "400"  # drawn ones of each function
HEADS = ["function", "dearest known call", "usual", "dearest", "limit", "and for each byte"]
GROWTH_HEADS = ["text", "each byte"]
LABEL = "desc: Trigger: Client Request: "

# From one doubling of the text to the next, the instructions for a byte stay what they are, but for this.
STEADY = 0.02

# Where instructions count.
COUNTED = ("--toggle-collect=QV8Numeric*", "--toggle-collect=get_truncated_part*")


@dataclasses.dataclass
class Count:
    """One call."""
    function: str
    what: str
    bytes: int
    instructions: int


@dataclasses.dataclass
class Counts:
    """All calls of a run by their kind."""
    typical: list[Count] = dataclasses.field(default_factory=list)
    worst: list[Count] = dataclasses.field(default_factory=list)
    drawn: list[Count] = dataclasses.field(default_factory=list)
    grown: list[Count] = dataclasses.field(default_factory=list)

    def add(self, label: str, instructions: int) -> None:
        kind, function, *what, bytes_ = label.split("\t")
        name = function if function.islower() else f"QV8Numeric{function}"
        if kind == "row":
            getattr(self, what[0]).append(Count(name, what[1], int(bytes_), instructions))
        else:
            getattr(self, kind).append(Count(name, what[0], int(bytes_), instructions))


def count(program: str, calls: str) -> Counts:
    """Every call is a part of callgrind's one file: its label in a line, its sum in a later one."""
    counts = Counts()
    with tempfile.TemporaryDirectory() as folder:
        file = pathlib.Path(folder, "counts")
        subprocess.run(["valgrind", "--quiet", "--tool=callgrind", *COUNTED, "--combine-dumps=yes",
                        f"--callgrind-out-file={file}", program, calls], check=True)
        label = None
        with file.open(encoding="utf-8", errors="replace") as lines:
            for line in lines:
                if line.startswith(LABEL):
                    label = line[len(LABEL):].rstrip("\n")
                elif line.startswith("summary:") and label:
                    counts.add(label, int(line.split()[1]))
                    label = None
    if not (counts.typical and counts.worst and counts.grown and len(counts.drawn) >= int(calls)):
        raise SystemExit(f"{program}: callgrind counted too few calls")
    return counts


def growth(counts: Counts) -> tuple[dict[str, float], list[str]]:
    """Instructions for each byte of a family, and the families in which they grow."""
    families: dict[str, list[Count]] = {}
    for call in counts.grown:
        families.setdefault(f"{call.function}: {call.what}", []).append(call)
    each_byte: dict[str, float] = {}
    findings = []
    for name, calls in families.items():
        slopes = [(more.instructions - less.instructions) / (more.bytes - less.bytes)
                  for less, more in zip(calls, calls[1:])]
        each_byte[name] = slopes[-1]
        if len(slopes) != 3 or max(slopes) - min(slopes) > STEADY * max(slopes):
            findings.append(f"{name}: not linear, for each byte {', '.join(f'{slope:.3f}' for slope in slopes)}")
    return each_byte, findings


def above(counts: Counts, limits: pages.Table) -> list[str]:
    """The calls that take more than their function may."""
    findings = []
    for call in [*counts.typical, *counts.worst, *counts.drawn, *counts.grown]:
        if call.function not in limits:
            findings.append(f"{call.function}: no limit on the page")
            continue
        limit, each_byte = limits[call.function][-2:]
        allowed = int(limit) + float(each_byte or 0) * call.bytes
        if call.instructions > allowed:
            findings.append(f"{call.function}: {call.instructions} instructions, more than {allowed:.0f}: {call.what}")
    functions = {call.function for call in counts.typical}
    findings += [f"{name}: on the page, but never called" for name in limits if name not in functions]
    return sorted(set(findings))


def measured_rows(counts: Counts, limits: pages.Table) -> pages.Table:
    table = {}
    for typical in counts.typical:
        name = typical.function
        named = [call for call in [typical, *counts.worst] if call.function == name]
        dearest = max(named, key=lambda call: call.instructions)
        what, most = dearest.what, dearest.instructions
        drawn = max((call.instructions for call in counts.drawn if call.function == name and call.bytes == 0), default=0)
        if drawn > most:
            what, most = "a drawn one", drawn
        table[name] = [what, str(typical.instructions), str(most), *limits.get(name, ["", ""])[-2:]]
    return table


def finish(findings: list[str]) -> None:
    for finding in findings:
        print(finding)
    sys.exit(1 if findings else 0)


def check(table: str, program: str, page: str, calls: str = CALLS) -> None:
    counts = count(program, calls)
    _, limits = pages.read(pathlib.Path(page), table)
    finish(growth(counts)[1] + above(counts, limits))


def write(table: str, program: str, page: str, calls: str = CALLS) -> None:
    counts = count(program, calls)
    path = pathlib.Path(page)
    _, limits = pages.read(path, table)
    pages.write(path, table, HEADS, 2, measured_rows(counts, limits))
    each_byte, findings = growth(counts)
    if table == "instructions":
        pages.write(path, "growth", GROWTH_HEADS, 1, {name: [f"{slope:.1f}"] for name, slope in each_byte.items()})
    finish(findings)


if __name__ == "__main__":
    {"check": check, "write": write}[sys.argv[1]](*sys.argv[2:])
