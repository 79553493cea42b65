# SPDX-License-Identifier: MIT
"""How much stack each exported function can use, from the frames and calls that GCC writes down as it compiles.

The figure is the sum of the frames, return addresses included, along the deepest way through the library. A frame whose
size is not known when it is compiled, a recursion and a call through a pointer would leave it without a bound, and are
refused. What the C library's functions add is theirs; those that may be called are listed.

usage: stack.py check COLUMN BUILD_FOLDER NAMES PAGE COMPILER    hold a build against the limit and the page
       stack.py write NAMES PAGE COMPILER COLUMN=BUILD_FOLDER... renew the page
"""
from __future__ import annotations

import dataclasses
import pathlib
import re
import sys

import page as pages

LIMITS = {"release": 2048, "portable": 2048, "debug": 4096}
RED_ZONE = 128  # what a leaf may use below its frame, which no figure holds: the limit covers it too
STEP = 16  # the page's figures are rounded up to this, the alignment of a frame

# What the library may call outside of itself.
C_LIBRARY = {"memcpy", "memmove", "memset", "printf", "__printf_chk"}

# A "dynamic,bounded" frame pushes arguments for a call; its figure holds the most it ever does.
BOUNDED = {"static", "dynamic,bounded"}

NODE = re.compile(r'^node: \{ title: "([^"]*)" label: "([^"]*)"( shape : ellipse)? \}$', re.MULTILINE)
EDGE = re.compile(r'^edge: \{ sourcename: "([^"]*)" targetname: "([^"]*)"', re.MULTILINE)
FRAME = re.compile(r"\\n(\d+) bytes \(([a-z,]+)\)$")


@dataclasses.dataclass
class Graph:
    """Functions by their titles: names for those the linker sees, with the file before them for others."""
    frames: dict[str, int]
    calls: dict[str, set[str]]
    findings: list[str]


def read_graph(folder: pathlib.Path) -> Graph:
    """Of all files that were compiled below the folder. A function in several of them counts with its largest frame."""
    graph = Graph({}, {}, [])
    files = sorted(folder.glob("src/**/*.ci"))
    if not files:
        graph.findings.append(f"{folder}: nothing was compiled with -fcallgraph-info=su")
    for file in files:
        text = file.read_text(encoding="utf-8")
        for title, label, declared in NODE.findall(text):
            frame = FRAME.search(label)
            if frame is None:
                if not declared:
                    graph.findings.append(f"{title}: defined, but without a frame")
                continue
            if frame.group(2) not in BOUNDED:
                graph.findings.append(f"{title}: its frame is {frame.group(2)}")
            graph.frames[title] = max(int(frame.group(1)), graph.frames.get(title, 0))
        for source, target in EDGE.findall(text):
            graph.calls.setdefault(source, set()).add(target)
    return graph


def definition(graph: Graph, name: str) -> str:
    """A complete object's constructor may be written down under the name of a base object's."""
    return name if name in graph.frames else name.replace("C1E", "C2E")


def deepest(graph: Graph, name: str, way: tuple[str, ...] = ()) -> int:
    """The bytes from this function down."""
    name = definition(graph, name)
    if name in way:
        graph.findings.append(f"{name}: calls itself, by way of {' -> '.join(way[way.index(name):])}")
        return 0
    if name not in graph.frames:
        if name not in C_LIBRARY:
            graph.findings.append(f"{name}: called by {way[-1] if way else 'nobody'}, but nothing is known of it")
        return 0
    below = (deepest(graph, callee, (*way, name)) for callee in sorted(graph.calls.get(name, ())))
    return graph.frames[name] + max(below, default=0)


def exported(names: pathlib.Path) -> list[str]:
    """In the order of the list."""
    lines = names.read_text(encoding="ascii").splitlines()
    return [line for line in lines if line and not line.startswith("#")]


def measure(column: str, folder: pathlib.Path, names: pathlib.Path) -> tuple[dict[str, int], list[str]]:
    """The bytes of every exported function, and what is wrong."""
    graph = read_graph(folder)
    used = {name: deepest(graph, name) for name in exported(names)}
    graph.findings += [f"{name}: {bytes_} bytes of stack and a red zone, more than {LIMITS[column]}"
                       for name, bytes_ in used.items() if bytes_ + RED_ZONE > LIMITS[column]]
    return used, sorted(set(graph.findings))


def shown(bytes_: int) -> str:
    return str((bytes_ + STEP - 1) // STEP * STEP)


def compare(column: str, used: dict[str, int], page: pathlib.Path, compiler: str) -> list[str]:
    """With the page's column, which is that of one compiler; another one is held to the limit alone."""
    heads, table = pages.read(page, "stack")
    if f"GCC {compiler}" not in page.read_text(encoding="utf-8"):
        print(f"the page has the frames of another compiler than GCC {compiler}: held to the limit alone")
        return []
    at = heads.index(column)
    differing = {name for name in used.keys() | table.keys()
                 if name not in used or name not in table or table[name][at] != shown(used[name])}
    return [f"{name}: {shown(used[name]) if name in used else 'not exported'}, but "
            f"{table[name][at] if name in table else 'nothing'} on the page: ./dev bounds --write"
            for name in sorted(differing)]


def finish(findings: list[str]) -> None:
    for finding in findings:
        print(finding)
    sys.exit(1 if findings else 0)


def check(column: str, folder: str, names: str, page: str, compiler: str) -> None:
    used, findings = measure(column, pathlib.Path(folder), pathlib.Path(names))
    finish(findings or compare(column, used, pathlib.Path(page), compiler))


def write(names: str, page: str, compiler: str, *builds: str) -> None:
    columns: dict[str, dict[str, int]] = {}
    findings: list[str] = []
    for build in builds:
        column, _, folder = build.partition("=")
        columns[column], found = measure(column, pathlib.Path(folder), pathlib.Path(names))
        findings += [f"{column}: {finding}" for finding in found]
    table = {name: [shown(used[name]) for used in columns.values()] for name in exported(pathlib.Path(names))}
    pages.write(pathlib.Path(page), "stack", ["function", *columns], 1, table)
    text = pathlib.Path(page).read_text(encoding="utf-8")
    pathlib.Path(page).write_text(re.sub(r"GCC \d+\.\d+\.\d+", f"GCC {compiler}", text), encoding="utf-8")
    finish(findings)


if __name__ == "__main__":
    {"check": check, "write": write}[sys.argv[1]](*sys.argv[2:])
