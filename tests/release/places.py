# SPDX-License-Identifier: MIT
"""Every place where the version is written, and what is wrong there."""
import dataclasses
import os
import pathlib
import re
from typing import Iterator, List

HEADER = 'include/qv8numeric.h'
VERSION_STRING = re.compile(r'^#define QV8NUMERIC_VERSION_STRING "(\d+\.\d+\.\d+)"$', flags=re.MULTILINE)


@dataclasses.dataclass(frozen=True)
class Place:
    """Files, and what stands there around the version or a part of it. Every match counts, and there has to be one."""
    files: str           # a pattern, in the sources or in the build folder
    pattern: str         # its group is the version, or that part of it
    part: slice          # which of the numbers: all, the first ...
    built: bool = False
    optional: bool = False  # the file, not the version in it


ALL, MAJOR, MINOR, PATCH = slice(3), slice(0, 1), slice(1, 2), slice(2, 3)

PLACES = (
    Place(HEADER, r'^#define QV8NUMERIC_VERSION_MAJOR (.*)$', MAJOR),
    Place(HEADER, r'^#define QV8NUMERIC_VERSION_MINOR (.*)$', MINOR),
    Place(HEADER, r'^#define QV8NUMERIC_VERSION_PATCH (.*)$', PATCH),
    Place('src/qv8numeric.map', r'^QV8NUMERIC_(\d+)', MAJOR),
    Place('CHANGELOG.md', r'\A(?:(?!## \[\d).*\n)*## \[(\d.*?)\]', ALL, optional=True),  # the newest with a number
    Place('bindings/python/src/qv8numeric/version.py', r'^__version__ = "(.*)"$', ALL, optional=True),
    Place('docs/man/qv8numeric.7', r'^\.Os "qv8numeric (.*)"$', ALL, optional=True),
    Place('debian/changelog', r'\A#.*\nqv8numeric \((.*)-\d+\)', ALL),
    Place('debian/control', r'^Package: libqv8numeric(\d+)$', MAJOR),
    Place('debian/libqv8numeric*.symbols', r'^libqv8numeric\.so\.(\d+) ', MAJOR),
    Place('debian/libqv8numeric*.symbols', r'^libqv8numeric\.so\.\d+ libqv8numeric(\d+) ', MAJOR),
    Place('CMakeCache.txt', r'^CMAKE_PROJECT_VERSION:.*=(.*)$', ALL, built=True),
    Place('install/qv8numeric.pc', r'^Version: (.*)$', ALL, built=True),
    Place('install/qv8numeric-config-version.cmake', r'^set\(PACKAGE_VERSION "(.*)"\)$', ALL, built=True),
)

# Names that carry the version, wherever in the sources a text speaks of them. A changelog speaks of older ones too.
NAMES = (
    (re.compile(r'\bqv8numeric[ _-]v?(\d+\.\d+\.\d+)'), ALL),
    (re.compile(r'\blibqv8numeric\.so\.(\d+\.\d+\.\d+)'), ALL),
    (re.compile(r'\blibqv8numeric\.so\.(\d+)\b(?!\.\d)'), MAJOR),
    (re.compile(r'\blibqv8numeric(\d+)\b'), MAJOR),
)
HISTORIES = ('CHANGELOG.md', 'debian/changelog')
LIBRARY = re.compile(r'libqv8numeric\.so\.(.*)')


def numbers(version: str, part: slice) -> str:
    return '.'.join(version.split('.')[part])


def is_source_folder(path: str) -> bool:
    name = os.path.basename(path)
    return not (name.startswith('build') or name in ('.git', '__pycache__') or os.path.exists(f'{path}/CMakeCache.txt'))


def texts(source: pathlib.Path) -> Iterator[pathlib.Path]:
    """The files of the source tree that are text."""
    for folder, folders, names in os.walk(source):
        folders[:] = [name for name in folders if is_source_folder(os.path.join(folder, name))]
        yield from (pathlib.Path(folder, name) for name in names)


def read(path: pathlib.Path) -> str:
    return path.read_text(encoding='utf-8', errors='replace')


def place_findings(place: Place, source: pathlib.Path, build: pathlib.Path, version: str) -> Iterator[str]:
    expected = numbers(version, place.part)
    paths = sorted((build if place.built else source).glob(place.files))
    if not paths and not place.optional:
        yield f'{place.files}: missing'
    for path in paths:
        written: List[str] = re.findall(place.pattern, read(path), flags=re.MULTILINE)
        if not written:
            yield f'{place.files}: no version by {place.pattern}'
        yield from (f'{place.files}: {text} instead of {expected}' for text in written if text != expected)


def name_findings(source: pathlib.Path, version: str) -> Iterator[str]:
    for path in texts(source):
        place = str(path.relative_to(source))
        if place in HISTORIES:
            continue
        text = read(path)
        for name, part in NAMES:
            for match in name.finditer(text):
                if match.group(1) != numbers(version, part):
                    line = text.count('\n', 0, match.start()) + 1
                    yield f'{place}:{line}: {match.group()} instead of {numbers(version, part)}'


def library_findings(build: pathlib.Path, version: str) -> Iterator[str]:
    """The built shared library and the links to it."""
    found = {match.group(1) for match in (LIBRARY.fullmatch(path.name) for path in build.iterdir()) if match}
    expected = {version, numbers(version, MAJOR)}
    if found != expected:
        yield f'libqv8numeric.so: {sorted(found)} instead of {sorted(expected)}'


def findings(source: pathlib.Path, build: pathlib.Path) -> List[str]:
    header = VERSION_STRING.findall(read(source / HEADER))
    if len(header) != 1:
        return [f'{HEADER}: {len(header)} version strings']
    version = header[0]
    found = [*name_findings(source, version), *library_findings(build, version)]
    for place in PLACES:
        found += place_findings(place, source, build, version)
    return found
