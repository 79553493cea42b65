# SPDX-License-Identifier: MIT
"""Multiplying and dividing by a 32-bit integer, with both signs of either side."""

import random
from decimal import Decimal

import pytest
from oracle import EXACT, INTERESTING, LARGEST, QUOTIENT, drawn_coefficient, exact, rounded, seen

from qv8numeric import Fixed, Info, Rounding, Status

LARGEST_FACTOR = 2**31 - 1
FACTORS = [0, 1, 2, 3, 7, 10, 1000, 2**16, 2**30, 2**30 + 1, LARGEST_FACTOR]
SIGNED = [sign * factor for factor in FACTORS for sign in (-1, 1)]


@pytest.mark.parametrize("mode", Rounding)
def test_against_decimal(mode: Rounding) -> None:
    draw = random.Random(f"20250103 {mode}")
    info = Info(2, mode)
    for coefficient in [*INTERESTING, *(drawn_coefficient(draw) for _ in range(100))]:
        value = Fixed.from_coefficient(coefficient, info)
        for factor in SIGNED:
            product = rounded(EXACT.multiply(exact(coefficient, info), Decimal(factor)), info)
            assert seen(value.mul_int(factor)) == product, (coefficient, factor)
            assert seen(value.mul(factor)) == product, (coefficient, factor)
            if factor:
                quotient = rounded(QUOTIENT.divide(exact(coefficient, info), Decimal(factor)), info)
                assert seen(value.div_int(factor)) == quotient, (coefficient, factor)
                assert seen(value.div(factor)) == quotient, (coefficient, factor)


ROWS = [
    ("a positive product above", 2**126, 2, None, Status.OVERFLOW),
    ("a negative product below, of the pattern of NaN", -(2**126), 2, None, Status.UNDERFLOW),
    ("a positive product of two negatives above", -(2**126), -2, None, Status.OVERFLOW),
    ("a negative product of a negative factor", 2**126, -2, None, Status.UNDERFLOW),
    ("zero times a negative", 0, -1, 0, Status.OK),
    ("the smallest, its sign changed", -LARGEST, -1, LARGEST, Status.OK),
]


@pytest.mark.parametrize("why, coefficient, factor, expected, status", ROWS, ids=[row[0] for row in ROWS])
def test_products(why: str, coefficient: int, factor: int, expected: "int | None", status: Status) -> None:
    assert seen(Fixed.from_coefficient(coefficient, Info(0)).mul_int(factor)) == (expected, status)


def test_quotients() -> None:
    def quotient(dividend: int, divisor: int, mode: Rounding) -> "tuple[int | None, Status]":
        return seen(Fixed(dividend, Info(0, mode)).div_int(divisor))

    assert quotient(-7, 2, Rounding.HALF_EVEN) == (-4, Status.INEXACT)
    assert quotient(-7, 2, Rounding.FLOOR) == (-4, Status.INEXACT)
    assert quotient(-7, -2, Rounding.FLOOR) == (3, Status.INEXACT)
    assert quotient(7, -2, Rounding.CEILING) == (-3, Status.INEXACT)
    assert quotient(7, -1, Rounding.UP) == (-7, Status.OK)
    assert quotient(-7, 1, Rounding.UP) == (-7, Status.OK)
    assert quotient(-7, -1, Rounding.UP) == (7, Status.OK)
    assert quotient(-7, 0, Rounding.UP) == (None, Status.NAN)


def test_nan() -> None:
    nan = Fixed.nan(Info(2))
    for factor in (-2, -1, 0, 1, 2):
        assert seen(nan.mul_int(factor)) == (None, Status.NAN)
        assert seen(nan.div_int(factor)) == (None, Status.NAN)


@pytest.mark.parametrize("number", [2**31, -(2**31), 10**30])
def test_wider_integers_are_refused(number: int) -> None:
    value = Fixed(1, Info(2))
    for method in (value.mul_int, value.div_int):
        with pytest.raises(ValueError, match="any integer"):
            method(number)
