# SPDX-License-Identifier: MIT
"""Renews the measured parts of docs/performance.md: what stands between a pair of markers comes from a run."""
from __future__ import annotations

import dataclasses
import pathlib
import re
import subprocess

import plot
import report
from results import PORTABLE, Row, Run


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


def _without_portable(run: Run) -> Run:
    """The comparison with peers has no column for it."""
    def kept(row: Row) -> Row:
        return dataclasses.replace(row, contenders=[times for times in row.contenders if times.name != PORTABLE])

    return dataclasses.replace(run, rows=[kept(row) for row in run.rows])


def write(run: Run, folder: pathlib.Path) -> None:
    """The page and the plots that it shows."""
    peers = _without_portable(run)
    parts = {
        "machine": _machine(run),
        "standing": report.standing(peers.group("table")),
        "throughput": report.markdown(peers, peers.group("table"), "throughput"),
        "latency": report.markdown(peers, peers.group("table"), "latency"),
        "cliffs": report.markdown(peers, peers.group("cliffs"), "throughput"),
        "portable": _portable(run),
    }
    page = folder / "performance.md"
    text = page.read_text(encoding="utf-8")
    for name, content in parts.items():
        pattern = rf"(<!-- measured: {name} -->\n).*?(<!-- end -->\n)"
        text, count = re.subn(pattern, lambda match: f"{match.group(1)}\n{content}\n\n{match.group(2)}", text,
                              flags=re.DOTALL)
        if count != 1:
            raise SystemExit(f"{page}: {count} places for {name}")
    page.write_text(text, encoding="utf-8")
    plot.write_all(run, folder)
