# SPDX-License-Identifier: MIT
"""What arithmetic on coefficients returns: exact integers and one rounding, except where an operation keeps less.

Operands come in the order of the C prototypes; an info is a pair (scale, rounding mode). Every function returns
(status, output). The output of an in-place operation is what its operand holds afterwards.
"""

from rounding import (CEILING, FARTHEST, FLOOR, HALF_EVEN, INEXACT, INVALID_ARGUMENT, LIMIT, NAN, NOT_A_NUMBER, OK,
                      OVERFLOW, POWER_OF_TEN, UNDERFLOW, UNTOUCHED, divide_rounded, increases, move, settle)


def set_zero():
    return None, 0


def set_nan():
    return None, NAN


def is_zero(value):
    return int(value == 0), UNTOUCHED


def is_nan(value):
    return int(value == NAN), UNTOUCHED


def in_range(exact):
    """An exact signed result, or NaN with the status that the sign of the exact result chooses."""
    return settle(abs(exact), exact < 0, False)


def add(a, b):
    if a == NAN or b == NAN:
        return NOT_A_NUMBER, NAN
    return in_range(a + b)


def sub(a, b):
    if a == NAN or b == NAN:
        return NOT_A_NUMBER, NAN
    return in_range(a - b)


def order(a, b):
    """The sign of b - a: positive when a is the smaller one."""
    return (b > a) - (b < a)


def cmp(a, b):
    # NaN takes part as the integer of its pattern, below every number.
    return order(a, b), UNTOUCHED


def truncated(coefficient, scale, places, mode):
    """The coefficient with the digits beyond `places` decimal places rounded to zeros, still at its own scale."""
    if coefficient == NAN:
        return NOT_A_NUMBER, NAN
    if mode > HALF_EVEN:
        return INVALID_ARGUMENT, coefficient
    dropped = min(scale - places, FARTHEST)
    if dropped <= 0:
        return OK, coefficient
    negative = coefficient < 0
    kept, inexact = move(abs(coefficient), -dropped, negative, mode)
    return settle(kept * POWER_OF_TEN[dropped], negative, inexact)


def ceil(info, places, value):
    return truncated(value, info[0], places, CEILING)


def floor(info, places, value):
    return truncated(value, info[0], places, FLOOR)


def round_to_places(info, places, value):
    return truncated(value, info[0], places, info[1])


def mul(value, multiplier):
    if value == NAN:
        return NOT_A_NUMBER, NAN
    if multiplier == 0:
        return OK, 0
    product = value * multiplier
    # A negative multiplier negates the three lower limbs but not the top one, and no operand survives the range check
    # that follows. A product of exactly -2^127 passes it, although its pattern is NaN.
    if multiplier < 0 or not -LIMIT - 1 <= product <= LIMIT:
        return UNDERFLOW, NAN
    return OK, product


def machine_dividend(value):
    """What division by a machine integer divides: for a negative value the top limb is the one before negation."""
    if value >= 0:
        return value
    top_limb = (value >> 96) & 0xffffffff
    return top_limb << 96 | -value & (2**96 - 1)


def div(value, info, divisor):
    if value == NAN:
        return NOT_A_NUMBER, NAN
    if divisor == 0:
        return NOT_A_NUMBER, NAN
    if abs(divisor) == 1:
        return OK, value
    mode = info[1]
    negative = (value < 0) != (divisor < 0)
    sign = -1 if negative else 1
    quotient, rest = divmod(machine_dividend(value), abs(divisor))
    if mode > HALF_EVEN:
        return INVALID_ARGUMENT, sign * quotient
    if rest == 0:
        return OK, sign * quotient
    quotient += increases(mode, negative, quotient & 1, 2 * rest - abs(divisor))
    # The quotient is not checked again: rounded up to 2^127 its pattern is NaN for either sign.
    return INEXACT, (NAN if quotient > LIMIT else sign * quotient)


# A 128-bit number whose four 32-bit limbs all equal one another is a multiple of this one.
EQUAL_LIMBS = 2**96 + 2**64 + 2**32 + 1


