#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""The model against results worked out by hand: every row says what it is there for. Needs no library."""

import argparse
import struct
import sys

from model import OPERATIONS
from rounding import (BUFFER_TOO_SMALL, CEILING, DOWN, FLOOR, HALF_DOWN, HALF_EVEN, HALF_UP, INEXACT,
                      INVALID_ARGUMENT, LIMIT, MODES, MODE_NAMES, NAN, NOT_A_NUMBER, OK, OVERFLOW, SYNTAX_ERROR,
                      UNDERFLOW, UNTOUCHED, UP)
from text import NOTHING_WRITTEN, Literal, Written, whole

INT32_MIN, INT32_MAX = -2**31, 2**31 - 1
INVALID_MODE = 7


def bits(double):
    return struct.unpack('<Q', struct.pack('<d', double))[0]


def every_mode(name, operation, arguments, results):
    """One row per mode; arguments is a function of the mode, results come in the order of the modes."""
    assert len(results) == len(MODES)
    return [('%s, %s' % (name, MODE_NAMES[mode]), operation, arguments(mode), result)
            for mode, result in zip(MODES, results)]


def modes(name, operation, arguments, results):
    """One row per mode named in results."""
    return [('%s, %s' % (name, MODE_NAMES[mode]), operation, arguments(mode), result)
            for mode, result in results.items()]


SMALLEST = -LIMIT

VALUE_BASICS = [
    ('zero is written', 'SetZero', (), (None, 0)),
    ('NaN is written', 'SetNan', (), (None, NAN)),
    ('only one pattern is NaN', 'IsNan', (NAN,), (1, UNTOUCHED)),
    ('one above the pattern of NaN is a number', 'IsNan', (SMALLEST,), (0, UNTOUCHED)),
    ('zero is not NaN', 'IsNan', (0,), (0, UNTOUCHED)),
    ('NaN is not zero', 'IsZero', (NAN,), (0, UNTOUCHED)),
    ('zero is zero', 'IsZero', (0,), (1, UNTOUCHED)),
]

SAME_SCALE = [
    ('one above the largest sum', 'Add', (LIMIT, 1), (OVERFLOW, NAN)),
    ('the sum -2^127 is no value', 'Add', (-1, SMALLEST), (UNDERFLOW, NAN)),
    ('below the smallest sum', 'Add', (SMALLEST, -2), (UNDERFLOW, NAN)),
    ('one above the largest difference', 'Sub', (LIMIT, -1), (OVERFLOW, NAN)),
    ('the difference -2^127 is no value', 'Sub', (-1, LIMIT), (UNDERFLOW, NAN)),
    ('equal operands cancel', 'Sub', (5, 5), (OK, 0)),
    ('a carry into the upper half', 'Add', (2**64 - 1, 1), (OK, 2**64)),
    ('NaN first', 'Add', (NAN, 1), (NOT_A_NUMBER, NAN)),
    ('NaN second', 'Add', (1, NAN), (NOT_A_NUMBER, NAN)),
    ('NaN twice', 'Add', (NAN, NAN), (NOT_A_NUMBER, NAN)),
    ('NaN is subtracted', 'Sub', (1, NAN), (NOT_A_NUMBER, NAN)),
    ('the smaller first gives +1', 'Cmp', (1, 2), (1, UNTOUCHED)),
    ('the larger first gives -1', 'Cmp', (2, 1), (-1, UNTOUCHED)),
    ('signs decide', 'Cmp', (-1, 1), (1, UNTOUCHED)),
    ('equal', 'Cmp', (7, 7), (0, UNTOUCHED)),
    ('NaN is below zero', 'Cmp', (NAN, 0), (1, UNTOUCHED)),
    ('NaN equals itself', 'Cmp', (NAN, NAN), (0, UNTOUCHED)),
]

TRUNCATION = [
    row
    for value, kept, status in (
        (25, (3, 2, 3, 2, 3, 2, 2), INEXACT), (35, (4, 3, 4, 3, 4, 3, 4), INEXACT),
        (-25, (-3, -2, -2, -3, -3, -2, -2), INEXACT), (26, (3, 2, 3, 2, 3, 3, 3), INEXACT),
        (-24, (-3, -2, -2, -3, -2, -2, -2), INEXACT), (20, (2,) * 7, OK))
    for row in every_mode('%d tenths to whole units' % value, 'Round', lambda mode, value=value: ((1, mode), 0, value),
                          [(status, 10 * units) for units in kept])
] + [
    ('a digit far behind the five is above half, HALF_DOWN', 'Round', ((5, HALF_DOWN), 0, 250001), (INEXACT, 300000)),
    ('a digit far behind the five is above half, HALF_EVEN', 'Round', ((5, HALF_EVEN), 0, 250001), (INEXACT, 300000)),
    ('the last of ten dropped digits lifts a half', 'Round', ((10, HALF_DOWN), 0, 5000000001), (INEXACT, 10**10)),
    ('exactly half over ten digits', 'Round', ((10, HALF_DOWN), 0, 5000000000), (INEXACT, 0)),
    ('to tens, odd', 'Round', ((0, HALF_EVEN), -1, 15), (INEXACT, 20)),
    ('to tens, even', 'Round', ((0, HALF_EVEN), -1, 25), (INEXACT, 20)),
    ('up to two places', 'Ceil', ((4, DOWN), 2, 12345), (INEXACT, 12400)),
    ('nothing to drop', 'Ceil', ((2, 0), 2, 12345), (OK, 12345)),
    ('more places than there are', 'Ceil', ((2, 0), 40, -12345), (OK, -12345)),
    ('an unused mode is not looked at', 'Floor', ((4, INVALID_MODE), 2, -12345), (INEXACT, -12400)),
    ('an invalid mode with nothing to drop', 'Round', ((0, INVALID_MODE), 0, 1), (INVALID_ARGUMENT, 1)),
    ('an invalid mode with something to drop', 'Round', ((1, INVALID_MODE), 0, 15), (INVALID_ARGUMENT, 15)),
    ('NaN goes before an invalid mode', 'Round', ((1, INVALID_MODE), 0, NAN), (NOT_A_NUMBER, NAN)),
    ('the largest value has no ceiling', 'Ceil', ((1, 0), 0, LIMIT), (OVERFLOW, NAN)),
    ('the smallest value has no floor', 'Floor', ((1, 0), 0, SMALLEST), (UNDERFLOW, NAN)),
    ('the largest value has a floor', 'Floor', ((1, 0), 0, LIMIT), (INEXACT, LIMIT - 7)),
    ('more than 80 places away', 'Round', ((100, HALF_UP), 0, LIMIT), (INEXACT, 0)),
    ('one unit more than 80 places up does not fit', 'Round', ((100, UP), 0, 1), (OVERFLOW, NAN)),
    ('the farthest scales', 'Floor', ((INT32_MAX, 0), INT32_MIN, 1), (INEXACT, 0)),
    ('the farthest scales below zero', 'Floor', ((INT32_MAX, 0), INT32_MIN, -1), (UNDERFLOW, NAN)),
]

