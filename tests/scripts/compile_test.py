#!/usr/bin/env python3
"""Tests how scripts/compile calls cmake, in an empty tree and with a fake cmake that records its arguments.   compile_test.py TOP"""

import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

TOP = pathlib.Path(sys.argv.pop(1))


class Compile(unittest.TestCase):
    def setUp(self):
        self.tree = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, self.tree)
        for folder in ("scripts", "bin", "build"):
            (self.tree / folder).mkdir()
        shutil.copy(TOP / "scripts/compile", self.tree / "scripts")
        cmake = self.tree / "bin/cmake"
        cmake.write_text(f'#!/bin/bash\necho "$*" >>{self.tree}/calls\n', encoding="utf-8")
        cmake.chmod(0o755)

    def calls(self, *arguments, **variables):
        """The arguments of each call of cmake."""
        path = f"{self.tree}/bin:{os.environ['PATH']}"
        subprocess.run([self.tree / "scripts/compile", *arguments], env={"PATH": path, **variables}, check=True)
        return (self.tree / "calls").read_text(encoding="utf-8").splitlines()

    def configured_with(self, tests):
        (self.tree / "build/CMakeCache.txt").write_text(f"VRK_APPS:BOOL=ON\nVRK_TESTS:BOOL={tests}\n", encoding="utf-8")

    def test_the_preset_is_configured_and_built(self):
        configure, build = self.calls("release", "-DVRK_LIVING_ROOM=ON", VRK_TARGETS="one two", VRK_JOBS="3")
        self.assertRegex(configure, "^--preset release .*-DVRK_LIVING_ROOM=ON$")
        self.assertEqual("--build --preset release --parallel 3 --target one two", build)

    def test_a_new_folder_is_configured_without_tests_on_request(self):
        self.assertIn("-DVRK_TESTS=OFF", self.calls("release", VRK_WITHOUT_TESTS="1")[0])

    def test_a_folder_without_tests_keeps_none_on_request(self):
        self.configured_with("OFF")
        self.assertIn("-DVRK_TESTS=OFF", self.calls("release", VRK_WITHOUT_TESTS="1")[0])

    def test_a_folder_with_tests_keeps_them_despite_the_request(self):
        self.configured_with("ON")
        self.assertNotIn("VRK_TESTS", self.calls("release", VRK_WITHOUT_TESTS="1")[0])

    def test_the_preset_decides_about_tests_without_the_request(self):
        self.configured_with("OFF")
        self.assertNotIn("VRK_TESTS", self.calls("release")[0])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
