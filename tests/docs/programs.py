# SPDX-License-Identifier: MIT
"""Every C and C++ program that the README and the documentation show compiles as it stands, without a warning, and
prints what stands below it. Code that is no whole program is compiled.

usage: programs.py C_COMPILER CXX_COMPILER ARCHIVE SOURCE_FOLDER [PAGE...]
"""
from __future__ import annotations

import concurrent.futures
import os
import pathlib
import subprocess
import sys
import tempfile
from typing import Optional

HERE = pathlib.Path(__file__).resolve().parent
sys.path[:0] = [str(HERE.parent / "interface"), str(HERE.parents[1] / "docs" / "tools")]

from blocks import Program, programs  # noqa: E402
from checking import finish  # noqa: E402

STRICT = ("-Wall", "-Wextra", "-Wpedantic", "-Werror")
STANDARD = {"c": "-std=c99", "cpp": "-std=c++17"}
SECONDS = 20
WIDEST = 88  # columns that the site shows without scrolling


def pages_of(source: pathlib.Path) -> list[pathlib.Path]:
    return [source / "README.md", *sorted((source / "docs").rglob("*.md"))]


def finding(program: Program, compiler: str, archive: str, source: pathlib.Path, output: str) -> Optional[str]:
    """What is wrong with a program, if anything is."""
    command = [compiler, STANDARD[program.language], *STRICT, f"-I{source / 'include'}", f"-I{source / 'docs' / 'programs'}",
               "-x", "c" if program.language == "c" else "c++", "-"]
    command += ["-fsyntax-only"] if program.output is None else ["-x", "none", archive, "-o", output]
    compiled = subprocess.run(command, input=program.code, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
    if compiled.returncode != 0:
        return f"does not compile: {' '.join(command)}\n{compiled.stdout}"
    if program.output is None:
        return "is a whole program, but its output is not shown" if " main(" in program.code else None
    ran = subprocess.run([output], stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, timeout=SECONDS)
    if ran.returncode != 0:
        return f"ends with status {ran.returncode}"
    return None if ran.stdout == program.output else f"prints {ran.stdout!r} instead of {program.output!r}"


def main(c_compiler: str, cxx_compiler: str, archive: str, source_folder: str, *chosen: str) -> None:
    source = pathlib.Path(source_folder)
    pages = [pathlib.Path(page) for page in chosen] or pages_of(source)
    found = [(page, program) for page in pages for program in programs(page.read_text(encoding="utf-8"))]
    compilers = {"c": c_compiler, "cpp": cxx_compiler}
    with tempfile.TemporaryDirectory() as folder, concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        findings = pool.map(lambda item: finding(item[1][1], compilers[item[1][1].language], archive, source,
                                                 f"{folder}/{item[0]}"), enumerate(found))
        wrong = [f"{page}:{program.line}: {what}" for (page, program), what in zip(found, findings) if what]
    wrong += [f"{page}:{program.line + number}: wider than {WIDEST} columns" for page, program in found
              if source / "docs" in page.parents for number, line in enumerate(program.code.split("\n"))
              if len(line) > WIDEST]
    if not found:
        wrong.append("no page shows a program")
    print(f"{len(found)} programs on {len(pages)} pages")
    finish(wrong)


main(*sys.argv[1:])
