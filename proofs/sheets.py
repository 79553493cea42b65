# SPDX-License-Identifier: MIT
"""Proofs as SMT-LIB scripts: a book of sheets, each with variables, assumptions and claims in order.

For every sheet the solver is asked whether the assumptions can hold at all (expected: sat, or the proof says nothing),
and for each claim whether its negation can hold beside them and the claims before it (expected: unsat). The same terms
are evaluated on drawn numbers: the claims have to be true there, and what is said to be the result of a function has to
be what the compiled function gives.
"""
from __future__ import annotations

import dataclasses
import random
import zlib
from typing import Any, Callable, Iterator, Sequence

from compiled import Compiled, Tables
from terms import BOOL, INT, REAL, Operand, Printer, Term, Values, between, bits, both, implies, literal, term

DRAWS = 48  # on which each sheet is evaluated
MOST_TRIES = 20_000

# A tactic in the place of the solver's own choice.
IDENTITY = "(then (using-params simplify :som true) smt)"  # multiplies polynomials out


@dataclasses.dataclass(frozen=True)
class Question:
    name: str
    lines: tuple[str, ...]  # asserted for this question alone
    tactic: str
    expected: str


@dataclasses.dataclass(frozen=True)
class Model:
    """outputs, as words, are what the compiled function of this name returns for inputs."""

    function: str
    inputs: tuple[Term, ...]
    outputs: tuple[Term, ...]


class Failed(Exception):
    pass


class Sheet:
    def __init__(self, name: str, seed: int) -> None:
        self.name = name
        self.random = random.Random(seed)
        self.variables: dict[str, Term] = {}
        self.ranges: dict[str, tuple[Any, Any]] = {}
        self.assumptions: list[Term] = []
        self.claims: list[tuple[str, Term]] = []
        self.models: list[Model] = []
        self.drawn_by: Sheet | None = None
        self.draw: Callable[[random.Random], Values] | None = None
        self._items: list[tuple[str, str, Term, str]] = []

    # ---- Variables ----

    def _variable(self, name: str, sort: str) -> Term:
        assert name not in self.variables, name
        self.variables[name] = Term("variable", (), sort, name)
        return self.variables[name]

    def integer(self, name: str, low: int, high: int) -> Term:
        """low <= it <= high"""
        x = self._variable(name, INT)
        self.ranges[name] = (low, high)
        self.assume(between(low, x, high))
        return x

    def word(self, name: str) -> Term:
        return self.integer(name, 0, 2**64 - 1)

    def fraction(self, name: str) -> Term:
        """A real number from 0 up to, but not including, 1."""
        x = self._variable(name, REAL)
        self.assume(x >= 0)
        self.assume(x < 1)
        return x

    def bits(self, name: str, width: int) -> Term:
        self.ranges[name] = (0, 2**width - 1)
        return self._variable(name, bits(width))

    def truth(self, name: str) -> Term:
        return self._variable(name, BOOL)

    # ---- Statements ----

    def assume(self, condition: Operand) -> None:
        self.assumptions.append(term(condition))
        self._items.append(("assume", "", term(condition), ""))

    def claim(self, name: str, condition: Operand, tactic: str = "") -> None:
        """From here on it may be used."""
        self.claims.append((name, term(condition)))
        self._items.append(("claim", name, term(condition), tactic))

    def lemma(self, book: "Book", name: str, hypotheses: Sequence[Operand], conclusion: Operand) -> None:
        """A claim on a sheet of its own, with nothing beside the hypotheses that could distract the solver; each of them
        has to be assumed or claimed here too."""
        sheet = self._beside(book, name, tuple(term(x) for x in (*hypotheses, conclusion)))
        for hypothesis in hypotheses:
            self.claim(f"{name}, as assumed", hypothesis)
            sheet.assume(hypothesis)
        sheet.claim(name, conclusion)
        self.assume(conclusion)

    def _beside(self, book: "Book", name: str, terms: tuple[Term, ...]) -> "Sheet":
        """A sheet with those of the variables here that the terms speak of."""
        sheet = book.sheet(f"{self.name}: {name}")
        sheet.drawn_by = self
        used: set[str] = set()
        stack = list(terms)
        while stack:
            node = stack.pop()
            stack.extend(node.args)
            if node.op == "variable":
                used.add(node.value)
        for variable, x in self.variables.items():
            if variable in used:
                sheet.variables[variable] = x
                sheet.ranges[variable] = self.ranges[variable]
                sheet.assume(between(self.ranges[variable][0], x, self.ranges[variable][1]))
        return sheet

    def product(self, book: "Book", name: str, p: Term, q: Term, conclusion: Term, given: Operand = True) -> None:
        """What follows from p * q >= 0 by multiplying out, where p and q are no less than 0 (the proof products.sign)."""
        self.claim(f"{name}, both factors", implies(given, both(p >= 0, q >= 0)))
        sheet = self._beside(book, name, (p, q, conclusion, term(given)))
        sheet.assume(given)
        sheet.assume(p * q >= 0)
        sheet.claim(name, conclusion, IDENTITY)
        self.assume(implies(given, conclusion))

    def model(self, function: str, inputs: Sequence[Operand], outputs: Sequence[Operand]) -> None:
        self.models.append(Model(function, tuple(map(term, inputs)), tuple(map(term, outputs))))

    # ---- Drawing ----

    def _number(self, low: int, high: int) -> int:
        kind = self.random.randrange(6)
        if kind == 0:
            return self.random.choice((low, min(low + 1, high), max(high - 1, low), high))
        if kind == 1:
            return self.random.randint(low, high)
        power = 1 << self.random.randrange(max(high.bit_length(), 1) + 1)
        if kind == 2:
            value = power + self.random.choice((-1, 0, 1))
        else:
            value = self.random.randrange(power) if kind < 5 else high - self.random.randrange(power)
        return min(max(value, low), high)

    def _values(self) -> Values:
        draw = self.drawn_by.draw if self.drawn_by else self.draw
        drawn: Values = draw(self.random) if draw else {}
        for name, variable in self.variables.items():
            if name in drawn:
                continue
            if variable.sort == BOOL:
                drawn[name] = self.random.random() < 0.5
            elif variable.sort == REAL:
                from fractions import Fraction
                n = self.random.choice((2, 4, 10, 1 << 40))
                drawn[name] = Fraction(self.random.randrange(n), n)
            else:
                drawn[name] = self._number(*self.ranges[name])
        return drawn

    def draws(self, count: int = DRAWS) -> Iterator[tuple[Values, dict[Term, Any]]]:
        found = 0
        for _ in range(MOST_TRIES):
            values, known = self._values(), {}
            if all(a.evaluate(values, known) for a in self.assumptions):
                yield values, known
                found += 1
                if found == count:
                    return
        if found == 0:
            raise Failed(f"{self.name}: no drawn values meet the assumptions")

    def check_draws(self) -> list[tuple[Model, list[int], list[int]]]:
        """The claims on drawn values; the answer is what the compiled functions are to be asked."""
        asked = []
        for values, known in self.draws():
            for name, claim in self.claims:
                if not claim.evaluate(values, known):
                    raise Failed(f"{self.name}: '{name}' is false of {values}")
            for model in self.models:
                inputs = [int(x.evaluate(values, known)) for x in model.inputs]
                asked.append((model, inputs, [int(x.evaluate(values, known)) for x in model.outputs]))
        return asked

    def counterexample(self) -> Values | None:
        for values, known in self.draws(2000):
            if not all(claim.evaluate(values, known) for _, claim in self.claims):
                return values
        return None

    def _witness(self) -> Values:
        """Values that are known to meet the assumptions, where there is a way to draw them: it spares the solver a search
        that can be hard where claims are nonlinear."""
        draw = self.drawn_by.draw if self.drawn_by else self.draw
        return next(iter(self.draws(1)))[0] if draw else {}

    # ---- Printing ----

    def _assigned(self, values: Values) -> tuple[str, ...]:
        return tuple(
            f"(assert (= {name} {literal(values[name], x.sort)}))" for name, x in self.variables.items() if name in values
        )

    def script(self, hint: Values | None = None) -> tuple[list[str], list[Question]]:
        """The lines, one of them `(check-sat)` for each question. A hint puts values in for all variables."""
        printer = Printer()
        lines = [f"(echo \"sheet {self.name}\")"]
        lines += [f"(declare-const {name} {x.sort})" for name, x in self.variables.items()]
        questions: list[Question] = []

        def flush() -> None:
            lines.extend(printer.lines)
            printer.lines.clear()

        def ask(name: str, extra: tuple[str, ...], tactic: str, expected: str) -> None:
            check = f"(check-sat-using {tactic})" if tactic else "(check-sat)"
            lines.extend(("(push)", *extra, f"{check} ; {name}: {expected}", "(pop)"))
            questions.append(Question(name, extra, tactic, expected))

        if hint is not None:
            lines.extend(self._assigned(hint))
        unchecked = True
        for kind, name, condition, tactic in self._items:
            text = printer.text(condition)
            flush()
            if kind == "assume":
                lines.append(f"(assert {text})")
                unchecked = True
                continue
            if unchecked:
                ask("the assumptions can hold", self._assigned(hint or self._witness()), "", "sat")
                unchecked = False
            ask(name, (f"(assert (not {text}))",), tactic, "unsat")
            lines.append(f"(assert {text})")
        return lines, questions


