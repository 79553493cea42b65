# SPDX-License-Identifier: MIT
"""Draws the pictures of the documentation, for light and dark pages.

usage: pictures.py FOLDER
"""
from __future__ import annotations

import pathlib
import sys
from xml.sax.saxutils import escape

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "bench"))

from plot import DARK, LIGHT  # noqa: E402

SHAPES = """\
text { font: 14px system-ui, sans-serif; } .strong { font-weight: 600; } .small { font-size: 12.5px; }
.code { font-family: ui-monospace, SFMono-Regular, Menlo, Consolas, monospace; font-size: 13px; }
.middle { text-anchor: middle; } .end { text-anchor: end; }
.stroke { fill: none; stroke-width: 1.5; } .thick { stroke-width: 4; }
"""


def _colours(palette: dict[str, str]) -> str:
    return """\
text {{ fill: {ink}; }} .soft {{ fill: {soft}; }} .box {{ fill: {band}; stroke: {grid}; }} .grid {{ stroke: {grid}; }}
.stroke {{ stroke: {other}; }} .head {{ fill: {other}; }}
.near {{ fill: {ours}; stroke: {ours}; }} .away {{ fill: {peer}; stroke: {peer}; }} text.near, text.away {{ stroke: none; }}
""".format(**palette)


STYLE = f"{SHAPES}{_colours(LIGHT)}@media (prefers-color-scheme: dark) {{\n{_colours(DARK)}}}\n"


class Drawing:
    """Collects elements; the page behind shows through."""

    def __init__(self, width: int, height: int, title: str) -> None:
        self._elements = ["<!-- SPDX-License-Identifier: MIT -->",
                          f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {width} {height}" width="{width}" '
                          f'height="{height}" role="img">', f"<title>{escape(title)}</title>", f"<style>\n{STYLE}</style>"]

    def text(self, x: float, y: float, content: str, kind: str = "") -> None:
        self._elements.append(f'<text x="{x:g}" y="{y:g}" class="{kind}">{escape(content)}</text>')

    def box(self, x: float, y: float, width: float, height: float, lines: list[tuple[str, str]]) -> None:
        """With its lines in the middle, each with its kind."""
        self._elements.append(f'<rect x="{x:g}" y="{y:g}" width="{width:g}" height="{height:g}" rx="6" class="box"/>')
        top = y + height / 2 - 9.5 * (len(lines) - 1) + 5
        for number, (content, kind) in enumerate(lines):
            self.text(x + width / 2, top + 19 * number, content, f"middle {kind}")

    def line(self, x1: float, y1: float, x2: float, y2: float, kind: str) -> None:
        self._elements.append(f'<line x1="{x1:g}" y1="{y1:g}" x2="{x2:g}" y2="{y2:g}" class="{kind}"/>')

    def triangle(self, points: list[tuple[float, float]], kind: str) -> None:
        self._elements.append('<path d="M{} Z" class="{}"/>'.format(
            " L".join(f"{x:g} {y:g}" for x, y in points), kind))

    def down(self, x: float, y1: float, y2: float) -> None:
        """An arrow between two steps."""
        self.line(x, y1, x, y2 - 6, "stroke")
        self.triangle([(x - 4.5, y2 - 8), (x + 4.5, y2 - 8), (x, y2)], "head")

    def along(self, x1: float, x2: float, y: float, kind: str) -> None:
        """A thick arrow along a number line, to x2."""
        back = 9 if x2 < x1 else -9
        self.line(x1, y, x2 + back, y, f"thick {kind}")
        self.triangle([(x2 + back, y - 6), (x2 + back, y + 6), (x2, y)], kind)

    def dot(self, x: float, y: float, kind: str) -> None:
        self._elements.append(f'<circle cx="{x:g}" cy="{y:g}" r="5.5" class="{kind}"/>')

    def done(self) -> str:
        return "\n".join([*self._elements, "</svg>"]) + "\n"


