# SPDX-License-Identifier: MIT
"""A C++ source as the operators see it: its tokens, which of them are code to be changed at all, in which definition
and in which build they stand, and how far the operands of an operator reach.
"""

from __future__ import annotations

from typing import Iterator, List, Optional, Tuple

from lexer import Token, partners, read_tokens

# Of the operators between two operands; a smaller number binds tighter.
PRECEDENCE = {operator: level for level, operators in enumerate((
    ('*', '/', '%'), ('+', '-'), ('<<', '>>'), ('<=>',), ('<', '<=', '>', '>='), ('==', '!='), ('&',), ('^',), ('|',),
    ('&&',), ('||',), ('?', ':', '=', '+=', '-=', '*=', '/=', '%=', '<<=', '>>=', '&=', '|=', '^=')))
              for operator in operators}
ASSIGNMENT = max(PRECEDENCE.values())

# What only speaks to the compiler: checks that are no part of the program, and hints that do not change what it does.
UNCHANGED_CALLS = ('static_assert', 'alignas', 'QV8NUMERIC_ASSUME', '__asm__', 'noexcept', '__attribute__')

# In which build a part between directives is compiled: in both, or in that with or without what the compiler and the
# processor bring along.
BOTH, NATIVE, PORTABLE = 'both', 'native', 'portable'


class Code:
    def __init__(self, source: str) -> None:
        self.source = source
        self.tokens: List[Token] = read_tokens(source)
        self.partner = partners(self.tokens)
        self.unchanged = self._unchanged()
        self.builds = self._builds()
        self.definitions = self._definitions()

    def text(self, number: int) -> str:
        """Of a token; nothing beyond either end, and nothing for a string or directive, which is never an operator."""
        if not 0 <= number < len(self.tokens) or self.tokens[number].kind in ('string', 'character', 'directive'):
            return ''
        return self.tokens[number].text

    def part(self, first: int, last: int) -> str:
        """The source from one token through another."""
        return self.source[self.tokens[first].start:self.tokens[last].end]

    def changeable(self) -> Iterator[int]:
        for number, token in enumerate(self.tokens):
            if token.kind != 'directive' and not self.unchanged[number] and self.builds[number]:
                yield number

    # ---- Expressions ----

    def is_binary(self, number: int) -> bool:
        """Between two operands: as the layout has it, with space on either side."""
        token = self.tokens[number]
        return (token.kind == 'mark' and token.text in PRECEDENCE
                and self.source[token.start - 1].isspace() and self.source[token.end].isspace())

    def _ends_operand(self, number: int, weakest: int) -> bool:
        text = self.text(number)
        if text == '' and not self._is_literal(number) or text in (',', ';', 'return', 'case', 'else', 'do'):
            return True
        return (text in (':', '?') or self.is_binary(number)) and PRECEDENCE[text] > weakest

    def _is_literal(self, number: int) -> bool:
        return 0 <= number < len(self.tokens) and self.tokens[number].kind in ('string', 'character')

    def left_operand(self, operator: int, level: int) -> int:
        """Where it begins: what binds as tight as the level belongs to it."""
        at = operator
        while not self._ends_operand(at - 1, level) and not self._opens(at - 1):
            at = self.partner.get(at - 1, at - 1)
        return at

    def right_operand(self, operator: int, level: int) -> int:
        """Where it ends: only what binds tighter than the level belongs to it."""
        at = operator
        while not self._ends_operand(at + 1, level - 1) and not self._closes(at + 1):
            at = self.partner.get(at + 1, at + 1)
        return at

    def _opens(self, number: int) -> bool:
        return self.partner.get(number, -1) > number

    def _closes(self, number: int) -> bool:
        return number in self.partner and self.partner[number] < number

    def elements(self, opening: int) -> List[Tuple[int, int]]:
        """The first and the last token of each thing between commas in a pair of brackets; none for a block."""
        closing = self.partner[opening]
        elements: List[Tuple[int, int]] = []
        first = at = opening + 1
        while at < closing:
            if self.text(at) in (';', '') and not self._is_literal(at):
                return []
            if self.text(at) == ',':
                elements.append((first, at - 1))
                first = at + 1
            at = self.partner.get(at, at) + 1
        return elements + [(first, closing - 1)] if first < closing else elements

    # ---- Regions ----

    def _unchanged(self) -> List[bool]:
        unchanged = [False] * len(self.tokens)
        for number, token in enumerate(self.tokens):
            opens = token.text in UNCHANGED_CALLS and self.text(number + 1) == '('
            if opens or token.text == '[' and self.text(number + 1) == '[':  # an attribute
                end = self.partner[number + 1] if opens else self.partner[number]
                unchanged[number:end + 1] = [True] * (end + 1 - number)
        return unchanged

    def _builds(self) -> List[str]:
        """For each token one of the builds, or nothing where no build is known to see it."""
        builds: List[str] = []
        conditions: List[str] = []
        for token in self.tokens:
            words = token.text.replace('#', ' # ').split() if token.kind == 'directive' else []
            if words[1:2] == ['ifndef']:  # the guard of a header
                conditions.append(BOTH)
            elif words[1:2] == ['if']:
                conditions.append(NATIVE if words[2].startswith('QV8NUMERIC_NATIVE_') else '')
            elif words[1:2] == ['else']:
                conditions[-1] = PORTABLE if conditions[-1] == NATIVE else ''
            elif words[1:2] == ['endif']:
                conditions.pop()
            narrowed = [condition for condition in conditions if condition != BOTH]
            builds.append(narrowed[0] if len(set(narrowed)) == 1 else '' if narrowed else BOTH)
        return builds

    # ---- Definitions ----

    def _definitions(self) -> List[str]:
        """For each token the name of the definition it stands in, with that of the class around it."""
        names = [''] * len(self.tokens)
        self._name_items(0, len(self.tokens), '', names)
        return names

    def _name_items(self, first: int, end: int, around: str, names: List[str]) -> None:
        start = at = first
        while at < end:
            text = self.text(at)
            if self.tokens[at].kind == 'directive' and at == start:
                start = at = at + 1
                continue
            if text == '{' and self._begins_space(start):
                self._name_items(at + 1, self.partner[at], around, names)
                start = at = self.partner[at] + 1
                continue
            if self._opens(at):
                at = self.partner[at]
            ends = text == ';' or self.text(at) == '}' and self.text(at + 1) not in (';', ',', '(', '{')
            at += 1
            if ends or at >= end:
                self._name_item(start, at, around, names)
                start = at

    def _begins_space(self, start: int) -> bool:
        return self.text(start) == 'namespace' or self.text(start) == 'extern' and self.text(start + 2) == '{'

    def _name_item(self, start: int, end: int, around: str, names: List[str]) -> None:
        name, body = self._item_name(start, end)
        full = f'{around}::{name}' if around and name else around or name
        names[start:end] = [full] * (end - start)
        if body is not None:
            self._name_items(body + 1, self.partner[body], full, names)

    def _item_name(self, start: int, end: int) -> Tuple[str, Optional[int]]:
        """The name, and where the members of a class begin."""
        last, of_class, at = '', False, start
        while at < end:
            token, text = self.tokens[at], self.text(at)
            if text == 'operator':
                return 'operator' + self.text(at + 1), None
            if of_class and text == '{':
                return last, at
            if text in ('(', '=', '{', '[', ';', ':') and last:
                return last, None
            if text in ('struct', 'class', 'enum', 'union'):
                of_class = text != 'enum'
            elif token.kind == 'name' and text not in UNCHANGED_CALLS:
                last = text
            if self._opens(at):
                at = self.partner[at]
            at += 1
        return last, None
