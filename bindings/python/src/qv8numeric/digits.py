# SPDX-License-Identifier: MIT
"""Numbers of other types as decimal digits that the library reads into a value, exactly or rounded once.

The library's parser takes 41 significant digits of a literal, and three digits of an exponent without further ado.
Both are enough for every number there is, since only 39 digits of it can end up in a value: 40 digits decide the
rounding but for a tie or an exact result, and there it matters only whether anything at all follows.
"""

import re
from decimal import Decimal
from fractions import Fraction
from typing import NamedTuple

DECIDING = 40
FARTHEST = 999


class Digits(NamedTuple):
    """An integer in decimal times 10^exponent."""

    negative: bool
    digits: str
    exponent: int

    def literal(self, scale: int) -> bytes:
        """The coefficient of this number at a scale, to be read as an integer with an exponent at scale 0."""
        digits, exponent = self.digits.lstrip("0") or "0", self.exponent + scale
        if len(digits) > DECIDING:
            exponent += len(digits) - DECIDING
            followed = digits[DECIDING:].strip("0") != ""
            digits = digits[:DECIDING]
            if followed:
                digits, exponent = digits + "1", exponent - 1
        exponent = max(-FARTHEST, min(exponent, FARTHEST))
        return f"{'-' if self.negative else ''}{digits}E{exponent}".encode("ascii")


_EXPONENT = r"(?:[Ee](?P<exponent>[+-]?[0-9]+))?"
_INTEGER = r"(?P<integer>[0-9]*)"
_GROUPED_INTEGER = r"(?P<integer>[0-9]{1,3}(?:,[0-9]{3})+|[0-9]*)"
_REST = r"(?:\.(?P<fraction>[0-9]*))?"
_ONE_DIGIT = r"(?=\.?[0-9])"
_PLAIN = re.compile(f"(?P<sign>[+-]?){_ONE_DIGIT}{_INTEGER}{_REST}{_EXPONENT}")
_GROUPED = re.compile(f"(?P<sign>[+-]?){_ONE_DIGIT}{_GROUPED_INTEGER}{_REST}{_EXPONENT}")


def of_text(text: str, groups: bool) -> Digits:
    """Of a number literal; ValueError when the whole of the text is none."""
    match = (_GROUPED if groups else _PLAIN).fullmatch(text)
    if match is None:
        raise ValueError("no number")
    fraction = match["fraction"] or ""
    exponent = _bounded(match["exponent"] or "0")
    return Digits(match["sign"] == "-", match["integer"].replace(",", "") + fraction, exponent - len(fraction))


def _bounded(exponent: str) -> int:
    """An exponent that no digits and no scale can make up for may be any other such: int() of too many digits fails."""
    return int(exponent) if len(exponent) < 20 else int(exponent[:19])


def of_decimal(value: Decimal) -> Digits:
    """Of a finite decimal."""
    sign, digits, exponent = value.as_tuple()
    assert isinstance(exponent, int)
    return Digits(bool(sign), "".join(map(str, digits)), exponent)


def of_integer(value: int) -> Digits:
    return of_decimal(Decimal(value))  # unlike str(), of any length


def of_fraction(value: Fraction) -> Digits:
    """Of a quotient, 41 of its digits, the last of which tells when more follow."""
    numerator, denominator = abs(value.numerator), value.denominator
    # The quotient is above 2^(bits - 1), which is 10^(0.30103 * (bits - 1)): shifted like this it is above 10^41.
    bits = numerator.bit_length() - denominator.bit_length()
    places = DECIDING + 2 - bits * 30103 // 100000
    numerator, denominator = (
        (numerator * 10**places, denominator) if places > 0 else (numerator, denominator * 10**-places)
    )
    quotient, remainder = divmod(numerator, denominator)
    whole = of_integer(quotient)
    return Digits(value < 0, whole.digits + ("1" if remainder else "0"), -places - 1)
