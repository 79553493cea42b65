# SPDX-License-Identifier: MIT
"""The survivors that have been looked at: survivors.txt, a paragraph for each.

    src/numeric/alignment.cpp align
    - if (distance < 0) return {a_scale, 0, -distance};
    + if (distance < 1) return {a_scale, 0, -distance};
    equivalent: at the same scale both returns are the same.

The words of a mutant, and why nothing can notice it: "equivalent", or "slower road" for a door of a short road that
only sends values by the slower one. Where the words stand several times in a definition, the paragraph is for all.
"""

from __future__ import annotations

from pathlib import Path
from typing import Dict, NamedTuple

KINDS = ('equivalent', 'slower road')


class Answer(NamedTuple):
    kind: str
    reason: str


def read_answers(path: Path) -> Dict[tuple, Answer]:
    answers: Dict[tuple, Answer] = {}
    for paragraph in path.read_text().split('\n\n'):
        lines = [line for line in paragraph.strip('\n').split('\n') if line and not line.startswith('#')]
        if not lines:
            continue
        try:
            (file, definition), before, after = lines[0].split(' ', 1), lines[1], lines[2]
            kind, reason = ' '.join(lines[3:]).split(': ', 1)
            if kind not in KINDS or before[:2] != '- ' or after[:2] != '+ ' or not reason:
                raise ValueError
        except (ValueError, IndexError):
            raise ValueError(f'{path}: not a survivor and its reason:\n{paragraph}') from None
        words = (file, definition, before[2:], after[2:])
        if words in answers:
            raise ValueError(f'{path}: twice:\n{paragraph}')
        answers[words] = Answer(kind, reason)
    return answers
