# SPDX-License-Identifier: MIT
"""Text out in all its forms, and the library's own parser."""

import random
from decimal import Decimal
from typing import Any

import pytest
from oracle import INTERESTING, LARGEST, drawn_coefficient, drawn_infos, exact, rounded, seen

from qv8numeric import Fixed, Info, OutOfRangeError, Rounding, Status, text  # noqa: F401  (names for eval)

SEED = 20250106
MONEY = Info(2)


def money(source: str) -> Fixed:
    return Fixed(source, MONEY)


PLAIN = [
    ("places as the scale says", 1250, 2, "12.50"),
    ("a zero before the point", 5, 2, "0.05"),
    ("a negative value", -5, 2, "-0.05"),
    ("zero", 0, 2, "0.00"),
    ("no places", 1250, 0, "1250"),
    ("zeros of a negative scale", 1250, -2, "125000"),
    ("zero of a negative scale", 0, -2, "0"),
    ("the largest of a negative scale", LARGEST, -2, "17014118346046923173168730371588410572700"),
    ("the largest with as many places", LARGEST, 40, "0.0170141183460469231731687303715884105727"),
    ("the last scale with all places", -1, 60, "-0." + 59 * "0" + "1"),
    ("an exponent beyond", -1, 61, "-1E-61"),
    ("the last scale with all zeros", 1, -60, "1" + 60 * "0"),
    ("an exponent beyond", 1, -61, "1E+61"),
    ("the largest scale", 12345, 2**31 - 1, "12345E-2147483647"),
    ("the smallest scale", -12345, -(2**31), "-12345E+2147483648"),
]


@pytest.mark.parametrize("why, coefficient, scale, expected", PLAIN, ids=[row[0] for row in PLAIN])
def test_str(why: str, coefficient: int, scale: int, expected: str) -> None:
    value = Fixed.from_coefficient(coefficient, Info(scale))
    assert str(value) == expected
    assert Fixed(expected, Info(scale)).coefficient == coefficient, "and back"
    assert eval(repr(value)).coefficient == coefficient
    assert eval(repr(value)).info == value.info


def test_str_and_back() -> None:
    draw = random.Random(SEED)
    for _ in range(1500):
        (info,) = drawn_infos(draw, 1, spread=60)
        coefficient = drawn_coefficient(draw)
        value = Fixed.from_coefficient(coefficient, info)
        assert Decimal(str(value)) == exact(coefficient, info)
        assert Fixed(str(value), info).coefficient == coefficient


def test_nan() -> None:
    nan = Fixed.nan(MONEY)
    assert (str(nan), f"{nan:>6,.2f}", f"{nan:+}") == ("NaN", "   NaN", "NaN")
    assert repr(nan) == "Fixed.nan(Info(2, Rounding.HALF_EVEN))"
    assert eval(repr(nan)).is_nan
    assert nan.format() == ("NaN", Status.NAN)
    assert str(Fixed.nan(Info(99))) == "NaN"


def test_format_of_any_places() -> None:
    draw = random.Random(SEED + 1)
    for _ in range(3000):
        (info,) = drawn_infos(draw, 1, spread=0)
        places = max(info.scale, 0) + draw.randint(-10, 5)
        coefficient = drawn_coefficient(draw)
        value = Fixed.from_coefficient(coefficient, info)
        kept, status = rounded(exact(coefficient, info), Info(places, info.mode))
        shown, told = value.format(places)
        assert told == status, (coefficient, info, places)
        if kept is not None:
            assert Decimal(shown) == exact(kept, Info(max(places, 0))), (coefficient, info, places)
            assert shown.startswith("-") == (coefficient < 0)
            assert len(shown.partition(".")[2]) == max(places, 0)
            grouped = value.format(places, groups=True)
            assert grouped == (f"{Decimal(shown):,f}", status)


ROWS = [
    ("groups", "1234567.891", 3, {"groups": True}, "1,234,567.891", Status.OK),
    ("groups and fewer places", "1234567.891", 3, {"places": 2, "groups": True}, "1,234,567.89", Status.INEXACT),
    ("more places", "1.5", 1, {"places": 4}, "1.5000", Status.OK),
    ("integer digits left out", "12345", 0, {"places": -1}, "1234", Status.INEXACT),
    ("the sign of a value that rounds to zero", "-0.004", 3, {"places": 2}, "-0.00", Status.INEXACT),
    ("shifted right", "1234.5", 1, {"places": 4, "exponent_shift": -3}, "1.2345000E+3", Status.OK),
    ("shifted left", "1234.5", 1, {"places": 1, "exponent_shift": 3}, "1234500E-3", Status.OK),
    ("zero shifted", "0", 0, {"places": 0, "exponent_shift": 2}, "0E-2", Status.OK),
]


@pytest.mark.parametrize("why, source, scale, options, expected, status", ROWS, ids=[row[0] for row in ROWS])
def test_format(
    why: str, source: str, scale: int, options: "dict[str, Any]", expected: str, status: Status
) -> None:
    assert Fixed(source, Info(scale)).format(**options) == (expected, status)