SEVEN_BY_HALVES = -170141183420855150474555134919112130564

MACHINE_INTEGER = [
    ('a product', 'Mul', (3, 7), (OK, 21)),
    ('a negative product', 'Mul', (-3, 7), (OK, -21)),
    ('a negative multiplier never succeeds', 'Mul', (3, -7), (UNDERFLOW, NAN)),
    ('nor with a negative value', 'Mul', (-3, -7), (UNDERFLOW, NAN)),
    ('nor with zero', 'Mul', (0, -1), (UNDERFLOW, NAN)),
    ('zero multiplier', 'Mul', (LIMIT, 0), (OK, 0)),
    ('NaN goes before a zero multiplier', 'Mul', (NAN, 0), (NOT_A_NUMBER, NAN)),
    ('a positive overflow has the same status', 'Mul', (LIMIT, 2), (UNDERFLOW, NAN)),
    ('a negative overflow', 'Mul', (SMALLEST, 2), (UNDERFLOW, NAN)),
    ('the product -2^127 is accepted', 'Mul', (-2**126, 2), (OK, NAN)),
    ('the product 2^127 is not', 'Mul', (2**126, 2), (UNDERFLOW, NAN)),
    ('above half, to even', 'Div', (7, (0, HALF_EVEN), 2), (INEXACT, 4)),
    ('half, to even', 'Div', (5, (0, HALF_EVEN), 2), (INEXACT, 2)),
    ('a negative divisor', 'Div', (7, (0, HALF_EVEN), -2), (INEXACT, -4)),
    ('an exact quotient', 'Div', (6, (0, HALF_EVEN), 3), (OK, 2)),
    ('a negative value keeps its top limb', 'Div', (-7, (0, HALF_EVEN), 2), (INEXACT, SEVEN_BY_HALVES)),
    ('the same number from its limbs', 'Div', (-7, (0, HALF_EVEN), 2), (INEXACT, -(2**127 - 2**95 + 4))),
    ('down, negative quotient', 'Div', (7, (0, FLOOR), -2), (INEXACT, -4)),
    ('down', 'Div', (7, (0, FLOOR), 2), (INEXACT, 3)),
    ('up', 'Div', (7, (0, CEILING), 2), (INEXACT, 4)),
    ('up from below half', 'Div', (5, (0, CEILING), 2), (INEXACT, 3)),
    ('up, negative quotient', 'Div', (7, (0, CEILING), -2), (INEXACT, -3)),
    ('by -1 the sign stays', 'Div', (-7, (0, HALF_EVEN), -1), (OK, -7)),
    ('by 1', 'Div', (-7, (0, HALF_EVEN), 1), (OK, -7)),
    ('by 0', 'Div', (7, (0, HALF_EVEN), 0), (NOT_A_NUMBER, NAN)),
    ('NaN by 0', 'Div', (NAN, (0, HALF_EVEN), 0), (NOT_A_NUMBER, NAN)),
    ('by 0 with an invalid mode', 'Div', (7, (0, 9), 0), (NOT_A_NUMBER, NAN)),
    ('an invalid mode leaves the truncated quotient', 'Div', (7, (0, 9), 2), (INVALID_ARGUMENT, 3)),
    ('an invalid mode and a negative divisor', 'Div', (7, (0, 9), -2), (INVALID_ARGUMENT, -3)),
    ('an invalid mode and an exact quotient', 'Div', (6, (0, 9), -2), (INVALID_ARGUMENT, -3)),
    ('an invalid mode is not seen when dividing by 1', 'Div', (7, (0, 9), 1), (OK, 7)),
    ('by 3, down', 'Div', (10**30 + 7, (0, FLOOR), 3), (INEXACT, 333333333333333333333333333335)),
    ('by 3, to even', 'Div', (10**30 + 7, (0, HALF_EVEN), 3), (INEXACT, 333333333333333333333333333336)),
    ('by the largest integer', 'Div', (10**30 + 7, (0, FLOOR), INT32_MAX), (INEXACT, 465661287524579692410)),
    ('by the smallest integer', 'Div', (10**30 + 7, (0, FLOOR), INT32_MIN), (INEXACT, -465661287307739257813)),
    ('rounded up to 2^127 the quotient is NaN', 'Div', (-(2**96 - 1), (0, HALF_UP), 2), (INEXACT, NAN)),
    ('one less is the largest quotient', 'Div', (-(2**96 - 1), (0, DOWN), 2), (INEXACT, SMALLEST)),
]

