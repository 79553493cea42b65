# SPDX-License-Identifier: MIT
"""Builds the documentation site: gathers its pages, writes the reference from the public header, and runs Sphinx.

usage: site.py SOURCE_FOLDER BUILD_FOLDER    (the site is BUILD_FOLDER/html)
"""
from __future__ import annotations

import os
import pathlib
import re
import shutil
import subprocess
import sys
from typing import Callable

import links
import manual
import reference
from manual import Header

PARTS = ("guide", "oddities", "pictures", "programs")
# Pages that the site shows where they are there, in this order.
BEHIND = ("performance", "assurance", "bounds", "internals", "contributing", "changelog", "security")
PROJECT = {"CHANGELOG.md": "changelog.md", "CONTRIBUTING.md": "contributing.md", "SECURITY.md": "security.md"}


def _prose(text: str, change: Callable[[str], str]) -> str:
    """The text with all that is not in a fence changed."""
    parts = re.split(r"(^```.*?^```$)", text, flags=re.MULTILINE | re.DOTALL)
    return "".join(part if index % 2 else change(part) for index, part in enumerate(parts))


def linked(prose: str, functions: set[str]) -> str:
    """Functions named as code become links to the reference, but not in headings."""
    def role(match: re.Match[str]) -> str:
        return f"{{c:func}}`{match.group(1)}`" if match.group(1) in functions else match.group()

    return "\n".join(line if line.startswith("#") else re.sub(r"(?<!`)`(\w+)`(?!`)", role, line)
                     for line in prose.split("\n"))


def relinked(prose: str, path: pathlib.Path, shown: dict[pathlib.Path, pathlib.Path]) -> str:
    """Links of a page to other pages of the project lead to where the site has them, pictures too; of one to a file that
    the site does not show, the label is left."""
    def target(match: re.Match[str]) -> str:
        label, link = match.groups()
        to, _, anchor = link.partition("#")
        if not to or re.match(r"[a-z]+:", to):
            return match.group()
        found = shown.get((path.parent / to).resolve())
        if not found:
            return label
        return f"[{label}]({os.path.relpath(found, shown[path].parent)}{'#' + anchor if anchor else ''})"

    return re.sub(r"\[([^\]]*)\]\(([^)\s]+)\)", target, prose)


def _index(text: str, present: list[str]) -> str:
    """With those pages in the last list of contents that there are."""
    listed = "\n".join(present)
    return re.sub(r"(:caption: Behind it\n\n).*?```", lambda match: f"{match.group(1)}{listed}\n```", text, flags=re.DOTALL)


def sources(source: pathlib.Path) -> dict[pathlib.Path, pathlib.Path]:
    """Files of the project to the places they have on the site."""
    docs = source / "docs"
    paths = [*docs.glob("*.*"), *(path for part in PARTS for path in (docs / part).iterdir())]
    places = {path: path.relative_to(docs) for path in paths if path.is_file()}
    return {**places, **{source / name: pathlib.Path(page) for name, page in PROJECT.items() if (source / name).exists()}}


def gather(source: pathlib.Path, folder: pathlib.Path, header: Header) -> None:
    shutil.rmtree(folder, ignore_errors=True)
    shown = sources(source)
    written = reference.pages(header, source / "docs" / "functions")
    # The reference is written here and read by links of other pages as if it stood in docs/.
    shown.update({source / "docs" / "reference" / name: pathlib.Path("reference", name) for name in written})
    names = {place.name for place in shown.values()}
    behind = [page for page in BEHIND if f"{page}.md" in names]
    functions = {name for entry in header.entries if entry.functions for name in entry.names if name.startswith("QV8")}
    for path, place in shown.items():
        (folder / place).parent.mkdir(parents=True, exist_ok=True)
        if path.suffix != ".md":
            shutil.copy(path, folder / place)
            continue
        text = written[path.name] if place.parts[0] == "reference" else path.read_text(encoding="utf-8")
        text = _prose(text, lambda prose: linked(relinked(prose, path, shown), functions))
        (folder / place).write_text(_index(text, behind) if place == pathlib.Path("index.md") else text, encoding="utf-8")


def main(source_folder: str, build_folder: str) -> None:
    source, build = pathlib.Path(source_folder).resolve(), pathlib.Path(build_folder).resolve()
    header = manual.read((source / "include" / "qv8numeric.h").read_text(encoding="utf-8"))
    gather(source, build / "source", header)
    shutil.rmtree(build / "html", ignore_errors=True)
    result = subprocess.run(["sphinx-build", "-q", "-W", "--keep-going", "-b", "html", "-j", "auto",
                             "-c", str(source / "docs" / "site"), "-D", f"version={header.version}",
                             "-D", f"release={header.version}", "-d", str(build / "doctrees"), str(build / "source"),
                             str(build / "html")])
    if result.returncode != 0:
        sys.exit(result.returncode)
    found = links.findings(build / "html")
    for finding in found:
        print(finding)
    print(f"{build / 'html' / 'index.html'}")
    sys.exit(1 if found else 0)


if __name__ == "__main__":
    main(*sys.argv[1:])