def test_format_out_of_range() -> None:
    assert Fixed.from_coefficient(LARGEST, Info(0)).format(1)[1] == Status.OVERFLOW
    assert Fixed.from_coefficient(-LARGEST, Info(0)).format(1)[1] == Status.UNDERFLOW
    with pytest.raises(OutOfRangeError):
        f"{Fixed.from_coefficient(LARGEST, Info(0)):.1f}"
    for places, shift in ((2**31, 0), (0, -(2**31) - 1)):
        with pytest.raises(ValueError, match="32 bits"):
            money("1").format(places, exponent_shift=shift)


def test_the_buffer_always_suffices() -> None:
    for shift in (0, 1, -1, 5, -5, 40, -40, 1000, -1000):
        for places in (-1000, -40, -1, 0, 1, 37, 38, 39, 40, 1000):
            for coefficient in INTERESTING:
                value = Fixed.from_coefficient(coefficient, Info(places))
                for groups in (False, True):
                    shown, status = value.format(places, exponent_shift=shift, groups=groups)
                    assert status != Status.BUFFER_TOO_SMALL
                    assert len(shown) < text.text_size(shift, places, groups)


LAYOUTS = [
    ("", "1234.565"), ("f", "1234.565"), (".2f", "1234.56"), (".2", "1234.56"), (",", "1,234.565"), (",.0f", "1,235"),
    ("+", "+1234.565"), (" ,.1f", " 1,234.6"), ("-.2f", "1234.56"), (">12", "    1234.565"), ("<12", "1234.565    "),
    ("^12", "  1234.565  "), ("*>+12,.2f", "***+1,234.56"), ("12.2f", "     1234.56"), ("3", "1234.565"),
]  # fmt: skip


@pytest.mark.parametrize("wanted, expected", LAYOUTS)
def test_layouts(wanted: str, expected: str) -> None:
    value = Fixed("1234.565", Info(3))
    assert format(value, wanted) == expected
    as_decimal = wanted + "f" if "." in wanted and "f" not in wanted else wanted
    assert format(Decimal("1234.565"), as_decimal) == expected, "as Python's own"


@pytest.mark.parametrize("wanted", ["d", "e", ".f", "012", "=12", ",,", ".2,f", "%", "#"])
def test_other_layouts_are_refused(wanted: str) -> None:
    with pytest.raises(ValueError, match="places"):
        format(money("1"), wanted)


PARSED = [
    ("a number", "12.5", False, 1250, Status.OK, 4),
    ("a number and more", "12.5 EUR", False, 1250, Status.OK, 4),
    ("rounded", "12.505", False, 1250, Status.INEXACT, 6),
    ("groups", "1,234.5", True, 123450, Status.OK, 7),
    ("groups where none are read", "1,234.5", False, 100, Status.OK, 1),
    ("a bad group", "1,2345", True, 100, Status.OK, 1),
    ("nothing is NaN", "", False, None, Status.OK, 0),
    ("no number", "abc", False, None, Status.SYNTAX_ERROR, 0),
    ("no exponent", "1e", False, None, Status.SYNTAX_ERROR, 0),
    ("NaN is not read back", "NaN", False, None, Status.SYNTAX_ERROR, 0),
    ("too much", "1E37", False, None, Status.OVERFLOW, 4),
    ("too little", "-1E37", False, None, Status.UNDERFLOW, 5),
    ("a character beyond ASCII ends it", "12.5\u20ac", False, 1250, Status.OK, 4),
    ("other digits are none", "\u0661", False, None, Status.SYNTAX_ERROR, 0),
    ("half a character ends it", "1\ud800", False, 100, Status.OK, 1),
    ("a NUL ends it", "1\x002", False, 100, Status.OK, 1),
    ("a long exponent is read, but not passed", "1E0001", False, 1000, Status.OK, 2),
]


@pytest.mark.parametrize("why, source, groups, coefficient, status, end", PARSED, ids=[row[0] for row in PARSED])
def test_parse(
    why: str, source: str, groups: bool, coefficient: "int | None", status: Status, end: int
) -> None:
    parsed = Fixed.parse(source, MONEY, groups=groups)
    assert (*seen((parsed.value, parsed.status)), parsed.end) == (coefficient, status, end)
    value, told, where = parsed
    assert (value is parsed.value, told, where) == (True, status, end)


def test_parse_agrees_with_decimal() -> None:
    draw = random.Random(SEED + 2)
    for _ in range(1500):
        info, into = drawn_infos(draw, 2, spread=30)
        value = exact(drawn_coefficient(draw), info)
        source = f"{value:f}"
        if len(source) > 41:
            continue
        for groups, form in ((False, source), (True, source), (True, f"{value:,f}")):
            parsed = Fixed.parse(form + ";", into, groups=groups)
            assert seen((parsed.value, parsed.status)) == rounded(value, into), (form, into)
            assert parsed.end == len(form)
