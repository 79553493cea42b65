# SPDX-License-Identifier: MIT
"""Draws calls of the operations on values of one scale, of truncation and of rescale."""

from arithmetic import EQUAL_LIMBS, capped_power_of_ten
from cells import ONE, TWO, WIDE
from goals import infos, narrow, with_nan
from rounding import CEILING, FLOOR, LIMIT, NAN, UP
from shapes import INT32_MAX, INT32_MIN, fit32


def set_value(source, goal):
    return ()


def predicate(source, goal):
    if source.chance(0.3):
        return (source.pick((0, NAN)),)
    # Patterns next to those of zero and NaN: one half is theirs.
    if source.chance(0.3):
        return (source.pick((1, 2**32, 2**63, 2**64, -LIMIT, NAN + 2**32, NAN + 2**63, NAN + 2**64, 2**126)),)
    return (source.coefficient(narrow(goal)),)


def beyond(source):
    """Two magnitudes whose sum is out of range, often by very little."""
    a = LIMIT - source.upto(LIMIT - 1)
    return a, LIMIT - a + 1 + source.pick((0, 0, 1, source.upto(a - 1)))


def same_scale_sum(source, goal):
    if goal.outcome == 'NAN':
        return with_nan(source)
    if goal.out_of_range:
        a, b = beyond(source)
        b = min(b, LIMIT)
        return (-a, -b) if goal.negative else (a, b)
    if goal.width == TWO and source.chance(0.3):
        a = source.upto(LIMIT)
        return source.signed(a), source.signed(LIMIT - a)
    return source.coefficient(goal.width), source.coefficient(goal.width if source.chance(0.5) else ONE)


def same_scale_difference(source, goal):
    a, b = same_scale_sum(source, goal)
    return a, (b if b == NAN else -b)


def compare(source, goal):
    a = source.coefficient(goal.width)
    if source.chance(0.1):
        return with_nan(source)
    if goal.outcome == 'a = b':
        return a, a
    if source.chance(0.3):
        # One half equal, the other not.
        b = a + source.signed(source.pick((1, 2**63, 2**64, 2**32)))
        return a, (b if -LIMIT <= b <= LIMIT else -a)
    return a, source.coefficient(goal.width)


def truncation(source, goal):
    """(scale, places, coefficient); nothing is dropped when places are not fewer than the scale's."""
    scale = source.anchor()
    if goal.outcome == 'NAN':
        return source.scale(), source.scale(), NAN
    if goal.out_of_range:
        dropped = 1 + source.under(38) if source.chance(0.7) else 39 + source.under(80)
        unit = 10**min(dropped, 120)
        largest = LIMIT // unit * unit
        if source.chance(0.5) and LIMIT - largest > unit // 2:
            value = largest + unit // 2 + source.upto(LIMIT - largest - unit // 2)
        elif dropped > 38:
            value = max(1, source.upto(LIMIT))
        else:
            value = LIMIT - source.upto(LIMIT - largest)
        return scale, scale - dropped, -value if goal.negative else value
    largest = 2**63 - 1 if goal.width == ONE else LIMIT * 9 // 10
    if goal.exact and source.chance(0.4):
        return scale, fit32(source.pick((scale, scale + source.distance(), INT32_MAX))), source.coefficient(goal.width)
    dropped = 1 + source.under(18 if goal.width == ONE else 37)
    if source.chance(0.15):
        dropped += 40 if not source.chance(0.1) else 2**31
        value = 0 if goal.exact else source.magnitude(goal.width)
    else:
        value = source.multiple(10**dropped, largest, goal.exact)
    if dropped > 2**30:
        scale = max(scale, 200)
    return scale, fit32(scale - dropped), source.signed(value)


def truncation_by_own_mode(source, goal):
    """Ceil and Floor bring a mode of their own; any mode in the info goes unseen."""
    scale, places, value = truncation(source, goal)
    return (scale, source.invalid_mode() if source.chance(0.2) else source.mode()), places, value


def truncation_by_mode(source, goal):
    scale, places, value = truncation(source, goal)
    return (scale, goal.mode), places, value


MULTIPLIERS = (1, 2, 3, 7, 8, 10, 100, 10**8, 10**9, 2**16, 2**24, 2**30, 2**30 - 1, 2**30 + 1, INT32_MAX - 1,
               INT32_MAX)


def multiplier(source):
    return source.pick(MULTIPLIERS) if source.chance(0.6) else 1 + source.getrandbits(1 + source.under(30)) % INT32_MAX


