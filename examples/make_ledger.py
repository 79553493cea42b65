#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Write the ledger that examples/ledger.c reads: the same bytes on every run.

Usage: make_ledger.py [OUTPUT]    (default: data/ledger.csv beside this script)

The content is invented. Two lines in five are built so that quantity times price falls exactly half way between two
amounts the currency can express, with either sign, because only there do the half modes differ from one another.
Malformed lines of every kind are spread over the file.
"""

import datetime
import pathlib
import sys

SEED = 20250101
GOOD_LINES = 1200
FIRST_DAY = datetime.date(2025, 1, 1)
LICENCE = "# SPDX-License-Identifier: MIT"
HEADING = "date,account,description,quantity,unit price,tax rate,currency,places"

PLACES = {"BHD": 3, "EUR": 2, "JPY": 0, "KWD": 3, "USD": 2}
# A currency appears here as often as its share of the lines.
CURRENCIES = ["EUR", "EUR", "EUR", "USD", "USD", "JPY", "JPY", "KWD", "BHD"]
ACCOUNTS = ["4000 sales", "4100 services", "4200 licences", "4300 repairs", "4400 rentals", "4900 sales, other"]
TAX_RATES = ["0", "2.5", "7", "7.7", "8.25", "19", "20.5"]
DESCRIPTIONS = [
    "steel plate",
    "copper wire by the metre",
    'pipe, 3/4" thread',
    'monitor stand, 27" and above',
    "consulting hour",
    "annual licence",
    "machine hire, per day",
    'label "fragile", roll',
    "spare part",
    "freight, inland",
    "packing",
    "calibration",
]


class Draw:
    """A multiplicative generator modulo the prime 2^31 - 1: integers only, so every Python draws the same numbers."""

    def __init__(self, seed):
        self._state = seed

    def below(self, bound):
        self._state = self._state * 48271 % 2147483647
        return self._state % bound

    def between(self, low, high):
        return low + self.below(high - low + 1)

    def one_of(self, choices):
        return choices[self.below(len(choices))]

    def percent(self, chance):
        return self.below(100) < chance


def fixed(coefficient, places, grouped=False):
    """The text of coefficient x 10^-places, with every place written."""
    whole, fraction = divmod(abs(coefficient), 10**places)
    sign = "-" if coefficient < 0 else ""
    digits = f"{whole:,}" if grouped else str(whole)
    return sign + digits + (f".{fraction:0{places}d}" if places else "")


def odd(number):
    return number | 1


def tie_by_half_quantity(draw, places):
    """An odd number of halves times an odd number of smallest units leaves half a unit over."""
    halves = odd(draw.between(1, 400))
    units = odd(draw.between(1, 90000))
    return fixed(halves * 5, 1), fixed(units, places, grouped=True)


def tie_by_half_price(draw, places):
    """An odd quantity of a price that ends half a smallest unit up leaves half a unit over."""
    quantity = odd(draw.between(1, 60))
    half_units = draw.between(0, 90000) * 10 + 5
    return str(quantity), fixed(half_units, places + 1, grouped=True)


def everyday(draw, places):
    """Places of both as they come: most products have to be rounded, few of them from the middle."""
    quantity_places = draw.between(0, 4)
    price_places = draw.between(min(places, 2), 4)
    quantity = fixed(draw.between(1, 250 * 10**quantity_places), quantity_places)
    price = fixed(draw.between(1, 5000) * draw.between(1, 20000), price_places, grouped=True)
    return quantity, price


def wholesale(draw):
    """A price of many groups; times the quantity it has more digits than binary floating point holds."""
    quantity = fixed(draw.between(1, 99999), 4)
    units = draw.between(10**8, 2 * 10**9) * draw.between(10**2, 10**4)
    return quantity, fixed(units, 4, grouped=True)


def exported(draw, places):
    """Forms that a spreadsheet writes: an exponent, a plus sign, no digit before or after the point."""
    quantity = draw.one_of(["2.5E1", "1e2", "+12", ".5", "7.", "1.25E-2"])
    return quantity, fixed(draw.between(1, 999999), 2, grouped=True)


def amounts(draw, places):
    kind = draw.below(100)
    if kind < 20:
        return tie_by_half_quantity(draw, places)
    if kind < 40:
        return tie_by_half_price(draw, places)
    if kind < 97:
        return everyday(draw, places)
    return exported(draw, places)


def negated(quantity):
    return "-" + quantity.lstrip("+")


def quoted(field):
    if any(character in field for character in ',"'):
        return '"' + field.replace('"', '""') + '"'
    return field


def csv_line(fields):
    return ",".join(quoted(field) for field in fields)


def good_line(draw, date):
    currency = draw.one_of(CURRENCIES)
    places = PLACES[currency]
    is_return = draw.percent(30)
    quantity, price = wholesale(draw) if not is_return and draw.percent(4) else amounts(draw, places)
    return csv_line([
        date,
        draw.one_of(ACCOUNTS),
        "return: " + draw.one_of(DESCRIPTIONS) if is_return else draw.one_of(DESCRIPTIONS),
        negated(quantity) if is_return else quantity,
        price,
        draw.one_of(TAX_RATES),
        currency,
        str(places),
    ])


def malformed_amounts():
    """Lines that are sound as CSV and wrong in one field: quantity, unit price, tax rate, currency, places."""
    group_of_nines = ",".join(["999"] * 13)
    return [
        ("short group", "3", "1,23", "19", "EUR", "2"),
        ("group of four digits", "3", "1,2345", "19", "EUR", "2"),
        ("group after four digits", "3", "1234,567.00", "7", "USD", "2"),
        ("two commas in a row", "3", "12,,345", "7", "USD", "2"),
        ("comma first", "3", ",500", "0", "JPY", "0"),
        ("groups after the point", "3", "1,234.5,678", "19", "EUR", "2"),
        ("unit behind the quantity", "12x", "4.50", "19", "EUR", "2"),
        ("blank before the quantity", " 5", "4.50", "19", "EUR", "2"),
        ("blank behind the price", "5", "99.95 ", "7.7", "USD", "2"),
        ("groups in the quantity", "1,000", "4.50", "19", "EUR", "2"),
        ("words for a quantity", "ten", "4.50", "19", "EUR", "2"),
        ("two signs", "--3", "4.500", "0", "KWD", "3"),
        ("sign alone", "-", "4.500", "0", "KWD", "3"),
        ("exponent without digits", "1e", "4.500", "0", "BHD", "3"),
        ("the word NaN", "1", "NaN", "0", "BHD", "3"),
        ("empty quantity", "", "1,250", "2.5", "JPY", "0"),
        ("empty price", "4", "", "2.5", "JPY", "0"),
        ("empty tax rate", "4", "1,250", "", "JPY", "0"),
        ("percent sign", "4", "12.00", "19%", "EUR", "2"),
        ("price of 39 digits", "1", group_of_nines, "19", "EUR", "2"),
        ("negative quantity of 40 digits", "-" + "8" * 40, "1.00", "19", "EUR", "2"),
        ("price with a large exponent", "1", "1E40", "19", "USD", "2"),
        ("quantity of five places", "1.00005", "10.00", "19", "USD", "2"),
        ("price of six places", "1", "10.000001", "19", "USD", "2"),
        ("tax rate of three places", "1", "10.00", "7.125", "USD", "2"),
        ("unknown currency", "2", "10.00", "19", "XTS", "2"),
        ("currency in small letters", "2", "10.00", "19", "eur", "2"),
        ("no currency", "2", "10.00", "19", "", "2"),
        ("yen with two places", "2", "1,000", "7", "JPY", "2"),
        ("places in words", "2", "10.00", "7", "EUR", "two"),
        ("net amount out of range", "1E30", "1,000,000,000,000.00", "19", "EUR", "2"),
        ("negative net amount out of range", "-1E30", "1,000,000,000,000.00", "19", "EUR", "2"),
        ("tax amount out of range", "1E34", "10,000", "250", "JPY", "0"),
        ("gross amount out of range", "1.6E34", "100.00", "19", "EUR", "2"),
    ]


def malformed_tails():
    """What follows the date on each malformed line; the last one is a line without anything."""
    for description, *fields in malformed_amounts():
        yield csv_line(["4000 sales", description, *fields])
    yield "4000 sales,one field short,2,10.00,19,EUR"
    yield "4000 sales,price without its quotes,2,1,250.00,19,EUR,2"
    yield '4000 sales,"quote never closed,2,10.00,19,EUR,2'
    yield '4000 sales,"text behind" the quote,2,10.00,19,EUR,2'
    yield ""


def ledger_lines():
    draw = Draw(SEED)
    malformed = list(malformed_tails())
    stride = GOOD_LINES // len(malformed)

    yield LICENCE
    yield HEADING
    for index in range(GOOD_LINES):
        date = (FIRST_DAY + datetime.timedelta(days=index * 365 // GOOD_LINES)).isoformat()
        yield good_line(draw, date)
        if index % stride == stride // 2 and malformed:
            tail = malformed.pop(0)
            yield f"{date},{tail}" if tail else ""


def main():
    default = pathlib.Path(__file__).resolve().parent / "data" / "ledger.csv"
    output = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else default
    output.write_bytes("".join(line + "\n" for line in ledger_lines()).encode("ascii"))


if __name__ == "__main__":
    main()
