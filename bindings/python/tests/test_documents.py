# SPDX-License-Identifier: MIT
"""Every example in a docstring and in the README is run, and the program beside them."""

import doctest
import importlib
import os
import pathlib
import pkgutil
import subprocess
import sys

import pytest

import qv8numeric

FOLDER = pathlib.Path(__file__).resolve().parent.parent
MODULES = ["qv8numeric", *(f"qv8numeric.{module.name}" for module in pkgutil.iter_modules(qv8numeric.__path__))]
WITH_EXAMPLES = {"qv8numeric", "qv8numeric.fixed", "qv8numeric.info", "qv8numeric.raw", "qv8numeric.status"}


@pytest.mark.parametrize("name", MODULES)
def test_docstrings(name: str) -> None:
    result = doctest.testmod(importlib.import_module(name))
    assert result.failed == 0
    assert (result.attempted > 0) == (name in WITH_EXAMPLES)


def test_readme() -> None:
    result = doctest.testfile(str(FOLDER / "README.md"), module_relative=False)
    assert result.failed == 0
    assert result.attempted > 30


def test_ledger() -> None:
    data = FOLDER / "examples" / "ledger.csv"
    command = [sys.executable, "-B", str(FOLDER / "examples" / "ledger.py"), str(data)]
    environment = {**os.environ, "PYTHONPATH": str(pathlib.Path(qv8numeric.__file__).parent.parent)}
    result = subprocess.run(command, env=environment, capture_output=True, text=True, timeout=60)
    assert (result.returncode, result.stderr) == (0, "")
    assert result.stdout == EXPECTED


# By hand: 3 * 1234.5678 is 3703.7034, rounded 3703.70, its tax 740.74; 2.5 * 19.99 is 49.975, a tie, rounded 49.98, its
# tax 3.7485, rounded 3.75; 12 * 0.10 is 1.20, its tax 0.09.
EXPECTED = """\
left out: '1,2345' is no number
4100          4,498.17
4200              1.29
total         4,499.46, rounded 3 times
"""
