# SPDX-License-Identifier: MIT
"""Draws conversions to and from machine integers and doubles."""

import struct

from cells import ONE, TWO, WIDE
from rounding import LIMIT, NAN
from shapes import INT32_MAX, INT32_MIN, fit32


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
            scale = source.pick((source.scale(), INT32_MAX, INT32_MAX - 1, 1100, 700, -780, -700))
            bits = any_double(source) & (2**63 - 1)
            return (scale, goal.mode), bits | sign
        bits = nearest_double(2**127 + source.pick((0, source.getrandbits(130))), scale) + source.under(3) - 1
        return (scale, goal.mode), max(1, min(bits, (0x7ff << 52) - 1)) | sign
    coefficient = source.magnitude(goal.width)
    kind = source.under(5)
    if kind == 4 and goal.width == ONE:
        # odd / 2^(scale + 1) is a whole number of 5^scale and a half at the scale.
        scale = source.under(15)
        odd = source.getrandbits(1 + source.under(52 if scale == 0 else 25)) | 1
        return (scale, goal.mode), bits_of(odd / 2.0**(scale + 1)) + source.pick((0, 0, 0, 1, -1)) | sign
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


def at_a_carry(source, width):
    """(value, scale): 54 bits that make a tie, or a number just below a power of two at which doubles end or change."""
    kind = source.under(3 if width == TWO else 1)
    if kind == 0:
        odd = (source.getrandbits(52) | 1 << 52) << 1 | 1
        if width == ONE:
            odd, scale = source.pick(((odd, 0), (odd << source.under(9), 0), ((odd - 1) | 1, 0)))
        else:
            scale = source.under(28)
            odd = odd * 5**scale << source.under(max(1, 126 - (odd * 5**scale).bit_length()))
        return min(odd + source.pick((0, 0, 0, 1, -1)), LIMIT), scale
    if kind == 1:
        # Just below 2^1024, where a carry makes infinity.
        places = 286 + source.under(20)
        return 2**1024 // 10**places - source.under(3), -places
    # Just below 2^-1022, where a carry leaves the subnormals.
    places = 328 + source.under(16)
    return 10**places // 2**1022 - source.under(3), places


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
        if not goal.out_of_range and source.chance(0.25):
            value, scale = at_a_carry(source, goal.width)
        elif goal.out_of_range:
            scale = -(309 - len(str(value)) + source.pick((0, 0, 1, 2, source.under(40), 2000, 2**30, 2**31 - 309)))
        elif source.chance(0.6):
            scale = source.under(60) - 20
        else:
            scale = source.pick((300 + source.under(70), source.signed(source.distance()), 1100, INT32_MAX))
    negative = goal.negative if goal.out_of_range else source.chance(0.5)
    return -value if negative else value, (fit32(scale), mode)


DRAWING = {
    'Long2Num': from_integer_for(64), 'Int2Num': from_integer_for(32),
    'Num2Long': to_integer_for(64), 'Num2Int': to_integer_for(32),
    'Dbl2Num': from_double, 'Num2Dbl': to_double,
}
