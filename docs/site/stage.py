#!/usr/bin/env python3
"""Copies headers, pages and their pictures for Doxygen.   stage.py TOP OUTPUT

Removes declarations without a contract of their own from headers, such as defaulted copies, comparisons and mapping
tables. Turns links between pages into links of the site. Line numbers are preserved.
"""

import pathlib
import re
import shutil
import sys

TABLE = re.compile(
    r"template <>\s*\n?\s*(?:VRK_EXPORT )?(?:inline )?const (?:VanticRestKit::)?(?:mapping::)?TypePlan& "
    r"(?:VanticRestKit::)?planOf<[^;{]*?>\(\);[ \t]*\n"
)
DEFAULTED = re.compile(
    r"\n[ \t]*(?:constexpr )?(?:friend bool operator==\([^;{]*\)(?: noexcept)?"
    r"|[\w:<>&~= ]*\((?:const )?[\w<>]*&{0,2}(?: \w+)?\)(?: noexcept)?|~\w+\(\)) = (?:default|delete);"
)
# Doxygen does not find the scope of a specialisation in namespace std.
HASH = re.compile(r"\n(?:///[^\n]*\n)*template <>\nstruct std::hash<.*?\n\};", re.DOTALL)
MACRO = re.compile(r"\n#define [^\n]*(?:(?<=\\)\n[^\n]*)*")
LINK = re.compile(r"\[([^\]]+)\]\((?!http)([\w./-]+?)\.md(?:#[\w-]+)?\)")
PAGES = pathlib.Path(__file__).resolve().parent.parent


def blank(found):
    return "\n" * found.group().count("\n")


def header(text):
    for pattern in (TABLE, DEFAULTED, HASH, MACRO):
        text = pattern.sub(blank, text)
    return text


def page(path, text):
    """Gives the page a name that others can link to. Links to pages that are not on the site become plain text."""
    if path.stem != "index":
        text = re.sub(r"\A# ([^\n]*)", rf"# \1 {{#{path.stem}}}", text)

    def link(found):
        title, target = found.group(1), found.group(2).removeprefix("../")
        on_site = "/" not in target and (PAGES / f"{target}.md").is_file()
        return f"[{title}](@ref {target})" if on_site else title

    return LINK.sub(link, text)


def main():
    top, output = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2])
    source = top / "src"
    shutil.copytree(top / "docs/pictures", output / "docs/pictures", dirs_exist_ok=True)
    files = [file for file in sorted((source / "VanticRestKit").rglob("*.h")) if "detail" not in file.parts]
    for file in [*files, *sorted((top / "docs").glob("*.md")), *sorted((top / "docs/site").glob("*.md"))]:
        text = file.read_text(encoding="utf-8")
        target = output / file.relative_to(top)
        target.parent.mkdir(parents=True, exist_ok=True)
        target.write_text(page(file, text) if file.suffix == ".md" else header(text), encoding="utf-8")
    shutil.copytree(top / "docs/pictures", output / "docs/pictures", dirs_exist_ok=True)


if __name__ == "__main__":
    main()
