#!/usr/bin/env python3
"""Checks that docs/reference.md is the output of scripts/reference, which lists each public header.   reference.py TOP"""

import pathlib
import subprocess
import sys

TOP = pathlib.Path(__file__).resolve().parents[2]


def printed(src):
    """The output of scripts/reference for a source tree."""
    return subprocess.run(
        [sys.executable, "-B", TOP / "scripts/reference", src], capture_output=True, encoding="utf-8", check=False
    )


def faults(src, reference):
    result = printed(src)
    if result.returncode:
        yield result.stderr
    elif result.stdout != reference:
        yield "docs/reference.md is not what scripts/reference prints; run scripts/reference > docs/reference.md"


def main():
    top = pathlib.Path(sys.argv[1])
    found = list(faults(top / "src/VanticRestKit", (top / "docs/reference.md").read_text(encoding="utf-8")))
    print("\n".join(found) or "no fault")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
