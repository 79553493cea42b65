# SPDX-License-Identifier: MIT
"""What the static library brings into a program: no global name but the listed ones and those of namespace qv8numeric,
no need beyond the C library and the compiler's own helpers, no state, and nothing that runs before main.

usage: archive.py ARCHIVE NAMES
"""
import re
import sys

from checking import NM, READELF, finish, listed_names, output

OWN_NAME = re.compile(r'_ZZ?N[KRO]*10qv8numeric')  # qv8numeric::..., and what is local to a function of it

C_LIBRARY = {'memcpy', 'memmove', 'memset', 'memcmp', 'strlen', 'printf', '__printf_chk'}
COMPILER = {
    '_GLOBAL_OFFSET_TABLE_', '__stack_chk_fail', '__stack_chk_fail_local',
    '__udivti3', '__umodti3', '__udivmodti4',                       # 128-bit division
    '__udivdi3', '__umoddi3', '__udivmoddi4', '__divdi3', '__moddi3',  # 64-bit division on 32-bit machines
    '__ctzdi2',                                                     # zeros at the end of 64 bits there
    '__x86.get_pc_thunk.ax', '__x86.get_pc_thunk.bx', '__x86.get_pc_thunk.cx', '__x86.get_pc_thunk.dx',
    '__x86.get_pc_thunk.si', '__x86.get_pc_thunk.di', '__x86.get_pc_thunk.bp',
}


def symbols(archive, which):
    lines = output(NM, '--extern-only', which, archive).splitlines()
    return {line.split()[-1] for line in lines if line and not line.endswith(':')}


def name_findings(archive, listed):
    defined = symbols(archive, '--defined-only')
    for name in sorted(listed - defined):
        yield f'lacks {name}'
    for name in sorted(defined - listed - COMPILER):
        if not OWN_NAME.match(name):
            yield f'defines {name}'
    for name in sorted(symbols(archive, '--undefined-only') - defined - C_LIBRARY - COMPILER):
        yield f'needs {name}'


def section_findings(archive):
    sections = re.findall(r'\] (\S+)\s+\S+\s+[0-9a-f]+ [0-9a-f]+ ([0-9a-f]+)',
                          output(READELF, '--wide', '--sections', archive))
    for name, size in sections:
        if int(size, 16) == 0:
            continue
        if re.match(r'\.t?(data|bss)(?!\.rel\.ro)', name):
            yield f'keeps state: {int(size, 16)} bytes of {name}'
        if re.match(r'\.(init_array|ctors|preinit_array|fini_array|dtors)', name):
            yield f'runs code at start or end: {name}'


def main(archive, names):
    finish([*name_findings(archive, listed_names(names)), *section_findings(archive)])


main(*sys.argv[1:])
