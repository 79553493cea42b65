#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Changes one thing of src/ at a time, rebuilds, and runs the tests until one of them notices.

A mutant that no test notices has to be answered: by a new test, or in survivors.txt by the reason why nothing can
notice it. Exit status 0 when every survivor is answered and enough are killed, 1 otherwise.

Results are kept in build/mutation/results as long as neither the library nor the tests change, so a campaign that was
broken off goes on where it stood.
"""

from __future__ import annotations

import argparse
import hashlib
import json
import os
import queue
import sys
import threading
import time
from pathlib import Path
from typing import Dict, List, Optional

from answers import read_answers
from cpp import NATIVE
from mutants import Mutant, in_drawn_order, mutants_of, quotas, source_files
from quick import run_quick
from report import Judged, print_summary, summarize
from workshop import DECISIVE, Order, Verdict, Workshop

ROOT = Path(__file__).resolve().parents[2]
WORK = ROOT / 'build' / 'mutation'
RESULTS = WORK / 'results'
ANSWERS = Path(__file__).with_name('survivors.txt')
LEAST_PER_FILE = 10


def parse_arguments() -> argparse.Namespace:
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument('--seed', type=int, default=1, help='which mutants are drawn (default %(default)s)')
    parser.add_argument('--count', type=int, default=500, help='how many in all (default %(default)s)')
    parser.add_argument('--file', action='append', metavar='F', help='only this file; may be repeated')
    parser.add_argument('--jobs', type=int, default=os.cpu_count(), help='at once (default: one for each processor)')
    parser.add_argument('--only-survivors', action='store_true',
                        help='what was killed before is killed still: for sources as they were, where tests were added')
    parser.add_argument('--quick', action='store_true', help='ten mutants and a check of this program itself')
    return parser.parse_args()


def digest_of_sources() -> str:
    """Of all that decides on a verdict."""
    digest = hashlib.sha256()
    for name in DECISIVE:
        paths = sorted((ROOT / name).rglob('*')) if (ROOT / name).is_dir() else [ROOT / name]
        for path in paths:
            if path.is_file() and '__pycache__' not in path.parts and path.parent != Path(__file__).parent:
                digest.update(f'{path.relative_to(ROOT)}\n'.encode() + path.read_bytes())
    return digest.hexdigest()[:16]


class Campaign:
    def __init__(self, arguments: argparse.Namespace) -> None:
        self.arguments = arguments
        self.sources = digest_of_sources()
        self.all: Dict[str, List[Mutant]] = {}
        for file in source_files(ROOT):
            by_operator = mutants_of(file, (ROOT / file).read_text())
            self.all[file] = in_drawn_order(by_operator, arguments.seed, file)
        self.sizes = {file: len(mutants) for file, mutants in self.all.items()}
        self.quota = quotas(self.sizes, arguments.count, LEAST_PER_FILE)
        if arguments.file:
            unknown = set(arguments.file) - set(self.all)
            if unknown:
                sys.exit(f'no source file: {", ".join(sorted(unknown))}')
            self.quota = {file: self.quota[file] for file in arguments.file}
        self.judged: List[Judged] = []
        self.lock = threading.Lock()
        self.order = Order()
        self.failure: Optional[BaseException] = None

    def existing(self) -> set:
        return {mutant.words for mutants in self.all.values() for mutant in mutants}

    # ---- Results ----

    def known(self, mutant: Mutant) -> Optional[Verdict]:
        path = RESULTS / f'{mutant.identity}.json'
        if not path.exists():
            return None
        result = json.loads(path.read_text())
        verdict = Verdict(result['verdict'], result['by'], result['detail'])
        if self.arguments.only_survivors:
            return None if verdict.verdict == 'survived' and result['sources'] != self.sources else verdict
        return verdict if result['sources'] == self.sources else None

    def keep(self, mutant: Mutant, verdict: Verdict, seconds: float) -> None:
        path = RESULTS / f'{mutant.identity}.json'
        path.with_suffix('.new').write_text(json.dumps({
            'file': mutant.file, 'definition': mutant.definition, 'operator': mutant.operator, 'build': mutant.build,
            'before': mutant.before, 'after': mutant.after, 'verdict': verdict.verdict, 'by': verdict.by,
            'detail': verdict.detail, 'seconds': round(seconds, 1), 'sources': self.sources}, indent=1) + '\n')
        path.with_suffix('.new').replace(path)

    # ---- The work ----

    def judge_file(self, workshop: Workshop, file: str) -> None:
        """In the drawn order until the file has its number; what turns out to be no mutant does not count."""
        counted = 0
        for mutant in self.all[file]:
            if counted == self.quota[file] or self.failure is not None:
                return
            verdict = self.known(mutant)
            if verdict is None:
                begun = time.monotonic()
                verdict = workshop.judge(mutant)
                self.keep(mutant, verdict, time.monotonic() - begun)
                self.tell(mutant, verdict, time.monotonic() - begun)
            counted += verdict.verdict in ('killed', 'survived')
            with self.lock:
                self.judged.append((mutant, verdict))

    def tell(self, mutant: Mutant, verdict: Verdict, seconds: float) -> None:
        with self.lock:
            print(f'{seconds:6.1f} s  {verdict.verdict} {verdict.by} {verdict.detail}'.rstrip(), flush=True)
            if verdict.verdict == 'survived':
                print(mutant, flush=True)

    def worker(self, number: int, files: 'queue.SimpleQueue[str]') -> None:
        try:
            workshop = Workshop(ROOT, WORK / f'worker-{number}', self.sources, self.order)
            workshop.prepare(NATIVE, 1)
            while self.failure is None:
                self.judge_file(workshop, files.get_nowait())
        except queue.Empty:
            pass
        except BaseException as failure:  # pylint: disable=broad-except
            self.failure = failure

    def run(self) -> None:
        RESULTS.mkdir(parents=True, exist_ok=True)
        files: 'queue.SimpleQueue[str]' = queue.SimpleQueue()
        for file in sorted(self.quota, key=lambda file: (Path(file).suffix != '.h', -self.quota[file])):
            files.put(file)  # the headers first: they take longest
        workers = [threading.Thread(target=self.worker, args=(number, files))
                   for number in range(self.arguments.jobs)]
        for worker in workers:
            worker.start()
        for worker in workers:
            worker.join()
        if self.failure is not None:
            raise self.failure


def main() -> int:
    arguments = parse_arguments()
    if arguments.quick:
        return run_quick(ROOT, WORK / 'quick', digest_of_sources())
    campaign = Campaign(arguments)
    answers = read_answers(ANSWERS)
    campaign.run()
    if arguments.file:
        answers = {words: answer for words, answer in answers.items() if words[0] in arguments.file}
    summary = summarize(campaign.judged, answers, campaign.existing())
    print_summary(summary, campaign.sizes)
    return 0 if summary.passed else 1


if __name__ == '__main__':
    sys.exit(main())
