# SPDX-License-Identifier: MIT
"""Feeds the checks of this folder something that is wrong in one way, and expects them to say so.

usage: checks_can_fail.py C_COMPILER CXX_COMPILER ARCHIVE SOURCE_FOLDER
"""
from __future__ import annotations

import pathlib
import shutil
import subprocess
import sys
import tempfile
from typing import Iterator, Optional

HERE = pathlib.Path(__file__).resolve().parent
sys.path[:0] = [str(HERE.parent / "interface")]

from checking import finish  # noqa: E402

PROGRAM = '''```c
#include <stdio.h>

int main(void) {
    puts("1");
    return 0;
}
```

    1
'''

# finding, what is replaced, by what
PROGRAM_ROWS = (
    ("", "", ""),
    ("prints '2", '"1"', '"2"'),
    ("does not compile", '    puts("1");', "    int unused;"),
    ("ends with status 3", "return 0", "return 3"),
    ("its output is not shown", "\n    1\n", "\n"),
    ("no page shows a program", "```c", "```sh"),
)

# finding, file, what is replaced, by what; `man` writes the pages anew from the changed files
CURRENT, RENEWED = False, True
MAN_ROWS = (
    ("", "include/qv8numeric.h", "", "", CURRENT),
    ("not what docs/tools/man.py writes", "docs/man/QV8NumericAdd.3", "the exact result", "the result", CURRENT),
    ("not what docs/tools/man.py writes", "include/qv8numeric.h", "Never rounds.", "Does not round.", CURRENT),
    ("no page names it", "tests/interface/exported_names.txt", "QV8NumericSub", "QV8NumericSubtract", CURRENT),
    ("says less than the header", "docs/tools/man.py", 'for block in blocks:\n        if lines',
     'for block in blocks:\n        if getattr(block, "text", "").endswith("Never rounds."):\n            continue\n        if lines',
     RENEWED),
    ("lacks the prototype", "docs/tools/man.py", '" ".join([f".Fn {function.name}", *(', '" ".join([f".Fn {function.name}2", *(',
     RENEWED),
    ("names what the header does not", "docs/functions/QV8NumericAdd.md", "19.99", "NUMERIC_STRANGE", RENEWED),
    ("wider than", "docs/functions/QV8NumericAdd.md", '"19.99"', '"19.99' + 60 * "0" + '"', RENEWED),
    ("WARNING", "docs/tools/man.py", '".Sh DESCRIPTION"]', '".Sh DESCRIPTION", ".Pp"]', RENEWED),
)


# finding, file, what is replaced, by what
PICTURE_ROWS = (
    ("", "include/qv8numeric.h", "", ""),
    ("not what docs/tools/pictures.py draws", "docs/pictures/modes.svg", "2.5", "2.6"),
    ("words.h: drawn or there", "docs/tools/pictures.py", '("words", ', '('),
    ("NUMERIC_ROUND_FLOOR: drawn otherwise", "include/qv8numeric.h", "/*         2     -3      2", "/*         2     -2      2"),
)

# finding, file, what is replaced, by what
INTERNALS_ROWS = (
    ("", "docs/internals.md", "", ""),
    ("wide/wards.h is not there", "docs/internals.md", "wide/words.h", "wide/wards.h"),
    ("wide/rounding.h has no rounds_away", "src/wide/rounding.h", "rounds_away", "rounds_off"),
    ("names nothing", "docs/internals.md", "`", "'"),
)

SITE = """<html><body id="top"><a href="page.html#there">x</a><a href="https://example.org/">y</a>
<img src="picture.svg"></body></html>"""

# finding, what is replaced, by what
LINK_ROWS = (
    ("", "", ""),
    ("page.htm leads nowhere", 'page.html#there', "page.htm"),
    ("page.html#here names no element", "#there", "#here"),
    ("pictur.svg leads nowhere", "picture.svg", "pictur.svg"),
    ("loads https://example.org/a.svg", "picture.svg", "https://example.org/a.svg"),
    ("is no link of a page that is read from its files", "page.html#there", "//example.org/"),
)


