# SPDX-License-Identifier: MIT
"""`cc program.c libqv8numeric.a`, with nothing else, makes a program that runs: one that calls everything in C, every
listed name being there to be had, and one that has names of its own which the library uses inside.

usage: static_link.py C_COMPILER ARCHIVE INCLUDE_FOLDER NAMES
"""
import os
import subprocess
import sys
import tempfile

from checking import EMULATOR, finish, listed_names

HERE = os.path.dirname(os.path.abspath(__file__))


def run_findings(compiler, archive, include_folder, program, *options):
    sources = [f'{HERE}/{program}.c', f'{HERE}/every_function.c']
    with tempfile.TemporaryDirectory() as folder:
        made = f'{folder}/{program}'
        commands = ([compiler, '-I', include_folder, *sources, archive, *options, '-o', made], [*EMULATOR, made])
        for command in commands:
            result = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
            if result.returncode != 0:
                yield f'{program}: status {result.returncode}: {" ".join(command)}\n{result.stdout}'
                return


def main(compiler, archive, include_folder, names):
    every_name = [f'-Wl,--require-defined={name}' for name in sorted(listed_names(names))]
    finish([*run_findings(compiler, archive, include_folder, 'use_everything', *every_name),
            *run_findings(compiler, archive, include_folder, 'host_names')])


main(*sys.argv[1:])
