# SPDX-License-Identifier: MIT
"""Writes the manual pages, mdoc(7), from the public header and the written parts beside it.

usage: man.py HEADER FUNCTIONS_FOLDER MAN_FOLDER
"""
from __future__ import annotations

import pathlib
import re
import sys
import textwrap
from typing import Iterator

import manual
import notes
from manual import Block, Code, Entry, Header, Items, Rows, Text
from notes import Note

WRITTEN = "November 21, 2026"
WIDTH = 78

# ---- Text to mdoc ----

OPENING, CLOSING = "([", ")].,:;?!"
MACROS = {"parameter": "Fa", "constant": "Dv", "type": "Vt"}


def _escaped(text: str) -> str:
    """Outside of macros: signs that are copied must stay ASCII."""
    text = text.replace("\\", "\\e").replace("^", "\\(ha").replace("~", "\\(ti").replace("`", "\\(ga")
    return re.sub(r"(?<![A-Za-z])-(?=[\w.(*]|$| )", r"\\-", text)


def _argument(text: str) -> str:
    """Of a macro: quotes would be taken for its own, and a name like Sy for a macro."""
    text = _escaped(text).replace('"', "\\(dq")
    return f"\\&{text}" if text in ("|", ".", ",", ":", ";", "(", ")") or re.fullmatch("[A-Z][a-z]", text) else text


def _macro_line(kind: str, name: str, before: str, behind: str, own: set[str]) -> str:
    """One word that holds a name, with what touches it on either side."""
    macro = {"function": "Fn" if name in own else "Xr"}.get(kind, MACROS.get(kind, ""))
    words = [macro, _argument(name)]
    if kind == "function" and name not in own:
        words.append("3")
    if before in OPENING:
        words[1:1] = [before] if before else []
    else:
        words[:0] = ["No", _argument(before), "Ns"]
    if all(character in CLOSING for character in behind):
        words += list(behind)
    else:
        words += ["Ns", "No", _argument(behind)]
    return "." + " ".join(words)


def _words(text: str, parameters: set[str]) -> Iterator[list[tuple[str, str]]]:
    """Each word as its pieces: (kind, text)."""
    word: list[tuple[str, str]] = []
    for span in manual.spans(text, parameters):
        parts = re.split(r"( +)", span.text) if span.kind == "text" else [span.text]
        for part in parts:
            if part and not part.strip():
                if word:
                    yield word
                word = []
            elif part:
                word.append((span.kind, part))
    if word:
        yield word


def flowing(text: str, parameters: set[str], own: set[str]) -> list[str]:
    """Lines of mdoc: each sentence begins one, and so does each name that has a macro."""
    lines: list[str] = []
    run: list[str] = []

    def end_run() -> None:
        if run:
            wrapped = textwrap.wrap(" ".join(run), WIDTH, break_long_words=False, break_on_hyphens=False)
            lines.extend(f"\\&{line}" if line[0] in ".'" else line for line in wrapped)
            run.clear()

    for word in _words(text, parameters):
        named = [index for index, (kind, _) in enumerate(word) if kind not in ("text", "quoted")]
        if len(named) == 1:
            end_run()
            before = "".join(piece for _, piece in word[:named[0]])
            behind = "".join(piece for _, piece in word[named[0] + 1:])
            lines.append(_macro_line(*word[named[0]], before, behind, own))
        else:
            plain = "".join(piece for _, piece in word)
            run.append(_escaped(plain).replace('"', "\\(dq"))
            if re.search(r"(?<!\.)[.?!][)\"]?$", plain):
                end_run()
    end_run()
    return lines


def _literal(lines: list[str]) -> list[str]:
    escaped = [line.replace("\\", "\\e").replace("-", "\\-").replace("^", "\\(ha").replace("~", "\\(ti")
               .replace("`", "\\(ga").replace("'", "\\(aq") for line in lines]
    return [".Bd -literal", *(f"\\&{line}" if line.startswith(".") else line for line in escaped), ".Ed"]


def _rows(rows: Rows, parameters: set[str], own: set[str]) -> list[str]:
    width = "Ds" if rows.are_statuses else max((name for name, _ in rows.rows), key=len) + "xx"
    lines = [f".Bl -tag -width {width}"]
    for names, meaning in rows.rows:
        head = f"Dv {names.replace(', ', ' , ')}" if rows.are_statuses else \
            f"Fa {names}" if names in parameters else f"Sy {names}"
        lines += [f".It {head}", *flowing(meaning, parameters, own)]
    return [*lines, ".El"]


