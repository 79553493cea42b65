# SPDX-License-Identifier: MIT
"""Which lines and branches of a folder of sources were run by a build that counts them. Fails for any line that was not;
lists every branch that was not taken.

usage: coverage.py BUILD_FOLDER SOURCE_FOLDER
"""
import collections
import glob
import json
import os
import subprocess
import sys


def gcov_reports(build):
    """What gcov says about every object file, those that never ran included. A header's code is in many of them."""
    notes = glob.glob(os.path.join(glob.escape(build), '**', '*.gcno'), recursive=True)
    for note in notes:
        command = ['gcov', '--json-format', '--stdout', '--branch-probabilities', note]
        yield json.loads(subprocess.run(command, check=True, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL).stdout)


def add_up(reports, sources):
    """Runs of each line, and of each branch of each line: {file: {line: runs}}, {file: {line: [runs]}}.

    Instances of a template, and copies of an inline function, are added up; they have the same branches in the same
    order. Where a compiler gave a copy other ones, a branch counts by its place among those of its line.
    """
    lines = collections.defaultdict(collections.Counter)
    branches = collections.defaultdict(lambda: collections.defaultdict(list))
    for report in reports:
        for file in report['files']:
            path = os.path.normpath(os.path.join(report['current_working_directory'], file['file']))
            if os.path.commonpath([path, sources]) != sources:
                continue
            name = os.path.relpath(path, os.path.dirname(sources))
            for line in file['lines']:
                number = line['line_number']
                lines[name][number] += line['count']
                taken = [branch['count'] for branch in line['branches'] if not branch['throw']]
                known = branches[name][number]
                known.extend([0] * (len(taken) - len(known)))
                for place, count in enumerate(taken):
                    known[place] += count
    return lines, branches


def share(part, whole):
    return f'{part:6} of {whole:6}' + (f' {100 * part / whole:6.1f} %' if whole else ' ' * 9)


def main(build, sources):
    sources = os.path.abspath(sources)
    lines, branches = add_up(gcov_reports(build), sources)
    missed_lines, missed_branches, totals = [], [], collections.Counter()
    print(f'{"":40}{"lines":>24}{"branches":>26}')
    for name in sorted(lines):
        with open(os.path.join(os.path.dirname(sources), name), encoding='utf-8') as file:
            text = file.read().splitlines()
        here = collections.Counter()
        for number, runs in sorted(lines[name].items()):
            here.update(lines=1, lines_run=runs > 0)
            if runs == 0:
                missed_lines.append(f'{name}:{number}: {text[number - 1].strip()}')
            for place, taken in enumerate(branches[name][number], 1):
                here.update(branches=1, branches_taken=taken > 0)
                if taken == 0:
                    missed_branches.append(f'{name}:{number}: branch {place}: {text[number - 1].strip()}')
        totals.update(here)
        print(f'{name:40}{share(here["lines_run"], here["lines"])}  {share(here["branches_taken"], here["branches"])}')
    print(f'{"all":40}{share(totals["lines_run"], totals["lines"])}  '
          f'{share(totals["branches_taken"], totals["branches"])}')
    print(f'\nBranches not taken: {len(missed_branches)}', *missed_branches, sep='\n')
    print(f'\nLines not run: {len(missed_lines)}', *missed_lines, sep='\n')
    sys.exit(0 if totals['lines'] and not missed_lines else 1)


main(*sys.argv[1:])
