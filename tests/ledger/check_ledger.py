#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Hold every number that the ledger example prints against the same sums done by Python's decimal module.

Usage: check_ledger.py PROGRAM CSV

The CSV is read here from scratch, and what is wrong with a malformed line is decided from its text alone. The
program's output is only ever compared with these results. Small ledgers written for one purpose each follow, then
wrong usage, and at last the generator, which has to make the very bytes of the CSV again.
"""

import collections
import csv
import decimal
import os
import pathlib
import random
import re
import shlex
import subprocess
import sys
import tempfile
from decimal import Decimal

HEADING = "date,account,description,quantity,unit price,tax rate,currency,places"
FIELD_COUNT = 8
LINE_LIMIT = 1000
DIGITS_READ = 41
PLACES = {"BHD": 3, "EUR": 2, "JPY": 0, "KWD": 3, "USD": 2}
MODES = {
    "up": decimal.ROUND_UP,
    "down": decimal.ROUND_DOWN,
    "ceiling": decimal.ROUND_CEILING,
    "floor": decimal.ROUND_FLOOR,
    "half-up": decimal.ROUND_HALF_UP,
    "half-down": decimal.ROUND_HALF_DOWN,
    "half-even": decimal.ROUND_HALF_EVEN,
}
DEFAULT_MODE = "half-even"

# What runs the program, where it is one of another machine.
EMULATOR = shlex.split(os.environ.get("EMULATOR", ""))

# A coefficient stays strictly between -2^127 and 2^127.
COEFFICIENT_END = 2**127

# No product, sum or exponent here comes near these limits; if one did, the trap would stop the run.
decimal.setcontext(decimal.Context(prec=2000, Emax=10**6, Emin=-(10**6), traps=[
    decimal.InvalidOperation, decimal.Overflow, decimal.Underflow, decimal.DivisionByZero]))


# ---- Reading: what a line says, or what is wrong with it ----


class Fault(Exception):
    """Why a line is left out: the field at fault and the status."""

    def __init__(self, field, status):
        super().__init__(field, status)
        self.field = field
        self.status = status


Entry = collections.namedtuple("Entry", "account quantity price rate currency")

# One to three digits of an exponent: a longer exponent leaves the end of the number at its own first digit, and the
# program takes only numbers that end where their field does.
TAIL = r"(?:\.[0-9]*)?(?:[Ee][+-]?[0-9]{1,3})?"
FRACTION_ALONE = r"\.[0-9]+(?:[Ee][+-]?[0-9]{1,3})?"
PLAIN = re.compile(rf"[+-]?(?:[0-9]+{TAIL}|{FRACTION_ALONE})")
GROUPED = re.compile(rf"[+-]?(?:(?:[0-9]+|[0-9]{{1,3}}(?:,[0-9]{{3}})+){TAIL}|{FRACTION_ALONE})")


def out_of_range(negative):
    return "NUMERIC_UNDERFLOW" if negative else "NUMERIC_OVERFLOW"


def read_amount(field, text, syntax, places):
    """The exact value of a field that may have so many places, or the fault in it."""
    if text == "":
        raise Fault(field, "NUMERIC_NAN")
    if not syntax.fullmatch(text):
        raise Fault(field, "NUMERIC_SYNTAX_ERROR")
    value = Decimal(text.replace(",", ""))
    coefficient = value.scaleb(places)
    if abs(int(coefficient)) >= COEFFICIENT_END:
        raise Fault(field, out_of_range(value < 0))
    if coefficient != int(coefficient) or len(re.findall("[0-9]", text)) > DIGITS_READ:
        raise Fault(field, "NUMERIC_INEXACT")
    return value


def split_fields(line):
    if len(line) > LINE_LIMIT:
        raise Fault("line", "NUMERIC_BUFFER_TOO_SMALL")
    if b"\0" in line:
        raise Fault("line", "NUMERIC_SYNTAX_ERROR")
    try:
        fields = next(csv.reader([line.decode("utf-8")], strict=True), [])
    except csv.Error:
        raise Fault("line", "NUMERIC_SYNTAX_ERROR")
    if len(fields) != FIELD_COUNT:
        raise Fault("line", "NUMERIC_SYNTAX_ERROR")
    return fields


def read_entry(line):
    _, account, _, quantity, price, rate, currency, places = split_fields(line)
    if account != account.strip(" ") or not re.fullmatch(r"[^\x00-\x1f\x7f]+", account):
        raise Fault("account", "NUMERIC_INVALID_ARGUMENT")
    entry = Entry(
        account,
        read_amount("quantity", quantity, PLAIN, 4),
        read_amount("unit price", price, GROUPED, 4),
        read_amount("tax rate", rate, PLAIN, 2),
        currency,
    )
    if currency not in PLACES:
        raise Fault("currency", "NUMERIC_INVALID_ARGUMENT")
    if read_amount("places", places, PLAIN, 0) != PLACES[currency]:
        raise Fault("places", "NUMERIC_INVALID_ARGUMENT")
    return entry


# ---- Reckoning ----


class Amounts(collections.namedtuple("Amounts", "net tax gross")):
    def plus(self, other):
        return Amounts(*(mine + theirs for mine, theirs in zip(self, other)))

    def check_range(self, names, places):
        for name, value in zip(names, self):
            if abs(value.scaleb(places)) >= COEFFICIENT_END:
                raise Fault(name, out_of_range(value < 0))


ZERO = Amounts(Decimal(0), Decimal(0), Decimal(0))


class Posting(collections.namedtuple("Posting", "amounts inexact_net inexact_tax")):
    def plus(self, other):
        return Posting(self.amounts.plus(other.amounts), self.inexact_net + other.inexact_net,
                       self.inexact_tax + other.inexact_tax)


def into_places(exact, places, mode):
    return exact.quantize(Decimal(1).scaleb(-places), rounding=MODES[mode])


def price_entry(entry, mode):
    places = PLACES[entry.currency]
    exact_net = entry.quantity * entry.price
    net = into_places(exact_net, places, mode)
    exact_tax = net * entry.rate / 100
    tax = into_places(exact_tax, places, mode)
    amounts = Amounts(net, tax, net + tax)
    amounts.check_range(("net", "tax", "gross"), places)
    return Posting(amounts, int(net != exact_net), int(tax != exact_tax))


class Ledger:
    """All results of one CSV, in every mode. An entry that does not fit in every mode is posted in none."""

    def __init__(self, content, stated_mode):
        self.stated_mode = stated_mode
        self.entries = []
        self.faults = []
        self.accounts = {}  # (currency, account): (lines, amounts in the stated mode)
        self.totals = {}  # currency: (lines, posting by mode)
        for number, line in numbered_lines(content):
            self._take(number, line)

    @property
    def lines_read(self):
        return len(self.entries) + len(self.faults)

    def _take(self, number, line):
        try:
            entry = read_entry(line)
            self._post(entry, {mode: price_entry(entry, mode) for mode in MODES})
            self.entries.append(entry)
        except Fault as fault:
            self.faults.append((number, fault.field, fault.status))

    def _post(self, entry, postings):
        places = PLACES[entry.currency]
        lines, old = self.totals.get(entry.currency, (0, dict.fromkeys(MODES, Posting(ZERO, 0, 0))))
        new = {mode: old[mode].plus(postings[mode]) for mode in MODES}
        for posting in new.values():
            posting.amounts.check_range(["currency total"] * 3, places)

        key = entry.currency, entry.account
        account_lines, amounts = self.accounts.get(key, (0, ZERO))
        amounts = amounts.plus(postings[self.stated_mode].amounts)
        amounts.check_range(["account total"] * 3, places)

        self.totals[entry.currency] = lines + 1, new
        self.accounts[key] = account_lines + 1, amounts


def numbered_lines(content):
    """The lines behind the heading with their numbers in the file; comments are no lines of the ledger."""
    lines = content.split(b"\n")
    if lines[-1] == b"":
        lines.pop()
    lines = [line[:-1] if line.endswith(b"\r") else line for line in lines]
    counted = [(number, line) for number, line in enumerate(lines, 1) if not line.startswith(b"#")]
    assert counted[0][1] == HEADING.encode()
    return counted[1:]


# ---- The statement that has to come out ----

RIGHT, LEFT = "right", "left"
ACCOUNT_COLUMNS = {"Currency": LEFT, "Account": LEFT, "Lines": RIGHT, "Net": RIGHT, "Tax": RIGHT, "Gross": RIGHT}
MODE_COLUMNS = {"Currency": LEFT, "Rounding": LEFT, "Net": RIGHT, "Tax": RIGHT, "Gross": RIGHT, "Difference": RIGHT,
                "Inexact net": RIGHT, "Inexact tax": RIGHT}
FAULT_COLUMNS = {"Line": RIGHT, "Field": LEFT, "Status": LEFT, "Reason": LEFT, "Text": LEFT}


def money(value, places):
    zero_without_sign = into_places(value, places, DEFAULT_MODE) + 0
    return f"{zero_without_sign:,.{places}f}"


def money_cells(amounts, currency):
    return [money(value, PLACES[currency]) for value in amounts]


def expected_summary(ledger, name):
    totals = [by_mode[ledger.stated_mode] for _, by_mode in ledger.totals.values()]
    net = sum(total.inexact_net for total in totals)
    tax = sum(total.inexact_tax for total in totals)
    return [
        f"Ledger     {name}",
        f"Rounding   {ledger.stated_mode}",
        f"Lines      {ledger.lines_read} read, {len(ledger.entries)} posted, {len(ledger.faults)} left out",
        f"Roundings  {2 * len(ledger.entries)} made, {net + tax} inexact (net {net}, tax {tax})",
    ]


def expected_account_rows(ledger):
    for currency in sorted(ledger.totals):
        names = sorted((name for code, name in ledger.accounts if code == currency), key=str.encode)
        for name in names:
            lines, amounts = ledger.accounts[currency, name]
            yield [currency, name, str(lines)] + money_cells(amounts, currency)
        lines, by_mode = ledger.totals[currency]
        yield [currency, "all accounts", str(lines)] + money_cells(by_mode[ledger.stated_mode].amounts, currency)


def expected_mode_rows(ledger):
    for currency in sorted(ledger.totals):
        _, by_mode = ledger.totals[currency]
        for mode, total in by_mode.items():
            difference = total.amounts.gross - by_mode[ledger.stated_mode].amounts.gross
            yield ([currency, mode] + money_cells(total.amounts, currency) + money_cells([difference], currency)
                   + [str(total.inexact_net), str(total.inexact_tax)])


# ---- The statement that did come out ----


class Layout(Exception):
    """The output does not have the form of a statement."""


def cell_of(line, start, end, alignment):
    cell = line[start:end].rstrip() if alignment == LEFT else line[start:end].lstrip()
    if cell != cell.strip() or (alignment == RIGHT and len(line) < end):
        raise Layout(f"cell {line[start:end]!r} is not aligned {alignment} in {line!r}")
    return cell


def read_row(line, spans, alignments):
    kept = list(line)
    for start, end in spans:
        kept[start:min(end, len(line))] = " " * (min(end, len(line)) - min(start, len(line)))
    if "".join(kept).strip() or line != line.rstrip():
        raise Layout(f"text outside the columns in {line!r}")
    return [cell_of(line, start, end, alignment) for (start, end), alignment in zip(spans, alignments)]


def read_table(lines, columns):
    """Take a table off the lines: its headings, its rule, its rows up to the next title or the end."""
    if len(lines) < 2 or not re.fullmatch(r"(  -+)+", lines[1]):
        raise Layout(f"a table should begin at {lines[:2]!r}")
    headings, rule = lines.pop(0), lines.pop(0)
    spans = [match.span() for match in re.finditer("-+", rule)]
    if len(spans) != len(columns) or read_row(headings, spans, columns.values()) != list(columns):
        raise Layout(f"headings {headings!r} instead of {list(columns)}")
    rows = []
    while lines and (lines[0] == "" or lines[0].startswith("  ")):
        line = lines.pop(0)
        if line:
            rows.append(read_row(line, spans, columns.values()))
    return rows


def take(lines, title):
    """Take off a title and the blank line below it; False when something else comes next."""
    if lines[:2] == [title, ""] or lines == [title]:
        del lines[:2]
        return True
    return False


Statement = collections.namedtuple("Statement", "summary accounts modes faults")


def read_statement(text, mode):
    lines = text.splitlines()
    summary = lines[:4]
    if lines[4:5] != [""]:
        raise Layout(f"no blank line after {summary!r}")
    del lines[:5]
    accounts = modes = faults = None
    if take(lines, "No line was posted."):
        accounts, modes = [], []
    elif take(lines, f"Amounts by account, rounded {mode}"):
        accounts = read_table(lines, ACCOUNT_COLUMNS)
        if take(lines, f"Totals in every rounding mode; the difference is that of the gross amount to {mode}"):
            modes = read_table(lines, MODE_COLUMNS)
    if take(lines, "No line was left out."):
        faults = []
    elif take(lines, "Lines left out"):
        faults = read_table(lines, FAULT_COLUMNS)
    if None in (accounts, modes, faults) or lines:
        raise Layout(f"a section is missing or unknown before {lines[:3]!r}")
    return Statement(summary, accounts, modes, faults)


# ---- Comparing ----


class Report:
    def __init__(self):
        self.compared = 0
        self.mismatches = 0

    def fail(self, case, message):
        self.mismatches += 1
        print(f"FAIL {case}: {message}")

    def equal(self, case, what, actual, expected):
        self.compared += 1
        if actual != expected:
            self.fail(case, f"{what} is {actual!r}, expected {expected!r}")

    def that(self, case, what, condition):
        self.compared += 1
        if not condition:
            self.fail(case, what)

    def rows(self, case, table, columns, actual, expected):
        self.equal(case, f"number of rows in the table of {table}", len(actual), len(expected))
        for row, wanted in zip(actual, expected):
            for column, cell, wanted_cell in zip(columns, row, wanted):
                self.equal(case, f"{table}, {wanted[0]} {wanted[1]}, column {column}", cell, wanted_cell)


def run(program, *arguments, **options):
    options.setdefault("stdout", subprocess.PIPE)
    return subprocess.run([*EMULATOR, program, *map(str, arguments)], stderr=subprocess.PIPE, timeout=120, **options)


def check_statement(report, case, output, ledger, name):
    try:
        statement = read_statement(output.decode("utf-8"), ledger.stated_mode)
    except Layout as problem:
        report.fail(case, str(problem))
        return
    for actual, expected in zip(statement.summary, expected_summary(ledger, name)):
        report.equal(case, "summary line", actual, expected)
    report.rows(case, "accounts", ACCOUNT_COLUMNS, statement.accounts, list(expected_account_rows(ledger)))
    report.rows(case, "modes", MODE_COLUMNS, statement.modes, list(expected_mode_rows(ledger)))
    report.rows(case, "faults", FAULT_COLUMNS, [row[:3] for row in statement.faults],
                [[str(number), field, status] for number, field, status in ledger.faults])
    for row in statement.faults:
        report.that(case, f"line {row[0]} is left out without a reason", row[3] != "")


def check_ledger(report, case, program, path, modes=MODES):
    """Run the program on a file in each mode and compare everything it prints."""
    content = pathlib.Path(path).read_bytes()
    for mode in modes:
        named_case = f"{case}, {mode}"
        ledger = Ledger(content, mode)
        done = run(program, path, mode)
        report.equal(named_case, "exit status", done.returncode, 0)
        report.equal(named_case, "error output", done.stderr, b"")
        if done.returncode == 0:
            check_statement(report, named_case, done.stdout, ledger, path)


# ---- The committed ledger ----


def ties(ledger):
    """How many net amounts lie exactly half way between two amounts of their currency: positive, negative."""
    halves = [entry.quantity * entry.price for entry in ledger.entries
              if abs((entry.quantity * entry.price).scaleb(PLACES[entry.currency])) % 1 == Decimal("0.5")]
    return sum(value > 0 for value in halves), sum(value < 0 for value in halves)


def check_data(report, path):
    """The committed ledger has to be able to show what it is for."""
    case = "the data itself"
    ledger = Ledger(pathlib.Path(path).read_bytes(), DEFAULT_MODE)
    report.that(case, f"only {ledger.lines_read} lines", ledger.lines_read >= 1000)
    report.that(case, f"only {len(ledger.faults)} malformed lines", len(ledger.faults) >= 24)
    positive, negative = ties(ledger)
    report.that(case, f"only {positive} positive and {negative} negative ties", min(positive, negative) >= 100)
    report.equal(case, "set of currencies", sorted(ledger.totals), sorted(PLACES))
    for currency, (_, by_mode) in ledger.totals.items():
        nets = {posting.amounts.net for posting in by_mode.values()}
        report.equal(case, f"number of different net totals in {currency}", len(nets), len(MODES))
    kinds = {(field, status) for _, field, status in ledger.faults}
    for kind in REQUIRED_FAULTS:
        report.that(case, f"no line with the fault {kind}", kind in kinds)


REQUIRED_FAULTS = [
    ("line", "NUMERIC_SYNTAX_ERROR"),
    ("quantity", "NUMERIC_NAN"),
    ("quantity", "NUMERIC_SYNTAX_ERROR"),
    ("quantity", "NUMERIC_INEXACT"),
    ("quantity", "NUMERIC_UNDERFLOW"),
    ("unit price", "NUMERIC_NAN"),
    ("unit price", "NUMERIC_SYNTAX_ERROR"),
    ("unit price", "NUMERIC_INEXACT"),
    ("unit price", "NUMERIC_OVERFLOW"),
    ("tax rate", "NUMERIC_NAN"),
    ("tax rate", "NUMERIC_SYNTAX_ERROR"),
    ("tax rate", "NUMERIC_INEXACT"),
    ("currency", "NUMERIC_INVALID_ARGUMENT"),
    ("places", "NUMERIC_INVALID_ARGUMENT"),
    ("places", "NUMERIC_SYNTAX_ERROR"),
    ("net", "NUMERIC_OVERFLOW"),
    ("net", "NUMERIC_UNDERFLOW"),
    ("tax", "NUMERIC_OVERFLOW"),
    ("gross", "NUMERIC_OVERFLOW"),
]


def check_default_mode(report, program, path):
    report.equal("no mode given", "output", run(program, path).stdout, run(program, path, DEFAULT_MODE).stdout)


def check_generator(report, path, scratch):
    generator = pathlib.Path(__file__).resolve().parents[2] / "examples" / "make_ledger.py"
    for hash_seed in ("1", "2"):
        output = scratch / f"made_{hash_seed}.csv"
        subprocess.run([sys.executable, str(generator), str(output)], check=True,
                       env=dict(os.environ, PYTHONHASHSEED=hash_seed))
        report.that("the generator", f"does not make the bytes of {path} again",
                    output.read_bytes() == pathlib.Path(path).read_bytes())


# ---- Small ledgers, each written for one purpose ----


def line(quantity="1", price="1.00", rate="0", currency="EUR", places=None, account="4000 sales", note="made"):
    places = PLACES.get(currency, 2) if places is None else places
    fields = [account, note, quantity, price, rate, currency, str(places)]
    return ",".join(["2025-01-01"] + ['"' + field.replace('"', '""') + '"' for field in fields])


def ledger_file(*lines):
    return "".join(text + "\n" for text in (HEADING,) + lines).encode()


def line_of_length(length):
    short = line(note="")
    return line(note="x" * (length - len(short)))


def on_the_edge_of_range():
    """A quantity and a price whose net amount in KWD is 2^127 - 1 fils and a little: too much only rounded away."""
    top = (COEFFICIENT_END - 1) * 10**5  # fils at scale 3, the product at scale 8
    quantity = next(q for q in range(10**6 + 1, 10**7) if 0 < -top % q < 49999)
    price = -(-top // quantity)
    return [str(Decimal(factor).scaleb(-4)) for factor in (quantity, price)]


# The factors of the largest coefficient, 2^127 - 1, as yen.
LARGEST = dict(quantity="10000", price="17,014,118,346,046,923,173,168,730,371,588,410.5727", currency="JPY")
NEGATED_LARGEST = dict(LARGEST, quantity="-10000")
ONE_YEN = dict(quantity="1", price="1", currency="JPY")

NEARLY_ALL = "1.6E34"  # times 100.00 EUR: 1.6 x 10^38 cents of the 1.7 x 10^38 that fit


def mutated(content, count):
    """Sound lines with a character or two replaced, doubled or taken out: faults that nobody thought of."""
    draw = random.Random(1)
    lines = [text for text in content.decode().splitlines()[2:] if text and len(text) < 120]
    for _ in range(count):
        text = list(draw.choice(lines))
        for _ in range(draw.randint(1, 2)):
            at = draw.randrange(len(text))
            text[at] = draw.choice(["", 2 * text[at], *"019,.-+Ee\" x%"])
        yield "".join(text)


def small_ledgers(content):
    quantity, price = on_the_edge_of_range()
    yield "no newline at the end", content[:-1]
    yield "carriage returns", content.replace(b"\n", b"\r\n")
    yield "carriage return at the end, without a newline", content.replace(b"\n", b"\r\n")[:-1]
    yield "heading alone", ledger_file()
    yield "malformed lines alone", ledger_file(line(quantity=""), "", "too short")
    yield "sound lines alone", ledger_file(line(), line(currency="JPY", price="7"))
    yield "comments count as no line, but keep the numbers", b"# first\n" + ledger_file(
        "# one", line(), "#", line(quantity="x"), "#" + "x" * 5000, line())
    yield "lines at the limit and above", ledger_file(
        line_of_length(999), line_of_length(1000), line_of_length(1001), line_of_length(1002), line_of_length(100000),
        line())
    yield "lines at the limit and above, carriage returns", ledger_file(
        line_of_length(1000), line_of_length(1001), line_of_length(1002), line()).replace(b"\n", b"\r\n")
    yield "last line above the limit, without a newline", ledger_file(line(), line_of_length(1001))[:-1]
    yield "NUL bytes", ledger_file(line(), line(note="a\0b"), "\0", line() + "\0", line() + "\0,more", line())
    yield "quotes", ledger_file(
        line(note='"'), line(note='a,b"c""d'), line(note=""), '2025-01-01,a,plain "quotes" inside,1,1.00,0,EUR,2',
        '2025-01-01,a,"open', '2025-01-01,a,"closed"x,1,1.00,0,EUR,2', '"', '""', '"""')
    yield "field counts", ledger_file("", ",", "," * 6, "," * 7, "," * 8, line() + ",", "," * 900)
    yield "many accounts in no order", ledger_file(
        *[line(account=f"{number * 7919 % 1000:04d} account", currency=sorted(PLACES)[number % 5])
          for number in range(700)])
    yield "account names of other letters", ledger_file(line(account="4000 Erlöse"), line(account="4100 売上"))
    yield "amount that fits rounded toward zero but not away", ledger_file(
        line(), line(quantity=quantity, price=price, currency="KWD"),
        line(quantity="-" + quantity, price=price, currency="KWD"))
    yield "the largest amounts, and one yen too much", ledger_file(
        line(**LARGEST), line(**ONE_YEN), line(**NEGATED_LARGEST), line(**NEGATED_LARGEST),
        line(**dict(ONE_YEN, quantity="-1")), line(**ONE_YEN))
    yield "account names that are none", ledger_file(
        *[line(account=name) for name in ("", " ", " a", "a ", "a b", "a\tb", "a\x1b[2J", "a\x7f")])
    yield "mutated lines", ledger_file(*mutated(content, 3000))
    yield "currency total out of range", ledger_file(
        *[line(quantity=sign + NEARLY_ALL, price="100.00") for sign in ("", "", "-", "-", "-")])
    yield "account total out of range within a currency total that fits", ledger_file(
        line(quantity=NEARLY_ALL, price="100.00", account="a"),
        line(quantity="-" + NEARLY_ALL, price="100.00", account="b"),
        line(quantity="1E34", price="100.00", account="a"), line(quantity="-1E34", price="100.00", account="b"),
        line(account="c"))
    yield "zero without a sign", ledger_file(line(quantity="-0.001", price="1.00"), line(quantity="-0", price="5"))
    yield "sums that return to zero", ledger_file(line(quantity="-3", price="0.335"), line(quantity="3", price="0.335"))


