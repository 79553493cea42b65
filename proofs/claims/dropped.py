# SPDX-License-Identifier: MIT
"""What rounding knows of a remainder orders as the remainder does."""
from __future__ import annotations

from claims.numbers import B
from sheets import Book, proof
from terms import Operand, Term, between, both, choose, either, implies, one_if, same, term, to_real

FILE = "src/wide/dropped.h"
HALF = 2**31

NOTHING, BELOW, EXACTLY, ABOVE = range(4)


def exact_fraction(part: Operand, whole: Operand) -> Term:
    """Where part / whole, from 0 up to 1, stands: the definition that all the others are held against."""
    twice = term(part) * 2
    return choose(term(part) == 0, NOTHING, choose(twice < whole, BELOW, choose(twice == whole, EXACTLY, ABOVE)))


def remainder_code(remainder: Term, divisor: Operand) -> Term:
    return choose(remainder == 0, 0, HALF - term(divisor) + remainder * 2)


def fraction_of_dropped(code: Term, sticky: Term) -> Term:
    return choose(both(code == 0, sticky == 0), NOTHING,
                  choose(code < HALF, BELOW, choose(both(code == HALF, sticky == 0), EXACTLY, ABOVE)))


def fraction_of(remainder: Term, divisor: Operand) -> Term:
    lacking = term(divisor) - remainder
    return one_if(remainder != 0) + one_if(remainder >= lacking) + one_if(remainder > lacking)


def joined(first: Operand, last: Operand) -> Term:
    first, last = term(first), term(last)
    return choose(first == NOTHING, last, choose(either(last == NOTHING, last == BELOW), BELOW, ABOVE))


@proof("dropped.remainder_code", f"{FILE}: remainder_code, remainder_of",
       """For every divisor up to 2^31 and every remainder below it: the code fits 32 bits, is 0 for 0 alone, and is below,
       equal to or above 2^31 just where the remainder is below, equal to or above one half of the divisor; and
       remainder_of gives the remainder back.""",
       "a code one larger")
def _(book: Book, broken: bool) -> None:
    sheet = book.sheet()
    d = sheet.integer("d", 1, 2**31)
    r = sheet.integer("r", 0, 2**31 - 1)
    sheet.assume(r < d)
    code = remainder_code(r, d) + (1 if broken else 0)
    sheet.claim("32 bits", between(0, code, 2**32 - 2))
    sheet.claim("2 or more", implies(r > 0, code >= 2))
    sheet.claim("zero", same(code == 0, r == 0))
    sheet.claim("below", implies(r > 0, same(code < HALF, r * 2 < d)))
    sheet.claim("equal", same(code == HALF, r * 2 == d))
    sheet.claim("above", same(code > HALF, r * 2 > d))
    back = choose(code == 0, 0, (code + d - HALF) // 2)
    sheet.claim("back", back == r)
    sheet.model("remainder_code", [r, d], [code])
    sheet.model("remainder_of", [code, d], [back])


@proof("dropped.chain", f"{FILE}: fraction_of, drop",
       """At the end of a chain of divisions the last of which is by an even d, with the code of its remainder and a
       sticky word that is zero just where all before it dropped nothing, the fraction is that of everything that was
       dropped.""",
       "a tie without a look at the sticky word")
def _(book: Book, broken: bool) -> None:
    sheet = book.sheet()
    half = sheet.integer("half_of_d", 1, 2**30)
    r = sheet.integer("r", 0, 2**31 - 1)
    sheet.assume(r < half * 2)
    below = sheet.fraction("below")  # what the earlier steps dropped, in units of the last remainder
    sticky = sheet.integer("sticky", 0, 2**32 - 1)
    sheet.assume(same(sticky != 0, below > 0))
    sheet.draw = lambda random: {"below": 0, "sticky": 0} if random.random() < 0.5 else {"sticky": 7}
    code = remainder_code(r, half * 2)
    fraction = fraction_of_dropped(code, sticky * 0 if broken else sticky)
    sheet.claim("the fraction", fraction == exact_fraction(to_real(r) + below, to_real(half * 2)))
    sheet.model("fraction_of_dropped", [code, sticky], [fraction])


@proof("dropped.fraction_of", f"{FILE}: fraction_of",
       """For a remainder below its divisor, in one word and in two: what it lacks to the divisor fits, and the fraction is
       below, equal to or above one half just where the remainder is.""",
       "a comparison swapped")
def _(book: Book, broken: bool) -> None:
    for name, most in (("one word", B), ("two words", B**2)):
        sheet = book.sheet(name)
        d = sheet.integer("d", 1, most - 1)
        r = sheet.integer("r", 0, most - 1)
        sheet.assume(r < d)
        sheet.claim("what it lacks", between(1, d - r, most - 1))
        fraction = fraction_of(r, d)
        if broken:
            fraction = one_if(r != 0) + one_if(r > d - r) + one_if(r >= d - r)
            fraction = fraction - one_if(r * 2 == d) + one_if(r * 2 < d)
        sheet.claim("the fraction", fraction == exact_fraction(r, d))
        if most == B:
            sheet.model("fraction_of", [r, d], [fraction])
        else:
            sheet.model("fraction_of_pair", [r // B, r % B, d // B, d % B], [fraction])


@proof("dropped.joined", f"{FILE}: joined",
       """Two moves in a row, the last by an even number: joined fractions are the fraction of both.""",
       "an odd divisor for the last move")
def _(book: Book, broken: bool) -> None:
    sheet = book.sheet()
    half = sheet.integer("half", 1, 10**38)
    d = half * 2 + (1 if broken else 0)
    r = sheet.integer("r", 0, 2 * 10**38)
    sheet.assume(r < d)
    below = sheet.fraction("below")
    first = exact_fraction(below, 1)
    last = exact_fraction(r, d)
    sheet.claim("the fraction of both", joined(first, last) == exact_fraction(to_real(r) + below, to_real(d)))
    sheet.model("joined", [first, last], [joined(first, last)])


@proof("dropped.complement_if", f"{FILE}: complement_if",
       "The complement of a fraction is the fraction of what is lacking to a whole, and nothing stays nothing.",
       "below and above half not exchanged")
def _(book: Book, broken: bool) -> None:
    sheet = book.sheet()
    part = sheet.fraction("part")
    wanted = sheet.integer("wanted", 0, 1)
    fraction = exact_fraction(part, 1)
    # (fraction ^ 3) + 1 of 1, 2 and 3 is 3, 2 and 1, and of 0 it is 4, which no caller asks for.
    complement = choose(wanted == 1, 4 - fraction, fraction)
    sheet.assume(implies(wanted == 1, part > 0))
    lacking = exact_fraction(choose(wanted == 1, 1 - part, part), 1)
    sheet.claim("the complement", (fraction if broken else complement) == lacking)
    sheet.model("complement_if", [wanted, fraction], [complement])
