# SPDX-License-Identifier: MIT
"""Draws calls: each drawing function aims at one cell of the table and mostly hits it.

A drawing function takes a source of randomness and the goal (mode, outcome, width) and returns the call's arguments.
Whatever it returns is a legal call; where it lands is decided by the model.
"""

import struct
from typing import NamedTuple

from arithmetic import EQUAL_LIMBS, capped_power_of_ten
from cells import BY_MODE, INVALID, ONE, TWO, WIDE, cell_of
from library import Case, LARGEST_TEXT
from model import OPERATIONS
from reachability import reachable_cells
from rounding import CEILING, FLOOR, HALF_EVEN, LIMIT, NAN, UP
from shapes import INT32_MAX, INT32_MIN, Source, fit32, wrap32
from text import WRAPPING_SIZE, exponent_suffix, grouped_by_three, number_text


class Goal(NamedTuple):
    mode: int
    outcome: str
    width: str

    @property
    def negative(self):
        return self.outcome == 'UNDERFLOW'

    @property
    def exact(self):
        return self.outcome != 'INEXACT'

    @property
    def valid(self):
        return self.mode <= HALF_EVEN

    @property
    def out_of_range(self):
        return self.outcome in ('OVERFLOW', 'UNDERFLOW')


def infos(source, goal, *scales):
    """Infos for the scales. The last one's mode is the goal's; one invalid mode may stand in any of them."""
    modes = [source.mode() for _ in scales]
    if goal.valid:
        modes[-1] = goal.mode
    else:
        modes[source.under(len(scales))] = goal.mode
        if source.chance(0.3):
            modes = [source.invalid_mode() if source.chance(0.5) else mode for mode in modes]
            modes[source.under(len(scales))] = goal.mode
    return tuple(zip(scales, modes))


def narrow(goal):
    return goal.width if goal.width in (ONE, TWO) else None


def set_value(source, goal):
    return ()


def predicate(source, goal):
    if source.chance(0.3):
        return (source.pick((0, NAN)),)
    # Patterns next to those of zero and NaN: one half is theirs.
    if source.chance(0.3):
        return (source.pick((1, 2**32, 2**63, 2**64, -LIMIT, NAN + 2**32, NAN + 2**63, NAN + 2**64, 2**126)),)
    return (source.coefficient(narrow(goal)),)


def with_nan(source):
    """Two operands, at least one of them NaN."""
    other = source.coefficient()
    return source.pick(((NAN, other), (other, NAN), (NAN, NAN), (NAN, 0), (0, NAN)))


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
    return max(scale, INT32_MIN + 2**31 + 200) if dropped > 2**30 else scale, fit32(scale - dropped), source.signed(value)


def truncation_by_own_mode(source, goal):
    """Ceil and Floor bring a mode of their own; any mode in the info goes unseen."""
    scale, places, value = truncation(source, goal)
    return (scale, source.invalid_mode() if source.chance(0.2) else source.mode()), places, value


def truncation_by_mode(source, goal):
    scale, places, value = truncation(source, goal)
    return (scale, goal.mode), places, value


MULTIPLIERS = (1, 2, 3, 7, 8, 10, 100, 10**8, 10**9, 2**16, 2**24, 2**30, 2**30 - 1, 2**30 + 1, INT32_MAX - 1, INT32_MAX)


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


DIVISORS = (2, 3, 5, 7, 10, 255, 256, 10**8, 10**9, 2**24 - 1, 2**24, 2**30 - 1, 2**30, 2**30 + 1, INT32_MAX - 1, INT32_MAX,
            2**31)


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


def swapped_sum(source, goal, coarse, fine, base, apart, result_scale):
    """Arguments for a sum in either order of its operands."""
    scales = (base, fit32(base + apart))
    if source.chance(0.5):
        return infos(source, goal, *scales, fit32(result_scale)) + (coarse, fine)
    return infos(source, goal, *reversed(scales), fit32(result_scale)) + (fine, coarse)


