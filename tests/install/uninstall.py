# SPDX-License-Identifier: MIT
"""What installing makes, files and folders, the target `uninstall` takes away again, and nothing else: not what others
keep in the same folders, nor folders that were there before.

usage: uninstall.py TOOLS BUILD FOLDER
"""
import pathlib

from installing import Tools, content, expect_equal, fail, fresh, lay_out, parse_arguments, refused, run


def main(tools: Tools, build: pathlib.Path, folder: pathlib.Path) -> None:
    command = [tools.cmake, '--build', str(build), '--target', 'uninstall']
    run(command)  # of what earlier tests have installed from there
    prefix = fresh(folder) / 'a [new] prefix'
    lay_out(tools, build, prefix)
    run(command)
    expect_equal('left of a prefix of its own', content(folder), set())
    refused(command, 'Nothing was installed')

    (prefix / 'include').mkdir(parents=True)
    (prefix / 'share/man/man3').mkdir(parents=True)
    (prefix / 'share/man/man3/other.3').touch()
    (prefix / 'share/doc').mkdir(parents=True)
    before = content(folder)
    lay_out(tools, build, prefix)
    lay_out(tools, build, prefix)  # again, over the first
    (prefix / 'lib/pkgconfig/other.pc').touch()
    (prefix / 'include/qv8numeric.h').unlink()
    said = run(command)
    if 'Gone already' not in said:
        fail(f'no word of the file that was gone already:\n{said}')
    expect_equal('left in a prefix of many', content(folder),
                 before | {'a [new] prefix/lib', 'a [new] prefix/lib/pkgconfig', 'a [new] prefix/lib/pkgconfig/other.pc'})

    staged = folder / 'staged'
    run([tools.cmake, '--install', str(build), '--prefix', '/opt/anywhere'], DESTDIR=f'{staged}/')
    run(command, DESTDIR=f'{staged}/')
    if staged.exists():
        fail(f'left in a staged installation: {sorted(content(staged))}')


arguments = parse_arguments(__doc__, 'build', 'folder')
main(arguments.tools, pathlib.Path(arguments.build), pathlib.Path(arguments.folder))
