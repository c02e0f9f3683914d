#!/usr/bin/env python3
"""Compares the binary interface of the built library with the accepted one, and tests that differences are found.
   interface_test.py --library LIBRARY --headers INCLUDE_ROOT --compiler CXX [--accept]
`--accept` writes the lists instead; scripts/accept-interface does that."""

import argparse
import difflib
import pathlib
import re
import shutil
import sys
import tempfile
import unittest

import interface

HERE = pathlib.Path(__file__).resolve().parent
ACCEPTED = {"symbols": HERE / "symbols.txt", "layouts": HERE / "layouts.txt"}
HINT = """
Lines with - are gone or changed: hosts that were compiled against the last release break. Lines with + are new.
If the change is intended, run scripts/accept-interface, review its difference and raise the version in CMakeLists.txt:
the major version for a -, the minor version for a + alone."""

options = None


def measured(kind):
    if kind == "symbols":
        return interface.symbols(options.library)
    with tempfile.TemporaryDirectory() as folder:
        return interface.describe_headers(options.headers, options.compiler, folder)


def entries(lines):
    """Groups the lines by class, enumeration or symbol: its first line and the indented lines after it."""
    found, own = {}, []
    for line in lines:
        if line.startswith(" "):
            own.append(line)
        else:
            own = found.setdefault(line.rsplit(": ", 1)[0] if line.endswith((" bytes", "functions")) else line, [])
            own.append(line)
    return found


def report_of_entry(before, now):
    yield f"  {before[0]}" if before[0] == now[0] else f"- {before[0]}\n+ {now[0]}"
    without_offset = [re.sub(r"^    \d+ ", "    ", line) for line in now[1:]]
    were_without_offset = [re.sub(r"^    \d+ ", "    ", line) for line in before[1:]]
    differences = [line for line in difflib.ndiff(were_without_offset, without_offset) if line[0] in "+-"]
    yield from differences
    moved = sum(line not in before for line in now[1:]) - sum(line[0] == "+" for line in differences)
    if moved > 0:
        yield f"      fields at another offset: {moved}"


def report(accepted, now):
    """The differences by class. Empty if there are none."""
    before, after = entries(accepted), entries(now)
    lines = []
    for name in sorted(before.keys() | after.keys()):
        if name not in after:
            lines.append("- " + before[name][0])
        elif name not in before:
            lines.append("+ " + after[name][0])
        elif before[name] != after[name]:
            lines += report_of_entry(before[name], after[name])
    return "\n".join(lines)


class TheInterface(unittest.TestCase):
    def is_as_accepted(self, kind):
        changes = report(ACCEPTED[kind].read_text(encoding="utf-8").splitlines(), measured(kind))
        if changes:
            self.fail("\n" + changes + "\n" + HINT)

    def test_exports_the_accepted_symbols(self):
        self.is_as_accepted("symbols")

    @unittest.skipUnless(shutil.which("abidw"), "abidw is not installed (Debian: abigail-tools)")
    def test_has_the_accepted_layouts(self):
        self.is_as_accepted("layouts")


class ADifference(unittest.TestCase):
    def test_is_reported_with_its_class(self):
        before = ["A: 8 bytes", "    0 int x", "B: 8 bytes", "    0 int y"]
        after = ["A: 8 bytes", "    0 int x", "B: 8 bytes", "    0 long int y"]
        self.assertEqual("  B: 8 bytes\n-     int y\n+     long int y", report(before, after))

    def test_only_in_offsets_is_reported_as_a_number_of_fields(self):
        before = ["A: 8 bytes", "    0 int x", "    4 int y", "    8 int z"]
        after = ["A: 16 bytes", "    0 int w", "    4 int x", "    8 int y", "    12 int z"]
        self.assertEqual("- A: 8 bytes\n+ A: 16 bytes\n+     int w\n      fields at another offset: 3",
                         report(before, after))

    def test_in_symbols_is_reported_by_name(self):
        self.assertEqual("- f(int)\n+ f(long)", report(["f(int)", "g()"], ["f(long)", "g()"]))

    @unittest.skipUnless(shutil.which("abidw"), "abidw is not installed (Debian: abigail-tools)")
    def test_in_a_field_a_base_an_enumerator_or_a_virtual_function_is_found(self):
        with tempfile.TemporaryDirectory() as folder:
            root = pathlib.Path(folder) / "include"
            (root / "VanticRestKit").mkdir(parents=True)
            header = root / "VanticRestKit" / "VanticRestKit.h"

            def described(text):
                header.write_text("namespace VanticRestKit { " + text + " }", encoding="utf-8")
                return interface.describe_headers(root, options.compiler, folder)

            enumeration = "enum class E { one, two };"
            classes = "struct A { int x; virtual void f() {} virtual void g() {} }; struct B : A { E e; };"
            accepted = described(enumeration + classes)
            self.assertIn("    8 int x", accepted)
            for old, new in (("int x", "long x"), ("int x", "int y"), (" : A", ""), ("one, two", "two, one"),
                             ("void g() {}", "void h() {}"), ("virtual void f", "void f")):
                with self.subTest(old=old, new=new):
                    self.assertNotEqual("", report(accepted, described((enumeration + classes).replace(old, new))))


def accept():
    for kind, file in ACCEPTED.items():
        before = file.read_text(encoding="utf-8").splitlines() if file.exists() else []
        now = measured(kind)
        print(f"{file.name}:\n{report(before, now) or 'no difference'}")
        file.write_text("\n".join(now) + "\n", encoding="utf-8")


if __name__ == "__main__":
    parser = argparse.ArgumentParser()
    parser.add_argument("--library", required=True)
    parser.add_argument("--headers", required=True)
    parser.add_argument("--compiler", required=True)
    parser.add_argument("--accept", action="store_true")
    options, rest = parser.parse_known_args()
    if options.accept:
        accept()
    else:
        unittest.main(argv=sys.argv[:1] + rest)
