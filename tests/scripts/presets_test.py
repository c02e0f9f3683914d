#!/usr/bin/env python3
"""Checks that CMakePresets.json has every documented preset, and that the scripts only build with presets.   presets_test.py TOP"""

import json
import pathlib
import re
import sys
import unittest

TOP = pathlib.Path(sys.argv.pop(1))
PROMISED = {"release", "debug", "address", "thread", "fuzz", "coverage", "bench", "arm64", "armhf", "s390x"}
SCRIPTS = ["test", "demo", "scripts/build", "scripts/pictures", "examples/living-room/run", "bench/run"]


class Presets(unittest.TestCase):
    def setUp(self):
        self.presets = json.loads((TOP / "CMakePresets.json").read_text(encoding="utf-8"))

    def named(self, kind):
        return {preset["name"]: preset for preset in self.presets[kind] if not preset.get("hidden")}

    def test_each_can_be_configured_built_and_tested(self):
        for kind in ("configurePresets", "buildPresets", "testPresets"):
            self.assertLessEqual(PROMISED, set(self.named(kind)), kind)

    def test_each_has_a_separate_build_folder(self):
        folders = {}
        for name, preset in self.named("configurePresets").items():
            folder = preset.get("binaryDir", f"build/{name}")
            self.assertNotIn(folder, folders, f"{name} shares the folder of {folders.get(folder)}")
            folders[folder] = name

    def test_scripts_use_existing_presets(self):
        for script in SCRIPTS:
            text = (TOP / script).read_text(encoding="utf-8")
            for name in re.findall(r"scripts/compile\"? (\w+)", text):
                self.assertIn(name, self.named("buildPresets"), script)
            for name in re.findall(r"run_suite (\w+)", text):
                self.assertIn(name, self.named("testPresets"), script)

    def test_scripts_do_not_repeat_settings_of_a_preset(self):
        settings = {name for preset in self.presets["configurePresets"] for name in preset.get("cacheVariables", {})}
        # scripts/compile omits the tests on request. ./test selects the newest installed Clang.
        allowed = {("scripts/compile", "VRK_TESTS"), ("test", "CMAKE_CXX_COMPILER")}
        for script in [*SCRIPTS, "scripts/compile"]:
            given = set(re.findall(r"-D(\w+)=", (TOP / script).read_text(encoding="utf-8")))
            self.assertEqual(set(), {s for s in given & settings if (script, s) not in allowed}, script)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
