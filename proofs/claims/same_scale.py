# SPDX-License-Identifier: MIT
"""Sum and difference of coefficients of one scale: the status is that of the unbounded one."""
from __future__ import annotations

from claims.numbers import pair
from sheets import Book, proof
from terms import Term, both, choose, either, no, same

FILE = "src/numeric/same_scale.h"


@proof("same_scale.status", f"{FILE}: settle, sign_overflow, add_same_scale, subtract_same_scale",
       """For all coefficients but NaN: a + b and a - b are the exact sum and difference where these are coefficients;
       otherwise NaN, with the status of the side on which the exact one lies.""",
       "the NaN pattern not looked for")
def _(book: Book, broken: bool) -> None:
    overflow, underflow = book.tables.constants["overflow"], book.tables.constants["underflow"]
    for name in ("add", "subtract"):
        sheet = book.sheet(name)
        a = sheet.integer("a", -(2**127) + 1, 2**127 - 1)
        b = sheet.integer("b", -(2**127) + 1, 2**127 - 1)
        exact = a + b if name == "add" else a - b
        # What the words of the result are: the exact one modulo 2^128, as a signed number.
        wrapped = choose(exact >= 2**127, exact - 2**128, choose(exact < -(2**127), exact + 2**128, exact))
        # Of words that are joined by exclusive or, the sign is that of the signs.
        lost = differ(a < 0, wrapped < 0)
        overflowed = both(lost, differ(b < 0, wrapped < 0) if name == "add" else differ(a < 0, b < 0))
        refused = overflowed if broken else either(overflowed, wrapped == -(2**127))
        status = choose(refused, choose(a < 0, underflow, overflow), 0)
        result = choose(refused, -(2**127), wrapped)
        above, below = exact >= 2**127, exact <= -(2**127)
        sheet.claim("the status", status == choose(above, overflow, choose(below, underflow, 0)))
        sheet.claim("the value", choose(either(above, below), result == -(2**127), result == exact))
        sheet.model(f"{name}_same_scale", [*pair(a % 2**128), *pair(b % 2**128)], [status, *pair(result % 2**128)])


def differ(a: Term, b: Term) -> Term:
    return no(same(a, b))
