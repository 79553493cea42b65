# SPDX-License-Identifier: MIT
"""The same small C program, built and run by the ways in which a program finds an installed library."""
import pathlib
import shlex
from typing import Dict, List

from installing import HERE, HOST, Tools, expect_linked, fresh, refused, run


def find_package(tools: Tools, prefix: pathlib.Path, folder: pathlib.Path, request: str, *options: str) -> List[str]:
    """The command that configures the CMake host in a folder, with a request such as "1 COMPONENTS static"."""
    return tools.cmake_configure(
        HERE / 'package', fresh(folder), f'-DCMAKE_PREFIX_PATH={prefix}', f'-DREQUEST={request}',
        '-DCMAKE_FIND_USE_PACKAGE_REGISTRY=OFF', '-DCMAKE_FIND_USE_CMAKE_SYSTEM_PATH=OFF', *options)


def package_refused(tools: Tools, prefix: pathlib.Path, folder: pathlib.Path, request: str, reason: str) -> None:
    refused(find_package(tools, prefix, folder, request, '-DLANGUAGES=NONE'), reason)


def use_package(tools: Tools, prefix: pathlib.Path, folder: pathlib.Path, request: str,
                libraries: Dict[str, str]) -> None:
    """Which library each imported target is; a host of each is built and run."""
    run(find_package(tools, prefix, folder, request, f'-DTARGETS={";".join(libraries)}'))
    run([tools.cmake, '--build', str(folder)])
    for target, library in libraries.items():
        program = folder / f'host_of_{target}'
        expect_linked(program, library)
        run([str(program)])


def pkg_config_environment(prefix: pathlib.Path) -> Dict[str, str]:
    """Nothing but this installation is to be found."""
    return {'PKG_CONFIG_LIBDIR': str(prefix / 'lib/pkgconfig'), 'PKG_CONFIG_PATH': ''}


def use_pkg_config(tools: Tools, prefix: pathlib.Path, folder: pathlib.Path, library: str) -> None:
    """cc, pkg-config, and what a user of either library writes beside them."""
    static, run_environment = ['--static'], {}
    link = ['-static']
    if library == 'shared':
        static, run_environment = [], {'LD_LIBRARY_PATH': str(prefix / 'lib')}
        link = []
    program = fresh(folder) / 'host'
    flags = shlex.split(run(['pkg-config', *static, '--cflags', '--libs', 'qv8numeric >= 1'],
                            **pkg_config_environment(prefix)))
    run([tools.c_compiler, str(HOST), *link, *flags, '-o', str(program)])
    expect_linked(program, library)
    run([str(program)], **run_environment)
