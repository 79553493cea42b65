# SPDX-License-Identifier: MIT
"""The rounding decision against the definition of the seven modes, in real numbers."""
from __future__ import annotations

from claims.dropped import exact_fraction
from sheets import Book, Sheet, proof
from terms import Term, between, both, choose, either, implies, no, one_if, same, term, to_real

FILE = "src/wide/rounding.h"
MODES = ("UP", "DOWN", "CEILING", "FLOOR", "HALF_UP", "HALF_DOWN", "HALF_EVEN")


def is_rounded(mode: str, value: Term, result: Term) -> Term:
    """Whether the integer `result` is the real `value` rounded by the mode, from the mode's own definition. There is one
    such integer for every value."""
    size = choose(value < 0, -value, value)
    rounded_size = choose(result < 0, -to_real(result), to_real(result))
    same_side = both(implies(value >= 0, result >= 0), implies(value <= 0, result <= 0))
    distance = to_real(result) - value
    distance = choose(distance < 0, -distance, distance)
    tie = distance * 2 == term(1)
    definition = {
        "UP": both(same_side, rounded_size >= size, rounded_size < size + 1),
        "DOWN": both(same_side, rounded_size <= size, rounded_size > size - 1),
        "CEILING": both(to_real(result) >= value, to_real(result) < value + 1),
        "FLOOR": both(to_real(result) <= value, to_real(result) > value - 1),
        "HALF_UP": both(distance * 2 <= 1, implies(tie, rounded_size > size)),
        "HALF_DOWN": both(distance * 2 <= 1, implies(tie, rounded_size < size)),
        "HALF_EVEN": both(distance * 2 <= 1, implies(tie, result % 2 == 0)),
    }
    return definition[mode]


def decide(sets: int, fraction: Term, negative: Term, odd: Term) -> Term:
    """The bit of a mode's sets at 4 * fraction + 2 * negative + odd."""
    position = fraction * 4 + one_if(negative) * 2 + odd
    return either(*(position == at for at in range(16) if sets >> at & 1))


@proof("rounding.decision", f"{FILE}: increased_by_mode, rounds_away, decision",
       """For each of the seven modes, every kept magnitude, either sign and every dropped fraction: the magnitude
       increased where the table says so, with its sign, is the value rounded as the mode is defined.""",
       "below and above half exchanged")
def _(book: Book, broken: bool) -> None:
    for mode, name in enumerate(MODES):
        sheet = book.sheet(name)
        kept = sheet.integer("kept", 0, 2**256 - 1)
        fraction = sheet.fraction("dropped")
        negative = sheet.truth("negative")
        size = to_real(kept) + fraction
        value = choose(negative, -size, size)
        dropped = exact_fraction(fraction, 1)
        seen = choose(dropped == 0, 0, 4 - dropped) if broken else dropped
        increased = decide(book.tables.increased_by_mode[mode], seen, negative, kept % 2)
        magnitude = kept + one_if(increased)
        sheet.claim("the definition", is_rounded(name, value, choose(negative, -magnitude, magnitude)))
        sheet.claim("no loss, no change", implies(fraction == 0, no(increased)))
        sheet.model("rounds_away", [mode, dropped, one_if(negative), kept % 2], [one_if(increased)])


@proof("rounding.raised", f"{FILE}: raised_by_mode, rounds_up",
       """The same decision from the integer below a value: raised where the derived table says so, it is the value rounded
       as the mode is defined.""",
       "the parity of the other neighbour")
def _(book: Book, broken: bool) -> None:
    for mode, name in enumerate(MODES):
        sheet = book.sheet(name)
        below = sheet.integer("below", -(2**128), 2**128)
        above = sheet.fraction("above")
        odd = (below + (1 if broken else 0)) % 2
        fraction = exact_fraction(above, 1)
        raised = decide(book.tables.raised_by_mode[mode], fraction, below < 0, odd)
        sheet.claim("the definition", is_rounded(name, to_real(below) + above, below + one_if(raised)))
        sheet.model("rounds_up", [mode, fraction, one_if(below < 0), odd], [one_if(raised)])


