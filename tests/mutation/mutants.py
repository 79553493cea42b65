# SPDX-License-Identifier: MIT
"""A mutant: one change of one file, known by its words alone, so that edits elsewhere leave its name what it is."""

from __future__ import annotations

import collections
import hashlib
import random
import re
from dataclasses import dataclass, field
from pathlib import Path
from typing import Dict, List

from cpp import Code
from operators import Change, all_changes

SUFFIXES = ('.h', '.cpp')


@dataclass(frozen=True)
class Mutant:
    file: str  # from the root of the project
    definition: str
    operator: str
    build: str  # of the builds of cpp.py
    before: str  # the changed lines without comments and layout
    after: str
    occurrence: int  # among those of the same words
    change: Change = field(compare=False)

    @property
    def words(self) -> tuple:
        return self.file, self.definition, self.before, self.after

    @property
    def identity(self) -> str:
        words = '\n'.join((*self.words, str(self.occurrence)))
        return hashlib.sha256(words.encode()).hexdigest()[:12]

    def __str__(self) -> str:
        return f'{self.file} {self.definition} ({self.operator})\n- {self.before}\n+ {self.after}'


def in_one_line(source: str) -> str:
    return ' '.join(re.sub(r'//[^\n]*|/\*.*?\*/', ' ', source, flags=re.DOTALL).split())


def mutants_of(file: str, source: str) -> Dict[str, List[Mutant]]:
    """All there are, by operator."""
    code = Code(source)
    numbers = {token.start: number for number, token in enumerate(code.tokens)}
    numbers.update((token.end, number) for number, token in enumerate(code.tokens) if token.end not in numbers)
    seen = {source}
    occurrences: Dict[tuple, int] = collections.Counter()
    result: Dict[str, List[Mutant]] = {}
    for operator, changes in all_changes(code).items():
        result[operator] = []
        for change in changes:
            changed = change.apply(source)
            if changed in seen:
                continue
            seen.add(changed)
            begin = source.rfind('\n', 0, change.start) + 1
            end = source.find('\n', change.end) if '\n' in source[change.end:] else len(source)
            before = in_one_line(source[begin:end])
            after = in_one_line(changed[begin:len(changed) - (len(source) - end)])
            number = numbers[change.start]
            words = (file, code.definitions[number], before, after)
            result[operator].append(Mutant(file, words[1], operator, code.builds[number], before, after,
                                           occurrences[words], change))
            occurrences[words] += 1
    return result


def source_files(root: Path) -> List[str]:
    return sorted(str(path.relative_to(root)) for path in (root / 'src').rglob('*') if path.suffix in SUFFIXES)


def in_drawn_order(mutants: Dict[str, List[Mutant]], seed: int, file: str) -> List[Mutant]:
    """All of a file's mutants as they are to be tried: the operators by turns, each in an order that the seed draws."""
    drawn = random.Random(f'{seed} {file}')
    piles = []
    for operator in sorted(mutants):
        pile = list(mutants[operator])
        drawn.shuffle(pile)
        piles.append(pile)
    order: List[Mutant] = []
    while any(piles):
        order += [pile.pop() for pile in piles if pile]
    return order


def quotas(sizes: Dict[str, int], count: int, least: int) -> Dict[str, int]:
    """How many of each file: at least so many, or all it has, and the others by what more each file has."""
    quota = {file: min(size, least) for file, size in sizes.items()}
    left = count - sum(quota.values())
    more = sum(sizes.values()) - sum(quota.values())
    if left > 0 and more > 0:
        share = min(1.0, left / more)
        quota = {file: given + round((sizes[file] - given) * share) for file, given in quota.items()}
    return quota
