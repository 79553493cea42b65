# SPDX-License-Identifier: MIT
"""Reads the written part of a manual page from docs/functions: what it is about in one line, related pages, examples."""
from __future__ import annotations

import dataclasses
import pathlib
import re

from blocks import Program, programs


@dataclasses.dataclass
class Note:
    title: str
    see_also: list[str]
    paragraphs: list[str]
    example: str  # what the first program shows; ends in a colon
    items: list[str]
    examples: list[Program]


def read(path: pathlib.Path) -> Note:
    text = path.read_text(encoding="utf-8")
    title = re.search(r"^# (.+)$", text, re.MULTILINE)
    see_also = re.search(r"^See also: (.+)$", text, re.MULTILINE)
    assert title and see_also, path
    prose = text[see_also.end():].split("```", maxsplit=1)[0]
    parts = [" ".join(part.split()) for part in re.split(r"\n\n|\n(?=- )", prose) if part.strip()]
    items = [part[2:] for part in parts if part.startswith("- ")]
    paragraphs = [part for part in parts if not part.startswith("- ")]
    example = paragraphs.pop() if paragraphs and paragraphs[-1].endswith(":") else ""
    return Note(title.group(1), see_also.group(1).split(", "), paragraphs, example, items, programs(text))
