# SPDX-License-Identifier: MIT
"""Making values of other types: exactly or not at all, or rounded and said to be."""

import copy
import dataclasses
import pickle
import random
from decimal import Decimal
from fractions import Fraction
from typing import Any

import pytest
from oracle import INTERESTING, LARGEST, QUOTIENT, drawn_coefficient, drawn_infos, exact, rounded, seen

from qv8numeric import (
    Fixed,
    InexactError,
    Info,
    LiteralError,
    NanError,
    OutOfRangeError,
    Rounding,
    Source,
    Status,
    StatusError,
)

SEED = 20250104
MONEY = Info(2)

EXACTLY: "list[tuple[str, Source, Info, int]]" = [
    ("text", "12.5", MONEY, 1250),
    ("text with a sign", "+12.5", MONEY, 1250),
    ("text without digits before the point", "-.5", MONEY, -50),
    ("text without digits behind it", "5.", MONEY, 500),
    ("text with an exponent", "125E-1", MONEY, 1250),
    ("text with a small e and a sign", "1.25e+1", MONEY, 1250),
    ("text with zeros that do not count", "00012.5000000", MONEY, 1250),
    ("text with a hundred zeros", "0." + 100 * "0" + "1E100", MONEY, 10),
    ("text with a long exponent of a far scale", "12345E-2147483647", Info(2**31 - 1), 12345),
    ("text with an exponent of many digits", "0E" + 5000 * "9", MONEY, 0),
    ("an integer", 7, MONEY, 700),
    ("an integer of more than 64 bits", 10**30, MONEY, 10**32),
    ("the largest integer", LARGEST, Info(0), LARGEST),
    ("the smallest integer", -LARGEST, Info(0), -LARGEST),
    ("an integer of thousands of digits", 10**5000, Info(-5000), 1),
    ("a truth value", True, MONEY, 100),
    ("a decimal", Decimal("12.50"), MONEY, 1250),
    ("a decimal with an exponent beyond 32 bits", Decimal((0, (0,), -(10**10))), MONEY, 0),
    ("a decimal of a hundred digits", Decimal("1." + 100 * "0"), MONEY, 100),
    ("a negative zero", Decimal("-0.00"), MONEY, 0),
    ("a fraction", Fraction(-5, 4), MONEY, -125),
    ("a fraction of thousands of digits", Fraction(1, 10**5000), Info(5000), 1),
    ("the zero fraction", Fraction(0), MONEY, 0),
    ("another value", Fixed("12.500", Info(3)), MONEY, 1250),
]


@pytest.mark.parametrize("why, value, info, coefficient", EXACTLY, ids=[row[0] for row in EXACTLY])
def test_exactly(why: str, value: Source, info: Info, coefficient: int) -> None:
    assert Fixed(value, info).coefficient == coefficient
    assert seen(Fixed.rounded(value, info)) == (coefficient, Status.OK)


REFUSED: "list[tuple[str, Any, Any, Status]]" = [
    ("too many places", "12.505", InexactError, Status.INEXACT),
    ("a digit far down", "0." + 100 * "0" + "1", InexactError, Status.INEXACT),
    ("a decimal with too many places", Decimal("12.505"), InexactError, Status.INEXACT),
    ("a fraction that does not end", Fraction(1, 3), InexactError, Status.INEXACT),
    ("a value with more places", Fixed("12.505", Info(3)), InexactError, Status.INEXACT),
    ("an integer above", 2**127, OutOfRangeError, Status.OVERFLOW),
    ("an integer below", -(2**127), OutOfRangeError, Status.UNDERFLOW),
    ("an integer of thousands of digits", -(10**5000), OutOfRangeError, Status.UNDERFLOW),
    ("a fraction of thousands of digits", Fraction(10**5000 + 1, 3), OutOfRangeError, Status.OVERFLOW),
    ("a text above", "1E37", OutOfRangeError, Status.OVERFLOW),
    ("a text far above", "-1E999999", OutOfRangeError, Status.UNDERFLOW),
    ("a decimal far above", Decimal("1E+999999"), OutOfRangeError, Status.OVERFLOW),
    ("an infinity", Decimal("Infinity"), OutOfRangeError, Status.OVERFLOW),
    ("a negative infinity", Decimal("-Infinity"), OutOfRangeError, Status.UNDERFLOW),
    ("no number among decimals", Decimal("NaN"), NanError, Status.NAN),
    ("a NaN", Fixed.nan(MONEY), NanError, Status.NAN),
]


