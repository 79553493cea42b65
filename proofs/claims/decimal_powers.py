# SPDX-License-Identifier: MIT
"""Multiplication and division by powers of ten in words: every reciprocal of the table, over its whole range."""
from __future__ import annotations

from typing import Iterator

from claims.dropped import exact_fraction, fraction_of, joined
from claims.numbers import B, number, pair, words_of
from compiled import Power, Tables
from sheets import Book, Sheet, proof
from terms import Term, between, both, choose, either, implies, one_if, same

POWERS = "src/wide/decimal_powers.h"
SCALING = "src/wide/scaling.h"
SPLIT = "src/wide/decimal_split.h"
NARROWING = "src/wide/narrowing.h"


def divisors(tables: Tables, first: int = 1, last: int = 38) -> Iterator[tuple[int, Power]]:
    return ((k, ten) for k, ten in enumerate(tables.decimal_power) if first <= k <= last)


def constant_sheet(book: Book, name: str = "all") -> tuple[Sheet, Term]:
    """A sheet about constants alone, and a 0 to make terms of them."""
    sheet = book.sheet(name)
    return sheet, sheet.integer("zero", 0, 0)


@proof("powers.table", f"{POWERS}: decimal_power, record_of, power_of_two_by",
       """Every record holds 10^k, its bit length less one, the reciprocals m = floor(2^(n+b) / d) + 1 for n = 63 and 127,
       which fit one word and two, and the reciprocal of the normalized power for long division.""",
       "each reciprocal one smaller")
def _(book: Book, broken: bool) -> None:
    sheet, zero = constant_sheet(book)
    less = 1 if broken else 0
    for k, ten in divisors(book.tables):
        d, b = zero + ten.power, ten.shift + 1
        m = ten.reciprocal - less
        sheet.claim(f"10^{k}", both(d == 10**k, 2 ** (b - 1) < d, d < 2**b))
        # A multiplier m with m * d in (2^(n+b), 2^(n+b) + d] is that floor and 1, d being no power of two.
        sheet.claim(f"two words, 10^{k}", both(d * m > 2 ** (127 + b), d * m < d + 2 ** (127 + b), zero + m < B**2))
        up = (64 if k <= 19 else 128) - b
        normal, base = d * 2**up, B**2 if k <= 19 else B**3
        if k <= 19:
            word = ten.word_reciprocal - less
            sheet.claim(f"one word, 10^{k}", both(d * word > 2 ** (63 + b), d * word < d + 2 ** (63 + b), zero + word < B))
            sheet.model("reciprocal_of", [10**k * 2**up], [ten.long_reciprocal])
        v = B + ten.long_reciprocal
        sheet.claim(f"long division, 10^{k}", both(normal * v < base, normal * (v + 1) >= base, ten.long_reciprocal < B))
    sheet.claim("10^0", zero + book.tables.decimal_power[0].power == 1)


@proof("powers.divide_word", f"{SCALING}: divide_by_power, scale_down",
       """For k = 1 .. 19 and every x up to 2^63, the upper word of x * m moved down by the shift is x / 10^k, what is left
       fits, and the fraction is the one dropped.""",
       "each reciprocal one smaller")
def _(book: Book, broken: bool) -> None:
    for k, ten in divisors(book.tables, 1, 19):
        sheet = book.sheet(f"10^{k}")
        x = sheet.integer("x", 0, 2**63)
        m = ten.word_reciprocal - (1 if broken else 0)
        quotient = x * m // 2**64 // 2**ten.shift
        left = x - quotient * ten.power
        sheet.claim("the quotient", between(0, left, ten.power - 1))
        dropped = fraction_of(left, ten.power)
        sheet.claim("the fraction", dropped == exact_fraction(left, ten.power))
        sheet.model("divide_by_power_word", [x, k], [quotient])
        sheet.model("scale_down_word", [x, k], [quotient, dropped])


@proof("powers.divide_pair", f"{SCALING}: divide_by_power, scale_down",
       """For k = 1 .. 38 and every x up to 2^127, the upper half of x * m moved down by the shift is x / 10^k; beyond 19
       digits it is one word; what is left of x in one word, and in two beyond 19 digits, is the remainder, and the
       fraction is the one dropped.""",
       "each reciprocal one smaller")
