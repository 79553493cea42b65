# SPDX-License-Identifier: MIT
"""What travels beside a value: how many of its digits are decimal places, and how they are dropped."""

import dataclasses
import enum
import operator

from . import raw


class Rounding(enum.IntEnum):
    """How a magnitude is rounded when nonzero digits are dropped; the numbers are those of the C library.

                        2.5   -2.5    2.51  -2.51
    """

    #: away from zero     3     -3      3     -3
    UP = 0
    #: towards zero       2     -2      2     -2
    DOWN = 1
    #: towards plus inf.  3     -2      3     -2
    CEILING = 2
    #: towards minus inf. 2     -3      2     -3
    FLOOR = 3
    #: tie away from zero 3     -3      3     -3
    HALF_UP = 4
    #: tie towards zero   2     -2      3     -3
    HALF_DOWN = 5
    #: tie to even        2     -2      3     -3
    HALF_EVEN = 6

    def __repr__(self) -> str:
        return f"Rounding.{self.name}"


@dataclasses.dataclass(frozen=True, repr=False)
class Info:
    """A scale, and the rounding mode of results that it describes.

    scale is any integer of 32 bits, also a negative one: a value is its coefficient times 10^-scale.

    >>> Info(2)
    Info(2, Rounding.HALF_EVEN)
    >>> Info(-3, Rounding.UP).mode
    Rounding.UP
    """

    scale: int
    mode: Rounding = Rounding.HALF_EVEN
    #: The same for the C library, which only reads it.
    struct: raw.NumericInfo = dataclasses.field(init=False, compare=False)

    def __post_init__(self) -> None:
        scale = operator.index(self.scale)
        if not -(2**31) <= scale < 2**31:
            raise ValueError(f"a scale has 32 bits, which {scale} has not")
        mode = Rounding(self.mode)
        object.__setattr__(self, "scale", scale)
        object.__setattr__(self, "mode", mode)
        object.__setattr__(self, "struct", raw.NumericInfo(scale, mode))

    def __repr__(self) -> str:
        return f"Info({self.scale}, {self.mode!r})"

    def __reduce__(self) -> "tuple[type[Info], tuple[int, Rounding]]":
        return Info, (self.scale, self.mode)


#: Integers as they are.
INTEGERS = Info(0)
