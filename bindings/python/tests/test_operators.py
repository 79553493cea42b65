# SPDX-License-Identifier: MIT
"""Operators, which statuses they raise, and how that is changed."""

import asyncio
import builtins
import math
import operator
import pickle
import threading
from typing import Any, Callable

import pytest
from oracle import LARGEST

from qv8numeric import (
    RAISED_BY_DEFAULT,
    Fixed,
    InexactError,
    Info,
    InfoMismatchError,
    NanError,
    OutOfRangeError,
    Rounding,
    Status,
    StatusError,
    checked,
    raising,
)

MONEY = Info(2)
PRICE = Fixed("12.50", MONEY)
NAN = Fixed.nan(MONEY)
OPERATORS: "list[Callable[[Any, Any], Any]]" = [operator.add, operator.sub, operator.mul, operator.truediv]
TOP = Fixed.from_coefficient(LARGEST, MONEY)


def money(text: str) -> Fixed:
    return Fixed(text, MONEY)


def test_between_values() -> None:
    assert PRICE + money("0.25") == money("12.75")
    assert PRICE - money("0.25") == money("12.25")
    assert PRICE * money("0.25") == money("3.12")
    assert PRICE / money("0.25") == money("50")
    assert -PRICE == money("-12.50")
    assert +PRICE is PRICE
    assert abs(-PRICE) == abs(PRICE) == PRICE
    for result in (PRICE + PRICE, PRICE - PRICE, PRICE * PRICE, PRICE / PRICE, -PRICE, abs(-PRICE)):
        assert result.info == MONEY


def test_with_integers() -> None:
    assert PRICE + 1 == 1 + PRICE == money("13.50")
    assert PRICE - 1 == money("11.50")
    assert 1 - PRICE == money("-11.50")
    assert PRICE * 3 == 3 * PRICE == money("37.50")
    assert PRICE * -3 == money("-37.50")
    assert PRICE / 3 == money("4.17")
    assert 100 / PRICE == money("8")
    assert PRICE * 10**20 == money("1250000000000000000000")


@pytest.mark.parametrize("other", [0.5, "1", None, 1j])
def test_other_types_are_refused(other: Any) -> None:
    for operate in OPERATORS:
        with pytest.raises(TypeError):
            operate(PRICE, other)
        with pytest.raises(TypeError):
            operate(other, PRICE)


def test_different_infos_are_refused() -> None:
    for info in (Info(3), Info(2, Rounding.UP)):
        other = Fixed(1, info)
        for operate in OPERATORS:
            with pytest.raises(InfoMismatchError, match="into=info"):
                operate(PRICE, other)


RAISING: "list[tuple[str, Callable[[], object], type[StatusError], Status]]" = [
    ("a sum above", lambda: TOP + TOP, OutOfRangeError, Status.OVERFLOW),
    ("a difference below", lambda: -TOP - TOP, OutOfRangeError, Status.UNDERFLOW),
    ("a product above", lambda: TOP * 2, OutOfRangeError, Status.OVERFLOW),
    ("a NaN", lambda: PRICE + NAN, NanError, Status.NAN),
    ("a NaN on the left", lambda: 1 - NAN, NanError, Status.NAN),
    ("the negative of a NaN", lambda: -NAN, NanError, Status.NAN),
    ("a zero divisor", lambda: PRICE / 0, NanError, Status.NAN),
    ("rounding up out of range", lambda: round(TOP, -2), OutOfRangeError, Status.OVERFLOW),
    ("a rounded quotient", lambda: PRICE / 3, InexactError, Status.INEXACT),
    ("a rounded product", lambda: PRICE * money("0.01"), InexactError, Status.INEXACT),
    ("a rounded value", lambda: round(PRICE, 0), InexactError, Status.INEXACT),
    ("a rounded text", lambda: f"{PRICE:.0}", InexactError, Status.INEXACT),
]


@pytest.mark.parametrize("why, operate, error, status", RAISING, ids=[row[0] for row in RAISING])
def test_what_is_raised(
    why: str, operate: "Callable[[], object]", error: "type[StatusError]", status: Status
) -> None:
    with raising(status), pytest.raises(error) as caught:
        operate()
    assert caught.value.status is status
    with raising() as seen:
        operate()
    assert seen == {status}
    if status in RAISED_BY_DEFAULT:
        with pytest.raises(error):
            operate()
    else:
        operate()


