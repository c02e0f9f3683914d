#!/usr/bin/env python3
"""Checks that docs/demo.md shows the output of the demo.   demo_test.py TOP PROGRAMS [--write]

--write updates the page instead of comparing.
"""

import difflib
import pathlib
import re
import subprocess
import sys
import unittest

TOP, PROGRAMS = pathlib.Path(sys.argv.pop(1)), pathlib.Path(sys.argv.pop(1))
PAGE = TOP / "docs/demo.md"
BLOCK = re.compile(r"(?<=```text\n).*?(?=```)", re.DOTALL)
# Chapters that depend on the clock. Only their numbers of lines are compared.
BY_THE_CLOCK = ("The time of the service", "The live channels of a region")
ADDRESS = re.compile(r"127\.0\.0\.1:\d+")


def with_one_port(text):
    """Replaces the port by a fixed one."""
    return ADDRESS.sub("127.0.0.1:46497", text)


def printed():
    return subprocess.run([TOP / "examples/demo/run", PROGRAMS], capture_output=True, text=True, check=True, timeout=300).stdout


def comparable(text):
    lines = []
    is_by_the_clock = False
    for line in with_one_port(text).splitlines():
        if line and not line.startswith(" "):
            is_by_the_clock = line.startswith(BY_THE_CLOCK)
        elif is_by_the_clock and line:
            line = "  ..."
        lines.append(line)
    return lines


class Demo(unittest.TestCase):
    def test_prints_what_the_page_shows(self):
        shown = BLOCK.search(PAGE.read_text(encoding="utf-8")).group()
        difference = list(difflib.unified_diff(comparable(shown), comparable(printed()), "docs/demo.md", "the demo", lineterm=""))
        self.assertEqual(difference, [], "\n".join([*difference, "", "tests/docs/demo_test.py ... --write updates the page"]))


if __name__ == "__main__":
    if "--write" in sys.argv:
        PAGE.write_text(BLOCK.sub(lambda _: with_one_port(printed()), PAGE.read_text(encoding="utf-8"), count=1), encoding="utf-8")
    else:
        unittest.main()
