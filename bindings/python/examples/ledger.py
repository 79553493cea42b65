# SPDX-License-Identifier: MIT
"""Sums a ledger per account and in all: quantity times price and its tax, each rounded to cents and counted where it was.

usage: ledger.py FILE.csv
"""

import csv
import sys
from typing import Dict, List

from qv8numeric import Fixed, Info, Rounding, Status, StatusError

COUNT, PRICE, RATE, MONEY = Info(3), Info(4), Info(4), Info(2, Rounding.HALF_EVEN)

accounts: Dict[str, List[Fixed]] = {}
rounded = 0
with open(sys.argv[1], newline="", encoding="utf-8") as file:
    rows = csv.reader(line for line in file if not line.startswith("#"))
    next(rows)
    for account, quantity, price, tax in rows:
        try:
            net, first = Fixed(quantity, COUNT).mul(Fixed(price, PRICE, groups=True), into=MONEY)
            due, second = net.mul(Fixed(tax, RATE), into=MONEY)
        except StatusError as error:
            print(f"left out: {error}")
            continue
        rounded += [first, second].count(Status.INEXACT)
        accounts.setdefault(account, []).append(net + due)
for account, amounts in sorted(accounts.items()):
    print(f"{account:8}{sum(amounts):>14,.2f}")
print(f"{'total':8}{sum(sum(accounts.values(), [])):>14,.2f}, rounded {rounded} times")