def sum_in_two_words(source, exact, width):
    """(coarse, fine, apart, dropped), everything within 127 bits: a total made first and then split."""
    room = 2**62 if width == ONE else 2**126
    if exact and source.chance(0.2):
        return source.signed(source.upto(room)), source.signed(source.upto(room)), 0, 0
    apart = source.under(18 if width == ONE else 37)
    if exact and source.chance(0.4):
        up = source.under(12)
        coarse = source.upto(min(room, LIMIT // 10**up // 2) // 10**apart)
        return source.signed(coarse), source.signed(source.upto(min(room, LIMIT // 10**up // 2))), apart, -up
    dropped = 1 + source.under(18 if width == ONE else 45)
    coarse = source.signed(source.upto(room // 10**apart))
    total = source.signed(source.multiple(10**dropped, room, exact))
    return coarse, total - coarse * 10**apart, apart, dropped


def long_aligned_sum(source, exact):
    """(coarse, fine, apart, dropped): up to 38 places apart, the coarse operand beyond 127 bits at the common scale."""
    apart = 20 + source.under(19)
    coarse = LIMIT // 10**apart + 1 + source.upto(LIMIT - LIMIT // 10**apart - 1)
    dropped = max(1, len(str(coarse * 10**apart)) - 38 + source.under(4) + source.under(2) * source.under(20))
    unit = 10**dropped
    if dropped <= apart:
        fine = source.multiple(unit, LIMIT, exact)
        if exact and fine == 0:
            fine = unit
        return source.signed(coarse), source.signed(min(fine, LIMIT)), apart, dropped
    # The dropped digits reach into the coarse operand: shape its end, and let the other complete it or add a trace.
    coarse_unit = 10**(dropped - apart)
    whole_units = max(1, coarse // coarse_unit) * coarse_unit
    if exact:
        sign = source.signed(1)
        return sign * (whole_units - 1), sign * 10**apart, apart, dropped
    coarse = whole_units - source.pick((0, coarse_unit // 2, source.part(coarse_unit)))
    return source.signed(coarse), source.signed(source.pick((1, 2, source.magnitude()))), apart, dropped


def far_apart_sum(source, exact, largest_distance=2**31):
    """(coarse, fine, apart, places of the result behind the coarse scale): more than 38 places apart.

    The fine operand is built around the points where what is kept of it completes, or halves, a unit of the result.
    """
    coarse = source.magnitude()
    while coarse == 0:
        coarse = source.magnitude()
    guard = 48 if coarse < 2**64 else 38
    kind = source.under(10)
    apart = 39 + source.under(12) if kind < 6 else 39 + source.under(90) if kind < 9 else largest_distance
    most = len(str(LIMIT // coarse)) - 1
    places = most - source.under(4) if source.chance(0.7) else most - source.under(60)
    if exact:
        zeros = min(apart - places, 120)
        fine = 10**zeros * max(1, source.upto(max(1, LIMIT // 10**zeros)))
        return (coarse, min(fine, LIMIT), apart, places)
    unit = 10**(guard - places)
    kept = source.upto(LIMIT // unit) * unit + source.pick((0, unit, unit // 2, unit - unit // 2)) + source.under(5) - 2
    cut = min(apart - guard, 120)
    if cut <= 0:
        fine = kept // 10**-cut
    elif source.chance(0.8):
        fine = kept * 10**cut + source.pick((0, 1, 10**cut // 2, 10**cut - 1))
    else:
        fine = source.magnitude()
    if not 0 < fine <= LIMIT:
        fine = source.magnitude()
    return source.signed(coarse), source.signed(fine), apart, places


def sum_out_of_range(source):
    """(coarse, fine, apart, dropped), both operands positive."""
    kind = source.under(10)
    if kind < 3:
        a, b = beyond(source)
        return a, min(b, LIMIT), 0, 0
    if kind < 8:
        dropped = source.under(37)
        apart = dropped + source.under(39 - dropped)
        total = (LIMIT + source.pick((0, 0, 1, 1, source.upto(10**apart)))) * 10**dropped
        if dropped:
            total += source.part(10**dropped)
        coarse, fine = divmod(total, 10**apart)
        if coarse > LIMIT:
            coarse, fine = LIMIT, min(total - LIMIT * 10**apart, LIMIT)
        elif coarse < LIMIT and fine and source.chance(0.3) and 10**apart - fine <= LIMIT:
            coarse, fine = coarse + 1, fine - 10**apart
        return coarse, fine, apart, dropped
    coarse = 1 + source.upto(LIMIT - 1)
    return coarse, source.upto(LIMIT), source.distance(), -len(str(LIMIT // coarse)) - source.pick((0, 1, 40, 100))


def rescaling_sum(source, goal):
    base = source.anchor(span=250)
    if goal.outcome in ('NAN', 'INVALID_ARGUMENT'):
        apart = source.pick((0, 0, source.distance()))
        a, b = with_nan(source) if goal.outcome == 'NAN' else (source.coefficient(goal.width) for _ in range(2))
        return swapped_sum(source, goal, a, b, base, apart, source.pick((base, source.scale())))
    if goal.out_of_range:
        coarse, fine, apart, dropped = sum_out_of_range(source)
        sign = -1 if goal.negative else 1
        return swapped_sum(source, goal, sign * coarse, sign * fine, base, apart, base + apart - dropped)
    if goal.width != WIDE:
        coarse, fine, apart, dropped = sum_in_two_words(source, goal.exact, goal.width)
    elif source.chance(0.4):
        coarse, fine, apart, dropped = long_aligned_sum(source, goal.exact)
    else:
        coarse, fine, apart, places = far_apart_sum(source, goal.exact)
        if apart == 2**31:
            base = INT32_MIN + 200
        return swapped_sum(source, goal, coarse, fine, base, apart, base + places)
    return swapped_sum(source, goal, coarse, fine, base, apart, base + apart - dropped)


def rescaling_difference(source, goal):
    arguments = rescaling_sum(source, goal)
    b = arguments[4]
    return arguments[:4] + (b if b == NAN else -b,)


def rescaling_compare(source, goal):
    base = source.anchor()
    if not goal.valid or source.chance(0.1):
        scales = base, base + source.pick((0, source.distance()))
        return infos(source, goal, *scales) + (with_nan(source) if source.chance(0.4) else
                                               (source.coefficient(goal.width), source.coefficient(goal.width)))
    if goal.width == WIDE:
        if source.chance(0.5):
            coarse, fine, apart, _ = long_aligned_sum(source, source.chance(0.5))
        else:
            coarse, fine, apart, _ = far_apart_sum(source, source.chance(0.5), 2**31 - 1000)
            base = min(base, 500) if apart > 2**30 else base
    else:
        largest = 2**63 - 1 if goal.width == ONE else LIMIT
        apart = source.under(18 if goal.width == ONE else 37) if source.chance(0.8) else 0
        coarse = source.upto(largest // 10**apart)
        fine = coarse * 10**apart
        if goal.outcome != 'a = b' and fine < largest:
            fine += source.pick((1, -1, source.upto(largest - fine)))
        sign = source.signed(1)
        coarse, fine = sign * coarse, sign * fine
    scales = base, fit32(base + apart)
    if source.chance(0.5):
        return infos(source, goal, *scales) + (coarse, fine)
    return infos(source, goal, *reversed(scales)) + (fine, coarse)


def factors(source, goal):
    """(a, b, dropped), all magnitudes."""
    bounds = {ONE: (2**63 - 1, 2**63 - 1), TWO: (LIMIT, LIMIT), WIDE: (LIMIT, LIMIT)}[goal.width]
    if goal.out_of_range:
        if source.chance(0.5):
            dropped = source.under(38)
            target = (LIMIT + source.pick((0, 1, 1, 2))) * 10**dropped
            if dropped:
                target += source.part(10**dropped)
            smallest = target // LIMIT + 1
            b = smallest + source.upto(LIMIT - smallest)
            return target // b + source.under(2), b, dropped
        a, b = 1 + source.upto(LIMIT - 1), 1 + source.upto(LIMIT - 1)
        return a, b, len(str(a * b)) - 40 - source.pick((0, 1, source.distance()))
    if goal.exact:
        if goal.width == WIDE:
            i, j = 10 + source.under(25), 10 + source.under(25)
            x = 1 + source.upto(LIMIT // 10**i - 1)
            y = 1 + source.upto(min(LIMIT // 10**j, LIMIT // x) - 1)
            return x * 10**i, y * 10**j, i + j - (source.under(3) if x * y < LIMIT // 10**3 else 0)
        i, j = (source.under(9), source.under(9)) if source.chance(0.6) else (0, 0)
        a = max(1, source.upto(bounds[0] // 10**i)) * 10**i
        b = source.upto(min(bounds[1], LIMIT // a) // 10**j) * 10**j
        if source.chance(0.5):
            a, b = b, a
        if i + j == 0 and a * b:
            return a, b, -source.under(len(str(LIMIT // (a * b))))
        return a, b, source.under(i + j + 1)
    kind = source.under(3)
    if kind == 0:
        # An exact half: an odd number times 5 times a power of ten.
        i, j = 1 + source.under(8), source.under(8)
        a = 5 * 10**(i - 1) * max(1, source.upto(bounds[0] // 10**i))
        b = 10**j * max(1, source.upto(min(bounds[1], LIMIT // a if goal.width != WIDE else LIMIT) // 10**j))
        dropped = i + j
    elif kind == 1:
        dropped = 1 + source.under(18 if goal.width == ONE else 37)
        value = source.multiple(10**dropped, bounds[0], False)
        b = source.pick([factor for factor in (1, 2, 4, 5, 8, 10, 16, 25) if value % factor == 0])
        a = value // b
        if goal.width == WIDE:
            b = b * 10**min(38 - len(str(b)), 20)
            dropped += 20
    else:
        a = max(1, source.magnitude(narrow(goal)))
        b = max(1, source.upto(min(bounds[1], LIMIT // a) if goal.width != WIDE else LIMIT))
        dropped = 1 + source.under(20)
    digits = len(str(a * b))
    if goal.width == WIDE and digits - dropped > 38:
        dropped = digits - 38 + source.under(3)
    return a, b, dropped


def rescaling_product(source, goal):
    if goal.outcome == 'NAN':
        (a, b), dropped = with_nan(source), source.under(40)
    elif goal.outcome == 'INVALID_ARGUMENT':
        a, b, dropped = source.coefficient(goal.width), source.coefficient(ONE), source.under(40)
    else:
        a, b, dropped = factors(source, goal)
        a, b = min(a, LIMIT), min(b, LIMIT)
        negative = goal.negative if goal.out_of_range else source.chance(0.5)
        sign = source.signed(1)
        a, b = sign * a, -sign * b if negative else sign * b
    a_scale, b_scale = source.scale(), source.scale()
    return infos(source, goal, a_scale, b_scale, wrap32(a_scale + b_scale - dropped)) + (a, b)


def scale_up_by(source, dividend, most=60):
    """A number of places that takes the dividend beyond 127 bits."""
    least = len(str(LIMIT // dividend))
    return least + source.under(max(1, most - least))


def lossy_dividend(source):
    """(dividend, places): its product loses bits that division by one word does not notice."""
    places = 31 + source.under(27)
    highest = min(LIMIT * 10**places, 2**256 - 1) >> 224
    if highest == 0:
        return lossy_dividend(source)
    target = 1 + source.getrandbits(32) % highest << 224
    return -(-target // 10**places), places


def quotient_numbers(source, goal):
    """(dividend, divisor, places), magnitudes; places is how far the dividend is moved up."""
    largest = 2**63 - 1 if goal.width == ONE else LIMIT
    if goal.out_of_range:
        kind = source.under(4)
        if kind == 0:
            dividend, places = lossy_dividend(source)
            return dividend, 1 + source.upto(source.pick((20, 2**20))), places
        if kind == 1:
            places = 1 + source.under(38)
            divisor = 1 + source.upto(10**places - 2)
            target = (LIMIT + source.pick((0, 1, 1))) * divisor + source.pick((0, divisor // 2, divisor - 1))
            return target // 10**places + source.under(2), divisor, places
        divisor = 1 + source.upto(LIMIT - 1)
        dividend = 1 + source.upto(LIMIT - 1)
        places = len(str(LIMIT * divisor // dividend)) + source.pick((0, 0, 1, source.distance(), 2**32))
        return dividend, divisor, places
    if goal.width == WIDE:
        if source.chance(0.2):
            dividend, places = lossy_dividend(source)
            return dividend, 1 + source.upto(2**63), places
        if goal.exact or source.chance(0.3):
            # x * y * 10^places / (y * 10^j), and with a factor of two a tie.
            places = 20 + source.under(19)
            j = places - source.under(min(places, 20))
            y = max(1, source.upto(LIMIT // 10**j // 2))
            x = max(1, source.upto(min(LIMIT // y, LIMIT // 10**(places - j))))
            if goal.exact:
                return x * y, y * 10**j, places
            return max(1, x * y + source.pick((0, 0, 1, -1))), 2 * y * 10**j, places
        dividend = 1 + source.upto(LIMIT - 1)
        places = scale_up_by(source, dividend)
        smallest = dividend * 10**places // LIMIT + 1
        if smallest > LIMIT:
            return quotient_numbers(source, goal)
        return dividend, smallest + source.upto(LIMIT - smallest), places
    kind = source.under(3)
    if kind == 0 and goal.exact:
        places = 1 + source.under(18)
        divisor = 2**source.under(places + 1) * 5**source.under(places + 1)
        return source.upto(min(largest, LIMIT // 10**places)), min(divisor, largest), places
    divisor = 1 + source.upto(largest // source.pick((1, 10**3, 10**9)) - 1)
    dropped = source.under(len(str(largest // divisor))) if kind else 0
    unit = divisor * 10**dropped
    if goal.exact or unit == 1:
        return source.multiple(unit, largest, True), divisor, -dropped
    if kind == 1 and source.chance(0.3):
        return source.magnitude(goal.width), divisor, -source.pick((40, 100, 2**31, dropped + 1))
    return source.multiple(unit, largest, False), divisor, -dropped


def rescaling_quotient(source, goal):
    if goal.outcome == 'NAN':
        if goal.width == TWO and (not goal.valid or source.chance(0.5)):
            (a, b), places = with_nan(source), source.signed(source.distance())
        else:
            a, b = source.coefficient(goal.width), 0
            places = scale_up_by(source, max(1, abs(a))) if goal.width == WIDE else -source.distance()
    elif goal.outcome == 'INVALID_ARGUMENT':
        a, b, places = source.coefficient(goal.width), source.pick((0, source.coefficient(ONE))), source.distance()
    else:
        a, b, places = quotient_numbers(source, goal)
        a, b = min(a, LIMIT), min(b, LIMIT)
        negative = goal.negative if goal.out_of_range else source.chance(0.5)
        sign = source.signed(1)
        a, b = sign * a, -sign * b if negative else sign * b
    if abs(places) > 2**30:
        b_scale, a_scale, scale = (INT32_MAX, INT32_MIN, 0) if places > 0 else (INT32_MIN, INT32_MAX, 0)
    else:
        b_scale, scale = source.anchor(), source.under(50) - 10
        a_scale = scale + b_scale - places
        if not INT32_MIN <= a_scale <= INT32_MAX:
            b_scale, a_scale = 0, scale - places
    return infos(source, goal, a_scale, b_scale, scale) + (a, b)


def number_to_print(source, goal):
    """(value, places its digits are moved up by)"""
    if goal.out_of_range or goal.width == WIDE:
        value = 1 + source.upto(LIMIT - 1)
        places = len(str(LIMIT // value)) + source.pick((0, 0, 1, source.distance(), 2**31))
        return -value if goal.negative or (not goal.out_of_range and source.chance(0.5)) else value, places
    largest = 2**63 - 1 if goal.width == ONE else LIMIT
    if goal.exact and source.chance(0.5):
        value = source.magnitude(goal.width)
        return source.signed(value), source.under(len(str(LIMIT // value))) if value else source.distance()
    dropped = 1 + source.under(18 if goal.width == ONE else 37)
    if not goal.exact and source.chance(0.1):
        return source.coefficient(goal.width), -source.pick((40, 100, 2**31))
    return source.signed(source.multiple(10**dropped, largest, goal.exact)), -dropped


EXPONENT_SHIFTS = (1, -1, 3, -3, 9, -9, 10, -10, 38, -38, 40, 99, -99, 100, -100, 1000, -1000, 9999, 10000, -10000, 12345,
                   100000, -10**6, 10**8, -10**8, 10**9, -10**9, INT32_MAX, INT32_MIN, INT32_MIN + 1)


def buffer_size(source, goal, text, suffix):
    """A size of the wanted class: none, in the suffix, one too few, exact, or more."""
    needed = len(text) + 1
    if goal.outcome == 'BUFFER_TOO_SMALL' and (not goal.valid or source.chance(0.3)):
        return source.pick((0, 1, len(suffix), source.under(len(suffix) + 1), WRAPPING_SIZE + source.getrandbits(15)))
    if goal.outcome == 'BUFFER_TOO_SMALL':
        if needed > 4000:
            return 1 + source.under(source.pick((20, 60, 300, 3000)))
        return max(0, needed - 1 - source.pick((0, 0, 1, 2, source.under(needed))))
    if goal.outcome == 'INVALID_ARGUMENT':
        return len(suffix) + 1 + source.pick((0, 0, 1, 2, 10, 50))
    return needed + source.pick((0, 0, 0, 1, 2, source.under(100)))


def formatting(source, goal):
    grouped = source.chance(0.5)
    value, places = number_to_print(source, goal)
    if goal.outcome == 'NAN':
        value = NAN
    output_scale = source.under(45) - 5 if source.chance(0.9) else source.anchor()
    if abs(places) > 2**30:
        output_scale = INT32_MAX if places > 0 else INT32_MIN
    scale = output_scale - places
    if not INT32_MIN <= scale <= INT32_MAX:
        scale = fit32(scale)
    shift = 0 if source.chance(0.4) else source.pick(EXPONENT_SHIFTS) if source.chance(0.5) else source.under(60) - 20
    if goal.outcome in ('OK', 'INEXACT', 'OVERFLOW', 'UNDERFLOW'):
        # The text has to fit a buffer.
        if abs(output_scale) > 3000 and (output_scale > 0 or value == 0):
            shift = fit32(max(0, output_scale) - source.under(50))
        elif abs(shift) > 3000:
            shift = shift % 3000
    info = (scale, goal.mode)
    if value == NAN:
        size = source.pick((4, 4, 5, 40, WRAPPING_SIZE + source.getrandbits(15)))
        return value, info, shift, output_scale, size
    if goal.outcome == 'BUFFER_TOO_SMALL' and goal.width == TWO and source.chance(0.1):
        return NAN, info, shift, output_scale, source.under(4)
    mode = goal.mode if goal.valid else UP
    _, text = number_text(value, (scale, mode), shift, output_scale, grouped, 4000)
    size = buffer_size(source, goal, text, exponent_suffix(shift))
    return value, info, shift, output_scale, min(size, LARGEST_TEXT) if size < WRAPPING_SIZE else size


TAILS = (b'abc', b' ', b',', b',1', b',12', b',123', b',1234', b',123,456', b',123,45', b'.', b'.5', b'.5.', b'e', b'E5', b'-', b'+', b'\xff',
         b'\x01', b'/', b':', b'x', b'N', b'e+', b'E-3')
ALPHABET = b'0123456789012345600000.,,+-eEe x'
BROKEN = (b'.', b'-', b'+', b'e5', b'E', b'--1', b'+-1', b'-+1', b'abc', b' 1', b'.e5', b'-.', b'+.e1', b'..5', b'.+5', b',123', b',',
          b'NaN', b'-,123', b'.,123', b'/1', b':1', b'\xb11', b'1e', b'1E+', b'1e-', b'1ee5', b'1e.5', b'1e+-5', b'1e--5', b'1e,123', b'1e x',
          b'1e2147483648', b'1e+2147483648', b'1e-2147483649', b'1e99999999999999999999', b'1e18446744073709551617',
          b'1e-18446744073709551616', b'1e00002147483648')


def exponent_text(source, exponent, grouped):
    sign = b'-' if exponent < 0 else source.pick((b'', b'+'))
    digits = b'%d' % abs(exponent)
    if source.chance(0.2):
        digits = b'0' * source.under(6) + digits
    if grouped and source.chance(0.2):
        digits = grouped_by_three(digits)
    return source.pick((b'e', b'E')) + sign + digits


def literal(source, value, fraction, exponent, grouped):
    """A spelling of value * 10^(exponent - fraction)."""
    digits = b'%d' % value
    if len(digits) <= fraction:
        digits = b'0' * (fraction - len(digits) + source.under(2)) + digits
    integer, decimals = digits[:len(digits) - fraction], digits[len(digits) - fraction:]
    if source.chance(0.15):
        integer = b'0' * source.under(10) + integer
    if grouped and integer and source.chance(0.6):
        integer = grouped_by_three(integer)
    text = integer
    if fraction or not integer:
        text += b'.' + (decimals or b'0')
    elif source.chance(0.1):
        text += b'.'
    if exponent is not None:
        text += exponent_text(source, exponent, grouped)
    return text


def digits_of(source, goal):
    """(value, places it is moved up by)"""
    if goal.width == WIDE and not goal.out_of_range:
        dropped = 1 + source.under(6)
        value = LIMIT // 10 * 9 + source.getrandbits(127) + 10**source.under(44)
        value = value // 10**dropped * 10**dropped + (0 if goal.exact else source.part(10**dropped))
        if goal.outcome == 'INVALID_ARGUMENT':
            return value, source.signed(source.distance())
        return value, -dropped - max(0, len(str(value)) - 38 - dropped)
    if goal.width == WIDE and source.chance(0.3):
        return LIMIT + 1 + source.pick((0, source.getrandbits(140))), source.under(8) - 4
    if goal.width == WIDE:
        value = 1 + source.upto(LIMIT - 1)
        return value, len(str(LIMIT // value)) + source.pick((0, 0, source.distance(), 2**31))
    largest = 2**63 - 1 if goal.width == ONE else LIMIT
    if goal.exact and source.chance(0.6):
        value = source.magnitude(goal.width)
        return value, source.under(len(str(LIMIT // value))) if value else source.distance()
    dropped = 1 + source.under(18 if goal.width == ONE else 37)
    if not goal.exact and source.chance(0.1):
        return max(1, source.magnitude(goal.width)), -source.pick((40, 100, 2**31, 2**32))
    return source.multiple(10**dropped, largest, goal.exact), -dropped


def soup(source, longest=24):
    return bytes(source.pick(ALPHABET) for _ in range(1 + source.under(longest)))


def broken(source):
    kind = source.under(4)
    if kind == 0:
        return source.pick((b' ', b'e', b'x', b'.', b'-', b'+-', b',', b'\xff')) + soup(source, 6).lstrip(b'0123456789.')
    if kind == 1:
        return literal(source, source.magnitude(), source.under(5), None, False) + source.pick((b'e', b'e+', b'E-', b'e-x', b'E+-3', b'e.3'))
    return source.pick(BROKEN)


def parsing_for(grouped):
    def parsing(source, goal):
        if goal.outcome == 'SYNTAX_ERROR':
            return broken(source), (source.scale(), goal.mode)
        if goal.outcome == 'OK' and (not goal.valid or (goal.width == ONE and source.chance(0.02))):
            return b'', (source.scale(), goal.mode)
        value, places = digits_of(source, goal)
        fraction = source.pick((0, 0, source.under(6), source.under(40)))
        if fraction > 41 - len(str(value)) and goal.width != WIDE:
            fraction = min(fraction, max(0, 41 - len(str(value))))
        exponent = None
        if source.chance(0.5):
            exponent = source.signed(source.pick((source.under(10), source.under(50), source.distance(), source.under(1500),
                                                  source.getrandbits(31))))
        scale = fraction - (exponent or 0) + places
        if not INT32_MIN <= scale <= INT32_MAX:
            # Only a scale and an exponent together reach this far.
            scale = INT32_MAX if places > 0 else INT32_MIN
            exponent = max(-2**31, min(2**31 - 1, fraction + places - scale))
        sign = b'-' if goal.negative else b'' if goal.out_of_range else source.pick((b'', b'', b'+', b'-'))
        text = sign + literal(source, value, fraction, exponent, grouped)
        if source.chance(0.3):
            text += source.pick(TAILS)
        return text, (scale, goal.mode)
    return parsing


def from_integer_for(bits):
    largest = 2**(bits - 1) - 1

    def integer(source, limit):
        value = source.signed(source.upto(min(limit, largest)))
        return -largest - 1 if limit > largest and source.chance(0.05) else value

    def from_integer(source, goal):
        if goal.outcome == 'OK' and (not goal.valid or source.chance(0.2)):
            return integer(source, LIMIT), (0, goal.mode)
        if goal.outcome == 'OK' and source.chance(0.5):
            places = 1 + source.under(38)
            if source.chance(0.05):
                return 0, (source.pick((1000, INT32_MIN, INT32_MAX)), goal.mode)
            return integer(source, LIMIT // 10**places), (places, goal.mode)
        if goal.outcome in ('OK', 'INEXACT'):
            dropped = 1 + source.under(bits * 3 // 10)
            if not goal.exact and source.chance(0.2):
                return integer(source, LIMIT) or 1, (-source.pick((20, 24, 80, 88, 100, 2**31)), goal.mode)
            return source.signed(source.multiple(10**dropped, largest, goal.exact)), (-dropped, goal.mode)
        if goal.outcome == 'INVALID_ARGUMENT':
            return integer(source, LIMIT), (source.scale() or 1, goal.mode)
        places = 39 - len(str(largest)) + 1 + source.under(len(str(largest)))
        value = LIMIT // 10**places + 1 + source.pick((0, 0, 1, source.upto(largest)))
        if source.chance(0.2):
            places = source.pick((39, 40, 77, 78, 80, 87, 88, 96, 1000, INT32_MAX))
            value = max(1, source.upto(largest))
        value = min(value, largest)
        return -value if goal.negative else value, (places, goal.mode)
    return from_integer


def to_integer_for(bits):
    def to_integer(source, goal):
        mode = goal.mode
        if goal.outcome == 'NAN':
            return NAN, (source.scale(), mode)
        scale = 0 if not goal.valid and goal.outcome != 'INVALID_ARGUMENT' else source.signed(1 + source.under(12))
        if source.chance(0.1) and scale:
            scale = source.scale() or 1
        elif source.chance(0.2) and goal.valid:
            scale = 0
        if goal.outcome == 'UNDERFLOW':
            value = -source.magnitude(goal.width)
            return (-2**63 - 1 - source.under(2) if scale == 0 and source.chance(0.3) else value), (scale, mode)
        if goal.outcome == 'OVERFLOW':
            return 2**(bits - 1) + source.upto((2**63 if goal.width == ONE else LIMIT) - 2**(bits - 1)), (scale, mode)
        if goal.outcome == 'INVALID_ARGUMENT':
            return source.coefficient(goal.width), (scale or -1, mode)
        largest = source.pick((2**(bits - 1) - 1, 2**31, 2**32 - 1, 2**(bits - 1) - 1))
        if goal.outcome == 'OK' and scale > 0:
            return source.multiple(10**min(scale, 9), largest, True), (min(scale, 9), mode)
        if goal.outcome == 'OK' and scale < 0:
            return source.upto(largest), (scale, mode)
        if goal.outcome == 'OK':
            return source.signed(source.upto(2**(bits - 1) - 1)), (0, mode)
        scale = min(abs(scale), INT32_MAX) or 1
        return source.multiple(10**min(scale, 20), largest, False), (scale, mode)
    return to_integer


def bits_of(double):
    return struct.unpack('<Q', struct.pack('<d', double))[0]


def nearest_double(numerator, places):
    """The bits of the double nearest numerator * 10^-places, or of the largest double."""
    try:
        double = numerator / 10**places if places >= 0 else float(numerator * 10**-places)
    except OverflowError:
        double = 1.7976931348623157e308
    return bits_of(double)


SPECIAL_DOUBLES = tuple(bits_of(double) for double in (
    1.0, 2.0, 0.5, 10.0, 0.1, 5e-324, 2.2250738585072014e-308, 2.225073858507201e-308, 1.7976931348623157e308, 2.0**52,
    2.0**53, 2.0**63, 2.0**64, 2.0**126, 2.0**127, 2.0**128, 1e22, 1e23, 1e38))


def any_double(source):
    kind = source.under(10)
    if kind < 3:
        return source.getrandbits(64)
    if kind < 5:
        return source.pick(SPECIAL_DOUBLES) ^ source.under(2) << 63
    if kind < 7:
        return source.getrandbits(source.under(53))
    if kind < 8:
        return source.under(2047) << 52
    return source.under(2) << 63 | 900 + source.under(260) << 52 | source.getrandbits(52)


def dyadic(source, goal):
    """(bits, scale) of a double that is a whole coefficient at the scale."""
    width = 1 + source.under(53)
    odd = source.getrandbits(width) | 1
    twos = source.under(len(bin(LIMIT)) - 2 - width) if goal.width == TWO else source.under(max(1, 63 - width))
    scale = source.under(12)
    coefficient = odd << twos
    if source.chance(0.4) or scale == 0:
        return bits_of(float(coefficient)), 0
    if source.chance(0.5):
        # odd * 2^(twos - scale) times 10^scale is odd * 5^scale * 2^twos.
        return bits_of(odd * 2.0**(twos - scale - 3 * scale * (goal.width == TWO))), scale
    return bits_of(float(source.getrandbits(20) * 10**scale)), -scale


def from_double(source, goal):
    sign = (goal.negative if goal.out_of_range else source.under(2)) << 63
    if goal.outcome == 'NAN':
        bits = 0x7ff << 52 | source.under(2) << 63 | (source.getrandbits(52) or 1)
        return (source.scale(), goal.mode), bits
    if goal.outcome == 'OK' and (not goal.valid or (goal.width == ONE and source.chance(0.05))):
        return (source.scale(), goal.mode), source.under(2) << 63
    if goal.outcome == 'OK':
        bits, scale = dyadic(source, goal)
        return (scale, goal.mode), bits | sign
    if goal.out_of_range and (not goal.valid or source.chance(0.1)):
        return (source.scale(), goal.mode), 0x7ff << 52 | sign
    scale = source.under(60) - 20 if source.chance(0.8) else source.signed(source.under(340))
    if goal.width == WIDE:
        if source.chance(0.3):
            scale = source.scale() if source.chance(0.5) else source.pick((INT32_MAX, INT32_MAX - 1, 1100, 700, -780, -700))
            bits = any_double(source) & (2**63 - 1)
            return (scale, goal.mode), bits | sign
        bits = nearest_double(2**127 + source.pick((0, source.getrandbits(130))), scale) + source.under(3) - 1
        return (scale, goal.mode), max(1, min(bits, (0x7ff << 52) - 1)) | sign
    coefficient = source.magnitude(goal.width)
    kind = source.under(4)
    if kind < 2:
        # A tie at the scale, or what comes nearest to one.
        bits = nearest_double(2 * coefficient + 1, scale)
        bits -= 1 << 52 if bits >= 2 << 52 else 0
        bits = max(1, bits + source.pick((0, 0, 1, -1)))
    elif kind == 2:
        bits = nearest_double(coefficient, scale) + source.pick((0, 1, -1))
    else:
        bits = source.getrandbits(52) | 1
        scale = source.pick((0, -1, 320, 330, 308, INT32_MIN, -1100)) if goal.width == ONE else 340 + source.under(20)
    return (scale, goal.mode), max(1, min(bits, (0x7ff << 52) - 1)) | sign


def losing_top_bits(source, goal):
    """(value, scale): moving up by the last fewer than twelve places pushes bits out of the vector."""
    last = 1 + source.under(11)
    scale = -last - 12 * (source.under(3) if source.chance(0.5) else 0)
    value = LIMIT - source.upto(2**125)
    if goal.outcome == 'OK':
        width = 1 + source.under(20)
        value = (source.getrandbits(width) | 1 << width - 1) << 127 - width
        return value, -1 - source.under(11)
    if goal.out_of_range:
        scale = -last - 12 * (23 + source.under(5))
    return value, scale


def to_double(source, goal):
    mode = goal.mode
    if goal.outcome == 'NAN':
        return NAN, (source.scale(), mode)
    if goal.outcome == 'OK' and not goal.valid:
        return 0, (source.scale(), mode)
    if goal.width == WIDE:
        value, scale = losing_top_bits(source, goal)
    elif goal.outcome == 'OK':
        if source.chance(0.02):
            return 0, (source.scale(), mode)
        width = 1 + source.under(50)
        odd = source.getrandbits(width) | 1
        fives = source.under(28) if source.chance(0.4) else 0
        if goal.width == TWO:
            shift = 64 + source.under(10) - len(bin(odd * 5**fives)) + 2
            value, scale = odd * 5**fives << max(0, shift), fives
        elif fives and odd * 5**fives < 2**63:
            value, scale = odd * 5**fives, fives
        else:
            value, scale = odd, -source.under(max(1, (53 - width) * 10 // 24 + 1))
        value = min(value, LIMIT)
    else:
        value = max(1, source.magnitude(goal.width))
        if goal.out_of_range:
            scale = -(309 - len(str(value)) + source.pick((0, 0, 1, 2, source.under(40), 2000, 2**30, 2**31 - 309)))
        elif source.chance(0.6):
            scale = source.under(60) - 20
        else:
            scale = source.pick((300 + source.under(70), source.signed(source.distance()), 1100, INT32_MAX))
    negative = goal.negative if goal.out_of_range else source.chance(0.5)
    return -value if negative else value, (fit32(scale), mode)


DRAWING = {
    'SetZero': set_value, 'SetNan': set_value, 'IsZero': predicate, 'IsNan': predicate,
    'Add': same_scale_sum, 'Sub': same_scale_difference, 'Cmp': compare,
    'Ceil': truncation_by_own_mode, 'Floor': truncation_by_own_mode, 'Round': truncation_by_mode,
    'Mul': machine_product, 'Div': machine_quotient, 'Rescale': rescale,
    'RescalingAdd': rescaling_sum, 'RescalingSub': rescaling_difference, 'RescalingCmp': rescaling_compare,
    'RescalingMul': rescaling_product, 'RescalingDiv': rescaling_quotient,
    'Num2Str': formatting, 'Num2Dgstr': formatting,
    'Str2Num': parsing_for(False), 'Dgstr2Num': parsing_for(True),
    'Long2Num': from_integer_for(64), 'Int2Num': from_integer_for(32),
    'Num2Long': to_integer_for(64), 'Num2Int': to_integer_for(32),
    'Dbl2Num': from_double, 'Num2Dbl': to_double,
}


def wild(source, operation):
    """Arguments with no aim at all."""
    def value(kind):
        if kind in ('in', 'inout'):
            return NAN if source.chance(0.02) else source.coefficient()
        if kind == 'info':
            return source.scale(), source.invalid_mode() if source.chance(0.02) else source.mode()
        if kind == 'int64':
            return source.getrandbits(64) - 2**63
        if kind == 'double':
            return any_double(source)
        if kind == 'text':
            return soup(source)
        if kind == 'size':
            return source.under(80)
        return source.scale()
    return tuple(value(kind) for kind in OPERATIONS[operation].reads)


# By the kinds of the Numerics in a call: the ways in which they may be one object.
ALIASES = {
    ('in', 'in', 'out'): ((0, 1, 0), (0, 1, 1), (0, 0, 2), (0, 0, 0)),
    ('in', 'out'): ((0, 0),),
    ('in', 'in'): ((0, 0),),
}


def numerics(operation):
    return tuple(kind for kind in OPERATIONS[operation].parameters if kind in ('in', 'out', 'inout'))


def same_operands(operation, arguments):
    """The arguments with the second operand made the same as the first."""
    reads = OPERATIONS[operation].reads
    places = [at for at, kind in enumerate(reads) if kind == 'in']
    if len(places) < 2:
        return arguments
    changed = list(arguments)
    changed[places[1]] = changed[places[0]]
    return tuple(changed)


def choose_slots(source, operation, arguments):
    kinds = numerics(operation)
    distinct = tuple(range(len(kinds)))
    if kinds not in ALIASES or source.chance(0.5):
        return distinct
    operands = [value for kind, value in zip(OPERATIONS[operation].reads, arguments) if kind == 'in']
    same = len(operands) < 2 or operands[0] == operands[1]
    choices = [slots for slots in ALIASES[kinds] if same or slots[0] != slots[1]]
    return source.pick(choices) if choices else distinct


ATTEMPTS = 100
STEERED_OF_FOUR = 3


class Drawer:
    """The cases of one operation: each is a function of the seed, the operation and the case's number alone."""

    def __init__(self, operation, seed):
        self.operation = operation
        self.seed = seed
        self.index = list(OPERATIONS).index(operation)
        self.cells = reachable_cells(operation)
        self.source = Source()

    def goal(self, cell):
        if cell.column == INVALID:
            mode = self.source.invalid_mode()
        else:
            mode = BY_MODE.index(cell.column) if cell.column in BY_MODE else self.source.mode()
        return Goal(mode, cell.outcome, cell.width)

    def arguments(self, number):
        """(arguments, the model's answer, the cell they fall into)"""
        source = self.source
        draw = DRAWING[self.operation]
        expect = OPERATIONS[self.operation].expect
        if number % 4 < STEERED_OF_FOUR:
            wanted = self.cells[(number // 4 * STEERED_OF_FOUR + number % 4) % len(self.cells)]
            for _ in range(ATTEMPTS):
                arguments = draw(source, self.goal(wanted))
                answer = expect(*arguments)
                cell = cell_of(self.operation, arguments, answer)
                if cell == wanted:
                    break
            return arguments, answer, cell
        if source.chance(0.3):
            arguments = wild(source, self.operation)
        else:
            arguments = draw(source, self.goal(source.pick(self.cells)))
        if source.chance(0.1):
            arguments = same_operands(self.operation, arguments)
        answer = expect(*arguments)
        return arguments, answer, cell_of(self.operation, arguments, answer)

    def case(self, number):
        """(case, answer, cell)"""
        self.source.seed((self.seed << 8 | self.index) << 40 | number)
        arguments, answer, cell = self.arguments(number)
        slots = choose_slots(self.source, self.operation, arguments)
        return Case(self.operation, arguments, slots, number % 16, not self.source.chance(0.1)), answer, cell
