# SPDX-License-Identifier: MIT
"""Terms: what a proof says of a function, built once and used twice. Printed they are SMT-LIB for the solver; evaluated
on numbers they are held against the compiled function, so that a proof cannot go on about a function that has changed.

Three sorts of number: integers without bound, reals, and bit vectors (unsigned, modulo 2^width). A program's unsigned
words are integers here, and what wraps is written with `% 2**64`; only where bits are masked and shifted side by side
are they bit vectors.
"""
from __future__ import annotations

from fractions import Fraction
from typing import Any, Callable, Iterable, Union

INT, REAL, BOOL = "Int", "Real", "Bool"


def bits(width: int) -> str:
    return f"(_ BitVec {width})"


def width_of(sort: str) -> int:
    return int(sort.split()[2].rstrip(")"))


def is_bits(sort: str) -> bool:
    return sort.startswith("(_ BitVec")


Operand = Union["Term", int, bool, Fraction]
Values = dict[str, Any]

EVALUATE: dict[str, Callable[..., Any]] = {
    "+": lambda *x: sum(x),
    "-": lambda *x: x[0] - x[1] if len(x) == 2 else -x[0],
    "*": lambda a, b: a * b,
    "div": lambda a, b: a // b,
    "mod": lambda a, b: a % b,
    "/": lambda a, b: Fraction(a) / Fraction(b),
    "to_real": Fraction,
    "<": lambda a, b: a < b,
    "<=": lambda a, b: a <= b,
    "=": lambda a, b: a == b,
    "not": lambda a: not a,
    "and": lambda *x: all(x),
    "or": lambda *x: any(x),
    "=>": lambda a, b: not a or b,
    "ite": lambda c, a, b: a if c else b,
    "bvadd": lambda a, b: a + b,
    "bvsub": lambda a, b: a - b,
    "bvmul": lambda a, b: a * b,
    "bvand": lambda a, b: a & b,
    "bvor": lambda a, b: a | b,
    "bvxor": lambda a, b: a ^ b,
    "bvnot": lambda a: ~a,
    "bvult": lambda a, b: a < b,
    "bvule": lambda a, b: a <= b,
}


