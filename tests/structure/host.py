#!/usr/bin/env python3
"""examples/living-room stays small enough to be read in an evening.   host.py TOP"""

import pathlib
import sys

from sources import code_only

MAX_LINES = 1500


def code_lines(text):
    """The lines that hold anything but a comment."""
    return sum(1 for line in code_only(text).split("\n") if line.strip())


def faults(host):
    """`host` is the folder of the host."""
    files = [file for file in host.rglob("*") if file.suffix in (".h", ".cpp")]
    lines = sum(code_lines(file.read_text(encoding="utf-8")) for file in files)
    if not files or lines > MAX_LINES:
        yield f"{host}: {lines} lines of C++ in {len(files)} files; at most {MAX_LINES} lines, without comments"


def main():
    found = list(faults(pathlib.Path(sys.argv[1]) / "examples/living-room"))
    print("\n".join(found) or "no fault")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
