# SPDX-License-Identifier: MIT
"""What is changed: one operator of this list at a time, in one place."""

from __future__ import annotations

import re
from dataclasses import dataclass
from typing import Callable, Dict, Iterator, List, Optional

from cpp import ASSIGNMENT, PRECEDENCE, Code


@dataclass(frozen=True)
class Change:
    """The source from start to end becomes the text."""
    start: int
    end: int
    text: str

    def apply(self, source: str) -> str:
        return source[:self.start] + self.text + source[self.end:]


Changes = Iterator[Change]


def replaced(code: Code, number: int, text: str) -> Change:
    token = code.tokens[number]
    return Change(token.start, token.end, text)


def inserted_behind(code: Code, number: int, text: str) -> Change:
    return Change(code.tokens[number].end, code.tokens[number].end, text)


def bracketed(code: Code, first: int, last: int) -> str:
    part = code.part(first, last)
    return part if first == last or code.text(first) == '(' and code.partner[first] == last else f'({part})'


# ---- One operator each ----

def swap_relation(code: Code) -> Changes:
    """A limit that is reached or not; equal or not."""
    others = {'<': '<=', '<=': '<', '>': '>=', '>=': '>', '==': '!=', '!=': '=='}
    for number in code.changeable():
        if code.text(number) in others and code.is_binary(number):
            yield replaced(code, number, others[code.text(number)])


NUMBER = re.compile(r"(0[xX][0-9a-fA-F']+|0[bB][01']+|[0-9][0-9']*)([uUlL]*)")


def renumbered(text: str, step: int) -> Optional[str]:
    """A whole number and one; None where it is none, or would leave 64 bits."""
    found = NUMBER.fullmatch(text)
    if not found:
        return None
    digits, suffix = found.groups()
    form = {'x': '#x', 'b': '#b'}.get(digits[1:2].lower(), 'd')
    value = int(digits.replace("'", ''), 0 if form != 'd' else 10) + step
    return f'{value:{form}}{suffix}' if 0 <= value < 1 << 64 else None


def is_truth_value(code: Code, number: int) -> bool:
    """A 1 for "yes" in a number of which only that is asked: any other but 0 says the same."""
    chosen = code.text(number - 1) == '?' and code.part(number, number + 2).split() == ['1', ':', '0']
    return chosen or code.text(number) == '1' and code.text(number - 1) == '|=' and code.text(number + 1) == ';'


def shift_constant(code: Code) -> Changes:
    """A number and one; true and false."""
    for number in code.changeable():
        token = code.tokens[number]
        for step in (-1,) if is_truth_value(code, number) else (1, -1):
            text = renumbered(token.text, step) if token.kind == 'number' else None
            if text is not None:
                yield replaced(code, number, text)
        if token.text in ('true', 'false'):
            yield replaced(code, number, 'false' if token.text == 'true' else 'true')


def swap_sign(code: Code) -> Changes:
    """+ and -, in all their forms."""
    others = {'+': '-', '-': '+', '+=': '-=', '-=': '+=', '++': '--', '--': '++'}
    for number in code.changeable():
        text = code.text(number)
        if text not in others:
            continue
        if text in ('++', '--') or code.is_binary(number):
            yield replaced(code, number, others[text])
        elif text == '-' and not code.is_binary(number):
            yield replaced(code, number, '')


def shift_by_one_more(code: Code) -> Changes:
    for number in code.changeable():
        if code.text(number) in ('<<', '>>', '<<=', '>>=') and code.is_binary(number):
            yield inserted_behind(code, number, ' 1 +')  # which binds tighter than a shift


def condition_spans(code: Code) -> Iterator[tuple]:
    for number in code.changeable():
        text = code.text(number)
        if text in ('if', 'while'):
            opening = number + 2 if code.text(number + 1) == 'constexpr' else number + 1
            yield opening + 1, code.partner[opening] - 1
        elif text == '?':
            yield code.left_operand(number, ASSIGNMENT - 1), number - 1
        elif text == 'for':
            semicolons = [at for at in range(number + 2, code.partner[number + 1]) if code.text(at) == ';']
            if len(semicolons) == 2:
                yield semicolons[0] + 1, semicolons[1] - 1


def negate_condition(code: Code) -> Changes:
    """Whole conditions; what stands behind a "not"; both for either."""
    for first, last in condition_spans(code):
        if code.text(first) == '!' and code.right_operand(first, 0) == last:
            continue  # the same as without the "not"
        yield Change(code.tokens[first].start, code.tokens[last].end, f'!({code.part(first, last)})')
    for number in code.changeable():
        text = code.text(number)
        if text in ('&&', '||') and code.is_binary(number):
            yield replaced(code, number, '||' if text == '&&' else '&&')
        elif text == '!':
            yield replaced(code, number, '')


# Names and marks that begin no statement whose dropping would leave a program.
NO_STATEMENT = {'return', 'using', 'namespace', 'template', 'struct', 'class', 'enum', 'case', 'default', 'static',
                'const', 'constexpr', 'inline', 'extern', 'friend', 'typedef', 'public', 'private', 'else', 'operator',
                'do', 'for', 'while', 'switch', 'if', 'auto'}
ASSIGNING = {'=', '+=', '-=', '*=', '/=', '%=', '<<=', '>>=', '&=', '|=', '^=', '++', '--'}


