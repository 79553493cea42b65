# SPDX-License-Identifier: MIT
"""How drawn cases are counted: operation x rounding mode x outcome, split by operand width."""

from typing import NamedTuple

from arithmetic import align, machine_dividend, truncated
from machine_numbers import decimal_to_binary
from model import OPERATIONS
from rounding import (DOWN, FARTHEST, HALF_EVEN, INVALID_ARGUMENT, LIMIT, MODE_NAMES, NAN, OVERFLOW, POWER_OF_TEN,
                      STATUS_NAMES, UNDERFLOW)
from text import Literal

ONE, TWO, WIDE = WIDTHS = ('one word', 'two words', '256 bits')

LEGEND = '''\
one word    every coefficient that is read fits a signed 64-bit word
two words   at least one does not
256 bits    an exact intermediate of the call exceeds 2^127 - 1: a sum or product, an operand at the common scale or
            moved up to the result's, a quotient moved back up; for Div the dividend; for the parsers the digits taken;
            for Dbl2Num the coefficient asked for; for Num2Dbl a vector that lost bits at its top
A call that is refused for a mode or a NaN before an intermediate is formed counts by its coefficients alone. Columns
are the modes that decide; any invalid mode puts a call into a column of its own. A dot marks a cell that no call can
reach, a number in brackets one that holds too few cases.'''

BY_MODE = MODE_NAMES + ('invalid',)
INVALID = 'invalid'
MODELESS = ('SetZero', 'SetNan', 'IsZero', 'IsNan', 'Add', 'Sub', 'Cmp', 'Ceil', 'Floor', 'Mul')
ANY_MODE = ('any',)
VALID_OR_NOT = ('valid', INVALID)

VOID = {None: 'done'}
TRUTH = {0: 'no', 1: 'yes'}
ORDER = {1: 'a < b', 0: 'a = b', -1: 'a > b'}
ORDER_OR_INVALID = {**ORDER, INVALID_ARGUMENT: 'INVALID_ARGUMENT'}
OUTCOMES = {'SetZero': VOID, 'SetNan': VOID, 'IsZero': TRUTH, 'IsNan': TRUTH, 'Cmp': ORDER,
            'RescalingCmp': ORDER_OR_INVALID}


def outcomes(operation):
    return OUTCOMES.get(operation, STATUS_NAMES)


def columns(operation):
    if operation in MODELESS:
        return ANY_MODE
    return VALID_OR_NOT if operation == 'RescalingCmp' else BY_MODE


def infos(operation, arguments):
    return [value for kind, value in zip(OPERATIONS[operation].reads, arguments) if kind == 'info']


def column(operation, arguments):
    """The result's mode; any invalid mode makes a class of its own, also where it goes unnoticed."""
    if operation in MODELESS:
        return ANY_MODE[0]
    given = infos(operation, arguments)
    if any(mode > HALF_EVEN for _, mode in given):
        return INVALID
    return VALID_OR_NOT[0] if operation == 'RescalingCmp' else MODE_NAMES[given[-1][1]]


def up(magnitude, places):
    return magnitude * POWER_OF_TEN[min(places, FARTHEST)] if places > 0 else magnitude


def sum_intermediate(a_info, b_info, result_info, a, b, sign_of_b):
    common, a_there, b_there, _, _ = align(a, a_info[0], b, b_info[0])
    return max(abs(a_there), abs(b_there), up(abs(a_there + sign_of_b * b_there), result_info[0] - common))


def rescale_intermediate(answer, from_info, to_info, value):
    places = to_info[0] - from_info[0]
    if places >= 0:
        return up(abs(value), places)
    if answer[0] == INVALID_ARGUMENT:
        return 0
    return out_of_range(truncated(value, from_info[0], to_info[0], to_info[1]))


def product_intermediate(a_info, b_info, result_info, a, b):
    return up(abs(a * b), (result_info[0] - a_info[0] - b_info[0] + 2**31) % 2**32 - 2**31)


def compare_intermediate(a_info, b_info, a, b):
    if a_info[0] == b_info[0]:
        return 0
    _, a_there, b_there, _, _ = align(a, a_info[0], b, b_info[0])
    return max(abs(a_there), abs(b_there))


