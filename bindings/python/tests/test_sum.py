# SPDX-License-Identifier: MIT
"""Sums over sequences: exact within a scale, rounded once into another."""

import random
from decimal import Decimal

from oracle import EXACT, LARGEST, drawn_coefficient, exact, rounded, seen

from qv8numeric import Fixed, Info, Rounding, Status

SEED = 20250108


def coefficients(draw: random.Random, count: int, bits: int) -> "list[int]":
    return [drawn_coefficient(draw) >> (127 - bits) for _ in range(count)]


def test_values_of_one_scale() -> None:
    draw = random.Random(SEED)
    for mode in Rounding:
        for _ in range(50):
            info, into = Info(draw.randint(-5, 20)), Info(draw.randint(-5, 20), mode)
            numbers = coefficients(draw, draw.randint(0, 40), 60)
            total = sum((exact(number, info) for number in numbers), Decimal(0)) if not numbers else exact(
                sum(numbers), info)  # fmt: skip
            values = [Fixed.from_coefficient(number, info) for number in numbers]
            assert seen(Fixed.sum(values, into)) == rounded(total, into), (numbers, info, into)
            assert Fixed.sum(iter(values), into)[0].info is into


def test_values_of_two_scales_are_rounded_once() -> None:
    draw = random.Random(SEED + 1)
    for mode in Rounding:
        for _ in range(50):
            infos = [Info(draw.randint(0, 12)), Info(draw.randint(0, 12))]
            into = Info(draw.randint(0, 8), mode)
            parts = [(number, draw.choice(infos)) for number in coefficients(draw, 30, 80)]
            total = Decimal(0)
            for number, info in parts:
                total = EXACT.add(total, exact(number, info))
            values = [Fixed.from_coefficient(number, info) for number, info in parts]
            assert seen(Fixed.sum(values, into)) == rounded(total, into), (parts, into)


def test_values_of_many_scales() -> None:
    draw = random.Random(SEED + 2)
    for mode in Rounding:
        for _ in range(50):
            into = Info(draw.randint(0, 8), mode)
            parts = [(number, Info(draw.randint(0, 12))) for number in coefficients(draw, 30, 64)]
            total = Decimal(0)
            for number, info in parts:
                total = EXACT.add(total, exact(number, info))
            values = [Fixed.from_coefficient(number, info) for number, info in parts]
            assert seen(Fixed.sum(values, into)) == rounded(total, into), (parts, into)


def test_rows() -> None:
    cents, mills = Info(2), Info(3)
    assert seen(Fixed.sum([], cents)) == (0, Status.OK)
    assert seen(Fixed.sum([Fixed("0.004", mills)] * 3, cents)) == (1, Status.INEXACT)
    assert seen(Fixed.sum([Fixed("0.005", mills)] * 2, cents)) == (1, Status.OK)
    assert seen(Fixed.sum([Fixed(1, cents), Fixed(1, mills), Fixed(1, Info(0))], cents)) == (300, Status.OK)


def test_range_and_nan() -> None:
    info = Info(0)
    top, one = Fixed.from_coefficient(LARGEST, info), Fixed(1, info)
    assert seen(Fixed.sum([top, one], info)) == (None, Status.OVERFLOW)
    assert seen(Fixed.sum([-top, -one], info)) == (None, Status.UNDERFLOW)
    assert seen(Fixed.sum([top, one, -one], info)) == (None, Status.OVERFLOW), "in the order of the values"
    assert seen(Fixed.sum([top, -one, one], info)) == (LARGEST, Status.OK)
    assert seen(Fixed.sum([top], Info(1))) == (None, Status.OVERFLOW)
    assert seen(Fixed.sum([one, Fixed.nan(info), one], info)) == (None, Status.NAN)
    assert seen(Fixed.sum([top, Fixed(1, Info(1)), Fixed(1, Info(2))], info)) == (None, Status.OVERFLOW)
    assert top.coefficient == LARGEST, "the operands are not touched"
