# SPDX-License-Identifier: MIT
"""What became of an operation, as a value and, where that is asked for, as an exception."""

import contextlib
import contextvars
import enum
from typing import Any, Dict, FrozenSet, Iterator, Optional, Set, Tuple, Type, TypeVar

T = TypeVar("T")


class Status(enum.IntEnum):
    """The outcome of an operation; the numbers are those of the C library.

    OK and INEXACT are successes. After NAN, OVERFLOW and UNDERFLOW the value is NaN.
    """

    OK = 0
    #: An operand was NaN, or a divisor zero.
    NAN = 1
    #: A success: nonzero digits were dropped, the result is rounded.
    INEXACT = 2
    #: The true result is above 2^127 - 1 units of its last place.
    OVERFLOW = 3
    #: The true result is below -(2^127 - 1) units; it is not close to zero.
    UNDERFLOW = 4
    #: The text is no number.
    SYNTAX_ERROR = -1
    BUFFER_TOO_SMALL = -2
    INVALID_ARGUMENT = -3

    @property
    def is_success(self) -> bool:
        return self is Status.OK or self is Status.INEXACT

    def __repr__(self) -> str:
        return f"Status.{self.name}"


#: Status(number), but faster.
STATUS_OF: Dict[int, Status] = {int(status): status for status in Status}


class StatusError(ArithmeticError):
    """An operation ended with a status that was asked to be raised.

    status is that status, and value what the operation gives with it.
    """

    def __init__(self, message: str, status: Status, value: Any = None) -> None:
        super().__init__(message)
        self.status = status
        self.value = value

    def __reduce__(self) -> Tuple[Any, ...]:
        return type(self), (self.args[0], self.status, self.value)


class NanError(StatusError):
    """An operand was NaN, or a divisor zero."""


class InexactError(StatusError):
    """Nonzero digits were dropped. value is the rounded result."""


class OutOfRangeError(StatusError, OverflowError):
    """The result needs more than 127 bits, above (OVERFLOW) or below (UNDERFLOW)."""


class LiteralError(StatusError, ValueError):
    """A text is no number."""


ERRORS: Dict[Status, Tuple[Type[StatusError], str]] = {
    Status.NAN: (NanError, "an operand is NaN, or the divisor zero"),
    Status.INEXACT: (InexactError, "digits were dropped: the result is rounded"),
    Status.OVERFLOW: (OutOfRangeError, "the result is above the range of 127 bits"),
    Status.UNDERFLOW: (OutOfRangeError, "the result is below the range of 127 bits"),
    Status.SYNTAX_ERROR: (LiteralError, "the text is no number"),
    Status.BUFFER_TOO_SMALL: (StatusError, "the buffer is too small"),
    Status.INVALID_ARGUMENT: (StatusError, "there is no such rounding mode"),
}


def error_of(status: Status, value: Any = None, message: str = "") -> StatusError:
    error, general = ERRORS[status]
    return error(message or general, status, value)


class _Signals:
    """Which statuses are raised here, and those that came up, if anyone wants to know."""

    def __init__(self, raised: FrozenSet[Status], seen: Optional[Set[Status]]) -> None:
        self.raised = raised
        self.seen = seen


#: Statuses that operators and checked() raise unless raising() says otherwise: all but the two successes.
RAISED_BY_DEFAULT = frozenset(status for status in Status if not status.is_success)

_signals: "contextvars.ContextVar[_Signals]" = contextvars.ContextVar(
    "qv8numeric_signals", default=_Signals(RAISED_BY_DEFAULT, None)
)


@contextlib.contextmanager
def raising(*statuses: Status) -> Iterator[Set[Status]]:
    """Within it, operators and checked() raise exactly these statuses and let all others pass.

    It gives a set, in which every status but OK that comes up is collected, raised or not. What one thread or one
    asynchronous task sets is not seen by another.

    >>> from qv8numeric import Fixed, Info, Status, raising
    >>> third = Fixed(1, Info(2)) / 3
    >>> with raising(Status.INEXACT):
    ...     third / 2
    Traceback (most recent call last):
    ...
    qv8numeric.status.InexactError: digits were dropped: the result is rounded
    >>> with raising() as seen:
    ...     print(third / 2, third / 0)
    0.16 NaN
    >>> sorted(seen)
    [Status.NAN, Status.INEXACT]
    """
    seen: Set[Status] = set()
    token = _signals.set(_Signals(frozenset(statuses), seen))
    try:
        yield seen
    finally:
        _signals.reset(token)


def checked(outcome: Tuple[T, Status]) -> T:
    """The value of an outcome, where its status is not one to be raised: the way from a method to an operator.

    >>> from qv8numeric import Fixed, Info, checked
    >>> price, money = Fixed("1.2345", Info(4)), Info(2)
    >>> checked(price.mul(3, into=money))
    Fixed('3.70', Info(2, Rounding.HALF_EVEN))
    """
    value, status = outcome
    if status:
        signals = _signals.get()
        if signals.seen is not None:
            signals.seen.add(status)
        if status in signals.raised:
            raise error_of(status, value)
    return value
