# SPDX-License-Identifier: MIT
"""Renews the measured parts of the README and docs/performance.md: what stands between markers comes from a run."""
from __future__ import annotations

import dataclasses
import pathlib
import re
import subprocess

import plot
import report
from results import BY_HAND, PLAIN, PORTABLE, Row, Run


def _processor() -> str:
    """The model's name as lscpu gives it."""
    listing = subprocess.run(["lscpu"], stdout=subprocess.PIPE, text=True, check=True, env={"LC_ALL": "C"}).stdout
    match = re.search(r"^Model name:\s*(.*)$", listing, re.MULTILINE)
    return match.group(1) if match else "unknown"


def _machine(run: Run) -> str:
    return f"{_processor()}; GCC {run.compiler}, `{run.flags}`."


def _portable(run: Run) -> str:
    rows = [row for row in run.group("table") if row.find(PORTABLE)]
    lines = ["| throughput | operands | native | portable | portable / native |", "| --- | --- | ---: | ---: | ---: |"]
    for row in rows:
        native, portable = row.ours.throughput, row.find(PORTABLE).throughput
        lines.append(f"| {row.name} | {row.operands} | {native:.1f} | {portable:.1f} | {portable / native:.2f} |")
    return "\n".join(lines)


# What the README shows: the title of a row as a host would say it, and the names of the row and of its operands.
EXCERPT = {
    "add, one scale": ("add, same scale", "small"),
    "add, two scales": ("rescaling add, scales 2, 4 into 2", "small"),
    "multiply": ("rescaling multiply, scales 2, 4 into 2", "small"),
    "multiply, 28 by 28 digits": ("rescaling multiply, scales 18, 18 into 18", "28 x 28 digits"),
    "divide": ("rescaling divide, scales 2, 4 into 6", "small"),
    "round to 2 places": ("round scale 6 to 2 places", "small"),
    "to text, 18 digits": ("to text", "18 digits"),
    "from text, 18 digits": ("from text", "18 digits"),
    "from double": ("from double, scale 2", "small"),
}


def _excerpt(run: Run) -> str:
    """Ours, the two that were written for the comparison, and the fastest package, partial ones included."""
    lines = ["| nanoseconds a call | qv8numeric | by hand | plain | fastest package |",
             "| --- | ---: | ---: | ---: | ---: |"]
    rows = {(row.name, row.operands): row for row in run.group("table")}
    for title, key in EXCERPT.items():
        row = rows[key]
        packages = [times for times in row.contenders[1:] if times.name not in (PLAIN, BY_HAND, PORTABLE)]
        fastest = min(packages, key=lambda times: times.throughput)
        lines.append(f"| {title} | {row.ours.throughput:.1f} | {row.find(BY_HAND).throughput:.1f} "
                     f"| {row.find(PLAIN).throughput:.1f} "
                     f"| {fastest.throughput:.1f} ({report.SHORT.get(fastest.name, fastest.name)}"
                     f"{'' if fastest.whole_job else ', in part'}) |")
    return f"{_processor()}, one core:\n\n" + "\n".join(lines)


def _without_portable(run: Run) -> Run:
    """The comparison with peers has no column for it."""
    def kept(row: Row) -> Row:
        return dataclasses.replace(row, contenders=[times for times in row.contenders if times.name != PORTABLE])

    return dataclasses.replace(run, rows=[kept(row) for row in run.rows])


def _fill(page: pathlib.Path, parts: dict[str, str]) -> None:
    text = page.read_text(encoding="utf-8")
    for name, content in parts.items():
        pattern = rf"(<!-- measured: {name} -->\n).*?(<!-- end -->\n)"
        text, count = re.subn(pattern, lambda match: f"{match.group(1)}\n{content}\n\n{match.group(2)}", text,
                              flags=re.DOTALL)
        if count != 1:
            raise SystemExit(f"{page}: {count} places for {name}")
    page.write_text(text, encoding="utf-8")


def write(run: Run, root: pathlib.Path) -> None:
    """The pages and the plots that they show."""
    peers = _without_portable(run)
    _fill(root / "docs" / "performance.md", {
        "machine": _machine(run),
        "standing": report.standing(peers.group("table")),
        "throughput": report.markdown(peers, peers.group("table"), "throughput"),
        "latency": report.markdown(peers, peers.group("table"), "latency"),
        "cliffs": report.markdown(peers, peers.group("cliffs"), "throughput"),
        "portable": _portable(run),
    })
    _fill(root / "README.md", {"excerpt": _excerpt(run)})
    plot.write_all(run, root / "docs")
