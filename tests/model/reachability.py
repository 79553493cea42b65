# SPDX-License-Identifier: MIT
"""The cells that no call can reach, each with its reason. Every other cell must be filled.

A rule names operations, outcomes, columns and widths; a name left out stands for all of them. A case that falls into a
cell ruled out here is a failure: either the rule or the library is wrong.
"""

from typing import NamedTuple

from cells import INVALID, MODELESS, ONE, OUTCOMES, TWO, WIDE, WIDTHS, Cell, columns, outcomes
from model import OPERATIONS
from rounding import MODE_NAMES

FORMATTERS = ('Num2Str', 'Num2Dgstr')
PARSERS = ('Str2Num', 'Dgstr2Num')
FROM_INTEGERS = ('Long2Num', 'Int2Num')
TO_INTEGERS = ('Num2Long', 'Num2Int')
DOUBLES = ('Dbl2Num', 'Num2Dbl')
TRUNCATIONS = ('Ceil', 'Floor', 'Round')
SUMS = ('RescalingAdd', 'RescalingSub')
RESCALING = SUMS + ('RescalingMul', 'RescalingDiv')
NO_STATUS = tuple(OUTCOMES)
STATUS = tuple(name for name in OPERATIONS if name not in NO_STATUS)
BY_RESULT_MODE = tuple(name for name in STATUS if name not in MODELESS)
OUT_OF_RANGE = ('OVERFLOW', 'UNDERFLOW')


def other_than(*names, among):
    return tuple(name for name in among if name not in names)


class Rule(NamedTuple):
    reason: str
    operations: tuple
    outcomes: tuple = ()
    columns: tuple = ()
    widths: tuple = ()

    def covers(self, cell):
        return (cell.operation in self.operations and (not self.outcomes or cell.outcome in self.outcomes)
                and (not self.columns or cell.column in self.columns)
                and (not self.widths or cell.width in self.widths))


