# SPDX-License-Identifier: MIT
"""Every file of the source tree says its licence at the top, ends with a line end and has no blanks at a line's end.

usage: conventions.py SOURCE_FOLDER
"""
import os
import shutil
import subprocess
import sys

from checking import finish

LICENCE = 'SPDX-License-Identifier: MIT'
LICENCE_WITHIN = 3  # lines: the first, or behind what a format wants there
BYTES = 'fuzz/corpus/'  # inputs of the fuzz targets, which have no lines


def tracked_files(root):
    """What git tracks; in a source archive everything outside of build folders and caches."""
    if shutil.which('git'):
        listing = subprocess.run(['git', '-C', root, 'ls-files', '-z'], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)
        if listing.returncode == 0:
            return [name for name in listing.stdout.decode().split('\0') if name and os.path.exists(f'{root}/{name}')]
    found = []
    for folder, folders, files in os.walk(root):
        if 'CMakeCache.txt' in files:
            folders.clear()
            continue
        folders[:] = set(folders) - {'.git', '__pycache__'}
        found += [os.path.relpath(os.path.join(folder, name), root) for name in files]
    return found


def file_findings(name, text):
    lines = text.split('\n')
    if not any(LICENCE in line for line in lines[:LICENCE_WITHIN]):
        yield f'{name}:1: no "{LICENCE}"'
    for number, line in enumerate(lines, 1):
        if line != line.rstrip():
            yield f'{name}:{number}: blanks at the end of the line'
    if not text.endswith('\n') or text.endswith('\n\n'):
        yield f'{name}:{len(lines)}: the file does not end with one line end'


def main(root):
    findings = []
    names = [name for name in tracked_files(root) if not name.startswith(BYTES)]
    for name in names:
        with open(os.path.join(root, name), encoding='utf-8', newline='') as file:
            findings += file_findings(name, file.read())
    finish(findings if names else [f'no files in {root}'])


main(*sys.argv[1:])