def judged(name: str, expected: str, result: subprocess.CompletedProcess[str]) -> Optional[str]:
    if expected == "":
        return None if result.returncode == 0 else f"{name}: refuses what is right:\n{result.stdout}"
    if result.returncode == 0:
        return f"{name}: accepts what is wrong ({expected})"
    return None if expected in result.stdout else f'{name}: fails without saying "{expected}":\n{result.stdout}'


def run(*command: object) -> subprocess.CompletedProcess[str]:
    return subprocess.run([sys.executable, "-B", *map(str, command)], stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                          text=True)


def program_findings(arguments: list[str], folder: pathlib.Path) -> Iterator[Optional[str]]:
    page = folder / "page.md"
    for expected, old, new in PROGRAM_ROWS:
        page.write_text(PROGRAM.replace(old, new) if old else PROGRAM, encoding="utf-8")
        yield judged("programs", expected, run(HERE / "programs.py", *arguments, page))


def man_findings(source: pathlib.Path, folder: pathlib.Path) -> Iterator[Optional[str]]:
    if not shutil.which("mandoc"):
        print("the check of the manual pages left out: no mandoc")
        return
    for number, (expected, name, old, new, renewed) in enumerate(MAN_ROWS):
        tree = folder / str(number)
        for part in ("include", "docs", "tests/interface", "tests/docs"):
            shutil.copytree(source / part, tree / part)
        text = (tree / name).read_text(encoding="utf-8")
        if old not in text:
            yield f"{name} has no {old!r} any more"
            continue
        (tree / name).write_text(text.replace(old, new, 1), encoding="utf-8")
        if renewed:
            run(tree / "docs/tools/man.py", tree / "include/qv8numeric.h", tree / "docs/functions", tree / "docs/man")
        yield judged("man_pages", expected, run(tree / "tests/docs/man_pages.py", tree))


def tree_findings(source: pathlib.Path, folder: pathlib.Path, script: str,
                  rows: tuple[tuple[str, str, str, str], ...]) -> Iterator[Optional[str]]:
    """With every occurrence replaced."""
    for number, (expected, name, old, new) in enumerate(rows):
        tree = folder / f"{script}{number}"
        for part in ("include", "docs", "bench", "src", "tests/interface", "tests/docs"):
            shutil.copytree(source / part, tree / part)
        text = (tree / name).read_text(encoding="utf-8")
        if old not in text:
            yield f"{name} has no {old!r} any more"
            continue
        (tree / name).write_text(text.replace(old, new) if old else text, encoding="utf-8")
        yield judged(script, expected, run(tree / "tests/docs" / f"{script}.py", tree))


def link_findings(source: pathlib.Path, folder: pathlib.Path) -> Iterator[Optional[str]]:
    site = folder / "site"
    site.mkdir()
    (site / "page.html").write_text('<html><body><h1 id="there">There</h1></body></html>', encoding="utf-8")
    (site / "picture.svg").write_text("<svg/>", encoding="utf-8")
    for expected, old, new in LINK_ROWS:
        (site / "index.html").write_text(SITE.replace(old, new) if old else SITE, encoding="utf-8")
        yield judged("links", expected, run(source / "docs/tools/links.py", site))


def main(*arguments: str) -> None:
    with tempfile.TemporaryDirectory() as scratch:
        folder = pathlib.Path(scratch)
        source = pathlib.Path(arguments[-1])
        findings = [*program_findings(list(arguments), folder), *man_findings(source, folder),
                    *tree_findings(source, folder, "drawn", PICTURE_ROWS),
                    *tree_findings(source, folder, "internals", INTERNALS_ROWS), *link_findings(source, folder)]
    finish([finding for finding in findings if finding])


main(*sys.argv[1:])
