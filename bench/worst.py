# SPDX-License-Identifier: MIT
"""./dev bench --worst: the dearest call of every function beside its usual one, and a megabyte of text."""
from __future__ import annotations

import pathlib
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
sys.path.insert(0, str(ROOT / "tests" / "bounds"))
import page as pages  # noqa: E402  # pylint: disable=wrong-import-position

CALL_HEADS = ["function", "dearest known call", "usual, ns", "dearest, ns"]
TEXT_HEADS = ["a megabyte of", "ms"]


def _name(function: str) -> str:
    return function if function.islower() else f"QV8Numeric{function}"


def measure(program: pathlib.Path, repetitions: int, seconds: float) -> tuple[pages.Table, pages.Table]:
    """Both tables: of all calls, and of those on a megabyte."""
    output = subprocess.run([program, str(repetitions), str(seconds)], stdout=subprocess.PIPE, text=True, check=True).stdout
    usual: dict[str, float] = {}
    dearest: dict[str, tuple[float, str]] = {}
    texts: pages.Table = {}
    for line in output.splitlines():
        kind, function, *rest = line.split("\t")
        name, time = _name(function), float(rest[-1])
        if kind == "grown":
            texts[f"{name}: {rest[0]}"] = [f"{time / 1e6:.3f}"]
            continue
        if rest[0] == "typical":
            usual[name] = time
        if time >= dearest.get(name, (0.0, ""))[0]:
            dearest[name] = (time, rest[1])
    if not usual or not texts:
        raise SystemExit(f"{program}: no times")
    calls = {name: [dearest[name][1], f"{usual[name]:.1f}", f"{dearest[name][0]:.1f}"] for name in usual}
    return calls, texts


def print_table(heads: list[str], table: pages.Table) -> None:
    lines = [heads, *([name, *cells] for name, cells in table.items())]
    widths = [max(len(line[i]) for line in lines) for i in range(len(heads))]
    for line in lines:
        cells = [cell.ljust(width) if i < len(heads) - 2 or i == 0 else cell.rjust(width)
                 for i, (cell, width) in enumerate(zip(line, widths))]
        print("  ".join(cells).rstrip())


def run(program: pathlib.Path, repetitions: int, seconds: float, page: pathlib.Path | None) -> None:
    """Measures and prints; renews the page where one is named."""
    calls, texts = measure(program, repetitions, seconds)
    print_table(CALL_HEADS, calls)
    print()
    print_table(TEXT_HEADS, texts)
    if page is not None:
        pages.write(page, "time", CALL_HEADS, 2, calls)
        pages.write(page, "time of a megabyte", TEXT_HEADS, 1, texts)
