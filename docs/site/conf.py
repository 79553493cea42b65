# SPDX-License-Identifier: MIT
"""Sphinx, with pages in Markdown and the theme Furo: a quiet layout for wide and narrow windows that loads nothing from
elsewhere. docs/tools/site.py gathers the pages and gives the version.

All colours are said here, for light and for dark, and are those of the pictures. (The theme as Debian 12 packages it
does not follow a reader's dark by itself.)
"""
import pathlib
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "bench"))

from plot import DARK, LIGHT  # noqa: E402


def colours(palette: dict[str, str], muted: str, hover: str, code: str, target: str) -> dict[str, str]:
    return {
        "color-background-primary": palette["page"],
        "color-background-secondary": palette["band"],
        "color-background-hover": hover,
        "color-background-hover--transparent": hover + "00",
        "color-background-border": palette["grid"],
        "color-background-item": palette["grid"],
        "color-foreground-primary": palette["ink"],
        "color-foreground-secondary": muted,
        "color-foreground-muted": palette["soft"],
        "color-foreground-border": palette["soft"],
        "color-brand-primary": palette["ours"],
        "color-brand-content": palette["ours"],
        "color-code-background": code,
        "color-inline-code-background": code,
        "color-highlight-on-target": target,
        "color-highlighted-background": target,
        "color-admonition-background": "transparent",
        "color-api-background": code,
        "color-api-background-hover": code,
        "color-api-name": palette["ours"],
        "color-api-pre-name": palette["ink"],
        "color-api-paren": palette["soft"],
        "color-api-keyword": palette["soft"],
    }


project = "qv8numeric"
author = "The qv8numeric authors"
extensions = ["myst_parser"]
myst_enable_extensions = ["colon_fence"]
myst_heading_anchors = 4
html_theme = "furo"
html_title = "qv8numeric"
templates_path = ["templates"]
html_static_path = ["static"]
html_css_files = ["style.css"]
html_show_sphinx = False
html_show_copyright = False
html_copy_source = False
html_permalinks_icon = "#"
pygments_style = "vs"
pygments_dark_style = "github-dark"
highlight_language = "none"
suppress_warnings = ["misc.highlighting_failure"]  # a language without colours here
add_function_parentheses = False
html_theme_options = {
    "light_css_variables": {
        **colours(LIGHT, muted="#424a53", hover="#eaeef2", code="#f6f8fa", target="#fff8c5"),
        "font-stack": "system-ui, -apple-system, 'Segoe UI', 'DejaVu Sans', sans-serif",
        "font-stack--monospace": "ui-monospace, SFMono-Regular, Menlo, Consolas, 'DejaVu Sans Mono', monospace",
    },
    "dark_css_variables": colours(DARK, muted="#adbac7", hover="#1c2128", code="#161b22", target="#3b2e00"),
}