def model() -> str:
    drawing = Drawing(400, 132, "The coefficient 123456 with scale 2 beside it is 1234.56")
    drawing.text(85, 20, "Numeric, 16 bytes", "middle strong")
    drawing.box(4, 32, 162, 40, [("123456", "code")])
    drawing.text(290, 20, "NumericInfo, 8 bytes", "middle strong")
    drawing.box(184, 32, 62, 40, [("2", "code")])
    drawing.box(246, 32, 150, 40, [("HALF_EVEN", "code")])
    drawing.text(85, 91, "the coefficient", "middle small soft")
    drawing.text(215, 91, "scale", "middle small soft")
    drawing.text(321, 91, "rounding mode", "middle small soft")
    drawing.text(200, 122, "123456 × 10⁻² = 1234.56", "middle")
    return drawing.done()


# Where the parts of the line between 2 and 3 go: below the tie, the tie, above it; True is away from zero.
AROUND = {
    "UP": ((True, True, True), (True, True, True)),
    "DOWN": ((False, False, False), (False, False, False)),
    "CEILING": ((True, True, True), (False, False, False)),
    "FLOOR": ((False, False, False), (True, True, True)),
    "HALF_UP": ((False, True, True), (False, True, True)),
    "HALF_DOWN": ((False, False, True), (False, False, True)),
    "HALF_EVEN": ((False, False, True), (False, False, True)),
}


def modes() -> str:
    """Two stretches of the number line, the negative one on the left, and a row for each mode."""
    top, step, bottom = 44, 30, 258
    drawing = Drawing(420, 346, "Where each mode takes the numbers from 2 to 3 and from -3 to -2")
    panels = ((270.0, 140.0, "2", "2.5", "3"), (235.0, -140.0, "-2", "-2.5", "-3"))
    for start, length, *labels in panels:
        for part, label in zip((0, 0.5, 1), labels):
            x = start + part * length
            drawing.text(x, 20, label, "middle strong" if part != 0.5 else "middle soft")
            drawing.line(x, 28, x, bottom - 6, "grid")
    for row, (mode, sides) in enumerate(AROUND.items()):
        y = top + row * step
        drawing.text(82, y + 5, mode, "end code")
        for (start, length, *_), (below, tie, above) in zip(panels, sides):
            kinds = ["away" if away else "near" for away in (below, tie, above)]
            near, middle, far = start + length * 0.02, start + length / 2, start + length * 0.98
            inward = 7 if length > 0 else -7
            if below == above:
                drawing.along(*((near, far) if above else (far, near)), y, kinds[0])
            else:
                drawing.along(middle - inward, near, y, kinds[0])
                drawing.along(middle + inward, far, y, kinds[2])
            drawing.dot(middle, y, kinds[1])
    drawing.dot(16, bottom + 14, "near")
    drawing.text(30, bottom + 19, "to the magnitude 2", "small")
    drawing.dot(186, bottom + 14, "away")
    drawing.text(200, bottom + 19, "to the magnitude 3", "small")
    for line, text in enumerate(("The dot is the tie. HALF_EVEN takes it to the even neighbour:",
                                 "2.5 to 2, and 3.5 to 4. 2 and 3 stay what they are in all modes.")):
        drawing.text(10, bottom + 48 + 20 * line, text, "small soft")
    return drawing.done()


def _words(drawing: Drawing, x: float, y: float, labels: list[str], width: float = 62) -> None:
    for number, label in enumerate(labels):
        drawing.box(x + number * width, y, width, 34, [(label, "code")])


