# SPDX-License-Identifier: MIT
"""Draws calls of the operations whose operands and result each have a scale of their own."""

from cells import ONE, TWO, WIDE
from draw_arithmetic import beyond
from goals import infos, narrow, with_nan
from rounding import LIMIT, NAN
from shapes import INT32_MAX, INT32_MIN, fit32, wrap32


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


def around_one_word(source):
    """A magnitude at which the number of guard digits may change."""
    return source.pick((2**63 - 1, 2**63, 2**64 - 1, 2**64, 2**64 + 1, 2**63 + source.getrandbits(63)))


def far_apart_sum(source, exact, largest_distance=2**31):
    """(coarse, fine, apart, places of the result behind the coarse scale): more than 38 places apart.

    The fine operand is built around the points where what is kept of it completes, or halves, a unit of the result.
    """
    coarse = around_one_word(source) if source.chance(0.3) else max(1, source.magnitude())
    guard = 48 if coarse < 2**64 else 38
    most = len(str(LIMIT // coarse)) - 1
    places = most - source.under(4) if source.chance(0.8) else most - source.under(60)
    kind = source.under(20)
    if exact:
        apart = 39 + source.under(12) if kind < 19 else 39 + source.under(90)
        zeros = apart - places
        fine = 10**zeros * max(1, source.upto(max(1, LIMIT // 10**zeros)))
        return coarse, min(fine, LIMIT), apart, places
    if kind < 12:
        cut = 1 + source.under(4)
        unit = 10**(guard - places)
        largest = LIMIT // 10**cut - 3
        pattern = source.pick((unit, unit // 2))
        pattern += source.upto(max(0, largest - pattern) // unit) * unit
        kept = min(pattern, largest) + source.pick((-2, -1, -1, 0, 1, 2))
        fine = kept * 10**cut + source.pick((0, 1, 10**cut // 2, 10**cut - 1))
        return source.signed(coarse), source.signed(fine), guard + cut, places
    if kind < 16:
        # Nothing is cut off: the fine operand alone makes the tie.
        apart = 39 + source.under(guard - 38)
        fine = source.multiple(10**min(apart - places, 38), LIMIT, False)
        return source.signed(coarse), source.signed(fine), apart, places
    apart = 39 + source.under(90) if kind < 19 else largest_distance
    return source.signed(coarse), source.signed(max(1, source.magnitude())), apart, places


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


DRAWING = {
    'RescalingAdd': rescaling_sum, 'RescalingSub': rescaling_difference, 'RescalingCmp': rescaling_compare,
    'RescalingMul': rescaling_product, 'RescalingDiv': rescaling_quotient,
}
