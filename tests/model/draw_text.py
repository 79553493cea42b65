# SPDX-License-Identifier: MIT
"""Draws numbers to print and texts to parse."""

from cells import ONE, TWO, WIDE
from library import LARGEST_TEXT
from rounding import LIMIT, NAN, UP
from shapes import INT32_MAX, INT32_MIN, fit32
from text import WRAPPING_SIZE, exponent_suffix, grouped_by_three, number_text


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


EXPONENT_SHIFTS = (1, -1, 3, -3, 9, -9, 10, -10, 38, -38, 40, 99, -99, 100, -100, 1000, -1000, 9999, 10000, -10000,
                   12345, 100000, -10**6, 10**8, -10**8, 10**9, -10**9, INT32_MAX, INT32_MIN, INT32_MIN + 1)


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


TAILS = (b'abc', b' ', b',', b',1', b',12', b',123', b',1234', b',123,456', b',123,45', b'.', b'.5',
         b'.5.', b'e', b'E5', b'-', b'+', b'\xff', b'\x01', b'/', b':', b'x', b'N', b'e+', b'E-3')
ALPHABET = b'0123456789012345600000.,,+-eEe x'
BROKEN = (b'.', b'-', b'+', b'e5', b'E', b'--1', b'+-1', b'-+1', b'abc', b' 1', b'.e5', b'-.', b'+.e1', b'..5', b'.+5',
          b',123', b',', b'NaN', b'-,123', b'.,123', b'/1', b':1', b'\xb11', b'1e', b'1E+', b'1e-', b'1ee5', b'1e.5',
          b'1e+-5', b'1e--5', b'1e,123', b'1e x',
          b'1e2147483648', b'1e+2147483648', b'1e-2147483649', b'1e99999999999999999999', b'1e18446744073709551617',
          b'1e-18446744073709551616', b'1e00002147483648')


def exponent_text(source, exponent, grouped):
    sign = b'-' if exponent < 0 else source.pick((b'', b'+'))
    digits = b'%d' % abs(exponent)
    if source.chance(0.2):
        digits = b'0' * source.under(source.pick((6, 6, 6, 60))) + digits
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
        integer = b'0' * source.under(source.pick((10, 10, 10, 500))) + integer
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
        start = source.pick((b' ', b'e', b'x', b'.', b'-', b'+-', b',', b'\xff'))
        return start + soup(source, 6).lstrip(b'0123456789.')
    if kind == 1:
        no_exponent = source.pick((b'e', b'e+', b'E-', b'e-x', b'E+-3', b'e.3'))
        return literal(source, source.magnitude(), source.under(5), None, False) + no_exponent
    return source.pick(BROKEN)


def longer(source, value):
    """(value with digits behind it, how many): zeros up to where digits are cut off, perhaps something behind them."""
    zeros = max(0, 39 + source.under(9) - len(str(value)))
    junk = source.pick((b'', b'1', b'5', b'9', b'001', b'%d' % source.getrandbits(60),
                        b'%d' % source.getrandbits(1 + source.under(1500))))
    return int(b'%d' % value + b'0' * zeros + junk), zeros + len(junk)


def parsing_for(grouped):
    def parsing(source, goal):
        if goal.outcome == 'SYNTAX_ERROR':
            return broken(source), (source.scale(), goal.mode)
        if goal.outcome == 'OK' and (not goal.valid or (goal.width == ONE and source.chance(0.02))):
            return b'', (source.scale(), goal.mode)
        fraction = source.pick((0, 0, source.under(6), source.under(40)))
        if goal.width == WIDE and not goal.out_of_range and source.chance(0.5):
            value, places = digits_of(source, goal._replace(width=source.pick((ONE, TWO))))
            value, more = longer(source, value)
            fraction, places = fraction + more, places - more
        else:
            value, places = digits_of(source, goal)
        if goal.width != WIDE:
            fraction = min(fraction, max(0, 41 + source.under(7) - len(str(value))))
        exponent = None
        if source.chance(0.5):
            exponent = source.signed(source.pick((source.under(10), source.under(50), source.distance(),
                                                  source.under(1500), source.getrandbits(31))))
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


DRAWING = {
    'Num2Str': formatting, 'Num2Dgstr': formatting,
    'Str2Num': parsing_for(grouped=False), 'Dgstr2Num': parsing_for(grouped=True),
}
