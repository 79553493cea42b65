#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Compares the built library with the model, case by case, and shows which cells of behaviour the cases filled.

Every case follows from the seed, the operation and its number alone; --case repeats one. Exit status 0 when nothing
differs and every reachable cell holds enough cases, 1 otherwise.
"""

import argparse
import collections
import mmap
import os
import pickle
import signal
import struct
import sys
import time

from cases import Drawer, STEERED_OF_FOUR
from cells import LEGEND, WIDTHS, Cell, columns, outcomes
from library import Library, arena_before, coefficient_text, differences, double_from_bits
from model import OPERATIONS
from reachability import RULES, reachable_cells, reason
from rounding import MODES, MODE_NAMES, NAN

DEFAULT_CASES = 200_000
DEFAULT_SEED = 20_260_101
DEFAULT_PER_CELL = 100
MOST_DIFFERENCES = 20
# Every operation gets its share by its number of cells, and a little more, so that the small ones are not starved.
EXTRA_SHARE = 8


def parse_arguments():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument('library', help='path of the shared library')
    parser.add_argument('--cases', type=int, default=DEFAULT_CASES, help='over all operations (default %(default)s)')
    parser.add_argument('--seed', type=int, default=DEFAULT_SEED, help='default %(default)s')
    parser.add_argument('--only', action='append', choices=list(OPERATIONS), metavar='OPERATION',
                        help='run this operation alone, with all the cases; may be repeated')
    parser.add_argument('--per-cell', type=int, default=DEFAULT_PER_CELL,
                        help='how many cases every reachable cell must hold (default %(default)s)')
    parser.add_argument('--case', metavar='OPERATION:NUMBER', help='repeat one case of the seed and show it')
    parser.add_argument('--reasons', action='store_true', help='print why each empty cell cannot be reached')
    return parser.parse_args()


def mode_text(mode):
    return MODE_NAMES[mode] if mode in MODES else 'mode %d' % mode


def argument_text(kind, value):
    if kind == 'info':
        return '(scale %d, %s)' % (value[0], mode_text(value[1]))
    if kind == 'double':
        return '%#018x = %r' % (value, double_from_bits(value))
    return coefficient_text(value) if kind in ('in', 'inout') else repr(value)


def result_text(operation, result):
    return '%s (%s)' % (outcomes(operation).get(result, 'no such result'), result)


def describe(case, answer):
    kinds = OPERATIONS[case.operation].reads
    lines = ['  %-6s %s' % (kind, argument_text(kind, value)) for kind, value in zip(kinds, case.arguments)]
    if len(set(case.slots)) < len(case.slots):
        lines.append('  Numerics are the objects %s in order' % (case.slots,))
    outputs = ', end '.join('NaN' if output == NAN else str(output) for output in answer[1:])
    lines.append('  expected %s, output %s' % (result_text(case.operation, answer[0]), outputs))
    return '\n'.join(lines)


class Progress:
    """The number of the case in hand, kept where the parent still finds it when the library ends the process."""

    def __init__(self):
        self.memory = mmap.mmap(-1, 8)

    def at(self, number):
        struct.pack_into('<Q', self.memory, 0, number)

    def last(self):
        return struct.unpack_from('<Q', self.memory, 0)[0]


class Findings:
    """What running one operation's cases brought."""

    def __init__(self):
        self.counts = collections.Counter()
        self.differences = []
        self.ran = 0


def run_operation(library, drawer, numbers, progress, most_differences):
    findings = Findings()
    for number in numbers:
        progress.at(number)
        case, answer, cell = drawer.case(number)
        before = arena_before(case)
        observation = library.observe(case, before)
        found = differences(case, before, answer, observation, library.text_address(case))
        findings.ran += 1
        findings.counts[cell] += 1
        if found:
            findings.differences.append((number, describe(case, answer) + '\n  ' + '\n  '.join(found)))
            if len(findings.differences) == most_differences:
                break
    return findings


