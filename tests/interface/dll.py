# SPDX-License-Identifier: MIT
"""The DLL exports the listed names and nothing else, and needs what every Windows has.

usage: dll.py LIBRARY NAMES
"""
import re
import sys

from checking import OBJDUMP, finish, listed_names, output

NEEDED = {'KERNEL32.dll', 'msvcrt.dll'}


def main(library, names):
    headers = output(OBJDUMP, '--private-headers', library)
    exported = set(re.findall(r'^\s+\[ *\d+\] (\S+)$', headers.partition('[Ordinal/Name Pointer] Table')[2], re.MULTILINE))
    needed = set(re.findall(r'DLL Name: (\S+)', headers))
    expected = listed_names(names)
    finish([f'lacks {name}' for name in sorted(expected - exported)] +
           [f'exports {name} besides' for name in sorted(exported - expected)] +
           [f'needs {name}' for name in sorted(needed - NEEDED)])


main(*sys.argv[1:])