class Term:
    """An operator and what it is applied to; a constant or a variable has nothing below it."""

    def __init__(self, op: str, args: tuple["Term", ...], sort: str, value: Any = None, params: tuple[int, ...] = ()):
        self.op, self.args, self.sort, self.value, self.params = op, args, sort, value, params

    def __hash__(self) -> int:
        return id(self)

    # ---- Building ----

    def _lift(self, other: Operand) -> "Term":
        return other if isinstance(other, Term) else constant(other, self.sort)

    def _binary(self, op: str, bv: str, other: Operand) -> "Term":
        b = self._lift(other)
        if is_bits(self.sort):
            assert b.sort == self.sort, (self.sort, b.sort)
            return Term(bv, (self, b), self.sort)
        a = self
        if REAL in (a.sort, b.sort):
            a, b = to_real(a), to_real(b)
        return Term(op, (a, b), a.sort)

    def __add__(self, o: Operand) -> "Term":
        return self._binary("+", "bvadd", o)

    def __radd__(self, o: Operand) -> "Term":
        return self._lift(o) + self

    def __sub__(self, o: Operand) -> "Term":
        return self._binary("-", "bvsub", o)

    def __rsub__(self, o: Operand) -> "Term":
        return self._lift(o) - self

    def __mul__(self, o: Operand) -> "Term":
        return self._binary("*", "bvmul", o)

    def __rmul__(self, o: Operand) -> "Term":
        return self._lift(o) * self

    def __neg__(self) -> "Term":
        return constant(0, self.sort) - self

    def __truediv__(self, o: Operand) -> "Term":
        return Term("/", (to_real(self), to_real(self._lift(o))), REAL)

    def __floordiv__(self, o: Operand) -> "Term":
        assert self.sort == INT
        return Term("div", (self, self._lift(o)), INT)

    def __rfloordiv__(self, o: Operand) -> "Term":
        return self._lift(o) // self

    def __mod__(self, o: int) -> "Term":
        assert self.sort == INT
        return Term("mod", (self, self._lift(o)), INT)

    def __and__(self, o: Operand) -> "Term":
        return Term("bvand", (self, self._lift(o)), self.sort)

    def __or__(self, o: Operand) -> "Term":
        return Term("bvor", (self, self._lift(o)), self.sort)

    def __xor__(self, o: Operand) -> "Term":
        return Term("bvxor", (self, self._lift(o)), self.sort)

    def __invert__(self) -> "Term":
        return Term("bvnot", (self,), self.sort)

    def __lshift__(self, n: int) -> "Term":
        if not is_bits(self.sort):
            return self * 2**n
        return Term("bvshl", (self, constant(n, self.sort)), self.sort)

    def __rshift__(self, n: int) -> "Term":
        if not is_bits(self.sort):
            return self // 2**n
        return Term("bvlshr", (self, constant(n, self.sort)), self.sort)

    def _compare(self, op: str, bv: str, a: Operand, b: Operand) -> "Term":
        left, right = self._lift(a), self._lift(b)
        if is_bits(self.sort):
            return Term(bv, (left, right), BOOL)
        if REAL in (left.sort, right.sort):
            left, right = to_real(left), to_real(right)
        return Term(op, (left, right), BOOL)

    def __lt__(self, o: Operand) -> "Term":
        return self._compare("<", "bvult", self, o)

    def __le__(self, o: Operand) -> "Term":
        return self._compare("<=", "bvule", self, o)

    def __gt__(self, o: Operand) -> "Term":
        return self._compare("<", "bvult", o, self)

    def __ge__(self, o: Operand) -> "Term":
        return self._compare("<=", "bvule", o, self)

    def __eq__(self, o: Operand) -> "Term":  # type: ignore[override]
        right = self._lift(o)
        if REAL in (self.sort, right.sort):
            return Term("=", (to_real(self), to_real(right)), BOOL)
        return Term("=", (self, right), BOOL)

    def __ne__(self, o: Operand) -> "Term":  # type: ignore[override]
        return no(self == o)

    def __bool__(self) -> bool:
        raise TypeError("a term has no truth of its own")

    # ---- Evaluating ----

    def evaluate(self, values: Values, known: dict["Term", Any] | None = None) -> Any:
        known = {} if known is None else known
        stack = [self]
        while stack:
            term = stack[-1]
            if term in known:
                stack.pop()
                continue
            missing = [a for a in term.args if a not in known]
            if missing:
                stack.extend(missing)
                continue
            known[term] = term._apply(values, [known[a] for a in term.args])
            stack.pop()
        return known[self]

    def _apply(self, values: Values, args: list[Any]) -> Any:
        if self.op == "variable":
            return values[self.value]
        if self.op == "constant":
            return self.value
        if self.op == "bvshl":
            result = args[0] << args[1]
        elif self.op == "bvlshr":
            result = args[0] >> args[1]
        elif self.op == "concat":
            result = args[0] << width_of(self.args[1].sort) | args[1]
        elif self.op == "extract":
            result = args[0] >> self.params[1]
        elif self.op == "zero_extend":
            result = args[0]
        elif self.op == "sign_extend":
            width = width_of(self.args[0].sort)
            result = args[0] - (1 << width if args[0] >> (width - 1) else 0)
        else:
            result = EVALUATE[self.op](*args)
        return result % 2 ** width_of(self.sort) if is_bits(self.sort) else result


def constant(value: Operand, sort: str) -> Term:
    assert not isinstance(value, Term)
    if isinstance(value, bool):
        return Term("constant", (), BOOL, value)
    if is_bits(sort):
        value = int(value) % 2 ** width_of(sort)
    elif isinstance(value, Fraction):
        sort = REAL
    return Term("constant", (), sort, value)


def to_real(x: Operand) -> Term:
    if not isinstance(x, Term):
        return constant(Fraction(x), REAL)
    if x.sort == REAL:
        return x
    return constant(Fraction(x.value), REAL) if x.op == "constant" else Term("to_real", (x,), REAL)


def term(x: Operand) -> Term:
    return x if isinstance(x, Term) else constant(x, INT)


def no(a: Operand) -> Term:
    return Term("not", (term(a),), BOOL)


