# SPDX-License-Identifier: MIT
"""What the checks share: running a tool, reading the list of names, and ending with everything that was found."""
import os
import shlex
import subprocess
import sys

# Those of another machine, where the library is: its own tools, and what runs its programs here.
NM = os.environ.get('NM', 'nm')
READELF = os.environ.get('READELF', 'readelf')
OBJDUMP = os.environ.get('OBJDUMP', 'objdump')
EMULATOR = shlex.split(os.environ.get('EMULATOR', ''))


def output(*command):
    """The standard output of a command that has to succeed."""
    result = subprocess.run(command, stdout=subprocess.PIPE, text=True)
    if result.returncode != 0:
        sys.exit(f'status {result.returncode}: {" ".join(command)}')
    return result.stdout


def listed_names(path):
    with open(path, encoding='ascii') as file:
        return {line.strip() for line in file if line.strip() and not line.startswith('#')}


def finish(findings):
    """Prints what is wrong, one line each; fails unless nothing is."""
    for finding in findings:
        print(finding)
    sys.exit(1 if findings else 0)
