# SPDX-License-Identifier: MIT
"""The exported functions by name: their parameters in C order and the function of the model that answers for each.

Kinds of parameters:
    in, out, inout      a Numeric that is read, written, or both
    info                a NumericInfo, given as (scale, rounding mode)
    int32, int64, size  a plain number
    double              a double, given as its bit pattern
    out32, out64        a machine integer, or a double's bit pattern, that is written
    text                bytes to be parsed, without their NUL
    buffer              text to be written; the size that follows it belongs to it
    end                 where the parsed number ended

A model function takes the values of all parameters that are read, in the same order, and returns (result, output), a
parser (status, output, end). The result is what the C function returns; None for the two that return nothing.
"""

from typing import Callable, NamedTuple

import arithmetic
import machine_numbers
import text

WRITTEN_ONLY = frozenset(('out', 'out32', 'out64', 'buffer', 'end'))


class Operation(NamedTuple):
    name: str
    parameters: tuple
    expect: Callable

    @property
    def reads(self):
        return tuple(kind for kind in self.parameters if kind not in WRITTEN_ONLY)


def _operation(name, parameters, expect):
    return Operation(name, tuple(parameters.split()), expect)


RESCALING = 'info info info in in out'
FORMATTING = 'in info int32 int32 buffer size'
PARSING = 'text info out end'

OPERATIONS = {operation.name: operation for operation in (
    _operation('SetZero', 'out', arithmetic.set_zero),
    _operation('SetNan', 'out', arithmetic.set_nan),
    _operation('IsZero', 'in', arithmetic.is_zero),
    _operation('IsNan', 'in', arithmetic.is_nan),
    _operation('Add', 'in in out', arithmetic.add),
    _operation('Sub', 'in in out', arithmetic.sub),
    _operation('Cmp', 'in in', arithmetic.cmp),
    _operation('Ceil', 'info int32 inout', arithmetic.ceil),
    _operation('Floor', 'info int32 inout', arithmetic.floor),
    _operation('Round', 'info int32 inout', arithmetic.round_to_places),
    _operation('Mul', 'inout int32', arithmetic.mul),
    _operation('Div', 'inout info int32', arithmetic.div),
    _operation('Rescale', 'info info in out', arithmetic.rescale),
    _operation('RescalingAdd', RESCALING, arithmetic.rescaling_add),
    _operation('RescalingSub', RESCALING, arithmetic.rescaling_sub),
    _operation('RescalingCmp', 'info info in in', arithmetic.rescaling_cmp),
    _operation('RescalingMul', RESCALING, arithmetic.rescaling_mul),
    _operation('RescalingDiv', RESCALING, arithmetic.rescaling_div),
    _operation('Num2Str', FORMATTING, text.num2str),
    _operation('Num2Dgstr', FORMATTING, text.num2dgstr),
    _operation('Str2Num', PARSING, text.str2num),
    _operation('Dgstr2Num', PARSING, text.dgstr2num),
    _operation('Long2Num', 'int64 info out', machine_numbers.long2num),
    _operation('Int2Num', 'int32 info out', machine_numbers.int2num),
    _operation('Num2Long', 'in info out64', machine_numbers.num2long),
    _operation('Num2Int', 'in info out32', machine_numbers.num2int),
    _operation('Dbl2Num', 'info out double', machine_numbers.dbl2num),
    _operation('Num2Dbl', 'in info out64', machine_numbers.num2dbl),
)}
