# SPDX-License-Identifier: MIT
"""Nanoseconds of the package's common operations beside those of the decimal module: the best of many runs.

usage: benchmark.py
"""

import random
import timeit
from decimal import Decimal
from typing import Any

from qv8numeric import Fixed, Info

COUNT = 10000
RUNS = 100
CALLS = 1000  # of a short operation in each run

MONEY, FINER = Info(2), Info(4)
CENTS = [random.Random(1).randrange(10**9) for _ in range(COUNT)]
FIXED = [Fixed.from_coefficient(number, MONEY) for number in CENTS]
DECIMAL = [Decimal(number).scaleb(-2) for number in CENTS]
NAMES = {
    "Fixed": Fixed, "Decimal": Decimal, "money": MONEY, "finer": FINER, "fixed": FIXED, "decimal": DECIMAL,
    "a": FIXED[0], "b": FIXED[1], "x": DECIMAL[0], "y": DECIMAL[1], "places": Decimal("0.0001"),
}  # fmt: skip

ROWS = [
    ("an element of Fixed.sum()", "Fixed.sum(fixed, money)", "sum(decimal)", COUNT),
    ("an element of sum()", "sum(fixed)", "sum(decimal)", COUNT),
    ("a + b", "a + b", "x + y", 1),
    ("a * b at another scale", "a.mul(b, finer)", "(x * y).quantize(places)", 1),
    ("a < b", "a < b", "x < y", 1),
    ("from text", "Fixed('1234567.89', money)", "Decimal('1234567.89')", 1),
    ("to text", "str(a)", "str(x)", 1),
]


def nanoseconds(statement: str, operations: int) -> float:
    names: "dict[str, Any]" = dict(NAMES)
    calls = 1 if operations > 1 else CALLS
    best = min(timeit.repeat(statement, globals=names, number=calls, repeat=RUNS))
    return best / (calls * operations) * 1e9


print(f"{'':28}{'Fixed':>8}{'Decimal':>10}")
for title, fixed, decimal, operations in ROWS:
    print(f"{title:28}{nanoseconds(fixed, operations):8.0f}{nanoseconds(decimal, operations):10.0f}")