def multiply() -> str:
    drawing = Drawing(560, 660, "The road of a rescaling multiply, from two values over 256 bits to one")
    left, right, middle = 110.0, 300.0, 205.0
    drawing.box(30, 10, 160, 46, [("a", "code"), ("128 bits, scale sa", "small soft")])
    drawing.box(220, 10, 160, 46, [("b", "code"), ("128 bits, scale sb", "small soft")])
    drawing.box(410, 10, 140, 46, [("result_info", "code"), ("scale sr, mode", "small soft")])
    drawing.down(left, 56, 92)
    drawing.down(right, 56, 92)
    drawing.text(middle, 80, "magnitudes", "middle small soft")
    _words(drawing, left - 62, 92, ["a₁", "a₀"])
    _words(drawing, right - 62, 92, ["b₁", "b₀"])
    drawing.text(480, 106, "negative: when one", "middle small")
    drawing.text(480, 124, "operand is, not both", "middle small")
    drawing.down(left, 126, 166)
    drawing.down(right, 126, 166)
    drawing.text(middle, 150, "×, exactly", "middle small soft")
    _words(drawing, middle - 124, 166, ["p₃", "p₂", "p₁", "p₀"])
    drawing.text(480, 180, "256 bits, the product is", "middle small")
    drawing.text(480, 198, "below 2²⁵⁴; scale sa + sb", "middle small")
    drawing.down(middle, 200, 250)
    drawing.text(middle + 12, 230, "÷ 10^(sa + sb − sr)", "small soft")
    _words(drawing, 20, 250, ["0", "0", "q₁", "q₀"])
    drawing.text(144, 304, "quotient, scale sr", "middle small soft")
    for number, label in enumerate(("0", "< ½", "½", "> ½")):
        drawing.box(300 + number * 62, 250, 62, 34, [(label, "code")])
    drawing.text(424, 304, "what was dropped: one of four", "middle small soft")
    drawing.down(144, 314, 350)
    drawing.down(424, 314, 350)
    drawing.box(20, 350, 528, 46, [("raise by one?  mode, sign, dropped part, odd or even", ""),
                                   ("one table of truth for all operations", "small soft")])
    drawing.down(144, 396, 440)
    drawing.down(424, 396, 440)
    drawing.box(20, 440, 248, 46, [("within 127 bits?", ""), ("yes: the sign is put back", "small soft")])
    drawing.box(300, 440, 248, 46, [("dropped nothing: OK", "small"), ("anything: INEXACT", "small")])
    drawing.down(144, 486, 530)
    drawing.down(424, 486, 530)
    drawing.box(20, 530, 248, 46, [("*result", "code"), ("128 bits, scale sr", "small soft")])
    drawing.box(300, 530, 248, 46, [("status", "code")])
    drawing.text(284, 616, "Not within 127 bits: NaN, with OVERFLOW or UNDERFLOW by the sign.", "middle small soft")
    drawing.text(284, 640, "Operands that fit 64 bits take the same road in 128.", "middle small soft")
    return drawing.done()


ROOMS = (("numbers and words", ("words", "extended_numeric", "coefficient")),
         ("powers of ten", ("powers", "decimal_powers", "decimal_split", "reciprocal")),
         ("the two moves", ("scaling", "limb_scaling", "long_division", "primitives", "shifting")),
         ("one rounding", ("dropped", "rounding")),
         ("the door out", ("narrowing",)))


def rooms() -> str:
    drawing = Drawing(560, 470, "The folders of the source and what stands on what")
    drawing.box(20, 10, 520, 46, [("include/qv8numeric.h", "code strong"), ("what programs see", "small soft")])
    drawing.down(145, 56, 88)
    drawing.down(415, 56, 88)
    drawing.box(20, 88, 250, 84, [("src/numeric/", "code strong"), ("arithmetic, rounding,", "small soft"),
                                  ("comparison, change of scale", "small soft")])
    drawing.box(290, 88, 250, 84, [("src/numconv/", "code strong"), ("text, machine integers,", "small soft"),
                                   ("doubles", "small soft")])
    drawing.down(145, 172, 204)
    drawing.down(415, 172, 204)
    drawing.box(20, 204, 520, 256, [])
    drawing.text(36, 230, "src/wide/", "code strong")
    drawing.text(120, 230, "what both stand on; headers alone", "small soft")
    for row, (subject, names) in enumerate(ROOMS):
        y = 264 + row * 42
        drawing.text(36, y, subject, "small")
        words, line = ", ".join(names), ""
        lines = []
        for word in words.split(" "):
            if len(line) + len(word) > 44:
                lines.append(line.rstrip())
                line = ""
            line += word + " "
        for number, part in enumerate([*lines, line.rstrip()]):
            drawing.text(180, y + 17 * number, part, "code")
    return drawing.done()


PICTURES = {"model.svg": model, "modes.svg": modes, "multiply.svg": multiply, "rooms.svg": rooms}


def main(folder: str) -> None:
    for name, draw in PICTURES.items():
        (pathlib.Path(folder) / name).write_text(draw(), encoding="utf-8")


if __name__ == "__main__":
    main(*sys.argv[1:])
