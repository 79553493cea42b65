# SPDX-License-Identifier: MIT
"""The functions of the C library under their own names, as its header describes them.

Nothing is smoothed over here: a compare gives 1 when its first argument is the smaller, and a number made of a few
functions has its departures. Structures are passed as they are, ctypes takes their addresses:

>>> from qv8numeric import raw
>>> a, b, result = raw.numeric(12345), raw.numeric(-45), raw.Numeric()
>>> raw.QV8NumericAdd(a, b, result)
0
>>> raw.coefficient(result)
12300
>>> raw.QV8NumericCmp(a, b)
-1
"""

import ctypes
from ctypes import POINTER, c_char_p, c_double, c_int32, c_int64, c_size_t, c_void_p
from typing import Any, Callable, Dict, Sequence

from .library import load

WORD = 2**64 - 1
NAN = -(2**127)


class Numeric(ctypes.Structure):
    """A coefficient: 128 bits in two's complement, the low half first."""

    low: int
    high: int
    _fields_ = [("low", ctypes.c_uint64), ("high", ctypes.c_int64)]


class NumericInfo(ctypes.Structure):
    """What travels beside a value: its scale, and the rounding mode of results that it describes."""

    scale: int
    rounding_mode: int
    _fields_ = [("scale", ctypes.c_int32), ("rounding_mode", ctypes.c_uint32)]


def numeric(number: int) -> Numeric:
    """The structure of a coefficient within -2^127 .. 2^127 - 1, of which -2^127 is NaN."""
    if not NAN <= number < -NAN:
        raise OverflowError(f"{number} has more than 128 bits")
    return Numeric(number & WORD, number >> 64)


def coefficient(value: Numeric) -> int:
    """The integer in a structure; NAN for NaN."""
    return value.high << 64 | value.low


def is_nan(value: Numeric) -> bool:
    """QV8NumericIsNan(), faster."""
    return value.high == NAN >> 64 and value.low == 0


N, I = POINTER(Numeric), POINTER(NumericInfo)
STATUS = c_int32

# The result and the arguments of each function.
SIGNATURES: Dict[str, Sequence[Any]] = {
    "QV8NumericSetZero": (None, N),
    "QV8NumericSetNan": (None, N),
    "QV8NumericIsZero": (ctypes.c_int, N),
    "QV8NumericIsNan": (ctypes.c_int, N),
    "QV8NumericAdd": (STATUS, N, N, N),
    "QV8NumericSub": (STATUS, N, N, N),
    "QV8NumericCmp": (c_int32, N, N),
    "QV8NumericCeil": (STATUS, I, c_int32, N),
    "QV8NumericFloor": (STATUS, I, c_int32, N),
    "QV8NumericRound": (STATUS, I, c_int32, N),
    "QV8NumericMul": (STATUS, N, c_int32),
    "QV8NumericDiv": (STATUS, N, I, c_int32),
    "QV8NumericRescale": (STATUS, I, I, N, N),
    "QV8NumericRescalingAdd": (STATUS, I, I, I, N, N, N),
    "QV8NumericRescalingSub": (STATUS, I, I, I, N, N, N),
    "QV8NumericRescalingCmp": (c_int32, I, I, N, N),
    "QV8NumericRescalingMul": (STATUS, I, I, I, N, N, N),
    "QV8NumericRescalingDiv": (STATUS, I, I, I, N, N, N),
    "QV8NumericNum2Str": (STATUS, N, I, c_int32, c_int32, c_char_p, c_size_t),
    "QV8NumericNum2Dgstr": (STATUS, N, I, c_int32, c_int32, c_char_p, c_size_t),
    "QV8NumericStr2Num": (STATUS, c_void_p, I, N, POINTER(c_void_p)),
    "QV8NumericDgstr2Num": (STATUS, c_void_p, I, N, POINTER(c_void_p)),
    "QV8NumericLong2Num": (STATUS, c_int64, I, N),
    "QV8NumericInt2Num": (STATUS, c_int32, I, N),
    "QV8NumericNum2Long": (STATUS, N, I, POINTER(c_int64)),
    "QV8NumericNum2Int": (STATUS, N, I, POINTER(c_int32)),
    "QV8NumericDbl2Num": (STATUS, I, N, c_double),
    "QV8NumericNum2Dbl": (STATUS, N, I, POINTER(c_double)),
}

_library = load(SIGNATURES)

#: The file that the functions come from, as it was named to the system's loader.
library_path: str = _library._name


def _bound(name: str) -> Callable[..., int]:
    function = _library[name]
    function.restype, *function.argtypes = SIGNATURES[name]
    return function


QV8NumericSetZero = _bound("QV8NumericSetZero")
QV8NumericSetNan = _bound("QV8NumericSetNan")
QV8NumericIsZero = _bound("QV8NumericIsZero")
QV8NumericIsNan = _bound("QV8NumericIsNan")
QV8NumericAdd = _bound("QV8NumericAdd")
QV8NumericSub = _bound("QV8NumericSub")
QV8NumericCmp = _bound("QV8NumericCmp")
QV8NumericCeil = _bound("QV8NumericCeil")
QV8NumericFloor = _bound("QV8NumericFloor")
QV8NumericRound = _bound("QV8NumericRound")
QV8NumericMul = _bound("QV8NumericMul")
QV8NumericDiv = _bound("QV8NumericDiv")
QV8NumericRescale = _bound("QV8NumericRescale")
QV8NumericRescalingAdd = _bound("QV8NumericRescalingAdd")
QV8NumericRescalingSub = _bound("QV8NumericRescalingSub")
QV8NumericRescalingCmp = _bound("QV8NumericRescalingCmp")
QV8NumericRescalingMul = _bound("QV8NumericRescalingMul")
QV8NumericRescalingDiv = _bound("QV8NumericRescalingDiv")
QV8NumericNum2Str = _bound("QV8NumericNum2Str")
QV8NumericNum2Dgstr = _bound("QV8NumericNum2Dgstr")
QV8NumericStr2Num = _bound("QV8NumericStr2Num")
QV8NumericDgstr2Num = _bound("QV8NumericDgstr2Num")
QV8NumericLong2Num = _bound("QV8NumericLong2Num")
QV8NumericInt2Num = _bound("QV8NumericInt2Num")
QV8NumericNum2Long = _bound("QV8NumericNum2Long")
QV8NumericNum2Int = _bound("QV8NumericNum2Int")
QV8NumericDbl2Num = _bound("QV8NumericDbl2Num")
QV8NumericNum2Dbl = _bound("QV8NumericNum2Dbl")
