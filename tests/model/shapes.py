# SPDX-License-Identifier: MIT
"""Random numbers shaped around the places where decimal arithmetic goes wrong."""

import random

from cells import ONE, TWO
from rounding import LIMIT, MODES

INT32_MIN, INT32_MAX = -2**31, 2**31 - 1


def _landmarks():
    """Powers of two and ten, halves of powers of ten, the limits of the machine's words, and their neighbours."""
    marks = {10**k for k in range(39)} | {5 * 10**k for k in range(38)} | {2**k for k in range(127)}
    marks |= {LIMIT // 10**k for k in range(39)} | {LIMIT // 2}
    near = {mark + step for mark in marks for step in (-2, -1, 0, 1, 2)} | {LIMIT - step for step in range(12)}
    near = sorted(near)
    return [mark for mark in near if 0 <= mark < 2**63], [mark for mark in near if 2**63 <= mark <= LIMIT]


LANDMARKS_OF_ONE_WORD, LANDMARKS_OF_TWO_WORDS = _landmarks()

# Where scaling takes another road: eight digits at a time, what 128 and 256 bits hold, guard digits, the longest move.
NOTABLE_DISTANCES = (0, 1, 2, 7, 8, 9, 15, 16, 17, 18, 19, 20, 24, 27, 28, 37, 38, 39, 40, 47, 48, 49, 50, 56, 57, 64,
                     76, 77, 78, 79, 80, 81, 86, 87, 88, 89, 95, 96, 97)
INVALID_MODES = (7, 8, 9, 255, 256, 2**31 - 1, 2**31, 2**31 + 3, 2**32 - 1)


class Source(random.Random):
    """One case's randomness."""

    def chance(self, probability):
        return self.random() < probability

    def pick(self, choices):
        return choices[int(self.random() * len(choices))]

    def under(self, count):
        """0 .. count - 1"""
        return int(self.random() * count)

    def signed(self, magnitude):
        return -magnitude if self.random() < 0.5 else magnitude

    def mode(self):
        return self.pick(MODES)

    def invalid_mode(self):
        return self.pick(INVALID_MODES)

    def magnitude(self, width=None):
        """A coefficient's magnitude, of one word, of two, or of either."""
        if width not in (ONE, TWO):
            width = ONE if self.random() < 0.5 else TWO
        kind = self.under(10)
        if kind < 4:
            return self.pick(LANDMARKS_OF_ONE_WORD if width == ONE else LANDMARKS_OF_TWO_WORDS)
        if kind < 8:
            bits = 1 + self.under(63) if width == ONE else 64 + self.under(64)
            return min(self.getrandbits(bits) | 1 << bits - 1, LIMIT)
        if kind == 8 and width == ONE:
            return self.under(100)
        largest = 2**63 - 1 if width == ONE else LIMIT
        zeros = self.under(18 if width == ONE else 37)
        return largest // 10**zeros * 10**zeros - self.under(3)

    def upto(self, largest):
        """A shaped magnitude of at most `largest`."""
        magnitude = self.magnitude(ONE if largest < 2**63 or self.random() < 0.3 else TWO)
        if magnitude <= largest:
            return magnitude
        if self.random() < 0.3:
            return max(0, largest - self.under(3))
        return magnitude % (largest + 1)

    def coefficient(self, width=None):
        return self.signed(self.magnitude(width))

    def part(self, unit):
        """What is lost of a unit, never nothing: a trace, around one half, all nines, or anything."""
        half = unit // 2
        kind = self.under(9)
        part = (1, half - 1, half, half, half + 1, unit - 1, self.upto(unit), half + 10**self.under(len(str(unit))),
                half - 10**self.under(len(str(unit))))[kind]
        return min(max(part, 1), unit - 1)

    def multiple(self, unit, largest, exact):
        """A magnitude of at most `largest`: a multiple of the unit, or one and a part of the next."""
        part = 0 if exact else min(self.part(unit), largest)
        return self.upto((largest - part) // unit) * unit + part

    def distance(self):
        """A number of places, from none to more than any value has."""
        return self.pick(NOTABLE_DISTANCES) if self.random() < 0.5 else self.under(50)

    def anchor(self, span=200):
        """A scale with room for `span` more on either side."""
        kind = self.under(20)
        if kind < 14:
            return self.under(50) - 10
        if kind < 17:
            return self.signed(self.distance())
        if kind < 19:
            return self.pick((INT32_MIN + span, INT32_MAX - span))
        return self.signed(self.getrandbits(30))

    def scale(self):
        """Any scale."""
        kind = self.under(10)
        if kind < 6:
            return self.under(60) - 15
        if kind < 8:
            return self.signed(self.distance())
        if kind < 9:
            return self.pick((INT32_MIN, INT32_MIN + 1, INT32_MAX - 1, INT32_MAX, -2**30, 2**30))
        return self.getrandbits(32) - 2**31


def fit32(scale):
    return max(INT32_MIN, min(scale, INT32_MAX))


def wrap32(scale):
    return (scale + 2**31) % 2**32 - 2**31
