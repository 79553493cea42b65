# SPDX-License-Identifier: MIT
"""Reads the public header, which is the manual: its sections, and in them each comment with what it describes.

A comment becomes a list of blocks (paragraphs, tables, lists, code); inside a block, names are found by `spans`.
"""
from __future__ import annotations

import dataclasses
import re
from typing import Iterator, Union


@dataclasses.dataclass
class Text:
    """A paragraph."""
    text: str


@dataclasses.dataclass
class Rows:
    """A table of names and what is said of them: statuses, or parameters and other terms."""
    rows: list[tuple[str, str]]

    @property
    def are_statuses(self) -> bool:
        return self.rows[0][0].startswith("NUMERIC_")


@dataclasses.dataclass
class Items:
    items: list[str]


@dataclasses.dataclass
class Code:
    lines: list[str]


Block = Union[Text, Rows, Items, Code]


@dataclasses.dataclass
class Parameter:
    declaration: str  # const Numeric *a
    name: str


@dataclasses.dataclass
class Function:
    result: str
    name: str
    parameters: list[Parameter]
    language: str  # c or cpp

    @property
    def prototype(self) -> str:
        arguments = ", ".join(parameter.declaration for parameter in self.parameters)
        return f"{self.result}{'' if self.result.endswith('*') else ' '}{self.name}({arguments})"


@dataclasses.dataclass
class Macro:
    name: str
    parameters: list[str]


@dataclasses.dataclass
class Entry:
    """A comment and what follows it at once: the functions, or the macros with parameters, that it describes."""
    section: str
    blocks: list[Block]
    functions: list[Function]
    macros: list[Macro]

    @property
    def names(self) -> list[str]:
        """Each once: overloads share a page."""
        return list(dict.fromkeys([*(f.name for f in self.functions), *(macro.name for macro in self.macros)]))

    @property
    def parameter_names(self) -> set[str]:
        return {name for function in self.functions for name in (p.name for p in function.parameters)} | {
            name for macro in self.macros for name in macro.parameters}


@dataclasses.dataclass
class Type:
    """With its fields, each as it is declared, and what is said of it."""
    name: str
    blocks: list[Block]
    fields: list[tuple[str, str]]


@dataclasses.dataclass
class Constant:
    name: str
    value: int
    meaning: str


@dataclasses.dataclass
class Mode:
    name: str
    value: int
    rounded: list[int]  # 2.5, -2.5, 2.51 and -2.51
    meaning: str


@dataclasses.dataclass
class Header:
    version: str
    introduction: list[Block]
    types: list[Type]
    macros: list[tuple[list[str], list[Block]]]  # the version, and what a program may define: names and the comment
    statuses: list[Constant]
    modes: list[Mode]
    entries: list[Entry]

    def entry(self, name: str) -> Entry:
        return next(entry for entry in self.entries if name in entry.names)


# ---- Comments ----

STATUS_NAMES = re.compile(r"((?:NUMERIC_[A-Z_]+)(?:, NUMERIC_[A-Z_]+)*)(,$| {2,}(.*))")
TERM = re.compile(r" {2}([A-Za-z]\w*\+*) {2,}(\S.*)")


def _joined(lines: list[str]) -> str:
    return " ".join(line.strip() for line in lines)


def _statuses(lines: list[str]) -> Rows:
    """NAME[, NAME]  meaning; a name may stand alone in a line, with a comma, above the others it shares a meaning with."""
    rows: list[tuple[str, str]] = []
    pending = ""
    for line in lines:
        match = STATUS_NAMES.fullmatch(line)
        if match and match.group(2) == ",":
            pending = f"{match.group(1)}, "
        elif match:
            rows.append((pending + match.group(1), match.group(3)))
            pending = ""
        else:
            rows[-1] = (rows[-1][0], f"{rows[-1][1]} {line.strip()}")
    return Rows(rows)


def _terms(lines: list[str]) -> Rows:
    rows: list[tuple[str, str]] = []
    for line in lines:
        match = TERM.fullmatch(line)
        if match:
            rows.append((match.group(1), match.group(2)))
        else:
            rows[-1] = (rows[-1][0], f"{rows[-1][1]} {line.strip()}")
    return Rows(rows)


