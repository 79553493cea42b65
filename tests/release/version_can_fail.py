# SPDX-License-Identifier: MIT
"""The release check sees one wrong number, and a missing one, in every place that it knows.

usage: version_can_fail.py SOURCE BUILD
"""
import os
import pathlib
import re
import shutil
import sys
import tempfile
from typing import Iterator

from places import HEADER, PLACES, VERSION_STRING, Place, findings, numbers

WRONG = '987'

# What is not there yet in every tree is written here as it will be.
SAMPLES = {
    'CHANGELOG.md': '# Changelog\n\n## [Unreleased]\n\n## [{version}] - 2026-11-21\n\n## [0.1.0] - 2026-01-01\n',
    'bindings/python/src/qv8numeric/version.py': '__version__ = "{version}"\n',
    'docs/man/qv8numeric.7': '.Dt QV8NUMERIC 7\n.Os "qv8numeric {version}"\n',
}
NAMES = (
    'qv8numeric-{wrong}.0.0.tar.gz',
    'qv8numeric {wrong}.0.0',
    'libqv8numeric.so.{major}.{wrong}.0',
    'libqv8numeric.so.{wrong}',
    'apt install libqv8numeric{wrong}',
)


def copy(source: pathlib.Path, build: pathlib.Path, folder: pathlib.Path) -> 'tuple[pathlib.Path, pathlib.Path]':
    """The places of the sources and of the build folder, and no more to search for names."""
    copies = folder / 'source', folder / 'build'
    for place in PLACES:
        original, target = (build, copies[1]) if place.built else (source, copies[0])
        for path in original.glob(place.files):
            (target / path.relative_to(original)).parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(path, target / path.relative_to(original))
    for path in build.glob('libqv8numeric.so.*'):
        (copies[1] / path.name).touch()
    return copies


def accepted(what: str, finding: str, source: pathlib.Path, build: pathlib.Path) -> Iterator[str]:
    found = findings(source, build)
    if not any(text.startswith(finding) for text in found):
        yield f'{what}: accepted, with these findings: {found}'


def place_failures(place: Place, version: str, source: pathlib.Path, build: pathlib.Path) -> Iterator[str]:
    path = next((build if place.built else source).glob(place.files))
    text = path.read_text(encoding='utf-8')
    match = re.search(place.pattern, text, flags=re.MULTILINE)
    if not match:
        yield f'{place.files}: no version to change'
        return
    right = numbers(version, place.part)
    path.write_text(text[:match.start(1)] + WRONG + text[match.end(1):], encoding='utf-8')
    yield from accepted('a wrong number', f'{place.files}: {WRONG} instead of {right}', source, build)
    path.write_text(re.sub(place.pattern, '', text, flags=re.MULTILINE), encoding='utf-8')
    yield from accepted('no number', f'{place.files}: ', source, build)
    if not place.optional and place.files != HEADER:
        path.unlink()
        yield from accepted('no file', f'{place.files}: missing', source, build)
    path.write_text(text, encoding='utf-8')


def library_failures(version: str, source: pathlib.Path, build: pathlib.Path) -> Iterator[str]:
    library = build / f'libqv8numeric.so.{version}'
    other = library.rename(build / f'libqv8numeric.so.{WRONG}')
    yield from accepted('a library of another version', 'libqv8numeric.so: ', source, build)
    other.rename(library)


def name_failures(version: str, source: pathlib.Path, build: pathlib.Path) -> Iterator[str]:
    page = source / 'docs/names.md'
    for name in NAMES:
        text = name.format(wrong=WRONG, major=numbers(version, slice(0, 1)))
        page.write_text(f'A page.\nIt speaks of {text}.\n', encoding='utf-8')
        yield from accepted(text, 'docs/names.md:2: ', source, build)
    page.unlink()


def main(original_source: str, original_build: str) -> None:
    with tempfile.TemporaryDirectory() as folder:
        source, build = copy(pathlib.Path(original_source), pathlib.Path(original_build), pathlib.Path(folder))
        version = VERSION_STRING.findall((source / HEADER).read_text(encoding='utf-8'))[0]
        for name, sample in SAMPLES.items():
            if not (source / name).exists():
                os.makedirs((source / name).parent, exist_ok=True)
                (source / name).write_text(sample.format(version=version), encoding='utf-8')
        failures = [f'the tree as it is: {finding}' for finding in findings(source, build)]
        for place in PLACES:
            failures += place_failures(place, version, source, build)
        failures += library_failures(version, source, build)
        failures += name_failures(version, source, build)
        failures += [f'the tree at the end: {finding}' for finding in findings(source, build)]
    print('\n'.join(failures))
    sys.exit(1 if failures else 0)


main(*sys.argv[1:])
