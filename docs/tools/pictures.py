# SPDX-License-Identifier: MIT
"""Draws the pictures of the documentation, for light and dark pages.

usage: pictures.py FOLDER
"""
from __future__ import annotations

import pathlib
import sys
import textwrap
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


def _words(drawing: Drawing, x: float, y: float, labels: list[str], width: float = 46) -> None:
    for number, label in enumerate(labels):
        drawing.box(x + number * width, y, width, 34, [(label, "code")])


def multiply() -> str:
    drawing = Drawing(420, 640, "The road of a rescaling multiply, from two values over 256 bits to one")
    left, right, middle = 66.0, 198.0, 132.0
    drawing.box(6, 8, 120, 46, [("a", "code"), ("128 bits, scale sa", "small soft")])
    drawing.box(138, 8, 120, 46, [("b", "code"), ("128 bits, scale sb", "small soft")])
    drawing.box(284, 8, 130, 46, [("result_info", "code"), ("scale sr, mode", "small soft")])
    drawing.down(left, 54, 88)
    drawing.down(right, 54, 88)
    drawing.text(middle, 75, "magnitudes", "middle small soft")
    _words(drawing, left - 46, 88, ["a₁", "a₀"])
    _words(drawing, right - 46, 88, ["b₁", "b₀"])
    drawing.text(349, 102, "negative when one", "middle small soft")
    drawing.text(349, 119, "operand is, not both", "middle small soft")
    drawing.down(left, 122, 160)
    drawing.down(right, 122, 160)
    drawing.text(middle, 144, "×, exactly", "middle small soft")
    _words(drawing, middle - 92, 160, ["p₃", "p₂", "p₁", "p₀"])
    drawing.text(334, 174, "256 bits: the product is", "middle small soft")
    drawing.text(334, 191, "below 2²⁵⁴, at sa + sb", "middle small soft")
    drawing.down(middle, 194, 240)
    drawing.text(middle + 12, 220, "÷ 10^(sa + sb − sr)", "small soft")
    _words(drawing, 6, 240, ["0", "0", "q₁", "q₀"])
    drawing.text(98, 292, "quotient, scale sr", "middle small soft")
    _words(drawing, 222, 240, ["0", "< ½", "½", "> ½"], 48)
    drawing.text(318, 292, "dropped: one of four", "middle small soft")
    drawing.down(98, 300, 334)
    drawing.down(318, 300, 334)
    drawing.box(6, 334, 408, 46, [("raise by one?  mode, sign, dropped part, odd or even", "small"),
                                  ("one table of truth for all operations", "small soft")])
    drawing.down(98, 380, 420)
    drawing.down(318, 380, 420)
    drawing.box(6, 420, 184, 46, [("within 127 bits?", ""), ("yes: the sign is put back", "small soft")])
    drawing.box(222, 420, 192, 46, [("dropped nothing: OK", "small"), ("anything: INEXACT", "small")])
    drawing.down(98, 466, 506)
    drawing.down(318, 466, 506)
    drawing.box(6, 506, 184, 46, [("*result", "code"), ("128 bits, scale sr", "small soft")])
    drawing.box(222, 506, 192, 46, [("status", "code")])
    drawing.text(210, 588, "Not within 127 bits: NaN, OVERFLOW or UNDERFLOW by the sign.", "middle small soft")
    drawing.text(210, 612, "Operands that fit 64 bits take the same road in 128.", "middle small soft")
    return drawing.done()


ROOMS = (("words and values", ("words", "extended_numeric", "coefficient")),
         ("powers of ten", ("powers", "decimal_powers", "decimal_split", "reciprocal")),
         ("the two moves", ("scaling", "limb_scaling", "long_division", "primitives", "shifting")),
         ("one rounding", ("dropped", "rounding")),
         ("the door out", ("narrowing",)))


def rooms() -> str:
    drawing = Drawing(420, 452, "The folders of the source and what stands on what")
    drawing.box(6, 8, 408, 46, [("include/qv8numeric.h", "code strong"), ("what programs see", "small soft")])
    for x, name, *subjects in ((6, "src/numeric/", "arithmetic, rounding,", "order, change of scale"),
                               (222, "src/numconv/", "text, machine integers,", "doubles")):
        drawing.down(x + 96, 54, 86)
        drawing.box(x, 86, 192, 84, [(name, "code strong"), *((subject, "small soft") for subject in subjects)])
        drawing.down(x + 96, 170, 202)
    drawing.box(6, 202, 408, 242, [])
    drawing.text(20, 227, "src/wide/", "code strong")
    drawing.text(106, 227, "what both stand on; headers alone", "small soft")
    y = 258
    for subject, names in ROOMS:
        drawing.text(20, y, subject, "small")
        for line in textwrap.wrap(", ".join(names), 33):
            drawing.text(140, y, line, "code")
            y += 17
        y += 10
    return drawing.done()


PICTURES = {"model.svg": model, "modes.svg": modes, "multiply.svg": multiply, "rooms.svg": rooms}


def main(folder: str) -> None:
    for name, draw in PICTURES.items():
        (pathlib.Path(folder) / name).write_text(draw(), encoding="utf-8")


if __name__ == "__main__":
    main(*sys.argv[1:])
