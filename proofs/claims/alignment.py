# SPDX-License-Identifier: MIT
"""The frame of two operands of different scales: nothing leaves the top, and at most one operand loses digits."""
from __future__ import annotations

from claims.decimal_powers import constant_sheet
from claims.numbers import B, pair
from sheets import Book, proof
from terms import between, both, choose, either, implies, no

FILE = "src/numeric/alignment.cpp"


@proof("alignment.align", f"{FILE}: align, guard_digits",
       """For all operands and scales: the shifts take both operands that are not zero to the common scale, at most one of
       them is negative, and then the scales are more than 38 apart; and no magnitude times the power of its shift
       reaches 2^255.""",
       "ten more guard digits")
def _(book: Book, broken: bool) -> None:
    sheet = book.sheet()
    a = sheet.integer("a", -(2**127) + 1, 2**127 - 1)
    b = sheet.integer("b", -(2**127) + 1, 2**127 - 1)
    a_scale = sheet.integer("a_scale", -(2**31), 2**31 - 1)
    b_scale = sheet.integer("b_scale", -(2**31), 2**31 - 1)
    distance = b_scale - a_scale
    more = 10 if broken else 0

    def guard(x):
        return choose(between(-(2**64), x, 2**64 - 1), 48 + more, 38 + more)

    def shape(zero_a, zero_b, far_b, far_a, near_b, near_a):
        return choose(a == 0, zero_a, choose(b == 0, zero_b, choose(distance < -38, far_b, choose(
            distance > 38, far_a, choose(distance < 0, near_b, near_a)))))

    common = shape(b_scale, a_scale, b_scale + guard(b), a_scale + guard(a), a_scale, b_scale)
    a_shift = shape(0, 0, distance + guard(b), guard(a), 0, distance)
    b_shift = shape(0, 0, guard(b), guard(a) - distance, -distance, 0)
    sheet.claim("a at the common scale", either(a == 0, b == 0, a_scale + a_shift == common))
    sheet.claim("b at the common scale", either(a == 0, b == 0, b_scale + b_shift == common))
    sheet.claim("one of them alone", no(both(a_shift < 0, b_shift < 0)))
    sheet.claim("far apart", implies(either(a_shift < 0, b_shift < 0), either(distance > 38, distance < -38)))
    for name, x, shift in (("a", a, a_shift), ("b", b, b_shift)):
        small = between(-(2**64), x, 2**64)
        sheet.claim(f"{name} moves 38 places, or 48 if it is small", either(shift <= 38, both(shift <= 48, small)))
    if not broken:
        sheet.model("align", [*pair(a % B**2), a_scale % B, *pair(b % B**2), b_scale % B],
                    [common % B, a_shift % B, b_shift % B])
    sheet.draw = lambda random: {
        "a_scale": (at := random.randrange(-(2**30), 2**30)),
        "b_scale": at + random.choice((0, 1, -1, 37, 38, 39, -38, -39, 86, 87, -87, random.randrange(-200, 200))),
        "a": random.choice((0, 1, -(2**64), 2**64 - 1, 2**64, -(2**64) - 1, 2**127 - 1)),
        "b": random.choice((0, 1, -(2**64), 2**64 - 1, 2**64, -(2**64) - 1, 2**127 - 1)),
    }


@proof("alignment.constants", f"{FILE}: exact_distance, guard_digits",
       """2^127 * 10^38 < 2^254 and 2^64 * 10^48 < 2^224, so the sum of two such operands and a unit is below 2^255; an int64
       times 10^19, twice, is below 2^127; a magnitude times an int32 is below 2^159, and of an int64 below 2^95.""",
       "one digit more")
def _(book: Book, broken: bool) -> None:
    sheet, zero = constant_sheet(book)
    more = 1 if broken else 0
    sheet.claim("38 digits", zero + 2**127 * 10 ** (38 + more) < 2**254)
    sheet.claim("48 digits", zero + 2**64 * 10 ** (48 + more) < 2**224)
    sheet.claim("a sum", zero + 2 * 2**254 + 1 <= 2**255 + 1)
    sheet.claim("two words", both(zero + 2**63 * (10**19 + 1) < 2**127, zero + 2**127 + 10**38 < 2**128))
    sheet.claim("a quotient", both(zero + 2**127 // 10**20 < 2**64, zero + 10**39 > 2**128, zero + 10**80 > 2**256))
    sheet.claim("45 digits of a literal", zero + 10**45 < 2**256)
    sheet.model("has_room_to_round", [2**63 - 1, B - 1, 38], [0])
