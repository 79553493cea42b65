# SPDX-License-Identifier: MIT
"""Compares the tables of checksums of several machines with that of the first, and names the functions that differ.

usage: compare.py TABLE TABLE...
"""
from __future__ import annotations

import re
import sys
from typing import Iterator, NamedTuple

ROW = re.compile(r'(\w+) +(\d+) ([0-9a-f]{16}) ([0-9a-f]{16})')
HEADING = 'function '
SUM = 'all'


class Row(NamedTuple):
    calls: str
    arguments: str
    answers: str


class Table(NamedTuple):
    rows: dict[str, Row]  # by function; the last is the sum
    printed: list[str]    # what the debug printers wrote


def read_table(path: str) -> Table:
    rows: dict[str, Row] = {}
    printed = []
    with open(path, encoding='ascii') as file:
        for line in file.read().splitlines():
            match = ROW.fullmatch(line)
            if match:
                rows[match[1]] = Row(*match.groups()[1:])
            elif not line.startswith(HEADING):
                printed.append(line)
    if list(rows)[-1:] != [SUM]:
        sys.exit(f'{path}: no complete table')
    return Table(rows, printed)


def differences(standard: Table, other: Table) -> Iterator[str]:
    for name in [*standard.rows, *(name for name in other.rows if name not in standard.rows)]:
        ours, theirs = standard.rows.get(name), other.rows.get(name)
        if ours is None or theirs is None:
            yield f'{name}: on one machine only'
        elif (ours.calls, ours.arguments) != (theirs.calls, theirs.arguments):
            yield f'{name}: not the same calls were made'
        elif ours.answers != theirs.answers and name != SUM:
            yield f'{name}: the answers differ'
    if standard.printed != other.printed:
        yield 'dump: the printed lines differ'


def main(paths: list[str]) -> None:
    if len(paths) < 2:
        sys.exit(__doc__)
    standard = read_table(paths[0])
    failed = False
    for path in paths[1:]:
        found = list(differences(standard, read_table(path)))
        for difference in found:
            print(f'{path}: {difference}')
        failed = failed or bool(found)
    if failed:
        sys.exit(f'the machines do not agree with {paths[0]}')
    calls, _, answers = standard.rows[SUM]
    print(f'{len(paths)} tables of {calls} calls each are equal: {answers}')


main(sys.argv[1:])
