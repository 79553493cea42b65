# SPDX-License-Identifier: MIT
"""The arithmetic of words and pairs: what is said not to carry does not, and what is said to be exact is."""
from __future__ import annotations

from claims.numbers import B, multiply_row, number, pair, product_fits, row_product, split, words_of
from sheets import Book, proof
from terms import (Term, between, both, choose, concat, constant, either, extract, implies, no, one_if, same,
                   signed_less, term, top_bit)

WORDS = "src/wide/words.h"
VECTOR = "src/wide/extended_numeric.h"
COEFFICIENT = "src/wide/coefficient.h"


# ---- Products ----


@proof("words.multiply_portable", f"{WORDS}: multiply_words_portable",
       """In halves of 32 bits no column leaves 64 bits, the upper word is not left either, and the two words are the
       exact product.""",
       "a half of 33 bits")
def _(book: Book, broken: bool) -> None:
    sheet = book.sheet()
    most = 2**33 - 1 if broken else 2**32 - 1
    half = {name: sheet.integer(name, 0, most if name == "a1" else 2**32 - 1) for name in ("a1", "a0", "b1", "b0")}

    def product(a: str, b: str) -> Term:
        return product_fits(sheet, f"{a} * {b}", half[a], half[b], most, most)

    p00, p10, p01, p11 = product("a0", "b0"), product("a1", "b0"), product("a0", "b1"), product("a1", "b1")
    column1 = p10 + p00 // 2**32
    sheet.claim("column 1 fits", column1 < 2**64)
    column2 = p01 + column1 % 2**32
    sheet.claim("column 2 fits", column2 < 2**64)
    high = p11 + column1 // 2**32 + column2 // 2**32
    low = column2 % 2**32 * 2**32 + p00 % 2**32
    sheet.claim("the upper word fits", high < 2**64)
    sheet.claim("the product", high * 2**64 + low == p11 * 2**64 + (p10 + p01) * 2**32 + p00)
    sheet.model("multiply_words_portable", [half["a1"] * 2**32 + half["a0"], half["b1"] * 2**32 + half["b0"]], [high, low])


@proof("words.multiply_add", f"{WORDS}: multiply_add",
       """a * b + c, and a * b + c + d, of any words: the carry out of the lower word never leaves the upper one.""",
       "one more word added")