def out_of_range(answer):
    """An intermediate that is the result itself."""
    return LIMIT + 1 if answer[0] in (OVERFLOW, UNDERFLOW) else 0


INTERMEDIATES = {
    'Add': lambda answer, a, b: abs(a + b),
    'Sub': lambda answer, a, b: abs(a - b),
    'Ceil': lambda answer, *_: out_of_range(answer),
    'Floor': lambda answer, *_: out_of_range(answer),
    'Round': lambda answer, *_: out_of_range(answer),
    'Mul': lambda answer, value, multiplier: abs(value * multiplier),
    'Div': lambda answer, value, info, divisor: machine_dividend(value) if abs(divisor) > 1 else 0,
    'Rescale': rescale_intermediate,
    'RescalingAdd': lambda answer, *arguments: sum_intermediate(*arguments, 1),
    'RescalingSub': lambda answer, *arguments: sum_intermediate(*arguments, -1),
    'RescalingCmp': lambda answer, *arguments: compare_intermediate(*arguments),
    'RescalingMul': lambda answer, *arguments: product_intermediate(*arguments),
    'RescalingDiv': lambda answer, a_info, b_info, info, a, b: up(abs(a), info[0] - a_info[0] + b_info[0]),
    'Num2Str': lambda answer, value, info, shift, scale, size: up(abs(value), scale - info[0]),
    'Num2Dgstr': lambda answer, value, info, shift, scale, size: up(abs(value), scale - info[0]),
    'Long2Num': lambda answer, value, info: up(abs(value), info[0]),
    'Int2Num': lambda answer, value, info: up(abs(value), info[0]),
}
# Formed before a mode is looked at.
FORMED_UNDER_ANY_MODE = ('Div', 'Rescale')


def words(coefficients):
    return ONE if all(-2**63 <= coefficient < 2**63 for coefficient in coefficients) else TWO


def literal_width(operation, arguments, answer):
    text, info = arguments
    literal = Literal(text, operation == 'Dgstr2Num')
    if not text or not literal.accepted():
        return ONE
    exponent = -literal.chunk if literal.exponent_negative else literal.chunk
    if not literal.exponent_seen:
        exponent = 0
        literal.flush()
    places = info[0] + literal.dropped - literal.fraction_digits + exponent
    formed = literal.value if info[1] > HALF_EVEN else up(literal.value, places)
    return WIDE if formed > LIMIT else words((literal.value,))


def double_width(operation, arguments, answer):
    (scale, mode), double = arguments
    if mode > HALF_EVEN:
        answer = OPERATIONS[operation].expect((scale, DOWN), double)
    return WIDE if answer[1] == NAN else words((answer[1],))


def to_double_width(operation, arguments, answer):
    value, info = arguments
    if value not in (0, NAN) and decimal_to_binary(abs(value), info[0])[0].overflowed:
        return WIDE
    return words((value,))


SPECIAL_WIDTHS = {'Str2Num': literal_width, 'Dgstr2Num': literal_width, 'Dbl2Num': double_width,
                  'Num2Dbl': to_double_width}


def width(operation, arguments, answer):
    if operation in SPECIAL_WIDTHS:
        return SPECIAL_WIDTHS[operation](operation, arguments, answer)
    kinds = OPERATIONS[operation].reads
    if operation in ('Long2Num', 'Int2Num'):
        coefficients = arguments[:1]
    else:
        coefficients = [value for kind, value in zip(kinds, arguments) if kind in ('in', 'inout')]
    formed = operation in INTERMEDIATES and NAN not in coefficients and (
        operation in FORMED_UNDER_ANY_MODE or column(operation, arguments) != INVALID)
    if formed and INTERMEDIATES[operation](answer, *arguments) > LIMIT:
        return WIDE
    return words(coefficients)


class Cell(NamedTuple):
    operation: str
    column: str
    outcome: str
    width: str


def cell_of(operation, arguments, answer):
    return Cell(operation, column(operation, arguments), outcomes(operation)[answer[0]],
                width(operation, arguments, answer))
