# SPDX-License-Identifier: MIT
"""The walk through the code names files that are there, and names in a file that are in it.

usage: internals.py SOURCE_FOLDER
"""
from __future__ import annotations

import pathlib
import re
import sys
from typing import Iterator

HERE = pathlib.Path(__file__).resolve().parent
sys.path[:0] = [str(HERE.parent / "interface")]

from checking import finish  # noqa: E402

FILE = re.compile(r"`((?:src/)?(?:numeric|numconv|wide)/\w+\.(?:h|cpp))`")
NAME_IN_FILE = re.compile(r"`(\w+)`\s+in\s+`((?:numeric|numconv|wide)/\w+\.(?:h|cpp))`")


def findings(source: pathlib.Path) -> Iterator[str]:
    page = source / "docs" / "internals.md"
    text = page.read_text(encoding="utf-8")
    if not NAME_IN_FILE.search(text):
        yield f"{page}: names nothing"
    for file in sorted(set(FILE.findall(text))):
        if not (source / "src" / file.removeprefix("src/")).is_file():
            yield f"docs/internals.md: {file} is not there"
    for name, file in NAME_IN_FILE.findall(text):
        path = source / "src" / file
        if path.is_file() and not re.search(rf"\b{name}\b", path.read_text(encoding="utf-8")):
            yield f"docs/internals.md: {file} has no {name}"


finish(list(findings(pathlib.Path(sys.argv[1]))))
