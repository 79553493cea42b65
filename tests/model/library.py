# SPDX-License-Identifier: MIT
"""The built library through its C interface, with everything around an operand watched.

All Numerics, infos, machine outputs and the end pointer of a call lie in one small arena between poisoned bytes. After
the call the whole arena must be what it was, but for the outputs the model names: this covers constant operands,
untouched outputs and neighbours in one comparison. A Numeric lies at an odd multiple of eight, since no more alignment
than that is promised. Text to be parsed ends right before a page that cannot be read.
"""

import ctypes
import mmap
import random
import struct
import sys
from typing import NamedTuple

from model import OPERATIONS
from rounding import NAN, UNTOUCHED

ARENA_SIZE = 448
NUMERIC_AT = (40, 104, 168)
INFO_AT = (236, 268, 300)
MACHINE_AT = 344
END_AT = 392

GUARD = 64
LARGEST_TEXT = 8192

_rubbish = random.Random(1)
POISONED_ARENAS = [_rubbish.randbytes(ARENA_SIZE) for _ in range(16)]
POISONED_TEXT = _rubbish.randbytes(LARGEST_TEXT + 2 * GUARD)


class Case(NamedTuple):
    """One call. slots names the place of each Numeric parameter in the arena, in C order; equal ones are one object."""
    operation: str
    arguments: tuple
    slots: tuple
    poison: int
    end_wanted: bool = True


def parses(case):
    return OPERATIONS[case.operation].parameters[0] == 'text'


class Observation(NamedTuple):
    result: object
    arena: bytes
    text: bytes  # the parsed text, or the buffer with its guards; empty for all other operations


PARAMETER_TYPES = {
    'in': ctypes.c_void_p, 'out': ctypes.c_void_p, 'inout': ctypes.c_void_p, 'info': ctypes.c_void_p,
    'out32': ctypes.c_void_p, 'out64': ctypes.c_void_p, 'text': ctypes.c_void_p, 'buffer': ctypes.c_void_p,
    'end': ctypes.c_void_p, 'int32': ctypes.c_int32, 'int64': ctypes.c_int64, 'size': ctypes.c_size_t,
    'double': ctypes.c_double,
}


def pack_numeric(coefficient):
    """The lower half first, each half in the machine's own order."""
    return struct.pack('=Qq', coefficient & (2**64 - 1), coefficient >> 64)


def unpack_numeric(arena, at):
    low, high = struct.unpack_from('=Qq', arena, at)
    return high << 64 | low


def coefficient_text(coefficient):
    return 'NaN' if coefficient == NAN else str(coefficient)


def double_from_bits(bits):
    return struct.unpack('=d', struct.pack('=Q', bits))[0]


def arena_before(case):
    """The arena with the operands in place and rubbish everywhere else."""
    arena = bytearray(POISONED_ARENAS[case.poison])
    values = iter(case.arguments)
    slots = iter(case.slots)
    infos = iter(INFO_AT)
    for kind in OPERATIONS[case.operation].parameters:
        if kind in ('in', 'inout'):
            at = NUMERIC_AT[next(slots)]
            arena[at:at + 16] = pack_numeric(next(values))
        elif kind == 'info':
            struct.pack_into('=iI', arena, next(infos), *next(values))
        elif kind == 'out':
            next(slots)
        elif kind in ('int32', 'int64', 'size', 'double', 'text'):
            next(values)
    return arena


def arena_expected(case, before, answer, text_address):
    """The arena after a call that does what the model says."""
    output = answer[1]
    arena = before.copy()
    slots = iter(case.slots)
    for kind in OPERATIONS[case.operation].parameters:
        if kind == 'in':
            next(slots)
        elif kind in ('out', 'inout'):
            at = NUMERIC_AT[next(slots)]
            if output is not UNTOUCHED:
                arena[at:at + 16] = pack_numeric(output)
        elif kind in ('out32', 'out64') and output is not UNTOUCHED:
            size = 4 if kind == 'out32' else 8
            arena[MACHINE_AT:MACHINE_AT + size] = (output % (1 << 8 * size)).to_bytes(size, sys.byteorder)
        elif kind == 'end' and case.end_wanted and answer[2] is not UNTOUCHED:
            struct.pack_into('=Q', arena, END_AT, text_address + answer[2])
    return arena


