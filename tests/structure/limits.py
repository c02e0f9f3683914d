#!/usr/bin/env python3
"""Checks that docs/limits.md lists each field of the limits, and that each test that it names exists.   limits.py TOP"""

import pathlib
import re
import sys

FIELD = re.compile(r"^ {4}(?:std::uint64_t|std::chrono::\S+) (\w+)(?: =|\{)", re.MULTILINE)
TEST = re.compile(r"^(?:TYPED_)?TEST(?:_F|_P)?\((\w+),\s*(\w+)\)", re.MULTILINE)
NAMED = re.compile(r"`([A-Z]\w+\.[A-Z]\w+)`")


def faults(page, header, tests):
    """`tests` are the contents of all test sources."""
    for field in FIELD.findall(header):
        if f"`{field}`" not in page:
            yield f"docs/limits.md does not name {field}"
    known = {f"{suite}.{name}" for text in tests for suite, name in TEST.findall(text)}
    for name in NAMED.findall(page):
        if name not in known:
            yield f"docs/limits.md names the test {name}, which is not there"
    for line in page.splitlines():
        cells = [cell.strip() for cell in line.strip("|").split("|")]
        has_test_column = line.startswith("|") and in_table_with_tests(page, line)
        if has_test_column and not NAMED.search(cells[-1]):
            yield f"docs/limits.md has a limit without a test: {cells[0]}"


def in_table_with_tests(page, line):
    """Whether a line is a row of a table whose last column contains tests."""
    table = page[: page.index(line)].rpartition("\n\n")[2].splitlines()
    return len(table) >= 2 and table[0].rstrip().endswith("| Test |")


def main():
    top = pathlib.Path(sys.argv[1])
    page = (top / "docs/limits.md").read_text(encoding="utf-8")
    header = (top / "src/VanticRestKit/platform/http/URLSessionLimits.h").read_text(encoding="utf-8")
    tests = [file.read_text(encoding="utf-8") for file in (top / "tests").rglob("*Test.cpp")]
    found = list(faults(page, header, tests))
    print("\n".join(found) or "no fault")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
