# SPDX-License-Identifier: MIT
"""The compiled library, as a program that prints its tables and calls its functions."""
from __future__ import annotations

import dataclasses
import json
import pathlib
import subprocess
from typing import Any, Sequence


@dataclasses.dataclass(frozen=True)
class Divisor:
    """A row of a divisor_t table."""

    shift: int
    multiplier: int
    divisor: int


@dataclasses.dataclass(frozen=True)
class Power:
    """A row of the table of decimal powers."""

    power: int
    reciprocal: int
    word_reciprocal: int
    long_reciprocal: int
    shift: int


@dataclasses.dataclass(frozen=True)
class Tables:
    power_of_ten: list[int]
    negative_power_of_ten: list[Divisor]
    power_of_five: list[int]
    negative_power_of_five: list[Divisor]
    decimal_power: list[Power]
    reciprocal_seed: list[int]
    increased_by_mode: list[int]
    raised_by_mode: list[int]
    whole_log10_of_power_of_two: list[int]
    constants: dict[str, int]


class Compiled:
    def __init__(self, program: pathlib.Path) -> None:
        self.program = program

    def _run(self, argument: str, text: str = "") -> str:
        return subprocess.run([self.program, argument], input=text, stdout=subprocess.PIPE, text=True, check=True).stdout

    def tables(self) -> Tables:
        raw: dict[str, Any] = json.loads(self._run("tables"))
        for name in ("negative_power_of_ten", "negative_power_of_five"):
            raw[name] = [Divisor(*row) for row in raw[name]]
        raw["decimal_power"] = [
            Power(power_high << 64 | power_low, high << 64 | low, word, long, shift)
            for power_high, power_low, high, low, word, long, shift in raw["decimal_power"]
        ]
        return Tables(**raw)

    def call(self, calls: Sequence[tuple[str, Sequence[int]]]) -> list[list[int]]:
        """Function names with their arguments, and the answers: all of them in words of 64 bits."""
        lines = [" ".join((name, *map(str, arguments))) for name, arguments in calls]
        answers = self._run("calls", "\n".join(lines) + "\n").splitlines() if lines else []
        assert len(answers) == len(lines), "one answer to each call"
        return [[int(word) for word in answer.split()] for answer in answers]