def _all_of(op: str, conditions: tuple[Operand, ...], none: bool) -> Term:
    if len(conditions) == 1:
        return term(conditions[0])
    return Term(op, tuple(term(c) for c in conditions), BOOL) if conditions else term(none)


def both(*conditions: Operand) -> Term:
    return _all_of("and", conditions, True)


def either(*conditions: Operand) -> Term:
    return _all_of("or", conditions, False)


def implies(a: Operand, b: Operand) -> Term:
    return Term("=>", (term(a), term(b)), BOOL)


def same(a: Operand, b: Operand) -> Term:
    """Equality of two truths."""
    return Term("=", (term(a), term(b)), BOOL)


def choose(condition: Operand, a: Operand, b: Operand) -> Term:
    if isinstance(a, Term):
        b = a._lift(b)
    elif isinstance(b, Term):
        a = b._lift(a)
    a, b = term(a), term(b)
    return Term("ite", (term(condition), a, b), a.sort)


def one_if(condition: Operand) -> Term:
    return choose(condition, 1, 0)


def between(low: Operand, x: Operand, high: Operand) -> Term:
    return both(term(x) >= low, term(x) <= high)


def every(conditions: Iterable[Operand]) -> Term:
    return both(*conditions)


# ---- Bit vectors ----


def extract(x: Term, high: int, low: int) -> Term:
    return Term("extract", (x,), bits(high - low + 1), params=(high, low))


def concat(high: Term, low: Term) -> Term:
    return Term("concat", (high, low), bits(width_of(high.sort) + width_of(low.sort)))


def zero_extend(x: Term, by: int) -> Term:
    return Term("zero_extend", (x,), bits(width_of(x.sort) + by), params=(by,))


def sign_extend(x: Term, by: int) -> Term:
    return Term("sign_extend", (x,), bits(width_of(x.sort) + by), params=(by,))


def top_bit(x: Term) -> Term:
    width = width_of(x.sort)
    return extract(x, width - 1, width - 1) == 1


def signed_less(a: Term, b: Term) -> Term:
    """In two's complement: unsigned with both top bits flipped."""
    flip = 1 << (width_of(a.sort) - 1)
    return (a ^ flip) < (b ^ flip)


# ---- Printing ----


def literal(value: Any, sort: str) -> str:
    if sort == BOOL:
        return "true" if value else "false"
    if is_bits(sort):
        return f"(_ bv{value} {width_of(sort)})"
    if sort == REAL:
        value = Fraction(value)
        body = f"(/ {abs(value.numerator)}.0 {value.denominator}.0)"
        return body if value >= 0 else f"(- {body})"
    return str(value) if value >= 0 else f"(- {-value})"


class Printer:
    """Prints terms, those that occur more than once under a name of their own."""

    def __init__(self) -> None:
        self.lines: list[str] = []
        self.names: dict[Term, str] = {}
        self.keep: list[Term] = []  # an identity is only good while its term lives

    def text(self, root: Term) -> str:
        uses: dict[Term, int] = {}
        order: list[Term] = []
        stack: list[tuple[Term, bool]] = [(root, False)]
        while stack:
            node, done = stack.pop()
            if done:
                order.append(node)
                continue
            uses[node] = uses.get(node, 0) + 1
            if uses[node] > 1 or node in self.names:
                continue
            stack.append((node, True))
            stack.extend((a, False) for a in node.args)
        self.keep.append(root)
        written: dict[Term, str] = dict(self.names)
        for node in order:
            written[node] = self._one(node, written)
            if node.args and uses[node] > 1:
                name = f"t{len(self.names)}"
                self.lines.append(f"(define-fun {name} () {node.sort} {written[node]})")
                self.names[node] = written[node] = name
        return written[root]

    @staticmethod
    def _one(node: Term, written: dict[Term, str]) -> str:
        if node.op == "variable":
            return node.value
        if node.op == "constant":
            return literal(node.value, node.sort)
        op = node.op if not node.params else f"(_ {node.op} {' '.join(map(str, node.params))})"
        if node.op == "-" and len(node.args) == 2 and node.args[0].op == "constant" and node.args[0].value == 0:
            return f"(- {written[node.args[1]]})"
        return f"({op} {' '.join(written[a] for a in node.args)})"
