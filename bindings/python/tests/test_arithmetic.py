# SPDX-License-Identifier: MIT
"""Every operation between two values against the decimal module, over all modes and both signs."""

import random
from decimal import Decimal
from typing import Callable

import oracle
import pytest
from oracle import EXACT, LARGEST, QUOTIENT, drawn_coefficient, drawn_infos, exact, rounded, seen

from qv8numeric import Fixed, Info, InfoMismatchError, Outcome, Rounding, Status

SEED = 20250101
CASES = 4000

Method = Callable[..., Outcome]
Exactly = Callable[[Decimal, Decimal], Decimal]

OPERATIONS = {
    "add": (Fixed.add, EXACT.add),
    "sub": (Fixed.sub, EXACT.subtract),
    "mul": (Fixed.mul, EXACT.multiply),
    "div": (Fixed.div, QUOTIENT.divide),
}


def loses_a_part(a: int, b: int, places: int) -> bool:
    """Where the library's division departs from the exact quotient, as its manual says."""
    return abs(b) < 2**64 and places > 0 and abs(a) * 10**places >= 2**224


@pytest.mark.parametrize("name", OPERATIONS)
def test_values_of_any_scales(name: str) -> None:
    method, exactly = OPERATIONS[name]
    draw = random.Random(f"{SEED} {name}")
    statuses = dict.fromkeys((Status.OK, Status.INEXACT, Status.OVERFLOW, Status.UNDERFLOW), 0)
    modes = dict.fromkeys(Rounding, 0)
    for _ in range(CASES):
        a_info, b_info, into = drawn_infos(draw, 3, spread=38)
        a, b = drawn_coefficient(draw), drawn_coefficient(draw)
        if name == "div":
            if not b or loses_a_part(a, b, into.scale - a_info.scale + b_info.scale):
                continue
        elif name == "mul" and draw.random() < 0.5:  # or hardly a product would fit
            a >>= 64
        outcome = method(Fixed.from_coefficient(a, a_info), Fixed.from_coefficient(b, b_info), into)
        expected = rounded(exactly(exact(a, a_info), exact(b, b_info)), into)
        assert seen(outcome) == expected, (name, a, a_info, b, b_info, into)
        assert outcome[0].info is into
        statuses[outcome[1]] += 1
        modes[into.mode] += 1
    assert min(statuses.values()) >= 100, statuses
    assert min(modes.values()) >= 100, modes


@pytest.mark.parametrize("name", ["add", "sub"])
def test_values_of_one_scale(name: str) -> None:
    method, exactly = OPERATIONS[name]
    draw = random.Random(f"{SEED} same {name}")
    info = Info(2)
    for a in oracle.INTERESTING:
        for b in [*oracle.INTERESTING[::7], drawn_coefficient(draw)]:
            outcome = method(Fixed.from_coefficient(a, info), Fixed.from_coefficient(b, info))
            assert seen(outcome) == rounded(exactly(exact(a, info), exact(b, info)), info), (a, b)


ROWS = [
    ("one above the largest", Fixed.add, LARGEST, 1, None, Status.OVERFLOW),
    ("one below the smallest", Fixed.add, -LARGEST, -1, None, Status.UNDERFLOW),
    ("back from the largest", Fixed.sub, LARGEST, LARGEST, 0, Status.OK),
    ("above by subtracting", Fixed.sub, LARGEST, -1, None, Status.OVERFLOW),
    ("below by subtracting", Fixed.sub, -1, LARGEST, None, Status.UNDERFLOW),
    ("a tie to even, down", Fixed.div, 5, 2, 2, Status.INEXACT),
    ("a tie to even, up", Fixed.div, 7, 2, 4, Status.INEXACT),
    ("an exact quotient", Fixed.div, -6, 3, -2, Status.OK),
    ("a zero divisor", Fixed.div, 1, 0, None, Status.NAN),
    ("zero over zero", Fixed.div, 0, 0, None, Status.NAN),
    ("a product above", Fixed.mul, 2**64, 2**63, None, Status.OVERFLOW),
    ("a product below", Fixed.mul, -(2**64), 2**63, None, Status.UNDERFLOW),
    ("a product just within", Fixed.mul, 2**64, 2**62, 2**126, Status.OK),
]


@pytest.mark.parametrize("why, method, a, b, expected, status", ROWS, ids=[row[0] for row in ROWS])
def test_rows(why: str, method: Method, a: int, b: int, expected: "int | None", status: Status) -> None:
    integers = Info(0)
    first, second = Fixed.from_coefficient(a, integers), Fixed.from_coefficient(b, integers)
    assert seen(method(first, second)) == (expected, status)
    assert seen(method(first, b)) == (expected, status), "an int for the second operand"


@pytest.mark.parametrize("method", [Fixed.add, Fixed.sub, Fixed.mul, Fixed.div])
@pytest.mark.parametrize("into", [None, Info(5, Rounding.UP)])
def test_nan_stays_nan(method: Method, into: "Info | None") -> None:
    one, nan = Fixed(1, Info(2)), Fixed.nan(Info(2))
    for a, b in ((one, nan), (nan, one), (nan, nan)):
        assert seen(method(a, b, into)) == (None, Status.NAN)


@pytest.mark.parametrize("method", [Fixed.add, Fixed.sub, Fixed.mul, Fixed.div])
def test_different_infos_need_one_for_the_result(method: Method) -> None:
    a = Fixed(1, Info(2))
    for other in (Info(3), Info(2, Rounding.UP)):
        b = Fixed(1, other)
        with pytest.raises(InfoMismatchError, match="into=info"):
            method(a, b)
        assert method(a, b, into=other)[1] == Status.OK


def test_int_operands_have_the_infos_of_their_partners() -> None:
    price = Fixed("9.99", Info(2))
    assert seen(price.mul(3)) == (2997, Status.OK)
    assert seen(price.add(10**30)) == (999 + 10**32, Status.OK)
    assert seen(price.div(7, into=Info(4, Rounding.DOWN))) == (14271, Status.INEXACT)
    with pytest.raises(OverflowError):
        price.add(2**127)


def test_neg() -> None:
    for coefficient in oracle.INTERESTING:
        assert seen(Fixed.from_coefficient(coefficient, Info(2)).neg()) == (-coefficient, Status.OK)
    assert seen(Fixed.nan(Info(2)).neg()) == (None, Status.NAN)