class Library:
    def __init__(self, path):
        loaded = ctypes.CDLL(path)
        self.functions = {}
        for operation in OPERATIONS.values():
            function = getattr(loaded, 'QV8Numeric' + operation.name)
            function.argtypes = [PARAMETER_TYPES[kind] for kind in operation.parameters]
            function.restype = None if operation.name in ('SetZero', 'SetNan') else ctypes.c_int32
            self.functions[operation.name] = function
        self.arena_owner = ctypes.create_string_buffer(ARENA_SIZE + 16)
        self.arena_at = (ctypes.addressof(self.arena_owner) + 15) // 16 * 16
        self.arena = memoryview((ctypes.c_char * ARENA_SIZE).from_address(self.arena_at)).cast('B')
        self.map_text()

    def map_text(self):
        pages = 4 + (LARGEST_TEXT + 2 * GUARD) // mmap.PAGESIZE
        self.text = mmap.mmap(-1, pages * mmap.PAGESIZE)
        self.text_at = ctypes.addressof(ctypes.c_char.from_buffer(self.text))
        self.text_end = (pages - 1) * mmap.PAGESIZE
        libc = ctypes.CDLL(None, use_errno=True)
        libc.mprotect.argtypes = [ctypes.c_void_p, ctypes.c_size_t, ctypes.c_int]
        if libc.mprotect(self.text_at + self.text_end, mmap.PAGESIZE, 0) != 0:
            raise OSError(ctypes.get_errno(), 'mprotect')

    def text_address(self, case):
        """Where the text to be parsed starts; its NUL is the last byte that can be read."""
        return self.text_at + self.text_end - len(case.arguments[0]) - 1 if parses(case) else None

    def observe(self, case, before):
        self.arena[:] = before
        values = iter(case.arguments)
        slots = iter(case.slots)
        infos = iter(INFO_AT)
        base = self.arena_at
        c_arguments = []
        watched = slice(0, 0)
        for kind in OPERATIONS[case.operation].parameters:
            if kind == 'in' or kind == 'inout':
                next(values)
                c_arguments.append(base + NUMERIC_AT[next(slots)])
            elif kind == 'out':
                c_arguments.append(base + NUMERIC_AT[next(slots)])
            elif kind == 'info':
                next(values)
                c_arguments.append(base + next(infos))
            elif kind == 'double':
                c_arguments.append(double_from_bits(next(values)))
            elif kind == 'out32' or kind == 'out64':
                c_arguments.append(base + MACHINE_AT)
            elif kind == 'end':
                c_arguments.append(base + END_AT if case.end_wanted else None)
            elif kind == 'text':
                text = next(values) + b'\0'
                watched = slice(self.text_end - len(text), self.text_end)
                self.text[watched] = text
                c_arguments.append(self.text_at + watched.start)
            elif kind == 'buffer':
                watched = slice(0, len(watched_buffer(case)))
                self.text[watched] = watched_buffer(case)
                c_arguments.append(self.text_at + GUARD)
            else:
                c_arguments.append(next(values))
        result = self.functions[case.operation](*c_arguments)
        return Observation(result, bytes(self.arena), self.text[watched])


def watched_size(case):
    """How many bytes of a buffer are watched. A size near 2^64 stands for a small buffer with an absurd claim."""
    size = case.arguments[-1]
    return size if size <= LARGEST_TEXT else GUARD


def watched_buffer(case):
    """A buffer and its guards before the call."""
    return POISONED_TEXT[:watched_size(case) + 2 * GUARD]


def text_differences(case, answer, observed):
    """What is wrong with the text memory after the call."""
    if parses(case):
        return [] if observed == case.arguments[0] + b'\0' else ['the parsed text was changed']
    if not observed:
        return []
    written = answer[1]
    size = watched_size(case)
    expected = bytearray(watched_buffer(case))
    start = GUARD + written.offset
    stop = start + len(written.content)
    expected[start:stop] = written.content
    if written.free_behind:
        expected[stop:GUARD + size] = observed[stop:GUARD + size]
    if observed == expected:
        return []
    return ['the buffer holds %r where %r belongs' % (observed[GUARD:GUARD + size], bytes(expected[GUARD:GUARD + size]))
            if observed[GUARD:GUARD + size] != expected[GUARD:GUARD + size] else 'bytes beside the buffer were changed']


def arena_contents(case, arena):
    """The values in the arena by parameter, for a message."""
    slots = iter(case.slots)
    infos = iter(INFO_AT)
    found = []
    for kind in OPERATIONS[case.operation].parameters:
        if kind in ('in', 'out', 'inout'):
            found.append('%s %s' % (kind, coefficient_text(unpack_numeric(arena, NUMERIC_AT[next(slots)]))))
        elif kind == 'info':
            found.append('info (%d, %d)' % struct.unpack_from('=iI', arena, next(infos)))
        elif kind == 'out32':
            found.append('out %d' % struct.unpack_from('=i', arena, MACHINE_AT))
        elif kind == 'out64':
            found.append('out %#x' % struct.unpack_from('=Q', arena, MACHINE_AT))
        elif kind == 'end':
            found.append('end %#x' % struct.unpack_from('=Q', arena, END_AT))
    return ', '.join(found)


def differences(case, before, answer, observation, text_address):
    """In words, everything in which the observation departs from the model's answer."""
    found = []
    if observation.result != answer[0]:
        found.append('result %s where %s belongs' % (observation.result, answer[0]))
    expected = arena_expected(case, before, answer, text_address)
    if observation.arena != expected:
        got_contents, expected_contents = (arena_contents(case, arena) for arena in (observation.arena, expected))
        if got_contents == expected_contents:
            found.append('bytes beside the operands were changed')
        else:
            found.append('memory holds %s where %s belongs' % (got_contents, expected_contents))
    return found + text_differences(case, answer, observation.text)
