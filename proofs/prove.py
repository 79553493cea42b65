#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Generates the proofs from the compiled tables, holds what they say of a function against the compiled function, and
has z3 check them.

    prove.py PROGRAM                 every proof
    prove.py PROGRAM NAME...         those that begin with one of these names
    prove.py PROGRAM --broken        every proof with its fault planted, which has to make it fail
    prove.py PROGRAM --list          names, functions and claims

PROGRAM is the built qv8numeric_compiled. The scripts are left in a folder `proofs` beside it, for any SMT-LIB solver.
"""
from __future__ import annotations

import argparse
import concurrent.futures
import dataclasses
import importlib
import os
import pathlib
import re
import subprocess
import sys
import textwrap
import time

from compiled import Compiled, Tables
from sheets import PROOFS, Book, Failed, Proof, Question, Sheet
from terms import Values

HERE = pathlib.Path(__file__).parent
SOURCES = HERE.parent


def load_claims() -> None:
    for path in sorted((HERE / "claims").glob("*.py")):
        importlib.import_module(f"claims.{path.stem}")


# ---- The functions a proof is about ----


def without_comments(text: str) -> str:
    return re.sub(r"//[^\n]*|/\*.*?\*/", "", text, flags=re.S)


def missing_functions(proof: Proof) -> list[str]:
    """Those that are not defined in the file that the proof names: `name(...) ... {` or, for a table, `name = `."""
    path = SOURCES / proof.file
    if not path.is_file():
        return [proof.file]
    text = without_comments(path.read_text())
    return [
        name
        for name in proof.functions
        if not re.search(rf"\b{re.escape(name)}\([^;{{}}]*\)\s*(noexcept\s*)?\{{|\b{re.escape(name)}\s*=[^=]", text)
    ]


# ---- The solver ----


def header(proof: Proof, broken: bool) -> list[str]:
    about = f"{proof.name}: {proof.file}, {', '.join(proof.functions)}"
    lines = [about, *textwrap.wrap(proof.claim, 110)]
    if broken:
        lines += ["With a planted fault, which the last answer has to show:", *textwrap.wrap(proof.fault, 110)]
    return ["; SPDX-License-Identifier: MIT", *(f"; {line}" for line in lines), ""]


def solve(path: pathlib.Path, lines: list[str], seconds: int) -> list[str]:
    """The answers of z3, without the echoes."""
    path.write_text("\n".join(lines) + "\n")
    run = subprocess.run(
        ["z3", "-smt2", f"-t:{seconds * 1000}", str(path)], stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True
    )
    answers = [line for line in run.stdout.splitlines() if not line.startswith("sheet ")]
    strange = [line for line in answers if line not in ("sat", "unsat", "unknown")]
    if strange:
        raise Failed(f"z3 says: {strange[0]}")
    return answers


def first_difference(questions: list[Question], answers: list[str]) -> tuple[Question, str] | None:
    for question, answer in zip(questions, answers):
        if answer != question.expected:
            return question, answer
    return None if len(answers) == len(questions) else (questions[len(answers)], "nothing")


# ---- One proof ----


@dataclasses.dataclass(frozen=True)
class Result:
    name: str
    passed: bool
    text: str
    sheets: int
    claims: int
    seconds: float


def prove(proof: Proof, compiled: Compiled, tables: Tables, folder: pathlib.Path, seconds: int) -> str:
    """What is wrong; nothing when the proof holds."""
    book = Book(proof.name, tables)
    proof.build(book, False)
    if not book.sheets or not all(sheet.claims for sheet in book.sheets):
        return "a sheet without a claim"
    calls = book.check_draws(compiled)
    if calls == 0:
        return "nothing of it was held against the compiled function"
    lines, questions = header(proof, False), []
    for sheet in book.sheets:
        more, asked = sheet.script()
        lines += [*more, "(reset)", ""]
        questions += [dataclasses.replace(q, name=f"{sheet.name}, {q.name}") for q in asked]
    wrong = first_difference(questions, solve(folder / f"{proof.name}.smt2", lines, seconds))
    return f"{wrong[0].name}: z3 answers {wrong[1]} for {wrong[0].expected}" if wrong else ""


def shown_wrong(proof: Proof, sheet: Sheet, folder: pathlib.Path, seconds: int) -> bool:
    """z3 finds values for which the sheet is wrong: by itself or, failing that, from values drawn here, which it then
    confirms."""
    path = folder / f"{proof.name}.broken.smt2"

    def wrong(values: Values | None) -> bool:
        lines, questions = sheet.script(values)
        first = first_difference(questions, solve(path, [*header(proof, True), *lines], seconds))
        # A fault must not make the assumptions impossible, and what comes behind the first wrong claim counts no more.
        return first is not None and first[0].expected == "unsat" and first[1] == "sat"

    if wrong(None):
        return True
    values = sheet.counterexample()
    return values is not None and wrong(values)


def break_proof(proof: Proof, tables: Tables, folder: pathlib.Path, seconds: int) -> tuple[int, int]:
    """In how many sheets the fault shows, and of how many that were tried: all, or as far as it takes to see it."""
    book = Book(proof.name, tables)
    proof.build(book, True)
    for tried, sheet in enumerate(book.sheets, start=1):
        if shown_wrong(proof, sheet, folder, seconds):
            return tried, len(book.sheets)
    return 0, len(book.sheets)


@dataclasses.dataclass(frozen=True)
class Task:
    program: pathlib.Path
    name: str
    broken: bool
    seconds: int


def run(task: Task) -> Result:
    load_claims()
    (proof,) = [p for p in PROOFS if p.name == task.name]
    compiled = Compiled(task.program)
    tables = compiled.tables()
    folder = task.program.parent / "proofs"
    folder.mkdir(exist_ok=True)
    begun = time.monotonic()
    sheets = claims = 0
    try:
        missing = missing_functions(proof)
        book = Book(proof.name, tables)
        proof.build(book, False)
        sheets, claims = len(book.sheets), sum(len(sheet.claims) for sheet in book.sheets)
        if missing:
            passed, text = False, f"not defined in {proof.file}: {', '.join(missing)}"
        elif task.broken:
            at, _ = break_proof(proof, tables, folder, task.seconds)
            passed, text = at > 0, "" if at > 0 else "the planted fault does not show"
        else:
            text = prove(proof, compiled, tables, folder, task.seconds)
            passed = not text
    except (Failed, AssertionError, ArithmeticError, LookupError, subprocess.CalledProcessError) as error:
        passed, text = False, f"{type(error).__name__}: {error}"
    return Result(proof.name, passed, text, sheets, claims, time.monotonic() - begun)


# ---- All of them ----


def print_list() -> None:
    for proof in PROOFS:
        print(f"{proof.name}\n    {proof.file}: {', '.join(proof.functions)}")
        print(textwrap.fill(proof.claim, 116, initial_indent="    ", subsequent_indent="    "))
        print(textwrap.fill(f"Fault: {proof.fault}", 116, initial_indent="    ", subsequent_indent="    "))


def selected(names: list[str]) -> list[Proof]:
    for name in names:
        if not any(p.name.startswith(name) for p in PROOFS):
            sys.exit(f"prove.py: no proof begins with '{name}'; --list names them")
    return [p for p in PROOFS if not names or any(p.name.startswith(name) for name in names)]


def main() -> int:
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("program", type=pathlib.Path)
    parser.add_argument("name", nargs="*")
    parser.add_argument("--broken", action="store_true", help="plant each proof's fault")
    parser.add_argument("--list", action="store_true")
    parser.add_argument("--seconds", type=int, default=60, help="for each question to the solver (%(default)s)")
    parser.add_argument("--jobs", type=int, default=os.cpu_count() or 1)
    options = parser.parse_intermixed_args()
    load_claims()
    if options.list:
        print_list()
        return 0

    begun = time.monotonic()
    proofs = {p.name: p for p in selected(options.name)}
    tasks = [Task(options.program.resolve(), name, options.broken, options.seconds) for name in proofs]
    failures = claims = 0
    print(f"{'seconds':>7} {'sheets':>6} {'claims':>6}  {'proof':<28} {'fault' if options.broken else 'function'}")
    with concurrent.futures.ProcessPoolExecutor(options.jobs) as pool:
        for result in pool.map(run, tasks):
            proof = proofs[result.name]
            about = proof.fault if options.broken else f"{proof.file}: {', '.join(proof.functions)}"
            print(f"{result.seconds:7.1f} {result.sheets:6} {result.claims:6}  {result.name:<28} {about}", flush=True)
            if not result.passed:
                print(f"        FAILED: {result.text}", flush=True)
            failures += not result.passed
            claims += result.claims
    seconds = time.monotonic() - begun
    what = "faults are seen" if options.broken else f"proofs hold, of {claims} claims"
    print(f"{len(tasks) - failures} of {len(tasks)} {what}, {seconds:.0f} seconds")
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main())
