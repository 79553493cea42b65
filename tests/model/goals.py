# SPDX-License-Identifier: MIT
"""What a drawing function aims at, and what all of them use."""

from typing import NamedTuple

from cells import ONE, TWO
from rounding import HALF_EVEN, NAN


class Goal(NamedTuple):
    mode: int
    outcome: str
    width: str

    @property
    def negative(self):
        return self.outcome == 'UNDERFLOW'

    @property
    def exact(self):
        return self.outcome != 'INEXACT'

    @property
    def valid(self):
        return self.mode <= HALF_EVEN

    @property
    def out_of_range(self):
        return self.outcome in ('OVERFLOW', 'UNDERFLOW')


def infos(source, goal, *scales):
    """Infos for the scales. The last one's mode is the goal's; one invalid mode may stand in any of them."""
    modes = [source.mode() for _ in scales]
    if goal.valid:
        modes[-1] = goal.mode
    else:
        modes[source.under(len(scales))] = goal.mode
        if source.chance(0.3):
            modes = [source.invalid_mode() if source.chance(0.5) else mode for mode in modes]
            modes[source.under(len(scales))] = goal.mode
    return tuple(zip(scales, modes))


def narrow(goal):
    return goal.width if goal.width in (ONE, TWO) else None


def with_nan(source):
    """Two operands, at least one of them NaN."""
    other = source.coefficient()
    return source.pick(((NAN, other), (other, NAN), (NAN, NAN), (NAN, 0), (0, NAN)))
