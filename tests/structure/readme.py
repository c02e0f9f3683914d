#!/usr/bin/env python3
"""The README shows the smallest host as it is compiled and run, and names commands that exist.   readme.py TOP"""

import pathlib
import re
import sys


def faults(top):
    readme = (top / "README.md").read_text(encoding="utf-8")
    source = (top / "examples/first-load/main.cpp").read_text(encoding="utf-8")
    blocks = re.findall(r"```cpp\n(.*?)```", readme, re.DOTALL)
    if not blocks:
        yield "README.md shows no host"
    for block in blocks:
        if block != source:
            yield "README.md shows another host than examples/first-load/main.cpp:\n" + block
    for command in re.findall(r"`\.?/?((?:scripts|examples|apps|bench|docs)/[\w./-]*)", readme):
        if not (top / command).exists():
            yield f"README.md names {command}, which does not exist"


def main():
    found = list(faults(pathlib.Path(sys.argv[1])))
    print("\n".join(found) or "no fault")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
