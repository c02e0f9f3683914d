#!/usr/bin/env python3
"""Checks that README and guides quote code that is compiled and run, and commands that exist.   readme.py TOP

The guide to the first load shows a complete small host. Every other C++ block is a part of an example, possibly with less indentation. Each recipe is listed in the guide to the recipes and is short.
"""

import pathlib
import re
import sys
import textwrap

LONGEST_RECIPE = 80
CPP = re.compile(r"```cpp\n(.*?\n)```", re.DOTALL)


def is_quoted_from(block, source):
    """Whether the source contains the lines of the block consecutively, with the same or a greater indentation."""
    return any("\n" + textwrap.indent(block, " " * depth) in "\n" + source for depth in (0, 4, 8))


def faults(top):
    readme = (top / "README.md").read_text(encoding="utf-8")
    first_load = (top / "docs/first-load.md").read_text(encoding="utf-8")
    recipes = (top / "docs/recipes.md").read_text(encoding="utf-8")
    smallest = (top / "examples/first-load/main.cpp").read_text(encoding="utf-8")
    sources = [path.read_text(encoding="utf-8") for path in sorted((top / "examples").rglob("*.cpp"))]
    if smallest not in CPP.findall(first_load):
        yield "docs/first-load.md does not show examples/first-load/main.cpp"
    for guide in [top / "README.md", *sorted((top / "docs").glob("*.md")), top / "CONTRIBUTING.md"]:
        for block in CPP.findall(guide.read_text(encoding="utf-8")):
            if not any(is_quoted_from(block, source) for source in sources):
                yield f"{guide.relative_to(top)} shows what stands in no example:\n" + block
    for recipe in sorted((top / "examples/recipes").glob("*.cpp")):
        if f"`{recipe.name}`" not in recipes:
            yield f"docs/recipes.md does not name the recipe {recipe.name}"
        lines = recipe.read_text(encoding="utf-8").count("\n")
        if lines >= LONGEST_RECIPE:
            yield f"{recipe.name}: {lines} lines"
    for command in re.findall(r"`\.?/?((?:scripts|examples|apps|bench|docs)/[\w./-]*)", readme):
        if not (top / command).exists():
            yield f"README.md names {command}, which does not exist"


def main():
    top = pathlib.Path(sys.argv[1])
    found = list(faults(top))
    print("\n".join(found) or "no fault")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
