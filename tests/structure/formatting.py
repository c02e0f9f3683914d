#!/usr/bin/env python3
"""Checks that every C++ file is formatted by clang-format.   formatting.py TOP CLANG_FORMAT"""

import pathlib
import subprocess
import sys

FOLDERS = ["src", "apps", "examples", "bench", "tests"]


def badly_formatted(top, clang_format):
    files = sorted(path for folder in FOLDERS for path in (top / folder).rglob("*") if path.suffix in (".h", ".cpp"))
    if not files:
        sys.exit(f"format: there are no sources below {top}")
    result = subprocess.run(
        [clang_format, "--style=file", "--dry-run", "--Werror", *files], capture_output=True, text=True, check=False
    )
    if result.returncode and not result.stderr:
        sys.exit(f"format: {clang_format} failed without a message")
    return [line for line in result.stderr.splitlines() if "error:" in line]


def main():
    found = badly_formatted(pathlib.Path(sys.argv[1]), sys.argv[2])
    print("\n".join(found[:50]) or "no fault")
    if found:
        print(f"{len(found)} places; run: clang-format -i FILE")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
