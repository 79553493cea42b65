# SPDX-License-Identifier: MIT
"""What the tests of the installation share: the library as it was built for the other tests is installed from a build
folder of its own, so that the notes of the user's own installations stay as they are."""
import argparse
import dataclasses
import glob
import os
import pathlib
import re
import shlex
import shutil
import subprocess
import sys
from typing import Dict, List, NoReturn, Optional, Sequence, Set

HERE = pathlib.Path(__file__).resolve().parent
HOST = HERE / 'host.c'


@dataclasses.dataclass(frozen=True)
class Tools:
    """The project, its build folder, and what the project was built with."""
    source: pathlib.Path
    built: pathlib.Path
    cmake: str
    generator: str
    build_type: str
    c_compiler: str
    cxx_compiler: str

    def cmake_configure(self, source: pathlib.Path, build: pathlib.Path, *options: str) -> List[str]:
        return [self.cmake, '-G', self.generator, '-S', str(source), '-B', str(build),
                f'-DCMAKE_C_COMPILER={self.c_compiler}', f'-DCMAKE_CXX_COMPILER={self.cxx_compiler}', *options]


def parse_arguments(description: Optional[str], *others: str) -> argparse.Namespace:
    """The tools as `tools`, and a value for each of the other names."""
    parser = argparse.ArgumentParser(description=description)
    fields = dataclasses.fields(Tools)
    for field in fields:
        parser.add_argument(f'--{field.name.replace("_", "-")}', type=field.type, required=True)
    for name in others:
        parser.add_argument(name)
    arguments = parser.parse_args()
    arguments.tools = Tools(**{field.name: getattr(arguments, field.name) for field in fields})
    return arguments


def version(tools: Tools) -> str:
    header = (tools.source / 'include/qv8numeric.h').read_text(encoding='utf-8')
    found = re.search(r'^#define QV8NUMERIC_VERSION_STRING "(.*)"$', header, flags=re.MULTILINE)
    if not found:
        fail('the header has no version')
    return found.group(1)


def fail(message: str) -> NoReturn:
    sys.exit(f'FAILED: {message}')


def command_text(command: Sequence[str]) -> str:
    return ' '.join(map(shlex.quote, command))


def attempt(command: Sequence[str], environment: Dict[str, str]) -> 'subprocess.CompletedProcess[str]':
    return subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                          env={**os.environ, **environment})


def run(command: Sequence[str], **environment: str) -> str:
    """What a command that has to succeed says."""
    result = attempt(command, environment)
    if result.returncode != 0:
        fail(f'status {result.returncode}: {command_text(command)}\n{result.stdout}')
    return result.stdout


def refused(command: Sequence[str], reason: str, **environment: str) -> None:
    """The command fails, and gives the reason."""
    result = attempt(command, environment)
    if result.returncode == 0:
        fail(f'accepted: {command_text(command)}\n{result.stdout}')
    if reason not in ' '.join(result.stdout.split()):
        fail(f'no word of "{reason}": {command_text(command)}\n{result.stdout}')


def expect_equal(what: str, actual: Set[str], expected: Set[str]) -> None:
    if actual != expected:
        fail(f'{what}: too much: {sorted(actual - expected)}; missing: {sorted(expected - actual)}')


def fresh(folder: pathlib.Path) -> pathlib.Path:
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir(parents=True)
    return folder


def content(folder: pathlib.Path) -> Set[str]:
    """Every file and folder below a folder."""
    return {str(path.relative_to(folder)) for path in folder.rglob('*')}


def files(folder: pathlib.Path) -> Set[str]:
    return {str(path.relative_to(folder)) for path in folder.rglob('*') if path.is_symlink() or not path.is_dir()}


def configured(tools: Tools, build: pathlib.Path, *options: str) -> pathlib.Path:
    """A build folder of the project in which everything is built: by copies of what the other tests use."""
    run(tools.cmake_configure(tools.source, fresh(build), f'-DCMAKE_BUILD_TYPE={tools.build_type}',
                              '-DCMAKE_INSTALL_LIBDIR=lib', *options))
    for library in glob.glob(f'{glob.escape(str(tools.built))}/libqv8numeric.*'):
        shutil.copy(library, build, follow_symlinks=False)
    return build


def lay_out(tools: Tools, build: pathlib.Path, prefix: pathlib.Path, *options: str) -> pathlib.Path:
    run([tools.cmake, '--install', str(build), '--prefix', str(prefix), *options])
    return prefix


def moved(prefix: pathlib.Path, to: pathlib.Path) -> pathlib.Path:
    """Where the prefix was nothing is left, so nothing can go on pointing there."""
    shutil.rmtree(to, ignore_errors=True)
    return prefix.rename(to)


def needed_libraries(program: pathlib.Path) -> List[str]:
    """The shared libraries that a program asks the dynamic linker for."""
    lines = run(['readelf', '--wide', '--dynamic', str(program)]).splitlines()
    return [line[line.index('[') + 1:line.rindex(']')] for line in lines if '(NEEDED)' in line]


def expect_linked(program: pathlib.Path, library: str) -> None:
    """The program has the library in it, if that is the static one, or else asks for it by its soname; and it asks for
    nothing else but the C library, if for that."""
    expected = ['libqv8numeric.so.1'] if library == 'shared' else []
    needed = [name for name in needed_libraries(program) if name != 'libc.so.6']
    if needed != expected:
        fail(f'{program} needs {needed} instead of {expected}')
