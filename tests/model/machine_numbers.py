# SPDX-License-Identifier: MIT
"""Conversions to and from machine integers and doubles. A double is its bit pattern, a 64-bit integer."""

from rounding import (FARTHEST, HALF_EVEN, INEXACT, INVALID_ARGUMENT, NAN, NOT_A_NUMBER, OK, OVERFLOW, POWER_OF_TEN,
                      UNDERFLOW, UNTOUCHED, increases, move, settle)


def integer_to_number(value, info):
    scale, mode = info
    if scale == 0:
        return OK, value
    if mode > HALF_EVEN:
        return INVALID_ARGUMENT, UNTOUCHED
    magnitude, inexact = move(abs(value), scale, value < 0, mode)
    return settle(magnitude, value < 0, inexact)


def long2num(value, info):
    return integer_to_number(value, info)


def int2num(value, info):
    return integer_to_number(value, info)


def number_to_integer(value, info, bits):
    """No mode rounds, only the lowest limb is rescaled, and no negative number passes at a scale other than zero."""
    scale, mode = info
    if value == NAN:
        return NOT_A_NUMBER, 0
    highest = 2**(bits - 1) - 1
    if scale == 0:
        if -highest - 1 <= value <= highest:
            return OK, value
        return (UNDERFLOW if value < 0 else OVERFLOW), 0
    if mode > HALF_EVEN:
        return INVALID_ARGUMENT, 0
    if value < 0:
        return UNDERFLOW, 0
    kept, lowest = value >> 32 << 32, value & 0xffffffff
    places = min(abs(scale), FARTHEST)
    if scale > 0:
        quotient, rest = divmod(value, POWER_OF_TEN[places])
        working, status = kept | quotient & 0xffffffff, (INEXACT if rest else OK)
    else:
        working, status = kept | lowest * POWER_OF_TEN[places] & 0xffffffff, OK
    if working > highest:
        return OVERFLOW, 0
    return status, working


def num2long(value, info):
    return number_to_integer(value, info, 64)


def num2int(value, info):
    return number_to_integer(value, info, 32)


NOTHING, BELOW_HALF, HALF, ABOVE_HALF = range(4)


class Dropped:
    """What a chain of steps dropped: how the last step's part stands to its half, and whether an earlier one dropped
    anything. What earlier steps dropped only breaks ties; that is all a later step knows of it."""

    __slots__ = ('last', 'earlier')

    def __init__(self):
        self.last = NOTHING
        self.earlier = False

    def step(self, rest, unit):
        if self.last != NOTHING:
            self.earlier = True
        twice = 2 * rest
        self.last = NOTHING if not rest else BELOW_HALF if twice < unit else HALF if twice == unit else ABOVE_HALF

    def anything(self):
        return self.last != NOTHING or self.earlier

    def rounded(self, magnitude, negative, mode):
        if not self.anything():
            return magnitude
        against_half = -1 if self.last < HALF else 1 if self.last > HALF or self.earlier else 0
        return magnitude + increases(mode, negative, magnitude & 1, against_half)


class Vector:
    """256 bits and the account of what their steps dropped or pushed out of the top."""

    __slots__ = ('bits', 'dropped', 'overflowed')

    def __init__(self, bits):
        self.bits = bits
        self.dropped = Dropped()
        self.overflowed = False

    def shift_right(self, amount):
        if amount == 0:
            return
        amount = min(amount, 300)  # 256 bits are gone after 257, and less than half of a unit with them
        self.dropped.step(self.bits & ((1 << amount) - 1), 1 << amount)
        self.bits >>= amount

    def divide(self, divisor):
        self.bits, rest = divmod(self.bits, divisor)
        self.dropped.step(rest, divisor)

    def set(self, bits):
        if bits >> 256:
            self.overflowed = True
            bits &= 2**256 - 1
        self.bits = bits

    def finished(self):
        """Further steps down change neither the bits nor the account."""
        return self.bits == 0 and self.dropped.last == NOTHING

    def shift_right_then_divide(self, shift, fives):
        self.shift_right(shift)
        while fives > 11 and not self.finished():
            self.divide(5**12)
            fives -= 12
        if 0 < fives <= 11:
            self.divide(5**fives)

    def shift_right_and_multiply(self, shift, fives):
        """Multiplications by turns with shifts that make room for them; a shift takes what room it needs or is left."""
        while fives and not self.overflowed:
            now = 28 if shift > 27 else shift
            self.shift_right(now)
            shift -= now
            step = min(fives, 12)
            self.set(self.bits * 5**step)
            fives -= step
        if not self.overflowed:
            self.shift_right(shift)

    def divide_and_shift_left(self, shift, fives):
        while (fives or shift) and not self.overflowed and not self.finished():
            step = min(fives, 12)
            if step:
                self.divide(5**step)
                fives -= step
            now = 27 if shift > 26 else shift
            self.set(self.bits << now)
            shift -= now


