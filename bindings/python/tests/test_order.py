# SPDX-License-Identifier: MIT
"""The order of values, Python's own way round, and hashes that fit it."""

import functools
import math
import random
from decimal import Decimal
from fractions import Fraction

import pytest
from oracle import INTERESTING, drawn_coefficient, drawn_infos, exact

from qv8numeric import Fixed, Info, Rounding

NAN = Fixed.nan(Info(2))


def test_between_values_of_any_scales() -> None:
    draw = random.Random(20250105)
    for _ in range(3000):
        a_info, b_info = drawn_infos(draw, 2, spread=45)
        a, b = drawn_coefficient(draw), drawn_coefficient(draw)
        if draw.random() < 0.3 and b_info.scale >= a_info.scale:  # the same value, or nearly
            a >>= 100
            b = a * 10 ** (b_info.scale - a_info.scale) + draw.choice((0, 0, 1, -1))
            if abs(b) >= 2**127:
                continue
        first, second = Fixed.from_coefficient(a, a_info), Fixed.from_coefficient(b, b_info)
        x, y = exact(a, a_info), exact(b, b_info)
        assert first.compare(second) == (x > y) - (x < y), (a, a_info, b, b_info)
        assert second.compare(first) == (x < y) - (x > y), (a, a_info, b, b_info)
        for mine, right in (
            (first == second, x == y), (first != second, x != y), (first < second, x < y),
            (first <= second, x <= y), (first > second, x > y), (first >= second, x >= y),
        ):  # fmt: skip
            assert mine is right, (a, a_info, b, b_info)
        if x == y:
            assert hash(first) == hash(second)


def test_with_other_types() -> None:
    half = Fixed("0.50", Info(2))
    for equal in (0.5, Decimal("0.5"), Decimal("0.500"), Fraction(1, 2)):
        assert half == equal and equal == half
        assert half <= equal <= half and not half < equal and not equal < half
        assert hash(half) == hash(equal)
    for above in (1, 0.5000000000000001, Decimal("0.5" + 80 * "0" + "1"), Fraction(501, 1000), math.inf, 10**400):
        assert half < above and above > half and half != above and half <= above and not half >= above
    for below in (0, 0.49999999999999994, -(10**400), Fraction(499, 1000), -math.inf):
        assert half > below and below < half and half != below and half >= below and not half <= below
    assert Fixed("0.1", Info(1)) != 0.1, "the double lies just above it"
    assert Fixed("0.1", Info(1)) < 0.1
    assert Fixed(7, Info(3)) == 7 and hash(Fixed(7, Info(3))) == hash(7)
    assert Fixed(1, Info(0)) == True  # noqa: E712
    names: "dict[object, str]" = {Fixed(7, Info(3)): "seven"}
    assert names[7] == names[Decimal(7)] == "seven"


def test_far_scales_cost_nothing() -> None:
    tiny, huge = Fixed.from_coefficient(5, Info(2**31 - 1)), Fixed.from_coefficient(5, Info(-(2**31)))
    assert 0 < tiny < huge
    assert tiny < Decimal(1) < huge and tiny != 5 and huge > 10**100
    assert hash(tiny) != hash(huge)
    assert tiny == Fixed.from_coefficient(50, Info(2**31 - 1)) / 10


def test_not_with_anything_else() -> None:
    value = Fixed(1, Info(0))
    for other in ("1", None, 1j, [1]):
        assert value != other and not value == other
        with pytest.raises(TypeError):
            value < other


@pytest.mark.parametrize("other", [Fixed(1, Info(0)), NAN, Fixed.nan(Info(3)), 1, 0.5, Decimal(1), Fraction(1, 2)])
def test_nan_is_in_no_order(other: object) -> None:
    assert NAN != other and not NAN == other and other != NAN and not other == NAN
    for holds in (NAN < other, NAN <= other, NAN > other, NAN >= other, other < NAN, other > NAN):
        assert holds is False


@pytest.mark.parametrize("nan", [math.nan, Decimal("NaN")])
def test_nothing_is_in_order_with_nan(nan: "float | Decimal") -> None:
    one = Fixed(1, Info(0))
    assert one != nan and not one < nan and not one >= nan


def test_nan_in_a_set() -> None:
    assert hash(NAN) == object.__hash__(NAN), "equal to itself alone"
    assert len({NAN, NAN}) == 1
    assert len({NAN, Fixed.nan(Info(2))}) == 2


def test_compare_puts_nan_first() -> None:
    other_nan, one = Fixed.nan(Info(5)), Fixed(-(10**30), Info(0))
    assert (NAN.compare(NAN), NAN.compare(other_nan), other_nan.compare(NAN)) == (0, 0, 0)
    assert (NAN.compare(one), one.compare(NAN)) == (-1, 1)
    values = [one, NAN, Fixed("0.5", Info(1)), -one]
    ordered = sorted(values, key=functools.cmp_to_key(Fixed.compare))
    assert [str(value) for value in ordered] == ["NaN", str(one), "0.5", str(-one)]


def test_sorting() -> None:
    values = [Fixed.from_coefficient(coefficient, Info(2, Rounding.UP)) for coefficient in INTERESTING]
    shuffled = values[:]
    random.Random(1).shuffle(shuffled)
    assert [value.coefficient for value in sorted(shuffled)] == sorted(INTERESTING)
    assert max(shuffled) == values[-1] and min(shuffled) == values[0]
