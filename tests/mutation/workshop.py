# SPDX-License-Identifier: MIT
"""Where a mutant is built and tested: a copy of the project of its own, built once, in which one file at a time is
changed. The test programs that use the shared library stay as they are. Those with the static one are linked anew, and
compiled anew where they include the file, so most of them wait until no other test has noticed anything.
"""

from __future__ import annotations

import filecmp
import json
import os
import re
import resource
import shutil
import subprocess
import tempfile
import threading
import time
from dataclasses import dataclass
from pathlib import Path
from typing import Dict, List, Optional, Sequence

from cpp import BOTH, NATIVE, PORTABLE
from mutants import Mutant

DECISIVE = ('CMakeLists.txt', 'bindings', 'cmake', 'examples', 'fuzz', 'include', 'src', 'tests')  # for a verdict
NOT_COPIED = ('.git', 'build')
# These look at how the library is built, packaged or described, or at what it may cost, and not at its results.
NOT_ASKED = re.compile(r'(abi|bounds|docs|gdb|install|memory|release|threads)\b')
TOGETHER = Path(__file__).with_name('together.cmake')
LIBRARY = re.compile(r'libqv8numeric\.(so|a)\b')
BUILD_SECONDS = 300
SECONDS_TO_COMPILE = 8  # a test program, on a machine that has more to do: rather too many than too few
MEMORY = 4 << 30
OUTPUT = 64 << 20


@dataclass
class Ran:
    status: Optional[int]  # None when it came to no end
    output: str
    seconds: float  # of the processor


def run(command: Sequence[str], folder: Path, seconds: float, limited: bool = False,
        extra: Optional[Dict[str, str]] = None) -> Ran:
    """Ends what does not end by itself. A limited program is given so many seconds of the processor, which do not
    depend on what else the machine does, and bounds for its memory and output."""
    def limit() -> None:
        resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
        if limited:
            whole = int(seconds) + 1
            resource.setrlimit(resource.RLIMIT_CPU, (whole, whole))
            resource.setrlimit(resource.RLIMIT_AS, (MEMORY, MEMORY))
            resource.setrlimit(resource.RLIMIT_FSIZE, (OUTPUT, OUTPUT))

    with tempfile.TemporaryFile() as output:
        process = subprocess.Popen(command, cwd=folder, stdin=subprocess.DEVNULL, stdout=output,
                                   stderr=subprocess.STDOUT, preexec_fn=limit, start_new_session=True,
                                   env={**os.environ, **(extra or {})})
        ended = threading.Event()

        def end_group() -> None:
            if not ended.wait(20 * seconds + 60 if limited else seconds):
                os.killpg(process.pid, 9)

        watch = threading.Thread(target=end_group, daemon=True)
        watch.start()
        _, status, usage = os.wait4(process.pid, 0)
        ended.set()
        watch.join()
        process.returncode = code = os.waitstatus_to_exitcode(status)
        output.seek(0)
        text = output.read(1 << 20).decode(errors='replace')
    return Ran(None if code in (-9, -24) else code, text, usage.ru_utime + usage.ru_stime)


@dataclass
class Test:
    name: str
    command: List[str]
    folder: Path
    extra: Dict[str, str]
    targets: List[str]  # what has to be built for it
    static: bool  # it has the static library in it, or is handed it
    seconds: float = 0.0  # of the processor, with the library as it is


class Failed(Exception):
    """Something that has to work with the library as it is does not."""


