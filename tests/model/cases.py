# SPDX-License-Identifier: MIT
"""Draws calls: each drawing function aims at one cell of the table and mostly hits it.

A drawing function takes a source of randomness and the goal (mode, outcome, width) and returns the call's arguments.
Whatever it returns is a legal call; where it lands is decided by the model.
"""

import draw_arithmetic
import draw_machine_numbers
import draw_rescaling
import draw_text
from cells import BY_MODE, INVALID, cell_of
from goals import Goal
from library import Case
from model import OPERATIONS
from reachability import reachable_cells
from rounding import NAN
from shapes import Source


DRAWING = {**draw_arithmetic.DRAWING, **draw_rescaling.DRAWING, **draw_text.DRAWING, **draw_machine_numbers.DRAWING}


def wild(source, operation):
    """Arguments with no aim at all."""
    def value(kind):
        if kind in ('in', 'inout'):
            return NAN if source.chance(0.02) else source.coefficient()
        if kind == 'info':
            return source.scale(), source.invalid_mode() if source.chance(0.02) else source.mode()
        if kind == 'int64':
            return source.getrandbits(64) - 2**63
        if kind == 'double':
            return draw_machine_numbers.any_double(source)
        if kind == 'text':
            return draw_text.soup(source)
        if kind == 'size':
            return source.under(80)
        return source.scale()
    return tuple(value(kind) for kind in OPERATIONS[operation].reads)


# By the kinds of the Numerics in a call: the ways in which they may be one object.
ALIASES = {
    ('in', 'in', 'out'): ((0, 1, 0), (0, 1, 1), (0, 0, 2), (0, 0, 0)),
    ('in', 'out'): ((0, 0),),
    ('in', 'in'): ((0, 0),),
}


def numerics(operation):
    return tuple(kind for kind in OPERATIONS[operation].parameters if kind in ('in', 'out', 'inout'))


def same_operands(operation, arguments):
    """The arguments with the second operand made the same as the first."""
    reads = OPERATIONS[operation].reads
    places = [at for at, kind in enumerate(reads) if kind == 'in']
    if len(places) < 2:
        return arguments
    changed = list(arguments)
    changed[places[1]] = changed[places[0]]
    return tuple(changed)


def choose_slots(source, operation, arguments):
    kinds = numerics(operation)
    distinct = tuple(range(len(kinds)))
    if kinds not in ALIASES or source.chance(0.5):
        return distinct
    operands = [value for kind, value in zip(OPERATIONS[operation].reads, arguments) if kind == 'in']
    same = len(operands) < 2 or operands[0] == operands[1]
    choices = [slots for slots in ALIASES[kinds] if same or slots[0] != slots[1]]
    return source.pick(choices) if choices else distinct


ATTEMPTS = 100
STEERED_OF_FOUR = 3


class Drawer:
    """The cases of one operation: each is a function of the seed, the operation and the case's number alone."""

    def __init__(self, operation, seed):
        self.operation = operation
        self.seed = seed
        self.index = list(OPERATIONS).index(operation)
        self.cells = reachable_cells(operation)
        self.source = Source()

    def goal(self, cell):
        if cell.column == INVALID:
            mode = self.source.invalid_mode()
        else:
            mode = BY_MODE.index(cell.column) if cell.column in BY_MODE else self.source.mode()
        return Goal(mode, cell.outcome, cell.width)

    def arguments(self, number):
        """(arguments, the model's answer, the cell they fall into)"""
        source = self.source
        draw = DRAWING[self.operation]
        expect = OPERATIONS[self.operation].expect
        if number % 4 < STEERED_OF_FOUR:
            wanted = self.cells[(number // 4 * STEERED_OF_FOUR + number % 4) % len(self.cells)]
            for _ in range(ATTEMPTS):
                arguments = draw(source, self.goal(wanted))
                answer = expect(*arguments)
                cell = cell_of(self.operation, arguments, answer)
                if cell == wanted:
                    break
            return arguments, answer, cell
        if source.chance(0.3):
            arguments = wild(source, self.operation)
        else:
            arguments = draw(source, self.goal(source.pick(self.cells)))
        if source.chance(0.1):
            arguments = same_operands(self.operation, arguments)
        answer = expect(*arguments)
        return arguments, answer, cell_of(self.operation, arguments, answer)

    def case(self, number):
        """(case, answer, cell)"""
        self.source.seed((self.seed << 8 | self.index) << 40 | number)
        arguments, answer, cell = self.arguments(number)
        slots = choose_slots(self.source, self.operation, arguments)
        return Case(self.operation, arguments, slots, number % 16, not self.source.chance(0.1)), answer, cell
