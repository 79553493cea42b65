# SPDX-License-Identifier: MIT
"""The manual pages are those that the public header and docs/functions give, each exported name has one, each says all
that the header says of it, they name nothing that the header does not, and mandoc finds nothing to warn of.

usage: man_pages.py SOURCE_FOLDER
"""
from __future__ import annotations

import collections
import pathlib
import re
import shutil
import subprocess
import sys
from typing import Iterator

HERE = pathlib.Path(__file__).resolve().parent
sys.path[:0] = [str(HERE.parent / "interface"), str(HERE.parents[1] / "docs" / "tools")]

import manual  # noqa: E402
import man  # noqa: E402
from checking import finish, listed_names  # noqa: E402

SKIPPED = 77
WIDEST = 76  # columns of an example: with its indentation it fits a terminal of 80
ALIAS = re.compile(r'\.\\" SPDX-License-Identifier: MIT\n\.so man3/(\w+)\.3\n')
MANGLED = {"_Z4dumpPK9Numeric32": "dump", "_Z4dumpPK15ExtendedNumeric": "dump",
           "_Z18get_truncated_partRK7NumericRj": "get_truncated_part"}
OURS = re.compile(r"\b(?:QV8Numeric\w+|QV8NUMERIC_\w+|NUMERIC_\w+)")


def read_pages(folder: pathlib.Path) -> dict[str, str]:
    return {path.name: path.read_text(encoding="utf-8") for path in sorted(folder.glob("*.[37]"))}


def current_findings(pages: dict[str, str], expected: dict[str, str]) -> Iterator[str]:
    for name in sorted({*pages, *expected}):
        if pages.get(name) != expected.get(name):
            yield f"docs/man/{name}: not what docs/tools/man.py writes; run ./dev man"


def name_findings(pages: dict[str, str], exported: set[str]) -> Iterator[str]:
    """Each exported name has a page, or one that leads to the page which lists it under NAME."""
    for name in sorted({MANGLED.get(name, name) for name in exported}):
        page = pages.get(f"{name}.3", "")
        alias = ALIAS.fullmatch(page)
        if alias:
            page = pages.get(f"{alias.group(1)}.3", "")
        if not re.search(rf"^\.Nm {name}( ,)?$", page, re.MULTILINE):
            yield f"{name}: no page names it"


def shown(page: pathlib.Path) -> str:
    """The page as a reader sees it, in one line."""
    text = subprocess.run(["mandoc", "-T", "ascii", "-O", "width=1000", str(page)], stdout=subprocess.PIPE, text=True,
                          check=True).stdout
    return re.sub(r"\s+", " ", re.sub(".\b", "", text))


def sentences(blocks: list[manual.Block]) -> Iterator[str]:
    for block in blocks:
        if isinstance(block, manual.Text):
            yield block.text
        elif isinstance(block, manual.Rows):
            yield from (text for row in block.rows for text in row)
        else:
            yield from block.items if isinstance(block, manual.Items) else block.lines


def words_of(text: str) -> collections.Counter[str]:
    """Without the section numbers of cross references, and without punctuation."""
    return collections.Counter(re.findall(r"[\w*^]+", re.sub(r"\b(\w+)\([37]\)", r"\1", text)))


def content_findings(header: manual.Header, source_text: str, folder: pathlib.Path) -> Iterator[str]:
    known = set(OURS.findall(source_text))
    for entry in header.entries:
        page = folder / f"{entry.names[0]}.3"
        text = shown(page)
        missing = words_of(" ".join(sentences(entry.blocks))) - words_of(text)
        if missing:
            yield f"{page.name}: says less than the header; missing: {' '.join(sorted(missing))}"
        flat = text.replace(" ", "")
        for function in entry.functions:
            if function.prototype.replace(" ", "") not in flat:
                yield f"{page.name}: lacks the prototype {function.prototype}"
    overview = shown(folder / "qv8numeric.7")
    said = [*sentences(header.introduction[1:]), *(s for kind in header.types for s in sentences(kind.blocks)),
            *(text for kind in header.types for field in kind.fields for text in field),
            *(s for _, blocks in header.macros for s in sentences(blocks)),
            *(f"{s.name} {s.value} {s.meaning}" for s in header.statuses),
            *(f"{m.name} {' '.join(map(str, m.rounded))} {m.meaning}" for m in header.modes)]
    missing = words_of(" ".join(said)) - words_of(overview)
    if missing:
        yield f"qv8numeric.7: says less than the header; missing: {' '.join(sorted(missing))}"
    for path in sorted(folder.glob("*.[37]")):
        strange = set(OURS.findall(path.read_text(encoding="utf-8"))) - known
        if strange:
            yield f"{path.name}: names what the header does not: {' '.join(sorted(strange))}"


def width_findings(pages: dict[str, str]) -> Iterator[str]:
    for name, text in pages.items():
        for example in re.findall(r"^\.Bd -literal\n(.*?)^\.Ed$", text, re.MULTILINE | re.DOTALL):
            for line in example.split("\n"):
                if len(re.sub(r"\\(?:\(..|&|.)", "x", line)) > WIDEST:
                    yield f"{name}: wider than {WIDEST} columns: {line}"


def lint_findings(folder: pathlib.Path, pages: dict[str, str]) -> Iterator[str]:
    names = [str(folder / name) for name, text in pages.items() if not ALIAS.fullmatch(text)]
    result = subprocess.run(["mandoc", "-T", "lint", "-W", "warning", *names], stdout=subprocess.PIPE,
                            stderr=subprocess.STDOUT, text=True)
    yield from result.stdout.splitlines()


def main(source_folder: str) -> None:
    source = pathlib.Path(source_folder)
    folder, path = source / "docs" / "man", source / "include" / "qv8numeric.h"
    pages, text = read_pages(folder), path.read_text(encoding="utf-8")
    exported = listed_names(source / "tests" / "interface" / "exported_names.txt")
    findings = [*current_findings(pages, man.pages(path, source / "docs" / "functions")),
                *name_findings(pages, exported), *width_findings(pages)]
    if findings:
        finish(findings)
    if not shutil.which("mandoc"):
        print("skipped what needs mandoc (on Debian: mandoc)")
        sys.exit(SKIPPED)
    finish([*lint_findings(folder, pages), *content_findings(manual.read(text), text, folder)])


main(*sys.argv[1:])
