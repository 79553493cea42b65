# SPDX-License-Identifier: MIT
"""Feeds instructions.py counts that break a bound, and expects it to say so."""
from __future__ import annotations

import instructions

LIMITS = {"QV8NumericAdd": ["", "", "", "50", ""], "QV8NumericStr2Num": ["", "", "", "100", "10"]}

# Label and instructions: what a run within the limits gives.
RIGHT = [
    ("row\tAdd\ttypical\tsmall\t0", 20),
    ("row\tAdd\tworst\twide\t0", 50),
    ("row\tStr2Num\ttypical\tsmall\t8", 90),
    ("drawn\tStr2Num\t17\t20", 300),
    ("grown\tStr2Num\tdigits\t1000", 8000),
    ("grown\tStr2Num\tdigits\t2000", 16000),
    ("grown\tStr2Num\tdigits\t4000", 32000),
    ("grown\tStr2Num\tdigits\t8000", 64000),
]

# What takes the place of one of them, by its turn, and how it is told.
WRONG = [
    ("more than 50: wide", 1, ("row\tAdd\tworst\twide\t0", 51)),
    ("more than 300: 17", 3, ("drawn\tStr2Num\t17\t20", 301)),
    ("not linear", 7, ("grown\tStr2Num\tdigits\t8000", 72000)),
    ("not linear", 4, ("grown\tStr2Num\tdigits\t1000", 2000)),
    ("more than 80100: digits", 7, ("grown\tStr2Num\tdigits\t8000", 80101)),
    ("no limit on the page", 1, ("row\tSub\tworst\twide\t0", 1)),
    ("but never called", 2, ("row\tAdd\ttypical\tsmall\t0", 20)),
]


def findings(calls: list[tuple[str, int]]) -> list[str]:
    counts = instructions.Counts()
    for label, count in calls:
        counts.add(label, count)
    return instructions.growth(counts)[1] + instructions.above(counts, LIMITS)


def main() -> None:
    wrong = [f"refused, though it is right: {finding}" for finding in findings(RIGHT)]
    for expected, turn, call in WRONG:
        found = findings([*RIGHT[:turn], call, *RIGHT[turn + 1:]])
        if not any(expected in finding for finding in found):
            wrong.append(f'"{expected}" is not among {found}')
    instructions.finish(wrong)


main()
