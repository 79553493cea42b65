# SPDX-License-Identifier: MIT
"""qv8numeric in gdb: values are shown as the integers they are, descriptors and statuses by name.

    (gdb) print price            $1 = 12345
    (gdb) print money            $2 = {scale 2, NUMERIC_ROUND_HALF_EVEN}
    (gdb) print status           $3 = NUMERIC_INEXACT
    (gdb) qv8 price money        123.45

gdb loads this file by itself with the installed shared library; for a program that holds the static library, `source`
it. Values are read by the names of their fields, which is right for programs of either byte order. `print/r` shows the
fields themselves.
"""
import gdb
import gdb.printing

NAN = -(2**127)

# A scale within these is written out with all its zeros, one beyond with an exponent: no text grows with its scale.
FEWEST_PLACES, MOST_PLACES = -60, 60

STATUSES = {
    0: 'NUMERIC_OK',
    1: 'NUMERIC_NAN',
    2: 'NUMERIC_INEXACT',
    3: 'NUMERIC_OVERFLOW',
    4: 'NUMERIC_UNDERFLOW',
    -1: 'NUMERIC_SYNTAX_ERROR',
    -2: 'NUMERIC_BUFFER_TOO_SMALL',
    -3: 'NUMERIC_INVALID_ARGUMENT',
}

ROUNDING_MODES = (
    'NUMERIC_ROUND_UP',
    'NUMERIC_ROUND_DOWN',
    'NUMERIC_ROUND_CEILING',
    'NUMERIC_ROUND_FLOOR',
    'NUMERIC_ROUND_HALF_UP',
    'NUMERIC_ROUND_HALF_DOWN',
    'NUMERIC_ROUND_HALF_EVEN',
)


# ---- What the values are --------------------------------------------------------------------------------------------


def coefficient(numeric):
    """The integer of a Numeric; NAN stands for NaN."""
    return int(numeric['high']) * 2**64 + int(numeric['low'])


def coefficient_text(numeric):
    number = coefficient(numeric)
    return 'NaN' if number == NAN else str(number)


def value_text(number, scale):
    """number * 10^-scale, exactly."""
    if number == NAN:
        return 'NaN'
    if not FEWEST_PLACES <= scale <= MOST_PLACES:
        return f'{number}E{-scale:+d}'
    if scale <= 0:
        return str(number * 10**-scale)
    digits = str(abs(number)).rjust(scale + 1, '0')
    return f'{"-" if number < 0 else ""}{digits[:-scale]}.{digits[-scale:]}'


def mode_text(mode):
    return ROUNDING_MODES[mode] if mode < len(ROUNDING_MODES) else f'{mode} (no rounding mode)'


# ---- print ----------------------------------------------------------------------------------------------------------


class Printer:
    """Shows a value as the text that a function makes of it, or says that the compiler has not kept all of it."""

    def __init__(self, value, text_of):
        self.value = value
        self.text_of = text_of

    def to_string(self):
        return self.text_of(self.value) if is_kept(self.value) else '<optimized out>'


def is_kept(value):
    """Whether all of a value can be read. gdb writes one of these in place of a part that cannot, but asked for such a
    part alone it may answer 0."""
    text = value.format_string(raw=True)
    return not any(mark in text for mark in ('<optimized out>', '<synthetic pointer>', '<unavailable>'))


def info_text(info):
    return f'{{scale {int(info["scale"])}, {mode_text(int(info["rounding_mode"]))}}}'


def status_text(status):
    number = int(status)
    return STATUSES.get(number, f'{number} (no NumericStatus)')


def wide_text(wide):
    """The 256 bits between two steps of an operation, as the magnitude that most steps see in them."""
    return str(sum(int(wide['word'][i]) << 64 * i for i in range(4)))


TEXTS = {'Numeric': coefficient_text, 'NumericInfo': info_text, 'ExtendedNumeric': wide_text}


class Printers(gdb.printing.PrettyPrinter):
    def __init__(self):
        super().__init__('qv8numeric', [gdb.printing.SubPrettyPrinter(name) for name in (*TEXTS, 'NumericStatus')])
        self.by_name = {printer.name: printer for printer in self.subprinters}

    def __call__(self, value):
        name, text_of = recognized(value.type)
        return Printer(value, text_of) if name and self.by_name[name].enabled else None


def recognized(value_type):
    """The name of a type of the library, and the function that makes text of it; of another type, None twice."""
    if declared_as(value_type, 'NumericStatus'):
        return 'NumericStatus', status_text
    bare = value_type.strip_typedefs()
    if bare.code == gdb.TYPE_CODE_STRUCT and bare.tag in TEXTS:
        return bare.tag, TEXTS[bare.tag]
    return None, None