def check_small_ledgers(report, program, path, scratch):
    for number, (case, content) in enumerate(small_ledgers(pathlib.Path(path).read_bytes())):
        file = scratch / f"small_{number}.csv"
        file.write_bytes(content)
        check_ledger(report, case, program, file)


# ---- Single amounts: the fault typed by hand, so that the reading above is tested as well ----

SOUND = None
NAN, INEXACT = "NUMERIC_NAN", "NUMERIC_INEXACT"
OVERFLOW, UNDERFLOW, SYNTAX = "NUMERIC_OVERFLOW", "NUMERIC_UNDERFLOW", "NUMERIC_SYNTAX_ERROR"

PLAIN_AMOUNTS = [
    ("integer", "12", SOUND),
    ("negative", "-12.5", SOUND),
    ("plus sign", "+12.5", SOUND),
    ("point last", "5.", SOUND),
    ("point first", ".5", SOUND),
    ("exponent", "1.5E2", SOUND),
    ("small exponent letter and sign", "15e-1", SOUND),
    ("exponent of three digits", "1E001", SOUND),
    ("leading zeros", "000000012", SOUND),
    ("trailing zeros beyond the places", "1.00000000", SOUND),
    ("forty-one digits", "0" * 40 + "1", SOUND),
    ("largest coefficient", "17014118346046923173168730371588410.5727", "net"),
    ("smallest coefficient", "-17014118346046923173168730371588410.5727", "net"),
    ("empty", "", NAN),
    ("forty-two digits", "0" * 41 + "1", INEXACT),
    ("fifth place", "0.00001", INEXACT),
    ("fifth place from an exponent", "1.5E-4", INEXACT),
    ("lost digits behind the forty-fifth", "1." + "0" * 60 + "1", INEXACT),
    ("one above the largest coefficient", "17014118346046923173168730371588410.5728", OVERFLOW),
    ("one below the smallest coefficient", "-17014118346046923173168730371588410.5728", UNDERFLOW),
    ("large exponent", "1E999", OVERFLOW),
    ("negative with a large exponent", "-1E999", UNDERFLOW),
    ("hundred digits", "9" * 100, OVERFLOW),
    ("blank first", " 1", SYNTAX),
    ("blank last", "1 ", SYNTAX),
    ("blank alone", " ", SYNTAX),
    ("letters", "abc", SYNTAX),
    ("letters behind", "12abc", SYNTAX),
    ("sign alone", "-", SYNTAX),
    ("two signs", "+-1", SYNTAX),
    ("sign behind", "5-", SYNTAX),
    ("point alone", ".", SYNTAX),
    ("second point", "1.2.3", SYNTAX),
    ("exponent without digits", "1E", SYNTAX),
    ("exponent sign without digits", "1E+", SYNTAX),
    ("exponent without a mantissa", "E5", SYNTAX),
    ("second exponent", "1E5E", SYNTAX),
    ("exponent of four digits", "1E0001", SYNTAX),
    ("exponent beyond 32 bits", "1E2147483648", SYNTAX),
    ("hexadecimal", "0x10", SYNTAX),
    ("NaN", "NaN", SYNTAX),
    ("infinity", "inf", SYNTAX),
]

