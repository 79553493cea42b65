# SPDX-License-Identifier: MIT
"""Feeds stack.py libraries that use their stack in a forbidden way, and expects it to say so.

usage: stack_can_fail.py CXX_COMPILER
"""
from __future__ import annotations

import pathlib
import subprocess
import sys
import tempfile

import stack

# What f may not do, and how it is told. `opaque` keeps the compiler from seeing through.
SOURCES = {
    "a red zone, more than 2048": "extern \"C\" int f(int x) { char room[2048]; memset(room, x, sizeof room); opaque(room); return room[x]; }",
    "its frame is dynamic": "extern \"C\" int f(int x) { char* room = static_cast<char*>(__builtin_alloca(x)); "
                            "memset(room, 1, x); opaque(room); return room[0]; }",
    "calls itself": "extern \"C\" int f(int x) { return x == 0 ? 0 : 1 + f(x - 1) * f(x - 2); }",
    "__indirect_call": "int (*volatile hook)(int); extern \"C\" int f(int x) { return hook(x) + 1; }",
    "called by f, but nothing": "extern \"C\" int elsewhere(int); extern \"C\" int f(int x) { return elsewhere(x) + 1; }",
}
RIGHT = "extern \"C\" int f(int x) { char room[64]; memset(room, x, sizeof room); opaque(room); return room[x & 63]; }"
PROLOGUE = "#include <string.h>\nstatic inline void opaque(void* p) { __asm__ volatile(\"\" : : \"r\"(p) : \"memory\"); }\n"


def findings(compiler: str, source: str) -> list[str]:
    """What stack.py finds in a library of this one source."""
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        (folder / "src").mkdir()
        (folder / "names").write_text("f\n", encoding="ascii")
        (folder / "src" / "f.cpp").write_text(PROLOGUE + source + "\n", encoding="ascii")
        subprocess.run([compiler, "-O1", "-fcallgraph-info=su", "-c", "f.cpp"], cwd=folder / "src", check=True)
        return stack.measure("release", folder, folder / "names")[1]


def main(compiler: str) -> None:
    wrong = [f"refused, though it is right: {finding}" for finding in findings(compiler, RIGHT)]
    for expected, source in SOURCES.items():
        found = findings(compiler, source)
        if not any(expected in finding for finding in found):
            wrong.append(f'"{expected}" is not among {found}')
    stack.finish(wrong)


main(*sys.argv[1:])
