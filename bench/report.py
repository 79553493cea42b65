# SPDX-License-Identifier: MIT
"""The tables: side by side for a terminal, and in Markdown for the documentation."""
from __future__ import annotations

from typing import Callable

from results import BY_HAND, OURS, PLAIN, PORTABLE, Row, Run

SHORT = {
    OURS: "ours",
    PORTABLE: "portable",
    BY_HAND: "by hand",
    PLAIN: "plain",
    "Intel decimal": "Intel",
    "GCC _Decimal128": "GCC",
    "Boost.Multiprecision": "Boost",
    "PostgreSQL pgtypes": "PgSQL",
    "<charconv>": "charconv",
}

LEGEND = """\
Nanoseconds for each call, medians. ~ does a part of the job only and does not count. Ratio: the fastest peer that does
the whole job over ours; of plain: the plain peer over ours; above 1 we are faster. Plain is what a host's programmer
would write in the language, by hand a kernel tuned beyond that, with assembly. Reach: what the ratio
of the throughput is to show; * it does not yet, + nor does that of plain."""


def _time(row: Row, name: str, measure: str) -> str:
    times = row.find(name)
    if times is None:
        return ""
    return ("" if times.whole_job else "~") + f"{getattr(times, measure):.1f}"


def _number(value: float | None) -> str:
    return f"{value:.2f}" if value else ""


def _marks(row: Row) -> str:
    """What is below reach: * against the fastest peer, + against plain code."""
    return "".join(mark for mark, ratio in (("*", row.ratio("throughput")), ("+", row.of_plain("throughput")))
                   if row.is_below_reach(ratio))


def _cells(run: Run, rows: list[Row], measure: str) -> tuple[list[str], list[list[str]]]:
    """The heads of the columns, and the cells of each row."""
    names = run.contenders(rows)
    heads = [measure, "operands", *(SHORT.get(name, name) for name in names), "ratio", "of plain", "reach", ""]
    lines = []
    for row in rows:
        times = [_time(row, name, measure) for name in names]
        reach = _number(row.reach) if measure == "throughput" else ""
        marks = _marks(row) if measure == "throughput" else ""
        ratios = [_number(row.ratio(measure)), _number(row.of_plain(measure))]
        lines.append([row.name, row.operands, *times, *ratios, reach, marks])
    return heads, lines


def _drop_empty_columns(heads: list[str], lines: list[list[str]]) -> tuple[list[str], list[list[str]]]:
    kept = [i for i in range(len(heads)) if any(line[i] for line in lines)]
    return [heads[i] for i in kept], [[line[i] for i in kept] for line in lines]


def terminal(run: Run, rows: list[Row], measure: str) -> str:
    """A table with the texts to the left and the numbers to the right."""
    heads, lines = _drop_empty_columns(*_cells(run, rows, measure))
    widths = [max(len(line[i]) for line in [heads, *lines]) for i in range(len(heads))]
    texts = 2 if "operands" in heads else 1

    def laid_out(line: list[str]) -> str:
        cells = [cell.ljust(width) if i < texts else cell.rjust(width)
                 for i, (cell, width) in enumerate(zip(line, widths))]
        return "  ".join(cells).rstrip()

    return "\n".join([laid_out(heads), *map(laid_out, lines)])


def markdown(run: Run, rows: list[Row], measure: str) -> str:
    """The same for a page."""
    heads, lines = _drop_empty_columns(*_cells(run, rows, measure))
    texts = 2 if "operands" in heads else 1
    rule = ["---" if i < texts else "---:" for i in range(len(heads))]

    def laid_out(line: list[str]) -> str:
        return "| " + " | ".join(cell.replace("<", "&lt;") for cell in line) + " |"

    return "\n".join(laid_out(line) for line in [heads, rule, *lines])


def _against(peer: str, rows: list[Row], ratio: Callable[[Row], float | None]) -> str:
    compared = [row for row in rows if ratio(row)]
    ahead = [row for row in compared if ratio(row) >= 1]
    set_rows = [row for row in rows if row.reach]
    reached = [row for row in set_rows if not row.is_below_reach(ratio(row))]
    return (f"Against {peer}: {len(ahead)} of {len(compared)} rows are no slower, "
            f"{len(reached)} of {len(set_rows)} reach their figure.")


def summary(rows: list[Row]) -> str:
    """How many rows are ahead, and how many reach their figure."""
    return "\n".join([
        _against("the fastest peer that does the whole job", rows, lambda row: row.ratio("throughput")),
        _against("plain code", rows, lambda row: row.of_plain("throughput"))])


def standing(rows: list[Row]) -> str:
    """The same for a page, with the rows named in which a peer is faster."""
    behind: dict[str, list[str]] = {}
    for row in rows:
        ratio = row.ratio("throughput")
        if ratio and ratio < 1:
            peer = row.fastest_peer("throughput")
            behind.setdefault(SHORT.get(peer.name, peer.name), []).append(f"{row.title} ({ratio:.2f})")
    lines = [summary(rows), *(f"\nFaster than the library, {name}: {'; '.join(titles)}." for name, titles in behind.items())]
    return "\n".join(lines)
