# SPDX-License-Identifier: MIT
"""What qv8numeric_bench measured: rows of contenders with their times, and the ratios that are read from them."""
from __future__ import annotations

import dataclasses
import json
import pathlib
import statistics

OURS = "qv8numeric"
PORTABLE = "portable"
BY_HAND = "by hand, __int128"
PLAIN = "plain, __int128"


@dataclasses.dataclass(frozen=True)
class Times:
    """One contender in one row: nanoseconds for each call, the median of all repetitions."""

    name: str
    lacking: str
    throughput: float
    latency: float

    @property
    def whole_job(self) -> bool:
        return not self.lacking


@dataclasses.dataclass(frozen=True)
class Row:
    """One operation on one class of operands."""

    group: str
    name: str
    operands: str
    reach: float  # 0 where no figure is set
    contenders: list[Times]

    @property
    def title(self) -> str:
        return f"{self.name}, {self.operands}" if self.operands else self.name

    def find(self, name: str) -> Times | None:
        return next((times for times in self.contenders if times.name == name), None)

    @property
    def ours(self) -> Times:
        return self.contenders[0]

    def fastest_peer(self, measure: str) -> Times | None:
        """The one that our time is compared with; peers that do a part of the job are not."""
        peers = [times for times in self.contenders[1:] if times.whole_job and times.name != PORTABLE]
        return min(peers, key=lambda times: getattr(times, measure), default=None)

    def ratio(self, measure: str) -> float | None:
        """The fastest peer's time over ours: above 1 we are faster."""
        peer = self.fastest_peer(measure)
        return getattr(peer, measure) / getattr(self.ours, measure) if peer else None

    def of_plain(self, measure: str) -> float | None:
        """The plain peer's time over ours."""
        plain = self.find(PLAIN)
        return getattr(plain, measure) / getattr(self.ours, measure) if plain else None

    def is_below_reach(self, ratio: float | None) -> bool:
        """Of one of the two ratios, by throughput."""
        return bool(self.reach) and (ratio is None or ratio < self.reach)


@dataclasses.dataclass(frozen=True)
class Run:
    """All rows, and what the program was built with."""

    compiler: str
    flags: str
    libraries: list[str]
    rows: list[Row]

    def group(self, *names: str) -> list[Row]:
        return [row for row in self.rows if row.group in names]

    def contenders(self, rows: list[Row]) -> list[str]:
        """The names in these rows, in the order of their first appearance."""
        return list(dict.fromkeys(times.name for row in rows for times in row.contenders))


def _row(data: dict) -> Row:
    contenders = [
        Times(entry["name"], entry["lacking"], statistics.median(entry["throughput"]),
              statistics.median(entry["latency"]))
        for entry in data["contenders"]
    ]
    return Row(data["group"], data["name"], data["operands"], data["reach"], contenders)


def load(*paths: pathlib.Path) -> Run:
    """One run from one or more files of the same program."""
    parts = [json.loads(path.read_text(encoding="utf-8")) for path in paths]
    rows = [_row(data) for part in parts for data in part["rows"]]
    return Run(parts[0]["compiler"], parts[0]["flags"], parts[0]["libraries"], rows)
