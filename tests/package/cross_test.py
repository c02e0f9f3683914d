#!/usr/bin/env python3
"""Checks that a cross-compiled host can use the package of a cross build, and runs it in the emulator.

cross_test.py --build BUILD --toolchain FILE --architecture NAME --sysroot FOLDER --emulator COMMAND
"""

import argparse
import pathlib
import re
import shlex
import shutil
import sys
import tempfile
import unittest

from consumers import HERE, build, needs_the_shared_library, run

ARGUMENTS = argparse.ArgumentParser()
for name in ("build", "toolchain", "architecture", "sysroot", "emulator"):
    ARGUMENTS.add_argument(f"--{name}", required=True)
GIVEN = ARGUMENTS.parse_args()
MACHINES = {"arm64": "AArch64", "armhf": "ARM", "s390x": "IBM S/390"}


class Installed(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = pathlib.Path(tempfile.mkdtemp())
        cls.addClassCleanup(shutil.rmtree, cls.folder)
        run("cmake", "--install", GIVEN.build, "--prefix", cls.folder / "prefix")

    def test_the_library_is_of_the_architecture(self):
        header = run("readelf", "-h", self.folder / "prefix/lib/libVanticRestKit.so")
        self.assertEqual(MACHINES[GIVEN.architecture], re.search(r"Machine: +(.*)", header)[1])

    def test_a_cross_compiled_host_links_each_library_and_runs(self):
        launcher = ["-DCMAKE_CXX_COMPILER_LAUNCHER=ccache"] if shutil.which("ccache") else []
        host = self.folder / "host"
        run(
            "cmake", "-G", "Ninja", "-S", HERE / "consumer", "-B", host, *launcher,
            f"-DCMAKE_TOOLCHAIN_FILE={GIVEN.toolchain}",
            f"-DVRK_ARCHITECTURE={GIVEN.architecture}",
            f"-DVRK_SYSROOT={GIVEN.sysroot}",
            f"-DVanticRestKit_DIR={self.folder}/prefix/lib/cmake/VanticRestKit",
            "-DCMAKE_CXX_STANDARD=20",
        )  # fmt: skip
        build(host)
        for kind in ("VanticRestKit", "VanticRestKit_static"):
            program = host / f"with_{kind}"
            printed = run(*shlex.split(GIVEN.emulator), program)
            self.assertIn(": yes\n", printed)
            self.assertNotIn(": no\n", printed)
            self.assertEqual(kind == "VanticRestKit", needs_the_shared_library(program))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
