# SPDX-License-Identifier: MIT
"""Eight characters at once: which of them are digits, and of what number."""
from __future__ import annotations

from random import Random

from sheets import Book, proof
from terms import Term, Values, both, constant, extract, implies, one_if, same, zero_extend

FILE = "src/numconv/digits.h"
DIGITS = [(0x30, 9)] * 8
GROUPS = [(0x2C, 0), (0x30, 9), (0x30, 9), (0x30, 9)] * 2


def in_bytes(values: list[int]) -> int:
    return sum(value << 8 * i for i, value in enumerate(values))


def byte(x: Term, i: int) -> Term:
    return extract(x, 8 * i + 7, 8 * i)


def match(characters: Term, pattern: list[tuple[int, int]]) -> tuple[Term, Term]:
    values = characters ^ in_bytes([low for low, _ in pattern])
    most = in_bytes([0x7F - most for _, most in pattern])
    return values, ((values + most) | values) & in_bytes([0x80] * 8)


def draw_characters(random: Random) -> Values:
    texts = (b"12345678", b"00000000", b"99999999", b",123,456", b"1234.678", b"12:45678", b"12/45678", b"1\x8034567\xff",
             bytes(random.randrange(256) for _ in range(8)), bytes(random.choice(b"0123456789.,:/") for _ in range(8)))
    return {"characters": int.from_bytes(random.choice(texts), "little")}


@proof("digits.match", f"{FILE}: match, match_digits, match_two_groups, count_matched",
       """Of eight characters none misses just where each lies at its pattern's or above it by at most so much; the lowest
       miss is the first character that does not; and in front of it the values are what the characters are above.""",
       "a digit more")
def _(book: Book, broken: bool) -> None:
    for name, pattern in (("match_digits", DIGITS), ("match_two_groups", GROUPS)):
        sheet = book.sheet(name)
        characters = sheet.bits("characters", 64)
        seen = [(low, most + 1) if most else (low, most) for low, most in pattern] if broken else pattern
        values, misses = match(characters, seen)
        good = [both(byte(characters, i) >= low, byte(characters, i) <= low + most) for i, (low, most) in enumerate(pattern)]
        sheet.claim("all match", same(misses == 0, both(*good)))
        for i in range(8):
            in_front = both(*good[:i])
            sheet.claim(f"character {i}", implies(in_front, same(byte(misses, i) == 0, good[i])))
            sheet.claim(f"value {i}", implies(both(*good[: i + 1]), byte(values, i) == byte(characters, i) - pattern[i][0]))
        sheet.model(name, [characters], [values, misses])
        sheet.draw = draw_characters


@proof("digits.without_first_miss", f"{FILE}: without_first_miss, first_values",
       """For each place of the first miss: the values in front of it stay, those behind it close up, the misses behind it
       move along and the last place misses. And the first so many values, for fewer than eight, come to stand behind
       zeros.""",
       "the last place left a match")
def _(book: Book, broken: bool) -> None:
    for at in range(8):
        sheet = book.sheet(f"{at} in front")
        values = sheet.bits("values", 64)
        misses = sheet.bits("misses", 64)
        sheet.assume((misses & in_bytes([0x7F] * 8)) == 0)
        sheet.assume((misses & ((1 << (8 * at)) - 1)) == 0)
        sheet.assume((misses & (0x80 << (8 * at))) != 0)
        in_front = (1 << (8 * at)) - 1
        closed = (values & in_front) | (values >> 8 & ~constant(in_front, values.sort))
        moved = (misses & (misses - 1)) >> 8 | (0 if broken else 0x80 << 56)
        for i in range(8):
            source = i if i < at else i + 1
            if source < 8:
                sheet.claim(f"value {i}", byte(closed, i) == byte(values, source))
                sheet.claim(f"miss {i}", byte(moved, i) == (byte(misses, source) if i >= at else constant(0, byte(misses, 0).sort)))
            else:
                sheet.claim("the last place misses", byte(moved, i) == 0x80)
        first = values << 8 << (56 - 8 * at)
        for i in range(8):
            sheet.claim(f"first value {i}", byte(first, i) == (byte(values, i - (8 - at)) if i >= 8 - at else constant(0, byte(values, 0).sort)))
        sheet.model("without_first_miss", [values, misses], [closed, moved])
        sheet.model("first_values", [values, at], [first])
        sheet.draw = lambda random, at=at: {
            "values": random.randrange(2**64),
            "misses": 0x80 << 8 * at | sum(0x80 << 8 * i for i in range(at + 1, 8) if random.random() < 0.5),
        }


