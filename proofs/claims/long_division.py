# SPDX-License-Identifier: MIT
"""Long division by one word and by two, on top of divide_2by1 and divide_3by2 as they are proven in reciprocal.py."""
from __future__ import annotations

from random import Random

from claims.dropped import exact_fraction, fraction_of
from claims.numbers import B, number, pair
from claims.reciprocal import normalized
from sheets import Book, proof
from terms import Values, both, either, implies, term

FILE = "src/wide/long_division.h"


@proof("long_division.normalize", f"{FILE}: normalize, divide",
       """Moved up until the divisor's top bit is set, a dividend whose upper words are below the divisor loses nothing, and
       its upper words stay below the divisor.""",
       "an upper word as large as the divisor")
def _(book: Book, broken: bool) -> None:
    for shift in range(64):  # how far the divisor is moved
        for words in (1, 2):
            sheet = book.sheet(f"{words} words, {shift} bits")
            bits = 64 * words - shift
            d = sheet.integer("d", 2 ** (bits - 1), 2**bits - 1)
            upper = sheet.integer("upper", 0, B**words)
            sheet.assume(upper <= d if broken else upper < d)
            # Each word is cut where the shift by words.shifts cuts it.
            above = [sheet.integer(f"above{i}", 0, 2**shift - 1) for i in range(2)]
            below = [sheet.integer(f"below{i}", 0, 2 ** (64 - shift) - 1) for i in range(2)]
            low0, low1 = (above[i] * 2 ** (64 - shift) + below[i] for i in range(2))
            dividend = upper * B**2 + low1 * B + low0
            moved = [below[0] * 2**shift, below[1] * 2**shift + above[0], upper * 2**shift + above[1]]
            sheet.claim("words", both(moved[0] < B, moved[1] < B))
            sheet.claim("nothing is lost", number(moved) == dividend * 2**shift)
            sheet.claim("below the divisor", both(moved[2] < d * 2**shift, moved[2] < B**words))
            sheet.draw = lambda random, bits=bits: draw_dividend(random, bits)
            if words == 1:
                sheet.model("divide_by_word", [low0, low1, upper, 0, d], [*pair(dividend // d), exact_fraction(dividend % d, d)])
            else:
                sheet.model("divide_by_pair", [low0, low1, upper % B, upper // B, *pair(d)],
                            [*pair(dividend // d), exact_fraction(dividend % d, d)])


def draw_dividend(random: Random, bits: int) -> Values:
    d = normalized(random, bits) if bits > 1 else 1
    return {"d": d, "upper": random.choice((0, d - 1, random.randrange(d)))}


@proof("long_division.digits", f"{FILE}: divide",
       """Two steps, each with the remainder of the one before it and the first one left out where its quotient is 0, give
       the quotient in two words and the remainder; the fraction is that of the remainder and the divisor as they are
       moved.""",
       "the first step left out one value too early")
def _(book: Book, broken: bool) -> None:
    for words in (1, 2):
        sheet = book.sheet(f"by {words} words")
        most = B**words
        d = sheet.integer("d", most // 2, most - 1)
        # upper: what the first step divides, but for its lowest word, and that word; low: the lowest word of all.
        upper, middle, low = sheet.integer("upper", 0, most - 1), sheet.word("middle"), sheet.word("low")
        sheet.assume(upper < d)
        first = upper * B + middle
        skipped = both(upper // (most // B) == 0, first <= d if broken else first < d)
        q1, r1 = sheet.integer("q1", 0, B - 1), sheet.integer("r1", 0, most - 1)
        q0, r0 = sheet.integer("q0", 0, B - 1), sheet.integer("r0", 0, most - 1)
        sheet.assume(implies(skipped, both(q1 == 0, r1 == first)))
        sheet.assume(either(skipped, both(r1 < d, first == q1 * d + r1)))
        sheet.claim("the first step", both(r1 < d, first == q1 * d + r1))
        sheet.assume(both(r0 < d, r1 * B + low == q0 * d + r0))
        sheet.claim("quotient and remainder", first * B + low == (q1 * B + q0) * d + r0)
        sheet.claim("the fraction", fraction_of(r0, d) == exact_fraction(r0, d))
        sheet.draw = lambda random, words=words, broken=broken: draw_steps(random, words, broken)
        lowest = [low, middle, upper] if words == 1 else [low, middle, upper % B, upper // B]
        arguments = [*lowest, *[term(0) for _ in range(4 - len(lowest))], *([d] if words == 1 else pair(d))]
        sheet.model("divide_by_word" if words == 1 else "divide_by_pair", arguments, [q1, q0, exact_fraction(r0, d)])


def draw_steps(random: Random, words: int, broken: bool) -> Values:
    d = normalized(random, 64 * words)
    upper = random.choice((0, d - 1, random.randrange(d), random.randrange(B) % d, random.randrange(min(d, B))))
    middle, low = (random.choice((0, B - 1, d % B, random.randrange(B))) for _ in range(2))
    first = upper * B + middle
    skipped = upper // B ** (words - 1) == 0 and (first <= d if broken else first < d)
    q1, r1 = (0, first) if skipped else divmod(first, d)
    q0, r0 = divmod(r1 * B + low, d)
    return {"d": d, "upper": upper, "middle": middle, "low": low, "q1": q1, "r1": r1, "q0": q0, "r0": r0}


@proof("long_division.integer_divisor", "src/numeric/machine_integer.cpp: put_quotient, divide_magnitude",
       """A dividend of at most 2^128 - 1 by a divisor of 2 or more: the quotient is at most 2^127 - 1, and rounded up at
       most 2^127, whose pattern is NaN's; so nothing leaves the two words.""",
       "a divisor of 1")
def _(book: Book, broken: bool) -> None:
    sheet = book.sheet()
    d = sheet.integer("d", 1 if broken else 2, 2**31)
    quotient = sheet.integer("quotient", 0, B**2 - 1)
    remainder = sheet.integer("remainder", 0, 2**31 - 1)
    sheet.assume(remainder < d)
    sheet.assume(quotient * d + remainder < B**2)
    sheet.claim("the quotient", quotient < 2**127)
    dividend = quotient * d + remainder
    sheet.model("divide_by_word", [*reversed(pair(dividend)), 0, 0, d], [*pair(quotient), exact_fraction(remainder, d)])
    sheet.draw = lambda random: dict(zip(("quotient", "remainder"), divmod(random.randrange(B**2), d := random.choice((2, 3, 2**31, random.randrange(2, 2**31)))))) | {"d": d}