ONLY_PLAIN_AMOUNTS = [("group in a plain amount", "1,234", SYNTAX)]

ONLY_GROUPED_AMOUNTS = [
    ("one group", "1,234", SOUND),
    ("groups and fraction", "12,345,678.9012", SOUND),
    ("groups and exponent", "1,234E1", SOUND),
    ("negative groups", "-123,456", SOUND),
    ("no groups", "1234567", SOUND),
    ("short group", "1,23", SYNTAX),
    ("long group", "1,2345", SYNTAX),
    ("long second group", "1,234,5678", SYNTAX),
    ("long first group", "1234,567", SYNTAX),
    ("comma last", "1,", SYNTAX),
    ("comma first", ",123", SYNTAX),
    ("two commas", "1,,234", SYNTAX),
    ("group after the fraction", "1.5,123", SYNTAX),
    ("group after the point", "1.,234", SYNTAX),
    ("group in the exponent", "1E1,000", SYNTAX),
    ("blank for a comma", "1 234", SYNTAX),
    ("largest coefficient in groups", "17,014,118,346,046,923,173,168,730,371,588,410.5727", "net"),
    ("one above it in groups", "17,014,118,346,046,923,173,168,730,371,588,410.5728", OVERFLOW),
]


def amount_lines():
    """Named lines with one amount under test each, and the fault it has to cause: (field, status) or None.

    The largest coefficient is read as it stands and only its product with 10,000 leaves the range.
    """
    for field, rows in (("quantity", PLAIN_AMOUNTS + ONLY_PLAIN_AMOUNTS),
                        ("unit price", PLAIN_AMOUNTS + ONLY_GROUPED_AMOUNTS)):
        for name, text, verdict in rows:
            other = "10000" if verdict == "net" else "1"
            made = line(quantity=text, price=other) if field == "quantity" else line(quantity=other, price=text)
            if verdict == "net":
                verdict, at = out_of_range(text.startswith("-")), "net"
            else:
                at = field
            yield f"{field}: {name}", made, (at, verdict) if verdict else None