def _(book: Book, broken: bool) -> None:
    sheet = book.sheet()
    a, b, c, d = (sheet.word(name) for name in "abcd")
    product = product_fits(sheet, "a * b", a, b, B - 1, B - 1)

    def plus(high: Term, low: Term, x: Term) -> tuple[Term, Term]:
        total = (low + x) % B
        return high + one_if(total < x), total

    high, low = plus(product // B, product % B, c)
    sheet.claim("with c", both(high < B, high * B + low == product + c))
    sheet.model("multiply_add", [a, b, c], [high, low])
    high, low = plus(high, low, d)
    sheet.claim("with d", both(high < B, high * B + low == product + c + d))
    sheet.model("multiply_add_two", [a, b, c, d], [high, low])
    if broken:
        high, low = plus(high, low, d)
        sheet.claim("with d again", high < B)


@proof("words.multiply_high", f"{WORDS}: multiply_high",
       """floor(a * b / 2^128) of any pairs, by columns: nothing leaves the two words.""",
       "the lowest column left out")
def _(book: Book, broken: bool) -> None:
    sheet = book.sheet()
    a0, a1, b0, b1 = (sheet.word(name) for name in ("a0", "a1", "b0", "b1"))
    p00 = product_fits(sheet, "a0 * b0", a0, b0, B - 1, B - 1)
    p01 = product_fits(sheet, "a0 * b1", a0, b1, B - 1, B - 1)
    p10 = product_fits(sheet, "a1 * b0", a1, b0, B - 1, B - 1)
    p11 = product_fits(sheet, "a1 * b1", a1, b1, B - 1, B - 1)
    cross = p01 + (0 if broken else p00 // B)
    sheet.claim("cross fits", cross < B**2)
    middle = p10 + cross % B
    sheet.claim("middle fits", middle < B**2)
    top = p11 + cross // B + middle // B
    sheet.claim("top fits", top < B**2)
    product = p11 * B**2 + (p01 + p10) * B + p00
    sheet.claim("the upper half", both(top * B**2 <= product, product < (top + 1) * B**2))
    sheet.model("multiply_high_pair", [a1, a0, b1, b0], pair(top))


@proof("words.wrapping_multiply", f"{WORDS}: wrapping_multiply",
       "A pair times a word, and a pair times a pair, are the products modulo 2^128.",
       "the carry into the upper word left out")
def _(book: Book, broken: bool) -> None:
    sheet = book.sheet()
    a0, a1, b0, b1 = (sheet.word(name) for name in ("a0", "a1", "b0", "b1"))
    p00 = product_fits(sheet, "a0 * b0", a0, b0, B - 1, B - 1)
    p01, p10 = a0 * b1, a1 * b0
    high = (p10 % B + (0 if broken else p00 // B)) % B
    low = p00 % B
    sheet.claim("by a word", (p10 * B + p00 - high * B - low) % B**2 == 0)
    sheet.model("wrapping_multiply_pair_word", [a1, a0, b0], [high, low])
    both_high = (p01 % B + high) % B
    sheet.claim("by a pair", ((p10 + p01) * B + p00 - both_high * B - low) % B**2 == 0)
    sheet.model("wrapping_multiply_pair", [a1, a0, b1, b0], [both_high, low])


@proof("vector.multiply", f"{VECTOR}: multiply",
       "The product of a pair and a word and that of two pairs are exact, in three words and in four.",
       "the carry of the third word left out")
def _(book: Book, broken: bool) -> None:
    sheet = book.sheet()
    a0, a1, b0, b1 = (sheet.word(name) for name in ("a0", "a1", "b0", "b1"))
    p00 = product_fits(sheet, "a0 * b0", a0, b0, B - 1, B - 1)
    p01 = product_fits(sheet, "a0 * b1", a0, b1, B - 1, B - 1)
    p10 = product_fits(sheet, "a1 * b0", a1, b0, B - 1, B - 1)
    p11 = product_fits(sheet, "a1 * b1", a1, b1, B - 1, B - 1)
    high = p10 + p00 // B
    sheet.claim("three words", both(high < B**2, high * B + p00 % B == p10 * B + p00))
    sheet.model("multiply_pair_word", [a1, a0, b0], [p00 % B, high % B, high // B, 0])
    third = p01 + high % B
    sheet.claim("the third word", third < B**2)
    fourth = p11 + high // B + (0 if broken else third // B)
    sheet.claim("the fourth word", fourth < B**2)
    sheet.claim("four words", fourth * B**2 + third % B * B + p00 % B == p11 * B**2 + (p01 + p10) * B + p00)
    sheet.model("multiply_pair", [a1, a0, b1, b0], [p00 % B, third % B, fourth % B, fourth // B])


@proof("vector.multiply_by", f"{VECTOR}: multiply_by",
       """Four words times a word: the four words of the product modulo 2^256, and overflow just where the product is
       2^256 or more.""",
       "overflow only for more than one bit")
def _(book: Book, broken: bool) -> None:
    sheet = book.sheet()
    x, factor = words_of(sheet, "x", 4), sheet.word("factor")
    results, carry = multiply_row(sheet, x, factor, lambda i, c: c < B)
    product = row_product(x, factor)
    sheet.claim("the product", number([*results, carry]) == product)
    overflow = carry > (1 if broken else 0)
    sheet.claim("overflow", same(overflow, product >= 2**256))
    sheet.model("multiply_by", [*x, factor], [*results, one_if(carry > 0)])


# ---- Sums, signs and shifts, by bits ----


def negated_if(negative: Term, words: list[Term]) -> list[Term]:
    """By complement and carry, the mask of a negation being all ones."""
    return [choose(negative == 1, B - 1 - word, word) for word in words]


def add_words(a: list[Term], b: list[Term], lost_carry: int = -1) -> tuple[list[Term], Term]:
    """Words of a sum modulo 2^64 each, with the carry seen where a sum is below its operand."""
    carry: Term = term(0)
    results = []
    for i, (x, y) in enumerate(zip(a, b)):
        total = (x + y) % B
        carried = (total + carry) % B
        results.append(carried)
        carry = one_if(either(total < x, carried < total)) if i != lost_carry else term(0)
    return results, carry


def subtract_words(a: list[Term], b: list[Term]) -> list[Term]:
    """The borrow of a word is seen in the operands."""
    low = (a[0] - b[0]) % B
    return [low, ((a[1] - b[1]) % B - one_if(a[0] < b[0])) % B]


@proof("words.sums", f"{WORDS}: wrapping_add, wrapping_subtract, negated_if",
       """Sum and difference of pairs are those modulo 2^128, compared pairs are in the order of their numbers, and a
       negation on a condition is one.""",
       "no carry from the lower word")
def _(book: Book, broken: bool) -> None:
    sheet = book.sheet()
    a, b = words_of(sheet, "a", 2), words_of(sheet, "b", 2)
    negative = sheet.integer("negative", 0, 1)
    total, _carry = add_words(a, b, 0 if broken else -1)
    sheet.claim("sum", (number(a) + number(b) - number(total)) % B**2 == 0)
    difference = subtract_words(a, b)
    sheet.claim("difference", (number(a) - number(b) - number(difference)) % B**2 == 0)
    less = either(a[1] < b[1], both(a[1] == b[1], a[0] < b[0]))
    sheet.claim("order", same(less, number(a) < number(b)))
    mask = negative * (B - 1)
    negated = subtract_words(negated_if(negative, a), [mask, mask])
    sheet.claim("negation", number(negated) == choose(negative == 1, choose(number(a) == 0, 0, B**2 - number(a)), number(a)))
    arguments = [a[1], a[0], b[1], b[0]]
    sheet.model("wrapping_add_pair", arguments, [total[1], total[0]])
    sheet.model("wrapping_subtract_pair", arguments, [difference[1], difference[0]])
    sheet.model("less_pair", arguments, [one_if(less)])
    sheet.model("negated_if_pair", [negative, a[1], a[0]], [negated[1], negated[0]])


@proof("words.shifts", f"{WORDS}: shift_right, shift_left",
       "For every count from 0 to 63 the shifted pair is a / 2^bits, and a * 2^bits modulo 2^128.",
       "what crosses over moved by one bit less")
def _(book: Book, broken: bool) -> None:
    for count in range(64):
        sheet = book.sheet(f"{count} bits")
        high, low = sheet.bits("high", 64), sheet.bits("low", 64)
        a = concat(high, low)
        crossing = max(63 - count - (1 if broken else 0), 0)
        right = (high >> count, high << 1 << crossing | low >> count)
        left = (high << count | low >> 1 >> crossing, low << count)
        sheet.claim("right", concat(*right) == a >> count)
        sheet.claim("left", concat(*left) == a << count)
        sheet.model("shift_right_pair", [high, low, count], right)
        sheet.model("shift_left_pair", [high, low, count], left)


@proof("vector.sums", f"{VECTOR}: add, subtract, negated_if",
       """Sum and difference of four words, by halves, are those modulo 2^256, the carry is the one out of the sum, and a
       negation on a condition is one.""",
       "the carry of the lower half not carried on")
def _(book: Book, broken: bool) -> None:
    sheet = book.sheet()
    a, b = words_of(sheet, "a", 4), words_of(sheet, "b", 4)
    half = B**2

    def halves(words: list[Term]) -> tuple[Term, Term]:
        return number(words[:2]), number(words[2:])

    def sum_of(x: list[Term], y: list[Term]) -> tuple[Term, Term, Term]:
        (x_low, x_high), (y_low, y_high) = halves(x), halves(y)
        low, high = (x_low + y_low) % half, (x_high + y_high) % half
        carried = (high + (0 if broken else one_if(low < x_low))) % half
        return low, carried, one_if(either(high < x_high, carried < high))

    low, high, carry = sum_of(a, b)
    sheet.claim("sum and carry", carry * half**2 + high * half + low == number(a) + number(b))
    sheet.model("add", [*a, *b], [*split(low, 2), *split(high, 2), carry])
    (a_low, a_high), (b_low, b_high) = halves(a), halves(b)
    high, low = ((a_high - b_high) % half - one_if(a_low < b_low)) % half, (a_low - b_low) % half
    sheet.claim("difference", (number(a) - number(b) - high * half - low) % half**2 == 0)
    sheet.model("subtract", [*a, *b], [*split(low, 2), *split(high, 2)])
    x = number(a)
    for sign in (0, 1):
        flipped = [B - 1 - word for word in a] if sign else a
        low, high, _carry = sum_of(flipped, [term(sign), term(0), term(0), term(0)])
        negated = choose(x == 0, 0, half**2 - x) if sign else x
        sheet.claim(f"negation if {sign}", high * half + low == negated)
        sheet.model("negated_if", [sign, *a], [*split(low, 2), *split(high, 2)])


@proof("vector.shifts", "src/wide/shifting.h: shift_left, shift_right, word_at",
       """For every count the words shifted left are x * 2^bits modulo 2^256, with lost telling whether anything left the
       top; shifted right they are x / 2^bits, the code is the topmost 32 bits that fall off, and what is sticky tells
       whether anything lies below them.""",
       "the code taken one bit too low")
def _(book: Book, broken: bool) -> None:
    for count in (*range(0, 256, 1), 256, 257, 287, 288, 289, 1000):
        sheet = book.sheet(f"{count} bits")
        x = [sheet.bits(f"x{i}", 64) for i in range(4)]
        zero = x[0] & 0
        whole = concat(concat(x[3], x[2]), concat(x[1], x[0]))

        def word_at(i: int, offset: int) -> Term:
            def word(at: int) -> Term:
                return x[at] if 0 <= at < 4 else zero
            return word(i) if offset == 0 else word(i) << offset | word(i - 1) >> (64 - offset)

        def joined(words: list[Term]) -> Term:
            return concat(concat(words[3], words[2]), concat(words[1], words[0]))

        if count < 256:
            words, offset = divmod(count, 64)
            left = [word_at(i - words, offset) for i in range(4)]
            lost = zero
            for i in range(4, 5 + words):
                lost = lost | word_at(i - words, offset)
            sheet.claim("left", joined(left) == whole << count)
            sheet.claim("lost", same(lost != 0, (whole << count) >> count != whole))
            sheet.model("shift_left", [*x, count], [*left, one_if(lost != 0)])
        if count > 0:
            amount = min(count, 288)
            words = (amount + 63) // 64
            offset = words * 64 - amount
            fallen = word_at(words - 1, offset)
            lower = fallen & 0xffffffff
            for i in range(words - 1):
                lower = lower | word_at(i, offset)
            right = [word_at(i + words, offset) for i in range(4)]
            code = fallen >> 32
            below = concat(whole, zero) << 0  # with 64 zeros behind the point
            fraction = below << (256 - count) if count <= 256 else below >> (count - 256)
            topmost = extract(fraction >> (287 if broken else 288), 31, 0)
            sheet.claim("right", joined(right) == whole >> count)
            sheet.claim("code", extract(code, 31, 0) == topmost)
            sticky = extract(fraction, 287, 0) != 0
            if count <= 288:
                sheet.claim("sticky", same(lower != 0, sticky))
            else:
                sheet.claim("sticky", same(lower != 0, whole != 0))
            sheet.model("shift_right", [*x, count], [*right, code, one_if(lower != 0)])


@proof("vector.bit_length", f"{VECTOR}: bit_length",
       "2^(n-1) <= x < 2^n for the length n of every x but zero, whose length is 0.",
       "the word below the top one")
def _(book: Book, broken: bool) -> None:
    sheet = book.sheet()
    x = words_of(sheet, "x", 4)
    for top in range(4):
        above = both(*(x[i] == 0 for i in range(top + 1, 4)))
        for width in range(1, 65):
            length = 64 * top + width - (1 if broken else 0)
            in_word = both(above, between(2 ** (width - 1), x[top], 2**width - 1))
            sheet.claim(f"word {top}, {width} bits",
                        implies(in_word, both(number(x) * 2 >= 2**length, number(x) < 2**length)))
    length: Term = x[0] * 0
    for top in range(4):
        for width in range(1, 65):
            length = choose(x[top] >= 2 ** (width - 1), 64 * top + width, length)
    sheet.model("bit_length", x, [length])


@proof("coefficient.signs", f"{COEFFICIENT}: fits_int64, magnitude_of, is_negative",
       """fits_int64 is the range of an int64; the magnitude of every pattern is at most 2^127, and given its sign again it
       is the pattern; signed order is that of the upper halves, then of the lower ones.""",
       "the sign taken from the lower half")
def _(book: Book, broken: bool) -> None:
    sheet = book.sheet()
    high, low = sheet.bits("high", 64), sheet.bits("low", 64)
    other_high, other_low = sheet.bits("other_high", 64), sheet.bits("other_low", 64)
    value, other = concat(high, low), concat(other_high, other_low)
    fits = high == -(low >> 63)
    in_range = both(no_less(value, -(2**63)), no_less(value ^ -1, -(2**63)))
    sheet.claim("the range of an int64", same(fits, in_range))
    negative = top_bit(low if broken else high)
    magnitude = choose(negative, -value, value)
    sheet.claim("the magnitude", magnitude <= 2**127)
    sheet.claim("there and back", choose(negative, -magnitude, magnitude) == value)
    sheet.claim("the magnitude of an int64", choose(fits, magnitude <= 2**63, True))
    less = choose(signed_less(high, other_high), True, both(high == other_high, low < other_low))
    sheet.claim("order", same(less, signed_less(value, other)))
    sheet.model("fits_int64", [high, low], [one_if(fits)])
    true_magnitude = choose(top_bit(high), -value, value)
    sheet.model("magnitude_of", [high, low], [extract(true_magnitude, 127, 64), extract(true_magnitude, 63, 0)])
    order = one_if(less) - one_if(signed_less(other, value))
    sheet.model("compare_same_scale", [high, low, other_high, other_low], [order % B])


def no_less(a: Term, b: int) -> Term:
    """a >= b, both signed."""
    return no(signed_less(a, constant(b, a.sort)))
