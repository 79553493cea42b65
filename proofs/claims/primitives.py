# SPDX-License-Identifier: MIT
"""The limb primitives, and the divisor_t tables they stand on."""
from __future__ import annotations

from random import Random

from claims.numbers import four_words, multiply_row, number, row_product
from compiled import Divisor, Tables
from sheets import Book, proof
from terms import Term, between, both, choose, one_if

FILE = "src/wide/primitives.h"


def rows(tables: Tables) -> dict[str, Divisor]:
    """Every row of both tables."""
    tens = {f"10^{k}": d for k, d in enumerate(tables.negative_power_of_ten)}
    fives = {f"5^{k}": d for k, d in enumerate(tables.negative_power_of_five)}
    return tens | fives


@proof("tables.divisors", "src/wide/powers.h: negative_power_of_ten, negative_power_of_five",
       """Every row is what its definition says: the shift is floor(log2 d), and the multiplier is the largest m below
       2^32 with m * d <= 2^(32 + shift).""",
       "each multiplier one larger")
def _(book: Book, broken: bool) -> None:
    tens, fives = book.tables.power_of_ten, book.tables.power_of_five
    sheet = book.sheet()
    bit = sheet.integer("bit", 0, 0)  # there is nothing to quantify over: the tables are constants
    for base, table, powers in ((10, book.tables.negative_power_of_ten, tens), (5, book.tables.negative_power_of_five, fives)):
        for k, (d, power) in enumerate(zip(table, powers)):
            m = bit + d.multiplier + (1 if broken else 0)
            sheet.claim(f"{base}^{k}", both(
                bit + d.divisor == base**k, bit + power == base**k,
                bit + 2**d.shift <= d.divisor, bit + d.divisor < 2 ** (d.shift + 1),
                m * d.divisor <= 2 ** (32 + d.shift),
                (m + 1) * d.divisor > 2 ** (32 + d.shift) if d.divisor > 1 else m == 2**32 - 1))
            sheet.model("make_divisor", [d.divisor], [d.shift, d.multiplier, d.divisor])


@proof("divide_limb.estimate", f"{FILE}: divide_limb",
       """For every row of both divisor_t tables and every partial dividend x < d * 2^32: the product stays below 2^64,
       the estimate is never above the true quotient and at most three below it (of these rows: at most two), and what
       it leaves fits 32 bits.""",
       "each multiplier one larger")
def _(book: Book, broken: bool) -> None:
    for name, d in rows(book.tables).items():
        multiplier = d.multiplier + (1 if broken else 0)
        sheet = book.sheet(name)
        x = sheet.integer("x", 0, d.divisor * 2**32 - 1)
        product = x // 2**d.shift * multiplier
        estimate = product // 2**32
        left = x - estimate * d.divisor
        sheet.claim("the product fits", product < 2**64)
        sheet.claim("the estimate is not above", left >= 0)
        sheet.claim("the estimate is at most three below", left < 4 * d.divisor)
        sheet.claim("the estimate is at most two below", left < 3 * d.divisor)
        sheet.claim("what is left fits", left < 2**32)
        quotient, remainder = corrected(estimate, left, d, 3)
        sheet.model("divide_limb", [x, d.shift, d.multiplier, d.divisor], [quotient, remainder])


def corrected(estimate: Term, left: Term, d: Divisor, corrections: int) -> tuple[Term, Term]:
    for _ in range(corrections):
        again = left >= d.divisor
        estimate, left = estimate + one_if(again), left - choose(again, d.divisor, 0)
    return estimate, left


@proof("divide_limb.corrections", f"{FILE}: divide_limb",
       """For every row of both divisor_t tables: from an estimate as divide_limb.estimate has it, the corrections reach
       the quotient, which fits 32 bits, and the remainder, which is below d; three of them from three below.""",
       "one correction fewer")
def _(book: Book, broken: bool) -> None:
    for name, d in rows(book.tables).items():
        sheet = book.sheet(name)
        estimate = sheet.integer("estimate", 0, 2**32 - 1)
        left = sheet.integer("left", 0, 4 * d.divisor - 1)
        x = estimate * d.divisor + left
        sheet.assume(x < d.divisor * 2**32)
        quotient, remainder = corrected(estimate, left, d, 2 if broken else 3)
        sheet.claim("quotient and remainder", both(quotient * d.divisor + remainder == x,
                                                   between(0, remainder, d.divisor - 1)))
        sheet.claim("the quotient fits", between(0, quotient, 2**32 - 1))
        sheet.model("divide_limb", [x, d.shift, d.multiplier, d.divisor], [quotient, remainder])


# ---- Vectors ----


@proof("mul_unsigned", f"{FILE}: mul_unsigned",
       """For every magnitude and every factor: each carry is below the factor, no sum of a product and a carry leaves 128
       bits, and the words with what left the top are the exact product.""",
       "a factor of 65 bits")
def _(book: Book, broken: bool) -> None:
    sheet = book.sheet()
    words = four_words(sheet, "a")
    m = sheet.integer("m", 1, 2**65 if broken else 2**32 - 1)
    results, carry = multiply_row(sheet, words, m, lambda i, c: c < m if not broken else c < 2**64)
    sheet.claim("the product", number([*results, carry]) == row_product(words, m))
    sheet.model("mul_unsigned", [*words, m], [*results, carry])


@proof("div_unsigned", f"{FILE}: div_unsigned",
       """For every row of both divisor_t tables and every magnitude: limb by limb from the top, each with the remainder
       of the one before it, every partial dividend is below d * 2^32, and the limbs are those of the quotient.""",
       "a remainder that may be the divisor")
def _(book: Book, broken: bool) -> None:
    for name, row in rows(book.tables).items():
        d = row.divisor
        sheet = book.sheet(name)
        remainder: Term = sheet.integer("none", 0, d if broken else 0)
        limbs: list[Term] = []
        quotient: list[Term] = []
        for i in reversed(range(8)):
            q, r = sheet.integer(f"q{i}", 0, 2**40), sheet.integer(f"r{i}", 0, d - 1)
            limb = q * d + r - remainder * 2**32
            sheet.assume(between(0, limb, 2**32 - 1))
            sheet.claim(f"dividend {i}", remainder * 2**32 + limb < d * 2**32)
            sheet.claim(f"limb {i} fits", q < 2**32)
            limbs.insert(0, limb)
            quotient.insert(0, q)
            remainder = r
        sheet.claim("the quotient", number(quotient, 2**32) * d + remainder == number(limbs, 2**32))
        code = choose(remainder == 0, 0, 2**31 - d + 2 * remainder)
        sheet.model("div_unsigned", [*in_words(limbs), row.shift, row.multiplier, d], [*in_words(quotient), code])
        sheet.draw = lambda random, d=d: draw_division(random, d)


def in_words(limbs: list[Term]) -> list[Term]:
    return [limbs[2 * i + 1] * 2**32 + limbs[2 * i] for i in range(4)]


def draw_division(random: Random, d: int) -> dict[str, int]:
    values, remainder = {"none": 0}, 0
    for i in reversed(range(8)):
        limb = random.choice((0, 1, 2**32 - 1, random.randrange(2**32)))
        values[f"q{i}"], remainder = divmod(remainder * 2**32 + limb, d)
        values[f"r{i}"] = remainder
    return values