class Build:
    """One configuration of the project in a folder of its own."""

    def __init__(self, tree: Path, folder: Path, options: Sequence[str], programs: Sequence[str]) -> None:
        self.tree, self.folder, self.options = tree, folder, options
        self.programs = programs  # the only ones to be built and run; all for none
        self.tests: List[Test] = []
        self.library = b''

    def prepare(self, sources: str, jobs: int) -> None:
        """Everything is built, and every test that takes part passes. Not looked at again for the same sources."""
        self._expect(run(['cmake', '-S', str(self.tree), '-B', str(self.folder), '-G', 'Ninja',
                          '-DCMAKE_BUILD_TYPE=Release', '-DCMAKE_CXX_FLAGS_RELEASE=-O1 -DNDEBUG',
                          '-DQV8NUMERIC_BUILD_TESTS=ON', '-DQV8NUMERIC_BUILD_EXAMPLES=ON',
                          '-DCMAKE_LINK_DEPENDS_NO_SHARED=ON', f'-DCMAKE_PROJECT_qv8numeric_INCLUDE={TOGETHER}',
                          *self.options], self.tree, BUILD_SECONDS))
        self._expect(self.make(self.programs or ['all'], jobs))
        self.tests = self._find_tests()
        self.library = self.library_now()
        kept = self.folder / 'seconds.json'
        known = json.loads(kept.read_text()) if kept.exists() else {}
        if known.get('sources') != sources:
            known = {'sources': sources}
            for test in self.tests:
                ran = self.run_test(test, BUILD_SECONDS)
                self._expect(ran)
                known[test.name] = ran.seconds
            kept.write_text(json.dumps(known))
        for test in self.tests:
            test.seconds = known[test.name]

    def library_now(self) -> bytes:
        return (self.folder / 'libqv8numeric.so').read_bytes()

    def make(self, targets: Sequence[str], jobs: int = 1) -> Ran:
        return run(['ninja', '-C', str(self.folder), f'-j{jobs}', '--quiet', *dict.fromkeys(targets)], self.folder,
                   BUILD_SECONDS * (10 if jobs > 1 else 1))

    def run_test(self, test: Test, seconds: float) -> Ran:
        return run(test.command, test.folder, seconds, True, test.extra)

    @staticmethod
    def _expect(ran: Ran) -> None:
        if ran.status != 0:
            raise Failed(ran.output[-4000:])

    def _find_tests(self) -> List[Test]:
        """The tests that see the library: their programs are linked with it, or they are handed its file."""
        listed = run(['ctest', '--show-only=json-v1'], self.folder, BUILD_SECONDS)
        self._expect(listed)
        known = set(re.findall(r'^(\S+): ', run(['ninja', '-t', 'targets', 'all'], self.folder, BUILD_SECONDS).output,
                               re.MULTILINE))
        tests: List[Test] = []
        for entry in json.loads(listed.output)['tests']:
            properties = {item['name']: item['value'] for item in entry['properties']}
            command = entry.get('command', [])  # none for a program that has not been built
            if NOT_ASKED.match(entry['name']):
                continue
            if self.programs and Path((command or [''])[0]).name not in self.programs:
                continue
            names = [os.path.relpath(word, self.folder) for word in command if os.path.isabs(word)]
            targets = [name for name in names if name in known]
            linked = set()
            for target in targets:
                commands = run(['ninja', '-t', 'commands', '-s', target], self.folder, BUILD_SECONDS).output
                linked |= set(LIBRARY.findall(f'{target} {commands}' if LIBRARY.search(target) else commands))
            if linked:
                tests.append(Test(entry['name'], command, Path(properties['WORKING_DIRECTORY']),
                                  environment(properties), targets, 'a' in linked))
        return tests


def environment(properties: Dict[str, object]) -> Dict[str, str]:
    given = properties.get('ENVIRONMENT', [])
    pairs = [given] if isinstance(given, str) else list(given)
    return {**dict(pair.split('=', 1) for pair in pairs), 'GTEST_FAIL_FAST': '1', 'GTEST_BRIEF': '1'}


class Order:
    """Which test comes first: the one that has noticed most for the seconds it takes, in the same file above all."""

    def __init__(self) -> None:
        self.lock = threading.Lock()
        self.kills: Dict[tuple, int] = {}

    def noticed(self, test: Test, file: str) -> None:
        with self.lock:
            for key in ((test.name, file), test.name):
                self.kills[key] = self.kills.get(key, 0) + 1

    def sorted(self, tests: Sequence[Test], file: str) -> List[Test]:
        subject = Path(file).stem

        def worth(test: Test) -> float:
            by_name = 5 if test.name.split('.')[-1] == subject else 0
            kills = 1 + by_name + 5 * self.kills.get((test.name, file), 0) + self.kills.get(test.name, 0)
            return kills / (0.05 + test.seconds + (SECONDS_TO_COMPILE if test.static else 0))

        with self.lock:
            return sorted(tests, key=worth, reverse=True)


