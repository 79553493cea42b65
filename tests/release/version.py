# SPDX-License-Identifier: MIT
"""Every place where the version is written agrees with the header.

usage: version.py SOURCE BUILD
"""
import pathlib
import sys

from places import findings

wrong = findings(pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2]))
print('\n'.join(wrong))
sys.exit(1 if wrong else 0)
