# SPDX-License-Identifier: MIT
"""./dev abi: holds today's library to the binary interface of version 1.0, as it is stored beside this script.

    1.0/interface.abi   the functions and the types of the header, described by libabigail from debug information
    1.0/qv8numeric.h    the header
    1.0/program.cpp     a program that calls everything in it

A function may be added. One that is removed or changed is an error, and so is a type of the header with another layout.

usage: check.py [--describe] LIBRARY CXX_COMPILER    --describe prints a description of the library instead
"""
from __future__ import annotations

import pathlib
import re
import subprocess
import sys
import tempfile

HERE = pathlib.Path(__file__).resolve().parent
STORED = HERE / "1.0"
DESCRIPTION = STORED / "interface.abi"
TODAY = HERE.parent / "include"
LICENCE = "<!-- SPDX-License-Identifier: MIT -->"  # which libabigail would not read over

# Changes that turn the stored description into one that today's library does not keep to: a pattern, what takes its
# place, and what abidiff says.
BROKEN = {
    "a function that is there no more": (r"QV8NumericSub\b", "QV8NumericFormer", "QV8NumericFormer"),
    "a parameter of another type": (r"(<function-decl name='QV8NumericMul'.*?<parameter type-id=')[0-9a-f]+(' name='m')",
                                    None, "QV8NumericMul"),
    "a longer descriptor": (r"(<class-decl name='NumericInfo' size-in-bits=')64", r"\g<1>96", "type size changed"),
    "halves in another order": (r"(layout-offset-in-bits=')0('>\s*<var-decl name='low')", r"\g<1>128\g<2>", "offset changed"),
}


def describe(library: str) -> str:
    """What is stored of a version."""
    command = ["abidw", "--exported-interfaces-only", "--drop-private-types", "--headers-dir", str(TODAY),
               "--type-id-style", "hash", "--no-show-locs", "--no-comp-dir-path", "--no-corpus-path", "--no-elf-needed",
               library]
    text = subprocess.run(command, stdout=subprocess.PIPE, text=True, check=True).stdout
    return f"{LICENCE}\n{text}"


def differences(former: str, present: str) -> str:
    """What abidiff finds between two descriptions, additions left out; empty when there is nothing."""
    with tempfile.TemporaryDirectory() as folder:
        files = []
        for name, text in {"former": former, "present": present}.items():
            files.append(pathlib.Path(folder, f"{name}.abi"))
            files[-1].write_text(text.replace(f"{LICENCE}\n", ""), encoding="utf-8")
        result = subprocess.run(["abidiff", "--no-added-syms", *map(str, files)], stdout=subprocess.PIPE,
                                stderr=subprocess.STDOUT, text=True, check=False)
    return "" if result.returncode == 0 else result.stdout or f"abidiff: status {result.returncode}"


def broken(text: str, pattern: str, replacement: str | None) -> str:
    """The description with a change; without a replacement, the parameter becomes one of 64 bits."""
    if replacement is None:
        int64 = re.search(r"<typedef-decl name='int64_t'[^>]* id='([0-9a-f]+)'", text)
        replacement = rf"\g<1>{int64.group(1)}\g<2>" if int64 else ""
    changed, count = re.subn(pattern, replacement, text, flags=re.DOTALL)
    if count == 0:
        raise SystemExit(f"{DESCRIPTION}: nothing like {pattern}")
    return changed


def check_that_it_can_fail(text: str, present: str) -> list[str]:
    findings = []
    for what, (pattern, replacement, said) in BROKEN.items():
        found = differences(broken(text, pattern, replacement), present)
        if said not in found:
            findings.append(f'{what}: accepted, or not called "{said}"\n{found}')
    fewer = re.sub(r"    <elf-symbol name='QV8NumericSub'[^\n]*\n", "", text)
    fewer = re.sub(r"    <function-decl name='QV8NumericSub'.*?</function-decl>\n", "", fewer, flags=re.DOTALL)
    if fewer == text or differences(fewer, present):
        findings.append("a function more than before: refused")
    return findings


def run_the_program(library: str, compiler: str) -> list[str]:
    """Built with the stored header alone, and run with today's library."""
    with tempfile.TemporaryDirectory() as folder:
        program = pathlib.Path(folder, "program")
        subprocess.run([compiler, "-std=c++11", "-O1", "-Wall", "-Wextra", "-Werror", f"-I{STORED}", str(STORED / "program.cpp"),
                        library, f"-Wl,-rpath,{pathlib.Path(library).resolve().parent}", "-o", str(program)], check=True)
        result = subprocess.run([program], stdout=subprocess.PIPE, text=True, check=False)
    return [] if result.returncode == 0 else [f"the program of version 1.0: status {result.returncode}\n{result.stdout}"]


def main(library: str, compiler: str) -> None:
    findings = []
    text = DESCRIPTION.read_text(encoding="utf-8")
    present = describe(library)
    found = differences(text, present)
    if found:
        findings.append(f"other than in version 1.0:\n{found}")
    findings += check_that_it_can_fail(text, present) + run_the_program(library, compiler)
    for finding in findings:
        print(finding)
    if findings:
        sys.exit(1)
    print(f"as in version 1.0; {len(BROKEN)} planted changes were refused, an added function was accepted")


if sys.argv[1] == "--describe":
    print(describe(sys.argv[2]), end="")
else:
    main(*sys.argv[1:])
