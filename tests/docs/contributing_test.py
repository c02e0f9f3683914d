#!/usr/bin/env python3
"""Checks CONTRIBUTING.md: its files and commands exist, and its recipes work.

contributing_test.py TOP Names      checks that every file, script, preset and target exists, and that the patches apply
contributing_test.py TOP Recipes    runs each recipe in a copy of the tree, which takes long
"""

import json
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

TOP = pathlib.Path(sys.argv.pop(1))
TEXT = (TOP / "CONTRIBUTING.md").read_text(encoding="utf-8")
BLOCK = re.compile(r"```sh\n(.*?)```", re.DOTALL)
PATH = re.compile(r"`((?:src|tests|apps|docs|scripts|bench)/[\w./*-]+)`")
IN_COPY = ["CMakeLists.txt", "CMakePresets.json", "CONTRIBUTING.md", "README.md", ".clang-format", "apps", "bench", "cmake",
           "docs", "examples", "scripts", "src", "tests"]  # fmt: skip


def sections():
    """(title, text) of each recipe."""
    return [tuple(part.split("\n", 1)) for part in re.split(r"^## ", TEXT, flags=re.MULTILINE)[1:]]


def commands():
    return [line for block in BLOCK.findall(TEXT) for line in block.splitlines()]


class Names(unittest.TestCase):
    def test_every_recipe_has_commands(self):
        for title, text in sections():
            if title != "Rules":
                self.assertTrue(BLOCK.search(text), title)

    def test_every_file_exists(self):
        found = PATH.findall(TEXT)
        self.assertGreater(len(found), 20)
        for path in found:
            if path != "tests/golden/TYPE.NAME.json":
                self.assertTrue(list(TOP.glob(path)), path)

    def test_every_script_exists(self):
        for command in commands():
            words = [word for word in command.split() if not re.match(r"[A-Z_]+=", word)]
            if "/" in words[0] and not words[0].startswith("build/"):
                self.assertTrue(os.access(TOP / words[0], os.X_OK), command)
            elif "/" not in words[0]:
                self.assertIn(words[0], ("cmake", "ctest", "patch"), command)

    def test_every_preset_exists(self):
        presets = json.loads((TOP / "CMakePresets.json").read_text(encoding="utf-8"))
        for command in commands():
            for name in re.findall(r"--preset (\w+)", command):
                kind = "test" if command.startswith("ctest") else "build" if "--build" in command else "configure"
                self.assertIn(name, [preset["name"] for preset in presets[f"{kind}Presets"]], command)

    def test_every_target_exists(self):
        lists = [*TOP.glob("tests/**/CMakeLists.txt"), *TOP.glob("apps/**/CMakeLists.txt")]
        defined = " ".join(path.read_text(encoding="utf-8") for path in lists)
        defined += (TOP / "docs/contributing/entity.patch").read_text(encoding="utf-8")
        for command in commands():
            for names in re.findall(r"--target ([\w ]+)", command):
                for name in names.split():
                    is_fuzzer = (TOP / "tests/fuzz" / f"{name}.cpp").is_file()
                    self.assertTrue(is_fuzzer or re.search(rf"(vrk_test|add_executable)\({name}\b", defined), name)

    def test_the_patches_apply(self):
        for patch in sorted((TOP / "docs/contributing").glob("*.patch")):
            self.assertIn(f"docs/contributing/{patch.name}", TEXT)
            with patch.open(encoding="utf-8") as text:
                applied = subprocess.run(["patch", "-p1", "--dry-run", "--force", "--fuzz=3"], cwd=TOP, stdin=text,
                                         capture_output=True, text=True, check=False)
            self.assertEqual(applied.returncode, 0, f"{patch.name}\n{applied.stdout}")


class Recipes(unittest.TestCase):
    def test_every_recipe_works(self):
        """One after another, in one copy."""
        folder = pathlib.Path(tempfile.mkdtemp())
        self.addCleanup(shutil.rmtree, folder)
        for name in IN_COPY:
            copy = shutil.copytree if (TOP / name).is_dir() else shutil.copy
            copy(TOP / name, folder / name)
        environment = {**os.environ, "CMAKE_CXX_COMPILER_LAUNCHER": shutil.which("ccache") or "",
                       "CCACHE_BASEDIR": str(folder), "CCACHE_NOHASHDIR": "1",
                       "CMAKE_BUILD_PARALLEL_LEVEL": os.environ.get("VRK_JOBS", str(os.cpu_count()))}  # fmt: skip
        for title, text in sections():
            for block in BLOCK.findall(text):
                print(f"== {title}\n{block}", flush=True)
                ran = subprocess.run(["bash", "-euo", "pipefail", "-c", block], cwd=folder, env=environment, check=False,
                                     stdin=subprocess.DEVNULL)
                self.assertEqual(ran.returncode, 0, title)


if __name__ == "__main__":
    unittest.main()