FRACTION = 2**52 - 1
INFINITY = 0x7ff << 52


def dbl2num(info, double):
    scale, mode = info
    negative = double >> 63 == 1
    field, fraction = double >> 52 & 0x7ff, double & FRACTION
    if field == 0 and fraction == 0:
        return OK, 0
    if field == 0x7ff:
        return (NOT_A_NUMBER if fraction else UNDERFLOW if negative else OVERFLOW), NAN
    # The value times 10^scale is vector * 2^exponent * 5^scale, the significand standing in the vector's top word.
    # The powers of two and of five are applied step by step, and what an early step drops stays lost.
    if field:
        vector, exponent = Vector((fraction | 2**52) << 192), field - 1023 - 52 - 192 + scale
    else:
        vector, exponent = Vector(fraction << 192), -1266 + scale
    if exponent < 0:
        if scale > 0:
            vector.shift_right_and_multiply(-exponent, scale)
        else:
            vector.shift_right_then_divide(-exponent, -scale)
    elif scale < 0:
        vector.divide_and_shift_left(exponent, -scale)
    else:
        vector.overflowed = True  # the significand starts above bit 191 and only grows
    if mode > HALF_EVEN:
        return INVALID_ARGUMENT, UNTOUCHED
    if vector.overflowed:
        return (UNDERFLOW if negative else OVERFLOW), NAN
    return settle(vector.dropped.rounded(vector.bits, negative, mode), negative, vector.dropped.anything())


def decimal_to_binary(magnitude, scale):
    """The magnitude times 10^-scale as a vector and the exponent of two that belongs to it."""
    vector, exponent = Vector(magnitude << 128), -128
    if scale > 0:
        while scale > 11 and exponent >= -2048:
            vector.divide(5**12)
            vector.bits <<= 27  # a division by 5^12 leaves more room than that
            exponent -= 39
            scale -= 12
        if 0 < scale < 12:
            vector.divide(5**scale)
            vector.bits <<= scale
            exponent -= 2 * scale
    else:
        fives = -scale
        while fives > 11 and exponent < 2049:
            vector.shift_right(28)
            vector.set(vector.bits * 5**12)
            exponent += 40
            fives -= 12
        if 0 < fives < 12:
            # The shift makes less room than the multiplication takes: large magnitudes lose their top bits unnoticed.
            vector.shift_right(fives)
            vector.set(vector.bits * 5**fives)
            exponent += 2 * fives
    return vector, exponent


def num2dbl(value, info):
    scale, mode = info
    if value == 0:
        return OK, 0
    if value == NAN:
        return NOT_A_NUMBER, 2**64 - 1
    negative = value < 0
    sign = 2**63 if negative else 0
    vector, exponent = decimal_to_binary(abs(value), scale)
    length = vector.bits.bit_length()
    biased = exponent + length + 1022
    if biased > 2046:
        return (UNDERFLOW if negative else OVERFLOW), sign | INFINITY
    normal = biased >= 1
    vector.shift_right(length - 53 if normal else -exponent - 1074)
    if mode > HALF_EVEN:
        # Too small for a normal double, the cut-off significand is written all the same.
        return INVALID_ARGUMENT, (UNTOUCHED if normal else sign | vector.bits & FRACTION)
    significand = vector.dropped.rounded(vector.bits, negative, mode)
    status = INEXACT if vector.dropped.anything() else OK
    if not normal:
        # A carry into the smallest normal double is masked away and leaves zero.
        return status, sign | significand & FRACTION
    if significand >> 53:
        # Above the largest exponent this is infinity, reported as an ordinary rounding.
        significand >>= 1
        biased += 1
    return status, sign | biased << 52 | significand & FRACTION