def capped_power_of_ten(places):
    """Ten steps of eight places at the most, and the last step of fewer than eight."""
    return 10**(8 * min(places // 8, 10) + places % 8)


def rescale(from_info, to_info, value):
    if value == NAN:
        return NOT_A_NUMBER, NAN
    places = to_info[0] - from_info[0]
    if places == 0:
        return OK, value
    if places > 0:
        wide = value * capped_power_of_ten(places)
    else:
        if from_info[1] > HALF_EVEN or to_info[1] > HALF_EVEN:
            return INVALID_ARGUMENT, value
        # The rounding's status is not looked at. When it went out of range, NaN's pattern goes on as -2^127.
        _, rounded = truncated(value, from_info[0], to_info[0], to_info[1])
        wide = abs(rounded) // POWER_OF_TEN[min(-places, FARTHEST)]
        if rounded < 0:
            wide = -wide
    # All this happens modulo 2^256, and two checks on the pattern decide: the sign bit of the lower half against the
    # source's, and the limbs of the upper half against one another.
    wide %= 2**256
    upper, lower = divmod(wide, 2**128)
    if lower >> 127 != (value < 0) or upper % EQUAL_LIMBS:
        return OVERFLOW, NAN
    return OK, (lower - 2**128 if lower >> 127 else lower)


def align(a, a_scale, b, b_scale):
    """(common scale, a there, b there, sign of what a lost, sign of what b lost).

    Up to 38 places apart nothing is lost. Beyond, the operand with fewer decimals gets as many guard digits as 256 bits
    hold for certain, and the other one is cut off there. A zero has no scale of its own.
    """
    if a == 0:
        return b_scale, 0, b, 0, 0
    if b == 0:
        return a_scale, a, 0, 0, 0
    distance = b_scale - a_scale
    if -38 <= distance <= 0:
        return a_scale, a, b * POWER_OF_TEN[-distance], 0, 0
    if 0 < distance <= 38:
        return b_scale, a * POWER_OF_TEN[distance], b, 0, 0
    if distance < 0:
        common, b_there, a_there, lost = with_guard_digits(b, b_scale, a, a_scale)
        return common, a_there, b_there, lost, 0
    common, a_there, b_there, lost = with_guard_digits(a, a_scale, b, b_scale)
    return common, a_there, b_there, 0, lost


def with_guard_digits(coarse, coarse_scale, fine, fine_scale):
    guard = 48 if -2**64 <= coarse < 2**64 else 38
    places = guard - (fine_scale - coarse_scale)
    negative = fine < 0
    if places >= 0:
        there, lost = abs(fine) * POWER_OF_TEN[places], 0
    else:
        there, lost = divmod(abs(fine), POWER_OF_TEN[min(-places, FARTHEST)])
    sign = -1 if negative else 1
    return coarse_scale + guard, coarse * POWER_OF_TEN[guard], sign * there, (sign if lost else 0)


def any_invalid(*infos):
    return any(mode > HALF_EVEN for _, mode in infos)


def rescaling_sum(a_info, b_info, result_info, a, b, sign_of_b):
    """a + sign_of_b * b, where sign_of_b is 1 or -1."""
    if a == NAN or b == NAN:
        return NOT_A_NUMBER, NAN
    if any_invalid(a_info, b_info, result_info):
        return INVALID_ARGUMENT, UNTOUCHED
    scale, mode = result_info
    common, a_there, b_there, a_lost, b_lost = align(a, a_info[0], b, b_info[0])
    # What an operand lost is replaced by one whole unit of the common scale in its direction. This is not always the
    # same as rounding the exact sum: a fraction within one unit of a tie or of the next result becomes that very point.
    adjust = a_lost + sign_of_b * b_lost
    total = a_there + sign_of_b * b_there + adjust
    magnitude, inexact = move(abs(total), scale - common, total < 0, mode)
    return settle(magnitude, total < 0, inexact or adjust != 0)


def rescaling_add(a_info, b_info, result_info, a, b):
    return rescaling_sum(a_info, b_info, result_info, a, b, 1)


def rescaling_sub(a_info, b_info, result_info, a, b):
    return rescaling_sum(a_info, b_info, result_info, a, b, -1)


def rescaling_cmp(a_info, b_info, a, b):
    if any_invalid(a_info, b_info):
        return INVALID_ARGUMENT, UNTOUCHED
    if a_info[0] == b_info[0]:
        return order(a, b), UNTOUCHED
    if a == NAN:
        return 1, UNTOUCHED
    if b == NAN:
        return -1, UNTOUCHED
    # Exact values decide. More than FARTHEST places apart, a nonzero operand with fewer decimals outweighs the other.
    distance = max(-FARTHEST, min(b_info[0] - a_info[0], FARTHEST))
    if distance > 0:
        a *= POWER_OF_TEN[distance]
    else:
        b *= POWER_OF_TEN[-distance]
    return order(a, b), UNTOUCHED


def rescaling_mul(a_info, b_info, result_info, a, b):
    if a == NAN or b == NAN:
        return NOT_A_NUMBER, NAN
    if any_invalid(a_info, b_info, result_info):
        return INVALID_ARGUMENT, UNTOUCHED
    scale, mode = result_info
    # The distance of the scales is the one place where scales wrap: it is a 32-bit number.
    places = (scale - (a_info[0] + b_info[0]) + 2**31) % 2**32 - 2**31
    negative = (a < 0) != (b < 0)
    magnitude, inexact = move(abs(a) * abs(b), places, negative, mode)
    return settle(magnitude, negative, inexact)


def unnoticed_loss(dividend, divisor):
    """Whether the dividend loses bits that division does not notice.

    A divisor of one word is moved up by a word and the dividend with it. Only the lower half of the word that leaves
    the dividend's 256 bits is looked at; with that half zero, the upper half goes unseen.
    """
    return divisor < 2**64 and 2**224 <= dividend < 2**256 and not dividend >> 192 & 0xffffffff


def rescaling_div(a_info, b_info, result_info, a, b):
    if a == NAN or b == NAN:
        return NOT_A_NUMBER, NAN
    if any_invalid(a_info, b_info, result_info):
        return INVALID_ARGUMENT, UNTOUCHED
    if b == 0:
        return NOT_A_NUMBER, NAN
    scale, mode = result_info
    places = scale - (a_info[0] - b_info[0])
    negative = (a < 0) != (b < 0)
    dividend, divisor = abs(a), abs(b)
    if places >= 0:
        dividend *= POWER_OF_TEN[min(places, FARTHEST)]
        if unnoticed_loss(dividend, divisor):
            dividend %= 2**192
    else:
        divisor *= POWER_OF_TEN[min(-places, FARTHEST)]
    quotient, inexact = divide_rounded(dividend, divisor, negative, mode)
    return settle(quotient, negative, inexact)
