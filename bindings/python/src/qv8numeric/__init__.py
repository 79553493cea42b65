# SPDX-License-Identifier: MIT
"""Exact fixed-point decimals of 38 digits: the C library qv8numeric for Python.

>>> from qv8numeric import Fixed, Info
>>> money = Info(2)
>>> Fixed("19.99", money) * 3 + Fixed("5.00", money)
Fixed('64.97', Info(2, Rounding.HALF_EVEN))

Fixed is a value, Info its scale and rounding mode, Status what became of an operation, raising() and checked() decide
which of these are exceptions. The functions of the library as they are stand in qv8numeric.raw.
"""

from .fixed import Fixed, InfoMismatchError, Outcome, Parsed, Source
from .info import Info, Rounding
from .library import LibraryNotFoundError
from .raw import library_path
from .status import (
    RAISED_BY_DEFAULT,
    InexactError,
    LiteralError,
    NanError,
    OutOfRangeError,
    Status,
    StatusError,
    checked,
    raising,
)
from .version import __version__

__all__ = [
    "Fixed",
    "Info",
    "Rounding",
    "Status",
    "Outcome",
    "Parsed",
    "Source",
    "checked",
    "raising",
    "RAISED_BY_DEFAULT",
    "StatusError",
    "NanError",
    "InexactError",
    "OutOfRangeError",
    "LiteralError",
    "InfoMismatchError",
    "LibraryNotFoundError",
    "library_path",
    "__version__",
]
