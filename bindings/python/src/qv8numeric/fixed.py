# SPDX-License-Identifier: MIT
"""The value: a coefficient of 128 bits with its Info."""

import ctypes
import numbers
import operator
from decimal import Decimal
from fractions import Fraction
from typing import Any, Callable, Dict, Iterable, NamedTuple, Optional, Tuple, Union, final

from . import digits, raw, text
from .info import INTEGERS, Info, Rounding
from .raw import Numeric
from .status import STATUS_OF, LiteralError, Status, checked, error_of

# What can be brought to an Info: exactly by Fixed(), or rounded by Fixed.rounded().
Source = Union[int, str, Decimal, Fraction, "Fixed"]

#: A value, and what became of the operation that made it.
Outcome = Tuple["Fixed", Status]

_ZERO = Numeric()
_INT64 = range(-(2**63), 2**63)
_MULTIPLIERS = range(-(2**31) + 1, 2**31)


class InfoMismatchError(TypeError):
    """An operator stands between two values of different Infos, and nothing says which one the result has."""


class Parsed(NamedTuple):
    """What Fixed.parse() gives: the value, the status, and the index of the first character behind the number."""

    value: "Fixed"
    status: Status
    end: int


@final
class Fixed:
    """An exact decimal: a signed coefficient of 127 bits and an Info; or NaN. It never changes.

    Fixed(value, info) takes an int, a str, a Decimal, a Fraction or another Fixed that has a place at the info's scale
    exactly, and raises InexactError, OutOfRangeError, NanError or LiteralError (a ValueError) otherwise:

    >>> from qv8numeric import Fixed, Info
    >>> money = Info(2)
    >>> Fixed("12.5", money)
    Fixed('12.50', Info(2, Rounding.HALF_EVEN))
    >>> Fixed("12.505", money)
    Traceback (most recent call last):
    ...
    qv8numeric.status.InexactError: '12.505' has no exact place at Info(2, Rounding.HALF_EVEN); see Fixed.rounded()
    >>> Fixed.rounded("12.505", money)
    (Fixed('12.50', Info(2, Rounding.HALF_EVEN)), Status.INEXACT)

    Methods named by a word give (value, status) and raise nothing for a status. Operators give the value, and raise the
    statuses that are raised where they stand: all but OK and INEXACT, unless raising() says otherwise. Between two
    values they ask for one Info, which is that of the result; an int counts as the exact value that it is. For values
    of different Infos the methods take the Info of the result:

    >>> Fixed("12.50", money) + 1
    Fixed('13.50', Info(2, Rounding.HALF_EVEN))
    >>> Fixed("12.50", money).mul(Fixed("0.0725", Info(4)), into=money)
    (Fixed('0.91', Info(2, Rounding.HALF_EVEN)), Status.INEXACT)

    Comparisons have the order of numbers, whatever the scales: equal values are equal and have one hash, among each
    other and with int, Decimal, Fraction and float. A NaN is neither equal to, below nor above anything; compare() puts
    it in a place.
    """

    __slots__ = ("_numeric", "_info", "__weakref__")
    _numeric: Numeric
    _info: Info

    # ---- Making one ----

    def __new__(cls, value: Source, info: Info, *, groups: bool = False) -> "Fixed":
        result, status = cls.rounded(value, info, groups=groups)
        if status:
            raise error_of(status, result, _no_exact_place(value, info, status))
        return result

    @classmethod
    def rounded(cls, value: Source, info: Info, *, groups: bool = False) -> Outcome:
        """value at an Info, rounded once by its mode, and whether that was needed.

        groups lets a text have commas between groups of three integer digits: "1,234.50". All of the text has to be a
        number: LiteralError is raised otherwise, the one status that leaves no value to give.

        >>> Fixed.rounded(Fraction(2, 3), Info(2, Rounding.DOWN))
        (Fixed('0.66', Info(2, Rounding.DOWN)), Status.INEXACT)
        """
        if isinstance(value, Fixed):
            return value.to(info)
        if isinstance(value, int):
            if value in _INT64:
                out = Numeric()
                return _fixed(out, info), STATUS_OF[raw.QV8NumericLong2Num(value, info.struct, out)]
            return _from_digits(digits.of_integer(value), info)
        if isinstance(value, str):
            return _from_text(value, info, groups)
        if isinstance(value, Decimal):
            if value.is_nan():
                return cls.nan(info), Status.NAN
            if value.is_infinite():
                return cls.nan(info), Status.UNDERFLOW if value < 0 else Status.OVERFLOW
            return _from_digits(digits.of_decimal(value), info)
        if isinstance(value, Fraction):
            return _from_digits(digits.of_fraction(value), info)
        hint = "; Fixed.from_float() takes one" if isinstance(value, float) else ""
        raise TypeError(f"a value is an int, str, Decimal, Fraction or Fixed, not {type(value).__name__}{hint}")

    @classmethod
    def from_float(cls, value: float, info: Info) -> Outcome:
        """The binary double, exactly as it is, rounded once at scales 0 to 72; at others as the header says.

        >>> Fixed.from_float(0.1, Info(2))
        (Fixed('0.10', Info(2, Rounding.HALF_EVEN)), Status.INEXACT)
        """
        out = Numeric()
        status = raw.QV8NumericDbl2Num(info.struct, out, value)
        return _fixed(out, info), STATUS_OF[status]

    @classmethod
    def from_coefficient(cls, coefficient: int, info: Info) -> "Fixed":
        """coefficient times 10^-scale.

        >>> Fixed.from_coefficient(12345, Info(2))
        Fixed('123.45', Info(2, Rounding.HALF_EVEN))
        """
        if coefficient == raw.NAN:
            raise OverflowError(f"{coefficient} is NaN; Fixed.nan() makes one")
        return _fixed(raw.numeric(coefficient), info)

    @classmethod
    def zero(cls, info: Info) -> "Fixed":
        return _fixed(Numeric(), info)

    @classmethod
    def nan(cls, info: Info) -> "Fixed":
        out = Numeric()
        raw.QV8NumericSetNan(out)
        return _fixed(out, info)

    @classmethod
    def parse(cls, source: str, info: Info, *, groups: bool = False) -> Parsed:
        """Reads the number literal at the start of a text, as the library's parser does and with all its departures.

        What follows the number is no error but where it starts is told; an empty text is NaN with OK; of a very long
        number at least 41 significant digits count. Where a text has to be a number as a whole, Fixed() and
        Fixed.rounded() read every digit of it.

        >>> Fixed.parse("1,234.567 EUR", Info(2), groups=True)
        Parsed(value=Fixed('1234.57', Info(2, Rounding.HALF_EVEN)), status=Status.INEXACT, end=9)
        """
        out = Numeric()
        raw.QV8NumericSetNan(out)
        status, end = text.parse(source, info, out, groups)
        return Parsed(_fixed(out, info), status, end)

    # ---- What it is ----

    @property
    def info(self) -> Info:
        return self._info

    @property
    def scale(self) -> int:
        return self._info.scale

    @property
    def mode(self) -> Rounding:
        return self._info.mode

    @property
    def coefficient(self) -> int:
        """The integer that is this value times 10^scale. A NaN has none: ValueError."""
        if self.is_nan:
            raise ValueError("NaN has no coefficient")
        return raw.coefficient(self._numeric)

    @property
    def is_nan(self) -> bool:
        return raw.is_nan(self._numeric)

    @property
    def is_zero(self) -> bool:
        return raw.QV8NumericIsZero(self._numeric) != 0

    # ---- Operations: a value and a status ----

    def add(self, other: "Fixed | int", into: Optional[Info] = None) -> Outcome:
        """self + other at an Info, which may be left out where both have the same; rounded once, if at all."""
        return self._combined(other, into, raw.QV8NumericRescalingAdd, raw.QV8NumericAdd)

    def sub(self, other: "Fixed | int", into: Optional[Info] = None) -> Outcome:
        """self - other at an Info, which may be left out where both have the same; rounded once, if at all."""
        return self._combined(other, into, raw.QV8NumericRescalingSub, raw.QV8NumericSub)

    def mul(self, other: "Fixed | int", into: Optional[Info] = None) -> Outcome:
        """self * other at an Info, which may be left out where both have the same; rounded once."""
        return self._combined(other, into, raw.QV8NumericRescalingMul)

    def div(self, other: "Fixed | int", into: Optional[Info] = None) -> Outcome:
        """self / other at an Info, which may be left out where both have the same; rounded once from the exact
        remainder. A zero divisor gives NaN and Status.NAN. See the header for quotients of more than 160 bits."""
        return self._combined(other, into, raw.QV8NumericRescalingDiv)

    def _combined(
        self,
        other: "Fixed | int",
        into: Optional[Info],
        rescaling: Callable[..., int],
        same_scale: Optional[Callable[..., int]] = None,
    ) -> Outcome:
        if isinstance(other, int):
            info = into or self._info
            other = Fixed(other, INTEGERS)
        else:
            info = into or self._info_shared_with(other)
        out = Numeric()
        if same_scale and self._info.scale == other._info.scale == info.scale:
            status = same_scale(self._numeric, other._numeric, out)
        else:
            status = rescaling(
                self._info.struct, other._info.struct, info.struct, self._numeric, other._numeric, out
            )
        return _fixed(out, info), STATUS_OF[status]

    def _info_shared_with(self, other: "Fixed") -> Info:
        if self._info is other._info or self._info == other._info:
            return self._info
        raise InfoMismatchError(f"{self._info} or {other._info}? A method takes into=info")

    def neg(self) -> Outcome:
        out = Numeric()
        return _fixed(out, self._info), STATUS_OF[raw.QV8NumericSub(_ZERO, self._numeric, out)]

    def mul_int(self, multiplier: int) -> Outcome:
        """self * multiplier at this Info, by the library's machine-integer operation. The multiplier lies within
        -(2^31 - 1) .. 2^31 - 1; mul() takes any other.

        That operation is for multipliers from 0 up and has one status for both ends of the range; here signs are put
        aside first, and the status is that of the side.
        """
        _check_machine_integer(multiplier)
        out = _copy(self._numeric)
        status = raw.QV8NumericMul(out, abs(multiplier))
        if status == Status.NAN:
            return _fixed(out, self._info), Status.NAN
        if raw.is_nan(out):
            negative = (self._numeric.high < 0) != (multiplier < 0)
            return _fixed(out, self._info), Status.UNDERFLOW if negative else Status.OVERFLOW
        return _fixed(_negated(out) if multiplier < 0 else out, self._info), Status.OK

    def div_int(self, divisor: int) -> Outcome:
        """self / divisor at this Info, rounded by its mode, by the library's machine-integer operation. The divisor
        lies within -(2^31 - 1) .. 2^31 - 1; div() takes any other. 0 gives NaN and Status.NAN.

        That operation is for dividends from 0 up and leaves a dividend as it is when the divisor is 1 or -1; here a
        negative one is divided as its magnitude by the divisor of the other sign.
        """
        _check_machine_integer(divisor)
        negative = self._numeric.high < 0  # also that of NaN, which stays what it is
        out = _negated(self._numeric) if negative else _copy(self._numeric)
        signed = -divisor if negative else divisor
        status = raw.QV8NumericDiv(out, self._info.struct, signed)
        return _fixed(_negated(out) if signed == -1 and not status else out, self._info), STATUS_OF[status]

    def ceil(self, places: int) -> Outcome:
        """The value with no more than these decimal places, towards plus infinity, at the same Info."""
        return self._at_places(raw.QV8NumericCeil, places)

    def floor(self, places: int) -> Outcome:
        """The value with no more than these decimal places, towards minus infinity, at the same Info."""
        return self._at_places(raw.QV8NumericFloor, places)

    def round(self, places: int) -> Outcome:
        """The value with no more than these decimal places, rounded by the mode, at the same Info.

        >>> Fixed("12.3456", Info(4)).round(2)
        (Fixed('12.3500', Info(4, Rounding.HALF_EVEN)), Status.INEXACT)
        """
        return self._at_places(raw.QV8NumericRound, places)

    def _at_places(self, function: Callable[..., int], places: int) -> Outcome:
        # A distance that the scale of no value reaches is as good as any farther one.
        bounded = max(-(2**31), min(places, 2**31 - 1))
        out = _copy(self._numeric)
        return _fixed(out, self._info), STATUS_OF[function(self._info.struct, bounded, out)]

    def to(self, into: Info) -> Outcome:
        """The same value at another Info, rounded by its mode, and whether that was needed.

        >>> Fixed("12.345", Info(3)).to(Info(2, Rounding.UP))
        (Fixed('12.35', Info(2, Rounding.UP)), Status.INEXACT)
        """
        own, out = self._info.struct, Numeric()
        status = raw.QV8NumericRescalingAdd(own, own, into.struct, self._numeric, _ZERO, out)
        return _fixed(out, into), STATUS_OF[status]

    def rescale(self, into: Info) -> Outcome:
        """The library's plain change of scale, with its departures: rounding is not told, the status of every value
        out of range is OVERFLOW, and a negative value that rounds to zero is NaN. to() has none of them.

        >>> Fixed("-0.4", Info(1)).rescale(INTEGERS)
        (Fixed.nan(Info(0, Rounding.HALF_EVEN)), Status.OVERFLOW)
        >>> Fixed("-0.4", Info(1)).to(INTEGERS)
        (Fixed('0', Info(0, Rounding.HALF_EVEN)), Status.INEXACT)
        """
        out = Numeric()
        status = raw.QV8NumericRescale(self._info.struct, into.struct, self._numeric, out)
        return _fixed(out, into), STATUS_OF[status]

    @staticmethod
    def sum(values: Iterable["Fixed"], into: Info) -> Outcome:
        """The sum of values at an Info. Values of one scale are added exactly, and rounded as one into another scale.

        Values of several scales are added up scale by scale and those sums combined, exactly at the finest of them but
        for the last, which is added and rounded in one step. A sum that leaves the range on the way, in the order of
        the values, stays NaN with the status of that moment, although what follows might have led it back.

        >>> Fixed.sum([Fixed("0.004", Info(3)), Fixed("0.004", Info(3))], into=Info(2))
        (Fixed('0.01', Info(2, Rounding.HALF_EVEN)), Status.INEXACT)
        """
        sums: Dict[int, Tuple[Numeric, Info]] = {}
        add, scale, total = raw.QV8NumericAdd, None, Numeric()
        for value in values:
            if value._info.scale != scale:
                scale = value._info.scale
                total = sums.setdefault(scale, (Numeric(), value._info))[0]
            status = add(total, value._numeric, total)
            if status:
                return Fixed.nan(into), STATUS_OF[status]
        return _combined_sums([_fixed(*sums[scale]) for scale in sorted(sums, reverse=True)], into)

    def compare(self, other: "Fixed") -> int:
        """-1, 0 or 1: self is below, equal to or above other. A NaN is equal to a NaN and below everything else.

        The library's own compare has the opposite sign; this one fits functools.cmp_to_key().

        >>> Fixed(1, Info(0)).compare(Fixed("1.01", Info(2)))
        -1
        """
        if self.is_nan or other.is_nan:
            return other.is_nan - self.is_nan
        if self._info.scale == other._info.scale:
            return -raw.QV8NumericCmp(self._numeric, other._numeric)
        return -raw.QV8NumericRescalingCmp(
            self._info.struct, other._info.struct, self._numeric, other._numeric
        )

    def truncated_part(self, truncated: bool) -> int:
        """The sign of a part that was cut off this value: 0 when nothing was, else -1 for a negative value and 1 for
        any other."""
        if not truncated:
            return 0
        return -1 if self._numeric.high < 0 else 1

    # ---- Other types ----

    def to_float(self) -> Tuple[float, Status]:
        """The double for this value, rounded by the mode. Coefficients of 2^113 and more at negative scales may go
        wrong, as the header says; float(value.to_decimal()) does not."""
        out = ctypes.c_double()
        status = raw.QV8NumericNum2Dbl(self._numeric, self._info.struct, ctypes.byref(out))
        return out.value, STATUS_OF[status]

    def to_int64(self) -> Tuple[int, Status]:
        """The integer part within int64, cut off towards zero; 0 where it does not fit or is NaN."""
        return self._to_machine_integer(raw.QV8NumericNum2Long, ctypes.c_int64())

    def to_int32(self) -> Tuple[int, Status]:
        """The integer part within int32, cut off towards zero; 0 where it does not fit or is NaN."""
        return self._to_machine_integer(raw.QV8NumericNum2Int, ctypes.c_int32())

    def _to_machine_integer(
        self, function: Callable[..., int], out: "ctypes.c_int32 | ctypes.c_int64"
    ) -> Tuple[int, Status]:
        # At scale 0 the library's conversion is right for every value.
        whole, status = self.to(_CUT_OFF)
        if not status.is_success:
            return 0, status
        fits = STATUS_OF[function(whole._numeric, _CUT_OFF.struct, ctypes.byref(out))]
        return out.value, fits or status

    def to_decimal(self) -> Decimal:
        """The same number as a Decimal, exactly, with an exponent of -scale.

        >>> Fixed("12.50", Info(2)).to_decimal()
        Decimal('12.50')
        """
        if self.is_nan:
            return Decimal("NaN")
        return Decimal(f"{raw.coefficient(self._numeric)}E{-self._info.scale}")

    def to_fraction(self) -> Fraction:
        """The same number as a Fraction, exactly; ValueError for NaN.

        >>> Fixed("12.50", Info(2)).to_fraction()
        Fraction(25, 2)
        """
        scale = self._info.scale
        return Fraction(self.coefficient * 10 ** max(-scale, 0), 10 ** max(scale, 0))

    def as_integer_ratio(self) -> Tuple[int, int]:
        fraction = self.to_fraction()
        return fraction.numerator, fraction.denominator

    # ---- Text ----

    def format(
        self, places: Optional[int] = None, *, exponent_shift: int = 0, groups: bool = False
    ) -> Tuple[str, Status]:
        """The value as text with this many decimal places, by default as many as its scale says.

        Rounded by the mode, where digits go. A number of places below zero drops that many integer digits and does not
        write them: value.round(places) keeps them as zeros. exponent_shift is the power of ten that the shown number
        is multiplied by, and an exponent takes back; groups puts "," between groups of three integer digits.

        >>> Fixed("1234567.891", Info(3)).format(2, groups=True)
        ('1,234,567.89', Status.INEXACT)
        >>> Fixed("1234.5", Info(1)).format(4, exponent_shift=-3)
        ('1.2345000E+3', Status.OK)
        """
        return text.formatted(
            self._numeric, self._info, max(self._info.scale, 0) if places is None else places, exponent_shift, groups
        )

    def __str__(self) -> str:
        return text.plain(self._numeric, self._info)

    def __format__(self, wanted: str) -> str:
        """[[fill]align][sign][width][,][.places][f], as for other numbers; rounded by the mode.

        >>> f"{Fixed('1234.565', Info(3)):>12,.2f}"
        '    1,234.56'
        """
        layout = text.Layout.of(wanted)
        if self.is_nan:
            return layout.aligned("NaN")
        shown = checked(self.format(layout.places, groups=layout.groups)) if layout.numeric else str(self)
        return layout.aligned(layout.signed(shown))

    def __repr__(self) -> str:
        return f"Fixed.nan({self._info})" if self.is_nan else f"Fixed('{self}', {self._info})"

    # ---- Operators ----

    def __add__(self, other: object) -> "Fixed":
        if isinstance(other, (Fixed, int)):
            return checked(self.add(other))
        return NotImplemented

    def __sub__(self, other: object) -> "Fixed":
        if isinstance(other, (Fixed, int)):
            return checked(self.sub(other))
        return NotImplemented

    def __mul__(self, other: object) -> "Fixed":
        if isinstance(other, (Fixed, int)):
            return checked(self.mul(other))
        return NotImplemented

    def __truediv__(self, other: object) -> "Fixed":
        if isinstance(other, (Fixed, int)):
            return checked(self.div(other))
        return NotImplemented

    def __radd__(self, other: object) -> "Fixed":
        if isinstance(other, int):
            return checked(self.add(other))
        return NotImplemented

    def __rmul__(self, other: object) -> "Fixed":
        if isinstance(other, int):
            return checked(self.mul(other))
        return NotImplemented

    def __rsub__(self, other: object) -> "Fixed":
        if isinstance(other, int):
            return checked(Fixed(other, INTEGERS).sub(self, self._info))
        return NotImplemented

    def __rtruediv__(self, other: object) -> "Fixed":
        if isinstance(other, int):
            return checked(Fixed(other, INTEGERS).div(self, self._info))
        return NotImplemented

    def __neg__(self) -> "Fixed":
        return checked(self.neg())

    def __pos__(self) -> "Fixed":
        return self

    def __abs__(self) -> "Fixed":
        return -self if self._numeric.high < 0 else self

    def __bool__(self) -> bool:
        return not self.is_zero

    # ---- Order ----

    def __eq__(self, other: object) -> bool:
        return self._stands(operator.eq, other)

    def __lt__(self, other: object) -> bool:
        return self._stands(operator.lt, other)

    def __le__(self, other: object) -> bool:
        return self._stands(operator.le, other)

    def __gt__(self, other: object) -> bool:
        return self._stands(operator.gt, other)

    def __ge__(self, other: object) -> bool:
        return self._stands(operator.ge, other)

    def _stands(self, relation: Callable[[Any, Any], bool], other: object) -> bool:
        if isinstance(other, Fixed):
            return not (self.is_nan or other.is_nan) and relation(self.compare(other), 0)
        if not isinstance(other, (int, float, Decimal, Fraction)):
            return NotImplemented
        if self.is_nan or other != other:
            return False
        return relation(self.to_decimal(), other)  # which compares exactly

    def __hash__(self) -> int:
        return object.__hash__(self) if self.is_nan else hash(self.to_decimal())

    # ---- Python's conversions ----

    def __float__(self) -> float:
        """The nearest double, whatever the mode; an infinity beyond the largest."""
        return float(self.to_decimal())

    def __int__(self) -> int:
        return self._whole(Rounding.DOWN)

    __trunc__ = __int__

    def __floor__(self) -> int:
        return self._whole(Rounding.FLOOR)

    def __ceil__(self) -> int:
        return self._whole(Rounding.CEILING)

    def __round__(self, places: Optional[int] = None) -> "Fixed | int":
        """round(x) is an int, round(x, places) a value at the same Info; both by its rounding mode."""
        return self._whole(self._info.mode) if places is None else checked(self.round(places))

    def _whole(self, mode: Rounding) -> int:
        if self._info.scale <= 0:
            zeros: int = 10**-self._info.scale
            return self.coefficient * zeros
        if self.is_nan:
            raise ValueError("NaN is no integer")
        return self.to(Info(0, mode))[0].coefficient

    # ---- It never changes ----

    def __copy__(self) -> "Fixed":
        return self

    def __deepcopy__(self, memo: object) -> "Fixed":
        return self

    def __reduce__(self) -> Tuple[Callable[..., "Fixed"], Tuple[Any, ...]]:
        if self.is_nan:
            return Fixed.nan, (self._info,)
        return Fixed.from_coefficient, (self.coefficient, self._info)


