# SPDX-License-Identifier: MIT
"""Finds the programs that a Markdown page shows, each with the output that stands below it."""
from __future__ import annotations

import dataclasses
import re

FENCE = re.compile(r"^```(?P<language>c|cpp)\n(?P<code>.*?)^```\n(?:\n(?P<shown>(?:    [^\n]*\n)+)|\n```text\n(?P<fenced>.*?)^```\n)?",
                   re.MULTILINE | re.DOTALL)


@dataclasses.dataclass
class Program:
    line: int  # of the page, where the code begins
    language: str  # c or cpp
    code: str
    output: str | None  # None: a part of a program, which is compiled and not run


def programs(text: str) -> list[Program]:
    """Output is a block indented by four or fenced as text, next below the code."""
    found = []
    for match in FENCE.finditer(text):
        shown, fenced = match.group("shown"), match.group("fenced")
        output = re.sub("^    ", "", shown, flags=re.MULTILINE) if shown else fenced
        found.append(Program(text.count("\n", 0, match.start("code")) + 1, match.group("language"), match.group("code"),
                             output))
    return found
