# SPDX-License-Identifier: MIT
"""Two plots as SVG, for light and dark pages: the rows of the table, and the time by the distance of scales."""
from __future__ import annotations

import math
import pathlib
from xml.sax.saxutils import escape

from results import BY_HAND, PORTABLE, Row, Run

LIGHT = {"ink": "#1f2328", "soft": "#656d76", "grid": "#d8dee4", "page": "#ffffff", "band": "#f3f5f8",
         "ours": "#0969da", "peer": "#bc4c00", "other": "#8c959f", "third": "#1a7f37"}
DARK = {"ink": "#e6edf3", "soft": "#8d96a0", "grid": "#30363d", "page": "#0d1117", "band": "#161b22",
        "ours": "#58a6ff", "peer": "#f0883e", "other": "#768390", "third": "#56d364"}

SHAPES = """\
text { font: 12px system-ui, sans-serif; } .title { font-weight: 600; }
.number { text-anchor: end; font-variant-numeric: tabular-nums; } .middle { text-anchor: middle; }
.part { stroke-width: 1.3; } .between { stroke-width: 3; opacity: .45; }
.line { fill: none; stroke-width: 2; stroke-linejoin: round; } .dashed { stroke-dasharray: 4 3; stroke-width: 1.5; }
"""


def _colours(palette: dict[str, str]) -> str:
    """Written out for each palette, since not every viewer knows variables."""
    return """\
text {{ fill: {ink}; }} .soft {{ fill: {soft}; }} .page {{ fill: {page}; }} .band {{ fill: {band}; }}
.grid {{ stroke: {grid}; }} .ours {{ fill: {ours}; }} .peer {{ fill: {peer}; }} .whole {{ fill: {other}; }}
.part {{ fill: {page}; stroke: {other}; }} .ahead {{ stroke: {ours}; }} .behind {{ stroke: {peer}; }}
.one {{ stroke: {ours}; }} .two {{ stroke: {peer}; }} .three {{ stroke: {third}; }}
""".format(**palette)


STYLE = f"{SHAPES}{_colours(LIGHT)}@media (prefers-color-scheme: dark) {{\n{_colours(DARK)}}}\n"


class Drawing:
    """Collects elements and knows how large they came to be."""

    def __init__(self, width: int, height: int, title: str) -> None:
        self._head = (f'<!-- SPDX-License-Identifier: MIT -->\n<svg xmlns="http://www.w3.org/2000/svg" '
                      f'viewBox="0 0 {width} {height}" width="{width}" height="{height}" role="img">')
        self._elements = [f"<title>{escape(title)}</title>", f"<style>\n{STYLE}</style>",
                          f'<rect class="page" width="{width}" height="{height}"/>']

    def text(self, x: float, y: float, content: str, kind: str = "") -> None:
        self._elements.append(f'<text x="{x:.1f}" y="{y:.1f}" class="{kind}">{escape(content)}</text>')

    def line(self, x1: float, y1: float, x2: float, y2: float, kind: str) -> None:
        self._elements.append(f'<line x1="{x1:.1f}" y1="{y1:.1f}" x2="{x2:.1f}" y2="{y2:.1f}" class="{kind}"/>')

    def band(self, x: float, y: float, width: float, height: float) -> None:
        self._elements.append(f'<rect x="{x:.1f}" y="{y:.1f}" width="{width:.1f}" height="{height:.1f}" class="band"/>')

    def dot(self, x: float, y: float, radius: float, kind: str) -> None:
        self._elements.append(f'<circle cx="{x:.1f}" cy="{y:.1f}" r="{radius}" class="{kind}"/>')

    def path(self, points: list[tuple[float, float]], kind: str) -> None:
        steps = " ".join(f"{x:.1f},{y:.1f}" for x, y in points)
        self._elements.append(f'<polyline points="{steps}" class="line {kind}"/>')

    def write(self, path: pathlib.Path) -> None:
        path.write_text("\n".join([self._head, *self._elements, "</svg>"]) + "\n", encoding="utf-8")


class LogScale:
    """Nanoseconds to pixels."""

    def __init__(self, low: float, high: float, start: float, end: float) -> None:
        self._low, self._factor, self._start = math.log(low), (end - start) / math.log(high / low), start
        self._range = low, high

    def at(self, value: float) -> float:
        return self._start + (math.log(value) - self._low) * self._factor

    def ticks(self) -> list[float]:
        candidates = [digit * 10.0**power for power in range(-1, 5) for digit in (1, 2, 5)]
        return [tick for tick in candidates if self._range[0] <= tick <= self._range[1]]


def _label(tick: float) -> str:
    return f"{tick:g}"


