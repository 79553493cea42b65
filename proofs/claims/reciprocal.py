# SPDX-License-Identifier: MIT
"""Division of words by a prepared divisor, for every divisor: the reciprocals, and the steps two by one and three by
two. The products of unknowns that these proofs rest on are first multiplied out, as identities of polynomials; what
remains are bounds of single products."""
from __future__ import annotations

from fractions import Fraction
from random import Random

from claims.numbers import B, pair
from sheets import IDENTITY, Book, Sheet, proof
from terms import Term, Values, between, both, choose, either, implies, one_if, same, term, to_real

FILE = "src/wide/reciprocal.h"


def normalized(random: Random, bits: int) -> int:
    low = 2 ** (bits - 1)
    return random.choice((low, low + 1, 2 * low - 1, 2 * low - 2, random.randrange(low, 2 * low),
                          low + random.randrange(2 ** random.randrange(1, bits)) % low))


def reciprocal_of(d: Term, base: int = B**2) -> Term:
    return (base - 1) // d - B


# ---- Newton's iteration ----


@proof("newton.seed", f"{FILE}: reciprocal_seed, reciprocal_by_newton",
       """For every divisor the table's eleven bits v0 leave an error 2^50 - v0 * d40 of at most 5 * 2^39 in size, and no
       product of the first step leaves a word.""",
       "every entry eight smaller")