def declared_as(value_type, name):
    """Whether a type is the typedef of this name or another typedef of it. An integer's typedefs are all that tells."""
    while value_type.code == gdb.TYPE_CODE_TYPEDEF:
        if value_type.name == name:
            return True
        value_type = value_type.target()
    return False


# ---- qv8 ------------------------------------------------------------------------------------------------------------


class Qv8(gdb.Command):
    """Show a Numeric, or an array of them, as the decimals they are at a scale.

usage: qv8 VALUE SCALE

VALUE is an expression: a Numeric, an array of them or a pointer to one. SCALE is
the last word: an integer, a NumericInfo or a pointer to one.

    qv8 price 2            123.45
    qv8 price money        123.45
    qv8 entry->price -3    12345000
    qv8 *ledger@3 2        {123.45, -0.01, NaN}

At most as many elements of an array are shown as "set print elements" allows."""

    def __init__(self):
        super().__init__('qv8', gdb.COMMAND_DATA, gdb.COMPLETE_EXPRESSION)

    def invoke(self, argument, from_tty):
        words = argument.rsplit(None, 1)
        if len(words) != 2:
            raise gdb.GdbError('usage: qv8 VALUE SCALE; "help qv8" has examples.')
        value, scale = (evaluated(word.strip()) for word in words)
        print(shown(value, words[0], scale_of(scale, words[1])))


def evaluated(expression):
    try:
        return gdb.parse_and_eval(expression)
    except gdb.error as error:
        raise gdb.GdbError(f'qv8: {expression}: {error}') from error


def fetched(value, expression, read):
    """What read makes of a value; where it cannot be read, why."""
    try:
        value.fetch_lazy()
        if not is_kept(value):
            raise gdb.GdbError(f'qv8: {expression}: optimized out')
        return read(value)
    except gdb.error as error:
        raise gdb.GdbError(f'qv8: {expression}: {error}') from error


def behind_pointers(value, expression):
    """The object that a value refers to: itself, or what a pointer or a reference leads to."""
    kind = value.type.strip_typedefs()
    if kind.code in (gdb.TYPE_CODE_REF, gdb.TYPE_CODE_RVALUE_REF):
        return behind_pointers(value.referenced_value(), expression)
    if kind.code != gdb.TYPE_CODE_PTR or recognized(kind.target())[0] is None:
        return value
    if fetched(value, expression, int) == 0:
        raise gdb.GdbError(f'qv8: {expression} is a null pointer')
    return value.dereference()


def scale_of(value, expression):
    value = behind_pointers(value, expression)
    kind = value.type.strip_typedefs()
    if recognized(kind)[0] == 'NumericInfo':
        return fetched(value, expression, lambda info: int(info['scale']))
    if kind.code not in (gdb.TYPE_CODE_INT, gdb.TYPE_CODE_ENUM, gdb.TYPE_CODE_CHAR):
        raise gdb.GdbError(f'qv8: {expression} is no scale: {value.type}, neither an integer nor a NumericInfo')
    scale = fetched(value, expression, int)
    if not -(2**31) <= scale < 2**31:
        raise gdb.GdbError(f'qv8: {expression} is no scale: beyond 32 bits')
    return scale


def shown(value, expression, scale):
    value = behind_pointers(value, expression)
    kind = value.type.strip_typedefs()
    if kind.code == gdb.TYPE_CODE_ARRAY and innermost(kind) == 'Numeric':
        return shown_array(value, kind, expression, scale)
    if recognized(kind)[0] != 'Numeric':
        raise gdb.GdbError(f'qv8: {expression} is of type {value.type}, not Numeric')
    return value_text(fetched(value, expression, coefficient), scale)


def innermost(kind):
    while kind.code == gdb.TYPE_CODE_ARRAY:
        kind = kind.target().strip_typedefs()
    return recognized(kind)[0]


def shown_array(value, kind, expression, scale):
    first, last = kind.range()
    limit = gdb.parameter('print elements') or last - first + 1  # none: as many as there are
    indices = range(first, min(last, first + limit - 1) + 1)
    texts = [shown(value[i], f'{expression}[{i}]', scale) for i in indices]
    return f'{{{", ".join(texts)}{"..." if indices.stop <= last else ""}}}'


# For the whole program, since its variables are in other files than the library that brings this one along.
gdb.printing.register_pretty_printer(None, Printers(), replace=True)
Qv8()