def check_amounts(report, program, scratch):
    cases = list(amount_lines())
    file = scratch / "amounts.csv"
    file.write_bytes(ledger_file(*[made for _, made, _ in cases]))
    check_ledger(report, "single amounts", program, file)

    faults = {number: (field, status) for number, field, status in Ledger(file.read_bytes(), DEFAULT_MODE).faults}
    for number, (name, _, expected) in enumerate(cases, 2):
        report.equal(name, "fault read from the text", faults.get(number), expected)


# ---- Wrong usage ----


def failing_runs(path, scratch):
    """Name, arguments, exit status, a word that the message has to hold."""
    files = {
        "empty": b"",
        "only_comments": b"# nothing else\n",
        "wrong_heading": b"date;account\n" + line().encode() + b"\n",
        "no_heading": line().encode() + b"\n",
        "heading_too_long": HEADING.encode() + b"," * 2000 + b"\n",
    }
    for name, content in files.items():
        (scratch / name).write_bytes(content)
        yield f"file: {name}", [scratch / name], 1, name
    yield "missing file", [scratch / "missing.csv"], 1, "missing.csv"
    yield "directory for a file", [scratch], 1, scratch.name
    yield "no arguments", [], 2, "Usage:"
    yield "empty file name", [""], 1, "No such file"
    yield "unknown mode", [path, "half-odd"], 2, "half-odd"
    yield "mode in capitals", [path, "HALF-EVEN"], 2, "HALF-EVEN"
    yield "empty mode", [path, ""], 2, "Usage:"
    yield "unknown mode and missing file", [scratch / "missing.csv", "half-odd"], 2, "half-odd"
    yield "three arguments", [path, "up", "down"], 2, "down"
    yield "unknown option", ["--verbose"], 2, "--verbose"
    yield "help with more", ["--help", "up"], 2, "--help"


