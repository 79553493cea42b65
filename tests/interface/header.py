# SPDX-License-Identifier: MIT
"""The public header compiles without a warning in every standard it promises, alone, twice, and beside a program's own
names; it keeps its layout, on 32-bit x86 too where the compiler can be asked; and it uses no type of one compiler.

usage: header.py C_COMPILER CXX_COMPILER HEADER
"""
import os
import re
import subprocess
import sys

from checking import finish

HERE = os.path.dirname(os.path.abspath(__file__))
C_STANDARDS = ('c99', 'c11', 'c17')
CXX_STANDARDS = ('c++11', 'c++14', 'c++17', 'c++20')
STRICT = ('-fsyntax-only', '-Wall', '-Wextra', '-Wpedantic', '-Werror')

ALONE = '#include "qv8numeric.h"\n'
TWICE = 2 * ALONE
LAYOUT = f'#include "{HERE}/layout.c"\n'
OWN_NAMES = f'#include "{HERE}/own_names.c"\n'
USES_DEBUG = ALONE + 'int print(const Numeric* v);\nint print(const Numeric* v) { return dump(v); }\n'
LOOKS_INTO_STATE = ALONE + 'extern char size[sizeof(struct NumberParseState)];\n'
LOOKS_INTO_INTERMEDIATE = ALONE + 'extern char size[sizeof(struct ExtendedNumeric)];\n'

NO_DEBUG = '-DQV8NUMERIC_NO_DEBUG'
X86_32 = ('-m32', '-ffreestanding')

# name, program, options, does it compile?
ROWS = (
    ('alone', ALONE, (), True),
    ('alone, without the debugging names', ALONE, (NO_DEBUG,), True),
    ('included twice', TWICE, (), True),
    ('included twice, without the debugging names', TWICE, (NO_DEBUG,), True),
    ('the layout', LAYOUT, (), True),
    ('the layout on 32-bit x86', LAYOUT, X86_32, True),
    ("a program's own names", OWN_NAMES, (NO_DEBUG,), True),
    ("a program's own names meet the debugging names", OWN_NAMES, (), False),
    ('a use of dump', USES_DEBUG, (), True),
    ('a use of dump that was left out', USES_DEBUG, (NO_DEBUG,), False),
    ('a look into the parse state', LOOKS_INTO_STATE, (), False),
    ('a look into the wide intermediate', LOOKS_INTO_INTERMEDIATE, (), False),
)

COMPILER_TYPES = re.compile(r'\b(__u?int128(_t)?|__int(8|16|32|64)|_BitInt|_ExtInt|long|u?intmax_t)\b')


def compiles(compiler, language, standard, options, header_folder, program):
    command = [compiler, f'-std={standard}', *STRICT, *options, '-x', language, '-I', header_folder, '-']
    result = subprocess.run(command, input=program, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
    return result.returncode == 0, result.stdout


def compile_findings(compiler, language, standards, header_folder):
    knows_x86_32 = compiles(compiler, language, standards[0], X86_32, header_folder, 'int unused;\n')[0]
    for standard in standards:
        for name, program, options, expected in ROWS:
            if options == X86_32 and not knows_x86_32:
                continue
            compiled, messages = compiles(compiler, language, standard, options, header_folder, program)
            if compiled != expected:
                yield f'{compiler} -std={standard}: {name}: {"refused" if expected else "accepted"}\n{messages}'


def text_findings(header):
    with open(header, encoding='utf-8') as file:
        text = file.read()
    code = re.sub(r'/\*.*?\*/|//[^\n]*', '', text, flags=re.DOTALL)
    for match in COMPILER_TYPES.finditer(code):
        yield f'the header uses the type {match.group()}'
    numbers = re.findall(r'#define QV8NUMERIC_VERSION_(?:MAJOR|MINOR|PATCH) (\d+)', code)
    string = re.findall(r'#define QV8NUMERIC_VERSION_STRING "(.*)"', code)
    if string != ['.'.join(numbers)]:
        yield f'the version is {string} in words and {numbers} in numbers'


def main(c_compiler, cxx_compiler, header):
    folder = os.path.dirname(header)
    finish([*compile_findings(c_compiler, 'c', C_STANDARDS, folder),
            *compile_findings(cxx_compiler, 'c++', CXX_STANDARDS, folder), *text_findings(header)])


main(*sys.argv[1:])