def _paragraph(lines: list[str]) -> Iterator[Block]:
    """The blocks of what stands between two empty lines."""
    if STATUS_NAMES.fullmatch(lines[0]):
        yield _statuses(lines)
    elif TERM.fullmatch(lines[0]):
        yield _terms(lines)
    elif all(line.startswith("    ") for line in lines):
        yield Code([line[4:] for line in lines])
    else:
        above = [line for line in lines[:next((i for i, line in enumerate(lines) if line.startswith("- ")), len(lines))]]
        if above:
            yield Text(_joined(above))
        items: list[list[str]] = []
        for line in lines[len(above):]:
            if line.startswith("- "):
                items.append([])
            items[-1].append(line[2:])
        if items:
            yield Items([_joined(item) for item in items])


def blocks_of(comment: str) -> list[Block]:
    """comment: what stands between /* and */."""
    first, *others = comment.split("\n")
    lines = [first.strip(), *(re.sub(r"^\s*\* ?", "", line).rstrip() for line in others)]
    blocks: list[Block] = []
    paragraph: list[str] = []
    for line in [*lines, ""]:
        if line.strip():
            paragraph.append(line)
        elif paragraph:
            blocks += _paragraph(paragraph)
            paragraph = []
    return blocks


# ---- Names within a text ----

NAMES = re.compile(r"""
    (?P<quoted>"[^"]*")
  | (?P<function>\bQV8Numeric\w+)
  | (?P<constant>\b(?:QV8)?NUMERIC_[A-Z0-9_]+\b(?!\.\.\.))
  | (?P<type>\b(?:NumericInfo|NumericStatus|Numeric32|ExtendedNumeric|Numeric|int32|int64)\b)
  | (?P<pointed>\*[a-z]\w*)
  | (?P<word>\b[a-z]\w*\b)
""", re.VERBOSE)

# Parameters that are English words too count as names only beside an operator, or where they stand like one.
WORDS = {"a", "to", "from", "in", "end", "text", "value", "buffer", "places", "result", "out", "num"}
BESIDE = (re.compile(r"(?:^|[ |])[-+*/=|] ?$"), re.compile(r" [-/*+] "))
STANDING = re.compile(r"scale of (from)\b|of (to)\b|\b(from|to)'s|(?:^|\. )(end) is\b|\bis (text)$|behind (buffer)\b"
                      r"|\b(places) (?:may|is)\b")


@dataclasses.dataclass
class Span:
    kind: str  # text, quoted, function, constant, type, parameter
    text: str


def _is_named(match: re.Match[str]) -> bool:
    """Whether a word that is a parameter's name is meant as one."""
    before, behind = match.string[:match.start()], match.string[match.end():]
    return bool(match.group() not in WORDS or BESIDE[0].search(before) or BESIDE[1].match(behind) or any(
        match.start() in (standing.start(group) for group in range(1, STANDING.groups + 1))
        for standing in STANDING.finditer(match.string)))


def spans(text: str, parameters: set[str]) -> list[Span]:
    """The text cut into names and what stands between them."""
    found: list[Span] = []
    past = 0
    for match in NAMES.finditer(text):
        kind = str(match.lastgroup)
        if kind in ("pointed", "word"):
            if match.group().lstrip("*") not in parameters or (kind == "word" and not _is_named(match)):
                continue
            kind = "parameter"
        if match.start() > past:
            found.append(Span("text", text[past:match.start()]))
        found.append(Span(kind, match.group()))
        past = match.end()
    if past < len(text):
        found.append(Span("text", text[past:]))
    return found


# ---- Declarations ----

PROTOTYPE = re.compile(r"QV8NUMERIC_API\s+([\w\s]+?[\s*]+)(\w+)\(([^;]*?)\)\s*(?:QV8NUMERIC_NOEXCEPT|noexcept)[^;]*;")
MACRO = re.compile(r"#define (QV8NUMERIC_\w+)\(([\w, ]+)\)")
SECTION = re.compile(r"/\* ---- (.*?) -+ \*/")
COMMENT = re.compile(r"/\*(.*?)\*/", re.DOTALL)