def check_usage(report, program, path, scratch):
    for case, arguments, status, word in failing_runs(path, scratch):
        done = run(program, *arguments)
        report.equal(case, "exit status", done.returncode, status)
        report.equal(case, "output", done.stdout, b"")
        report.that(case, f"{word!r} is not in the message {done.stderr!r}", word in done.stderr.decode())
        report.equal(case, "usage shown", b"Usage:" in done.stderr, status == 2)

    done = run(program, "--help")
    report.equal("help", "exit status", done.returncode, 0)
    report.equal("help", "error output", done.stderr, b"")
    for word in ["Usage:", HEADING, str(LINE_LIMIT), *MODES]:
        report.that("help", f"{word!r} is not in the help", word in done.stdout.decode())


def check_full_device(report, program, path):
    """A statement that cannot be written must not pass for one that was."""
    device = pathlib.Path("/dev/full")
    if not device.exists():
        print("skipped: no /dev/full here to write to")
        return
    with device.open("wb") as full:
        done = run(program, path, stdout=full)
    report.equal("full device", "exit status", done.returncode, 1)
    report.that("full device", "no message", b"standard output" in done.stderr)


def main():
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    program, path = str(pathlib.Path(sys.argv[1]).resolve()), sys.argv[2]
    report = Report()
    with tempfile.TemporaryDirectory() as folder:
        scratch = pathlib.Path(folder)
        check_data(report, path)
        check_generator(report, path, scratch)
        check_ledger(report, "the committed ledger", program, path)
        check_default_mode(report, program, path)
        check_small_ledgers(report, program, path, scratch)
        check_amounts(report, program, scratch)
        check_usage(report, program, path, scratch)
        check_full_device(report, program, path)
    print(f"{report.compared} comparisons, {report.mismatches} mismatches")
    sys.exit(1 if report.mismatches else 0)


if __name__ == "__main__":
    main()