def _(book: Book, broken: bool) -> None:
    for k, ten in divisors(book.tables):
        sheet = book.sheet(f"10^{k}")
        x = sheet.integer("x", 0, 2**127)
        m = ten.reciprocal - (1 if broken else 0)
        upper_half = x * m // 2**128
        sheet.claim("two words", upper_half < B**2)
        quotient = upper_half // 2**ten.shift
        left = x - quotient * ten.power
        sheet.claim("the quotient", between(0, left, ten.power - 1))
        modulus = B if k <= 19 else B**2
        if k > 19:
            sheet.claim("one word", both(quotient < B, quotient == upper_half // B // 2 ** (ten.shift - 64)))
        sheet.claim("the remainder", left % modulus == left)
        dropped = fraction_of(left, ten.power)
        sheet.claim("the fraction", dropped == exact_fraction(left, ten.power))
        sheet.model("divide_by_power_pair", [*pair(x), k], pair(quotient))
        sheet.model("scale_down_pair", [*pair(x), k], [*pair(quotient), dropped])


@proof("powers.far_down", f"{SCALING}: scale_down",
       """Beyond the digits of the tables nothing but a fraction below one half is left: 10^20 / 2 is above every magnitude
       of a word, 10^39 / 2 above every magnitude of a coefficient.""",
       "two digits less")
def _(book: Book, broken: bool) -> None:
    less = 1 if broken else 0
    for name, digits, most in (("word", 20, 2**63), ("pair", 39, 2**127)):
        sheet = book.sheet(name)
        x = sheet.integer("x", 0, most)
        sheet.claim("below one half", exact_fraction(x, 10 ** (digits - less)) == one_if(x != 0))
        words = [x] if name == "word" else pair(x)
        sheet.model(f"scale_down_{name}", [*words, digits], [*[0 for _ in words], one_if(x != 0)])


@proof("powers.two_words_or_not", f"{SCALING}: divide_by_power",
       """A step of up to 38 digits is taken for a vector just where the quotient is below 2^128.""",
       "an upper word as large as the power let through")
def _(book: Book, broken: bool) -> None:
    for k, ten in divisors(book.tables, 1):
        sheet = book.sheet(f"10^{k}")
        x = words_of(sheet, "x", 4)
        if k <= 19:
            taken = both(x[3] == 0, x[2] <= ten.power if broken else x[2] < ten.power)
        else:
            high = x[3] * B + x[2]
            taken = high <= ten.power if broken else high < ten.power
        sheet.claim("below 2^128", same(taken, number(x) < B**2 * ten.power))
        quotient = number(x) // ten.power
        dropped = exact_fraction(number(x) % ten.power, ten.power)
        zero = x[0] * 0
        sheet.model("divide_by_power_four", [*x, k], [one_if(taken), *[choose(taken, w, zero) for w in (*pair(quotient), dropped)]])
        sheet.draw = lambda random, power=ten.power: {
            f"x{i}": value // B**i % B
            for value in [random.choice((power * B**2 - 1, power * B**2, random.randrange(power * B**2), random.randrange(B**4)))]
            for i in range(4)
        }


@proof("powers.two_steps", f"{SCALING}: scale_down_far",
       """Two divisions, by 10^38 and by the rest up to 10^38, are the division by both: the quotient, and the joined
       fraction.""",
       "the fraction of the last step alone")
def _(book: Book, broken: bool) -> None:
    for rest in range(1, 39):
        sheet = book.sheet(f"10^{38 + rest}")
        last, r2, r1 = sheet.integer("last", 0, B**2 - 1), sheet.integer("r2", 0, 10**rest - 1), sheet.integer("r1", 0, 10**38 - 1)
        first = last * 10**rest + r2
        x = first * 10**38 + r1
        left = x - last * 10 ** (38 + rest)
        sheet.claim("the quotient", between(0, left, 10 ** (38 + rest) - 1))
        dropped = exact_fraction(r2, 10**rest)
        if not broken:
            dropped = joined(exact_fraction(r1, 10**38), dropped)
        sheet.claim("the fraction", dropped == exact_fraction(left, 10 ** (38 + rest)))
        sheet.model("joined", [exact_fraction(r1, 10**38), exact_fraction(r2, 10**rest)], [dropped])


@proof("powers.in_eights", "src/wide/limb_scaling.h: scale_down_in_limbs, passes_for",
       """Eight digits at a time and then the rest, ten eights at most: for every distance from 1 to 96 the quotient is that
       by the whole power, and a last code of an even divisor with the others sticky is the fraction that is dropped.""",
       "nine eights at most")
def _(book: Book, broken: bool) -> None:
    most = 9 if broken else 10
    for digits in range(80 if broken else 1, 97):  # the fault is one of long distances
        sheet = book.sheet(f"{digits} digits")
        x = sheet.integer("x", 0, 2**256 - 1)
        applied = min(digits // 8, most) * 8 + digits % 8
        last = 10 ** (digits % 8) if digits % 8 else 10**8
        before = 10**applied // last
        # The steps before the last one together, which is one division by before; then the last one.
        q1, r1 = sheet.integer("q1", 0, 2**256), sheet.integer("r1", 0, before - 1)
        q2, r2 = sheet.integer("q2", 0, 2**256), sheet.integer("r2", 0, last - 1)
        sheet.assume(x == q1 * before + r1)
        sheet.assume(q1 == q2 * last + r2)
        left = x - q2 * 10**digits
        if applied == digits:
            sheet.claim("the quotient", between(0, left, 10**digits - 1))
            sheet.claim("the fraction", joined(exact_fraction(r1, before), exact_fraction(r2, last)) ==
                        exact_fraction(left, 10**digits))
        else:
            sheet.claim("nothing is left", both(q2 == 0, x * 2 < 10**digits))
            sheet.claim("the fraction", joined(exact_fraction(r1, before), exact_fraction(r2, last)) == one_if(x != 0))
        sheet.model("joined", [exact_fraction(r1, before), exact_fraction(r2, last)],
                    [joined(exact_fraction(r1, before), exact_fraction(r2, last))])
        sheet.draw = lambda random, before=before, last=last: draw_steps(random, before, last)


def draw_steps(random, before: int, last: int) -> dict[str, int]:
    x = random.choice((0, 1, 2**256 - 1, random.randrange(2**random.randrange(1, 257))))
    q1, r1 = divmod(x, before)
    q2, r2 = divmod(q1, last)
    return {"x": x, "q1": q1, "r1": r1, "q2": q2, "r2": r2}


@proof("powers.up", f"{SCALING}: multiply_by_power, scale_up",
       """Up to 38 digits the product of a pair and 10^k is exact in four words, one word of power doing up to 19; overflow
       tells just where it leaves two words; and 10^39 takes every number but zero out of them.""",
       "20 digits by a power of one word")
def _(book: Book, broken: bool) -> None:
    for k, ten in divisors(book.tables, 20 if broken else 0):  # the fault begins at 20 digits
        sheet = book.sheet(f"10^{k}")
        x = sheet.integer("x", 0, B**2 - 1)
        power = ten.power % B if k <= (20 if broken else 19) else ten.power
        product = x * power
        sheet.claim("the product", both(product == x * 10**k, product < B**4))
        overflow = product // B**2 != 0
        sheet.claim("overflow", same(overflow, x * 10**k >= B**2))
        sheet.model("scale_up_pair", [*pair(x), k], [*pair(product % B**2), one_if(overflow)])
    sheet = book.sheet("10^39")
    x = sheet.integer("x", 0, B**2 - 1)
    sheet.claim("out of the top", same(x * 10**39 >= B**2, x != 0))
    sheet.model("scale_up_pair", [*pair(x), 39], [*pair(x), one_if(x != 0)])


@proof("powers.beyond_the_top", "src/wide/limb_scaling.h: scale_up_in_limbs, passes_for",
       """10^80 exceeds 2^256, so for 80 digits and more the power that ten eights and the rest apply takes every magnitude
       but zero out of the top, as the whole power does.""",
       "nine eights at most")
def _(book: Book, broken: bool) -> None:
    eights = 9 if broken else 10
    for digits in range(80, 97):
        sheet = book.sheet(f"{digits} digits")
        x = sheet.integer("x", 0, 2**256 - 1)
        applied = 10 ** (min(digits // 8, eights) * 8 + digits % 8)
        sheet.claim("out of the top", same(x * applied >= 2**256, x != 0))
        sheet.claim("as the whole power", same(x * applied >= 2**256, x * 10**digits >= 2**256))
        sheet.model("mul_unsigned", [*split_words(x), 10**8], [*split_words(x * 10**8 % 2**256), x * 10**8 // 2**256])


def split_words(x: Term) -> list[Term]:
    return [x // B**i % B for i in range(4)]


@proof("narrowing.room_to_round", f"{NARROWING}: has_room_to_round, fits",
       """For k = 0 .. 38 and every magnitude of a coefficient the sum with 10^k does not wrap; where it fits, the quotient by
       10^k, one larger, moved back up fits too.""",
       "half a unit of room")
def _(book: Book, broken: bool) -> None:
    for k, ten in divisors(book.tables, 0):
        sheet = book.sheet(f"10^{k}")
        quotient = sheet.integer("quotient", 0, 2**127)
        rest = sheet.integer("rest", 0, ten.power - 1)
        x = quotient * ten.power + rest
        sheet.assume(x <= 2**127)
        sheet.claim("no wrap", x + ten.power < B**2)
        has_room = x + (ten.power // 2 if broken else ten.power) < 2**127
        sheet.claim("it fits", implies(has_room, (quotient + 1) * ten.power < 2**127))
        sheet.model("has_room_to_round", [*pair(x), k], [one_if(x + ten.power < 2**127)])
        sheet.draw = lambda random, power=ten.power: dict(zip(
            ("quotient", "rest"), divmod(random.choice((2**127, 2**127 - power, 2**127 - power - 1, random.randrange(2**127))), power)))


# ---- Digits ----


@proof("digits.logarithm", f"{SPLIT}: whole_log10_of_power_of_two",
       "For every length b up to 128 it is the t with 10^t <= 2^b < 10^(t+1).",
       "a factor of 1232")
def _(book: Book, broken: bool) -> None:
    sheet, zero = constant_sheet(book)
    for b, t in enumerate(book.tables.whole_log10_of_power_of_two):
        seen = b * 1232 >> 12 if broken else t
        sheet.claim(f"{b} bits", both(zero + 10**seen <= 2**b, zero + 2**b < 10 ** (seen + 1)))
    sheet.model("count_digits_pair", [2**63 - 1, B - 1], [39])


@proof("digits.count", f"{SPLIT}: count_digits",
       """For every number of a word and of a pair the count is the n with 10^(n-1) <= x < 10^n, and 0 for 0; the power it
       looks at is in the table.""",
       "a power as large as the number not counted")
def _(book: Book, broken: bool) -> None:
    tables = book.tables
    for b in range(0, 128):  # no magnitude has more than 2^127 - 1; 2^127 itself comes below
        sheet = book.sheet(f"{b} bits")
        x = sheet.integer("x", 2 ** (b - 1) if b else 0, 2**b - 1)
        fewest = tables.whole_log10_of_power_of_two[b]
        power = tables.decimal_power[fewest].power
        digits = fewest + one_if(x > power if broken else x >= power)
        most = fewest + 1
        if b == 0:
            sheet.claim("no digits", digits == (0 if not broken else 1))
        else:
            sheet.claim("the count", either(*(both(digits == n, between(10 ** (n - 1), x, 10**n - 1))
                                              for n in range(max(fewest, 1), most + 1))))
        sheet.model("count_digits_word" if b <= 64 else "count_digits_pair", [x] if b <= 64 else pair(x), [digits])
    sheet, zero = constant_sheet(book, "2^127")
    digits = tables.whole_log10_of_power_of_two[128] + one_if(zero + 2**127 >= tables.decimal_power[38].power)
    sheet.claim("the count", both(digits == 39, zero + 10**38 <= 2**127, zero + 2**127 < 10**39))
    sheet.model("count_digits_pair", [2**63, 0], [39])


@proof("digits.split", f"{SPLIT}: split_at, split_into_words",
       """Cut behind 1 .. 38 digits, both parts of every magnitude are exact: the lower part is what the product of the upper
       part and the power leaves. Cut behind 19, both parts are one word, the divisor is normalized, and the upper word
       of the dividend is below it.""",
       "the cut into words one digit lower")
def _(book: Book, broken: bool) -> None:
    k = 18 if broken else 19
    sheet = book.sheet("into words")
    x = sheet.integer("x", 0, 2**127)
    ten = book.tables.decimal_power[k]
    upper, lower = x // ten.power, x % ten.power
    sheet.claim("one word each", both(upper < B, lower < B, ten.power >= 2**63))
    sheet.claim("below the divisor", x // B < ten.power)
    if not broken:
        sheet.model("split_into_words", pair(x), [upper, lower])
    for k, ten in divisors(book.tables):
        sheet = book.sheet(f"10^{k}")
        x = sheet.integer("x", 0, 2**63 if k <= 19 else 2**127)
        upper = x // ten.power
        sheet.claim("nothing wraps", both(upper * ten.power <= x, between(0, x - upper * ten.power, ten.power - 1)))