class Book:
    """The sheets of one proof."""

    def __init__(self, name: str, tables: Tables) -> None:
        self.name = name
        self.tables = tables
        self.sheets: list[Sheet] = []

    def sheet(self, name: str = "all") -> Sheet:
        self.sheets.append(Sheet(name, zlib.crc32(f"{self.name} {name}".encode())))
        return self.sheets[-1]

    def check_draws(self, compiled: Compiled) -> int:
        asked = [question for sheet in self.sheets for question in sheet.check_draws()]
        answers = compiled.call([(model.function, inputs) for model, inputs, _ in asked])
        for (model, inputs, expected), answer in zip(asked, answers):
            if answer != expected:
                raise Failed(f"{model.function}{tuple(inputs)} gives {answer}, the proof is about {expected}")
        return len(asked)


Builder = Callable[[Book, bool], None]


@dataclasses.dataclass(frozen=True)
class Proof:
    name: str
    file: str
    functions: tuple[str, ...]
    claim: str
    fault: str
    build: Builder


PROOFS: list[Proof] = []


def proof(name: str, where: str, claim: str, fault: str) -> Callable[[Builder], Builder]:
    """where: the file and, behind a colon, the functions or tables that the claim is about. The builder is called with
    True to plant the fault."""
    file, _, functions = where.partition(":")

    def add(build: Builder) -> Builder:
        assert all(p.name != name for p in PROOFS), name
        PROOFS.append(Proof(name, file, tuple(functions.replace(",", " ").split()), " ".join(claim.split()), fault, build))
        return build

    return add