@proof("rounding.one_result", f"{FILE}: rounds_away",
       "The definitions that the decision is held against leave one result for every value, whichever the mode.",
       "ties that may go either way")
def _(book: Book, broken: bool) -> None:
    for mode, name in enumerate(MODES):
        sheet = book.sheet(name)
        kept = sheet.integer("kept", -(2**127), 2**127)
        fraction = sheet.fraction("fraction")
        other = sheet.integer("other", -(2**128), 2**128)
        value = to_real(kept) + fraction
        here, there = is_rounded(name, value, kept), is_rounded(name, value, other)
        if broken:
            distance = to_real(other) - value
            there = between(-1, distance * 2, 1)
            here = between(-1, (to_real(kept) - value) * 2, 1)
        sheet.claim("one result", implies(both(here, there), kept == other))
        sheet.model("rounds_away", [mode, 0, 0, kept % 2], [0])
        sheet.draw = lambda random: {"fraction": 0}


@proof("rounding.joined_to_kept", "src/numeric/rescaling_add.cpp: add_to_kept",
       """kept + other / 10^digits: with the other one rounded down towards minus infinity, its fraction turned where it
       borrows, and the sum raised where the derived table says so, the result is the exact sum rounded once; the pattern
       or the overflow refuses it on the side where the rounded sum leaves the range.""",
       "a fraction that is not turned")
def _(book: Book, broken: bool) -> None:
    for mode, name in enumerate(MODES):
        sheet = book.sheet(name)
        kept = sheet.integer("kept", -(2**127) + 1, 2**127 - 1)
        quotient = sheet.integer("quotient", 0, 2**127 // 10)  # one digit goes at least
        fraction = sheet.fraction("fraction")
        negative = sheet.truth("negative")
        size = to_real(quotient) + fraction
        exact = to_real(kept) + choose(negative, -size, size)
        dropped = exact_fraction(fraction, 1)
        borrows = both(negative, fraction > 0)
        magnitude = quotient + one_if(borrows)
        addend = choose(negative, -magnitude, magnitude)
        true_sum = kept + addend
        # In two's complement: the sum as it is seen, and whether it went round.
        seen = choose(true_sum >= 2**127, true_sum - 2**128, choose(true_sum < -(2**127), true_sum + 2**128, true_sum))
        turned = dropped if broken else choose(borrows, 4 - dropped, dropped)
        raised = decide(book.tables.raised_by_mode[mode], turned, seen < 0, seen % 2)
        result = seen + one_if(raised)
        is_pattern = either(result == 2**127, result == -(2**127))
        refused = either(seen != true_sum, is_pattern)
        rounded = sheet.integer("rounded", -(2**128), 2**128)
        sheet.assume(is_rounded(name, exact, rounded))
        sheet.draw = draw_rounded(sheet, exact, name)
        sheet.claim("rounded once", implies(no(refused), result == rounded))
        sheet.claim("refused beyond the range", same(refused, either(rounded >= 2**127, rounded <= -(2**127))))
        sheet.claim("on the side of kept", implies(refused, same(kept < 0, rounded < 0)))
        sheet.model("rounds_up", [mode, turned, one_if(seen < 0), seen % 2], [one_if(raised)])


def draw_rounded(sheet: Sheet, exact: Term, mode: str):
    def draw(random):
        from fractions import Fraction
        values = {
            "kept": random.choice((0, 1, -1, 2**127 - 1, -(2**127) + 1, random.randrange(-(2**127) + 1, 2**127))),
            "quotient": random.choice((0, 1, 2, random.randrange(2**127 // 10))),
            "fraction": random.choice((Fraction(0), Fraction(1, 2), Fraction(1, 10), Fraction(9, 10))),
            "negative": random.random() < 0.5,
        }
        below = exact.evaluate(values) // 1
        for rounded in (int(below), int(below) + 1):
            result = sheet.variables["rounded"]
            if is_rounded(mode, exact, result).evaluate({**values, "rounded": rounded}):
                return {**values, "rounded": rounded}
        return values
    return draw
