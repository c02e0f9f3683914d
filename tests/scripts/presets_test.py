#!/usr/bin/env python3
"""CMakePresets.json has every preset that is promised, and the scripts build with presets only.   presets_test.py TOP"""

import json
import pathlib
import re
import sys
import unittest

TOP = pathlib.Path(sys.argv.pop(1))
PROMISED = {"release", "debug", "address", "thread", "fuzz", "coverage", "bench", "arm64", "armhf", "s390x"}
SCRIPTS = ["test", "demo", "scripts/build", "bench/run"]


class Presets(unittest.TestCase):
    def setUp(self):
        self.presets = json.loads((TOP / "CMakePresets.json").read_text(encoding="utf-8"))

    def named(self, kind):
        return {preset["name"]: preset for preset in self.presets[kind] if not preset.get("hidden")}

    def test_each_can_be_configured_built_and_tested(self):
        for kind in ("configurePresets", "buildPresets", "testPresets"):
            self.assertLessEqual(PROMISED, set(self.named(kind)), kind)

    def test_each_has_a_build_folder_of_its_own(self):
        folders = {}
        for name, preset in self.named("configurePresets").items():
            folder = preset.get("binaryDir", f"build/{name}")
            self.assertNotIn(folder, folders, f"{name} shares the folder of {folders.get(folder)}")
            folders[folder] = name

    def test_scripts_name_presets_that_exist(self):
        for script in SCRIPTS:
            text = (TOP / script).read_text(encoding="utf-8")
            for name in re.findall(r"scripts/compile\"? (\w+)", text):
                self.assertIn(name, self.named("buildPresets"), script)
            for name in re.findall(r"run_suite (\w+)", text):
                self.assertIn(name, self.named("testPresets"), script)

    def test_scripts_repeat_no_setting_of_a_preset(self):
        settings = {name for preset in self.presets["configurePresets"] for name in preset.get("cacheVariables", {})}
        # scripts/build and ./test --browser leave the tests out; ./test chooses the newest Clang there is.
        allowed = {("scripts/build", "VRK_TESTS"), ("test", "CMAKE_CXX_COMPILER"), ("test", "VRK_TESTS")}
        for script in [*SCRIPTS, "scripts/compile"]:
            given = set(re.findall(r"-D(\w+)=", (TOP / script).read_text(encoding="utf-8")))
            self.assertEqual(set(), {s for s in given & settings if (script, s) not in allowed}, script)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