numbers.Number.register(Fixed)

_CUT_OFF = Info(0, Rounding.DOWN)


def _fixed(numeric: Numeric, info: Info) -> Fixed:
    result = object.__new__(Fixed)
    result._numeric = numeric
    result._info = info
    return result


def _copy(numeric: Numeric) -> Numeric:
    return Numeric(numeric.low, numeric.high)


def _negated(numeric: Numeric) -> Numeric:
    """The range holds the negative of every value; that of NaN is NaN."""
    out = Numeric()
    raw.QV8NumericSub(_ZERO, numeric, out)
    return out


def _from_text(source: str, info: Info, groups: bool) -> Outcome:
    # The library's parser takes every digit of so short a text. What it does not read to the end may be a number yet.
    if len(source) <= digits.DECIDING:
        out = Numeric()
        status, end = text.parse(source, info, out, groups)
        if end == len(source) > 0:
            return _fixed(out, info), status
    try:
        return _from_digits(digits.of_text(source, groups), info)
    except ValueError:
        raise LiteralError(f"{_short(source)} is no number", Status.SYNTAX_ERROR) from None


def _from_digits(number: digits.Digits, info: Info) -> Outcome:
    out = Numeric()
    coefficient_info = Info(0, info.mode)
    status, _ = text.parse_bytes(number.literal(info.scale), coefficient_info, out, groups=False)
    return _fixed(out, info), status


