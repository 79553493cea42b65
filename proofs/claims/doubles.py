# SPDX-License-Identifier: MIT
"""The short roads of the double conversions, and the bounds that the steps rest on."""
from __future__ import annotations

from random import Random

from claims.decimal_powers import constant_sheet, divisors
from claims.numbers import B, pair
from sheets import Book, proof
from terms import Values, between, both, choose, implies, one_if

TO = "src/numconv/to_double.cpp"
TO_STEPS = "src/numconv/to_double_steps.cpp"
FROM = "src/numconv/from_double.cpp"
FROM_STEPS = "src/numconv/from_double_steps.cpp"


@proof("to_double.divide", f"{TO}: divide",
       """For 1 .. 38 places and every x with 127 bits: the bits are floor(x * 2^s / 10^places), or up to 19 places perhaps 1
       more; there are 126 or 127 of them; and they are said to be exact just where
       10^places divides x * 2^s.""",
       "a reciprocal two larger")
def _(book: Book, broken: bool) -> None:
    for places, ten in divisors(book.tables):
        sheet = book.sheet(f"{places} places")
        x = sheet.integer("x", 2**126, 2**127 - 1)
        d, s = ten.power, ten.shift
        bits, rest = sheet.integer("bits", 0, B**2), sheet.integer("rest", 0, B**2 - 1)
        m = ten.reciprocal + (2 * 2**s if broken else 0)
        sheet.assume(x * m == bits * B**2 + rest)
        sheet.draw = lambda random, m=m: draw_product(random, m)
        missing = x * 2**s - bits * d
        sheet.claim("1 too large at most", between(-d, missing, d - 1))
        sheet.claim("126 or 127 bits", between(2**125, bits, 2**127))
        if places <= 19:
            # Only the lowest words of both products are compared: they are alike just where wraps is whole.
            wraps = sheet.integer("wraps", -B, B)
            sheet.claim("exact", implies(missing == wraps * B, missing == 0))
            sheet.model("to_double.divide", [*pair(x), places], [*pair(bits), one_if(missing == 0)])
        else:
            sheet.claim("seen in full", between(-(2**127), missing, 2**127 - 1))
            result = bits - one_if(missing < 0)
            sheet.claim("the quotient", between(0, x * 2**s - result * d, d - 1))
            sheet.model("to_double.divide", [*pair(x), places], [*pair(result), one_if(missing == 0)])


def draw_product(random: Random, m: int) -> Values:
    x = random.choice((2**126, 2**127 - 1, random.randrange(2**126, 2**127), 10 ** random.randrange(38) << 1))
    while x < 2**126:
        x <<= 1
    return {"x": x, "bits": x * m // B**2, "rest": x * m % B**2}


@proof("double_steps.division_makes_room", f"{TO_STEPS}: divide_by_ten",
       "A division by 5^12 makes room for a shift by 27 bits, and one by 5^p for a shift by p: nothing leaves the top.",
       "one bit more")
def _(book: Book, broken: bool) -> None:
    more = 1 if broken else 0
    for power, five in enumerate(book.tables.power_of_five):
        shift = (27 if power == book.tables.constants["largest_power_of_five"] else power) + more
        sheet = book.sheet(f"5^{power}")
        x = sheet.integer("x", 0, 2**256 - 1)
        sheet.claim("nothing leaves the top", x // five * 2**shift < 2**256)
        words = [x // B**i % B for i in range(4)]
        sheet.model("mul_unsigned", [*words, five], [*[x * five // B**i % B for i in range(4)], x * five // 2**256])


@proof("double_steps.turns_are_few", f"{FROM_STEPS}: convert, take_apart",
       """Of every double at every scale, the binary places and the fives together are at most 1266 where the vector is
       shifted down and multiplied, and at most 779 where it is divided and shifted up.""",
       "a significand 64 bits lower")
def _(book: Book, broken: bool) -> None:
    bias, bits = book.tables.constants["exponent_bias"], book.tables.constants["fraction_bits"]
    sheet = book.sheet()
    field = sheet.integer("field", 0, book.tables.constants["exponent_of_infinity"] - 1)
    scale = sheet.integer("scale", -(2**31), 2**31 - 1)
    smallest = 1 - bias - bits - (256 if broken else 192)
    exponent = smallest + choose(field == 0, 0, field - 1) + scale
    sheet.claim("down", implies(both(exponent < 0, scale > 0), -exponent + scale <= 1266))
    sheet.claim("up", implies(both(exponent >= 0, scale < 0), exponent - scale <= 779))
    sheet.claim("too large", implies(both(exponent >= 0, scale >= 0), exponent >= 0))
    sheet.model("from_double.is_out_of_range", [2000, 0], [1])


@proof("doubles.far_scales", f"{TO}: scale_of_tiny_results, scale_of_huge_results",
       """2^127 / 10^363 is below 2^-1078; 29 turns of twelve fives and 28 binary places take the exponent from -128 to 2^1032;
       and what 38 places shift out, 95 bits, is less than the lower half of the vector.""",
       "a scale two smaller")
def _(book: Book, broken: bool) -> None:
    sheet, zero = constant_sheet(book)
    sheet.claim("tiny", zero + 2**127 * 2**1078 < 10 ** (361 if broken else 363))
    sheet.claim("huge", both(zero + 348 == 29 * 12, zero - 128 + 29 * (12 + 28) >= 1024))
    sheet.claim("zeros", zero + 38 // 12 * 28 + 11 <= 95)
    sheet.model("to_double.divide", [2**62, 0, 0], [2**62, 0, 1])


@proof("from_double.out_of_range", f"{FROM}: is_out_of_range",
       """10^1000 < 2^3322, so 10^places < 2^(3322 * places / 1000 + 1); a double called out of range is above 2^128 even
       so, and refused.""",
       "3321 binary places for 1000 decimal ones")
def _(book: Book, broken: bool) -> None:
    factor = 3321 if broken else 3322
    sheet, zero = constant_sheet(book, "the factor")
    sheet.claim("10^1000", zero + 10**1000 < 2**factor)
    sheet = book.sheet("the length")
    length = sheet.integer("length", -1100, 1100)
    places = sheet.integer("places", 1, 2**31)
    out = length - factor * places // 1000 > 131
    # length is at most one more than the bits before the point, and the floor at most one less than the factor's product.
    sheet.claim("above 2^129", implies(out, (length - 2) * 1000 - 3322 * places > 128 * 1000))
    sheet.model("from_double.is_out_of_range", [length % B, places], [one_if(out)])