def in_child(library, drawer, numbers, most_differences):
    """run_operation in a process of its own: (findings or None, number of the last case, how the process ended)."""
    progress = Progress()
    sys.stdout.flush()
    reading, writing = os.pipe()
    child = os.fork()
    if child == 0:
        status = 1
        try:
            os.close(reading)
            findings = run_operation(library, drawer, numbers, progress, most_differences)
            with os.fdopen(writing, 'wb') as pipe:
                pickle.dump(findings, pipe)
            status = 0
        except BaseException:
            sys.excepthook(*sys.exc_info())
            sys.stderr.flush()
        finally:
            os._exit(status)
    os.close(writing)
    with os.fdopen(reading, 'rb') as pipe:
        sent = pipe.read()
    _, status = os.waitpid(child, 0)
    if status == 0:
        return pickle.loads(sent), progress.last(), ''
    how = signal.Signals(os.WTERMSIG(status)).name if os.WIFSIGNALED(status) else 'exit %d' % os.WEXITSTATUS(status)
    return None, progress.last(), how


def shares(operations, cases):
    weights = {operation: len(reachable_cells(operation)) + EXTRA_SHARE for operation in operations}
    total = sum(weights.values())
    return {operation: -(-cases * weight // total) for operation, weight in weights.items()}


def print_table(operation, counts, per_cell):
    """The operation's cells; how many of them are thin."""
    names = columns(operation)
    print('\n%-12s %-18s %-10s' % (operation, '', '') + ''.join('%11s' % name for name in names))
    thin = 0
    for outcome in outcomes(operation).values():
        for width in WIDTHS:
            fields = []
            for column in names:
                cell = Cell(operation, column, outcome, width)
                count = counts[cell]
                if reason(cell):
                    fields.append('.' if count == 0 else '!%d' % count)
                elif count < per_cell:
                    fields.append('(%d)' % count)
                    thin += 1
                else:
                    fields.append('%d' % count)
            if any(field != '.' for field in fields):
                print('%-12s %-18s %-10s' % ('', outcome, width) + ''.join('%11s' % field for field in fields))
    return thin


def print_reasons():
    for rule in RULES:
        print('%s: %s' % (rule.reason, ' / '.join(
            ' '.join(names) or 'all' for names in (rule.operations, rule.outcomes, rule.columns, rule.widths))))


def repeat_command(options, operation, number):
    return '--seed %d --case %s:%d' % (options.seed, operation, number)


def show_case(options):
    operation, _, number = options.case.partition(':')
    number = int(number)
    drawer = Drawer(operation, options.seed)
    case, answer, cell = drawer.case(number)
    print('%s, case %d of seed %d: %s' % (operation, number, options.seed, ', '.join(cell[1:])))
    print(describe(case, answer), flush=True)
    findings, _, how = in_child(Library(options.library), drawer, [number], 1)
    if how:
        print('  the library ended the process: %s' % how)
    elif findings.differences:
        print(findings.differences[0][1].splitlines()[-1])
    else:
        print('  the library agrees')
    return how != '' or bool(findings.differences)


def main():
    options = parse_arguments()
    if options.case:
        return show_case(options)
    operations = options.only or list(OPERATIONS)
    print('seed %d, %d cases, %d of 4 steered into the cells in turn' % (options.seed, options.cases, STEERED_OF_FOUR))
    library = Library(options.library)
    started = time.monotonic()
    counts = collections.Counter()
    found = ran = crashes = 0
    for operation, share in shares(operations, options.cases).items():
        if found >= MOST_DIFFERENCES:
            print('stopped before %s' % operation)
            break
        drawer = Drawer(operation, options.seed)
        findings, last, how = in_child(library, drawer, range(share), MOST_DIFFERENCES - found)
        if findings is None:
            crashes += 1
            print('\n%s ended the process (%s); repeat with %s' % (operation, how,
                                                                   repeat_command(options, operation, last)))
            print(describe(*drawer.case(last)[:2]))
            continue
        for number, text in findings.differences:
            print('\n%s differs; repeat with %s\n%s' % (operation, repeat_command(options, operation, number), text))
        found += len(findings.differences)
        ran += findings.ran
        counts.update(findings.counts)
    thin = sum(print_table(operation, counts, options.per_cell) for operation in operations)
    print('\n' + LEGEND)
    if options.reasons:
        print_reasons()
    impossible = [cell for cell in counts if reason(cell)]
    for cell in impossible:
        print('%s: %d cases although unreachable: %s' % (', '.join(cell), counts[cell], reason(cell)))
    reachable = sum(len(reachable_cells(operation)) for operation in operations)
    print('\n%d cases in %.1f s, seed %d: %d differences, %d crashes, %d of %d reachable cells below %d cases' % (
        ran, time.monotonic() - started, options.seed, found, crashes, thin, reachable, options.per_cell))
    return bool(found or crashes or thin or impossible)


if __name__ == '__main__':
    sys.exit(main())
