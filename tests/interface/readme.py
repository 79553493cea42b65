# SPDX-License-Identifier: MIT
"""The README's program compiles as it stands, without a warning, and prints what the README says below it.

usage: readme.py C_COMPILER ARCHIVE INCLUDE_FOLDER README
"""
import re
import subprocess
import sys
import tempfile

from checking import finish, output

PROGRAM_AND_OUTPUT = re.compile(r'^```c\n((?:.*\n)*?)```\n\n((?:    .*\n)+)', flags=re.MULTILINE)
STRICT = ('-std=c99', '-Wall', '-Wextra', '-Wpedantic', '-Werror')


def main(compiler, archive, include_folder, readme):
    with open(readme, encoding='utf-8') as file:
        found = PROGRAM_AND_OUTPUT.search(file.read())
    if not found:
        finish([f'{readme} shows no program with its output'])
    program, shown = found.groups()
    with tempfile.TemporaryDirectory() as folder:
        command = [compiler, *STRICT, '-I', include_folder, '-x', 'c', '-', '-x', 'none', archive, '-o', f'{folder}/program']
        compiled = subprocess.run(command, input=program, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
        if compiled.returncode != 0:
            finish([f'does not compile: {" ".join(command)}\n{compiled.stdout}'])
        printed = output(f'{folder}/program')
    expected = re.sub('^    ', '', shown, flags=re.MULTILINE)
    finish([] if printed == expected else [f'prints {printed!r} instead of {expected!r}'])


main(*sys.argv[1:])