def _combined_sums(sums: "list[Fixed]", into: Info) -> Outcome:
    """Of sums of different scales, the finest first."""
    if not sums:
        return Fixed.zero(into), Status.OK
    total = sums[0]
    if len(sums) == 1:
        return total.to(into)
    for other in sums[1:-1]:
        total, status = total.add(other, into=total.info)
        if status:
            return Fixed.nan(into), status
    return total.add(sums[-1], into=into)


def _check_machine_integer(number: int) -> None:
    if number not in _MULTIPLIERS:
        raise ValueError(f"{number} is not within -(2^31 - 1) .. 2^31 - 1; mul() and div() take any integer")


def _short(value: Source) -> str:
    """A value for a message, cut short. Of a Decimal str() has no limit, as it has of an int."""
    if isinstance(value, str):
        shown = f"'{value}'"
    elif isinstance(value, int):
        shown = str(Decimal(value))
    elif isinstance(value, Fraction):
        shown = f"{Decimal(value.numerator)}/{Decimal(value.denominator)}"
    else:
        shown = str(value)
    return shown if len(shown) <= 60 else f"{shown[:40]}... ({len(shown)} characters)"


def _no_exact_place(value: Source, info: Info, status: Status) -> str:
    if status == Status.INEXACT:
        return f"{_short(value)} has no exact place at {info}; see Fixed.rounded()"
    if status == Status.NAN:
        return "NaN is no number; Fixed.nan() makes one"
    return f"{_short(value)} is beyond the range of 127 bits at {info}"
