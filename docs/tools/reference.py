# SPDX-License-Identifier: MIT
"""Writes the site's reference, a page for each section of the public header: the same content as the manual pages."""
from __future__ import annotations

import pathlib
import re
from typing import Iterator

import man
import manual
import notes
from manual import Block, Code, Entry, Header, Items, Rows, Text
from notes import Note

PAGES = {
    "Zero and NaN": "zero-and-nan",
    "Values of one scale": "one-scale",
    "From one scale to another": "rescale",
    "Values of different scales": "rescaling",
    "Text out": "text-out",
    "Text in": "text-in",
    "Machine integers": "machine-integers",
    "Doubles (IEEE 754 binary64)": "doubles",
    "Debugging": "debugging",
}


# The page of the oddities that shows a page's departures.
ODDITIES = {"one-scale": "one-scale", "rescale": "change-of-scale", "rescaling": "rescaling", "text-out": "text-out",
            "text-in": "text-in", "machine-integers": "machine-numbers", "doubles": "machine-numbers"}


def page_of(section: str) -> str:
    """The parser's entry points stand with the debugging names."""
    return next((page for title, page in PAGES.items() if section.startswith(title)), PAGES["Debugging"])


def marked(text: str, parameters: set[str]) -> str:
    """Names as code; the site's builder makes links of those of functions."""
    out = []
    for span in manual.spans(text, parameters):
        if span.kind == "text":
            out.append(re.sub(r"([\\*_<>`|])", r"\\\1", span.text))
        else:
            code = span.text.strip('"') if span.kind == "quoted" else span.text
            out.append(f"`` {code} ``" if "`" in code else f"`{code}`" if code else '""')
    joined = "".join(out)
    joined = re.sub(r"(?<![\w^])(\(?-?)(\d+)\^(\d+)", r"\1\2<sup>\3</sup>", joined)
    return joined.replace("10^(80 + places mod 8)", "10<sup>80 + places mod 8</sup>")


def _cell(text: str) -> str:
    return text.replace("|", "\\|")


def _rows(rows: Rows, parameters: set[str]) -> Iterator[str]:
    yield "| status | what it says |" if rows.are_statuses else "| | |"
    yield "| --- | --- |"
    for names, meaning in rows.rows:
        head = ", ".join(f"`{name}`" for name in names.split(", ")) if rows.are_statuses or names in parameters else \
            f"**{names}**"
        yield f"| {head} | {_cell(marked(meaning, parameters))} |"


def rendered(blocks: list[Block], parameters: set[str]) -> Iterator[str]:
    for block in blocks:
        if isinstance(block, Text):
            yield marked(block.text, parameters)
        elif isinstance(block, Rows):
            yield from _rows(block, parameters)
        elif isinstance(block, Code):
            language = "c" if any(";" in line for line in block.lines) else "text"
            lines = "\n".join(block.lines).replace("  |  ", "\n       | ")
            yield f"```{language}\n{lines}\n```"
        elif isinstance(block, Items):
            yield "\n".join(f"- {marked(item, parameters)}" for item in block.items)
        yield ""


def _without_lead(blocks: list[Block]) -> list[Block]:
    """"Departures:" is the heading already."""
    kept: list[Block] = []
    for block in blocks:
        if isinstance(block, Text):
            text = re.sub(r"^Departures?(, [^:]*)?: ?", lambda m: f"{m.group(1)[2:].capitalize()}: " if m.group(1) else "",
                          block.text)
            if not text:
                continue
            block = Text(text[0].upper() + text[1:])
        kept.append(block)
    return kept


def _signatures(entry: Entry) -> Iterator[str]:
    for function in entry.functions:
        yield f"```{{{function.language}:function}} {function.prototype}\n```"
        yield ""
    for macro in entry.macros:
        yield f"```{{c:macro}} {macro.name}({', '.join(macro.parameters)})\n```"
        yield ""


