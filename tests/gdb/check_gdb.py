#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""What gdb shows of a program that uses the library, with the printers sourced by hand and loaded by gdb itself.

usage: check_gdb.py COMPILER LIBRARY INCLUDE_FOLDER PRINTERS BUILD_FOLDER

Ends with status 77 where there is no gdb.
"""
import decimal
import pathlib
import shutil
import subprocess
import sys
import tempfile
from typing import Dict, List, NamedTuple

HERE = pathlib.Path(__file__).parent
SKIPPED = 77
BIG_ENDIAN_COMPILER = 's390x-linux-gnu-gcc'
BIG_ENDIAN_DEBUGGER = 'gdb-multiarch'


class Row(NamedTuple):
    why: str
    command: str
    expected: str


NUMBERS = {
    'zero': 0,
    'minus_one': -1,
    'price': 12345,
    'negative': -12345,
    'word_end': 2**64 - 1,
    'below_word': -(2**64),
    'largest': 2**127 - 1,
    'smallest': -(2**127 - 1),
}


def at_scale(number: int, scale: int) -> str:
    """By the decimal module, which writes every place of an exponent below zero and every zero of one above."""
    with decimal.localcontext(decimal.Context(prec=100)):
        return format(decimal.Decimal(number).scaleb(-scale), 'f')


# What lies in the program's data, to be seen without running it.
STATIC = [
    *(Row(f'{name} as its integer', f'print {name}', str(number)) for name, number in NUMBERS.items()),
    *(Row(f'{name} at scale {scale}', f'qv8 {name} {scale}', at_scale(number, scale))
      for name, number in NUMBERS.items() for scale in (-3, 0, 1, 2, 40)),
    Row('typed: three zeros appended', 'qv8 price -3', '12345000'),
    Row('typed: a point among the digits', 'qv8 negative 2', '-123.45'),
    Row('typed: zeros before the digits', 'qv8 minus_one 2', '-0.01'),
    Row('typed: more places than digits', 'qv8 largest 40', '0.0170141183460469231731687303715884105727'),
    Row('NaN', 'print not_a_number', 'NaN'),
    Row('NaN has no places', 'qv8 not_a_number 2', 'NaN'),
    Row('the last scale with all its zeros', 'qv8 minus_one 60', '-0.' + 59 * '0' + '1'),
    Row('an exponent beyond it', 'qv8 minus_one 61', '-1E-61'),
    Row('the last scale with all zeros appended', 'qv8 price -60', '12345' + 60 * '0'),
    Row('an exponent beyond it', 'qv8 price -61', '12345E+61'),
    Row('the largest scale', 'qv8 price 2147483647', '12345E-2147483647'),
    Row('the smallest scale', 'qv8 price extreme', '12345E+2147483648'),
    Row('fields on demand', 'print/r price', '{low = 12345, high = 0}'),
    Row('an array', 'print ledger', '{12345, -1, NaN}'),
    Row('an array at a scale', 'qv8 ledger 2', '{123.45, -0.01, NaN}'),
    Row('elements counted by hand', 'qv8 *ledger@2 2', '{123.45, -0.01}'),
    Row('elements from a pointer', 'qv8 *price_pointer@1 2', '{123.45}'),
    Row('an element', 'qv8 ledger[1] 2', '-0.01'),
    Row('an array of arrays', 'qv8 table 1', '{{0.1, 0.2}, {0.3, 0.4}}'),
    Row('a long array ends at the limit', 'qv8 many 0', '{' + ', '.join(200 * '0') + '...}'),
    Row('one element beyond it', 'qv8 *many@201 0', '{' + ', '.join(200 * '0') + '...}'),
    Row('an array just within the limit', 'qv8 *many@200 0', '{' + ', '.join(200 * '0') + '}'),
    Row('a pointer stands for what it points to', 'qv8 price_pointer 2', '123.45'),
    Row('the address of a value', 'qv8 &price 2', '123.45'),
    Row('an expression with blanks', 'qv8 * price_pointer 2', '123.45'),
    Row('a scale after many blanks', 'qv8 price    2  ', '123.45'),
    Row('a descriptor for a scale', 'qv8 price money', '123.45'),
    Row('a pointer to one', 'qv8 price info_pointer', '123.45'),
    Row('a field of one', 'qv8 price first.info', '12345000'),
    Row('a field of one behind a pointer', 'qv8 first.next->price first.next->info', '5.00'),
    Row('a scale from a variable', 'qv8 zero last.info.scale', '0.00'),
    Row('a descriptor', 'print money', '{scale 2, NUMERIC_ROUND_HALF_EVEN}'),
    Row('a negative scale', 'print thousands', '{scale -3, NUMERIC_ROUND_UP}'),
    Row('a mode that does not exist', 'print no_mode', '{scale 0, 7 (no rounding mode)}'),
    Row('statuses', 'print statuses',
        '{NUMERIC_OK, NUMERIC_NAN, NUMERIC_INEXACT, NUMERIC_OVERFLOW, NUMERIC_UNDERFLOW, NUMERIC_SYNTAX_ERROR, '
        'NUMERIC_BUFFER_TOO_SMALL, NUMERIC_INVALID_ARGUMENT, 5 (no NumericStatus), -4 (no NumericStatus)}'),
    Row('a status by another name', 'print answer', 'NUMERIC_OVERFLOW'),
    Row('a status in hexadecimal is the number', 'print/x answer', '0x3'),
    Row('another integer is left alone', 'print number', '12345'),
    Row('all kinds in a structure', 'print last',
        '{line = 8, price = 500, info = {scale 2, NUMERIC_ROUND_DOWN}, status = NUMERIC_OK, next = 0x0}'),
    Row('the 256 bits between two steps', 'print wide', str(2**192 + 1)),
    Row('no arguments', 'qv8', 'usage: qv8 VALUE SCALE; "help qv8" has examples.'),
    Row('no scale', 'qv8 price', 'usage: qv8 VALUE SCALE; "help qv8" has examples.'),
    Row('no such variable', 'qv8 prize 2', 'qv8: prize: No symbol "prize" in current context.'),
    Row('no such descriptor', 'qv8 price coins', 'qv8: coins: No symbol "coins" in current context.'),
    Row('not a value', 'qv8 number 2', 'qv8: number is of type int, not Numeric'),
    Row('a descriptor for a value', 'qv8 money 2', 'qv8: money is of type NumericInfo, not Numeric'),
    Row('an array of something else', 'qv8 statuses 2', 'qv8: statuses is of type NumericStatus [10], not Numeric'),
    Row('a structure around a value', 'qv8 first 2', 'qv8: first is of type struct entry, not Numeric'),
    Row('a double for a scale', 'qv8 price ratio',
        'qv8: ratio is no scale: double, neither an integer nor a NumericInfo'),
    Row('a value for a scale', 'qv8 price price',
        'qv8: price is no scale: Numeric, neither an integer nor a NumericInfo'),
    Row('a scale just beyond 32 bits', 'qv8 price 2147483648', 'qv8: 2147483648 is no scale: beyond 32 bits'),
    Row('a null pointer', 'qv8 null_pointer 2', 'qv8: null_pointer is a null pointer'),
    Row('a null descriptor', 'qv8 price null_info', 'qv8: null_info is a null pointer'),
    Row('memory that is not there', 'qv8 wild_pointer 2', 'qv8: wild_pointer: Cannot access memory at address 0x10'),
    Row('the same for print', 'print *wild_pointer', 'Cannot access memory at address 0x10'),
]

# Stopped in a function of the program.
RUNNING = [
    *STATIC,
    Row('an argument', 'qv8 argument money', '123.45'),
    Row('an address shows no value', 'output argument == &price', '1'),
    Row('a value passed as such', 'print copy', '12345'),
]

OPTIMIZED = [
    Row('a value that is not there', 'print gone', '<optimized out>'),
    Row('half a value', 'print half', '<optimized out>'),
    Row('a descriptor that is not there', 'print gone_info', '<optimized out>'),
    Row('a status that is not there', 'print gone_status', '<optimized out>'),
    Row('at a scale', 'qv8 gone 2', 'qv8: gone: optimized out'),
    Row('for a scale', 'qv8 kept gone_info', 'qv8: gone_info: optimized out'),
]

WITHOUT_PRINTERS = [
    Row('fields', 'print price', '{low = 12345, high = 0}'),
    Row('no command', 'qv8 price 2', 'Undefined command: "qv8".  Try "help".'),
]


def run(*command: object) -> str:
    result = subprocess.run([str(word) for word in command], stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                            stderr=subprocess.STDOUT, text=True, timeout=300)
    if result.returncode != 0:
        sys.exit(f'status {result.returncode}: {" ".join(map(str, command))}\n{result.stdout}')
    return result.stdout


def answers(debugger: str, before: List[str], rows: List[Row], program: pathlib.Path) -> Dict[int, str]:
    """What each row's command prints. An error ends a command, not the run."""
    commands = ['-iex', 'set debuginfod enabled off', *before]
    for number, row in enumerate(rows):
        commands += ['-ex', f'echo \\n@{number}@', '-ex', row.command]
    commands += ['-ex', 'echo \\n@end@']
    output = subprocess.run([debugger, '-nx', '-batch', *commands, str(program)], stdin=subprocess.DEVNULL, text=True,
                            stdout=subprocess.PIPE, stderr=subprocess.STDOUT, timeout=300).stdout
    if not output.endswith('@end@'):
        sys.exit(f'{debugger} did not reach the end of its commands:\n{output}')
    parts = output.split('\n@')[1:-1]
    return {int(number): text.strip() for number, text in (part.split('@', 1) for part in parts)}