def join_lanes(lanes: Term, bits: int, base: int) -> Term:
    every_second_lane = (2**64 - 1) // (2**bits + 1)
    return lanes * (base * 2**bits + 1) >> bits & every_second_lane


@proof("digits.number_of", f"{FILE}: number_of, join_lanes",
       """Three multiplications make one number of eight digits, and of two groups of three behind a comma: no lane carries
       into the next one.""",
       "a value of 10 among the digits")
def _(book: Book, broken: bool) -> None:
    for name, base, places in (("number_of", 10_000, range(8)), ("number_of_groups", 1_000, (1, 2, 3, 5, 6, 7))):
        sheet = book.sheet(name)
        values = sheet.bits("values", 64)
        for i in range(8):
            most = (9 if i in places else 0) + (40 if broken and i == 2 else 0)
            sheet.assume(byte(values, i) <= most)

        def digit(i: int) -> Term:
            return zero_extend(byte(values, i), 56)

        # Lane by lane, so that each step is small.
        twos = join_lanes(values, 8, 10)
        wanted = [digit(2 * i) * 10 + digit(2 * i + 1) for i in range(4)]
        for i in range(4):
            sheet.claim(f"two digits {i}", (twos >> (16 * i) & 0xFFFF) == wanted[i])
        pairs = sheet.bits("pairs", 64)
        sheet.assume(pairs == twos)
        fours = join_lanes(pairs, 16, 100)
        for i in range(2):
            upper, lower = pairs >> (32 * i) & 0xFFFF, pairs >> (32 * i + 16) & 0xFFFF
            sheet.claim(f"four digits {i}", (fours >> (32 * i) & 0xFFFFFFFF) == upper * 100 + lower)
            sheet.claim(f"at most 9999 {i}", (fours >> (32 * i) & 0xFFFFFFFF) <= 9999)
        halves = sheet.bits("halves", 64)
        sheet.assume(halves == fours)
        sheet.claim("eight digits", join_lanes(halves, 32, base) == (halves & 0xFFFFFFFF) * base + (halves >> 32))
        sheet.model(name, [values], [join_lanes(halves, 32, base)])
        sheet.draw = lambda random, places=places, broken=broken: draw_digits(random, places, broken)


def draw_digits(random: Random, places, broken: bool) -> Values:
    values = in_bytes([random.choice((0, 9, random.randrange(10))) + (40 if broken and i == 2 else 0) if i in places else 0
                       for i in range(8)])
    known = {"values": values}
    lanes = values
    for name, bits, base in (("pairs", 8, 10), ("halves", 16, 100)):
        lanes = (lanes * (base * 2**bits + 1) % 2**64 >> bits) & ((2**64 - 1) // (2**bits + 1))
        known[name] = lanes
    return known


@proof("digits.appended", "src/numconv/short_literal.h: append, take_last_digits",
       """Up to 38 digits of a mantissa, taken eight or fewer at a time, fit a coefficient: nothing is lost modulo 2^128.""",
       "39 digits")
def _(book: Book, broken: bool) -> None:
    most = book.tables.constants["most_short_digits"] + (1 if broken else 0)
    for count in range(1, 9):
        for held in (most - count,):
            sheet = book.sheet(f"{count} behind {held}")
            digits = sheet.integer("digits", 0, 10**held - 1)
            more = sheet.integer("more", 0, 10**count - 1)
            total = digits * book.tables.decimal_power[count].power + more
            sheet.claim("a magnitude", both(total < 10**most, total < 2**127))
            sheet.model("count_digits_pair", [total // 2**64, total % 2**64], [count_of(total)])


def count_of(x: Term) -> Term:
    total = one_if(x >= 1)
    for n in range(1, 40):
        total = total + one_if(x >= 10**n)
    return total
