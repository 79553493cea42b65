# SPDX-License-Identifier: MIT
"""Text in and out, through the buffers of the library."""

import ctypes
import re
from typing import NamedTuple, Optional, Tuple

from . import raw
from .info import Info
from .status import STATUS_OF, Status

# A scale within these is written out with all its zeros, one beyond with an exponent: str() does not grow with it.
FEWEST_PLACES, MOST_PLACES = -60, 60


def parse(source: str, info: Info, out: raw.Numeric, groups: bool) -> Tuple[Status, int]:
    """Reads a number at the start of a text. Other characters than ASCII end it; one byte for each keeps the index."""
    return parse_bytes(source.encode("ascii", "replace"), info, out, groups)


def parse_bytes(source: bytes, info: Info, out: raw.Numeric, groups: bool) -> Tuple[Status, int]:
    # The address of the bytes themselves, which end in a NUL and are held by source.
    start = ctypes.c_void_p.from_buffer(ctypes.c_char_p(source)).value
    assert start is not None
    end = ctypes.c_void_p(start)  # which an empty text leaves as it is
    function = raw.QV8NumericDgstr2Num if groups else raw.QV8NumericStr2Num
    status = function(start, info.struct, out, end)
    return STATUS_OF[status], (end.value or start) - start


def formatted(
    value: raw.Numeric, info: Info, places: int, exponent_shift: int, groups: bool
) -> Tuple[str, Status]:
    for name, number in (("places", places), ("exponent_shift", exponent_shift)):
        if not -(2**31) <= number < 2**31:
            raise ValueError(f"{name} has 32 bits, which {number} has not")
    size = text_size(exponent_shift, places, groups)
    buffer = ctypes.create_string_buffer(size)
    function = raw.QV8NumericNum2Dgstr if groups else raw.QV8NumericNum2Str
    status = function(value, info.struct, exponent_shift, places, buffer, size)
    return buffer.value.decode("ascii"), STATUS_OF[status]


def text_size(exponent_shift: int, output_scale: int, groups: bool) -> int:
    """The header's QV8NUMERIC_TEXT_SIZE and QV8NUMERIC_GROUPED_TEXT_SIZE: bytes that any value's text fits in."""
    places = max(output_scale, 0) - exponent_shift
    if places <= 0:
        digits, separators = 41 - places, (38 - places) // 3
    else:
        digits, separators = 42 if places <= 38 else places + 4, 12
    return digits + (separators if groups else 0) + (12 if exponent_shift else 0)


def plain(value: raw.Numeric, info: Info) -> str:
    """The exact value with all its decimal places."""
    scale = info.scale
    if 0 <= scale <= MOST_PLACES:
        return formatted(value, info, scale, 0, False)[0]
    digits = formatted(value, Info(0), 0, 0, False)[0]
    if digits == "NaN":
        return digits
    if FEWEST_PLACES <= scale < 0:
        return digits + "0" * -scale if digits != "0" else digits
    return f"{digits}E{-scale:+d}"


_LAYOUT = re.compile(r"(?:(?P<fill>.)?(?P<align>[<>^]))?(?P<sign>[+ -])?(?P<width>[1-9]\d*)?(?P<groups>,)?"
                     r"(?:\.(?P<places>\d+))?(?P<type>f)?", re.DOTALL)


class Layout(NamedTuple):
    """What the text behind the colon in f"{value:...}" asks for."""

    fill: str
    align: str
    sign: str
    width: int
    groups: bool
    places: Optional[int]
    #: Anything that concerns digits. Otherwise the text is that of str().
    numeric: bool

    @staticmethod
    def of(wanted: str) -> "Layout":
        match = _LAYOUT.fullmatch(wanted)
        if match is None:
            raise ValueError(f"'{wanted}' is not [[fill]align][sign][width][,][.places][f]")
        places = None if match["places"] is None else int(match["places"])
        numeric = bool(match["groups"] or match["type"] or places is not None)
        return Layout(match["fill"] or " ", match["align"] or ">", match["sign"] or "-", int(match["width"] or 0),
                      bool(match["groups"]), places, numeric)

    def signed(self, shown: str) -> str:
        return shown if self.sign == "-" or shown.startswith("-") else self.sign + shown

    def aligned(self, shown: str) -> str:
        return format(shown, f"{self.fill}{self.align}{self.width}") if self.width else shown
