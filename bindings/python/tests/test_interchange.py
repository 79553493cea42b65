# SPDX-License-Identifier: MIT
"""To Decimal, Fraction, float and int, and from float."""

import decimal
import math
import numbers
import random
import struct
from decimal import Decimal
from fractions import Fraction

import pytest
from oracle import INTERESTING, LARGEST, drawn_coefficient, drawn_infos, exact, rounded, seen

from qv8numeric import Fixed, Info, Rounding, Status

SEED = 20250107
MONEY = Info(2)


@pytest.mark.parametrize("scale", [-40, -1, 0, 1, 2, 38, 40, 100])
def test_decimal_and_back(scale: int) -> None:
    info = Info(scale)
    for coefficient in INTERESTING:
        value = Fixed.from_coefficient(coefficient, info).to_decimal()
        assert value.as_tuple().exponent == -scale
        assert value == exact(coefficient, info)
        assert Fixed(value, info).coefficient == coefficient


def test_decimal_in_a_narrow_context() -> None:
    """The context of the moment has no say in a conversion."""
    with decimal.localcontext(decimal.Context(prec=3, Emax=5, Emin=-5)):
        assert str(Fixed.from_coefficient(LARGEST, MONEY).to_decimal()) == "1701411834604692317316873037158841057.27"
        assert Fixed(Decimal("1701411834604692317316873037158841057.27"), MONEY).coefficient == LARGEST
        assert Fixed("1.25", MONEY) < Decimal("1.2500000000001")


def test_decimal_of_far_scales() -> None:
    for scale in (-(2**31), 2**31 - 1):
        value = Fixed.from_coefficient(12345, Info(scale)).to_decimal()
        assert (value.as_tuple().digits, value.as_tuple().exponent) == ((1, 2, 3, 4, 5), -scale)
        assert Fixed(value, Info(scale)).coefficient == 12345


def test_fraction_and_back() -> None:
    for scale in (-40, 0, 2, 40):
        info = Info(scale)
        for coefficient in INTERESTING:
            value = Fixed.from_coefficient(coefficient, info)
            assert value.to_fraction() == Fraction(coefficient) / Fraction(10) ** scale
            assert Fixed(value.to_fraction(), info).coefficient == coefficient
    assert Fixed("12.50", MONEY).as_integer_ratio() == (25, 2)


def test_nan() -> None:
    nan = Fixed.nan(MONEY)
    assert nan.to_decimal().is_nan()
    assert math.isnan(float(nan))
    shown, status = nan.to_float()
    assert math.isnan(shown) and status == Status.NAN
    assert nan.to_int64() == (0, Status.NAN)
    with pytest.raises(ValueError, match="NaN"):
        nan.to_fraction()


def doubles(draw: random.Random, count: int) -> "list[float]":
    """Of all sizes within 1e-25 .. 1e25, and some that are exact."""
    found = [draw.choice((-1, 1)) * draw.random() * 10.0 ** draw.randint(-25, 25) for _ in range(count)]
    return found + [draw.getrandbits(53) / 2.0 ** draw.randint(0, 60) for _ in range(count)]


def test_from_float() -> None:
    draw = random.Random(SEED)
    for value in doubles(draw, 1000):
        info = Info(draw.randint(0, 40), draw.choice(list(Rounding)))
        assert seen(Fixed.from_float(value, info)) == rounded(Decimal(value), info), (value.hex(), info)


def test_from_float_rows() -> None:
    assert seen(Fixed.from_float(0.1, Info(1))) == (1, Status.INEXACT)
    assert seen(Fixed.from_float(0.5, MONEY)) == (50, Status.OK)
    assert seen(Fixed.from_float(-0.0, MONEY)) == (0, Status.OK)
    assert seen(Fixed.from_float(math.nan, MONEY)) == (None, Status.NAN)
    assert seen(Fixed.from_float(math.inf, MONEY)) == (None, Status.OVERFLOW)
    assert seen(Fixed.from_float(-math.inf, MONEY)) == (None, Status.UNDERFLOW)
    assert seen(Fixed.from_float(1e300, MONEY)) == (None, Status.OVERFLOW)


def test_to_float() -> None:
    """With ties to even it is the double that Python itself takes as nearest."""
    draw = random.Random(SEED + 1)
    for _ in range(2000):
        scale = draw.randint(0, 60)
        coefficient = drawn_coefficient(draw)
        value = Fixed.from_coefficient(coefficient, Info(scale))
        nearest = coefficient / 10**scale
        shown, status = value.to_float()
        assert struct.pack("d", shown) == struct.pack("d", nearest), (coefficient, scale)
        assert status == (Status.OK if Decimal(nearest) == exact(coefficient, Info(scale)) else Status.INEXACT)
        assert float(value) == nearest


def test_float_of_any_value() -> None:
    draw = random.Random(SEED + 2)
    for _ in range(500):
        coefficient, scale = drawn_coefficient(draw), draw.randint(-200, 200)
        value = Fixed.from_coefficient(coefficient, Info(scale, Rounding.UP))
        assert float(value) == float(exact(coefficient, Info(scale)))
    assert float(Fixed.from_coefficient(1, Info(-1000))) == math.inf


MACHINE = [
    ("exact", "5.00", 5, Status.OK, Status.OK),
    ("cut off", "5.99", 5, Status.INEXACT, Status.INEXACT),
    ("cut off, negative", "-5.99", -5, Status.INEXACT, Status.INEXACT),
    ("the largest of 32 bits", "2147483647.99", 2**31 - 1, Status.INEXACT, Status.INEXACT),
    ("above 32 bits", "2147483648.01", 2**31, Status.INEXACT, Status.OVERFLOW),
    ("the smallest of 32 bits", "-2147483648.00", -(2**31), Status.OK, Status.OK),
    ("below 32 bits", "-2147483649.00", -(2**31) - 1, Status.OK, Status.UNDERFLOW),
]


@pytest.mark.parametrize("why, source, whole, wide, narrow", MACHINE, ids=[row[0] for row in MACHINE])
@pytest.mark.parametrize("mode", [Rounding.UP, Rounding.HALF_EVEN])
def test_machine_integers(
    why: str, source: str, whole: int, wide: Status, narrow: Status, mode: Rounding
) -> None:
    value = Fixed(source, Info(2, mode))
    assert value.to_int64() == (whole, wide)
    assert value.to_int32() == (whole if narrow.is_success else 0, narrow)


def test_limits_of_int64() -> None:
    for number, status in ((2**63 - 1, Status.OK), (2**63, Status.OVERFLOW), (-(2**63), Status.OK),
                           (-(2**63) - 1, Status.UNDERFLOW)):  # fmt: skip
        for scale in (0, 2):
            shown = number if status == Status.OK else 0
            assert Fixed(number, Info(scale)).to_int64() == (shown, status), (number, scale)
    assert Fixed.from_coefficient(LARGEST, Info(-5)).to_int64() == (0, Status.OVERFLOW)
    assert Fixed.from_coefficient(123, Info(-2)).to_int64() == (12300, Status.OK)


def test_it_is_a_number() -> None:
    assert isinstance(Fixed(1, MONEY), numbers.Number)
    draw = random.Random(SEED + 3)
    for info in drawn_infos(draw, 20, spread=40):
        assert Fixed.zero(info) == 0
