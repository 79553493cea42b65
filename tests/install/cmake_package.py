# SPDX-License-Identifier: MIT
"""The CMake package: both imported targets make programs that run, and a wrong request is refused with the reason.

usage: cmake_package.py TOOLS PREFIX FOLDER
"""
import pathlib

from consuming import package_refused, use_package
from installing import Tools, parse_arguments

REFUSED = (
    ('2', 'that is compatible with requested version "2"'),
    ('0.9', 'that is compatible with requested version "0.9"'),
    ('1.999', 'that is compatible with requested version "1.999"'),
    ('1 COMPONENTS dynamic', 'qv8numeric has no component "dynamic" here, but: shared;static'),
)


def main(tools: Tools, prefix: pathlib.Path, folder: pathlib.Path) -> None:
    use_package(tools, prefix, folder, '1 COMPONENTS shared static', {'qv8numeric': 'shared', 'static': 'static'})
    for request, reason in REFUSED:
        package_refused(tools, prefix, folder, request, reason)


arguments = parse_arguments(__doc__, 'prefix', 'folder')
main(arguments.tools, pathlib.Path(arguments.prefix), pathlib.Path(arguments.folder))
