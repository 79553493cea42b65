# SPDX-License-Identifier: MIT
"""What the whole model stands on: the range of a coefficient, statuses, rounding modes and the one rounding decision.

A coefficient is a Python integer; NaN is the integer whose bit pattern it shares, -2^127.
"""

LIMIT = 2**127 - 1
NAN = -2**127

OK, NOT_A_NUMBER, INEXACT, OVERFLOW, UNDERFLOW = range(5)
SYNTAX_ERROR, BUFFER_TOO_SMALL, INVALID_ARGUMENT = -1, -2, -3
STATUS_NAMES = {
    OK: 'OK', NOT_A_NUMBER: 'NAN', INEXACT: 'INEXACT', OVERFLOW: 'OVERFLOW', UNDERFLOW: 'UNDERFLOW',
    SYNTAX_ERROR: 'SYNTAX_ERROR', BUFFER_TOO_SMALL: 'BUFFER_TOO_SMALL', INVALID_ARGUMENT: 'INVALID_ARGUMENT',
}

UP, DOWN, CEILING, FLOOR, HALF_UP, HALF_DOWN, HALF_EVEN = MODES = range(7)
MODE_NAMES = ('UP', 'DOWN', 'CEILING', 'FLOOR', 'HALF_UP', 'HALF_DOWN', 'HALF_EVEN')


class _Untouched:
    """The output of a call that writes none."""

    def __repr__(self):
        return 'untouched'


UNTOUCHED = _Untouched()

# Every magnitude that is moved to another scale is below 2^256 < 10^78. Ninety-nine places up, anything but zero has
# left every range; ninety-nine places down, nothing but a part far below one half remains. So no longer move is needed.
FARTHEST = 99
POWER_OF_TEN = [10**places for places in range(FARTHEST + 1)]


def increases(mode, negative, odd, against_half):
    """Whether a magnitude that lost a nonzero part grows by one.

    against_half is negative, zero or positive as the lost part is below, at or above half a unit.
    """
    if mode == UP:
        return True
    if mode == DOWN:
        return False
    if mode == CEILING:
        return not negative
    if mode == FLOOR:
        return negative
    if against_half:
        return against_half > 0
    return mode == HALF_UP or (mode == HALF_EVEN and odd)


def divide_rounded(numerator, denominator, negative, mode):
    """The rounded quotient of two magnitudes, and whether anything was lost."""
    quotient, rest = divmod(numerator, denominator)
    if not rest:
        return quotient, False
    return quotient + increases(mode, negative, quotient & 1, 2 * rest - denominator), True


def move(magnitude, places, negative, mode):
    """The magnitude times 10^places, rounded when places is negative, and whether anything was lost."""
    if places >= 0:
        return magnitude * POWER_OF_TEN[min(places, FARTHEST)], False
    return divide_rounded(magnitude, POWER_OF_TEN[min(-places, FARTHEST)], negative, mode)


def settle(magnitude, negative, inexact):
    """Status and coefficient of a finished magnitude. 2^127 is out of range for either sign: its pattern is NaN."""
    if magnitude > LIMIT:
        return (UNDERFLOW if negative else OVERFLOW), NAN
    return (INEXACT if inexact else OK), (-magnitude if negative else magnitude)