def test_the_default_is_all_but_successes() -> None:
    assert set(Status) - RAISED_BY_DEFAULT == {Status.OK, Status.INEXACT}
    assert all(status.is_success == (status not in RAISED_BY_DEFAULT) for status in Status)


def test_errors_carry_what_was_made() -> None:
    with raising(Status.INEXACT), pytest.raises(InexactError) as caught:
        PRICE / 3
    assert caught.value.value == money("4.17")
    again = pickle.loads(pickle.dumps(caught.value))
    assert (type(again), again.status, again.value, str(again)) == (
        InexactError, Status.INEXACT, money("4.17"), str(caught.value))  # fmt: skip
    assert issubclass(OutOfRangeError, OverflowError)
    assert issubclass(StatusError, ArithmeticError)


def test_raising_nests_and_ends() -> None:
    with raising(Status.INEXACT) as outer:
        with raising() as inner:
            PRICE / 3
        assert inner == {Status.INEXACT}
        with pytest.raises(InexactError):
            PRICE / 3
    assert outer == {Status.INEXACT}
    assert PRICE / 3 == money("4.17")


def test_raising_ends_with_an_exception() -> None:
    with pytest.raises(InexactError), raising(Status.INEXACT):
        PRICE / 3
    assert PRICE / 3 == money("4.17")


def test_raising_is_of_its_own_thread() -> None:
    results: "list[object]" = []
    with raising(Status.INEXACT):
        thread = threading.Thread(target=lambda: results.append(PRICE / 3))
        thread.start()
        thread.join()
    assert results == [money("4.17")]


def test_raising_is_of_its_own_task() -> None:
    async def strict(entered: asyncio.Event, left: asyncio.Event) -> None:
        with raising(Status.INEXACT):
            entered.set()
            await left.wait()
            with pytest.raises(InexactError):
                PRICE / 3

    async def lenient(entered: asyncio.Event, left: asyncio.Event) -> None:
        await entered.wait()
        assert PRICE / 3 == money("4.17")
        left.set()

    async def both() -> None:
        entered, left = asyncio.Event(), asyncio.Event()
        await asyncio.gather(strict(entered, left), lenient(entered, left))

    asyncio.run(both())


def test_methods_raise_no_status() -> None:
    with raising(*Status):
        assert TOP.add(TOP)[1] is Status.OVERFLOW
        assert PRICE.div(3)[1] is Status.INEXACT
        assert PRICE.div(0)[1] is Status.NAN


def test_checked() -> None:
    assert checked(PRICE.add(PRICE)) == money("25")
    assert checked(PRICE.div(3)) == money("4.17")
    with pytest.raises(OutOfRangeError):
        checked(TOP.add(TOP))
    with raising(Status.INEXACT), pytest.raises(InexactError):
        checked(PRICE.format(0))
    with pytest.raises(OutOfRangeError):
        checked(Fixed(2**40, Info(0)).to_int32())


def test_python_conversions() -> None:
    for text, down, up, nearest in (("2.50", 2, 3, 2), ("-2.50", -3, -2, -2), ("3.50", 3, 4, 4), ("-0.01", -1, 0, 0)):
        value = money(text)
        assert (math.floor(value), math.ceil(value), round(value)) == (down, up, nearest)
        assert int(value) == math.trunc(value) == (down if down >= 0 else up)
    thousands = Fixed.from_coefficient(-7, Info(-3))
    assert {int(thousands), math.floor(thousands), math.ceil(thousands), round(thousands)} == {-7000}
    assert int(Fixed.from_coefficient(1, Info(2**31 - 1))) == 0
    assert math.ceil(Fixed.from_coefficient(1, Info(2**31 - 1))) == 1
    conversions: "list[Callable[[Any], int]]" = [int, math.floor, math.ceil, round]
    for convert in conversions:
        with pytest.raises(ValueError, match="NaN"):
            convert(NAN)
    assert (round(PRICE, 1), round(money("12.55"), 1), round(money("12.55"), -1)) == (
        PRICE, money("12.60"), money("10"))  # fmt: skip


def test_builtin_sum() -> None:
    assert builtins.sum([PRICE, PRICE, money("0.01")]) == money("25.01")
    assert builtins.sum([PRICE], money("1")) == money("13.50")
