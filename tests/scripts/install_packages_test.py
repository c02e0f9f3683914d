#!/usr/bin/env python3
"""Tests scripts/install-packages on simulated systems: folders of commands, some of them missing, and some that only record their calls.

install_packages_test.py TOP
"""

import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

TOP = pathlib.Path(sys.argv.pop(1))
SHELL = ["bash", "cat", "cut", "env", "id", "sed", "sort", "uname"]
BUILD = ["cmake", "ninja", "g++"]


class System(unittest.TestCase):
    """A system with the commands of the build, pkg-config with every module, and no package manager."""

    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.folder)
        self.bin = self.folder / "bin"
        self.bin.mkdir()
        for name in SHELL:
            (self.bin / name).symlink_to(shutil.which(name))
        for name in [*BUILD, "pkg-config"]:
            self.command(name)

    def command(self, name, script="exit 0"):
        file = self.bin / name
        file.write_text(f"#!/bin/bash\n{script}\n", encoding="utf-8")
        file.chmod(0o755)

    def make_debian(self):
        self.command("dpkg-query")
        self.command("apt-get", f'echo "apt-get ran: $*"; echo "$*" >>{self.folder}/apt')
        self.command("id", "echo 0")

    def run_script(self, *arguments):
        return subprocess.run(
            [self.bin / "bash", TOP / "scripts/install-packages", *arguments],
            env={"PATH": str(self.bin)}, capture_output=True, text=True, check=False,
        )  # fmt: skip

    def test_a_complete_system_other_than_debian_is_accepted(self):
        result = self.run_script("build")
        self.assertEqual((0, "", ""), (result.returncode, result.stdout, result.stderr))

    def test_a_missing_command_on_another_system_is_named(self):
        (self.bin / "ninja").unlink()
        result = self.run_script("build")
        self.assertEqual(1, result.returncode)
        self.assertIn("not Debian", result.stderr)
        self.assertIn("\nninja-build (command ninja)\n", result.stderr)
        self.assertNotIn("cmake", result.stderr)

    def test_a_missing_module_on_another_system_is_named(self):
        self.command("pkg-config", '[ "$2" != libutf8proc ]')
        result = self.run_script("build")
        self.assertEqual(1, result.returncode)
        self.assertIn("\nlibutf8proc-dev (module libutf8proc)\n", result.stderr)

    def test_without_clang_the_sanitizers_are_missing(self):
        result = self.run_script("--check", "sanitizers")
        self.assertEqual(1, result.returncode)
        self.assertIn("clang", result.stdout)

    def test_a_check_installs_nothing(self):
        self.make_debian()
        (self.bin / "ninja").unlink()
        result = self.run_script("--check", "build")
        self.assertEqual((1, "ninja-build (command ninja)\n"), (result.returncode, result.stdout))
        self.assertFalse((self.folder / "apt").exists())

    def test_on_debian_the_list_is_printed_before_the_installation(self):
        self.make_debian()
        (self.bin / "ninja").unlink()
        (self.bin / "cmake").unlink()
        result = self.run_script("build")
        self.assertEqual(0, result.returncode, result.stderr)
        lines = result.stdout.splitlines()
        self.assertEqual("install-packages: apt-get will install: cmake ninja-build", lines[0])
        self.assertEqual("apt-get ran: update -q", lines[1])
        self.assertTrue(lines[2].endswith("cmake ninja-build"), lines[2])

    def test_nothing_is_installed_on_a_complete_debian(self):
        self.make_debian()
        self.assertEqual(0, self.run_script("build").returncode)
        self.assertFalse((self.folder / "apt").exists())

    def test_an_unknown_group_is_rejected(self):
        self.assertEqual(2, self.run_script("everything").returncode)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