def machine_product(source, goal):
    factor = multiplier(source)
    if goal.outcome == 'NAN':
        return NAN, source.pick((0, factor, -factor))
    if goal.outcome == 'OK':
        if goal.width == WIDE:
            shift = 1 + source.under(30)
            return -2**(127 - shift), 2**shift
        if source.chance(0.1):
            return source.coefficient(goal.width), 0
        return source.signed(source.upto(min(2**63 - 1 if goal.width == ONE else LIMIT, LIMIT // factor))), factor
    if goal.width == WIDE:
        smallest = LIMIT // factor + 1
        value = min(smallest + source.pick((0, 1, source.upto(LIMIT))), LIMIT)
        return source.signed(value), factor if source.chance(0.8) else -factor
    factor = source.pick((-1, -2, -factor, INT32_MIN))
    return source.signed(source.upto(min(2**63 - 1 if goal.width == ONE else LIMIT, LIMIT // -factor))), factor


DIVISORS = (2, 3, 5, 7, 10, 255, 256, 10**8, 10**9, 2**24 - 1, 2**24, 2**30 - 1, 2**30, 2**30 + 1, INT32_MAX - 1,
            INT32_MAX, 2**31)


def negative_with_dividend(dividend):
    """The negative value whose own top limb, joined to the lower limbs of its magnitude, is the dividend (>= 2^127)."""
    top, lower = divmod(dividend, 2**96)
    return (top << 96 | -lower % 2**96) - 2**128


def machine_quotient(source, goal):
    info = (source.scale(), goal.mode)
    divisor = source.pick(DIVISORS) if source.chance(0.6) else 2 + source.getrandbits(1 + source.under(31)) % INT32_MAX
    signed = -divisor if divisor == 2**31 or source.chance(0.5) else divisor
    if goal.outcome == 'NAN':
        if goal.width == TWO and source.chance(0.5):
            return NAN, info, source.pick((0, 1, -1, signed))
        return source.coefficient(goal.width), info, 0
    if goal.outcome == 'OK' and (not goal.valid or source.chance(0.1)):
        return source.coefficient(goal.width), info, source.pick((1, -1))
    exact = goal.outcome == 'OK' or (goal.outcome == 'INVALID_ARGUMENT' and source.chance(0.3))
    part = 0 if exact else source.part(divisor)
    if goal.width == WIDE:
        lowest = 2**127 // divisor + 1
        highest = 2**128 // divisor - 1
        quotient = source.pick((highest, lowest, lowest + source.getrandbits(128) % (highest - lowest + 1)))
        return negative_with_dividend(quotient * divisor + part), info, signed
    largest = 2**63 - 1 if goal.width == ONE else LIMIT
    return source.upto((largest - part) // divisor) * divisor + part, info, signed


def first_in_range(step, modulus, low, high):
    """The smallest n >= 0 with low <= n * step mod modulus <= high, or None. Euclid's algorithm on step and modulus."""
    if low == 0:
        return 0
    if step == 0:
        return None
    count = -(-low // step)
    if count * step <= high:
        return count
    turns = first_in_range(modulus % step, step, -high % step, -low % step)
    return None if turns is None else -(-(low + modulus * turns) // step)


def wrapped_rescale(source):
    """(coefficient, places): a product far beyond 256 bits whose pattern passes both range checks."""
    while True:
        places = 30 + source.under(90)
        negative = source.chance(0.5)
        low = (1 + source.getrandbits(32) % (2**32 - 1)) * EQUAL_LIMBS << 128
        if negative:
            low += 2**127
        high = low + 2**127 - 1
        if negative:
            low, high = 2**256 - high, 2**256 - low
        magnitude = first_in_range(capped_power_of_ten(places) % 2**256, 2**256, low, high)
        if magnitude is not None and 0 < magnitude <= LIMIT:
            return -magnitude if negative else magnitude, places


def rescale_numbers(source, goal):
    """(coefficient, places)"""
    if goal.outcome == 'NAN':
        return NAN, source.signed(source.distance())
    if goal.outcome == 'INVALID_ARGUMENT':
        return source.coefficient(goal.width), -1 - source.distance()
    rounds = goal.valid
    if goal.outcome == 'OK':
        if goal.width == WIDE:
            if not rounds or source.chance(0.5) or goal.mode not in (UP, CEILING, FLOOR):
                return wrapped_rescale(source)
            if source.chance(0.5):
                _, dropped, value = truncation(source, goal._replace(outcome='UNDERFLOW'))
                return value, -(1 + source.under(38))
            return source.magnitude(), -39 - source.under(80)
        if source.chance(0.1):
            return source.coefficient(goal.width), 0
        largest = 2**63 - 1 if goal.width == ONE else LIMIT
        if not rounds or source.chance(0.4):
            places = 1 + source.under(20)
            return source.signed(source.upto(min(largest, LIMIT // 10**places))), places
        places = 1 + source.under(18 if goal.width == ONE else 37)
        value = source.multiple(10**places, min(largest, LIMIT * 9 // 10), source.chance(0.3))
        return source.signed(value), -places
    if goal.width == WIDE:
        if not rounds or source.chance(0.6) or goal.mode not in (UP, CEILING, FLOOR):
            value = source.magnitude()
            places = len(str(LIMIT // value)) + source.under(4) if value else 1
            return source.signed(value), source.pick((places, places, 39 + source.under(80), 2**31))
        dropped = 1 + source.under(38)
        return LIMIT - source.upto(LIMIT % 10**dropped), -dropped
    value = source.magnitude(goal.width)
    return -value, -(len(str(value)) + source.under(5)) if source.chance(0.8) else -2**31


def rescale(source, goal):
    value, places = rescale_numbers(source, goal)
    scale = source.anchor() if abs(places) < 2**30 else INT32_MIN if places > 0 else INT32_MAX
    return infos(source, goal, scale, fit32(scale + places)) + (value,)


DRAWING = {
    'SetZero': set_value, 'SetNan': set_value, 'IsZero': predicate, 'IsNan': predicate,
    'Add': same_scale_sum, 'Sub': same_scale_difference, 'Cmp': compare,
    'Ceil': truncation_by_own_mode, 'Floor': truncation_by_own_mode, 'Round': truncation_by_mode,
    'Mul': machine_product, 'Div': machine_quotient, 'Rescale': rescale,
}
