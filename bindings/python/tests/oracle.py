# SPDX-License-Identifier: MIT
"""What the results have to be, by the decimal module alone, and operands worth trying."""

import decimal
import random
from decimal import Decimal
from typing import Iterator, List, Optional, Tuple

from qv8numeric import Fixed, Info, Rounding, Status

LARGEST = 2**127 - 1

MODES = {
    Rounding.UP: decimal.ROUND_UP,
    Rounding.DOWN: decimal.ROUND_DOWN,
    Rounding.CEILING: decimal.ROUND_CEILING,
    Rounding.FLOOR: decimal.ROUND_FLOOR,
    Rounding.HALF_UP: decimal.ROUND_HALF_UP,
    Rounding.HALF_DOWN: decimal.ROUND_HALF_DOWN,
    Rounding.HALF_EVEN: decimal.ROUND_HALF_EVEN,
}

# Nothing here needs so many digits; a result that did would be inexact, which is trapped.
EXACT = decimal.Context(
    prec=1000,
    Emax=10**6,
    Emin=-(10**6),
    traps=[decimal.Inexact, decimal.InvalidOperation, decimal.Overflow, decimal.DivisionByZero],
)

# A quotient that any further rounding to fewer digits rounds as the exact one.
QUOTIENT = decimal.Context(prec=400, Emax=10**6, Emin=-(10**6), rounding=decimal.ROUND_05UP)

Expected = Tuple[Optional[int], Status]


def exact(coefficient: int, info: Info) -> Decimal:
    return EXACT.scaleb(Decimal(coefficient), -info.scale)


def rounded(value: Decimal, info: Info) -> Expected:
    """The coefficient of an exact value at an Info, None for NaN, and the status."""
    scaled = EXACT.scaleb(value, info.scale)
    whole = scaled.to_integral_value(MODES[info.mode])
    coefficient = int(whole)  # abs() of a Decimal would round
    if abs(coefficient) > LARGEST:
        return None, Status.OVERFLOW if coefficient > 0 else Status.UNDERFLOW
    return coefficient, Status.OK if whole == scaled else Status.INEXACT


def coefficient_or_none(value: Fixed) -> Optional[int]:
    return None if value.is_nan else value.coefficient


def seen(outcome: Tuple[Fixed, Status]) -> Expected:
    value, status = outcome
    return coefficient_or_none(value), status


def interesting_coefficients() -> List[int]:
    """Zero, the limits, and the neighbours of powers of ten and two, of both signs."""
    found = {0, LARGEST}
    for exponent in (0, 1, 2, 8, 18, 19, 37, 38):
        found |= {10**exponent - 1, 10**exponent, 10**exponent + 1, 5 * 10**exponent}
    for bits in (31, 32, 63, 64, 96, 126):
        found |= {2**bits - 1, 2**bits, 2**bits + 1}
    return sorted(sign * number for number in found if number <= LARGEST for sign in (-1, 1))


INTERESTING = interesting_coefficients()


def drawn_coefficient(draw: random.Random) -> int:
    kind = draw.random()
    if kind < 0.2:
        return draw.choice(INTERESTING)
    number = draw.getrandbits(draw.randint(1, 127))
    if kind < 0.5:  # a tie, an exact result or a neighbour, for some number of places dropped
        step = 10 ** draw.randint(1, 20)
        number = min(number // step * step + draw.choice((0, 1, step // 2 - 1, step // 2, step // 2 + 1)), LARGEST)
    return draw.choice((-1, 1)) * number


def drawn_infos(draw: random.Random, count: int, spread: int) -> Iterator[Info]:
    """Infos whose scales lie within a spread of one another."""
    lowest = draw.randint(-20, 30)
    for _ in range(count):
        yield Info(lowest + draw.randint(0, spread), draw.choice(list(Rounding)))
