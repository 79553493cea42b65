# SPDX-License-Identifier: MIT
"""Numbers of several words, as the proofs of all files need them. Lists of words have the lowest first."""
from __future__ import annotations

from typing import Callable, Sequence

from sheets import Sheet
from terms import Operand, Term, between, both, term

B = 2**64


def words_of(sheet: Sheet, name: str, count: int) -> list[Term]:
    return [sheet.word(f"{name}{i}") for i in range(count)]


def four_words(sheet: Sheet, name: str = "x") -> list[Term]:
    return words_of(sheet, name, 4)


def number(words: Sequence[Term], base: int = B) -> Term:
    total = words[0]
    for i, word in enumerate(words[1:], start=1):
        total = total + word * base**i
    return total


def split(x: Term, count: int) -> list[Term]:
    """The words of a number; what is above them is left out."""
    return [x // B**i % B for i in range(count)]


def pair(x: Operand) -> list[Term]:
    """A number below 2^128 as arguments and results have it: the upper word first."""
    return [term(x) // B % B, term(x) % B]


def product_fits(sheet: Sheet, name: str, a: Term, b: Term, a_most: int, b_most: int) -> Term:
    """a * b with its bounds as a claim: what is linear in it needs no more than these."""
    product = a * b
    sheet.claim(name, between(0, product, a_most * b_most))
    return product


def row_product(words: Sequence[Term], factor: Operand) -> Term:
    """The product of the number and the factor, multiplied out."""
    return number([word * factor for word in words])


def multiply_row(sheet: Sheet, words: Sequence[Term], factor: Term,
                 carry_is_small: Callable[[int, Term], Term]) -> tuple[list[Term], Term]:
    """words * factor by words: the results, and the last carry."""
    results: list[Term] = []
    carry: Term = term(0)
    for i, word in enumerate(words):
        sheet.claim(f"product {i}", both(word * factor >= 0, word * factor <= (B - 1) * factor))
        total = word * factor + carry
        sheet.claim(f"sum {i}", between(0, total, B**2 - 1))
        results.append(total % B)
        carry = total // B
        sheet.claim(f"carry {i}", both(carry >= 0, carry_is_small(i, carry)))
    return results, carry