def _draw_row(drawing: Drawing, scale: LogScale, row: Row, y: float) -> None:
    """Everybody who took part in one row, ours and the fastest peer last and so on top."""
    peer = row.fastest_peer("throughput")
    ours = scale.at(row.ours.throughput)
    for times in row.contenders[1:]:
        if times is not peer and times.name != PORTABLE:
            drawing.dot(scale.at(times.throughput), y, 3, "whole" if times.whole_job else "part")
    if peer:
        ahead = peer.throughput >= row.ours.throughput
        drawing.line(ours, y, scale.at(peer.throughput), y, "between " + ("ahead" if ahead else "behind"))
        drawing.dot(scale.at(peer.throughput), y, 4.5, "peer")
    drawing.dot(ours, y, 4.5, "ours")


def write_rows(run: Run, path: pathlib.Path) -> None:
    """Each row of the table on a line, by the time of a call."""
    rows = run.group("table")
    label, chart, pitch, top = 370, 470, 19, 78
    height = top + pitch * len(rows) + 40
    times = [t.throughput for row in rows for t in row.contenders if t.name != PORTABLE]
    scale = LogScale(min(times) * 0.85, max(times) * 1.15, label, label + chart)
    drawing = Drawing(label + chart + 70, height, "Nanoseconds for each call, by operation")
    drawing.text(16, 26, "Nanoseconds for each call, independent calls (logarithmic)", "title")
    x = 16.0
    for kind, radius, content in (("ours", 4.5, "qv8numeric"), ("peer", 4.5, "fastest peer that does the whole job"),
                                  ("whole", 3, "other peers"), ("part", 3, "peers that do a part of it")):
        drawing.dot(x + 5, 46, radius, kind)
        drawing.text(x + 15, 50, content, "soft")
        x += 34 + 6.3 * len(content)
    drawing.text(label + chart + 58, 50, "ratio", "number soft")
    for index in range(0, len(rows), 2):
        drawing.band(8, top + pitch * index, label + chart + 54, pitch)
    for tick in scale.ticks():
        drawing.line(scale.at(tick), top, scale.at(tick), top + pitch * len(rows), "grid")
        drawing.text(scale.at(tick), top - 8, _label(tick), "middle soft")
        drawing.text(scale.at(tick), top + pitch * len(rows) + 18, _label(tick), "middle soft")
    for index, row in enumerate(rows):
        y = top + pitch * (index + 0.5)
        drawing.text(label - 12, y + 4, row.title, "number")
        _draw_row(drawing, scale, row, y)
        ratio = row.ratio("throughput")
        if ratio:
            drawing.text(label + chart + 58, y + 4, f"{ratio:.2f}", "number")
    drawing.write(path)


def _distance(row: Row) -> int:
    return int(row.name.rsplit(" ", 1)[1])


def write_distances(run: Run, path: pathlib.Path) -> None:
    """The time of three operations by the distance of their scales: a cliff would be seen."""
    rows = run.group("distances")
    names = list(dict.fromkeys(row.name.split(",")[0] for row in rows))
    left, top, width, height = 56, 74, 760, 300
    times = [t.throughput for row in rows for t in (row.ours, row.find(BY_HAND)) if t]
    highest = max(times) * 1.08
    longest = max(map(_distance, rows))

    def place(distance: int, time: float) -> tuple[float, float]:
        return left + width * distance / longest, top + height * (1 - time / highest)

    drawing = Drawing(left + width + 30, top + height + 52, "Nanoseconds by the distance of scales")
    drawing.text(16, 26, "Nanoseconds for each call, by the digits between the scales", "title")
    step = next(step for step in (1, 2, 5, 10, 20, 50, 100, 200, 500) if highest / step <= 8)
    for time in range(0, int(highest) + 1, step):
        y = place(0, time)[1]
        drawing.line(left, y, left + width, y, "grid")
        drawing.text(left - 8, y + 4, str(time), "number soft")
    for distance in range(0, longest + 1, 4):
        drawing.text(place(distance, 0)[0], top + height + 18, str(distance), "middle soft")
    drawing.text(left + width / 2, top + height + 40, "decimal places dropped, aligned or added", "middle soft")
    for name, kind in zip(names, ("one", "two", "three")):
        of_name = sorted((row for row in rows if row.name.split(",")[0] == name), key=_distance)
        by_hand = [(row, row.find(BY_HAND)) for row in of_name if row.find(BY_HAND)]
        drawing.path([place(_distance(row), peer.throughput) for row, peer in by_hand], f"{kind} dashed")
        drawing.path([place(_distance(row), row.ours.throughput) for row in of_name], kind)
    x = 16.0
    lines = [*zip(("one", "two", "three"), names), ("one dashed", "the same by hand, as far as that goes")]
    for kind, content in lines:
        drawing.line(x, 46, x + 22, 46, f"line {kind}")
        drawing.text(x + 28, 50, content, "soft")
        x += 46 + 6.3 * len(content)
    drawing.write(path)


def write_all(run: Run, folder: pathlib.Path) -> None:
    """Both, under the names that the documentation uses."""
    write_rows(run, folder / "performance.svg")
    write_distances(run, folder / "distances.svg")
