# SPDX-License-Identifier: MIT
"""Equal machines compare as equal; one that has a single bit of a single call wrong is found, with the function's name;
and so is a table that is not complete, or not of the same calls.

usage: compare_test.py CHECKSUM_PROGRAM PLANTED_PROGRAM
"""
from __future__ import annotations

import os
import shlex
import subprocess
import sys
import tempfile

COMPARE = os.path.join(os.path.dirname(os.path.abspath(__file__)), 'compare.py')
EMULATOR = shlex.split(os.environ.get('EMULATOR', ''))  # what runs the programs, where they are another machine's
CASES = 1000


def write_table(program: str, path: str, cases: int) -> None:
    subprocess.run([*EMULATOR, program, '--cases', str(cases), '--output', path], check=True)


def compared(*paths: str) -> tuple[int, str]:
    result = subprocess.run([sys.executable, '-B', COMPARE, *paths], stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                            text=True)
    return result.returncode, result.stdout


def changed(path: str, old: str, new: str) -> str:
    """A copy of the table with something in it replaced once."""
    with open(path, encoding='ascii') as file:
        text = file.read()
    assert old in text, old
    copy = f'{path}.{len(os.listdir(os.path.dirname(path)))}'
    with open(copy, 'w', encoding='ascii') as file:
        file.write(text.replace(old, new, 1))
    return copy


def main(program: str, planted: str) -> None:
    with tempfile.TemporaryDirectory() as folder:
        first, second, wrong, fewer = (f'{folder}/{name}' for name in ('first', 'second', 'wrong', 'fewer'))
        for path in (first, second):
            write_table(program, path, CASES)
        write_table(planted, wrong, CASES)
        write_table(program, fewer, CASES - 1)
        with open(first, encoding='ascii') as file:
            lines = file.read().splitlines()
        printed = next(line for line in lines if line.startswith('('))
        rows = (
            ('equal tables', second, 0, ['2 tables of', 'are equal']),
            ('one bit of one call', wrong, 1, [f'{wrong}: Round: the answers differ\n']),
            ('other calls', fewer, 1, ['Add: not the same calls were made', 'all: not the same calls were made']),
            ('a line printed differently', changed(first, printed, printed.replace('(', '[')), 1,
             ['dump: the printed lines differ']),
            ('a function missing', changed(first, '\nSub ', '\nAbs '), 1,
             ['Sub: on one machine only', 'Abs: on one machine only']),
            ('a table cut short', changed(first, f'{lines[-1]}\n', ''), 1, ['no complete table']),
        )
        failures = []
        for name, other, status, expected in rows:
            returned, said = compared(first, other)
            lacking = [text for text in expected if text not in said]
            if returned != status or lacking:
                failures.append(f'{name}: status {returned}, lacks {lacking}:\n{said}')
        _, said = compared(first, wrong)
        if said.count(': the answers differ') != 1:
            failures.append(f'one bit of one call is in more functions than one:\n{said}')
    sys.exit('\n'.join(failures) if failures else 0)


main(*sys.argv[1:])