RESCALE = [
    ('more places', 'Rescale', ((1, 0), (3, 0), 15), (OK, 1500)),
    ('a tie, to even', 'Rescale', ((2, 0), (1, HALF_EVEN), 125), (OK, 12)),
    ('a tie, up', 'Rescale', ((2, 0), (1, HALF_UP), 125), (OK, 13)),
    ('a tie, cut off', 'Rescale', ((2, 0), (1, DOWN), 125), (OK, 12)),
    ('down, negative', 'Rescale', ((2, 0), (1, FLOOR), -125), (OK, -13)),
    ('up, negative', 'Rescale', ((2, 0), (1, CEILING), -125), (OK, -12)),
    ('to tens', 'Rescale', ((0, 0), (-1, HALF_UP), 123), (OK, 12)),
    ('10^39 is out of range', 'Rescale', ((0, 0), (39, 0), 1), (OVERFLOW, NAN)),
    ('-10^39 has the same status', 'Rescale', ((0, 0), (39, 0), -1), (OVERFLOW, NAN)),
    ('no change of scale, no look at the modes', 'Rescale', ((2, 9), (2, 9), 5), (OK, 5)),
    ('more places, no look at the modes', 'Rescale', ((2, 9), (3, 9), 5), (OK, 50)),
    ('fewer places, the unused mode counts', 'Rescale', ((3, 9), (2, 0), 5), (INVALID_ARGUMENT, 5)),
    ('fewer places, the used mode counts', 'Rescale', ((3, 0), (2, 9), 5), (INVALID_ARGUMENT, 5)),
    ('NaN goes before the modes', 'Rescale', ((3, 9), (2, 9), NAN), (NOT_A_NUMBER, NAN)),
    ('a negative value must not become zero', 'Rescale', ((1, 0), (0, HALF_UP), -4), (OVERFLOW, NAN)),
    ('a positive one may', 'Rescale', ((1, 0), (0, HALF_UP), 4), (OK, 0)),
    ('one unit 39 places up is NaN and then nothing', 'Rescale', ((39, 0), (0, UP), 1), (OK, 0)),
    ('the same below zero loses its sign', 'Rescale', ((39, 0), (0, UP), -1), (OVERFLOW, NAN)),
    ('wrapped into range over 41 places', 'Rescale', ((0, 0), (41, 0), 123897535483928329103220953959296061403),
     (OK, 111640776459647778038511153295128526848)),
    ('wrapped into range over 38 places', 'Rescale', ((0, 0), (38, 0), 269599466734277415315151974886),
     (OK, 73394618030565865177414447344654483456)),
    ('wrapped into range over 80 places', 'Rescale', ((0, 0), (80, 0), 166600883694731896832553913086626783484),
     (OK, 45021931317154258936443642851773906944)),
    ('88 places are taken as 80', 'Rescale', ((0, 0), (88, 0), 107934196843166079644664139084775959480),
     (OK, 152501858715119705515062622606849998848)),
    ('the source rounds out of range and goes on as -2^127', 'Rescale', ((1, 0), (0, UP), SMALLEST),
     (OK, -(2**127 // 10))),
    ('a positive source that rounds out of range', 'Rescale', ((1, 0), (0, UP), LIMIT), (OVERFLOW, NAN)),
    ('zero at any scale', 'Rescale', ((INT32_MIN, 0), (INT32_MAX, 0), 0), (OK, 0)),
]

# A sum brought to the result's scale; the second operand is zero, so that the first alone makes the tie.
NARROWING = [
    row
    for value, kept in ((15, {HALF_UP: 2, HALF_DOWN: 1, HALF_EVEN: 2}), (25, {HALF_UP: 3, HALF_DOWN: 2, HALF_EVEN: 2}),
                        (-15, {HALF_UP: -2, HALF_DOWN: -1, HALF_EVEN: -2}))
    for row in modes('%d by ten' % value, 'RescalingAdd',
                     lambda mode, value=value: ((1, 0), (1, 0), (0, mode), value, 0),
                     {mode: (INEXACT, result) for mode, result in kept.items()})
] + [
    ('exactly half over nine digits', 'RescalingAdd', ((9, 0), (9, 0), (0, HALF_DOWN), 1500000000, 0), (INEXACT, 1)),
    ('half and one over nine digits', 'RescalingAdd', ((9, 0), (9, 0), (0, HALF_DOWN), 1500000001, 0), (INEXACT, 2)),
    ('the largest value', 'RescalingAdd', ((0, 0), (0, 0), (0, 0), LIMIT, 0), (OK, LIMIT)),
] + [
    ('a hundred places down, %s' % MODE_NAMES[mode], 'RescalingAdd', ((100, 0), (100, 0), (0, mode), value, 0),
     (INEXACT, result))
    for value, results in ((LIMIT, (1, 0, 1, 0, 0, 0, 0)), (SMALLEST, (-1, 0, 0, -1, 0, 0, 0)))
    for mode, result in zip(MODES, results)
]

RESCALING_SUM = [
    ('40 places apart, away', 'RescalingAdd', ((0, 0), (40, 0), (0, UP), 1, 1), (INEXACT, 2)),
    ('40 places apart, cut off', 'RescalingAdd', ((0, 0), (40, 0), (0, DOWN), 1, 1), (INEXACT, 1)),
    ('60 places apart the trace of an operand counts', 'RescalingAdd', ((0, 0), (60, 0), (0, CEILING), 1, 1),
     (INEXACT, 2)),
    ('60 places apart, operands changed', 'RescalingAdd', ((60, 0), (0, 0), (0, CEILING), 1, 1), (INEXACT, 2)),
    ('60 places apart, a trace is subtracted', 'RescalingSub', ((0, 0), (60, 0), (0, FLOOR), 1, 1), (INEXACT, 0)),
    ('zero has no scale, to even', 'RescalingAdd', ((1, 0), (3, 0), (0, HALF_EVEN), 5, 0), (INEXACT, 0)),
    ('zero has no scale, up', 'RescalingAdd', ((1, 0), (3, 0), (0, HALF_UP), 5, 0), (INEXACT, 1)),
    ('zero first', 'RescalingSub', ((3, 0), (1, 0), (0, HALF_UP), 0, 5), (INEXACT, -1)),
    ('exact at the result', 'RescalingAdd', ((1, 0), (2, 0), (1, 0), 5, 50), (OK, 10)),
    ('one scale, overflow', 'RescalingAdd', ((2, 0), (2, 0), (2, 0), LIMIT, 1), (OVERFLOW, NAN)),
    ('one scale, negative overflow', 'RescalingAdd', ((2, 0), (2, 0), (2, 0), -2**126, -2**126), (UNDERFLOW, NAN)),
    ('one scale, subtracted to overflow', 'RescalingSub', ((2, 0), (2, 0), (2, 0), LIMIT, -1), (OVERFLOW, NAN)),
    ('one scale, subtracted to -2^127', 'RescalingSub', ((2, 0), (2, 0), (2, 0), -1, LIMIT), (UNDERFLOW, NAN)),
    ('2^127 on the long road', 'RescalingAdd', ((0, 0), (1, 0), (1, 0), 0, LIMIT), (OK, LIMIT)),
    ('2^127 is out of range, positive', 'RescalingAdd', ((2, 0), (2, 0), (1, UP), LIMIT, LIMIT),
     (INEXACT, (2 * LIMIT + 9) // 10)),
    ('NaN goes before an invalid mode', 'RescalingAdd', ((0, 9), (1, 9), (2, 9), NAN, 1), (NOT_A_NUMBER, NAN)),
    ('every mode is validated, one scale', 'RescalingAdd', ((0, 9), (0, 0), (0, 0), 1, 1),
     (INVALID_ARGUMENT, UNTOUCHED)),
    ('every mode is validated', 'RescalingAdd', ((0, 0), (1, 9), (0, 0), 1, 1), (INVALID_ARGUMENT, UNTOUCHED)),
    # 48 guard digits: 10^48 + 9,999,999,999.5 becomes 10^48 + 10^10, which the result shows as a whole step more.
    ('a lost fraction counts as a whole unit of the guard digits', 'RescalingAdd',
     ((0, 0), (49, 0), (38, DOWN), 1, 99999999995), (INEXACT, 10**38 + 1)),
    ('a smaller lost fraction of the same unit', 'RescalingAdd', ((0, 0), (49, 0), (38, DOWN), 1, 99999999985),
     (INEXACT, 10**38)),
    ('the farthest scales', 'RescalingAdd', ((-INT32_MAX, 0), (INT32_MAX, 0), (-INT32_MAX, UP), 1, 1), (INEXACT, 2)),
    ('the farthest result', 'RescalingAdd', ((0, 0), (1, 0), (INT32_MAX, UP), 1, 1), (OVERFLOW, NAN)),
]

RESCALING_CMP = [
    ('equal at two scales', 'RescalingCmp', ((1, 0), (0, 0), 10, 1), (0, UNTOUCHED)),
    ('one scale', 'RescalingCmp', ((3, 0), (3, 0), 2, 3), (1, UNTOUCHED)),
    ('an invalid mode goes before NaN', 'RescalingCmp', ((0, 0), (1, 7), NAN, NAN), (INVALID_ARGUMENT, UNTOUCHED)),
    ('NaN at one scale equals itself', 'RescalingCmp', ((0, 0), (0, 0), NAN, NAN), (0, UNTOUCHED)),
    ('NaN at two scales is below itself', 'RescalingCmp', ((0, 0), (1, 0), NAN, NAN), (1, UNTOUCHED)),
    ('NaN first', 'RescalingCmp', ((0, 0), (1, 0), NAN, SMALLEST), (1, UNTOUCHED)),
    ('NaN second', 'RescalingCmp', ((0, 0), (1, 0), SMALLEST, NAN), (-1, UNTOUCHED)),
    ('a trace of a positive operand', 'RescalingCmp', ((INT32_MAX, 0), (-INT32_MAX, 0), 1, 0), (-1, UNTOUCHED)),
    ('the farthest scales', 'RescalingCmp', ((-INT32_MAX, 0), (INT32_MAX, 0), 1, LIMIT), (-1, UNTOUCHED)),
]

RESCALING_MUL = (
    modes('a product of 1.5', 'RescalingMul', lambda mode: ((1, 0), (0, 0), (0, mode), 15, 1),
          {HALF_UP: (INEXACT, 2), HALF_DOWN: (INEXACT, 1), HALF_EVEN: (INEXACT, 2)})
    + modes('a product of -1.5', 'RescalingMul', lambda mode: ((1, 0), (0, 0), (0, mode), -15, 1),
            {HALF_UP: (INEXACT, -2), HALF_DOWN: (INEXACT, -1), HALF_EVEN: (INEXACT, -2)})
    + modes('a product of -0.001', 'RescalingMul', lambda mode: ((3, 0), (0, 0), (0, mode), -1, 1),
            {CEILING: (INEXACT, 0), FLOOR: (INEXACT, -1)})
    + [
        ('0.5 by 0.2, exact', 'RescalingMul', ((1, 0), (1, 0), (2, 0), 5, 2), (OK, 10)),
        ('0.5 by 0.2, rounded away', 'RescalingMul', ((1, 0), (1, 0), (0, HALF_UP), 5, 2), (INEXACT, 0)),
        ('2^128', 'RescalingMul', ((0, 0), (0, 0), (0, 0), 2**64, 2**64), (OVERFLOW, NAN)),
        ('-2^128', 'RescalingMul', ((0, 0), (0, 0), (0, 0), -2**64, 2**64), (UNDERFLOW, NAN)),
        ('a far result', 'RescalingMul', ((0, 0), (0, 0), (1000, 0), 1, 1), (OVERFLOW, NAN)),
        ('a far zero', 'RescalingMul', ((0, 0), (0, 0), (1000, 0), 0, -1), (OK, 0)),
        ('the distance of the scales wraps to zero', 'RescalingMul', ((2**30, 0), (2**30, 0), (INT32_MIN, 0), 3, 4),
         (OK, 12)),
        ('a distance of -2^31', 'RescalingMul', ((2**30, 0), (2**30, 0), (0, UP), 3, 4), (INEXACT, 1)),
        ('NaN goes before an invalid mode', 'RescalingMul', ((0, 9), (0, 0), (0, 0), 1, NAN), (NOT_A_NUMBER, NAN)),
        ('an invalid mode', 'RescalingMul', ((0, 0), (0, 0), (0, 7), 1, 1), (INVALID_ARGUMENT, UNTOUCHED)),
    ])

RESCALING_DIV = (
    modes('a third', 'RescalingDiv', lambda mode: ((0, 0), (0, 0), (2, mode), 1, 3),
          {HALF_UP: (INEXACT, 33), UP: (INEXACT, 34)})
    + modes('minus a third', 'RescalingDiv', lambda mode: ((0, 0), (0, 0), (2, mode), -1, 3),
            {HALF_UP: (INEXACT, -33), FLOOR: (INEXACT, -34), CEILING: (INEXACT, -33)})
    + modes('an eighth', 'RescalingDiv', lambda mode: ((0, 0), (0, 0), (2, mode), 1, 8),
            {HALF_DOWN: (INEXACT, 12), HALF_EVEN: (INEXACT, 12), HALF_UP: (INEXACT, 13)})
    + modes('nineteen in tens', 'RescalingDiv', lambda mode: ((0, 0), (0, 0), (-1, mode), 19, 1),
            {HALF_UP: (INEXACT, 2), HALF_DOWN: (INEXACT, 2), DOWN: (INEXACT, 1)})
    + modes('fifteen in tens', 'RescalingDiv', lambda mode: ((0, 0), (0, 0), (-1, mode), 15, 1),
            {HALF_UP: (INEXACT, 2), HALF_EVEN: (INEXACT, 2), HALF_DOWN: (INEXACT, 1)})
    + [
        ('a quarter', 'RescalingDiv', ((0, 0), (0, 0), (2, 0), 1, 4), (OK, 25)),
        ('by zero', 'RescalingDiv', ((0, 0), (0, 0), (0, 0), 5, 0), (NOT_A_NUMBER, NAN)),
        ('by zero, an invalid mode goes first', 'RescalingDiv', ((0, 0), (0, 0), (0, 9), 5, 0),
         (INVALID_ARGUMENT, UNTOUCHED)),
        ('2^127', 'RescalingDiv', ((0, 0), (1, 0), (0, 0), 2**126, 5), (OVERFLOW, NAN)),
        ('2^127 exactly', 'RescalingDiv', ((0, 0), (0, 0), (1, 0), 2**126, 5), (OVERFLOW, NAN)),
        ('-2^127 exactly', 'RescalingDiv', ((0, 0), (0, 0), (1, 0), -2**126, 5), (UNDERFLOW, NAN)),
        ('bits lost above the dividend go unseen', 'RescalingDiv',
         ((0, 0), (0, 0), (30, 0), 26959946667150639794667015087019630674, 1), (OK, 362855577459427518896389750784)),
        ('the farthest scales up', 'RescalingDiv', ((INT32_MIN, 0), (INT32_MAX, 0), (INT32_MAX, 0), 1, -1),
         (UNDERFLOW, NAN)),
        ('the farthest scales down', 'RescalingDiv', ((INT32_MAX, 0), (INT32_MIN, 0), (INT32_MIN, UP), 1, -1),
         (INEXACT, -1)),
    ])


def printed(status, text):
    return status, whole(text.encode())


def formatting(name, value, info, exponent_shift, output_scale, expected, operation='Num2Str', size=128):
    return name, operation, (value, info, exponent_shift, output_scale, size), expected


def too_small(size, content):
    content = content.encode() + b'\0'
    assert len(content) == size
    return BUFFER_TOO_SMALL, Written(0, content, False)


TWO_TO_127 = '170141183460469231731687303715884105728'

FORMATTING = [
    formatting('zero', 0, (0, 0), 0, 0, printed(OK, '0')),
    formatting('zero with three places', 0, (0, 0), 0, 3, printed(OK, '0.000')),
    formatting('zero gets no appended zeros', 0, (0, 0), 2, 0, printed(OK, '0E-2')),
    formatting('trailing zeros stay', 5, (0, 0), 0, 2, printed(OK, '5.00')),
    formatting('leading zeros of the fraction', 5, (2, 0), 0, 2, printed(OK, '0.05')),
    formatting('a negative value rounded to zero keeps its sign', -4, (3, HALF_UP), 0, 2, printed(INEXACT, '-0.00')),
    formatting('groups', 1234567, (0, 0), 0, 0, printed(OK, '1,234,567'), 'Num2Dgstr'),
    formatting('groups and a fraction', 1234567, (0, 0), 0, 2, printed(OK, '1,234,567.00'), 'Num2Dgstr'),
    formatting('a fraction is not grouped', 1234567, (6, 0), 0, 6, printed(OK, '1.234567'), 'Num2Dgstr'),
    formatting('no separator in front of three digits', -123, (0, 0), 0, 0, printed(OK, '-123'), 'Num2Dgstr'),
    formatting('groups go on over appended zeros', 12, (0, 0), 4, 0, printed(OK, '120,000E-4'), 'Num2Dgstr'),
    formatting('a shift to the right', 12345, (1, 0), -3, 4, printed(OK, '1.2345000E+3')),
    formatting('a shift to the left', 12345, (1, 0), 3, 1, printed(OK, '1234500E-3')),
    formatting('dropped digits before the point are not written back', 12345, (0, HALF_UP), 0, -1,
               printed(INEXACT, '1235')),
    formatting('the smallest shift', 1, (0, 0), INT32_MIN, 0, too_small(12, '+2147483648'), size=12),
    formatting('zeros inside the exponent', 0, (0, 0), 10000, 0, printed(OK, '0E-10000')),
    formatting('zeros inside a shorter exponent', 0, (0, 0), 100, 0, printed(OK, '0E-100')),
    formatting('a rounded zero gets no appended zeros', 1, (1, DOWN), 2, 0, printed(INEXACT, '0E-2')),
    formatting('exactly enough room', -12345, (2, 0), 0, 2, printed(OK, '-123.45'), size=8),
    formatting('one byte too few keeps the end', -12345, (2, 0), 0, 2, too_small(7, '123.45'), size=7),
    formatting('room for the NUL alone', -12345, (2, 0), 0, 2, too_small(1, ''), size=1),
    formatting('no room', -12345, (2, 0), 0, 2, (BUFFER_TOO_SMALL, NOTHING_WRITTEN), size=0),
    formatting('no room goes before an invalid mode', 1, (0, 7), 0, 0, (BUFFER_TOO_SMALL, NOTHING_WRITTEN), size=0),
    formatting('a suffix that does not fit', 1, (0, 7), 12345, 0, too_small(4, '345'), size=4),
    formatting('a suffix alone with an invalid mode', 1, (0, 7), 12, 0,
               (INVALID_ARGUMENT, Written(3, b'E-12\0', False)), size=8),
    formatting('an invalid mode and no suffix', 1, (0, 7), 0, 0, (INVALID_ARGUMENT, Written(7, b'\0', False)), size=8),
    formatting('an invalid mode with a fitting scale', 1, (2, 7), 0, 2, (INVALID_ARGUMENT, Written(7, b'\0', False)),
               size=8),
    formatting('an invalid mode goes before digits that do not fit', 123456789, (0, 7), 0, 0,
               (INVALID_ARGUMENT, Written(2, b'\0', False)), size=3),
    formatting('NaN fits', NAN, (0, 7), 5, 0, printed(NOT_A_NUMBER, 'NaN'), size=4),
    formatting('NaN does not fit', NAN, (0, 7), 5, 0, (BUFFER_TOO_SMALL, NOTHING_WRITTEN), size=3),
    formatting('too many digits', 1, (0, 0), 0, 39, printed(OVERFLOW, '0.' + TWO_TO_127)),
    formatting('too many digits below zero', -1, (0, 0), 0, 39, printed(UNDERFLOW, '-0.' + TWO_TO_127)),
    formatting('digits of 2^127 with a shift', -1, (0, 0), 39, 39, printed(UNDERFLOW, '-' + TWO_TO_127 + 'E-39')),
    formatting('digits of 2^127 in groups', 2, (0, 0), 39, 39,
               printed(OVERFLOW, '170,141,183,460,469,231,731,687,303,715,884,105,728E-39'), 'Num2Dgstr'),
    formatting('the longest fraction, cut off', 1, (0, 0), INT32_MIN, 0, too_small(16, '001E+2147483648'), size=16),
    formatting('the farthest output scale', 1, (0, UP), 0, INT32_MIN, printed(INEXACT, '1')),
]

INT64_MIN, INT64_MAX = -2**63, 2**63 - 1


def parsing(name, text, info, expected, operation='Str2Num'):
    return name, operation, (text.encode(), info), expected


def grouped(name, text, info, expected):
    return parsing(name, text, info, expected, 'Dgstr2Num')


ANY = (0, HALF_UP)

PARSING = [
    parsing('no text is NaN', '', (0, 7), (OK, NAN, UNTOUCHED)),
    parsing('a tie, to even', '1.25', (1, HALF_EVEN), (INEXACT, 12, 4)),
    parsing('a tie, up', '1.25', (1, HALF_UP), (INEXACT, 13, 4)),
    parsing('a tie, cut off', '1.25', (1, DOWN), (INEXACT, 12, 4)),
    parsing('a negative tie', '-0.5', ANY, (INEXACT, -1, 4)),
    parsing('a negative tie, up', '-0.5', (0, CEILING), (INEXACT, 0, 4)),
    parsing('an exponent', '1e3', (2, 0), (OK, 100000, 3)),
    parsing('a negative exponent', '1.5E-1', (2, 0), (OK, 15, 6)),
    grouped('groups', '1,234.5', (1, 0), (OK, 12345, 7)),
    grouped('more groups', '1,234,567.25', (2, 0), (OK, 123456725, 12)),
    grouped('groups before an exponent', '12,345E10', (-10, 0), (OK, 12345, 9)),
    parsing('a comma ends a plain number', '1,234.5', (1, 0), (OK, 10, 1)),
    parsing('2^127', TWO_TO_127, (0, 0), (OVERFLOW, NAN, 39)),
    parsing('-2^127', '-' + TWO_TO_127, (0, 0), (UNDERFLOW, NAN, 40)),
    parsing('the largest value', str(LIMIT), (0, 0), (OK, LIMIT, 39)),
    parsing('the largest exponent', '1e2147483647', (0, 0), (OVERFLOW, NAN, 2)),
    parsing('the largest exponent of zero', '0e2147483647', (0, 0), (OK, 0, 2)),
    parsing('the smallest exponent', '1e-2147483648', ANY, (INEXACT, 0, 3)),
    parsing('the smallest exponent, away', '1e-2147483648', (0, UP), (INEXACT, 1, 3)),
    parsing('the smallest exponent is read as it is', '1e-2147483648', (INT32_MAX, UP), (INEXACT, 1, 3)),
    parsing('an exponent too large', '1e2147483648', ANY, (SYNTAX_ERROR, UNTOUCHED, 0)),
    parsing('an exponent too small', '1e-2147483649', ANY, (SYNTAX_ERROR, UNTOUCHED, 0)),
    parsing('a long exponent ends at its start', '1e1234', ANY, (OVERFLOW, NAN, 2)),
    parsing('a long exponent with a sign', '1e+0003', ANY, (OK, 1000, 3)),
    parsing('a long exponent and more', '1e1234x', ANY, (OVERFLOW, NAN, 2)),
    grouped('groups in an exponent end at their comma', '1e1,000', ANY, (OVERFLOW, NAN, 3)),
    parsing('a short exponent ends behind it', '1e12', ANY, (OK, 10**12, 4)),
    grouped('groups behind four digits are taken and not passed', '1234,567', ANY, (OK, 1234567, 4)),
    grouped('groups behind a fraction are taken and not passed', '1.5,123', (4, 0), (OK, 15123, 3)),
    grouped('groups right behind the point', '1.,234', (3, 0), (OK, 1234, 2)),
    parsing('a second marker takes the exponent as digits', '1E5E', ANY, (OK, 15, 3)),
    parsing('with a leading zero', '1E05E', ANY, (OK, 105, 4)),
    parsing('with more digits', '12E345E', ANY, (OK, 12345, 6)),
    parsing('with a sign', '1E-5E', ANY, (OK, 15, 4)),
    grouped('two groups after one exponent digit', '1e1,000', (-1000, 0), (OK, 1, 3)),
    grouped('groups in an exponent count as fraction digits', '1.5e1,000', (-995, 0), (OK, 150, 5)),
    grouped('at the scale of 15e996', '1.5e1,000', (-996, 0), (OK, 15, 5)),
    grouped('zeros are skipped while nothing is held', '0e1,000', (0, 0), (OK, 0, 3)),
    grouped('eight exponent digits become mantissa', '0e123,456,789', (-9, 0), (OK, 12345678, 5)),
    grouped('counted from the exponent digits', '1e1,000,000,000', (0, 0), (OK, 110000000, 3)),
    grouped('a fourth digit spoils the group', '1,2345', ANY, (OK, 1, 1)),
    grouped('a fourth digit spoils the second group', '1,234,5678', ANY, (OK, 1234, 5)),
    grouped('a fourth digit behind four digits', '1234,5678', ANY, (OK, 1234, 4)),
    grouped('two digits are no group', '1,23', ANY, (OK, 1, 1)),
    grouped('groups', '1,234', ANY, (OK, 1234, 5)),
    parsing('a letter ends the number', '12abc', ANY, (OK, 12, 2)),
    parsing('a second point ends the number', '1.2.3', (1, 0), (OK, 12, 3)),
    parsing('a sign ends the number and does not count', '5-', ANY, (OK, 5, 1)),
    parsing('a sign behind an exponent does not count', '1e2-', ANY, (OK, 100, 3)),
    parsing('no exponent', '1e', ANY, (SYNTAX_ERROR, UNTOUCHED, 0)),
    parsing('a sign for an exponent', '1e+', ANY, (SYNTAX_ERROR, UNTOUCHED, 0)),
    parsing('a short exponent', '1e5', ANY, (OK, 100000, 3)),
    parsing('a point alone', '.', ANY, (SYNTAX_ERROR, UNTOUCHED, 0)),
    parsing('a sign alone', '-', ANY, (SYNTAX_ERROR, UNTOUCHED, 0)),
    parsing('no mantissa', 'E5', ANY, (SYNTAX_ERROR, UNTOUCHED, 0)),
    parsing('two signs', '--1', ANY, (SYNTAX_ERROR, UNTOUCHED, 0)),
    parsing('letters', 'abc', ANY, (SYNTAX_ERROR, UNTOUCHED, 0)),
    parsing('a blank in front', ' 1', ANY, (SYNTAX_ERROR, UNTOUCHED, 0)),
    parsing('NaN is no literal', 'NaN', ANY, (SYNTAX_ERROR, UNTOUCHED, 0)),
    parsing('a syntax error goes before an invalid mode', 'x', (0, 7), (SYNTAX_ERROR, UNTOUCHED, 0)),
    parsing('an invalid mode', '12abc', (0, 7), (INVALID_ARGUMENT, UNTOUCHED, 2)),
    parsing('no integer part', '.5', (1, 0), (OK, 5, 2)),
    parsing('no fraction', '5.', (0, 0), (OK, 5, 2)),
    parsing('two fraction digits', '-12.50', (2, 0), (OK, -1250, 6)),
    parsing('signs everywhere', '+1e-3', (3, 0), (OK, 1, 5)),
    parsing('a point and an exponent', '1.5E+10', (-9, 0), (OK, 15, 7)),
    parsing('zeros in front of the point do not count', '0.000123', (6, 0), (OK, 123, 8)),
    parsing('zeros behind the point are held', '0.' + '0' * 45 + '1', (46, 0), (OK, 0, 48)),
    parsing('as long as the limit allows', '0.' + '0' * 41 + '1', (42, 0), (OK, 1, 44)),
]

INTEGERS = [
    ('the smallest long', 'Long2Num', (INT64_MIN, (0, 7)), (OK, -2**63)),
    ('the smallest long with two places', 'Long2Num', (INT64_MIN, (2, 0)), (OK, -922337203685477580800)),
    ('10^38', 'Long2Num', (1, (38, 0)), (OK, 10**38)),
    ('10^39', 'Long2Num', (1, (39, 0)), (OVERFLOW, NAN)),
    ('-10^39', 'Long2Num', (-1, (39, 0)), (UNDERFLOW, NAN)),
    ('a far zero', 'Long2Num', (0, (1000, 0)), (OK, 0)),
    ('a far zero with an invalid mode', 'Long2Num', (0, (1000, 7)), (INVALID_ARGUMENT, UNTOUCHED)),
    ('an overflow with an invalid mode', 'Long2Num', (1, (1000, 7)), (INVALID_ARGUMENT, UNTOUCHED)),
    ('15 in tens, HALF_UP', 'Long2Num', (15, (-1, HALF_UP)), (INEXACT, 2)),
    ('15 in tens, HALF_DOWN', 'Long2Num', (15, (-1, HALF_DOWN)), (INEXACT, 1)),
    ('15 in tens, HALF_EVEN', 'Long2Num', (15, (-1, HALF_EVEN)), (INEXACT, 2)),
    ('15 in tens, DOWN', 'Long2Num', (15, (-1, DOWN)), (INEXACT, 1)),
    ('25 in tens, HALF_EVEN', 'Long2Num', (25, (-1, HALF_EVEN)), (INEXACT, 2)),
    ('-15 in tens, CEILING', 'Long2Num', (-15, (-1, CEILING)), (INEXACT, -1)),
    ('-15 in tens, FLOOR', 'Long2Num', (-15, (-1, FLOOR)), (INEXACT, -2)),
    ('a tie over eight digits, HALF_DOWN', 'Long2Num', (150000000, (-8, HALF_DOWN)), (INEXACT, 1)),
    ('a tie over eight digits, HALF_EVEN', 'Long2Num', (150000000, (-8, HALF_EVEN)), (INEXACT, 2)),
    ('a tie over nine digits', 'Long2Num', (500000000, (-9, HALF_DOWN)), (INEXACT, 0)),
    ('the last of nine digits lifts a tie', 'Long2Num', (500000001, (-9, HALF_DOWN)), (INEXACT, 1)),
    ('a hundred places down', 'Long2Num', (7, (-100, HALF_UP)), (INEXACT, 0)),
    ('a hundred places down, away', 'Long2Num', (7, (-100, UP)), (INEXACT, 1)),
    ('the smallest int', 'Int2Num', (INT32_MIN, (-1, HALF_UP)), (INEXACT, -214748365)),
    ('the smallest scale', 'Int2Num', (INT32_MIN, (INT32_MIN, FLOOR)), (INEXACT, -1)),
    ('NaN to long', 'Num2Long', (NAN, (0, 7)), (NOT_A_NUMBER, 0)),
    ('one above the largest int', 'Num2Int', (2**31, (0, 7)), (OVERFLOW, 0)),
    ('the smallest int comes back', 'Num2Int', (-2**31, (0, 7)), (OK, INT32_MIN)),
    ('one below the smallest int', 'Num2Int', (-2**31 - 1, (0, 7)), (UNDERFLOW, 0)),
    ('the largest long comes back', 'Num2Long', (INT64_MAX, (0, 7)), (OK, INT64_MAX)),
    ('the smallest long comes back', 'Num2Long', (INT64_MIN, (0, 7)), (OK, INT64_MIN)),
    ('one above the largest long', 'Num2Long', (2**63, (0, 7)), (OVERFLOW, 0)),
    ('one below the smallest long', 'Num2Long', (INT64_MIN - 1, (0, 7)), (UNDERFLOW, 0)),
    ('exact hundreds', 'Num2Long', (12300, (2, 0)), (OK, 123)),
    ('below zero at a scale', 'Num2Long', (-12345, (2, 0)), (UNDERFLOW, 0)),
    ('below zero at a scale with an invalid mode', 'Num2Long', (-12345, (2, 7)), (INVALID_ARGUMENT, 0)),
    ('an invalid mode', 'Num2Int', (12345, (2, 7)), (INVALID_ARGUMENT, 0)),
    ('only the lowest limb is divided', 'Num2Long', (2**32, (1, 0)), (INEXACT, 4724464025)),
    ('too large for an int', 'Num2Int', (2**32, (1, 0)), (OVERFLOW, 0)),
    ('only the lowest limb is multiplied', 'Num2Long', (1, (-10, 0)), (OK, 1410065408)),
    ('exact hundreds up', 'Num2Long', (3, (-2, 0)), (OK, 300)),
    ('the low limb of the whole quotient', 'Num2Long', (2**63 - 1, (19, 0)), (INEXACT, (2**31 - 1) << 32)),
] + [('no mode rounds', 'Num2Long', (12345, (2, mode)), (INEXACT, 123)) for mode in MODES]

MINUS_INFINITY, INFINITY = bits(float('-inf')), bits(float('inf'))

DOUBLES = (
    modes('one half', 'Dbl2Num', lambda mode: ((0, mode), bits(0.5)),
          {HALF_UP: (INEXACT, 1), HALF_DOWN: (INEXACT, 0), HALF_EVEN: (INEXACT, 0)})
    + modes('a tenth as a double is more', 'Dbl2Num', lambda mode: ((1, mode), bits(0.1)),
            {DOWN: (INEXACT, 1), HALF_UP: (INEXACT, 1), HALF_DOWN: (INEXACT, 1), HALF_EVEN: (INEXACT, 1),
             UP: (INEXACT, 2), CEILING: (INEXACT, 2)})
    + [
        ('three halves to even', 'Dbl2Num', ((0, HALF_EVEN), bits(1.5)), (INEXACT, 2)),
        ('a quarter', 'Dbl2Num', ((2, 0), bits(0.25)), (OK, 25)),
        ('minus zero', 'Dbl2Num', ((5, 7), bits(-0.0)), (OK, 0)),
        ('infinity', 'Dbl2Num', ((0, 7), INFINITY), (OVERFLOW, NAN)),
        ('minus infinity', 'Dbl2Num', ((0, 7), MINUS_INFINITY), (UNDERFLOW, NAN)),
        ('NaN', 'Dbl2Num', ((0, 7), bits(float('nan'))), (NOT_A_NUMBER, NAN)),
        ('too large', 'Dbl2Num', ((10, 0), bits(1e30)), (OVERFLOW, NAN)),
        ('too large below zero', 'Dbl2Num', ((10, 0), bits(-1e30)), (UNDERFLOW, NAN)),
        ('an invalid mode', 'Dbl2Num', ((0, 7), bits(1.0)), (INVALID_ARGUMENT, UNTOUCHED)),
        ('zero with an invalid mode', 'Dbl2Num', ((0, 7), bits(0.0)), (OK, 0)),
        ('a tie whose bits are lost before the division by five', 'Dbl2Num', ((-1, HALF_UP), bits(5.0)), (INEXACT, 0)),
        ('the exponent does not wrap', 'Dbl2Num', ((INT32_MAX, 0), bits(1e80)), (OVERFLOW, NAN)),
        ('one at the farthest scale up', 'Dbl2Num', ((INT32_MAX, 0), bits(1.0)), (OVERFLOW, NAN)),
        ('one at the farthest scale down', 'Dbl2Num', ((-INT32_MAX, UP), bits(1.0)), (INEXACT, 1)),
        ('2^127', 'Dbl2Num', ((0, 0), bits(2.0**127)), (OVERFLOW, NAN)),
        ('2^126', 'Dbl2Num', ((0, 0), bits(2.0**126)), (OK, 2**126)),
        ('a tenth, nearest', 'Num2Dbl', (1, (1, HALF_EVEN)), (INEXACT, 0x3fb999999999999a)),
        ('a tenth, cut off', 'Num2Dbl', (1, (1, DOWN)), (INEXACT, 0x3fb9999999999999)),
        ('a quarter from 25', 'Num2Dbl', (25, (2, 0)), (OK, bits(0.25))),
        ('minus three', 'Num2Dbl', (-3, (0, 0)), (OK, bits(-3.0))),
        ('zero with an invalid mode gives plus zero', 'Num2Dbl', (0, (INT32_MIN, 7)), (OK, 0)),
        ('NaN has all bits set', 'Num2Dbl', (NAN, (3, 7)), (NOT_A_NUMBER, 2**64 - 1)),
        ('an invalid mode for a normal double', 'Num2Dbl', (1, (0, 7)), (INVALID_ARGUMENT, UNTOUCHED)),
        # 10^-310 lies between the multiples 20240225330731 and 20240225330732 of the smallest double, 2^-1074.
        ('an invalid mode for a subnormal', 'Num2Dbl', (1, (310, 7)), (INVALID_ARGUMENT, 20240225330731)),
        ('infinity does not look at the mode', 'Num2Dbl', (1, (-400, 7)), (OVERFLOW, INFINITY)),
        ('minus infinity', 'Num2Dbl', (-1, (-400, 0)), (UNDERFLOW, MINUS_INFINITY)),
        ('the farthest scale up', 'Num2Dbl', (1, (INT32_MIN, 0)), (OVERFLOW, INFINITY)),
        ('the farthest scale down', 'Num2Dbl', (1, (INT32_MAX, UP)), (INEXACT, 1)),
        ('the farthest scale down, cut off', 'Num2Dbl', (-1, (INT32_MAX, DOWN)), (INEXACT, 2**63)),
        ('a carry out of 256 bits is dropped', 'Num2Dbl', (LIMIT, (-1, HALF_EVEN)), (INEXACT, 0x47f0000000000000)),
        # 5^11 = 5960 * 2^13 + 3805; 3805 * 2^137 is near 6.629e44.
        ('and leaves a short number exact', 'Num2Dbl', (2**126, (-11, HALF_EVEN)), (OK, bits(3805 * 2.0**137))),
    ])

ROWS = (VALUE_BASICS + SAME_SCALE + TRUNCATION + MACHINE_INTEGER + RESCALE + NARROWING + RESCALING_SUM + RESCALING_CMP
        + RESCALING_MUL + RESCALING_DIV + FORMATTING + PARSING + INTEGERS + DOUBLES)


def digits_kept_of(count):
    """How many digits of a mantissa of that many are taken, and how many are counted as dropped."""
    literal = Literal(b'7' * count, False)
    return literal.accepted() and (literal.held, literal.dropped)


LITERALS = [
    ('leading zeros are not held', Literal(b'000000123', False), 3),
    ('zeros behind the point are', Literal(b'0.000123', False), 6),
]


def main():
    argparse.ArgumentParser(description=__doc__).parse_args()
    failures = 0

    def check(name, expected, got):
        nonlocal failures
        if expected != got:
            failures += 1
            print('%s: expected %s, got %s' % (name, expected, got))

    for name, operation, arguments, expected in ROWS:
        check('%s: %s' % (operation, name), expected, OPERATIONS[operation].expect(*arguments))
    for name, literal, held in LITERALS:
        check(name, (True, held), (literal.accepted(), literal.held))
    for count in (41, 42, 43, 44, 45, 46, 50, 1000):
        held, dropped = digits_kept_of(count)
        check('of %d digits, 41 to 45 are kept and the rest is counted' % count, (count, True),
              (held + dropped, 41 <= held <= 45))
    print('%d rows, %d failed' % (len(ROWS) + len(LITERALS) + 8, failures))
    return failures != 0


if __name__ == '__main__':
    sys.exit(main())