def _declaration(text: str) -> Parameter:
    """const Numeric* a, as it is in the header, to const Numeric *a, as manuals write it."""
    text = " ".join(text.split())
    match = re.fullmatch(r"(.*?)\s*([*&]*)\s*(\w+)", text)
    assert match, text
    return Parameter(f"{match.group(1)} {match.group(2)}{match.group(3)}", match.group(3))


def _functions(code: str) -> list[Function]:
    functions = []
    for match in PROTOTYPE.finditer(code):
        result, name, arguments = match.groups()
        parameters = [_declaration(argument) for argument in arguments.split(",")]
        cpp = name == "get_truncated_part" or any("32" in p.declaration.split()[1] or "Extended" in p.declaration
                                                  for p in parameters if name == "dump")
        functions.append(Function(" ".join(result.split()), name, parameters, "cpp" if cpp else "c"))
    return functions


def _entries(text: str) -> list[Entry]:
    """A comment describes the declarations between itself and the next comment or empty line; what no comment stands
    above is described by the title of its section. Overloads are one entry."""
    entries: list[Entry] = []
    section = ""
    for match in COMMENT.finditer(text):
        title = SECTION.fullmatch(match.group())
        if title:
            section = title.group(1)
        code = re.split(r"/\*" if title else r"\n\s*\n|/\*", text[match.end():], maxsplit=1)[0]
        functions = _functions(code)
        macros = [Macro(name, [p.strip() for p in parameters.split(",")])
                  for name, parameters in MACRO.findall(code) if name.endswith("TEXT_SIZE")]
        if not functions and not macros:
            continue
        blocks: list[Block] = [Text(f"{section}.")] if title else blocks_of(match.group(1))
        if entries and entries[-1].names == list(dict.fromkeys(function.name for function in functions)):
            entries[-1].blocks += blocks
            entries[-1].functions += functions
        else:
            entries.append(Entry(section, blocks, functions, macros))
    return entries


def _constants(text: str, prefix: str) -> list[Constant]:
    return [Constant(name, int(value), " ".join(meaning.split()))
            for name, value, meaning in re.findall(rf"\b({prefix}\w+) = (-?\d+),? +/\* (.*?) \*/", text)]


def _comment_above(text: str, declaration: str) -> list[Block]:
    above = text[:text.index(declaration)]
    return blocks_of(list(COMMENT.finditer(above))[-1].group(1))


def _fields(text: str, declaration: str) -> list[tuple[str, str]]:
    body = text[text.index(declaration) + len(declaration):].split("}", maxsplit=1)[0] if "{" in declaration else ""
    return [(field, meaning or "") for field, meaning in re.findall(r"(\w+ \w+);(?: +/\* (.*?) \*/)?", body)]


def read(text: str) -> Header:
    version = re.search(r'#define QV8NUMERIC_VERSION_STRING "(.*)"', text)
    assert version
    introduction = [match.group(1) for match in COMMENT.finditer(text)][1]
    types = [Type(name, _comment_above(text, declaration), _fields(text, declaration)) for name, declaration in (
        ("Numeric", "typedef struct Numeric {"), ("NumericInfo", "typedef struct NumericInfo {"),
        ("NumericStatus", "typedef int32_t NumericStatus;"))]
    debugging = next(title for title in SECTION.findall(text) if "QV8NUMERIC_NO_DEBUG" in title)
    macros: list[tuple[list[str], list[Block]]] = [
        (re.findall(r"#define (QV8NUMERIC_VERSION\w*)", text), _comment_above(text, "#define QV8NUMERIC_VERSION_MAJOR")),
        (["QV8NUMERIC_STATIC"], _comment_above(text, "#if defined(_WIN32)")),
        (["QV8NUMERIC_NO_DEBUG"], [Text(f"{debugging}.")])]
    modes = [Mode(c.name, c.value, [int(n) for n in c.meaning.split()[:4]], " ".join(c.meaning.split()[4:]))
             for c in _constants(text, "NUMERIC_ROUND_")]
    statuses = [c for c in _constants(text, "NUMERIC_") if not c.name.startswith("NUMERIC_ROUND_")]
    return Header(version.group(1), blocks_of(introduction), types, macros, statuses, modes, _entries(text))
