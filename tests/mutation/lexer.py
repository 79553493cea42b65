# SPDX-License-Identifier: MIT
"""The tokens of a C++ source, as far as changing one of them needs them: comments and white space are left out,
strings, characters and directives are tokens of their own kinds, and brackets know their partners.
"""

from __future__ import annotations

import re
from dataclasses import dataclass
from typing import Dict, List

PATTERN = re.compile(r'''
    (?P<space>\s+)
  | (?P<comment>//[^\n]*|/\*.*?\*/)
  | (?P<directive>^[ \t]*\#(?:[^\n\\]|\\.)*)
  | (?P<string>(?:u8|[uUL])?"(?:[^"\\\n]|\\.)*")
  | (?P<character>(?:u8|[uUL])?'(?:[^'\\\n]|\\.)+')
  | (?P<number>\.?[0-9](?:'?[0-9A-Za-z_.])*)
  | (?P<name>[A-Za-z_]\w*)
  | (?P<mark><=>|<<=|>>=|\.\.\.|->\*|\.\*|::|->|\+\+|--|<<|>>|<=|>=|==|!=|&&|\|\||[-+*/%&|^]=|\S)
''', re.VERBOSE | re.MULTILINE | re.DOTALL)

OPENING = {'(': ')', '[': ']', '{': '}'}


@dataclass
class Token:
    kind: str  # directive, string, character, number, name, mark, or angle for a bracket of a template
    text: str
    start: int  # in the source

    @property
    def end(self) -> int:
        return self.start + len(self.text)


def read_tokens(source: str) -> List[Token]:
    tokens = [Token(found.lastgroup, found.group(), found.start())
              for found in PATTERN.finditer(source) if found.lastgroup not in ('space', 'comment')]
    return mark_angles(source, tokens)


def mark_angles(source: str, tokens: List[Token]) -> List[Token]:
    """The layout tells templates from comparisons: around an operator stand spaces, inside of a bracket none."""
    result: List[Token] = []
    depth = 0
    for token in tokens:
        after = source[token.end:token.end + 1]
        before = source[token.start - 1:token.start]
        of_operator = bool(result) and result[-1].text == 'operator'
        if token.text == '<' and not of_operator and not after.isspace():
            depth += 1
            token.kind = 'angle'
        elif token.text in ('>', '>>') and depth > 0 and not before.isspace():
            depth -= len(token.text)
            result += [Token('angle', '>', token.start + i) for i in range(len(token.text))]
            continue
        result.append(token)
    if depth != 0:
        raise ValueError('a bracket of a template stays open')
    return result


def partners(tokens: List[Token]) -> Dict[int, int]:
    """Of each bracket, by its number among the tokens, the number of the other one."""
    pairs: Dict[int, int] = {}
    open_brackets: List[int] = []
    closing = {**OPENING, '<': '>'}
    for number, token in enumerate(tokens):
        if token.kind == 'angle' and token.text == '<' or token.kind == 'mark' and token.text in OPENING:
            open_brackets.append(number)
        elif token.kind == 'angle' or token.kind == 'mark' and token.text in OPENING.values():
            if not open_brackets or closing[tokens[open_brackets[-1]].text] != token.text:
                raise ValueError(f'"{token.text}" without its partner')
            opening = open_brackets.pop()
            pairs[opening], pairs[number] = number, opening
    if open_brackets:
        raise ValueError('a bracket stays open')
    return pairs
