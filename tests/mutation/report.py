# SPDX-License-Identifier: MIT
"""What a campaign has brought, and whether that is enough."""

from __future__ import annotations

import collections
from dataclasses import dataclass, field
from typing import Dict, Iterable, List, Set, Tuple

from answers import Answer
from mutants import Mutant
from workshop import Verdict

LEAST_KILLED = 97  # per cent of the mutants that are not told apart as "slower road"

Judged = Tuple[Mutant, Verdict]


@dataclass
class Summary:
    rows: Dict[str, collections.Counter] = field(default_factory=lambda: collections.defaultdict(collections.Counter))
    killers: collections.Counter = field(default_factory=collections.Counter)
    slower: List[Mutant] = field(default_factory=list)
    equivalent: List[Mutant] = field(default_factory=list)
    unanswered: List[Mutant] = field(default_factory=list)
    killed_answers: List[tuple] = field(default_factory=list)
    stale_answers: List[tuple] = field(default_factory=list)

    @property
    def total(self) -> collections.Counter:
        return sum(self.rows.values(), collections.Counter())

    @property
    def killed_per_cent(self) -> float:
        """Of those that count; the equivalent ones count as survivors."""
        total = self.total
        counted = total['killed'] + total['equivalent'] + total['unanswered']
        return 100 * total['killed'] / counted if counted else 0.0

    @property
    def passed(self) -> bool:
        return not (self.unanswered or self.killed_answers or self.stale_answers) \
            and self.killed_per_cent >= LEAST_KILLED


def summarize(judged: Iterable[Judged], answers: Dict[tuple, Answer], existing: Set[tuple]) -> Summary:
    """Of the answers, those to mutants that are killed or that the sources do not have any more are told too."""
    summary = Summary()
    verdicts: Dict[tuple, Set[str]] = collections.defaultdict(set)
    for mutant, verdict in judged:
        row = summary.rows[mutant.file]
        verdicts[mutant.words].add(verdict.verdict)
        if verdict.verdict != 'survived':
            row[verdict.verdict] += 1
            if verdict.verdict == 'killed':
                summary.killers[verdict.by] += 1
            continue
        answer = answers.get(mutant.words)
        if answer is None:
            row['unanswered'] += 1
            summary.unanswered.append(mutant)
        elif answer.kind == 'slower road':
            row['slower road'] += 1
            summary.slower.append(mutant)
        else:
            row['equivalent'] += 1
            summary.equivalent.append(mutant)
    summary.killed_answers = [words for words in answers if verdicts.get(words) and 'survived' not in verdicts[words]]
    summary.stale_answers = [words for words in answers if words not in existing]
    return summary


COLUMNS = ('killed', 'equivalent', 'unanswered', 'slower road', 'stillborn', 'unchanged')


def in_words(words: tuple) -> str:
    file, definition, before, after = words
    return f'{file} {definition}\n- {before}\n+ {after}'


def print_summary(summary: Summary, sizes: Dict[str, int]) -> None:
    print(f'\n{"":36}{"possible":>9}{"tried":>7}' + ''.join(f'{column:>12}' for column in COLUMNS))
    total = summary.total
    for file, row in [*sorted(summary.rows.items()), ('all', total)]:
        possible = sum(sizes.values()) if file == 'all' else sizes[file]
        tried = sum(row[column] for column in COLUMNS[:4])
        note = '' if file == 'all' or tried >= 10 else '  all there are'
        print(f'{file:36}{possible:9}{tried:7}' + ''.join(f'{row[column]:12}' for column in COLUMNS) + note)
    print('\nKilled by:', *(f'{count:6}  {name}' for name, count in summary.killers.most_common()), sep='\n')
    for title, mutants in (('Only sent by the slower road', summary.slower), ('Not answered', summary.unanswered)):
        print(f'\n{title}: {len(mutants)}', *map(str, mutants), sep='\n')
    for title, answers in (('Answered, but killed', summary.killed_answers),
                           ('Answered, but not in the sources any more', summary.stale_answers)):
        if answers:
            print(f'\n{title}: {len(answers)}', *map(in_words, answers), sep='\n')
    tried = sum(total[column] for column in COLUMNS[:4])
    print(f'\n{tried} mutants: {total["killed"]} killed, {total["equivalent"]} survived and are equivalent, '
          f'{total["unanswered"]} survived unanswered; {total["slower road"]} more only take the slower road.\n'
          f'{summary.killed_per_cent:.1f} % killed, {LEAST_KILLED} wanted; no mutants: {total["stillborn"]} that do '
          f'not compile, {total["unchanged"]} of unchanged machine code.')
