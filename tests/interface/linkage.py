# SPDX-License-Identifier: MIT
"""What the dynamic linker is told about the shared library: its name, that it needs the C library alone, that everything
it relocates is read-only once loaded, and that neither its code nor its stack is writable and executable at once.

usage: linkage.py LIBRARY
"""
import re
import sys

from checking import READELF, finish, output

SONAME = 'libqv8numeric.so.1'
NEEDED = ['libc.so.6']


def dynamic_findings(dynamic):
    needed = re.findall(r'\(NEEDED\).*\[(.*)\]', dynamic)
    if needed != NEEDED:
        yield f'needs {needed} instead of {NEEDED}'
    soname = re.findall(r'\(SONAME\).*\[(.*)\]', dynamic)
    if soname != [SONAME]:
        yield f'is named {soname} instead of {SONAME}'
    if 'TEXTREL' in dynamic:
        yield 'has text relocations'
    if not re.search(r'BIND_NOW|\(FLAGS_1\).*\bNOW\b', dynamic):
        yield 'does not bind its symbols when loaded'
    if re.search(r'\((RPATH|RUNPATH)\)', dynamic):
        yield 'has a search path of its own'


def segment_findings(segments):
    if 'GNU_RELRO' not in segments:
        yield 'leaves its relocations writable'
    for kind, flags in re.findall(r'^\s+(\w+)(?:\s+0x[0-9a-f]+){5}\s+([RWE ]+?)\s+0x', segments, flags=re.MULTILINE):
        if 'W' in flags and 'E' in flags:
            yield f'has a {kind} segment both writable and executable'


def main(library):
    finish([*dynamic_findings(output(READELF, '--wide', '--dynamic', library)),
            *segment_findings(output(READELF, '--wide', '--segments', library))])


main(*sys.argv[1:])
