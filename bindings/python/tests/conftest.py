# SPDX-License-Identifier: MIT
"""Keeps what hypothesis writes out of the source tree."""

import os
import tempfile

os.environ.setdefault("HYPOTHESIS_STORAGE_DIRECTORY", os.path.join(tempfile.gettempdir(), "qv8numeric-hypothesis"))
