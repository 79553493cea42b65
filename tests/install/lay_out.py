# SPDX-License-Identifier: MIT
"""`cmake --install` lays out what it should, component by component. Then leaves a whole installation, moved after it
was made, for the other tests.

usage: lay_out.py TOOLS BUILD MOVED
"""
import pathlib
from typing import Set

from installing import Tools, configured, expect_equal, files, fresh, lay_out, moved, parse_arguments, version

PACKAGE = 'lib/cmake/qv8numeric/qv8numeric-'


def expected(tools: Tools, component: str) -> Set[str]:
    if component == 'runtime':
        return {'lib/libqv8numeric.so.1', f'lib/libqv8numeric.so.{version(tools)}'}
    if component == 'development':
        configuration = tools.build_type.lower() or 'noconfig'
        targets = {f'{PACKAGE}{library}-targets{suffix}.cmake'
                   for library in ('shared', 'static') for suffix in ('', f'-{configuration}')}
        return targets | {'include/qv8numeric.h', 'lib/libqv8numeric.a', 'lib/libqv8numeric.so',
                          'lib/pkgconfig/qv8numeric.pc', f'{PACKAGE}config.cmake', f'{PACKAGE}config-version.cmake'}
    pages = {f'share/man/man{page.suffix[1:]}/{page.name}' for page in (tools.source / 'docs/man').glob('*.[37]')}
    examples = {f'share/doc/qv8numeric/examples/{example.relative_to(tools.source / "examples")}'
                for pattern in ('*.c', '*.csv') for example in (tools.source / 'examples').rglob(pattern)}
    assert 'share/doc/qv8numeric/examples/ledger.c' in examples
    return pages | examples | {'share/doc/qv8numeric/LICENSE'}


def main(tools: Tools, build: pathlib.Path, to: pathlib.Path) -> None:
    configured(tools, build)
    everything: Set[str] = set()
    for component in ('runtime', 'development', 'documentation'):
        prefix = lay_out(tools, build, fresh(to.parent / component), '--component', component)
        expect_equal(component, files(prefix), expected(tools, component))
        everything |= files(prefix)
    prefix = lay_out(tools, build, fresh(to.parent / 'prefix'))
    expect_equal('everything', everything - files(prefix), set())
    moved(prefix, to)


arguments = parse_arguments(__doc__, 'build', 'moved')
main(arguments.tools, pathlib.Path(arguments.build), pathlib.Path(arguments.moved))
