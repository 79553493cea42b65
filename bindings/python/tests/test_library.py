# SPDX-License-Identifier: MIT
"""How the library is found, and what is said when it is not."""

import ctypes
import os
import pathlib
import re
import shutil
import subprocess
import sys
from typing import Dict, Optional

import pytest

import qv8numeric
from qv8numeric import library, raw

PACKAGE = pathlib.Path(qv8numeric.__file__).resolve().parent
HEADER = library.source_tree() / "include" / "qv8numeric.h"
SHOW = "import qv8numeric; print(qv8numeric.library_path); print(qv8numeric.Fixed('1.5', qv8numeric.Info(1)) * 2)"


def loaded_file() -> str:
    """The file behind the name that the library was loaded by."""
    maps = pathlib.Path("/proc/self/maps")
    if not maps.exists():
        pytest.skip("no /proc/self/maps tells the files of this process")
    files = {line.split()[-1] for line in maps.read_text().splitlines() if "libqv8numeric" in line}
    (file,) = files
    return file


def run(
    variable: Optional[str], package: pathlib.Path = PACKAGE, **others: str
) -> "subprocess.CompletedProcess[str]":
    environment: Dict[str, str] = {**os.environ, **others, "PYTHONPATH": str(package.parent)}
    environment.pop(library.VARIABLE, None)
    if variable is not None:
        environment[library.VARIABLE] = variable
    command = [sys.executable, "-B", "-c", SHOW]
    return subprocess.run(command, env=environment, capture_output=True, text=True, timeout=60)


@pytest.fixture
def tree(tmp_path: pathlib.Path) -> pathlib.Path:
    """A source tree of this package and the header, without builds."""
    package = tmp_path / "tree" / "bindings" / "python" / "src" / "qv8numeric"
    shutil.copytree(PACKAGE, package)
    (tmp_path / "tree" / "include").mkdir()
    (tmp_path / "tree" / "include" / "qv8numeric.h").touch()
    return tmp_path / "tree"


def package_of(tree: pathlib.Path) -> pathlib.Path:
    return tree / "bindings" / "python" / "src" / "qv8numeric"


def test_the_file_that_the_variable_names() -> None:
    result = run(loaded_file())
    assert (result.stdout, result.stderr) == (f"{loaded_file()}\n3.0\n", "")


def test_the_library_of_the_system(tmp_path: pathlib.Path) -> None:
    shutil.copy(loaded_file(), tmp_path / library.FILE_NAME)
    result = run(None, LD_LIBRARY_PATH=str(tmp_path))
    assert (result.stdout, result.stderr) == (f"{library.FILE_NAME}\n3.0\n", "")


def test_the_newest_build_of_the_source_tree(tree: pathlib.Path) -> None:
    for age, folder in enumerate(("build/newest", "build", "build/oldest")):
        (tree / folder).mkdir(parents=True, exist_ok=True)
        shutil.copy(loaded_file(), tree / folder / library.FILE_NAME)
        os.utime(tree / folder / library.FILE_NAME, (10**9 - age, 10**9 - age))
    (tree / "build" / "newest" / library.FILE_NAME).write_bytes(b"no library")
    os.utime(tree / "build" / "newest" / library.FILE_NAME, (10**9, 10**9))
    result = run(None, package_of(tree))
    assert result.stdout == f"{tree / 'build' / library.FILE_NAME}\n3.0\n", "the newest that can be loaded"


def test_none_at_all(tree: pathlib.Path) -> None:
    result = run(None, package_of(tree))
    assert result.returncode == 1
    message = result.stderr
    assert "LibraryNotFoundError: no shared library of qv8numeric was found" in message
    for part in (library.FILE_NAME, "apt-get install libqv8numeric1", "cmake --build build", library.VARIABLE):
        assert part in message


def test_a_variable_that_names_nothing(tmp_path: pathlib.Path) -> None:
    missing = str(tmp_path / "missing.so")
    result = run(missing)
    assert "LibraryNotFoundError" in result.stderr
    assert f"  {missing}: " in result.stderr
    assert result.stderr.count(library.FILE_NAME + ": ") == 0, "nothing else is tried"


@pytest.mark.skipif(not sys.platform.startswith("linux"), reason="needs a C compiler that makes ELF files")
@pytest.mark.parametrize("left_out, expected", [("QV8NumericDbl2Num", "it lacks QV8NumericDbl2Num"),
                                                (None, "its interface is not version 1")])  # fmt: skip
def test_another_library(tmp_path: pathlib.Path, left_out: Optional[str], expected: str) -> None:
    compiler = shutil.which("cc") or shutil.which("gcc") or shutil.which("clang")
    if compiler is None:
        pytest.skip("no C compiler")
    source = tmp_path / "other.c"
    names = [name for name in raw.SIGNATURES if name != left_out]
    source.write_text("".join(f"void {name}(void) {{}}\n" for name in names))
    versions = tmp_path / "other.map"
    versions.write_text("QV8NUMERIC_2 { *; };\n")
    other = tmp_path / "other.so"
    command = [compiler, "-shared", "-fPIC", f"-Wl,--version-script={versions}", str(source), "-o", str(other)]
    subprocess.run(command, check=True)
    if left_out is None and not has_versions():
        pytest.skip("no dlvsym here tells versions")
    assert expected in run(str(other)).stderr


def has_versions() -> bool:
    return hasattr(ctypes.PyDLL(None), "dlvsym")


def test_every_function_of_the_header_is_here() -> None:
    if not HEADER.is_file():
        pytest.skip("not in a source tree")
    declared = set(re.findall(r"\bQV8Numeric\w+(?=\()", re.sub(r"(?s)/\*.*?\*/", "", HEADER.read_text())))
    assert len(declared) == 28
    assert set(raw.SIGNATURES) == declared
    for name in declared:
        assert getattr(raw, name).argtypes == list(raw.SIGNATURES[name][1:])


def test_numbers_are_those_of_the_header() -> None:
    if not HEADER.is_file():
        pytest.skip("not in a source tree")
    text = HEADER.read_text()
    constants = {name: int(number) for name, number in re.findall(r"^    NUMERIC_(\w+) = (-?\d+)", text, re.M)}
    statuses = {name: number for name, number in constants.items() if not name.startswith("ROUND_")}
    assert statuses == {status.name: int(status) for status in qv8numeric.Status}
    modes = {name[len("ROUND_"):]: number for name, number in constants.items() if name.startswith("ROUND_")}
    assert modes == {mode.name: int(mode) for mode in qv8numeric.Rounding}
    version = re.search(r'VERSION_STRING "(.*)"', text)
    assert version and version[1] == qv8numeric.__version__


def test_raw_arguments_have_types() -> None:
    with pytest.raises(Exception, match="LP_Numeric"):
        raw.QV8NumericAdd(1, 2, 3)
