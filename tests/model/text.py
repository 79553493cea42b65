# SPDX-License-Identifier: MIT
"""What the formatters leave in a buffer and what the parsers make of a text."""

from typing import NamedTuple

from rounding import (BUFFER_TOO_SMALL, HALF_EVEN, INVALID_ARGUMENT, LIMIT, NAN, NOT_A_NUMBER, OK, SYNTAX_ERROR,
                      UNTOUCHED, move, settle)


class Written(NamedTuple):
    """What a buffer holds after a call: content at an offset; other bytes untouched, or free behind the content."""
    offset: int
    content: bytes
    free_behind: bool


NOTHING_WRITTEN = Written(0, b'', False)


def whole(text):
    """A finished text at the start of the buffer; what follows its NUL is scratch."""
    return Written(0, text + b'\0', True)


def exponent_suffix(shift):
    if shift == 0:
        return b''
    return b'E%c%d' % (b'-' if shift > 0 else b'+', abs(shift))


def grouped_by_three(digits):
    first = len(digits) % 3
    groups = [digits[:first]] if first else []
    groups += [digits[at:at + 3] for at in range(first, len(digits), 3)]
    return b','.join(groups)


def mantissa(digits, places, grouped, room):
    """The digits with `places` of them behind the point, or with -places zeros appended.

    At least the last `room` characters are right, and the text is longer than `room` when the true one is: places run
    into the thousands of millions, but beyond the buffer only one more of them counts.
    """
    text = b'%d' % digits
    if places > 0:
        places = min(places, room + 1)
        text = text.rjust(places + 1, b'0')
        integer, fraction = text[:-places], b'.' + text[-places:]
    else:
        zeros = min(-places, room + 1) if digits else 0
        integer, fraction = text + b'0' * zeros, b''
    return (grouped_by_three(integer) if grouped else integer) + fraction


def number_text(value, info, exponent_shift, output_scale, grouped, room):
    """Status and text of a number; the text is only good for its last `room` characters when it is longer than that."""
    negative = value < 0
    digits, inexact = move(abs(value), output_scale - info[0], negative, info[1])
    status, _ = settle(digits, negative, inexact)
    if digits > LIMIT:
        digits = LIMIT + 1  # the pattern of NaN is printed as the magnitude it is
    places = max(output_scale, 0) - exponent_shift
    # The sign is the value's: what rounds to zero keeps it.
    text = (b'-' if negative else b'') + mantissa(digits, places, grouped, room) + exponent_suffix(exponent_shift)
    return status, text


# No buffer lies in the first 64 KiB of the address space, so one of this size or more would wrap around its end.
WRAPPING_SIZE = 2**64 - 2**16


def format_number(value, info, exponent_shift, output_scale, size, grouped):
    """Status and what the buffer of that size holds."""
    if value == NAN:
        if size < 4:
            return BUFFER_TOO_SMALL, NOTHING_WRITTEN
        return NOT_A_NUMBER, whole(b'NaN')
    if size == 0 or size >= WRAPPING_SIZE:
        return BUFFER_TOO_SMALL, NOTHING_WRITTEN
    room = size - 1
    suffix = exponent_suffix(exponent_shift)
    if len(suffix) > room:
        return BUFFER_TOO_SMALL, right_aligned(suffix, size)
    if info[1] > HALF_EVEN:
        return INVALID_ARGUMENT, right_aligned(suffix, size)
    status, text = number_text(value, info, exponent_shift, output_scale, grouped, room)
    if len(text) > room:
        return BUFFER_TOO_SMALL, right_aligned(text, size)
    return status, whole(text)


def right_aligned(text, size):
    """Text is written from its end: as much of it as fits stands before a NUL in the buffer's last byte."""
    content = (text + b'\0')[-size:]
    return Written(size - len(content), content, False)


def num2str(value, info, exponent_shift, output_scale, size):
    return format_number(value, info, exponent_shift, output_scale, size, False)


def num2dgstr(value, info, exponent_shift, output_scale, size):
    return format_number(value, info, exponent_shift, output_scale, size, True)


END, POINT, SIGN, LONG_DIGITS, SHORT_DIGITS, GROUPS, EXPONENT, BAD = range(8)

DIGITS = frozenset(b'0123456789')


