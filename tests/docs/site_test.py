#!/usr/bin/env python3
"""Checks that the reference site builds without a warning, and that every public function and field has a comment.   site_test.py TOP"""

import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

TOP = pathlib.Path(sys.argv.pop(1))


def check(top, folder):
    return subprocess.run([top / "scripts/docs", "--check", folder], capture_output=True, text=True, check=False)


class Site(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.folder)

    def copy_of_the_tree(self):
        copy = self.folder / "tree"
        for part in ("scripts", "docs", "src/VanticRestKit"):
            shutil.copytree(TOP / part, copy / part)
        shutil.copy(TOP / "CMakeLists.txt", copy)
        return copy

    def assert_fails(self, top, *parts):
        checked = check(top, self.folder / "output")
        self.assertNotEqual(checked.returncode, 0)
        for part in parts:
            self.assertIn(part, checked.stderr)

    def test_has_no_warning_and_no_public_member_without_a_comment(self):
        checked = check(TOP, self.folder)
        undocumented = re.findall(r"is not documented", checked.stderr)
        self.assertEqual((checked.returncode, len(undocumented), checked.stderr), (0, 0, ""))

    def test_every_link_between_pages_leads_to_a_page(self):
        pages = [*TOP.glob("*.md"), *(TOP / "docs").rglob("*.md")]
        self.assertGreater(len(pages), 30)
        for page in pages:
            text = re.sub(r"^```.*?^```", "", page.read_text(encoding="utf-8"), flags=re.DOTALL | re.MULTILINE)
            for target in re.findall(r"\]\((?!https?:)([\w./-]+\.md)(?:#[\w-]+)?\)", text):
                self.assertTrue((page.parent / target).is_file(), f"{page.relative_to(TOP)}: {target}")

    def test_fails_for_a_field_and_for_a_function_without_a_comment(self):
        tree = self.copy_of_the_tree()
        header = tree / "src/VanticRestKit/lumeno/Link/Link.h"
        text = header.read_text(encoding="utf-8")
        self.assertIn("    std::string href{};\n", text)
        header.write_text(text.replace("    std::string href{};\n", "    std::string href{};\n    int added{};\n    void made();\n"),
                          encoding="utf-8")
        self.assert_fails(tree, "added", "made", "src/VanticRestKit/lumeno/Link/Link.h:", "is not documented")

    def test_fails_for_a_reference_to_nothing(self):
        tree = self.copy_of_the_tree()
        with (tree / "docs/site/index.md").open("a", encoding="utf-8") as page:
            page.write("\nSee \\ref nothing.\n")
        self.assert_fails(tree, "nothing")


if __name__ == "__main__":
    unittest.main()
