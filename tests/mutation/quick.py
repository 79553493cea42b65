# SPDX-License-Identifier: MIT
"""The short form: checks the mutation test itself, then has a mutant of each operator, in files of every kind, killed
by a few of the named rows, and a change that nothing can notice reported as a survivor. The same each time.
"""

from __future__ import annotations

import os
import unittest
from pathlib import Path
from typing import Dict, List

import selfcheck
from cpp import BOTH, NATIVE
from mutants import Mutant, in_drawn_order, mutants_of
from operators import Change
from report import Judged, summarize
from workshop import Order, Workshop

# Where a mutant is taken from, by which operator, and whose rows have to notice it.
CASES = (
    ('src/numeric/same_scale.h', 'sign', 'same_scale'),
    ('src/numeric/truncation.cpp', 'relation', 'rounding'),
    ('src/numeric/rescale.cpp', 'statement', 'rescale'),
    ('src/numeric/machine_integer.cpp', 'constant', 'machine_integer'),
    ('src/numeric/rescaling_mul.cpp', 'operands', 'rescaling_multiply'),
    ('src/numeric/rescaling_div.cpp', 'condition', 'rescaling_divide'),
    ('src/numconv/integer_conversion.cpp', 'condition', 'to_integer'),
    ('src/numconv/to_double.cpp', 'shift', 'to_double'),
    ('src/numconv/format.cpp', 'statement', 'format'),
    ('src/numconv/parse.cpp', 'sign', 'parse'),
)
MOST_TRIED = 6  # of a case, since some do not compile and some are equivalent
PLANTED_IN = 'src/numeric/value.cpp'


def planted(source: str) -> Mutant:
    """More machine code, in a function that nobody calls or sees."""
    function = 'int planted(int x) { return x + 1; }'
    change = Change(len(source), len(source), f'\n{function}\n')
    return Mutant(PLANTED_IN, 'planted', 'none', BOTH, '', function, 0, change)


def killed_one(workshop: Workshop, mutants: List[Mutant]) -> Judged:
    for mutant in mutants[:MOST_TRIED]:
        verdict = workshop.judge(mutant)
        print(f'{verdict.verdict} {verdict.by} {verdict.detail}\n{mutant}\n', flush=True)
        if verdict.verdict == 'killed':
            break
    return mutant, verdict


def run_quick(root: Path, folder: Path, sources: str) -> int:
    suite = unittest.defaultTestLoader.loadTestsFromModule(selfcheck)
    if not unittest.TextTestRunner().run(suite).wasSuccessful():
        return 1
    programs = sorted({f'qv8numeric_rows_{rows}_test' for _, _, rows in CASES})
    workshop = Workshop(root, folder, sources, Order(), programs)
    workshop.prepare(NATIVE, os.cpu_count() or 1)
    sources: Dict[str, str] = {file: (root / file).read_text() for file in {*(case[0] for case in CASES), PLANTED_IN}}
    judged = []
    for file, operator, _ in CASES:
        only = {operator: mutants_of(file, sources[file])[operator]}
        judged.append(killed_one(workshop, in_drawn_order(only, 1, file)))
    alive = [mutant for mutant, verdict in judged if verdict.verdict != 'killed']

    survivor = planted(sources[PLANTED_IN])
    summary = summarize([*judged, (survivor, workshop.judge(survivor))], {}, set())
    reported = survivor in summary.unanswered and not summary.passed
    print(f'{len(judged) - len(alive)} of {len(judged)} mutants killed; the planted survivor was '
          f'{"reported" if reported else "overlooked"}')
    return 0 if reported and not alive else 1