class Literal:
    """A text being read: the tokens do the arithmetic as they are taken, also the one that ends the number."""

    __slots__ = ('text', 'grouped', 'token_start', 'cursor', 'held', 'dropped', 'fraction_digits', 'chunk',
                 'chunk_digits', 'value', 'negative', 'sign_settled', 'point_seen', 'exponent_seen',
                 'exponent_negative', 'exponent_sign_settled')

    def __init__(self, text, grouped):
        self.text = text + b'\0'
        self.grouped = grouped
        self.token_start = self.cursor = 0
        self.held = self.dropped = self.fraction_digits = 0
        self.chunk = self.chunk_digits = 0  # up to eight digits not yet in value; later the exponent
        self.value = 0
        self.negative = self.sign_settled = False
        self.point_seen = self.exponent_seen = False
        self.exponent_negative = self.exponent_sign_settled = False

    def flush(self):
        self.value = self.value * 10**self.chunk_digits + self.chunk
        self.chunk = self.chunk_digits = 0

    def take(self, digits):
        """One step of three digits or of one. Leading zeros before the point are skipped, digits beyond the limit of
        the step's size are counted but not taken."""
        if self.held == 0 and not self.point_seen and not digits.strip(b'0'):
            return
        if self.point_seen:
            self.fraction_digits += len(digits)
        if self.held > (42 if len(digits) == 3 else 40):
            self.dropped += len(digits)
            return
        self.held += len(digits)
        for digit in digits:
            self.chunk = self.chunk * 10 + digit - 48
            self.chunk_digits += 1
            if self.chunk_digits == 8:
                self.flush()

    def run(self):
        """The run of digits that starts the token."""
        end = self.token_start
        while self.text[end] in DIGITS:
            end += 1
        self.cursor = end
        return self.text[self.token_start:end]

    def mantissa_digits(self):
        self.sign_settled = True
        run = self.run()
        in_threes = len(run) - len(run) % 3
        for at in range(0, in_threes, 3):
            self.take(run[at:at + 3])
        for at in range(in_threes, len(run)):
            self.take(run[at:at + 1])
        return run

    def exponent_digits(self):
        self.exponent_sign_settled = True
        run = self.run()
        exponent = int(run)
        if exponent > 2**31 - 1 and not (exponent == 2**31 and self.exponent_negative):
            return None
        self.chunk, self.chunk_digits = exponent, len(run)
        return run

    def group_at(self, at):
        """Whether a comma with exactly three digits stands there."""
        if self.text[at] != 0x2c:
            return False
        digits = 0
        while digits < 4 and self.text[at + 1 + digits] in DIGITS:
            digits += 1
        return digits == 3

    def token(self):
        self.token_start = self.cursor
        character = self.text[self.cursor]
        if character in DIGITS:
            run = self.exponent_digits() if self.exponent_seen else self.mantissa_digits()
            if run is None:
                return BAD
            return SHORT_DIGITS if len(run) < 4 else LONG_DIGITS
        if character == 0x2c and self.grouped:
            if not self.group_at(self.cursor):
                return BAD
            while self.group_at(self.cursor):
                self.take(self.text[self.cursor + 1:self.cursor + 4])
                self.cursor += 4
            return GROUPS
        if character in b'Ee':
            self.cursor += 1
            self.flush()
            self.exponent_seen = True
            return EXPONENT
        if character in b'+-':
            self.cursor += 1
            if character == 0x2d:
                self.minus()
            return SIGN
        if character == 0x2e:
            self.cursor += 1
            self.point_seen = True
            return POINT
        return END

    def minus(self):
        """Only a sign in front of the digits counts; one that ends the number changes nothing."""
        if not self.exponent_seen:
            if not self.sign_settled:
                self.negative = self.sign_settled = True
        elif not self.exponent_sign_settled:
            self.exponent_negative = self.exponent_sign_settled = True

    def accepted(self):
        """Whether the text starts with a number. token_start then marks the token at which reading stopped.

        Every place where the number might go on reads one more token; after a long exponent and after groups in an
        exponent nothing can follow, and reading stops at that very token.
        """
        digits = (SHORT_DIGITS, LONG_DIGITS)
        token = self.token()
        if token == SIGN:
            token = self.token()
        if token in digits:
            first, token = token, self.token()
            if first == SHORT_DIGITS and token == GROUPS:
                token = self.token()
            if token == POINT:
                token = self.token()
                if token in digits:
                    token = self.token()
        elif token == POINT:
            if self.token() not in digits:
                return False
            token = self.token()
        else:
            return False
        if token != EXPONENT:
            return True
        token = self.token()
        if token == SIGN:
            token = self.token()
        if token == SHORT_DIGITS:
            self.token()
            return True
        return token == LONG_DIGITS


def parse_number(text, info, grouped):
    """Status, coefficient and where the number ended, an offset into the text."""
    if not text:
        return OK, NAN, UNTOUCHED
    literal = Literal(text, grouped)
    if not literal.accepted():
        return SYNTAX_ERROR, UNTOUCHED, 0
    end = literal.token_start
    if info[1] > HALF_EVEN:
        return INVALID_ARGUMENT, UNTOUCHED, end
    exponent = 0
    if literal.exponent_seen:
        exponent = -literal.chunk if literal.exponent_negative else literal.chunk
    else:
        literal.flush()
    places = info[0] + literal.dropped - literal.fraction_digits + exponent
    magnitude, inexact = move(literal.value, places, literal.negative, info[1])
    return settle(magnitude, literal.negative, inexact) + (end,)


def str2num(text, info):
    return parse_number(text, info, False)


def dgstr2num(text, info):
    return parse_number(text, info, True)
