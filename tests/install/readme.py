# SPDX-License-Identifier: MIT
"""The README's program, linked by the README's own words: its CMake lines, and its line with pkg-config.

usage: readme.py TOOLS PREFIX FOLDER
"""
import os
import pathlib
import re

from consuming import pkg_config_environment
from installing import Tools, fail, fresh, parse_arguments, run

PROGRAM = re.compile(r'^```c\n(.*?)^```\n\n    (.*?\n)', flags=re.MULTILINE | re.DOTALL)
CMAKE = re.compile(r'^```cmake\n(.*?)^```\n', flags=re.MULTILINE | re.DOTALL)
PKG_CONFIG = re.compile(r'^    (cc .*pkg-config.*)\n', flags=re.MULTILINE)


def shown(pattern: 're.Pattern[str]', readme: str) -> 're.Match[str]':
    found = pattern.search(readme)
    if not found:
        fail(f'the README shows nothing like {pattern.pattern}')
    return found


def expect_output(program: pathlib.Path, expected: str, prefix: pathlib.Path) -> None:
    printed = run([str(program)], LD_LIBRARY_PATH=str(prefix / 'lib'))
    if printed != expected:
        fail(f'{program} prints {printed!r} instead of {expected!r}')


def main(tools: Tools, prefix: pathlib.Path, folder: pathlib.Path) -> None:
    readme = (tools.source / 'README.md').read_text(encoding='utf-8')
    program, output = shown(PROGRAM, readme).groups()
    (fresh(folder) / 'program.c').write_text(program, encoding='utf-8')

    (folder / 'CMakeLists.txt').write_text(
        'cmake_minimum_required(VERSION 3.16)\nproject(program LANGUAGES C)\nadd_executable(program program.c)\n'
        + shown(CMAKE, readme).group(1), encoding='utf-8')
    run(tools.cmake_configure(folder, folder / 'build', f'-DCMAKE_PREFIX_PATH={prefix}'))
    run([tools.cmake, '--build', str(folder / 'build')])
    expect_output(folder / 'build/program', output, prefix)

    os.chdir(folder)
    # The folder of the others has a blank in its name, which is theirs to quote.
    (folder / 'prefix').symlink_to(prefix, target_is_directory=True)
    run(['sh', '-c', shown(PKG_CONFIG, readme).group(1)], **pkg_config_environment(folder / 'prefix'))
    expect_output(folder / 'a.out', output, prefix)


arguments = parse_arguments(__doc__, 'prefix', 'folder')
main(arguments.tools, pathlib.Path(arguments.prefix), pathlib.Path(arguments.folder))
