# SPDX-License-Identifier: MIT
"""Builds the documentation site: gathers its pages, writes the reference from the public header, and runs Sphinx.

usage: site.py SOURCE_FOLDER BUILD_FOLDER    (the site is BUILD_FOLDER/html)
"""
from __future__ import annotations

import pathlib
import re
import shutil
import subprocess
import sys

import links
import manual
import reference

PARTS = ("guide", "oddities", "pictures", "programs")
# Pages of the project that the site shows where they are there, and their captions in the index.
BEHIND = ("assurance", "bounded-time", "performance", "internals")
PROJECT = {"CHANGELOG.md": "changelog.md", "CONTRIBUTING.md": "contributing.md", "SECURITY.md": "security.md"}


def linked(text: str, functions: set[str]) -> str:
    """Functions named as code outside of code blocks and headings become links to the reference."""
    out = []
    fenced = False
    for line in text.split("\n"):
        if line.startswith("```"):
            fenced = not fenced
        if not fenced and not line.startswith("#"):
            line = re.sub(r"(?<!`)`(\w+)`(?!`)", lambda m: f"{{c:func}}`{m.group(1)}`" if m.group(1) in functions else
                          m.group(0), line)
        out.append(line)
    return "\n".join(out)


def _project_page(text: str) -> str:
    """A page from the top of the tree: its links into docs/ are to the pages beside it, those to files are dropped."""
    def target(match: re.Match[str]) -> str:
        label, path = match.group(1), match.group(2)
        page, _, anchor = path.partition("#")
        page = PROJECT.get(page, page.removeprefix("docs/") if page.startswith("docs/") else "")
        if re.match(r"https?:", path):
            return match.group(0)
        return f"[{label}]({page}{'#' + anchor if anchor else ''})" if page.endswith(".md") else label

    return re.sub(r"\[([^\]]*)\]\(([^)]*)\)", target, text)


def _index(text: str, present: list[str]) -> str:
    """With those pages in the last list of contents that there are."""
    listed = "\n".join(present)
    return re.sub(r"(:caption: Behind it\n\n).*?```", lambda match: f"{match.group(1)}{listed}\n```", text, flags=re.DOTALL)


def gather(source: pathlib.Path, folder: pathlib.Path) -> None:
    docs = source / "docs"
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir(parents=True)
    for part in PARTS:
        shutil.copytree(docs / part, folder / part)
    for path in docs.glob("*.*"):
        shutil.copy(path, folder)
    header = manual.read((source / "include" / "qv8numeric.h").read_text(encoding="utf-8"))
    (folder / "reference").mkdir()
    for name, text in reference.pages(header, docs / "functions").items():
        (folder / "reference" / name).write_text(text, encoding="utf-8")
    present = [page for page in BEHIND if (folder / f"{page}.md").exists()]
    for name, page in PROJECT.items():
        if (source / name).exists():
            (folder / page).write_text(_project_page((source / name).read_text(encoding="utf-8")), encoding="utf-8")
            present.append(page.removesuffix(".md"))
    functions = {name for entry in header.entries for name in entry.names if entry.functions and name.startswith("QV8")}
    for path in folder.rglob("*.md"):
        text = path.read_text(encoding="utf-8")
        path.write_text(linked(_index(text, present) if path == folder / "index.md" else text, functions), encoding="utf-8")


def main(source_folder: str, build_folder: str) -> None:
    source, build = pathlib.Path(source_folder).resolve(), pathlib.Path(build_folder).resolve()
    gather(source, build / "source")
    header = manual.read((source / "include" / "qv8numeric.h").read_text(encoding="utf-8"))
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
