#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Shows that the comparison has teeth, without a library.

First, memory after a flawless call is damaged in one place, and the comparison must say so. Second, the model gets one
mistake at a time that an implementer could make, and the drawn cases must meet it.
"""

import argparse
import contextlib
import sys
from typing import NamedTuple
from unittest import mock

import arithmetic
import machine_numbers
import rounding
import text
from cases import Drawer
from library import (END_AT, GUARD, INFO_AT, MACHINE_AT, NUMERIC_AT, Observation, arena_before, arena_expected,
                     differences, parses, watched_buffer, watched_size)
from model import OPERATIONS
from rounding import (FARTHEST, HALF_DOWN, HALF_EVEN, HALF_UP, INEXACT, INVALID_ARGUMENT, LIMIT, NAN, OK, OVERFLOW,
                      POWER_OF_TEN, UNDERFLOW, UNTOUCHED)

SEED = 7
TEXT_ADDRESS = 0x10000


def flawless(case, answer):
    """What would be observed of a library that does exactly what the model says."""
    arena = arena_expected(case, arena_before(case), answer, TEXT_ADDRESS)
    if parses(case):
        return Observation(answer[0], bytes(arena), case.arguments[0] + b'\0')
    if 'buffer' not in OPERATIONS[case.operation].parameters:
        return Observation(answer[0], bytes(arena), b'')
    buffer = bytearray(watched_buffer(case))
    start = GUARD + answer[1].offset
    buffer[start:start + len(answer[1].content)] = answer[1].content
    return Observation(answer[0], bytes(arena), bytes(buffer))


def damaged(data, at):
    changed = bytearray(data)
    changed[at] ^= 0x10
    return bytes(changed)


def numeric_damage(case, byte, wanted_kinds):
    """Places of one byte of every Numeric of those kinds."""
    kinds = [kind for kind in OPERATIONS[case.operation].parameters if kind in ('in', 'out', 'inout')]
    return [NUMERIC_AT[slot] + byte for kind, slot in zip(kinds, case.slots) if kind in wanted_kinds]


def arena_damage(case, answer):
    """(what, place) of every byte in the arena whose change must be noticed."""
    for byte in (0, 7, 8, 15):
        for at in numeric_damage(case, byte, ('in', 'out', 'inout')):
            yield 'byte %d of a Numeric' % byte, at
    for at in numeric_damage(case, 16, ('in', 'out', 'inout')) + numeric_damage(case, -1, ('in', 'out', 'inout')):
        yield 'a byte beside a Numeric', at
    yield 'an info', INFO_AT[0] + 4
    yield 'the first byte of a machine output', MACHINE_AT
    yield 'the byte behind a 32-bit output', MACHINE_AT + 4
    yield 'the byte behind a 64-bit output', MACHINE_AT + 8
    yield 'the end', END_AT


def damages(case, answer):
    """(what, observation) for every way in which a flawless observation is damaged."""
    good = flawless(case, answer)
    if answer[0] is not None:
        yield 'the result', good._replace(result=answer[0] + 1)
    for what, at in arena_damage(case, answer):
        yield what, good._replace(arena=damaged(good.arena, at))
    if parses(case):
        yield 'the parsed text', good._replace(text=damaged(good.text, 0))
    elif good.text:
        size = watched_size(case)
        written = answer[1]
        yield 'the byte in front of the buffer', good._replace(text=damaged(good.text, GUARD - 1))
        yield 'the byte behind the buffer', good._replace(text=damaged(good.text, GUARD + size))
        if written.content:
            yield 'the first character', good._replace(text=damaged(good.text, GUARD + written.offset))
            yield 'the NUL', good._replace(text=damaged(good.text, GUARD + written.offset + len(written.content) - 1))
        if size and not written.free_behind:
            yield 'the first byte of the buffer', good._replace(text=damaged(good.text, GUARD))


def check_damage(cases):
    """(kinds of damage tried, failures)"""
    tried, failures = set(), []
    for operation in OPERATIONS:
        drawer = Drawer(operation, SEED)
        for number in range(cases):
            case, answer, _ = drawer.case(number)
            before = arena_before(case)
            if differences(case, before, answer, flawless(case, answer), TEXT_ADDRESS):
                failures.append('%s: a flawless call is called wrong' % operation)
            for what, observation in damages(case, answer):
                tried.add(what)
                if not differences(case, before, answer, observation, TEXT_ADDRESS):
                    failures.append('%s: damage to %s goes unnoticed' % (operation, what))
    return tried, failures


class Mistake(NamedTuple):
    """A wrong turn an implementer could take. Each of the operations named must have a case that meets it."""
    name: str
    operations: tuple
    patches: tuple  # (module or class, attribute, what stands there instead)


def everywhere(attribute, replacement):
    """The patches for a function that several modules know by its name."""
    return tuple((module, attribute, replacement) for module in (rounding, arithmetic, text, machine_numbers)
                 if hasattr(module, attribute))


def at(holder, attribute, replacement):
    return ((holder, attribute, replacement),)


MOVING = ('Round', 'Rescale', 'RescalingAdd', 'RescalingSub', 'RescalingMul', 'Num2Str', 'Num2Dgstr', 'Str2Num',
          'Dgstr2Num', 'Long2Num', 'Int2Num')
ROUNDING = MOVING + ('Div', 'RescalingDiv', 'Dbl2Num', 'Num2Dbl')
SUMS = ('RescalingAdd', 'RescalingSub')
PARSERS = ('Str2Num', 'Dgstr2Num')
FORMATTERS = ('Num2Str', 'Num2Dgstr')

RIGHT = {name: getattr(module, name) for module, names in (
    (rounding, ('increases', 'move', 'divide_rounded', 'settle')),
    (arithmetic, ('rescaling_sum', 'rescale', 'mul', 'div', 'any_invalid')),
    (text, ('mantissa', 'number_text', 'right_aligned')),
    (machine_numbers, ('num2dbl', 'dbl2num', 'number_to_integer')),
) for name in names}
RIGHT_TAKE = text.Literal.take
RIGHT_ACCEPTED = text.Literal.accepted
RIGHT_STEP = machine_numbers.Dropped.step
RIGHT_DIVIDING_SHIFT = machine_numbers.Vector.shift_right_then_divide


def deciding(name, operations, change):
    """A mistake in the rounding decision, wherever it is taken; change gets its four arguments and returns others."""
    return Mistake(name, operations, everywhere('increases', lambda *decision: RIGHT['increases'](*change(*decision))))


def limited_to(largest):
    def settle(magnitude, negative, inexact):
        if magnitude > largest:
            return (UNDERFLOW if negative else OVERFLOW), NAN
        return (INEXACT if inexact else OK), (-magnitude if negative else magnitude)
    return everywhere('settle', settle)


def rounded_twice(digits):
    """Rounds to some digits more than asked for, and then again."""
    def move(magnitude, places, negative, mode):
        if places >= -digits:
            return RIGHT['move'](magnitude, places, negative, mode)
        first, lost = RIGHT['move'](magnitude, places + digits, negative, mode)
        second, more = RIGHT['move'](first, -digits, negative, mode)
        return second, lost or more
    return everywhere('move', move)


def seen_of_dropped(digits):
    """Decides a tie by the upper digits of the dropped ones alone."""
    def move(magnitude, places, negative, mode):
        if places >= -digits:
            return RIGHT['move'](magnitude, places, negative, mode)
        upper, rest = divmod(magnitude, POWER_OF_TEN[min(-places - digits, FARTHEST)])
        result, lost = RIGHT['move'](upper, -digits, negative, mode)
        return result, lost or rest != 0
    return everywhere('move', move)


def guarded_by(for_one_word, for_two_words, bound=2**64):
    def with_guard_digits(coarse, coarse_scale, fine, fine_scale):
        guard = for_one_word if -bound <= coarse < bound else for_two_words
        places = guard - (fine_scale - coarse_scale)
        there, lost = ((abs(fine) * 10**places, 0) if places >= 0
                       else divmod(abs(fine), POWER_OF_TEN[min(-places, FARTHEST)]))
        sign = -1 if fine < 0 else 1
        return coarse_scale + guard, coarse * 10**guard, sign * there, (sign if lost else 0)
    return at(arithmetic, 'with_guard_digits', with_guard_digits)


def exact_sum(a_info, b_info, result_info, a, b, sign_of_b):
    finest = max(a_info[0], b_info[0])
    if NAN in (a, b) or 0 in (a, b) or finest - min(a_info[0], b_info[0]) > 200 or RIGHT['any_invalid'](
            a_info, b_info, result_info):
        return RIGHT['rescaling_sum'](a_info, b_info, result_info, a, b, sign_of_b)
    total = a * 10**(finest - a_info[0]) + sign_of_b * b * 10**(finest - b_info[0])
    unit = 10**max(0, min(finest - result_info[0], 800))
    magnitude, lost = RIGHT['divide_rounded'](abs(total) * POWER_OF_TEN[max(0, min(result_info[0] - finest, FARTHEST))],
                                              unit, total < 0, result_info[1])
    return RIGHT['settle'](magnitude, total < 0, lost)


def mul_with_any_sign(value, multiplier):
    if value == NAN or multiplier >= 0:
        return RIGHT['mul'](value, multiplier)
    product = value * multiplier
    return (OK, product) if abs(product) <= LIMIT else (UNDERFLOW, NAN)


def mul_without_nan(value, multiplier):
    status, product = RIGHT['mul'](value, multiplier)
    return (UNDERFLOW if status == OK and product == NAN else status), product


def div_with_sign(value, info, divisor):
    return (OK, -value) if divisor == -1 and value != NAN else RIGHT['div'](value, info, divisor)


def div_validating_first(value, info, divisor):
    answer = RIGHT['div'](value, info, divisor)
    return (INVALID_ARGUMENT, value) if answer[0] == INVALID_ARGUMENT else answer


def rescale_checked_early(from_info, to_info, value):
    places = to_info[0] - from_info[0]
    if value != NAN and places > 0 and abs(value) * POWER_OF_TEN[min(places, FARTHEST)] > LIMIT:
        return OVERFLOW, NAN
    return RIGHT['rescale'](from_info, to_info, value)


def rescale_to_zero(from_info, to_info, value):
    answer = RIGHT['rescale'](from_info, to_info, value)
    if answer[0] == OVERFLOW and value < 0 and to_info[0] < from_info[0]:
        return OK, 0
    return answer


def take_up_to(limit_of_three, limit_of_one):
    def take(self, digits):
        skipped = self.held == 0 and not self.point_seen and not digits.strip(b'0')
        if not skipped and self.held > (limit_of_three if len(digits) == 3 else limit_of_one):
            self.fraction_digits += len(digits) if self.point_seen else 0
            self.dropped += len(digits)
            return
        held, self.held = self.held, min(self.held, 40)
        RIGHT_TAKE(self, digits)
        self.held = held if skipped else held + len(digits)
    return at(text.Literal, 'take', take)


def read_one_token_more(self):
    accepted = RIGHT_ACCEPTED(self)
    if accepted and self.exponent_seen and self.text[self.token_start:self.token_start + 1].isdigit():
        self.token()
    return accepted


def group_before_any_digit(self, at):
    return self.text[at] == 0x2c and len(self.text[at + 1:at + 4]) == 3 and self.text[at + 1:at + 4].isdigit()


def text_without_sign_of_zero(value, info, *rest):
    status, printed = RIGHT['number_text'](value, info, *rest)
    return status, printed.lstrip(b'-') if not printed.strip(b'-0.,') else printed


def one_more_zero(digits, places, *rest):
    return RIGHT['mantissa'](digits, places - (places < 0), *rest)


def step_that_forgets(self, rest, unit):
    RIGHT_STEP(self, rest, unit)
    self.earlier = False


def empty_division_counts(self, shift, fives):
    RIGHT_DIVIDING_SHIFT(self, shift, fives)
    if fives == 0:
        self.divide(1)


def vector_without_end(self, bits):
    self.overflowed = self.overflowed or bits >> 256 != 0
    self.bits = bits


def num2dbl_checking_the_carry(value, info):
    status, double = RIGHT['num2dbl'](value, info)
    if status == INEXACT and double & ~(1 << 63) == machine_numbers.INFINITY:
        status = UNDERFLOW if value < 0 else OVERFLOW
    return status, double


def num2dbl_keeping_the_carry(value, info):
    status, double = RIGHT['num2dbl'](value, info)
    smallest_normal = info[0] > 300 and abs(value) * 2**1023 > 10**info[0] if info[0] < 400 else False
    return status, (double | 1 << 52 if smallest_normal and not double & ~(1 << 63) else double)


def num2dbl_leaving_subnormals(value, info):
    status, double = RIGHT['num2dbl'](value, info)
    return status, (UNTOUCHED if status == INVALID_ARGUMENT else double)


def dbl2num_exact(info, double):
    field, fraction = double >> 52 & 0x7ff, double & machine_numbers.FRACTION
    scale, mode = info
    if field == 0x7ff or field + fraction == 0 or mode > HALF_EVEN or abs(scale) > 1100:
        return RIGHT['dbl2num'](info, double)
    numerator, twos = (fraction | 2**52, field - 1075) if field else (fraction, -1074)
    numerator *= 2**max(0, twos) * 10**max(0, scale)
    denominator = 2**max(0, -twos) * 10**max(0, -scale)
    magnitude, lost = RIGHT['divide_rounded'](numerator, denominator, double >> 63 == 1, mode)
    return RIGHT['settle'](magnitude, double >> 63 == 1, lost)


def whole_quotient(value, info, bits):
    scale, mode = info
    if value < 0 or scale <= 0 or mode > HALF_EVEN:
        return RIGHT['number_to_integer'](value, info, bits)
    quotient, rest = divmod(value, POWER_OF_TEN[min(scale, FARTHEST)])
    return (OVERFLOW, 0) if quotient >= 1 << bits - 1 else (INEXACT if rest else OK, quotient)


def negative_integers(value, info, bits):
    status, result = RIGHT['number_to_integer'](abs(value) if value != NAN else value, info, bits)
    return (UNDERFLOW if value < 0 and status == OVERFLOW else status), (-result if value < 0 else result)


MISTAKES = (
    deciding('HALF_EVEN rounds halves up', ROUNDING,
             lambda mode, *rest: (HALF_UP if mode == HALF_EVEN else mode,) + rest),
    deciding('HALF_EVEN rounds halves down', ROUNDING,
             lambda mode, *rest: (HALF_DOWN if mode == HALF_EVEN else mode,) + rest),
    deciding('HALF_DOWN rounds halves up', ROUNDING,
             lambda mode, *rest: (HALF_UP if mode == HALF_DOWN else mode,) + rest),
    deciding('parity is turned round', ROUNDING, lambda mode, negative, odd, half: (mode, negative, not odd, half)),
    deciding('the sign is turned round', ROUNDING + ('Ceil', 'Floor'),
             lambda mode, negative, odd, half: (mode, not negative, odd, half)),
    Mistake('2^127 is let through', ('Add', 'Sub', 'RescalingMul', 'RescalingDiv', 'Dbl2Num') + SUMS + PARSERS,
            limited_to(LIMIT + 1)),
    Mistake('2^127 - 1 is refused', ('Add', 'Sub', 'RescalingMul', 'RescalingDiv') + SUMS + PARSERS,
            limited_to(LIMIT - 1)),
    Mistake('the last place is rounded twice', MOVING, rounded_twice(1)),
    Mistake('the last eight places are rounded twice', MOVING, rounded_twice(8)),
    Mistake('only eight dropped digits are looked at', MOVING, seen_of_dropped(8)),
    Mistake('only sixteen dropped digits are looked at', MOVING, seen_of_dropped(16)),
    Mistake('only twenty-four dropped digits are looked at', MOVING[:-2], seen_of_dropped(24)),
    Mistake('47 guard digits', SUMS, guarded_by(47, 38)),
    Mistake('49 guard digits', SUMS, guarded_by(49, 38)),
    Mistake('37 guard digits for two words', SUMS, guarded_by(48, 37)),
    Mistake('48 guard digits only below 2^63', SUMS, guarded_by(48, 38, 2**63)),
    Mistake('sums are exact at every distance', SUMS, at(arithmetic, 'rescaling_sum', exact_sum)),
    Mistake('a dividend that loses bits is noticed', ('RescalingDiv',),
            at(arithmetic, 'unnoticed_loss', lambda *_: False)),
    Mistake('a negative multiplier works', ('Mul',), at(arithmetic, 'mul', mul_with_any_sign)),
    Mistake('a product of -2^127 is refused', ('Mul',), at(arithmetic, 'mul', mul_without_nan)),
    Mistake('a negative dividend is its magnitude', ('Div',), at(arithmetic, 'machine_dividend', abs)),
    Mistake('dividing by -1 changes the sign', ('Div',), at(arithmetic, 'div', div_with_sign)),
    Mistake('the mode is validated before the division', ('Div',), at(arithmetic, 'div', div_validating_first)),
    Mistake('rescale notices an overflow early', ('Rescale',), at(arithmetic, 'rescale', rescale_checked_early)),
    Mistake('rescale goes on beyond ten steps', ('Rescale',),
            at(arithmetic, 'capped_power_of_ten', lambda places: POWER_OF_TEN[min(places, FARTHEST)])),
    Mistake('rescale makes zero of a negative value', ('Rescale',), at(arithmetic, 'rescale', rescale_to_zero)),
    Mistake('46 digits are kept', PARSERS, take_up_to(43, 45)),
    Mistake('three digits obey the limit of one', PARSERS, take_up_to(40, 40)),
    Mistake('one digit obeys the limit of three', PARSERS, take_up_to(42, 42)),
    Mistake('one more token is always read', PARSERS, at(text.Literal, 'accepted', read_one_token_more)),
    Mistake('a group may be followed by a digit', ('Dgstr2Num',), at(text.Literal, 'group_at', group_before_any_digit)),
    Mistake('a sign that ends a number counts', PARSERS,
            at(text.Literal, 'minus', lambda self: setattr(self, 'negative', True))),
    Mistake('a rounded zero has no sign', FORMATTERS, at(text, 'number_text', text_without_sign_of_zero)),
    Mistake('one zero too many is appended', FORMATTERS, at(text, 'mantissa', one_more_zero)),
    Mistake('a short buffer stays untouched', FORMATTERS,
            at(text, 'right_aligned', lambda *_: text.NOTHING_WRITTEN)),
    Mistake('the whole quotient is written back', ('Num2Long', 'Num2Int'),
            at(machine_numbers, 'number_to_integer', whole_quotient)),
    Mistake('negative numbers become integers', ('Num2Long', 'Num2Int'),
            at(machine_numbers, 'number_to_integer', negative_integers)),
    Mistake('what an earlier step dropped is forgotten', ('Dbl2Num',),
            at(machine_numbers.Dropped, 'step', step_that_forgets)),
    Mistake('a division by one counts as a step', ('Dbl2Num',),
            at(machine_numbers.Vector, 'shift_right_then_divide', empty_division_counts)),
    Mistake('doubles are converted exactly', ('Dbl2Num',), at(machine_numbers, 'dbl2num', dbl2num_exact)),
    Mistake('a vector keeps what leaves its top', ('Num2Dbl',), at(machine_numbers.Vector, 'set', vector_without_end)),
    Mistake('a carry into infinity is an overflow', ('Num2Dbl',),
            at(machine_numbers, 'num2dbl', num2dbl_checking_the_carry)),
    Mistake('a carry out of the subnormals stays', ('Num2Dbl',),
            at(machine_numbers, 'num2dbl', num2dbl_keeping_the_carry)),
    Mistake('an invalid mode leaves a subnormal unwritten', ('Num2Dbl',),
            at(machine_numbers, 'num2dbl', num2dbl_leaving_subnormals)),
)


def answered_by(mistake, operation, arguments):
    """The mistaken model's answer, by the names its modules hold while the mistake is in place."""
    expect = OPERATIONS[operation].expect
    with contextlib.ExitStack() as patched:
        for patch in mistake.patches:
            patched.enter_context(mock.patch.object(*patch))
        return getattr(sys.modules[expect.__module__], expect.__name__)(*arguments)


def first_met(mistake, operation, cases):
    """The number of the first case that the mistake answers differently, or None."""
    drawer = Drawer(operation, SEED)
    for number in range(cases):
        case, answer, _ = drawer.case(number)
        if answered_by(mistake, operation, case.arguments) != answer:
            return number
    return None


def check_mistakes(cases):
    failures = []
    for mistake in MISTAKES:
        met = {operation: first_met(mistake, operation, cases) for operation in mistake.operations}
        print('%s: %s' % (mistake.name, ', '.join('%s after %s' % pair for pair in met.items())), flush=True)
        failures += ['%s never meets the mistake: %s' % (operation, mistake.name)
                     for operation, number in met.items() if number is None]
    return failures


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument('--cases', type=int, default=6000,
                        help='per operation and mistake, at the most (default %(default)s)')
    options = parser.parse_args()
    tried, failures = check_damage(100)
    failures += check_mistakes(options.cases)
    for failure in sorted(set(failures)):
        print(failure)
    print('%d kinds of damage, %d mistakes, %d failures' % (len(tried), len(MISTAKES), len(failures)))
    return bool(failures)


if __name__ == '__main__':
    sys.exit(main())
