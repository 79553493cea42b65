# SPDX-License-Identifier: MIT
"""The functions under their own names: what only they show."""

import ctypes

from qv8numeric import Status, raw

NAN = -(2**127)
MONEY = raw.NumericInfo(2, 6)


def test_structures() -> None:
    assert (ctypes.sizeof(raw.Numeric), ctypes.sizeof(raw.NumericInfo)) == (16, 8)
    for number in (0, 1, -1, 2**64, -(2**64), 2**127 - 1, NAN):
        assert raw.coefficient(raw.numeric(number)) == number
    assert (raw.numeric(-1).low, raw.numeric(-1).high) == (2**64 - 1, -1)


def test_setters_and_predicates() -> None:
    value = raw.numeric(5)
    assert (raw.QV8NumericIsZero(value), raw.QV8NumericIsNan(value)) == (0, 0)
    raw.QV8NumericSetNan(value)
    assert (raw.coefficient(value), raw.QV8NumericIsNan(value)) == (NAN, 1)
    for number in (0, 1, -1, NAN, NAN + 1, 2**127 - 1):
        assert raw.is_nan(raw.numeric(number)) == bool(raw.QV8NumericIsNan(raw.numeric(number))) == (number == NAN)
    raw.QV8NumericSetZero(value)
    assert (raw.coefficient(value), raw.QV8NumericIsZero(value)) == (0, 1)


def test_the_order_of_the_library() -> None:
    one, two = raw.numeric(1), raw.numeric(2)
    assert (raw.QV8NumericCmp(one, two), raw.QV8NumericCmp(two, one), raw.QV8NumericCmp(one, one)) == (1, -1, 0)
    assert raw.QV8NumericRescalingCmp(MONEY, raw.NumericInfo(3, 6), one, two) == -1


def test_departures_are_kept() -> None:
    value = raw.numeric(3)
    assert raw.QV8NumericMul(value, -7) == Status.UNDERFLOW
    value = raw.numeric(7)
    assert raw.QV8NumericDiv(value, MONEY, -1) == Status.OK
    assert raw.coefficient(value) == 7


def test_an_invalid_mode() -> None:
    value = raw.numeric(15)
    assert raw.QV8NumericRound(raw.NumericInfo(1, 7), 0, value) == Status.INVALID_ARGUMENT
    assert raw.coefficient(value) == 15


def test_machine_integers() -> None:
    out, wide, narrow = raw.Numeric(), ctypes.c_int64(), ctypes.c_int32()
    assert raw.QV8NumericInt2Num(-5, MONEY, out) == Status.OK
    assert raw.coefficient(out) == -500
    assert raw.QV8NumericNum2Long(raw.numeric(550), MONEY, wide) == Status.INEXACT
    assert raw.QV8NumericNum2Int(raw.numeric(500), MONEY, narrow) == Status.OK
    assert (wide.value, narrow.value) == (5, 5)