def check(title: str, debugger: str, before: List[str], rows: List[Row], program: pathlib.Path) -> int:
    seen = answers(debugger, before, rows, program)
    failures = 0
    for number, row in enumerate(rows):
        text = seen.get(number, 'nothing')
        if row.command.startswith('print'):
            text = text.split(' = ', 1)[-1] if text.startswith('$') else text  # behind its number in the history
        if text != row.expected:
            failures += 1
            print(f'{title}: {row.why}: {row.command}\n  expected {row.expected}\n  but was  {text}')
    print(f'{title}: {len(rows) - failures} of {len(rows)} rows')
    return failures


def main(compiler: str, library: str, include: str, printers: str, build: str) -> int:
    debugger = shutil.which('gdb')
    if not debugger:
        print('left out: there is no gdb here (on Debian: gdb)')
        return SKIPPED
    with tempfile.TemporaryDirectory() as scratch:
        prefix = pathlib.Path(scratch).resolve()
        folder = prefix / 'lib'
        folder.mkdir()
        shared = pathlib.Path(library).resolve()
        shutil.copy(shared, folder)
        (folder / 'libqv8numeric.so.1').symlink_to(shared.name)
        run('cmake', '--install', build, '--component', 'debugger', '--prefix', prefix)

        def built(source: str, *options: str) -> pathlib.Path:
            program = prefix / source
            run(compiler, '-g', *options, f'-I{include}', HERE / f'{source}.c', folder / 'libqv8numeric.so.1',
                f'-Wl,-rpath,{folder}', '-o', program)
            return program

        program = built('program', '-O0')
        optimized = built('optimized', '-O2')
        sourced = ['-x', printers]
        stopped = ['-ex', 'break look', '-ex', 'run']
        installed = ['-iex', f'set auto-load scripts-directory {prefix}/share/gdb/auto-load',
                     '-iex', f'add-auto-load-safe-path {prefix}']
        uninstalled = ['-iex', f'set auto-load scripts-directory {prefix}/nowhere']
        failures = check('not run', debugger, sourced, STATIC, program)
        failures += check('stopped', debugger, [*sourced, *stopped], RUNNING, program)
        failures += check('optimized', debugger, [*sourced, *stopped, '-ex', 'up'], OPTIMIZED, optimized)
        failures += check('loaded by gdb', debugger, [*installed, *stopped], RUNNING, program)
        failures += check('not loaded', debugger, [*uninstalled, *stopped], WITHOUT_PRINTERS, program)

        if shutil.which(BIG_ENDIAN_COMPILER) and shutil.which(BIG_ENDIAN_DEBUGGER):
            elsewhere = prefix / 'program.o'
            run(BIG_ENDIAN_COMPILER, '-g', '-O0', '-c', f'-I{include}', HERE / 'program.c', '-o', elsewhere)
            # Addresses in an object file are not yet those of its data.
            rows = [row for row in STATIC if 'pointer' not in row.command and 'next' not in row.command + row.expected]
            failures += check('big-endian', BIG_ENDIAN_DEBUGGER, sourced, rows, elsewhere)
        else:
            print(f'big-endian: left out without {BIG_ENDIAN_COMPILER} and {BIG_ENDIAN_DEBUGGER}')
    return 1 if failures else 0


sys.exit(main(*sys.argv[1:]))
