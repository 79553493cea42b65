# SPDX-License-Identifier: MIT
"""One library, shared or static, built and installed without the other, is found by every way as well, under the name
that leaves it open which it is; the other one is refused.

usage: one_library.py TOOLS LIBRARY FOLDER
"""
import pathlib

from consuming import package_refused, use_package, use_pkg_config
from installing import Tools, configured, expect_equal, files, fresh, lay_out, moved, parse_arguments, version

OTHER = {'shared': 'static', 'static': 'shared'}


def main(tools: Tools, library: str, folder: pathlib.Path) -> None:
    other = OTHER[library]
    build = configured(tools, fresh(folder) / 'build', f'-DQV8NUMERIC_BUILD_{other.upper()}=OFF')
    prefix = moved(lay_out(tools, build, folder / 'prefix'), folder / 'a moved prefix')
    suffixes = ('a',) if library == 'static' else ('so', 'so.1', f'so.{version(tools)}')
    expect_equal('libraries', {name for name in files(prefix) if name.startswith('lib/lib')},
                 {f'lib/libqv8numeric.{suffix}' for suffix in suffixes})

    targets = {'qv8numeric': library, **({'static': library} if library == 'static' else {})}
    use_package(tools, prefix, folder / 'package', f'1 COMPONENTS {library}', targets)
    package_refused(tools, prefix, folder / 'refused', f'1 COMPONENTS {other}',
                    f'qv8numeric has no component "{other}" here, but: {library}')
    use_pkg_config(tools, prefix, folder / 'pkg-config', library)


arguments = parse_arguments(__doc__, 'library', 'folder')
main(arguments.tools, arguments.library, pathlib.Path(arguments.folder))
