# SPDX-License-Identifier: MIT
"""The shared library exports the listed names, each under the one version node, and nothing else; so does the linker's
version script. None of these names is looked up from inside, where a host's own function of that name would be found.

usage: exports.py LIBRARY VERSION_SCRIPT NAMES
"""
import re
import sys

from checking import NM, READELF, finish, listed_names, output

NODE = 'QV8NUMERIC_1'


def exported_symbols(library):
    """name@@version of everything in the dynamic symbol table but the node's own entry, an absolute symbol."""
    lines = output(NM, '--dynamic', '--defined-only', '--with-symbol-versions', library).splitlines()
    return {name for _, kind, name in map(str.split, lines) if kind != 'A'}


def looked_up_symbols(library):
    """What the dynamic linker is asked to find: the symbol is the fifth column of a relocation that has one."""
    columns = map(str.split, output(READELF, '--wide', '--relocs', library).splitlines())
    return {row[4].partition('@')[0] for row in columns if len(row) > 4 and row[2].startswith('R_')}


def script_names(path):
    with open(path, encoding='ascii') as file:
        script = re.sub(r'/\*.*?\*/', '', file.read(), flags=re.DOTALL)
    node = re.fullmatch(rf'\s*{NODE} {{\s*global:(.*)local:\s*\*;\s*}};\s*', script, flags=re.DOTALL)
    return set(re.findall(r'[^\s;]+', node.group(1))) if node else set()


def differences(what, actual, expected):
    return ([f'{what} lacks {name}' for name in sorted(expected - actual)] +
            [f'{what} has {name} besides' for name in sorted(actual - expected)])


def main(library, script, names):
    expected = listed_names(names)
    looked_up = [f'the library looks up {name}' for name in sorted(looked_up_symbols(library) & expected)]
    finish(looked_up + differences('the library', exported_symbols(library), {f'{name}@@{NODE}' for name in expected}) +
           differences('the version script', script_names(script), expected))


main(*sys.argv[1:])
