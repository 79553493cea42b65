# SPDX-License-Identifier: MIT
"""./dev bounds: the builds in build/release, build/portable and build/debug against docs/bounds.md, or into it.

usage: bounds.py [--write]
"""
from __future__ import annotations

import pathlib
import subprocess
import sys

HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parent.parent
PAGE = ROOT / "docs" / "bounds.md"
NAMES = ROOT / "tests" / "interface" / "exported_names.txt"
COLUMNS = ("release", "portable", "debug")
TABLES = {"release": "instructions", "portable": "instructions, portable"}


def compiler_version() -> str:
    """Of the compiler that CMake takes for all three unless it is told otherwise."""
    cache = (ROOT / "build" / "release" / "CMakeCache.txt").read_text(encoding="utf-8")
    compiler = next(line.split("=", 1)[1] for line in cache.splitlines() if line.startswith("CMAKE_CXX_COMPILER:"))
    return subprocess.run([compiler, "-dumpfullversion"], stdout=subprocess.PIPE, text=True, check=True).stdout.strip()


def run(script: str, *arguments: str) -> bool:
    return subprocess.run([sys.executable, "-B", HERE / script, *arguments], check=False).returncode == 0


def main(arguments: list[str]) -> None:
    if arguments not in ([], ["--write"]):
        sys.exit(__doc__)
    verb = "write" if arguments else "check"
    version = compiler_version()
    folders = {column: str(ROOT / "build" / column) for column in COLUMNS}
    if arguments:
        results = [run("stack.py", verb, str(NAMES), str(PAGE), version, *(f"{c}={f}" for c, f in folders.items()))]
    else:
        results = [run("stack.py", verb, column, folders[column], str(NAMES), str(PAGE), version) for column in COLUMNS]
    for column, table in TABLES.items():
        program = f"{folders[column]}/tests/bounds/qv8numeric_instructions"
        results.append(run("instructions.py", verb, table, program, str(PAGE)))
    sys.exit(0 if all(results) else 1)


main(sys.argv[1:])