@pytest.mark.parametrize("why, value, error, status", REFUSED, ids=[row[0] for row in REFUSED])
def test_refused(why: str, value: Source, error: "type[StatusError]", status: Status) -> None:
    with pytest.raises(error) as caught:
        Fixed(value, MONEY)
    assert caught.value.status == status
    result, told = Fixed.rounded(value, MONEY)
    assert told == status
    assert result.is_nan == (status != Status.INEXACT)


NO_NUMBERS = [
    "", " ", "1 ", " 1", "abc", "1e", "1E+", ".", "+", "-.", "1.2.3", "1,234", "NaN", "Infinity", "0x1", "1_0", "1\n",
    "1\0", "\u0661", "1E5E", "--1", "." + 50 * "1" + "x", 50 * "1" + ".2.3",
]  # fmt: skip


@pytest.mark.parametrize("text", NO_NUMBERS)
def test_texts_that_are_no_numbers(text: str) -> None:
    for method in (Fixed, Fixed.rounded):
        with pytest.raises(LiteralError, match="is no number") as caught:
            method(text, MONEY)
        assert caught.value.status == Status.SYNTAX_ERROR
        assert isinstance(caught.value, ValueError)


def test_groups() -> None:
    assert Fixed("1,234,567.5", MONEY, groups=True).coefficient == 123456750
    assert Fixed("1234567.5", MONEY, groups=True).coefficient == 123456750
    for text in ("1234,567", "1,2345", "1,23", ",123", "1,,234", "1.234,567", "1,234,"):
        with pytest.raises(LiteralError):
            Fixed(text, MONEY, groups=True)


def test_other_types() -> None:
    for value in (0.5, None, b"1", [1]):
        with pytest.raises(TypeError, match=type(value).__name__):
            Fixed(value, MONEY)  # type: ignore[arg-type]
    with pytest.raises(TypeError, match="from_float"):
        Fixed(0.5, MONEY)  # type: ignore[arg-type]


def test_rounding_of_every_kind() -> None:
    """A number in all forms that it can be given in, rounded by all modes."""
    draw = random.Random(SEED)
    for _ in range(3000):
        info, into = drawn_infos(draw, 2, spread=45)
        coefficient = drawn_coefficient(draw)
        value = exact(coefficient, info)
        expected = rounded(value, into)
        forms: "list[Source]" = [value, f"{value:f}", f"{value:e}", Fraction(value)]
        forms += [int(value)] if value == int(value) else []
        for form in forms:
            assert seen(Fixed.rounded(form, into)) == expected, (form, into)


def test_long_texts_and_decimals() -> None:
    """Digits behind the first forty decide between a tie and its neighbours."""
    for mode in Rounding:
        into = Info(2, mode)
        for tail in ("", "0", 60 * "0", 60 * "0" + "1", 60 * "9"):
            for start in ("1.005", "1.015", "-1.005", "1.00", "12345678901234567890123456789012345.675"):
                value = Decimal(start + tail)
                expected = rounded(value, into)
                assert seen(Fixed.rounded(value, into)) == expected, (start, tail, mode)
                assert seen(Fixed.rounded(start + tail, into)) == expected, (start, tail, mode)


