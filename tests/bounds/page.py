# SPDX-License-Identifier: MIT
"""The tables of docs/bounds.md: what stands between a pair of markers is written by a script and read by a test."""
from __future__ import annotations

import pathlib
import re

Table = dict[str, list[str]]


def _part(name: str) -> re.Pattern[str]:
    return re.compile(rf"(<!-- table: {name} -->\n\n)(.*?)(\n\n<!-- end -->)", re.DOTALL)


def read(page: pathlib.Path, name: str) -> tuple[list[str], Table]:
    """The heads of the columns behind the first, and the cells of each row by its first one."""
    found = _part(name).findall(page.read_text(encoding="utf-8"))
    if len(found) != 1:
        raise SystemExit(f"{page}: {len(found)} tables named {name}")
    lines = [[cell.strip() for cell in line.strip("|").split("|")] for line in found[0][1].splitlines()]
    if len(lines) < 3:
        raise SystemExit(f"{page}: the table {name} has no rows")
    return lines[0][1:], {line[0].strip("`"): line[1:] for line in lines[2:]}


def write(page: pathlib.Path, name: str, heads: list[str], texts: int, table: Table) -> None:
    """The first `texts` columns are texts, the others numbers."""
    rule = ["---" if i < texts else "---:" for i in range(len(heads))]
    rows = [[f"`{title}`", *cells] for title, cells in table.items()]
    text = "\n".join("| " + " | ".join(line) + " |" for line in [heads, rule, *rows])
    old = page.read_text(encoding="utf-8")
    new, count = _part(name).subn(lambda match: match.group(1) + text + match.group(3), old)
    if count != 1:
        raise SystemExit(f"{page}: {count} tables named {name}")
    page.write_text(new, encoding="utf-8")