def _(book: Book, broken: bool) -> None:
    for i, entry in enumerate(book.tables.reciprocal_seed):
        v0 = entry - (8 if broken else 0)
        sheet = book.sheet(f"{256 + i}")
        d = sheet.integer("d", (256 + i) * 2**55, (257 + i) * 2**55 - 1)
        d40 = d // 2**24 + 1
        error = 2**50 - v0 * d40
        sheet.claim("the error", between(-SEED_ERROR, error, SEED_ERROR))
        sheet.claim("no wrap", both(v0 * v0 * d40 < 2**64, v0 * v0 * d40 // 2**40 + 1 < v0 * 2**11))
        sheet.model("reciprocal_by_newton", [d], [reciprocal_of(d)])


def newton_variables(sheet: Sheet) -> tuple[Term, Term]:
    d = sheet.integer("d", 2**63, B - 1)
    d40 = sheet.integer("d40", 2**39 + 1, 2**40)
    sheet.assume(between(d40 * 2**24 - 2**24, d, d40 * 2**24 - 1))
    sheet.model("reciprocal_by_newton", [d], [reciprocal_of(d)])
    sheet.draw = draw_newton
    return d, d40


def draw_newton(random: Random) -> Values:
    """The values of the iteration, with what each division cuts off."""
    d = normalized(random, 64)
    v0, d40 = (2**19 - 3 * 2**8) // (d >> 55), (d >> 24) + 1
    v1 = 2**11 * v0 - v0 * v0 * d40 // 2**40 - 1
    e1 = 2**60 - v1 * d40
    v2 = 2**13 * v1 + v1 * e1 // 2**47
    e2 = 2**97 - v2 * d
    v3 = 2**31 * v2 + v2 * (e2 // 2) // 2**65
    return {
        "d": d, "d40": d40, "v0": v0, "e0": 2**50 - v0 * d40, "floor1": Fraction(v0 * v0 * d40 % 2**40, 2**40),
        "v1": v1, "e1": e1, "floor2": Fraction(v1 * e1 % 2**47, 2**47), "h": (d + 1) // 2,
        "v2": v2, "e2": e2, "floor3": Fraction(v2 * (e2 // 2) % 2**65, 2**65), "odd": e2 % 2, "v3": v3,
    }


SEED_ERROR = 5 * 2**39  # the errors that the steps leave at most; of the second, what it is above d
FIRST_ERROR = 29 * 2**38
SECOND_ERROR = 7 * 2**60
LARGEST_V2 = 2**34 + 2**17


@proof("newton.first_step", f"{FILE}: reciprocal_by_newton",
       """From a seed with such an error, v1 = 2^11 v0 - floor(v0^2 d40 / 2^40) - 1 leaves an error 2^60 - v1 * d40 that is
       above 0 and at most 29/4 * 2^40.""",
       "no 1 taken off")
def _(book: Book, broken: bool) -> None:
    sheet = book.sheet()
    d, d40 = newton_variables(sheet)
    v0, e0 = sheet.integer("v0", 0, 2**11), sheet.integer("e0", -SEED_ERROR, SEED_ERROR)
    sheet.assume(e0 == 2**50 - v0 * d40)
    floor = sheet.fraction("floor1")
    seed_error = 2**50 - to_real(v0) * d40
    v1 = to_real(v0) * 2**11 - (to_real(v0) * v0 * d40 / 2**40 - floor) - (0 if broken else 1)
    error = 2**60 - v1 * d40
    rest = (-floor if broken else 1 - floor) * d40
    sheet.claim("the error", error == seed_error * seed_error / 2**40 + rest, IDENTITY)
    sheet.claim("the square", both(seed_error * seed_error >= 0, seed_error * seed_error <= SEED_ERROR**2))
    sheet.claim("the rest", both(rest > 0, rest <= 2**40))
    sheet.claim("its bounds", both(error > 0, error <= FIRST_ERROR))


@proof("newton.second_step", f"{FILE}: reciprocal_by_newton",
       """From there v2 = 2^13 v1 + floor(v1 (2^60 - v1 d40) / 2^47), no product of which leaves a word, is below
       2^34 + 2^17 and leaves an error 2^97 - v2 * d above 0 and below d + 7 * 2^60.""",
       "a reciprocal of the rounded divisor taken for one of a divisor that may be larger")
def _(book: Book, broken: bool) -> None:
    sheet = book.sheet()
    d, d40 = newton_variables(sheet)
    if broken:
        d = sheet.integer("larger", 2**63, 2**64 + 2**40)
        sheet.assume(d <= d40 * 2**24 + 2**40)
    v1, e1 = sheet.integer("v1", 0, 2**22), sheet.integer("e1", 1, FIRST_ERROR)
    sheet.assume(e1 == 2**60 - v1 * d40)
    sheet.claim("v1", between(1, v1, 2**21))
    product = v1 * e1
    sheet.claim("the product fits", between(0, product, 2**21 * FIRST_ERROR))
    floor = sheet.fraction("floor2")
    v2 = to_real(v1) * 2**13 + (to_real(product) / 2**47 - floor)
    sheet.claim("v2", both(v2 < LARGEST_V2, v2 > 0))
    first_error = 2**60 - to_real(v1) * d40
    whole = to_real(d40) * 2**24
    # For the polynomial: v2 once more, of nothing but variables.
    v2_ = to_real(v1) * 2**13 + to_real(v1) * first_error / 2**47 - floor
    error = 2**97 - v2_ * d
    sheet.claim("the error", error == first_error * first_error / 2**23 + floor * whole + v2_ * (whole - d), IDENTITY)
    sheet.claim("v2 again", both(v2_ == v2, first_error == e1))
    sheet.claim("the square", both(first_error * first_error > 0, first_error * first_error <= FIRST_ERROR**2))
    sheet.claim("what is cut off", both(floor * whole >= 0, floor * whole < to_real(d) + 2**24 + 1))
    sheet.claim("the rounded divisor", between(0, v2_ * (whole - d), LARGEST_V2 * 2**24))
    sheet.claim("its bounds", both(error > 0, error < to_real(d) + SECOND_ERROR))


@proof("newton.third_step", f"{FILE}: reciprocal_by_newton",
       """From there the error that is computed modulo 2^64 is floor((2^97 - v2 d) / 2), which fits a word, and
       v3 = 2^31 v2 + floor(v2 * that / 2^65) leaves 0 < 2^128 - v3 * d < 2 d.""",
       "an error not halved")
def _(book: Book, broken: bool) -> None:
    for parity in (0, 1):
        sheet = book.sheet("odd" if parity else "even")
        d, d40 = newton_variables(sheet)
        h = sheet.integer("h", 2**62, 2**63)  # d63
        sheet.assume(d == h * 2 - parity)
        v2 = sheet.integer("v2", 1, LARGEST_V2)
        e2 = 2**97 - v2 * d
        sheet.assume(both(e2 > 0, e2 < d + SECOND_ERROR))
        half = (v2 // 2 if parity else 0) - v2 * h + 2**96
        odd = sheet.integer("odd", 0, 1)
        sheet.assume(e2 == half * 2 + odd)
        sheet.claim("a word", between(0, half, B - 1))
        floor = sheet.fraction("floor3")
        real_error = 2**97 - to_real(v2) * d
        halves = real_error - odd
        v3 = to_real(v2) * 2**31 + to_real(v2) * halves / 2 ** (65 if broken else 66) - floor
        error = 2**128 - v3 * d
        if not broken:
            parts = to_real(odd) * 2**31 + real_error * halves / 2**66 + floor * d
            sheet.claim("the error", error == parts, IDENTITY)
            most = to_real(d) + SECOND_ERROR
            sheet.claim("the error's bounds", both(real_error > 0, real_error < most, halves >= 0, halves < most))
            sheet.claim("the square", both(real_error * halves >= 0, real_error * halves <= most * most))
            sheet.claim("most", most * most < (to_real(d) - 2**31) * 2**66)
            sheet.claim("what is cut off", both(floor * d >= 0, floor * d < to_real(d)))
            sheet.claim("below two", parts < to_real(d) * 2)
            sheet.claim("no less than nothing", parts >= 0)
        sheet.claim("its bounds", both(error >= 0, error < to_real(d) * 2))
        sheet.draw = lambda random, parity=parity: next(v for v in iter(lambda: draw_newton(random), None) if v["d"] % 2 == parity)


@proof("newton.last_step", f"{FILE}: reciprocal_by_newton",
       """From there the adjustment by the upper word of (v3 + 1) * d makes the reciprocal exact: floor((2^128 - 1) / d) -
       2^64, for every divisor.""",
       "no adjustment")
def _(book: Book, broken: bool) -> None:
    sheet = book.sheet()
    d = sheet.integer("d", 2**63, B - 1)
    v3 = sheet.integer("v3", 0, 2**66)  # with its leading bit, which the code leaves out
    product = v3 * d
    sheet.assume(both(product < B**2, product >= B**2 - d * 2))
    sheet.claim("65 bits", between(B, v3, 2 * B - 1))
    high = (product + d) // B % B
    reciprocal = (v3 - B - (term(0) if broken else high)) % B
    whole = reciprocal + B
    sheet.claim("one of two", either(whole == v3, whole == v3 + 1))
    sheet.claim("exact", both(choose(whole == v3, product, product + d) < B**2,
                              choose(whole == v3, product, product + d) + d >= B**2))
    sheet.model("reciprocal_by_newton", [d], [reciprocal])
    sheet.draw = draw_newton


# ---- Two words by one ----


@proof("products.sign", f"{FILE}: divide_2by1, divide_3by2",
       "The one fact about products of unknowns that these proofs use: of two numbers no less than 0 it is no less than 0.",
       "one of them may be less")
def _(book: Book, broken: bool) -> None:
    sheet = book.sheet()
    p, q = sheet.integer("p", -1 if broken else 0, B**8), sheet.integer("q", 0, B**8)
    sheet.claim("the product", p * q >= 0)
    sheet.model("divide_2by1", [0, 0, 2**63, B - 1], [0, 0])


@proof("reciprocal.native", f"{FILE}: reciprocal_of",
       """The dividend 2^128 - 1 - d * 2^64 has the words ~d and 2^64 - 1, the upper one below a normalized d, so that the
       processor's division does not trap; its quotient is the reciprocal.""",
       "a divisor that is not normalized")
def _(book: Book, broken: bool) -> None:
    sheet = book.sheet()
    d = sheet.integer("d", 2**62 if broken else 2**63, B - 1)
    sheet.claim("the dividend", (B - 1 - d) * B + B - 1 == B**2 - 1 - d * B)
    sheet.claim("no trap", B - 1 - d < d)
    sheet.model("reciprocal_of", [d], [reciprocal_of(d)])
    sheet.draw = lambda random: {"d": normalized(random, 64)}


@proof("divide_2by1", f"{FILE}: divide_2by1",
       """For every normalized divisor d with its reciprocal and every u < d * 2^64: the quotient and the remainder are
       those of u / d.""",
       "no second correction")
def _(book: Book, broken: bool) -> None:
    sheet = book.sheet("identity")
    d, v, u1, u0, q1 = (sheet.integer(name, 0, 2 * B) for name in ("d", "v", "u1", "u0", "q1"))
    k = B**2 - (v + B) * d
    q0 = (v + B) * u1 + u0 - q1 * B
    rest = u1 * B + u0 - (q1 + 1) * d
    sheet.claim("what the estimate leaves", rest * B == u1 * k + u0 * (B - d) + q0 * d - d * B, IDENTITY)

    sheet = book.sheet("correction")
    d, k = sheet.integer("d", B // 2, B - 1), sheet.integer("k", 1, B - 1)
    u1, u0 = sheet.integer("u1", 0, B - 1), sheet.integer("u0", 0, B - 1)
    q1, q0 = sheet.integer("q1", 0, B - 1), sheet.integer("q0", 0, B - 1)
    rest = sheet.integer("rest", -(B**2), B**2)
    sheet.assume(k <= d)
    sheet.assume(u1 < d)
    sheet.assume(rest * B == u1 * k + u0 * B - u0 * d + q0 * d - d * B)  # by the identity
    sheet.product(book, "u1 * k", u1, k, u1 * k >= 0)
    sheet.product(book, "u0 * (B - d)", u0, B - d, u0 * B - u0 * d >= 0)
    sheet.product(book, "q0 * d", q0, d, q0 * d >= 0)
    sheet.claim("not below -d", rest >= -d)
    sheet.product(book, "(B - q0) * (B - d)", B - 1 - q0, B - d, q0 * d - q0 * B - d * (B - 1) + B * (B - 1) >= 0)
    sheet.claim("not below q0 - B", rest > q0 - B)
    sheet.product(book, "u1 * k below", u1, d - k, u1 * k <= u1 * d)
    sheet.product(book, "u1 * d below", d - 1 - u1, d, u1 * d <= d * d - d)
    sheet.product(book, "u0 * (B - d) below", B - 1 - u0, B - d, u0 * B - u0 * d <= (B - d) * (B - 1))
    sheet.product(book, "above q0", rest - q0, d, rest * d >= q0 * d, rest >= q0)
    sheet.product(book, "above B - d", rest - B + d, B - d, rest * B - rest * d >= B * B - d * (2 * B) + d * d, rest >= B - d)
    sheet.claim("below q0 or B - d", either(rest < q0, rest < B - d))
    less = choose(rest < 0, rest + B, rest) > q0
    first = rest + choose(less, d, 0)
    sheet.claim("no wrap", between(0, first, B - 1))
    more = first >= d
    left = first if broken else first - choose(more, d, 0)
    sheet.claim("the remainder", between(0, left, d - 1))
    v = sheet.integer("v", 0, B - 1)
    quotient = q1 + 1 - one_if(less) + one_if(more)
    sheet.model("divide_2by1", [u1, u0, d, v], [quotient % B, first - choose(more, d, 0)])
    sheet.draw = draw_2by1

    sheet = book.sheet("the estimate fits")
    d, v, u1, u0 = (sheet.integer(name, 0, B - 1) for name in ("d", "v", "u1", "u0"))
    sheet.assume(v * d + d * B < B**2)
    sheet.assume(u1 < d)
    sheet.product(book, "v * u1", v + B, d - 1 - u1, v * u1 + u1 * B <= v * d + d * B - v - B)
    sheet.claim("two words", v * u1 + u1 * B + u0 < B**2)
    sheet.draw = draw_2by1


def draw_2by1(random: Random) -> Values:
    d = normalized(random, 64)
    v = (B**2 - 1) // d - B
    u = random.choice((d * B - 1, random.randrange(d * B), random.randrange(d * B) // d * d, random.randrange(B)))
    u1, u0 = divmod(u, B)
    q1, q0 = divmod((v + B) * u1 + u0, B)
    return {"d": d, "v": v, "k": B**2 - (B + v) * d, "u1": u1, "u0": u0, "q1": q1, "q0": q0, "rest": u - (q1 + 1) * d}


# ---- Three words by two ----


@proof("reciprocal.pair", f"{FILE}: reciprocal_of",
       """For every normalized divisor of two words the reciprocal of its upper word, corrected, is
       floor((2^192 - 1) / d) - 2^64.""",
       "one correction fewer at the end")
def _(book: Book, broken: bool) -> None:
    sheet = book.sheet()
    d1, d0 = sheet.integer("d1", B // 2, B - 1), sheet.word("d0")
    v = sheet.integer("v", 0, B - 1)
    upper = (v + B) * d1
    sheet.assume(both(upper < B**2, upper >= B**2 - d1))
    product = (upper + d0) % B  # d1 * v + d0, d1 * 2^64 being nothing modulo 2^64
    carried = product < d0
    twice = both(carried, product >= d1)
    v1 = v - one_if(carried) - one_if(twice)
    product1 = (product - choose(carried, d1, 0) - choose(twice, d1, 0)) % B
    total = upper + d0 - choose(carried, d1, 0) - choose(twice, d1, 0)  # (v1 + 2^64) * d1 + d0
    sheet.claim("as a product", total == (v1 + B) * d1 + d0)
    sheet.claim("the upper word", both(total < B**2, total >= B**2 - d1, product1 == total - (B**2 - B)))
    sheet.claim("no borrow", v1 >= 0)
    cross = sheet.integer("cross", 0, (B - 1) ** 2)
    sheet.assume(cross == v1 * d0)
    divisor = d1 * B + d0
    product2 = (product1 + cross // B) % B
    above = product2 < cross // B
    far_above = both(above, product2 * B + cross % B >= divisor)
    result = v1 - one_if(above) - (term(0) if broken else one_if(far_above))
    excess = total * B + cross - B**3  # (v1 + 2^64) * d - 2^192
    sheet.claim("with d", excess == (v1 + B) * divisor - B**3, IDENTITY)
    sheet.claim("above", both(same(above, excess >= 0), implies(above, product2 * B + cross % B == excess)))
    left = excess - choose(above, divisor, 0) - (term(0) if broken else choose(far_above, divisor, 0))
    sheet.claim("exact", both(left < 0, left >= -divisor))
    sheet.model("reciprocal_of_pair", [d1, d0], [v1 - one_if(above) - one_if(far_above)])
    sheet.draw = draw_pair_reciprocal


def draw_pair_reciprocal(random: Random) -> Values:
    d = normalized(random, 128)
    d1, d0 = divmod(d, B)
    v = (B**2 - 1) // d1 - B
    v1 = v
    while (v1 + B) * d1 + d0 >= B**2:
        v1 -= 1
    return {"d1": d1, "d0": d0, "v": v, "cross": v1 * d0}


@proof("divide_3by2", f"{FILE}: divide_3by2",
       """For every normalized divisor d of two words with its reciprocal, and every dividend of three words whose upper two
       are below d: the quotient and the remainder are those of the division.""",
       "no second correction")
def _(book: Book, broken: bool) -> None:
    sheet = book.sheet("identity")
    d1, d0, v, u2, u1, u0, q1 = (sheet.integer(name, 0, 2 * B) for name in ("d1", "d0", "v", "u2", "u1", "u0", "q1"))
    d = d1 * B + d0
    k = B**3 - (v + B) * d
    q0 = (v + B) * u2 + u1 - q1 * B
    rest = u2 * B**2 + u1 * B + u0 - (q1 + 1) * d
    sheet.claim("what the estimate leaves", rest * B == u2 * k + u1 * (B**2 - d) + u0 * B + q0 * d - d * B, IDENTITY)
    sheet.claim("modulo 2^128", (u1 - q1 * d1) * B + u0 - d0 * q1 - d == rest - u2 * B**2, IDENTITY)

    sheet = book.sheet("correction")
    y = sheet.integer("y", 1, B**2 // 2)  # what d lacks to 2^128
    k = sheet.integer("k", 1, B**2)
    u2, u1, u0 = (sheet.word(name) for name in ("u2", "u1", "u0"))
    q1, q0 = sheet.word("q1"), sheet.word("q0")
    v = sheet.word("v")
    rest = sheet.integer("rest", -(B**3), B**3)
    d = B**2 - y
    sheet.assume(k <= d)
    sheet.assume(u2 * B + u1 < d)
    sheet.assume(k == y * B - v * B**2 + v * y)  # that v is the reciprocal
    sheet.assume(rest * B == u2 * k + u1 * y + u0 * B + q0 * B**2 - q0 * y - d * B)  # by the identity
    sheet.product(book, "u2 * k", u2, k, u2 * k >= 0)
    sheet.product(book, "u1 * y", u1, y, u1 * y >= 0)
    sheet.product(book, "q0 * y", q0, y, q0 * y >= 0)
    sheet.product(book, "q0 * y below", B - q0, y, q0 * y <= y * B)
    sheet.product(book, "u2 * k below", u2, d - k, u2 * k <= u2 * B**2 - u2 * y)
    sheet.claim("not below -d", rest >= -d)
    sheet.claim("not below (q0 - 2^64) * 2^64", rest >= q0 * B - B**2)
    # What lies above both bounds would lie above their mean, and make this positive.
    beyond = u2 * k * B + u1 * y * B + u0 * B**2 - d * B**2 - y * y
    above_both = both(rest >= q0 * B, rest >= y)
    sheet.product(book, "above q0 * 2^64", rest - q0 * B, d, rest * B**2 - rest * y >= q0 * B**3 - q0 * y * B, rest >= q0 * B)
    sheet.product(book, "above y", rest - y, y, rest * y >= y * y, rest >= y)
    sheet.claim("the mean", implies(above_both, rest * B**2 >= q0 * B**3 - q0 * y * B + y * y))
    sheet.claim("beyond both", implies(above_both, beyond >= 0))
    sheet.product(book, "the upper two words", d - 1 - u2 * B - u1, d,
                  u2 * B**3 - u2 * y * B + u1 * B**2 - u1 * y <= B**4 - y * (2 * B**2) + y * y - B**2 + y)
    sheet.product(book, "the middle word", B - 1 - u1, y * (B + 1) - B**2,
                  u1 * y * (B + 1) - u1 * B**2 <= (y * (B + 1) - B**2) * (B - 1), y >= B)
    sheet.claim("far from 2^128", implies(y >= B, beyond < 0))
    sheet.product(book, "v * d", v - 1, d, v * y <= v * B**2 - B**2 + y, v >= 1)
    sheet.claim("near 2^128", implies(y < B, k == y * B))
    sheet.lemma(book, "u2 * k near", [], implies(k == y * B, u2 * k == u2 * y * B))
    sheet.product(book, "the upper two words, times y", d - 1 - u2 * B - u1, y,
                  u2 * y * B + u1 * y <= y * (B**2 - 1) - y * y)
    sheet.lemma(book, "a tangent", [], y * y >= y * (2 * B - 2) - (B - 1) ** 2)
    sheet.claim("near 2^128, too", implies(y < B, beyond < 0))
    sheet.claim("below q0 * 2^64 or 2^128 - d", either(rest < q0 * B, rest < y))
    less = choose(rest < 0, rest + B**2, rest) >= q0 * B
    first = rest + choose(less, d, 0)
    sheet.claim("no wrap", between(0, first, B**2 - 1))
    more = first >= d
    left = first if broken else first - choose(more, d, 0)
    sheet.claim("the remainder", between(0, left, d - 1))
    quotient = q1 + 1 - one_if(less) + one_if(more)
    sheet.model("divide_3by2", [u2, u1, u0, *pair(d), v], [quotient % B, *pair(first - choose(more, d, 0))])
    sheet.draw = draw_3by2


def draw_3by2(random: Random) -> Values:
    d = normalized(random, 128)
    v = (B**3 - 1) // d - B
    u = random.choice((d * B - 1, random.randrange(d * B), random.randrange(d * B) // d * d, random.randrange(B**2)))
    u2, u1, u0 = u // B**2, u // B % B, u % B
    q1, q0 = divmod((v + B) * u2 + u1, B)
    return {"y": B**2 - d, "v": v, "k": B**3 - (B + v) * d, "u2": u2, "u1": u1, "u0": u0, "q1": q1, "q0": q0,
            "rest": u - (q1 + 1) * d}