def rendered(blocks: list[Block], parameters: set[str], own: set[str]) -> list[str]:
    lines: list[str] = []
    for block in blocks:
        if lines and isinstance(block, Text):
            lines.append(".Pp")
        if isinstance(block, Text):
            lines += flowing(block.text, parameters, own)
        elif isinstance(block, Rows):
            lines += _rows(block, parameters, own)
        elif isinstance(block, Code):
            lines += _literal([part for line in block.lines for part in line.replace("  |  ", "\n       | ").split("\n")])
        else:
            lines.append(".Bl -bullet -compact")
            for item in block.items:
                lines += [".It", *flowing(item, parameters, own)]
            lines.append(".El")
    return lines


# ---- Sections ----

RETURNED = re.compile(r"Mind the direction: the result|NUMERIC_INVALID_ARGUMENT \(-3\)|Returns |IsZero: 1|"
                      r"The sign of a part|Statuses as|\*out is 0 with|The empty text is")
ASIDE = {"Departure": "CAVEATS", "Departures": "CAVEATS", "Cost": "IMPLEMENTATION NOTES", "Method": "IMPLEMENTATION NOTES"}


def sections(entry: Entry, header: Header) -> dict[str, list[Block]]:
    """What the sections of its page say; also what the pages of the site are laid out by."""
    found: dict[str, list[Block]] = {name: [] for name in
                                     ("DESCRIPTION", "IMPLEMENTATION NOTES", "RETURN VALUES", "CAVEATS")}
    section = "DESCRIPTION"
    for block in entry.blocks:
        if isinstance(block, Rows) and block.are_statuses:
            found["RETURN VALUES"].append(block)
        elif isinstance(block, Text):
            lead = re.match(r"(\w+)(?:, [^:]*)?:", block.text)
            section = ASIDE.get(lead.group(1), "DESCRIPTION") if lead else "DESCRIPTION"
            returned = RETURNED.search(block.text)
            if returned and section == "DESCRIPTION":
                if block.text[:returned.start()].strip():
                    found[section].append(Text(block.text[:returned.start()].strip()))
                found["RETURN VALUES"].append(Text(block.text[returned.start():]))
                like = re.match(r"Statuses as for (\w+)", block.text[returned.start():])
                if like:
                    found["RETURN VALUES"] += [other for other in header.entry(like.group(1)).blocks
                                               if isinstance(other, Rows) and other.are_statuses]
            else:
                found[section].append(block)
        else:
            found[section].append(block)
    return found


def _head(title: str, section: int, version: str) -> list[str]:
    return ['.\\" SPDX-License-Identifier: MIT',
            '.\\" Written by docs/tools/man.py from the public header and docs/functions; edit those.',
            f".Dd {WRITTEN}", f".Dt {title.upper()} {section}", f'.Os "qv8numeric {version}"']


def _name(names: list[str], title: str) -> list[str]:
    return [".Sh NAME", *(f".Nm {name} ," for name in names[:-1]), f".Nm {names[-1]}", f".Nd {title}"]


LIBRARY = [".Sh LIBRARY", "Exact fixed\\-point decimals", ".Pq libqv8numeric , \\-lqv8numeric"]


def _synopsis(entry: Entry) -> list[str]:
    lines = [".Sh SYNOPSIS", ".In qv8numeric.h"]
    for function in entry.functions:
        lines += [f".Ft {function.result}", " ".join([f".Fn {function.name}", *(
            f'"{parameter.declaration}"' for parameter in function.parameters)])]
    for macro in entry.macros:
        lines += [".Ft size_t", " ".join([f".Fn {macro.name}", *macro.parameters])]
    return lines


def _examples(note: Note) -> list[str]:
    lines = flowing(note.example, set(), set())
    for example in note.examples:
        lines += _literal(example.code.rstrip("\n").split("\n"))
        if example.output is not None:
            lines += [".Pp", "This prints:", *_literal(example.output.rstrip("\n").split("\n"))]
    return [".Sh EXAMPLES", *lines] if lines else []


def _see_also(note: Note, *others: str) -> list[str]:
    pages = [*(f"{name} 3" for name in sorted(note.see_also, key=str.lower)), *others]
    return [".Sh SEE ALSO", *(f".Xr {page} ," for page in pages[:-1]), f".Xr {pages[-1]}"]