def _entry(entry: Entry, note: Note, header: Header) -> Iterator[str]:
    parameters = entry.parameter_names
    parts = man.sections(entry, header)
    yield f"## {note.title[0].upper()}{note.title[1:]}"
    yield ""
    yield from _signatures(entry)
    for paragraph in note.paragraphs:
        yield from (marked(paragraph, parameters), "")
    yield from rendered(parts["DESCRIPTION"], parameters)
    yield from rendered(parts["RETURN VALUES"], parameters)
    if parts["CAVEATS"]:
        yield "**Departures.**"
        yield ""
        yield from rendered(_without_lead(parts["CAVEATS"]), parameters)
        yield f"Each of them with a program: [](../oddities/{ODDITIES[page_of(entry.section)]}.md)."
        yield ""
    if parts["IMPLEMENTATION NOTES"]:
        yield ":::{admonition} Cost and method\n:class: note"
        yield ""
        yield from rendered(parts["IMPLEMENTATION NOTES"], parameters)
        yield ":::"
        yield ""
    for example in note.examples:
        yield from (f"**Example.** {note.example}".rstrip(), "")
        yield f"```{example.language}\n{example.code}```"
        yield ""
        if example.output:
            yield f"```text\n{example.output}```"
            yield ""


def _index(header: Header, titles: dict[str, str]) -> Iterator[str]:
    none: set[str] = set()
    yield "# Reference"
    yield ""
    yield "The manual of `<qv8numeric.h>`, version " + header.version + ". The same is in the header, and in the manual pages."
    yield ""
    yield "## What holds for every function"
    yield ""
    for block in header.introduction[3:]:
        yield from rendered([block], none)
    yield "## Types"
    yield ""
    for kind in header.types:
        directive = f"{{c:struct}} {kind.name}" if kind.fields else f"{{c:type}} int32_t {kind.name}"
        yield f"```{directive}\n```"
        yield ""
        yield from rendered(kind.blocks, none)
        if kind.fields:
            fields = (f"    {field};{f' /* {meaning} */' if meaning else ''}" for field, meaning in kind.fields)
            yield "\n".join([f"```c\nstruct {kind.name} {{", *fields, "};\n```"])
            yield ""
    yield "## Statuses"
    yield ""
    yield "| status | value | what it says |"
    yield "| --- | ---: | --- |"
    for status in header.statuses:
        yield f"| `{status.name}` | {status.value} | {marked(status.meaning, none)} |"
    yield ""
    yield "## Rounding modes"
    yield ""
    yield "How a magnitude is rounded when nonzero digits are dropped; the sign is put back afterwards."
    yield ""
    yield "| mode | value | 2.5 | -2.5 | 2.51 | -2.51 | |"
    yield "| --- | ---: | ---: | ---: | ---: | ---: | --- |"
    for mode in header.modes:
        yield f"| `{mode.name}` | {mode.value} | {' | '.join(map(str, mode.rounded))} | {mode.meaning} |"
    yield ""
    yield "![Seven modes around 2.5 and -2.5](../pictures/modes.svg)"
    yield ""
    yield "## Macros"
    yield ""
    yield "| | |"
    yield "| --- | --- |"
    for names, blocks in header.macros:
        meaning = " ".join(marked(block.text, none) for block in blocks if isinstance(block, Text))
        yield f"| {', '.join(f'`{name}`' for name in names)} | {meaning} |"
    yield ""
    yield "## Functions"
    yield ""
    for title, page in PAGES.items():
        yield f"[{title}]({page}.md)"
        yield ""
        for entry in header.entries:
            if page_of(entry.section) == page:
                yield f"- {', '.join(f'`{name}`' for name in entry.names)}: {titles[entry.names[0]]}"
        yield ""
    yield "```{toctree}\n:hidden:\n"
    yield from PAGES.values()
    yield "```"
    yield ""


def pages(header: Header, functions: pathlib.Path) -> dict[str, str]:
    """File name to Markdown."""
    written = {entry.names[0]: notes.read(functions / f"{entry.names[0]}.md") for entry in header.entries}
    lines = {"index": list(_index(header, {name: note.title for name, note in written.items()}))}
    for title, page in PAGES.items():
        lines[page] = [f"# {title}", ""]
    for entry in header.entries:
        lines[page_of(entry.section)] += _entry(entry, written[entry.names[0]], header)
    return {f"{page}.md": "<!-- SPDX-License-Identifier: MIT -->\n" + "\n".join(text) for page, text in lines.items()}
