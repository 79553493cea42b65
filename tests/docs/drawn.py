# SPDX-License-Identifier: MIT
"""The pictures of the documentation are those that docs/tools/pictures.py draws, the rooms in them are those of src/wide,
and the modes take 2.5, -2.5, 2.51 and -2.51 where the public header says.

usage: drawn.py SOURCE_FOLDER
"""
from __future__ import annotations

import pathlib
import sys
from typing import Iterator

HERE = pathlib.Path(__file__).resolve().parent
sys.path[:0] = [str(HERE.parent / "interface"), str(HERE.parents[1] / "docs" / "tools")]

import manual  # noqa: E402
import pictures  # noqa: E402
from checking import finish  # noqa: E402


def drawing_findings(folder: pathlib.Path) -> Iterator[str]:
    there = {path.name for path in folder.glob("*.svg")}
    for name in sorted(there ^ set(pictures.PICTURES)):
        yield f"docs/pictures/{name}: drawn or there, but not both"
    for name in sorted(there & set(pictures.PICTURES)):
        if (folder / name).read_text(encoding="utf-8") != pictures.PICTURES[name]():
            yield f"docs/pictures/{name}: not what docs/tools/pictures.py draws; run ./dev man"


def room_findings(wide: pathlib.Path) -> Iterator[str]:
    drawn = {name for _, names in pictures.ROOMS for name in names}
    for name in sorted(drawn ^ {path.stem for path in wide.glob("*.h")}):
        yield f"src/wide/{name}.h: drawn or there, but not both"


def mode_findings(header: manual.Header) -> Iterator[str]:
    for mode in header.modes:
        positive, negative = pictures.AROUND[mode.name.removeprefix("NUMERIC_ROUND_")]
        tie, negative_tie, above, negative_above = (abs(number) == 3 for number in mode.rounded)
        if (tie, above, negative_tie, negative_above) != (*positive[1:], *negative[1:]):
            yield f"{mode.name}: drawn otherwise than the header says"


def main(source_folder: str) -> None:
    source = pathlib.Path(source_folder)
    header = manual.read((source / "include" / "qv8numeric.h").read_text(encoding="utf-8"))
    finish([*drawing_findings(source / "docs" / "pictures"), *room_findings(source / "src" / "wide"),
            *mode_findings(header)])


main(*sys.argv[1:])