def test_fractions() -> None:
    draw = random.Random(SEED + 1)
    for _ in range(3000):
        numerator = draw.choice((-1, 1)) * draw.getrandbits(draw.randint(1, 200))
        denominator = 1 + draw.getrandbits(draw.randint(1, 200))
        (into,) = drawn_infos(draw, 1, spread=20)
        expected = rounded(QUOTIENT.divide(Decimal(numerator), Decimal(denominator)), into)
        assert seen(Fixed.rounded(Fraction(numerator, denominator), into)) == expected, (numerator, denominator, into)


def test_fractions_near_a_tie() -> None:
    for places in (50, 100, 1000):
        for sign in (-1, 1):
            above, below = (Fraction(sign * (5 * 10**places + more), 10 ** (places + 1)) for more in (1, -1))
            for mode, expected in ((Rounding.HALF_DOWN, (1, 0)), (Rounding.HALF_UP, (1, 0)), (Rounding.UP, (1, 1))):
                for value, unit in zip((above, below), expected):
                    outcome = seen(Fixed.rounded(value, Info(0, mode)))
                    assert outcome == (sign * unit, Status.INEXACT), (places, sign, mode)


def test_coefficients() -> None:
    for coefficient in INTERESTING:
        value = Fixed.from_coefficient(coefficient, MONEY)
        assert (value.coefficient, value.is_zero, value.is_nan) == (coefficient, coefficient == 0, False)
    for coefficient in (2**127, -(2**127), -(2**127) - 1, 10**50):
        with pytest.raises(OverflowError):
            Fixed.from_coefficient(coefficient, MONEY)


def test_zero_and_nan() -> None:
    zero, nan = Fixed.zero(MONEY), Fixed.nan(MONEY)
    assert (zero.coefficient, zero.is_zero, zero.is_nan) == (0, True, False)
    assert (nan.is_zero, nan.is_nan) == (False, True)
    with pytest.raises(ValueError, match="NaN"):
        nan.coefficient
    assert not zero
    assert nan
    assert Fixed("0.01", MONEY)


def test_a_value_never_changes() -> None:
    value = Fixed("12.50", MONEY)
    with pytest.raises(AttributeError):
        value.coefficient = 1  # type: ignore[misc]
    with pytest.raises(AttributeError):
        value.other = 1  # type: ignore[attr-defined]
    before = value.coefficient
    value.mul_int(3), value.div_int(3), value.round(0), value.ceil(0), value.neg(), value + value, abs(-value)
    assert value.coefficient == before
    with pytest.raises(dataclasses.FrozenInstanceError):
        MONEY.scale = 3  # type: ignore[misc]


@pytest.mark.parametrize("value", [Fixed("12.50", MONEY), Fixed(-LARGEST, Info(0, Rounding.UP))])
def test_copies(value: Fixed) -> None:
    assert copy.copy(value) is value
    assert copy.deepcopy([value])[0] is value
    again = pickle.loads(pickle.dumps(value))
    assert (again, again.info) == (value, value.info)


def test_copies_of_nan() -> None:
    again = pickle.loads(pickle.dumps(Fixed.nan(MONEY)))
    assert (again.is_nan, again.info) == (True, MONEY)


def test_infos() -> None:
    assert Info(2) == Info(2, Rounding.HALF_EVEN) == Info(2, 6)  # type: ignore[arg-type]
    assert Info(2) != Info(2, Rounding.UP)
    assert len({Info(2), Info(2), Info(3)}) == 2
    assert Info(2, 6).mode is Rounding.HALF_EVEN  # type: ignore[arg-type]
    assert pickle.loads(pickle.dumps(Info(2))) == Info(2)
    assert repr(Info(-3, Rounding.UP)) == "Info(-3, Rounding.UP)"
    for scale in (-(2**31), 2**31 - 1):
        assert Info(scale).struct.scale == scale
    for scale in (-(2**31) - 1, 2**31):
        with pytest.raises(ValueError, match="32 bits"):
            Info(scale)
    with pytest.raises(ValueError, match="7"):
        Info(2, 7)  # type: ignore[arg-type]
    with pytest.raises(TypeError):
        Info(2.0)  # type: ignore[arg-type]
