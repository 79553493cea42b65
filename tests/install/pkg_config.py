# SPDX-License-Identifier: MIT
"""pkg-config and cc alone make programs that run, with the shared library and with the static one; the version is that
of the header, and a request for another major version is refused.

usage: pkg_config.py TOOLS PREFIX FOLDER
"""
import pathlib

from consuming import pkg_config_environment, use_pkg_config
from installing import Tools, fail, parse_arguments, refused, run


def main(tools: Tools, prefix: pathlib.Path, folder: pathlib.Path) -> None:
    for library in ('shared', 'static'):
        use_pkg_config(tools, prefix, folder, library)
    environment = pkg_config_environment(prefix)
    refused(['pkg-config', '--print-errors', 'qv8numeric >= 2'], "Package dependency requirement 'qv8numeric >= 2'",
            **environment)
    private = run(['pkg-config', '--static', '--libs-only-l', 'qv8numeric'], **environment).split()
    if private != ['-lqv8numeric']:
        fail(f'the static library is said to need {private}')


arguments = parse_arguments(__doc__, 'prefix', 'folder')
main(arguments.tools, pathlib.Path(arguments.prefix), pathlib.Path(arguments.folder))
