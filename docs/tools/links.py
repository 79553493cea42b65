# SPDX-License-Identifier: MIT
"""Every link, picture, script and style sheet of a built site leads to a file of it, and every anchor to an element; no
page needs another host to be shown.

usage: links.py HTML_FOLDER
"""
from __future__ import annotations

import html.parser
import pathlib
import sys
import urllib.parse
from typing import Optional

# What a page loads by itself, as against what a reader may follow.
LOADED = {"img": "src", "script": "src", "link": "href", "iframe": "src", "source": "srcset", "object": "data"}


class Page(html.parser.HTMLParser):
    """The anchors of a page, and what it refers to."""

    def __init__(self) -> None:
        super().__init__()
        self.anchors: set[str] = set()
        self.links: list[str] = []
        self.loaded: list[str] = []

    def handle_starttag(self, tag: str, attrs: list[tuple[str, Optional[str]]]) -> None:
        values = {name: value for name, value in attrs if value}
        self.anchors |= {values[name] for name in ("id", "name") if name in values}
        if tag == "a" and "href" in values:
            self.links.append(values["href"])
        attribute = LOADED.get(tag)
        if attribute in values:
            self.loaded.append(values[attribute])


def findings(folder: pathlib.Path) -> list[str]:
    pages: dict[pathlib.Path, Page] = {}
    for path in sorted(folder.rglob("*.html")):
        pages[path] = Page()
        pages[path].feed(path.read_text(encoding="utf-8"))
    found = [] if pages else [f"no pages in {folder}"]
    for path, page in pages.items():
        name = path.relative_to(folder)
        for link in [*page.links, *page.loaded]:
            parts = urllib.parse.urlsplit(link)
            if parts.scheme in ("http", "https"):
                if link in page.loaded:
                    found.append(f"{name}: loads {link}")
                continue
            if parts.scheme or parts.netloc:
                if parts.scheme != "data":
                    found.append(f"{name}: {link} is no link of a page that is read from its files")
                continue
            target = (path.parent / urllib.parse.unquote(parts.path)).resolve() if parts.path else path
            anchor = urllib.parse.unquote(parts.fragment)
            if not target.is_file():
                found.append(f"{name}: {link} leads nowhere")
            elif anchor and target in pages and anchor not in pages[target].anchors:
                found.append(f"{name}: {link} names no element")
    return found


if __name__ == "__main__":
    RESULT = findings(pathlib.Path(sys.argv[1]).resolve())
    print("\n".join(RESULT))
    sys.exit(1 if RESULT else 0)
