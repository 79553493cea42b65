#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Plants one fault after another in the library under the fuzz targets, and expects each to be found and named."""
import os
import subprocess
import sys
import tempfile
from pathlib import Path
from typing import Dict, List, NamedTuple, Tuple

CALLS = 2_000_000  # the rarest fault shows in one call of some hundred thousand


class Fault(NamedTuple):
    target: str
    name: str
    report: Tuple[str, ...]  # what has to be said of it


DIFFERENCE = "difference in QV8Numeric"

FAULTS = [
    Fault("same_scale", "add: one off after a carry", (DIFFERENCE + "Add", ": expected")),
    Fault("same_scale", "add: overflow for underflow", (DIFFERENCE + "Add", "found NUMERIC_OVERFLOW")),
    Fault("same_scale", "sub: NaN not written", (DIFFERENCE + "Sub", "found {UINT64_C(0x5a5a")),
    Fault("same_scale", "sub: a byte behind the result", (DIFFERENCE + "Sub", "bytes behind")),
    Fault("same_scale", "cmp: lower halves as signed numbers", (DIFFERENCE + "Cmp", "status: expected")),
    Fault("same_scale", "mul: -2^127 refused", (DIFFERENCE + "Mul", "found NUMERIC_UNDERFLOW")),
    Fault("same_scale", "div: half up for half even", (DIFFERENCE + "Div", "a: expected")),
    Fault("same_scale", "div: operand kept when the mode is invalid", (DIFFERENCE + "Div", "a: expected")),
    Fault("same_scale", "is nan: lower half not seen", (DIFFERENCE + "IsNan",)),
    Fault("same_scale", "set zero: upper half left", (DIFFERENCE + "SetZero",)),
    Fault("rounding", "round: mode not seen when nothing is dropped", (DIFFERENCE + "Round", "found NUMERIC_OK")),
    Fault("rounding", "ceil: exact when towards zero", (DIFFERENCE + "Ceil", "found NUMERIC_OK")),
    Fault("rounding", "rescale: zero for a negative value that rounds to it", (DIFFERENCE + "Rescale", "NUMERIC_OK")),
    Fault("rounding", "rescale: departing product refused", (DIFFERENCE + "Rescale", "found NUMERIC_OVERFLOW")),
    Fault("rounding", "rescale: a mode not seen", (DIFFERENCE + "Rescale", "expected NUMERIC_INVALID_ARGUMENT")),
    Fault("rescaling", "rescaling add: exact beyond the guard", (DIFFERENCE + "RescalingAdd", "found NUMERIC_OK")),
    Fault("rescaling", "rescaling sub: operand changed", (DIFFERENCE + "RescalingSub", ": expected {")),
    Fault("rescaling", "rescaling cmp: two NaN equal", (DIFFERENCE + "RescalingCmp",)),
    Fault("rescaling", "rescaling mul: half up for half even", (DIFFERENCE + "RescalingMul", ": expected {")),
    Fault("rescaling", "rescaling div: lost part seen", (DIFFERENCE + "RescalingDiv", "status: expected")),
    Fault("rescaling", "rescaling div: zero before the modes", (DIFFERENCE + "RescalingDiv", "found NUMERIC_NAN")),
    Fault("text_out", "num2str: a byte behind the buffer", (DIFFERENCE + "Num2Str", "buffer[")),
    Fault("text_out", "num2str: a byte before the buffer", (DIFFERENCE + "Num2Str", "buffer[-1]")),
    Fault("text_out", "num2str: no sign of a zero", (DIFFERENCE + "Num2Str", "buffer[0]")),
    Fault("text_out", "num2str: no exact fit", (DIFFERENCE + "Num2Str", "found NUMERIC_BUFFER_TOO_SMALL")),
    Fault("text_out", "num2dgstr: tail one off", (DIFFERENCE + "Num2Dgstr", "buffer[0]")),
    Fault("text_out", "num2dgstr: comma for the point", (DIFFERENCE + "Num2Dgstr", "buffer[")),
    Fault("text_in", "str2num: a byte behind the NUL is read", ("QV8NumericStr2Num",)),
    Fault("text_in", "str2num: end unset", (DIFFERENCE + "Str2Num", "*end", "found untouched")),
    Fault("text_in", "str2num: end behind a long exponent", (DIFFERENCE + "Str2Num", "*end")),
    Fault("text_in", "str2num: end of the empty text", (DIFFERENCE + "Str2Num", "*end: expected untouched")),
    Fault("text_in", "dgstr2num: result of a syntax error", (DIFFERENCE + "Dgstr2Num", "result: expected")),
    Fault("text_in", "dgstr2num: one off", (DIFFERENCE + "Dgstr2Num", "result: expected")),
    Fault("integers", "long2num: mode seen at scale 0", (DIFFERENCE + "Long2Num", "found NUMERIC_INVALID_ARGUMENT")),
    Fault("integers", "num2long: output untouched on failure", (DIFFERENCE + "Num2Long", "number: expected")),
    Fault("integers", "num2int: eight bytes written", (DIFFERENCE + "Num2Int", "number: expected")),
    Fault("integers", "num2int: rounded up", (DIFFERENCE + "Num2Int", "number: expected")),
    Fault("doubles", "dbl2num: half up for half even", (DIFFERENCE + "Dbl2Num", "result: expected")),
    Fault("doubles", "dbl2num: minus zero is NaN", (DIFFERENCE + "Dbl2Num", "result: expected")),
    Fault("doubles", "num2dbl: infinity by rounding is an overflow", (DIFFERENCE + "Num2Dbl", "status: expected")),
    Fault("doubles", "num2dbl: written with an invalid mode", (DIFFERENCE + "Num2Dbl", "number: expected")),
    Fault("doubles", "num2dbl: one off in the last place", (DIFFERENCE + "Num2Dbl", "number: expected")),
]


def run(program: Path, fault: str, calls: int, folder: str) -> "subprocess.CompletedProcess[str]":
    environment = {**os.environ, "QV8NUMERIC_FUZZ_FAULT": fault}
    return subprocess.run([str(program), "--random", str(calls)], env=environment, cwd=folder, text=True,
                          stdout=subprocess.PIPE, stderr=subprocess.PIPE, check=False)


def complaint(program: Path, fault: Fault, folder: str) -> str:
    """Why the fault does not count as found, or nothing."""
    result = run(program, fault.name, CALLS, folder)
    if result.returncode == 0:
        return "not found"
    missing = [words for words in fault.report if words not in result.stderr]
    return f"the report does not say {missing[0]!r}:\n{result.stderr}" if missing else ""


def main(paths: List[str]) -> int:
    programs: Dict[str, Path] = {Path(path).name.replace("qv8numeric_fuzz_faulty_", ""): Path(path).resolve() for path in paths}
    if {fault.target for fault in FAULTS} != set(programs):
        print("a target without faults, or faults without a target")
        return 1
    failed = 0
    with tempfile.TemporaryDirectory() as folder:
        for target, program in programs.items():
            result = run(program, "", 10_000, folder)
            if result.returncode != 0:
                failed += 1
                print(f"{target}: fails without a fault\n{result.stderr}")
        for fault in FAULTS:
            what = complaint(programs[fault.target], fault, folder)
            if what:
                failed += 1
                print(f"{fault.target}: {fault.name}: {what}")
    print(f"{len(FAULTS)} faults, {len(programs)} programs without a fault, {failed} failures")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
