# SPDX-License-Identifier: MIT
"""Rounding in place, and the changes of scale."""

import random

import pytest
from oracle import LARGEST, drawn_coefficient, drawn_infos, exact, rounded, seen

from qv8numeric import Fixed, Info, Rounding, Status

SEED = 20250102
MODES = [Rounding.UP, Rounding.DOWN, Rounding.CEILING, Rounding.FLOOR, Rounding.HALF_UP, Rounding.HALF_DOWN,
         Rounding.HALF_EVEN]

# What each mode makes of a number, in the order above.
TABLE = {
    "2.5": (3, 2, 3, 2, 3, 2, 2),
    "3.5": (4, 3, 4, 3, 4, 3, 4),
    "-2.5": (-3, -2, -2, -3, -3, -2, -2),
    "2.51": (3, 2, 3, 2, 3, 3, 3),
    "-2.51": (-3, -2, -2, -3, -3, -3, -3),
    "2.4": (3, 2, 3, 2, 2, 2, 2),
    "-2.4": (-3, -2, -2, -3, -2, -2, -2),
    "2.0": (2, 2, 2, 2, 2, 2, 2),
    "-0.5": (-1, 0, 0, -1, -1, 0, 0),
}


@pytest.mark.parametrize("text", TABLE)
@pytest.mark.parametrize("mode", MODES)
def test_table(text: str, mode: Rounding) -> None:
    expected = TABLE[text][MODES.index(mode)]
    status = Status.OK if text == "2.0" else Status.INEXACT
    value, into = Fixed(text, Info(2, mode)), Info(0, mode)
    assert seen(value.round(0)) == (expected * 100, status)
    assert seen(value.to(into)) == (expected, status)
    assert seen(Fixed.rounded(text, into)) == (expected, status)
    assert seen(value.div(1, into=into)) == (expected, status)
    assert value.format(0)[0].lstrip("-") == str(abs(expected))
    assert round(value) == expected


@pytest.mark.parametrize("mode", MODES)
def test_round_ceil_and_floor(mode: Rounding) -> None:
    draw = random.Random(f"{SEED} {mode}")
    for _ in range(1500):
        (info,) = drawn_infos(draw, 1, spread=0)
        info = Info(info.scale, mode)
        coefficient, places = drawn_coefficient(draw), info.scale - draw.randint(-3, 42)
        value = Fixed.from_coefficient(coefficient, info)
        for method, by in ((value.round, mode), (value.ceil, Rounding.CEILING), (value.floor, Rounding.FLOOR)):
            kept, status = rounded(exact(coefficient, info), Info(min(places, info.scale), by))
            assert kept is not None
            shown = kept * 10 ** max(info.scale - places, 0)
            if abs(shown) > LARGEST:
                expected = (None, Status.OVERFLOW if shown > 0 else Status.UNDERFLOW)
                assert seen(method(places)) == expected, (coefficient, info, places, by)
            else:
                assert seen(method(places)) == (shown, status), (coefficient, info, places, by)


def test_places_of_any_size() -> None:
    value = Fixed("5", Info(0))
    assert seen(value.floor(-(10**30))) == (0, Status.INEXACT)
    assert seen(value.round(10**30)) == (5, Status.OK)
    assert seen(value.ceil(-(10**30))) == (None, Status.OVERFLOW)


def test_to_another_scale() -> None:
    draw = random.Random(SEED)
    for _ in range(3000):
        info, into = drawn_infos(draw, 2, spread=60)
        coefficient = drawn_coefficient(draw)
        outcome = Fixed.from_coefficient(coefficient, info).to(into)
        assert seen(outcome) == rounded(exact(coefficient, info), into), (coefficient, info, into)


def test_plain_rescale_and_its_departures() -> None:
    even = Info(1)
    assert seen(Fixed("1.5", even).rescale(Info(3))) == (1500, Status.OK)
    assert seen(Fixed("1.25", Info(2)).rescale(even)) == (12, Status.OK)
    assert seen(Fixed("1.25", Info(2)).rescale(Info(1, Rounding.HALF_UP))) == (13, Status.OK)
    assert seen(Fixed("-0.4", even).rescale(Info(0))) == (None, Status.OVERFLOW)
    assert seen(Fixed.from_coefficient(-LARGEST, even).rescale(Info(2))) == (None, Status.OVERFLOW)
    assert seen(Fixed.nan(even).rescale(Info(2))) == (None, Status.NAN)


def test_nan_stays_nan() -> None:
    nan = Fixed.nan(Info(2))
    for outcome in (nan.round(1), nan.ceil(1), nan.floor(1), nan.to(Info(1)), nan.to(Info(3))):
        assert seen(outcome) == (None, Status.NAN)


def test_truncated_part() -> None:
    info = Info(0)
    assert [Fixed(number, info).truncated_part(True) for number in (-5, 0, 5)] == [-1, 1, 1]
    assert [Fixed(number, info).truncated_part(False) for number in (-5, 0, 5)] == [0, 0, 0]