RULES = (
    Rule('reads no text', other_than(*PARSERS, among=STATUS), ('SYNTAX_ERROR',)),
    Rule('writes no text', other_than(*FORMATTERS, among=STATUS), ('BUFFER_TOO_SMALL',)),
    Rule('looks at no rounding mode', other_than(*NO_STATUS, among=MODELESS), ('INVALID_ARGUMENT',)),
    Rule('every mode is valid', BY_RESULT_MODE, ('INVALID_ARGUMENT',), MODE_NAMES),
    Rule('every mode is valid', ('RescalingCmp',), ('INVALID_ARGUMENT',), ('valid',)),
    Rule('refused before anything else', ('RescalingCmp',), ('a < b', 'a = b', 'a > b'), (INVALID,)),
    Rule('digits are given up only under a valid mode', BY_RESULT_MODE, ('INEXACT',), (INVALID,)),
    Rule('the mode is validated on every road', RESCALING + ('Round',) + FORMATTERS, ('OK',), (INVALID,)),
    Rule('the mode is validated before the range', RESCALING + ('Round',) + FORMATTERS + PARSERS + FROM_INTEGERS,
         OUT_OF_RANGE, (INVALID,)),

    Rule('no operand, nothing read', ('SetZero', 'SetNan'), (), (), (TWO, WIDE)),
    Rule('reads one coefficient as it is', ('IsZero', 'IsNan', 'Cmp'), (), (), (WIDE,)),
    Rule('zero is one word', ('IsZero',), ('yes',), (), (TWO,)),
    Rule('NaN takes two words', ('IsNan',), ('yes',), (), (ONE,)),

    Rule('no operand can be NaN', FROM_INTEGERS, ('NAN',)),
    Rule('an empty text reads as NaN with OK', PARSERS, ('NAN',)),
    Rule('NaN takes two words, and nothing is formed',
         other_than(*PARSERS, *FROM_INTEGERS, 'Div', 'RescalingDiv', 'Dbl2Num', among=STATUS), ('NAN',), (),
         (ONE, WIDE)),
    Rule('a zero divisor is noticed before the dividend is formed', ('Div',), ('NAN',), (), (WIDE,)),
    Rule('a zero divisor goes unseen behind an invalid mode, and NaN takes two words', ('RescalingDiv',), ('NAN',),
         (INVALID,), (ONE, WIDE)),
    Rule('no coefficient can be asked of a NaN', ('Dbl2Num',), ('NAN',), (), (ONE, TWO)),

    Rule('exact or out of range', ('Add', 'Sub', 'Mul', 'Rescale'), ('INEXACT',)),
    Rule('a sum that fits never fails', ('Add', 'Sub'), OUT_OF_RANGE, (), (ONE, TWO)),
    Rule('a sum beyond 127 bits does not fit', ('Add', 'Sub'), ('OK',), (), (WIDE,)),
    Rule('reports every overflow as UNDERFLOW', ('Mul',), ('OVERFLOW',)),
    Rule('the quotient is not checked again', ('Div',), OUT_OF_RANGE),
    Rule('reports every overflow as OVERFLOW', ('Rescale',), ('UNDERFLOW',)),

    Rule('what fits is not out of range', TRUNCATIONS, OUT_OF_RANGE, (), (ONE, TWO)),
    Rule('what is out of range has no other status', TRUNCATIONS, ('OK', 'INEXACT', 'INVALID_ARGUMENT'), (), (WIDE,)),
    Rule('grows only above zero', ('Ceil',), ('UNDERFLOW',)),
    Rule('grows only below zero', ('Floor',), ('OVERFLOW',)),
    Rule('never grows', ('Round',), OUT_OF_RANGE, ('DOWN',)),
    Rule('grows only above zero', ('Round',), ('UNDERFLOW',), ('CEILING',)),
    Rule('grows only below zero', ('Round',), ('OVERFLOW',), ('FLOOR',)),

    Rule('dividing by 1 or -1 forms no dividend', ('Div',), ('OK',), (INVALID,), (WIDE,)),
    Rule('a negative value rounded away from zero keeps its sign', ('Rescale',), ('OVERFLOW',), ('UP', 'FLOOR'),
         (ONE, TWO)),
    Rule('without a rounding only a long product fails', ('Rescale',), ('OVERFLOW',), (INVALID,), (ONE, TWO)),
    Rule('a product is formed without a look at the modes', ('Rescale',), ('INVALID_ARGUMENT',), (), (WIDE,)),

    Rule('a result is no larger than what it is rounded from', RESCALING, OUT_OF_RANGE, (), (ONE, TWO)),
    Rule('refused before anything is formed', other_than('Div', *PARSERS, *DOUBLES, among=BY_RESULT_MODE),
         ('INVALID_ARGUMENT',), (), (WIDE,)),
    Rule('refused before anything is formed', ('RescalingCmp',), ('INVALID_ARGUMENT',), (), (WIDE,)),
    Rule('equal values are as long at the common scale as the one with more decimals', ('RescalingCmp',), ('a = b',),
         (), (WIDE,)),

    Rule('moved up beyond 127 bits a number does not fit', FORMATTERS + FROM_INTEGERS, ('OK', 'INEXACT'), (), (WIDE,)),
    Rule('rounded down a number fits', FORMATTERS + PARSERS + FROM_INTEGERS, OUT_OF_RANGE, (), (ONE, TWO)),
    Rule('refused before the number is moved', FORMATTERS, ('BUFFER_TOO_SMALL',), (INVALID,), (WIDE,)),

    Rule('what is no number has no digits', PARSERS, ('SYNTAX_ERROR',), (), (TWO, WIDE)),
    Rule('only an empty text goes by an invalid mode', PARSERS, ('OK',), (INVALID,), (TWO, WIDE)),

    Rule('an integer is one word', FROM_INTEGERS, (), (), (TWO,)),
    Rule('nothing is widened', TO_INTEGERS, (), (), (WIDE,)),
    Rule('two words do not fit an integer', TO_INTEGERS, ('OK', 'INEXACT'), (), (TWO,)),
    Rule('one word fits a long, and negative ones only fail below zero', ('Num2Long',), ('OVERFLOW',), (), (ONE,)),
    Rule('at scale zero one word fits a long', ('Num2Long',), OUT_OF_RANGE, (INVALID,), (ONE,)),

    Rule('a coefficient that fits is stored', ('Dbl2Num',), OUT_OF_RANGE, (), (ONE, TWO)),
    Rule('a coefficient that does not fit is not stored', ('Dbl2Num',), ('OK', 'INEXACT'), (), (WIDE,)),
    Rule('only zero goes by an invalid mode', DOUBLES, ('OK',), (INVALID,), (TWO, WIDE)),
)


def reason(cell):
    """Why no call can reach the cell, or None."""
    for rule in RULES:
        if rule.covers(cell):
            return rule.reason
    return None


def all_cells(operation):
    return [Cell(operation, column, outcome, width)
            for outcome in outcomes(operation).values() for width in WIDTHS for column in columns(operation)]


def reachable_cells(operation):
    return [cell for cell in all_cells(operation) if reason(cell) is None]
