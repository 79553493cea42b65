# SPDX-License-Identifier: MIT
"""Finds the shared library.

It is looked for in three places, and the first that holds a fitting one serves:

1. the file that the environment variable QV8NUMERIC_LIBRARY names; where it is set, nothing else is tried;
2. wherever the system looks for shared libraries;
3. the folders build/* of the source tree that this file lies in, the newest first.

A library fits when its interface is version 1, which every 1.x has in full.
"""

import ctypes
import os
import pathlib
import sys
from typing import Iterable, Iterator, List

VARIABLE = "QV8NUMERIC_LIBRARY"
INTERFACE = 1

if sys.platform == "darwin":
    FILE_NAME = f"libqv8numeric.{INTERFACE}.dylib"
elif sys.platform == "win32":
    FILE_NAME = "qv8numeric.dll"
else:
    FILE_NAME = f"libqv8numeric.so.{INTERFACE}"

HOW_TO_GET_ONE = f"""\
Install the library (on Debian: apt-get install libqv8numeric{INTERFACE}), or build it in its source tree
(cmake -S . -B build && cmake --build build) and say where it is: {VARIABLE}=build/{FILE_NAME}"""


class LibraryNotFoundError(ImportError):
    """No shared library was found, or none that fits. The message says what was tried and what to do."""


def load(names: Iterable[str]) -> ctypes.PyDLL:
    """The library, which has to have functions of these names."""
    tried: List[str] = []
    for path in candidates():
        try:
            # A call takes nanoseconds, less than to give up the lock of the interpreter and to wait for it again.
            library = ctypes.PyDLL(path)
        except OSError as error:
            tried.append(f"{path}: {error}")
            continue
        fault = misfit(library, names)
        if not fault:
            return library
        tried.append(f"{path}: {fault}")
    places = "\n".join(f"  {line}" for line in tried)
    raise LibraryNotFoundError(f"no shared library of qv8numeric was found. Tried:\n{places}\n{HOW_TO_GET_ONE}")


def candidates() -> Iterator[str]:
    named = os.environ.get(VARIABLE)
    if named:
        yield named
        return
    yield FILE_NAME
    yield from map(str, built(source_tree()))


def source_tree() -> pathlib.Path:
    """The folder above bindings/python/src/qv8numeric. Of an installed package it is some other one, without builds."""
    above = pathlib.Path(__file__).resolve().parents
    return above[min(4, len(above) - 1)]


def built(tree: pathlib.Path) -> List[pathlib.Path]:
    if not (tree / "include" / "qv8numeric.h").is_file():
        return []
    found = [path for pattern in ("build", "build/*") for path in tree.glob(f"{pattern}/{FILE_NAME}")]
    return sorted(found, key=lambda path: path.stat().st_mtime, reverse=True)


def misfit(library: ctypes.PyDLL, names: Iterable[str]) -> str:
    """What a library lacks; empty where it lacks nothing."""
    missing = [name for name in names if not hasattr(library, name)]
    if missing:
        return f"not qv8numeric of interface {INTERFACE}, or a damaged one: it lacks {', '.join(missing)}"
    if not has_interface(library, next(iter(names))):
        return f"its interface is not version {INTERFACE}"
    return ""


def has_interface(library: ctypes.PyDLL, name: str) -> bool:
    """Whether a function carries the version of the interface. Where the system's linker has no such versions, the name
    of the file is all that says it."""
    try:
        find = ctypes.PyDLL(None).dlvsym
    except (AttributeError, OSError, TypeError):
        return True
    find.argtypes = [ctypes.c_void_p, ctypes.c_char_p, ctypes.c_char_p]
    find.restype = ctypes.c_void_p
    return bool(find(library._handle, name.encode(), f"QV8NUMERIC_{INTERFACE}".encode()))