def page(entry: Entry, note: Note, header: Header) -> str:
    own, parameters = set(entry.names), entry.parameter_names
    parts = sections(entry, header)
    lines = [*_head(entry.names[0], 3, header.version), *_name(entry.names, note.title), *LIBRARY, *_synopsis(entry),
             ".Sh DESCRIPTION"]
    lines += rendered([*map(Text, note.paragraphs), *parts["DESCRIPTION"]], parameters, own)
    for name in ("IMPLEMENTATION NOTES", "RETURN VALUES"):
        if parts[name]:
            lines += [f".Sh {name}", *rendered(parts[name], parameters, own)]
    lines += [*_examples(note), *_see_also(note, "qv8numeric 7")]
    if parts["CAVEATS"]:
        lines += [".Sh CAVEATS", *rendered(parts["CAVEATS"], parameters, own)]
    return "\n".join(lines) + "\n"


def _table(header: Header) -> list[str]:
    lines = [".Bl -column NUMERIC_ROUND_HALF_DOWN 2.5 -2.5 2.51 -2.51 -compact",
             ".It Em Mode Ta Em 2.5 Ta Em \\-2.5 Ta Em 2.51 Ta Em \\-2.51 Ta"]
    for mode in header.modes:
        numbers = " Ta ".join(_escaped(str(number)) for number in mode.rounded)
        lines.append(f".It Dv {mode.name} Ta {numbers} Ta {mode.meaning}")
    return [*lines, ".El"]


def overview(header: Header, note: Note, titles: dict[str, tuple[list[str], str]]) -> str:
    none: set[str] = set()
    introduction = header.introduction[1:]
    lines = [*_head("qv8numeric", 7, header.version), *_name(["qv8numeric"], note.title),
             ".Sh SYNOPSIS", ".In qv8numeric.h", ".Pp", "cc program.c \\-lqv8numeric", ".Sh DESCRIPTION",
             *rendered(introduction, none, none), ".Ss Types"]
    lines += [".Bl -tag -width Ds"]
    for kind in header.types:
        lines += [f".It Vt {kind.name}", *rendered(kind.blocks, none, none)]
        if kind.fields:
            lines.append(".Bl -tag -width Ds -compact")
            for field, meaning in kind.fields:
                lines += [f'.It Va "{field}"', *flowing(meaning, none, none)]
            lines.append(".El")
    lines += [".El", ".Ss Statuses", ".Bl -tag -width Ds"]
    for status in header.statuses:
        lines += [f".It Dv {status.name} Pq {_escaped(str(status.value))}", *flowing(status.meaning, none, none)]
    lines += [".El", ".Ss Rounding modes",
              "How a magnitude is rounded when nonzero digits are dropped; the sign is put back afterwards.",
              "The values are 0 to 6, in this order.", *_table(header), ".Ss Departures a caller must know",
              ".Bl -bullet -compact"]
    for item in note.items:
        lines += [".It", *flowing(item.replace("`", ""), none, none)]
    lines += [".El", ".Ss Macros", ".Bl -tag -width Ds"]
    for names, blocks in header.macros:
        lines += [f".It Dv {' , '.join(names)}", *rendered(blocks, none, none)]
    lines += [".El", ".Ss Functions", ".Bl -tag -width Ds -compact"]
    for names, title in titles.values():
        lines += [".It " + " , ".join(f"Xr {name} 3" for name in names), title]
    lines += [".El", *_examples(note), *_see_also(note)]
    return "\n".join(lines) + "\n"


def pages(header_path: pathlib.Path, functions: pathlib.Path) -> dict[str, str]:
    """File name to content."""
    header = manual.read(header_path.read_text(encoding="utf-8"))
    written: dict[str, str] = {}
    titles: dict[str, tuple[list[str], str]] = {}
    for entry in header.entries:
        first, *others = entry.names
        note = notes.read(functions / f"{first}.md")
        titles[first] = (entry.names, note.title)
        written[f"{first}.3"] = page(entry, note, header)
        for other in others:
            written[f"{other}.3"] = f'.\\" SPDX-License-Identifier: MIT\n.so man3/{first}.3\n'
    written["qv8numeric.7"] = overview(header, notes.read(functions / "qv8numeric.md"), titles)
    return written


def main(header_path: str, functions: str, folder: str) -> None:
    written = pages(pathlib.Path(header_path), pathlib.Path(functions))
    for old in pathlib.Path(folder).glob("*.[37]"):
        if old.name not in written:
            old.unlink()
    for name, content in written.items():
        (pathlib.Path(folder) / name).write_text(content, encoding="utf-8")


if __name__ == "__main__":
    main(*sys.argv[1:])