def end_of_statement(code: Code, start: int) -> Optional[int]:
    """The semicolon of a statement without a block; None where there is none."""
    at = start
    while at < len(code.tokens) and code.text(at) != ';':
        if code.text(at) in ('{', '}') and code.partner[at] < at:
            return None
        at = code.partner.get(at, at) + 1 if code.partner.get(at, at) >= at else len(code.tokens)
    return at if at < len(code.tokens) else None


def acts(code: Code, start: int) -> bool:
    """An assignment, a call, a step or a jump, and no declaration."""
    if code.text(start) in ('break', 'continue', '(', '++', '--'):
        return True
    if code.text(start) == 'return' and code.text(start + 1) == ';':
        return True
    at = start + 1 if code.text(start) == '*' else start
    if code.tokens[at].kind != 'name' or code.text(at) in NO_STATEMENT:
        return False
    at += 1
    while code.text(at) in ('.', '->', '::', '[') or code.tokens[at].kind == 'angle':
        at = code.partner[at] + 1 if at in code.partner else at + 2
    return code.text(at) == '(' or code.text(at) in ASSIGNING


def conditional_end(code: Code, start: int) -> Optional[int]:
    """Of an "if" without a block and without an "else": where its statement ends."""
    if code.text(start) != 'if' or code.text(start + 1) != '(':
        return None
    body = code.partner[start + 1] + 1
    if code.text(body) in ('if', 'for', 'while', '{', '['):
        return None
    end = end_of_statement(code, body)
    return end if end is not None and code.text(end + 1) != 'else' else None


def drop_statement(code: Code) -> Changes:
    heads = {code.partner[number + 1] for number in range(len(code.tokens) - 1)
             if code.text(number) in ('if', 'for', 'while') and code.text(number + 1) == '('}
    in_brackets = {at for opening, closing in code.partner.items()
                   if code.text(opening) in '([' and closing > opening and not any(
                       code.text(within) == '{' for within in range(opening, closing))
                   for at in range(opening, closing)}
    for number in code.changeable():
        before = code.text(number - 1)
        if number in in_brackets or before not in (';', '{', '}', 'else', ':') and number - 1 not in heads:
            continue
        conditional = conditional_end(code, number)
        if conditional is not None:
            yield Change(code.tokens[number].start, code.tokens[conditional].end, ';')
        elif acts(code, number):
            end = end_of_statement(code, number)
            if end is not None:
                yield Change(code.tokens[number].start, code.tokens[end].end, ';')


# Where the first two operands may change places and nothing happens.
COMMUTATIVE_CALLS = {'wrapping_add', 'wrapping_multiply', 'multiply', 'multiply_words', 'multiply_words_portable',
                     'multiply_high', 'multiply_add', 'both', 'either', 'min', 'max', 'add', 'is_same_v',
                     'propagates_nan', 'add_same_scale'}
SYMMETRIC_CALLS = {'are_rounding_modes'}  # and where all may
NON_COMMUTATIVE = ('-', '/', '%', '<<', '>>', '<', '<=', '>', '>=')


def called(code: Code, opening: int) -> Optional[str]:
    """The name before a bracket of arguments, or before or behind braces of values; None where it is none."""
    name = opening - 1
    if code.tokens[name].kind == 'angle' and name in code.partner:
        name = code.partner[name] - 1
    if code.text(opening) == '(':
        return code.text(name) if code.tokens[name].kind == 'name' and code.text(name) not in NO_STATEMENT else None
    return code.text(name) if code.text(name) not in (')', ';', '{', '}', ':', 'else', '') else None


def is_value(code: Code, first: int, last: int) -> bool:
    """No parameter, which is two names in a row or a reference to something; and no enumerator with its value."""
    return not any(code.text(at) in ('const', '=') or code.tokens[at].kind == code.tokens[at + 1].kind == 'name'
                   or code.text(at) in ('&', '*') and code.source[code.tokens[at].end].isspace()
                   and not code.is_binary(at) for at in range(first, last))


def swap_operands(code: Code) -> Changes:
    """Of an operation or a call whose operands do not commute, two that stand side by side."""
    for number in code.changeable():
        text = code.text(number)
        if text in NON_COMMUTATIVE and code.is_binary(number):
            level = PRECEDENCE[text]
            first, last = code.left_operand(number, level), code.right_operand(number, level)
            left, right = bracketed(code, first, number - 1), bracketed(code, number + 1, last)
            yield Change(code.tokens[first].start, code.tokens[last].end, f'{right} {text} {left}')
        elif text in ('(', '{'):
            name = called(code, number)
            elements = code.elements(number) if name is not None and name not in SYMMETRIC_CALLS else []
            if not all(is_value(code, first, last) for first, last in elements):
                continue
            for place in range(name in COMMUTATIVE_CALLS, len(elements) - 1):
                (first, first_end), (second, second_end) = elements[place:place + 2]
                swapped = f'{code.part(second, second_end)}, {code.part(first, first_end)}'
                if swapped != code.part(first, second_end):
                    yield Change(code.tokens[first].start, code.tokens[second_end].end, swapped)


OPERATORS: Dict[str, Callable[[Code], Changes]] = {
    'relation': swap_relation,
    'constant': shift_constant,
    'sign': swap_sign,
    'shift': shift_by_one_more,
    'condition': negate_condition,
    'statement': drop_statement,
    'operands': swap_operands,
}


def all_changes(code: Code) -> Dict[str, List[Change]]:
    """Every change of a source, by operator and in the order of the source."""
    return {name: sorted(set(operator(code)), key=lambda change: (change.start, change.end, change.text))
            for name, operator in OPERATORS.items()}