@dataclass
class Verdict:
    verdict: str  # killed or survived, or one that is no mutant: stillborn, or unchanged in its machine code
    by: str = ''  # the test, or what else noticed
    detail: str = ''


ASSERTION = re.compile(r'static assertion failed|non-constant condition for static assertion|static_assert')


def of_compiler(output: str) -> Verdict:
    """A program that only its own assertions refuse has been noticed; one that is no C++ has not been tested."""
    errors = re.findall(r'^(?:.*/tree/)?(.*?: (?:fatal )?error: .*)$', output, re.MULTILINE)
    if errors and all(ASSERTION.search(error) for error in errors):
        return Verdict('killed', 'static_assert', errors[0])
    return Verdict('stillborn', 'the compiler', errors[0] if errors else output[-300:])


def what_failed(ran: Ran) -> str:
    if ran.status is None:
        return 'no end'
    found = re.search(r'^\[  FAILED  \] (\S+)', ran.output, re.MULTILINE)
    return found.group(1) if found else f'status {ran.status}'


class Workshop:
    def __init__(self, root: Path, folder: Path, sources: str, order: Order, programs: Sequence[str] = ()) -> None:
        self.root, self.tree, self.sources, self.order = root, folder / 'tree', sources, order
        self.builds = {build: Build(self.tree, folder / build, options, programs) for build, options in
                       ((NATIVE, ()), (PORTABLE, ('-DQV8NUMERIC_PORTABLE=ON',)))}
        self.prepared: set = set()

    def prepare(self, build: str, jobs: int) -> None:
        if not self.prepared:
            for path in self.root.iterdir():
                if path.name not in NOT_COPIED:
                    mirror(path, self.tree / path.name)
        if build not in self.prepared:
            self.builds[build].prepare(self.sources, jobs)
            self.prepared.add(build)

    def judge(self, mutant: Mutant) -> Verdict:
        """An unchanged library may still be another one where it has to do without what this machine brings along."""
        path = self.tree / mutant.file
        source = path.read_text()
        first = PORTABLE if mutant.build == PORTABLE else NATIVE
        self.prepare(first, 1)
        try:
            path.write_text(mutant.change.apply(source))
            verdict = self._judge(self.builds[first], mutant.file)
            if verdict.verdict != 'unchanged' or mutant.build != BOTH:
                return verdict
        finally:
            path.write_text(source)
        self.prepare(PORTABLE, 1)
        try:
            path.write_text(mutant.change.apply(source))
            return self._judge(self.builds[PORTABLE], mutant.file)
        finally:
            path.write_text(source)

    def _judge(self, build: Build, file: str) -> Verdict:
        made = build.make(['qv8numeric'])
        if made.status != 0:
            return of_compiler(made.output)
        unchanged = build.library_now() == build.library
        for test in self.order.sorted(build.tests, file):
            if unchanged and not test.static:
                continue  # what has not changed cannot be told apart; only a routine that it does not use can
            if test.static:
                made = build.make(test.targets)
                if made.status != 0:
                    return of_compiler(made.output)
            ran = build.run_test(test, 4 * test.seconds + 2)
            if ran.status != 0:
                self.order.noticed(test, file)
                return Verdict('killed', test.name, what_failed(ran))
        return Verdict('unchanged' if unchanged else 'survived')


def mirror(source: Path, target: Path) -> None:
    """Copies what differs and nothing else, so that only that is built again."""
    if source.is_dir():
        target.mkdir(parents=True, exist_ok=True)
        names = {path.name for path in source.iterdir() if path.name != '__pycache__'}
        for extra in target.iterdir():
            if extra.name not in names:
                shutil.rmtree(extra) if extra.is_dir() else extra.unlink()
        for name in names:
            mirror(source / name, target / name)
    elif not target.exists() or not filecmp.cmp(source, target, shallow=False):
        target.parent.mkdir(parents=True, exist_ok=True)
        shutil.copy2(source, target)
        os.utime(target)
